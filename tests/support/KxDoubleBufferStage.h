// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QPainter>
#include <QtGui/QPaintEvent>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <afxwin.h>

/// \file
/// What the tests of the double buffer share: the buffer with its fields, a window that shows it, images.

inline constexpr auto pairFormat = QImage::Format_ARGB32_Premultiplied;

inline constexpr QRgb red = 0xFFFF0000;
inline constexpr QRgb green = 0xFF00FF00;
inline constexpr QRgb blue = 0xFF0000FF;

/// What is protected becomes nameable.
struct Buffer : KxGrQtDoubleBufferImage {
    using KxGrQtDoubleBufferImage::KxGrQtDoubleBufferImage;
    using KxGrQtDoubleBufferImage::destination;
    using KxGrQtDoubleBufferImage::m_backupBits;
    using KxGrQtDoubleBufferImage::m_frontBuffer;
    using KxGrQtDoubleBufferImage::m_frontImage;
    using KxGrQtDoubleBufferImage::m_frontPainter;
    using KxGrQtDoubleBufferImage::m_imagesCreated;
    using KxGrQtDoubleBufferImage::m_memBits;
    using KxGrQtDoubleBufferImage::m_memImage;
    using KxGrQtDoubleBufferImage::m_memPainter;
    using KxGrQtDoubleBufferImage::m_palette;
    using KxGrQtDoubleBufferImage::painterWrapper;
};

/// Shows the front image of its buffer and counts its paint events.
class Canvas : public QWidget
{
public:
    explicit Canvas(int width = 20, int height = 10) { resize(width, height); }

    /// On the screen, with nothing left to be painted.
    void settle()
    {
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
        QTRY_VERIFY(paints > 0);
        QCoreApplication::processEvents();
        paints = 0;
        painted = QRegion();
    }

    const KxGrQtDoubleBufferImage *buffer = nullptr; ///< Not owned; null paints nothing.
    int paints = 0;
    QRegion painted;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        painted = event->region();
        if (buffer && buffer->frontImage())
            QPainter(this).drawImage(0, 0, *buffer->frontImage());
    }
};

/// An image of one raw pixel value.
inline QImage plain(int width, int height, QRgb pixel)
{
    QImage image(width, height, pairFormat);
    image.fill(pixel);
    return image;
}

/// Raw pixels, all different, of every opacity: the alpha grows from left to right.
inline QImage pattern(int width, int height)
{
    QImage image(width, height, pairFormat);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int alpha = 255 * x / (width - 1);
            image.setPixel(x, y, qPremultiply(qRgba(255 - 9 * y, 40 + 7 * x, 20 * y + x, alpha)));
        }
    }
    return image;
}

inline QImage drawnOver(QImage below, const QImage &above)
{
    QPainter(&below).drawImage(0, 0, above);
    return below;
}

/// Fills a rectangle, right and bottom excluded.
inline void paint(KxQtPainterWrapper *painter, const CRect &rect, COLORREF color)
{
    QVERIFY(painter->beginDraw());
    painter->fillRect(rect, color);
    QVERIFY(painter->endDraw());
}

/// What an object has for good: compared before and after.
struct Painters {
    explicit Painters(const KxGrQtDoubleBufferImage &buffer)
        : memory(buffer.memPainter()), front(buffer.frontPainter()), palette(buffer.getHPalette())
    {
    }
    bool operator==(const Painters &other) const
    {
        return memory == other.memory && front == other.front && palette == other.palette;
    }

    KxQtPainterWrapper *memory;
    KxQtPainterWrapper *front;
    HPALETTE palette;
};
