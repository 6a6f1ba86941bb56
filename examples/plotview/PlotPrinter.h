// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "PlotFills.h"
#include "PlotSheetPainter.h"

class CPlotSummary;

/// Prints a plot to a PDF file: its sheet in true size, and a page that says what is in it.
class CPlotPrinter
{
public:
    /// The sheet has to live as long as it is printed.
    CPlotPrinter(const PlotSheetPainter &sheet, const PlotFills &fills) : m_sheet(sheet), m_fills(fills) {}

    /// Writes the file, in place of what it held. \return FALSE when not all of it could be written
    BOOL Print(LPCTSTR lpszPathName, LPCTSTR lpszTitle, const CPlotSummary &summary) const;

private:
    QByteArray MakePages(LPCTSTR lpszTitle, const CPlotSummary &summary) const;
    void DrawSheet(KxQtPainterWrapper &painter, const QRect &page) const;
    void DrawSummary(KxQtPainterWrapper &painter, LPCTSTR lpszTitle, const CPlotSummary &summary) const;

    const PlotSheetPainter &m_sheet;
    const PlotFills &m_fills;
};
