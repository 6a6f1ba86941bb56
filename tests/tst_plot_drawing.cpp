// SPDX-License-Identifier: MIT
#include "KxPlotProgram.h"
#include "KxTestCase.h"

#include "GdiFont.h"
#include "PlotReader.h"
#include "PlotSheetPainter.h"

#include <QtCore/QQueue>
#include <QtGui/QPainter>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>

namespace {

constexpr QRgb WhitePaper = 0xfffdfdfb;
constexpr QRgb DarkInk = 0xff22262b;        // of pen 1

// A square of 40 mm in one of 100 mm, and a line right of the small one; both squares are closed.
constexpr const char *Squares = "IN;SP1;PU0,0;PD4000,0,4000,4000,0,4000,0,0;PU400,400;"
                                "PD2000,400,2000,2000,400,2000,400,400;PU3000,400;PD3000,2000;PU;";

/// A picture of a plot on a sheet without margins, `width` pixels wide.
QImage drawn(const Plot &plot, const PlotSheet &sheet, int width)
{
    const PlotSheetPainter sheetPainter(plot, sheet);
    const double height = width * sheetPainter.sheetSize().height() / sheetPainter.sheetSize().width();
    QImage image(width, qRound(height), QImage::Format_ARGB32_Premultiplied);
    KxQtPainterWrapper painter(&image);
    painter.beginDraw();
    sheetPainter.paint(painter, image.rect());
    painter.endDraw();
    return image;
}

PlotSheet bareSheet()
{
    PlotSheet sheet;
    sheet.margin = 0;
    return sheet;
}

Plot plotOf(const QByteArray &instructions)
{
    return PlotReader::readBytes(instructions).plot;
}

/// The program with a plot from a file.
class Program : public PlotProgram
{
public:
    explicit Program(const QByteArray &instructions) : PlotProgram(file(instructions)) {}

    PlotCanvas &canvas() const { return *form().canvas(); }
    /// A place on the sheet, 0 to 1 from left to right and from top to bottom, in the canvas.
    QPoint spot(double x, double y) const
    {
        const QRect paper = canvas().paper();
        return QPoint(paper.left() + qRound(x * paper.width()), paper.top() + qRound(y * paper.height()));
    }
    void press(const QPoint &point) const { QTest::mousePress(&canvas(), Qt::LeftButton, {}, point); }
    void move(const QPoint &point) const
    {
        QMouseEvent event(QEvent::MouseMove, point, Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&canvas(), &event);
    }
    void release(const QPoint &point) const { QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, point); }
    void drag(const QPoint &from, const QPoint &to) const
    {
        press(from);
        move(to);
        release(to);
    }
    void pour(const QPoint &point) const
    {
        command(ID_TOOL_FILL)->trigger();
        QTest::mouseClick(&canvas(), Qt::LeftButton, {}, point);
    }
    QList<int> selectedRows() const
    {
        QList<int> rows;
        for (const QModelIndex &index : list().selectionModel()->selectedRows())
            rows.append(index.row());
        std::sort(rows.begin(), rows.end());
        return rows;
    }

private:
    static QString file(const QByteArray &instructions)
    {
        static QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("plot.hpgl"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(instructions) != instructions.size())
            qFatal("%s cannot be written", qPrintable(path));
        return path;
    }
};

/// The pixels that a queue reaches from `seed` without leaving its colour.
QSet<QPair<int, int>> reached(const QImage &image, const QPoint &seed)
{
    QSet<QPair<int, int>> found;
    QQueue<QPoint> queue;
    queue.enqueue(seed);
    while (!queue.isEmpty()) {
        const QPoint p = queue.dequeue();
        if (!image.valid(p) || image.pixel(p) != image.pixel(seed) || found.contains({p.x(), p.y()}))
            continue;
        found.insert({p.x(), p.y()});
        for (const QPoint &side : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)})
            queue.enqueue(p + side);
    }
    return found;
}

bool touches(const QSet<QPair<int, int>> &area, int x, int y)
{
    return area.contains({x - 1, y}) || area.contains({x + 1, y}) || area.contains({x, y - 1})
           || area.contains({x, y + 1});
}

int countOf(const QImage &image, QRgb colour, const QRect &part)
{
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            count += image.pixel(x, y) == colour;
    }
    return count;
}

} // namespace

using Track = QVector<QPointF>;
Q_DECLARE_METATYPE(Track)

class PlotDrawingTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void init();
    void lineTypes_data();
    void lineTypes();
    void areaWithAHole();
    void titleBlock_data();
    void titleBlock();
    void plotKeepsToItsArea();
    void fontSizeIsInPixels();
    void lettersThatPlottersLack();
    void windowShowsTheFrontImage();
    void imagesFollowTheWindow();
    void bandInverts();
    void bandLeavesNoTrace_data();
    void bandLeavesNoTrace();
    void bandSelects_data();
    void bandSelects();
    void bandTakesOnlyWhatIsVisible();
    void bandInTheProperties();
    void selectedLabelIsShaded();
    void bucketFillsAFigure_data();
    void bucketFillsAFigure();
    void bucketOnInk();
    void bucketHoldsThePensInk();
    void fillsStay();
    void fillsEnd_data();
    void fillsEnd();
    void print_data();
    void print();
    void printedFill();
    void printCommand();
    void printThatFails_data();
    void printThatFails();
};

void PlotDrawingTest::init()
{
    KxTestCase::init();
    plotStore().clear();
}

void PlotDrawingTest::lineTypes_data()
{
    QTest::addColumn<QByteArray>("lineType");
    QTest::addColumn<QVector<double>>("runs");

    // Ink and gap in turn, in shares of a pattern of 20 mm; a dot is as long as the pen is wide.
    const double dot = 0.05;
    QTest::newRow("solid") << QByteArray("LT") << QVector<double>{10};
    QTest::newRow("1, dots") << QByteArray("LT1,20,1") << QVector<double>{dot, 1 - dot, dot, 1 - dot};
    QTest::newRow("2, short dashes") << QByteArray("LT2,20,1") << QVector<double>{0.5, 0.5, 0.5, 0.5};
    QTest::newRow("3, long dashes") << QByteArray("LT3,20,1") << QVector<double>{0.7, 0.3, 0.7, 0.3};
    QTest::newRow("4, dash and dot") << QByteArray("LT4,20,1") << QVector<double>{0.8, 0.1, dot, 0.1 - dot};
    QTest::newRow("5, long and short dash") << QByteArray("LT5,20,1") << QVector<double>{0.7, 0.1, 0.1, 0.1};
    QTest::newRow("6, dash and two short ones")
        << QByteArray("LT6,20,1") << QVector<double>{0.5, 0.1, 0.1, 0.1, 0.1, 0.1};
    QTest::newRow("7, dash and two dots")
        << QByteArray("LT7,20,1") << QVector<double>{0.7, 0.1, dot, 0.1 - dot, dot, 0.1 - dot};
    QTest::newRow("8, dash, dot, short dash, dot")
        << QByteArray("LT8,20,1") << QVector<double>{0.5, 0.1, dot, 0.1 - dot, 0.1, 0.1, dot, 0.1 - dot};
    QTest::newRow("a pattern too fine to be seen is a line") << QByteArray("LT2,.1,1") << QVector<double>{10};
}

void PlotDrawingTest::lineTypes()
{
    QFETCH(QByteArray, lineType);
    QFETCH(QVector<double>, runs);
    // Two dots hold the plot at 200 by 100 mm, which fill a sheet of 297 mm: a pen of 1.485 mm draws 1 mm of
    // the plot.
    const Plot plot = plotOf("SP1;PU0,0;PD0,0;PU8000,4000;PD8000,4000;PU;PW1.485;" + lineType
                             + ";PU0,2000;PD8000,2000;PU;");
    const QImage image = drawn(plot, bareSheet(), 2000);
    const double pattern = 200;     // pixels: 20 of 200 mm on 2000
    QVector<int> found;
    const int y = image.height() / 2;
    bool wasInk = true;
    int start = 0;
    for (int x = 0; x <= image.width(); ++x) {
        const bool isInk = x < image.width() && qGreen(image.pixel(x, y)) < 128;
        if (isInk != wasInk || x == image.width()) {
            found.append(x - start);
            start = x;
            wasInk = isInk;
        }
    }
    QVERIFY2(found.size() >= runs.size(), qPrintable(QString::number(found.size())));
    for (int i = 0; i < runs.size(); ++i) {
        const double expected = runs.at(i) * pattern;
        QVERIFY2(std::abs(found.at(i) - expected) <= 2,
                 qPrintable(QStringLiteral("run %1: %2, not %3").arg(i).arg(found.at(i)).arg(expected)));
    }
}

void PlotDrawingTest::areaWithAHole()
{
    Plot plot;
    PlotArea area;
    area.outlines = {QPolygonF({{0, 0}, {400, 0}, {400, 400}, {0, 400}}),
                     QPolygonF({{100, 100}, {300, 100}, {300, 300}, {100, 300}})};
    plot.areas.push_back(area);
    const QImage image = drawn(plot, bareSheet(), 400);
    for (const QPoint &point : {QPoint(5, 5), QPoint(50, 200), QPoint(350, 200), QPoint(200, 50)})
        QCOMPARE(image.pixel(point), DarkInk);
    for (const QPoint &point : {QPoint(102, 102), QPoint(200, 200), QPoint(297, 297)})
        QCOMPARE(image.pixel(point), WhitePaper);
    QCOMPARE(countOf(image, DarkInk, image.rect()) + countOf(image, WhitePaper, image.rect()), 160000);
    QCOMPARE(countOf(image, WhitePaper, image.rect()), 40000);
}

void PlotDrawingTest::titleBlock_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("short") << QStringLiteral("Bearing");
    QTest::newRow("other letters than plotters have") << QString::fromUtf8("Ωμέγα");
    QTest::newRow("too long for its size") << QStringLiteral("Quite a long title ").repeated(9);
}

// A sheet of 297 by 311 mm: the block takes the 6 mm to 291 mm from the left, 296 mm to 307 mm from above.
void PlotDrawingTest::titleBlock()
{
    QFETCH(QString, title);
    PlotSheet sheet = bareSheet();
    const Plot plot = plotOf("SP1;PU0,0;PD0,0;PU4000,4000;PD4000,4000;PU;");
    sheet.title = title;
    sheet.titlePen = 2;
    const QImage image = drawn(plot, sheet, 594);
    QCOMPARE(image.size(), QSize(594, 622));
    QRect inked;
    int middle = 0;
    for (int y = 580; y < image.height(); ++y) {
        for (int x = 20; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qRed(pixel) - qGreen(pixel) > 60) {
                inked |= QRect(x, y, 1, 1);
                middle += y > 595;
            }
        }
    }
    QVERIFY2(middle > 40, qPrintable(QString::number(middle)));
    QVERIFY(inked.top() >= 591 && inked.bottom() <= 613);
    QVERIFY(inked.right() <= 582);
}

// Drawn three times as large as the sheet has room for, it ends above the title block.
void PlotDrawingTest::plotKeepsToItsArea()
{
    PlotSheet sheet = bareSheet();
    sheet.scale = 3;
    sheet.title = QStringLiteral("i");
    Plot plot = plotOf("SP1;PU0,0;PD4000,0,4000,4000,0,4000,0,0;PU;");
    PlotArea area;
    area.outlines = {QPolygonF({{0, 0}, {4000, 0}, {4000, 4000}, {0, 4000}})};
    plot.areas.push_back(area);
    const QImage image = drawn(plot, sheet, 594);
    const QRect above(0, 0, 594, 590);
    QCOMPARE(countOf(image, DarkInk, above), 594 * 590);
    const QRect gap(0, 590, 594, 2);
    QCOMPARE(countOf(image, WhitePaper, gap), 594 * 2);
    const QRect below(0, 614, 594, 8);
    QCOMPARE(countOf(image, WhitePaper, below), 594 * 8);
    const QRect left(0, 590, 12, 32);
    QCOMPARE(countOf(image, WhitePaper, left), 12 * 32);
    sheet.title.clear();
    const QImage untitled = drawn(plot, sheet, 594);
    QCOMPARE(countOf(untitled, DarkInk, untitled.rect()), 594 * 594);
}

void PlotDrawingTest::fontSizeIsInPixels()
{
    for (const QImage::Format format : {QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB16}) {
        QImage image(10, 10, format);
        KxQtPainterWrapper painter(&image);
        QVERIFY(painter.beginDraw());
        for (int pixels = 1; pixels <= 300; ++pixels) {
            setGdiFont(painter, pixels, FW_BOLD);
            QCOMPARE(painter.wrappedPainter()->font().pixelSize(), pixels);
        }
        QVERIFY(painter.endDraw());
    }
}

void PlotDrawingTest::lettersThatPlottersLack()
{
    Plot plot = plotOf("PU0,0;PD4000,0;PU;");
    PlotLabel label;
    label.characterSize = QSizeF(300, 400);
    label.text = QString::fromUtf8("Ωμέγα");
    label.position = QPointF(500, 500);
    plot.labels.push_back(label);
    plot.strokes.front().points << QPointF(4000, 2000);
    const QImage image = drawn(plot, bareSheet(), 800);
    plot.labels.front().text = QString::fromUtf8("Ξμέγα");
    const QImage other = drawn(plot, bareSheet(), 800);
    QVERIFY(image != other);        // no two of the same boxes
    plot.labels.clear();
    const QImage without = drawn(plot, bareSheet(), 800);
    QRect changed;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != without.pixel(x, y))
                changed |= QRect(x, y, 1, 1);
        }
    }
    // The base line starts at 100 of 800 pixels from the left and from below; capitals are 80 high.
    QVERIFY2(qAbs(changed.left() - 104) <= 8, qPrintable(QString::number(changed.left())));
    QVERIFY2(qAbs(changed.top() - (image.height() - 180)) <= 12, qPrintable(QString::number(changed.top())));
    QVERIFY2(changed.bottom() < image.height() - 60, qPrintable(QString::number(changed.bottom())));
}

static KxGrQtDoubleBufferImage &bufferOf(PlotCanvas &canvas)
{
    CDC *dc = CWnd::FromHandle(KxHwndFromWidget(&canvas))->GetDC();
    return *static_cast<KxGrQtDoubleBufferImage *>(dc->m_hDC);
}

void PlotDrawingTest::windowShowsTheFrontImage()
{
    const Program program(Squares);
    const QImage before = program.picture();
    KxGrQtDoubleBufferImage &buffer = bufferOf(program.canvas());
    QCOMPARE(buffer.memImage()->convertToFormat(before.format()), before);
    KxQtPainterWrapper &painter = *buffer.frontPainter();
    QVERIFY(painter.beginDraw());
    painter.fillRect(CRect(30, 40, 50, 60), RGB(0, 255, 0));
    QVERIFY(painter.endDraw());
    const QImage scribbled = program.picture();
    QCOMPARE(countOf(scribbled, 0xff00ff00, scribbled.rect()), 400);
    QCOMPARE(countOf(scribbled, 0xff00ff00, QRect(30, 40, 20, 20)), 400);
    buffer.repairFrontBuffer();
    QCOMPARE(program.picture(), before);
}

void PlotDrawingTest::imagesFollowTheWindow()
{
    PlotCanvas canvas;
    canvas.setPlot(std::make_shared<const Plot>(plotOf(Squares)));
    const QSize narrow(40, 30);     // there, the desk is all margin
    for (const QSize &size : {QSize(400, 300), QSize(300, 400), QSize(301, 400), narrow, QSize(500, 500)}) {
        canvas.resize(size);
        const QImage picture = canvas.grab().toImage();
        QCOMPARE(bufferOf(canvas).memImage()->size(), size);
        QCOMPARE(bufferOf(canvas).frontImage()->size(), size);
        QCOMPARE(picture.size(), size);
        const QRect paper = canvas.paper();
        QCOMPARE(paper.isEmpty(), size == narrow);
        if (!paper.isEmpty()) {
            QCOMPARE(picture.pixel(paper.topLeft()), WhitePaper);
            QCOMPARE(picture.pixel(paper.bottomRight()), WhitePaper);
            QVERIFY(picture.pixel(paper.bottomRight() + QPoint(1, 1)) != WhitePaper);
        }
    }
}

void PlotDrawingTest::bandInverts()
{
    const Program program(Squares);
    const QImage before = program.picture();
    const QPoint from = program.spot(0.3, 0.3);
    const QPoint to = program.spot(0.6, 0.7);
    program.press(from);
    program.move(program.spot(0.9, 0.9));
    program.move(to);
    const QImage during = program.picture();
    const QRect outer(from, to);
    const QRect inner = outer.adjusted(1, 1, -1, -1);
    int inverted = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (during.pixel(x, y) == before.pixel(x, y))
                continue;
            QCOMPARE(during.pixel(x, y), before.pixel(x, y) ^ 0x00ffffff);
            QVERIFY(outer.contains(x, y) && !inner.contains(x, y));
            ++inverted;
        }
    }
    // Dashes of 12 with gaps of 4.
    const double share = inverted / (2.0 * (outer.width() + outer.height()) - 4);
    QVERIFY2(share > 0.65 && share < 0.85, qPrintable(QString::number(share)));
    program.release(to);
}

void PlotDrawingTest::bandLeavesNoTrace_data()
{
    QTest::addColumn<Track>("track");
    QTest::newRow("to the right and down") << Track{{0.1, 0.1}, {0.15, 0.12}, {0.2, 0.2}};
    QTest::newRow("to the left and up") << Track{{0.9, 0.8}, {0.85, 0.7}, {0.8, 0.6}};
    QTest::newRow("back and across where it began")
        << Track{{0.5, 0.5}, {0.7, 0.7}, {0.3, 0.4}, {0.45, 0.52}};
    QTest::newRow("back to where it began") << Track{{0.5, 0.5}, {0.7, 0.7}, {0.5, 0.5}};
    QTest::newRow("flat") << Track{{0.1, 0.5}, {0.5, 0.5}, {0.3, 0.5}};
    QTest::newRow("upright") << Track{{0.5, 0.1}, {0.5, 0.2}};
    QTest::newRow("a click") << Track{{0.5, 0.5}};
    QTest::newRow("out of the window") << Track{{0.5, 0.5}, {3, 3}, {0.6, -2}};
}

void PlotDrawingTest::bandLeavesNoTrace()
{
    QFETCH(Track, track);
    for (const PlotSheet::Paper paper : {PlotSheet::White, PlotSheet::Blueprint}) {
        PlotCanvas canvas;
        canvas.resize(500, 400);
        canvas.setPlot(std::make_shared<const Plot>(plotOf(Squares)));
        PlotSheet sheet;
        sheet.paper = paper;
        canvas.setSheet(sheet);
        canvas.setSelection({{PlotLayer::Strokes, 1}}, true);
        canvas.setTool(PlotCanvas::SelectTool);
        const QImage before = canvas.grab().toImage();
        const auto at = [&canvas](const QPointF &place) {
            return QPoint(qRound(place.x() * canvas.width()), qRound(place.y() * canvas.height()));
        };
        QTest::mousePress(&canvas, Qt::LeftButton, {}, at(track.first()));
        for (const QPointF &place : track) {
            QMouseEvent event(QEvent::MouseMove, at(place), Qt::NoButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(&canvas, &event);
        }
        canvas.setSelection({}, true);      // the front image is made anew, with the band
        canvas.grab();
        canvas.setSelection({{PlotLayer::Strokes, 1}}, true);
        canvas.grab();
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, at(track.last()));
        QCOMPARE(canvas.grab().toImage(), before);
    }
}

void PlotDrawingTest::bandSelects_data()
{
    QTest::addColumn<QRectF>("band");
    QTest::addColumn<QList<int>>("rows");
    QTest::newRow("around all") << QRectF(0, 0, 1, 1) << QList<int>{0, 1, 2};
    QTest::newRow("around the small square") << QRectF(0.1, 0.45, 0.42, 0.42) << QList<int>{1};
    QTest::newRow("around the small square and the line")
        << QRectF(0.1, 0.45, 0.65, 0.42) << QList<int>{1, 2};
    QTest::newRow("across a line") << QRectF(0.65, 0.5, 0.1, 0.1) << QList<int>{};
    QTest::newRow("around nothing") << QRectF(0.01, 0.01, 0.02, 0.02) << QList<int>{};
}

void PlotDrawingTest::bandSelects()
{
    QFETCH(QRectF, band);
    QFETCH(QList<int>, rows);
    const Program program(Squares);
    QCOMPARE(program.list().rowCount(), 3);
    const QImage before = program.picture();
    // Whichever way it is drawn; and the selection is a new one each time.
    program.drag(program.spot(band.left(), band.top()), program.spot(band.right(), band.bottom()));
    QCOMPARE(program.selectedRows(), rows);
    QCOMPARE(program.picture() == before, rows.isEmpty());
    program.drag(program.spot(0.01, 0.01), program.spot(0.02, 0.02));
    QCOMPARE(program.selectedRows(), QList<int>());
    QCOMPARE(program.picture(), before);
    program.drag(program.spot(band.right(), band.bottom()), program.spot(band.left(), band.top()));
    QCOMPARE(program.selectedRows(), rows);
}

void PlotDrawingTest::bandTakesOnlyWhatIsVisible()
{
    const Program program("SP1;PU0,0;PD4000,0;SP2;PU0,400;PD4000,400;SP3;PU0,800;SI.5,.7;LBHi\x03"
                          "SP4;PU1000,1000;RA2000,2000;");
    program.drag(program.spot(0, 0), program.spot(1, 1));
    QCOMPARE(program.selectedRows(), QList<int>({0, 1, 2, 3}));
    program.clickLayer(program.layer(QStringLiteral("Pen 2 (1)")), true);
    program.clickLayer(program.layer(QStringLiteral("Pen 3 (1)/Labels (1)")), true);
    program.drag(program.spot(0, 0), program.spot(1, 1));
    QCOMPARE(program.selectedRows(), QList<int>({0, 2}));   // strokes, areas, labels
}

// The preview of a sheet has no tools.
void PlotDrawingTest::bandInTheProperties()
{
    PlotCanvas canvas;
    canvas.resize(300, 300);
    canvas.setPlot(std::make_shared<const Plot>(plotOf(Squares)));
    const QImage before = canvas.grab().toImage();
    int enclosed = 0;
    connect(&canvas, &PlotCanvas::marksEnclosed, this, [&enclosed] { ++enclosed; });
    QTest::mousePress(&canvas, Qt::LeftButton, {}, QPoint(50, 50));
    QMouseEvent event(QEvent::MouseMove, QPoint(250, 250), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&canvas, &event);
    QCOMPARE(canvas.grab().toImage(), before);
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, QPoint(250, 250));
    QCOMPARE(canvas.grab().toImage(), before);
    QCOMPARE(enclosed, 0);
}

// Amber at 70 of 255 on paper that the veil leaves white.
void PlotDrawingTest::selectedLabelIsShaded()
{
    const Program program("SP1;PU0,0;PD4000,0;PU;PU500,500;SI2,3;LBIT\x03");
    program.list().selectRow(1);
    const QImage picture = program.picture();
    int shaded = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            shaded += qAbs(qRed(pixel) - 0xfd) <= 2 && qAbs(qGreen(pixel) - 0xe6) <= 3
                      && qAbs(qBlue(pixel) - 0xb6) <= 4;
        }
    }
    // The label's box, 5 by 3 cm, and a quarter of its height around it, less its letters; the plot is 10 cm
    // wide.
    const QRect paper = program.canvas().paper();
    const double box = 0.65 * 0.45 * std::pow(paper.width() * (297 - 30) / 297.0, 2);
    QVERIFY2(shaded > 0.9 * box && shaded < box, qPrintable(QStringLiteral("%1 of %2").arg(shaded).arg(box)));
}

void PlotDrawingTest::bucketFillsAFigure_data()
{
    QTest::addColumn<QByteArray>("plot");
    QTest::addColumn<QPointF>("place");
    QTest::newRow("a square") << QByteArray(Squares) << QPointF(0.3, 0.66);
    QTest::newRow("around a square") << QByteArray(Squares) << QPointF(0.6, 0.3);
    QTest::newRow("the paper around the plot") << QByteArray(Squares) << QPointF(0.01, 0.99);
    QTest::newRow("a circle") << QByteArray("SP2;PU0,0;CI2000;PU;") << QPointF(0.5, 0.5);
    QTest::newRow("a slanted triangle")
        << QByteArray("SP3;PU0,0;PD4000,1000,1500,3700,0,0;PU;") << QPointF(0.5, 0.5);
    QTest::newRow("in the hatching of an area") << QByteArray("SP1;PU0,0;FT3,400,45;RA4000,4000;EA4000,4000;")
                                                << QPointF(0.47, 0.5);
}

// All that a queue reaches, and nothing else but the edges of the lines around it, whose ink was blended with
// the paper and is now blended with the fill.
void PlotDrawingTest::bucketFillsAFigure()
{
    QFETCH(QByteArray, plot);
    QFETCH(QPointF, place);
    const Program program(plot);
    const QImage before = program.picture();
    const QPoint seed = program.spot(place.x(), place.y());
    QCOMPARE(before.pixel(seed), WhitePaper);
    const QSet<QPair<int, int>> area = reached(before, seed);
    program.pour(seed);
    const QImage after = program.picture();
    const QRgb colour = after.pixel(seed);
    QVERIFY(colour != WhitePaper);
    QVERIFY(area.size() > 1000);
    int edge = 0;
    int blended = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (area.contains({x, y})) {
                QCOMPARE(after.pixel(x, y), colour);
            } else if (!touches(area, x, y)) {
                QCOMPARE(after.pixel(x, y), before.pixel(x, y));
            } else if (program.canvas().paper().contains(x, y)) {
                ++edge;
                blended += qBlue(after.pixel(x, y)) < qBlue(before.pixel(x, y));
            }
        }
    }
    QVERIFY2(blended > 0.6 * edge, qPrintable(QStringLiteral("%1 of %2").arg(blended).arg(edge)));
}

void PlotDrawingTest::bucketOnInk()
{
    const Program program("SP1;PU0,0;RA4000,2000;PW2;PU0,3000;PD4000,3000;PU;");
    const QImage before = program.picture();
    for (const QPointF &place : {QPointF(0.5, 0.7), QPointF(0.2, 0.6)}) {
        QCOMPARE(before.pixel(program.spot(place.x(), place.y())), DarkInk);
        program.pour(program.spot(place.x(), place.y()));
    }
    program.pour(QPoint(2, 2));     // the desk
    QCOMPARE(program.picture(), before);
    QCOMPARE(int(program.canvas().fills().size()), 0);
}

// A quarter of the ink on the paper; amber for all pens.
void PlotDrawingTest::bucketHoldsThePensInk()
{
    const Program program("SP2;PU0,0;PD4000,0,4000,4000,0,4000,0,0;PU;SP5;PU2000,0;PD2000,4000;PU;");
    const QPoint left = program.spot(0.3, 0.5);
    const QPoint right = program.spot(0.7, 0.5);
    program.pour(left);
    const QColor amber((255 + 3 * 0xfd) / 4, (170 + 3 * 0xfd) / 4, 3 * 0xfb / 4);
    QCOMPARE(QColor(program.picture().pixel(left)), amber);
    program.clickLayer(program.layer(QStringLiteral("Pen 5 (1)")), false);
    program.pour(right);
    const QColor violet((0x7d + 3 * 0xfd) / 4, (0x3c + 3 * 0xfd) / 4, (0x98 + 3 * 0xfb) / 4);
    QCOMPARE(QColor(program.picture().pixel(right)), violet);
    QCOMPARE(QColor(program.picture().pixel(left)), amber);
    // On other paper the pen has another ink.
    PlotSheet sheet;
    sheet.paper = PlotSheet::Blueprint;
    program.canvas().setSheet(sheet);
    const QColor onBlue((0xdc + 3 * 0x1d) / 4, (0xc0 + 3 * 0x40) / 4, (0xff + 3 * 0x77) / 4);
    QCOMPARE(QColor(program.picture().pixel(right)), onBlue);
}

void PlotDrawingTest::fillsStay()
{
    const Program program(Squares);
    program.pour(program.spot(0.3, 0.66));
    const QRgb colour = program.picture().pixel(program.spot(0.3, 0.66));
    QVERIFY(colour != WhitePaper);
    const auto isFilled = [&](double x, double y) {
        return program.picture().pixel(program.spot(x, y)) == colour;
    };
    program.form().resize(900, 600);
    QVERIFY(isFilled(0.3, 0.66) && isFilled(0.2, 0.6));
    QVERIFY(!isFilled(0.6, 0.3));
    program.command(ID_TOOL_SELECT)->trigger();
    QTest::mouseClick(&program.canvas(), Qt::LeftButton, {}, program.spot(0.6, 0.3));
    QVERIFY(isFilled(0.3, 0.66) && !isFilled(0.6, 0.3));
}

void PlotDrawingTest::fillsEnd_data()
{
    QTest::addColumn<bool>("byCommand");
    QTest::newRow("the command") << true;
    QTest::newRow("another plot") << false;
}

void PlotDrawingTest::fillsEnd()
{
    QFETCH(bool, byCommand);
    const Program program(Squares);
    const QImage before = program.picture();
    program.pour(program.spot(0.3, 0.66));
    QVERIFY(program.picture() != before);
    if (byCommand)
        program.command(ID_FILL_CLEAR)->trigger();
    else
        QVERIFY(program.open(program.text(IDC_STATUS_MESSAGE)));
    QCOMPARE(program.picture(), before);
}

static QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void PlotDrawingTest::print_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QSizeF>("sheet");      // millimetres
    QTest::newRow("housing") << ID_SAMPLE_HOUSING << QSizeF(297, 208);
    QTest::newRow("curves") << ID_SAMPLE_CURVES << QSizeF(297, 213.93);
    QTest::newRow("island") << ID_SAMPLE_ISLAND << QSizeF(297, 204.58);
}

void PlotDrawingTest::print()
{
    QFETCH(int, id);
    QFETCH(QSizeF, sheet);
    const QTemporaryDir folder;
    const PlotProgram program;
    program.command(static_cast<UINT>(id))->trigger();
    const QString path = folder.filePath(QStringLiteral("plot.pdf"));
    QVERIFY(program.window().PrintPlot(toCString(path)));
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("Printed to ") + path);
    const QByteArray pdf = contents(path);
    QVERIFY(pdf.startsWith("%PDF-1."));
    QVERIFY(pdf.trimmed().endsWith("%%EOF"));
    QVERIFY2(pdf.size() > 20000, qPrintable(QString::number(pdf.size())));
    QVERIFY(pdf.contains("/Count 2"));
    // Points, 72 to the inch, of both pages.
    const QRegularExpression page(QStringLiteral("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]"));
    const QString text = QString::fromLatin1(pdf.constData(), pdf.size());
    QRegularExpressionMatchIterator pages = page.globalMatch(text);
    for (int i = 0; i < 2; ++i) {
        QVERIFY(pages.hasNext());
        const QRegularExpressionMatch size = pages.next();
        const double width = size.captured(1).toDouble() / 72 * 25.4;
        const double height = size.captured(2).toDouble() / 72 * 25.4;
        QVERIFY2(std::abs(width - sheet.width()) < 0.3, qPrintable(size.captured()));
        QVERIFY2(std::abs(height - sheet.height()) < 0.3, qPrintable(size.captured()));
    }
    QVERIFY(!pages.hasNext());
    QVERIFY(!pdf.contains("/Subtype /Image"));
}

void PlotDrawingTest::printedFill()
{
    const QTemporaryDir folder;
    const Program program(Squares);
    program.pour(program.spot(0.3, 0.66));
    const QString path = folder.filePath(QStringLiteral("plot.pdf"));
    QVERIFY(program.window().PrintPlot(toCString(path)));
    QVERIFY(contents(path).contains("/Subtype /Image"));
}

void PlotDrawingTest::printCommand()
{
    const QTemporaryDir folder;
    const Program program(Squares);
    const QString path = folder.filePath(QStringLiteral("chosen"));
    kxRunModal([&program] { program.command(ID_PLOT_PRINT)->trigger(); },
               [&path] {
                   auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
                   QVERIFY(dialog);
                   auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
                   QCOMPARE(QFileInfo(name->text()).fileName(), QStringLiteral("plot.pdf"));
                   name->setText(path);
                   QTest::keyClick(name, Qt::Key_Return);
               });
    QVERIFY(contents(path + QStringLiteral(".pdf")).startsWith("%PDF"));
}

void PlotDrawingTest::printThatFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a folder that is not there") << QStringLiteral("missing/plot.pdf");
    QTest::newRow("a folder") << QStringLiteral(".");
}

void PlotDrawingTest::printThatFails()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    CPlotViewApp app;
    app.SetUnattended();
    QVERIFY(app.InitInstance());
    QVERIFY(!app.GetMainWindow()->PrintPlot(toCString(folder.filePath(name))));
    QVERIFY(QDir(folder.path()).isEmpty());
    app.ExitInstance();
}

KX_TEST_MAIN(PlotDrawingTest)

#include "tst_plot_drawing.moc"
