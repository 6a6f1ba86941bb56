// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "Plot.h"

/// What is in a plot, as lines of text.
class CPlotSummary
{
public:
    CPlotSummary(const Plot &plot, LPCTSTR lpszPlotTitle, CTime time);

    const CStringArray &GetLines() const { return m_lines; }

    /// Writes the lines to a file, in place of what it held.
    /// \return FALSE when not all of it could be written
    BOOL Save(LPCTSTR lpszPathName) const;

private:
    void AddLine(UINT nFormat, ...);
    void AddBounds(const QRectF &bounds);

    CStringArray m_lines;
};
