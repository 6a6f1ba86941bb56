// SPDX-License-Identifier: MIT
#include "KxAfxGeometry.h"
#include "KxDibData.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cwchar>
#include <numeric>
#include <vector>

// Fills and searches of one row at 32 bits beside std::fill, std::find and wmemchr(), the C library's vectorised
// search of the same words; the same over an image that no cache holds, beside reading it once; a flood fill.

namespace {

constexpr int Width = 4000;
constexpr int Height = 3000;
constexpr DWORD Paper = 0x00FFF8F0;
constexpr DWORD Ink = 0x00203040;
constexpr DWORD Opaque = 0xFF000000;

/// An image of paper, whose words can be got at too.
class Picture : public CDibData
{
public:
    Picture(int width, int height)
    {
        HDC dc = nullptr;
        HBITMAP bitmap = nullptr;
        makeBitmap(dc, bitmap, width, height, nullptr);
        for (int y = 0; y < height; ++y)
            DrawLineH(0, width - 1, y, Opaque | Paper);
    }

    DWORD *row(int y) { return static_cast<DWORD *>(static_cast<void *>(m_pRows[y])); }
};

// GCC leaves loops like std::fill() and the sum as they are at -O2.
#if defined(__clang__)
#  define VECTORISED __attribute__((noinline))
#else
#  define VECTORISED __attribute__((optimize("O3"), noinline))
#endif

void setBytes(benchmark::State &state, std::int64_t pixels)
{
    state.SetBytesProcessed(state.iterations() * pixels * 4);
}

// ---- one row -------------------------------------------------------------------------------------------

VECTORISED void fillWords(DWORD *first, DWORD *last, DWORD word)
{
    std::fill(first, last, word);
}

void rowFillStd(benchmark::State &state)
{
    Picture picture(Width, 1);
    const auto length = state.range(0);
    DWORD word = Ink;
    for (auto _ : state) {
        fillWords(picture.row(0) + 3, picture.row(0) + 3 + length, ++word);
        benchmark::ClobberMemory();
    }
    setBytes(state, length);
}

void rowDrawLineH(benchmark::State &state)
{
    Picture picture(Width, 1);
    const int length = static_cast<int>(state.range(0));
    DWORD word = Ink;
    for (auto _ : state) {
        picture.DrawLineH(3, 2 + length, 0, ++word);
        benchmark::ClobberMemory();
    }
    setBytes(state, length);
}

#define ROW_LENGTHS Arg(16)->Arg(100)->Arg(1000)->Arg(3990)
BENCHMARK(rowFillStd)->ROW_LENGTHS;
BENCHMARK(rowDrawLineH)->ROW_LENGTHS;

/// A row of paper with ink behind `length` pixels from 3 on, and in front of them.
Picture &searched(benchmark::State &state)
{
    static Picture picture(Width, 1);
    picture.DrawLineH(0, Width - 1, 0, Opaque | Paper);
    picture.DrawLineH(2, 2, 0, Opaque | Ink);
    picture.DrawLineH(3 + static_cast<int>(state.range(0)), Width - 1, 0, Opaque | Ink);
    setBytes(state, 0);
    return picture;
}

void rowFindStd(benchmark::State &state)
{
    const DWORD *row = searched(state).row(0);
    for (auto _ : state)
        benchmark::DoNotOptimize(std::find(row + 3, row + Width, Opaque | Ink));
    setBytes(state, state.range(0));
}

void rowWmemchr(benchmark::State &state)
{
    const void *row = searched(state).row(0) + 3;
    constexpr auto ink = static_cast<wchar_t>(Opaque | Ink);
    for (auto _ : state)
        benchmark::DoNotOptimize(std::wmemchr(static_cast<const wchar_t *>(row), ink, Width - 3));
    setBytes(state, state.range(0));
}

enum class Walk { SearchRight, ScanRight, SearchLeft, ScanLeft };

/// From `left` to the end of the row, or from `right` to its beginning, over paper to ink.
template<Walk walk>
int walkAlong(const CDibData &dib, int left, int right, int y)
{
    switch (walk) {
    case Walk::SearchRight: return dib.SearchRight(left, y, Width - 1, Ink);
    case Walk::ScanRight: return dib.ScanRight(left, y, Width - 1, Paper);
    case Walk::SearchLeft: return dib.SearchLeft(right, y, 0, Ink);
    default: return dib.ScanLeft(right, y, 0, Paper);
    }
}

template<Walk walk>
void rowWalk(benchmark::State &state)
{
    const Picture &picture = searched(state);
    const int length = static_cast<int>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(walkAlong<walk>(picture, 3, 2 + length, 0));
    setBytes(state, length);
}

BENCHMARK(rowFindStd)->ROW_LENGTHS;
BENCHMARK(rowWmemchr)->ROW_LENGTHS;
BENCHMARK_TEMPLATE(rowWalk, Walk::SearchRight)->ROW_LENGTHS->Name("rowSearchRight");
BENCHMARK_TEMPLATE(rowWalk, Walk::ScanRight)->ROW_LENGTHS->Name("rowScanRight");
BENCHMARK_TEMPLATE(rowWalk, Walk::SearchLeft)->ROW_LENGTHS->Name("rowSearchLeft");
BENCHMARK_TEMPLATE(rowWalk, Walk::ScanLeft)->ROW_LENGTHS->Name("rowScanLeft");

// ---- all rows: as fast as the memory --------------------------------------------------------------------

Picture &large()
{
    static Picture picture(Width, Height);
    return picture;
}

VECTORISED DWORD sumOf(const DWORD *first, const DWORD *last)
{
    return std::accumulate(first, last, 0u);
}

void imageRead(benchmark::State &state)
{
    Picture &picture = large();
    for (auto _ : state) {
        for (int y = 0; y < Height; ++y)
            benchmark::DoNotOptimize(sumOf(picture.row(y), picture.row(y) + Width));
    }
    setBytes(state, std::int64_t(Width) * Height);
}
BENCHMARK(imageRead)->Unit(benchmark::kMillisecond);

template<Walk walk>
void imageWalk(benchmark::State &state)
{
    const Picture &picture = large();
    for (auto _ : state) {
        for (int y = 0; y < Height; ++y)
            benchmark::DoNotOptimize(walkAlong<walk>(picture, 0, Width - 1, y));
    }
    setBytes(state, std::int64_t(Width) * Height);
}
BENCHMARK_TEMPLATE(imageWalk, Walk::SearchRight)
    ->Unit(benchmark::kMillisecond)->Name("imageSearchRight");
BENCHMARK_TEMPLATE(imageWalk, Walk::ScanRight)
    ->Unit(benchmark::kMillisecond)->Name("imageScanRight");
BENCHMARK_TEMPLATE(imageWalk, Walk::SearchLeft)
    ->Unit(benchmark::kMillisecond)->Name("imageSearchLeft");
BENCHMARK_TEMPLATE(imageWalk, Walk::ScanLeft)
    ->Unit(benchmark::kMillisecond)->Name("imageScanLeft");

void imageFillStd(benchmark::State &state)
{
    Picture picture(Width, Height);
    for (auto _ : state) {
        for (int y = 0; y < Height; ++y)
            fillWords(picture.row(y), picture.row(y) + Width, Ink);
        benchmark::ClobberMemory();
    }
    setBytes(state, std::int64_t(Width) * Height);
}
BENCHMARK(imageFillStd)->Unit(benchmark::kMillisecond);

void imageDrawLineH(benchmark::State &state)
{
    Picture picture(Width, Height);
    for (auto _ : state) {
        for (int y = 0; y < Height; ++y)
            picture.DrawLineH(0, Width - 1, y, Ink);
        benchmark::ClobberMemory();
    }
    setBytes(state, std::int64_t(Width) * Height);
}
BENCHMARK(imageDrawLineH)->Unit(benchmark::kMillisecond);

// ---- flood fill ----------------------------------------------------------------------------------------

/// Fills what has the value of the pixel, run by run.
void floodFill(CDibData &dib, int x, int y, DWORD value)
{
    const DWORD old = dib.GetPixelValue(x, y);
    std::vector<CPoint> seeds = {CPoint(x, y)};
    const int right = dib.GetWidth() - 1;
    while (!seeds.empty()) {
        const CPoint seed = seeds.back();
        seeds.pop_back();
        if (dib.GetPixelValue(seed.x, seed.y) != old)
            continue;
        const int first = dib.ScanLeft(seed.x, seed.y, 0, old) + 1;
        const int last = dib.ScanRight(seed.x, seed.y, right, old) - 1;
        dib.DrawLineH(first, last, seed.y, Opaque | value);
        for (const int next : {seed.y - 1, seed.y + 1}) {
            if (next < 0 || next >= dib.GetHeight())
                continue;
            for (int i = first; (i = dib.SearchRight(i, next, last, old)) <= last;) {
                seeds.emplace_back(i, next);
                i = dib.ScanRight(i, next, last, old);
                if (i > last)
                    break;
            }
        }
    }
}

/// Paper with a grid of crosses, so that runs are short and long.
void imageFlood(benchmark::State &state)
{
    Picture picture(Width, Height);
    for (int y = 0; y < Height; y += 20) {
        for (int x = 0; x < Width; x += 40)
            picture.DrawLineH(x, x + 25, y, Opaque | Ink);
    }
    DWORD value = Paper;
    for (auto _ : state)
        floodFill(picture, 1, 1, value ^= 0x00FF00);
    setBytes(state, std::int64_t(Width) * Height);
}
BENCHMARK(imageFlood)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
