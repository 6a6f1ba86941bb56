// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"

#include <QtCore/QList>

#include <cstddef>
#include <cstdint>
#include <cstring>

/// \file
/// Where the operations and fields of a class stand, as the Itanium C++ ABI lays them out.

/// The slot that a pointer to a virtual member holds; -1 for another member.
template<class Member>
int slotOf(Member member)
{
    struct {
        std::uintptr_t pointer;
        std::ptrdiff_t adjustment;
    } raw;
    static_assert(sizeof raw == sizeof member);
    std::memcpy(&raw, &member, sizeof raw);
    return raw.pointer % 2 == 1 ? static_cast<int>((raw.pointer - 1) / sizeof(void *)) : -1;
}

/// How many slots the table of `Class` has: the slot of the first operation that a derived class adds.
template<class Class>
int slotCount()
{
    struct Derived : Class {
        using Class::Class;
        virtual void next() {}
    };
    return slotOf(&Derived::next);
}

/// The table of an object that has virtual operations: its first word.
inline const void *const *tableOf(const void *object)
{
    const void *const *table = nullptr;
    std::memcpy(&table, object, sizeof table);
    return table;
}

/// The slots from `first` on, up to `count`, in which the tables of two objects differ.
inline QList<int> differences(const void *object, const void *other, int count, int first = 0)
{
    QList<int> found;
    for (int slot = first; slot < count; ++slot) {
        if (tableOf(object)[slot] != tableOf(other)[slot])
            found.append(slot);
    }
    return found;
}

/// The operations of CWnd that an object's class overrides, without the destructor in the slots 0 and 1.
inline QList<int> overridden(const CWnd &object)
{
    const CWnd window(nullptr);
    return differences(&object, &window, slotCount<CWnd>(), 2);
}

/// Where a field stands in its object, in bytes.
template<class Object, class Field>
int offsetOf(const Object &object, const Field &field)
{
    return static_cast<int>(reinterpret_cast<const char *>(&field) - reinterpret_cast<const char *>(&object));
}
