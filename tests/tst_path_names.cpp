// SPDX-License-Identifier: MIT
// Parsing path names, their pieces, and their life.

#include "KxFileSandbox.h"
#include "KxPlatformServices.h"
#include "KxClassLayout.h"
#include "KxTestCase.h"
#include "KxTextRows.h"

#include <QRmUiNTFSVolumeDescriptor.h>
#include <QRmUiPathname.h>

#include <QtCore/QScopeGuard>

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <type_traits>

namespace {

template<class Value>
Value read(const CRmUiPathname &object, int offset)
{
    Value value;
    std::memcpy(&value, reinterpret_cast<const char *>(&object) + offset, sizeof value);
    return value;
}

struct Path : CRmUiPathname {
    Path() = default;
    Path(path_type type, path_category category, const wchar_t *path, const wchar_t *directory = nullptr,
         const CRmUiVolumeDescriptor *volume = nullptr, wchar_t separator = L'/')
    {
        m_type = type;
        m_category = category;
        m_path = path ? new CString(path) : nullptr;
        m_directory = directory ? new CString(directory) : nullptr;
        m_volume = volume;
        m_separator = separator;
    }
    virtual void next() {}

    using CRmUiPathname::m_category;
    using CRmUiPathname::m_directory;
    using CRmUiPathname::m_path;
    using CRmUiPathname::m_qualified;
    using CRmUiPathname::m_separator;
    using CRmUiPathname::m_type;
    using CRmUiPathname::m_volume;
};

/// A volume that notes the names it is asked to bring to its case.
struct Volume : CRmUiNTFSVolumeDescriptor {
    Volume() : CRmUiNTFSVolumeDescriptor(CString(L"C:")) {}
    void VolCase(CString &name) const override { asked = name; }
    mutable CString asked;
};

/// "category path directory type flag" of a path name.
std::wstring state(const Path &path)
{
    const auto text = [](const CString *string) {
        return string ? L'[' + std::wstring(*string) + L"] " : std::wstring(L"null ");
    };
    return std::to_wstring(int(path.m_category)) + L' ' + text(path.m_path) + text(path.m_directory)
        + std::to_wstring(int(path.m_type)) + L' ' + std::to_wstring(int(path.m_qualified));
}

using Get = std::function<void(CString &)>;

std::wstring got(const Get &get)
{
    CString out(L"before");
    get(out);
    return out;
}

} // namespace

class PathNamesTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void values_data();
    void values();
    void parse_data();
    void parse();
    void parseFails_data();
    void parseFails();
    void pieces_data();
    void pieces() { checkText(); }
    void parents_data();
    void parents() { checkText(); }
    void parentIntoItself();
    void functions_data();
    void functions() { checkText(); }
    void newObjectAndEmpty();
    void copies();
    void copiesThroughTheVirtualOperation();
    void parsesItself();
    void volumes();
    void fullPathIsNormalisedByTheService();

private:
    static void checkText()
    {
        QFETCH(TextCall, call);
        QFETCH(QString, expected);
        QCOMPARE(shown(call()), expected);
    }
};

void PathNamesTest::values_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");
    const auto row = [](const char *name, long long found, int expected) {
        QTest::newRow(name) << int(found) << expected;
    };
    row("kNoPath", kNoPath, 0);
    row("kNewPath", kNewPath, 1);
    row("kWildcardPath", kWildcardPath, 2);
    row("kFilePath", kFilePath, 3);
    row("kDirPath", kDirPath, 4);
    row("kDevicePath", kDevicePath, 5);
    row("kDriveCategory", kDriveCategory, 0);
    row("kUNCCategory", kUNCCategory, 1);
    row("kRootCategory", kRootCategory, 2);
    row("kRelativeCategory", kRelativeCategory, 3);
    row("path_type has 32 bits", sizeof(path_type), 4);
    row("path_category has 32 bits", sizeof(path_category), 4);
    row("an object has 56 bytes", sizeof(CRmUiPathname), 56);
    row("slot 0: Parse", slotOf(&CRmUiPathname::Parse), 0);
    row("slot 1: AssignCopy", slotOf(&CRmUiPathname::AssignCopy), 1);
    row("there are two slots", slotOf(&Path::next), 2);
    row("the destructor is not virtual", std::has_virtual_destructor_v<CRmUiPathname>, 0);
    for (int type = 0; type <= 5; ++type) {
        const Path path(static_cast<path_type>(type), kRelativeCategory, L"a");
        row(qPrintable(QStringLiteral("GetPathType of %1").arg(type)), path.GetPathType(), type);
        row(qPrintable(QStringLiteral("IsPath of %1").arg(type)), path.IsPath(), type >= 1 && type <= 4);
        row(qPrintable(QStringLiteral("IsEmpty of %1").arg(type)), path.IsEmpty(), type == 0);
    }
}

void PathNamesTest::values()
{
    QFETCH(int, found);
    QFETCH(int, expected);
    QCOMPARE(found, expected);
}

void PathNamesTest::parse_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    // Against the directory /base, which is not there.
    const auto row = [](const char *promise, const char *input, const char *expected) {
        QTest::newRow(promise) << input << expected;
    };
    row("drive in quotes and blanks", "  \"C:\\Data\\a.txt\"  ", "0 [C:/Data/a.txt] null 1 1");
    row("a small drive letter", "c:/x", "0 [C:/x] null 1 1");
    row("a drive alone", "C:", "0 [C:] null 1 1");
    row("relative to a drive", "c:x", "0 [C:x] null 1 1");
    row("a wildcard on a drive", "C:/*.txt", "0 [C:/*.txt] null 2 1");
    row("rooted", "/none/x", "2 [/none/x] [] 1 1");
    row("rooted, there", "/tmp", "2 [/tmp] [] 4 1");
    row("rooted by a backslash", "\\tmp", "2 [/tmp] [] 4 1");
    row("the root", "/", "2 [/] [] 4 1");
    row("relative", "x", "3 [x] [/base] 1 0");
    row("relative with a slash", "d/x", "3 [d/x] [/base] 1 1");
    row("relative with a backslash", "d\\x", "3 [d/x] [/base] 1 1");
    row("both slashes", "d\\e/f\\", "3 [d/e/f/] [/base] 1 1");
    row("blanks", " \t x y \n", "3 [x y] [/base] 1 0");
    row("blanks inside quotes", "\" x \"", "3 [x] [/base] 1 0");
    row("only one pair of quotes", "\"\"x\"\"", "3 [\"x\"] [/base] 1 0");
    row("a quote in front only", " \"x ", "3 [\"x] [/base] 1 0");
    row("a quote behind only", "x\"", "3 [x\"] [/base] 1 0");
    row("a quote alone", "\"", "3 [\"] [/base] 1 0");
    row("a wildcard", "d/?", "3 [d/?] [/base] 2 1");
    row("periods stay", "../x/.", "3 [../x/.] [/base] 1 1");
}

void PathNamesTest::parse()
{
    QFETCH(QString, input);
    QFETCH(QString, expected);
    const Path base(kDirPath, kRootCategory, L"/base", L"");
    for (const bool flag : {false, true}) {
        Path path(kFilePath, kUNCCategory, L"before", L"before");
        QCOMPARE(path.ParseRelative(wide(input).c_str(), &base, flag), 0);
        QCOMPARE(shown(state(path)), expected);
    }
}

void PathNamesTest::parseFails_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("baseType"); // -1: no base
    const auto row = [](const char *promise, const char *input, int base = 4) {
        QTest::newRow(promise) << input << base;
    };
    row("nothing", "");
    row("blanks", " \t ");
    row("quotes around nothing", "\"\"");
    row("quotes around blanks", "\"  \"");
    row("two colons", "a:b:c");
    row("two colons in front", "::x");
    row("a share", "//server/share");
    row("a share by backslashes", "\\\\server\\share");
    row("two separators", "//");
    row("a colon of a rooted path", "/a:b");
    row("a colon of a relative path", "ab:c");
    row("a colon behind a digit", "1:x");
    row("a colon first", ":x");
    row("relative without base", "dir/x", -1);
    row("relative to an empty base", "x", 0);
    row("relative to a device", "x", 5);
}

void PathNamesTest::parseFails()
{
    QFETCH(QString, input);
    QFETCH(int, baseType);
    const Path base(static_cast<path_type>(baseType), kRootCategory, L"/base", L"");
    Path path(kFilePath, kRelativeCategory, L"before", L"before", nullptr);
    QCOMPARE(path.ParseRelative(wide(input).c_str(), baseType < 0 ? nullptr : &base), 1);
    QVERIFY(path.IsEmpty());
    QVERIFY(!path.GetPathString() && !path.m_directory && !path.m_volume);
    QCOMPARE(path.ParseRelative(nullptr, &base), 1);
    QCOMPARE(path.Parse(nullptr), 1);
}

void PathNamesTest::pieces_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *piece, const char *promise, path_type type, const wchar_t *path,
                        void (CRmUiPathname::*get)(CString &) const, const std::wstring &expected) {
        textRow(qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(piece), QLatin1String(promise))), [=] {
            const Path name(type, kRelativeCategory, path);
            return got([&](CString &out) { (name.*get)(out); });
        }, expected);
    };
    const struct {
        const char *promise;
        const wchar_t *path;
        const wchar_t *base;
        const wchar_t *file;
        const wchar_t *extension;
    } names[] = {
        {"behind the last separator", L"/a/b.txt", L"b.txt", L"b", L"txt"},
        {"behind the colon", L"C:b.txt", L"b.txt", L"b", L"txt"},
        {"the separator goes first", L"C:/d/b", L"b", L"b", L"before"},
        {"the whole text", L"b.tar.gz", L"b.tar.gz", L"b.tar", L"gz"},
        {"a directory's period", L"a.b/c", L"c", L"c", L"before"},
        {"a period first", L"/a/.b", L".b", L"", L"b"},
        {"a period last", L"/a/b.", L"b.", L"b", L""},
        {"nothing behind the separator", L"/a.b/", L"", L"before", L"before"},
        {"nothing behind the colon", L"C:", L"", L"before", L"before"},
    };
    for (const auto &name : names) {
        row("base name", name.promise, kNewPath, name.path, &CRmUiPathname::GetBasename, name.base);
        row("file name", name.promise, kNewPath, name.path, &CRmUiPathname::GetFilename, name.file);
        row("extension", name.promise, kNewPath, name.path, &CRmUiPathname::GetExtension, name.extension);
    }
    for (const path_type type : {kNewPath, kWildcardPath, kFilePath, kDirPath, kDevicePath}) {
        const QByteArray promise = "of type " + QByteArray::number(type);
        row("base name", promise, type, L"d/b.x", &CRmUiPathname::GetBasename, L"b.x");
        row("file name", promise, type, L"d/b.x", &CRmUiPathname::GetFilename,
            type == kWildcardPath ? L"before" : L"b");
        row("extension", promise, type, L"d/b.x", &CRmUiPathname::GetExtension, L"x");
    }
    row("base name", "empty object", kNoPath, nullptr, &CRmUiPathname::GetBasename, L"before");
    row("file name", "empty object", kNoPath, nullptr, &CRmUiPathname::GetFilename, L"before");
    row("extension", "empty object", kNoPath, nullptr, &CRmUiPathname::GetExtension, L"before");
    row("UNC path", "does nothing", kNewPath, L"//s/h", &CRmUiPathname::GetFullUNCPath, L"before");

    const auto full = [](const char *promise, const Path &path, const std::wstring &expected) {
        textRow(promise, [=] {
            CString out(L"before");
            wchar_t buffer[64] = L"before";
            const bool found = path.GetFullPath(out);
            const bool copied = path.GetFullPath(buffer);
            if (found != copied || path.GetFullPath(static_cast<wchar_t *>(nullptr)))
                return std::wstring(L"(the two forms differ)");
            return (found ? L"yes " : L"no ") + std::wstring(out) + (found && out != buffer ? L"?" : L"");
        }, expected);
    };
    full("full path: empty object", Path(), L"no before");
    full("full path: rooted has no directory", Path(kNewPath, kRootCategory, L"/a", L"/d"), L"yes /a");
    full("full path: relative", Path(kNewPath, kRelativeCategory, L"a", L"/d"), L"yes /d/a");
    full("full path: a separator is there", Path(kNewPath, kRelativeCategory, L"a", L"/d/"), L"yes /d/a");
    full("full path: no directory", Path(kNewPath, kRelativeCategory, L"a/b"), L"yes a/b");
    full("full path: a drive with a directory", Path(kNewPath, kDriveCategory, L"a", L"C:"), L"yes C:/a");
    full("full path: normalised", Path(kNewPath, kRelativeCategory, L"../a/./b", L"/d/e"), L"yes /d/a/b");
    full("full path: a device has one", Path(kDevicePath, kRootCategory, L"/a"), L"yes /a");
    full("full path: a device has no directory", Path(kDevicePath, kRelativeCategory, L"a", L"/d"), L"yes a");
    full("full path: a wildcard has one", Path(kWildcardPath, kRootCategory, L"/*"), L"yes /*");
    full("full path: the separator is the object's",
         Path(kNewPath, kRelativeCategory, L"a", L"/d", nullptr, L'!'), L"yes /d!a");
}

void PathNamesTest::parents_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *promise, const Path &path, const std::wstring &expected) {
        textRow(promise, [=] {
            Path out(kFilePath, kRootCategory, L"/before");
            path.GetParent(out);
            return out.IsEmpty() ? std::wstring(out.GetPathString() ? L"(kept)" : L"empty") : state(out);
        }, expected);
    };
    row("rooted", Path(kFilePath, kRootCategory, L"/a/b", L""), L"2 [/a/] [] 4 0");
    row("one component", Path(kFilePath, kRootCategory, L"/a", L""), L"2 [/] [] 4 0");
    row("the root", Path(kDirPath, kRootCategory, L"/", L""), L"2 [/] [] 4 0");
    row("a separator at its end, whose removal makes it new", Path(kDirPath, kRootCategory, L"/a/b/", L""),
        L"2 [/a/] [] 1 0");
    row("drive", Path(kFilePath, kDriveCategory, L"C:/a"), L"0 [C:/] null 4 0");
    row("behind the colon", Path(kFilePath, kDriveCategory, L"C:a"), L"0 [C:] null 4 0");
    row("relative", Path(kFilePath, kRelativeCategory, L"a/b", L"/d"), L"3 [a/] [/d] 4 0");
    row("wildcard", Path(kWildcardPath, kRelativeCategory, L"a/*", L"/d"), L"3 [a/] [/d] 4 0");
    row("the directory, rooted", Path(kFilePath, kRelativeCategory, L"a", L"/d/"), L"2 [/d/] null 4 0");
    row("the directory, on a drive", Path(kFilePath, kRelativeCategory, L"a", L"c:/d"), L"0 [C:/d] null 4 0");
    row("no directory", Path(kFilePath, kRelativeCategory, L"a"), L"empty");
    row("an empty object leaves it", Path(), L"2 [/before] null 3 0");
    row("a device leaves it", Path(kDevicePath, kRootCategory, L"/a"), L"2 [/before] null 3 0");
    row("no path string leaves it", Path(kFilePath, kRootCategory, nullptr), L"2 [/before] null 3 0");
}

void PathNamesTest::parentIntoItself()
{
    Path path(kFilePath, kRelativeCategory, L"a/b", L"/d");
    path.GetParent(path);
    QCOMPARE(shown(state(path)), QStringLiteral("3 [a/] [/d] 4 0"));
}

void PathNamesTest::functions_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");
    const auto category = [](const char *promise, const wchar_t *text, wchar_t sep,
                             const std::wstring &expected) {
        textRow(promise, [=] {
            CString *string = new CString(text);
            auto cat = static_cast<path_category>(9);
            ParseRelPath(&string, sep, cat);
            const std::wstring found = std::to_wstring(int(cat)) + L' ' + std::wstring(*string);
            ReleaseCStrPtr(&string);
            return string ? L"(not released)" : found;
        }, expected);
    };
    category("category: one separator", L"/a", L'/', L"2 /a");
    category("category: a separator alone", L"/", L'/', L"2 /");
    category("category: two separators", L"//a", L'/', L"1 //a");
    category("category: a drive, its letter upper", L"c:a", L'/', L"0 C:a");
    category("category: a digit and a colon", L"1:a", L'/', L"9 1:a");
    category("category: relative leaves it", L"a/b", L'/', L"9 a/b");
    category("category: another separator", L"!a", L'!', L"2 !a");

    const auto reject = [](const char *promise, const wchar_t *text, bool withBase,
                           const std::wstring &expected) {
        textRow(promise, [=] {
            CString string(text);
            path_category cat = kRelativeCategory;
            const Path base(kDirPath, kRootCategory, L"/d");
            const int answer = GetPathCatType(text[0], text[0] ? text[1] : L'\0', L'/', cat, &string,
                                              withBase ? &base : nullptr);
            return std::to_wstring(answer) + L' ' + std::to_wstring(int(cat));
        }, expected);
    };
    reject("reject: relative with base", L"a", true, L"0 3");
    reject("reject: relative without base", L"a", false, L"1 3");
    reject("reject: rooted needs none", L"/a", false, L"0 2");
    reject("reject: share needs none", L"//a", false, L"0 1");
    reject("reject: drive needs none", L"C:a", false, L"0 0");
    reject("reject: a colon, rooted", L"/a:", true, L"1 2");
    reject("reject: a colon, share", L"//a:", true, L"1 1");
    reject("reject: a colon, relative", L"ab:", true, L"1 3");
    reject("reject: two colons, drive", L"C:a:", true, L"0 0");

    textRow("work string: backslashes become the separator", [] {
        CString string(L"a\\b\\!/");
        wchar_t last = 0, first = 0, second = 0;
        GetWorkString(&string, L'!', last, first, second);
        return std::wstring(string) + L' ' + first + second;
    }, L"a!b!!/ a!");
    textRow("work string: one character has no second", [] {
        CString string(L"a");
        wchar_t last = L'x', first = L'x', second = L'x';
        GetWorkString(&string, L'/', last, first, second);
        return std::wstring(1, first) + (second == 0 ? L" 0" : L" ?");
    }, L"a 0");
    for (const int cat : {0, 1, 2, 3}) {
        const QByteArray promise = "nothing follows: category " + QByteArray::number(cat);
        textRow(promise, [cat] {
            CString string(L"//s/h");
            GetWorkPtrByIndex(static_cast<path_category>(cat), &string, L'/', 5);
            return std::wstring(string);
        }, cat == 1 ? L"//s/h/" : L"//s/h");
        textRow(qPrintable(QStringLiteral("directory: category %1").arg(cat)), [cat] {
            const CString root(L"root");
            const Path base(kDirPath, kRelativeCategory, L"b", L"/d");
            const CRmUiPathname *at = &base;
            CString *directory = nullptr;
            GetRelPath(static_cast<path_category>(cat), &root, &directory, &at);
            const std::wstring found = directory ? std::wstring(*directory) : L"null";
            delete directory;
            return found;
        }, cat == 2 ? L"root" : cat == 3 ? L"/d/b" : L"null");
    }
    textRow("something follows: nothing is appended", [] {
        CString string(L"//s/h");
        GetWorkPtrByIndex(kUNCCategory, &string, L'/', 3);
        return std::wstring(string);
    }, L"//s/h");
    textRow("directory: of an empty base", [] {
        const CRmUiPathname base;
        const CRmUiPathname *at = &base;
        CString *directory = nullptr;
        GetRelPath(kRelativeCategory, nullptr, &directory, &at);
        return std::wstring(directory ? L"kept" : L"null");
    }, L"null");
    textRow("path buffer: true, and nothing changes", [] {
        CString directory(L"/d"), string(L"x");
        CString *at = &directory;
        const CRmUiVolumeDescriptor *volume = nullptr;
        const bool answer = GetPathBuffer(&at, false, &string, L'/', &volume);
        return (answer ? L"1 " : L"0 ") + std::wstring(directory) + L' ' + std::wstring(string);
    }, L"1 /d x");
    const auto wildcard = [](const char *promise, const wchar_t *text, const std::wstring &expected) {
        textRow(promise, [=] {
            path_type type = kDevicePath;
            const bool answer = IsPathType(CString(text), &type);
            return (answer ? L"1 " : L"0 ") + std::to_wstring(int(type));
        }, expected);
    };
    wildcard("wildcard: asterisk", L"a*", L"1 2");
    wildcard("wildcard: question mark", L"?a", L"1 2");
    wildcard("wildcard: none", L"a.b", L"0 5");
    wildcard("wildcard: no text", L"", L"0 5");
    const auto cut = [](const char *promise, const wchar_t *text, const std::wstring &expected) {
        textRow(promise, [=] {
            CString string(text);
            CString *at = &string;
            GetPathStrNoExt(&at, L'/');
            return std::wstring(string);
        }, expected);
    };
    cut("cut: an extension", L"/a/b.c.d", L"/a/b.c");
    cut("cut: of a directory", L"/a.b/c", L"/a.b/c");
    cut("cut: none", L"abc", L"abc");
    cut("cut: no separator", L"a.b", L"a");
    const auto first = [](const char *promise, const wchar_t *text, const std::wstring &expected) {
        textRow(promise, [=] {
            CString string(text);
            upperPathFirstChar(string);
            return std::wstring(string);
        }, expected);
    };
    first("upper first: a drive", L"c:x", L"C:x");
    first("upper first: no colon", L"cx", L"cx");
    first("upper first: no text", L"", L"");
    const auto unquoted = [](const char *promise, const wchar_t *text, const std::wstring &expected) {
        textRow(promise, [=] {
            CString string(text);
            CRmUiPathname().Unquote(string);
            return std::wstring(string);
        }, expected);
    };
    unquoted("unquote: blanks around quotes", L" \"a b\" ", L"a b");
    unquoted("unquote: blanks inside stay", L"\" a \"", L" a ");
    unquoted("unquote: without quotes nothing is trimmed", L" a ", L" a ");
    unquoted("unquote: one quote", L" \" ", L" \" ");
    unquoted("unquote: one side", L" \"a ", L" \"a ");
    unquoted("unquote: nothing inside", L"\"\"", L"");
    textRow("strip: both ends", [] {
        CString string(L" \t a b ");
        CRmUiPathname().StripSpaces(string);
        return std::wstring(string);
    }, L"a b");
    textRow("last character", [] {
        CRmUiPathname path;
        return std::wstring(1, path.GetLastCharacter(CString(L"ab")))
            + (path.GetLastCharacter(CString()) ? L"?" : L"0");
    }, L"b0");
    textRow("first extension of a list, of one, of none", [] {
        const CRmUiPathname path;
        CString one, two, three(L"x");
        path.GetFirstExtInList(L"a;b;c", one);
        path.GetFirstExtInList(L"abc", two);
        path.GetFirstExtInList(L"", three);
        return std::wstring(one) + L'|' + std::wstring(two) + L'|' + std::wstring(three);
    }, L"a|abc|");
    textRow("lstrncpy_x: exactly n and a zero", [] {
        wchar_t buffer[] = L"xxxxxx";
        CRmUiPathname().lstrncpy_x(buffer, L"abcdef", 3);
        return std::wstring(buffer, 6);
    }, whole(L"abc\0xx"));
    textRow("GetVolumeInfo answers false, GetUNCScount leaves all", [] {
        CString root(L"C:/");
        wchar_t name[] = L"n";
        unsigned int number = 7;
        bool flag = true;
        int index = 8, length = 9;
        const bool answer = GetVolumeInfo(root, name, number, flag);
        GetUNCScount(&root, &index, number, length, L'/');
        return std::to_wstring(answer) + std::to_wstring(number) + std::to_wstring(index)
            + std::to_wstring(length) + std::to_wstring(flag) + name + std::wstring(root);
    }, L"07891nC:/");
}

void PathNamesTest::newObjectAndEmpty()
{
    Path path;
    QCOMPARE(shown(state(path)), QStringLiteral("3 null null 0 0"));
    QVERIFY(path.GetSeparator() == L'/' && !path.GetPathString() && !path.m_volume);
    const Volume volume;
    path = Path(kDirPath, kDriveCategory, L"a", L"d", &volume, L'!');
    path.m_qualified = true;
    QCOMPARE(read<std::uint32_t>(path, 8), 4u);
    QVERIFY(read<const void *>(path, 16) == &volume);
    QVERIFY(read<const CString *>(path, 24) == path.m_path);
    QVERIFY(read<const CString *>(path, 32) == path.m_directory);
    QCOMPARE(read<std::uint32_t>(path, 40), 0u);
    QVERIFY(read<wchar_t>(path, 44) == L'!' && read<std::uint8_t>(path, 48) == 1);
    path.Empty();
    QCOMPARE(shown(state(path)), QStringLiteral("0 null null 0 1"));
    QVERIFY(path.GetSeparator() == L'!' && !path.m_volume);
}

void PathNamesTest::copies()
{
    const Volume volume;
    Path source(kFilePath, kUNCCategory, L"a", L"d", &volume, L'!');
    source.m_qualified = true;
    Path assigned(kDirPath, kRootCategory, L"/b", L"");
    static_cast<CRmUiPathname &>(assigned) = source;
    const Path made(source);
    for (const Path *copy : {&static_cast<const Path &>(assigned), &made}) {
        QCOMPARE(shown(state(*copy)), QStringLiteral("1 [a] [d] 3 1"));
        QVERIFY(copy->m_volume == &volume && copy->m_separator == L'!');
        QVERIFY(copy->m_path != source.m_path && copy->m_directory != source.m_directory);
    }
    CRmUiPathname &same = source;
    same = static_cast<const CRmUiPathname &>(source);
    QCOMPARE(shown(state(source)), QStringLiteral("1 [a] [d] 3 1"));
    assigned = Path();
    QCOMPARE(shown(state(assigned)), QStringLiteral("3 null null 0 0"));
}

void PathNamesTest::copiesThroughTheVirtualOperation()
{
    struct Counting : CRmUiPathname {
        using CRmUiPathname::operator=;
        void AssignCopy(const CRmUiPathname &other) override { ++count; CRmUiPathname::AssignCopy(other); }
        int count = 0;
    } target;
    const Path source(kFilePath, kRootCategory, L"/a");
    static_cast<CRmUiPathname &>(target) = source;
    QCOMPARE(target.count, 1);
    QCOMPARE(shown(target.GetPathString()), QStringLiteral("/a"));
}

void PathNamesTest::parsesItself()
{
    Path path(kFilePath, kRootCategory, L"/none/x", L"");
    QCOMPARE(path.Parse(path.GetPathString()), 0);
    QCOMPARE(shown(state(path)), QStringLiteral("2 [/none/x] [] 1 1"));
    const Path base(kDirPath, kRootCategory, L"/base", L"");
    QCOMPARE(path.ParseRelative(path.GetPathString() + 6, &base), 0);
    QCOMPARE(shown(state(path)), QStringLiteral("3 [x] [/base] 1 0"));
}

void PathNamesTest::volumes()
{
    const CRmUiPathname path;
    QVERIFY(!path.FindVolumeDescriptor(CString()));
    QVERIFY(!path.FindVolumeDescriptor(CString(L"C:")) && !path.NewVolDescriptor(CString(L"C:")));
    CString name;
    QCOMPARE(int(path.GetFileSystem(name)), 1);
    name = L"C:";
    QCOMPARE(int(path.GetFileSystem(name)), 0);
    QCOMPARE(shown(name), QStringLiteral("C:/"));
    QCOMPARE(int(path.GetFileSystem(name)), 0);
    QCOMPARE(shown(name), QStringLiteral("C:/"));
    QVERIFY(volumeList.isEmpty());

    Volume first, second;
    const auto restore = qScopeGuard([] { volumeList.clear(); });
    volumeList = {&first, &second};
    QVERIFY(path.FindVolumeDescriptor(CString(L"C:")) == &first);
    QVERIFY(!path.FindVolumeDescriptor(CString(L"c:")) && !path.FindVolumeDescriptor(CString(L"C")));
    Path parsed;
    QCOMPARE(parsed.ParseRelative(L"c:\\x", nullptr), 0);
    QVERIFY(parsed.m_volume == &first);
    QCOMPARE(shown(first.asked), QStringLiteral("C:/x"));
    QCOMPARE(shown(state(parsed)), QStringLiteral("0 [C:/x] null 1 1"));
    Path child;
    QCOMPARE(child.ParseRelative(L"y", &parsed), 0); // The base's volume.
    QVERIFY(child.m_volume == &first);
    QCOMPARE(shown(first.asked), QStringLiteral("y"));
    QCOMPARE(shown(state(child)), QStringLiteral("3 [y] [C:/x] 1 0"));
    QCOMPARE(child.ParseRelative(L"/y", &parsed), 0); // Rooted: none.
    QVERIFY(!child.m_volume);
    QVERIFY(second.asked.IsEmpty());
}

void PathNamesTest::fullPathIsNormalisedByTheService()
{
    struct Service : KxFileSystemService {
        bool normalizePath(const wchar_t *path, std::wstring &normalized) const override
        {
            if (!answer)
                return false;
            normalized = L"<" + std::wstring(path) + L">";
            return true;
        }
        bool answer = true;
    } service;
    platformServices()->setFileSystemService(&service);
    const auto restore = qScopeGuard([] { platformServices()->setFileSystemService(nullptr); });
    const Path path(kFilePath, kRelativeCategory, L"../a", L"/d");
    CString out;
    QVERIFY(path.GetFullPath(out));
    QCOMPARE(shown(out), QStringLiteral("</d/../a>"));
    service.answer = false;
    QVERIFY(path.GetFullPath(out));
    QCOMPARE(shown(out), QStringLiteral("/d/../a"));
}

KX_TEST_MAIN(PathNamesTest)
#include "tst_path_names.moc"
