// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"

/// \file
/// CTabCtrl: the tab control.

/// A tab control, as CTabCtrl in MFC, bound to a QTabWidget: every member serves that and nothing else.
/// Unbound, or on another widget, a member does nothing and gives 0, also for the current tab. Tabs count
/// from 0.
class KX_EXPORT CTabCtrl : public CWnd
{
public:
    using CWnd::CWnd;

    /// The current tab, -1 when there is none.
    int GetCurSel() const;
    /// Makes another tab current, with the widget's signals; one that is not there changes nothing.
    /// \return the tab that was current
    int SetCurSel(int nItem);
    /// As GetCurSel().
    int GetActiveTab() const;
    /// Makes a tab current with the widget's signals quiet. \return whether the widget is a QTabWidget
    BOOL SetActiveTab(int nItem);
    int GetItemCount() const;
    /// Adds the page's widget, which becomes the tab widget's child, under the title of a string resource,
    /// with the widget's signals quiet; past the end it is appended. A page without a widget adds nothing.
    /// This is how a tab comes about; the third argument is ignored.
    void AddTab(int nIndex, int nTitleID, int nImage, CWnd *pPage);
    /// Removes a tab; its page stays. \return FALSE below 0 and above the number of tabs; TRUE for just that
    /// number, where nothing is removed
    BOOL DeleteItem(int nItem);
    /// Removes all tabs; their pages stay. \return TRUE
    BOOL DeleteAllItems();

    KX_INERT("inserts nothing and returns 0; use AddTab()")
    LONG InsertItem(int nItem, const wchar_t *lpszItem);
    KX_INERT("inserts nothing and returns 0; use AddTab()")
    LONG InsertItem(int nItem, tagTCITEMW *pTabCtrlItem);
    KX_INERT("returns FALSE; the rectangle is not written")
    BOOL GetItemRect(int nItem, tagRECT *lpRect) const;
    KX_INERT("leaves the rectangle as it is; Qt lays the pages out")
    void AdjustRect(BOOL bLarger, tagRECT *lpRect);
};
