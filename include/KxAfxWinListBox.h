// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"

/// \file
/// CListBox: the list box.

/// A list box, as CListBox in MFC, bound to a QListWidget: every member serves that and nothing else.
/// Unbound, or on another widget, a member does nothing and gives 0 or null, not LB_ERR (-1), which is only
/// for wrong rows and texts that are not there.
///
/// Rows count from 0; the list is never sorted by this class. The widget's signals are not kept quiet.
///
/// Item data stands in the row under Qt::UserRole, a number as `unsigned long long` and a pointer as `void
/// *`: they share the place, and one is not read as the other (0 and null).
class KX_EXPORT CListBox : public CWnd
{
public:
    using CWnd::CWnd;

    int GetCount() const;
    /// The current row, -1 when there is none.
    int GetCurSel() const;
    /// Makes a row current. \return the row; LB_ERR when there is no such row, -1 too, and the current one
    /// stays
    int SetCurSel(int nSelect);
    /// Gets the text of a row; empty when there is no such row.
    void GetText(int nIndex, CString &rString) const;
    KX_INERT("returns 0; ask GetText() for the text")
    int GetTextLen(int nIndex) const;
    /// Appends a row, with every run of white space in the text made one blank and none at its ends.
    /// \return its row
    int AddString(const wchar_t *lpszItem);
    /// Inserts a row with the text as it is; below 0, -1 too, at the top, past the end at the end. \return
    /// `nIndex` as given
    int InsertString(int nIndex, const wchar_t *lpszItem);
    /// Takes a row out. Its QListWidgetItem is not deleted: take it with QListWidget::item() before and
    /// delete it, or it stays for good.
    /// \return `nIndex`, where MFC tells how many remain
    int DeleteString(UINT nIndex);
    void ResetContent();

    /// The first row with this text in any case, LB_ERR when there is none. `nStartAfter` is ignored, and MFC
    /// takes the beginning of a text too.
    int FindString(int nStartAfter, const wchar_t *lpszItem) const;
    /// The row that FindString() finds when it lies behind `nIndexStart`, otherwise LB_ERR, also when the
    /// text stands further down once more.
    int FindStringExact(int nIndexStart, const wchar_t *lpszFind) const;
    /// Makes the last row with this text current, with regard to case and not to blanks at the ends.
    /// `nStartAfter` is ignored. \return 0, found or not
    int SelectString(int nStartAfter, const wchar_t *lpszItem);

    /// \return `nIndex`, whether or not there is such a row
    int SetItemData(int nIndex, unsigned long dwItemData);
    unsigned long GetItemData(int nIndex) const;
    /// \return `nIndex`, whether or not there is such a row
    int SetItemDataPtr(int nIndex, void *pData);
    void *GetItemDataPtr(int nIndex) const;

    /// \return 0; LB_ERR when there is no such row: -1 does not stand for all
    int SetSel(int nIndex, BOOL bSelect = TRUE);
    /// \return 1 when the row is selected, 0 when not; LB_ERR when there is no such row
    int GetSel(int nIndex) const;
    /// The number of selected rows.
    int GetSelCount() const;
    KX_INERT("returns 0 and writes nothing; ask GetSel() for each row")
    int GetSelItems(int nMaxItems, int *rgIndex) const;
};
