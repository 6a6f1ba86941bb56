// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"

/// \file
/// CComboBox: the combo box.

/// A combo box, as CComboBox in MFC, bound to a QComboBox: every member serves that and nothing else.
/// Unbound, or on another widget, a member does nothing and gives 0, null or FALSE; CB_ERR (-1) is only for
/// wrong rows and texts that are not there.
///
/// Rows count from 0. The list holds no text twice, and is never sorted. SetCurSel(), AddString(),
/// InsertString() and ResetContent() keep the widget's signals quiet; SelectString(), DeleteString() and
/// Clear() do not.
///
/// Item data stands in the row under Qt::UserRole as a `void *`.
class KX_EXPORT CComboBox : public CWnd
{
public:
    using CWnd::CWnd;
    using CWnd::Create;
    ~CComboBox() override;

    void GetWindowTextW(CString &rString) const override;
    /// Fills `lpszStringBuf` as CWnd::GetWindowTextW(), except that unbound, or on another widget, nothing is
    /// written.
    int GetWindowTextW(wchar_t *lpszStringBuf, int nMaxCount) const override;
    KX_INERT("returns TRUE; the host makes the widget")
    virtual BOOL Create(UINT dwStyle, const RECT &rect, CWnd *pParentWnd, UINT nID);

    // ---- rows

    int GetCount() const;
    /// The current row, -1 when there is none.
    int GetCurSel() const;
    /// Makes a row the current one, -1 none, and calls this object's WindowProc() with CB_SETCURSEL in place
    /// of the widget's signal. \return the row; CB_ERR when there is no such row
    int SetCurSel(int nSelect);
    /// Appends a row, unless the text is there already and not empty. \return its row
    int AddString(const wchar_t *lpszString);
    /// Inserts a row before `nIndex`, unless the text is there already and not empty; -1 and past the end
    /// append.
    /// \return where the text was or is, otherwise `nIndex` as given; another negative one inserts nothing
    int InsertString(int nIndex, const wchar_t *lpszString);
    /// Removes a row. \return `nIndex`, where MFC tells how many remain; CB_ERR when there is no such row
    int DeleteString(UINT nIndex);
    /// Removes all rows.
    void ResetContent();
    /// Removes all rows, with the widget's signals; MFC clears the edit field's selection.
    void Clear();

    // ---- searching; `nStartAfter` is ignored

    /// The first row with just this text, with regard to case; CB_ERR when there is none. MFC takes the
    /// beginning of a text, in any case, too.
    int FindString(int nStartAfter, const wchar_t *lpszString) const;
    /// As FindString().
    int FindStringExact(int nIndexStart, const wchar_t *lpszFind) const;
    /// Makes the row that FindString() finds the current one, with the widget's signals.
    /// \return the row, CB_ERR when there is none
    int SelectString(int nStartAfter, const wchar_t *lpszString);

    // ---- text and data of rows

    /// Writes the text of a row without a terminating zero: the buffer must be filled with zeros and hold one
    /// more than the text. \return the length of what stands in the buffer; 0 when there is no such row
    int GetLBText(int nIndex, wchar_t *lpszText) const;
    /// Gets the text of a row; empty when there is no such row.
    void GetLBText(int nIndex, CString &rString) const;
    /// The length of a row's text in UTF-16 units; 0 when there is no such row.
    int GetLBTextLen(int nIndex) const;
    /// \return `nIndex`; CB_ERR when there is no such row
    int SetItemDataPtr(int nIndex, void *pData);
    /// \return null when there is no such row, or no data in it
    void *GetItemDataPtr(int nIndex) const;
    /// SetItemDataPtr() with a number.
    int SetItemData(int nIndex, unsigned long dwItemData);
    /// GetItemDataPtr() as a number.
    unsigned long GetItemData(int nIndex) const;

    // ---- the list of rows

    /// Opens the list, whatever `bShowIt` says.
    void ShowDropDown(BOOL bShowIt = TRUE);
    BOOL GetDroppedState() const;

    // ---- fixed results

    KX_INERT("returns TRUE; the selection stays")
    BOOL SetEditSel(int nStartChar, int nEndChar);
    KX_INERT("returns 0")
    DWORD GetEditSel() const;
    KX_INERT("does nothing; the list scrolls by itself")
    void SetHorizontalExtent(UINT nExtent);
    KX_INERT("returns 0")
    UINT GetHorizontalExtent() const;
    KX_INERT("returns 0; the list is as wide as Qt makes it")
    int SetDroppedWidth(UINT nWidth);
    KX_INERT("returns 0")
    int GetDroppedWidth() const;
    KX_INERT("returns 0; rows are as high as Qt makes them")
    int SetItemHeight(int nIndex, UINT cyItemHeight);
};
