// SPDX-License-Identifier: MIT
// Dialog items: identifiers, parents, neighbours, check and radio buttons.

#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>

#include <afxwin.h>

#include <string>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

namespace {

HWND handleOf(QWidget *widget)
{
    return KxHwndFromWidget(widget);
}

/// A window over a widget of its own.
struct BoundWindow {
    BoundWindow() { window.Attach(handleOf(&widget)); }

    QWidget widget;
    CWnd window{nullptr};
};

/// A window with an item of kind `Widget` under each of the given IDs, in the order given.
template<class Widget>
struct WindowWithItems : BoundWindow {
    explicit WindowWithItems(std::initializer_list<int> ids)
    {
        for (const int id : ids) {
            auto *item = new Widget(&widget);
            items.insert(id, item);
            window.SetDlgItem(id, handleOf(item));
        }
    }

    QMap<int, Widget *> items;
};

/// The IDs of the checked ones.
template<class Button>
QList<int> checkedIds(const QMap<int, Button *> &buttons)
{
    QList<int> ids;
    for (auto it = buttons.begin(); it != buttons.end(); ++it) {
        if (it.value()->isChecked())
            ids.append(it.key());
    }
    return ids;
}

/// Has a text of its own and keeps what it is given.
class TalkingWnd : public CWnd
{
public:
    TalkingWnd() : CWnd(nullptr) {}

    using CWnd::GetWindowTextW;
    using CWnd::SetWindowTextW;
    void SetWindowTextW(const wchar_t *text) override { received = text; }
    void GetWindowTextW(CStdStr<wchar_t> &text) const override { text = L"its own"; }

    std::wstring received;
};

constexpr int unknownId = 99;

bool isNullWindow(CWnd *window)
{
    return window && window->GetSafeHwnd() == nullptr;
}

} // namespace

class WindowItemsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void registration_data();
    void registration() { runPromise(); }
    void nullWindow_data();
    void nullWindow() { runPromise(); }
    void itemText_data();
    void itemText() { runPromise(); }
    void parents_data();
    void parents() { runPromise(); }
    void getWindowCommand_data();
    void getWindowCommand();
    void getNextWindowFlag_data();
    void getNextWindowFlag();
    void nextFromId_data();
    void nextFromId();
    void neighbours_data();
    void neighbours() { runPromise(); }
    void checkButton_data();
    void checkButton();
    void checkState_data();
    void checkState() { runPromise(); }
    void checkRadio_data();
    void checkRadio();
    void checkedRadio_data();
    void checkedRadio();

private:
    static void runPromise()
    {
        const auto tableBefore = CWndHandleTable.size();
        QFETCH(Promise, promise);
        promise();
        if (!QTest::currentTestFailed())
            QCOMPARE(CWndHandleTable.size(), tableBefore); // Every row leaves the table as it found it.
    }
};

void WindowItemsTest::registration_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("SetDlgItem of an unbound window registers nothing") << Promise([] {
        QWidget widget;
        QLabel label;
        CWnd window(nullptr);
        window.SetDlgItem(7, handleOf(&label));
        window.Attach(handleOf(&widget));
        QVERIFY(isNullWindow(window.GetDlgItem(7)));
    });
    QTest::newRow("an ID that is present keeps its old handle") << Promise([] {
        QLabel first;
        QLabel second;
        BoundWindow bound;
        bound.window.SetDlgItem(7, handleOf(&first));
        bound.window.SetDlgItem(7, handleOf(&second));
        QVERIFY(bound.window.GetDlgItem(7)->GetSafeHwnd() == handleOf(&first));
    });
    QTest::newRow("an ID that is present with handle 0 keeps that too") << Promise([] {
        QLabel label;
        BoundWindow bound;
        bound.window.SetDlgItem(7, nullptr);
        bound.window.SetDlgItem(7, handleOf(&label));
        QVERIFY(isNullWindow(bound.window.GetDlgItem(7)));
    });
    QTest::newRow("GetDlgItem of an unbound window is null") << Promise([] {
        CWnd window(nullptr);
        QVERIFY(window.GetDlgItem(7) == nullptr);
    });
    QTest::newRow("GetDlgItem of an orphan is null") << Promise([] {
        QLabel label;
        BoundWindow bound;
        bound.window.SetDlgItem(7, handleOf(&label));
        CWnd owner(nullptr);
        owner.Attach(handleOf(&bound.widget));
        QVERIFY(bound.window.GetDlgItem(7) == nullptr);
    });
    QTest::newRow("GetDlgItem makes one wrapper and hands it out again") << Promise([] {
        WindowWithItems<QLabel> bound({7});
        CWnd *item = bound.window.GetDlgItem(7);
        QVERIFY(static_cast<HWND>(*item) == handleOf(bound.items[7]));
        QVERIFY(bound.window.GetDlgItem(7) == item);
        QVERIFY(CWnd::FromHandle(handleOf(bound.items[7])) == item);
    });
    QTest::newRow("GetDlgItem gives a wrapper its parent and its ID") << Promise([] {
        WindowWithItems<QLabel> bound({7});
        CWnd *item = bound.window.GetDlgItem(7);
        QVERIFY(item->GetParent() == &bound.window);
        QCOMPARE(item->GetDlgCtrlID(), 7);
    });
    QTest::newRow("GetDlgItem hands out the object that holds the handle, with parent and ID") << Promise([] {
        WindowWithItems<QLabel> bound({7});
        CWnd label(nullptr);
        label.Attach(handleOf(bound.items[7]));
        QVERIFY(bound.window.GetDlgItem(7) == &label);
        QVERIFY(label.GetParent() == &bound.window);
        QCOMPARE(label.GetDlgCtrlID(), 7);
    });
    QTest::newRow("an item of two windows belongs to the one that asked last") << Promise([] {
        QLabel label;
        BoundWindow first;
        BoundWindow second;
        first.window.SetDlgItem(7, handleOf(&label));
        second.window.SetDlgItem(8, handleOf(&label));
        CWnd *item = first.window.GetDlgItem(7);
        QVERIFY(second.window.GetDlgItem(8) == item);
        QVERIFY(item->GetParent() == &second.window);
        QCOMPARE(item->GetDlgCtrlID(), 8);
    });
    QTest::newRow("the two-argument GetDlgItem looks up and leaves the handle unwritten") << Promise([] {
        WindowWithItems<QLabel> bound({7});
        QWidget sentinel;
        HWND handle = handleOf(&sentinel);
        bound.window.GetDlgItem(7, &handle);
        QVERIFY(handle == handleOf(&sentinel));
        CWnd *item = CWnd::FromHandle(handleOf(bound.items[7]));
        QVERIFY(item != nullptr);
        QVERIFY(item->GetParent() == &bound.window);
        QCOMPARE(item->GetDlgCtrlID(), 7);
    });
    QTest::newRow("the two-argument GetDlgItem leaves the handle unwritten for an unknown ID") << Promise([] {
        BoundWindow bound;
        QWidget sentinel;
        HWND handle = handleOf(&sentinel);
        bound.window.GetDlgItem(unknownId, &handle);
        QVERIFY(handle == handleOf(&sentinel));
    });
    QTest::newRow("IDs may be 0, negative and above 65535") << Promise([] {
        WindowWithItems<QLabel> bound({0, -5, 70000});
        QVERIFY(bound.window.GetDlgItem(0)->GetSafeHwnd() == handleOf(bound.items[0]));
        QVERIFY(bound.window.GetDlgItem(-5)->GetSafeHwnd() == handleOf(bound.items[-5]));
        QVERIFY(bound.window.GetDlgItem(70000)->GetSafeHwnd() == handleOf(bound.items[70000]));
        QCOMPARE(bound.window.GetDlgItem(-5)->GetDlgCtrlID(), -5);
    });
    QTest::newRow("GetDlgItem of a const window") << Promise([] {
        WindowWithItems<QLabel> bound({7});
        const CWnd &window = bound.window;
        QVERIFY(window.GetDlgItem(7)->GetSafeHwnd() == handleOf(bound.items[7]));
    });
    QTest::newRow("GetDlgCtrlID is 0 unbound, -1 bound and never set") << Promise([] {
        QWidget widget;
        CWnd window(nullptr);
        QCOMPARE(window.GetDlgCtrlID(), 0);
        window.Attach(handleOf(&widget));
        QCOMPARE(window.GetDlgCtrlID(), -1);
    });
    QTest::newRow("SetCtrlID of a bound window is what GetDlgCtrlID answers") << Promise([] {
        BoundWindow bound;
        bound.window.SetCtrlID(1234);
        QCOMPARE(bound.window.GetDlgCtrlID(), 1234);
        bound.window.SetCtrlID(0);
        QCOMPARE(bound.window.GetDlgCtrlID(), 0);
    });
    QTest::newRow("SetCtrlID of an unbound window stores nothing") << Promise([] {
        QWidget widget;
        CWnd window(nullptr);
        window.SetCtrlID(1234);
        window.Attach(handleOf(&widget));
        QCOMPARE(window.GetDlgCtrlID(), -1);
    });
}

void WindowItemsTest::nullWindow_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("an unknown ID gives an object, with handle 0") << Promise([] {
        BoundWindow bound;
        CWnd *item = bound.window.GetDlgItem(unknownId);
        QVERIFY(item != nullptr);
        QVERIFY(item->GetSafeHwnd() == nullptr);
        QVERIFY(static_cast<HWND>(*item) == nullptr);
    });
    QTest::newRow("every unknown ID of every window gives the same object") << Promise([] {
        BoundWindow first;
        BoundWindow second;
        CWnd *item = first.window.GetDlgItem(unknownId);
        QVERIFY(first.window.GetDlgItem(unknownId + 1) == item);
        QVERIFY(second.window.GetDlgItem(unknownId) == item);
    });
    QTest::newRow("an ID registered with handle 0 gives that object too") << Promise([] {
        BoundWindow bound;
        bound.window.SetDlgItem(7, nullptr);
        QVERIFY(bound.window.GetDlgItem(7) == bound.window.GetDlgItem(unknownId));
    });
    QTest::newRow("it takes neither parent nor ID") << Promise([] {
        BoundWindow bound;
        CWnd *item = bound.window.GetDlgItem(unknownId);
        QVERIFY(item->GetParent() == nullptr);
        QCOMPARE(item->GetDlgCtrlID(), 0);
    });
    QTest::newRow("its calls chain and do nothing") << Promise([] {
        BoundWindow bound;
        bound.widget.setWindowTitle(QStringLiteral("title"));
        bound.window.GetDlgItem(unknownId)->SetWindowTextW(L"text");
        QCOMPARE(bound.window.GetDlgItem(unknownId)->EnableWindow(FALSE), true);
        QCOMPARE(bound.window.GetDlgItem(unknownId)->IsWindowEnabled(), true);
        QCOMPARE(bound.window.GetDlgItem(unknownId)->GetWindowTextLengthW(), 0);
        QVERIFY(bound.window.GetDlgItem(unknownId)->GetDlgItem(7) == nullptr);
        QCOMPARE(bound.widget.windowTitle(), QStringLiteral("title"));
        QVERIFY(bound.widget.isEnabled());
    });
    QTest::newRow("it is not bound by anything done through GetDlgItem") << Promise([] {
        QLabel label;
        BoundWindow bound;
        bound.window.GetDlgItem(unknownId)->SetDlgItem(7, handleOf(&label));
        bound.window.GetDlgItem(unknownId)->SetParent(&bound.window);
        QVERIFY(bound.window.GetDlgItem(unknownId)->GetDlgItem(7) == nullptr);
        QVERIFY(bound.window.GetDlgItem(unknownId)->GetParent() == nullptr);
    });
}

void WindowItemsTest::itemText_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GetDlgItemText gives text and length of an item") << Promise([] {
        WindowWithItems<QLineEdit> bound({7});
        bound.items[7]->setText(QStringLiteral("four"));
        CStdStr<wchar_t> text(L"before");
        QCOMPARE(bound.window.GetDlgItemTextW(7, text), 4);
        QCOMPARE(QString::fromStdWString(text), QStringLiteral("four"));
    });
    QTest::newRow("GetDlgItemText of an unknown ID leaves the text, and answers its length") << Promise([] {
        BoundWindow bound;
        CStdStr<wchar_t> text(L"before");
        QCOMPARE(bound.window.GetDlgItemTextW(unknownId, text), 6);
        QCOMPARE(QString::fromStdWString(text), QStringLiteral("before"));
    });
    QTest::newRow("GetDlgItemText of an unbound window leaves the text and is 0") << Promise([] {
        CWnd window(nullptr);
        CStdStr<wchar_t> text(L"before");
        QCOMPARE(window.GetDlgItemTextW(7, text), 0);
        QCOMPARE(QString::fromStdWString(text), QStringLiteral("before"));
    });
    QTest::newRow("GetDlgItemText runs the item's override") << Promise([] {
        WindowWithItems<QLineEdit> bound({7});
        TalkingWnd item;
        item.Attach(handleOf(bound.items[7]));
        CStdStr<wchar_t> text;
        QCOMPARE(bound.window.GetDlgItemTextW(7, text), 7);
        QCOMPARE(QString::fromStdWString(text), QStringLiteral("its own"));
    });
    QTest::newRow("SetDlgItemText sets the text of an item") << Promise([] {
        WindowWithItems<QLineEdit> bound({7, 8});
        bound.window.SetDlgItemTextW(7, L"text");
        QCOMPARE(bound.items[7]->text(), QStringLiteral("text"));
        QCOMPARE(bound.items[8]->text(), QString());
    });
    QTest::newRow("SetDlgItemText runs the item's override") << Promise([] {
        WindowWithItems<QLineEdit> bound({7});
        TalkingWnd item;
        item.Attach(handleOf(bound.items[7]));
        bound.window.SetDlgItemTextW(7, L"text");
        QVERIFY(item.received == L"text");
        QCOMPARE(bound.items[7]->text(), QString());
    });
    QTest::newRow("SetDlgItemText of an unknown ID does nothing") << Promise([] {
        WindowWithItems<QLineEdit> bound({7});
        bound.window.SetDlgItemTextW(unknownId, L"text");
        QCOMPARE(bound.items[7]->text(), QString());
        QCOMPARE(bound.widget.windowTitle(), QString());
    });
    QTest::newRow("SetDlgItemText of an orphan does nothing") << Promise([] {
        WindowWithItems<QLineEdit> bound({7});
        CWnd owner(nullptr);
        owner.Attach(handleOf(&bound.widget));
        bound.window.SetDlgItemTextW(7, L"text");
        QCOMPARE(bound.items[7]->text(), QString());
    });
}

void WindowItemsTest::parents_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("SetParent of a bound window answers the old parent") << Promise([] {
        CWnd first(nullptr);
        CWnd second(nullptr);
        BoundWindow bound;
        QVERIFY(bound.window.SetParent(&first) == nullptr);
        QVERIFY(bound.window.SetParent(&second) == &first);
        QVERIFY(bound.window.GetParent() == &second);
        QVERIFY(bound.window.SetParent(nullptr) == &second);
        QVERIFY(bound.window.GetParent() == nullptr);
    });
    QTest::newRow("SetParent of an unbound window is null and changes nothing") << Promise([] {
        QWidget widget;
        CWnd first(nullptr);
        CWnd second(nullptr);
        CWnd window(&first);
        QVERIFY(window.SetParent(&second) == nullptr);
        window.Attach(handleOf(&widget));
        QVERIFY(window.GetParent() == &first);
    });
    QTest::newRow("SetParent leaves the widget's Qt parent") << Promise([] {
        BoundWindow parent;
        QWidget widget;
        QWidget child(&widget);
        CWnd window(nullptr);
        window.Attach(handleOf(&child));
        window.SetParent(&parent.window);
        QVERIFY(child.parentWidget() == &widget);
        window.SetParent(nullptr);
        QVERIFY(child.parentWidget() == &widget);
    });
    QTest::newRow("GetDlgItem leaves the item's Qt parent") << Promise([] {
        QLabel label;
        BoundWindow bound;
        bound.window.SetDlgItem(7, handleOf(&label));
        QVERIFY(bound.window.GetDlgItem(7)->GetParent() == &bound.window);
        QVERIFY(label.parentWidget() == nullptr);
    });
    QTest::newRow("GetParent of an orphan is null") << Promise([] {
        CWnd parent(nullptr);
        BoundWindow bound;
        bound.window.SetParent(&parent);
        CWnd owner(nullptr);
        owner.Attach(handleOf(&bound.widget));
        QVERIFY(bound.window.GetParent() == nullptr);
    });
}

void WindowItemsTest::getWindowCommand_data()
{
    QTest::addColumn<UINT>("command");
    QTest::addColumn<bool>("served");

    QTest::newRow("GetWindow(0)") << 0u << false;
    QTest::newRow("GetWindow(1)") << 1u << false;
    QTest::newRow("GetWindow(2)") << 2u << false;
    QTest::newRow("GetWindow(3)") << 3u << false;
    QTest::newRow("GetWindow(4)") << 4u << false;
    QTest::newRow("GetWindow(5), GW_CHILD") << 5u << true;
    QTest::newRow("GetWindow(6)") << 6u << false;
    QTest::newRow("GetWindow(0xFFFFFFFF)") << 0xFFFFFFFFu << false;
}

void WindowItemsTest::getWindowCommand()
{
    QFETCH(UINT, command);
    QFETCH(bool, served);
    QCOMPARE(static_cast<UINT>(GW_CHILD), 5u);
    WindowWithItems<QLabel> bound({9, 4});
    CWnd *expected = served ? bound.window.GetDlgItem(4) : nullptr;
    QVERIFY(bound.window.GetWindow(command) == expected);
}

void WindowItemsTest::getNextWindowFlag_data()
{
    QTest::addColumn<UINT>("flag");
    QTest::addColumn<bool>("served");

    QTest::newRow("GetNextWindow(0)") << 0u << false;
    QTest::newRow("GetNextWindow(1)") << 1u << false;
    QTest::newRow("GetNextWindow(2), GW_HWNDNEXT") << 2u << true;
    QTest::newRow("GetNextWindow(3)") << 3u << false;
    QTest::newRow("GetNextWindow(4)") << 4u << false;
    QTest::newRow("GetNextWindow(5)") << 5u << false;
}

void WindowItemsTest::getNextWindowFlag()
{
    QFETCH(UINT, flag);
    QFETCH(bool, served);
    QCOMPARE(static_cast<UINT>(GW_HWNDNEXT), 2u);
    WindowWithItems<QLabel> bound({9, 4});
    CWnd *expected = served ? bound.window.GetDlgItem(9) : nullptr;
    QVERIFY(bound.window.GetDlgItem(4)->GetNextWindow(flag) == expected);
}

void WindowItemsTest::nextFromId_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("next"); // 0: none

    QTest::newRow("of 4, 9, 30: after 4 comes 9") << 4 << 9;
    QTest::newRow("of 4, 9, 30: after 9 comes 30") << 9 << 30;
    QTest::newRow("of 4, 9, 30: after 10, which is no ID, comes 30") << 10 << 30;
    QTest::newRow("of 4, 9, 30: after 0 comes 4") << 0 << 4;
    QTest::newRow("of 4, 9, 30: after -100 comes 4") << -100 << 4;
    QTest::newRow("of 4, 9, 30: after 29 comes 30") << 29 << 30;
    QTest::newRow("of 4, 9, 30: after 30 comes none") << 30 << 0;
    QTest::newRow("of 4, 9, 30: after 31 comes none") << 31 << 0;
}

void WindowItemsTest::nextFromId()
{
    QFETCH(int, id);
    QFETCH(int, next);
    WindowWithItems<QLabel> bound({30, 4, 9});
    CWnd *found = bound.window.GetNextCWndFromID(id);
    if (next == 0) {
        QVERIFY(found == nullptr);
        return;
    }
    QVERIFY(found != nullptr);
    QVERIFY(found->GetSafeHwnd() == handleOf(bound.items[next]));
    QVERIFY(found->GetParent() == &bound.window);
    QCOMPARE(found->GetDlgCtrlID(), next);
}

void WindowItemsTest::neighbours_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GW_CHILD is the lowest of the IDs 7, -3 and 2, with parent and ID") << Promise([] {
        WindowWithItems<QLabel> bound({7, -3, 2});
        CWnd *child = bound.window.GetWindow(GW_CHILD);
        QVERIFY(child != nullptr);
        QVERIFY(child->GetSafeHwnd() == handleOf(bound.items[-3]));
        QVERIFY(child->GetParent() == &bound.window);
        QCOMPARE(child->GetDlgCtrlID(), -3);
    });
    QTest::newRow("GW_CHILD of a window without items is null") << Promise([] {
        BoundWindow bound;
        QVERIFY(bound.window.GetWindow(GW_CHILD) == nullptr);
    });
    QTest::newRow("GW_CHILD of an unbound window is null") << Promise([] {
        CWnd window(nullptr);
        QVERIFY(window.GetWindow(GW_CHILD) == nullptr);
    });
    QTest::newRow("GW_CHILD is the null window when the lowest ID has handle 0") << Promise([] {
        WindowWithItems<QLabel> bound({7});
        bound.window.SetDlgItem(3, nullptr);
        QVERIFY(isNullWindow(bound.window.GetWindow(GW_CHILD)));
    });
    QTest::newRow("the flag of GetNextWindow may be left out") << Promise([] {
        WindowWithItems<QLabel> bound({4, 9});
        QVERIFY(bound.window.GetDlgItem(4)->GetNextWindow() == bound.window.GetDlgItem(9));
    });
    QTest::newRow("GetNextWindow walks 3 items and ends with null") << Promise([] {
        WindowWithItems<QLabel> bound({30, 4, 9});
        QList<int> ids;
        for (CWnd *item = bound.window.GetWindow(GW_CHILD); item; item = item->GetNextWindow())
            ids.append(item->GetDlgCtrlID());
        QCOMPARE(ids, (QList<int>{4, 9, 30}));
    });
    QTest::newRow("GetNextWindow without a parent is null") << Promise([] {
        BoundWindow bound;
        bound.window.SetCtrlID(1);
        QVERIFY(bound.window.GetNextWindow() == nullptr);
    });
    QTest::newRow("GetNextWindow of an unbound window is null") << Promise([] {
        WindowWithItems<QLabel> bound({4});
        CWnd window(&bound.window);
        QVERIFY(window.GetNextWindow() == nullptr);
    });
    QTest::newRow("GetNextCWndFromID of an unbound window is null") << Promise([] {
        CWnd window(nullptr);
        QVERIFY(window.GetNextCWndFromID(0) == nullptr);
    });
    QTest::newRow("GetNextCWndFromID is the null window when that ID has handle 0") << Promise([] {
        BoundWindow bound;
        bound.window.SetDlgItem(3, nullptr);
        QVERIFY(isNullWindow(bound.window.GetNextCWndFromID(2)));
    });
    QTest::newRow("GetDescendantWindow is GetDlgItem, whatever the second argument") << Promise([] {
        WindowWithItems<QLabel> bound({7});
        QVERIFY(bound.window.GetDescendantWindow(7) == bound.window.GetDlgItem(7));
        QVERIFY(bound.window.GetDescendantWindow(7, FALSE) == bound.window.GetDlgItem(7));
        QVERIFY(bound.window.GetDescendantWindow(7, TRUE) == bound.window.GetDlgItem(7));
    });
    QTest::newRow("GetDescendantWindow makes a wrapper, permanent asked for or not") << Promise([] {
        WindowWithItems<QLabel> bound({7});
        CWnd *item = bound.window.GetDescendantWindow(7, TRUE);
        QVERIFY(item != nullptr);
        QVERIFY(item->GetSafeHwnd() == handleOf(bound.items[7]));
    });
    QTest::newRow("GetDescendantWindow does not look into items") << Promise([] {
        QLabel deep;
        WindowWithItems<QWidget> bound({7});
        bound.window.GetDlgItem(7)->SetDlgItem(8, handleOf(&deep));
        QVERIFY(isNullWindow(bound.window.GetDescendantWindow(8)));
    });
    QTest::newRow("GetDescendantWindow of an unbound window is null") << Promise([] {
        CWnd window(nullptr);
        QVERIFY(window.GetDescendantWindow(7, FALSE) == nullptr);
    });
}

void WindowItemsTest::checkButton_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<UINT>("state");
    QTest::addColumn<bool>("after");

    QTest::newRow("CheckDlgButton(0) clears a checked box") << true << 0u << false;
    QTest::newRow("CheckDlgButton(0) leaves a cleared box") << false << 0u << false;
    QTest::newRow("CheckDlgButton(1) checks") << false << 1u << true;
    QTest::newRow("CheckDlgButton(2) checks, it does not make the state partial") << false << 2u << true;
    QTest::newRow("CheckDlgButton(0x80000000) checks") << false << 0x80000000u << true;
}

void WindowItemsTest::checkButton()
{
    QFETCH(bool, before);
    QFETCH(UINT, state);
    QFETCH(bool, after);
    WindowWithItems<QCheckBox> bound({7, 8});
    bound.items[7]->setTristate(true);
    bound.items[7]->setCheckState(before ? Qt::Checked : Qt::Unchecked);
    bound.window.CheckDlgButton(7, state);
    QCOMPARE(bound.items[7]->checkState(), after ? Qt::Checked : Qt::Unchecked);
    QCOMPARE(bound.items[8]->isChecked(), false);
}

void WindowItemsTest::checkState_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("IsDlgButtonChecked is 1 for a checked and 0 for a cleared box") << Promise([] {
        WindowWithItems<QCheckBox> bound({7, 8});
        bound.items[7]->setChecked(true);
        QCOMPARE(bound.window.IsDlgButtonChecked(7), 1u);
        QCOMPARE(bound.window.IsDlgButtonChecked(8), 0u);
    });
    QTest::newRow("IsDlgButtonChecked is 1 for a partially checked box, no third state") << Promise([] {
        WindowWithItems<QCheckBox> bound({7});
        bound.items[7]->setCheckState(Qt::PartiallyChecked);
        QCOMPARE(bound.window.IsDlgButtonChecked(7), 1u);
    });
    QTest::newRow("IsDlgButtonChecked serves radio and push buttons") << Promise([] {
        WindowWithItems<QRadioButton> radios({7});
        radios.items[7]->setChecked(true);
        QCOMPARE(radios.window.IsDlgButtonChecked(7), 1u);
        WindowWithItems<QPushButton> buttons({7});
        buttons.items[7]->setCheckable(true);
        buttons.items[7]->setChecked(true);
        QCOMPARE(buttons.window.IsDlgButtonChecked(7), 1u);
    });
    QTest::newRow("IsDlgButtonChecked is 0 for no button, unknown IDs, unbound windows") << Promise([] {
        WindowWithItems<QLabel> bound({7});
        QCOMPARE(bound.window.IsDlgButtonChecked(7), 0u);
        QCOMPARE(bound.window.IsDlgButtonChecked(unknownId), 0u);
        CWnd window(nullptr);
        QCOMPARE(window.IsDlgButtonChecked(7), 0u);
    });
    QTest::newRow("IsDlgButtonChecked reads an item of an orphaned object, by its handle") << Promise([] {
        WindowWithItems<QCheckBox> bound({7});
        bound.items[7]->setChecked(true);
        CWnd first(nullptr);
        CWnd second(nullptr);
        first.Attach(handleOf(bound.items[7]));
        second.Attach(handleOf(bound.items[7]));
        QVERIFY(static_cast<HWND>(*bound.window.GetDlgItem(7)) == nullptr);
        QCOMPARE(bound.window.IsDlgButtonChecked(7), 1u);
    });
    QTest::newRow("CheckDlgButton leaves what is no button, unknown, or of an unbound window") << Promise([] {
        WindowWithItems<QLabel> bound({7});
        bound.items[7]->setText(QStringLiteral("label"));
        bound.window.CheckDlgButton(7, 1);
        bound.window.CheckDlgButton(unknownId, 1);
        QCOMPARE(bound.items[7]->text(), QStringLiteral("label"));
        WindowWithItems<QCheckBox> boxes({7});
        CWnd owner(nullptr);
        owner.Attach(handleOf(&boxes.widget));
        boxes.window.CheckDlgButton(7, 1);
        QCOMPARE(boxes.items[7]->isChecked(), false);
    });
    QTest::newRow("CheckDlgButton lets the button tell") << Promise([] {
        WindowWithItems<QCheckBox> bound({7});
        QSignalSpy toggled(bound.items[7], &QAbstractButton::toggled);
        bound.window.CheckDlgButton(7, 1);
        QCOMPARE(toggled.size(), 1);
    });
    QTest::newRow("CheckRadioButton of an orphan changes nothing") << Promise([] {
        WindowWithItems<QCheckBox> bound({1, 2});
        bound.items[1]->setChecked(true);
        CWnd owner(nullptr);
        owner.Attach(handleOf(&bound.widget));
        bound.window.CheckRadioButton(1, 2, 2);
        QCOMPARE(checkedIds(bound.items), QList<int>{1});
    });
    QTest::newRow("CheckRadioButton passes over labels and missing IDs") << Promise([] {
        WindowWithItems<QCheckBox> bound({1, 2, 5});
        QLabel label;
        bound.window.SetDlgItem(3, handleOf(&label));
        bound.items[1]->setChecked(true);
        bound.window.CheckRadioButton(1, 5, 5);
        QCOMPARE(checkedIds(bound.items), QList<int>{5});
    });
    QTest::newRow("CheckRadioButton clears first: a checked box tells false, then true") << Promise([] {
        WindowWithItems<QCheckBox> bound({1, 2});
        bound.items[2]->setChecked(true);
        QSignalSpy toggled(bound.items[2], &QAbstractButton::toggled);
        bound.window.CheckRadioButton(1, 2, 2);
        QCOMPARE(toggled.size(), 2);
        QCOMPARE(toggled.at(0).at(0).toBool(), false);
        QCOMPARE(toggled.at(1).at(0).toBool(), true);
    });
    QTest::newRow("CheckRadioButton moves the mark of an exclusive radio group") << Promise([] {
        WindowWithItems<QRadioButton> bound({1, 2, 3});
        bound.items[1]->setChecked(true);
        bound.window.CheckRadioButton(1, 3, 3);
        QCOMPARE(checkedIds(bound.items), QList<int>{3});
        bound.window.CheckRadioButton(1, 3, 2);
        QCOMPARE(checkedIds(bound.items), QList<int>{2});
    });
    QTest::newRow("GetCheckedRadioButton of an unbound window is 0") << Promise([] {
        CWnd window(nullptr);
        QCOMPARE(window.GetCheckedRadioButton(1, 9), 0);
    });
}

void WindowItemsTest::checkRadio_data()
{
    QTest::addColumn<QList<int>>("before");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("check");
    QTest::addColumn<QList<int>>("after");

    QTest::newRow("boxes 1 to 5, range 2..4, check 3: all others of the range are cleared")
        << QList<int>{2, 4} << 2 << 4 << 3 << QList<int>{3};
    QTest::newRow("boxes 1 to 5, range 2..4: boxes outside the range stay")
        << QList<int>{1, 5} << 2 << 4 << 2 << QList<int>{1, 2, 5};
    QTest::newRow("boxes 1 to 5, range 2..4, check 4: the last belongs to the range")
        << QList<int>{2} << 2 << 4 << 4 << QList<int>{4};
    QTest::newRow("boxes 1 to 5, range 2..4, check 5: outside the range it is not checked")
        << QList<int>{2, 3} << 2 << 4 << 5 << QList<int>{};
    QTest::newRow("boxes 1 to 5, range 3..3, check 3") << QList<int>{} << 3 << 3 << 3 << QList<int>{3};
    QTest::newRow("boxes 1 to 5, range 4..2: nothing") << QList<int>{2, 3} << 4 << 2 << 3 << QList<int>{2, 3};
}

void WindowItemsTest::checkRadio()
{
    QFETCH(QList<int>, before);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, check);
    QFETCH(QList<int>, after);
    WindowWithItems<QCheckBox> bound({1, 2, 3, 4, 5});
    for (const int id : before)
        bound.items[id]->setChecked(true);
    bound.window.CheckRadioButton(first, last, check);
    QCOMPARE(checkedIds(bound.items), after);
}

void WindowItemsTest::checkedRadio_data()
{
    QTest::addColumn<QList<int>>("checked");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("found");

    QTest::newRow("of 2 and 4 checked, 1..5 finds 2") << QList<int>{4, 2} << 1 << 5 << 2;
    QTest::newRow("of 2 and 4 checked, 3..5 finds 4") << QList<int>{4, 2} << 3 << 5 << 4;
    QTest::newRow("of 2 and 4 checked, 4..4 finds 4") << QList<int>{4, 2} << 4 << 4 << 4;
    QTest::newRow("of 2 and 4 checked, 1..2 finds 2") << QList<int>{4, 2} << 1 << 2 << 2;
    QTest::newRow("of 2 and 4 checked, 3..3 finds none") << QList<int>{4, 2} << 3 << 3 << 0;
    QTest::newRow("of none checked, 1..5 finds none") << QList<int>{} << 1 << 5 << 0;
    QTest::newRow("of 2 checked, 5..1 finds none") << QList<int>{2} << 5 << 1 << 0;
    QTest::newRow("of 2 checked, 6..9 with no such items finds none") << QList<int>{2} << 6 << 9 << 0;
}

void WindowItemsTest::checkedRadio()
{
    QFETCH(QList<int>, checked);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, found);
    WindowWithItems<QCheckBox> bound({1, 2, 3, 4, 5});
    for (const int id : checked)
        bound.items[id]->setChecked(true);
    QCOMPARE(bound.window.GetCheckedRadioButton(first, last), found);
}

KX_TEST_MAIN(WindowItemsTest)
#include "tst_window_items.moc"
