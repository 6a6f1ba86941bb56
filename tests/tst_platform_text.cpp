// SPDX-License-Identifier: MIT
#include "KxCommaLocale.h"
#include "KxTestCase.h"
#include "KxWinString.h"

#include <cerrno>
#include <climits>
#include <clocale>
#include <cmath>
#include <cwchar>

Q_DECLARE_METATYPE(std::wstring)

class tst_PlatformText : public KxTestCase
{
    Q_OBJECT

private slots:
    void wtoi_data();
    void wtoi();
    void wtoiOfNull();
    void wtol_data();
    void wtol();
    void wtof_data();
    void wtof();
    void wtofOfNull();
    void wtofInALocaleWithACommaInNumbers();
    void wcsinc();
    void wcsnextc_data();
    void wcsnextc();
    void swprintfWithoutASize_data();
    void swprintfWithoutASize();
    void swprintfWithASizeIsTheStandards();
    void swprintfOfAnImpossibleArgument();
    void swprintfOfNull();
    void swprintfBeyondAThousandCharacters();
    void memcpy_s_data();
    void memcpy_s();
    void memcpy_sOfOverlappingBlocks_data();
    void memcpy_sOfOverlappingBlocks();
};

void tst_PlatformText::wtoi_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("error");

    QTest::newRow("digits: 12") << std::wstring(L"12") << 12 << 0;
    QTest::newRow("zero: 0") << std::wstring(L"0") << 0 << 0;
    QTest::newRow("digits, then letters: 12abc is 12") << std::wstring(L"12abc") << 12 << 0;
    QTest::newRow("letters only are 0") << std::wstring(L"abc") << 0 << 0;
    QTest::newRow("letters, then digits are 0") << std::wstring(L"abc12") << 0 << 0;
    QTest::newRow("the empty text is 0") << std::wstring() << 0 << 0;
    QTest::newRow("blanks only are 0") << std::wstring(L" \t ") << 0 << 0;
    QTest::newRow("blanks in front are skipped") << std::wstring(L" \t\n\v\f\r7") << 7 << 0;
    QTest::newRow("a no-break space is a blank") << std::wstring(L"\u00A07") << 7 << 0;
    QTest::newRow("an ideographic space is a blank") << std::wstring(L"\u30007") << 7 << 0;
    QTest::newRow("minus: -12") << std::wstring(L"-12") << -12 << 0;
    QTest::newRow("plus: +12") << std::wstring(L"+12") << 12 << 0;
    QTest::newRow("blanks, then a sign") << std::wstring(L"  -12") << -12 << 0;
    QTest::newRow("a sign alone is 0") << std::wstring(L"-") << 0 << 0;
    QTest::newRow("two signs are 0") << std::wstring(L"+-5") << 0 << 0;
    QTest::newRow("a blank after the sign ends it") << std::wstring(L"- 5") << 0 << 0;
    QTest::newRow("a second blank-separated number is not read") << std::wstring(L"1 2") << 1 << 0;
    QTest::newRow("a point ends it: 3.9 is 3") << std::wstring(L"3.9") << 3 << 0;
    QTest::newRow("leading zeros are decimal: 010 is 10") << std::wstring(L"010") << 10 << 0;
    QTest::newRow("no hexadecimal: 0x10 is 0") << std::wstring(L"0x10") << 0 << 0;
    QTest::newRow("Arabic digits are no digits") << std::wstring(L"\u0661") << 0 << 0;
    QTest::newRow("greatest: 2147483647") << std::wstring(L"2147483647") << INT_MAX << 0;
    QTest::newRow("one more saturates") << std::wstring(L"2147483648") << INT_MAX << ERANGE;
    QTest::newRow("least: -2147483648") << std::wstring(L"-2147483648") << INT_MIN << 0;
    QTest::newRow("one less saturates") << std::wstring(L"-2147483649") << INT_MIN << ERANGE;
    QTest::newRow("4294967297 saturates") << std::wstring(L"4294967297") << INT_MAX << ERANGE;
    QTest::newRow("forty digits saturate") << std::wstring(40, L'9') << INT_MAX << ERANGE;
    QTest::newRow("minus and forty digits saturate") << L'-' + std::wstring(40, L'9') << INT_MIN << ERANGE;
}

void tst_PlatformText::wtoi()
{
    QFETCH(std::wstring, text);
    errno = 0;
    QTEST(_wtoi(text.c_str()), "number");
    QTEST(int(errno), "error");
}

void tst_PlatformText::wtoiOfNull()
{
    errno = 0;
    QCOMPARE(_wtoi(nullptr), 0);
    QCOMPARE(errno, EINVAL);
    errno = 0;
    QCOMPARE(_wtol(nullptr), 0L);
    QCOMPARE(errno, EINVAL);
}

void tst_PlatformText::wtol_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<long>("number");

    QTest::newRow("blanks, sign, digits, letters") << std::wstring(L" -42x") << -42L;
    QTest::newRow("no number is 0") << std::wstring(L"x") << 0L;
    QTest::newRow("beyond 32 bits: 4294967296") << std::wstring(L"4294967296") << 4294967296L;
    QTest::newRow("greatest") << std::wstring(L"9223372036854775807") << LONG_MAX;
    QTest::newRow("one more saturates") << std::wstring(L"9223372036854775808") << LONG_MAX;
    QTest::newRow("least") << std::wstring(L"-9223372036854775808") << LONG_MIN;
    QTest::newRow("one less saturates") << std::wstring(L"-9223372036854775809") << LONG_MIN;
    QTest::newRow("2 to the 64th and 1 saturates") << std::wstring(L"18446744073709551617") << LONG_MAX;
}

void tst_PlatformText::wtol()
{
    QFETCH(std::wstring, text);
    QTEST(_wtol(text.c_str()), "number");
}

void tst_PlatformText::wtof_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("error");

    QTest::newRow("digits: 12") << std::wstring(L"12") << 12.0 << 0;
    QTest::newRow("decimals: 2.5") << std::wstring(L"2.5") << 2.5 << 0;
    QTest::newRow("nothing before the point: .5") << std::wstring(L".5") << 0.5 << 0;
    QTest::newRow("nothing after the point: 5.") << std::wstring(L"5.") << 5.0 << 0;
    QTest::newRow("a point alone is 0") << std::wstring(L".") << 0.0 << 0;
    QTest::newRow("a point and an exponent alone are 0") << std::wstring(L".e5") << 0.0 << 0;
    QTest::newRow("an exponent alone is 0") << std::wstring(L"e5") << 0.0 << 0;
    QTest::newRow("the second point ends it") << std::wstring(L"1.5.5") << 1.5 << 0;
    QTest::newRow("a comma ends it") << std::wstring(L"1,5") << 1.0 << 0;
    QTest::newRow("letters end it") << std::wstring(L"12abc") << 12.0 << 0;
    QTest::newRow("letters only are 0") << std::wstring(L"abc") << 0.0 << 0;
    QTest::newRow("the empty text is 0") << std::wstring() << 0.0 << 0;
    QTest::newRow("blanks and a sign") << std::wstring(L" \t-2.25") << -2.25 << 0;
    QTest::newRow("plus") << std::wstring(L"+2.25") << 2.25 << 0;
    QTest::newRow("two signs are 0") << std::wstring(L"--1") << 0.0 << 0;
    QTest::newRow("exponent: 1e3") << std::wstring(L"1e3") << 1000.0 << 0;
    QTest::newRow("exponent with minus: 25E-1") << std::wstring(L"25E-1") << 2.5 << 0;
    QTest::newRow("exponent with plus: 1.5e+2") << std::wstring(L"1.5e+2") << 150.0 << 0;
    QTest::newRow("an e without digits ends it") << std::wstring(L"2e") << 2.0 << 0;
    QTest::newRow("an e with a sign alone ends it") << std::wstring(L"2e+") << 2.0 << 0;
    QTest::newRow("no d for an exponent") << std::wstring(L"1d3") << 1.0 << 0;
    QTest::newRow("no hexadecimal: 0x1p4 is 0") << std::wstring(L"0x1p4") << 0.0 << 0;
    QTest::newRow("no infinity: inf is 0") << std::wstring(L"inf") << 0.0 << 0;
    QTest::newRow("no infinity: -infinity is 0") << std::wstring(L"-infinity") << 0.0 << 0;
    QTest::newRow("no NaN: nan is 0") << std::wstring(L"nan") << 0.0 << 0;
    QTest::newRow("all digits count: 0.1") << std::wstring(L"0.1") << 0.1 << 0;
    QTest::newRow("greatest double") << std::wstring(L"1.7976931348623157e308") << 1.7976931348623157e308
                                     << 0;
    QTest::newRow("beyond it saturates") << std::wstring(L"1e309") << HUGE_VAL << ERANGE;
    QTest::newRow("below it saturates") << std::wstring(L"-1e309") << -HUGE_VAL << ERANGE;
    QTest::newRow("a huge exponent saturates")
        << std::wstring(L"1e99999999999999999999") << HUGE_VAL << ERANGE;
    QTest::newRow("too near to 0 is 0") << std::wstring(L"1e-400") << 0.0 << ERANGE;
    QTest::newRow("five hundred digits saturate") << std::wstring(500, L'9') << HUGE_VAL << ERANGE;
}

void tst_PlatformText::wtof()
{
    QFETCH(std::wstring, text);
    QFETCH(double, number);
    errno = 0;
    const double result = _wtof(text.c_str());
    const int error = errno;
    QVERIFY2(result == number, qPrintable(QString::number(result, 'g', 17)));
    QTEST(error, "error");
}

void tst_PlatformText::wtofOfNull()
{
    errno = 0;
    QCOMPARE(_wtof(nullptr), 0.0);
    QCOMPARE(errno, EINVAL);
}

void tst_PlatformText::wtofInALocaleWithACommaInNumbers()
{
    const CommaLocale locale;
    QVERIFY(locale.isActive());
    QCOMPARE(_wtof(L"2.5"), 2.5);
    QCOMPARE(_wtof(L"2,5"), 2.0);
}

void tst_PlatformText::wcsinc()
{
    const wchar_t *text = L"ab";
    QVERIFY(_wcsinc(text) == text + 1);
    QVERIFY(_wcsinc(_wcsinc(text)) == text + 2);
    QVERIFY(_wcsinc(nullptr) == nullptr);
}

void tst_PlatformText::wcsnextc_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<unsigned int>("character");

    QTest::newRow("the character that the pointer stands on") << std::wstring(L"ab") << unsigned('a');
    QTest::newRow("the end is 0") << std::wstring() << 0u;
    QTest::newRow("one beyond 16 bits, whole") << std::wstring(L"\U0001F600x") << 0x1F600u;
}

void tst_PlatformText::wcsnextc()
{
    QFETCH(std::wstring, text);
    QTEST(_wcsnextc(text.c_str()), "character");
    QCOMPARE(_wcsnextc(nullptr), 0u);
}

void tst_PlatformText::swprintfWithoutASize_data()
{
    QTest::addColumn<std::wstring>("format");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("number");
    QTest::addColumn<std::wstring>("text");

    QTest::newRow("five digits with zeros") << std::wstring(L"%0*d") << 5 << 42 << std::wstring(L"00042");
    QTest::newRow("five digits, all used") << std::wstring(L"%0*d") << 5 << 99999 << std::wstring(L"99999");
    QTest::newRow("more digits than asked for")
        << std::wstring(L"%0*d") << 2 << 12345 << std::wstring(L"12345");
    QTest::newRow("text around, beyond 16 bits")
        << std::wstring(L"\U0001F600%d/%d.") << 1 << -2 << std::wstring(L"\U0001F6001/-2.");
    QTest::newRow("the empty format") << std::wstring() << 1 << 1 << std::wstring();
}

void tst_PlatformText::swprintfWithoutASize()
{
    QFETCH(std::wstring, format);
    QFETCH(int, width);
    QFETCH(int, number);
    QFETCH(std::wstring, text);

    wchar_t buffer[32];
    std::wmemset(buffer, L'#', 32);
    QCOMPARE(swprintf(buffer, format.c_str(), width, number), int(text.size()));
    QVERIFY(text == buffer);
    QVERIFY2(buffer[text.size() + 1] == L'#', "wrote behind the terminating zero");
}

void tst_PlatformText::swprintfWithASizeIsTheStandards()
{
    wchar_t buffer[8];
    QCOMPARE(swprintf(buffer, 8, L"%d", 1234567), 7);
    QVERIFY(std::wstring(L"1234567") == buffer);
    QVERIFY(swprintf(buffer, 7, L"%d", 1234567) < 0);
    QVERIFY(swprintf(buffer, sizeof buffer / sizeof *buffer, L"%ls", L"12345678") < 0);
}

void tst_PlatformText::swprintfOfAnImpossibleArgument()
{
    const QByteArray before = setlocale(LC_CTYPE, nullptr);
    const auto restore = qScopeGuard([&before] { setlocale(LC_CTYPE, before.constData()); });
    QVERIFY(setlocale(LC_CTYPE, "C.UTF-8"));
    wchar_t buffer[] = L"######";
    QCOMPARE(swprintf(buffer, L"ab%s", "\xFF"), -1);
    QCOMPARE(buffer[0], L'\0');
}

void tst_PlatformText::swprintfOfNull()
{
    wchar_t buffer[] = L"#";
    QCOMPARE(swprintf(nullptr, L"%d", 1), -1);
    QCOMPARE(swprintf(buffer, static_cast<const wchar_t *>(nullptr)), -1);
    QCOMPARE(buffer[0], L'#');
}

void tst_PlatformText::swprintfBeyondAThousandCharacters()
{
    std::vector<wchar_t> buffer(100001, L'#');
    QCOMPARE(swprintf(buffer.data(), L"%*d", 100000, 7), 100000);
    QCOMPARE(buffer[99998], L' ');
    QCOMPARE(buffer[99999], L'7');
    QCOMPARE(buffer[100000], L'\0');
}

void tst_PlatformText::memcpy_s_data()
{
    QTest::addColumn<bool>("hasTarget");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("hasSource");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("target"); // "....", with a and b copied into it and - for a zero

    QTest::newRow("fits with room") << true << 4 << true << 2 << 0 << QByteArray("ab..");
    QTest::newRow("fits exactly") << true << 2 << true << 2 << 0 << QByteArray("ab..");
    QTest::newRow("does not fit: the target's size is zeroed")
        << true << 1 << true << 2 << ERANGE << QByteArray("-...");
    QTest::newRow("no source: the target's size is zeroed")
        << true << 3 << false << 2 << EINVAL << QByteArray("---.");
    QTest::newRow("no source and too small") << true << 1 << false << 2 << EINVAL << QByteArray("-...");
    QTest::newRow("no target") << false << 4 << true << 2 << EINVAL << QByteArray("....");
    QTest::newRow("neither") << false << 4 << false << 2 << EINVAL << QByteArray("....");
    QTest::newRow("nothing to copy") << true << 4 << true << 0 << 0 << QByteArray("....");
    QTest::newRow("nothing to copy from null") << true << 4 << false << 0 << 0 << QByteArray("....");
    QTest::newRow("nothing to copy to null") << false << 0 << false << 0 << 0 << QByteArray("....");
    QTest::newRow("no room for anything") << true << 0 << true << 2 << ERANGE << QByteArray("....");
}

void tst_PlatformText::memcpy_s()
{
    QFETCH(bool, hasTarget);
    QFETCH(int, size);
    QFETCH(bool, hasSource);
    QFETCH(int, count);
    QFETCH(int, result);

    QByteArray target("....");
    errno = 0;
    char *to = hasTarget ? target.data() : nullptr;
    const char *from = hasSource ? "ab" : nullptr;
    QCOMPARE(::memcpy_s(to, size_t(size), from, size_t(count)), result);
    QCOMPARE(errno, result);
    QTEST(target.replace('\0', '-'), "target");
}

void tst_PlatformText::memcpy_sOfOverlappingBlocks_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QByteArray>("result");

    QTest::newRow("upwards") << 0 << 1 << QByteArray("aabcdefg");
    QTest::newRow("downwards") << 1 << 0 << QByteArray("bcdefghh");
}

void tst_PlatformText::memcpy_sOfOverlappingBlocks()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QByteArray block("abcdefgh");
    char *bytes = block.data();
    QCOMPARE(::memcpy_s(bytes + to, 7, bytes + from, 7), 0);
    QTEST(block, "result");
}

KX_TEST_MAIN(tst_PlatformText)

#include "tst_platform_text.moc"
