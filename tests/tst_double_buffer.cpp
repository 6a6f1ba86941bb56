// SPDX-License-Identifier: MIT
// The pair of images behind a window: when it is made, kept and deleted; the layout of its class.

#include "KxClassLayout.h"
#include "KxDoubleBufferStage.h"
#include "KxMemoryLimit.h"
#include "KxTestCase.h"

#include <QtCore/QPointer>
#include <QtGui/QPalette>
#include <QtGui/QPixmap>

#include <afxwin.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <type_traits>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(std::shared_ptr<QPaintDevice>)

namespace {

/// No pair, and no image of the constructor.
void verifyNoImages(const Buffer &buffer)
{
    QVERIFY(!buffer.memImage());
    QVERIFY(!buffer.memBits());
    QVERIFY(!buffer.frontImage());
    QVERIFY(!buffer.memPainter()->wrappedDevice());
    QVERIFY(!buffer.frontPainter()->wrappedDevice());
    QCOMPARE(buffer.m_imagesCreated, 0);
}

/// A pair of this size, all zero.
void verifyFreshPair(const Buffer &buffer, int width, int height)
{
    QVERIFY(buffer.memImage());
    QVERIFY(buffer.frontImage());
    QCOMPARE(*buffer.memImage(), plain(width, height, 0));
    QCOMPARE(*buffer.frontImage(), plain(width, height, 0));
    QCOMPARE(buffer.memImage()->constBits(), static_cast<const uchar *>(buffer.memBits()));
    QVERIFY(buffer.memPainter()->wrappedDevice() == buffer.memImage());
    QVERIFY(buffer.frontPainter()->wrappedDevice() == buffer.frontImage());
    QCOMPARE(buffer.m_imagesCreated, 1);
}

} // namespace

class DoubleBufferTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void made_data();
    void made() { run(); }
    void constructorsFrontImage_data();
    void constructorsFrontImage();
    void constructorsNullImage_data();
    void constructorsNullImage();
    void pairOfASize_data();
    void pairOfASize();
    void nullPair_data();
    void nullPair();
    void rowsWithoutAnImage_data();
    void rowsWithoutAnImage();
    void keptOrRemade_data();
    void keptOrRemade();
    void pair_data();
    void pair() { run(); }
    void destroyed_data();
    void destroyed() { run(); }
    void backupBits_data();
    void backupBits() { run(); }
    void lifetime_data();
    void lifetime() { run(); }
    void layout_data();
    void layout();
    void table();

private:
    static void run()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

// ---- construction ---------------------------------------------------------------------------------------

void DoubleBufferTest::made_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("without arguments: no destination") << Promise([] {
        const Buffer buffer;
        QVERIFY(!buffer.destinationDevice());
    });
    QTest::newRow("without arguments: no images, flag 0") << Promise([] {
        const Buffer buffer;
        verifyNoImages(buffer);
    });
    QTest::newRow("without arguments: no linked buffer") << Promise([] {
        const Buffer buffer;
        QVERIFY(!buffer.m_frontBuffer);
    });
    QTest::newRow("without arguments: no painter of the destination yet") << Promise([] {
        const Buffer buffer;
        QVERIFY(!buffer.painterWrapper);
    });
    QTest::newRow("a null device: no destination, no images, flag 0") << Promise([] {
        const Buffer buffer(nullptr);
        QVERIFY(!buffer.destinationDevice());
        QVERIFY(!buffer.m_frontBuffer);
        verifyNoImages(buffer);
    });
    QTest::newRow("two painters from the start, each of its own") << Promise([] {
        const Buffer first;
        const Buffer second;
        QVERIFY(first.memPainter());
        QVERIFY(first.frontPainter());
        QVERIFY(first.memPainter() != first.frontPainter());
        QVERIFY(first.memPainter() != second.memPainter());
        QVERIFY(first.frontPainter() != second.frontPainter());
    });
    QTest::newRow("a window: it is the destination") << Promise([] {
        Canvas window;
        const Buffer buffer(&window);
        QVERIFY(buffer.destinationDevice() == static_cast<QPaintDevice *>(&window));
    });
    QTest::newRow("a window: no memory image, flag 0") << Promise([] {
        Canvas window;
        const Buffer buffer(&window);
        QVERIFY(!buffer.memImage());
        QVERIFY(!buffer.memBits());
        QVERIFY(!buffer.memPainter()->wrappedDevice());
        QCOMPARE(buffer.m_imagesCreated, 0);
        QVERIFY(!buffer.m_frontBuffer);
    });
    QTest::newRow("a window: painter() is a third painter, on the window") << Promise([] {
        Canvas window;
        Buffer buffer(&window);
        QVERIFY(buffer.painter() != buffer.memPainter());
        QVERIFY(buffer.painter() != buffer.frontPainter());
        QVERIFY(buffer.painter()->wrappedDevice() == static_cast<QPaintDevice *>(&window));
    });
    QTest::newRow("getHPalette: a default-constructed QPalette, the same at every call") << Promise([] {
        const Buffer buffer;
        QVERIFY(buffer.getHPalette());
        QCOMPARE(*reinterpret_cast<QPalette *>(buffer.getHPalette()), QPalette());
        QCOMPARE(buffer.getHPalette(), buffer.getHPalette());
    });
    QTest::newRow("getHPalette: with a window too") << Promise([] {
        Canvas window;
        window.setPalette(QPalette(Qt::red));
        const Buffer buffer(&window);
        QVERIFY(buffer.getHPalette());
        QCOMPARE(*reinterpret_cast<QPalette *>(buffer.getHPalette()), QPalette());
    });
    QTest::newRow("getHPalette: each object has one") << Promise([] {
        const Buffer first;
        const Buffer second;
        QVERIFY(first.getHPalette() != second.getHPalette());
    });
}

void DoubleBufferTest::constructorsFrontImage_data()
{
    QTest::addColumn<std::shared_ptr<QPaintDevice>>("device");
    QTest::addColumn<QSize>("size");

    const auto row = [](const char *name, QPaintDevice *device, int width, int height) {
        QTest::newRow(name) << std::shared_ptr<QPaintDevice>(device) << QSize(width, height);
    };
    row("a window of 20 x 10", new Canvas(20, 10), 20, 10);
    row("a window of 1 x 300", new Canvas(1, 300), 1, 300);
    row("an image of 7 x 5 in another format", new QImage(7, 5, QImage::Format_RGB32), 7, 5);
    row("a pixmap of 9 x 4", new QPixmap(9, 4), 9, 4);
}

void DoubleBufferTest::constructorsFrontImage()
{
    QFETCH(std::shared_ptr<QPaintDevice>, device);
    QFETCH(QSize, size);
    const Buffer buffer(device.get());
    QVERIFY(buffer.frontImage());
    QCOMPARE(*buffer.frontImage(), plain(size.width(), size.height(), 0));
    QVERIFY(buffer.frontPainter()->wrappedDevice() == buffer.frontImage());
}

void DoubleBufferTest::constructorsNullImage_data()
{
    QTest::addColumn<std::shared_ptr<QPaintDevice>>("device");

    const auto row = [](const char *name, QPaintDevice *device) {
        QTest::newRow(name) << std::shared_ptr<QPaintDevice>(device);
    };
    row("a window of 0 x 10", new Canvas(0, 10));
    row("a window of 10 x 0", new Canvas(10, 0));
    row("a null image", new QImage);
}

/// A device without pixels has a front image, but a null one.
void DoubleBufferTest::constructorsNullImage()
{
    QFETCH(std::shared_ptr<QPaintDevice>, device);
    QVERIFY(device->width() == 0 || device->height() == 0);
    Buffer buffer(device.get());
    QVERIFY(buffer.frontImage());
    QVERIFY(buffer.frontImage()->isNull());
    QVERIFY(!buffer.memImage());
    QCOMPARE(buffer.m_imagesCreated, 0);
    buffer.createImages(5, 4, 4);
    verifyFreshPair(buffer, 5, 4);
}

// ---- createImages ---------------------------------------------------------------------------------------

void DoubleBufferTest::pairOfASize_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("bytesPerPixel");
    QTest::addColumn<int>("stride");

    QTest::newRow("1 x 1") << 1 << 1 << 4 << 4;
    QTest::newRow("20 x 10, the window's size") << 20 << 10 << 4 << 80;
    QTest::newRow("10 x 20") << 10 << 20 << 4 << 40;
    QTest::newRow("200 x 100") << 200 << 100 << 4 << 800;
    QTest::newRow("3 x 2: no padding") << 3 << 2 << 4 << 12;
    QTest::newRow("3 x 2 of 8 bytes: rows are twice as long, the format stays") << 3 << 2 << 8 << 24;
}

void DoubleBufferTest::pairOfASize()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, bytesPerPixel);
    Canvas window(20, 10);
    Buffer buffer(&window);
    buffer.createImages(width, height, bytesPerPixel);
    verifyFreshPair(buffer, width, height);
    QTEST(buffer.memImage()->bytesPerLine(), "stride");
    const unsigned char *end = buffer.memBits() + width * height * bytesPerPixel;
    QVERIFY(std::all_of(static_cast<const unsigned char *>(buffer.memBits()), end,
                        [](unsigned char byte) { return byte == 0; }));
}

void DoubleBufferTest::nullPair_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");

    QTest::newRow("no width") << 0 << 5;
    QTest::newRow("no height") << 5 << 0;
    QTest::newRow("neither") << 0 << 0;
    QTest::newRow("a negative width") << -3 << 5;
    QTest::newRow("a negative height") << 5 << -3;
    QTest::newRow("both negative, with a positive product") << -3 << -5;
    QTest::newRow("the most negative sides") << INT_MIN << INT_MIN;
    QTest::newRow("the largest width, one row: more bytes than a row may have") << INT_MAX << 1;
    QTest::newRow("rows of 2 GiB") << (1 << 29) << 1;
#if !defined(__SANITIZE_ADDRESS__) // It ends the program that asks for too much.
    QTest::newRow("the largest sides") << INT_MAX << INT_MAX;
    QTest::newRow("2^30 rows of 1 GiB") << (1 << 28) << (1 << 30);
    QTest::newRow("a pair of 4 GiB each, where 1 GiB can be had") << 32768 << 32768;
#endif
}

/// Both images are there and null; they go as others do, and another pair may follow.
void DoubleBufferTest::nullPair()
{
    QFETCH(int, width);
    QFETCH(int, height);
    Canvas window(20, 10);
    Buffer buffer(&window);
    {
        const KxMemoryLimit limit;
        buffer.createImages(width, height, 4);
    }
    QCOMPARE(buffer.m_imagesCreated, 1);
    QVERIFY(buffer.memImage() && buffer.memImage()->isNull());
    QVERIFY(buffer.frontImage() && buffer.frontImage()->isNull());
    buffer.destroyImages();
    verifyNoImages(buffer);
    {
        const KxMemoryLimit limit;
        buffer.createImages(width, height, 4);
    }
    buffer.createImages(5, 4, 4);
    verifyFreshPair(buffer, 5, 4);
}

void DoubleBufferTest::rowsWithoutAnImage_data()
{
    QTest::addColumn<int>("bytesPerPixel");
    QTest::addColumn<bool>("withMemory");

    QTest::newRow("2 bytes per pixel") << 2 << true;
    QTest::newRow("3 bytes per pixel") << 3 << true;
    QTest::newRow("0 bytes per pixel") << 0 << false;
    QTest::newRow("-1 bytes per pixel") << -1 << false;
    QTest::newRow("the most negative number of bytes per pixel") << INT_MIN << false;
}

/// Rows that are too short for 32-bit pixels: the memory image is null, the front image, whose memory is its
/// own, is not.
void DoubleBufferTest::rowsWithoutAnImage()
{
    QFETCH(int, bytesPerPixel);
    QFETCH(bool, withMemory);
    Buffer buffer;
    buffer.createImages(3, 2, bytesPerPixel);
    QCOMPARE(buffer.m_imagesCreated, 1);
    QVERIFY(buffer.memImage() && buffer.memImage()->isNull());
    QVERIFY(buffer.frontImage());
    QCOMPARE(*buffer.frontImage(), plain(3, 2, 0));
    QVERIFY(buffer.frontPainter()->wrappedDevice() == buffer.frontImage());
    if (withMemory) {
        const unsigned char *bits = buffer.memBits();
        QVERIFY(bits);
        QVERIFY(std::all_of(bits, bits + 3 * 2 * bytesPerPixel,
                            [](unsigned char byte) { return byte == 0; }));
    }
    buffer.createImages(5, 4, 4);
    verifyFreshPair(buffer, 5, 4);
}

void DoubleBufferTest::keptOrRemade_data()
{
    QTest::addColumn<QSize>("window"); // none: no destination
    QTest::addColumn<QSize>("first");
    QTest::addColumn<QSize>("second");
    QTest::addColumn<bool>("kept");

    const QSize of200x100(200, 100);
    const QSize of50x40(50, 40);
    QTest::newRow("the window's size twice: kept") << of200x100 << of200x100 << of200x100 << true;
    QTest::newRow("another size twice: remade") << of200x100 << of50x40 << of50x40 << false;
    QTest::newRow("the window's size, then another: remade") << of200x100 << of200x100 << of50x40 << false;
    QTest::newRow("another size, then the window's: kept, for it is the window that is compared")
        << of200x100 << of50x40 << of200x100 << true;
    QTest::newRow("the window's width alone: remade") << of200x100 << of200x100 << QSize(200, 99) << false;
    QTest::newRow("the window's height alone: remade") << of200x100 << of200x100 << QSize(199, 100) << false;
    QTest::newRow("width and height exchanged: remade") << of200x100 << of200x100 << QSize(100, 200) << false;
    QTest::newRow("no destination, the same size twice: remade") << QSize() << of50x40 << of50x40 << false;
    QTest::newRow("no destination, two sizes: remade") << QSize() << of200x100 << of50x40 << false;
}

void DoubleBufferTest::keptOrRemade()
{
    QFETCH(QSize, window);
    QFETCH(QSize, first);
    QFETCH(QSize, second);
    QFETCH(bool, kept);
    Canvas canvas(window.width(), window.height());
    Buffer buffer(window.isValid() ? &canvas : nullptr);
    buffer.createImages(first.width(), first.height(), 4);
    verifyFreshPair(buffer, first.width(), first.height());
    buffer.memImage()->fill(red);
    buffer.frontImage()->fill(green);
    const auto *memory = buffer.memImage();
    const auto *front = buffer.frontImage();
    const auto *bits = buffer.memBits();

    buffer.createImages(second.width(), second.height(), 4);
    if (!kept) {
        verifyFreshPair(buffer, second.width(), second.height());
        return;
    }
    QCOMPARE(buffer.memBits(), bits);
    QCOMPARE(buffer.memImage(), memory);
    QCOMPARE(buffer.frontImage(), front);
    QCOMPARE(*buffer.memImage(), plain(first.width(), first.height(), red));
    QCOMPARE(*buffer.frontImage(), plain(first.width(), first.height(), green));
    QCOMPARE(buffer.m_imagesCreated, 1);
}

void DoubleBufferTest::pair_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the first time, for the size of the constructor's front image: made") << Promise([] {
        Canvas window(20, 10);
        Buffer buffer(&window);
        buffer.frontImage()->fill(red);
        buffer.createImages(20, 10, 4);
        verifyFreshPair(buffer, 20, 10);
    });
    QTest::newRow("the size that the window has now counts: kept") << Promise([] {
        Canvas window(20, 10);
        Buffer buffer(&window);
        buffer.createImages(20, 10, 4);
        buffer.memImage()->fill(red);
        window.resize(30, 15);
        buffer.createImages(30, 15, 4);
        QCOMPARE(*buffer.memImage(), plain(20, 10, red));
    });
    QTest::newRow("the size that the window had does not count: remade") << Promise([] {
        Canvas window(20, 10);
        Buffer buffer(&window);
        buffer.createImages(20, 10, 4);
        buffer.memImage()->fill(red);
        buffer.frontImage()->fill(red);
        window.resize(30, 15);
        buffer.createImages(20, 10, 4);
        verifyFreshPair(buffer, 20, 10);
    });
    QTest::newRow("another destination's size counts, whatever its kind") << Promise([] {
        Canvas window(20, 10);
        QImage picture(6, 5, QImage::Format_RGB32);
        Buffer buffer(&window);
        buffer.createImages(6, 5, 4);
        buffer.memImage()->fill(red);
        buffer.setDestinationDevice(&picture);
        buffer.createImages(6, 5, 4);
        QCOMPARE(*buffer.memImage(), plain(6, 5, red));
        buffer.setDestinationDevice(&window);
        buffer.createImages(6, 5, 4);
        verifyFreshPair(buffer, 6, 5);
    });
    QTest::newRow("remade many times, each is zero") << Promise([] {
        Buffer buffer;
        for (int i = 0; i < 20; ++i) {
            buffer.createImages(16, 16, 4);
            verifyFreshPair(buffer, 16, 16);
            buffer.memImage()->fill(0xFFFFFFFF);
            buffer.frontImage()->fill(0xFFFFFFFF);
        }
    });
    QTest::newRow("destination, link, painters and palette stay") << Promise([] {
        Canvas window(20, 10);
        Buffer other(&window);
        Buffer buffer(&window);
        buffer.setFrontBuffer(&other);
        const KxQtPainterWrapper *ofWindow = buffer.painter();
        const Painters before(buffer);
        buffer.createImages(5, 5, 4);
        buffer.createImages(6, 6, 4);
        QVERIFY(buffer.destinationDevice() == static_cast<QPaintDevice *>(&window));
        QVERIFY(buffer.m_frontBuffer == &other);
        QVERIFY(Painters(buffer) == before);
        QVERIFY(buffer.painter() == ofWindow);
        QVERIFY(buffer.painter()->wrappedDevice() == static_cast<QPaintDevice *>(&window));
    });
    QTest::newRow("memBits: blue, green, red, alpha of the upper left pixel first") << Promise([] {
        Buffer buffer;
        buffer.createImages(3, 2, 4);
        buffer.memImage()->setPixel(0, 0, 0xFF112233);
        QCOMPARE(int(buffer.memBits()[0]), 0x33);
        QCOMPARE(int(buffer.memBits()[1]), 0x22);
        QCOMPARE(int(buffer.memBits()[2]), 0x11);
        QCOMPARE(int(buffer.memBits()[3]), 0xFF);
    });
    QTest::newRow("memBits: what is written there is in the memory image, row by row") << Promise([] {
        Buffer buffer;
        buffer.createImages(3, 2, 4);
        std::fill_n(buffer.memBits() + (1 * 3 + 2) * 4, 4, static_cast<unsigned char>(0xFF));
        QImage expected = plain(3, 2, 0);
        expected.setPixel(2, 1, 0xFFFFFFFF);
        QCOMPARE(*buffer.memImage(), expected);
        QCOMPARE(*buffer.frontImage(), plain(3, 2, 0));
    });
    QTest::newRow("memBits: another stride's second row") << Promise([] {
        Buffer buffer;
        buffer.createImages(3, 2, 8);
        std::fill_n(buffer.memBits() + 24 + 4, 4, static_cast<unsigned char>(0xFF));
        QImage expected = plain(3, 2, 0);
        expected.setPixel(1, 1, 0xFFFFFFFF);
        QCOMPARE(*buffer.memImage(), expected);
    });
    QTest::newRow("memPainter draws on the memory image alone, and into memBits") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        paint(buffer.memPainter(), CRect(1, 1, 3, 2), RGB(255, 0, 0));
        QImage expected = plain(4, 3, 0);
        expected.setPixel(1, 1, red);
        expected.setPixel(2, 1, red);
        QCOMPARE(*buffer.memImage(), expected);
        QCOMPARE(int(buffer.memBits()[(1 * 4 + 1) * 4 + 2]), 0xFF);
        QCOMPARE(*buffer.frontImage(), plain(4, 3, 0));
    });
    QTest::newRow("frontPainter draws on the front image alone") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        paint(buffer.frontPainter(), CRect(0, 2, 1, 3), RGB(0, 255, 0));
        QImage expected = plain(4, 3, 0);
        expected.setPixel(0, 2, green);
        QCOMPARE(*buffer.frontImage(), expected);
        QCOMPARE(*buffer.memImage(), plain(4, 3, 0));
    });
    QTest::newRow("frontPainter draws on the constructor's front image") << Promise([] {
        Canvas window(4, 3);
        const Buffer buffer(&window);
        paint(buffer.frontPainter(), CRect(0, 0, 4, 3), RGB(0, 0, 255));
        QCOMPARE(*buffer.frontImage(), plain(4, 3, blue));
    });
}

// ---- destroyImages --------------------------------------------------------------------------------------

void DoubleBufferTest::destroyed_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a pair: no images, no device in a painter, flag 0") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        buffer.destroyImages();
        verifyNoImages(buffer);
    });
    QTest::newRow("a pair after the constructor's front image: that one does not come back") << Promise([] {
        Canvas window(4, 3);
        Buffer buffer(&window);
        buffer.createImages(4, 3, 4);
        buffer.destroyImages();
        verifyNoImages(buffer);
    });
    QTest::newRow("nothing there: nothing") << Promise([] {
        Buffer buffer;
        const Painters before(buffer);
        buffer.destroyImages();
        verifyNoImages(buffer);
        QVERIFY(Painters(buffer) == before);
    });
    QTest::newRow("the constructor's front image alone: it stays, with its painter") << Promise([] {
        Canvas window(4, 3);
        Buffer buffer(&window);
        const QImage *front = buffer.frontImage();
        buffer.frontImage()->fill(red);
        buffer.destroyImages();
        QCOMPARE(buffer.frontImage(), front);
        QCOMPARE(*buffer.frontImage(), plain(4, 3, red));
        QVERIFY(buffer.frontPainter()->wrappedDevice() == front);
        QCOMPARE(buffer.m_imagesCreated, 0);
    });
    QTest::newRow("twice: the second does nothing") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        buffer.destroyImages();
        buffer.destroyImages();
        verifyNoImages(buffer);
    });
    QTest::newRow("destination, link, painters and palette stay") << Promise([] {
        Canvas window(4, 3);
        Buffer other(&window);
        Buffer buffer(&window);
        buffer.setFrontBuffer(&other);
        buffer.createImages(4, 3, 4);
        const KxQtPainterWrapper *ofWindow = buffer.painter();
        const Painters before(buffer);
        buffer.destroyImages();
        QVERIFY(buffer.destinationDevice() == static_cast<QPaintDevice *>(&window));
        QVERIFY(buffer.m_frontBuffer == &other);
        QVERIFY(Painters(buffer) == before);
        QVERIFY(buffer.painter() == ofWindow);
    });
    QTest::newRow("a pair may be made again: fresh, though the window's size is asked for") << Promise([] {
        Canvas window(4, 3);
        Buffer buffer(&window);
        buffer.createImages(4, 3, 4);
        buffer.memImage()->fill(red);
        buffer.frontImage()->fill(red);
        buffer.destroyImages();
        buffer.createImages(4, 3, 4);
        verifyFreshPair(buffer, 4, 3);
    });
    QTest::newRow("afterwards the painters draw nowhere") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        buffer.destroyImages();
        QVERIFY(!buffer.memPainter()->beginDraw());
        QVERIFY(!buffer.frontPainter()->beginDraw());
    });
}

void DoubleBufferTest::backupBits_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("as built") << Promise([] {
        const Buffer buffer;
        QVERIFY(!buffer.backupBits());
    });
    QTest::newRow("with a window") << Promise([] {
        Canvas window;
        const Buffer buffer(&window);
        QVERIFY(!buffer.backupBits());
    });
    QTest::newRow("with a pair") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        QVERIFY(!buffer.backupBits());
    });
    QTest::newRow("repaired") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        buffer.repairFrontBuffer();
        QVERIFY(!buffer.backupBits());
    });
    QTest::newRow("linked and repaired") << Promise([] {
        Buffer other;
        other.createImages(4, 3, 4);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(4, 3, 4);
        buffer.repairFrontBuffer();
        QVERIFY(!buffer.backupBits());
        QVERIFY(!other.backupBits());
    });
    QTest::newRow("images destroyed") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        buffer.destroyImages();
        QVERIFY(!buffer.backupBits());
    });
}

// ---- the end --------------------------------------------------------------------------------------------

// That the images, the painters and the palette go with the object is the leak checker's to see.
void DoubleBufferTest::lifetime_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the window outlives a buffer with a pair") << Promise([] {
        const QPointer<Canvas> window = new Canvas;
        {
            Buffer buffer(window);
            buffer.painter();
            buffer.createImages(20, 10, 4);
        }
        QVERIFY(window);
        delete window;
    });
    QTest::newRow("the window outlives a buffer with the constructor's front image") << Promise([] {
        const QPointer<Canvas> window = new Canvas;
        {
            Buffer buffer(window);
            buffer.destroyImages();
        }
        QVERIFY(window);
        delete window;
    });
    QTest::newRow("a buffer with a pair outlives its window") << Promise([] {
        auto window = std::make_unique<Canvas>();
        Buffer buffer(window.get());
        buffer.painter();
        buffer.createImages(20, 10, 4);
        window.reset();
        QCOMPARE(*buffer.memImage(), plain(20, 10, 0));
        buffer.destroyImages();
        verifyNoImages(buffer);
    });
    QTest::newRow("a linked buffer outlives the one that has the link") << Promise([] {
        Buffer other;
        other.createImages(4, 3, 4);
        {
            Buffer buffer;
            buffer.setFrontBuffer(&other);
            buffer.createImages(4, 3, 4);
            buffer.memImage()->fill(red);
            buffer.repairFrontBuffer();
        }
        QCOMPARE(*other.memImage(), plain(4, 3, red));
    });
    QTest::newRow("deleted as the device that it derives from") << Promise([] {
        Canvas window;
        auto *buffer = new Buffer(&window);
        buffer->createImages(4, 3, 4);
        const std::unique_ptr<KxQtPaintDeviceWrapper> device(buffer);
        QVERIFY(device->destinationDevice() == static_cast<QPaintDevice *>(&window));
    });
}

// ---- layout ---------------------------------------------------------------------------------------------

void DoubleBufferTest::layout_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("expected");

    const auto row = [](const char *name, int found, int expected) {
        QTest::newRow(name) << found << expected;
    };
    const Buffer buffer;
    row("destination is behind the table", offsetOf(buffer, buffer.destination), 8);
    row("painterWrapper is next", offsetOf(buffer, buffer.painterWrapper), 16);
    row("1: m_memBits", offsetOf(buffer, buffer.m_memBits), 24);
    row("2: m_memPainter", offsetOf(buffer, buffer.m_memPainter), 32);
    row("3: m_memImage", offsetOf(buffer, buffer.m_memImage), 40);
    row("4: m_frontPainter", offsetOf(buffer, buffer.m_frontPainter), 48);
    row("5: m_frontImage", offsetOf(buffer, buffer.m_frontImage), 56);
    row("6: m_backupBits", offsetOf(buffer, buffer.m_backupBits), 64);
    row("7: m_palette", offsetOf(buffer, buffer.m_palette), 72);
    row("8: m_imagesCreated", offsetOf(buffer, buffer.m_imagesCreated), 80);
    row("8: m_imagesCreated has 32 bits", sizeof buffer.m_imagesCreated, 4);
    row("9: m_frontBuffer", offsetOf(buffer, buffer.m_frontBuffer), 88);
    row("nothing follows", sizeof(KxGrQtDoubleBufferImage), 96);
}

void DoubleBufferTest::layout()
{
    QFETCH(int, offset);
    QTEST(offset, "expected");
}

/// The destructor's two slots are the only ones.
void DoubleBufferTest::table()
{
    QVERIFY((std::is_base_of_v<KxQtPaintDeviceWrapper, KxGrQtDoubleBufferImage>));
    QVERIFY((std::is_convertible_v<KxGrQtDoubleBufferImage *, KxQtPaintDeviceWrapper *>));
    QVERIFY(std::has_virtual_destructor_v<KxGrQtDoubleBufferImage>);
    QCOMPARE(slotCount<KxGrQtDoubleBufferImage>(), 2);
    const KxGrQtDoubleBufferImage buffer;
    const KxQtPaintDeviceWrapper device;
    QCOMPARE(differences(&buffer, &device, 2), QList<int>({0, 1}));
}

KX_TEST_MAIN(DoubleBufferTest)
#include "tst_double_buffer.moc"
