// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtCore/QByteArray>

/// A plot file, read line by line as text, of which every byte comes back.
class CPlotFile : public CStdioFile
{
public:
    /// Lines longer than this come in pieces: a plot may be a single line of any length.
    static constexpr int LongestPiece = 4096;

    BOOL OpenPlot(LPCTSTR lpszPathName);

    /// Appends the next line and its end, or the next piece of a long one. FALSE behind the end of the file.
    BOOL ReadPiece(QByteArray &bytes);

    /// Whether the file ended before all of it could be read.
    BOOL IsCutShort() const;

private:
    BOOL IsPastEnd() const;

    CString m_strLine;
    ULONGLONG m_nConsumed = 0;      // bytes, and one for the line end that the last line may not have
    BOOL m_bHasPosition = FALSE;    // not a pipe
    int m_nEmptyLines = 0;          // since the last line with something in it
    BOOL m_bEnded = FALSE;
};
