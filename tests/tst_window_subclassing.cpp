// SPDX-License-Identifier: MIT
// Window objects that take over what is there: Create(), which creates nothing, and SubclassDlgItem().

#include "KxTestCase.h"

#include <QtWidgets/QLabel>

#include <afxwin.h>

#include <KxAfxWinPrivate.h>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

namespace {

/// Keeps what it knew of itself when PreSubclassWindow() ran.
class SubclassingWnd : public CWnd
{
public:
    SubclassingWnd() : CWnd(nullptr) {}

    void PreSubclassWindow() override
    {
        ++calls;
        handle = *this;
        parent = GetParent();
        id = GetDlgCtrlID();
    }

    int calls = 0;
    HWND handle = nullptr;
    CWnd *parent = nullptr;
    int id = 0;
};

HWND handleOf(QWidget *widget)
{
    return KxHwndFromWidget(widget);
}

const CRect anyRectangle(1, 2, 3, 4);

} // namespace

class WindowSubclassingTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void create_data();
    void create() { runPromise(); }
    void subclassItem_data();
    void subclassItem() { runPromise(); }

private:
    static void runPromise();
};

void WindowSubclassingTest::runPromise()
{
    const auto tableBefore = CWndHandleTable.size();
    QFETCH(Promise, promise);
    promise();
    if (!QTest::currentTestFailed())
        QCOMPARE(CWndHandleTable.size(), tableBefore); // Every row leaves the table as it found it.
}

void WindowSubclassingTest::create_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("Create of an unbound object is TRUE and creates no widget") << Promise([] {
        const int widgetsBefore = QApplication::allWidgets().size();
        CWnd window(nullptr);
        QCOMPARE(window.Create(L"Button", L"text", 0, anyRectangle, nullptr, 7), true);
        QVERIFY(window.GetSafeHwnd() == nullptr);
        QCOMPARE(QApplication::allWidgets().size(), widgetsBefore);
    });
    QTest::newRow("Create of an unbound object does not record the parent") << Promise([] {
        QWidget widget;
        CWnd parent(nullptr);
        CWnd window(nullptr);
        QCOMPARE(window.Create(L"Button", L"text", 0, anyRectangle, &parent, 7, nullptr), true);
        window.Attach(handleOf(&widget));
        QVERIFY(window.GetParent() == nullptr);
    });
    QTest::newRow("Create of a bound object is TRUE and records the parent, nothing else") << Promise([] {
        QWidget widget;
        CWnd parent(nullptr);
        CWnd window(nullptr);
        window.Attach(handleOf(&widget));
        widget.setGeometry(11, 12, 113, 114);
        QCOMPARE(window.Create(L"Button", L"text", 0, anyRectangle, &parent, 7), true);
        QVERIFY(window.GetParent() == &parent);
        QCOMPARE(window.GetDlgCtrlID(), -1);
        QCOMPARE(widget.windowTitle(), QString());
        QCOMPARE(widget.geometry(), QRect(11, 12, 113, 114));
        QVERIFY(widget.parentWidget() == nullptr);
    });
    QTest::newRow("Create of an orphan is TRUE and records nothing") << Promise([] {
        QWidget widget;
        CWnd parent(nullptr);
        CWnd window(nullptr);
        CWnd owner(nullptr);
        window.Attach(handleOf(&widget));
        owner.Attach(handleOf(&widget));
        QCOMPARE(window.Create(nullptr, nullptr, 0, anyRectangle, &parent, 7), true);
        QVERIFY(window.d_func()->parentWnd == nullptr);
    });
}

void WindowSubclassingTest::subclassItem_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("no parent is FALSE") << Promise([] {
        SubclassingWnd window;
        QCOMPARE(window.SubclassDlgItem(7, nullptr), false);
        QCOMPARE(window.calls, 0);
    });
    QTest::newRow("no parent is FALSE for a bound object too") << Promise([] {
        QWidget widget;
        SubclassingWnd window;
        window.Attach(handleOf(&widget));
        QCOMPARE(window.SubclassDlgItem(7, nullptr), false);
    });
    QTest::newRow("an ID that the parent does not have is FALSE") << Promise([] {
        QWidget widget;
        QWidget item;
        CWnd parent(nullptr);
        parent.Attach(handleOf(&widget));
        parent.SetDlgItem(7, handleOf(&item));
        SubclassingWnd window;
        QCOMPARE(window.SubclassDlgItem(8, &parent), false);
        QVERIFY(window.GetSafeHwnd() == nullptr);
        QCOMPARE(window.calls, 0);
    });
    QTest::newRow("a bound object is TRUE at once and keeps what it has") << Promise([] {
        QWidget widget;
        QWidget parentWidget;
        QWidget item;
        CWnd parent(nullptr);
        parent.Attach(handleOf(&parentWidget));
        parent.SetDlgItem(7, handleOf(&item));
        SubclassingWnd window;
        window.Attach(handleOf(&widget));
        QCOMPARE(window.SubclassDlgItem(7, &parent), true);
        QVERIFY(static_cast<HWND>(window) == handleOf(&widget));
        QVERIFY(window.GetParent() == nullptr);
        QCOMPARE(window.GetDlgCtrlID(), -1);
        QCOMPARE(window.calls, 0);
    });
    QTest::newRow("a bound object is TRUE even for an ID that the parent does not have") << Promise([] {
        QWidget widget;
        CWnd parent(nullptr);
        SubclassingWnd window;
        window.Attach(handleOf(&widget));
        QCOMPARE(window.SubclassDlgItem(7, &parent), true);
    });
    QTest::newRow("item 7 is bound with its parent and ID, then PreSubclassWindow runs once") << Promise([] {
        QWidget parentWidget;
        QLabel item(&parentWidget);
        CWnd parent(nullptr);
        parent.Attach(handleOf(&parentWidget));
        parent.SetDlgItem(7, handleOf(&item));
        SubclassingWnd window;
        QCOMPARE(window.SubclassDlgItem(7, &parent), true);
        QCOMPARE(window.calls, 1);
        QVERIFY(window.handle == handleOf(&item));
        QVERIFY(window.parent == &parent);
        QCOMPARE(window.id, 7);
        QVERIFY(CWnd::FromHandle(handleOf(&item)) == &window);
        QVERIFY(parent.GetDlgItem(7) == &window);
    });
    QTest::newRow("the temporary wrapper of the item gives way") << Promise([] {
        QWidget parentWidget;
        QLabel item(&parentWidget);
        CWnd parent(nullptr);
        parent.Attach(handleOf(&parentWidget));
        parent.SetDlgItem(7, handleOf(&item));
        QVERIFY(parent.GetDlgItem(7) != nullptr);
        SubclassingWnd window;
        QCOMPARE(window.SubclassDlgItem(7, &parent), true);
        QVERIFY(parent.GetDlgItem(7) == &window);
    });
    QTest::newRow("an item registered with handle 0 is TRUE and stays unbound") << Promise([] {
        QWidget parentWidget;
        CWnd parent(nullptr);
        parent.Attach(handleOf(&parentWidget));
        parent.SetDlgItem(7, nullptr);
        SubclassingWnd window;
        QCOMPARE(window.SubclassDlgItem(7, &parent), true);
        QCOMPARE(window.calls, 1);
        QVERIFY(window.GetSafeHwnd() == nullptr);
        QVERIFY(window.GetParent() == nullptr);
    });
}

KX_TEST_MAIN(WindowSubclassingTest)
#include "tst_window_subclassing.moc"
