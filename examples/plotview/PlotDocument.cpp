// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotDocument.h"

#include "PlotSummary.h"
#include "ResourceText.h"

#include <QRmUiPathname.h>

#include <vector>

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

BOOL CopyBytes(LPCTSTR lpszFrom, LPCTSTR lpszTo)
{
    CFile from;
    CFile to;
    if (!from.Open(lpszFrom, CFile::modeRead) || !to.Open(lpszTo, CFile::modeCreate | CFile::modeWrite))
        return FALSE;
    std::vector<char> bytes(64 * 1024);
    while (const UINT nRead = from.Read(bytes.data(), static_cast<UINT>(bytes.size())))
        to.Write(bytes.data(), nRead);
    // No call tells that the disk is full: the copy is then the shorter one.
    to.Flush();
    return to.GetLength() == from.GetLength();
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

BOOL CPlotDocument::AddStrokes(const std::vector<PlotStroke> &strokes)
{
    if (!m_pPlot || m_pPlot->pointCount() + pointCount(strokes) > PlotReader::MostPoints)
        return FALSE;
    auto pPlot = std::make_shared<Plot>(*m_pPlot);
    pPlot->strokes.insert(pPlot->strokes.end(), strokes.begin(), strokes.end());
    m_pPlot = std::move(pPlot);
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

BOOL CPlotDocument::ExportCopy(CString &strPathName) const
{
    CRmUiPathname path;
    CRmUiPathname copy;
    CString strFullPath;
    // The unique name of a bare file name would be made behind it.
    if (!m_pPlot || path.Parse(IsSample() ? GetTitle() : m_strPathName) != 0 || !path.GetFullPath(strFullPath)
        || path.Parse(strFullPath) != 0 || !path.GetUniqueName(copy, true) || !copy.GetFullPath(strPathName))
        return FALSE;
    if (CopyBytes(m_strPathName, strPathName))
        return TRUE;
    DeleteFile(strPathName);
    return FALSE;
}

BOOL CPlotDocument::IsSample() const
{
    return m_strPathName.Left(1) == _T(":");
}
