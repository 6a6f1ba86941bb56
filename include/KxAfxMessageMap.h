// SPDX-License-Identifier: MIT
#pragma once

#include <cstring>
#include <typeinfo>
#include <utility>

#include "KxAfx.h"
#include "KxAfxGeometry.h"
#include "KxExport.h"
#include "KxWinTypes.h"

/// \file
/// MFC's message maps: which member function of a class handles which message.
///
/// The macros are written as in MFC and check the type of every handler at compile time. What they leave is a
/// static table for each class, chained to its base class's. Nothing in the library calls a handler by
/// itself: a host walks the maps with KxFindMessageEntry() and calls what it finds, typically from a slot:
///
/// \code
/// void clicked(CMyDialog *dialog, UINT id)
/// {
///     auto *entry = KxFindMessageEntry(CMyDialog::GetThisMessageMap(), WM_COMMAND, BN_CLICKED, id);
///     if (auto handler = KxMessageHandler<KxCommandHandler>(entry))
///         handler(dialog);
/// }
/// \endcode
///
/// A handler is named as `&CMyDialog::OnClicked`; it may be private. The bare `OnClicked` of older MFC source
/// needs GCC and its option -fms-extensions.

class CCmdUI;
class CDC;
class CListBox;
class CMenu;
class CScrollBar;
class CWnd;

// Known to handlers by pointer only; nothing here makes one.
struct HRAWINPUT__;
using HRAWINPUT = HRAWINPUT__ *;
struct tagMDINEXTMENU;
using LPMDINEXTMENU = tagMDINEXTMENU *;
struct tagMENUGETOBJECTINFO;
using MENUGETOBJECTINFO = tagMENUGETOBJECTINFO;

// ---- The table ----------------------------------------------------------------------------------------

/// The types of the handlers that are no window message's, one for each shape.
using KxCommandHandler = void (CCmdTarget::*)();                           ///< ON_COMMAND, ON_CONTROL
using KxCommandExHandler = BOOL (CCmdTarget::*)(UINT);                     ///< ON_COMMAND_EX
using KxCommandRangeHandler = void (CCmdTarget::*)(UINT);                  ///< ON_COMMAND_RANGE
using KxUpdateHandler = void (CCmdTarget::*)(CCmdUI *);                    ///< ON_UPDATE_COMMAND_UI
using KxNotifyHandler = void (CCmdTarget::*)(NMHDR *, LRESULT *);          ///< ON_NOTIFY
using KxNotifyRangeHandler = void (CCmdTarget::*)(UINT, NMHDR *, LRESULT *); ///< ON_NOTIFY_RANGE
using KxNotifyExHandler = BOOL (CCmdTarget::*)(UINT, NMHDR *, LRESULT *);  ///< ON_NOTIFY_EX
using KxReflectExHandler = BOOL (CCmdTarget::*)();                         ///< ON_CONTROL_REFLECT_EX
using KxNotifyReflectExHandler = BOOL (CCmdTarget::*)(NMHDR *, LRESULT *); ///< ON_NOTIFY_REFLECT_EX
using KxThreadMessageHandler = void (CCmdTarget::*)(WPARAM, LPARAM);       ///< ON_THREAD_MESSAGE

using AFX_PMSG = KxCommandHandler;

/// One line of a message map. KxMessageHandler makes something callable of it.
struct AFX_MSGMAP_ENTRY
{
    UINT nMessage; ///< WM_COMMAND, WM_NOTIFY, or the window message's number.
    UINT nCode;    ///< The notification code (16 bits under WM_COMMAND), CN_COMMAND or CN_UPDATE_COMMAND_UI;
                   ///< 0 for a window message.
    UINT nID;      ///< The first control or command identifier; 0 for a window message.
    UINT nLastID;  ///< The last one; the same as the first unless the line is of a range.
    const std::type_info *signature; ///< The handler's type; null in the line that ends the table.
    AFX_PMSG pfn;                    ///< The handler, its type forgotten.
};

/// The message map of a class.
struct AFX_MSGMAP
{
    const AFX_MSGMAP *(*pfnGetBaseMap)(); ///< Gives the base class's map; null at the end of the chain.
    const AFX_MSGMAP_ENTRY *lpEntries;    ///< Ends with a line that has no signature.
};

#define CN_COMMAND 0
#define CN_UPDATE_COMMAND_UI 0xFFFFFFFFU

#ifndef WM_CTLCOLOR
#  define WM_CTLCOLOR 0x0019
#endif
#ifndef WM_INPUT_DEVICE_CHANGE
#  define WM_INPUT_DEVICE_CHANGE 0x00FE
#endif
#ifndef WM_DWMNCRENDERINGCHANGED
#  define WM_DWMNCRENDERINGCHANGED 0x031F
#endif
#ifndef WM_DWMCOLORIZATIONCOLORCHANGED
#  define WM_DWMCOLORIZATIONCOLORCHANGED 0x0320
#endif
#ifndef WM_DWMWINDOWMAXIMIZEDCHANGE
#  define WM_DWMWINDOWMAXIMIZEDCHANGE 0x0321
#endif

/// The number under which a control's own map has a message that Windows sends to the parent.
#define KX_REFLECTED(message) ((message) + 0xBC00U)

/// The line for a message, a code and an identifier, in the class's map or the nearest base's that has one:
/// the first that fits, in the order they were written. Pass the code of a WM_COMMAND as HIWORD of its first
/// argument, and the code and the identifier of a window message as 0. Null when nothing fits or \p map is
/// null; the line belongs to the map.
KX_EXPORT const AFX_MSGMAP_ENTRY *KxFindMessageEntry(const AFX_MSGMAP *map, UINT message, UINT code, UINT id);

/// The handler of a line, ready to be called; \p Handler is its type, such as KxCommandHandler or
/// `void (CWnd::*)(UINT, int, int)`.
///
/// It is false, and must not be called, when the line is null, ends a table or has a handler of another type.
/// Call it with an object of the class whose map the line is from, and the handler's arguments. A virtual
/// handler reaches the override.
template<typename Handler>
class KxMessageHandler;

template<class Target, typename Result, typename... Arguments>
class KxMessageHandler<Result (Target::*)(Arguments...)>
{
public:
    explicit KxMessageHandler(const AFX_MSGMAP_ENTRY *entry)
    {
        static_assert(sizeof m_handler == sizeof entry->pfn);
        if (entry && entry->signature && *entry->signature == typeid(m_handler))
            std::memcpy(&m_handler, &entry->pfn, sizeof m_handler);
    }

    explicit operator bool() const { return m_handler != nullptr; }

    // Through a pointer, always: for an object whose class it knows, GCC takes a member of CCmdTarget to be
    // not virtual, as CCmdTarget has nothing virtual.
    Result operator()(Target *target, Arguments... arguments) const
    {
        return (target->*m_handler)(std::forward<Arguments>(arguments)...);
    }

private:
    Result (Target::*m_handler)(Arguments...) = nullptr;
};

/// Makes a line. The macros name the handler's type before they call it.
template<typename Handler>
AFX_MSGMAP_ENTRY KxMessageEntry(UINT message, UINT code, UINT firstId, UINT lastId, Handler handler)
{
    static_assert(sizeof(Handler) == sizeof(AFX_PMSG), "a handler is a member function");
    AFX_MSGMAP_ENTRY entry = {message, code, firstId, lastId, &typeid(Handler), nullptr};
    std::memcpy(&entry.pfn, &handler, sizeof handler);
    return entry;
}

// ---- Declaration and demarcation ----------------------------------------------------------------------

/// Stands at the end of a class. GetThisMessageMap() is public, so that a host may walk the map; what follows
/// is protected, as in MFC.
#define DECLARE_MESSAGE_MAP() \
public: \
    static const AFX_MSGMAP *GetThisMessageMap(); \
\
protected:

#define BEGIN_MESSAGE_MAP(theClass, baseClass) \
    const AFX_MSGMAP *theClass::GetThisMessageMap() \
    { \
        using ThisClass [[maybe_unused]] = theClass; \
        using TheBaseClass = baseClass; \
        static const AFX_MSGMAP_ENTRY entries[] = {

/// For a class template with one type parameter.
#define BEGIN_TEMPLATE_MESSAGE_MAP(theClass, type_name, baseClass) \
    template<typename type_name> \
    BEGIN_MESSAGE_MAP(theClass<type_name>, baseClass)

#define END_MESSAGE_MAP() \
            {0, 0, 0, 0, nullptr, nullptr} \
        }; \
        static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries}; \
        return &map; \
    }

// ---- Commands and notifications -----------------------------------------------------------------------

/// One line for a handler of type \p Handler; what all the macros below come to.
#define KX_ON(message, code, firstId, lastId, Handler, memberFxn) \
    KxMessageEntry(static_cast<UINT>(message), static_cast<UINT>(code), static_cast<UINT>(firstId), \
                   static_cast<UINT>(lastId), static_cast<Handler>(memberFxn)),

#define ON_COMMAND(id, memberFxn) ON_CONTROL(CN_COMMAND, id, memberFxn)
#define ON_COMMAND_EX(id, memberFxn) ON_COMMAND_EX_RANGE(id, id, memberFxn)
#define ON_COMMAND_RANGE(id, idLast, memberFxn) ON_CONTROL_RANGE(CN_COMMAND, id, idLast, memberFxn)
#define ON_COMMAND_EX_RANGE(id, idLast, memberFxn) \
    KX_ON(WM_COMMAND, CN_COMMAND, id, idLast, KxCommandExHandler, memberFxn)

#define ON_UPDATE_COMMAND_UI(id, memberFxn) ON_UPDATE_COMMAND_UI_RANGE(id, id, memberFxn)
#define ON_UPDATE_COMMAND_UI_RANGE(id, idLast, memberFxn) \
    KX_ON(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, idLast, KxUpdateHandler, memberFxn)
#define ON_UPDATE_COMMAND_UI_REFLECT(memberFxn) \
    KX_ON(KX_REFLECTED(WM_COMMAND), CN_UPDATE_COMMAND_UI, 0, 0, KxUpdateHandler, memberFxn)

#define ON_CONTROL(wNotifyCode, id, memberFxn) \
    KX_ON(WM_COMMAND, static_cast<WORD>(wNotifyCode), id, id, KxCommandHandler, memberFxn)
#define ON_CONTROL_RANGE(wNotifyCode, id, idLast, memberFxn) \
    KX_ON(WM_COMMAND, static_cast<WORD>(wNotifyCode), id, idLast, KxCommandRangeHandler, memberFxn)
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn) \
    KX_ON(KX_REFLECTED(WM_COMMAND), static_cast<WORD>(wNotifyCode), 0, 0, KxCommandHandler, memberFxn)
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn) \
    KX_ON(KX_REFLECTED(WM_COMMAND), static_cast<WORD>(wNotifyCode), 0, 0, KxReflectExHandler, memberFxn)

#define ON_NOTIFY(wNotifyCode, id, memberFxn) \
    KX_ON(WM_NOTIFY, wNotifyCode, id, id, KxNotifyHandler, memberFxn)
#define ON_NOTIFY_RANGE(wNotifyCode, id, idLast, memberFxn) \
    KX_ON(WM_NOTIFY, wNotifyCode, id, idLast, KxNotifyRangeHandler, memberFxn)
#define ON_NOTIFY_EX(wNotifyCode, id, memberFxn) ON_NOTIFY_EX_RANGE(wNotifyCode, id, id, memberFxn)
#define ON_NOTIFY_EX_RANGE(wNotifyCode, id, idLast, memberFxn) \
    KX_ON(WM_NOTIFY, wNotifyCode, id, idLast, KxNotifyExHandler, memberFxn)
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn) \
    KX_ON(KX_REFLECTED(WM_NOTIFY), wNotifyCode, 0, 0, KxNotifyHandler, memberFxn)
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn) \
    KX_ON(KX_REFLECTED(WM_NOTIFY), wNotifyCode, 0, 0, KxNotifyReflectExHandler, memberFxn)

#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)
#define ON_BN_PAINT(id, memberFxn) ON_CONTROL(BN_PAINT, id, memberFxn)
#define ON_BN_HILITE(id, memberFxn) ON_CONTROL(BN_HILITE, id, memberFxn)
#define ON_BN_UNHILITE(id, memberFxn) ON_CONTROL(BN_UNHILITE, id, memberFxn)
#define ON_BN_DISABLE(id, memberFxn) ON_CONTROL(BN_DISABLE, id, memberFxn)
#define ON_BN_PUSHED(id, memberFxn) ON_CONTROL(BN_PUSHED, id, memberFxn)
#define ON_BN_UNPUSHED(id, memberFxn) ON_CONTROL(BN_UNPUSHED, id, memberFxn)

#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_ERRSPACE(id, memberFxn) ON_CONTROL(EN_ERRSPACE, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_EN_HSCROLL(id, memberFxn) ON_CONTROL(EN_HSCROLL, id, memberFxn)
#define ON_EN_VSCROLL(id, memberFxn) ON_CONTROL(EN_VSCROLL, id, memberFxn)

#define ON_CBN_ERRSPACE(id, memberFxn) ON_CONTROL(CBN_ERRSPACE, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_DBLCLK(id, memberFxn) ON_CONTROL(CBN_DBLCLK, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)
#define ON_CBN_SELENDCANCEL(id, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, id, memberFxn)

#define ON_LBN_ERRSPACE(id, memberFxn) ON_CONTROL(LBN_ERRSPACE, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_LBN_SELCANCEL(id, memberFxn) ON_CONTROL(LBN_SELCANCEL, id, memberFxn)
#define ON_LBN_SETFOCUS(id, memberFxn) ON_CONTROL(LBN_SETFOCUS, id, memberFxn)
#define ON_LBN_KILLFOCUS(id, memberFxn) ON_CONTROL(LBN_KILLFOCUS, id, memberFxn)

#define ON_STN_CLICKED(id, memberFxn) ON_CONTROL(STN_CLICKED, id, memberFxn)
#define ON_STN_DBLCLK(id, memberFxn) ON_CONTROL(STN_DBLCLK, id, memberFxn)
#define ON_STN_ENABLE(id, memberFxn) ON_CONTROL(STN_ENABLE, id, memberFxn)
#define ON_STN_DISABLE(id, memberFxn) ON_CONTROL(STN_DISABLE, id, memberFxn)

// ---- Messages by number -------------------------------------------------------------------------------

#define ON_MESSAGE(message, memberFxn) KX_ON(message, 0, 0, 0, LRESULT (CWnd::*)(WPARAM, LPARAM), memberFxn)
#define ON_THREAD_MESSAGE(message, memberFxn) KX_ON(message, 0, 0, 0, KxThreadMessageHandler, memberFxn)
/// The variable is read once, when the map is first asked for.
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn) ON_MESSAGE(nMessageVariable, memberFxn)
/// \copydoc ON_REGISTERED_MESSAGE
#define ON_REGISTERED_THREAD_MESSAGE(nMessageVariable, memberFxn) \
    ON_THREAD_MESSAGE(nMessageVariable, memberFxn)

// ---- Window messages ----------------------------------------------------------------------------------
//
// The handler has the name that MFC documents for the message and is looked up in the class.

/// One line for a window message: its number and its handler's name, result type and argument types.
#define KX_ON_WM(message, handler, result, arguments) \
    KX_ON(message, 0, 0, 0, result (CWnd::*) arguments, &ThisClass::handler)

#define ON_WM_ACTIVATE() KX_ON_WM(WM_ACTIVATE, OnActivate, void, (UINT, CWnd *, BOOL))
#define ON_WM_ACTIVATEAPP() KX_ON_WM(WM_ACTIVATEAPP, OnActivateApp, void, (BOOL, DWORD))
#define ON_WM_APPCOMMAND() KX_ON_WM(WM_APPCOMMAND, OnAppCommand, void, (CWnd *, UINT, UINT, UINT))
#define ON_WM_ASKCBFORMATNAME() KX_ON_WM(WM_ASKCBFORMATNAME, OnAskCbFormatName, void, (UINT, LPTSTR))
#define ON_WM_CANCELMODE() KX_ON_WM(WM_CANCELMODE, OnCancelMode, void, ())
#define ON_WM_CAPTURECHANGED() KX_ON_WM(WM_CAPTURECHANGED, OnCaptureChanged, void, (CWnd *))
#define ON_WM_CHANGECBCHAIN() KX_ON_WM(WM_CHANGECBCHAIN, OnChangeCbChain, void, (HWND, HWND))
#define ON_WM_CHANGEUISTATE() KX_ON_WM(WM_CHANGEUISTATE, OnChangeUIState, void, (UINT, UINT))
#define ON_WM_CHAR() KX_ON_WM(WM_CHAR, OnChar, void, (UINT, UINT, UINT))
#define ON_WM_CHARTOITEM() KX_ON_WM(WM_CHARTOITEM, OnCharToItem, int, (UINT, CListBox *, UINT))
#define ON_WM_CHILDACTIVATE() KX_ON_WM(WM_CHILDACTIVATE, OnChildActivate, void, ())
#define ON_WM_CLIPBOARDUPDATE() KX_ON_WM(WM_CLIPBOARDUPDATE, OnClipboardUpdate, void, ())
#define ON_WM_CLOSE() KX_ON_WM(WM_CLOSE, OnClose, void, ())
#define ON_WM_COMPACTING() KX_ON_WM(WM_COMPACTING, OnCompacting, void, (UINT))
#define ON_WM_COMPAREITEM() KX_ON_WM(WM_COMPAREITEM, OnCompareItem, int, (int, LPCOMPAREITEMSTRUCT))
#define ON_WM_CONTEXTMENU() KX_ON_WM(WM_CONTEXTMENU, OnContextMenu, void, (CWnd *, CPoint))
#define ON_WM_COPYDATA() KX_ON_WM(WM_COPYDATA, OnCopyData, BOOL, (CWnd *, COPYDATASTRUCT *))
#define ON_WM_CREATE() KX_ON_WM(WM_CREATE, OnCreate, int, (LPCREATESTRUCT))
#define ON_WM_CTLCOLOR() KX_ON_WM(WM_CTLCOLOR, OnCtlColor, HBRUSH, (CDC *, CWnd *, UINT))
#define ON_WM_DEADCHAR() KX_ON_WM(WM_DEADCHAR, OnDeadChar, void, (UINT, UINT, UINT))
#define ON_WM_DELETEITEM() KX_ON_WM(WM_DELETEITEM, OnDeleteItem, void, (int, LPDELETEITEMSTRUCT))
#define ON_WM_DESTROY() KX_ON_WM(WM_DESTROY, OnDestroy, void, ())
#define ON_WM_DESTROYCLIPBOARD() KX_ON_WM(WM_DESTROYCLIPBOARD, OnDestroyClipboard, void, ())
#define ON_WM_DEVICECHANGE() KX_ON_WM(WM_DEVICECHANGE, OnDeviceChange, BOOL, (UINT, DWORD_PTR))
#define ON_WM_DEVMODECHANGE() KX_ON_WM(WM_DEVMODECHANGE, OnDevModeChange, void, (LPTSTR))
#define ON_WM_DRAWCLIPBOARD() KX_ON_WM(WM_DRAWCLIPBOARD, OnDrawClipboard, void, ())
#define ON_WM_DRAWITEM() KX_ON_WM(WM_DRAWITEM, OnDrawItem, void, (int, LPDRAWITEMSTRUCT))
#define ON_WM_DROPFILES() KX_ON_WM(WM_DROPFILES, OnDropFiles, void, (HDROP))
#define ON_WM_DWMCOLORIZATIONCOLORCHANGED() \
    KX_ON_WM(WM_DWMCOLORIZATIONCOLORCHANGED, OnColorizationColorChanged, void, (DWORD, BOOL))
#define ON_WM_DWMCOMPOSITIONCHANGED() KX_ON_WM(WM_DWMCOMPOSITIONCHANGED, OnCompositionChanged, void, ())
#define ON_WM_DWMNCRENDERINGCHANGED() KX_ON_WM(WM_DWMNCRENDERINGCHANGED, OnNcRenderingChanged, void, (BOOL))
#define ON_WM_DWMWINDOWMAXIMIZEDCHANGE() \
    KX_ON_WM(WM_DWMWINDOWMAXIMIZEDCHANGE, OnWindowMaximizedChanged, void, (BOOL))
#define ON_WM_ENABLE() KX_ON_WM(WM_ENABLE, OnEnable, void, (BOOL))
#define ON_WM_ENDSESSION() KX_ON_WM(WM_ENDSESSION, OnEndSession, void, (BOOL))
#define ON_WM_ENTERIDLE() KX_ON_WM(WM_ENTERIDLE, OnEnterIdle, void, (UINT, CWnd *))
#define ON_WM_ENTERMENULOOP() KX_ON_WM(WM_ENTERMENULOOP, OnEnterMenuLoop, void, (BOOL))
#define ON_WM_ENTERSIZEMOVE() KX_ON_WM(WM_ENTERSIZEMOVE, OnEnterSizeMove, void, ())
#define ON_WM_ERASEBKGND() KX_ON_WM(WM_ERASEBKGND, OnEraseBkgnd, BOOL, (CDC *))
#define ON_WM_EXITMENULOOP() KX_ON_WM(WM_EXITMENULOOP, OnExitMenuLoop, void, (BOOL))
#define ON_WM_EXITSIZEMOVE() KX_ON_WM(WM_EXITSIZEMOVE, OnExitSizeMove, void, ())
#define ON_WM_FONTCHANGE() KX_ON_WM(WM_FONTCHANGE, OnFontChange, void, ())
#define ON_WM_GETDLGCODE() KX_ON_WM(WM_GETDLGCODE, OnGetDlgCode, UINT, ())
#define ON_WM_GETMINMAXINFO() KX_ON_WM(WM_GETMINMAXINFO, OnGetMinMaxInfo, void, (MINMAXINFO *))
#define ON_WM_HELPINFO() KX_ON_WM(WM_HELP, OnHelpInfo, BOOL, (HELPINFO *))
#define ON_WM_HOTKEY() KX_ON_WM(WM_HOTKEY, OnHotKey, void, (UINT, UINT, UINT))
#define ON_WM_HSCROLL() KX_ON_WM(WM_HSCROLL, OnHScroll, void, (UINT, UINT, CScrollBar *))
#define ON_WM_HSCROLLCLIPBOARD() KX_ON_WM(WM_HSCROLLCLIPBOARD, OnHScrollClipboard, void, (CWnd *, UINT, UINT))
#define ON_WM_ICONERASEBKGND() KX_ON_WM(WM_ICONERASEBKGND, OnIconEraseBkgnd, void, (CDC *))
#define ON_WM_INITMENU() KX_ON_WM(WM_INITMENU, OnInitMenu, void, (CMenu *))
#define ON_WM_INITMENUPOPUP() KX_ON_WM(WM_INITMENUPOPUP, OnInitMenuPopup, void, (CMenu *, UINT, BOOL))
#define ON_WM_INPUT() KX_ON_WM(WM_INPUT, OnRawInput, void, (UINT, HRAWINPUT))
#define ON_WM_INPUTLANGCHANGE() KX_ON_WM(WM_INPUTLANGCHANGE, OnInputLangChange, void, (UINT, UINT))
#define ON_WM_INPUTLANGCHANGEREQUEST() \
    KX_ON_WM(WM_INPUTLANGCHANGEREQUEST, OnInputLangChangeRequest, void, (UINT, UINT))
#define ON_WM_INPUT_DEVICE_CHANGE() \
    KX_ON_WM(WM_INPUT_DEVICE_CHANGE, OnInputDeviceChange, void, (unsigned short))
#define ON_WM_KEYDOWN() KX_ON_WM(WM_KEYDOWN, OnKeyDown, void, (UINT, UINT, UINT))
#define ON_WM_KEYUP() KX_ON_WM(WM_KEYUP, OnKeyUp, void, (UINT, UINT, UINT))
#define ON_WM_KILLFOCUS() KX_ON_WM(WM_KILLFOCUS, OnKillFocus, void, (CWnd *))
#define ON_WM_LBUTTONDBLCLK() KX_ON_WM(WM_LBUTTONDBLCLK, OnLButtonDblClk, void, (UINT, CPoint))
#define ON_WM_LBUTTONDOWN() KX_ON_WM(WM_LBUTTONDOWN, OnLButtonDown, void, (UINT, CPoint))
#define ON_WM_LBUTTONUP() KX_ON_WM(WM_LBUTTONUP, OnLButtonUp, void, (UINT, CPoint))
#define ON_WM_MBUTTONDBLCLK() KX_ON_WM(WM_MBUTTONDBLCLK, OnMButtonDblClk, void, (UINT, CPoint))
#define ON_WM_MBUTTONDOWN() KX_ON_WM(WM_MBUTTONDOWN, OnMButtonDown, void, (UINT, CPoint))
#define ON_WM_MBUTTONUP() KX_ON_WM(WM_MBUTTONUP, OnMButtonUp, void, (UINT, CPoint))
#define ON_WM_MDIACTIVATE() KX_ON_WM(WM_MDIACTIVATE, OnMDIActivate, void, (BOOL, CWnd *, CWnd *))
#define ON_WM_MEASUREITEM() KX_ON_WM(WM_MEASUREITEM, OnMeasureItem, void, (int, LPMEASUREITEMSTRUCT))
#define ON_WM_MENUCHAR() KX_ON_WM(WM_MENUCHAR, OnMenuChar, LRESULT, (UINT, UINT, CMenu *))
#define ON_WM_MENUDRAG() KX_ON_WM(WM_MENUDRAG, OnMenuDrag, UINT, (UINT, CMenu *))
#define ON_WM_MENUGETOBJECT() KX_ON_WM(WM_MENUGETOBJECT, OnMenuGetObject, UINT, (MENUGETOBJECTINFO *))
#define ON_WM_MENURBUTTONUP() KX_ON_WM(WM_MENURBUTTONUP, OnMenuRButtonUp, void, (UINT, CMenu *))
#define ON_WM_MENUSELECT() KX_ON_WM(WM_MENUSELECT, OnMenuSelect, void, (UINT, UINT, HMENU))
#define ON_WM_MOUSEACTIVATE() KX_ON_WM(WM_MOUSEACTIVATE, OnMouseActivate, int, (CWnd *, UINT, UINT))
#define ON_WM_MOUSEHOVER() KX_ON_WM(WM_MOUSEHOVER, OnMouseHover, void, (UINT, CPoint))
#define ON_WM_MOUSEHWHEEL() KX_ON_WM(WM_MOUSEHWHEEL, OnMouseHWheel, void, (UINT, short, CPoint))
#define ON_WM_MOUSELEAVE() KX_ON_WM(WM_MOUSELEAVE, OnMouseLeave, void, ())
#define ON_WM_MOUSEMOVE() KX_ON_WM(WM_MOUSEMOVE, OnMouseMove, void, (UINT, CPoint))
#define ON_WM_MOUSEWHEEL() KX_ON_WM(WM_MOUSEWHEEL, OnMouseWheel, BOOL, (UINT, short, CPoint))
#define ON_WM_MOVE() KX_ON_WM(WM_MOVE, OnMove, void, (int, int))
#define ON_WM_MOVING() KX_ON_WM(WM_MOVING, OnMoving, void, (UINT, LPRECT))
#define ON_WM_NCACTIVATE() KX_ON_WM(WM_NCACTIVATE, OnNcActivate, BOOL, (BOOL))
#define ON_WM_NCCALCSIZE() KX_ON_WM(WM_NCCALCSIZE, OnNcCalcSize, void, (BOOL, NCCALCSIZE_PARAMS *))
#define ON_WM_NCCREATE() KX_ON_WM(WM_NCCREATE, OnNcCreate, BOOL, (LPCREATESTRUCT))
#define ON_WM_NCDESTROY() KX_ON_WM(WM_NCDESTROY, OnNcDestroy, void, ())
#define ON_WM_NCHITTEST() KX_ON_WM(WM_NCHITTEST, OnNcHitTest, LRESULT, (CPoint))
#define ON_WM_NCLBUTTONDBLCLK() KX_ON_WM(WM_NCLBUTTONDBLCLK, OnNcLButtonDblClk, void, (UINT, CPoint))
#define ON_WM_NCLBUTTONDOWN() KX_ON_WM(WM_NCLBUTTONDOWN, OnNcLButtonDown, void, (UINT, CPoint))
#define ON_WM_NCLBUTTONUP() KX_ON_WM(WM_NCLBUTTONUP, OnNcLButtonUp, void, (UINT, CPoint))
#define ON_WM_NCMBUTTONDBLCLK() KX_ON_WM(WM_NCMBUTTONDBLCLK, OnNcMButtonDblClk, void, (UINT, CPoint))
#define ON_WM_NCMBUTTONDOWN() KX_ON_WM(WM_NCMBUTTONDOWN, OnNcMButtonDown, void, (UINT, CPoint))
#define ON_WM_NCMBUTTONUP() KX_ON_WM(WM_NCMBUTTONUP, OnNcMButtonUp, void, (UINT, CPoint))
#define ON_WM_NCMOUSEHOVER() KX_ON_WM(WM_NCMOUSEHOVER, OnNcMouseHover, void, (UINT, CPoint))
#define ON_WM_NCMOUSELEAVE() KX_ON_WM(WM_NCMOUSELEAVE, OnNcMouseLeave, void, ())
#define ON_WM_NCMOUSEMOVE() KX_ON_WM(WM_NCMOUSEMOVE, OnNcMouseMove, void, (UINT, CPoint))
#define ON_WM_NCPAINT() KX_ON_WM(WM_NCPAINT, OnNcPaint, void, ())
#define ON_WM_NCRBUTTONDBLCLK() KX_ON_WM(WM_NCRBUTTONDBLCLK, OnNcRButtonDblClk, void, (UINT, CPoint))
#define ON_WM_NCRBUTTONDOWN() KX_ON_WM(WM_NCRBUTTONDOWN, OnNcRButtonDown, void, (UINT, CPoint))
#define ON_WM_NCRBUTTONUP() KX_ON_WM(WM_NCRBUTTONUP, OnNcRButtonUp, void, (UINT, CPoint))
#define ON_WM_NCXBUTTONDBLCLK() KX_ON_WM(WM_NCXBUTTONDBLCLK, OnNcXButtonDblClk, void, (short, UINT, CPoint))
#define ON_WM_NCXBUTTONDOWN() KX_ON_WM(WM_NCXBUTTONDOWN, OnNcXButtonDown, void, (short, UINT, CPoint))
#define ON_WM_NCXBUTTONUP() KX_ON_WM(WM_NCXBUTTONUP, OnNcXButtonUp, void, (short, UINT, CPoint))
#define ON_WM_NEXTMENU() KX_ON_WM(WM_NEXTMENU, OnNextMenu, void, (UINT, LPMDINEXTMENU))
#define ON_WM_NOTIFYFORMAT() KX_ON_WM(WM_NOTIFYFORMAT, OnNotifyFormat, UINT, (CWnd *, UINT))
#define ON_WM_PAINT() KX_ON_WM(WM_PAINT, OnPaint, void, ())
#define ON_WM_PAINTCLIPBOARD() KX_ON_WM(WM_PAINTCLIPBOARD, OnPaintClipboard, void, (CWnd *, HGLOBAL))
#define ON_WM_PALETTECHANGED() KX_ON_WM(WM_PALETTECHANGED, OnPaletteChanged, void, (CWnd *))
#define ON_WM_PALETTEISCHANGING() KX_ON_WM(WM_PALETTEISCHANGING, OnPaletteIsChanging, void, (CWnd *))
#define ON_WM_PARENTNOTIFY() KX_ON_WM(WM_PARENTNOTIFY, OnParentNotify, void, (UINT, LPARAM))
#define ON_WM_POWERBROADCAST() KX_ON_WM(WM_POWERBROADCAST, OnPowerBroadcast, UINT, (UINT, UINT))
#define ON_WM_QUERYDRAGICON() KX_ON_WM(WM_QUERYDRAGICON, OnQueryDragIcon, HCURSOR, ())
#define ON_WM_QUERYENDSESSION() KX_ON_WM(WM_QUERYENDSESSION, OnQueryEndSession, BOOL, ())
#define ON_WM_QUERYNEWPALETTE() KX_ON_WM(WM_QUERYNEWPALETTE, OnQueryNewPalette, BOOL, ())
#define ON_WM_QUERYOPEN() KX_ON_WM(WM_QUERYOPEN, OnQueryOpen, BOOL, ())
#define ON_WM_QUERYUISTATE() KX_ON_WM(WM_QUERYUISTATE, OnQueryUIState, UINT, ())
#define ON_WM_RBUTTONDBLCLK() KX_ON_WM(WM_RBUTTONDBLCLK, OnRButtonDblClk, void, (UINT, CPoint))
#define ON_WM_RBUTTONDOWN() KX_ON_WM(WM_RBUTTONDOWN, OnRButtonDown, void, (UINT, CPoint))
#define ON_WM_RBUTTONUP() KX_ON_WM(WM_RBUTTONUP, OnRButtonUp, void, (UINT, CPoint))
#define ON_WM_RENDERALLFORMATS() KX_ON_WM(WM_RENDERALLFORMATS, OnRenderAllFormats, void, ())
#define ON_WM_RENDERFORMAT() KX_ON_WM(WM_RENDERFORMAT, OnRenderFormat, void, (UINT))
#define ON_WM_SETCURSOR() KX_ON_WM(WM_SETCURSOR, OnSetCursor, BOOL, (CWnd *, UINT, UINT))
#define ON_WM_SETFOCUS() KX_ON_WM(WM_SETFOCUS, OnSetFocus, void, (CWnd *))
#define ON_WM_SETTINGCHANGE() KX_ON_WM(WM_SETTINGCHANGE, OnSettingChange, void, (UINT, LPCTSTR))
#define ON_WM_SHOWWINDOW() KX_ON_WM(WM_SHOWWINDOW, OnShowWindow, void, (BOOL, UINT))
#define ON_WM_SIZE() KX_ON_WM(WM_SIZE, OnSize, void, (UINT, int, int))
#define ON_WM_SIZECLIPBOARD() KX_ON_WM(WM_SIZECLIPBOARD, OnSizeClipboard, void, (CWnd *, HGLOBAL))
#define ON_WM_SIZING() KX_ON_WM(WM_SIZING, OnSizing, void, (UINT, LPRECT))
#define ON_WM_SPOOLERSTATUS() KX_ON_WM(WM_SPOOLERSTATUS, OnSpoolerStatus, void, (UINT, UINT))
#define ON_WM_STYLECHANGED() KX_ON_WM(WM_STYLECHANGED, OnStyleChanged, void, (int, LPSTYLESTRUCT))
#define ON_WM_STYLECHANGING() KX_ON_WM(WM_STYLECHANGING, OnStyleChanging, void, (int, LPSTYLESTRUCT))
#define ON_WM_SYSCHAR() KX_ON_WM(WM_SYSCHAR, OnSysChar, void, (UINT, UINT, UINT))
#define ON_WM_SYSCOLORCHANGE() KX_ON_WM(WM_SYSCOLORCHANGE, OnSysColorChange, void, ())
#define ON_WM_SYSCOMMAND() KX_ON_WM(WM_SYSCOMMAND, OnSysCommand, void, (UINT, LPARAM))
#define ON_WM_SYSDEADCHAR() KX_ON_WM(WM_SYSDEADCHAR, OnSysDeadChar, void, (UINT, UINT, UINT))
#define ON_WM_SYSKEYDOWN() KX_ON_WM(WM_SYSKEYDOWN, OnSysKeyDown, void, (UINT, UINT, UINT))
#define ON_WM_SYSKEYUP() KX_ON_WM(WM_SYSKEYUP, OnSysKeyUp, void, (UINT, UINT, UINT))
#define ON_WM_TCARD() KX_ON_WM(WM_TCARD, OnTCard, void, (UINT, DWORD))
#define ON_WM_TIMECHANGE() KX_ON_WM(WM_TIMECHANGE, OnTimeChange, void, ())
#define ON_WM_TIMER() KX_ON_WM(WM_TIMER, OnTimer, void, (UINT_PTR))
#define ON_WM_UNICHAR() KX_ON_WM(WM_UNICHAR, OnUniChar, void, (UINT, UINT, UINT))
#define ON_WM_UNINITMENUPOPUP() KX_ON_WM(WM_UNINITMENUPOPUP, OnUnInitMenuPopup, void, (CMenu *, UINT))
#define ON_WM_UPDATEUISTATE() KX_ON_WM(WM_UPDATEUISTATE, OnUpdateUIState, void, (UINT, UINT))
#define ON_WM_USERCHANGED() KX_ON_WM(WM_USERCHANGED, OnUserChanged, void, ())
#define ON_WM_VKEYTOITEM() KX_ON_WM(WM_VKEYTOITEM, OnVKeyToItem, int, (UINT, CListBox *, UINT))
#define ON_WM_VSCROLL() KX_ON_WM(WM_VSCROLL, OnVScroll, void, (UINT, UINT, CScrollBar *))
#define ON_WM_VSCROLLCLIPBOARD() KX_ON_WM(WM_VSCROLLCLIPBOARD, OnVScrollClipboard, void, (CWnd *, UINT, UINT))
#define ON_WM_WINDOWPOSCHANGED() KX_ON_WM(WM_WINDOWPOSCHANGED, OnWindowPosChanged, void, (WINDOWPOS *))
#define ON_WM_WINDOWPOSCHANGING() KX_ON_WM(WM_WINDOWPOSCHANGING, OnWindowPosChanging, void, (WINDOWPOS *))
#define ON_WM_WININICHANGE() KX_ON_WM(WM_WININICHANGE, OnWinIniChange, void, (LPCTSTR))
#define ON_WM_WTSSESSION_CHANGE() KX_ON_WM(WM_WTSSESSION_CHANGE, OnSessionChange, void, (UINT, UINT))
#define ON_WM_XBUTTONDBLCLK() KX_ON_WM(WM_XBUTTONDBLCLK, OnXButtonDblClk, void, (UINT, UINT, CPoint))
#define ON_WM_XBUTTONDOWN() KX_ON_WM(WM_XBUTTONDOWN, OnXButtonDown, void, (UINT, UINT, CPoint))
#define ON_WM_XBUTTONUP() KX_ON_WM(WM_XBUTTONUP, OnXButtonUp, void, (UINT, UINT, CPoint))

// ---- Window messages that a control handles for its parent --------------------------------------------

#define ON_WM_CHARTOITEM_REFLECT() \
    KX_ON_WM(KX_REFLECTED(WM_CHARTOITEM), CharToItem, int, (UINT, UINT))
#define ON_WM_COMPAREITEM_REFLECT() \
    KX_ON_WM(KX_REFLECTED(WM_COMPAREITEM), CompareItem, int, (LPCOMPAREITEMSTRUCT))
#define ON_WM_CTLCOLOR_REFLECT() \
    KX_ON_WM(KX_REFLECTED(WM_CTLCOLOR), CtlColor, HBRUSH, (CDC *, UINT))
#define ON_WM_DELETEITEM_REFLECT() \
    KX_ON_WM(KX_REFLECTED(WM_DELETEITEM), DeleteItem, void, (LPDELETEITEMSTRUCT))
#define ON_WM_DRAWITEM_REFLECT() \
    KX_ON_WM(KX_REFLECTED(WM_DRAWITEM), DrawItem, void, (LPDRAWITEMSTRUCT))
#define ON_WM_HSCROLL_REFLECT() \
    KX_ON_WM(KX_REFLECTED(WM_HSCROLL), HScroll, void, (UINT, UINT))
#define ON_WM_MEASUREITEM_REFLECT() \
    KX_ON_WM(KX_REFLECTED(WM_MEASUREITEM), MeasureItem, void, (LPMEASUREITEMSTRUCT))
#define ON_WM_PARENTNOTIFY_REFLECT() \
    KX_ON_WM(KX_REFLECTED(WM_PARENTNOTIFY), ParentNotify, void, (UINT, LPARAM))
#define ON_WM_VKEYTOITEM_REFLECT() \
    KX_ON_WM(KX_REFLECTED(WM_VKEYTOITEM), VKeyToItem, int, (UINT, UINT))
#define ON_WM_VSCROLL_REFLECT() \
    KX_ON_WM(KX_REFLECTED(WM_VSCROLL), VScroll, void, (UINT, UINT))
