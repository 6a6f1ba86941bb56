// SPDX-License-Identifier: MIT
#include "KxAfxWinDialog.h"

#include "KxAfxWin_p.h"

#include <QtWidgets/QDialog>

namespace {

constexpr int noModalResult = -100;
constexpr int pendingChangesItem = 1501;

} // namespace

CDialog::CDialog()
    : CDialog(*new CDialogPrivate, nullptr)
{
}

CDialog::CDialog(UINT, CWnd *pParentWnd)
    : CDialog(*new CDialogPrivate, pParentWnd)
{
}

CDialog::CDialog(const wchar_t *, CWnd *pParentWnd)
    : CDialog(*new CDialogPrivate, pParentWnd)
{
}

CDialog::CDialog(CDialogPrivate &d, CWnd *pParentWnd)
    : CWnd(d, pParentWnd)
    , m_nModalResult(noModalResult)
{
}

CDialog::~CDialog() = default;

CWndPrivate *CDialog::d_func() const
{
    return isSmallHandle(this) ? nullptr : CWnd::d_func();
}

BOOL CDialog::Create(const wchar_t *, CWnd *pParentWnd)
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    CWndPrivate *d = boundBlock(this);
    if (!d)
        return FALSE;
    d->parentWnd = pParentWnd;
    OnInitDialog();
    return TRUE;
}

BOOL CDialog::Create(UINT, CWnd *pParentWnd)
{
    return CDialog::Create(static_cast<const wchar_t *>(nullptr), pParentWnd);
}

INT_PTR CDialog::DoModal()
{
    if (isSmallHandle(this))
        return smallHandleResult<INT_PTR>(this);
    auto *dialog = boundWidget<QDialog>(this);
    if (!dialog)
        return 0;
    m_nModalResult = noModalResult;
    OnInitDialog();
    const int result = dialog->exec();
    if (m_nModalResult != noModalResult)
        return m_nModalResult;
    return result == QDialog::Accepted ? IDOK : IDCANCEL;
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    if (isSmallHandle(this))
        return;
    if (auto *dialog = boundWidget<QDialog>(this))
        dialog->reject();
}

void CDialog::EndDialog(int nResult)
{
    if (isSmallHandle(this))
        return;
    if (auto *dialog = boundWidget<QDialog>(this)) {
        m_nModalResult = nResult;
        dialog->accept();
    }
}

BOOL CDialog::OnNotify(WPARAM, LPARAM, LRESULT *) { return TRUE; }
void CDialog::OnHScroll(UINT, UINT, CScrollBar *) {}
void CDialog::GotoDlgCtrl(CWnd *) {}
BOOL CDialog::OnHelpInfo(HELPINFO *) { return FALSE; }

// ---- the host application's dialog bases ---------------------------------------------------------------

CRmUiDialog::CRmUiDialog(UINT nIDTemplate, CWnd *pParentWnd)
    : CDialog(nIDTemplate, pParentWnd)
{
}

CRmUiDialog::~CRmUiDialog() = default;

void CRmUiDialog::BeginEditorCommand() {}
void CRmUiDialog::CompleteEditorCommand() {}
void CRmUiDialog::SetDialogName(const wchar_t *) {}

CTnUiDialog::CTnUiDialog(UINT nIDTemplate, CWnd *pParentWnd)
    : CRmUiDialog(nIDTemplate, pParentWnd)
{
}

CTnUiDialog::~CTnUiDialog() = default;

void CTnUiDialog::OnSize(UINT, int, int) {}
void CTnUiDialog::OnSizing(UINT, LPRECT) {}

void CTnUiTabChildDialog::SetDirty(bool dirty)
{
    if (isSmallHandle(this))
        return;
    const CWnd *parent = GetParent();
    CWnd *control = parent ? parent->GetDlgItem(pendingChangesItem) : nullptr;
    if (!control || !boundBlock(control))
        return;
    if (!dirty && GetFocus() == control)
        SetFocus();
    control->EnableWindow(dirty);
}
