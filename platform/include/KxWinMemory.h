// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The global memory calls of Win32, on malloc(). Their handles are what the clipboard exchanges.

#include "KxPlatformExport.h"
#include "KxWinTypes.h"

#include <cstddef>
#include <cstdint>

/// What the handle of a movable block points at. Record and data are separate blocks of malloc().
struct KxGlobalMemory
{
    void *data;           ///< Null for a block without bytes.
    std::uint64_t size;   ///< Bytes.
    std::uint8_t locks;   ///< How many times it is locked; stays at 255.

    /// The size to ask malloc() for: enough for it to give a multiple of 16, by which a handle is known.
    static constexpr std::size_t allocation = 32;
};

/// Allocates `size` bytes. With GMEM_MOVEABLE the result is a handle for GlobalLock(), and 0 bytes make a
/// block that cannot be locked; without it, it is the data itself, at a multiple of 8. GMEM_ZEROINIT clears
/// the data, the other flags mean nothing.
/// \return null when there is not so much memory (ERROR_NOT_ENOUGH_MEMORY)
KX_PLATFORM_EXPORT HGLOBAL GlobalAlloc(UINT flags, SIZE_T size);

/// Locks a movable block once more. \return the data, for a fixed block the handle itself; null for a block
/// without bytes (ERROR_DISCARDED) and for null (ERROR_INVALID_HANDLE)
KX_PLATFORM_EXPORT LPVOID GlobalLock(HGLOBAL memory);

/// Takes back one GlobalLock(). \return whether the block is still locked, which a fixed one always is. False
/// with NO_ERROR in GetLastError() for one that has just been unlocked for good; with ERROR_NOT_LOCKED for
/// one that was not locked, and with ERROR_INVALID_HANDLE for null
KX_PLATFORM_EXPORT BOOL GlobalUnlock(HGLOBAL memory);

/// The size in bytes that was asked for; Windows may tell more. 0 for a block without bytes and for null
/// (ERROR_INVALID_HANDLE).
KX_PLATFORM_EXPORT SIZE_T GlobalSize(HGLOBAL memory);

/// Frees a block, locked or not; nothing happens for null. \return null
KX_PLATFORM_EXPORT HGLOBAL GlobalFree(HGLOBAL memory);
