// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtCore/QObject>

class PlotCanvas;
class PlotLayersView;
class QAction;
class QMenu;
class QTableWidget;
class QTreeWidgetItem;
class QWidget;

/// Calls the handlers in a window object's message map when its widgets and actions fire. Whoever owns it,
/// the parent or the window object, deletes it before the window object is gone.
class MessageMapRouter : public QObject
{
    Q_OBJECT

public:
    MessageMapRouter(CWnd *target, const AFX_MSGMAP *map, QObject *parent = nullptr);

    /// Routes what Windows would send for the control: BN_CLICKED, EN_CHANGE, CBN_SELCHANGE, LBN_SELCHANGE,
    /// WM_HSCROLL; of a layers tree TVN_SELCHANGED and, for its check marks, TVN_ITEMCHANGED; of a table
    /// LVN_ITEMCHANGED; of a canvas PCN_MARKSENCLOSED.
    void addControl(UINT id, QWidget *widget);
    /// Routes WM_ENABLE: whether a modal window keeps the user from this one.
    void addWindow(QWidget *window);
    /// Routes WM_ENTERMENULOOP and WM_EXITMENULOOP: the menu is about to be shown, and is gone again.
    void addMenu(QMenu *menu);
    /// Routes the command that the action stands for.
    void addCommand(UINT id, QAction *action);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void addTree(UINT id, PlotLayersView *tree);
    void addCanvas(UINT id, PlotCanvas *canvas);
    void addTable(UINT id, QTableWidget *table);
    void route(UINT id, UINT code);
    void routeNotification(UINT id, NMHDR *header);
    void routeFlag(UINT message, bool flag);
    void routeScroll(int position);

    CWnd *m_target;
    const AFX_MSGMAP *m_map;
};
