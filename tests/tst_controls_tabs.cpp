// SPDX-License-Identifier: MIT
// CTabCtrl over a QTabWidget.

#include "KxClassLayout.h"
#include "KxResultNumber.h"
#include "KxTestCase.h"

#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QToolBox>

#include <afxcmn.h>

#include <KxWinResource.h>

#include <cstdint>
#include <cstring>
#include <type_traits>
#include <typeinfo>

/// A caller that goes through a pointer to no object, on purpose.
#define KX_CALLS_THROUGH_SMALL_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
using TabCall = qint64 (*)(CTabCtrl *, CWnd *);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(TabCall)

namespace {

constexpr int titleId = 501;
constexpr int unknownTitleId = 599;

/// The titles that AddTab() finds.
class Titles
{
public:
    Titles() { KxRegisterStrings(nullptr, {{titleId, L"General"}, {titleId + 1, L"Pens \u00e9\U0001F600"}}); }
    ~Titles() { KxUnregisterStrings(nullptr); }
    Titles(const Titles &) = delete;
    Titles &operator=(const Titles &) = delete;
};

/// Tabs with the titles "0", "1", ...; the first one is current.
struct Tabs {
    explicit Tabs(int count = 3)
    {
        for (int i = 0; i < count; ++i)
            widget.addTab(new QWidget, QString::number(i));
        control.Attach(KxHwndFromWidget(&widget));
    }

    QString titles() const
    {
        QStringList all;
        for (int i = 0; i < widget.count(); ++i)
            all.append(widget.tabText(i));
        return all.join(QLatin1Char(' '));
    }

    QTabWidget widget;
    CTabCtrl control;
};

/// A page as a host has it: a window object bound to a widget.
struct Page {
    Page() : widget(new QWidget) { window.Attach(KxHwndFromWidget(widget)); }
    ~Page() { delete widget; }
    Page(const Page &) = delete;
    Page &operator=(const Page &) = delete;

    QPointer<QWidget> widget;
    CWnd window;
};

/// Says of itself that it is another window.
class PageElsewhere : public CWnd
{
public:
    explicit PageElsewhere(QWidget *widget) : m_widget(widget) {}
    HWND GetSafeHwnd() const override { return KxHwndFromWidget(m_widget); }

private:
    QWidget *const m_widget;
};

#define KX_CALL(expression) \
    [](CTabCtrl *tabs, CWnd *page) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { \
        Q_UNUSED(page); \
        return number(expression); \
    }

struct NamedCall {
    const char *name;
    TabCall call;
};

const NamedCall calls[] = {
    {"GetCurSel", KX_CALL(tabs->GetCurSel())},
    {"SetCurSel", KX_CALL(tabs->SetCurSel(1))},
    {"GetActiveTab", KX_CALL(tabs->GetActiveTab())},
    {"SetActiveTab", KX_CALL(tabs->SetActiveTab(1))},
    {"GetItemCount", KX_CALL(tabs->GetItemCount())},
    {"DeleteItem", KX_CALL(tabs->DeleteItem(0))},
    {"DeleteAllItems", KX_CALL(tabs->DeleteAllItems())},
    {"AddTab", KX_CALL((tabs->AddTab(0, titleId, 0, page), 0))},
    {"InsertItem(text)", KX_CALL(tabs->InsertItem(0, L"new"))},
    {"InsertItem(record)", [](CTabCtrl *tabs, CWnd *) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
         tagTCITEMW item = {};
         return number(tabs->InsertItem(0, &item));
     }},
    {"GetItemRect", [](CTabCtrl *tabs, CWnd *) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
         tagRECT rect = {1, 2, 3, 4};
         const qint64 result = number(tabs->GetItemRect(0, &rect));
         return rect.left == 1 && rect.top == 2 && rect.right == 3 && rect.bottom == 4 ? result : -1;
     }},
    {"AdjustRect", [](CTabCtrl *tabs, CWnd *) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
         tagRECT rect = {1, 2, 3, 4};
         tabs->AdjustRect(TRUE, &rect);
         return rect.left == 1 && rect.top == 2 && rect.right == 3 && rect.bottom == 4 ? 0 : -1;
     }},
};

#undef KX_CALL

} // namespace

class ControlsTabsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void setCurSel_data();
    void setCurSel();
    void selection_data();
    void selection() { runPromise(); }
    void addTab_data();
    void addTab() { runPromise(); }
    void deleteItem_data();
    void deleteItem();
    void removal_data();
    void removal() { runPromise(); }
    void fixedResults_data();
    void fixedResults() { runPromise(); }
    void withoutTabs_data();
    void withoutTabs();
    void smallPointer_data();
    void smallPointer();
    void plainWindow();
    void layout();

private:
    static void runPromise()
    {
        const auto tableBefore = CWndHandleTable.size();
        QFETCH(Promise, promise);
        promise();
        if (!QTest::currentTestFailed())
            QCOMPARE(CWndHandleTable.size(), tableBefore);
    }
};

void ControlsTabsTest::setCurSel_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("notifications");

    QTest::newRow("0 of 3, from 1") << 0 << 0 << 1;
    QTest::newRow("2 of 3, from 1") << 2 << 2 << 1;
    QTest::newRow("the current one") << 1 << 1 << 0;
    QTest::newRow("-1") << -1 << 1 << 0;
    QTest::newRow("-2") << -2 << 1 << 0;
    QTest::newRow("the count") << 3 << 1 << 0;
    QTest::newRow("the count and 1") << 4 << 1 << 0;
}

/// From 1 of 3, the notifications counted.
void ControlsTabsTest::setCurSel()
{
    QFETCH(int, index);
    QFETCH(int, notifications);
    Tabs tabs;
    tabs.widget.setCurrentIndex(1);
    QSignalSpy spy(&tabs.widget, &QTabWidget::currentChanged);
    QCOMPARE(tabs.control.SetCurSel(index), 1);
    QTEST(tabs.widget.currentIndex(), "current");
    QCOMPARE(spy.count(), notifications);
    if (notifications)
        QCOMPARE(spy[0][0].toInt(), index);
    QTEST(tabs.control.GetCurSel(), "current");
    QTEST(tabs.control.GetActiveTab(), "current");
}

void ControlsTabsTest::selection_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GetCurSel and GetActiveTab are the current index, -1 without tabs") << Promise([] {
        Tabs tabs;
        tabs.widget.setCurrentIndex(2);
        QCOMPARE(tabs.control.GetCurSel(), 2);
        QCOMPARE(tabs.control.GetActiveTab(), 2);
        Tabs empty(0);
        QCOMPARE(empty.control.GetCurSel(), -1);
        QCOMPARE(empty.control.GetActiveTab(), -1);
    });
    QTest::newRow("SetCurSel without tabs changes nothing and gives 0") << Promise([] {
        Tabs tabs(0);
        QCOMPARE(tabs.control.SetCurSel(0), 0);
        QCOMPARE(tabs.control.SetCurSel(-1), 0);
        QCOMPARE(tabs.control.GetCurSel(), -1);
    });
    QTest::newRow("SetCurSel shows the page") << Promise([] {
        Tabs tabs;
        tabs.widget.show();
        tabs.control.SetCurSel(2);
        QVERIFY(tabs.widget.widget(2)->isVisible());
        QVERIFY(!tabs.widget.widget(0)->isVisible());
    });
    QTest::newRow("SetCurSel leaves signals blocked that the host had blocked") << Promise([] {
        Tabs tabs;
        QSignalSpy spy(&tabs.widget, &QTabWidget::currentChanged);
        tabs.widget.blockSignals(true);
        tabs.control.SetCurSel(2);
        QCOMPARE(tabs.widget.currentIndex(), 2);
        QCOMPARE(spy.count(), 0);
        QVERIFY(tabs.widget.signalsBlocked());
    });
    QTest::newRow("SetActiveTab changes the page without a notification") << Promise([] {
        Tabs tabs;
        tabs.widget.show();
        QSignalSpy spy(&tabs.widget, &QTabWidget::currentChanged);
        QCOMPARE(tabs.control.SetActiveTab(2), true);
        QCOMPARE(tabs.widget.currentIndex(), 2);
        QVERIFY(tabs.widget.widget(2)->isVisible());
        QVERIFY(!tabs.widget.widget(0)->isVisible());
        QCOMPARE(spy.count(), 0);
    });
    QTest::newRow("after SetActiveTab the signals are heard again") << Promise([] {
        Tabs tabs;
        QSignalSpy spy(&tabs.widget, &QTabWidget::currentChanged);
        tabs.control.SetActiveTab(2);
        QVERIFY(!tabs.widget.signalsBlocked());
        tabs.widget.setCurrentIndex(1);
        QCOMPARE(spy.count(), 1);
    });
    QTest::newRow("after SetActiveTab they are heard also where the host had blocked them") << Promise([] {
        Tabs tabs;
        tabs.widget.blockSignals(true);
        tabs.control.SetActiveTab(2);
        QCOMPARE(tabs.widget.currentIndex(), 2);
        QVERIFY(!tabs.widget.signalsBlocked());
    });
    QTest::newRow("SetActiveTab of a tab that is not there changes nothing") << Promise([] {
        Tabs tabs;
        tabs.widget.setCurrentIndex(1);
        QSignalSpy spy(&tabs.widget, &QTabWidget::currentChanged);
        for (const int index : {-1, 3, 4}) {
            tabs.control.SetActiveTab(index);
            QCOMPARE(tabs.widget.currentIndex(), 1);
        }
        QCOMPARE(spy.count(), 0);
        QVERIFY(!tabs.widget.signalsBlocked());
    });
    QTest::newRow("GetItemCount is the number of tabs") << Promise([] {
        QCOMPARE(Tabs(0).control.GetItemCount(), 0);
        QCOMPARE(Tabs(3).control.GetItemCount(), 3);
    });
}

void ControlsTabsTest::addTab_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("AddTab inserts the page's widget under a title of the string table") << Promise([] {
        const Titles titles;
        Page page;
        Tabs tabs;
        tabs.control.AddTab(1, titleId, 0, &page.window);
        QCOMPARE(tabs.titles(), QStringLiteral("0 General 1 2"));
        QVERIFY(tabs.widget.widget(1) == page.widget);
    });
    QTest::newRow("AddTab takes the title from a table file") << Promise([] {
        const Titles titles;
        QVERIFY(KxRegisterStringTable(nullptr, "501 From a file\n").isOk());
        Page page;
        Tabs tabs(0);
        tabs.control.AddTab(0, titleId, 0, &page.window);
        QCOMPARE(tabs.titles(), QStringLiteral("From a file"));
    });
    QTest::newRow("AddTab keeps characters beyond 16 bits") << Promise([] {
        const Titles titles;
        Page page;
        Tabs tabs(0);
        tabs.control.AddTab(0, titleId + 1, 0, &page.window);
        QCOMPARE(tabs.titles(), QStringLiteral("Pens \u00e9\U0001F600"));
    });
    QTest::newRow("AddTab into an empty widget makes it current, without a notification") << Promise([] {
        const Titles titles;
        Page page;
        Tabs tabs(0);
        QSignalSpy spy(&tabs.widget, &QTabWidget::currentChanged);
        tabs.control.AddTab(0, titleId, 0, &page.window);
        QCOMPARE(tabs.control.GetCurSel(), 0);
        QCOMPARE(spy.count(), 0);
    });
    QTest::newRow("AddTab before the current tab is not heard") << Promise([] {
        const Titles titles;
        Page page;
        Tabs tabs;
        tabs.widget.setCurrentIndex(1);
        QSignalSpy spy(&tabs.widget, &QTabWidget::currentChanged);
        tabs.control.AddTab(0, titleId, 0, &page.window);
        QCOMPARE(tabs.control.GetCurSel(), 2);
        QCOMPARE(spy.count(), 0);
    });
    QTest::newRow("after AddTab the signals are heard again") << Promise([] {
        const Titles titles;
        Page page;
        Tabs tabs;
        QSignalSpy spy(&tabs.widget, &QTabWidget::currentChanged);
        tabs.control.AddTab(3, titleId, 0, &page.window);
        QVERIFY(!tabs.widget.signalsBlocked());
        tabs.widget.setCurrentIndex(3);
        QCOMPARE(spy.count(), 1);
    });
    QTest::newRow("after AddTab they are heard also where the host had blocked them") << Promise([] {
        const Titles titles;
        Page page;
        Tabs tabs;
        tabs.widget.blockSignals(true);
        tabs.control.AddTab(3, titleId, 0, &page.window);
        QCOMPARE(tabs.titles(), QStringLiteral("0 1 2 General"));
        QVERIFY(!tabs.widget.signalsBlocked());
    });
    QTest::newRow("AddTab ignores its third argument") << Promise([] {
        const Titles titles;
        Page page;
        Page other;
        Tabs tabs(0);
        tabs.control.AddTab(0, titleId, -5, &page.window);
        tabs.control.AddTab(1, titleId, 70000, &other.window);
        QCOMPARE(tabs.titles(), QStringLiteral("General General"));
        QVERIFY(tabs.widget.tabIcon(0).isNull());
        QVERIFY(tabs.widget.tabIcon(1).isNull());
    });
    QTest::newRow("AddTab at an index that is not there appends, as Qt does") << Promise([] {
        const Titles titles;
        Page page;
        Page other;
        Tabs tabs;
        tabs.control.AddTab(-1, titleId, 0, &page.window);
        tabs.control.AddTab(99, titleId + 1, 0, &other.window);
        QCOMPARE(tabs.titles(), QStringLiteral("0 1 2 General Pens \u00e9\U0001F600"));
    });
    QTest::newRow("AddTab under a title that is not there has an empty one") << Promise([] {
        const Titles titles;
        Page page;
        Tabs tabs(1);
        tabs.control.AddTab(1, unknownTitleId, 0, &page.window);
        QCOMPARE(tabs.widget.count(), 2);
        QCOMPARE(tabs.widget.tabText(1), QString());
        QVERIFY(tabs.widget.widget(1) == page.widget);
    });
    QTest::newRow("AddTab of an unbound page adds nothing, and the signals are heard again") << Promise([] {
        const Titles titles;
        CWnd page;
        Tabs tabs;
        tabs.control.AddTab(0, titleId, 0, &page);
        QCOMPARE(tabs.titles(), QStringLiteral("0 1 2"));
        QVERIFY(!tabs.widget.signalsBlocked());
    });
    QTest::newRow("AddTab takes the page's handle from the virtual GetSafeHwnd") << Promise([] {
        const Titles titles;
        auto *widget = new QWidget;
        PageElsewhere page(widget);
        Tabs tabs(0);
        tabs.control.AddTab(0, titleId, 0, &page);
        QVERIFY(tabs.widget.widget(0) == widget);
    });
    QTest::newRow("AddTab takes the handle of an orphaned page") << Promise([] {
        const Titles titles;
        Page page;
        CWnd owner;
        owner.Attach(KxHwndFromWidget(page.widget));
        Tabs tabs(0);
        tabs.control.AddTab(0, titleId, 0, &page.window);
        QVERIFY(tabs.widget.widget(0) == page.widget);
    });
}

void ControlsTabsTest::deleteItem_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("titles");

    QTest::newRow("0 of 3") << 0 << true << QStringLiteral("1 2");
    QTest::newRow("2 of 3") << 2 << true << QStringLiteral("0 1");
    QTest::newRow("the count: TRUE, and nothing is removed") << 3 << true << QStringLiteral("0 1 2");
    QTest::newRow("the count and 1") << 4 << false << QStringLiteral("0 1 2");
    QTest::newRow("-1") << -1 << false << QStringLiteral("0 1 2");
}

void ControlsTabsTest::deleteItem()
{
    QFETCH(int, index);
    Tabs tabs;
    QTEST(bool(tabs.control.DeleteItem(index)), "result");
    QTEST(tabs.titles(), "titles");
}

void ControlsTabsTest::removal_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("DeleteItem leaves the page alive") << Promise([] {
        Tabs tabs;
        const QPointer<QWidget> page = tabs.widget.widget(0);
        tabs.control.DeleteItem(0);
        QVERIFY(!page.isNull());
        QCOMPARE(tabs.widget.indexOf(page), -1);
    });
    QTest::newRow("DeleteItem of the current tab is heard") << Promise([] {
        Tabs tabs;
        QSignalSpy spy(&tabs.widget, &QTabWidget::currentChanged);
        tabs.control.DeleteItem(0);
        QVERIFY(spy.count() >= 1);
    });
    QTest::newRow("DeleteItem of 0 of no tabs, the count, is TRUE") << Promise([] {
        Tabs tabs(0);
        QCOMPARE(tabs.control.DeleteItem(0), true);
        QCOMPARE(tabs.control.DeleteItem(1), false);
    });
    QTest::newRow("DeleteAllItems removes the tabs, leaves the pages and is TRUE") << Promise([] {
        Tabs tabs;
        const QPointer<QWidget> first = tabs.widget.widget(0);
        const QPointer<QWidget> last = tabs.widget.widget(2);
        QCOMPARE(tabs.control.DeleteAllItems(), true);
        QCOMPARE(tabs.control.GetItemCount(), 0);
        QVERIFY(!first.isNull());
        QVERIFY(!last.isNull());
        QCOMPARE(tabs.control.DeleteAllItems(), true);
    });
    QTest::newRow("DeleteAllItems is heard") << Promise([] {
        Tabs tabs;
        QSignalSpy spy(&tabs.widget, &QTabWidget::currentChanged);
        tabs.control.DeleteAllItems();
        QVERIFY(spy.count() >= 1);
        QCOMPARE(spy.last()[0].toInt(), -1);
    });
}

void ControlsTabsTest::fixedResults_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("InsertItem inserts nothing and gives 0, by text and by record") << Promise([] {
        Tabs tabs;
        wchar_t text[] = L"new";
        tagTCITEMW item = {};
        item.mask = 1;
        item.pszText = text;
        QCOMPARE(tabs.control.InsertItem(2, L"new"), LONG(0));
        QCOMPARE(tabs.control.InsertItem(2, &item), LONG(0));
        QCOMPARE(tabs.titles(), QStringLiteral("0 1 2"));
        QVERIFY(item.pszText == text);
    });
    QTest::newRow("GetItemRect is FALSE and leaves the rectangle") << Promise([] {
        Tabs tabs;
        tabs.widget.show();
        tagRECT rect = {1, 2, 3, 4};
        QCOMPARE(tabs.control.GetItemRect(0, &rect), false);
        QVERIFY(rect.left == 1 && rect.top == 2 && rect.right == 3 && rect.bottom == 4);
        QCOMPARE(tabs.control.GetItemRect(0, nullptr), false);
    });
    QTest::newRow("AdjustRect leaves the rectangle") << Promise([] {
        Tabs tabs;
        tabs.widget.show();
        for (const BOOL larger : {TRUE, FALSE}) {
            tagRECT rect = {1, 2, 300, 400};
            tabs.control.AdjustRect(larger, &rect);
            QVERIFY(rect.left == 1 && rect.top == 2 && rect.right == 300 && rect.bottom == 400);
        }
        tabs.control.AdjustRect(TRUE, nullptr);
    });
}

void ControlsTabsTest::withoutTabs_data()
{
    QTest::addColumn<TabCall>("call");
    QTest::addColumn<QString>("situation");
    for (const char *situation : {"unbound", "orphaned", "on a tab bar", "on a tool box"}) {
        for (const NamedCall &call : calls)
            QTest::addRow("%s %s", call.name, situation) << call.call << QString::fromLatin1(situation);
    }
}

/// The result is 0, and neither the widget nor the tabs out of reach change.
void ControlsTabsTest::withoutTabs()
{
    QFETCH(TabCall, call);
    QFETCH(QString, situation);
    const Titles titles;
    Page page;
    Tabs outOfReach;
    outOfReach.widget.setCurrentIndex(2);
    outOfReach.widget.blockSignals(true);
    QTabBar bar;
    QToolBox box;
    for (int i = 0; i < 3; ++i) {
        bar.addTab(QString::number(i));
        box.addItem(new QWidget, QString::number(i));
    }
    bar.setCurrentIndex(2);
    box.setCurrentIndex(2);
    CTabCtrl owner;
    CTabCtrl control;
    CTabCtrl *used = &control;
    if (situation == QLatin1String("orphaned")) {
        owner.Attach(KxHwndFromWidget(&outOfReach.widget));
        used = &outOfReach.control;
    } else if (situation == QLatin1String("on a tab bar")) {
        control.Attach(KxHwndFromWidget(&bar));
    } else if (situation == QLatin1String("on a tool box")) {
        control.Attach(KxHwndFromWidget(&box));
    }
    QCOMPARE(call(used, &page.window), 0);
    QCOMPARE(outOfReach.titles(), QStringLiteral("0 1 2"));
    QCOMPARE(outOfReach.widget.currentIndex(), 2);
    QVERIFY(outOfReach.widget.signalsBlocked());
    QCOMPARE(bar.count(), 3);
    QCOMPARE(bar.currentIndex(), 2);
    QCOMPARE(box.count(), 3);
    QCOMPARE(box.currentIndex(), 2);
    QVERIFY(page.widget->parentWidget() == nullptr);
}

void ControlsTabsTest::smallPointer_data()
{
    QTest::addColumn<TabCall>("call");
    QTest::addColumn<quintptr>("pointer");
    for (const quintptr pointer : {quintptr(0), quintptr(7), quintptr(4095)}) {
        for (const NamedCall &call : calls)
            QTest::addRow("%s through %d", call.name, static_cast<int>(pointer)) << call.call << pointer;
    }
}

/// A member that touched memory would end the program here.
void ControlsTabsTest::smallPointer()
{
    QFETCH(TabCall, call);
    QFETCH(quintptr, pointer);
    const Titles titles;
    Page page;
    call(reinterpret_cast<CTabCtrl *>(pointer), &page.window);
    QVERIFY(page.widget->parentWidget() == nullptr);
}

/// What GetDlgItem() gives is a CWnd and no more; the members work on it after the cast.
void ControlsTabsTest::plainWindow()
{
    const Titles titles;
    Page page;
    Page other;
    QWidget dialogWidget;
    auto *widget = new QTabWidget(&dialogWidget);
    CWnd dialog;
    dialog.Attach(KxHwndFromWidget(&dialogWidget));
    dialog.SetDlgItem(7, KxHwndFromWidget(widget));
    CWnd *plain = dialog.GetDlgItem(7);
    QVERIFY(typeid(*plain) == typeid(CWnd));
    auto *tabs = static_cast<CTabCtrl *>(plain);

    tabs->AddTab(0, titleId, 0, &page.window);
    tabs->AddTab(1, titleId + 1, 0, &other.window);
    QCOMPARE(widget->tabText(0), QStringLiteral("General"));
    QVERIFY(widget->widget(1) == other.widget);
    QCOMPARE(tabs->GetItemCount(), 2);
    QCOMPARE(tabs->GetCurSel(), 0);
    QCOMPARE(tabs->SetCurSel(1), 0);
    QCOMPARE(tabs->GetActiveTab(), 1);
    QCOMPARE(tabs->SetActiveTab(0), true);
    QCOMPARE(widget->currentIndex(), 0);
    QCOMPARE(tabs->InsertItem(0, L"new"), LONG(0));
    tagTCITEMW item = {};
    QCOMPARE(tabs->InsertItem(0, &item), LONG(0));
    tagRECT rect = {1, 2, 3, 4};
    QCOMPARE(tabs->GetItemRect(0, &rect), false);
    tabs->AdjustRect(TRUE, &rect);
    QCOMPARE(rect.right, LONG(3));
    QCOMPARE(tabs->DeleteItem(0), true);
    QCOMPARE(widget->count(), 1);
    QCOMPARE(tabs->DeleteAllItems(), true);
    QCOMPARE(widget->count(), 0);
}

/// A window object without fields of its own, and with the 20 virtual operations of CWnd.
void ControlsTabsTest::layout()
{
    struct Derived : CTabCtrl {
        virtual void next() {}
    };
    QVERIFY((std::is_base_of_v<CWnd, CTabCtrl>));
    QCOMPARE(sizeof(CTabCtrl), sizeof(CWnd));
    QCOMPARE(slotOf(&Derived::next), 20);

    const CWnd window;
    const CTabCtrl tabs;
    const void *const *table = nullptr;
    const void *const *windowTable = nullptr;
    std::memcpy(&table, static_cast<const void *>(&tabs), sizeof table);
    std::memcpy(&windowTable, static_cast<const void *>(&window), sizeof windowTable);
    for (int slot = 2; slot < 20; ++slot)
        QVERIFY2(table[slot] == windowTable[slot], qPrintable(QString::number(slot)));
}

KX_TEST_MAIN(ControlsTabsTest)
#include "tst_controls_tabs.moc"
