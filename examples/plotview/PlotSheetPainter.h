// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"
#include "PlotSheet.h"

#include <QtGui/QColor>
#include <QtGui/QTransform>

class QPainter;

/// Draws a plot on its sheet of paper.
class PlotSheetPainter
{
public:
    PlotSheetPainter(const Plot &plot, const PlotSheet &sheet);

    /// Of the sheet, in millimetres.
    QSizeF sheetSize() const { return m_sheetSize; }

    /// Draws the sheet into `target`, which has its proportions, in the painter's coordinates.
    void paint(QPainter &painter, const QRectF &target) const;

    /// What a pen draws with on this paper.
    QColor penColour(int pen) const;
    QColor paperColour() const;

private:
    void paintPaper(QPainter &painter) const;
    void paintTitle(QPainter &painter) const;
    void paintArea(QPainter &painter, const PlotArea &area) const;
    void paintStroke(QPainter &painter, const PlotStroke &stroke) const;
    void paintLabel(QPainter &painter, const PlotLabel &label) const;

    QRectF plotRect() const;
    QTransform plotToSheet() const;
    QPen pen(const QPainter &painter, int number, double width = 0) const;

    const Plot &m_plot;
    PlotSheet m_sheet;
    QRectF m_bounds;
    QSizeF m_sheetSize;
    QTransform m_toSheet;       // plotter units to millimetres from the sheet's upper left corner
    double m_millimetresPerUnit = 0;
};
