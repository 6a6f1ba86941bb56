// SPDX-License-Identifier: MIT
// Points, lines, polygons, paths, translucent areas, filled rectangles.

#include "support/KxPaintListener.h"
#include "support/KxPainterStage.h"
#include "support/KxTestCase.h"

#include <vector>

namespace {

using Points = QVector<QPoint>;

std::vector<POINT> asRecords(const Points &points)
{
    std::vector<POINT> records;
    for (const QPoint &point : points)
        records.push_back({point.x(), point.y()});
    return records;
}

void polyline(KxQtPainterWrapper &wrapper, const Points &points)
{
    const std::vector<POINT> records = asRecords(points);
    wrapper.drawPolyline(records.data(), points.size());
}

void polygon(KxQtPainterWrapper &wrapper, const Points &points)
{
    const std::vector<POINT> records = asRecords(points);
    wrapper.drawPolygon(records.data(), points.size());
}

void alphaArea(KxQtPainterWrapper &wrapper, const Points &points, unsigned int colour, int alpha)
{
    std::vector<CPoint> corners;
    for (const QPoint &point : points)
        corners.emplace_back(point.x(), point.y());
    wrapper.drawAlphaArea(corners.data(), points.size(), colour, alpha);
}

const Points closedTriangle = {{5, 5}, {40, 9}, {22, 33}, {5, 5}};
const Points openTriangle = {{5, 5}, {40, 9}, {22, 33}};
/// Five corners, each line crossing two others: the odd-even rule leaves its middle open.
const Points star = {{24, 2}, {36, 37}, {4, 15}, {44, 15}, {12, 37}};
const Points boxOf20 = {{10, 10}, {30, 10}, {30, 30}, {10, 30}, {10, 10}};
const Points boxWithin = {{15, 15}, {25, 15}, {25, 25}, {15, 25}, {15, 15}};

QPainterPath pathOf(const QVector<Points> &figures)
{
    QPainterPath path;
    for (const Points &figure : figures)
        path.addPolygon(QPolygonF(QPolygon(figure)));
    return path;
}

QPen thick(int width, const QColor &colour)
{
    QPen pen(Qt::SolidLine);
    pen.setWidth(width);
    pen.setColor(colour);
    return pen;
}

QBrush solid(const QColor &colour)
{
    return QBrush(colour, Qt::SolidPattern);
}

QBrush translucent(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return QBrush(colour, Qt::SolidPattern);
}

/// A device that draws nothing and keeps the last polygon or polyline.
class PolygonListener : public KxPaintListener
{
public:
    Points points;
    int kind = -1;
    Qt::BrushStyle brush = Qt::NoBrush;

protected:
    using QPaintEngine::drawPolygon;
    void drawPolygon(const QPoint *corners, int n, PolygonDrawMode mode) override
    {
        points = Points(corners, corners + n);
        kind = mode;
        brush = painter()->brush().style();
    }
};

constexpr COLORREF red = 0x0000FF;
constexpr COLORREF blue = 0xFF0000;
constexpr int xorMode = 26;

} // namespace

Q_DECLARE_METATYPE(CRect)

class tst_PainterFigures : public KxTestCase
{
    Q_OBJECT

private slots:
    void picture_data();
    void picture();

    void polylinePicture_data();
    void polylinePicture();
    void closedXor_data();
    void closedXor();
    void closedXorPoints_data();
    void closedXorPoints();
    void closedXorOnceAndTwice();
    void closedXorKeepsTheBrush();

    void pathPicture_data();
    void pathPicture();
    void fillCoversHalfOfTheStroke();
    void pathBrackets();
    void pathCollects_data();
    void pathCollects();
    void notCollected_data();
    void notCollected();
    void emptiedPath_data();
    void emptiedPath();
    void pathAntialiasing_data();
    void pathAntialiasing();
    void pathOutsideOfEpisodes();
    void emptiedByAnInactivePainter_data();
    void emptiedByAnInactivePainter();

    void fillRect_data();
    void fillRect();
    void fillRectKeepsPenAndBrush();
    void alphaRect_data();
    void alphaRect();
    void alphaRectSize();
    void alphaBrush_data();
    void alphaBrush();
    void alphaAbove255();
    void alphaArea_data();
    void alphaArea();
};

// ---- points, lines, polygons ------------------------------------------------------------------------------

void tst_PainterFigures::picture_data()
{
    kxAddPictureColumns();
    kxAddPicture("a point is one pixel", [](KxQtPainterWrapper &p) { p.drawPoint(7, 9); },
        [](QPainter &p) { p.fillRect(7, 9, 1, 1, Qt::black); }, 1);
    kxAddPicture("a point of a pen of 3 is 3 by 3", [](KxQtPainterWrapper &p) {
        p.setPen(PS_SOLID, 3, red);
        p.drawPoint(7, 9);
    }, [](QPainter &p) { p.fillRect(6, 8, 3, 3, QColor(255, 0, 0)); }, 9);
    kxAddPicture("a point outside", [](KxQtPainterWrapper &p) { p.drawPoint(-1, 9); }, [](QPainter &) {}, 0);
    kxAddPicture("a line draws both ends", [](KxQtPainterWrapper &p) { p.drawLine(3, 5, 12, 5); },
        [](QPainter &p) { p.fillRect(3, 5, 10, 1, Qt::black); }, 10);
    kxAddPicture("a line backwards draws both ends", [](KxQtPainterWrapper &p) { p.drawLine(5, 12, 5, 3); },
        [](QPainter &p) { p.fillRect(5, 3, 1, 10, Qt::black); }, 10);
    kxAddPicture("a line in its pen", [](KxQtPainterWrapper &p) {
        p.setPen(PS_DOT, 3, red);
        p.drawLine(3, 5, 40, 31);
    }, [](QPainter &p) {
        QPen pen(Qt::DotLine);
        pen.setWidth(3);
        pen.setColor(Qt::red);
        p.setPen(pen);
        p.drawLine(3, 5, 40, 31);
    });
    kxAddPicture("a polygon is filled and outlined", [](KxQtPainterWrapper &p) {
        p.setPen(PS_SOLID, 3, red);
        p.setBrush(blue);
        polygon(p, openTriangle);
    }, [](QPainter &p) {
        p.setPen(thick(3, Qt::red));
        p.setBrush(solid(Qt::blue));
        p.drawPolygon(openTriangle.data(), 3, Qt::OddEvenFill);
    });
    kxAddPicture("a polygon with the episode's own pen and brush", [](KxQtPainterWrapper &p) {
        polygon(p, openTriangle);
    }, [](QPainter &p) { p.drawPolygon(openTriangle.data(), 3, Qt::OddEvenFill); });
    kxAddPicture("a star is open in its middle", [](KxQtPainterWrapper &p) {
        p.setBrush(blue);
        polygon(p, star);
    }, [](QPainter &p) {
        p.setBrush(solid(Qt::blue));
        p.drawPolygon(star.data(), 5, Qt::OddEvenFill);
    });
    kxAddPicture("a polygon of fewer points than the array", [](KxQtPainterWrapper &p) {
        p.drawPolygon(asRecords(star).data(), 3);
    }, [](QPainter &p) { p.drawPolygon(star.data(), 3, Qt::OddEvenFill); });
    kxAddPicture("a polygon of two points", [](KxQtPainterWrapper &p) { polygon(p, {{3, 3}, {20, 9}}); },
        [](QPainter &p) {
            const QPoint points[] = {{3, 3}, {20, 9}};
            p.drawPolygon(points, 2, Qt::OddEvenFill);
        });
    kxAddPicture("a polygon of one point is what Qt makes of it",
        [](KxQtPainterWrapper &p) { polygon(p, {{3, 3}}); }, [](QPainter &) {}, 0);
    kxAddPicture("a polygon of no points", [](KxQtPainterWrapper &p) {
        p.drawPolygon(asRecords(star).data(), 0);
        p.drawPolygon(nullptr, 0);
    }, [](QPainter &) {}, 0);
    kxAddPicture("a polygon of -1 points", [](KxQtPainterWrapper &p) {
        p.drawPolygon(asRecords(star).data(), -1);
        p.drawPolygon(nullptr, -5);
    }, [](QPainter &) {}, 0);
    kxAddPicture("an image is scaled up", [](KxQtPainterWrapper &p) {
        QImage image(1, 1, QImage::Format_RGB32);
        image.fill(Qt::red);
        p.drawImage(QRect(2, 3, 4, 5), image);
    }, [](QPainter &p) { p.fillRect(2, 3, 4, 5, Qt::red); }, 20);
    kxAddPicture("an image is scaled down", [](KxQtPainterWrapper &p) {
        p.drawImage(QRect(2, 3, 11, 7), kxModelled([](QPainter &q) { q.drawPolygon(star.data(), 5); }));
    }, [](QPainter &p) {
        p.drawImage(QRect(2, 3, 11, 7), kxModelled([](QPainter &q) { q.drawPolygon(star.data(), 5); }));
    });
    kxAddPicture("a translucent image is blended", [](KxQtPainterWrapper &p) {
        QImage image(9, 9, QImage::Format_ARGB32);
        image.fill(QColor(255, 0, 0, 100));
        p.drawImage(QRect(2, 3, 9, 9), image);
    }, [](QPainter &p) { p.fillRect(2, 3, 9, 9, QColor(255, 0, 0, 100)); }, 81);
    kxAddPicture("a null image", [](KxQtPainterWrapper &p) { p.drawImage(QRect(2, 3, 9, 9), QImage()); },
        [](QPainter &) {}, 0);
    kxAddPicture("an image into an empty rectangle", [](KxQtPainterWrapper &p) {
        p.drawImage(QRect(2, 3, 0, 9), kxCanvas(4, 4, QImage::Format_RGB16));
    }, [](QPainter &p) { p.drawImage(QRect(2, 3, 0, 9), kxCanvas(4, 4, QImage::Format_RGB16)); }, 0);
}

void tst_PainterFigures::picture()
{
    kxComparePictures();
}

// ---- polylines --------------------------------------------------------------------------------------------

void tst_PainterFigures::polylinePicture_data()
{
    kxAddPictureColumns();
    const auto row = [](const char *name, int mode, int width, const Points &points) {
        kxAddPicture(name, [mode, width, points](KxQtPainterWrapper &p) {
            p.setROP2(mode);
            p.setPen(PS_SOLID, width, 0x408020);
            polyline(p, points);
        }, [mode, width, points](QPainter &p) {
            p.setCompositionMode(QPainter::CompositionMode(mode));
            p.setPen(thick(width, QColor(0x20, 0x80, 0x40)));
            p.drawPolyline(points.data(), points.size());
        });
    };
    row("open", 0, 0, openTriangle);
    row("open and wide", 0, 5, openTriangle);
    row("closed is not filled", 0, 0, closedTriangle);
    row("closed and wide", 0, 5, closedTriangle);
    row("closed in mode 24", 24, 5, closedTriangle);
    row("closed in mode 25", 25, 5, closedTriangle);
    row("closed in mode 27", 27, 5, closedTriangle);
    row("closed in mode 29, the negated XOR", 29, 5, closedTriangle);
    row("closed in mode 11, Qt's other XOR", 11, 5, closedTriangle);
    row("open in mode 26", xorMode, 5, openTriangle);
    row("open in mode 26, hairline", xorMode, 0, openTriangle);
    row("mode 26, the ends at one x", xorMode, 5, {{5, 5}, {40, 9}, {22, 33}, {5, 6}});
    row("mode 26, the ends at one y", xorMode, 5, {{5, 5}, {40, 9}, {22, 33}, {6, 5}});
    row("mode 26, closed in the middle alone", xorMode, 5, {{5, 5}, {40, 9}, {5, 5}, {22, 33}});
    row("two points", 0, 0, {{3, 3}, {20, 9}});
    const auto nothing = [](const char *name, int mode, int n) {
        kxAddPicture(name, [mode, n](KxQtPainterWrapper &p) {
            p.setROP2(mode);
            p.drawPolyline(asRecords(closedTriangle).data(), n);
            if (n < 1)
                p.drawPolyline(nullptr, n);
        }, [](QPainter &) {}, 0);
    };
    nothing("no points", 0, 0);
    nothing("no points in mode 26", xorMode, 0);
    nothing("-1 points", 0, -1);
    nothing("-1 points in mode 26", xorMode, -1);
    nothing("one point", 0, 1);
    nothing("one point in mode 26", xorMode, 1);
}

void tst_PainterFigures::polylinePicture()
{
    kxComparePictures();
}

void tst_PainterFigures::closedXor_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QVector<QPoint>>("points");
    QTest::newRow("triangle") << 0 << closedTriangle;
    QTest::newRow("triangle, pen of 5") << 5 << closedTriangle;
    QTest::newRow("box") << 0 << boxOf20;
    QTest::newRow("box, pen of 4") << 4 << boxOf20;
    QTest::newRow("there and back") << 3 << Points{{5, 5}, {40, 9}, {5, 5}};
    QTest::newRow("crossing itself") << 3 << (Points(star) << star.first());
    QTest::newRow("the same point twice") << 3 << Points{{5, 5}, {5, 5}};
}

void tst_PainterFigures::closedXor()
{
    QFETCH(int, width);
    QFETCH(QVector<QPoint>, points);
    const QImage picture = kxDrawn([&](KxQtPainterWrapper &p) {
        p.setROP2(xorMode);
        p.setPen(PS_SOLID, width, 0x408020);
        p.setBrush(blue); // black would not show
        polyline(p, points);
    });
    const QImage expected = kxModelled([&](QPainter &p) {
        p.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        p.setPen(thick(width, QColor(0x20, 0x80, 0x40)));
        p.setBrush(Qt::NoBrush);
        p.drawPolygon(points.data(), points.size() - 1, Qt::OddEvenFill);
    });
    QCOMPARE(picture, expected);
}

void tst_PainterFigures::closedXorPoints_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QVector<QPoint>>("points");
    QTest::addColumn<int>("corners");
    QTest::addColumn<int>("kind");
    QTest::newRow("closed in mode 26: a polygon without its last point")
        << xorMode << closedTriangle << 3 << int(QPaintEngine::OddEvenMode);
    QTest::newRow("closed in mode 26, six points: a polygon of five")
        << xorMode << (Points(star) << star.first()) << 5 << int(QPaintEngine::OddEvenMode);
    QTest::newRow("open in mode 26: a polyline")
        << xorMode << openTriangle << 3 << int(QPaintEngine::PolylineMode);
    QTest::newRow("closed in mode 0: a polyline")
        << 0 << closedTriangle << 4 << int(QPaintEngine::PolylineMode);
}

void tst_PainterFigures::closedXorPoints()
{
    QFETCH(int, mode);
    QFETCH(QVector<QPoint>, points);
    QFETCH(int, corners);
    QFETCH(int, kind);
    PolygonListener device;
    KxQtPainterWrapper wrapper(&device);
    QVERIFY(wrapper.beginDraw());
    wrapper.setROP2(mode);
    polyline(wrapper, points);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(device.points, points.mid(0, corners));
    QCOMPARE(device.kind, kind);
    QCOMPARE(device.brush, kind == QPaintEngine::OddEvenMode ? Qt::NoBrush : Qt::SolidPattern);
}

void tst_PainterFigures::closedXorOnceAndTwice()
{
    const auto draw = [](int times) {
        return kxDrawn([times](KxQtPainterWrapper &p) {
            p.setROP2(xorMode);
            p.setPen(PS_SOLID, 5, 0x408020);
            p.setBrush(blue);
            for (int i = 0; i < times; ++i)
                polyline(p, closedTriangle);
        });
    };
    const QImage plain = kxModelled([](QPainter &p) {
        p.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        p.setPen(thick(5, QColor(0x20, 0x80, 0x40)));
        p.drawPolyline(closedTriangle.data(), closedTriangle.size());
    });
    QVERIFY(kxTouched(draw(1)) > 0);
    QCOMPARE(draw(1).pixel(21, 15), kxCanvasColour); // no fill
    QVERIFY2(draw(1) != plain, "the shared end is drawn as a corner");
    QCOMPARE(kxTouched(draw(2)), 0);
    QCOMPARE(draw(3), draw(1));
}

void tst_PainterFigures::closedXorKeepsTheBrush()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.setROP2(xorMode);
    wrapper.setBrush(red);
    wrapper.setPen(PS_SOLID, 2, blue);
    const QPen pen = wrapper.wrappedPainter()->pen();
    polyline(wrapper, closedTriangle);
    QCOMPARE(wrapper.wrappedPainter()->brush(), solid(Qt::red));
    QCOMPARE(wrapper.wrappedPainter()->pen(), pen);
    QCOMPARE(wrapper.getROP2(), xorMode);
    QVERIFY(wrapper.endDraw());
}

// ---- paths ------------------------------------------------------------------------------------------------

void tst_PainterFigures::pathPicture_data()
{
    kxAddPictureColumns();
    using Finish = void (KxQtPainterWrapper::*)();
    const auto row = [](const char *name, const QVector<Points> &figures, Finish finish,
                         const KxModel &model) {
        kxAddPicture(name, [figures, finish](KxQtPainterWrapper &p) {
            p.setPen(PS_SOLID, 5, red);
            p.setBrush(blue);
            p.beginPath();
            for (const Points &figure : figures)
                polyline(p, figure);
            p.endPath();
            (p.*finish)();
        }, [model](QPainter &p) {
            p.setPen(thick(5, Qt::red));
            p.setBrush(solid(Qt::blue));
            model(p);
        });
    };
    const auto stroke = [](const QVector<Points> &figures) {
        return [figures](QPainter &p) { p.strokePath(pathOf(figures), p.pen()); };
    };
    const auto fill = [](const QVector<Points> &figures) {
        return [figures](QPainter &p) {
            p.setRenderHint(QPainter::Antialiasing, true);
            p.fillPath(pathOf(figures), p.brush());
        };
    };
    const auto strokeAndFill = [](const QVector<Points> &figures) {
        return [figures](QPainter &p) {
            p.setRenderHint(QPainter::Antialiasing, true);
            p.strokePath(pathOf(figures), p.pen());
            p.fillPath(pathOf(figures), p.brush());
        };
    };
    const struct
    {
        const char *name;
        QVector<Points> figures;
    } paths[] = {
        {"open triangle", {openTriangle}},
        {"closed triangle", {closedTriangle}},
        {"a box in a box", {boxOf20, boxWithin}},
        {"a star", {star}},
        {"two apart", {{{2, 2}, {12, 3}, {7, 14}}, {{30, 20}, {44, 22}, {33, 36}}}},
    };
    for (const auto &each : paths) {
        row(("stroke: " + QByteArray(each.name)).constData(), each.figures, &KxQtPainterWrapper::strokePath,
            stroke(each.figures));
        row(("fill: " + QByteArray(each.name)).constData(), each.figures, &KxQtPainterWrapper::fillPath,
            fill(each.figures));
        row(("stroke and fill: " + QByteArray(each.name)).constData(), each.figures,
            &KxQtPainterWrapper::strokeAndFillPath, strokeAndFill(each.figures));
    }
    kxAddPicture("no path, nothing drawn", [](KxQtPainterWrapper &p) {
        p.strokePath();
        p.fillPath();
        p.strokeAndFillPath();
    }, [](QPainter &) {}, 0);
    kxAddPicture("collected, nothing drawn", [](KxQtPainterWrapper &p) {
        p.beginPath();
        polyline(p, closedTriangle);
        p.endPath();
    }, [](QPainter &) {}, 0);
    kxAddPicture("without a brush a stroke alone", [](KxQtPainterWrapper &p) {
        p.setBrush(0);
        p.beginPath();
        polyline(p, closedTriangle);
        p.strokeAndFillPath();
    }, [](QPainter &p) {
        p.setRenderHint(QPainter::Antialiasing, true);
        p.strokePath(pathOf({closedTriangle}), p.pen());
    });
}

void tst_PainterFigures::pathPicture()
{
    kxComparePictures();
}

void tst_PainterFigures::fillCoversHalfOfTheStroke()
{
    const QImage picture = kxDrawn([](KxQtPainterWrapper &p) {
        p.setPen(PS_SOLID, 6, red);
        p.setBrush(blue);
        p.beginPath();
        polyline(p, boxOf20);
        p.strokeAndFillPath();
    });
    QByteArray row;
    for (int x = 5; x < 36; ++x)
        row += picture.pixel(x, 20) == 0xFFFF0000U ? 'r' : picture.pixel(x, 20) == 0xFF0000FFU ? 'b' : '.';
    QCOMPARE(row, QByteArray("..rrrbbbbbbbbbbbbbbbbbbbbrrr..."));
}

void tst_PainterFigures::pathBrackets()
{
    QImage image = kxCanvas();
    KxPainterFields wrapper(&image);
    QVERIFY(!wrapper.inPath);
    wrapper.beginPath();
    QVERIFY(wrapper.inPath);
    polyline(wrapper, closedTriangle);
    wrapper.endPath();
    QVERIFY(!wrapper.inPath);
    QCOMPARE(*wrapper.path, pathOf({closedTriangle})); // ending leaves the path
    wrapper.beginPath();
    QCOMPARE(*wrapper.path, pathOf({closedTriangle})); // and so does beginning
    polyline(wrapper, boxOf20);
    QCOMPARE(*wrapper.path, pathOf({closedTriangle, boxOf20}));
    QVERIFY(wrapper.beginDraw());
    QVERIFY(wrapper.inPath);
    QCOMPARE(*wrapper.path, pathOf({closedTriangle, boxOf20}));
    wrapper.strokeAndFillPath();
    QVERIFY2(wrapper.inPath, "drawing the path goes on collecting");
    QCOMPARE(wrapper.path->elementCount(), 0);
    const QImage drawn = image.copy();
    QVERIFY(kxTouched(drawn) > 0);
    polyline(wrapper, boxWithin);
    QCOMPARE(image, drawn);
    QCOMPARE(*wrapper.path, pathOf({boxWithin}));
    QVERIFY(wrapper.endDraw());
    QVERIFY(wrapper.inPath);
    QCOMPARE(*wrapper.path, pathOf({boxWithin}));
}

void tst_PainterFigures::pathCollects_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QVector<QPoint>>("points");
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("elements");
    QTest::newRow("open") << 0 << openTriangle << 3 << 3;
    QTest::newRow("closed") << 0 << closedTriangle << 4 << 4;
    QTest::newRow("closed in mode 26, all its points") << xorMode << closedTriangle << 4 << 4;
    QTest::newRow("fewer than the array has") << 0 << star << 2 << 2;
    QTest::newRow("no points") << 0 << star << 0 << 0;
    QTest::newRow("-1 points") << 0 << star << -1 << 0;
}

void tst_PainterFigures::pathCollects()
{
    QFETCH(int, mode);
    QFETCH(QVector<QPoint>, points);
    QFETCH(int, n);
    QFETCH(int, elements);
    QImage image = kxCanvas();
    KxPainterFields wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.setROP2(mode);
    wrapper.beginPath();
    wrapper.drawPolyline(asRecords(points).data(), n);
    QCOMPARE(wrapper.path->elementCount(), elements);
    QCOMPARE(*wrapper.path, pathOf({points.mid(0, qMax(n, 0))}));
    QVERIFY(wrapper.endDraw());
    QCOMPARE(kxTouched(image), 0);
}

void tst_PainterFigures::notCollected_data()
{
    QTest::addColumn<KxDraw>("draw");
    QTest::newRow("point") << KxDraw([](KxQtPainterWrapper &p) { p.drawPoint(3, 3); });
    QTest::newRow("line") << KxDraw([](KxQtPainterWrapper &p) { p.drawLine(3, 3, 20, 30); });
    QTest::newRow("polygon") << KxDraw([](KxQtPainterWrapper &p) { polygon(p, star); });
    QTest::newRow("text") << KxDraw([](KxQtPainterWrapper &p) { p.drawText(3, 20, L"H", -1); });
    QTest::newRow("rectangle") << KxDraw([](KxQtPainterWrapper &p) { p.fillRect(CRect(1, 1, 9, 9), red); });
    QTest::newRow("translucent rectangle")
        << KxDraw([](KxQtPainterWrapper &p) { p.drawAlphaRect(CRect(1, 1, 9, 9), red, 80); });
    QTest::newRow("translucent area") << KxDraw([](KxQtPainterWrapper &p) { ::alphaArea(p, star, red, 80); });
}

void tst_PainterFigures::notCollected()
{
    QFETCH(KxDraw, draw);
    QImage image = kxCanvas();
    KxPainterFields wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.beginPath();
    draw(wrapper);
    QCOMPARE(wrapper.path->elementCount(), 0);
    QVERIFY(wrapper.endDraw());
    QVERIFY(kxTouched(image) > 0);
    QCOMPARE(image, kxDrawn(draw));
}

void tst_PainterFigures::emptiedPath_data()
{
    QTest::addColumn<KxDraw>("finish");
    QTest::newRow("strokePath") << KxDraw([](KxQtPainterWrapper &p) { p.strokePath(); });
    QTest::newRow("fillPath") << KxDraw([](KxQtPainterWrapper &p) { p.fillPath(); });
    QTest::newRow("strokeAndFillPath") << KxDraw([](KxQtPainterWrapper &p) { p.strokeAndFillPath(); });
}

void tst_PainterFigures::emptiedPath()
{
    QFETCH(KxDraw, finish);
    QImage image = kxCanvas();
    KxPainterFields wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.beginPath();
    polyline(wrapper, closedTriangle);
    finish(wrapper);
    QVERIFY(kxTouched(image) > 0);
    QCOMPARE(wrapper.path->elementCount(), 0);
    QVERIFY(wrapper.inPath);
    image.fill(kxCanvasColour);
    finish(wrapper);
    QCOMPARE(kxTouched(image), 0); // there is nothing to draw a second time
    wrapper.endPath();
    polyline(wrapper, closedTriangle);
    QVERIFY(kxTouched(image) > 0); // drawn, no longer collected
    QCOMPARE(wrapper.path->elementCount(), 0);
    QVERIFY(wrapper.endDraw());
}

void tst_PainterFigures::pathAntialiasing_data()
{
    QTest::addColumn<KxDraw>("finish");
    QTest::addColumn<bool>("expected");
    QTest::newRow("stroking leaves it off") << KxDraw([](KxQtPainterWrapper &p) { p.strokePath(); }) << false;
    QTest::newRow("filling turns it on") << KxDraw([](KxQtPainterWrapper &p) { p.fillPath(); }) << true;
    QTest::newRow("stroking and filling turns it on")
        << KxDraw([](KxQtPainterWrapper &p) { p.strokeAndFillPath(); }) << true;
    QTest::newRow("stroking after filling leaves it on") << KxDraw([](KxQtPainterWrapper &p) {
        p.fillPath();
        p.strokePath();
    }) << true;
}

void tst_PainterFigures::pathAntialiasing()
{
    QFETCH(KxDraw, finish);
    QFETCH(bool, expected);
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    QVERIFY(!wrapper.wrappedPainter()->testRenderHint(QPainter::Antialiasing));
    finish(wrapper);
    QCOMPARE(wrapper.wrappedPainter()->testRenderHint(QPainter::Antialiasing), expected);
    wrapper.drawLine(3, 3, 40, 20); // it stays for what comes
    QVERIFY(wrapper.endDraw());
    const QImage modelled = kxModelled([expected](QPainter &p) {
        p.setRenderHint(QPainter::Antialiasing, expected);
        p.drawLine(3, 3, 40, 20);
    });
    QCOMPARE(image, modelled);
}

void tst_PainterFigures::pathOutsideOfEpisodes()
{
    QImage image = kxCanvas();
    KxPainterFields wrapper;
    wrapper.beginPath();
    polyline(wrapper, closedTriangle); // without a device and without a word of Qt's
    wrapper.endPath();
    wrapper.setWrappedDevice(&image);
    QVERIFY(wrapper.beginDraw());
    QCOMPARE(*wrapper.path, pathOf({closedTriangle}));
    wrapper.strokePath();
    QVERIFY(wrapper.endDraw());
    QCOMPARE(image, kxModelled([](QPainter &p) { p.strokePath(pathOf({closedTriangle}), p.pen()); }));
    QVERIFY(kxTouched(image) > 0);
}

void tst_PainterFigures::emptiedByAnInactivePainter_data()
{
    emptiedPath_data();
}

void tst_PainterFigures::emptiedByAnInactivePainter()
{
    QFETCH(KxDraw, finish);
    KxPainterFields wrapper;
    wrapper.beginPath();
    polyline(wrapper, closedTriangle);
    QVERIFY(!kxMessagesOf([&] { finish(wrapper); }).isEmpty());
    QCOMPARE(wrapper.path->elementCount(), 0);
    QVERIFY(wrapper.inPath);
}

// ---- rectangles and translucent areas ---------------------------------------------------------------------

void tst_PainterFigures::fillRect_data()
{
    kxAddPictureColumns();
    const auto row = [](const char *name, const CRect &rect, int touched) {
        kxAddPicture(name, [rect](KxQtPainterWrapper &p) { p.fillRect(rect, 0xFF332211U); },
            [rect](QPainter &p) {
                p.fillRect(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                    QColor(0x11, 0x22, 0x33));
            }, touched);
    };
    row("10 by 10 are 100 pixels", CRect(0, 0, 10, 10), 100);
    row("right and bottom excluded", CRect(5, 6, 9, 7), 4);
    row("no width", CRect(5, 6, 5, 12), 0);
    row("no height", CRect(5, 6, 12, 6), 0);
    row("right before left is what Qt makes of it", CRect(20, 5, 10, 15), 100);
    row("bottom above top is what Qt makes of it", CRect(5, 20, 15, 10), 100);
    row("beyond the canvas", CRect(40, 30, 400, 300), 80);
}

void tst_PainterFigures::fillRect()
{
    kxComparePictures();
}

void tst_PainterFigures::fillRectKeepsPenAndBrush()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.setPen(PS_SOLID, 7, blue);
    wrapper.setBrush(blue);
    const QPen pen = wrapper.wrappedPainter()->pen();
    wrapper.fillRect(CRect(10, 10, 20, 20), red);
    QCOMPARE(wrapper.wrappedPainter()->pen(), pen);
    QCOMPARE(wrapper.wrappedPainter()->brush(), solid(Qt::blue));
    QVERIFY(wrapper.endDraw());
    QCOMPARE(kxCount(image, 0xFFFF0000U), 100);
    QCOMPARE(kxTouched(image), 100);
}

void tst_PainterFigures::alphaRect_data()
{
    QTest::addColumn<CRect>("rect");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    const auto row = [](const char *name, const CRect &rect, bool swapped) {
        const QPoint topLeft(rect.left, rect.top);
        const QPoint bottomRight(rect.right, rect.bottom);
        QTest::newRow(name) << rect << (swapped ? bottomRight : topLeft) << (swapped ? topLeft : bottomRight);
    };
    row("in order", CRect(5, 6, 20, 18), false);
    row("both swapped", CRect(20, 18, 5, 6), true);
    row("left and right swapped: both corners change", CRect(20, 6, 5, 18), true);
    row("top and bottom swapped: no corner changes", CRect(5, 18, 20, 6), false);
    row("no width: both corners change", CRect(9, 6, 9, 18), true);
    row("no width, from the bottom", CRect(9, 18, 9, 6), true);
    row("no height", CRect(5, 9, 20, 9), false);
    row("a width of 1", CRect(5, 6, 6, 18), false);
    row("a width of -1", CRect(6, 18, 5, 6), true);
    row("nothing but a point", CRect(9, 9, 9, 9), true);
}

void tst_PainterFigures::alphaRect()
{
    QFETCH(CRect, rect);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    for (const int width : {0, 3}) {
        for (const int alpha : {-1, 0, 1, 90, 254, 255}) {
            const QImage picture = kxDrawn([&](KxQtPainterWrapper &p) {
                p.setPen(PS_SOLID, width, red);
                p.drawAlphaRect(rect, 0x99FF0000U, alpha);
            });
            const QImage expected = kxModelled([&](QPainter &p) {
                p.setPen(thick(width, Qt::red));
                p.setBrush(alpha >= 1 ? translucent(Qt::blue, alpha) : QBrush(Qt::NoBrush));
                p.drawRect(QRect(from, to));
            });
            QCOMPARE(picture, expected);
            QVERIFY(kxTouched(picture) > 0);
        }
    }
}

void tst_PainterFigures::alphaRectSize()
{
    const auto draw = [](int style, int alpha) {
        return kxDrawn([style, alpha](KxQtPainterWrapper &p) {
            p.setPen(style, 0, red);
            p.drawAlphaRect(CRect(0, 0, 10, 10), blue, alpha);
        });
    };
    // 11 by 11 without an outline; the outline of a hairline stands around it to the right and below.
    QCOMPARE(kxTouched(draw(PS_NULL, 255)), 121);
    QCOMPARE(kxTouchedRect(draw(PS_NULL, 255)), QRect(0, 0, 11, 11));
    QCOMPARE(kxTouched(draw(PS_NULL, 100)), 121);
    QCOMPARE(kxTouched(draw(PS_NULL, 0)), 0);
    QCOMPARE(kxTouchedRect(draw(PS_SOLID, 255)), QRect(0, 0, 12, 12));
    QCOMPARE(kxCount(draw(PS_SOLID, 255), 0xFFFF0000U), 44);
    QCOMPARE(kxCount(draw(PS_SOLID, 255), 0xFF0000FFU), 100);
    QCOMPARE(kxTouched(draw(PS_SOLID, 0)), 44); // the outline alone
    QCOMPARE(kxCount(draw(PS_SOLID, 0), 0xFFFF0000U), 44);
}

void tst_PainterFigures::alphaBrush_data()
{
    QTest::addColumn<int>("alpha");
    QTest::addColumn<bool>("filled");
    QTest::newRow("-100 is no brush") << -100 << false;
    QTest::newRow("-1 is no brush") << -1 << false;
    QTest::newRow("0 is no brush") << 0 << false;
    QTest::newRow("1") << 1 << true;
    QTest::newRow("128") << 128 << true;
    QTest::newRow("254") << 254 << true;
    QTest::newRow("255") << 255 << true;
}

void tst_PainterFigures::alphaBrush()
{
    QFETCH(int, alpha);
    QFETCH(bool, filled);
    const QBrush expected = filled ? translucent(QColor(0x11, 0x22, 0x33), alpha) : QBrush(Qt::NoBrush);
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.drawAlphaRect(CRect(2, 2, 20, 20), 0xFF332211U, alpha);
    QCOMPARE(wrapper.wrappedPainter()->brush().style(), expected.style());
    QCOMPARE(wrapper.wrappedPainter()->brush(), expected); // stays set
    wrapper.setBrush(red);
    ::alphaArea(wrapper, star, 0xFF332211U, alpha);
    QCOMPARE(wrapper.wrappedPainter()->brush(), expected);
    QVERIFY(wrapper.endDraw());
}

/// Qt takes 256 for 255, and says so.
void tst_PainterFigures::alphaAbove255()
{
    for (int i = 0; i < 2; ++i)
        expectWarning(QStringLiteral("^\"QColor::setAlpha\": invalid value 256$"));
    const QImage picture = kxDrawn([](KxQtPainterWrapper &p) {
        p.drawAlphaRect(CRect(2, 2, 20, 20), red, 256);
        ::alphaArea(p, star, blue, 256);
    });
    const QImage expected = kxDrawn([](KxQtPainterWrapper &p) {
        p.drawAlphaRect(CRect(2, 2, 20, 20), red, 255);
        ::alphaArea(p, star, blue, 255);
    });
    QCOMPARE(picture, expected);
}

void tst_PainterFigures::alphaArea_data()
{
    kxAddPictureColumns();
    const auto row = [](const char *name, const Points &points, int style, int alpha) {
        kxAddPicture(name, [points, style, alpha](KxQtPainterWrapper &p) {
            p.setPen(style, 3, red);
            ::alphaArea(p, points, 0x77FF0000U, alpha);
        }, [points, style, alpha](QPainter &p) {
            p.setPen(style == PS_NULL ? QPen(Qt::NoPen) : thick(3, Qt::red));
            p.setBrush(alpha >= 1 ? translucent(Qt::blue, alpha) : QBrush(Qt::NoBrush));
            p.drawPolygon(points.data(), points.size(), Qt::OddEvenFill);
        });
    };
    row("triangle", openTriangle, PS_SOLID, 100);
    row("closed triangle", closedTriangle, PS_SOLID, 100);
    row("opaque", openTriangle, PS_SOLID, 255);
    row("alpha 1", openTriangle, PS_SOLID, 1);
    row("alpha 0: the outline alone", openTriangle, PS_SOLID, 0);
    row("alpha -1: the outline alone", openTriangle, PS_SOLID, -1);
    row("without an outline", openTriangle, PS_NULL, 100);
    row("a star is open in its middle", star, PS_SOLID, 100);
    const auto nothing = [](const char *name, int n, int alpha) {
        kxAddPicture(name, [n, alpha](KxQtPainterWrapper &p) {
            const CPoint points[] = {CPoint(3, 3), CPoint(20, 3), CPoint(20, 20)};
            p.setBrush(blue);
            p.drawAlphaArea(points, n, red, alpha);
            p.drawAlphaArea(nullptr, n, red, alpha);
            QCOMPARE(p.wrappedPainter()->brush(), solid(Qt::blue));
        }, [](QPainter &) {}, 0);
    };
    nothing("no points: nothing at all, the brush stays", 0, 100);
    nothing("-1 points: nothing at all, the brush stays", -1, 100);
    nothing("no points, alpha 0: nothing at all, the brush stays", 0, 0);
}

void tst_PainterFigures::alphaArea()
{
    kxComparePictures();
}

KX_TEST_MAIN(tst_PainterFigures)
#include "tst_painter_figures.moc"
