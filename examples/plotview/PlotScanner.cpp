// SPDX-License-Identifier: MIT
#include "PlotScanner.h"

#include <charconv>
#include <cmath>

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

char upperCase(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

bool PlotScanner::nextMnemonic(char (&mnemonic)[3])
{
    bool inStrayRun = false;
    while (!atEnd()) {
        const char c = m_bytes.at(m_at);
        if (c == Escape) {
            skipEscape();
            inStrayRun = false;
        } else if (c == '@' && m_bytes.mid(m_at, 4) == "@PJL") {
            skipLine();
            inStrayRun = false;
        } else if (isSeparator(c) || c == ';') {
            ++m_at;
            inStrayRun = inStrayRun && c != ';';
        } else if (isLetter(c) && m_at + 1 < m_bytes.size() && isLetter(m_bytes.at(m_at + 1))) {
            mnemonic[0] = upperCase(c);
            mnemonic[1] = upperCase(m_bytes.at(m_at + 1));
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

PlotNumbers PlotScanner::numbers()
{
    PlotNumbers numbers;
    while (!atEnd()) {
        const char c = m_bytes.at(m_at);
        if (isSeparator(c)) {
            ++m_at;
        } else if (startsNumber(c)) {
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
    return numbers;
}

bool PlotScanner::number(double &value)
{
    const int start = m_bytes.at(m_at) == '+' ? m_at + 1 : m_at;
    const char *first = m_bytes.constData() + start;
    const char *last = m_bytes.constData() + m_bytes.size();
    const std::from_chars_result result = std::from_chars(first, last, value);
    // from_chars would take "inf" and "nan", and a sign behind the plus.
    const bool plain = start < m_bytes.size() && *first != '+' && !(start != m_at && *first == '-')
                       && result.ptr != first && std::isfinite(value);
    if (!plain) {
        ++m_at;
        return false;
    }
    m_at = static_cast<int>(result.ptr - m_bytes.constData());
    return result.ec == std::errc() && std::fabs(value) <= LargestNumber;
}

QByteArray PlotScanner::text(char terminator, bool &terminated)
{
    const int start = m_at;
    const auto known = static_cast<unsigned char>(terminator);
    const int end = m_exhausted.test(known) ? -1 : m_bytes.indexOf(terminator, start);
    terminated = end >= 0;
    m_exhausted.set(known, !terminated);
    if (terminated) {
        m_at = end + 1;
        return m_bytes.mid(start, end - start);
    }
    while (!atEnd() && m_bytes.at(m_at) != '\n' && m_bytes.at(m_at) != '\r')
        ++m_at;
    return m_bytes.mid(start, m_at - start);
}

char PlotScanner::character()
{
    if (atEnd() || m_bytes.at(m_at) == ';')
        return '\0';
    return m_bytes.at(m_at++);
}

bool PlotScanner::skipQuoted()
{
    if (atEnd() || m_bytes.at(m_at) != '"')
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
    const char introducer = m_bytes.at(m_at++);
    if (introducer == '.') {
        if (!atEnd())
            ++m_at;
        while (!atEnd() && (isDigit(m_bytes.at(m_at)) || m_bytes.at(m_at) == ';'))
            ++m_at;
        if (!atEnd() && m_bytes.at(m_at) == ':')
            ++m_at;
    } else if (introducer >= '!' && introducer <= '/') {
        for (int i = 0; i < LongestSequence && !atEnd(); ++i) {
            const char c = m_bytes.at(m_at++);
            if (c >= '@' && c <= '^')
                break;
        }
    }
}

void PlotScanner::skipLine()
{
    while (!atEnd() && m_bytes.at(m_at) != '\n')
        ++m_at;
}
