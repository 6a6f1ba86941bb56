// SPDX-License-Identifier: MIT
#include "PlotInterpreter.h"

#include "PlotGeometry.h"

#include <QtCore/QHash>

#include <cmath>

namespace {

// What an A4 plotter starts with.
constexpr QPointF DefaultP1(603, 521);
constexpr QPointF DefaultP2(10603, 7721);
constexpr int LargestPen = PlotReader::LargestPen;

bool isUsableFactor(double factor)
{
    return std::isfinite(factor) && std::fabs(factor) >= 1e-12 && std::fabs(factor) <= 1e12;
}

int key(const char *mnemonic)
{
    return mnemonic[0] * 256 + mnemonic[1];
}

} // namespace

struct PlotInterpreter::Instruction
{
    char mnemonic[3];
    Parameters parameters;
    Handler handler;
};

const PlotInterpreter::Instruction *PlotInterpreter::find(const char *mnemonic)
{
    using I = PlotInterpreter;
    static constexpr Instruction instructions[] = {
        {"AA", Parameters::Numbers, &I::arcAbsolute},
        {"AR", Parameters::Numbers, &I::arcRelative},
        {"BL", Parameters::Own, &I::skipText},
        {"CI", Parameters::Numbers, &I::circle},
        {"CO", Parameters::Own, &I::comment},
        {"CP", Parameters::Numbers, &I::characterPlot},
        {"CT", Parameters::Numbers, &I::chordTolerance},
        {"DF", Parameters::Numbers, &I::setDefaults},
        {"DI", Parameters::Numbers, &I::absoluteDirection},
        {"DR", Parameters::Numbers, &I::relativeDirection},
        {"DT", Parameters::Own, &I::labelTerminator},
        {"EA", Parameters::Numbers, &I::edgeRectangleAbsolute},
        {"EP", Parameters::Numbers, &I::edgePolygon},
        {"ER", Parameters::Numbers, &I::edgeRectangleRelative},
        {"EW", Parameters::Numbers, &I::edgeWedge},
        {"FP", Parameters::Numbers, &I::fillPolygon},
        {"FT", Parameters::Numbers, &I::fillType},
        {"IN", Parameters::Numbers, &I::initialize},
        {"IP", Parameters::Numbers, &I::inputPoints},
        {"IW", Parameters::Numbers, &I::inputWindow},
        {"LB", Parameters::Own, &I::label},
        {"LO", Parameters::Numbers, &I::labelOrigin},
        {"LT", Parameters::Numbers, &I::lineType},
        {"PA", Parameters::Pairs, &I::plotAbsolute},
        {"PC", Parameters::Numbers, &I::penColour},
        {"PD", Parameters::Pairs, &I::penDown},
        {"PE", Parameters::Own, &I::encodedPolyline},
        {"PM", Parameters::Numbers, &I::polygonMode},
        {"PR", Parameters::Pairs, &I::plotRelative},
        {"PU", Parameters::Pairs, &I::penUp},
        {"PW", Parameters::Numbers, &I::penWidth},
        {"RA", Parameters::Numbers, &I::shadeRectangleAbsolute},
        {"RO", Parameters::Numbers, &I::rotate},
        {"RR", Parameters::Numbers, &I::shadeRectangleRelative},
        {"SC", Parameters::Numbers, &I::scale},
        {"SI", Parameters::Numbers, &I::absoluteSize},
        {"SL", Parameters::Numbers, &I::slant},
        {"SM", Parameters::Own, &I::symbolMode},
        {"SP", Parameters::Numbers, &I::selectPen},
        {"SR", Parameters::Numbers, &I::relativeSize},
        {"TL", Parameters::Numbers, &I::tickLength},
        {"WD", Parameters::Own, &I::skipText},
        {"WG", Parameters::Numbers, &I::shadeWedge},
        {"WU", Parameters::Numbers, &I::penWidthUnit},
        {"XT", Parameters::Numbers, &I::xTick},
        {"YT", Parameters::Numbers, &I::yTick},
        // Speed, force, paper, character sets, digitizing and questions to the plotter: nothing on the paper.
        {"AC", Parameters::Numbers, &I::ignore}, {"AF", Parameters::Numbers, &I::ignore},
        {"AH", Parameters::Numbers, &I::ignore}, {"AP", Parameters::Numbers, &I::ignore},
        {"AS", Parameters::Numbers, &I::ignore}, {"BP", Parameters::Own, &I::comment},
        {"CA", Parameters::Numbers, &I::ignore}, {"CS", Parameters::Numbers, &I::ignore},
        {"CV", Parameters::Numbers, &I::ignore}, {"DC", Parameters::Numbers, &I::ignore},
        {"DP", Parameters::Numbers, &I::ignore}, {"EC", Parameters::Numbers, &I::ignore},
        {"FS", Parameters::Numbers, &I::ignore}, {"GM", Parameters::Numbers, &I::ignore},
        {"IM", Parameters::Numbers, &I::ignore}, {"LA", Parameters::Numbers, &I::ignore},
        {"MC", Parameters::Numbers, &I::ignore}, {"NP", Parameters::Numbers, &I::ignore},
        {"NR", Parameters::Numbers, &I::ignore}, {"OA", Parameters::Numbers, &I::ignore},
        {"OC", Parameters::Numbers, &I::ignore}, {"OD", Parameters::Numbers, &I::ignore},
        {"OE", Parameters::Numbers, &I::ignore}, {"OF", Parameters::Numbers, &I::ignore},
        {"OH", Parameters::Numbers, &I::ignore}, {"OI", Parameters::Numbers, &I::ignore},
        {"OO", Parameters::Numbers, &I::ignore}, {"OP", Parameters::Numbers, &I::ignore},
        {"OS", Parameters::Numbers, &I::ignore}, {"OW", Parameters::Numbers, &I::ignore},
        {"PG", Parameters::Numbers, &I::ignore}, {"PS", Parameters::Numbers, &I::ignore},
        {"PT", Parameters::Numbers, &I::ignore}, {"QL", Parameters::Numbers, &I::ignore},
        {"RP", Parameters::Numbers, &I::ignore}, {"SA", Parameters::Numbers, &I::ignore},
        {"SS", Parameters::Numbers, &I::ignore}, {"TR", Parameters::Numbers, &I::ignore},
        {"VA", Parameters::Numbers, &I::ignore}, {"VN", Parameters::Numbers, &I::ignore},
        {"VS", Parameters::Numbers, &I::ignore},
    };
    static const QHash<int, const Instruction *> byMnemonic = [] {
        QHash<int, const Instruction *> table;
        for (const Instruction &instruction : instructions)
            table.insert(key(instruction.mnemonic), &instruction);
        return table;
    }();
    return byMnemonic.value(key(mnemonic), nullptr);
}

PlotInterpreter::PlotInterpreter(const PlotSource &source) : m_scanner(source)
{
    initialize();
}

Plot PlotInterpreter::run()
{
    char mnemonic[3];
    Plot &plot = m_paper.plot();
    while (plot.complete && m_scanner.nextMnemonic(mnemonic)) {
        const Instruction *instruction = find(mnemonic);
        if (!instruction)
            m_scanner.skipNumbers();
        if (instruction && carryOut(*instruction)) {
            ++plot.instructionCount;
            continue;
        }
        ++plot.skippedCount;
        if (instruction && instruction->handler != &PlotInterpreter::skipText)
            ++plot.damagedCount;
    }
    endStroke();
    plot.skippedCount += m_scanner.strayRuns();
    plot.damagedCount += m_scanner.strayRuns();
    return std::move(plot);
}

bool PlotInterpreter::carryOut(const Instruction &instruction)
{
    if (instruction.parameters != Parameters::Own)
        m_scanner.numbers(m_numbers);
    // No such instruction looks at more numbers than come at once.
    if (instruction.parameters == Parameters::Numbers
        && (m_numbers.damaged || (m_numbers.more && !m_scanner.skipNumbers())))
        return false;
    return (this->*instruction.handler)();
}

bool PlotInterpreter::initialize()
{
    endStroke();
    m_penDown = false;
    m_p1 = DefaultP1;
    m_p2 = DefaultP2;
    m_paper.setRotation(0);
    m_penWidths.clear();
    m_relativePenWidth = false;
    return setDefaults();
}

bool PlotInterpreter::setDefaults()
{
    endStroke();
    m_settings = Settings();
    m_paper.setWindow(std::nullopt);
    m_inPolygon = false;
    m_polygon.clear();
    m_lineStart = m_position;
    return true;
}

bool PlotInterpreter::selectPen()
{
    const double pen = parameter(0);
    if (pen < 0 || pen > LargestPen)
        return false;
    endStroke();
    m_pen = static_cast<int>(pen);
    return true;
}

bool PlotInterpreter::penUp()
{
    setPenDown(false);
    return plotPairs(m_settings.relative);
}

bool PlotInterpreter::penDown()
{
    setPenDown(true);
    return plotPairs(m_settings.relative);
}

bool PlotInterpreter::plotAbsolute()
{
    m_settings.relative = false;
    return plotPairs(false);
}

bool PlotInterpreter::plotRelative()
{
    m_settings.relative = true;
    return plotPairs(true);
}

bool PlotInterpreter::lineType()
{
    if (count() == 0) {
        endStroke();
        m_settings.lineType = PlotStroke::SolidLine;
        return true;
    }
    // A negative type fits whole patterns to each stroke; here it is drawn as its positive fellow.
    const int type = std::abs(integerParameter(0));
    const double patternLength = parameter(1, m_settings.patternLength);
    if (type > PlotStroke::LargestLineType || patternLength < 0 || patternLength > 100)
        return false;
    endStroke();
    m_settings.lineType = type;
    m_settings.patternLength = patternLength;
    m_settings.patternInMillimetres = parameter(2, m_settings.patternInMillimetres) == 1.0;
    return true;
}

bool PlotInterpreter::penWidth()
{
    constexpr double WidestPen = 50;
    const int pen = integerParameter(1, m_pen);
    const double width = parameter(0);
    if (width < 0 || width > WidestPen || pen < 0 || pen > LargestPen)
        return false;
    endStroke();
    if (count() == 0)
        m_penWidths.clear();
    else
        m_penWidths[pen] = m_relativePenWidth ? width / 100 * diagonal() / Plot::UnitsPerMillimetre : width;
    return true;
}

bool PlotInterpreter::penWidthUnit()
{
    endStroke();
    m_relativePenWidth = integerParameter(0) == 1;
    m_penWidths.clear();
    return true;
}

bool PlotInterpreter::penColour()
{
    const int pen = integerParameter(0);
    if (pen < 0 || pen > LargestPen)
        return false;
    if (count() == 0) {
        m_paper.plot().penColours.clear();
    } else if (count() < 4) {
        m_paper.plot().penColours.erase(pen);
    } else {
        const auto part = [this](std::size_t index) { return qBound(0, integerParameter(index), 255); };
        m_paper.plot().penColours[pen] = qRgb(part(1), part(2), part(3));
    }
    return true;
}

bool PlotInterpreter::inputPoints()
{
    QPointF p1 = DefaultP1;
    QPointF p2 = DefaultP2;
    if (count() >= 2) {
        p1 = QPointF(parameter(0), parameter(1));
        p2 = count() >= 4 ? QPointF(parameter(2), parameter(3)) : p1 + (m_p2 - m_p1);
    }
    const QPointF extent = p2 - p1;
    if (count() == 1 || count() == 3 || !isPlottable(p1) || !isPlottable(p2) || !isUsableFactor(extent.x())
        || !isUsableFactor(extent.y()))
        return false;
    m_p1 = p1;
    m_p2 = p2;
    return true;
}

bool PlotInterpreter::scale()
{
    if (count() == 0) {
        m_settings.scaled = false;
        return true;
    }
    const int type = integerParameter(4);
    if (count() < 4 || type < 0 || type > 2)
        return false;
    const bool isFactor = type == 2;
    const QPointF minimum(parameter(0), parameter(2));
    const QPointF maximum(parameter(1), parameter(3));
    const QPointF range = isFactor ? maximum : maximum - minimum;
    const QPointF extent = m_p2 - m_p1;
    if (!isUsableFactor(range.x()) || !isUsableFactor(range.y()) || !isUsableFactor(extent.x() / range.x())
        || !isUsableFactor(extent.y() / range.y()))
        return false;
    m_settings.scaled = true;
    m_settings.scaleType = static_cast<ScaleType>(type);
    m_settings.userMinimum = minimum;
    m_settings.userMaximum = maximum;
    const auto share = [this](std::size_t index) { return qBound(0.0, parameter(index, 50), 100.0) / 100; };
    m_settings.spareShare = QPointF(share(5), share(6));
    return true;
}

bool PlotInterpreter::rotate()
{
    const int angle = integerParameter(0);
    if (angle < 0 || angle >= 360 || angle % 90 != 0)
        return false;
    endStroke();
    m_paper.setRotation(angle / 90);
    return true;
}

bool PlotInterpreter::inputWindow()
{
    if (count() == 0) {
        endStroke();
        m_paper.setWindow(std::nullopt);
        return true;
    }
    const QPointF first = toPlotterUnits(parameter(0), parameter(1));
    const QPointF second = toPlotterUnits(parameter(2), parameter(3));
    if (count() < 4 || !isPlottable(first) || !isPlottable(second))
        return false;
    endStroke();
    m_paper.setWindow(QRectF(first, second).normalized());
    return true;
}

double PlotInterpreter::parameter(std::size_t index, double otherwise) const
{
    return index < count() ? m_numbers.values[index] : otherwise;
}

int PlotInterpreter::integerParameter(std::size_t index, int otherwise) const
{
    return static_cast<int>(parameter(index, otherwise));
}

void PlotInterpreter::setPenDown(bool down)
{
    if (down && !m_penDown) {
        m_stroke.clear();
        m_strokeTouchedDown = true;
    } else if (!down) {
        endStroke();
    }
    m_penDown = down;
}

bool PlotInterpreter::plotPairs(bool relative)
{
    const QPointF unit = unitsPerUserUnit();
    for (;;) {
        for (std::size_t i = 0; i + 1 < count(); i += 2) {
            const double x = parameter(i);
            const double y = parameter(i + 1);
            if (!moveTo(relative ? m_position + QPointF(x * unit.x(), y * unit.y()) : toPlotterUnits(x, y))) {
                if (m_numbers.more)
                    m_scanner.skipNumbers();
                return false;
            }
        }
        if (!m_numbers.more)
            return !m_numbers.damaged && count() % 2 == 0;
        m_scanner.numbers(m_numbers);
    }
}

bool PlotInterpreter::moveTo(const QPointF &position)
{
    if (!isPlottable(position))
        return false;
    if (m_inPolygon) {
        if (!m_paper.takePoints(1))
            return false;
        if (m_subpolygonEnded)
            m_polygon.append(QPolygonF());
        m_subpolygonEnded = false;
        m_polygon.last().append(position);
    } else if (m_penDown && m_pen > 0) {
        if (m_stroke.isEmpty())
            m_stroke.append(m_position);
        if (m_stroke.last() != position) {
            if (!m_paper.takePoints(1))
                return false;
            m_stroke.append(position);
        }
    }
    m_position = position;
    m_lineStart = position;
    if (m_settings.symbol) {
        const QSizeF size = characterSize();
        const QPointF along = direction();
        addLabel(position - along * (size.width() / 2) - leftOf(along) * (size.height() / 2),
                 QString(QLatin1Char(m_settings.symbol)));
    }
    return m_paper.plot().complete;
}

// The pen stays where it is, and down if it was: what follows is a stroke of its own.
void PlotInterpreter::endStroke()
{
    if (m_penDown && m_pen > 0 && !m_inPolygon) {
        if (m_stroke.isEmpty() && m_strokeTouchedDown)
            m_stroke.append(m_position);
        if ((m_stroke.size() > 1 || (m_stroke.size() == 1 && m_strokeTouchedDown)) && m_paper.takePoints(1))
            addStroke(m_stroke);
    }
    m_stroke.clear();
    m_strokeTouchedDown = false;
}

QPointF PlotInterpreter::unitsPerUserUnit() const
{
    if (!m_settings.scaled)
        return QPointF(1, 1);
    if (m_settings.scaleType == ScaleType::PointFactor)
        return m_settings.userMaximum;
    const QPointF extent = m_p2 - m_p1;
    const QPointF range = m_settings.userMaximum - m_settings.userMinimum;
    const QPointF factor(extent.x() / range.x(), extent.y() / range.y());
    if (m_settings.scaleType == ScaleType::Anisotropic)
        return factor;
    const double smaller = std::min(std::fabs(factor.x()), std::fabs(factor.y()));
    return QPointF(std::copysign(smaller, factor.x()), std::copysign(smaller, factor.y()));
}

QPointF PlotInterpreter::toPlotterUnits(double x, double y) const
{
    if (!m_settings.scaled)
        return QPointF(x, y);
    const QPointF unit = unitsPerUserUnit();
    QPointF origin = m_p1;
    if (m_settings.scaleType == ScaleType::Isotropic) {
        const QPointF range = m_settings.userMaximum - m_settings.userMinimum;
        const QPointF spare = m_p2 - m_p1 - QPointF(range.x() * unit.x(), range.y() * unit.y());
        origin += QPointF(spare.x() * m_settings.spareShare.x(), spare.y() * m_settings.spareShare.y());
    }
    const QPointF minimum = m_settings.userMinimum;
    return origin + QPointF((x - minimum.x()) * unit.x(), (y - minimum.y()) * unit.y());
}

double PlotInterpreter::diagonal() const
{
    return length(m_p2 - m_p1);
}

double PlotInterpreter::patternLength() const
{
    return m_settings.patternInMillimetres ? m_settings.patternLength * Plot::UnitsPerMillimetre
                                  : m_settings.patternLength / 100 * diagonal();
}

double PlotInterpreter::penWidthInMillimetres() const
{
    const auto found = m_penWidths.find(m_pen);
    return found == m_penWidths.end() ? 0 : found->second;
}

void PlotInterpreter::addStroke(const QPolygonF &points)
{
    PlotStroke stroke;
    stroke.pen = m_pen;
    stroke.lineType = m_settings.lineType;
    stroke.patternLength = m_settings.lineType == PlotStroke::SolidLine ? 0 : patternLength();
    stroke.width = penWidthInMillimetres();
    stroke.points = points;
    m_paper.addStroke(stroke);
}
