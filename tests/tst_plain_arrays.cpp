// SPDX-License-Identifier: MIT
#include "KxCollectionModel.h"
#include "KxTestCase.h"

namespace {

/// Whether `array.InsertAt(0, source)` compiles.
template<class Array, class Source, class = void>
constexpr bool canInsert = false;
template<class Array, class Source>
using Inserted = decltype(std::declval<Array &>().InsertAt(0L, std::declval<Source>()));
template<class Array, class Source>
constexpr bool canInsert<Array, Source, std::void_t<Inserted<Array, Source>>> = true;

/// Calls `function` with the tag of the array that the test runs for.
template<class Function>
void onArray(Function function)
{
    QFETCH_GLOBAL(int, elementSize);
    if (elementSize == 2)
        function(KxArrayTag<CWordArray>());
    else if (elementSize == 1)
        function(KxArrayTag<CByteArray>());
    else
        function(KxArrayTag<CPtrArray>());
}

template<class Tag>
using ArrayOf = typename Tag::Type;

/// The elements behind the size are those that were there before.
template<class Array>
QVector<KxArrayRow<Array>> wrongArgumentRows()
{
    return {
        {"RemoveAt: past the end, the size goes down",
         [](Array &a) { kxFill(a, 5); a.RemoveAt(5, 2); }, {1, 2, 3}, 5},
        {"RemoveAt: far past the end, the size goes down",
         [](Array &a) { kxFill(a, 5); a.RemoveAt(100); }, {1, 2, 3, 4}, 5},
        {"RemoveAt: more than follow, nothing moves",
         [](Array &a) { kxFill(a, 5); a.RemoveAt(3, 4); }, {1}, 5},
        {"RemoveAt: as many as the size from the middle",
         [](Array &a) { kxFill(a, 5); a.RemoveAt(3, 5); }, {}, 5},
        {"RemoveAt: fewer than none, the size goes up",
         [](Array &a) { kxFill(a, 5); a.SetSize(3); a.RemoveAt(1, -1); }, {1, 1, 2, 3}, 5},
        {"RemoveAt: fewer than none at the end, the last repeats",
         [](Array &a) { kxFill(a, 5); a.SetSize(3); a.RemoveAt(3, -1); }, {1, 2, 3, 3}, 5},
        {"SetAt: behind the last, the size stays",
         [](Array &a) { kxFill(a, 5); a.SetSize(3); a.SetAt(3, kxElement<Array>(9)); }, {1, 2, 3}, 5},
    };
}

} // namespace

class tst_PlainArrays : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase_data();

    void states_data();
    void states();
    void wrongArguments_data();
    void wrongArguments();
    void negativeSizes();
    void layout();
    void references();
    void wrongIndex_data();
    void wrongIndex();
    void slotsBehindTheLastKeepTheirBytes();
    void setAtBehindTheLastWritesTheSlot();
    void returnedIndexes();
    void upperBound_data();
    void upperBound();
    void data();
    void dataIsNotChecked();
    void arrayToInsertIsNotConstant();
    void everyBitIsKept();
    void growth();
    void steps_data();
    void steps();
    void hugeSteps_data();
    void hugeSteps();
    void blocks_data();
    void blocks();
    void noOtherMemory();
    void noMemory();
    void negativeSizeOfANewArray();

    void addedWordIsMasked_data();
    void addedWordIsMasked();
};

void tst_PlainArrays::initTestCase_data()
{
    QTest::addColumn<int>("elementSize");
    QTest::newRow("words") << 2;
    QTest::newRow("bytes") << 1;
    QTest::newRow("pointers") << 8;
}

// ---- contents and room ------------------------------------------------------------------------------------

void tst_PlainArrays::states_data()
{
    kxTitleRows(kxArrayRows<CWordArray>());
}

void tst_PlainArrays::states()
{
    QFETCH(int, row);
    onArray([row](auto tag) { kxCheckRow(kxArrayRows<ArrayOf<decltype(tag)>>().at(row)); });
}

void tst_PlainArrays::wrongArguments_data()
{
    kxTitleRows(wrongArgumentRows<CWordArray>());
}

void tst_PlainArrays::wrongArguments()
{
    QFETCH(int, row);
    onArray([row](auto tag) { kxCheckRow(wrongArgumentRows<ArrayOf<decltype(tag)>>().at(row)); });
}

void tst_PlainArrays::negativeSizes()
{
    onArray([](auto tag) {
        ArrayOf<decltype(tag)> array;
        kxFill(array, 5);
        array.SetSize(-1);
        QCOMPARE(array.GetSize(), -1L);
        QCOMPARE(array.GetCount(), -1L);
        QCOMPARE(array.GetUpperBound(), -2L);
        QVERIFY(!array.IsEmpty());
        QCOMPARE(kxFields(array).allocated, 5L);
        array.RemoveAll();
        kxCompare(array, {}, 0, 0);

        kxFill(array, 5);
        array.RemoveAt(2, 10);
        QCOMPARE(array.GetSize(), -5L);
        QCOMPARE(kxFields(array).allocated, 5L);
        array.RemoveAll();
        kxCompare(array, {}, 0, 0);
    });
}

// ---- members ----------------------------------------------------------------------------------------------

void tst_PlainArrays::layout()
{
    onArray([](auto tag) {
        using Array = ArrayOf<decltype(tag)>;
        QCOMPARE(sizeof(Array), std::size_t(32));
        QVERIFY((std::is_base_of_v<CObject, Array>));
        QVERIFY((std::is_convertible_v<Array *, CObject *>));
        QVERIFY(!std::is_polymorphic_v<Array>);
        QVERIFY(std::is_empty_v<CObject>);
        kxCheckFieldOffsets<Array>();
    });
}

void tst_PlainArrays::references()
{
    onArray([](auto tag) { kxCheckReferences<ArrayOf<decltype(tag)>>(); });
}

void tst_PlainArrays::wrongIndex_data()
{
    kxWrongIndexRows();
}

void tst_PlainArrays::wrongIndex()
{
    onArray([](auto tag) { kxCheckWrongIndex<ArrayOf<decltype(tag)>>(); });
}

void tst_PlainArrays::slotsBehindTheLastKeepTheirBytes()
{
    onArray([](auto tag) {
        using Array = ArrayOf<decltype(tag)>;
        Array array;
        kxFill(array, 5);
        array.SetSize(3);
        QCOMPARE(array.GetAt(3), kxElement<Array>(4));
        QCOMPARE(array[4], kxElement<Array>(5));
    });
}

void tst_PlainArrays::setAtBehindTheLastWritesTheSlot()
{
    onArray([](auto tag) {
        using Array = ArrayOf<decltype(tag)>;
        Array array;
        kxFill(array, 5);
        array.SetSize(3);
        array.SetAt(3, kxElement<Array>(9));
        QCOMPARE(array.GetData()[3], kxElement<Array>(9));
        QCOMPARE(array.GetSize(), 3L);
    });
}

void tst_PlainArrays::returnedIndexes()
{
    onArray([](auto tag) { kxCheckReturnedIndexes<ArrayOf<decltype(tag)>>(); });
}

void tst_PlainArrays::upperBound_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<long>("bound");
    QTest::newRow("-1 without elements") << 0 << -1L;
    QTest::newRow("0 of one element") << 1 << 0L;
    QTest::newRow("6 of seven elements") << 7 << 6L;
}

void tst_PlainArrays::upperBound()
{
    QFETCH(int, size);
    QFETCH(long, bound);
    onArray([=](auto tag) {
        ArrayOf<decltype(tag)> array;
        kxFill(array, size);
        QCOMPARE(std::as_const(array).GetUpperBound(), bound);
        array.SetSize(20);
        array.RemoveAt(size, 20 - size);
        QCOMPARE(std::as_const(array).GetUpperBound(), bound);
    });
}

void tst_PlainArrays::data()
{
    onArray([](auto tag) {
        using Array = ArrayOf<decltype(tag)>;
        using Element = typename KxElement<Array>::Type;
        static_assert(std::is_same_v<decltype(std::declval<Array &>().GetData()), Element *>);
        static_assert(std::is_same_v<decltype(std::declval<const Array &>().GetData()), const Element *>);

        Array array;
        kxFill(array, 3);
        QVERIFY(array.GetData() != nullptr);
        QCOMPARE(array.GetData(), &array[0]);
        QCOMPARE(std::as_const(array).GetData(), &std::as_const(array)[0]);
        QCOMPARE(array.GetData()[2], kxElement<Array>(3));
        array.GetData()[2] = kxElement<Array>(9);
        kxCompare(array, {1, 2, 9}, 3, 0);
    });
}

void tst_PlainArrays::dataIsNotChecked()
{
    onArray([](auto tag) {
        ArrayOf<decltype(tag)> array;
        QVERIFY(array.GetData() == nullptr);
        QVERIFY(std::as_const(array).GetData() == nullptr);
        array.SetSize(3);
        const auto *const block = array.GetData();
        QVERIFY(block != nullptr);
        array.RemoveAt(0, 3);
        QVERIFY(array.GetData() == block);
        array.FreeExtra();
        QVERIFY(array.GetData() == nullptr);
    });
}

void tst_PlainArrays::arrayToInsertIsNotConstant()
{
    onArray([](auto tag) {
        using Array = ArrayOf<decltype(tag)>;
        QVERIFY((canInsert<Array, Array *>));
        QVERIFY((!canInsert<Array, const Array *>));
    });
}

void tst_PlainArrays::everyBitIsKept()
{
    onArray([](auto tag) {
        using Array = ArrayOf<decltype(tag)>;
        typename KxElement<Array>::Type ones;
        std::memset(&ones, 0xFF, sizeof ones);
        Array array;
        array.SetSize(1);
        array.SetAt(0, ones);
        array.Add(ones);
        array.SetAtGrow(2, ones);
        array.InsertAt(0, ones, 2);
        Array source;
        source.Add(ones);
        array.InsertAt(0, &source);
        array.Append(source);
        QCOMPARE(array.GetSize(), 7L);
        for (long i = 0; i < 7; ++i)
            QCOMPARE(array.GetAt(i), ones);
        array.Copy(source);
        QCOMPARE(array.GetAt(0), ones);
    });
}

// ---- growth and memory ------------------------------------------------------------------------------------

void tst_PlainArrays::growth()
{
    onArray([](auto tag) { kxCheckGrowth<ArrayOf<decltype(tag)>>(); });
}

void tst_PlainArrays::steps_data()
{
    kxStepRows();
}

void tst_PlainArrays::steps()
{
    onArray([](auto tag) { kxCheckStep<ArrayOf<decltype(tag)>>(); });
}

void tst_PlainArrays::hugeSteps_data()
{
    QTest::addColumn<long>("size");
    QTest::addColumn<long>("step");
    QTest::newRow("the largest int gives 1024") << 0x7FFFFFFFL << 1024L;
    QTest::newRow("one more is the smallest int and gives 4") << 0x80000000L << 4L;
    QTest::newRow("four less than 32 bits are negative and give 4") << 0xFFFFFFFCL << 4L;
    QTest::newRow("80 more than 32 bits count as 80") << 0x100000050L << 10L;
    QTest::newRow("9000 more than 32 bits count as 9000") << 0x100002328L << 1024L;
}

void tst_PlainArrays::hugeSteps()
{
    QFETCH(long, size);
    QFETCH(long, step);
    onArray([=](auto tag) { kxCheckHugeStep<ArrayOf<decltype(tag)>>(size, size + step); });
}

void tst_PlainArrays::blocks_data()
{
    kxTitleRows(kxBlockRows<CWordArray>());
}

void tst_PlainArrays::blocks()
{
    QFETCH(int, row);
    onArray([row](auto tag) { kxCheckBlocks(kxBlockRows<ArrayOf<decltype(tag)>>().at(row)); });
}

void tst_PlainArrays::noOtherMemory()
{
    onArray([](auto tag) {
        using Array = ArrayOf<decltype(tag)>;
        KxAllocationLog log;
        {
            Array source;
            kxFill(source, 4, 11);
            Array array;
            for (int i = 0; i < 40; ++i)
                array.Add(kxElement<Array>(i));
            array.InsertAt(3, kxElement<Array>(9), 20);
            array.InsertAt(5, &source);
            array.Append(source);
            array.RemoveAt(2, 30);
            array.FreeExtra();
            array.Copy(source);
        }
        log.stop();
        QVERIFY(log.count(KxAllocation::NewArray) > 0);
        QCOMPARE(log.count(KxAllocation::DeleteArray), log.count(KxAllocation::NewArray));
        QCOMPARE(log.count(KxAllocation::New), 0L);
        QCOMPARE(log.count(KxAllocation::Delete), 0L);
    });
}

void tst_PlainArrays::noMemory()
{
    onArray([](auto tag) { kxCheckNoMemory<ArrayOf<decltype(tag)>>(); });
}

void tst_PlainArrays::negativeSizeOfANewArray()
{
    onArray([](auto tag) { kxCheckNegativeSizeOfANewArray<ArrayOf<decltype(tag)>>(); });
}

// ---- single members ---------------------------------------------------------------------------------------

void tst_PlainArrays::addedWordIsMasked_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("stored");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("16 bits") << 0xFFFF << 0xFFFF;
    QTest::newRow("17 bits") << 0x12345 << 0x2345;
    QTest::newRow("a negative number") << -2 << 0xFFFE;
}

void tst_PlainArrays::addedWordIsMasked()
{
    QFETCH(int, value);
    QFETCH(int, stored);
    CWordArray array;
    array.Add(7);
    array.Add(value);
    array.Add(8);
    QCOMPARE(int(array[0]), 7);
    QCOMPARE(int(array[1]), stored);
    QCOMPARE(int(array[2]), 8);
}

KX_TEST_MAIN(tst_PlainArrays)
#include "tst_plain_arrays.moc"
