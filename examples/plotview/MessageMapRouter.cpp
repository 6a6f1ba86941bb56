// SPDX-License-Identifier: MIT
#include "MessageMapRouter.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAction>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSlider>

MessageMapRouter::MessageMapRouter(CWnd *target, const AFX_MSGMAP *map, QObject *parent)
    : QObject(parent), m_target(target), m_map(map)
{
}

void MessageMapRouter::addControl(UINT id, QWidget *widget)
{
    if (auto *button = qobject_cast<QAbstractButton *>(widget))
        connect(button, &QAbstractButton::clicked, this, [this, id] { route(id, BN_CLICKED); });
    else if (auto *edit = qobject_cast<QLineEdit *>(widget))
        connect(edit, &QLineEdit::textChanged, this, [this, id] { route(id, EN_CHANGE); });
    else if (auto *combo = qobject_cast<QComboBox *>(widget))
        connect(combo, qOverload<int>(&QComboBox::activated), this, [this, id] { route(id, CBN_SELCHANGE); });
    else if (auto *slider = qobject_cast<QSlider *>(widget))
        connect(slider, &QSlider::valueChanged, this, &MessageMapRouter::routeScroll);
}

void MessageMapRouter::addCommand(UINT id, QAction *action)
{
    connect(action, &QAction::triggered, this, [this, id, action] {
        if (action->isEnabled())    // trigger() does not ask
            route(id, CN_COMMAND);
    });
}

void MessageMapRouter::route(UINT id, UINT code)
{
    const AFX_MSGMAP_ENTRY *entry = KxFindMessageEntry(m_map, WM_COMMAND, code, id);
    if (auto handler = KxMessageHandler<KxCommandHandler>(entry))
        handler(m_target);
    else if (auto rangeHandler = KxMessageHandler<KxCommandRangeHandler>(entry))
        rangeHandler(m_target, id);
}

void MessageMapRouter::routeScroll(int position)
{
    using ScrollHandler = void (CWnd::*)(UINT, UINT, CScrollBar *);
    const AFX_MSGMAP_ENTRY *entry = KxFindMessageEntry(m_map, WM_HSCROLL, 0, 0);
    if (auto handler = KxMessageHandler<ScrollHandler>(entry))
        handler(m_target, SB_THUMBTRACK, static_cast<UINT>(position), nullptr);
}
