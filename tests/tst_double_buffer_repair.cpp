// SPDX-License-Identifier: MIT
// How the memory image behind a window comes to the front: the front image, linked buffers, the repaint.

#include "KxDoubleBufferStage.h"
#include "KxTestCase.h"

#include <afxwin.h>

#include <algorithm>

using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

class DoubleBufferRepairTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void repairedPixel_data();
    void repairedPixel();
    void repaired_data();
    void repaired() { run(); }
    void withoutThePair_data();
    void withoutThePair() { run(); }
    void nullImages_data();
    void nullImages();
    void nullImagesAndALink_data();
    void nullImagesAndALink() { run(); }
    void repaint_data();
    void repaint() { run(); }
    void linked_data();
    void linked() { run(); }

private:
    static void run()
    {
        QFETCH(Promise, promise);
        promise();
    }
};

// ---- repairFrontBuffer ----------------------------------------------------------------------------------

void DoubleBufferRepairTest::repairedPixel_data()
{
    QTest::addColumn<QRgb>("memory"); // premultiplied, as are the others
    QTest::addColumn<QRgb>("front");
    QTest::addColumn<QRgb>("result");

    const QRgb clear = 0;
    const QRgb halfRed = 0x80800000;
    QTest::newRow("transparent leaves opaque") << clear << green << green;
    QTest::newRow("transparent leaves half transparent") << clear << halfRed << halfRed;
    QTest::newRow("transparent leaves transparent") << clear << clear << clear;
    QTest::newRow("opaque replaces opaque") << red << green << red;
    QTest::newRow("opaque replaces transparent") << red << clear << red;
    QTest::newRow("opaque replaces half transparent") << blue << halfRed << blue;
    QTest::newRow("opaque black replaces white") << QRgb(0xFF000000) << QRgb(0xFFFFFFFF) << QRgb(0xFF000000);
    QTest::newRow("half transparent on transparent is itself") << halfRed << clear << halfRed;
    QTest::newRow("half transparent on opaque mixes") << halfRed << green << QRgb(0xFF807F00);
}

void DoubleBufferRepairTest::repairedPixel()
{
    QFETCH(QRgb, memory);
    QFETCH(QRgb, front);
    Buffer buffer;
    buffer.createImages(3, 2, 4);
    buffer.memImage()->fill(memory);
    buffer.frontImage()->fill(front);
    buffer.repairFrontBuffer();
    QFETCH(QRgb, result);
    QCOMPARE(*buffer.frontImage(), plain(3, 2, result));
    QCOMPARE(*buffer.memImage(), plain(3, 2, memory));
}

void DoubleBufferRepairTest::repaired_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the whole memory image goes over the front image, at (0, 0)") << Promise([] {
        Buffer buffer;
        buffer.createImages(20, 10, 4);
        *buffer.frontImage() = plain(20, 10, blue);
        QPainter(buffer.memImage()).drawImage(0, 0, pattern(20, 10));
        const QImage memory = buffer.memImage()->copy();
        buffer.repairFrontBuffer();
        QCOMPARE(*buffer.frontImage(), drawnOver(plain(20, 10, blue), memory));
        QCOMPARE(*buffer.memImage(), memory);
    });
    QTest::newRow("what is written into memBits comes to the front") << Promise([] {
        Buffer buffer;
        buffer.createImages(3, 2, 4);
        std::fill_n(buffer.memBits() + (1 * 3 + 0) * 4, 4, static_cast<unsigned char>(0xFF));
        buffer.repairFrontBuffer();
        QImage expected = plain(3, 2, 0);
        expected.setPixel(0, 1, 0xFFFFFFFF);
        QCOMPARE(*buffer.frontImage(), expected);
    });
    QTest::newRow("twice: what was there shows where the memory image has become transparent") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        paint(buffer.memPainter(), CRect(0, 0, 2, 3), RGB(255, 0, 0));
        buffer.repairFrontBuffer();
        buffer.memImage()->fill(0u);
        paint(buffer.memPainter(), CRect(1, 0, 3, 3), RGB(0, 255, 0));
        buffer.repairFrontBuffer();
        QImage expected = plain(4, 3, 0);
        for (int y = 0; y < 3; ++y) {
            expected.setPixel(0, y, red);
            expected.setPixel(1, y, green);
            expected.setPixel(2, y, green);
        }
        QCOMPARE(*buffer.frontImage(), expected);
    });
    QTest::newRow("pen, clip region and device of the painters do not matter and stay") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        tagPOINT corners[] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
        unsigned int count = 4;
        buffer.frontPainter()->setClipRegion(corners, &count, 1);
        buffer.memImage()->fill(red);
        buffer.repairFrontBuffer();
        QCOMPARE(*buffer.frontImage(), plain(4, 3, red));
        QVERIFY(buffer.frontPainter()->wrappedDevice() == buffer.frontImage());
        QVERIFY(buffer.memPainter()->wrappedDevice() == buffer.memImage());
        paint(buffer.frontPainter(), CRect(0, 0, 4, 3), RGB(0, 255, 0));
        QImage expected = plain(4, 3, red);
        expected.setPixel(0, 0, green);
        QCOMPARE(*buffer.frontImage(), expected);
    });
    QTest::newRow("no destination: the front image all the same") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 4);
        buffer.memImage()->fill(red);
        buffer.repairFrontBuffer();
        QCOMPARE(*buffer.frontImage(), plain(4, 3, red));
    });
    QTest::newRow("a destination that is an image is not drawn on") << Promise([] {
        QImage picture = plain(4, 3, green);
        Buffer buffer(&picture);
        buffer.createImages(4, 3, 4);
        buffer.memImage()->fill(red);
        buffer.repairFrontBuffer();
        QCOMPARE(*buffer.frontImage(), plain(4, 3, red));
        QCOMPARE(picture, plain(4, 3, green));
    });
}

void DoubleBufferRepairTest::withoutThePair_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("no image at all: nothing, and none is made") << Promise([] {
        Buffer buffer;
        buffer.repairFrontBuffer();
        QVERIFY(!buffer.memImage());
        QVERIFY(!buffer.frontImage());
        QCOMPARE(buffer.m_imagesCreated, 0);
    });
    QTest::newRow("the constructor's front image alone: it stays, no repaint is asked for") << Promise([] {
        Canvas window;
        Buffer buffer(&window);
        buffer.frontImage()->fill(red);
        window.settle();
        buffer.repairFrontBuffer();
        QCoreApplication::processEvents();
        QCOMPARE(window.paints, 0);
        QCOMPARE(*buffer.frontImage(), plain(20, 10, red));
        QVERIFY(!buffer.memImage());
    });
    QTest::newRow("the constructor's front image alone: the linked buffer is not drawn on") << Promise([] {
        Canvas window;
        Buffer other(&window);
        other.createImages(20, 10, 4);
        other.memImage()->fill(blue);
        Buffer buffer(&window);
        buffer.frontImage()->fill(red);
        buffer.setFrontBuffer(&other);
        buffer.repairFrontBuffer();
        QCOMPARE(*other.memImage(), plain(20, 10, blue));
        QCOMPARE(*other.frontImage(), plain(20, 10, 0));
    });
    QTest::newRow("a pair that was destroyed: no image comes back, no repaint is asked for") << Promise([] {
        Canvas window;
        Buffer buffer(&window);
        buffer.createImages(20, 10, 4);
        buffer.destroyImages();
        window.settle();
        buffer.repairFrontBuffer();
        QCoreApplication::processEvents();
        QCOMPARE(window.paints, 0);
        QVERIFY(!buffer.memImage());
        QVERIFY(!buffer.frontImage());
    });
}

void DoubleBufferRepairTest::nullImages_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");

    QTest::newRow("0 x 5") << 0 << 5;
    QTest::newRow("5 x 0") << 5 << 0;
    QTest::newRow("0 x 0") << 0 << 0;
    QTest::newRow("-3 x -5") << -3 << -5;
}

/// A pair of null images: there is nothing to be drawn, and Qt has nothing to warn of.
void DoubleBufferRepairTest::nullImages()
{
    QFETCH(int, width);
    QFETCH(int, height);
    Canvas window;
    Buffer buffer(&window);
    buffer.createImages(width, height, 4);
    buffer.repairFrontBuffer();
    buffer.repairFrontBuffer();
    QVERIFY(buffer.memImage() && buffer.memImage()->isNull());
    QVERIFY(buffer.frontImage() && buffer.frontImage()->isNull());
}

void DoubleBufferRepairTest::nullImagesAndALink_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a null memory image over a front image with pixels: they stay") << Promise([] {
        Buffer buffer;
        buffer.createImages(4, 3, 2); // rows too short for the format
        QVERIFY(buffer.memImage()->isNull());
        buffer.frontImage()->fill(red);
        buffer.repairFrontBuffer();
        QCOMPARE(*buffer.frontImage(), plain(4, 3, red));
    });
    QTest::newRow("a null pair: the linked buffer's memory image stays") << Promise([] {
        Buffer other;
        other.createImages(4, 3, 4);
        other.memImage()->fill(blue);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(0, 5, 4);
        buffer.repairFrontBuffer();
        QCOMPARE(*other.memImage(), plain(4, 3, blue));
    });
    QTest::newRow("a linked buffer with a null pair: this front image alone is drawn") << Promise([] {
        Buffer other;
        other.createImages(0, 5, 4);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(4, 3, 4);
        buffer.memImage()->fill(red);
        buffer.repairFrontBuffer();
        QCOMPARE(*buffer.frontImage(), plain(4, 3, red));
        QVERIFY(other.memImage()->isNull());
    });
}

void DoubleBufferRepairTest::repaint_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("a window is asked for one repaint of all of it") << Promise([] {
        Canvas window;
        Buffer buffer(&window);
        buffer.createImages(20, 10, 4);
        window.settle();
        buffer.repairFrontBuffer();
        QTRY_COMPARE(window.paints, 1);
        QCOMPARE(window.painted, QRegion(window.rect()));
        QCoreApplication::processEvents();
        QCOMPARE(window.paints, 1);
    });
    QTest::newRow("the window repaints from the event loop, not in the call") << Promise([] {
        Canvas window;
        Buffer buffer(&window);
        buffer.createImages(20, 10, 4);
        window.settle();
        buffer.repairFrontBuffer();
        buffer.repairFrontBuffer();
        QCOMPARE(window.paints, 0);
        QTRY_COMPARE(window.paints, 1);
    });
    QTest::newRow("the window shows the front image then") << Promise([] {
        Canvas window;
        Buffer buffer(&window);
        window.buffer = &buffer;
        buffer.createImages(20, 10, 4);
        window.settle();
        buffer.memImage()->fill(red);
        paint(buffer.memPainter(), CRect(3, 2, 8, 9), RGB(0, 0, 255));
        buffer.repairFrontBuffer();
        QTRY_COMPARE(window.paints, 1);
        QImage expected(20, 10, QImage::Format_RGB32);
        expected.fill(red);
        QPainter(&expected).fillRect(3, 2, 5, 7, QColor(0, 0, 255));
        QCOMPARE(window.grab().toImage().convertToFormat(QImage::Format_RGB32), expected);
    });
    QTest::newRow("a window that is a child is asked") << Promise([] {
        Canvas window(60, 40);
        Canvas child;
        child.setParent(&window);
        child.move(5, 5);
        Buffer buffer(&child);
        buffer.createImages(20, 10, 4);
        window.settle();
        child.paints = 0;
        buffer.repairFrontBuffer();
        QTRY_COMPARE(child.paints, 1);
        child.setParent(nullptr);
    });
    QTest::newRow("a window that takes no updates is not asked; the front image is drawn all the same")
        << Promise([] {
               Canvas window;
               Buffer buffer(&window);
               buffer.createImages(20, 10, 4);
               window.settle();
               window.setUpdatesEnabled(false);
               buffer.memImage()->fill(red);
               buffer.repairFrontBuffer();
               QCoreApplication::processEvents();
               QCOMPARE(window.paints, 0);
               QVERIFY(!window.updatesEnabled());
               QCOMPARE(*buffer.frontImage(), plain(20, 10, red));
           });
    QTest::newRow("the destination of now is asked, not the constructor's") << Promise([] {
        Canvas first;
        Canvas second;
        Buffer buffer(&first);
        buffer.createImages(20, 10, 4);
        first.settle();
        second.settle();
        QCoreApplication::processEvents();
        first.paints = 0;
        buffer.setDestinationDevice(&second);
        buffer.repairFrontBuffer();
        QTRY_COMPARE(second.paints, 1);
        QCOMPARE(first.paints, 0);
    });
    QTest::newRow("createImages and destroyImages ask for nothing") << Promise([] {
        Canvas window;
        Buffer buffer(&window);
        window.settle();
        buffer.createImages(20, 10, 4);
        buffer.createImages(5, 5, 4);
        buffer.destroyImages();
        QCoreApplication::processEvents();
        QCOMPARE(window.paints, 0);
    });
}

// ---- setFrontBuffer -------------------------------------------------------------------------------------

void DoubleBufferRepairTest::linked_data()
{
    QTest::addColumn<Promise>("promise");

    QTest::newRow("the other's destination is taken over") << Promise([] {
        Canvas window;
        Canvas own;
        Buffer other(&window);
        Buffer buffer(&own);
        buffer.setFrontBuffer(&other);
        QVERIFY(buffer.m_frontBuffer == &other);
        QVERIFY(buffer.destinationDevice() == static_cast<QPaintDevice *>(&window));
        QVERIFY(!other.m_frontBuffer);
    });
    QTest::newRow("the other's missing destination is taken over") << Promise([] {
        Canvas own;
        Buffer other;
        Buffer buffer(&own);
        buffer.setFrontBuffer(&other);
        QVERIFY(!buffer.destinationDevice());
    });
    QTest::newRow("the other has no memory image: nothing but this front image is drawn, no repaint")
        << Promise([] {
               Canvas window;
               Buffer other(&window);
               Buffer buffer(&window);
               buffer.createImages(8, 8, 4);
               buffer.setFrontBuffer(&other);
               buffer.memImage()->fill(red);
               window.settle();
               buffer.repairFrontBuffer();
               QCoreApplication::processEvents();
               QCOMPARE(window.paints, 0);
               QCOMPARE(*other.frontImage(), plain(20, 10, 0));
               QVERIFY(!other.memImage());
               QCOMPARE(*buffer.frontImage(), plain(8, 8, red));
           });
    QTest::newRow("null ends the link and leaves the destination") << Promise([] {
        Canvas window;
        Buffer other(&window);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.setFrontBuffer(nullptr);
        QVERIFY(!buffer.m_frontBuffer);
        QVERIFY(buffer.destinationDevice() == static_cast<QPaintDevice *>(&window));
    });
    QTest::newRow("null without a link leaves the destination") << Promise([] {
        Canvas window;
        Buffer buffer(&window);
        buffer.setFrontBuffer(nullptr);
        QVERIFY(!buffer.m_frontBuffer);
        QVERIFY(buffer.destinationDevice() == static_cast<QPaintDevice *>(&window));
    });
    QTest::newRow("images and painters stay, painter() keeps its device") << Promise([] {
        Canvas window(6, 6);
        Canvas own(4, 3);
        Buffer other(&window);
        Buffer buffer(&own);
        const KxQtPainterWrapper *ofOwn = buffer.painter();
        const Painters before(buffer);
        buffer.createImages(4, 3, 4);
        buffer.memImage()->fill(red);
        buffer.setFrontBuffer(&other);
        QCOMPARE(*buffer.memImage(), plain(4, 3, red));
        QCOMPARE(*buffer.frontImage(), plain(4, 3, 0));
        QVERIFY(Painters(buffer) == before);
        QVERIFY(buffer.painter() == ofOwn);
        QVERIFY(buffer.painter()->wrappedDevice() == static_cast<QPaintDevice *>(&own));
    });
    QTest::newRow("createImages compares with the other's window") << Promise([] {
        Canvas window(6, 6);
        Buffer other(&window);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(6, 6, 4);
        buffer.memImage()->fill(red);
        buffer.createImages(6, 6, 4);
        QCOMPARE(*buffer.memImage(), plain(6, 6, red));
    });
    QTest::newRow("repair paints into the other's memory image, not into its front image") << Promise([] {
        Canvas window;
        Buffer other(&window);
        other.createImages(20, 10, 4);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(20, 10, 4);
        buffer.memImage()->fill(red);
        buffer.repairFrontBuffer();
        QCOMPARE(*buffer.frontImage(), plain(20, 10, red));
        QCOMPARE(*other.memImage(), plain(20, 10, red));
        QCOMPARE(*other.frontImage(), plain(20, 10, 0));
        QCOMPARE(*buffer.memImage(), plain(20, 10, red));
    });
    QTest::newRow("repair: it is the front image that the other gets, old content included") << Promise([] {
        Buffer other;
        other.createImages(4, 3, 4);
        other.memImage()->fill(blue);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(4, 3, 4);
        buffer.frontImage()->setPixel(0, 0, green);
        buffer.memImage()->setPixel(1, 0, red);
        buffer.repairFrontBuffer();
        QImage expected = plain(4, 3, blue); // stays where the front image is transparent
        expected.setPixel(0, 0, green);
        expected.setPixel(1, 0, red);
        QCOMPARE(*other.memImage(), expected);
    });
    QTest::newRow("repair: source over, pixel by pixel") << Promise([] {
        Buffer other;
        other.createImages(20, 10, 4);
        other.memImage()->fill(blue);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(20, 10, 4);
        QPainter(buffer.memImage()).drawImage(0, 0, pattern(20, 10));
        buffer.repairFrontBuffer();
        QCOMPARE(*other.memImage(), drawnOver(plain(20, 10, blue), *buffer.frontImage()));
    });
    QTest::newRow("repair: a larger image is cut at (0, 0)") << Promise([] {
        Buffer other;
        other.createImages(3, 2, 4);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(20, 10, 4);
        *buffer.frontImage() = pattern(20, 10);
        buffer.repairFrontBuffer();
        QCOMPARE(*other.memImage(), pattern(20, 10).copy(0, 0, 3, 2));
    });
    QTest::newRow("repair: a smaller image covers the upper left") << Promise([] {
        Buffer other;
        other.createImages(6, 5, 4);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(2, 1, 4);
        buffer.memImage()->fill(red);
        buffer.repairFrontBuffer();
        QImage expected = plain(6, 5, 0);
        expected.setPixel(0, 0, red);
        expected.setPixel(1, 0, red);
        QCOMPARE(*other.memImage(), expected);
    });
    QTest::newRow("repair does not ask the window for a repaint") << Promise([] {
        Canvas window;
        Buffer other(&window);
        other.createImages(20, 10, 4);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(20, 10, 4);
        window.settle();
        buffer.repairFrontBuffer();
        QCoreApplication::processEvents();
        QCOMPARE(window.paints, 0);
    });
    QTest::newRow("the other's repair asks, and brings both to the front") << Promise([] {
        Canvas window;
        Buffer other(&window);
        other.createImages(20, 10, 4);
        other.memImage()->fill(blue);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(20, 10, 4);
        paint(buffer.memPainter(), CRect(0, 0, 1, 1), RGB(255, 0, 0));
        window.settle();
        buffer.repairFrontBuffer();
        other.repairFrontBuffer();
        QTRY_COMPARE(window.paints, 1);
        QImage expected = plain(20, 10, blue);
        expected.setPixel(0, 0, red);
        QCOMPARE(*other.frontImage(), expected);
    });
    QTest::newRow("the window is asked again when the link ends") << Promise([] {
        Canvas window;
        Buffer other(&window);
        other.createImages(20, 10, 4);
        Buffer buffer;
        buffer.setFrontBuffer(&other);
        buffer.createImages(20, 10, 4);
        buffer.memImage()->fill(red);
        buffer.setFrontBuffer(nullptr);
        window.settle();
        buffer.repairFrontBuffer();
        QTRY_COMPARE(window.paints, 1);
        QCOMPARE(*other.memImage(), plain(20, 10, 0));
    });
}

KX_TEST_MAIN(DoubleBufferRepairTest)
#include "tst_double_buffer_repair.moc"
