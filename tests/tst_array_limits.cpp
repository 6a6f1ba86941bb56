// SPDX-License-Identifier: MIT
#include "KxAfxColl.h"
#include "KxTestCase.h"

#include <climits>
#include <functional>
#include <new>

using ArrayCall = std::function<void(CStringArray &, CWordArray &)>;
Q_DECLARE_METATYPE(ArrayCall)

/// Counts that no memory has, and sizes below 0 that wrong counts leave: nothing outside the block is touched.
class ArrayLimitsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void tooMany_data();
    void tooMany();
    void belowNothing_data();
    void belowNothing();
};

void ArrayLimitsTest::tooMany_data()
{
    QTest::addColumn<ArrayCall>("call");
    const auto row = [](const char *name, const ArrayCall &call) { QTest::newRow(name) << call; };
    row("strings: SetAtGrow", [](auto &strings, auto &) { strings.SetAtGrow(LONG_MAX, L"x"); });
    row("strings: InsertEmpty within", [](auto &strings, auto &) { strings.InsertEmpty(0, LONG_MAX); });
    row("strings: InsertEmpty behind", [](auto &strings, auto &) { strings.InsertEmpty(2, LONG_MAX); });
    row("strings: InsertAt", [](auto &strings, auto &) { strings.InsertAt(0, L"x", LONG_MAX); });
    row("strings: SetSize", [](auto &strings, auto &) { strings.SetSize(LONG_MAX); });
    row("words: SetAtGrow", [](auto &, auto &words) { words.SetAtGrow(LONG_MAX, 1); });
    row("words: InsertAt within", [](auto &, auto &words) { words.InsertAt(0, 1, LONG_MAX); });
    row("words: InsertAt behind", [](auto &, auto &words) { words.InsertAt(2, 1, LONG_MAX); });
    row("words: SetSize", [](auto &, auto &words) { words.SetSize(LONG_MAX); });
}

void ArrayLimitsTest::tooMany()
{
    QFETCH(ArrayCall, call);
    CStringArray strings;
    CWordArray words;
    strings.Add(L"a text that has memory of its own");
    words.Add(7);
    QVERIFY_EXCEPTION_THROWN(call(strings, words), std::bad_alloc);
    QCOMPARE(strings.GetSize(), 1L);
    QCOMPARE(strings[0], CString(L"a text that has memory of its own"));
    QCOMPARE(words.GetSize(), 1L);
    QCOMPARE(words[0], static_cast<unsigned short>(7));
}

void ArrayLimitsTest::belowNothing_data()
{
    QTest::addColumn<ArrayCall>("call");
    const auto row = [](const char *name, const ArrayCall &call) { QTest::newRow(name) << call; };
    row("RemoveAt past the end", [](auto &strings, auto &words) {
        strings.RemoveAt(0, 4);
        words.RemoveAt(0, 4);
    });
    row("SetSize", [](auto &strings, auto &words) {
        strings.SetSize(-1);
        words.SetSize(-1);
    });
}

void ArrayLimitsTest::belowNothing()
{
    QFETCH(ArrayCall, call);
    CStringArray strings;
    CWordArray words;
    strings.SetSize(3);
    words.SetSize(3);
    call(strings, words);
    QCOMPARE(strings.GetSize(), -1L);
    QCOMPARE(words.GetSize(), -1L);
    strings.FreeExtra();
    words.FreeExtra();
    strings.SetSize(2);
    words.SetSize(2);
    QCOMPARE(strings[0], CString());
    QCOMPARE(strings[1], CString());
    QCOMPARE(words[0], static_cast<unsigned short>(0));
    QCOMPARE(words[1], static_cast<unsigned short>(0));
}

KX_TEST_MAIN(ArrayLimitsTest)
#include "tst_array_limits.moc"
