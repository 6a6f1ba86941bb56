// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"

#include <optional>

/// The sheet in the plotter: takes what the pens draw, in plotter units, cuts it to the window, turns it as
/// the coordinate system is turned, and stops taking at the reader's limits.
class PlotPaper
{
public:
    PlotPaper();

    Plot &plot() { return m_plot; }

    /// Nothing outside is drawn; without a window, everything is.
    void setWindow(const std::optional<QRectF> &window) { m_window = window; }
    void setRotation(int quarterTurns) { m_quarterTurns = quarterTurns; }

    /// Sets `points` aside for a stroke or area; false, and the plot incomplete, when too few are left.
    bool takePoints(int points);

    void addStroke(const PlotStroke &stroke);
    void addArea(const PlotArea &area);
    void addLabel(const PlotLabel &label);

private:
    QPointF turned(const QPointF &position) const;
    QPolygonF turned(const QPolygonF &points) const;
    void keepStroke(const PlotStroke &stroke, const QPolygonF &points);
    void keepStrokeInside(const QRectF &window, const PlotStroke &stroke);
    bool takeCharacters(int characters);

    Plot m_plot;
    std::optional<QRectF> m_window;
    int m_quarterTurns = 0;
    int m_pointsLeft;
    int m_charactersLeft;
};
