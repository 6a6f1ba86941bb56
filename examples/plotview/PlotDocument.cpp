// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotDocument.h"

#include "PlotReader.h"
#include "ResourceText.h"

namespace {

// What Format() makes has room for a thousand characters, paths have more.
CString Shortened(const CString &strPathName)
{
    constexpr int nLongest = 400;
    if (strPathName.GetLength() <= nLongest)
        return strPathName;
    return _T("\u2026") + strPathName.Right(nLongest);
}

CString Reason(const PlotReading &reading, const CString &strPathName)
{
    const CString strShown = Shortened(strPathName);
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

BOOL CPlotDocument::Open(LPCTSTR lpszPathName, CString &strReason)
{
    const CString strPathName(lpszPathName);
    PlotReading reading = PlotReader::readFile(toQString(strPathName));
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

BOOL CPlotDocument::IsSample() const
{
    return m_strPathName.Left(1) == _T(":");
}
