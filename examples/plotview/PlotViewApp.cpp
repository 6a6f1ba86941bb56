// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotViewApp.h"

#include "MainWindow.h"
#include "ResourceText.h"

#include <cstdio>

// What a static library has in its resources is only there once somebody asks.
static void InitResources()
{
    Q_INIT_RESOURCE(plotview);
}

CPlotViewApp::CPlotViewApp()
{
    g_pWinApp = this;
}

CPlotViewApp::~CPlotViewApp()
{
    g_pWinApp = nullptr;
}

BOOL CPlotViewApp::InitInstance(const std::vector<CString> &paths)
{
    InitResources();
    const KxStringTableResult strings = KxLoadStringTable(nullptr, QStringLiteral(":/plotview/strings.txt"));
    if (!strings.isOk()) {
        qCritical("strings.txt, line %d: %s", strings.line, qPrintable(strings.error));
        return FALSE;
    }
    m_pMainWindow = std::make_unique<CMainWindow>();
    SetMainWnd(m_pMainWindow.get());
    m_pMainWindow->ShowWindow(SW_SHOW);
    if (paths.empty())
        m_pMainWindow->OnSample(ID_SAMPLE_FIRST);
    else
        m_pMainWindow->OpenPlots(paths);
    return TRUE;
}

int CPlotViewApp::ExitInstance()
{
    SetMainWnd(nullptr);
    m_pMainWindow.reset();
    return 0;
}

void CPlotViewApp::Report(const CString &strText) const
{
    if (m_bUnattended)
        std::fprintf(stderr, "%s\n", qPrintable(toQString(strText)));
    else
        AfxMessageBox(strText, MB_OK | MB_ICONEXCLAMATION);
}

CString CPlotViewApp::GetSamplePath(UINT nID) const
{
    static constexpr const TCHAR *apszNames[] = {_T("housing"), _T("curves"), _T("island")};
    CString strPath;
    if (nID >= ID_SAMPLE_FIRST && nID <= ID_SAMPLE_LAST)
        strPath.Format(_T(":/plotview/plots/%ls.hpgl"), apszNames[nID - ID_SAMPLE_FIRST]);
    return strPath;
}

CPlotViewApp &theApp()
{
    return *static_cast<CPlotViewApp *>(AfxGetApp());
}
