// SPDX-License-Identifier: MIT
#include "support/KxTestCase.h"
#include "support/KxTextRows.h"

#include "KxStdStr.h"

#include <climits>
#include <locale>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

size_t lengthOfPointer(const wchar_t *text)
{
    return std::wcslen(text);
}

int sign(int value)
{
    return (value > 0) - (value < 0);
}

} // namespace

class tst_WideString : public KxTestCase
{
    Q_OBJECT

private slots:
    void type_data();
    void type();
    void text_data();
    void text();
    void number_data();
    void number();
    void addingOwnTextDoublesAtEveryLength();
    void assigningOwnTailAtEveryOffset();
    void badIndexThrows_data();
    void badIndexThrows();
    void returnsItself_data();
    void returnsItself();
    void buffers();
    void functionObjects();
};

void tst_WideString::type_data()
{
    QTest::addColumn<bool>("holds");
    const auto row = [](const char *promise, bool holds) { QTest::newRow(promise) << holds; };
    row("a character has 32 bits", sizeof(wchar_t) == 4);
    row("CString is CStdStr<wchar_t>", std::is_same_v<CString, CStdStr<wchar_t>>);
    row("CStringW is CStdStr<wchar_t>", std::is_same_v<CStringW, CStdStr<wchar_t>>);
    row("the standard wide string is a public base", std::is_convertible_v<CString *, std::wstring *>);
    row("no field of its own: the size is the base's", sizeof(CString) == sizeof(std::wstring));
    row("no virtual function", !std::is_polymorphic_v<CString>);
    row("no virtual destructor", !std::has_virtual_destructor_v<CString>);
    row("becomes const wchar_t* by itself", std::is_convertible_v<const CString &, const wchar_t *>);
    row("const wchar_t* becomes a string by itself", std::is_convertible_v<const wchar_t *, CString>);
    row("const char* becomes a string by itself", std::is_convertible_v<const char *, CString>);
    row("a standard wide string becomes a string by itself", std::is_convertible_v<std::wstring, CString>);
    row("nullptr constructs", std::is_constructible_v<CString, std::nullptr_t>);
    row("nullptr assigns", std::is_assignable_v<CString &, std::nullptr_t>);
    row("GetLength is int", std::is_same_v<decltype(std::declval<const CString &>().GetLength()), int>);
    row("Find is int", std::is_same_v<decltype(std::declval<const CString &>().Find(L'a')), int>);
    row("ReverseFind is int",
        std::is_same_v<decltype(std::declval<const CString &>().ReverseFind(L'a')), int>);
    row("Left gives a CString", std::is_same_v<decltype(std::declval<const CString &>().Left(1)), CString>);
    row("Mid(first) gives a CString",
        std::is_same_v<decltype(std::declval<const CString &>().Mid(1)), CString>);
    row("Mid(first, count) gives a CString",
        std::is_same_v<decltype(std::declval<const CString &>().Mid(1, 1)), CString>);
    row("string + character gives a CString", std::is_same_v<decltype(CString() + L'a'), CString>);
    row("LoadStringW is bool", std::is_same_v<decltype(std::declval<CString &>().LoadStringW(1u)), bool>);
    row("sslen of wide text is int", std::is_same_v<decltype(sslen(noText)), int>);
    row("sslen of narrow text is int", std::is_same_v<decltype(sslen(noNarrowText)), int>);
    row("ssicmp is int", std::is_same_v<decltype(ssicmp(noText, noText)), int>);
    row("GetBuffer is writable", std::is_same_v<decltype(std::declval<CString &>().GetBuffer(1)), wchar_t *>);
    row("GetBuf is writable", std::is_same_v<decltype(std::declval<CString &>().GetBuf(1)), wchar_t *>);
    row("NotSpace names its argument type", std::is_same_v<NotSpace<wchar_t>::argument_type, wchar_t>);
    row("NotSpace names its result type", std::is_same_v<NotSpace<wchar_t>::result_type, bool>);
    row("SSToUpper names its first argument type",
        std::is_same_v<std::decay_t<SSToUpper<wchar_t>::first_argument_type>, wchar_t>);
    row("SSToUpper names its second argument type",
        std::is_same_v<std::decay_t<SSToUpper<wchar_t>::second_argument_type>, std::locale>);
    row("SSToUpper names its result type", std::is_same_v<SSToUpper<wchar_t>::result_type, wchar_t>);
    row("SSToLower names its first argument type",
        std::is_same_v<std::decay_t<SSToLower<wchar_t>::first_argument_type>, wchar_t>);
    row("SSToLower names its second argument type",
        std::is_same_v<std::decay_t<SSToLower<wchar_t>::second_argument_type>, std::locale>);
    row("SSToLower names its result type", std::is_same_v<SSToLower<wchar_t>::result_type, wchar_t>);
}

void tst_WideString::type()
{
    QFETCH(bool, holds);
    QVERIFY(holds);
}

void tst_WideString::text_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");

    // Construction
    textRow("a new string is empty", [] { return CString(); }, L"");
    textRow("copy of another string", [] { const CString a(L"abc"); return CString(a); }, L"abc");
    textRow("copy keeps an inner NUL",
            [] { const CString a(whole(L"a\0b")); return CString(a); }, whole(L"a\0b"));
    textRow("from a standard string, inner NUL kept", [] { return CString(whole(L"a\0b")); }, whole(L"a\0b"));
    textRow("from wide text", [] { return CString(L"abc"); }, L"abc");
    textRow("from wide text: ends at its NUL", [] { return CString(L"ab\0c"); }, L"ab");
    textRow("from null wide text: empty", [] { return CString(noText); }, L"");
    textRow("from nullptr: empty", [] { return CString(nullptr); }, L"");
    textRow("from narrow text: whole", [] { return CString("abc"); }, L"abc");
    textRow("from null narrow text: empty", [] { return CString(noNarrowText); }, L"");
    textRow("a character beyond 16 bits is one element",
            [] { return CString(L"\U0001F600"); }, L"\U0001F600");

    // Assignment
    textRow("= another string, inner NUL kept",
            [] { CString s(L"old"); const CString a(whole(L"a\0b")); s = a; return s; }, whole(L"a\0b"));
    textRow("= itself", [] { CString s(L"abc"); const CString &same = s; s = same; return s; }, L"abc");
    textRow("= wide text", [] { CString s(L"old text"); s = L"new"; return s; }, L"new");
    textRow("= narrow text", [] { CString s(L"old text"); s = "new"; return s; }, L"new");
    textRow("= null wide text: empty", [] { CString s(L"old"); s = noText; return s; }, L"");
    textRow("= null narrow text: empty", [] { CString s(L"old"); s = noNarrowText; return s; }, L"");
    textRow("= nullptr: empty", [] { CString s(L"old"); s = nullptr; return s; }, L"");
    textRow("= empty narrow text: empty", [] { CString s(L"old"); s = ""; return s; }, L"");
    textRow("s = s.c_str() + 2 leaves the tail", [] { CString s(L"abcdef"); s = s.c_str() + 2; return s; },
            L"cdef");
    textRow("s = s.c_str() leaves s", [] { CString s(L"abcdef"); s = s.c_str(); return s; }, L"abcdef");
    textRow("s = its own end: empty", [] { CString s(L"abc"); s = s.c_str() + 3; return s; }, L"");
    textRow("s = own tail across an inner NUL keeps all of it",
            [] { CString s(whole(L"ab\0cd")); s = s.c_str() + 1; return s; }, whole(L"b\0cd"));

    // ssasn
    textRow("ssasn of a string to itself does nothing",
            [] { std::wstring s(whole(L"a\0b")); ssasn(s, s); return s; }, whole(L"a\0b"));
    textRow("ssasn of another string",
            [] { std::wstring s(L"long old text"); ssasn(s, std::wstring(L"n")); return s; },
            L"n");
    textRow("ssasn of null wide text empties",
            [] { std::wstring s(L"old"); ssasn(s, noText); return s; }, L"");
    textRow("ssasn of null narrow text empties",
            [] { std::wstring s(L"old"); ssasn(s, noNarrowText); return s; },
            L"");
    textRow("ssasn of the own tail",
            [] { std::wstring s(L"abcdef"); ssasn(s, s.c_str() + 4); return s; }, L"ef");
    textRow("ssasn of foreign text",
            [] { std::wstring s(L"old"); ssasn(s, L"new text"); return s; }, L"new text");
    textRow("ssasn of narrow text",
            [] { std::wstring s(L"old"); ssasn(s, "new text"); return s; }, L"new text");

    // Appending
    textRow("+= another string, inner NULs kept",
            [] { CString s(L"a"); const CString b(whole(L"b\0c")); s += b; return s; }, whole(L"ab\0c"));
    textRow("+= itself", [] { CString s(L"ab"); const CString &same = s; s += same; return s; }, L"abab");
    textRow("+= wide text", [] { CString s(L"ab"); s += L"cd"; return s; }, L"abcd");
    textRow("+= null wide text: unchanged", [] { CString s(L"ab"); s += noText; return s; }, L"ab");
    textRow("+= a character", [] { CString s(L"ab"); s += L'c'; return s; }, L"abc");
    textRow("+= a NUL character appends it", [] { CString s(L"ab"); s += L'\0'; return s; }, whole(L"ab\0"));
    textRow("s += s.c_str() doubles", [] { CString s(L"abc"); s += s.c_str(); return s; }, L"abcabc");
    textRow("s += its own tail", [] { CString s(L"abc"); s += s.c_str() + 1; return s; }, L"abcbc");
    textRow("s += its own tail with room to spare",
            [] { CString s(L"abc"); s.reserve(100); s += s.c_str() + 1; return s; }, L"abcbc");
    textRow("s += its own end: unchanged", [] { CString s(L"abc"); s += s.c_str() + 3; return s; }, L"abc");
    textRow("s += its own text behind an inner NUL",
            [] { CString s(whole(L"a\0bc")); s += s.c_str() + 2; return s; }, whole(L"a\0bcbc"));
    textRow("ssadd of another string",
            [] { std::wstring s(L"a"); ssadd(s, std::wstring(L"bc")); return s; }, L"abc");
    textRow("ssadd of null text does nothing",
            [] { std::wstring s(L"a"); ssadd(s, noText); return s; }, L"a");
    textRow("ssadd of own text that reallocates",
            [] { std::wstring s(500, L'x'); s.shrink_to_fit(); ssadd(s, s.c_str() + 1); return s; },
            std::wstring(999, L'x'));
    textRow("string + character: a copy with it appended",
            [] { const CString s(L"ab"); return s + L'c'; }, L"abc");
    textRow("string + character leaves the left operand",
            [] { const CString s(L"ab"); const CString sum = s + L'c'; return sum.empty() ? sum : s; },
            L"ab");

    // Reaching the text
    textRow("converts to its text by itself",
            [] { const CString s(L"abc"); const wchar_t *p = s; return std::wstring(p); }, L"abc");
    textRow("the base's append, insert and substr stay",
            [] { CString s(L"ad"); s.append(L"e").insert(1, L"bc"); return s.substr(1); }, L"bcde");
    textRow("the base's iterators stay",
            [] { const CString s(L"abc"); return std::wstring(s.rbegin(), s.rend()); },
            L"cba");
    textRow("Empty empties", [] { CString s(L"abc"); s.Empty(); return s; }, L"");
    textRow("Empty empties behind a NUL too", [] { CString s(whole(L"\0bc")); s.Empty(); return s; }, L"");
    textRow("SetAt sets one character", [] { CString s(L"abc"); s.SetAt(1, L'x'); return s; }, L"axc");
    textRow("[] writes", [] { CString s(L"abc"); s[2] = L'x'; return s; }, L"abx");

    // Left
    textRow("Left(2) of three", [] { return CString(L"abc").Left(2); }, L"ab");
    textRow("Left(0) is empty", [] { return CString(L"abc").Left(0); }, L"");
    textRow("Left(-1) is empty", [] { return CString(L"abc").Left(-1); }, L"");
    textRow("Left(INT_MIN) is empty", [] { return CString(L"abc").Left(INT_MIN); }, L"");
    textRow("Left(100) of three is all", [] { return CString(L"abc").Left(100); }, L"abc");
    textRow("Left(INT_MAX) of three is all", [] { return CString(L"abc").Left(INT_MAX); }, L"abc");
    textRow("Left counts by the real size", [] { return CString(whole(L"a\0bc")).Left(3); }, whole(L"a\0b"));
    textRow("Left(-1) of an empty string is empty", [] { return CString().Left(-1); }, L"");

    // Mid
    textRow("Mid(1) of three", [] { return CString(L"abc").Mid(1); }, L"bc");
    textRow("Mid(0) is all", [] { return CString(L"abc").Mid(0); }, L"abc");
    textRow("Mid(3) of three is empty", [] { return CString(L"abc").Mid(3); }, L"");
    textRow("Mid(5) of three is empty", [] { return CString(L"abc").Mid(5); }, L"");
    textRow("Mid(-2) of three is all", [] { return CString(L"abc").Mid(-2); }, L"abc");
    textRow("Mid(INT_MIN) of three is all", [] { return CString(L"abc").Mid(INT_MIN); }, L"abc");
    textRow("Mid(INT_MAX) of three is empty", [] { return CString(L"abc").Mid(INT_MAX); }, L"");
    textRow("Mid(first) counts up to the first NUL", [] { return CString(whole(L"ab\0cd")).Mid(1); }, L"b");
    textRow("Mid(first) behind the first NUL is empty", [] { return CString(whole(L"ab\0cd")).Mid(3); }, L"");
    textRow("Mid(-2, 2) is the first two", [] { return CString(L"abc").Mid(-2, 2); }, L"ab");
    textRow("Mid(1, 1) of three", [] { return CString(L"abc").Mid(1, 1); }, L"b");
    textRow("Mid(1, 2) reaches the end", [] { return CString(L"abc").Mid(1, 2); }, L"bc");
    textRow("Mid(1, 0) is empty", [] { return CString(L"abc").Mid(1, 0); }, L"");
    textRow("Mid(1, -1) is empty", [] { return CString(L"abc").Mid(1, -1); }, L"");
    textRow("Mid(1, INT_MIN) is empty", [] { return CString(L"abc").Mid(1, INT_MIN); }, L"");
    textRow("Mid(1, 100) is all from 1", [] { return CString(L"abc").Mid(1, 100); }, L"bc");
    textRow("Mid(1, INT_MAX) is all from 1", [] { return CString(L"abc").Mid(1, INT_MAX); }, L"bc");
    textRow("Mid(0, INT_MAX) is all", [] { return CString(L"abc").Mid(0, INT_MAX); }, L"abc");
    textRow("Mid(3, 1) of three is empty", [] { return CString(L"abc").Mid(3, 1); }, L"");
    textRow("Mid(4, 1) of three is empty", [] { return CString(L"abc").Mid(4, 1); }, L"");
    textRow("Mid(INT_MAX, INT_MAX) is empty", [] { return CString(L"abc").Mid(INT_MAX, INT_MAX); }, L"");
    textRow("Mid(1, 3) counts by the real size",
            [] { return CString(whole(L"ab\0cd")).Mid(1, 3); }, whole(L"b\0c"));

    // Trimming
    textRow("TrimLeft removes leading blanks of every kind",
            [] { return CString(L" \t\n\v\f\ra b ").TrimLeft(); }, L"a b ");
    textRow("TrimLeft without leading blanks changes nothing",
            [] { return CString(L"a ").TrimLeft(); }, L"a ");
    textRow("TrimLeft of blanks alone is empty", [] { return CString(L" \t ").TrimLeft(); }, L"");
    textRow("TrimLeft of an empty string is empty", [] { return CString().TrimLeft(); }, L"");
    textRow("TrimRight removes trailing blanks of every kind",
            [] { return CString(L" a b \t\n\v\f\r").TrimRight(); }, L" a b");
    textRow("TrimRight of two blanks is empty", [] { return CString(L"  ").TrimRight(); }, L"");
    textRow("TrimRight of 'a b' and two blanks is 'a b'",
            [] { return CString(L"a b  ").TrimRight(); }, L"a b");
    textRow("TrimRight without trailing blanks changes nothing",
            [] { return CString(L" a").TrimRight(); }, L" a");
    textRow("TrimRight keeps an earlier copy of the last character and all behind it",
            [] { return CString(L"abcabca \t").TrimRight(); }, L"abcabca");
    textRow("TrimRight of one character keeps it", [] { return CString(L"a").TrimRight(); }, L"a");
    textRow("TrimRight of an empty string is empty", [] { return CString().TrimRight(); }, L"");
    textRow("a NUL is no blank: TrimRight keeps it",
            [] { return CString(whole(L"a\0  ")).TrimRight(); }, whole(L"a\0"));
    textRow("a NUL is no blank: TrimLeft keeps it",
            [] { return CString(whole(L" \0 a")).TrimLeft(); }, whole(L"\0 a"));
    textRow("TrimLeft asks the global locale what a blank is",
            [] { GlobalLocale odd(oddLocale()); return CString(L"__ a_ ").TrimLeft(); }, L" a_ ");
    textRow("TrimRight asks the global locale what a blank is",
            [] { GlobalLocale odd(oddLocale()); return CString(L"_ a __").TrimRight(); }, L"_ a ");
    textRow("TrimLeft: an em space is a blank in C.UTF-8",
            [] { GlobalLocale unicode(unicodeLocale()); return CString(L"\u2003 a").TrimLeft(); }, L"a");
    textRow("TrimLeft: an em space is no blank in C",
            [] { GlobalLocale c(std::locale::classic()); return CString(L"\u2003a").TrimLeft(); },
            L"\u2003a");

    // Case
    textRow("MakeUpper", [] { return CString(L"aBc1").MakeUpper(); }, L"ABC1");
    textRow("MakeLower", [] { return CString(L"AbC1").MakeLower(); }, L"abc1");
    textRow("MakeUpper maps every element, behind a NUL too",
            [] { return CString(whole(L"a\0b")).MakeUpper(); }, whole(L"A\0B"));
    textRow("MakeUpper uses the global locale: C.UTF-8 maps umlauts",
            [] { GlobalLocale unicode(unicodeLocale()); return CString(L"a\u00e4").MakeUpper(); },
            L"A\u00c4");
    textRow("MakeLower uses the global locale: C.UTF-8 maps umlauts",
            [] { GlobalLocale unicode(unicodeLocale()); return CString(L"A\u00c4").MakeLower(); },
            L"a\u00e4");
    textRow("MakeUpper uses the global locale: C leaves umlauts",
            [] { GlobalLocale c(std::locale::classic()); return CString(L"a\u00e4").MakeUpper(); },
            L"A\u00e4");
    textRow("MakeUpper asks the global locale's own facet",
            [] { GlobalLocale odd(oddLocale()); return CString(L"aq").MakeUpper(); }, L"A1");
    textRow("MakeLower asks the global locale's own facet",
            [] { GlobalLocale odd(oddLocale()); return CString(L"AQ").MakeLower(); }, L"a2");
    textRow("toUpper uses the locale it is given",
            [] { CString s(L"aq"); s.toUpper(oddLocale()); return s; }, L"A1");
    textRow("ToLower uses the locale it is given",
            [] { CString s(L"AQ"); s.ToLower(oddLocale()); return s; }, L"a2");
    textRow("toUpper does not use the global locale",
            [] {
                GlobalLocale odd(oddLocale());
                CString s(L"aq");
                s.toUpper(std::locale::classic());
                return s;
            },
            L"AQ");
    textRow("ToLower does not use the global locale",
            [] {
                GlobalLocale odd(oddLocale());
                CString s(L"AQ");
                s.ToLower(std::locale::classic());
                return s;
            },
            L"aq");
}

void tst_WideString::text()
{
    QFETCH(TextCall, call);
    QTEST(shown(call()), "expected");
}

void tst_WideString::number_data()
{
    QTest::addColumn<NumberCall>("call");
    QTest::addColumn<qint64>("expected");

    numberRow("sslen of null wide text is 0", [] { return sslen(noText); }, 0);
    numberRow("sslen of null narrow text is 0", [] { return sslen(noNarrowText); }, 0);
    numberRow("sslen of wide text counts characters", [] { return sslen(L"a\U0001F600b"); }, 3);
    numberRow("sslen of narrow text counts bytes", [] { return sslen("gr\xc3\xb6\xc3\x9f" "e"); }, 7);
    numberRow("sslen ends at the NUL", [] { return sslen(L"ab\0c"); }, 2);

    numberRow("GetLength of three", [] { return CString(L"abc").GetLength(); }, 3);
    numberRow("GetLength of an empty string is 0", [] { return CString().GetLength(); }, 0);
    numberRow("GetLength counts up to the first NUL", [] { return CString(whole(L"ab\0c")).GetLength(); }, 2);
    numberRow("GetLength of a NUL and two more is 0", [] { return CString(whole(L"\0bc")).GetLength(); }, 0);
    numberRow("IsEmpty of a NUL and two more is false", [] { return CString(whole(L"\0bc")).IsEmpty(); }, 0);
    numberRow("IsEmpty of a new string is true", [] { return CString().IsEmpty(); }, 1);
    numberRow("IsEmpty of text is false", [] { return CString(L"a").IsEmpty(); }, 0);
    numberRow("IsEmpty after Empty is true", [] { CString s(L"a"); s.Empty(); return s.IsEmpty(); }, 1);
    numberRow("GetAt reads one character", [] { return CString(L"abc").GetAt(2); }, L'c');
    static const CString withZero(whole(L"a\0c"));
    numberRow("GetAt reads behind a NUL", [] { return withZero.GetAt(2); }, L'c');
    numberRow("[] reads one character", [] { CString s(L"abc"); return s[1]; }, L'b');
    numberRow("[] of a const string reads one character", [] { const CString s(L"abc"); return s[1]; }, L'b');
    numberRow("[] of a const string at its end is the NUL", [] { const CString s(L"abc"); return s[3]; }, 0);
    numberRow("the base's find stays", [] { return qint64(CString(L"abcb").find(L"b", 2)); }, 3);
    numberRow("the base's compare stays", [] { return CString(L"xabc").compare(1, 3, L"abc"); }, 0);
    numberRow("the base's size counts every element",
              [] { return qint64(CString(whole(L"a\0b")).size()); }, 3);
    numberRow("the text pointer is c_str()",
              [] { const CString s(L"abc"); return static_cast<const wchar_t *>(s) == s.c_str(); }, 1);
    numberRow("serves where const wchar_t* is asked for",
              [] { return qint64(lengthOfPointer(CString(L"abcd"))); }, 4);

    numberRow("Find: the first of two", [] { return CString(L"abcb").Find(L'b'); }, 1);
    numberRow("Find: an absent character is -1", [] { return CString(L"abc").Find(L'x'); }, -1);
    numberRow("Find: in an empty string is -1", [] { return CString().Find(L'x'); }, -1);
    numberRow("Find: a character behind a NUL", [] { return CString(whole(L"a\0b")).Find(L'b'); }, 2);
    numberRow("Find: the NUL inside", [] { return CString(whole(L"a\0b")).Find(L'\0'); }, 1);
    numberRow("Find: the terminator is not text", [] { return CString(L"abc").Find(L'\0'); }, -1);
    numberRow("Find: the first of two texts", [] { return CString(L"xabyab").Find(L"ab"); }, 1);
    numberRow("Find: absent text is -1", [] { return CString(L"abc").Find(L"ac"); }, -1);
    numberRow("Find: longer than the string is -1", [] { return CString(L"abc").Find(L"abcd"); }, -1);
    numberRow("Find: the empty text is at 0", [] { return CString(L"abc").Find(L""); }, 0);
    numberRow("Find: null text is the empty text", [] { return CString(L"abc").Find(noText); }, 0);
    numberRow("Find: null text in an empty string is at 0", [] { return CString().Find(noText); }, 0);
    numberRow("Find: text behind a NUL", [] { return CString(whole(L"a\0bc")).Find(L"bc"); }, 2);
    numberRow("ReverseFind: the last of two", [] { return CString(L"abcb").ReverseFind(L'b'); }, 3);
    numberRow("ReverseFind: at the start", [] { return CString(L"abc").ReverseFind(L'a'); }, 0);
    numberRow("ReverseFind: an absent character is -1", [] { return CString(L"abc").ReverseFind(L'x'); }, -1);
    numberRow("ReverseFind: in an empty string is -1", [] { return CString().ReverseFind(L'x'); }, -1);
    numberRow("ReverseFind: behind a NUL", [] { return CString(whole(L"b\0b")).ReverseFind(L'b'); }, 2);

    numberRow("Compare: equal is 0", [] { return CString(L"abc").Compare(L"abc"); }, 0);
    numberRow("Compare: less is negative", [] { return sign(CString(L"abc").Compare(L"abd")); }, -1);
    numberRow("Compare: greater is positive", [] { return sign(CString(L"abd").Compare(L"abc")); }, 1);
    numberRow("Compare: a prefix is less", [] { return sign(CString(L"ab").Compare(L"abc")); }, -1);
    numberRow("Compare minds the case: B before a", [] { return sign(CString(L"B").Compare(L"a")); }, -1);
    numberRow("Compare is ordinal: z before \u00e4",
              [] { return sign(CString(L"z").Compare(L"\u00e4")); }, -1);
    numberRow("Compare goes on behind a NUL", [] { return sign(CString(whole(L"a\0b")).Compare(L"a")); }, 1);
    numberRow("Compare: null text is the empty text", [] { return CString().Compare(noText); }, 0);
    numberRow("Compare: text is more than null text", [] { return sign(CString(L"a").Compare(noText)); }, 1);

    numberRow("CompareNoCase of ABC and abc is 0", [] { return CString(L"ABC").CompareNoCase(L"abc"); }, 0);
    numberRow("CompareNoCase of abc and ABC is 0", [] { return CString(L"abc").CompareNoCase(L"ABC"); }, 0);
    numberRow("CompareNoCase: ABC before abd",
              [] { return sign(CString(L"ABC").CompareNoCase(L"abd")); }, -1);
    numberRow("CompareNoCase: ABD behind abc", [] { return sign(CString(L"ABD").CompareNoCase(L"abc")); }, 1);
    numberRow("CompareNoCase: a prefix is less",
              [] { return sign(CString(L"AB").CompareNoCase(L"abc")); }, -1);
    numberRow("CompareNoCase: null text is the empty text",
              [] { return CString().CompareNoCase(noText); }, 0);
    numberRow("CompareNoCase: text is more than null text",
              [] { return sign(CString(L"a").CompareNoCase(noText)); }, 1);
    numberRow("CompareNoCase knows ASCII only, whatever the global locale", [] {
        GlobalLocale unicode(unicodeLocale());
        return CString(L"\u00c4").CompareNoCase(L"\u00e4");
    }, 0xc4 - 0xe4);
    numberRow("MakeLower and CompareNoCase disagree in C.UTF-8", [] {
        GlobalLocale unicode(unicodeLocale());
        const CString upper(L"\u00c4");
        return CString(upper).MakeLower().Compare(L"\u00e4") == 0 && upper.CompareNoCase(L"\u00e4") != 0;
    }, 1);

    numberRow("ssicmp gives the difference of the lowered characters",
              [] { return ssicmp(L"ABC", L"abf"); }, -3);
    numberRow("ssicmp lowers: Z is behind the underscore", [] { return ssicmp(L"Z", L"_"); }, 'z' - '_');
    numberRow("ssicmp at the end of the first text", [] { return ssicmp(L"ab", L"abC"); }, -'c');
    numberRow("ssicmp at the end of the second text", [] { return ssicmp(L"abC", L"ab"); }, 'c');
    numberRow("ssicmp of two empty texts is 0", [] { return ssicmp(L"", L""); }, 0);
    numberRow("ssicmp stops at the first difference", [] { return ssicmp(L"axb", L"ayA"); }, -1);
    numberRow("ssicmp: both null are equal", [] { return ssicmp(noText, noText); }, 0);
    numberRow("ssicmp: first null is the empty text", [] { return ssicmp(noText, L"A"); }, -'a');
    numberRow("ssicmp: second null is the empty text", [] { return ssicmp(L"A", noText); }, 'a');
    numberRow("ssicmp never asks the global locale", [] {
        GlobalLocale odd(oddLocale());
        return ssicmp(L"q!", L"Q!");
    }, 0);

    numberRow("sstoupper of the classic locale",
              [] { return sstoupper(L'q', std::locale::classic()); }, L'Q');
    numberRow("sstolower of the classic locale",
              [] { return sstolower(L'Q', std::locale::classic()); }, L'q');
    numberRow("sstoupper asks the locale it is given", [] { return sstoupper(L'q', oddLocale()); }, L'1');
    numberRow("sstolower asks the locale it is given", [] { return sstolower(L'Q', oddLocale()); }, L'2');
}

void tst_WideString::number()
{
    QFETCH(NumberCall, call);
    QTEST(call(), "expected");
}

void tst_WideString::addingOwnTextDoublesAtEveryLength()
{
    for (size_t length = 0; length <= 300; ++length) {
        std::wstring text;
        for (size_t i = 0; i < length; ++i)
            text += wchar_t(L'a' + i % 26);
        CString exact(text);
        exact.shrink_to_fit();
        exact += exact.c_str();
        QCOMPARE(shown(exact), shown(text + text));
        CString roomy(text);
        roomy.reserve(1000);
        roomy += roomy.c_str();
        QCOMPARE(shown(roomy), shown(text + text));
        // One short of room, where reallocating begins.
        CString tight(text);
        tight.reserve(2 * length);
        tight += tight.c_str();
        QCOMPARE(shown(tight), shown(text + text));
    }
}

void tst_WideString::assigningOwnTailAtEveryOffset()
{
    const std::wstring text(L"the quick brown fox jumps over the lazy dog");
    for (size_t offset = 0; offset <= text.size(); ++offset) {
        CString s(text);
        s = s.c_str() + offset;
        QCOMPARE(shown(s), shown(text.substr(offset)));
    }
}

void tst_WideString::badIndexThrows_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("the end of three: 3") << 3;
    QTest::newRow("far behind: 1000") << 1000;
    QTest::newRow("INT_MAX") << INT_MAX;
    QTest::newRow("-1") << -1;
    QTest::newRow("INT_MIN") << INT_MIN;
}

void tst_WideString::badIndexThrows()
{
    QFETCH(int, index);
    CString s(L"abc");
    QVERIFY_EXCEPTION_THROWN(s.GetAt(index), std::out_of_range);
    QVERIFY_EXCEPTION_THROWN(s.SetAt(index, L'x'), std::out_of_range);
    QCOMPARE(shown(s), shown(L"abc"));
}

void tst_WideString::returnsItself_data()
{
    QTest::addColumn<NumberCall>("call");
    const auto row = [](const char *promise, NumberCall call) { QTest::newRow(promise) << std::move(call); };
    row("= string", [] { CString s; const CString a(L"a"); return &(s = a) == &s; });
    row("= wide text", [] { CString s; return &(s = L"a") == &s; });
    row("= narrow text", [] { CString s; return &(s = "a") == &s; });
    row("+= string", [] { CString s; const CString a(L"a"); return &(s += a) == &s; });
    row("+= wide text", [] { CString s; return &(s += L"a") == &s; });
    row("+= character", [] { CString s; return &(s += L'a') == &s; });
    row("TrimLeft", [] { CString s; return &s.TrimLeft() == &s; });
    row("TrimRight", [] { CString s; return &s.TrimRight() == &s; });
    row("MakeUpper", [] { CString s; return &s.MakeUpper() == &s; });
    row("MakeLower", [] { CString s; return &s.MakeLower() == &s; });
}

void tst_WideString::returnsItself()
{
    QFETCH(NumberCall, call);
    QCOMPARE(call(), qint64(1));
}

void tst_WideString::buffers()
{
    // GetBuffer(10), two letters and a NUL, ReleaseBuffer(-1): the two letters.
    CString s;
    wchar_t *buffer = s.GetBuffer(10);
    QCOMPARE(int(s.size()), 10);
    for (int i = 0; i < 10; ++i)
        QCOMPARE(int(buffer[i]), 0);
    buffer[0] = L'x';
    buffer[1] = L'y';
    buffer[2] = L'\0';
    buffer[3] = L'z';
    s.ReleaseBuffer(-1);
    QCOMPARE(shown(s), shown(L"xy"));

    // ReleaseBuffer(5) instead: exactly five elements.
    buffer = s.GetBuffer(10);
    buffer[2] = L'\0';
    buffer[3] = L'z';
    s.ReleaseBuffer(5);
    QCOMPARE(shown(s), shown(whole(L"xy\0z\0")));

    // Growing by ReleaseBuffer adds zeros; 0 empties.
    s.ReleaseBuffer(7);
    QCOMPARE(shown(s), shown(whole(L"xy\0z\0\0\0")));
    s.ReleaseBuffer(0);
    QCOMPARE(shown(s), QString());

    // A buffer request keeps the text and never shrinks.
    CString text(L"abcdef");
    QCOMPARE(text.GetBuffer(3), text.data());
    QCOMPARE(shown(text), shown(L"abcdef"));
    QCOMPARE(text.GetBuf(6), text.data());
    QCOMPARE(shown(text), shown(L"abcdef"));
    QCOMPARE(text.GetBuf(0), text.data());
    QCOMPARE(text.GetBuf(-1), text.data());
    QCOMPARE(shown(text), shown(L"abcdef"));
    text.GetBuf(8)[6] = L'g';
    QCOMPARE(shown(text), shown(whole(L"abcdefg\0")));
    text.RelBuf(-1);
    QCOMPARE(shown(text), shown(L"abcdefg"));
    text.RelBuf(2);
    QCOMPARE(shown(text), shown(L"ab"));
    text.RelBuf(-5);
    QCOMPARE(shown(text), shown(L"ab"));

    // Of an empty string, too, there is a pointer.
    CString empty;
    QVERIFY(empty.GetBuffer(0) != nullptr);
    QCOMPARE(int(empty.GetBuffer(0)[0]), 0);
}

void tst_WideString::functionObjects()
{
    QVERIFY(NotSpace<wchar_t>(std::locale::classic())(L'a'));
    QVERIFY(NotSpace<wchar_t>(std::locale::classic())(L'_'));
    QVERIFY(!NotSpace<wchar_t>(std::locale::classic())(L' '));
    QVERIFY(!NotSpace<wchar_t>(std::locale::classic())(L'\n'));
    QVERIFY(!NotSpace<wchar_t>(oddLocale())(L'_'));
    QVERIFY(NotSpace<wchar_t>(oddLocale())(L' '));
    QCOMPARE(SSToUpper<wchar_t>()(L'q', std::locale::classic()), L'Q');
    QCOMPARE(SSToUpper<wchar_t>()(L'q', oddLocale()), L'1');
    QCOMPARE(SSToLower<wchar_t>()(L'Q', std::locale::classic()), L'q');
    QCOMPARE(SSToLower<wchar_t>()(L'Q', oddLocale()), L'2');
}

KX_TEST_MAIN(tst_WideString)

#include "tst_wide_string.moc"
