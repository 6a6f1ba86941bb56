// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxColl.h"

#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtTest/QtTest>

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>

/// \file
/// What the tests of the arrays share: the fields as the object's bytes tell them, a log of the memory that
/// is asked for, and the rows that hold for all four arrays. Replaces the program's operator new and delete:
/// one source file of a program includes it.

// ---- memory -----------------------------------------------------------------------------------------------

struct KxAllocation
{
    enum Kind { New, NewArray, Delete, DeleteArray };

    Kind kind;
    const void *address;
    std::size_t bytes; ///< Of New and NewArray.
};

/// Writes down what this thread allocates and releases, until it is stopped.
class KxAllocationLog
{
public:
    KxAllocationLog() { s_current = this; }
    ~KxAllocationLog() { stop(); }
    KxAllocationLog(const KxAllocationLog &) = delete;
    KxAllocationLog &operator=(const KxAllocationLog &) = delete;

    void stop() { s_current = nullptr; }
    /// From now on operator new[] throws.
    void refuseBlocks() { m_refuses = true; }

    /// How many there were, also when they were too many to be kept.
    long count(KxAllocation::Kind kind) const { return m_counts[kind]; }
    /// Those that were kept, in their order.
    QVector<KxAllocation> all(KxAllocation::Kind kind) const
    {
        QVector<KxAllocation> found;
        for (int i = 0; i < m_kept; ++i) {
            if (m_allocations[i].kind == kind)
                found.append(m_allocations[i]);
        }
        return found;
    }

    static void *allocate(std::size_t bytes, KxAllocation::Kind kind)
    {
        const bool refused = bytes > PTRDIFF_MAX
            || (s_current && s_current->m_refuses && kind == KxAllocation::NewArray);
        void *const address = refused ? nullptr : std::malloc(bytes == 0 ? 1 : bytes);
        note(kind, address, bytes);
        if (!address)
            throw std::bad_alloc();
        return address;
    }
    static void release(void *address, KxAllocation::Kind kind) noexcept
    {
        if (address)
            note(kind, address, 0);
        std::free(address);
    }

private:
    static void note(KxAllocation::Kind kind, const void *address, std::size_t bytes) noexcept
    {
        KxAllocationLog *const log = s_current;
        if (!log)
            return;
        ++log->m_counts[kind];
        if (log->m_kept < room)
            log->m_allocations[log->m_kept++] = {kind, address, bytes};
    }

    static constexpr int room = 256;
    static inline thread_local KxAllocationLog *s_current = nullptr;

    KxAllocation m_allocations[room];
    int m_kept = 0;
    long m_counts[4] = {};
    bool m_refuses = false;
};

void *operator new(std::size_t bytes)
{
    return KxAllocationLog::allocate(bytes, KxAllocation::New);
}

void *operator new[](std::size_t bytes)
{
    return KxAllocationLog::allocate(bytes, KxAllocation::NewArray);
}

void operator delete(void *address) noexcept
{
    KxAllocationLog::release(address, KxAllocation::Delete);
}

void operator delete(void *address, std::size_t) noexcept
{
    KxAllocationLog::release(address, KxAllocation::Delete);
}

void operator delete[](void *address) noexcept
{
    KxAllocationLog::release(address, KxAllocation::DeleteArray);
}

void operator delete[](void *address, std::size_t) noexcept
{
    KxAllocationLog::release(address, KxAllocation::DeleteArray);
}

/// Runs `function` while no block is to be had. \return whether it threw std::bad_alloc; `bytes` becomes the
/// size of the block that it wanted
template<class Function>
bool kxIsRefused(Function function, std::size_t *bytes = nullptr)
{
    bool refused = false;
    KxAllocationLog log;
    log.refuseBlocks();
    try {
        function();
    } catch (const std::bad_alloc &) {
        refused = true;
    }
    log.stop();
    const QVector<KxAllocation> blocks = log.all(KxAllocation::NewArray);
    if (bytes)
        *bytes = blocks.isEmpty() ? 0 : blocks.last().bytes;
    return refused;
}

// ---- fields and elements ----------------------------------------------------------------------------------

/// An array's bytes.
struct KxArrayFields
{
    const void *elements;
    long size;
    long allocated;
    long growBy;
};

template<class Array>
KxArrayFields kxFields(const Array &array)
{
    static_assert(sizeof(Array) == sizeof(KxArrayFields), "nothing but the four fields");
    KxArrayFields fields;
    std::memcpy(&fields, static_cast<const void *>(&array), sizeof fields);
    return fields;
}

template<class Array>
void kxSetFields(Array &array, const KxArrayFields &fields)
{
    std::memcpy(static_cast<void *>(&array), &fields, sizeof fields);
}

template<class Array>
struct KxArrayTag
{
    using Type = Array;
};

/// Elements by number: 0 is what a new element is, and the next hundred are all different.
template<class Array>
struct KxElement;

template<>
struct KxElement<CStringArray>
{
    using Type = CString;
    /// The odd ones fit into the string, the even ones do not.
    static CString of(int number)
    {
        if (number == 0)
            return CString();
        const std::wstring digits = std::to_wstring(number);
        return CString(number % 2 ? L"n" + digits : L"a text of more than a few letters, number " + digits);
    }
    static QString shown(const CString &element)
    {
        return QStringLiteral("\"%1\"").arg(QString::fromWCharArray(element.data(), int(element.size())));
    }
};

template<>
struct KxElement<CWordArray>
{
    using Type = unsigned short;
    static Type of(int number) { return static_cast<Type>(number * 0x0203); }
    static QString shown(Type element) { return QString::number(element); }
};

template<>
struct KxElement<CByteArray>
{
    using Type = unsigned char;
    static Type of(int number) { return static_cast<Type>(number); }
    static QString shown(Type element) { return QString::number(element); }
};

template<>
struct KxElement<CPtrArray>
{
    using Type = void *;
    static Type of(int number)
    {
        return number == 0 ? nullptr : reinterpret_cast<void *>(0x1122334455667700 + std::uintptr_t(number));
    }
    static QString shown(const void *element)
    {
        return QString::number(reinterpret_cast<std::uintptr_t>(element), 16);
    }
};

template<class Array>
auto kxElement(int number)
{
    return KxElement<Array>::of(number);
}

/// The elements `first`, `first` + 1, ..., in just the room they need.
template<class Array>
void kxFill(Array &array, int count, int first = 1)
{
    array.SetSize(count);
    for (int i = 0; i < count; ++i)
        array.SetAt(i, kxElement<Array>(first + i));
}

template<class Array>
QString kxShown(const Array &array)
{
    QStringList elements;
    for (long i = 0; i < array.GetSize(); ++i)
        elements.append(KxElement<Array>::shown(array.GetAt(i)));
    return elements.join(QLatin1Char(' '));
}

template<class Array>
QString kxShown(const QVector<int> &numbers)
{
    QStringList elements;
    for (int number : numbers)
        elements.append(KxElement<Array>::shown(kxElement<Array>(number)));
    return elements.join(QLatin1Char(' '));
}

/// What stands in an array and how much room it has.
template<class Array>
void kxCompare(const Array &array, const QVector<int> &contents, long allocated, long growBy)
{
    QCOMPARE(array.GetSize(), long(contents.size()));
    QCOMPARE(array.GetCount(), long(contents.size()));
    QCOMPARE(array.IsEmpty(), contents.isEmpty());
    QCOMPARE(kxShown(array), kxShown<Array>(contents));
    const KxArrayFields fields = kxFields(array);
    QCOMPARE(fields.size, long(contents.size()));
    QCOMPARE(fields.allocated, allocated);
    QCOMPARE(fields.growBy, growBy);
    QCOMPARE(fields.elements == nullptr, allocated == 0);
}

/// 1 to `last`, then `zeros` new elements.
inline QVector<int> kxNumbers(int last, int zeros = 0)
{
    QVector<int> numbers;
    for (int i = 1; i <= last; ++i)
        numbers.append(i);
    return numbers + QVector<int>(zeros, 0);
}

// ---- what holds for all four ------------------------------------------------------------------------------

template<class Array>
struct KxArrayRow
{
    const char *title;
    void (*run)(Array &); ///< Given a new array.
    QVector<int> contents;
    long allocated;
    long growBy = 0;
};

template<class Array>
QVector<KxArrayRow<Array>> kxSizeRows()
{
    return {
        {"new array", [](Array &) {}, {}, 0},
        {"SetSize: exactly the first allocation", [](Array &a) { a.SetSize(3); }, {0, 0, 0}, 3},
        {"SetSize: no step in the first allocation", [](Array &a) { a.SetSize(3, 100); }, {0, 0, 0}, 3, 100},
        {"SetSize: the fixed step in the second",
         [](Array &a) { kxFill(a, 3); a.SetSize(3, 100); a.SetSize(4); }, {1, 2, 3, 0}, 103, 100},
        {"SetSize: -1 leaves the step", [](Array &a) { a.SetSize(2, 7); a.SetSize(3, -1); }, {0, 0, 0}, 9, 7},
        {"SetSize: no second argument leaves the step",
         [](Array &a) { a.SetSize(2, 7); a.SetSize(3); }, {0, 0, 0}, 9, 7},
        {"SetSize: the new step counts at once",
         [](Array &a) { kxFill(a, 2); a.SetSize(3, 7); }, {1, 2, 0}, 9, 7},
        {"SetSize: 0 brings the computed step back",
         [](Array &a) { a.SetSize(5, 100); a.SetSize(5, 0); }, {0, 0, 0, 0, 0}, 5},
        {"SetSize: growth after 0 brought the computed step back",
         [](Array &a) { kxFill(a, 5); a.SetSize(5, 100); a.SetSize(5, 0); a.SetSize(6); },
         {1, 2, 3, 4, 5, 0}, 9},
        {"SetSize: a step of 1", [](Array &a) { a.SetSize(3, 1); a.SetSize(4); }, {0, 0, 0, 0}, 4, 1},
        {"SetSize: more than the fixed step",
         [](Array &a) { a.SetSize(3, 2); a.SetSize(9); }, QVector<int>(9), 9, 2},
        {"SetSize: a step too large to add",
         [](Array &a) { kxFill(a, 1); a.SetSize(1, LONG_MAX); a.SetSize(2); }, {1, 0}, 2, LONG_MAX},
        {"SetSize: 0 of a new array", [](Array &a) { a.SetSize(0); }, {}, 0},
        {"SetSize: 0 sets the step too", [](Array &a) { kxFill(a, 5); a.SetSize(0, 6); }, {}, 0, 6},
        {"SetSize: 0 releases the block", [](Array &a) { kxFill(a, 5); a.SetSize(0); }, {}, 0},
        {"SetSize: 0 releases the block of no elements",
         [](Array &a) { kxFill(a, 5); a.RemoveAt(0, 5); a.SetSize(0); }, {}, 0},
        {"SetSize: the same", [](Array &a) { kxFill(a, 5); a.SetSize(5); }, {1, 2, 3, 4, 5}, 5},
        {"SetSize: less keeps the room", [](Array &a) { kxFill(a, 5); a.SetSize(2); }, {1, 2}, 5},
        {"SetSize: more within the room",
         [](Array &a) { kxFill(a, 5); a.SetSize(2); a.SetSize(4); }, {1, 2, 0, 0}, 5},
        {"SetSize: all of the room",
         [](Array &a) { kxFill(a, 5); a.SetSize(2); a.SetSize(5); }, {1, 2, 0, 0, 0}, 5},
        {"SetSize: more than the room", [](Array &a) { kxFill(a, 5); a.SetSize(6); }, {1, 2, 3, 4, 5, 0}, 9},
        {"SetSize: just the step", [](Array &a) { kxFill(a, 5); a.SetSize(9); }, kxNumbers(5, 4), 9},
        {"SetSize: more than the step", [](Array &a) { kxFill(a, 5); a.SetSize(20); }, kxNumbers(5, 15), 20},
        {"SetSize: the step is of the size, not of the room",
         [](Array &a) { kxFill(a, 80); a.SetSize(8); a.SetSize(81); }, kxNumbers(8, 73), 84},
        {"SetSize: all new in grown room",
         [](Array &a) { kxFill(a, 5); a.SetSize(2); a.SetSize(6); }, {1, 2, 0, 0, 0, 0}, 9},

        {"RemoveAll", [](Array &a) { kxFill(a, 5); a.RemoveAll(); }, {}, 0},
        {"RemoveAll: of a new array", [](Array &a) { a.RemoveAll(); }, {}, 0},
        {"RemoveAll: keeps the step", [](Array &a) { a.SetSize(5, 100); a.RemoveAll(); }, {}, 0, 100},
        {"RemoveAll: the next allocation is exact again",
         [](Array &a) { kxFill(a, 5); a.SetSize(5, 100); a.RemoveAll(); a.SetSize(2); }, {0, 0}, 2, 100},

        {"FreeExtra: drops the room",
         [](Array &a) { kxFill(a, 5); a.SetSize(3); a.FreeExtra(); }, {1, 2, 3}, 3},
        {"FreeExtra: no extra", [](Array &a) { kxFill(a, 5); a.FreeExtra(); }, {1, 2, 3, 4, 5}, 5},
        {"FreeExtra: empty with room",
         [](Array &a) { kxFill(a, 5); a.RemoveAt(0, 5); a.FreeExtra(); }, {}, 0},
        {"FreeExtra: new array", [](Array &a) { a.FreeExtra(); }, {}, 0},
        {"FreeExtra: keeps the step",
         [](Array &a) { kxFill(a, 5); a.SetSize(3, 100); a.FreeExtra(); }, {1, 2, 3}, 3, 100},
        {"FreeExtra: growth goes on from there",
         [](Array &a) { kxFill(a, 5); a.SetSize(3); a.FreeExtra(); a.SetSize(4); }, {1, 2, 3, 0}, 7},

        {"RemoveAt: two in the middle", [](Array &a) { kxFill(a, 5); a.RemoveAt(1, 2); }, {1, 4, 5}, 5},
        {"RemoveAt: more than follow", [](Array &a) { kxFill(a, 5); a.RemoveAt(1, 3); }, {1, 5}, 5},
        {"RemoveAt: one when no number is given",
         [](Array &a) { kxFill(a, 5); a.RemoveAt(2); }, {1, 2, 4, 5}, 5},
        {"RemoveAt: the first", [](Array &a) { kxFill(a, 5); a.RemoveAt(0); }, {2, 3, 4, 5}, 5},
        {"RemoveAt: the last", [](Array &a) { kxFill(a, 5); a.RemoveAt(4); }, {1, 2, 3, 4}, 5},
        {"RemoveAt: the last two", [](Array &a) { kxFill(a, 5); a.RemoveAt(3, 2); }, {1, 2, 3}, 5},
        {"RemoveAt: all keeps the block", [](Array &a) { kxFill(a, 5); a.RemoveAt(0, 5); }, {}, 5},
        {"RemoveAt: none", [](Array &a) { kxFill(a, 5); a.RemoveAt(2, 0); }, {1, 2, 3, 4, 5}, 5},
        {"RemoveAt: none at the end", [](Array &a) { kxFill(a, 5); a.RemoveAt(5, 0); }, {1, 2, 3, 4, 5}, 5},
        {"RemoveAt: none past the end", [](Array &a) { kxFill(a, 5); a.RemoveAt(7, 0); }, {1, 2, 3, 4, 5}, 5},
        {"RemoveAt: none of a new array", [](Array &a) { a.RemoveAt(0, 0); }, {}, 0},
        {"RemoveAt: keeps the step",
         [](Array &a) { kxFill(a, 5); a.SetSize(5, 9); a.RemoveAt(0); }, {2, 3, 4, 5}, 5, 9},
        {"RemoveAt: the room it leaves is new again",
         [](Array &a) { kxFill(a, 5); a.RemoveAt(1, 2); a.SetSize(5); }, {1, 4, 5, 0, 0}, 5},
        {"RemoveAt: adding uses the room",
         [](Array &a) { kxFill(a, 5); a.RemoveAt(1, 2); a.Add(kxElement<Array>(9)); }, {1, 4, 5, 9}, 5},
    };
}

template<class Array>
QVector<KxArrayRow<Array>> kxElementRows()
{
    return {
        {"SetAt", [](Array &a) { kxFill(a, 3); a.SetAt(1, kxElement<Array>(9)); }, {1, 9, 3}, 3},
        {"SetAt: the same again",
         [](Array &a) { kxFill(a, 3); a.SetAt(1, kxElement<Array>(2)); }, {1, 2, 3}, 3},
        {"ElementAt is to be changed",
         [](Array &a) { kxFill(a, 3); a.ElementAt(2) = kxElement<Array>(9); }, {1, 2, 9}, 3},
        {"operator[] is to be changed",
         [](Array &a) { kxFill(a, 3); a[0] = kxElement<Array>(9); }, {9, 2, 3}, 3},

        {"SetAtGrow: inside",
         [](Array &a) { kxFill(a, 3); a.SetAtGrow(2, kxElement<Array>(9)); }, {1, 2, 9}, 3},
        {"SetAtGrow: at the end",
         [](Array &a) { kxFill(a, 3); a.SetAtGrow(3, kxElement<Array>(9)); }, {1, 2, 3, 9}, 7},
        {"SetAtGrow: past the end",
         [](Array &a) { kxFill(a, 3); a.SetAtGrow(5, kxElement<Array>(9)); }, {1, 2, 3, 0, 0, 9}, 7},
        {"SetAtGrow: far past the end",
         [](Array &a) { kxFill(a, 2); a.SetAtGrow(8, kxElement<Array>(9)); }, {1, 2, 0, 0, 0, 0, 0, 0, 9}, 9},
        {"SetAtGrow: of a new array", [](Array &a) { a.SetAtGrow(2, kxElement<Array>(9)); }, {0, 0, 9}, 3},
        {"SetAtGrow: past the end within the room",
         [](Array &a) { kxFill(a, 5); a.SetSize(2); a.SetAtGrow(3, kxElement<Array>(9)); }, {1, 2, 0, 9}, 5},
        {"SetAtGrow: by the fixed step, which stays",
         [](Array &a) { kxFill(a, 3); a.SetSize(3, 10); a.SetAtGrow(3, kxElement<Array>(9)); },
         {1, 2, 3, 9}, 13, 10},

        {"Add: the first", [](Array &a) { a.Add(kxElement<Array>(1)); }, {1}, 1},
        {"Add: the second",
         [](Array &a) { a.Add(kxElement<Array>(1)); a.Add(kxElement<Array>(2)); }, {1, 2}, 5},
        {"Add: within the room",
         [](Array &a) { kxFill(a, 5); a.SetSize(2); a.Add(kxElement<Array>(9)); }, {1, 2, 9}, 5},
        {"Add: by the fixed step, which stays",
         [](Array &a) { kxFill(a, 3); a.SetSize(3, 2); a.Add(kxElement<Array>(9)); }, {1, 2, 3, 9}, 5, 2},

        {"Append",
         [](Array &a) { Array b; kxFill(b, 2, 11); kxFill(a, 3); a.Append(b); }, {1, 2, 3, 11, 12}, 7},
        {"Append: to a new array", [](Array &a) { Array b; kxFill(b, 2, 11); a.Append(b); }, {11, 12}, 2},
        {"Append: within the room",
         [](Array &a) { Array b; kxFill(b, 2, 11); kxFill(a, 5); a.SetSize(1); a.Append(b); },
         {1, 11, 12}, 5},
        {"Append: more than the step",
         [](Array &a) { Array b; kxFill(b, 6, 11); kxFill(a, 1); a.Append(b); },
         {1, 11, 12, 13, 14, 15, 16}, 7},
        {"Append: by its own step",
         [](Array &a) {
             Array b;
             b.SetSize(0, 50);
             kxFill(b, 1, 11);
             kxFill(a, 2);
             a.SetSize(2, 9);
             a.Append(b);
         },
         {1, 2, 11}, 11, 9},
        {"Append: only the elements, not the room",
         [](Array &a) { Array b; kxFill(b, 5, 11); b.SetSize(1); kxFill(a, 1); a.Append(b); }, {1, 11}, 5},
        {"Append: nothing", [](Array &a) { Array b; kxFill(a, 3); a.Append(b); }, {1, 2, 3}, 3},
        {"Append: nothing to nothing releases the block",
         [](Array &a) { Array b; kxFill(a, 3); a.RemoveAt(0, 3); a.Append(b); }, {}, 0},
        {"Append: itself, without elements",
         [](Array &a) { kxFill(a, 3); a.RemoveAt(0, 3); a.Append(a); }, {}, 0},

        {"Copy: of as many",
         [](Array &a) { Array b; kxFill(b, 2, 11); kxFill(a, 2); a.Copy(b); }, {11, 12}, 2},
        {"Copy: to a new array", [](Array &a) { Array b; kxFill(b, 2, 11); a.Copy(b); }, {11, 12}, 2},
        {"Copy: of fewer keeps the room",
         [](Array &a) { Array b; kxFill(b, 2, 11); kxFill(a, 5); a.Copy(b); }, {11, 12}, 5},
        {"Copy: of more",
         [](Array &a) { Array b; kxFill(b, 4, 11); kxFill(a, 2); a.Copy(b); }, {11, 12, 13, 14}, 6},
        {"Copy: of nothing releases the block", [](Array &a) { Array b; kxFill(a, 2); a.Copy(b); }, {}, 0},
        {"Copy: the own step stays",
         [](Array &a) {
             Array b;
             b.SetSize(0, 50);
             kxFill(b, 1, 11);
             kxFill(a, 2);
             a.SetSize(2, 9);
             a.Copy(b);
         },
         {11}, 2, 9},
        {"Copy: itself", [](Array &a) { kxFill(a, 5); a.SetSize(3, 10); a.Copy(a); }, {1, 2, 3}, 5, 10},
        {"Copy: itself, without elements, keeps the room",
         [](Array &a) { kxFill(a, 3); a.RemoveAt(0, 3); a.Copy(a); }, {}, 3},

        {"InsertAt: one when no number is given",
         [](Array &a) { kxFill(a, 3); a.InsertAt(1, kxElement<Array>(9)); }, {1, 9, 2, 3}, 7},
        {"InsertAt: in front",
         [](Array &a) { kxFill(a, 3); a.InsertAt(0, kxElement<Array>(9), 2); }, {9, 9, 1, 2, 3}, 7},
        {"InsertAt: fewer than follow",
         [](Array &a) { kxFill(a, 5); a.InsertAt(2, kxElement<Array>(9), 2); }, {1, 2, 9, 9, 3, 4, 5}, 9},
        {"InsertAt: as many as follow",
         [](Array &a) { kxFill(a, 5); a.InsertAt(3, kxElement<Array>(9), 2); }, {1, 2, 3, 9, 9, 4, 5}, 9},
        {"InsertAt: more than follow",
         [](Array &a) { kxFill(a, 3); a.InsertAt(2, kxElement<Array>(9), 3); }, {1, 2, 9, 9, 9, 3}, 7},
        {"InsertAt: more than the step",
         [](Array &a) { kxFill(a, 2); a.InsertAt(1, kxElement<Array>(9), 6); }, {1, 9, 9, 9, 9, 9, 9, 2}, 8},
        {"InsertAt: within the room",
         [](Array &a) { kxFill(a, 8); a.SetSize(5); a.InsertAt(1, kxElement<Array>(9), 2); },
         {1, 9, 9, 2, 3, 4, 5}, 8},
        {"InsertAt: at the end",
         [](Array &a) { kxFill(a, 3); a.InsertAt(3, kxElement<Array>(9), 2); }, {1, 2, 3, 9, 9}, 7},
        {"InsertAt: past the end",
         [](Array &a) { kxFill(a, 3); a.InsertAt(7, kxElement<Array>(9), 2); },
         {1, 2, 3, 0, 0, 0, 0, 9, 9}, 9},
        {"InsertAt: into a new array", [](Array &a) { a.InsertAt(0, kxElement<Array>(9), 3); }, {9, 9, 9}, 3},
        {"InsertAt: past the end of a new array",
         [](Array &a) { a.InsertAt(2, kxElement<Array>(9)); }, {0, 0, 9}, 3},
        {"InsertAt: none",
         [](Array &a) { kxFill(a, 5); a.InsertAt(2, kxElement<Array>(9), 0); }, {1, 2, 3, 4, 5}, 5},
        {"InsertAt: none at the end",
         [](Array &a) { kxFill(a, 5); a.InsertAt(5, kxElement<Array>(9), 0); }, {1, 2, 3, 4, 5}, 5},
        {"InsertAt: none past the end makes the array longer",
         [](Array &a) { kxFill(a, 5); a.InsertAt(7, kxElement<Array>(9), 0); }, {1, 2, 3, 4, 5, 0, 0}, 9},
        {"InsertAt: none of no elements releases the block",
         [](Array &a) { kxFill(a, 3); a.RemoveAt(0, 3); a.InsertAt(0, kxElement<Array>(9), 0); }, {}, 0},
        {"InsertAt: fewer than none past the end makes the array shorter",
         [](Array &a) { kxFill(a, 5); a.InsertAt(7, kxElement<Array>(9), -3); }, {1, 2, 3, 4}, 5},

        {"InsertAt: an array", [](Array &a) { Array b; kxFill(b, 2, 11); kxFill(a, 3); a.InsertAt(1, &b); },
         {1, 11, 12, 2, 3}, 7},
        {"InsertAt: an array in front",
         [](Array &a) { Array b; kxFill(b, 3, 11); kxFill(a, 2); a.InsertAt(0, &b); }, {11, 12, 13, 1, 2}, 6},
        {"InsertAt: an array of more than follow",
         [](Array &a) { Array b; kxFill(b, 3, 11); kxFill(a, 3); a.InsertAt(2, &b); },
         {1, 2, 11, 12, 13, 3}, 7},
        {"InsertAt: an array at the end",
         [](Array &a) { Array b; kxFill(b, 2, 11); kxFill(a, 3); a.InsertAt(3, &b); }, {1, 2, 3, 11, 12}, 7},
        {"InsertAt: an array past the end",
         [](Array &a) { Array b; kxFill(b, 2, 11); kxFill(a, 3); a.InsertAt(5, &b); },
         {1, 2, 3, 0, 0, 11, 12}, 7},
        {"InsertAt: an array of one",
         [](Array &a) { Array b; kxFill(b, 1, 11); kxFill(a, 2); a.InsertAt(1, &b); }, {1, 11, 2}, 6},
        {"InsertAt: an array without elements",
         [](Array &a) { Array b; kxFill(a, 3); a.InsertAt(1, &b); }, {1, 2, 3}, 3},
        {"InsertAt: an array without elements past the end",
         [](Array &a) { Array b; kxFill(a, 3); a.InsertAt(9, &b); }, {1, 2, 3}, 3},
        {"InsertAt: an array without elements before the start",
         [](Array &a) { Array b; kxFill(a, 3); a.InsertAt(-1, &b); }, {1, 2, 3}, 3},
        {"InsertAt: the array itself",
         [](Array &a) { kxFill(a, 3); a.InsertAt(1, &a); }, {1, 1, 2, 3, 2, 3}, 7},
        {"InsertAt: no array",
         [](Array &a) { kxFill(a, 3); a.InsertAt(1, static_cast<Array *>(nullptr)); }, {1, 2, 3}, 3},
        {"InsertAt: no array before the start",
         [](Array &a) { kxFill(a, 3); a.InsertAt(-1, static_cast<Array *>(nullptr)); }, {1, 2, 3}, 3},

        {"own element: SetAt", [](Array &a) { kxFill(a, 3); a.SetAt(0, a[1]); }, {2, 2, 3}, 3},
        {"own element: SetAt its place", [](Array &a) { kxFill(a, 3); a.SetAt(1, a[1]); }, {1, 2, 3}, 3},
        {"own element: SetAtGrow", [](Array &a) { kxFill(a, 3); a.SetAtGrow(4, a[1]); }, {1, 2, 3, 0, 2}, 7},
        {"own element: Add, short text", [](Array &a) { kxFill(a, 2); a.Add(a[0]); }, {1, 2, 1}, 6},
        {"own element: Add, long text", [](Array &a) { kxFill(a, 2); a.Add(a[1]); }, {1, 2, 2}, 6},
        {"own element: Add within the room",
         [](Array &a) { kxFill(a, 3); a.SetSize(2); a.Add(a[1]); }, {1, 2, 2}, 3},
        {"own element: InsertAt before it, long text",
         [](Array &a) { kxFill(a, 3); a.InsertAt(0, a[1], 3); }, {2, 2, 2, 1, 2, 3}, 7},
        {"own element: InsertAt before it, short text",
         [](Array &a) { kxFill(a, 3); a.InsertAt(0, a[2], 3); }, {3, 3, 3, 1, 2, 3}, 7},
        {"own element: InsertAt its place within the room",
         [](Array &a) { kxFill(a, 6); a.SetSize(3); a.InsertAt(1, a[1], 2); }, {1, 2, 2, 2, 3}, 6},
        {"own element: InsertAt, short text within the room",
         [](Array &a) { kxFill(a, 6); a.SetSize(3); a.InsertAt(0, a[0], 2); }, {1, 1, 1, 2, 3}, 6},
        {"own element: InsertAt behind it within the room",
         [](Array &a) { kxFill(a, 6); a.SetSize(3); a.InsertAt(2, a[1]); }, {1, 2, 2, 3}, 6},
        {"own element: InsertAt past the end",
         [](Array &a) { kxFill(a, 3); a.InsertAt(5, a[1], 2); }, {1, 2, 3, 0, 0, 2, 2}, 7},
    };
}

template<class Array>
QVector<KxArrayRow<Array>> kxArrayRows()
{
    return kxSizeRows<Array>() + kxElementRows<Array>();
}

template<class Array>
void kxTitleRows(const QVector<KxArrayRow<Array>> &rows)
{
    QTest::addColumn<int>("row");
    for (int i = 0; i < rows.size(); ++i)
        QTest::newRow(rows.at(i).title) << i;
}

template<class Array>
void kxCheckRow(const KxArrayRow<Array> &row)
{
    Array array;
    row.run(array);
    kxCompare(array, row.contents, row.allocated, row.growBy);
}

/// Each field is found where it stands.
template<class Array>
void kxCheckFieldOffsets()
{
    Array array;
    const char *const bytes = static_cast<const char *>(static_cast<const void *>(&array));
    const auto numberAt = [bytes](int offset) {
        long number;
        std::memcpy(&number, bytes + offset, sizeof number);
        return number;
    };
    for (int offset = 0; offset < 32; offset += 8)
        QCOMPARE(numberAt(offset), 0L);
    array.SetSize(4, 7);
    array.SetSize(5);
    const void *block;
    std::memcpy(&block, bytes, sizeof block);
    QCOMPARE(block, static_cast<const void *>(&array.GetAt(0)));
    QCOMPARE(numberAt(8), 5L);
    QCOMPARE(numberAt(16), 11L);
    QCOMPARE(numberAt(24), 7L);
}

/// Every way to an element leads to the same one, in order in the block.
template<class Array>
void kxCheckReferences()
{
    using Element = typename KxElement<Array>::Type;
    static_assert(std::is_same_v<decltype(std::declval<Array &>()[0]), Element &>);
    static_assert(std::is_same_v<decltype(std::declval<Array &>().ElementAt(0)), Element &>);
    static_assert(std::is_reference_v<decltype(std::declval<const Array &>().GetAt(0))>);
    static_assert(std::is_reference_v<decltype(std::declval<const Array &>()[0])>);

    Array array;
    kxFill(array, 5);
    const Array &constant = array;
    const auto *const block = static_cast<const Element *>(kxFields(array).elements);
    for (long i = 0; i < 5; ++i) {
        QCOMPARE(static_cast<const void *>(&constant.GetAt(i)), static_cast<const void *>(block + i));
        QCOMPARE(static_cast<const void *>(&constant[i]), static_cast<const void *>(block + i));
        QCOMPARE(static_cast<const void *>(&array[i]), static_cast<const void *>(block + i));
        QCOMPARE(static_cast<const void *>(&array.ElementAt(i)), static_cast<const void *>(block + i));
    }
}

/// A wrong index is not corrected.
template<class Array>
void kxCheckWrongIndex()
{
    using Element = typename KxElement<Array>::Type;
    QFETCH(int, index);
    Array array;
    kxFill(array, 8);
    array.SetSize(5);
    const Array &constant = array;
    const auto *const slot = static_cast<const Element *>(kxFields(array).elements) + index;
    QCOMPARE(static_cast<const void *>(&constant.GetAt(index)), static_cast<const void *>(slot));
    QCOMPARE(static_cast<const void *>(&constant[index]), static_cast<const void *>(slot));
    QCOMPARE(static_cast<const void *>(&array[index]), static_cast<const void *>(slot));
    QCOMPARE(static_cast<const void *>(&array.ElementAt(index)), static_cast<const void *>(slot));
    kxCompare(array, {1, 2, 3, 4, 5}, 8, 0);
}

inline void kxWrongIndexRows()
{
    QTest::addColumn<int>("index");
    QTest::newRow("the size reads the slot behind the last") << 5;
    QTest::newRow("past the size reads on") << 7;
    QTest::newRow("-1 reads the slot before the first") << -1;
}

/// Add and Append say where the new elements begin.
template<class Array>
void kxCheckReturnedIndexes()
{
    Array array;
    QCOMPARE(array.Add(kxElement<Array>(1)), 0L);
    QCOMPARE(array.Add(kxElement<Array>(2)), 1L);
    Array source;
    kxFill(source, 3, 11);
    QCOMPARE(array.Append(source), 2L);
    QCOMPARE(array.Append(Array()), 5L);
    QCOMPARE(array.Add(kxElement<Array>(9)), 5L);
    QCOMPARE(Array().Append(source), 0L);
    kxCompare(array, {1, 2, 11, 12, 13, 9}, 9, 0);
    kxCompare(source, {11, 12, 13}, 3, 0);
}

/// Elements added one by one: the room after each.
template<class Array>
void kxCheckGrowth()
{
    static const QVector<long> rooms{
        0, 1, 5, 9, 13, 17, 21, 25, 29, 33, 37, 41, 46, 51, 57, 64, 72, 81, 91, 102, 114, 128, 144, 162, 182,
        204, 229, 257, 289, 325, 365, 410, 461, 518, 582, 654, 735, 826, 929, 1045, 1175, 1321, 1486, 1671,
        1879, 2113, 2377, 2674, 3008, 3384, 3807, 4282, 4817, 5419, 6096, 6858, 7715, 8679, 9703, 10727,
        11751, 12775, 13799};
    Array array;
    int step = 0;
    for (long size = 0; size <= 13000; ++size) {
        if (size > rooms.at(step))
            ++step;
        if (kxFields(array).allocated != rooms.at(step) || array.GetSize() != size)
            QFAIL(qPrintable(QStringLiteral("%1 elements: size %2, room for %3 instead of %4").arg(size)
                                 .arg(array.GetSize()).arg(kxFields(array).allocated).arg(rooms.at(step))));
        QCOMPARE(array.Add(kxElement<Array>(int(size % 100))), size);
    }
    for (long i = 0; i <= 13000; ++i) {
        if (!(array.GetAt(i) == kxElement<Array>(int(i % 100))))
            QFAIL(qPrintable(QStringLiteral("element %1 is another").arg(i)));
    }
}

inline void kxStepRows()
{
    QTest::addColumn<long>("size");
    QTest::addColumn<long>("newSize");
    QTest::addColumn<long>("allocated");
    QTest::newRow("1 grows by 4") << 1L << 2L << 5L;
    QTest::newRow("31 grows by 4") << 31L << 32L << 35L;
    QTest::newRow("32 grows by 4, an eighth") << 32L << 33L << 36L;
    QTest::newRow("39 grows by 4, an eighth rounded down") << 39L << 40L << 43L;
    QTest::newRow("40 grows by 5") << 40L << 41L << 45L;
    QTest::newRow("800 grows by 100") << 800L << 801L << 900L;
    QTest::newRow("8191 grows by 1023") << 8191L << 8192L << 9214L;
    QTest::newRow("8192 grows by 1024") << 8192L << 8193L << 9216L;
    QTest::newRow("8199 grows by 1024") << 8199L << 8200L << 9223L;
    QTest::newRow("8200 grows by 1024") << 8200L << 8201L << 9224L;
    QTest::newRow("8208 grows by 1024") << 8208L << 8209L << 9232L;
    QTest::newRow("20000 grows by 1024") << 20000L << 20001L << 21024L;
    QTest::newRow("8200 to 10000 takes 10000") << 8200L << 10000L << 10000L;
    QTest::newRow("8200 to just 1024 more") << 8200L << 9224L << 9224L;
}

template<class Array>
void kxCheckStep()
{
    QFETCH(long, size);
    QFETCH(long, newSize);
    QFETCH(long, allocated);
    Array array;
    array.SetSize(size);
    QCOMPARE(kxFields(array).allocated, size);
    array.SetSize(newSize);
    QCOMPARE(kxFields(array).allocated, allocated);
    QCOMPARE(array.GetSize(), newSize);
}

/// The room that is asked for when an array of more elements than there is memory for grows by one. No
/// memory is touched.
template<class Array>
void kxCheckHugeStep(long size, long allocated)
{
    Array array;
    array.SetSize(1);
    const KxArrayFields before = kxFields(array);
    kxSetFields(array, {before.elements, size, size, 0});
    std::size_t bytes = 0;
    const bool refused = kxIsRefused([&] { array.SetSize(size + 1); }, &bytes);
    kxSetFields(array, before);
    QVERIFY(refused);
    QCOMPARE(long(bytes / sizeof(typename KxElement<Array>::Type)), allocated);
}

/// Blocks come from operator new[] and go back through operator delete[], at the moments told.
template<class Array>
struct KxBlockRow
{
    const char *title;
    int size;
    int room;
    void (*run)(Array &);
    long newBlock;  ///< Elements; -1: none is allocated.
    bool releases;
};

template<class Array>
QVector<KxBlockRow<Array>> kxBlockRows()
{
    return {
        {"SetSize: the first", 0, 0, [](Array &a) { a.SetSize(3); }, 3, false},
        {"SetSize: none for no elements", 0, 0, [](Array &a) { a.SetSize(0); }, -1, false},
        {"SetSize: none within the room", 2, 5, [](Array &a) { a.SetSize(5); }, -1, false},
        {"SetSize: none for fewer", 5, 5, [](Array &a) { a.SetSize(1); }, -1, false},
        {"SetSize: a larger one", 5, 5, [](Array &a) { a.SetSize(6); }, 9, true},
        {"SetSize: released with the elements", 5, 5, [](Array &a) { a.SetSize(0); }, -1, true},
        {"RemoveAll: released", 2, 5, [](Array &a) { a.RemoveAll(); }, -1, true},
        {"RemoveAt: stays", 5, 5, [](Array &a) { a.RemoveAt(0, 5); }, -1, false},
        {"FreeExtra: a smaller one", 3, 5, [](Array &a) { a.FreeExtra(); }, 3, true},
        {"FreeExtra: stays when it fits", 5, 5, [](Array &a) { a.FreeExtra(); }, -1, false},
        {"FreeExtra: released when there is no element", 0, 5, [](Array &a) { a.FreeExtra(); }, -1, true},
        {"FreeExtra: none", 0, 0, [](Array &a) { a.FreeExtra(); }, -1, false},
        {"Copy: itself", 3, 5, [](Array &a) { a.Copy(a); }, -1, false},
        {"destructor", 3, 5, [](Array &a) { a.~Array(); new (&a) Array; }, -1, true},
        {"destructor of an array without a block", 0, 0,
         [](Array &a) { a.~Array(); new (&a) Array; }, -1, false},
        {"destructor of an array with room only", 0, 5,
         [](Array &a) { a.~Array(); new (&a) Array; }, -1, true},
    };
}

template<class Array>
void kxTitleRows(const QVector<KxBlockRow<Array>> &rows)
{
    QTest::addColumn<int>("row");
    for (int i = 0; i < rows.size(); ++i)
        QTest::newRow(rows.at(i).title) << i;
}

template<class Array>
void kxCheckBlocks(const KxBlockRow<Array> &row)
{
    Array array;
    kxFill(array, row.room);
    array.RemoveAt(row.size, row.room - row.size);
    const void *const before = kxFields(array).elements;
    KxAllocationLog log;
    row.run(array);
    log.stop();
    const QVector<KxAllocation> allocated = log.all(KxAllocation::NewArray);
    const QVector<KxAllocation> released = log.all(KxAllocation::DeleteArray);
    QCOMPARE(allocated.size(), row.newBlock < 0 ? 0 : 1);
    QCOMPARE(released.size(), row.releases ? 1 : 0);
    if (row.newBlock >= 0) {
        const std::size_t elementSize = sizeof(typename KxElement<Array>::Type);
        QCOMPARE(allocated.first().bytes, std::size_t(row.newBlock) * elementSize);
        QCOMPARE(kxFields(array).elements, allocated.first().address);
    } else {
        QCOMPARE(kxFields(array).elements, row.releases ? nullptr : before);
    }
    if (row.releases)
        QCOMPARE(released.first().address, before);
}

/// When there is no memory std::bad_alloc comes out, and the array is as it was.
template<class Array>
void kxCheckNoMemory()
{
    Array fresh;
    QVERIFY(kxIsRefused([&] { fresh.SetSize(1); }));
    kxCompare(fresh, {}, 0, 0);
    QVERIFY(kxIsRefused([&] { fresh.Add(kxElement<Array>(1)); }));
    kxCompare(fresh, {}, 0, 0);
    QVERIFY(kxIsRefused([&] { fresh.SetSize(-1); }));
    kxCompare(fresh, {}, 0, 0);

    Array array;
    kxFill(array, 5);
    QVERIFY(kxIsRefused([&] { array.SetSize(6); }));
    QVERIFY(kxIsRefused([&] { array.Add(kxElement<Array>(9)); }));
    QVERIFY(kxIsRefused([&] { array.SetAtGrow(7, kxElement<Array>(9)); }));
    QVERIFY(kxIsRefused([&] { array.InsertAt(2, kxElement<Array>(9), 2); }));
    kxCompare(array, {1, 2, 3, 4, 5}, 5, 0);
    array.SetSize(3);
    QVERIFY(kxIsRefused([&] { array.FreeExtra(); }));
    kxCompare(array, {1, 2, 3}, 5, 0);
}

/// A block of a negative number of elements is more than there is.
template<class Array>
void kxCheckNegativeSizeOfANewArray()
{
    Array array;
    bool refused = false;
    try {
        array.SetSize(-1);
    } catch (const std::bad_alloc &) {
        refused = true;
    }
    QVERIFY(refused);
    kxCompare(array, {}, 0, 0);
}
