// SPDX-License-Identifier: MIT
#include "Plot.h"

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

class Extent
{
public:
    void add(const QPointF &point)
    {
        m_left = std::min(m_left, point.x());
        m_right = std::max(m_right, point.x());
        m_bottom = std::min(m_bottom, point.y());
        m_top = std::max(m_top, point.y());
    }

    void add(const QPolygonF &points)
    {
        for (const QPointF &point : points)
            add(point);
    }

    QRectF rect() const
    {
        return m_left <= m_right ? QRectF(QPointF(m_left, m_bottom), QPointF(m_right, m_top)) : QRectF();
    }

private:
    double m_left = std::numeric_limits<double>::infinity();
    double m_right = -std::numeric_limits<double>::infinity();
    double m_bottom = std::numeric_limits<double>::infinity();
    double m_top = -std::numeric_limits<double>::infinity();
};

} // namespace

QPolygonF PlotLabel::box() const
{
    const double angle = qDegreesToRadians(direction);
    const QPointF along(std::cos(angle), std::sin(angle));
    const QPointF up(-along.y(), along.x());
    const double gap = (CellWidth - 1.0) * characterSize.width();
    const QPointF end = position + along * (CellWidth * characterSize.width() * text.size() - gap);
    const QPointF rise = up * characterSize.height();
    return {{position, end, end + rise, position + rise}};
}

std::map<int, int> Plot::marksByPen() const
{
    std::map<int, int> marks;
    for (const PlotStroke &stroke : strokes)
        ++marks[stroke.pen];
    for (const PlotArea &area : areas)
        ++marks[area.pen];
    for (const PlotLabel &label : labels)
        ++marks[label.pen];
    return marks;
}

QRectF Plot::bounds() const
{
    Extent extent;
    for (const PlotStroke &stroke : strokes)
        extent.add(stroke.points);
    for (const PlotArea &area : areas) {
        for (const QPolygonF &outline : area.outlines)
            extent.add(outline);
    }
    for (const PlotLabel &label : labels)
        extent.add(label.box());
    return extent.rect();
}

qint64 Plot::pointCount() const
{
    qint64 count = ::pointCount(strokes);
    for (const PlotArea &area : areas) {
        for (const QPolygonF &outline : area.outlines)
            count += outline.size();
    }
    return count;
}

qint64 pointCount(const std::vector<PlotStroke> &strokes)
{
    qint64 count = 0;
    for (const PlotStroke &stroke : strokes)
        count += stroke.points.size();
    return count;
}
