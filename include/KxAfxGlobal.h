// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxWinTypes.h"

#include <map>

/// \file
/// Win32's free window functions. Most work on the window object of the handle, and a handle that has none
/// counts as null for them; GetWindowRect(), GetClassNameW() and EnableWindow() work on the widget itself, and
/// SetWindowLongW() on any handle.

/// The values of SetWindowLongW() by handle; nothing removes them.
extern KX_EXPORT std::map<HWND, long> g_hwndMap;
/// See AfxSetResourceHandle().
extern KX_EXPORT HINSTANCE m_hCurrentResourceHandle;

/// \return the handle of a dialog item, see CWnd::GetDlgItem(); null when there is none
KX_EXPORT HWND GetDlgItem(HWND hDlg, int nIDDlgItem);
/// \return CWnd::GetDlgCtrlID(); 0 without a window object
KX_EXPORT int GetDlgCtrlID(HWND hWnd);
/// \return the handle of CWnd::GetParent()
KX_EXPORT HWND GetParent(HWND hWnd);
/// The widget's position on the screen and the size of its frame. Right and bottom are QRect's, inclusive: one
/// less than Windows gives. \return FALSE for a null handle
KX_EXPORT BOOL GetWindowRect(HWND hWnd, tagRECT *lpRect);
/// CWnd::GetClientRect(). \return FALSE without a window object
KX_EXPORT BOOL GetClientRect(HWND hWnd, tagRECT *lpRect);
/// CWnd::ShowWindow(). \return FALSE without a window object
KX_EXPORT BOOL ShowWindow(HWND hWnd, int nCmdShow);
/// Works on the widget itself. \return FALSE for a null handle; unlike Windows, otherwise TRUE
KX_EXPORT BOOL EnableWindow(HWND hWnd, BOOL bEnable);
/// CWnd::SetWindowTextW(). \return FALSE without a window object
KX_EXPORT BOOL SetWindowTextW(HWND hWnd, const wchar_t *lpString);
/// CWnd::GetWindowTextW(). \return the characters copied
KX_EXPORT int GetWindowTextW(HWND hWnd, wchar_t *lpString, int nMaxCount);
/// \return the length of the window's text in characters
KX_EXPORT int GetWindowTextLengthW(HWND hWnd);
/// The same as GetWindowTextLengthW(): characters, not bytes.
KX_EXPORT int GetWindowTextLengthA(HWND hWnd);
/// Writes the Windows class name for the widget's kind: "Edit" (QLineEdit, QSpinBox, QDoubleSpinBox), "Button"
/// (QAbstractButton), "ComboBox", "Static" (QLabel), an empty one for everything else; at most `nMaxCount` - 1
/// characters, and zeros up to the end; a null handle has an empty one too.
/// \return the length of what stands in the buffer
KX_EXPORT int GetClassNameW(HWND hWnd, wchar_t *lpClassName, int nMaxCount);
/// Stores a value for `nIndex` 1, once: a handle's first value stays. \return the value stored before the call, 0
/// for a null handle or any other index
KX_EXPORT LONG_PTR SetWindowLongW(HWND hWnd, int nIndex, long dwNewLong);
/// `nIndex` 1 gives the value of SetWindowLongW(), GWL_ID the control identifier; any other index, or a null
/// handle, 0.
KX_EXPORT LONG_PTR GetWindowLongPtrW(HWND hWnd, int nIndex);

KX_INERT("returns null; use CWnd::SetFocus()")
KX_EXPORT HWND SetFocus(HWND hWnd);
KX_INERT("returns null; use CWnd::GetFocus()")
KX_EXPORT HWND GetFocus();
KX_INERT("returns TRUE for any handle")
KX_EXPORT BOOL IsWindow(HWND hWnd);
KX_INERT("returns 0; use CWnd::IsDlgButtonChecked()")
KX_EXPORT UINT IsDlgButtonChecked(HWND hDlg, int nIDButton);
KX_INERT("returns FALSE; use CWnd::CheckDlgButton()")
KX_EXPORT BOOL CheckDlgButton(HWND hDlg, int nIDButton, UINT uCheck);
KX_INERT("returns FALSE; use CWnd::CheckRadioButton()")
KX_EXPORT BOOL CheckRadioButton(HWND hDlg, int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
KX_INERT("returns null; nothing captures the mouse")
KX_EXPORT HWND GetCapture();
KX_INERT("returns null; nothing captures the mouse")
KX_EXPORT HWND SetCapture(HWND hWnd);
KX_INERT("returns FALSE; nothing captures the mouse")
KX_EXPORT BOOL ReleaseCapture();

/// LoadLibraryW() of the platform library.
KX_EXPORT HINSTANCE AfxLoadLibrary(const wchar_t *lpszModuleName);
/// FreeLibrary() of the platform library.
KX_EXPORT BOOL AfxFreeLibrary(HINSTANCE hInstLib);
/// The module whose string resources CString::LoadStringW() reads; null until set.
KX_EXPORT HINSTANCE AfxGetResourceHandle();
KX_EXPORT void AfxSetResourceHandle(HINSTANCE hInstResource);
