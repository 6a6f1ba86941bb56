// SPDX-License-Identifier: MIT
#include "KxDibRow_p.h"

#include <cwchar>

namespace KxDibRow {

namespace {

const KxDibKernel &fastestKernel()
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        return KxDibKernelOfAvx2;
#endif
    return KxDibKernelOfAnyProcessor;
}

template<class Word>
Word load(const unsigned char *bytes)
{
    Word word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
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

const KxDibKernel kernelOfThisProcessor = fastestKernel();

template<StopAt stop>
int otherRight(const unsigned char *row, int depth, int x, int count, std::uint32_t value)
{
    switch (depth) {
    case 1: return Packed<1>::right<stop>(row, x, count, value);
    case 2: return Packed<2>::right<stop>(row, x, count, value);
    case 4: return Packed<4>::right<stop>(row, x, count, value);
    case 8: return wordsRight<std::uint8_t, stop>(row, x, count, value);
    case 16: return wordsRight<std::uint16_t, stop>(row, x, count, value);
    case 24: return triplesAlong<stop>(row, x, 1, count, value);
    default: return 0;
    }
}

template<StopAt stop>
int otherLeft(const unsigned char *row, int depth, int x, int count, std::uint32_t value)
{
    switch (depth) {
    case 1: return Packed<1>::left<stop>(row, x, count, value);
    case 2: return Packed<2>::left<stop>(row, x, count, value);
    case 4: return Packed<4>::left<stop>(row, x, count, value);
    case 8: return wordsLeft<std::uint8_t, stop>(row, x, count, value);
    case 16: return wordsLeft<std::uint16_t, stop>(row, x, count, value);
    case 24: return triplesAlong<stop>(row, x, -1, count, value);
    default: return 0;
    }
}

template int otherRight<StopAt::Equal>(const unsigned char *, int, int, int, std::uint32_t);
template int otherRight<StopAt::Different>(const unsigned char *, int, int, int, std::uint32_t);
template int otherLeft<StopAt::Equal>(const unsigned char *, int, int, int, std::uint32_t);
template int otherLeft<StopAt::Different>(const unsigned char *, int, int, int, std::uint32_t);

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

void fillMany32(unsigned char *target, std::size_t count, std::uint32_t word)
{
    static_assert(sizeof(wchar_t) == sizeof word);
    // From here on the C library is faster, at addresses that it may be given.
    constexpr std::size_t Many = 512;
    if (count >= Many && reinterpret_cast<std::uintptr_t>(target) % alignof(wchar_t) == 0)
        std::wmemset(static_cast<wchar_t *>(static_cast<void *>(target)), static_cast<wchar_t>(word), count);
    else
        kernelOfThisProcessor.fill32(target, count, word);
}

bool fillOther(unsigned char *row, int depth, int first, int last, std::uint32_t value)
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
    default: return false;
    }
}

} // namespace KxDibRow
