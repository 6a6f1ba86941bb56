// SPDX-License-Identifier: MIT
#include "support/KxTestCase.h"

#include "KxAfxGlobal.h"
#include "KxAfxWin.h"
#include "KxQtWinapiWrapper.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDateTimeEdit>
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
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <functional>
#include <memory>

using WidgetMaker = std::function<QWidget *()>;
using WindowCall = std::function<qint64(HWND)>;
Q_DECLARE_METATYPE(WidgetMaker)
Q_DECLARE_METATYPE(WindowCall)

namespace {

/// A widget and the window object bound to it.
template<class Widget, class Window = CWnd>
struct Bound
{
    Bound() { window.Attach(handle()); }
    HWND handle() { return KxHwndFromWidget(&widget); }

    Widget widget;
    Window window;
};

HWND notAWindow()
{
    return reinterpret_cast<HWND>(0x10);
}

/// Answers with marks instead of its widget's values.
class MarkedWindow : public CWnd
{
public:
    HWND GetSafeHwnd() const override { return notAWindow(); }
    void GetClientRect(tagRECT *rect) const override { *rect = {1, 2, 3, 4}; }
    void SetWindowTextW(const wchar_t *text) override { lastText = QString::fromWCharArray(text); }
    void GetWindowTextW(CString &text) const override { text = L"marked"; }
    int GetWindowTextW(wchar_t *, int count) const override { return 1000 + count; }

    QString lastText;
};

QRect asRect(const tagRECT &rect)
{
    QRect result;
    result.setCoords(rect.left, rect.top, rect.right, rect.bottom);
    return result;
}

} // namespace

class tst_Win32Calls : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();

    void withoutWindowObject_data();
    void withoutWindowObject();
    void dialogItems();
    void parentHandle();
    void windowRect_data();
    void windowRect();
    void windowRectOfNull();
    void clientRect();
    void showWindow_data();
    void showWindow();
    void enableWindow();
    void windowText_data();
    void windowText();
    void windowTextLength_data();
    void windowTextLength();
    void overriddenMembersAreCalled();
    void orphanedWindowObject();

    void className_data();
    void className();
    void classNameBuffer_data();
    void classNameBuffer();

    void windowLongKeepsItsFirstValue();
    void windowLongOfOtherIndex_data();
    void windowLongOfOtherIndex();
    void windowLongOfNull();
    void windowLongErasesTheNullEntry();
    void windowLongOutlivesTheWidget();
    void windowLongPtr_data();
    void windowLongPtr();

    void focusCallsDoNothing();
    void buttonCallsDoNothing();
    void isWindow_data();
    void isWindow();
    void capture();
};

void tst_Win32Calls::initTestCase()
{
    // As it is before anybody set it.
    QVERIFY(g_hwndMap.empty());
}

// ---- handles --------------------------------------------------------------------------------------------

void tst_Win32Calls::withoutWindowObject_data()
{
    QTest::addColumn<WindowCall>("call");
    QTest::addColumn<bool>("nullHandle");
    const auto row = [](const char *name, WindowCall call) {
        QTest::addRow("%s of null is 0", name) << call << true;
        QTest::addRow("%s of a widget without a window object is 0", name) << call << false;
    };
    row("GetDlgItem", [](HWND h) { return reinterpret_cast<qint64>(GetDlgItem(h, 1)); });
    row("KxUser32::GetDlgItem", [](HWND h) { return reinterpret_cast<qint64>(KxUser32::GetDlgItem(h, 1)); });
    row("GetDlgCtrlID", [](HWND h) { return qint64(GetDlgCtrlID(h)); });
    row("GetParent", [](HWND h) { return reinterpret_cast<qint64>(GetParent(h)); });
    row("GetClientRect", [](HWND h) {
        tagRECT rect {-1, -2, -3, -4};
        const bool result = GetClientRect(h, &rect);
        return qint64(result || rect.left != -1 || rect.top != -2 || rect.right != -3 || rect.bottom != -4);
    });
    row("ShowWindow", [](HWND h) { return qint64(ShowWindow(h, SW_SHOW)); });
    row("SetWindowTextW", [](HWND h) { return qint64(SetWindowTextW(h, L"text")); });
    row("GetWindowTextW", [](HWND h) {
        wchar_t buffer[4] = L"???";
        const int result = GetWindowTextW(h, buffer, 4);
        return qint64(result + (buffer[0] != L'?' ? 1000 : 0));
    });
    row("GetWindowTextLengthW", [](HWND h) { return qint64(GetWindowTextLengthW(h)); });
    row("GetWindowTextLengthA", [](HWND h) { return qint64(GetWindowTextLengthA(h)); });
}

void tst_Win32Calls::withoutWindowObject()
{
    QFETCH(WindowCall, call);
    QFETCH(bool, nullHandle);
    QLineEdit widget(QStringLiteral("old"));
    QCOMPARE(call(nullHandle ? nullptr : KxHwndFromWidget(&widget)), qint64(0));
    QCOMPARE(widget.text(), QStringLiteral("old"));
    QVERIFY(widget.isHidden());
}

void tst_Win32Calls::dialogItems()
{
    Bound<QWidget> dialog;
    Bound<QLineEdit> item;
    QLabel bare;
    dialog.window.SetDlgItem(7, item.handle());
    dialog.window.SetDlgItem(8, KxHwndFromWidget(&bare));
    QCOMPARE(GetDlgItem(dialog.handle(), 7), item.handle());
    QCOMPARE(KxUser32::GetDlgItem(dialog.handle(), 7), item.handle());
    // An item without a window object gets a temporary one.
    QCOMPARE(GetDlgItem(dialog.handle(), 8), KxHwndFromWidget(&bare));
    QCOMPARE(KxUser32::GetDlgItem(dialog.handle(), 8), KxHwndFromWidget(&bare));
    QCOMPARE(GetDlgItem(dialog.handle(), 9), static_cast<HWND>(nullptr));
    QCOMPARE(KxUser32::GetDlgItem(dialog.handle(), 9), static_cast<HWND>(nullptr));
    QCOMPARE(GetDlgCtrlID(item.handle()), 7);
    QCOMPARE(GetDlgCtrlID(KxHwndFromWidget(&bare)), 8);
    QCOMPARE(GetDlgCtrlID(dialog.handle()), -1); // never set
}

void tst_Win32Calls::parentHandle()
{
    Bound<QWidget> parent;
    Bound<QWidget> child;
    QCOMPARE(GetParent(child.handle()), static_cast<HWND>(nullptr));
    child.window.SetParent(&parent.window);
    QCOMPARE(GetParent(child.handle()), parent.handle());
    CWnd unbound;
    child.window.SetParent(&unbound);
    QCOMPARE(GetParent(child.handle()), static_cast<HWND>(nullptr));
    // The Qt parent plays no part.
    QWidget qtChild(&parent.widget);
    CWnd qtChildWindow;
    qtChildWindow.Attach(KxHwndFromWidget(&qtChild));
    QCOMPARE(GetParent(KxHwndFromWidget(&qtChild)), static_cast<HWND>(nullptr));
}

void tst_Win32Calls::windowRect_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<QRect>("expected");
    // Widgets at (10, 20), (5, 7) in it, (1, 2) in that; right and bottom inclusive.
    QTest::newRow("top level 100 x 50: right 109, bottom 69") << 0 << QRect(QPoint(10, 20), QPoint(109, 69));
    QTest::newRow("child 30 x 40: on the screen at 15, 27") << 1 << QRect(QPoint(15, 27), QPoint(44, 66));
    QTest::newRow("grandchild 3 x 4: on the screen at 16, 29") << 2 << QRect(QPoint(16, 29), QPoint(18, 32));
}

void tst_Win32Calls::windowRect()
{
    QFETCH(int, depth);
    QFETCH(QRect, expected);
    // Without a frame, so that all numbers are known.
    QWidget top(nullptr, Qt::FramelessWindowHint);
    QWidget child(&top);
    QWidget grandchild(&child);
    top.setGeometry(10, 20, 100, 50);
    child.setGeometry(5, 7, 30, 40);
    grandchild.setGeometry(1, 2, 3, 4);
    QWidget *const widgets[] = {&top, &child, &grandchild};
    const HWND handle = KxHwndFromWidget(widgets[depth]);
    tagRECT rect {};
    QVERIFY(GetWindowRect(handle, &rect));
    QCOMPARE(asRect(rect), expected);
    tagRECT scoped {};
    QVERIFY(KxUser32::GetWindowRect(handle, &scoped));
    QCOMPARE(asRect(scoped), expected);
    CWnd window;
    window.Attach(handle);
    tagRECT member {};
    window.GetWindowRect(&member);
    QCOMPARE(asRect(member), expected);

    // With a frame the position and the size are the frame's.
    QWidget framed;
    framed.setGeometry(200, 300, 100, 50);
    framed.show();
    QVERIFY(QTest::qWaitForWindowExposed(&framed));
    QVERIFY(GetWindowRect(KxHwndFromWidget(&framed), &rect));
    QCOMPARE(asRect(rect), QRect(framed.pos(), framed.frameGeometry().size()));
}

void tst_Win32Calls::windowRectOfNull()
{
    tagRECT rect {-1, -2, -3, -4};
    QVERIFY(!GetWindowRect(nullptr, &rect));
    QVERIFY(!KxUser32::GetWindowRect(nullptr, &rect));
    QCOMPARE(rect.left, -1);
    QCOMPARE(rect.top, -2);
    QCOMPARE(rect.right, -3);
    QCOMPARE(rect.bottom, -4);
}

void tst_Win32Calls::clientRect()
{
    Bound<QWidget> bound;
    bound.widget.setGeometry(10, 20, 100, 50);
    tagRECT rect {-1, -2, -3, -4};
    QVERIFY(GetClientRect(bound.handle(), &rect));
    QCOMPARE(rect.left, 0);
    QCOMPARE(rect.top, 0);
    QCOMPARE(rect.right, 99);
    QCOMPARE(rect.bottom, 49);
}

void tst_Win32Calls::showWindow_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<bool>("visible");
    QTest::newRow("SW_HIDE, 0, hides") << SW_HIDE << false;
    QTest::newRow("SW_SHOWNORMAL, 1, shows") << 1 << true;
    QTest::newRow("SW_SHOWMINIMIZED, 2, shows") << 2 << true;
    QTest::newRow("SW_SHOWMAXIMIZED, 3, shows") << 3 << true;
    QTest::newRow("SW_SHOWNOACTIVATE, 4, shows") << 4 << true;
    QTest::newRow("SW_SHOW, 5, shows") << SW_SHOW << true;
    QTest::newRow("SW_MINIMIZE, 6, shows") << 6 << true;
    QTest::newRow("SW_RESTORE, 9, shows") << 9 << true;
    QTest::newRow("-1 shows") << -1 << true;
}

void tst_Win32Calls::showWindow()
{
    QFETCH(int, command);
    QFETCH(bool, visible);
    Bound<QWidget> bound;
    for (const bool before : {false, true}) {
        bound.widget.setVisible(before);
        QVERIFY(ShowWindow(bound.handle(), command));
        QCOMPARE(bound.widget.isVisible(), visible);
    }
    QVERIFY(!bound.widget.isMinimized());
    QVERIFY(!bound.widget.isMaximized());
}

void tst_Win32Calls::enableWindow()
{
    QWidget widget;
    const HWND handle = KxHwndFromWidget(&widget);
    // No window object is needed; the result tells nothing of the state before.
    QVERIFY(EnableWindow(handle, FALSE));
    QVERIFY(!widget.isEnabled());
    QVERIFY(EnableWindow(handle, FALSE));
    QVERIFY(EnableWindow(handle, TRUE));
    QVERIFY(widget.isEnabled());
    QVERIFY(KxUser32::EnableWindow(handle, FALSE));
    QVERIFY(!widget.isEnabled());
    QVERIFY(KxUser32::EnableWindow(handle, TRUE));
    QVERIFY(widget.isEnabled());
    QVERIFY(!EnableWindow(nullptr, TRUE));
    QVERIFY(!KxUser32::EnableWindow(nullptr, TRUE));
}

// ---- text -----------------------------------------------------------------------------------------------

void tst_Win32Calls::windowText_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("buffer"); // '0' is a NUL, '#' was not written
    QTest::newRow("4 characters into 8: zeros up to the end") << 8 << 4 << "text0000##";
    QTest::newRow("4 characters into 5") << 5 << 4 << "text0#####";
    QTest::newRow("4 characters into 4: the first 3") << 4 << 3 << "tex0######";
    QTest::newRow("4 characters into 1: none") << 1 << 0 << "0#########";
    QTest::newRow("count 0 writes nothing") << 0 << 0 << "##########";
    QTest::newRow("count -1 writes nothing") << -1 << 0 << "##########";
}

void tst_Win32Calls::windowText()
{
    QFETCH(int, count);
    QFETCH(int, result);
    Bound<QLineEdit> bound;
    QVERIFY(SetWindowTextW(bound.handle(), L"text"));
    QCOMPARE(bound.widget.text(), QStringLiteral("text"));
    wchar_t buffer[10];
    std::fill(std::begin(buffer), std::end(buffer), L'#');
    QCOMPARE(GetWindowTextW(bound.handle(), buffer, count), result);
    QString written = QString::fromWCharArray(buffer, 10);
    written.replace(QChar(), QChar(u'0'));
    QTEST(written, "buffer");
    // Null text does nothing, which is no failure.
    QVERIFY(SetWindowTextW(bound.handle(), nullptr));
    QCOMPARE(bound.widget.text(), QStringLiteral("text"));
}

void tst_Win32Calls::windowTextLength_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("length");
    QTest::newRow("no text: 0") << QString() << 0;
    QTest::newRow("ASCII: 4") << "text" << 4;
    QTest::newRow("umlauts count as one, in both forms") << QString::fromUtf8("\xc3\xa4\xc3\xb6") << 2;
    QTest::newRow("a character beyond 16 bits counts as one") << QString::fromUtf8("\xf0\x9f\x98\x80") << 1;
}

void tst_Win32Calls::windowTextLength()
{
    QFETCH(QString, text);
    Bound<QLineEdit> bound;
    bound.widget.setText(text);
    QTEST(GetWindowTextLengthW(bound.handle()), "length");
    QTEST(GetWindowTextLengthA(bound.handle()), "length");
}

void tst_Win32Calls::overriddenMembersAreCalled()
{
    Bound<QWidget, MarkedWindow> marked;
    tagRECT rect {};
    QVERIFY(GetClientRect(marked.handle(), &rect));
    QCOMPARE(rect.left, 1);
    QCOMPARE(rect.bottom, 4);
    QVERIFY(SetWindowTextW(marked.handle(), L"to the member"));
    QCOMPARE(marked.window.lastText, QStringLiteral("to the member"));
    wchar_t buffer[8];
    QCOMPARE(GetWindowTextW(marked.handle(), buffer, 8), 1008);
    QCOMPARE(GetWindowTextLengthW(marked.handle()), 6);
    QCOMPARE(GetWindowTextLengthA(marked.handle()), 6);

    Bound<QWidget> dialog;
    dialog.window.SetDlgItem(1, marked.handle());
    QCOMPARE(GetDlgItem(dialog.handle(), 1), notAWindow());
    QCOMPARE(KxUser32::GetDlgItem(dialog.handle(), 1), notAWindow());
    dialog.window.SetParent(&marked.window);
    QCOMPARE(GetParent(dialog.handle()), notAWindow());
}

void tst_Win32Calls::orphanedWindowObject()
{
    QLineEdit widget(QStringLiteral("old"));
    const HWND handle = KxHwndFromWidget(&widget);
    CWnd first;
    first.Attach(handle);
    first.SetCtrlID(5);
    CWnd second;
    second.Attach(handle);
    // The handle leads to the first object still, which reaches the widget no more: the call is made, and no
    // more than that.
    QCOMPARE(CWnd::FromHandle(handle), &first);
    tagRECT rect {-1, -2, -3, -4};
    QVERIFY(GetClientRect(handle, &rect));
    QCOMPARE(rect.left, -1);
    QCOMPARE(rect.bottom, -4);
    QVERIFY(ShowWindow(handle, SW_SHOW));
    QVERIFY(widget.isHidden());
    QVERIFY(SetWindowTextW(handle, L"new"));
    QCOMPARE(widget.text(), QStringLiteral("old"));
    QCOMPARE(GetWindowTextLengthW(handle), 0);
    QCOMPARE(GetDlgCtrlID(handle), 0);
    QCOMPARE(GetParent(handle), static_cast<HWND>(nullptr));
    QCOMPARE(GetDlgItem(handle, 1), static_cast<HWND>(nullptr));
    // What works on the widget itself goes on.
    QVERIFY(EnableWindow(handle, FALSE));
    QVERIFY(!widget.isEnabled());
}

// ---- class names ----------------------------------------------------------------------------------------

void tst_Win32Calls::className_data()
{
    QTest::addColumn<WidgetMaker>("make");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *promise, WidgetMaker make, const char *expected) {
        QTest::newRow(promise) << std::move(make) << QString::fromLatin1(expected);
    };
    class OwnEdit : public QLineEdit
    {
    };
    row("QLineEdit is Edit", [] { return new QLineEdit; }, "Edit");
    row("a class of the host's over QLineEdit is Edit", [] { return new OwnEdit; }, "Edit");
    row("QSpinBox is Edit", [] { return new QSpinBox; }, "Edit");
    row("QDoubleSpinBox is Edit", [] { return new QDoubleSpinBox; }, "Edit");
    row("QPushButton is Button", [] { return new QPushButton; }, "Button");
    row("QCheckBox is Button", [] { return new QCheckBox; }, "Button");
    row("QRadioButton is Button", [] { return new QRadioButton; }, "Button");
    row("QToolButton is Button", [] { return new QToolButton; }, "Button");
    row("QComboBox is ComboBox", [] { return new QComboBox; }, "ComboBox");
    row("QLabel is Static", [] { return new QLabel; }, "Static");
    row("QTextEdit has no name", [] { return new QTextEdit; }, "");
    row("QPlainTextEdit has no name", [] { return new QPlainTextEdit; }, "");
    row("QDateTimeEdit has no name", [] { return new QDateTimeEdit; }, "");
    row("QListWidget has no name", [] { return new QListWidget; }, "");
    row("QTreeWidget has no name", [] { return new QTreeWidget; }, "");
    row("QTableWidget has no name", [] { return new QTableWidget; }, "");
    row("QGroupBox has no name", [] { return new QGroupBox; }, "");
    row("QSlider has no name", [] { return new QSlider; }, "");
    row("QDialog has no name", [] { return new QDialog; }, "");
    row("QWidget has no name", [] { return new QWidget; }, "");
    row("the null handle has no name", [] { return static_cast<QWidget *>(nullptr); }, "");
}

void tst_Win32Calls::className()
{
    QFETCH(WidgetMaker, make);
    QFETCH(QString, expected);
    const std::unique_ptr<QWidget> widget(make());
    wchar_t buffer[21];
    std::fill(std::begin(buffer), std::end(buffer), L'#');
    QCOMPARE(GetClassNameW(KxHwndFromWidget(widget.get()), buffer, 20), expected.size());
    QCOMPARE(QString::fromWCharArray(buffer), expected);
    QCOMPARE(buffer[19], L'\0');
    QCOMPARE(buffer[20], L'#');
}

void tst_Win32Calls::classNameBuffer_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("buffer"); // '0' is a NUL, '#' was not written
    QTest::newRow("Edit into 8: zeros up to the end") << 8 << 4 << "Edit0000##";
    QTest::newRow("Edit into 5") << 5 << 4 << "Edit0#####";
    QTest::newRow("Edit into 4: the first 3") << 4 << 3 << "Edi0######";
    QTest::newRow("Edit into 3: the first 2") << 3 << 2 << "Ed0#######";
    QTest::newRow("Edit into 1: none") << 1 << 0 << "0#########";
    QTest::newRow("count 0 writes nothing") << 0 << 0 << "##########";
    QTest::newRow("count -1 writes nothing") << -1 << 0 << "##########";
}

void tst_Win32Calls::classNameBuffer()
{
    QFETCH(int, count);
    QFETCH(int, result);
    QLineEdit edit;
    wchar_t buffer[10];
    std::fill(std::begin(buffer), std::end(buffer), L'#');
    QCOMPARE(GetClassNameW(KxHwndFromWidget(&edit), buffer, count), result);
    QString written = QString::fromWCharArray(buffer, 10);
    written.replace(QChar(), QChar(u'0'));
    QTEST(written, "buffer");
}

// ---- values by handle -----------------------------------------------------------------------------------

void tst_Win32Calls::windowLongKeepsItsFirstValue()
{
    QWidget widget;
    const HWND handle = KxHwndFromWidget(&widget);
    g_hwndMap.erase(handle);
    QCOMPARE(long(GetWindowLongPtrW(handle, 1)), 0L);
    QCOMPARE(long(SetWindowLongW(handle, 1, 5)), 0L);
    QCOMPARE(long(SetWindowLongW(handle, 1, 9)), 5L);
    QCOMPARE(long(SetWindowLongW(handle, 1, 10)), 5L);
    QCOMPARE(long(GetWindowLongPtrW(handle, 1)), 5L);
    QCOMPARE(g_hwndMap.at(handle), 5L);

    // Each handle has its own, as wide as a pointer.
    QWidget other;
    const HWND otherHandle = KxHwndFromWidget(&other);
    g_hwndMap.erase(otherHandle);
    QCOMPARE(long(SetWindowLongW(otherHandle, 1, 0x123456789aL)), 0L);
    QCOMPARE(long(GetWindowLongPtrW(otherHandle, 1)), 0x123456789aL);
    QCOMPARE(long(SetWindowLongW(otherHandle, 1, 1)), 0x123456789aL);
    QCOMPARE(long(GetWindowLongPtrW(handle, 1)), 5L);
    g_hwndMap.erase(handle);
    g_hwndMap.erase(otherHandle);
}

void tst_Win32Calls::windowLongOfOtherIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("0") << 0;
    QTest::newRow("2") << 2;
    QTest::newRow("8") << 8;
    QTest::newRow("-1") << -1;
    QTest::newRow("-4") << -4;
    QTest::newRow("GWL_ID, -12") << GWL_ID;
    QTest::newRow("-16") << -16;
    QTest::newRow("-21") << -21;
}

void tst_Win32Calls::windowLongOfOtherIndex()
{
    QFETCH(int, index);
    QWidget widget;
    const HWND handle = KxHwndFromWidget(&widget);
    g_hwndMap.erase(handle);
    QCOMPARE(long(SetWindowLongW(handle, index, 5)), 0L);
    QCOMPARE(g_hwndMap.count(handle), size_t(0));
    // And it is 0 with a value there, too.
    g_hwndMap[handle] = 77;
    QCOMPARE(long(SetWindowLongW(handle, index, 5)), 0L);
    QCOMPARE(g_hwndMap.at(handle), 77L);
    QCOMPARE(long(GetWindowLongPtrW(handle, index)), 0L);
    g_hwndMap.erase(handle);
}

void tst_Win32Calls::windowLongOfNull()
{
    g_hwndMap[nullptr] = 3;
    QCOMPARE(long(SetWindowLongW(nullptr, 1, 5)), 0L);
    QCOMPARE(g_hwndMap.at(nullptr), 3L);
    QCOMPARE(long(GetWindowLongPtrW(nullptr, 1)), 0L);
    QCOMPARE(long(GetWindowLongPtrW(nullptr, GWL_ID)), 0L);
    g_hwndMap.erase(nullptr);
}

void tst_Win32Calls::windowLongErasesTheNullEntry()
{
    QWidget widget;
    const HWND handle = KxHwndFromWidget(&widget);
    g_hwndMap[handle] = 4;
    g_hwndMap[nullptr] = 3;
    QCOMPARE(long(SetWindowLongW(handle, 1, 5)), 4L);
    QCOMPARE(g_hwndMap.count(nullptr), size_t(0));
    QCOMPARE(g_hwndMap.at(handle), 4L);
    // Only index 1 does that.
    g_hwndMap[nullptr] = 3;
    SetWindowLongW(handle, 2, 5);
    QCOMPARE(g_hwndMap.count(nullptr), size_t(1));
    g_hwndMap.clear();
}

void tst_Win32Calls::windowLongOutlivesTheWidget()
{
    HWND handle = nullptr;
    {
        Bound<QWidget> bound;
        handle = bound.handle();
        SetWindowLongW(handle, 1, 6);
    }
    QCOMPARE(g_hwndMap.at(handle), 6L);
    QCOMPARE(long(GetWindowLongPtrW(handle, 1)), 6L);
    g_hwndMap.clear();
}

void tst_Win32Calls::windowLongPtr_data()
{
    QTest::addColumn<int>("controlId");
    QTest::addColumn<qint64>("expected");
    QTest::newRow("the identifier 1234 that was set") << 1234 << qint64(1234);
    QTest::newRow("no identifier set: -1") << -1 << qint64(-1);
    QTest::newRow("no window object: 0") << -2 << qint64(0);
}

void tst_Win32Calls::windowLongPtr()
{
    QFETCH(int, controlId);
    QWidget widget;
    CWnd window;
    if (controlId != -2)
        window.Attach(KxHwndFromWidget(&widget));
    if (controlId >= 0)
        window.SetCtrlID(controlId);
    QTEST(qint64(GetWindowLongPtrW(KxHwndFromWidget(&widget), -12)), "expected");
}

// ---- calls that do nothing ------------------------------------------------------------------------------

void tst_Win32Calls::focusCallsDoNothing()
{
    QWidget top;
    auto *layout = new QVBoxLayout(&top);
    auto *first = new QLineEdit;
    auto *second = new QLineEdit;
    layout->addWidget(first);
    layout->addWidget(second);
    CWnd secondWindow;
    secondWindow.Attach(KxHwndFromWidget(second));
    top.show();
    QVERIFY(QTest::qWaitForWindowActive(&top));
    first->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), first);
    QCOMPARE(SetFocus(KxHwndFromWidget(second)), static_cast<HWND>(nullptr));
    QCOMPARE(KxUser32::SetFocus(KxHwndFromWidget(second)), static_cast<HWND>(nullptr));
    QCOMPARE(SetFocus(nullptr), static_cast<HWND>(nullptr));
    QCoreApplication::processEvents();
    QCOMPARE(QApplication::focusWidget(), first);
    second->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), second);
    QCOMPARE(GetFocus(), static_cast<HWND>(nullptr));
    QCOMPARE(KxUser32::GetFocus(), static_cast<HWND>(nullptr));
}

void tst_Win32Calls::buttonCallsDoNothing()
{
    Bound<QDialog> dialog;
    QRadioButton first(&dialog.widget);
    QRadioButton second(&dialog.widget);
    dialog.window.SetDlgItem(1, KxHwndFromWidget(&first));
    dialog.window.SetDlgItem(2, KxHwndFromWidget(&second));
    first.setChecked(true);
    QCOMPARE(int(IsDlgButtonChecked(dialog.handle(), 1)), 0);
    QCOMPARE(int(CheckDlgButton(dialog.handle(), 2, 1)), 0);
    QVERIFY(first.isChecked());
    QVERIFY(!second.isChecked());
    QCOMPARE(int(CheckRadioButton(dialog.handle(), 1, 2, 2)), 0);
    QVERIFY(first.isChecked());
    QVERIFY(!second.isChecked());
    // The members of these names do the work.
    QCOMPARE(int(dialog.window.IsDlgButtonChecked(1)), 1);
}

void tst_Win32Calls::isWindow_data()
{
    QTest::addColumn<bool>("null");
    QTest::newRow("null is a window") << true;
    QTest::newRow("any number is a window") << false;
}

void tst_Win32Calls::isWindow()
{
    QFETCH(bool, null);
    QCOMPARE(int(IsWindow(null ? nullptr : notAWindow())), 1);
}

void tst_Win32Calls::capture()
{
    Bound<QWidget> bound;
    QCOMPARE(SetCapture(bound.handle()), static_cast<HWND>(nullptr));
    QCOMPARE(GetCapture(), static_cast<HWND>(nullptr));
    QCOMPARE(QWidget::mouseGrabber(), static_cast<QWidget *>(nullptr));
    QCOMPARE(SetCapture(bound.handle()), static_cast<HWND>(nullptr));
    QCOMPARE(int(ReleaseCapture()), 0);
}

KX_TEST_MAIN(tst_Win32Calls)

#include "tst_win32_calls.moc"
