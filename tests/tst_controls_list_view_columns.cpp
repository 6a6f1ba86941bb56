// SPDX-License-Identifier: MIT
// CListCtrl: columns and the header, on a list, a table and a view over a model.

#include "KxBoundItemViews.h"
#include "KxTestCase.h"

#include <QtWidgets/QHeaderView>

#include <KxAfxWinTreeCtrl.h>

#include <memory>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

namespace {

LVCOLUMNW columnHeaded(wchar_t *text)
{
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = text;
    return column;
}

/// The headings of a table; a column without a header item reads "none".
QStringList headings(const QTableWidget &table)
{
    QStringList found;
    for (int column = 0; column < table.columnCount(); ++column) {
        const QTableWidgetItem *header = table.horizontalHeaderItem(column);
        found.append(header ? header->text() : QStringLiteral("none"));
    }
    return found;
}

/// The headings of a model; a column without a header item reads "none".
QStringList headings(const QStandardItemModel &model)
{
    QStringList found;
    for (int column = 0; column < model.columnCount(); ++column) {
        const QStandardItem *header = model.horizontalHeaderItem(column);
        found.append(header ? header->text() : QStringLiteral("none"));
    }
    return found;
}

} // namespace

class ListViewColumnsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void insertColumnRecord_data();
    void insertColumnRecord() { runPromise(); }
    void insertColumnText_data();
    void insertColumnText() { runPromise(); }
    void deleteColumn_data();
    void deleteColumn() { runPromise(); }
    void header_data();
    void header() { runPromise(); }

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void ListViewColumnsTest::insertColumnRecord_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: returns the index, nothing happens") << Promise([] {
        wchar_t words[] = L"new";
        const LVCOLUMNW column = columnHeaded(words);
        KxBoundList list;
        QCOMPARE(list.control.InsertColumn(1, &column), 1);
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c"}));
    });
    QTest::newRow("list: -1 for a negative index") << Promise([] {
        wchar_t words[] = L"new";
        const LVCOLUMNW column = columnHeaded(words);
        KxBoundList list;
        QCOMPARE(list.control.InsertColumn(-3, &column), -1);
    });
    QTest::newRow("table: inserts the column with its heading") << Promise([] {
        wchar_t words[] = L"new";
        const LVCOLUMNW column = columnHeaded(words);
        KxBoundTable table(1, 2);
        QCOMPARE(table.control.InsertColumn(1, &column), 1);
        QCOMPARE(headings(table.widget), kxStrings({"none", "new", "none"}));
        QCOMPARE(table.texts(0), kxStrings({"0,0", "none", "0,1"}));
    });
    QTest::newRow("table: into an empty one, column by column") << Promise([] {
        wchar_t x[] = L"x";
        wchar_t y[] = L"y";
        const LVCOLUMNW first = columnHeaded(x);
        const LVCOLUMNW second = columnHeaded(y);
        KxBoundTable table(0, 0);
        QCOMPARE(table.control.InsertColumn(0, &first), 0);
        QCOMPARE(table.control.InsertColumn(1, &second), 1);
        QCOMPARE(headings(table.widget), kxStrings({"x", "y"}));
    });
    QTest::newRow("table: a heading that is there moves on") << Promise([] {
        wchar_t words[] = L"new";
        const LVCOLUMNW column = columnHeaded(words);
        KxBoundTable table(1, 2);
        table.widget.setHorizontalHeaderLabels(kxStrings({"x", "y"}));
        QCOMPARE(table.control.InsertColumn(1, &column), 1);
        QCOMPARE(headings(table.widget), kxStrings({"x", "new", "y"}));
    });
    QTest::newRow("table: -1 for a negative index, nothing inserted") << Promise([] {
        wchar_t words[] = L"new";
        const LVCOLUMNW column = columnHeaded(words);
        KxBoundTable table(1, 2);
        QCOMPARE(table.control.InsertColumn(-3, &column), -1);
        QCOMPARE(headings(table.widget), kxStrings({"none", "none"}));
    });
    QTest::newRow("table: past the end nothing is inserted, the index comes back") << Promise([] {
        wchar_t words[] = L"new";
        const LVCOLUMNW column = columnHeaded(words);
        KxBoundTable table(1, 2);
        QCOMPARE(table.control.InsertColumn(9, &column), 9);
        QCOMPARE(headings(table.widget), kxStrings({"none", "none"}));
    });
    QTest::newRow("view: returns the index, nothing happens; -1 for a negative one") << Promise([] {
        wchar_t words[] = L"new";
        const LVCOLUMNW column = columnHeaded(words);
        KxBoundView view(1, 2);
        QCOMPARE(view.control.InsertColumn(1, &column), 1);
        QCOMPARE(view.control.InsertColumn(-3, &column), -1);
        QCOMPARE(headings(view.model), kxStrings({"none", "none"}));
    });
}

void ListViewColumnsTest::insertColumnText_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: returns the index, nothing happens") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.InsertColumn(1, L"new"), 1);
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c"}));
    });
    QTest::newRow("table: inserts the column with its heading") << Promise([] {
        KxBoundTable table(1, 2);
        QCOMPARE(table.control.InsertColumn(1, L"new"), 1);
        QCOMPARE(headings(table.widget), kxStrings({"none", "new", "none"}));
        QCOMPARE(table.texts(0), kxStrings({"0,0", "none", "0,1"}));
    });
    QTest::newRow("table: a heading that is there only gets the new text") << Promise([] {
        KxBoundTable table(1, 2);
        table.widget.setHorizontalHeaderLabels(kxStrings({"x", "y"}));
        const QTableWidgetItem *header = table.widget.horizontalHeaderItem(1);
        QCOMPARE(table.control.InsertColumn(1, L"new"), 1);
        QCOMPARE(headings(table.widget), kxStrings({"x", "new"}));
        QVERIFY(table.widget.horizontalHeaderItem(1) == header);
        QCOMPARE(table.texts(0), kxStrings({"0,0", "0,1"}));
    });
    QTest::newRow("table: format, width and subitem are ignored") << Promise([] {
        KxBoundTable table(1, 0);
        QCOMPARE(table.control.InsertColumn(0, L"new", LVCFMT_RIGHT, 321, 5), 0);
        QCOMPARE(headings(table.widget), kxStrings({"new"}));
        QCOMPARE(table.widget.horizontalHeaderItem(0)->textAlignment(), QTableWidgetItem().textAlignment());
        QCOMPARE(table.widget.columnWidth(0), table.widget.horizontalHeader()->defaultSectionSize());
    });
    QTest::newRow("table: a negative index inserts nothing and comes back") << Promise([] {
        KxBoundTable table(1, 2);
        QCOMPARE(table.control.InsertColumn(-1, L"new"), -1);
        QCOMPARE(headings(table.widget), kxStrings({"none", "none"}));
    });
    QTest::newRow("view: inserts the column with its heading") << Promise([] {
        KxBoundView view(1, 2);
        QCOMPARE(view.control.InsertColumn(1, L"new"), 1);
        QCOMPARE(headings(view.model), kxStrings({"none", "new", "none"}));
        QCOMPARE(view.model.index(0, 2).data().toString(), QStringLiteral("0,1"));
    });
    QTest::newRow("view: into an empty model, column by column") << Promise([] {
        KxBoundView view(0, 0);
        QCOMPARE(view.control.InsertColumn(0, L"x"), 0);
        QCOMPARE(view.control.InsertColumn(1, L"y"), 1);
        QCOMPARE(headings(view.model), kxStrings({"x", "y"}));
    });
    QTest::newRow("view: a heading that is there only gets the new text") << Promise([] {
        KxBoundView view(1, 2);
        view.model.setHorizontalHeaderLabels(kxStrings({"x", "y"}));
        const QStandardItem *header = view.model.horizontalHeaderItem(1);
        QCOMPARE(view.control.InsertColumn(1, L"new", LVCFMT_RIGHT, 321, 5), 1);
        QCOMPARE(headings(view.model), kxStrings({"x", "new"}));
        QVERIFY(view.model.horizontalHeaderItem(1) == header);
        QCOMPARE(view.widget.columnWidth(1), view.widget.horizontalHeader()->defaultSectionSize());
    });
    QTest::newRow("view of another model: returns the index, nothing happens") << Promise([] {
        KxBoundStringView view;
        QCOMPARE(view.control.InsertColumn(1, L"new"), 1);
        QCOMPARE(view.widget.model()->columnCount(), 1);
    });
    QTest::newRow("view without a model: returns the index") << Promise([] {
        KxBoundEmptyView view;
        QCOMPARE(view.control.InsertColumn(1, L"new"), 1);
        QVERIFY(view.widget.model() == nullptr);
    });
}

void ListViewColumnsTest::deleteColumn_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: FALSE, the rows stay") << Promise([] {
        KxBoundList list;
        QVERIFY(!list.control.DeleteColumn(0));
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c"}));
    });
    QTest::newRow("table: removes the column with heading and cells") << Promise([] {
        KxBoundTable table(1, 3);
        table.widget.setHorizontalHeaderLabels(kxStrings({"x", "y", "z"}));
        QVERIFY(table.control.DeleteColumn(1));
        QCOMPARE(headings(table.widget), kxStrings({"x", "z"}));
        QCOMPARE(table.texts(0), kxStrings({"0,0", "0,2"}));
    });
    QTest::newRow("table: a column that is not there removes nothing") << Promise([] {
        KxBoundTable table(1, 2);
        QVERIFY(!table.control.DeleteColumn(2));
        QVERIFY(!table.control.DeleteColumn(-1));
        QCOMPARE(table.widget.columnCount(), 2);
    });
    QTest::newRow("view: removes the column of the model") << Promise([] {
        KxBoundView view(1, 3);
        QVERIFY(view.control.DeleteColumn(1));
        QCOMPARE(view.model.columnCount(), 2);
        QCOMPARE(view.model.index(0, 1).data().toString(), QStringLiteral("0,2"));
    });
    QTest::newRow("view: a column that is not there removes nothing") << Promise([] {
        KxBoundView view(1, 2);
        QVERIFY(!view.control.DeleteColumn(2));
        QVERIFY(!view.control.DeleteColumn(-1));
        QCOMPARE(view.model.columnCount(), 2);
    });
    QTest::newRow("view of a model that keeps its columns: FALSE") << Promise([] {
        KxBoundStringView view;
        QVERIFY(!view.control.DeleteColumn(0));
        QCOMPARE(view.widget.model()->columnCount(), 1);
    });
    QTest::newRow("view without a model: FALSE") << Promise([] {
        KxBoundEmptyView view;
        QVERIFY(!view.control.DeleteColumn(0));
    });
}

void ListViewColumnsTest::header_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: null") << Promise([] {
        const KxBoundList list;
        QVERIFY(list.control.GetHeaderCtrl() == nullptr);
    });
    QTest::newRow("table: an object for the horizontal header") << Promise([] {
        const KxBoundTable table(1, 4);
        const std::unique_ptr<CHeaderCtrl> header(table.control.GetHeaderCtrl());
        QVERIFY(header != nullptr);
        QVERIFY(static_cast<HWND>(*header) == KxHwndFromWidget(table.widget.horizontalHeader()));
        QCOMPARE(header->GetItemCount(), 4);
    });
    QTest::newRow("table: a new object each time, the newest one bound") << Promise([] {
        const KxBoundTable table;
        const std::unique_ptr<CHeaderCtrl> first(table.control.GetHeaderCtrl());
        const std::unique_ptr<CHeaderCtrl> second(table.control.GetHeaderCtrl());
        QVERIFY(first != nullptr);
        QVERIFY(second != nullptr);
        QVERIFY(first != second);
        QVERIFY(static_cast<HWND>(*second) == KxHwndFromWidget(table.widget.horizontalHeader()));
        QVERIFY(first->GetSafeHwnd() == KxHwndFromWidget(table.widget.horizontalHeader()));
    });
    QTest::newRow("table: the header outlives the object") << Promise([] {
        const KxBoundTable table;
        const QPointer<QHeaderView> widget = table.widget.horizontalHeader();
        delete table.control.GetHeaderCtrl();
        QVERIFY(!widget.isNull());
        const std::unique_ptr<CHeaderCtrl> next(table.control.GetHeaderCtrl());
        QCOMPARE(next->GetItemCount(), 3);
    });
    QTest::newRow("view: an object for the horizontal header") << Promise([] {
        const KxBoundView view;
        const std::unique_ptr<CHeaderCtrl> header(view.control.GetHeaderCtrl());
        QVERIFY(header != nullptr);
        QVERIFY(static_cast<HWND>(*header) == KxHwndFromWidget(view.widget.horizontalHeader()));
    });
    QTest::newRow("view of another model: an object too") << Promise([] {
        const KxBoundStringView view;
        const std::unique_ptr<CHeaderCtrl> header(view.control.GetHeaderCtrl());
        QVERIFY(header != nullptr);
        QVERIFY(static_cast<HWND>(*header) == KxHwndFromWidget(view.widget.horizontalHeader()));
    });
    QTest::newRow("view without a model: an object too") << Promise([] {
        const KxBoundEmptyView view;
        const std::unique_ptr<CHeaderCtrl> header(view.control.GetHeaderCtrl());
        QVERIFY(header != nullptr);
        QVERIFY(static_cast<HWND>(*header) == KxHwndFromWidget(view.widget.horizontalHeader()));
    });
}

KX_TEST_MAIN(ListViewColumnsTest)
#include "tst_controls_list_view_columns.moc"
