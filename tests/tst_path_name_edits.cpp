// SPDX-License-Identifier: MIT
// What changes a path name, shortens it for display, and compares it.

#include "KxTestCase.h"
#include "KxTextRows.h"

#include <QRmUiNTFSVolumeDescriptor.h>
#include <QRmUiPathname.h>

#include <functional>
#include <string>

namespace {

/// A path name in a state of its own.
struct Path : CRmUiPathname {
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
};

Path drive(const wchar_t *path, const CRmUiVolumeDescriptor *volume = nullptr)
{
    return Path(kFilePath, kDriveCategory, path, nullptr, volume);
}

Path rooted(const wchar_t *path)
{
    return Path(kFilePath, kRootCategory, path, L"");
}

Path relative(const wchar_t *path)
{
    return Path(kFilePath, kRelativeCategory, path, L"/base");
}

/// On the volume `//s/h`, whose name has five characters.
Path unc(const wchar_t *path)
{
    static const CRmUiNTFSVolumeDescriptor share(CString(L"//s/h"));
    return Path(kFilePath, kUNCCategory, path, nullptr, &share);
}

Path untyped(path_type type)
{
    return Path(type, kRelativeCategory, L"a/b.txt", L"/base");
}

Path withoutText()
{
    return Path(kFilePath, kRelativeCategory, nullptr);
}

using Edit = std::function<int(CRmUiPathname &)>;

/// The status, the path string and the type after an edit, "0 /a 1".
std::wstring after(Path path, const Edit &edit)
{
    const int status = edit(path);
    const wchar_t *text = path.GetPathString();
    return std::to_wstring(status) + L' ' + (text ? text : L"(null)") + L' '
        + std::to_wstring(int(path.GetPathType()));
}

void editRow(const char *promise, const Path &path, const Edit &edit, const std::wstring &expected)
{
    textRow(promise, [=] { return after(path, edit); }, expected);
}

/// An edit that has no status counts as 0.
template<typename Member>
Edit quiet(Member member)
{
    return [member](CRmUiPathname &path) { return (path.*member)(), 0; };
}

int trim(CRmUiPathname &path) { return path.Trim(); }
int trimSlash(CRmUiPathname &path) { return path.TrimSlash(); }
int trimComponent(CRmUiPathname &path) { return path.TrimComponent(); }
int appendSlash(CRmUiPathname &path) { return path.AppendSlash(); }
int removeExtension(CRmUiPathname &path) { return path.RemoveExtensionAlways(); }

template<typename Member>
Edit with(Member member, const wchar_t *text)
{
    return [member, text](CRmUiPathname &path) { return (path.*member)(text); };
}

Edit append(const wchar_t *text) { return with(&CRmUiPathname::Append, text); }
Edit component(const wchar_t *text) { return with(&CRmUiPathname::AppendComponent, text); }
Edit replace(const wchar_t *text) { return with(&CRmUiPathname::ReplaceExtensionAlways, text); }
Edit replaceIf(const wchar_t *text) { return with(&CRmUiPathname::ReplaceExtensionIfNoMatch, text); }
Edit add(const wchar_t *text) { return with(&CRmUiPathname::AddExtensionAlways, text); }
Edit addIf(const wchar_t *text) { return with(&CRmUiPathname::AddExtensionIfNoMatch, text); }

} // namespace

class PathNameEditsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void trims_data();
    void trims() { checkText(); }
    void appends_data();
    void appends() { checkText(); }
    void extensions_data();
    void extensions() { checkText(); }
    void verifies_data();
    void verifies();
    void baseNames_data();
    void baseNames() { checkText(); }
    void displayName_data();
    void displayName() { checkText(); }
    void pathMatch_data();
    void pathMatch();
    void caseMappingThatFails();

private:
    static void textColumns();
    static void checkText();
};

void PathNameEditsTest::textColumns()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");
}

void PathNameEditsTest::checkText()
{
    QFETCH(TextCall, call);
    QFETCH(QString, expected);
    QCOMPARE(shown(call()), expected);
}

void PathNameEditsTest::trims_data()
{
    textColumns();

    editRow("Trim: empty object", Path(kNoPath, kRootCategory, nullptr), trim, L"2 (null) 0");
    editRow("Trim: device", untyped(kDevicePath), trim, L"2 a/b.txt 5");
    editRow("Trim: no path string", withoutText(), trim, L"2 (null) 3");
    editRow("Trim: new path", untyped(kNewPath), trim, L"0 a/ 1");
    editRow("Trim: wildcard", untyped(kWildcardPath), trim, L"0 a/ 1");
    editRow("Trim: directory", untyped(kDirPath), trim, L"0 a/ 1");
    editRow("Trim: separator last, nothing happens", rooted(L"/a/"), trim, L"0 /a/ 3");
    editRow("Trim: root, nothing happens", rooted(L"/"), trim, L"0 / 3");
    editRow("Trim: rooted", rooted(L"/a/b"), trim, L"0 /a/ 1");
    editRow("Trim: rooted, one component", rooted(L"/a"), trim, L"0 / 1");
    editRow("Trim: rooted, no separator", rooted(L"a"), trim, L"4 a 3");
    editRow("Trim: relative", relative(L"a/b/c"), trim, L"0 a/b/ 1");
    editRow("Trim: relative, no separator", relative(L"a"), trim, L"3 a 3");
    editRow("Trim: relative, empty string", relative(L""), trim, L"3  3");
    editRow("Trim: drive", drive(L"C:/a/b"), trim, L"0 C:/a/ 1");
    editRow("Trim: drive, one component", drive(L"C:/a"), trim, L"0 C:/ 1");
    editRow("Trim: drive root, nothing happens", drive(L"C:/"), trim, L"0 C:/ 3");
    editRow("Trim: drive without separator gets one", drive(L"C:abc"), trim, L"0 C:/ 1");
    editRow("Trim: drive alone gets a separator", drive(L"C:"), trim, L"0 C:/ 1");
    editRow("Trim: drive, relative to it", drive(L"C:a/b"), trim, L"0 C:a/ 1");
    editRow("Trim: drive without colon", drive(L"abc"), trim, L"4 abc 3");
    editRow("Trim: share", unc(L"//s/h/a"), trim, L"0 //s/h/ 1");
    editRow("Trim: share, two components", unc(L"//s/h/a/b"), trim, L"0 //s/h/a/ 1");
    editRow("Trim: share itself", unc(L"//s/h"), trim, L"3 //s/h 3");
    editRow("Trim: share without separator", unc(L"s"), trim, L"4 s 3");
    editRow("Trim: the separator is the object's", Path(kNewPath, kRootCategory, L"!a/b!c", L"", nullptr,
            L'!'),
            trim, L"0 !a/b! 1");

    editRow("TrimSlash: empty object", Path(kNoPath, kRootCategory, nullptr), trimSlash, L"2 (null) 0");
    editRow("TrimSlash: device", untyped(kDevicePath), trimSlash, L"2 a/b.txt 5");
    editRow("TrimSlash: no path string", withoutText(), trimSlash, L"2 (null) 3");
    editRow("TrimSlash: no separator last", rooted(L"/a"), trimSlash, L"0 /a 3");
    editRow("TrimSlash: empty string", relative(L""), trimSlash, L"0  3");
    editRow("TrimSlash: rooted", rooted(L"/a/"), trimSlash, L"0 /a 1");
    editRow("TrimSlash: rooted, one of two", rooted(L"/a//"), trimSlash, L"0 /a/ 1");
    editRow("TrimSlash: the root stays", rooted(L"/"), trimSlash, L"3 / 3");
    editRow("TrimSlash: two roots", rooted(L"//"), trimSlash, L"0 / 1");
    editRow("TrimSlash: relative", relative(L"a/"), trimSlash, L"0 a 1");
    editRow("TrimSlash: relative, the lone separator", relative(L"/"), trimSlash, L"0  1");
    editRow("TrimSlash: drive", drive(L"C:/a/"), trimSlash, L"0 C:/a 1");
    editRow("TrimSlash: drive root stays", drive(L"C:/"), trimSlash, L"3 C:/ 3");
    editRow("TrimSlash: drive, relative to it", drive(L"C:a/"), trimSlash, L"0 C:a 1");
    editRow("TrimSlash: drive root with two", drive(L"C://"), trimSlash, L"0 C:/ 1");
    editRow("TrimSlash: share stays", unc(L"//s/h/"), trimSlash, L"3 //s/h/ 3");
    editRow("TrimSlash: below the share", unc(L"//s/"), trimSlash, L"3 //s/ 3");
    editRow("TrimSlash: behind the share", unc(L"//s/h/a/"), trimSlash, L"0 //s/h/a 1");
    editRow("TrimSlash: one character more than the share", unc(L"//s/hh/"), trimSlash, L"0 //s/hh 1");
    const auto other = static_cast<path_category>(4);
    editRow("TrimSlash: no such category", Path(kFilePath, other, L"a/"), trimSlash, L"4 a/ 3");
    editRow("TrimSlash: no such category, no separator", Path(kFilePath, other, L"a"), trimSlash, L"0 a 3");

    editRow("TrimComponent: empty object", Path(kNoPath, kRootCategory, nullptr), trimComponent,
            L"2 (null) 0");
    editRow("TrimComponent: device", untyped(kDevicePath), trimComponent, L"2 a/b.txt 5");
    editRow("TrimComponent: no path string", withoutText(), trimComponent, L"2 (null) 3");
    editRow("TrimComponent: rooted", rooted(L"/a/b"), trimComponent, L"0 /a 1");
    editRow("TrimComponent: rooted, the root stays", rooted(L"/abc"), trimComponent, L"0 / 1");
    editRow("TrimComponent: root", rooted(L"/"), trimComponent, L"0 / 1");
    editRow("TrimComponent: rooted, separator last", rooted(L"/a/"), trimComponent, L"0 /a 1");
    editRow("TrimComponent: rooted, no separator", rooted(L"a"), trimComponent, L"4 a 3");
    editRow("TrimComponent: relative", relative(L"a/b"), trimComponent, L"0 a 1");
    editRow("TrimComponent: relative, separator last", relative(L"a/"), trimComponent, L"0 a 1");
    editRow("TrimComponent: relative, no separator", relative(L"a"), trimComponent, L"3 a 3");
    editRow("TrimComponent: drive", drive(L"C:/a/b"), trimComponent, L"0 C:/a 1");
    editRow("TrimComponent: drive, one component", drive(L"C:/a"), trimComponent, L"0 C:/ 1");
    editRow("TrimComponent: drive root", drive(L"C:/"), trimComponent, L"0 C:/ 1");
    editRow("TrimComponent: drive without separator", drive(L"C:abc"), trimComponent, L"0 C:/ 1");
    editRow("TrimComponent: drive alone", drive(L"C:"), trimComponent, L"0 C:/ 1");
    editRow("TrimComponent: drive, relative to it", drive(L"C:a/b"), trimComponent, L"0 C:a 1");
    editRow("TrimComponent: share", unc(L"//s/h/a"), trimComponent, L"0 //s/h 1");
    editRow("TrimComponent: share, two components", unc(L"//s/h/a/b"), trimComponent, L"0 //s/h/a 1");
    editRow("TrimComponent: share itself", unc(L"//s/h"), trimComponent, L"3 //s/h 3");
    editRow("TrimComponent: share without separator", unc(L"s"), trimComponent, L"4 s 3");
}

void PathNameEditsTest::appends_data()
{
    textColumns();

    editRow("Append: empty object", Path(kNoPath, kRootCategory, nullptr), append(L"x"), L"2 (null) 0");
    editRow("Append: device", untyped(kDevicePath), append(L"x"), L"2 a/b.txt 5");
    editRow("Append: no path string", withoutText(), append(L"x"), L"2 (null) 3");
    editRow("Append: as it is", rooted(L"/a"), append(L"b/c\\d:"), L"0 /ab/c\\d: 1");
    editRow("Append: nothing makes it new too", rooted(L"/a"), append(L""), L"0 /a 1");
    editRow("Append: wildcard", untyped(kWildcardPath), append(L"x"), L"0 a/b.txtx 1");
    editRow("Append: itself", relative(L"ab"),
            [](CRmUiPathname &path) { return path.Append(path.GetPathString()); }, L"0 abab 1");
    editRow("Append: itself, long", relative(L"0123456789012345678901234567890123456789"),
            [](CRmUiPathname &path) { return path.Append(path.GetPathString() + 30); },
            L"0 01234567890123456789012345678901234567890123456789 1");

    editRow("AppendSlash: empty object", Path(kNoPath, kRootCategory, nullptr), appendSlash, L"2 (null) 0");
    editRow("AppendSlash: device", untyped(kDevicePath), appendSlash, L"2 a/b.txt 5");
    editRow("AppendSlash: no path string", withoutText(), appendSlash, L"2 (null) 3");
    editRow("AppendSlash: the type stays", rooted(L"/a"), appendSlash, L"0 /a/ 3");
    editRow("AppendSlash: there is one", rooted(L"/a/"), appendSlash, L"0 /a/ 3");
    editRow("AppendSlash: not behind a colon", drive(L"C:"), appendSlash, L"0 C: 3");
    editRow("AppendSlash: not to an empty string", relative(L""), appendSlash, L"0  3");
    editRow("AppendSlash: a backslash is none", rooted(L"/a\\"), appendSlash, L"0 /a\\/ 3");
    editRow("AppendSlash: the separator is the object's", Path(kDirPath, kRootCategory, L"!a/", L"",
            nullptr, L'!'),
            appendSlash, L"0 !a/! 4");

    editRow("AppendComponent: empty object", Path(kNoPath, kRootCategory, nullptr), component(L"x"),
            L"2 (null) 0");
    editRow("AppendComponent: device", untyped(kDevicePath), component(L"x"), L"2 a/b.txt 5");
    editRow("AppendComponent: no path string", withoutText(), component(L"x"), L"2 (null) 3");
    editRow("AppendComponent: with a separator", rooted(L"/a"), component(L"b"), L"0 /a/b 1");
    editRow("AppendComponent: there is one", rooted(L"/a/"), component(L"b"), L"0 /a/b 1");
    editRow("AppendComponent: behind a colon too", drive(L"C:"), component(L"b"), L"0 C:/b 1");
    editRow("AppendComponent: empty string gets one", relative(L""), component(L"b"), L"0 /b 1");
    editRow("AppendComponent: null", rooted(L"/a"), component(nullptr), L"0 /a/ 1");
    editRow("AppendComponent: null behind a separator", rooted(L"/a/"), component(nullptr), L"0 /a/ 1");
    editRow("AppendComponent: nothing", rooted(L"/a"), component(L""), L"0 /a/ 1");
    editRow("AppendComponent: one with a separator in front", rooted(L"/a"), component(L"/b"), L"0 /a//b 1");
    editRow("AppendComponent: itself", relative(L"ab"),
            [](CRmUiPathname &path) { return path.AppendComponent(path.GetPathString()); }, L"0 ab/ab 1");
}

void PathNameEditsTest::extensions_data()
{
    textColumns();
    const Path none(kNoPath, kRelativeCategory, nullptr);

    editRow("Replace: object before argument", none, replace(nullptr), L"2 (null) 0");
    editRow("Replace: empty object", none, replace(L"x"), L"2 (null) 0");
    editRow("Replace: device", untyped(kDevicePath), replace(L"x"), L"2 a/b.txt 5");
    editRow("Replace: null", relative(L"a.txt"), replace(nullptr), L"1 a.txt 3");
    editRow("Replace: another", relative(L"a.txt"), replace(L"dwg"), L"0 a.dwg 1");
    editRow("Replace: with its period", relative(L"a.txt"), replace(L".dwg"), L"0 a.dwg 1");
    editRow("Replace: with two periods", relative(L"a.txt"), replace(L"..dwg"), L"0 a..dwg 1");
    editRow("Replace: by a period", relative(L"a.txt"), replace(L"."), L"0 a. 1");
    editRow("Replace: by nothing", relative(L"a.txt"), replace(L""), L"0 a 1");
    editRow("Replace: nothing there", relative(L"a"), replace(L"dwg"), L"0 a.dwg 1");
    editRow("Replace: nothing by nothing", relative(L"a"), replace(L""), L"0 a 1");
    editRow("Replace: the last of two", relative(L"a.tar.gz"), replace(L"x"), L"0 a.tar.x 1");
    editRow("Replace: a period of a directory stays", rooted(L"/a.b/c"), replace(L"x"), L"0 /a.b/c.x 1");
    editRow("Replace: behind a separator", rooted(L"/a.b/"), replace(L"x"), L"0 /a.b/.x 1");
    editRow("Replace: a period first", rooted(L"/a/.hidden"), replace(L"x"), L"0 /a/.x 1");
    editRow("Replace: wildcard", Path(kWildcardPath, kRelativeCategory, L"*.a"), replace(L"b"), L"0 *.b 1");
    editRow("Replace: by itself", relative(L"a.txt"),
            [](CRmUiPathname &path) { return path.ReplaceExtensionAlways(path.GetPathString()); },
            L"0 a.a.txt 1");

    editRow("Add: argument before object", none, add(nullptr), L"1 (null) 0");
    editRow("Add: empty object", none, add(L"x"), L"2 (null) 0");
    editRow("Add: device", untyped(kDevicePath), add(L"x"), L"2 a/b.txt 5");
    editRow("Add: null", relative(L"a.txt"), add(nullptr), L"1 a.txt 3");
    editRow("Add: nothing is removed", relative(L"a.txt"), add(L"bak"), L"0 a.txt.bak 1");
    editRow("Add: a period is not looked at", relative(L"a.txt"), add(L".bak"), L"0 a.txt..bak 1");
    editRow("Add: nothing makes it new too", relative(L"a.txt"), add(L""), L"0 a.txt 1");
    editRow("Add: to none", relative(L"a"), add(L"bak"), L"0 a.bak 1");
    editRow("Add: itself", relative(L"a.b"),
            [](CRmUiPathname &path) { return path.AddExtensionAlways(path.GetPathString()); },
            L"0 a.b.a.b 1");

    editRow("ReplaceIf: it is the first", relative(L"a.dwg"), replaceIf(L"dwg;dxf"), L"0 a.dwg 3");
    editRow("ReplaceIf: it is another", relative(L"a.DXF"), replaceIf(L"dwg;dxf"), L"0 a.DXF 3");
    editRow("ReplaceIf: it is none: the first", relative(L"a.txt"), replaceIf(L"dwg;dxf"), L"0 a.dwg 1");
    editRow("ReplaceIf: there is none", relative(L"a"), replaceIf(L"dwg;dxf"), L"0 a.dwg 1");
    editRow("ReplaceIf: no list, an extension", relative(L"a.txt"), replaceIf(L""), L"0 a 1");
    editRow("ReplaceIf: no list, no extension", relative(L"a"), replaceIf(L""), L"0 a 3");
    editRow("ReplaceIf: empty object", none, replaceIf(L"dwg"), L"2 (null) 0");

    editRow("AddIf: it is the first", relative(L"a.dwg"), addIf(L"dwg;dxf"), L"0 a.dwg 3");
    editRow("AddIf: it is another", relative(L"a.dxf"), addIf(L"dwg;dxf"), L"0 a.dxf 3");
    editRow("AddIf: it is none: the first", relative(L"a.txt"), addIf(L"dwg;dxf"), L"0 a.txt.dwg 1");
    editRow("AddIf: there is none", relative(L"a"), addIf(L"dwg"), L"0 a.dwg 1");
    editRow("AddIf: no list, an extension", relative(L"a.txt"), addIf(L""), L"0 a.txt 1");
    editRow("AddIf: no list, no extension", relative(L"a"), addIf(L""), L"0 a 3");
    editRow("AddIf: empty object", none, addIf(L"dwg"), L"2 (null) 0");

    editRow("Remove: an extension", relative(L"a.txt"), removeExtension, L"0 a 1");
    editRow("Remove: the last of two", relative(L"a.tar.gz"), removeExtension, L"0 a.tar 1");
    editRow("Remove: none", relative(L"a"), removeExtension, L"0 a 1");
    editRow("Remove: of a directory", rooted(L"/a.b/c"), removeExtension, L"0 /a.b/c 1");
    const auto removeQuietly = [](CRmUiPathname &path) { path.RemoveExtensionAlways(); return 0; };
    editRow("Remove: device", untyped(kDevicePath), removeQuietly, L"0 a/b.txt 5");
    const auto removeIf = [](const wchar_t *list) -> Edit {
        return [list](CRmUiPathname &path) { path.RemoveExtensionIfMatch(list); return 0; };
    };
    editRow("RemoveIf: it is one", relative(L"a.DXF"), removeIf(L"dwg;dxf"), L"0 a 1");
    editRow("RemoveIf: it is none", relative(L"a.txt"), removeIf(L"dwg;dxf"), L"0 a.txt 3");
    editRow("RemoveIf: there is none", relative(L"a"), removeIf(L"dwg"), L"0 a 3");
    editRow("RemoveIf: no list, an extension", relative(L"a.txt"), removeIf(L""), L"0 a.txt 3");
}

void PathNameEditsTest::verifies_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("list");
    QTest::addColumn<bool>("expected");

    QTest::newRow("no list, no extension") << "a" << "" << true;
    QTest::newRow("no list, an extension") << "a.txt" << "" << false;
    QTest::newRow("a list, no extension") << "a" << "dwg;dxf" << false;
    QTest::newRow("no extension, a directory has one") << "a.dwg/b" << "dwg" << false;
    QTest::newRow("no list, a directory has one") << "a.dwg/b" << "" << true;
    QTest::newRow("the only one") << "a.dwg" << "dwg" << true;
    QTest::newRow("the first") << "a.dwg" << "dwg;dxf" << true;
    QTest::newRow("the last, without regard to case") << "a.dxf" << "dwg;DXF" << true;
    QTest::newRow("the middle one") << "a.B" << "a;b;c" << true;
    QTest::newRow("none") << "a.txt" << "dwg;dxf" << false;
    QTest::newRow("a part of one") << "a.dw" << "dwg;dxf" << false;
    QTest::newRow("more than one") << "a.dwgx" << "dwg;dxf" << false;
    QTest::newRow("two of them") << "a.dwg;dxf" << "dwg;dxf" << false;
    QTest::newRow("a period in the list") << "a.dwg" << ".dwg" << false;
    QTest::newRow("a blank in the list") << "a.dxf" << "dwg; dxf" << false;
    QTest::newRow("a semicolon at the end") << "a.dxf" << "dwg;dxf;" << true;
    QTest::newRow("letters outside ASCII have one case")
        << QStringLiteral(u"a.\u00e4") << QStringLiteral(u"\u00c4") << false;
}

void PathNameEditsTest::verifies()
{
    QFETCH(QString, path);
    QFETCH(QString, list);
    QFETCH(bool, expected);
    const Path name = relative(path.toStdWString().c_str());
    QCOMPARE(name.VerifyExtension(list.toStdWString().c_str()), expected);
    QCOMPARE(name.GetPathType(), kFilePath);
}

void PathNameEditsTest::baseNames_data()
{
    textColumns();
    const auto spaces = quiet(&CRmUiPathname::RemoveSpaces);
    const auto text = [](const char *promise, const Path &path, const Edit &edit,
                         const std::wstring &expected) {
        textRow(promise, [=] {
            Path changed = path;
            edit(changed);
            return std::wstring(changed.GetPathString() ? changed.GetPathString() : L"(null)");
        }, expected);
    };
    text("spaces: around the name", relative(L" a .txt"), spaces, L"a.txt");
    text("spaces: inside they stay", relative(L" a b .txt"), spaces, L"a b.txt");
    text("spaces: those of the extension stay", relative(L" a . txt "), spaces, L"a. txt ");
    text("spaces: those of the directory stay", rooted(L"/ d / a "), spaces, L"/ d /a");
    text("spaces: behind a colon", drive(L"C: a .b"), spaces, L"C:a.b");
    text("spaces: without extension", relative(L" a "), spaces, L"a");
    text("spaces: only those", rooted(L"/d/  "), spaces, L"/d/");
    text("spaces: the last period splits", relative(L" a .b .c"), spaces, L"a .b.c");
    text("spaces: a period", relative(L"."), spaces, L".");
    text("spaces: two periods", relative(L".."), spaces, L"..");
    text("spaces: none", rooted(L"/d/a.b"), spaces, L"/d/a.b");
    text("spaces: empty string", relative(L""), spaces, L"");
    text("spaces: empty object", Path(kNoPath, kRootCategory, nullptr), spaces, L"(null)");

    const auto lower = quiet(&CRmUiPathname::BaseToLower);
    const auto upper = quiet(&CRmUiPathname::BaseToUpper);
    text("lower: the base name only", rooted(L"/DIR/File.TXT"), lower, L"/DIR/file.txt");
    text("lower: behind a colon", drive(L"C:FILE"), lower, L"C:file");
    text("lower: the whole text", relative(L"FILE"), lower, L"file");
    text("lower: no base name", rooted(L"/DIR/"), lower, L"/DIR/");
    text("lower: the same text before", rooted(L"/AB/AB"), lower, L"/AB/ab");
    text("lower: empty object", Path(kNoPath, kRootCategory, nullptr), lower, L"(null)");
    text("upper: the base name only", rooted(L"/dir/File.txt"), upper, L"/dir/FILE.TXT");
    text("upper: behind a colon", drive(L"C:file"), upper, L"C:FILE");
    text("upper: the whole text", relative(L"file"), upper, L"FILE");
    text("upper: no base name", rooted(L"/dir/"), upper, L"/dir/");
    text("upper: empty object", Path(kNoPath, kRootCategory, nullptr), upper, L"(null)");
}

void PathNameEditsTest::displayName_data()
{
    textColumns();
    const auto row = [](const char *promise, const Path &path, int length, const std::wstring &expected) {
        textRow(promise, [=] {
            CString out(L"before");
            path.GetDisplayName(out, length);
            return std::wstring(out);
        }, expected);
    };
    const auto long20 = L"/d/abcdefghijklmnopqrst.txt";
    static const CRmUiNTFSVolumeDescriptor volume(CString(L"VOLUME"));

    row("empty object", Path(kNoPath, kRootCategory, nullptr), 20, L"");
    row("device", untyped(kDevicePath), 20, L"");
    row("it fits", rooted(L"/a/b.txt"), 20, L"/a/b.txt");
    row("it fits exactly", rooted(L"/alpha/b.txt"), 12, L"/alpha/b.txt");
    row("-1 is the full length", rooted(long20), -1, long20);
    row("5 is 12", rooted(long20), 5, L"abcdefg~.txt");
    row("5 is 12, it fits", rooted(L"/alpha/b.txt"), 5, L"/alpha/b.txt");
    row("0 is 12", rooted(long20), 0, L"abcdefg~.txt");
    row("-2 is 12", rooted(long20), -2, L"abcdefg~.txt");
    row("11 is 12", rooted(long20), 11, L"abcdefg~.txt");
    row("20 letters and .txt at 12", relative(L"abcdefghijklmnopqrst.txt"), 12, L"abcdefg~.txt");
    row("the same at 13", rooted(long20), 13, L"abcdefgh~.txt");
    row("the same at 23, the base name has 24", rooted(long20), 23, L"abcdefghijklmnopqr~.txt");
    row("the same at 24: the base name alone", rooted(long20), 24, L"abcdefghijklmnopqrst.txt");
    row("no extension: one short of the length", rooted(L"/d/abcdefghijklmnop"), 12, L"abcdefghij~");
    row("extension of 9 at 12 has room", rooted(L"/d/abcdef.123456789"), 12, L"a~.123456789");
    row("extension of 10 at 12 has none", rooted(L"/d/abcdef.1234567890"), 12, L"abcdef.123~");
    row("a drive's long base name", drive(L"C:/d/abcdefghijklmnopqrst.txt"), 12, L"abcdefg~.txt");
    row("a wildcard", Path(kWildcardPath, kRootCategory, L"/d/abcdefghijklmnop*"), 12, L"abcdefghij~");

    const auto rootedPath = L"/alpha/beta/gamma/file.txt"; // 26
    row("rooted: base name and 4 are too long", rooted(L"/alpha/file5.txt"), 12, L"file5.txt");
    row("rooted: base name and 4 fit, the tail does not", rooted(L"/alpha/file.txt"), 12, L"file.txt");
    row("rooted: the tail fits exactly", rooted(L"/alpha/file.tx"), 12, L".../file.tx");
    row("rooted: the last directory", rooted(rootedPath), 19, L".../gamma/file.txt");
    row("rooted: one short of that", rooted(rootedPath), 18, L".../file.txt");
    row("rooted: two directories", rooted(rootedPath), 24, L".../beta/gamma/file.txt");
    row("rooted: one short of two", rooted(rootedPath), 23, L".../gamma/file.txt");
    row("rooted: one short of all", rooted(rootedPath), 25, L".../beta/gamma/file.txt");
    row("rooted: separator last", rooted(L"/alpha/beta/gamma/"), 12, L".../gamma/");
    row("relative: two directories", relative(L"alpha/beta/gamma/file.txt"), 24, L".../beta/gamma/file.txt");
    row("relative: one directory", relative(L"alpha/beta/gamma/file.txt"), 20, L".../gamma/file.txt");
    row("relative: base name alone", relative(L"alpha/file5.txt"), 12, L"file5.txt");

    const auto drivePath = L"C:/alpha/beta/file.txt"; // 22
    row("drive: letter, colon, backslash, dots", drive(drivePath), 15, L"C:\\.../file.txt");
    row("drive: base name and 7 are too long", drive(drivePath), 14, L"file.txt");
    row("drive: with a directory", drive(drivePath), 20, L"C:\\.../beta/file.txt");
    row("drive: one short of that", drive(drivePath), 19, L"C:\\.../file.txt");
    row("drive: one short of all", drive(drivePath), 21, L"C:\\.../beta/file.txt");
    row("drive: relative to it", drive(L"C:alpha/beta/file.txt"), 20, L"C:\\.../beta/file.txt");
    row("drive: the base name behind the colon", drive(L"C:abcdefghijkl"), 13, L"abcdefghijkl");
    row("drive: the prefix is as long as the volume's name", drive(drivePath, &volume), 20,
        L"C:/alp\\.../file.txt");
    row("drive: base name and volume's name are too long", drive(drivePath, &volume), 18, L"file.txt");
    row("share: its name", unc(L"//s/h/alpha/beta/file.txt"), 20, L"//s/h\\.../file.txt");
    row("share: with a directory", unc(L"//s/h/alpha/beta/file.txt"), 24, L"//s/h\\.../beta/file.txt");
    row("share: base name and 10 are too long", unc(L"//s/h/alpha/beta/file.txt"), 17, L"file.txt");
    row("share without descriptor: no prefix", Path(kFilePath, kUNCCategory, L"//s/h/alpha/beta/file.txt"),
            20,
        L"\\.../beta/file.txt");
    row("the separator is the object's", Path(kFilePath, kRootCategory, L"!alpha!be/ta!file.tx", L"",
            nullptr, L'!'),
        12, L"...!file.tx");
}

void PathNameEditsTest::pathMatch_data()
{
    QTest::addColumn<NumberCall>("call");
    QTest::addColumn<qint64>("expected");

    const auto text = [](const char *promise, const Path &path, const wchar_t *other, bool expected) {
        numberRow(promise, [=] { return qint64(path.PathMatch(other)); }, expected);
    };
    const wchar_t *const none = nullptr;
    text("text: null", rooted(L"/a"), none, false);
    text("text: the same", rooted(L"/a/b"), L"/a/b", true);
    text("text: another case", rooted(L"/a/B"), L"/A/b", true);
    text("text: another path", rooted(L"/a/b"), L"/a/c", false);
    text("text: a separator at its end", rooted(L"/a/b"), L"/a/b/", true);
    text("text: a separator at the path's end", rooted(L"/a/b/"), L"/a/b", true);
    text("text: both with a separator", rooted(L"/a/b/"), L"/a/b/", true);
    text("text: two separators at its end", rooted(L"/a/b"), L"/a/b//", false);
    text("text: a small drive letter", drive(L"C:/a"), L"c:/a", true);
    text("text: a backslash is no separator", rooted(L"/a/b"), L"/a\\b", false);
    text("text: the full path counts", relative(L"x"), L"/base/x", true);
    text("text: the path string does not", relative(L"x"), L"x", false);
    text("text: the full path is normalised", rooted(L"/a/./b/../c"), L"/a/c", true);
    text("text: the other is not", rooted(L"/a/c"), L"/a/./c", false);
    text("text: empty object", Path(kNoPath, kRootCategory, nullptr), L"", false);
    text("text: letters outside ASCII have one case", rooted(L"/\u00e4"), L"/\u00c4", false);

    const auto object = [](const char *promise, const Path &path, const Path &other, bool expected) {
        numberRow(promise, [=] { return qint64(path.PathMatch(&other)); }, expected);
    };
    static const CRmUiNTFSVolumeDescriptor one(CString(L"C:"));
    static const CRmUiNTFSVolumeDescriptor another(CString(L"C:"));
    numberRow("object: null", [] {
        return qint64(rooted(L"/a").PathMatch(static_cast<const CRmUiPathname *>(nullptr)));
    }, 0);
    numberRow("object: the same one", [] {
        const Path path = rooted(L"/a");
        return qint64(path.PathMatch(&path));
    }, 1);
    numberRow("object: the same one, empty", [] {
        const CRmUiPathname path;
        return qint64(path.PathMatch(&path));
    }, 1);
    object("object: equal", rooted(L"/a/b"), rooted(L"/A/B/"), true);
    object("object: another path", rooted(L"/a/b"), rooted(L"/a/c"), false);
    object("object: relative and rooted", rooted(L"/base/x"), relative(L"x"), true);
    object("object: both are normalised", rooted(L"/a/./c"), rooted(L"/a/b/../c"), true);
    object("object: the same volume", drive(L"C:/a", &one), drive(L"C:/a", &one), true);
    object("object: another volume of the same name", drive(L"C:/a", &one), drive(L"C:/a", &another), false);
    object("object: a volume and none", drive(L"C:/a", &one), drive(L"C:/a"), false);
    object("object: an empty one", rooted(L"/a"), Path(kNoPath, kRootCategory, nullptr), false);
}

void PathNameEditsTest::pathMatch()
{
    QFETCH(NumberCall, call);
    QFETCH(qint64, expected);
    QCOMPARE(call(), expected);
}

/// A character that cannot be mapped leaves the base name as it was.
void PathNameEditsTest::caseMappingThatFails()
{
    const GlobalLocale locale(oddLocale());
    Path path = rooted(L"/d/ab!Q");
    path.BaseToUpper();
    QCOMPARE(shown(path.GetPathString()), QStringLiteral("/d/ab!Q"));
    path.BaseToLower();
    QCOMPARE(shown(path.GetPathString()), QStringLiteral("/d/ab!Q"));
}

KX_TEST_MAIN(PathNameEditsTest)
#include "tst_path_name_edits.moc"
