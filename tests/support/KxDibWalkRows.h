// SPDX-License-Identifier: MIT
#pragma once

// The walks along a row as the including program compiles them, or another one's: CDibData uses the fastest
// that the processor has, so that its own tests reach only that one.
#include "../../source/KxDibWalkKernel_p.h"

#include "KxTestCase.h"

#include <algorithm>
#include <random>
#include <vector>

/// One word after the other.
template<class Word, KxDibRow::StopAt stop>
std::size_t kxPlainRun(const std::vector<unsigned char> &row, std::uint32_t value, bool toTheRight)
{
    const std::size_t count = row.size() / sizeof(Word);
    const auto mask = static_cast<Word>(sizeof(Word) == 4 ? 0x00FFFFFFu : ~0u);
    for (std::size_t run = 0; run < count; ++run) {
        Word word;
        const std::size_t index = toTheRight ? run : count - 1 - run;
        std::memcpy(&word, row.data() + index * sizeof(Word), sizeof(Word));
        const bool isEqual = (word & mask) == static_cast<Word>(value);
        if (isEqual == (stop == KxDibRow::StopAt::Equal))
            return run;
    }
    return count;
}

/// A row of that many words, with the one word that stops the walk at that place or nowhere.
template<class Word>
void kxCompareWalksAlong(const KxDibWalk &walk, std::size_t count, std::size_t place, std::mt19937 &random)
{
    using KxDibRow::StopAt;
    constexpr std::uint32_t value = 0x00112233;
    for (const bool isValue : {true, false}) {
        std::vector<unsigned char> row(count * sizeof(Word));
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint32_t high = (random() & 0xFFu) << 24;
            const auto word = static_cast<Word>(((i == place) == isValue ? value : value ^ 0x0101u) | high);
            std::memcpy(row.data() + i * sizeof(Word), &word, sizeof(Word));
        }
        const auto equalRight = kxPlainRun<Word, StopAt::Equal>(row, value, true);
        const auto differentRight = kxPlainRun<Word, StopAt::Different>(row, value, true);
        const auto equalLeft = kxPlainRun<Word, StopAt::Equal>(row, value, false);
        const auto differentLeft = kxPlainRun<Word, StopAt::Different>(row, value, false);

        // At an address of its own within a block; nothing behind the row that the sanitizers would not see.
        const std::size_t offset = random() % 64;
        std::vector<unsigned char> memory(offset + row.size());
        std::copy(row.begin(), row.end(), memory.begin() + static_cast<std::ptrdiff_t>(offset));
        const unsigned char *first = memory.data() + offset;
        QCOMPARE(walk.rightToEqual(first, count, value), equalRight);
        QCOMPARE(walk.rightToDifferent(first, count, value), differentRight);
        QCOMPARE(walk.leftToEqual(first, count, value), equalLeft);
        QCOMPARE(walk.leftToDifferent(first, count, value), differentLeft);
    }
}

/// Rows of many lengths, every place in them, many addresses.
template<class Word>
void kxCompareWalks(const KxDibWalk &walk)
{
    std::mt19937 random(11);
    for (std::size_t count = 0; count < 300; count += count < 80 ? 1 : 37) {
        for (std::size_t place = 0; place <= count; ++place)
            kxCompareWalksAlong<Word>(walk, count, place, random);
    }
}

/// Fills of every length up to 70 pixels at every address within a block, and nothing beside them.
inline void kxCompareFills(void (*fill)(unsigned char *, std::size_t, std::uint32_t))
{
    constexpr std::uint32_t word = 0x80112233;
    for (std::size_t count = 0; count <= 70; ++count) {
        for (std::size_t offset = 0; offset < 33; ++offset) {
            std::vector<unsigned char> bytes(offset + 4 * count + 33, 0xAA);
            std::vector<unsigned char> expected = bytes;
            for (std::size_t i = 0; i < count; ++i)
                std::memcpy(expected.data() + offset + 4 * i, &word, sizeof word);
            fill(bytes.data() + offset, count, word);
            QCOMPARE(bytes, expected);
        }
    }
}
