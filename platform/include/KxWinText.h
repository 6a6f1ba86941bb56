// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Generic-text names. There is one kind of text, wide, so that each name stands for its wide form: `_T("x")`
/// is `L"x"`, TCHAR is wchar_t, `SetWindowText` is `SetWindowTextW`, of a member too.
///
/// The names of functions are macros, as on Windows: a function or member of the host's own that has such a
/// name has it with the W, wherever this header is included. The names of records are types.

#include <cwchar>
#include <cwctype>

#include "KxWinCrt.h"
#include "KxWinFileDialog.h"
#include "KxWinRecords.h"
#include "KxWinString.h"

#ifndef UNICODE
#  define UNICODE
#endif
#ifndef _UNICODE
#  define _UNICODE
#endif

#define KX_WIDE_LITERAL(literal) L##literal
#define _T(literal) KX_WIDE_LITERAL(literal)
#define _TEXT(literal) KX_WIDE_LITERAL(literal)
#define TEXT(literal) KX_WIDE_LITERAL(literal)

#define MAKEINTRESOURCE MAKEINTRESOURCEW

// ---- Text of the C library -------------------------------------------------------------------------------

#define _tcslen wcslen
#define _tcsnlen wcsnlen
#define _tcscpy wcscpy
#define _tcsncpy wcsncpy
#define _tcscat wcscat
#define _tcsncat wcsncat
#define _tcscmp wcscmp
#define _tcsncmp wcsncmp
#define _tcscoll wcscoll
#define _tcsicmp _wcsicmp
#define _tcsnicmp _wcsnicmp
#define _tcsdup _wcsdup
#define _tcschr wcschr
#define _tcsrchr wcsrchr
#define _tcsstr wcsstr
#define _tcspbrk wcspbrk
#define _tcsspn wcsspn
#define _tcscspn wcscspn
#define _tcsinc _wcsinc
#define _tcsnextc _wcsnextc
#define _tcscpy_s wcscpy_s
#define _tcsncpy_s wcsncpy_s
#define _tcscat_s wcscat_s

// ---- Characters ------------------------------------------------------------------------------------------

#define _istalnum iswalnum
#define _istalpha iswalpha
#define _istcntrl iswcntrl
#define _istdigit iswdigit
#define _istgraph iswgraph
#define _istlower iswlower
#define _istprint iswprint
#define _istpunct iswpunct
#define _istspace iswspace
#define _istupper iswupper
#define _istxdigit iswxdigit
#define _totlower towlower
#define _totupper towupper

// ---- Numbers, formatting, reading ------------------------------------------------------------------------

#define _tstoi _wtoi
#define _ttoi _wtoi
#define _tstol _wtol
#define _ttol _wtol
#define _tstof _wtof
#define _ttof _wtof
#define _tcstol wcstol
#define _tcstoul wcstoul
#define _tcstod wcstod
#define _stprintf swprintf
#define _stprintf_s swprintf_s
#define _vstprintf_s vswprintf_s
#define _sntprintf _snwprintf
#define _vsntprintf _vsnwprintf
#define _sntprintf_s _snwprintf_s
#define _vsntprintf_s _vsnwprintf_s
#define _stscanf swscanf
#define _stscanf_s swscanf_s
#define _tcsftime wcsftime

// ---- Files and streams -----------------------------------------------------------------------------------

#define _tfopen _wfopen
#define _tfopen_s _wfopen_s
#define _trename _wrename
#define _tprintf wprintf
#define _ftprintf fwprintf
#define _vftprintf vfwprintf
#define _fgettc fgetwc
#define _fgetts fgetws
#define _fputtc fputwc
#define _fputts fputws
#define _TEOF WEOF

// ---- Records ---------------------------------------------------------------------------------------------

using CREATESTRUCT = CREATESTRUCTW;
using LPCREATESTRUCT = LPCREATESTRUCTW;
using LOGFONT = LOGFONTW;
using PLOGFONT = PLOGFONTW;
using LPLOGFONT = LPLOGFONTW;
using MENUITEMINFO = MENUITEMINFOW;
using LPMENUITEMINFO = LPMENUITEMINFOW;
using LPCMENUITEMINFO = LPCMENUITEMINFOW;
using MONITORINFOEX = MONITORINFOEXW;
using LPMONITORINFOEX = LPMONITORINFOEXW;
using NONCLIENTMETRICS = NONCLIENTMETRICSW;
using PNONCLIENTMETRICS = PNONCLIENTMETRICSW;
using LPNONCLIENTMETRICS = LPNONCLIENTMETRICSW;
using OPENFILENAME = OPENFILENAMEW;
using LPOPENFILENAME = LPOPENFILENAMEW;
using STARTUPINFO = STARTUPINFOW;
using LPSTARTUPINFO = LPSTARTUPINFOW;
using TEXTMETRIC = TEXTMETRICW;
using PTEXTMETRIC = PTEXTMETRICW;
using LPTEXTMETRIC = LPTEXTMETRICW;
using WIN32_FIND_DATA = WIN32_FIND_DATAW;
using PWIN32_FIND_DATA = PWIN32_FIND_DATAW;
using LPWIN32_FIND_DATA = LPWIN32_FIND_DATAW;
using WNDCLASS = WNDCLASSW;
using PWNDCLASS = PWNDCLASSW;
using LPWNDCLASS = LPWNDCLASSW;
using WNDCLASSEX = WNDCLASSEXW;
using PWNDCLASSEX = PWNDCLASSEXW;
using LPWNDCLASSEX = LPWNDCLASSEXW;

// ---- Windows, dialogs, messages --------------------------------------------------------------------------

#define CallWindowProc CallWindowProcW
#define CreateWindowEx CreateWindowExW
#define DefDlgProc DefDlgProcW
#define DefWindowProc DefWindowProcW
#define DispatchMessage DispatchMessageW
#define FindWindow FindWindowW
#define FindWindowEx FindWindowExW
#define GetClassInfo GetClassInfoW
#define GetClassInfoEx GetClassInfoExW
#define GetClassLong GetClassLongW
#define GetClassLongPtr GetClassLongPtrW
#define GetClassName GetClassNameW
#define GetDlgItemText GetDlgItemTextW
#define GetMessage GetMessageW
#define GetProp GetPropW
#define GetWindowLong GetWindowLongW
#define GetWindowLongPtr GetWindowLongPtrW
#define GetWindowText GetWindowTextW
#define GetWindowTextLength GetWindowTextLengthW
#define IsDialogMessage IsDialogMessageW
#define MessageBox MessageBoxW
#define PeekMessage PeekMessageW
#define PostMessage PostMessageW
#define PostThreadMessage PostThreadMessageW
#define RegisterClass RegisterClassW
#define RegisterClassEx RegisterClassExW
#define RegisterWindowMessage RegisterWindowMessageW
#define RemoveProp RemovePropW
#define SendDlgItemMessage SendDlgItemMessageW
#define SendMessage SendMessageW
#define SendMessageTimeout SendMessageTimeoutW
#define SendNotifyMessage SendNotifyMessageW
#define SetClassLong SetClassLongW
#define SetClassLongPtr SetClassLongPtrW
#define SetDlgItemText SetDlgItemTextW
#define SetProp SetPropW
#define SetWindowLong SetWindowLongW
#define SetWindowLongPtr SetWindowLongPtrW
#define SetWindowsHookEx SetWindowsHookExW
#define SetWindowText SetWindowTextW
#define SystemParametersInfo SystemParametersInfoW
#define TranslateAccelerator TranslateAcceleratorW
#define UnregisterClass UnregisterClassW

// ---- Menus -----------------------------------------------------------------------------------------------

#define AppendMenu AppendMenuW
#define GetMenuItemInfo GetMenuItemInfoW
#define GetMenuString GetMenuStringW
#define InsertMenu InsertMenuW
#define InsertMenuItem InsertMenuItemW
#define ModifyMenu ModifyMenuW
#define SetMenuItemInfo SetMenuItemInfoW

// ---- Resources and modules -------------------------------------------------------------------------------

#define CreateAcceleratorTable CreateAcceleratorTableW
#define ExtractIcon ExtractIconW
#define FindResource FindResourceW
#define FindResourceEx FindResourceExW
#define FormatMessage FormatMessageW
#define GetModuleFileName GetModuleFileNameW
#define GetModuleHandle GetModuleHandleW
#define LoadAccelerators LoadAcceleratorsW
#define LoadBitmap LoadBitmapW
#define LoadCursor LoadCursorW
#define LoadIcon LoadIconW
#define LoadImage LoadImageW
#define LoadLibrary LoadLibraryW
#define LoadLibraryEx LoadLibraryExW
#define LoadMenu LoadMenuW
#define LoadString LoadStringW

// ---- Drawing ---------------------------------------------------------------------------------------------

#define CreateDC CreateDCW
#define CreateFont CreateFontW
#define CreateFontIndirect CreateFontIndirectW
#define CreateIC CreateICW
#define DrawState DrawStateW
#define DrawText DrawTextW
#define DrawTextEx DrawTextExW
#define EnumFontFamilies EnumFontFamiliesW
#define EnumFontFamiliesEx EnumFontFamiliesExW
#define ExtTextOut ExtTextOutW
#define GetCharWidth GetCharWidthW
#define GetMonitorInfo GetMonitorInfoW
#define GetObject GetObjectW
#define GetTextExtentPoint GetTextExtentPointW
#define GetTextExtentPoint32 GetTextExtentPoint32W
#define GetTextFace GetTextFaceW
#define GetTextMetrics GetTextMetricsW
#define GrayString GrayStringW
#define TabbedTextOut TabbedTextOutW
#define TextOut TextOutW

// ---- Files and directories -------------------------------------------------------------------------------

#define CopyFile CopyFileW
#define CreateDirectory CreateDirectoryW
#define CreateFile CreateFileW
#define DeleteFile DeleteFileW
#define FindFirstFile FindFirstFileW
#define FindNextFile FindNextFileW
#define GetCurrentDirectory GetCurrentDirectoryW
#define GetDiskFreeSpaceEx GetDiskFreeSpaceExW
#define GetDriveType GetDriveTypeW
#define GetFileAttributes GetFileAttributesW
#define GetFileAttributesEx GetFileAttributesExW
#define GetFullPathName GetFullPathNameW
#define GetLongPathName GetLongPathNameW
#define GetShortPathName GetShortPathNameW
#define GetTempFileName GetTempFileNameW
#define GetTempPath GetTempPathW
#define GetVolumeInformation GetVolumeInformationW
#define MoveFile MoveFileW
#define MoveFileEx MoveFileExW
#define PathFileExists PathFileExistsW
#define PathFindExtension PathFindExtensionW
#define PathFindFileName PathFindFileNameW
#define PathIsDirectory PathIsDirectoryW
#define RemoveDirectory RemoveDirectoryW
#define SearchPath SearchPathW
#define SetCurrentDirectory SetCurrentDirectoryW
#define SetFileAttributes SetFileAttributesW

// ---- Settings and registry -------------------------------------------------------------------------------

#define GetPrivateProfileInt GetPrivateProfileIntW
#define GetPrivateProfileString GetPrivateProfileStringW
#define GetProfileInt GetProfileIntW
#define GetProfileString GetProfileStringW
#define RegCreateKeyEx RegCreateKeyExW
#define RegDeleteKey RegDeleteKeyW
#define RegDeleteValue RegDeleteValueW
#define RegEnumKeyEx RegEnumKeyExW
#define RegEnumValue RegEnumValueW
#define RegOpenKeyEx RegOpenKeyExW
#define RegQueryValueEx RegQueryValueExW
#define RegSetValueEx RegSetValueExW
#define WritePrivateProfileString WritePrivateProfileStringW
#define WriteProfileString WriteProfileStringW

// ---- Text ------------------------------------------------------------------------------------------------

#define CharLower CharLowerW
#define CharNext CharNextW
#define CharPrev CharPrevW
#define CharUpper CharUpperW
#define CompareString CompareStringW
#define GetDateFormat GetDateFormatW
#define GetLocaleInfo GetLocaleInfoW
#define GetTimeFormat GetTimeFormatW
#define lstrcat lstrcatW
#define lstrcmp lstrcmpW
#define lstrcmpi lstrcmpiW
#define lstrcpy lstrcpyW
#define lstrcpyn lstrcpynW
#define lstrlen lstrlenW

// ---- Clipboard, processes, shell -------------------------------------------------------------------------

#define CreateEvent CreateEventW
#define CreateMutex CreateMutexW
#define CreateProcess CreateProcessW
#define DragQueryFile DragQueryFileW
#define ExpandEnvironmentStrings ExpandEnvironmentStringsW
#define GetClipboardFormatName GetClipboardFormatNameW
#define GetCommandLine GetCommandLineW
#define GetComputerName GetComputerNameW
#define GetEnvironmentVariable GetEnvironmentVariableW
#define GetStartupInfo GetStartupInfoW
#define GetUserName GetUserNameW
#define HtmlHelp HtmlHelpW
#define OpenEvent OpenEventW
#define OutputDebugString OutputDebugStringW
#define RegisterClipboardFormat RegisterClipboardFormatW
#define SetEnvironmentVariable SetEnvironmentVariableW
#define ShellExecute ShellExecuteW
#define ShellExecuteEx ShellExecuteExW
#define SHFileOperation SHFileOperationW
#define SHGetFileInfo SHGetFileInfoW
#define WinHelp WinHelpW
