// SPDX-License-Identifier: MIT
// CListCtrl: rows and texts, on a list, a table and a view over a model.

#include "KxBoundItemViews.h"
#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QLabel>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(QListWidgetItem *)
Q_DECLARE_METATYPE(QTableWidgetItem *)

namespace {

QString text(const CString &string)
{
    return QString::fromWCharArray(string.GetString());
}

/// Counts those of its kind that were deleted.
template<class Item>
struct Counted : Item {
    explicit Counted(int *deleted) : m_deleted(deleted) {}
    Counted(const Counted &) = delete;
    Counted &operator=(const Counted &) = delete;
    ~Counted() override { ++*m_deleted; }

private:
    int *m_deleted;
};

/// Records how often the signals by which a list tells of its items and its selection come.
struct ListSignals {
    explicit ListSignals(QListWidget *list)
        : currentRow(list, &QListWidget::currentRowChanged),
          currentItem(list, &QListWidget::currentItemChanged),
          selection(list, &QListWidget::itemSelectionChanged), item(list, &QListWidget::itemChanged)
    {
    }

    int count() const { return currentRow.count() + currentItem.count() + selection.count() + item.count(); }

    QSignalSpy currentRow;
    QSignalSpy currentItem;
    QSignalSpy selection;
    QSignalSpy item;
};

struct TableSignals {
    explicit TableSignals(QTableWidget *table)
        : currentCell(table, &QTableWidget::currentCellChanged),
          currentItem(table, &QTableWidget::currentItemChanged),
          selection(table, &QTableWidget::itemSelectionChanged), cell(table, &QTableWidget::cellChanged)
    {
    }

    int count() const { return currentCell.count() + currentItem.count() + selection.count() + cell.count(); }

    QSignalSpy currentCell;
    QSignalSpy currentItem;
    QSignalSpy selection;
    QSignalSpy cell;
};

} // namespace

class ListViewTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void insertText_data();
    void insertText() { runPromise(); }
    void insertTextAndImage_data();
    void insertTextAndImage() { runPromise(); }
    void insertRecord_data();
    void insertRecord() { runPromise(); }
    void deleteItem_data();
    void deleteItem() { runPromise(); }
    void deleteAllItems_data();
    void deleteAllItems() { runPromise(); }
    void itemCount_data();
    void itemCount() { runPromise(); }
    void itemText_data();
    void itemText() { runPromise(); }
    void setItemText_data();
    void setItemText() { runPromise(); }

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

/// What QSignalSpy keeps of the signals.
void ListViewTest::initTestCase()
{
    qRegisterMetaType<QListWidgetItem *>();
    qRegisterMetaType<QTableWidgetItem *>();
}

void ListViewTest::insertText_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: inserts before the row and returns it") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.InsertItem(1, L"new"), 1);
        QCOMPARE(list.texts(), kxStrings({"a", "new", "b", "c"}));
    });
    QTest::newRow("list: at the count it appends") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.InsertItem(3, L"new"), 3);
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c", "new"}));
    });
    QTest::newRow("list: past the end it appends and returns the index as given") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.InsertItem(50, L"new"), 50);
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c", "new"}));
    });
    QTest::newRow("list: a negative index inserts nothing and comes back") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.InsertItem(-3, L"new"), -3);
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c"}));
    });
    QTest::newRow("list: text outside ASCII and outside the 16-bit range") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.InsertItem(0, L"größe \U0001F600"), 0);
        QCOMPARE(list.widget.item(0)->text(), QString::fromUtf8("größe \xF0\x9F\x98\x80"));
    });
    QTest::newRow("table: the text goes into all three cells of the row") << Promise([] {
        KxBoundTable table(0, 3);
        QCOMPARE(table.control.InsertItem(0, L"new"), 0);
        QCOMPARE(table.widget.rowCount(), 1);
        QCOMPARE(table.texts(0), kxStrings({"new", "new", "new"}));
        QVERIFY(table.widget.item(0, 0) != table.widget.item(0, 1));
    });
    QTest::newRow("table: inserts before the row, the others keep their cells") << Promise([] {
        KxBoundTable table(2, 2);
        QCOMPARE(table.control.InsertItem(1, L"new"), 1);
        QCOMPARE(table.widget.rowCount(), 3);
        QCOMPARE(table.texts(0), kxStrings({"0,0", "0,1"}));
        QCOMPARE(table.texts(1), kxStrings({"new", "new"}));
        QCOMPARE(table.texts(2), kxStrings({"1,0", "1,1"}));
    });
    QTest::newRow("table: at the count it appends") << Promise([] {
        KxBoundTable table(2, 1);
        QCOMPARE(table.control.InsertItem(2, L"new"), 2);
        QCOMPARE(table.widget.rowCount(), 3);
        QCOMPARE(table.texts(2), kxStrings({"new"}));
    });
    QTest::newRow("table: past the end it inserts nothing and returns the index as given") << Promise([] {
        KxBoundTable table(2, 2);
        QCOMPARE(table.control.InsertItem(3, L"new"), 3);
        QCOMPARE(table.control.InsertItem(50, L"new"), 50);
        QCOMPARE(table.widget.rowCount(), 2);
        QCOMPARE(table.texts(1), kxStrings({"1,0", "1,1"}));
    });
    QTest::newRow("table: a negative index inserts nothing and comes back") << Promise([] {
        KxBoundTable table(2, 2);
        QCOMPARE(table.control.InsertItem(-3, L"new"), -3);
        QCOMPARE(table.widget.rowCount(), 2);
        QCOMPARE(table.texts(0), kxStrings({"0,0", "0,1"}));
    });
    QTest::newRow("table: without columns only the row comes") << Promise([] {
        KxBoundTable table(0, 0);
        QCOMPARE(table.control.InsertItem(0, L"new"), 0);
        QCOMPARE(table.widget.rowCount(), 1);
        QCOMPARE(table.widget.columnCount(), 0);
    });
    QTest::newRow("view: inserts the row before and sets no text") << Promise([] {
        KxBoundView view(2, 2);
        QCOMPARE(view.control.InsertItem(1, L"new"), 1);
        QCOMPARE(view.model.rowCount(), 3);
        QVERIFY(!view.model.index(1, 0).data().isValid());
        QVERIFY(!view.model.index(1, 1).data().isValid());
        QCOMPARE(view.model.index(2, 0).data().toString(), QStringLiteral("1,0"));
    });
    QTest::newRow("view: at the count it appends") << Promise([] {
        KxBoundView view(2, 2);
        QCOMPARE(view.control.InsertItem(2, L"new"), 2);
        QCOMPARE(view.model.rowCount(), 3);
        QCOMPARE(view.model.index(1, 0).data().toString(), QStringLiteral("1,0"));
    });
    QTest::newRow("view: past the end it inserts nothing and returns the index as given") << Promise([] {
        KxBoundView view(2, 2);
        QCOMPARE(view.control.InsertItem(50, L"new"), 50);
        QCOMPARE(view.model.rowCount(), 2);
    });
    QTest::newRow("view: a negative index inserts nothing and comes back") << Promise([] {
        KxBoundView view(2, 2);
        QCOMPARE(view.control.InsertItem(-3, L"new"), -3);
        QCOMPARE(view.model.rowCount(), 2);
    });
    QTest::newRow("view of another model: -1, nothing inserted") << Promise([] {
        KxBoundStringView view;
        QCOMPARE(view.control.InsertItem(1, L"new"), -1);
        QCOMPARE(view.model.stringList(), kxStrings({"a", "b", "c"}));
    });
    QTest::newRow("view without a model: -1") << Promise([] {
        KxBoundEmptyView view;
        QCOMPARE(view.control.InsertItem(0, L"new"), -1);
    });
}

void ListViewTest::insertTextAndImage_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: inserts before the row, the image is ignored") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.InsertItem(1, L"new", 4), 1);
        QCOMPARE(list.texts(), kxStrings({"a", "new", "b", "c"}));
        QVERIFY(list.widget.item(1)->icon().isNull());
    });
    QTest::newRow("list: past the end it appends and returns the index as given") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.InsertItem(50, L"new", 0), 50);
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c", "new"}));
    });
    QTest::newRow("list: a negative index inserts nothing and comes back") << Promise([] {
        KxBoundList list;
        QCOMPARE(list.control.InsertItem(-3, L"new", 0), -3);
        QCOMPARE(list.widget.count(), 3);
    });
    QTest::newRow("table: the text goes into column 0 only") << Promise([] {
        KxBoundTable table(1, 3);
        QCOMPARE(table.control.InsertItem(0, L"new", 4), 0);
        QCOMPARE(table.widget.rowCount(), 2);
        QCOMPARE(table.texts(0), kxStrings({"new", "none", "none"}));
        QCOMPARE(table.texts(1), kxStrings({"0,0", "0,1", "0,2"}));
        QVERIFY(table.widget.item(0, 0)->icon().isNull());
    });
    QTest::newRow("table: past the end it inserts nothing and returns the index as given") << Promise([] {
        KxBoundTable table(1, 3);
        QCOMPARE(table.control.InsertItem(50, L"new", 0), 50);
        QCOMPARE(table.widget.rowCount(), 1);
    });
    QTest::newRow("table: a negative index inserts nothing and comes back") << Promise([] {
        KxBoundTable table(1, 3);
        QCOMPARE(table.control.InsertItem(-3, L"new", 0), -3);
        QCOMPARE(table.widget.rowCount(), 1);
        QCOMPARE(table.texts(0), kxStrings({"0,0", "0,1", "0,2"}));
    });
    QTest::newRow("table: without columns only the row comes") << Promise([] {
        KxBoundTable table(0, 0);
        QCOMPARE(table.control.InsertItem(0, L"new", 0), 0);
        QCOMPARE(table.widget.rowCount(), 1);
    });
    QTest::newRow("view: -1, nothing inserted") << Promise([] {
        KxBoundView view(2, 2);
        QCOMPARE(view.control.InsertItem(1, L"new", 0), -1);
        QCOMPARE(view.model.rowCount(), 2);
    });
    QTest::newRow("view of another model: -1, nothing inserted") << Promise([] {
        KxBoundStringView view;
        QCOMPARE(view.control.InsertItem(1, L"new", 0), -1);
        QCOMPARE(view.model.rowCount(), 3);
    });
}

void ListViewTest::insertRecord_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: -1, nothing inserted") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(1, 0, words, 7);
        KxBoundList list;
        QCOMPARE(list.control.InsertItem(&item), -1);
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c"}));
    });
    QTest::newRow("table: text and data go into the cell addressed, the row comes back") << Promise([] {
        wchar_t words[] = L"new";
        LVITEMW item = kxListViewItem(1, 2, words, 77);
        item.mask = LVIF_TEXT | LVIF_PARAM;
        KxBoundTable table(2, 3);
        QCOMPARE(table.control.InsertItem(&item), 1);
        QCOMPARE(table.widget.rowCount(), 3);
        QCOMPARE(table.texts(0), kxStrings({"0,0", "0,1", "0,2"}));
        QCOMPARE(table.texts(1), kxStrings({"none", "none", "new"}));
        QCOMPARE(table.texts(2), kxStrings({"1,0", "1,1", "1,2"}));
        QCOMPARE(table.widget.item(1, 2)->data(Qt::UserRole), QVariant(77ULL));
    });
    QTest::newRow("table: the data is kept as unsigned long long under role 256") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(0, 0, words, -2);
        KxBoundTable table(0, 1);
        QCOMPARE(table.control.InsertItem(&item), 0);
        const QVariant data = table.widget.item(0, 0)->data(256);
        QCOMPARE(data.userType(), int(QMetaType::ULongLong));
        QCOMPARE(data.toULongLong(), 0xFFFFFFFFFFFFFFFEULL);
    });
    QTest::newRow("table: a mask of 0 inserts text and data too") << Promise([] {
        wchar_t words[] = L"new";
        LVITEMW item = kxListViewItem(0, 0, words, 5);
        item.mask = 0;
        KxBoundTable table(0, 1);
        QCOMPARE(table.control.InsertItem(&item), 0);
        QCOMPARE(table.texts(0), kxStrings({"new"}));
        QCOMPARE(table.widget.item(0, 0)->data(Qt::UserRole), QVariant(5ULL));
    });
    QTest::newRow("table: a row beyond the end is appended at the count, which comes back") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(50, 0, words, 5);
        KxBoundTable table(2, 1);
        QCOMPARE(table.control.InsertItem(&item), 2);
        QCOMPARE(table.widget.rowCount(), 3);
        QCOMPARE(table.texts(2), kxStrings({"new"}));
        QCOMPARE(table.widget.item(2, 0)->data(Qt::UserRole), QVariant(5ULL));
    });
    QTest::newRow("table: a row at the count is appended") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(2, 0, words, 5);
        KxBoundTable table(2, 1);
        QCOMPARE(table.control.InsertItem(&item), 2);
        QCOMPARE(table.texts(2), kxStrings({"new"}));
    });
    QTest::newRow("table: a negative row inserts nothing and comes back") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(-1, 0, words, 5);
        KxBoundTable table(2, 1);
        QCOMPARE(table.control.InsertItem(&item), -1);
        QCOMPARE(table.widget.rowCount(), 2);
        QCOMPARE(table.texts(0), kxStrings({"0,0"}));
    });
    QTest::newRow("table: a column beyond the last has no cell; the row comes without") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(1, 9, words, 5);
        KxBoundTable table(2, 2);
        QCOMPARE(table.control.InsertItem(&item), 1);
        QCOMPARE(table.widget.rowCount(), 3);
        QCOMPARE(table.texts(1), kxStrings({"none", "none"}));
        QCOMPARE(table.texts(2), kxStrings({"1,0", "1,1"}));
    });
    QTest::newRow("table: no text gives a cell with an empty one") << Promise([] {
        const LVITEMW item = kxListViewItem(0, 0, nullptr, 5);
        KxBoundTable table(0, 1);
        QCOMPARE(table.control.InsertItem(&item), 0);
        QCOMPARE(table.texts(0), QStringList{QString()});
        QCOMPARE(table.widget.item(0, 0)->data(Qt::UserRole), QVariant(5ULL));
    });
    QTest::newRow("view: -1, nothing inserted") << Promise([] {
        wchar_t words[] = L"new";
        const LVITEMW item = kxListViewItem(1, 0, words, 7);
        KxBoundView view(2, 2);
        QCOMPARE(view.control.InsertItem(&item), -1);
        QCOMPARE(view.model.rowCount(), 2);
    });
}

void ListViewTest::deleteItem_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: takes the row out and deletes its item") << Promise([] {
        int deleted = 0;
        KxBoundList list;
        list.widget.insertItem(1, new Counted<QListWidgetItem>(&deleted));
        QVERIFY(list.control.DeleteItem(1));
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c"}));
        QCOMPARE(deleted, 1);
    });
    QTest::newRow("list: the item's widget goes too") << Promise([] {
        KxBoundList list;
        QPointer<QLabel> label = new QLabel(QStringLiteral("in the row"));
        list.widget.setItemWidget(list.widget.item(1), label);
        QVERIFY(list.control.DeleteItem(1));
        QCOMPARE(list.texts(), kxStrings({"a", "c"}));
        QTRY_VERIFY(label.isNull());
    });
    QTest::newRow("list: a row that is not there deletes nothing") << Promise([] {
        KxBoundList list;
        QVERIFY(!list.control.DeleteItem(3));
        QVERIFY(!list.control.DeleteItem(-1));
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c"}));
    });
    QTest::newRow("list: the widget tells that another row is the current one") << Promise([] {
        KxBoundList list;
        list.widget.setCurrentRow(2);
        const QSignalSpy rows(&list.widget, &QListWidget::currentRowChanged);
        QVERIFY(list.control.DeleteItem(2));
        QVERIFY(rows.count() > 0);
        QCOMPARE(rows.last().at(0).toInt(), 1);
    });
    QTest::newRow("table: removes the row with its cells") << Promise([] {
        int deleted = 0;
        KxBoundTable table(3, 2);
        table.widget.setItem(1, 1, new Counted<QTableWidgetItem>(&deleted));
        QVERIFY(table.control.DeleteItem(1));
        QCOMPARE(table.widget.rowCount(), 2);
        QCOMPARE(table.texts(0), kxStrings({"0,0", "0,1"}));
        QCOMPARE(table.texts(1), kxStrings({"2,0", "2,1"}));
        QCOMPARE(deleted, 1);
    });
    QTest::newRow("table: a row that is not there deletes nothing") << Promise([] {
        KxBoundTable table(2, 1);
        QVERIFY(!table.control.DeleteItem(2));
        QVERIFY(!table.control.DeleteItem(-1));
        QCOMPARE(table.widget.rowCount(), 2);
    });
    QTest::newRow("view: removes the row of the model") << Promise([] {
        KxBoundView view(3, 2);
        QVERIFY(view.control.DeleteItem(1));
        QCOMPARE(view.model.rowCount(), 2);
        QCOMPARE(view.model.index(1, 0).data().toString(), QStringLiteral("2,0"));
    });
    QTest::newRow("view: a row that is not there deletes nothing") << Promise([] {
        KxBoundView view(2, 2);
        QVERIFY(!view.control.DeleteItem(2));
        QVERIFY(!view.control.DeleteItem(-1));
        QCOMPARE(view.model.rowCount(), 2);
    });
    QTest::newRow("view of another model: removes the row as well") << Promise([] {
        KxBoundStringView view;
        QVERIFY(view.control.DeleteItem(1));
        QCOMPARE(view.model.stringList(), kxStrings({"a", "c"}));
    });
    QTest::newRow("view without a model: FALSE") << Promise([] {
        KxBoundEmptyView view;
        QVERIFY(!view.control.DeleteItem(0));
    });
}

void ListViewTest::deleteAllItems_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: no row is left, no signal came, and signals come again") << Promise([] {
        int deleted = 0;
        KxBoundList list;
        list.widget.addItem(new Counted<QListWidgetItem>(&deleted));
        list.widget.setCurrentRow(3);
        const ListSignals signs(&list.widget);
        QVERIFY(list.control.DeleteAllItems());
        QCOMPARE(list.widget.count(), 0);
        QCOMPARE(deleted, 1);
        QCOMPARE(signs.count(), 0);
        QVERIFY(!list.widget.signalsBlocked());
    });
    QTest::newRow("list: signals that the host had blocked are unblocked") << Promise([] {
        KxBoundList list;
        list.widget.blockSignals(true);
        QVERIFY(list.control.DeleteAllItems());
        QVERIFY(!list.widget.signalsBlocked());
    });
    QTest::newRow("list: an empty one stays so") << Promise([] {
        KxBoundList list{QStringList()};
        QVERIFY(list.control.DeleteAllItems());
        QCOMPARE(list.widget.count(), 0);
        QVERIFY(!list.widget.signalsBlocked());
    });
    QTest::newRow("table: no row is left, no signal came, and signals come again") << Promise([] {
        int deleted = 0;
        KxBoundTable table(3, 2);
        table.widget.setItem(2, 1, new Counted<QTableWidgetItem>(&deleted));
        table.widget.setCurrentCell(1, 1);
        const TableSignals signs(&table.widget);
        QVERIFY(table.control.DeleteAllItems());
        QCOMPARE(table.widget.rowCount(), 0);
        QCOMPARE(deleted, 1);
        QCOMPARE(signs.count(), 0);
        QVERIFY(!table.widget.signalsBlocked());
    });
    QTest::newRow("table: columns and headings stay") << Promise([] {
        KxBoundTable table(3, 2);
        table.widget.setHorizontalHeaderLabels(kxStrings({"x", "y"}));
        QVERIFY(table.control.DeleteAllItems());
        QCOMPARE(table.widget.columnCount(), 2);
        QCOMPARE(table.widget.horizontalHeaderItem(1)->text(), QStringLiteral("y"));
    });
    QTest::newRow("table: signals that the host had blocked are unblocked") << Promise([] {
        KxBoundTable table;
        table.widget.blockSignals(true);
        QVERIFY(table.control.DeleteAllItems());
        QVERIFY(!table.widget.signalsBlocked());
    });
    QTest::newRow("table: an empty one stays so") << Promise([] {
        KxBoundTable table(0, 2);
        QVERIFY(table.control.DeleteAllItems());
        QCOMPARE(table.widget.rowCount(), 0);
        QCOMPARE(table.widget.columnCount(), 2);
        QVERIFY(!table.widget.signalsBlocked());
    });
    QTest::newRow("table: 100,000 rows, every tenth with cells and selected") << Promise([] {
        KxBoundTable table(0, 2);
        table.widget.setRowCount(100000);
        for (int row = 0; row < 100000; row += 10)
            table.widget.setItem(row, 0, new QTableWidgetItem(QStringLiteral("cell")));
        table.widget.selectAll();
        const TableSignals signs(&table.widget);
        QVERIFY(table.control.DeleteAllItems());
        QCOMPARE(table.widget.rowCount(), 0);
        QCOMPARE(table.widget.columnCount(), 2);
        QCOMPARE(signs.count(), 0);
        QVERIFY(table.widget.selectedItems().isEmpty());
        QVERIFY(!table.widget.signalsBlocked());
    });
    QTest::newRow("view: no row is left, the model tells of all, columns and headings stay") << Promise([] {
        KxBoundView view(3, 2);
        view.model.setHorizontalHeaderLabels(kxStrings({"x", "y"}));
        const QSignalSpy removals(&view.model, &QStandardItemModel::rowsRemoved);
        QVERIFY(view.control.DeleteAllItems());
        QCOMPARE(view.model.rowCount(), 0);
        QCOMPARE(view.model.columnCount(), 2);
        QCOMPARE(view.model.horizontalHeaderItem(1)->text(), QStringLiteral("y"));
        int rows = 0;
        for (const QList<QVariant> &removal : removals)
            rows += removal.at(2).toInt() - removal.at(1).toInt() + 1;
        QCOMPARE(rows, 3);
    });
    QTest::newRow("view: signals stay as the host has them") << Promise([] {
        KxBoundView view;
        view.widget.blockSignals(true);
        QVERIFY(view.control.DeleteAllItems());
        QVERIFY(view.widget.signalsBlocked());
        QVERIFY(!view.model.signalsBlocked());
    });
    QTest::newRow("view: 100,000 rows") << Promise([] {
        KxBoundView view(0, 2);
        view.model.setRowCount(100000);
        QVERIFY(view.control.DeleteAllItems());
        QCOMPARE(view.model.rowCount(), 0);
        QCOMPARE(view.model.columnCount(), 2);
    });
    QTest::newRow("view of another model: FALSE, the rows stay") << Promise([] {
        KxBoundStringView view;
        QVERIFY(!view.control.DeleteAllItems());
        QCOMPARE(view.model.stringList(), kxStrings({"a", "b", "c"}));
    });
    QTest::newRow("view without a model: FALSE") << Promise([] {
        KxBoundEmptyView view;
        QVERIFY(!view.control.DeleteAllItems());
    });
}

void ListViewTest::itemCount_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: its rows, 0 when it is empty") << Promise([] {
        const KxBoundList list;
        const KxBoundList empty{QStringList()};
        QCOMPARE(list.control.GetItemCount(), 3);
        QCOMPARE(empty.control.GetItemCount(), 0);
    });
    QTest::newRow("table: its rows, also without cells") << Promise([] {
        KxBoundTable table(4, 2);
        table.widget.setRowCount(7);
        QCOMPARE(table.control.GetItemCount(), 7);
    });
    QTest::newRow("view: the rows of the model") << Promise([] {
        const KxBoundView view(4, 2);
        QCOMPARE(view.control.GetItemCount(), 4);
    });
    QTest::newRow("view of another model: 0") << Promise([] {
        const KxBoundStringView view;
        QCOMPARE(view.control.GetItemCount(), 0);
    });
    QTest::newRow("view without a model: 0") << Promise([] {
        const KxBoundEmptyView view;
        QCOMPARE(view.control.GetItemCount(), 0);
    });
}

void ListViewTest::itemText_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: the row's text, whatever the column") << Promise([] {
        const KxBoundList list;
        QCOMPARE(text(list.control.GetItemText(1, 0)), QStringLiteral("b"));
        QCOMPARE(text(list.control.GetItemText(1, 7)), QStringLiteral("b"));
    });
    QTest::newRow("list: empty for a row that is not there") << Promise([] {
        const KxBoundList list;
        QVERIFY(list.control.GetItemText(3, 0).IsEmpty());
        QVERIFY(list.control.GetItemText(-1, 0).IsEmpty());
    });
    QTest::newRow("list: text outside ASCII and outside the 16-bit range") << Promise([] {
        const KxBoundList list({QString::fromUtf8("größe \xF0\x9F\x98\x80")});
        QVERIFY(list.control.GetItemText(0, 0) == L"größe \U0001F600");
        QCOMPARE(list.control.GetItemText(0, 0).GetLength(), 7);
    });
    QTest::newRow("table: the cell's text") << Promise([] {
        const KxBoundTable table;
        QCOMPARE(text(table.control.GetItemText(1, 0)), QStringLiteral("1,0"));
        QCOMPARE(text(table.control.GetItemText(2, 1)), QStringLiteral("2,1"));
    });
    QTest::newRow("table: empty for a cell that is not there") << Promise([] {
        KxBoundTable table(2, 2);
        delete table.widget.takeItem(1, 1);
        QVERIFY(table.control.GetItemText(1, 1).IsEmpty());
        QVERIFY(table.control.GetItemText(2, 0).IsEmpty());
        QVERIFY(table.control.GetItemText(0, 2).IsEmpty());
        QVERIFY(table.control.GetItemText(-1, 0).IsEmpty());
        QVERIFY(table.control.GetItemText(0, -1).IsEmpty());
    });
    QTest::newRow("view: empty") << Promise([] {
        const KxBoundView view;
        QVERIFY(view.control.GetItemText(0, 0).IsEmpty());
    });
    QTest::newRow("view of another model: empty") << Promise([] {
        const KxBoundStringView view;
        QVERIFY(view.control.GetItemText(0, 0).IsEmpty());
    });
}

void ListViewTest::setItemText_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: FALSE, the text stays") << Promise([] {
        KxBoundList list;
        QVERIFY(!list.control.SetItemText(1, 0, L"new"));
        QCOMPARE(list.texts(), kxStrings({"a", "b", "c"}));
    });
    QTest::newRow("table: a new cell takes the place, the item data is lost") << Promise([] {
        int deleted = 0;
        KxBoundTable table(2, 2);
        auto *old = new Counted<QTableWidgetItem>(&deleted);
        old->setData(Qt::UserRole, 7ULL);
        old->setToolTip(QStringLiteral("of the old one"));
        table.widget.setItem(1, 1, old);
        QVERIFY(table.control.SetItemText(1, 1, L"new"));
        QCOMPARE(deleted, 1);
        QCOMPARE(table.texts(1), kxStrings({"1,0", "new"}));
        QVERIFY(!table.widget.item(1, 1)->data(Qt::UserRole).isValid());
        QVERIFY(table.widget.item(1, 1)->toolTip().isEmpty());
    });
    QTest::newRow("table: a cell that was not there comes") << Promise([] {
        KxBoundTable table(0, 2);
        table.widget.setRowCount(1);
        QVERIFY(table.control.SetItemText(0, 1, L"new"));
        QCOMPARE(table.texts(0), kxStrings({"none", "new"}));
    });
    QTest::newRow("table: outside of it nothing is set") << Promise([] {
        KxBoundTable table(1, 2);
        QVERIFY(!table.control.SetItemText(1, 0, L"new"));
        QVERIFY(!table.control.SetItemText(0, 2, L"new"));
        QVERIFY(!table.control.SetItemText(-1, 0, L"new"));
        QVERIFY(!table.control.SetItemText(0, -1, L"new"));
        QCOMPARE(table.widget.rowCount(), 1);
        QCOMPARE(table.widget.columnCount(), 2);
        QCOMPARE(table.texts(0), kxStrings({"0,0", "0,1"}));
    });
    QTest::newRow("table: the widget tells of the change") << Promise([] {
        KxBoundTable table(1, 1);
        const QSignalSpy cells(&table.widget, &QTableWidget::cellChanged);
        QVERIFY(table.control.SetItemText(0, 0, L"new"));
        QVERIFY(cells.count() > 0);
    });
    QTest::newRow("view: FALSE, the text stays") << Promise([] {
        KxBoundView view;
        QVERIFY(!view.control.SetItemText(1, 1, L"new"));
        QCOMPARE(view.model.index(1, 1).data().toString(), QStringLiteral("1,1"));
    });
}

KX_TEST_MAIN(ListViewTest)
#include "tst_controls_list_view.moc"
