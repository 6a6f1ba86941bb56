// SPDX-License-Identifier: MIT
// Message maps that name their handlers without class and &, as older MFC source does: GCC takes them with
// -fms-extensions, Clang never does, so that the program is built with GCC alone.

#include "KxTestCase.h"

#include <afxwin.h>

class TestMessageMapBareNames : public KxTestCase
{
    Q_OBJECT

private slots:
    void command();
    void overload();
    void windowMessage();
    void inTemplate();
};

namespace {

class CBareWnd : public CWnd
{
public:
    QString called;

private:
    afx_msg void OnPressed() { called = QStringLiteral("OnPressed()"); }
    afx_msg void OnPressed(UINT id) { called = QStringLiteral("OnPressed(%1)").arg(id); }
    afx_msg LRESULT OnMine(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam) - lParam; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CBareWnd, CWnd)
    ON_BN_CLICKED(1, OnPressed)
    ON_COMMAND_RANGE(2, 3, OnPressed)
    ON_MESSAGE(WM_USER + 100, OnMine)
END_MESSAGE_MAP()

template<typename Value>
class CBareTemplate : public CCmdTarget
{
public:
    Value value = 0;

private:
    afx_msg void OnHalf() { value = static_cast<Value>(1) / 2; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_TEMPLATE_MESSAGE_MAP(CBareTemplate, Value, CCmdTarget)
    ON_COMMAND(1, OnHalf)
END_MESSAGE_MAP()

} // namespace

void TestMessageMapBareNames::command()
{
    CBareWnd window;
    const auto *entry = KxFindMessageEntry(CBareWnd::GetThisMessageMap(), WM_COMMAND, BN_CLICKED, 1);
    const auto handler = KxMessageHandler<KxCommandHandler>(entry);
    QVERIFY(handler);
    handler(&window);
    QCOMPARE(window.called, QStringLiteral("OnPressed()"));
}

void TestMessageMapBareNames::overload()
{
    CBareWnd window;
    const auto *entry = KxFindMessageEntry(CBareWnd::GetThisMessageMap(), WM_COMMAND, CN_COMMAND, 3);
    const auto handler = KxMessageHandler<KxCommandRangeHandler>(entry);
    QVERIFY(handler);
    handler(&window, 3);
    QCOMPARE(window.called, QStringLiteral("OnPressed(3)"));
}

void TestMessageMapBareNames::windowMessage()
{
    CBareWnd window;
    const auto *entry = KxFindMessageEntry(CBareWnd::GetThisMessageMap(), WM_USER + 100, 0, 0);
    const auto handler = KxMessageHandler<LRESULT (CWnd::*)(WPARAM, LPARAM)>(entry);
    QVERIFY(handler);
    QCOMPARE(handler(&window, 30, 10), 20L);
}

void TestMessageMapBareNames::inTemplate()
{
    CBareTemplate<double> target;
    const auto *map = CBareTemplate<double>::GetThisMessageMap();
    const auto handler = KxMessageHandler<KxCommandHandler>(KxFindMessageEntry(map, WM_COMMAND, 0, 1));
    QVERIFY(handler);
    handler(&target);
    QCOMPARE(target.value, 0.5);
}


KX_TEST_MAIN(TestMessageMapBareNames)

#include "tst_message_map_bare_names.moc"
