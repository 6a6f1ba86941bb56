// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Functions on wide text and memory that Microsoft's C library has beyond the standard's.

#include "KxPlatformExport.h"

#include <cstddef>
#include <cwchar>

/// Reads the number that leads a text: blanks, a sign, decimal digits; whatever follows is not looked at.
/// Blanks are what QChar::isSpace() calls so; digits are 0 to 9. The locale plays no part.
/// \return the number; 0 when none leads the text and for null (errno is EINVAL then); INT_MAX or INT_MIN
/// with errno ERANGE when it is out of range
KX_PLATFORM_EXPORT int _wtoi(const wchar_t *text);

/// As _wtoi() for a `long`, which has 64 bits here: LONG_MAX and LONG_MIN of the C library are its limits.
KX_PLATFORM_EXPORT long _wtol(const wchar_t *text);

/// As _wtoi() for a floating-point number: digits with a decimal point anywhere among them, then `e` or `E`
/// with a sign and digits. The decimal point is a point in every locale. There are no hexadecimal numbers,
/// infinities or NaNs. Out of range gives HUGE_VAL with the number's sign, or the nearest tiny number or 0,
/// and errno ERANGE.
KX_PLATFORM_EXPORT double _wtof(const wchar_t *text);

/// The next character's place; null for null. The caller sees to it that `current` is not at the end.
KX_PLATFORM_EXPORT wchar_t *_wcsinc(const wchar_t *current);

/// The character at `text` as a number; 0 at the end and for null.
KX_PLATFORM_EXPORT unsigned int _wcsnextc(const wchar_t *text);

/// Formats without a limit: the caller guarantees room. The format is the C library's, in which `%s` takes
/// narrow text and `%ls` wide text, as CString::Format does; Microsoft's takes wide text for both.
/// \return characters written without the terminating zero; -1 when an argument cannot be converted, and then
/// the buffer holds the empty text, and for null arguments
KX_PLATFORM_EXPORT int swprintf(wchar_t *buffer, const wchar_t *format, ...);

/// Copies `count` bytes into a block of `size` bytes. The blocks may overlap.
/// \return 0; EINVAL for a null target or, with the target zeroed, a null source; ERANGE, with the target
/// zeroed, when `count` exceeds `size`. errno is set too. A `count` of 0 always succeeds and does nothing.
KX_PLATFORM_EXPORT int memcpy_s(void *target, std::size_t size, const void *source, std::size_t count);
