// SPDX-License-Identifier: MIT
#include "ResourceText.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

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

CString fullPath(LPCTSTR path)
{
    return toCString(QDir::cleanPath(QFileInfo(toQString(path)).absoluteFilePath()));
}

CString shortenedPath(const CString &path, int longest)
{
    if (path.GetLength() <= longest)
        return path;
    return _T("\u2026") + path.Right(longest);
}
