// SPDX-License-Identifier: MIT
#pragma once

#include "KxStdStr.h"

#include <QtCore/QString>

#include <cwchar>

/// Qt's text of a zero-terminated one; null is the empty text.
inline QString toQString(const wchar_t *text)
{
    return text ? QString::fromWCharArray(text) : QString();
}

inline CString toCString(const QString &text)
{
    return CString(text.toStdWString());
}

/// Fills a caller's buffer as the text calls of Windows' surface do: at most `count` - 1 characters, zeros
/// behind them up to the end. \return the length of what stands in the buffer
inline int fillBuffer(wchar_t *buffer, int count, const wchar_t *text)
{
    if (!buffer || count < 1)
        return 0;
    std::wcsncpy(buffer, text, static_cast<std::size_t>(count - 1));
    buffer[count - 1] = 0;
    return sslen(buffer);
}
