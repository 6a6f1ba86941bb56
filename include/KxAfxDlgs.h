// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfx.h"
#include "KxExport.h"
#include "KxStdStr.h"

class CFileDialogImpl;
class CWnd;

/// A dialog that asks for one file; CFileDialog of MFC, without the record m_ofn. Where the desktop has a file dialog
/// of its own, that is what appears. KxQtFileDialog has the record and takes several files.
///
/// \code
/// CFileDialog dialog(TRUE, L".plt", nullptr, OFN_HIDEREADONLY, L"Plots (*.plt)|*.plt|All (*.*)|*.*||");
/// if (dialog.DoModal() == IDOK)
///     Open(dialog.GetPathName());
/// \endcode
class KX_EXPORT CFileDialog : public CObject
{
public:
    /// Makes the dialog, not yet shown. All texts may be null.
    ///
    /// \param lpszDefExt what a name without an extension gets: its last three characters, so that ".dwg" is "dwg"
    /// and a longer one loses its first letters
    /// \param lpszFileName the file that is selected at first
    /// \param lpszFilter pairs of description and patterns, all parted by `|`. The patterns are dropped: the
    /// description has to carry them in parentheses, as QFileDialog reads them
    /// \param pParentWnd the window that the dialog belongs to; when its widget dies, so does the dialog
    /// \param dwFlags, dwSize, bVistaStyle are ignored
    explicit CFileDialog(BOOL bOpenFileDialog, const wchar_t *lpszDefExt = nullptr,
                         const wchar_t *lpszFileName = nullptr,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                         const wchar_t *lpszFilter = nullptr, CWnd *pParentWnd = nullptr, DWORD dwSize = 0,
                         BOOL bVistaStyle = TRUE);
    virtual ~CFileDialog();
    CFileDialog(const CFileDialog &) = delete;
    CFileDialog &operator=(const CFileDialog &) = delete;

    /// Runs the dialog. \return 1 (IDOK) when accepted; 0 when rejected, where MFC gives IDCANCEL
    virtual INT_PTR DoModal();

    /// The whole path of the selected file, the first if there are several; where nothing is selected, QFileDialog
    /// gives the directory. A dialog to open takes a name that does not exist too.
    CString GetPathName() const;
    KX_INERT("returns an empty text; take the name from GetPathName()")
    CString GetFileName() const;

protected:
    CFileDialogImpl *m_impl; ///< A QFileDialog; owned, null when its parent widget took it along.
};
