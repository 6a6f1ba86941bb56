// SPDX-License-Identifier: MIT
#include "KxTestCase.h"

#include "PlotReader.h"

#include <QtCore/QRandomGenerator>

#include <cmath>
#include <limits>

namespace {

// The plotter's P1 and P2 before any instruction.
constexpr double P1x = 603;
constexpr double P1y = 521;
constexpr double P2x = 10603;
constexpr double P2y = 7721;

QString coordinate(double value)
{
    const QString text = QString::number(value, 'f', 2);
    if (text == QStringLiteral("-0.00"))
        return QStringLiteral("0");
    return text.endsWith(QStringLiteral(".00")) ? text.chopped(3) : text;
}

// "0,0 10,0" for the points of a line.
QString pointsText(const QPolygonF &points)
{
    QStringList parts;
    for (const QPointF &point : points)
        parts.append(coordinate(point.x()) + QLatin1Char(',') + coordinate(point.y()));
    return parts.join(QLatin1Char(' '));
}

// "1: 0,0 10,0" for a stroke of pen 1, " | " between strokes, "~2" behind the pen for line type 2.
QString strokesText(const Plot &plot)
{
    QStringList parts;
    for (const PlotStroke &stroke : plot.strokes) {
        QString part = QString::number(stroke.pen);
        if (stroke.lineType != PlotStroke::SolidLine)
            part += QLatin1Char('~') + QString::number(stroke.lineType);
        parts.append(part + QStringLiteral(": ") + pointsText(stroke.points));
    }
    return parts.join(QStringLiteral(" | "));
}

// "x,y width x height @angle text"
QString labelsText(const Plot &plot)
{
    QStringList parts;
    for (const PlotLabel &label : plot.labels) {
        parts.append(QStringLiteral("%1,%2 %3x%4 @%5 %6")
                         .arg(coordinate(label.position.x()), coordinate(label.position.y()),
                              coordinate(label.characterSize.width()),
                              coordinate(label.characterSize.height()), coordinate(label.direction),
                              label.text));
    }
    return parts.join(QStringLiteral(" | "));
}

QString areasText(const Plot &plot)
{
    static const char *const fills[] = {"solid", "hatch", "cross"};
    QStringList parts;
    for (const PlotArea &area : plot.areas) {
        QStringList outlines;
        for (const QPolygonF &outline : area.outlines)
            outlines.append(pointsText(outline));
        parts.append(QStringLiteral("%1 %2: %3")
                         .arg(area.pen)
                         .arg(QLatin1String(fills[area.fill]), outlines.join(QStringLiteral(" + "))));
    }
    return parts.join(QStringLiteral(" | "));
}

// The first, last and number of points of a stroke that is too long to be written out.
QString endsText(const PlotStroke &stroke)
{
    return QStringLiteral("%1 %2 (%3)")
        .arg(pointsText(QPolygonF(QVector<QPointF>{stroke.points.first()})),
             pointsText(QPolygonF(QVector<QPointF>{stroke.points.last()})))
        .arg(stroke.points.size());
}

bool allPlottable(const QPolygonF &points)
{
    return std::all_of(points.begin(), points.end(), [](const QPointF &point) {
        return std::fabs(point.x()) <= 1.1 * PlotReader::LargestCoordinate
               && std::fabs(point.y()) <= 1.1 * PlotReader::LargestCoordinate;
    });
}

} // namespace

Q_DECLARE_METATYPE(PlotReading::Result)

class PlotReaderTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void strokes_data();
    void strokes();
    void scaling_data();
    void scaling();
    void figures_data();
    void figures();
    void longFigures_data();
    void longFigures();
    void circlesAreClosed_data();
    void circlesAreClosed();
    void areas_data();
    void areas();
    void labels_data();
    void labels();
    void skipped_data();
    void skipped();
    void results_data();
    void results();

    void patternLength_data();
    void patternLength();
    void penWidth_data();
    void penWidth();
    void penColours();
    void slant();
    void marksByPen();
    void bounds_data();
    void bounds();
    void everyTruncation();
    void everyDamagedByte();
    void megabyteOfGarbage_data();
    void megabyteOfGarbage();
    void pointLimit();
    void characterLimit();
    void readsFile();
    void unreadableFile_data();
    void unreadableFile();
};

void PlotReaderTest::strokes_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<QString>("expected");

    QTest::newRow("PU moves, PD draws") << QByteArray("PU10,20;PD30,40;PU;") << "1: 10,20 30,40";
    QTest::newRow("PD takes many points") << QByteArray("PU0,0;PD1,2,3,4,5,6;") << "1: 0,0 1,2 3,4 5,6";
    QTest::newRow("PA with the pen down") << QByteArray("PU;PA1,1;PD;PA2,2;PA3,3;") << "1: 1,1 2,2 3,3";
    QTest::newRow("PA with the pen up draws nothing") << QByteArray("PU;PA1,1;PA2,2;") << "";
    QTest::newRow("PU ends a stroke") << QByteArray("PU0,0;PD9,0;PU0,5;PD9,5;") << "1: 0,0 9,0 | 1: 0,5 9,5";
    QTest::newRow("PR moves by steps") << QByteArray("PU10,10;PD;PR5,0,0,-5;") << "1: 10,10 15,10 15,5";
    QTest::newRow("PR holds for PU and PD")
        << QByteArray("PU10,10;PR;PU1,1;PD2,0;PU3,3;PD1,0;") << "1: 11,11 13,11 | 1: 16,14 17,14";
    QTest::newRow("PA ends PR") << QByteArray("PU10,10;PR;PD5,5;PA;PD20,20;") << "1: 10,10 15,15 20,20";
    QTest::newRow("PD where the pen stays is a dot") << QByteArray("PU7,8;PD;PU;") << "1: 7,8";
    QTest::newRow("PD to where the pen is, a dot too") << QByteArray("PU7,8;PD7,8;PU;") << "1: 7,8";
    QTest::newRow("points that repeat are one") << QByteArray("PU0,0;PD1,1,1,1,2,2;") << "1: 0,0 1,1 2,2";
    QTest::newRow("a stroke ends with the file") << QByteArray("PU0,0;PD5,5") << "1: 0,0 5,5";

    QTest::newRow("SP selects the pen") << QByteArray("SP3;PU0,0;PD1,1;PU;") << "3: 0,0 1,1";
    QTest::newRow("SP between strokes")
        << QByteArray("SP1;PU0,0;PD1,1;PU;SP2;PU2,2;PD3,3;") << "1: 0,0 1,1 | 2: 2,2 3,3";
    QTest::newRow("SP with the pen down")
        << QByteArray("SP1;PU0,0;PD1,1;SP2;PD2,2;") << "1: 0,0 1,1 | 2: 1,1 2,2";
    QTest::newRow("SP0 puts the pen away") << QByteArray("SP0;PU0,0;PD1,1;PU;") << "";
    QTest::newRow("SP without a number too") << QByteArray("SP;PU0,0;PD1,1;PU;") << "";

    QTest::newRow("LT starts a stroke of its own")
        << QByteArray("PU0,0;PD1,1;LT2;PD2,2;LT;PD3,3;") << "1: 0,0 1,1 | 1~2: 1,1 2,2 | 1: 2,2 3,3";
    QTest::newRow("LT0") << QByteArray("LT0;PU0,0;PD1,1;") << "1~0: 0,0 1,1";
    QTest::newRow("LT with a negative type") << QByteArray("LT-3;PU0,0;PD1,1;") << "1~3: 0,0 1,1";

    QTest::newRow("lower case") << QByteArray("in;sp2;pu1,1;pd2,2;") << "2: 1,1 2,2";
    QTest::newRow("no semicolons") << QByteArray("INSP2PU1,1PD2,2PU") << "2: 1,1 2,2";
    QTest::newRow("line ends for semicolons") << QByteArray("IN\r\nSP2\r\nPU1,1\nPD2,2\n") << "2: 1,1 2,2";
    QTest::newRow("blanks between numbers") << QByteArray("PU 1 1;PD 2  3 , 4 5;") << "1: 1,1 2,3 4,5";
    QTest::newRow("a sign separates") << QByteArray("PU1+1;PD-2-3;") << "1: 1,1 -2,-3";
    QTest::newRow("decimals") << QByteArray("PU.5,1.25;PD+2.5,-.75;PU;") << "1: 0.50,1.25 2.50,-0.75";
    QTest::newRow("exponents") << QByteArray("PU1e2,1.5E+1;PD2000e-1,1E0;") << "1: 100,15 200,1";
    QTest::newRow("E that starts an instruction") << QByteArray("PU0,0PD5,5EP;") << "1: 0,0 5,5";
    QTest::newRow("zero bytes between instructions") << QByteArray("PU0,0;\0\0PD5,5;\0", 16) << "1: 0,0 5,5";

    QTest::newRow("IN raises the pen")
        << QByteArray("PU0,0;PD1,1;IN;PA5,5;PD6,6;") << "1: 0,0 1,1 | 1: 5,5 6,6";
    QTest::newRow("DF brings absolute plotting and solid lines")
        << QByteArray("PR;LT4;DF;PU5,5;PD6,6;") << "1: 5,5 6,6";
    QTest::newRow("VS has no picture") << QByteArray("VS20;PU0,0;VS5,1;PD1,1;") << "1: 0,0 1,1";

    QTest::newRow("ESC dot sequences")
        << QByteArray("\x1b.(;\x1b.I81;;17:\x1b.N;19:IN;PU0,0;PD1,1;\x1b.)") << "1: 0,0 1,1";
    QTest::newRow("ESC dot without numbers") << QByteArray("\x1b.YPU0,0;PD1,1;\x1b.Z") << "1: 0,0 1,1";
    QTest::newRow("printer language around the plot")
        << QByteArray("\x1b%-12345X@PJL ENTER LANGUAGE=HPGL2\n\x1b%1BIN;PU0,0;PD1,1;\x1b%0A\x1b"
                      "E")
        << "1: 0,0 1,1";
    QTest::newRow("CO") << QByteArray("CO \"PU9,9;PD8,8;\";PU0,0;PD1,1;") << "1: 0,0 1,1";
    QTest::newRow("CO without a text") << QByteArray("CO;PU0,0;PD1,1;") << "1: 0,0 1,1";

    QTest::newRow("IW cuts a stroke at its edges")
        << QByteArray("IW0,0,10,10;PU-5,5;PD15,5;") << "1: 0,5 10,5";
    QTest::newRow("IW makes two of one")
        << QByteArray("IW0,0,10,10;PU5,5;PD15,5,15,8,5,8;") << "1: 5,5 10,5 | 1: 10,8 5,8";
    QTest::newRow("IW drops what is outside")
        << QByteArray("IW0,0,10,10;PU20,20;PD30,30;PU40,40;PD;PU;") << "";
    QTest::newRow("IW keeps a dot inside") << QByteArray("IW0,0,10,10;PU5,5;PD;PU;") << "1: 5,5";
    QTest::newRow("IW without numbers ends it")
        << QByteArray("IW0,0,10,10;IW;PU-5,5;PD15,5;") << "1: -5,5 15,5";
    QTest::newRow("IW with its corners swapped") << QByteArray("IW10,10,0,0;PU-5,5;PD15,5;") << "1: 0,5 10,5";

    QTest::newRow("PE, numbers of base 64") // <(10,20) to start, then (5,-3), (0,7)
        << QByteArray("PU0,0;PR;PE<") + char(191 + 20) + char(191 + 40) + char(191 + 10) + char(191 + 7)
               + char(191) + char(191 + 14) + ";"
        << "1: 10,20 15,17 15,24";
    QTest::newRow("PE, two digits") // (100,0): 200 = 8 + 3 * 64
        << QByteArray("PU0,0;PE") + char(63 + 8) + char(191 + 3) + char(191) + ";"
        << "1: 0,0 100,0";
    QTest::newRow("PE, seven bits") // (100,0): 200 = 8 + 6 * 32
        << QByteArray("PU0,0;PE7") + char(63 + 8) + char(95 + 6) + char(95) + ";"
        << "1: 0,0 100,0";
    QTest::newRow("PE, an absolute point and a pen")
        << QByteArray("PU9,9;PE:") + char(191 + 8) + "=" + char(191 + 2) + char(191 + 4) + ";"
        << "4: 9,9 1,2";
    QTest::newRow("PE, one fraction bit") // (3,0) / 2
        << QByteArray("PU0,0;PE>") + char(191 + 2) + char(191 + 6) + char(191) + ";"
        << "1: 0,0 1.50,0";
}

void PlotReaderTest::strokes()
{
    QFETCH(QByteArray, instructions);
    QFETCH(QString, expected);
    const PlotReading reading = PlotReader::readBytes(instructions);
    QCOMPARE(reading.result, PlotReading::Ok);
    QCOMPARE(strokesText(reading.plot), expected);
    QCOMPARE(reading.plot.skippedCount, 0);
    QVERIFY(reading.plot.complete);
}

void PlotReaderTest::scaling_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<QPolygonF>("expected");

    const auto points = [](std::initializer_list<QPointF> list) { return QPolygonF(QVector<QPointF>(list)); };
    QTest::newRow("SC over the default P1 and P2")
        << QByteArray("SC0,100,0,100;PU0,0;PD100,100;") << points({{P1x, P1y}, {P2x, P2y}});
    QTest::newRow("SC beyond its range")
        << QByteArray("SC0,100,0,100;PU-10,0;PD110,0;") << points({{P1x - 1000, P1y}, {P2x + 1000, P1y}});
    QTest::newRow("IP, then SC") << QByteArray("IP0,0,4000,2000;SC-1,1,-1,1;PU0,0;PD1,1;")
                                 << points({{2000, 1000}, {4000, 2000}});
    QTest::newRow("SC, then IP: the range goes along")
        << QByteArray("SC-1,1,-1,1;IP0,0,4000,2000;PU0,0;PD1,1;") << points({{2000, 1000}, {4000, 2000}});
    QTest::newRow("IP with one point moves both")
        << QByteArray("IP0,0,4000,2000;IP100,200;SC0,1,0,1;PU0,0;PD1,1;")
        << points({{100, 200}, {4100, 2200}});
    QTest::newRow("IP without numbers")
        << QByteArray("IP0,0,4000,2000;IP;SC0,1,0,1;PU0,0;PD1,1;") << points({{P1x, P1y}, {P2x, P2y}});
    QTest::newRow("SC that runs downwards")
        << QByteArray("IP0,0,1000,1000;SC0,10,10,0;PU0,0;PD1,2;") << points({{0, 1000}, {100, 800}});
    QTest::newRow("IP with its corners swapped mirrors")
        << QByteArray("IP1000,0,0,1000;SC0,10,0,10;PU0,0;PD1,1;") << points({{1000, 0}, {900, 100}});
    QTest::newRow("SC without numbers ends it")
        << QByteArray("SC0,1,0,1;SC;PU0,0;PD1,1;") << points({{0, 0}, {1, 1}});
    QTest::newRow("IN ends it too") << QByteArray("IP0,0,10,10;SC0,1,0,1;IN;SC0,1,0,1;PU0,0;PD1,1;")
                                    << points({{P1x, P1y}, {P2x, P2y}});
    QTest::newRow("PR in user units")
        << QByteArray("IP0,0,1000,2000;SC0,10,0,10;PU1,1;PD;PR1,1;") << points({{100, 200}, {200, 400}});
    QTest::newRow("SC, isotropic, room left and right")
        << QByteArray("IP0,0,4000,2000;SC0,10,0,10,1;PU0,0;PD10,10;") << points({{1000, 0}, {3000, 2000}});
    QTest::newRow("SC, isotropic, to the left")
        << QByteArray("IP0,0,4000,2000;SC0,10,0,10,1,0,0;PU0,0;PD10,10;") << points({{0, 0}, {2000, 2000}});
    QTest::newRow("SC, factor") << QByteArray("IP100,200,4000,2000;SC5,40,6,20,2;PU5,6;PD6,7;")
                                << points({{100, 200}, {140, 220}});
    QTest::newRow("RO90") << QByteArray("RO90;PU0,0;PD100,20;") << points({{11040, 0}, {11020, 100}});
    QTest::newRow("RO180") << QByteArray("RO180;PU0,0;PD100,20;") << points({{11040, 7721}, {10940, 7701}});
    QTest::newRow("RO270") << QByteArray("RO270;PU0,0;PD100,20;") << points({{0, 7721}, {20, 7621}});
    QTest::newRow("RO0") << QByteArray("RO90;RO0;PU0,0;PD100,20;") << points({{0, 0}, {100, 20}});
}

void PlotReaderTest::scaling()
{
    QFETCH(QByteArray, instructions);
    QFETCH(QPolygonF, expected);
    const Plot plot = PlotReader::readBytes(instructions).plot;
    QCOMPARE(plot.strokes.size(), std::size_t(1));
    QCOMPARE(pointsText(plot.strokes.front().points), pointsText(expected));
    QCOMPARE(plot.skippedCount, 0);
}

void PlotReaderTest::figures_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<QString>("expected");

    QTest::newRow("CI with chords of a quarter")
        << QByteArray("PU100,100;CI50,90;") << "1: 150,100 100,150 50,100 100,50 150,100";
    QTest::newRow("CI goes back to the centre and leaves the pen up")
        << QByteArray("PU100,100;CI50,120;PD101,101;")
        << "1: 150,100 75,143.30 75,56.70 150,100 | 1: 100,100 101,101";
    QTest::newRow("CI, negative radius starts on the other side")
        << QByteArray("PU0,0;CI-10,90;") << "1: -10,0 0,-10 10,0 0,10 -10,0";
    QTest::newRow("CI over unequal scales") << QByteArray("IP0,0,1000,2000;SC0,10,0,10;PU5,5;CI1,90;")
                                            << "1: 600,1000 500,1200 400,1000 500,800 600,1000";
    QTest::newRow("CI without a pen") << QByteArray("SP0;PU0,0;CI10;") << "";
    QTest::newRow("AA draws with the pen down")
        << QByteArray("PU10,0;PD;AA0,0,90,45;") << "1: 10,0 7.07,7.07 0,10";
    QTest::newRow("AA, clockwise") << QByteArray("PU0,10;PD;AA0,0,-90,90;") << "1: 0,10 10,0";
    QTest::newRow("AA moves with the pen up") << QByteArray("PU10,0;AA0,0,180;PD-20,0;") << "1: -10,0 -20,0";
    QTest::newRow("AA over unequal scales")
        << QByteArray("IP0,0,1000,2000;SC0,10,0,10;PU6,5;PD;AA5,5,90,90;") << "1: 600,1000 500,1200";
    QTest::newRow("AR, centre by a step") << QByteArray("PU10,5;PD;AR-10,0,90,90;") << "1: 10,5 0,15";
    QTest::newRow("CT1: the chord is a deviation") // 10 * (1 - cos 60 / 2) = 1.34
        << QByteArray("CT1;PU0,0;CI10,5;") << "1: 10,0 -5,8.66 -5,-8.66 10,0";
    QTest::newRow("EA") << QByteArray("PU1,2;EA5,7;") << "1: 1,2 5,2 5,7 1,7 1,2";
    QTest::newRow("ER") << QByteArray("PU1,2;ER5,7;") << "1: 1,2 6,2 6,9 1,9 1,2";
    QTest::newRow("EA goes back to its corner")
        << QByteArray("PU1,2;EA5,7;PD0,0;") << "1: 1,2 5,2 5,7 1,7 1,2 | 1: 1,2 0,0";
    QTest::newRow("EW") << QByteArray("PU0,0;EW10,0,90,90;") << "1: 0,0 10,0 0,10 0,0";
    QTest::newRow("EW all around has no spokes")
        << QByteArray("PU0,0;EW10,0,360,90;") << "1: 10,0 0,10 -10,0 0,-10 10,0";
    QTest::newRow("EP draws the polygon's edge")
        << QByteArray("PU0,0;PM0;PD10,0,10,10;PM2;EP;") << "1: 0,0 10,0 10,10 0,0";
    QTest::newRow("EP with two parts") << QByteArray("PU0,0;PM0;PD9,0,9,9;PM1;PU2,2;PD3,2,3,3;PM2;EP;")
                                       << "1: 0,0 9,0 9,9 0,0 | 1: 2,2 3,2 3,3 2,2";
    QTest::newRow("nothing is drawn in polygon mode") << QByteArray("PU0,0;PM0;PD10,0,10,10;PM2;") << "";
    QTest::newRow("a circle in a polygon")
        << QByteArray("PU0,0;PM0;CI10,120;PM2;EP;") << "1: 0,0 | 1: 10,0 -5,8.66 -5,-8.66 10,0";
    QTest::newRow("XT") << QByteArray("IP0,0,1000,2000;PU100,100;XT;") << "1: 100,90 100,110";
    QTest::newRow("YT") << QByteArray("IP0,0,1000,2000;PU100,100;YT;") << "1: 95,100 105,100";
    QTest::newRow("TL") << QByteArray("IP0,0,1000,2000;TL2,0;PU100,100;XT;") << "1: 100,100 100,140";
    QTest::newRow("TL with one length")
        << QByteArray("IP0,0,1000,2000;TL3;PU100,100;YT;") << "1: 100,100 130,100";
}

void PlotReaderTest::figures()
{
    QFETCH(QByteArray, instructions);
    QFETCH(QString, expected);
    const Plot plot = PlotReader::readBytes(instructions).plot;
    QCOMPARE(strokesText(plot), expected);
    QCOMPARE(plot.skippedCount, 0);
}

void PlotReaderTest::longFigures_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<QString>("expected");

    QTest::newRow("CI, chords of five degrees") << QByteArray("PU0,0;CI100;") << "100,0 100,0 (73)";
    QTest::newRow("CI, the finest chord is half a degree")
        << QByteArray("PU0,0;CI100,.001;") << "100,0 100,0 (721)";
    QTest::newRow("AA, chords of five degrees") << QByteArray("PU100,0;PD;AA0,0,90;") << "100,0 0,100 (19)";
    QTest::newRow("AA, twice around at most")
        << QByteArray("PU100,0;PD;AA0,0,36090,90;") << "100,0 0,100 (6)";
    QTest::newRow("EW") << QByteArray("PU0,0;EW100,0,90;") << "0,0 0,0 (21)";
}

void PlotReaderTest::longFigures()
{
    QFETCH(QByteArray, instructions);
    QFETCH(QString, expected);
    const Plot plot = PlotReader::readBytes(instructions).plot;
    QCOMPARE(plot.strokes.size(), std::size_t(1));
    QCOMPARE(endsText(plot.strokes.front()), expected);
}

void PlotReaderTest::circlesAreClosed_data()
{
    QTest::addColumn<QByteArray>("instructions");

    QTest::newRow("CI") << QByteArray("PU100,100;CI50;");
    QTest::newRow("CI, uneven chords") << QByteArray("PU.1,.2;CI33.3,7;");
    QTest::newRow("EW all around") << QByteArray("PU100,100;EW50,17,360;");
    QTest::newRow("EA") << QByteArray("SC0,3,0,7;PU.1,.2;EA1.7,2.9;");
}

void PlotReaderTest::circlesAreClosed()
{
    QFETCH(QByteArray, instructions);
    const Plot plot = PlotReader::readBytes(instructions).plot;
    const QPolygonF &points = plot.strokes.front().points;
    QVERIFY(points.first().x() == points.last().x() && points.first().y() == points.last().y());
}

void PlotReaderTest::areas_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<double>("spacing");
    QTest::addColumn<double>("angle");

    const double usual = std::hypot(P2x - P1x, P2y - P1y) / 100;
    QTest::newRow("RA") << QByteArray("SP2;PU1,1;RA3,4;") << "2 solid: 1,1 3,1 3,4 1,4 1,1" << usual << 0.0;
    QTest::newRow("RR") << QByteArray("PU1,1;RR3,4;") << "1 solid: 1,1 4,1 4,5 1,5 1,1" << usual << 0.0;
    QTest::newRow("WG") << QByteArray("PU0,0;WG10,0,90,90;") << "1 solid: 0,0 10,0 0,10 0,0" << usual << 0.0;
    QTest::newRow("FP") << QByteArray("PU0,0;PM0;PD10,0,10,10;PM2;FP;") << "1 solid: 0,0 10,0 10,10" << usual
                        << 0.0;
    QTest::newRow("FP with a hole") << QByteArray("PU0,0;PM0;PD9,0,9,9;PM1;PU2,2;PD3,2,3,3;PM2;FP;")
                                    << "1 solid: 0,0 9,0 9,9 + 2,2 3,2 3,3" << usual << 0.0;
    QTest::newRow("FT3") << QByteArray("FT3,20,45;PU1,1;RA3,4;") << "1 hatch: 1,1 3,1 3,4 1,4 1,1" << 20.0
                         << 45.0;
    QTest::newRow("FT4") << QByteArray("FT4,20;PU1,1;RA3,4;") << "1 cross: 1,1 3,1 3,4 1,4 1,1" << 20.0
                         << 0.0;
    QTest::newRow("FT, spacing in user units")
        << QByteArray("IP0,0,1000,1000;SC0,10,0,10;FT3,2;PU1,1;RA3,4;")
        << "1 hatch: 100,100 300,100 300,400 100,400 100,100" << 200.0 << 0.0;
    QTest::newRow("FT without numbers")
        << QByteArray("FT3,20,45;FT;PU1,1;RA3,4;") << "1 solid: 1,1 3,1 3,4 1,4 1,1" << usual << 0.0;
    QTest::newRow("RO turns area and hatch")
        << QByteArray("FT3,20,45;RO90;PU0,0;RA2,1;") << "1 hatch: 11040,0 11040,2 11039,2 11039,0 11040,0"
        << 20.0 << 135.0;
    QTest::newRow("IW cuts it") << QByteArray("IW0,0,10,10;PU5,5;RA20,8;") << "1 solid: 5,5 10,5 10,8 5,8 5,5"
                                << usual << 0.0;
}

void PlotReaderTest::areas()
{
    QFETCH(QByteArray, instructions);
    QFETCH(QString, expected);
    QFETCH(double, spacing);
    QFETCH(double, angle);
    const Plot plot = PlotReader::readBytes(instructions).plot;
    QCOMPARE(areasText(plot), expected);
    QCOMPARE(plot.areas.front().spacing, spacing);
    QCOMPARE(plot.areas.front().angle, angle);
    QVERIFY(plot.strokes.empty());
    QCOMPARE(plot.skippedCount, 0);
}

void PlotReaderTest::labels_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<QString>("expected");

    // SI.1,.2 is 40 by 80 units: a character moves the pen by 60, a line by 160.
    QTest::newRow("LB, the letters of a new plot")
        << QByteArray("PU10,20;LBHello\x03;") << "10,20 74.80x107.60 @0 Hello";
    QTest::newRow("SI") << QByteArray("SI.1,.2;PU0,0;LBA\x03") << "0,0 40x80 @0 A";
    QTest::newRow("SI without numbers") << QByteArray("SI1,1;SI;PU0,0;LBA\x03") << "0,0 74.80x107.60 @0 A";
    QTest::newRow("SR, percent of P1 to P2")
        << QByteArray("IP0,0,1000,2000;SR1,2;PU0,0;LBA\x03") << "0,0 10x40 @0 A";
    QTest::newRow("SR follows IP") << QByteArray("SR1,2;IP0,0,1000,2000;PU0,0;LBA\x03") << "0,0 10x40 @0 A";
    QTest::newRow("SR without numbers")
        << QByteArray("IP0,0,1000,2000;SR;PU0,0;LBA\x03") << "0,0 7.50x30 @0 A";
    QTest::newRow("LB moves the pen behind the text")
        << QByteArray("SI.1,.2;PU0,0;LBAB\x03LBC\x03") << "0,0 40x80 @0 AB | 120,0 40x80 @0 C";
    QTest::newRow("CR and LF in a text")
        << QByteArray("SI.1,.2;PU5,0;LBAB\r\nCD\x03") << "5,0 40x80 @0 AB | 5,-160 40x80 @0 CD";
    QTest::newRow("LF alone goes down")
        << QByteArray("SI.1,.2;PU0,0;LBAB\nC\x03") << "0,0 40x80 @0 AB | 120,-160 40x80 @0 C";
    QTest::newRow("three lines") << QByteArray("SI.1,.2;PU0,0;LBA\r\nB\r\nC\x03")
                                 << "0,0 40x80 @0 A | 0,-160 40x80 @0 B | 0,-320 40x80 @0 C";
    QTest::newRow("BS goes back") << QByteArray("SI.1,.2;PU0,0;LBO\b/\x03")
                                  << "0,0 40x80 @0 O | 0,0 40x80 @0 /";
    QTest::newRow("DI upwards") << QByteArray("SI.1,.2;DI0,1;PU0,0;LBAB\x03LBC\x03")
                                << "0,0 40x80 @90 AB | 0,120 40x80 @90 C";
    QTest::newRow("DI, lines beside each other")
        << QByteArray("SI.1,.2;DI0,1;PU0,0;LBA\r\nB\x03") << "0,0 40x80 @90 A | 160,0 40x80 @90 B";
    QTest::newRow("DI without numbers") << QByteArray("SI.1,.2;DI0,1;DI;PU0,0;LBA\x03") << "0,0 40x80 @0 A";
    QTest::newRow("DR, percent of P1 to P2")
        << QByteArray("IP0,0,1000,2000;SI.1,.2;DR2,1;PU0,0;LBA\x03") << "0,0 40x80 @45 A";
    QTest::newRow("CP moves by cells") << QByteArray("SI.1,.2;PU0,0;CP2,-1;LBA\x03") << "120,-160 40x80 @0 A";
    QTest::newRow("CP without numbers is a new line")
        << QByteArray("SI.1,.2;PU5,0;LBAB\x03;CP;LBC\x03") << "5,0 40x80 @0 AB | 5,-160 40x80 @0 C";
    QTest::newRow("DT changes the terminator")
        << QByteArray("SI.1,.2;DT*;PU0,0;LBA;B*PU9,9;LBC*") << "0,0 40x80 @0 A;B | 9,9 40x80 @0 C";
    QTest::newRow("DT alone brings ETX back")
        << QByteArray("SI.1,.2;DT*;DT;PU0,0;LBA*B\x03") << "0,0 40x80 @0 A*B";
    QTest::newRow("instructions in a text are text")
        << QByteArray("SI.1,.2;PU0,0;LBPD5,5;SP2;\x03PU1,1;") << "0,0 40x80 @0 PD5,5;SP2;";
    QTest::newRow("blanks leave no mark, but move")
        << QByteArray("SI.1,.2;PU0,0;LB   \x03LBA\x03") << "180,0 40x80 @0 A";
    QTest::newRow("no pen, no text") << QByteArray("SP0;PU0,0;LBA\x03") << "";
    QTest::newRow("Latin-1") << QByteArray("SI.1,.2;PU0,0;LB\xd8"
                                           "20\xb0\x03")
                             << QString::fromUtf8("0,0 40x80 @0 Ø20°");
    // AB is 100 wide, 80 high.
    QTest::newRow("LO5, about the centre")
        << QByteArray("SI.1,.2;LO5;PU100,100;LBAB\x03") << "50,60 40x80 @0 AB";
    QTest::newRow("LO9, left of and below")
        << QByteArray("SI.1,.2;LO9;PU100,100;LBAB\x03") << "0,20 40x80 @0 AB";
    QTest::newRow("LO11, half a letter off")
        << QByteArray("SI.1,.2;LO11;PU100,100;LBAB\x03") << "120,140 40x80 @0 AB";
    QTest::newRow("LO4, upwards") << QByteArray("SI.1,.2;DI0,1;LO4;PU100,100;LBAB\x03")
                                  << "100,50 40x80 @90 AB";
    QTest::newRow("RO turns texts") << QByteArray("SI.1,.2;RO90;PU0,0;LBA\x03") << "11040,0 40x80 @90 A";
    QTest::newRow("SM puts a character at each point")
        << QByteArray("SI.1,.2;SM+;PU100,100;PA200,100;SM;PA300,100;")
        << "80,60 40x80 @0 + | 180,60 40x80 @0 +";
    QTest::newRow("IW drops what starts outside")
        << QByteArray("SI.1,.2;IW0,0,10,10;PU5,5;LBA\x03PU50,5;LBB\x03") << "5,5 40x80 @0 A";
    QTest::newRow("BL is not shown, nor taken for instructions") << QByteArray("PU0,0;BLPD1,1;\x03") << "";
}

void PlotReaderTest::labels()
{
    QFETCH(QByteArray, instructions);
    QFETCH(QString, expected);
    const PlotReading reading = PlotReader::readBytes(instructions);
    QCOMPARE(labelsText(reading.plot), expected);
    QCOMPARE(strokesText(reading.plot), QString());
    QCOMPARE(reading.plot.damagedCount, 0);
}

void PlotReaderTest::skipped_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("skipped");
    QTest::addColumn<int>("damaged");

    const QString line = QStringLiteral("1: 0,0 9,9");
    QTest::newRow("an unknown instruction") << QByteArray("PU0,0;ZZ1,2,3;PD9,9;") << line << 1 << 0;
    QTest::newRow("two without semicolons") << QByteArray("PU0,0ZZ1,2YYPD9,9") << line << 2 << 0;
    QTest::newRow("a buffered text") << QByteArray("PU0,0;BLabc\x03PD9,9;") << line << 1 << 0;
    QTest::newRow("a run of binary bytes") << QByteArray("PU0,0;\xff\xfe\x80\x81;PD9,9;") << line << 1 << 1;
    QTest::newRow("two runs") << QByteArray("PU0,0;\xff\xfe;\x80\x81;PD9,9;") << line << 2 << 2;
    QTest::newRow("numbers on their own") << QByteArray("PU0,0;17,18;PD9,9;") << line << 1 << 1;
    QTest::newRow("a single letter") << QByteArray("PU0,0;Q;PD9,9;") << line << 1 << 1;
    QTest::newRow("a point without y") << QByteArray("PU0,0;PD9,9,5;") << line << 1 << 1;
    QTest::newRow("a damaged number") << QByteArray("PU0,0;PD9,9,.,5;") << line << 1 << 1;
    QTest::newRow("a sign without a number") << QByteArray("PU0,0;PD9,9,+,5;") << line << 1 << 1;
    QTest::newRow("a number past all numbers") << QByteArray("PU0,0;PD9,9,1e999,5;") << line << 1 << 1;
    QTest::newRow("a hundred digits")
        << QByteArray("PU0,0;PD9,9,") + QByteArray(100, '9') + ",5;" << line << 1 << 1;
    QTest::newRow("a number past all plotters") << QByteArray("PU0,0;PD9,9,1e8,5,1,1;") << line << 1 << 1;
    QTest::newRow("no numbers but words") << QByteArray("PU0,0;PD9,9;PD nan,nan;") << line << 4 << 2;
    QTest::newRow("SP out of range") << QByteArray("SP-1;SP256;PU0,0;PD9,9;") << line << 2 << 2;
    QTest::newRow("LT out of range") << QByteArray("LT44;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("SC without a range") << QByteArray("SC5,5,0,1;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("SC with three numbers") << QByteArray("SC0,1,2;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("SC past all numbers") << QByteArray("SC0,1e-30,0,1;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("SC with a number past all plotters")
        << QByteArray("SC0,2e9,0,1;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("IP without extent") << QByteArray("IP5,5,5,9;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("IP past all plotters") << QByteArray("IP0,0,1e9,1e9;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("RO45") << QByteArray("RO45;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("CI without a radius") << QByteArray("CI;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("CI off the plotter") << QByteArray("CI1e8;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("AA off the plotter") << QByteArray("PU0,0;AA8e6,0,180;PD9,9;") << line << 1 << 1;
    QTest::newRow("AA with two numbers") << QByteArray("PU0,0;AA5,5;PD9,9;") << line << 1 << 1;
    QTest::newRow("EA with one number") << QByteArray("PU0,0;EA5;PD9,9;") << line << 1 << 1;
    QTest::newRow("PM2 without a beginning") << QByteArray("PM2;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("DI without a direction") << QByteArray("DI0,0;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("SI with one number") << QByteArray("SI1;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("SI of nothing") << QByteArray("SI0,1;PU0,0;PD9,9;") << line << 1 << 1;
    QTest::newRow("PE that is cut off") << QByteArray("PU0,0;PD9,9;PE") + char(191) << line << 1 << 1;
    QTest::newRow("PE with a foreign byte") << QByteArray("PU0,0;PD9,9;PE!;") << line << 1 << 1;
    QTest::newRow("PE with an endless number")
        << QByteArray("PU0,0;PD9,9;PE") + QByteArray(500, '~') + ";" << line << 1 << 1;
    QTest::newRow("CO that is cut off") << QByteArray("PU0,0;PD9,9;CO\"and so") << line << 1 << 1;
    QTest::newRow("an escape sequence that is cut off") << QByteArray("PU0,0;PD9,9;\x1b") << line << 0 << 0;
}

void PlotReaderTest::skipped()
{
    QFETCH(QByteArray, instructions);
    QFETCH(QString, expected);
    QFETCH(int, skipped);
    QFETCH(int, damaged);
    const PlotReading reading = PlotReader::readBytes(instructions);
    QCOMPARE(reading.result, PlotReading::Ok);
    QCOMPARE(strokesText(reading.plot), expected);
    QCOMPARE(reading.plot.skippedCount, skipped);
    QCOMPARE(reading.plot.damagedCount, damaged);
}

void PlotReaderTest::results_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<PlotReading::Result>("expected");

    QTest::newRow("no bytes") << QByteArray() << PlotReading::Empty;
    QTest::newRow("blanks") << QByteArray(" \t\r\n \n") << PlotReading::Empty;
    QTest::newRow("an instruction that draws nothing") << QByteArray("IN;") << PlotReading::Ok;
    QTest::newRow("binary bytes") << QByteArray("\x89PNG\r\n\x1a\n\xff\xd8\xff\xe0")
                                  << PlotReading::NoInstructions;
    QTest::newRow("zeros") << QByteArray(1000, '\0') << PlotReading::NoInstructions;
    QTest::newRow("digits") << QByteArray("12 34 56") << PlotReading::NoInstructions;
    QTest::newRow("unknown instructions alone") << QByteArray("ZZ;YY;QQ1,2;") << PlotReading::NoInstructions;
    QTest::newRow("prose") << QByteArray("The rain in Spain stays mainly in the plain. Is it so?")
                           << PlotReading::NoInstructions;
    QTest::newRow("a drawing in between") << QByteArray("xx yy zz vv ww PU0,0;PD1,1;") << PlotReading::Ok;
    QTest::newRow("as large as can be")
        << QByteArray(PlotReader::LargestFile - 3, ' ') + "IN;" << PlotReading::Ok;
    QTest::newRow("too large") << QByteArray(PlotReader::LargestFile - 2, ' ') + "IN;"
                               << PlotReading::TooLarge;
}

void PlotReaderTest::results()
{
    QFETCH(QByteArray, bytes);
    QFETCH(PlotReading::Result, expected);
    QCOMPARE(PlotReader::readBytes(bytes).result, expected);
}

void PlotReaderTest::patternLength_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<double>("expected");

    QTest::newRow("four percent of P1 to P2") << QByteArray("IP0,0,3000,4000;LT2;") << 200.0;
    QTest::newRow("in percent") << QByteArray("IP0,0,3000,4000;LT2,10;") << 500.0;
    QTest::newRow("kept for the next type") << QByteArray("IP0,0,3000,4000;LT2,10;LT3;") << 500.0;
    QTest::newRow("in millimetres") << QByteArray("LT2,5,1;") << 200.0;
    QTest::newRow("solid lines have none") << QByteArray("LT2,10;LT;") << 0.0;
}

void PlotReaderTest::patternLength()
{
    QFETCH(QByteArray, instructions);
    QFETCH(double, expected);
    const Plot plot = PlotReader::readBytes(instructions + "PU0,0;PD9,9;").plot;
    QCOMPARE(plot.strokes.front().patternLength, expected);
}

void PlotReaderTest::penWidth_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<double>("expected");

    QTest::newRow("its own") << QByteArray("SP2;") << 0.0;
    QTest::newRow("PW in millimetres") << QByteArray("SP2;PW.7;") << 0.7;
    QTest::newRow("PW of another pen") << QByteArray("SP2;PW.7,3;") << 0.0;
    QTest::newRow("PW of a pen to come") << QByteArray("PW.7,2;SP2;") << 0.7;
    QTest::newRow("PW without numbers") << QByteArray("SP2;PW.7;PW;") << 0.0;
    QTest::newRow("WU1, PW in percent") << QByteArray("IP0,0,3000,4000;SP2;WU1;PW2;") << 2.5;
    QTest::newRow("IN brings millimetres back") << QByteArray("WU1;IN;SP2;PW.7;") << 0.7;
    QTest::newRow("IN forgets it") << QByteArray("SP2;PW.7;IN;") << 0.0;
}

void PlotReaderTest::penWidth()
{
    QFETCH(QByteArray, instructions);
    QFETCH(double, expected);
    const Plot plot = PlotReader::readBytes(instructions + "PU0,0;PD9,9;").plot;
    QCOMPARE(plot.strokes.front().width, expected);
}

void PlotReaderTest::penColours()
{
    const Plot plot = PlotReader::readBytes("PC1,255,128,0;PC2,300,-5,9;PC3,1,2,3;PC3;IN;").plot;
    QCOMPARE(plot.penColours.size(), std::size_t(2));
    QCOMPARE(plot.penColours.at(1), qRgb(255, 128, 0));
    QCOMPARE(plot.penColours.at(2), qRgb(255, 0, 9));
}

void PlotReaderTest::slant()
{
    const Plot plot = PlotReader::readBytes("SL.5;PU0,0;LBA\x03SL;LBB\x03").plot;
    QCOMPARE(plot.labels.at(0).slant, 0.5);
    QCOMPARE(plot.labels.at(1).slant, 0.0);
}

void PlotReaderTest::marksByPen()
{
    const Plot plot =
        PlotReader::readBytes("SP2;PU0,0;PD1,1;PU;CI5;SP4;RA3,3;LBA\x03SP6;SP0;PU5,5;PD6,6;").plot;
    QCOMPARE(plot.marksByPen(), (std::map<int, int>{{2, 2}, {4, 2}}));
}

void PlotReaderTest::bounds_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<QString>("expected");

    QTest::newRow("nothing") << QByteArray("IN;") << "0,0 0,0";
    QTest::newRow("a stroke") << QByteArray("PU10,20;PD40,60;") << "10,20 40,60";
    QTest::newRow("an area") << QByteArray("PU10,20;RA40,60;") << "10,20 40,60";
    QTest::newRow("a text") << QByteArray("SI.1,.2;PU10,20;LBAB\x03") << "10,20 110,100";
    QTest::newRow("a text upwards") << QByteArray("SI.1,.2;DI0,1;PU100,20;LBAB\x03") << "20,20 100,120";
    QTest::newRow("a text on a slope")
        << QByteArray("SI.1,.2;DI1,1;PU0,0;LBAB\x03") << "-56.57,0 70.71,127.28";
    QTest::newRow("pen moves do not count")
        << QByteArray("PU999,999;PU10,20;PD40,60;PU-999,-999;") << "10,20 40,60";
}

void PlotReaderTest::bounds()
{
    QFETCH(QByteArray, instructions);
    QFETCH(QString, expected);
    const QRectF bounds = PlotReader::readBytes(instructions).plot.bounds();
    QCOMPARE(pointsText(QPolygonF(QVector<QPointF>{bounds.topLeft(), bounds.bottomRight()})), expected);
}

static const QByteArray aBitOfAll =
    "IN;IP0,0,8000,8000;SC0,100,0,100;SP1;PU1,1;PD2,3,4.5,-6e0;LT2,5;CI3;PR;PD1,1;PA;AA5,5,90;EW2,0,45;"
    "FT3,1,45;RA9,9;PU3,3;PM0;PD4,4,5,3;PM1;CI1;PM2;FP;EP;SI.2,.3;DI1,1;LO5;LBText\r\nmore\x03;CP1,1;SM*;PA7,"
    "7;"
    "SM;IW0,0,50,50;PD60,60;IW;RO90;PD1,1;PW.5;PC2,1,2,3;XT;YT;DT!;LBx!CO\"y\";PE<=AB;\x1b.I1:SP0;";

// Cut off anywhere, a plot is still read up to there. What is left of a label may pass for two instructions.
void PlotReaderTest::everyTruncation()
{
    const std::size_t strokes = PlotReader::readBytes(aBitOfAll).plot.strokes.size();
    std::size_t before = 0;
    for (int length = 1; length <= aBitOfAll.size(); ++length) {
        const PlotReading reading = PlotReader::readBytes(aBitOfAll.left(length));
        QVERIFY2(reading.plot.strokes.size() + 1 >= before && reading.plot.strokes.size() <= strokes + 1,
                 qPrintable(QString::number(length)));
        QVERIFY2(reading.plot.skippedCount <= 3, qPrintable(QString::number(length)));
        before = reading.plot.strokes.size();
    }
}

void PlotReaderTest::everyDamagedByte()
{
    for (int i = 0; i < aBitOfAll.size(); ++i) {
        for (const char damage : {'\xff', '\0', '9', 'Z', ';', '\x1b', '\x03'}) {
            QByteArray bytes = aBitOfAll;
            bytes[i] = damage;
            const Plot plot = PlotReader::readBytes(bytes).plot;
            for (const PlotStroke &stroke : plot.strokes) {
                QVERIFY2(!stroke.points.isEmpty() && allPlottable(stroke.points),
                         qPrintable(QStringLiteral("byte %1 = %2").arg(i).arg(int(damage))));
            }
        }
    }
}

void PlotReaderTest::megabyteOfGarbage_data()
{
    QTest::addColumn<QByteArray>("bytes");

    constexpr int Megabyte = 1024 * 1024;
    QRandomGenerator random(20240607);
    QByteArray anything(Megabyte, '\0');
    for (char &byte : anything)
        byte = static_cast<char>(random.bounded(256));
    QTest::newRow("any bytes") << anything;

    static const char alphabet[] = "PUDARCILBSTEMWGFNO0123456789.,;-+ \x03\x1b";
    QByteArray words(Megabyte, '\0');
    for (char &byte : words)
        byte = alphabet[random.bounded(int(sizeof alphabet) - 1)];
    QTest::newRow("a plotter's alphabet") << words;

    QTest::newRow("labels without end") << QByteArray("LB\n").repeated(Megabyte / 3);
    QTest::newRow("labels without end, one line") << QByteArray("LB").repeated(Megabyte / 2);
    QTest::newRow("terminators set and lost") << QByteArray("DT*LB\nDT!LB\n").repeated(Megabyte / 12);
    QTest::newRow("comments without end") << QByteArray("CO\"\n").repeated(Megabyte / 4);
    QTest::newRow("polylines without end") << QByteArray("PE\n").repeated(Megabyte / 3);
    QTest::newRow("circles") << QByteArray("CI9,.5;").repeated(Megabyte / 7);
    QTest::newRow("arcs") << QByteArray("PD;AA0,0,999,.5;").repeated(Megabyte / 16);
    QTest::newRow("dots") << QByteArray("PD;PU;").repeated(Megabyte / 6);
    QTest::newRow("polygon edges") << QByteArray("PM0;PD") + QByteArray("1,1,").repeated(Megabyte / 8)
                                          + ";PM2;" + QByteArray("EP;FP;").repeated(Megabyte / 12);
    QTest::newRow("windows") << QByteArray("IW0,0,1,1;PD2,2;RA3,3;").repeated(Megabyte / 22);
    QTest::newRow("one number") << QByteArray("PD") + QByteArray(Megabyte, '7');
    QTest::newRow("numbers") << QByteArray("PD") + QByteArray("1,").repeated(Megabyte / 2);
    QTest::newRow("escapes") << QByteArray(Megabyte, '\x1b');
    QTest::newRow("job language") << QByteArray("@PJL\n").repeated(Megabyte / 5);
    QTest::newRow("line feeds in a label") << QByteArray("LB") + QByteArray(Megabyte, '\n') + '\x03';
}

// Nothing to compare with: it has to come to an end, which the time limit of the suite sees to, with what it
// holds in bounds.
void PlotReaderTest::megabyteOfGarbage()
{
    QFETCH(QByteArray, bytes);
    const Plot plot = PlotReader::readBytes(bytes).plot;

    qint64 points = 0;
    for (const PlotStroke &stroke : plot.strokes) {
        QVERIFY(!stroke.points.isEmpty() && allPlottable(stroke.points));
        points += stroke.points.size();
    }
    QVERIFY(points <= 2 * PlotReader::MostPoints);
    qint64 characters = 0;
    for (const PlotLabel &label : plot.labels)
        characters += label.text.size();
    QVERIFY(characters <= PlotReader::MostCharacters);
}

void PlotReaderTest::pointLimit()
{
    QByteArray bytes("PU0,0;PD");
    for (int i = 0; i < PlotReader::MostPoints / 2; ++i)
        bytes += "1,1,2,2,";
    const PlotReading within = PlotReader::readBytes("PU0,0;PD1,1,2,2;");
    QVERIFY(within.plot.complete);
    const PlotReading beyond = PlotReader::readBytes(bytes + "3,3,4,4;PU9,9;PD8,8;");
    QCOMPARE(beyond.result, PlotReading::Ok);
    QVERIFY(!beyond.plot.complete);
    QVERIFY(beyond.plot.strokes.size() <= 1);
}

void PlotReaderTest::characterLimit()
{
    const QByteArray label = "LB" + QByteArray(PlotReader::LongestLabel + 10, 'x') + '\x03';
    const Plot one = PlotReader::readBytes(label).plot;
    QCOMPARE(one.labels.front().text.size(), PlotReader::LongestLabel);
    QCOMPARE(one.damagedCount, 1);
    QVERIFY(one.complete);

    const Plot many = PlotReader::readBytes(("PU0,0;" + label).repeated(2000)).plot;
    QVERIFY(!many.complete);
    QVERIFY(many.labels.size() < 1000);
}

void PlotReaderTest::readsFile()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("plot.hpgl")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("PU1,2;PD3,4;");
    file.close();
    const PlotReading reading = PlotReader::readFile(file.fileName());
    QCOMPARE(reading.result, PlotReading::Ok);
    QCOMPARE(strokesText(reading.plot), QStringLiteral("1: 1,2 3,4"));
}

void PlotReaderTest::unreadableFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a name that is not there") << QStringLiteral("missing.hpgl");
    QTest::newRow("a folder") << QStringLiteral(".");
    QTest::newRow("in a folder that is not there") << QStringLiteral("missing/plot.hpgl");
}

void PlotReaderTest::unreadableFile()
{
    QFETCH(QString, name);
    QTemporaryDir folder;
    QCOMPARE(PlotReader::readFile(folder.filePath(name)).result, PlotReading::Unreadable);
}

KX_TEST_MAIN(PlotReaderTest)

#include "tst_plot_reader.moc"
