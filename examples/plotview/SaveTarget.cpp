// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "SaveTarget.h"

#include "ResourceText.h"

#include <QRmUiPathname.h>

BOOL MayReplace(LPCTSTR lpszPathName)
{
    CFileStatus status;
    if (!CFile::GetStatus(lpszPathName, status))
        return TRUE;
    CString strQuestion;
    const CString strShown = shortenedPath(lpszPathName);
    strQuestion.Format(IDS_SUMMARY_REPLACE_FORMAT, static_cast<LPCTSTR>(strShown));
    return AfxMessageBox(strQuestion, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

CString WithExtension(const CString &strPathName, LPCTSTR lpszExtension)
{
    CString strResult = strPathName;
    CRmUiPathname path;
    if (path.Parse(strPathName) == 0 && path.ReplaceExtensionIfNoMatch(lpszExtension) == 0)
        path.GetFullPath(strResult);
    return strResult;
}
