// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The records of Win32, with the field names, the order and the layout of 64-bit Windows. Two differences
/// follow from this platform: a wchar_t has 32 bits, so that records with text in them are longer; and a BOOL
/// field is an `int`, which has Windows' four bytes, since BOOL itself is `bool` here and has one.
/// Include KxWinTypes.h, which brings this header.

#include <cstring>

#include "KxWinBasicTypes.h"
#include "KxWinConstants.h"

// ---------------------------------------------------------------------------------------------------------
// Points, sizes, rectangles
// ---------------------------------------------------------------------------------------------------------

struct tagPOINT {
    LONG x;
    LONG y;
};
using POINT = tagPOINT;
using PPOINT = POINT *;
using LPPOINT = POINT *;
using LPCPOINT = const POINT *;

struct tagPOINTS {
    SHORT x;
    SHORT y;
};
using POINTS = tagPOINTS;

struct tagSIZE {
    LONG cx;
    LONG cy;
};
using SIZE = tagSIZE;
using PSIZE = SIZE *;
using LPSIZE = SIZE *;
using SIZEL = SIZE;

struct tagRECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using RECT = tagRECT;
using PRECT = RECT *;
using LPRECT = RECT *;
using LPCRECT = const RECT *;

// ---------------------------------------------------------------------------------------------------------
// Numbers in two halves, identifiers, times
// ---------------------------------------------------------------------------------------------------------

union _LARGE_INTEGER {
    __extension__ struct {
        DWORD LowPart;
        LONG HighPart;
    };
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};
using LARGE_INTEGER = _LARGE_INTEGER;
using PLARGE_INTEGER = LARGE_INTEGER *;

union _ULARGE_INTEGER {
    __extension__ struct {
        DWORD LowPart;
        DWORD HighPart;
    };
    struct {
        DWORD LowPart;
        DWORD HighPart;
    } u;
    ULONGLONG QuadPart;
};
using ULARGE_INTEGER = _ULARGE_INTEGER;
using PULARGE_INTEGER = ULARGE_INTEGER *;

struct _LUID {
    DWORD LowPart;
    LONG HighPart;
};
using LUID = _LUID;

struct _GUID {
    ULONG Data1;
    USHORT Data2;
    USHORT Data3;
    UCHAR Data4[8];
};
using GUID = _GUID;
using LPGUID = GUID *;
using LPCGUID = const GUID *;
using IID = GUID;
using LPIID = IID *;
using CLSID = GUID;
using LPCLSID = CLSID *;
using FMTID = GUID;
using UUID = GUID;
using REFGUID = const GUID &;
using REFIID = const IID &;
using REFCLSID = const CLSID &;
using REFFMTID = const FMTID &;

inline bool IsEqualGUID(REFGUID a, REFGUID b)
{
    return std::memcmp(&a, &b, sizeof(GUID)) == 0;
}

inline bool IsEqualIID(REFIID a, REFIID b)
{
    return IsEqualGUID(a, b);
}

inline bool IsEqualCLSID(REFCLSID a, REFCLSID b)
{
    return IsEqualGUID(a, b);
}

inline bool operator==(REFGUID a, REFGUID b)
{
    return IsEqualGUID(a, b);
}

inline bool operator!=(REFGUID a, REFGUID b)
{
    return !IsEqualGUID(a, b);
}

/// Units of 100 nanoseconds since 1601-01-01 00:00 UTC, in two halves.
struct _FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
using FILETIME = _FILETIME;
using PFILETIME = FILETIME *;
using LPFILETIME = FILETIME *;

struct _SYSTEMTIME {
    WORD wYear;
    WORD wMonth; ///< 1 to 12.
    WORD wDayOfWeek; ///< 0 is Sunday.
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};
using SYSTEMTIME = _SYSTEMTIME;
using PSYSTEMTIME = SYSTEMTIME *;
using LPSYSTEMTIME = SYSTEMTIME *;

// ---------------------------------------------------------------------------------------------------------
// Windows and messages
// ---------------------------------------------------------------------------------------------------------

struct tagMSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time; ///< Milliseconds.
    POINT pt; ///< The pointer, in screen pixels.
};
using MSG = tagMSG;
using PMSG = MSG *;
using LPMSG = MSG *;

struct tagNMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};
using NMHDR = tagNMHDR;
using LPNMHDR = NMHDR *;

struct HELPINFO {
    UINT cbSize;
    int iContextType; ///< HELPINFO_WINDOW or HELPINFO_MENUITEM.
    int iCtrlId;
    HANDLE hItemHandle;
    DWORD_PTR dwContextId;
    POINT MousePos;
};
using tagHELPINFO = HELPINFO;
using LPHELPINFO = HELPINFO *;

struct tagCREATESTRUCTW {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};
using CREATESTRUCTW = tagCREATESTRUCTW;
using LPCREATESTRUCTW = CREATESTRUCTW *;

struct tagWNDCLASSW {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
};
using WNDCLASSW = tagWNDCLASSW;
using PWNDCLASSW = WNDCLASSW *;
using LPWNDCLASSW = WNDCLASSW *;

struct tagWNDCLASSEXW {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
    HICON hIconSm;
};
using WNDCLASSEXW = tagWNDCLASSEXW;
using PWNDCLASSEXW = WNDCLASSEXW *;
using LPWNDCLASSEXW = WNDCLASSEXW *;

struct tagMINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
};
using MINMAXINFO = tagMINMAXINFO;
using LPMINMAXINFO = MINMAXINFO *;

struct tagWINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags; ///< SWP_*.
};
using WINDOWPOS = tagWINDOWPOS;
using PWINDOWPOS = WINDOWPOS *;
using LPWINDOWPOS = WINDOWPOS *;

struct tagWINDOWPLACEMENT {
    UINT length;
    UINT flags; ///< WPF_*.
    UINT showCmd; ///< SW_*.
    POINT ptMinPosition;
    POINT ptMaxPosition;
    RECT rcNormalPosition;
};
using WINDOWPLACEMENT = tagWINDOWPLACEMENT;
using PWINDOWPLACEMENT = WINDOWPLACEMENT *;
using LPWINDOWPLACEMENT = WINDOWPLACEMENT *;

struct tagNCCALCSIZE_PARAMS {
    RECT rgrc[3];
    PWINDOWPOS lppos;
};
using NCCALCSIZE_PARAMS = tagNCCALCSIZE_PARAMS;
using LPNCCALCSIZE_PARAMS = NCCALCSIZE_PARAMS *;

struct tagSTYLESTRUCT {
    DWORD styleOld;
    DWORD styleNew;
};
using STYLESTRUCT = tagSTYLESTRUCT;
using LPSTYLESTRUCT = STYLESTRUCT *;

struct tagCOPYDATASTRUCT {
    ULONG_PTR dwData;
    DWORD cbData; ///< Bytes at lpData.
    PVOID lpData;
};
using COPYDATASTRUCT = tagCOPYDATASTRUCT;
using PCOPYDATASTRUCT = COPYDATASTRUCT *;

struct tagTRACKMOUSEEVENT {
    DWORD cbSize;
    DWORD dwFlags; ///< TME_*.
    HWND hwndTrack;
    DWORD dwHoverTime; ///< Milliseconds, or HOVER_DEFAULT.
};
using TRACKMOUSEEVENT = tagTRACKMOUSEEVENT;
using LPTRACKMOUSEEVENT = TRACKMOUSEEVENT *;

struct tagSCROLLINFO {
    UINT cbSize;
    UINT fMask; ///< SIF_*.
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos;
};
using SCROLLINFO = tagSCROLLINFO;
using LPSCROLLINFO = SCROLLINFO *;
using LPCSCROLLINFO = const SCROLLINFO *;

struct tagMONITORINFO {
    DWORD cbSize;
    RECT rcMonitor;
    RECT rcWork;
    DWORD dwFlags;
};
using MONITORINFO = tagMONITORINFO;
using LPMONITORINFO = MONITORINFO *;

struct tagMONITORINFOEXW : tagMONITORINFO {
    WCHAR szDevice[CCHDEVICENAME];
};
using MONITORINFOEXW = tagMONITORINFOEXW;
using LPMONITORINFOEXW = MONITORINFOEXW *;

struct tagACCEL {
    BYTE fVirt; ///< FVIRTKEY, FSHIFT, FCONTROL, FALT.
    WORD key;
    WORD cmd;
};
using ACCEL = tagACCEL;
using LPACCEL = ACCEL *;

#pragma pack(push, 2)
struct DLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit;
    short x;
    short y;
    short cx;
    short cy;
};
#pragma pack(pop)
using LPDLGTEMPLATE = DLGTEMPLATE *;
using LPCDLGTEMPLATE = const DLGTEMPLATE *;

struct tagMENUITEMINFOW {
    UINT cbSize;
    UINT fMask; ///< MIIM_*.
    UINT fType; ///< MFT_*.
    UINT fState; ///< MFS_*.
    UINT wID;
    HMENU hSubMenu;
    HBITMAP hbmpChecked;
    HBITMAP hbmpUnchecked;
    ULONG_PTR dwItemData;
    LPWSTR dwTypeData;
    UINT cch;
    HBITMAP hbmpItem;
};
using MENUITEMINFOW = tagMENUITEMINFOW;
using LPMENUITEMINFOW = MENUITEMINFOW *;
using LPCMENUITEMINFOW = const MENUITEMINFOW *;

struct tagMENUINFO {
    DWORD cbSize;
    DWORD fMask;
    DWORD dwStyle;
    UINT cyMax;
    HBRUSH hbrBack;
    DWORD dwContextHelpID;
    ULONG_PTR dwMenuData;
};
using MENUINFO = tagMENUINFO;
using LPMENUINFO = MENUINFO *;
using LPCMENUINFO = const MENUINFO *;

// ---------------------------------------------------------------------------------------------------------
// Items that their owner draws
// ---------------------------------------------------------------------------------------------------------

struct tagDRAWITEMSTRUCT {
    UINT CtlType; ///< ODT_*.
    UINT CtlID;
    UINT itemID;
    UINT itemAction; ///< ODA_*.
    UINT itemState; ///< ODS_*.
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
};
using DRAWITEMSTRUCT = tagDRAWITEMSTRUCT;
using PDRAWITEMSTRUCT = DRAWITEMSTRUCT *;
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT *;

struct tagMEASUREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth; ///< Pixels.
    UINT itemHeight; ///< Pixels.
    ULONG_PTR itemData;
};
using MEASUREITEMSTRUCT = tagMEASUREITEMSTRUCT;
using PMEASUREITEMSTRUCT = MEASUREITEMSTRUCT *;
using LPMEASUREITEMSTRUCT = MEASUREITEMSTRUCT *;

struct tagCOMPAREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    HWND hwndItem;
    UINT itemID1;
    ULONG_PTR itemData1;
    UINT itemID2;
    ULONG_PTR itemData2;
    DWORD dwLocaleId;
};
using COMPAREITEMSTRUCT = tagCOMPAREITEMSTRUCT;
using PCOMPAREITEMSTRUCT = COMPAREITEMSTRUCT *;
using LPCOMPAREITEMSTRUCT = COMPAREITEMSTRUCT *;

struct tagDELETEITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    HWND hwndItem;
    ULONG_PTR itemData;
};
using DELETEITEMSTRUCT = tagDELETEITEMSTRUCT;
using PDELETEITEMSTRUCT = DELETEITEMSTRUCT *;
using LPDELETEITEMSTRUCT = DELETEITEMSTRUCT *;

// ---------------------------------------------------------------------------------------------------------
// Hooks
// ---------------------------------------------------------------------------------------------------------

struct tagCWPSTRUCT {
    LPARAM lParam;
    WPARAM wParam;
    UINT message;
    HWND hwnd;
};
using CWPSTRUCT = tagCWPSTRUCT;
using LPCWPSTRUCT = CWPSTRUCT *;

struct tagMOUSEHOOKSTRUCT {
    POINT pt;
    HWND hwnd;
    UINT wHitTestCode;
    ULONG_PTR dwExtraInfo;
};
using MOUSEHOOKSTRUCT = tagMOUSEHOOKSTRUCT;
using LPMOUSEHOOKSTRUCT = MOUSEHOOKSTRUCT *;

struct tagKBDLLHOOKSTRUCT {
    DWORD vkCode;
    DWORD scanCode;
    DWORD flags;
    DWORD time;
    ULONG_PTR dwExtraInfo;
};
using KBDLLHOOKSTRUCT = tagKBDLLHOOKSTRUCT;
using LPKBDLLHOOKSTRUCT = KBDLLHOOKSTRUCT *;

// ---------------------------------------------------------------------------------------------------------
// Drawing
// ---------------------------------------------------------------------------------------------------------

struct tagPALETTEENTRY {
    BYTE peRed;
    BYTE peGreen;
    BYTE peBlue;
    BYTE peFlags;
};
using PALETTEENTRY = tagPALETTEENTRY;
using PPALETTEENTRY = PALETTEENTRY *;
using LPPALETTEENTRY = PALETTEENTRY *;

/// The entries go on behind the record, palNumEntries of them.
struct LOGPALETTE {
    WORD palVersion; ///< 0x300.
    WORD palNumEntries;
    PALETTEENTRY palPalEntry[1];
};
using tagLOGPALETTE = LOGPALETTE;
using PLOGPALETTE = LOGPALETTE *;
using LPLOGPALETTE = LOGPALETTE *;

struct tagLOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement; ///< Tenths of a degree.
    LONG lfOrientation; ///< Tenths of a degree.
    LONG lfWeight; ///< FW_*.
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
};
using LOGFONTW = tagLOGFONTW;
using PLOGFONTW = LOGFONTW *;
using LPLOGFONTW = LOGFONTW *;

struct tagTEXTMETRICW {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};
using TEXTMETRICW = tagTEXTMETRICW;
using PTEXTMETRICW = TEXTMETRICW *;
using LPTEXTMETRICW = TEXTMETRICW *;

struct tagNONCLIENTMETRICSW {
    UINT cbSize;
    int iBorderWidth;
    int iScrollWidth;
    int iScrollHeight;
    int iCaptionWidth;
    int iCaptionHeight;
    LOGFONTW lfCaptionFont;
    int iSmCaptionWidth;
    int iSmCaptionHeight;
    LOGFONTW lfSmCaptionFont;
    int iMenuWidth;
    int iMenuHeight;
    LOGFONTW lfMenuFont;
    LOGFONTW lfStatusFont;
    LOGFONTW lfMessageFont;
    int iPaddedBorderWidth;
};
using NONCLIENTMETRICSW = tagNONCLIENTMETRICSW;
using PNONCLIENTMETRICSW = NONCLIENTMETRICSW *;
using LPNONCLIENTMETRICSW = NONCLIENTMETRICSW *;

struct tagLOGBRUSH {
    UINT lbStyle; ///< BS_* of brushes.
    COLORREF lbColor;
    ULONG_PTR lbHatch;
};
using LOGBRUSH = tagLOGBRUSH;
using PLOGBRUSH = LOGBRUSH *;
using LPLOGBRUSH = LOGBRUSH *;

struct tagLOGPEN {
    UINT lopnStyle; ///< PS_*.
    POINT lopnWidth; ///< The width is in x.
    COLORREF lopnColor;
};
using LOGPEN = tagLOGPEN;
using PLOGPEN = LOGPEN *;
using LPLOGPEN = LOGPEN *;

struct tagXFORM {
    FLOAT eM11;
    FLOAT eM12;
    FLOAT eM21;
    FLOAT eM22;
    FLOAT eDx;
    FLOAT eDy;
};
using XFORM = tagXFORM;
using LPXFORM = XFORM *;

struct _BLENDFUNCTION {
    BYTE BlendOp;
    BYTE BlendFlags;
    BYTE SourceConstantAlpha;
    BYTE AlphaFormat;
};
using BLENDFUNCTION = _BLENDFUNCTION;

struct tagBITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};
using BITMAP = tagBITMAP;
using PBITMAP = BITMAP *;
using LPBITMAP = BITMAP *;

struct tagRGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};
using RGBQUAD = tagRGBQUAD;
using LPRGBQUAD = RGBQUAD *;

struct tagRGBTRIPLE {
    BYTE rgbtBlue;
    BYTE rgbtGreen;
    BYTE rgbtRed;
};
using RGBTRIPLE = tagRGBTRIPLE;

#pragma pack(push, 2)
struct tagBITMAPFILEHEADER {
    WORD bfType;
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
};
#pragma pack(pop)
using BITMAPFILEHEADER = tagBITMAPFILEHEADER;
using LPBITMAPFILEHEADER = BITMAPFILEHEADER *;

struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight; ///< Negative when the top row comes first.
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression; ///< BI_*.
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};
using tagBITMAPINFOHEADER = BITMAPINFOHEADER;
using PBITMAPINFOHEADER = BITMAPINFOHEADER *;
using LPBITMAPINFOHEADER = BITMAPINFOHEADER *;

/// The colours go on behind the record, as many as the header says.
struct tagBITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};
using BITMAPINFO = tagBITMAPINFO;
using PBITMAPINFO = BITMAPINFO *;
using LPBITMAPINFO = BITMAPINFO *;

struct tagDIBSECTION {
    BITMAP dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD dsBitfields[3];
    HANDLE dshSection;
    DWORD dsOffset;
};
using DIBSECTION = tagDIBSECTION;
using LPDIBSECTION = DIBSECTION *;

struct _ICONINFO {
    int fIcon; ///< Not 0: an icon; 0: a cursor.
    DWORD xHotspot;
    DWORD yHotspot;
    HBITMAP hbmMask;
    HBITMAP hbmColor;
};
using ICONINFO = _ICONINFO;
using PICONINFO = ICONINFO *;

struct tagPAINTSTRUCT {
    HDC hdc;
    int fErase;
    RECT rcPaint;
    int fRestore;
    int fIncUpdate;
    BYTE rgbReserved[32];
};
using PAINTSTRUCT = tagPAINTSTRUCT;
using PPAINTSTRUCT = PAINTSTRUCT *;
using LPPAINTSTRUCT = PAINTSTRUCT *;

// ---------------------------------------------------------------------------------------------------------
// Files and processes
// ---------------------------------------------------------------------------------------------------------

struct _SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    int bInheritHandle;
};
using SECURITY_ATTRIBUTES = _SECURITY_ATTRIBUTES;
using PSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES *;
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES *;

struct _OVERLAPPED {
    ULONG_PTR Internal;
    ULONG_PTR InternalHigh;
    __extension__ union {
        __extension__ struct {
            DWORD Offset;
            DWORD OffsetHigh;
        };
        PVOID Pointer;
    };
    HANDLE hEvent;
};
using OVERLAPPED = _OVERLAPPED;
using LPOVERLAPPED = OVERLAPPED *;

struct _WIN32_FIND_DATAW {
    DWORD dwFileAttributes; ///< FILE_ATTRIBUTE_*.
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    WCHAR cFileName[MAX_PATH];
    WCHAR cAlternateFileName[14];
};
using WIN32_FIND_DATAW = _WIN32_FIND_DATAW;
using PWIN32_FIND_DATAW = WIN32_FIND_DATAW *;
using LPWIN32_FIND_DATAW = WIN32_FIND_DATAW *;

struct _PROCESS_INFORMATION {
    HANDLE hProcess;
    HANDLE hThread;
    DWORD dwProcessId;
    DWORD dwThreadId;
};
using PROCESS_INFORMATION = _PROCESS_INFORMATION;
using LPPROCESS_INFORMATION = PROCESS_INFORMATION *;

struct _STARTUPINFOW {
    DWORD cb;
    LPWSTR lpReserved;
    LPWSTR lpDesktop;
    LPWSTR lpTitle;
    DWORD dwX;
    DWORD dwY;
    DWORD dwXSize;
    DWORD dwYSize;
    DWORD dwXCountChars;
    DWORD dwYCountChars;
    DWORD dwFillAttribute;
    DWORD dwFlags;
    WORD wShowWindow;
    WORD cbReserved2;
    LPBYTE lpReserved2;
    HANDLE hStdInput;
    HANDLE hStdOutput;
    HANDLE hStdError;
};
using STARTUPINFOW = _STARTUPINFOW;
using LPSTARTUPINFOW = STARTUPINFOW *;
