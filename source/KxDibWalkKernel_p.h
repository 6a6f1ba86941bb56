// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The walks, for the kind of processor that the including file is compiled for. Nothing is included whose
/// inline functions could bring that processor's instructions into the rest of the library.

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
    static constexpr std::uint32_t allBytes = BlockBytes == 32 ? 0xFFFFFFFFu : (1u << BlockBytes % 32) - 1;

    /// A block of nothing but the value.
    static Words valuesOf(std::uint32_t value) { return static_cast<Word>(value) - Words{}; }

    /// How the words differ from the value; of walks to a different word, also in bits that are not compared.
    template<StopAt stop>
    static void load(Words &differences, const unsigned char *bytes, const Words &values)
    {
        std::memcpy(&differences, bytes, BlockBytes);
        differences ^= values;
        if constexpr (stop == StopAt::Equal)
            differences &= comparedBits;
    }

    /// Joins blocks, so that anyStops() answers for all of them.
    template<StopAt stop>
    static Words joined(const Words &one, const Words &other)
    {
        if constexpr (stop == StopAt::Different)
            return one | other;
        else
            return one < other ? one : other;
    }

    template<StopAt stop>
    static bool anyStops(const Words &differences)
    {
#if defined(__AVX2__)
        if constexpr (stop == StopAt::Different) {
            const Words compared = comparedBits - Words{};
            return _mm256_testz_si256(reinterpret_cast<__m256i>(differences),
                                      reinterpret_cast<__m256i>(compared)) == 0;
        }
#endif
        return stopBits<stop>(differences) != 0;
    }

    /// A bit for each byte of a word that stops the walk.
    template<StopAt stop>
    static std::uint32_t stopBits(const Words &differences)
    {
        const auto equal = (stop == StopAt::Equal ? differences : differences & comparedBits) == Words{};
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
        return stop == StopAt::Equal ? bits : bits ^ allBytes;
    }

    static std::size_t firstOf(std::uint32_t bits)
    {
        return static_cast<std::size_t>(__builtin_ctz(bits)) / sizeof(Word);
    }
    static std::size_t lastOf(std::uint32_t bits)
    {
        return (31 - static_cast<std::size_t>(__builtin_clz(bits))) / sizeof(Word);
    }

    /// How many words an address lies behind the last multiple of a block's length.
    static std::size_t offsetOf(const unsigned char *bytes)
    {
        return reinterpret_cast<std::uintptr_t>(bytes) % BlockBytes / sizeof(Word);
    }

    template<StopAt stop>
    static bool stops(const unsigned char *bytes, std::uint32_t value)
    {
        Word word;
        std::memcpy(&word, bytes, sizeof word);
        return (((word ^ static_cast<Word>(value)) & comparedBits) == 0) == (stop == StopAt::Equal);
    }
};

/// The blocks that are looked at between two branches. An array in a loop GCC would keep in memory.
template<class Word, StopAt stop>
struct Group
{
    using B = Block<Word>;
    static constexpr std::size_t Bytes = 4 * BlockBytes;
    static constexpr std::size_t Length = 4 * B::Length;

    typename B::Words blocks[4];

    /// \return whether a word stops the walk
    bool load(const unsigned char *bytes, const typename B::Words &values)
    {
        B::template load<stop>(blocks[0], bytes, values);
        B::template load<stop>(blocks[1], bytes + BlockBytes, values);
        B::template load<stop>(blocks[2], bytes + 2 * BlockBytes, values);
        B::template load<stop>(blocks[3], bytes + 3 * BlockBytes, values);
        const typename B::Words firstTwo = B::template joined<stop>(blocks[0], blocks[1]);
        const typename B::Words lastTwo = B::template joined<stop>(blocks[2], blocks[3]);
        return B::template anyStops<stop>(B::template joined<stop>(firstTwo, lastTwo));
    }

    std::uint32_t bits(std::size_t block) const { return B::template stopBits<stop>(blocks[block]); }

    /// The first word that stops the walk; there has to be one.
    std::size_t first() const
    {
        if (const auto stops = bits(0))
            return B::firstOf(stops);
        if (const auto stops = bits(1))
            return B::Length + B::firstOf(stops);
        if (const auto stops = bits(2))
            return 2 * B::Length + B::firstOf(stops);
        return 3 * B::Length + B::firstOf(bits(3));
    }
    std::size_t last() const
    {
        if (const auto stops = bits(3))
            return 3 * B::Length + B::lastOf(stops);
        if (const auto stops = bits(2))
            return 2 * B::Length + B::lastOf(stops);
        if (const auto stops = bits(1))
            return B::Length + B::lastOf(stops);
        return B::lastOf(bits(0));
    }
};

// Walks begin with one block, as many are short, and go on with groups of blocks at the addresses where the
// processor loads them fastest: some words are looked at twice. The same at the end of the row.

template<class Word, StopAt stop>
std::size_t runRightOf(const unsigned char *row, std::size_t count, std::uint32_t value)
{
    using B = Block<Word>;
    using G = Group<Word, stop>;
    std::size_t i = 0;
    if (count < B::Length) {
        while (i < count && !B::template stops<stop>(row + i * sizeof(Word), value))
            ++i;
        return i;
    }
    const typename B::Words values = B::valuesOf(value);
    typename B::Words block;
    B::template load<stop>(block, row, values);
    if (const auto bits = B::template stopBits<stop>(block))
        return B::firstOf(bits);
    i = B::Length - B::offsetOf(row);
    if (count >= G::Length) {
        for (const std::size_t lastGroup = count - G::Length; i <= lastGroup; i += G::Length) {
            G group;
            if (group.load(row + i * sizeof(Word), values))
                return i + group.first();
        }
    }
    while (i < count) {
        if (i > count - B::Length)
            i = count - B::Length;
        B::template load<stop>(block, row + i * sizeof(Word), values);
        if (const auto bits = B::template stopBits<stop>(block))
            return i + B::firstOf(bits);
        i += B::Length;
    }
    return count;
}

template<class Word, StopAt stop>
std::size_t runLeftOf(const unsigned char *row, std::size_t count, std::uint32_t value)
{
    using B = Block<Word>;
    using G = Group<Word, stop>;
    std::size_t left = count;
    if (count < B::Length) {
        while (left > 0 && !B::template stops<stop>(row + (left - 1) * sizeof(Word), value))
            --left;
        return count - left;
    }
    const typename B::Words values = B::valuesOf(value);
    typename B::Words block;
    B::template load<stop>(block, row + (count - B::Length) * sizeof(Word), values);
    if (const auto bits = B::template stopBits<stop>(block))
        return B::Length - 1 - B::lastOf(bits);
    const std::size_t offset = B::offsetOf(row + count * sizeof(Word));
    left -= offset != 0 ? offset : B::Length;
    for (; left >= G::Length; left -= G::Length) {
        const unsigned char *bytes = row + left * sizeof(Word);
        askFor(bytes);
        G group;
        if (group.load(bytes - G::Bytes, values))
            return count - 1 - (left - G::Length + group.last());
    }
    while (left > 0) {
        if (left < B::Length)
            left = B::Length;
        B::template load<stop>(block, row + (left - B::Length) * sizeof(Word), values);
        if (const auto bits = B::template stopBits<stop>(block))
            return count - 1 - (left - B::Length + B::lastOf(bits));
        left -= B::Length;
    }
    return count;
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
