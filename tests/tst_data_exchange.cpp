// SPDX-License-Identifier: MIT
// Dialog data exchange: passes, buttons, lists, sliders and control objects, and how controls are found.

#include "KxExchangeForm.h"
#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDial>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QSlider>

#include <afxwin.h>

#include <KxAfxDDX.h>

#include <cwchar>

using Promise = void (*)();
using Exchange = void (*)(CDataExchange *exchange, int id);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(Exchange)

namespace {

HWND handleOf(QWidget *widget)
{
    return KxHwndFromWidget(widget);
}

constexpr int id = 7;
constexpr int unknownId = 99;

QString textOf(const CStdStr<wchar_t> &text)
{
    return QString::fromStdWString(text);
}

/// Three radio buttons on one parent, in a group with the identifiers 10, 20 and 30.
struct RadioForm {
    RadioForm()
    {
        window.Attach(handleOf(&top));
        QRadioButton *buttons[] = {&first, &second, &third};
        for (int i = 0; i < 3; ++i) {
            group->addButton(buttons[i], 10 * (i + 1));
            window.SetDlgItem(id + i, handleOf(buttons[i]));
        }
    }

    int saved(int control, int before)
    {
        int value = before;
        CDataExchange pass(&window, TRUE);
        DDX_Radio(&pass, control, value);
        return value;
    }

    int load(int control, int value)
    {
        CDataExchange pass(&window, FALSE);
        DDX_Radio(&pass, control, value);
        return value;
    }

    QWidget top;
    QRadioButton first{&top};
    QRadioButton second{&top};
    QRadioButton third{&top};
    QButtonGroup *group = new QButtonGroup(&top);
    CWnd window{nullptr};
};

template<class Widget>
void addThreeRows(Widget &widget)
{
    widget.addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
}

/// The members that the search rows exchange; reset before each.
struct Members {
    unsigned char byteValue = 1;
    short shortValue = 1;
    int intValue = 1;
    unsigned int unsignedValue = 1;
    long longValue = 1;
    unsigned long unsignedLongValue = 1;
    float floatValue = 1;
    double doubleValue = 1;
    bool boolValue = true;
    CStdStr<wchar_t> text{L"member"};
    wchar_t buffer[10] = L"buffer";

    bool unchanged() const
    {
        return byteValue == 1 && shortValue == 1 && intValue == 1 && unsignedValue == 1 && longValue == 1
            && unsignedLongValue == 1 && floatValue == 1 && doubleValue == 1 && boolValue && text == L"member"
            && std::wcscmp(buffer, L"buffer") == 0;
    }
};

Members members;

} // namespace

class DataExchangeTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void pass_data();
    void pass() { runPromise(); }
    void check_data();
    void check() { runPromise(); }
    void radio_data();
    void radio() { runPromise(); }
    void lists_data();
    void lists() { runPromise(); }
    void index_data();
    void index();
    void slider_data();
    void slider();
    void control_data();
    void control() { runPromise(); }
    void validation_data();
    void validation() { runPromise(); }
    void search_data();
    void search();

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void DataExchangeTest::pass_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("CDataExchange(window, TRUE)") << Promise([] {
        CWnd window(nullptr);
        const CDataExchange pass(&window, TRUE);
        QCOMPARE(pass.m_bSave, true);
        QCOMPARE(pass.m_bInit, true);
        QCOMPARE(pass.m_bFailed, false);
        QVERIFY(pass.m_pDlgWnd == &window);
    });
    QTest::newRow("CDataExchange(null, FALSE)") << Promise([] {
        const CDataExchange pass(nullptr, FALSE);
        QCOMPARE(pass.m_bSave, false);
        QCOMPARE(pass.m_bInit, true);
        QCOMPARE(pass.m_bFailed, false);
        QVERIFY(pass.m_pDlgWnd == nullptr);
    });
    QTest::newRow("Fail marks the pass, and nothing else of it") << Promise([] {
        CWnd window(nullptr);
        CDataExchange pass(&window, TRUE);
        pass.Fail();
        QCOMPARE(pass.m_bFailed, true);
        QCOMPARE(pass.m_bSave, true);
        QCOMPARE(pass.m_bInit, true);
        QVERIFY(pass.m_pDlgWnd == &window);
    });
    QTest::newRow("UpdateData(TRUE) runs DoDataExchange once, to save, and is TRUE") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        form.window.body = [&](CDataExchange *pass) {
            QCOMPARE(pass->m_bSave, true);
            QCOMPARE(pass->m_bInit, true);
            QCOMPARE(pass->m_bFailed, false);
            QVERIFY(pass->m_pDlgWnd == &form.window);
        };
        QCOMPARE(form.window.UpdateData(TRUE), true);
        QCOMPARE(form.window.passes, 1);
    });
    QTest::newRow("UpdateData(FALSE) runs DoDataExchange once, to load, and is TRUE") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        form.window.body = [](CDataExchange *pass) { QCOMPARE(pass->m_bSave, false); };
        QCOMPARE(form.window.UpdateData(FALSE), true);
        QCOMPARE(form.window.passes, 1);
    });
    QTest::newRow("UpdateData() saves") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        form.window.body = [](CDataExchange *pass) { QCOMPARE(pass->m_bSave, true); };
        QCOMPARE(form.window.UpdateData(), true);
        QCOMPARE(form.window.passes, 1);
    });
    QTest::newRow("UpdateData of a plain window is TRUE") << Promise([] {
        CWnd window(nullptr);
        QCOMPARE(window.UpdateData(TRUE), true);
    });
    QTest::newRow("UpdateData of an unbound window runs DoDataExchange all the same") << Promise([] {
        KxExchangingWnd window;
        int value = 5;
        window.body = [&](CDataExchange *pass) { DDX_Text(pass, id, value); };
        QCOMPARE(window.UpdateData(TRUE), true);
        QCOMPARE(window.passes, 1);
        QCOMPARE(value, 5);
    });
    QTest::newRow("Fail first, then all later calls still run, and UpdateData is FALSE") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        form.control.setText(QStringLiteral("12"));
        int first = 0;
        CStdStr<wchar_t> second;
        form.window.body = [&](CDataExchange *pass) {
            pass->Fail();
            DDX_Text(pass, id, first);
            DDX_Text(pass, id, second);
        };
        QCOMPARE(form.window.UpdateData(TRUE), false);
        QCOMPARE(first, 12);
        QCOMPARE(textOf(second), QStringLiteral("12"));
    });
    QTest::newRow("Fail makes a load FALSE too") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        form.window.body = [](CDataExchange *pass) { pass->Fail(); };
        QCOMPARE(form.window.UpdateData(FALSE), false);
    });
    QTest::newRow("a failed pass is forgotten in the next") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        form.window.body = [](CDataExchange *pass) { pass->Fail(); };
        form.window.UpdateData(TRUE);
        form.window.body = nullptr;
        QCOMPARE(form.window.UpdateData(TRUE), true);
    });
    QTest::newRow("PrepareEditCtrl is the handle of the control") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        CDataExchange pass(&form.window, TRUE);
        QVERIFY(pass.PrepareEditCtrl(id) == handleOf(&form.control));
        QVERIFY(pass.m_pDlgWnd == &form.window && pass.m_bSave && pass.m_bInit && !pass.m_bFailed);
    });
    QTest::newRow("PrepareEditCtrl is 0 for an unknown ID, no dialog, an unbound dialog") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        CDataExchange unknown(&form.window, TRUE);
        QVERIFY(unknown.PrepareEditCtrl(unknownId) == nullptr);
        CDataExchange nothing(nullptr, TRUE);
        QVERIFY(nothing.PrepareEditCtrl(id) == nullptr);
        CWnd window(nullptr);
        CDataExchange unbound(&window, TRUE);
        QVERIFY(unbound.PrepareEditCtrl(id) == nullptr);
    });
    QTest::newRow("PrepareEditCtrl asks the virtual GetSafeHwnd") << Promise([] {
        class PretendingWnd : public CWnd
        {
        public:
            PretendingWnd() : CWnd(nullptr) {}
            HWND GetSafeHwnd() const override { return reinterpret_cast<HWND>(0x1234); }
        };
        KxExchangeForm<QLineEdit> form;
        PretendingWnd edit;
        edit.Attach(handleOf(&form.control));
        CDataExchange pass(&form.window, TRUE);
        QVERIFY(pass.PrepareEditCtrl(id) == reinterpret_cast<HWND>(0x1234));
    });
}

void DataExchangeTest::check_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("bool saves a checked box as true, a cleared one as false") << Promise([] {
        KxExchangeForm<QCheckBox> form;
        form.control.setChecked(true);
        bool value = false;
        form.exchange<bool>(true, DDX_Check, value);
        QCOMPARE(value, true);
        form.control.setChecked(false);
        form.exchange<bool>(true, DDX_Check, value);
        QCOMPARE(value, false);
    });
    QTest::newRow("bool loads true and false") << Promise([] {
        KxExchangeForm<QCheckBox> form;
        bool value = true;
        form.exchange<bool>(false, DDX_Check, value);
        QCOMPARE(form.control.isChecked(), true);
        value = false;
        form.exchange<bool>(false, DDX_Check, value);
        QCOMPARE(form.control.isChecked(), false);
    });
    QTest::newRow("int saves a checked box as 1, a cleared one as 0") << Promise([] {
        KxExchangeForm<QCheckBox> form;
        form.control.setChecked(true);
        int value = 77;
        form.exchange<int>(true, DDX_Check, value);
        QCOMPARE(value, 1);
        form.control.setChecked(false);
        value = 77;
        form.exchange<int>(true, DDX_Check, value);
        QCOMPARE(value, 0);
    });
    QTest::newRow("int saves a partially checked box as 1") << Promise([] {
        KxExchangeForm<QCheckBox> form;
        form.control.setCheckState(Qt::PartiallyChecked);
        int value = 77;
        form.exchange<int>(true, DDX_Check, value);
        QCOMPARE(value, 1);
    });
    QTest::newRow("int loads 2 as checked, there is no third state, and keeps the member 2") << Promise([] {
        KxExchangeForm<QCheckBox> form;
        form.control.setTristate(true);
        int value = 2;
        form.exchange<int>(false, DDX_Check, value);
        QCOMPARE(form.control.checkState(), Qt::Checked);
        QCOMPARE(value, 2);
    });
    QTest::newRow("int loads -1 as checked and 0 as cleared") << Promise([] {
        KxExchangeForm<QCheckBox> form;
        int value = -1;
        form.exchange<int>(false, DDX_Check, value);
        QCOMPARE(form.control.isChecked(), true);
        value = 0;
        form.exchange<int>(false, DDX_Check, value);
        QCOMPARE(form.control.isChecked(), false);
    });
    QTest::newRow("a checkable push button is served") << Promise([] {
        KxExchangeForm<QPushButton> form;
        form.control.setCheckable(true);
        int value = 1;
        form.exchange<int>(false, DDX_Check, value);
        QCOMPARE(form.control.isChecked(), true);
        value = 77;
        form.exchange<int>(true, DDX_Check, value);
        QCOMPARE(value, 1);
    });
    QTest::newRow("a push button that is not checkable is passed over, both forms") << Promise([] {
        KxExchangeForm<QPushButton> form;
        int value = 77;
        form.exchange<int>(true, DDX_Check, value);
        QCOMPARE(value, 77);
        bool flag = true;
        form.exchange<bool>(true, DDX_Check, flag);
        QCOMPARE(flag, true);
        form.exchange<bool>(false, DDX_Check, flag);
        QCOMPARE(form.control.isChecked(), false);
    });
    QTest::newRow("a checkable group box, which is no button, is passed over") << Promise([] {
        KxExchangeForm<QGroupBox> form;
        form.control.setCheckable(true);
        form.control.setChecked(true);
        int value = 0;
        form.exchange<int>(true, DDX_Check, value);
        QCOMPARE(value, 0);
        form.exchange<int>(false, DDX_Check, value);
        QCOMPARE(form.control.isChecked(), true);
    });
}

void DataExchangeTest::radio_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("saves the identifier 20 of the checked button, not its position") << Promise([] {
        RadioForm form;
        form.second.setChecked(true);
        QCOMPARE(form.saved(id, 77), 20);
    });
    QTest::newRow("saves -1 when no button is checked") << Promise([] {
        RadioForm form;
        QCOMPARE(form.saved(id, 77), -1);
    });
    QTest::newRow("loads the identifier 30") << Promise([] {
        RadioForm form;
        form.first.setChecked(true);
        QCOMPARE(form.load(id, 30), 30);
        QVERIFY(form.third.isChecked());
        QVERIFY(!form.first.isChecked());
    });
    QTest::newRow("an identifier that no button has leaves the group and the member") << Promise([] {
        RadioForm form;
        form.first.setChecked(true);
        QCOMPARE(form.load(id, 1), 1);
        QCOMPARE(form.load(id, -1), -1);
        QVERIFY(form.first.isChecked());
    });
    QTest::newRow("any button of the group names it") << Promise([] {
        RadioForm form;
        form.load(id + 2, 10);
        QVERIFY(form.first.isChecked());
        QCOMPARE(form.saved(id + 1, 77), 10);
    });
    QTest::newRow("without a group nothing happens") << Promise([] {
        RadioForm form;
        delete form.group;
        form.first.setChecked(true);
        QCOMPARE(form.saved(id, 77), 77);
        form.load(id, 20);
        QVERIFY(form.first.isChecked());
    });
    QTest::newRow("a group that is not a direct child of the buttons' parent is not found") << Promise([] {
        RadioForm form;
        QWidget child(&form.top);
        form.group->setParent(&child);
        form.second.setChecked(true);
        QCOMPARE(form.saved(id, 77), 77);
        form.load(id, 10);
        QVERIFY(form.second.isChecked());
        form.group->setParent(&form.top);
    });
    QTest::newRow("a group of the parent's parent is not found") << Promise([] {
        QWidget outer;
        RadioForm form;
        form.top.setParent(&outer);
        form.group->setParent(&outer);
        form.second.setChecked(true);
        QCOMPARE(form.saved(id, 77), 77);
        form.group->setParent(&form.top);
        form.top.setParent(nullptr);
    });
    QTest::newRow("of two groups the parent's first is used, whoever the button belongs to") << Promise([] {
        QWidget top;
        auto *first = new QButtonGroup(&top);
        auto *second = new QButtonGroup(&top);
        QRadioButton inFirst(&top);
        QRadioButton inSecond(&top);
        first->addButton(&inFirst, 5);
        second->addButton(&inSecond, 6);
        inFirst.setChecked(true);
        inSecond.setChecked(true);
        CWnd window(nullptr);
        window.Attach(handleOf(&top));
        window.SetDlgItem(id, handleOf(&inSecond));
        int value = 77;
        CDataExchange pass(&window, TRUE);
        DDX_Radio(&pass, id, value);
        QCOMPARE(value, 5);
    });
    QTest::newRow("a group with a name is found too") << Promise([] {
        RadioForm form;
        form.group->setObjectName(QStringLiteral("paperSize"));
        form.second.setChecked(true);
        QCOMPARE(form.saved(id, 77), 20);
    });
    QTest::newRow("a check box of the group is no radio button: nothing happens") << Promise([] {
        RadioForm form;
        QCheckBox box(&form.top);
        form.group->addButton(&box, 40);
        form.window.SetDlgItem(50, handleOf(&box));
        form.second.setChecked(true);
        QCOMPARE(form.saved(50, 77), 77);
        form.load(50, 10);
        QVERIFY(form.second.isChecked());
    });
    QTest::newRow("a radio button without a parent: nothing happens") << Promise([] {
        QWidget top;
        QRadioButton button;
        button.setChecked(true);
        CWnd window(nullptr);
        window.Attach(handleOf(&top));
        window.SetDlgItem(id, handleOf(&button));
        int value = 77;
        CDataExchange pass(&window, TRUE);
        DDX_Radio(&pass, id, value);
        QCOMPARE(value, 77);
    });
}

void DataExchangeTest::lists_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("DDX_LBString exchanges nothing in either direction") << Promise([] {
        KxExchangeForm<QListWidget> form;
        addThreeRows(form.control);
        form.control.setCurrentRow(1);
        CStdStr<wchar_t> value(L"c");
        form.exchange<CStdStr<wchar_t>>(true, DDX_LBString, value);
        QCOMPARE(textOf(value), QStringLiteral("c"));
        form.exchange<CStdStr<wchar_t>>(false, DDX_LBString, value);
        QCOMPARE(form.control.currentRow(), 1);
        QCOMPARE(form.control.count(), 3);
    });
    QTest::newRow("DDX_CBString saves the current text") << Promise([] {
        KxExchangeForm<QComboBox> form;
        addThreeRows(form.control);
        form.control.setCurrentIndex(1);
        CStdStr<wchar_t> value(L"before");
        form.exchange<CStdStr<wchar_t>>(true, DDX_CBString, value);
        QCOMPARE(textOf(value), QStringLiteral("b"));
    });
    QTest::newRow("DDX_CBString saves an empty text when nothing is chosen") << Promise([] {
        KxExchangeForm<QComboBox> form;
        CStdStr<wchar_t> value(L"before");
        form.exchange<CStdStr<wchar_t>>(true, DDX_CBString, value);
        QCOMPARE(textOf(value), QString());
    });
    QTest::newRow("DDX_CBString saves what was typed into an editable box") << Promise([] {
        KxExchangeForm<QComboBox> form;
        addThreeRows(form.control);
        form.control.setEditable(true);
        form.control.setEditText(QStringLiteral("typed"));
        CStdStr<wchar_t> value;
        form.exchange<CStdStr<wchar_t>>(true, DDX_CBString, value);
        QCOMPARE(textOf(value), QStringLiteral("typed"));
    });
    QTest::newRow("DDX_CBString loads by choosing the row with that text") << Promise([] {
        KxExchangeForm<QComboBox> form;
        addThreeRows(form.control);
        CStdStr<wchar_t> value(L"c");
        form.exchange<CStdStr<wchar_t>>(false, DDX_CBString, value);
        QCOMPARE(form.control.currentIndex(), 2);
    });
    QTest::newRow("DDX_CBString loads an unknown text into a fixed list: nothing") << Promise([] {
        KxExchangeForm<QComboBox> form;
        addThreeRows(form.control);
        form.control.setCurrentIndex(1);
        CStdStr<wchar_t> value(L"other");
        form.exchange<CStdStr<wchar_t>>(false, DDX_CBString, value);
        QCOMPARE(form.control.currentIndex(), 1);
        QCOMPARE(form.control.count(), 3);
        QCOMPARE(textOf(value), QStringLiteral("other"));
    });
    QTest::newRow("DDX_CBString loads an unknown text into the edit line of an editable box") << Promise([] {
        KxExchangeForm<QComboBox> form;
        addThreeRows(form.control);
        form.control.setEditable(true);
        CStdStr<wchar_t> value(L"other");
        form.exchange<CStdStr<wchar_t>>(false, DDX_CBString, value);
        QCOMPARE(form.control.currentText(), QStringLiteral("other"));
        QCOMPARE(form.control.count(), 3);
    });
}

void DataExchangeTest::index_data()
{
    QTest::addColumn<bool>("save");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("member");
    QTest::addColumn<int>("memberAfter");
    QTest::addColumn<int>("currentAfter");

    QTest::newRow("saves row 2 of 3") << true << 3 << 2 << 77 << 2 << 2;
    QTest::newRow("saves -1 when no row is chosen") << true << 3 << -1 << 77 << -1 << -1;
    QTest::newRow("saves -1 from an empty list") << true << 0 << -1 << 77 << -1 << -1;
    QTest::newRow("loads row 1 of 3") << false << 3 << 0 << 1 << 1 << 1;
    QTest::newRow("loads row 2 of 3, the last") << false << 3 << 0 << 2 << 2 << 2;
    QTest::newRow("loads 3 of 3 as 0, in the member too") << false << 3 << 2 << 3 << 0 << 0;
    QTest::newRow("loads 7 of 3 as 0, in the member too") << false << 3 << 2 << 7 << 0 << 0;
    QTest::newRow("loads -1 as 0, in the member too") << false << 3 << 2 << -1 << 0 << 0;
    QTest::newRow("loads 0 into an empty list: no row") << false << 0 << -1 << 0 << 0 << -1;
    QTest::newRow("loads 7 into an empty list: 0 in the member, no row") << false << 0 << -1 << 7 << 0 << -1;
}

void DataExchangeTest::index()
{
    QFETCH(bool, save);
    QFETCH(int, count);
    QFETCH(int, current);
    QFETCH(int, member);
    QFETCH(int, memberAfter);
    QFETCH(int, currentAfter);
    KxExchangeForm<QListWidget> list;
    KxExchangeForm<QComboBox> combo;
    for (int i = 0; i < count; ++i) {
        list.control.addItem(QString::number(i));
        combo.control.addItem(QString::number(i));
    }
    list.control.setCurrentRow(current);
    combo.control.setCurrentIndex(current);

    int value = member;
    list.exchange<int>(save, DDX_LBIndex, value);
    QCOMPARE(value, memberAfter);
    QCOMPARE(list.control.currentRow(), currentAfter);
    value = member;
    combo.exchange<int>(save, DDX_CBIndex, value);
    QCOMPARE(value, memberAfter);
    QCOMPARE(combo.control.currentIndex(), currentAfter);
}

void DataExchangeTest::slider_data()
{
    QTest::addColumn<bool>("save");
    QTest::addColumn<int>("member");
    QTest::addColumn<int>("memberAfter");
    QTest::addColumn<int>("valueAfter");

    QTest::newRow("from 10 to 20, at 15: saves 15") << true << 77 << 15 << 15;
    QTest::newRow("from 10 to 20, at 15: loads 18") << false << 18 << 18 << 18;
    QTest::newRow("from 10 to 20, at 15: loads 10, the minimum") << false << 10 << 10 << 10;
    QTest::newRow("from 10 to 20, at 15: loads 20, the maximum") << false << 20 << 20 << 20;
    QTest::newRow("from 10 to 20, at 15: 21 changes neither slider nor member") << false << 21 << 21 << 15;
    QTest::newRow("from 10 to 20, at 15: 9 changes neither slider nor member") << false << 9 << 9 << 15;
}

void DataExchangeTest::slider()
{
    QFETCH(bool, save);
    QFETCH(int, member);
    QFETCH(int, memberAfter);
    QFETCH(int, valueAfter);
    KxExchangeForm<QSlider> form;
    form.control.setRange(10, 20);
    form.control.setValue(15);
    QSignalSpy changed(&form.control, &QSlider::valueChanged);
    int value = member;
    form.exchange<int>(save, DDX_Slider, value);
    QCOMPARE(value, memberAfter);
    QCOMPARE(form.control.value(), valueAfter);
    QCOMPARE(changed.size(), 0); // Silent, always.
    form.control.setValue(12);
    QCOMPARE(changed.size(), 1); // And afterwards it tells its changes again.
}

void DataExchangeTest::control_data()
{
    QTest::addColumn<Promise>("promise");

    class Edit : public CWnd
    {
    public:
        Edit() : CWnd(nullptr) {}
        void PreSubclassWindow() override { ++subclassed; }
        int subclassed = 0;
    };

    QTest::newRow("binds the member to the control when loading") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        Edit edit;
        form.window.body = [&](CDataExchange *pass) { DDX_Control(pass, id, edit); };
        form.window.UpdateData(FALSE);
        QVERIFY(static_cast<HWND>(edit) == handleOf(&form.control));
        QVERIFY(edit.GetParent() == &form.window);
        QCOMPARE(edit.GetDlgCtrlID(), id);
        QCOMPARE(edit.subclassed, 1);
        QVERIFY(form.window.GetDlgItem(id) == &edit);
    });
    QTest::newRow("binds the member to the control when saving") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        Edit edit;
        form.window.body = [&](CDataExchange *pass) { DDX_Control(pass, id, edit); };
        form.window.UpdateData(TRUE);
        QVERIFY(static_cast<HWND>(edit) == handleOf(&form.control));
    });
    QTest::newRow("binds only the first time") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        Edit edit;
        form.window.body = [&](CDataExchange *pass) { DDX_Control(pass, id, edit); };
        form.window.UpdateData(FALSE);
        form.window.UpdateData(FALSE);
        form.window.UpdateData(TRUE);
        QCOMPARE(edit.subclassed, 1);
        QVERIFY(static_cast<HWND>(edit) == handleOf(&form.control));
    });
    QTest::newRow("a member that is bound elsewhere stays there") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        QWidget elsewhere;
        Edit edit;
        edit.Attach(handleOf(&elsewhere));
        form.window.body = [&](CDataExchange *pass) { DDX_Control(pass, id, edit); };
        form.window.UpdateData(FALSE);
        QVERIFY(static_cast<HWND>(edit) == handleOf(&elsewhere));
        QVERIFY(edit.GetParent() == nullptr);
        QCOMPARE(edit.subclassed, 0);
    });
    QTest::newRow("an unknown ID leaves the member unbound") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        Edit edit;
        form.window.body = [&](CDataExchange *pass) { DDX_Control(pass, unknownId, edit); };
        form.window.UpdateData(FALSE);
        QVERIFY(edit.GetSafeHwnd() == nullptr);
        QCOMPARE(edit.subclassed, 0);
    });
    QTest::newRow("without a pass, a dialog or a bound dialog the member stays unbound") << Promise([] {
        Edit edit;
        DDX_Control(nullptr, id, edit);
        CDataExchange withoutDialog(nullptr, FALSE);
        DDX_Control(&withoutDialog, id, edit);
        CWnd unbound(nullptr);
        CDataExchange ofUnbound(&unbound, FALSE);
        DDX_Control(&ofUnbound, id, edit);
        QVERIFY(edit.GetSafeHwnd() == nullptr);
        QCOMPARE(edit.subclassed, 0);
    });
    QTest::newRow("the member takes the place of the control's temporary wrapper") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        QVERIFY(form.window.GetDlgItem(id) != nullptr);
        Edit edit;
        form.window.body = [&](CDataExchange *pass) { DDX_Control(pass, id, edit); };
        form.window.UpdateData(FALSE);
        QVERIFY(form.window.GetDlgItem(id) == &edit);
    });
}

void DataExchangeTest::validation_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("DDV_MinMaxInt lets 50 of 1 to 10 pass, in both directions") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        form.window.body = [](CDataExchange *pass) { DDV_MinMaxInt(pass, 50, 1, 10); };
        QCOMPARE(form.window.UpdateData(TRUE), true);
        QCOMPARE(form.window.UpdateData(FALSE), true);
        QCOMPARE(form.window.passes, 2);
    });
    QTest::newRow("DDV_MinMaxDouble lets 50 of 1 to 10 pass, in both directions") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        form.window.body = [](CDataExchange *pass) { DDV_MinMaxDouble(pass, 50.0, 1.0, 10.0); };
        QCOMPARE(form.window.UpdateData(TRUE), true);
        QCOMPARE(form.window.UpdateData(FALSE), true);
    });
    QTest::newRow("DDV_MaxChars lets 5 characters of 3 pass and sets no limit") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        const int limit = form.control.maxLength();
        form.window.body = [](CDataExchange *pass) { DDV_MaxChars(pass, CStdStr<wchar_t>(L"12345"), 3); };
        QCOMPARE(form.window.UpdateData(TRUE), true);
        QCOMPARE(form.window.UpdateData(FALSE), true);
        QCOMPARE(form.control.maxLength(), limit);
    });
}

void DataExchangeTest::search_data()
{
    QTest::addColumn<Exchange>("exchange");

    const auto row = [](const char *name, Exchange exchange) { QTest::newRow(name) << exchange; };
    row("DDX_Text unsigned char", [](CDataExchange *p, int i) { DDX_Text(p, i, members.byteValue); });
    row("DDX_Text short", [](CDataExchange *p, int i) { DDX_Text(p, i, members.shortValue); });
    row("DDX_Text int", [](CDataExchange *p, int i) { DDX_Text(p, i, members.intValue); });
    row("DDX_Text unsigned int", [](CDataExchange *p, int i) { DDX_Text(p, i, members.unsignedValue); });
    row("DDX_Text long", [](CDataExchange *p, int i) { DDX_Text(p, i, members.longValue); });
    row("DDX_Text unsigned long", [](CDataExchange *p, int i) { DDX_Text(p, i, members.unsignedLongValue); });
    row("DDX_Text float", [](CDataExchange *p, int i) { DDX_Text(p, i, members.floatValue); });
    row("DDX_Text double", [](CDataExchange *p, int i) { DDX_Text(p, i, members.doubleValue); });
    row("DDX_Text text", [](CDataExchange *p, int i) { DDX_Text(p, i, members.text); });
    row("DDX_Text buffer", [](CDataExchange *p, int i) { DDX_Text(p, i, members.buffer, 10); });
    row("DDX_Check bool", [](CDataExchange *p, int i) { DDX_Check(p, i, members.boolValue); });
    row("DDX_Check int", [](CDataExchange *p, int i) { DDX_Check(p, i, members.intValue); });
    row("DDX_Radio", [](CDataExchange *p, int i) { DDX_Radio(p, i, members.intValue); });
    row("DDX_LBString", [](CDataExchange *p, int i) { DDX_LBString(p, i, members.text); });
    row("DDX_CBString", [](CDataExchange *p, int i) { DDX_CBString(p, i, members.text); });
    row("DDX_LBIndex", [](CDataExchange *p, int i) { DDX_LBIndex(p, i, members.intValue); });
    row("DDX_CBIndex", [](CDataExchange *p, int i) { DDX_CBIndex(p, i, members.intValue); });
    row("DDX_Slider", [](CDataExchange *p, int i) { DDX_Slider(p, i, members.intValue); });
}

/// No control is found: nothing happens, in either direction.
void DataExchangeTest::search()
{
    QFETCH(Exchange, exchange);
    const bool isText = QByteArray(QTest::currentDataTag()).startsWith("DDX_Text");

    KxExchangeForm<QLineEdit> form;
    form.control.setText(QStringLiteral("12"));
    CWnd unbound(nullptr);
    QLineEdit orphanedControl(QStringLiteral("12"));
    CWnd first(nullptr);
    CWnd second(nullptr);
    first.Attach(handleOf(&orphanedControl));
    second.Attach(handleOf(&orphanedControl)); // The table goes on to name the first, which lost the widget.
    form.window.SetDlgItem(8, handleOf(&orphanedControl));
    form.window.SetDlgItem(9, nullptr);
    QDial wrongKind;
    form.window.SetDlgItem(10, handleOf(&wrongKind));

    for (const bool save : {false, true}) {
        members = Members();
        exchange(nullptr, id);
        CDataExchange withoutDialog(nullptr, save);
        exchange(&withoutDialog, id);
        CDataExchange ofUnbound(&unbound, save);
        exchange(&ofUnbound, id);
        CDataExchange pass(&form.window, save);
        exchange(&pass, unknownId);
        exchange(&pass, 8);
        exchange(&pass, 9);
        if (!isText)
            exchange(&pass, 10); // Every widget has a text.
        QVERIFY(members.unchanged());
        QVERIFY(!pass.m_bFailed);
        QCOMPARE(form.control.text(), QStringLiteral("12"));
        QCOMPARE(orphanedControl.text(), QStringLiteral("12"));
        QCOMPARE(wrongKind.value(), 0);
    }
}

KX_TEST_MAIN(DataExchangeTest)
#include "tst_data_exchange.moc"
