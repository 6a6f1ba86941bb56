// SPDX-License-Identifier: MIT
// The ON_WM_* macros: each records its message under Windows' number, with a handler of the name and type
// that MFC documents.

#include "KxTestCase.h"

#include <afxwin.h>

// Macro, message number, handler, its result and its arguments.
#define WINDOW_MESSAGES(X) \
    X(ON_WM_ACTIVATE, 0x0006, OnActivate, void, (UINT, CWnd *, BOOL)) \
    X(ON_WM_ACTIVATEAPP, 0x001C, OnActivateApp, void, (BOOL, DWORD)) \
    X(ON_WM_APPCOMMAND, 0x0319, OnAppCommand, void, (CWnd *, UINT, UINT, UINT)) \
    X(ON_WM_ASKCBFORMATNAME, 0x030C, OnAskCbFormatName, void, (UINT, LPTSTR)) \
    X(ON_WM_CANCELMODE, 0x001F, OnCancelMode, void, ()) \
    X(ON_WM_CAPTURECHANGED, 0x0215, OnCaptureChanged, void, (CWnd *)) \
    X(ON_WM_CHANGECBCHAIN, 0x030D, OnChangeCbChain, void, (HWND, HWND)) \
    X(ON_WM_CHANGEUISTATE, 0x0127, OnChangeUIState, void, (UINT, UINT)) \
    X(ON_WM_CHAR, 0x0102, OnChar, void, (UINT, UINT, UINT)) \
    X(ON_WM_CHARTOITEM, 0x002F, OnCharToItem, int, (UINT, CListBox *, UINT)) \
    X(ON_WM_CHILDACTIVATE, 0x0022, OnChildActivate, void, ()) \
    X(ON_WM_CLIPBOARDUPDATE, 0x031D, OnClipboardUpdate, void, ()) \
    X(ON_WM_CLOSE, 0x0010, OnClose, void, ()) \
    X(ON_WM_COMPACTING, 0x0041, OnCompacting, void, (UINT)) \
    X(ON_WM_COMPAREITEM, 0x0039, OnCompareItem, int, (int, LPCOMPAREITEMSTRUCT)) \
    X(ON_WM_CONTEXTMENU, 0x007B, OnContextMenu, void, (CWnd *, CPoint)) \
    X(ON_WM_COPYDATA, 0x004A, OnCopyData, BOOL, (CWnd *, COPYDATASTRUCT *)) \
    X(ON_WM_CREATE, 0x0001, OnCreate, int, (LPCREATESTRUCT)) \
    X(ON_WM_CTLCOLOR, 0x0019, OnCtlColor, HBRUSH, (CDC *, CWnd *, UINT)) \
    X(ON_WM_DEADCHAR, 0x0103, OnDeadChar, void, (UINT, UINT, UINT)) \
    X(ON_WM_DELETEITEM, 0x002D, OnDeleteItem, void, (int, LPDELETEITEMSTRUCT)) \
    X(ON_WM_DESTROY, 0x0002, OnDestroy, void, ()) \
    X(ON_WM_DESTROYCLIPBOARD, 0x0307, OnDestroyClipboard, void, ()) \
    X(ON_WM_DEVICECHANGE, 0x0219, OnDeviceChange, BOOL, (UINT, DWORD_PTR)) \
    X(ON_WM_DEVMODECHANGE, 0x001B, OnDevModeChange, void, (LPTSTR)) \
    X(ON_WM_DRAWCLIPBOARD, 0x0308, OnDrawClipboard, void, ()) \
    X(ON_WM_DRAWITEM, 0x002B, OnDrawItem, void, (int, LPDRAWITEMSTRUCT)) \
    X(ON_WM_DROPFILES, 0x0233, OnDropFiles, void, (HDROP)) \
    X(ON_WM_DWMCOLORIZATIONCOLORCHANGED, 0x0320, OnColorizationColorChanged, void, (DWORD, BOOL)) \
    X(ON_WM_DWMCOMPOSITIONCHANGED, 0x031E, OnCompositionChanged, void, ()) \
    X(ON_WM_DWMNCRENDERINGCHANGED, 0x031F, OnNcRenderingChanged, void, (BOOL)) \
    X(ON_WM_DWMWINDOWMAXIMIZEDCHANGE, 0x0321, OnWindowMaximizedChanged, void, (BOOL)) \
    X(ON_WM_ENABLE, 0x000A, OnEnable, void, (BOOL)) \
    X(ON_WM_ENDSESSION, 0x0016, OnEndSession, void, (BOOL)) \
    X(ON_WM_ENTERIDLE, 0x0121, OnEnterIdle, void, (UINT, CWnd *)) \
    X(ON_WM_ENTERMENULOOP, 0x0211, OnEnterMenuLoop, void, (BOOL)) \
    X(ON_WM_ENTERSIZEMOVE, 0x0231, OnEnterSizeMove, void, ()) \
    X(ON_WM_ERASEBKGND, 0x0014, OnEraseBkgnd, BOOL, (CDC *)) \
    X(ON_WM_EXITMENULOOP, 0x0212, OnExitMenuLoop, void, (BOOL)) \
    X(ON_WM_EXITSIZEMOVE, 0x0232, OnExitSizeMove, void, ()) \
    X(ON_WM_FONTCHANGE, 0x001D, OnFontChange, void, ()) \
    X(ON_WM_GETDLGCODE, 0x0087, OnGetDlgCode, UINT, ()) \
    X(ON_WM_GETMINMAXINFO, 0x0024, OnGetMinMaxInfo, void, (MINMAXINFO *)) \
    X(ON_WM_HELPINFO, 0x0053, OnHelpInfo, BOOL, (HELPINFO *)) \
    X(ON_WM_HOTKEY, 0x0312, OnHotKey, void, (UINT, UINT, UINT)) \
    X(ON_WM_HSCROLL, 0x0114, OnHScroll, void, (UINT, UINT, CScrollBar *)) \
    X(ON_WM_HSCROLLCLIPBOARD, 0x030E, OnHScrollClipboard, void, (CWnd *, UINT, UINT)) \
    X(ON_WM_ICONERASEBKGND, 0x0027, OnIconEraseBkgnd, void, (CDC *)) \
    X(ON_WM_INITMENU, 0x0116, OnInitMenu, void, (CMenu *)) \
    X(ON_WM_INITMENUPOPUP, 0x0117, OnInitMenuPopup, void, (CMenu *, UINT, BOOL)) \
    X(ON_WM_INPUT, 0x00FF, OnRawInput, void, (UINT, HRAWINPUT)) \
    X(ON_WM_INPUTLANGCHANGE, 0x0051, OnInputLangChange, void, (UINT, UINT)) \
    X(ON_WM_INPUTLANGCHANGEREQUEST, 0x0050, OnInputLangChangeRequest, void, (UINT, UINT)) \
    X(ON_WM_INPUT_DEVICE_CHANGE, 0x00FE, OnInputDeviceChange, void, (unsigned short)) \
    X(ON_WM_KEYDOWN, 0x0100, OnKeyDown, void, (UINT, UINT, UINT)) \
    X(ON_WM_KEYUP, 0x0101, OnKeyUp, void, (UINT, UINT, UINT)) \
    X(ON_WM_KILLFOCUS, 0x0008, OnKillFocus, void, (CWnd *)) \
    X(ON_WM_LBUTTONDBLCLK, 0x0203, OnLButtonDblClk, void, (UINT, CPoint)) \
    X(ON_WM_LBUTTONDOWN, 0x0201, OnLButtonDown, void, (UINT, CPoint)) \
    X(ON_WM_LBUTTONUP, 0x0202, OnLButtonUp, void, (UINT, CPoint)) \
    X(ON_WM_MBUTTONDBLCLK, 0x0209, OnMButtonDblClk, void, (UINT, CPoint)) \
    X(ON_WM_MBUTTONDOWN, 0x0207, OnMButtonDown, void, (UINT, CPoint)) \
    X(ON_WM_MBUTTONUP, 0x0208, OnMButtonUp, void, (UINT, CPoint)) \
    X(ON_WM_MDIACTIVATE, 0x0222, OnMDIActivate, void, (BOOL, CWnd *, CWnd *)) \
    X(ON_WM_MEASUREITEM, 0x002C, OnMeasureItem, void, (int, LPMEASUREITEMSTRUCT)) \
    X(ON_WM_MENUCHAR, 0x0120, OnMenuChar, LRESULT, (UINT, UINT, CMenu *)) \
    X(ON_WM_MENUDRAG, 0x0123, OnMenuDrag, UINT, (UINT, CMenu *)) \
    X(ON_WM_MENUGETOBJECT, 0x0124, OnMenuGetObject, UINT, (MENUGETOBJECTINFO *)) \
    X(ON_WM_MENURBUTTONUP, 0x0122, OnMenuRButtonUp, void, (UINT, CMenu *)) \
    X(ON_WM_MENUSELECT, 0x011F, OnMenuSelect, void, (UINT, UINT, HMENU)) \
    X(ON_WM_MOUSEACTIVATE, 0x0021, OnMouseActivate, int, (CWnd *, UINT, UINT)) \
    X(ON_WM_MOUSEHOVER, 0x02A1, OnMouseHover, void, (UINT, CPoint)) \
    X(ON_WM_MOUSEHWHEEL, 0x020E, OnMouseHWheel, void, (UINT, short, CPoint)) \
    X(ON_WM_MOUSELEAVE, 0x02A3, OnMouseLeave, void, ()) \
    X(ON_WM_MOUSEMOVE, 0x0200, OnMouseMove, void, (UINT, CPoint)) \
    X(ON_WM_MOUSEWHEEL, 0x020A, OnMouseWheel, BOOL, (UINT, short, CPoint)) \
    X(ON_WM_MOVE, 0x0003, OnMove, void, (int, int)) \
    X(ON_WM_MOVING, 0x0216, OnMoving, void, (UINT, LPRECT)) \
    X(ON_WM_NCACTIVATE, 0x0086, OnNcActivate, BOOL, (BOOL)) \
    X(ON_WM_NCCALCSIZE, 0x0083, OnNcCalcSize, void, (BOOL, NCCALCSIZE_PARAMS *)) \
    X(ON_WM_NCCREATE, 0x0081, OnNcCreate, BOOL, (LPCREATESTRUCT)) \
    X(ON_WM_NCDESTROY, 0x0082, OnNcDestroy, void, ()) \
    X(ON_WM_NCHITTEST, 0x0084, OnNcHitTest, LRESULT, (CPoint)) \
    X(ON_WM_NCLBUTTONDBLCLK, 0x00A3, OnNcLButtonDblClk, void, (UINT, CPoint)) \
    X(ON_WM_NCLBUTTONDOWN, 0x00A1, OnNcLButtonDown, void, (UINT, CPoint)) \
    X(ON_WM_NCLBUTTONUP, 0x00A2, OnNcLButtonUp, void, (UINT, CPoint)) \
    X(ON_WM_NCMBUTTONDBLCLK, 0x00A9, OnNcMButtonDblClk, void, (UINT, CPoint)) \
    X(ON_WM_NCMBUTTONDOWN, 0x00A7, OnNcMButtonDown, void, (UINT, CPoint)) \
    X(ON_WM_NCMBUTTONUP, 0x00A8, OnNcMButtonUp, void, (UINT, CPoint)) \
    X(ON_WM_NCMOUSEHOVER, 0x02A0, OnNcMouseHover, void, (UINT, CPoint)) \
    X(ON_WM_NCMOUSELEAVE, 0x02A2, OnNcMouseLeave, void, ()) \
    X(ON_WM_NCMOUSEMOVE, 0x00A0, OnNcMouseMove, void, (UINT, CPoint)) \
    X(ON_WM_NCPAINT, 0x0085, OnNcPaint, void, ()) \
    X(ON_WM_NCRBUTTONDBLCLK, 0x00A6, OnNcRButtonDblClk, void, (UINT, CPoint)) \
    X(ON_WM_NCRBUTTONDOWN, 0x00A4, OnNcRButtonDown, void, (UINT, CPoint)) \
    X(ON_WM_NCRBUTTONUP, 0x00A5, OnNcRButtonUp, void, (UINT, CPoint)) \
    X(ON_WM_NCXBUTTONDBLCLK, 0x00AD, OnNcXButtonDblClk, void, (short, UINT, CPoint)) \
    X(ON_WM_NCXBUTTONDOWN, 0x00AB, OnNcXButtonDown, void, (short, UINT, CPoint)) \
    X(ON_WM_NCXBUTTONUP, 0x00AC, OnNcXButtonUp, void, (short, UINT, CPoint)) \
    X(ON_WM_NEXTMENU, 0x0213, OnNextMenu, void, (UINT, LPMDINEXTMENU)) \
    X(ON_WM_NOTIFYFORMAT, 0x0055, OnNotifyFormat, UINT, (CWnd *, UINT)) \
    X(ON_WM_PAINT, 0x000F, OnPaint, void, ()) \
    X(ON_WM_PAINTCLIPBOARD, 0x0309, OnPaintClipboard, void, (CWnd *, HGLOBAL)) \
    X(ON_WM_PALETTECHANGED, 0x0311, OnPaletteChanged, void, (CWnd *)) \
    X(ON_WM_PALETTEISCHANGING, 0x0310, OnPaletteIsChanging, void, (CWnd *)) \
    X(ON_WM_PARENTNOTIFY, 0x0210, OnParentNotify, void, (UINT, LPARAM)) \
    X(ON_WM_POWERBROADCAST, 0x0218, OnPowerBroadcast, UINT, (UINT, UINT)) \
    X(ON_WM_QUERYDRAGICON, 0x0037, OnQueryDragIcon, HCURSOR, ()) \
    X(ON_WM_QUERYENDSESSION, 0x0011, OnQueryEndSession, BOOL, ()) \
    X(ON_WM_QUERYNEWPALETTE, 0x030F, OnQueryNewPalette, BOOL, ()) \
    X(ON_WM_QUERYOPEN, 0x0013, OnQueryOpen, BOOL, ()) \
    X(ON_WM_QUERYUISTATE, 0x0129, OnQueryUIState, UINT, ()) \
    X(ON_WM_RBUTTONDBLCLK, 0x0206, OnRButtonDblClk, void, (UINT, CPoint)) \
    X(ON_WM_RBUTTONDOWN, 0x0204, OnRButtonDown, void, (UINT, CPoint)) \
    X(ON_WM_RBUTTONUP, 0x0205, OnRButtonUp, void, (UINT, CPoint)) \
    X(ON_WM_RENDERALLFORMATS, 0x0306, OnRenderAllFormats, void, ()) \
    X(ON_WM_RENDERFORMAT, 0x0305, OnRenderFormat, void, (UINT)) \
    X(ON_WM_SETCURSOR, 0x0020, OnSetCursor, BOOL, (CWnd *, UINT, UINT)) \
    X(ON_WM_SETFOCUS, 0x0007, OnSetFocus, void, (CWnd *)) \
    X(ON_WM_SETTINGCHANGE, 0x001A, OnSettingChange, void, (UINT, LPCTSTR)) \
    X(ON_WM_SHOWWINDOW, 0x0018, OnShowWindow, void, (BOOL, UINT)) \
    X(ON_WM_SIZE, 0x0005, OnSize, void, (UINT, int, int)) \
    X(ON_WM_SIZECLIPBOARD, 0x030B, OnSizeClipboard, void, (CWnd *, HGLOBAL)) \
    X(ON_WM_SIZING, 0x0214, OnSizing, void, (UINT, LPRECT)) \
    X(ON_WM_SPOOLERSTATUS, 0x002A, OnSpoolerStatus, void, (UINT, UINT)) \
    X(ON_WM_STYLECHANGED, 0x007D, OnStyleChanged, void, (int, LPSTYLESTRUCT)) \
    X(ON_WM_STYLECHANGING, 0x007C, OnStyleChanging, void, (int, LPSTYLESTRUCT)) \
    X(ON_WM_SYSCHAR, 0x0106, OnSysChar, void, (UINT, UINT, UINT)) \
    X(ON_WM_SYSCOLORCHANGE, 0x0015, OnSysColorChange, void, ()) \
    X(ON_WM_SYSCOMMAND, 0x0112, OnSysCommand, void, (UINT, LPARAM)) \
    X(ON_WM_SYSDEADCHAR, 0x0107, OnSysDeadChar, void, (UINT, UINT, UINT)) \
    X(ON_WM_SYSKEYDOWN, 0x0104, OnSysKeyDown, void, (UINT, UINT, UINT)) \
    X(ON_WM_SYSKEYUP, 0x0105, OnSysKeyUp, void, (UINT, UINT, UINT)) \
    X(ON_WM_TCARD, 0x0052, OnTCard, void, (UINT, DWORD)) \
    X(ON_WM_TIMECHANGE, 0x001E, OnTimeChange, void, ()) \
    X(ON_WM_TIMER, 0x0113, OnTimer, void, (UINT_PTR)) \
    X(ON_WM_UNICHAR, 0x0109, OnUniChar, void, (UINT, UINT, UINT)) \
    X(ON_WM_UNINITMENUPOPUP, 0x0125, OnUnInitMenuPopup, void, (CMenu *, UINT)) \
    X(ON_WM_UPDATEUISTATE, 0x0128, OnUpdateUIState, void, (UINT, UINT)) \
    X(ON_WM_USERCHANGED, 0x0054, OnUserChanged, void, ()) \
    X(ON_WM_VKEYTOITEM, 0x002E, OnVKeyToItem, int, (UINT, CListBox *, UINT)) \
    X(ON_WM_VSCROLL, 0x0115, OnVScroll, void, (UINT, UINT, CScrollBar *)) \
    X(ON_WM_VSCROLLCLIPBOARD, 0x030A, OnVScrollClipboard, void, (CWnd *, UINT, UINT)) \
    X(ON_WM_WINDOWPOSCHANGED, 0x0047, OnWindowPosChanged, void, (WINDOWPOS *)) \
    X(ON_WM_WINDOWPOSCHANGING, 0x0046, OnWindowPosChanging, void, (WINDOWPOS *)) \
    X(ON_WM_WININICHANGE, 0x001A, OnWinIniChange, void, (LPCTSTR)) \
    X(ON_WM_WTSSESSION_CHANGE, 0x02B1, OnSessionChange, void, (UINT, UINT)) \
    X(ON_WM_XBUTTONDBLCLK, 0x020D, OnXButtonDblClk, void, (UINT, UINT, CPoint)) \
    X(ON_WM_XBUTTONDOWN, 0x020B, OnXButtonDown, void, (UINT, UINT, CPoint)) \
    X(ON_WM_XBUTTONUP, 0x020C, OnXButtonUp, void, (UINT, UINT, CPoint))

#define REFLECTED_MESSAGES(X) \
    X(ON_WM_CHARTOITEM_REFLECT, 0xBC2F, CharToItem, int, (UINT, UINT)) \
    X(ON_WM_COMPAREITEM_REFLECT, 0xBC39, CompareItem, int, (LPCOMPAREITEMSTRUCT)) \
    X(ON_WM_CTLCOLOR_REFLECT, 0xBC19, CtlColor, HBRUSH, (CDC *, UINT)) \
    X(ON_WM_DELETEITEM_REFLECT, 0xBC2D, DeleteItem, void, (LPDELETEITEMSTRUCT)) \
    X(ON_WM_DRAWITEM_REFLECT, 0xBC2B, DrawItem, void, (LPDRAWITEMSTRUCT)) \
    X(ON_WM_HSCROLL_REFLECT, 0xBD14, HScroll, void, (UINT, UINT)) \
    X(ON_WM_MEASUREITEM_REFLECT, 0xBC2C, MeasureItem, void, (LPMEASUREITEMSTRUCT)) \
    X(ON_WM_PARENTNOTIFY_REFLECT, 0xBE10, ParentNotify, void, (UINT, LPARAM)) \
    X(ON_WM_VKEYTOITEM_REFLECT, 0xBC2E, VKeyToItem, int, (UINT, UINT)) \
    X(ON_WM_VSCROLL_REFLECT, 0xBD15, VScroll, void, (UINT, UINT))

namespace {

QByteArray calledHandler;

#define HANDLER(macro, number, handler, result, arguments) \
    afx_msg result handler arguments \
    { \
        calledHandler = #handler; \
        return result(); \
    }
#define LINE(macro, number, handler, result, arguments) macro()

class CEveryMessageWnd : public CWnd
{
private:
    WINDOW_MESSAGES(HANDLER)
    REFLECTED_MESSAGES(HANDLER)
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CEveryMessageWnd, CWnd)
    WINDOW_MESSAGES(LINE)
    REFLECTED_MESSAGES(LINE)
END_MESSAGE_MAP()

/// Calls a handler of any type with zeros.
template<typename Result, typename... Arguments>
bool call(CEveryMessageWnd &window, const AFX_MSGMAP_ENTRY *entry, Result (CWnd::*)(Arguments...))
{
    const auto handler = KxMessageHandler<Result (CWnd::*)(Arguments...)>(entry);
    if (handler)
        handler(&window, Arguments()...);
    return bool(handler);
}

using Call = bool (*)(CEveryMessageWnd &, const AFX_MSGMAP_ENTRY *);

} // namespace

Q_DECLARE_METATYPE(Call)

class TestWindowMessageMap : public KxTestCase
{
    Q_OBJECT

private slots:
    void macro_data();
    void macro();
    void recordsNothingElse();
};

void TestWindowMessageMap::macro_data()
{
    QTest::addColumn<uint>("number");
    QTest::addColumn<QByteArray>("handler");
    QTest::addColumn<Call>("call");

#define ROW(macro, number, handler, result, arguments) \
    QTest::newRow(#macro) << uint(number) << QByteArray(#handler) \
                          << Call([](CEveryMessageWnd &window, const AFX_MSGMAP_ENTRY *entry) { \
                                 using Handler = result (CWnd::*) arguments; \
                                 return ::call(window, entry, Handler()); \
                             });
    WINDOW_MESSAGES(ROW)
    REFLECTED_MESSAGES(ROW)
}

void TestWindowMessageMap::macro()
{
    QFETCH(uint, number);
    QFETCH(QByteArray, handler);
    QFETCH(Call, call);

    // WM_WININICHANGE and WM_SETTINGCHANGE are one number: a row finds its own line by the handler.
    CEveryMessageWnd window;
    bool typeFits = false;
    calledHandler.clear();
    for (auto *entry = CEveryMessageWnd::GetThisMessageMap()->lpEntries; entry->signature; ++entry) {
        if (entry->nMessage == number && call(window, entry)) {
            typeFits = true;
            QCOMPARE(entry->nCode, 0U);
            QCOMPARE(entry->nID, 0U);
            QCOMPARE(entry->nLastID, 0U);
        }
    }
    QVERIFY2(typeFits, "no line with this number has a handler of this type");
    QCOMPARE(calledHandler, handler);
}

void TestWindowMessageMap::recordsNothingElse()
{
#define ONE(macro, number, handler, result, arguments) +1
    const int expected = 0 WINDOW_MESSAGES(ONE) REFLECTED_MESSAGES(ONE);
    int lines = 0;
    for (auto *entry = CEveryMessageWnd::GetThisMessageMap()->lpEntries; entry->signature; ++entry)
        ++lines;
    QCOMPARE(lines, expected);
}

KX_TEST_MAIN(TestWindowMessageMap)

#include "tst_window_message_map.moc"
