// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotSummary.h"

CPlotSummary::CPlotSummary(const Plot &plot, LPCTSTR lpszPlotTitle, CTime time)
{
    AddLine(IDS_SUMMARY_PLOT, lpszPlotTitle);
    AddLine(IDS_SUMMARY_DATE, static_cast<LPCTSTR>(time.Format(_T("%Y-%m-%d %H:%M:%S"))));
    if (plot.isBlank())
        AddLine(IDS_SUMMARY_BLANK);
    else
        AddBounds(plot.bounds());
    AddLine(IDS_SUMMARY_STROKES, static_cast<int>(plot.strokes.size()));
    AddLine(IDS_SUMMARY_AREAS, static_cast<int>(plot.areas.size()));
    AddLine(IDS_SUMMARY_LABELS, static_cast<int>(plot.labels.size()));
    AddLine(IDS_SUMMARY_INSTRUCTIONS, plot.instructionCount, plot.skippedCount);
    if (!plot.complete)
        AddLine(IDS_SUMMARY_INCOMPLETE);
    for (const auto &[nPen, nMarks] : plot.marksByPen())
        AddLine(IDS_SUMMARY_PEN, nPen, nMarks);
}

BOOL CPlotSummary::Save(LPCTSTR lpszPathName) const
{
    CStdioFile file;
    if (!file.Open(lpszPathName, CFile::modeCreate | CFile::modeWrite))
        return FALSE;
    ULONGLONG nCharacters = 0;
    for (long i = 0; i < m_lines.GetSize(); ++i) {
        file.WriteString(m_lines[i]);
        file.WriteString(_T("\n"));
        nCharacters += static_cast<ULONGLONG>(m_lines[i].GetLength()) + 1;
    }
    // No call tells that the disk is full: the file is then shorter than what was written to it.
    file.Flush();
    const ULONGLONG nWritten = file.GetPosition();
    file.CFile::Flush();
    return nWritten >= nCharacters && file.GetLength() == nWritten;
}

void CPlotSummary::AddLine(UINT nFormat, ...)
{
    CString strFormat;
    strFormat.LoadString(nFormat);
    CString strLine;
    va_list arguments;
    va_start(arguments, nFormat);
    strLine.FormatV(strFormat, arguments);
    va_end(arguments);
    m_lines.Add(strLine);
}

void CPlotSummary::AddBounds(const QRectF &bounds)
{
    constexpr double dUnits = Plot::UnitsPerMillimetre;
    AddLine(IDS_SUMMARY_BOUNDS, bounds.left() / dUnits, bounds.right() / dUnits, bounds.top() / dUnits,
            bounds.bottom() / dUnits);
    AddLine(IDS_SUMMARY_SIZE, bounds.width() / dUnits, bounds.height() / dUnits);
}
