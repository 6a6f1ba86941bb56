// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "Plot.h"
#include "PlotReader.h"

#include <memory>

/// The plot that the main window shows.
class CPlotDocument : public CDocument
{
public:
    /// Reads a plot file. When that fails the plot stays what it was.
    /// \return FALSE when it failed; strReason then says why, unless `progress` cancelled it; after a success
    /// it says what was damaged, if anything
    BOOL Open(LPCTSTR lpszPathName, CString &strReason, const PlotProgress &progress = PlotProgress());

    /// The plot's file with the extension .txt; of a sample, in the current folder.
    CString GetSummaryPathName() const;
    /// \return FALSE when it could not be written, or there is no plot
    BOOL SaveSummary(LPCTSTR lpszPathName) const;

    /// Writes the bytes of the plot's file to a new one beside it, whose name is not taken; those of a sample
    /// in the current folder. \return FALSE when not all of it could be written, and nothing is left then
    BOOL ExportCopy(CString &strPathName) const;

    /// Draws strokes above what is there; the file stays as it is. \return FALSE when there is no plot, or
    /// more would be in it than a plot may have
    BOOL AddStrokes(const std::vector<PlotStroke> &strokes);

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
