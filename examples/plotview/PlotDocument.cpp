// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotDocument.h"

#include "PlotSummary.h"
#include "ResourceText.h"

namespace {

CString Reason(const PlotReading &reading, const CString &strPathName)
{
    const CString strShown = shortenedPath(strPathName);
    const LPCTSTR lpszPathName = strShown;
    CString strReason;
    switch (reading.result) {
    case PlotReading::Unreadable:
        strReason.Format(IDS_ERROR_UNREADABLE, lpszPathName);
        break;
    case PlotReading::Empty:
        strReason.Format(IDS_ERROR_EMPTY, lpszPathName);
        break;
    case PlotReading::TooLarge:
        strReason.Format(IDS_ERROR_TOO_LARGE, lpszPathName, PlotReader::LargestFile / (1024 * 1024));
        break;
    case PlotReading::NoInstructions:
        strReason.Format(IDS_ERROR_NO_INSTRUCTIONS, lpszPathName);
        break;
    case PlotReading::Cancelled:
        break;
    case PlotReading::Ok:
        if (!reading.plot.complete)
            strReason.Format(IDS_ERROR_TOO_MUCH, lpszPathName);
        else if (reading.plot.damagedCount > 0)
            strReason.Format(IDS_ERROR_DAMAGED, lpszPathName, reading.plot.damagedCount);
        break;
    }
    return strReason;
}

} // namespace

BOOL CPlotDocument::Open(LPCTSTR lpszPathName, CString &strReason, const PlotProgress &progress)
{
    const CString strPathName(lpszPathName);
    PlotReading reading = PlotReader::readFile(toQString(strPathName), progress);
    strReason = Reason(reading, strPathName);
    if (reading.result != PlotReading::Ok)
        return FALSE;
    m_strPathName = strPathName;
    m_pPlot = std::make_shared<const Plot>(std::move(reading.plot));
    return TRUE;
}

CString CPlotDocument::GetTitle() const
{
    return m_strPathName.Mid(m_strPathName.ReverseFind(_T('/')) + 1);
}

CString CPlotDocument::GetSummaryPathName() const
{
    // The samples have no folder that can be written to.
    const CString strFile = IsSample() ? GetTitle() : m_strPathName;
    const int nDot = GetTitle().ReverseFind(_T('.'));
    const int nExtension = nDot > 0 ? GetTitle().GetLength() - nDot : 0;
    return strFile.Left(strFile.GetLength() - nExtension) + _T(".txt");
}

BOOL CPlotDocument::SaveSummary(LPCTSTR lpszPathName) const
{
    return m_pPlot && CPlotSummary(*m_pPlot, GetTitle(), CTime::GetCurrentTime()).Save(lpszPathName);
}

BOOL CPlotDocument::IsSample() const
{
    return m_strPathName.Left(1) == _T(":");
}
