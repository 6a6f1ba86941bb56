// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"
#include "KxAfxWinPrivate.h"

#include <QtWidgets/QWidget>

#include <cstdint>
#include <type_traits>

/// Whether an object pointer is really a small integer, which nobody may follow.
inline bool isSmallHandle(const void *object)
{
    return reinterpret_cast<std::uintptr_t>(object) < 4096;
}

/// What a member called through a small pointer answers: the pointer's value in the result type.
template<class Result>
Result smallHandleResult(const void *object)
{
    const auto value = reinterpret_cast<std::uintptr_t>(object);
    if constexpr (std::is_pointer_v<Result>)
        return reinterpret_cast<Result>(value);
    else
        return static_cast<Result>(value);
}

/// Keeps an object's signals quiet, and lets them out again at the end even when they were quiet before.
class QuietSignals
{
public:
    explicit QuietSignals(QObject *object) : m_object(object) { m_object->blockSignals(true); }
    ~QuietSignals() { m_object->blockSignals(false); }
    QuietSignals(const QuietSignals &) = delete;
    QuietSignals &operator=(const QuietSignals &) = delete;

private:
    QObject *m_object;
};

/// The private block; null for a small pointer.
inline CWndPrivate *privateBlock(const CWnd *window)
{
    return isSmallHandle(window) ? nullptr : window->d_func();
}

/// qobject_cast(), quicker: most widgets are of the very class asked for.
template<class Widget>
Widget *widgetCast(QWidget *widget)
{
    for (const QMetaObject *kind = widget ? widget->metaObject() : nullptr; kind; kind = kind->superClass()) {
        if (kind == &Widget::staticMetaObject)
            return static_cast<Widget *>(widget);
    }
    return nullptr;
}

/// The widget of a bound window when it is a `Widget`; null for a small pointer, an unbound window or a widget
/// of another kind. The pointer is looked at before it is taken for one to a CWnd.
template<class Widget = QWidget, class Window>
Widget *boundWidget(const Window *window)
{
    if (isSmallHandle(window))
        return nullptr;
    const CWnd *const bound = window;
    const CWndPrivate *d = bound->d_func();
    QWidget *widget = d && bound->m_hWnd ? d->widget : nullptr;
    if constexpr (std::is_same_v<Widget, QWidget>)
        return widget;
    else
        return widgetCast<Widget>(widget);
}

/// The private block of a bound window, otherwise null.
inline CWndPrivate *boundBlock(const CWnd *window)
{
    CWndPrivate *d = privateBlock(window);
    return d && window->m_hWnd && d->widget ? d : nullptr;
}
