// SPDX-License-Identifier: MIT
#include "PlotInterpreter.h"

#include "PlotGeometry.h"

#include <QtCore/QtMath>

#include <cmath>

namespace {

constexpr QSizeF DefaultCharacterPercent(0.75, 1.5);

} // namespace

bool PlotInterpreter::skipText()
{
    bool terminated = false;
    m_scanner.text(m_settings.terminator, terminated);
    return false;
}

bool PlotInterpreter::comment()
{
    m_scanner.skipNumbers();
    return m_scanner.skipQuoted();
}

bool PlotInterpreter::symbolMode()
{
    m_settings.symbol = m_scanner.character();
    if (m_settings.symbol <= ' ')
        m_settings.symbol = '\0';
    return true;
}

bool PlotInterpreter::label()
{
    bool terminated = false;
    const QByteArray text = m_scanner.text(m_settings.terminator, terminated);
    plotText(QString::fromLatin1(text.left(PlotReader::LongestLabel)));
    return terminated && text.size() <= PlotReader::LongestLabel;
}

bool PlotInterpreter::labelTerminator()
{
    const char terminator = m_scanner.character();
    if (terminator == '\n' || terminator == '\x1b')
        return false;
    m_settings.terminator = terminator ? terminator : '\x03';
    m_scanner.skipNumbers();
    return true;
}

bool PlotInterpreter::labelOrigin()
{
    const int origin = integerParameter(0, 1);
    if (origin < 1 || origin > 19 || origin == 10)
        return false;
    m_settings.labelOrigin = origin;
    m_lineStart = m_position;
    return true;
}

bool PlotInterpreter::absoluteSize()
{
    if (count() == 1)
        return false;
    const QSizeF size = count() == 0 ? Settings().characterSize
                                     : QSizeF(parameter(0), parameter(1)) * UnitsPerCentimetre;
    if (size.width() == 0 || size.height() == 0 || !isPlottable(QPointF(size.width(), size.height())))
        return false;
    m_settings.characterSize = size;
    m_settings.relativeCharacterSize = false;
    return true;
}

bool PlotInterpreter::relativeSize()
{
    const QSizeF percent = count() == 0 ? DefaultCharacterPercent : QSizeF(parameter(0), parameter(1));
    if (count() == 1 || percent.width() == 0 || percent.height() == 0 || std::fabs(percent.width()) > 1000
        || std::fabs(percent.height()) > 1000)
        return false;
    m_settings.characterSize = percent;
    m_settings.relativeCharacterSize = true;
    return true;
}

bool PlotInterpreter::absoluteDirection()
{
    const QPointF direction = count() == 0 ? QPointF(1, 0) : QPointF(parameter(0), parameter(1));
    if (count() == 1 || direction.isNull())
        return false;
    m_settings.direction = direction;
    m_settings.relativeDirection = false;
    m_lineStart = m_position;
    return true;
}

bool PlotInterpreter::relativeDirection()
{
    const bool done = absoluteDirection();
    m_settings.relativeDirection = done || m_settings.relativeDirection;
    return done;
}

bool PlotInterpreter::slant()
{
    constexpr double SteepestSlant = 10;
    if (std::fabs(parameter(0)) > SteepestSlant)
        return false;
    m_settings.slant = parameter(0);
    return true;
}

bool PlotInterpreter::characterPlot()
{
    if (count() == 0) {
        plotText(QStringLiteral("\r\n"));
        return true;
    }
    const QSizeF size = characterSize();
    const QPointF along = direction();
    const QPointF moved = m_position + along * (parameter(0) * PlotLabel::CellWidth * size.width())
                          + leftOf(along) * (parameter(1) * PlotLabel::CellHeight * size.height());
    if (!isPlottable(moved))
        return false;
    endStroke();
    m_position = moved;
    return true;
}

QSizeF PlotInterpreter::characterSize() const
{
    if (!m_settings.relativeCharacterSize)
        return m_settings.characterSize;
    return QSizeF(m_settings.characterSize.width() / 100 * std::fabs(m_p2.x() - m_p1.x()),
                  m_settings.characterSize.height() / 100 * std::fabs(m_p2.y() - m_p1.y()));
}

QPointF PlotInterpreter::direction() const
{
    QPointF direction = m_settings.direction;
    if (m_settings.relativeDirection) {
        const QPointF extent = m_p2 - m_p1;
        direction = QPointF(direction.x() * extent.x(), direction.y() * extent.y());
    }
    return direction / length(direction);
}

void PlotInterpreter::addLabel(const QPointF &position, const QString &text)
{
    if (m_pen == 0 || !isPlottable(position))
        return;
    PlotLabel label;
    const QPointF along = direction();
    label.pen = m_pen;
    label.position = position;
    label.characterSize = characterSize();
    label.direction = qRadiansToDegrees(std::atan2(along.y(), along.x()));
    label.slant = m_settings.slant;
    label.text = text;
    m_paper.addLabel(label);
}

void PlotInterpreter::plotText(const QString &text)
{
    endStroke();
    const QSizeF size = characterSize();
    const QPointF along = direction();
    const QPointF up = leftOf(along);
    const double cell = PlotLabel::CellWidth * size.width();
    QPointF position = m_position;
    QString line;
    const auto endLine = [&] {
        if (line.isEmpty())
            return;
        const double extent = cell * line.size() - (PlotLabel::CellWidth - 1) * size.width();
        const int column = (m_settings.labelOrigin % 10 - 1) / 3;
        const int row = (m_settings.labelOrigin % 10 - 1) % 3;
        QPointF start = position - along * (extent * column / 2) - up * (size.height() * row / 2);
        if (m_settings.labelOrigin > 10)
            start += along * (size.width() / 2 * (1 - column)) + up * (size.height() / 2 * (1 - row));
        addLabel(start, line);
        if (m_settings.labelOrigin == 1)
            position += along * (cell * line.size());
        line.clear();
    };
    for (const QChar character : text) {
        if (character >= QLatin1Char(' ')) {
            line.append(character);
            continue;
        }
        endLine();
        if (character == QLatin1Char('\r'))
            position -= along * QPointF::dotProduct(position - m_lineStart, along);
        else if (character == QLatin1Char('\n'))
            position -= up * (PlotLabel::CellHeight * size.height());
        else if (character == QLatin1Char('\b'))
            position -= along * cell;
    }
    endLine();
    if (isPlottable(position))
        m_position = position;
}
