// SPDX-License-Identifier: MIT
// CSliderCtrl and CScrollBar over sliders; CSpinButtonCtrl, CToolTipCtrl, CControlBar and CRichEditCtrl.

#include "KxClassLayout.h"
#include "KxResultNumber.h"
#include "KxTestCase.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QDial>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTextEdit>

#include <afxcmn.h>

#include <cstdint>
#include <cstring>
#include <typeinfo>

/// A caller that goes through a pointer to no object, on purpose.
#define KX_CALLS_THROUGH_SMALL_POINTER __attribute__((no_sanitize("undefined")))

using Promise = void (*)();
/// A call of one of the classes, which all are what a CWnd is; the cast is in the call.
using ControlCall = qint64 (*)(CWnd *);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(ControlCall)

namespace {

template<class Control, class Widget>
struct Bound {
    Bound() { control.Attach(KxHwndFromWidget(&widget)); }

    Widget widget;
    Control control;
};

/// From -100 to 100, at 20; a page is 15, a step is 3. All of them differ from what a widget begins with.
template<class Control, class Widget = QSlider>
struct Sliding : Bound<Control, Widget> {
    Sliding()
    {
        this->widget.setRange(-100, 100);
        this->widget.setValue(20);
        this->widget.setPageStep(15);
        this->widget.setSingleStep(3);
    }
};

/// "minimum maximum value position page step"
QString stateOf(const QAbstractSlider &slider)
{
    return QStringLiteral("%1 %2 %3 %4 %5 %6")
        .arg(slider.minimum())
        .arg(slider.maximum())
        .arg(slider.value())
        .arg(slider.sliderPosition())
        .arg(slider.pageStep())
        .arg(slider.singleStep());
}

const QString slidingState = QStringLiteral("-100 100 20 20 15 3");

bool isUntouched(const tagRECT &rect)
{
    return rect.left == 1 && rect.top == 2 && rect.right == 3 && rect.bottom == 4;
}

struct NamedCall {
    const char *name;
    ControlCall call;
    int expected;
};

#define KX_CALL(Control, expression) \
    [](CWnd *window) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { \
        auto *c = static_cast<Control *>(window); \
        return number(expression); \
    }
#define KX_RUN(Control, statement) \
    [](CWnd *window) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { \
        auto *c = static_cast<Control *>(window); \
        statement; \
        return 0; \
    }
/// 1 when the two numbers, or the rectangle, given are written.
#define KX_PAIR(Control, call) \
    [](CWnd *window) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { \
        auto *c = static_cast<Control *>(window); \
        int low = 71; \
        int high = 72; \
        call; \
        return low == 71 && high == 72 ? 0 : 1; \
    }
#define KX_RECT(Control, call) \
    [](CWnd *window) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 { \
        auto *c = static_cast<Control *>(window); \
        tagRECT rect = {1, 2, 3, 4}; \
        call; \
        return isUntouched(rect) ? 0 : 1; \
    }

/// Members that serve a slider, and give 0 elsewhere.
const NamedCall servedCalls[] = {
    {"CSliderCtrl::GetPos", KX_CALL(CSliderCtrl, c->GetPos()), 0},
    {"CSliderCtrl::SetPos", KX_RUN(CSliderCtrl, c->SetPos(5)), 0},
    {"CSliderCtrl::SetRange", KX_RUN(CSliderCtrl, c->SetRange(5, 6, TRUE)), 0},
    {"CSliderCtrl::SetPageSize", KX_CALL(CSliderCtrl, c->SetPageSize(5)), 0},
    {"CSliderCtrl::SetTicFreq", KX_RUN(CSliderCtrl, c->SetTicFreq(5)), 0},
    {"CScrollBar::SetScrollPos", KX_CALL(CScrollBar, c->SetScrollPos(5, TRUE)), 0},
    {"CScrollBar::SetScrollRange", KX_RUN(CScrollBar, c->SetScrollRange(5, 6, TRUE)), 0},
};

/// Members whose result is fixed.
const NamedCall fixedCalls[] = {
    {"CSliderCtrl::GetPageSize", KX_CALL(CSliderCtrl, c->GetPageSize()), 0},
    {"CSliderCtrl::GetLineSize", KX_CALL(CSliderCtrl, c->GetLineSize()), 0},
    {"CSliderCtrl::SetLineSize", KX_CALL(CSliderCtrl, c->SetLineSize(9)), 0},
    {"CSliderCtrl::GetRangeMax", KX_CALL(CSliderCtrl, c->GetRangeMax()), 0},
    {"CSliderCtrl::GetRangeMin", KX_CALL(CSliderCtrl, c->GetRangeMin()), 0},
    {"CSliderCtrl::GetNumTics", KX_CALL(CSliderCtrl, c->GetNumTics()), 0},
    {"CSliderCtrl::GetTicArray", KX_CALL(CSliderCtrl, c->GetTicArray()), 0},
    {"CSliderCtrl::GetTic", KX_CALL(CSliderCtrl, c->GetTic(1)), 0},
    {"CSliderCtrl::GetTicPos", KX_CALL(CSliderCtrl, c->GetTicPos(1)), 0},
    {"CSliderCtrl::SetTic", KX_CALL(CSliderCtrl, c->SetTic(1)), 0},
    {"CSliderCtrl::GetRange leaves both", KX_PAIR(CSliderCtrl, c->GetRange(low, high)), 0},
    {"CSliderCtrl::GetSelection leaves both", KX_PAIR(CSliderCtrl, c->GetSelection(low, high)), 0},
    {"CSliderCtrl::GetChannelRect leaves it", KX_RECT(CSliderCtrl, c->GetChannelRect(&rect)), 0},
    {"CSliderCtrl::GetThumbRect leaves it", KX_RECT(CSliderCtrl, c->GetThumbRect(&rect)), 0},
    {"CSliderCtrl::GetChannelRect of null", KX_RUN(CSliderCtrl, c->GetChannelRect(nullptr)), 0},
    {"CSliderCtrl::GetThumbRect of null", KX_RUN(CSliderCtrl, c->GetThumbRect(nullptr)), 0},
    {"CSliderCtrl::SetRangeMin", KX_RUN(CSliderCtrl, c->SetRangeMin(1, TRUE)), 0},
    {"CSliderCtrl::SetRangeMax", KX_RUN(CSliderCtrl, c->SetRangeMax(2, TRUE)), 0},
    {"CSliderCtrl::SetSelection", KX_RUN(CSliderCtrl, c->SetSelection(1, 2)), 0},
    {"CScrollBar::GetScrollPos", KX_CALL(CScrollBar, c->GetScrollPos()), 0},
    {"CScrollBar::GetScrollRange leaves both", KX_PAIR(CScrollBar, c->GetScrollRange(&low, &high)), 0},
    {"CScrollBar::GetScrollRange of null", KX_RUN(CScrollBar, c->GetScrollRange(nullptr, nullptr)), 0},
    {"CSpinButtonCtrl::SetBuddy", KX_CALL(CSpinButtonCtrl, c->SetBuddy(&CWnd::wndTop)), 0},
    {"CSpinButtonCtrl::GetBuddy", KX_CALL(CSpinButtonCtrl, c->GetBuddy()), 0},
    {"CSpinButtonCtrl::SetPos", KX_CALL(CSpinButtonCtrl, c->SetPos(5)), 0},
    {"CSpinButtonCtrl::GetPos", KX_CALL(CSpinButtonCtrl, c->GetPos()), 0},
    {"CSpinButtonCtrl::SetRange", KX_RUN(CSpinButtonCtrl, c->SetRange(1, 2)), 0},
    {"CSpinButtonCtrl::SetRange32", KX_RUN(CSpinButtonCtrl, c->SetRange32(1, 2)), 0},
    {"CToolTipCtrl::AddTool(ID)", KX_CALL(CToolTipCtrl, c->AddTool(&CWnd::wndTop, 5u)), 1},
    {"CToolTipCtrl::AddTool(ID, rectangle)", [](CWnd *window) KX_CALLS_THROUGH_SMALL_POINTER -> qint64 {
         const tagRECT rect = {1, 2, 3, 4};
         return number(static_cast<CToolTipCtrl *>(window)->AddTool(nullptr, 5u, &rect, 6));
     }, 1},
    {"CToolTipCtrl::AddTool(text)", KX_CALL(CToolTipCtrl, c->AddTool(&CWnd::wndTop, L"tip", nullptr, 6)), 0},
    {"CToolTipCtrl::AddTool(window)", KX_CALL(CToolTipCtrl, c->AddTool(&CWnd::wndTop)), 0},
    {"CToolTipCtrl::Activate", KX_RUN(CToolTipCtrl, c->Activate(TRUE)), 0},
    {"CToolTipCtrl::RelayEvent", KX_RUN(CToolTipCtrl, c->RelayEvent(nullptr)), 0},
    {"CControlBar::IsVisible", KX_CALL(CControlBar, c->IsVisible()), 1},
    {"CRichEditCtrl::SetEventMask", KX_CALL(CRichEditCtrl, c->SetEventMask(0x10001u)), 0},
    {"CRichEditCtrl::GetEventMask", KX_CALL(CRichEditCtrl, c->GetEventMask()), 0},
};

#undef KX_CALL
#undef KX_RUN
#undef KX_PAIR
#undef KX_RECT

/// Whether the operations of CWnd, but for the destructors, are CWnd's own.
template<class Class>
bool overridesNothing()
{
    const CWnd window;
    const Class object;
    const void *const *table = nullptr;
    const void *const *windowTable = nullptr;
    std::memcpy(&table, static_cast<const void *>(&object), sizeof table);
    std::memcpy(&windowTable, static_cast<const void *>(&window), sizeof windowTable);
    for (int slot = 2; slot < 20; ++slot) {
        if (table[slot] != windowTable[slot])
            return false;
    }
    return true;
}

} // namespace

class ControlsSmallTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void sliders_data();
    void sliders() { runPromise(); }
    void scrollBars_data();
    void scrollBars() { runPromise(); }
    void others_data();
    void others() { runPromise(); }
    void fixedResult_data();
    void fixedResult();
    void withoutSlider_data();
    void withoutSlider();
    void smallPointer_data();
    void smallPointer();
    void plainSlider();
    void plainScrollBar();
    void layout_data();
    void layout() { runPromise(); }

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

// ---- sliders ----------------------------------------------------------------------------------------------

void ControlsSmallTest::sliders_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GetPos is the slider's position") << Promise([] {
        Sliding<CSliderCtrl> slider;
        QCOMPARE(slider.control.GetPos(), 20);
        slider.widget.setValue(-7);
        QCOMPARE(slider.control.GetPos(), -7);
    });
    QTest::newRow("GetPos is the position, not the value, while the slider is dragged") << Promise([] {
        Sliding<CSliderCtrl> slider;
        slider.widget.setTracking(false);
        slider.widget.setSliderDown(true);
        slider.widget.setSliderPosition(55);
        QCOMPARE(slider.widget.value(), 20);
        QCOMPARE(slider.control.GetPos(), 55);
    });
    QTest::newRow("SetPos moves the slider, and is heard as a change and as a move") << Promise([] {
        Sliding<CSliderCtrl> slider;
        QSignalSpy changed(&slider.widget, &QSlider::valueChanged);
        QSignalSpy action(&slider.widget, &QSlider::actionTriggered);
        slider.control.SetPos(30);
        QCOMPARE(stateOf(slider.widget), QStringLiteral("-100 100 30 30 15 3"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed[0][0].toInt(), 30);
        QCOMPARE(action.count(), 1);
        QCOMPARE(action[0][0].toInt(), static_cast<int>(QAbstractSlider::SliderMove));
    });
    QTest::newRow("SetPos to where it is is not heard") << Promise([] {
        Sliding<CSliderCtrl> slider;
        QSignalSpy changed(&slider.widget, &QSlider::valueChanged);
        slider.control.SetPos(20);
        QCOMPARE(changed.count(), 0);
    });
    QTest::newRow("SetPos without tracking moves the slider and leaves the value") << Promise([] {
        Sliding<CSliderCtrl> slider;
        slider.widget.setTracking(false);
        slider.control.SetPos(30);
        QCOMPARE(slider.widget.sliderPosition(), 30);
        QCOMPARE(slider.widget.value(), 20);
    });
    QTest::newRow("SetPos stays within the range") << Promise([] {
        Sliding<CSliderCtrl> slider;
        slider.control.SetPos(1000);
        QCOMPARE(slider.control.GetPos(), 100);
        slider.control.SetPos(-1000);
        QCOMPARE(slider.control.GetPos(), -100);
    });
    QTest::newRow("SetRange sets both ends, whatever the redraw flag, and is heard") << Promise([] {
        for (const BOOL redraw : {FALSE, TRUE}) {
            Sliding<CSliderCtrl> slider;
            QSignalSpy spy(&slider.widget, &QSlider::rangeChanged);
            slider.control.SetRange(-5, 10, redraw);
            QCOMPARE(slider.widget.minimum(), -5);
            QCOMPARE(slider.widget.maximum(), 10);
            QCOMPARE(slider.widget.value(), 10);
            QCOMPARE(spy.count(), 1);
        }
    });
    QTest::newRow("SetRange without a redraw flag") << Promise([] {
        Sliding<CSliderCtrl> slider;
        slider.control.SetRange(0, 50);
        QCOMPARE(stateOf(slider.widget), QStringLiteral("0 50 20 20 15 3"));
    });
    QTest::newRow("SetPageSize sets the page and gives the previous one; GetPageSize is 0") << Promise([] {
        Sliding<CSliderCtrl> slider;
        QCOMPARE(slider.control.SetPageSize(10), 15);
        QCOMPARE(slider.widget.pageStep(), 10);
        QCOMPARE(slider.control.SetPageSize(25), 10);
        QCOMPARE(slider.control.GetPageSize(), 0);
    });
    QTest::newRow("SetTicFreq is the step of the arrow keys, and draws no ticks") << Promise([] {
        Sliding<CSliderCtrl> slider;
        slider.control.SetTicFreq(8);
        QCOMPARE(stateOf(slider.widget), QStringLiteral("-100 100 20 20 15 8"));
        QCOMPARE(slider.widget.tickInterval(), 0);
        QCOMPARE(slider.widget.tickPosition(), QSlider::NoTicks);
        QTest::keyClick(&slider.widget, Qt::Key_Right);
        QCOMPARE(slider.widget.value(), 28);
    });
    QTest::newRow("SetTicFreq does nothing on a scroll bar or a dial") << Promise([] {
        Sliding<CSliderCtrl, QScrollBar> bar;
        Sliding<CSliderCtrl, QDial> dial;
        bar.control.SetTicFreq(8);
        dial.control.SetTicFreq(8);
        QCOMPARE(stateOf(bar.widget), slidingState);
        QCOMPARE(stateOf(dial.widget), slidingState);
    });
    QTest::newRow("the others serve a scroll bar and a dial") << Promise([] {
        Sliding<CSliderCtrl, QScrollBar> bar;
        bar.control.SetRange(0, 50);
        bar.control.SetPos(30);
        QCOMPARE(bar.control.GetPos(), 30);
        QCOMPARE(bar.control.SetPageSize(4), 15);
        QCOMPARE(stateOf(bar.widget), QStringLiteral("0 50 30 30 4 3"));
        Sliding<CSliderCtrl, QDial> dial;
        dial.control.SetRange(0, 50);
        dial.control.SetPos(30);
        QCOMPARE(dial.control.GetPos(), 30);
        QCOMPARE(dial.control.SetPageSize(4), 15);
        QCOMPARE(stateOf(dial.widget), QStringLiteral("0 50 30 30 4 3"));
    });
}

void ControlsSmallTest::scrollBars_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("SetScrollPos(5) after SetScrollPos(3) gives 3, while GetScrollPos is 0") << Promise([] {
        Bound<CScrollBar, QScrollBar> bar;
        bar.control.SetScrollPos(3, TRUE);
        QCOMPARE(bar.control.SetScrollPos(5, TRUE), 3);
        QCOMPARE(bar.widget.value(), 5);
        QCOMPARE(bar.control.GetScrollPos(), 0);
    });
    QTest::newRow("SetScrollPos is heard as a change, not as a move") << Promise([] {
        for (const BOOL redraw : {FALSE, TRUE}) {
            Sliding<CScrollBar, QScrollBar> bar;
            QSignalSpy changed(&bar.widget, &QScrollBar::valueChanged);
            QSignalSpy action(&bar.widget, &QScrollBar::actionTriggered);
            QCOMPARE(bar.control.SetScrollPos(30, redraw), 20);
            QCOMPARE(stateOf(bar.widget), QStringLiteral("-100 100 30 30 15 3"));
            QCOMPARE(changed.count(), 1);
            QCOMPARE(action.count(), 0);
        }
    });
    QTest::newRow("SetScrollPos sets the value without tracking too, and gives the value") << Promise([] {
        Sliding<CScrollBar, QScrollBar> bar;
        bar.widget.setTracking(false);
        bar.widget.setSliderDown(true);
        bar.widget.setSliderPosition(55);
        QCOMPARE(bar.control.SetScrollPos(30), 20);
        QCOMPARE(bar.widget.value(), 30);
    });
    QTest::newRow("SetScrollPos stays within the range") << Promise([] {
        Sliding<CScrollBar, QScrollBar> bar;
        bar.control.SetScrollPos(1000);
        QCOMPARE(bar.control.SetScrollPos(-1000), 100);
        QCOMPARE(bar.widget.value(), -100);
    });
    QTest::newRow("SetScrollRange sets both ends, whatever the redraw flag, and is heard") << Promise([] {
        for (const BOOL redraw : {FALSE, TRUE}) {
            Sliding<CScrollBar, QScrollBar> bar;
            QSignalSpy spy(&bar.widget, &QScrollBar::rangeChanged);
            bar.control.SetScrollRange(-5, 10, redraw);
            QCOMPARE(stateOf(bar.widget), QStringLiteral("-5 10 10 10 15 3"));
            QCOMPARE(spy.count(), 1);
        }
    });
    QTest::newRow("it serves a slider and a dial") << Promise([] {
        Sliding<CScrollBar, QSlider> slider;
        slider.control.SetScrollRange(0, 50);
        QCOMPARE(slider.control.SetScrollPos(30), 20);
        QCOMPARE(stateOf(slider.widget), QStringLiteral("0 50 30 30 15 3"));
        Sliding<CScrollBar, QDial> dial;
        dial.control.SetScrollRange(0, 50);
        QCOMPARE(dial.control.SetScrollPos(30), 20);
        QCOMPARE(stateOf(dial.widget), QStringLiteral("0 50 30 30 15 3"));
    });
}

// ---- those with fixed results only ------------------------------------------------------------------------

void ControlsSmallTest::others_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("CToolTipCtrl::Create is TRUE, binds nothing and keeps no parent") << Promise([] {
        QWidget widget;
        CWnd parent;
        CToolTipCtrl tip;
        QCOMPARE(tip.Create(&parent), true);
        QCOMPARE(tip.Create(&parent, 5u), true);
        QCOMPARE(tip.Create(nullptr, 5u), true);
        QVERIFY(tip.GetSafeHwnd() == nullptr);
        tip.Attach(KxHwndFromWidget(&widget));
        QCOMPARE(tip.Create(&parent, 5u), true);
        QVERIFY(tip.GetParent() == nullptr);
    });
    QTest::newRow("CToolTipCtrl still has the Create of CWnd") << Promise([] {
        CToolTipCtrl tip;
        QCOMPARE(tip.Create(L"class", L"name", 0u, tagRECT{1, 2, 3, 4}, nullptr, 5u), true);
    });
    QTest::newRow("CToolTipCtrl::AddTool sets no tool tip") << Promise([] {
        Bound<CWnd, QWidget> tool;
        tool.widget.setToolTip(QStringLiteral("before"));
        Bound<CToolTipCtrl, QWidget> tip;
        QCOMPARE(tip.control.AddTool(&tool.control, 5u), true);
        QCOMPARE(tip.control.AddTool(&tool.control, L"tip"), false);
        tip.control.Activate(TRUE);
        QCOMPARE(tool.widget.toolTip(), QStringLiteral("before"));
        QCOMPARE(tip.widget.toolTip(), QString());
    });
    QTest::newRow("CToolTipCtrl::RelayEvent leaves the message") << Promise([] {
        tagMSG message = {};
        message.message = 0x200;
        tagMSG before;
        std::memcpy(&before, &message, sizeof before);
        CToolTipCtrl tip;
        tip.RelayEvent(&message);
        QCOMPARE(std::memcmp(&before, &message, sizeof before), 0);
    });
    QTest::newRow("CSpinButtonCtrl leaves a spin box's range, value and window") << Promise([] {
        Bound<CSpinButtonCtrl, QSpinBox> spin;
        spin.widget.setRange(-3, 50);
        spin.widget.setValue(7);
        Bound<CWnd, QWidget> buddy;
        QVERIFY(spin.control.SetBuddy(&buddy.control) == nullptr);
        QVERIFY(spin.control.GetBuddy() == nullptr);
        QCOMPARE(spin.control.SetPos(9), 0);
        QCOMPARE(spin.control.GetPos(), 0);
        spin.control.SetRange(1, 2);
        spin.control.SetRange32(1, 2);
        QCOMPARE(spin.widget.minimum(), -3);
        QCOMPARE(spin.widget.maximum(), 50);
        QCOMPARE(spin.widget.value(), 7);
    });
    QTest::newRow("a spin box is driven by the text calls of CWnd") << Promise([] {
        Bound<CSpinButtonCtrl, QSpinBox> spin;
        spin.control.SetWindowTextW(L"42");
        QCOMPARE(spin.widget.value(), 42);
        CString text;
        spin.control.GetWindowTextW(text);
        QVERIFY(text == L"42");
    });
    QTest::newRow("CControlBar::IsVisible is TRUE for a hidden widget") << Promise([] {
        Bound<CControlBar, QWidget> bar;
        bar.widget.hide();
        QCOMPARE(bar.control.IsVisible(), true);
        QVERIFY(!bar.widget.isVisible());
    });
    QTest::newRow("CRichEditCtrl keeps no event mask") << Promise([] {
        Bound<CRichEditCtrl, QTextEdit> edit;
        QCOMPARE(edit.control.SetEventMask(0x10001u), 0u);
        QCOMPARE(edit.control.GetEventMask(), 0L);
        QCOMPARE(edit.control.SetEventMask(0u), 0u);
        QVERIFY(!edit.widget.signalsBlocked());
    });
}

void ControlsSmallTest::fixedResult_data()
{
    QTest::addColumn<ControlCall>("call");
    QTest::addColumn<int>("expected");
    QTest::addColumn<QString>("situation");
    for (const char *situation : {"on a slider", "on a scroll bar", "on a spin box", "unbound", "plain"}) {
        for (const NamedCall &call : fixedCalls) {
            QTest::addRow("%s %s is %d", call.name, situation, call.expected)
                << call.call << call.expected << QString::fromLatin1(situation);
        }
    }
}

/// The result stands, and nothing changes. The object is always a CWnd and no more, as GetDlgItem() gives it.
void ControlsSmallTest::fixedResult()
{
    QFETCH(ControlCall, call);
    QFETCH(int, expected);
    QFETCH(QString, situation);
    Sliding<CWnd, QSlider> slider;
    Sliding<CWnd, QScrollBar> bar;
    Bound<CWnd, QSpinBox> spin;
    spin.widget.setRange(-3, 50);
    spin.widget.setValue(7);
    CWnd unbound;
    QWidget dialogWidget;
    auto *item = new QWidget(&dialogWidget);
    CWnd dialog;
    dialog.Attach(KxHwndFromWidget(&dialogWidget));
    dialog.SetDlgItem(7, KxHwndFromWidget(item));
    CWnd *used = &unbound;
    if (situation == QLatin1String("on a slider"))
        used = &slider.control;
    else if (situation == QLatin1String("on a scroll bar"))
        used = &bar.control;
    else if (situation == QLatin1String("on a spin box"))
        used = &spin.control;
    else if (situation == QLatin1String("plain"))
        used = dialog.GetDlgItem(7);
    QVERIFY(typeid(*used) == typeid(CWnd));
    QCOMPARE(call(used), expected);
    QCOMPARE(call(used), expected);
    QCOMPARE(stateOf(slider.widget), slidingState);
    QCOMPARE(stateOf(bar.widget), slidingState);
    QCOMPARE(slider.widget.tickInterval(), 0);
    QCOMPARE(slider.widget.tickPosition(), QSlider::NoTicks);
    QCOMPARE(spin.widget.minimum(), -3);
    QCOMPARE(spin.widget.maximum(), 50);
    QCOMPARE(spin.widget.value(), 7);
}

void ControlsSmallTest::withoutSlider_data()
{
    QTest::addColumn<ControlCall>("call");
    QTest::addColumn<QString>("situation");
    for (const char *situation : {"unbound", "orphaned", "on a spin box", "on a progress bar"}) {
        for (const NamedCall &call : servedCalls)
            QTest::addRow("%s %s", call.name, situation) << call.call << QString::fromLatin1(situation);
    }
}

/// The result is 0, and nothing changes.
void ControlsSmallTest::withoutSlider()
{
    QFETCH(ControlCall, call);
    QFETCH(QString, situation);
    Sliding<CWnd, QSlider> outOfReach;
    QSpinBox spin;
    spin.setRange(-3, 50);
    spin.setValue(7);
    QProgressBar progress;
    progress.setRange(-3, 50);
    progress.setValue(7);
    CWnd owner;
    CWnd control;
    CWnd *used = &control;
    if (situation == QLatin1String("orphaned")) {
        owner.Attach(KxHwndFromWidget(&outOfReach.widget));
        used = &outOfReach.control;
    } else if (situation == QLatin1String("on a spin box")) {
        control.Attach(KxHwndFromWidget(&spin));
    } else if (situation == QLatin1String("on a progress bar")) {
        control.Attach(KxHwndFromWidget(&progress));
    }
    QCOMPARE(call(used), 0);
    QCOMPARE(stateOf(outOfReach.widget), slidingState);
    QCOMPARE(spin.minimum(), -3);
    QCOMPARE(spin.maximum(), 50);
    QCOMPARE(spin.value(), 7);
    QCOMPARE(spin.singleStep(), 1);
    QCOMPARE(progress.minimum(), -3);
    QCOMPARE(progress.maximum(), 50);
    QCOMPARE(progress.value(), 7);
}

void ControlsSmallTest::smallPointer_data()
{
    QTest::addColumn<ControlCall>("call");
    QTest::addColumn<quintptr>("pointer");
    for (const quintptr pointer : {quintptr(0), quintptr(7), quintptr(4095)}) {
        for (const NamedCall &call : servedCalls)
            QTest::addRow("%s through %d", call.name, static_cast<int>(pointer)) << call.call << pointer;
        for (const NamedCall &call : fixedCalls)
            QTest::addRow("%s through %d", call.name, static_cast<int>(pointer)) << call.call << pointer;
    }
}

/// A member that touched memory would end the program here.
void ControlsSmallTest::smallPointer()
{
    QFETCH(ControlCall, call);
    QFETCH(quintptr, pointer);
    const auto entries = CWndHandleTable.size();
    call(reinterpret_cast<CWnd *>(pointer));
    QCOMPARE(CWndHandleTable.size(), entries);
}

namespace {

/// A dialog with a widget of kind `Widget` as its item 7, whose window object is a CWnd and no more.
template<class Widget>
struct DialogWithItem {
    DialogWithItem() : item(new Widget(&widget))
    {
        dialog.Attach(KxHwndFromWidget(&widget));
        dialog.SetDlgItem(7, KxHwndFromWidget(item));
    }

    QWidget widget;
    Widget *const item;
    CWnd dialog;
};

} // namespace

void ControlsSmallTest::plainSlider()
{
    DialogWithItem<QSlider> dialog;
    CWnd *plain = dialog.dialog.GetDlgItem(7);
    QVERIFY(typeid(*plain) == typeid(CWnd));
    auto *slider = static_cast<CSliderCtrl *>(plain);
    slider->SetRange(-100, 100);
    slider->SetPos(20);
    QCOMPARE(slider->GetPos(), 20);
    QCOMPARE(slider->SetPageSize(15), 10);
    slider->SetTicFreq(3);
    QCOMPARE(stateOf(*dialog.item), slidingState);
}

void ControlsSmallTest::plainScrollBar()
{
    DialogWithItem<QScrollBar> dialog;
    CWnd *plain = dialog.dialog.GetDlgItem(7);
    QVERIFY(typeid(*plain) == typeid(CWnd));
    auto *bar = static_cast<CScrollBar *>(plain);
    bar->SetScrollRange(-100, 100);
    QCOMPARE(bar->SetScrollPos(20), 0);
    QCOMPARE(bar->SetScrollPos(30), 20);
    QCOMPARE(dialog.item->value(), 30);
    QCOMPARE(dialog.item->minimum(), -100);
}

void ControlsSmallTest::layout_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the classes are window objects without fields of their own") << Promise([] {
        QCOMPARE(sizeof(CSliderCtrl), sizeof(CWnd));
        QCOMPARE(sizeof(CScrollBar), sizeof(CWnd));
        QCOMPARE(sizeof(CSpinButtonCtrl), sizeof(CWnd));
        QCOMPARE(sizeof(CToolTipCtrl), sizeof(CWnd));
        QCOMPARE(sizeof(CControlBar), sizeof(CWnd));
        QCOMPARE(sizeof(CRichEditCtrl), sizeof(CWnd));
    });
    QTest::newRow("all but CToolTipCtrl have the 20 slots of CWnd") << Promise([] {
        QCOMPARE(slotCount<CSliderCtrl>(), 20);
        QCOMPARE(slotCount<CScrollBar>(), 20);
        QCOMPARE(slotCount<CSpinButtonCtrl>(), 20);
        QCOMPARE(slotCount<CControlBar>(), 20);
        QCOMPARE(slotCount<CRichEditCtrl>(), 20);
    });
    QTest::newRow("CToolTipCtrl has its Create in slot 20, the last") << Promise([] {
        using Create = BOOL (CToolTipCtrl::*)(CWnd *, UINT);
        QCOMPARE(slotOf(static_cast<Create>(&CToolTipCtrl::Create)), 20);
        QCOMPARE(slotCount<CToolTipCtrl>(), 21);
    });
    QTest::newRow("none overrides an operation of CWnd") << Promise([] {
        QVERIFY(overridesNothing<CSliderCtrl>());
        QVERIFY(overridesNothing<CScrollBar>());
        QVERIFY(overridesNothing<CSpinButtonCtrl>());
        QVERIFY(overridesNothing<CToolTipCtrl>());
        QVERIFY(overridesNothing<CControlBar>());
        QVERIFY(overridesNothing<CRichEditCtrl>());
    });
}

KX_TEST_MAIN(ControlsSmallTest)
#include "tst_controls_small.moc"
