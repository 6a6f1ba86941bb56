// SPDX-License-Identifier: MIT
#include "support/KxTestCase.h"

#include "KxAfxGlobal.h"
#include "KxAfxWin.h"
#include "KxQtWinapiWrapper.h"
#include "KxWinResource.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QMessageBox>

#include <functional>

using BoxCall = std::function<int()>;
using BoxAction = std::function<void(QMessageBox &)>;
struct Windows;
using WindowsCall = std::function<int(Windows &)>;
using Buttons = QMessageBox::StandardButtons;
Q_DECLARE_METATYPE(BoxCall)
Q_DECLARE_METATYPE(BoxAction)
Q_DECLARE_METATYPE(WindowsCall)
Q_DECLARE_METATYPE(Buttons)
Q_DECLARE_METATYPE(QMessageBox::StandardButton)
Q_DECLARE_METATYPE(QMessageBox::Icon)

struct Windows
{
    Windows() { window.Attach(handle()); }
    HWND handle() { return KxHwndFromWidget(&owner); }

    QWidget owner;
    CWnd window; // bound to it
    CWnd unbound;
};

namespace {

/// What was seen of the one box that a call showed.
struct Seen
{
    int result = -1000;
    int boxes = 0;
    Buttons buttons;
    int buttonCount = 0;
    QStringList buttonTexts; // in the order OK, Cancel, No, Yes
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString title;
    QString text;
    Qt::WindowFlags flags;
    bool modal = false;
    bool hasParent = true;
    bool gone = false;
};

/// Makes the call, looks at the box that it shows and acts on it; closes with -1 what still stands then.
Seen runBox(const BoxCall &call, const BoxAction &act)
{
    Seen seen;
    QPointer<QMessageBox> shown;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        shown = box;
        ++seen.boxes;
        seen.buttons = box->standardButtons();
        seen.buttonCount = box->buttons().size();
        for (auto which : {QMessageBox::Ok, QMessageBox::Cancel, QMessageBox::No, QMessageBox::Yes}) {
            if (const auto *button = box->button(which))
                seen.buttonTexts.append(button->text());
        }
        seen.icon = box->icon();
        seen.title = box->windowTitle();
        seen.text = box->text();
        seen.flags = box->windowFlags();
        seen.modal = box->isModal();
        seen.hasParent = box->parent() != nullptr;
        act(*box);
        if (box->isVisible())
            box->done(-1);
    });
    poll.start(1);
    seen.result = call();
    seen.gone = shown.isNull();
    return seen;
}

BoxAction press(QMessageBox::StandardButton which)
{
    return [which](QMessageBox &box) {
        if (auto *button = box.button(which))
            button->click();
    };
}

void pressAny(QMessageBox &box)
{
    box.buttons().constFirst()->click();
}

/// Answers German for the texts of one context.
class German : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (qstrcmp(context, "QObject") != 0)
            return QString();
        const QByteArray text(source);
        if (text == "&OK")
            return QStringLiteral("&Gut");
        if (text == "&Cancel")
            return QStringLiteral("&Abbruch");
        if (text == "&No")
            return QStringLiteral("&Nein");
        if (text == "&Yes")
            return QStringLiteral("&Ja");
        return QString();
    }
};

const HINSTANCE ownModule = reinterpret_cast<HINSTANCE>(0x70);

/// Through a small pointer, as ported code calls it; volatile keeps the compiler from knowing the value.
__attribute__((noinline, no_sanitize("undefined"))) int messageBoxAt(quintptr address)
{
    const volatile quintptr value = address;
    return reinterpret_cast<CWnd *>(value)->MessageBoxW(L"text", L"title", MB_YESNO);
}

} // namespace

class tst_MessageBoxes : public KxTestCase
{
    Q_OBJECT

private slots:
    void constants();
    void type_data();
    void type();
    void result_data();
    void result();
    void texts_data();
    void texts();
    void everyForm_data();
    void everyForm();
    void buttonTextsAreTranslated();
    void stringResource_data();
    void stringResource();
    void smallPointerShowsNothing();
};

void tst_MessageBoxes::constants()
{
    QCOMPARE(int(MB_OK), 0);
    QCOMPARE(int(MB_OKCANCEL), 1);
    QCOMPARE(int(MB_ABORTRETRYIGNORE), 2);
    QCOMPARE(int(MB_YESNOCANCEL), 3);
    QCOMPARE(int(MB_YESNO), 4);
    QCOMPARE(int(MB_RETRYCANCEL), 5);
    QCOMPARE(int(MB_ICONHAND), 0x10);
    QCOMPARE(int(MB_ICONQUESTION), 0x20);
    QCOMPARE(int(MB_ICONEXCLAMATION), 0x30);
    QCOMPARE(int(MB_ICONASTERISK), 0x40);
    QCOMPARE(int(IDOK), 1);
    QCOMPARE(int(IDCANCEL), 2);
    QCOMPARE(int(IDYES), 6);
    QCOMPARE(int(IDNO), 7);
}

void tst_MessageBoxes::type_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<Buttons>("buttons");
    QTest::addColumn<QMessageBox::Icon>("icon");
    const Buttons ok = QMessageBox::Ok;
    const Buttons okCancel = QMessageBox::Ok | QMessageBox::Cancel;
    const Buttons yesNo = QMessageBox::Yes | QMessageBox::No;
    const Buttons yesNoCancel = yesNo | QMessageBox::Cancel;
    const auto none = QMessageBox::NoIcon;
    const auto warning = QMessageBox::Warning;
    const auto question = QMessageBox::Question;
    const auto information = QMessageBox::Information;
    const auto critical = QMessageBox::Critical;
    const auto row = [](const char *promise, uint type, Buttons buttons, QMessageBox::Icon icon) {
        QTest::newRow(promise) << type << buttons << icon;
    };
    row("MB_OK, 0: OK", 0x0, ok, none);
    row("MB_OKCANCEL, 1: OK, Cancel", 0x1, okCancel, none);
    row("MB_ABORTRETRYIGNORE, 2: OK alone", 0x2, ok, none);
    row("MB_YESNOCANCEL, 3: Yes, No, Cancel", 0x3, yesNoCancel, none);
    row("MB_YESNO, 4: Yes, No", 0x4, yesNo, none);
    row("MB_RETRYCANCEL, 5: OK, Cancel", 0x5, okCancel, none);
    row("6: Yes, No", 0x6, yesNo, none);
    row("7: Yes, No, Cancel", 0x7, yesNoCancel, none);
    row("8, no known button: OK alone", 0x8, ok, none);
    row("MB_ICONHAND, 0x10: critical, OK", 0x10, ok, critical);
    row("0x11: critical, OK, Cancel", 0x11, okCancel, critical);
    row("0x12: critical, OK alone", 0x12, ok, critical);
    row("0x13: critical, Yes, No, Cancel", 0x13, yesNoCancel, critical);
    row("0x14: critical, Yes, No", 0x14, yesNo, critical);
    row("MB_ICONQUESTION, 0x20: question, Yes, No", 0x20, yesNo, question);
    row("0x21: question, OK, Cancel", 0x21, okCancel, question);
    row("0x22, no known button: question, Yes, No", 0x22, yesNo, question);
    row("0x23: question, Yes, No, Cancel", 0x23, yesNoCancel, question);
    row("0x24: question, Yes, No", 0x24, yesNo, question);
    row("MB_ICONEXCLAMATION, 0x30: warning, OK", 0x30, ok, warning);
    row("0x31: warning, OK, Cancel", 0x31, okCancel, warning);
    row("0x32, no known button: warning, OK alone", 0x32, ok, warning);
    row("0x33: warning, Yes, No, Cancel", 0x33, yesNoCancel, warning);
    row("0x34: warning, Yes, No", 0x34, yesNo, warning);
    row("MB_ICONASTERISK, 0x40: information, OK", 0x40, ok, information);
    row("0x41: information, OK, Cancel", 0x41, okCancel, information);
    row("0x43: information, Yes, No, Cancel", 0x43, yesNoCancel, information);
    row("0x44: information, Yes, No", 0x44, yesNo, information);
    row("0x50, bits 4 and 6: information", 0x50, ok, information);
    row("0x60, bits 5 and 6: question, Yes, No", 0x60, yesNo, question);
    row("0x61, bits 5 and 6: question, OK, Cancel", 0x61, okCancel, question);
    row("0x70, bits 4, 5 and 6: warning", 0x70, ok, warning);
    row("0x80, no known icon: none, OK alone", 0x80, ok, none);
    row("MB_DEFBUTTON2, 0x100: OK alone", 0x100, ok, none);
    row("MB_YESNO with MB_DEFBUTTON2, 0x104: Yes, No", 0x104, yesNo, none);
    row("MB_SYSTEMMODAL, 0x1000: OK alone", 0x1000, ok, none);
    row("a question of the application's, 0x2024: Yes, No", 0x2024, yesNo, question);
}

void tst_MessageBoxes::type()
{
    QFETCH(uint, type);
    QFETCH(Buttons, buttons);
    const Seen seen = runBox([type] { return MessageBoxW(L"text", L"title", type); }, pressAny);
    QCOMPARE(seen.boxes, 1);
    QCOMPARE(int(seen.buttons), int(buttons));
    QTEST(seen.icon, "icon");
    QStringList texts;
    if (buttons & QMessageBox::Ok)
        texts.append(QStringLiteral("&OK"));
    if (buttons & QMessageBox::Cancel)
        texts.append(QStringLiteral("&Cancel"));
    if (buttons & QMessageBox::No)
        texts.append(QStringLiteral("&No"));
    if (buttons & QMessageBox::Yes)
        texts.append(QStringLiteral("&Yes"));
    QCOMPARE(seen.buttonTexts, texts);
    QCOMPARE(seen.buttonCount, texts.size());
    QCOMPARE(seen.title, QStringLiteral("title"));
    QCOMPARE(seen.text, QStringLiteral("text"));
    QCOMPARE(int(seen.flags & Qt::WindowType_Mask), int(Qt::Dialog));
    QVERIFY(seen.flags.testFlag(Qt::MSWindowsFixedSizeDialogHint));
    QVERIFY(seen.flags.testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(seen.modal);
    QVERIFY(!seen.hasParent);
    QVERIFY(seen.gone);
}

void tst_MessageBoxes::result_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<BoxAction>("act");
    QTest::addColumn<int>("expected");
    const auto row = [](const char *promise, uint type, BoxAction act, int expected) {
        QTest::newRow(promise) << type << std::move(act) << expected;
    };
    const BoxAction escape = [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); };
    const BoxAction enter = [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Return); };
    const BoxAction close = [](QMessageBox &box) { box.close(); };
    const BoxAction reject = [](QMessageBox &box) { box.reject(); };
    row("OK of OK: 1", MB_OK, press(QMessageBox::Ok), 1);
    row("OK of OK, Cancel: 1", MB_OKCANCEL, press(QMessageBox::Ok), 1);
    row("Cancel of OK, Cancel: 2", MB_OKCANCEL, press(QMessageBox::Cancel), 2);
    row("Yes of Yes, No: 6", MB_YESNO, press(QMessageBox::Yes), 6);
    row("No of Yes, No: 7", MB_YESNO, press(QMessageBox::No), 7);
    row("Yes of Yes, No, Cancel: 6", MB_YESNOCANCEL, press(QMessageBox::Yes), 6);
    row("No of Yes, No, Cancel: 7", MB_YESNOCANCEL, press(QMessageBox::No), 7);
    row("Cancel of Yes, No, Cancel: 2", MB_YESNOCANCEL, press(QMessageBox::Cancel), 2);
    row("Yes of a question, 0x24: 6", 0x24, press(QMessageBox::Yes), 6);
    row("No of a question, 0x24: 7", 0x24, press(QMessageBox::No), 7);
    row("Yes of a question without buttons: 6", MB_ICONQUESTION, press(QMessageBox::Yes), 6);
    row("OK of MB_ABORTRETRYIGNORE: 1", MB_ABORTRETRYIGNORE, press(QMessageBox::Ok), 1);
    row("OK of MB_RETRYCANCEL: 1", MB_RETRYCANCEL, press(QMessageBox::Ok), 1);
    row("Cancel of MB_RETRYCANCEL: 2", MB_RETRYCANCEL, press(QMessageBox::Cancel), 2);
    row("Enter on OK: 1", MB_OK, enter, 1);
    row("Escape on OK, Cancel is Cancel: 2", MB_OKCANCEL, escape, 2);
    row("Escape on Yes, No, Cancel is Cancel: 2", MB_YESNOCANCEL, escape, 2);
    row("closing OK, Cancel is Cancel: 2", MB_OKCANCEL, close, 2);
    row("closing OK is the one button: 1", MB_OK, close, 1);
    row("gone without a button: 0", MB_YESNOCANCEL, reject, 0);
    row("gone with 0: 0", MB_OKCANCEL, [](QMessageBox &box) { box.done(0); }, 0);
    row("gone with a number of no button: 0", MB_OK, [](QMessageBox &box) { box.done(12345); }, 0);
    row("gone with another button's number: 0", MB_OK,
        [](QMessageBox &box) { box.done(QMessageBox::Apply); }, 0);
}

void tst_MessageBoxes::result()
{
    QFETCH(uint, type);
    QFETCH(BoxAction, act);
    const Seen seen = runBox([type] { return MessageBoxW(L"text", L"title", type); }, act);
    QCOMPARE(seen.boxes, 1);
    QTEST(seen.result, "expected");
}

void tst_MessageBoxes::texts_data()
{
    QTest::addColumn<BoxCall>("call");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *promise, BoxCall call, const QString &title, const QString &text) {
        QTest::newRow(promise) << std::move(call) << title << text;
    };
    row("text and caption", [] { return MessageBoxW(L"a text", L"a title", MB_OK); }, "a title", "a text");
    row("a null caption is TORVA.",
        [] { return MessageBoxW(L"a text", nullptr, MB_OK); }, "TORVA.", "a text");
    row("an empty caption stays empty", [] { return MessageBoxW(L"a text", L"", MB_OK); }, "", "a text");
    row("a null text is empty",
        [] { return MessageBoxW(static_cast<const wchar_t *>(nullptr), L"t", MB_OK); }, "t", "");
    row("characters beyond 16 bits", [] { return MessageBoxW(L"\U0001F600", L"\u00e4", MB_OK); },
        QString::fromUtf8("\xc3\xa4"), QString::fromUtf8("\xf0\x9f\x98\x80"));
    row("several lines", [] { return MessageBoxW(L"a\nb", L"t", MB_OK); }, "t", "a\nb");
}

void tst_MessageBoxes::texts()
{
    QFETCH(BoxCall, call);
    const Seen seen = runBox(call, press(QMessageBox::Ok));
    QCOMPARE(seen.boxes, 1);
    QCOMPARE(seen.result, 1);
    QTEST(seen.title, "title");
    QTEST(seen.text, "text");
}

void tst_MessageBoxes::everyForm_data()
{
    QTest::addColumn<WindowsCall>("call");
    QTest::addColumn<QString>("title");
    QTest::addColumn<Buttons>("buttons");
    QTest::addColumn<QMessageBox::Icon>("icon");
    QTest::addColumn<QMessageBox::StandardButton>("pressed");
    QTest::addColumn<int>("expected");

    const Buttons ok = QMessageBox::Ok;
    const Buttons yesNo = QMessageBox::Yes | QMessageBox::No;
    const Buttons okCancel = QMessageBox::Ok | QMessageBox::Cancel;
    const auto row = [](const char *promise, WindowsCall call, const char *title, Buttons buttons,
                        QMessageBox::Icon icon, QMessageBox::StandardButton pressed, int expected) {
        QTest::newRow(promise) << std::move(call) << QString::fromLatin1(title) << buttons << icon << pressed
                               << expected;
    };
    row("MessageBoxW with an owner",
        [](Windows &w) { return MessageBoxW(w.handle(), L"text", L"title", 0x24); },
        "title", yesNo, QMessageBox::Question, QMessageBox::No, 7);
    row("MessageBoxW with a null owner",
        [](Windows &) { return MessageBoxW(static_cast<HWND>(nullptr), L"text", L"title", 0x24); },
        "title", yesNo, QMessageBox::Question, QMessageBox::Yes, 6);
    row("MessageBoxW never looks at its owner",
        [](Windows &) { return MessageBoxW(reinterpret_cast<HWND>(0x10), L"text", nullptr, MB_OKCANCEL); },
        "TORVA.", okCancel, QMessageBox::NoIcon, QMessageBox::Cancel, 2);
    row("CWnd::MessageBoxW", [](Windows &w) { return w.window.MessageBoxW(L"text", L"title", 0x24); },
        "title", yesNo, QMessageBox::Question, QMessageBox::No, 7);
    row("CWnd::MessageBoxW of an unbound window",
        [](Windows &w) { return w.unbound.MessageBoxW(L"text", L"title", 0x31); },
        "title", okCancel, QMessageBox::Warning, QMessageBox::Cancel, 2);
    row("CWnd::MessageBoxW with a text alone",
        [](Windows &w) { return w.window.MessageBoxW(L"text"); }, "TORVA.", ok,
        QMessageBox::NoIcon, QMessageBox::Ok, 1);
    row("AfxMessageBox has the default title and keeps the type",
        [](Windows &) { return AfxMessageBox(L"text", MB_YESNO | MB_ICONQUESTION, 0); }, "TORVA.", yesNo,
        QMessageBox::Question, QMessageBox::No, 7);
    row("AfxMessageBox ignores the help identifier",
        [](Windows &) { return AfxMessageBox(L"text", MB_OKCANCEL, 4711); }, "TORVA.", okCancel,
        QMessageBox::NoIcon, QMessageBox::Cancel, 2);
    row("AfxMessageBox with a text alone", [](Windows &) { return AfxMessageBox(L"text"); }, "TORVA.", ok,
        QMessageBox::NoIcon, QMessageBox::Ok, 1);
}

void tst_MessageBoxes::everyForm()
{
    QFETCH(WindowsCall, call);
    QFETCH(Buttons, buttons);
    QFETCH(QMessageBox::StandardButton, pressed);
    Windows windows;
    const Seen seen = runBox([&] { return call(windows); }, press(pressed));
    QCOMPARE(seen.boxes, 1);
    QTEST(seen.result, "expected");
    QTEST(seen.title, "title");
    QCOMPARE(seen.text, QStringLiteral("text"));
    QCOMPARE(int(seen.buttons), int(buttons));
    QTEST(seen.icon, "icon");
    QVERIFY(!seen.hasParent);
    QVERIFY(seen.flags.testFlag(Qt::WindowStaysOnTopHint));
}

void tst_MessageBoxes::buttonTextsAreTranslated()
{
    German german;
    QVERIFY(QCoreApplication::installTranslator(&german));
    const Seen okCancel = runBox([] { return MessageBoxW(L"text", L"title", MB_OKCANCEL); }, pressAny);
    const Seen yesNo
        = runBox([] { return MessageBoxW(L"text", L"title", MB_YESNO); }, press(QMessageBox::Yes));
    QCoreApplication::removeTranslator(&german);
    QCOMPARE(okCancel.buttonTexts, QStringList({QStringLiteral("&Gut"), QStringLiteral("&Abbruch")}));
    QCOMPARE(yesNo.buttonTexts, QStringList({QStringLiteral("&Nein"), QStringLiteral("&Ja")}));
    QCOMPARE(yesNo.result, 6);
}

void tst_MessageBoxes::stringResource_data()
{
    QTest::addColumn<bool>("hasModule");
    QTest::addColumn<uint>("id");
    QTest::addColumn<uint>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("MB_OK: OK") << false << 101u << uint(MB_OK) << "of no module";
    QTest::newRow("MB_YESNO: only OK") << false << 101u << uint(MB_YESNO) << "of no module";
    QTest::newRow("MB_YESNOCANCEL with an icon: only OK, no icon")
        << false << 101u << 0x23u << "of no module";
    QTest::newRow("the string of the current resource handle") << true << 101u << 0u << "of the module";
    QTest::newRow("an unknown string is empty") << false << 102u << uint(MB_YESNO) << "";
}

void tst_MessageBoxes::stringResource()
{
    QFETCH(bool, hasModule);
    QFETCH(uint, id);
    QFETCH(uint, type);
    KxRegisterString(nullptr, 101, L"of no module");
    KxRegisterString(ownModule, 101, L"of the module");
    AfxSetResourceHandle(hasModule ? ownModule : nullptr);
    const Seen seen = runBox([=] { return AfxMessageBox(id, type, 0); }, pressAny);
    const Seen defaults = runBox([=] { return AfxMessageBox(id); }, pressAny);
    AfxSetResourceHandle(nullptr);
    KxUnregisterStrings(nullptr);
    KxUnregisterStrings(ownModule);
    for (const Seen &each : {seen, defaults}) {
        QCOMPARE(each.boxes, 1);
        QTEST(each.text, "text");
        QCOMPARE(each.title, QStringLiteral("TORVA."));
        QCOMPARE(int(each.buttons), int(QMessageBox::Ok));
        QCOMPARE(each.icon, QMessageBox::NoIcon);
        QCOMPARE(each.result, 1);
    }
}

void tst_MessageBoxes::smallPointerShowsNothing()
{
    const Seen null = runBox([] { return messageBoxAt(0); }, pressAny);
    QCOMPARE(null.boxes, 0);
    QCOMPARE(null.result, 0);
    const Seen small = runBox([] { return messageBoxAt(4095); }, pressAny);
    QCOMPARE(small.boxes, 0);
    QCOMPARE(small.result, 4095);
}

KX_TEST_MAIN(tst_MessageBoxes)

#include "tst_message_boxes.moc"
