// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"
#include "PlotLayer.h"
#include "PlotOptions.h"
#include "PlotSheet.h"

#include <QtGui/QColor>
#include <QtGui/QTransform>

class QPainter;

/// Draws a plot on its sheet of paper.
class PlotSheetPainter
{
public:
    PlotSheetPainter(const Plot &plot, const PlotSheet &sheet, const PlotPens &pens = PlotPens());

    /// What paint() leaves out.
    void setHidden(const PlotHiddenLayers &hidden) { m_hidden = hidden; }

    /// Of the sheet, in millimetres.
    QSizeF sheetSize() const { return m_sheetSize; }

    /// Draws the sheet into `target`, which has its proportions, in the painter's coordinates.
    void paint(QPainter &painter, const QRectF &target) const;

    /// Draws a few marks once more over what paint() drew, so that they stand out: all else fades, or they
    /// get a bright border.
    void paintSelected(QPainter &painter, const QRectF &target, const PlotMarks &marks, bool fade) const;

    /// What a pen draws with on this paper: the user's choice, the plot's or the paper's, in this order.
    QColor penColour(int pen) const;
    QColor paperColour() const;

private:
    void beginSheet(QPainter &painter, const QRectF &target) const;
    void paintMarks(QPainter &painter, const PlotMarks &marks) const;
    bool isHidden(int pen, PlotLayer::Kind kind) const { return m_hidden.count({pen, kind}) > 0; }
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
    PlotPens m_pens;
    PlotHiddenLayers m_hidden;
    QColor m_border;            // valid while the borders of selected marks are drawn
    double m_extraWidth = 0;    // millimetres, of selected marks
    QRectF m_bounds;
    QSizeF m_sheetSize;
    QTransform m_toSheet;       // plotter units to millimetres from the sheet's upper left corner
    double m_millimetresPerUnit = 0;
};
