// SPDX-License-Identifier: MIT
// Who deletes which window object, where several lead to one widget. What is left over at exit is the leak
// checker's to see.
#include "KxTestCase.h"

#include <afxwin.h>

#include <QtCore/QTimer>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>

#include <memory>

class WindowLifetimes : public KxTestCase
{
    Q_OBJECT

private slots:
    void wrapperThatTheHostAdoptedIsTheHosts();
    void wrapperThatLosesItsPlaceToTheTableIsFreedAtUnload();
    void wrapperOfNoHandleIsFreedAtUnload();
    void bufferFormOfGetDlgItemText_data();
    void bufferFormOfGetDlgItemText();
    void exchangeThroughASmallDialogPointer();
    void parentThatIsASmallPointerHasNoHandle();
    void messageIsPlainText();
    void settingsWithoutAName();
};

void WindowLifetimes::wrapperThatTheHostAdoptedIsTheHosts()
{
    QLabel label;
    CWnd kept;
    kept.Attach(KxHwndFromWidget(&label));
    CWnd *wrapper = CreateCWndByHandle(KxHwndFromWidget(&label));
    QCOMPARE(CWnd::FromHandle(KxHwndFromWidget(&label)), &kept);
    wrapper->SetAutoDelete(true, false);
    delete wrapper; // nothing may follow it at exit
    QVERIFY(!CWnd::FromHandle(KxHwndFromWidget(&label)));
}

void WindowLifetimes::wrapperThatLosesItsPlaceToTheTableIsFreedAtUnload()
{
    QWidget window;
    auto *label = new QLabel(&window);
    CWnd parent;
    parent.Attach(KxHwndFromWidget(&window));
    parent.SetDlgItem(5, KxHwndFromWidget(label));

    auto first = std::make_unique<CWnd>();
    auto second = std::make_unique<CWnd>();
    first->Attach(KxHwndFromWidget(label));
    second->Attach(KxHwndFromWidget(label));
    first.reset();
    CWnd *wrapper = parent.GetDlgItem(5);
    QVERIFY(wrapper != second.get());
    QCOMPARE(CWnd::FromHandle(KxHwndFromWidget(label)), wrapper);
    second.reset(); // erases the wrapper's place
    QVERIFY(!CWnd::FromHandle(KxHwndFromWidget(label)));
}

void WindowLifetimes::wrapperOfNoHandleIsFreedAtUnload()
{
    CWnd *wrapper = CreateCWndByHandle(nullptr);
    QVERIFY(wrapper);
    QCOMPARE(wrapper->GetSafeHwnd(), HWND(nullptr));
}

void WindowLifetimes::bufferFormOfGetDlgItemText_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("room");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("text");
    QTest::newRow("room for all") << 5 << 8 << 4 << QStringLiteral("edit");
    QTest::newRow("room for two") << 5 << 3 << 2 << QStringLiteral("ed");
    QTest::newRow("no room") << 5 << 0 << 0 << QStringLiteral("old");
    QTest::newRow("unknown item") << 6 << 8 << 0 << QString();
}

void WindowLifetimes::bufferFormOfGetDlgItemText()
{
    QFETCH(int, id);
    QFETCH(int, room);
    QFETCH(int, length);
    QFETCH(QString, text);
    QWidget window;
    auto *edit = new QLineEdit(QStringLiteral("edit"), &window);
    CWnd parent;
    parent.Attach(KxHwndFromWidget(&window));
    parent.SetDlgItem(5, KxHwndFromWidget(edit));
    wchar_t buffer[8] = L"old";
    QCOMPARE(parent.GetDlgItemText(id, buffer, room), length);
    QCOMPARE(QString::fromWCharArray(buffer), text);
}

void WindowLifetimes::exchangeThroughASmallDialogPointer()
{
    CDataExchange exchange(reinterpret_cast<CWnd *>(5), TRUE);
    int number = 3;
    DDX_Text(&exchange, 1, number);
    QCOMPARE(number, 3);
    QCOMPARE(exchange.PrepareEditCtrl(1), HWND(nullptr));
    CWnd control;
    DDX_Control(&exchange, 1, control);
    QCOMPARE(control.GetSafeHwnd(), HWND(nullptr));
}

void WindowLifetimes::parentThatIsASmallPointerHasNoHandle()
{
    QLabel label;
    CWnd window;
    window.Attach(KxHwndFromWidget(&label));
    window.SetParent(reinterpret_cast<CWnd *>(5));
    QCOMPARE(::GetParent(KxHwndFromWidget(&label)), HWND(nullptr));
}

void WindowLifetimes::messageIsPlainText()
{
    Qt::TextFormat format = Qt::AutoText;
    QTimer::singleShot(0, qApp, [&format] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            format = box->textFormat();
            box->reject();
        }
    });
    AfxMessageBox(L"<b>not bold</b>");
    QCOMPARE(format, Qt::PlainText);
}

void WindowLifetimes::settingsWithoutAName()
{
    CRegKey key;
    key.Create(HKEY_CURRENT_USER, L"Software\\Nameless");
    QCOMPARE(key.SetValue(L"text"), LONG(ERROR_SUCCESS));
    wchar_t buffer[8] = L"old";
    DWORD count = 8;
    QCOMPARE(key.QueryValue(buffer, nullptr, &count), LONG(ERROR_SUCCESS));
    QCOMPARE(QString::fromWCharArray(buffer), QString());
    CWinApp application;
    QVERIFY(application.WriteProfileInt(L"Section", L"", 4));
    QCOMPARE(application.GetProfileInt(L"Section", L"", 9), 9u);
}

KX_TEST_MAIN(WindowLifetimes)
#include "tst_window_lifetimes.moc"
