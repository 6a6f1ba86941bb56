// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// String and bitmap resources. Linux objects carry none, so a host registers its own: by module handle,
/// which is nothing more than a key here (any value will do, null included), and identifier.
///
/// @code
/// KxLoadStringTable(nullptr, QStringLiteral(":/strings.txt"));
/// wchar_t text[80];
/// LoadStringW(nullptr, IDS_TITLE, text, 80);
/// @endcode

#include "KxPlatformExport.h"
#include "KxWinTypes.h"

#include <QtCore/QString>

#include <cstddef>
#include <initializer_list>

class QByteArray;
class QImage;

// ---- strings --------------------------------------------------------------------------------------------

/// One string of a table in the code; null counts as the empty text.
struct KxStringResource
{
    UINT id;
    const wchar_t *text;
};

/// Adds a string to a module's table, or takes the place of the one with that identifier.
KX_PLATFORM_EXPORT void KxRegisterString(HINSTANCE module, UINT id, const wchar_t *text);

/// The same for `count` strings; a null array is an empty one.
KX_PLATFORM_EXPORT void KxRegisterStrings(HINSTANCE module, const KxStringResource *strings,
                                          std::size_t count);

inline void KxRegisterStrings(HINSTANCE module, std::initializer_list<KxStringResource> strings)
{
    KxRegisterStrings(module, strings.begin(), strings.size());
}

template<std::size_t Count>
void KxRegisterStrings(HINSTANCE module, const KxStringResource (&strings)[Count])
{
    KxRegisterStrings(module, strings, Count);
}

/// What reading a string table came to.
struct KxStringTableResult
{
    int strings = 0; ///< How many were registered; 0 after a failure.
    int line = 0;  ///< The line with the mistake, from 1; 0 when there is none or the file could not be read.
    QString error; ///< What was wrong, in English; empty when nothing was.

    bool isOk() const { return error.isEmpty(); }
};

/// Registers the strings of a table file; `fileName` may name a Qt resource (`:/...`). A table with a mistake
/// in it registers nothing.
///
/// The file is UTF-8, with or without a byte order mark, one string a line:
///
/// @code
/// # Titles
/// 101   Plot Properties
/// 0x66  Scale:\tone to %d\n
/// @endcode
///
/// - An identifier, decimal or hexadecimal with `0x`, up to 32 bits; blanks (spaces and tabs); the text,
///   which reaches to the end of the line without the blanks there. An identifier alone has the empty text.
/// - `\n` `\r` `\t` `\\` are what they are in C, `\s` is a space (to begin or end a text with), `\uXXXX` and
///   `\UXXXXXXXX` a character by its number, not 0. Any other backslash is a mistake.
/// - Empty lines, and lines that begin with `#` after blanks, say nothing. Lines end with LF or CR LF.
/// - An identifier that stands twice, a control character other than tab, and bytes that are no UTF-8 are
///   mistakes.
KX_PLATFORM_EXPORT KxStringTableResult KxLoadStringTable(HINSTANCE module, const QString &fileName);

/// The same for the bytes of such a file.
KX_PLATFORM_EXPORT KxStringTableResult KxRegisterStringTable(HINSTANCE module, const QByteArray &table);

/// Removes one string. False when there is none.
KX_PLATFORM_EXPORT bool KxUnregisterString(HINSTANCE module, UINT id);

/// Removes all strings of a module. \return how many there were
KX_PLATFORM_EXPORT int KxUnregisterStrings(HINSTANCE module);

/// Copies a registered string: at most `count` - 1 characters, and a terminating zero, which is also written
/// when there is no such string. A `count` of 0 or less writes nothing; there is no form that hands out the
/// stored text, as Win32 has for a count of 0.
/// \return characters copied without the zero; 0 when there is no such string
KX_PLATFORM_EXPORT int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int count);

// ---- bitmaps --------------------------------------------------------------------------------------------

/// Registers a bitmap under a number below 0x10000, which MAKEINTRESOURCE names. A registered one is
/// replaced; bitmaps that were loaded from it stay as they are. False for a null image and for larger numbers.
KX_PLATFORM_EXPORT bool KxRegisterBitmap(HINSTANCE module, UINT id, const QImage &image);

/// The same under a text, in which case does not count. `#` and a decimal number is that number's name, as in
/// Win32. False for null (and MAKEINTRESOURCE) and for the empty text too.
KX_PLATFORM_EXPORT bool KxRegisterNamedBitmap(HINSTANCE module, const wchar_t *name, const QImage &image);

/// Removes one bitmap, named by MAKEINTRESOURCE or by text. False when there is none.
KX_PLATFORM_EXPORT bool KxUnregisterBitmap(HINSTANCE module, const wchar_t *name);

/// Removes all bitmaps of a module. \return how many there were
KX_PLATFORM_EXPORT int KxUnregisterBitmaps(HINSTANCE module);

/// Loads a bitmap: a new one of the image service with every call, which the caller deletes
/// (KxImageService::deleteHandle, CBitmap::DeleteObject).
///
/// `name` is that of a registered bitmap, or with LR_LOADFROMFILE in `flags` of a picture file in any format
/// that Qt reads; the module is not looked at then. `width` and `height` are in pixels; 0 keeps the picture's
/// own. `type` must be IMAGE_BITMAP: icons and cursors are not served. All other flags are ignored.
/// \return an HBITMAP; null on failure
KX_PLATFORM_EXPORT HANDLE LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int width, int height,
                                     UINT flags);
