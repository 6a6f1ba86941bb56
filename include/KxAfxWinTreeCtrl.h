// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"

class CBitmap;
class CEdit;
class CImageList;

/// \file
/// CTreeCtrl, CHeaderCtrl and CImageList.

/// A tree view, as CTreeCtrl in MFC, bound to a QTreeWidget: every member serves that and nothing else.
/// Unbound, or on another widget, a member does nothing and gives 0, null, FALSE or an empty text.
///
/// An HTREEITEM is the address of a QTreeWidgetItem of this tree; null stands for none, and so does TVI_ROOT
/// with the other TVI_ values, except where a call says otherwise. Text and item data are those of column 0;
/// item data stands there under Qt::UserRole as an `unsigned long long`.
class KX_EXPORT CTreeCtrl : public CWnd
{
public:
    CTreeCtrl();
    ~CTreeCtrl() override;

    // ---- items

    /// Appends an item with `pszText` and `lParam` of `item` to the children of `hParent`, which is null for
    /// the root: TVI_ROOT inserts nothing here. `mask` and `hInsertAfter` are not looked at. \return the new
    /// item
    HTREEITEM InsertItem(TVINSERTSTRUCTW *lpInsertStruct);
    /// Appends an item to the children of `hParent`, which is TVI_ROOT for the root: null inserts nothing
    /// here. `hInsertAfter` is ignored. \return the new item
    HTREEITEM InsertItem(const wchar_t *lpszItem, HTREEITEM hParent = TVI_ROOT,
                         HTREEITEM hInsertAfter = TVI_LAST);
    KX_INERT("inserts nothing and returns null; insert by text or record")
    HTREEITEM InsertItem(UINT nMask, const wchar_t *lpszItem, int nImage, int nSelectedImage, UINT nState,
                         UINT nStateMask, LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter);
    KX_INERT("inserts nothing and returns null; there are no images")
    HTREEITEM InsertItem(const wchar_t *lpszItem, int nImage, int nSelectedImage,
                         HTREEITEM hParent = TVI_ROOT, HTREEITEM hInsertAfter = TVI_LAST);
    /// Deletes the item and all below it. \return TRUE, also when the widget is no tree, where nothing is
    /// deleted
    BOOL DeleteItem(HTREEITEM hItem);
    /// \return whether the widget is a tree
    BOOL DeleteAllItems();
    /// The number of top-level items; MFC counts all.
    UINT GetCount() const;

    // ---- moving about; null where there is none

    /// The first top-level item.
    HTREEITEM GetRootItem() const;
    /// The current item.
    HTREEITEM GetSelectedItem() const;
    HTREEITEM GetParentItem(HTREEITEM hItem) const;
    /// The first child.
    HTREEITEM GetChildItem(HTREEITEM hItem) const;
    /// The next child of the same parent; null for a top-level item, which has none: see GetNextItem().
    HTREEITEM GetNextSiblingItem(HTREEITEM hItem) const;
    /// The previous child of the same parent; null for a top-level item.
    HTREEITEM GetPrevSiblingItem(HTREEITEM hItem) const;
    /// For TVGN_NEXT the next item on the same level, the top level too; null for every other code.
    HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const;
    /// The number of children.
    int ItemHasChildren(HTREEITEM hItem) const;

    // ---- text, data and state

    CString GetItemText(HTREEITEM hItem) const;
    /// \return whether there is an item
    BOOL SetItemText(HTREEITEM hItem, const wchar_t *lpszItem);
    DWORD_PTR GetItemData(HTREEITEM hItem) const;
    /// \return whether there is an item
    BOOL SetItemData(HTREEITEM hItem, DWORD_PTR dwData);
    /// Gets text and `lParam` of `hItem`: fills the `cchTextMax` characters at `pszText` with the text and
    /// zeros; a text as long or longer leaves no zero. `mask` is not looked at: `pszText` must be valid or
    /// null.
    /// \return whether there is an item
    BOOL GetItem(TVITEMW *pItem) const;
    /// Expands the item, whatever the code says. \return TRUE
    BOOL Expand(HTREEITEM hItem, UINT nCode);
    /// Expands the item when `nState & nStateMask` is just TVIS_EXPANDED. \return TRUE
    BOOL SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask);
    /// Makes the item current and selects it, whatever the code says. \return TRUE
    BOOL Select(HTREEITEM hItem, UINT nCode);
    /// Makes the item current and selects it. \return TRUE
    BOOL SelectItem(HTREEITEM hItem);
    /// Lets the user edit the item's text. \return null always
    CEdit *EditLabel(HTREEITEM hItem);

    // ---- fixed results

    KX_INERT("returns TRUE; there are no images")
    BOOL SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage);
    KX_INERT("returns its argument; items are as high as Qt makes them")
    SHORT SetItemHeight(SHORT cyHeight);
    KX_INERT("returns FALSE; nothing is scrolled")
    BOOL EnsureVisible(HTREEITEM hItem);
    KX_INERT("returns FALSE; Qt ends the editing")
    BOOL EndEditLabelNow(BOOL fCancelWithoutSave);
    KX_INERT("returns null; there are no image lists")
    CImageList *GetImageList(int nImageListType) const;
    KX_INERT("returns null; there are no image lists")
    CImageList *SetImageList(CImageList *pImageList, int nImageListType);
    KX_INERT("returns null; Qt's editor has no window object")
    CEdit *GetEditControl() const;
};

/// A column header, as CHeaderCtrl in MFC, bound to a QHeaderView: the horizontal one of a table, which
/// CListCtrl::GetHeaderCtrl() gives. Texts are served for a QTableWidget and for a QTableView over a
/// QStandardItemModel. Unbound, or elsewhere, a member does nothing and gives 0 or FALSE.
class KX_EXPORT CHeaderCtrl : public CWnd
{
public:
    CHeaderCtrl();
    ~CHeaderCtrl() override;

    /// The number of columns.
    int GetItemCount() const;
    /// Points `pszText` at the text of a column, where MFC fills a buffer of the caller's: it lives as long
    /// as the header widget, or until the text of the column is got again. `mask` is not looked at, nothing
    /// else is filled. \return whether the column has a text
    BOOL GetItem(int nPos, HDITEMW *pHeaderItem) const;
    /// Sets the text of a column that has one. `mask` is not looked at. \return whether it has one
    BOOL SetItem(int nPos, HDITEMW *pHeaderItem);
};

/// An image list as an interface only, CImageList in MFC: no image is kept. It is a window object here.
class KX_EXPORT CImageList : public CWnd
{
public:
    using CWnd::Create;

    CImageList();

    KX_INERT("returns TRUE; no image is kept")
    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
    KX_INERT("returns 0; no image is kept")
    COLORREF SetBkColor(COLORREF cr);
    KX_INERT("returns 0; no image is kept")
    int Add(CBitmap *pbmImage, CBitmap *pbmMask);
    KX_INERT("returns 0; no image is kept")
    int Add(CBitmap *pbmImage, COLORREF crMask);
    KX_INERT("returns null; no image is kept")
    HICON ExtractIconW(int nImage);
    KX_INERT("returns FALSE; no image is kept")
    BOOL DeleteImageList();
};
