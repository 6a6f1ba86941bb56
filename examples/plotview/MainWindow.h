// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "PlotDocument.h"
#include "PlotSheet.h"

#include <memory>

class PlotMainForm;

/// The main window: shows the plot, carries the menu's commands out.
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

    PlotMainForm *GetForm() const { return m_pForm.get(); }

    afx_msg void OnPlotOpen();
    afx_msg void OnPlotProperties();
    afx_msg void OnPlotSummary();
    afx_msg void OnPlotQuit();
    afx_msg void OnSample(UINT nID);

private:
    BOOL ReadPlot(LPCTSTR lpszPathName, CString &strReason);
    void UpdateCommands();
    void ShowPlot();
    void ShowSheet();
    void SetStatus(int nID, UINT nFormat, int nValue);

    std::unique_ptr<PlotMainForm> m_pForm;
    CPlotDocument m_document;
    PlotSheet m_sheet;
    BOOL m_bReading = FALSE;

    DECLARE_MESSAGE_MAP()
};
