// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace KxDibRow {

/// Where a walk along the row stops.
enum class StopAt { Equal, Different };

} // namespace KxDibRow

/// The walk over words of a length, for one kind of processor.
struct KxDibWalk
{
    using Run = std::size_t (*)(const unsigned char *row, std::size_t count, std::uint32_t value);

    Run rightToEqual;       ///< The words in front of the first that is the value.
    Run rightToDifferent;
    Run leftToEqual;        ///< The words behind the last that is the value.
    Run leftToDifferent;
};

/// For words of 1, 2 and 4 bytes; of the latter the high byte is not looked at.
using KxDibWalks = std::array<KxDibWalk, 3>;

/// What is made for one kind of processor.
struct KxDibKernel
{
    KxDibWalks walks;
    /// Writes words, at any address.
    void (*fill32)(unsigned char *target, std::size_t count, std::uint32_t word);
};

extern const KxDibKernel KxDibKernelOfAnyProcessor;
#if defined(__x86_64__)
extern const KxDibKernel KxDibKernelOfAvx2;
#endif
