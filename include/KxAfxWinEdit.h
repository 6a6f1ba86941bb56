// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"

/// \file
/// CEdit: the edit control.

/// An edit control, as CEdit in MFC.
///
/// | Served on        | QLineEdit | QTextEdit | QSpinBox, QDoubleSpinBox | another QAbstractSpinBox |
/// |------------------|-----------|-----------|--------------------------|--------------------------|
/// | `SetWindowTextW` | yes       | yes       | yes                      |                          |
/// | `GetWindowTextW` | yes       |           | yes                      | yes                      |
/// | `SetReadOnly`    | yes       | yes       |                          |                          |
/// | `SetLimitText`, `GetLine` | yes |        |                          |                          |
///
/// Unbound, or elsewhere, a member does nothing and gives 0 or FALSE.
class KX_EXPORT CEdit : public CWnd
{
public:
    using CWnd::CWnd;
    ~CEdit() override;

    /// Sets the text; of a spin box the number that it reads, in the C locale, with the box's signals quiet:
    /// no number is 0. Null does nothing.
    void SetWindowTextW(const wchar_t *lpszString) override;
    /// Gets the text, of a spin box with prefix and suffix. Of a QTextEdit nothing is got, and `rString`
    /// stays.
    void GetWindowTextW(CString &rString) const override;
    /// Fills `lpszStringBuf` as CWnd::GetWindowTextW(), except that unbound nothing is written.
    int GetWindowTextW(wchar_t *lpszStringBuf, int nMaxCount) const override;
    /// As CWnd::GetWindowTextLengthW().
    int GetWindowTextLengthW() const;

    /// \return whether it could be set
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    /// The longest text that can be typed, in UTF-16 units.
    void SetLimitText(UINT nMax);
    /// Fills the `nMaxLength` characters at `lpszBuffer` with the text and zeros; a text as long or longer
    /// leaves no zero. `nIndex` is ignored. \return the number of characters of the text that are there
    int GetLine(int nIndex, wchar_t *lpszBuffer, int nMaxLength) const;

    // ---- fixed results

    KX_INERT("selects nothing")
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE);
    KX_INERT("selects nothing")
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    KX_INERT("returns 0")
    DWORD GetSel() const;
    KX_INERT("writes nothing")
    void GetSel(int &nStartChar, int &nEndChar) const;
    KX_INERT("replaces nothing")
    void ReplaceSel(const wchar_t *lpszNewText, BOOL bCanUndo = FALSE);
    KX_INERT("returns TRUE, whatever was typed")
    BOOL GetModify() const;
    KX_INERT("sets nothing")
    void SetModify(BOOL bModified = TRUE);
    KX_INERT("returns TRUE and undoes nothing")
    BOOL Undo();
    KX_INERT("does nothing")
    void Clear();
    KX_INERT("does nothing")
    void Copy();
    KX_INERT("does nothing")
    void Cut();
    KX_INERT("does nothing")
    void Paste();
};
