// SPDX-License-Identifier: MIT
// CEdit over line edits, text edits and spin boxes, and where there is none of them.

#include "KxClassLayout.h"
#include "KxResultNumber.h"
#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QDateEdit>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTextEdit>

#include <afxwin.h>

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <type_traits>

/// A caller that goes through a pointer to no object of this class, on purpose.
#define KX_CALLS_THROUGH_FOREIGN_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
using EditCall = qint64 (*)(CEdit *);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(EditCall)

namespace {

QString qt(const CString &string)
{
    return QString::fromWCharArray(string, string.GetLength());
}

/// A control over a widget of its own.
template<class Widget>
struct Edit {
    Edit() { control.Attach(KxHwndFromWidget(&widget)); }

    Widget widget;
    CEdit control;
};

class TalkingEdit : public CEdit
{
public:
    using CEdit::GetWindowTextW;
    void GetWindowTextW(CString &text) const override { text = L"its own"; }
};

/// What a control gives as its text, with "before" in the string.
QString textOf(const CEdit &control)
{
    CString text(L"before");
    control.GetWindowTextW(text);
    return qt(text);
}

} // namespace

class ControlsEditTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void layout();
    void member_data();
    void member();
    void spinBoxText_data();
    void spinBoxText();
    void guard_data();
    void guard();
};

void ControlsEditTest::layout()
{
    QCOMPARE(overridden(CEdit()), (QList<int>{11, 12, 13}));
    QCOMPARE(slotCount<CEdit>(), 20);
    QCOMPARE(sizeof(CEdit), sizeof(CWnd));
    QVERIFY((std::is_base_of_v<CWnd, CEdit>));
}

void ControlsEditTest::member_data()
{
    QTest::addColumn<Promise>("promise");
    const auto row = [](const char *name, Promise promise) { QTest::newRow(name) << promise; };

    row("SetWindowTextW of a line edit sets the text and tells it", [] {
        Edit<QLineEdit> edit;
        QSignalSpy spy(&edit.widget, &QLineEdit::textChanged);
        edit.control.SetWindowTextW(L"text");
        QCOMPARE(edit.widget.text(), QStringLiteral("text"));
        QCOMPARE(spy.count(), 1);
        edit.control.SetWindowTextW(L"");
        QVERIFY(edit.widget.text().isEmpty());
    });
    row("SetWindowTextW of a text edit sets the text and tells it", [] {
        Edit<QTextEdit> edit;
        QSignalSpy spy(&edit.widget, &QTextEdit::textChanged);
        edit.control.SetWindowTextW(L"one\ntwo");
        QCOMPARE(edit.widget.toPlainText(), QStringLiteral("one\ntwo"));
        QVERIFY(spy.count() > 0);
        edit.control.SetWindowTextW(L"<b>bold</b>"); // As QTextEdit::setText() takes it.
        QCOMPARE(edit.widget.toPlainText(), QStringLiteral("bold"));
    });
    row("SetWindowTextW leaves a host's signal block of a line or text edit", [] {
        Edit<QLineEdit> line;
        line.widget.blockSignals(true);
        line.control.SetWindowTextW(L"text");
        QVERIFY(line.widget.signalsBlocked());
        Edit<QTextEdit> text;
        text.widget.blockSignals(true);
        text.control.SetWindowTextW(L"text");
        QVERIFY(text.widget.signalsBlocked());
    });
    row("SetWindowTextW of another spin box or a label does nothing", [] {
        Edit<QDateEdit> date;
        date.widget.setDate(QDate(2020, 2, 3));
        date.control.SetWindowTextW(L"2021");
        QCOMPARE(date.widget.date(), QDate(2020, 2, 3));
        QVERIFY(date.widget.windowTitle().isEmpty());
        Edit<QLabel> label;
        label.widget.setText(QStringLiteral("label"));
        label.control.SetWindowTextW(L"text");
        QCOMPARE(label.widget.text(), QStringLiteral("label"));
        Edit<QWidget> other;
        other.control.SetWindowTextW(L"text");
        QVERIFY(other.widget.windowTitle().isEmpty());
    });
    row("SetWindowTextW of null does nothing, anywhere", [] {
        Edit<QLineEdit> line;
        line.widget.setText(QStringLiteral("text"));
        line.control.SetWindowTextW(nullptr);
        QCOMPARE(line.widget.text(), QStringLiteral("text"));
        Edit<QSpinBox> spin;
        spin.widget.setValue(7);
        spin.widget.blockSignals(true);
        spin.control.SetWindowTextW(nullptr);
        QCOMPARE(spin.widget.value(), 7);
        QVERIFY(spin.widget.signalsBlocked());
        Edit<QDoubleSpinBox> real;
        real.widget.setValue(7.5);
        real.control.SetWindowTextW(nullptr);
        QCOMPARE(real.widget.value(), 7.5);
        Edit<QTextEdit> text;
        text.widget.setPlainText(QStringLiteral("text"));
        text.control.SetWindowTextW(nullptr);
        QCOMPARE(text.widget.toPlainText(), QStringLiteral("text"));
        CEdit unbound;
        unbound.SetWindowTextW(nullptr);
    });
    row("GetWindowTextW of a line edit", [] {
        Edit<QLineEdit> edit;
        QCOMPARE(textOf(edit.control), QString());
        edit.widget.setText(QStringLiteral("text"));
        QCOMPARE(textOf(edit.control), QStringLiteral("text"));
    });
    row("GetWindowTextW of a spin box, prefix and suffix included", [] {
        Edit<QSpinBox> spin;
        spin.widget.setPrefix(QStringLiteral("<"));
        spin.widget.setSuffix(QStringLiteral(" mm"));
        spin.widget.setValue(7);
        QCOMPARE(textOf(spin.control), QStringLiteral("<7 mm"));
        Edit<QDoubleSpinBox> real;
        real.widget.setLocale(QLocale::c());
        real.widget.setSuffix(QStringLiteral(" mm"));
        real.widget.setValue(7.5);
        QCOMPARE(textOf(real.control), QStringLiteral("7.50 mm"));
    });
    row("GetWindowTextW of any other spin box", [] {
        Edit<QDateEdit> date;
        date.widget.setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        date.widget.setDate(QDate(2020, 2, 3));
        QCOMPARE(textOf(date.control), QStringLiteral("2020-02-03"));
    });
    row("GetWindowTextW of a text edit leaves the string, and the buffer form is empty", [] {
        Edit<QTextEdit> edit;
        edit.control.SetWindowTextW(L"text");
        QCOMPARE(textOf(edit.control), QStringLiteral("before"));
        wchar_t buffer[] = L"####";
        QCOMPARE(edit.control.GetWindowTextW(buffer, 4), 0);
        QVERIFY(buffer[0] == L'\0');
        QCOMPARE(edit.control.GetWindowTextLengthW(), 0);
    });
    row("GetWindowTextW of a label or of nothing leaves the string", [] {
        Edit<QLabel> label;
        label.widget.setText(QStringLiteral("label"));
        QCOMPARE(textOf(label.control), QStringLiteral("before"));
        QCOMPARE(textOf(CEdit()), QStringLiteral("before"));
    });
    row("GetWindowTextW(buffer) cuts to nMax - 1 and always terminates", [] {
        Edit<QLineEdit> edit;
        edit.widget.setText(QStringLiteral("text"));
        wchar_t buffer[] = L"########";
        QCOMPARE(edit.control.GetWindowTextW(buffer, 4), 3);
        QCOMPARE(std::wcscmp(buffer, L"tex"), 0);
        QVERIFY(buffer[4] == L'#');
        QCOMPARE(edit.control.GetWindowTextW(buffer, 5), 4);
        QCOMPARE(std::wcscmp(buffer, L"text"), 0);
        QCOMPARE(edit.control.GetWindowTextW(buffer, 8), 4);
        QVERIFY(buffer[7] == L'\0');
    });
    row("GetWindowTextW(buffer, 1) writes a zero only and gives 0", [] {
        Edit<QLineEdit> edit;
        edit.widget.setText(QStringLiteral("text"));
        wchar_t buffer[] = L"##";
        QCOMPARE(edit.control.GetWindowTextW(buffer, 1), 0);
        QVERIFY(buffer[0] == L'\0' && buffer[1] == L'#');
    });
    row("GetWindowTextW(buffer, 0) and (buffer, -1) give 0 and write nothing", [] {
        Edit<QLineEdit> edit;
        edit.widget.setText(QStringLiteral("text"));
        wchar_t buffer[] = L"##";
        QCOMPARE(edit.control.GetWindowTextW(buffer, 0), 0);
        QCOMPARE(edit.control.GetWindowTextW(buffer, -1), 0);
        QCOMPARE(std::wcscmp(buffer, L"##"), 0);
    });
    row("GetWindowTextW(buffer) asks the object's own GetWindowTextW(string)", [] {
        QLineEdit widget;
        TalkingEdit control;
        control.Attach(KxHwndFromWidget(&widget));
        wchar_t buffer[10] = {};
        QCOMPARE(control.GetWindowTextW(buffer, 10), 7);
        QCOMPARE(std::wcscmp(buffer, L"its own"), 0);
        QCOMPARE(control.GetWindowTextLengthW(), 7);
    });
    row("GetWindowTextLengthW is the length of the text", [] {
        Edit<QLineEdit> edit;
        QCOMPARE(edit.control.GetWindowTextLengthW(), 0);
        edit.widget.setText(QStringLiteral("text"));
        QCOMPARE(edit.control.GetWindowTextLengthW(), 4);
        Edit<QSpinBox> spin;
        spin.widget.setSuffix(QStringLiteral(" mm"));
        QCOMPARE(spin.control.GetWindowTextLengthW(), 4);
    });
    row("SetReadOnly of a line edit and a text edit", [] {
        Edit<QLineEdit> line;
        Edit<QTextEdit> text;
        for (const bool on : {true, false, true}) {
            line.control.SetReadOnly(on);
            text.control.SetReadOnly(on);
            QCOMPARE(line.widget.isReadOnly(), on);
            QCOMPARE(text.widget.isReadOnly(), on);
        }
    });
    row("SetReadOnly of a spin box does nothing", [] {
        Edit<QSpinBox> spin;
        Edit<QDoubleSpinBox> real;
        QCOMPARE(spin.control.SetReadOnly(TRUE), FALSE);
        QCOMPARE(real.control.SetReadOnly(TRUE), FALSE);
        QVERIFY(!spin.widget.isReadOnly());
        QVERIFY(!real.widget.isReadOnly());
    });
    row("SetLimitText of a line edit is its maxLength", [] {
        Edit<QLineEdit> edit;
        edit.widget.setText(QStringLiteral("a longer text"));
        edit.control.SetLimitText(4);
        QCOMPARE(edit.widget.maxLength(), 4);
        QCOMPARE(edit.widget.text(), QStringLiteral("a lo"));
    });
    row("SetLimitText of other kinds does nothing", [] {
        Edit<QTextEdit> text;
        text.widget.setPlainText(QStringLiteral("text"));
        text.control.SetLimitText(2);
        QCOMPARE(text.widget.toPlainText(), QStringLiteral("text"));
        Edit<QSpinBox> spin;
        spin.widget.setMaximum(1000);
        spin.widget.setValue(1000);
        spin.control.SetLimitText(2);
        QCOMPARE(spin.widget.value(), 1000);
        QCOMPARE(spin.widget.text(), QStringLiteral("1000"));
    });
    row("GetLine fills with zeros and copies the text, whatever line", [] {
        Edit<QLineEdit> edit;
        edit.widget.setText(QStringLiteral("text"));
        for (const int line : {0, 3, -1}) {
            wchar_t buffer[] = L"########";
            QCOMPARE(edit.control.GetLine(line, buffer, 7), 4);
            QCOMPARE(std::wcscmp(buffer, L"text"), 0);
            QVERIFY(buffer[5] == L'\0' && buffer[6] == L'\0' && buffer[7] == L'#');
        }
    });
    row("GetLine of a text of nMax or more leaves no zero", [] {
        Edit<QLineEdit> edit;
        edit.widget.setText(QStringLiteral("text"));
        wchar_t buffer[] = L"########";
        QCOMPARE(edit.control.GetLine(0, buffer, 4), 4);
        QCOMPARE(std::wcscmp(buffer, L"text####"), 0);
        wchar_t cut[] = L"########";
        QCOMPARE(edit.control.GetLine(0, cut, 2), 2);
        QCOMPARE(std::wcscmp(cut, L"te######"), 0);
    });
    row("GetLine of other kinds gives 0 and writes nothing", [] {
        Edit<QTextEdit> text;
        text.widget.setPlainText(QStringLiteral("text"));
        Edit<QSpinBox> spin;
        wchar_t buffer[] = L"####";
        QCOMPARE(text.control.GetLine(0, buffer, 4), 0);
        QCOMPARE(spin.control.GetLine(0, buffer, 4), 0);
        QCOMPARE(CEdit().GetLine(0, buffer, 4), 0);
        QCOMPARE(std::wcscmp(buffer, L"####"), 0);
    });
    row("members with fixed results change nothing", [] {
        Edit<QLineEdit> edit;
        edit.widget.setText(QStringLiteral("text"));
        edit.widget.setSelection(1, 2);
        edit.widget.setModified(false);
        QSignalSpy changed(&edit.widget, &QLineEdit::textChanged);
        QSignalSpy selected(&edit.widget, &QLineEdit::selectionChanged);
        edit.control.SetSel(0, 4);
        edit.control.SetSel(0, -1, TRUE);
        edit.control.SetSel(0xFFFF0000u);
        QCOMPARE(edit.control.GetSel(), 0u);
        int start = -7;
        int end = -8;
        edit.control.GetSel(start, end);
        QCOMPARE(start, -7);
        QCOMPARE(end, -8);
        edit.control.ReplaceSel(L"new");
        QVERIFY(edit.control.GetModify());
        edit.control.SetModify(TRUE);
        QVERIFY(!edit.widget.isModified());
        edit.control.SetModify(FALSE);
        QVERIFY(edit.control.GetModify());
        QVERIFY(edit.control.Undo());
        edit.control.Clear();
        edit.control.Copy();
        edit.control.Cut();
        edit.control.Paste();
        QCOMPARE(edit.widget.text(), QStringLiteral("text"));
        QCOMPARE(edit.widget.selectedText(), QStringLiteral("ex"));
        QCOMPARE(changed.count() + selected.count(), 0);
    });
    row("the destructor leaves the widget and its text", [] {
        QLineEdit widget;
        {
            CEdit control;
            control.Attach(KxHwndFromWidget(&widget));
            control.SetWindowTextW(L"stays");
        }
        QCOMPARE(widget.text(), QStringLiteral("stays"));
        QVERIFY(CWnd::FromHandle(KxHwndFromWidget(&widget)) == nullptr);
    });
}

void ControlsEditTest::member()
{
    QFETCH(Promise, promise);
    promise();
}

void ControlsEditTest::spinBoxText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");
    QTest::addColumn<double>("real");
    const auto row = [](const char *name, const char *text, int value, double real) {
        QTest::newRow(name) << QString::fromLatin1(text) << value << real;
    };
    row("a number", "12", 12, 12.0);
    row("a negative number", "-12", -12, -12.0);
    row("a real number", "2.5", 0, 2.5);
    row("an exponent", "1e1", 0, 10.0);
    row("a comma", "2,5", 0, 0.0);
    row("no number", "text", 0, 0.0);
    row("nothing", "", 0, 0.0);
    row("a number and more", "12 mm", 0, 0.0);
    row("a hexadecimal number", "0x10", 0, 0.0);
    row("a leading zero is no octal", "010", 10, 10.0);
    row("too much", "5000", 1000, 1000.0);
    row("too little", "-5000", -1000, -1000.0);
}

/// Both spin boxes, quietly, with signals open afterwards, where the host had blocked them before too.
void ControlsEditTest::spinBoxText()
{
    QFETCH(QString, text);
    QFETCH(int, value);
    QFETCH(double, real);
    const std::wstring wide = text.toStdWString();
    for (const bool blockedBefore : {false, true}) {
        Edit<QSpinBox> spin;
        spin.widget.setRange(-1000, 1000);
        spin.widget.setValue(77);
        QSignalSpy spy(&spin.widget, QOverload<int>::of(&QSpinBox::valueChanged));
        QSignalSpy textSpy(&spin.widget, &QSpinBox::textChanged);
        spin.widget.blockSignals(blockedBefore);
        spin.control.SetWindowTextW(wide.c_str());
        QCOMPARE(spin.widget.value(), value);
        QCOMPARE(spy.count() + textSpy.count(), 0);
        QVERIFY(!spin.widget.signalsBlocked());
        spin.widget.setValue(78);
        QCOMPARE(spy.count(), 1); // It does tell when the host does it.

        Edit<QDoubleSpinBox> box;
        box.widget.setRange(-1000, 1000);
        box.widget.setValue(77.0);
        QSignalSpy boxSpy(&box.widget, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        QSignalSpy boxTextSpy(&box.widget, &QDoubleSpinBox::textChanged);
        box.widget.blockSignals(blockedBefore);
        box.control.SetWindowTextW(wide.c_str());
        QCOMPARE(box.widget.value(), real);
        QCOMPARE(boxSpy.count() + boxTextSpy.count(), 0);
        QVERIFY(!box.widget.signalsBlocked());
        box.widget.setValue(78.0);
        QCOMPARE(boxSpy.count(), 1);
    }
}

void ControlsEditTest::guard_data()
{
    QTest::addColumn<EditCall>("call");
    QTest::addColumn<qint64>("without");
    const auto row = [](const char *name, EditCall call, qint64 without = 0) {
        QTest::newRow(name) << call << without;
    };
#define KX_CALL(expression) \
    [](CEdit *c) KX_CALLS_THROUGH_FOREIGN_POINTER -> qint64 { return number(expression); }
#define KX_DO(statements) \
    [](CEdit *c) KX_CALLS_THROUGH_FOREIGN_POINTER -> qint64 { statements; return 0; }
    row("SetReadOnly", KX_CALL(c->SetReadOnly(TRUE)));
    row("SetLimitText", KX_DO(c->SetLimitText(2)));
    row("GetLine", KX_DO(wchar_t text[9] = {}; return c->GetLine(0, text, 9)));
    row("GetWindowTextLengthW", KX_CALL(c->GetWindowTextLengthW()));
    row("SetSel", KX_DO(c->SetSel(0u)));
    row("SetSel of two", KX_DO(c->SetSel(0, 1)));
    row("GetSel", KX_CALL(c->GetSel()));
    row("GetSel of two", KX_DO(int start = 0; int end = 0; c->GetSel(start, end); return start + end));
    row("ReplaceSel", KX_DO(c->ReplaceSel(L"new")));
    row("GetModify", KX_CALL(c->GetModify()), 1);
    row("SetModify", KX_DO(c->SetModify(TRUE)));
    row("Undo", KX_CALL(c->Undo()), 1);
    row("Clear", KX_DO(c->Clear()));
    row("Copy", KX_DO(c->Copy()));
    row("Cut", KX_DO(c->Cut()));
    row("Paste", KX_DO(c->Paste()));
#undef KX_CALL
#undef KX_DO
}

/// Each member on no widget, on one that is gone to another object, on a widget of another kind, through
/// small pointers, and on an object that is only a CWnd, where it does what it does on a CEdit.
void ControlsEditTest::guard()
{
    QFETCH(EditCall, call);
    QFETCH(qint64, without);

    CEdit unbound;
    QCOMPARE(call(&unbound), without);

    Edit<QLineEdit> orphaned;
    orphaned.widget.setText(QStringLiteral("text"));
    CEdit owner;
    owner.Attach(KxHwndFromWidget(&orphaned.widget));
    QCOMPARE(call(&orphaned.control), without);
    QCOMPARE(orphaned.widget.text(), QStringLiteral("text"));
    QVERIFY(!orphaned.widget.isReadOnly());

    Edit<QLabel> label;
    label.widget.setText(QStringLiteral("text"));
    QCOMPARE(call(&label.control), without);
    QCOMPARE(label.widget.text(), QStringLiteral("text"));

    for (const quintptr pointer : {quintptr(0), quintptr(7), quintptr(4095)})
        call(reinterpret_cast<CEdit *>(pointer));

    Edit<QLineEdit> bound;
    QLineEdit item;
    QWidget form;
    CWnd window(nullptr);
    window.Attach(KxHwndFromWidget(&form));
    window.SetDlgItem(7, KxHwndFromWidget(&item));
    bound.widget.setText(QStringLiteral("text"));
    item.setText(QStringLiteral("text"));
    const qint64 expected = call(&bound.control);
    QCOMPARE(call(static_cast<CEdit *>(window.GetDlgItem(7))), expected);
    QCOMPARE(item.text(), bound.widget.text());
    QCOMPARE(item.isReadOnly(), bound.widget.isReadOnly());
    QCOMPARE(item.maxLength(), bound.widget.maxLength());
}

KX_TEST_MAIN(ControlsEditTest)
#include "tst_controls_edit.moc"
