// SPDX-License-Identifier: MIT
#include "KxTestCase.h"

#include "FloodFill.h"

#include <QtCore/QQueue>
#include <QtGui/QImage>

#include <random>

namespace {

// Rows of characters, each of which is a colour.
using Picture = QStringList;

constexpr COLORREF Poured = RGB(0x12, 0x34, 0x56);
constexpr QRgb PouredPixel = 0xff123456;

QRgb pixelOf(QChar character)
{
    return 0xff000000 | 0x010305 * character.unicode();
}

/// A bitmap with a picture in it.
class Bitmap
{
public:
    explicit Bitmap(const Picture &picture)
    {
        HBITMAP bitmap = nullptr;
        HDC dc = nullptr;
        m_dib.makeBitmap(dc, bitmap, picture.first().size(), picture.size(), nullptr);
        m_image = static_cast<QImage *>(static_cast<KxQtPainterWrapper *>(dc)->wrappedDevice());
        for (int y = 0; y < picture.size(); ++y) {
            for (int x = 0; x < picture.at(y).size(); ++x)
                m_image->setPixel(x, y, pixelOf(picture.at(y).at(x)));
        }
    }

    CDibData &dib() { return m_dib; }
    QImage image() const { return m_image->copy(); }

private:
    CDibData m_dib;
    QImage *m_image;
};

/// The plain way: pixel by pixel, through a queue. \return how many pixels changed
int queueFill(QImage &image, const QPoint &seed, QRgb colour)
{
    if (!image.valid(seed) || image.pixel(seed) == colour)
        return 0;
    const QRgb area = image.pixel(seed);
    int filled = 0;
    QQueue<QPoint> queue;
    queue.enqueue(seed);
    while (!queue.isEmpty()) {
        const QPoint point = queue.dequeue();
        if (!image.valid(point) || image.pixel(point) != area)
            continue;
        image.setPixel(point, colour);
        ++filled;
        for (const QPoint &side : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)})
            queue.enqueue(point + side);
    }
    return filled;
}

Picture noise(int width, int height, unsigned number, double inked)
{
    std::mt19937 random(number);
    std::bernoulli_distribution isInk(inked);
    Picture picture;
    for (int y = 0; y < height; ++y) {
        QString row;
        for (int x = 0; x < width; ++x)
            row += QLatin1Char(isInk(random) ? '#' : '.');
        picture.append(row);
    }
    return picture;
}

} // namespace

class PlotFloodFillTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void fillsOneArea_data();
    void fillsOneArea();
    void likeAQueue_data();
    void likeAQueue();
    void colours_data();
    void colours();
    void oneFillAfterTheOther();
};

void PlotFloodFillTest::fillsOneArea_data()
{
    QTest::addColumn<Picture>("picture");
    QTest::addColumn<QPoint>("seed");
    QTest::addColumn<int>("filled");

    const Picture square = {".......", ".#####.", ".#...#.", ".#...#.", ".#####.", "......."};
    QTest::newRow("a closed figure, its inside") << square << QPoint(3, 2) << 6;
    QTest::newRow("a closed figure, what is around it") << square << QPoint(0, 5) << 22;
    QTest::newRow("a closed figure, its line") << square << QPoint(1, 1) << 14;
    QTest::newRow("a gap lets it out")
        << Picture({".......", ".##.##.", ".#...#.", ".#...#.", ".#####.", "......."}) << QPoint(3, 2) << 29;
    QTest::newRow("corners that touch let nothing through")
        << Picture({".#.", "#.#", ".#."}) << QPoint(1, 1) << 1;
    QTest::newRow("one pixel") << Picture({"."}) << QPoint(0, 0) << 1;
    QTest::newRow("a row") << Picture({"..#...."}) << QPoint(5, 0) << 4;
    QTest::newRow("a column") << Picture({".", ".", "#", ".", "."}) << QPoint(0, 0) << 2;
    QTest::newRow("all of it") << Picture({"....", "....", "...."}) << QPoint(3, 2) << 12;
    QTest::newRow("teeth of a comb, from below")
        << Picture({".#.#.#.", ".#.#.#.", "......."}) << QPoint(6, 2) << 15;
    QTest::newRow("teeth of a comb, from above")
        << Picture({".......", ".#.#.#.", ".#.#.#."}) << QPoint(0, 0) << 15;
    QTest::newRow("a spiral, from its end")
        << Picture({"#######", "#.....#", "#.###.#", "#.#...#", "#.#####", "#......"}) << QPoint(4, 3) << 18;
    QTest::newRow("around an island")
        << Picture({".....", ".###.", ".#o#.", ".###.", "....."}) << QPoint(4, 4) << 16;
    QTest::newRow("a way back up under an overhang")
        << Picture({".####", ".#...", ".#.#.", "...#."}) << QPoint(0, 0) << 12;
    QTest::newRow("left of it") << square << QPoint(-1, 2) << 0;
    QTest::newRow("right of it") << square << QPoint(7, 2) << 0;
    QTest::newRow("above it") << square << QPoint(3, -1) << 0;
    QTest::newRow("below it") << square << QPoint(3, 6) << 0;
}

void PlotFloodFillTest::fillsOneArea()
{
    QFETCH(Picture, picture);
    QFETCH(QPoint, seed);
    QFETCH(int, filled);
    Bitmap bitmap(picture);
    QImage expected = bitmap.image();
    QCOMPARE(queueFill(expected, seed, PouredPixel), filled);
    QCOMPARE(CFloodFill(bitmap.dib()).Fill(CPoint(seed.x(), seed.y()), Poured), filled);
    QCOMPARE(bitmap.image(), expected);
}

void PlotFloodFillTest::likeAQueue_data()
{
    QTest::addColumn<double>("inked");
    for (const int percent : {0, 5, 20, 35, 41, 50, 80, 100})
        QTest::addRow("%d %% ink", percent) << percent / 100.0;
}

void PlotFloodFillTest::likeAQueue()
{
    QFETCH(double, inked);
    std::mt19937 random(7);
    for (unsigned number = 0; number < 60; ++number) {
        const int width = 1 + static_cast<int>(random() % 40);
        const int height = 1 + static_cast<int>(random() % 30);
        Bitmap bitmap(noise(width, height, number, inked));
        const QPoint seed(static_cast<int>(random() % 40) % width, static_cast<int>(random() % 30) % height);
        QImage expected = bitmap.image();
        const int filled = queueFill(expected, seed, PouredPixel);
        QCOMPARE(CFloodFill(bitmap.dib()).Fill(CPoint(seed.x(), seed.y()), Poured), filled);
        QCOMPARE(bitmap.image(), expected);
    }
}

void PlotFloodFillTest::colours_data()
{
    QTest::addColumn<COLORREF>("colour");
    QTest::addColumn<int>("filled");
    QTest::addColumn<QRgb>("pixel");

    const QRgb area = pixelOf(QLatin1Char('.'));
    QTest::newRow("red is the low byte") << COLORREF(0x000000c8) << 2 << QRgb(0xffc80000);
    QTest::newRow("blue is the third byte") << COLORREF(0x00c80000) << 2 << QRgb(0xff0000c8);
    QTest::newRow("the fourth byte does not count") << COLORREF(0x7f00c800) << 2 << QRgb(0xff00c800);
    QTest::newRow("black is opaque") << COLORREF(0) << 2 << QRgb(0xff000000);
    QTest::newRow("white") << COLORREF(0x00ffffff) << 2 << QRgb(0xffffffff);
    QTest::newRow("what is there already") << RGB(qRed(area), qGreen(area), qBlue(area)) << 0 << area;
    QTest::newRow("no colour") << COLORREF(CLR_INVALID) << 0 << area;
}

void PlotFloodFillTest::colours()
{
    QFETCH(COLORREF, colour);
    QFETCH(int, filled);
    QFETCH(QRgb, pixel);
    Bitmap bitmap(Picture({"..#."}));
    QCOMPARE(CFloodFill(bitmap.dib()).Fill(CPoint(1, 0), colour), filled);
    const QImage image = bitmap.image();
    const auto raw = [&image](int x) { return reinterpret_cast<const QRgb *>(image.constScanLine(0))[x]; };
    QCOMPARE(raw(0), pixel);
    QCOMPARE(raw(1), pixel);
    QCOMPARE(raw(2), pixelOf(QLatin1Char('#')));
    QCOMPARE(raw(3), pixelOf(QLatin1Char('.')));
}

void PlotFloodFillTest::oneFillAfterTheOther()
{
    Bitmap bitmap(Picture({"..#..", "..#.."}));
    CFloodFill fill(bitmap.dib());
    QCOMPARE(fill.Fill(CPoint(0, 0), RGB(1, 2, 3)), 4);
    QCOMPARE(fill.Fill(CPoint(2, 1), RGB(1, 2, 3)), 2);     // the wall takes the colour of the left room,
    QCOMPARE(fill.Fill(CPoint(1, 1), RGB(4, 5, 6)), 6);     // and both are one area now
    QCOMPARE(fill.Fill(CPoint(1, 1), RGB(4, 5, 6)), 0);
}

KX_TEST_MAIN(PlotFloodFillTest)

#include "tst_plot_flood_fill.moc"
