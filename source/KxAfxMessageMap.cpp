// SPDX-License-Identifier: MIT
#include "KxAfxMessageMap.h"

const AFX_MSGMAP *CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY end = {0, 0, 0, 0, nullptr, nullptr};
    static const AFX_MSGMAP map = {nullptr, &end};
    return &map;
}

const AFX_MSGMAP_ENTRY *KxFindMessageEntry(const AFX_MSGMAP *map, UINT message, UINT code, UINT id)
{
    for (; map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
        for (auto *entry = map->lpEntries; entry->signature; ++entry) {
            if (entry->nMessage == message && entry->nCode == code && id >= entry->nID && id <= entry->nLastID)
                return entry;
        }
    }
    return nullptr;
}
