// SPDX-License-Identifier: MIT
#include "support/KxTestCase.h"

#include "KxQtWinapiWrapper.h"

#include <QtGui/QColor>
#include <QtOpenGL/QGLColormap>

#include <cstring>
#include <vector>

namespace {

struct Entry
{
    BYTE red;
    BYTE green;
    BYTE blue;
    BYTE flags;
};

/// The two header fields of 16 bits and the entries behind them.
class Palette
{
public:
    explicit Palette(const std::vector<Entry> &entries)
        : m_words(1 + entries.size())
    {
        auto *palette = reinterpret_cast<LOGPALETTE *>(m_words.data());
        palette->palVersion = 0x300;
        palette->palNumEntries = WORD(entries.size());
        if (!entries.empty())
            std::memcpy(&m_words[1], entries.data(), 4 * entries.size());
    }

    const LOGPALETTE *get() const { return reinterpret_cast<const LOGPALETTE *>(m_words.data()); }

private:
    std::vector<DWORD> m_words;
};

HPALETTE onePalette()
{
    return reinterpret_cast<HPALETTE>(&g_ColorMap);
}

} // namespace

class tst_Palettes : public KxTestCase
{
    Q_OBJECT

private slots:
    void layout();
    void nullGivesNull();
    void entriesAreStored();
    void secondOverwritesFirst();
    void noEntries();
    void entryCount_data();
    void entryCount();
    void nearest_data();
    void nearest();
    void nearestOfOtherHandles();
};

void tst_Palettes::layout()
{
    QCOMPARE(offsetof(LOGPALETTE, palVersion), size_t(0));
    QCOMPARE(offsetof(LOGPALETTE, palNumEntries), size_t(2));
    QCOMPARE(offsetof(LOGPALETTE, palPalEntry), size_t(4));
    QCOMPARE(sizeof(PALETTEENTRY), size_t(4));
}

void tst_Palettes::nullGivesNull()
{
    QCOMPARE(CreatePalette(nullptr), static_cast<HPALETTE>(nullptr));
}

void tst_Palettes::entriesAreStored()
{
    const Palette palette({{10, 20, 30, 0}, {255, 0, 1, 4}, {0, 255, 2, 255}});
    QCOMPARE(CreatePalette(palette.get()), onePalette());
    // Opaque, whatever the flags say.
    QCOMPARE(g_ColorMap.entryColor(0), QColor(10, 20, 30, 255));
    QCOMPARE(g_ColorMap.entryColor(1), QColor(255, 0, 1, 255));
    QCOMPARE(g_ColorMap.entryColor(2), QColor(0, 255, 2, 255));
    QCOMPARE(g_ColorMap.entryRgb(1), qRgba(255, 0, 1, 255));
}

void tst_Palettes::secondOverwritesFirst()
{
    const Palette first({{1, 1, 1, 0}, {2, 2, 2, 0}, {3, 3, 3, 0}});
    const Palette second({{9, 8, 7, 0}, {6, 5, 4, 0}});
    const HPALETTE handle = CreatePalette(first.get());
    QVERIFY(handle);
    QCOMPARE(CreatePalette(second.get()), handle);
    QCOMPARE(g_ColorMap.entryColor(0), QColor(9, 8, 7));
    QCOMPARE(g_ColorMap.entryColor(1), QColor(6, 5, 4));
    QCOMPARE(g_ColorMap.entryColor(2), QColor(3, 3, 3)); // beyond the second's two
}

void tst_Palettes::noEntries()
{
    const Palette first({{1, 2, 3, 0}});
    CreatePalette(first.get());
    const Palette none({});
    QCOMPARE(CreatePalette(none.get()), onePalette());
    QCOMPARE(g_ColorMap.entryColor(0), QColor(1, 2, 3));
}

void tst_Palettes::entryCount_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("255 entries") << 255;
    QTest::newRow("256 entries") << 256;
    QTest::newRow("257 entries: the first 256 count") << 257;
    QTest::newRow("65535 entries: the first 256 count") << 65535;
}

void tst_Palettes::entryCount()
{
    QFETCH(int, count);
    const Palette black(std::vector<Entry>(256, Entry {0, 0, 0, 0}));
    CreatePalette(black.get());
    std::vector<Entry> entries;
    for (int i = 0; i < count; ++i)
        entries.push_back({BYTE(i), BYTE(255 - i % 256), BYTE(i / 256), 0});
    const Palette palette(entries);
    QCOMPARE(CreatePalette(palette.get()), onePalette());
    for (int i = 0; i < qMin(count, 256); ++i)
        QCOMPARE(g_ColorMap.entryColor(i), QColor(i, 255 - i, 0));
    if (count == 255)
        QCOMPARE(g_ColorMap.entryColor(255), QColor(0, 0, 0));
}

void tst_Palettes::nearest_data()
{
    QTest::addColumn<uint>("color");
    QTest::addColumn<uint>("expected");
    QTest::newRow("exactly black: 0") << RGB(0, 0, 0) << 0u;
    QTest::newRow("exactly red: 1") << RGB(255, 0, 0) << 1u;
    QTest::newRow("exactly green: 2") << RGB(0, 255, 0) << 2u;
    QTest::newRow("exactly blue: 3") << RGB(0, 0, 255) << 3u;
    QTest::newRow("exactly white: 4") << RGB(255, 255, 255) << 4u;
    QTest::newRow("nearly red: 1") << RGB(240, 10, 20) << 1u;
    QTest::newRow("nearly blue: 3") << RGB(20, 10, 240) << 3u;
    QTest::newRow("nearly white: 4") << RGB(250, 251, 252) << 4u;
    QTest::newRow("nearly black: 0") << RGB(9, 8, 7) << 0u;
    QTest::newRow("the top byte does not count: 1") << (RGB(255, 0, 0) | 0x7f000000u) << 1u;
    QTest::newRow("the top byte does not count: 3") << (RGB(20, 10, 240) | 0xff000000u) << 3u;
}

void tst_Palettes::nearest()
{
    QFETCH(uint, color);
    QFETCH(uint, expected);
    std::vector<Entry> entries(256, Entry {0, 0, 0, 0});
    entries[1] = {255, 0, 0, 0};
    entries[2] = {0, 255, 0, 0};
    entries[3] = {0, 0, 255, 0};
    entries[4] = {255, 255, 255, 0};
    const Palette palette(entries);
    const HPALETTE handle = CreatePalette(palette.get());
    QCOMPARE(GetNearestPaletteIndex(handle, color), expected);
    QCOMPARE(int(expected),
             g_ColorMap.findNearest(qRgb(color & 0xff, (color >> 8) & 0xff, (color >> 16) & 0xff)));
}

void tst_Palettes::nearestOfOtherHandles()
{
    const Palette palette({{0, 0, 0, 0}, {255, 0, 0, 0}});
    QCOMPARE(GetNearestPaletteIndex(CreatePalette(palette.get()), RGB(255, 0, 0)), 1u);
    QCOMPARE(GetNearestPaletteIndex(nullptr, RGB(255, 0, 0)), 0u);
    QCOMPARE(GetNearestPaletteIndex(reinterpret_cast<HPALETTE>(0x10), RGB(255, 0, 0)), 0u);
    QGLColormap foreign;
    foreign.setEntry(0, QColor(Qt::black));
    foreign.setEntry(5, QColor(255, 0, 0));
    QCOMPARE(GetNearestPaletteIndex(reinterpret_cast<HPALETTE>(&foreign), RGB(255, 0, 0)), 0u);
}

KX_TEST_MAIN(tst_Palettes)

#include "tst_palettes.moc"
