// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "MainWindow.h"

#include "OptionsDialog.h"
#include "PenSwatch.h"
#include "PlotCanvas.h"
#include "PlotLayersView.h"
#include "PlotLegend.h"
#include "PlotMainForm.h"
#include "PlotSettings.h"
#include "PlotSheetPainter.h"
#include "ResourceText.h"

// The layers and marks beside the plot, and the options.

namespace {

CString LayerName(const PlotLayer &layer)
{
    CString strName;
    if (layer.kind == PlotLayer::AllPens)
        strName.LoadString(IDS_MARKS_ALL);
    else
        strName.Format(static_cast<UINT>(IDS_MARKS_ALL + layer.kind), layer.pen);
    return strName;
}

} // namespace

// Messages that other windows of the program send.
LRESULT CMainWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    using MessageHandler = LRESULT (CWnd::*)(WPARAM, LPARAM);
    const AFX_MSGMAP_ENTRY *pEntry = KxFindMessageEntry(GetThisMessageMap(), message, 0, 0);
    if (const auto handler = KxMessageHandler<MessageHandler>(pEntry))
        return handler(this, wParam, lParam);
    return CWnd::WindowProc(message, wParam, lParam);
}

void CMainWindow::ShowOptions(int nPage)
{
    static const Plot noPlot;
    const Plot &plot = Document().GetPlot() ? *Document().GetPlot() : noPlot;
    const PlotSheetPainter painter(plot, m_sheet);
    CPensPage::Colours defaults;
    for (int i = 0; i < PlotSheet::PenCount; ++i)
        defaults[static_cast<std::size_t>(i)] = painter.penColour(i + 1).rgb();
    COptionsDialog(m_options, defaults, painter.paperColour().rgb(), nPage, this).DoModal();
}

void CMainWindow::OnViewOptions()
{
    ShowOptions(COptionsDialog::GeneralPage);
}

LRESULT CMainWindow::OnOptionsApplied(WPARAM, LPARAM lParam)
{
    m_options = *reinterpret_cast<const PlotOptions *>(lParam);
    CPlotSettings::StoreOptions(m_options);
    m_pForm->canvas()->setPens(m_options.pens);
    ShowPenIcons();
    ShowMarks();
    ShowRecentPlots();
    return 0;
}

void CMainWindow::OnLayerToggle()
{
    const HTREEITEM hItem = m_ctlLayers.GetSelectedItem();
    m_ctlLayers.SetVisible(hItem, !m_ctlLayers.GetLayer(hItem).visible);
    ShowHiddenLayers();
}

void CMainWindow::OnLayerShowAll()
{
    m_ctlLayers.ShowAll();
    ShowHiddenLayers();
}

void CMainWindow::OnLayerSelected(NMHDR *, LRESULT *pResult)
{
    ShowMarks();
    FillBucket();
    *pResult = 0;
}

void CMainWindow::OnLayerChecked(NMHDR *pNMHDR, LRESULT *pResult)
{
    const auto *pChange = reinterpret_cast<const NMTVITEMCHANGE *>(pNMHDR);
    m_ctlLayers.SetVisible(pChange->hItem, pChange->uStateNew == INDEXTOSTATEIMAGEMASK(2));
    ShowHiddenLayers();
    *pResult = 0;
}

void CMainWindow::OnMarkSelected(NMHDR *, LRESULT *pResult)
{
    ShowSelection();
    *pResult = 0;
}

void CMainWindow::ShowSheet()
{
    m_pForm->canvas()->setSheet(m_sheet);
    m_pForm->legend()->setVisible(Document().GetPlot() != nullptr);
    if (Document().GetPlot())
        m_pForm->legend()->describe(*Document().GetPlot(), m_sheet);
    ShowPenIcons();
}

void CMainWindow::ShowPenIcons()
{
    if (!Document().GetPlot())
        return;
    const PlotSheetPainter painter(*Document().GetPlot(), m_sheet, m_options.pens);
    const QSize size = m_pForm->layers()->iconSize() * m_pForm->devicePixelRatioF();
    std::map<int, QIcon> icons;
    for (const auto &[nPen, nMarks] : Document().GetPlot()->marksByPen()) {
        const QImage swatch = penSwatch(painter.penColour(nPen), painter.paperColour(), size);
        icons[nPen] = QIcon(QPixmap::fromImage(swatch));
    }
    m_pForm->layers()->setPenIcons(icons);
}

// Filling the list takes its selection away without a word.
void CMainWindow::ShowMarks()
{
    CString strTitle;
    strTitle.LoadString(IDS_MARKS_NONE);
    if (Document().GetPlot() && m_ctlLayers.GetSelectedItem()) {
        const PlotLayer layer = m_ctlLayers.GetSelectedLayer();
        const int nMost = PlotOptions::RowChoices[static_cast<std::size_t>(m_options.rows)];
        const int nMarks = m_ctlMarks.Fill(*Document().GetPlot(), layer, m_options.units, nMost);
        const CString strName = LayerName(layer);
        if (nMarks > nMost)
            strTitle.Format(IDS_MARKS_CUT_FORMAT, static_cast<LPCTSTR>(strName), nMost, nMarks);
        else
            strTitle.Format(IDS_MARKS_COUNT_FORMAT, static_cast<LPCTSTR>(strName), nMarks);
    }
    SetDlgItemText(IDC_MARKS_TITLE, strTitle);
    ShowSelection();
}

void CMainWindow::ShowSelection()
{
    m_pForm->canvas()->setSelection(m_ctlMarks.GetSelectedMarks(), m_options.fade);
}

void CMainWindow::ShowHiddenLayers()
{
    m_pForm->canvas()->setHiddenLayers(m_ctlLayers.GetHiddenLayers());
}

void CMainWindow::ShowRecentPlots()
{
    QStringList names;
    for (const CString &strPath : m_recentPlots.GetPaths()) {
        if (names.size() < m_options.recentPlots)
            names.append(toQString(CRecentPlots::GetDisplayName(strPath)));
    }
    m_pForm->showRecentPlots(names);
}
