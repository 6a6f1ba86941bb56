// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "MainWindow.h"

#include "MessageMapRouter.h"
#include "PlotCanvas.h"
#include "PlotLegend.h"
#include "PlotMainForm.h"
#include "PlotProgressDialog.h"
#include "PlotPropertiesDialog.h"
#include "PlotSettings.h"
#include "PlotViewApp.h"
#include "ResourceText.h"

#include <QtCore/QFileInfo>
#include <QtWidgets/QAction>

BEGIN_MESSAGE_MAP(CMainWindow, CWnd)
    ON_COMMAND(ID_PLOT_OPEN, &CMainWindow::OnPlotOpen)
    ON_COMMAND(ID_PLOT_PROPERTIES, &CMainWindow::OnPlotProperties)
    ON_COMMAND(ID_PLOT_SUMMARY, &CMainWindow::OnPlotSummary)
    ON_COMMAND(ID_PLOT_QUIT, &CMainWindow::OnPlotQuit)
    ON_COMMAND_RANGE(ID_SAMPLE_FIRST, ID_SAMPLE_LAST, &CMainWindow::OnSample)
END_MESSAGE_MAP()

CMainWindow::CMainWindow() : m_pForm(std::make_unique<PlotMainForm>())
{
    Attach(KxHwndFromWidget(m_pForm.get()));
    auto *router = new MessageMapRouter(this, GetThisMessageMap(), m_pForm.get());
    for (const auto &[id, widget] : m_pForm->controls()) {
        SetDlgItem(static_cast<int>(id), KxHwndFromWidget(widget));
        router->addControl(id, widget);
    }
    for (const auto &[id, action] : m_pForm->commands())
        router->addCommand(id, action);
    ShowPlot();
}

CMainWindow::~CMainWindow() = default;

BOOL CMainWindow::OpenPlot(LPCTSTR lpszPathName)
{
    if (m_bReading)
        return FALSE;
    CString strReason;
    const BOOL bOpened = ReadPlot(lpszPathName, strReason);
    if (bOpened) {
        m_sheet = CPlotSettings::Load(m_document.GetTitle());
        ShowPlot();
    }
    if (!strReason.IsEmpty())
        theApp().Report(strReason);
    return bOpened;
}

BOOL CMainWindow::SaveSummary(LPCTSTR lpszPathName)
{
    const CString strShown = shortenedPath(lpszPathName);
    const BOOL bSaved = m_document.SaveSummary(lpszPathName);
    CString strText;
    strText.Format(bSaved ? IDS_SUMMARY_SAVED_FORMAT : IDS_ERROR_SUMMARY, static_cast<LPCTSTR>(strShown));
    if (bSaved)
        SetDlgItemText(IDC_STATUS_MESSAGE, strText);
    else
        theApp().Report(strText);
    return bSaved;
}

void CMainWindow::OnPlotOpen()
{
    const QFileInfo current(toQString(m_document.GetPathName()));
    const QString path = m_pForm->askPlotFile(m_document.IsSample() ? QString() : current.path());
    if (!path.isEmpty())
        OpenPlot(toCString(path));
}

void CMainWindow::OnPlotProperties()
{
    CPlotPropertiesDialog dialog(m_sheet, m_document.GetPlot(), this);
    if (dialog.DoModal() != IDOK)
        return;
    m_sheet = dialog.GetSheet();
    CPlotSettings::Store(m_sheet, m_document.GetTitle());
    ShowSheet();
}

void CMainWindow::OnPlotSummary()
{
    const CString strPathName = m_document.GetSummaryPathName();
    CFileStatus status;
    if (CFile::GetStatus(strPathName, status)) {
        CString strQuestion;
        strQuestion.Format(IDS_SUMMARY_REPLACE_FORMAT, static_cast<LPCTSTR>(shortenedPath(strPathName)));
        if (AfxMessageBox(strQuestion, MB_YESNO | MB_ICONQUESTION) != IDYES)
            return;
    }
    SaveSummary(strPathName);
}

void CMainWindow::OnPlotQuit()
{
    m_pForm->close();
}

void CMainWindow::OnSample(UINT nID)
{
    OpenPlot(theApp().GetSamplePath(nID));
}

// No command is carried out meanwhile, whatever the user presses: the dialog lets messages in.
BOOL CMainWindow::ReadPlot(LPCTSTR lpszPathName, CString &strReason)
{
    const CString strTitle = CString(lpszPathName).Mid(CString(lpszPathName).ReverseFind(_T('/')) + 1);
    const DWORD dwStart = GetTickCount();
    std::unique_ptr<CPlotProgressDialog> pDialog;
    m_bReading = TRUE;
    UpdateCommands();
    const BOOL bRead = m_document.Open(lpszPathName, strReason, [&](qint64 done, qint64 total) {
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

void CMainWindow::UpdateCommands()
{
    for (const auto &[id, action] : m_pForm->commands()) {
        const BOOL bNeedsPlot = id == ID_PLOT_PROPERTIES || id == ID_PLOT_SUMMARY;
        action->setEnabled(!m_bReading && (!bNeedsPlot || m_document.GetPlot()));
    }
}

void CMainWindow::ShowPlot()
{
    const Plot *pPlot = m_document.GetPlot().get();
    CString strApp;
    strApp.LoadString(IDS_APP_TITLE);
    CString strTitle = strApp;
    CString strMessage;
    if (pPlot) {
        strTitle.Format(IDS_TITLE_FORMAT, static_cast<LPCTSTR>(m_document.GetTitle()),
                        static_cast<LPCTSTR>(strApp));
        strMessage = m_document.IsSample() ? m_document.GetTitle() : m_document.GetPathName();
    } else {
        strMessage.LoadString(IDS_READY);
        m_pForm->canvas()->setHint(resourceText(IDS_NO_PLOT));
    }
    SetWindowText(strTitle);
    SetDlgItemText(IDC_STATUS_MESSAGE, strMessage);
    SetStatus(IDC_STATUS_PENS, IDS_PENS_FORMAT, pPlot ? static_cast<int>(pPlot->marksByPen().size()) : 0);
    SetStatus(IDC_STATUS_STROKES, IDS_STROKES_FORMAT, pPlot ? static_cast<int>(pPlot->strokes.size()) : 0);
    SetStatus(IDC_STATUS_LABELS, IDS_LABELS_FORMAT, pPlot ? static_cast<int>(pPlot->labels.size()) : 0);
    SetStatus(IDC_STATUS_SKIPPED, IDS_SKIPPED_FORMAT, pPlot ? pPlot->skippedCount : 0);
    UpdateCommands();
    m_pForm->canvas()->setPlot(m_document.GetPlot());
    ShowSheet();
}

void CMainWindow::ShowSheet()
{
    m_pForm->canvas()->setSheet(m_sheet);
    if (m_document.GetPlot())
        m_pForm->legend()->describe(*m_document.GetPlot(), m_sheet);
}

void CMainWindow::SetStatus(int nID, UINT nFormat, int nValue)
{
    CString strText;
    strText.Format(nFormat, nValue);
    SetDlgItemText(nID, strText);
}
