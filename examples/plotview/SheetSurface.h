// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtCore/QLineF>
#include <QtCore/QSizeF>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <QtGui/QPolygonF>

#include <vector>

inline COLORREF toColorRef(const QColor &colour)
{
    return RGB(colour.red(), colour.green(), colour.blue());
}

/// A pen in the sheet's measures.
struct SheetPen
{
    QColor colour;
    double width = 0;           ///< millimetres
    int style = PS_SOLID;
    QVector<double> dashes;     ///< drawn and gap in turn, millimetres; without them the style's own
};

/// A sheet of paper on a painter: everything is in millimetres from the sheet's upper left corner.
///
/// The painter counts in whole numbers. While there is a surface they are fractions of a pixel, as a mapping
/// mode would make them, so that a fine drawing keeps its shape.
class SheetSurface
{
public:
    /// The sheet takes up `target`, in pixels; only `areas` of it, which must not overlap, are drawn on. The
    /// painter has to be drawing, and draws as before when the surface is gone.
    SheetSurface(KxQtPainterWrapper &painter, const QRect &target, const QSizeF &sheet,
                 const QVector<QRectF> &areas);
    ~SheetSurface();
    SheetSurface(const SheetSurface &) = delete;
    SheetSurface &operator=(const SheetSurface &) = delete;

    double pixelsPerMillimetre() const { return m_pixelsPerMillimetre; }

    void setPen(const SheetPen &pen);
    void drawLine(const QLineF &line);
    void drawLines(const QVector<QLineF> &lines);
    void drawDots(const QPolygonF &places);
    void drawPolyline(const QPolygonF &line);

    /// Fills what an odd number of outlines encloses.
    void fill(const QVector<QPolygonF> &outlines, const QColor &colour);
    /// The same with a border in the pen's width.
    void fillWithBorder(const QVector<QPolygonF> &outlines, const QColor &colour);
    /// Lets what is there shine through; `alpha` is 1 to 255.
    void shade(const QVector<QPolygonF> &outlines, const QColor &colour, int alpha);

    /// A font that is `size` millimetres high, ascenders and descenders included.
    void setFont(double size, int weight);
    double textWidth(const QString &text) const;
    /// In the pen's colour, from the left end of the base line on; `angle` in degrees, clockwise.
    void drawText(const QPointF &position, const QString &text, double angle = 0);

private:
    CPoint point(const QPointF &position) const;
    std::vector<CPoint> points(const QPolygonF &line) const;
    int length(double millimetres) const;
    void collect(const QVector<QPolygonF> &outlines);

    KxQtPainterWrapper &m_painter;
    QPointF m_origin;           // of the sheet, in the painter's numbers
    QSizeF m_scale;             // of them to a millimetre
    double m_pixelsPerMillimetre;
};
