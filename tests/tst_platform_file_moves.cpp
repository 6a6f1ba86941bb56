// SPDX-License-Identifier: MIT
// What deletes, moves and copies files.
#include "KxFileSandbox.h"
#include "KxTestCase.h"

#include <cerrno>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class tst_PlatformFileMoves : public KxTestCase
{
    Q_OBJECT

private slots:
    void deleteFile();
    void deleteFileTakesTheLinkNotItsTarget();
    void deleteFileFails_data();
    void deleteFileFails();
    void moves_data();
    void moves();
    void moveNeverReplaces_data();
    void moveNeverReplaces();
    void moveOfNothing();
    void moveOfADirectory();
    void moveToAnotherFileSystem();
    void copy();
    void copyReplacesUnlessToldNotTo();
    void copyOntoItself_data();
    void copyOntoItself();
    void copyFails_data();
    void copyFails();
    void copyThatDoesNotComeToAnEnd_data();
    void copyThatDoesNotComeToAnEnd();
};

// ---- delete, move, copy ---------------------------------------------------------------------------------

void tst_PlatformFileMoves::deleteFile()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "text"));
    QVERIFY(DeleteFileW(L"file.txt"));
    QCOMPARE(sandbox.entries(), QStringList());
}

void tst_PlatformFileMoves::deleteFileTakesTheLinkNotItsTarget()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "text") && ::symlink("file.txt", "link") == 0);
    QVERIFY(DeleteFileW(L"link"));
    QCOMPARE(sandbox.entries(), QStringList(asciiName));
}

void tst_PlatformFileMoves::deleteFileFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("error");

    QTest::newRow("nothing there") << "missing" << unsigned(ERROR_FILE_NOT_FOUND);
    QTest::newRow("an empty directory") << "inner" << unsigned(ERROR_ACCESS_DENIED);
    QTest::newRow("a wild card") << "*" << unsigned(ERROR_FILE_NOT_FOUND);
}

void tst_PlatformFileMoves::deleteFileFails()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QVERIFY(QDir().mkdir(QStringLiteral("inner")) && write(asciiName, "text"));
    QVERIFY(!DeleteFileW(wide(name).c_str()));
    QTEST(GetLastError(), "error");
    QCOMPARE(sandbox.entries(), QStringList({asciiName, QStringLiteral("inner")}));
}

void tst_PlatformFileMoves::moves_data()
{
    QTest::addColumn<bool>("isRename");

    QTest::newRow("MoveFileW") << false;
    QTest::newRow("_wrename") << true;
}

void tst_PlatformFileMoves::moves()
{
    const Sandbox sandbox;
    QFETCH(bool, isRename);
    QVERIFY(write(asciiName, "text") && QDir().mkdir(QStringLiteral("inner")));
    const wchar_t *to = L"inner/new.txt";
    QVERIFY(isRename ? _wrename(L"file.txt", to) == 0 : MoveFileW(L"file.txt", to));
    QVERIFY(!QFile::exists(asciiName));
    QCOMPARE(contentsOf(QStringLiteral("inner/new.txt")), QByteArray("text"));
}

void tst_PlatformFileMoves::moveNeverReplaces_data()
{
    QTest::addColumn<QString>("target");

    QTest::newRow("a file") << "other.txt";
    QTest::newRow("an empty directory") << "inner";
    QTest::newRow("a link to nothing") << "dangling";
}

void tst_PlatformFileMoves::moveNeverReplaces()
{
    const Sandbox sandbox;
    QFETCH(QString, target);
    QVERIFY(write(asciiName, "text") && write(QStringLiteral("other.txt"), "other"));
    QVERIFY(QDir().mkdir(QStringLiteral("inner")) && ::symlink("missing", "dangling") == 0);
    const QStringList before = sandbox.entries();

    QVERIFY(!MoveFileW(L"file.txt", wide(target).c_str()));
    QCOMPARE(GetLastError(), DWORD(ERROR_ALREADY_EXISTS));
    QCOMPARE(_wrename(L"file.txt", wide(target).c_str()), -1);
    QCOMPARE(errno, EACCES);
    QCOMPARE(sandbox.entries(), before);
    QCOMPARE(contentsOf(asciiName), QByteArray("text"));
    QCOMPARE(contentsOf(QStringLiteral("other.txt")), QByteArray("other"));
    QVERIFY(QFileInfo(QStringLiteral("dangling")).isSymLink());
}

void tst_PlatformFileMoves::moveOfNothing()
{
    const Sandbox sandbox;
    QVERIFY(!MoveFileW(L"missing", L"new"));
    QCOMPARE(GetLastError(), DWORD(ERROR_FILE_NOT_FOUND));
    QCOMPARE(_wrename(L"missing", L"new"), -1);
    QCOMPARE(errno, ENOENT);
    QCOMPARE(sandbox.entries(), QStringList());
}

void tst_PlatformFileMoves::moveOfADirectory()
{
    const Sandbox sandbox;
    QVERIFY(QDir().mkpath(QStringLiteral("a/b")) && write(QStringLiteral("a/b/file.txt"), "text"));
    QVERIFY(MoveFileW(L"a", L"c"));
    QCOMPARE(contentsOf(QStringLiteral("c/b/file.txt")), QByteArray("text"));
    QVERIFY2(!MoveFileW(L"c", L"c/d"), "a directory into itself");
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("c")));
}

void tst_PlatformFileMoves::moveToAnotherFileSystem()
{
    const Sandbox sandbox;
    QTemporaryDir elsewhere(QStringLiteral("/dev/shm/kx-XXXXXX"));
    const auto deviceOf = [](const QString &name) {
        struct stat status = {};
        return ::stat(QFile::encodeName(name).constData(), &status) == 0 ? status.st_dev : 0;
    };
    if (!elsewhere.isValid() || deviceOf(elsewhere.path()) == deviceOf(sandbox.path()))
        QSKIP("needs two file systems");

    const QString target = elsewhere.filePath(asciiName);
    QVERIFY(write(asciiName, "text") && ::chmod("file.txt", 0640) == 0);
    QVERIFY(QDir().mkdir(QStringLiteral("inner")));
    QVERIFY(MoveFileW(L"file.txt", wide(target).c_str()));
    QVERIFY(!QFile::exists(asciiName));
    QCOMPARE(contentsOf(target), QByteArray("text"));
    QCOMPARE(GetFileAttributesW(wide(target).c_str()), 0100640u);

    QVERIFY(write(asciiName, "another"));
    QVERIFY(!MoveFileW(L"file.txt", wide(target).c_str()));
    QCOMPARE(GetLastError(), DWORD(ERROR_ALREADY_EXISTS));
    QCOMPARE(contentsOf(target), QByteArray("text"));
    QVERIFY(!MoveFileW(L"inner", wide(elsewhere.filePath(QStringLiteral("inner"))).c_str()));
    QCOMPARE(GetLastError(), DWORD(ERROR_NOT_SAME_DEVICE));
    QCOMPARE(sandbox.entries(), QStringList({asciiName, QStringLiteral("inner")}));
}

void tst_PlatformFileMoves::copy()
{
    const Sandbox sandbox;
    QByteArray contents;
    for (int i = 0; i < 200000; ++i)
        contents.append(char(i * 7 + i / 251));
    QVERIFY(write(asciiName, contents) && ::chmod("file.txt", 0440) == 0);
    const mode_t mask = ::umask(077);
    const auto restore = qScopeGuard([mask] { ::umask(mask); });
    const timespec times[] = {{1000000000, 0}, {1234567890, 500}};
    QVERIFY(::utimensat(AT_FDCWD, "file.txt", times, 0) == 0);

    QVERIFY(CopyFileW(L"file.txt", L"copy", true));
    QVERIFY(contentsOf(QStringLiteral("copy")) == contents);
    QVERIFY(contentsOf(asciiName) == contents);
    struct stat status = {};
    QVERIFY(::stat("copy", &status) == 0);
    QCOMPARE(status.st_mode, 0100440u);
    QCOMPARE(status.st_mtim.tv_sec, time_t(1234567890));
    QCOMPARE(status.st_mtim.tv_nsec, 500L);
}

void tst_PlatformFileMoves::copyReplacesUnlessToldNotTo()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "text") && write(QStringLiteral("copy"), "something longer"));
    QVERIFY(!CopyFileW(L"file.txt", L"copy", true));
    QCOMPARE(GetLastError(), DWORD(ERROR_FILE_EXISTS));
    QCOMPARE(contentsOf(QStringLiteral("copy")), QByteArray("something longer"));
    QVERIFY(CopyFileW(L"file.txt", L"copy", false));
    QCOMPARE(contentsOf(QStringLiteral("copy")), QByteArray("text"));
}

void tst_PlatformFileMoves::copyOntoItself_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("the same name") << asciiName;
    QTest::newRow("another spelling") << "./file.txt";
    QTest::newRow("a symbolic link") << "link";
    QTest::newRow("a hard link") << "hardLink";
}

void tst_PlatformFileMoves::copyOntoItself()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QVERIFY(write(asciiName, "text"));
    QVERIFY(::symlink("file.txt", "link") == 0 && ::link("file.txt", "hardLink") == 0);
    QVERIFY(!CopyFileW(L"file.txt", wide(name).c_str(), false));
    QCOMPARE(GetLastError(), DWORD(ERROR_SHARING_VIOLATION));
    QCOMPARE(contentsOf(asciiName), QByteArray("text"));
}

void tst_PlatformFileMoves::copyFails_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<unsigned int>("error");

    const auto row = [](const char *title, const char *from, const char *to, DWORD error) {
        QTest::newRow(title) << QString::fromLatin1(from) << QString::fromLatin1(to) << error;
    };
    row("nothing there", "missing", "copy", ERROR_FILE_NOT_FOUND);
    row("a directory", "inner", "copy", ERROR_ACCESS_DENIED);
    row("a pipe", "pipe", "copy", ERROR_INVALID_PARAMETER);
    row("to a pipe", "file.txt", "pipe", ERROR_GEN_FAILURE);
    row("to a directory", "file.txt", "inner", ERROR_ACCESS_DENIED);
    row("no parent", "file.txt", "missing/copy", ERROR_FILE_NOT_FOUND);
}

void tst_PlatformFileMoves::copyFails()
{
    const Sandbox sandbox;
    QFETCH(QString, from);
    QFETCH(QString, to);
    QVERIFY(QDir().mkdir(QStringLiteral("inner")) && write(asciiName, "text") && ::mkfifo("pipe", 0600) == 0);
    const QStringList before = sandbox.entries();
    QVERIFY(!CopyFileW(wide(from).c_str(), wide(to).c_str(), false));
    QTEST(GetLastError(), "error");
    QCOMPARE(sandbox.entries(), before);
    QCOMPARE(contentsOf(asciiName), QByteArray("text"));
}

void tst_PlatformFileMoves::copyThatDoesNotComeToAnEnd_data()
{
    QTest::addColumn<bool>("exists");

    QTest::newRow("to a new file, which goes again") << false;
    QTest::newRow("to an existing file, which stays") << true;
}

void tst_PlatformFileMoves::copyThatDoesNotComeToAnEnd()
{
    QFETCH(bool, exists);
    const Sandbox sandbox;
    QVERIFY(write(asciiName, QByteArray(200000, 'a')));
    if (exists)
        QVERIFY(write(QStringLiteral("copy"), "old"));
    const QStringList before = sandbox.entries();

    bool isCopied = true;
    {
        const FileSizeLimit limit(100000);
        isCopied = CopyFileW(L"file.txt", L"copy", false);
    }
    QVERIFY(!isCopied);
    QCOMPARE(GetLastError(), DWORD(ERROR_DISK_FULL));
    QCOMPARE(sandbox.entries(), before);
    QCOMPARE(contentsOf(asciiName).size(), 200000);
}

KX_TEST_MAIN(tst_PlatformFileMoves)

#include "tst_platform_file_moves.moc"
