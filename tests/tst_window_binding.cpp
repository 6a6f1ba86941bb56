// SPDX-License-Identifier: MIT
// How window objects and widgets come together and part: construction, binding, the handle table,
// temporary objects, and who deletes what.

#include "KxTestCase.h"

#include <QtCore/QPointer>

#include <afxwin.h>

#include <KxAfxWinPrivate.h>

#include <memory>
#include <type_traits>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

namespace {

/// Opens the private block and counts deletions.
class CountedWnd : public CWnd
{
public:
    explicit CountedWnd(int *deletions = nullptr, CWnd *parent = nullptr)
        : CWnd(parent), m_deletions(deletions)
    {
    }

    ~CountedWnd() override
    {
        if (m_deletions)
            ++*m_deletions;
    }

    using CWnd::d_func;

private:
    int *m_deletions;
};

/// Brings a private block of its own.
class ForeignBlockWnd : public CWnd
{
public:
    ForeignBlockWnd(CWndPrivate &block, CWnd *parent) : CWnd(block, parent) {}

    using CWnd::d_func;
};

/// Answers a handle that is not its own.
class PretendingWnd : public CWnd
{
public:
    explicit PretendingWnd(HWND pretended) : CWnd(nullptr), m_pretended(pretended) {}

    HWND GetSafeHwnd() const override { return m_pretended; }

private:
    HWND m_pretended;
};

/// Counts its deletions through the virtual destructor of QWidget.
class CountedWidget : public QWidget
{
public:
    explicit CountedWidget(int *deletions) : m_deletions(deletions) {}

    ~CountedWidget() override { ++*m_deletions; }

private:
    int *m_deletions;
};

struct Ballast {
    virtual ~Ballast() = default;
    long weight = 0;
};

/// A widget whose QWidget does not stand at its beginning.
class ShiftedWidget : public Ballast, public QWidget
{
};

HWND handleOf(QWidget *widget)
{
    return KxHwndFromWidget(widget);
}

bool tableHolds(HWND handle)
{
    return CWndHandleTable.find(handle) != CWndHandleTable.end();
}

} // namespace

class WindowBindingTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void construction_data();
    void construction() { runPromise(); }
    void setHandle_data();
    void setHandle() { runPromise(); }
    void attachAndDetach_data();
    void attachAndDetach() { runPromise(); }
    void lookup_data();
    void lookup() { runPromise(); }
    void destruction_data();
    void destruction() { runPromise(); }
    void itemsAtDestruction_data();
    void itemsAtDestruction() { runPromise(); }

private:
    static void runPromise();
};

void WindowBindingTest::runPromise()
{
    const auto tableBefore = CWndHandleTable.size();
    QFETCH(Promise, promise);
    promise();
    if (!QTest::currentTestFailed())
        QCOMPARE(CWndHandleTable.size(), tableBefore); // Every row leaves the table as it found it.
}

void WindowBindingTest::construction_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a new object has handle 0 in both readings") << Promise([] {
        CWnd window(nullptr);
        QVERIFY(window.GetSafeHwnd() == nullptr);
        QVERIFY(static_cast<HWND>(window) == nullptr);
        QVERIFY(window.m_hWnd == nullptr);
    });
    QTest::newRow("the parent argument may be left out and is then null") << Promise([] {
        CWnd window;
        QWidget widget;
        window.SetHandle(handleOf(&widget));
        QVERIFY(window.GetParent() == nullptr);
    });
    QTest::newRow("the parent argument is the parent once the object is bound, not before") << Promise([] {
        QWidget widget;
        CWnd parent(nullptr);
        CWnd window(&parent);
        QVERIFY(window.GetParent() == nullptr);
        window.SetHandle(handleOf(&widget));
        QVERIFY(window.GetParent() == &parent);
    });
    QTest::newRow("a new private block holds the defaults") << Promise([] {
        CWnd parent(nullptr);
        CountedWnd window(nullptr, &parent);
        const CWndPrivate *block = window.d_func();
        QVERIFY(block != nullptr);
        QVERIFY(block->widget == nullptr);
        QVERIFY(block->q == &window);
        QVERIFY(block->parentWnd == &parent);
        QVERIFY(block->dc == nullptr);
        QCOMPARE(block->keepObject, true);
        QCOMPARE(block->keepWidget, true);
        QVERIFY(block->items.empty());
        QCOMPARE(block->ctrlId, -1);
    });
    QTest::newRow("the protected constructor adopts the block it is given") << Promise([] {
        CWnd parent(nullptr);
        auto *block = new CWndPrivate;
        ForeignBlockWnd window(*block, &parent);
        QVERIFY(window.d_func() == block);
        QVERIFY(block->q == &window);
        QVERIFY(block->parentWnd == &parent);
        QVERIFY(window.GetSafeHwnd() == nullptr);
    });
    QTest::newRow("wndTop is never bound") << Promise([] {
        QVERIFY(CWnd::wndTop.GetSafeHwnd() == nullptr);
        QVERIFY(CWnd::wndTop.GetParent() == nullptr);
        QCOMPARE(CWnd::wndTop.SetWindowPos(nullptr, 1, 2, 0, 0, 0), true);
    });
    QTest::newRow("the window list stays empty while objects come and go") << Promise([] {
        static_assert(std::is_same_v<decltype(CWndList), QList<CWnd *>>);
        QWidget widget;
        CWnd window(nullptr);
        window.SetHandle(handleOf(&widget));
        QVERIFY(CWndList.isEmpty());
    });
    QTest::newRow("the handle table is a map from handle to object") << Promise([] {
        static_assert(std::is_same_v<decltype(CWndHandleTable), std::map<HWND, CWnd *>>);
        QWidget widget;
        CWnd window(nullptr);
        window.SetHandle(handleOf(&widget));
        QVERIFY(CWndHandleTable.at(handleOf(&widget)) == &window);
    });
    QTest::newRow("handle and widget convert into each other") << Promise([] {
        QWidget widget;
        QVERIFY(KxWidgetFromHwnd(KxHwndFromWidget(&widget)) == &widget);
        QVERIFY(KxHwndFromWidget(nullptr) == nullptr);
        QVERIFY(KxWidgetFromHwnd(nullptr) == nullptr);
    });
    QTest::newRow("a handle is the address of the QWidget, not of the object around it") << Promise([] {
        ShiftedWidget widget;
        QWidget *asWidget = &widget;
        QVERIFY(static_cast<void *>(asWidget) != static_cast<void *>(&widget));
        QVERIFY(static_cast<void *>(KxHwndFromWidget(&widget)) == static_cast<void *>(asWidget));
        CWnd window(nullptr);
        window.SetHandle(KxHwndFromWidget(&widget));
        window.SetWindowTextW(L"shifted");
        QCOMPARE(widget.windowTitle(), QStringLiteral("shifted"));
    });
}

void WindowBindingTest::setHandle_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("handle 0 leaves the object unbound") << Promise([] {
        CountedWnd window;
        window.SetHandle(nullptr);
        QVERIFY(window.GetSafeHwnd() == nullptr);
        QVERIFY(window.d_func()->widget == nullptr);
        QVERIFY(!tableHolds(nullptr));
    });
    QTest::newRow("binding sets handle, widget and table entry") << Promise([] {
        QWidget widget;
        CountedWnd window;
        window.SetHandle(handleOf(&widget));
        QVERIFY(window.GetSafeHwnd() == handleOf(&widget));
        QVERIFY(static_cast<HWND>(window) == handleOf(&widget));
        QVERIFY(window.d_func()->widget == &widget);
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &window);
    });
    QTest::newRow("a bound object takes no second handle") << Promise([] {
        QWidget first;
        QWidget second;
        CWnd window(nullptr);
        window.SetHandle(handleOf(&first));
        window.SetHandle(handleOf(&second));
        QVERIFY(static_cast<HWND>(window) == handleOf(&first));
        QVERIFY(!tableHolds(handleOf(&second)));
    });
    QTest::newRow("setting the same handle twice does not take the widget away") << Promise([] {
        QWidget widget;
        CWnd window(nullptr);
        window.SetHandle(handleOf(&widget));
        window.SetHandle(handleOf(&widget));
        QVERIFY(static_cast<HWND>(window) == handleOf(&widget));
    });
    QTest::newRow("a kept owner is orphaned but stays in the table") << Promise([] {
        QWidget widget;
        CountedWnd first;
        CountedWnd second;
        first.SetHandle(handleOf(&widget));
        second.SetHandle(handleOf(&widget));
        QVERIFY(first.d_func()->widget == nullptr);
        QVERIFY(second.d_func()->widget == &widget);
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &first);
    });
    QTest::newRow("an orphan still answers its handle, but is bound to nothing") << Promise([] {
        QWidget widget;
        CWnd first(nullptr);
        CWnd second(nullptr);
        first.SetHandle(handleOf(&widget));
        second.SetHandle(handleOf(&widget));
        QVERIFY(first.GetSafeHwnd() == handleOf(&widget));
        QVERIFY(static_cast<HWND>(first) == nullptr);
        QVERIFY(static_cast<HWND>(second) == handleOf(&widget));
    });
    QTest::newRow("only the new owner reaches the widget") << Promise([] {
        QWidget widget;
        CWnd first(nullptr);
        CWnd second(nullptr);
        first.SetHandle(handleOf(&widget));
        second.SetHandle(handleOf(&widget));
        second.SetWindowTextW(L"second");
        first.SetWindowTextW(L"first");
        QCOMPARE(widget.windowTitle(), QStringLiteral("second"));
    });
    QTest::newRow("an orphan cannot be bound again") << Promise([] {
        QWidget widget;
        QWidget other;
        CWnd first(nullptr);
        CWnd second(nullptr);
        first.SetHandle(handleOf(&widget));
        second.SetHandle(handleOf(&widget));
        first.SetHandle(handleOf(&other));
        QVERIFY(first.GetSafeHwnd() == handleOf(&widget));
        QVERIFY(static_cast<HWND>(first) == nullptr);
        QVERIFY(!tableHolds(handleOf(&other)));
    });
    QTest::newRow("a third owner orphans nobody but the table's object") << Promise([] {
        QWidget widget;
        CountedWnd first;
        CountedWnd second;
        CountedWnd third;
        first.SetHandle(handleOf(&widget));
        second.SetHandle(handleOf(&widget));
        third.SetHandle(handleOf(&widget));
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &first);
        QVERIFY(second.d_func()->widget == &widget);
        QVERIFY(third.d_func()->widget == &widget);
    });
    QTest::newRow("a temporary owner is deleted and the table names the new one") << Promise([] {
        QWidget widget;
        int deletions = 0;
        auto *temporary = new CountedWnd(&deletions);
        temporary->SetHandle(handleOf(&widget));
        temporary->SetAutoDelete(false, false);
        CWnd window(nullptr);
        window.SetHandle(handleOf(&widget));
        QCOMPARE(deletions, 1);
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &window);
        QVERIFY(static_cast<HWND>(window) == handleOf(&widget));
    });
    QTest::newRow("a wrapper of CreateCWndByHandle is replaced in the table") << Promise([] {
        QWidget widget;
        CWnd *wrapper = CreateCWndByHandle(handleOf(&widget));
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == wrapper);
        CWnd window(nullptr);
        window.SetHandle(handleOf(&widget));
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &window);
    });
    QTest::newRow("a temporary owner that owns its widget loses it before it is deleted") << Promise([] {
        int widgetDeletions = 0;
        int deletions = 0;
        CountedWidget widget(&widgetDeletions);
        auto *temporary = new CountedWnd(&deletions);
        temporary->SetHandle(handleOf(&widget));
        temporary->SetAutoDelete(false, true);
        CWnd window(nullptr);
        window.SetHandle(handleOf(&widget));
        QCOMPARE(deletions, 1);
        QCOMPARE(widgetDeletions, 0);
    });
}

void WindowBindingTest::attachAndDetach_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("Attach of handle 0 is FALSE") << Promise([] {
        CWnd window(nullptr);
        QCOMPARE(window.Attach(nullptr), false);
        QVERIFY(window.GetSafeHwnd() == nullptr);
    });
    QTest::newRow("Attach of a handle binds and is TRUE") << Promise([] {
        QWidget widget;
        CWnd window(nullptr);
        QCOMPARE(window.Attach(handleOf(&widget)), true);
        QVERIFY(static_cast<HWND>(window) == handleOf(&widget));
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &window);
    });
    QTest::newRow("Attach of a bound object is TRUE and changes nothing") << Promise([] {
        QWidget widget;
        QWidget other;
        CWnd window(nullptr);
        window.Attach(handleOf(&widget));
        QCOMPARE(window.Attach(handleOf(&other)), true);
        QVERIFY(static_cast<HWND>(window) == handleOf(&widget));
        QVERIFY(!tableHolds(handleOf(&other)));
    });
    QTest::newRow("Detach of an unbound object is 0") << Promise([] {
        CWnd window(nullptr);
        QVERIFY(window.Detach() == nullptr);
    });
    QTest::newRow("Detach answers the handle and takes the widget away, not the handle") << Promise([] {
        QWidget widget;
        CountedWnd window;
        window.Attach(handleOf(&widget));
        QVERIFY(window.Detach() == handleOf(&widget));
        QVERIFY(window.GetSafeHwnd() == handleOf(&widget));
        QVERIFY(static_cast<HWND>(window) == nullptr);
        QVERIFY(window.d_func()->widget == nullptr);
    });
    QTest::newRow("after Detach the table still names the detached object") << Promise([] {
        QWidget widget;
        CWnd window(nullptr);
        window.Attach(handleOf(&widget));
        window.Detach();
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &window);
    });
    QTest::newRow("the end of a detached object clears the table entry") << Promise([] {
        QWidget widget;
        {
            CWnd window(nullptr);
            window.Attach(handleOf(&widget));
            window.Detach();
        }
        QVERIFY(!tableHolds(handleOf(&widget)));
    });
    QTest::newRow("another object can be attached after Detach") << Promise([] {
        QWidget widget;
        CWnd first(nullptr);
        first.Attach(handleOf(&widget));
        const HWND handle = first.Detach();
        CWnd second(nullptr);
        QCOMPARE(second.Attach(handle), true);
        second.SetWindowTextW(L"second");
        QCOMPARE(widget.windowTitle(), QStringLiteral("second"));
    });
    QTest::newRow("a detached object no longer deletes the widget it owned") << Promise([] {
        int widgetDeletions = 0;
        CountedWidget widget(&widgetDeletions);
        {
            CWnd window(nullptr);
            window.Attach(handleOf(&widget));
            window.SetAutoDelete(true, true);
            window.Detach();
        }
        QCOMPARE(widgetDeletions, 0);
    });
    QTest::newRow("Detach of a temporary object deletes it, and a fresh one has the handle") << Promise([] {
        QWidget widget;
        int deletions = 0;
        auto *temporary = new CountedWnd(&deletions);
        temporary->Attach(handleOf(&widget));
        temporary->SetAutoDelete(false, false);
        QVERIFY(temporary->Detach() == handleOf(&widget));
        QCOMPARE(deletions, 1);
        const std::unique_ptr<CWnd> fresh(CWnd::FromHandle(handleOf(&widget)));
        QVERIFY(fresh != nullptr);
        QVERIFY(static_cast<HWND>(*fresh) == handleOf(&widget));
    });
    QTest::newRow("Detach asks the virtual GetSafeHwnd for the handle") << Promise([] {
        QWidget widget;
        QWidget pretended;
        PretendingWnd window(handleOf(&pretended));
        window.Attach(handleOf(&widget));
        QVERIFY(window.Detach() == handleOf(&pretended));
        QVERIFY(static_cast<HWND>(window) == handleOf(&widget));
        const std::unique_ptr<CWnd> wrapper(CWnd::FromHandle(handleOf(&pretended)));
        QVERIFY(wrapper != nullptr);
        QVERIFY(static_cast<HWND>(*wrapper) == handleOf(&pretended));
    });
}

void WindowBindingTest::lookup_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("FromHandle(0) is null") << Promise([] {
        QVERIFY(CWnd::FromHandle(nullptr) == nullptr);
    });
    QTest::newRow("FromHandlePermanent(0) is null") << Promise([] {
        QVERIFY(CWnd::FromHandlePermanent(nullptr) == nullptr);
    });
    QTest::newRow("FromHandle of a widget without an object: null, no wrapper") << Promise([] {
        QWidget widget;
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == nullptr);
        QVERIFY(!tableHolds(handleOf(&widget)));
    });
    QTest::newRow("FromHandlePermanent of a widget without an object: null, no wrapper") << Promise([] {
        QWidget widget;
        QVERIFY(CWnd::FromHandlePermanent(handleOf(&widget)) == nullptr);
        QVERIFY(!tableHolds(handleOf(&widget)));
    });
    QTest::newRow("both lookups find a kept object") << Promise([] {
        QWidget widget;
        CWnd window(nullptr);
        window.Attach(handleOf(&widget));
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &window);
        QVERIFY(CWnd::FromHandlePermanent(handleOf(&widget)) == &window);
    });
    QTest::newRow("both lookups find a temporary object") << Promise([] {
        QWidget widget;
        const std::unique_ptr<CWnd> wrapper(CreateCWndByHandle(handleOf(&widget)));
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == wrapper.get());
        QVERIFY(CWnd::FromHandlePermanent(handleOf(&widget)) == wrapper.get());
    });
    QTest::newRow("CreateCWndByHandle makes a bound object without parent or ID") << Promise([] {
        QWidget widget;
        const std::unique_ptr<CWnd> wrapper(CreateCWndByHandle(handleOf(&widget)));
        QVERIFY(static_cast<HWND>(*wrapper) == handleOf(&widget));
        QVERIFY(wrapper->GetParent() == nullptr);
        QCOMPARE(wrapper->GetDlgCtrlID(), -1);
    });
    QTest::newRow("CreateCWndByHandle of an owned handle orphans the kept owner") << Promise([] {
        QWidget widget;
        CWnd window(nullptr);
        window.Attach(handleOf(&widget));
        const std::unique_ptr<CWnd> wrapper(CreateCWndByHandle(handleOf(&widget)));
        QVERIFY(static_cast<HWND>(window) == nullptr);
        QVERIFY(static_cast<HWND>(*wrapper) == handleOf(&widget));
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &window);
    });
    QTest::newRow("CreateCWndByHandle(0) makes an unbound object") << Promise([] {
        const std::unique_ptr<CWnd> wrapper(CreateCWndByHandle(nullptr));
        QVERIFY(wrapper != nullptr);
        QVERIFY(wrapper->GetSafeHwnd() == nullptr);
    });
    QTest::newRow("a widget deleted by Qt leaves object and table entry in place") << Promise([] {
        auto *widget = new QWidget;
        const HWND handle = handleOf(widget);
        CWnd window(nullptr);
        window.Attach(handle);
        delete widget;
        QVERIFY(window.GetSafeHwnd() == handle);
        QVERIFY(CWnd::FromHandle(handle) == &window);
    });
}

void WindowBindingTest::destruction_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("by default the widget outlives its object") << Promise([] {
        int widgetDeletions = 0;
        CountedWidget widget(&widgetDeletions);
        {
            CWnd window(nullptr);
            window.Attach(handleOf(&widget));
        }
        QCOMPARE(widgetDeletions, 0);
    });
    QTest::newRow("SetAutoDelete(true, true): the widget goes with its object") << Promise([] {
        int widgetDeletions = 0;
        QPointer<QWidget> widget = new CountedWidget(&widgetDeletions);
        {
            CWnd window(nullptr);
            window.Attach(handleOf(widget));
            window.SetAutoDelete(true, true);
        }
        QVERIFY(widget.isNull());
        QCOMPARE(widgetDeletions, 1);
    });
    QTest::newRow("SetAutoDelete(true, false): the widget stays") << Promise([] {
        int widgetDeletions = 0;
        CountedWidget widget(&widgetDeletions);
        {
            CWnd window(nullptr);
            window.Attach(handleOf(&widget));
            window.SetAutoDelete(true, true);
            window.SetAutoDelete(true, false);
        }
        QCOMPARE(widgetDeletions, 0);
    });
    QTest::newRow("SetAutoDelete works on an object that is not bound yet") << Promise([] {
        int widgetDeletions = 0;
        auto *widget = new CountedWidget(&widgetDeletions);
        {
            CountedWnd window;
            window.SetAutoDelete(false, true);
            QCOMPARE(window.d_func()->keepObject, false);
            QCOMPARE(window.d_func()->keepWidget, false);
            window.SetAutoDelete(true, true);
            QCOMPARE(window.d_func()->keepObject, true);
            window.Attach(handleOf(widget));
        }
        QCOMPARE(widgetDeletions, 1);
    });
    QTest::newRow("an unbound object that owns its widget deletes nothing") << Promise([] {
        int deletions = 0;
        {
            CountedWnd window(&deletions);
            window.SetAutoDelete(true, true);
        }
        QCOMPARE(deletions, 1);
    });
    QTest::newRow("an orphan that owned the widget does not delete it") << Promise([] {
        int widgetDeletions = 0;
        CountedWidget widget(&widgetDeletions);
        CWnd owner(nullptr);
        {
            CWnd window(nullptr);
            window.Attach(handleOf(&widget));
            window.SetAutoDelete(true, true);
            owner.Attach(handleOf(&widget));
        }
        QCOMPARE(widgetDeletions, 0);
    });
    QTest::newRow("the end of an object erases its table entry") << Promise([] {
        QWidget widget;
        {
            CWnd window(nullptr);
            window.Attach(handleOf(&widget));
            QVERIFY(tableHolds(handleOf(&widget)));
        }
        QVERIFY(!tableHolds(handleOf(&widget)));
    });
    QTest::newRow("the end of an object erases its handle's entry even when it names another") << Promise([] {
        QWidget widget;
        CWnd first(nullptr);
        first.Attach(handleOf(&widget));
        {
            CWnd second(nullptr);
            second.Attach(handleOf(&widget));
            QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &first);
        }
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == nullptr);
        QVERIFY(first.GetSafeHwnd() == handleOf(&widget));
    });
    QTest::newRow("after the entry is gone a new object can enter itself") << Promise([] {
        QWidget widget;
        {
            CWnd first(nullptr);
            first.Attach(handleOf(&widget));
        }
        CWnd second(nullptr);
        second.Attach(handleOf(&widget));
        QVERIFY(CWnd::FromHandle(handleOf(&widget)) == &second);
    });
    QTest::newRow("objects are deleted through a virtual destructor that never throws") << Promise([] {
        static_assert(std::is_nothrow_destructible_v<CWnd>);
        int deletions = 0;
        CWnd *window = new CountedWnd(&deletions);
        delete window;
        QCOMPARE(deletions, 1);
    });
}

void WindowBindingTest::itemsAtDestruction_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the temporary object of an item dies with the parent") << Promise([] {
        QWidget widget;
        QWidget item;
        int deletions = 0;
        {
            CWnd parent(nullptr);
            parent.Attach(handleOf(&widget));
            parent.SetDlgItem(7, handleOf(&item));
            auto *temporary = new CountedWnd(&deletions);
            temporary->Attach(handleOf(&item));
            temporary->SetAutoDelete(false, false);
        }
        QCOMPARE(deletions, 1);
        QVERIFY(!tableHolds(handleOf(&item)));
    });
    QTest::newRow("the wrappers that GetDlgItem made for 3 items die with the parent") << Promise([] {
        QWidget widget;
        QWidget items[3];
        {
            CWnd parent(nullptr);
            parent.Attach(handleOf(&widget));
            for (int i = 0; i < 3; ++i) {
                parent.SetDlgItem(10 + i, handleOf(&items[i]));
                QVERIFY(parent.GetDlgItem(10 + i) != nullptr);
                QVERIFY(tableHolds(handleOf(&items[i])));
            }
        }
        for (QWidget &item : items)
            QVERIFY(!tableHolds(handleOf(&item)));
    });
    QTest::newRow("the kept object of an item outlives the parent") << Promise([] {
        QWidget widget;
        QWidget item;
        int deletions = 0;
        CountedWnd kept(&deletions);
        kept.Attach(handleOf(&item));
        {
            CWnd parent(nullptr);
            parent.Attach(handleOf(&widget));
            parent.SetDlgItem(7, handleOf(&item));
            QVERIFY(parent.GetDlgItem(7) == &kept);
        }
        QCOMPARE(deletions, 0);
        QVERIFY(CWnd::FromHandle(handleOf(&item)) == &kept);
    });
    QTest::newRow("the widgets of the items stay") << Promise([] {
        QWidget widget;
        int widgetDeletions = 0;
        CountedWidget item(&widgetDeletions);
        {
            CWnd parent(nullptr);
            parent.Attach(handleOf(&widget));
            parent.SetDlgItem(7, handleOf(&item));
            QVERIFY(parent.GetDlgItem(7) != nullptr);
        }
        QCOMPARE(widgetDeletions, 0);
    });
    QTest::newRow("a parent that owns its widget takes child widgets and wrappers with it") << Promise([] {
        int widgetDeletions = 0;
        auto *widget = new CountedWidget(&widgetDeletions);
        auto *item = new CountedWidget(&widgetDeletions);
        item->setParent(widget);
        const HWND itemHandle = handleOf(item);
        {
            CWnd parent(nullptr);
            parent.Attach(handleOf(widget));
            parent.SetAutoDelete(true, true);
            parent.SetDlgItem(7, itemHandle);
            QVERIFY(parent.GetDlgItem(7) != nullptr);
        }
        QCOMPARE(widgetDeletions, 2);
        QVERIFY(!tableHolds(itemHandle));
    });
    QTest::newRow("wrappers die level by level") << Promise([] {
        QWidget widget;
        QWidget item;
        QWidget itemOfItem;
        {
            CWnd parent(nullptr);
            parent.Attach(handleOf(&widget));
            parent.SetDlgItem(7, handleOf(&item));
            parent.GetDlgItem(7)->SetDlgItem(8, handleOf(&itemOfItem));
            QVERIFY(parent.GetDlgItem(7)->GetDlgItem(8) != nullptr);
            QVERIFY(tableHolds(handleOf(&itemOfItem)));
        }
        QVERIFY(!tableHolds(handleOf(&item)));
        QVERIFY(!tableHolds(handleOf(&itemOfItem)));
    });
}

KX_TEST_MAIN(WindowBindingTest)
#include "tst_window_binding.moc"
