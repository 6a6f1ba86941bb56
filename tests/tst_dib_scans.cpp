// SPDX-License-Identifier: MIT
// CDibData's reads, scans and fills at every depth.
#include "KxDibModel.h"
#include "KxTestCase.h"

#include <QtGui/QImage>

#include <climits>

using Promise = void (*)();
using Scan = int (CDibData::*)(int, int, int, DWORD) const;
Q_DECLARE_METATYPE(Promise)
Q_DECLARE_METATYPE(Scan)

namespace {

constexpr DWORD invalid = 0xFFFFFFFF;

/// One row of a bitmap of any depth, in memory of exactly its size.
class RawRow
{
public:
    RawRow(int depth, int width, const QByteArray &hex)
        : m_bytes(QByteArray::fromHex(hex))
        , m_memory(new unsigned char[std::size_t(m_bytes.size())])
        , m_dib(depth, width, m_memory.get())
    {
        std::copy(m_bytes.begin(), m_bytes.end(), reinterpret_cast<char *>(m_memory.get()));
    }

    KxForeignDib &dib() { return m_dib; }
    QByteArray hex() const
    {
        return QByteArray(reinterpret_cast<const char *>(m_memory.get()), m_bytes.size()).toHex();
    }

private:
    const QByteArray m_bytes;
    const std::unique_ptr<unsigned char[]> m_memory;
    KxForeignDib m_dib;
};

/// A row of 32-bit pixels in one character each: `a` is 0x112233, `b` is 0x112234.
struct LetterRow : KxMadeDib {
    explicit LetterRow(const char *letters, int height = 1, int y = 0)
        : KxMadeDib(int(std::strlen(letters)), height)
    {
        for (int x = 0; letters[x]; ++x)
            SetPixelValue(x, y, letters[x] == 'a' ? A : B);
    }

    static constexpr DWORD A = 0x112233;
    static constexpr DWORD B = 0x112234;
};

void promises(const char *name, Promise promise)
{
    QTest::newRow(name) << promise;
}

} // namespace

class DibScansTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void readsOutside_data();
    void readsOutside();
    void rawReads_data();
    void rawReads();
    void scans_data();
    void scans();
    void scansOfLetters_data();
    void scansOfLetters();
    void badScans_data();
    void badScans();
    void oddScans_data();
    void oddScans() { check(); }
    void lines_data();
    void lines();
    void oddLines_data();
    void oddLines() { check(); }
    void linesInRowsOfNothing_data();
    void linesInRowsOfNothing();

private:
    static void check();
};

void DibScansTest::check()
{
    QFETCH(Promise, promise);
    promise();
}

void DibScansTest::readsOutside_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::addColumn<bool>("isInside");
    for (const int height : {3, -3}) {
        QTest::addRow("height %d: first", height) << height << 0 << 0 << true;
        QTest::addRow("height %d: last", height) << height << 3 << 2 << true;
        QTest::addRow("height %d: left", height) << height << -1 << 0 << false;
        QTest::addRow("height %d: above", height) << height << 0 << -1 << false;
        QTest::addRow("height %d: right", height) << height << 4 << 0 << false;
        QTest::addRow("height %d: below", height) << height << 0 << 3 << false;
        QTest::addRow("height %d: far right", height) << height << INT_MAX << 0 << false;
        QTest::addRow("height %d: far left", height) << height << INT_MIN << 0 << false;
        QTest::addRow("height %d: far below", height) << height << 0 << INT_MAX << false;
        QTest::addRow("height %d: far above", height) << height << 0 << INT_MIN << false;
    }
}

/// Of a bitmap with that many rows, the sign of the height aside.
void DibScansTest::readsOutside()
{
    QFETCH(const int, height);
    QFETCH(const int, x);
    QFETCH(const int, y);
    QFETCH(const bool, isInside);
    unsigned char rows[3][4] = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}};
    KxForeignDib dib(8, 4, height);
    for (int row = 0; row < 3; ++row)
        dib.setRow(row, rows[row]);
    QCOMPARE(dib.GetPixelValue(x, y), isInside ? DWORD(1 + x + 4 * y) : invalid);
    QCOMPARE(dib.GetPixel(x, y), isInside ? DWORD(1 + x + 4 * y) << 16 : invalid);
}

void DibScansTest::rawReads_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<int>("width");
    QTest::addColumn<QList<uint>>("expected");
    const auto add = [](const char *name, int depth, const char *row, const QList<uint> &expected) {
        QTest::newRow(name) << depth << QByteArray(row) << expected.size() << expected;
    };
    add("1 bit: the leftmost pixel is the highest bit", 1, "a53c",
        {1, 0, 1, 0, 0, 1, 0, 1, 0, 0, 1, 1, 1, 1, 0, 0});
    add("1 bit: a row of 11", 1, "0040", {0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0});
    add("2 bits: from the highest two down", 2, "1be4", {0, 1, 2, 3, 3, 2, 1, 0});
    add("2 bits: a row of 5", 2, "ff7f", {3, 3, 3, 3, 1});
    add("4 bits: the higher half first", 4, "12fe", {1, 2, 15, 14});
    add("4 bits: a row of 3", 4, "0a5f", {0, 10, 5});
    add("8 bits: the byte", 8, "00ff80", {0, 255, 128});
    add("16 bits: the low byte first", 16, "3412ffff00ff", {0x1234, 0xFFFF, 0xFF00});
    add("24 bits: three bytes, the low one first", 24, "332211665544ffffff", {0x112233, 0x445566, 0xFFFFFF});
    add("24 bits: one pixel in three bytes of memory", 24, "010203", {0x030201});
    add("32 bits: the top byte is masked", 32, "33221100332211ffffffffff", {0x112233, 0x112233, 0xFFFFFF});
    for (const int depth : {0, 3, 5, 7, 9, 12, 15, 17, 31, 33, 48, 64, 256, 65535}) {
        QTest::addRow("%d bits: no depth that is read", depth)
            << depth << QByteArray(32, '0') << 1 << QList<uint>{invalid};
    }
}

void DibScansTest::rawReads()
{
    QFETCH(const int, depth);
    QFETCH(const QByteArray, row);
    QFETCH(const int, width);
    QFETCH(const QList<uint>, expected);
    RawRow raw(depth, width, row);
    for (int x = 0; x < width; ++x)
        QCOMPARE(raw.dib().GetPixelValue(x, 0), expected.at(x));
    QCOMPARE(raw.dib().GetPixelValue(width, 0), invalid);
    QCOMPARE(raw.dib().GetPixelValue(-1, 0), invalid);
}

void DibScansTest::scans_data()
{
    QTest::addColumn<Scan>("scan");
    QTest::addColumn<int>("depth");
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("limit");
    QTest::addColumn<DWORD>("v");
    QTest::addColumn<int>("expected");
    const auto add = [](const char *name, Scan scan, int depth, const char *row, int x, int limit, DWORD v,
                        int to) {
        QTest::addRow("%d bits: %s", depth, name)
            << scan << depth << QByteArray(row) << x << limit << v << to;
    };
    constexpr Scan searchLeft = &CDibData::SearchLeft;
    constexpr Scan searchRight = &CDibData::SearchRight;
    constexpr Scan scanLeft = &CDibData::ScanLeft;
    constexpr Scan scanRight = &CDibData::ScanRight;

    // 0000 0111 1000 0001
    add("SearchRight finds the first 1", searchRight, 1, "0781", 0, 15, 1, 5);
    add("SearchRight finds the first 0 in the next byte", searchRight, 1, "0781", 5, 15, 0, 9);
    add("SearchLeft finds the last 1", searchLeft, 1, "0781", 14, 0, 1, 8);
    add("SearchLeft for 0 steps over a byte's end", searchLeft, 1, "0781", 8, 0, 0, 4);
    add("ScanRight stops at the first that is not 0", scanRight, 1, "0781", 9, 15, 0, 15);
    add("ScanLeft stops at the first that is not 1", scanLeft, 1, "0781", 8, 0, 1, 4);
    add("every v but 0 is 1: 2", searchRight, 1, "0781", 0, 15, 2, 5);
    add("every v but 0 is 1: 0x80000000", scanRight, 1, "0781", 5, 15, 0x80000000, 9);

    // 0 0 1 2 | 2 2 2 3
    add("SearchRight finds 2 in the same byte", searchRight, 2, "06ab", 0, 7, 2, 3);
    add("SearchRight finds 3 in the next byte", searchRight, 2, "06ab", 0, 7, 3, 7);
    add("SearchLeft finds 1", searchLeft, 2, "06ab", 7, 0, 1, 2);
    add("ScanRight stops where 2 ends", scanRight, 2, "06ab", 3, 7, 2, 7);
    add("ScanLeft stops where 2 began", scanLeft, 2, "06ab", 6, 0, 2, 2);
    // 4 spread over a byte is 0x54: its fields are 1, 1, 1 and 0.
    add("4 is 1 in the first three pixels of a byte", scanRight, 2, "5554", 0, 7, 4, 3);
    add("4 is 0 in the last pixel of a byte", searchRight, 2, "aaa8", 0, 7, 4, 7);

    // 0 1 | 1 f | f f | 2 f
    add("SearchRight finds f in the lower half", searchRight, 4, "011fff2f", 0, 7, 0xF, 3);
    add("SearchLeft finds 2 in the higher half", searchLeft, 4, "011fff2f", 7, 0, 2, 6);
    add("ScanRight stops where f ends", scanRight, 4, "011fff2f", 3, 7, 0xF, 6);
    add("ScanLeft stops where f began", scanLeft, 4, "011fff2f", 5, 0, 0xF, 2);
    // 0x12 | 0x120 is 0x32 in a byte.
    add("0x12 is 3 in the higher half of a byte", searchRight, 4, "000230", 0, 5, 0x12, 3);
    add("0x12 is 2 in the lower half of a byte", scanLeft, 4, "113232", 5, 0, 0x12, 1);

    add("SearchRight finds the byte", searchRight, 8, "0102030303", 0, 4, 3, 2);
    add("SearchLeft finds the byte", searchLeft, 8, "0102030303", 4, 0, 1, 0);
    add("ScanRight stops at another byte", scanRight, 8, "0101010201", 0, 4, 1, 3);
    add("ScanLeft stops at another byte", scanLeft, 8, "0201010101", 4, 0, 1, 0);
    add("only the low byte of v counts", searchRight, 8, "0102030303", 0, 4, 0xFFFFFF03, 2);

    add("SearchRight finds the word", searchRight, 16, "341212343412", 1, 2, 0x1234, 2);
    add("no word is found across two", searchRight, 16, "001234120034", 0, 2, 0x3412, 3);
    add("SearchLeft finds the word", searchLeft, 16, "341212343412", 1, 0, 0x1234, 0);
    add("ScanRight: a word differs by its high byte", scanRight, 16, "341234123413", 0, 2, 0x1234, 2);
    add("ScanLeft: a word differs by its low byte", scanLeft, 16, "351234123412", 2, 0, 0x1234, 0);
    add("only the low 16 bits of v count", searchRight, 16, "341212343412", 1, 2, 0xABCD1234, 2);

    add("SearchRight finds the three bytes", searchRight, 24, "332211443322332211", 1, 2, 0x112233, 2);
    add("the last pixel", searchLeft, 24, "332211443322332211", 2, 0, 0x112233, 2);
    add("no pixel is found across two", searchRight, 24, "003322110000", 0, 1, 0x112233, 2);
    add("ScanRight: a pixel differs by its third byte", scanRight, 24, "332211332212", 0, 1, 0x112233, 1);
    add("ScanLeft: a pixel differs by its first byte", scanLeft, 24, "342211332211", 1, 0, 0x112233, 0);
    add("a v with a top byte is no pixel's", searchRight, 24, "332211332211", 0, 1, 0x01112233, 2);
    add("every pixel differs from a v with a top byte", scanRight, 24, "332211332211", 0, 1, 0xFF112233, 0);

    add("SearchRight looks past the alpha", searchRight, 32, "00000000332211ff33221100", 0, 2, 0x112233, 1);
    add("SearchLeft looks past the alpha", searchLeft, 32, "332211803322ff0000000000", 2, 0, 0x112233, 0);
    add("ScanRight looks past the alpha", scanRight, 32, "33221100332211ff33221200", 0, 2, 0x112233, 2);
    add("ScanLeft looks past the alpha", scanLeft, 32, "3322110033221280332211ff", 2, 0, 0x112233, 1);
    add("a v with a top byte is no pixel's", searchRight, 32, "332211ff332211ff", 0, 1, 0xFF112233, 2);
    add("every pixel differs from a v with a top byte", scanLeft, 32, "332211ff332211ff", 1, 0, 0xFF112233,
        1);
    add("0x00FFFFFF is found", searchLeft, 32, "ffffffff00000000", 1, 0, 0x00FFFFFF, 0);
}

void DibScansTest::scans()
{
    QFETCH(const Scan, scan);
    QFETCH(const int, depth);
    QFETCH(const QByteArray, row);
    QFETCH(const int, x);
    QFETCH(const int, limit);
    QFETCH(const DWORD, v);
    QFETCH(const int, expected);
    RawRow raw(depth, 4 * row.size() / depth, row);
    QCOMPARE((raw.dib().*scan)(x, 0, limit, v), expected);
    QCOMPARE(raw.hex(), row);
}

void DibScansTest::scansOfLetters_data()
{
    QTest::addColumn<Scan>("scan");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("limit");
    QTest::addColumn<DWORD>("v");
    QTest::addColumn<int>("expected");
    constexpr Scan searchLeft = &CDibData::SearchLeft;
    constexpr Scan searchRight = &CDibData::SearchRight;
    constexpr Scan scanLeft = &CDibData::ScanLeft;
    constexpr Scan scanRight = &CDibData::ScanRight;
    constexpr DWORD A = LetterRow::A;
    constexpr DWORD B = LetterRow::B;
    QTest::newRow("ScanRight from 2 over a: 10") << scanRight << 2 << 15 << A << 10;
    QTest::newRow("SearchRight from 2 for b: 10") << searchRight << 2 << 15 << B << 10;
    QTest::newRow("SearchRight from 2 to 8 for b: 9") << searchRight << 2 << 8 << B << 9;
    QTest::newRow("ScanLeft from 5 over a: -1") << scanLeft << 5 << 0 << A << -1;
    QTest::newRow("SearchLeft from 15 for a: 9") << searchLeft << 15 << 0 << A << 9;
    QTest::newRow("ScanLeft from 15 over b: 9") << scanLeft << 15 << 0 << B << 9;
    QTest::newRow("SearchLeft from 15 to 10 for a: 9, the limit less 1") << searchLeft << 15 << 10 << A << 9;
    QTest::newRow("SearchLeft from 15 to 12 for a: 11") << searchLeft << 15 << 12 << A << 11;
    QTest::newRow("ScanRight from 10 over b: 16") << scanRight << 10 << 15 << B << 16;
    QTest::newRow("SearchLeft looks at the start") << searchLeft << 3 << 0 << A << 3;
    QTest::newRow("SearchRight looks at the start") << searchRight << 3 << 15 << A << 3;
    QTest::newRow("ScanLeft looks at the start") << scanLeft << 3 << 0 << B << 3;
    QTest::newRow("ScanRight looks at the start") << scanRight << 3 << 15 << B << 3;
    QTest::newRow("SearchLeft looks at the limit") << searchLeft << 15 << 9 << A << 9;
    QTest::newRow("SearchRight looks at the limit") << searchRight << 2 << 10 << B << 10;
    QTest::newRow("ScanLeft looks at the limit") << scanLeft << 15 << 9 << B << 9;
    QTest::newRow("ScanRight looks at the limit") << scanRight << 2 << 10 << A << 10;
    QTest::newRow("a walk of one pixel that is v, SearchLeft") << searchLeft << 4 << 4 << A << 4;
    QTest::newRow("a walk of one pixel that is not v, SearchLeft") << searchLeft << 4 << 4 << B << 3;
    QTest::newRow("a walk of one pixel that is v, ScanRight") << scanRight << 4 << 4 << A << 5;
    QTest::newRow("a walk of one pixel that is not v, ScanRight") << scanRight << 4 << 4 << B << 4;
    QTest::newRow("SearchLeft to a limit on the right: limit - 1") << searchLeft << 3 << 8 << A << 7;
    QTest::newRow("SearchRight to a limit on the left: limit + 1") << searchRight << 8 << 3 << A << 4;
    QTest::newRow("ScanLeft to a limit on the right: limit - 1") << scanLeft << 3 << 8 << B << 7;
    QTest::newRow("ScanRight to a limit on the left: limit + 1") << scanRight << 8 << 3 << B << 4;
    QTest::newRow("a v that no pixel is: SearchLeft to -1") << searchLeft << 15 << 0 << 0x332211u << -1;
    QTest::newRow("a v that no pixel is: SearchRight to 16") << searchRight << 0 << 15 << 0x332211u << 16;
}

/// On ten pixels a and six b, in the middle one of three rows.
void DibScansTest::scansOfLetters()
{
    QFETCH(const Scan, scan);
    QFETCH(const int, x);
    QFETCH(const int, limit);
    QFETCH(const DWORD, v);
    QFETCH(const int, expected);
    const LetterRow dib("aaaaaaaaaabbbbbb", 3, 1);
    QCOMPARE((dib.*scan)(x, 1, limit, v), expected);
}

void DibScansTest::badScans_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("limit");
    QTest::addColumn<DWORD>("v");
    QTest::newRow("a limit of -1") << 2 << 1 << -1 << 7u;
    QTest::newRow("a limit far left") << 2 << 1 << INT_MIN + 1 << 7u;
    QTest::newRow("a limit of the width") << 2 << 1 << 4 << 7u;
    QTest::newRow("a limit far right") << 2 << 1 << INT_MAX - 1 << 7u;
    QTest::newRow("a start of -1") << -1 << 1 << 3 << 7u;
    QTest::newRow("a start at the width") << 4 << 1 << 3 << 7u;
    QTest::newRow("a start at the width, a limit of 0") << 4 << 1 << 0 << 7u;
    QTest::newRow("a start far away") << INT_MAX << 1 << 0 << 7u;
    QTest::newRow("a row of -1") << 2 << -1 << 2 << 7u;
    QTest::newRow("a row at the height") << 2 << 3 << 2 << 7u;
    QTest::newRow("a row far away") << 2 << INT_MIN << 2 << 7u;
    QTest::newRow("no value") << 2 << 1 << 2 << invalid;
    QTest::newRow("no value, a limit of 0") << 2 << 1 << 0 << invalid;
    QTest::newRow("no value, a limit of the width less 1") << 2 << 1 << 3 << invalid;
}

/// Every scan answers what it does when it never stops, at every depth, a depth that is not walked too.
void DibScansTest::badScans()
{
    QFETCH(const int, x);
    QFETCH(const int, y);
    QFETCH(const int, limit);
    QFETCH(const DWORD, v);
    for (const int depth : {0, 1, 2, 3, 4, 8, 16, 24, 32, 33, 64}) {
        // Bytes of 7 would stop a search at some depths, a scan at the others.
        std::vector<unsigned char> bytes(3 * 32, 7);
        KxForeignDib dib(depth, 4, 3);
        for (int row = 0; row < 3; ++row)
            dib.setRow(row, bytes.data() + 32 * row);
        QCOMPARE(dib.SearchLeft(x, y, limit, v), limit - 1);
        QCOMPARE(dib.SearchRight(x, y, limit, v), limit + 1);
        QCOMPARE(dib.ScanLeft(x, y, limit, v), limit - 1);
        QCOMPARE(dib.ScanRight(x, y, limit, v), limit + 1);
    }
}

void DibScansTest::oddScans_data()
{
    QTest::addColumn<Promise>("promise");
    promises("a depth that is not walked answers x", [] {
        for (const int depth : {0, 3, 5, 6, 7, 9, 12, 15, 17, 23, 25, 31, 33, 48, 64, 256, 65535}) {
            RawRow raw(depth, 4, "00000000");
            for (int x = 0; x < 4; ++x) {
                QCOMPARE(raw.dib().SearchLeft(x, 0, 0, 0), x);
                QCOMPARE(raw.dib().SearchRight(x, 0, 3, 1), x);
                QCOMPARE(raw.dib().ScanLeft(x, 0, 0, 0), x);
                QCOMPARE(raw.dib().ScanRight(x, 0, 3, 1), x);
            }
        }
    });
    promises("the bits behind the last pixel of a row are never looked at", [] {
        RawRow bits(1, 3, "1f");
        QCOMPARE(bits.dib().SearchRight(0, 0, 2, 1), 3);
        RawRow pairs(2, 3, "03");
        QCOMPARE(pairs.dib().SearchRight(0, 0, 2, 3), 3);
        RawRow nibbles(4, 1, "0f");
        QCOMPARE(nibbles.dib().ScanRight(0, 0, 0, 0), 1);
    });
    promises("rows of a bitmap with a negative height are walked, too", [] {
        unsigned char rows[2][3] = {{1, 1, 2}, {3, 4, 4}};
        KxForeignDib dib(8, 3, -2);
        dib.setRow(0, rows[0]);
        dib.setRow(1, rows[1]);
        QCOMPARE(dib.ScanRight(0, 0, 2, 1), 2);
        QCOMPARE(dib.SearchLeft(2, 1, 0, 3), 0);
        QCOMPARE(dib.SearchLeft(2, 2, 0, 3), -1);
    });
    promises("the outermost limits", [] {
        const LetterRow dib("aabb");
        QCOMPARE(dib.SearchLeft(0, 0, INT_MAX, LetterRow::A), INT_MAX - 1);
        QCOMPARE(dib.ScanLeft(0, 0, INT_MAX, LetterRow::B), INT_MAX - 1);
        QCOMPARE(dib.SearchRight(0, 0, INT_MIN, LetterRow::A), INT_MIN + 1);
        QCOMPARE(dib.ScanRight(0, 0, INT_MIN, LetterRow::B), INT_MIN + 1);
        // One further is no int: it comes round.
        QCOMPARE(dib.SearchLeft(0, 0, INT_MIN, LetterRow::A), INT_MAX);
        QCOMPARE(dib.ScanLeft(0, 0, INT_MIN, LetterRow::B), INT_MAX);
        QCOMPARE(dib.SearchRight(0, 0, INT_MAX, LetterRow::A), INT_MIN);
        QCOMPARE(dib.ScanRight(0, 0, INT_MAX, LetterRow::B), INT_MIN);
    });
}

void DibScansTest::lines_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("width");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<int>("x1");
    QTest::addColumn<int>("x2");
    QTest::addColumn<DWORD>("v");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<QByteArray>("after");
    const auto add = [](const char *name, int depth, int width, const char *before, int x1, int x2, DWORD v,
                        bool answer, const char *after) {
        QTest::addRow("%d bits: %s", depth, name)
            << depth << width << QByteArray(before) << x1 << x2 << v << answer << QByteArray(after);
    };
    const char *const none = "00000000000000000000"; // ten pixels of 8 bits
    add("3 to 7", 8, 10, none, 3, 7, 0xAB, true, "000000ababababab0000");
    add("7 to 3 is 3 to 7", 8, 10, none, 7, 3, 0xAB, true, "000000ababababab0000");
    add("one pixel", 8, 10, none, 4, 4, 0xAB, true, "00000000ab0000000000");
    add("-5 to 2 fills 0 to 2", 8, 10, none, -5, 2, 0xAB, true, "ababab00000000000000");
    add("2 to -5 fills 0 to 2", 8, 10, none, 2, -5, 0xAB, true, "ababab00000000000000");
    add("2 to 99 fills 2 to 9", 8, 10, none, 2, 99, 0xAB, true, "0000abababababababab");
    add("99 to 2 fills 2 to 9", 8, 10, none, 99, 2, 0xAB, true, "0000abababababababab");
    add("-1 to 10 fills all", 8, 10, none, -1, 10, 0xAB, true, "abababababababababab");
    add("the smallest to the largest number fills all", 8, 10, none, INT_MIN, INT_MAX, 0xAB, true,
        "abababababababababab");
    add("-5 to 0 fills the first", 8, 10, none, -5, 0, 0xAB, true, "ab000000000000000000");
    add("9 to 10 fills the last", 8, 10, none, 9, 10, 0xAB, true, "000000000000000000ab");
    add("-5 to -1 is left of the row", 8, 10, none, -5, -1, 0xAB, false, none);
    add("-1 to -1 is left of the row", 8, 10, none, -1, -1, 0xAB, false, none);
    add("10 to 10 is right of the row", 8, 10, none, 10, 10, 0xAB, false, none);
    add("99 to 10 is right of the row", 8, 10, none, 99, 10, 0xAB, false, none);
    add("no value", 8, 10, none, 3, 7, invalid, false, none);
    add("the low byte of the value", 8, 4, "00000000", 1, 2, 0xFFFFFFAB, true, "00abab00");

    add("the low byte comes first", 16, 4, "0000000000000000", 1, 2, 0x1234, true, "0000341234120000");
    add("the low 16 bits of the value", 16, 2, "00000000", 1, 9, 0xABCD1234, true, "00003412");
    add("no value", 16, 2, "00000000", 0, 1, invalid, false, "00000000");
    add("outside", 16, 2, "00000000", 2, 3, 1, false, "00000000");

    add("nothing is written, and that is fine", 24, 3, "010203040506070809", 0, 2, 0x112233, true,
        "010203040506070809");
    add("nothing is written for ends outside either", 24, 1, "010203", -9, 9, 0, true, "010203");
    add("left of the row", 24, 1, "010203", -9, -1, 0, false, "010203");
    add("right of the row", 24, 1, "010203", 1, 9, 0, false, "010203");
    add("no value", 24, 1, "010203", 0, 0, invalid, false, "010203");

    add("the whole value, the top byte as it is", 32, 3, "000000000000000000000000", 1, 1, 0x44112233, true,
        "000000003322114400000000");
    add("a top byte of 0 is written, too", 32, 2, "ffffffffffffffff", 0, 0, 0x00112233, true,
        "33221100ffffffff");
    add("0xFFFFFFFE is a value", 32, 1, "00000000", 0, 0, 0xFFFFFFFE, true, "feffffff");
    add("no value", 32, 1, "00000000", 0, 0, invalid, false, "00000000");

    add("within one byte", 1, 24, "000000", 2, 4, 1, true, "380000");
    add("within one byte, 0", 1, 24, "ffffff", 10, 13, 0, true, "ffc3ff");
    add("a whole byte", 1, 24, "000000", 8, 15, 1, true, "00ff00");
    add("from within a byte to another's end", 1, 24, "000000", 5, 15, 1, true, "07ff00");
    add("from a byte's start into another", 1, 24, "000000", 8, 17, 1, true, "00ffc0");
    add("from within one byte over one into another", 1, 24, "000000", 7, 16, 1, true, "01ff80");
    add("into the next byte", 1, 24, "000000", 7, 8, 1, true, "018000");
    add("every value but 0 is 1", 1, 8, "00", 1, 6, 2, true, "7e");
    add("the bits behind the last pixel stay", 1, 11, "0015", 0, 99, 1, true, "fff5");
    add("outside", 1, 11, "0015", 11, 15, 1, false, "0015");
    add("no value", 1, 8, "00", 0, 7, invalid, false, "00");

    add("within one byte", 2, 12, "000000", 1, 2, 3, true, "3c0000");
    add("one pixel, its bits alone", 2, 12, "ffffff", 6, 6, 1, true, "fff7ff");
    add("from within one byte over one into another", 2, 12, "000000", 3, 8, 2, true, "02aa80");
    add("the bits behind the last pixel stay", 2, 3, "01", 0, 2, 3, true, "fd");
    add("4 is 1, 1, 1, 0 in each byte", 2, 8, "ffff", 0, 7, 4, true, "5454");
    add("no value", 2, 4, "00", 0, 3, invalid, false, "00");

    add("within one byte", 4, 6, "000000", 2, 3, 0xA, true, "00aa00");
    add("the lower half", 4, 6, "ffffff", 1, 1, 2, true, "f2ffff");
    add("the higher half", 4, 6, "ffffff", 4, 4, 2, true, "ffff2f");
    add("from a lower half over a byte to a higher one", 4, 6, "000000", 1, 4, 0xC, true, "0cccc0");
    add("the half behind the last pixel stays", 4, 3, "0007", 0, 2, 1, true, "1117");
    add("0x12 is 3 and 2", 4, 4, "0000", 0, 3, 0x12, true, "3232");
    add("no value", 4, 2, "00", 0, 1, invalid, false, "00");
    for (const int depth : {0, 3, 5, 7, 12, 15, 20, 33, 48, 64, 65535})
        add("no depth that is filled", depth, 2, "0102030405060708090a0b0c0d0e0f10", 0, 1, 0, false,
            "0102030405060708090a0b0c0d0e0f10");
}

void DibScansTest::lines()
{
    QFETCH(const int, depth);
    QFETCH(const int, width);
    QFETCH(const QByteArray, before);
    QFETCH(const int, x1);
    QFETCH(const int, x2);
    QFETCH(const DWORD, v);
    QFETCH(const bool, answer);
    QFETCH(const QByteArray, after);
    RawRow raw(depth, width, before);
    QCOMPARE(raw.dib().DrawLineH(x1, x2, 0, v), answer);
    QCOMPARE(raw.hex(), after);
}

void DibScansTest::oddLines_data()
{
    QTest::addColumn<Promise>("promise");
    promises("DrawLineH(7, 3, 1, v) fills 3 to 7 of row 1 alone, as the image shows", [] {
        KxMadeDib dib(10, 3);
        QCOMPARE(dib.DrawLineH(7, 3, 1, 0x44112233), true);
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < 10; ++x) {
                const bool isFilled = y == 1 && x >= 3 && x <= 7;
                QCOMPARE(dib.memory(x, y), isFilled ? 0x44112233u : 0xFF000000u);
                QCOMPARE(dib.GetPixelValue(x, y), isFilled ? 0x112233u : 0u);
            }
        }
    });
    promises("an opaque line is what the image shows", [] {
        KxMadeDib dib(3, 1);
        dib.DrawLineH(0, 1, 0, 0xFF000000 | dib.RGBtoValue(RGB(1, 2, 3)));
        QCOMPARE(dib.m_pImage->pixel(1, 0), 0xFF010203u);
        QCOMPARE(dib.m_pImage->pixel(2, 0), 0xFF000000u);
        QCOMPARE(dib.GetPixel(1, 0), RGB(1, 2, 3));
    });
    promises("16 bits: a long line is the same word all along, wherever it begins", [] {
        for (int place = 0; place < 16; ++place) {
            const int offset = place % 4;
            const int start = place / 4;
            alignas(16) unsigned char row[2 * 1000 + 3] = {};
            KxForeignDib dib(16, 1000, row + offset);
            QCOMPARE(dib.DrawLineH(start, 999, 0, 0x1234), true);
            for (int x = 0; x < 1000; ++x)
                QCOMPARE(dib.GetPixelValue(x, 0), x < start ? 0u : 0x1234u);
        }
    });
    promises("32 bits: a long line is the same word all along, wherever the row lies", [] {
        for (const int offset : {0, 1, 2, 3}) {
            alignas(16) unsigned char row[4 * 1000 + 3] = {};
            KxForeignDib dib(32, 1000, row + offset);
            QCOMPARE(dib.DrawLineH(1, 999, 0, 0x123456), true);
            for (int x = 0; x < 1000; ++x)
                QCOMPARE(dib.GetPixelValue(x, 0), x < 1 ? 0u : 0x123456u);
        }
    });
}

void DibScansTest::linesInRowsOfNothing_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QVector<bool>>("answers");
    QTest::newRow("0 pixels wide: FALSE left of 0 and from 0 on, TRUE across it")
        << 0 << QVector<bool>{true, true, false, false, false, false};
    QTest::newRow("-1 pixels wide: FALSE for two negative ends and from -1 on")
        << -1 << QVector<bool>{true, false, false, false, false, false};
    QTest::newRow("-40 pixels wide: FALSE from -40 on") << -40 << QVector<bool>(6, false);
    QTest::newRow("the most negative width: FALSE") << INT_MIN << QVector<bool>(6, false);
}

/// Nothing is written around the place where the row would be, in either order of the ends.
void DibScansTest::linesInRowsOfNothing()
{
    QFETCH(const int, width);
    QFETCH(const QVector<bool>, answers);
    const QPair<int, int> lines[] = {{-20, 3}, {-1, 3}, {0, 3}, {1, 3}, {0, 0}, {-20, -1}};
    for (const int depth : {1, 2, 4, 8, 16, 24, 32}) {
        unsigned char around[256];
        std::fill(std::begin(around), std::end(around), static_cast<unsigned char>(0x5A));
        KxForeignDib dib(depth, width, around + 128);
        for (int i = 0; i < answers.size(); ++i) {
            QCOMPARE(dib.DrawLineH(lines[i].first, lines[i].second, 0, 1), answers.at(i));
            QCOMPARE(dib.DrawLineH(lines[i].second, lines[i].first, 0, 1), answers.at(i));
        }
        for (const unsigned char byte : around)
            QCOMPARE(int(byte), 0x5A);
    }
}

KX_TEST_MAIN(DibScansTest)
#include "tst_dib_scans.moc"
