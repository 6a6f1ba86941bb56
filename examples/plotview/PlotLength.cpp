// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotLength.h"

#include "Plot.h"

CString LengthText(double dPlotterUnits, const PlotUnits &units)
{
    constexpr double dMillimetre = Plot::UnitsPerMillimetre;
    constexpr double adUnits[PlotUnits::UnitCount] = {dMillimetre, 10 * dMillimetre, 25.4 * dMillimetre, 1};
    CString strText;
    strText.Format(_T("%.*f"), units.decimals, dPlotterUnits / adUnits[units.unit]);
    return strText;
}
