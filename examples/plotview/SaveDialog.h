// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

/// Asks for the file to write to. It is given the extension, whatever was typed; a file that is there is
/// replaced only when the user says so.
class CSaveDialog : public CFileDialog
{
public:
    /// \param nCaption, nFilter string resources; the filter is one of pairs, as for CFileDialog
    /// \param lpszExtension three letters
    /// \param strProposed the path that is chosen at first
    /// \param pParentWnd the window that the dialog belongs to, bound to a widget
    CSaveDialog(UINT nCaption, UINT nFilter, LPCTSTR lpszExtension, const CString &strProposed,
                CWnd *pParentWnd);

    /// \return IDOK when there is a file to write to, GetTarget()
    INT_PTR DoModal() override;
    const CString &GetTarget() const { return m_strTarget; }

private:
    CString m_strExtension;
    CString m_strTarget;
};
