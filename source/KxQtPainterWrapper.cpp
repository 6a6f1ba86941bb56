// SPDX-License-Identifier: MIT
#include "KxQtPainterWrapper.h"

#include "KxAfxGeometry.h"

#include <QtGui/QBrush>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygon>
#include <QtGui/QRegion>

#include <algorithm>
#include <cwchar>
#include <limits>

namespace {

// Points go to QPainter as they are.
static_assert(sizeof(tagPOINT) == sizeof(QPoint) && alignof(tagPOINT) == alignof(QPoint));
static_assert(sizeof(CPoint) == sizeof(QPoint));

const QPoint *toQPoints(const tagPOINT *points)
{
    return reinterpret_cast<const QPoint *>(points);
}

QPolygon toQPolygon(const tagPOINT *points, int n)
{
    QPolygon polygon(n);
    std::copy_n(toQPoints(points), n, polygon.begin());
    return polygon;
}

QColor toQColor(COLORREF colour)
{
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF, 255);
}

QVector<QRgb> shadesOfGrey()
{
    QVector<QRgb> shades;
    for (int i = 0; i < 256; ++i)
        shades.append(qRgb(i, i, i));
    return shades;
}

} // namespace

Qt::PenStyle LsToQPenStyle(int style)
{
    const int gdiStyle = style & 15;
    switch (gdiStyle) {
    case PS_SOLID: return Qt::SolidLine;
    case PS_DASH: return Qt::DashLine;
    case PS_DOT: return Qt::DotLine;
    case PS_DASHDOT: return Qt::DashDotLine;
    case PS_DASHDOTDOT: return Qt::DashDotDotLine;
    case PS_NULL: return Qt::NoPen;
    case PS_USERSTYLE: return Qt::CustomDashLine;
    default: return static_cast<Qt::PenStyle>(gdiStyle);
    }
}

// ---- KxQtPainterWrapper --------------------------------------------------------------------------------

KxQtPainterWrapper::KxQtPainterWrapper()
    : KxQtPainterWrapper(nullptr)
{
}

KxQtPainterWrapper::KxQtPainterWrapper(QPaintDevice *wrapped)
    : device(wrapped)
    , painter(new QPainter)
    , path(new QPainterPath)
    , clipRegion(new QRegion)
    , inPath(false)
{
}

KxQtPainterWrapper::~KxQtPainterWrapper()
{
    delete painter;
    delete path;
    delete clipRegion;
}

bool KxQtPainterWrapper::beginDraw()
{
    if (!device)
        return false;
    painter->begin(device);
    painter->save();
    setDefaults();
    applyClipRegion();
    return true;
}

bool KxQtPainterWrapper::endDraw()
{
    if (!device)
        return false;
    painter->restore();
    return painter->end();
}

void KxQtPainterWrapper::setDefaults()
{
    painter->setPen(QPen(Qt::black, 0, Qt::SolidLine));
    painter->setBrush(QBrush(Qt::black, Qt::SolidPattern));
}

void KxQtPainterWrapper::applyClipRegion()
{
    painter->setClipRegion(*clipRegion, clipRegion->isEmpty() ? Qt::NoClip : Qt::ReplaceClip);
}

void KxQtPainterWrapper::save()
{
    painter->save();
}

void KxQtPainterWrapper::restore()
{
    painter->restore();
}

void KxQtPainterWrapper::strokePath()
{
    painter->strokePath(*path, painter->pen());
    *path = QPainterPath();
}

void KxQtPainterWrapper::fillPath()
{
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->fillPath(*path, painter->brush());
    *path = QPainterPath();
}

void KxQtPainterWrapper::strokeAndFillPath()
{
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->strokePath(*path, painter->pen());
    painter->fillPath(*path, painter->brush());
    *path = QPainterPath();
}

int KxQtPainterWrapper::getROP2() const
{
    return painter->compositionMode();
}

void KxQtPainterWrapper::setROP2(int mode)
{
    // Qt looks up what it draws with in a table.
    if (mode >= QPainter::CompositionMode_SourceOver && mode <= QPainter::RasterOp_NotDestination)
        painter->setCompositionMode(static_cast<QPainter::CompositionMode>(mode));
}

void KxQtPainterWrapper::setPen(int style, int width, COLORREF colour)
{
    const Qt::PenStyle qtStyle = LsToQPenStyle(style);
    QPen pen(qtStyle);
    if (qtStyle == Qt::DashLine || qtStyle == Qt::CustomDashLine)
        pen.setDashPattern({12.0, 4.0});
    pen.setWidth(width);
    pen.setColor(toQColor(colour));
    painter->setPen(pen);
}

void KxQtPainterWrapper::setPenColor(COLORREF colour)
{
    QPen pen = painter->pen();
    pen.setColor(toQColor(colour));
    painter->setPen(pen);
}

void KxQtPainterWrapper::setBrush(const QBrush &brush)
{
    painter->setBrush(brush);
}

void KxQtPainterWrapper::setBrush(int style)
{
    painter->setBrush(static_cast<Qt::BrushStyle>(style));
}

void KxQtPainterWrapper::setBrush(unsigned int colour)
{
    painter->setBrush(QBrush(toQColor(colour), Qt::SolidPattern));
}

void KxQtPainterWrapper::setBkMode(int mode)
{
    painter->setBackgroundMode(static_cast<Qt::BGMode>(mode - 1));
}

void KxQtPainterWrapper::setBackground(unsigned int colour)
{
    painter->setBackground(QBrush(toQColor(colour), Qt::SolidPattern));
}

void KxQtPainterWrapper::setFontIndirect(const tagLOGFONTW *font)
{
    const auto faceLength = wcsnlen(font->lfFaceName, LF_FACESIZE);
    QFont chosen(QString::fromWCharArray(font->lfFaceName, static_cast<int>(faceLength)), -1, -1, false);
    chosen.setItalic(font->lfItalic != 0);
    if (font->lfWeight != 0)
        chosen.setWeight(font->lfWeight / 10);
    // The weight in the place of a missing height is meant.
    const int height = font->lfHeight > 0 ? font->lfHeight : font->lfWeight;
    const double pixels = static_cast<double>(device->depth()) * height / 36.0;
    constexpr double Most = std::numeric_limits<int>::max();
    chosen.setPixelSize(static_cast<int>(std::clamp(pixels, -Most, Most)));
    chosen.setFixedPitch(font->lfPitchAndFamily == FIXED_PITCH);
    painter->setFont(chosen);
}

void KxQtPainterWrapper::setClipRegion(tagPOINT *points, unsigned int *counts, unsigned int polygonCount)
{
    QRegion region;
    if (points && counts && polygonCount != 0) {
        QPainterPath polygons;
        const tagPOINT *next = points;
        for (unsigned int i = 0; i < polygonCount; ++i) {
            polygons.addPolygon(QPolygonF(toQPolygon(next, static_cast<int>(counts[i]))));
            next += counts[i];
        }
        region = QRegion(polygons.toFillPolygon(QTransform()).toPolygon(), Qt::OddEvenFill);
    }
    *clipRegion = region;
    if (painter->isActive())
        applyClipRegion();
}

void KxQtPainterWrapper::Rotate(double angle, int x, int y)
{
    painter->translate(x, y);
    painter->rotate(angle);
}

void KxQtPainterWrapper::drawPoint(int x, int y)
{
    painter->drawPoint(x, y);
}

void KxQtPainterWrapper::drawLine(int x1, int y1, int x2, int y2)
{
    painter->drawLine(x1, y1, x2, y2);
}

void KxQtPainterWrapper::drawPolyline(const tagPOINT *points, int n)
{
    if (n < 1)
        return;
    const QPoint *corners = toQPoints(points);
    if (inPath) {
        path->addPolygon(QPolygonF(toQPolygon(points, n)));
    } else if (corners[0] == corners[n - 1]
               && painter->compositionMode() == QPainter::RasterOp_SourceXorDestination) {
        painter->save();
        painter->setBrush(Qt::NoBrush);
        painter->drawPolygon(corners, n - 1, Qt::OddEvenFill);
        painter->restore();
    } else {
        painter->drawPolyline(corners, n);
    }
}

void KxQtPainterWrapper::drawPolygon(const tagPOINT *points, int n)
{
    if (n >= 1)
        painter->drawPolygon(toQPoints(points), n, Qt::OddEvenFill);
}

void KxQtPainterWrapper::drawText(int x, int y, const wchar_t *text, int length)
{
    if (text)
        painter->drawText(x, y, QString::fromWCharArray(text, length));
}

void KxQtPainterWrapper::setAlphaBrush(unsigned int colour, int alpha)
{
    if (alpha >= 1) {
        QColor shade = toQColor(colour);
        shade.setAlpha(alpha);
        painter->setBrush(QBrush(shade, Qt::SolidPattern));
    } else {
        painter->setBrush(Qt::NoBrush);
    }
}

void KxQtPainterWrapper::drawAlphaRect(const CRect &rect, unsigned int colour, int alpha)
{
    setAlphaBrush(colour, alpha);
    const QPoint leftTop(rect.left, rect.top);
    const QPoint rightBottom(rect.right, rect.bottom);
    // Both corners are QRect's, inclusive; the order of the vertical edges alone decides which is which.
    painter->drawRect(rect.left >= rect.right ? QRect(rightBottom, leftTop) : QRect(leftTop, rightBottom));
}

void KxQtPainterWrapper::drawAlphaArea(const CPoint *points, int n, unsigned int colour, int alpha)
{
    if (n < 1)
        return;
    setAlphaBrush(colour, alpha);
    drawPolygon(points, n);
}

void KxQtPainterWrapper::drawImage(int a, int b, unsigned char *bits, int, int, int format)
{
    if (format <= QImage::Format_Invalid || format >= QImage::NImageFormats)
        return;
    QImage image(bits, a, b, static_cast<QImage::Format>(format));
    // Over memory of the caller's, QImage makes no colour table, and Qt's raster engine reads one.
    if (image.depth() == 1)
        image.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    else if (format == QImage::Format_Indexed8)
        image.setColorTable(shadesOfGrey());
    // Size and position are the same two numbers, as the callers know it.
    painter->drawImage(a, b, image);
}

void KxQtPainterWrapper::drawImage(const QRect &rect, const QImage &image)
{
    painter->drawImage(rect, image);
}

void KxQtPainterWrapper::fillRect(const CRect &rect, unsigned int colour)
{
    painter->fillRect(rect.left, rect.top, rect.Width(), rect.Height(), toQColor(colour));
}

// ---- KxQtPrinterPainter --------------------------------------------------------------------------------

KxQtPrinterPainter::KxQtPrinterPainter(QPaintDevice *wrapped)
    : KxQtPainterWrapper(wrapped)
{
    if (device)
        painter->begin(device);
}

KxQtPrinterPainter::~KxQtPrinterPainter()
{
    if (painter->isActive())
        painter->end();
}

bool KxQtPrinterPainter::beginDraw()
{
    if (!device)
        return false;
    painter->save();
    setDefaults();
    return true;
}

bool KxQtPrinterPainter::endDraw()
{
    if (!device)
        return false;
    painter->restore();
    return true;
}

// ---- KxQtPaintDeviceWrapper ----------------------------------------------------------------------------

KxQtPaintDeviceWrapper::KxQtPaintDeviceWrapper()
    : KxQtPaintDeviceWrapper(nullptr)
{
}

KxQtPaintDeviceWrapper::KxQtPaintDeviceWrapper(QPaintDevice *device)
    : destination(device)
    , painterWrapper(nullptr)
{
}

KxQtPaintDeviceWrapper::~KxQtPaintDeviceWrapper()
{
    delete painterWrapper;
}

int KxQtPaintDeviceWrapper::width() const
{
    return destination->width();
}

int KxQtPaintDeviceWrapper::height() const
{
    return destination->height();
}

int KxQtPaintDeviceWrapper::depth() const
{
    return destination->depth();
}

KxQtPainterWrapper *KxQtPaintDeviceWrapper::painter()
{
    if (!painterWrapper)
        painterWrapper = new KxQtPainterWrapper(destination);
    return painterWrapper;
}

// ---- KxQtGrDCAutoSaver ---------------------------------------------------------------------------------

KxQtGrDCAutoSaver::KxQtGrDCAutoSaver(HDC painterWrapper)
    : dc(nullptr)
    , backup(nullptr)
{
    auto *wrapper = static_cast<KxQtPainterWrapper *>(painterWrapper);
    const auto *image = wrapper ? dynamic_cast<QImage *>(wrapper->wrappedDevice()) : nullptr;
    if (image) {
        dc = wrapper;
        backup = new QImage(image->copy());
    }
}

KxQtGrDCAutoSaver::~KxQtGrDCAutoSaver()
{
    const auto *image = dc ? dynamic_cast<QImage *>(dc->wrappedDevice()) : nullptr;
    if (image) {
        dc->beginDraw();
        dc->drawImage(image->rect(), *backup);
        dc->endDraw();
    }
    delete backup;
}
