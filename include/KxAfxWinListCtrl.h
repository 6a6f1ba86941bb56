// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"

#include <QtCore/QList>

class CEdit;
class CHeaderCtrl;
class CImageList;

/// \file
/// CListCtrl: the list view, on three kinds of item views.

/// What a POSITION of CListCtrl points at when the widget is a QTableView. Made by
/// GetFirstSelectedItemPosition(), freed by GetNextSelectedItem() behind the last row.
struct LIST_POSITION
{
    int row;            ///< The next row to be told.
    QList<int> visited; ///< The rows told so far.
};

/// A list view, as CListCtrl in MFC. Bind it to
///
/// - a QListWidget ("list"): rows of one column,
/// - a QTableWidget ("table"): rows and columns, or
/// - another QTableView ("view"): rows and columns of a model. Inserting, counting and removing all rows, and
///   inserting columns, want a QStandardItemModel.
///
/// Rows and columns count from 0; column 0 is the item, the others are its subitems.
///
/// | Served on                                        | list | table | view |
/// |--------------------------------------------------|------|-------|------|
/// | `InsertItem(int, text)`                          | yes  | yes   | yes  |
/// | `InsertItem(int, text, image)`                   | yes  | yes   |      |
/// | `InsertItem(const LVITEMW *)`, `SetItem`, `GetItem` |   | yes   |      |
/// | `DeleteItem`, `DeleteAllItems`, `GetItemCount`   | yes  | yes   | yes  |
/// | `GetItemText`                                    | yes  | yes   |      |
/// | `SetItemText`                                    |      | yes   |      |
/// | `SetItemData`, `GetItemData`                     | yes  | yes   | yes  |
/// | `SetItemState`, `GetItemState`, `GetSelectedCount` | yes | yes  | yes  |
/// | `GetSelectionMark`                               | yes  |       |      |
/// | `GetNextItem`                                    | yes  | yes   |      |
/// | `GetFirstSelectedItemPosition`, `GetNextSelectedItem` | | yes   | yes  |
/// | `EditLabel`                                      | yes  |       | yes  |
/// | `InsertColumn(int, const LVCOLUMNW *)`           |      | yes   |      |
/// | `InsertColumn(int, text, ...)`                   |      | yes   | yes  |
/// | `DeleteColumn`, `GetHeaderCtrl`                  |      | yes   | yes  |
///
/// On another kind of widget a member does nothing and fails: -1 for a row, 0, FALSE or null for the rest. An
/// unbound object gives 0, FALSE or null, and so do the members that would give -1. The widget's signals go
/// out where it is not said that they are quiet. LPSTR_TEXTCALLBACK is the empty text.
///
/// Selected is the state bit 1, which Win32 calls LVIS_FOCUSED; LVIS_SELECTED alone does nothing.
///
/// Item data of a row stands in column 0 under Qt::UserRole, as an `unsigned long long`.
class KX_EXPORT CListCtrl : public CWnd
{
public:
    CListCtrl();
    ~CListCtrl() override;

    // ---- rows

    /// Inserts a row before `nItem`. Past the end a list appends; a table and a view insert nothing then. In
    /// a table the text goes into every column of the row, in a view it is not set.
    /// \return `nItem` as given, also when it is negative, which inserts nothing; -1 on a model that is no
    /// QStandardItemModel
    int InsertItem(int nItem, const wchar_t *lpszItem);
    /// The same, but in a table the text goes into column 0 only. The image is ignored.
    int InsertItem(int nItem, const wchar_t *lpszItem, int nImage);
    /// Inserts a row before `iItem`, at the end when that is beyond it, and puts `pszText` and `lParam` into
    /// the cell of `iSubItem`. `mask` is not looked at. \return the row
    int InsertItem(const LVITEMW *pItem);
    /// \return whether there was such a row
    BOOL DeleteItem(int nItem);
    /// Removes all rows; a list or table emits no signal of its own. \return whether the widget is of a kind
    /// that is served
    BOOL DeleteAllItems();
    int GetItemCount() const;

    // ---- text, data and state

    /// The text of a cell; empty when it is not there. A list has one column only, whatever `nSubItem` says.
    CString GetItemText(int nItem, int nSubItem) const;
    /// Puts a new cell with the text in place of the old one, whose item data is lost.
    /// \return whether there is such a cell
    BOOL SetItemText(int nItem, int nSubItem, const wchar_t *lpszText);
    /// \return whether there is such a row, with a cell in column 0
    BOOL SetItemData(int nItem, DWORD_PTR dwData);
    /// \return 0 for a row without data
    DWORD_PTR GetItemData(int nItem) const;
    /// Sets text and item data of the cell (`iItem`, `iSubItem`). `mask` is not looked at, so that `pszText`
    /// must be valid or null.
    /// \return TRUE on a table, whether or not it has such a cell
    BOOL SetItem(const LVITEMW *pItem);
    /// The same; a `nState` of just 1 makes the cell the current one and selects it first.
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, const wchar_t *lpszItem, int nImage, UINT nState,
                 UINT nStateMask, LPARAM lParam);
    /// Gets `lParam` of the cell (`iItem`, `iSubItem`), and that only when `mask` has LVIF_PARAM; nothing
    /// else is filled. \return whether it was got
    BOOL GetItem(LVITEMW *pItem) const;
    /// Makes the row current, when `nState` has bit 1, or in a view selects it, when `nMask` has bit 1.
    /// Nothing is ever deselected; a row past the end clears the current one. \return whether the widget is
    /// of a kind that is served
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    /// \return 1 when `nMask` has bit 1 and the row is selected, otherwise 0
    UINT GetItemState(int nItem, UINT nMask) const;
    /// The current row of a list, otherwise -1.
    int GetSelectionMark() const;
    /// The current row for a `nFlags` of just LVNI_FOCUSED or LVNI_SELECTED, but -1 in a table when it is
    /// `nItem`, so that a loop ends behind it. Otherwise -1. On a list, and on an unbound object, such a loop
    /// would not end: ask once.
    int GetNextItem(int nItem, int nFlags) const;
    /// The number of selected rows.
    UINT GetSelectedCount() const;
    /// Where GetNextSelectedItem() begins; null when nothing is selected. In a table it is an item and ends
    /// with it; in a view go on to the end, which frees it, and insert or delete no rows meanwhile.
    POSITION GetFirstSelectedItemPosition() const;
    /// A selected row; `pos` moves to the next one, null behind the last. \return -1 for a null position
    int GetNextSelectedItem(POSITION &pos) const;
    /// Lets the user edit a row's text, in a view the cell of column 1. \return null always
    CEdit *EditLabel(int nItem);

    // ---- columns

    /// Inserts a column headed `pszText`; past the end nothing. \return `nCol`, also where it is not served;
    /// -1 when it is negative
    int InsertColumn(int nCol, const LVCOLUMNW *pColumn);
    /// Inserts a column with that heading; a column that has a heading already only gets the new one. Format,
    /// width and subitem are ignored. Past the end a table inserts nothing, a model grows up to the column.
    /// \return `nCol`, also where it is not served
    int InsertColumn(int nCol, const wchar_t *lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    /// \return whether there was such a column
    BOOL DeleteColumn(int nCol);
    /// A new object for the horizontal header at each call, owned by the caller, where in MFC the list owns
    /// it. The one before loses its widget: use one at a time, and delete it before the list's widget goes.
    CHeaderCtrl *GetHeaderCtrl() const;

    // ---- fixed results

    KX_INERT("returns null; there are no image lists")
    CImageList *SetImageList(CImageList *pImageList, int nImageListType);
    KX_INERT("returns 0; there are no extended styles")
    DWORD GetExtendedStyle() const;
    KX_INERT("returns 0; there are no extended styles")
    DWORD SetExtendedStyle(DWORD dwNewStyle);
    KX_INERT("returns TRUE; the rectangle is not written")
    BOOL GetItemRect(int nItem, RECT *lpRect, UINT nCode) const;
    KX_INERT("returns TRUE; the rectangle is not written")
    BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect &ref) const;
    KX_INERT("returns TRUE; nothing is scrolled")
    BOOL EnsureVisible(int nItem, BOOL bPartialOK);
    KX_INERT("sets nothing; the mark is the current row")
    void SetSelectionMark(int iIndex);
    KX_INERT("returns FALSE; nothing is sorted")
    BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData);
    KX_INERT("returns TRUE; widths are the header's own")
    BOOL SetColumnWidth(int nCol, int cx);
    KX_INERT("returns FALSE; nothing is written")
    BOOL GetColumn(int nCol, LVCOLUMNW *pColumn) const;

private:
    char *m_reserved; // a byte that nothing reads; it belongs to the object's layout
};
