// SPDX-License-Identifier: MIT
#include "KxCollectionModel.h"
#include "KxTestCase.h"

#include <algorithm>

namespace {

const wchar_t *const noText = nullptr;

/// Texts of a kind that has its buffer in the string itself, or outside.
CString textOf(int number, bool isLong)
{
    const std::wstring digits = std::to_wstring(number);
    return CString(isLong ? L"this text does not fit into the string: " + digits : L"t" + digits);
}

bool isInside(const CString &string)
{
    const auto *const object = static_cast<const char *>(static_cast<const void *>(&string));
    const auto *const text = static_cast<const char *>(static_cast<const void *>(string.c_str()));
    return text >= object && text < object + sizeof string;
}

/// What InsertEmpty() leaves, and the calls that take a text by its pointer.
QVector<KxArrayRow<CStringArray>> stringRows()
{
    using A = CStringArray;
    return {
        {"InsertEmpty: fewer than follow",
         [](A &a) { kxFill(a, 5); a.InsertEmpty(1, 2); }, {1, 0, 0, 2, 3, 4, 5}, 9},
        {"InsertEmpty: as many as follow",
         [](A &a) { kxFill(a, 5); a.InsertEmpty(3, 2); }, {1, 2, 3, 0, 0, 4, 5}, 9},
        {"InsertEmpty: more than follow",
         [](A &a) { kxFill(a, 3); a.InsertEmpty(2, 3); }, {1, 2, 0, 0, 0, 3}, 7},
        {"InsertEmpty: more than the step",
         [](A &a) { kxFill(a, 2); a.InsertEmpty(1, 6); }, {1, 0, 0, 0, 0, 0, 0, 2}, 8},
        {"InsertEmpty: in front", [](A &a) { kxFill(a, 3); a.InsertEmpty(0, 1); }, {0, 1, 2, 3}, 7},
        {"InsertEmpty: within the room",
         [](A &a) { kxFill(a, 8); a.SetSize(5); a.InsertEmpty(1, 2); }, {1, 0, 0, 2, 3, 4, 5}, 8},
        {"InsertEmpty: at the end", [](A &a) { kxFill(a, 3); a.InsertEmpty(3, 2); }, {1, 2, 3, 0, 0}, 7},
        {"InsertEmpty: past the end",
         [](A &a) { kxFill(a, 3); a.InsertEmpty(5, 2); }, {1, 2, 3, 0, 0, 0, 0}, 7},
        {"InsertEmpty: into a new array", [](A &a) { a.InsertEmpty(0, 2); }, {0, 0}, 2},
        {"InsertEmpty: none", [](A &a) { kxFill(a, 5); a.InsertEmpty(2, 0); }, {1, 2, 3, 4, 5}, 5},
        {"InsertEmpty: none at the end", [](A &a) { kxFill(a, 5); a.InsertEmpty(5, 0); }, {1, 2, 3, 4, 5}, 5},
        {"InsertEmpty: none past the end makes the array longer",
         [](A &a) { kxFill(a, 3); a.InsertEmpty(5, 0); }, {1, 2, 3, 0, 0}, 7},
        {"InsertEmpty: none of no elements releases the block",
         [](A &a) { kxFill(a, 3); a.RemoveAt(0, 3); a.InsertEmpty(0, 0); }, {}, 0},
        {"InsertEmpty: fewer than none past the end makes the array shorter",
         [](A &a) { kxFill(a, 3); a.InsertEmpty(5, -3); }, {1, 2}, 3},
        {"InsertEmpty: by the fixed step, which stays",
         [](A &a) { kxFill(a, 3); a.SetSize(3, 10); a.InsertEmpty(1, 1); }, {1, 0, 2, 3}, 13, 10},

        {"RemoveAt: past the end, the size goes down",
         [](A &a) { kxFill(a, 5); a.RemoveAt(5, 2); }, {1, 2, 3}, 5},
        {"RemoveAt: more than follow, the size goes down",
         [](A &a) { kxFill(a, 5); a.RemoveAt(3, 4); }, {1}, 5},
        {"RemoveAt: as many as the size from the middle",
         [](A &a) { kxFill(a, 5); a.RemoveAt(3, 5); }, {}, 5},

        {"pointer: SetAt", [](A &a) { kxFill(a, 3); a.SetAt(1, kxElement<A>(9).GetString()); }, {1, 9, 3}, 3},
        {"pointer: SetAtGrow inside",
         [](A &a) { kxFill(a, 3); a.SetAtGrow(1, kxElement<A>(9).GetString()); }, {1, 9, 3}, 3},
        {"pointer: SetAtGrow at the end",
         [](A &a) { kxFill(a, 3); a.SetAtGrow(3, kxElement<A>(9).GetString()); }, {1, 2, 3, 9}, 7},
        {"pointer: SetAtGrow past the end",
         [](A &a) { kxFill(a, 3); a.SetAtGrow(5, kxElement<A>(8).GetString()); }, {1, 2, 3, 0, 0, 8}, 7},
        {"pointer: SetAtGrow of a new array",
         [](A &a) { a.SetAtGrow(2, kxElement<A>(9).GetString()); }, {0, 0, 9}, 3},
        {"pointer: Add", [](A &a) { kxFill(a, 3); a.Add(kxElement<A>(8).GetString()); }, {1, 2, 3, 8}, 7},
        {"pointer: Add, the first", [](A &a) { a.Add(kxElement<A>(9).GetString()); }, {9}, 1},
        {"pointer: InsertAt, one when no number is given",
         [](A &a) { kxFill(a, 3); a.InsertAt(1, kxElement<A>(9).GetString()); }, {1, 9, 2, 3}, 7},
        {"pointer: InsertAt, more than follow",
         [](A &a) { kxFill(a, 3); a.InsertAt(2, kxElement<A>(8).GetString(), 3); }, {1, 2, 8, 8, 8, 3}, 7},
        {"pointer: InsertAt past the end",
         [](A &a) { kxFill(a, 3); a.InsertAt(7, kxElement<A>(9).GetString(), 2); },
         {1, 2, 3, 0, 0, 0, 0, 9, 9}, 9},
        {"pointer: InsertAt, none",
         [](A &a) { kxFill(a, 3); a.InsertAt(1, kxElement<A>(9).GetString(), 0); }, {1, 2, 3}, 3},
        {"pointer: InsertAt, none past the end makes the array longer",
         [](A &a) { kxFill(a, 3); a.InsertAt(5, kxElement<A>(9).GetString(), 0); }, {1, 2, 3, 0, 0}, 7},

        {"null: SetAt empties the element", [](A &a) { kxFill(a, 3); a.SetAt(1, noText); }, {1, 0, 3}, 3},
        {"null: SetAtGrow adds an empty one",
         [](A &a) { kxFill(a, 3); a.SetAtGrow(3, noText); }, {1, 2, 3, 0}, 7},
        {"null: SetAtGrow empties the element",
         [](A &a) { kxFill(a, 3); a.SetAtGrow(0, noText); }, {0, 2, 3}, 3},
        {"null: Add adds an empty one", [](A &a) { kxFill(a, 3); a.Add(noText); }, {1, 2, 3, 0}, 7},
        {"null: InsertAt inserts empty ones",
         [](A &a) { kxFill(a, 3); a.InsertAt(1, noText, 2); }, {1, 0, 0, 2, 3}, 7},

        {"own text: SetAt", [](A &a) { kxFill(a, 3); a.SetAt(0, a[1].GetString()); }, {2, 2, 3}, 3},
        {"own text: SetAt its place", [](A &a) { kxFill(a, 3); a.SetAt(1, a[1].GetString()); }, {1, 2, 3}, 3},
        {"own text: SetAt its place, short text",
         [](A &a) { kxFill(a, 3); a.SetAt(0, a[0].GetString()); }, {1, 2, 3}, 3},
        {"own text: SetAtGrow",
         [](A &a) { kxFill(a, 3); a.SetAtGrow(4, a[1].GetString()); }, {1, 2, 3, 0, 2}, 7},
        {"own text: SetAtGrow, short text",
         [](A &a) { kxFill(a, 3); a.SetAtGrow(4, a[0].GetString()); }, {1, 2, 3, 0, 1}, 7},
        {"own text: Add", [](A &a) { kxFill(a, 2); a.Add(a[1].GetString()); }, {1, 2, 2}, 6},
        {"own text: Add, short text", [](A &a) { kxFill(a, 2); a.Add(a[0].GetString()); }, {1, 2, 1}, 6},
        {"own text: InsertAt before it",
         [](A &a) { kxFill(a, 3); a.InsertAt(0, a[1].GetString(), 3); }, {2, 2, 2, 1, 2, 3}, 7},
        {"own text: InsertAt before it, short text",
         [](A &a) { kxFill(a, 3); a.InsertAt(0, a[2].GetString(), 3); }, {3, 3, 3, 1, 2, 3}, 7},
        {"own text: InsertAt its place within the room",
         [](A &a) { kxFill(a, 6); a.SetSize(3); a.InsertAt(0, a[0].GetString(), 2); }, {1, 1, 1, 2, 3}, 6},
        {"own text: InsertAt its place within the room, long text",
         [](A &a) { kxFill(a, 6); a.SetSize(3); a.InsertAt(1, a[1].GetString(), 2); }, {1, 2, 2, 2, 3}, 6},
        {"own text: InsertAt past the end",
         [](A &a) { kxFill(a, 3); a.InsertAt(5, a[1].GetString(), 2); }, {1, 2, 3, 0, 0, 2, 2}, 7},
    };
}

/// A call and where its elements come from.
struct MoveRow
{
    const char *title;
    int size;
    int room;
    void (*run)(CStringArray &);
    QVector<int> origins;   ///< The former index of each element; -1: it is new.
    long newBlock;          ///< Elements; -1: no block is allocated.
    bool releasesBlock;
    bool assigns = false;   ///< Whether it also gives texts to the new elements.
};

const CString &longText()
{
    static const CString text = textOf(99, true);
    return text;
}

const CStringArray &twoTexts()
{
    static CStringArray texts;
    if (texts.IsEmpty())
        kxFill(texts, 2);
    return texts;
}

QVector<MoveRow> moveRows()
{
    using A = CStringArray;
    return {
        {"SetSize: more than the room", 5, 5, [](A &a) { a.SetSize(7); }, {0, 1, 2, 3, 4, -1, -1}, 9, true},
        {"SetSize: more than the room, which was not full", 3, 5,
         [](A &a) { a.SetSize(6); }, {0, 1, 2, -1, -1, -1}, 9, true},
        {"SetSize: within the room", 3, 5, [](A &a) { a.SetSize(5); }, {0, 1, 2, -1, -1}, -1, false},
        {"SetSize: the same", 3, 5, [](A &a) { a.SetSize(3); }, {0, 1, 2}, -1, false},
        {"SetSize: fewer", 5, 5, [](A &a) { a.SetSize(2); }, {0, 1}, -1, false},
        {"SetSize: none", 5, 5, [](A &a) { a.SetSize(0); }, {}, -1, true},
        {"SetSize: none, with room", 3, 5, [](A &a) { a.SetSize(0); }, {}, -1, true},
        {"RemoveAll", 3, 5, [](A &a) { a.RemoveAll(); }, {}, -1, true},
        {"InsertEmpty: fewer than follow, in a larger block", 5, 5,
         [](A &a) { a.InsertEmpty(1, 2); }, {0, -1, -1, 1, 2, 3, 4}, 9, true},
        {"InsertEmpty: fewer than follow", 5, 9,
         [](A &a) { a.InsertEmpty(1, 2); }, {0, -1, -1, 1, 2, 3, 4}, -1, false},
        {"InsertEmpty: as many as follow", 5, 9,
         [](A &a) { a.InsertEmpty(2, 3); }, {0, 1, -1, -1, -1, 2, 3, 4}, -1, false},
        {"InsertEmpty: more than follow", 5, 9,
         [](A &a) { a.InsertEmpty(4, 3); }, {0, 1, 2, 3, -1, -1, -1, 4}, -1, false},
        {"InsertEmpty: more than follow, in a larger block", 5, 5,
         [](A &a) { a.InsertEmpty(4, 3); }, {0, 1, 2, 3, -1, -1, -1, 4}, 9, true},
        {"InsertEmpty: in front", 5, 9, [](A &a) { a.InsertEmpty(0, 1); }, {-1, 0, 1, 2, 3, 4}, -1, false},
        {"InsertEmpty: past the end", 3, 9, [](A &a) { a.InsertEmpty(4, 1); }, {0, 1, 2, -1, -1}, -1, false},
        {"InsertEmpty: none", 5, 5, [](A &a) { a.InsertEmpty(2, 0); }, {0, 1, 2, 3, 4}, -1, false},
        {"RemoveAt: the middle", 5, 5, [](A &a) { a.RemoveAt(1, 2); }, {0, 3, 4}, -1, false},
        {"RemoveAt: fewer than follow", 8, 8, [](A &a) { a.RemoveAt(1, 2); }, {0, 3, 4, 5, 6, 7}, -1, false},
        {"RemoveAt: more than follow", 5, 5, [](A &a) { a.RemoveAt(1, 3); }, {0, 4}, -1, false},
        {"RemoveAt: the first", 5, 5, [](A &a) { a.RemoveAt(0); }, {1, 2, 3, 4}, -1, false},
        {"RemoveAt: the last", 5, 5, [](A &a) { a.RemoveAt(4); }, {0, 1, 2, 3}, -1, false},
        {"RemoveAt: all", 5, 5, [](A &a) { a.RemoveAt(0, 5); }, {}, -1, false},
        {"RemoveAt: none", 5, 5, [](A &a) { a.RemoveAt(2, 0); }, {0, 1, 2, 3, 4}, -1, false},
        {"FreeExtra", 3, 5, [](A &a) { a.FreeExtra(); }, {0, 1, 2}, 3, true},
        {"FreeExtra: no extra", 5, 5, [](A &a) { a.FreeExtra(); }, {0, 1, 2, 3, 4}, -1, false},
        {"FreeExtra: no element", 0, 5, [](A &a) { a.FreeExtra(); }, {}, -1, true},
        {"Copy: itself", 3, 5, [](A &a) { a.Copy(a); }, {0, 1, 2}, -1, false},
        {"InsertAt: no array", 3, 5,
         [](A &a) { a.InsertAt(1, static_cast<A *>(nullptr)); }, {0, 1, 2}, -1, false},

        {"Add", 5, 5, [](A &a) { a.Add(longText()); }, {0, 1, 2, 3, 4, -1}, 9, true, true},
        {"Add: pointer", 5, 5,
         [](A &a) { a.Add(longText().GetString()); }, {0, 1, 2, 3, 4, -1}, 9, true, true},
        {"SetAtGrow", 3, 3, [](A &a) { a.SetAtGrow(4, longText()); }, {0, 1, 2, -1, -1}, 7, true, true},
        {"SetAtGrow: pointer", 3, 3,
         [](A &a) { a.SetAtGrow(4, longText().GetString()); }, {0, 1, 2, -1, -1}, 7, true, true},
        {"InsertAt", 3, 3, [](A &a) { a.InsertAt(1, longText(), 2); }, {0, -1, -1, 1, 2}, 7, true, true},
        {"InsertAt: pointer", 3, 3,
         [](A &a) { a.InsertAt(1, longText().GetString(), 2); }, {0, -1, -1, 1, 2}, 7, true, true},
        {"InsertAt: an array", 3, 3,
         [](A &a) { a.InsertAt(1, &twoTexts()); }, {0, -1, -1, 1, 2}, 7, true, true},
        {"Append", 3, 3, [](A &a) { a.Append(twoTexts()); }, {0, 1, 2, -1, -1}, 7, true, true},
    };
}

} // namespace

class tst_StringArray : public KxTestCase
{
    Q_OBJECT

private slots:
    void states_data();
    void states();
    void stringStates_data();
    void stringStates();
    void layout();
    void references();
    void wrongIndex_data();
    void wrongIndex();
    void returnedIndexes();
    void pointerAddReturnsTheIndex();
    void constantArrayIsInserted();
    void nulsInsideAreKept();
    void copiesAreTheirOwn();
    void growth();
    void steps_data();
    void steps();
    void hugeSteps_data();
    void hugeSteps();
    void blocks_data();
    void blocks();
    void noMemory();
    void negativeSizeOfANewArray();
    void moves_data();
    void moves();
    void oneTextIsAllocatedForOneAdded_data();
    void oneTextIsAllocatedForOneAdded();
    void growthOneByOneMovesEverything();
    void destructorDestroysTheLiveOnes();
    void everythingIsGivenBackOnce();
};

// ---- contents and room ------------------------------------------------------------------------------------

void tst_StringArray::states_data()
{
    kxTitleRows(kxArrayRows<CStringArray>());
}

void tst_StringArray::states()
{
    QFETCH(int, row);
    kxCheckRow(kxArrayRows<CStringArray>().at(row));
}

void tst_StringArray::stringStates_data()
{
    kxTitleRows(stringRows());
}

void tst_StringArray::stringStates()
{
    QFETCH(int, row);
    kxCheckRow(stringRows().at(row));
}

// ---- members ----------------------------------------------------------------------------------------------

void tst_StringArray::layout()
{
    QCOMPARE(sizeof(CStringArray), std::size_t(32));
    QVERIFY((!std::is_base_of_v<CObject, CStringArray>));
    QVERIFY((!std::is_convertible_v<CStringArray *, CObject *>));
    QVERIFY(!std::is_polymorphic_v<CStringArray>);
    kxCheckFieldOffsets<CStringArray>();
}

void tst_StringArray::references()
{
    kxCheckReferences<CStringArray>();
    CStringArray array;
    kxFill(array, 2);
    array[1] = L"x";
    array[1] += L"yz";
    array.ElementAt(0).Append(L"!");
    QCOMPARE(kxShown(array), QStringLiteral("\"n1!\" \"xyz\""));
}

void tst_StringArray::wrongIndex_data()
{
    kxWrongIndexRows();
}

void tst_StringArray::wrongIndex()
{
    kxCheckWrongIndex<CStringArray>();
}

void tst_StringArray::returnedIndexes()
{
    kxCheckReturnedIndexes<CStringArray>();
}

void tst_StringArray::pointerAddReturnsTheIndex()
{
    CStringArray array;
    QCOMPARE(array.Add(L"one"), 0L);
    QCOMPARE(array.Add(L"two"), 1L);
    array.SetSize(8);
    QCOMPARE(array.Add(L"nine"), 8L);
}

void tst_StringArray::constantArrayIsInserted()
{
    CStringArray source;
    kxFill(source, 2, 11);
    const CStringArray *const constant = &source;
    CStringArray array;
    kxFill(array, 2);
    array.InsertAt(1, constant);
    kxCompare(array, {1, 11, 12, 2}, 6, 0);
    kxCompare(source, {11, 12}, 2, 0);
}

void tst_StringArray::nulsInsideAreKept()
{
    const CString text(std::wstring(L"a\0b", 3));
    CStringArray array;
    array.Add(text);
    array.SetAtGrow(1, text);
    array.InsertAt(0, text, 2);
    array.Add(L"x");
    array.SetAt(4, text);
    CStringArray copied;
    copied.Copy(array);
    copied.Append(array);
    copied.InsertAt(3, &array);
    QCOMPARE(copied.GetSize(), 15L);
    for (long i = 0; i < 15; ++i)
        QVERIFY(copied[i] == text);
    copied.SetAt(0, text.GetString());
    QVERIFY(copied[0] == L"a");
}

void tst_StringArray::copiesAreTheirOwn()
{
    CStringArray source;
    kxFill(source, 2);
    CStringArray copied;
    copied.Copy(source);
    CStringArray appended;
    appended.Append(source);
    CStringArray inserted;
    inserted.InsertAt(0, &source);
    for (const CStringArray *array : {&copied, &appended, &inserted}) {
        QVERIFY(array->GetAt(1).c_str() != source.GetAt(1).c_str());
        QVERIFY(array->GetAt(1) == source.GetAt(1));
    }
    source.RemoveAll();
    kxCompare(copied, {1, 2}, 2, 0);
    kxCompare(appended, {1, 2}, 2, 0);
    kxCompare(inserted, {1, 2}, 2, 0);
}

// ---- growth and memory ------------------------------------------------------------------------------------

void tst_StringArray::growth()
{
    kxCheckGrowth<CStringArray>();
}

void tst_StringArray::steps_data()
{
    kxStepRows();
}

void tst_StringArray::steps()
{
    kxCheckStep<CStringArray>();
}

void tst_StringArray::hugeSteps_data()
{
    QTest::addColumn<long>("size");
    QTest::newRow("the largest int") << 0x7FFFFFFFL;
    QTest::newRow("one more") << 0x80000000L;
    QTest::newRow("four less than 32 bits") << 0xFFFFFFFCL;
    QTest::newRow("80 more than 32 bits") << 0x100000050L;
}

void tst_StringArray::hugeSteps()
{
    QFETCH(long, size);
    kxCheckHugeStep<CStringArray>(size, size + 1024);
}

void tst_StringArray::blocks_data()
{
    kxTitleRows(kxBlockRows<CStringArray>());
}

void tst_StringArray::blocks()
{
    QFETCH(int, row);
    kxCheckBlocks(kxBlockRows<CStringArray>().at(row));
}

void tst_StringArray::noMemory()
{
    kxCheckNoMemory<CStringArray>();
}

void tst_StringArray::negativeSizeOfANewArray()
{
    kxCheckNegativeSizeOfANewArray<CStringArray>();
}

// ---- strings move -----------------------------------------------------------------------------------------

void tst_StringArray::moves_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("isLong");
    const QVector<MoveRow> rows = moveRows();
    for (int i = 0; i < rows.size(); ++i) {
        QTest::addRow("%s (long)", rows.at(i).title) << i << true;
        QTest::addRow("%s (short)", rows.at(i).title) << i << false;
    }
}

void tst_StringArray::moves()
{
    QFETCH(int, row);
    QFETCH(bool, isLong);
    const MoveRow move = moveRows().at(row);
    longText();
    twoTexts();

    CStringArray array;
    array.SetSize(move.room);
    array.SetSize(move.size == 0 ? move.room : move.size);
    for (long i = 0; i < array.GetSize(); ++i)
        array.SetAt(i, textOf(int(i), isLong));
    if (move.size == 0)
        array.RemoveAt(0, array.GetSize());
    QVector<const void *> texts;
    for (long i = 0; i < move.size; ++i) {
        QCOMPARE(isInside(array[i]), !isLong);
        texts.append(array[i].c_str());
    }
    const void *const block = kxFields(array).elements;

    KxAllocationLog log;
    move.run(array);
    log.stop();

    QCOMPARE(array.GetSize(), long(move.origins.size()));
    QVector<const void *> gone = isLong ? texts : QVector<const void *>();
    for (int i = 0; i < move.origins.size(); ++i) {
        const int origin = move.origins.at(i);
        if (origin >= 0) {
            QVERIFY2(array[i] == textOf(origin, isLong),
                     qPrintable(QStringLiteral("element %1 has another text").arg(i)));
            QCOMPARE(isInside(array[i]), !isLong);
            if (isLong) {
                QCOMPARE(static_cast<const void *>(array[i].c_str()), texts.at(origin));
                gone.removeOne(texts.at(origin));
            }
        } else if (!move.assigns) {
            QVERIFY2(array[i].IsEmpty(), qPrintable(QStringLiteral("element %1 is not empty").arg(i)));
            QVERIFY(isInside(array[i]));
        }
    }

    if (!move.assigns)
        QCOMPARE(log.count(KxAllocation::New), 0L);
    const QVector<KxAllocation> blocks = log.all(KxAllocation::NewArray);
    QCOMPARE(blocks.size(), move.newBlock < 0 ? 0 : 1);
    if (move.newBlock >= 0)
        QCOMPARE(blocks.first().bytes, std::size_t(move.newBlock) * sizeof(CString));
    const QVector<KxAllocation> releasedBlocks = log.all(KxAllocation::DeleteArray);
    QCOMPARE(releasedBlocks.size(), move.releasesBlock ? 1 : 0);
    if (move.releasesBlock)
        QCOMPARE(releasedBlocks.first().address, block);

    QVector<const void *> released;
    for (const KxAllocation &allocation : log.all(KxAllocation::Delete))
        released.append(allocation.address);
    if (move.assigns) {
        for (const void *text : qAsConst(texts))
            QVERIFY(!isLong || !released.contains(text));
    } else {
        std::sort(released.begin(), released.end());
        std::sort(gone.begin(), gone.end());
        QCOMPARE(released, gone);
    }
}

void tst_StringArray::oneTextIsAllocatedForOneAdded_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("within the room") << 9;
    QTest::newRow("in a larger block") << 5;
}

void tst_StringArray::oneTextIsAllocatedForOneAdded()
{
    QFETCH(int, room);
    CStringArray array;
    kxFill(array, room);
    array.SetSize(5);
    longText();
    {
        KxAllocationLog log;
        array.Add(longText());
        log.stop();
        QCOMPARE(log.count(KxAllocation::New), 1L);
        QCOMPARE(log.count(KxAllocation::Delete), 0L);
    }
    array.RemoveAt(5);
    {
        KxAllocationLog log;
        array.Add(longText().GetString());
        log.stop();
        QCOMPARE(log.count(KxAllocation::New), 1L);
        QCOMPARE(log.count(KxAllocation::Delete), 0L);
    }
    QVERIFY(array[5] == longText());
}

void tst_StringArray::growthOneByOneMovesEverything()
{
    CStringArray array;
    QVector<const void *> texts;
    for (int i = 0; i < 2000; ++i) {
        array.Add(textOf(i, true));
        texts.append(array[i].c_str());
    }
    for (int i = 0; i < 2000; ++i) {
        QCOMPARE(static_cast<const void *>(array[i].c_str()), texts.at(i));
        QVERIFY(array[i] == textOf(i, true));
    }
}

void tst_StringArray::destructorDestroysTheLiveOnes()
{
    QVector<const void *> texts;
    KxAllocationLog *log = nullptr;
    {
        CStringArray array;
        array.SetSize(5);
        for (long i = 0; i < 5; ++i)
            array.SetAt(i, textOf(int(i), true));
        array.RemoveAt(0);
        array.SetSize(3);
        for (long i = 0; i < 3; ++i)
            texts.append(array[i].c_str());
        log = new KxAllocationLog;
    }
    log->stop();
    QVector<const void *> released;
    for (const KxAllocation &allocation : log->all(KxAllocation::Delete))
        released.append(allocation.address);
    const long blocks = log->count(KxAllocation::DeleteArray);
    const long allocated = log->count(KxAllocation::New) + log->count(KxAllocation::NewArray);
    delete log;
    std::sort(texts.begin(), texts.end());
    std::sort(released.begin(), released.end());
    QCOMPARE(released, texts);
    QCOMPARE(blocks, 1L);
    QCOMPARE(allocated, 0L);
}

void tst_StringArray::everythingIsGivenBackOnce()
{
    longText();
    KxAllocationLog log;
    {
        CStringArray source;
        kxFill(source, 6, 11);
        CStringArray array;
        for (int i = 0; i < 60; ++i)
            array.Add(textOf(i, i % 3 != 0));
        array.InsertAt(7, longText(), 12);
        array.InsertAt(70, longText().GetString(), 3);
        array.InsertAt(71, &source);
        array.InsertAt(200, longText());
        array.InsertEmpty(5, 50);
        array.RemoveAt(100, 40);
        array.SetSize(90);
        array.FreeExtra();
        array.Append(source);
        array.SetAtGrow(150, longText());
        array.SetAt(3, longText().GetString());
        array.RemoveAt(0, 9);
        array.SetSize(180);
        array.Copy(source);
        array.FreeExtra();
        source.RemoveAll();
    }
    log.stop();
    QVERIFY(log.count(KxAllocation::New) > 100);
    QCOMPARE(log.count(KxAllocation::Delete), log.count(KxAllocation::New));
    QVERIFY(log.count(KxAllocation::NewArray) > 10);
    QCOMPARE(log.count(KxAllocation::DeleteArray), log.count(KxAllocation::NewArray));
}

KX_TEST_MAIN(tst_StringArray)
#include "tst_string_array.moc"
