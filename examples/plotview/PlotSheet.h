// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

/// How a plot is put on paper.
struct PlotSheet
{
    enum Size { FitPlot, A4, A3, A2, SizeCount };
    enum Paper { White, Ivory, Millimetre, Blueprint, PaperCount };

    static constexpr double LargestScale = 100;
    static constexpr int PenCount = 8;
    static constexpr int LargestMargin = 50;

    QString title;          ///< below the plot; without one there is no title block
    double scale = 1;       ///< 1 fills the room inside the margins
    int titlePen = 1;       ///< 1 to PenCount
    bool rotate = false;    ///< a quarter turn, sheet and plot
    int size = FitPlot;
    int paper = White;
    int margin = 15;        ///< millimetres
};
