// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "PlotSheet.h"

/// What the program remembers of the plot properties: whole numbers in the profile, texts in the registry.
/// The title belongs to the plot, by its file name; the rest to all of them.
class CPlotSettings
{
public:
    static constexpr int LongestTitle = 120;

    /// Values that are missing or make no sense are those of a new sheet.
    static PlotSheet Load(LPCTSTR lpszPlotTitle);
    static void Store(const PlotSheet &sheet, LPCTSTR lpszPlotTitle);
};
