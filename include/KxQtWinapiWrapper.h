// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxWinTypes.h"

#include <cstddef>

struct _devicemodeW;
using DEVMODEW = _devicemodeW;

class QGLColormap;
class KxSettings;

/// \file
/// Win32 calls that need no window object: keys, screen, cursors, message boxes, palettes, settings.

/// The one palette of the process; see CreatePalette().
extern KX_EXPORT QGLColormap g_ColorMap;

// ---- keyboard and screen -------------------------------------------------------------------------------

/// The state of a virtual key, as the key-state service of platformServices() tells it.
KX_EXPORT SHORT GetKeyState(int nVirtKey);
/// The same as GetKeyState().
KX_EXPORT SHORT GetAsyncKeyState(int vKey);
/// Width of the primary screen in pixels.
KX_EXPORT int getDisplayWidth();
/// Height of the primary screen in pixels. The name is spelled so.
KX_EXPORT int getDiaplayHeight();
/// SM_CXFULLSCREEN and SM_CYFULLSCREEN give the primary screen's size in pixels, every other index 0.
KX_EXPORT int GetSystemMetrics(int nIndex);
KX_INERT("returns FALSE and writes nothing")
KX_EXPORT BOOL SystemParametersInfoW(UINT uiAction, UINT uiParam, void *pvParam, UINT fWinIni);

// ---- message boxes -------------------------------------------------------------------------------------

/// Shows a modal message box with the buttons and the icon of `uType`; MB_ICONQUESTION without buttons asks Yes or
/// No, MB_RETRYCANCEL shows OK and Cancel, MB_ABORTRETRYIGNORE shows OK. A null caption is "TORVA.".
/// \return IDOK, IDYES, IDCANCEL or IDNO; 0 when the box went away without one of them
KX_EXPORT int MessageBoxW(const wchar_t *lpText, const wchar_t *lpCaption, UINT uType);
/// \copydoc MessageBoxW(const wchar_t *, const wchar_t *, UINT)
/// The owner is ignored.
KX_EXPORT int MessageBoxW(HWND hWnd, const wchar_t *lpText, const wchar_t *lpCaption, UINT uType);
/// MessageBoxW() with the default title; the help identifier is ignored.
KX_EXPORT int AfxMessageBox(const wchar_t *lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
/// Shows the string resource `nIDPrompt` with an OK button, whatever `nType` is.
KX_EXPORT int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = static_cast<UINT>(-1));
KX_INERT("returns TRUE; makes no sound")
KX_EXPORT BOOL MessageBeep(UINT uType);

// ---- cursors -------------------------------------------------------------------------------------------

/// \return the identifier itself as a handle
KX_EXPORT HCURSOR LoadCursorW(HINSTANCE hInstance, UINT nIDCursor);
KX_INERT("returns null; there are no named cursors")
KX_EXPORT HCURSOR LoadCursorW(HINSTANCE hInstance, const wchar_t *lpCursorName);
KX_INERT("returns its argument; the cursor stays as it is")
KX_EXPORT HCURSOR SetCursor(HCURSOR hCursor);
KX_INERT("returns null")
KX_EXPORT HCURSOR GetCursor();

// ---- drawing and palettes ------------------------------------------------------------------------------

KX_INERT("returns null; no brush is made")
KX_EXPORT HBRUSH CreateSolidBrush(COLORREF color);
KX_INERT("returns null")
KX_EXPORT HDC CreateICW(const wchar_t *lpszDriver, const wchar_t *lpszDevice, const wchar_t *lpszPort,
                        const DEVMODEW *pdm);
KX_INERT("returns 0")
KX_EXPORT int GetMapMode(HDC hdc);
/// Writes the colours of `plpal`, at most 256, into the one palette of the process from its start on.
/// \return that palette, the same at every call; null for null
KX_EXPORT HPALETTE CreatePalette(const LOGPALETTE *plpal);
/// \return the index of the colour nearest to `color`; 0 for any handle but the one palette
KX_EXPORT UINT GetNearestPaletteIndex(HPALETTE hpal, COLORREF color);

// ---- the same under a class ----------------------------------------------------------------------------

/// Calls of user32 under a class name; each does what the free function of its name does.
class KX_EXPORT KxUser32
{
public:
    static HWND GetDlgItem(HWND hDlg, int nIDDlgItem);
    static BOOL GetWindowRect(HWND hWnd, tagRECT *lpRect);
    /// The widget that covers all screens.
    static HWND GetDesktopWindow();
    static BOOL EnableWindow(HWND hWnd, BOOL bEnable);
    KX_INERT("returns null; use CWnd::SetFocus()")
    static HWND SetFocus(HWND hWnd);
    KX_INERT("returns null; use CWnd::GetFocus()")
    static HWND GetFocus();
    static SHORT GetKeyState(int nVirtKey);
    static SHORT GetAsyncKeyState(int vKey);
    KX_INERT("returns null; the cursor stays as it is")
    static HCURSOR SetCursor(HCURSOR hCursor);
    KX_INERT("returns null")
    static HCURSOR GetCursor();
};

/// Calls of gdi32 under a class name; they draw nothing.
class KX_EXPORT KxKernel32
{
public:
    KX_INERT("returns FALSE; draws nothing")
    static BOOL MoveToEx(HDC hdc, int x, int y, tagPOINT *lppt);
    KX_INERT("returns FALSE; draws nothing")
    static BOOL LineTo(HDC hdc, int x, int y);
    KX_INERT("returns FALSE; draws nothing")
    static BOOL Polyline(HDC hdc, const tagPOINT *apt, int cpt);
    KX_INERT("returns 0; draws nothing")
    static int SetPolyFillMode(HDC hdc, int mode);
    KX_INERT("returns FALSE; draws nothing")
    static BOOL PolyPolygon(HDC hdc, const tagPOINT *apt, const int *asz, int csz);
};

// ---- settings ------------------------------------------------------------------------------------------

/// Registry access over the per-user settings of "Drumal"/"TORVA", as CRegKey of ATL. Every root key is the
/// same store; a key path becomes groups, with `\` and `/` alike. Use one object for one key path.
class KX_EXPORT CRegKey
{
public:
    /// Null; no member sets it.
    HKEY m_hKey;

    CRegKey();
    ~CRegKey();
    CRegKey(const CRegKey &) = delete;
    CRegKey &operator=(const CRegKey &) = delete;

    operator HKEY() const;

    /// Sets the key path, of which the first 2048 characters count. A path that is shorter than one set before
    /// keeps that one's tail. \return ERROR_SUCCESS
    LONG Create(HKEY hKeyParent, const wchar_t *lpszKeyName, wchar_t *lpszClass = nullptr,
                DWORD dwOptions = REG_OPTION_NON_VOLATILE, REGSAM samDesired = KEY_READ | KEY_WRITE,
                SECURITY_ATTRIBUTES *lpSecAttr = nullptr, DWORD *lpdwDisposition = nullptr);
    KX_INERT("returns ERROR_SUCCESS; the key path stays what Create() made it")
    LONG Open(HKEY hKeyParent, const wchar_t *lpszKeyName, REGSAM samDesired = KEY_READ | KEY_WRITE);
    KX_INERT("returns ERROR_SUCCESS; the key stays usable")
    LONG Close();
    KX_INERT("returns ERROR_SUCCESS; deletes nothing")
    LONG RecurseDeleteKey(const wchar_t *lpszKey);
    /// Stores a text under the key path; nothing without a name, since the store has no unnamed values.
    /// \return ERROR_SUCCESS
    LONG SetValue(const wchar_t *lpszValue, const wchar_t *lpszValueName = nullptr, bool bMulti = false,
                  int nValueLen = -1);
    /// Reads a text; a missing one is empty, and one without a name is missing. `*pdwCount`, the room in
    /// characters, is not updated; a null `pdwCount` is no room.
    /// A text that is as long as the room loses its last character to the terminating zero.
    /// \return ERROR_SUCCESS; -1 when the text is longer than the room, with the buffer untouched and the key path
    /// left open, so that the next call of this object looks below it
    LONG QueryValue(wchar_t *szValue, const wchar_t *lpszValueName, DWORD *pdwCount);

private:
    KxSettings *m_settings;
    wchar_t *m_path;
};
