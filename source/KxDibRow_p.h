// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// One row of pixels of a bitmap, as CDibData searches and fills it. Rows may start at any address; nothing outside
/// of the pixels asked for is touched, but for the bits that share a byte with them.
namespace KxDibRow {

/// Where a walk along the row stops.
enum class StopAt { Equal, Different };

/// How many pixels there are, at most `count`, from `x` on to the right before one that stops the walk.
template<StopAt stop>
int runRight(const unsigned char *row, int depth, int x, int count, std::uint32_t value);
/// The same to the left: `x`, `x - 1` and so on.
template<StopAt stop>
int runLeft(const unsigned char *row, int depth, int x, int count, std::uint32_t value);

/// Whether the walks and pixel() serve a depth.
bool isServed(int depth);

/// The pixel at `x`, without the alpha; 0xFFFFFFFF for a depth that is not served.
std::uint32_t pixel(const unsigned char *row, int depth, int x);

/// Writes words of 32 bits.
void fill32(unsigned char *target, std::size_t count, std::uint32_t word);

/// Makes the pixels from `first` to `last` that value. At 24 bits nothing is written.
/// \return false for a depth that is not served
bool fill(unsigned char *row, int depth, int first, int last, std::uint32_t value);

} // namespace KxDibRow
