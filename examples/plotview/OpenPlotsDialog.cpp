// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "OpenPlotsDialog.h"

#include <KxQtFileDialog.h>

std::vector<CString> COpenPlotsDialog::Ask(const CWnd &parent, const CString &strFolder)
{
    CString strTitle;
    CString strFilter;
    strTitle.LoadString(IDS_OPEN_CAPTION);
    strFilter.LoadString(IDS_OPEN_FILTER);
    // Without a slash behind it, a folder with a dot in its name counts as a file.
    const CString strInitialDir = strFolder + _T("/");
    CString strFile;

    // The parent is a widget here, though the parameter's type says otherwise.
    auto *pParent = reinterpret_cast<CWnd *>(KxWidgetFromHwnd(parent.GetSafeHwnd()));
    KxQtFileDialog dialog(TRUE, nullptr, nullptr, 0, nullptr, pParent);
    OPENFILENAMEW *pRecord = dialog.GetOFN();
    pRecord->lpstrTitle = strTitle;
    pRecord->lpstrInitialDir = strInitialDir;
    pRecord->lpstrFilter = strFilter;
    pRecord->lpstrFile = strFile.GetBuffer(0);
    pRecord->nFilterIndex = m_nFilterIndex;
    std::vector<CString> paths;
    if (dialog.DoModal() != IDOK)
        return paths;
    m_nFilterIndex = pRecord->nFilterIndex;
    for (POSITION pos = dialog.GetStartPosition(); pos;)
        paths.push_back(dialog.GetNextPathName(pos));
    return paths;
}
