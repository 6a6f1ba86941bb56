// SPDX-License-Identifier: MIT
// The painter of devices with a single begin and end, the handle of a device, the layout of the classes.

#include "support/KxClassLayout.h"
#include "support/KxPainterStage.h"
#include "support/KxTestCase.h"

#include "KxQtWinapiWrapper.h"

#include <QtCore/QBuffer>
#include <QtGui/QPageSize>
#include <QtGui/QPdfWriter>
#include <QtGui/QPixmap>

#include <memory>
#include <type_traits>

namespace {

/// What a device's handle keeps, nameable.
struct HandleFields : KxQtPaintDeviceWrapper {
    using KxQtPaintDeviceWrapper::KxQtPaintDeviceWrapper;
    using KxQtPaintDeviceWrapper::destination;
    using KxQtPaintDeviceWrapper::painterWrapper;
};

struct PrinterFields : KxQtPrinterPainter {
    using KxQtPrinterPainter::KxQtPrinterPainter;
    using KxQtPrinterPainter::clipRegion;
};

/// A handle that deletes the painter wrapper itself.
struct OwningHandle : KxQtPaintDeviceWrapper {
    using KxQtPaintDeviceWrapper::KxQtPaintDeviceWrapper;
    ~OwningHandle() override
    {
        delete painterWrapper;
        painterWrapper = nullptr;
    }
};

struct CountingHandle : KxQtPaintDeviceWrapper {
    explicit CountingHandle(int &destroyed) : count(destroyed) {}
    ~CountingHandle() override { ++count; }
    int &count;
};

/// How many pages a PDF file has.
int pageCount(const QByteArray &file)
{
    int pages = 0;
    for (int at = file.indexOf("/Type /Page\n"); at >= 0; at = file.indexOf("/Type /Page\n", at + 1))
        ++pages;
    return pages;
}

} // namespace

class tst_PainterDevices : public KxTestCase
{
    Q_OBJECT

private slots:
    void layout();
    void handles();

    void printerIsActiveForItsWholeLife();
    void printerDefaults();
    void printerStateIsLostAtTheEnd();
    void printerWithoutDevice();
    void printerKeepsItsOwnStateBelow();
    void printerDoesNotApplyTheClip();
    void printerClipBetweenEpisodes();
    void printerThroughItsBase();
    void printerDraws();
    void printerLosesItsDevice();
    void pages();
    void onePageAsBareQPainter();

    void metrics_data();
    void metrics();
    void handleConstruction();
    void handleEpisodesDoNothing();
    void onePainter();
    void painterKeepsItsDevice();
    void painterWithoutDevice();
    void handleFreesItsPainter();
    void handleDestructor();

    void inertCallsDoNotReachThePainter();
};

// ---- layout -----------------------------------------------------------------------------------------------

void tst_PainterDevices::layout()
{
    const KxPainterFields wrapper;
    QCOMPARE(offsetOf(wrapper, wrapper.device), 0);
    QCOMPARE(offsetOf(wrapper, wrapper.painter), 8);
    QCOMPARE(offsetOf(wrapper, wrapper.path), 16);
    QCOMPARE(offsetOf(wrapper, wrapper.clipRegion), 24);
    QCOMPARE(offsetOf(wrapper, wrapper.inPath), 32);
    QCOMPARE(sizeof(KxQtPainterWrapper), size_t(40));
    QVERIFY(!std::is_polymorphic<KxQtPainterWrapper>::value);

    QCOMPARE(sizeof(KxQtPrinterPainter), size_t(40));
    QVERIFY(!std::is_polymorphic<KxQtPrinterPainter>::value);
    QVERIFY((std::is_convertible<KxQtPrinterPainter *, KxQtPainterWrapper *>::value));

    const HandleFields handle;
    QCOMPARE(offsetOf(handle, handle.destination), 8);
    QCOMPARE(offsetOf(handle, handle.painterWrapper), 16);
    QCOMPARE(sizeof(KxQtPaintDeviceWrapper), size_t(24));
    QVERIFY(std::has_virtual_destructor<KxQtPaintDeviceWrapper>::value);
    QCOMPARE(slotCount<KxQtPaintDeviceWrapper>(), 2); // both of the destructor
}

void tst_PainterDevices::handles()
{
    QVERIFY((std::is_convertible<KxQtPainterWrapper *, HDC>::value));
    QVERIFY((std::is_convertible<KxQtPaintDeviceWrapper *, HDC>::value));
    QVERIFY((std::is_convertible<KxQtPrinterPainter *, HDC>::value));
    KxQtPainterWrapper wrapper;
    const HDC ofTheWrapper = &wrapper;
    QCOMPARE(static_cast<KxQtPainterWrapper *>(ofTheWrapper), &wrapper);
    QCOMPARE(static_cast<void *>(ofTheWrapper), static_cast<void *>(&wrapper)); // its address
    KxQtPaintDeviceWrapper handle;
    const HDC ofTheHandle = &handle;
    QCOMPARE(static_cast<KxQtPaintDeviceWrapper *>(ofTheHandle), &handle);
}

// ---- one begin and one end --------------------------------------------------------------------------------

void tst_PainterDevices::printerIsActiveForItsWholeLife()
{
    QImage image = kxCanvas();
    {
        KxQtPrinterPainter printer(&image);
        QCOMPARE(printer.wrappedDevice(), static_cast<QPaintDevice *>(&image));
        QVERIFY(printer.wrappedPainter()->isActive());
        QCOMPARE(printer.wrappedPainter()->device(), static_cast<QPaintDevice *>(&image));
        for (int episode = 0; episode < 3; ++episode) {
            QVERIFY(printer.beginDraw());
            QVERIFY(printer.wrappedPainter()->isActive());
            QVERIFY(printer.endDraw());
            QVERIFY(printer.wrappedPainter()->isActive());
        }
        QVERIFY(image.paintingActive());
    }
    QVERIFY(!image.paintingActive());
}

void tst_PainterDevices::printerDefaults()
{
    QImage image = kxCanvas();
    KxQtPrinterPainter printer(&image);
    QVERIFY(printer.beginDraw());
    const QPainter &painter = *printer.wrappedPainter();
    QCOMPARE(painter.pen().style(), Qt::SolidLine);
    QCOMPARE(painter.pen().color(), QColor(0, 0, 0, 255));
    QCOMPARE(painter.pen().width(), 0);
    QCOMPARE(painter.brush(), QBrush(QColor(0, 0, 0, 255), Qt::SolidPattern));
    QVERIFY(!painter.hasClipping());
    QVERIFY(printer.endDraw());
}

void tst_PainterDevices::printerStateIsLostAtTheEnd()
{
    QImage image = kxCanvas();
    KxQtPrinterPainter printer(&image);
    const QPen pen = printer.wrappedPainter()->pen();
    QVERIFY(printer.beginDraw());
    printer.setPen(PS_DASH, 5, RGB(255, 0, 0));
    printer.setBrush(RGB(255, 0, 0));
    printer.setROP2(26);
    printer.Rotate(30, 5, 5);
    printer.setBkMode(OPAQUE);
    QVERIFY(printer.endDraw());
    const QPainter &painter = *printer.wrappedPainter();
    QCOMPARE(painter.pen(), pen); // as it was before beginDraw(), which saves first
    QCOMPARE(painter.brush(), QBrush(Qt::NoBrush));
    QCOMPARE(printer.getROP2(), 0);
    QVERIFY(painter.transform().isIdentity());
    QCOMPARE(painter.backgroundMode(), Qt::TransparentMode);
}

void tst_PainterDevices::printerWithoutDevice()
{
    QStringList messages;
    {
        auto printer = std::make_unique<KxQtPrinterPainter>(nullptr);
        QVERIFY(!printer->wrappedDevice());
        QVERIFY(printer->wrappedPainter());
        QVERIFY(!printer->wrappedPainter()->isActive());
        QVERIFY(!printer->beginDraw());
        QVERIFY(!printer->endDraw());
        QVERIFY(!printer->wrappedPainter()->isActive());
        // Ending what was never begun may give Qt's warning.
        messages = kxMessagesOf([&printer] { printer.reset(); });
    }
    for (const QString &message : qAsConst(messages))
        QVERIFY2(message.startsWith(QLatin1String("QPainter::end: Painter not active")), qPrintable(message));
}

void tst_PainterDevices::printerKeepsItsOwnStateBelow()
{
    QImage image = kxCanvas();
    KxQtPrinterPainter printer(&image);
    printer.setPen(PS_SOLID, 7, RGB(0, 200, 0));
    const QPen pen = printer.wrappedPainter()->pen();
    QVERIFY(printer.beginDraw());
    QCOMPARE(printer.wrappedPainter()->pen().width(), 0);
    QVERIFY(printer.endDraw());
    QCOMPARE(printer.wrappedPainter()->pen(), pen);
}

void tst_PainterDevices::printerDoesNotApplyTheClip()
{
    POINT points[] = {{5, 6}, {15, 6}, {15, 12}, {5, 12}};
    unsigned int count = 4;
    QImage image = kxCanvas();
    PrinterFields printer(&image);
    QVERIFY(printer.beginDraw());
    printer.setClipRegion(points, &count, 1); // at once, for this episode
    printer.fillRect(CRect(0, 0, 48, 40), RGB(255, 0, 0));
    QVERIFY(printer.endDraw());
    QCOMPARE(kxTouched(image), 60);
    QVERIFY(!printer.clipRegion->isEmpty()); // kept
    QVERIFY(printer.beginDraw());
    QVERIFY(!printer.wrappedPainter()->hasClipping()); // but not applied again
    printer.fillRect(CRect(0, 0, 48, 40), RGB(255, 0, 0));
    QVERIFY(printer.endDraw());
    QCOMPARE(kxTouched(image), 48 * 40);
}

void tst_PainterDevices::printerClipBetweenEpisodes()
{
    // The painter is active, so that the clip stands below the episodes.
    POINT points[] = {{5, 6}, {15, 6}, {15, 12}, {5, 12}};
    unsigned int count = 4;
    QImage image = kxCanvas();
    KxQtPrinterPainter printer(&image);
    printer.setClipRegion(points, &count, 1);
    QVERIFY(printer.wrappedPainter()->hasClipping());
    for (int episode = 0; episode < 2; ++episode) {
        QVERIFY(printer.beginDraw());
        printer.fillRect(CRect(0, 0, 48, 40), RGB(255, 0, 0));
        QVERIFY(printer.endDraw());
        QCOMPARE(kxTouched(image), 60);
    }
    printer.setClipRegion(nullptr, nullptr, 0);
    QVERIFY(!printer.wrappedPainter()->hasClipping());
    // An empty region at beginDraw() does not take a clip away either: nothing is applied there.
    printer.wrappedPainter()->setClipRect(0, 0, 1, 1);
    QVERIFY(printer.beginDraw());
    QVERIFY(printer.wrappedPainter()->hasClipping());
    QVERIFY(printer.endDraw());
}

void tst_PainterDevices::printerThroughItsBase()
{
    // beginDraw() and endDraw() are hidden, not overridden: the base's open and close the device.
    QImage image = kxCanvas();
    auto printer = std::make_unique<KxQtPrinterPainter>(&image);
    KxQtPainterWrapper &base = *printer;
    expectWarning(QStringLiteral("^QPainter::begin: (Painter already active|A paint device can only be)"));
    QVERIFY(base.beginDraw());
    QVERIFY(base.endDraw());
    QVERIFY(!printer->wrappedPainter()->isActive());
    kxMessagesOf([&printer] { printer.reset(); });
    QVERIFY(!image.paintingActive());
}

void tst_PainterDevices::printerDraws()
{
    const auto first = [](KxQtPainterWrapper &p) {
        p.setPen(PS_DASH, 3, RGB(200, 0, 0));
        p.setBrush(RGB(0, 0, 200));
        const POINT points[] = {{5, 5}, {40, 9}, {22, 33}};
        p.drawPolygon(points, 3);
        p.Rotate(30, 5, 5);
    };
    const auto second = [](KxQtPainterWrapper &p) {
        p.drawAlphaRect(CRect(10, 10, 30, 20), RGB(0, 200, 0), 90);
        p.drawText(5, 30, L"Hg", -1);
    };
    QImage image = kxCanvas();
    {
        KxQtPrinterPainter printer(&image);
        QVERIFY(printer.beginDraw());
        first(printer);
        QVERIFY(printer.endDraw());
        QVERIFY(printer.beginDraw());
        second(printer);
        QVERIFY(printer.endDraw());
    }
    QCOMPARE(image, kxDrawn(second, kxDrawn(first)));
    QVERIFY(kxTouched(image) > 0);
}

void tst_PainterDevices::printerLosesItsDevice()
{
    QImage image = kxCanvas();
    {
        KxQtPrinterPainter printer(&image);
        printer.setWrappedDevice(nullptr);
        QVERIFY(!printer.beginDraw());
        QVERIFY(!printer.endDraw());
        QVERIFY(printer.wrappedPainter()->isActive());
        QCOMPARE(printer.wrappedPainter()->brush(), QBrush(Qt::NoBrush)); // no defaults were set
    }
    QVERIFY(!image.paintingActive());
}

void tst_PainterDevices::pages()
{
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    QPdfWriter writer(&buffer);
    {
        KxQtPrinterPainter printer(&writer);
        QVERIFY(printer.wrappedPainter()->isActive());
        for (int page = 0; page < 2; ++page) {
            QVERIFY(printer.beginDraw());
            printer.setPen(PS_SOLID, 20, RGB(200, 0, 0));
            printer.drawLine(100, 100, 1000, 500 + page);
            QVERIFY(printer.endDraw());
            QVERIFY(printer.wrappedPainter()->isActive());
            if (page == 0)
                QVERIFY(writer.newPage()); // refused once the device is closed
        }
        QVERIFY(!buffer.data().contains("%%EOF"));
    }
    QVERIFY(buffer.data().startsWith("%PDF-"));
    QVERIFY(buffer.data().contains("%%EOF"));
    QCOMPARE(buffer.data().count("%%EOF"), 1); // one document
    QCOMPARE(pageCount(buffer.data()), 2);
}

void tst_PainterDevices::onePageAsBareQPainter()
{
    const auto paint = [](const std::function<void(QPdfWriter &)> &draw) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        draw(writer);
        return buffer.data().size();
    };
    const int bare = paint([](QPdfWriter &writer) {
        QPainter painter(&writer);
        painter.save();
        QPen pen(Qt::SolidLine);
        pen.setColor(QColor(200, 0, 0));
        pen.setWidth(20);
        painter.setPen(pen);
        painter.setBrush(QBrush(QColor(0, 0, 0)));
        painter.drawLine(100, 100, 1000, 500);
        painter.restore();
    });
    const int printed = paint([](QPdfWriter &writer) {
        KxQtPrinterPainter printer(&writer);
        printer.beginDraw();
        printer.setPen(PS_SOLID, 20, RGB(200, 0, 0));
        printer.drawLine(100, 100, 1000, 500);
        printer.endDraw();
    });
    QCOMPARE(printed, bare);
}

// ---- the handle of a device -------------------------------------------------------------------------------

void tst_PainterDevices::metrics_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("depth");
    QTest::newRow("31 by 17, 32 bits") << 31 << 17 << int(QImage::Format_RGB32) << 32;
    QTest::newRow("1 by 400, 16 bits") << 1 << 400 << int(QImage::Format_RGB16) << 16;
    QTest::newRow("5 by 6, 24 bits") << 5 << 6 << int(QImage::Format_RGB888) << 24;
    QTest::newRow("7 by 8, 8 bits") << 7 << 8 << int(QImage::Format_Grayscale8) << 8;
    QTest::newRow("9 by 10, 1 bit") << 9 << 10 << int(QImage::Format_Mono) << 1;
}

void tst_PainterDevices::metrics()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, format);
    QFETCH(int, depth);
    QImage image(width, height, QImage::Format(format));
    const KxQtPaintDeviceWrapper handle(&image);
    QCOMPARE(handle.width(), width);
    QCOMPARE(handle.height(), height);
    QCOMPARE(handle.depth(), depth);
    QPixmap pixmap(3, 4);
    KxQtPaintDeviceWrapper changed(&pixmap);
    QCOMPARE(changed.width(), 3);
    QCOMPARE(changed.height(), 4);
    changed.setDestinationDevice(&image);
    QCOMPARE(changed.width(), width);
    QCOMPARE(changed.height(), height);
    QCOMPARE(changed.depth(), depth);
}

void tst_PainterDevices::handleConstruction()
{
    const HandleFields bare;
    QVERIFY(!bare.destinationDevice());
    QVERIFY(!bare.destination);
    QVERIFY(!bare.painterWrapper);
    QImage image = kxCanvas();
    HandleFields handle(&image);
    QCOMPARE(handle.destinationDevice(), static_cast<QPaintDevice *>(&image));
    QVERIFY(!handle.painterWrapper);
    handle.setDestinationDevice(nullptr);
    QVERIFY(!handle.destinationDevice());
    QVERIFY(!handle.painterWrapper);
}

void tst_PainterDevices::handleEpisodesDoNothing()
{
    HandleFields bare;
    QVERIFY(bare.beginDraw()); // even without a device
    QVERIFY(bare.endDraw());
    QVERIFY(bare.endDraw());
    QVERIFY(!bare.painterWrapper);
    QImage image = kxCanvas();
    HandleFields handle(&image);
    QVERIFY(handle.beginDraw());
    QVERIFY(!image.paintingActive());
    QVERIFY(!handle.painterWrapper);
    QVERIFY(!handle.painter()->wrappedPainter()->isActive());
    QVERIFY(handle.beginDraw());
    QVERIFY(!handle.painter()->wrappedPainter()->isActive());
    QVERIFY(handle.painter()->beginDraw());
    QVERIFY(handle.endDraw());
    QVERIFY(handle.painter()->wrappedPainter()->isActive());
    QVERIFY(handle.painter()->endDraw());
}

void tst_PainterDevices::onePainter()
{
    QImage image = kxCanvas();
    HandleFields handle(&image);
    KxQtPainterWrapper *const painter = handle.painter();
    QVERIFY(painter);
    QCOMPARE(handle.painterWrapper, painter);
    QCOMPARE(painter->wrappedDevice(), static_cast<QPaintDevice *>(&image));
    QCOMPARE(handle.painter(), painter);
    QVERIFY(painter->beginDraw());
    painter->fillRect(CRect(0, 0, 10, 10), RGB(255, 0, 0));
    QCOMPARE(handle.painter(), painter);
    QVERIFY(painter->endDraw());
    QCOMPARE(handle.painter(), painter);
    QCOMPARE(kxTouched(image), 100);
}

void tst_PainterDevices::painterKeepsItsDevice()
{
    QImage first = kxCanvas();
    QImage second = kxCanvas();
    KxQtPaintDeviceWrapper handle(&first);
    handle.setDestinationDevice(&second); // before there is a painter
    KxQtPainterWrapper *const painter = handle.painter();
    QCOMPARE(painter->wrappedDevice(), static_cast<QPaintDevice *>(&second));
    handle.setDestinationDevice(&first);
    QCOMPARE(handle.destinationDevice(), static_cast<QPaintDevice *>(&first));
    QCOMPARE(handle.painter(), painter);
    QCOMPARE(painter->wrappedDevice(), static_cast<QPaintDevice *>(&second));
    QVERIFY(painter->beginDraw());
    painter->drawPoint(3, 3);
    QVERIFY(painter->endDraw());
    QCOMPARE(kxTouched(first), 0);
    QCOMPARE(kxTouched(second), 1);
}

void tst_PainterDevices::painterWithoutDevice()
{
    QImage image = kxCanvas();
    KxQtPaintDeviceWrapper handle;
    KxQtPainterWrapper *const painter = handle.painter();
    QVERIFY(painter);
    QVERIFY(!painter->wrappedDevice());
    QVERIFY(!painter->beginDraw());
    handle.setDestinationDevice(&image);
    QCOMPARE(handle.painter(), painter);
    QVERIFY(!painter->wrappedDevice());
}

void tst_PainterDevices::handleFreesItsPainter()
{
    // A painter that is deleted while it draws closes its device, with a warning.
    QImage image = kxCanvas();
    auto handle = std::make_unique<KxQtPaintDeviceWrapper>(&image);
    QVERIFY(handle->painter()->beginDraw());
    QVERIFY(image.paintingActive());
    expectWarning(QStringLiteral("^QPainter::end: Painter ended with 2 saved states$"));
    handle.reset();
    QVERIFY(!image.paintingActive());

    // Once: a derived class that did so itself says so by the field.
    const KxQtPainterWrapper *made = nullptr;
    {
        OwningHandle owning(&image);
        made = owning.painter();
    }
    QVERIFY(made);
}

void tst_PainterDevices::handleDestructor()
{
    int destroyed = 0;
    std::unique_ptr<KxQtPaintDeviceWrapper> handle = std::make_unique<CountingHandle>(destroyed);
    QVERIFY(handle->painter());
    QCOMPARE(destroyed, 0);
    handle.reset(); // through the base
    QCOMPARE(destroyed, 1);
}

void tst_PainterDevices::inertCallsDoNotReachThePainter()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    POINT point = {7, 8};
    const POINT points[] = {{1, 1}, {30, 1}, {30, 30}};
    const int count = 3;
    QCOMPARE(KxKernel32::MoveToEx(&wrapper, 3, 4, &point), 0);
    QCOMPARE(KxKernel32::LineTo(&wrapper, 30, 30), 0);
    QCOMPARE(KxKernel32::Polyline(&wrapper, points, 3), 0);
    QCOMPARE(KxKernel32::SetPolyFillMode(&wrapper, 1), 0);
    QCOMPARE(KxKernel32::PolyPolygon(&wrapper, points, &count, 1), 0);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(point.x, 7);
    QCOMPARE(point.y, 8);
    QCOMPARE(kxTouched(image), 0);
}

KX_TEST_MAIN(tst_PainterDevices)
#include "tst_painter_devices.moc"
