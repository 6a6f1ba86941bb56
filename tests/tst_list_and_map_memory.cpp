// SPDX-License-Identifier: MIT
#include "KxChildOutcome.h"
#include "KxTestCase.h"
#include "KxTextRows.h"

#include "KxAfxColl.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <functional>
#include <new>
#include <string>

using ListAction = std::function<void(CStringList &)>;
Q_DECLARE_METATYPE(ListAction)

namespace {

std::atomic<long> liveArrays{0};
std::atomic<long> liveObjects{0};
std::atomic<std::size_t> lastArrayBytes{0};
std::atomic<bool> throwingArraysFail{false};
std::atomic<bool> quietArraysFail{false};
std::atomic<bool> objectsFail{false};

/// Memory with something in it, so that what is not initialised shows.
void *filledMemory(std::size_t bytes)
{
    void *const memory = std::malloc(bytes ? bytes : 1);
    if (memory)
        std::memset(memory, 0xA5, bytes);
    return memory;
}

void *newArray(std::size_t bytes, bool fails)
{
    void *const memory = fails ? nullptr : filledMemory(bytes);
    if (memory) {
        ++liveArrays;
        lastArrayBytes = bytes;
    }
    return memory;
}

void *newObject(std::size_t bytes)
{
    void *const memory = objectsFail ? nullptr : filledMemory(bytes);
    if (memory)
        ++liveObjects;
    return memory;
}

void *orThrow(void *memory)
{
    return memory ? memory : throw std::bad_alloc();
}

void release(void *memory, std::atomic<long> &live)
{
    if (memory)
        --live;
    std::free(memory);
}

} // namespace

// What the whole program allocates, the libraries included, goes through these.
void *operator new[](std::size_t bytes) { return orThrow(newArray(bytes, throwingArraysFail)); }
void *operator new[](std::size_t bytes, const std::nothrow_t &) noexcept
{
    return newArray(bytes, quietArraysFail);
}
void operator delete[](void *memory) noexcept { release(memory, liveArrays); }
void operator delete[](void *memory, std::size_t) noexcept { release(memory, liveArrays); }
void operator delete[](void *memory, const std::nothrow_t &) noexcept { release(memory, liveArrays); }
void *operator new(std::size_t bytes) { return orThrow(newObject(bytes)); }
void *operator new(std::size_t bytes, const std::nothrow_t &) noexcept { return newObject(bytes); }
void operator delete(void *memory) noexcept { release(memory, liveObjects); }
void operator delete(void *memory, std::size_t) noexcept { release(memory, liveObjects); }
void operator delete(void *memory, const std::nothrow_t &) noexcept { release(memory, liveObjects); }

namespace {

/// What has been allocated since it was made and is not released yet.
class Memory
{
public:
    long arrays() const { return liveArrays - m_arrays; }
    long objects() const { return liveObjects - m_objects; }
    long all() const { return arrays() + objects(); }

private:
    const long m_arrays = liveArrays;
    const long m_objects = liveObjects;
};

/// Nothing of a kind can be allocated while it lives.
class Failing
{
public:
    explicit Failing(std::atomic<bool> &kind) : m_kind(kind) { m_kind = true; }
    ~Failing() { m_kind = false; }

private:
    std::atomic<bool> &m_kind;
};

using Map = CMapStringToPtr;

const wchar_t longText[] = L"a text that no string object keeps inside itself";

/// The protected members, for everybody.
class OpenList : public CStringList
{
public:
    using CStringList::CNode;
    using CStringList::CStringList;
    using CStringList::FreeNode;
    using CStringList::NewNode;
    bool isAsNew() const { return !m_pNodeHead && !m_pNodeTail && m_nCount == 0 && !m_pNodeFree
        && !m_pBlocks; }
    long blocks() const { return length(m_pBlocks); }

    static long length(const CPlex *block) { return block ? 1 + length(block->pNext) : 0; }
};
class OpenMap : public CMapStringToPtr
{
public:
    using CMapStringToPtr::CMapStringToPtr;
    bool isAsNew(unsigned int bucketCount) const
    {
        return !m_pHashTable && m_nHashTableSize == bucketCount && m_nCount == 0 && !m_pFreeList
            && !m_pBlocks;
    }
    long blocks() const { return OpenList::length(m_pBlocks); }
    CAssoc **buckets() const { return m_pHashTable; }
};

void *number(int value)
{
    return reinterpret_cast<void *>(quintptr(value));
}

/// Adds a string of each character.
void fill(CStringList &list, const wchar_t *letters)
{
    for (; *letters; ++letters)
        list.AddTail(CString(*letters));
}

/// Adds a key of each character; the values are 1, 2, 3 ...
void fill(Map &map, const wchar_t *letters)
{
    for (int value = 1; *letters; ++letters, ++value)
        map.SetAt(CString(*letters), number(value));
}

std::wstring content(const CStringList &list)
{
    std::wstring text;
    POSITION position = list.GetHeadPosition();
    for (long i = 0; position && i <= list.GetCount(); ++i)
        text += list.GetNext(position) + L"|";
    return text + std::to_wstring(list.GetCount());
}

bool holds(const Map &map, const wchar_t *key, const void *value)
{
    void *found = nullptr;
    return map.Lookup(key, found) && found == value;
}

/// What `ask` answers for an empty map.
template<typename Ask>
NumberCall asked(Ask ask)
{
    return [ask] {
        OpenMap map(2);
        return qint64(ask(map));
    };
}

} // namespace

class tst_ListAndMapMemory : public KxTestCase
{
    Q_OBJECT

private slots:
    void blockChain_data();
    void blockChain() { compare(); }
    void listBlocks_data();
    void listBlocks() { compare(); }
    void listMemory_data();
    void listMemory() { compare(); }
    void listWithoutMemory_data();
    void listWithoutMemory();
    void mapBlocks_data();
    void mapBlocks() { compare(); }
    void mapMemory_data();
    void mapMemory() { compare(); }
    void mapTable_data();
    void mapTable() { compare(); }
    void mapWithoutTable_data();
    void mapWithoutTable() { compare(); }

private:
    static void compare()
    {
        QFETCH(NumberCall, call);
        QFETCH(qint64, expected);
        QCOMPARE(call(), expected);
    }
    static void columns()
    {
        QTest::addColumn<NumberCall>("call");
        QTest::addColumn<qint64>("expected");
    }
};

// ---- the block chain ----------------------------------------------------------------------------------

void tst_ListAndMapMemory::blockChain_data()
{
    columns();
    numberRow("a header is one pointer", [] { return qint64(sizeof(CPlex)); }, 8);
    numberRow("the field is the next block", [] {
        CPlex *head = nullptr;
        CPlex *const first = CPlex::Create(head, 1, 1);
        CPlex *const second = CPlex::Create(head, 1, 1);
        const bool same = second->pNext == first && !first->pNext;
        head->FreeDataChain();
        return same;
    }, 1);
    numberRow("data() is 8 bytes behind the block", [] {
        CPlex *head = nullptr;
        CPlex *const block = CPlex::Create(head, 2, 4);
        const qint64 distance = static_cast<char *>(block->data()) - reinterpret_cast<char *>(block);
        block->FreeDataChain();
        return distance;
    }, 8);

    const auto createdFrom = [](unsigned long count, unsigned long bytes) {
        return [count, bytes] {
            const Memory memory;
            CPlex *head = nullptr;
            return !CPlex::Create(head, count, bytes) && !head && memory.all() == 0;
        };
    };
    numberRow("0 elements: null, and the chain stays empty", createdFrom(0, 8), 1);
    numberRow("elements of 0 bytes: null, and the chain stays empty", createdFrom(8, 0), 1);
    numberRow("0 elements of 0 bytes: null, and the chain stays empty", createdFrom(0, 0), 1);
    numberRow("0 elements leave a chain as it is", [] {
        CPlex *head = nullptr;
        CPlex *const block = CPlex::Create(head, 1, 1);
        const bool same = !CPlex::Create(head, 0, 1) && !CPlex::Create(head, 1, 0) && head == block
            && !block->pNext;
        block->FreeDataChain();
        return same;
    }, 1);

    numberRow("a block of 3 elements of 5 bytes is an array of 8 + 15 bytes", [] {
        CPlex *head = nullptr;
        CPlex::Create(head, 3, 5);
        const qint64 bytes = qint64(lastArrayBytes);
        head->FreeDataChain();
        return bytes;
    }, 23);
    numberRow("a block is one array", [] {
        const Memory memory;
        CPlex *head = nullptr;
        CPlex::Create(head, 3, 5);
        const long arrays = memory.arrays() * 10 + memory.objects();
        head->FreeDataChain();
        return arrays;
    }, 10);
    numberRow("the new block is returned and is the head", [] {
        CPlex *head = nullptr;
        CPlex *const block = CPlex::Create(head, 3, 5);
        const bool same = block && block == head;
        block->FreeDataChain();
        return same;
    }, 1);
    numberRow("a later block stands before an earlier one", [] {
        CPlex *head = nullptr;
        CPlex *const first = CPlex::Create(head, 1, 1);
        CPlex *const second = CPlex::Create(head, 1, 1);
        CPlex *const third = CPlex::Create(head, 1, 1);
        const bool same = head == third && third->pNext == second && second->pNext == first && !first->pNext;
        head->FreeDataChain();
        return same;
    }, 1);
    numberRow("more bytes than there are numbers for: throws, and the chain stays", [] {
        CPlex *head = nullptr;
        bool thrown = false;
        try {
            CPlex::Create(head, ULONG_MAX / 4, 5);
        } catch (const std::bad_alloc &) {
            thrown = true;
        }
        return thrown && !head;
    }, 1);
    numberRow("FreeDataChain() at the head releases all", [] {
        const Memory memory;
        CPlex *head = nullptr;
        for (int i = 0; i < 3; ++i)
            CPlex::Create(head, 4, 4);
        head->FreeDataChain();
        return memory.all();
    }, 0);
    numberRow("FreeDataChain() of the second of three leaves one", [] {
        const Memory memory;
        CPlex *head = nullptr;
        for (int i = 0; i < 3; ++i)
            CPlex::Create(head, 4, 4);
        head->pNext->FreeDataChain();
        const long left = memory.arrays();
        head->pNext = nullptr;
        head->FreeDataChain();
        return left;
    }, 1);
}

// ---- the list -----------------------------------------------------------------------------------------

void tst_ListAndMapMemory::listBlocks_data()
{
    columns();
    numberRow("a freed node's string is destroyed", [] {
        OpenList list(3);
        list.NewNode(nullptr, nullptr);
        const Memory memory;
        OpenList::CNode *const node = list.NewNode(nullptr, nullptr);
        node->data = longText;
        const bool hadMemory = memory.objects() == 1;
        list.FreeNode(node);
        return hadMemory && memory.objects() == 0;
    }, 1);
    numberRow("FreeNode of the last one releases the blocks", [] {
        const Memory memory;
        OpenList list(3);
        OpenList::CNode *const node = list.NewNode(nullptr, nullptr);
        const bool blockWasMade = memory.arrays() == 1;
        list.FreeNode(node);
        return blockWasMade && memory.all() == 0 && list.isAsNew();
    }, 1);
    const auto blocks = [](const char *promise, long blockSize, int count, long expected) {
        numberRow(promise, [=] {
            OpenList list(blockSize);
            for (int i = 0; i < count; ++i)
                list.AddTail(L"x");
            return list.blocks();
        }, expected);
    };
    blocks("no string, no block", 3, 0, 0);
    blocks("1 string in blocks of 3: 1 block", 3, 1, 1);
    blocks("3 strings in blocks of 3: 1 block", 3, 3, 1);
    blocks("4 strings in blocks of 3: 2 blocks", 3, 4, 2);
    blocks("7 strings in blocks of 3: 3 blocks", 3, 7, 3);
    blocks("5 strings in blocks of 1: 5 blocks", 1, 5, 5);
    blocks("a block size of 0 counts as 1", 0, 5, 5);
    blocks("a block size of -7 counts as 1", -7, 5, 5);
    blocks("the smallest block size counts as 1", LONG_MIN, 2, 2);
    numberRow("a block of 3 nodes has 8 bytes and 3 nodes", [] {
        OpenList list(3);
        list.AddTail(L"x");
        return qint64(lastArrayBytes);
    }, 8 + 3 * (16 + sizeof(CString)));
    numberRow("a block of block size 0 has 8 bytes and 1 node", [] {
        OpenList list(0);
        list.AddTail(L"x");
        return qint64(lastArrayBytes);
    }, 8 + 16 + sizeof(CString));
    numberRow("blocks stay while a string is left", [] {
        OpenList list(1);
        fill(list, L"abcd");
        while (list.GetCount() > 1)
            list.RemoveTail();
        return list.blocks();
    }, 4);
}

void tst_ListAndMapMemory::listMemory_data()
{
    columns();
    const auto emptied = [](const char *promise, auto empty) {
        numberRow(promise, [empty] {
            const Memory memory;
            OpenList list(2);
            for (int i = 0; i < 5; ++i)
                list.AddTail(longText);
            const bool blocksWereMade = memory.arrays() == 3 && memory.objects() == 5;
            empty(list);
            return blocksWereMade && memory.all() == 0 && list.isAsNew();
        }, 1);
    };
    emptied("RemoveAll releases all and resets the fields", [](OpenList &list) { list.RemoveAll(); });
    emptied("RemoveHead of the last string releases all", [](OpenList &list) {
        while (!list.IsEmpty())
            list.RemoveHead();
    });
    emptied("RemoveTail of the last string releases all", [](OpenList &list) {
        while (!list.IsEmpty())
            list.RemoveTail();
    });
    emptied("RemoveAt of the last string releases all", [](OpenList &list) {
        while (!list.IsEmpty())
            list.RemoveAt(list.FindIndex(list.GetCount() / 2));
    });
    numberRow("the destructor releases all", [] {
        const Memory memory;
        {
            OpenList list(2);
            for (int i = 0; i < 5; ++i)
                list.AddTail(longText);
        }
        return memory.all();
    }, 0);
    numberRow("a new list allocates nothing", [] {
        const Memory memory;
        const OpenList list(100);
        return memory.all();
    }, 0);
    numberRow("removing one string destroys one string", [] {
        OpenList list(10);
        list.AddTail(longText);
        list.AddTail(longText);
        const Memory memory;
        list.RemoveHead();
        return memory.objects();
    }, -1);
    numberRow("an emptied list makes one new block", [] {
        OpenList list(2);
        fill(list, L"abcde");
        list.RemoveAll();
        list.AddTail(L"x");
        return list.blocks();
    }, 1);
}

void tst_ListAndMapMemory::listWithoutMemory_data()
{
    QTest::addColumn<bool>("text");
    QTest::addColumn<ListAction>("action");
    using List = CStringList;
    const auto block = [](const char *call, ListAction action) {
        QTest::newRow(call) << false << std::move(action);
    };
    block("no block: AddHead", [](List &list) { list.AddHead(L"x"); });
    block("no block: AddTail", [](List &list) { list.AddTail(L"x"); });
    block("no block: AddHead of a list", [](List &list) { list.AddHead(&list); });
    block("no block: AddTail of a list", [](List &list) { list.AddTail(&list); });
    block("no block: InsertBefore", [](List &list) { list.InsertBefore(list.FindIndex(1), L"x"); });
    block("no block: InsertAfter", [](List &list) { list.InsertAfter(list.FindIndex(1), L"x"); });

    static const CString string = longText;
    const auto text = [](const char *call, ListAction action) {
        QTest::newRow(call) << true << std::move(action);
    };
    text("no text: AddHead, pointer", [](List &list) { list.AddHead(longText); });
    text("no text: AddHead, string", [](List &list) { list.AddHead(string); });
    text("no text: AddTail, pointer", [](List &list) { list.AddTail(longText); });
    text("no text: AddTail, string", [](List &list) { list.AddTail(string); });
    text("no text: InsertBefore, pointer",
        [](List &list) { list.InsertBefore(list.FindIndex(1), longText); });
    text("no text: InsertBefore, string", [](List &list) { list.InsertBefore(list.FindIndex(1), string); });
    text("no text: InsertAfter, pointer", [](List &list) { list.InsertAfter(list.FindIndex(1), longText); });
    text("no text: InsertAfter, string", [](List &list) { list.InsertAfter(list.FindIndex(1), string); });
}

void tst_ListAndMapMemory::listWithoutMemory()
{
    QFETCH(bool, text);
    QFETCH(ListAction, action);
    CStringList list(text ? 10 : 2);
    fill(list, L"ab");
    const Memory memory;
    bool thrown = false;
    try {
        const Failing failing(text ? objectsFail : throwingArraysFail);
        action(list);
    } catch (const std::bad_alloc &) {
        thrown = true;
    }
    QVERIFY(thrown);
    QCOMPARE(memory.all(), 0L);
    QCOMPARE(shown(content(list)), QStringLiteral("a|b|2"));
    list.AddTail(L"c");
    QCOMPARE(shown(content(list)), QStringLiteral("a|b|c|3"));
}

// ---- the map ------------------------------------------------------------------------------------------

void tst_ListAndMapMemory::mapBlocks_data()
{
    columns();
    numberRow("NewAssoc clears the whole key and the value", asked([](OpenMap &map) {
        const OpenMap::CAssoc *const association = map.NewAssoc();
        const wchar_t zeros[512] = {};
        return std::wmemcmp(association->key, zeros, 512) == 0 && !association->value;
    }), 1);
    numberRow("FreeAssoc of the last one clears the map", [] {
        const Memory memory;
        OpenMap map(3);
        map.InitHashTable(5);
        map.FreeAssoc(map.NewAssoc());
        return memory.arrays() == 0 && map.isAsNew(5);
    }, 1);
    const auto blocks = [](const char *promise, long blockSize, int count, long expected) {
        numberRow(promise, [=] {
            OpenMap map(blockSize);
            for (int i = 0; i < count; ++i)
                map.SetAt(std::to_wstring(i).c_str(), nullptr);
            return map.blocks();
        }, expected);
    };
    blocks("no key, no block", 3, 0, 0);
    blocks("1 key in blocks of 3: 1 block", 3, 1, 1);
    blocks("3 keys in blocks of 3: 1 block", 3, 3, 1);
    blocks("4 keys in blocks of 3: 2 blocks", 3, 4, 2);
    blocks("7 keys in blocks of 3: 3 blocks", 3, 7, 3);
    blocks("5 keys in blocks of 1: 5 blocks", 1, 5, 5);
    blocks("a block size of 0 counts as 1", 0, 5, 5);
    blocks("a block size of -7 counts as 1", -7, 5, 5);
    blocks("the smallest block size counts as 1", LONG_MIN, 2, 2);
    const auto blockBytes = [](long blockSize) {
        return [blockSize] {
            OpenMap map(blockSize);
            map.NewAssoc();
            return qint64(lastArrayBytes);
        };
    };
    numberRow("a block of 3 has 8 bytes and 3 associations", blockBytes(3), 8 + 3 * 2072);
    numberRow("a block of block size 0 has 8 bytes and 1 association", blockBytes(0), 8 + 2072);
    numberRow("blocks stay while a key is left", [] {
        OpenMap map(1);
        fill(map, L"abcd");
        for (const wchar_t *key : {L"a", L"b", L"c"})
            map.RemoveKey(key);
        return map.blocks();
    }, 4);
}

void tst_ListAndMapMemory::mapMemory_data()
{
    columns();
    numberRow("a new map allocates nothing", [] {
        const Memory memory;
        const OpenMap map(100);
        return memory.arrays();
    }, 0);
    numberRow("the first key makes a bucket array and a block", [] {
        const Memory memory;
        OpenMap map(2);
        fill(map, L"a");
        return memory.arrays();
    }, 2);
    const auto emptied = [](const char *promise, auto empty) {
        numberRow(promise, [empty] {
            const Memory memory;
            OpenMap map(2);
            fill(map, L"ARcde");
            const bool blocksWereMade = memory.arrays() == 4;
            empty(map);
            return blocksWereMade && memory.arrays() == 0 && map.isAsNew(17);
        }, 1);
    };
    emptied("RemoveAll releases blocks and bucket array", [](OpenMap &map) { map.RemoveAll(); });
    emptied("RemoveKey of the last key releases blocks and bucket array", [](OpenMap &map) {
        for (const wchar_t *key : {L"R", L"d", L"A", L"c", L"e"})
            map.RemoveKey(key);
    });
    numberRow("the destructor releases blocks and bucket array", [] {
        const Memory memory;
        {
            OpenMap map(2);
            fill(map, L"abcde");
        }
        return memory.arrays();
    }, 0);
    numberRow("the destructor releases the bucket array of an empty map", [] {
        const Memory memory;
        {
            OpenMap map(2);
            map.InitHashTable(100);
        }
        return memory.arrays();
    }, 0);
    numberRow("a key after the last one was removed makes 17 buckets again", [] {
        const Memory memory;
        OpenMap map(2);
        fill(map, L"a");
        map.RemoveKey(L"a");
        map.NewAssoc();
        const std::size_t blockBytes = lastArrayBytes;
        map[L"C"];
        return memory.arrays() == 2 && blockBytes == 8 + 2 * 2072 && lastArrayBytes == 17 * 8
            && map.GetHashTableSize() == 17 && map.buckets()[16]
                && map.buckets()[16]->key == std::wstring(L"C");
    }, 1);
    numberRow("the number of buckets stays when the map is emptied", [] {
        OpenMap map(2);
        map.InitHashTable(31);
        fill(map, L"ab");
        map.RemoveAll();
        return map.GetHashTableSize();
    }, 31);
    numberRow("the number of buckets stays when the last key is removed", [] {
        OpenMap map(2);
        map.InitHashTable(31);
        fill(map, L"a");
        map.RemoveKey(L"a");
        return map.GetHashTableSize();
    }, 31);
    numberRow("a key after the map was emptied makes that many buckets again", [] {
        OpenMap map(2);
        map.InitHashTable(31);
        fill(map, L"a");
        map.RemoveAll();
        map.NewAssoc();
        map[L"a"];
        return qint64(lastArrayBytes);
    }, 31 * 8);
}

// ---- the map's bucket array ---------------------------------------------------------------------------

void tst_ListAndMapMemory::mapTable_data()
{
    columns();
    numberRow("InitHashTable allocates 8 bytes a bucket", asked([](OpenMap &map) {
        map.InitHashTable(31, true);
        return qint64(lastArrayBytes);
    }), 31 * 8);
    numberRow("InitHashTable clears the buckets", asked([](OpenMap &map) {
        map.InitHashTable(31, true);
        return map.buckets() && std::count(map.buckets(), map.buckets() + 31, nullptr) == 31;
    }), 1);
    numberRow("InitHashTable, not now, allocates nothing", asked([](OpenMap &map) {
        const Memory memory;
        map.InitHashTable(31, false);
        return memory.arrays() == 0 && !map.buckets();
    }), 1);
    numberRow("the first key then makes the buckets", asked([](OpenMap &map) {
        map.InitHashTable(31, false);
        map.NewAssoc();
        map[L"a"];
        return lastArrayBytes == 31 * 8 && map.GetHashTableSize() == 31
            && map.buckets()['a' % 31] && map.buckets()['a' % 31]->key == std::wstring(L"a");
    }), 1);
    numberRow("InitHashTable releases the array that was there", asked([](OpenMap &map) {
        const Memory memory;
        map.InitHashTable(5, true);
        map.InitHashTable(7, true);
        return memory.arrays();
    }), 1);
    numberRow("InitHashTable, not now, releases the array that was there", asked([](OpenMap &map) {
        const Memory memory;
        map.InitHashTable(5, true);
        map.InitHashTable(7, false);
        return memory.arrays() == 0 && !map.buckets();
    }), 1);
}

void tst_ListAndMapMemory::mapWithoutTable_data()
{
    columns();
    const auto row = [](const char *promise, auto ask) {
        numberRow(promise, [ask] {
            OpenMap map(2);
            map.InitHashTable(5, true);
            {
                const Failing failing(quietArraysFail);
                map.InitHashTable(31, true);
            }
            return ask(map) ? 1 : 0;
        }, 1);
    };
    row("the number of buckets stays", [](OpenMap &map) { return map.GetHashTableSize() == 5; });
    row("there is no bucket array", [](OpenMap &map) { return !map.buckets(); });
    row("Lookup finds nothing", [](OpenMap &map) {
        void *value = nullptr;
        return !map.Lookup(L"a", value);
    });
    row("RemoveKey finds nothing", [](OpenMap &map) { return !map.RemoveKey(L"a"); });
    row("a key makes the buckets when they can be allocated", [](OpenMap &map) {
        map.SetAt(L"a", number(1));
        return map.GetHashTableSize() == 5 && map.GetCount() == 1 && holds(map, L"a", number(1));
    });
    numberRow("the array that was there is released", [] {
        const Memory memory;
        OpenMap map(2);
        map.InitHashTable(5, true);
        const Failing failing(quietArraysFail);
        map.InitHashTable(31, true);
        return memory.arrays();
    }, 0);
    numberRow("a new map keeps its 17", [] {
        OpenMap map(2);
        const Failing failing(quietArraysFail);
        map.InitHashTable(31, true);
        return map.GetHashTableSize();
    }, 17);
    numberRow("nothing is printed", [] {
        const KxChildOutcome outcome = kxRunInChild([] {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            OpenMap map(2);
            const Failing failing(quietArraysFail);
            map.InitHashTable(31, true);
            std::fflush(stdout);
        });
        return outcome.finished && outcome.standardError.isEmpty();
    }, 1);
    const auto thrownBy = [](std::atomic<bool> &kind) {
        return [&kind] {
            OpenMap map(2);
            bool thrown = false;
            try {
                const Failing failing(kind);
                map.SetAt(L"a", number(1));
            } catch (const std::bad_alloc &) {
                thrown = true;
            }
            const bool stayedEmpty = map.IsEmpty() && !map.GetStartPosition() && !holds(map, L"a", nullptr);
            map.SetAt(L"a", number(1));
            return thrown && stayedEmpty && map.GetCount() == 1 && holds(map, L"a", number(1));
        };
    };
    numberRow("a key whose buckets cannot be allocated throws and is not there",
        thrownBy(quietArraysFail), 1);
    numberRow("a key whose block cannot be allocated throws and is not there",
        thrownBy(throwingArraysFail), 1);
}

KX_TEST_MAIN(tst_ListAndMapMemory)
#include "tst_list_and_map_memory.moc"
