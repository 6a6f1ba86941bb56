// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "RecentPlots.h"

#include "PlotSettings.h"
#include "ResourceText.h"

#include <QRmUiPathname.h>

#include <algorithm>

namespace {

constexpr int nLongestName = 40;

} // namespace

CRecentPlots::CRecentPlots()
    : m_paths(CPlotSettings::LoadRecentPlots())
{
}

void CRecentPlots::Add(LPCTSTR lpszPathName)
{
    const CString strPath = fullPath(lpszPathName);
    if (strPath.GetLength() > CPlotSettings::LongestPath)
        return;
    Drop(strPath);
    m_paths.insert(m_paths.begin(), strPath);
    if (m_paths.size() > PlotOptions::MostRecentPlots)
        m_paths.resize(PlotOptions::MostRecentPlots);
    CPlotSettings::StoreRecentPlots(m_paths);
}

void CRecentPlots::Remove(LPCTSTR lpszPathName)
{
    const std::size_t nBefore = m_paths.size();
    Drop(fullPath(lpszPathName));
    if (m_paths.size() != nBefore)
        CPlotSettings::StoreRecentPlots(m_paths);
}

// Names may have what a path name refuses, such as a colon.
CString CRecentPlots::GetDisplayName(LPCTSTR lpszPathName)
{
    CRmUiPathname path;
    CString strName;
    if (path.Parse(lpszPathName) == 0)
        path.GetDisplayName(strName, nLongestName);
    return strName.IsEmpty() ? shortenedPath(lpszPathName, nLongestName) : strName;
}

void CRecentPlots::Drop(LPCTSTR lpszPathName)
{
    const CString strPath(lpszPathName);
    m_paths.erase(std::remove(m_paths.begin(), m_paths.end(), strPath), m_paths.end());
}
