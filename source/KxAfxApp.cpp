// SPDX-License-Identifier: MIT
#include "KxAfxApp.h"

#include "KxAfxWin_p.h"
#include "KxSettings_p.h"
#include "KxText_p.h"

CWinApp *g_pWinApp = nullptr;

CWinApp *AfxGetApp()
{
    return g_pWinApp;
}

CWnd *AfxGetMainWnd()
{
    return g_pWinApp ? g_pWinApp->GetMainWnd() : nullptr;
}

HWND lumo_tnorMainWnd()
{
    const CWnd *window = AfxGetMainWnd();
    return isSmallHandle(window) ? nullptr : window->GetSafeHwnd();
}

CWinApp::CWinApp(const wchar_t *)
{
}

CWnd *CWinApp::GetMainWnd()
{
    return m_pMainWnd;
}

void CWinApp::SetMainWnd(CWnd *pWnd)
{
    m_pMainWnd = pWnd;
}

UINT CWinApp::GetProfileIntW(const wchar_t *lpszSection, const wchar_t *lpszEntry, int nDefault)
{
    KxSettings settings;
    settings.beginGroup(toQString(lpszSection));
    return static_cast<UINT>(settings.value(toQString(lpszEntry), nDefault).toInt());
}

BOOL CWinApp::WriteProfileInt(const wchar_t *lpszSection, const wchar_t *lpszEntry, int nValue)
{
    KxSettings settings;
    settings.beginGroup(toQString(lpszSection));
    settings.setValue(toQString(lpszEntry), nValue);
    return TRUE;
}

CDocument::CDocument() = default;
CDocument::~CDocument() = default;

// ---- there so that ported code compiles ----------------------------------------------------------------

HCURSOR CWinApp::LoadCursorW(UINT) { return nullptr; }
HICON CWinApp::LoadIconW(UINT) { return nullptr; }
HCURSOR CWinApp::LoadStandardCursor(const wchar_t *) { return nullptr; }
HCURSOR CWinApp::LoadStandardCursor(UINT) { return nullptr; }
CDocument *CWinApp::OpenDocumentFile(const wchar_t *) { return nullptr; }
CString CWinApp::GetProfileStringW(const wchar_t *, const wchar_t *, const wchar_t *) { return CString(); }
BOOL CWinApp::WriteProfileStringW(const wchar_t *, const wchar_t *, const wchar_t *) { return FALSE; }
BOOL CWinApp::GetProfileBinary(const wchar_t *, const wchar_t *, BYTE **, UINT *) { return FALSE; }
BOOL CWinApp::WriteProfileBinary(const wchar_t *, const wchar_t *, BYTE *, UINT) { return FALSE; }
CDocTemplate *CWinApp::GetNextDocTemplate(POSITION &) const { return nullptr; }
POSITION CWinApp::GetFirstDocTemplatePosition() const { return nullptr; }

CArchive::CArchive(CFile *, UINT, int, void *) {}
CArchive::~CArchive() = default;
void CArchive::Close() {}
