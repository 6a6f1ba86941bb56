// SPDX-License-Identifier: MIT
#include "KxChildOutcome.h"
#include "KxFileSandbox.h"
#include "KxTestCase.h"

#include "PlotFile.h"
#include "PlotReader.h"
#include "PlotScanner.h"
#include "ResourceText.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QTextCodec>
#include <QtCore/QThread>

#include <cstdlib>
#include <memory>

#include <malloc.h>
#include <sys/prctl.h>
#include <sys/stat.h>

static void initResources()
{
    Q_INIT_RESOURCE(plotview);
}

namespace {

constexpr int Kilobyte = 1024;
constexpr qint64 Megabyte = 1024 * 1024;
#ifdef __SANITIZE_ADDRESS__
constexpr qint64 LargeSize = 10 * Megabyte;    // each allocation takes its time there
#else
constexpr qint64 LargeSize = 50 * Megabyte;
#endif

QString pointsText(const QPolygonF &points)
{
    QStringList parts;
    for (const QPointF &point : points)
        parts.append(QStringLiteral("%1,%2").arg(point.x()).arg(point.y()));
    return parts.join(QLatin1Char(' '));
}

/// All that reading tells, as text.
QString shown(const PlotReading &reading)
{
    const Plot &plot = reading.plot;
    QStringList parts;
    parts.append(QStringLiteral("%1: %2 done, %3 skipped, %4 damaged, complete %5")
                     .arg(reading.result)
                     .arg(plot.instructionCount)
                     .arg(plot.skippedCount)
                     .arg(plot.damagedCount)
                     .arg(plot.complete));
    for (const PlotStroke &stroke : plot.strokes)
        parts.append(QStringLiteral("%1: %2").arg(stroke.pen).arg(pointsText(stroke.points)));
    for (const PlotArea &area : plot.areas) {
        for (const QPolygonF &outline : area.outlines)
            parts.append(QStringLiteral("%1, area: %2").arg(area.pen).arg(pointsText(outline)));
    }
    for (const PlotLabel &label : plot.labels) {
        const QString position = pointsText(QPolygonF({label.position}));
        parts.append(QStringLiteral("%1, at %2: ").arg(label.pen).arg(position) + label.text);
    }
    return parts.join(QLatin1Char('\n'));
}

QByteArray blanks(int count)
{
    return QByteArray(count, ' ');
}

QByteArray lines(int count)
{
    return QByteArray(count, '\n');
}

/// The locale's codec for a while.
class LocaleCodec
{
public:
    explicit LocaleCodec(const char *name) { QTextCodec::setCodecForLocale(QTextCodec::codecForName(name)); }
    ~LocaleCodec() { QTextCodec::setCodecForLocale(m_before); }
    LocaleCodec(const LocaleCodec &) = delete;
    LocaleCodec &operator=(const LocaleCodec &) = delete;

private:
    QTextCodec *const m_before = QTextCodec::codecForLocale();
};

constexpr const char *Line = "IN;PU0,0;PD9,9;PU;";

/// Writes `head`, then `unit` over and over until the file has at least `size` bytes.
bool writeLarge(const QString &name, const QByteArray &head, const QByteArray &unit, qint64 size,
                const QByteArray &tail = QByteArray())
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(head);
    const QByteArray block = unit.repeated(64 * Kilobyte / unit.size() + 1);
    while (file.pos() < size)
        file.write(block);
    file.write(tail);
    return file.flush();
}

/// What the marks of a plot take at the least.
qint64 bytesOf(const Plot &plot)
{
    qint64 bytes = 0;
    for (const PlotStroke &stroke : plot.strokes)
        bytes += qint64(sizeof stroke) + stroke.points.size() * qint64(sizeof(QPointF));
    for (const PlotLabel &label : plot.labels)
        bytes += qint64(sizeof label) + label.text.size() * qint64(sizeof(QChar));
    return bytes;
}

/// Kilobytes of memory that the process has used at most, counted from the first call on.
long peak()
{
    static const bool counting = [] {
        malloc_trim(0);
        return write(QStringLiteral("/proc/self/clear_refs"), "5");
    }();
    const QByteArray status = contentsOf(QStringLiteral("/proc/self/status"));
    const int at = status.indexOf("VmHWM:");
    return counting && at >= 0 ? std::atol(status.constData() + at + 6) : -1;
}

struct Growth {
    long kilobytes = -1;
    int result = -1;
    int strokes = -1;
    qint64 kept = -1;
};

/// How much more memory a child process needs to read a file. It has read a short one before.
template<typename Read>
Growth growthOf(const Read &read)
{
    const KxChildOutcome outcome = kxRunInChild([&read] {
        PlotReader::readFile(QStringLiteral(":/plotview/plots/housing.hpgl"));
        const long before = peak();
        const PlotReading reading = read();
        std::fprintf(stderr, "%ld %d %d %lld", before < 0 ? -1 : peak() - before, int(reading.result),
                     int(reading.plot.strokes.size()), static_cast<long long>(bytesOf(reading.plot)));
    });
    Growth growth;
    const QList<QByteArray> figures = outcome.standardError.split(' ');
    if (outcome.finished && figures.size() == 4) {
        growth.kilobytes = figures.at(0).toLong();
        growth.result = figures.at(1).toInt();
        growth.strokes = figures.at(2).toInt();
        growth.kept = figures.at(3).toLongLong() / Kilobyte;
    }
    qInfo("%ld kB more, %lld kB kept", growth.kilobytes, static_cast<long long>(growth.kept));
    return growth;
}

} // namespace

Q_DECLARE_METATYPE(PlotReading::Result)

class PlotFilesTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void sameAsTheBytes_data();
    void sameAsTheBytes();
    void anyBytes_data();
    void anyBytes();
    void everyShift();
    void piecesOfALine_data();
    void piecesOfALine();
    void localeCodecStays();
    void unicodeFile_data();
    void unicodeFile();

    void names_data();
    void names();
    void sample();
    void pipe_data();
    void pipe();
    void fileWithoutASize();
    void shorterThanItSays();
    void sizes_data();
    void sizes();

    void progress_data();
    void progress();
    void cancelled_data();
    void cancelled();

    void longParameters_data();
    void longParameters();
    void longTexts_data();
    void longTexts();
    void longPolylineWithoutEnd();
    void memory_data();
    void memory();
    void memoryIsMeasured();
    void memoryFollowsWhatIsKept();
};

void PlotFilesTest::sameAsTheBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("no bytes") << QByteArray();
    QTest::newRow("one line end") << QByteArray("\n");
    QTest::newRow("one CR LF") << QByteArray("\r\n");
    QTest::newRow("one CR") << QByteArray("\r");
    QTest::newRow("no line end") << QByteArray(Line);
    QTest::newRow("a line end at the end") << QByteArray(Line) + "\n";
    QTest::newRow("CR LF") << QByteArray("IN;\r\nPU0,0;\r\nPD9,9;\r\n");
    QTest::newRow("CR alone") << QByteArray("IN;\rPU0,0;\rPD9,9;\r");
    QTest::newRow("CR at the very end") << QByteArray("IN;PU0,0;PD9,9;\n\r");
    QTest::newRow("an empty line inside") << QByteArray("IN;\n\nPU0,0;\n\nPD9,9;\n");
    QTest::newRow("empty lines at the beginning") << lines(5) + Line;
    QTest::newRow("empty lines alone") << lines(100000);
    QTest::newRow("100000 empty lines inside") << QByteArray("IN;PU0,0;") + lines(100000) + "PD9,9;";
    QTest::newRow("the last 16 KiB are empty lines") << QByteArray(Line) + lines(16 * Kilobyte);
    QTest::newRow("the last 16 KiB and a byte are empty lines")
        << QByteArray(Line) + lines(16 * Kilobyte + 1);
    QTest::newRow("a MiB of empty lines, then the plot") << lines(Megabyte + 5) + Line;
    QTest::newRow("16 KiB, no line end") << QByteArray(Line) + blanks(16 * Kilobyte - int(qstrlen(Line)));
    QTest::newRow("16 KiB, a line end is the last byte")
        << QByteArray(Line) + blanks(16 * Kilobyte - int(qstrlen(Line)) - 1) + "\n";
    QTest::newRow("CR and LF on either side of 16 KiB")
        << QByteArray("PU5,0;LB") + QByteArray(16 * Kilobyte - 9, 'x') + "\r\nAB\x03PU9,9;PD1,1;";

    QTest::newRow("CR LF in a label") << QByteArray("PU5,0;LBAB\r\nCD\x03");
    QTest::newRow("LF in a label") << QByteArray("PU5,0;LBAB\nCD\x03");
    QTest::newRow("CR in a label") << QByteArray("PU5,0;LBAB\rCD\x03");
    QTest::newRow("LF CR in a label") << QByteArray("PU5,0;LBAB\n\rCD\x03");
    QTest::newRow("empty lines in a label") << QByteArray("PU5,0;LBAB\n\n\r\n\nCD\x03");
    QTest::newRow("a label without end, then a line") << QByteArray("PU5,0;LBAB\nPD9,9;");
    QTest::newRow("Latin-1 in a label") << QByteArray("PU5,0;LB\xd8"
                                                      "20\xb0\xe4\xff\x03");
    QTest::newRow("UTF-8 in a label") << QByteArray("PU5,0;LB\xc3\x98\x03");
    QTest::newRow("UTF-8 cut off") << QByteArray("PU5,0;LB\xc3\x03PD9,9;");
    QTest::newRow("zeros") << QByteArray("PU0,0;\0\0PD5,5;\0\0", 17);
    QTest::newRow("a zero in a label") << QByteArray("PU0,0;LBA\0B\x03", 12);
    QTest::newRow("ESC sequences") << QByteArray("\x1b.(;\x1b.I81;;17:\x1b.N;19:IN;PU0,0;PD1,1;\x1b.)");
    QTest::newRow("job language")
        << QByteArray("\x1b%-12345X@PJL ENTER LANGUAGE=HPGL2\n\x1b%1BIN;PU0,0;PD1,1;\x1b%0A");
    QTest::newRow("DT LF ends labels with the line") << QByteArray("DT*;PU0,0;LBA*\nLBB*\n");
    QTest::newRow("an encoded polyline")
        << QByteArray("PU0,0;PE<") + char(191 + 20) + char(191 + 40) + char(191 + 10) + char(191 + 7) + ";";
    QByteArray everyByte("PU5,0;LB");
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != 3)
            everyByte.append(static_cast<char>(byte));
    }
    QTest::newRow("every byte in a label") << everyByte + "\x03PU0,0;PD1,1;";
    QTest::newRow("binary bytes") << QByteArray("\x89PNG\r\n\x1a\n\xff\xd8\xff\xe0");
}

void PlotFilesTest::sameAsTheBytes()
{
    QFETCH(QByteArray, bytes);
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(asciiName), bytes));
    const QString expected = shown(PlotReader::readBytes(bytes));
    QCOMPARE(shown(PlotReader::readFile(sandbox.path(asciiName))), expected);
    for (const char *name : {"UTF-8", "ISO-8859-1", "US-ASCII", "Shift_JIS"}) {
        const LocaleCodec codec(name);
        QCOMPARE(shown(PlotReader::readFile(sandbox.path(asciiName))), expected);
    }
}

void PlotFilesTest::anyBytes_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<QByteArray>("alphabet");

    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    QTest::newRow("all") << 20240701u << all;
    QTest::newRow("line ends mostly") << 20240702u << QByteArray("\r\n\r\n\r\n\r\nLB\x03PDU19,;");
    QTest::newRow("a plotter's alphabet")
        << 20240703u << QByteArray("PUDARCILBSTEMWGFNO0123456789.,;-+ \x03\x1b\r\n\xc3\xd8");
}

void PlotFilesTest::anyBytes()
{
    QFETCH(quint32, seed);
    QFETCH(QByteArray, alphabet);
    const Sandbox sandbox;
    QRandomGenerator random(seed);
    for (int size : {1, 2, 3, 50, 1000, 4095, 4096, 4097, 16383, 16384, 16385, 40000, 70000, 140000}) {
        QByteArray bytes = Line;
        while (bytes.size() < size)
            bytes.append(alphabet.at(random.bounded(alphabet.size())));
        bytes.truncate(size);
        QVERIFY(write(sandbox.path(asciiName), bytes));
        QVERIFY2(shown(PlotReader::readFile(sandbox.path(asciiName))) == shown(PlotReader::readBytes(bytes)),
                 qPrintable(QStringLiteral("seed %1, %2 bytes").arg(seed).arg(size)));
    }
}

// Whatever stands where one window of the input ends and the next begins, it is read as anywhere else.
void PlotFilesTest::everyShift()
{
    const QByteArray unit =
        "SP1;PU1,1;PD2,3,4.5,-6e0;CI3;SP2;PU3,3;PM0;PD4,4,5,3;PM1;CI1;PM2;FP;EP;LBText\r\nmore\x03;CO\"y\";"
        "PU1,1;PE<=AB\xe0\xe1;\x1b.I1:ZZ1;@PJL x\n\x1b%0BSP0;\r\n";
    const Plot one = PlotReader::readBytes(unit).plot;
    QCOMPARE(one.skippedCount, 1);
    const int count = 3 * 64 * Kilobyte / unit.size();
    for (int shift = 0; shift < unit.size(); ++shift) {
        const Plot many = PlotReader::readBytes(blanks(shift) + unit.repeated(count)).plot;
        QVERIFY2(many.strokes.size() == count * one.strokes.size()
                     && many.areas.size() == count * one.areas.size()
                     && many.labels.size() == count * one.labels.size()
                     && many.instructionCount == count * one.instructionCount && many.skippedCount == count
                     && many.damagedCount == 0,
                 qPrintable(QString::number(shift)));
    }
}

void PlotFilesTest::piecesOfALine_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("pieces");

    constexpr int longest = CPlotFile::LongestPiece;
    QTest::newRow("nothing") << 0 << 1;
    QTest::newRow("one less than a piece") << longest - 1 << 1;
    QTest::newRow("a piece") << longest << 2;
    QTest::newRow("one more than a piece") << longest + 1 << 2;
    QTest::newRow("a hundred pieces") << 100 * longest << 101;
}

void PlotFilesTest::piecesOfALine()
{
    QFETCH(int, length);
    QFETCH(int, pieces);
    const Sandbox sandbox;
    for (const QByteArray &end : {QByteArray(), QByteArray("\n"), QByteArray("\r\n")}) {
        const QByteArray contents = QByteArray(length, 'x') + end;
        QVERIFY(write(sandbox.path(asciiName), contents));
        CPlotFile file;
        QVERIFY(file.OpenPlot(sandbox.widePath(asciiName).c_str()));
        QByteArray bytes;
        int count = 0;
        int most = 0;
        for (int before = 0; file.ReadPiece(bytes); before = bytes.size()) {
            count += bytes.size() > before || count == 0 ? 1 : 0;
            most = std::max(most, bytes.size() - before);
        }
        QCOMPARE(bytes, contents);
        QVERIFY(most <= CPlotFile::LongestPiece + 1);
        QVERIFY(count <= pieces + end.size());
        QVERIFY(!file.IsCutShort());
        QVERIFY(!file.ReadPiece(bytes));
    }
}

void PlotFilesTest::localeCodecStays()
{
    const Sandbox sandbox;
    const LocaleCodec codec("ISO-8859-15");
    QTextCodec *const before = QTextCodec::codecForLocale();
    QVERIFY(write(sandbox.path(asciiName), Line));
    PlotReader::readFile(sandbox.path(asciiName), [before](qint64, qint64) {
        [&] { QCOMPARE(QTextCodec::codecForLocale(), before); }();
        return true;
    });
    QCOMPARE(QTextCodec::codecForLocale(), before);
    PlotReader::readFile(sandbox.path(QStringLiteral("missing")));
    QCOMPARE(QTextCodec::codecForLocale(), before);
    QCOMPARE(QString::fromUtf8("€").toLocal8Bit(), QByteArray("\xa4"));
}

void PlotFilesTest::unicodeFile_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("mark");

    QTest::newRow("UTF-8") << QByteArray("UTF-8") << QByteArray("\xef\xbb\xbf");
    QTest::newRow("UTF-16, low byte first") << QByteArray("UTF-16LE") << QByteArray("\xff\xfe");
    QTest::newRow("UTF-16, high byte first") << QByteArray("UTF-16BE") << QByteArray("\xfe\xff");
}

void PlotFilesTest::unicodeFile()
{
    QFETCH(QByteArray, codec);
    QFETCH(QByteArray, mark);
    const Sandbox sandbox;
    const QString text = QString::fromUtf8("IN;\nPU0,0;\n\nLBØ 20° 図\x03;\nPU0,0;PD9,9;PU;\n");
    QTextCodec::ConverterState noMark(QTextCodec::IgnoreHeader);
    const QByteArray bytes =
        QTextCodec::codecForName(codec)->fromUnicode(text.constData(), text.size(), &noMark);
    QVERIFY(write(sandbox.path(asciiName), mark + bytes));
    const PlotReading reading = PlotReader::readFile(sandbox.path(asciiName));
    QCOMPARE(shown(reading), shown(PlotReader::readBytes("IN;PU0,0;LB\xd8 20\xb0 ?\x03;PU0,0;PD9,9;PU;")));
}

void PlotFilesTest::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("with blanks") << QStringLiteral("a plot of mine.hpgl");
    QTest::newRow("outside ASCII") << QString::fromUtf8("Плот – 図面 Ø20.hpgl");
    QTest::newRow("outside 16 bits") << QString::fromUtf8("😀.hpgl");
    QTest::newRow("with wildcards") << QStringLiteral("*?.hpgl");
}

void PlotFilesTest::names()
{
    QFETCH(QString, name);
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(name), Line));
    QCOMPARE(PlotReader::readFile(sandbox.path(name)).plot.strokes.size(), std::size_t(1));
}

void PlotFilesTest::sample()
{
    initResources();
    const QString name = QStringLiteral(":/plotview/plots/island.hpgl");
    const PlotReading reading = PlotReader::readFile(name);
    QCOMPARE(reading.plot.strokes.size(), std::size_t(180));
    QCOMPARE(shown(reading), shown(PlotReader::readBytes(contentsOf(name))));
}

void PlotFilesTest::pipe_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("no bytes") << QByteArray();
    QTest::newRow("a line end at the end") << QByteArray(Line) + "\n";
    QTest::newRow("no line end") << QByteArray(Line);
    QTest::newRow("100000 empty lines inside") << QByteArray("IN;PU0,0;") + lines(100000) + "PD9,9;";
    QTest::newRow("CR LF in a label") << QByteArray("PU5,0;LBAB\r\nCD\x03");
    QTest::newRow("long") << QByteArray(Line).repeated(20000);
}

void PlotFilesTest::pipe()
{
    QFETCH(QByteArray, bytes);
    const Sandbox sandbox;
    const QString path = sandbox.path(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    const std::unique_ptr<QThread> writer(QThread::create([path, bytes] { write(path, bytes); }));
    writer->start();
    const PlotReading reading = PlotReader::readFile(path);
    writer->wait();
    QCOMPARE(shown(reading), shown(PlotReader::readBytes(bytes)));
}

// The name of this program, which has a file of its own that gives 0 as its size.
void PlotFilesTest::fileWithoutASize()
{
    char before[16] = {};
    prctl(PR_GET_NAME, before);
    prctl(PR_SET_NAME, "PU;PD5,5;PU");
    const QString path = QStringLiteral("/proc/self/comm");
    const qint64 size = QFileInfo(path).size();
    const PlotReading reading = PlotReader::readFile(path);
    prctl(PR_SET_NAME, before);
    QCOMPARE(size, qint64(0));
    QCOMPARE(shown(reading), shown(PlotReader::readBytes("PU;PD5,5;PU\n")));
}

// A counter of the kernel, whose file gives 4096 bytes as its size.
void PlotFilesTest::shorterThanItSays()
{
    const QString path = QStringLiteral("/sys/kernel/uevent_seqnum");
    if (!QFileInfo::exists(path))
        QSKIP("no sysfs, and no other file says that it is longer than it is");
    QCOMPARE(QFileInfo(path).size(), qint64(4096));
    QCOMPARE(PlotReader::readFile(path).result, PlotReading::Unreadable);
}

void PlotFilesTest::sizes_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<PlotReading::Result>("expected");
    QTest::newRow("as large as can be") << qint64(PlotReader::LargestFile) << PlotReading::Ok;
    QTest::newRow("a byte more") << qint64(PlotReader::LargestFile) + 1 << PlotReading::TooLarge;
    QTest::newRow("5 GB") << qint64(5) * 1024 * Megabyte << PlotReading::TooLarge;
}

void PlotFilesTest::sizes()
{
    QFETCH(qint64, size);
    QFETCH(PlotReading::Result, expected);
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(asciiName), "IN;"));
    QVERIFY(QFile::resize(sandbox.path(asciiName), size));
    QCOMPARE(PlotReader::readFile(sandbox.path(asciiName)).result, expected);
}

void PlotFilesTest::progress_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("short") << QByteArray(Line);
    QTest::newRow("long") << QByteArray(Line).repeated(50000);
    QTest::newRow("long, in lines") << QByteArray("PU0,0;\nPD9,9;\r\n").repeated(50000);
    QTest::newRow("nothing") << QByteArray();
}

void PlotFilesTest::progress()
{
    QFETCH(QByteArray, bytes);
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(asciiName), bytes));
    QVector<qint64> calls;
    bool knowsTheTotal = true;
    PlotReader::readFile(sandbox.path(asciiName), [&](qint64 done, qint64 total) {
        calls.append(done);
        knowsTheTotal = knowsTheTotal && total == bytes.size();
        return true;
    });
    QVERIFY(knowsTheTotal);
    QVERIFY(std::is_sorted(calls.begin(), calls.end()));
    QCOMPARE(calls.last(), qint64(bytes.size()));
    for (int i = 1; i < calls.size(); ++i)
        QVERIFY(calls.at(i) - calls.at(i - 1) <= 128 * Kilobyte);
}

void PlotFilesTest::cancelled_data()
{
    QTest::addColumn<int>("calls");
    QTest::newRow("at the first call") << 1;
    QTest::newRow("at the fifth") << 5;
    QTest::newRow("at the last") << 14;
}

void PlotFilesTest::cancelled()
{
    QFETCH(int, calls);
    const Sandbox sandbox;
    const QByteArray bytes = QByteArray(Line).repeated(50000);
    QVERIFY(write(sandbox.path(asciiName), bytes));
    int made = 0;
    qint64 reached = 0;
    const PlotReading reading =
        PlotReader::readFile(sandbox.path(asciiName), [&](qint64 done, qint64) {
            reached = done;
            return ++made < calls;
        });
    QCOMPARE(reading.result, PlotReading::Cancelled);
    QVERIFY(reading.plot.isBlank());
    QCOMPARE(made, calls);
    QCOMPARE(reached == bytes.size(), calls == 14);
}

void PlotFilesTest::longParameters_data()
{
    QTest::addColumn<QByteArray>("parameters");
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("damaged");

    constexpr int most = PlotScanner::MostNumbers;
    const auto pairs = [](int count) { return QByteArray("1,1,2,2,").repeated(count / 2); };
    QTest::newRow("one point less than come at once") << pairs(most / 2 - 2) + "3,3" << most / 2 << 0;
    QTest::newRow("as many as come at once") << pairs(most / 2) << most / 2 + 1 << 0;
    QTest::newRow("half a point more") << pairs(most / 2) + "5" << most / 2 + 1 << 1;
    QTest::newRow("a point more") << pairs(most / 2) + "5,5" << most / 2 + 2 << 0;
    QTest::newRow("many") << pairs(100000) << 100001 << 0;
    QTest::newRow("damaged behind many") << pairs(10000) + "5,.,7,7," + pairs(10000) << 10001 << 1;
    QTest::newRow("off the plotter behind many") << pairs(10000) + "9e6,0," + pairs(10000) << 10001 << 1;
    QTest::newRow("no number behind as many as come at once") << pairs(most / 2) + "-" << most / 2 + 1 << 1;
    const QByteArray zeros(PlotScanner::LongestNumber - 2, '0');
    QTest::newRow("a number as long as can be") << zeros + "5,5" << 2 << 0;
    QTest::newRow("a longer number") << zeros + "05,5" << 1 << 1;
}

void PlotFilesTest::longParameters()
{
    QFETCH(QByteArray, parameters);
    QFETCH(int, points);
    QFETCH(int, damaged);
    const Plot plot = PlotReader::readBytes("PU0,0;PD" + parameters + ";PU;SP2;PU7,7;PD8,8;").plot;
    QCOMPARE(plot.strokes.size(), std::size_t(2));
    QCOMPARE(plot.strokes.front().points.size(), points);
    QCOMPARE(pointsText(plot.strokes.back().points), QStringLiteral("7,7 8,8"));
    QCOMPARE(plot.damagedCount, damaged);
    QCOMPARE(plot.skippedCount, damaged);
}

void PlotFilesTest::longTexts_data()
{
    QTest::addColumn<QByteArray>("instruction");
    QTest::addColumn<int>("damaged");
    QTest::addColumn<int>("strokes");

    constexpr int longest = PlotScanner::LongestText;
    const QByteArray step = QByteArray(1, char(191 + 2)) + char(191 + 2);
    QTest::newRow("a label as long as can be") << "LB" + QByteArray(longest - 1, 'x') + "\x03" << 1 << 1;
    QTest::newRow("a longer label: the rest of its line")
        << "LB" + QByteArray(longest, 'x') + "\x03;PU0,0;PD3,3;\n" << 1 << 1;
    QTest::newRow("a comment as long as can be") << "CO\"" + QByteArray(longest - 1, 'x') + "\";" << 0 << 1;
    QTest::newRow("an encoded polyline of 300000 steps") << "PE" + step.repeated(300000) + ";" << 0 << 2;
    QTest::newRow("one that is damaged behind many steps")
        << "PE" + step.repeated(100000) + "!" + step.repeated(10) + ";" << 1 << 2;
}

void PlotFilesTest::longTexts()
{
    QFETCH(QByteArray, instruction);
    QFETCH(int, damaged);
    QFETCH(int, strokes);
    const Plot plot = PlotReader::readBytes("PU0,0;" + instruction + "PU7,7;PD8,8;").plot;
    QVERIFY(plot.complete);
    QCOMPARE(plot.damagedCount, damaged);
    QCOMPARE(plot.strokes.size(), std::size_t(strokes));
    QCOMPARE(pointsText(plot.strokes.back().points), QStringLiteral("7,7 8,8"));
    if (strokes == 2)
        QVERIFY(plot.strokes.front().points.size() > 100000);
}

void PlotFilesTest::longPolylineWithoutEnd()
{
    const QByteArray step = QByteArray(1, char(191 + 2)) + char(191 + 2);
    const Plot plot = PlotReader::readBytes("PU0,0;PE" + step.repeated(300000)).plot;
    QCOMPARE(plot.strokes.size(), std::size_t(1));
    QCOMPARE(plot.strokes.front().points.size(), 300001);
    QCOMPARE(plot.damagedCount, 1);
}

void PlotFilesTest::memory_data()
{
    QTest::addColumn<QByteArray>("unit");
    QTest::addColumn<QByteArray>("tail");

    QTest::newRow("short lines") << QByteArray("PU123,456;VS10;\r\n") << QByteArray();
    QTest::newRow("empty lines") << QByteArray("\n") << QByteArray();
    QTest::newRow("one line") << QByteArray("PU123,456;VS10;") << QByteArray();
    QTest::newRow("one instruction") << QByteArray("9,9,") << QByteArray("8,8;PU;");
    QTest::newRow("one number") << QByteArray("7") << QByteArray(";PU;");
    QTest::newRow("one label") << QByteArray("LBxxxx") << QByteArray("\x03");
    QTest::newRow("one encoded polyline") << QByteArray("PE") + char(191) + char(191) << QByteArray(";");
    QTest::newRow("nothing that is HP-GL") << QByteArray("0123456789") << QByteArray();
}

void PlotFilesTest::memory()
{
    QFETCH(QByteArray, unit);
    QFETCH(QByteArray, tail);
    initResources();
    const Sandbox sandbox;
    const QString path = sandbox.path(asciiName);
    QVERIFY(writeLarge(path, QByteArray(Line) + "PU9,9;PD", unit, LargeSize, tail));
    const Growth growth = growthOf([&path] { return PlotReader::readFile(path); });
    QCOMPARE(growth.result, int(PlotReading::Ok));
    QVERIFY(growth.kilobytes >= 0);
#ifndef __SANITIZE_ADDRESS__
    QVERIFY(growth.kilobytes < 8 * Kilobyte);
#endif
}

// Who holds the file is seen to.
void PlotFilesTest::memoryIsMeasured()
{
    initResources();
    const Sandbox sandbox;
    const QString path = sandbox.path(asciiName);
    QVERIFY(writeLarge(path, Line, "PU123,456;VS10;\r\n", LargeSize));
    const Growth growth = growthOf([&path] { return PlotReader::readBytes(contentsOf(path)); });
    QVERIFY(growth.kilobytes >= LargeSize / Kilobyte);
}

void PlotFilesTest::memoryFollowsWhatIsKept()
{
    initResources();
    const Sandbox sandbox;
    const QString path = sandbox.path(asciiName);
    const QByteArray stroke = "PU0,0;PD9,9,5,5,0,0;" + QByteArray("VS10;").repeated(16) + "\r\n";
    QVERIFY(writeLarge(path, "IN;", stroke, LargeSize));
    const Growth growth = growthOf([&path] { return PlotReader::readFile(path); });
    QVERIFY(growth.strokes >= LargeSize / 105);
#ifndef __SANITIZE_ADDRESS__
    QVERIFY(growth.kilobytes >= growth.kept);
    QVERIFY(growth.kilobytes < 4 * growth.kept);
#endif
}

KX_TEST_MAIN(PlotFilesTest)

#include "tst_plot_files.moc"
