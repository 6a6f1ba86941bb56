// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotFills.h"

#include "FloodFill.h"

namespace {

class Pixels
{
public:
    explicit Pixels(const QImage &image) : m_image(image) {}

    QRgb at(int x, int y) const { return reinterpret_cast<const QRgb *>(m_image.constScanLine(y))[x]; }

private:
    const QImage &m_image;
};

QImage difference(const QImage &before, const QImage &after)
{
    QImage layer(after.size(), QImage::Format_ARGB32_Premultiplied);
    const Pixels from(before);
    const Pixels to(after);
    const QRect all = after.rect();
    const auto filled = [&](int x, int y) {
        return all.contains(x, y) && from.at(x, y) != to.at(x, y) ? to.at(x, y) : 0;
    };
    for (int y = 0; y < all.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(layer.scanLine(y));
        for (int x = 0; x < all.width(); ++x) {
            row[x] = filled(x, y);
            for (const QPoint &side : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
                if (row[x] == 0)
                    row[x] = filled(x + side.x(), y + side.y());
            }
        }
    }
    return layer;
}

} // namespace

QImage filledLayer(const QImage &picture, QRgb paper, const PlotFills &fills,
                   const std::function<COLORREF(int pen)> &colourOf)
{
    const QRect all(QPoint(0, 0), picture.size());
    CDibData dib;
    HDC hDC = nullptr;
    HBITMAP hBitmap = nullptr;
    dib.makeBitmap(hDC, hBitmap, all.width(), all.height(), nullptr);
    auto *pPainter = static_cast<KxQtPainterWrapper *>(hDC);
    pPainter->beginDraw();
    pPainter->drawImage(all, picture);
    pPainter->endDraw();

    const auto &bitmap = *static_cast<const QImage *>(pPainter->wrappedDevice());
    const QImage before = bitmap.copy();
    CFloodFill bucket(dib);
    for (const PlotFill &fill : fills) {
        const QPoint seed = fill.pixel(all.size());
        if (fill.isOnPaper(picture, paper))
            bucket.Fill(CPoint(seed.x(), seed.y()), colourOf(fill.pen));
    }
    return difference(before, bitmap);
}
