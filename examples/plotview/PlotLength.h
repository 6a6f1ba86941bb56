// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "PlotOptions.h"

/// A length in plotter units as a number in the units that the user chose, without their name.
CString LengthText(double dPlotterUnits, const PlotUnits &units);
