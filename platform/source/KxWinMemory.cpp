// SPDX-License-Identifier: MIT
#include "KxWinMemory.h"

#include "KxWinError_p.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

// The handle of a movable block is its record, which malloc() puts at a multiple of 16. A fixed block is its
// data: it stands behind the record, and so 8 bytes behind a multiple of 16.

namespace {

constexpr std::uintptr_t handleAlignment = 16;
static_assert(sizeof(KxGlobalMemory) % handleAlignment == 8);
static_assert(alignof(std::max_align_t) % handleAlignment == 0);

bool isFixed(HGLOBAL memory)
{
    return reinterpret_cast<std::uintptr_t>(memory) % handleAlignment != 0;
}

KxGlobalMemory *recordOf(HGLOBAL memory)
{
    auto *record = static_cast<KxGlobalMemory *>(memory);
    return isFixed(memory) ? record - 1 : record;
}

/// Of a movable block; a fixed one is there even without bytes.
bool hasBytes(const KxGlobalMemory *record)
{
    return record->data && record->size > 0;
}

void *allocate(UINT flags, SIZE_T size)
{
    return flags & GMEM_ZEROINIT ? std::calloc(1, size) : std::malloc(size);
}

} // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T size)
{
    const bool fixed = !(flags & GMEM_MOVEABLE);
    if (size > SIZE_MAX - sizeof(KxGlobalMemory)) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    const SIZE_T recordSize = sizeof(KxGlobalMemory) + (fixed ? size : 0);
    void *block = allocate(flags, std::max(recordSize, KxGlobalMemory::allocation));
    auto *record = static_cast<KxGlobalMemory *>(block);
    void *data = fixed || size == 0 ? nullptr : allocate(flags, size);
    if (!record || (!fixed && size > 0 && !data)) {
        std::free(record);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    new (record) KxGlobalMemory{fixed ? record + 1 : data, size, 0};
    return fixed ? record->data : record;
}

LPVOID GlobalLock(HGLOBAL memory)
{
    if (!memory) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    if (isFixed(memory))
        return memory;
    KxGlobalMemory *const record = recordOf(memory);
    if (!hasBytes(record)) {
        SetLastError(ERROR_DISCARDED);
        return nullptr;
    }
    if (record->locks < UINT8_MAX)
        ++record->locks;
    return record->data;
}

BOOL GlobalUnlock(HGLOBAL memory)
{
    if (!memory)
        return kxFail(ERROR_INVALID_HANDLE);
    if (isFixed(memory))
        return true;
    KxGlobalMemory *const record = recordOf(memory);
    if (record->locks == 0)
        return kxFail(ERROR_NOT_LOCKED);
    if (--record->locks > 0)
        return true;
    return kxFail(NO_ERROR);
}

SIZE_T GlobalSize(HGLOBAL memory)
{
    if (!memory) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    const KxGlobalMemory *const record = recordOf(memory);
    return hasBytes(record) ? record->size : 0;
}

HGLOBAL GlobalFree(HGLOBAL memory)
{
    if (!memory)
        return nullptr;
    KxGlobalMemory *const record = recordOf(memory);
    if (!isFixed(memory))
        std::free(record->data);
    std::free(record);
    return nullptr;
}
