// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotFile.h"

#include "ResourceText.h"

#include <QtCore/QFileInfo>
#include <QtCore/QTextCodec>

namespace {

constexpr wchar_t CarriageReturn = 0xe00d;
constexpr wchar_t LineGoesOn = 0xe00a;
// What stands for the end of a pipe, which does not tell how far it was read.
constexpr int MostEmptyLines = 256 * 1024;

// A locale's codec would lose what is no text to it, and plots are no text: encoded polylines have bytes of
// any value, labels are Latin-1. Nor could the line ends CR LF and LF be told apart, which move a pen
// differently within a label. So each byte is one character here, CR is none that ends a line, and a long
// line is cut into pieces.
class PlotCodec : public QTextCodec
{
public:
    void setLocaleCodec(QTextCodec *codec) { m_localeCodec = codec; }

    QByteArray name() const override { return QByteArrayLiteral("plotview-plot"); }
    int mibEnum() const override { return 0; }

protected:
    // Without a state it is no stream that asks, but somebody with the name of a file.
    QString convertToUnicode(const char *bytes, int length, ConverterState *state) const override
    {
        return state ? text(bytes, length, state->state_data[0]) : m_localeCodec->toUnicode(bytes, length);
    }

    QByteArray convertFromUnicode(const QChar *characters, int length, ConverterState *) const override
    {
        return m_localeCodec->fromUnicode(characters, length);
    }

private:
    static QString text(const char *bytes, int length, uint &column)
    {
        QString text;
        text.reserve(length + 2 * (length / CPlotFile::LongestPiece + 1));
        for (int i = 0; i < length; ++i) {
            text.append(bytes[i] == '\r' ? QChar(CarriageReturn) : QLatin1Char(bytes[i]));
            column = bytes[i] == '\n' ? 0 : column + 1;
            if (column == CPlotFile::LongestPiece) {
                text.append(QChar(LineGoesOn)).append(QLatin1Char('\n'));
                column = 0;
            }
        }
        return text;
    }

    QTextCodec *m_localeCodec = nullptr;
};

// The stream behind a CStdioFile keeps the codec that is the locale's when the file is opened.
class CodecAtOpen
{
public:
    CodecAtOpen() : m_before(QTextCodec::codecForLocale())
    {
        static auto *const codec = new PlotCodec;   // Qt owns it
        codec->setLocaleCodec(m_before);
        QTextCodec::setCodecForLocale(codec);
    }
    ~CodecAtOpen() { QTextCodec::setCodecForLocale(m_before); }
    CodecAtOpen(const CodecAtOpen &) = delete;
    CodecAtOpen &operator=(const CodecAtOpen &) = delete;

private:
    QTextCodec *m_before;
};

// A file that says by its first bytes that it is Unicode is read as that; what plotters cannot write is "?".
char Byte(wchar_t character)
{
    if (character == CarriageReturn)
        return '\r';
    return character <= 0xff ? static_cast<char>(character) : '?';
}

} // namespace

BOOL CPlotFile::OpenPlot(LPCTSTR lpszPathName)
{
    const CodecAtOpen codec;
    m_nConsumed = 0;
    m_nEmptyLines = 0;
    m_bEnded = FALSE;
    m_bHasPosition = QFileInfo(toQString(lpszPathName)).isFile();
    return Open(lpszPathName, modeRead | typeBinary | shareDenyWrite);
}

BOOL CPlotFile::ReadPiece(QByteArray &bytes)
{
    if (m_bEnded)
        return FALSE;
    ReadString(m_strLine);
    auto nLength = static_cast<int>(m_strLine.size());  // GetLength() ends at a zero
    const BOOL bGoesOn = nLength > 0 && m_strLine[nLength - 1] == LineGoesOn;
    nLength -= bGoesOn ? 1 : 0;
    m_nEmptyLines = m_strLine.IsEmpty() ? m_nEmptyLines + 1 : 0;
    m_nConsumed += static_cast<ULONGLONG>(nLength) + (bGoesOn ? 0 : 1);
    m_bEnded = IsPastEnd();

    const int nBefore = bytes.size();
    bytes.resize(nBefore + nLength);
    char *pByte = bytes.data() + nBefore;
    for (int i = 0; i < nLength; ++i)
        pByte[i] = Byte(m_strLine[i]);
    if (!bGoesOn && !m_bEnded)
        bytes.append('\n');
    return TRUE;
}

BOOL CPlotFile::IsCutShort() const
{
    return m_bEnded && m_bHasPosition && GetPosition() < GetLength();
}

// ReadString() does not tell the end. But a line whose end would stand behind all that was read from the file
// has none, so it is the last.
BOOL CPlotFile::IsPastEnd() const
{
    return m_bHasPosition ? m_nConsumed > GetPosition() : m_nEmptyLines > MostEmptyLines;
}
