// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "OpenPlots.h"

#include "ResourceText.h"

#include <algorithm>

COpenPlots::COpenPlots() = default;

BOOL COpenPlots::Open(LPCTSTR lpszPathName, CString &strReason, const PlotProgress &progress)
{
    const int nOpen = Find(lpszPathName);
    if (nOpen >= 0) {
        if (!m_plots[static_cast<std::size_t>(nOpen)]->Open(lpszPathName, strReason, progress))
            return FALSE;
        m_nActive = nOpen;
        return TRUE;
    }
    auto pPlot = std::make_unique<CPlotDocument>();
    if (!pPlot->Open(lpszPathName, strReason, progress))
        return FALSE;
    m_plots.push_back(std::move(pPlot));
    m_nActive = GetCount() - 1;
    return TRUE;
}

void COpenPlots::CloseActive()
{
    if (m_nActive < 0)
        return;
    m_plots.erase(m_plots.begin() + m_nActive);
    m_nActive = std::min(m_nActive, GetCount() - 1);
}

BOOL COpenPlots::Activate(int nIndex)
{
    if (nIndex == m_nActive || nIndex < 0 || nIndex >= GetCount())
        return FALSE;
    m_nActive = nIndex;
    return TRUE;
}

BOOL COpenPlots::ActivateNext(int nSteps)
{
    const int nCount = GetCount();
    return nCount > 0 && Activate(((m_nActive + nSteps) % nCount + nCount) % nCount);
}

CPlotDocument &COpenPlots::GetActive()
{
    return m_nActive < 0 ? m_none : *m_plots[static_cast<std::size_t>(m_nActive)];
}

const CPlotDocument &COpenPlots::GetActive() const
{
    return m_nActive < 0 ? m_none : GetAt(m_nActive);
}

int COpenPlots::Find(LPCTSTR lpszPathName) const
{
    const CString strPath = fullPath(lpszPathName);
    for (int i = 0; i < GetCount(); ++i) {
        if (fullPath(GetAt(i).GetPathName()) == strPath)
            return i;
    }
    return -1;
}
