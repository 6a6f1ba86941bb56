// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

#include <array>
#include <functional>
#include <vector>

/// Appends the next bytes of a plot; false when there are no more.
using PlotSource = std::function<bool(QByteArray &bytes)>;

/// The numeric parameters of an instruction, up to the first damaged one.
struct PlotNumbers
{
    std::vector<double> values;
    bool damaged = false;   ///< one was no number, or too large for any plotter
    bool more = false;      ///< the next call of PlotScanner::numbers() gives the rest
};

/// Cuts the bytes of a plot file into two-letter instructions and their parameters. Passes over
/// device-control and printer-language escape sequences. Of the bytes it holds only those around the place
/// where it is.
class PlotScanner
{
public:
    static constexpr int LongestText = 64 * 1024;   ///< a longer one is taken to have no end
    static constexpr int LongestNumber = 1024;      ///< characters; a longer one is damaged
    static constexpr int MostNumbers = 4096;        ///< given at once; even, so that points stay together

    explicit PlotScanner(const PlotSource &source) : m_source(source) {}

    /// Moves behind the next mnemonic, in upper case in `mnemonic`; false at the end of the bytes.
    bool nextMnemonic(char (&mnemonic)[3]);

    /// Gives the numbers that stand here.
    void numbers(PlotNumbers &numbers);
    /// Passes over the numbers that stand here; false when one is damaged.
    bool skipNumbers();

    /// The bytes up to `terminator`, which is passed over. Without one, the rest of the line, and
    /// `terminated` is false.
    QByteArray text(char terminator, bool &terminated);

    enum class TextEnd { Terminated, GoesOn, Missing };
    /// As text(), but a long one in parts, of which nothing is passed over. They are not to be kept.
    QByteArray textPart(char terminator, TextEnd &end);
    /// Passes over bytes of the last textPart().
    void pass(int bytes) { m_at += bytes; }

    /// The byte that stands here, passed over unless it is the instruction's end; 0 when there is none.
    char character();

    /// Passes over a text in double quotes, if one stands here; false when its end is missing.
    bool skipQuoted();

    /// Runs of bytes that belong to no instruction, passed over so far.
    int strayRuns() const { return m_strayRuns; }

private:
    bool has(int bytes) { return m_window.size() - m_at >= bytes || fill(bytes); }
    bool atEnd() { return !has(1); }
    bool fill(int bytes);
    int find(char terminator);
    bool number(double &value);
    void skipEscape();
    void skipLine();

    PlotSource m_source;
    QByteArray m_window;
    int m_at = 0;
    qint64 m_dropped = 0;           // bytes in front of the window
    bool m_sourceEnded = false;
    int m_strayRuns = 0;
    PlotNumbers m_skipped;
    std::array<qint64, 256> m_absentUpTo = {};  // for each character: how far it is known not to come again
};
