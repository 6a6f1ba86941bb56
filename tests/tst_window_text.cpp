// SPDX-License-Identifier: MIT
// The text of windows: what is set and read on each kind of widget, and the buffer form.

#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QTimeEdit>
#include <QtWidgets/QToolButton>

#include <afxwin.h>

#include <memory>
#include <string>
#include <vector>

using Promise = void (*)();
using Maker = QWidget *(*)();
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(Maker)

namespace {

HWND handleOf(QWidget *widget)
{
    return KxHwndFromWidget(widget);
}

/// A widget and the object that is bound to it.
class Bound
{
public:
    explicit Bound(QWidget *owned) : m_widget(owned) { m_window.Attach(handleOf(owned)); }

    QWidget *widget() const { return m_widget.get(); }
    CWnd *operator->() { return &m_window; }

    QString text() const
    {
        CStdStr<wchar_t> text(L"not assigned");
        m_window.GetWindowTextW(text);
        return QString::fromStdWString(text);
    }

private:
    std::unique_ptr<QWidget> m_widget;
    CWnd m_window{nullptr};
};

template<class Widget>
QWidget *make()
{
    return new Widget;
}

template<class Widget>
QWidget *makeWithText()
{
    return new Widget(QStringLiteral("shown"));
}

/// From -10 to 99, at 7.
QWidget *makeSpinBox()
{
    auto *box = new QSpinBox;
    box->setRange(-10, 99);
    box->setValue(7);
    return box;
}

/// From -10 to 99.99 with two decimals, at 7.
QWidget *makeDoubleSpinBox()
{
    auto *box = new QDoubleSpinBox;
    box->setLocale(QLocale::c());
    box->setRange(-10, 99.99);
    box->setValue(7);
    return box;
}

QWidget *makeComboBox(bool editable)
{
    auto *box = new QComboBox;
    box->setEditable(editable);
    box->addItems({QStringLiteral("first"), QStringLiteral("second")});
    return box;
}

/// Answers a text of its own, five characters long.
class SpeakingWnd : public CWnd
{
public:
    SpeakingWnd() : CWnd(nullptr) {}

    using CWnd::GetWindowTextW;
    void GetWindowTextW(CStdStr<wchar_t> &text) const override { text = L"spoke"; }
};

} // namespace

class WindowTextTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void set_data();
    void set();
    void get_data();
    void get();
    void setAndGet_data();
    void setAndGet() { runPromise(); }
    void buffer_data();
    void buffer();
    void lengths_data();
    void lengths() { runPromise(); }

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void WindowTextTest::set_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<int>("emissions");

    const QString text = QStringLiteral("text");
    const QByteArray textProperty("text");
    const QByteArray value("value");
    const QByteArray currentText("currentText");
    const QByteArray plainText("plainText");
    const QByteArray windowTitle("windowTitle");
    const QByteArray none;

    QTest::newRow("QLineEdit: setText, textChanged told once")
        << Maker(make<QLineEdit>) << text << textProperty << QVariant(text)
        << QByteArray(SIGNAL(textChanged(QString))) << 1;
    QTest::newRow("QLineEdit: textEdited stays silent")
        << Maker(make<QLineEdit>) << text << textProperty << QVariant(text)
        << QByteArray(SIGNAL(textEdited(QString))) << 0;
    QTest::newRow("QLineEdit: an empty text clears it")
        << Maker(makeWithText<QLineEdit>) << QString() << textProperty << QVariant(QString())
        << QByteArray(SIGNAL(textChanged(QString))) << 1;

    const QByteArray doubleChanged(SIGNAL(valueChanged(double)));
    const QByteArray doubleTextChanged(SIGNAL(textChanged(QString)));
    QTest::newRow("QDoubleSpinBox: \"2.5\" is 2.5, valueChanged silent")
        << Maker(makeDoubleSpinBox) << QStringLiteral("2.5") << value << QVariant(2.5) << doubleChanged << 0;
    QTest::newRow("QDoubleSpinBox: \"2.5\", textChanged silent")
        << Maker(makeDoubleSpinBox) << QStringLiteral("2.5") << value << QVariant(2.5)
        << doubleTextChanged << 0;
    QTest::newRow("QDoubleSpinBox: \"-2.5e0\" is -2.5")
        << Maker(makeDoubleSpinBox) << QStringLiteral("-2.5e0") << value << QVariant(-2.5)
        << doubleChanged << 0;
    QTest::newRow("QDoubleSpinBox: \"2,5\" is no number, 0")
        << Maker(makeDoubleSpinBox) << QStringLiteral("2,5") << value << QVariant(0.0) << doubleChanged << 0;
    QTest::newRow("QDoubleSpinBox: \"5 mm\" is no number, 0")
        << Maker(makeDoubleSpinBox) << QStringLiteral("5 mm") << value << QVariant(0.0) << doubleChanged << 0;
    QTest::newRow("QDoubleSpinBox: \"abc\" is no number, 0")
        << Maker(makeDoubleSpinBox) << QStringLiteral("abc") << value << QVariant(0.0) << doubleChanged << 0;
    QTest::newRow("QDoubleSpinBox: an empty text is 0")
        << Maker(makeDoubleSpinBox) << QString() << value << QVariant(0.0) << doubleChanged << 0;
    QTest::newRow("QDoubleSpinBox: \"1000\" ends at the maximum 99.99")
        << Maker(makeDoubleSpinBox) << QStringLiteral("1000") << value << QVariant(99.99)
        << doubleChanged << 0;
    QTest::newRow("QDoubleSpinBox that displays a comma still reads \"2.5\" as 2.5")
        << Maker([]() -> QWidget * {
               auto *box = new QDoubleSpinBox;
               box->setLocale(QLocale(QLocale::German));
               return box;
           })
        << QStringLiteral("2.5") << value << QVariant(2.5) << doubleChanged << 0;

    const QByteArray intChanged(SIGNAL(valueChanged(int)));
    QTest::newRow("QSpinBox: \"42\" is 42, valueChanged silent")
        << Maker(makeSpinBox) << QStringLiteral("42") << value << QVariant(42) << intChanged << 0;
    QTest::newRow("QSpinBox: \"42\", textChanged silent")
        << Maker(makeSpinBox) << QStringLiteral("42") << value << QVariant(42) << doubleTextChanged << 0;
    QTest::newRow("QSpinBox: \"-5\" is -5")
        << Maker(makeSpinBox) << QStringLiteral("-5") << value << QVariant(-5) << intChanged << 0;
    QTest::newRow("QSpinBox: \"012\" is 12, base 10")
        << Maker(makeSpinBox) << QStringLiteral("012") << value << QVariant(12) << intChanged << 0;
    QTest::newRow("QSpinBox: \"0x10\" is no number of base 10, 0")
        << Maker(makeSpinBox) << QStringLiteral("0x10") << value << QVariant(0) << intChanged << 0;
    QTest::newRow("QSpinBox: \"2.5\" is no whole number, 0")
        << Maker(makeSpinBox) << QStringLiteral("2.5") << value << QVariant(0) << intChanged << 0;
    QTest::newRow("QSpinBox: \"12 mm\" is no number, 0")
        << Maker(makeSpinBox) << QStringLiteral("12 mm") << value << QVariant(0) << intChanged << 0;
    QTest::newRow("QSpinBox: \"-1000\" ends at the minimum -10")
        << Maker(makeSpinBox) << QStringLiteral("-1000") << value << QVariant(-10) << intChanged << 0;

    QTest::newRow("QLabel: setText")
        << Maker(make<QLabel>) << text << textProperty << QVariant(text) << none << 0;
    QTest::newRow("QGroupBox: setTitle")
        << Maker(make<QGroupBox>) << text << QByteArray("title") << QVariant(text) << none << 0;
    QTest::newRow("QPushButton: setText, with the & of its key")
        << Maker(make<QPushButton>) << QStringLiteral("&Save") << textProperty
        << QVariant(QStringLiteral("&Save")) << none << 0;
    QTest::newRow("QCheckBox: setText")
        << Maker(make<QCheckBox>) << text << textProperty << QVariant(text) << none << 0;
    QTest::newRow("QRadioButton: setText")
        << Maker(make<QRadioButton>) << text << textProperty << QVariant(text) << none << 0;
    QTest::newRow("QToolButton: setText")
        << Maker(make<QToolButton>) << text << textProperty << QVariant(text) << none << 0;
    QTest::newRow("QComboBox, editable: the edit text, told once")
        << Maker([] { return makeComboBox(true); }) << text << currentText << QVariant(text)
        << QByteArray(SIGNAL(editTextChanged(QString))) << 1;
    QTest::newRow("QComboBox, editable: the list stays")
        << Maker([] { return makeComboBox(true); }) << text << QByteArray("count") << QVariant(2)
        << none << 0;
    QTest::newRow("QComboBox, editable: the current index stays")
        << Maker([] { return makeComboBox(true); }) << QStringLiteral("second") << QByteArray("currentIndex")
        << QVariant(0) << QByteArray(SIGNAL(currentIndexChanged(int))) << 0;
    QTest::newRow("QComboBox, not editable: nothing, not even for a text of its list")
        << Maker([] { return makeComboBox(false); }) << QStringLiteral("second") << currentText
        << QVariant(QStringLiteral("first")) << QByteArray(SIGNAL(currentIndexChanged(int))) << 0;
    QTest::newRow("QTextEdit: setText, two lines")
        << Maker(make<QTextEdit>) << QStringLiteral("a\nb") << plainText << QVariant(QStringLiteral("a\nb"))
        << none << 0;
    QTest::newRow("QTextEdit: setText, which knows rich text")
        << Maker(make<QTextEdit>) << QStringLiteral("<b>bold</b>") << plainText
        << QVariant(QStringLiteral("bold")) << none << 0;

    const QByteArray titleChanged(SIGNAL(windowTitleChanged(QString)));
    QTest::newRow("QWidget: the window title, told once")
        << Maker(make<QWidget>) << text << windowTitle << QVariant(text) << titleChanged << 1;
    QTest::newRow("QDialog: the window title")
        << Maker(make<QDialog>) << text << windowTitle << QVariant(text) << titleChanged << 1;
    QTest::newRow("QPlainTextEdit, which is no QTextEdit: the window title")
        << Maker(make<QPlainTextEdit>) << text << windowTitle << QVariant(text) << titleChanged << 1;
    QTest::newRow("QTimeEdit, which is no spin box of numbers: the window title")
        << Maker(make<QTimeEdit>) << text << windowTitle << QVariant(text) << titleChanged << 1;
    QTest::newRow("QSlider: the window title")
        << Maker(make<QSlider>) << text << windowTitle << QVariant(text) << titleChanged << 1;
    QTest::newRow("QListWidget: the window title")
        << Maker(make<QListWidget>) << text << windowTitle << QVariant(text) << titleChanged << 1;
}

void WindowTextTest::set()
{
    QFETCH(Maker, maker);
    QFETCH(QString, text);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, expected);
    QFETCH(QByteArray, signal);
    QFETCH(int, emissions);

    Bound window(maker());
    std::unique_ptr<QSignalSpy> spy;
    if (!signal.isEmpty()) {
        spy = std::make_unique<QSignalSpy>(window.widget(), signal.constData());
        QVERIFY(spy->isValid());
    }
    window->SetWindowTextW(text.toStdWString().c_str());
    QCOMPARE(window.widget()->property(property.constData()), expected);
    if (spy)
        QCOMPARE(spy->size(), emissions);
    if (property != "windowTitle")
        QCOMPARE(window.widget()->windowTitle(), QString()); // Only the first match is set.
}

void WindowTextTest::get_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<QString>("expected");

    const QString shown = QStringLiteral("shown");
    QTest::newRow("QLineEdit: text") << Maker(makeWithText<QLineEdit>) << shown;
    QTest::newRow("QLineEdit of a password: the text, not the dots") << Maker([]() -> QWidget * {
        auto *edit = new QLineEdit(QStringLiteral("shown"));
        edit->setEchoMode(QLineEdit::Password);
        return edit;
    }) << shown;
    QTest::newRow("QSpinBox: the displayed text") << Maker(makeSpinBox) << QStringLiteral("7");
    QTest::newRow("QSpinBox with prefix and suffix: \"about 7 mm\"") << Maker([] {
        QWidget *box = makeSpinBox();
        static_cast<QSpinBox *>(box)->setPrefix(QStringLiteral("about "));
        static_cast<QSpinBox *>(box)->setSuffix(QStringLiteral(" mm"));
        return box;
    }) << QStringLiteral("about 7 mm");
    QTest::newRow("QSpinBox at its minimum: the special text") << Maker([] {
        QWidget *box = makeSpinBox();
        static_cast<QSpinBox *>(box)->setValue(-10);
        static_cast<QSpinBox *>(box)->setSpecialValueText(QStringLiteral("automatic"));
        return box;
    }) << QStringLiteral("automatic");
    QTest::newRow("QDoubleSpinBox with suffix: \"7.00 mm\"") << Maker([] {
        QWidget *box = makeDoubleSpinBox();
        static_cast<QDoubleSpinBox *>(box)->setSuffix(QStringLiteral(" mm"));
        return box;
    }) << QStringLiteral("7.00 mm");
    QTest::newRow("QTimeEdit, a QAbstractSpinBox: the displayed text") << Maker([]() -> QWidget * {
        auto *edit = new QTimeEdit(QTime(13, 5));
        edit->setDisplayFormat(QStringLiteral("HH:mm"));
        return edit;
    }) << QStringLiteral("13:05");
    QTest::newRow("QLabel: text") << Maker(makeWithText<QLabel>) << shown;
    QTest::newRow("QLabel: text with its markup") << Maker([]() -> QWidget * {
        return new QLabel(QStringLiteral("<b>bold</b>"));
    }) << QStringLiteral("<b>bold</b>");
    QTest::newRow("QGroupBox: title") << Maker(makeWithText<QGroupBox>) << shown;
    QTest::newRow("QPushButton: text with its &") << Maker([]() -> QWidget * {
        return new QPushButton(QStringLiteral("&Save"));
    }) << QStringLiteral("&Save");
    QTest::newRow("QCheckBox: text") << Maker(makeWithText<QCheckBox>) << shown;
    QTest::newRow("QRadioButton: text") << Maker(makeWithText<QRadioButton>) << shown;
    QTest::newRow("QComboBox, editable: what is being edited") << Maker([] {
        QWidget *box = makeComboBox(true);
        static_cast<QComboBox *>(box)->setEditText(QStringLiteral("typed"));
        return box;
    }) << QStringLiteral("typed");
    QTest::newRow("QComboBox, not editable: the current text") << Maker([] {
        QWidget *box = makeComboBox(false);
        static_cast<QComboBox *>(box)->setCurrentIndex(1);
        return box;
    }) << QStringLiteral("second");
    QTest::newRow("QComboBox, not editable, nothing chosen: empty") << Maker([] {
        QWidget *box = makeComboBox(false);
        static_cast<QComboBox *>(box)->setCurrentIndex(-1);
        return box;
    }) << QString();
    QTest::newRow("QTextEdit: the plain text of two lines") << Maker([]() -> QWidget * {
        return new QTextEdit(QStringLiteral("<p>a</p><p>b</p>"));
    }) << QStringLiteral("a\nb");
    QTest::newRow("QPlainTextEdit: the window title") << Maker([]() -> QWidget * {
        auto *edit = new QPlainTextEdit(QStringLiteral("inside"));
        edit->setWindowTitle(QStringLiteral("title"));
        return edit;
    }) << QStringLiteral("title");
    QTest::newRow("QDialog: the window title") << Maker([]() -> QWidget * {
        auto *dialog = new QDialog;
        dialog->setWindowTitle(QStringLiteral("title"));
        return dialog;
    }) << QStringLiteral("title");
    QTest::newRow("QWidget without a title: empty") << Maker(make<QWidget>) << QString();
    QTest::newRow("QLineEdit with a window title: the first match, its text") << Maker([] {
        QWidget *edit = makeWithText<QLineEdit>();
        edit->setWindowTitle(QStringLiteral("title"));
        return edit;
    }) << shown;
}

void WindowTextTest::get()
{
    QFETCH(Maker, maker);
    QFETCH(QString, expected);
    const Bound window(maker());
    QCOMPARE(window.text(), expected);
}

void WindowTextTest::setAndGet_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a null text changes nothing") << Promise([] {
        Bound window(makeWithText<QLineEdit>());
        window->SetWindowTextW(nullptr);
        QCOMPARE(window.text(), QStringLiteral("shown"));
    });
    QTest::newRow("a null text leaves the value of a spin box") << Promise([] {
        Bound window(makeSpinBox());
        window->SetWindowTextW(nullptr);
        QCOMPARE(window.text(), QStringLiteral("7"));
    });
    QTest::newRow("an unbound object sets nothing and leaves the string it should fill") << Promise([] {
        CWnd window(nullptr);
        window.SetWindowTextW(L"text");
        CStdStr<wchar_t> text(L"before");
        window.GetWindowTextW(text);
        QCOMPARE(QString::fromStdWString(text), QStringLiteral("before"));
    });
    QTest::newRow("an orphan sets nothing and leaves the string it should fill") << Promise([] {
        QLineEdit edit(QStringLiteral("shown"));
        CWnd window(nullptr);
        window.Attach(handleOf(&edit));
        CWnd owner(nullptr);
        owner.Attach(handleOf(&edit));
        window.SetWindowTextW(L"text");
        QCOMPARE(edit.text(), QStringLiteral("shown"));
        CStdStr<wchar_t> text(L"before");
        window.GetWindowTextW(text);
        QCOMPARE(QString::fromStdWString(text), QStringLiteral("before"));
    });
    QTest::newRow("the string is replaced, not appended to") << Promise([] {
        Bound window(makeWithText<QLabel>());
        CStdStr<wchar_t> text(L"a longer text from before");
        window->GetWindowTextW(text);
        QVERIFY(text == L"shown");
    });
    QTest::newRow("an empty text empties the string") << Promise([] {
        Bound window(make<QLineEdit>());
        CStdStr<wchar_t> text(L"before");
        window->GetWindowTextW(text);
        QVERIFY(text.IsEmpty());
    });
    QTest::newRow("a spin box is set by number, read as displayed: \"2.5\" is \"2.50 mm\"") << Promise([] {
        Bound window(makeDoubleSpinBox());
        static_cast<QDoubleSpinBox *>(window.widget())->setSuffix(QStringLiteral(" mm"));
        window->SetWindowTextW(L"2.5");
        QCOMPARE(window.text(), QStringLiteral("2.50 mm"));
    });
    QTest::newRow("after a text was set a spin box tells its changes again") << Promise([] {
        Bound window(makeSpinBox());
        auto *box = static_cast<QSpinBox *>(window.widget());
        QSignalSpy changed(box, QOverload<int>::of(&QSpinBox::valueChanged));
        window->SetWindowTextW(L"42");
        QCOMPARE(changed.size(), 0);
        box->setValue(43);
        QCOMPARE(changed.size(), 1);
    });
    QTest::newRow("after a text was set a spin box of fractions tells its changes again") << Promise([] {
        Bound window(makeDoubleSpinBox());
        auto *box = static_cast<QDoubleSpinBox *>(window.widget());
        QSignalSpy changed(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        window->SetWindowTextW(L"4.5");
        QCOMPARE(changed.size(), 0);
        box->setValue(5);
        QCOMPARE(changed.size(), 1);
    });
    QTest::newRow("a spin box whose signals were blocked has them unblocked") << Promise([] {
        Bound window(makeSpinBox());
        window.widget()->blockSignals(true);
        window->SetWindowTextW(L"42");
        QCOMPARE(window.widget()->signalsBlocked(), false);
    });
    QTest::newRow("a character beyond 16 bits is one character here and two in Qt") << Promise([] {
        Bound window(make<QLineEdit>());
        window->SetWindowTextW(L"a\U0001F600b");
        QCOMPARE(static_cast<QLineEdit *>(window.widget())->text().size(), 4);
        CStdStr<wchar_t> text;
        window->GetWindowTextW(text);
        QVERIFY(text == L"a\U0001F600b");
        QCOMPARE(window->GetWindowTextLengthW(), 3);
    });
    QTest::newRow("the text is taken up to its terminating zero") << Promise([] {
        Bound window(make<QLineEdit>());
        window->SetWindowTextW(L"ab\0cd");
        QCOMPARE(window.text(), QStringLiteral("ab"));
    });
}

void WindowTextTest::buffer_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("contents"); // Of ten characters; '#' is untouched, '0' the terminating zero.

    QTest::newRow("\"shown\", max 10: all of it, zeros up to the end") << "shown" << 10 << 5 << "shown00000";
    QTest::newRow("\"shown\", max 7: zeros to max, the rest untouched") << "shown" << 7 << 5 << "shown00###";
    QTest::newRow("\"shown\", max 6: just fits") << "shown" << 6 << 5 << "shown0####";
    QTest::newRow("\"shown\", max 5: four characters") << "shown" << 5 << 4 << "show0#####";
    QTest::newRow("\"shown\", max 2: one character") << "shown" << 2 << 1 << "s0########";
    QTest::newRow("\"shown\", max 1: empty") << "shown" << 1 << 0 << "0#########";
    QTest::newRow("\"shown\", max 0: nothing written") << "shown" << 0 << 0 << "##########";
    QTest::newRow("\"shown\", max -1: nothing written") << "shown" << -1 << 0 << "##########";
    QTest::newRow("an empty text, max 3") << "" << 3 << 0 << "000#######";
}

void WindowTextTest::buffer()
{
    QFETCH(QString, text);
    QFETCH(int, max);
    QFETCH(int, length);
    QFETCH(QString, contents);

    Bound window(new QLineEdit(text));
    std::vector<wchar_t> buffer(10, L'#');
    QCOMPARE(window->GetWindowTextW(buffer.data(), max), length);
    QString found;
    for (const wchar_t character : buffer)
        found.append(character == 0 ? QLatin1Char('0') : QChar(static_cast<ushort>(character)));
    QCOMPARE(found, contents);
}

void WindowTextTest::lengths_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GetWindowTextLength of \"shown\" is 5") << Promise([] {
        Bound window(makeWithText<QLabel>());
        QCOMPARE(window->GetWindowTextLengthW(), 5);
    });
    QTest::newRow("GetWindowTextLength of an unbound object is 0") << Promise([] {
        CWnd window(nullptr);
        QCOMPARE(window.GetWindowTextLengthW(), 0);
    });
    QTest::newRow("GetWindowTextLength counts the displayed text of a spin box") << Promise([] {
        Bound window(makeDoubleSpinBox());
        QCOMPARE(window->GetWindowTextLengthW(), 4); // 7.00
    });
    QTest::newRow("GetWindowTextLength measures what an override answers") << Promise([] {
        QLineEdit edit;
        SpeakingWnd window;
        window.Attach(handleOf(&edit));
        QCOMPARE(window.GetWindowTextLengthW(), 5);
    });
    QTest::newRow("the buffer form of an unbound object answers 0") << Promise([] {
        CWnd window(nullptr);
        wchar_t buffer[4] = {};
        QCOMPARE(window.GetWindowTextW(buffer, 4), 0);
    });
    QTest::newRow("the buffer form fills from what an override answers") << Promise([] {
        QLineEdit edit(QStringLiteral("shown"));
        SpeakingWnd window;
        window.Attach(handleOf(&edit));
        wchar_t buffer[10] = {};
        QCOMPARE(window.GetWindowTextW(buffer, 10), 5);
        QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("spoke"));
    });
    QTest::newRow("the buffer form cuts between characters beyond 16 bits") << Promise([] {
        Bound window(make<QLineEdit>());
        window->SetWindowTextW(L"\U0001F600\U0001F601");
        wchar_t buffer[3] = {};
        QCOMPARE(window->GetWindowTextW(buffer, 2), 1);
        QVERIFY(std::wstring(buffer) == L"\U0001F600");
    });
}

KX_TEST_MAIN(WindowTextTest)
#include "tst_window_text.moc"
