// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The tree view of Win32: styles, messages, notifications and records, with their values and the layout of
/// 64-bit Windows. Include KxWinTypes.h, which brings this header.

#include "KxWinNotifications.h"

// ---------------------------------------------------------------------------------------------------------
// Styles
// ---------------------------------------------------------------------------------------------------------

#define TVS_HASBUTTONS 0x0001
#define TVS_HASLINES 0x0002
#define TVS_LINESATROOT 0x0004
#define TVS_EDITLABELS 0x0008
#define TVS_DISABLEDRAGDROP 0x0010
#define TVS_SHOWSELALWAYS 0x0020
#define TVS_RTLREADING 0x0040
#define TVS_NOTOOLTIPS 0x0080
#define TVS_CHECKBOXES 0x0100
#define TVS_TRACKSELECT 0x0200
#define TVS_SINGLEEXPAND 0x0400
#define TVS_INFOTIP 0x0800
#define TVS_FULLROWSELECT 0x1000
#define TVS_NOSCROLL 0x2000
#define TVS_NONEVENHEIGHT 0x4000
#define TVS_NOHSCROLL 0x8000
#define TVS_EX_NOSINGLECOLLAPSE 0x0001
#define TVS_EX_MULTISELECT 0x0002
#define TVS_EX_DOUBLEBUFFER 0x0004
#define TVS_EX_NOINDENTSTATE 0x0008
#define TVS_EX_RICHTOOLTIP 0x0010
#define TVS_EX_AUTOHSCROLL 0x0020
#define TVS_EX_FADEINOUTEXPANDOS 0x0040
#define TVS_EX_PARTIALCHECKBOXES 0x0080
#define TVS_EX_EXCLUSIONCHECKBOXES 0x0100
#define TVS_EX_DIMMEDCHECKBOXES 0x0200
#define TVS_EX_DRAWIMAGEASYNC 0x0400

// ---------------------------------------------------------------------------------------------------------
// Items
// ---------------------------------------------------------------------------------------------------------

// Items that stand for a place, as parent or as the one to insert after. Values, never to be followed.
#define TVI_ROOT KxHandleFromValue<HTREEITEM>(-0x10000)
#define TVI_FIRST KxHandleFromValue<HTREEITEM>(-0xFFFF)
#define TVI_LAST KxHandleFromValue<HTREEITEM>(-0xFFFE)
#define TVI_SORT KxHandleFromValue<HTREEITEM>(-0xFFFD)

#define TVIF_TEXT 0x0001
#define TVIF_IMAGE 0x0002
#define TVIF_PARAM 0x0004
#define TVIF_STATE 0x0008
#define TVIF_HANDLE 0x0010
#define TVIF_SELECTEDIMAGE 0x0020
#define TVIF_CHILDREN 0x0040
#define TVIF_INTEGRAL 0x0080
#define TVIF_STATEEX 0x0100
#define TVIF_EXPANDEDIMAGE 0x0200
#define TVIF_DI_SETITEM 0x1000

#define TVIS_SELECTED 0x0002
#define TVIS_CUT 0x0004
#define TVIS_DROPHILITED 0x0008
#define TVIS_BOLD 0x0010
#define TVIS_EXPANDED 0x0020
#define TVIS_EXPANDEDONCE 0x0040
#define TVIS_EXPANDPARTIAL 0x0080
#define TVIS_OVERLAYMASK 0x0F00
#define TVIS_STATEIMAGEMASK 0xF000
#define TVIS_USERMASK 0xF000
#define TVIS_EX_FLAT 0x0001
#define TVIS_EX_DISABLED 0x0002
#define TVIS_EX_ALL 0x0002

#define TVGN_ROOT 0
#define TVGN_NEXT 1
#define TVGN_PREVIOUS 2
#define TVGN_PARENT 3
#define TVGN_CHILD 4
#define TVGN_FIRSTVISIBLE 5
#define TVGN_NEXTVISIBLE 6
#define TVGN_PREVIOUSVISIBLE 7
#define TVGN_DROPHILITE 8
#define TVGN_CARET 9
#define TVGN_LASTVISIBLE 10
#define TVGN_NEXTSELECTED 11

#define TVE_COLLAPSE 0x0001
#define TVE_EXPAND 0x0002
#define TVE_TOGGLE 0x0003
#define TVE_EXPANDPARTIAL 0x4000
#define TVE_COLLAPSERESET 0x8000

#define TVSI_NOSINGLEEXPAND 0x8000

#define TVSIL_NORMAL 0
#define TVSIL_STATE 2

#define TVSBF_XBORDER 0x0001
#define TVSBF_YBORDER 0x0002

#define TVHT_NOWHERE 0x0001
#define TVHT_ONITEMICON 0x0002
#define TVHT_ONITEMLABEL 0x0004
#define TVHT_ONITEM 0x0046
#define TVHT_ONITEMINDENT 0x0008
#define TVHT_ONITEMBUTTON 0x0010
#define TVHT_ONITEMRIGHT 0x0020
#define TVHT_ONITEMSTATEICON 0x0040
#define TVHT_ABOVE 0x0100
#define TVHT_BELOW 0x0200
#define TVHT_TORIGHT 0x0400
#define TVHT_TOLEFT 0x0800

struct TVITEMW {
    UINT mask; ///< TVIF_*.
    HTREEITEM hItem;
    UINT state; ///< TVIS_*.
    UINT stateMask; ///< The bits of `state` that count.
    LPWSTR pszText;
    int cchTextMax; ///< Characters that pszText has room for when it is to be filled.
    int iImage;
    int iSelectedImage;
    int cChildren;
    LPARAM lParam;
};
using tagTVITEMW = TVITEMW;
using LPTVITEMW = TVITEMW *;
using TV_ITEMW = TVITEMW;
using LPTV_ITEMW = LPTVITEMW;
using TVITEM = TVITEMW;
using LPTVITEM = LPTVITEMW;
using TV_ITEM = TVITEMW;
using LPTV_ITEM = LPTVITEMW;

struct tagTVITEMEXW {
    UINT mask;
    HTREEITEM hItem;
    UINT state;
    UINT stateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    int iSelectedImage;
    int cChildren;
    LPARAM lParam;
    int iIntegral;
    UINT uStateEx; ///< TVIS_EX_*.
    HWND hwnd;
    int iExpandedImage;
    int iReserved;
};
using TVITEMEXW = tagTVITEMEXW;
using LPTVITEMEXW = TVITEMEXW *;
using TVITEMEX = TVITEMEXW;
using LPTVITEMEX = LPTVITEMEXW;

/// What is to be inserted, and where. Of Windows' union of `item` and `itemex` there is `item`; the fields
/// that only `itemex` has follow it, at their places, so that offsets and size are Windows'.
struct TVINSERTSTRUCTW {
    HTREEITEM hParent;
    HTREEITEM hInsertAfter;
    TVITEMW item;
    int iIntegral;
    UINT uStateEx;
    HWND hwnd;
    int iExpandedImage;
    int iReserved;
};
using tagTVINSERTSTRUCTW = TVINSERTSTRUCTW;
using LPTVINSERTSTRUCTW = TVINSERTSTRUCTW *;
using TV_INSERTSTRUCTW = TVINSERTSTRUCTW;
using LPTV_INSERTSTRUCTW = LPTVINSERTSTRUCTW;
using TVINSERTSTRUCT = TVINSERTSTRUCTW;
using LPTVINSERTSTRUCT = LPTVINSERTSTRUCTW;
using TV_INSERTSTRUCT = TVINSERTSTRUCTW;
using LPTV_INSERTSTRUCT = LPTVINSERTSTRUCTW;

struct tagTVHITTESTINFO {
    POINT pt; ///< In pixels of the client area.
    UINT flags; ///< TVHT_*.
    HTREEITEM hItem;
};
using TVHITTESTINFO = tagTVHITTESTINFO;
using LPTVHITTESTINFO = TVHITTESTINFO *;
using TV_HITTESTINFO = TVHITTESTINFO;
using LPTV_HITTESTINFO = LPTVHITTESTINFO;

/// Of two items' lParam and a number of the caller's: negative when the first comes first.
using PFNTVCOMPARE = int (CALLBACK *)(LPARAM, LPARAM, LPARAM);

struct tagTVSORTCB {
    HTREEITEM hParent;
    PFNTVCOMPARE lpfnCompare;
    LPARAM lParam; ///< The comparison's third argument.
};
using TVSORTCB = tagTVSORTCB;
using LPTVSORTCB = TVSORTCB *;
using TV_SORTCB = TVSORTCB;
using LPTV_SORTCB = LPTVSORTCB;

// ---------------------------------------------------------------------------------------------------------
// Messages
// ---------------------------------------------------------------------------------------------------------

#define TV_FIRST 0x1100

#define TVM_INSERTITEMW 0x1132
#define TVM_INSERTITEM TVM_INSERTITEMW
#define TVM_DELETEITEM 0x1101
#define TVM_EXPAND 0x1102
#define TVM_GETITEMRECT 0x1104
#define TVM_GETCOUNT 0x1105
#define TVM_GETINDENT 0x1106
#define TVM_SETINDENT 0x1107
#define TVM_GETIMAGELIST 0x1108
#define TVM_SETIMAGELIST 0x1109
#define TVM_GETNEXTITEM 0x110A
#define TVM_SELECTITEM 0x110B
#define TVM_GETITEMW 0x113E
#define TVM_GETITEM TVM_GETITEMW
#define TVM_SETITEMW 0x113F
#define TVM_SETITEM TVM_SETITEMW
#define TVM_EDITLABELW 0x1141
#define TVM_EDITLABEL TVM_EDITLABELW
#define TVM_GETEDITCONTROL 0x110F
#define TVM_GETVISIBLECOUNT 0x1110
#define TVM_HITTEST 0x1111
#define TVM_CREATEDRAGIMAGE 0x1112
#define TVM_SORTCHILDREN 0x1113
#define TVM_ENSUREVISIBLE 0x1114
#define TVM_SORTCHILDRENCB 0x1115
#define TVM_ENDEDITLABELNOW 0x1116
#define TVM_GETISEARCHSTRINGW 0x1140
#define TVM_GETISEARCHSTRING TVM_GETISEARCHSTRINGW
#define TVM_SETTOOLTIPS 0x1118
#define TVM_GETTOOLTIPS 0x1119
#define TVM_SETINSERTMARK 0x111A
#define TVM_SETUNICODEFORMAT 0x2005
#define TVM_GETUNICODEFORMAT 0x2006
#define TVM_SETITEMHEIGHT 0x111B
#define TVM_GETITEMHEIGHT 0x111C
#define TVM_SETBKCOLOR 0x111D
#define TVM_SETTEXTCOLOR 0x111E
#define TVM_GETBKCOLOR 0x111F
#define TVM_GETTEXTCOLOR 0x1120
#define TVM_SETSCROLLTIME 0x1121
#define TVM_GETSCROLLTIME 0x1122
#define TVM_SETBORDER 0x1123
#define TVM_SETINSERTMARKCOLOR 0x1125
#define TVM_GETINSERTMARKCOLOR 0x1126
#define TVM_GETITEMSTATE 0x1127
#define TVM_SETLINECOLOR 0x1128
#define TVM_GETLINECOLOR 0x1129
#define TVM_MAPACCIDTOHTREEITEM 0x112A
#define TVM_MAPHTREEITEMTOACCID 0x112B
#define TVM_SETEXTENDEDSTYLE 0x112C
#define TVM_GETEXTENDEDSTYLE 0x112D
#define TVM_SETHOT 0x113A
#define TVM_SETAUTOSCROLLINFO 0x113B
#define TVM_GETSELECTEDCOUNT 0x1146
#define TVM_SHOWINFOTIP 0x1147
#define TVM_GETITEMPARTRECT 0x1148

// ---------------------------------------------------------------------------------------------------------
// Notifications
// ---------------------------------------------------------------------------------------------------------

#define TVN_FIRST 0xFFFFFE70
#define TVN_LAST 0xFFFFFE0D
#define TVN_SELCHANGINGA 0xFFFFFE6F
#define TVN_SELCHANGINGW 0xFFFFFE3E
#define TVN_SELCHANGEDA 0xFFFFFE6E
#define TVN_SELCHANGEDW 0xFFFFFE3D
#define TVN_GETDISPINFOA 0xFFFFFE6D
#define TVN_GETDISPINFOW 0xFFFFFE3C
#define TVN_SETDISPINFOA 0xFFFFFE6C
#define TVN_SETDISPINFOW 0xFFFFFE3B
#define TVN_ITEMEXPANDINGA 0xFFFFFE6B
#define TVN_ITEMEXPANDINGW 0xFFFFFE3A
#define TVN_ITEMEXPANDEDA 0xFFFFFE6A
#define TVN_ITEMEXPANDEDW 0xFFFFFE39
#define TVN_BEGINDRAGA 0xFFFFFE69
#define TVN_BEGINDRAGW 0xFFFFFE38
#define TVN_BEGINRDRAGA 0xFFFFFE68
#define TVN_BEGINRDRAGW 0xFFFFFE37
#define TVN_DELETEITEMA 0xFFFFFE67
#define TVN_DELETEITEMW 0xFFFFFE36
#define TVN_BEGINLABELEDITA 0xFFFFFE66
#define TVN_BEGINLABELEDITW 0xFFFFFE35
#define TVN_ENDLABELEDITA 0xFFFFFE65
#define TVN_ENDLABELEDITW 0xFFFFFE34
#define TVN_KEYDOWN 0xFFFFFE64
#define TVN_GETINFOTIPA 0xFFFFFE63
#define TVN_GETINFOTIPW 0xFFFFFE62
#define TVN_SINGLEEXPAND 0xFFFFFE61
#define TVN_ITEMCHANGINGA 0xFFFFFE60
#define TVN_ITEMCHANGINGW 0xFFFFFE5F
#define TVN_ITEMCHANGEDA 0xFFFFFE5E
#define TVN_ITEMCHANGEDW 0xFFFFFE5D
#define TVN_ASYNCDRAW 0xFFFFFE5C
#define TVN_SELCHANGING TVN_SELCHANGINGW
#define TVN_SELCHANGED TVN_SELCHANGEDW
#define TVN_GETDISPINFO TVN_GETDISPINFOW
#define TVN_SETDISPINFO TVN_SETDISPINFOW
#define TVN_ITEMEXPANDING TVN_ITEMEXPANDINGW
#define TVN_ITEMEXPANDED TVN_ITEMEXPANDEDW
#define TVN_BEGINDRAG TVN_BEGINDRAGW
#define TVN_BEGINRDRAG TVN_BEGINRDRAGW
#define TVN_DELETEITEM TVN_DELETEITEMW
#define TVN_BEGINLABELEDIT TVN_BEGINLABELEDITW
#define TVN_ENDLABELEDIT TVN_ENDLABELEDITW
#define TVN_GETINFOTIP TVN_GETINFOTIPW
#define TVN_ITEMCHANGING TVN_ITEMCHANGINGW
#define TVN_ITEMCHANGED TVN_ITEMCHANGEDW

#define TVC_UNKNOWN 0
#define TVC_BYMOUSE 1
#define TVC_BYKEYBOARD 2

#define TVNRET_DEFAULT 0
#define TVNRET_SKIPOLD 1
#define TVNRET_SKIPNEW 2

#define TVCDRF_NOIMAGES 0x00010000

struct tagNMTREEVIEWW {
    NMHDR hdr;
    UINT action; ///< TVE_* of an expansion, TVC_* of a selection.
    TVITEMW itemOld;
    TVITEMW itemNew;
    POINT ptDrag;
};
using NMTREEVIEWW = tagNMTREEVIEWW;
using LPNMTREEVIEWW = NMTREEVIEWW *;
using NM_TREEVIEWW = NMTREEVIEWW;
using LPNM_TREEVIEWW = LPNMTREEVIEWW;
using NMTREEVIEW = NMTREEVIEWW;
using LPNMTREEVIEW = LPNMTREEVIEWW;
using NM_TREEVIEW = NMTREEVIEWW;
using LPNM_TREEVIEW = LPNMTREEVIEWW;

struct tagTVDISPINFOW {
    NMHDR hdr;
    TVITEMW item;
};
using NMTVDISPINFOW = tagTVDISPINFOW;
using LPNMTVDISPINFOW = NMTVDISPINFOW *;
using TV_DISPINFOW = NMTVDISPINFOW;
using NMTVDISPINFO = NMTVDISPINFOW;
using LPNMTVDISPINFO = LPNMTVDISPINFOW;
using TV_DISPINFO = NMTVDISPINFOW;

struct tagNMTVCUSTOMDRAW {
    NMCUSTOMDRAW nmcd;
    COLORREF clrText;
    COLORREF clrTextBk;
    int iLevel;
};
using NMTVCUSTOMDRAW = tagNMTVCUSTOMDRAW;
using LPNMTVCUSTOMDRAW = NMTVCUSTOMDRAW *;

struct tagNMTVGETINFOTIPW {
    NMHDR hdr;
    LPWSTR pszText;
    int cchTextMax;
    HTREEITEM hItem;
    LPARAM lParam;
};
using NMTVGETINFOTIPW = tagNMTVGETINFOTIPW;
using LPNMTVGETINFOTIPW = NMTVGETINFOTIPW *;
using NMTVGETINFOTIP = NMTVGETINFOTIPW;
using LPNMTVGETINFOTIP = LPNMTVGETINFOTIPW;

struct tagTVITEMCHANGE {
    NMHDR hdr;
    UINT uChanged;
    HTREEITEM hItem;
    UINT uStateNew;
    UINT uStateOld;
    LPARAM lParam;
};
using NMTVITEMCHANGE = tagTVITEMCHANGE;

#pragma pack(push, 1)
struct tagTVKEYDOWN {
    NMHDR hdr;
    WORD wVKey; ///< VK_*.
    UINT flags;
};
#pragma pack(pop)
using NMTVKEYDOWN = tagTVKEYDOWN;
using LPNMTVKEYDOWN = NMTVKEYDOWN *;
using TV_KEYDOWN = NMTVKEYDOWN;
