// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "MainWindow.h"

#include "MessageMapRouter.h"
#include "PlotCanvas.h"
#include "PlotMainForm.h"
#include "PlotProgressDialog.h"
#include "PlotPropertiesDialog.h"
#include "PlotPropertiesForm.h"
#include "PlotSettings.h"
#include "PlotViewApp.h"
#include "ResourceText.h"
#include "SaveTarget.h"

#include <QtCore/QFileInfo>
#include <QtWidgets/QAction>

#include <algorithm>
#include <iterator>

BEGIN_MESSAGE_MAP(CMainWindow, CWnd)
    ON_COMMAND(ID_PLOT_OPEN, &CMainWindow::OnPlotOpen)
    ON_COMMAND(ID_PLOT_PROPERTIES, &CMainWindow::OnPlotProperties)
    ON_COMMAND(ID_PLOT_SUMMARY, &CMainWindow::OnPlotSummary)
    ON_COMMAND(ID_PLOT_SUMMARY_AS, &CMainWindow::OnPlotSummaryAs)
    ON_COMMAND(ID_PLOT_EXPORT, &CMainWindow::OnPlotExport)
    ON_COMMAND(ID_PLOT_PRINT, &CMainWindow::OnPlotPrint)
    ON_COMMAND(ID_PLOT_QUIT, &CMainWindow::OnPlotQuit)
    ON_COMMAND_RANGE(ID_SAMPLE_FIRST, ID_SAMPLE_LAST, &CMainWindow::OnSample)
    ON_COMMAND_RANGE(ID_RECENT_FIRST, ID_RECENT_LAST, &CMainWindow::OnRecent)
    ON_COMMAND(ID_VIEW_OPTIONS, &CMainWindow::OnViewOptions)
    ON_COMMAND(ID_LAYER_TOGGLE, &CMainWindow::OnLayerToggle)
    ON_COMMAND(ID_LAYER_SHOW_ALL, &CMainWindow::OnLayerShowAll)
    ON_COMMAND_RANGE(ID_TOOL_FIRST, ID_TOOL_LAST, &CMainWindow::OnTool)
    ON_COMMAND(ID_FILL_CLEAR, &CMainWindow::OnFillClear)
    ON_NOTIFY(PCN_MARKSENCLOSED, IDC_CANVAS, &CMainWindow::OnMarksEnclosed)
    ON_NOTIFY(TVN_SELCHANGED, IDC_LAYERS, &CMainWindow::OnLayerSelected)
    ON_NOTIFY(TVN_ITEMCHANGED, IDC_LAYERS, &CMainWindow::OnLayerChecked)
    ON_NOTIFY(LVN_ITEMCHANGED, IDC_MARKS, &CMainWindow::OnMarkSelected)
    ON_MESSAGE(WM_OPTIONS_APPLIED, &CMainWindow::OnOptionsApplied)
    ON_WM_ENABLE()
END_MESSAGE_MAP()

CMainWindow::CMainWindow()
    : m_pForm(std::make_unique<PlotMainForm>()), m_options(CPlotSettings::LoadOptions())
{
    Attach(KxHwndFromWidget(m_pForm.get()));
    for (const auto &[id, widget] : m_pForm->controls())
        SetDlgItem(static_cast<int>(id), KxHwndFromWidget(widget));
    m_ctlLayers.SubclassDlgItem(IDC_LAYERS, this);
    m_ctlMarks.SubclassDlgItem(IDC_MARKS, this);
    m_ctlMarks.InsertColumns();
    m_pForm->arrangeMarkColumns();
    m_pForm->canvas()->setPens(m_options.pens);
    m_pForm->canvas()->setTool(PlotCanvas::SelectTool);
    m_pRouter = std::make_unique<MessageMapRouter>(this, GetThisMessageMap());
    m_pRouter->addWindow(m_pForm.get());
    for (const auto &[id, widget] : m_pForm->controls())
        m_pRouter->addControl(id, widget);
    for (const auto &[id, action] : m_pForm->commands())
        m_pRouter->addCommand(id, action);
    ShowRecentPlots();
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
        if (!m_document.IsSample() && !theApp().IsUnattended()) {
            m_recentPlots.Add(lpszPathName);
            ShowRecentPlots();
        }
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
    dialog.GetForm()->preview()->setPens(m_options.pens);
    if (dialog.DoModal() != IDOK)
        return;
    m_sheet = dialog.GetSheet();
    CPlotSettings::Store(m_sheet, m_document.GetTitle());
    ShowSheet();
}

void CMainWindow::OnPlotSummary()
{
    const CString strPathName = m_document.GetSummaryPathName();
    if (MayReplace(strPathName))
        SaveSummary(strPathName);
}

// The extension is only known here, so the file dialog could not ask whether to replace the file.
void CMainWindow::OnPlotSummaryAs()
{
    const QString chosen = m_pForm->askSummaryFile(toQString(m_document.GetSummaryPathName()));
    if (chosen.isEmpty())
        return;
    const CString strPathName = WithExtension(toCString(chosen), _T("txt"));
    if (MayReplace(strPathName))
        SaveSummary(strPathName);
}

void CMainWindow::OnPlotExport()
{
    CString strPathName;
    const BOOL bCopied = m_document.ExportCopy(strPathName);
    CString strText;
    const CString strShown = shortenedPath(bCopied ? strPathName : m_document.GetPathName());
    strText.Format(bCopied ? IDS_EXPORT_SAVED_FORMAT : IDS_ERROR_EXPORT, static_cast<LPCTSTR>(strShown));
    if (bCopied)
        SetDlgItemText(IDC_STATUS_MESSAGE, strText);
    else
        theApp().Report(strText);
}

void CMainWindow::OnPlotQuit()
{
    m_pForm->close();
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
    static constexpr UINT anNeedPlot[] = {ID_PLOT_PROPERTIES, ID_PLOT_SUMMARY, ID_PLOT_SUMMARY_AS,
                                          ID_PLOT_EXPORT,     ID_PLOT_PRINT,   ID_LAYER_TOGGLE,
                                          ID_LAYER_SHOW_ALL,  ID_TOOL_SELECT,  ID_TOOL_FILL,
                                          ID_FILL_CLEAR};
    for (const auto &[id, action] : m_pForm->commands()) {
        const BOOL bNeedsPlot = std::count(std::begin(anNeedPlot), std::end(anNeedPlot), id) > 0;
        action->setEnabled(!m_bReading && !m_bBlocked && (!bNeedsPlot || m_document.GetPlot()));
    }
}

// A dialog is a tool window, in which the shortcuts of the main window would go on to work.
void CMainWindow::OnEnable(BOOL bEnable)
{
    m_bBlocked = !bEnable;
    UpdateCommands();
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
    if (pPlot)
        m_ctlLayers.Fill(*pPlot);
    else
        ShowMarks();
}

void CMainWindow::SetStatus(int nID, UINT nFormat, int nValue)
{
    CString strText;
    strText.Format(nFormat, nValue);
    SetDlgItemText(nID, strText);
}
