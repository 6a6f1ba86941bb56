// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfx.h"
#include "KxExport.h"
#include "KxStdStr.h"
#include "KxWinTypes.h"

class CDocTemplate;
class CDocument;
class CFile;
class CWinApp;
class CWnd;

/// \file
/// The application object and its profile.

/// The application object; the host sets it.
extern KX_EXPORT CWinApp *g_pWinApp;

/// \return g_pWinApp
KX_EXPORT CWinApp *AfxGetApp();
/// \return CWinApp::GetMainWnd() of the application object; null without one
KX_EXPORT CWnd *AfxGetMainWnd();
/// \return the handle of AfxGetMainWnd(), null without one
KX_EXPORT HWND lumo_tnorMainWnd();

/// An application object, as CWinApp in MFC. The host derives its own, sets g_pWinApp and runs Qt's event loop
/// itself; nothing here calls it. Integers of the profile live in the per-user settings of "Drumal"/"TORVA", the
/// section as a group. There is no virtual destructor.
class KX_EXPORT CWinApp : public CCmdTarget
{
public:
    CWnd *m_pMainWnd = nullptr;

    /// The name is ignored.
    explicit CWinApp(const wchar_t *lpszAppName = nullptr);

    // ---- the virtual operations; their order is part of the binary interface

    KX_INERT("returns null")
    virtual HCURSOR LoadCursorW(UINT nIDResource);
    KX_INERT("returns null")
    virtual HICON LoadIconW(UINT nIDResource);
    KX_INERT("returns null")
    virtual HCURSOR LoadStandardCursor(const wchar_t *lpszCursorName);
    KX_INERT("returns null")
    virtual HCURSOR LoadStandardCursor(UINT nIDCursor);
    /// \return m_pMainWnd
    virtual CWnd *GetMainWnd();
    virtual void SetMainWnd(CWnd *pWnd);
    KX_INERT("returns null; opens no document")
    virtual CDocument *OpenDocumentFile(const wchar_t *lpszFileName);
    /// Reads an integer. \return `nDefault` when the entry is missing or has no name, 0 when it is no number
    virtual UINT GetProfileIntW(const wchar_t *lpszSection, const wchar_t *lpszEntry, int nDefault);
    /// Stores an integer; nothing for an entry without a name. \return TRUE
    virtual BOOL WriteProfileInt(const wchar_t *lpszSection, const wchar_t *lpszEntry, int nValue);
    KX_INERT("returns an empty text, whatever is stored and whatever the default is; use CRegKey")
    virtual CString GetProfileStringW(const wchar_t *lpszSection, const wchar_t *lpszEntry,
                                      const wchar_t *lpszDefault = nullptr);
    KX_INERT("returns FALSE; stores nothing, use CRegKey")
    virtual BOOL WriteProfileStringW(const wchar_t *lpszSection, const wchar_t *lpszEntry,
                                     const wchar_t *lpszValue);
    KX_INERT("returns FALSE and writes nothing")
    virtual BOOL GetProfileBinary(const wchar_t *lpszSection, const wchar_t *lpszEntry, BYTE **ppData,
                                  UINT *pBytes);
    KX_INERT("returns FALSE; stores nothing")
    virtual BOOL WriteProfileBinary(const wchar_t *lpszSection, const wchar_t *lpszEntry, BYTE *pData,
                                    UINT nBytes);
    KX_INERT("returns null; there are no document templates")
    virtual CDocTemplate *GetNextDocTemplate(POSITION &pos) const;

    KX_INERT("returns null; there are no document templates")
    POSITION GetFirstDocTemplatePosition() const;
};

/// A document as far as host code needs one to compile.
class KX_EXPORT CDocument : public CCmdTarget
{
public:
    CDocument();
    virtual ~CDocument();
};

/// An archive as far as host code needs one to compile: it reads and writes nothing.
class KX_EXPORT CArchive
{
public:
    CArchive(CFile *pFile, UINT nMode, int nBufSize = 4096, void *lpBuf = nullptr);
    ~CArchive();

    KX_INERT("closes nothing")
    void Close();
};
