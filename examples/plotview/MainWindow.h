// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "LayerTree.h"
#include "MarkList.h"
#include "PlotDocument.h"
#include "PlotOptions.h"
#include "PlotSheet.h"
#include "RecentPlots.h"

#include <memory>

class MessageMapRouter;
class PlotMainForm;

/// The main window: shows the plot, its layers and what is in them, carries the menus' commands out. While a
/// modal window keeps the user from it, no command can be chosen.
class CMainWindow : public CWnd
{
public:
    CMainWindow();
    ~CMainWindow() override;

    /// Opens a plot and shows it. When that fails, or something was damaged, the user is told why; what was
    /// shown before stays after a failure, and when the user cancels it. Does nothing while another one is
    /// being opened.
    BOOL OpenPlot(LPCTSTR lpszPathName);
    /// Writes the summary of the plot that is shown. When that fails, the user is told.
    BOOL SaveSummary(LPCTSTR lpszPathName);

    /// Prints it to a PDF file, likewise.
    BOOL PrintPlot(LPCTSTR lpszPathName);

    /// Shows the options dialog with one of its pages, a COptionsDialog::Page, in front.
    void ShowOptions(int nPage);

    PlotMainForm *GetForm() const { return m_pForm.get(); }

    afx_msg void OnPlotOpen();
    afx_msg void OnPlotProperties();
    afx_msg void OnPlotSummary();
    afx_msg void OnPlotSummaryAs();
    afx_msg void OnPlotExport();
    afx_msg void OnPlotPrint();
    afx_msg void OnPlotQuit();
    afx_msg void OnSample(UINT nID);
    afx_msg void OnRecent(UINT nID);
    afx_msg void OnViewOptions();
    afx_msg void OnLayerToggle();
    afx_msg void OnLayerShowAll();
    afx_msg void OnTool(UINT nID);
    afx_msg void OnFillClear();

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    afx_msg void OnEnable(BOOL bEnable);
    afx_msg void OnLayerSelected(NMHDR *pNMHDR, LRESULT *pResult);
    afx_msg void OnLayerChecked(NMHDR *pNMHDR, LRESULT *pResult);
    afx_msg void OnMarksEnclosed(NMHDR *pNMHDR, LRESULT *pResult);
    afx_msg void OnMarkSelected(NMHDR *pNMHDR, LRESULT *pResult);
    afx_msg LRESULT OnOptionsApplied(WPARAM wParam, LPARAM lParam);

private:
    BOOL ReadPlot(LPCTSTR lpszPathName, CString &strReason);
    void UpdateCommands();
    void ShowPlot();
    void ShowSheet();
    void ShowPenIcons();
    void FillBucket();
    void ShowMarks();
    void ShowSelection();
    void ShowHiddenLayers();
    void ShowRecentPlots();
    void SetStatus(int nID, UINT nFormat, int nValue);

    std::unique_ptr<PlotMainForm> m_pForm;
    CPlotDocument m_document;
    CRecentPlots m_recentPlots;
    PlotSheet m_sheet;
    PlotOptions m_options;
    CLayerTree m_ctlLayers;
    CMarkList m_ctlMarks;
    BOOL m_bReading = FALSE;
    BOOL m_bBlocked = FALSE;
    std::unique_ptr<MessageMapRouter> m_pRouter;    // the last, so that it is gone before what it calls

    DECLARE_MESSAGE_MAP()
};
