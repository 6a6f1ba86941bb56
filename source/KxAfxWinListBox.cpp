// SPDX-License-Identifier: MIT
#include "KxAfxWinListBox.h"

#include "KxAfxWin_p.h"
#include "KxText_p.h"

#include <QtWidgets/QListWidget>

namespace {

/// A row's item; null when the widget is no list or there is no such row.
QListWidgetItem *itemAt(const CListBox *box, int row)
{
    const auto *list = boundWidget<QListWidget>(box);
    return list ? list->item(row) : nullptr;
}

/// The first row with that text in any case, LB_ERR when there is none.
int findRow(const QListWidget *list, const wchar_t *text)
{
    const QString wanted = toQString(text);
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->text().compare(wanted, Qt::CaseInsensitive) == 0)
            return row;
    }
    return LB_ERR;
}

} // namespace

int CListBox::GetCount() const
{
    const auto *list = boundWidget<QListWidget>(this);
    return list ? list->count() : 0;
}

int CListBox::GetCurSel() const
{
    const auto *list = boundWidget<QListWidget>(this);
    return list ? list->currentRow() : 0;
}

int CListBox::SetCurSel(int nSelect)
{
    auto *list = boundWidget<QListWidget>(this);
    if (!list)
        return 0;
    if (nSelect < 0 || nSelect >= list->count())
        return LB_ERR;
    list->setCurrentRow(nSelect);
    return nSelect;
}

void CListBox::GetText(int nIndex, CString &rString) const
{
    if (!boundWidget<QListWidget>(this))
        return;
    const QListWidgetItem *item = itemAt(this, nIndex);
    rString = item ? toCString(item->text()) : CString();
}

int CListBox::AddString(const wchar_t *lpszItem)
{
    auto *list = boundWidget<QListWidget>(this);
    if (!list)
        return 0;
    list->addItem(toQString(lpszItem).simplified());
    return list->count() - 1;
}

int CListBox::InsertString(int nIndex, const wchar_t *lpszItem)
{
    auto *list = boundWidget<QListWidget>(this);
    if (!list)
        return 0;
    list->insertItem(nIndex, toQString(lpszItem));
    return nIndex;
}

int CListBox::DeleteString(UINT nIndex)
{
    auto *list = boundWidget<QListWidget>(this);
    if (!list)
        return 0;
    list->takeItem(static_cast<int>(nIndex));
    return static_cast<int>(nIndex);
}

void CListBox::ResetContent()
{
    if (auto *list = boundWidget<QListWidget>(this))
        list->clear();
}

int CListBox::FindString(int, const wchar_t *lpszItem) const
{
    const auto *list = boundWidget<QListWidget>(this);
    return list ? findRow(list, lpszItem) : 0;
}

int CListBox::FindStringExact(int nIndexStart, const wchar_t *lpszFind) const
{
    const auto *list = boundWidget<QListWidget>(this);
    if (!list)
        return 0;
    const int row = findRow(list, lpszFind);
    return row > nIndexStart ? row : LB_ERR;
}

int CListBox::SelectString(int, const wchar_t *lpszItem)
{
    auto *list = boundWidget<QListWidget>(this);
    if (!list)
        return 0;
    const QString wanted = toQString(lpszItem).trimmed();
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->text().trimmed() == wanted)
            list->setCurrentRow(row);
    }
    return 0;
}

int CListBox::SetItemData(int nIndex, unsigned long dwItemData)
{
    if (!boundWidget<QListWidget>(this))
        return 0;
    if (QListWidgetItem *item = itemAt(this, nIndex))
        item->setData(Qt::UserRole, QVariant(static_cast<qulonglong>(dwItemData)));
    return nIndex;
}

unsigned long CListBox::GetItemData(int nIndex) const
{
    const QListWidgetItem *item = itemAt(this, nIndex);
    return item ? item->data(Qt::UserRole).toULongLong() : 0;
}

int CListBox::SetItemDataPtr(int nIndex, void *pData)
{
    if (!boundWidget<QListWidget>(this))
        return 0;
    if (QListWidgetItem *item = itemAt(this, nIndex))
        item->setData(Qt::UserRole, QVariant::fromValue<void *>(pData));
    return nIndex;
}

void *CListBox::GetItemDataPtr(int nIndex) const
{
    const QListWidgetItem *item = itemAt(this, nIndex);
    return item ? item->data(Qt::UserRole).value<void *>() : nullptr;
}

int CListBox::SetSel(int nIndex, BOOL bSelect)
{
    if (!boundWidget<QListWidget>(this))
        return 0;
    QListWidgetItem *item = itemAt(this, nIndex);
    if (!item)
        return LB_ERR;
    item->setSelected(bSelect);
    return 0;
}

int CListBox::GetSel(int nIndex) const
{
    if (!boundWidget<QListWidget>(this))
        return 0;
    const QListWidgetItem *item = itemAt(this, nIndex);
    if (!item)
        return LB_ERR;
    return item->isSelected() ? 1 : 0;
}

int CListBox::GetSelCount() const
{
    const auto *list = boundWidget<QListWidget>(this);
    return list ? list->selectedItems().count() : 0;
}

int CListBox::GetTextLen(int) const { return 0; }
int CListBox::GetSelItems(int, int *) const { return 0; }
