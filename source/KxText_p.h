// SPDX-License-Identifier: MIT
#pragma once

#include "KxStdStr.h"

#include <QtCore/QString>

#include <cwchar>

/// Qt's text of a zero-terminated one; null is the empty text, and so is what says that a control is to ask.
inline QString toQString(const wchar_t *text)
{
    return text && text != LPSTR_TEXTCALLBACKW ? QString::fromWCharArray(text) : QString();
}

/// QString::toWCharArray(), faster. \return the number of characters, at most `text.size()`
std::size_t copyText(const QString &text, wchar_t *target);

/// Fills a caller's field of `count` characters with the text, as much of it as there is room for, and zeros
/// behind it: a text that fills the field has none. \return the number of characters of the text that are
/// there
int fillField(wchar_t *field, int count, const QString &text);

/// Makes `target` the text, in the memory that it has where that is enough.
void assignText(CString &target, const QString &text);

inline CString toCString(const QString &text)
{
    CString result;
    assignText(result, text);
    return result;
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
