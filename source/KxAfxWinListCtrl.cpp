// SPDX-License-Identifier: MIT
#include "KxAfxWinListCtrl.h"

#include "KxAfxWinTreeCtrl.h"
#include "KxAfxWin_p.h"
#include "KxText_p.h"

#include <QtCore/QSet>
#include <QtGui/QStandardItemModel>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QTableWidget>

#include <algorithm>

namespace {

constexpr UINT selectedState = 1;

/// The widget of a bound list as the kinds that are served: at most one of the first three is there.
struct ListKinds
{
    explicit ListKinds(const CListCtrl *list) : widget(boundWidget(list))
    {
        // One walk up the widget's classes, where a chain of casts would make three.
        const QMetaObject *kind = widget ? widget->metaObject() : nullptr;
        for (; kind; kind = kind->superClass()) {
            if (kind == &QListWidget::staticMetaObject)
                rows = static_cast<QListWidget *>(widget);
            else if (kind == &QTableWidget::staticMetaObject)
                table = static_cast<QTableWidget *>(widget);
            else if (kind == &QTableView::staticMetaObject)
                view = static_cast<QTableView *>(widget);
            else
                continue;
            break;
        }
        model = view ? view->model() : nullptr;
        itemModel = qobject_cast<QStandardItemModel *>(model);
    }

    QWidget *widget;
    QListWidget *rows = nullptr;
    QTableWidget *table = nullptr;
    QTableView *view = nullptr;
    QAbstractItemModel *model = nullptr;
    QStandardItemModel *itemModel = nullptr; // the model when it has items
};

bool hasCell(const QTableWidget *table, int row, int column)
{
    return row >= 0 && row < table->rowCount() && column >= 0 && column < table->columnCount();
}

QVariant dataValue(DWORD_PTR data)
{
    return QVariant(static_cast<qulonglong>(data));
}

/// Sets text and data of a cell, which is made when it is not there yet.
void setCell(QTableWidget *table, int row, int column, const wchar_t *text, LPARAM data)
{
    QTableWidgetItem *item = table->item(row, column);
    if (item) {
        item->setText(toQString(text));
        item->setData(Qt::UserRole, dataValue(static_cast<DWORD_PTR>(data)));
    } else if (hasCell(table, row, column)) {
        item = new QTableWidgetItem(toQString(text));
        item->setData(Qt::UserRole, dataValue(static_cast<DWORD_PTR>(data)));
        table->setItem(row, column, item);
    }
}

QModelIndexList selectedRows(const QTableView *view)
{
    const QItemSelectionModel *selection = view->selectionModel();
    return selection ? selection->selectedRows(0) : QModelIndexList();
}

} // namespace

CListCtrl::CListCtrl() : m_reserved(new char(0)) {}

CListCtrl::~CListCtrl()
{
    delete m_reserved;
}

// ---- rows ----------------------------------------------------------------------------------------------

int CListCtrl::InsertItem(int nItem, const wchar_t *lpszItem)
{
    const ListKinds kinds(this);
    if (!kinds.widget)
        return 0;
    if (!kinds.rows && !kinds.table && !kinds.itemModel)
        return -1;
    if (nItem < 0)
        return nItem;
    if (kinds.rows) {
        kinds.rows->insertItem(nItem, toQString(lpszItem));
    } else if (kinds.table && nItem <= kinds.table->rowCount()) {
        const QString text = toQString(lpszItem);
        kinds.table->insertRow(nItem);
        for (int column = 0; column < kinds.table->columnCount(); ++column)
            kinds.table->setItem(nItem, column, new QTableWidgetItem(text));
    } else if (kinds.itemModel) {
        kinds.itemModel->insertRow(nItem);
    }
    return nItem;
}

int CListCtrl::InsertItem(int nItem, const wchar_t *lpszItem, int)
{
    const ListKinds kinds(this);
    if (!kinds.widget)
        return 0;
    if (!kinds.rows && !kinds.table)
        return -1;
    if (nItem < 0)
        return nItem;
    if (kinds.rows) {
        kinds.rows->insertItem(nItem, toQString(lpszItem));
    } else if (nItem <= kinds.table->rowCount()) {
        kinds.table->insertRow(nItem);
        if (kinds.table->columnCount() > 0)
            kinds.table->setItem(nItem, 0, new QTableWidgetItem(toQString(lpszItem)));
    }
    return nItem;
}

int CListCtrl::InsertItem(const LVITEMW *pItem)
{
    const ListKinds kinds(this);
    if (!kinds.widget)
        return 0;
    if (!kinds.table || !pItem)
        return -1;
    const int row = std::min(pItem->iItem, kinds.table->rowCount());
    if (row >= 0) {
        kinds.table->insertRow(row);
        setCell(kinds.table, row, pItem->iSubItem, pItem->pszText, pItem->lParam);
    }
    return row;
}

BOOL CListCtrl::DeleteItem(int nItem)
{
    const ListKinds kinds(this);
    if (kinds.rows) {
        const QListWidgetItem *item = kinds.rows->takeItem(nItem);
        const bool present = item;
        delete item;
        return present;
    }
    if (kinds.table) {
        const bool present = nItem >= 0 && nItem < kinds.table->rowCount();
        kinds.table->removeRow(nItem);
        return present;
    }
    return kinds.model && kinds.model->removeRow(nItem);
}

BOOL CListCtrl::DeleteAllItems()
{
    const ListKinds kinds(this);
    if (kinds.rows) {
        const QuietSignals quiet(kinds.rows);
        kinds.rows->clear();
    } else if (kinds.table) {
        const QuietSignals quiet(kinds.table);
        kinds.table->setRowCount(0);
    } else if (kinds.itemModel) {
        kinds.itemModel->removeRows(0, kinds.itemModel->rowCount());
    }
    return kinds.rows || kinds.table || kinds.itemModel;
}

int CListCtrl::GetItemCount() const
{
    const ListKinds kinds(this);
    if (kinds.rows)
        return kinds.rows->count();
    if (kinds.table)
        return kinds.table->rowCount();
    return kinds.itemModel ? kinds.itemModel->rowCount() : 0;
}

// ---- text, data and state ------------------------------------------------------------------------------

CString CListCtrl::GetItemText(int nItem, int nSubItem) const
{
    const ListKinds kinds(this);
    if (kinds.rows) {
        const QListWidgetItem *item = kinds.rows->item(nItem);
        return item ? toCString(item->text()) : CString();
    }
    const QTableWidgetItem *item = kinds.table ? kinds.table->item(nItem, nSubItem) : nullptr;
    return item ? toCString(item->text()) : CString();
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, const wchar_t *lpszText)
{
    const ListKinds kinds(this);
    if (!kinds.table || !hasCell(kinds.table, nItem, nSubItem))
        return false;
    kinds.table->setItem(nItem, nSubItem, new QTableWidgetItem(toQString(lpszText)));
    return true;
}

BOOL CListCtrl::SetItemData(int nItem, DWORD_PTR dwData)
{
    const ListKinds kinds(this);
    if (kinds.rows) {
        QListWidgetItem *item = kinds.rows->item(nItem);
        if (item)
            item->setData(Qt::UserRole, dataValue(dwData));
        return item;
    }
    if (kinds.table) {
        QTableWidgetItem *item = kinds.table->item(nItem, 0);
        if (item)
            item->setData(Qt::UserRole, dataValue(dwData));
        return item;
    }
    return kinds.model && kinds.model->setData(kinds.model->index(nItem, 0), dataValue(dwData), Qt::UserRole);
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const
{
    const ListKinds kinds(this);
    if (kinds.rows) {
        const QListWidgetItem *item = kinds.rows->item(nItem);
        return item ? item->data(Qt::UserRole).toULongLong() : 0;
    }
    if (kinds.table) {
        const QTableWidgetItem *item = kinds.table->item(nItem, 0);
        return item ? item->data(Qt::UserRole).toULongLong() : 0;
    }
    return kinds.model ? kinds.model->index(nItem, 0).data(Qt::UserRole).toULongLong() : 0;
}

BOOL CListCtrl::SetItem(const LVITEMW *pItem)
{
    const ListKinds kinds(this);
    if (!kinds.table || !pItem)
        return false;
    setCell(kinds.table, pItem->iItem, pItem->iSubItem, pItem->pszText, pItem->lParam);
    return true;
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT, const wchar_t *lpszItem, int, UINT nState, UINT,
                        LPARAM lParam)
{
    const ListKinds kinds(this);
    if (!kinds.table)
        return false;
    if (nState == selectedState) {
        kinds.table->setCurrentCell(nItem, nSubItem);
        if (QTableWidgetItem *item = kinds.table->item(nItem, nSubItem))
            item->setSelected(true);
    }
    setCell(kinds.table, nItem, nSubItem, lpszItem, lParam);
    return true;
}

BOOL CListCtrl::GetItem(LVITEMW *pItem) const
{
    const ListKinds kinds(this);
    if (!kinds.table || !pItem || !(pItem->mask & LVIF_PARAM))
        return false;
    const QTableWidgetItem *item = kinds.table->item(pItem->iItem, pItem->iSubItem);
    if (item)
        pItem->lParam = item->data(Qt::UserRole).toLongLong();
    return item;
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask)
{
    const ListKinds kinds(this);
    if (!kinds.rows && !kinds.table && !kinds.view)
        return false;
    if (nItem < 0)
        return true;
    if (kinds.view) {
        if (nMask & selectedState)
            kinds.view->selectRow(nItem);
    } else if (nState & selectedState) {
        if (kinds.rows)
            kinds.rows->setCurrentRow(nItem);
        else
            kinds.table->setCurrentCell(nItem, 0);
    }
    return true;
}

UINT CListCtrl::GetItemState(int nItem, UINT nMask) const
{
    const ListKinds kinds(this);
    if (!(nMask & selectedState))
        return 0;
    bool selected = false;
    if (kinds.rows) {
        const QListWidgetItem *item = kinds.rows->item(nItem);
        selected = item && item->isSelected();
    } else if (kinds.table) {
        const QTableWidgetItem *item = kinds.table->item(nItem, 0);
        selected = item && item->isSelected();
    } else if (kinds.view) {
        for (const QModelIndex &index : selectedRows(kinds.view))
            selected = selected || index.row() == nItem;
    }
    return selected ? selectedState : 0;
}

int CListCtrl::GetSelectionMark() const
{
    const ListKinds kinds(this);
    if (!kinds.widget)
        return 0;
    return kinds.rows ? kinds.rows->currentRow() : -1;
}

int CListCtrl::GetNextItem(int nItem, int nFlags) const
{
    const ListKinds kinds(this);
    if (!kinds.widget)
        return 0;
    if (nFlags != LVNI_FOCUSED && nFlags != LVNI_SELECTED)
        return -1;
    if (kinds.rows)
        return kinds.rows->currentRow();
    const int row = kinds.table ? kinds.table->currentRow() : -1;
    return row == nItem ? -1 : row;
}

UINT CListCtrl::GetSelectedCount() const
{
    const ListKinds kinds(this);
    QSet<int> rows;
    if (kinds.rows)
        return static_cast<UINT>(kinds.rows->selectedItems().count());
    if (kinds.table) {
        for (const QTableWidgetItem *item : kinds.table->selectedItems())
            rows.insert(item->row());
    } else if (kinds.view) {
        for (const QModelIndex &index : selectedRows(kinds.view))
            rows.insert(index.row());
    }
    return static_cast<UINT>(rows.count());
}

POSITION CListCtrl::GetFirstSelectedItemPosition() const
{
    const ListKinds kinds(this);
    if (kinds.table) {
        const QList<QTableWidgetItem *> items = kinds.table->selectedItems();
        return items.isEmpty() ? nullptr : reinterpret_cast<POSITION>(items.first());
    }
    if (kinds.view) {
        const QModelIndexList rows = selectedRows(kinds.view);
        return rows.isEmpty() ? nullptr
                              : reinterpret_cast<POSITION>(new LIST_POSITION{rows.first().row(), {}});
    }
    return nullptr;
}

namespace {

int nextSelected(const QTableWidget *table, POSITION &position)
{
    auto *current = reinterpret_cast<QTableWidgetItem *>(position);
    const int row = current->row();
    const QList<QTableWidgetItem *> items = table->selectedItems();
    const auto isInAnotherRow = [row](const QTableWidgetItem *item) { return item->row() != row; };
    const auto here = std::find(items.begin(), items.end(), current);
    const auto next = std::find_if(here, items.end(), isInAnotherRow);
    position = next == items.end() ? nullptr : reinterpret_cast<POSITION>(*next);
    return row;
}

int nextSelected(const QTableView *view, POSITION &position)
{
    auto *token = reinterpret_cast<LIST_POSITION *>(position);
    const int row = token->row;
    token->visited.append(row);
    const QSet<int> visited(token->visited.begin(), token->visited.end());
    for (const QModelIndex &index : selectedRows(view)) {
        if (!visited.contains(index.row())) {
            token->row = index.row();
            return row;
        }
    }
    delete token;
    position = nullptr;
    return row;
}

} // namespace

int CListCtrl::GetNextSelectedItem(POSITION &pos) const
{
    const ListKinds kinds(this);
    if (!kinds.widget)
        return 0;
    if (pos && kinds.table)
        return nextSelected(kinds.table, pos);
    if (pos && kinds.view)
        return nextSelected(kinds.view, pos);
    return -1;
}

CEdit *CListCtrl::EditLabel(int nItem)
{
    const ListKinds kinds(this);
    QListWidgetItem *item = kinds.rows ? kinds.rows->item(nItem) : nullptr;
    if (item) {
        const QuietSignals quiet(kinds.rows);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        kinds.rows->editItem(item);
    } else if (kinds.model && nItem >= 0) {
        kinds.view->selectRow(nItem);
        const QModelIndex cell = kinds.model->index(nItem, 1);
        if (cell.isValid())
            kinds.view->edit(cell);
    }
    return nullptr;
}

// ---- columns -------------------------------------------------------------------------------------------

namespace {

void insertHeadedColumn(QTableWidget *table, int column, const QString &heading)
{
    if (column < 0 || column > table->columnCount())
        return;
    table->insertColumn(column);
    table->setHorizontalHeaderItem(column, new QTableWidgetItem(heading));
}

} // namespace

int CListCtrl::InsertColumn(int nCol, const LVCOLUMNW *pColumn)
{
    const ListKinds kinds(this);
    if (!kinds.widget)
        return 0;
    if (nCol < 0 || !pColumn)
        return -1;
    if (kinds.table)
        insertHeadedColumn(kinds.table, nCol, toQString(pColumn->pszText));
    return nCol;
}

int CListCtrl::InsertColumn(int nCol, const wchar_t *lpszColumnHeading, int, int, int)
{
    const ListKinds kinds(this);
    if (!kinds.widget)
        return 0;
    const QString heading = toQString(lpszColumnHeading);
    if (kinds.table) {
        if (QTableWidgetItem *header = kinds.table->horizontalHeaderItem(nCol))
            header->setText(heading);
        else
            insertHeadedColumn(kinds.table, nCol, heading);
    } else if (kinds.itemModel && nCol >= 0) {
        if (QStandardItem *header = kinds.itemModel->horizontalHeaderItem(nCol)) {
            header->setText(heading);
        } else {
            kinds.itemModel->insertColumn(nCol);
            kinds.itemModel->setHorizontalHeaderItem(nCol, new QStandardItem(heading));
        }
    }
    return nCol;
}

BOOL CListCtrl::DeleteColumn(int nCol)
{
    auto *view = boundWidget<QTableView>(this);
    return view && view->model() && view->model()->removeColumn(nCol);
}

CHeaderCtrl *CListCtrl::GetHeaderCtrl() const
{
    const auto *view = boundWidget<QTableView>(this);
    if (!view)
        return nullptr;
    auto *header = new CHeaderCtrl;
    header->SetHandle(KxHwndFromWidget(view->horizontalHeader()));
    return header;
}

// ---- fixed results -------------------------------------------------------------------------------------

CImageList *CListCtrl::SetImageList(CImageList *, int) { return nullptr; }
DWORD CListCtrl::GetExtendedStyle() const { return 0; }
DWORD CListCtrl::SetExtendedStyle(DWORD) { return 0; }
BOOL CListCtrl::GetItemRect(int, RECT *, UINT) const { return true; }
BOOL CListCtrl::GetSubItemRect(int, int, int, CRect &) const { return true; }
BOOL CListCtrl::EnsureVisible(int, BOOL) { return true; }
void CListCtrl::SetSelectionMark(int) {}
BOOL CListCtrl::SortItems(PFNLVCOMPARE, DWORD_PTR) { return false; }
BOOL CListCtrl::SetColumnWidth(int, int) { return true; }
BOOL CListCtrl::GetColumn(int, LVCOLUMNW *) const { return false; }
