// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"
#include "KxExport.h"

class CDialogPrivate;
class CScrollBar;

/// \file
/// The dialog objects over a host-built QDialog.

/// A dialog object, as CDialog in MFC. No dialog is built from a template: the host makes a QDialog (best a
/// QBaseDialog), binds it with Attach(), registers its controls with SetDlgItem(), connects its buttons to
/// OnOK() and OnCancel(), and only then calls DoModal() or Create(). Template names and identifiers are
/// accepted and ignored.
class KX_EXPORT CDialog : public CWnd
{
public:
    /// What EndDialog() stored, -100 while it stored nothing.
    int m_nModalResult;

    CDialog();
    explicit CDialog(UINT nIDTemplate, CWnd *pParentWnd = nullptr);
    explicit CDialog(const wchar_t *lpszTemplateName, CWnd *pParentWnd = nullptr);
    ~CDialog() override;

    using CWnd::Create;
    /// Initialises a modeless dialog: stores the parent and calls OnInitDialog(). Shows nothing.
    /// \return FALSE when no widget is bound, otherwise TRUE whatever OnInitDialog() gave
    virtual BOOL Create(const wchar_t *lpszTemplateName, CWnd *pParentWnd = nullptr);
    /// \copydoc Create
    virtual BOOL Create(UINT nIDTemplate, CWnd *pParentWnd = nullptr);
    /// Calls OnInitDialog() and runs the QDialog's modal loop.
    /// \return what EndDialog() stored; without it IDOK when the QDialog was accepted, IDCANCEL when not.
    /// 0 at once, with nothing called, when no QDialog is bound
    virtual INT_PTR DoModal();
    /// Loads the controls with UpdateData(FALSE). \return TRUE; DoModal() and Create() ignore it
    virtual BOOL OnInitDialog();
    /// Saves the controls with UpdateData(TRUE), and ends the dialog with IDOK when that succeeded.
    virtual void OnOK();
    /// Rejects the QDialog; saves nothing and stores no result.
    virtual void OnCancel();
    /// A hook. \return TRUE
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT *pResult);

    /// The private block; null through a small pointer.
    CWndPrivate *d_func() const;
    /// Ends a modal run: stores the result and accepts the QDialog, whatever the result is. -100 reads as
    /// no result stored.
    void EndDialog(int nResult);
    void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar *pScrollBar);
    KX_INERT("does not move the focus; use SetFocus()")
    void GotoDlgCtrl(CWnd *pWndCtrl);
    BOOL OnHelpInfo(HELPINFO *lpHelpInfo);

protected:
    /// For derived classes that bring a larger private block, which the dialog owns from now on.
    CDialog(CDialogPrivate &d, CWnd *pParentWnd);
};

/// CDialog under the name of its MFC successor; it adds nothing.
class KX_EXPORT CDialogEx : public CDialog
{
public:
    using CDialog::CDialog;
};

/// The host application's own dialog base: a CDialog whose editor hooks do nothing.
class KX_EXPORT CRmUiDialog : public CDialog
{
public:
    explicit CRmUiDialog(UINT nIDTemplate, CWnd *pParentWnd = nullptr);
    ~CRmUiDialog() override;

    KX_INERT("begins no command")
    void BeginEditorCommand();
    KX_INERT("completes no command")
    void CompleteEditorCommand();
    KX_INERT("stores no name")
    void SetDialogName(const wchar_t *lpszName);
};

/// The host application's dialog base for dialogs that can be resized.
class KX_EXPORT CTnUiDialog : public CRmUiDialog
{
public:
    explicit CTnUiDialog(UINT nIDTemplate, CWnd *pParentWnd = nullptr);
    ~CTnUiDialog() override;

    void OnSize(UINT nType, int cx, int cy);
    void OnSizing(UINT nSide, LPRECT lpRect);
};

/// A page in a dialog with tabs.
class KX_EXPORT CTnUiTabChildDialog : public CTnUiDialog
{
public:
    using CTnUiDialog::CTnUiDialog;

    /// Tells the parent dialog whether the page holds unsaved changes: enables or disables the parent's item
    /// 1501. When that item has the focus and is about to be disabled, the page takes the focus. Does nothing
    /// without a parent or when the item is not bound.
    void SetDirty(bool dirty);
};
