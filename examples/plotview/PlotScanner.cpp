// SPDX-License-Identifier: MIT
#include "PlotScanner.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {

constexpr char Escape = '\x1b';
constexpr double LargestNumber = 1e9;

bool isLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isSeparator(char c)
{
    return c == ',' || (static_cast<unsigned char>(c) <= 0x20 && c != Escape);
}

bool startsNumber(char c)
{
    return isDigit(c) || c == '+' || c == '-' || c == '.';
}

bool endsLine(char c)
{
    return c == '\n' || c == '\r';
}

char upperCase(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

bool PlotScanner::fill(int bytes)
{
    m_window.remove(0, m_at);
    m_dropped += m_at;
    m_at = 0;
    while (m_window.size() < bytes && !m_sourceEnded)
        m_sourceEnded = !m_source(m_window);
    return m_window.size() >= bytes;
}

bool PlotScanner::nextMnemonic(char (&mnemonic)[3])
{
    bool inStrayRun = false;
    while (!atEnd()) {
        const char c = m_window.at(m_at);
        if (c == Escape) {
            skipEscape();
            inStrayRun = false;
        } else if (c == '@' && has(4) && m_window.mid(m_at, 4) == "@PJL") {
            skipLine();
            inStrayRun = false;
        } else if (isSeparator(c) || c == ';') {
            ++m_at;
            inStrayRun = inStrayRun && c != ';';
        } else if (isLetter(c) && has(2) && isLetter(m_window.at(m_at + 1))) {
            mnemonic[0] = upperCase(c);
            mnemonic[1] = upperCase(m_window.at(m_at + 1));
            mnemonic[2] = '\0';
            m_at += 2;
            return true;
        } else {
            m_strayRuns += inStrayRun ? 0 : 1;
            inStrayRun = true;
            ++m_at;
        }
    }
    return false;
}

void PlotScanner::numbers(PlotNumbers &numbers)
{
    numbers.values.clear();
    numbers.damaged = false;
    numbers.more = false;
    while (!atEnd()) {
        const char c = m_window.at(m_at);
        if (isSeparator(c)) {
            ++m_at;
        } else if (startsNumber(c)) {
            if (numbers.values.size() == MostNumbers && !numbers.damaged) {
                numbers.more = true;
                break;
            }
            double value = 0;
            numbers.damaged = !number(value) || numbers.damaged;
            if (!numbers.damaged)
                numbers.values.push_back(value);
        } else {
            if (c == ';')
                ++m_at;
            break;
        }
    }
}

bool PlotScanner::skipNumbers()
{
    do {
        numbers(m_skipped);
    } while (m_skipped.more);
    return !m_skipped.damaged;
}

bool PlotScanner::number(double &value)
{
    has(LongestNumber);
    const int start = m_window.at(m_at) == '+' ? m_at + 1 : m_at;
    const int end = std::min(m_window.size(), m_at + LongestNumber);
    const char *first = m_window.constData() + start;
    const char *last = m_window.constData() + end;
    const std::from_chars_result result = std::from_chars(first, last, value);
    // from_chars would take "inf" and "nan", and a sign behind the plus.
    const bool plain = start < end && *first != '+' && !(start != m_at && *first == '-')
                       && result.ptr != first && std::isfinite(value);
    if (!plain) {
        ++m_at;
        return false;
    }
    const bool isWhole = result.ptr - (m_window.constData() + m_at) < LongestNumber;
    m_at = static_cast<int>(result.ptr - m_window.constData());
    return isWhole && result.ec == std::errc() && std::fabs(value) <= LargestNumber;
}

QByteArray PlotScanner::text(char terminator, bool &terminated)
{
    const int end = find(terminator);
    terminated = end >= 0;
    if (terminated) {
        const QByteArray text = m_window.mid(m_at, end - m_at);
        m_at = end + 1;
        return text;
    }
    QByteArray text;
    for (; !atEnd() && !endsLine(m_window.at(m_at)); ++m_at) {
        if (text.size() < LongestText)
            text.append(m_window.at(m_at));
    }
    return text;
}

QByteArray PlotScanner::textPart(char terminator, TextEnd &end)
{
    const int terminatorAt = find(terminator);
    int length = LongestText;
    end = TextEnd::GoesOn;
    if (terminatorAt >= 0) {
        length = terminatorAt - m_at;
        end = TextEnd::Terminated;
    } else if (!has(LongestText)) {
        const auto first = m_window.cbegin() + m_at;
        length = static_cast<int>(std::find_if(first, m_window.cend(), endsLine) - first);
        end = TextEnd::Missing;
    }
    return QByteArray::fromRawData(m_window.constData() + m_at, length);
}

// Where the next one stands in the window, if a text can be that long; otherwise -1.
int PlotScanner::find(char terminator)
{
    has(LongestText);
    qint64 &absentUpTo = m_absentUpTo[static_cast<unsigned char>(terminator)];
    const int end = std::min(m_window.size(), m_at + LongestText);
    const int start = static_cast<int>(qBound<qint64>(m_at, absentUpTo - m_dropped, end));
    const char *bytes = m_window.constData();
    const void *found = std::memchr(bytes + start, terminator, static_cast<std::size_t>(end - start));
    if (found)
        return static_cast<int>(static_cast<const char *>(found) - bytes);
    absentUpTo = m_dropped + end;
    return -1;
}

char PlotScanner::character()
{
    if (atEnd() || m_window.at(m_at) == ';')
        return '\0';
    return m_window.at(m_at++);
}

bool PlotScanner::skipQuoted()
{
    if (atEnd() || m_window.at(m_at) != '"')
        return true;
    ++m_at;
    bool terminated = false;
    text('"', terminated);
    return terminated;
}

// ESC . and a letter, its numbers and a colon (device control); ESC, a character from ! to /, anything up to
// a capital (printer language); ESC and one other character.
void PlotScanner::skipEscape()
{
    constexpr int LongestSequence = 64;
    ++m_at;
    if (atEnd())
        return;
    const char introducer = m_window.at(m_at++);
    if (introducer == '.') {
        if (!atEnd())
            ++m_at;
        while (!atEnd() && (isDigit(m_window.at(m_at)) || m_window.at(m_at) == ';'))
            ++m_at;
        if (!atEnd() && m_window.at(m_at) == ':')
            ++m_at;
    } else if (introducer >= '!' && introducer <= '/') {
        for (int i = 0; i < LongestSequence && !atEnd(); ++i) {
            const char c = m_window.at(m_at++);
            if (c >= '@' && c <= '^')
                break;
        }
    }
}

void PlotScanner::skipLine()
{
    while (!atEnd() && m_window.at(m_at) != '\n')
        ++m_at;
}
