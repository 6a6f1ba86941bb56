// SPDX-License-Identifier: MIT
#include "KxAfxWinTabCtrl.h"

#include "KxAfxWin_p.h"
#include "KxText_p.h"

#include <QtWidgets/QTabWidget>

int CTabCtrl::GetCurSel() const
{
    const auto *tabs = boundWidget<QTabWidget>(this);
    return tabs ? tabs->currentIndex() : 0;
}

int CTabCtrl::SetCurSel(int nItem)
{
    auto *tabs = boundWidget<QTabWidget>(this);
    if (!tabs)
        return 0;
    const int before = tabs->currentIndex();
    if (nItem != before && nItem >= 0 && nItem < tabs->count())
        tabs->setCurrentIndex(nItem);
    return before < 0 ? 0 : before;
}

int CTabCtrl::GetActiveTab() const
{
    return isSmallHandle(this) ? 0 : GetCurSel();
}

BOOL CTabCtrl::SetActiveTab(int nItem)
{
    auto *tabs = boundWidget<QTabWidget>(this);
    if (!tabs)
        return false;
    const QuietSignals quiet(tabs);
    tabs->setCurrentIndex(nItem);
    return true;
}

int CTabCtrl::GetItemCount() const
{
    const auto *tabs = boundWidget<QTabWidget>(this);
    return tabs ? tabs->count() : 0;
}

void CTabCtrl::AddTab(int nIndex, int nTitleID, int, CWnd *pPage)
{
    auto *tabs = boundWidget<QTabWidget>(this);
    QWidget *page = isSmallHandle(pPage) ? nullptr : KxWidgetFromHwnd(pPage->GetSafeHwnd());
    if (!tabs)
        return;
    CString title;
    title.LoadStringW(static_cast<UINT>(nTitleID));
    const QuietSignals quiet(tabs);
    tabs->insertTab(nIndex, page, toQString(title));
}

BOOL CTabCtrl::DeleteItem(int nItem)
{
    auto *tabs = boundWidget<QTabWidget>(this);
    if (!tabs || nItem < 0 || nItem > tabs->count())
        return false;
    tabs->removeTab(nItem);
    return true;
}

BOOL CTabCtrl::DeleteAllItems()
{
    auto *tabs = boundWidget<QTabWidget>(this);
    if (tabs)
        tabs->clear();
    return tabs;
}

LONG CTabCtrl::InsertItem(int, const wchar_t *) { return 0; }
LONG CTabCtrl::InsertItem(int, tagTCITEMW *) { return 0; }
BOOL CTabCtrl::GetItemRect(int, tagRECT *) const { return false; }
void CTabCtrl::AdjustRect(BOOL, tagRECT *) {}
