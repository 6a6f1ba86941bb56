// SPDX-License-Identifier: MIT
#pragma once

#include "PlotSheet.h"

#include <QtGui/QRgb>

#include <array>

/// The pens in the plotter's carousel.
struct PlotPens
{
    static constexpr int ThinnestLine = 10;
    static constexpr int WidestLine = 100;

    /// Opaque, of pen 1 and so on; 0 is the colour that plot and paper give.
    std::array<QRgb, PlotSheet::PenCount> colours = {};
    int width = 35;     ///< hundredths of a millimetre, of lines that have no width of their own
};

inline bool operator==(const PlotPens &a, const PlotPens &b)
{
    return a.colours == b.colours && a.width == b.width;
}

/// The units that lengths are shown in.
struct PlotUnits
{
    enum Unit { Millimetres, Centimetres, Inches, PlotterUnits, UnitCount };

    static constexpr int MostDecimals = 3;

    int unit = Millimetres;
    int decimals = 1;
};

/// What the user chose for all plots.
struct PlotOptions
{
    static constexpr std::array<int, 4> RowChoices = {500, 2000, 5000, 10000};
    static constexpr int MostRecentPlots = 8;

    bool fade = true;       ///< what is not selected, while something is
    int rows = 1;           ///< of RowChoices: how many marks are listed at most
    int recentPlots = 4;    ///< in the File menu
    PlotPens pens;
    PlotUnits units;
};
