// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The file and directory calls of Win32, on POSIX files.
///
/// Names become bytes exactly as QFile makes them (QFile::encodeName), so that a name means the same file
/// here and in Qt. A call fails, and touches nothing, where that is not possible: for null and empty names, for
/// names that hold no text (surrogates, values above 0x10FFFF), for names that the locale's encoding cannot
/// say, and for names that QFile does not look for on the disk (`:/...`, and prefixes registered with
/// QDir::setSearchPaths). The separator is `/`; a backslash is a character of a name.
///
/// A failed call leaves its reason in GetLastError() (KxWinSystem.h). Security attributes are ignored.

#include "KxPlatformExport.h"
#include "KxWinTypes.h"

/// Writes the current directory with a terminating zero; `size` counts characters of 32 bits.
/// \return characters written without the zero; when the buffer is too small, the size it would need with the
/// zero, and nothing is written (`size` 0 with a null buffer asks for it); 0 on failure
KX_PLATFORM_EXPORT DWORD GetCurrentDirectoryW(DWORD size, LPWSTR buffer);

/// Changes the current directory of the process.
KX_PLATFORM_EXPORT BOOL SetCurrentDirectoryW(LPCWSTR name);

/// Makes one directory; its parent must exist. An existing one is a failure (ERROR_ALREADY_EXISTS).
KX_PLATFORM_EXPORT BOOL CreateDirectoryW(LPCWSTR name, LPSECURITY_ATTRIBUTES security);

/// Removes an empty directory.
KX_PLATFORM_EXPORT BOOL RemoveDirectoryW(LPCWSTR name);

/// The POSIX mode word of a file, symbolic links followed: `(mode & 0xF000) == 0x4000` is a directory. These
/// are not the FILE_ATTRIBUTE_* bits of Windows. 0xFFFFFFFF when there is no such file.
KX_PLATFORM_EXPORT DWORD GetFileAttributesW(LPCWSTR name);

/// Opens or creates a file. Directories cannot be opened.
///
/// - `access`: GENERIC_READ, GENERIC_WRITE, GENERIC_ALL, FILE_READ_DATA, FILE_WRITE_DATA; FILE_APPEND_DATA
///   without a right to write elsewhere makes every write go to the end. 0 opens for reading.
/// - `disposition`: CREATE_NEW (fails with ERROR_FILE_EXISTS when there is one), CREATE_ALWAYS (empties an
///   existing file), OPEN_EXISTING, OPEN_ALWAYS (creates a missing one), TRUNCATE_EXISTING (needs a right to
///   write). CREATE_ALWAYS and OPEN_ALWAYS leave ERROR_ALREADY_EXISTS or 0 in GetLastError() on success.
/// - `shareMode`, `security`, `flags` and `templateFile` are ignored. Child processes never inherit the file.
///
/// \return a `FILE *` as the handle, positioned at 0, which CFile(void *) takes and CloseHandle() closes;
/// INVALID_HANDLE_VALUE (-1) on failure
KX_PLATFORM_EXPORT HANDLE CreateFileW(LPCWSTR name, DWORD access, DWORD shareMode,
                                      LPSECURITY_ATTRIBUTES security, DWORD disposition, DWORD flags,
                                      HANDLE templateFile);

/// Writes out and closes a file of CreateFileW(). False for every other handle, which is not looked into, and
/// when what was still to be written could not be.
KX_PLATFORM_EXPORT BOOL CloseHandle(HANDLE handle);

/// Deletes a file, or a symbolic link itself; not a directory. A file that is still open lives on for who has
/// it open, where Windows refuses.
KX_PLATFORM_EXPORT BOOL DeleteFileW(LPCWSTR name);

/// Renames a file or directory, or moves a file to another file system. Never replaces: an existing `newName`
/// is a failure (ERROR_ALREADY_EXISTS).
KX_PLATFORM_EXPORT BOOL MoveFileW(LPCWSTR existingName, LPCWSTR newName);

/// Copies the contents and the time of last change of a file, and its access rights where `newName` is new. An
/// existing `newName` is replaced in its contents, or with `failIfExists` is a failure (ERROR_FILE_EXISTS); a
/// file is never copied onto itself (ERROR_SHARING_VIOLATION).
KX_PLATFORM_EXPORT BOOL CopyFileW(LPCWSTR existingName, LPCWSTR newName, BOOL failIfExists);

/// MoveFileW() under its C name. \return 0, or -1 with the reason in errno: EACCES when `newName` exists,
/// ENOENT, EINVAL when a name is no name
KX_PLATFORM_EXPORT int _wrename(const wchar_t *oldName, const wchar_t *newName);
