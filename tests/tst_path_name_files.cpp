// SPDX-License-Identifier: MIT
// What a path name asks the disk for.

#include "KxChildOutcome.h"
#include "KxFileSandbox.h"
#include "KxTestCase.h"
#include "KxTextRows.h"

#include <QRmUiPathname.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Path : CRmUiPathname {
    Path() = default;
    Path(path_type type, path_category category, const std::wstring &path, const wchar_t *directory = nullptr)
    {
        m_type = type;
        m_category = category;
        m_path = new CString(path);
        m_directory = directory ? new CString(directory) : nullptr;
    }
    void setType(path_type type) { m_type = type; }
    void setSeparator(wchar_t separator) { m_separator = separator; }

    using CRmUiPathname::m_directory;
    using CRmUiPathname::m_path;
};

QString text(const CRmUiPathname &path)
{
    return path.GetPathString() ? shown(path.GetPathString()) : QStringLiteral("(null)");
}

/// The five digits of the next random number.
QString nextDigits()
{
    return QStringLiteral("%1").arg(std::rand() % 100000, 5, 10, QLatin1Char('0'));
}

} // namespace

class PathNameFilesTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void types_data();
    void types();
    void typeByDirectory();
    void exists();
    void currentDirectory();
    void currentDirectoryWithAColon();
    void currentDirectoryThatIsGone();
    void opens();
    void openReadOnlyFails();
    void openEndsTheProgram();
    void openRaisesTheExceptionAgain();
    void renames();
    void renameFails();
    void renameWithoutDirectory();
    void removeDoesNothing();
    void uniqueName_data();
    void uniqueName();
    void uniqueNameThatIsFree();
    void uniqueNameTriesTwoHundredTimes();
    void uniqueNameRoom_data();
    void uniqueNameRoom();
};

void PathNameFilesTest::types_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("type");
    QTest::newRow("a file") << "file" << 3;
    QTest::newRow("a directory") << "dir" << 4;
    QTest::newRow("a directory with a separator") << "dir/" << 4;
    QTest::newRow("nothing") << "none" << 1;
    QTest::newRow("in a directory") << "dir/inner" << 3;
    QTest::newRow("in a directory, by a backslash") << "dir\\inner" << 3;
    QTest::newRow("not in a directory") << "dir/none" << 1;
    QTest::newRow("a queue is a file") << "queue" << 3;
    QTest::newRow("a link to a directory") << "toDir" << 4;
    QTest::newRow("a link to a file") << "toFile" << 3;
    QTest::newRow("a link to nothing") << "toNothing" << 1;
    QTest::newRow("an asterisk") << "*.txt" << 2;
    QTest::newRow("a question mark") << "dir/inn?r" << 2;
    QTest::newRow("a wildcard of a directory is none") << "d*r/inner" << 1;
    QTest::newRow("a wildcard is one though it is there") << "star*" << 2;
    QTest::newRow("with blanks and quotes") << "  \"file\"  " << 3;
}

void PathNameFilesTest::types()
{
    QFETCH(QString, input);
    QFETCH(int, type);
    const Sandbox sandbox;
    QVERIFY(write(QStringLiteral("file"), "x") && write(QStringLiteral("star*"), "x"));
    QVERIFY(QDir().mkdir(QStringLiteral("dir")) && write(QStringLiteral("dir/inner"), "x"));
    QCOMPARE(::mkfifo("queue", 0600), 0);
    QVERIFY(::symlink("dir", "toDir") == 0 && ::symlink("file", "toFile") == 0);
    QCOMPARE(::symlink("nothing", "toNothing"), 0);

    for (const bool flag : {false, true}) {
        CRmUiPathname path;
        QCOMPARE(path.Parse(wide(input).c_str(), flag), 0);
        QCOMPARE(int(path.GetPathType()), type);
    }
    if (!input.contains(QLatin1Char('"'))) { // The same by its absolute path.
        CRmUiPathname path;
        QCOMPARE(path.ParseRelative(sandbox.widePath(input).c_str(), nullptr), 0);
        QCOMPARE(int(path.GetPathType()), type);
    }
}

/// Directory and path are joined by a slash and looked up; without directory nothing is.
void PathNameFilesTest::typeByDirectory()
{
    const Sandbox sandbox;
    QVERIFY(write(QStringLiteral("file"), "x") && QDir().mkdir(QStringLiteral("dir")));
    const CString plain(wide(sandbox.path()));
    const CString slashed(wide(sandbox.path() + QLatin1Char('/')));
    const CString file(L"file");
    const CString folder(L"dir");
    const CString none(L"none");
    const auto typeOf = [](const CString *name, const CString *directory) {
        path_type type = kDevicePath;
        path_type *at = &type;
        GetAttByPath(&name, &directory, &at);
        return int(type);
    };
    QCOMPARE(typeOf(&file, &plain), 3);
    QCOMPARE(typeOf(&file, &slashed), 3);
    QCOMPARE(typeOf(&folder, &plain), 4);
    QCOMPARE(typeOf(&none, &plain), 1);
    QCOMPARE(typeOf(&file, nullptr), 1);

    Path base;
    QCOMPARE(base.ParseRelative(plain.c_str(), nullptr), 0);
    Path odd;
    odd.setSeparator(L'!');
    QCOMPARE(odd.ParseRelative(L"file", &base), 0);
    QCOMPARE(odd.GetPathType(), kFilePath);
    path_type type = kDevicePath;
    odd.GetAttributes(odd.m_path, odd.m_directory, &type);
    QCOMPARE(type, kFilePath);
    odd.GetAttributes(odd.m_path, nullptr, &type);
    QCOMPARE(type, kNewPath);
}

void PathNameFilesTest::exists()
{
    const Sandbox sandbox;
    CRmUiPathname path;
    QVERIFY(!path.Exists());
    QCOMPARE(path.Parse(L"file"), 0);
    QVERIFY(!path.Exists());
    QVERIFY(write(QStringLiteral("file"), "x"));
    QCOMPARE(path.GetPathType(), kNewPath);
    QVERIFY(path.Exists());
    QCOMPARE(path.GetPathType(), kFilePath);
    QVERIFY(QFile::remove(QStringLiteral("file")) && QDir().mkdir(QStringLiteral("file")));
    QVERIFY(path.Exists());
    QCOMPARE(path.GetPathType(), kDirPath);
    QVERIFY(QDir().rmdir(QStringLiteral("file")));
    QVERIFY(!path.Exists());
    QCOMPARE(path.GetPathType(), kNewPath);

    QVERIFY(write(QStringLiteral("star*"), "x"));
    QCOMPARE(path.Parse(L"star*"), 0);
    QVERIFY(!path.Exists());
    Path device(kDevicePath, kRelativeCategory, L"nothing");
    QVERIFY(device.Exists());
    QCOMPARE(device.GetPathType(), kDevicePath);
    Path edited(kNewPath, kRootCategory, L"/nothing", L"");
    edited.Append(L"*");
    QVERIFY(edited.Exists()); // A wildcard now, which is not a new path.
    QCOMPARE(edited.GetPathType(), kWildcardPath);
}

void PathNameFilesTest::currentDirectory()
{
    const Sandbox sandbox;
    QVERIFY(QDir().mkdir(QStringLiteral("dir")) && QDir::setCurrent(sandbox.path(QStringLiteral("dir"))));
    CRmUiPathname path;
    QCOMPARE(path.Parse(L"../x"), 0);
    QCOMPARE(text(path), QStringLiteral("../x"));
    CString full;
    QVERIFY(path.GetFullPath(full));
    QCOMPARE(shown(full), sandbox.path(QStringLiteral("x")));
    QVERIFY(QDir::setCurrent(sandbox.path())); // It keeps the directory it was parsed in.
    QVERIFY(path.GetFullPath(full));
    QCOMPARE(shown(full), sandbox.path(QStringLiteral("x")));
    QVERIFY(QDir::setCurrent(QStringLiteral("/")));
    QCOMPARE(path.Parse(L"tmp"), 0);
    QCOMPARE(path.GetPathType(), kDirPath);
    QVERIFY(path.GetFullPath(full));
    QCOMPARE(shown(full), QStringLiteral("/tmp"));
    QVERIFY(QDir::setCurrent(sandbox.path()));
}

void PathNameFilesTest::currentDirectoryWithAColon()
{
    const Sandbox sandbox;
    QVERIFY(QDir().mkdir(QStringLiteral("a:b")) && QDir::setCurrent(sandbox.path(QStringLiteral("a:b"))));
    CRmUiPathname path;
    QCOMPARE(path.Parse(L"x"), 4);
    QCOMPARE(path.Parse(L"/tmp"), 4);
    QVERIFY(QDir::setCurrent(sandbox.path()));
}

void PathNameFilesTest::currentDirectoryThatIsGone()
{
    const Sandbox sandbox;
    QVERIFY(QDir().mkdir(QStringLiteral("gone")) && QDir::setCurrent(sandbox.path(QStringLiteral("gone"))));
    QVERIFY(QDir().rmdir(sandbox.path(QStringLiteral("gone"))));
    CRmUiPathname path;
    QCOMPARE(path.Parse(L"x"), 1);
    QVERIFY(path.IsEmpty());
    QCOMPARE(path.Parse(L"/tmp"), 0);
    QCOMPARE(path.GetPathType(), kDirPath);
    QCOMPARE(path.Parse(L"C:/x"), 0);
    QVERIFY(QDir::setCurrent(sandbox.path()));
}

void PathNameFilesTest::opens()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "contents"));
    Path path;
    QVERIFY(QDir().mkdir(QStringLiteral("dir")));
    QCOMPARE(path.Parse(wide(asciiName).c_str()), 0);
    // The full path is opened. That of a device has no directory.
    QVERIFY(QDir::setCurrent(QStringLiteral("dir")));
    void *none = nullptr;
    path.setType(kDevicePath);
    QVERIFY(!path.OpenReadOnly(none));
    for (const path_type type : {kNewPath, kFilePath, kDevicePath}) {
        if (type == kDevicePath)
            QVERIFY(QDir::setCurrent(sandbox.path()));
        path.setType(type);
        void *handle = nullptr;
        QVERIFY(path.OpenReadOnly(handle));
        auto *file = static_cast<std::FILE *>(handle);
        char buffer[9] = {};
        QCOMPARE(std::fread(buffer, 1, 8, file), size_t(8));
        QCOMPARE(QByteArray(buffer), QByteArray("contents"));
        QVERIFY(std::fputc('x', file) == EOF);
        QVERIFY(CloseHandle(handle));
    }
    for (const path_type type : {kFilePath, kDevicePath}) {
        path.setType(type);
        void *handle = nullptr;
        QVERIFY(path.OpenWriteOnly(handle));
        auto *file = static_cast<std::FILE *>(handle);
        QVERIFY(std::fputs("new", file) >= 0);
        QVERIFY(CloseHandle(handle));
        QCOMPARE(contentsOf(sandbox.path(asciiName)), QByteArray("new"));
    }
    QVERIFY(QFile::remove(sandbox.path(asciiName)));
    void *handle = nullptr;
    QVERIFY(path.OpenWriteOnly(handle)); // Creates it.
    QVERIFY(CloseHandle(handle));
    QCOMPARE(contentsOf(sandbox.path(asciiName)), QByteArray());
}

void PathNameFilesTest::openReadOnlyFails()
{
    const Sandbox sandbox;
    void *const invalid = INVALID_HANDLE_VALUE;
    CRmUiPathname path;
    int other = 0;
    void *handle = &other;
    QVERIFY(!path.OpenReadOnly(handle));
    QVERIFY(handle == invalid);
    handle = &other;
    QVERIFY(!path.OpenWriteOnly(handle));
    QVERIFY(handle == invalid);
    QCOMPARE(path.Parse(L"none/none"), 0);
    handle = &other;
    QVERIFY(!path.OpenReadOnly(handle));
    QVERIFY(handle == invalid);
    handle = &other;
    QVERIFY(!path.OpenWriteOnly(handle));
    QVERIFY(handle == invalid);
    QVERIFY(sandbox.entries().isEmpty());
}

void PathNameFilesTest::openEndsTheProgram()
{
    QVERIFY(kxRunInChild([] {
        CRmUiPathname path;
        std::FILE *file = nullptr;
        path.Open(&file, L"r");
    }).aborted);
}

void PathNameFilesTest::openRaisesTheExceptionAgain()
{
    int caught = 0;
    try {
        throw 7;
    } catch (int) {
        try {
            CRmUiPathname path;
            std::FILE *file = nullptr;
            path.Open(&file, L"r");
        } catch (int number) {
            caught = number;
        }
    }
    QCOMPARE(caught, 7);
}

void PathNameFilesTest::renames()
{
    const Sandbox sandbox;
    QVERIFY(QDir().mkdir(QStringLiteral("dir")) && write(QStringLiteral("dir/old"), "x"));
    CRmUiPathname base;
    QCOMPARE(base.Parse(sandbox.widePath(QStringLiteral("dir")).c_str()), 0);
    CRmUiPathname path;
    QCOMPARE(path.ParseRelative(L"old", &base), 0);
    QVERIFY(path.Rename(L".\\new")); // As given; a backslash is a character of a name.
    QCOMPARE(text(path), QStringLiteral(".\\new"));
    QCOMPARE(contentsOf(QStringLiteral("dir/.\\new")), QByteArray("x"));
    QCOMPARE(QDir::currentPath(), sandbox.path());

    QCOMPARE(path.Parse(sandbox.widePath(QStringLiteral("dir/.\\new")).c_str()), 0);
    QCOMPARE(text(path), sandbox.path(QStringLiteral("dir/./new"))); // Parsing makes it another.
    QVERIFY(write(QStringLiteral("rooted"), "y"));
    QCOMPARE(path.Parse(sandbox.widePath(QStringLiteral("rooted")).c_str()), 0);
    QVERIFY(path.Rename(sandbox.widePath(QStringLiteral("moved")).c_str()));
    QCOMPARE(text(path), sandbox.path(QStringLiteral("moved")));
    QCOMPARE(contentsOf(QStringLiteral("moved")), QByteArray("y"));
}

void PathNameFilesTest::renameFails()
{
    const Sandbox sandbox;
    CRmUiPathname path;
    QVERIFY(!path.Rename(L"new"));
    QCOMPARE(path.Parse(L"none"), 0);
    QVERIFY(!path.Rename(L"new"));
    QCOMPARE(text(path), QStringLiteral("none"));
    QCOMPARE(QDir::currentPath(), sandbox.path());
    QVERIFY(write(asciiName, "x"));
    Path device(kDevicePath, kRelativeCategory, L"file.txt");
    QVERIFY(!device.Rename(L"new"));
    QCOMPARE(sandbox.entries(), QStringList{asciiName});
}

void PathNameFilesTest::renameWithoutDirectory()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "x"));
    Path path(kNewPath, kRelativeCategory, L"file.txt");
    QVERIFY(path.Rename(L"new"));
    QCOMPARE(text(path), QStringLiteral("new"));
    QCOMPARE(sandbox.entries(), QStringList{QStringLiteral("new")});
}

void PathNameFilesTest::removeDoesNothing()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "x"));
    CRmUiPathname path;
    QCOMPARE(path.Parse(L"file.txt"), 0);
    QVERIFY(!path.Remove());
    QCOMPARE(contentsOf(asciiName), QByteArray("x"));
    QCOMPARE(path.ParseAndOSFind(L"file.txt"), 1);
    QVERIFY(!path.IsDeviceName(CString(L"NUL")));
}

void PathNameFilesTest::uniqueName_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    QTest::newRow("name and extension") << "/none/name.txt" << "/none/name#.txt";
    QTest::newRow("no extension") << "/none/name" << "/none/name#";
    QTest::newRow("no name") << "/none/.txt" << "/none/kxTmp#.txt";
    QTest::newRow("no base name") << "/none/" << "/none/kxTmp#";
    QTest::newRow("a wildcard") << "/none/*.txt" << "/none/kxTmp#.txt";
    QTest::newRow("drive") << "C:/d/name.txt" << "C:/d/name#.txt";
    QTest::newRow("drive, relative to it") << "C:name.txt" << "C:/name#.txt";
    QTest::newRow("relative with a directory") << "d/name.txt" << "d/name#.txt";
    QTest::newRow("relative without: nothing is trimmed") << "name.txt" << "name.txtname#.txt";
}

void PathNameFilesTest::uniqueName()
{
    QFETCH(QString, input);
    QFETCH(QString, expected);
    const Sandbox sandbox;
    CRmUiPathname path;
    QCOMPARE(path.Parse(wide(input).c_str()), 0);
    std::srand(5);
    const QString digits = nextDigits();
    std::srand(5);
    CRmUiPathname out;
    QVERIFY(path.GetUniqueName(out, true));
    QCOMPARE(text(out), expected.replace(QLatin1Char('#'), digits));
    QCOMPARE(text(path), input);
}

void PathNameFilesTest::uniqueNameThatIsFree()
{
    const Sandbox sandbox;
    const CRmUiPathname empty;
    CRmUiPathname out;
    QVERIFY(!empty.GetUniqueName(out, false) && !empty.GetUniqueName(out, true));
    CRmUiPathname path;
    QCOMPARE(path.Parse(L"d/file.txt"), 0);
    QVERIFY(path.GetUniqueName(out, false));
    QCOMPARE(text(out), QStringLiteral("d/file.txt"));
    QVERIFY(QDir().mkdir(QStringLiteral("d")) && write(QStringLiteral("d/file.txt"), "x"));
    QVERIFY(path.GetUniqueName(out, false));
    QVERIFY(text(out) != QStringLiteral("d/file.txt"));
    QVERIFY(!out.Exists());
    QCOMPARE(path.Parse(L"d/*.txt"), 0);
    QVERIFY(path.GetUniqueName(out, false));
    QCOMPARE(text(out), QStringLiteral("d/*.txt"));
}

void PathNameFilesTest::uniqueNameTriesTwoHundredTimes()
{
    const Sandbox sandbox;
    CRmUiPathname path;
    QCOMPARE(path.Parse(sandbox.widePath(QStringLiteral("n.x")).c_str()), 0);
    QString last;
    std::srand(9);
    for (int time = 0; time < 199; ++time)
        QVERIFY(write(QStringLiteral("n%1.x").arg(nextDigits()), "x"));
    last = QStringLiteral("n%1.x").arg(nextDigits());
    QVERIFY(!QFile::exists(last));
    std::srand(9);
    CRmUiPathname out;
    QVERIFY(path.GetUniqueName(out, true));
    QCOMPARE(text(out), sandbox.path(last));
    QVERIFY(write(last, "x"));
    std::srand(9);
    QVERIFY(path.GetUniqueName(out, true));
    QVERIFY(out.IsEmpty());
}

void PathNameFilesTest::uniqueNameRoom_data()
{
    QTest::addColumn<int>("directory");
    QTest::addColumn<int>("name");
    QTest::addColumn<QString>("extension");
    QTest::addColumn<int>("room");
    QTest::newRow("1100 characters of directory") << 1100 << 5 << "txt" << 0;
    QTest::newRow("no extension: room for one") << 1016 << 5 << "" << 1;
    QTest::newRow("no extension: none") << 1017 << 5 << "" << 0;
    QTest::newRow("an extension takes its length") << 1013 << 5 << ".txt" << 1;
    QTest::newRow("an extension too many") << 1014 << 5 << ".txt" << 0;
    QTest::newRow("a name that fits") << 1012 << 5 << "" << 5;
    QTest::newRow("a name that is cut by one") << 1013 << 5 << "" << 4;
    QTest::newRow("at most 1019 for the component") << 1 << 1020 << "" << 1013;
    QTest::newRow("1023 for both") << 10 << 1020 << "" << 1007;
}

void PathNameFilesTest::uniqueNameRoom()
{
    QFETCH(int, directory);
    QFETCH(int, name);
    QFETCH(QString, extension);
    QFETCH(int, room);
    const QString folder = directory == 1 ? QStringLiteral("/")
        : QLatin1Char('/') + QString(directory - 2, QLatin1Char('d')) + QLatin1Char('/');
    CRmUiPathname path;
    QCOMPARE(path.Parse(wide(folder + QString(name, QLatin1Char('n')) + extension).c_str()), 0);
    std::srand(3);
    const QString digits = nextDigits();
    std::srand(3);
    CRmUiPathname out;
    QCOMPARE(path.GetUniqueName(out, true), room > 0);
    QCOMPARE(text(out), room > 0 ? folder + QString(room, QLatin1Char('n')) + digits + extension
                                 : QStringLiteral("(null)"));
}

KX_TEST_MAIN(PathNameFilesTest)
#include "tst_path_name_files.moc"
