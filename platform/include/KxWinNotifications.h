// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// What Win32's common controls have in common: the notifications that every one of them may send and their
/// records, custom drawing, the messages and styles that all understand, the names of the window classes.
/// Include KxWinTypes.h, which brings this header.

#include "KxWinRecords.h"

// ---------------------------------------------------------------------------------------------------------
// Notifications of every control: values of NMHDR::code
// ---------------------------------------------------------------------------------------------------------

#define NM_OUTOFMEMORY 0xFFFFFFFF
#define NM_CLICK 0xFFFFFFFE
#define NM_DBLCLK 0xFFFFFFFD
#define NM_RETURN 0xFFFFFFFC
#define NM_RCLICK 0xFFFFFFFB
#define NM_RDBLCLK 0xFFFFFFFA
#define NM_SETFOCUS 0xFFFFFFF9
#define NM_KILLFOCUS 0xFFFFFFF8
#define NM_CUSTOMDRAW 0xFFFFFFF4
#define NM_HOVER 0xFFFFFFF3
#define NM_NCHITTEST 0xFFFFFFF2
#define NM_KEYDOWN 0xFFFFFFF1
#define NM_RELEASEDCAPTURE 0xFFFFFFF0
#define NM_SETCURSOR 0xFFFFFFEF
#define NM_CHAR 0xFFFFFFEE
#define NM_TOOLTIPSCREATED 0xFFFFFFED
#define NM_LDOWN 0xFFFFFFEC
#define NM_RDOWN 0xFFFFFFEB
#define NM_THEMECHANGED 0xFFFFFFEA
#define NM_FONTCHANGED 0xFFFFFFE9
#define NM_FIRST 0x0000
#define NM_LAST 0xFFFFFF9D

struct tagNMTOOLTIPSCREATED {
    NMHDR hdr;
    HWND hwndToolTips;
};
using NMTOOLTIPSCREATED = tagNMTOOLTIPSCREATED;
using LPNMTOOLTIPSCREATED = NMTOOLTIPSCREATED *;

struct tagNMMOUSE {
    NMHDR hdr;
    DWORD_PTR dwItemSpec;
    DWORD_PTR dwItemData;
    POINT pt; ///< In pixels of the control's client area.
    LPARAM dwHitInfo;
};
using NMMOUSE = tagNMMOUSE;
using LPNMMOUSE = NMMOUSE *;
using NMCLICK = NMMOUSE;
using LPNMCLICK = LPNMMOUSE;

struct tagNMKEY {
    NMHDR hdr;
    UINT nVKey; ///< VK_*.
    UINT uFlags; ///< The upper word of the key message's lParam.
};
using NMKEY = tagNMKEY;
using LPNMKEY = NMKEY *;

struct tagNMCHAR {
    NMHDR hdr;
    UINT ch;
    DWORD dwItemPrev;
    DWORD dwItemNext;
};
using NMCHAR = tagNMCHAR;
using LPNMCHAR = NMCHAR *;

// ---------------------------------------------------------------------------------------------------------
// Custom drawing
// ---------------------------------------------------------------------------------------------------------

#define CDRF_DODEFAULT 0x0000
#define CDRF_NEWFONT 0x0002
#define CDRF_SKIPDEFAULT 0x0004
#define CDRF_DOERASE 0x0008
#define CDRF_SKIPPOSTPAINT 0x0100
#define CDRF_NOTIFYPOSTPAINT 0x0010
#define CDRF_NOTIFYITEMDRAW 0x0020
#define CDRF_NOTIFYSUBITEMDRAW 0x0020
#define CDRF_NOTIFYPOSTERASE 0x0040

#define CDDS_PREPAINT 0x0001
#define CDDS_POSTPAINT 0x0002
#define CDDS_PREERASE 0x0003
#define CDDS_POSTERASE 0x0004
#define CDDS_ITEM 0x00010000
#define CDDS_ITEMPREPAINT 0x00010001
#define CDDS_ITEMPOSTPAINT 0x00010002
#define CDDS_ITEMPREERASE 0x00010003
#define CDDS_ITEMPOSTERASE 0x00010004
#define CDDS_SUBITEM 0x00020000

#define CDIS_SELECTED 0x0001
#define CDIS_GRAYED 0x0002
#define CDIS_DISABLED 0x0004
#define CDIS_CHECKED 0x0008
#define CDIS_FOCUS 0x0010
#define CDIS_DEFAULT 0x0020
#define CDIS_HOT 0x0040
#define CDIS_MARKED 0x0080
#define CDIS_INDETERMINATE 0x0100
#define CDIS_SHOWKEYBOARDCUES 0x0200
#define CDIS_NEARHOT 0x0400
#define CDIS_OTHERSIDEHOT 0x0800
#define CDIS_DROPHILITED 0x1000

struct tagNMCUSTOMDRAWINFO {
    NMHDR hdr;
    DWORD dwDrawStage; ///< CDDS_*.
    HDC hdc;
    RECT rc;
    DWORD_PTR dwItemSpec; ///< The row of a list view, the item of a tree view.
    UINT uItemState; ///< CDIS_*.
    LPARAM lItemlParam;
};
using NMCUSTOMDRAW = tagNMCUSTOMDRAWINFO;
using LPNMCUSTOMDRAW = NMCUSTOMDRAW *;

// ---------------------------------------------------------------------------------------------------------
// Messages, styles and window classes
// ---------------------------------------------------------------------------------------------------------

#define CCM_FIRST 0x2000
#define CCM_LAST 0x2200
#define CCM_SETBKCOLOR 0x2001
#define CCM_SETCOLORSCHEME 0x2002
#define CCM_GETCOLORSCHEME 0x2003
#define CCM_GETDROPTARGET 0x2004
#define CCM_SETUNICODEFORMAT 0x2005
#define CCM_GETUNICODEFORMAT 0x2006
#define CCM_SETVERSION 0x2007
#define CCM_GETVERSION 0x2008
#define CCM_SETNOTIFYWINDOW 0x2009
#define CCM_SETWINDOWTHEME 0x200B
#define CCM_DPISCALE 0x200C

#define CCS_TOP 0x0001
#define CCS_NOMOVEY 0x0002
#define CCS_BOTTOM 0x0003
#define CCS_NORESIZE 0x0004
#define CCS_NOPARENTALIGN 0x0008
#define CCS_ADJUSTABLE 0x0020
#define CCS_NODIVIDER 0x0040
#define CCS_VERT 0x0080
#define CCS_LEFT 0x0081
#define CCS_RIGHT 0x0083
#define CCS_NOMOVEX 0x0082

#define ICC_LISTVIEW_CLASSES 0x0001
#define ICC_TREEVIEW_CLASSES 0x0002
#define ICC_BAR_CLASSES 0x0004
#define ICC_TAB_CLASSES 0x0008
#define ICC_UPDOWN_CLASS 0x0010
#define ICC_PROGRESS_CLASS 0x0020
#define ICC_HOTKEY_CLASS 0x0040
#define ICC_ANIMATE_CLASS 0x0080
#define ICC_WIN95_CLASSES 0x00FF
#define ICC_DATE_CLASSES 0x0100
#define ICC_USEREX_CLASSES 0x0200
#define ICC_COOL_CLASSES 0x0400
#define ICC_INTERNET_CLASSES 0x0800
#define ICC_PAGESCROLLER_CLASS 0x1000
#define ICC_NATIVEFNTCTL_CLASS 0x2000
#define ICC_STANDARD_CLASSES 0x4000
#define ICC_LINK_CLASS 0x8000

struct tagINITCOMMONCONTROLSEX {
    DWORD dwSize;
    DWORD dwICC; ///< ICC_*.
};
using INITCOMMONCONTROLSEX = tagINITCOMMONCONTROLSEX;
using LPINITCOMMONCONTROLSEX = INITCOMMONCONTROLSEX *;

#define WC_LISTVIEWW L"SysListView32"
#define WC_LISTVIEW WC_LISTVIEWW
#define WC_TREEVIEWW L"SysTreeView32"
#define WC_TREEVIEW WC_TREEVIEWW
#define WC_TABCONTROLW L"SysTabControl32"
#define WC_TABCONTROL WC_TABCONTROLW
#define WC_HEADERW L"SysHeader32"
#define WC_HEADER WC_HEADERW
#define WC_BUTTONW L"Button"
#define WC_BUTTON WC_BUTTONW
#define WC_STATICW L"Static"
#define WC_STATIC WC_STATICW
#define WC_EDITW L"Edit"
#define WC_EDIT WC_EDITW
#define WC_LISTBOXW L"ListBox"
#define WC_LISTBOX WC_LISTBOXW
#define WC_COMBOBOXW L"ComboBox"
#define WC_COMBOBOX WC_COMBOBOXW
#define WC_SCROLLBARW L"ScrollBar"
#define WC_SCROLLBAR WC_SCROLLBARW
#define TRACKBAR_CLASSW L"msctls_trackbar32"
#define TRACKBAR_CLASS TRACKBAR_CLASSW
#define UPDOWN_CLASSW L"msctls_updown32"
#define UPDOWN_CLASS UPDOWN_CLASSW
#define TOOLTIPS_CLASSW L"tooltips_class32"
#define TOOLTIPS_CLASS TOOLTIPS_CLASSW
#define PROGRESS_CLASSW L"msctls_progress32"
#define PROGRESS_CLASS PROGRESS_CLASSW
#define STATUSCLASSNAMEW L"msctls_statusbar32"
#define STATUSCLASSNAME STATUSCLASSNAMEW
#define TOOLBARCLASSNAMEW L"ToolbarWindow32"
#define TOOLBARCLASSNAME TOOLBARCLASSNAMEW

// ---------------------------------------------------------------------------------------------------------
// In the place of a text or of a number in an item's record: what the owner is asked for
// ---------------------------------------------------------------------------------------------------------

/// The text is asked for when it is needed. A value, never to be read as a text.
#define LPSTR_TEXTCALLBACKW KxHandleFromValue<LPWSTR>(-1)
#define LPSTR_TEXTCALLBACK LPSTR_TEXTCALLBACKW

#define I_INDENTCALLBACK (-1)
#define I_GROUPIDCALLBACK (-1)
#define I_GROUPIDNONE (-2)
#define I_IMAGECALLBACK (-1)
#define I_IMAGENONE (-2)
#define I_COLUMNSCALLBACK 0xFFFFFFFF
#define I_CHILDRENCALLBACK (-1)
#define I_CHILDRENAUTO (-2)

/// The state that chooses an image of the state image list; images count from 1, 0 is none. A macro on
/// Windows.
constexpr UINT INDEXTOSTATEIMAGEMASK(UINT index)
{
    return index << 12;
}

/// The state or drawing flags that choose an overlay image; a macro on Windows.
constexpr UINT INDEXTOOVERLAYMASK(UINT index)
{
    return index << 8;
}
