// SPDX-License-Identifier: MIT
#include "KxDibModel.h"
#include "KxTestCase.h"

#include <functional>

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int widthStep = 3; // The offsets begin at different widths: together they see all.
constexpr int placeStep = 5;
constexpr int floodCount = 20;
#else
constexpr int widthStep = 1;
constexpr int placeStep = 1;
constexpr int floodCount = 300;
#endif

constexpr int depths[] = {1, 2, 4, 8, 16, 24, 32};
constexpr int largestWidth = 70;
constexpr int offsetCount = 16;

/// One of the four scans.
struct Scan
{
    const char *name;
    int (CDibData::*call)(int, int, int, DWORD) const;
    int step;
    bool stopsAtEqual;
};

constexpr Scan scans[] = {
    {"SearchLeft", &CDibData::SearchLeft, -1, true},
    {"SearchRight", &CDibData::SearchRight, 1, true},
    {"ScanLeft", &CDibData::ScanLeft, -1, false},
    {"ScanRight", &CDibData::ScanRight, 1, false},
};

/// A mistake in words; empty for none.
using Mistake = QByteArray;

Mistake scanMistake(const Scan &scan, int width, int x, int limit, DWORD v, int got, int expected)
{
    return QByteArray(scan.name) + " of " + QByteArray::number(width) + " pixels from "
           + QByteArray::number(x) + " to " + QByteArray::number(limit) + " for 0x"
           + QByteArray::number(v, 16) + " gave " + QByteArray::number(got) + ", not "
           + QByteArray::number(expected);
}

/// The first byte in which a row is not as it has to be.
Mistake rowMistake(int width, int x1, int x2, DWORD v, const unsigned char *got,
                   const KxDibRowModel &expected)
{
    const auto place = std::mismatch(expected.bytes.begin(), expected.bytes.end(), got);
    const QByteArray found = place.first == expected.bytes.end()
                                 ? QByteArray("wrote outside of the row, or answered wrongly")
                                 : "left 0x" + QByteArray::number(*place.second, 16) + ", not 0x"
                                       + QByteArray::number(*place.first, 16) + ", in byte "
                                       + QByteArray::number(int(place.first - expected.bytes.begin()));
    return "DrawLineH on " + QByteArray::number(width) + " pixels from " + QByteArray::number(x1) + " to "
           + QByteArray::number(x2) + " with 0x" + QByteArray::number(v, 16) + " " + found;
}

/// Every scan from every start to every limit, and from and to one pixel outside.
Mistake compareScans(const CDibData &dib, const KxDibRowModel &model, int width, DWORD v)
{
    const std::vector<char> equal = model.equality(v);
    for (const Scan &scan : scans) {
        for (int x = -1; x <= width; ++x) {
            for (int limit = -1; limit <= width; ++limit) {
                const int expected = KxDibRowModel::walk(equal, x, limit, scan.step, scan.stopsAtEqual);
                const int got = (dib.*scan.call)(x, 0, limit, v);
                if (got != expected)
                    return scanMistake(scan, width, x, limit, v, got, expected);
            }
        }
    }
    return {};
}

/// Every scan from every start to both ends and to a few other limits.
Mistake compareSomeScans(const CDibData &dib, const KxDibRowModel &model, int width, DWORD v, KxDibDice &dice)
{
    const std::vector<char> equal = model.equality(v);
    for (const Scan &scan : scans) {
        for (int x = 0; x < width; ++x) {
            for (const int limit : {0, width - 1, dice(width), dice(width)}) {
                const int expected = KxDibRowModel::walk(equal, x, limit, scan.step, scan.stopsAtEqual);
                const int got = (dib.*scan.call)(x, 0, limit, v);
                if (got != expected)
                    return scanMistake(scan, width, x, limit, v, got, expected);
            }
        }
    }
    return {};
}

/// Fills from `x1` to every end up to three pixels behind the row; the row is put back after each.
Mistake compareFills(CDibData &dib, const KxDibRowModel &before, int depth, int width, int x1,
                     unsigned char *row, const std::vector<DWORD> &values,
                     const std::function<bool()> &isWhole)
{
    const DWORD v = values[static_cast<std::size_t>(x1 + 4) % values.size()];
    KxDibRowModel expected = before;
    for (int x2 = x1; x2 <= width + 3; ++x2) {
        if (x2 >= 0 && x2 < width && depth != 24)
            expected.draw(x2, v);
        const bool isOutside = x2 < 0 || x1 >= width;
        const bool isReversed = (x1 + x2) % 2 != 0;
        const bool answer = isReversed ? dib.DrawLineH(x2, x1, 0, v) : dib.DrawLineH(x1, x2, 0, v);
        if (answer == isOutside || !isWhole() || !expected.isIn(row))
            return rowMistake(width, x1, x2, v, row, expected);
        before.copyTo(row);
    }
    return {};
}

/// A value that no pixel of the bitmap has, when the depth has more than three.
DWORD strange(const std::vector<DWORD> &values, int depth, KxDibDice &dice)
{
    for (int attempt = 0; attempt < 100; ++attempt) {
        const DWORD v = dice.word() & (depth >= 24 ? 0x00FFFFFF : (1u << depth) - 1);
        if (std::find(values.begin(), values.end(), v) == values.end())
            return v;
    }
    return values.front();
}

void addDepths()
{
    QTest::addColumn<int>("depth");
    for (const int depth : depths)
        QTest::addRow("%d bits", depth) << depth;
}

void addDepthsAndOffsets()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("offset");
    for (const int depth : depths) {
        for (int offset = 0; offset < offsetCount; ++offset)
            QTest::addRow("%d bits, rows %d bytes off", depth, offset) << depth << offset;
    }
}

void addDepthsAndWidths()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("width");
    for (const int depth : depths) {
        for (const int width : {300, 4000})
            QTest::addRow("%d bits, %d pixels", depth, width) << depth << width;
    }
}

} // namespace

/// Reads, scans and fills of CDibData beside a bit-by-bit telling of them, on random rows; the same ones in
/// every run.
class DibModelsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void reads_data() { addDepthsAndOffsets(); }
    void reads();
    void scansEverywhere_data() { addDepthsAndOffsets(); }
    void scansEverywhere();
    void scansBetweenFences_data() { addDepths(); }
    void scansBetweenFences();
    void scansForTooLargeValues_data() { addDepths(); }
    void scansForTooLargeValues();
    void scansOfWideRows_data() { addDepthsAndWidths(); }
    void scansOfWideRows();
    void scansOfWideRandomRows_data() { addDepthsAndWidths(); }
    void scansOfWideRandomRows();
    void fillsEverywhere_data() { addDepthsAndOffsets(); }
    void fillsEverywhere();
    void fillsBetweenFences_data() { addDepths(); }
    void fillsBetweenFences();
    void fillsWithTooLargeValues_data() { addDepths(); }
    void fillsWithTooLargeValues();
    void fillsOfWideRows_data() { addDepthsAndWidths(); }
    void fillsOfWideRows();
    void everyRowIsItsOwn_data() { addDepths(); }
    void everyRowIsItsOwn();
    void floodFills_data();
    void floodFills();
};

void DibModelsTest::reads()
{
    QFETCH(const int, depth);
    QFETCH(const int, offset);
    KxDibDice dice(static_cast<unsigned int>(100 * depth + offset));
    for (int width = 1; width <= largestWidth; ++width) {
        KxDibRowModel model(depth, width);
        for (unsigned char &byte : model.bytes)
            byte = static_cast<unsigned char>(dice(256));
        KxHeapRow row(offset, model.size(), dice);
        model.copyTo(row.data());
        const KxForeignDib dib(depth, width, row.data());
        for (int x = -1; x <= width; ++x)
            QCOMPARE(dib.GetPixelValue(x, 0), model.value(x));
    }
}

/// All starts, all limits, one pixel outside too.
void DibModelsTest::scansEverywhere()
{
    QFETCH(const int, depth);
    QFETCH(const int, offset);
    KxDibDice dice(static_cast<unsigned int>(1000 + 100 * depth + offset));
    for (int width = 1 + offset % widthStep; width <= largestWidth; width += widthStep) {
        const std::vector<DWORD> values = kxLookalikes(depth, dice);
        KxDibRowModel model(depth, width);
        model.scatter(values, dice);
        KxHeapRow row(offset, model.size(), dice);
        model.copyTo(row.data());
        const KxForeignDib dib(depth, width, row.data());
        const DWORD other = width % 4 ? values[0] : strange(values, depth, dice);
        for (const DWORD v : {values[std::size_t(dice(3))], other}) {
            const Mistake mistake = compareScans(dib, model, width, v);
            QVERIFY2(mistake.isEmpty(), mistake.constData());
        }
        QVERIFY(model.isIn(row.data()));
        QVERIFY(row.isWhole());
    }
}

/// A row that begins where memory begins, or ends where it ends.
void DibModelsTest::scansBetweenFences()
{
    QFETCH(const int, depth);
    KxDibDice dice(static_cast<unsigned int>(depth));
    KxFencedPages pages((largestWidth * depth + 7) / 8);
    for (int width = 1; width <= largestWidth; width += widthStep) {
        const std::vector<DWORD> values = kxLookalikes(depth, dice);
        KxDibRowModel model(depth, width);
        model.scatter(values, dice);
        for (unsigned char *const row : {pages.front(), pages.back(model.size())}) {
            model.copyTo(row);
            const KxForeignDib dib(depth, width, row);
            for (int x = 0; x < width; ++x)
                QCOMPARE(dib.GetPixelValue(x, 0), model.value(x));
            for (const DWORD v : {values[0], strange(values, depth, dice)}) {
                const Mistake mistake = compareScans(dib, model, width, v);
                QVERIFY2(mistake.isEmpty(), mistake.constData());
            }
        }
    }
}

/// A value with more bits than a pixel has.
void DibModelsTest::scansForTooLargeValues()
{
    QFETCH(const int, depth);
    KxDibDice dice(static_cast<unsigned int>(depth));
    const DWORD mask = depth >= 24 ? 0x00FFFFFF : (1u << depth) - 1;
    for (int round = 0; round < 200 / placeStep; ++round) {
        const int width = 1 + dice(40);
        const std::vector<DWORD> values = kxLookalikes(depth, dice);
        KxDibRowModel model(depth, width);
        model.scatter(values, dice);
        KxHeapRow row(dice(offsetCount), model.size(), dice);
        model.copyTo(row.data());
        const KxForeignDib dib(depth, width, row.data());
        for (int i = 0; i < 4; ++i) {
            const DWORD high = i < 2 ? mask + 1 : dice.word() & ~mask;
            const DWORD v = (values[std::size_t(dice(3))] & (i == 0 ? 0 : mask)) | high;
            if (v == 0xFFFFFFFF)
                continue;
            const Mistake mistake = compareScans(dib, model, width, v);
            QVERIFY2(mistake.isEmpty(), mistake.constData());
        }
    }
}

/// One pixel to stop at, at every place of the row, with one more in front of the start and behind the limit.
void DibModelsTest::scansOfWideRows()
{
    QFETCH(const int, depth);
    QFETCH(const int, width);
    KxDibDice dice(static_cast<unsigned int>(10 * depth + width));
    std::vector<DWORD> values;
    KxDibRowModel model(depth, width);
    for (int place = 0; place < width; place += placeStep) {
        if (place / placeStep % 16 == 0) {
            values = kxLookalikes(depth, dice);
            model.scatter({values[0]}, dice);
        }
        const int start = dice(place + 1);
        const int limit = place + dice(width - place);
        KxDibRowModel marked = model;
        for (const int x : {start - 1, place, limit + 1}) {
            if (x >= 0 && x < width)
                marked.draw(x, depth == 32 ? values[1] | (dice.word() & 0xFF000000) : values[1]);
        }
        KxHeapRow row(dice(offsetCount), marked.size(), dice);
        marked.copyTo(row.data());
        const KxForeignDib dib(depth, width, row.data());
        QCOMPARE(dib.SearchRight(start, 0, limit, values[1]), place);
        QCOMPARE(dib.ScanRight(start, 0, limit, values[0]), place);
        QCOMPARE(dib.SearchLeft(limit, 0, start, values[1]), place);
        QCOMPARE(dib.ScanLeft(limit, 0, start, values[0]), place);
        if (place > start) {
            QCOMPARE(dib.SearchRight(start, 0, place - 1, values[1]), place);
            QCOMPARE(dib.ScanRight(start, 0, place - 1, values[0]), place);
        }
        if (place < limit) {
            QCOMPARE(dib.SearchLeft(limit, 0, place + 1, values[1]), place);
            QCOMPARE(dib.ScanLeft(limit, 0, place + 1, values[0]), place);
        }
    }
}

void DibModelsTest::scansOfWideRandomRows()
{
    QFETCH(const int, depth);
    QFETCH(const int, width);
    KxDibDice dice(static_cast<unsigned int>(20 * depth + width));
    for (int round = 0; round < (width == 300 ? 20 : 2); round += width == 300 ? placeStep : 1) {
        const std::vector<DWORD> values = kxLookalikes(depth, dice);
        KxDibRowModel model(depth, width);
        model.scatter(values, dice);
        KxHeapRow row(dice(offsetCount), model.size(), dice);
        model.copyTo(row.data());
        const KxForeignDib dib(depth, width, row.data());
        for (const DWORD v : values) {
            const Mistake mistake = compareSomeScans(dib, model, width, v, dice);
            QVERIFY2(mistake.isEmpty(), mistake.constData());
        }
    }
}

/// From and to every pixel, and up to three pixels outside; the ends in either order.
void DibModelsTest::fillsEverywhere()
{
    QFETCH(const int, depth);
    QFETCH(const int, offset);
    KxDibDice dice(static_cast<unsigned int>(2000 + 100 * depth + offset));
    for (int width = 1 + offset % widthStep; width <= largestWidth; width += widthStep) {
        std::vector<DWORD> values = kxLookalikes(depth, dice);
        for (DWORD &v : values)
            v |= depth == 32 ? dice.word() & 0x7F000000 : 0;
        KxDibRowModel model(depth, width);
        model.scatter(values, dice);
        KxHeapRow row(offset, model.size(), dice);
        model.copyTo(row.data());
        KxForeignDib dib(depth, width, row.data());
        for (int x1 = -3; x1 <= width + 2; ++x1) {
            const Mistake mistake = compareFills(dib, model, depth, width, x1, row.data(), values,
                                                 [&] { return row.isWhole(); });
            QVERIFY2(mistake.isEmpty(), mistake.constData());
        }
    }
}

void DibModelsTest::fillsBetweenFences()
{
    QFETCH(const int, depth);
    KxDibDice dice(static_cast<unsigned int>(depth));
    KxFencedPages pages((largestWidth * depth + 7) / 8);
    for (int width = 1; width <= largestWidth; width += widthStep) {
        const std::vector<DWORD> values = kxLookalikes(depth, dice);
        KxDibRowModel model(depth, width);
        model.scatter(values, dice);
        for (unsigned char *const row : {pages.front(), pages.back(model.size())}) {
            model.copyTo(row);
            KxForeignDib dib(depth, width, row);
            for (int x1 = -3; x1 <= width + 2; ++x1) {
                const Mistake mistake = compareFills(dib, model, depth, width, x1, row, values,
                                                     [] { return true; });
                QVERIFY2(mistake.isEmpty(), mistake.constData());
            }
        }
    }
}

void DibModelsTest::fillsWithTooLargeValues()
{
    QFETCH(const int, depth);
    KxDibDice dice(static_cast<unsigned int>(depth));
    for (int round = 0; round < 300 / placeStep; ++round) {
        const int width = 1 + dice(40);
        KxDibRowModel model(depth, width);
        model.scatter(kxLookalikes(depth, dice), dice);
        KxHeapRow row(dice(offsetCount), model.size(), dice);
        model.copyTo(row.data());
        KxForeignDib dib(depth, width, row.data());
        const std::vector<DWORD> values{dice.word() & 0x7FFFFFFF, 0x40u << dice(8), 1u << dice(32)};
        for (int x1 = -1; x1 <= width; ++x1) {
            const Mistake mistake = compareFills(dib, model, depth, width, x1, row.data(), values,
                                                 [&] { return row.isWhole(); });
            QVERIFY2(mistake.isEmpty(), mistake.constData());
        }
    }
}

void DibModelsTest::fillsOfWideRows()
{
    QFETCH(const int, depth);
    QFETCH(const int, width);
    KxDibDice dice(static_cast<unsigned int>(30 * depth + width));
    for (int round = 0; round < 400 / placeStep; ++round) {
        std::vector<DWORD> values = kxLookalikes(depth, dice);
        KxDibRowModel model(depth, width);
        model.scatter(values, dice);
        KxHeapRow row(dice(offsetCount), model.size(), dice);
        model.copyTo(row.data());
        KxForeignDib dib(depth, width, row.data());
        const int x1 = dice(width);
        const int x2 = round % 4 == 0 ? width - 1 : dice(width);
        QCOMPARE(dib.DrawLineH(x1, x2, 0, values[2]), true);
        if (depth != 24) {
            for (int x = std::min(x1, x2); x <= std::max(x1, x2); ++x)
                model.draw(x, values[2]);
        }
        QVERIFY2(model.isIn(row.data()) && row.isWhole(),
                 rowMistake(width, x1, x2, values[2], row.data(), model).constData());
    }
}

/// Reads, scans and fills of one row among others that are elsewhere, each in memory of its own.
void DibModelsTest::everyRowIsItsOwn()
{
    QFETCH(const int, depth);
    KxDibDice dice(static_cast<unsigned int>(depth));
    constexpr int width = 37;
    constexpr int height = 9;
    const std::vector<DWORD> values = kxLookalikes(depth, dice);
    std::vector<KxDibRowModel> models(height, KxDibRowModel(depth, width));
    std::vector<std::unique_ptr<KxHeapRow>> rows;
    KxForeignDib dib(depth, width, height);
    for (int y = 0; y < height; ++y) {
        KxDibRowModel &model = models[std::size_t(y)];
        model.scatter(values, dice);
        rows.push_back(std::make_unique<KxHeapRow>(y, model.size(), dice));
        model.copyTo(rows.back()->data());
        dib.setRow(y, rows.back()->data());
    }
    for (int round = 0; round < 2000 / placeStep; ++round) {
        const int y = dice(height);
        const int x1 = dice(width);
        const int x2 = dice(width);
        const DWORD v = values[std::size_t(dice(3))];
        KxDibRowModel &model = models[std::size_t(y)];
        for (const Scan &scan : scans) {
            QCOMPARE((dib.*scan.call)(x1, y, x2, v),
                     KxDibRowModel::walk(model.equality(v), x1, x2, scan.step, scan.stopsAtEqual));
            QCOMPARE((dib.*scan.call)(x1, height, x2, v), x2 + scan.step);
            QCOMPARE((dib.*scan.call)(x1, -1, x2, v), x2 + scan.step);
        }
        QCOMPARE(dib.GetPixelValue(x1, y), model.value(x1));
        QCOMPARE(dib.GetPixelValue(x1, height), 0xFFFFFFFFu);
        QCOMPARE(dib.GetPixelValue(x1, -1), 0xFFFFFFFFu);
        const int end = dice(width);
        QCOMPARE(dib.DrawLineH(x1, end, y, v), true);
        for (int x = std::min(x1, end); x <= std::max(x1, end) && depth != 24; ++x)
            model.draw(x, v);
        for (int other = 0; other < height; ++other) {
            const KxDibRowModel &expected = models[std::size_t(other)];
            QVERIFY(expected.isIn(rows[std::size_t(other)]->data()));
            QVERIFY(rows[std::size_t(other)]->isWhole());
        }
    }
}

void DibModelsTest::floodFills_data()
{
    QTest::addColumn<int>("depth");
    for (const int depth : depths) {
        if (depth != 24) // At 24 bits nothing is drawn.
            QTest::addRow("%d bits", depth) << depth;
    }
}

/// What all of it is for.
void DibModelsTest::floodFills()
{
    QFETCH(const int, depth);
    KxDibDice dice(static_cast<unsigned int>(depth));
    for (int round = 0; round < floodCount; ++round) {
        const int width = 1 + dice(45);
        const int height = 1 + dice(30);
        const std::vector<DWORD> values = kxLookalikes(depth, dice);
        std::vector<std::unique_ptr<KxHeapRow>> rows;
        std::vector<std::vector<DWORD>> pixels;
        KxForeignDib dib(depth, width, height);
        for (int y = 0; y < height; ++y) {
            KxDibRowModel model(depth, width);
            model.scatter({values[0], values[0], values[1]}, dice);
            rows.push_back(std::make_unique<KxHeapRow>(dice(offsetCount), model.size(), dice));
            model.copyTo(rows.back()->data());
            dib.setRow(y, rows.back()->data());
            pixels.emplace_back();
            for (int x = 0; x < width; ++x)
                pixels.back().push_back(model.value(x));
        }
        for (int times = 0; times < 5; ++times) {
            const int x = dice(width);
            const int y = dice(height);
            const DWORD v = times == 0 ? strange(values, depth, dice) : values[std::size_t(dice(3))];
            kxFloodFill(dib, x, y, v);
            kxFloodFillByPixels(
                width, height, x, y, v,
                [&](int atX, int atY) { return pixels[std::size_t(atY)][std::size_t(atX)]; },
                [&](int atX, int atY, DWORD value) { pixels[std::size_t(atY)][std::size_t(atX)] = value; });
        }
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                QCOMPARE(dib.GetPixelValue(x, y), pixels[std::size_t(y)][std::size_t(x)]);
            QVERIFY(rows[std::size_t(y)]->isWhole());
        }
    }
}

KX_TEST_MAIN(DibModelsTest)
#include "tst_dib_models.moc"
