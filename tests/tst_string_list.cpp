// SPDX-License-Identifier: MIT
#include "KxTestCase.h"
#include "KxTextRows.h"

#include "KxAfxColl.h"

#include <array>
#include <climits>
#include <cstring>
#include <string>
#include <type_traits>

namespace {

const wchar_t longText[] = L"a text that no string object keeps inside itself";

/// The protected members, for everybody.
class OpenList : public CStringList
{
public:
    using CStringList::CNode;
    using CStringList::CStringList;
    using CStringList::FreeNode;
    using CStringList::NewNode;
};

enum Field { HeadField, TailField, CountField, FreeField, BlocksField, BlockSizeField };

/// The object as the words that it consists of.
std::array<qint64, 6> fieldsOf(const CStringList &list)
{
    static_assert(sizeof(CStringList) == 48);
    std::array<qint64, 6> fields;
    std::memcpy(fields.data(), &list, sizeof fields);
    return fields;
}

template<typename Pointer>
qint64 address(Pointer pointer)
{
    return static_cast<qint64>(reinterpret_cast<quintptr>(pointer));
}

qint64 wordAt(const void *place, int index)
{
    qint64 word = 0;
    std::memcpy(&word, static_cast<const char *>(place) + index * 8, sizeof word);
    return word;
}

/// Adds a string of each character.
void fill(CStringList &list, const wchar_t *letters)
{
    for (; *letters; ++letters)
        list.AddTail(CString(*letters));
}

/// The strings between bars; the walk in both directions, the ends and the count must agree on them.
std::wstring content(const CStringList &list)
{
    std::wstring forwards;
    std::wstring backwards;
    long count = 0;
    for (POSITION position = list.GetHeadPosition(); position && count <= list.GetCount(); ++count) {
        if ((position == list.GetTailPosition()) != (count + 1 == list.GetCount()))
            return L"the tail is not the last node";
        forwards += list.GetNext(position) + L"|";
    }
    POSITION position = list.GetTailPosition();
    for (long i = 0; position && i <= count; ++i)
        backwards = list.GetPrev(position) + L"|" + backwards;
    if (forwards != backwards)
        return L"forwards " + forwards + L", backwards " + backwards;
    if (list.GetCount() != count || list.GetSize() != count || list.IsEmpty() != (count == 0))
        return L"the count is wrong";
    return forwards;
}

/// What a list of these letters holds after `edit`.
template<typename Edit>
TextCall edited(const wchar_t *letters, Edit edit)
{
    return [letters, edit] {
        CStringList list(2);
        fill(list, letters);
        edit(list);
        return content(list);
    };
}

/// What `ask` answers for a list of these letters.
template<typename Ask>
NumberCall asked(const wchar_t *letters, Ask ask)
{
    return [letters, ask] {
        CStringList list(2);
        fill(list, letters);
        return qint64(ask(list));
    };
}

const CStringList &asConst(const CStringList &list)
{
    return list;
}

} // namespace

class tst_StringList : public KxTestCase
{
    Q_OBJECT

private slots:
    void layout_data();
    void layout() { compareNumber(); }
    void editing_data();
    void editing() { compareText(); }
    void texts_data();
    void texts() { compareText(); }
    void positions_data();
    void positions() { compareNumber(); }
    void nodes_data();
    void nodes() { compareNumber(); }
    void wrongArguments_data();
    void wrongArguments() { compareText(); }

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
    static void textColumns()
    {
        QTest::addColumn<TextCall>("call");
        QTest::addColumn<QString>("expected");
    }
};

// ---- fields, by their place -------------------------------------------------------------------------------

void tst_StringList::layout_data()
{
    numberColumns();
    numberRow("a POSITION is a pointer to __POSITION",
        [] { return std::is_same_v<POSITION, __POSITION *>; }, 1);
    numberRow("the count is a signed number of 64 bits",
        [] { return std::is_same_v<decltype(CStringList().GetCount()), long>; }, 1);
    numberRow("the size is a signed number of 64 bits",
        [] { return std::is_same_v<decltype(CStringList().GetSize()), long>; }, 1);

    const char *const names[] = {"head", "tail", "count", "free nodes", "blocks"};
    for (int field = HeadField; field <= BlocksField; ++field) {
        const QByteArray row = "a new list, field " + QByteArray::number(field) + ": " + names[field];
        numberRow(row.constData(), [field] { return fieldsOf(CStringList(7))[std::size_t(field)]; }, 0);
    }
    numberRow("a new list, field 5: the block size as given",
        [] { return fieldsOf(CStringList(7))[BlockSizeField]; }, 7);
    numberRow("the block size beyond 32 bits as given",
        [] { return fieldsOf(CStringList(LONG_MAX))[BlockSizeField]; }, LONG_MAX);
    numberRow("the block size 0 as given", [] { return fieldsOf(CStringList(0))[BlockSizeField]; }, 0);
    numberRow("the block size -3 as given", [] { return fieldsOf(CStringList(-3))[BlockSizeField]; }, -3);
    numberRow("the block size when none is given",
        [] { return fieldsOf(CStringList())[BlockSizeField]; }, 10);

    numberRow("field 0 is the first node",
        asked(L"abc", [](CStringList &l) { return fieldsOf(l)[HeadField] == address(l.FindIndex(0)); }), 1);
    numberRow("field 1 is the last node",
        asked(L"abc", [](CStringList &l) { return fieldsOf(l)[TailField] == address(l.FindIndex(2)); }), 1);
    numberRow("field 2 is the count",
        asked(L"abc", [](CStringList &list) { return fieldsOf(list)[CountField]; }), 3);
    numberRow("field 3 is the next free node", [] {
        CStringList list(3);
        fill(list, L"ab");
        const auto fields = fieldsOf(list);
        return fields[FreeField] - fields[TailField];
    }, 16 + sizeof(CString));
    numberRow("field 3 is null when the block is used up", asked(L"ab", [](CStringList &list) {
        return fieldsOf(list)[FreeField];
    }), 0);
    numberRow("field 4 is the block, 8 bytes before the first node", [] {
        CStringList list(3);
        fill(list, L"ab");
        const auto fields = fieldsOf(list);
        return fields[HeadField] - fields[BlocksField];
    }, 8);
    numberRow("field 5 stays",
        asked(L"abc", [](CStringList &list) { return fieldsOf(list)[BlockSizeField]; }), 2);

    numberRow("a node: two links and a string", [] { return qint64(sizeof(OpenList::CNode)); },
        16 + sizeof(CString));
    numberRow("a node's first field is the next node", asked(L"abc", [](CStringList &list) {
        return wordAt(list.FindIndex(1), 0) == address(list.FindIndex(2));
    }), 1);
    numberRow("a node's second field is the previous node", asked(L"abc", [](CStringList &list) {
        return wordAt(list.FindIndex(1), 1) == address(list.FindIndex(0));
    }), 1);
    numberRow("a node's third field is the string", asked(L"abc", [](CStringList &list) {
        return address(&list.GetAt(list.FindIndex(1))) - address(list.FindIndex(1));
    }), 16);
}

// ---- what the list holds afterwards -----------------------------------------------------------------------

void tst_StringList::editing_data()
{
    using List = CStringList;
    textColumns();
    textRow("a new list is empty", edited(L"", [](List &) {}), L"");
    textRow("AddHead to an empty list", edited(L"", [](List &l) { l.AddHead(L"x"); }), L"x|");
    textRow("AddTail to an empty list", edited(L"", [](List &l) { l.AddTail(L"x"); }), L"x|");
    textRow("AddHead, pointer", edited(L"ab", [](List &l) { l.AddHead(L"x"); }), L"x|a|b|");
    textRow("AddHead, string", edited(L"ab", [](List &l) { l.AddHead(CString(L"x")); }), L"x|a|b|");
    textRow("AddTail, pointer", edited(L"ab", [](List &l) { l.AddTail(L"x"); }), L"a|b|x|");
    textRow("AddTail, string", edited(L"ab", [](List &l) { l.AddTail(CString(L"x")); }), L"a|b|x|");
    textRow("AddTail of an empty string", edited(L"a", [](List &l) { l.AddTail(L""); }), L"a||");
    textRow("AddTail of a long string", edited(L"a", [](List &l) { l.AddTail(longText); }),
        L"a|" + std::wstring(longText) + L"|");
    textRow("AddTail of a null pointer adds an empty string",
        edited(L"a", [](List &l) { l.AddTail(noText); }), L"a||");
    textRow("AddHead of the list's own string",
        edited(L"ab", [](List &l) { l.AddHead(l.GetTail()); }), L"b|a|b|");
    textRow("AddTail of the list's own text",
        edited(L"ab", [](List &l) { l.AddTail(l.GetHead().c_str()); }), L"a|b|a|");

    textRow("AddHead of a list keeps its order in front", edited(L"ab", [](List &l) {
        List other(3);
        fill(other, L"xyz");
        l.AddHead(&other);
    }), L"x|y|z|a|b|");
    textRow("AddTail of a list keeps its order behind", edited(L"ab", [](List &l) {
        List other(3);
        fill(other, L"xyz");
        l.AddTail(&other);
    }), L"a|b|x|y|z|");
    textRow("AddHead of a list to an empty one", edited(L"", [](List &l) {
        List other(3);
        fill(other, L"xy");
        l.AddHead(&other);
    }), L"x|y|");
    textRow("AddTail of a list to an empty one", edited(L"", [](List &l) {
        List other(3);
        fill(other, L"xy");
        l.AddTail(&other);
    }), L"x|y|");
    textRow("AddHead of an empty list", edited(L"ab", [](List &l) {
        List other(3);
        l.AddHead(&other);
    }), L"a|b|");
    textRow("AddTail of an empty list", edited(L"ab", [](List &l) {
        List other(3);
        l.AddTail(&other);
    }), L"a|b|");
    const auto giver = [](bool front) {
        return [front] {
            List other(3);
            fill(other, L"xyz");
            List list(3);
            front ? list.AddHead(&other) : list.AddTail(&other);
            list.GetHead() = L"changed";
            return content(other);
        };
    };
    textRow("AddHead leaves the other list alone", giver(true), L"x|y|z|");
    textRow("AddTail leaves the other list alone", giver(false), L"x|y|z|");

    textRow("RemoveHead", edited(L"abc", [](List &l) { l.RemoveHead(); }), L"b|c|");
    textRow("RemoveTail", edited(L"abc", [](List &l) { l.RemoveTail(); }), L"a|b|");
    textRow("RemoveHead of the only one", edited(L"a", [](List &l) { l.RemoveHead(); }), L"");
    textRow("RemoveTail of the only one", edited(L"a", [](List &l) { l.RemoveTail(); }), L"");
    textRow("RemoveHead of two, twice", edited(L"ab", [](List &l) { l.RemoveHead(); l.RemoveHead(); }), L"");
    textRow("RemoveHead is a string to be added again",
        edited(L"abc", [](List &l) { l.AddTail(l.RemoveHead()); }), L"b|c|a|");
    textRow("an emptied list takes strings again",
        edited(L"a", [](List &l) { l.RemoveTail(); l.AddHead(L"x"); l.AddTail(L"y"); }), L"x|y|");

    textRow("InsertBefore the head, pointer",
        edited(L"ab", [](List &l) { l.InsertBefore(l.GetHeadPosition(), L"x"); }), L"x|a|b|");
    textRow("InsertBefore the head, string",
        edited(L"ab", [](List &l) { l.InsertBefore(l.GetHeadPosition(), CString(L"x")); }), L"x|a|b|");
    textRow("InsertBefore another, pointer",
        edited(L"abc", [](List &l) { l.InsertBefore(l.FindIndex(1), L"x"); }), L"a|x|b|c|");
    textRow("InsertBefore another, string",
        edited(L"abc", [](List &l) { l.InsertBefore(l.FindIndex(2), CString(L"x")); }), L"a|b|x|c|");
    textRow("InsertAfter the tail, pointer",
        edited(L"ab", [](List &l) { l.InsertAfter(l.GetTailPosition(), L"x"); }), L"a|b|x|");
    textRow("InsertAfter the tail, string",
        edited(L"ab", [](List &l) { l.InsertAfter(l.GetTailPosition(), CString(L"x")); }), L"a|b|x|");
    textRow("InsertAfter another, pointer",
        edited(L"abc", [](List &l) { l.InsertAfter(l.FindIndex(0), L"x"); }), L"a|x|b|c|");
    textRow("InsertAfter another, string",
        edited(L"abc", [](List &l) { l.InsertAfter(l.FindIndex(1), CString(L"x")); }), L"a|b|x|c|");
    textRow("InsertBefore of the list's own string", edited(L"abc", [](List &l) {
        l.InsertBefore(l.FindIndex(1), l.GetAt(l.FindIndex(1)));
    }), L"a|b|b|c|");
    textRow("InsertAfter of the list's own text", edited(L"abc", [](List &l) {
        l.InsertAfter(l.FindIndex(1), l.GetAt(l.FindIndex(1)).c_str());
    }), L"a|b|b|c|");

    textRow("RemoveAt the head", edited(L"abc", [](List &l) { l.RemoveAt(l.FindIndex(0)); }), L"b|c|");
    textRow("RemoveAt the middle", edited(L"abc", [](List &l) { l.RemoveAt(l.FindIndex(1)); }), L"a|c|");
    textRow("RemoveAt the tail", edited(L"abc", [](List &l) { l.RemoveAt(l.FindIndex(2)); }), L"a|b|");
    textRow("RemoveAt the only one", edited(L"a", [](List &l) { l.RemoveAt(l.FindIndex(0)); }), L"");
    textRow("RemoveAll", edited(L"abc", [](List &l) { l.RemoveAll(); }), L"");
    textRow("RemoveAll of an empty list", edited(L"", [](List &l) { l.RemoveAll(); }), L"");
    textRow("RemoveAll, then AddTail",
        edited(L"abc", [](List &l) { l.RemoveAll(); fill(l, L"xyz"); }), L"x|y|z|");

    textRow("SetAt, pointer", edited(L"abc", [](List &l) { l.SetAt(l.FindIndex(1), L"x"); }), L"a|x|c|");
    textRow("SetAt, string",
        edited(L"abc", [](List &l) { l.SetAt(l.FindIndex(1), CString(L"x")); }), L"a|x|c|");
    textRow("SetAt, its own string",
        edited(L"abc", [](List &l) { l.SetAt(l.FindIndex(1), l.GetAt(l.FindIndex(1))); }), L"a|b|c|");
    textRow("SetAt, its own text",
        edited(L"abc", [](List &l) { l.SetAt(l.FindIndex(1), l.GetAt(l.FindIndex(1)).c_str()); }), L"a|b|c|");
    textRow("GetHead can be written to", edited(L"abc", [](List &l) { l.GetHead() = L"x"; }), L"x|b|c|");
    textRow("GetTail can be written to", edited(L"abc", [](List &l) { l.GetTail() = L"x"; }), L"a|b|x|");
    textRow("GetAt can be written to",
        edited(L"abc", [](List &l) { l.GetAt(l.FindIndex(1)) = L"x"; }), L"a|x|c|");
    textRow("GetNext can be written to", edited(L"abc", [](List &l) {
        POSITION position = l.FindIndex(1);
        l.GetNext(position) = L"x";
    }), L"a|x|c|");
    textRow("GetPrev can be written to", edited(L"abc", [](List &l) {
        POSITION position = l.FindIndex(1);
        l.GetPrev(position) = L"x";
    }), L"a|x|c|");
    textRow("each second one removed while walking", edited(L"abcdef", [](List &l) {
        for (POSITION position = l.GetHeadPosition(); position;) {
            const POSITION removed = position;
            l.GetNext(position);
            if (position)
                l.GetNext(position);
            l.RemoveAt(removed);
        }
    }), L"b|d|f|");

    textRow("a hundred nodes in blocks of 2", [] {
        CStringList list(2);
        for (int i = 0; i < 100; ++i)
            list.AddTail(longText);
        return std::to_wstring(content(list).size() / std::size(longText));
    }, L"100");
}

void tst_StringList::texts_data()
{
    textColumns();
    const auto text = [](const char *promise, auto ask, const wchar_t *expected) {
        textRow(promise, [ask] {
            CStringList list(2);
            fill(list, L"abc");
            return std::wstring(ask(list));
        }, expected);
    };
    text("GetHead", [](CStringList &list) { return list.GetHead(); }, L"a");
    text("GetHead, const", [](const CStringList &list) { return list.GetHead(); }, L"a");
    text("GetTail", [](CStringList &list) { return list.GetTail(); }, L"c");
    text("GetTail, const", [](const CStringList &list) { return list.GetTail(); }, L"c");
    text("GetAt", [](CStringList &list) { return list.GetAt(list.FindIndex(1)); }, L"b");
    text("GetAt, const", [](const CStringList &list) { return list.GetAt(list.FindIndex(1)); }, L"b");
    text("RemoveHead returns the first", [](CStringList &list) { return list.RemoveHead(); }, L"a");
    text("RemoveTail returns the last", [](CStringList &list) { return list.RemoveTail(); }, L"c");
    text("RemoveHead returns the only one", [](CStringList &list) {
        list.RemoveTail();
        list.RemoveTail();
        return list.RemoveHead();
    }, L"a");
    text("RemoveTail returns the only one", [](CStringList &list) {
        list.RemoveHead();
        list.RemoveHead();
        return list.RemoveTail();
    }, L"c");
    text("RemoveHead returns all of a long string", [](CStringList &list) {
        list.AddHead(longText);
        return list.RemoveHead();
    }, longText);
    text("GetNext returns the string it stood at", [](CStringList &list) {
        POSITION position = list.FindIndex(1);
        return list.GetNext(position);
    }, L"b");
    text("GetNext, const, returns the string it stood at", [](const CStringList &list) {
        POSITION position = list.FindIndex(1);
        return list.GetNext(position);
    }, L"b");
    text("GetPrev returns the string it stood at", [](CStringList &list) {
        POSITION position = list.FindIndex(1);
        return list.GetPrev(position);
    }, L"b");
    text("GetPrev, const, returns the string it stood at", [](const CStringList &list) {
        POSITION position = list.FindIndex(1);
        return list.GetPrev(position);
    }, L"b");
    text("a string is the list's own copy", [](CStringList &list) {
        CString added = L"x";
        list.AddTail(added);
        added = L"changed";
        return list.GetTail();
    }, L"x");
}

// ---- positions --------------------------------------------------------------------------------------------

void tst_StringList::positions_data()
{
    using List = CStringList;
    numberColumns();
    const auto row = [](const char *promise, auto ask) { numberRow(promise, asked(L"abcb", ask), 1); };

    numberRow("GetHeadPosition of an empty list is null",
        asked(L"", [](List &l) { return !l.GetHeadPosition(); }), 1);
    numberRow("GetTailPosition of an empty list is null",
        asked(L"", [](List &l) { return !l.GetTailPosition(); }), 1);
    numberRow("one string is at both ends",
        asked(L"a", [](List &l) { return l.GetHeadPosition()
            && l.GetHeadPosition() == l.GetTailPosition(); }), 1);
    row("a position is the node's address", [](List &l) {
        return address(&l.GetTail()) - 16 == address(l.GetTailPosition());
    });
    row("GetHeadPosition is the node of the first string",
        [](List &l) { return &l.GetAt(l.GetHeadPosition()) == &l.GetHead(); });
    row("GetTailPosition is the node of the last string",
        [](List &l) { return &l.GetAt(l.GetTailPosition()) == &l.GetTail(); });

    row("GetNext moves to the next node", [](List &l) {
        POSITION position = l.FindIndex(1);
        l.GetNext(position);
        return position == l.FindIndex(2);
    });
    row("GetNext, const, moves to the next node", [](List &l) {
        POSITION position = l.FindIndex(1);
        asConst(l).GetNext(position);
        return position == l.FindIndex(2);
    });
    row("GetNext at the tail moves to null", [](List &l) {
        POSITION position = l.GetTailPosition();
        l.GetNext(position);
        return !position;
    });
    row("GetPrev moves to the previous node", [](List &l) {
        POSITION position = l.FindIndex(2);
        l.GetPrev(position);
        return position == l.FindIndex(1);
    });
    row("GetPrev, const, moves to the previous node", [](List &l) {
        POSITION position = l.FindIndex(2);
        asConst(l).GetPrev(position);
        return position == l.FindIndex(1);
    });
    row("GetPrev at the head moves to null", [](List &l) {
        POSITION position = l.GetHeadPosition();
        l.GetPrev(position);
        return !position;
    });

    row("AddHead, pointer, returns the head", [](List &l) { return l.AddHead(L"x") == l.GetHeadPosition(); });
    row("AddHead, string, returns the head",
        [](List &l) { return l.AddHead(CString(L"x")) == l.GetHeadPosition(); });
    row("AddTail, pointer, returns the tail", [](List &l) { return l.AddTail(L"x") == l.GetTailPosition(); });
    row("AddTail, string, returns the tail",
        [](List &l) { return l.AddTail(CString(L"x")) == l.GetTailPosition(); });
    row("InsertBefore, pointer, returns the new position",
        [](List &l) { return l.InsertBefore(l.FindIndex(2), L"x") == l.FindIndex(2); });
    row("InsertBefore, string, returns the new position",
        [](List &l) { return l.InsertBefore(l.FindIndex(2), CString(L"x")) == l.FindIndex(2); });
    row("InsertBefore the head returns the head",
        [](List &l) { return l.InsertBefore(l.FindIndex(0), L"x") == l.GetHeadPosition(); });
    row("InsertAfter, pointer, returns the new position",
        [](List &l) { return l.InsertAfter(l.FindIndex(1), L"x") == l.FindIndex(2); });
    row("InsertAfter, string, returns the new position",
        [](List &l) { return l.InsertAfter(l.FindIndex(1), CString(L"x")) == l.FindIndex(2); });
    row("InsertAfter the tail returns the tail",
        [](List &l) { return l.InsertAfter(l.GetTailPosition(), L"x") == l.GetTailPosition(); });
    row("other positions stay when strings come and go", [](List &l) {
        const POSITION kept = l.FindIndex(2);
        l.AddHead(L"x");
        l.InsertBefore(kept, L"y");
        l.RemoveAt(l.FindIndex(0));
        l.RemoveTail();
        return l.FindIndex(3) == kept && l.GetAt(kept) == L"c";
    });

    row("FindIndex(0) is the head", [](List &l) { return l.FindIndex(0) == l.GetHeadPosition(); });
    row("FindIndex(count - 1) is the tail", [](List &l) { return l.FindIndex(3) == l.GetTailPosition(); });
    row("FindIndex(2) is two links from the head", [](List &l) {
        POSITION position = l.GetHeadPosition();
        l.GetNext(position);
        l.GetNext(position);
        return l.FindIndex(2) == position;
    });
    row("FindIndex(count) is null", [](List &l) { return !l.FindIndex(l.GetCount()); });
    row("FindIndex(-1) is null", [](List &l) { return !l.FindIndex(-1); });
    row("FindIndex(LONG_MIN) is null", [](List &l) { return !l.FindIndex(LONG_MIN); });
    row("FindIndex(LONG_MAX) is null", [](List &l) { return !l.FindIndex(LONG_MAX); });
    numberRow("FindIndex(0) of an empty list is null",
        asked(L"", [](List &l) { return !l.FindIndex(0); }), 1);

    row("Find begins at the head", [](List &l) { return l.Find(L"a") == l.FindIndex(0); });
    row("Find gives the first of equal ones", [](List &l) { return l.Find(L"b") == l.FindIndex(1); });
    row("Find, after null, begins at the head",
        [](List &l) { return l.Find(L"b", nullptr) == l.FindIndex(1); });
    row("Find begins behind the given position",
        [](List &l) { return l.Find(L"b", l.FindIndex(1)) == l.FindIndex(3); });
    row("Find takes the one right behind the given position",
        [](List &l) { return l.Find(L"b", l.FindIndex(0)) == l.FindIndex(1); });
    row("Find does not look before the given position",
        [](List &l) { return !l.Find(L"a", l.FindIndex(1)); });
    row("Find does not look at the given position", [](List &l) { return !l.Find(L"a", l.FindIndex(0)); });
    row("Find behind the tail is null", [](List &l) { return !l.Find(L"b", l.GetTailPosition()); });
    row("Find of what is not there is null", [](List &l) { return !l.Find(L"x"); });
    row("Find minds the case", [](List &l) { return !l.Find(L"A"); });
    row("Find wants the whole string", [](List &l) { return !l.Find(L"ab") && !l.Find(L""); });
    row("Find of a string whose beginning is there", [](List &l) {
        const POSITION added = l.AddTail(L"ab");
        return l.Find(L"ab") == added;
    });
    row("Find of an empty string", [](List &l) {
        const POSITION added = l.AddTail(L"");
        return l.Find(L"") == added;
    });
    numberRow("Find in an empty list is null", asked(L"", [](List &l) { return !l.Find(L""); }), 1);
}

// ---- nodes and blocks -------------------------------------------------------------------------------------

void tst_StringList::nodes_data()
{
    using Node = OpenList::CNode;
    numberColumns();
    const auto row = [](const char *promise, auto ask) { numberRow(promise, ask, 1); };

    row("NewNode sets both links", [] {
        OpenList list(3);
        Node previous{};
        Node next{};
        const Node *const node = list.NewNode(&previous, &next);
        return node->pPrev == &previous && node->pNext == &next;
    });
    row("NewNode takes null links", [] {
        OpenList list(3);
        const Node *const node = list.NewNode(nullptr, nullptr);
        return !node->pPrev && !node->pNext;
    });
    row("NewNode leaves the neighbours alone", [] {
        OpenList list(3);
        Node previous{};
        Node next{};
        list.NewNode(&previous, &next);
        return !previous.pNext && !previous.pPrev && !next.pNext && !next.pPrev;
    });
    row("NewNode leaves the ends alone", [] {
        OpenList list(3);
        list.NewNode(nullptr, nullptr);
        return !list.GetHeadPosition() && !list.GetTailPosition();
    });
    row("NewNode makes an empty string", [] {
        OpenList list(3);
        return list.NewNode(nullptr, nullptr)->data.empty();
    });
    row("NewNode makes an empty string of a node that had a text", [] {
        OpenList list(3);
        fill(list, L"ab");
        list.GetTail() = longText;
        const POSITION last = list.GetTailPosition();
        list.RemoveTail();
        const Node *const node = list.NewNode(nullptr, nullptr);
        return address(node) == address(last) && node->data.empty();
    });
    row("NewNode counts", [] {
        OpenList list(3);
        list.NewNode(nullptr, nullptr);
        list.NewNode(nullptr, nullptr);
        return list.GetCount() == 2;
    });
    row("FreeNode counts down", [] {
        OpenList list(3);
        list.NewNode(nullptr, nullptr);
        list.FreeNode(list.NewNode(nullptr, nullptr));
        return list.GetCount() == 1;
    });
    row("the nodes of a block come in the order of memory", [] {
        OpenList list(4);
        const qint64 first = address(list.NewNode(nullptr, nullptr));
        for (qint64 i = 1; i < 4; ++i) {
            if (address(list.NewNode(nullptr, nullptr)) != first + i * qint64(sizeof(Node)))
                return false;
        }
        return true;
    });
    row("the first node of a block comes first", [] {
        OpenList list(4);
        const qint64 first = address(list.NewNode(nullptr, nullptr));
        return first == fieldsOf(list)[BlocksField] + qint64(sizeof(CPlex));
    });
    row("the first node of a second block comes first too", [] {
        OpenList list(2);
        list.NewNode(nullptr, nullptr);
        list.NewNode(nullptr, nullptr);
        const qint64 third = address(list.NewNode(nullptr, nullptr));
        return third == fieldsOf(list)[BlocksField] + qint64(sizeof(CPlex));
    });
    row("a node that was freed last is used first", [] {
        OpenList list(4);
        list.NewNode(nullptr, nullptr);
        Node *const second = list.NewNode(nullptr, nullptr);
        Node *const third = list.NewNode(nullptr, nullptr);
        list.FreeNode(second);
        list.FreeNode(third);
        return list.NewNode(nullptr, nullptr) == third && list.NewNode(nullptr, nullptr) == second
            && address(list.NewNode(nullptr, nullptr)) == address(third) + qint64(sizeof(Node));
    });
    row("a removed string's node is used for the next one", [] {
        CStringList list(4);
        fill(list, L"abc");
        const POSITION second = list.FindIndex(1);
        list.RemoveAt(second);
        return list.AddHead(L"x") == second;
    });
}

// ---- arguments that are wrong -----------------------------------------------------------------------------

void tst_StringList::wrongArguments_data()
{
    using List = CStringList;
    List *const noList = nullptr;
    textColumns();
    textRow("the report of a wrong argument returns", [] {
        AfxThrowInvalidArgException();
        return std::wstring(L"returned");
    }, L"returned");
    textRow("AddHead of a null list adds nothing",
        edited(L"ab", [=](List &l) { l.AddHead(noList); }), L"a|b|");
    textRow("AddTail of a null list adds nothing",
        edited(L"ab", [=](List &l) { l.AddTail(noList); }), L"a|b|");
    textRow("AddHead of a null list to an empty one", edited(L"", [=](List &l) { l.AddHead(noList); }), L"");
    textRow("AddTail of a null list to an empty one", edited(L"", [=](List &l) { l.AddTail(noList); }), L"");
    textRow("FreeNode of null does nothing", [] {
        OpenList list(3);
        fill(list, L"ab");
        list.FreeNode(nullptr);
        return content(list);
    }, L"a|b|");
    textRow("Find of a null pointer finds the empty string", edited(L"ab", [](List &l) {
        const POSITION added = l.AddTail(L"");
        l.SetAt(added, l.Find(noText) == added ? L"found" : L"not found");
    }), L"a|b|found|");
    textRow("AddHead of the list itself doubles it",
        edited(L"abc", [](List &l) { l.AddHead(&l); }), L"a|b|c|a|b|c|");
    textRow("AddTail of the list itself doubles it",
        edited(L"abc", [](List &l) { l.AddTail(&l); }), L"a|b|c|a|b|c|");
    textRow("AddHead of the list itself, one string", edited(L"a", [](List &l) { l.AddHead(&l); }), L"a|a|");
    textRow("AddTail of the list itself, one string", edited(L"a", [](List &l) { l.AddTail(&l); }), L"a|a|");
    textRow("AddHead of the empty list itself", edited(L"", [](List &l) { l.AddHead(&l); }), L"");
    textRow("AddTail of the empty list itself", edited(L"", [](List &l) { l.AddTail(&l); }), L"");
}

KX_TEST_MAIN(tst_StringList)
#include "tst_string_list.moc"
