// SPDX-License-Identifier: MIT
#include "MessageMapRouter.h"

#include "PlotCanvas.h"
#include "PlotLayer.h"
#include "PlotLayersView.h"

#include <QtCore/QEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAction>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTableWidget>

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
    else if (auto *list = qobject_cast<QListWidget *>(widget))
        connect(list, &QListWidget::currentRowChanged, this, [this, id] { route(id, LBN_SELCHANGE); });
    else if (auto *tree = qobject_cast<PlotLayersView *>(widget))
        addTree(id, tree);
    else if (auto *table = qobject_cast<QTableWidget *>(widget))
        addTable(id, table);
    else if (auto *canvas = qobject_cast<PlotCanvas *>(widget))
        addCanvas(id, canvas);
}

void MessageMapRouter::addWindow(QWidget *window)
{
    window->installEventFilter(this);
}

void MessageMapRouter::addTree(UINT id, PlotLayersView *tree)
{
    connect(tree, &QTreeWidget::currentItemChanged, this,
            [this, id, tree](QTreeWidgetItem *now, QTreeWidgetItem *before) {
                NMTREEVIEW notification = {};
                notification.hdr = {KxHwndFromWidget(tree), id, TVN_SELCHANGED};
                notification.itemOld.hItem = reinterpret_cast<HTREEITEM>(before);
                notification.itemNew.hItem = reinterpret_cast<HTREEITEM>(now);
                routeNotification(id, &notification.hdr);
            });
    connect(tree, &PlotLayersView::markClicked, this, [this, id, tree](QTreeWidgetItem *item) {
        constexpr UINT Unchecked = INDEXTOSTATEIMAGEMASK(1);
        constexpr UINT Checked = INDEXTOSTATEIMAGEMASK(2);
        const quint64 data = item->data(0, Qt::UserRole).toULongLong();
        const bool wasChecked = PlotLayer::fromItemData(data).visible;
        NMTVITEMCHANGE notification = {};
        notification.hdr = {KxHwndFromWidget(tree), id, TVN_ITEMCHANGED};
        notification.uChanged = TVIF_STATE;
        notification.hItem = reinterpret_cast<HTREEITEM>(item);
        notification.uStateOld = wasChecked ? Checked : Unchecked;
        notification.uStateNew = wasChecked ? Unchecked : Checked;
        notification.lParam = static_cast<LPARAM>(data);
        routeNotification(id, &notification.hdr);
    });
}

void MessageMapRouter::addTable(UINT id, QTableWidget *table)
{
    connect(table, &QTableWidget::itemSelectionChanged, this, [this, id, table] {
        NMLISTVIEW notification = {};
        notification.hdr = {KxHwndFromWidget(table), id, LVN_ITEMCHANGED};
        notification.iItem = table->currentRow();
        notification.uChanged = LVIF_STATE;
        routeNotification(id, &notification.hdr);
    });
}

void MessageMapRouter::addCanvas(UINT id, PlotCanvas *canvas)
{
    connect(canvas, &PlotCanvas::marksEnclosed, this, [this, id, canvas](const PlotMarks &marks) {
        NMPLOTMARKS notification = {{KxHwndFromWidget(canvas), id, PCN_MARKSENCLOSED}, &marks};
        routeNotification(id, &notification.hdr);
    });
}

bool MessageMapRouter::eventFilter(QObject *, QEvent *event)
{
    const bool isBlocked = event->type() == QEvent::WindowBlocked;
    if (isBlocked || event->type() == QEvent::WindowUnblocked)
        routeFlag(WM_ENABLE, !isBlocked);
    return false;
}

void MessageMapRouter::addMenu(QMenu *menu)
{
    constexpr bool IsShortcutMenu = false;
    connect(menu, &QMenu::aboutToShow, this, [this] { routeFlag(WM_ENTERMENULOOP, IsShortcutMenu); });
    connect(menu, &QMenu::aboutToHide, this, [this] { routeFlag(WM_EXITMENULOOP, IsShortcutMenu); });
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

void MessageMapRouter::routeNotification(UINT id, NMHDR *header)
{
    const AFX_MSGMAP_ENTRY *entry = KxFindMessageEntry(m_map, WM_NOTIFY, header->code, id);
    LRESULT result = 0;
    if (auto handler = KxMessageHandler<KxNotifyHandler>(entry))
        handler(m_target, header, &result);
}

void MessageMapRouter::routeFlag(UINT message, bool flag)
{
    using FlagHandler = void (CWnd::*)(BOOL);
    const AFX_MSGMAP_ENTRY *entry = KxFindMessageEntry(m_map, message, 0, 0);
    if (auto handler = KxMessageHandler<FlagHandler>(entry))
        handler(m_target, flag);
}

void MessageMapRouter::routeScroll(int position)
{
    using ScrollHandler = void (CWnd::*)(UINT, UINT, CScrollBar *);
    const AFX_MSGMAP_ENTRY *entry = KxFindMessageEntry(m_map, WM_HSCROLL, 0, 0);
    if (auto handler = KxMessageHandler<ScrollHandler>(entry))
        handler(m_target, SB_THUMBTRACK, static_cast<UINT>(position), nullptr);
}
