// SPDX-License-Identifier: MIT
#include "ResourceText.h"

QString resourceText(UINT id)
{
    CString text;
    text.LoadString(id);
    return toQString(text);
}

QString toQString(LPCTSTR text)
{
    return QString::fromWCharArray(text);
}

CString toCString(const QString &text)
{
    return CString(text.toStdWString());
}

CString shortenedPath(const CString &path, int longest)
{
    if (path.GetLength() <= longest)
        return path;
    return _T("\u2026") + path.Right(longest);
}
