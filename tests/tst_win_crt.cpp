// SPDX-License-Identifier: MIT
#include "KxTestCase.h"

#include "KxWinTypes.h"

#include <cerrno>
#include <clocale>
#include <cstdarg>
#include <cstdlib>
#include <functional>
#include <string>

#include <fcntl.h>

namespace {

const wchar_t *const noText = nullptr;
const char *const noNarrowText = nullptr;

/// A buffer of eight characters in which everything behind the text that it begins with is '#'.
struct Buffer {
    wchar_t text[8];

    explicit Buffer(const wchar_t *begin = L"")
    {
        std::wmemset(text, L'#', 8);
        std::wmemcpy(text, begin, std::wcslen(begin) + 1);
    }

    /// All eight characters, zeros shown as '.'.
    QString shown() const
    {
        QString result = QString::fromWCharArray(text, 8);
        return result.replace(QChar(0), QLatin1Char('.'));
    }
};

using BufferCall = std::function<int(Buffer &)>;

void bufferColumns()
{
    QTest::addColumn<BufferCall>("call");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("buffer");
}

void bufferRow(const char *name, const BufferCall &call, int value, int error, const char *buffer)
{
    QTest::newRow(name) << call << value << error << QString::fromLatin1(buffer);
}

#define ROW(name, call, value, error, buffer) \
    bufferRow(name, [](Buffer &b) -> int { Q_UNUSED(b); return call; }, value, error, buffer)

int formatArguments(wchar_t *buffer, size_t size, const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = vswprintf_s(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

int formatArgumentsOfCount(wchar_t *buffer, size_t count, const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsntprintf(buffer, count, format, arguments);
    va_end(arguments);
    return length;
}

} // namespace

Q_DECLARE_METATYPE(BufferCall)

class tst_WinCrt : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();

    void compareNoCase_data();
    void compareNoCase();
    void compareNoCaseOfNull();
    void duplicate();

    void copy_data();
    void copy() { callWithBuffer(); }
    void copySomeCharacters_data();
    void copySomeCharacters() { callWithBuffer(); }
    void append_data();
    void append() { callWithBuffer(); }
    void formatAll_data();
    void formatAll() { callWithBuffer(); }
    void formatCount_data();
    void formatCount() { callWithBuffer(); }
    void formatCountWithinSize_data();
    void formatCountWithinSize() { callWithBuffer(); }
    void formatLength();

    void scanNumbers();
    void scanTexts();
    void scanNarrowTexts();
    void scanCharacters();
    void scanStopsWhereTheBufferIsTooSmall();
    void scanStopsAtTheFirstMismatch();
    void scanSkipsAndCounts();
    void scanOfNothing();

    void openFile_data();
    void openFile();
    void openFileFails_data();
    void openFileFails();
    void openFileModes();
    void openFileWithResult();

private:
    static void callWithBuffer();
};

void tst_WinCrt::initTestCase()
{
    QVERIFY(std::setlocale(LC_CTYPE, "C.UTF-8"));
}

void tst_WinCrt::callWithBuffer()
{
    QFETCH(BufferCall, call);
    QFETCH(int, value);
    QFETCH(int, error);
    QFETCH(QString, buffer);

    Buffer target(L"old");
    errno = 0;
    const int answer = call(target);
    const int left = errno;
    QCOMPARE(answer, value);
    QCOMPARE(left, error);
    QCOMPARE(target.shown(), buffer);
}

// ---- comparing ------------------------------------------------------------------------------------------

void tst_WinCrt::compareNoCase_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("sign");

    const auto row = [](const char *name, const char *first, const char *second, int count, int sign) {
        QTest::newRow(name) << QString::fromUtf8(first) << QString::fromUtf8(second) << count << sign;
    };
    row("equal", "abc", "abc", 10, 0);
    row("equal but for case", "aBc", "AbC", 10, 0);
    row("both empty", "", "", 10, 0);
    row("empty comes first", "", "a", 10, -1);
    row("empty comes first, the other way", "a", "", 10, 1);
    row("prefix comes first", "ab", "ABC", 10, -1);
    row("small before greater", "abc", "ABD", 10, -1);
    row("greater after small", "B", "a", 10, 1);
    row("underscore comes before letters, which count as small ones", "_", "A", 10, -1);
    row("equal within the count", "abX", "ABY", 2, 0);
    row("different at the count", "abX", "ABY", 3, -1);
    row("a count of 0 is equal", "x", "y", 0, 0);
}

void tst_WinCrt::compareNoCase()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(int, count);
    QFETCH(int, sign);
    const auto signOf = [](int number) { return (number > 0) - (number < 0); };
    const auto limit = static_cast<size_t>(count);
    const std::wstring wideFirst = first.toStdWString();
    const std::wstring wideSecond = second.toStdWString();
    const QByteArray narrowFirst = first.toLatin1();
    const QByteArray narrowSecond = second.toLatin1();

    QCOMPARE(signOf(_wcsnicmp(wideFirst.c_str(), wideSecond.c_str(), limit)), sign);
    QCOMPARE(signOf(_tcsnicmp(wideFirst.c_str(), wideSecond.c_str(), limit)), sign);
    QCOMPARE(signOf(_strnicmp(narrowFirst, narrowSecond, limit)), sign);
    const bool isWhole = count >= first.size() && count >= second.size();
    if (isWhole) {
        QCOMPARE(signOf(_wcsicmp(wideFirst.c_str(), wideSecond.c_str())), sign);
        QCOMPARE(signOf(_tcsicmp(wideFirst.c_str(), wideSecond.c_str())), sign);
        QCOMPARE(signOf(_stricmp(narrowFirst, narrowSecond)), sign);
    }
    // Letters outside ASCII, as the locale has them.
    QCOMPARE(_wcsicmp(L"\u00C4\u03A9", L"\u00E4\u03C9"), 0);
}

void tst_WinCrt::compareNoCaseOfNull()
{
    const auto isRefused = [](int result) { return result == INT_MAX && errno == EINVAL; };
    QCOMPARE(_NLSCMPERROR, INT_MAX);
    errno = 0;
    QVERIFY(isRefused(_wcsicmp(noText, L"a")));
    errno = 0;
    QVERIFY(isRefused(_wcsicmp(L"a", noText)));
    errno = 0;
    QVERIFY(isRefused(_wcsnicmp(noText, noText, 3)));
    errno = 0;
    QVERIFY(isRefused(_stricmp(noNarrowText, "a")));
    errno = 0;
    QVERIFY(isRefused(_stricmp("a", noNarrowText)));
    errno = 0;
    QVERIFY(isRefused(_strnicmp("a", noNarrowText, 1)));
}

void tst_WinCrt::duplicate()
{
    const std::wstring text(L"a\u20AC\U0001F600");
    wchar_t *copy = _tcsdup(text.c_str());
    QVERIFY(copy && copy != text.c_str());
    QCOMPARE(std::wstring(copy), text);
    std::free(copy);

    copy = _wcsdup(L"");
    QVERIFY(copy);
    QCOMPARE(*copy, L'\0');
    std::free(copy);

    QVERIFY(!_wcsdup(noText));
}

// ---- copying --------------------------------------------------------------------------------------------

void tst_WinCrt::copy_data()
{
    bufferColumns();
    ROW("text", wcscpy_s(b.text, 8, L"new"), 0, 0, "new.####");
    ROW("generic name", _tcscpy_s(b.text, 8, _T("new")), 0, 0, "new.####");
    ROW("empty text", wcscpy_s(b.text, 8, L""), 0, 0, ".ld.####");
    ROW("just fits", wcscpy_s(b.text, 4, L"new"), 0, 0, "new.####");
    ROW("zero does not fit", wcscpy_s(b.text, 3, L"new"), ERANGE, ERANGE, ".ld.####");
    ROW("size 1, text", wcscpy_s(b.text, 1, L"n"), ERANGE, ERANGE, ".ld.####");
    ROW("size 1, empty text", wcscpy_s(b.text, 1, L""), 0, 0, ".ld.####");
    ROW("size 0", wcscpy_s(b.text, 0, L"n"), ERANGE, ERANGE, "old.####");
    ROW("null source", wcscpy_s(b.text, 8, noText), EINVAL, EINVAL, ".ld.####");
    ROW("null target", wcscpy_s(nullptr, 8, L"n"), EINVAL, EINVAL, "old.####");
    ROW("array", wcscpy_s(b.text, L"1234567"), 0, 0, "1234567.");
    ROW("array too small", wcscpy_s(b.text, L"12345678"), ERANGE, ERANGE, ".ld.####");
}

void tst_WinCrt::copySomeCharacters_data()
{
    bufferColumns();
    ROW("fewer than there are", wcsncpy_s(b.text, 8, L"newer", 3), 0, 0, "new.####");
    ROW("generic name", _tcsncpy_s(b.text, 8, L"newer", 3), 0, 0, "new.####");
    ROW("more than there are", wcsncpy_s(b.text, 8, L"new", 7), 0, 0, "new.####");
    ROW("none", wcsncpy_s(b.text, 8, L"new", 0), 0, 0, ".ld.####");
    ROW("just fits", wcsncpy_s(b.text, 4, L"newer", 3), 0, 0, "new.####");
    ROW("zero does not fit", wcsncpy_s(b.text, 3, L"newer", 3), ERANGE, ERANGE, ".ld.####");
    ROW("short text, large count", wcsncpy_s(b.text, 4, L"new", 99), 0, 0, "new.####");
    ROW("long text, large count", wcsncpy_s(b.text, 4, L"newer", 99), ERANGE, ERANGE, ".ld.####");
    ROW("truncated", wcsncpy_s(b.text, 4, L"newer", _TRUNCATE), STRUNCATE, 0, "new.####");
    ROW("truncated to nothing", wcsncpy_s(b.text, 1, L"newer", _TRUNCATE), 80, 0, ".ld.####");
    ROW("_TRUNCATE, fits", wcsncpy_s(b.text, 4, L"new", _TRUNCATE), 0, 0, "new.####");
    ROW("size 0", wcsncpy_s(b.text, 0, L"n", 1), EINVAL, EINVAL, "old.####");
    ROW("size 0, _TRUNCATE", wcsncpy_s(b.text, 0, L"n", _TRUNCATE), EINVAL, EINVAL, "old.####");
    ROW("null source", wcsncpy_s(b.text, 8, noText, 1), EINVAL, EINVAL, ".ld.####");
    ROW("null target", wcsncpy_s(nullptr, 8, L"n", 1), EINVAL, EINVAL, "old.####");
    ROW("array", wcsncpy_s(b.text, L"123456789", _TRUNCATE), STRUNCATE, 0, "1234567.");
    bufferRow("source without a zero", [](Buffer &b) {
        const wchar_t source[] = {L'a', L'b', L'c'};
        return wcsncpy_s(b.text, 8, source, 3);
    }, 0, 0, "abc.####");
}

void tst_WinCrt::append_data()
{
    bufferColumns();
    ROW("text", wcscat_s(b.text, 8, L"er"), 0, 0, "older.##");
    ROW("generic name", _tcscat_s(b.text, 8, L"er"), 0, 0, "older.##");
    ROW("empty text", wcscat_s(b.text, 8, L""), 0, 0, "old.####");
    ROW("just fits", wcscat_s(b.text, 6, L"er"), 0, 0, "older.##");
    ROW("zero does not fit", wcscat_s(b.text, 5, L"er"), ERANGE, ERANGE, ".ld.####");
    ROW("no room at all", wcscat_s(b.text, 4, L"e"), ERANGE, ERANGE, ".ld.####");
    ROW("target without a zero", wcscat_s(b.text, 3, L"e"), EINVAL, EINVAL, "old.####");
    ROW("size 0", wcscat_s(b.text, 0, L"e"), ERANGE, ERANGE, "old.####");
    ROW("null source", wcscat_s(b.text, 8, noText), EINVAL, EINVAL, ".ld.####");
    ROW("null target", wcscat_s(nullptr, 8, L"e"), EINVAL, EINVAL, "old.####");
    ROW("array", wcscat_s(b.text, L"1234"), 0, 0, "old1234.");
    ROW("array too small", wcscat_s(b.text, L"12345"), ERANGE, ERANGE, ".ld.####");
}

// ---- formatting -----------------------------------------------------------------------------------------

void tst_WinCrt::formatAll_data()
{
    bufferColumns();
    ROW("text", swprintf_s(b.text, 8, L"%d-%ls", 42, L"x"), 4, 0, "42-x.###");
    ROW("generic name", _stprintf_s(b.text, 8, _T("%d"), 42), 2, 0, "42..####");
    ROW("empty text", swprintf_s(b.text, 8, L"%ls", L""), 0, 0, ".ld.####");
    ROW("just fits", swprintf_s(b.text, 4, L"%d", 123), 3, 0, "123.####");
    ROW("size 1, empty text", swprintf_s(b.text, 1, L"%ls", L""), 0, 0, ".ld.####");
    ROW("null buffer", swprintf_s(nullptr, 8, L"%d", 1), -1, EINVAL, "old.####");
    ROW("null format", swprintf_s(b.text, 8, noText), -1, EINVAL, ".ld.####");
    ROW("size 0", swprintf_s(b.text, 0, L"%d", 1), -1, EINVAL, "old.####");
    ROW("array", swprintf_s(b.text, L"%07d", 42), 7, 0, "0000042.");
    ROW("argument list", formatArguments(b.text, 8, L"%d", 42), 2, 0, "42..####");
    ROW("narrow text", swprintf_s(b.text, 8, L"%s", "ab"), 2, 0, "ab..####");

    // An old errno is neither taken for the reason of a failure nor changed by a success.
    bufferRow("fits, errno from before", [](Buffer &b) {
        errno = EILSEQ;
        return swprintf_s(b.text, 8, L"%d", 42);
    }, 2, EILSEQ, "42..####");

    // What lies behind the zero is not promised; these look at the part that is.
    const auto tooLong = [](const BufferCall &call) {
        return [call](Buffer &b) {
            const int result = call(b);
            const wchar_t first = b.text[0];
            const wchar_t behindTheSize = b.text[4];
            b = Buffer(L"old");
            b.text[0] = first;
            b.text[4] = behindTheSize;
            return result;
        };
    };
    bufferRow("zero does not fit", tooLong([](Buffer &b) { return swprintf_s(b.text, 4, L"%d", 1234); }),
              -1, ERANGE, ".ld.####");
    bufferRow("zero does not fit, errno from before", tooLong([](Buffer &b) {
        errno = EILSEQ;
        return swprintf_s(b.text, 4, L"%d", 1234);
    }), -1, ERANGE, ".ld.####");
    bufferRow("argument that is no text",
              tooLong([](Buffer &b) { return swprintf_s(b.text, 4, L"%s", "\xFF"); }),
              -1, EILSEQ, ".ld.####");
}

void tst_WinCrt::formatCount_data()
{
    bufferColumns();
    ROW("shorter than the count", _snwprintf(b.text, 4, L"%d", 12), 2, 0, "12..####");
    ROW("generic name", _sntprintf(b.text, 4, _T("%d"), 12), 2, 0, "12..####");
    ROW("as long as the count: no zero", _snwprintf(b.text, 4, L"%d", 1234), 4, 0, "1234####");
    ROW("longer than the count: cut off", _snwprintf(b.text, 4, L"%d", 12345), -1, 0, "1234####");
    ROW("count 0", _snwprintf(b.text, 0, L"%d", 1), -1, 0, "old.####");
    ROW("count 0, empty text", _snwprintf(b.text, 0, L"%ls", L""), 0, 0, "old.####");
    ROW("null format", _snwprintf(b.text, 4, noText), -1, EINVAL, "old.####");
    ROW("null buffer", _snwprintf(nullptr, 4, L"%d", 1), -1, EINVAL, "old.####");
    ROW("argument that is no text", _snwprintf(b.text, 4, L"%s", "\xFF"), -1, EILSEQ, "old.####");
    ROW("argument list", formatArgumentsOfCount(b.text, 4, L"%d", 12345), -1, 0, "1234####");
}

void tst_WinCrt::formatCountWithinSize_data()
{
    bufferColumns();
    ROW("all", _snwprintf_s(b.text, 8, 5, L"%d", 12345), 5, 0, "12345.##");
    ROW("generic name", _sntprintf_s(b.text, 8, 5, _T("%d"), 12), 2, 0, "12..####");
    ROW("cut off by the count", _snwprintf_s(b.text, 8, 3, L"%d", 12345), -1, 0, "123.####");
    ROW("count 0", _snwprintf_s(b.text, 8, 0, L"%d", 1), -1, 0, ".ld.####");
    ROW("_TRUNCATE, fits", _snwprintf_s(b.text, 4, _TRUNCATE, L"%d", 123), 3, 0, "123.####");
    ROW("_TRUNCATE, cut off", _snwprintf_s(b.text, 4, _TRUNCATE, L"%d", 1234), -1, 0, "123.####");
    ROW("count beyond the size, fits", _snwprintf_s(b.text, 4, 9, L"%d", 123), 3, 0, "123.####");
    ROW("null buffer", _snwprintf_s(nullptr, 4, 2, L"%d", 1), -1, EINVAL, "old.####");
    ROW("null buffer, nothing to write", _snwprintf_s(nullptr, 0, 0, L"%d", 1), 0, 0, "old.####");
    ROW("null format", _snwprintf_s(b.text, 8, 2, noText), -1, EINVAL, ".ld.####");
    ROW("size 0", _snwprintf_s(b.text, 0, _TRUNCATE, L"%d", 1), -1, EINVAL, "old.####");
    ROW("argument that is no text", _snwprintf_s(b.text, 8, 3, L"%s", "\xFF"), -1, EILSEQ, ".ld.####");
    ROW("array", _snwprintf_s(b.text, _TRUNCATE, L"%d", 123456789), -1, 0, "1234567.");
    bufferRow("count beyond the size, too long", [](Buffer &b) {
        const int length = _snwprintf_s(b.text, 4, 4, L"%d", 1234);
        std::wmemcpy(b.text + 1, L"ld", 3);
        return length;
    }, -1, ERANGE, ".ld.####");
}

void tst_WinCrt::formatLength()
{
    QCOMPARE(_snwprintf(nullptr, 0, L"%d", 12345), 5);
    const std::wstring longText(5000, L'x');
    QCOMPARE(_snwprintf(nullptr, 0, L"%ls!", longText.c_str()), 5001);

    std::wstring target(5001, L'#');
    QCOMPARE(swprintf_s(&target[0], target.size(), L"%ls", longText.c_str()), 5000);
    QCOMPARE(target, longText + L'\0');
}

// ---- reading --------------------------------------------------------------------------------------------

void tst_WinCrt::scanNumbers()
{
    int first = 0;
    unsigned int second = 0;
    double third = 0;
    long long fourth = 0;
    const wchar_t *text = L" 12, 0x1F : -2.5e2/5000000000";
    QCOMPARE(swscanf_s(text, L"%d, %x : %lf/%lld", &first, &second, &third, &fourth), 4);
    QCOMPARE(first, 12);
    QCOMPARE(second, 31u);
    QCOMPARE(third, -250.0);
    QCOMPARE(fourth, 5000000000ll);

    short small = 0;
    float single = 0;
    QCOMPARE(_stscanf_s(_T("123456 7"), _T("%3hd%f"), &small, &single), 2);
    QCOMPARE(small, short(123));
    QCOMPARE(single, 456.0f);

    int percent = 0;
    QCOMPARE(swscanf_s(L"50 % 7", L"%d %% %d", &percent, &first), 2);
    QCOMPARE(percent, 50);
    QCOMPARE(first, 7);

    // The form without sizes is the C library's own.
    QCOMPARE(_stscanf(_T("8 9"), _T("%d %d"), &first, &percent), 2);
    QCOMPARE(first, 8);
    QCOMPARE(percent, 9);
}

void tst_WinCrt::scanTexts()
{
    wchar_t name[8] = L"";
    wchar_t unit[4] = L"";
    int number = 0;
    QCOMPARE(swscanf_s(L"  width=42mm;", L" %l[a-z]=%d%ls", name, 8u, &number, unit, 4u), 3);
    QCOMPARE(std::wstring(name), std::wstring(L"width"));
    QCOMPARE(number, 42);
    QCOMPARE(std::wstring(unit), std::wstring(L"mm;"));
    QCOMPARE(swscanf_s(L"\u20AC7", L"%l[^0-9]%d", name, 8u, &number), 2);
    QCOMPARE(std::wstring(name), std::wstring(L"\u20AC"));
    QCOMPARE(number, 7);
}

void tst_WinCrt::scanNarrowTexts()
{
    char name[8] = "";
    char rest[8] = "";
    QCOMPARE(swscanf_s(L"ab cd", L"%s %s", name, 8u, rest, 8u), 2);
    QCOMPARE(QByteArray(name), QByteArray("ab"));
    QCOMPARE(QByteArray(rest), QByteArray("cd"));
    QCOMPARE(swscanf_s(L"a-b]c", L"%[]ab-]", name, 8u), 1);
    QCOMPARE(QByteArray(name), QByteArray("a-b]"));
    QCOMPARE(swscanf_s(L"a-b]c", L"%[^]x]", name, 8u), 1);
    QCOMPARE(QByteArray(name), QByteArray("a-b"));
}

void tst_WinCrt::scanCharacters()
{
    wchar_t three[4] = L"###";
    char narrow[3] = "##";
    QCOMPARE(swscanf_s(L"abcdef", L"%3lc%c", three, 3u, narrow, 1u), 2);
    QCOMPARE(std::wstring(three), std::wstring(L"abc"));
    QCOMPARE(QByteArray(narrow), QByteArray("d#"));

    QCOMPARE(swscanf_s(L"abc", L"%3lc", three, 2u), 0);
    QCOMPARE(swscanf_s(L"abc", L"%lc", three, 0u), 0);
}

void tst_WinCrt::scanStopsWhereTheBufferIsTooSmall()
{
    wchar_t text[8] = L"#######";
    int number = 7;
    QCOMPARE(swscanf_s(L"abcd 5", L"%ls %d", text, 5u, &number), 2);
    QCOMPARE(std::wstring(text, 6), std::wstring(L"abcd\0#", 6));
    QCOMPARE(number, 5);

    number = 7;
    QCOMPARE(swscanf_s(L"abcde 5", L"%ls %d", text, 5u, &number), 0);
    QCOMPARE(std::wstring(text, 6), std::wstring(L"\0bcd\0#", 6));
    QCOMPARE(number, 7);

    text[0] = L'#';
    QCOMPARE(swscanf_s(L"9 x", L"%d %ls", &number, text, 0u), 1);
    QCOMPARE(number, 9);
    QCOMPARE(text[0], L'#');

    // A width keeps the text within the buffer.
    QCOMPARE(swscanf_s(L"abcde 5", L"%4ls%ls", text, 5u, text + 5, 2u), 2);
    QCOMPARE(std::wstring(text, 7), std::wstring(L"abcd\0e\0", 7));
}

void tst_WinCrt::scanStopsAtTheFirstMismatch()
{
    int first = 7;
    int second = 7;
    QCOMPARE(swscanf_s(L"1;2", L"%d,%d", &first, &second), 1);
    QCOMPARE(first, 1);
    QCOMPARE(second, 7);

    QCOMPARE(swscanf_s(L"x", L"%d", &first), 0);
    QCOMPARE(first, 1);
    QCOMPARE(swscanf_s(L"3", L"%d %d", &first, &second), 1);
    QCOMPARE(first, 3);
    QCOMPARE(second, 7);

    // No conversion of these is served.
    QCOMPARE(swscanf_s(L"4 5", L"%d %k", &first, &second), 1);
    QCOMPARE(first, 4);
    QCOMPARE(swscanf_s(L"5", L"%1$d", &first), 0);
    QCOMPARE(swscanf_s(L"5", L"%", &first), 0);
    QCOMPARE(swscanf_s(L"5", L"%[5", &first, 1u), 0);
    QCOMPARE(first, 4);
}

void tst_WinCrt::scanSkipsAndCounts()
{
    int number = 0;
    int consumed = -1;
    QCOMPARE(swscanf_s(L"12 skipped 34x", L"%*d %*ls %d%n", &number, &consumed), 1);
    QCOMPARE(number, 34);
    QCOMPARE(consumed, 13);

    short before = -1;
    long after = -1;
    QCOMPARE(swscanf_s(L"ab7", L"ab%hn%d%ln", &before, &number, &after), 1);
    QCOMPARE(before, short(2));
    QCOMPARE(after, 3L);
    QCOMPARE(swscanf_s(L"xb7", L"ab%hn%d", &before, &number), 0);
    QCOMPARE(before, short(2));

    signed char few[2] = {-1, -1};
    QCOMPARE(swscanf_s(L"ab7", L"ab%hhn", &few[0]), 0);
    QCOMPARE(few[0], 2);
    QCOMPARE(few[1], -1);
}

void tst_WinCrt::scanOfNothing()
{
    int number = 7;
    QCOMPARE(swscanf_s(L"", L"%d", &number), EOF);
    QCOMPARE(swscanf_s(L"   ", L"%d", &number), EOF);
    QCOMPARE(swscanf_s(L"", L"%*d%d", &number), EOF);
    QCOMPARE(swscanf_s(L"1", L"%*d%d", &number), 0);
    QCOMPARE(swscanf_s(L"5", L""), 0);
    int consumed = -1;
    QCOMPARE(swscanf_s(L"", L"%n%d", &consumed, &number), EOF);
    QCOMPARE(consumed, 0);
    QCOMPARE(number, 7);

    errno = 0;
    QCOMPARE(swscanf_s(noText, L"%d", &number), EOF);
    QCOMPARE(errno, EINVAL);
    errno = 0;
    QCOMPARE(swscanf_s(L"5", noText), EOF);
    QCOMPARE(errno, EINVAL);
    errno = 0;
    int *const nowhere = nullptr;
    QCOMPARE(swscanf_s(L"5 6", L"%d %d", &number, nowhere), 1);
    QCOMPARE(number, 5);
    QCOMPARE(errno, EINVAL);
}

// ---- files ----------------------------------------------------------------------------------------------

void tst_WinCrt::openFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("ASCII") << QStringLiteral("plot.txt");
    QTest::newRow("outside ASCII") << QStringLiteral("Gr\u00F6\u00DFe \u20AC.txt");
    QTest::newRow("outside the first plane") << QString::fromUcs4(U"\U0001F4C8.txt");
}

void tst_WinCrt::openFile()
{
    QFETCH(QString, name);
    QTemporaryDir folder;
    const QString path = folder.filePath(name);

    FILE *file = _tfopen(path.toStdWString().c_str(), _T("wt"));
    QVERIFY(file);
    QVERIFY(fputs("text", file) >= 0);
    QCOMPARE(fclose(file), 0);

    QFile written(path);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), QByteArray("text"));
}

void tst_WinCrt::openFileFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("error");

    QTest::newRow("missing file") << QStringLiteral("missing") << QStringLiteral("r") << ENOENT;
    QTest::newRow("folder, for reading") << QStringLiteral(".") << QStringLiteral("r") << EACCES;
    QTest::newRow("empty name") << QString() << QStringLiteral("r") << EINVAL;
    QTest::newRow("empty mode") << QStringLiteral("there") << QString() << EINVAL;
    QTest::newRow("no mode") << QStringLiteral("there") << QStringLiteral("q") << EINVAL;
    QTest::newRow("letter that is none") << QStringLiteral("there") << QStringLiteral("r!") << EINVAL;
    QTest::newRow("encoding") << QStringLiteral("there") << QStringLiteral("r, ccs=UTF-8") << EINVAL;
    QTest::newRow("exclusive, and there") << QStringLiteral("there") << QStringLiteral("wx") << EEXIST;
}

void tst_WinCrt::openFileFails()
{
    QFETCH(QString, name);
    QFETCH(QString, mode);
    QFETCH(int, error);
    QTemporaryDir folder;
    QFile there(folder.filePath(QStringLiteral("there")));
    QVERIFY(there.open(QIODevice::WriteOnly));
    there.write("kept");
    there.close();

    const QString path = name.isEmpty() ? name : folder.filePath(name);
    errno = 0;
    QVERIFY(!_wfopen(path.toStdWString().c_str(), mode.toStdWString().c_str()));
    QCOMPARE(errno, error);
    QCOMPARE(QFileInfo(there).size(), 4);
    errno = 0;
    QVERIFY(!_wfopen(noText, L"r"));
    QCOMPARE(errno, EINVAL);
    errno = 0;
    QVERIFY(!_wfopen(there.fileName().toStdWString().c_str(), noText));
    QCOMPARE(errno, EINVAL);
}

void tst_WinCrt::openFileModes()
{
    QTemporaryDir folder;
    const std::wstring path = folder.filePath(QStringLiteral("file")).toStdWString();
    const auto write = [&path](const wchar_t *mode, const char *text) {
        FILE *file = _wfopen(path.c_str(), mode);
        if (!file)
            return false;
        fputs(text, file);
        return fclose(file) == 0;
    };
    QVERIFY(write(L"wb", "abc"));
    QVERIFY(write(L"a", "def"));
    QVERIFY(write(L"r+tS", "X"));
    QFile file(QString::fromStdWString(path));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("Xbcdef"));
    QVERIFY(write(L"wTDcn", ""));
    QCOMPARE(QFileInfo(file).size(), 0);

    const auto isKeptFromChildren = [&path](const wchar_t *mode) {
        FILE *opened = _wfopen(path.c_str(), mode);
        const int flags = opened ? fcntl(fileno(opened), F_GETFD) : 0;
        if (opened)
            fclose(opened);
        return (flags & FD_CLOEXEC) != 0;
    };
    QVERIFY(isKeptFromChildren(L"rN"));
    QVERIFY(!isKeptFromChildren(L"r"));
}

void tst_WinCrt::openFileWithResult()
{
    QTemporaryDir folder;
    const std::wstring path = folder.filePath(QStringLiteral("file")).toStdWString();
    FILE *file = nullptr;
    QCOMPARE(_tfopen_s(&file, path.c_str(), _T("w")), 0);
    QVERIFY(file);
    fclose(file);

    QCOMPARE(_wfopen_s(&file, (path + L"!").c_str(), L"r"), ENOENT);
    QVERIFY(!file);
    QCOMPARE(_wfopen_s(nullptr, path.c_str(), L"r"), EINVAL);
}

KX_TEST_MAIN(tst_WinCrt)

#include "tst_win_crt.moc"
