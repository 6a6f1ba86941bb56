// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "MainWindow.h"

#include "MessageMapRouter.h"
#include "PlotCanvas.h"
#include "PlotMainForm.h"
#include "PlotPropertiesDialog.h"
#include "PlotPropertiesForm.h"
#include "PlotSettings.h"
#include "PlotViewApp.h"
#include "ResourceText.h"
#include "SaveDialog.h"
#include "SaveTarget.h"

#include <QtWidgets/QAction>

#include <algorithm>
#include <iterator>

BEGIN_MESSAGE_MAP(CMainWindow, CWnd)
    ON_COMMAND(ID_PLOT_OPEN, &CMainWindow::OnPlotOpen)
    ON_COMMAND(ID_PLOT_CLOSE, &CMainWindow::OnPlotClose)
    ON_COMMAND(ID_PLOT_PROPERTIES, &CMainWindow::OnPlotProperties)
    ON_COMMAND(ID_PLOT_SUMMARY, &CMainWindow::OnPlotSummary)
    ON_COMMAND(ID_PLOT_SUMMARY_AS, &CMainWindow::OnPlotSummaryAs)
    ON_COMMAND(ID_PLOT_EXPORT, &CMainWindow::OnPlotExport)
    ON_COMMAND(ID_PLOT_PRINT, &CMainWindow::OnPlotPrint)
    ON_COMMAND(ID_PLOT_QUIT, &CMainWindow::OnPlotQuit)
    ON_COMMAND_RANGE(ID_SAMPLE_FIRST, ID_SAMPLE_LAST, &CMainWindow::OnSample)
    ON_COMMAND_RANGE(ID_RECENT_FIRST, ID_RECENT_LAST, &CMainWindow::OnRecent)
    ON_COMMAND(ID_EDIT_COPY, &CMainWindow::OnEditCopy)
    ON_COMMAND(ID_EDIT_PASTE, &CMainWindow::OnEditPaste)
    ON_COMMAND(ID_WINDOW_NEXT, &CMainWindow::OnWindowNext)
    ON_COMMAND(ID_WINDOW_PREVIOUS, &CMainWindow::OnWindowPrevious)
    ON_COMMAND_RANGE(ID_WINDOW_FIRST, ID_WINDOW_LAST, &CMainWindow::OnWindow)
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
    ON_WM_ENTERMENULOOP()
    ON_WM_EXITMENULOOP()
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
    m_pRouter->addMenu(m_pForm->editMenu());
    for (const auto &[id, widget] : m_pForm->controls())
        m_pRouter->addControl(id, widget);
    for (const auto &[id, action] : m_pForm->commands())
        m_pRouter->addCommand(id, action);
    ShowRecentPlots();
    ShowPlot();
}

CMainWindow::~CMainWindow() = default;

BOOL CMainWindow::SaveSummary(LPCTSTR lpszPathName)
{
    const CString strShown = shortenedPath(lpszPathName);
    const BOOL bSaved = Document().SaveSummary(lpszPathName);
    CString strText;
    strText.Format(bSaved ? IDS_SUMMARY_SAVED_FORMAT : IDS_ERROR_SUMMARY, static_cast<LPCTSTR>(strShown));
    if (bSaved)
        SetDlgItemText(IDC_STATUS_MESSAGE, strText);
    else
        theApp().Report(strText);
    return bSaved;
}

void CMainWindow::OnPlotProperties()
{
    CPlotPropertiesDialog dialog(m_sheet, Document().GetPlot(), this);
    dialog.GetForm()->preview()->setPens(m_options.pens);
    if (dialog.DoModal() != IDOK)
        return;
    m_sheet = dialog.GetSheet();
    CPlotSettings::Store(m_sheet, Document().GetTitle());
    ShowSheet();
}

void CMainWindow::OnPlotSummary()
{
    const CString strPathName = Document().GetSummaryPathName();
    if (MayReplace(strPathName))
        SaveSummary(strPathName);
}

void CMainWindow::OnPlotSummaryAs()
{
    const CString strProposed = Document().GetSummaryPathName();
    CSaveDialog dialog(IDS_SUMMARY_AS_CAPTION, IDS_SUMMARY_AS_FILTER, _T("txt"), strProposed, this);
    if (dialog.DoModal() == IDOK)
        SaveSummary(dialog.GetTarget());
}

void CMainWindow::OnPlotExport()
{
    CString strPathName;
    const BOOL bCopied = Document().ExportCopy(strPathName);
    CString strText;
    const CString strShown = shortenedPath(bCopied ? strPathName : Document().GetPathName());
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

void CMainWindow::UpdateCommands()
{
    static constexpr UINT anNeedPlot[] = {
        ID_PLOT_CLOSE,  ID_PLOT_PROPERTIES, ID_PLOT_SUMMARY,    ID_PLOT_SUMMARY_AS, ID_PLOT_EXPORT,
        ID_PLOT_PRINT,  ID_EDIT_COPY,       ID_EDIT_PASTE,      ID_LAYER_TOGGLE,    ID_LAYER_SHOW_ALL,
        ID_TOOL_SELECT, ID_TOOL_FILL,       ID_FILL_CLEAR,      ID_WINDOW_NEXT,     ID_WINDOW_PREVIOUS};
    for (const auto &[id, action] : m_pForm->commands()) {
        const BOOL bNeedsPlot = std::count(std::begin(anNeedPlot), std::end(anNeedPlot), id) > 0;
        action->setEnabled(!m_bReading && !m_bBlocked && (!bNeedsPlot || Document().GetPlot()));
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
    const Plot *pPlot = Document().GetPlot().get();
    CString strApp;
    strApp.LoadString(IDS_APP_TITLE);
    CString strTitle = strApp;
    CString strMessage;
    if (pPlot) {
        strTitle.Format(IDS_TITLE_FORMAT, static_cast<LPCTSTR>(Document().GetTitle()),
                        static_cast<LPCTSTR>(strApp));
        strMessage = Document().IsSample() ? Document().GetTitle() : Document().GetPathName();
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
    m_pForm->canvas()->setPlot(Document().GetPlot());
    m_sheet = CPlotSettings::Load(Document().GetTitle());
    ShowSheet();
    ShowOpenPlots();
    if (pPlot) {
        m_ctlLayers.Fill(*pPlot);
    } else {
        m_ctlLayers.DeleteAllItems();
        m_ctlMarks.DeleteAllItems();
        ShowMarks();
    }
}

void CMainWindow::SetStatus(int nID, UINT nFormat, int nValue)
{
    CString strText;
    strText.Format(nFormat, nValue);
    SetDlgItemText(nID, strText);
}
