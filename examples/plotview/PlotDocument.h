// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "Plot.h"

#include <memory>

/// The plot that the main window shows.
class CPlotDocument : public CDocument
{
public:
    /// Reads a plot file. When that fails the plot stays what it was.
    /// \return FALSE when it failed; strReason then says why, after a success what was damaged, if anything
    BOOL Open(LPCTSTR lpszPathName, CString &strReason);

    const CString &GetPathName() const { return m_strPathName; }
    CString GetTitle() const;
    /// Whether it is one of those that come with the program.
    BOOL IsSample() const;

    /// Null until a plot was opened.
    const std::shared_ptr<const Plot> &GetPlot() const { return m_pPlot; }

private:
    CString m_strPathName;
    std::shared_ptr<const Plot> m_pPlot;
};
