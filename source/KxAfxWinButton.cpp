// SPDX-License-Identifier: MIT
#include "KxAfxWinButton.h"

#include "KxAfxWin_p.h"
#include "KxPlatformServices.h"

#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>

namespace {

const QImage *imageOf(HBITMAP bitmap)
{
    return platformServices()->imageService()->image(bitmap);
}

} // namespace

int CButton::GetCheck() const
{
    const auto *button = boundWidget<QAbstractButton>(this);
    return button && button->isChecked() ? 1 : 0;
}

void CButton::SetCheck(int nCheck)
{
    if (auto *button = boundWidget<QAbstractButton>(this))
        button->setChecked(nCheck != 0);
}

UINT CButton::GetState() const
{
    const auto *button = boundWidget<QAbstractButton>(this);
    return button && button->isChecked() ? 3 : 0;
}

HBITMAP CButton::SetBitmap(HBITMAP hBitmap)
{
    auto *button = boundWidget<QAbstractButton>(this);
    if (const QImage *image = button ? imageOf(hBitmap) : nullptr)
        button->setIcon(QIcon(QPixmap::fromImage(image->copy())));
    return nullptr;
}

HICON CButton::SetIcon(HICON) { return nullptr; }

BOOL CBitmapButton::LoadBitmaps(const wchar_t *, const wchar_t *, const wchar_t *, const wchar_t *)
{
    return false;
}

BOOL CBitmapButton::LoadBitmaps(UINT, UINT, UINT, UINT) { return false; }
BOOL CBitmapButton::AutoLoad(UINT, CWnd *) { return true; }

BOOL CStatic::Create(const wchar_t *lpszText, UINT dwStyle, const tagRECT &rect, CWnd *pParentWnd, UINT nID)
{
    return Create(L"STATIC", lpszText, dwStyle, rect, pParentWnd, nID);
}

void CStatic::SetWindowTextW(const wchar_t *lpszString)
{
    CWnd::SetWindowTextW(lpszString);
}

void CStatic::GetWindowTextW(CString &rString) const
{
    CWnd::GetWindowTextW(rString);
}

HBITMAP CStatic::SetBitmap(HBITMAP hBitmap)
{
    auto *label = boundWidget<QLabel>(this);
    if (const QImage *image = label ? imageOf(hBitmap) : nullptr)
        label->setPixmap(QPixmap::fromImage(image->copy()));
    return nullptr;
}

HBITMAP CStatic::GetBitmap() const { return nullptr; }
HICON CStatic::SetIcon(HICON) { return nullptr; }
