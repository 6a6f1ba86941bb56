// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Text functions of Microsoft's C library that the standard's does not have, under their own names. What
/// Microsoft answers with its invalid-parameter handler, which ends the program, is answered here with the
/// documented error value, and errno says the same.
///
/// Sizes and counts are characters (32 bits in wide text), with the terminating zero where the text says
/// size.
///
/// Formats are the C library's, in which `%s`, `%c` and `%[` mean narrow text and `%ls`, `%lc` and `%l[` wide
/// text, as in CString::Format; Microsoft's take wide text for both. There is no `%I64`: `%ll` serves.

#include "KxPlatformExport.h"
#include "KxWinString.h"

#include <climits>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cwchar>

using errno_t = int;

/// As a count: as much as there is room for.
#define _TRUNCATE (static_cast<std::size_t>(-1))

/// The result of a copy that _TRUNCATE has cut off.
#define STRUNCATE 80

/// What a comparison answers for null.
#define _NLSCMPERROR INT_MAX

// ---- comparing and copying ------------------------------------------------------------------------------

/// Compares without regard to case, as the C library's locale knows it.
/// \return less than, equal to or greater than 0; _NLSCMPERROR, with errno EINVAL, when a text is null
KX_PLATFORM_EXPORT int _wcsicmp(const wchar_t *first, const wchar_t *second);
KX_PLATFORM_EXPORT int _stricmp(const char *first, const char *second);

/// The same for the first `count` characters.
KX_PLATFORM_EXPORT int _wcsnicmp(const wchar_t *first, const wchar_t *second, std::size_t count);
KX_PLATFORM_EXPORT int _strnicmp(const char *first, const char *second, std::size_t count);

/// A copy that the caller frees with free(); null for null.
KX_PLATFORM_EXPORT wchar_t *_wcsdup(const wchar_t *text);

/// Copies the whole text or none of it. The blocks must not overlap.
/// \return 0; EINVAL for a null target or, with an empty text in the target, a null source; ERANGE, with an
/// empty text in the target, when `size` is too small. A size of 0 writes nothing.
KX_PLATFORM_EXPORT errno_t wcscpy_s(wchar_t *target, std::size_t size, const wchar_t *source);

/// Copies at most `count` characters and adds the terminating zero; `count` _TRUNCATE copies as much as there
/// is room for.
/// \return as wcscpy_s(), except that a size of 0 is EINVAL, and STRUNCATE when _TRUNCATE has cut off text
KX_PLATFORM_EXPORT errno_t wcsncpy_s(wchar_t *target, std::size_t size, const wchar_t *source,
                                     std::size_t count);

/// Appends the whole text; results as wcscpy_s(). A target without a zero in its first `size` characters is
/// EINVAL and stays as it is.
KX_PLATFORM_EXPORT errno_t wcscat_s(wchar_t *target, std::size_t size, const wchar_t *source);

// ---- formatting and reading -----------------------------------------------------------------------------

/// Formats the whole text or none of it.
/// \return characters written without the zero; -1 for null (errno EINVAL), a size of 0 (EINVAL), a text that
/// does not fit (ERANGE) and an argument that cannot be converted (EILSEQ), with an empty text in the buffer
/// where there is one
KX_PLATFORM_EXPORT int swprintf_s(wchar_t *buffer, std::size_t size, const wchar_t *format, ...);
KX_PLATFORM_EXPORT int vswprintf_s(wchar_t *buffer, std::size_t size, const wchar_t *format,
                                   va_list arguments);

/// Formats into at most `count` characters. A text of exactly `count` characters, and the beginning of a
/// longer one, is left without a terminating zero.
/// \return characters written without the zero; -1 when the text was cut off, for null (errno EINVAL) and for
/// an argument that cannot be converted (EILSEQ). A null buffer with a count of 0 asks for the length.
KX_PLATFORM_EXPORT int _snwprintf(wchar_t *buffer, std::size_t count, const wchar_t *format, ...);
KX_PLATFORM_EXPORT int _vsnwprintf(wchar_t *buffer, std::size_t count, const wchar_t *format,
                                   va_list arguments);

/// Formats at most `count` characters into a buffer of `size`, always with a terminating zero; `count`
/// _TRUNCATE writes as much as there is room for.
/// \return characters written without the zero; -1 when `count` has cut off text; -1 and an empty text in the
/// buffer when it was the size (errno ERANGE), and otherwise as swprintf_s(). Nothing to write to, a null
/// buffer with both numbers 0, is 0.
KX_PLATFORM_EXPORT int _snwprintf_s(wchar_t *buffer, std::size_t size, std::size_t count,
                                    const wchar_t *format, ...);
KX_PLATFORM_EXPORT int _vsnwprintf_s(wchar_t *buffer, std::size_t size, std::size_t count,
                                     const wchar_t *format, va_list arguments);

/// As swscanf(), except that each `%s`, `%c` and `%[`, of either width, is followed by two arguments: the
/// buffer, and its size as an `unsigned int`. A text that does not fit with its zero (`%c` has none) ends the
/// reading, and the buffer holds an empty text. `%m` and numbered arguments are not served and end the
/// reading too.
/// \return how many values were stored; EOF when `text` ends before the first, and for null (errno EINVAL)
KX_PLATFORM_EXPORT int swscanf_s(const wchar_t *text, const wchar_t *format, ...);

// ---- files ----------------------------------------------------------------------------------------------

/// Opens a file whose name becomes bytes as in KxWinFile.h. The mode is that of fopen(); of Microsoft's
/// additions `N` (not for child processes) is heeded, `t`, `c`, `n`, `S`, `R`, `T` and `D` have no effect,
/// and `ccs=` fails.
/// \return null on failure, with the reason in errno: EINVAL when the name is no name or the mode no mode,
/// EACCES for a directory
KX_PLATFORM_EXPORT std::FILE *_wfopen(const wchar_t *name, const wchar_t *mode);

/// The same with the file in `*file`, null on failure. \return 0 or the value of errno
KX_PLATFORM_EXPORT errno_t _wfopen_s(std::FILE **file, const wchar_t *name, const wchar_t *mode);

// ---- the forms that know the size of an array -----------------------------------------------------------

template<std::size_t Size>
errno_t wcscpy_s(wchar_t (&target)[Size], const wchar_t *source)
{
    return wcscpy_s(target, Size, source);
}

template<std::size_t Size>
errno_t wcsncpy_s(wchar_t (&target)[Size], const wchar_t *source, std::size_t count)
{
    return wcsncpy_s(target, Size, source, count);
}

template<std::size_t Size>
errno_t wcscat_s(wchar_t (&target)[Size], const wchar_t *source)
{
    return wcscat_s(target, Size, source);
}

template<std::size_t Size>
int vswprintf_s(wchar_t (&buffer)[Size], const wchar_t *format, va_list arguments)
{
    return vswprintf_s(buffer, Size, format, arguments);
}

template<std::size_t Size>
int swprintf_s(wchar_t (&buffer)[Size], const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = vswprintf_s(buffer, Size, format, arguments);
    va_end(arguments);
    return length;
}

template<std::size_t Size>
int _vsnwprintf_s(wchar_t (&buffer)[Size], std::size_t count, const wchar_t *format, va_list arguments)
{
    return _vsnwprintf_s(buffer, Size, count, format, arguments);
}

template<std::size_t Size>
int _snwprintf_s(wchar_t (&buffer)[Size], std::size_t count, const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsnwprintf_s(buffer, Size, count, format, arguments);
    va_end(arguments);
    return length;
}
