// SPDX-License-Identifier: MIT
// CComboBox over a QComboBox: its rows, their data, its signals, and where there is no combo box.

#include "KxClassLayout.h"
#include "KxResultNumber.h"
#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>

#include <afxwin.h>

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <type_traits>

/// A caller that goes through a pointer to no object of this class, on purpose.
#define KX_CALLS_THROUGH_FOREIGN_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
using ComboCall = qint64 (*)(CComboBox *);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(ComboCall)

namespace {

QString qt(const CString &string)
{
    return QString::fromWCharArray(string, string.GetLength());
}

/// A combo box with the rows "one", "two" and "three", the first one current.
struct Combo {
    Combo() : Combo(QStringList{QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")}) {}
    explicit Combo(const QStringList &rows)
    {
        widget.addItems(rows);
        control.Attach(KxHwndFromWidget(&widget));
    }

    /// All rows, with the current one in brackets.
    QString rows() const
    {
        QStringList all;
        for (int i = 0; i < widget.count(); ++i) {
            const QString text = widget.itemText(i);
            all.append(i == widget.currentIndex() ? QStringLiteral("[%1]").arg(text) : text);
        }
        return all.join(QLatin1Char(' '));
    }

    QComboBox widget;
    CComboBox control;
};

/// Counts all that a combo box tells of its current row.
struct Spies {
    explicit Spies(QComboBox *combo)
        : index(combo, QOverload<int>::of(&QComboBox::currentIndexChanged)),
          text(combo, &QComboBox::currentTextChanged), edit(combo, &QComboBox::editTextChanged)
    {
    }
    int count() const { return index.count() + text.count() + edit.count(); }

    QSignalSpy index;
    QSignalSpy text;
    QSignalSpy edit;
};

/// Keeps the messages that it is sent, and in which state they found the widget.
class ListeningCombo : public CComboBox
{
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        auto *combo = qobject_cast<QComboBox *>(KxWidgetFromHwnd(GetSafeHwnd()));
        heard.append(QStringLiteral("%1 %2 %3, at %4, %5").arg(message, 0, 16)
                         .arg(static_cast<qlonglong>(wParam)).arg(lParam).arg(combo->currentIndex())
                         .arg(combo->signalsBlocked() ? QStringLiteral("blocked") : QStringLiteral("open")));
        return 99;
    }

    QStringList heard;
};

class TalkingCombo : public CComboBox
{
public:
    using CComboBox::GetWindowTextW;
    void GetWindowTextW(CString &text) const override { text = L"its own"; }
};

class PopupCombo : public QComboBox
{
public:
    void showPopup() override { ++shown; }
    void hidePopup() override { ++hidden; }

    int shown = 0;
    int hidden = 0;
};

} // namespace

class ControlsComboBoxTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void layout();
    void member_data();
    void member();
    void silence_data();
    void silence();
    void emission_data();
    void emission();
    void guard_data();
    void guard();
};

void ControlsComboBoxTest::layout()
{
    QCOMPARE(overridden(CComboBox()), (QList<int>{12, 13}));
    using Create = BOOL (CComboBox::*)(UINT, const RECT &, CWnd *, UINT);
    QCOMPARE(slotOf(static_cast<Create>(&CComboBox::Create)), 20);
    QCOMPARE(slotCount<CComboBox>(), 21);
    QCOMPARE(sizeof(CComboBox), sizeof(CWnd));
    QVERIFY((std::is_base_of_v<CWnd, CComboBox>));
}

void ControlsComboBoxTest::member_data()
{
    QTest::addColumn<Promise>("promise");
    const auto row = [](const char *name, Promise promise) { QTest::newRow(name) << promise; };

    row("the constants: CB_ERR -1, CB_SETCURSEL 0x14E", [] {
        QCOMPARE(static_cast<int>(CB_ERR), -1);
        QCOMPARE(static_cast<int>(CB_SETCURSEL), 0x14E);
    });
    row("GetCount is count()", [] {
        QCOMPARE(Combo().control.GetCount(), 3);
        QCOMPARE(Combo(QStringList()).control.GetCount(), 0);
    });
    row("GetCurSel is currentIndex(), -1 when none", [] {
        Combo combo;
        combo.widget.setCurrentIndex(2);
        QCOMPARE(combo.control.GetCurSel(), 2);
        combo.widget.setCurrentIndex(-1);
        QCOMPARE(combo.control.GetCurSel(), -1);
    });
    row("SetCurSel(2) makes row 2 current and gives 2", [] {
        Combo combo;
        QCOMPARE(combo.control.SetCurSel(2), 2);
        QCOMPARE(combo.rows(), QStringLiteral("one two [three]"));
    });
    row("SetCurSel(-1) clears the current row and gives -1", [] {
        Combo combo;
        QCOMPARE(combo.control.SetCurSel(-1), -1);
        QCOMPARE(combo.widget.currentIndex(), -1);
    });
    row("SetCurSel(count()) and SetCurSel(-2) give CB_ERR, change nothing and send nothing", [] {
        QComboBox widget;
        widget.addItems({QStringLiteral("one"), QStringLiteral("two")});
        widget.setCurrentIndex(1);
        ListeningCombo control;
        control.Attach(KxHwndFromWidget(&widget));
        for (const int n : {2, 3, -2, -1000}) {
            QCOMPARE(control.SetCurSel(n), -1);
            QCOMPARE(widget.currentIndex(), 1);
        }
        QCOMPARE(control.heard, QStringList());
    });
    row("SetCurSel sends CB_SETCURSEL, n, 0 to the object, after the change, signals blocked", [] {
        QComboBox widget;
        widget.addItems({QStringLiteral("one"), QStringLiteral("two")});
        ListeningCombo control;
        control.Attach(KxHwndFromWidget(&widget));
        QCOMPARE(control.SetCurSel(1), 1);
        QCOMPARE(control.SetCurSel(1), 1); // Told again, though nothing changed.
        QCOMPARE(control.SetCurSel(-1), -1);
        QCOMPARE(control.heard, (QStringList{QStringLiteral("14e 1 0, at 1, blocked"),
                                             QStringLiteral("14e 1 0, at 1, blocked"),
                                             QStringLiteral("14e -1 0, at -1, blocked")}));
        QVERIFY(!widget.signalsBlocked());
    });
    row("AddString appends and gives the new row", [] {
        Combo combo;
        QCOMPARE(combo.control.AddString(L"four"), 3);
        QCOMPARE(combo.rows(), QStringLiteral("[one] two three four"));
    });
    row("AddString of a text that is there adds nothing and gives its row", [] {
        Combo combo;
        QCOMPARE(combo.control.AddString(L"two"), 1);
        QCOMPARE(combo.widget.count(), 3);
    });
    row("AddString twice leaves one row", [] {
        Combo combo{QStringList()};
        QCOMPARE(combo.control.AddString(L"same"), 0);
        QCOMPARE(combo.control.AddString(L"other"), 1);
        QCOMPARE(combo.control.AddString(L"same"), 0);
        QCOMPARE(combo.widget.count(), 2);
    });
    row("two empty texts give two rows, by AddString and by InsertString", [] {
        Combo combo{QStringList()};
        QCOMPARE(combo.control.AddString(L""), 0);
        QCOMPARE(combo.control.AddString(L""), 1);
        QCOMPARE(combo.control.InsertString(0, L""), 0);
        QCOMPARE(combo.widget.count(), 3);
    });
    row("a text in another case, or that only begins another, is a new row", [] {
        Combo combo;
        QCOMPARE(combo.control.AddString(L"Two"), 3);
        QCOMPARE(combo.control.AddString(L"tw"), 4);
        QCOMPARE(combo.control.InsertString(0, L"TWO"), 0);
    });
    row("AddString does not sort", [] {
        Combo combo;
        combo.widget.setInsertPolicy(QComboBox::InsertAlphabetically);
        combo.control.AddString(L"alpha");
        QCOMPARE(combo.rows(), QStringLiteral("[one] two three alpha"));
    });
    row("added rows begin without data", [] {
        Combo combo;
        combo.control.AddString(L"four");
        combo.control.InsertString(0, L"zero");
        QVERIFY(!combo.widget.itemData(4).isValid());
        QVERIFY(!combo.widget.itemData(0).isValid());
        QCOMPARE(combo.control.GetItemData(4), 0UL);
        QVERIFY(combo.control.GetItemDataPtr(0) == nullptr);
    });
    row("InsertString(1) inserts there and gives 1", [] {
        Combo combo;
        QCOMPARE(combo.control.InsertString(1, L"new"), 1);
        QCOMPARE(combo.rows(), QStringLiteral("[one] new two three"));
    });
    row("InsertString of a text that is there adds nothing and gives its row", [] {
        Combo combo;
        for (const int n : {0, -1, -2, 99})
            QCOMPARE(combo.control.InsertString(n, L"two"), 1);
        QCOMPARE(combo.widget.count(), 3);
    });
    row("InsertString(-1) appends and gives the new last row", [] {
        Combo combo;
        QCOMPARE(combo.control.InsertString(-1, L"four"), 3);
        QCOMPARE(combo.widget.itemText(3), QStringLiteral("four"));
    });
    row("InsertString(-2) adds nothing and gives -2, InsertString(-7) -7", [] {
        Combo combo;
        QCOMPARE(combo.control.InsertString(-2, L"four"), -2);
        QCOMPARE(combo.control.InsertString(-7, L"four"), -7);
        QCOMPARE(combo.widget.count(), 3);
    });
    row("InsertString(99) appends and gives 99", [] {
        Combo combo;
        QCOMPARE(combo.control.InsertString(99, L"four"), 99);
        QCOMPARE(combo.rows(), QStringLiteral("[one] two three four"));
    });
    row("DeleteString(1) removes row 1 and gives 1", [] {
        Combo combo;
        QCOMPARE(combo.control.DeleteString(1), 1);
        QCOMPARE(combo.rows(), QStringLiteral("[one] three"));
    });
    row("DeleteString past the end is CB_ERR", [] {
        Combo combo;
        QCOMPARE(combo.control.DeleteString(3), -1);
        QCOMPARE(combo.control.DeleteString(static_cast<UINT>(-1)), -1);
        QCOMPARE(combo.widget.count(), 3);
    });
    row("DeleteString of an empty list is CB_ERR, at every index", [] {
        Combo combo{QStringList()};
        QCOMPARE(combo.control.DeleteString(0), -1);
        QCOMPARE(combo.control.DeleteString(5), -1);
        QCOMPARE(combo.control.DeleteString(0xFFFFFFFFu), -1);
    });
    row("ResetContent removes all", [] {
        Combo combo;
        combo.control.ResetContent();
        QCOMPARE(combo.widget.count(), 0);
    });
    row("Clear removes all, of an editable one too", [] {
        Combo combo;
        combo.widget.setEditable(true);
        combo.control.Clear();
        QCOMPARE(combo.widget.count(), 0);
    });
    row("FindString takes the whole text in its case, from whichever row", [] {
        Combo combo;
        combo.widget.addItem(QStringLiteral("two"));
        for (const int after : {-1, 0, 1, 2, 99, -9}) {
            QCOMPARE(combo.control.FindString(after, L"two"), 1);
            QCOMPARE(combo.control.FindStringExact(after, L"two"), 1);
        }
        for (const wchar_t *text : {L"tw", L"Two", L"two ", L"", L"t*"}) {
            QCOMPARE(combo.control.FindString(-1, text), -1);
            QCOMPARE(combo.control.FindStringExact(-1, text), -1);
        }
    });
    row("SelectString makes the found row current, from whichever row", [] {
        Combo combo;
        QCOMPARE(combo.control.SelectString(2, L"two"), 1);
        QCOMPARE(combo.rows(), QStringLiteral("one [two] three"));
    });
    row("SelectString of what is not there is -1 and changes nothing", [] {
        Combo combo;
        combo.widget.setCurrentIndex(1);
        QCOMPARE(combo.control.SelectString(-1, L"tw"), -1);
        QCOMPARE(combo.control.SelectString(-1, L"THREE"), -1);
        QCOMPARE(combo.widget.currentIndex(), 1);
    });
    row("GetLBText writes the text, no terminating zero, and gives the length of what stands there", [] {
        Combo combo;
        wchar_t buffer[10] = {};
        QCOMPARE(combo.control.GetLBText(2, buffer), 5);
        QCOMPARE(std::wcscmp(buffer, L"three"), 0);
        wchar_t filled[] = L"########";
        QCOMPARE(combo.control.GetLBText(0, filled), 8);
        QCOMPARE(std::wcscmp(filled, L"one#####"), 0);
    });
    row("GetLBText outside gives 0 and writes nothing", [] {
        Combo combo;
        for (const int n : {-1, 4, 99}) {
            wchar_t buffer[] = L"###";
            QCOMPARE(combo.control.GetLBText(n, buffer), 0);
            QCOMPARE(std::wcscmp(buffer, L"###"), 0);
        }
    });
    row("GetLBText(count()) is the empty text", [] {
        Combo combo;
        wchar_t buffer[4] = {};
        QCOMPARE(combo.control.GetLBText(3, buffer), 0);
        wchar_t filled[] = L"###";
        QCOMPARE(combo.control.GetLBText(3, filled), 3); // Passes, and finds what stood there.
    });
    row("GetLBText into a string, empty for no row", [] {
        Combo combo;
        CString text;
        combo.control.GetLBText(1, text);
        QCOMPARE(qt(text), QStringLiteral("two"));
        for (const int n : {-1, 3, 99}) {
            text = L"before";
            combo.control.GetLBText(n, text);
            QVERIFY(text.IsEmpty());
        }
    });
    row("GetLBTextLen is the length of the text, 0 for no row", [] {
        Combo combo;
        QCOMPARE(combo.control.GetLBTextLen(2), 5);
        QCOMPARE(combo.control.GetLBTextLen(-1), 0);
        QCOMPARE(combo.control.GetLBTextLen(3), 0);
    });
    row("a pointer is kept in the row as a void *, under Qt::UserRole", [] {
        Combo combo;
        int thing = 0;
        QCOMPARE(combo.control.SetItemDataPtr(1, &thing), 1);
        QVERIFY(combo.control.GetItemDataPtr(1) == &thing);
        QCOMPARE(combo.widget.itemData(1, Qt::UserRole).userType(), int(QMetaType::VoidStar));
        QVERIFY(combo.widget.itemData(1, 256).value<void *>() == &thing);
        QVERIFY(combo.control.GetItemDataPtr(0) == nullptr);
    });
    row("SetItemData(n, 7) reads as the pointer 7, and the other way round", [] {
        Combo combo;
        QCOMPARE(combo.control.SetItemData(2, 7), 2);
        QCOMPARE(number(combo.control.GetItemDataPtr(2)), qint64(7));
        QCOMPARE(combo.control.GetItemData(2), 7UL);
        QCOMPARE(combo.widget.itemData(2).userType(), int(QMetaType::VoidStar));
        QCOMPARE(combo.control.SetItemData(2, ~0UL), 2);
        QCOMPARE(combo.control.GetItemData(2), ~0UL);
        int thing = 0;
        combo.control.SetItemDataPtr(0, &thing);
        QCOMPARE(combo.control.GetItemData(0), reinterpret_cast<unsigned long>(&thing));
    });
    row("a number that the host keeps in the row is not the pointer's kind", [] {
        Combo combo;
        combo.widget.setItemData(0, 7);
        QVERIFY(combo.control.GetItemDataPtr(0) == QVariant(7).value<void *>());
        QCOMPARE(combo.control.GetItemData(0), 0UL);
    });
    row("data of a row that does not exist: CB_ERR to set, 0 to get", [] {
        Combo combo;
        for (const int n : {-1, 3, 99}) {
            QCOMPARE(combo.control.SetItemData(n, 7), -1);
            QCOMPARE(combo.control.SetItemDataPtr(n, &combo), -1);
            QCOMPARE(combo.control.GetItemData(n), 0UL);
            QVERIFY(combo.control.GetItemDataPtr(n) == nullptr);
        }
        QCOMPARE(combo.rows(), QStringLiteral("[one] two three"));
    });
    row("data goes with its row", [] {
        Combo combo;
        combo.control.SetItemData(1, 7);
        combo.control.InsertString(0, L"zero");
        QCOMPARE(combo.control.GetItemData(2), 7UL);
        combo.control.DeleteString(2);
        QCOMPARE(combo.control.GetItemData(2), 0UL);
    });
    row("ShowDropDown opens, ShowDropDown(false) too, and GetDroppedState tells", [] {
        for (const bool show : {true, false}) {
            Combo combo;
            combo.widget.show();
            QVERIFY(!combo.control.GetDroppedState());
            combo.control.ShowDropDown(show);
            QVERIFY(combo.widget.view()->isVisible());
            QVERIFY(combo.control.GetDroppedState());
            combo.control.ShowDropDown(false);
            QVERIFY(combo.control.GetDroppedState());
            combo.widget.hidePopup();
            QTRY_VERIFY(!combo.control.GetDroppedState());
        }
    });
    row("ShowDropDown calls the widget's own showPopup(), never hidePopup()", [] {
        PopupCombo widget;
        CComboBox control;
        control.Attach(KxHwndFromWidget(&widget));
        control.ShowDropDown(TRUE);
        control.ShowDropDown(FALSE);
        control.ShowDropDown();
        QCOMPARE(widget.shown, 3);
        QCOMPARE(widget.hidden, 0);
    });
    row("GetWindowTextW is the current row's text", [] {
        Combo combo;
        CString text;
        combo.widget.setCurrentIndex(1);
        combo.control.GetWindowTextW(text);
        QCOMPARE(qt(text), QStringLiteral("two"));
        combo.widget.setCurrentIndex(-1);
        combo.control.GetWindowTextW(text);
        QVERIFY(text.IsEmpty());
    });
    row("GetWindowTextW of an editable one is the edit text", [] {
        Combo combo;
        combo.widget.setEditable(true);
        combo.widget.setEditText(QStringLiteral("typed"));
        CString text;
        combo.control.GetWindowTextW(text);
        QCOMPARE(qt(text), QStringLiteral("typed"));
    });
    row("GetWindowTextW(buffer) cuts to nMax - 1 and always terminates", [] {
        Combo combo;
        wchar_t buffer[] = L"########";
        QCOMPARE(combo.control.GetWindowTextW(buffer, 3), 2);
        QCOMPARE(std::wcscmp(buffer, L"on"), 0);
        QVERIFY(buffer[3] == L'#');
        QCOMPARE(combo.control.GetWindowTextW(buffer, 8), 3);
        QCOMPARE(std::wcscmp(buffer, L"one"), 0);
        QVERIFY(buffer[7] == L'\0');
        QCOMPARE(combo.control.GetWindowTextW(buffer, 1), 0);
        QVERIFY(buffer[0] == L'\0' && buffer[1] == L'n');
    });
    row("GetWindowTextW(buffer, 0) and (buffer, -1) give 0 and write nothing", [] {
        Combo combo;
        wchar_t buffer[] = L"##";
        QCOMPARE(combo.control.GetWindowTextW(buffer, 0), 0);
        QCOMPARE(combo.control.GetWindowTextW(buffer, -1), 0);
        QCOMPARE(std::wcscmp(buffer, L"##"), 0);
    });
    row("GetWindowTextW(buffer) asks the object's own GetWindowTextW(string)", [] {
        QComboBox widget;
        TalkingCombo control;
        control.Attach(KxHwndFromWidget(&widget));
        wchar_t buffer[10] = {};
        QCOMPARE(control.GetWindowTextW(buffer, 10), 7);
        QCOMPARE(std::wcscmp(buffer, L"its own"), 0);
    });
    row("members with fixed results change nothing", [] {
        Combo combo;
        combo.widget.setEditable(true);
        combo.widget.lineEdit()->setSelection(1, 1);
        const RECT rect = {1, 2, 3, 4};
        QVERIFY(combo.control.Create(0, rect, nullptr, 5));
        QVERIFY(CComboBox().Create(0, rect, nullptr, 5));
        QVERIFY(combo.control.SetEditSel(0, 3));
        QCOMPARE(combo.control.GetEditSel(), 0u);
        combo.control.SetHorizontalExtent(500);
        QCOMPARE(combo.control.GetHorizontalExtent(), 0u);
        QCOMPARE(combo.control.SetDroppedWidth(500), 0);
        QCOMPARE(combo.control.GetDroppedWidth(), 0);
        QCOMPARE(combo.control.SetItemHeight(0, 50), 0);
        QCOMPARE(combo.widget.lineEdit()->selectedText(), QStringLiteral("n"));
        QCOMPARE(combo.rows(), QStringLiteral("[one] two three"));
    });
    row("the destructor leaves the widget and its rows", [] {
        QComboBox widget;
        {
            CComboBox control;
            control.Attach(KxHwndFromWidget(&widget));
            control.AddString(L"stays");
        }
        QCOMPARE(widget.itemText(0), QStringLiteral("stays"));
        QVERIFY(CWnd::FromHandle(KxHwndFromWidget(&widget)) == nullptr);
    });
}

void ControlsComboBoxTest::member()
{
    QFETCH(Promise, promise);
    promise();
}

void ControlsComboBoxTest::silence_data()
{
    QTest::addColumn<ComboCall>("call");
    QTest::addColumn<QString>("rows");
    QTest::addColumn<bool>("empty");
    const auto row = [](const char *name, ComboCall call, const char *rows, bool empty) {
        QTest::newRow(name) << call << QString::fromLatin1(rows) << empty;
    };
    row("SetCurSel", [](CComboBox *c) { return number(c->SetCurSel(2)); }, "one two [three]", false);
    row("SetCurSel(-1)", [](CComboBox *c) { return number(c->SetCurSel(-1)); }, "one two three", false);
    row("AddString", [](CComboBox *c) { return number(c->AddString(L"n")); }, "[n]", true);
    row("InsertString", [](CComboBox *c) { return number(c->InsertString(0, L"n")); },
        "n [one] two three", false);
    row("InsertString(-1)", [](CComboBox *c) { return number(c->InsertString(-1, L"n")); }, "[n]", true);
    row("InsertString(0)", [](CComboBox *c) { return number(c->InsertString(0, L"n")); }, "[n]", true);
    row("ResetContent", [](CComboBox *c) { c->ResetContent(); return qint64(0); }, "", false);
}

/// Nothing is told, and signals are open afterwards, where the host had blocked them before too.
void ControlsComboBoxTest::silence()
{
    QFETCH(ComboCall, call);
    QFETCH(QString, rows);
    QFETCH(bool, empty);
    for (const bool blockedBefore : {false, true}) {
        Combo combo;
        if (empty)
            combo.widget.clear();
        Spies spies(&combo.widget);
        combo.widget.blockSignals(blockedBefore);
        call(&combo.control);
        QCOMPARE(combo.rows(), rows);
        QCOMPARE(spies.count(), 0);
        QVERIFY(!combo.widget.signalsBlocked());
        combo.widget.addItem(QStringLiteral("last"));
        combo.widget.setCurrentIndex(-1);
        combo.widget.setCurrentIndex(combo.widget.count() - 1);
        QVERIFY(spies.count() > 0); // It does tell when the host does it.
    }
}

void ControlsComboBoxTest::emission_data()
{
    QTest::addColumn<ComboCall>("call");
    const auto row = [](const char *name, ComboCall call) { QTest::newRow(name) << call; };
    row("SelectString", [](CComboBox *c) { return number(c->SelectString(-1, L"two")); });
    row("DeleteString", [](CComboBox *c) { return number(c->DeleteString(0)); });
    row("Clear", [](CComboBox *c) { c->Clear(); return qint64(0); });
}

void ControlsComboBoxTest::emission()
{
    QFETCH(ComboCall, call);
    {
        Combo combo;
        Spies spies(&combo.widget);
        call(&combo.control);
        QVERIFY(spies.index.count() > 0);
        QVERIFY(spies.text.count() > 0);
        QVERIFY(!combo.widget.signalsBlocked());
    }
    Combo quiet;
    Spies spies(&quiet.widget);
    quiet.widget.blockSignals(true);
    call(&quiet.control);
    QCOMPARE(spies.count(), 0); // Not unblocked either, where the host blocks.
    QVERIFY(quiet.widget.signalsBlocked());
}

void ControlsComboBoxTest::guard_data()
{
    QTest::addColumn<ComboCall>("call");
    QTest::addColumn<qint64>("without");
    const auto row = [](const char *name, ComboCall call, qint64 without = 0) {
        QTest::newRow(name) << call << without;
    };
#define KX_CALL(expression) \
    [](CComboBox *c) KX_CALLS_THROUGH_FOREIGN_POINTER -> qint64 { return number(expression); }
#define KX_DO(statements) \
    [](CComboBox *c) KX_CALLS_THROUGH_FOREIGN_POINTER -> qint64 { statements; return 0; }
    row("GetCount", KX_CALL(c->GetCount()));
    row("GetCurSel", KX_CALL(c->GetCurSel()));
    row("SetCurSel", KX_CALL(c->SetCurSel(2)));
    row("SetCurSel of no row", KX_CALL(c->SetCurSel(9)));
    row("AddString", KX_CALL(c->AddString(L"new")));
    row("InsertString", KX_CALL(c->InsertString(1, L"new")));
    row("InsertString(-2)", KX_CALL(c->InsertString(-2, L"new")));
    row("DeleteString", KX_CALL(c->DeleteString(1)));
    row("DeleteString of no row", KX_CALL(c->DeleteString(9)));
    row("ResetContent", KX_DO(c->ResetContent()));
    row("Clear", KX_DO(c->Clear()));
    row("FindString", KX_CALL(c->FindString(-1, L"two")));
    row("FindString of no text", KX_CALL(c->FindString(-1, L"none")));
    row("FindStringExact", KX_CALL(c->FindStringExact(-1, L"three")));
    row("FindStringExact of no text", KX_CALL(c->FindStringExact(-1, L"none")));
    row("SelectString", KX_CALL(c->SelectString(-1, L"three")));
    row("SelectString of no text", KX_CALL(c->SelectString(-1, L"none")));
    row("GetLBText", KX_DO(wchar_t text[9] = {}; return c->GetLBText(2, text)));
    row("GetLBText into a string", KX_DO(CString text; c->GetLBText(2, text); return text.GetLength()));
    row("GetLBTextLen", KX_CALL(c->GetLBTextLen(2)));
    row("SetItemDataPtr", KX_CALL(c->SetItemDataPtr(1, c)));
    row("SetItemDataPtr of no row", KX_CALL(c->SetItemDataPtr(9, c)));
    row("GetItemDataPtr", KX_CALL(c->GetItemDataPtr(1)));
    row("SetItemData", KX_CALL(c->SetItemData(1, 8)));
    row("SetItemData of no row", KX_CALL(c->SetItemData(9, 8)));
    row("GetItemData", KX_CALL(c->GetItemData(1)));
    row("ShowDropDown", KX_DO(c->ShowDropDown(TRUE)));
    row("GetDroppedState", KX_CALL(c->GetDroppedState()));
    row("SetEditSel", KX_CALL(c->SetEditSel(0, 1)), 1);
    row("GetEditSel", KX_CALL(c->GetEditSel()));
    row("SetHorizontalExtent", KX_DO(c->SetHorizontalExtent(9)));
    row("GetHorizontalExtent", KX_CALL(c->GetHorizontalExtent()));
    row("SetDroppedWidth", KX_CALL(c->SetDroppedWidth(9)));
    row("GetDroppedWidth", KX_CALL(c->GetDroppedWidth()));
    row("SetItemHeight", KX_CALL(c->SetItemHeight(0, 9)));
#undef KX_CALL
#undef KX_DO
}

/// Each member on no widget, on one that is gone to another object, on a widget of another kind, through
/// small pointers, and on an object that is only a CWnd, where it does what it does on a CComboBox.
void ControlsComboBoxTest::guard()
{
    QFETCH(ComboCall, call);
    QFETCH(qint64, without);

    CComboBox unbound;
    QCOMPARE(call(&unbound), without);

    Combo orphaned;
    CComboBox owner;
    owner.Attach(KxHwndFromWidget(&orphaned.widget));
    QCOMPARE(call(&orphaned.control), without);
    QCOMPARE(orphaned.rows(), QStringLiteral("[one] two three"));

    QListWidget list;
    list.addItems({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
    CComboBox overList;
    overList.Attach(KxHwndFromWidget(&list));
    QCOMPARE(call(&overList), without);
    QCOMPARE(list.count(), 3);
    QCOMPARE(list.currentRow(), -1);

    for (const quintptr pointer : {quintptr(0), quintptr(7), quintptr(4095)})
        call(reinterpret_cast<CComboBox *>(pointer));

    Combo bound;
    bound.widget.setItemData(1, QVariant::fromValue<void *>(&bound));
    QWidget form;
    auto *item = new QComboBox(&form);
    item->addItems({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
    item->setItemData(1, QVariant::fromValue<void *>(&bound));
    CWnd window(nullptr);
    window.Attach(KxHwndFromWidget(&form));
    window.SetDlgItem(7, KxHwndFromWidget(item));
    const qint64 expected = call(&bound.control);
    QCOMPARE(call(static_cast<CComboBox *>(window.GetDlgItem(7))), expected);
    QStringList texts;
    for (int i = 0; i < item->count(); ++i) {
        const QString text = item->itemText(i);
        texts.append(i == item->currentIndex() ? QStringLiteral("[%1]").arg(text) : text);
    }
    QCOMPARE(texts.join(QLatin1Char(' ')), bound.rows());
    QCOMPARE(item->view()->isVisible(), bound.widget.view()->isVisible());
}

KX_TEST_MAIN(ControlsComboBoxTest)
#include "tst_controls_combo_box.moc"
