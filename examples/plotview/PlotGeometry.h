// SPDX-License-Identifier: MIT
#pragma once

#include "PlotReader.h"

#include <QtCore/QPointF>

#include <cmath>

inline double length(const QPointF &vector)
{
    return std::hypot(vector.x(), vector.y());
}

/// The direction a quarter turn counter-clockwise.
inline QPointF leftOf(const QPointF &direction)
{
    return QPointF(-direction.y(), direction.x());
}

/// Whether a plotter could go there.
inline bool isPlottable(const QPointF &position)
{
    return std::fabs(position.x()) <= PlotReader::LargestCoordinate
           && std::fabs(position.y()) <= PlotReader::LargestCoordinate;
}
