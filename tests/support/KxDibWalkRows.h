// SPDX-License-Identifier: MIT
#pragma once

// The walks along a row as the including program compiles them: CDibData uses the fastest that the processor has,
// so that its own tests reach only that one.
#include "../../source/KxDibWalkKernel_p.h"

#include "KxTestCase.h"

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

/// Rows of every length up to 300 words, with the one word that stops the walk at every place or nowhere.
template<class Word>
void kxCompareWalks(const KxDibWalk &walk)
{
    std::mt19937 random(11);
    constexpr std::uint32_t value = 0x00112233;
    for (std::size_t count = 0; count < 300; count += count < 80 ? 1 : 37) {
        for (std::size_t place = 0; place <= count; ++place) {
            for (const bool isValue : {true, false}) {
                std::vector<unsigned char> row(count * sizeof(Word));
                for (std::size_t i = 0; i < count; ++i) {
                    const std::uint32_t high = (random() & 0xFFu) << 24;
                    const auto word = static_cast<Word>(((i == place) == isValue ? value : value ^ 0x0101u) | high);
                    std::memcpy(row.data() + i * sizeof(Word), &word, sizeof(Word));
                }
                using KxDibRow::StopAt;
                const auto equalRight = kxPlainRun<Word, StopAt::Equal>(row, value, true);
                const auto differentRight = kxPlainRun<Word, StopAt::Different>(row, value, true);
                const auto equalLeft = kxPlainRun<Word, StopAt::Equal>(row, value, false);
                const auto differentLeft = kxPlainRun<Word, StopAt::Different>(row, value, false);
                QCOMPARE(walk.rightToEqual(row.data(), count, value), equalRight);
                QCOMPARE(walk.rightToDifferent(row.data(), count, value), differentRight);
                QCOMPARE(walk.leftToEqual(row.data(), count, value), equalLeft);
                QCOMPARE(walk.leftToDifferent(row.data(), count, value), differentLeft);
            }
        }
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
