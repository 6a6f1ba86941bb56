// SPDX-License-Identifier: MIT
#pragma once

#include "KxDibData.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

/// \file
/// Bitmaps of every depth beside what their pixels are, told bit by bit.

/// Random numbers, the same ones for the same seed on every system.
class KxDibDice
{
public:
    explicit KxDibDice(unsigned int seed) : m_engine(seed) {}

    /// From 0 to `sides - 1`.
    int operator()(int sides) { return int(m_engine() % unsigned(sides)); }
    DWORD word() { return DWORD(m_engine()); }

private:
    std::mt19937 m_engine; // The standard says what each seed gives.
};

/// A CDibData whose fields can be looked at.
class KxOpenDib : public CDibData
{
public:
    using CDibData::m_nBitCount;
    using CDibData::m_pBits;
    using CDibData::m_pDC;
    using CDibData::m_pHeader;
    using CDibData::m_pImage;
    using CDibData::m_pRows;
};

/// A CDibData with a bitmap of its own.
struct KxMadeDib : KxOpenDib {
    KxMadeDib(int width, int height, HDC reference = nullptr)
    {
        makeBitmap(dc, bitmap, width, height, reference);
    }

    /// A pixel with its alpha.
    DWORD memory(int x, int y) const
    {
        DWORD value = 0;
        std::memcpy(&value, m_pBits + 4 * (y * GetWidth() + x), 4);
        return value;
    }

    HDC dc = nullptr;
    HBITMAP bitmap = nullptr;
};

/// A bitmap of any depth whose rows lie where the test puts them. The rows are not owned.
class KxForeignDib : public CDibData
{
public:
    /// A negative height stands for that many rows, too.
    KxForeignDib(int depth, int width, int height)
    {
        m_pHeader = static_cast<BITMAPINFOHEADER *>(std::calloc(1, sizeof(BITMAPINFOHEADER)));
        if (!m_pHeader)
            std::abort();
        m_pHeader->biSize = sizeof(BITMAPINFOHEADER);
        m_pHeader->biWidth = width;
        m_pHeader->biHeight = height;
        m_pRows = new unsigned char *[static_cast<std::size_t>(std::abs(height))]();
        m_nBitCount = static_cast<WORD>(depth);
    }
    /// Of one row.
    KxForeignDib(int depth, int width, unsigned char *row) : KxForeignDib(depth, width, 1) { setRow(0, row); }

    void setRow(int y, unsigned char *row) { m_pRows[y] = row; }
};

/// Memory of exactly the size that was asked for, at an address of any alignment: what lies behind it is not
/// this program's, and what lies before it is compared by isWhole().
class KxHeapRow
{
public:
    KxHeapRow(int offset, int size, KxDibDice &dice)
        : m_offset(offset)
        , m_size(size)
        , m_bytes(new unsigned char[static_cast<std::size_t>(offset + size + tail)])
    {
        const auto random = [&] { return static_cast<unsigned char>(dice(256)); };
        std::generate_n(m_bytes.get(), offset, random);
        std::generate_n(m_bytes.get() + offset + size, tail, random);
        std::fill_n(data(), size, static_cast<unsigned char>(0));
        m_guards.assign(m_bytes.get(), m_bytes.get() + offset + size + tail);
    }

    unsigned char *data() { return m_bytes.get() + m_offset; }
    int size() const { return m_size; }

    /// Whether the bytes around are as they were.
    bool isWhole() const
    {
        const unsigned char *const now = m_bytes.get();
        const std::size_t back = static_cast<std::size_t>(m_offset + m_size);
        return std::memcmp(now, m_guards.data(), static_cast<std::size_t>(m_offset)) == 0
               && std::memcmp(now + back, m_guards.data() + back, tail) == 0;
    }

private:
#if defined(__SANITIZE_ADDRESS__)
    static constexpr int tail = 0; // The sanitizer guards it.
#else
    static constexpr int tail = 16;
#endif

    const int m_offset;
    const int m_size;
    const std::unique_ptr<unsigned char[]> m_bytes;
    std::vector<unsigned char> m_guards;
};

/// Pages of memory between two that nobody may read: what touches a byte outside of it ends the program.
class KxFencedPages
{
public:
    explicit KxFencedPages(int size)
        : m_page(static_cast<std::size_t>(sysconf(_SC_PAGESIZE)))
        , m_inside((static_cast<std::size_t>(size) + m_page - 1) / m_page * m_page)
    {
        void *const all = mmap(nullptr, m_inside + 2 * m_page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (all == MAP_FAILED)
            std::abort();
        m_all = static_cast<unsigned char *>(all);
        if (mprotect(m_all + m_page, m_inside, PROT_READ | PROT_WRITE) != 0)
            std::abort();
    }
    ~KxFencedPages() { munmap(m_all, m_inside + 2 * m_page); }
    KxFencedPages(const KxFencedPages &) = delete;
    KxFencedPages &operator=(const KxFencedPages &) = delete;

    /// `size` bytes that begin at the front fence.
    unsigned char *front() { return m_all + m_page; }
    /// `size` bytes that end at the back fence.
    unsigned char *back(int size) { return m_all + m_page + m_inside - size; }

private:
    const std::size_t m_page;
    const std::size_t m_inside;
    unsigned char *m_all = nullptr;
};

/// A row of pixels of 1, 2, 4, 8, 16, 24 or 32 bits, one bit at a time.
class KxDibRowModel
{
public:
    KxDibRowModel(int depth, int width)
        : bytes(static_cast<std::size_t>((depth * width + 7) / 8))
        , m_depth(depth)
        , m_width(width)
    {
    }

    /// The row as it lies in memory.
    std::vector<unsigned char> bytes;

    int size() const { return int(bytes.size()); }
    void copyTo(unsigned char *row) const { std::copy(bytes.begin(), bytes.end(), row); }
    /// Whether those bytes are this row.
    bool isIn(const unsigned char *row) const { return std::equal(bytes.begin(), bytes.end(), row); }

    /// What GetPixelValue() reads.
    DWORD value(int x) const
    {
        if (x < 0 || x >= m_width)
            return 0xFFFFFFFF;
        DWORD result = 0;
        for (int bit = 0; bit < std::min(m_depth, 24); ++bit) {
            if (isSet(x, bit))
                result |= 1u << bit;
        }
        return result;
    }

    /// Whether a search for `v` stops at a pixel.
    bool isEqual(int x, DWORD v) const
    {
        if (m_depth >= 24)
            return value(x) == v;
        for (int bit = 0; bit < m_depth; ++bit) {
            if (isSet(x, bit) != isInked(x, bit, v))
                return false;
        }
        return true;
    }

    /// isEqual() of every pixel.
    std::vector<char> equality(DWORD v) const
    {
        std::vector<char> equal;
        for (int x = 0; x < m_width; ++x)
            equal.push_back(isEqual(x, v));
        return equal;
    }

    /// Where a walk stops; `step` is -1 to the left, 1 to the right.
    static int walk(const std::vector<char> &equal, int x, int limit, int step, bool stopsAtEqual)
    {
        const int width = int(equal.size());
        if (limit < 0 || limit >= width || x < 0 || x >= width)
            return limit + step;
        for (int at = x; step < 0 ? at >= limit : at <= limit; at += step) {
            if ((equal[static_cast<std::size_t>(at)] != 0) == stopsAtEqual)
                return at;
        }
        return limit + step;
    }

    /// Makes one pixel `v`.
    void draw(int x, DWORD v)
    {
        for (int bit = 0; bit < m_depth; ++bit) {
            unsigned char &byte = bytes[byteOf(x, bit)];
            const int mask = 1 << shiftOf(x, bit);
            byte = static_cast<unsigned char>(isInked(x, bit, v) ? byte | mask : byte & ~mask);
        }
    }

    /// Runs of a few values; the top bytes of 32-bit pixels and the bits behind the last pixel are random.
    void scatter(const std::vector<DWORD> &values, KxDibDice &dice)
    {
        for (unsigned char &byte : bytes)
            byte = static_cast<unsigned char>(dice(256));
        const int run = 1 << dice(7);
        DWORD value = values[static_cast<std::size_t>(dice(int(values.size())))];
        for (int x = 0; x < m_width; ++x) {
            if (dice(run) == 0)
                value = values[static_cast<std::size_t>(dice(int(values.size())))];
            draw(x, m_depth == 32 ? value | (dice.word() & 0xFF000000) : value);
        }
    }

private:
    std::size_t byteOf(int x, int bit) const
    {
        return static_cast<std::size_t>(m_depth * x / 8 + (m_depth > 8 ? bit / 8 : 0));
    }
    /// The place of a pixel's bit in its byte: below 8 bits the leftmost pixel is in the highest ones.
    int shiftOf(int x, int bit) const
    {
        return m_depth < 8 ? 8 - m_depth - m_depth * x % 8 + bit : bit % 8;
    }
    bool isSet(int x, int bit) const { return (bytes[byteOf(x, bit)] >> shiftOf(x, bit) & 1) != 0; }
    /// Whether a pixel of `v` has the bit. A `v` too large for 2 or 4 bits reaches into the neighbours.
    bool isInked(int x, int bit, DWORD v) const
    {
        if (m_depth == 1)
            return v != 0;
        if (m_depth > 4)
            return (v >> bit & 1) != 0;
        for (int from = shiftOf(x, bit); from >= 0; from -= m_depth) {
            if ((v >> from & 1) != 0)
                return true;
        }
        return false;
    }

    int m_depth;
    int m_width;
};

/// Three values of a depth that are easily taken for one another: one and the same but for a bit, or with its
/// bytes in another order.
inline std::vector<DWORD> kxLookalikes(int depth, KxDibDice &dice)
{
    const DWORD mask = depth >= 24 ? 0x00FFFFFF : (1u << depth) - 1;
    const DWORD first = dice.word() & mask;
    const DWORD second = first ^ (1u << dice(std::min(depth, 24)));
    if (depth < 16)
        return {first, second, dice.word() & mask};
    const int bits = std::min(depth, 24);
    return {first, second, (first << 8 | first >> (bits - 8)) & mask};
}

/// A flood fill as a program writes it: runs of the old colour, searched and drawn. The top byte of `v` is
/// drawn but not compared.
inline void kxFloodFill(CDibData &dib, int startX, int startY, DWORD v)
{
    const DWORD old = dib.GetPixelValue(startX, startY);
    if (old == (v & 0x00FFFFFF))
        return;
    std::vector<std::pair<int, int>> seeds{{startX, startY}};
    while (!seeds.empty()) {
        const auto [x, y] = seeds.back();
        seeds.pop_back();
        if (dib.GetPixelValue(x, y) != old)
            continue;
        const int left = dib.ScanLeft(x, y, 0, old) + 1;
        const int right = dib.ScanRight(x, y, dib.GetWidth() - 1, old) - 1;
        dib.DrawLineH(left, right, y, v);
        // Runs above from left to right, runs below from right to left; outside of the bitmap there are none.
        for (int at = dib.SearchRight(left, y - 1, right, old); at <= right;) {
            seeds.emplace_back(at, y - 1);
            at = dib.SearchRight(dib.ScanRight(at, y - 1, right, old), y - 1, right, old);
        }
        for (int at = dib.SearchLeft(right, y + 1, left, old); at >= left;) {
            seeds.emplace_back(at, y + 1);
            at = dib.SearchLeft(dib.ScanLeft(at, y + 1, left, old), y + 1, left, old);
        }
    }
}

/// The same with a queue of pixels, of a bitmap that `get` reads and `set` writes.
template<class Get, class Set>
void kxFloodFillByPixels(int width, int height, int startX, int startY, DWORD v, Get get, Set set)
{
    const DWORD old = get(startX, startY);
    if (old == v)
        return;
    std::deque<std::pair<int, int>> queue{{startX, startY}};
    set(startX, startY, v);
    while (!queue.empty()) {
        const auto [x, y] = queue.front();
        queue.pop_front();
        const std::pair<int, int> neighbours[] = {{x - 1, y}, {x + 1, y}, {x, y - 1}, {x, y + 1}};
        for (const auto &[nextX, nextY] : neighbours) {
            if (nextX < 0 || nextX >= width || nextY < 0 || nextY >= height || get(nextX, nextY) != old)
                continue;
            set(nextX, nextY, v);
            queue.emplace_back(nextX, nextY);
        }
    }
}
