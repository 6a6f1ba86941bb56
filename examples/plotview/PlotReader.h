// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>

/// What came of reading a plot file.
struct PlotReading
{
    enum Result {
        Ok,             ///< `plot` holds what could be read; its skippedCount tells of damage
        Unreadable,     ///< the file does not exist, or the system refuses it
        Empty,          ///< no bytes, or only blanks
        TooLarge,       ///< more than PlotReader::LargestFile bytes
        NoInstructions, ///< nothing in it is HP-GL
        Cancelled       ///< the PlotProgress said so
    };

    Result result = Ok;
    Plot plot;
};

/// Is told now and then how many bytes were read, and of how many; 0 when nobody knows. Answers whether to go
/// on.
using PlotProgress = std::function<bool(qint64 done, qint64 total)>;

/// Reads HP-GL, the plotters' text format. Bad input never fails hard: what is unknown or damaged is skipped
/// and counted. Time is bounded by the size of the input, memory by what is kept of it and the limits below.
class PlotReader
{
public:
    static constexpr int LargestFile = 64 * 1024 * 1024;
    static constexpr int MostPoints = 2 * 1000 * 1000;      ///< of all strokes and areas of one plot
    static constexpr int MostCharacters = 1000 * 1000;      ///< of all labels of one plot
    static constexpr int LongestLabel = 1024;               ///< longer ones are cut
    static constexpr int LargestPen = 255;
    static constexpr double LargestCoordinate = 8388608.0;  ///< plotter units, either side of the origin

    static PlotReading readFile(const QString &path, const PlotProgress &progress = PlotProgress());
    static PlotReading readBytes(const QByteArray &bytes);
};
