// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "PlotOptions.h"
#include "PlotSheet.h"

#include <vector>

/// What the program remembers of the plot properties, the options and the recent plots: whole numbers in the
/// profile, texts in the registry. The title belongs to the plot, by its file name; the rest to all of them.
class CPlotSettings
{
public:
    static constexpr int LongestTitle = 120;
    static constexpr int LongestPath = 4096;

    /// Values that are missing or make no sense are those of a new sheet.
    static PlotSheet Load(LPCTSTR lpszPlotTitle);
    static void Store(const PlotSheet &sheet, LPCTSTR lpszPlotTitle);

    static PlotOptions LoadOptions();
    static void StoreOptions(const PlotOptions &options);

    /// The files opened last, the latest first.
    static std::vector<CString> LoadRecentPlots();
    static void StoreRecentPlots(const std::vector<CString> &plots);
};
