// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxWinTypes.h"

#include <QtCore/QEvent>

/// \file
/// Window messages as Qt events.

/// The Qt event type of QKxMsgEvent, -1 before the first one was made.
extern KX_EXPORT int iKxMsgEventType;

/// A window message on its way to a widget. The host's widgets receive it in QObject::event(), compare type()
/// with eventType() and call CWnd::WindowProc(); the library handles none.
class KX_EXPORT QKxMsgEvent : public QEvent
{
public:
    QKxMsgEvent(unsigned int message, unsigned long wParam, long lParam);
    ~QKxMsgEvent() override;

    unsigned int message() const { return m_message; }
    unsigned long wParam() const { return m_wParam; }
    long lParam() const { return m_lParam; }

    /// The event type, registered with Qt at the first call, which should happen on the GUI thread.
    static QEvent::Type eventType();

private:
    unsigned int m_message;
    unsigned long m_wParam;
    long m_lParam;
};

/// Delivers window messages through Qt's event system.
class KX_EXPORT QKxMessageCenter
{
public:
    /// Delivers at once, on the receiver's thread. \return 0
    static long sendMessage(HWND hWnd, unsigned int message, unsigned long wParam, long lParam);
    /// Queues; may be called on any thread once an event was made on the GUI thread.
    /// \return 1, 0 for a null handle
    static long postMessage(HWND hWnd, unsigned int message, unsigned long wParam, long lParam);
};

/// Sends a message to a widget. These act on the widget and pass nothing on, whatever its kind:
/// BM_GETCHECK, BM_SETCHECK, BM_SETIMAGE (QAbstractButton), CB_ADDSTRING, CB_GETCOUNT, CB_GETCURSEL,
/// CB_RESETCONTENT, CB_SETCURSEL (QComboBox). The host's messages WM_USER + 6, + 8, + 12, + 13, + 16, + 17 and
/// + 21 call CWnd::WindowProc() of the handle's window object. All others become a QKxMsgEvent.
/// \return the answer of BM_GETCHECK, CB_GETCOUNT and CB_GETCURSEL; 0 for all others
KX_EXPORT LRESULT SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
/// Queues a QKxMsgEvent. \return FALSE for a null handle
KX_EXPORT BOOL PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);

KX_INERT("returns 0; no timer is made, use QTimer")
KX_EXPORT UINT_PTR SetTimer(HWND hWnd, UINT_PTR nIDEvent, UINT uElapse, TIMERPROC lpTimerFunc);
KX_INERT("returns TRUE; there are no timers")
KX_EXPORT BOOL KillTimer(HWND hWnd, UINT_PTR uIDEvent);
KX_INERT("returns TRUE and leaves the record as it is")
KX_EXPORT BOOL PeekMessageW(tagMSG *lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax, UINT wRemoveMsg);
KX_INERT("returns TRUE; no key is registered, use QShortcut")
KX_EXPORT BOOL RegisterHotKey(HWND hWnd, int id, UINT fsModifiers, UINT vk);
KX_INERT("returns TRUE; no key was registered")
KX_EXPORT BOOL UnregisterHotKey(HWND hWnd, int id);
