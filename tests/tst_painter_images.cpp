// SPDX-License-Identifier: MIT
// Pixels of the caller's memory, drawn where their size says; and images that a guard puts back.

#include "support/KxPaintListener.h"
#include "support/KxPainterStage.h"
#include "support/KxTestCase.h"

#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

#include <cstring>
#include <limits>
#include <memory>
#include <vector>

namespace {

/// Bytes that differ from one to the next.
std::vector<unsigned char> someBytes(int count)
{
    std::vector<unsigned char> bytes(static_cast<size_t>(count));
    unsigned int value = 7;
    for (unsigned char &byte : bytes) {
        value = value * 37 + 11;
        byte = static_cast<unsigned char>(value >> 3);
    }
    return bytes;
}

/// A device that draws nothing and keeps what it is told about the last image.
class ImageListener : public KxPaintListener
{
public:
    int images = 0;
    QRectF target;
    QRectF part;
    QSize size;
    int format = 0;
    int stride = 0;
    const unsigned char *bits = nullptr;

protected:
    void drawImage(const QRectF &rect, const QImage &image, const QRectF &source,
        Qt::ImageConversionFlags) override
    {
        ++images;
        target = rect;
        part = source;
        size = image.size();
        format = image.format();
        stride = image.bytesPerLine();
        bits = image.constBits();
    }
};

/// What a guard keeps: the painter wrapper and the copy.
struct GuardFields
{
    KxQtPainterWrapper *dc;
    QImage *backup;
};

GuardFields fieldsOf(const KxQtGrDCAutoSaver &guard)
{
    static_assert(sizeof(GuardFields) == sizeof(KxQtGrDCAutoSaver));
    GuardFields fields;
    std::memcpy(static_cast<void *>(&fields), static_cast<const void *>(&guard), sizeof fields);
    return fields;
}

/// One episode of scribbling over much of a device.
void scribble(KxQtPainterWrapper &wrapper)
{
    wrapper.beginDraw();
    wrapper.fillRect(CRect(3, 3, 30, 30), RGB(200, 10, 30));
    wrapper.drawLine(0, 0, 47, 39);
    wrapper.endDraw();
}

QImage scribbled(QImage image = kxCanvas())
{
    KxQtPainterWrapper wrapper(&image);
    scribble(wrapper);
    return image;
}

} // namespace

class tst_PainterImages : public KxTestCase
{
    Q_OBJECT

private slots:
    void bits_data();
    void bits();
    void bitsByHand_data();
    void bitsByHand();
    void bitsAsQtGetsThem_data();
    void bitsAsQtGetsThem();
    void coloursOfIndices_data();
    void coloursOfIndices();
    void sizeIsThePlace_data();
    void sizeIsThePlace();
    void lastArgumentsAreIgnored_data();
    void lastArgumentsAreIgnored();
    void invalidBits_data();
    void invalidBits();
    void callersMemory();

    void guardPutsBack_data();
    void guardPutsBack();
    void guardOverTheCallersMemory();
    void guardFields();
    void inertGuard_data();
    void inertGuard();
    void inertGuardOnWidget();
    void nestedGuards();
    void guardLeavesWhatTheCopyDoesNotCover();
    void guardHonoursTheClip();
    void deviceChangedUnderTheGuard();
    void deviceGoneUnderTheGuard_data();
    void deviceGoneUnderTheGuard();
    void guardCopiesAtItsBeginning();
    void guardDoesNotTouchTheDeviceAtItsBeginning();
};

// ---- the caller's pixels ----------------------------------------------------------------------------------

void tst_PainterImages::bits_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("stride");
    QTest::newRow("RGB32") << int(QImage::Format_RGB32) << 5 << 20;
    QTest::newRow("ARGB32") << int(QImage::Format_ARGB32) << 5 << 20;
    QTest::newRow("RGB16, 5 wide: 10 bytes in 12") << int(QImage::Format_RGB16) << 5 << 12;
    QTest::newRow("RGB555, 7 wide: 14 bytes in 16") << int(QImage::Format_RGB555) << 7 << 16;
    QTest::newRow("RGB888, 3 wide: 9 bytes in 12") << int(QImage::Format_RGB888) << 3 << 12;
    QTest::newRow("RGB888, 4 wide: 12 bytes") << int(QImage::Format_RGB888) << 4 << 12;
    QTest::newRow("BGR888, 5 wide: 15 bytes in 16") << int(QImage::Format_BGR888) << 5 << 16;
    QTest::newRow("Grayscale8, 3 wide: 3 bytes in 4") << int(QImage::Format_Grayscale8) << 3 << 4;
    QTest::newRow("Grayscale8, 9 wide: 9 bytes in 12") << int(QImage::Format_Grayscale8) << 9 << 12;
    QTest::newRow("Alpha8, 9 wide: 9 bytes in 12") << int(QImage::Format_Alpha8) << 9 << 12;
    QTest::newRow("RGBA8888") << int(QImage::Format_RGBA8888) << 5 << 20;
    QTest::newRow("RGBX64") << int(QImage::Format_RGBX64) << 5 << 40;
}

void tst_PainterImages::bits()
{
    QFETCH(int, format);
    QFETCH(int, width);
    QFETCH(int, stride);
    constexpr int height = 6;
    std::vector<unsigned char> bytes = someBytes(stride * height);
    const QImage picture = kxDrawn(
        [&](KxQtPainterWrapper &p) { p.drawImage(width, height, bytes.data(), 0, 0, format); });
    const QImage expected = kxModelled([&](QPainter &p) {
        p.drawImage(width, height, QImage(bytes.data(), width, height, stride, QImage::Format(format)));
    });
    QCOMPARE(picture, expected);
    QVERIFY(kxTouched(picture) > 0);
    QVERIFY(QRect(width, height, width, height).contains(kxTouchedRect(picture)));
}

void tst_PainterImages::bitsByHand_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("stride");
    QTest::newRow("RGB888: red, green, blue; rows of 12 bytes") << int(QImage::Format_RGB888) << 12;
    QTest::newRow("Grayscale8: one byte; rows of 4 bytes") << int(QImage::Format_Grayscale8) << 4;
    QTest::newRow("RGB32: blue, green, red; rows of 12 bytes") << int(QImage::Format_RGB32) << 12;
}

/// Three pixels in a row, read without Qt.
void tst_PainterImages::bitsByHand()
{
    QFETCH(int, format);
    QFETCH(int, stride);
    std::vector<unsigned char> bytes = someBytes(stride * 4);
    const QImage picture = kxDrawn(
        [&](KxQtPainterWrapper &p) { p.drawImage(3, 4, bytes.data(), 0, 0, format); });
    QImage expected = kxCanvas();
    for (int y = 0; y < 4; ++y) {
        const unsigned char *row = bytes.data() + y * stride;
        for (int x = 0; x < 3; ++x) {
            QRgb pixel = qRgb(row[x], row[x], row[x]);
            if (format == QImage::Format_RGB888)
                pixel = qRgb(row[3 * x], row[3 * x + 1], row[3 * x + 2]);
            else if (format == QImage::Format_RGB32)
                pixel = qRgb(row[4 * x + 2], row[4 * x + 1], row[4 * x]);
            expected.setPixel(3 + x, 4 + y, pixel);
        }
    }
    QCOMPARE(picture, expected);
}

void tst_PainterImages::bitsAsQtGetsThem_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("stride");
    QTest::newRow("mono, 9 wide: 2 bytes in 4") << int(QImage::Format_Mono) << 9 << 4;
    QTest::newRow("mono, 32 wide: 4 bytes") << int(QImage::Format_Mono) << 32 << 4;
    QTest::newRow("mono, 33 wide: 5 bytes in 8") << int(QImage::Format_Mono) << 33 << 8;
    QTest::newRow("mono, least bit first, 9 wide: 2 bytes in 4") << int(QImage::Format_MonoLSB) << 9 << 4;
    QTest::newRow("indices, 5 wide: 5 bytes in 8") << int(QImage::Format_Indexed8) << 5 << 8;
    QTest::newRow("RGB32, 5 wide: 20 bytes") << int(QImage::Format_RGB32) << 5 << 20;
    QTest::newRow("RGB16, 5 wide: 10 bytes in 12") << int(QImage::Format_RGB16) << 5 << 12;
    QTest::newRow("RGB888, 3 wide: 9 bytes in 12") << int(QImage::Format_RGB888) << 3 << 12;
    QTest::newRow("Grayscale8, 3 wide: 3 bytes in 4") << int(QImage::Format_Grayscale8) << 3 << 4;
}

/// The image stands over the caller's memory, uncopied, all of it at its place in its size.
void tst_PainterImages::bitsAsQtGetsThem()
{
    QFETCH(int, format);
    QFETCH(int, width);
    QFETCH(int, stride);
    constexpr int height = 6;
    std::vector<unsigned char> bytes = someBytes(stride * height);
    ImageListener device;
    KxQtPainterWrapper wrapper(&device);
    QVERIFY(wrapper.beginDraw());
    wrapper.drawImage(width, height, bytes.data(), 70, 80, format);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(device.images, 1);
    QCOMPARE(device.target, QRectF(width, height, width, height));
    QCOMPARE(device.part, QRectF(0, 0, width, height));
    QCOMPARE(device.size, QSize(width, height));
    QCOMPARE(device.format, format);
    QCOMPARE(device.stride, stride);
    QCOMPARE(device.bits, static_cast<const unsigned char *>(bytes.data()));
}

void tst_PainterImages::coloursOfIndices_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("byte");
    QTest::addColumn<QVector<QRgb>>("expected");
    const QRgb black = qRgb(0, 0, 0);
    const QRgb white = qRgb(255, 255, 255);
    QTest::newRow("a bit, highest first: black or white")
        << int(QImage::Format_Mono) << 0xA0 << QVector<QRgb>{white, black, white, black};
    QTest::newRow("a bit, lowest first: black or white")
        << int(QImage::Format_MonoLSB) << 0x03 << QVector<QRgb>{white, white, black, black};
    QTest::newRow("an index: a shade of grey")
        << int(QImage::Format_Indexed8) << 0x7B << QVector<QRgb>(4, qRgb(0x7B, 0x7B, 0x7B));
}

/// The caller's memory has no colours; these are the ones that the indices stand for.
void tst_PainterImages::coloursOfIndices()
{
    QFETCH(int, format);
    QFETCH(int, byte);
    QFETCH(QVector<QRgb>, expected);
    std::vector<unsigned char> bytes(4, static_cast<unsigned char>(byte));
    const QImage picture =
        kxDrawn([&](KxQtPainterWrapper &p) { p.drawImage(4, 1, bytes.data(), 0, 0, format); });
    for (int x = 0; x < 4; ++x)
        QCOMPARE(picture.pixel(4 + x, 1), expected.at(x));
    QCOMPARE(kxTouchedRect(picture).united(QRect(4, 1, 4, 1)), QRect(4, 1, 4, 1));
}

void tst_PainterImages::sizeIsThePlace_data()
{
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("3 by 2 at (3, 2)") << 3 << 2 << QRect(3, 2, 3, 2);
    QTest::newRow("1 by 1 at (1, 1)") << 1 << 1 << QRect(1, 1, 1, 1);
    QTest::newRow("10 by 16 at (10, 16)") << 10 << 16 << QRect(10, 16, 10, 16);
    QTest::newRow("30 by 2 at (30, 2), cut off at the canvas' end") << 30 << 2 << QRect(30, 2, 18, 2);
    QTest::newRow("48 by 4: outside of the canvas") << 48 << 4 << QRect();
}

void tst_PainterImages::sizeIsThePlace()
{
    QFETCH(int, a);
    QFETCH(int, b);
    QFETCH(QRect, expected);
    std::vector<unsigned char> bytes(static_cast<size_t>(4 * a * b), 0x55);
    const QImage picture = kxDrawn(
        [&](KxQtPainterWrapper &p) { p.drawImage(a, b, bytes.data(), 0, 0, QImage::Format_RGB32); });
    QCOMPARE(kxTouchedRect(picture), expected);
    QCOMPARE(kxCount(picture, 0xFF555555U), expected.width() * expected.height());
}

void tst_PainterImages::lastArgumentsAreIgnored_data()
{
    QTest::addColumn<int>("c");
    QTest::addColumn<int>("d");
    QTest::newRow("0, 0") << 0 << 0;
    QTest::newRow("7, 8") << 7 << 8;
    QTest::newRow("-7, -8") << -7 << -8;
    QTest::newRow("the largest") << std::numeric_limits<int>::max() << std::numeric_limits<int>::max();
    QTest::newRow("the smallest") << std::numeric_limits<int>::min() << std::numeric_limits<int>::min();
}

void tst_PainterImages::lastArgumentsAreIgnored()
{
    QFETCH(int, c);
    QFETCH(int, d);
    std::vector<unsigned char> bytes(4 * 5 * 6, 0x55);
    const QImage picture = kxDrawn(
        [&](KxQtPainterWrapper &p) { p.drawImage(5, 6, bytes.data(), c, d, QImage::Format_RGB32); });
    QCOMPARE(kxTouchedRect(picture), QRect(5, 6, 5, 6));
    QCOMPARE(kxTouched(picture), 30);
}

void tst_PainterImages::invalidBits_data()
{
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<bool>("null");
    QTest::addColumn<int>("format");
    QTest::newRow("format 0") << 5 << 6 << false << 0;
    QTest::newRow("format -1") << 5 << 6 << false << -1;
    QTest::newRow("the first format beyond Qt's") << 5 << 6 << false << int(QImage::NImageFormats);
    QTest::newRow("format 1000") << 5 << 6 << false << 1000;
    QTest::newRow("the smallest format") << 5 << 6 << false << std::numeric_limits<int>::min();
    QTest::newRow("the largest format") << 5 << 6 << false << std::numeric_limits<int>::max();
    QTest::newRow("no width") << 0 << 6 << false << int(QImage::Format_RGB32);
    QTest::newRow("no height") << 5 << 0 << false << int(QImage::Format_RGB32);
    QTest::newRow("a negative width") << -5 << 6 << false << int(QImage::Format_RGB32);
    QTest::newRow("a negative height") << 5 << -6 << false << int(QImage::Format_RGB32);
    QTest::newRow("no memory") << 5 << 6 << true << int(QImage::Format_RGB32);
}

void tst_PainterImages::invalidBits()
{
    QFETCH(int, a);
    QFETCH(int, b);
    QFETCH(bool, null);
    QFETCH(int, format);
    std::vector<unsigned char> bytes = someBytes(4 * 5 * 6);
    const QImage picture = kxDrawn(
        [&](KxQtPainterWrapper &p) { p.drawImage(a, b, null ? nullptr : bytes.data(), 0, 0, format); });
    QVERIFY(!picture.isNull());
    QCOMPARE(kxTouched(picture), 0);
}

void tst_PainterImages::callersMemory()
{
    const std::vector<unsigned char> before = someBytes(4 * 5 * 6);
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    auto bytes = std::make_unique<std::vector<unsigned char>>(before);
    wrapper.drawImage(5, 6, bytes->data(), 0, 0, QImage::Format_RGB32);
    QCOMPARE(*bytes, before); // not written to
    bytes.reset();            // and not looked at any longer
    wrapper.drawLine(0, 0, 9, 9);
    QVERIFY(wrapper.endDraw());
    QVERIFY(kxTouched(image) > 30);
}

// ---- the guard --------------------------------------------------------------------------------------------

void tst_PainterImages::guardPutsBack_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("RGB32") << int(QImage::Format_RGB32);
    QTest::newRow("RGB16") << int(QImage::Format_RGB16);
    QTest::newRow("RGB888") << int(QImage::Format_RGB888);
    QTest::newRow("Grayscale8") << int(QImage::Format_Grayscale8);
    QTest::newRow("ARGB32, opaque") << int(QImage::Format_ARGB32);
    QTest::newRow("ARGB32_Premultiplied, opaque") << int(QImage::Format_ARGB32_Premultiplied);
}

void tst_PainterImages::guardPutsBack()
{
    QFETCH(int, format);
    const QImage source = kxModelled([](QPainter &p) { p.drawEllipse(4, 4, 30, 20); });
    QImage image = source.convertToFormat(QImage::Format(format));
    const QImage before = image.copy();
    KxQtPainterWrapper wrapper(&image);
    {
        const KxQtGrDCAutoSaver guard(&wrapper);
        QCOMPARE(image, before);
        QVERIFY(!wrapper.wrappedPainter()->isActive());
        scribble(wrapper);
        scribble(wrapper);
        QCOMPARE(image, scribbled(before));
        QVERIFY(image != before);
    }
    QCOMPARE(image, before);
    QCOMPARE(int(image.format()), format);
    QVERIFY(!image.paintingActive());
}

void tst_PainterImages::guardOverTheCallersMemory()
{
    // The copy does not part the image from the memory that it stands over.
    std::vector<unsigned char> bytes(4 * 12 * 10, 0x55);
    const std::vector<unsigned char> before = bytes;
    QImage image(bytes.data(), 12, 10, QImage::Format_RGB32);
    image.fill(0xFF555555U);
    const std::vector<unsigned char> opaque = bytes;
    QVERIFY(opaque != before);
    KxQtPainterWrapper wrapper(&image);
    {
        const KxQtGrDCAutoSaver guard(&wrapper);
        scribble(wrapper);
        QVERIFY(bytes != opaque);
    }
    QCOMPARE(bytes, opaque);
}

void tst_PainterImages::guardFields()
{
    QCOMPARE(sizeof(KxQtGrDCAutoSaver), size_t(16));
    QImage image = scribbled();
    KxQtPainterWrapper wrapper(&image);
    const KxQtGrDCAutoSaver guard(&wrapper);
    const GuardFields fields = fieldsOf(guard);
    QCOMPARE(fields.dc, &wrapper);
    QVERIFY(fields.backup);
    QCOMPARE(*fields.backup, image);
    QVERIFY(fields.backup != &image);
}

void tst_PainterImages::inertGuard_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("no HDC") << 0;
    QTest::newRow("no device") << 1;
    QTest::newRow("a pixmap") << 2;
}

void tst_PainterImages::inertGuard()
{
    QFETCH(int, which);
    QPixmap pixmap(48, 40);
    pixmap.fill(QColor(kxCanvasColour));
    KxQtPainterWrapper onPixmap(&pixmap);
    KxQtPainterWrapper onNothing;
    KxQtPainterWrapper *const wrappers[] = {nullptr, &onNothing, &onPixmap};
    KxQtPainterWrapper *const wrapper = wrappers[which];
    {
        const KxQtGrDCAutoSaver guard(wrapper);
        QVERIFY(!fieldsOf(guard).dc);
        QVERIFY(!fieldsOf(guard).backup);
        scribble(onPixmap);
    }
    QCOMPARE(pixmap.toImage().convertToFormat(QImage::Format_RGB32), scribbled());
}

void tst_PainterImages::inertGuardOnWidget()
{
    QWidget widget;
    KxQtPainterWrapper wrapper(&widget);
    {
        // Painting on a widget outside of its paint event would give a warning.
        const KxQtGrDCAutoSaver guard(&wrapper);
        QVERIFY(!fieldsOf(guard).dc);
        QVERIFY(!fieldsOf(guard).backup);
        QVERIFY(!wrapper.wrappedPainter()->isActive());
    }
    QVERIFY(!wrapper.wrappedPainter()->isActive());

    // Nor does one that became an image's in between.
    QImage image = kxCanvas();
    {
        const KxQtGrDCAutoSaver guard(&wrapper);
        wrapper.setWrappedDevice(&image);
        scribble(wrapper);
    }
    QCOMPARE(image, scribbled());
}

void tst_PainterImages::nestedGuards()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    {
        const KxQtGrDCAutoSaver outer(&wrapper);
        scribble(wrapper);
        const QImage between = image.copy();
        {
            const KxQtGrDCAutoSaver inner(&wrapper);
            wrapper.beginDraw();
            wrapper.fillRect(CRect(0, 0, 48, 40), RGB(9, 9, 9));
            wrapper.endDraw();
        }
        QCOMPARE(image, between);
    }
    QCOMPARE(kxTouched(image), 0);
}

void tst_PainterImages::guardLeavesWhatTheCopyDoesNotCover()
{
    QImage image(48, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 10; ++x)
            image.setPixel(x, y, kxCanvasColour);
    }
    KxQtPainterWrapper wrapper(&image);
    {
        const KxQtGrDCAutoSaver guard(&wrapper);
        wrapper.beginDraw();
        wrapper.fillRect(CRect(0, 0, 48, 40), RGB(255, 0, 0));
        wrapper.endDraw();
    }
    QCOMPARE(kxCount(image, kxCanvasColour), 10 * 40);
    QCOMPARE(kxCount(image, 0xFFFF0000U), 38 * 40);
}

void tst_PainterImages::guardHonoursTheClip()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    {
        const KxQtGrDCAutoSaver guard(&wrapper);
        wrapper.beginDraw();
        wrapper.fillRect(CRect(0, 0, 48, 40), RGB(255, 0, 0));
        wrapper.endDraw();
        POINT points[] = {{5, 6}, {15, 6}, {15, 12}, {5, 12}};
        unsigned int count = 4;
        wrapper.setClipRegion(points, &count, 1);
    }
    QCOMPARE(kxCount(image, kxCanvasColour), 60);
}

void tst_PainterImages::deviceChangedUnderTheGuard()
{
    // The copy goes to the image that is there at the end, over the whole of it.
    QImage first = scribbled();
    const QImage before = first.copy();
    QImage second(96, 20, QImage::Format_RGB32);
    second.fill(Qt::green);
    KxQtPainterWrapper wrapper(&first);
    {
        const KxQtGrDCAutoSaver guard(&wrapper);
        wrapper.beginDraw();
        wrapper.fillRect(CRect(0, 0, 48, 40), RGB(9, 9, 9));
        wrapper.endDraw();
        wrapper.setWrappedDevice(&second);
    }
    QCOMPARE(kxCount(first, 0xFF090909U), 48 * 40);
    QImage expected(96, 20, QImage::Format_RGB32);
    QPainter painter(&expected);
    painter.drawImage(QRect(0, 0, 96, 20), before);
    painter.end();
    QCOMPARE(second, expected);
}

void tst_PainterImages::deviceGoneUnderTheGuard_data()
{
    QTest::addColumn<bool>("pixmap");
    QTest::newRow("no device any longer") << false;
    QTest::newRow("a pixmap") << true;
}

void tst_PainterImages::deviceGoneUnderTheGuard()
{
    QFETCH(bool, pixmap);
    QImage image = kxCanvas();
    QPixmap other(48, 40);
    other.fill(Qt::green);
    KxQtPainterWrapper wrapper(&image);
    {
        const KxQtGrDCAutoSaver guard(&wrapper);
        scribble(wrapper);
        wrapper.setWrappedDevice(pixmap ? &other : nullptr);
    }
    QCOMPARE(image, scribbled()); // stays as it was drawn
    QCOMPARE(kxCount(other.toImage(), 0xFF00FF00U), 48 * 40);
}

void tst_PainterImages::guardCopiesAtItsBeginning()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    scribble(wrapper);
    {
        const KxQtGrDCAutoSaver guard(&wrapper);
        image.fill(kxCanvasColour); // not by the painter
        QCOMPARE(*fieldsOf(guard).backup, scribbled());
    }
    QCOMPARE(image, scribbled());
}

void tst_PainterImages::guardDoesNotTouchTheDeviceAtItsBeginning()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    std::unique_ptr<KxQtGrDCAutoSaver> guard;
    QVERIFY(wrapper.beginDraw());
    wrapper.fillRect(CRect(0, 0, 10, 10), RGB(255, 0, 0));
    guard = std::make_unique<KxQtGrDCAutoSaver>(&wrapper); // in the midst of drawing
    QVERIFY(wrapper.wrappedPainter()->isActive());
    wrapper.fillRect(CRect(0, 0, 48, 40), RGB(0, 255, 0));
    QVERIFY(wrapper.endDraw());
    guard.reset();
    QCOMPARE(kxCount(image, 0xFFFF0000U), 100);
    QCOMPARE(kxTouched(image), 100);
}

KX_TEST_MAIN(tst_PainterImages)
#include "tst_painter_images.moc"
