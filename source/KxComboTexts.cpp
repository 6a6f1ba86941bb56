// SPDX-License-Identifier: MIT
#include "KxComboTexts_p.h"

#include <QtGui/QStandardItemModel>
#include <QtWidgets/QComboBox>

#include <typeinfo>

namespace {

constexpr int fewRows = 16; // quicker walked through

int walk(const QComboBox *combo, const QString &text)
{
    return combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
}

} // namespace

int KxComboTexts::find(const QComboBox *combo, const QString &text)
{
    QAbstractItemModel *model = combo->model();
    if (text.isEmpty() || combo->count() <= fewRows || typeid(*model) != typeid(QStandardItemModel)
        || combo->rootModelIndex().isValid())
        return walk(combo, text);
    KxComboTexts *texts = of(static_cast<QStandardItemModel *>(model), combo->modelColumn());
    if (!texts->isCurrent())
        return walk(combo, text);
    const auto found = texts->m_items.constFind(text);
    if (found == texts->m_items.constEnd())
        return -1;
    const int row = texts->rowOf(*found, text);
    return row >= 0 ? row : walk(combo, text);
}

KxComboTexts::KxComboTexts(QStandardItemModel *model, int column)
    : QObject(model)
    , m_model(model)
    , m_column(column)
{
    connect(model, &QAbstractItemModel::rowsInserted, this, &KxComboTexts::insertRows);
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &KxComboTexts::removeRows);
    connect(model, &QAbstractItemModel::dataChanged, this, &KxComboTexts::changeData);
    connect(model, &QAbstractItemModel::columnsInserted, this, &KxComboTexts::forget);
    connect(model, &QAbstractItemModel::columnsRemoved, this, &KxComboTexts::forget);
    connect(model, &QAbstractItemModel::columnsMoved, this, &KxComboTexts::forget);
    connect(model, &QAbstractItemModel::modelReset, this, &KxComboTexts::forget);
}

KxComboTexts *KxComboTexts::of(QStandardItemModel *model, int column)
{
    for (QObject *child : model->children()) {
        auto *texts = dynamic_cast<KxComboTexts *>(child);
        if (texts && texts->m_column == column)
            return texts;
    }
    return new KxComboTexts(model, column);
}

/// Whether the texts are known, which are read again where they changed.
bool KxComboTexts::isCurrent()
{
    const int rowCount = m_model->rowCount();
    if (!m_read || m_rowCount != rowCount) {
        forget();
        m_read = true;
        insertRows(QModelIndex(), 0, rowCount - 1);
    }
    return m_onlyTexts;
}

void KxComboTexts::forget()
{
    m_items.clear();
    m_rowCount = 0;
    m_read = false;
    m_onlyTexts = true;
}

void KxComboTexts::changeData(const QModelIndex &, const QModelIndex &, const QVector<int> &roles)
{
    if (roles.isEmpty() || roles.contains(Qt::DisplayRole) || roles.contains(Qt::EditRole))
        forget();
}

void KxComboTexts::insertRows(const QModelIndex &parent, int first, int last)
{
    if (!m_read || parent.isValid())
        return;
    m_rowCount += last - first + 1;
    for (int row = first; row <= last; ++row) {
        const QStandardItem *item = m_model->item(row, m_column);
        const QVariant shown = item ? item->data(Qt::DisplayRole) : QVariant();
        if (item && (typeid(*item) != typeid(QStandardItem)
                     || (shown.isValid() && shown.userType() != QMetaType::QString)))
            m_onlyTexts = false;
        if (!shown.isValid())
            continue;
        const QString text = shown.toString();
        m_items.insert(text, m_items.contains(text) ? nullptr : item);
    }
}

void KxComboTexts::removeRows(const QModelIndex &parent, int first, int last)
{
    if (!m_read || parent.isValid())
        return;
    m_rowCount -= last - first + 1;
    for (int row = first; row <= last; ++row) {
        const QStandardItem *item = m_model->item(row, m_column);
        const auto known = item ? m_items.find(item->text()) : m_items.end();
        if (known != m_items.end() && *known == item)
            m_items.erase(known);
    }
}

/// The row of an item that has been kept, provided that it is still there and shows that text; otherwise -1.
int KxComboTexts::rowOf(const QStandardItem *item, const QString &text) const
{
    for (int row = 0; item && row < m_rowCount; ++row) {
        if (m_model->item(row, m_column) == item)
            return item->text() == text ? row : -1;
    }
    return -1;
}
