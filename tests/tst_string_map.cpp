// SPDX-License-Identifier: MIT
#include "KxTestCase.h"
#include "KxTextRows.h"

#include "KxAfxColl.h"

#include <climits>
#include <cstddef>
#include <cstring>
#include <cwchar>
#include <string>
#include <type_traits>

Q_DECLARE_METATYPE(std::wstring)

namespace {

using Map = CMapStringToPtr;
using Assoc = CMapStringToPtr::CAssoc;

/// The object as the fields that it consists of.
struct Fields
{
    Assoc **buckets;
    unsigned int bucketCount;
    qint64 count;
    Assoc *free;
    qint64 blocks;
    qint64 blockSize;
};
static_assert(sizeof(Fields) == 48 && sizeof(Map) == 48);

Fields fieldsOf(const Map &map)
{
    Fields fields;
    std::memcpy(&fields, &map, sizeof fields);
    return fields;
}

template<typename Pointer>
qint64 address(Pointer pointer)
{
    return static_cast<qint64>(reinterpret_cast<quintptr>(pointer));
}

POSITION positionOf(const Assoc *association)
{
    return reinterpret_cast<POSITION>(quintptr(association));
}

POSITION beforeFirst()
{
    return reinterpret_cast<POSITION>(~quintptr(0));
}

void *number(int value)
{
    return reinterpret_cast<void *>(quintptr(value));
}

int numberOf(const void *value)
{
    return int(reinterpret_cast<quintptr>(value));
}

Assoc *find(const Map &map, const wchar_t *key)
{
    unsigned int bucket = 0;
    unsigned int hash = 0;
    return map.GetAssocAt(key, bucket, hash);
}

/// Adds a key of each character; the values are 1, 2, 3 ...
void fill(Map &map, const wchar_t *letters)
{
    for (int value = 1; *letters; ++letters, ++value)
        map.SetAt(CString(*letters), number(value));
}

/// "key=value|" for each element in the map's order; the count must agree.
std::wstring content(const Map &map)
{
    std::wstring text;
    long count = 0;
    for (POSITION position = map.GetStartPosition(); position; ++count) {
        CString key;
        void *value = nullptr;
        map.GetNextAssoc(position, key, value);
        text += key + L"=" + std::to_wstring(numberOf(value)) + L"|";
    }
    if (map.GetCount() != count || map.GetSize() != count || map.IsEmpty() != (count == 0))
        return L"the count is wrong";
    return text;
}

/// What a map of these letters holds after `edit`.
template<typename Edit>
TextCall edited(const wchar_t *letters, Edit edit)
{
    return [letters, edit] {
        Map map(2);
        fill(map, letters);
        edit(map);
        return content(map);
    };
}

/// What `ask` answers for a map of these letters.
template<typename Ask>
NumberCall asked(const wchar_t *letters, Ask ask)
{
    return [letters, ask] {
        Map map(2);
        fill(map, letters);
        return qint64(ask(map));
    };
}

// In the table of 17 buckets, 'A', 'R' and 'c' are in bucket 14, '3' and 'D' in bucket 0.
const wchar_t oneBucket[] = L"ARc";
static_assert('A' % 17 == 14 && 'R' % 17 == 14 && 'c' % 17 == 14 && '3' % 17 == 0 && 'D' % 17 == 0);

} // namespace

class tst_StringMap : public KxTestCase
{
    Q_OBJECT

private slots:
    void hashes_data();
    void hashes();
    void layout_data();
    void layout() { compareNumber(); }
    void contents_data();
    void contents() { compareText(); }
    void lookups_data();
    void lookups() { compareNumber(); }
    void iteration_data();
    void iteration() { compareNumber(); }
    void associations_data();
    void associations() { compareNumber(); }
    void table_data();
    void table() { compareNumber(); }
    void wrongArguments_data();
    void wrongArguments() { compareNumber(); }
    void inertMap_data();
    void inertMap() { compareNumber(); }

private:
    static void compareNumber()
    {
        QFETCH(NumberCall, call);
        QFETCH(qint64, expected);
        QCOMPARE(call(), expected);
    }
    static void compareText()
    {
        QFETCH(TextCall, call);
        QFETCH(QString, expected);
        QCOMPARE(shown(call()), expected);
    }
    static void numberColumns()
    {
        QTest::addColumn<NumberCall>("call");
        QTest::addColumn<qint64>("expected");
    }
};

// ---- hashes -----------------------------------------------------------------------------------------------

void tst_StringMap::hashes_data()
{
    QTest::addColumn<std::wstring>("key");
    QTest::addColumn<unsigned int>("hash");
    QTest::addColumn<unsigned int>("bucket");

    const auto row = [](const char *title, const std::wstring &key, unsigned int hash, unsigned int bucket) {
        QTest::newRow(title) << key << hash << bucket;
    };
    row("the empty key: 0", L"", 0, 0);
    row("A: 65", L"A", 65, 14);
    row("AB: 65 * 33 + 66, in bucket 1", L"AB", 2211, 1);
    row("ABC: 2211 * 33 + 67", L"ABC", 73030, 15);
    row("order counts: BA", L"BA", 2243, 16);
    row("Ab has the hash of BA", L"Ab", 2243, 16);
    row("case counts: a", L"a", 97, 12);
    row("six letters, below 2^32", L"zzzzzz", 628754332, 16);
    row("seven letters, wrapped", L"zzzzzzz", 3569023894, 0);
    row("eight letters, wrapped", L"abcdefgh", 3942012324, 15);
    row("Hello World", L"Hello World", 2618181788, 7);
    row("511 letters", std::wstring(511, L'a'), 3797903807, 5);
    row("a character of 16 bits", L"\u20AC", 8364, 0);
    row("a character beyond 16 bits", L"\U0001F600", 128512, 9);
    row("a letter behind it", L"\U0001F600A", 4240961, 5);
    row("a character of 32 bits", std::wstring(1, wchar_t(-1)), 4294967295, 0);
    row("a character of 32 bits wraps", std::wstring(L"A") + wchar_t(-1), 2144, 2);
    row("up to the 0", std::wstring(L"AB\0C", 4), 2211, 1);
}

void tst_StringMap::hashes()
{
    QFETCH(std::wstring, key);
    QFETCH(unsigned int, hash);
    QFETCH(unsigned int, bucket);

    Map map(3);
    QCOMPARE(map.HashKey(key.c_str()), hash);
    map.SetAt(key.c_str(), number(1));
    unsigned int foundBucket = 99;
    unsigned int foundHash = 99;
    const Assoc *const association = map.GetAssocAt(key.c_str(), foundBucket, foundHash);
    QVERIFY(association);
    QCOMPARE(foundHash, hash);
    QCOMPARE(foundBucket, bucket);
    QCOMPARE(association->nBucket, bucket);
    for (unsigned int i = 0; i < 17; ++i)
        QCOMPARE(fieldsOf(map).buckets[i] == association, i == bucket);
}

// ---- fields, by their place -------------------------------------------------------------------------------

void tst_StringMap::layout_data()
{
    numberColumns();
    numberRow("a new map has no bucket array", [] { return address(fieldsOf(Map(7)).buckets); }, 0);
    numberRow("a new map has 17 buckets", [] { return fieldsOf(Map(7)).bucketCount; }, 17);
    numberRow("a new map is empty", [] { return fieldsOf(Map(7)).count; }, 0);
    numberRow("a new map has no free associations", [] { return address(fieldsOf(Map(7)).free); }, 0);
    numberRow("a new map has no blocks", [] { return fieldsOf(Map(7)).blocks; }, 0);
    numberRow("the block size as given", [] { return fieldsOf(Map(7)).blockSize; }, 7);
    numberRow("the block size beyond 32 bits as given",
        [] { return fieldsOf(Map(LONG_MAX)).blockSize; }, LONG_MAX);
    numberRow("the block size 0 as given", [] { return fieldsOf(Map(0)).blockSize; }, 0);
    numberRow("the block size -3 as given", [] { return fieldsOf(Map(-3)).blockSize; }, -3);
    numberRow("the block size when none is given", [] { return fieldsOf(Map()).blockSize; }, 10);
    numberRow("GetHashTableSize of a new map", [] { return Map(7).GetHashTableSize(); }, 17);
    numberRow("the number of buckets is unsigned, of 32 bits",
        [] { return std::is_same_v<decltype(Map().GetHashTableSize()), unsigned int>; }, 1);
    numberRow("the count is signed, of 64 bits",
        [] { return std::is_same_v<decltype(Map().GetCount()), long>; }, 1);
    numberRow("the size is signed, of 64 bits",
        [] { return std::is_same_v<decltype(Map().GetSize()), long>; }, 1);

    numberRow("field 0 is the bucket array", asked(L"A", [](Map &map) {
        return fieldsOf(map).buckets[14] == find(map, L"A");
    }), 1);
    numberRow("field 1 is the number of buckets", asked(L"", [](Map &map) {
        map.InitHashTable(31);
        return fieldsOf(map).bucketCount;
    }), 31);
    numberRow("field 2 is the count", asked(L"abc", [](Map &map) { return fieldsOf(map).count; }), 3);
    numberRow("field 3 is the next free association", asked(L"a", [](Map &map) {
        return address(fieldsOf(map).free) - address(find(map, L"a"));
    }), sizeof(Assoc));
    numberRow("field 3 is null when the block is used up",
        asked(L"ab", [](Map &map) { return address(fieldsOf(map).free); }), 0);
    numberRow("field 4 is the block, 8 bytes before the first association", asked(L"a", [](Map &map) {
        return address(find(map, L"a")) - fieldsOf(map).blocks;
    }), 8);
    numberRow("field 5 stays", asked(L"abc", [](Map &map) { return fieldsOf(map).blockSize; }), 2);

    numberRow("an association's first field is the next one",
        [] { return qint64(offsetof(Assoc, pNext)); }, 0);
    numberRow("its second field is the bucket", [] { return qint64(offsetof(Assoc, nBucket)); }, 8);
    numberRow("its third field is the key", [] { return qint64(offsetof(Assoc, key)); }, 12);
    numberRow("its fourth field is the value", [] { return qint64(offsetof(Assoc, value)); }, 2064);
    numberRow("its size", [] { return qint64(sizeof(Assoc)); }, 2072);
    numberRow("the key has 512 characters", [] { return qint64(std::extent_v<decltype(Assoc::key)>); }, 512);
    numberRow("the key is of wide characters",
        [] { return std::is_same_v<decltype(Assoc::key), wchar_t[512]>; }, 1);
    numberRow("the bucket has 32 bits and no sign",
        [] { return std::is_same_v<decltype(Assoc::nBucket), unsigned int>; }, 1);
}

// ---- what the map holds afterwards ------------------------------------------------------------------------

void tst_StringMap::contents_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");

    textRow("a new map is empty", edited(L"", [](Map &) {}), L"");
    textRow("SetAt adds", edited(L"", [](Map &m) { m.SetAt(L"key", number(7)); }), L"key=7|");
    textRow("SetAt replaces", edited(L"a", [](Map &m) { m.SetAt(L"a", number(7)); }), L"a=7|");
    textRow("SetAt of null adds too", edited(L"", [](Map &m) { m.SetAt(L"a", nullptr); }), L"a=0|");
    textRow("[] adds a null value", edited(L"", [](Map &m) { m[L"a"]; }), L"a=0|");
    textRow("[] gives the value to be changed", edited(L"a", [](Map &m) { m[L"a"] = number(9); }), L"a=9|");
    textRow("[] of what is there changes nothing", edited(L"a", [](Map &m) { m[L"a"]; }), L"a=1|");
    textRow("keys differ by case", edited(L"", [](Map &m) {
        m.SetAt(L"a", number(1));
        m.SetAt(L"A", number(2));
    }), L"a=1|A=2|");
    textRow("keys of one hash are two", edited(L"", [](Map &m) {
        m.SetAt(L"Ab", number(1));
        m.SetAt(L"BA", number(2));
    }), L"BA=2|Ab=1|");
    textRow("the empty key is a key", edited(L"a", [](Map &m) { m.SetAt(L"", number(5)); }), L"=5|a=1|");
    textRow("a key and its beginning", edited(L"a", [](Map &m) { m.SetAt(L"ab", number(5)); }), L"ab=5|a=1|");

    textRow("bucket order: buckets 13, 14, 15", edited(L"BA@", [](Map &) {}), L"@=3|A=2|B=1|");
    textRow("bucket order: first and last bucket", edited(L"C3", [](Map &) {}), L"3=2|C=1|");
    textRow("three keys of one bucket, newest first", edited(oneBucket, [](Map &) {}), L"c=3|R=2|A=1|");
    textRow("buckets in order, newest first in each", edited(L"A3RDcB", [](Map &) {}),
        L"D=4|3=2|c=5|R=3|A=1|B=6|");
    textRow("replacing a value does not move the key",
        edited(oneBucket, [](Map &m) { m.SetAt(L"A", number(9)); }), L"c=3|R=2|A=9|");
    textRow("a key that was removed comes back as the newest", edited(oneBucket, [](Map &m) {
        m.RemoveKey(L"A");
        m.SetAt(L"A", number(9));
    }), L"A=9|c=3|R=2|");
    textRow("one bucket only: newest first", edited(L"", [](Map &m) {
        m.InitHashTable(1);
        fill(m, L"abcd");
    }), L"d=4|c=3|b=2|a=1|");
    textRow("many buckets: by hash", edited(L"", [](Map &m) {
        m.InitHashTable(1009);
        fill(m, L"cabB");
    }), L"B=4|a=2|b=3|c=1|");

    textRow("RemoveKey of the newest in a bucket",
        edited(oneBucket, [](Map &m) { m.RemoveKey(L"c"); }), L"R=2|A=1|");
    textRow("RemoveKey of the middle of a bucket",
        edited(oneBucket, [](Map &m) { m.RemoveKey(L"R"); }), L"c=3|A=1|");
    textRow("RemoveKey of the oldest in a bucket",
        edited(oneBucket, [](Map &m) { m.RemoveKey(L"A"); }), L"c=3|R=2|");
    textRow("RemoveKey of what is not there", edited(oneBucket, [](Map &m) { m.RemoveKey(L"t"); }),
        L"c=3|R=2|A=1|");
    textRow("RemoveKey minds the case", edited(L"a", [](Map &m) { m.RemoveKey(L"A"); }), L"a=1|");
    textRow("RemoveKey of one of two keys of one hash", edited(L"", [](Map &m) {
        m.SetAt(L"Ab", number(1));
        m.SetAt(L"BA", number(2));
        m.RemoveKey(L"Ab");
    }), L"BA=2|");
    textRow("RemoveKey of the last one", edited(L"a", [](Map &m) { m.RemoveKey(L"a"); }), L"");
    textRow("RemoveAll", edited(L"abc", [](Map &m) { m.RemoveAll(); }), L"");
    textRow("RemoveAll of an empty map", edited(L"", [](Map &m) { m.RemoveAll(); }), L"");
    textRow("RemoveAll, then new keys", edited(L"abc", [](Map &m) {
        m.RemoveAll();
        fill(m, oneBucket);
    }), L"c=3|R=2|A=1|");
    textRow("each second key removed while walking", edited(oneBucket, [](Map &m) {
        POSITION position = m.GetStartPosition();
        for (bool remove = true; position; remove = !remove) {
            CString key;
            void *value = nullptr;
            m.GetNextAssoc(position, key, value);
            if (remove)
                m.RemoveKey(key);
        }
    }), L"R=2|");
}

// ---- looking up -------------------------------------------------------------------------------------------

void tst_StringMap::lookups_data()
{
    numberColumns();
    const auto looked = [](const wchar_t *letters, const wchar_t *key, bool found, int value) {
        return asked(letters, [=](Map &map) {
            void *result = number(77);
            return map.Lookup(key, result) == found && numberOf(result) == value;
        });
    };
    numberRow("Lookup of the newest in a bucket", looked(oneBucket, L"c", true, 3), 1);
    numberRow("Lookup of the middle of a bucket", looked(oneBucket, L"R", true, 2), 1);
    numberRow("Lookup of the oldest in a bucket", looked(oneBucket, L"A", true, 1), 1);
    numberRow("Lookup of what is not there leaves the value alone", looked(oneBucket, L"t", false, 77), 1);
    numberRow("Lookup in an empty map", looked(L"", L"a", false, 77), 1);
    numberRow("Lookup minds the case", looked(L"a", L"A", false, 77), 1);
    numberRow("Lookup adds nothing", asked(L"a", [](Map &map) {
        void *value = nullptr;
        map.Lookup(L"b", value);
        return map.GetCount();
    }), 1);

    numberRow("LookupKey gives the association's own text", asked(L"abc", [](Map &map) {
        const wchar_t *stored = nullptr;
        return map.LookupKey(L"b", stored) && stored == find(map, L"b")->key
            && std::wcscmp(stored, L"b") == 0;
    }), 1);
    numberRow("LookupKey of what is not there leaves the pointer alone", asked(L"abc", [](Map &map) {
        const wchar_t *stored = oneBucket;
        return !map.LookupKey(L"B", stored) && stored == oneBucket;
    }), 1);
    numberRow("LookupKey in an empty map", asked(L"", [](Map &map) {
        const wchar_t *stored = oneBucket;
        return !map.LookupKey(L"a", stored) && stored == oneBucket;
    }), 1);
    numberRow("a key is the map's own copy", asked(L"", [](Map &map) {
        wchar_t key[] = L"abc";
        map.SetAt(key, number(3));
        key[0] = L'x';
        return !find(map, L"xbc") && find(map, L"abc");
    }), 1);

    numberRow("GetAssocAt gives the association", asked(oneBucket, [](Map &map) {
        const Assoc *const association = find(map, L"R");
        return association && association->key == std::wstring(L"R") && association->value == number(2);
    }), 1);
    const auto written = [](const wchar_t *letters, const wchar_t *key, unsigned bucket, unsigned hash) {
        return asked(letters, [=](Map &map) {
            unsigned int foundBucket = 99;
            unsigned int foundHash = 99;
            map.GetAssocAt(key, foundBucket, foundHash);
            return foundBucket == bucket && foundHash == hash;
        });
    };
    numberRow("GetAssocAt writes bucket and hash of a key", written(L"A", L"A", 14, 65), 1);
    numberRow("GetAssocAt writes bucket and hash of what is not there", written(L"A", L"AB", 1, 2211), 1);
    numberRow("GetAssocAt writes bucket and hash without a bucket array", written(L"", L"AB", 1, 2211), 1);
    numberRow("GetAssocAt goes by the number of buckets", asked(L"", [](Map &map) {
        map.InitHashTable(100);
        unsigned int bucket = 99;
        unsigned int hash = 99;
        map.GetAssocAt(L"AB", bucket, hash);
        return bucket == 11 && hash == 2211;
    }), 1);
    numberRow("GetAssocAt without a bucket array is null",
        asked(L"", [](Map &map) { return !find(map, L"a"); }), 1);
    numberRow("GetAssocAt of another key of the bucket is null",
        asked(L"A", [](Map &map) { return !find(map, L"R"); }), 1);
    numberRow("GetAssocAt of another key of the hash is null", asked(L"", [](Map &map) {
        map.SetAt(L"Ab", number(1));
        return !find(map, L"BA");
    }), 1);
    numberRow("[] gives a reference into the association", asked(L"abc", [](Map &map) {
        return &map[L"b"] == &find(map, L"b")->value;
    }), 1);

    numberRow("RemoveKey is true for a key", asked(L"ab", [](Map &map) { return map.RemoveKey(L"a"); }), 1);
    numberRow("RemoveKey is false for what is not there",
        asked(L"ab", [](Map &map) { return map.RemoveKey(L"A"); }), 0);
    numberRow("RemoveKey is false the second time", asked(L"ab", [](Map &map) {
        map.RemoveKey(L"a");
        return map.RemoveKey(L"a");
    }), 0);
    numberRow("RemoveKey is false without a bucket array",
        asked(L"", [](Map &map) { return map.RemoveKey(L"a"); }), 0);
}

// ---- walking ----------------------------------------------------------------------------------------------

void tst_StringMap::iteration_data()
{
    numberColumns();
    numberRow("GetStartPosition of a new map is null",
        asked(L"", [](Map &m) { return !m.GetStartPosition(); }), 1);
    numberRow("GetStartPosition of a map with elements is -1",
        asked(L"a", [](Map &m) { return address(m.GetStartPosition()); }), -1);
    numberRow("GetStartPosition of an emptied map is null", asked(L"a", [](Map &m) {
        m.RemoveKey(L"a");
        return !m.GetStartPosition();
    }), 1);
    numberRow("GetStartPosition of an empty map with a bucket array is null", asked(L"", [](Map &m) {
        m.InitHashTable(17);
        return !m.GetStartPosition();
    }), 1);

    const auto steps = [](const wchar_t *letters, int count, const wchar_t *next) {
        return asked(letters, [=](Map &map) {
            POSITION position = map.GetStartPosition();
            for (int i = 0; i < count; ++i) {
                CString key;
                void *value = nullptr;
                map.GetNextAssoc(position, key, value);
            }
            return next ? position == positionOf(find(map, next)) : !position;
        });
    };
    numberRow("from -1 to the next one of the first bucket", steps(oneBucket, 1, L"R"), 1);
    numberRow("within a bucket to the next one", steps(oneBucket, 2, L"A"), 1);
    numberRow("from -1 to another bucket", steps(L"3B", 1, L"B"), 1);
    numberRow("from the end of a bucket to another", steps(L"A3RDcB", 2, L"c"), 1);
    numberRow("behind the last is null", steps(oneBucket, 3, nullptr), 1);
    numberRow("behind the only one is null", steps(L"a", 1, nullptr), 1);
    numberRow("behind the one in the last bucket is null", steps(L"C", 1, nullptr), 1);
    numberRow("begins anywhere", asked(oneBucket, [](Map &map) {
        POSITION position = positionOf(find(map, L"R"));
        CString key;
        void *value = nullptr;
        map.GetNextAssoc(position, key, value);
        return key == L"R" && value == number(2) && position == positionOf(find(map, L"A"));
    }), 1);
    numberRow("the stored bucket says where to go on", asked(L"3AB", [](Map &map) {
        Assoc *const first = find(map, L"3");
        first->nBucket = 14;
        POSITION position = positionOf(first);
        CString key;
        void *value = nullptr;
        map.GetNextAssoc(position, key, value);
        first->nBucket = 0;
        return position == positionOf(find(map, L"B"));
    }), 1);
    numberRow("at null nothing happens", asked(L"a", [](Map &map) {
        POSITION position = nullptr;
        CString key = L"kept";
        void *value = number(77);
        map.GetNextAssoc(position, key, value);
        return !position && key == L"kept" && value == number(77);
    }), 1);
    numberRow("at -1 of an empty map the walk ends", asked(L"", [](Map &map) {
        POSITION position = beforeFirst();
        CString key = L"kept";
        void *value = number(77);
        map.GetNextAssoc(position, key, value);
        return !position && key == L"kept" && value == number(77);
    }), 1);
    numberRow("at null of an empty map nothing happens", asked(L"", [](Map &map) {
        POSITION position = nullptr;
        CString key = L"kept";
        void *value = number(77);
        map.GetNextAssoc(position, key, value);
        return !position && key == L"kept" && value == number(77);
    }), 1);
}

// ---- associations and blocks ------------------------------------------------------------------------------

void tst_StringMap::associations_data()
{
    numberColumns();
    const auto row = [](const char *promise, auto ask) { numberRow(promise, ask, 1); };
    const auto isBlank = [](const Assoc *association) {
        for (const wchar_t character : association->key) {
            if (character != 0)
                return false;
        }
        return !association->value;
    };

    row("NewAssoc clears the key and the value of a used one", [=] {
        Map map(3);
        fill(map, L"a");
        const std::wstring full(511, L'x');
        map.SetAt(full.c_str(), number(5));
        const Assoc *const used = find(map, full.c_str());
        map.RemoveKey(full.c_str());
        const Assoc *const association = map.NewAssoc();
        return association == used && isBlank(association);
    });
    row("NewAssoc counts", [] {
        Map map(3);
        map.NewAssoc();
        map.NewAssoc();
        return map.GetCount() == 2;
    });
    row("NewAssoc makes no bucket array", [] {
        Map map(3);
        map.NewAssoc();
        return !fieldsOf(map).buckets;
    });
    row("FreeAssoc counts down", [] {
        Map map(3);
        map.NewAssoc();
        map.FreeAssoc(map.NewAssoc());
        return map.GetCount() == 1;
    });
    row("an added key is stored with zeros behind it", [] {
        Map map(3);
        map.SetAt(L"abc", nullptr);
        wchar_t expected[512] = L"abc";
        return std::wmemcmp(find(map, L"abc")->key, expected, 512) == 0;
    });
    row("the associations of a block come in the order of memory", [] {
        Map map(4);
        Assoc *const first = map.NewAssoc();
        return map.NewAssoc() == first + 1 && map.NewAssoc() == first + 2 && map.NewAssoc() == first + 3;
    });
    row("the first association of a block comes first", [] {
        Map map(4);
        const qint64 first = address(map.NewAssoc());
        return first == fieldsOf(map).blocks + 8;
    });
    row("the first association of a second block comes first too", [] {
        Map map(2);
        map.NewAssoc();
        map.NewAssoc();
        const qint64 third = address(map.NewAssoc());
        return third == fieldsOf(map).blocks + 8;
    });
    row("an association that was freed last is used first", [] {
        Map map(4);
        map.NewAssoc();
        Assoc *const second = map.NewAssoc();
        Assoc *const third = map.NewAssoc();
        map.FreeAssoc(second);
        map.FreeAssoc(third);
        return map.NewAssoc() == third && map.NewAssoc() == second && map.NewAssoc() == third + 1;
    });
    row("a removed key's association is used for the next key", [] {
        Map map(4);
        fill(map, L"abc");
        const Assoc *const second = find(map, L"b");
        map.RemoveKey(L"b");
        map.SetAt(L"x", nullptr);
        return find(map, L"x") == second;
    });
    row("a new key stands before the older ones of its bucket", [] {
        Map map(4);
        fill(map, L"AR");
        return fieldsOf(map).buckets[14] == find(map, L"R") && find(map, L"R")->pNext == find(map, L"A")
            && !find(map, L"A")->pNext;
    });
}

// ---- the bucket array -------------------------------------------------------------------------------------

void tst_StringMap::table_data()
{
    numberColumns();
    numberRow("InitHashTable sets the number of buckets", asked(L"", [](Map &map) {
        map.InitHashTable(31, true);
        return map.GetHashTableSize();
    }), 31);
    numberRow("InitHashTable allocates when it is not told",
        asked(L"", [](Map &map) { map.InitHashTable(31); return fieldsOf(map).buckets != nullptr; }), 1);
    numberRow("InitHashTable, not now, sets the number of buckets", asked(L"", [](Map &map) {
        map.InitHashTable(31, false);
        return map.GetHashTableSize();
    }), 31);
    numberRow("the first key uses the array that is there", asked(L"", [](Map &map) {
        map.InitHashTable(31, true);
        Assoc **const buckets = fieldsOf(map).buckets;
        map[L"a"];
        return fieldsOf(map).buckets == buckets;
    }), 1);
    numberRow("what is in the map is not hashed again", asked(L"a", [](Map &map) {
        map.InitHashTable(31, true);
        return map.GetCount() == 1 && !find(map, L"a");
    }), 1);

    for (const bool now : {true, false}) {
        const auto row = [now](const char *promise, auto ask) {
            numberRow(qPrintable(QString::fromLatin1(promise) + (now ? ", now" : ", not now")), [now, ask] {
                Map map(2);
                map.InitHashTable(0, now);
                return ask(map) ? 1 : 0;
            }, 1);
        };
        row("0 buckets: that is the number", [](Map &map) { return map.GetHashTableSize() == 0; });
        row("0 buckets: Lookup finds nothing", [](Map &map) {
            void *value = number(77);
            return !map.Lookup(L"a", value) && value == number(77);
        });
        row("0 buckets: LookupKey finds nothing", [](Map &map) {
            const wchar_t *stored = nullptr;
            return !map.LookupKey(L"a", stored) && !stored;
        });
        row("0 buckets: GetAssocAt finds nothing and gives the hash", [](Map &map) {
            unsigned int bucket = 99;
            unsigned int hash = 99;
            return !map.GetAssocAt(L"AB", bucket, hash) && hash == 2211;
        });
        row("0 buckets: RemoveKey finds nothing", [](Map &map) { return !map.RemoveKey(L"a"); });
        row("0 buckets: no start", [](Map &map) { return !map.GetStartPosition(); });
        row("0 buckets: RemoveAll", [](Map &map) { map.RemoveAll(); return map.IsEmpty(); });
        row("0 buckets: a key makes 17", [](Map &map) {
            map.SetAt(L"A", number(1));
            return map.GetHashTableSize() == 17 && content(map) == L"A=1|" && find(map, L"A")->nBucket == 14;
        });
    }
}

// ---- arguments that are wrong -----------------------------------------------------------------------------

void tst_StringMap::wrongArguments_data()
{
    numberColumns();
    numberRow("a null key has the hash of the empty one",
        asked(L"", [](Map &m) { return m.HashKey(noText); }), 0);
    numberRow("SetAt of a null key sets the empty one", asked(L"a", [](Map &map) {
        map.SetAt(noText, number(5));
        return map.GetCount() == 2 && find(map, L"") && find(map, L"")->value == number(5);
    }), 1);
    numberRow("[] of a null key is the empty one's value", asked(L"", [](Map &map) {
        map.SetAt(L"", number(5));
        return map[noText] == number(5) && map.GetCount() == 1;
    }), 1);
    numberRow("Lookup of a null key finds the empty one", asked(L"", [](Map &map) {
        map.SetAt(L"", number(5));
        void *value = nullptr;
        return map.Lookup(noText, value) && value == number(5);
    }), 1);
    numberRow("Lookup of a null key without the empty one", asked(L"a", [](Map &map) {
        void *value = nullptr;
        return map.Lookup(noText, value);
    }), 0);
    numberRow("LookupKey of a null key finds the empty one", asked(L"", [](Map &map) {
        map.SetAt(L"", number(5));
        const wchar_t *stored = nullptr;
        return map.LookupKey(noText, stored) && stored && *stored == 0;
    }), 1);
    numberRow("GetAssocAt of a null key finds the empty one", asked(L"", [](Map &map) {
        map.SetAt(L"", number(5));
        unsigned int bucket = 99;
        unsigned int hash = 99;
        return map.GetAssocAt(noText, bucket, hash) == find(map, L"") && bucket == 0 && hash == 0;
    }), 1);
    numberRow("RemoveKey of a null key removes the empty one", asked(L"a", [](Map &map) {
        map.SetAt(L"", number(5));
        return map.RemoveKey(noText) && content(map) == L"a=1|";
    }), 1);
    numberRow("RemoveKey of a null key without the empty one",
        asked(L"a", [](Map &map) { return map.RemoveKey(noText); }), 0);

    numberRow("FreeAssoc of null does nothing", asked(L"ab", [](Map &map) {
        map.FreeAssoc(nullptr);
        return content(map) == L"a=1|b=2|";
    }), 1);
    numberRow("RemoveKey of the map's own text", asked(oneBucket, [](Map &map) {
        const wchar_t *stored = nullptr;
        return map.LookupKey(L"R", stored) && map.RemoveKey(stored) && content(map) == L"c=3|A=1|";
    }), 1);
    numberRow("a key of 511 characters is whole", asked(L"", [](Map &map) {
        const std::wstring key(511, L'x');
        map.SetAt(key.c_str(), number(5));
        void *value = nullptr;
        return map.Lookup(key.c_str(), value) && value == number(5) && find(map, key.c_str())->key == key;
    }), 1);
    for (const int length : {512, 513, 600, 100000}) {
        const QByteArray key = "a key of " + QByteArray::number(length) + " characters ";
        const std::wstring text =
            std::wstring(510, L'x') + L'y' + std::wstring(std::size_t(length) - 511, L'z');
        const auto row = [&](const char *promise, auto ask) {
            numberRow((key + promise).constData(), [text, ask] {
                Map map(3);
                fill(map, L"a");
                map.SetAt(text.c_str(), number(5));
                fill(map, L"ab");
                return ask(map, text) ? 1 : 0;
            }, 1);
        };
        row("is cut to the first 511", [](Map &map, const std::wstring &full) {
            const Assoc *const association = find(map, L"a") + 1;
            return association->key == full.substr(0, 511) && association->value == number(5);
        });
        row("does not touch its neighbours", [](Map &map, const std::wstring &full) {
            return find(map, L"b") == find(map, L"a") + 2 && map.GetCount() == 3
                && content(map).find(full.substr(0, 511) + L"=5|") != std::wstring::npos;
        });
        row("is not found again", [](Map &map, const std::wstring &full) {
            void *value = nullptr;
            const wchar_t *stored = nullptr;
            return !map.Lookup(full.c_str(), value) && !map.LookupKey(full.c_str(), stored)
                && !map.RemoveKey(full.c_str()) && map.GetCount() == 3;
        });
    }
}

// ---- the map that is only an interface --------------------------------------------------------------------

void tst_StringMap::inertMap_data()
{
    using Inert = CMapStringToString;
    numberColumns();
    const auto row = [](const char *promise, auto ask) {
        numberRow(promise, [ask] {
            Inert map(10);
            map.SetAt(L"key", L"value");
            return ask(map) ? 1 : 0;
        }, 1);
    };
    const auto constant = [](const char *promise, auto ask) {
        numberRow(promise, [ask] {
            const Inert map(10);
            return ask(map) ? 1 : 0;
        }, 1);
    };
    row("GetCount is 0", [](Inert &map) { return map.GetCount() == 0; });
    row("GetSize is 0", [](Inert &map) { return map.GetSize() == 0; });
    row("IsEmpty is false", [](Inert &map) { return !map.IsEmpty(); });
    constant("IsEmpty is false of a new one", [](const Inert &map) { return !map.IsEmpty(); });
    row("GetHashTableSize is 0", [](Inert &map) { return map.GetHashTableSize() == 0; });
    row("Lookup is false and leaves the value alone", [](Inert &map) {
        CString value = L"kept";
        return !map.Lookup(L"key", value) && value == L"kept";
    });
    row("LookupKey is false and leaves the pointer alone", [](Inert &map) {
        const wchar_t *stored = oneBucket;
        return !map.LookupKey(L"key", stored) && stored == oneBucket;
    });
    row("PLookup is null", [](Inert &map) { return !map.PLookup(L"key"); });
    constant("PLookup, const, is null", [](const Inert &map) { return !map.PLookup(L"key"); });
    row("PGetFirstAssoc is null", [](Inert &map) { return !map.PGetFirstAssoc(); });
    constant("PGetFirstAssoc, const, is null", [](const Inert &map) { return !map.PGetFirstAssoc(); });
    row("PGetNextAssoc is null", [](Inert &map) {
        const Inert::CPair pair{L"key", L"value"};
        return !map.PGetNextAssoc(&pair) && !map.PGetNextAssoc(nullptr);
    });
    constant("PGetNextAssoc, const, is null", [](const Inert &map) {
        const Inert::CPair pair{L"key", L"value"};
        return !map.PGetNextAssoc(&pair) && !map.PGetNextAssoc(nullptr);
    });
    row("the forms differ in what they point to", [](Inert &map) {
        const Inert &constantMap = map;
        return std::is_same_v<decltype(map.PLookup(L"")), Inert::CPair *>
            && std::is_same_v<decltype(constantMap.PLookup(L"")), const Inert::CPair *>
            && std::is_same_v<decltype(map.PGetFirstAssoc()), Inert::CPair *>
            && std::is_same_v<decltype(constantMap.PGetFirstAssoc()), const Inert::CPair *>
            && std::is_same_v<decltype(map.PGetNextAssoc(nullptr)), Inert::CPair *>
            && std::is_same_v<decltype(constantMap.PGetNextAssoc(nullptr)), const Inert::CPair *>;
    });
    row("GetStartPosition is null", [](Inert &map) { return !map.GetStartPosition(); });
    for (const bool start : {true, false}) {
        row(start ? "GetNextAssoc at -1 does nothing" : "GetNextAssoc at null does nothing",
            [start](Inert &map) {
            POSITION position = start ? beforeFirst() : nullptr;
            CString key = L"kept";
            CString value = L"kept too";
            map.GetNextAssoc(position, key, value);
            return position == (start ? beforeFirst() : nullptr) && key == L"kept" && value == L"kept too";
        });
    }
    row("NewAssoc is null", [](Inert &map) { return !map.NewAssoc() && map.GetCount() == 0; });
    row("FreeAssoc does nothing", [](Inert &map) { map.FreeAssoc(nullptr); return map.GetCount() == 0; });
    row("GetAssocAt is null and leaves the numbers alone", [](Inert &map) {
        unsigned int bucket = 99;
        unsigned int hash = 98;
        return !map.GetAssocAt(L"key", bucket, hash) && bucket == 99 && hash == 98;
    });
    row("HashKey is 0", [](Inert &map) { return map.HashKey(L"AB") == 0; });
    row("InitHashTable does nothing", [](Inert &map) {
        map.InitHashTable(31);
        map.InitHashTable(31, true);
        map.InitHashTable(31, false);
        return map.GetHashTableSize() == 0;
    });
    row("RemoveKey is true of a key", [](Inert &map) { return map.RemoveKey(L"key"); });
    row("RemoveKey is true of what was never there", [](Inert &map) { return map.RemoveKey(L"other"); });
    row("RemoveAll does nothing",
        [](Inert &map) { map.RemoveAll(); return !map.IsEmpty() && map.GetCount() == 0; });
    row("[] gives an empty string that is not kept", [](Inert &map) {
        const bool wasEmpty = map[L"key"].empty();
        map[L"key"] = L"written";
        return wasEmpty && map[L"key"].empty() && map.GetCount() == 0;
    });
}

KX_TEST_MAIN(tst_StringMap)
#include "tst_string_map.moc"
