// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"

class CBitmap;

/// \file
/// CButton, CBitmapButton and CStatic.

/// A button, as CButton in MFC, bound to a QAbstractButton: every member serves that and nothing else.
/// Unbound, or on another widget, a member does nothing and gives 0.
class KX_EXPORT CButton : public CWnd
{
public:
    using CWnd::CWnd;

    /// \return 1 when checked, otherwise 0
    int GetCheck() const;
    /// Checks the button for every `nCheck` but 0: there is no third state.
    void SetCheck(int nCheck);
    /// \return 3 when checked, otherwise 0; neither the focus nor being pressed is told
    UINT GetState() const;
    /// Makes the picture of a bitmap handle that the image service knows the button's icon. \return null
    HBITMAP SetBitmap(HBITMAP hBitmap);
    KX_INERT("returns null; set the icon on the widget, or a bitmap with SetBitmap()")
    HICON SetIcon(HICON hIcon);
};

/// A button with bitmaps of its own as an interface only, CBitmapButton in MFC: no bitmap is loaded.
class KX_EXPORT CBitmapButton : public CButton
{
public:
    using CButton::CButton;

    KX_INERT("returns FALSE; set the icon on the widget, or a bitmap with SetBitmap()")
    BOOL LoadBitmaps(const wchar_t *lpszBitmapResource, const wchar_t *lpszBitmapResourceSel = nullptr,
                     const wchar_t *lpszBitmapResourceFocus = nullptr,
                     const wchar_t *lpszBitmapResourceDisabled = nullptr);
    KX_INERT("returns FALSE; set the icon on the widget, or a bitmap with SetBitmap()")
    BOOL LoadBitmaps(UINT nIDBitmapResource, UINT nIDBitmapResourceSel = 0, UINT nIDBitmapResourceFocus = 0,
                     UINT nIDBitmapResourceDisabled = 0);
    KX_INERT("returns TRUE; nothing is bound or loaded")
    BOOL AutoLoad(UINT nID, CWnd *pParent);
};

/// A static text or picture, as CStatic in MFC. SetBitmap() serves a QLabel; on another widget, or unbound,
/// it does nothing. The text is that of CWnd.
class KX_EXPORT CStatic : public CWnd
{
public:
    using CWnd::CWnd;
    using CWnd::Create;
    using CWnd::GetWindowTextW;

    /// Create() of CWnd with the class name "STATIC": nothing is created. \return TRUE
    virtual BOOL Create(const wchar_t *lpszText, UINT dwStyle, const tagRECT &rect, CWnd *pParentWnd,
                        UINT nID = 0xFFFF);
    /// As CWnd::SetWindowTextW().
    void SetWindowTextW(const wchar_t *lpszString) override;
    /// As CWnd::GetWindowTextW().
    void GetWindowTextW(CString &rString) const override;

    /// Shows the picture of a bitmap handle that the image service knows. \return null
    HBITMAP SetBitmap(HBITMAP hBitmap);
    KX_INERT("returns null; the label keeps its pixmap")
    HBITMAP GetBitmap() const;
    KX_INERT("returns null; show a bitmap with SetBitmap()")
    HICON SetIcon(HICON hIcon);
};
