// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

#include <bitset>
#include <vector>

/// The numeric parameters of an instruction, up to the first damaged one.
struct PlotNumbers
{
    std::vector<double> values;
    bool damaged = false;   ///< one was no number, or too large for any plotter
};

/// Cuts the bytes of a plot file into two-letter instructions and their parameters. Passes over
/// device-control and printer-language escape sequences.
class PlotScanner
{
public:
    explicit PlotScanner(const QByteArray &bytes) : m_bytes(bytes) {}

    /// Moves behind the next mnemonic, in upper case in `mnemonic`; false at the end of the bytes.
    bool nextMnemonic(char (&mnemonic)[3]);

    PlotNumbers numbers();

    /// The bytes up to `terminator`, which is passed over. Without one, the rest of the line, and
    /// `terminated` is false.
    QByteArray text(char terminator, bool &terminated);

    /// The byte that stands here, passed over unless it is the instruction's end; 0 when there is none.
    char character();

    /// Passes over a text in double quotes, if one stands here; false when its end is missing.
    bool skipQuoted();

    /// Runs of bytes that belong to no instruction, passed over so far.
    int strayRuns() const { return m_strayRuns; }

private:
    bool atEnd() const { return m_at >= m_bytes.size(); }
    bool number(double &value);
    void skipEscape();
    void skipLine();

    QByteArray m_bytes;
    int m_at = 0;
    int m_strayRuns = 0;
    std::bitset<256> m_exhausted;   // characters that are known not to come again
};
