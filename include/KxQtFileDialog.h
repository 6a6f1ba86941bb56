// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxStdStr.h"

#include <QtCore/QStringList>

class CWnd;
class QFileDialog;
class QWidget;

/// What the QFileDialog of a KxQtFileDialog is made with.
class KxQFileDialogArgs
{
public:
    QWidget *parent = nullptr; ///< Not owned.
    QString caption;
    QString directory;
    QString filter;
};

/// What is set on the QFileDialog of a KxQtFileDialog.
class KxQFileDialgAttri
{
public:
    int acceptMode = 0;          ///< A QFileDialog::AcceptMode.
    QString defaultSuffix;       ///< Kept, not set.
    QString fileName;            ///< Kept, not set.
    QString selectFile;
    int fileMode = 0;            ///< A QFileDialog::FileMode.
    unsigned int options = ~0u;  ///< Kept, not set.
    QString filterText;
    QStringList nameFilters;
    QString selectedFilter;
};

/// A dialog that asks for files, in the terms of Win32's record OPENFILENAMEW: fill GetOFN(), call DoModal(), ask for
/// the result. The result of the last accepted run stays until the next one. It is Qt's own dialog on every desktop.
///
/// Of the record, DoModal() reads five fields, of which null stands for an empty text:
///
/// - `lpstrTitle`: the title;
/// - `lpstrInitialDir`: the directory, with `/` or `\`; when the part behind the last of them has a dot, it is a
///   file's name and is dropped: end a directory whose name has a dot with a slash. A name without a slash stays.
///   Empty is the root of the file system: give one;
/// - `lpstrFilter`: filters as Qt writes them, `Drawing (*.dwg);;All (*.*)`, not Win32's pairs with zeros between
///   them. A dialog to open shows the part in the first parentheses only, `*.dwg`;
/// - `lpstrFile`: the name that is selected at first; in a dialog to save, Qt gives it the extension of the active
///   filter. Nothing is written there;
/// - `nFilterIndex`: which filter is active, from 1; for 0 and beyond the last it is the first. It gets the number
///   of the filter that was active in the end, 0 when the dialog shows it otherwise than it was written (Qt takes
///   needless blanks out).
///
/// \code
/// KxQtFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, nullptr, 0, FALSE);
/// dialog.GetOFN()->lpstrInitialDir = L"/home/plots/";
/// dialog.GetOFN()->lpstrFilter = L"Slides (*.svf);;All (*.*)";
/// if (dialog.DoModal() == IDOK) {
///     POSITION pos = dialog.GetStartPosition();
///     while (pos)
///         Open(dialog.GetNextPathName(pos));
/// }
/// \endcode
///
/// Its labels are the texts "File Format:" and "Cancel ", with the blank, translated in the context
/// "KxQtFileDialog".
class KX_EXPORT KxQtFileDialog
{
public:
    /// `bOpenFileDialog`: whether to open one or more existing files or to save one. `pParentWnd` is not a window
    /// object but the address of a QWidget that outlives every DoModal(), or null. The other arguments change nothing;
    /// the record says it all.
    explicit KxQtFileDialog(BOOL bOpenFileDialog, const wchar_t *lpszDefExt = nullptr,
                            const wchar_t *lpszFileName = nullptr,
                            DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                            const wchar_t *lpszFilter = nullptr, CWnd *pParentWnd = nullptr, DWORD dwSize = 0,
                            BOOL bVistaStyle = TRUE);
    ~KxQtFileDialog();
    KxQtFileDialog(const KxQtFileDialog &) = delete;
    KxQtFileDialog &operator=(const KxQtFileDialog &) = delete;

    /// Lets the record point at an empty text (filter, directory, title, extension, template) or at none (file, file
    /// title, custom filter), and makes its filter index 0. The other fields stay.
    void initOpenFileName();
    /// The record, to be filled before DoModal(). Belongs to this object.
    OPENFILENAMEW *GetOFN() { return &m_ofn; }

    /// Runs the dialog, which is modal for the application.
    /// \return 1 (IDOK) when files were chosen, otherwise 2 (IDCANCEL)
    INT_PTR DoModal();

    /// Where GetNextPathName() starts; null when nothing was chosen.
    POSITION GetStartPosition() const;
    /// The path of one chosen file after the other. Moves `pos` on, which is null behind the last. For a position that
    /// is none an empty text, and null in `pos`; where nothing was chosen, `pos` stays.
    ///
    /// While a filter of bare `*.svf` or `*.scr` was active, a name without that extension gets it, here and in
    /// GetPathName(); so does one that was opened, which may not exist then. Other filters do nothing of the kind,
    /// not `Slides (*.svf)` of a dialog to save either.
    CString GetNextPathName(POSITION &pos) const;
    /// Fills what the next three give, and `nFilterIndex`; DoModal() does it. The name is spelled so.
    void PraseFileInfo();
    /// The whole path of the first chosen file.
    CString GetPathName() const { return m_strPathName; }
    /// Its name with the extension.
    CString GetFileName() const { return m_strFileName; }
    /// Its extension without the dot.
    CString GetFileExt() const { return m_strFileExt; }

protected:
    QStringList m_unused;
    QFileDialog *m_dialog;      ///< Of the last run; owned, null before it.
    KxQFileDialogArgs m_args;
    KxQFileDialgAttri m_attri;
    CString m_strPathName;
    CString m_strFileName;
    CString m_strFileExt;
    LONGLONG m_nSelCount;       ///< The chosen files, of which m_selectedFiles has the paths.
    QStringList m_selectedFiles;
    QString m_selectedNameFilter;
    OPENFILENAMEW m_ofn;

private:
    void readRecord();
    void makeDialog();
    QString completed(const QString &file) const;
};
