// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRectF>
#include <QtCore/QSizeF>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QPolygonF>
#include <QtGui/QRgb>

#include <map>
#include <vector>

/// What a pen drew between going down and coming up. A stroke of one point is a dot.
struct PlotStroke
{
    static constexpr int SolidLine = -1;
    static constexpr int LargestLineType = 8;

    int pen = 1;
    int lineType = SolidLine;   ///< 0 (dots at the points) to LargestLineType, or SolidLine
    double patternLength = 0;   ///< length of one dash pattern in plotter units
    double width = 0;           ///< millimetres; 0 is the pen's own
    QPolygonF points;
};

/// A shaded area.
struct PlotArea
{
    enum Fill { Solid, Hatch, CrossHatch };

    int pen = 1;
    Fill fill = Solid;
    double spacing = 0;         ///< between hatch lines, plotter units
    double angle = 0;           ///< of the hatch lines, degrees
    QVector<QPolygonF> outlines;
};

/// A line of text. It runs from `position`, the left end of its base line, along `direction`.
struct PlotLabel
{
    int pen = 1;
    QPointF position;
    QSizeF characterSize;       ///< of a capital letter, plotter units; negative sizes mirror
    double direction = 0;       ///< degrees, counter-clockwise from the x axis
    double slant = 0;           ///< tangent of the letters' lean
    QString text;

    /// Its corners: from the base line's ends to the height of capital letters.
    QPolygonF box() const;

    /// A character takes this many character widths, a line this many character heights.
    static constexpr double CellWidth = 1.5;
    static constexpr double CellHeight = 2.0;
};

/// A plot as the pens leave it on the paper. Coordinates are plotter units of 0.025 mm, y upwards.
struct Plot
{
    static constexpr double UnitsPerMillimetre = 40.0;

    std::vector<PlotStroke> strokes;
    std::vector<PlotArea> areas;
    std::vector<PlotLabel> labels;
    std::map<int, QRgb> penColours; ///< of the pens whose colour the file sets
    int instructionCount = 0;       ///< understood and carried out
    int skippedCount = 0;           ///< unknown, damaged or out of range
    int damagedCount = 0;           ///< those of them that were not just unknown
    bool complete = true;           ///< false when the reader's limits cut the plot short

    bool isBlank() const { return strokes.empty() && areas.empty() && labels.empty(); }

    /// What each pen that touched the paper drew: strokes, areas and labels together.
    std::map<int, int> marksByPen() const;
    QRectF bounds() const;
    /// Of all strokes and areas together.
    qint64 pointCount() const;
};

/// The points of all strokes.
qint64 pointCount(const std::vector<PlotStroke> &strokes);
