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
