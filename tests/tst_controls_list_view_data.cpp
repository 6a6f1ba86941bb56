// SPDX-License-Identifier: MIT
// CListCtrl: item data and item records, on a list, a table and a view over a model.

#include "KxBoundItemViews.h"
#include "KxTestCase.h"

#include <QtCore/QSortFilterProxyModel>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

namespace {

constexpr DWORD_PTR highData = 0xFEDCBA9876543210UL;

} // namespace

class ListViewDataTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void itemData_data();
    void itemData() { runPromise(); }
    void setRecord_data();
    void setRecord() { runPromise(); }
    void setArguments_data();
    void setArguments() { runPromise(); }
    void getRecord_data();
    void getRecord() { runPromise(); }

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void ListViewDataTest::itemData_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: 64 bits, kept as unsigned long long under role 256") << Promise([] {
        KxBoundList list;
        QVERIFY(list.control.SetItemData(1, highData));
        const QVariant data = list.widget.item(1)->data(256);
        QCOMPARE(data.userType(), int(QMetaType::ULongLong));
        QCOMPARE(data.toULongLong(), highData);
        QCOMPARE(list.control.GetItemData(1), highData);
        QVERIFY(!list.widget.item(0)->data(256).isValid());
        QVERIFY(!list.widget.item(2)->data(256).isValid());
    });
    QTest::newRow("list: 0 for a row without data and one that is not there") << Promise([] {
        const KxBoundList list;
        QCOMPARE(list.control.GetItemData(1), DWORD_PTR(0));
        QCOMPARE(list.control.GetItemData(3), DWORD_PTR(0));
        QCOMPARE(list.control.GetItemData(-1), DWORD_PTR(0));
    });
    QTest::newRow("list: a row that is not there takes no data") << Promise([] {
        KxBoundList list;
        QVERIFY(!list.control.SetItemData(3, 7));
        QVERIFY(!list.control.SetItemData(-1, 7));
        QCOMPARE(list.widget.count(), 3);
    });
    QTest::newRow("list: numbers of the host's own kind convert, pointers do not") << Promise([] {
        KxBoundList list;
        list.widget.item(0)->setData(Qt::UserRole, 42);
        list.widget.item(1)->setData(Qt::UserRole, QStringLiteral("43"));
        list.widget.item(2)->setData(Qt::UserRole, QVariant::fromValue<void *>(&list));
        QCOMPARE(list.control.GetItemData(0), DWORD_PTR(42));
        QCOMPARE(list.control.GetItemData(1), DWORD_PTR(43));
        QCOMPARE(list.control.GetItemData(2), DWORD_PTR(0));
    });
    QTest::newRow("table: in the cell of column 0") << Promise([] {
        KxBoundTable table(3, 2);
        QVERIFY(table.control.SetItemData(1, highData));
        const QVariant data = table.widget.item(1, 0)->data(256);
        QCOMPARE(data.userType(), int(QMetaType::ULongLong));
        QCOMPARE(data.toULongLong(), highData);
        QVERIFY(!table.widget.item(1, 1)->data(256).isValid());
        QCOMPARE(table.control.GetItemData(1), highData);
        QCOMPARE(table.texts(1), kxStrings({"1,0", "1,1"}));
    });
    QTest::newRow("table: read from column 0 alone") << Promise([] {
        KxBoundTable table(2, 2);
        table.widget.item(0, 1)->setData(Qt::UserRole, 9ULL);
        QCOMPARE(table.control.GetItemData(0), DWORD_PTR(0));
    });
    QTest::newRow("table: a row without a cell in column 0 has and takes none") << Promise([] {
        KxBoundTable table(2, 2);
        delete table.widget.takeItem(1, 0);
        QVERIFY(!table.control.SetItemData(1, 7));
        QVERIFY(table.widget.item(1, 0) == nullptr);
        QCOMPARE(table.control.GetItemData(1), DWORD_PTR(0));
        QVERIFY(!table.control.SetItemData(2, 7));
        QVERIFY(!table.control.SetItemData(-1, 7));
        QCOMPARE(table.control.GetItemData(2), DWORD_PTR(0));
        QCOMPARE(table.control.GetItemData(-1), DWORD_PTR(0));
    });
    QTest::newRow("view: at column 0 of the model") << Promise([] {
        KxBoundView view(3, 2);
        QVERIFY(view.control.SetItemData(1, highData));
        const QVariant data = view.model.item(1, 0)->data(256);
        QCOMPARE(data.userType(), int(QMetaType::ULongLong));
        QCOMPARE(data.toULongLong(), highData);
        QVERIFY(!view.model.item(1, 1)->data(256).isValid());
        QCOMPARE(view.control.GetItemData(1), highData);
    });
    QTest::newRow("view: a row that is not there has and takes none") << Promise([] {
        KxBoundView view(3, 2);
        QVERIFY(!view.control.SetItemData(3, 7));
        QVERIFY(!view.control.SetItemData(-1, 7));
        QCOMPARE(view.control.GetItemData(3), DWORD_PTR(0));
        QCOMPARE(view.control.GetItemData(-1), DWORD_PTR(0));
        QCOMPARE(view.model.rowCount(), 3);
    });
    QTest::newRow("view of a sorted model: the row is the one that is seen") << Promise([] {
        KxBoundView view(3, 1);
        QSortFilterProxyModel sorted;
        sorted.setSourceModel(&view.model);
        sorted.sort(0, Qt::DescendingOrder);
        view.widget.setModel(&sorted);
        QVERIFY(view.control.SetItemData(0, 7));
        QCOMPARE(view.model.item(2, 0)->data(Qt::UserRole), QVariant(7ULL));
        QCOMPARE(view.control.GetItemData(0), DWORD_PTR(7));
        QCOMPARE(view.control.GetItemData(2), DWORD_PTR(0));
        view.widget.setModel(nullptr);
    });
    QTest::newRow("view of a model that keeps no data: 0") << Promise([] {
        KxBoundStringView view;
        view.control.SetItemData(1, 7);
        QCOMPARE(view.control.GetItemData(1), DWORD_PTR(0));
        QCOMPARE(view.model.stringList(), kxStrings({"a", "b", "c"}));
    });
    QTest::newRow("view without a model: 0") << Promise([] {
        KxBoundEmptyView view;
        QVERIFY(!view.control.SetItemData(0, 7));
        QCOMPARE(view.control.GetItemData(0), DWORD_PTR(0));
    });
}

void ListViewDataTest::setRecord_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: FALSE, nothing set") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(1, 0, words, 7);
        KxBoundList list;
        QVERIFY(!list.control.SetItem(&item));
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c"}));
        QVERIFY(!list.widget.item(1)->data(Qt::UserRole).isValid());
    });
    QTest::newRow("table: a cell that is there gets text and data and stays the same object") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(1, 1, words, -2);
        KxBoundTable table(2, 2);
        const QTableWidgetItem *cell = table.widget.item(1, 1);
        table.widget.item(1, 1)->setToolTip(QStringLiteral("kept"));
        QVERIFY(table.control.SetItem(&item));
        QVERIFY(table.widget.item(1, 1) == cell);
        QCOMPARE(cell->toolTip(), QStringLiteral("kept"));
        QCOMPARE(table.texts(1), kxStrings({"1,0", "new"}));
        QCOMPARE(cell->data(256).userType(), int(QMetaType::ULongLong));
        QCOMPARE(cell->data(256).toULongLong(), 0xFFFFFFFFFFFFFFFEULL);
    });
    QTest::newRow("table: a cell that was not there comes with text and data") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(0, 1, words, 7);
        KxBoundTable table(0, 2);
        table.widget.setRowCount(1);
        QVERIFY(table.control.SetItem(&item));
        QCOMPARE(table.texts(0), kxStrings({"none", "new"}));
        QCOMPARE(table.widget.item(0, 1)->data(Qt::UserRole), QVariant(7ULL));
    });
    QTest::newRow("table: data alone empties the text") << Promise([] {
        LVITEMW item = kxListViewItem(0, 0, nullptr, 7);
        item.mask = LVIF_PARAM;
        KxBoundTable table(1, 1);
        QVERIFY(table.control.SetItem(&item));
        QCOMPARE(table.texts(0), QStringList{QString()});
        QCOMPARE(table.widget.item(0, 0)->data(Qt::UserRole), QVariant(7ULL));
    });
    QTest::newRow("table: outside of it TRUE, nothing set") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW below = kxListViewItem(1, 0, words, 7);
        const LVITEMW beside = kxListViewItem(0, 2, words, 7);
        const LVITEMW above = kxListViewItem(-1, 0, words, 7);
        KxBoundTable table(1, 2);
        QVERIFY(table.control.SetItem(&below));
        QVERIFY(table.control.SetItem(&beside));
        QVERIFY(table.control.SetItem(&above));
        QCOMPARE(table.widget.rowCount(), 1);
        QCOMPARE(table.texts(0), kxStrings({"0,0", "0,1"}));
    });
    QTest::newRow("view: FALSE, nothing set") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(1, 0, words, 7);
        KxBoundView view;
        QVERIFY(!view.control.SetItem(&item));
        QCOMPARE(view.model.item(1, 0)->text(), QStringLiteral("1,0"));
        QVERIFY(!view.model.item(1, 0)->data(Qt::UserRole).isValid());
    });
}

void ListViewDataTest::setArguments_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: FALSE, nothing set") << Promise([] {
        KxBoundList list;
        QVERIFY(!list.control.SetItem(1, 0, LVIF_TEXT, L"new", 0, 1, 1, 7));
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c"}));
        QCOMPARE(list.widget.currentRow(), -1);
    });
    QTest::newRow("table: text and data, mask, image and state mask ignored") << Promise([] {
        KxBoundTable table(2, 2);
        const QTableWidgetItem *cell = table.widget.item(1, 1);
        QVERIFY(table.control.SetItem(1, 1, 0, L"new", 4, 0, 1, -2));
        QVERIFY(table.widget.item(1, 1) == cell);
        QCOMPARE(table.texts(1), kxStrings({"1,0", "new"}));
        QCOMPARE(cell->data(256).userType(), int(QMetaType::ULongLong));
        QCOMPARE(cell->data(256).toULongLong(), 0xFFFFFFFFFFFFFFFEULL);
        QVERIFY(cell->icon().isNull());
        QCOMPARE(table.widget.currentRow(), -1);
        QVERIFY(!cell->isSelected());
    });
    QTest::newRow("table: state 1 makes the cell current and selects it, then the text comes") << Promise([] {
        KxBoundTable table(2, 2);
        QStringList textAtSignal;
        const QTableWidgetItem *cell = table.widget.item(1, 1);
        QObject::connect(&table.widget, &QTableWidget::currentCellChanged, &table.widget,
                         [&] { textAtSignal.append(cell->text()); });
        QVERIFY(table.control.SetItem(1, 1, LVIF_STATE, L"new", 0, 1, 0, 7));
        QCOMPARE(table.widget.currentRow(), 1);
        QCOMPARE(table.widget.currentColumn(), 1);
        QVERIFY(cell->isSelected());
        QCOMPARE(table.texts(1), kxStrings({"1,0", "new"}));
        QCOMPARE(textAtSignal, kxStrings({"1,1"}));
    });
    QTest::newRow("table: state 1 selects the item where being current does not") << Promise([] {
        KxBoundTable table(2, 2);
        table.widget.setSelectionMode(QAbstractItemView::NoSelection);
        QVERIFY(table.control.SetItem(1, 1, LVIF_STATE, L"new", 0, 1, 0, 7));
        QVERIFY(table.widget.item(1, 1)->isSelected());
    });
    QTest::newRow("table: other states than just 1 neither") << Promise([] {
        KxBoundTable table(2, 2);
        QVERIFY(table.control.SetItem(1, 1, LVIF_STATE, L"new", 0, 3, 3, 7));
        QVERIFY(table.control.SetItem(1, 0, LVIF_STATE, L"new", 0, LVIS_SELECTED, LVIS_SELECTED, 7));
        QCOMPARE(table.texts(1), kxStrings({"new", "new"}));
        QCOMPARE(table.widget.currentRow(), -1);
        QVERIFY(table.widget.selectedItems().isEmpty());
    });
    QTest::newRow("table: a cell that was not there comes, current with state 1") << Promise([] {
        KxBoundTable table(0, 2);
        table.widget.setRowCount(2);
        QVERIFY(table.control.SetItem(1, 1, LVIF_TEXT, L"new", 0, 1, 1, 7));
        QCOMPARE(table.texts(1), kxStrings({"none", "new"}));
        QCOMPARE(table.widget.item(1, 1)->data(Qt::UserRole), QVariant(7ULL));
        QCOMPARE(table.widget.currentRow(), 1);
        QCOMPARE(table.widget.currentColumn(), 1);
    });
    QTest::newRow("table: a cell that was not there comes without state too") << Promise([] {
        KxBoundTable table(0, 2);
        table.widget.setRowCount(1);
        QVERIFY(table.control.SetItem(0, 1, LVIF_TEXT, L"new", 0, 0, 0, 7));
        QCOMPARE(table.texts(0), kxStrings({"none", "new"}));
        QCOMPARE(table.widget.currentRow(), -1);
    });
    QTest::newRow("table: outside of it TRUE, nothing set") << Promise([] {
        KxBoundTable table(1, 2);
        QVERIFY(table.control.SetItem(1, 0, LVIF_TEXT, L"new", 0, 1, 1, 7));
        QVERIFY(table.control.SetItem(0, 2, LVIF_TEXT, L"new", 0, 1, 1, 7));
        QVERIFY(table.control.SetItem(-1, 0, LVIF_TEXT, L"new", 0, 1, 1, 7));
        QCOMPARE(table.widget.rowCount(), 1);
        QCOMPARE(table.texts(0), kxStrings({"0,0", "0,1"}));
        QVERIFY(table.widget.selectedItems().isEmpty());
    });
    QTest::newRow("view: FALSE, nothing set") << Promise([] {
        KxBoundView view;
        QVERIFY(!view.control.SetItem(1, 0, LVIF_TEXT, L"new", 0, 1, 1, 7));
        QCOMPARE(view.model.item(1, 0)->text(), QStringLiteral("1,0"));
        QVERIFY(!view.widget.selectionModel()->hasSelection());
    });
}

void ListViewDataTest::getRecord_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: FALSE, nothing filled") << Promise([] {
        KxBoundList list;
        list.control.SetItemData(1, 7);
        LVITEMW item = kxListViewItem(1, 0, nullptr, 99);
        item.mask = LVIF_PARAM;
        QVERIFY(!list.control.GetItem(&item));
        QCOMPARE(item.lParam, LPARAM(99));
    });
    QTest::newRow("table: the data of the cell, and nothing else") << Promise([] {
        KxBoundTable table(2, 2);
        table.widget.item(1, 1)->setData(Qt::UserRole, 7ULL);
        wchar_t buffer[] = L"before";
        LVITEMW item = kxListViewItem(1, 1, buffer, 99);
        item.mask = LVIF_PARAM | LVIF_TEXT | LVIF_STATE | LVIF_IMAGE;
        item.cchTextMax = 7;
        item.state = 0x55;
        item.iImage = 66;
        QVERIFY(table.control.GetItem(&item));
        QCOMPARE(item.lParam, LPARAM(7));
        QVERIFY(item.pszText == buffer);
        QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("before"));
        QCOMPARE(item.state, 0x55u);
        QCOMPARE(item.iImage, 66);
    });
    QTest::newRow("table: negative data comes back as it went in") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW given = kxListViewItem(0, 0, words, -5);
        KxBoundTable table(1, 1);
        QVERIFY(table.control.SetItem(&given));
        LVITEMW item = kxListViewItem(0, 0, nullptr, 99);
        item.mask = LVIF_PARAM;
        QVERIFY(table.control.GetItem(&item));
        QCOMPARE(item.lParam, LPARAM(-5));
    });
    QTest::newRow("table: 0 for a cell without data") << Promise([] {
        const KxBoundTable table(1, 1);
        LVITEMW item = kxListViewItem(0, 0, nullptr, 99);
        item.mask = LVIF_PARAM;
        QVERIFY(table.control.GetItem(&item));
        QCOMPARE(item.lParam, LPARAM(0));
    });
    QTest::newRow("table: FALSE without LVIF_PARAM, nothing filled") << Promise([] {
        KxBoundTable table(1, 1);
        table.widget.item(0, 0)->setData(Qt::UserRole, 7ULL);
        LVITEMW item = kxListViewItem(0, 0, nullptr, 99);
        item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_STATE;
        QVERIFY(!table.control.GetItem(&item));
        QCOMPARE(item.lParam, LPARAM(99));
    });
    QTest::newRow("table: FALSE for a cell that is not there") << Promise([] {
        KxBoundTable table(1, 1);
        table.widget.setRowCount(2);
        for (const int row : {1, 2, -1}) {
            LVITEMW item = kxListViewItem(row, 0, nullptr, 99);
            item.mask = LVIF_PARAM;
            QVERIFY(!table.control.GetItem(&item));
            QCOMPARE(item.lParam, LPARAM(99));
        }
    });
    QTest::newRow("view: FALSE, nothing filled") << Promise([] {
        KxBoundView view;
        view.control.SetItemData(1, 7);
        LVITEMW item = kxListViewItem(1, 0, nullptr, 99);
        item.mask = LVIF_PARAM;
        QVERIFY(!view.control.GetItem(&item));
        QCOMPARE(item.lParam, LPARAM(99));
    });
}

KX_TEST_MAIN(ListViewDataTest)
#include "tst_controls_list_view_data.moc"
