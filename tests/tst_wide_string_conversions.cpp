// SPDX-License-Identifier: MIT
#include "support/KxTestCase.h"
#include "support/KxTextRows.h"

#include "KxAfxGlobal.h"
#include "KxStdStr.h"
#include "KxWinResource.h"

#include <cstdarg>
#include <cwchar>
#include <locale>
#include <string>
#include <vector>

namespace {

/// Notes what it is asked for; widens a byte to that character of the Latin Extended-A block.
class NotingConversion : public std::codecvt<wchar_t, char, std::mbstate_t>
{
public:
    static inline qint64 sourceLength = -1;
    static inline qint64 targetLength = -1;
    static inline bool stateIsInitial = false;

protected:
    result do_in(state_type &state, const char *from, const char *fromEnd, const char *&fromNext,
                 wchar_t *to, wchar_t *toEnd, wchar_t *&toNext) const override
    {
        sourceLength = fromEnd - from;
        targetLength = toEnd - to;
        stateIsInitial = std::mbsinit(&state) != 0;
        while (from != fromEnd && to != toEnd)
            *to++ = wchar_t(0x100 + static_cast<unsigned char>(*from++));
        fromNext = from;
        toNext = to;
        return from == fromEnd ? ok : partial;
    }
};

std::locale notingLocale()
{
    return std::locale(std::locale::classic(), new NotingConversion);
}

/// What vswprintf leaves, up to its first NUL, in a zero-filled buffer with the allowance of 1024 characters.
std::wstring formatted(const wchar_t *format, ...)
{
    const size_t length = std::wcslen(format) + 1024;
    std::vector<wchar_t> buffer(length, L'\0');
    va_list arguments;
    va_start(arguments, format);
    std::vswprintf(buffer.data(), length - 1, format, arguments);
    va_end(arguments);
    return std::wstring(buffer.data());
}

void formatThroughList(CString &target, const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    target.FormatV(format, arguments);
    va_end(arguments);
}

int printThroughHelper(wchar_t *buffer, size_t count, const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = ssvsprintf(buffer, count, format, arguments);
    va_end(arguments);
    return result;
}

} // namespace

class tst_WideStringConversions : public KxTestCase
{
    Q_OBJECT

private slots:
    void narrow_data();
    void narrow();
    void narrowConversionOfTheGlobalLocale();
    void stdCodeCvt_data();
    void stdCodeCvt();
    void stdCodeCvtHandsOverInitialState();
    void ssvsprintfIsVswprintf_data();
    void ssvsprintfIsVswprintf();
    void tkxstrcpy_data();
    void tkxstrcpy();
    void formatText_data();
    void formatText();
    void formatLimit_data();
    void formatLimit();
    void formatThatFails_data();
    void formatThatFails();
    void loadString_data();
    void loadString();
    void formatOfAStringResource();
    void errorEat_data();
    void errorEat();
};

void tst_WideStringConversions::narrow_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("unicode");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *promise, const QByteArray &bytes, bool unicode,
                        const std::wstring &expected) {
        QTest::newRow(promise) << bytes << unicode << shown(expected);
    };
    row("ASCII in C", "abc", false, L"abc");
    row("ASCII in C.UTF-8", "abc", true, L"abc");
    row("one character", "a", false, L"a");
    row("5000 characters are kept whole", QByteArray(5000, 'x'), true, std::wstring(5000, L'x'));
    row("two-byte characters in C.UTF-8", "gr\xc3\xb6\xc3\x9f" "e", true, L"gr\u00f6\u00dfe");
    row("a four-byte character in C.UTF-8 is one element", "\xf0\x9f\x98\x80!", true, L"\U0001F600!");
    row("ends before a byte that is no UTF-8", "ab\xff" "cd", true, L"ab");
    row("ends before an unfinished character", "ab\xc3", true, L"ab");
    row("starts with a byte that is no UTF-8: empty", "\xff" "cd", true, L"");
    row("ends at its NUL", QByteArray("ab\0cd", 5), true, L"ab");

    // What the C locale makes of other bytes is its own conversion's business; ours ends where it ended.
    const char bytes[] = "ab\xc3\xb6";
    wchar_t target[5] = {};
    const char *read = nullptr;
    wchar_t *written = nullptr;
    std::mbstate_t state {};
    std::use_facet<std::codecvt<wchar_t, char, std::mbstate_t>>(std::locale::classic())
        .in(state, bytes, bytes + 4, read, target, target + 5, written);
    row("other bytes in C: as far as its conversion comes", bytes, false, std::wstring(target, written));
}

void tst_WideStringConversions::narrow()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, unicode);
    QFETCH(QString, expected);
    GlobalLocale locale(unicode ? unicodeLocale() : std::locale::classic());
    QCOMPARE(shown(CString(bytes.constData())), expected);
    CString assigned(L"an old text");
    assigned = bytes.constData();
    QCOMPARE(shown(assigned), expected);
}

void tst_WideStringConversions::narrowConversionOfTheGlobalLocale()
{
    GlobalLocale noting(notingLocale());
    QCOMPARE(shown(CString("abc")), shown(L"\u0161\u0162\u0163"));
    QCOMPARE(NotingConversion::sourceLength, qint64(3));
    QCOMPARE(NotingConversion::targetLength, qint64(4));
    QVERIFY(NotingConversion::stateIsInitial);
}

void tst_WideStringConversions::stdCodeCvt_data()
{
    QTest::addColumn<int>("targetLength");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<int>("sourceLength");
    // The target and what lies behind it, '#' where nothing was written.
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *promise, int targetLength, const QByteArray &source, int sourceLength,
                        const std::wstring &expected) {
        QTest::newRow(promise) << targetLength << source << sourceLength << shown(expected);
    };
    row("room to spare: a NUL behind the last character", 6, "abc", 3, whole(L"abc\0####"));
    row("one element more than text: the NUL is the last element", 4, "abc", 3, whole(L"abc\0####"));
    row("filled: the NUL goes into the last element", 3, "abc", 3, whole(L"ab\0#####"));
    row("too short: the NUL goes into the last element", 3, "abcdef", 6, whole(L"ab\0#####"));
    row("one element: only the NUL", 1, "abc", 3, whole(L"\0#######"));
    row("no element: nothing is written", 0, "abc", 3, L"########");
    row("no source: the first element is 0", 4, "abc", 0, whole(L"\0#######"));
    row("negative source length: the first element is 0", 4, "abc", -1, whole(L"\0#######"));
    row("a part of the source", 6, "abc", 2, whole(L"ab\0#####"));
    row("a NUL in the source is converted", 6, QByteArray("a\0b", 3), 3, whole(L"a\0b\0####"));
    row("several bytes for one character", 6, "a\xc3\xb6", 3, whole(L"a\u00f6\0#####"));
    row("ends where the bytes are wrong", 6, "a\xff" "b", 3, whole(L"a\0######"));
    row("ends where a character is unfinished", 6, "ab\xc3", 3, whole(L"ab\0#####"));
    row("wrong from the start: empty", 6, "\xff", 1, whole(L"\0#######"));
}

void tst_WideStringConversions::stdCodeCvt()
{
    QFETCH(int, targetLength);
    QFETCH(QByteArray, source);
    QFETCH(int, sourceLength);
    QFETCH(QString, expected);
    wchar_t target[8];
    std::fill(std::begin(target), std::end(target), L'#');
    // The global locale stays C: the locale that is given converts.
    QVERIFY(std::locale() == std::locale::classic());
    QCOMPARE(StdCodeCvt(target, targetLength, source.constData(), sourceLength, unicodeLocale()), &target[0]);
    // A conversion may have scribbled between its end and the end of the target; text and surroundings count.
    const int behind = qMax(targetLength, 0);
    const int textEnd = expected.indexOf(QChar(u'#'));
    QCOMPARE(shown(std::wstring(target, size_t(textEnd))), expected.left(textEnd));
    QCOMPARE(shown(std::wstring(target + behind, size_t(8 - behind))), QString(8 - behind, QChar(u'#')));
}

void tst_WideStringConversions::stdCodeCvtHandsOverInitialState()
{
    NotingConversion::stateIsInitial = false;
    wchar_t target[8] = {};
    StdCodeCvt(target, 8, "ab", 2, notingLocale());
    QVERIFY(NotingConversion::stateIsInitial);
    QCOMPARE(NotingConversion::sourceLength, qint64(2));
    QCOMPARE(shown(target), shown(L"\u0161\u0162"));
    NotingConversion::sourceLength = -1;
    StdCodeCvt(target, 8, "ab", 0, notingLocale());
    QCOMPARE(NotingConversion::sourceLength, qint64(-1));
    QCOMPARE(shown(target), QString());
}

void tst_WideStringConversions::ssvsprintfIsVswprintf_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("room to spare: 6 characters in 16") << 16;
    QTest::newRow("exactly room: 6 characters in 7") << 7;
    QTest::newRow("one too many: 6 characters in 6") << 6;
    QTest::newRow("no room at all") << 0;
}

void tst_WideStringConversions::ssvsprintfIsVswprintf()
{
    QFETCH(int, count);
    wchar_t expected[16];
    wchar_t actual[16];
    std::fill(std::begin(expected), std::end(expected), L'#');
    std::fill(std::begin(actual), std::end(actual), L'#');
    const int expectedResult = std::swprintf(expected, size_t(count), L"%ls%d", L"abc", 123);
    QCOMPARE(printThroughHelper(actual, size_t(count), L"%ls%d", L"abc", 123), expectedResult);
    QCOMPARE(shown(std::wstring(actual, 16)), shown(std::wstring(expected, 16)));
    QCOMPARE(expectedResult, count > 6 ? 6 : -1);
}

void tst_WideStringConversions::tkxstrcpy_data()
{
    QTest::addColumn<bool>("hasTarget");
    QTest::addColumn<bool>("hasSource");
    QTest::addColumn<QString>("expected");
    QTest::newRow("copies and terminates, nothing behind") << true << true << shown(whole(L"abc\0####"));
    QTest::newRow("null source: the target is untouched") << true << false << shown(L"########");
    QTest::newRow("null target: null") << false << true << shown(L"########");
    QTest::newRow("both null: null") << false << false << shown(L"########");
}

void tst_WideStringConversions::tkxstrcpy()
{
    QFETCH(bool, hasTarget);
    QFETCH(bool, hasSource);
    wchar_t buffer[8];
    std::fill(std::begin(buffer), std::end(buffer), L'#');
    wchar_t *target = hasTarget ? buffer : nullptr;
    QCOMPARE(_tkxstrcpy(target, hasSource ? L"abc" : nullptr), target);
    QTEST(shown(std::wstring(buffer, 8)), "expected");
}

void tst_WideStringConversions::formatText_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");
    textRow("Format of numbers and text",
            [] { CString s; s.Format(L"%d|%ls|%.2f|%x", -7, L"abc", 1.5, 255); return s; },
            L"-7|abc|1.50|ff");
    textRow("Format: %s is narrow text, as vswprintf has it",
            [] { CString s; s.Format(L"<%s>", "abc"); return s; }, L"<abc>");
    textRow("Format replaces the old text",
            [] { CString s(L"a longer old text"); s.Format(L"%d", 1); return s; },
            L"1");
    textRow("Format without arguments", [] { CString s; s.Format(L"100%%"); return s; }, L"100%");
    textRow("Format of an empty format is empty",
            [] { CString s(L"old"); s.Format(L"%ls", L""); return s; }, L"");
    textRow("Format of a null format is empty", [] { CString s(L"old"); s.Format(noText); return s; }, L"");
    textRow("Format with its own text as arguments",
            [] { CString s(L"ab"); s.Format(L"%ls-%ls", s.c_str(), s.c_str() + 1); return s; }, L"ab-b");
    textRow("Format with its own text as the format",
            [] { CString s(L"x%dy"); s.Format(s, 5); return s; }, L"x5y");
    textRow("Format is cut at the first NUL it prints",
            [] { CString s; s.Format(L"a%lcb", static_cast<wint_t>(0)); return s; }, L"a");
    textRow("Format of a format longer than the allowance",
            [] { CString s; s.Format(std::wstring(5000, L'x').c_str()); return s; },
            std::wstring(5000, L'x'));
    textRow("FormatV", [] { CString s(L"old"); formatThroughList(s, L"%d-%ls", 3, L"x"); return s; }, L"3-x");
    textRow("FormatV of a null format is empty",
            [] { CString s(L"old"); formatThroughList(s, noText, 3); return s; }, L"");
}

void tst_WideStringConversions::formatText()
{
    QFETCH(TextCall, call);
    QTEST(shown(call()), "expected");
}

void tst_WideStringConversions::formatLimit_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<int>("argumentLength");
    QTest::addColumn<bool>("fits");
    // The format is the prefix and "%ls": the limit is its length and 1022 characters more.
    QTest::newRow("format of 3: 1025 characters fit") << QString() << 1025 << true;
    QTest::newRow("format of 3: 1026 characters do not fit") << QString() << 1026 << false;
    QTest::newRow("format of 3: 1027 characters do not fit") << QString() << 1027 << false;
    QTest::newRow("format of 3: 100000 characters do not fit") << QString() << 100000 << false;
    QTest::newRow("format of 13: 1035 characters fit") << QString(10, u'p') << 1025 << true;
    QTest::newRow("format of 13: 1036 characters do not fit") << QString(10, u'p') << 1026 << false;
    QTest::newRow("format of 3003: 4025 characters fit") << QString(3000, u'p') << 1025 << true;
    QTest::newRow("format of 3003: 4026 characters do not fit") << QString(3000, u'p') << 1026 << false;
}

void tst_WideStringConversions::formatLimit()
{
    QFETCH(QString, prefix);
    QFETCH(int, argumentLength);
    QFETCH(bool, fits);
    const std::wstring format = prefix.toStdWString() + L"%ls";
    const std::wstring argument(size_t(argumentLength), L'x');
    const std::wstring complete = prefix.toStdWString() + argument;
    const std::wstring expected = formatted(format.c_str(), argument.c_str());
    QCOMPARE(expected == complete, fits);

    CString s(L"an old text");
    s.Format(format.c_str(), argument.c_str());
    QCOMPARE(shown(s), shown(expected));
    CString listed(L"an old text");
    formatThroughList(listed, format.c_str(), argument.c_str());
    QCOMPARE(shown(listed), shown(expected));
    // Its own text, however long, is no different.
    CString own(argument);
    own.Format(format.c_str(), own.c_str());
    QCOMPARE(shown(own), shown(expected));
}

void tst_WideStringConversions::formatThatFails_data()
{
    QTest::addColumn<QString>("format");
    QTest::newRow("bytes that are no text, alone") << QStringLiteral("%s");
    QTest::newRow("bytes that are no text, behind other output") << QStringLiteral("abc%s");
    QTest::newRow("bytes that are no text, before other output") << QStringLiteral("%sabc");
    QTest::newRow("bytes that are no text, behind 600 characters") << QString(600, u'x') + "%s";
}

void tst_WideStringConversions::formatThatFails()
{
    QFETCH(QString, format);
    GlobalLocale unicode(unicodeLocale());
    const std::wstring wide = format.toStdWString();
    CString s(L"an old text");
    s.Format(wide.c_str(), "ok\xff\xfe");
    QCOMPARE(shown(s), shown(formatted(wide.c_str(), "ok\xff\xfe")));
}

void tst_WideStringConversions::loadString_data()
{
    QTest::addColumn<int>("current"); // the module of AfxSetResourceHandle(), 0 for null
    QTest::addColumn<int>("given"); // the module that is given, -1 for the form without
    QTest::addColumn<uint>("id");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("found");
    const auto row = [](const char *promise, int current, int given, uint id, const QString &expected,
                        bool found) {
        QTest::newRow(promise) << current << given << id << expected << found;
    };
    row("by identifier: of the null module", 0, -1, 1, "null's 1", true);
    row("by identifier: of the current resource handle", 16, -1, 1, "16's 1", true);
    row("null module: of the null module", 0, 0, 1, "null's 1", true);
    row("null module: of the current resource handle", 16, 0, 1, "16's 1", true);
    row("a module: its own, whatever is current", 16, 32, 1, "32's 1", true);
    row("a module: its own, with none current", 0, 32, 1, "32's 1", true);
    row("by identifier: missing is empty", 0, -1, 99, "", false);
    row("a module: missing there, though current has it", 16, 32, 2, "", false);
    row("by identifier: missing there, though null has it", 32, -1, 5, "", false);
    row("an empty string is no count above 0", 0, -1, 3, "", false);
    row("1023 characters come whole", 0, -1, 4, QString(1023, u'x'), true);
    row("1024 characters lose the last", 0, -1, 5, QString(1023, u'y'), true);
    row("5000 characters lose the rest", 0, -1, 6, QString(1023, u'z'), true);
}

void tst_WideStringConversions::loadString()
{
    QFETCH(int, current);
    QFETCH(int, given);
    QFETCH(uint, id);
    QFETCH(QString, expected);
    QFETCH(bool, found);
    const auto module = [](int number) { return reinterpret_cast<HINSTANCE>(quintptr(number)); };
    KxRegisterStrings(nullptr, {{1, L"null's 1"}, {3, L""}});
    KxRegisterString(nullptr, 4, std::wstring(1023, L'x').c_str());
    KxRegisterString(nullptr, 5, std::wstring(1024, L'y').c_str());
    KxRegisterString(nullptr, 6, std::wstring(5000, L'z').c_str());
    KxRegisterStrings(module(16), {{1, L"16's 1"}, {2, L"16's 2"}});
    KxRegisterStrings(module(32), {{1, L"32's 1"}});
    AfxSetResourceHandle(module(current));
    // What the string held before never shows, be it short or longer than the buffer.
    for (const std::wstring &old : {std::wstring(), std::wstring(L"old"), std::wstring(3000, L'o')}) {
        CString s(old);
        QCOMPARE(given < 0 ? s.LoadStringW(id) : s.LoadStringW(module(given), id), found);
        QCOMPARE(shown(s), expected);
    }
    AfxSetResourceHandle(nullptr);
    for (int number : {0, 16, 32})
        KxUnregisterStrings(module(number));
}

void tst_WideStringConversions::formatOfAStringResource()
{
    KxRegisterString(nullptr, 7, L"%d of %ls");
    CString s(L"old");
    s.Format(7u, 3, L"x");
    QCOMPARE(shown(s), QStringLiteral("3 of x"));
    s.Format(8u, 3, L"x"); // there is none
    QCOMPARE(shown(s), QString());
    KxUnregisterStrings(nullptr);
}

void tst_WideStringConversions::errorEat_data()
{
    QTest::addColumn<bool>("upper");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("eaten");
    QTest::addColumn<QString>("expected");
    QTest::newRow("strMakeUpper: upper case, nothing eaten") << true << "aBc" << false << "ABC";
    QTest::newRow("strMakeLower: lower case, nothing eaten") << false << "aBc" << false << "abc";
    QTest::newRow("strMakeUpper: of the global locale") << true << "aq" << false << "A1";
    QTest::newRow("strMakeLower: of the global locale") << false << "AQ" << false << "a2";
    QTest::newRow("strMakeUpper eats an error and restores the text") << true << "ab!c" << true << "ab!c";
    QTest::newRow("strMakeLower eats an error and restores the text") << false << "AB!C" << true << "AB!C";
}

void tst_WideStringConversions::errorEat()
{
    QFETCH(bool, upper);
    QFETCH(QString, text);
    QFETCH(bool, eaten);
    GlobalLocale odd(oddLocale());
    CString s(text.toStdWString());
    QCOMPARE(upper ? KxErrorEat::strMakeUpper(s) : KxErrorEat::strMakeLower(s), eaten);
    QTEST(shown(s), "expected");
}

KX_TEST_MAIN(tst_WideStringConversions)

#include "tst_wide_string_conversions.moc"
