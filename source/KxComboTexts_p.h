// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QHash>
#include <QtCore/QModelIndex>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVector>

class QComboBox;
class QStandardItem;
class QStandardItemModel;

/// Finds texts in the model that a combo box makes itself, as QComboBox::findText() does for exact matches,
/// without a walk through the rows for a text that is not there. A child of the model, which it follows by
/// its signals: what changes without one is seen only where the number of rows tells.
class KxComboTexts : public QObject
{
public:
    /// The row of a text; -1 when it is not there.
    static int find(const QComboBox *combo, const QString &text);

private:
    KxComboTexts(QStandardItemModel *model, int column);

    static KxComboTexts *of(QStandardItemModel *model, int column);
    bool isCurrent();
    void forget();
    void changeData(const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles);
    void insertRows(const QModelIndex &parent, int first, int last);
    void removeRows(const QModelIndex &parent, int first, int last);
    int rowOf(const QStandardItem *item, const QString &text) const;

    QStandardItemModel *const m_model;
    const int m_column;
    QHash<QString, const QStandardItem *> m_items; // null for a text that several rows have
    int m_rowCount = 0;
    bool m_read = false;
    bool m_onlyTexts = true; // every row shows a text and no other value
};
