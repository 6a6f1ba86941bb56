// SPDX-License-Identifier: MIT
#include "KxAfxWinComboBox.h"

#include "KxAfxWin_p.h"
#include "KxComboTexts_p.h"
#include "KxText_p.h"

#include <QtCore/QPointer>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QComboBox>

namespace {

bool isRow(const QComboBox *combo, int row)
{
    return row >= 0 && row < combo->count();
}

int findRow(const QComboBox *combo, const wchar_t *text)
{
    return KxComboTexts::find(combo, toQString(text));
}

} // namespace

CComboBox::~CComboBox() = default;

void CComboBox::GetWindowTextW(CString &rString) const
{
    if (const auto *combo = boundWidget<QComboBox>(this))
        rString = toCString(combo->currentText());
}

int CComboBox::GetWindowTextW(wchar_t *lpszStringBuf, int nMaxCount) const
{
    return boundWidget<QComboBox>(this) ? CWnd::GetWindowTextW(lpszStringBuf, nMaxCount) : 0;
}

BOOL CComboBox::Create(UINT, const RECT &, CWnd *, UINT)
{
    return true;
}

// ---- rows ----------------------------------------------------------------------------------------------

int CComboBox::GetCount() const
{
    const auto *combo = boundWidget<QComboBox>(this);
    return combo ? combo->count() : 0;
}

int CComboBox::GetCurSel() const
{
    const auto *combo = boundWidget<QComboBox>(this);
    return combo ? combo->currentIndex() : 0;
}

int CComboBox::SetCurSel(int nSelect)
{
    auto *combo = boundWidget<QComboBox>(this);
    if (!combo)
        return 0;
    if (nSelect < -1 || nSelect >= combo->count())
        return CB_ERR;
    combo->blockSignals(true);
    combo->setCurrentIndex(nSelect);
    const QPointer<QComboBox> still = combo; // a host's WindowProc() may do anything
    WindowProc(CB_SETCURSEL, static_cast<WPARAM>(nSelect), 0);
    if (still)
        still->blockSignals(false);
    return nSelect;
}

int CComboBox::AddString(const wchar_t *lpszString)
{
    auto *combo = boundWidget<QComboBox>(this);
    if (!combo)
        return 0;
    const QString text = toQString(lpszString);
    const int present = text.isEmpty() ? -1 : KxComboTexts::find(combo, text);
    if (present >= 0)
        return present;
    const int row = combo->count();
    const QuietSignals quiet(combo);
    combo->addItem(text, QVariant());
    return row;
}

int CComboBox::InsertString(int nIndex, const wchar_t *lpszString)
{
    auto *combo = boundWidget<QComboBox>(this);
    if (!combo)
        return 0;
    const QString text = toQString(lpszString);
    const int present = text.isEmpty() ? -1 : KxComboTexts::find(combo, text);
    if (present >= 0)
        return present;
    if (nIndex < -1)
        return nIndex;
    const QuietSignals quiet(combo);
    combo->insertItem(nIndex == -1 ? combo->count() : nIndex, text, QVariant());
    return nIndex == -1 ? combo->count() - 1 : nIndex;
}

int CComboBox::DeleteString(UINT nIndex)
{
    auto *combo = boundWidget<QComboBox>(this);
    if (!combo)
        return 0;
    if (nIndex >= static_cast<UINT>(combo->count()))
        return CB_ERR;
    combo->removeItem(static_cast<int>(nIndex));
    return static_cast<int>(nIndex);
}

void CComboBox::ResetContent()
{
    if (auto *combo = boundWidget<QComboBox>(this)) {
        const QuietSignals quiet(combo);
        combo->clear();
    }
}

void CComboBox::Clear()
{
    if (auto *combo = boundWidget<QComboBox>(this))
        combo->clear();
}

// ---- searching -----------------------------------------------------------------------------------------

int CComboBox::FindString(int, const wchar_t *lpszString) const
{
    const auto *combo = boundWidget<QComboBox>(this);
    return combo ? findRow(combo, lpszString) : 0;
}

int CComboBox::FindStringExact(int nIndexStart, const wchar_t *lpszFind) const
{
    return isSmallHandle(this) ? 0 : FindString(nIndexStart, lpszFind);
}

int CComboBox::SelectString(int, const wchar_t *lpszString)
{
    auto *combo = boundWidget<QComboBox>(this);
    if (!combo)
        return 0;
    const int row = findRow(combo, lpszString);
    if (row >= 0)
        combo->setCurrentIndex(row);
    return row;
}

// ---- text and data of rows -----------------------------------------------------------------------------

int CComboBox::GetLBText(int nIndex, wchar_t *lpszText) const
{
    const auto *combo = boundWidget<QComboBox>(this);
    if (!combo || !lpszText || nIndex < 0 || nIndex > combo->count())
        return 0;
    copyText(combo->itemText(nIndex), lpszText);
    return sslen(lpszText);
}

void CComboBox::GetLBText(int nIndex, CString &rString) const
{
    if (const auto *combo = boundWidget<QComboBox>(this))
        rString = toCString(combo->itemText(nIndex));
}

int CComboBox::GetLBTextLen(int nIndex) const
{
    const auto *combo = boundWidget<QComboBox>(this);
    return combo ? combo->itemText(nIndex).length() : 0;
}

int CComboBox::SetItemDataPtr(int nIndex, void *pData)
{
    auto *combo = boundWidget<QComboBox>(this);
    if (!combo)
        return 0;
    if (!isRow(combo, nIndex))
        return CB_ERR;
    combo->setItemData(nIndex, QVariant::fromValue<void *>(pData), Qt::UserRole);
    return nIndex;
}

void *CComboBox::GetItemDataPtr(int nIndex) const
{
    const auto *combo = boundWidget<QComboBox>(this);
    return combo && isRow(combo, nIndex) ? combo->itemData(nIndex, Qt::UserRole).value<void *>() : nullptr;
}

int CComboBox::SetItemData(int nIndex, unsigned long dwItemData)
{
    return isSmallHandle(this) ? 0 : SetItemDataPtr(nIndex, reinterpret_cast<void *>(dwItemData));
}

unsigned long CComboBox::GetItemData(int nIndex) const
{
    return isSmallHandle(this) ? 0 : reinterpret_cast<unsigned long>(GetItemDataPtr(nIndex));
}

// ---- the list of rows ----------------------------------------------------------------------------------

void CComboBox::ShowDropDown(BOOL)
{
    if (auto *combo = boundWidget<QComboBox>(this))
        combo->showPopup();
}

BOOL CComboBox::GetDroppedState() const
{
    const auto *combo = boundWidget<QComboBox>(this);
    return combo && combo->view()->isVisible();
}

// ---- fixed results -------------------------------------------------------------------------------------

BOOL CComboBox::SetEditSel(int, int) { return true; }
DWORD CComboBox::GetEditSel() const { return 0; }
void CComboBox::SetHorizontalExtent(UINT) {}
UINT CComboBox::GetHorizontalExtent() const { return 0; }
int CComboBox::SetDroppedWidth(UINT) { return 0; }
int CComboBox::GetDroppedWidth() const { return 0; }
int CComboBox::SetItemHeight(int, UINT) { return 0; }
