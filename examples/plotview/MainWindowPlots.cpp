// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "MainWindow.h"

#include "PlotMainForm.h"
#include "PlotProgressDialog.h"
#include "PlotViewApp.h"
#include "ResourceText.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

// The plots that are open: how they come, go and take turns.

BOOL CMainWindow::OpenPlots(const std::vector<CString> &paths)
{
    if (m_bReading)
        return FALSE;
    CString strReasons;
    int nFirst = -1;
    BOOL bAll = TRUE;
    for (const CString &strPathName : paths) {
        CString strReason;
        if (ReadPlot(strPathName, strReason)) {
            nFirst = nFirst < 0 ? m_plots.GetActiveIndex() : nFirst;
            if (!Document().IsSample() && !theApp().IsUnattended())
                m_recentPlots.Add(strPathName);
        } else {
            bAll = FALSE;
        }
        if (!strReason.IsEmpty())
            strReasons += strReasons.IsEmpty() ? strReason : _T("\n\n") + strReason;
    }
    if (nFirst >= 0) {
        m_plots.Activate(nFirst);
        ShowPlot();
        ShowRecentPlots();
    }
    if (!strReasons.IsEmpty())
        theApp().Report(strReasons);
    return bAll;
}

void CMainWindow::OnPlotOpen()
{
    const QFileInfo current(toQString(Document().GetPathName()));
    const QString folder = Document().IsSample() ? QDir::currentPath() : current.absolutePath();
    OpenPlots(m_openDialog.Ask(*this, toCString(folder)));
}

void CMainWindow::OnPlotClose()
{
    m_plots.CloseActive();
    ShowPlot();
}

void CMainWindow::OnSample(UINT nID)
{
    OpenPlot(theApp().GetSamplePath(nID));
}

// What cannot be opened any more is forgotten, but not what the user stopped.
void CMainWindow::OnRecent(UINT nID)
{
    const std::size_t nIndex = nID - ID_RECENT_FIRST;
    if (nIndex >= m_recentPlots.GetPaths().size())
        return;
    const CString strPathName = m_recentPlots.GetPaths()[nIndex];
    CFileStatus status;
    if (!OpenPlot(strPathName) && !CFile::GetStatus(strPathName, status)) {
        m_recentPlots.Remove(strPathName);
        ShowRecentPlots();
    }
}

void CMainWindow::OnWindowNext()
{
    ShowPlotIf(m_plots.ActivateNext(1));
}

void CMainWindow::OnWindowPrevious()
{
    ShowPlotIf(m_plots.ActivateNext(-1));
}

void CMainWindow::OnWindow(UINT nID)
{
    ShowPlotIf(m_plots.Activate(static_cast<int>(nID - ID_WINDOW_FIRST)));
}

// No command is carried out meanwhile, whatever the user presses: the dialog lets messages in.
BOOL CMainWindow::ReadPlot(LPCTSTR lpszPathName, CString &strReason)
{
    const CString strTitle = CString(lpszPathName).Mid(CString(lpszPathName).ReverseFind(_T('/')) + 1);
    const DWORD dwStart = GetTickCount();
    std::unique_ptr<CPlotProgressDialog> pDialog;
    m_bReading = TRUE;
    UpdateCommands();
    const BOOL bRead = m_plots.Open(lpszPathName, strReason, [&](qint64 done, qint64 total) {
        const auto nTotal = static_cast<ULONGLONG>(total);
        if (!pDialog && !theApp().IsUnattended()
            && CPlotProgressDialog::IsWorthwhile(nTotal, GetTickCount() - dwStart))
            pDialog = std::make_unique<CPlotProgressDialog>(strTitle, this);
        return !pDialog || pDialog->Advance(static_cast<ULONGLONG>(done), nTotal);
    });
    m_bReading = FALSE;
    UpdateCommands();
    return bRead;
}

// What was filled on the sheet stays as long as the plot is the one that is shown.
void CMainWindow::ShowPlotIf(BOOL bChanged)
{
    if (bChanged)
        ShowPlot();
    else
        ShowOpenPlots();    // a click on the check mark has taken it away
}

void CMainWindow::ShowOpenPlots()
{
    QStringList names;
    for (int i = 0; i < m_plots.GetCount(); ++i) {
        const CPlotDocument &plot = m_plots.GetAt(i);
        names.append(toQString(plot.IsSample() ? plot.GetTitle()
                                               : CRecentPlots::GetDisplayName(plot.GetPathName())));
    }
    m_pForm->showOpenPlots(names, m_plots.GetActiveIndex());
}
