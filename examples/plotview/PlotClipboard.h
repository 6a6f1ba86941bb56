// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "Plot.h"

#include <vector>

/// Strokes on the clipboard, as PlotStrokeBlock writes them.
class CPlotClipboard
{
public:
    static constexpr LPCTSTR FormatName = _T("application/x-plotview-strokes");

    /// Registers the format.
    CPlotClipboard();

    void Copy(const std::vector<PlotStroke> &strokes) const;
    /// Whether there is something to paste.
    BOOL IsAvailable() const;
    /// \return what is on the clipboard; nothing when it cannot be read
    std::vector<PlotStroke> Paste() const;

private:
    UINT m_nFormat;
};
