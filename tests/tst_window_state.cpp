// SPDX-License-Identifier: MIT
// Geometry, enabling, showing, focus and painting of windows; members with a fixed result.

#include "KxResultNumber.h"
#include "KxTestCase.h"

#include <QtCore/QTimer>
#include <QtGui/QPaintEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QMessageBox>

#include <afxwin.h>


using Promise = void (*)();
using Call = qint64 (*)(CWnd &);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(Call)

namespace {

HWND handleOf(QWidget *widget)
{
    return KxHwndFromWidget(widget);
}

/// Counts what is asked of it.
class WatchedWidget : public QWidget
{
public:
    using QWidget::QWidget;

    void setVisible(bool visible) override
    {
        ++visibilityCalls;
        QWidget::setVisible(visible);
    }

    int visibilityCalls = 0;
    int paints = 0;
    QRegion painted;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        painted = event->region();
    }
};

/// A window on the screen with two children, the first of them bound.
struct Stage {
    Stage()
    {
        top.setGeometry(30, 40, 300, 200);
        first.setGeometry(10, 20, 100, 50);
        second.setGeometry(150, 20, 100, 50);
        first.setFocusPolicy(Qt::StrongFocus);
        second.setFocusPolicy(Qt::StrongFocus);
        window.Attach(handleOf(&first));
        // A parent from here on: everything that fixed results must not depend on.
        window.SetParent(&parent);
    }

    void show()
    {
        top.show();
        QApplication::setActiveWindow(&top);
        QVERIFY(QTest::qWaitForWindowActive(&top));
        second.setFocus();
        QTRY_VERIFY(first.paints > 0);
        QCoreApplication::processEvents();
    }

    QVariantList state() const
    {
        const QWidget *focus = QApplication::focusWidget();
        return {first.geometry(), first.isVisible(), first.isEnabled(), first.windowTitle(),
                first.font().toString(), first.windowIcon().isNull(), first.updatesEnabled(),
                first.paints, first.visibilityCalls,
                top.geometry(), top.isVisible(), top.children().indexOf(const_cast<WatchedWidget *>(&first)),
                focus == &second, QWidget::mouseGrabber() == nullptr,
                QApplication::overrideCursor() == nullptr,
                number(window.GetSafeHwnd()), number(window.GetParent()), window.GetDlgCtrlID(),
                QApplication::topLevelWidgets().size()};
    }

    QWidget top;
    WatchedWidget first{&top};
    WatchedWidget second{&top};
    CWnd parent{nullptr};
    CWnd window{nullptr};
};

CRect rectangleOf(const QRect &rect)
{
    return CRect(rect.left(), rect.top(), rect.right(), rect.bottom());
}

bool same(const CRect &a, const CRect &b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

} // namespace

class WindowStateTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void clientRect_data();
    void clientRect();
    void geometry_data();
    void geometry() { runPromise(); }
    void setWindowPos_data();
    void setWindowPos();
    void enableWindow_data();
    void enableWindow();
    void modifyStyle_data();
    void modifyStyle();
    void showWindow_data();
    void showWindow();
    void state_data();
    void state() { runPromise(); }
    void painting_data();
    void painting() { runPromise(); }
    void deviceContext_data();
    void deviceContext() { runPromise(); }
    void messageBox();
    void fixedResult_data();
    void fixedResult();
    void noEffect_data();
    void noEffect();

private:
    static void runPromise()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

void WindowStateTest::clientRect_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("bottom");

    QTest::newRow("100 x 50: right 99, bottom 49") << QSize(100, 50) << 99 << 49;
    QTest::newRow("1 x 1: right 0, bottom 0") << QSize(1, 1) << 0 << 0;
    QTest::newRow("0 x 7: right -1, bottom 6") << QSize(0, 7) << -1 << 6;
}

void WindowStateTest::clientRect()
{
    QFETCH(QSize, size);
    QFETCH(int, right);
    QFETCH(int, bottom);
    Stage stage;
    stage.first.resize(size);
    CRect rect(-1, -2, -3, -4);
    stage.window.GetClientRect(&rect);
    QCOMPARE(rect.left, 0);
    QCOMPARE(rect.top, 0);
    QCOMPARE(rect.right, right);
    QCOMPARE(rect.bottom, bottom);
}

void WindowStateTest::geometry_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GetClientRect of an unbound window leaves the rectangle") << Promise([] {
        const CWnd window(nullptr);
        CRect rect(1, 2, 3, 4);
        window.GetClientRect(&rect);
        QVERIFY(same(rect, CRect(1, 2, 3, 4)));
    });
    QTest::newRow("GetWindowRect of a child is on the screen, right and bottom inclusive") << Promise([] {
        Stage stage;
        CRect rect;
        stage.window.GetWindowRect(&rect);
        QVERIFY(same(rect, rectangleOf(QRect(stage.top.mapToGlobal(QPoint(10, 20)), QSize(100, 50)))));
        QCOMPARE(rect.Width(), 99);
        QCOMPARE(rect.Height(), 49);
    });
    QTest::newRow("GetWindowRect of a top-level window has its position and frame size") << Promise([] {
        Stage stage;
        stage.top.show();
        CWnd window(nullptr);
        window.Attach(handleOf(&stage.top));
        CRect rect;
        window.GetWindowRect(&rect);
        QVERIFY(same(rect, rectangleOf(QRect(stage.top.pos(), stage.top.frameGeometry().size()))));
    });
    QTest::newRow("GetWindowRect of an unbound window leaves the rectangle") << Promise([] {
        const CWnd window(nullptr);
        CRect rect(1, 2, 3, 4);
        window.GetWindowRect(&rect);
        QVERIFY(same(rect, CRect(1, 2, 3, 4)));
    });
    QTest::newRow("GetWindowRect of an orphan leaves the rectangle") << Promise([] {
        Stage stage;
        CWnd owner(nullptr);
        owner.Attach(handleOf(&stage.first));
        CRect rect(1, 2, 3, 4);
        stage.window.GetWindowRect(&rect);
        QVERIFY(same(rect, CRect(1, 2, 3, 4)));
    });
    QTest::newRow("ClientToScreen maps the point (3, 4) of the widget to the screen") << Promise([] {
        Stage stage;
        CPoint point(3, 4);
        stage.window.ClientToScreen(&point);
        const QPoint expected = stage.first.mapToGlobal(QPoint(3, 4));
        QVERIFY(expected != QPoint(3, 4));
        QCOMPARE(QPoint(point.x, point.y), expected);
    });
    QTest::newRow("ClientToScreen of an unbound window leaves the point") << Promise([] {
        const CWnd window(nullptr);
        CPoint point(3, 4);
        window.ClientToScreen(&point);
        QCOMPARE(QPoint(point.x, point.y), QPoint(3, 4));
    });
    QTest::newRow("MoveWindow(70, 80, 5, 6) moves to (70, 80) and keeps the size") << Promise([] {
        Stage stage;
        stage.window.MoveWindow(70, 80, 5, 6);
        QCOMPARE(stage.first.geometry(), QRect(70, 80, 100, 50));
    });
    QTest::newRow("MoveWindow(-7, 8, 0, 0, FALSE) moves too") << Promise([] {
        Stage stage;
        stage.window.MoveWindow(-7, 8, 0, 0, FALSE);
        QCOMPARE(stage.first.geometry(), QRect(-7, 8, 100, 50));
    });
    QTest::newRow("MoveWindow of an orphan moves nothing") << Promise([] {
        Stage stage;
        CWnd owner(nullptr);
        owner.Attach(handleOf(&stage.first));
        stage.window.MoveWindow(70, 80, 5, 6);
        QCOMPARE(stage.first.geometry(), QRect(10, 20, 100, 50));
    });
    QTest::newRow("SetWindowPos of an unbound window is TRUE") << Promise([] {
        CWnd window(nullptr);
        QCOMPARE(window.SetWindowPos(nullptr, 1, 2, 0, 0, 0), true);
    });
    QTest::newRow("SetWindowPos of an orphan is TRUE and moves nothing") << Promise([] {
        Stage stage;
        CWnd owner(nullptr);
        owner.Attach(handleOf(&stage.first));
        QCOMPARE(stage.window.SetWindowPos(nullptr, 1, 2, 0, 0, 0), true);
        QCOMPARE(stage.first.geometry(), QRect(10, 20, 100, 50));
    });
    QTest::newRow("SetWindowPos ignores order and flags") << Promise([] {
        Stage stage;
        const QObjectList order = stage.top.children();
        QCOMPARE(stage.window.SetWindowPos(&CWnd::wndTop, 70, 80, 0, 0, 0xFFFF), true);
        QCOMPARE(stage.first.geometry(), QRect(70, 80, 100, 50));
        QCOMPARE(stage.top.children(), order);
        QVERIFY(!stage.first.isVisible());
    });
}

void WindowStateTest::setWindowPos_data()
{
    QTest::addColumn<int>("cx");
    QTest::addColumn<int>("cy");
    QTest::addColumn<bool>("moves");

    QTest::newRow("cx 0, cy 0 moves") << 0 << 0 << true;
    QTest::newRow("cx 0, cy 50 moves") << 0 << 50 << true;
    QTest::newRow("cx 50, cy 0 moves") << 50 << 0 << true;
    QTest::newRow("cx -1, cy 50 moves") << -1 << 50 << true;
    QTest::newRow("cx 50, cy -1 moves") << 50 << -1 << true;
    QTest::newRow("cx 1, cy 1 does nothing") << 1 << 1 << false;
    QTest::newRow("cx 100, cy 50 does nothing") << 100 << 50 << false;
}

void WindowStateTest::setWindowPos()
{
    QFETCH(int, cx);
    QFETCH(int, cy);
    QFETCH(bool, moves);
    Stage stage;
    QCOMPARE(stage.window.SetWindowPos(nullptr, 70, 80, cx, cy, 0), true);
    QCOMPARE(stage.first.geometry(), QRect(moves ? QPoint(70, 80) : QPoint(10, 20), QSize(100, 50)));
}

void WindowStateTest::enableWindow_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("enable");

    QTest::newRow("enabled, EnableWindow(FALSE): answers TRUE") << true << false;
    QTest::newRow("enabled, EnableWindow(TRUE): answers TRUE") << true << true;
    QTest::newRow("disabled, EnableWindow(TRUE): answers FALSE") << false << true;
    QTest::newRow("disabled, EnableWindow(FALSE): answers FALSE") << false << false;
}

void WindowStateTest::enableWindow()
{
    QFETCH(bool, before);
    QFETCH(bool, enable);
    Stage stage;
    stage.first.setEnabled(before);
    QCOMPARE(stage.window.IsWindowEnabled(), before);
    QCOMPARE(stage.window.EnableWindow(enable), before);
    QCOMPARE(stage.first.isEnabled(), enable);
    QCOMPARE(stage.window.IsWindowEnabled(), enable);
    QVERIFY(stage.second.isEnabled());
}

void WindowStateTest::modifyStyle_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<DWORD>("remove");
    QTest::addColumn<DWORD>("add");
    QTest::addColumn<bool>("after");

    const DWORD disabled = 0x08000000;
    QTest::newRow("disabled, remove WS_DISABLED: enabled") << false << disabled << DWORD(0) << true;
    QTest::newRow("enabled, remove WS_DISABLED: enabled") << true << disabled << DWORD(0) << true;
    QTest::newRow("enabled, add WS_DISABLED: disabled") << true << DWORD(0) << disabled << false;
    QTest::newRow("disabled, add WS_DISABLED: disabled") << false << DWORD(0) << disabled << false;
    QTest::newRow("enabled, both WS_DISABLED: as it was") << true << disabled << disabled << true;
    QTest::newRow("disabled, both WS_DISABLED: as it was") << false << disabled << disabled << false;
    QTest::newRow("enabled, nothing: as it was") << true << DWORD(0) << DWORD(0) << true;
    QTest::newRow("disabled, nothing: as it was") << false << DWORD(0) << DWORD(0) << false;
    QTest::newRow("disabled, remove more than it: as it was") << false << (disabled | 1) << DWORD(0) << false;
    QTest::newRow("enabled, add WS_DISABLED and 1: as it was") << true << DWORD(0) << (disabled | 1) << true;
    QTest::newRow("disabled, remove WS_DISABLED, add 1: as it was") << false << disabled << DWORD(1) << false;
    QTest::newRow("enabled, remove 1, add WS_DISABLED: as it was") << true << DWORD(1) << disabled << true;
    QTest::newRow("enabled, remove WS_VISIBLE: as it was") << true << DWORD(0x10000000) << DWORD(0) << true;
}

void WindowStateTest::modifyStyle()
{
    QFETCH(bool, before);
    QFETCH(DWORD, remove);
    QFETCH(DWORD, add);
    QFETCH(bool, after);
    QCOMPARE(static_cast<DWORD>(WS_DISABLED), 0x08000000u);
    Stage stage;
    stage.first.setEnabled(before);
    QCOMPARE(stage.window.ModifyStyle(remove, add), true);
    QCOMPARE(stage.first.isEnabled(), after);
    stage.first.setEnabled(before);
    QCOMPARE(stage.window.ModifyStyle(remove, add, 0xFF), true); // Flags are ignored.
    QCOMPARE(stage.first.isEnabled(), after);
}

void WindowStateTest::showWindow_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<bool>("visible");

    QTest::newRow("ShowWindow(0), SW_HIDE, hides") << 0 << false;
    QTest::newRow("ShowWindow(1) shows") << 1 << true;
    QTest::newRow("ShowWindow(5), SW_SHOW, shows") << 5 << true;
    QTest::newRow("ShowWindow(6), SW_MINIMIZE, shows") << 6 << true;
    QTest::newRow("ShowWindow(-1) shows") << -1 << true;
}

void WindowStateTest::showWindow()
{
    QFETCH(int, command);
    QFETCH(bool, visible);
    for (const bool before : {false, true}) {
        WatchedWidget widget;
        CWnd window(nullptr);
        window.Attach(handleOf(&widget));
        widget.QWidget::setVisible(before);
        QCOMPARE(window.IsWindowVisible(), before);
        QCOMPARE(window.ShowWindow(command), true);
        QCOMPARE(widget.visibilityCalls, 1); // Through the virtual.
        QCOMPARE(widget.isVisible(), visible);
        QCOMPARE(window.IsWindowVisible(), visible);
        QVERIFY(!widget.isMinimized());
    }
}

void WindowStateTest::state_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("an unbound window answers that it is and was enabled") << Promise([] {
        CWnd window(nullptr);
        QCOMPARE(window.IsWindowEnabled(), true);
        QCOMPARE(window.EnableWindow(FALSE), true);
        QCOMPARE(window.IsWindowEnabled(), true);
        QCOMPARE(window.EnableWindow(TRUE), true);
    });
    QTest::newRow("an orphan answers that it is enabled and disables nothing") << Promise([] {
        Stage stage;
        CWnd owner(nullptr);
        owner.Attach(handleOf(&stage.first));
        QCOMPARE(stage.window.EnableWindow(FALSE), true);
        QVERIFY(stage.first.isEnabled());
        stage.first.setEnabled(false);
        QCOMPARE(stage.window.IsWindowEnabled(), true);
    });
    QTest::newRow("a child of a disabled widget is disabled") << Promise([] {
        Stage stage;
        stage.top.setEnabled(false);
        QCOMPARE(stage.window.IsWindowEnabled(), false);
        QCOMPARE(stage.window.EnableWindow(TRUE), false);
    });
    QTest::newRow("the argument of EnableWindow may be left out and is then TRUE") << Promise([] {
        Stage stage;
        stage.first.setEnabled(false);
        QCOMPARE(stage.window.EnableWindow(), false);
        QVERIFY(stage.first.isEnabled());
    });
    QTest::newRow("ModifyStyle of an unbound window is FALSE") << Promise([] {
        CWnd window(nullptr);
        QCOMPARE(window.ModifyStyle(0, WS_DISABLED), false);
    });
    QTest::newRow("ModifyStyle of an orphan is FALSE and changes nothing") << Promise([] {
        Stage stage;
        CWnd owner(nullptr);
        owner.Attach(handleOf(&stage.first));
        QCOMPARE(stage.window.ModifyStyle(0, WS_DISABLED), false);
        QVERIFY(stage.first.isEnabled());
    });
    QTest::newRow("an unbound window is not visible and cannot be shown") << Promise([] {
        CWnd window(nullptr);
        QCOMPARE(window.IsWindowVisible(), false);
        QCOMPARE(window.ShowWindow(5), false);
        QCOMPARE(window.IsWindowVisible(), false);
    });
    QTest::newRow("a child of a hidden window is not visible, even when shown") << Promise([] {
        Stage stage;
        QCOMPARE(stage.window.ShowWindow(5), true);
        QCOMPARE(stage.window.IsWindowVisible(), false);
    });
    QTest::newRow("SetFocus gives the widget the focus and answers null") << Promise([] {
        Stage stage;
        stage.show();
        QVERIFY(QApplication::focusWidget() == &stage.second);
        QVERIFY(stage.window.SetFocus() == nullptr);
        QVERIFY(QApplication::focusWidget() == &stage.first);
    });
    QTest::newRow("SetFocus of an unbound window is null and leaves the focus") << Promise([] {
        Stage stage;
        stage.show();
        CWnd window(nullptr);
        QVERIFY(window.SetFocus() == nullptr);
        QVERIFY(QApplication::focusWidget() == &stage.second);
    });
    QTest::newRow("GetFocus is the object of the focused widget") << Promise([] {
        Stage stage;
        stage.show();
        stage.first.setFocus();
        QVERIFY(CWnd::GetFocus() == &stage.window);
    });
    QTest::newRow("GetFocus is null when the focused widget has no object") << Promise([] {
        Stage stage;
        stage.show();
        QVERIFY(QApplication::focusWidget() == &stage.second);
        QVERIFY(CWnd::GetFocus() == nullptr);
    });
    QTest::newRow("GetFocus is null when no widget has the focus") << Promise([] {
        Stage stage;
        stage.show();
        stage.second.clearFocus();
        QVERIFY(QApplication::focusWidget() == nullptr);
        QVERIFY(CWnd::GetFocus() == nullptr);
    });
}

void WindowStateTest::painting_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("Invalidate paints the whole widget once") << Promise([] {
        Stage stage;
        stage.show();
        const int before = stage.first.paints;
        stage.window.Invalidate();
        QTRY_COMPARE(stage.first.paints, before + 1);
        QCOMPARE(stage.first.painted.boundingRect(), QRect(0, 0, 100, 50));
    });
    QTest::newRow("Invalidate schedules, it does not paint at once") << Promise([] {
        Stage stage;
        stage.show();
        const int before = stage.first.paints;
        stage.window.Invalidate();
        QCOMPARE(stage.first.paints, before);
    });
    QTest::newRow("Invalidate(FALSE) paints the whole widget too") << Promise([] {
        Stage stage;
        stage.show();
        const int before = stage.first.paints;
        stage.window.Invalidate(FALSE);
        QTRY_COMPARE(stage.first.paints, before + 1);
        QCOMPARE(stage.first.painted.boundingRect(), QRect(0, 0, 100, 50));
    });
    QTest::newRow("InvalidateRect of 2 x 2 pixels paints the whole widget") << Promise([] {
        Stage stage;
        stage.show();
        const int before = stage.first.paints;
        const CRect rect(1, 1, 3, 3);
        stage.window.InvalidateRect(&rect);
        QTRY_COMPARE(stage.first.paints, before + 1);
        QCOMPARE(stage.first.painted.boundingRect(), QRect(0, 0, 100, 50));
    });
    QTest::newRow("InvalidateRect of null, FALSE, paints the whole widget") << Promise([] {
        Stage stage;
        stage.show();
        const int before = stage.first.paints;
        stage.window.InvalidateRect(nullptr, FALSE);
        QTRY_COMPARE(stage.first.paints, before + 1);
        QCOMPARE(stage.first.painted.boundingRect(), QRect(0, 0, 100, 50));
    });
    QTest::newRow("Invalidate of an orphan paints nothing") << Promise([] {
        Stage stage;
        stage.show();
        CWnd owner(nullptr);
        owner.Attach(handleOf(&stage.first));
        const int before = stage.first.paints;
        stage.window.Invalidate();
        stage.window.InvalidateRect(nullptr);
        QCoreApplication::processEvents();
        QCOMPARE(stage.first.paints, before);
    });
}

void WindowStateTest::deviceContext_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GetDC of an unbound window is null") << Promise([] {
        CWnd window(nullptr);
        QVERIFY(window.GetDC() == nullptr);
        QVERIFY(window.GetSafeHdc() == nullptr);
    });
    QTest::newRow("GetDC gives the same object at every call") << Promise([] {
        Stage stage;
        CDC *context = stage.window.GetDC();
        QVERIFY(context != nullptr);
        QVERIFY(stage.window.GetDC() == context);
        QCOMPARE(stage.window.ReleaseDC(context), 0);
        QVERIFY(stage.window.GetDC() == context);
    });
    QTest::newRow("two windows have two device contexts") << Promise([] {
        Stage first;
        Stage second;
        QVERIFY(first.window.GetDC() != second.window.GetDC());
    });
    QTest::newRow("GetSafeHdc is 0 before the first GetDC, then the context's handle") << Promise([] {
        Stage stage;
        QVERIFY(stage.window.GetSafeHdc() == nullptr);
        CDC *context = stage.window.GetDC();
        QVERIFY(stage.window.GetSafeHdc() == context->m_hDC);
        int device = 0; // Any address that the context does not have by itself.
        context->m_hDC = reinterpret_cast<decltype(context->m_hDC)>(&device);
        const HDC handle = stage.window.GetSafeHdc();
        context->m_hDC = nullptr;
        QVERIFY(static_cast<void *>(handle) == &device);
    });
}

void WindowStateTest::messageBox()
{
    Stage stage;
    QString title;
    QString text;
    QTimer presser;
    connect(&presser, &QTimer::timeout, [&] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            title = box->windowTitle();
            text = box->text();
            box->button(QMessageBox::No)->click();
        }
    });
    presser.start(1);
    QCOMPARE(stage.window.MessageBoxW(L"Really?", L"Question", 4), 7); // MB_YESNO, IDNO
    QCOMPARE(title, QStringLiteral("Question"));
    QCOMPARE(text, QStringLiteral("Really?"));
}

void WindowStateTest::fixedResult_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<qint64>("expected");

    const auto zero = [](const char *name, Call call) { QTest::newRow(name) << call << qint64(0); };
    const auto one = [](const char *name, Call call) { QTest::newRow(name) << call << qint64(1); };

    zero("GetParentOwner is null", [](CWnd &w) { return number(w.GetParentOwner()); });
    zero("GetOwner is null", [](CWnd &w) { return number(w.GetOwner()); });
    zero("GetTopLevelParent is null", [](CWnd &w) { return number(w.GetTopLevelParent()); });
    zero("GetFont is null", [](CWnd &w) { return number(w.GetFont()); });
    zero("GetCapture is null", [](CWnd &w) { return number(w.GetCapture()); });
    zero("GetMenu is null", [](CWnd &w) { return number(w.GetMenu()); });
    zero("GetWindowDC is null", [](CWnd &w) { return number(w.GetWindowDC()); });
    zero("GetStyle is 0", [](CWnd &w) { return number(w.GetStyle()); });
    zero("SetForegroundWindow is FALSE", [](CWnd &w) { return number(w.SetForegroundWindow()); });
    zero("Default is 0", [](CWnd &w) { return number(w.Default()); });
    zero("SetIcon is null", [](CWnd &w) { return number(w.SetIcon(nullptr, TRUE)); });
    zero("GetIcon is null", [](CWnd &w) { return number(w.GetIcon(FALSE)); });
    zero("ReleaseDC is 0", [](CWnd &w) { return number(w.ReleaseDC(nullptr)); });
    zero("WindowProc is 0", [](CWnd &w) { return number(w.WindowProc(0x111, 2, 3)); });
    zero("OnChildNotify is FALSE", [](CWnd &w) { return number(w.OnChildNotify(0x111, 2, 3, nullptr)); });
    zero("SetRedraw(FALSE) is FALSE", [](CWnd &w) { return number(w.SetRedraw(FALSE)); });
    zero("OnMouseWheel is FALSE", [](CWnd &w) { return number(w.OnMouseWheel(0, 120, CPoint(1, 2))); });
    zero("OnCtlColor is null", [](CWnd &w) { return number(w.OnCtlColor(nullptr, nullptr, 0)); });

    one("SubclassWindow is TRUE, even for 0", [](CWnd &w) { return number(w.SubclassWindow(nullptr)); });
    one("SubclassWindow is TRUE and binds nothing", [](CWnd &w) {
        QWidget widget;
        const bool result = w.SubclassWindow(handleOf(&widget));
        return number(result && !CWnd::FromHandle(handleOf(&widget)));
    });
    one("PreTranslateMessage is TRUE", [](CWnd &w) { return number(w.PreTranslateMessage(nullptr)); });
    one("SetMenu is TRUE", [](CWnd &w) { return number(w.SetMenu(nullptr)); });
    one("OnCreate is 1", [](CWnd &w) { return number(w.OnCreate(nullptr)); });
    one("OnCommand is TRUE", [](CWnd &w) { return number(w.OnCommand(1, 2)); });
    one("EnableToolTips is TRUE", [](CWnd &w) { return number(w.EnableToolTips(FALSE)); });
    one("ModifyStyleEx is TRUE", [](CWnd &w) { return number(w.ModifyStyleEx(0, WS_DISABLED)); });
    one("RedrawWindow is TRUE", [](CWnd &w) { return number(w.RedrawWindow()); });
    one("IsKindOf is TRUE", [](CWnd &w) { return number(w.IsKindOf(nullptr)); });
    one("KillTimer is TRUE", [](CWnd &w) { return number(w.KillTimer(1)); });
    one("SetRedraw(TRUE) is TRUE", [](CWnd &w) { return number(w.SetRedraw(TRUE)); });
}

void WindowStateTest::fixedResult()
{
    QFETCH(Call, call);
    QFETCH(qint64, expected);

    Stage stage;
    stage.show();
    const QVariantList before = stage.state();
    CWnd unbound(nullptr);
    QCOMPARE(call(unbound), expected);
    QVERIFY(unbound.GetSafeHwnd() == nullptr);
    QCOMPARE(call(stage.window), expected);
    QCoreApplication::processEvents();
    QCOMPARE(stage.state(), before);
}

void WindowStateTest::noEffect_data()
{
    QTest::addColumn<Call>("call"); // Answers 1 when its arguments are as they were.

    QTest::newRow("SetFont") << Call([](CWnd &w) { w.SetFont(nullptr); return qint64(1); });
    QTest::newRow("SetCapture") << Call([](CWnd &w) { w.SetCapture(); return qint64(1); });
    QTest::newRow("SetOwner") << Call([](CWnd &w) {
        CWnd owner(nullptr);
        w.SetOwner(&owner);
        return number(w.GetOwner() == nullptr);
    });
    QTest::newRow("PreSubclassWindow") << Call([](CWnd &w) { w.PreSubclassWindow(); return qint64(1); });
    QTest::newRow("DoDataExchange") << Call([](CWnd &w) {
        CDataExchange exchange(&w, TRUE);
        w.DoDataExchange(&exchange);
        return number(exchange.m_bSave && exchange.m_bInit && !exchange.m_bFailed
                      && exchange.m_pDlgWnd == &w);
    });
    QTest::newRow("OnPaint") << Call([](CWnd &w) { w.OnPaint(); return qint64(1); });
    QTest::newRow("MoveWindow of a rectangle") << Call([](CWnd &w) {
        const CRect rect(1, 2, 30, 40);
        w.MoveWindow(&rect);
        w.MoveWindow(&rect, FALSE);
        return qint64(1);
    });
    QTest::newRow("ClientToScreen of a rectangle") << Call([](CWnd &w) {
        CRect rect(1, 2, 3, 4);
        w.ClientToScreen(&rect);
        return number(same(rect, CRect(1, 2, 3, 4)));
    });
    QTest::newRow("ScreenToClient of a point") << Call([](CWnd &w) {
        CPoint point(1, 2);
        w.ScreenToClient(&point);
        return number(point.x == 1 && point.y == 2);
    });
    QTest::newRow("ScreenToClient of a rectangle") << Call([](CWnd &w) {
        CRect rect(1, 2, 3, 4);
        w.ScreenToClient(&rect);
        return number(same(rect, CRect(1, 2, 3, 4)));
    });
    QTest::newRow("MapWindowPoints of a rectangle") << Call([](CWnd &w) {
        CRect rect(1, 2, 3, 4);
        w.MapWindowPoints(nullptr, &rect);
        return number(same(rect, CRect(1, 2, 3, 4)));
    });
    QTest::newRow("MapWindowPoints of two points") << Call([](CWnd &w) {
        tagPOINT points[2] = {{1, 2}, {3, 4}};
        w.MapWindowPoints(nullptr, points, 2);
        return number(points[0].x == 1 && points[0].y == 2 && points[1].x == 3 && points[1].y == 4);
    });
    QTest::newRow("UpdateWindow") << Call([](CWnd &w) { w.UpdateWindow(); return qint64(1); });
    QTest::newRow("OnDestroy") << Call([](CWnd &w) { w.OnDestroy(); return qint64(1); });
    QTest::newRow("OnLButtonDown") << Call([](CWnd &w) {
        w.OnLButtonDown(1, CPoint(1, 2));
        return qint64(1);
    });
    QTest::newRow("OnLButtonUp") << Call([](CWnd &w) { w.OnLButtonUp(1, CPoint(1, 2)); return qint64(1); });
    QTest::newRow("OnMouseMove") << Call([](CWnd &w) { w.OnMouseMove(1, CPoint(1, 2)); return qint64(1); });
    QTest::newRow("OnTimer") << Call([](CWnd &w) { w.OnTimer(1); return qint64(1); });
    QTest::newRow("OnSize") << Call([](CWnd &w) { w.OnSize(0, 30, 40); return qint64(1); });
    QTest::newRow("OnSizing") << Call([](CWnd &w) {
        CRect rect(1, 2, 3, 4);
        w.OnSizing(1, &rect);
        return number(same(rect, CRect(1, 2, 3, 4)));
    });
    QTest::newRow("OnClose") << Call([](CWnd &w) { w.OnClose(); return qint64(1); });
    QTest::newRow("OnChar") << Call([](CWnd &w) { w.OnChar('a', 1, 0); return qint64(1); });
    QTest::newRow("OnGetMinMaxInfo") << Call([](CWnd &w) { w.OnGetMinMaxInfo(nullptr); return qint64(1); });
    QTest::newRow("BringWindowToTop") << Call([](CWnd &w) { w.BringWindowToTop(); return qint64(1); });
    QTest::newRow("CenterWindow") << Call([](CWnd &w) { w.CenterWindow(); return qint64(1); });
    QTest::newRow("BeginWaitCursor") << Call([](CWnd &w) { w.BeginWaitCursor(); return qint64(1); });
    QTest::newRow("EndWaitCursor") << Call([](CWnd &w) {
        QApplication::setOverrideCursor(Qt::CrossCursor);
        w.EndWaitCursor();
        const bool kept = QApplication::overrideCursor() != nullptr;
        QApplication::restoreOverrideCursor();
        return number(kept);
    });
    QTest::newRow("LockWindowUpdate") << Call([](CWnd &w) { w.LockWindowUpdate(); return qint64(1); });
    QTest::newRow("UnlockWindowUpdate") << Call([](CWnd &w) { w.UnlockWindowUpdate(); return qint64(1); });
}

void WindowStateTest::noEffect()
{
    QFETCH(Call, call);

    Stage stage;
    stage.show();
    const QVariantList before = stage.state();
    CWnd unbound(nullptr);
    QCOMPARE(call(unbound), qint64(1));
    QCOMPARE(call(stage.window), qint64(1));
    QCoreApplication::processEvents();
    QCOMPARE(stage.state(), before);
}

KX_TEST_MAIN(WindowStateTest)
#include "tst_window_state.moc"
