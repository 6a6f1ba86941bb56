// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "MainWindow.h"

#include "PlotCanvas.h"
#include "PlotMainForm.h"
#include "PlotPrinter.h"
#include "PlotSheetPainter.h"
#include "PlotSummary.h"
#include "PlotViewApp.h"
#include "ResourceText.h"
#include "SaveTarget.h"

// What the mouse does on the sheet, and what becomes of the sheet on paper.

void CMainWindow::OnTool(UINT nID)
{
    m_pForm->canvas()->setTool(nID == ID_TOOL_FILL ? PlotCanvas::FillTool : PlotCanvas::SelectTool);
}

void CMainWindow::OnFillClear()
{
    m_pForm->canvas()->clearFills();
}

void CMainWindow::OnMarksEnclosed(NMHDR *pNMHDR, LRESULT *pResult)
{
    const PlotMarks &marks = *reinterpret_cast<const NMPLOTMARKS *>(pNMHDR)->pMarks;
    m_pForm->selectMarkRows(m_ctlMarks.FindRows(marks));
    *pResult = 0;
}

// The bucket holds the ink of the layer's pen.
void CMainWindow::FillBucket()
{
    const PlotLayer layer = m_ctlLayers.GetSelectedLayer();
    m_pForm->canvas()->setFillPen(layer.kind == PlotLayer::AllPens ? PlotFill::NoPen : layer.pen);
}

void CMainWindow::OnPlotPrint()
{
    const QString proposed = toQString(WithExtension(m_document.GetSummaryPathName(), _T("pdf")));
    const QString chosen = m_pForm->askPrintFile(proposed);
    if (chosen.isEmpty())
        return;
    const CString strPathName = WithExtension(toCString(chosen), _T("pdf"));
    if (MayReplace(strPathName))
        PrintPlot(strPathName);
}

BOOL CMainWindow::PrintPlot(LPCTSTR lpszPathName)
{
    const CString strShown = shortenedPath(lpszPathName);
    BOOL bPrinted = FALSE;
    if (const auto &pPlot = m_document.GetPlot()) {
        PlotSheetPainter sheet(*pPlot, m_sheet, m_options.pens);
        sheet.setHidden(m_ctlLayers.GetHiddenLayers());
        const CString strTitle = m_document.GetTitle();
        const CPlotSummary summary(*pPlot, strTitle, CTime::GetCurrentTime());
        bPrinted = CPlotPrinter(sheet, m_pForm->canvas()->fills()).Print(lpszPathName, strTitle, summary);
    }
    CString strText;
    strText.Format(bPrinted ? IDS_PRINT_SAVED_FORMAT : IDS_ERROR_SUMMARY, static_cast<LPCTSTR>(strShown));
    if (bPrinted)
        SetDlgItemText(IDC_STATUS_MESSAGE, strText);
    else
        theApp().Report(strText);
    return bPrinted;
}
