// SPDX-License-Identifier: MIT
// Device contexts: what answers a constant, what a bitmap binds, what is filled; the layout of the classes.

#include "KxClassLayout.h"
#include "KxContextStage.h"
#include "KxResultNumber.h"
#include "KxTestCase.h"

#include <afxwin.h>

#include <cstring>
#include <type_traits>

using Promise = void (*)();
using Call = qint64 (*)(CDC &);
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(Call)
Q_DECLARE_METATYPE(tagRECT)

namespace {

/// A host's service, in place while it lives: writes down what it is asked and answers what it is told to.
class WatchedImages : public KxImageService
{
public:
    WatchedImages() { platformServices()->setImageService(this); }
    ~WatchedImages() override { platformServices()->setImageService(nullptr); }

    QPaintDevice *paintDevice(HGDIOBJ handle) const override
    {
        devicesAsked.append(handle);
        return device;
    }
    COLORREF brushColor(HGDIOBJ handle) const override
    {
        colorsAsked.append(handle);
        return color;
    }

    QPaintDevice *device = nullptr;
    COLORREF color = 0;
    mutable QList<HGDIOBJ> devicesAsked;
    mutable QList<HGDIOBJ> colorsAsked;
};

} // namespace

class DeviceContextTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void contextWithoutADevice_data();
    void contextWithoutADevice() { run(); }
    void constant_data();
    void constant();
    void records_data();
    void records() { run(); }
    void bitmap_data();
    void bitmap() { run(); }
    void fillRectangle_data();
    void fillRectangle();
    void fillColor_data();
    void fillColor();
    void fillsNothing_data();
    void fillsNothing() { run(); }
    void fill_data();
    void fill() { run(); }
    void service_data();
    void service() { run(); }
    void layout_data();
    void layout();
    void tables();

private:
    static void run()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

// ---- what a context is and does not do ------------------------------------------------------------------

void DeviceContextTest::contextWithoutADevice_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("m_hDC is null") << Promise([] {
        const CDC dc;
        QVERIFY(!dc.m_hDC);
    });
    QTest::newRow("operator HDC gives null") << Promise([] {
        const CDC dc;
        QVERIFY(!static_cast<HDC>(dc));
    });
    QTest::newRow("KxHDCWrapper: the device is its destination, no bitmap, no painter of its own yet")
        << Promise([] {
               QImage image = plain(7, 5, white);
               KxHDCWrapper device(&image);
               QVERIFY(device.destinationDevice() == &image);
               QVERIFY(!device.m_bitmap);
               QCOMPARE(device.width(), 7);
               QCOMPARE(device.height(), 5);
               QVERIFY(device.painter()->wrappedDevice() == &image);
           });
    QTest::newRow("KxHDCWrapper: of no device") << Promise([] {
        const KxHDCWrapper device(nullptr);
        QVERIFY(!device.destinationDevice());
        QVERIFY(!device.m_bitmap);
    });
}

void DeviceContextTest::constant_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<qint64>("answer");

    const auto row = [](const char *name, qint64 answer, Call call) {
        QTest::newRow(name) << call << answer;
    };

    row("GetSafeHdc: null, not m_hDC", 0, [](CDC &dc) { return number(dc.GetSafeHdc()); });
    row("Attach: FALSE", 0, [](CDC &dc) {
        QImage image = plain(2, 2, 0);
        KxHDCWrapper other(&image);
        return number(dc.Attach(&other));
    });
    row("Attach: FALSE for null", 0, [](CDC &dc) { return number(dc.Attach(nullptr)); });
    row("Detach: null", 0, [](CDC &dc) { return number(dc.Detach()); });
    row("SelectStockObject: null for every index", 0, [](CDC &dc) {
        qint64 answers = 0;
        for (int index = 0; index <= 20; ++index)
            answers |= number(dc.SelectStockObject(index));
        return answers;
    });
    row("SelectObject(CPen *): null", 0, [](CDC &dc) {
        CPen pen;
        return number(dc.SelectObject(&pen)) | number(dc.SelectObject(&pen));
    });
    row("SelectObject(CBrush *): null", 0, [](CDC &dc) {
        OwnedBrush brush(RGB(1, 2, 3));
        return number(dc.SelectObject(&brush)) | number(dc.SelectObject(&brush));
    });
    row("SelectObject(CFont *): null", 0, [](CDC &dc) {
        CFont font;
        return number(dc.SelectObject(&font)) | number(dc.SelectObject(&font));
    });
    row("SelectObject(CRgn *): null", 0, [](CDC &dc) {
        CRgn region;
        return number(dc.SelectObject(&region)) | number(dc.SelectObject(&region));
    });
    row("SelectObject(CGdiObject *): null, also for a bitmap", 0, [](CDC &dc) {
        OwnedBitmap bitmap(3, 3);
        return number(dc.SelectObject(static_cast<CGdiObject *>(&bitmap)));
    });
    row("SelectObject: null for null of every kind", 0, [](CDC &dc) {
        return number(dc.SelectObject(static_cast<CPen *>(nullptr)))
            | number(dc.SelectObject(static_cast<CBrush *>(nullptr)))
            | number(dc.SelectObject(static_cast<CFont *>(nullptr)))
            | number(dc.SelectObject(static_cast<CRgn *>(nullptr)))
            | number(dc.SelectObject(static_cast<CGdiObject *>(nullptr)))
            | number(dc.SelectObject(static_cast<CBitmap *>(nullptr)));
    });
    row("SelectPalette: null", 0, [](CDC &dc) {
        CPalette palette;
        return number(dc.SelectPalette(&palette, TRUE)) | number(dc.SelectPalette(nullptr, FALSE));
    });
    row("CreateCompatibleDC: TRUE", 1, [](CDC &dc) {
        CDC other;
        return number(dc.CreateCompatibleDC(&other));
    });
    row("CreateCompatibleDC: TRUE for null", 1,
        [](CDC &dc) { return number(dc.CreateCompatibleDC(nullptr)); });
    row("CreateCompatibleDC: TRUE for a context of a bitmap", 1, [](CDC &dc) {
        BitmapContext other;
        return number(dc.CreateCompatibleDC(&other.dc));
    });
    row("BitBlt: TRUE, nothing is copied", 1, [](CDC &dc) {
        BitmapContext source;
        source.bitmap.image().fill(red);
        return number(dc.BitBlt(0, 0, 10, 8, &source.dc, 0, 0, 0x00CC0020 /* SRCCOPY */));
    });
    row("BitBlt: TRUE without a source", 1,
        [](CDC &dc) { return number(dc.BitBlt(0, 0, 10, 8, nullptr, 0, 0, 0x00000042 /* BLACKNESS */)); });
    row("DeleteDC: TRUE", 1, [](CDC &dc) { return number(dc.DeleteDC()); });
    row("SaveDC: 0", 0, [](CDC &dc) { return number(dc.SaveDC()) | number(dc.SaveDC()); });
    row("RestoreDC: TRUE", 1, [](CDC &dc) { return number(dc.RestoreDC(0)); });
    row("RestoreDC(-1): TRUE", 1, [](CDC &dc) { return number(dc.RestoreDC(-1)); });
    row("GetDeviceCaps: 0 for every index", 0, [](CDC &dc) {
        qint64 answers = 0;
        for (int index = 0; index <= 120; ++index)
            answers |= number(dc.GetDeviceCaps(index));
        return answers;
    });
    row("GetTextMetricsW: TRUE without a record", 1,
        [](CDC &dc) { return number(dc.GetTextMetricsW(nullptr)); });
    row("GetTextExtent: (0, 0)", 0, [](CDC &dc) {
        const CSize size = dc.GetTextExtent(CString(L"A text"));
        return number(size.cx) | number(size.cy);
    });
    row("GetTextExtent: (0, 0) of the empty text", 0, [](CDC &dc) {
        const CSize size = dc.GetTextExtent(CString());
        return number(size.cx) | number(size.cy);
    });
    row("FrameRect draws nothing", 0, [](CDC &dc) {
        OwnedBrush brush(RGB(255, 0, 0));
        dc.FrameRect(&everything, &brush);
        const tagRECT inside = {1, 1, 5, 5};
        dc.FrameRect(&inside, &brush);
        dc.FrameRect(nullptr, nullptr);
        return qint64(0);
    });
    row("FillSolidRect of four numbers draws nothing", 0, [](CDC &dc) {
        dc.FillSolidRect(0, 0, 10, 8, RGB(255, 0, 0));
        return qint64(0);
    });
    row("FillSolidRect of a rectangle draws nothing", 0, [](CDC &dc) {
        dc.FillSolidRect(&everything, RGB(255, 0, 0));
        dc.FillSolidRect(nullptr, RGB(255, 0, 0));
        return qint64(0);
    });
}

/// The answer holds with a device and without one; device and pixels stay as they are.
void DeviceContextTest::constant()
{
    QFETCH(Call, call);
    QFETCH(qint64, answer);

    CDC without;
    QCOMPARE(call(without), answer);
    QVERIFY(!without.m_hDC);

    BitmapContext bound;
    const KxQtPaintDeviceWrapper *device = bound.dc.m_hDC;
    QVERIFY(device);
    QCOMPARE(call(bound.dc), answer);
    QVERIFY(bound.dc.m_hDC == device);
    QCOMPARE(bound.bitmap.image(), plain(10, 8, white));
    QVERIFY(bound.dc.SelectObject(&bound.bitmap) == &bound.bitmap);

    WindowContext shown;
    QVERIFY(shown.buffer);
    shown.buffer->createImages(20, 10, 4);
    QCOMPARE(call(*shown.dc), answer);
    QVERIFY(shown.dc->m_hDC == shown.buffer);
    QCOMPARE(*shown.buffer->memImage(), plain(20, 10, 0));
    QCOMPARE(*shown.buffer->frontImage(), plain(20, 10, 0));
}

void DeviceContextTest::records_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("GetTextMetricsW leaves the record alone") << Promise([] {
        BitmapContext context;
        tagTEXTMETRICW record;
        tagTEXTMETRICW before;
        std::memset(static_cast<void *>(&record), 0xA5, sizeof record);
        std::memset(static_cast<void *>(&before), 0xA5, sizeof before);
        QVERIFY(context.dc.GetTextMetricsW(&record));
        QCOMPARE(std::memcmp(&record, &before, sizeof record), 0);
    });
    QTest::newRow("a context that is const may be asked as well") << Promise([] {
        const BitmapContext context;
        const CDC &dc = context.dc;
        tagTEXTMETRICW record = {};
        QVERIFY(dc.GetTextMetricsW(&record));
        QCOMPARE(dc.GetDeviceCaps(12 /* BITSPIXEL */), 0);
        QVERIFY(dc.GetTextExtent(CString(L"A text")) == CSize(0, 0));
        QVERIFY(!dc.GetSafeHdc());
    });
    QTest::newRow("the context draws on after DeleteDC, Detach and Attach") << Promise([] {
        BitmapContext context;
        OwnedBrush brush(RGB(255, 0, 0));
        context.dc.DeleteDC();
        context.dc.Detach();
        context.dc.Attach(nullptr);
        context.dc.FillRect(&everything, &brush);
        QCOMPARE(context.bitmap.image(), plain(10, 8, red));
    });
    QTest::newRow("RestoreDC does not bring a selection or pixels back") << Promise([] {
        BitmapContext context;
        OwnedBrush brush(RGB(255, 0, 0));
        const int saved = context.dc.SaveDC();
        context.dc.FillRect(&everything, &brush);
        QVERIFY(context.dc.RestoreDC(saved));
        QCOMPARE(context.bitmap.image(), plain(10, 8, red));
    });
}

// ---- SelectObject(CBitmap *) ----------------------------------------------------------------------------

void DeviceContextTest::bitmap_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("null on a context without a device: null, it stays without") << Promise([] {
        CDC dc;
        QVERIFY(!dc.SelectObject(static_cast<CBitmap *>(nullptr)));
        QVERIFY(!dc.m_hDC);
    });
    QTest::newRow("null on a bound context: null, it stays bound") << Promise([] {
        BitmapContext context;
        const KxQtPaintDeviceWrapper *device = context.dc.m_hDC;
        QVERIFY(!context.dc.SelectObject(static_cast<CBitmap *>(nullptr)));
        QVERIFY(context.dc.m_hDC == device);
        QVERIFY(context.dc.SelectObject(&context.bitmap) == &context.bitmap);
    });
    QTest::newRow("the first: null, and a KxHDCWrapper over the bitmap's image that knows the bitmap")
        << Promise([] {
               OwnedBitmap bitmap(10, 8);
               CDC dc;
               QVERIFY(!dc.SelectObject(&bitmap));
               const auto *device = dynamic_cast<KxHDCWrapper *>(dc.m_hDC);
               QVERIFY(device);
               QVERIFY(device->destinationDevice() == &bitmap.image());
               QVERIFY(device->m_bitmap == &bitmap);
           });
    QTest::newRow("operator HDC gives the device then, GetSafeHdc null") << Promise([] {
        const BitmapContext context;
        QVERIFY(context.dc.m_hDC);
        QVERIFY(static_cast<HDC>(context.dc) == static_cast<HDC>(context.dc.m_hDC));
        QVERIFY(!context.dc.GetSafeHdc());
    });
    QTest::newRow("a second: the first is given, and the context goes on drawing into it") << Promise([] {
        BitmapContext context;
        OwnedBitmap second(10, 8);
        second.image().fill(white);
        OwnedBrush brush(RGB(255, 0, 0));
        const auto *device = dynamic_cast<KxHDCWrapper *>(context.dc.m_hDC);
        QVERIFY(context.dc.SelectObject(&second) == &context.bitmap);
        QVERIFY(context.dc.m_hDC == device);
        QVERIFY(device->m_bitmap == &context.bitmap);
        QVERIFY(device->destinationDevice() == &context.bitmap.image());
        context.dc.FillRect(&everything, &brush);
        QCOMPARE(context.bitmap.image(), plain(10, 8, red));
        QCOMPARE(second.image(), plain(10, 8, white));
    });
    QTest::newRow("a third: still the first") << Promise([] {
        BitmapContext context;
        OwnedBitmap second(10, 8);
        OwnedBitmap third(10, 8);
        context.dc.SelectObject(&second);
        QVERIFY(context.dc.SelectObject(&third) == &context.bitmap);
    });
    QTest::newRow("the same again: itself") << Promise([] {
        BitmapContext context;
        QVERIFY(context.dc.SelectObject(&context.bitmap) == &context.bitmap);
    });
    QTest::newRow("the old one put back, as ported code does: the first") << Promise([] {
        CDC dc;
        OwnedBitmap bitmap(10, 8);
        CBitmap *old = dc.SelectObject(&bitmap);
        QVERIFY(!dc.SelectObject(old));
        QVERIFY(dc.SelectObject(&bitmap) == &bitmap);
    });
    QTest::newRow("without a handle: null, nothing is bound, another one may follow") << Promise([] {
        CDC dc;
        CBitmap empty;
        OwnedBitmap bitmap(10, 8);
        QVERIFY(!dc.SelectObject(&empty));
        QVERIFY(!dc.m_hDC);
        QVERIFY(!dc.SelectObject(&bitmap));
        QVERIFY(dc.m_hDC && dc.m_hDC->destinationDevice() == &bitmap.image());
    });
    QTest::newRow("without a handle on a bound context: the first") << Promise([] {
        BitmapContext context;
        CBitmap empty;
        QVERIFY(context.dc.SelectObject(&empty) == &context.bitmap);
    });
    QTest::newRow("a handle that the image service does not know binds to no device") << Promise([] {
        CDC dc;
        int unknown = 0;
        CBitmap bitmap;
        bitmap.Attach(KxHandleFromValue<HBITMAP>(reinterpret_cast<std::uintptr_t>(&unknown)));
        QVERIFY(!dc.SelectObject(&bitmap));
        QVERIFY(dc.m_hDC);
        QVERIFY(!dc.m_hDC->destinationDevice());
        OwnedBitmap second(10, 8);
        QVERIFY(dc.SelectObject(&second) == &bitmap);
    });
    QTest::newRow("the bitmap that gave its handle away is still the selected one") << Promise([] {
        OwnedBitmap bitmap(10, 8);
        CBitmap holder;
        CDC dc;
        holder.Attach(bitmap);
        dc.SelectObject(&holder);
        holder.Detach();
        QVERIFY(dc.SelectObject(&bitmap) == &holder);
    });
    QTest::newRow("two contexts of one bitmap draw into it both") << Promise([] {
        BitmapContext context;
        CDC second;
        QVERIFY(!second.SelectObject(&context.bitmap));
        QVERIFY(second.m_hDC != context.dc.m_hDC);
        OwnedBrush redBrush(RGB(255, 0, 0));
        OwnedBrush blueBrush(RGB(0, 0, 255));
        const tagRECT left = {0, 0, 5, 8};
        const tagRECT right = {5, 0, 10, 8};
        context.dc.FillRect(&left, &redBrush);
        second.FillRect(&right, &blueBrush);
        QCOMPARE(context.bitmap.image(), filled(plain(10, 8, red), right, blue));
    });
    QTest::newRow("on a context with a device of the host's own: null, the device stays") << Promise([] {
        QImage image = plain(10, 8, white);
        OwnedBitmap bitmap(10, 8);
        CDC dc;
        auto *device = new KxQtPaintDeviceWrapper(&image);
        dc.m_hDC = device;
        QVERIFY(!dc.SelectObject(&bitmap));
        QVERIFY(!dc.SelectObject(&bitmap));
        QVERIFY(dc.m_hDC == device);
        QVERIFY(device->destinationDevice() == static_cast<QPaintDevice *>(&image));
    });
    QTest::newRow("on a window's context: null, the device stays") << Promise([] {
        WindowContext context;
        OwnedBitmap bitmap(10, 8);
        QVERIFY(!context.dc->SelectObject(&bitmap));
        QVERIFY(!context.dc->SelectObject(&bitmap));
        QVERIFY(context.dc->m_hDC == context.buffer);
        OwnedBrush brush(RGB(255, 0, 0));
        context.dc->FillRect(&everything, &brush);
        QCOMPARE(bitmap.image(), plain(10, 8, 0xFF000000));
    });
}

// ---- FillRect -------------------------------------------------------------------------------------------

void DeviceContextTest::fillRectangle_data()
{
    QTest::addColumn<tagRECT>("rect");

    const auto row = [](const char *name, LONG left, LONG top, LONG right, LONG bottom) {
        QTest::newRow(name) << tagRECT{left, top, right, bottom};
    };
    row("all", 0, 0, 10, 8);
    row("inside: right and bottom are excluded", 2, 1, 7, 5);
    row("one pixel", 3, 4, 4, 5);
    row("one row", 0, 3, 10, 4);
    row("one column", 9, 0, 10, 8);
    row("beyond every side", -5, -5, 100, 100);
    row("beyond the upper left", -5, -3, 2, 2);
    row("beyond the lower right", 8, 6, 50, 50);
    row("outside", 20, 20, 30, 30);
    row("no width", 3, 1, 3, 5);
    row("no height", 3, 1, 7, 1);
    row("empty", 0, 0, 0, 0);
}

void DeviceContextTest::fillRectangle()
{
    QFETCH(tagRECT, rect);
    BitmapContext context(10, 8);
    OwnedBrush brush(RGB(255, 0, 0));
    context.dc.FillRect(&rect, &brush);
    QCOMPARE(context.bitmap.image(), filled(plain(10, 8, white), rect, red));
}

void DeviceContextTest::fillColor_data()
{
    QTest::addColumn<COLORREF>("color");
    QTest::addColumn<QRgb>("pixel");

    QTest::newRow("0x000000FF is red") << COLORREF(0x000000FF) << QRgb(0xFFFF0000);
    QTest::newRow("0x0000FF00 is green") << COLORREF(0x0000FF00) << QRgb(0xFF00FF00);
    QTest::newRow("0x00FF0000 is blue") << COLORREF(0x00FF0000) << QRgb(0xFF0000FF);
    QTest::newRow("0 is black") << COLORREF(0) << QRgb(0xFF000000);
    QTest::newRow("0x00FFFFFF is white") << COLORREF(0x00FFFFFF) << QRgb(0xFFFFFFFF);
    QTest::newRow("0x00112233") << COLORREF(0x00112233) << QRgb(0xFF332211);
    QTest::newRow("the top byte makes nothing transparent") << COLORREF(0x80112233) << QRgb(0xFF332211);
}

void DeviceContextTest::fillColor()
{
    QFETCH(COLORREF, color);
    QFETCH(QRgb, pixel);
    BitmapContext context;
    OwnedBrush brush(color);
    for (const QRgb before : {white, QRgb(0xFF808080), QRgb(0)}) {
        context.bitmap.image().fill(before);
        context.dc.FillRect(&everything, &brush);
        QCOMPARE(context.bitmap.image(), plain(10, 8, pixel));
    }
}

void DeviceContextTest::fillsNothing_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("without a device, and gets none") << Promise([] {
        CDC dc;
        OwnedBrush brush(RGB(255, 0, 0));
        dc.FillRect(&everything, &brush);
        QVERIFY(!dc.m_hDC);
    });
    QTest::newRow("without a brush") << Promise([] {
        BitmapContext context;
        context.bitmap.image().fill(green);
        context.dc.FillRect(&everything, nullptr);
        QCOMPARE(context.bitmap.image(), plain(10, 8, green));
    });
    QTest::newRow("a brush without a handle") << Promise([] {
        BitmapContext context;
        context.bitmap.image().fill(green);
        CBrush brush;
        context.dc.FillRect(&everything, &brush);
        QCOMPARE(context.bitmap.image(), plain(10, 8, green));
    });
    QTest::newRow("without a rectangle") << Promise([] {
        BitmapContext context;
        context.bitmap.image().fill(green);
        OwnedBrush brush(RGB(255, 0, 0));
        context.dc.FillRect(nullptr, &brush);
        QCOMPARE(context.bitmap.image(), plain(10, 8, green));
    });
    QTest::newRow("a handle that the image service does not know") << Promise([] {
        BitmapContext context;
        context.bitmap.image().fill(green);
        int unknown = 0;
        CBrush brush;
        brush.Attach(&unknown);
        context.dc.FillRect(&everything, &brush);
        QCOMPARE(context.bitmap.image(), plain(10, 8, green));
    });
    QTest::newRow("the handle of a bitmap") << Promise([] {
        BitmapContext context;
        context.bitmap.image().fill(green);
        CBrush brush;
        brush.Attach(context.bitmap.m_hObject);
        context.dc.FillRect(&everything, &brush);
        QCOMPARE(context.bitmap.image(), plain(10, 8, green));
    });
    QTest::newRow("the handle of a brush that was deleted") << Promise([] {
        BitmapContext context;
        context.bitmap.image().fill(green);
        CBrush brush(RGB(255, 0, 0));
        QVERIFY(images()->deleteHandle(brush.m_hObject));
        context.dc.FillRect(&everything, &brush);
        QCOMPARE(context.bitmap.image(), plain(10, 8, green));
    });
    QTest::newRow("a brush of the colour that is no colour") << Promise([] {
        BitmapContext context;
        context.bitmap.image().fill(green);
        CBrush brush(0xFFFFFFFF);
        context.dc.FillRect(&everything, &brush);
        QCOMPARE(context.bitmap.image(), plain(10, 8, green));
    });
    QTest::newRow("a device without a destination") << Promise([] {
        CDC dc;
        dc.m_hDC = new KxQtPaintDeviceWrapper;
        OwnedBrush brush(RGB(255, 0, 0));
        dc.FillRect(&everything, &brush);
        QVERIFY(!dc.m_hDC->painter()->wrappedPainter()->isActive());
    });
    QTest::newRow("a double buffer without destination and images") << Promise([] {
        CDC dc;
        auto *buffer = new KxGrQtDoubleBufferImage;
        dc.m_hDC = buffer;
        OwnedBrush brush(RGB(255, 0, 0));
        dc.FillRect(&everything, &brush);
        QVERIFY(!buffer->memImage());
        QVERIFY(!buffer->frontImage());
    });
    QTest::newRow("a window's double buffer whose images were destroyed") << Promise([] {
        WindowContext context;
        const QImage before = context.widget.picture();
        context.buffer->createImages(20, 10, 4);
        context.buffer->destroyImages();
        OwnedBrush brush(RGB(255, 0, 0));
        context.dc->FillRect(&everything, &brush);
        QCOMPARE(context.widget.picture(), before);
    });
}

void DeviceContextTest::fill_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("one over the other") << Promise([] {
        BitmapContext context;
        OwnedBrush redBrush(RGB(255, 0, 0));
        OwnedBrush greenBrush(RGB(0, 255, 0));
        const tagRECT first = {1, 1, 6, 6};
        const tagRECT second = {4, 4, 9, 7};
        context.dc.FillRect(&first, &redBrush);
        context.dc.FillRect(&second, &greenBrush);
        QCOMPARE(context.bitmap.image(),
                 filled(filled(plain(10, 8, white), first, red), second, green));
    });
    QTest::newRow("right left of left, bottom above top: as QPainter::fillRect does it") << Promise([] {
        const tagRECT turned = {7, 5, 2, 1};
        BitmapContext context;
        OwnedBrush brush(RGB(255, 0, 0));
        context.dc.FillRect(&turned, &brush);
        QImage expected = plain(10, 8, white);
        QPainter(&expected).fillRect(7, 5, -5, -4, QColor(255, 0, 0));
        QCOMPARE(context.bitmap.image(), expected);
    });
    QTest::newRow("painter() of the device draws it: its clip region counts") << Promise([] {
        BitmapContext context;
        tagPOINT corners[] = {{2, 2}, {6, 2}, {6, 5}, {2, 5}};
        unsigned int count = 4;
        context.dc.m_hDC->painter()->setClipRegion(corners, &count, 1);
        OwnedBrush brush(RGB(255, 0, 0));
        context.dc.FillRect(&everything, &brush);
        QCOMPARE(context.bitmap.image(), filled(plain(10, 8, white), {2, 2, 6, 5}, red));
    });
    QTest::newRow("the device is closed again afterwards") << Promise([] {
        BitmapContext context;
        OwnedBrush brush(RGB(255, 0, 0));
        context.dc.FillRect(&everything, &brush);
        QVERIFY(!context.dc.m_hDC->painter()->wrappedPainter()->isActive());
        QPainter(&context.bitmap.image()).fillRect(0, 0, 10, 8, QColor(0, 0, 255));
        QCOMPARE(context.bitmap.image(), plain(10, 8, blue));
    });
    QTest::newRow("the brush keeps its handle and its colour") << Promise([] {
        BitmapContext context;
        OwnedBrush brush(RGB(1, 2, 3));
        const HGDIOBJ handle = brush.m_hObject;
        context.dc.FillRect(&everything, &brush);
        QVERIFY(brush.m_hObject == handle);
        QCOMPARE(images()->brushColor(handle), COLORREF(RGB(1, 2, 3)));
    });
    QTest::newRow("a brush that was attached") << Promise([] {
        BitmapContext context;
        OwnedBrush owner(RGB(255, 0, 0));
        CBrush brush;
        brush.Attach(owner.m_hObject);
        context.dc.FillRect(&everything, &brush);
        QCOMPARE(context.bitmap.image(), plain(10, 8, red));
    });
    QTest::newRow("a device of the host's own, over an image") << Promise([] {
        QImage image = plain(10, 8, white);
        CDC dc;
        dc.m_hDC = new KxQtPaintDeviceWrapper(&image);
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT rect = {2, 1, 7, 5};
        dc.FillRect(&rect, &brush);
        QCOMPARE(image, filled(plain(10, 8, white), rect, red));
    });
    QTest::newRow("a device of the host's own, over a window in its paint event") << Promise([] {
        PaintedWindow window;
        const QImage before = window.picture();
        CDC dc;
        dc.m_hDC = new KxQtPaintDeviceWrapper(&window);
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT rect = {3, 2, 9, 7};
        window.whenPainted = [&] { dc.FillRect(&rect, &brush); };
        QCOMPARE(window.picture(), filled(before, rect, red));
    });
    QTest::newRow("a double buffer over an image: its front image, not the image") << Promise([] {
        QImage image = plain(10, 8, white);
        CDC dc;
        auto *buffer = new KxGrQtDoubleBufferImage(&image);
        dc.m_hDC = buffer;
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT rect = {2, 1, 7, 5};
        dc.FillRect(&rect, &brush);
        QCOMPARE(image, plain(10, 8, white));
        QCOMPARE(*buffer->frontImage(), filled(plain(10, 8, 0), rect, red));
        QVERIFY(!buffer->memImage());
    });
    QTest::newRow("a double buffer over an image, with a pair: its memory image alone") << Promise([] {
        QImage image = plain(10, 8, white);
        CDC dc;
        auto *buffer = new KxGrQtDoubleBufferImage(&image);
        dc.m_hDC = buffer;
        buffer->createImages(10, 8, 4);
        OwnedBrush brush(RGB(255, 0, 0));
        const tagRECT rect = {2, 1, 7, 5};
        dc.FillRect(&rect, &brush);
        QCOMPARE(image, plain(10, 8, white));
        QCOMPARE(*buffer->memImage(), filled(plain(10, 8, 0), rect, red));
        QCOMPARE(*buffer->frontImage(), plain(10, 8, 0));
    });
    QTest::newRow("a double buffer without a destination: its memory image") << Promise([] {
        CDC dc;
        auto *buffer = new KxGrQtDoubleBufferImage;
        dc.m_hDC = buffer;
        buffer->createImages(10, 8, 4);
        OwnedBrush brush(RGB(255, 0, 0));
        dc.FillRect(&everything, &brush);
        QCOMPARE(*buffer->memImage(), plain(10, 8, red));
        QCOMPARE(*buffer->frontImage(), plain(10, 8, 0));
    });
}

// ---- the image service ----------------------------------------------------------------------------------

void DeviceContextTest::service_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("SelectObject asks for the paint device of the handle, once") << Promise([] {
        QImage image = plain(10, 8, white);
        int handle = 0;
        WatchedImages service;
        service.device = &image;
        CBitmap bitmap;
        bitmap.m_hObject = &handle;
        CDC dc;
        QVERIFY(!dc.SelectObject(&bitmap));
        QVERIFY(dc.SelectObject(&bitmap) == &bitmap);
        QCOMPARE(service.devicesAsked, QList<HGDIOBJ>{&handle});
        QVERIFY(dc.m_hDC && dc.m_hDC->destinationDevice() == &image);
    });
    QTest::newRow("SelectObject does not ask without a handle") << Promise([] {
        WatchedImages service;
        CBitmap bitmap;
        CDC dc;
        dc.SelectObject(&bitmap);
        dc.SelectObject(static_cast<CBitmap *>(nullptr));
        QVERIFY(service.devicesAsked.isEmpty());
    });
    QTest::newRow("FillRect asks for the brush's colour each time and fills with the answer") << Promise([] {
        QImage image = plain(10, 8, white);
        int handle = 0;
        WatchedImages service;
        CBrush brush;
        brush.m_hObject = &handle;
        CDC dc;
        dc.m_hDC = new KxQtPaintDeviceWrapper(&image);
        service.color = RGB(255, 0, 0);
        dc.FillRect(&everything, &brush);
        QCOMPARE(image, plain(10, 8, red));
        service.color = RGB(0, 0, 255);
        dc.FillRect(&everything, &brush);
        QCOMPARE(image, plain(10, 8, blue));
        QCOMPARE(service.colorsAsked, (QList<HGDIOBJ>{&handle, &handle}));
    });
    QTest::newRow("FillRect does not ask without a device, a brush or its handle, and fills nothing")
        << Promise([] {
               QImage image = plain(10, 8, white);
               int handle = 0;
               WatchedImages service;
               service.color = RGB(255, 0, 0);
               CBrush empty;
               CBrush brush;
               brush.m_hObject = &handle;
               CDC dc;
               dc.FillRect(&everything, &brush);
               dc.m_hDC = new KxQtPaintDeviceWrapper(&image);
               dc.FillRect(&everything, &empty);
               dc.FillRect(&everything, nullptr);
               QVERIFY(service.colorsAsked.isEmpty());
               QCOMPARE(image, plain(10, 8, white));
           });
    QTest::newRow("FillRect: the top byte of the answer is ignored") << Promise([] {
        QImage image = plain(10, 8, white);
        int handle = 0;
        WatchedImages service;
        CBrush brush;
        brush.m_hObject = &handle;
        CDC dc;
        dc.m_hDC = new KxQtPaintDeviceWrapper(&image);
        service.color = 0x7F0000FF;
        dc.FillRect(&everything, &brush);
        QCOMPARE(image, plain(10, 8, red));
    });
    QTest::newRow("FillRect: the answer that is no colour fills nothing") << Promise([] {
        QImage image = plain(10, 8, green);
        int handle = 0;
        WatchedImages service;
        CBrush brush;
        brush.m_hObject = &handle;
        CDC dc;
        dc.m_hDC = new KxQtPaintDeviceWrapper(&image);
        service.color = 0xFFFFFFFF;
        dc.FillRect(&everything, &brush);
        QCOMPARE(image, plain(10, 8, green));
    });
    QTest::newRow("FillRect draws into the device that the service named") << Promise([] {
        QImage image = plain(10, 8, white);
        int handle = 0;
        WatchedImages service;
        service.device = &image;
        service.color = RGB(255, 0, 0);
        CBitmap bitmap;
        bitmap.m_hObject = &handle;
        CBrush brush;
        brush.m_hObject = &handle;
        CDC dc;
        dc.SelectObject(&bitmap);
        const tagRECT rect = {2, 1, 7, 5};
        dc.FillRect(&rect, &brush);
        QCOMPARE(image, filled(plain(10, 8, white), rect, red));
    });
}

// ---- layout ---------------------------------------------------------------------------------------------

void DeviceContextTest::layout_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");

    const auto row = [](const char *name, int found, int expected) {
        QTest::newRow(name) << found << expected;
    };
    row("0: CDC::SelectStockObject", slotOf(&CDC::SelectStockObject), 0);
    row("1: CDC::SelectObject(CFont *)",
        slotOf(static_cast<CFont *(CDC::*)(CFont *)>(&CDC::SelectObject)), 1);
    row("2: CDC::SaveDC", slotOf(&CDC::SaveDC), 2);
    row("3: CDC::RestoreDC", slotOf(&CDC::RestoreDC), 3);
    row("CDC has 4 slots", slotCount<CDC>(), 4);
    row("CDC::SelectObject(CBitmap *) is not virtual",
        slotOf(static_cast<CBitmap *(CDC::*)(CBitmap *)>(&CDC::SelectObject)), -1);
    row("CDC::FillRect is not virtual", slotOf(&CDC::FillRect), -1);
    row("KxHDCWrapper has the destructor's 2 slots", slotCount<KxHDCWrapper>(), 2);

    const CDC dc;
    row("CDC::m_hDC is behind the table", offsetOf(dc, dc.m_hDC), 8);
    row("nothing follows m_hDC", sizeof(CDC), 16);
    const KxHDCWrapper device(nullptr);
    row("KxHDCWrapper: the bitmap follows its base", offsetOf(device, device.m_bitmap), 24);
    row("nothing follows the bitmap", sizeof(KxHDCWrapper), 32);
}

void DeviceContextTest::layout()
{
    QFETCH(int, found);
    QTEST(found, "expected");
}

void DeviceContextTest::tables()
{
    QVERIFY(std::is_polymorphic_v<CDC>);
    QVERIFY(!std::has_virtual_destructor_v<CDC>);
    QVERIFY((std::is_convertible_v<CDC *, CObject *>));
    QVERIFY((std::is_same_v<decltype(CDC::m_hDC), KxQtPaintDeviceWrapper *>));
    QVERIFY((std::is_convertible_v<KxQtPaintDeviceWrapper *, HDC>));
    QVERIFY((std::is_convertible_v<KxHDCWrapper *, KxQtPaintDeviceWrapper *>));
    QVERIFY(std::has_virtual_destructor_v<KxHDCWrapper>);
    const KxHDCWrapper device(nullptr);
    const KxQtPaintDeviceWrapper base;
    QCOMPARE(differences(&device, &base, 2), QList<int>({0, 1}));
}

KX_TEST_MAIN(DeviceContextTest)
#include "tst_device_context.moc"
