// SPDX-License-Identifier: MIT
#include "KxTestCase.h"

#include "KxAfxColl.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <iterator>
#include <list>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int stepCount = 100000;

/// Random numbers and texts, the same ones for the same seed on every system.
class Dice
{
public:
    explicit Dice(unsigned int seed) : m_engine(seed) {}

    /// From 0 to `sides - 1`.
    int operator()(std::size_t sides) { return int(m_engine() % sides); }

    /// Mostly one of a few, so that texts meet again.
    std::wstring text()
    {
        static const std::vector<std::wstring> few{
            L"", L"a", L"A", L"b", L"ab", L"aB", L"abc", L"Ab", L"BA", L"3", L"D", L"U", L"R", L"c", L"t",
            L"\u20AC", L"\U0001F600", L"kilometre", L"kilometres",
            L"a text that no string object keeps inside itself",
            std::wstring(511, L'k'), std::wstring(1, wchar_t(-1)), L"zzzzzzzz", L"zzzzzzzy"};
        if ((*this)(3) != 0)
            return few[std::size_t((*this)(few.size()))];
        std::wstring text;
        for (int length = (*this)(12); length > 0; --length)
            text += wchar_t((*this)(8) == 0 ? 0x10000 + (*this)(0x1000) : L'a' + (*this)(26));
        return text;
    }

private:
    std::mt19937 m_engine; // The standard says what each seed gives.
};

// ---- the list ---------------------------------------------------------------------------------------------

/// A CStringList and a standard list that the same is done to. Every operation answers what was wrong, or
/// null.
class ListPair
{
public:
    ListPair(unsigned int seed, long blockSize) : m_dice(seed), m_list(blockSize) {}

    /// Does one operation; `name` receives its name.
    const char *step(const char *&name)
    {
        const auto &operation = chooseOperation();
        name = operation.name;
        if (const char *const mistake = (this->*operation.call)())
            return mistake;
        return compare();
    }

private:
    struct Item
    {
        std::wstring text;
        POSITION position;
    };
    using Items = std::list<Item>;
    using Iterator = Items::iterator;
    using Call = const char *(ListPair::*)();
    struct Operation
    {
        const char *name;
        Call call;
        bool needsItems;
    };

    const Operation &chooseOperation()
    {
        static const std::vector<Operation> removals{
            {"RemoveHead", &ListPair::removeHead, true},
            {"RemoveTail", &ListPair::removeTail, true},
            {"RemoveAt", &ListPair::removeAt, true},
        };
        static const std::vector<Operation> others{
            {"AddHead", &ListPair::addHead, false},
            {"AddTail", &ListPair::addTail, false},
            {"AddHead of a list", &ListPair::addListAtHead, false},
            {"AddTail of a list", &ListPair::addListAtTail, false},
            {"AddHead and AddTail of a null list", &ListPair::addNullLists, false},
            {"AddHead or AddTail of the list itself", &ListPair::addItself, false},
            {"AddTail of RemoveHead", &ListPair::rotate, true},
            {"InsertBefore", &ListPair::insertBefore, true},
            {"InsertAfter", &ListPair::insertAfter, true},
            {"InsertBefore of its own text", &ListPair::insertOwnText, true},
            {"SetAt", &ListPair::setAt, true},
            {"writing through GetAt, GetNext or GetPrev", &ListPair::writeThrough, true},
            {"GetNext and GetPrev", &ListPair::walk, true},
            {"Find", &ListPair::find, false},
            {"Find behind a position", &ListPair::findBehind, true},
            {"FindIndex", &ListPair::findIndex, false},
        };
        static const Operation removeAllOperation{"RemoveAll", &ListPair::removeAll, false};

        if (m_dice(500) == 0)
            return removeAllOperation;
        if (!m_items.empty() && (m_items.size() > 40 || m_dice(4) == 0))
            return removals[std::size_t(m_dice(removals.size()))];
        for (;;) {
            const Operation &operation = others[std::size_t(m_dice(others.size()))];
            if (!operation.needsItems || !m_items.empty())
                return operation;
        }
    }

    static const char *require(bool holds, const char *promise) { return holds ? nullptr : promise; }
    Iterator any() { return std::next(m_items.begin(), m_dice(m_items.size())); }
    bool heads() { return m_dice(2) == 0; }
    POSITION positionOf(Iterator item) { return item == m_items.end() ? nullptr : item->position; }

    const char *addHead()
    {
        const std::wstring text = m_dice.text();
        const POSITION position = heads() ? m_list.AddHead(text.c_str()) : m_list.AddHead(CString(text));
        m_items.push_front({text, position});
        return require(position, "a position is returned");
    }
    const char *addTail()
    {
        const std::wstring text = m_dice.text();
        const POSITION position = heads() ? m_list.AddTail(text.c_str()) : m_list.AddTail(CString(text));
        m_items.push_back({text, position});
        return require(position, "a position is returned");
    }

    /// Enters the `count` strings from `first` on, which the list has and the model does not have yet.
    void enter(Iterator before, POSITION first, const std::vector<std::wstring> &texts)
    {
        for (const std::wstring &text : texts) {
            const POSITION position = first;
            if (first)
                m_list.GetNext(first);
            m_items.insert(before, {text, position});
        }
    }
    std::vector<std::wstring> fillOther(CStringList &other)
    {
        std::vector<std::wstring> texts;
        for (int count = m_dice(4); count > 0; --count) {
            texts.push_back(m_dice.text());
            other.AddTail(texts.back().c_str());
        }
        return texts;
    }
    const char *addListAtHead()
    {
        CStringList other(2);
        const std::vector<std::wstring> texts = fillOther(other);
        m_list.AddHead(&other);
        enter(m_items.begin(), m_list.GetHeadPosition(), texts);
        return require(other.GetCount() == long(texts.size()), "the other list stays");
    }
    const char *addListAtTail()
    {
        CStringList other(2);
        const std::vector<std::wstring> texts = fillOther(other);
        const long before = m_list.GetCount();
        m_list.AddTail(&other);
        enter(m_items.end(), m_list.FindIndex(before), texts);
        return require(other.GetCount() == long(texts.size()), "the other list stays");
    }
    const char *addNullLists()
    {
        CStringList *const none = nullptr;
        m_list.AddHead(none);
        m_list.AddTail(none);
        return nullptr;
    }
    const char *addItself()
    {
        std::vector<std::wstring> texts;
        std::transform(m_items.begin(), m_items.end(), std::back_inserter(texts),
            [](const Item &item) { return item.text; });
        const long before = m_list.GetCount();
        if (heads()) {
            m_list.AddHead(&m_list);
            enter(m_items.begin(), m_list.GetHeadPosition(), texts);
        } else {
            m_list.AddTail(&m_list);
            enter(m_items.end(), m_list.FindIndex(before), texts);
        }
        return nullptr;
    }
    const char *rotate()
    {
        const std::wstring text = m_items.front().text;
        m_items.pop_front();
        const POSITION position = m_list.AddTail(m_list.RemoveHead());
        m_items.push_back({text, position});
        return require(m_list.GetTail() == text, "what was removed is added");
    }

    const char *removeHead()
    {
        const std::wstring text = m_items.front().text;
        m_items.pop_front();
        return require(m_list.RemoveHead() == text, "the first string is returned");
    }
    const char *removeTail()
    {
        const std::wstring text = m_items.back().text;
        m_items.pop_back();
        return require(m_list.RemoveTail() == text, "the last string is returned");
    }
    const char *removeAt()
    {
        const Iterator item = any();
        m_list.RemoveAt(item->position);
        m_items.erase(item);
        return nullptr;
    }
    const char *removeAll()
    {
        m_list.RemoveAll();
        m_items.clear();
        return nullptr;
    }

    const char *insertBefore()
    {
        const Iterator item = any();
        const std::wstring text = m_dice.text();
        const POSITION position = heads() ? m_list.InsertBefore(item->position, text.c_str())
                                          : m_list.InsertBefore(item->position, CString(text));
        m_items.insert(item, {text, position});
        return require(position && position != item->position, "a new position is returned");
    }
    const char *insertAfter()
    {
        const Iterator item = any();
        const std::wstring text = m_dice.text();
        const POSITION position = heads() ? m_list.InsertAfter(item->position, text.c_str())
                                          : m_list.InsertAfter(item->position, CString(text));
        m_items.insert(std::next(item), {text, position});
        return require(position && position != item->position, "a new position is returned");
    }
    const char *insertOwnText()
    {
        const Iterator item = any();
        const CString &own = m_list.GetAt(any()->position);
        const std::wstring text = own;
        const POSITION position = heads() ? m_list.InsertBefore(item->position, own)
                                          : m_list.InsertBefore(item->position, own.c_str());
        m_items.insert(item, {text, position});
        return nullptr;
    }

    const char *setAt()
    {
        const Iterator item = any();
        item->text = m_dice.text();
        if (heads())
            m_list.SetAt(item->position, item->text.c_str());
        else
            m_list.SetAt(item->position, CString(item->text));
        return nullptr;
    }
    const char *writeThrough()
    {
        const Iterator item = any();
        item->text = m_dice.text();
        POSITION position = item->position;
        switch (m_dice(3)) {
        case 0:
            m_list.GetAt(position) = item->text;
            break;
        case 1:
            m_list.GetNext(position) = item->text;
            break;
        default:
            m_list.GetPrev(position) = item->text;
        }
        return nullptr;
    }
    const char *walk()
    {
        const Iterator item = any();
        POSITION next = item->position;
        POSITION previous = item->position;
        const bool same = m_list.GetNext(next) == item->text && m_list.GetPrev(previous) == item->text;
        const Iterator before = item == m_items.begin() ? m_items.end() : std::prev(item);
        return require(same && next == positionOf(std::next(item)) && previous == positionOf(before),
            "the neighbours are the model's");
    }

    const char *findFrom(Iterator first, POSITION startAfter)
    {
        const std::wstring text = m_dice.text();
        const Iterator found =
            std::find_if(first, m_items.end(), [&](const Item &item) { return item.text == text; });
        const POSITION position = m_list.Find(text.c_str(), startAfter);
        return require(position == positionOf(found), "the model finds the same");
    }
    const char *find() { return findFrom(m_items.begin(), nullptr); }
    const char *findBehind()
    {
        const Iterator item = any();
        return findFrom(std::next(item), item->position);
    }
    const char *findIndex()
    {
        const long index = m_dice(m_items.size() + 6) - 3;
        const bool inside = index >= 0 && index < long(m_items.size());
        const POSITION expected = inside ? std::next(m_items.begin(), index)->position : nullptr;
        return require(m_list.FindIndex(index) == expected, "the model has the same at this index");
    }

    const char *compare() const
    {
        const long count = long(m_items.size());
        if (m_list.GetCount() != count || m_list.GetSize() != count || m_list.IsEmpty() != m_items.empty())
            return "the counts are the model's";
        if (!m_items.empty()
            && (m_list.GetHead() != m_items.front().text || m_list.GetTail() != m_items.back().text))
            return "the ends are the model's";
        POSITION position = m_list.GetHeadPosition();
        for (const Item &item : m_items) {
            if (!position || position != item.position || m_list.GetNext(position) != item.text)
                return "the strings and positions are the model's";
        }
        if (position)
            return "the list ends where the model ends";
        position = m_list.GetTailPosition();
        for (auto item = m_items.rbegin(); item != m_items.rend(); ++item) {
            if (!position || position != item->position || m_list.GetPrev(position) != item->text)
                return "the strings and positions backwards are the model's";
        }
        return require(!position, "the list begins where the model begins");
    }

    Dice m_dice;
    CStringList m_list;
    Items m_items;
};

// ---- the map ----------------------------------------------------------------------------------------------

/// A CMapStringToPtr and a model that hashes as it does, so that it knows the order too. Every operation
/// answers what was wrong, or null.
class MapPair
{
public:
    MapPair(unsigned int seed, long blockSize) : m_dice(seed), m_map(blockSize), m_buckets(17) {}

    const char *step(const char *&name)
    {
        const auto &operation = chooseOperation();
        name = operation.name;
        if (const char *const mistake = (this->*operation.call)())
            return mistake;
        return compare();
    }

private:
    struct Entry
    {
        std::wstring key;
        void *value;
        const CMapStringToPtr::CAssoc *association;
    };
    using Call = const char *(MapPair::*)();
    struct Operation
    {
        const char *name;
        Call call;
    };

    const Operation &chooseOperation()
    {
        static const std::vector<Operation> operations{
            {"SetAt", &MapPair::setAt},
            {"SetAt", &MapPair::setAt},
            {"SetAt", &MapPair::setAt},
            {"[] to be read", &MapPair::readThroughIndex},
            {"[] to be written", &MapPair::writeThroughIndex},
            {"Lookup", &MapPair::lookup},
            {"LookupKey", &MapPair::lookupKey},
            {"GetAssocAt", &MapPair::getAssocAt},
            {"HashKey", &MapPair::hashKey},
            {"NewAssoc and FreeAssoc", &MapPair::newAndFree},
            {"a null key", &MapPair::nullKey},
            {"a key too long", &MapPair::keyTooLong},
            {"GetNextAssoc at null", &MapPair::nextAtNull},
            {"RemoveKey of any key", &MapPair::removeAnyKey},
        };
        static const Operation removeStored{"RemoveKey of a stored key", &MapPair::removeStoredKey};
        static const Operation removeWalking{"RemoveKey while walking", &MapPair::removeWhileWalking};
        static const Operation removeAllOperation{"RemoveAll", &MapPair::removeAll};
        static const Operation initOperation{"InitHashTable", &MapPair::initHashTable};

        switch (m_dice(1000)) {
        case 0:
            return removeAllOperation;
        case 1:
            return removeWalking;
        }
        if (m_count == 0 && m_dice(2) == 0)
            return initOperation;
        if (m_count > 0 && (m_count > m_limit || m_dice(5) == 0))
            return removeStored;
        return operations[std::size_t(m_dice(operations.size()))];
    }

    static const char *require(bool holds, const char *promise) { return holds ? nullptr : promise; }
    static unsigned int hashOf(const std::wstring &key)
    {
        std::uint64_t hash = 0;
        for (const wchar_t character : key)
            hash = (hash * 33 + std::uint32_t(character)) % 0x100000000;
        return static_cast<unsigned int>(hash);
    }
    std::size_t bucketOf(const std::wstring &key) const { return hashOf(key) % m_buckets.size(); }
    void *anyValue() { return reinterpret_cast<void *>(quintptr(m_dice(1000))); }
    Entry *find(const std::wstring &key)
    {
        if (m_buckets.empty())
            return nullptr;
        for (Entry &entry : m_buckets[bucketOf(key)]) {
            if (entry.key == key)
                return &entry;
        }
        return nullptr;
    }
    /// The model's entry, made when it is not there, as the map's is by then.
    Entry &entryFor(const std::wstring &key)
    {
        if (Entry *const entry = find(key))
            return *entry;
        if (m_buckets.empty())
            m_buckets.resize(17);
        unsigned int bucket = 0;
        unsigned int hash = 0;
        auto &entries = m_buckets[bucketOf(key)];
        entries.push_front({key, nullptr, m_map.GetAssocAt(key.c_str(), bucket, hash)});
        ++m_count;
        return entries.front();
    }
    bool forget(const std::wstring &key)
    {
        if (!find(key))
            return false;
        auto &entries = m_buckets[bucketOf(key)];
        entries.erase(std::find_if(entries.begin(), entries.end(),
            [&](const Entry &entry) { return entry.key == key; }));
        --m_count;
        return true;
    }
    std::vector<const Entry *> entriesInOrder() const
    {
        std::vector<const Entry *> all;
        for (const auto &entries : m_buckets) {
            for (const Entry &entry : entries)
                all.push_back(&entry);
        }
        return all;
    }

    const char *setAt()
    {
        const std::wstring key = m_dice.text();
        void *const value = anyValue();
        m_map.SetAt(key.c_str(), value);
        entryFor(key).value = value;
        return nullptr;
    }
    const char *readThroughIndex()
    {
        const std::wstring key = m_dice.text();
        const void *const value = m_map[key.c_str()];
        return require(entryFor(key).value == value, "the value is the model's");
    }
    const char *writeThroughIndex()
    {
        const std::wstring key = m_dice.text();
        void *const value = anyValue();
        m_map[key.c_str()] = value;
        entryFor(key).value = value;
        return nullptr;
    }
    const char *lookup()
    {
        const std::wstring key = m_dice.text();
        void *const untouched = &m_count;
        void *value = untouched;
        const bool found = m_map.Lookup(key.c_str(), value);
        const Entry *const entry = find(key);
        return require(found == (entry != nullptr) && value == (entry ? entry->value : untouched),
            "the model finds the same");
    }
    const char *lookupKey()
    {
        const std::wstring key = m_dice.text();
        const wchar_t *const untouched = key.c_str();
        const wchar_t *stored = untouched;
        const bool found = m_map.LookupKey(key.c_str(), stored);
        const Entry *const entry = find(key);
        return require(found == (entry != nullptr) && stored == (entry ? entry->association->key : untouched)
            && key == stored, "the model finds the same");
    }
    const char *getAssocAt()
    {
        const std::wstring key = m_dice.text();
        unsigned int bucket = ~0u;
        unsigned int hash = 0;
        const CMapStringToPtr::CAssoc *const association = m_map.GetAssocAt(key.c_str(), bucket, hash);
        const Entry *const entry = find(key);
        if (hash != hashOf(key) || (!m_buckets.empty() && bucket != bucketOf(key)))
            return "bucket and hash are the model's";
        return require(association == (entry ? entry->association : nullptr), "the model finds the same");
    }
    const char *hashKey()
    {
        const std::wstring key = m_dice.text();
        return require(m_map.HashKey(key.c_str()) == hashOf(key), "the hash is the model's");
    }
    const char *newAndFree()
    {
        CMapStringToPtr::CAssoc *const association = m_map.NewAssoc();
        const bool blank = association->key[0] == 0 && !association->value && m_map.GetCount() == m_count + 1;
        m_map.FreeAssoc(association);
        return require(blank, "a blank association is counted");
    }
    const char *nullKey()
    {
        const wchar_t *const none = nullptr;
        void *value = nullptr;
        const Entry *const entry = find(L"");
        if (m_map.HashKey(none) != 0 || m_map.Lookup(none, value) != (entry != nullptr)
            || value != (entry ? entry->value : nullptr))
            return "a null key is the empty one";
        if (m_dice(2) == 0) {
            m_map.SetAt(none, this);
            entryFor(L"").value = this;
            return nullptr;
        }
        return require(m_map.RemoveKey(none) == forget(L""), "a null key is the empty one");
    }
    const char *keyTooLong()
    {
        const std::wstring key(std::size_t(512 + m_dice(3)), L'k');
        void *value = nullptr;
        return require(!m_map.Lookup(key.c_str(), value)
            && !m_map.RemoveKey(key.c_str()), "no such key is found");
    }
    const char *nextAtNull()
    {
        POSITION position = nullptr;
        CString key = L"kept";
        void *value = this;
        m_map.GetNextAssoc(position, key, value);
        return require(!position && key == L"kept" && value == this, "nothing happens");
    }
    const char *removeAnyKey()
    {
        const std::wstring key = m_dice.text();
        return require(m_map.RemoveKey(key.c_str()) == forget(key), "the model has the same keys");
    }
    const char *removeStoredKey()
    {
        const auto entries = entriesInOrder();
        const std::wstring key = entries[std::size_t(m_dice(entries.size()))]->key;
        forget(key);
        return require(m_map.RemoveKey(key.c_str()), "the key is there");
    }
    const char *removeWhileWalking()
    {
        for (POSITION position = m_map.GetStartPosition(); position;) {
            CString key;
            void *value = nullptr;
            m_map.GetNextAssoc(position, key, value);
            if (m_dice(3) == 0 && m_map.RemoveKey(key) != forget(key))
                return "the model has the same keys";
        }
        return nullptr;
    }
    const char *removeAll()
    {
        m_map.RemoveAll();
        for (auto &entries : m_buckets)
            entries.clear();
        m_count = 0;
        return nullptr;
    }
    const char *initHashTable()
    {
        static const std::vector<unsigned int> sizes{0, 1, 2, 3, 17, 17, 31, 64, 211};
        const unsigned int size = sizes[std::size_t(m_dice(sizes.size()))];
        m_map.InitHashTable(size, m_dice(2) == 0);
        m_buckets.clear();
        m_buckets.resize(size);
        m_limit = m_dice(40); // Small maps become empty again soon.
        return nullptr;
    }

    const char *compare() const
    {
        if (m_map.GetCount() != m_count || m_map.GetSize() != m_count || m_map.IsEmpty() != (m_count == 0))
            return "the counts are the model's";
        if (m_map.GetHashTableSize() != m_buckets.size())
            return "the number of buckets is the model's";
        POSITION position = m_map.GetStartPosition();
        if (position != reinterpret_cast<POSITION>(m_count == 0 ? quintptr(0) : ~quintptr(0)))
            return "the start position tells whether there is something";
        bool first = true;
        for (const Entry *entry : entriesInOrder()) {
            if (!position || (!first && position != reinterpret_cast<POSITION>(quintptr(entry->association))))
                return "the positions are the model's";
            CString key;
            void *value = nullptr;
            m_map.GetNextAssoc(position, key, value);
            if (key != entry->key || value != entry->value)
                return "keys and values are the model's, in its order";
            first = false;
        }
        return require(!position, "the map ends where the model ends");
    }

    Dice m_dice;
    CMapStringToPtr m_map;
    std::vector<std::deque<Entry>> m_buckets;
    long m_count = 0;
    long m_limit = 40;
};

} // namespace

class tst_ListAndMapModels : public KxTestCase
{
    Q_OBJECT

private slots:
    void list_data() { pairs(); }
    void list() { compare<ListPair>(); }
    void map_data() { pairs(); }
    void map() { compare<MapPair>(); }

private:
    static void pairs()
    {
        QTest::addColumn<unsigned int>("seed");
        QTest::addColumn<long>("blockSize");
        QTest::newRow("in blocks of 10") << 20260101u << 10L;
        QTest::newRow("in blocks of 3") << 20260102u << 3L;
        QTest::newRow("with a block size of 0") << 20260103u << 0L;
    }
    template<typename Pair>
    static void compare()
    {
        QFETCH(unsigned int, seed);
        QFETCH(long, blockSize);
        Pair pair(seed, blockSize);
        for (int step = 0; step < stepCount; ++step) {
            const char *operation = "";
            const char *const mistake = pair.step(operation);
            QVERIFY2(!mistake, qPrintable(QStringLiteral("seed %1, step %2, %3: not so: %4")
                .arg(seed).arg(step).arg(QLatin1String(operation), QLatin1String(mistake))));
        }
    }
};

KX_TEST_MAIN(tst_ListAndMapModels)
#include "tst_list_and_map_models.moc"
