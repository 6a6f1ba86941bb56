// SPDX-License-Identifier: MIT
#include "KxQtMessageCenter.h"

#include "KxAfxWin.h"
#include "KxPlatformServices.h"
#include "KxText_p.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QComboBox>

int iKxMsgEventType = -1;

QKxMsgEvent::QKxMsgEvent(unsigned int message, unsigned long wParam, long lParam)
    : QEvent(eventType())
    , m_message(message)
    , m_wParam(wParam)
    , m_lParam(lParam)
{
}

QKxMsgEvent::~QKxMsgEvent() = default;

QEvent::Type QKxMsgEvent::eventType()
{
    if (iKxMsgEventType < 0)
        iKxMsgEventType = QEvent::registerEventType();
    return static_cast<QEvent::Type>(iKxMsgEventType);
}

long QKxMessageCenter::sendMessage(HWND hWnd, unsigned int message, unsigned long wParam, long lParam)
{
    if (hWnd) {
        QKxMsgEvent event(message, wParam, lParam);
        QCoreApplication::sendEvent(KxWidgetFromHwnd(hWnd), &event);
    }
    return 0;
}

long QKxMessageCenter::postMessage(HWND hWnd, unsigned int message, unsigned long wParam, long lParam)
{
    if (!hWnd)
        return 0;
    QCoreApplication::postEvent(KxWidgetFromHwnd(hWnd), new QKxMsgEvent(message, wParam, lParam));
    return 1;
}

namespace {

QAbstractButton *buttonOf(HWND hWnd)
{
    return qobject_cast<QAbstractButton *>(KxWidgetFromHwnd(hWnd));
}

QComboBox *comboBoxOf(HWND hWnd)
{
    return qobject_cast<QComboBox *>(KxWidgetFromHwnd(hWnd));
}

void setButtonImage(QAbstractButton *button, LPARAM bitmap)
{
    const QImage *image = platformServices()->imageService()->image(reinterpret_cast<HGDIOBJ>(bitmap));
    if (image)
        button->setIcon(QIcon(QPixmap::fromImage(image->copy())));
}

} // namespace

LRESULT SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    switch (Msg) {
    case BM_GETCHECK: {
        const QAbstractButton *button = buttonOf(hWnd);
        return button && button->isChecked();
    }
    case BM_SETCHECK:
        if (QAbstractButton *button = buttonOf(hWnd))
            button->setChecked(wParam != 0);
        return 0;
    case BM_SETIMAGE:
        if (QAbstractButton *button = buttonOf(hWnd))
            setButtonImage(button, lParam);
        return 0;
    case CB_ADDSTRING:
        if (QComboBox *combo = comboBoxOf(hWnd))
            combo->addItem(toQString(reinterpret_cast<const wchar_t *>(lParam)));
        return 0;
    case CB_GETCOUNT: {
        const QComboBox *combo = comboBoxOf(hWnd);
        return combo ? combo->count() : 0;
    }
    case CB_GETCURSEL: {
        const QComboBox *combo = comboBoxOf(hWnd);
        return combo ? combo->currentIndex() : 0;
    }
    case CB_RESETCONTENT:
        if (QComboBox *combo = comboBoxOf(hWnd))
            combo->clear();
        return 0;
    case CB_SETCURSEL:
        if (QComboBox *combo = comboBoxOf(hWnd))
            combo->setCurrentIndex(static_cast<int>(wParam));
        return 0;
    // The host's own notifications, which must reach its window object at once.
    case WM_USER + 6:
    case WM_USER + 8:
    case WM_USER + 12:
    case WM_USER + 13:
    case WM_USER + 16:
    case WM_USER + 17:
    case WM_USER + 21:
        if (CWnd *window = CWnd::FromHandle(hWnd))
            window->WindowProc(Msg, wParam, lParam);
        return 0;
    default:
        return QKxMessageCenter::sendMessage(hWnd, Msg, wParam, lParam);
    }
}

BOOL PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return QKxMessageCenter::postMessage(hWnd, Msg, wParam, lParam) != 0;
}

UINT_PTR SetTimer(HWND, UINT_PTR, UINT, TIMERPROC) { return 0; }
BOOL KillTimer(HWND, UINT_PTR) { return TRUE; }
BOOL PeekMessageW(tagMSG *, HWND, UINT, UINT, UINT) { return TRUE; }
BOOL RegisterHotKey(HWND, int, UINT, UINT) { return TRUE; }
BOOL UnregisterHotKey(HWND, int) { return TRUE; }
