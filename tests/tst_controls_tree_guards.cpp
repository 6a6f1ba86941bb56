// SPDX-License-Identifier: MIT
// CTreeCtrl where there is no tree or no item, its members with fixed results, and CImageList, which keeps
// nothing.

#include "KxClassLayout.h"
#include "KxResultNumber.h"
#include "KxTestCase.h"

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTreeWidget>

#include <afxcmn.h>

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <type_traits>
#include <typeinfo>

/// A caller that goes through a pointer to no object, on purpose.
#define KX_CALLS_THROUGH_SMALL_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
using TreeCall = qint64 (*)(CTreeCtrl *, HTREEITEM);
using ImageListCall = qint64 (*)(CImageList *);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(TreeCall)
Q_DECLARE_METATYPE(ImageListCall)

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

QString text(const CString &string)
{
    return QString::fromWCharArray(string, string.GetLength());
}

qint64 number(const CString &string)
{
    return string.GetLength();
}

CBitmap *anyBitmap()
{
    return reinterpret_cast<CBitmap *>(static_cast<quintptr>(0x5000)); // never followed
}

} // namespace

class ControlsTreeGuardsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void placeValue_data();
    void placeValue();
    void fixedResults_data();
    void fixedResults() { runPromise(); }
    void withoutTree_data();
    void withoutTree();
    void smallPointer_data();
    void smallPointer();
    void plainWindow();
    void imageList_data();
    void imageList();
    void layout_data();
    void layout() { runPromise(); }

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

// ---- values that are no items -----------------------------------------------------------------------------

#define KX_CALL(expression) \
    [](CTreeCtrl *t, HTREEITEM h) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { \
        Q_UNUSED(h); \
        return number(expression); \
    }

namespace {

struct NamedCall {
    const char *name;
    TreeCall call;
};

/// The members that take an item and give 0 for none.
const NamedCall callsWithItem[] = {
    {"InsertItem(record)", [](CTreeCtrl *t, HTREEITEM h) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
         wchar_t name[] = L"new";
         TVINSERTSTRUCTW insert = record(h, name, 1);
         return number(t->InsertItem(&insert));
     }},
    {"InsertItem(mask)", KX_CALL(t->InsertItem(TVIF_TEXT, L"new", 0, 0, 0u, 0u, 0, h, h))},
    {"InsertItem(images)", KX_CALL(t->InsertItem(L"new", 0, 0, h, h))},
    {"GetParentItem", KX_CALL(t->GetParentItem(h))},
    {"GetChildItem", KX_CALL(t->GetChildItem(h))},
    {"GetNextSiblingItem", KX_CALL(t->GetNextSiblingItem(h))},
    {"GetPrevSiblingItem", KX_CALL(t->GetPrevSiblingItem(h))},
    {"GetNextItem", KX_CALL(t->GetNextItem(h, TVGN_NEXT))},
    {"ItemHasChildren", KX_CALL(t->ItemHasChildren(h))},
    {"GetItemText", KX_CALL(t->GetItemText(h))},
    {"SetItemText", KX_CALL(t->SetItemText(h, L"new"))},
    {"GetItemData", KX_CALL(t->GetItemData(h))},
    {"SetItemData", KX_CALL(t->SetItemData(h, 5))},
    {"GetItem", [](CTreeCtrl *t, HTREEITEM h) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
         wchar_t buffer[4] = {};
         TVITEMW item = {};
         item.hItem = h;
         item.pszText = buffer;
         item.cchTextMax = 4;
         item.lParam = 3;
         const qint64 result = number(t->GetItem(&item));
         return item.lParam == 3 ? result : -1;
     }},
    {"EditLabel", KX_CALL(t->EditLabel(h))},
    {"EnsureVisible", KX_CALL(t->EnsureVisible(h))},
};

/// The others, which give 0 without a tree.
const NamedCall callsWithoutItem[] = {
    {"InsertItem(text)", KX_CALL(t->InsertItem(L"new", TVI_ROOT, TVI_LAST))},
    {"InsertItem(text, item)", KX_CALL(t->InsertItem(L"new", h, TVI_LAST))},
    {"InsertItem(record, root)", [](CTreeCtrl *t, HTREEITEM) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
         wchar_t name[] = L"new";
         TVINSERTSTRUCTW insert = record(nullptr, name, 1);
         return number(t->InsertItem(&insert));
     }},
    {"DeleteAllItems", KX_CALL(t->DeleteAllItems())},
    {"GetCount", KX_CALL(t->GetCount())},
    {"GetRootItem", KX_CALL(t->GetRootItem())},
    {"GetSelectedItem", KX_CALL(t->GetSelectedItem())},
    {"EndEditLabelNow", KX_CALL(t->EndEditLabelNow(FALSE))},
    {"GetImageList", KX_CALL(t->GetImageList(0))},
    {"SetImageList", KX_CALL(t->SetImageList(nullptr, 0))},
    {"GetEditControl", KX_CALL(t->GetEditControl())},
};

/// Those with TRUE for every item of a tree: FALSE without one.
const NamedCall callsOfTruth[] = {
    {"Expand", KX_CALL(t->Expand(h, TVE_EXPAND))},
    {"SetItemState", KX_CALL(t->SetItemState(h, TVIS_EXPANDED, TVIS_EXPANDED))},
    {"Select", KX_CALL(t->Select(h, TVGN_CARET))},
    {"SelectItem", KX_CALL(t->SelectItem(h))},
};

/// Those that are tested one by one.
const NamedCall otherCalls[] = {
    {"DeleteItem", KX_CALL(t->DeleteItem(h))},
    {"SetItemImage", KX_CALL(t->SetItemImage(h, 1, 2))},
    {"SetItemHeight", KX_CALL(t->SetItemHeight(20))},
};

} // namespace

void ControlsTreeGuardsTest::placeValue_data()
{
    QTest::addColumn<TreeCall>("call");
    QTest::addColumn<qint64>("item");
    QTest::addColumn<bool>("resultCounts");

    const struct {
        const char *name;
        HTREEITEM value;
    } places[] = {{"TVI_ROOT", TVI_ROOT}, {"TVI_FIRST", TVI_FIRST}, {"TVI_LAST", TVI_LAST},
                  {"TVI_SORT", TVI_SORT}};
    for (const auto &place : places) {
        const auto row = [&place](const NamedCall &call, bool resultCounts) {
            QTest::addRow("%s of %s", call.name, place.name)
                << call.call << number(place.value) << resultCounts;
        };
        for (const NamedCall &call : callsWithItem)
            row(call, true);
        for (const NamedCall &call : callsOfTruth)
            row(call, false);
        row(otherCalls[0], false);
        if (place.value != TVI_ROOT)
            row({"InsertItem(text)", KX_CALL(t->InsertItem(L"new", h, TVI_LAST))}, true);
    }
}

/// A value that stands for a place is not followed: nothing changes, and the result is 0.
void ControlsTreeGuardsTest::placeValue()
{
    QFETCH(TreeCall, call);
    QFETCH(qint64, item);
    QFETCH(bool, resultCounts);
    Tree tree;
    tree.widget.setCurrentItem(tree.top(1));
    const qint64 result = call(&tree.control, reinterpret_cast<HTREEITEM>(static_cast<qintptr>(item)));
    if (resultCounts)
        QCOMPARE(result, 0);
    QCOMPARE(outline(tree.widget), wholeTree);
}

void ControlsTreeGuardsTest::fixedResults_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("TVI_ROOT is 0xFFFF0000 sign-extended to 64 bits") << Promise([] {
        QCOMPARE(number(TVI_ROOT), static_cast<qint64>(0xFFFFFFFFFFFF0000ULL));
    });
    QTest::newRow("SetItemImage is TRUE and sets no icon") << Promise([] {
        Tree tree;
        QCOMPARE(tree.control.SetItemImage(handleOf(tree.top(0)), 1, 2), true);
        QVERIFY(tree.top(0)->icon(0).isNull());
    });
    QTest::newRow("SetItemHeight gives the height back and sets none") << Promise([] {
        Tree tree;
        tree.widget.show();
        const QRect before = tree.widget.visualItemRect(tree.top(1));
        QCOMPARE(tree.control.SetItemHeight(73), SHORT(73));
        QCOMPARE(tree.control.SetItemHeight(-1), SHORT(-1));
        QCOMPARE(tree.widget.visualItemRect(tree.top(1)), before);
        QCOMPARE(tree.top(1)->sizeHint(0), QSize());
    });
    QTest::newRow("EnsureVisible is FALSE, expands and scrolls nothing") << Promise([] {
        Tree tree;
        tree.widget.resize(100, 60);
        for (int i = 0; i < 100; ++i)
            tree.widget.addTopLevelItem(new QTreeWidgetItem({QString::number(i)}));
        tree.widget.show();
        QCOMPARE(tree.control.EnsureVisible(handleOf(tree.child(1))), false);
        QVERIFY(!tree.top(0)->isExpanded());
        QCOMPARE(tree.control.EnsureVisible(handleOf(tree.top(102))), false);
        QCOMPARE(tree.widget.verticalScrollBar()->value(), 0);
    });
    QTest::newRow("EndEditLabelNow is FALSE and leaves the editor open") << Promise([] {
        Tree tree;
        tree.widget.show();
        tree.control.EditLabel(handleOf(tree.top(0)));
        QCOMPARE(tree.control.EndEditLabelNow(TRUE), false);
        QCOMPARE(tree.control.EndEditLabelNow(FALSE), false);
        QVERIFY(tree.widget.viewport()->findChild<QLineEdit *>() != nullptr);
        QVERIFY(tree.control.GetEditControl() == nullptr);
    });
    QTest::newRow("no image list is kept") << Promise([] {
        Tree tree;
        CImageList images;
        QVERIFY(tree.control.SetImageList(&images, 0) == nullptr);
        QVERIFY(tree.control.GetImageList(0) == nullptr);
        QVERIFY(tree.control.SetImageList(nullptr, 0) == nullptr);
    });
}

// ---- without a tree ---------------------------------------------------------------------------------------

void ControlsTreeGuardsTest::withoutTree_data()
{
    QTest::addColumn<TreeCall>("call");
    QTest::addColumn<QString>("situation");

    for (const char *situation : {"unbound", "orphaned", "on a table", "on a tree view"}) {
        const auto row = [situation](const NamedCall &call) {
            QTest::addRow("%s %s", call.name, situation) << call.call << QString::fromLatin1(situation);
        };
        for (const NamedCall &call : callsWithItem)
            row(call);
        for (const NamedCall &call : callsWithoutItem)
            row(call);
        for (const NamedCall &call : callsOfTruth)
            row(call);
    }
}

/// The result is 0, and neither a tree elsewhere, whose item is given, nor the widget itself changes.
void ControlsTreeGuardsTest::withoutTree()
{
    QFETCH(TreeCall, call);
    QFETCH(QString, situation);
    Tree elsewhere;
    elsewhere.control.SetItemData(handleOf(elsewhere.child(1)), 7);
    QTableWidget table(2, 2);
    table.setCurrentCell(1, 1);
    QTreeView view;
    Tree taken;
    CTreeCtrl owner;
    CTreeCtrl control;
    CTreeCtrl *used = &control;
    if (situation == QLatin1String("orphaned")) {
        owner.Attach(KxHwndFromWidget(&elsewhere.widget));
        used = &elsewhere.control;
    } else if (situation == QLatin1String("on a table")) {
        control.Attach(KxHwndFromWidget(&table));
    } else if (situation == QLatin1String("on a tree view")) {
        view.setModel(taken.widget.model());
        control.Attach(KxHwndFromWidget(&view));
    }
    QCOMPARE(call(used, handleOf(elsewhere.child(1))), 0);
    QCOMPARE(outline(elsewhere.widget), wholeTree);
    QCOMPARE(elsewhere.child(1)->data(0, Qt::UserRole).toInt(), 7);
    QVERIFY(elsewhere.widget.currentItem() == nullptr);
    QVERIFY(!(elsewhere.child(1)->flags() & Qt::ItemIsEditable));
    QCOMPARE(outline(taken.widget), wholeTree);
    QCOMPARE(table.rowCount(), 2);
    QCOMPARE(table.currentRow(), 1);
}

void ControlsTreeGuardsTest::smallPointer_data()
{
    QTest::addColumn<TreeCall>("call");
    QTest::addColumn<quintptr>("pointer");

    for (const quintptr pointer : {quintptr(0), quintptr(7), quintptr(4095)}) {
        const auto row = [pointer](const NamedCall &call) {
            QTest::addRow("%s through %d", call.name, static_cast<int>(pointer)) << call.call << pointer;
        };
        for (const NamedCall &call : callsWithItem)
            row(call);
        for (const NamedCall &call : callsWithoutItem)
            row(call);
        for (const NamedCall &call : callsOfTruth)
            row(call);
        for (const NamedCall &call : otherCalls)
            row(call);
    }
}

/// A member that touched memory would end the program here. The item given stays as it is.
void ControlsTreeGuardsTest::smallPointer()
{
    QFETCH(TreeCall, call);
    QFETCH(quintptr, pointer);
    Tree elsewhere;
    call(reinterpret_cast<CTreeCtrl *>(pointer), handleOf(elsewhere.child(1)));
    QCOMPARE(outline(elsewhere.widget), wholeTree);
    QVERIFY(!elsewhere.child(1)->data(0, Qt::UserRole).isValid());
}

/// What GetDlgItem() gives is a CWnd and no more; the members work on it after the cast.
void ControlsTreeGuardsTest::plainWindow()
{
    QWidget dialogWidget;
    auto *widget = new QTreeWidget(&dialogWidget);
    CWnd dialog;
    dialog.Attach(KxHwndFromWidget(&dialogWidget));
    dialog.SetDlgItem(7, KxHwndFromWidget(widget));
    CWnd *plain = dialog.GetDlgItem(7);
    QVERIFY(typeid(*plain) == typeid(CWnd));
    auto *tree = static_cast<CTreeCtrl *>(plain);

    const HTREEITEM one = tree->InsertItem(L"one", TVI_ROOT, TVI_LAST);
    wchar_t name[] = L"first";
    TVINSERTSTRUCTW insert = record(one, name, 42);
    const HTREEITEM first = tree->InsertItem(&insert);
    const HTREEITEM second = tree->InsertItem(L"second", one);
    const HTREEITEM two = tree->InsertItem(L"two");
    QCOMPARE(outline(*widget), QStringLiteral("one(first second) two"));
    QVERIFY(tree->InsertItem(TVIF_TEXT, L"new", 0, 0, 0u, 0u, 0, TVI_ROOT, TVI_LAST) == nullptr);
    QVERIFY(tree->InsertItem(L"new", 0, 0) == nullptr);
    QCOMPARE(tree->GetCount(), 2u);
    QVERIFY(tree->GetRootItem() == one);
    QVERIFY(tree->GetSelectedItem() == nullptr);
    QVERIFY(tree->GetParentItem(first) == one);
    QVERIFY(tree->GetChildItem(one) == first);
    QVERIFY(tree->GetNextSiblingItem(first) == second);
    QVERIFY(tree->GetPrevSiblingItem(second) == first);
    QVERIFY(tree->GetNextItem(one, TVGN_NEXT) == two);
    QCOMPARE(tree->ItemHasChildren(one), 2);
    QCOMPARE(tree->GetItemData(first), 42UL);
    QCOMPARE(tree->SetItemData(first, 43), true);
    QCOMPARE(tree->SetItemText(first, L"1st"), true);
    QCOMPARE(text(tree->GetItemText(first)), QStringLiteral("1st"));
    wchar_t buffer[8];
    TVITEMW item = {};
    item.hItem = first;
    item.pszText = buffer;
    item.cchTextMax = 8;
    QCOMPARE(tree->GetItem(&item), true);
    QCOMPARE(std::wcscmp(buffer, L"1st"), 0);
    QCOMPARE(item.lParam, 43L);
    QCOMPARE(tree->Expand(one, TVE_EXPAND), true);
    QCOMPARE(tree->SetItemState(two, TVIS_EXPANDED, TVIS_EXPANDED), true);
    QVERIFY(itemOf(one)->isExpanded());
    QCOMPARE(tree->Select(first, TVGN_CARET), true);
    QCOMPARE(tree->SelectItem(second), true);
    QVERIFY(tree->GetSelectedItem() == second);
    QVERIFY(tree->EditLabel(second) == nullptr);
    QVERIFY(itemOf(second)->flags() & Qt::ItemIsEditable);
    QCOMPARE(tree->SetItemImage(one, 1, 2), true);
    QCOMPARE(tree->SetItemHeight(20), SHORT(20));
    QCOMPARE(tree->EnsureVisible(one), false);
    QCOMPARE(tree->EndEditLabelNow(TRUE), false);
    QVERIFY(tree->GetImageList(0) == nullptr);
    QVERIFY(tree->SetImageList(nullptr, 0) == nullptr);
    QVERIFY(tree->GetEditControl() == nullptr);
    QCOMPARE(tree->DeleteItem(first), true);
    QCOMPARE(tree->ItemHasChildren(one), 1);
    QCOMPARE(tree->DeleteAllItems(), true);
    QCOMPARE(widget->topLevelItemCount(), 0);
}

#undef KX_CALL

// ---- image lists ------------------------------------------------------------------------------------------

void ControlsTreeGuardsTest::imageList_data()
{
    QTest::addColumn<ImageListCall>("call");
    QTest::addColumn<QString>("situation");
    QTest::addColumn<qint64>("expected");

#define KX_CALL(expression) \
    [](CImageList *list) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { return number(expression); }
    for (const char *situation : {"unbound", "bound", "on a plain window object", "through 0", "through 7"}) {
        const auto row = [situation](const char *name, ImageListCall call, qint64 expected) {
            QTest::addRow("%s is %d %s", name, static_cast<int>(expected), situation)
                << call << QString::fromLatin1(situation) << expected;
        };
        row("Create", KX_CALL(list->Create(16, 16, 1u, 2, 3)), 1);
        row("SetBkColor", KX_CALL(list->SetBkColor(0x00FF00)), 0);
        row("Add(bitmap, mask)", KX_CALL(list->Add(anyBitmap(), anyBitmap())), 0);
        row("Add(bitmap, colour)", KX_CALL(list->Add(anyBitmap(), COLORREF(0xFF))), 0);
        row("ExtractIcon", KX_CALL(list->ExtractIconW(0)), 0);
        row("DeleteImageList", KX_CALL(list->DeleteImageList()), 0);
    }
#undef KX_CALL
}

void ControlsTreeGuardsTest::imageList()
{
    QFETCH(ImageListCall, call);
    QFETCH(QString, situation);
    QFETCH(qint64, expected);
    QWidget dialogWidget;
    QWidget item;
    CWnd dialog;
    dialog.Attach(KxHwndFromWidget(&dialogWidget));
    dialog.SetDlgItem(7, KxHwndFromWidget(&item));
    CImageList object;
    if (situation == QLatin1String("through 0") || situation == QLatin1String("through 7")) {
        call(reinterpret_cast<CImageList *>(situation.right(1).toULongLong()));
        return;
    }
    CImageList *list = &object;
    if (situation == QLatin1String("bound"))
        object.Attach(KxHwndFromWidget(&item));
    else if (situation == QLatin1String("on a plain window object"))
        list = static_cast<CImageList *>(dialog.GetDlgItem(7));
    QCOMPARE(call(list), expected);
    QCOMPARE(call(list), expected); // Nothing was kept.
}

void ControlsTreeGuardsTest::layout_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the classes are window objects without fields of their own") << Promise([] {
        QVERIFY((std::is_base_of_v<CWnd, CTreeCtrl>));
        QVERIFY((std::is_base_of_v<CWnd, CImageList>));
        QCOMPARE(sizeof(CTreeCtrl), sizeof(CWnd));
        QCOMPARE(sizeof(CImageList), sizeof(CWnd));
    });
    QTest::newRow("CTreeCtrl has the 20 slots of CWnd and overrides its destructors") << Promise([] {
        const CWnd window;
        const CTreeCtrl tree;
        QCOMPARE(slotCount<CTreeCtrl>(), 20);
        QCOMPARE(differences(&tree, &window, 20), (QList<int>{0, 1}));
    });
    QTest::newRow("CImageList has the 20 slots of CWnd and overrides its destructors") << Promise([] {
        const CWnd window;
        const CImageList list;
        QCOMPARE(slotCount<CImageList>(), 20);
        QCOMPARE(differences(&list, &window, 20), (QList<int>{0, 1}));
    });
    QTest::newRow("both are unbound and without a parent at first") << Promise([] {
        CTreeCtrl tree;
        CImageList list;
        QVERIFY(tree.GetSafeHwnd() == nullptr);
        QVERIFY(list.GetSafeHwnd() == nullptr);
        QTreeWidget widget;
        QWidget other;
        tree.Attach(KxHwndFromWidget(&widget));
        list.Attach(KxHwndFromWidget(&other));
        QVERIFY(tree.GetParent() == nullptr);
        QVERIFY(list.GetParent() == nullptr);
    });
}

KX_TEST_MAIN(ControlsTreeGuardsTest)
#include "tst_controls_tree_guards.moc"
