// SPDX-License-Identifier: MIT
// Device contexts of windows: what they are made of, where they fill, also within an episode of the host's,
// who deletes what.

#include "KxContextStage.h"
#include "KxTestCase.h"

#include <QtCore/QPointer>
#include <QtGui/QScreen>

#include <afxwin.h>

#include <memory>
#include <utility>

namespace {

/// A window's context whose buffer comes to draw for another window.
struct MovedContext : WindowContext {
    PaintedWindow other;
    KxGrQtDoubleBufferImage link{&other};
    OwnedBrush brush{RGB(255, 0, 0)};
};

const tagRECT someOfIt = {3, 2, 9, 7};

/// Fills between two rectangles of the painter's own: 1 down and 2 right of where it says, within a clip of
/// (4, 1) to (9, 6). The pen, the brush and the clip of the episode are what they were.
void fillWithin(CDC &dc, KxQtPainterWrapper &wrapper)
{
    OwnedBrush redBrush(RGB(255, 0, 0));
    const tagRECT rect = {0, 2, 6, 4};
    tagPOINT corners[] = {{4, 1}, {9, 1}, {9, 6}, {4, 6}};
    unsigned int count = 4;
    QVERIFY(wrapper.beginDraw());
    QPainter &painter = *wrapper.wrappedPainter();
    wrapper.setClipRegion(corners, &count, 1);
    wrapper.setPen(PS_DOT, 3, RGB(1, 2, 3));
    wrapper.setBrush(RGB(4, 5, 6));
    wrapper.Rotate(0, 2, 1);
    const QPen pen = painter.pen();
    const QBrush brush = painter.brush();
    const QRegion clip = painter.clipRegion();
    wrapper.fillRect(CRect(3, 0, 4, 9), RGB(0, 0, 255));
    dc.FillRect(&rect, &redBrush);
    QVERIFY(painter.isActive());
    QCOMPARE(painter.pen(), pen);
    QCOMPARE(painter.brush(), brush);
    QVERIFY(painter.hasClipping());
    QCOMPARE(painter.clipRegion(), clip);
    QCOMPARE(painter.transform(), QTransform::fromTranslate(2, 1));
    wrapper.fillRect(CRect(6, 0, 9, 3), RGB(0, 255, 0));
    QVERIFY(wrapper.endDraw());
    QVERIFY(!painter.isActive());
}

/// What fillWithin() makes of an image.
QImage filledWithin(const QImage &image)
{
    return filled(filled(filled(image, {5, 1, 6, 6}, blue), {4, 3, 8, 5}, red), {8, 1, 9, 4}, green);
}

} // namespace

using Promise = void (*)();
using Moved = void (*)(MovedContext &);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(Moved)

class WindowContextTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void fillWindow_data();
    void fillWindow() { run(); }
    void changedDestination_data();
    void changedDestination();
    void fillWithinAnEpisode_data();
    void fillWithinAnEpisode() { run(); }
    void windowContext_data();
    void windowContext() { run(); }
    void deletion_data();
    void deletion() { run(); }

private:
    static void run()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

// ---- FillRect -------------------------------------------------------------------------------------------

void WindowContextTest::fillWindow_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("in its paint event: the widget, not the front image") << Promise([] {
        WindowContext context;
        const QImage before = context.widget.picture();
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT rect = {3, 2, 9, 7};
        context.widget.whenPainted = [&] { context.dc->FillRect(&rect, &brush); };
        QCOMPARE(context.widget.picture(), filled(before, rect, red));
        QCOMPARE(*context.buffer->frontImage(), plain(20, 10, 0));
    });
    QTest::newRow("in its paint event: the widget, not the memory image") << Promise([] {
        WindowContext context;
        context.buffer->createImages(20, 10, 4);
        const QImage before = context.widget.picture();
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT rect = {3, 2, 9, 7};
        context.widget.whenPainted = [&] { context.dc->FillRect(&rect, &brush); };
        QCOMPARE(context.widget.picture(), filled(before, rect, red));
        QCOMPARE(*context.buffer->memImage(), plain(20, 10, 0));
        QCOMPARE(*context.buffer->frontImage(), plain(20, 10, 0));
    });
    QTest::newRow("in a paint event that the event loop brings: the widget on the screen") << Promise([] {
        WindowContext context;
        OwnedBrush redBrush(RGB(255, 0, 0));
        OwnedBrush blueBrush(RGB(0, 0, 255));
        const tagRECT rect = {3, 2, 9, 7};
        int paints = 0;
        context.widget.whenPainted = [&] {
            ++paints;
            context.dc->FillRect(&everything, &redBrush);
            context.dc->FillRect(&rect, &blueBrush);
        };
        context.widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&context.widget));
        QTRY_VERIFY(paints > 0);
        const auto shown = [&] {
            return context.widget.screen()->grabWindow(context.widget.winId()).toImage()
                .convertToFormat(QImage::Format_RGB32).copy(0, 0, 20, 10);
        };
        QImage expected(20, 10, QImage::Format_RGB32);
        expected.fill(red);
        QTRY_COMPARE(shown(), filled(expected, rect, blue));
        QCOMPARE(*context.buffer->frontImage(), plain(20, 10, 0));
    });
    QTest::newRow("in its paint event, in two goes, with a painter of Qt's in between") << Promise([] {
        WindowContext context;
        const QImage before = context.widget.picture();
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT first = {0, 0, 4, 4};
        const tagRECT second = {8, 0, 12, 4};
        context.widget.whenPainted = [&] {
            context.dc->FillRect(&first, &brush);
            QPainter(&context.widget).fillRect(4, 0, 4, 4, QColor(0, 0, 255));
            context.dc->FillRect(&second, &brush);
        };
        QCOMPARE(context.widget.picture(),
                 filled(filled(filled(before, first, red), {4, 0, 8, 4}, blue), second, red));
    });
    QTest::newRow("in its paint event: the clip region of painter() counts, the memory painter's does not")
        << Promise([] {
               WindowContext context;
               context.buffer->createImages(20, 10, 4);
               tagPOINT corners[] = {{2, 2}, {6, 2}, {6, 5}, {2, 5}};
               tagPOINT others[] = {{10, 0}, {12, 0}, {12, 2}, {10, 2}};
               unsigned int count = 4;
               context.dc->m_hDC->painter()->setClipRegion(corners, &count, 1);
               context.buffer->memPainter()->setClipRegion(others, &count, 1);
               const QImage before = context.widget.picture();
               OwnedBrush brush(RGB(255, 0, 0));
               context.widget.whenPainted = [&] { context.dc->FillRect(&everything, &brush); };
               QCOMPARE(context.widget.picture(), filled(before, {2, 2, 6, 5}, red));
           });
    QTest::newRow("outside, without a memory image: the front image") << Promise([] {
        WindowContext context;
        const QImage before = context.widget.picture();
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT rect = {3, 2, 9, 7};
        context.dc->FillRect(&rect, &brush);
        QCOMPARE(*context.buffer->frontImage(), filled(plain(20, 10, 0), rect, red));
        QVERIFY(!context.buffer->memImage());
        QCOMPARE(context.widget.picture(), before);
    });
    QTest::newRow("outside, with a memory image: that one alone") << Promise([] {
        WindowContext context;
        context.buffer->createImages(20, 10, 4);
        const QImage before = context.widget.picture();
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT rect = {3, 2, 9, 7};
        context.dc->FillRect(&rect, &brush);
        QCOMPARE(*context.buffer->memImage(), filled(plain(20, 10, 0), rect, red));
        QCOMPARE(*context.buffer->frontImage(), plain(20, 10, 0));
        QCOMPARE(context.widget.picture(), before);
    });
    QTest::newRow("outside, the clip region of the memory painter counts") << Promise([] {
        WindowContext context;
        context.buffer->createImages(20, 10, 4);
        tagPOINT corners[] = {{2, 2}, {6, 2}, {6, 5}, {2, 5}};
        unsigned int count = 4;
        context.buffer->memPainter()->setClipRegion(corners, &count, 1);
        OwnedBrush brush(RGB(255, 0, 0));
        context.dc->FillRect(&everything, &brush);
        QCOMPARE(*context.buffer->memImage(), filled(plain(20, 10, 0), {2, 2, 6, 5}, red));
    });
    QTest::newRow("outside, while the memory painter draws: part of what it draws") << Promise([] {
        WindowContext context;
        context.buffer->createImages(20, 10, 4);
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT rect = {3, 2, 9, 7};
        KxQtPainterWrapper &painter = *context.buffer->memPainter();
        QVERIFY(painter.beginDraw());
        painter.Rotate(0, 1, 1);
        context.dc->FillRect(&rect, &brush);
        QVERIFY(painter.wrappedPainter()->isActive());
        painter.fillRect(CRect(10, 2, 12, 3), RGB(255, 0, 0));
        QVERIFY(painter.endDraw());
        const QImage expected = filled(plain(20, 10, 0), {4, 3, 10, 8}, red);
        QCOMPARE(*context.buffer->memImage(), filled(expected, {11, 3, 13, 4}, red));
    });
    QTest::newRow("in another window's paint event: the memory image") << Promise([] {
        WindowContext context;
        context.buffer->createImages(20, 10, 4);
        PaintedWindow other;
        const QImage before = other.picture();
        OwnedBrush brush(RGB(255, 0, 0));
        other.whenPainted = [&] { context.dc->FillRect(&everything, &brush); };
        QCOMPARE(other.picture(), before);
        QCOMPARE(*context.buffer->memImage(), plain(20, 10, red));
    });
    QTest::newRow("in another window's paint event, without a memory image: the front image") << Promise([] {
        WindowContext context;
        PaintedWindow other;
        const QImage before = other.picture();
        OwnedBrush brush(RGB(255, 0, 0));
        other.whenPainted = [&] { context.dc->FillRect(&everything, &brush); };
        QCOMPARE(other.picture(), before);
        QCOMPARE(*context.buffer->frontImage(), plain(20, 10, red));
    });
    QTest::newRow("before, during and after the paint event") << Promise([] {
        WindowContext context;
        context.buffer->createImages(20, 10, 4);
        const QImage before = context.widget.picture();
        OwnedBrush redBrush(RGB(255, 0, 0));
        OwnedBrush greenBrush(RGB(0, 255, 0));
        const tagRECT left = {0, 0, 5, 10};
        const tagRECT middle = {5, 0, 10, 10};
        const tagRECT right = {10, 0, 15, 10};
        context.dc->FillRect(&left, &redBrush);
        context.widget.whenPainted = [&] { context.dc->FillRect(&middle, &greenBrush); };
        QCOMPARE(context.widget.picture(), filled(before, middle, green));
        context.dc->FillRect(&right, &redBrush);
        QCOMPARE(*context.buffer->memImage(), filled(filled(plain(20, 10, 0), left, red), right, red));
    });
    QTest::newRow("filled, repaired, shown") << Promise([] {
        WindowContext context;
        context.buffer->createImages(20, 10, 4);
        context.widget.whenPainted = [&] {
            QPainter(&context.widget).drawImage(0, 0, *context.buffer->frontImage());
        };
        const QImage before = context.widget.picture();
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT rect = {3, 2, 9, 7};
        context.dc->FillRect(&rect, &brush);
        QCOMPARE(context.widget.picture(), before);
        context.buffer->repairFrontBuffer();
        QCOMPARE(context.widget.picture(), filled(before, rect, red));
    });
}

void WindowContextTest::changedDestination_data()
{
    QTest::addColumn<Moved>("before");
    QTest::addColumn<Moved>("change");
    QTest::addColumn<Moved>("promise");

    const Moved makePair = [](MovedContext &context) { context.buffer->createImages(20, 10, 4); };
    const auto rows = [makePair](const char *how, Moved change) {
        const auto row = [how, change](const char *name, Moved before, Moved promise) {
            QTest::addRow("%s: %s", how, name) << before << change << promise;
        };
        row("outside of paint events the memory image is filled", makePair, [](MovedContext &context) {
            context.dc->FillRect(&someOfIt, &context.brush);
            QCOMPARE(*context.buffer->memImage(), filled(plain(20, 10, 0), someOfIt, red));
            QCOMPARE(*context.buffer->frontImage(), plain(20, 10, 0));
        });
        row("outside of paint events, without a memory image, the front image is filled",
            [](MovedContext &) {},
            [](MovedContext &context) {
                context.dc->FillRect(&someOfIt, &context.brush);
                QCOMPARE(*context.buffer->frontImage(), filled(plain(20, 10, 0), someOfIt, red));
                QVERIFY(!context.buffer->memImage());
            });
        const Moved fillInTheEarlier = [](MovedContext &context) {
            const QImage before = context.widget.picture();
            context.widget.whenPainted = [&] { context.dc->FillRect(&someOfIt, &context.brush); };
            QCOMPARE(context.widget.picture(), before);
            QCOMPARE(*context.buffer->memImage(), filled(plain(20, 10, 0), someOfIt, red));
        };
        row("in the earlier window's paint event the memory image is filled", makePair, fillInTheEarlier);
        row("in the earlier window's paint event, whose painter() was made, the memory image is filled",
            [](MovedContext &context) {
                context.buffer->createImages(20, 10, 4);
                context.buffer->painter();
            }, fillInTheEarlier);
        row("in the new window's paint event that window is filled", makePair, [](MovedContext &context) {
            const QImage before = context.other.picture();
            context.other.whenPainted = [&] { context.dc->FillRect(&someOfIt, &context.brush); };
            QCOMPARE(context.other.picture(), filled(before, someOfIt, red));
            QCOMPARE(*context.buffer->memImage(), plain(20, 10, 0));
            QCOMPARE(*context.buffer->frontImage(), plain(20, 10, 0));
        });
    };
    rows("setDestinationDevice",
         [](MovedContext &context) { context.buffer->setDestinationDevice(&context.other); });
    rows("setFrontBuffer", [](MovedContext &context) { context.buffer->setFrontBuffer(&context.link); });
}

/// The link's own image is nobody's to be filled.
void WindowContextTest::changedDestination()
{
    QFETCH(Moved, change);
    QFETCH(Moved, promise);
    QFETCH(Moved, before);
    MovedContext context;
    before(context);
    change(context);
    QVERIFY(context.buffer->destinationDevice() == static_cast<QPaintDevice *>(&context.other));
    promise(context);
    QCOMPARE(*context.link.frontImage(), plain(20, 10, 0));
}

void WindowContextTest::fillWithinAnEpisode_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("painter() of a bitmap's context") << Promise([] {
        BitmapContext context;
        fillWithin(context.dc, *context.dc.m_hDC->painter());
        QCOMPARE(context.bitmap.image(), filledWithin(plain(10, 8, white)));
    });
    QTest::newRow("painter() of a device of the host's own") << Promise([] {
        QImage image = plain(10, 8, white);
        CDC dc;
        dc.m_hDC = new KxQtPaintDeviceWrapper(&image);
        fillWithin(dc, *dc.m_hDC->painter());
        QCOMPARE(image, filledWithin(plain(10, 8, white)));
    });
    QTest::newRow("the memory painter of a window's buffer") << Promise([] {
        WindowContext context;
        context.buffer->createImages(20, 10, 4);
        fillWithin(*context.dc, *context.buffer->memPainter());
        QCOMPARE(*context.buffer->memImage(), filledWithin(plain(20, 10, 0)));
    });
    QTest::newRow("the front painter of a window's buffer without a memory image") << Promise([] {
        WindowContext context;
        fillWithin(*context.dc, *context.buffer->frontPainter());
        QCOMPARE(*context.buffer->frontImage(), filledWithin(plain(20, 10, 0)));
    });
    QTest::newRow("painter() of a window's buffer in the paint event") << Promise([] {
        WindowContext context;
        context.buffer->createImages(20, 10, 4);
        const QImage before = context.widget.picture();
        context.widget.whenPainted = [&] { fillWithin(*context.dc, *context.dc->m_hDC->painter()); };
        QCOMPARE(context.widget.picture(), filledWithin(before));
        QCOMPARE(*context.buffer->memImage(), plain(20, 10, 0));
    });
}

// ---- making and asking ----------------------------------------------------------------------------------

void WindowContextTest::windowContext_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("_CreateDCforHwnd: null for no window") << Promise([] {
        QVERIFY(!_CreateDCforHwnd(nullptr));
    });
    QTest::newRow("_CreateDCforHwnd: null for a widget without a window object") << Promise([] {
        QWidget widget;
        QVERIFY(!_CreateDCforHwnd(KxHwndFromWidget(&widget)));
    });
    QTest::newRow("_CreateDCforHwnd: null when the window object that is found is orphaned") << Promise([] {
        QWidget widget;
        CWnd first;
        CWnd second;
        first.Attach(KxHwndFromWidget(&widget));
        second.Attach(KxHwndFromWidget(&widget));
        QVERIFY(CWnd::FromHandle(KxHwndFromWidget(&widget)) == &first);
        QVERIFY(!first.GetDC());
        QVERIFY(!_CreateDCforHwnd(KxHwndFromWidget(&widget)));
    });
    QTest::newRow("_CreateDCforHwnd: the window's own context") << Promise([] {
        WindowContext context;
        QVERIFY(context.dc);
        QVERIFY(context.window.GetDC() == context.dc);
    });
    QTest::newRow("_CreateDCforHwnd: the context that GetDC made before") << Promise([] {
        QWidget widget;
        CWnd window;
        window.Attach(KxHwndFromWidget(&widget));
        CDC *dc = window.GetDC();
        QVERIFY(dc);
        QVERIFY(!dc->m_hDC);
        QVERIFY(_CreateDCforHwnd(KxHwndFromWidget(&widget)) == dc);
        QVERIFY(dc->m_hDC);
    });
    QTest::newRow("_CreateDCforHwnd: a double buffer over the widget, front image only") << Promise([] {
        const WindowContext context;
        QVERIFY(context.buffer);
        QVERIFY(context.buffer->destinationDevice() == static_cast<const QPaintDevice *>(&context.widget));
        QCOMPARE(*context.buffer->frontImage(), plain(20, 10, 0));
        QVERIFY(!context.buffer->memImage());
        QVERIFY(!context.buffer->memBits());
        const QPaintDevice *painted = context.buffer->painter()->wrappedDevice();
        QVERIFY(painted == static_cast<const QPaintDevice *>(&context.widget));
    });
    QTest::newRow("_CreateDCforHwnd: a temporary wrapper is a window object too") << Promise([] {
        QWidget widget;
        CWnd *wrapper = CreateCWndByHandle(KxHwndFromWidget(&widget));
        CDC *dc = _CreateDCforHwnd(KxHwndFromWidget(&widget));
        QVERIFY(dc);
        QVERIFY(wrapper->GetDC() == dc);
        CWnd kept;
        kept.Attach(KxHwndFromWidget(&widget)); // deletes the wrapper
    });
    QTest::newRow("_CreateDCforHwnd: two windows, two contexts, each over its own widget") << Promise([] {
        WindowContext first;
        WindowContext second;
        QVERIFY(first.dc != second.dc);
        OwnedBrush brush(RGB(255, 0, 0));
        first.dc->FillRect(&everything, &brush);
        QCOMPARE(*first.buffer->frontImage(), plain(20, 10, red));
        QCOMPARE(*second.buffer->frontImage(), plain(20, 10, 0));
    });
    QTest::newRow("_CreateDCforHwnd twice: the same context, a new device, the first lives") << Promise([] {
        WindowContext context;
        const std::unique_ptr<KxQtPaintDeviceWrapper> first(context.dc->m_hDC);
        OwnedBrush brush(RGB(255, 0, 0));
        context.dc->FillRect(&everything, &brush);
        QVERIFY(_CreateDCforHwnd(KxHwndFromWidget(&context.widget)) == context.dc);
        QVERIFY(context.dc->m_hDC != first.get());
        const auto *second = dynamic_cast<KxGrQtDoubleBufferImage *>(context.dc->m_hDC);
        QVERIFY(second);
        QCOMPARE(*second->frontImage(), plain(20, 10, 0));
        QCOMPARE(*context.buffer->frontImage(), plain(20, 10, red));
    });
    QTest::newRow("_CreateDCforHwnd: the front image has the size that the widget has now") << Promise([] {
        WindowContext context;
        const std::unique_ptr<KxQtPaintDeviceWrapper> first(context.dc->m_hDC);
        context.widget.resize(33, 44);
        _CreateDCforHwnd(KxHwndFromWidget(&context.widget));
        const auto *second = dynamic_cast<KxGrQtDoubleBufferImage *>(context.dc->m_hDC);
        QVERIFY(second);
        QCOMPARE(*second->frontImage(), plain(33, 44, 0));
    });
    QTest::newRow("_CreateDCforHwnd: a device that the context had is not deleted") << Promise([] {
        int deletions = 0;
        PaintedWindow widget;
        CWnd window;
        window.Attach(KxHwndFromWidget(&widget));
        const std::unique_ptr<WatchedDevice> earlier = std::make_unique<WatchedDevice>(&deletions);
        window.GetDC()->m_hDC = earlier.get();
        CDC *dc = _CreateDCforHwnd(KxHwndFromWidget(&widget));
        QVERIFY(dc->m_hDC != earlier.get());
        QCOMPARE(deletions, 0);
    });
    QTest::newRow("CWnd::GetDC: no device, the same at every call, after ReleaseDC too") << Promise([] {
        QWidget widget;
        CWnd window;
        window.Attach(KxHwndFromWidget(&widget));
        CDC *dc = window.GetDC();
        QVERIFY(dc);
        QVERIFY(!dc->m_hDC);
        window.ReleaseDC(dc);
        QVERIFY(window.GetDC() == dc);
    });
    QTest::newRow("CWnd::GetDC: null while unbound") << Promise([] {
        CWnd window;
        QVERIFY(!window.GetDC());
        QVERIFY(!window.GetSafeHdc());
    });
    QTest::newRow("CWnd::GetSafeHdc: 0 before GetDC and without a device") << Promise([] {
        QWidget widget;
        CWnd window;
        window.Attach(KxHwndFromWidget(&widget));
        QVERIFY(!window.GetSafeHdc());
        window.GetDC();
        QVERIFY(!window.GetSafeHdc());
    });
    QTest::newRow("CWnd::GetSafeHdc: the context's device; CDC::GetSafeHdc is null") << Promise([] {
        const WindowContext context;
        QVERIFY(context.window.GetSafeHdc() == static_cast<HDC>(context.buffer));
        QVERIFY(static_cast<HDC>(*context.dc) == static_cast<HDC>(context.buffer));
        QVERIFY(!context.dc->GetSafeHdc());
    });
}

// ---- who deletes what -----------------------------------------------------------------------------------

void WindowContextTest::deletion_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a context deletes its device, as what it is") << Promise([] {
        int deletions = 0;
        {
            CDC dc;
            dc.m_hDC = new WatchedDevice(&deletions);
            QCOMPARE(deletions, 0);
        }
        QCOMPARE(deletions, 1);
    });
    QTest::newRow("DeleteDC, Detach and Attach do not delete the device") << Promise([] {
        int deletions = 0;
        CDC dc;
        dc.m_hDC = new WatchedDevice(&deletions);
        dc.DeleteDC();
        dc.Detach();
        dc.Attach(nullptr);
        QCOMPARE(deletions, 0);
    });
    QTest::newRow("a context leaves the bitmap and its handle") << Promise([] {
        OwnedBitmap bitmap(10, 8);
        {
            CDC dc;
            dc.SelectObject(&bitmap);
            dc.m_hDC->painter();
        }
        QVERIFY(images()->image(bitmap.m_hObject));
        QCOMPARE(bitmap.image(), plain(10, 8, 0xFF000000));
    });
    QTest::newRow("a window deletes its context, and that its device") << Promise([] {
        int deletions = 0;
        QWidget widget;
        {
            CWnd window;
            window.Attach(KxHwndFromWidget(&widget));
            window.GetDC()->m_hDC = new WatchedDevice(&deletions);
            window.ReleaseDC(window.GetDC());
            QCOMPARE(deletions, 0);
        }
        QCOMPARE(deletions, 1);
    });
    QTest::newRow("a window leaves the widget that its context drew on") << Promise([] {
        PaintedWindow widget;
        {
            CWnd window;
            window.Attach(KxHwndFromWidget(&widget));
            CDC *dc = _CreateDCforHwnd(KxHwndFromWidget(&widget));
            dc->m_hDC->painter();
            static_cast<KxGrQtDoubleBufferImage *>(dc->m_hDC)->createImages(20, 10, 4);
        }
        QCOMPARE(widget.picture().size(), QSize(20, 10));
    });
    QTest::newRow("a window that deletes its widget first, then the context") << Promise([] {
        int deletions = 0;
        const QPointer<QWidget> widget = new QWidget;
        {
            CWnd window;
            window.Attach(KxHwndFromWidget(widget));
            CDC *dc = _CreateDCforHwnd(KxHwndFromWidget(widget));
            dc->m_hDC->painter();
            static_cast<KxGrQtDoubleBufferImage *>(dc->m_hDC)->createImages(20, 10, 4);
            const std::unique_ptr<KxQtPaintDeviceWrapper> replaced(
                std::exchange(dc->m_hDC, new WatchedDevice(&deletions)));
            window.SetAutoDelete(true, true);
        }
        QVERIFY(!widget);
        QCOMPARE(deletions, 1);
    });
    QTest::newRow("a double buffer that outlives the widget by its window's end") << Promise([] {
        const QPointer<QWidget> widget = new QWidget;
        {
            CWnd window;
            window.Attach(KxHwndFromWidget(widget));
            CDC *dc = _CreateDCforHwnd(KxHwndFromWidget(widget));
            dc->m_hDC->painter();
            static_cast<KxGrQtDoubleBufferImage *>(dc->m_hDC)->createImages(20, 10, 4);
            window.SetAutoDelete(true, true);
        }
        QVERIFY(!widget);
    });
    QTest::newRow("a temporary wrapper that is taken over deletes its context") << Promise([] {
        int deletions = 0;
        QWidget widget;
        CWnd *wrapper = CreateCWndByHandle(KxHwndFromWidget(&widget));
        wrapper->GetDC()->m_hDC = new WatchedDevice(&deletions);
        CWnd kept;
        kept.Attach(KxHwndFromWidget(&widget));
        QCOMPARE(deletions, 1);
        QVERIFY(!kept.GetSafeHdc());
        QVERIFY(!kept.GetDC()->m_hDC);
    });
}

KX_TEST_MAIN(WindowContextTest)
#include "tst_window_context.moc"
