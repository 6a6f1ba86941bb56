// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Win32's record and flags of the file dialogs. Include KxWinTypes.h, which brings this header.

#include "KxWinBasicTypes.h"

#include <cstddef>

// Flags of OPENFILENAMEW
#define OFN_READONLY 0x00000001
#define OFN_OVERWRITEPROMPT 0x00000002
#define OFN_HIDEREADONLY 0x00000004
#define OFN_NOCHANGEDIR 0x00000008
#define OFN_SHOWHELP 0x00000010
#define OFN_ENABLEHOOK 0x00000020
#define OFN_ENABLETEMPLATE 0x00000040
#define OFN_ENABLETEMPLATEHANDLE 0x00000080
#define OFN_NOVALIDATE 0x00000100
#define OFN_ALLOWMULTISELECT 0x00000200
#define OFN_EXTENSIONDIFFERENT 0x00000400
#define OFN_PATHMUSTEXIST 0x00000800
#define OFN_FILEMUSTEXIST 0x00001000
#define OFN_CREATEPROMPT 0x00002000
#define OFN_SHAREAWARE 0x00004000
#define OFN_NOREADONLYRETURN 0x00008000
#define OFN_NOTESTFILECREATE 0x00010000
#define OFN_NONETWORKBUTTON 0x00020000
#define OFN_NOLONGNAMES 0x00040000
#define OFN_EXPLORER 0x00080000
#define OFN_NODEREFERENCELINKS 0x00100000
#define OFN_LONGNAMES 0x00200000
#define OFN_ENABLEINCLUDENOTIFY 0x00400000
#define OFN_ENABLESIZING 0x00800000
#define OFN_DONTADDTORECENT 0x02000000
#define OFN_FORCESHOWHIDDEN 0x10000000
#define OFN_EX_NOPLACESBAR 0x00000001

using LPOFNHOOKPROC = UINT_PTR (CALLBACK *)(HWND, UINT, WPARAM, LPARAM);

/// What a file dialog is to show; see KxQtFileDialog for what is looked at. Packed to 4 bytes, unlike Windows of
/// 64 bits: pointers stand at multiples of 4.
#pragma pack(push, 4)
struct OPENFILENAMEW {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCWSTR lpstrFilter;
    LPWSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex; ///< From 1.
    LPWSTR lpstrFile;
    DWORD nMaxFile;
    LPWSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCWSTR lpstrInitialDir;
    LPCWSTR lpstrTitle;
    DWORD Flags; ///< OFN_*.
    WORD nFileOffset;
    WORD nFileExtension;
    LPCWSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
    void *pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx; ///< OFN_EX_*.
};
#pragma pack(pop)
using tagOFNW = OPENFILENAMEW;
using LPOPENFILENAMEW = OPENFILENAMEW *;

static_assert(offsetof(OPENFILENAMEW, hwndOwner) == 4 && offsetof(OPENFILENAMEW, lpstrFile) == 44
              && sizeof(OPENFILENAMEW) == 140);
