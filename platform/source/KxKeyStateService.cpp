// SPDX-License-Identifier: MIT
#include "KxPlatformServices.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>

namespace {

constexpr SHORT Down = static_cast<SHORT>(0x8000);
constexpr SHORT Toggled = 1;

struct CapsLockState
{
    bool down = false;
    bool on = false;
    bool wasOnAtPress = false;
};

/// Caps Lock as the key events tell it. Every event is seen several times, on its way from the window to the
/// widgets, so that noting one twice must change nothing.
class CapsLock : public QObject
{
public:
    explicit CapsLock(QObject *application)
        : QObject(application)
    {
        s_state = CapsLockState();
        application->installEventFilter(this);
    }

    static SHORT keyState()
    {
        return static_cast<SHORT>((s_state.down ? Down : 0) | (s_state.on ? Toggled : 0));
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            note(*static_cast<QKeyEvent *>(event));
            break;
        case QEvent::ApplicationStateChange:
            s_state.down = false; // A release that another application receives is never seen here.
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static void note(const QKeyEvent &event)
    {
        // The frame-buffer plugins count their modifiers in an order of their own.
        static const QStringList strangers{QStringLiteral("eglfs"), QStringLiteral("linuxfb")};
        constexpr quint32 LockMask = 1u << 1;

        // Without a scan code the event comes from a program, and its native modifiers say nothing.
        if (event.nativeScanCode() == 0 || strangers.contains(QGuiApplication::platformName()))
            return;
        const bool locked = (event.nativeModifiers() & LockMask) != 0;
        if (event.key() != Qt::Key_CapsLock) {
            s_state.on = locked;
            return;
        }
        // The mask is that of the moment before the event. A press locks at once; the second press ends the
        // lock, although the window system takes it back only at the release.
        if (event.type() == QEvent::KeyPress && !event.isAutoRepeat()) {
            s_state.down = true;
            s_state.wasOnAtPress = locked;
            s_state.on = !locked;
        } else if (event.type() == QEvent::KeyRelease && !event.isAutoRepeat()) {
            s_state.down = false;
            s_state.on = locked && !s_state.wasOnAtPress;
        }
    }

    static inline CapsLockState s_state;
};

void watchCapsLock()
{
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        new CapsLock(QCoreApplication::instance());
}

SHORT downIf(bool condition)
{
    return condition ? Down : SHORT(0);
}

SHORT downIf(Qt::KeyboardModifier modifier)
{
    return downIf(QGuiApplication::keyboardModifiers().testFlag(modifier));
}

SHORT downIf(Qt::MouseButton button)
{
    return downIf(QGuiApplication::mouseButtons().testFlag(button));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchCapsLock)

KxKeyStateService::KxKeyStateService() = default;
KxKeyStateService::~KxKeyStateService() = default;

SHORT KxKeyStateService::keyState(int virtualKey) const
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return 0;

    switch (virtualKey) {
    case VK_SHIFT:
    case VK_LSHIFT:
    case VK_RSHIFT:
        return downIf(Qt::ShiftModifier);
    case VK_CONTROL:
    case VK_LCONTROL:
    case VK_RCONTROL:
        return downIf(Qt::ControlModifier);
    case VK_MENU:
    case VK_LMENU:
    case VK_RMENU:
        return downIf(Qt::AltModifier);
    case VK_LWIN:
    case VK_RWIN:
        return downIf(Qt::MetaModifier);
    case VK_CAPITAL:
        return CapsLock::keyState();
    case VK_LBUTTON:
        return downIf(Qt::LeftButton);
    case VK_RBUTTON:
        return downIf(Qt::RightButton);
    case VK_MBUTTON:
        return downIf(Qt::MiddleButton);
    case VK_XBUTTON1:
        return downIf(Qt::BackButton);
    case VK_XBUTTON2:
        return downIf(Qt::ForwardButton);
    default:
        return 0;
    }
}
