// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxGeometry.h"
#include "KxQtPainterWrapper.h"

#include <QtCore/QMetaType>
#include <QtCore/QRect>
#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtTest/QtTest>

#include <functional>

/// \file
/// The same picture drawn twice, by a painter wrapper and by a bare QPainter, to be compared pixel by pixel.

/// What a painter wrapper keeps, nameable.
struct KxPainterFields : KxQtPainterWrapper {
    using KxQtPainterWrapper::KxQtPainterWrapper;
    using KxQtPainterWrapper::clipRegion;
    using KxQtPainterWrapper::device;
    using KxQtPainterWrapper::inPath;
    using KxQtPainterWrapper::painter;
    using KxQtPainterWrapper::path;
};

using KxDraw = std::function<void(KxQtPainterWrapper &)>;
using KxModel = std::function<void(QPainter &)>;
Q_DECLARE_METATYPE(KxDraw)
Q_DECLARE_METATYPE(KxModel)

/// What every canvas is filled with: no component is 0 or 255, so that raster operations show in all of them.
constexpr QRgb kxCanvasColour = 0xFFE8D0A0U;

inline QImage kxCanvas(int width = 48, int height = 40, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(width, height, format);
    image.fill(kxCanvasColour);
    return image;
}

/// The state that an episode of drawing starts with, set up by hand; no clip.
inline void kxOpen(QPainter &painter, QImage &image)
{
    painter.begin(&image);
    painter.save();
    QPen pen(Qt::SolidLine);
    pen.setColor(QColor(0, 0, 0, 255));
    pen.setWidth(0);
    painter.setPen(pen);
    painter.setBrush(QBrush(QColor(0, 0, 0, 255), Qt::SolidPattern));
}

/// What a painter wrapper makes of `image` in one episode; a null image if it cannot be opened or closed.
inline QImage kxDrawn(const KxDraw &draw, QImage image = kxCanvas())
{
    KxQtPainterWrapper wrapper(&image);
    if (!wrapper.beginDraw())
        return {};
    draw(wrapper);
    if (!wrapper.endDraw())
        return {};
    return image;
}

/// What a bare QPainter makes of it.
inline QImage kxModelled(const KxModel &model, QImage image = kxCanvas())
{
    QPainter painter;
    kxOpen(painter, image);
    model(painter);
    painter.restore();
    painter.end();
    return image;
}

/// How many pixels have exactly this colour.
inline int kxCount(const QImage &image, QRgb colour)
{
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            found += image.pixel(x, y) == colour ? 1 : 0;
    }
    return found;
}

/// How many pixels of a canvas were drawn on.
inline int kxTouched(const QImage &image)
{
    return image.width() * image.height() - kxCount(image, kxCanvasColour);
}

/// The smallest rectangle around them.
inline QRect kxTouchedRect(const QImage &image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != kxCanvasColour)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

/// Columns of a row that draws one picture both ways.
inline void kxAddPictureColumns()
{
    QTest::addColumn<KxDraw>("draw");
    QTest::addColumn<KxModel>("model");
    QTest::addColumn<int>("touched");
}

/// `touched` says how many pixels of the canvas the picture covers; -1 for any number but 0.
inline void kxAddPicture(const char *name, const KxDraw &draw, const KxModel &model, int touched = -1)
{
    QTest::newRow(name) << draw << model << touched;
}

/// The body of a test whose rows are pictures.
inline void kxComparePictures()
{
    QFETCH(KxDraw, draw);
    QFETCH(KxModel, model);
    QFETCH(int, touched);
    const QImage picture = kxDrawn(draw);
    QVERIFY(!picture.isNull());
    QCOMPARE(picture, kxModelled(model));
    if (touched < 0)
        QVERIFY(kxTouched(picture) > 0);
    else
        QCOMPARE(kxTouched(picture), touched);
}

/// What Qt's logging gets during a call, in order.
inline QStringList kxMessagesOf(const std::function<void()> &call)
{
    static QStringList messages;
    messages.clear();
    const QtMessageHandler handler = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { messages.append(text); });
    call();
    qInstallMessageHandler(handler);
    return messages;
}
