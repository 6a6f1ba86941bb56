// SPDX-License-Identifier: MIT
#include "SheetSurface.h"

#include "GdiFont.h"
#include "ResourceText.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int Fractions = 16;       // of a pixel
constexpr double Farthest = 1e8;    // what the painter's numbers have room for, with some to spare

int rounded(double number)
{
    return static_cast<int>(std::lround(std::clamp(number, -Farthest, Farthest)));
}

// What a pen of ExtCreatePen() has beyond one of CreatePen(): round ends, and dashes of any length.
void refine(QPainter &painter, const QVector<double> &dashes)
{
    QPen pen = painter.pen();
    pen.setJoinStyle(Qt::RoundJoin);
    pen.setCapStyle(pen.style() == Qt::SolidLine ? Qt::RoundCap : Qt::FlatCap);
    if (!dashes.isEmpty())
        pen.setDashPattern(dashes);
    painter.setPen(pen);
}

} // namespace

SheetSurface::SheetSurface(KxQtPainterWrapper &painter, const QRect &target, const QSizeF &sheet,
                           const QVector<QRectF> &areas)
    : m_painter(painter)
    , m_origin(QPointF(target.topLeft()) * Fractions)
    , m_scale(Fractions * target.width() / sheet.width(), Fractions * target.height() / sheet.height())
    , m_pixelsPerMillimetre(target.width() / sheet.width())
{
    m_painter.save();
    std::vector<CPoint> corners;
    std::vector<UINT> counts;
    for (const QRectF &area : areas) {
        const QPolygonF outline({area.topLeft(), area.topRight(), area.bottomRight(), area.bottomLeft()});
        for (const CPoint &corner : points(outline))
            corners.emplace_back(rounded(1.0 * corner.x / Fractions), rounded(1.0 * corner.y / Fractions));
        counts.push_back(4);
    }
    m_painter.setClipRegion(corners.data(), counts.data(), static_cast<UINT>(counts.size()));
    QPainter &wrapped = *m_painter.wrappedPainter();
    wrapped.setRenderHint(QPainter::Antialiasing);
    wrapped.scale(1.0 / Fractions, 1.0 / Fractions);
}

// The painter would go on with the clip region the next time it begins to draw.
SheetSurface::~SheetSurface()
{
    m_painter.setClipRegion(nullptr, nullptr, 0);
    m_painter.restore();
}

CPoint SheetSurface::point(const QPointF &position) const
{
    return CPoint(rounded(m_origin.x() + position.x() * m_scale.width()),
                  rounded(m_origin.y() + position.y() * m_scale.height()));
}

std::vector<CPoint> SheetSurface::points(const QPolygonF &line) const
{
    std::vector<CPoint> result;
    result.reserve(static_cast<std::size_t>(line.size()));
    for (const QPointF &position : line)
        result.push_back(point(position));
    return result;
}

int SheetSurface::length(double millimetres) const
{
    return std::max(1, rounded(millimetres * m_scale.width()));
}

void SheetSurface::setPen(const SheetPen &pen)
{
    const int width = length(pen.width);
    QVector<double> dashes;
    for (const double dash : pen.dashes)
        dashes.append(dash * m_scale.width() / width);
    m_painter.setPen(pen.style, width, toColorRef(pen.colour));
    refine(*m_painter.wrappedPainter(), dashes);
}

void SheetSurface::drawLine(const QLineF &line)
{
    const CPoint from = point(line.p1());
    const CPoint to = point(line.p2());
    m_painter.drawLine(from.x, from.y, to.x, to.y);
}

void SheetSurface::drawLines(const QVector<QLineF> &lines)
{
    for (const QLineF &line : lines)
        drawLine(line);
}

void SheetSurface::drawDots(const QPolygonF &places)
{
    for (const QPointF &place : places) {
        const CPoint dot = point(place);
        m_painter.drawPoint(dot.x, dot.y);
    }
}

void SheetSurface::drawPolyline(const QPolygonF &line)
{
    const std::vector<CPoint> corners = points(line);
    m_painter.drawPolyline(corners.data(), static_cast<int>(corners.size()));
}

void SheetSurface::collect(const QVector<QPolygonF> &outlines)
{
    m_painter.beginPath();
    for (const QPolygonF &outline : outlines) {
        // A path has to be told that it comes back to where it began.
        QPolygonF closed = outline;
        if (!closed.isEmpty() && !closed.isClosed())
            closed.append(closed.first());
        drawPolyline(closed);
    }
    m_painter.endPath();
}

void SheetSurface::fill(const QVector<QPolygonF> &outlines, const QColor &colour)
{
    m_painter.setBrush(toColorRef(colour));
    collect(outlines);
    m_painter.fillPath();
}

void SheetSurface::fillWithBorder(const QVector<QPolygonF> &outlines, const QColor &colour)
{
    m_painter.setBrush(toColorRef(colour));
    collect(outlines);
    m_painter.strokeAndFillPath();
}

// One polygon for all outlines: from each of them the line goes back to where it started, and the ways there
// and back enclose nothing.
void SheetSurface::shade(const QVector<QPolygonF> &outlines, const QColor &colour, int alpha)
{
    QPolygonF joined;
    for (const QPolygonF &outline : outlines) {
        if (outline.isEmpty())
            continue;
        joined += outline;
        joined << outline.first() << joined.first();
    }
    const std::vector<CPoint> corners = points(joined);
    m_painter.save();
    m_painter.setPen(PS_NULL, 0, 0);
    m_painter.drawAlphaArea(corners.data(), static_cast<int>(corners.size()), toColorRef(colour), alpha);
    m_painter.restore();
}

void SheetSurface::setFont(double size, int weight)
{
    setGdiFont(m_painter, length(size), weight);
}

double SheetSurface::textWidth(const QString &text) const
{
    return m_painter.wrappedPainter()->fontMetrics().horizontalAdvance(text) / m_scale.width();
}

void SheetSurface::drawText(const QPointF &position, const QString &text, double angle)
{
    const CPoint start = point(position);
    m_painter.save();
    m_painter.Rotate(angle, start.x, start.y);
    m_painter.drawText(0, 0, toCString(text), -1);
    m_painter.restore();
}
