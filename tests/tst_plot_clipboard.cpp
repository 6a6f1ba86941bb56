// SPDX-License-Identifier: MIT
#include "KxFileSandbox.h"
#include "KxPlotProgram.h"
#include "KxTestCase.h"

#include "PlotClipboard.h"
#include "PlotReader.h"
#include "PlotStrokeBlock.h"

#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

// A line and a bent one (pen 1), a dot (pen 2), a filled square (pen 3), a word (pen 4).
constexpr const char *FromPlot = "IN;SP1;PU0,0;PD4000,0;PU0,400;PD4000,400,4000,800;PU;SP2;PU0,3000;PD;PU;"
                                 "SP3;PU100,1000;RA900,1800;SP4;PU200,2400;LBHi\x03;";
constexpr const char *ToPlot = "IN;SP5;PU0,0;PD400,0;PU;";

constexpr double Offset = 200;  // 5 mm

PlotStroke stroke(const QVector<QPointF> &points, int pen = 1)
{
    PlotStroke result;
    result.pen = pen;
    result.points = QPolygonF(points);
    return result;
}

/// Everything that a stroke has.
QString described(const std::vector<PlotStroke> &strokes)
{
    QStringList lines;
    for (const PlotStroke &each : strokes) {
        QString line = QStringLiteral("%1 %2 %3 %4:")
                           .arg(each.pen)
                           .arg(each.lineType)
                           .arg(each.patternLength, 0, 'g', 17)
                           .arg(each.width, 0, 'g', 17);
        for (const QPointF &point : each.points)
            line += QStringLiteral(" %1,%2").arg(point.x(), 0, 'g', 17).arg(point.y(), 0, 'g', 17);
        lines.append(line);
    }
    return lines.join(QLatin1Char('\n'));
}

/// Reads from memory that ends just behind the bytes, and from nowhere else.
bool readExactly(const QByteArray &bytes, std::vector<PlotStroke> &strokes)
{
    const std::vector<char> exact(bytes.begin(), bytes.end());
    return PlotStrokeBlock::read(QByteArray::fromRawData(exact.data(), bytes.size()), strokes);
}

/// One stroke of two points: the header at 0, the stroke at 16, its points at 44 and 60.
QByteArray lineBlock()
{
    return PlotStrokeBlock::write({stroke({{1, 2}, {3, 4}})});
}

template<class Number>
QByteArray changed(QByteArray block, int at, Number number)
{
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "numbers are put in as the machine has them");
    std::memcpy(block.data() + at, &number, sizeof number);
    return block;
}

UINT plotFormat()
{
    return RegisterClipboardFormat(L"application/x-plotview-strokes");
}

QByteArray clipboardBytes()
{
    COleDataObject data;
    data.AttachClipboard();
    HGLOBAL block = data.GetGlobalData(static_cast<CLIPFORMAT>(plotFormat()));
    const QByteArray bytes(static_cast<const char *>(GlobalLock(block)), static_cast<int>(GlobalSize(block)));
    GlobalUnlock(block);
    return bytes;
}

void putOnClipboard(QByteArray bytes)
{
    CSharedFile file;
    file.Write(reinterpret_cast<unsigned char *>(bytes.data()), static_cast<unsigned>(bytes.size()));
    COleDataSource().CacheGlobalData(plotFormat(), file.Detach());
}

void clickEditMenu(const PlotProgram &program)
{
    QMenuBar *bar = program.form().menuBar();
    const QRect title = bar->actionGeometry(program.form().editMenu()->menuAction());
    QTest::mouseClick(bar, Qt::LeftButton, {}, title.center());
}

/// What the Edit menu offers while it is shown, and afterwards.
QString editMenu(const PlotProgram &program)
{
    const auto enabled = [&program] {
        return QStringLiteral("%1%2")
            .arg(program.command(ID_EDIT_COPY)->isEnabled() ? QStringLiteral("copy ") : QString())
            .arg(program.command(ID_EDIT_PASTE)->isEnabled() ? QStringLiteral("paste ") : QString());
    };
    clickEditMenu(program);
    QMenu *menu = program.form().editMenu();
    if (!menu->isVisible())
        return QStringLiteral("no menu");
    const QString shown = enabled();
    QTest::keyClick(menu, Qt::Key_Escape);
    return shown + QStringLiteral("then ") + enabled();
}

void selectRows(const PlotProgram &program, const QList<int> &rows)
{
    program.list().clearSelection();
    for (const int row : rows) {
        const QRect cell = program.list().visualRect(program.list().model()->index(row, 1));
        QTest::mouseClick(program.list().viewport(), Qt::LeftButton, Qt::ControlModifier, cell.center());
    }
}

QList<int> selectedRows(const PlotProgram &program)
{
    QList<int> rows;
    for (const QModelIndex &index : program.list().selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void press(const PlotProgram &program, Qt::Key key)
{
    QTest::keyClick(&program.form(), key, Qt::ControlModifier);
}

} // namespace

Q_DECLARE_METATYPE(std::vector<PlotStroke>)

class PlotClipboardTest : public KxTestCase
{
    Q_OBJECT

private:
    QString file(const QByteArray &bytes, const QString &name) const
    {
        const QString path = m_folder.filePath(name);
        if (!write(path, bytes))
            qFatal("%s cannot be written", qPrintable(path));
        return path;
    }

    QTemporaryDir m_folder;
    QString m_from;
    QString m_to;
    QString m_menuAtFirst;

private slots:
    void initTestCase();
    void init();

    void layout();
    void roundTrip_data();
    void roundTrip();
    void damagedBlock_data();
    void damagedBlock();
    void everyTruncation();
    void everyFlippedBit();
    void bytesBehindTheBlock();

    void nothingToPaste();
    void menuState_data();
    void menuState();
    void copy();
    void copyOfWhatIsNoStroke();
    void formatIsEnumerated();
    void pasteInAnotherPlot();
    void pasteInTheSamePlot();
    void pasteShowsTheMarkOfAnotherPen();
    void pasteScrollsToTheMarks();
    void pasteOfDamagedBlock_data();
    void pasteOfDamagedBlock();
    void pasteWithoutAPlot();
    void mostPoints();
    void fileStays();
};

// The clipboard cannot be emptied: what its menu says without anything on it is asked before anything else.
void PlotClipboardTest::initTestCase()
{
    m_from = file(FromPlot, QStringLiteral("from.hpgl"));
    m_to = file(ToPlot, QStringLiteral("to.hpgl"));
    const PlotProgram program(m_from);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    selectRows(program, {0});
    m_menuAtFirst = editMenu(program);
    press(program, Qt::Key_V);
    QCOMPARE(program.list().rowCount(), 5);
}

void PlotClipboardTest::init()
{
    KxTestCase::init();
    plotStore().clear();
}

void PlotClipboardTest::layout()
{
    PlotStroke dashed = stroke({{1, -2}}, 7);
    dashed.lineType = 3;
    dashed.patternLength = 0.5;
    dashed.width = 2;
    QCOMPARE(PlotStrokeBlock::write({dashed}).toHex(' '),
             QByteArray("50 4c 53 54 01 00 00 00 3c 00 00 00 01 00 00 00 "
                        "07 00 00 00 03 00 00 00 00 00 00 00 00 00 e0 3f 00 00 00 00 00 00 00 40 01 00 00 00 "
                        "00 00 00 00 00 00 f0 3f 00 00 00 00 00 00 00 c0"));
}

void PlotClipboardTest::roundTrip_data()
{
    QTest::addColumn<std::vector<PlotStroke>>("strokes");
    QTest::addColumn<int>("size");

    PlotStroke extreme = stroke({{8388608, -8388608}, {-8388608, 8388608}}, 255);
    extreme.lineType = 8;
    extreme.patternLength = 33554432;
    extreme.width = 33554432;
    QTest::newRow("no stroke: 16 bytes") << std::vector<PlotStroke>() << 16;
    QTest::newRow("a dot: 60 bytes") << std::vector<PlotStroke>{stroke({{0.1, -1e-9}})} << 60;
    QTest::newRow("two points, a solid line: 76 bytes")
        << std::vector<PlotStroke>{stroke({{1, 2}, {3, 4}}, 0)} << 76;
    QTest::newRow("the largest numbers") << std::vector<PlotStroke>{extreme} << 76;
    QTest::newRow("three strokes, in their order") << std::vector<PlotStroke>{
        stroke({{1, 2}}, 3), stroke({{4, 5}, {6, 7}, {8, 9}}, 2), stroke({{10, 11}}, 1)} << 180;
    QTest::newRow("10000 points") << std::vector<PlotStroke>{stroke(QVector<QPointF>(10000, {5, 6}))}
                                  << 160044;
}

void PlotClipboardTest::roundTrip()
{
    QFETCH(std::vector<PlotStroke>, strokes);
    QFETCH(int, size);
    const QByteArray bytes = PlotStrokeBlock::write(strokes);
    QCOMPARE(bytes.size(), size);
    std::vector<PlotStroke> read = {stroke({{99, 99}})};
    QVERIFY(readExactly(bytes, read));
    QCOMPARE(described(read), described(strokes));
}

void PlotClipboardTest::damagedBlock_data()
{
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray block = lineBlock();
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("no bytes") << QByteArray();
    QTest::newRow("another name") << changed(block, 0, 'Q');
    QTest::newRow("version 2") << changed(block, 4, 2);
    QTest::newRow("version 0") << changed(block, 4, 0);
    QTest::newRow("a size one too large") << changed(block, 8, 77);
    QTest::newRow("a size one too small") << changed(block, 8, 75);
    QTest::newRow("a size of 15, less than the header") << changed(block, 8, 15);
    QTest::newRow("the largest size") << changed(block, 8, 0xffffffffU);
    QTest::newRow("no stroke, but its bytes") << changed(block, 12, 0);
    QTest::newRow("two strokes, bytes of one") << changed(block, 12, 2);
    QTest::newRow("the most strokes") << changed(block, 12, 0xffffffffU);
    QTest::newRow("pen -1") << changed(block, 16, -1);
    QTest::newRow("pen 256") << changed(block, 16, 256);
    QTest::newRow("line type -2") << changed(block, 20, -2);
    QTest::newRow("line type 9") << changed(block, 20, 9);
    QTest::newRow("a pattern below 0") << changed(block, 24, -1.0);
    QTest::newRow("a pattern that is no number") << changed(block, 24, nan);
    QTest::newRow("a width below 0") << changed(block, 32, -1.0);
    QTest::newRow("a width without end") << changed(block, 32, infinity);
    QTest::newRow("no point") << changed(block, 40, 0);
    QTest::newRow("one point of two") << changed(block, 40, 1);
    QTest::newRow("three points, bytes of two") << changed(block, 40, 3);
    QTest::newRow("the most points") << changed(block, 40, 0xffffffffU);
    QTest::newRow("x beyond the plotter's reach") << changed(block, 44, 8388609.0);
    QTest::newRow("y that is no number") << changed(block, 52, nan);
    QTest::newRow("the last y without end") << changed(block, 68, -infinity);
}

void PlotClipboardTest::damagedBlock()
{
    QFETCH(QByteArray, bytes);
    std::vector<PlotStroke> strokes = {stroke({{99, 99}})};
    QVERIFY(!readExactly(bytes, strokes));
    QCOMPARE(described(strokes), described({stroke({{99, 99}})}));
}

void PlotClipboardTest::everyTruncation()
{
    const QByteArray block = PlotStrokeBlock::write({stroke({{1, 2}, {3, 4}}), stroke({{5, 6}})});
    QCOMPARE(block.size(), 120);
    for (int size = 0; size < block.size(); ++size) {
        std::vector<PlotStroke> strokes;
        QVERIFY2(!readExactly(block.left(size), strokes), qPrintable(QString::number(size)));
        QVERIFY(strokes.empty());
    }
}

// A flipped bit may make another stroke, but never more of them than there are bytes for, nor one that no
// plotter draws.
void PlotClipboardTest::everyFlippedBit()
{
    const QByteArray block = PlotStrokeBlock::write({stroke({{1, 2}, {3, 4}}), stroke({{5, 6}})});
    int refused = 0;
    for (int bit = 0; bit < 8 * block.size(); ++bit) {
        QByteArray flipped = block;
        flipped[bit / 8] = static_cast<char>(flipped.at(bit / 8) ^ 1 << bit % 8);
        std::vector<PlotStroke> strokes;
        if (!readExactly(flipped, strokes)) {
            QVERIFY(strokes.empty());
            ++refused;
            continue;
        }
        QVERIFY2(bit / 8 >= 16, "the header counts to the last bit");
        QCOMPARE(strokes.size(), std::size_t(2));
        QCOMPARE(pointCount(strokes), qint64(3));
        for (const PlotStroke &each : strokes) {
            QVERIFY(each.pen >= 0 && each.pen <= 255 && each.lineType >= -1 && each.lineType <= 8);
            QVERIFY(each.patternLength >= 0 && std::isfinite(each.patternLength));
            QVERIFY(each.width >= 0 && std::isfinite(each.width));
            for (const QPointF &point : each.points)
                QVERIFY(std::fabs(point.x()) <= 8388608 && std::fabs(point.y()) <= 8388608);
        }
    }
    QVERIFY(refused >= 16 * 8);
}

void PlotClipboardTest::bytesBehindTheBlock()
{
    std::vector<PlotStroke> strokes;
    QVERIFY(readExactly(lineBlock() + QByteArray(7, 'x'), strokes));
    QCOMPARE(described(strokes), described({stroke({{1, 2}, {3, 4}})}));
}

void PlotClipboardTest::nothingToPaste()
{
    QCOMPARE(m_menuAtFirst, QStringLiteral("copy then copy paste "));
}

void PlotClipboardTest::menuState_data()
{
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<QString>("menu");
    QTest::newRow("nothing selected") << QList<int>() << "paste then copy paste ";
    QTest::newRow("a stroke") << QList<int>{1} << "copy paste then copy paste ";
    QTest::newRow("an area") << QList<int>{3} << "paste then copy paste ";
    QTest::newRow("a label") << QList<int>{4} << "paste then copy paste ";
    QTest::newRow("an area and a stroke") << QList<int>{2, 3} << "copy paste then copy paste ";
}

void PlotClipboardTest::menuState()
{
    QFETCH(QList<int>, rows);
    QFETCH(QString, menu);
    putOnClipboard(lineBlock());
    const PlotProgram program(m_from);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    selectRows(program, rows);
    QCOMPARE(editMenu(program), menu);
}

void PlotClipboardTest::copy()
{
    const PlotProgram program(m_from);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    selectRows(program, {1, 2, 3});     // a polyline, a dot, an area
    press(program, Qt::Key_C);
    const std::vector<PlotStroke> &strokes = PlotReader::readBytes(FromPlot).plot.strokes;
    QCOMPARE(clipboardBytes().toHex(), PlotStrokeBlock::write({strokes[1], strokes[2]}).toHex());
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("Strokes copied: 2"));
    QCOMPARE(program.list().rowCount(), 5);
}

void PlotClipboardTest::copyOfWhatIsNoStroke()
{
    putOnClipboard(lineBlock());
    const PlotProgram program(m_from);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    for (const QList<int> &rows : {QList<int>(), QList<int>{3, 4}}) {
        selectRows(program, rows);
        press(program, Qt::Key_C);
        QCOMPARE(clipboardBytes(), lineBlock());
        QCOMPARE(program.text(IDC_STATUS_MESSAGE), m_from);
    }
}

void PlotClipboardTest::formatIsEnumerated()
{
    const CPlotClipboard clipboard;
    clipboard.Copy({stroke({{1, 2}})});
    QVERIFY(clipboard.IsAvailable());
    COleDataObject data;
    data.AttachClipboard();
    data.BeginEnumFormats();
    tagFORMATETC format = {};
    int found = 0;
    while (data.GetNextFormat(&format))
        found += format.cfFormat == plotFormat();
    QCOMPARE(found, 1);
    QVERIFY(data.IsDataAvailable(static_cast<CLIPFORMAT>(plotFormat())));
    QCOMPARE(described(clipboard.Paste()), described({stroke({{1, 2}})}));
}

void PlotClipboardTest::pasteInAnotherPlot()
{
    const PlotProgram program(m_from);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    selectRows(program, {0, 1});
    press(program, Qt::Key_C);
    QVERIFY(program.open(m_to));
    QCOMPARE(program.listRows(), QStringList(QStringLiteral("1|Line|5|2|10.0")));
    const QImage before = program.picture();

    press(program, Qt::Key_V);
    QCOMPARE(program.listRows(),
             QStringList({QStringLiteral("1|Line|5|2|10.0"), QStringLiteral("2|Line|1|2|100.0"),
                          QStringLiteral("3|Polyline|1|3|110.0")}));
    QCOMPARE(selectedRows(program), QList<int>({1, 2}));
    QCOMPARE(program.tree().topLevelItem(0)->text(0), QStringLiteral("All pens (3)"));
    QCOMPARE(program.layer(QStringLiteral("Pen 1 (2)/Strokes (2)"))->text(0), QStringLiteral("Strokes (2)"));
    QCOMPARE(program.layer(QStringLiteral("Pen 5 (1)"))->text(0), QStringLiteral("Pen 5 (1)"));
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("Strokes pasted: 2"));
    QCOMPARE(program.text(IDC_STATUS_STROKES), QStringLiteral("Strokes: 3"));
    QVERIFY(program.picture() != before);

    // Where they are now is told by copying them again.
    press(program, Qt::Key_C);
    std::vector<PlotStroke> strokes = PlotReader::readBytes(FromPlot).plot.strokes;
    strokes.resize(2);
    for (PlotStroke &each : strokes)
        each.points.translate(Offset, -Offset);
    QCOMPARE(clipboardBytes().toHex(), PlotStrokeBlock::write(strokes).toHex());
    // The plot that they come from is as it was.
    QVERIFY(program.command(ID_WINDOW_FIRST)->isVisible());
    program.command(ID_WINDOW_FIRST)->trigger();
    QCOMPARE(program.text(IDC_STATUS_STROKES), QStringLiteral("Strokes: 3"));
    QCOMPARE(program.list().rowCount(), 5);
}

void PlotClipboardTest::pasteInTheSamePlot()
{
    const PlotProgram program(m_from);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    selectRows(program, {2});
    press(program, Qt::Key_C);
    press(program, Qt::Key_V);
    press(program, Qt::Key_V);
    // Strokes stand in front of the areas and labels.
    QCOMPARE(program.listRows().mid(2, 4),
             QStringList({QStringLiteral("3|Dot|2|1|0.0"), QStringLiteral("4|Dot|2|1|0.0"),
                          QStringLiteral("5|Dot|2|1|0.0"), QStringLiteral("1|Area|3|5|80.0")}));
    QCOMPARE(selectedRows(program), QList<int>({4}));
}

void PlotClipboardTest::pasteShowsTheMarkOfAnotherPen()
{
    putOnClipboard(PlotStrokeBlock::write({stroke({{0, 0}, {400, 0}}, 12)}));
    const PlotProgram program(m_to);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    program.clickLayer(program.layer(QStringLiteral("Pen 5 (1)")), false);
    clickEditMenu(program);
    QVERIFY(program.form().editMenu()->isVisible());
    QTest::keyClick(program.form().editMenu(), Qt::Key_P);
    QCOMPARE(program.listRows(),
             QStringList({QStringLiteral("1|Line|5|2|10.0"), QStringLiteral("2|Line|12|2|10.0")}));
    QCOMPARE(selectedRows(program), QList<int>({1}));
    QVERIFY(!program.tree().penIcon(12).isNull());
}

void PlotClipboardTest::pasteScrollsToTheMarks()
{
    putOnClipboard(lineBlock());
    const QString path = file(QByteArray("PU0,0;PD9,9;").repeated(300), QStringLiteral("many.hpgl"));
    const PlotProgram program(m_to);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    QVERIFY(program.open(path));
    press(program, Qt::Key_V);
    QCOMPARE(selectedRows(program), QList<int>({300}));
    const QRect row = program.list().visualRect(program.list().model()->index(300, 1));
    QVERIFY(program.list().viewport()->rect().contains(row));
}

void PlotClipboardTest::pasteOfDamagedBlock_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("no bytes") << QByteArray();
    QTest::newRow("cut") << lineBlock().left(75);
    QTest::newRow("no strokes") << PlotStrokeBlock::write({});
    QTest::newRow("of another program") << QByteArray(1000, '\xff');
}

void PlotClipboardTest::pasteOfDamagedBlock()
{
    QFETCH(QByteArray, bytes);
    const PlotProgram program(m_to);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    putOnClipboard(bytes);
    press(program, Qt::Key_V);
    QCOMPARE(program.listRows(), QStringList(QStringLiteral("1|Line|5|2|10.0")));
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), m_to);
}

void PlotClipboardTest::pasteWithoutAPlot()
{
    putOnClipboard(lineBlock());
    const PlotProgram program(m_to);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    program.command(ID_PLOT_CLOSE)->trigger();
    QVERIFY(!program.command(ID_EDIT_PASTE)->isEnabled());
    QCOMPARE(editMenu(program), QStringLiteral("then "));
    press(program, Qt::Key_V);
    QCOMPARE(program.list().rowCount(), 0);
}

void PlotClipboardTest::mostPoints()
{
    CPlotDocument document;
    QVERIFY(!document.AddStrokes({stroke({{1, 2}})}));
    CString reason;
    QVERIFY(document.Open(toCString(m_from), reason));      // 2 + 3 + 1 points and an area of 5
    QCOMPARE(document.GetPlot()->pointCount(), qint64(11));
    const auto points = [](int count) { return stroke(QVector<QPointF>(count, {1, 2})); };
    QVERIFY(!document.AddStrokes({points(2000000 - 10)}));
    QCOMPARE(document.GetPlot()->pointCount(), qint64(11));
    QVERIFY(document.AddStrokes({points(2000000 - 12), points(1)}));
    QCOMPARE(document.GetPlot()->pointCount(), qint64(2000000));
    QVERIFY(!document.AddStrokes({points(1)}));
    QCOMPARE(document.GetPlot()->strokes.size(), std::size_t(5));
}

void PlotClipboardTest::fileStays()
{
    putOnClipboard(lineBlock());
    const PlotProgram program(m_to);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    press(program, Qt::Key_V);
    QCOMPARE(program.list().rowCount(), 2);
    QCOMPARE(contentsOf(m_to), QByteArray(ToPlot));
    QVERIFY(program.open(m_to));
    QCOMPARE(program.list().rowCount(), 1);
}

KX_TEST_MAIN(PlotClipboardTest)

#include "tst_plot_clipboard.moc"
