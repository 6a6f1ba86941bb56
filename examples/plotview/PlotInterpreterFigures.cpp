// SPDX-License-Identifier: MIT
#include "PlotInterpreter.h"

#include "PlotGeometry.h"

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double DefaultChordAngle = 5;
constexpr double FillSpacingPercent = 1;

QPolygonF polyline(std::initializer_list<QPointF> points)
{
    return QPolygonF(QVector<QPointF>(points));
}

} // namespace

// What a polyline's flags and digits before this one said.
struct PlotInterpreter::Polyline
{
    bool sevenBit = false;
    bool selectsPen = false;
    bool setsFraction = false;
    bool isUp = false;
    bool isAbsolute = false;
    double fraction = 1;
    double value = 0;
    double place = 1;
    bool hasX = false;
    double x = 0;
};

bool PlotInterpreter::encodedPolyline()
{
    Polyline polyline;
    PlotScanner::TextEnd end;
    do {
        const QByteArray code = m_scanner.textPart(';', end);
        for (int i = 0; i < code.size(); ++i) {
            if (plotEncoded(code.at(i), polyline))
                continue;
            bool terminated = false;
            m_scanner.pass(i + 1);
            m_scanner.text(';', terminated);
            return false;
        }
        m_scanner.pass(code.size());
    } while (end == PlotScanner::TextEnd::GoesOn);
    if (end == PlotScanner::TextEnd::Terminated)
        m_scanner.pass(1);
    return end == PlotScanner::TextEnd::Terminated;
}

// Numbers of base 64 (or 32), low digit first; the high range of characters ends a number, its lowest bit is
// the sign.
bool PlotInterpreter::plotEncoded(char c, Polyline &polyline)
{
    const int byte = static_cast<unsigned char>(c);
    const int lastDigit = polyline.sevenBit ? 95 : 191;
    const int base = polyline.sevenBit ? 32 : 64;
    const bool isDigit = byte >= 63 && byte < 63 + base;
    const bool isLastDigit = byte >= lastDigit && byte < lastDigit + base;
    if (byte <= ' ')
        return true;
    switch (c) {
    case '7': polyline.sevenBit = true; return true;
    case ':': polyline.selectsPen = true; return true;
    case '<': polyline.isUp = true; return true;
    case '>': polyline.setsFraction = true; return true;
    case '=': polyline.isAbsolute = true; return true;
    default: break;
    }
    if ((!isDigit && !isLastDigit) || polyline.place > 1e15)
        return false;
    polyline.value += polyline.place * (byte - (isDigit ? 63 : lastDigit));
    polyline.place *= base;
    if (isDigit)
        return true;
    const double number = std::floor(polyline.value / 2) * (std::fmod(polyline.value, 2) != 0 ? -1 : 1);
    polyline.value = 0;
    polyline.place = 1;
    return plotEncodedNumber(number, polyline);
}

bool PlotInterpreter::plotEncodedNumber(double number, Polyline &polyline)
{
    if (polyline.selectsPen) {
        polyline.selectsPen = false;
        m_numbers.values.assign(1, number);
        return selectPen();
    }
    if (polyline.setsFraction) {
        polyline.setsFraction = false;
        polyline.fraction = std::ldexp(1.0, -static_cast<int>(qBound(0.0, number, 26.0)));
        return true;
    }
    number *= polyline.fraction;
    polyline.hasX = !polyline.hasX;
    if (polyline.hasX) {
        polyline.x = number;
        return true;
    }
    const QPointF unit = unitsPerUserUnit();
    const QPointF to = polyline.isAbsolute
        ? toPlotterUnits(polyline.x, number)
        : m_position + QPointF(polyline.x * unit.x(), number * unit.y());
    setPenDown(!polyline.isUp);
    polyline.isUp = false;
    polyline.isAbsolute = false;
    return moveTo(to);
}

bool PlotInterpreter::circle()
{
    if (count() < 1)
        return false;
    return addFigure(arcPoints(m_position, parameter(0), 0, 360, parameter(1)));
}

bool PlotInterpreter::arcAbsolute()
{
    if (count() < 3)
        return false;
    return arc(toPlotterUnits(parameter(0), parameter(1)), parameter(2), parameter(3));
}

bool PlotInterpreter::arcRelative()
{
    if (count() < 3)
        return false;
    const QPointF unit = unitsPerUserUnit();
    return arc(m_position + QPointF(parameter(0) * unit.x(), parameter(1) * unit.y()), parameter(2),
               parameter(3));
}

bool PlotInterpreter::edgeRectangleAbsolute()
{
    return count() >= 2 && addFigure(rectangle(false));
}

bool PlotInterpreter::edgeRectangleRelative()
{
    return count() >= 2 && addFigure(rectangle(true));
}

bool PlotInterpreter::shadeRectangleAbsolute()
{
    return count() >= 2 && addAreaFigure(rectangle(false));
}

bool PlotInterpreter::shadeRectangleRelative()
{
    return count() >= 2 && addAreaFigure(rectangle(true));
}

bool PlotInterpreter::edgeWedge()
{
    return count() >= 3 && addFigure(wedge());
}

bool PlotInterpreter::shadeWedge()
{
    return count() >= 3 && addAreaFigure(wedge());
}

bool PlotInterpreter::polygonMode()
{
    switch (integerParameter(0)) {
    case 0:
        endStroke();
        m_polygon.clear();
        m_polygon.append(polyline({m_position}));
        m_inPolygon = true;
        m_subpolygonEnded = false;
        return true;
    case 1:
        m_subpolygonEnded = true;
        return m_inPolygon;
    case 2: {
        const bool wasInPolygon = m_inPolygon;
        m_inPolygon = false;
        m_strokeTouchedDown = false;
        return wasInPolygon;
    }
    default:
        return false;
    }
}

bool PlotInterpreter::edgePolygon()
{
    if (m_inPolygon)
        return false;
    for (QPolygonF outline : qAsConst(m_polygon)) {
        if (!outline.isClosed())
            outline.append(outline.first());
        if (!addFigure(outline))
            return false;
    }
    return true;
}

bool PlotInterpreter::fillPolygon()
{
    if (m_inPolygon)
        return false;
    int points = 0;
    for (const QPolygonF &outline : qAsConst(m_polygon))
        points += outline.size();
    if (points == 0 || !m_paper.takePoints(points))
        return points == 0;
    addArea(m_polygon);
    return true;
}

bool PlotInterpreter::fillType()
{
    constexpr int LargestFillType = 22;    // those above 4 are shadings and patterns, drawn solid
    const int type = integerParameter(0, 1);
    if (type < 1 || type > LargestFillType)
        return false;
    m_settings.fillType = type;
    m_settings.fillSpacing = std::fabs(parameter(1) * unitsPerUserUnit().x());
    m_settings.fillAngle = parameter(2);
    return true;
}

bool PlotInterpreter::tickLength()
{
    const double otherwise = Settings::DefaultTickPercent;
    m_settings.positiveTick = qBound(-100.0, parameter(0, otherwise), 100.0);
    m_settings.negativeTick = qBound(-100.0, count() == 1 ? 0 : parameter(1, otherwise), 100.0);
    return true;
}

bool PlotInterpreter::xTick()
{
    const double unit = (m_p2.y() - m_p1.y()) / 100;
    return addFigure(polyline({m_position - QPointF(0, m_settings.negativeTick * unit),
                               m_position + QPointF(0, m_settings.positiveTick * unit)}));
}

bool PlotInterpreter::yTick()
{
    const double unit = (m_p2.x() - m_p1.x()) / 100;
    return addFigure(polyline({m_position - QPointF(m_settings.negativeTick * unit, 0),
                               m_position + QPointF(m_settings.positiveTick * unit, 0)}));
}

bool PlotInterpreter::chordTolerance()
{
    m_settings.chordIsDeviation = integerParameter(0) == 1;
    return true;
}

bool PlotInterpreter::arc(const QPointF &centre, double sweep, double chord)
{
    if (!isPlottable(centre))
        return false;
    if (std::fabs(sweep) > 360)
        sweep = std::copysign(360.0, sweep) + std::fmod(sweep, 360.0);
    const QPointF unit = unitsPerUserUnit();
    const QPointF radius((m_position.x() - centre.x()) / unit.x(), (m_position.y() - centre.y()) / unit.y());
    const double start = qRadiansToDegrees(std::atan2(radius.y(), radius.x()));
    const QPolygonF points = arcPoints(centre, length(radius), start, sweep, chord);
    const bool draws = m_penDown || m_inPolygon;
    for (int i = draws ? 1 : points.size() - 1; i < points.size(); ++i) {
        if (!moveTo(points.at(i)))
            return false;
    }
    return true;
}

QPolygonF PlotInterpreter::arcPoints(const QPointF &centre, double radius, double start, double sweep,
                                     double chord) const
{
    const QPointF unit = unitsPerUserUnit();
    const int chords = chordCount(radius, sweep, chord);
    QPolygonF points;
    points.reserve(chords + 1);
    for (int i = 0; i <= chords; ++i) {
        const double angle = qDegreesToRadians(start + sweep * i / chords);
        const QPointF direction(std::cos(angle), std::sin(angle));
        points.append(centre + radius * QPointF(direction.x() * unit.x(), direction.y() * unit.y()));
    }
    if (std::fabs(sweep) == 360.0)
        points.last() = points.first();
    return points;
}

int PlotInterpreter::chordCount(double radius, double sweep, double chord) const
{
    double angle = chord == 0 ? DefaultChordAngle : std::fabs(chord);
    if (m_settings.chordIsDeviation && chord != 0 && radius != 0)
        angle = qRadiansToDegrees(2 * std::acos(qBound(-1.0, 1 - std::fabs(chord / radius), 1.0)));
    angle = qBound(0.5, angle, 120.0);
    return std::max(1, static_cast<int>(std::ceil(std::fabs(sweep) / angle - 1e-9)));
}

QPolygonF PlotInterpreter::rectangle(bool relative) const
{
    const QPointF unit = unitsPerUserUnit();
    const QPointF opposite = relative
        ? m_position + QPointF(parameter(0) * unit.x(), parameter(1) * unit.y())
        : toPlotterUnits(parameter(0), parameter(1));
    return polyline({m_position, QPointF(opposite.x(), m_position.y()), opposite,
                     QPointF(m_position.x(), opposite.y()), m_position});
}

QPolygonF PlotInterpreter::wedge() const
{
    const double sweep = qBound(-360.0, parameter(2), 360.0);
    QPolygonF points = arcPoints(m_position, parameter(0), parameter(1), sweep, parameter(3));
    if (std::fabs(sweep) < 360) {
        points.prepend(m_position);
        points.append(m_position);
    }
    return points;
}

// The plotter draws a figure with the pen down, whatever it was before, and goes back to where it began.
bool PlotInterpreter::addFigure(const QPolygonF &points)
{
    if (!std::all_of(points.begin(), points.end(), isPlottable) || !m_paper.takePoints(points.size()))
        return false;
    if (m_inPolygon) {
        m_polygon.append(points);
        m_subpolygonEnded = true;
    } else if (m_pen > 0) {
        addStroke(points);
    }
    return true;
}

bool PlotInterpreter::addAreaFigure(const QPolygonF &outline)
{
    if (!std::all_of(outline.begin(), outline.end(), isPlottable) || !m_paper.takePoints(outline.size()))
        return false;
    addArea({outline});
    return true;
}

void PlotInterpreter::addArea(const QVector<QPolygonF> &outlines)
{
    if (m_pen == 0)
        return;
    PlotArea area;
    area.pen = m_pen;
    area.fill = m_settings.fillType == 3   ? PlotArea::Hatch
                : m_settings.fillType == 4 ? PlotArea::CrossHatch
                                           : PlotArea::Solid;
    const double spacing = m_settings.fillSpacing;
    area.spacing = spacing > 0 ? spacing : FillSpacingPercent / 100 * diagonal();
    area.angle = m_settings.fillAngle;
    area.outlines = outlines;
    m_paper.addArea(area);
}
