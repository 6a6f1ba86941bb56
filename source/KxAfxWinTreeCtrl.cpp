// SPDX-License-Identifier: MIT
#include "KxAfxWinTreeCtrl.h"

#include "KxAfxWin_p.h"
#include "KxText_p.h"

#include <QtGui/QStandardItemModel>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTreeWidget>

#include <cstdint>
#include <map>
#include <string>

// ---- CTreeCtrl -----------------------------------------------------------------------------------------

namespace {

/// The item of a handle; null and the TVI_ values are none.
QTreeWidgetItem *itemOf(HTREEITEM handle)
{
    const bool isItem = reinterpret_cast<std::uintptr_t>(handle) < reinterpret_cast<std::uintptr_t>(TVI_ROOT);
    return isItem ? reinterpret_cast<QTreeWidgetItem *>(handle) : nullptr;
}

/// The item of a handle when the tree's widget is one, otherwise null.
QTreeWidgetItem *itemIn(const CTreeCtrl *tree, HTREEITEM handle)
{
    return boundWidget<QTreeWidget>(tree) ? itemOf(handle) : nullptr;
}

HTREEITEM handleOf(QTreeWidgetItem *item)
{
    return reinterpret_cast<HTREEITEM>(item);
}

HTREEITEM siblingOf(QTreeWidgetItem *item, int distance)
{
    QTreeWidgetItem *parent = item ? item->parent() : nullptr;
    return parent ? handleOf(parent->child(parent->indexOfChild(item) + distance)) : nullptr;
}

QTreeWidgetItem *newItem(const wchar_t *text)
{
    return new QTreeWidgetItem(QStringList(toQString(text)));
}

} // namespace

CTreeCtrl::CTreeCtrl() = default;
CTreeCtrl::~CTreeCtrl() = default;

HTREEITEM CTreeCtrl::InsertItem(TVINSERTSTRUCTW *lpInsertStruct)
{
    auto *tree = boundWidget<QTreeWidget>(this);
    if (!tree || !lpInsertStruct)
        return nullptr;
    QTreeWidgetItem *parent = itemOf(lpInsertStruct->hParent);
    if (lpInsertStruct->hParent && !parent)
        return nullptr;
    QTreeWidgetItem *item = newItem(lpInsertStruct->item.pszText);
    item->setData(0, Qt::UserRole, QVariant(static_cast<qulonglong>(lpInsertStruct->item.lParam)));
    if (parent)
        parent->addChild(item);
    else
        tree->addTopLevelItem(item);
    return handleOf(item);
}

HTREEITEM CTreeCtrl::InsertItem(const wchar_t *lpszItem, HTREEITEM hParent, HTREEITEM)
{
    auto *tree = boundWidget<QTreeWidget>(this);
    QTreeWidgetItem *parent = itemOf(hParent);
    if (!tree || (!parent && hParent != TVI_ROOT))
        return nullptr;
    QTreeWidgetItem *item = newItem(lpszItem);
    if (parent)
        parent->addChild(item);
    else
        tree->addTopLevelItem(item);
    return handleOf(item);
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM hItem)
{
    delete itemIn(this, hItem);
    return boundWidget(this) != nullptr;
}

BOOL CTreeCtrl::DeleteAllItems()
{
    auto *tree = boundWidget<QTreeWidget>(this);
    if (tree)
        tree->clear();
    return tree;
}

UINT CTreeCtrl::GetCount() const
{
    const auto *tree = boundWidget<QTreeWidget>(this);
    return tree ? static_cast<UINT>(tree->topLevelItemCount()) : 0;
}

HTREEITEM CTreeCtrl::GetRootItem() const
{
    const auto *tree = boundWidget<QTreeWidget>(this);
    return tree ? handleOf(tree->topLevelItem(0)) : nullptr;
}

HTREEITEM CTreeCtrl::GetSelectedItem() const
{
    const auto *tree = boundWidget<QTreeWidget>(this);
    return tree ? handleOf(tree->currentItem()) : nullptr;
}

HTREEITEM CTreeCtrl::GetParentItem(HTREEITEM hItem) const
{
    const QTreeWidgetItem *item = itemIn(this, hItem);
    return item ? handleOf(item->parent()) : nullptr;
}

HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM hItem) const
{
    const QTreeWidgetItem *item = itemIn(this, hItem);
    return item ? handleOf(item->child(0)) : nullptr;
}

HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM hItem) const
{
    return siblingOf(itemIn(this, hItem), 1);
}

HTREEITEM CTreeCtrl::GetPrevSiblingItem(HTREEITEM hItem) const
{
    return siblingOf(itemIn(this, hItem), -1);
}

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM hItem, UINT nCode) const
{
    QTreeWidgetItem *item = itemIn(this, hItem);
    if (!item || nCode != TVGN_NEXT)
        return nullptr;
    if (item->parent())
        return siblingOf(item, 1);
    const auto *tree = boundWidget<QTreeWidget>(this);
    return handleOf(tree->topLevelItem(tree->indexOfTopLevelItem(item) + 1));
}

int CTreeCtrl::ItemHasChildren(HTREEITEM hItem) const
{
    const QTreeWidgetItem *item = itemIn(this, hItem);
    return item ? item->childCount() : 0;
}

CString CTreeCtrl::GetItemText(HTREEITEM hItem) const
{
    const QTreeWidgetItem *item = itemIn(this, hItem);
    return item ? toCString(item->text(0)) : CString();
}

BOOL CTreeCtrl::SetItemText(HTREEITEM hItem, const wchar_t *lpszItem)
{
    QTreeWidgetItem *item = itemIn(this, hItem);
    if (item)
        item->setText(0, toQString(lpszItem));
    return item;
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const
{
    const QTreeWidgetItem *item = itemIn(this, hItem);
    return item ? item->data(0, Qt::UserRole).toULongLong() : 0;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM hItem, DWORD_PTR dwData)
{
    QTreeWidgetItem *item = itemIn(this, hItem);
    if (item)
        item->setData(0, Qt::UserRole, QVariant(static_cast<qulonglong>(dwData)));
    return item;
}

BOOL CTreeCtrl::GetItem(TVITEMW *pItem) const
{
    const QTreeWidgetItem *item = pItem ? itemIn(this, pItem->hItem) : nullptr;
    if (item) {
        fillField(pItem->pszText, pItem->cchTextMax, item->text(0));
        pItem->lParam = static_cast<LPARAM>(item->data(0, Qt::UserRole).toULongLong());
    }
    return item;
}

BOOL CTreeCtrl::Expand(HTREEITEM hItem, UINT)
{
    if (QTreeWidgetItem *item = itemIn(this, hItem))
        item->setExpanded(true);
    return boundWidget<QTreeWidget>(this) != nullptr;
}

BOOL CTreeCtrl::SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask)
{
    QTreeWidgetItem *item = itemIn(this, hItem);
    if (item && (nState & nStateMask) == TVIS_EXPANDED)
        item->setExpanded(true);
    return boundWidget<QTreeWidget>(this) != nullptr;
}

BOOL CTreeCtrl::Select(HTREEITEM hItem, UINT)
{
    return !isSmallHandle(this) && SelectItem(hItem);
}

BOOL CTreeCtrl::SelectItem(HTREEITEM hItem)
{
    auto *tree = boundWidget<QTreeWidget>(this);
    if (!tree)
        return false;
    QTreeWidgetItem *item = itemOf(hItem);
    tree->setCurrentItem(item);
    if (item)
        item->setSelected(true);
    return true;
}

CEdit *CTreeCtrl::EditLabel(HTREEITEM hItem)
{
    if (QTreeWidgetItem *item = itemIn(this, hItem)) {
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        boundWidget<QTreeWidget>(this)->editItem(item, 0);
    }
    return nullptr;
}

HTREEITEM CTreeCtrl::InsertItem(UINT, const wchar_t *, int, int, UINT, UINT, LPARAM, HTREEITEM, HTREEITEM)
{
    return nullptr;
}
HTREEITEM CTreeCtrl::InsertItem(const wchar_t *, int, int, HTREEITEM, HTREEITEM) { return nullptr; }
BOOL CTreeCtrl::SetItemImage(HTREEITEM, int, int) { return true; }
SHORT CTreeCtrl::SetItemHeight(SHORT cyHeight) { return cyHeight; }
BOOL CTreeCtrl::EnsureVisible(HTREEITEM) { return false; }
BOOL CTreeCtrl::EndEditLabelNow(BOOL) { return false; }
CImageList *CTreeCtrl::GetImageList(int) const { return nullptr; }
CImageList *CTreeCtrl::SetImageList(CImageList *, int) { return nullptr; }
CEdit *CTreeCtrl::GetEditControl() const { return nullptr; }

// ---- CHeaderCtrl ---------------------------------------------------------------------------------------

namespace {

/// The texts that GetItem() points at, by column. They go with the header widget.
class HeaderTexts : public QObject
{
public:
    static HeaderTexts *of(QHeaderView *header)
    {
        for (QObject *child : header->children()) {
            if (auto *texts = dynamic_cast<HeaderTexts *>(child))
                return texts;
        }
        return new HeaderTexts(header);
    }

    wchar_t *keep(int column, const QString &text)
    {
        std::wstring &kept = m_texts[column];
        kept = text.toStdWString();
        return kept.data();
    }

private:
    explicit HeaderTexts(QHeaderView *header) : QObject(header) {}

    std::map<int, std::wstring> m_texts;
};

/// Calls `use` with a column's header item, which the table has or its model. \return whether there is one
template<class Use>
bool useHeaderItem(const QHeaderView *header, int column, Use use)
{
    QWidget *parent = header ? header->parentWidget() : nullptr;
    if (const auto *table = qobject_cast<QTableWidget *>(parent)) {
        QTableWidgetItem *item = table->horizontalHeaderItem(column);
        if (item)
            use(item);
        return item;
    }
    const auto *view = qobject_cast<QTableView *>(parent);
    const auto *model = view ? qobject_cast<QStandardItemModel *>(view->model()) : nullptr;
    QStandardItem *item = model ? model->horizontalHeaderItem(column) : nullptr;
    if (item)
        use(item);
    return item;
}

} // namespace

CHeaderCtrl::CHeaderCtrl() = default;
CHeaderCtrl::~CHeaderCtrl() = default;

int CHeaderCtrl::GetItemCount() const
{
    const auto *header = boundWidget<QHeaderView>(this);
    return header && header->model() ? header->model()->columnCount() : 0;
}

BOOL CHeaderCtrl::GetItem(int nPos, HDITEMW *pHeaderItem) const
{
    auto *header = boundWidget<QHeaderView>(this);
    return pHeaderItem && useHeaderItem(header, nPos, [&](const auto *item) {
        pHeaderItem->pszText = HeaderTexts::of(header)->keep(nPos, item->text());
    });
}

BOOL CHeaderCtrl::SetItem(int nPos, HDITEMW *pHeaderItem)
{
    return pHeaderItem && useHeaderItem(boundWidget<QHeaderView>(this), nPos, [&](auto *item) {
        item->setText(toQString(pHeaderItem->pszText));
    });
}

// ---- CImageList ----------------------------------------------------------------------------------------

CImageList::CImageList() = default;
BOOL CImageList::Create(int, int, UINT, int, int) { return true; }
COLORREF CImageList::SetBkColor(COLORREF) { return 0; }
int CImageList::Add(CBitmap *, CBitmap *) { return 0; }
int CImageList::Add(CBitmap *, COLORREF) { return 0; }
HICON CImageList::ExtractIconW(int) { return nullptr; }
BOOL CImageList::DeleteImageList() { return false; }
