// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "LayerTree.h"
#include "MarkList.h"
#include "OpenPlots.h"
#include "OpenPlotsDialog.h"
#include "PlotClipboard.h"
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

    /// Opens plots, beside those that are open, and shows the first of them. When that fails, or something
    /// was damaged, the user is told why; what was shown before stays when none could be opened or the user
    /// cancels it. Does nothing while others are being opened. \return whether all of them were opened
    BOOL OpenPlots(const std::vector<CString> &paths);
    BOOL OpenPlot(LPCTSTR lpszPathName) { return OpenPlots({lpszPathName}); }
    /// Writes the summary of the plot that is shown. When that fails, the user is told.
    BOOL SaveSummary(LPCTSTR lpszPathName);

    /// Prints it to a PDF file, likewise.
    BOOL PrintPlot(LPCTSTR lpszPathName);

    /// Shows the options dialog with one of its pages, a COptionsDialog::Page, in front.
    void ShowOptions(int nPage);

    PlotMainForm *GetForm() const { return m_pForm.get(); }

    afx_msg void OnPlotOpen();
    afx_msg void OnPlotClose();
    afx_msg void OnPlotProperties();
    afx_msg void OnPlotSummary();
    afx_msg void OnPlotSummaryAs();
    afx_msg void OnPlotExport();
    afx_msg void OnPlotPrint();
    afx_msg void OnPlotQuit();
    afx_msg void OnSample(UINT nID);
    afx_msg void OnRecent(UINT nID);
    afx_msg void OnEditCopy();
    afx_msg void OnEditPaste();
    afx_msg void OnWindowNext();
    afx_msg void OnWindowPrevious();
    afx_msg void OnWindow(UINT nID);
    afx_msg void OnViewOptions();
    afx_msg void OnLayerToggle();
    afx_msg void OnLayerShowAll();
    afx_msg void OnTool(UINT nID);
    afx_msg void OnFillClear();

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    afx_msg void OnEnable(BOOL bEnable);
    afx_msg void OnEnterMenuLoop(BOOL bIsTrackPopupMenu);
    afx_msg void OnExitMenuLoop(BOOL bIsTrackPopupMenu);
    afx_msg void OnLayerSelected(NMHDR *pNMHDR, LRESULT *pResult);
    afx_msg void OnLayerChecked(NMHDR *pNMHDR, LRESULT *pResult);
    afx_msg void OnMarksEnclosed(NMHDR *pNMHDR, LRESULT *pResult);
    afx_msg void OnMarkSelected(NMHDR *pNMHDR, LRESULT *pResult);
    afx_msg LRESULT OnOptionsApplied(WPARAM wParam, LPARAM lParam);

private:
    BOOL ReadPlot(LPCTSTR lpszPathName, CString &strReason);
    CPlotDocument &Document() { return m_plots.GetActive(); }
    void UpdateCommands();
    std::vector<PlotStroke> GetSelectedStrokes();
    void ShowPlot();
    void ShowPlotIf(BOOL bChanged);
    void ShowOpenPlots();
    void SelectMarks(const PlotMarks &marks);
    void ShowSheet();
    void ShowPenIcons();
    void FillBucket();
    void ShowMarks();
    void ShowSelection();
    void ShowHiddenLayers();
    void ShowRecentPlots();
    void SetStatus(int nID, UINT nFormat, int nValue);

    std::unique_ptr<PlotMainForm> m_pForm;
    COpenPlots m_plots;
    COpenPlotsDialog m_openDialog;
    CPlotClipboard m_clipboard;
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
