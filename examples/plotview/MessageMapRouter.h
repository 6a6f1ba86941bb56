// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtCore/QObject>

class QAction;
class QWidget;

/// Calls the handlers in a window object's message map when its widgets and actions fire. The parent, which
/// deletes it, has to be gone before the window object is.
class MessageMapRouter : public QObject
{
    Q_OBJECT

public:
    MessageMapRouter(CWnd *target, const AFX_MSGMAP *map, QObject *parent);

    /// Routes what Windows would send for the control: BN_CLICKED, EN_CHANGE, CBN_SELCHANGE, WM_HSCROLL.
    void addControl(UINT id, QWidget *widget);
    /// Routes the command that the action stands for.
    void addCommand(UINT id, QAction *action);

private:
    void route(UINT id, UINT code);
    void routeScroll(int position);

    CWnd *m_target;
    const AFX_MSGMAP *m_map;
};
