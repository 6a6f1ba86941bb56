// SPDX-License-Identifier: MIT
// CListBox over a QListWidget: its rows, their data, its selection, and where there is no list.

#include "KxClassLayout.h"
#include "KxResultNumber.h"
#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>

#include <afxwin.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>

/// A caller that goes through a pointer to no object of this class, on purpose.
#define KX_CALLS_THROUGH_FOREIGN_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
using ListCall = qint64 (*)(CListBox *);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(ListCall)

namespace {

QString qt(const CString &string)
{
    return QString::fromWCharArray(string, string.GetLength());
}

/// All rows: the current one in brackets, * behind the selected ones.
QString outline(const QListWidget &list)
{
    QStringList all;
    for (int i = 0; i < list.count(); ++i) {
        QString text = list.item(i)->text();
        if (i == list.currentRow())
            text = QStringLiteral("[%1]").arg(text);
        all.append(list.item(i)->isSelected() ? text + QLatin1Char('*') : text);
    }
    return all.join(QLatin1Char(' '));
}

/// A list with the rows "one", "two" and "three", none of them current, of which many may be selected.
struct List {
    List() : List(QStringList{QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")}) {}
    explicit List(const QStringList &rows)
    {
        widget.setSelectionMode(QAbstractItemView::MultiSelection);
        widget.addItems(rows);
        control.Attach(KxHwndFromWidget(&widget));
    }

    QListWidget widget;
    CListBox control;
};

} // namespace

class ControlsListBoxTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void layout();
    void member_data();
    void member();
    void guard_data();
    void guard();
};

void ControlsListBoxTest::layout()
{
    QCOMPARE(overridden(CListBox()), QList<int>());
    QCOMPARE(slotCount<CListBox>(), 20);
    QCOMPARE(sizeof(CListBox), sizeof(CWnd));
    QVERIFY((std::is_base_of_v<CWnd, CListBox>));
}

void ControlsListBoxTest::member_data()
{
    QTest::addColumn<Promise>("promise");
    const auto row = [](const char *name, Promise promise) { QTest::newRow(name) << promise; };

    row("the constant: LB_ERR -1", [] { QCOMPARE(static_cast<int>(LB_ERR), -1); });
    row("GetCount is count()", [] {
        QCOMPARE(List().control.GetCount(), 3);
        QCOMPARE(List(QStringList()).control.GetCount(), 0);
    });
    row("GetCurSel is currentRow(), -1 when none", [] {
        List list;
        QCOMPARE(list.control.GetCurSel(), -1);
        list.widget.setCurrentRow(2);
        QCOMPARE(list.control.GetCurSel(), 2);
    });
    row("SetCurSel(2) makes row 2 current, tells it and gives 2", [] {
        List list;
        QSignalSpy spy(&list.widget, &QListWidget::currentRowChanged);
        QCOMPARE(list.control.SetCurSel(2), 2);
        QCOMPARE(list.widget.currentRow(), 2);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(list.control.SetCurSel(0), 0);
        QCOMPARE(list.widget.currentRow(), 0);
    });
    row("SetCurSel(count()) and SetCurSel(-1) give LB_ERR and keep the current row", [] {
        List list;
        list.widget.setCurrentRow(1);
        for (const int n : {3, 99, -1, -2}) {
            QCOMPARE(list.control.SetCurSel(n), -1);
            QCOMPARE(outline(list.widget), QStringLiteral("one [two]* three"));
        }
    });
    row("SetCurSel(0) of an empty list is LB_ERR",
        [] { QCOMPARE(List(QStringList()).control.SetCurSel(0), -1); });
    row("GetText gives the row's text", [] {
        List list;
        CString text(L"before");
        list.control.GetText(2, text);
        QCOMPARE(qt(text), QStringLiteral("three"));
    });
    row("GetText of no row gives the empty string", [] {
        List list;
        for (const int n : {-1, 3, 99}) {
            CString text(L"before");
            list.control.GetText(n, text);
            QVERIFY(text.IsEmpty());
        }
    });
    row("GetTextLen is 0, of every row", [] {
        List list;
        for (const int n : {-1, 0, 2, 3})
            QCOMPARE(list.control.GetTextLen(n), 0);
    });
    row("AddString appends, equal texts too, and gives the new last row", [] {
        List list;
        QCOMPARE(list.control.AddString(L"alpha"), 3);
        QCOMPARE(list.control.AddString(L"one"), 4);
        QCOMPARE(outline(list.widget), QStringLiteral("one two three alpha one"));
    });
    row("AddString makes every run of white space one blank, none at the ends", [] {
        List list;
        QCOMPARE(list.control.AddString(L"  \t a  b\t\nc \n"), 3);
        QCOMPARE(list.widget.item(3)->text(), QStringLiteral("a b c"));
        QCOMPARE(list.control.AddString(L" \t "), 4);
        QCOMPARE(list.widget.item(4)->text(), QString());
    });
    row("InsertString stores the text as given and gives n", [] {
        List list;
        QCOMPARE(list.control.InsertString(0, L"  a  b "), 0);
        QCOMPARE(list.widget.item(0)->text(), QStringLiteral("  a  b "));
        QCOMPARE(list.control.InsertString(2, L"new"), 2);
        QCOMPARE(list.widget.item(2)->text(), QStringLiteral("new"));
        QCOMPARE(list.widget.count(), 5);
    });
    row("InsertString outside goes where QListWidget puts it and gives n", [] {
        List list;
        QListWidget direct;
        direct.addItems({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        for (const int n : {99, -1, -5, 4}) {
            const QString text = QStringLiteral("at %1").arg(n);
            QCOMPARE(list.control.InsertString(n, text.toStdWString().c_str()), n);
            direct.insertItem(n, text);
        }
        QCOMPARE(outline(list.widget), outline(direct));
        QCOMPARE(list.widget.count(), 7);
    });
    row("AddString, InsertString and ResetContent do not keep the model quiet", [] {
        List list;
        QSignalSpy inserted(list.widget.model(), &QAbstractItemModel::rowsInserted);
        QSignalSpy reset(list.widget.model(), &QAbstractItemModel::modelReset);
        list.control.AddString(L"a");
        list.control.InsertString(0, L"b");
        list.control.ResetContent();
        QCOMPARE(inserted.count(), 2);
        QCOMPARE(reset.count(), 1);
        QCOMPARE(list.widget.count(), 0);
    });
    row("DeleteString takes the row out, gives n and deletes no item", [] {
        List list;
        const std::unique_ptr<QListWidgetItem> item(list.widget.item(1));
        QCOMPARE(list.control.DeleteString(1), 1);
        QCOMPARE(outline(list.widget), QStringLiteral("one three"));
        QCOMPARE(item->text(), QStringLiteral("two"));
        QVERIFY(item->listWidget() == nullptr);
    });
    row("DeleteString of a row with a widget", [] {
        List list;
        const std::unique_ptr<QListWidgetItem> item(list.widget.item(1));
        list.widget.setItemWidget(item.get(), new QLabel);
        QCOMPARE(list.control.DeleteString(1), 1);
        QCOMPARE(list.widget.count(), 2);
    });
    row("DeleteString of no row takes nothing and gives n", [] {
        List list;
        QCOMPARE(list.control.DeleteString(3), 3);
        QCOMPARE(list.control.DeleteString(99), 99);
        QCOMPARE(list.control.DeleteString(static_cast<UINT>(-1)), -1);
        QCOMPARE(list.widget.count(), 3);
    });
    row("FindString takes the whole text in any case, from whichever row", [] {
        List list;
        for (const int after : {-1, 1, 2, 99})
            QCOMPARE(list.control.FindString(after, L"TWO"), 1);
        QCOMPARE(list.control.FindString(-1, L"three"), 2);
    });
    row("FindString does not take a beginning, an end or a pattern", [] {
        List list;
        for (const wchar_t *text : {L"tw", L"wo", L"t*", L"two ", L""}) {
            QCOMPARE(list.control.FindString(-1, text), -1);
            QCOMPARE(list.control.FindStringExact(-1, text), -1);
        }
    });
    row("FindString gives the first of two", [] {
        List list({QStringLiteral("x"), QStringLiteral("a"), QStringLiteral("A")});
        QCOMPARE(list.control.FindString(-1, L"A"), 1);
    });
    row("FindStringExact of A, B, A: 0 behind -1, LB_ERR behind 0 and 1", [] {
        List list({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("A")});
        QCOMPARE(list.control.FindStringExact(-1, L"A"), 0);
        QCOMPARE(list.control.FindStringExact(-9, L"A"), 0);
        QCOMPARE(list.control.FindStringExact(0, L"A"), -1);
        QCOMPARE(list.control.FindStringExact(1, L"A"), -1);
        QCOMPARE(list.control.FindStringExact(0, L"B"), 1);
        QCOMPARE(list.control.FindStringExact(1, L"B"), -1);
    });
    row("FindStringExact takes any case too",
        [] { QCOMPARE(List().control.FindStringExact(-1, L"TWO"), 1); });
    row("SelectString of A, B, A makes the last A current and gives 0", [] {
        List list({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("A")});
        QCOMPARE(list.control.SelectString(-1, L"A"), 0);
        QCOMPARE(list.widget.currentRow(), 2);
    });
    row("SelectString walks every match, and tells each", [] {
        List list({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("A")});
        QSignalSpy spy(&list.widget, &QListWidget::currentRowChanged);
        list.control.SelectString(1, L"A");
        QCOMPARE(spy, (QList<QVariantList>{{0}, {2}}));
    });
    row("SelectString leaves out blanks at the ends, of both", [] {
        List list({QStringLiteral("one"), QStringLiteral("  two "), QStringLiteral("a  b")});
        QCOMPARE(list.control.SelectString(-1, L"\ttwo  "), 0);
        QCOMPARE(list.widget.currentRow(), 1);
        QCOMPARE(list.control.SelectString(-1, L" a b "), 0);
        QCOMPARE(list.widget.currentRow(), 1);
        QCOMPARE(list.control.SelectString(-1, L" a  b "), 0);
        QCOMPARE(list.widget.currentRow(), 2);
    });
    row("SelectString of what is not there, or in another case, changes nothing and gives 0", [] {
        List list;
        list.widget.setCurrentRow(0);
        for (const wchar_t *text : {L"TWO", L"tw", L"none"}) {
            QCOMPARE(list.control.SelectString(-1, text), 0);
            QCOMPARE(list.widget.currentRow(), 0);
        }
    });
    row("SetItemData keeps an unsigned long long under Qt::UserRole and gives n", [] {
        List list;
        QCOMPARE(list.control.SetItemData(1, ~0UL), 1);
        QCOMPARE(list.widget.item(1)->data(256).userType(), int(QMetaType::ULongLong));
        QCOMPARE(list.widget.item(1)->data(Qt::UserRole).toULongLong(), ~0ULL);
        QCOMPARE(list.control.GetItemData(1), ~0UL);
        QCOMPARE(list.control.GetItemData(0), 0UL);
    });
    row("SetItemDataPtr keeps a void * under Qt::UserRole and gives n", [] {
        List list;
        QCOMPARE(list.control.SetItemDataPtr(1, &list), 1);
        QCOMPARE(list.widget.item(1)->data(256).userType(), int(QMetaType::VoidStar));
        QVERIFY(list.control.GetItemDataPtr(1) == &list);
        QVERIFY(list.control.GetItemDataPtr(0) == nullptr);
    });
    row("a number read as a pointer, and a pointer as a number, are what QVariant makes of them", [] {
        List list;
        list.control.SetItemData(0, 7);
        QVERIFY(list.control.GetItemDataPtr(0) == QVariant(7ULL).value<void *>());
        QVERIFY(list.control.GetItemDataPtr(0) == nullptr);
        list.control.SetItemDataPtr(0, &list);
        QCOMPARE(list.control.GetItemData(0), QVariant::fromValue<void *>(&list).toULongLong());
        QCOMPARE(list.control.GetItemData(0), 0UL);
    });
    row("of number and pointer the last one stays", [] {
        List list;
        list.control.SetItemDataPtr(0, &list);
        list.control.SetItemData(0, 7);
        QCOMPARE(list.control.GetItemData(0), 7UL);
        list.control.SetItemDataPtr(0, &list);
        QVERIFY(list.control.GetItemDataPtr(0) == &list);
    });
    row("a number that the host keeps as an int or a text reads as a number", [] {
        List list;
        list.widget.item(0)->setData(Qt::UserRole, 7);
        list.widget.item(1)->setData(Qt::UserRole, QStringLiteral("8"));
        QCOMPARE(list.control.GetItemData(0), 7UL);
        QCOMPARE(list.control.GetItemData(1), 8UL);
    });
    row("data of no row: n to set, 0 to get", [] {
        List list;
        for (const int n : {-1, 3, 99}) {
            QCOMPARE(list.control.SetItemData(n, 7), n);
            QCOMPARE(list.control.SetItemDataPtr(n, &list), n);
            QCOMPARE(list.control.GetItemData(n), 0UL);
            QVERIFY(list.control.GetItemDataPtr(n) == nullptr);
        }
    });
    row("SetSel selects and deselects one row and gives 0", [] {
        List list;
        QCOMPARE(list.control.SetSel(0, TRUE), 0);
        QCOMPARE(list.control.SetSel(2), 0);
        QCOMPARE(outline(list.widget), QStringLiteral("one* two three*"));
        QCOMPARE(list.control.SetSel(0, FALSE), 0);
        QCOMPARE(outline(list.widget), QStringLiteral("one two three*"));
    });
    row("SetSel(-1) and past the end are LB_ERR and select nothing", [] {
        List list;
        list.widget.item(1)->setSelected(true);
        for (const int n : {-1, 3, 99}) {
            QCOMPARE(list.control.SetSel(n, TRUE), -1);
            QCOMPARE(list.control.SetSel(n, FALSE), -1);
            QCOMPARE(outline(list.widget), QStringLiteral("one two* three"));
        }
    });
    row("GetSel is 1, 0 or LB_ERR", [] {
        List list;
        list.widget.item(1)->setSelected(true);
        QCOMPARE(list.control.GetSel(1), 1);
        QCOMPARE(list.control.GetSel(0), 0);
        for (const int n : {-1, 3, 99})
            QCOMPARE(list.control.GetSel(n), -1);
    });
    row("GetSelCount counts the selected", [] {
        List list;
        QCOMPARE(list.control.GetSelCount(), 0);
        list.widget.selectAll();
        QCOMPARE(list.control.GetSelCount(), 3);
    });
    row("GetSelItems gives 0 and writes nothing", [] {
        List list;
        list.widget.selectAll();
        int rows[] = {-7, -7, -7};
        QCOMPARE(list.control.GetSelItems(3, rows), 0);
        QCOMPARE(list.control.GetSelItems(3, nullptr), 0);
        for (const int n : rows)
            QCOMPARE(n, -7);
    });
}

void ControlsListBoxTest::member()
{
    QFETCH(Promise, promise);
    promise();
}

void ControlsListBoxTest::guard_data()
{
    QTest::addColumn<ListCall>("call");
    const auto row = [](const char *name, ListCall call) { QTest::newRow(name) << call; };
#define KX_CALL(expression) \
    [](CListBox *c) KX_CALLS_THROUGH_FOREIGN_POINTER -> qint64 { return number(expression); }
#define KX_DO(statements) \
    [](CListBox *c) KX_CALLS_THROUGH_FOREIGN_POINTER -> qint64 { statements; return 0; }
    row("GetCount", KX_CALL(c->GetCount()));
    row("GetCurSel", KX_CALL(c->GetCurSel()));
    row("SetCurSel", KX_CALL(c->SetCurSel(2)));
    row("SetCurSel of no row", KX_CALL(c->SetCurSel(9)));
    row("GetText", KX_DO(CString text; c->GetText(2, text); return text.GetLength()));
    row("GetTextLen", KX_CALL(c->GetTextLen(2)));
    row("AddString", KX_CALL(c->AddString(L"new")));
    row("InsertString", KX_CALL(c->InsertString(1, L"new")));
    row("DeleteString of no row", KX_CALL(c->DeleteString(9)));
    row("ResetContent", KX_DO(c->ResetContent()));
    row("FindString", KX_CALL(c->FindString(-1, L"two")));
    row("FindString of no text", KX_CALL(c->FindString(-1, L"none")));
    row("FindStringExact", KX_CALL(c->FindStringExact(-1, L"three")));
    row("FindStringExact of no text", KX_CALL(c->FindStringExact(-1, L"none")));
    row("SelectString", KX_CALL(c->SelectString(-1, L"three")));
    row("SetItemData", KX_CALL(c->SetItemData(1, 8)));
    row("GetItemData", KX_CALL(c->GetItemData(1)));
    row("SetItemDataPtr", KX_CALL(c->SetItemDataPtr(1, c)));
    row("GetItemDataPtr", KX_CALL(c->GetItemDataPtr(2)));
    row("SetSel", KX_CALL(c->SetSel(1, TRUE)));
    row("SetSel of no row", KX_CALL(c->SetSel(9, TRUE)));
    row("GetSel", KX_CALL(c->GetSel(0)));
    row("GetSel of no row", KX_CALL(c->GetSel(9)));
    row("GetSelCount", KX_CALL(c->GetSelCount()));
    row("GetSelItems", KX_CALL(c->GetSelItems(0, nullptr)));
    row("DeleteString", KX_CALL(c->DeleteString(2)));
#undef KX_CALL
#undef KX_DO
}

/// Each member on no widget, on one that is gone to another object, on a widget of another kind, through
/// small pointers, and on an object that is only a CWnd, where it does what it does on a CListBox.
void ControlsListBoxTest::guard()
{
    QFETCH(ListCall, call);

    CListBox unbound;
    QCOMPARE(call(&unbound), qint64(0));

    List orphaned;
    CListBox owner;
    owner.Attach(KxHwndFromWidget(&orphaned.widget));
    QCOMPARE(call(&orphaned.control), qint64(0));
    QCOMPARE(outline(orphaned.widget), QStringLiteral("one two three"));

    QComboBox combo;
    combo.addItems({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
    CListBox overCombo;
    overCombo.Attach(KxHwndFromWidget(&combo));
    QCOMPARE(call(&overCombo), qint64(0));
    QCOMPARE(combo.count(), 3);
    QCOMPARE(combo.currentIndex(), 0);

    for (const quintptr pointer : {quintptr(0), quintptr(7), quintptr(4095)})
        call(reinterpret_cast<CListBox *>(pointer));

    List bound;
    CWnd window(nullptr);
    QWidget parent;
    window.Attach(KxHwndFromWidget(&parent));
    QListWidget item;
    item.setSelectionMode(QAbstractItemView::MultiSelection);
    item.addItems({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
    for (QListWidget *list : {&bound.widget, &item}) {
        list->item(0)->setSelected(true);
        list->item(1)->setData(Qt::UserRole, 7);
        list->item(2)->setData(Qt::UserRole, QVariant::fromValue<void *>(&bound));
    }
    window.SetDlgItem(7, KxHwndFromWidget(&item));
    QListWidgetItem *last[] = {bound.widget.item(2), item.item(2)};
    const qint64 expected = call(&bound.control);
    QCOMPARE(call(static_cast<CListBox *>(window.GetDlgItem(7))), expected);
    QCOMPARE(outline(item), outline(bound.widget));
    if (item.count() == 2) { // The row that was taken out is ours.
        delete last[0];
        delete last[1];
    }
}

KX_TEST_MAIN(ControlsListBoxTest)
#include "tst_controls_list_box.moc"
