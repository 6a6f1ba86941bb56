// SPDX-License-Identifier: MIT
// Dialog data exchange of numbers and texts.

#include "KxCommaLocale.h"
#include "KxExchangeForm.h"
#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>

#include <afxwin.h>

#include <KxAfxDDX.h>

#include <clocale>
#include <cwchar>
#include <limits>
#include <string>
#include <type_traits>

using Promise = void (*)();
using TextRun = QString (*)(bool save, const QString &shown, const QString &member);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(TextRun)

namespace {

HWND handleOf(QWidget *widget)
{
    return KxHwndFromWidget(widget);
}

constexpr int id = 7;

QString textOf(const CStdStr<wchar_t> &text)
{
    return QString::fromStdWString(text);
}

/// The member after a save that finds `shown` in a line edit, or the line edit's text after a load.
template<class Value>
QString exchanged(bool save, const QString &shown, Value member)
{
    KxExchangeForm<QLineEdit> form;
    form.control.setText(shown);
    Value value = member;
    form.exchange<Value>(save, DDX_Text, value);
    if (!save && value != member)
        return QStringLiteral("a load changed the member");
    if constexpr (std::is_floating_point_v<Value>)
        return save ? QString::number(value, 'g', 17) : form.control.text();
    else
        return save ? QString::number(value) : form.control.text();
}

template<class Value>
QString runNumber(bool save, const QString &shown, const QString &member)
{
    if constexpr (std::is_floating_point_v<Value>)
        return exchanged<Value>(save, shown, static_cast<Value>(member.toDouble()));
    else if constexpr (std::is_unsigned_v<Value>)
        return exchanged<Value>(save, shown, static_cast<Value>(member.toULongLong()));
    else
        return exchanged<Value>(save, shown, static_cast<Value>(member.toLongLong()));
}

QString runString(bool save, const QString &shown, const QString &member)
{
    KxExchangeForm<QLineEdit> form;
    form.control.setText(shown);
    CStdStr<wchar_t> value(member.toStdWString());
    form.exchange<CStdStr<wchar_t>>(save, DDX_Text, value);
    return save ? textOf(value) : form.control.text();
}

/// A buffer of five characters, the fifth for the terminating zero.
QString runBuffer(bool save, const QString &shown, const QString &member)
{
    KxExchangeForm<QLineEdit> form;
    form.control.setText(shown);
    wchar_t buffer[5] = {};
    member.left(4).toWCharArray(buffer);
    form.window.body = [&](CDataExchange *pass) { DDX_Text(pass, id, buffer, 5); };
    form.window.UpdateData(save);
    return save ? QString::fromWCharArray(buffer) : form.control.text();
}

/// Has a text of its own and keeps what it is given.
class TalkingWnd : public CWnd
{
public:
    TalkingWnd() : CWnd(nullptr) {}

    using CWnd::GetWindowTextW;
    void SetWindowTextW(const wchar_t *text) override { received = text; }
    void GetWindowTextW(CStdStr<wchar_t> &text) const override { text = L"34"; }
    int GetWindowTextW(wchar_t *buffer, int max) const override
    {
        return max > 2 ? static_cast<int>(std::wcslen(std::wcscpy(buffer, L"56"))) : 0;
    }

    std::wstring received;
};

constexpr char needsCommaLocale[] = "needs a locale with a decimal comma: the build makes one";

} // namespace

class DataExchangeTextTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void text_data();
    void text();
    void textControls_data();
    void textControls() { runPromise(); }
    void numbersHaveAPoint_data();
    void numbersHaveAPoint() { runPromise(); }

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void DataExchangeTextTest::text_data()
{
    QTest::addColumn<TextRun>("run");
    QTest::addColumn<bool>("save");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("expected");

    const auto save = [](const char *name, TextRun run, const char *shown, const char *member,
                         const char *expected) {
        QTest::newRow(name) << run << true << shown << member << expected;
    };
    const auto load = [](const char *name, TextRun run, const char *member, const char *expected) {
        QTest::newRow(name) << run << false << "before" << member << expected;
    };

    const TextRun byteRun = runNumber<unsigned char>;
    save("unsigned char saves 200", byteRun, "200", "1", "200");
    save("unsigned char saves 300 as 44", byteRun, "300", "1", "44");
    save("unsigned char saves -1 as 255", byteRun, "-1", "1", "255");
    save("unsigned char keeps its value for an empty text", byteRun, "", "77", "77");
    save("unsigned char saves letters as 0", byteRun, "abc", "77", "0");
    load("unsigned char loads 200", byteRun, "200", "200");

    const TextRun shortRun = runNumber<short>;
    save("short saves -300", shortRun, "-300", "1", "-300");
    save("short saves 70000 as 4464", shortRun, "70000", "1", "4464");
    save("short saves 40000 as -25536", shortRun, "40000", "1", "-25536");
    save("short keeps its value for an empty text", shortRun, "", "77", "77");
    load("short loads -300", shortRun, "-300", "-300");

    const TextRun intRun = runNumber<int>;
    save("int saves 12", intRun, "12", "1", "12");
    save("int keeps its value for an empty text", intRun, "", "77", "77");
    save("int saves letters as 0", intRun, "abc", "77", "0");
    save("int saves 12 followed by letters as 12", intRun, "12abc", "77", "12");
    save("int saves blanks and -12 as -12", intRun, "  -12", "77", "-12");
    save("int saves +12 as 12", intRun, "+12", "77", "12");
    save("int saves 12.9 as 12", intRun, "12.9", "77", "12");
    save("int saves a single blank as 0: it is not empty", intRun, " ", "77", "0");
    save("int saves a lone sign as 0", intRun, "-", "77", "0");
    save("int saves 2147483647", intRun, "2147483647", "1", "2147483647");
    save("int saves -2147483648", intRun, "-2147483648", "1", "-2147483648");
    load("int loads -2147483648", intRun, "-2147483648", "-2147483648");
    load("int loads 0", intRun, "0", "0");

    const TextRun unsignedRun = runNumber<unsigned int>;
    save("unsigned int saves 12", unsignedRun, "12", "1", "12");
    save("unsigned int saves -1 as 4294967295", unsignedRun, "-1", "1", "4294967295");
    save("unsigned int keeps its value for an empty text", unsignedRun, "", "77", "77");
    load("unsigned int loads 2147483647", unsignedRun, "2147483647", "2147483647");
    load("unsigned int loads 2147483648 as -2147483648", unsignedRun, "2147483648", "-2147483648");
    load("unsigned int loads 4294967295 as -1", unsignedRun, "4294967295", "-1");

    const TextRun longRun = runNumber<long>;
    save("long saves 9000000000", longRun, "9000000000", "1", "9000000000");
    save("long saves -9000000000 and letters", longRun, "-9000000000mm", "1", "-9000000000");
    save("long keeps its value for an empty text", longRun, "", "77", "77");
    load("long loads -9000000000", longRun, "-9000000000", "-9000000000");

    const TextRun unsignedLongRun = runNumber<unsigned long>;
    save("unsigned long saves 9000000000", unsignedLongRun, "9000000000", "1", "9000000000");
    save("unsigned long saves -1 as 18446744073709551615", unsignedLongRun, "-1", "1",
         "18446744073709551615");
    save("unsigned long keeps its value for an empty text", unsignedLongRun, "", "77", "77");
    load("unsigned long loads 9000000000", unsignedLongRun, "9000000000", "9000000000");
    load("unsigned long loads 18446744073709551615 as -1", unsignedLongRun, "18446744073709551615", "-1");

    const TextRun floatRun = runNumber<float>;
    save("float saves 1.5", floatRun, "1.5", "1", "1.5");
    save("float saves 0.1 narrowed", floatRun, "0.1", "1", "0.10000000149011612");
    save("float keeps its value for an empty text", floatRun, "", "77", "77");
    save("float saves letters as 0", floatRun, "abc", "77", "0");
    load("float loads 1.5 as 1.500000", floatRun, "1.5", "1.500000");

    const TextRun doubleRun = runNumber<double>;
    save("double saves 2.5", doubleRun, "2.5", "1", "2.5");
    save("double saves -2.5e3 as -2500", doubleRun, "-2.5e3", "1", "-2500");
    save("double saves 2.5E-1mm as 0.25", doubleRun, "2.5E-1mm", "1", "0.25");
    save("double saves blanks and .5 as 0.5", doubleRun, "  .5", "1", "0.5");
    save("double saves 2,5 as 2: the comma ends the number", doubleRun, "2,5", "1", "2");
    save("double keeps its value for an empty text", doubleRun, "", "77", "77");
    save("double saves letters as 0", doubleRun, "abc", "77", "0");
    load("double loads 2.5 as 2.500000", doubleRun, "2.5", "2.500000");
    load("double loads 0.0000004 as 0.000000", doubleRun, "0.0000004", "0.000000");
    load("double loads -1234567890.125 as -1234567890.125000", doubleRun, "-1234567890.125",
         "-1234567890.125000");

    save("a text saves as it is", runString, " 12 ", "before", " 12 ");
    save("a text saves an empty text too", runString, "", "before", "");
    load("a text loads as it is", runString, " %d ", " %d ");
    load("an empty text clears the control", runString, "", "");

    save("a buffer of 5 saves 3 characters", runBuffer, "abc", "xxxx", "abc");
    save("a buffer of 5 saves the first 4 of 6 characters", runBuffer, "abcdef", "xxxx", "abcd");
    save("a buffer of 5 saves an empty text", runBuffer, "", "xxxx", "");
    load("a buffer loads its text as it is", runBuffer, "a%db", "a%db");
}

void DataExchangeTextTest::text()
{
    QFETCH(TextRun, run);
    QFETCH(bool, save);
    QFETCH(QString, shown);
    QFETCH(QString, member);
    QFETCH(QString, expected);
    QCOMPARE(run(save, shown, member), expected);
}

void DataExchangeTextTest::textControls_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("an int loads into a spin box by its number, silently") << Promise([] {
        KxExchangeForm<QSpinBox> form;
        form.control.setRange(0, 100);
        QSignalSpy changed(&form.control, QOverload<int>::of(&QSpinBox::valueChanged));
        int value = 42;
        form.exchange<int>(false, DDX_Text, value);
        QCOMPARE(form.control.value(), 42);
        QCOMPARE(changed.size(), 0);
    });
    QTest::newRow("an int saves from the displayed text of a spin box, up to its suffix") << Promise([] {
        KxExchangeForm<QSpinBox> form;
        form.control.setSuffix(QStringLiteral(" mm"));
        form.control.setValue(42);
        int value = 1;
        form.exchange<int>(true, DDX_Text, value);
        QCOMPARE(value, 42);
    });
    QTest::newRow("an int saves 0 from a spin box that displays \"x42\"") << Promise([] {
        KxExchangeForm<QSpinBox> form;
        form.control.setPrefix(QStringLiteral("x"));
        form.control.setValue(42);
        int value = 1;
        form.exchange<int>(true, DDX_Text, value);
        QCOMPARE(value, 0);
    });
    QTest::newRow("a double goes into a spin box of fractions and comes back") << Promise([] {
        KxExchangeForm<QDoubleSpinBox> form;
        form.control.setLocale(QLocale::c());
        double value = 2.5;
        form.exchange<double>(false, DDX_Text, value);
        QCOMPARE(form.control.value(), 2.5);
        value = 0;
        form.exchange<double>(true, DDX_Text, value);
        QCOMPARE(value, 2.5);
    });
    QTest::newRow("a text loads into a label and a window title") << Promise([] {
        KxExchangeForm<QLabel> label;
        CStdStr<wchar_t> value(L"text");
        label.exchange<CStdStr<wchar_t>>(false, DDX_Text, value);
        QCOMPARE(label.control.text(), QStringLiteral("text"));
        KxExchangeForm<QSlider> slider;
        slider.exchange<CStdStr<wchar_t>>(false, DDX_Text, value);
        QCOMPARE(slider.control.windowTitle(), QStringLiteral("text"));
    });
    QTest::newRow("a save asks the control object's own GetWindowText") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        form.control.setText(QStringLiteral("12"));
        TalkingWnd edit;
        edit.Attach(handleOf(&form.control));
        int number = 0;
        form.exchange<int>(true, DDX_Text, number);
        QCOMPARE(number, 34);
        CStdStr<wchar_t> value;
        form.exchange<CStdStr<wchar_t>>(true, DDX_Text, value);
        QCOMPARE(textOf(value), QStringLiteral("34"));
        wchar_t buffer[5] = {};
        form.window.body = [&](CDataExchange *pass) { DDX_Text(pass, id, buffer, 5); };
        form.window.UpdateData(TRUE);
        QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("56"));
    });
    QTest::newRow("a load calls the control object's own SetWindowText") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        TalkingWnd edit;
        edit.Attach(handleOf(&form.control));
        double number = 2.5;
        form.exchange<double>(false, DDX_Text, number);
        QVERIFY(edit.received == L"2.500000");
        CStdStr<wchar_t> value(L"text");
        form.exchange<CStdStr<wchar_t>>(false, DDX_Text, value);
        QVERIFY(edit.received == L"text");
        QCOMPARE(form.control.text(), QString());
    });
    QTest::newRow("a buffer of 5 with max 1 saves an empty text, with max 0 nothing") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        form.control.setText(QStringLiteral("text"));
        wchar_t buffer[5] = L"####";
        form.window.body = [&](CDataExchange *pass) { DDX_Text(pass, id, buffer, 0); };
        form.window.UpdateData(TRUE);
        QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("####"));
        form.window.body = [&](CDataExchange *pass) { DDX_Text(pass, id, buffer, 1); };
        form.window.UpdateData(TRUE);
        QCOMPARE(QString::fromWCharArray(buffer, 5), QString::fromWCharArray(L"\0###", 5));
    });
    QTest::newRow("the lowest double loads with all its 317 characters") << Promise([] {
        const QString shown = exchanged<double>(false, QString(), -std::numeric_limits<double>::max());
        QCOMPARE(shown.size(), 317);
        QVERIFY(shown.startsWith(QStringLiteral("-17976931348623157")));
        QVERIFY(shown.endsWith(QStringLiteral(".000000")));
    });
    QTest::newRow("a double that is no number loads as nan, infinity as inf") << Promise([] {
        const double infinity = std::numeric_limits<double>::infinity();
        KxExchangeForm<QLineEdit> form;
        double value = infinity - infinity;
        form.exchange<double>(false, DDX_Text, value);
        QVERIFY(form.control.text().contains(QStringLiteral("nan")));
        value = infinity;
        form.exchange<double>(false, DDX_Text, value);
        QCOMPARE(form.control.text(), QStringLiteral("inf"));
    });
    QTest::newRow("the control becomes the dialog's item") << Promise([] {
        KxExchangeForm<QLineEdit> form;
        int value = 1;
        form.exchange<int>(false, DDX_Text, value);
        CWnd *item = CWnd::FromHandle(handleOf(&form.control));
        QVERIFY(item != nullptr);
        QVERIFY(item->GetParent() == &form.window);
        QCOMPARE(item->GetDlgCtrlID(), id);
    });
}

void DataExchangeTextTest::numbersHaveAPoint_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("under a C locale with a comma, a double loads with a point") << Promise([] {
        const CommaLocale locale;
        QVERIFY2(locale.isActive(), needsCommaLocale);
        QCOMPARE(runNumber<double>(false, QString(), QStringLiteral("2.5")), QStringLiteral("2.500000"));
    });
    QTest::newRow("under a C locale with a comma, a float loads with a point") << Promise([] {
        const CommaLocale locale;
        QVERIFY2(locale.isActive(), needsCommaLocale);
        QCOMPARE(runNumber<float>(false, QString(), QStringLiteral("1.5")), QStringLiteral("1.500000"));
    });
    QTest::newRow("under a C locale with a comma, a double saves the fraction behind a point") << Promise([] {
        const CommaLocale locale;
        QVERIFY2(locale.isActive(), needsCommaLocale);
        QCOMPARE(runNumber<double>(true, QStringLiteral("2.5"), QStringLiteral("1")), QStringLiteral("2.5"));
    });
    QTest::newRow("under a C locale with a comma, the comma ends a number") << Promise([] {
        const CommaLocale locale;
        QVERIFY2(locale.isActive(), needsCommaLocale);
        QCOMPARE(runNumber<float>(true, QStringLiteral("2,5"), QStringLiteral("1")), QStringLiteral("2"));
    });
    QTest::newRow("under a Qt locale with a comma, a double loads and saves with a point") << Promise([] {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        const QString loaded = runNumber<double>(false, QString(), QStringLiteral("2.5"));
        const QString saved = runNumber<double>(true, QStringLiteral("2.5"), QStringLiteral("1"));
        QLocale::setDefault(before);
        QCOMPARE(loaded, QStringLiteral("2.500000"));
        QCOMPARE(saved, QStringLiteral("2.5"));
    });
}

KX_TEST_MAIN(DataExchangeTextTest)
#include "tst_data_exchange_text.moc"
