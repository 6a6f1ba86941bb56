// SPDX-License-Identifier: MIT
#include "KxAfxDDX.h"
#include "KxAfxGDI.h"
#include "KxAfxGlobal.h"
#include "KxAfxWin_p.h"
#include "KxQtWinapiWrapper.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>

// ---- check and radio buttons ---------------------------------------------------------------------------

namespace {

QAbstractButton *dialogButton(const CWnd *window, int id)
{
    const CWnd *item = window->GetDlgItem(id);
    return item ? qobject_cast<QAbstractButton *>(KxWidgetFromHwnd(item->GetSafeHwnd())) : nullptr;
}

} // namespace

UINT CWnd::IsDlgButtonChecked(int nIDButton) const
{
    if (isSmallHandle(this))
        return smallHandleResult<UINT>(this);
    const QAbstractButton *button = dialogButton(this, nIDButton);
    return button && button->isChecked();
}

void CWnd::CheckDlgButton(int nIDButton, UINT nCheck)
{
    if (!boundBlock(this))
        return;
    if (QAbstractButton *button = dialogButton(this, nIDButton))
        button->setChecked(nCheck != 0);
}

void CWnd::CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton)
{
    const CWndPrivate *d = boundBlock(this);
    if (!d)
        return;
    // Only identifiers among the items can be buttons.
    for (auto item = d->items.lower_bound(nIDFirstButton);
         item != d->items.end() && item->first <= nIDLastButton; ++item) {
        if (QAbstractButton *button = dialogButton(this, item->first)) {
            button->setChecked(false);
            if (item->first == nIDCheckButton)
                button->setChecked(true);
        }
    }
}

int CWnd::GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const
{
    if (isSmallHandle(this))
        return smallHandleResult<int>(this);
    const CWndPrivate *d = boundBlock(this);
    if (!d)
        return 0;
    for (auto item = d->items.lower_bound(nIDFirstButton);
         item != d->items.end() && item->first <= nIDLastButton; ++item) {
        if (IsDlgButtonChecked(item->first))
            return item->first;
    }
    return 0;
}

// ---- geometry ------------------------------------------------------------------------------------------

void CWnd::GetWindowRect(tagRECT *lpRect) const
{
    if (boundBlock(this))
        ::GetWindowRect(m_hWnd, lpRect);
}

void CWnd::GetClientRect(tagRECT *lpRect) const
{
    const QWidget *widget = boundWidget(this);
    if (!widget || !lpRect)
        return;
    // Right and bottom are QRect's, inclusive: one less than Windows gives.
    const QRect rect = widget->rect();
    *lpRect = {rect.left(), rect.top(), rect.right(), rect.bottom()};
}

void CWnd::ClientToScreen(tagPOINT *lpPoint) const
{
    const QWidget *widget = boundWidget(this);
    if (!widget || !lpPoint)
        return;
    const QPoint point = widget->mapToGlobal(QPoint(lpPoint->x, lpPoint->y));
    *lpPoint = {point.x(), point.y()};
}

void CWnd::MoveWindow(int x, int y, int, int, BOOL)
{
    if (QWidget *widget = boundWidget(this))
        widget->move(x, y);
}

BOOL CWnd::SetWindowPos(const CWnd *, int x, int y, int cx, int cy, UINT)
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    QWidget *widget = boundWidget(this);
    if (widget && !(cx > 0 && cy > 0))
        widget->move(x, y);
    return TRUE;
}

// ---- state ---------------------------------------------------------------------------------------------

BOOL CWnd::IsWindowEnabled() const
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    const QWidget *widget = boundWidget(this);
    return widget ? widget->isEnabled() : TRUE;
}

BOOL CWnd::EnableWindow(BOOL bEnable)
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    QWidget *widget = boundWidget(this);
    if (!widget)
        return TRUE;
    const bool wasEnabled = widget->isEnabled();
    widget->setEnabled(bEnable);
    return wasEnabled;
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT)
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    QWidget *widget = boundWidget(this);
    if (!widget)
        return FALSE;
    if (dwRemove == WS_DISABLED && dwAdd == 0)
        widget->setEnabled(true);
    else if (dwAdd == WS_DISABLED && dwRemove == 0)
        widget->setEnabled(false);
    return TRUE;
}

BOOL CWnd::ShowWindow(int nCmdShow)
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    QWidget *widget = boundWidget(this);
    if (!widget)
        return FALSE;
    widget->setVisible(nCmdShow != 0);
    return TRUE;
}

BOOL CWnd::IsWindowVisible() const
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    const QWidget *widget = boundWidget(this);
    return widget && widget->isVisible();
}

CWnd *CWnd::SetFocus()
{
    if (QWidget *widget = boundWidget(this))
        widget->setFocus();
    return nullptr;
}

CWnd *CWnd::GetFocus()
{
    return FromHandle(KxHwndFromWidget(QApplication::focusWidget()));
}

// ---- painting ------------------------------------------------------------------------------------------

void CWnd::Invalidate(BOOL)
{
    if (QWidget *widget = boundWidget(this))
        widget->update();
}

void CWnd::InvalidateRect(const tagRECT *, BOOL bErase)
{
    if (!isSmallHandle(this))
        Invalidate(bErase);
}

CDC *CWnd::GetDC()
{
    if (isSmallHandle(this))
        return smallHandleResult<CDC *>(this);
    CWndPrivate *d = boundBlock(this);
    if (d && !d->dc)
        d->dc = new CDC;
    return d ? d->dc : nullptr;
}

HDC CWnd::GetSafeHdc() const
{
    if (isSmallHandle(this))
        return smallHandleResult<HDC>(this);
    const CWndPrivate *d = privateBlock(this);
    return d && d->dc ? d->dc->m_hDC : nullptr;
}

// ---- data exchange and message boxes -------------------------------------------------------------------

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    if (isSmallHandle(this))
        return smallHandleResult<BOOL>(this);
    CDataExchange exchange(this, bSaveAndValidate);
    DoDataExchange(&exchange);
    return !exchange.m_bFailed;
}

int CWnd::MessageBoxW(const wchar_t *lpszText, const wchar_t *lpszCaption, UINT nType)
{
    if (isSmallHandle(this))
        return smallHandleResult<int>(this);
    return ::MessageBoxW(m_hWnd, lpszText, lpszCaption, nType);
}

LRESULT CWnd::SendMessageW(UINT message, WPARAM wParam, LPARAM lParam) const
{
    if (isSmallHandle(this))
        return smallHandleResult<LRESULT>(this);
    return const_cast<CWnd *>(this)->WindowProc(message, wParam, lParam);
}
