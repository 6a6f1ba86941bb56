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
    /// shown before stays after a failure.
    BOOL OpenPlot(LPCTSTR lpszPathName);

    PlotMainForm *GetForm() const { return m_pForm.get(); }

    afx_msg void OnPlotOpen();
    afx_msg void OnPlotProperties();
    afx_msg void OnPlotQuit();
    afx_msg void OnSample(UINT nID);

private:
    void ShowPlot();
    void ShowSheet();
    void SetStatus(int nID, UINT nFormat, int nValue);

    std::unique_ptr<PlotMainForm> m_pForm;
    CPlotDocument m_document;
    PlotSheet m_sheet;

    DECLARE_MESSAGE_MAP()
};
