// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Loading shared objects by the names that Win32 has for it. Reasons for failure: GetLastError().

#include "KxPlatformExport.h"
#include "KxWinTypes.h"

/// Loads a shared object, or counts one more use of a loaded one. A name with a `/` in it is a file, any
/// other is looked for by the dynamic loader's rules (`libm.so.6`); nothing is added to the name. The symbols
/// of an object serve GetProcAddress() alone, not the objects that are loaded after it.
/// \return the handle of dlopen(); null on failure
KX_PLATFORM_EXPORT HMODULE LoadLibraryW(LPCWSTR name);

/// Gives back one use. With the last one the strings and bitmaps that were registered for the module go too.
/// False for a handle that LoadLibraryW() did not give out or that has no use left; it is not looked into.
KX_PLATFORM_EXPORT BOOL FreeLibrary(HMODULE module);

/// The address of a function or variable of a module that LoadLibraryW() loaded; null when there is none,
/// when the module is no such module, and for ordinals (a `name` below 0x10000), which Linux does not have.
KX_PLATFORM_EXPORT FARPROC GetProcAddress(HMODULE module, LPCSTR name);
