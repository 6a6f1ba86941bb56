// SPDX-License-Identifier: MIT
#include "PlotPaper.h"

#include "PlotReader.h"

#include <algorithm>

namespace {

constexpr QSizeF PaperSize(11040, 7721);    // A4
constexpr int CostOfLabel = 8;              // in characters

bool isInside(const QRectF &window, const QPointF &point)
{
    return point.x() >= window.left() && point.x() <= window.right() && point.y() >= window.top()
           && point.y() <= window.bottom();
}

// The part of the segment that lies inside, as shares of `step`; empty when enter > leave.
struct InnerPart
{
    double enter = 0;
    double leave = 1;

    InnerPart(const QRectF &window, const QPointF &from, const QPointF &step)
    {
        cut(step.x(), from.x() - window.left());
        cut(-step.x(), window.right() - from.x());
        cut(step.y(), from.y() - window.top());
        cut(-step.y(), window.bottom() - from.y());
    }

    bool isEmpty() const { return enter > leave; }

private:
    void cut(double inwards, double distance)
    {
        if (inwards > 0)
            enter = std::max(enter, -distance / inwards);
        else if (inwards < 0)
            leave = std::min(leave, -distance / inwards);
        else if (distance < 0)
            leave = -1;
    }
};

// Cuts away what has a negative `distance`.
template<class Distance>
QPolygonF cutOutline(const QPolygonF &outline, Distance distance)
{
    QPolygonF kept;
    for (int i = 0; i < outline.size(); ++i) {
        const QPointF from = outline.at(i == 0 ? outline.size() - 1 : i - 1);
        const QPointF to = outline.at(i);
        const double before = distance(from);
        const double after = distance(to);
        if ((before < 0) != (after < 0))
            kept.append(from + (to - from) * (before / (before - after)));
        if (after >= 0)
            kept.append(to);
    }
    return kept;
}

QPolygonF outlineInside(const QRectF &window, const QPolygonF &outline)
{
    QPolygonF kept = cutOutline(outline, [&window](const QPointF &p) { return p.x() - window.left(); });
    kept = cutOutline(kept, [&window](const QPointF &p) { return window.right() - p.x(); });
    kept = cutOutline(kept, [&window](const QPointF &p) { return p.y() - window.top(); });
    return cutOutline(kept, [&window](const QPointF &p) { return window.bottom() - p.y(); });
}

} // namespace

PlotPaper::PlotPaper() : m_pointsLeft(PlotReader::MostPoints), m_charactersLeft(PlotReader::MostCharacters)
{
}

bool PlotPaper::takePoints(int points)
{
    m_plot.complete = m_plot.complete && points <= m_pointsLeft;
    m_pointsLeft -= m_plot.complete ? points : 0;
    return m_plot.complete;
}

bool PlotPaper::takeCharacters(int characters)
{
    m_plot.complete = m_plot.complete && characters + CostOfLabel <= m_charactersLeft;
    m_charactersLeft -= m_plot.complete ? characters + CostOfLabel : 0;
    return m_plot.complete;
}

void PlotPaper::addStroke(const PlotStroke &stroke)
{
    if (m_window)
        keepStrokeInside(*m_window, stroke);
    else
        keepStroke(stroke, stroke.points);
}

void PlotPaper::addArea(const PlotArea &area)
{
    PlotArea kept = area;
    kept.angle += 90.0 * m_quarterTurns;
    kept.outlines.clear();
    for (const QPolygonF &outline : area.outlines) {
        const QPolygonF inside = m_window ? outlineInside(*m_window, outline) : outline;
        if (!inside.isEmpty())
            kept.outlines.append(turned(inside));
    }
    if (!kept.outlines.isEmpty())
        m_plot.areas.push_back(std::move(kept));
}

void PlotPaper::addLabel(const PlotLabel &label)
{
    const bool isBlank = label.text.trimmed().isEmpty();
    if (isBlank || (m_window && !isInside(*m_window, label.position)) || !takeCharacters(label.text.size()))
        return;
    PlotLabel kept = label;
    kept.position = turned(label.position);
    kept.direction += 90.0 * m_quarterTurns;
    m_plot.labels.push_back(std::move(kept));
}

QPointF PlotPaper::turned(const QPointF &position) const
{
    switch (m_quarterTurns) {
    case 1: return QPointF(PaperSize.width() - position.y(), position.x());
    case 2: return QPointF(PaperSize.width() - position.x(), PaperSize.height() - position.y());
    case 3: return QPointF(position.y(), PaperSize.height() - position.x());
    default: return position;
    }
}

QPolygonF PlotPaper::turned(const QPolygonF &points) const
{
    QPolygonF result = points;
    for (QPointF &point : result)
        point = turned(point);
    return result;
}

void PlotPaper::keepStroke(const PlotStroke &stroke, const QPolygonF &points)
{
    PlotStroke kept = stroke;
    kept.points = turned(points);
    m_plot.strokes.push_back(std::move(kept));
}

void PlotPaper::keepStrokeInside(const QRectF &window, const PlotStroke &stroke)
{
    const QPolygonF &points = stroke.points;
    if (points.size() == 1 && isInside(window, points.first()))
        keepStroke(stroke, points);
    QPolygonF run;
    const auto endRun = [this, &run, &stroke] {
        if (run.size() > 1)
            keepStroke(stroke, run);
        run.clear();
    };
    for (int i = 1; i < points.size(); ++i) {
        const QPointF from = points.at(i - 1);
        const QPointF step = points.at(i) - from;
        const InnerPart part(window, from, step);
        if (part.isEmpty()) {
            endRun();
            continue;
        }
        if (run.isEmpty())
            run.append(part.enter > 0 ? from + step * part.enter : from);
        run.append(part.leave < 1 ? from + step * part.leave : points.at(i));
        if (part.leave < 1)
            endRun();
    }
    endRun();
}
