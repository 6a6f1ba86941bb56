// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "SaveDialog.h"

#include "ResourceText.h"
#include "SaveTarget.h"

#include <QtWidgets/QFileDialog>

CSaveDialog::CSaveDialog(UINT nCaption, UINT nFilter, LPCTSTR lpszExtension, const CString &strProposed,
                         CWnd *pParentWnd)
    : CFileDialog(FALSE, lpszExtension, fullPath(strProposed), OFN_HIDEREADONLY,
                  toCString(resourceText(nFilter)), pParentWnd)
    , m_strExtension(lpszExtension)
{
    // Without this the dialog has no title, and asks about the name as it was typed. It is the last child.
    const QWidget *parent = KxWidgetFromHwnd(pParentWnd->GetSafeHwnd());
    QFileDialog *dialog = parent->findChildren<QFileDialog *>(QString(), Qt::FindDirectChildrenOnly).last();
    dialog->setWindowTitle(resourceText(nCaption));
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
}

INT_PTR CSaveDialog::DoModal()
{
    if (CFileDialog::DoModal() != IDOK)
        return IDCANCEL;
    m_strTarget = WithExtension(GetPathName(), m_strExtension);
    return MayReplace(m_strTarget) ? IDOK : IDCANCEL;
}
