// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The walks, for the kind of processor that the including file is compiled for.

#include "KxDibRow_p.h"
#include "KxDibWalk_p.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__AVX2__)
#  include <immintrin.h>
#elif defined(__SSE2__)
#  include <emmintrin.h>
#endif

namespace {

using KxDibRow::StopAt;

#if defined(__AVX2__)
constexpr std::size_t BlockBytes = 32;
#else
constexpr std::size_t BlockBytes = 16;
#endif

/// How far in front of a walk to the left its bytes are asked for; processors foresee the one to the right.
constexpr std::uintptr_t Ahead = 2048;

/// The memory there need not be the row's: nothing is read.
inline void askFor(const unsigned char *bytes)
{
    constexpr std::uintptr_t CacheLine = 64;
    const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(bytes) - Ahead;
    __builtin_prefetch(reinterpret_cast<const void *>(address));
    __builtin_prefetch(reinterpret_cast<const void *>(address - CacheLine));
}

/// As many words as the processor compares at once.
template<class Word>
struct Block
{
    typedef Word Words __attribute__((vector_size(BlockBytes)));
    static constexpr std::size_t Length = BlockBytes / sizeof(Word);
    static constexpr Word comparedBits = static_cast<Word>(sizeof(Word) == 4 ? 0x00FFFFFFu : ~0u);

    /// Zero in the words that are the value.
    static void load(Words &differences, const unsigned char *bytes, const Words &value)
    {
        Words words;
        std::memcpy(&words, bytes, BlockBytes);
        differences = (words ^ value) & comparedBits;
    }

    static bool isZero(const Words &words)
    {
#if defined(__AVX2__)
        const auto bits = reinterpret_cast<__m256i>(words);
        return _mm256_testz_si256(bits, bits) != 0;
#elif defined(__SSE2__)
        const auto bits = reinterpret_cast<__m128i>(words);
        return _mm_movemask_epi8(_mm_cmpeq_epi8(bits, _mm_setzero_si128())) == 0xFFFF;
#else
        std::uint64_t halves[2];
        std::memcpy(halves, &words, sizeof halves);
        return (halves[0] | halves[1]) == 0;
#endif
    }

    /// A bit for each byte of a word that stops the walk.
    template<StopAt stop>
    static std::uint32_t stopBits(const Words &differences)
    {
        const auto equal = differences == Words{};
#if defined(__AVX2__)
        const auto bits = static_cast<std::uint32_t>(_mm256_movemask_epi8(reinterpret_cast<__m256i>(equal)));
#elif defined(__SSE2__)
        const auto bits = static_cast<std::uint32_t>(_mm_movemask_epi8(reinterpret_cast<__m128i>(equal)));
#else
        unsigned char bytes[BlockBytes];
        std::memcpy(bytes, &equal, sizeof bytes);
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < BlockBytes; ++i)
            bits |= (bytes[i] & 1u) << i;
#endif
        constexpr std::uint32_t all = BlockBytes == 32 ? 0xFFFFFFFFu : (1u << BlockBytes % 32) - 1;
        return stop == StopAt::Equal ? bits : bits ^ all;
    }

    /// Collects blocks so that anyStops() answers for all of them.
    template<StopAt stop>
    static void collect(Words &differences, const Words &more)
    {
        if constexpr (stop == StopAt::Different)
            differences |= more;
        else
            differences = differences < more ? differences : more;
    }

    template<StopAt stop>
    static bool anyStops(const Words &differences)
    {
        if constexpr (stop == StopAt::Different)
            return !isZero(differences);
        else
            return stopBits<stop>(differences) != 0;
    }

    static std::size_t firstOf(std::uint32_t bits)
    {
        return static_cast<std::size_t>(__builtin_ctz(bits)) / sizeof(Word);
    }
    static std::size_t lastOf(std::uint32_t bits)
    {
        return (31 - static_cast<std::size_t>(__builtin_clz(bits))) / sizeof(Word);
    }

    template<StopAt stop>
    static bool stops(const unsigned char *bytes, Word value)
    {
        Word word;
        std::memcpy(&word, bytes, sizeof word);
        return (((word ^ value) & comparedBits) == 0) == (stop == StopAt::Equal);
    }
};

template<class Word, StopAt stop>
std::size_t runRightOf(const unsigned char *row, std::size_t count, std::uint32_t value)
{
    using B = Block<Word>;
    const typename B::Words values = static_cast<Word>(value) - typename B::Words{};
    std::size_t i = 0;
    for (; count - i >= 4 * B::Length; i += 4 * B::Length) {
        const unsigned char *bytes = row + i * sizeof(Word);
        typename B::Words blocks[4];
        B::load(blocks[0], bytes, values);
        B::load(blocks[1], bytes + BlockBytes, values);
        B::load(blocks[2], bytes + 2 * BlockBytes, values);
        B::load(blocks[3], bytes + 3 * BlockBytes, values);
        typename B::Words first = blocks[0];
        typename B::Words second = blocks[2];
        B::template collect<stop>(first, blocks[1]);
        B::template collect<stop>(second, blocks[3]);
        B::template collect<stop>(first, second);
        if (B::template anyStops<stop>(first))
            break;
    }
    for (; count - i >= B::Length; i += B::Length) {
        typename B::Words block;
        B::load(block, row + i * sizeof(Word), values);
        if (const auto bits = B::template stopBits<stop>(block))
            return i + B::firstOf(bits);
    }
    if (i < count && count >= B::Length) {
        // The last block again, with words in front that are known not to stop.
        typename B::Words block;
        i = count - B::Length;
        B::load(block, row + i * sizeof(Word), values);
        const auto bits = B::template stopBits<stop>(block);
        return bits ? i + B::firstOf(bits) : count;
    }
    while (i < count && !B::template stops<stop>(row + i * sizeof(Word), static_cast<Word>(value)))
        ++i;
    return i;
}

template<class Word, StopAt stop>
std::size_t runLeftOf(const unsigned char *row, std::size_t count, std::uint32_t value)
{
    using B = Block<Word>;
    const typename B::Words values = static_cast<Word>(value) - typename B::Words{};
    std::size_t left = count;
    for (; left >= 4 * B::Length; left -= 4 * B::Length) {
        const unsigned char *bytes = row + left * sizeof(Word);
        askFor(bytes);
        typename B::Words blocks[4];
        B::load(blocks[0], bytes - BlockBytes, values);
        B::load(blocks[1], bytes - 2 * BlockBytes, values);
        B::load(blocks[2], bytes - 3 * BlockBytes, values);
        B::load(blocks[3], bytes - 4 * BlockBytes, values);
        typename B::Words first = blocks[0];
        typename B::Words second = blocks[2];
        B::template collect<stop>(first, blocks[1]);
        B::template collect<stop>(second, blocks[3]);
        B::template collect<stop>(first, second);
        if (B::template anyStops<stop>(first))
            break;
    }
    for (; left >= B::Length; left -= B::Length) {
        typename B::Words block;
        B::load(block, row + (left - B::Length) * sizeof(Word), values);
        if (const auto bits = B::template stopBits<stop>(block))
            return count - (left - B::Length + B::lastOf(bits) + 1);
    }
    if (left > 0 && count >= B::Length) {
        // The first block again, with words behind that are known not to stop.
        typename B::Words block;
        B::load(block, row, values);
        const auto bits = B::template stopBits<stop>(block);
        return bits ? count - (B::lastOf(bits) + 1) : count;
    }
    while (left > 0 && !B::template stops<stop>(row + (left - 1) * sizeof(Word), static_cast<Word>(value)))
        --left;
    return count - left;
}

template<class Word>
constexpr KxDibWalk walkOf = {runRightOf<Word, StopAt::Equal>, runRightOf<Word, StopAt::Different>,
                              runLeftOf<Word, StopAt::Equal>, runLeftOf<Word, StopAt::Different>};

constexpr KxDibWalks walks = {walkOf<std::uint8_t>, walkOf<std::uint16_t>, walkOf<std::uint32_t>};

inline void fillWith(unsigned char *target, std::size_t count, std::uint32_t word)
{
    using B = Block<std::uint32_t>;
    if (count < B::Length) {
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(target + i * sizeof word, &word, sizeof word);
        return;
    }
    const B::Words words = word - B::Words{};
    const std::size_t lastBlock = count - B::Length;
    for (std::size_t i = 0; i < lastBlock; i += B::Length)
        std::memcpy(target + i * sizeof word, &words, BlockBytes);
    std::memcpy(target + lastBlock * sizeof word, &words, BlockBytes);
}

constexpr KxDibKernel kernel = {walks, fillWith};

} // namespace
