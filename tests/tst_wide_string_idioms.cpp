// SPDX-License-Identifier: MIT
// Expressions that MFC source is full of: strings as format arguments, mixed concatenation, indexes of every
// integer type, comparison with narrow text and characters, strings as keys.
#include "KxTestCase.h"

#include <afxwin.h>

#include <cstring>
#include <functional>
#include <map>
#include <unordered_map>

using TextCall = std::function<CString()>;
using TruthCall = std::function<bool()>;
Q_DECLARE_METATYPE(TextCall)
Q_DECLARE_METATYPE(TruthCall)

class WideStringIdioms : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase() { KxRegisterString(nullptr, 77, L"<%ls:%d>"); }
    void text_data();
    void text();
    void truth_data();
    void truth();
};

void WideStringIdioms::text_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const TextCall &call, const char *expected) {
        QTest::newRow(name) << call << QString::fromUtf8(expected);
    };
    static const CString pen(L"Pen");
    static const std::wstring standard(L"Std");

    row("Format takes a CString as its text", [] { CString s; s.Format(L"<%ls>", pen); return s; }, "<Pen>");
    row("Format takes a temporary CString", [] { CString s; s.Format(L"%ls", pen.Left(2)); return s; }, "Pe");
    row("Format takes a std::wstring", [] { CString s; s.Format(L"%ls", standard); return s; }, "Std");
    row("Format takes a CString between other arguments",
        [] { CString s; s.Format(L"%d %ls %.1f %ls", 3, pen, 0.5, L"mm"); return s; }, "3 Pen 0.5 mm");
    row("Format takes itself", [] { CString s(L"a"); s.Format(L"%ls%ls", s, s); return s; }, "aa");
    row("Format by identifier takes a CString", [] { CString s; s.Format(77u, pen, 8); return s; }, "<Pen:8>");
    row("AppendFormat takes a CString", [] { CString s(L"x"); s.AppendFormat(L"%ls", pen); return s; }, "xPen");
    row("AppendFormat by identifier", [] { CString s(L"x"); s.AppendFormat(77u, L"y", 1); return s; }, "x<y:1>");
    row("AppendFormat by identifier takes a CString",
        [] { CString s(L"x"); s.AppendFormat(77u, pen, 1); return s; }, "x<Pen:1>");

    row("CString + temporary std::wstring", [] { return pen + std::to_wstring(3); }, "Pen3");
    row("temporary std::wstring + CString", [] { return std::to_wstring(3) + pen; }, "3Pen");
    row("temporary CString + temporary std::wstring", [] { return pen.Left(2) + std::to_wstring(3); }, "Pe3");
    row("a chain of pairings", [] { return L"<" + pen + L' ' + "a" + standard + pen + L">"; }, "<Pen aStdPen>");
    row("CString + null text", [] { return pen + static_cast<LPCTSTR>(nullptr); }, "Pen");
    row("null text + CString", [] { return static_cast<LPCTSTR>(nullptr) + pen; }, "Pen");

    row("the first bytes of a narrow text", [] { return CString("abcdef", 3); }, "abc");
    row("no bytes of a narrow text", [] { return CString("abcdef", -1); }, "");
    row("no bytes of null", [] { return CString(static_cast<const char *>(nullptr), 3); }, "");
    row("Append takes a count", [] { CString s(pen); s.Append(L"cils", 3); return s; }, "Pencil");
    row("copy initialisation from a character", [] { CString s = L'q'; return s; }, "q");

    row("a text copied one place to the left", [] {
        wchar_t buffer[] = L"abcd";
        return CString(_tkxstrcpy(buffer, buffer + 1));
    }, "bcd");
}

void WideStringIdioms::text()
{
    QFETCH(TextCall, call);
    QFETCH(QString, expected);
    QCOMPARE(QString::fromStdWString(call()), expected);
}

void WideStringIdioms::truth_data()
{
    QTest::addColumn<TruthCall>("call");
    const auto row = [](const char *name, const TruthCall &call) { QTest::newRow(name) << call; };
    static const CString abc(L"abc");

    row("index long", [] { return abc[1L] == L'b'; });
    row("index INT_PTR", [] { return abc[INT_PTR(2)] == L'c'; });
    row("index pointer difference", [] { return abc[std::wcschr(abc, L'b') - abc.GetString()] == L'b'; });
    row("index unsigned", [] { return abc[1u] == L'b'; });
    row("index std::size_t", [] { return abc[std::size_t(0)] == L'a'; });
    row("index short", [] { return abc[short(2)] == L'c'; });
    row("index long writes", [] { CString s(abc); s[0L] = L'z'; return s == L"zbc"; });

    row("equal to narrow text", [] { return abc == "abc" && "abc" == abc && !(abc != "abc") && !("abc" != abc); });
    row("unequal to narrow text", [] { return abc != "abd" && "ab" != abc && !(abc == "ab") && !("ab" == abc); });
    row("equal to a character", [] { const CString s(L"x"); return s == L'x' && L'x' == s && !(s != L'x'); });
    row("unequal to a character", [] { return abc != L'a' && L'a' != abc && !(abc == L'a') && !(L'a' == abc); });
    row("the empty text is no character", [] { return CString() != L'\0' && CString() == ""; });

    row("key of std::map", [] { std::map<CString, int> m; m[abc] = 4; return m[L"abc"] == 4; });
    row("key of std::unordered_map", [] {
        std::unordered_map<CString, int> m;
        m[abc] = 4;
        return m.count(L"abc") == 1 && m.count(L"abd") == 0;
    });
    row("a loaded string keeps no room it does not need", [] {
        CString s;
        return s.LoadStringW(77) && s == L"<%ls:%d>" && s.capacity() < 64;
    });
}

void WideStringIdioms::truth()
{
    QFETCH(TruthCall, call);
    QVERIFY(call());
}

KX_TEST_MAIN(WideStringIdioms)
#include "tst_wide_string_idioms.moc"
