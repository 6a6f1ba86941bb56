// SPDX-License-Identifier: MIT
#pragma once

#include "KxDibData.h"
#include "KxDibWalk_p.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

/// One row of pixels of a bitmap, as CDibData searches and fills it. Rows may start at any address; nothing
/// outside of the pixels asked for is touched, but for the bits that share a byte with them.
///
/// Pixels of 32 bits are served here, without a call more, all others behind a call.
namespace KxDibRow {

extern const KxDibKernel kernelOfThisProcessor;

// ---- walks ---------------------------------------------------------------------------------------------

template<class Word, StopAt stop>
inline int wordsRight(const unsigned char *row, int x, int count, std::uint32_t value)
{
    if (sizeof(Word) == 4 && value > RGB_MASK) // No word has all its bits.
        return stop == StopAt::Equal ? count : 0;
    const KxDibWalk &walk = kernelOfThisProcessor.walks[sizeof(Word) / 2];
    const auto run = stop == StopAt::Equal ? walk.rightToEqual : walk.rightToDifferent;
    const unsigned char *first = row + static_cast<std::size_t>(x) * sizeof(Word);
    return static_cast<int>(run(first, static_cast<std::size_t>(count), value));
}

template<class Word, StopAt stop>
inline int wordsLeft(const unsigned char *row, int x, int count, std::uint32_t value)
{
    if (sizeof(Word) == 4 && value > RGB_MASK)
        return stop == StopAt::Equal ? count : 0;
    const KxDibWalk &walk = kernelOfThisProcessor.walks[sizeof(Word) / 2];
    const auto run = stop == StopAt::Equal ? walk.leftToEqual : walk.leftToDifferent;
    const unsigned char *first = row + static_cast<std::size_t>(x - count + 1) * sizeof(Word);
    return static_cast<int>(run(first, static_cast<std::size_t>(count), value));
}

template<StopAt stop>
int otherRight(const unsigned char *row, int depth, int x, int count, std::uint32_t value);
template<StopAt stop>
int otherLeft(const unsigned char *row, int depth, int x, int count, std::uint32_t value);

/// How many pixels there are, at most `count`, from `x` on to the right before one that stops the walk.
template<StopAt stop>
inline int runRight(const unsigned char *row, int depth, int x, int count, std::uint32_t value)
{
    return depth == 32 ? wordsRight<std::uint32_t, stop>(row, x, count, value)
                       : otherRight<stop>(row, depth, x, count, value);
}

/// The same to the left: `x`, `x - 1` and so on.
template<StopAt stop>
inline int runLeft(const unsigned char *row, int depth, int x, int count, std::uint32_t value)
{
    return depth == 32 ? wordsLeft<std::uint32_t, stop>(row, x, count, value)
                       : otherLeft<stop>(row, depth, x, count, value);
}

/// Whether the walks and pixel() serve a depth.
inline bool isServed(unsigned int depth)
{
    constexpr std::uint64_t depths = 1ull << 1 | 1ull << 2 | 1ull << 4 | 1ull << 8 | 1ull << 16 | 1ull << 24
                                     | 1ull << 32;
    return depth < 64 && (depths >> depth & 1) != 0;
}

/// The pixel at `x`, without the alpha; 0xFFFFFFFF for a depth that is not served.
std::uint32_t pixel(const unsigned char *row, int depth, int x);

// ---- fills ---------------------------------------------------------------------------------------------

void fillMany32(unsigned char *target, std::size_t count, std::uint32_t word);

/// Writes words of 32 bits, at any address.
inline void fill32(unsigned char *target, std::size_t count, std::uint32_t word)
{
    const std::uint32_t words[4] = {word, word, word, word};
    if (count > 16) {
        fillMany32(target, count, word);
    } else if (count >= 4) {
        // Each half from both its ends, some words twice.
        unsigned char *const last = target + (count - 4) * sizeof word;
        const std::size_t toMiddle = count > 8 ? sizeof words : 0;
        std::memcpy(target, words, sizeof words);
        std::memcpy(target + toMiddle, words, sizeof words);
        std::memcpy(last - toMiddle, words, sizeof words);
        std::memcpy(last, words, sizeof words);
    } else {
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(target + i * sizeof word, &word, sizeof word);
    }
}

bool fillOther(unsigned char *row, int depth, int first, int last, std::uint32_t value);

/// Makes the pixels from `first` to `last` that value. At 24 bits nothing is written.
/// \return false for a depth that is not served
inline bool fill(unsigned char *row, int depth, int first, int last, std::uint32_t value)
{
    if (depth != 32)
        return fillOther(row, depth, first, last, value);
    fill32(row + 4 * static_cast<std::size_t>(first), static_cast<std::size_t>(last - first) + 1, value);
    return true;
}

} // namespace KxDibRow
