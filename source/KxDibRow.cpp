// SPDX-License-Identifier: MIT
#include "KxDibRow_p.h"

#include "KxDibData.h"

#include <cstring>
#include <cwchar>

namespace KxDibRow {

namespace {

template<class Word>
Word load(const unsigned char *bytes)
{
    Word word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

// ---- pixels of whole words -----------------------------------------------------------------------------

/// The bits of a word that are compared.
template<class Word>
constexpr Word comparedBits = static_cast<Word>(sizeof(Word) == 4 ? RGB_MASK : ~0u);

template<class Word, StopAt stop>
bool stopsAt(Word word, Word value)
{
    return ((word & comparedBits<Word>) == value) == (stop == StopAt::Equal);
}

template<class Word, std::size_t Bytes>
struct Register
{
    typedef Word Type __attribute__((vector_size(Bytes)));
};

/// A few words that the compiler handles in one register, where there are such registers.
template<class Word, std::size_t Bytes>
struct Block
{
    using Words = typename Register<Word, Bytes>::Type;
    using Quads = typename Register<std::uint64_t, Bytes>::Type;
    static constexpr std::size_t Length = Bytes / sizeof(Word);

    /// Not all zero when one of the words stops the walk.
    template<StopAt stop>
    [[gnu::always_inline]] static void collectStops(Quads &stops, const unsigned char *bytes, const Words &value)
    {
        Words words;
        std::memcpy(&words, bytes, Bytes);
        const Words compared = words & comparedBits<Word>;
        if constexpr (stop == StopAt::Equal)
            stops |= reinterpret_cast<Quads>(compared == value);
        else
            stops |= reinterpret_cast<Quads>(compared ^ value);
    }

    /// Whether one of the words in `count` blocks stops the walk.
    template<StopAt stop, int count>
    [[gnu::always_inline]] static bool anyStops(const unsigned char *bytes, const Words &value)
    {
        Quads stops = {};
        for (std::size_t i = 0; i < count; ++i)
            collectStops<stop>(stops, bytes + i * Bytes, value);
        std::uint64_t any = 0;
        for (std::size_t i = 0; i < Bytes / sizeof any; ++i)
            any |= stops[i];
        return any != 0;
    }
};

/// The words before the first that stops the walk.
template<class Word, StopAt stop, std::size_t Bytes>
[[gnu::always_inline]] inline std::size_t wordsBefore(const unsigned char *row, std::size_t count, Word value)
{
    using B = Block<Word, Bytes>;
    const typename B::Words values = value - typename B::Words{};
    std::size_t i = 0;
    while (count - i >= 4 * B::Length && !B::template anyStops<stop, 4>(row + i * sizeof(Word), values))
        i += 4 * B::Length;
    while (count - i >= B::Length && !B::template anyStops<stop, 1>(row + i * sizeof(Word), values))
        i += B::Length;
    while (i < count && !stopsAt<Word, stop>(load<Word>(row + i * sizeof(Word)), value))
        ++i;
    return i;
}

/// The words behind the last that stops the walk.
template<class Word, StopAt stop, std::size_t Bytes>
[[gnu::always_inline]] inline std::size_t wordsBehind(const unsigned char *row, std::size_t count, Word value)
{
    using B = Block<Word, Bytes>;
    const typename B::Words values = value - typename B::Words{};
    std::size_t i = count;
    while (i >= 4 * B::Length
           && !B::template anyStops<stop, 4>(row + (i - 4 * B::Length) * sizeof(Word), values))
        i -= 4 * B::Length;
    while (i >= B::Length && !B::template anyStops<stop, 1>(row + (i - B::Length) * sizeof(Word), values))
        i -= B::Length;
    while (i > 0 && !stopsAt<Word, stop>(load<Word>(row + (i - 1) * sizeof(Word)), value))
        --i;
    return count - i;
}

#if defined(__x86_64__)

const bool hasWideRegisters = __builtin_cpu_supports("avx2");

template<class Word, StopAt stop>
__attribute__((target("avx2"))) std::size_t wordsBeforeWide(const unsigned char *row, std::size_t count, Word value)
{
    return wordsBefore<Word, stop, 32>(row, count, value);
}

template<class Word, StopAt stop>
__attribute__((target("avx2"))) std::size_t wordsBehindWide(const unsigned char *row, std::size_t count, Word value)
{
    return wordsBehind<Word, stop, 32>(row, count, value);
}

template<class Word, StopAt stop>
std::size_t runOfWordsRight(const unsigned char *row, std::size_t count, Word value)
{
    return hasWideRegisters ? wordsBeforeWide<Word, stop>(row, count, value)
                            : wordsBefore<Word, stop, 16>(row, count, value);
}

template<class Word, StopAt stop>
std::size_t runOfWordsLeft(const unsigned char *row, std::size_t count, Word value)
{
    return hasWideRegisters ? wordsBehindWide<Word, stop>(row, count, value)
                            : wordsBehind<Word, stop, 16>(row, count, value);
}

#else

template<class Word, StopAt stop>
std::size_t runOfWordsRight(const unsigned char *row, std::size_t count, Word value)
{
    return wordsBefore<Word, stop, 16>(row, count, value);
}

template<class Word, StopAt stop>
std::size_t runOfWordsLeft(const unsigned char *row, std::size_t count, Word value)
{
    return wordsBehind<Word, stop, 16>(row, count, value);
}

#endif

template<class Word, StopAt stop>
int wordsRight(const unsigned char *row, int x, int count, std::uint32_t value)
{
    const unsigned char *first = row + static_cast<std::size_t>(x) * sizeof(Word);
    return static_cast<int>(runOfWordsRight<Word, stop>(first, static_cast<std::size_t>(count),
                                                        static_cast<Word>(value)));
}

template<class Word, StopAt stop>
int wordsLeft(const unsigned char *row, int x, int count, std::uint32_t value)
{
    const unsigned char *last = row + static_cast<std::size_t>(x - count + 1) * sizeof(Word);
    return static_cast<int>(runOfWordsLeft<Word, stop>(last, static_cast<std::size_t>(count),
                                                       static_cast<Word>(value)));
}

// ---- pixels of three bytes -----------------------------------------------------------------------------

std::uint32_t triple(const unsigned char *row, int x)
{
    const unsigned char *bytes = row + 3 * static_cast<std::size_t>(x);
    return bytes[0] | static_cast<std::uint32_t>(bytes[1]) << 8 | static_cast<std::uint32_t>(bytes[2]) << 16;
}

template<StopAt stop>
int triplesAlong(const unsigned char *row, int x, int step, int count, std::uint32_t value)
{
    int run = 0;
    while (run < count && (triple(row, x + run * step) == value) != (stop == StopAt::Equal))
        ++run;
    return run;
}

// ---- pixels that share a byte --------------------------------------------------------------------------

template<int depth>
struct Packed
{
    static constexpr int PerByte = 8 / depth;
    static constexpr unsigned char LowestBits = 0xFF / ((1 << depth) - 1); // of every pixel

    static int positionOf(int x) { return x & (PerByte - 1); }

    static unsigned char maskOf(int x)
    {
        if constexpr (depth == 1)
            return lgs_Mask8[positionOf(x)];
        else if constexpr (depth == 2)
            return lgs_Mask4[positionOf(x)];
        else
            return lgs_Mask2[positionOf(x)];
    }

    /// A byte of nothing but pixels of that value. Bits that a pixel has no room for run into its neighbour.
    static unsigned char replicated(std::uint32_t value)
    {
        if constexpr (depth == 1)
            return value != 0 ? 0xFF : 0;
        else if constexpr (depth == 2)
            return static_cast<unsigned char>(value | value << 2 | value << 4 | value << 6);
        else
            return static_cast<unsigned char>(value | value << 4);
    }

    template<StopAt stop>
    static bool stops(const unsigned char *row, int x, unsigned char values)
    {
        const bool isEqual = ((row[x / PerByte] ^ values) & maskOf(x)) == 0;
        return isEqual == (stop == StopAt::Equal);
    }

    /// Whether any pixel of the byte stops the walk.
    template<StopAt stop>
    static bool anyStops(unsigned char byte, unsigned char values)
    {
        int difference = byte ^ values;
        if constexpr (stop == StopAt::Different)
            return difference != 0;
        for (int shift = depth / 2; shift > 0; shift /= 2)
            difference |= difference >> shift;
        return (difference & LowestBits) != LowestBits;
    }

    template<StopAt stop>
    static int right(const unsigned char *row, int x, int count, std::uint32_t value)
    {
        const unsigned char values = replicated(value);
        int run = 0;
        while (run < count) {
            const int at = x + run;
            if (positionOf(at) == 0 && count - run >= PerByte && !anyStops<stop>(row[at / PerByte], values))
                run += PerByte;
            else if (!stops<stop>(row, at, values))
                ++run;
            else
                break;
        }
        return run;
    }

    template<StopAt stop>
    static int left(const unsigned char *row, int x, int count, std::uint32_t value)
    {
        const unsigned char values = replicated(value);
        int run = 0;
        while (run < count) {
            const int at = x - run;
            const bool isWholeByte = positionOf(at) == PerByte - 1 && count - run >= PerByte;
            if (isWholeByte && !anyStops<stop>(row[at / PerByte], values))
                run += PerByte;
            else if (!stops<stop>(row, at, values))
                ++run;
            else
                break;
        }
        return run;
    }

    static std::uint32_t at(const unsigned char *row, int x)
    {
        return static_cast<std::uint32_t>(row[x / PerByte] >> (PerByte - 1 - positionOf(x)) * depth)
               & ((1u << depth) - 1);
    }

    static void fill(unsigned char *row, int first, int last, std::uint32_t value)
    {
        const unsigned char values = replicated(value);
        const int fromFirst = 0xFF >> positionOf(first) * depth;
        const int toLast = 0xFF << (PerByte - 1 - positionOf(last)) * depth;
        const auto merge = [values](unsigned char &byte, int mask) {
            byte = static_cast<unsigned char>((byte & ~mask) | (values & mask));
        };
        unsigned char *const firstByte = row + first / PerByte;
        unsigned char *const lastByte = row + last / PerByte;
        if (firstByte == lastByte) {
            merge(*firstByte, fromFirst & toLast);
        } else {
            merge(*firstByte, fromFirst);
            std::memset(firstByte + 1, values, static_cast<std::size_t>(lastByte - firstByte - 1));
            merge(*lastByte, toLast);
        }
    }
};

} // namespace

template<StopAt stop>
int runRight(const unsigned char *row, int depth, int x, int count, std::uint32_t value)
{
    switch (depth) {
    case 1: return Packed<1>::right<stop>(row, x, count, value);
    case 2: return Packed<2>::right<stop>(row, x, count, value);
    case 4: return Packed<4>::right<stop>(row, x, count, value);
    case 8: return wordsRight<std::uint8_t, stop>(row, x, count, value);
    case 16: return wordsRight<std::uint16_t, stop>(row, x, count, value);
    case 24: return triplesAlong<stop>(row, x, 1, count, value);
    case 32: return wordsRight<std::uint32_t, stop>(row, x, count, value);
    default: return 0;
    }
}

template<StopAt stop>
int runLeft(const unsigned char *row, int depth, int x, int count, std::uint32_t value)
{
    switch (depth) {
    case 1: return Packed<1>::left<stop>(row, x, count, value);
    case 2: return Packed<2>::left<stop>(row, x, count, value);
    case 4: return Packed<4>::left<stop>(row, x, count, value);
    case 8: return wordsLeft<std::uint8_t, stop>(row, x, count, value);
    case 16: return wordsLeft<std::uint16_t, stop>(row, x, count, value);
    case 24: return triplesAlong<stop>(row, x, -1, count, value);
    case 32: return wordsLeft<std::uint32_t, stop>(row, x, count, value);
    default: return 0;
    }
}

template int runRight<StopAt::Equal>(const unsigned char *, int, int, int, std::uint32_t);
template int runRight<StopAt::Different>(const unsigned char *, int, int, int, std::uint32_t);
template int runLeft<StopAt::Equal>(const unsigned char *, int, int, int, std::uint32_t);
template int runLeft<StopAt::Different>(const unsigned char *, int, int, int, std::uint32_t);

bool isServed(int depth)
{
    return depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 16 || depth == 24 || depth == 32;
}

std::uint32_t pixel(const unsigned char *row, int depth, int x)
{
    const auto index = static_cast<std::size_t>(x);
    switch (depth) {
    case 1: return Packed<1>::at(row, x);
    case 2: return Packed<2>::at(row, x);
    case 4: return Packed<4>::at(row, x);
    case 8: return row[index];
    case 16: return load<std::uint16_t>(row + 2 * index);
    case 24: return triple(row, x);
    case 32: return load<std::uint32_t>(row + 4 * index) & RGB_MASK;
    default: return 0xFFFFFFFF;
    }
}

void fill32(unsigned char *target, std::size_t count, std::uint32_t word)
{
    // The words of the C library that have 32 bits. Alignment is nothing to it.
    static_assert(sizeof(wchar_t) == sizeof word);
    std::wmemset(static_cast<wchar_t *>(static_cast<void *>(target)), static_cast<wchar_t>(word), count);
}

bool fill(unsigned char *row, int depth, int first, int last, std::uint32_t value)
{
    const auto begin = static_cast<std::size_t>(first);
    const auto count = static_cast<std::size_t>(last - first) + 1;
    switch (depth) {
    case 1: Packed<1>::fill(row, first, last, value); return true;
    case 2: Packed<2>::fill(row, first, last, value); return true;
    case 4: Packed<4>::fill(row, first, last, value); return true;
    case 8: std::memset(row + begin, static_cast<unsigned char>(value), count); return true;
    case 16: {
        const auto word = static_cast<std::uint16_t>(value);
        fill32(row + 2 * begin, count / 2, word * 0x00010001u);
        if (count % 2 != 0)
            std::memcpy(row + 2 * (begin + count - 1), &word, sizeof word);
        return true;
    }
    case 24: return true; // Deliberately not written.
    case 32: fill32(row + 4 * begin, count, value); return true;
    default: return false;
    }
}

} // namespace KxDibRow
