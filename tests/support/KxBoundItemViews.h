// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringListModel>
#include <QtGui/QStandardItemModel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QTableWidget>

#include <afxcmn.h>

#include <KxAfxWinListCtrl.h>

inline QStringList kxStrings(std::initializer_list<const char *> texts)
{
    QStringList found;
    for (const char *each : texts)
        found.append(QString::fromLatin1(each));
    return found;
}

// The widgets that a CListCtrl drives, each with one bound to it.

/// A list of rows with the given texts.
struct KxBoundList {
    explicit KxBoundList(const QStringList &rows = kxStrings({"a", "b", "c"}))
    {
        widget.addItems(rows);
        control.Attach(KxHwndFromWidget(&widget));
    }

    QStringList texts() const
    {
        QStringList found;
        for (int row = 0; row < widget.count(); ++row)
            found.append(widget.item(row)->text());
        return found;
    }

    QListWidget widget;
    CListCtrl control;
};

/// A table whose cells read "<row>,<column>".
struct KxBoundTable {
    explicit KxBoundTable(int rows = 3, int columns = 3) : widget(rows, columns)
    {
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column)
                widget.setItem(row, column,
                               new QTableWidgetItem(QStringLiteral("%1,%2").arg(row).arg(column)));
        }
        control.Attach(KxHwndFromWidget(&widget));
    }

    /// The texts of a row; a cell that is not there reads "none".
    QStringList texts(int row) const
    {
        QStringList found;
        for (int column = 0; column < widget.columnCount(); ++column) {
            const QTableWidgetItem *cell = widget.item(row, column);
            found.append(cell ? cell->text() : QStringLiteral("none"));
        }
        return found;
    }

    QTableWidget widget;
    CListCtrl control;
};

/// A view of a standard model whose cells read "<row>,<column>".
struct KxBoundView {
    explicit KxBoundView(int rows = 3, int columns = 3) : model(rows, columns)
    {
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column)
                model.setItem(row, column, new QStandardItem(QStringLiteral("%1,%2").arg(row).arg(column)));
        }
        widget.setModel(&model);
        control.Attach(KxHwndFromWidget(&widget));
    }

    QStandardItemModel model;
    QTableView widget;
    CListCtrl control;
};

/// A view of a model of another kind.
struct KxBoundStringView {
    KxBoundStringView()
    {
        widget.setModel(&model);
        control.Attach(KxHwndFromWidget(&widget));
    }

    QStringListModel model{kxStrings({"a", "b", "c"})};
    QTableView widget;
    CListCtrl control;
};

/// A view that has no model.
struct KxBoundEmptyView {
    KxBoundEmptyView() { control.Attach(KxHwndFromWidget(&widget)); }

    QTableView widget;
    CListCtrl control;
};

/// What addresses a cell and brings text and data for it.
inline LVITEMW kxListViewItem(int row, int column, wchar_t *text, LPARAM data)
{
    LVITEMW item{};
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = text;
    item.lParam = data;
    return item;
}
