// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "PlotDocument.h"

#include <memory>
#include <vector>

/// The plots that are open, in the order in which they were opened. While there are any, one of them is the
/// active one.
class COpenPlots
{
public:
    COpenPlots();

    /// Reads a plot, as CPlotDocument::Open() does, and makes it the active one. A plot that is open already
    /// is read once more in its place.
    BOOL Open(LPCTSTR lpszPathName, CString &strReason, const PlotProgress &progress);
    /// Closes the active plot; the one behind it becomes active, or the last.
    void CloseActive();

    int GetCount() const { return static_cast<int>(m_plots.size()); }
    /// -1 when no plot is open.
    int GetActiveIndex() const { return m_nActive; }
    /// \return FALSE when nothing changes: there is no such plot, or it is active
    BOOL Activate(int nIndex);
    /// Goes on by some plots, or back; the first one follows the last. \return FALSE when nothing changes
    BOOL ActivateNext(int nSteps);

    /// A document without a plot when no plot is open.
    CPlotDocument &GetActive();
    const CPlotDocument &GetActive() const;
    const CPlotDocument &GetAt(int nIndex) const { return *m_plots[static_cast<std::size_t>(nIndex)]; }

private:
    int Find(LPCTSTR lpszPathName) const;

    CPlotDocument m_none;
    std::vector<std::unique_ptr<CPlotDocument>> m_plots;
    int m_nActive = -1;
};
