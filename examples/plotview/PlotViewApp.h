// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <memory>
#include <vector>

class CMainWindow;

/// The application. It publishes itself as the one that AfxGetApp() gives.
class CPlotViewApp : public CWinApp
{
public:
    CPlotViewApp();
    ~CPlotViewApp();

    /// Shows the main window and opens plots: the files that are named or, without any, the first of those
    /// that come with the program. Needs the QApplication.
    BOOL InitInstance(const std::vector<CString> &paths = {});
    int ExitInstance();

    /// Tells the user in a message box, or standard error when nobody is there to press its button.
    void Report(const CString &strText) const;
    void SetUnattended() { m_bUnattended = TRUE; }
    BOOL IsUnattended() const { return m_bUnattended; }

    CMainWindow *GetMainWindow() const { return m_pMainWindow.get(); }
    /// Of the plot that comes with the program and is opened by the command.
    CString GetSamplePath(UINT nID) const;

private:
    std::unique_ptr<CMainWindow> m_pMainWindow;
    BOOL m_bUnattended = FALSE;
};

/// The application, while there is one.
CPlotViewApp &theApp();
