// SPDX-License-Identifier: MIT
// CTreeCtrl over a QTreeWidget: items, walking, texts, data, states.

#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTreeWidget>

#include <afxcmn.h>

#include <cstring>
#include <cwchar>
#include <string>
#include <type_traits>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(QTreeWidgetItem *)

namespace {

HTREEITEM handleOf(QTreeWidgetItem *item)
{
    return reinterpret_cast<HTREEITEM>(item);
}

QTreeWidgetItem *itemOf(HTREEITEM handle)
{
    return reinterpret_cast<QTreeWidgetItem *>(handle);
}

/// A record as a host fills it, with what is not looked at filled with other things.
TVINSERTSTRUCTW record(HTREEITEM parent, wchar_t *text, LPARAM value)
{
    TVINSERTSTRUCTW insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_FIRST;
    insert.item.pszText = text;
    insert.item.lParam = value;
    return insert;
}

/// All items in order, a level in brackets: "a(b c(d))"; * behind an expanded one.
QString outline(const QTreeWidgetItem *item)
{
    QStringList children;
    for (int i = 0; i < item->childCount(); ++i)
        children.append(outline(item->child(i)));
    QString text = item->text(0) + (item->isExpanded() ? QStringLiteral("*") : QString());
    if (!children.isEmpty())
        text += QLatin1Char('(') + children.join(QLatin1Char(' ')) + QLatin1Char(')');
    return text;
}

QString outline(const QTreeWidget &tree)
{
    QStringList items;
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        items.append(outline(tree.topLevelItem(i)));
    return items.join(QLatin1Char(' '));
}

/// A tree with the items "one(first second third) two three", all collapsed, one column.
struct Tree {
    Tree()
    {
        widget.setColumnCount(1);
        for (const char *text : {"one", "two", "three"})
            widget.addTopLevelItem(new QTreeWidgetItem({QString::fromLatin1(text)}));
        for (const char *text : {"first", "second", "third"})
            new QTreeWidgetItem(widget.topLevelItem(0), {QString::fromLatin1(text)});
        control.Attach(KxHwndFromWidget(&widget));
    }

    QTreeWidgetItem *top(int index) const { return widget.topLevelItem(index); }
    QTreeWidgetItem *child(int index) const { return widget.topLevelItem(0)->child(index); }

    QTreeWidget widget;
    CTreeCtrl control;
};

const QString wholeTree = QStringLiteral("one(first second third) two three");

/// Counts how many of its kind there are.
class CountedItem : public QTreeWidgetItem
{
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    CountedItem(const CountedItem &) = delete;
    ~CountedItem() override { --s_count; }

    static CountedItem *make(QTreeWidgetItem *parent)
    {
        ++s_count;
        return new CountedItem(parent);
    }

    static inline int s_count = 0;
};

QString text(const CString &string)
{
    return QString::fromWCharArray(string, string.GetLength());
}

} // namespace

class ControlsTreeTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void insertion_data();
    void insertion() { runPromise(); }
    void deletion_data();
    void deletion() { runPromise(); }
    void walking_data();
    void walking() { runPromise(); }
    void nextItemCode_data();
    void nextItemCode();
    void texts_data();
    void texts() { runPromise(); }
    void states_data();
    void states() { runPromise(); }

private:
    static void runPromise()
    {
        const auto tableBefore = CWndHandleTable.size();
        QFETCH(Promise, promise);
        promise();
        if (!QTest::currentTestFailed())
            QCOMPARE(CWndHandleTable.size(), tableBefore);
    }
};

// ---- inserting and deleting -------------------------------------------------------------------------------

void ControlsTreeTest::insertion_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a text under TVI_ROOT is a top-level item") << Promise([] {
        Tree tree;
        const HTREEITEM item = tree.control.InsertItem(L"new", TVI_ROOT, TVI_LAST);
        QCOMPARE(outline(tree.widget), wholeTree + QStringLiteral(" new"));
        QVERIFY(item == handleOf(tree.top(3)));
    });
    QTest::newRow("a text alone is a top-level item") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.InsertItem(L"new") == handleOf(tree.top(3)));
        QCOMPARE(outline(tree.widget), wholeTree + QStringLiteral(" new"));
    });
    QTest::newRow("a text into an empty tree") << Promise([] {
        QTreeWidget widget;
        CTreeCtrl control;
        control.Attach(KxHwndFromWidget(&widget));
        QVERIFY(control.InsertItem(L"new", TVI_ROOT) == handleOf(widget.topLevelItem(0)));
        QCOMPARE(outline(widget), QStringLiteral("new"));
    });
    QTest::newRow("a text under null inserts nothing and gives null") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.InsertItem(L"new", nullptr, TVI_LAST) == nullptr);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
    QTest::newRow("a text under an item is its last child") << Promise([] {
        Tree tree;
        const HTREEITEM item = tree.control.InsertItem(L"new", handleOf(tree.top(0)), TVI_LAST);
        QCOMPARE(outline(tree.widget), QStringLiteral("one(first second third new) two three"));
        QVERIFY(item == handleOf(tree.child(3)));
    });
    QTest::newRow("a text under a child goes one level down") << Promise([] {
        Tree tree;
        const HTREEITEM item = tree.control.InsertItem(L"new", handleOf(tree.child(1)));
        QCOMPARE(outline(tree.widget), QStringLiteral("one(first second(new) third) two three"));
        QVERIFY(item == handleOf(tree.child(1)->child(0)));
    });
    QTest::newRow("a text goes to the end whatever it is to come after") << Promise([] {
        Tree tree;
        tree.control.InsertItem(L"a", TVI_ROOT, TVI_FIRST);
        tree.control.InsertItem(L"b", TVI_ROOT, TVI_SORT);
        tree.control.InsertItem(L"c", TVI_ROOT, handleOf(tree.top(0)));
        tree.control.InsertItem(L"d", TVI_ROOT, nullptr);
        tree.control.InsertItem(L"e", handleOf(tree.top(0)), handleOf(tree.child(0)));
        QCOMPARE(outline(tree.widget), QStringLiteral("one(first second third e) two three a b c d"));
    });
    QTest::newRow("a text sets no item data") << Promise([] {
        Tree tree;
        const HTREEITEM item = tree.control.InsertItem(L"new", TVI_ROOT, TVI_LAST);
        QVERIFY(!itemOf(item)->data(0, Qt::UserRole).isValid());
        QCOMPARE(tree.control.GetItemData(item), 0UL);
    });
    QTest::newRow("a text keeps characters beyond 16 bits") << Promise([] {
        Tree tree;
        const HTREEITEM item = tree.control.InsertItem(L"\u00e9\U0001F600", TVI_ROOT);
        QCOMPARE(itemOf(item)->text(0), QStringLiteral("\u00e9\U0001F600"));
    });
    QTest::newRow("a record under null is a top-level item") << Promise([] {
        Tree tree;
        wchar_t name[] = L"new";
        TVINSERTSTRUCTW insert = record(nullptr, name, 42);
        const HTREEITEM item = tree.control.InsertItem(&insert);
        QCOMPARE(outline(tree.widget), wholeTree + QStringLiteral(" new"));
        QVERIFY(item == handleOf(tree.top(3)));
    });
    QTest::newRow("a record under an item is its last child") << Promise([] {
        Tree tree;
        wchar_t name[] = L"new";
        TVINSERTSTRUCTW insert = record(handleOf(tree.top(0)), name, 42);
        const HTREEITEM item = tree.control.InsertItem(&insert);
        QCOMPARE(outline(tree.widget), QStringLiteral("one(first second third new) two three"));
        QVERIFY(item == handleOf(tree.child(3)));
    });
    QTest::newRow("a record under TVI_ROOT inserts nothing and gives null") << Promise([] {
        Tree tree;
        wchar_t name[] = L"new";
        TVINSERTSTRUCTW insert = record(TVI_ROOT, name, 42);
        QVERIFY(tree.control.InsertItem(&insert) == nullptr);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
    QTest::newRow("a record's lParam is the item data, as an unsigned long long") << Promise([] {
        Tree tree;
        wchar_t name[] = L"new";
        TVINSERTSTRUCTW insert = record(nullptr, name, 0x123456789ABCDEF0);
        const HTREEITEM item = tree.control.InsertItem(&insert);
        const QVariant data = itemOf(item)->data(0, Qt::UserRole);
        QCOMPARE(data.userType(), static_cast<int>(QMetaType::ULongLong));
        QCOMPARE(data.toULongLong(), 0x123456789ABCDEF0ULL);
        QCOMPARE(tree.control.GetItemData(item), 0x123456789ABCDEF0UL);
    });
    QTest::newRow("a record's lParam of -1 has all 64 bits set as item data") << Promise([] {
        Tree tree;
        wchar_t name[] = L"new";
        TVINSERTSTRUCTW insert = record(nullptr, name, -1);
        QCOMPARE(tree.control.GetItemData(tree.control.InsertItem(&insert)), ~0UL);
    });
    QTest::newRow("a record's lParam of 0 is item data too") << Promise([] {
        Tree tree;
        wchar_t name[] = L"new";
        TVINSERTSTRUCTW insert = record(nullptr, name, 0);
        const HTREEITEM item = tree.control.InsertItem(&insert);
        QCOMPARE(itemOf(item)->data(0, Qt::UserRole).userType(), static_cast<int>(QMetaType::ULongLong));
    });
    QTest::newRow("a record's text and data count with every mask") << Promise([] {
        Tree tree;
        wchar_t name[] = L"new";
        for (const UINT mask : {0u, unsigned(TVIF_TEXT), unsigned(TVIF_PARAM), unsigned(TVIF_STATE)}) {
            TVINSERTSTRUCTW insert = record(nullptr, name, 42);
            insert.item.mask = mask;
            const HTREEITEM item = tree.control.InsertItem(&insert);
            QCOMPARE(itemOf(item)->text(0), QStringLiteral("new"));
            QCOMPARE(tree.control.GetItemData(item), 42UL);
        }
    });
    QTest::newRow("a record goes to the end whatever it is to come after") << Promise([] {
        Tree tree;
        wchar_t name[] = L"new";
        for (const HTREEITEM after : {TVI_FIRST, TVI_LAST, TVI_SORT, handleOf(tree.top(0)), HTREEITEM()}) {
            TVINSERTSTRUCTW insert = record(nullptr, name, 42);
            insert.hInsertAfter = after;
            const HTREEITEM item = tree.control.InsertItem(&insert);
            QVERIFY(item == handleOf(tree.top(tree.widget.topLevelItemCount() - 1)));
        }
        QCOMPARE(outline(tree.widget), wholeTree + QStringLiteral(" new new new new new"));
    });
    QTest::newRow("a record's state is not looked at") << Promise([] {
        Tree tree;
        wchar_t name[] = L"new";
        TVINSERTSTRUCTW insert = record(nullptr, name, 42);
        insert.item.mask = TVIF_STATE;
        insert.item.state = insert.item.stateMask = TVIS_EXPANDED | TVIS_SELECTED;
        const HTREEITEM item = tree.control.InsertItem(&insert);
        QVERIFY(!itemOf(item)->isExpanded());
        QVERIFY(!itemOf(item)->isSelected());
    });
    QTest::newRow("the record stays as it is") << Promise([] {
        Tree tree;
        wchar_t name[] = L"new";
        TVINSERTSTRUCTW insert = record(nullptr, name, 42);
        TVINSERTSTRUCTW before;
        std::memcpy(&before, &insert, sizeof before);
        tree.control.InsertItem(&insert);
        QCOMPARE(std::memcmp(&before, &insert, sizeof before), 0);
        QCOMPARE(std::wcscmp(name, L"new"), 0);
    });
    QTest::newRow("the form with mask and states inserts nothing and gives null") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.InsertItem(TVIF_TEXT, L"new", 0, 0, 0u, 0u, 7, TVI_ROOT, TVI_LAST) == nullptr);
        QVERIFY(tree.control.InsertItem(TVIF_TEXT, L"new", 0, 0, 0u, 0u, 7, handleOf(tree.top(0)), TVI_LAST)
                == nullptr);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
    QTest::newRow("the form with images inserts nothing and gives null") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.InsertItem(L"new", 0, 0, TVI_ROOT, TVI_LAST) == nullptr);
        QVERIFY(tree.control.InsertItem(L"new", 1, 2, handleOf(tree.top(0)), TVI_LAST) == nullptr);
        QVERIFY(tree.control.InsertItem(L"new", 1, 2) == nullptr);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
}

void ControlsTreeTest::deletion_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("DeleteItem of a top-level item takes its children along") << Promise([] {
        Tree tree;
        QCOMPARE(tree.control.DeleteItem(handleOf(tree.top(0))), true);
        QCOMPARE(outline(tree.widget), QStringLiteral("two three"));
    });
    QTest::newRow("DeleteItem of a child leaves its neighbours") << Promise([] {
        Tree tree;
        QCOMPARE(tree.control.DeleteItem(handleOf(tree.child(1))), true);
        QCOMPARE(outline(tree.widget), QStringLiteral("one(first third) two three"));
    });
    QTest::newRow("DeleteItem destroys the item and those below it") << Promise([] {
        Tree tree;
        CountedItem *item = CountedItem::make(tree.top(1));
        CountedItem::make(CountedItem::make(item));
        QCOMPARE(CountedItem::s_count, 3);
        QCOMPARE(tree.control.DeleteItem(handleOf(item)), true);
        QCOMPARE(CountedItem::s_count, 0);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
    QTest::newRow("DeleteItem of null deletes nothing and is TRUE") << Promise([] {
        Tree tree;
        QCOMPARE(tree.control.DeleteItem(nullptr), true);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
    QTest::newRow("DeleteItem on a table is TRUE and deletes nothing") << Promise([] {
        Tree tree;
        QTableWidget table;
        CTreeCtrl other;
        other.Attach(KxHwndFromWidget(&table));
        QCOMPARE(other.DeleteItem(handleOf(tree.top(0))), true);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
    QTest::newRow("DeleteItem of an unbound object deletes nothing and is FALSE") << Promise([] {
        Tree tree;
        CTreeCtrl other;
        QCOMPARE(other.DeleteItem(handleOf(tree.top(0))), false);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
    QTest::newRow("DeleteAllItems empties the tree and is TRUE") << Promise([] {
        Tree tree;
        QCOMPARE(tree.control.DeleteAllItems(), true);
        QCOMPARE(outline(tree.widget), QString());
        QCOMPARE(tree.control.GetCount(), 0u);
    });
    QTest::newRow("DeleteAllItems destroys the items and leaves the header") << Promise([] {
        Tree tree;
        tree.widget.setHeaderLabel(QStringLiteral("Layers"));
        CountedItem::make(CountedItem::make(tree.child(2)));
        tree.control.DeleteAllItems();
        QCOMPARE(CountedItem::s_count, 0);
        QCOMPARE(tree.widget.headerItem()->text(0), QStringLiteral("Layers"));
        QCOMPARE(tree.widget.columnCount(), 1);
    });
    QTest::newRow("DeleteAllItems of an empty tree is TRUE") << Promise([] {
        Tree tree;
        tree.widget.clear();
        QCOMPARE(tree.control.DeleteAllItems(), true);
    });
}

// ---- walking ----------------------------------------------------------------------------------------------

void ControlsTreeTest::walking_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GetCount counts top-level items only") << Promise([] {
        Tree tree;
        QCOMPARE(tree.control.GetCount(), 3u);
    });
    QTest::newRow("GetCount of one top-level item with three children is 1") << Promise([] {
        Tree tree;
        delete tree.widget.takeTopLevelItem(2);
        delete tree.widget.takeTopLevelItem(1);
        QCOMPARE(tree.control.GetCount(), 1u);
    });
    QTest::newRow("GetRootItem is the first top-level item") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.GetRootItem() == handleOf(tree.top(0)));
    });
    QTest::newRow("an empty tree has no root item, no selected one and the count 0") << Promise([] {
        Tree tree;
        tree.widget.clear();
        QVERIFY(tree.control.GetRootItem() == nullptr);
        QVERIFY(tree.control.GetSelectedItem() == nullptr);
        QCOMPARE(tree.control.GetCount(), 0u);
    });
    QTest::newRow("GetSelectedItem is null while no item is current") << Promise([] {
        Tree tree;
        tree.top(1)->setSelected(true);
        QVERIFY(tree.control.GetSelectedItem() == nullptr);
    });
    QTest::newRow("GetSelectedItem is the current item, selected or not") << Promise([] {
        Tree tree;
        tree.widget.setCurrentItem(tree.child(1));
        QVERIFY(tree.control.GetSelectedItem() == handleOf(tree.child(1)));
        tree.child(1)->setSelected(false);
        QVERIFY(tree.control.GetSelectedItem() == handleOf(tree.child(1)));
    });
    QTest::newRow("GetParentItem of a child, of a top-level item, of null") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.GetParentItem(handleOf(tree.child(1))) == handleOf(tree.top(0)));
        QVERIFY(tree.control.GetParentItem(handleOf(tree.top(0))) == nullptr);
        QVERIFY(tree.control.GetParentItem(nullptr) == nullptr);
    });
    QTest::newRow("GetChildItem is the first child, or null") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.GetChildItem(handleOf(tree.top(0))) == handleOf(tree.child(0)));
        QVERIFY(tree.control.GetChildItem(handleOf(tree.top(1))) == nullptr);
        QVERIFY(tree.control.GetChildItem(nullptr) == nullptr);
    });
    QTest::newRow("GetNextSiblingItem goes through the children and ends with null") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.GetNextSiblingItem(handleOf(tree.child(0))) == handleOf(tree.child(1)));
        QVERIFY(tree.control.GetNextSiblingItem(handleOf(tree.child(1))) == handleOf(tree.child(2)));
        QVERIFY(tree.control.GetNextSiblingItem(handleOf(tree.child(2))) == nullptr);
        QVERIFY(tree.control.GetNextSiblingItem(nullptr) == nullptr);
    });
    QTest::newRow("GetPrevSiblingItem goes back through the children and ends with null") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.GetPrevSiblingItem(handleOf(tree.child(2))) == handleOf(tree.child(1)));
        QVERIFY(tree.control.GetPrevSiblingItem(handleOf(tree.child(1))) == handleOf(tree.child(0)));
        QVERIFY(tree.control.GetPrevSiblingItem(handleOf(tree.child(0))) == nullptr);
        QVERIFY(tree.control.GetPrevSiblingItem(nullptr) == nullptr);
    });
    QTest::newRow("top-level items have no siblings") << Promise([] {
        Tree tree;
        for (int i = 0; i < 3; ++i) {
            QVERIFY(tree.control.GetNextSiblingItem(handleOf(tree.top(i))) == nullptr);
            QVERIFY(tree.control.GetPrevSiblingItem(handleOf(tree.top(i))) == nullptr);
        }
    });
    QTest::newRow("GetNextItem(TVGN_NEXT) goes through the top level and ends with null") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.GetNextItem(handleOf(tree.top(0)), TVGN_NEXT) == handleOf(tree.top(1)));
        QVERIFY(tree.control.GetNextItem(handleOf(tree.top(1)), TVGN_NEXT) == handleOf(tree.top(2)));
        QVERIFY(tree.control.GetNextItem(handleOf(tree.top(2)), TVGN_NEXT) == nullptr);
    });
    QTest::newRow("GetNextItem(TVGN_NEXT) goes through the children and ends with null") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.GetNextItem(handleOf(tree.child(0)), TVGN_NEXT) == handleOf(tree.child(1)));
        QVERIFY(tree.control.GetNextItem(handleOf(tree.child(1)), TVGN_NEXT) == handleOf(tree.child(2)));
        QVERIFY(tree.control.GetNextItem(handleOf(tree.child(2)), TVGN_NEXT) == nullptr);
    });
    QTest::newRow("GetNextItem(TVGN_NEXT) of null is null") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.GetNextItem(nullptr, TVGN_NEXT) == nullptr);
    });
    QTest::newRow("ItemHasChildren is the number of children") << Promise([] {
        Tree tree;
        QVERIFY((std::is_same_v<decltype(tree.control.ItemHasChildren(nullptr)), int>));
        QCOMPARE(tree.control.ItemHasChildren(handleOf(tree.top(0))), 3);
        QCOMPARE(tree.control.ItemHasChildren(handleOf(tree.top(1))), 0);
        QCOMPARE(tree.control.ItemHasChildren(nullptr), 0);
    });
}

void ControlsTreeTest::nextItemCode_data()
{
    QTest::addColumn<UINT>("code");

    QTest::newRow("TVGN_ROOT") << UINT(TVGN_ROOT);
    QTest::newRow("TVGN_PREVIOUS") << UINT(TVGN_PREVIOUS);
    QTest::newRow("TVGN_PARENT") << UINT(TVGN_PARENT);
    QTest::newRow("TVGN_CHILD") << UINT(TVGN_CHILD);
    QTest::newRow("TVGN_FIRSTVISIBLE") << UINT(TVGN_FIRSTVISIBLE);
    QTest::newRow("TVGN_NEXTVISIBLE") << UINT(TVGN_NEXTVISIBLE);
    QTest::newRow("TVGN_PREVIOUSVISIBLE") << UINT(TVGN_PREVIOUSVISIBLE);
    QTest::newRow("TVGN_DROPHILITE") << UINT(TVGN_DROPHILITE);
    QTest::newRow("TVGN_CARET") << UINT(TVGN_CARET);
    QTest::newRow("TVGN_LASTVISIBLE") << UINT(TVGN_LASTVISIBLE);
    QTest::newRow("TVGN_NEXTSELECTED") << UINT(TVGN_NEXTSELECTED);
    QTest::newRow("no code of Windows") << 0xFFFFFFFFu;
}

/// Every code but TVGN_NEXT gives null, for a top-level item and for a child.
void ControlsTreeTest::nextItemCode()
{
    QFETCH(UINT, code);
    Tree tree;
    new QTreeWidgetItem(tree.child(1), {QStringLiteral("below")});
    tree.widget.expandAll();
    tree.widget.setCurrentItem(tree.top(1));
    QVERIFY(tree.control.GetNextItem(handleOf(tree.top(0)), code) == nullptr);
    QVERIFY(tree.control.GetNextItem(handleOf(tree.child(1)), code) == nullptr);
    QVERIFY(tree.control.GetNextItem(nullptr, code) == nullptr);
}

// ---- texts and data ---------------------------------------------------------------------------------------

void ControlsTreeTest::texts_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GetItemText is the text of column 0") << Promise([] {
        Tree tree;
        tree.widget.setColumnCount(2);
        tree.child(1)->setText(1, QStringLiteral("column 1"));
        QCOMPARE(text(tree.control.GetItemText(handleOf(tree.child(1)))), QStringLiteral("second"));
    });
    QTest::newRow("GetItemText of null is empty") << Promise([] {
        Tree tree;
        QVERIFY(tree.control.GetItemText(nullptr).IsEmpty());
    });
    QTest::newRow("GetItemText has one character for each beyond 16 bits") << Promise([] {
        Tree tree;
        tree.top(0)->setText(0, QStringLiteral("\u00e9\U0001F600"));
        const CString name = tree.control.GetItemText(handleOf(tree.top(0)));
        QCOMPARE(name.GetLength(), 2);
        QVERIFY(name == L"\u00e9\U0001F600");
    });
    QTest::newRow("SetItemText sets column 0") << Promise([] {
        Tree tree;
        tree.widget.setColumnCount(2);
        tree.child(1)->setText(1, QStringLiteral("column 1"));
        QCOMPARE(tree.control.SetItemText(handleOf(tree.child(1)), L"new \U0001F600"), true);
        QCOMPARE(tree.child(1)->text(0), QStringLiteral("new \U0001F600"));
        QCOMPARE(tree.child(1)->text(1), QStringLiteral("column 1"));
    });
    QTest::newRow("SetItemText is heard once, with column 0") << Promise([] {
        qRegisterMetaType<QTreeWidgetItem *>();
        Tree tree;
        QSignalSpy spy(&tree.widget, &QTreeWidget::itemChanged);
        tree.control.SetItemText(handleOf(tree.child(1)), L"new");
        QCOMPARE(spy.count(), 1);
        QVERIFY(spy[0][0].value<QTreeWidgetItem *>() == tree.child(1));
        QCOMPARE(spy[0][1].toInt(), 0);
    });
    QTest::newRow("SetItemText of null changes nothing and is FALSE") << Promise([] {
        Tree tree;
        QCOMPARE(tree.control.SetItemText(nullptr, L"new"), false);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
    QTest::newRow("SetItemData is kept under Qt::UserRole as an unsigned long long") << Promise([] {
        Tree tree;
        QCOMPARE(tree.control.SetItemData(handleOf(tree.child(1)), 0xFEDCBA9876543210UL), true);
        const QVariant data = tree.child(1)->data(0, Qt::UserRole);
        QCOMPARE(data.userType(), static_cast<int>(QMetaType::ULongLong));
        QCOMPARE(data.toULongLong(), 0xFEDCBA9876543210ULL);
        QCOMPARE(tree.control.GetItemData(handleOf(tree.child(1))), 0xFEDCBA9876543210UL);
        QCOMPARE(tree.control.GetItemData(handleOf(tree.child(0))), 0UL);
    });
    QTest::newRow("SetItemData takes the place of what was there") << Promise([] {
        Tree tree;
        tree.control.SetItemData(handleOf(tree.top(0)), 1);
        tree.control.SetItemData(handleOf(tree.top(0)), 2);
        QCOMPARE(tree.control.GetItemData(handleOf(tree.top(0))), 2UL);
        QCOMPARE(Qt::UserRole, 256);
    });
    QTest::newRow("SetItemData of null is FALSE") << Promise([] {
        Tree tree;
        QCOMPARE(tree.control.SetItemData(nullptr, 5), false);
    });
    QTest::newRow("GetItemData of null, and of an item without, is 0") << Promise([] {
        Tree tree;
        QCOMPARE(tree.control.GetItemData(nullptr), 0UL);
        QCOMPARE(tree.control.GetItemData(handleOf(tree.top(0))), 0UL);
    });
    QTest::newRow("GetItemData reads an int and digits as QVariant converts them") << Promise([] {
        Tree tree;
        tree.top(0)->setData(0, Qt::UserRole, 5);
        tree.top(1)->setData(0, Qt::UserRole, QStringLiteral("12"));
        QCOMPARE(tree.control.GetItemData(handleOf(tree.top(0))), 5UL);
        QCOMPARE(tree.control.GetItemData(handleOf(tree.top(1))), 12UL);
    });
    QTest::newRow("GetItemData reads a pointer in a QVariant as 0") << Promise([] {
        Tree tree;
        tree.top(0)->setData(0, Qt::UserRole, QVariant::fromValue(static_cast<void *>(&tree)));
        QCOMPARE(tree.control.GetItemData(handleOf(tree.top(0))), 0UL);
    });
    QTest::newRow("GetItemData looks at column 0 only") << Promise([] {
        Tree tree;
        tree.widget.setColumnCount(2);
        tree.top(0)->setData(1, Qt::UserRole, 5);
        QCOMPARE(tree.control.GetItemData(handleOf(tree.top(0))), 0UL);
    });
    QTest::newRow("GetItem copies the text, zeros the rest, sets lParam") << Promise([] {
        Tree tree;
        tree.control.SetItemData(handleOf(tree.top(0)), 42);
        std::wstring buffer(10, L'#');
        TVITEMW item = {};
        item.hItem = handleOf(tree.top(0));
        item.pszText = &buffer[0];
        item.cchTextMax = 8;
        QCOMPARE(tree.control.GetItem(&item), true);
        QVERIFY(buffer == std::wstring(L"one\0\0\0\0\0##", 10));
        QCOMPARE(item.lParam, 42L);
    });
    QTest::newRow("GetItem gives item data of all 64 bits as lParam -1") << Promise([] {
        Tree tree;
        tree.control.SetItemData(handleOf(tree.top(0)), ~0UL);
        wchar_t buffer[10];
        TVITEMW item = {};
        item.hItem = handleOf(tree.top(0));
        item.pszText = buffer;
        item.cchTextMax = 10;
        tree.control.GetItem(&item);
        QCOMPARE(item.lParam, -1L);
    });
    QTest::newRow("GetItem of an item without data sets lParam 0 and leaves the other fields") << Promise([] {
        Tree tree;
        wchar_t buffer[10];
        TVITEMW item = {};
        item.mask = TVIF_CHILDREN | TVIF_STATE;
        item.hItem = handleOf(tree.top(0));
        item.state = 0x11;
        item.stateMask = 0x22;
        item.pszText = buffer;
        item.cchTextMax = 10;
        item.iImage = 5;
        item.iSelectedImage = 6;
        item.cChildren = 7;
        item.lParam = 8;
        QCOMPARE(tree.control.GetItem(&item), true);
        QCOMPARE(item.lParam, 0L);
        QCOMPARE(item.mask, UINT(TVIF_CHILDREN | TVIF_STATE));
        QVERIFY(item.hItem == handleOf(tree.top(0)));
        QCOMPARE(item.state, 0x11u);
        QCOMPARE(item.stateMask, 0x22u);
        QVERIFY(item.pszText == buffer);
        QCOMPARE(item.cchTextMax, 10);
        QCOMPARE(item.iImage, 5);
        QCOMPARE(item.iSelectedImage, 6);
        QCOMPARE(item.cChildren, 7);
    });
    QTest::newRow("GetItem fills just the characters that there is room for") << Promise([] {
        Tree tree;
        tree.top(0)->setText(0, QStringLiteral("abcd"));
        std::wstring buffer(6, L'#');
        TVITEMW item = {};
        item.hItem = handleOf(tree.top(0));
        item.pszText = &buffer[0];
        item.cchTextMax = 4;
        QCOMPARE(tree.control.GetItem(&item), true);
        QVERIFY(buffer == L"abcd##");
    });
    QTest::newRow("GetItem cuts a text that is too long") << Promise([] {
        Tree tree;
        tree.top(0)->setText(0, QStringLiteral("abcdefgh"));
        tree.control.SetItemData(handleOf(tree.top(0)), 42);
        std::wstring buffer(6, L'#');
        TVITEMW item = {};
        item.hItem = handleOf(tree.top(0));
        item.pszText = &buffer[0];
        item.cchTextMax = 4;
        QCOMPARE(tree.control.GetItem(&item), true);
        QVERIFY(buffer.substr(0, 3) == L"abc");
        QVERIFY(buffer.substr(4) == L"##");
        QCOMPARE(item.lParam, 42L);
    });
    QTest::newRow("GetItem counts a character beyond 16 bits as one") << Promise([] {
        Tree tree;
        tree.top(0)->setText(0, QStringLiteral("a\U0001F600b"));
        std::wstring buffer(6, L'#');
        TVITEMW item = {};
        item.hItem = handleOf(tree.top(0));
        item.pszText = &buffer[0];
        item.cchTextMax = 4;
        tree.control.GetItem(&item);
        QVERIFY(buffer == std::wstring(L"a\U0001F600b\0##", 6));
    });
    QTest::newRow("GetItem with room for nothing writes no text and sets lParam") << Promise([] {
        Tree tree;
        tree.control.SetItemData(handleOf(tree.top(0)), 42);
        for (const int room : {0, -1}) {
            std::wstring buffer(6, L'#');
            TVITEMW item = {};
            item.hItem = handleOf(tree.top(0));
            item.pszText = &buffer[0];
            item.cchTextMax = room;
            QCOMPARE(tree.control.GetItem(&item), true);
            QVERIFY(buffer == L"######");
            QCOMPARE(item.lParam, 42L);
        }
    });
    QTest::newRow("GetItem without a buffer sets lParam") << Promise([] {
        Tree tree;
        tree.control.SetItemData(handleOf(tree.top(0)), 42);
        TVITEMW item = {};
        item.hItem = handleOf(tree.top(0));
        QCOMPARE(tree.control.GetItem(&item), true);
        QCOMPARE(item.lParam, 42L);
    });
    QTest::newRow("GetItem of no item is FALSE and leaves lParam") << Promise([] {
        Tree tree;
        TVITEMW item = {};
        item.lParam = 8;
        QCOMPARE(tree.control.GetItem(&item), false);
        QCOMPARE(item.lParam, 8L);
    });
}

// ---- states -----------------------------------------------------------------------------------------------

void ControlsTreeTest::states_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("Expand expands whatever the code says") << Promise([] {
        for (const UINT code : {TVE_EXPAND, TVE_COLLAPSE, TVE_TOGGLE, TVE_EXPANDPARTIAL | TVE_EXPAND,
                                TVE_COLLAPSERESET | TVE_COLLAPSE, 0}) {
            Tree tree;
            QCOMPARE(tree.control.Expand(handleOf(tree.top(0)), code), true);
            QCOMPARE(outline(tree.widget), QStringLiteral("one*(first second third) two three"));
        }
    });
    QTest::newRow("Expand(TVE_COLLAPSE) leaves an expanded item expanded") << Promise([] {
        Tree tree;
        tree.top(0)->setExpanded(true);
        QSignalSpy spy(&tree.widget, &QTreeWidget::itemCollapsed);
        QCOMPARE(tree.control.Expand(handleOf(tree.top(0)), TVE_COLLAPSE), true);
        QVERIFY(tree.top(0)->isExpanded());
        QCOMPARE(spy.count(), 0);
    });
    QTest::newRow("Expand is heard") << Promise([] {
        Tree tree;
        QSignalSpy spy(&tree.widget, &QTreeWidget::itemExpanded);
        tree.control.Expand(handleOf(tree.top(0)), TVE_EXPAND);
        QCOMPARE(spy.count(), 1);
    });
    QTest::newRow("Expand of null expands nothing") << Promise([] {
        Tree tree;
        tree.control.Expand(nullptr, TVE_EXPAND);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
    QTest::newRow("SetItemState expands when state & mask is just TVIS_EXPANDED, 32") << Promise([] {
        const UINT pairs[][2] = {{TVIS_EXPANDED, TVIS_EXPANDED}, {TVIS_EXPANDED | TVIS_BOLD, TVIS_EXPANDED},
                                 {TVIS_EXPANDED, TVIS_EXPANDED | TVIS_BOLD}, {32, 0xFFFF}};
        for (const auto &pair : pairs) {
            Tree tree;
            QCOMPARE(tree.control.SetItemState(handleOf(tree.top(0)), pair[0], pair[1]), true);
            QCOMPARE(outline(tree.widget), QStringLiteral("one*(first second third) two three"));
        }
    });
    QTest::newRow("SetItemState does nothing for every other state & mask, and is TRUE") << Promise([] {
        const UINT pairs[][2] = {{TVIS_EXPANDED | TVIS_BOLD, TVIS_EXPANDED | TVIS_BOLD}, {TVIS_EXPANDED, 0},
                                 {0, TVIS_EXPANDED}, {TVIS_BOLD, TVIS_BOLD},
                                 {TVIS_SELECTED, TVIS_SELECTED}, {TVIS_EXPANDED, TVIS_BOLD}};
        for (const auto &pair : pairs) {
            Tree tree;
            QCOMPARE(tree.control.SetItemState(handleOf(tree.top(0)), pair[0], pair[1]), true);
            QCOMPARE(outline(tree.widget), wholeTree);
            QVERIFY(!tree.top(0)->isSelected());
        }
    });
    QTest::newRow("SetItemState does not collapse") << Promise([] {
        Tree tree;
        tree.top(0)->setExpanded(true);
        QCOMPARE(tree.control.SetItemState(handleOf(tree.top(0)), 0, TVIS_EXPANDED), true);
        QVERIFY(tree.top(0)->isExpanded());
    });
    QTest::newRow("SetItemState of null expands nothing") << Promise([] {
        Tree tree;
        tree.control.SetItemState(nullptr, TVIS_EXPANDED, TVIS_EXPANDED);
        QCOMPARE(outline(tree.widget), wholeTree);
    });
    QTest::newRow("SelectItem makes the item current and selected") << Promise([] {
        Tree tree;
        QSignalSpy spy(&tree.widget, &QTreeWidget::currentItemChanged);
        QCOMPARE(tree.control.SelectItem(handleOf(tree.child(1))), true);
        QVERIFY(tree.widget.currentItem() == tree.child(1));
        QCOMPARE(tree.widget.selectedItems(), QList<QTreeWidgetItem *>{tree.child(1)});
        QCOMPARE(spy.count(), 1);
    });
    QTest::newRow("Select makes the item current and selected whatever the code says") << Promise([] {
        for (const UINT code : {TVGN_CARET, TVGN_DROPHILITE, TVGN_FIRSTVISIBLE, 0}) {
            Tree tree;
            QCOMPARE(tree.control.Select(handleOf(tree.child(1)), code), true);
            QVERIFY(tree.widget.currentItem() == tree.child(1));
            QCOMPARE(tree.widget.selectedItems(), QList<QTreeWidgetItem *>{tree.child(1)});
        }
    });
    QTest::newRow("SelectItem and Select leave it selected where a click would toggle") << Promise([] {
        Tree tree;
        tree.widget.setSelectionMode(QAbstractItemView::MultiSelection);
        tree.top(1)->setSelected(true);
        tree.top(2)->setSelected(true);
        tree.control.SelectItem(handleOf(tree.top(1)));
        QVERIFY(tree.top(1)->isSelected());
        tree.control.Select(handleOf(tree.top(2)), TVGN_CARET);
        QVERIFY(tree.top(2)->isSelected());
    });
    QTest::newRow("SelectItem selects the current item again") << Promise([] {
        Tree tree;
        tree.widget.setCurrentItem(tree.top(1));
        tree.top(1)->setSelected(false);
        tree.control.SelectItem(handleOf(tree.top(1)));
        QVERIFY(tree.top(1)->isSelected());
        QVERIFY(tree.control.GetSelectedItem() == handleOf(tree.top(1)));
    });
    QTest::newRow("SelectItem and Select of null select nothing") << Promise([] {
        Tree tree;
        tree.control.SelectItem(nullptr);
        tree.control.Select(nullptr, TVGN_CARET);
        QVERIFY(tree.widget.selectedItems().isEmpty());
    });
    QTest::newRow("EditLabel opens an editor on column 0 and gives null") << Promise([] {
        Tree tree;
        tree.widget.expandAll();
        tree.widget.show();
        QVERIFY(!(tree.child(1)->flags() & Qt::ItemIsEditable));
        QVERIFY(tree.control.EditLabel(handleOf(tree.child(1))) == nullptr);
        auto *editor = tree.widget.viewport()->findChild<QLineEdit *>();
        QVERIFY(editor != nullptr);
        QCOMPARE(editor->text(), QStringLiteral("second"));
    });
    QTest::newRow("EditLabel adds Qt::ItemIsEditable to the item's flags") << Promise([] {
        Tree tree;
        tree.widget.show();
        const Qt::ItemFlags before = Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsEnabled;
        tree.top(1)->setFlags(before);
        tree.control.EditLabel(handleOf(tree.top(1)));
        QCOMPARE(tree.top(1)->flags(), before | Qt::ItemIsEditable);
        QVERIFY(!(tree.top(0)->flags() & Qt::ItemIsEditable));
    });
    QTest::newRow("EditLabel of null opens nothing") << Promise([] {
        Tree tree;
        tree.widget.show();
        QVERIFY(tree.control.EditLabel(nullptr) == nullptr);
        QVERIFY(tree.widget.viewport()->findChild<QLineEdit *>() == nullptr);
    });
}

KX_TEST_MAIN(ControlsTreeTest)
#include "tst_controls_tree.moc"
