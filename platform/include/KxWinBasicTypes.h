// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The basic types, the handles and the callback types of Win32. Include KxWinTypes.h, which brings this
/// header.

// ---------------------------------------------------------------------------------------------------------
// Calling conventions and annotations: nothing on this platform
// ---------------------------------------------------------------------------------------------------------

#ifndef APIENTRY
#  define APIENTRY
#endif
#ifndef CALLBACK
#  define CALLBACK
#endif
#ifndef WINAPI
#  define WINAPI
#endif
#ifndef WINAPIV
#  define WINAPIV
#endif
#ifndef PASCAL
#  define PASCAL
#endif
#ifndef CDECL
#  define CDECL
#endif
#ifndef FAR
#  define FAR
#endif
#ifndef NEAR
#  define NEAR
#endif
#ifndef CONST
#  define CONST const
#endif
#ifndef VOID
#  define VOID void
#endif
#ifndef __cdecl
#  define __cdecl
#endif
#ifndef __stdcall
#  define __stdcall
#endif
#ifndef __fastcall
#  define __fastcall
#endif

// ---------------------------------------------------------------------------------------------------------
// Basic types
// ---------------------------------------------------------------------------------------------------------

/// The 64-bit integer of Microsoft's compiler; a macro, so that `unsigned __int64` is a type too.
#ifndef __int64
#  define __int64 long long
#endif

using BOOL = bool; ///< One byte; Windows has an `int`.
using BOOLEAN = unsigned char;

using CHAR = char;
using UCHAR = unsigned char;
using BYTE = unsigned char;
using SHORT = short;
using USHORT = unsigned short;
using WORD = unsigned short;
using INT = int;
using UINT = unsigned int;
using LONG = int; ///< 32 bits, whatever `long` has.
using ULONG = unsigned int; ///< 32 bits, whatever `unsigned long` has.
using DWORD = unsigned int;
using FLOAT = float;
using DOUBLE = double;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;

using INT8 = signed char;
using UINT8 = unsigned char;
using INT16 = short;
using UINT16 = unsigned short;
using INT32 = int;
using UINT32 = unsigned int;
using INT64 = long long;
using UINT64 = unsigned long long;
using LONG32 = int;
using ULONG32 = unsigned int;
using DWORD32 = unsigned int;
using LONG64 = long long;
using ULONG64 = unsigned long long;
using DWORD64 = unsigned long long;
using DWORDLONG = unsigned long long;

using INT_PTR = long;
using UINT_PTR = unsigned long;
using LONG_PTR = long;
using ULONG_PTR = unsigned long;
using DWORD_PTR = unsigned long;
using SIZE_T = unsigned long;
using SSIZE_T = long;

using WPARAM = unsigned long;
using LPARAM = long;
using LRESULT = long;
using HRESULT = int;

using ATOM = unsigned short;
using CLIPFORMAT = unsigned short;
using COLORREF = unsigned int; ///< Red in bits 0 to 7, green in 8 to 15, blue in 16 to 23.
using LANGID = unsigned short;
using LCID = unsigned int;
using LCTYPE = unsigned int;
using HFILE = int;
using ACCESS_MASK = unsigned int;
using REGSAM = unsigned int;
using LSTATUS = int;

using WCHAR = wchar_t; ///< 32 bits, one whole character; Windows has 16.
using TCHAR = wchar_t;
using TBYTE = wchar_t;

using PVOID = void *;
using LPVOID = void *;
using LPCVOID = const void *;
using PBOOL = BOOL *;
using LPBOOL = BOOL *;
using PBYTE = BYTE *;
using LPBYTE = BYTE *;
using LPCBYTE = const BYTE *;
using PUCHAR = UCHAR *;
using PSHORT = SHORT *;
using PUSHORT = USHORT *;
using PWORD = WORD *;
using LPWORD = WORD *;
using PINT = INT *;
using LPINT = INT *;
using PUINT = UINT *;
using LPUINT = UINT *;
using PLONG = LONG *;
using LPLONG = LONG *;
using PULONG = ULONG *;
using PDWORD = DWORD *;
using LPDWORD = DWORD *;
using PLONGLONG = LONGLONG *;
using PULONGLONG = ULONGLONG *;
using PINT_PTR = INT_PTR *;
using PUINT_PTR = UINT_PTR *;
using PLONG_PTR = LONG_PTR *;
using PULONG_PTR = ULONG_PTR *;
using PDWORD_PTR = DWORD_PTR *;
using PSIZE_T = SIZE_T *;
using LPCOLORREF = COLORREF *;

using PCHAR = char *;
using PCH = char *;
using LPCH = char *;
using PSTR = char *;
using LPSTR = char *;
using PCSTR = const char *;
using LPCSTR = const char *;
using PWCHAR = wchar_t *;
using PWCH = wchar_t *;
using LPWCH = wchar_t *;
using PWSTR = wchar_t *;
using LPWSTR = wchar_t *;
using PCWSTR = const wchar_t *;
using LPCWSTR = const wchar_t *;
using PTCHAR = TCHAR *;
using PTSTR = TCHAR *;
using LPTSTR = TCHAR *;
using PCTSTR = const TCHAR *;
using LPCTSTR = const TCHAR *;

// ---------------------------------------------------------------------------------------------------------
// Handles: pointers to types that are not complete here, so that the compiler tells them apart
// ---------------------------------------------------------------------------------------------------------

#define DECLARE_HANDLE(name) \
    struct name##__; \
    typedef struct name##__ *name

using HANDLE = void *;
using PHANDLE = HANDLE *;
using LPHANDLE = HANDLE *;
using HGLOBAL = HANDLE;
using GLOBALHANDLE = HANDLE;
using HLOCAL = HANDLE;
using LOCALHANDLE = HANDLE;
using HGDIOBJ = void *;

DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HPALETTE);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HKEY);
DECLARE_HANDLE(HACCEL);
DECLARE_HANDLE(HMONITOR);
DECLARE_HANDLE(HRSRC);
DECLARE_HANDLE(HMETAFILE);
DECLARE_HANDLE(HENHMETAFILE);
DECLARE_HANDLE(HGLRC);
DECLARE_HANDLE(HHOOK);
DECLARE_HANDLE(HKL);
DECLARE_HANDLE(HDESK);
DECLARE_HANDLE(HWINSTA);
DECLARE_HANDLE(HDROP);
DECLARE_HANDLE(HTHEME);
DECLARE_HANDLE(HCOLORSPACE);

using HDWP = HANDLE;
using HMODULE = HINSTANCE;
using HCURSOR = HICON;
using PHKEY = HKEY *;

struct _IMAGELIST;
using HIMAGELIST = _IMAGELIST *;

struct _TREEITEM;
using HTREEITEM = _TREEITEM *;

/// What a POSITION points at is the collection's own business.
struct __POSITION;
using POSITION = __POSITION *;

/// The handle whose value is the number: the special values of a handle type (INVALID_HANDLE_VALUE,
/// HWND_TOPMOST, HKEY_CURRENT_USER) and small numbers that travel in a handle. Nothing behind it may be read.
template<class Handle>
inline Handle KxHandleFromValue(INT_PTR value)
{
    return reinterpret_cast<Handle>(value);
}

// ---------------------------------------------------------------------------------------------------------
// Callbacks
// ---------------------------------------------------------------------------------------------------------

struct tagRECT;

using FARPROC = INT_PTR (CALLBACK *)();
using PROC = INT_PTR (CALLBACK *)();
using WNDPROC = LRESULT (CALLBACK *)(HWND, UINT, WPARAM, LPARAM);
using DLGPROC = INT_PTR (CALLBACK *)(HWND, UINT, WPARAM, LPARAM);
using TIMERPROC = void (CALLBACK *)(HWND, UINT, UINT_PTR, DWORD);
using HOOKPROC = LRESULT (CALLBACK *)(int, WPARAM, LPARAM);
using WNDENUMPROC = BOOL (CALLBACK *)(HWND, LPARAM);
using MONITORENUMPROC = BOOL (CALLBACK *)(HMONITOR, HDC, tagRECT *, LPARAM);
using GRAYSTRINGPROC = BOOL (CALLBACK *)(HDC, LPARAM, int);
using LPTHREAD_START_ROUTINE = DWORD (WINAPI *)(LPVOID);
