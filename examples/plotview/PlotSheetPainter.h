// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"
#include "PlotFills.h"
#include "PlotLayer.h"
#include "PlotOptions.h"
#include "PlotSheet.h"

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QTransform>

class KxQtPainterWrapper;
class SheetSurface;
struct SheetPen;

/// Draws a plot on its sheet of paper. Painters are given while they draw; `target` is where the sheet goes,
/// in pixels, and has its proportions.
class PlotSheetPainter
{
public:
    PlotSheetPainter(const Plot &plot, const PlotSheet &sheet, const PlotPens &pens = PlotPens());

    /// What paint() leaves out.
    void setHidden(const PlotHiddenLayers &hidden) { m_hidden = hidden; }
    /// What lies between paper and drawing, see filledWith(); a null image is nothing.
    void setFilled(const QImage &layer) { m_filled = layer; }

    /// Of the sheet, in millimetres.
    QSizeF sheetSize() const { return m_sheetSize; }

    void paint(KxQtPainterWrapper &painter, const QRect &target) const;

    /// Draws a few marks once more over what paint() drew, so that they stand out: all else fades, or they
    /// get a bright border.
    void paintSelected(KxQtPainterWrapper &painter, const QRect &target, const PlotMarks &marks,
                       bool fade) const;

    /// The drawing on paper without its printed lines, which would hold up what is poured on it.
    QImage picture(const QSize &size) const;
    /// What fills make of that picture, see filledLayer(); a null image without fills.
    QImage filledWith(const PlotFills &fills, const QSize &size) const;

    /// The visible marks of which all is inside of a part of the target.
    PlotMarks marksInside(const QRect &part, const QRect &target) const;

    /// What a pen draws with on this paper: the user's choice, the plot's or the paper's, in this order.
    QColor penColour(int pen) const;
    QColor paperColour() const;

private:
    void paintDrawing(KxQtPainterWrapper &painter, const QRect &target) const;
    void paintPaperLines(SheetSurface &sheet) const;
    void paintTitle(SheetSurface &sheet) const;
    void paintMarks(SheetSurface &sheet, const PlotMarks &marks) const;
    void paintArea(SheetSurface &sheet, const PlotArea &area) const;
    void paintStroke(SheetSurface &sheet, const PlotStroke &stroke) const;
    void paintLabel(SheetSurface &sheet, const PlotLabel &label) const;
    void shadeMarks(SheetSurface &sheet, const PlotMarks &marks) const;

    bool isHidden(int pen, PlotLayer::Kind kind) const { return m_hidden.count({pen, kind}) > 0; }
    QRectF plotRect() const;
    QRectF titleRect() const;
    QVector<QRectF> printedAreas() const;
    QVector<QPolygonF> toSheet(const QVector<QPolygonF> &outlines) const;
    QTransform plotToSheet() const;
    SheetPen pen(const SheetSurface &sheet, int number, double width = 0) const;

    const Plot &m_plot;
    PlotSheet m_sheet;
    PlotPens m_pens;
    PlotHiddenLayers m_hidden;
    QImage m_filled;
    QColor m_border;            // valid while the borders of selected marks are drawn
    double m_extraWidth = 0;    // millimetres, of selected marks
    QRectF m_bounds;
    QSizeF m_sheetSize;
    QTransform m_toSheet;       // plotter units to millimetres from the sheet's upper left corner
    double m_millimetresPerUnit = 0;
};
