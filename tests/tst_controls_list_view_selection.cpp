// SPDX-License-Identifier: MIT
// CListCtrl: state, selection and label editing, on a list, a table and a view over a model.

#include "KxBoundItemViews.h"
#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QLineEdit>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(QListWidgetItem *)

namespace {

/// The rows that the iteration tells, from its beginning to its end.
QList<int> selectedRows(const CListCtrl &control)
{
    QList<int> rows;
    POSITION position = control.GetFirstSelectedItemPosition();
    while (position && rows.size() < 100)
        rows.append(control.GetNextSelectedItem(position));
    return rows;
}

void select(QTableWidget *table, int row, int column)
{
    table->item(row, column)->setSelected(true);
}

/// Selects a row of a view beside those that are selected.
void selectRow(QTableView *view, int row)
{
    view->selectionModel()->select(view->model()->index(row, 0),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void deselectRow(QTableView *view, int row)
{
    view->selectionModel()->select(view->model()->index(row, 0),
                                   QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
}

const LIST_POSITION *listPosition(POSITION position)
{
    return reinterpret_cast<const LIST_POSITION *>(position);
}

/// The field in which a view lets the user edit, or null.
QLineEdit *editorOf(QAbstractItemView *view)
{
    return view->viewport()->findChild<QLineEdit *>();
}

} // namespace

class ListViewSelectionTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void setState_data();
    void setState() { runPromise(); }
    void getState_data();
    void getState() { runPromise(); }
    void currentRow_data();
    void currentRow() { runPromise(); }
    void selectedCount_data();
    void selectedCount() { runPromise(); }
    void positions_data();
    void positions() { runPromise(); }
    void editLabel_data();
    void editLabel() { runPromise(); }

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

/// What QSignalSpy keeps of the signals.
void ListViewSelectionTest::initTestCase()
{
    qRegisterMetaType<QListWidgetItem *>();
}

void ListViewSelectionTest::setState_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: state 1 makes the row current, and the widget tells") << Promise([] {
        KxBoundList list;
        const QSignalSpy rows(&list.widget, &QListWidget::currentRowChanged);
        QVERIFY(list.control.SetItemState(1, 1, 1));
        QCOMPARE(list.widget.currentRow(), 1);
        QVERIFY(list.widget.item(1)->isSelected());
        QCOMPARE(rows.count(), 1);
        QCOMPARE(rows.at(0).at(0).toInt(), 1);
    });
    QTest::newRow("list: the state counts, not the mask") << Promise([] {
        KxBoundList list;
        QVERIFY(list.control.SetItemState(1, 0, 1));
        QCOMPARE(list.widget.currentRow(), -1);
        QVERIFY(list.control.SetItemState(2, 3, 0));
        QCOMPARE(list.widget.currentRow(), 2);
    });
    QTest::newRow("list: LVIS_SELECTED alone does nothing") << Promise([] {
        KxBoundList list;
        const QSignalSpy rows(&list.widget, &QListWidget::currentRowChanged);
        QVERIFY(list.control.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED));
        QCOMPARE(list.widget.currentRow(), -1);
        QVERIFY(list.widget.selectedItems().isEmpty());
        QCOMPARE(rows.count(), 0);
    });
    QTest::newRow("list: state 0 deselects nothing") << Promise([] {
        KxBoundList list;
        list.widget.setCurrentRow(1);
        QVERIFY(list.control.SetItemState(1, 0, 1));
        QCOMPARE(list.widget.currentRow(), 1);
        QVERIFY(list.widget.item(1)->isSelected());
    });
    QTest::newRow("list: a negative row does nothing") << Promise([] {
        KxBoundList list;
        list.widget.setCurrentRow(1);
        list.control.SetItemState(-1, 1, 1);
        QCOMPARE(list.widget.currentRow(), 1);
        QVERIFY(list.widget.item(1)->isSelected());
    });
    QTest::newRow("table: state 1 makes column 0 of the row current, and the widget tells") << Promise([] {
        KxBoundTable table;
        table.widget.setCurrentCell(0, 2);
        const QSignalSpy cells(&table.widget, &QTableWidget::currentCellChanged);
        QVERIFY(table.control.SetItemState(1, 1, 1));
        QCOMPARE(table.widget.currentRow(), 1);
        QCOMPARE(table.widget.currentColumn(), 0);
        QCOMPARE(cells.count(), 1);
        QCOMPARE(cells.at(0).at(0).toInt(), 1);
        QCOMPARE(cells.at(0).at(1).toInt(), 0);
    });
    QTest::newRow("table: the state counts, not the mask") << Promise([] {
        KxBoundTable table;
        QVERIFY(table.control.SetItemState(1, 0, 1));
        QCOMPARE(table.widget.currentRow(), -1);
        QVERIFY(table.widget.selectedItems().isEmpty());
        QVERIFY(table.control.SetItemState(2, 3, 0));
        QCOMPARE(table.widget.currentRow(), 2);
    });
    QTest::newRow("table: LVIS_SELECTED alone does nothing") << Promise([] {
        KxBoundTable table;
        QVERIFY(table.control.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED));
        QCOMPARE(table.widget.currentRow(), -1);
        QVERIFY(table.widget.selectedItems().isEmpty());
    });
    QTest::newRow("table: a negative row does nothing, state 0 deselects nothing") << Promise([] {
        KxBoundTable table;
        table.widget.setCurrentCell(1, 0);
        table.control.SetItemState(-1, 1, 1);
        QVERIFY(table.control.SetItemState(1, 0, 1));
        QCOMPARE(table.widget.currentRow(), 1);
        QVERIFY(table.widget.item(1, 0)->isSelected());
    });
    QTest::newRow("view: mask 1 selects the row, with state 0 too, and the selection tells") << Promise([] {
        KxBoundView view;
        const QSignalSpy changes(view.widget.selectionModel(), &QItemSelectionModel::selectionChanged);
        QVERIFY(view.control.SetItemState(1, 0, 1));
        QCOMPARE(view.widget.selectionModel()->selectedRows(), QModelIndexList{view.model.index(1, 0)});
        QCOMPARE(changes.count(), 1);
    });
    QTest::newRow("view: the mask counts, not the state") << Promise([] {
        KxBoundView view;
        QVERIFY(view.control.SetItemState(1, 1, 0));
        QVERIFY(view.control.SetItemState(1, 3, LVIS_SELECTED));
        QVERIFY(!view.widget.selectionModel()->hasSelection());
        QVERIFY(view.control.SetItemState(1, 1, 3));
        QCOMPARE(view.widget.selectionModel()->selectedRows(), QModelIndexList{view.model.index(1, 0)});
    });
    QTest::newRow("view: state 0 deselects nothing, a negative row does nothing") << Promise([] {
        KxBoundView view;
        view.widget.selectRow(1);
        QVERIFY(view.control.SetItemState(1, 0, 0));
        view.control.SetItemState(-1, 1, 1);
        QCOMPARE(view.widget.selectionModel()->selectedRows(), QModelIndexList{view.model.index(1, 0)});
    });
    QTest::newRow("view of another model: mask 1 selects the row") << Promise([] {
        KxBoundStringView view;
        QVERIFY(view.control.SetItemState(2, 0, 1));
        QCOMPARE(view.widget.selectionModel()->selectedRows(), QModelIndexList{view.model.index(2, 0)});
    });
    QTest::newRow("view without a model: returns, nothing is selected") << Promise([] {
        KxBoundEmptyView view;
        QVERIFY(view.control.SetItemState(1, 1, 1));
        QVERIFY(view.widget.selectionModel() == nullptr);
    });
}

void ListViewSelectionTest::getState_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: 1 for a selected row, 0 for another") << Promise([] {
        KxBoundList list;
        list.widget.setSelectionMode(QAbstractItemView::MultiSelection);
        list.widget.item(0)->setSelected(true);
        list.widget.item(2)->setSelected(true);
        QCOMPARE(list.control.GetItemState(0, 1), 1u);
        QCOMPARE(list.control.GetItemState(1, 1), 0u);
        QCOMPARE(list.control.GetItemState(2, 3), 1u);
    });
    QTest::newRow("list: 0 without bit 1 in the mask") << Promise([] {
        KxBoundList list;
        list.widget.setCurrentRow(1);
        QCOMPARE(list.control.GetItemState(1, 1), 1u);
        QCOMPARE(list.control.GetItemState(1, LVIS_SELECTED), 0u);
        QCOMPARE(list.control.GetItemState(1, 0), 0u);
    });
    QTest::newRow("list: current is not selected") << Promise([] {
        KxBoundList list;
        list.widget.setCurrentRow(1, QItemSelectionModel::NoUpdate);
        QCOMPARE(list.widget.currentRow(), 1);
        QCOMPARE(list.control.GetItemState(1, 1), 0u);
    });
    QTest::newRow("list: 0 for a row that is not there") << Promise([] {
        const KxBoundList list;
        QCOMPARE(list.control.GetItemState(3, 1), 0u);
        QCOMPARE(list.control.GetItemState(-1, 1), 0u);
    });
    QTest::newRow("table: 1 when the cell of column 0 is selected") << Promise([] {
        KxBoundTable table;
        select(&table.widget, 1, 0);
        select(&table.widget, 2, 1);
        QCOMPARE(table.control.GetItemState(0, 1), 0u);
        QCOMPARE(table.control.GetItemState(1, 1), 1u);
        QCOMPARE(table.control.GetItemState(2, 1), 0u);
        QCOMPARE(table.control.GetItemState(1, LVIS_SELECTED), 0u);
    });
    QTest::newRow("table: 0 for a row without a cell in column 0 and one that is not there") << Promise([] {
        KxBoundTable table(2, 1);
        delete table.widget.takeItem(1, 0);
        table.widget.selectAll();
        QCOMPARE(table.control.GetItemState(0, 1), 1u);
        QCOMPARE(table.control.GetItemState(1, 1), 0u);
        QCOMPARE(table.control.GetItemState(2, 1), 0u);
        QCOMPARE(table.control.GetItemState(-1, 1), 0u);
    });
    QTest::newRow("view: 1 when the row is selected in every column") << Promise([] {
        KxBoundView view;
        selectRow(&view.widget, 0);
        selectRow(&view.widget, 2);
        view.widget.selectionModel()->select(view.model.index(1, 0), QItemSelectionModel::Select);
        QCOMPARE(view.control.GetItemState(0, 1), 1u);
        QCOMPARE(view.control.GetItemState(1, 1), 0u);
        QCOMPARE(view.control.GetItemState(2, 3), 1u);
        QCOMPARE(view.control.GetItemState(2, LVIS_SELECTED), 0u);
        QCOMPARE(view.control.GetItemState(3, 1), 0u);
        QCOMPARE(view.control.GetItemState(-1, 1), 0u);
    });
    QTest::newRow("view of another model: 1 when the row is selected") << Promise([] {
        KxBoundStringView view;
        view.widget.selectRow(1);
        QCOMPARE(view.control.GetItemState(1, 1), 1u);
        QCOMPARE(view.control.GetItemState(0, 1), 0u);
    });
    QTest::newRow("view without a model: 0") << Promise([] {
        const KxBoundEmptyView view;
        QCOMPARE(view.control.GetItemState(0, 1), 0u);
    });
}

void ListViewSelectionTest::currentRow_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: GetSelectionMark is the current row, -1 without") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.GetSelectionMark(), -1);
        list.widget.setCurrentRow(2);
        QCOMPARE(list.control.GetSelectionMark(), 2);
    });
    QTest::newRow("table: GetSelectionMark is -1") << Promise([] {
        KxBoundTable table;
        table.widget.setCurrentCell(2, 0);
        QCOMPARE(table.control.GetSelectionMark(), -1);
    });
    QTest::newRow("view: GetSelectionMark is -1") << Promise([] {
        KxBoundView view;
        view.widget.selectRow(2);
        QCOMPARE(view.control.GetSelectionMark(), -1);
    });
    QTest::newRow("list: GetNextItem is the current row, wherever it starts") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.GetNextItem(-1, LVNI_SELECTED), -1);
        list.widget.setCurrentRow(2);
        for (const int start : {-1, 0, 2, 9}) {
            QCOMPARE(list.control.GetNextItem(start, LVNI_FOCUSED), 2);
            QCOMPARE(list.control.GetNextItem(start, LVNI_SELECTED), 2);
        }
    });
    QTest::newRow("list: GetNextItem of other flags is -1") << Promise([] {
        KxBoundList list;
        list.widget.setCurrentRow(2);
        for (const int flags : {0, 3, 4, LVNI_SELECTED | LVNI_BELOW, -1})
            QCOMPARE(list.control.GetNextItem(-1, flags), -1);
    });
    QTest::newRow("table: GetNextItem is the current row, but -1 from there") << Promise([] {
        KxBoundTable table;
        QCOMPARE(table.control.GetNextItem(-1, LVNI_SELECTED), -1);
        table.widget.setCurrentCell(1, 2);
        for (const int flags : {LVNI_FOCUSED, LVNI_SELECTED}) {
            QCOMPARE(table.control.GetNextItem(-1, flags), 1);
            QCOMPARE(table.control.GetNextItem(0, flags), 1);
            QCOMPARE(table.control.GetNextItem(2, flags), 1);
            QCOMPARE(table.control.GetNextItem(1, flags), -1);
        }
    });
    QTest::newRow("table: GetNextItem of other flags is -1") << Promise([] {
        KxBoundTable table;
        table.widget.setCurrentCell(1, 0);
        for (const int flags : {0, 3, 4, LVNI_SELECTED | LVNI_BELOW, -1})
            QCOMPARE(table.control.GetNextItem(-1, flags), -1);
    });
    QTest::newRow("view: GetNextItem is -1") << Promise([] {
        KxBoundView view;
        view.widget.selectRow(1);
        QCOMPARE(view.control.GetNextItem(-1, LVNI_FOCUSED), -1);
        QCOMPARE(view.control.GetNextItem(-1, LVNI_SELECTED), -1);
    });
}

void ListViewSelectionTest::selectedCount_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: the selected rows") << Promise([] {
        KxBoundList list;
        list.widget.setSelectionMode(QAbstractItemView::MultiSelection);
        QCOMPARE(list.control.GetSelectedCount(), 0u);
        list.widget.item(0)->setSelected(true);
        list.widget.item(2)->setSelected(true);
        QCOMPARE(list.control.GetSelectedCount(), 2u);
    });
    QTest::newRow("table: the rows of selected cells, each once") << Promise([] {
        KxBoundTable table;
        QCOMPARE(table.control.GetSelectedCount(), 0u);
        select(&table.widget, 0, 0);
        select(&table.widget, 2, 1);
        select(&table.widget, 0, 2);
        select(&table.widget, 0, 1);
        QCOMPARE(table.control.GetSelectedCount(), 2u);
    });
    QTest::newRow("table: rows without cells do not count") << Promise([] {
        KxBoundTable table(2, 2);
        table.widget.setRowCount(5);
        table.widget.selectAll();
        QCOMPARE(table.control.GetSelectedCount(), 2u);
    });
    QTest::newRow("view: the rows that are selected in every column") << Promise([] {
        KxBoundView view;
        QCOMPARE(view.control.GetSelectedCount(), 0u);
        selectRow(&view.widget, 0);
        selectRow(&view.widget, 2);
        view.widget.selectionModel()->select(view.model.index(1, 0), QItemSelectionModel::Select);
        QCOMPARE(view.control.GetSelectedCount(), 2u);
    });
    QTest::newRow("view of another model: the selected rows") << Promise([] {
        KxBoundStringView view;
        view.widget.selectAll();
        QCOMPARE(view.control.GetSelectedCount(), 3u);
    });
    QTest::newRow("view without a model: 0") << Promise([] {
        const KxBoundEmptyView view;
        QCOMPARE(view.control.GetSelectedCount(), 0u);
    });
}

void ListViewSelectionTest::positions_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: no position, -1 for any") << Promise([] {
        KxBoundList list;
        list.widget.setCurrentRow(1);
        QVERIFY(list.control.GetFirstSelectedItemPosition() == nullptr);
        const auto given = reinterpret_cast<POSITION>(list.widget.item(1));
        POSITION position = given;
        QCOMPARE(list.control.GetNextSelectedItem(position), -1);
        QVERIFY(position == given);
        position = nullptr;
        QCOMPARE(list.control.GetNextSelectedItem(position), -1);
    });
    QTest::newRow("table: null without a selection, -1 for null") << Promise([] {
        const KxBoundTable table;
        POSITION position = table.control.GetFirstSelectedItemPosition();
        QVERIFY(position == nullptr);
        QCOMPARE(table.control.GetNextSelectedItem(position), -1);
        QVERIFY(position == nullptr);
    });
    QTest::newRow("table: the position is the first of the selected cells") << Promise([] {
        KxBoundTable table;
        select(&table.widget, 2, 1);
        select(&table.widget, 0, 1);
        const QList<QTableWidgetItem *> cells = table.widget.selectedItems();
        POSITION position = table.control.GetFirstSelectedItemPosition();
        QVERIFY(reinterpret_cast<QTableWidgetItem *>(position) == cells.at(0));
        QCOMPARE(table.control.GetNextSelectedItem(position), cells.at(0)->row());
        QVERIFY(reinterpret_cast<QTableWidgetItem *>(position) == cells.at(1));
        QCOMPARE(table.control.GetNextSelectedItem(position), cells.at(1)->row());
        QVERIFY(position == nullptr);
        QCOMPARE(table.control.GetNextSelectedItem(position), -1);
    });
    QTest::newRow("table: rows selected in several columns come once") << Promise([] {
        KxBoundTable table(5, 3);
        table.widget.setRangeSelected(QTableWidgetSelectionRange(1, 0, 3, 2), true);
        QCOMPARE(selectedRows(table.control), (QList<int>{1, 2, 3}));
    });
    QTest::newRow("table: whole rows, apart from each other") << Promise([] {
        KxBoundTable table(6, 2);
        for (const int row : {1, 3, 4})
            table.widget.setRangeSelected(QTableWidgetSelectionRange(row, 0, row, 1), true);
        QCOMPARE(selectedRows(table.control), (QList<int>{1, 3, 4}));
    });
    QTest::newRow("table: one cell, the last one") << Promise([] {
        KxBoundTable table;
        select(&table.widget, 2, 2);
        QCOMPARE(selectedRows(table.control), QList<int>{2});
    });
    QTest::newRow("table: a row that is selected again behind another one comes again") << Promise([] {
        KxBoundTable table;
        select(&table.widget, 0, 0);
        select(&table.widget, 2, 2);
        select(&table.widget, 0, 2);
        QList<int> rows;
        for (const QTableWidgetItem *cell : table.widget.selectedItems())
            rows.append(cell->row());
        QCOMPARE(rows, (QList<int>{0, 2, 0}));
        QCOMPARE(selectedRows(table.control), rows);
    });
    QTest::newRow("table: rows may be deleted once they are told") << Promise([] {
        KxBoundTable table(5, 1);
        select(&table.widget, 1, 0);
        select(&table.widget, 3, 0);
        POSITION position = table.control.GetFirstSelectedItemPosition();
        QCOMPARE(table.control.GetNextSelectedItem(position), 1);
        QVERIFY(table.control.DeleteItem(1));
        QCOMPARE(table.control.GetNextSelectedItem(position), 2);
        QVERIFY(position == nullptr);
    });
    QTest::newRow("view: null without a selection, -1 for null") << Promise([] {
        const KxBoundView view;
        POSITION position = view.control.GetFirstSelectedItemPosition();
        QVERIFY(position == nullptr);
        QCOMPARE(view.control.GetNextSelectedItem(position), -1);
        QVERIFY(position == nullptr);
    });
    QTest::newRow("view: null when no row is selected in every column") << Promise([] {
        KxBoundView view;
        view.widget.selectionModel()->select(view.model.index(1, 0), QItemSelectionModel::Select);
        QVERIFY(view.control.GetFirstSelectedItemPosition() == nullptr);
    });
    QTest::newRow("view: the position holds the next row and those told, to its end") << Promise([] {
        KxBoundView view(6, 2);
        for (const int row : {4, 1, 3})
            selectRow(&view.widget, row);
        QList<int> rows;
        for (const QModelIndex &index : view.widget.selectionModel()->selectedRows(0))
            rows.append(index.row());
        QCOMPARE(rows.size(), 3);

        POSITION position = view.control.GetFirstSelectedItemPosition();
        const POSITION first = position;
        QCOMPARE(listPosition(position)->row, rows.at(0));
        QVERIFY(listPosition(position)->visited.isEmpty());
        QCOMPARE(view.control.GetNextSelectedItem(position), rows.at(0));
        QVERIFY(position == first);
        QCOMPARE(listPosition(position)->row, rows.at(1));
        QCOMPARE(listPosition(position)->visited, rows.mid(0, 1));
        QCOMPARE(view.control.GetNextSelectedItem(position), rows.at(1));
        QVERIFY(position == first);
        QCOMPARE(listPosition(position)->row, rows.at(2));
        QCOMPARE(listPosition(position)->visited, rows.mid(0, 2));
        QCOMPARE(view.control.GetNextSelectedItem(position), rows.at(2));
        QVERIFY(position == nullptr);
        QCOMPARE(view.control.GetNextSelectedItem(position), -1);
    });
    QTest::newRow("view: every selected row comes once") << Promise([] {
        KxBoundView view(5, 3);
        view.widget.selectAll();
        QCOMPARE(selectedRows(view.control), (QList<int>{0, 1, 2, 3, 4}));
    });
    QTest::newRow("view: one row") << Promise([] {
        KxBoundView view;
        view.widget.selectRow(2);
        QCOMPARE(selectedRows(view.control), QList<int>{2});
    });
    QTest::newRow("view: the selection may change on the way") << Promise([] {
        KxBoundView view(6, 2);
        for (const int row : {1, 2, 3})
            selectRow(&view.widget, row);
        POSITION position = view.control.GetFirstSelectedItemPosition();
        QCOMPARE(view.control.GetNextSelectedItem(position), 1);
        deselectRow(&view.widget, 3);
        selectRow(&view.widget, 5);
        QCOMPARE(view.control.GetNextSelectedItem(position), 2);
        QCOMPARE(view.control.GetNextSelectedItem(position), 5);
        QVERIFY(position == nullptr);
    });
    QTest::newRow("view: two iterations at a time") << Promise([] {
        KxBoundView view;
        view.widget.selectAll();
        POSITION outer = view.control.GetFirstSelectedItemPosition();
        QCOMPARE(view.control.GetNextSelectedItem(outer), 0);
        QCOMPARE(selectedRows(view.control), (QList<int>{0, 1, 2}));
        QCOMPARE(view.control.GetNextSelectedItem(outer), 1);
        QCOMPARE(view.control.GetNextSelectedItem(outer), 2);
        QVERIFY(outer == nullptr);
    });
    QTest::newRow("view whose model went away: the iteration ends with the row it holds") << Promise([] {
        KxBoundView view;
        view.widget.selectAll();
        POSITION position = view.control.GetFirstSelectedItemPosition();
        view.widget.setModel(nullptr);
        QCOMPARE(view.control.GetNextSelectedItem(position), 0);
        QVERIFY(position == nullptr);
    });
    QTest::newRow("view of another model: every selected row comes once") << Promise([] {
        KxBoundStringView view;
        view.widget.selectAll();
        QCOMPARE(selectedRows(view.control), (QList<int>{0, 1, 2}));
    });
    QTest::newRow("view without a model: null") << Promise([] {
        const KxBoundEmptyView view;
        QVERIFY(view.control.GetFirstSelectedItemPosition() == nullptr);
    });
}

void ListViewSelectionTest::editLabel_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: opens an editor on the row, in silence") << Promise([] {
        KxBoundList list;
        list.widget.item(1)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        const QSignalSpy items(&list.widget, &QListWidget::itemChanged);
        const QSignalSpy rows(&list.widget, &QListWidget::currentRowChanged);
        QVERIFY(list.control.EditLabel(1) == nullptr);
        QCOMPARE(list.widget.item(1)->flags(),
                 Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
        QVERIFY(list.widget.isPersistentEditorOpen(list.widget.item(1)));
        QVERIFY(editorOf(&list.widget) != nullptr);
        QCOMPARE(editorOf(&list.widget)->text(), QStringLiteral("b"));
        QCOMPARE(items.count(), 0);
        QCOMPARE(rows.count(), 0);
        QVERIFY(!list.widget.signalsBlocked());
        QCOMPARE(list.widget.item(0)->flags(), QListWidgetItem().flags());
    });
    QTest::newRow("list: what the user types becomes the text, and the widget tells") << Promise([] {
        KxBoundList list;
        QVERIFY(list.control.EditLabel(1) == nullptr);
        QLineEdit *editor = editorOf(&list.widget);
        QVERIFY(editor != nullptr);
        const QSignalSpy items(&list.widget, &QListWidget::itemChanged);
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("typed"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(list.widget.item(1)->text(), QStringLiteral("typed"));
        QCOMPARE(items.count(), 1);
    });
    QTest::newRow("list: signals that the host had blocked are unblocked") << Promise([] {
        KxBoundList list;
        list.widget.blockSignals(true);
        QVERIFY(list.control.EditLabel(1) == nullptr);
        QVERIFY(!list.widget.signalsBlocked());
    });
    QTest::newRow("list: a row that is not there opens nothing") << Promise([] {
        KxBoundList list;
        QVERIFY(list.control.EditLabel(-1) == nullptr);
        QVERIFY(list.control.EditLabel(3) == nullptr);
        QVERIFY(editorOf(&list.widget) == nullptr);
        QVERIFY(!list.widget.signalsBlocked());
    });
    QTest::newRow("table: nothing") << Promise([] {
        KxBoundTable table;
        QVERIFY(table.control.EditLabel(1) == nullptr);
        QVERIFY(editorOf(&table.widget) == nullptr);
        QCOMPARE(table.widget.currentRow(), -1);
        QVERIFY(table.widget.selectedItems().isEmpty());
    });
    QTest::newRow("view: selects the row and opens an editor on the second column") << Promise([] {
        KxBoundView view;
        QVERIFY(view.control.EditLabel(1) == nullptr);
        QCOMPARE(view.widget.selectionModel()->selectedRows(), QModelIndexList{view.model.index(1, 0)});
        QVERIFY(view.widget.isPersistentEditorOpen(view.model.index(1, 1)));
        QVERIFY(!view.widget.isPersistentEditorOpen(view.model.index(1, 0)));
        QVERIFY(editorOf(&view.widget) != nullptr);
        QCOMPARE(editorOf(&view.widget)->text(), QStringLiteral("1,1"));
    });
    QTest::newRow("view: a negative row does nothing") << Promise([] {
        KxBoundView view;
        QVERIFY(view.control.EditLabel(-1) == nullptr);
        QVERIFY(editorOf(&view.widget) == nullptr);
        QVERIFY(!view.widget.selectionModel()->hasSelection());
    });
}

KX_TEST_MAIN(ListViewSelectionTest)
#include "tst_controls_list_view_selection.moc"
