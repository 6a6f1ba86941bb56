// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"

#include <QtCore/QByteArray>

#include <vector>

/// Strokes as a block of bytes. All numbers are little-endian, reals of 64 bits:
///
/// - a header of 16 bytes: "PLST", the version, the size of the whole block, the number of strokes;
/// - for each stroke 28 bytes: pen, line type, pattern length, width, the number of points;
/// - behind them the stroke's points, 16 bytes each: x, y.
class PlotStrokeBlock
{
public:
    static constexpr quint32 Version = 1;

    static QByteArray write(const std::vector<PlotStroke> &strokes);

    /// Reads a block from anywhere. Bytes behind it do not matter, as whoever allocates memory may give more
    /// than was asked for. \return false when it is no block, of another version, not all there, or holds
    /// strokes that no plotter draws; `strokes` stay what they were then
    static bool read(const QByteArray &bytes, std::vector<PlotStroke> &strokes);
};
