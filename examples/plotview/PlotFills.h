// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtCore/QPointF>
#include <QtGui/QImage>

#include <functional>
#include <vector>

/// Where the bucket was poured out, and what was in it.
struct PlotFill
{
    static constexpr int NoPen = 0;

    QPointF place;      ///< on the sheet: 0 is its left or upper edge, 1 the other one
    int pen = NoPen;    ///< whose ink it was, or a colour of its own

    /// Whether it would reach paper in a picture of the sheet: ink takes no other colour.
    bool isOnPaper(const QImage &picture, QRgb paper) const
    {
        const QPoint point = pixel(picture.size());
        return picture.valid(point) && picture.pixel(point) == paper;
    }

    QPoint pixel(const QSize &sheet) const
    {
        return QPoint(static_cast<int>(place.x() * sheet.width()),
                      static_cast<int>(place.y() * sheet.height()));
    }
};

using PlotFills = std::vector<PlotFill>;

/// What fills do to a picture of the sheet: an image that is transparent where nothing was filled, to be laid
/// under the drawing. It reaches a pixel under the lines around each area, whose edges are blended. A fill
/// that does not hit `paper`, the colour of it, is left out. `colourOf` says what a pen's ink becomes.
QImage filledLayer(const QImage &picture, QRgb paper, const PlotFills &fills,
                   const std::function<COLORREF(int pen)> &colourOf);
