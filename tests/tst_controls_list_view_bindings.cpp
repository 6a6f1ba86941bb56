// SPDX-License-Identifier: MIT
// CListCtrl: objects without a list behind them, objects that are plain windows, fixed results, layout.

#include "KxBoundItemViews.h"
#include "KxTestCase.h"

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTreeWidget>

#include <KxAfxWinTreeCtrl.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <type_traits>

/// A caller that goes through a pointer to no object, on purpose.
#define KX_CALLS_THROUGH_SMALL_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)
using Call = qint64 (*)(CListCtrl *);
Q_DECLARE_METATYPE(Call)

namespace {

template<class Result>
qint64 number(const Result &result)
{
    if constexpr (std::is_pointer_v<Result>)
        return reinterpret_cast<qintptr>(result);
    else if constexpr (std::is_same_v<Result, CString>)
        return result.GetLength();
    else
        return static_cast<qint64>(result);
}

wchar_t newText[] = L"new";
const LVITEMW newItem = kxListViewItem(0, 0, newText, 7);

LVCOLUMNW newColumn()
{
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = newText;
    return column;
}

/// What no member may write to.
constexpr qint64 written = -99;

qint64 callGetItem(CListCtrl *list) KX_CALLS_THROUGH_SMALL_POINTER;
qint64 callGetItem(CListCtrl *list)
{
    LVITEMW item = kxListViewItem(0, 0, newText, 99);
    item.mask = LVIF_PARAM;
    const qint64 result = list->GetItem(&item);
    return item.lParam == 99 ? result : written;
}

qint64 callInsertColumnRecord(CListCtrl *list) KX_CALLS_THROUGH_SMALL_POINTER;
qint64 callInsertColumnRecord(CListCtrl *list)
{
    const LVCOLUMNW column = newColumn();
    return list->InsertColumn(0, &column);
}

qint64 callGetNextSelectedItem(CListCtrl *list) KX_CALLS_THROUGH_SMALL_POINTER;
qint64 callGetNextSelectedItem(CListCtrl *list)
{
    static LIST_POSITION first{0, {}};
    POSITION position = reinterpret_cast<POSITION>(&first);
    const qint64 result = list->GetNextSelectedItem(position);
    return position == reinterpret_cast<POSITION>(&first) ? result : written;
}

/// The members that do something, each with what it gives on a widget that it does not serve.
void addCalls(void (*row)(const char *name, Call call, qint64 notServed))
{
#define KX_CALL(expression) \
    [](CListCtrl *list) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { return number(expression); }
    row("InsertItem of text", KX_CALL(list->InsertItem(0, L"new")), -1);
    row("InsertItem of text and image", KX_CALL(list->InsertItem(0, L"new", 0)), -1);
    row("InsertItem of a record", KX_CALL(list->InsertItem(&newItem)), -1);
    row("DeleteItem", KX_CALL(list->DeleteItem(0)), 0);
    row("DeleteAllItems", KX_CALL(list->DeleteAllItems()), 0);
    row("GetItemCount", KX_CALL(list->GetItemCount()), 0);
    row("GetItemText", KX_CALL(list->GetItemText(0, 0)), 0);
    row("SetItemText", KX_CALL(list->SetItemText(0, 0, L"new")), 0);
    row("SetItemData", KX_CALL(list->SetItemData(0, 7)), 0);
    row("GetItemData", KX_CALL(list->GetItemData(0)), 0);
    row("SetItem of a record", KX_CALL(list->SetItem(&newItem)), 0);
    row("SetItem", KX_CALL(list->SetItem(0, 0, LVIF_TEXT, L"new", 0, 1, 1, 7)), 0);
    row("GetItem", callGetItem, 0);
    row("GetItemState", KX_CALL(list->GetItemState(0, 1)), 0);
    row("GetSelectionMark", KX_CALL(list->GetSelectionMark()), -1);
    row("GetNextItem", KX_CALL(list->GetNextItem(-1, LVNI_SELECTED)), -1);
    row("GetNextItem of flags that are not served", KX_CALL(list->GetNextItem(-1, 0)), -1);
    row("GetSelectedCount", KX_CALL(list->GetSelectedCount()), 0);
    row("GetFirstSelectedItemPosition", KX_CALL(list->GetFirstSelectedItemPosition()), 0);
    row("GetNextSelectedItem", callGetNextSelectedItem, -1);
    row("EditLabel", KX_CALL(list->EditLabel(0)), 0);
    row("DeleteColumn", KX_CALL(list->DeleteColumn(0)), 0);
    row("GetHeaderCtrl", KX_CALL(list->GetHeaderCtrl()), 0);
}

/// Members whose result on a widget that they do not serve is not part of addCalls().
void addOtherCalls(void (*row)(const char *name, Call call, qint64 notServed))
{
    row("InsertItem at a negative index", KX_CALL(list->InsertItem(-3, L"new")), 0);
    row("SetItemState", KX_CALL(list->SetItemState(0, 1, 1)), 0);
    row("InsertColumn of a record", callInsertColumnRecord, 0);
    row("InsertColumn", KX_CALL(list->InsertColumn(0, L"new")), 0);
}
#undef KX_CALL

void addRow(const char *name, Call call, qint64 expected)
{
    QTest::newRow(name) << call << expected;
}

void addUnboundRow(const char *name, Call call, qint64)
{
    QTest::newRow(name) << call;
}

void addSmallPointerRow(const char *name, Call call, qint64)
{
    for (const quintptr pointer : {quintptr(0), quintptr(7), quintptr(4095)})
        QTest::addRow("%s through %d", name, static_cast<int>(pointer)) << call << pointer;
}

/// A widget of type `Widget` with a list control bound to it.
template<class Widget>
struct Bound {
    Bound() { control.Attach(KxHwndFromWidget(&widget)); }

    Widget widget;
    CListCtrl control;
};

/// A dialog whose item 7 no object is bound to, so that GetDlgItem() makes a plain window for it.
struct Dialog {
    explicit Dialog(QWidget *item)
    {
        window.Attach(KxHwndFromWidget(&widget));
        window.SetDlgItem(7, KxHwndFromWidget(item));
    }

    CListCtrl *list() const { return static_cast<CListCtrl *>(window.GetDlgItem(7)); }

    QWidget widget;
    CWnd window{nullptr};
};

int CALLBACK neverCompared(LPARAM, LPARAM, LPARAM)
{
    qFatal("called");
    return 0;
}

/// The slots in which the tables of virtual operations of two objects differ.
QList<int> differingSlots(const CWnd &one, const CWnd &other, int count)
{
    const void *const *left = nullptr;
    const void *const *right = nullptr;
    std::memcpy(&left, static_cast<const void *>(&one), sizeof left);
    std::memcpy(&right, static_cast<const void *>(&other), sizeof right);
    QList<int> found;
    for (int slot = 0; slot < count; ++slot) {
        if (left[slot] != right[slot])
            found.append(slot);
    }
    return found;
}

/// Adds one virtual operation, which gets the next slot.
struct Extended : CListCtrl {
    virtual void next() {}
};

} // namespace

class ListViewBindingsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void unbound_data();
    void unbound();
    void orphaned_data() { unbound_data(); }
    void orphaned();
    void notServed_data();
    void notServed();
    void wrongKinds_data();
    void wrongKinds() { runPromise(); }
    void smallPointer_data();
    void smallPointer();
    void plainWindow_data();
    void plainWindow() { runPromise(); }
    void fixedResult_data();
    void fixedResult() { runPromise(); }
    void layout_data();
    void layout() { runPromise(); }

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void ListViewBindingsTest::unbound_data()
{
    QTest::addColumn<Call>("call");
    addCalls(addUnboundRow);
    addOtherCalls(addUnboundRow);
}

/// An object that was never bound gives 0.
void ListViewBindingsTest::unbound()
{
    QFETCH(Call, call);
    CListCtrl list;
    QCOMPARE(call(&list), qint64(0));
    QVERIFY(list.GetSafeHwnd() == nullptr);
}

/// An object whose handle another one took over gives 0 and leaves the widget alone.
void ListViewBindingsTest::orphaned()
{
    QFETCH(Call, call);
    KxBoundTable table(2, 2);
    table.widget.selectRow(0);
    CListCtrl heir;
    heir.Attach(KxHwndFromWidget(&table.widget));
    QCOMPARE(call(&table.control), qint64(0));
    QCOMPARE(table.widget.rowCount(), 2);
    QCOMPARE(table.widget.columnCount(), 2);
    QCOMPARE(table.texts(0), kxStrings({"0,0", "0,1"}));
    QVERIFY(!table.widget.item(0, 0)->data(Qt::UserRole).isValid());
    QCOMPARE(heir.GetItemCount(), 2);
}

void ListViewBindingsTest::notServed_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<qint64>("expected");
    addCalls(addRow);
}

/// On a widget that is no list view at all a member does nothing and gives its failure value.
void ListViewBindingsTest::notServed()
{
    QFETCH(Call, call);
    QFETCH(qint64, expected);
    Bound<QLabel> label;
    label.widget.setText(QStringLiteral("text"));
    QCOMPARE(call(&label.control), expected);
    QCOMPARE(label.widget.text(), QStringLiteral("text"));
}

void ListViewBindingsTest::wrongKinds_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a label stays as it is with state and columns") << Promise([] {
        Bound<QLabel> label;
        label.widget.setText(QStringLiteral("text"));
        label.control.SetItemState(0, 1, 1);
        const LVCOLUMNW column = newColumn();
        label.control.InsertColumn(0, &column);
        label.control.InsertColumn(0, L"new");
        QCOMPARE(label.widget.text(), QStringLiteral("text"));
        QVERIFY(label.widget.children().isEmpty());
    });
    QTest::newRow("a QListView is not a list") << Promise([] {
        QStandardItemModel model(2, 1);
        Bound<QListView> view;
        view.widget.setModel(&model);
        QCOMPARE(view.control.InsertItem(0, L"new"), -1);
        QCOMPARE(view.control.GetItemCount(), 0);
        QVERIFY(!view.control.DeleteAllItems());
        QVERIFY(!view.control.SetItemData(0, 7));
        QVERIFY(!view.control.DeleteItem(0));
        QCOMPARE(model.rowCount(), 2);
    });
    QTest::newRow("a QTreeWidget is none of the three") << Promise([] {
        Bound<QTreeWidget> tree;
        tree.widget.addTopLevelItem(new QTreeWidgetItem({QStringLiteral("text")}));
        QCOMPARE(tree.control.InsertItem(0, L"new"), -1);
        QVERIFY(!tree.control.DeleteAllItems());
        QVERIFY(tree.control.GetHeaderCtrl() == nullptr);
        QVERIFY(!tree.control.DeleteColumn(0));
        QCOMPARE(tree.widget.topLevelItemCount(), 1);
        QCOMPARE(tree.widget.columnCount(), 1);
    });
}

void ListViewBindingsTest::smallPointer_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<quintptr>("pointer");
    addCalls(addSmallPointerRow);
    addOtherCalls(addSmallPointerRow);
}

/// A member that touched the object would end the program.
void ListViewBindingsTest::smallPointer()
{
    QFETCH(Call, call);
    QFETCH(quintptr, pointer);
    const auto entries = CWndHandleTable.size();
    QVERIFY(call(reinterpret_cast<CListCtrl *>(pointer)) != written);
    QCOMPARE(CWndHandleTable.size(), entries);
}

void ListViewBindingsTest::plainWindow_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("list: every member") << Promise([] {
        QListWidget widget;
        const Dialog dialog(&widget);
        CListCtrl *list = dialog.list();
        QCOMPARE(list->InsertItem(0, L"a"), 0);
        QCOMPARE(list->InsertItem(1, L"b", 0), 1);
        QCOMPARE(list->InsertItem(&newItem), -1);
        QCOMPARE(list->GetItemCount(), 2);
        QVERIFY(list->GetItemText(1, 0) == L"b");
        QVERIFY(!list->SetItemText(0, 0, L"new"));
        QVERIFY(list->SetItemData(1, 7));
        QCOMPARE(list->GetItemData(1), DWORD_PTR(7));
        QVERIFY(list->SetItemState(1, 1, 1));
        QCOMPARE(list->GetItemState(1, 1), 1u);
        QCOMPARE(list->GetSelectionMark(), 1);
        QCOMPARE(list->GetNextItem(-1, LVNI_SELECTED), 1);
        QCOMPARE(list->GetSelectedCount(), 1u);
        QVERIFY(list->EditLabel(1) == nullptr);
        QVERIFY(list->GetHeaderCtrl() == nullptr);
        QVERIFY(list->DeleteItem(0));
        QCOMPARE(widget.count(), 1);
        QVERIFY(list->DeleteAllItems());
        QCOMPARE(widget.count(), 0);
    });
    QTest::newRow("table: every member") << Promise([] {
        QTableWidget widget;
        const Dialog dialog(&widget);
        CListCtrl *list = dialog.list();
        const LVCOLUMNW column = newColumn();
        QCOMPARE(list->InsertColumn(0, &column), 0);
        QCOMPARE(list->InsertColumn(1, L"second"), 1);
        QCOMPARE(widget.columnCount(), 2);
        QCOMPARE(list->InsertItem(0, L"a"), 0);
        QCOMPARE(list->InsertItem(1, L"b", 0), 1);
        QCOMPARE(list->InsertItem(&newItem), 0);
        QCOMPARE(list->GetItemCount(), 3);
        QVERIFY(list->SetItem(&newItem));
        QVERIFY(list->SetItem(1, 0, LVIF_TEXT, L"c", 0, 0, 0, 8));
        LVITEMW item = kxListViewItem(1, 0, nullptr, 0);
        item.mask = LVIF_PARAM;
        QVERIFY(list->GetItem(&item));
        QCOMPARE(item.lParam, LPARAM(8));
        QVERIFY(list->SetItemText(2, 1, L"d"));
        QVERIFY(list->GetItemText(2, 1) == L"d");
        QVERIFY(list->SetItemData(2, 7));
        QCOMPARE(list->GetItemData(2), DWORD_PTR(7));
        QVERIFY(list->SetItemState(2, 1, 1));
        QCOMPARE(list->GetItemState(2, 1), 1u);
        QCOMPARE(list->GetSelectionMark(), -1);
        QCOMPARE(list->GetNextItem(-1, LVNI_SELECTED), 2);
        QCOMPARE(list->GetSelectedCount(), 1u);
        POSITION position = list->GetFirstSelectedItemPosition();
        QCOMPARE(list->GetNextSelectedItem(position), 2);
        QVERIFY(position == nullptr);
        QVERIFY(list->EditLabel(1) == nullptr);
        const std::unique_ptr<CHeaderCtrl> header(list->GetHeaderCtrl());
        QCOMPARE(header->GetItemCount(), 2);
        QVERIFY(list->DeleteColumn(1));
        QVERIFY(list->DeleteItem(0));
        QCOMPARE(widget.rowCount(), 2);
        QVERIFY(list->DeleteAllItems());
        QCOMPARE(widget.rowCount(), 0);
    });
    QTest::newRow("view: every member") << Promise([] {
        QStandardItemModel model;
        QTableView widget;
        widget.setModel(&model);
        const Dialog dialog(&widget);
        CListCtrl *list = dialog.list();
        QCOMPARE(list->InsertColumn(0, L"first"), 0);
        QCOMPARE(list->InsertColumn(1, L"second"), 1);
        QCOMPARE(model.columnCount(), 2);
        QCOMPARE(list->InsertItem(0, L"a"), 0);
        QCOMPARE(list->InsertItem(1, L"b"), 1);
        QCOMPARE(list->GetItemCount(), 2);
        QVERIFY(list->SetItemData(1, 7));
        QCOMPARE(list->GetItemData(1), DWORD_PTR(7));
        QVERIFY(list->SetItemState(1, 1, 1));
        QCOMPARE(list->GetItemState(1, 1), 1u);
        QCOMPARE(list->GetSelectedCount(), 1u);
        POSITION position = list->GetFirstSelectedItemPosition();
        QCOMPARE(list->GetNextSelectedItem(position), 1);
        QVERIFY(position == nullptr);
        QVERIFY(list->EditLabel(0) == nullptr);
        const std::unique_ptr<CHeaderCtrl> header(list->GetHeaderCtrl());
        QCOMPARE(header->GetItemCount(), 2);
        QVERIFY(list->DeleteColumn(1));
        QVERIFY(list->DeleteItem(0));
        QCOMPARE(model.rowCount(), 1);
        QVERIFY(list->DeleteAllItems());
        QCOMPARE(model.rowCount(), 0);
    });
    QTest::newRow("list: the members with fixed results") << Promise([] {
        QListWidget widget;
        const Dialog dialog(&widget);
        CListCtrl *list = dialog.list();
        RECT rect{};
        CRect part(1, 2, 3, 4);
        LVCOLUMNW column{};
        QVERIFY(list->SetImageList(nullptr, 0) == nullptr);
        QCOMPARE(list->SetExtendedStyle(1), 0u);
        QCOMPARE(list->GetExtendedStyle(), 0u);
        QVERIFY(list->GetItemRect(0, &rect, 0));
        QVERIFY(list->GetSubItemRect(0, 0, 0, part));
        QVERIFY(list->EnsureVisible(0, FALSE));
        list->SetSelectionMark(0);
        QVERIFY(!list->SortItems(neverCompared, 0));
        QVERIFY(list->SetColumnWidth(0, 9));
        QVERIFY(!list->GetColumn(0, &column));
    });
    QTest::newRow("an unknown item is an unbound one") << Promise([] {
        QListWidget widget;
        const Dialog dialog(&widget);
        auto *list = static_cast<CListCtrl *>(dialog.window.GetDlgItem(99));
        QCOMPARE(list->InsertItem(0, L"a"), 0);
        QCOMPARE(list->GetItemCount(), 0);
        QCOMPARE(widget.count(), 0);
    });
}

void ListViewBindingsTest::fixedResult_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("SetImageList: null, nothing kept") << Promise([] {
        CImageList images;
        KxBoundList list;
        QVERIFY(list.control.SetImageList(&images, 1) == nullptr);
        QVERIFY(list.control.SetImageList(nullptr, 1) == nullptr);
        QVERIFY(list.widget.item(0)->icon().isNull());
    });
    QTest::newRow("SetExtendedStyle and GetExtendedStyle: 0, nothing kept") << Promise([] {
        KxBoundTable table;
        QCOMPARE(table.control.SetExtendedStyle(LVS_EX_FULLROWSELECT), 0u);
        QCOMPARE(table.control.GetExtendedStyle(), 0u);
        QCOMPARE(table.control.SetExtendedStyle(0), 0u);
        QCOMPARE(table.widget.selectionBehavior(), QAbstractItemView::SelectItems);
    });
    QTest::newRow("GetItemRect: TRUE, the rectangle is not written") << Promise([] {
        const KxBoundList list;
        RECT rect{1, 2, 3, 4};
        QVERIFY(list.control.GetItemRect(0, &rect, LVIR_BOUNDS));
        QVERIFY(rect.left == 1 && rect.top == 2 && rect.right == 3 && rect.bottom == 4);
    });
    QTest::newRow("GetSubItemRect: TRUE, the rectangle is not written") << Promise([] {
        const KxBoundTable table;
        CRect rect(1, 2, 3, 4);
        QVERIFY(table.control.GetSubItemRect(0, 1, LVIR_BOUNDS, rect));
        QVERIFY(rect.left == 1 && rect.top == 2 && rect.right == 3 && rect.bottom == 4);
    });
    QTest::newRow("EnsureVisible: TRUE, nothing scrolls") << Promise([] {
        KxBoundTable table(500, 1);
        table.widget.resize(200, 200);
        table.widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&table.widget));
        QVERIFY(table.widget.verticalScrollBar()->maximum() > 0);
        QVERIFY(table.control.EnsureVisible(499, FALSE));
        QCOMPARE(table.widget.verticalScrollBar()->value(), 0);
    });
    QTest::newRow("SetSelectionMark: the current row stays") << Promise([] {
        KxBoundList list;
        list.widget.setCurrentRow(0);
        list.control.SetSelectionMark(2);
        QCOMPARE(list.widget.currentRow(), 0);
        QCOMPARE(list.control.GetSelectionMark(), 0);
    });
    QTest::newRow("SortItems: FALSE, nothing sorted, never calls back") << Promise([] {
        KxBoundList list(kxStrings({"c", "a", "b"}));
        QVERIFY(!list.control.SortItems(neverCompared, 0));
        QCOMPARE(list.texts(), kxStrings({"c", "a", "b"}));
    });
    QTest::newRow("SetColumnWidth: TRUE, nothing changes") << Promise([] {
        KxBoundTable table;
        const int width = table.widget.columnWidth(1);
        QVERIFY(table.control.SetColumnWidth(1, width + 50));
        QCOMPARE(table.widget.columnWidth(1), width);
    });
    QTest::newRow("GetColumn: FALSE, nothing is written") << Promise([] {
        KxBoundTable table;
        table.widget.setHorizontalHeaderLabels(kxStrings({"x", "y", "z"}));
        wchar_t buffer[] = L"before";
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.cx = -7;
        column.fmt = -8;
        column.pszText = buffer;
        column.cchTextMax = 7;
        QVERIFY(!table.control.GetColumn(1, &column));
        QCOMPARE(column.cx, -7);
        QCOMPARE(column.fmt, -8);
        QVERIFY(column.pszText == buffer);
        QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("before"));
    });
}

void ListViewBindingsTest::layout_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("CListCtrl adds one pointer to CWnd, that of a block of its own") << Promise([] {
        QCOMPARE(sizeof(CListCtrl), sizeof(CWnd) + sizeof(void *));
        const CListCtrl first;
        const CListCtrl second;
        const auto block = [](const CListCtrl &list) {
            const void *found = nullptr;
            std::memcpy(&found, reinterpret_cast<const char *>(&list) + sizeof(CWnd), sizeof found);
            return found;
        };
        QVERIFY(block(first) != nullptr);
        QVERIFY(block(second) != nullptr);
        QVERIFY(block(first) != block(second));
    });
    QTest::newRow("CListCtrl overrides the destructors of CWnd and nothing else") << Promise([] {
        const CWnd window(nullptr);
        const CListCtrl list;
        QCOMPARE(differingSlots(list, window, 20), (QList<int>{0, 1}));
    });
    QTest::newRow("CListCtrl adds no virtual operation to the 20 slots of CWnd") << Promise([] {
        const auto member = &Extended::next;
        std::uintptr_t slot = 0;
        std::memcpy(&slot, &member, sizeof slot);
        QCOMPARE((slot - 1) / sizeof(void *), std::size_t(20));
    });
    QTest::newRow("LIST_POSITION is a row and the rows visited") << Promise([] {
        const LIST_POSITION position{};
        const auto offset = [&position](const auto &field) {
            return reinterpret_cast<const char *>(&field) - reinterpret_cast<const char *>(&position);
        };
        QCOMPARE(sizeof position.row, std::size_t(4));
        QCOMPARE(offset(position.row), std::ptrdiff_t(0));
        QCOMPARE(offset(position.visited), std::ptrdiff_t(8));
        QCOMPARE(sizeof position, std::size_t(16));
    });
}

KX_TEST_MAIN(ListViewBindingsTest)
#include "tst_controls_list_view_bindings.moc"
