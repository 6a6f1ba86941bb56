// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfx.h"
#include "KxAfxGeometry.h"
#include "KxAfxMessageMap.h"
#include "KxExport.h"
#include "KxStdStr.h"
#include "KxWinTypes.h"

#include <map>

class CCreateContext;
class CDataExchange;
class CDC;
class CFont;
class CRgn;
class CMenu;
class CWnd;
class CWndPrivate;
class QWidget;
template<typename T> class QList;

/// \file
/// CWnd: the base of every window, dialog and control object, bound to a widget that the host made.

/// The window handle of a widget: its address as a QWidget, wherever QWidget stands among its bases.
inline HWND KxHwndFromWidget(QWidget *widget)
{
    return reinterpret_cast<HWND>(widget);
}

/// The widget of a window handle.
inline QWidget *KxWidgetFromHwnd(HWND hWnd)
{
    return reinterpret_cast<QWidget *>(hWnd);
}

/// Which window object a handle leads to. Filled by CWnd::SetHandle(), emptied by ~CWnd().
extern KX_EXPORT std::map<HWND, CWnd *> CWndHandleTable;
/// Unused; there for host code that names it.
extern KX_EXPORT QList<CWnd *> CWndList;

/// Makes a temporary wrapper for a handle: a CWnd that the library owns and deletes when another window
/// object takes the handle over or when the window that has it as a dialog item is destroyed. One that
/// the handle table does not lead to, since a kept object has the place there, is deleted at unload. A null
/// handle gives an unbound one.
KX_EXPORT CWnd *CreateCWndByHandle(HWND hWnd);

/// A window object, as CWnd in MFC. It makes no window: it is bound to a QWidget of the host and hands its
/// calls on to it.
///
/// States. *Unbound*: as constructed. *Bound*: after Attach(), SetHandle(), SubclassDlgItem() or as a temporary
/// wrapper. *Orphaned*: another object took the handle over, and the widget is out of reach for good.
/// GetSafeHwnd() still tells the handle, so that Attach() and SubclassDlgItem() bind nothing and give TRUE;
/// everything else behaves as unbound. On an unbound object a member does nothing and gives 0, null or FALSE,
/// where it does not say otherwise.
///
/// Lifetime. The host owns its objects and widgets. ~CWnd() deletes the widget only after
/// SetAutoDelete(..., true). Nothing watches the widget: destroy the object before it, or never use it after.
///
/// Small pointers. A member called through a null pointer, or any pointer below 4096, touches no memory and
/// gives the pointer's value in its result type. Members whose result is fixed give just that. This cannot
/// hold for virtual members.
///
/// Dialog items. Whoever builds the window registers its controls under their identifiers with SetDlgItem();
/// GetDlgItem() and all that goes through it finds them there and nowhere else.
class KX_EXPORT CWnd : public CCmdTarget
{
public:
    /// The handle: null until bound, then the same for good, even when another object took it over.
    HWND m_hWnd;

    /// An unbound window object that no handle leads to.
    static CWnd wndTop;

    /// Unbound; `pParent` is the logical parent, see SetParent().
    explicit CWnd(CWnd *pParent = nullptr);
    /// Destroys the window object: the widget too when SetAutoDelete() said so, the temporary wrappers of the
    /// dialog items, the device context of GetDC().
    virtual ~CWnd();

    CWnd(const CWnd &) = delete;
    CWnd &operator=(const CWnd &) = delete;

    // ---- the virtual operations; their order is part of the binary interface

    /// Creates nothing. When bound, `pParentWnd` becomes the parent. \return TRUE always
    virtual BOOL Create(const wchar_t *lpszClassName, const wchar_t *lpszWindowName, UINT dwStyle,
                        const tagRECT &rect, CWnd *pParentWnd, UINT nID, CCreateContext *pContext = nullptr);
    KX_INERT("returns null; nothing captures the mouse")
    virtual CWnd *GetCapture();
    KX_INERT("returns null; nothing captures the mouse")
    virtual CWnd *SetCapture();
    /// The handle as it is, also of an orphaned object. As CWnd::GetSafeHwnd in MFC, except that a null
    /// object pointer is not allowed.
    virtual HWND GetSafeHwnd() const;
    /// The device of the context that GetDC() made, a KxQtPaintDeviceWrapper; null before, and until the context has
    /// one, see _CreateDCforHwnd().
    virtual HDC GetSafeHdc() const;
    /// The widget's own rectangle. Right and bottom are QRect's, inclusive: a widget 100 pixels wide has 99.
    virtual void GetClientRect(tagRECT *lpRect) const;
    /// A hook: called by SubclassDlgItem() once the object is bound. Does nothing here.
    virtual void PreSubclassWindow();
    /// A hook: a host's DDX_* calls, run by UpdateData(). Does nothing here.
    virtual void DoDataExchange(CDataExchange *pDX);
    /// A hook. \return TRUE
    virtual BOOL PreTranslateMessage(tagMSG *pMsg);
    /// Sets the text that the widget shows: of a QLineEdit, QLabel, QAbstractButton or QTextEdit its text, of a
    /// QGroupBox its title, of a QComboBox the text being edited, of a spin box the number it reads (no number
    /// is 0; the box's signals stay quiet), of anything else the window title. Null does nothing.
    virtual void SetWindowTextW(const wchar_t *lpszString);
    /// Gets the text that the widget shows; of a spin box with prefix and suffix, of an editable combo box
    /// what is being edited. Unbound, `rString` stays as it is.
    virtual void GetWindowTextW(CString &rString) const;
    /// Fills `lpszStringBuf` with at most `nMaxCount` - 1 characters and zeros behind them, up to the end.
    /// \return the length of what stands in the buffer; 0 and nothing written when `nMaxCount` is below 1
    virtual int GetWindowTextW(wchar_t *lpszStringBuf, int nMaxCount) const;
    KX_INERT("returns null; windows have no menu object")
    virtual CMenu *GetMenu() const;
    KX_INERT("returns TRUE; no menu is set")
    virtual BOOL SetMenu(CMenu *pMenu);
    /// A hook. \return TRUE
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    /// A hook: where SendMessageW() and the application messages of the free SendMessageW() arrive. \return 0
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    KX_INERT("returns FALSE; the window is not raised")
    virtual BOOL SetForegroundWindow();
    /// Gives the widget the keyboard focus. \return null, never the previous window
    virtual CWnd *SetFocus();

    // ---- binding

    /// The private block; null through a small pointer.
    CWndPrivate *d_func() const;
    /// Binds the object to a widget, once: does nothing for a null handle or an object that has a handle.
    /// An object that had the handle is orphaned; a temporary wrapper is deleted. An orphaned object that was
    /// no temporary wrapper keeps its place in the handle table, so FromHandle() goes on to find it.
    void SetHandle(HWND hWnd);
    /// SetHandle(). \return FALSE for a null handle, otherwise TRUE
    BOOL Attach(HWND hWndNew);
    /// Orphans the object; a new temporary wrapper reaches the widget from now on. FromHandle() goes on to find
    /// this object. \return the handle, also of an orphaned object; null when there is none
    HWND Detach();
    /// The object that the handle table has for a handle, or null. Unlike MFC it makes no temporary object.
    static CWnd *FromHandle(HWND hWnd);
    /// \copydoc FromHandle
    static CWnd *FromHandlePermanent(HWND hWnd);
    /// `keepObject`: false makes this a temporary wrapper, which the library deletes. `deleteWidget`: true has
    /// ~CWnd() delete the widget.
    void SetAutoDelete(bool keepObject, bool deleteWidget);
    /// The handle, or null when the object is not bound.
    operator HWND() const;
    /// Binds the object to the dialog item `nID` of `pParent`, which becomes its parent.
    /// \return TRUE also when the object had a handle already; FALSE without parent or item
    BOOL SubclassDlgItem(UINT nID, CWnd *pParent);
    KX_INERT("returns TRUE; bind with Attach()")
    BOOL SubclassWindow(HWND hWnd);

    // ---- parent and neighbours

    /// The logical parent; it need not be the widget's Qt parent.
    CWnd *GetParent() const;
    /// Sets the logical parent and leaves the widget's Qt parent as it is. \return the previous one
    CWnd *SetParent(CWnd *pWndNewParent);
    /// GW_CHILD gives the dialog item with the lowest identifier; everything else, or no item, null.
    CWnd *GetWindow(UINT nCmd) const;
    /// GW_HWNDNEXT gives the parent's dialog item with the next higher identifier, null after the last; every
    /// other flag null.
    CWnd *GetNextWindow(UINT nFlag = GW_HWNDNEXT) const;
    /// The dialog item with the lowest identifier above `id`, or null.
    CWnd *GetNextCWndFromID(int id) const;
    /// GetDlgItem(); it looks no deeper than this window's own items.
    CWnd *GetDescendantWindow(int nID, BOOL bOnlyPerm = FALSE) const;
    KX_INERT("returns null")
    CWnd *GetParentOwner() const;
    KX_INERT("returns null; windows have no owner")
    CWnd *GetOwner() const;
    KX_INERT("sets nothing; windows have no owner")
    void SetOwner(CWnd *pOwnerWnd);
    KX_INERT("returns null")
    CWnd *GetTopLevelParent() const;

    // ---- dialog items

    /// This window's own identifier among its parent's items.
    void SetCtrlID(int id);
    /// \return the identifier, -1 when none was set, 0 when unbound
    int GetDlgCtrlID() const;
    /// Registers a control. An identifier that is there keeps its handle.
    void SetDlgItem(int nID, HWND hWnd);
    /// The window object of a dialog item, whose parent and identifier it then has; a temporary wrapper is made
    /// when there is none. An unknown identifier gives an unbound object, never null, so that
    /// `GetDlgItem(id)->EnableWindow(FALSE)` is always safe. Null when this window is unbound.
    CWnd *GetDlgItem(int nID) const;
    /// Looks the item up in the same way, but leaves `*phWnd` unwritten.
    void GetDlgItem(int nID, HWND *phWnd) const;
    /// Gets the item's text. \return its length
    int GetDlgItemTextW(int nID, CString &rString) const;
    /// Gets the item's text as the buffer form of GetWindowTextW(). \return the length of what stands in the
    /// buffer
    int GetDlgItemTextW(int nID, wchar_t *lpStr, int nMaxCount) const;
    void SetDlgItemTextW(int nID, const wchar_t *lpszString);
    /// \return 1 when the item is a checked QAbstractButton, otherwise 0
    UINT IsDlgButtonChecked(int nIDButton) const;
    /// Checks a QAbstractButton for every `nCheck` but 0.
    void CheckDlgButton(int nIDButton, UINT nCheck);
    /// Unchecks the buttons among the items `nIDFirstButton` to `nIDLastButton` and checks `nIDCheckButton`.
    void CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
    /// \return the first checked item from `nIDFirstButton` to `nIDLastButton`, 0 when there is none
    int GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const;

    /// \return the length of the text that GetWindowTextW() gets
    int GetWindowTextLengthW() const;

    // ---- geometry, in pixels

    /// As the free GetWindowRect().
    void GetWindowRect(tagRECT *lpRect) const;
    /// Maps a point of the widget to the screen.
    void ClientToScreen(tagPOINT *lpPoint) const;
    KX_INERT("leaves the rectangle as it is; map its corners as points")
    void ClientToScreen(tagRECT *lpRect) const;
    KX_INERT("leaves the point as it is")
    void ScreenToClient(tagPOINT *lpPoint) const;
    KX_INERT("leaves the rectangle as it is")
    void ScreenToClient(tagRECT *lpRect) const;
    KX_INERT("leaves the rectangle as it is")
    void MapWindowPoints(CWnd *pwndTo, tagRECT *lpRect) const;
    KX_INERT("leaves the points as they are")
    void MapWindowPoints(CWnd *pwndTo, tagPOINT *lpPoint, UINT nCount) const;
    /// Moves the widget within its Qt parent; the size is ignored.
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
    KX_INERT("moves nothing; use the form with four numbers")
    void MoveWindow(const tagRECT *lpRect, BOOL bRepaint = TRUE);
    /// Moves the widget within its Qt parent, unless `cx` and `cy` are both above 0: then nothing happens.
    /// Order, size and flags are ignored. \return TRUE, also when unbound
    BOOL SetWindowPos(const CWnd *pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
    KX_INERT("does not centre the window")
    void CenterWindow(CWnd *pAlternateOwner = nullptr);
    KX_INERT("does not raise the window")
    void BringWindowToTop();

    // ---- state

    /// \return TRUE also when unbound
    BOOL IsWindowEnabled() const;
    /// \return whether the window was enabled before, the reverse of Windows; TRUE when unbound
    BOOL EnableWindow(BOOL bEnable = TRUE);
    /// Removing just WS_DISABLED, adding nothing, enables the widget; adding just WS_DISABLED, removing nothing,
    /// disables it; everything else changes nothing. \return TRUE when bound
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    KX_INERT("returns TRUE; there are no extended styles")
    BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    KX_INERT("returns 0; there are no style bits")
    DWORD GetStyle() const;
    /// Shows the widget for every command but SW_HIDE (0). \return TRUE when bound
    BOOL ShowWindow(int nCmdShow);
    BOOL IsWindowVisible() const;
    /// The window object of the widget that has the keyboard focus; null when it has none.
    static CWnd *GetFocus();

    KX_INERT("returns null; set icons on the widget")
    HICON SetIcon(HICON hIcon, BOOL bBigIcon);
    KX_INERT("returns null")
    HICON GetIcon(BOOL bBigIcon) const;
    KX_INERT("sets no font; set it on the widget")
    void SetFont(CFont *pFont, BOOL bRedraw = TRUE);
    KX_INERT("returns null")
    CFont *GetFont() const;
    KX_INERT("returns TRUE; set tool tips on the widgets")
    BOOL EnableToolTips(BOOL bEnable = TRUE);

    // ---- painting

    /// Schedules the whole widget to be painted again.
    void Invalidate(BOOL bErase = TRUE);
    /// Invalidate(); the rectangle is ignored.
    void InvalidateRect(const tagRECT *lpRect, BOOL bErase = TRUE);
    KX_INERT("paints nothing at once; Qt paints when it is scheduled to")
    void UpdateWindow();
    KX_INERT("returns TRUE; use Invalidate()")
    BOOL RedrawWindow(const tagRECT *lpRectUpdate = nullptr, CRgn *prgnUpdate = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    KX_INERT("returns its argument; drawing goes on")
    BOOL SetRedraw(BOOL bRedraw = TRUE);
    KX_INERT("returns FALSE; locks nothing")
    BOOL LockWindowUpdate();
    KX_INERT("unlocks nothing")
    void UnlockWindowUpdate();
    /// The window's device context, the same one at every call; the window owns it.
    CDC *GetDC();
    KX_INERT("returns null; use GetDC()")
    CDC *GetWindowDC();
    KX_INERT("returns 0; the window keeps its device context")
    int ReleaseDC(CDC *pDC);
    KX_INERT("does not change the cursor")
    void BeginWaitCursor();
    KX_INERT("does not change the cursor")
    void EndWaitCursor();

    // ---- data exchange, message boxes

    /// Runs DoDataExchange() to save the controls to the members, or with FALSE to load them; also on an unbound
    /// window. \return FALSE when it called CDataExchange::Fail()
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
    /// The free MessageBoxW() with this window's handle.
    int MessageBoxW(const wchar_t *lpszText, const wchar_t *lpszCaption = nullptr, UINT nType = MB_OK);

    // ---- messages and timers

    /// Calls WindowProc(). \return its result
    LRESULT SendMessageW(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    KX_INERT("returns TRUE; the message is dropped, use the free PostMessageW()")
    BOOL PostMessageW(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    KX_INERT("returns 0; no timer is made, use QTimer")
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer);
    KX_INERT("returns TRUE; there are no timers")
    BOOL KillTimer(UINT_PTR nIDEvent);
    KX_INERT("returns 0")
    LRESULT Default();
    KX_INERT("returns TRUE for every class; there is no run-time class information")
    BOOL IsKindOf(const CRuntimeClass *pClass) const;

    // ---- handlers that a host's own class hides and calls back; nothing here calls them

    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT *pResult);
    int OnCreate(LPCREATESTRUCTW lpCreateStruct);
    void OnPaint();
    void OnDestroy();
    void OnClose();
    void OnTimer(UINT_PTR nIDEvent);
    void OnSize(UINT nType, int cx, int cy);
    void OnSizing(UINT nSide, LPRECT lpRect);
    void OnGetMinMaxInfo(MINMAXINFO *lpMMI);
    void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnLButtonUp(UINT nFlags, CPoint point);
    void OnMouseMove(UINT nFlags, CPoint point);
    BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    HBRUSH OnCtlColor(CDC *pDC, CWnd *pWnd, UINT nCtlColor);

protected:
    /// For derived classes that bring a larger private block, which the window owns from now on.
    CWnd(CWndPrivate &d, CWnd *pParent);

private:
    CWndPrivate *d_ptr;
};
