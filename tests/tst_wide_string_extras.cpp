// SPDX-License-Identifier: MIT
#include "support/KxTestCase.h"
#include "support/KxTextRows.h"

#include "KxStdStr.h"

#include <climits>
#include <string>
#include <type_traits>

namespace {

/// The tokens of a text, each followed by '|', taken until an empty one comes.
std::wstring tokensUntilEmpty(const CString &text, const wchar_t *separators)
{
    std::wstring result;
    int start = 0;
    for (CString token = text.Tokenize(separators, start); !token.IsEmpty();
         token = text.Tokenize(separators, start))
        result.append(token).append(L"|");
    return result;
}

} // namespace

class tst_WideStringExtras : public KxTestCase
{
    Q_OBJECT

private slots:
    void parts_data();
    void parts();
    void changes_data();
    void changes();
    void concatenation_data();
    void concatenation();
    void number_data();
    void number();
    void comparison_data();
    void comparison();
    void tokenizeStepByStep();
    void tokenizeBeyondTheEnd_data();
    void tokenizeBeyondTheEnd();
    void returnsItself_data();
    void returnsItself();
};

void tst_WideStringExtras::parts_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");

    textRow("Right(2) of three", [] { return CString(L"abc").Right(2); }, L"bc");
    textRow("Right(0) is empty", [] { return CString(L"abc").Right(0); }, L"");
    textRow("Right(3) of three is all", [] { return CString(L"abc").Right(3); }, L"abc");
    textRow("Right(100) of three is all", [] { return CString(L"abc").Right(100); }, L"abc");
    textRow("Right(INT_MAX) of three is all", [] { return CString(L"abc").Right(INT_MAX); }, L"abc");
    textRow("Right(-1) is empty", [] { return CString(L"abc").Right(-1); }, L"");
    textRow("Right(INT_MIN) is empty", [] { return CString(L"abc").Right(INT_MIN); }, L"");
    textRow("Right(1) of an empty string is empty", [] { return CString().Right(1); }, L"");

    textRow("SpanIncluding: the leading characters of the set",
            [] { return CString(L"cabinet").SpanIncluding(L"abc"); }, L"cab");
    textRow("SpanIncluding: the first is not of the set: empty",
            [] { return CString(L"xabc").SpanIncluding(L"abc"); }, L"");
    textRow("SpanIncluding: all are of the set",
            [] { return CString(L"abba").SpanIncluding(L"ab"); }, L"abba");
    textRow("SpanIncluding: of an empty set is empty",
            [] { return CString(L"abc").SpanIncluding(L""); }, L"");
    textRow("SpanIncluding: null is the empty set",
            [] { return CString(L"abc").SpanIncluding(noText); }, L"");
    textRow("SpanExcluding: up to the first of the set",
            [] { return CString(L"World Cup '98").SpanExcluding(L"';, ./"); }, L"World");
    textRow("SpanExcluding: the first is of the set: empty",
            [] { return CString(L"abc").SpanExcluding(L"xa"); }, L"");
    textRow("SpanExcluding: none is of the set: all",
            [] { return CString(L"abc").SpanExcluding(L"xyz"); }, L"abc");
    textRow("SpanExcluding: null is the empty set: all",
            [] { return CString(L"abc").SpanExcluding(noText); }, L"abc");

    textRow("Tokenize: the tokens one after the other",
            [] { return tokensUntilEmpty(L"%First Second#Third", L"% #"); }, L"First|Second|Third|");
    textRow("Tokenize: delimiters in a row make no empty token",
            [] { return tokensUntilEmpty(L",,a,;,b;,", L",;"); }, L"a|b|");
    textRow("Tokenize: no delimiter inside: the text is the token",
            [] { return tokensUntilEmpty(L"abc", L","); }, L"abc|");
    textRow("Tokenize: only delimiters: no token", [] { return tokensUntilEmpty(L",,,", L","); }, L"");
    textRow("Tokenize: an empty text has no token", [] { return tokensUntilEmpty(L"", L","); }, L"");
    textRow("Tokenize: no delimiters: the text is the token",
            [] { return tokensUntilEmpty(L"a,b", L""); }, L"a,b|");
    textRow("Tokenize: null is no delimiters", [] { return tokensUntilEmpty(L"a,b", noText); }, L"a,b|");
    textRow("Tokenize: the last token is one character",
            [] { return tokensUntilEmpty(L"a b c", L" "); }, L"a|b|c|");
    textRow("Tokenize: begins in the middle of a token", [] {
        int start = 2;
        return CString(L"abcd,e").Tokenize(L",", start);
    }, L"cd");
    textRow("Tokenize leaves its string alone", [] {
        CString s(L"a,b");
        int start = 0;
        s.Tokenize(L",", start);
        return s;
    }, L"a,b");

    textRow("GetString is the text", [] { return std::wstring(CString(L"abc").GetString()); }, L"abc");
    textRow("from a character", [] { return CString(L'x'); }, L"x");
    textRow("from a narrow character", [] { return CString('x'); }, L"x");
    textRow("from a character, three times", [] { return CString(L'x', 3); }, L"xxx");
    textRow("from a character, zero times", [] { return CString(L'x', 0); }, L"");
    textRow("from a text and a length", [] { return CString(L"abcdef", 3); }, L"abc");
    textRow("= a character", [] { CString s(L"old"); s = L'x'; return s; }, L"x");
    textRow("= a narrow character", [] { CString s(L"old"); s = 'x'; return s; }, L"x");
    textRow("= one of its own characters", [] { CString s(L"old"); s = s[1]; return s; }, L"l");
}

void tst_WideStringExtras::parts()
{
    QFETCH(TextCall, call);
    QTEST(shown(call()), "expected");
}

void tst_WideStringExtras::changes_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");

    textRow("Replace of a text: every one",
            [] { CString s(L"C++ is C++"); s.Replace(L"C++", L"C"); return s; }, L"C is C");
    textRow("Replace by a longer text",
            [] { CString s(L"a-b-c"); s.Replace(L"-", L" to "); return s; }, L"a to b to c");
    textRow("Replace by what contains the old text does not start over",
            [] { CString s(L"aaa"); s.Replace(L"a", L"aa"); return s; }, L"aaaaaa");
    textRow("Replace takes the text from the left without overlap",
            [] { CString s(L"aaaaa"); s.Replace(L"aa", L"b"); return s; }, L"bba");
    textRow("Replace minds the case", [] { CString s(L"aAa"); s.Replace(L"a", L"x"); return s; }, L"xAx");
    textRow("Replace by the empty text removes",
            [] { CString s(L"a.b.c"); s.Replace(L".", L""); return s; }, L"abc");
    textRow("Replace by null removes",
            [] { CString s(L"a.b.c"); s.Replace(L".", noText); return s; }, L"abc");
    textRow("Replace of the empty text changes nothing",
            [] { CString s(L"abc"); s.Replace(L"", L"x"); return s; }, L"abc");
    textRow("Replace of null changes nothing",
            [] { CString s(L"abc"); s.Replace(noText, L"x"); return s; }, L"abc");
    textRow("Replace by its own text",
            [] { CString s(L"abc"); s.Replace(L"b", s.c_str()); return s; }, L"aabcc");
    textRow("Replace of its own text",
            [] { CString s(L"abcbc"); s.Replace(s.c_str() + 3, L"x"); return s; }, L"axx");
    textRow("Replace of a character: every one",
            [] { CString s(L"a-b-c"); s.Replace(L'-', L'+'); return s; }, L"a+b+c");
    textRow("Replace of a character minds the case",
            [] { CString s(L"aAa"); s.Replace(L'A', L'x'); return s; }, L"axa");

    textRow("Trim removes blanks at both ends", [] { return CString(L" \t a b \r\n").Trim(); }, L"a b");
    textRow("Trim of blanks alone is empty", [] { return CString(L" \t ").Trim(); }, L"");
    textRow("Trim of an empty string is empty", [] { return CString().Trim(); }, L"");
    textRow("Trim asks the global locale what a blank is",
            [] { GlobalLocale odd(oddLocale()); return CString(L"__ a _").Trim(); }, L" a ");
    textRow("Trim of a character at both ends", [] { return CString(L"xxaxbxx").Trim(L'x'); }, L"axb");
    textRow("Trim of a character leaves blanks", [] { return CString(L" xa ").Trim(L'x'); }, L" xa ");
    textRow("Trim of a set at both ends",
            [] { return CString(L"******Soccer is best, but liquor is quicker!!!!!").Trim(L"?!*"); },
            L"Soccer is best, but liquor is quicker");
    textRow("Trim of a set that is all there is: empty", [] { return CString(L"xyx").Trim(L"xy"); }, L"");
    textRow("Trim of the empty set changes nothing", [] { return CString(L" a ").Trim(L""); }, L" a ");
    textRow("Trim of null changes nothing", [] { return CString(L" a ").Trim(noText); }, L" a ");
    textRow("Trim of its own text", [] { CString s(L"aba"); s.Trim(s.c_str()); return s; }, L"");
    textRow("TrimLeft of a character", [] { return CString(L"xxaxx").TrimLeft(L'x'); }, L"axx");
    textRow("TrimLeft of a set", [] { return CString(L"xyaxy").TrimLeft(L"yx"); }, L"axy");
    textRow("TrimLeft of null changes nothing", [] { return CString(L" a").TrimLeft(noText); }, L" a");
    textRow("TrimRight of a character", [] { return CString(L"xxaxx").TrimRight(L'x'); }, L"xxa");
    textRow("TrimRight of a set does not match it as a whole",
            [] { return CString(L"xyaxyx").TrimRight(L"xy"); }, L"xya");
    textRow("TrimRight of null changes nothing", [] { return CString(L"a ").TrimRight(noText); }, L"a ");
    textRow("TrimRight of a character that is all there is: empty",
            [] { return CString(L"xxx").TrimRight(L'x'); }, L"");

    textRow("AppendFormat appends",
            [] { CString s(L"a"); s.AppendFormat(L"%d,%ls", 7, L"b"); return s; }, L"a7,b");
    textRow("AppendFormat to an empty string", [] { CString s; s.AppendFormat(L"%d", 7); return s; }, L"7");
    textRow("AppendFormat with its own text",
            [] { CString s(L"ab"); s.AppendFormat(L"-%ls", s.c_str()); return s; }, L"ab-ab");
    textRow("AppendFormat of null appends nothing",
            [] { CString s(L"a"); s.AppendFormat(noText); return s; }, L"a");

    textRow("Insert of a text in the middle",
            [] { CString s(L"ad"); s.Insert(1, L"bc"); return s; }, L"abcd");
    textRow("Insert of a text at 0", [] { CString s(L"cd"); s.Insert(0, L"ab"); return s; }, L"abcd");
    textRow("Insert of a text at the end", [] { CString s(L"ab"); s.Insert(2, L"cd"); return s; }, L"abcd");
    textRow("Insert of a text behind the end appends",
            [] { CString s(L"ab"); s.Insert(99, L"cd"); return s; }, L"abcd");
    textRow("Insert of a text before the start is at 0",
            [] { CString s(L"cd"); s.Insert(-5, L"ab"); return s; }, L"abcd");
    textRow("Insert of null changes nothing", [] { CString s(L"ab"); s.Insert(1, noText); return s; }, L"ab");
    textRow("Insert of its own text", [] { CString s(L"abc"); s.Insert(1, s.c_str()); return s; }, L"aabcbc");
    textRow("Insert of a character in the middle",
            [] { CString s(L"ac"); s.Insert(1, L'b'); return s; }, L"abc");
    textRow("Insert of a character at 0", [] { CString s(L"bc"); s.Insert(0, L'a'); return s; }, L"abc");
    textRow("Insert of a character behind the end appends",
            [] { CString s(L"ab"); s.Insert(99, L'c'); return s; }, L"abc");

    textRow("Delete of one", [] { CString s(L"abc"); s.Delete(1); return s; }, L"ac");
    textRow("Delete of two", [] { CString s(L"abcd"); s.Delete(1, 2); return s; }, L"ad");
    textRow("Delete of more than there is: the rest",
            [] { CString s(L"abcd"); s.Delete(2, 99); return s; }, L"ab");
    textRow("Delete of INT_MAX: the rest", [] { CString s(L"abcd"); s.Delete(2, INT_MAX); return s; }, L"ab");
    textRow("Delete of all", [] { CString s(L"abcd"); s.Delete(0, 4); return s; }, L"");
    textRow("Delete of none", [] { CString s(L"abc"); s.Delete(1, 0); return s; }, L"abc");
    textRow("Delete of a negative count", [] { CString s(L"abc"); s.Delete(1, -1); return s; }, L"abc");
    textRow("Delete at the end", [] { CString s(L"abc"); s.Delete(3); return s; }, L"abc");
    textRow("Delete behind the end", [] { CString s(L"abc"); s.Delete(99); return s; }, L"abc");
    textRow("Remove: every one of a character",
            [] { CString s(L"abcacb"); s.Remove(L'c'); return s; }, L"abab");
    textRow("Remove minds the case", [] { CString s(L"aAa"); s.Remove(L'a'); return s; }, L"A");
    textRow("Remove of an absent character", [] { CString s(L"abc"); s.Remove(L'x'); return s; }, L"abc");
    textRow("Remove of one of its own", [] { CString s(L"aba"); s.Remove(s[0]); return s; }, L"b");

    textRow("Truncate shortens", [] { CString s(L"abcdef"); s.Truncate(2); return s; }, L"ab");
    textRow("Truncate to 0 empties", [] { CString s(L"abc"); s.Truncate(0); return s; }, L"");
    textRow("Truncate to the length changes nothing",
            [] { CString s(L"abc"); s.Truncate(3); return s; }, L"abc");
    textRow("Truncate never lengthens", [] { CString s(L"abc"); s.Truncate(9); return s; }, L"abc");
    textRow("AppendChar", [] { CString s(L"ab"); s.AppendChar(L'c'); return s; }, L"abc");
    textRow("AppendChar of one of its own at every length", [] {
        CString s(L"a");
        while (s.GetLength() < 100)
            s.AppendChar(s[0]);
        return s;
    }, std::wstring(100, L'a'));
    textRow("Append", [] { CString s(L"ab"); s.Append(L"cd"); return s; }, L"abcd");
    textRow("Append of null appends nothing", [] { CString s(L"ab"); s.Append(noText); return s; }, L"ab");
    textRow("MakeReverse", [] { return CString(L"abc").MakeReverse(); }, L"cba");
    textRow("GetBufferSetLength lengthens with zeros",
            [] { CString s(L"ab"); s.GetBufferSetLength(4); return s; },
            whole(L"ab\0\0"));
    textRow("GetBufferSetLength shortens",
            [] { CString s(L"abcd"); s.GetBufferSetLength(2); return s; }, L"ab");
    textRow("GetBufferSetLength is writable", [] {
        CString s;
        wchar_t *buffer = s.GetBufferSetLength(3);
        buffer[0] = L'x';
        buffer[2] = L'z';
        return s;
    }, whole(L"x\0z"));
    textRow("ReleaseBuffer without a length cuts at the NUL", [] {
        CString s;
        wchar_t *buffer = s.GetBuffer(9);
        buffer[0] = L'x';
        s.ReleaseBuffer();
        return s;
    }, L"x");
    textRow("GetBuffer without a length is the text", [] {
        CString s(L"abc");
        s.GetBuffer()[1] = L'x';
        return s;
    }, L"axc");
}

void tst_WideStringExtras::changes()
{
    QFETCH(TextCall, call);
    QTEST(shown(call()), "expected");
}

void tst_WideStringExtras::concatenation_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");

    static const CString ab(L"ab");
    static const CString cd(L"cd");
    static const std::wstring standard(L"st");
    // As a plain function: a sum of any type but CString would not compile.
    const auto row = [](const char *promise, CString (*call)(), const std::wstring &expected) {
        QTest::newRow(promise) << TextCall(call) << shown(expected);
    };
    row("string + string", [] { return ab + cd; }, L"abcd");
    row("string + wide text", [] { return ab + L"cd"; }, L"abcd");
    row("wide text + string", [] { return L"ab" + cd; }, L"abcd");
    row("string + narrow text", [] { return ab + "cd"; }, L"abcd");
    row("narrow text + string", [] { return "ab" + cd; }, L"abcd");
    row("string + character", [] { return ab + L'c'; }, L"abc");
    row("character + string", [] { return L'b' + cd; }, L"bcd");
    row("string + narrow character", [] { return ab + 'c'; }, L"abc");
    row("narrow character + string", [] { return 'b' + cd; }, L"bcd");
    row("string + standard string", [] { return ab + standard; }, L"abst");
    row("standard string + string", [] { return standard + ab; }, L"stab");
    row("temporary + temporary", [] { return CString(L"ab") + CString(L"cd"); }, L"abcd");
    row("temporary + wide text", [] { return CString(L"ab") + L"cd"; }, L"abcd");
    row("wide text + temporary", [] { return L"ab" + CString(L"cd"); }, L"abcd");
    row("temporary + character", [] { return CString(L"ab") + L'c'; }, L"abc");
    row("character + temporary", [] { return L'a' + CString(L"b"); }, L"ab");
    row("a chain", [] { return ab + L'-' + cd + L"-" + "ef" + standard; }, L"ab-cd-efst");
    row("string + null wide text", [] { return ab + noText; }, L"ab");
    row("null wide text + string", [] { return noText + ab; }, L"ab");
    row("string + null narrow text", [] { return ab + noNarrowText; }, L"ab");
    row("null narrow text + string", [] { return noNarrowText + ab; }, L"ab");
    row("string + its own text", [] { return ab + ab.c_str(); }, L"abab");
    row("+= narrow text", [] { CString s(ab); s += "cd"; return s; }, L"abcd");
    row("+= narrow character", [] { CString s(ab); s += 'c'; return s; }, L"abc");
    row("+= standard string", [] { CString s(ab); s += standard; return s; }, L"abst");
    row("inner NULs of both operands are kept",
        [] { return CString(whole(L"a\0b")) + CString(whole(L"c\0d")); }, whole(L"a\0bc\0d"));
}

void tst_WideStringExtras::concatenation()
{
    QFETCH(TextCall, call);
    QTEST(shown(call()), "expected");
}

void tst_WideStringExtras::number_data()
{
    QTest::addColumn<NumberCall>("call");
    QTest::addColumn<qint64>("expected");

    numberRow("Replace of a text gives how many", [] { return CString(L"a.b.c").Replace(L".", L"::"); }, 2);
    numberRow("Replace of an absent text gives 0", [] { return CString(L"abc").Replace(L"x", L"y"); }, 0);
    numberRow("Replace of the empty text gives 0", [] { return CString(L"abc").Replace(L"", L"y"); }, 0);
    numberRow("Replace of null gives 0", [] { return CString(L"abc").Replace(noText, L"y"); }, 0);
    numberRow("Replace of a character gives how many",
              [] { return CString(L"a.b.c").Replace(L'.', L':'); }, 2);
    numberRow("Replace of an absent character gives 0",
              [] { return CString(L"abc").Replace(L'x', L'y'); }, 0);
    numberRow("Replace of a character by itself gives 0: nothing changed",
              [] { return CString(L"aaa").Replace(L'a', L'a'); }, 0);
    numberRow("Insert of a text gives the new length", [] { return CString(L"ad").Insert(1, L"bc"); }, 4);
    numberRow("Insert of null gives the old length", [] { return CString(L"ad").Insert(1, noText); }, 2);
    numberRow("Insert of a character gives the new length", [] { return CString(L"ad").Insert(1, L'b'); }, 3);
    numberRow("Delete gives the new length", [] { return CString(L"abcd").Delete(1, 2); }, 2);
    numberRow("Delete behind the end gives the old length", [] { return CString(L"abcd").Delete(9, 2); }, 4);
    numberRow("Remove gives how many", [] { return CString(L"abcacb").Remove(L'c'); }, 2);
    numberRow("Remove of an absent character gives 0", [] { return CString(L"abc").Remove(L'x'); }, 0);

    numberRow("FindOneOf: the first of any", [] { return CString(L"golden").FindOneOf(L"de"); }, 3);
    numberRow("FindOneOf: none is -1", [] { return CString(L"golden").FindOneOf(L"xyz"); }, -1);
    numberRow("FindOneOf: the empty set is -1", [] { return CString(L"golden").FindOneOf(L""); }, -1);
    numberRow("FindOneOf: null is -1", [] { return CString(L"golden").FindOneOf(noText); }, -1);
    numberRow("Find of a character from an index", [] { return CString(L"abcabc").Find(L'b', 2); }, 4);
    numberRow("Find of a character from where it is", [] { return CString(L"abcabc").Find(L'b', 1); }, 1);
    numberRow("Find of a character from behind the last is -1",
              [] { return CString(L"abcabc").Find(L'b', 5); }, -1);
    numberRow("Find of a character from behind the end is -1",
              [] { return CString(L"abc").Find(L'b', 99); }, -1);
    numberRow("Find of a text from an index", [] { return CString(L"abcabc").Find(L"bc", 2); }, 4);
    numberRow("Find of a text from where it is", [] { return CString(L"abcabc").Find(L"bc", 4); }, 4);
    numberRow("Find of a text from behind the last is -1",
              [] { return CString(L"abcabc").Find(L"bc", 5); }, -1);
    numberRow("Find of a text from behind the end is -1", [] { return CString(L"abc").Find(L"b", 99); }, -1);
    numberRow("Find of a text counts from the string's start",
              [] { return CString(L"xxab").Find(L"ab", 1); }, 2);
    numberRow("GetString is c_str()", [] { const CString s(L"abc"); return s.GetString() == s.c_str(); }, 1);
    numberRow("GetBufferSetLength sets the size", [] {
        CString s(L"abc");
        s.GetBufferSetLength(7);
        return qint64(s.size());
    }, 7);
}

void tst_WideStringExtras::number()
{
    QFETCH(NumberCall, call);
    QTEST(call(), "expected");
}

void tst_WideStringExtras::comparison_data()
{
    QTest::addColumn<NumberCall>("call");
    QTest::addColumn<bool>("expected");
    static const CString abc(L"abc");
    static const CString abd(L"abd");
    const auto row = [](const char *promise, NumberCall call, bool expected) {
        QTest::newRow(promise) << std::move(call) << expected;
    };
    row("string == equal string", [] { return abc == CString(L"abc"); }, true);
    row("string == other string", [] { return abc == abd; }, false);
    row("string == equal text, not pointer", [] { return abc == std::wstring(L"abc").c_str(); }, true);
    row("string == other text", [] { return abc == L"abd"; }, false);
    row("text == string", [] { return L"abc" == abc; }, true);
    row("string != other text", [] { return abc != L"abd"; }, true);
    row("text != equal string", [] { return L"abc" != abc; }, false);
    row("string != equal string", [] { return abc != CString(L"abc"); }, false);
    row("string < string", [] { return abc < abd; }, true);
    row("string < text", [] { return abd < L"abc"; }, false);
    row("text < string", [] { return L"abc" < abd; }, true);
    row("string > text", [] { return abd > L"abc"; }, true);
    row("string <= equal text", [] { return abc <= L"abc"; }, true);
    row("string >= greater text", [] { return abc >= L"abd"; }, false);
    row("a prefix is less", [] { return CString(L"ab") < abc; }, true);
}

void tst_WideStringExtras::comparison()
{
    QFETCH(NumberCall, call);
    QTEST(call() != 0, "expected");
}

void tst_WideStringExtras::tokenizeStepByStep()
{
    const CString text(L"%First Second#Third");
    int start = 0;
    QCOMPARE(shown(text.Tokenize(L"% #", start)), QStringLiteral("First"));
    QCOMPARE(start, 7); // behind the blank that ended it
    QCOMPARE(shown(text.Tokenize(L"% #", start)), QStringLiteral("Second"));
    QCOMPARE(start, 14);
    QCOMPARE(shown(text.Tokenize(L"% #", start)), QStringLiteral("Third"));
    QCOMPARE(shown(text.Tokenize(L"% #", start)), QString());
    QCOMPARE(start, -1);
    QCOMPARE(shown(text.Tokenize(L"% #", start)), QString());
    QCOMPARE(start, -1);
}

void tst_WideStringExtras::tokenizeBeyondTheEnd_data()
{
    QTest::addColumn<int>("start");
    QTest::newRow("at the end: 3") << 3;
    QTest::newRow("behind the end: 4") << 4;
    QTest::newRow("far behind: INT_MAX") << INT_MAX;
    QTest::newRow("over already: -1") << -1;
}

void tst_WideStringExtras::tokenizeBeyondTheEnd()
{
    QFETCH(int, start);
    QCOMPARE(shown(CString(L"abc").Tokenize(L",", start)), QString());
    QCOMPARE(start, -1);
}

void tst_WideStringExtras::returnsItself_data()
{
    QTest::addColumn<NumberCall>("call");
    const auto row = [](const char *promise, NumberCall call) { QTest::newRow(promise) << std::move(call); };
    row("= character", [] { CString s; return &(s = L'a') == &s; });
    row("Trim", [] { CString s; return &s.Trim() == &s; });
    row("Trim of a character", [] { CString s; return &s.Trim(L'x') == &s; });
    row("Trim of a set", [] { CString s; return &s.Trim(L"x") == &s; });
    row("TrimLeft of a character", [] { CString s; return &s.TrimLeft(L'x') == &s; });
    row("TrimRight of a set", [] { CString s; return &s.TrimRight(L"x") == &s; });
    row("MakeReverse", [] { CString s; return &s.MakeReverse() == &s; });
}

void tst_WideStringExtras::returnsItself()
{
    QFETCH(NumberCall, call);
    QCOMPARE(call(), qint64(1));
}

KX_TEST_MAIN(tst_WideStringExtras)

#include "tst_wide_string_extras.moc"
