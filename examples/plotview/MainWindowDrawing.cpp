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
#include "SaveDialog.h"
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
    SelectMarks(*reinterpret_cast<const NMPLOTMARKS *>(pNMHDR)->pMarks);
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
    const CString strProposed = WithExtension(Document().GetSummaryPathName(), _T("pdf"));
    CSaveDialog dialog(IDS_PRINT_CAPTION, IDS_PRINT_FILTER, _T("pdf"), strProposed, this);
    if (dialog.DoModal() == IDOK)
        PrintPlot(dialog.GetTarget());
}

BOOL CMainWindow::PrintPlot(LPCTSTR lpszPathName)
{
    const CString strShown = shortenedPath(lpszPathName);
    BOOL bPrinted = FALSE;
    if (const auto &pPlot = Document().GetPlot()) {
        PlotSheetPainter sheet(*pPlot, m_sheet, m_options.pens);
        sheet.setHidden(m_ctlLayers.GetHiddenLayers());
        const CString strTitle = Document().GetTitle();
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
