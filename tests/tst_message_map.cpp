// SPDX-License-Identifier: MIT
// Message maps: what the macros record, how a handler is found and called again, and that a handler of the
// wrong type does not compile.

#include "KxTestCase.h"

#include <afxwin.h>

#include <type_traits>

// ---- One target with every macro that is no window message's ------------------------------------------

// Macro and notification code, as WM_COMMAND carries it.
#define NOTIFICATIONS(X) \
    X(ON_BN_CLICKED, 0) \
    X(ON_BN_PAINT, 1) \
    X(ON_BN_HILITE, 2) \
    X(ON_BN_PUSHED, 2) \
    X(ON_BN_UNHILITE, 3) \
    X(ON_BN_UNPUSHED, 3) \
    X(ON_BN_DISABLE, 4) \
    X(ON_BN_DOUBLECLICKED, 5) \
    X(ON_BN_SETFOCUS, 6) \
    X(ON_BN_KILLFOCUS, 7) \
    X(ON_EN_SETFOCUS, 0x100) \
    X(ON_EN_KILLFOCUS, 0x200) \
    X(ON_EN_CHANGE, 0x300) \
    X(ON_EN_UPDATE, 0x400) \
    X(ON_EN_ERRSPACE, 0x500) \
    X(ON_EN_MAXTEXT, 0x501) \
    X(ON_EN_HSCROLL, 0x601) \
    X(ON_EN_VSCROLL, 0x602) \
    X(ON_CBN_ERRSPACE, 0xFFFF) \
    X(ON_CBN_SELCHANGE, 1) \
    X(ON_CBN_DBLCLK, 2) \
    X(ON_CBN_SETFOCUS, 3) \
    X(ON_CBN_KILLFOCUS, 4) \
    X(ON_CBN_EDITCHANGE, 5) \
    X(ON_CBN_EDITUPDATE, 6) \
    X(ON_CBN_DROPDOWN, 7) \
    X(ON_CBN_CLOSEUP, 8) \
    X(ON_CBN_SELENDOK, 9) \
    X(ON_CBN_SELENDCANCEL, 10) \
    X(ON_LBN_ERRSPACE, 0xFFFE) \
    X(ON_LBN_SELCHANGE, 1) \
    X(ON_LBN_DBLCLK, 2) \
    X(ON_LBN_SELCANCEL, 3) \
    X(ON_LBN_SETFOCUS, 4) \
    X(ON_LBN_KILLFOCUS, 5) \
    X(ON_STN_CLICKED, 0) \
    X(ON_STN_DBLCLK, 1) \
    X(ON_STN_ENABLE, 2) \
    X(ON_STN_DISABLE, 3)

namespace {

/// The identifier under which each notification macro stands in the map.
enum NotificationId : UINT {
#define IDENTIFIER(macro, code) Id_##macro,
    NotificationIdBefore = 999,
    NOTIFICATIONS(IDENTIFIER)
#undef IDENTIFIER
};

const UINT clickNotification = 0xFFFFFFFE;
const UINT doubleClickNotification = 0xFFFFFFFD;
const UINT threadMessage = WM_APP + 3;
UINT registeredThreadMessage = 0xC123;

class CPlotTarget : public CCmdTarget
{
public:
    QString called; ///< The last handler with its arguments.

    bool answer = true; ///< What the handlers with an answer give.

private:
    afx_msg void OnCommand() { called = QStringLiteral("OnCommand()"); }
    afx_msg void OnOtherCommand() { called = QStringLiteral("OnOtherCommand()"); }
    afx_msg BOOL OnCommandEx(UINT id) { return answerOf("OnCommandEx(%1)", id); }
    afx_msg void OnCommandRange(UINT id) { called = QStringLiteral("OnCommandRange(%1)").arg(id); }
    afx_msg BOOL OnCommandExRange(UINT id) { return answerOf("OnCommandExRange(%1)", id); }
    afx_msg void OnUpdate(CCmdUI *ui) { called = QStringLiteral("OnUpdate(%1)").arg(ui->m_nID); }
    afx_msg void OnControl() { called = QStringLiteral("OnControl()"); }
    afx_msg void OnControlRange(UINT id) { called = QStringLiteral("OnControlRange(%1)").arg(id); }
    afx_msg void OnReflected() { called = QStringLiteral("OnReflected()"); }
    afx_msg BOOL OnReflectedEx() { return answerOf("OnReflectedEx(%1)", 0); }
    afx_msg void OnNotify(NMHDR *header, LRESULT *result)
    {
        called = QStringLiteral("OnNotify(%1)").arg(header->code);
        *result = 41;
    }
    afx_msg void OnNotifyRange(UINT id, NMHDR *, LRESULT *result)
    {
        called = QStringLiteral("OnNotifyRange(%1)").arg(id);
        *result = 42;
    }
    afx_msg BOOL OnNotifyEx(UINT id, NMHDR *, LRESULT *result)
    {
        *result = 43;
        return answerOf("OnNotifyEx(%1)", id);
    }
    afx_msg BOOL OnNotifyReflectedEx(NMHDR *, LRESULT *result)
    {
        *result = 44;
        return answerOf("OnNotifyReflectedEx(%1)", 0);
    }
    afx_msg void OnThreadMessage(WPARAM wParam, LPARAM lParam)
    {
        called = QStringLiteral("OnThreadMessage(%1, %2)").arg(wParam).arg(lParam);
    }
#define HANDLER(macro, code) \
    afx_msg void On_##macro() { called = QStringLiteral(#macro); }
    NOTIFICATIONS(HANDLER)
#undef HANDLER

    BOOL answerOf(const char *text, UINT id)
    {
        called = QString::fromLatin1(text).arg(id);
        return answer;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPlotTarget, CCmdTarget)
    ON_COMMAND(100, &CPlotTarget::OnCommand)
    ON_COMMAND(100, &CPlotTarget::OnOtherCommand)
    ON_COMMAND_EX(101, &CPlotTarget::OnCommandEx)
    ON_COMMAND_RANGE(200, 209, &CPlotTarget::OnCommandRange)
    ON_COMMAND_EX_RANGE(220, 229, &CPlotTarget::OnCommandExRange)
    ON_UPDATE_COMMAND_UI(100, &CPlotTarget::OnUpdate)
    ON_UPDATE_COMMAND_UI_RANGE(200, 209, &CPlotTarget::OnUpdate)
    ON_UPDATE_COMMAND_UI_REFLECT(&CPlotTarget::OnUpdate)
    ON_CONTROL(77, 300, &CPlotTarget::OnControl)
    ON_CONTROL_RANGE(BN_CLICKED, 310, 319, &CPlotTarget::OnControlRange)
    ON_CONTROL_REFLECT(BN_CLICKED, &CPlotTarget::OnReflected)
    ON_CONTROL_REFLECT_EX(EN_CHANGE, &CPlotTarget::OnReflectedEx)
    ON_NOTIFY(clickNotification, 400, &CPlotTarget::OnNotify)
    ON_NOTIFY_EX(clickNotification, 401, &CPlotTarget::OnNotifyEx)
    ON_NOTIFY_RANGE(clickNotification, 410, 419, &CPlotTarget::OnNotifyRange)
    ON_NOTIFY_EX_RANGE(clickNotification, 420, 429, &CPlotTarget::OnNotifyEx)
    ON_NOTIFY_REFLECT(doubleClickNotification, &CPlotTarget::OnNotify)
    ON_NOTIFY_REFLECT_EX(clickNotification, &CPlotTarget::OnNotifyReflectedEx)
    ON_THREAD_MESSAGE(threadMessage, &CPlotTarget::OnThreadMessage)
    ON_REGISTERED_THREAD_MESSAGE(registeredThreadMessage, &CPlotTarget::OnThreadMessage)
#define LINE(macro, code) macro(Id_##macro, &CPlotTarget::On_##macro)
    NOTIFICATIONS(LINE)
#undef LINE
END_MESSAGE_MAP()

/// What a host's dispatcher does: finds the line, tries the types it may have, calls. Tells what was called
/// and what it answered or left in the result.
QString dispatched(CPlotTarget &target, UINT message, UINT code, UINT id)
{
    const auto *entry = KxFindMessageEntry(CPlotTarget::GetThisMessageMap(), message, code, id);
    if (!entry)
        return QStringLiteral("nothing");
    NMHDR header = {nullptr, id, code};
    LRESULT result = 0;
    CCmdUI ui;
    ui.m_nID = id;
    bool answer = true;
    target.called = QStringLiteral("a handler of a type that nobody expects");
    if (auto command = KxMessageHandler<KxCommandHandler>(entry))
        command(&target);
    else if (auto commandEx = KxMessageHandler<KxCommandExHandler>(entry))
        answer = commandEx(&target, id);
    else if (auto range = KxMessageHandler<KxCommandRangeHandler>(entry))
        range(&target, id);
    else if (auto update = KxMessageHandler<KxUpdateHandler>(entry))
        update(&target, &ui);
    else if (auto reflectEx = KxMessageHandler<KxReflectExHandler>(entry))
        answer = reflectEx(&target);
    else if (auto notify = KxMessageHandler<KxNotifyHandler>(entry))
        notify(&target, &header, &result);
    else if (auto notifyRange = KxMessageHandler<KxNotifyRangeHandler>(entry))
        notifyRange(&target, id, &header, &result);
    else if (auto notifyEx = KxMessageHandler<KxNotifyExHandler>(entry))
        answer = notifyEx(&target, id, &header, &result);
    else if (auto notifyReflectEx = KxMessageHandler<KxNotifyReflectExHandler>(entry))
        answer = notifyReflectEx(&target, &header, &result);
    else if (auto threaded = KxMessageHandler<KxThreadMessageHandler>(entry))
        threaded(&target, 5, -6);
    QString told = target.called;
    if (result)
        told += QStringLiteral(" leaves %1").arg(result);
    if (!answer)
        told += QStringLiteral(" and declines");
    return told;
}

// ---- Windows, one derived from the other, and a class template ----------------------------------------

UINT registeredMessage = 0xC321;

class CBaseWnd : public CWnd
{
public:
    QString called;

protected:
    afx_msg void OnSize(UINT type, int cx, int cy)
    {
        called = QStringLiteral("CBaseWnd::OnSize(%1, %2, %3)").arg(type).arg(cx).arg(cy);
    }
    afx_msg void OnTimer(UINT_PTR timer) { called = QStringLiteral("CBaseWnd::OnTimer(%1)").arg(timer); }
    afx_msg LRESULT OnMine(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam) + lParam; }
    afx_msg LRESULT OnRegistered(WPARAM, LPARAM) { return 99; }
    virtual void OnOK() { called = QStringLiteral("CBaseWnd::OnOK()"); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CBaseWnd, CWnd)
    ON_WM_SIZE()
    ON_WM_TIMER()
    ON_MESSAGE(WM_USER + 100, &CBaseWnd::OnMine)
    ON_REGISTERED_MESSAGE(registeredMessage, &CBaseWnd::OnRegistered)
    ON_COMMAND(IDOK, &CBaseWnd::OnOK)
END_MESSAGE_MAP()

class CDerivedWnd : public CBaseWnd
{
protected:
    afx_msg void OnTimer(UINT_PTR timer) { called = QStringLiteral("CDerivedWnd::OnTimer(%1)").arg(timer); }
    void OnOK() override { called = QStringLiteral("CDerivedWnd::OnOK()"); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CDerivedWnd, CBaseWnd)
    ON_WM_TIMER()
END_MESSAGE_MAP()

/// Inherits its base's map and adds none.
class CMaplessWnd : public CDerivedWnd
{
};

template<typename Value>
class CValueTarget : public CPlotTarget
{
public:
    Value value = 0;

    DECLARE_MESSAGE_MAP()

    afx_msg void OnSet(UINT id) { value = static_cast<Value>(id) / 2; }
};

BEGIN_TEMPLATE_MESSAGE_MAP(CValueTarget, Value, CPlotTarget)
    ON_COMMAND_RANGE(500, 599, &ThisClass::OnSet)
END_MESSAGE_MAP()

/// What stands first in an object moves the others: the handler must still get the right address.
class CSecondBaseTarget : public QObject, public CCmdTarget
{
public:
    int number = 0;

private:
    afx_msg void OnCount() { ++number; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CSecondBaseTarget, CCmdTarget)
    ON_COMMAND(1, &CSecondBaseTarget::OnCount)
END_MESSAGE_MAP()

static_assert(std::is_empty_v<CCmdTarget> && sizeof(CBaseWnd) == sizeof(CWnd) + sizeof(QString),
              "a map is no part of the object");

// ---- Handlers that must not compile -------------------------------------------------------------------

// Whether a line of a map compiles in a class.
#define ACCEPTANCE(Name, ...) \
    template<class ThisClass, class = void> \
    struct Name : std::false_type \
    { \
    }; \
    template<class ThisClass> \
    struct Name<ThisClass, std::void_t<decltype(__VA_ARGS__ 0)>> : std::true_type \
    { \
    };

ACCEPTANCE(TimerAccepts, ON_WM_TIMER())
ACCEPTANCE(SizeAccepts, ON_WM_SIZE())
ACCEPTANCE(MouseWheelAccepts, ON_WM_MOUSEWHEEL())
ACCEPTANCE(ControlColourAccepts, ON_WM_CTLCOLOR())
ACCEPTANCE(MessageAccepts, ON_MESSAGE(WM_APP, &ThisClass::OnHandler))
ACCEPTANCE(ThreadMessageAccepts, ON_THREAD_MESSAGE(WM_APP, &ThisClass::OnHandler))
ACCEPTANCE(CommandAccepts, ON_COMMAND(1, &ThisClass::OnHandler))
ACCEPTANCE(CommandExAccepts, ON_COMMAND_EX(1, &ThisClass::OnHandler))
ACCEPTANCE(CommandRangeAccepts, ON_COMMAND_RANGE(1, 2, &ThisClass::OnHandler))
ACCEPTANCE(ClickedAccepts, ON_BN_CLICKED(1, &ThisClass::OnHandler))
ACCEPTANCE(UpdateAccepts, ON_UPDATE_COMMAND_UI(1, &ThisClass::OnHandler))
ACCEPTANCE(NotifyAccepts, ON_NOTIFY(clickNotification, 1, &ThisClass::OnHandler))
ACCEPTANCE(NotifyExAccepts, ON_NOTIFY_EX(clickNotification, 1, &ThisClass::OnHandler))
ACCEPTANCE(NotifyReflectAccepts, ON_NOTIFY_REFLECT(clickNotification, &ThisClass::OnHandler))

/// A class of kind \p Base whose handlers have one type.
template<class Base, typename Result, typename... Arguments>
class With : public Base
{
public:
    Result OnHandler(Arguments...);
    Result OnTimer(Arguments...);
    Result OnSize(Arguments...);
    Result OnMouseWheel(Arguments...);
    Result OnCtlColor(Arguments...);
};

template<typename Result, typename... Arguments>
using WndWith = With<CWnd, Result, Arguments...>;
template<typename Result, typename... Arguments>
using TargetWith = With<CCmdTarget, Result, Arguments...>;

class CConstantTarget : public CCmdTarget
{
public:
    void OnHandler() const;
};

class CStaticTarget : public CCmdTarget
{
public:
    static void OnHandler();
};

class COverloadedTarget : public CCmdTarget
{
public:
    void OnHandler(int);
    void OnHandler();
};

class CNoTarget
{
public:
    void OnHandler();
};

} // namespace

class TestMessageMap : public KxTestCase
{
    Q_OBJECT

private slots:
    void dispatch_data();
    void dispatch();
    void declinedNotification();
    void notification_data();
    void notification();
    void windowMessage_data();
    void windowMessage();
    void overriddenVirtualHandlerIsCalled();
    void endOfTheChain();
    void inheritedMapIsTheBases();
    void templateHasItsOwnMap();
    void secondBase();
    void wrongTypeIsNotCalled();
    void mapIsMadeOnce();
    void acceptance_data();
    void acceptance();
};

void TestMessageMap::dispatch_data()
{
    QTest::addColumn<uint>("message");
    QTest::addColumn<uint>("code");
    QTest::addColumn<uint>("id");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, UINT message, UINT code, UINT id, const char *expected) {
        QTest::newRow(name) << message << code << id << QString::fromLatin1(expected);
    };
    const UINT click = clickNotification;
    const UINT doubleClick = doubleClickNotification;
    const UINT update = 0xFFFFFFFF;
    const UINT reflected = 0xBC00;

    row("ON_COMMAND, the first of two lines", 0x0111, 0, 100, "OnCommand()");
    row("ON_COMMAND_EX", 0x0111, 0, 101, "OnCommandEx(101)");
    row("ON_COMMAND_RANGE at its first", 0x0111, 0, 200, "OnCommandRange(200)");
    row("ON_COMMAND_RANGE at its last", 0x0111, 0, 209, "OnCommandRange(209)");
    row("ON_COMMAND_RANGE below its first", 0x0111, 0, 199, "nothing");
    row("ON_COMMAND_RANGE beyond its last", 0x0111, 0, 210, "nothing");
    row("ON_COMMAND_EX_RANGE", 0x0111, 0, 225, "OnCommandExRange(225)");
    row("ON_COMMAND, another code", 0x0111, 6, 100, "nothing");
    row("ON_COMMAND, another message", 0x0112, 0, 100, "nothing");
    row("ON_UPDATE_COMMAND_UI", 0x0111, update, 100, "OnUpdate(100)");
    row("ON_UPDATE_COMMAND_UI, no such command", 0x0111, update, 101, "nothing");
    row("ON_UPDATE_COMMAND_UI_RANGE", 0x0111, update, 205, "OnUpdate(205)");
    row("ON_UPDATE_COMMAND_UI_REFLECT", 0x0111 + reflected, update, 0, "OnUpdate(0)");
    row("ON_CONTROL", 0x0111, 77, 300, "OnControl()");
    row("ON_CONTROL, another code", 0x0111, 78, 300, "nothing");
    row("ON_CONTROL_RANGE", 0x0111, 0, 315, "OnControlRange(315)");
    row("ON_CONTROL_REFLECT", 0x0111 + reflected, 0, 0, "OnReflected()");
    row("ON_CONTROL_REFLECT_EX", 0x0111 + reflected, 0x300, 0, "OnReflectedEx(0)");
    row("ON_NOTIFY", 0x004E, click, 400, "OnNotify(4294967294) leaves 41");
    row("ON_NOTIFY, another code", 0x004E, doubleClick, 400, "nothing");
    row("ON_NOTIFY_EX", 0x004E, click, 401, "OnNotifyEx(401) leaves 43");
    row("ON_NOTIFY_RANGE", 0x004E, click, 412, "OnNotifyRange(412) leaves 42");
    row("ON_NOTIFY_EX_RANGE", 0x004E, click, 429, "OnNotifyEx(429) leaves 43");
    row("ON_NOTIFY_REFLECT", 0x004E + reflected, doubleClick, 0, "OnNotify(4294967293) leaves 41");
    row("ON_NOTIFY_REFLECT_EX", 0x004E + reflected, click, 0, "OnNotifyReflectedEx(0) leaves 44");
    row("ON_THREAD_MESSAGE", 0x8003, 0, 0, "OnThreadMessage(5, -6)");
    row("ON_REGISTERED_THREAD_MESSAGE", 0xC123, 0, 0, "OnThreadMessage(5, -6)");
}

void TestMessageMap::dispatch()
{
    QFETCH(uint, message);
    QFETCH(uint, code);
    QFETCH(uint, id);
    CPlotTarget target;
    QTEST(dispatched(target, message, code, id), "expected");
}

void TestMessageMap::declinedNotification()
{
    CPlotTarget target;
    target.answer = false;
    QCOMPARE(dispatched(target, WM_COMMAND, 0, 101), QStringLiteral("OnCommandEx(101) and declines"));
    QCOMPARE(dispatched(target, WM_NOTIFY, clickNotification, 401),
             QStringLiteral("OnNotifyEx(401) leaves 43 and declines"));
}

void TestMessageMap::notification_data()
{
    QTest::addColumn<uint>("code");
    QTest::addColumn<uint>("id");
    QTest::addColumn<QString>("expected");
#define ROW(macro, code) QTest::newRow(#macro) << uint(code) << uint(Id_##macro) << QStringLiteral(#macro);
    NOTIFICATIONS(ROW)
#undef ROW
}

void TestMessageMap::notification()
{
    QFETCH(uint, code);
    QFETCH(uint, id);
    CPlotTarget target;
    QTEST(dispatched(target, WM_COMMAND, code, id), "expected");
    QCOMPARE(dispatched(target, WM_COMMAND, code + 0x1000, id), QStringLiteral("nothing"));
}

void TestMessageMap::windowMessage_data()
{
    QTest::addColumn<bool>("derived");
    QTest::addColumn<uint>("message");
    QTest::addColumn<QString>("expected");

    QTest::newRow("timer of the base") << false << 0x0113U << QStringLiteral("CBaseWnd::OnTimer(7)");
    QTest::newRow("timer of the derived class") << true << 0x0113U
                                                << QStringLiteral("CDerivedWnd::OnTimer(7)");
    QTest::newRow("size of the base") << false << 0x0005U << QStringLiteral("CBaseWnd::OnSize(2, 640, 480)");
    QTest::newRow("size, found in the base's map") << true << 0x0005U
                                                   << QStringLiteral("CBaseWnd::OnSize(2, 640, 480)");
    QTest::newRow("ON_MESSAGE, found in the base's map") << true << 0x0464U << QStringLiteral("30");
    QTest::newRow("ON_REGISTERED_MESSAGE, found in the base's map") << true << 0xC321U
                                                                    << QStringLiteral("99");
    QTest::newRow("nobody's message") << true << 0x000FU << QStringLiteral("nothing");
}

void TestMessageMap::windowMessage()
{
    QFETCH(bool, derived);
    QFETCH(uint, message);
    CDerivedWnd window;
    const auto *map = derived ? CDerivedWnd::GetThisMessageMap() : CBaseWnd::GetThisMessageMap();
    const auto *entry = KxFindMessageEntry(map, message, 0, 0);
    QString actual = QStringLiteral("nothing");
    if (auto timer = KxMessageHandler<void (CWnd::*)(UINT_PTR)>(entry)) {
        timer(&window, 7);
        actual = window.called;
    } else if (auto size = KxMessageHandler<void (CWnd::*)(UINT, int, int)>(entry)) {
        size(&window, 2, 640, 480);
        actual = window.called;
    } else if (auto own = KxMessageHandler<LRESULT (CWnd::*)(WPARAM, LPARAM)>(entry)) {
        actual = QString::number(own(&window, 10, 20));
    }
    QTEST(actual, "expected");
}

void TestMessageMap::overriddenVirtualHandlerIsCalled()
{
    CDerivedWnd window;
    const auto *entry = KxFindMessageEntry(CDerivedWnd::GetThisMessageMap(), WM_COMMAND, CN_COMMAND, IDOK);
    const auto handler = KxMessageHandler<KxCommandHandler>(entry);
    QVERIFY(handler);
    handler(&window);
    QCOMPARE(window.called, QStringLiteral("CDerivedWnd::OnOK()"));
}

void TestMessageMap::endOfTheChain()
{
    const auto *map = CCmdTarget::GetThisMessageMap();
    QVERIFY(map);
    QVERIFY(!map->pfnGetBaseMap);
    QVERIFY(!map->lpEntries->signature);
    QCOMPARE(map->lpEntries->nMessage, 0U);
    QCOMPARE(CWnd::GetThisMessageMap(), map);
    QCOMPARE(CPlotTarget::GetThisMessageMap()->pfnGetBaseMap(), map);
    QCOMPARE(CDerivedWnd::GetThisMessageMap()->pfnGetBaseMap(), CBaseWnd::GetThisMessageMap());
    QVERIFY(!KxFindMessageEntry(map, 0, 0, 0));
    QVERIFY(!KxFindMessageEntry(nullptr, WM_COMMAND, 0, 100));
}

void TestMessageMap::inheritedMapIsTheBases()
{
    QCOMPARE(CMaplessWnd::GetThisMessageMap(), CDerivedWnd::GetThisMessageMap());
}

void TestMessageMap::templateHasItsOwnMap()
{
    QVERIFY(CValueTarget<int>::GetThisMessageMap() != CValueTarget<double>::GetThisMessageMap());
    CValueTarget<double> target;
    const auto *map = CValueTarget<double>::GetThisMessageMap();
    const auto handler = KxMessageHandler<KxCommandRangeHandler>(KxFindMessageEntry(map, WM_COMMAND, 0, 501));
    QVERIFY(handler);
    handler(&target, 501);
    QCOMPARE(target.value, 250.5);
    QVERIFY2(KxFindMessageEntry(map, WM_COMMAND, 0, 100), "the base's line");
}

void TestMessageMap::secondBase()
{
    CSecondBaseTarget target;
    const auto *entry = KxFindMessageEntry(CSecondBaseTarget::GetThisMessageMap(), WM_COMMAND, 0, 1);
    const auto handler = KxMessageHandler<KxCommandHandler>(entry);
    QVERIFY(handler);
    handler(&target);
    QCOMPARE(target.number, 1);
}

void TestMessageMap::wrongTypeIsNotCalled()
{
    const auto *command = KxFindMessageEntry(CPlotTarget::GetThisMessageMap(), WM_COMMAND, 0, 100);
    QVERIFY(KxMessageHandler<KxCommandHandler>(command));
    QVERIFY(!KxMessageHandler<KxCommandRangeHandler>(command));
    QVERIFY(!KxMessageHandler<KxReflectExHandler>(command));
    QVERIFY(!KxMessageHandler<void (CWnd::*)()>(command));
    QVERIFY(!KxMessageHandler<KxCommandHandler>(nullptr));
    QVERIFY(!KxMessageHandler<KxCommandHandler>(CCmdTarget::GetThisMessageMap()->lpEntries));
}

void TestMessageMap::mapIsMadeOnce()
{
    const auto *map = CPlotTarget::GetThisMessageMap();
    QCOMPARE(CPlotTarget::GetThisMessageMap(), map);
    const UINT before = registeredThreadMessage;
    registeredThreadMessage = 0xC999;
    QVERIFY2(!KxFindMessageEntry(CPlotTarget::GetThisMessageMap(), 0xC999, 0, 0),
             "the variable is read once");
    QVERIFY(KxFindMessageEntry(CPlotTarget::GetThisMessageMap(), before, 0, 0));
    registeredThreadMessage = before;
}

void TestMessageMap::acceptance_data()
{
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<bool>("expected");

#define TAKES(Accepts, ...) QTest::newRow(#Accepts " " #__VA_ARGS__) << Accepts<__VA_ARGS__>::value << true
#define REFUSES(Accepts, ...) \
    QTest::newRow(#Accepts " not " #__VA_ARGS__) << Accepts<__VA_ARGS__>::value << false
    TAKES(TimerAccepts, WndWith<void, UINT_PTR>);
    REFUSES(TimerAccepts, WndWith<void, UINT>);
    REFUSES(TimerAccepts, WndWith<void>);
    REFUSES(TimerAccepts, WndWith<int, UINT_PTR>);
    REFUSES(TimerAccepts, TargetWith<void, UINT_PTR>);
    TAKES(SizeAccepts, WndWith<void, UINT, int, int>);
    REFUSES(SizeAccepts, WndWith<void, UINT, long, long>);
    REFUSES(SizeAccepts, WndWith<void, UINT, CPoint>);
    TAKES(MouseWheelAccepts, WndWith<BOOL, UINT, short, CPoint>);
    REFUSES(MouseWheelAccepts, WndWith<void, UINT, short, CPoint>);
    REFUSES(MouseWheelAccepts, WndWith<BOOL, UINT, int, CPoint>);
    TAKES(ControlColourAccepts, WndWith<HBRUSH, CDC *, CWnd *, UINT>);
    REFUSES(ControlColourAccepts, WndWith<HBRUSH, CDC *, UINT>);
    TAKES(MessageAccepts, WndWith<LRESULT, WPARAM, LPARAM>);
    REFUSES(MessageAccepts, WndWith<void, WPARAM, LPARAM>);
    REFUSES(MessageAccepts, WndWith<LRESULT, UINT, LPARAM>);
    REFUSES(MessageAccepts, TargetWith<LRESULT, WPARAM, LPARAM>);
    TAKES(ThreadMessageAccepts, TargetWith<void, WPARAM, LPARAM>);
    REFUSES(ThreadMessageAccepts, TargetWith<LRESULT, WPARAM, LPARAM>);
    TAKES(CommandAccepts, TargetWith<void>);
    TAKES(CommandAccepts, WndWith<void>);
    TAKES(CommandAccepts, COverloadedTarget);
    REFUSES(CommandAccepts, TargetWith<BOOL>);
    REFUSES(CommandAccepts, TargetWith<void, UINT>);
    REFUSES(CommandAccepts, CConstantTarget);
    REFUSES(CommandAccepts, CStaticTarget);
    REFUSES(CommandAccepts, CNoTarget);
    TAKES(CommandExAccepts, TargetWith<BOOL, UINT>);
    REFUSES(CommandExAccepts, TargetWith<void, UINT>);
    TAKES(CommandRangeAccepts, TargetWith<void, UINT>);
    REFUSES(CommandRangeAccepts, TargetWith<void>);
    TAKES(ClickedAccepts, TargetWith<void>);
    REFUSES(ClickedAccepts, TargetWith<LRESULT>);
    TAKES(UpdateAccepts, TargetWith<void, CCmdUI *>);
    REFUSES(UpdateAccepts, TargetWith<void, CCmdUI>);
    TAKES(NotifyAccepts, TargetWith<void, NMHDR *, LRESULT *>);
    REFUSES(NotifyAccepts, TargetWith<void, NMHDR *>);
    REFUSES(NotifyAccepts, TargetWith<BOOL, NMHDR *, LRESULT *>);
    TAKES(NotifyExAccepts, TargetWith<BOOL, UINT, NMHDR *, LRESULT *>);
    REFUSES(NotifyExAccepts, TargetWith<BOOL, NMHDR *, LRESULT *>);
    TAKES(NotifyReflectAccepts, TargetWith<void, NMHDR *, LRESULT *>);
    REFUSES(NotifyReflectAccepts, TargetWith<void, UINT, NMHDR *, LRESULT *>);
}

void TestMessageMap::acceptance()
{
    QFETCH(bool, accepted);
    QTEST(accepted, "expected");
}

KX_TEST_MAIN(TestMessageMap)

#include "tst_message_map.moc"
