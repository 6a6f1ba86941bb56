// SPDX-License-Identifier: MIT
#include "KxFileSandbox.h"
#include "KxPlatformBase.h"
#include "KxTestCase.h"

#include <QtCore/QTextCodec>

#include <cerrno>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

Q_DECLARE_METATYPE(std::wstring)

namespace {

/// Locale text is Latin-1 while it lives.
class Latin1Scope
{
public:
    Latin1Scope() { QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1")); }
    ~Latin1Scope() { QTextCodec::setCodecForLocale(m_before); }

private:
    QTextCodec *m_before = QTextCodec::codecForLocale();
};

/// Every call that takes a name, in a form that answers whether it failed as such a call fails.
struct Call
{
    const char *title;
    std::function<bool(const wchar_t *)> failsFor;
};

const std::vector<Call> &calls()
{
    const auto opens = [](const wchar_t *name, DWORD access, DWORD disposition) {
        const HANDLE file = CreateFileW(name, access, 0, nullptr, disposition, 0, nullptr);
        return file != INVALID_HANDLE_VALUE && CloseHandle(file);
    };
    const auto renames = [](const wchar_t *from, const wchar_t *to) {
        return _wrename(from, to) != -1 || errno != EINVAL;
    };
    const auto loadsImage = [](const wchar_t *name) {
        return LoadImageW(nullptr, name, IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE) != nullptr;
    };
    static const std::vector<Call> all{
        {"GetFileAttributesW", [](const wchar_t *name) { return GetFileAttributesW(name) == 0xFFFFFFFF; }},
        {"CreateFileW to read", [=](const wchar_t *name) { return !opens(name, GENERIC_READ, 3); }},
        {"CreateFileW to create", [=](const wchar_t *name) { return !opens(name, GENERIC_WRITE, 2); }},
        {"DeleteFileW", [](const wchar_t *name) { return !DeleteFileW(name); }},
        {"MoveFileW from", [](const wchar_t *name) { return !MoveFileW(name, L"moved"); }},
        {"MoveFileW to", [](const wchar_t *name) { return !MoveFileW(L"other", name); }},
        {"CopyFileW from", [](const wchar_t *name) { return !CopyFileW(name, L"copied", false); }},
        {"CopyFileW to", [](const wchar_t *name) { return !CopyFileW(L"other", name, false); }},
        {"_wrename from", [=](const wchar_t *name) { return !renames(name, L"moved"); }},
        {"_wrename to", [=](const wchar_t *name) { return !renames(L"other", name); }},
        {"CreateDirectoryW", [](const wchar_t *name) { return !CreateDirectoryW(name, nullptr); }},
        {"RemoveDirectoryW", [](const wchar_t *name) { return !RemoveDirectoryW(name); }},
        {"SetCurrentDirectoryW", [](const wchar_t *name) { return !SetCurrentDirectoryW(name); }},
        {"LoadLibraryW", [](const wchar_t *name) { return LoadLibraryW(name) == nullptr; }},
        {"LoadImageW from a file", [=](const wchar_t *name) { return !loadsImage(name); }},
    };
    return all;
}

} // namespace

class tst_PlatformFiles : public KxTestCase
{
    Q_OBJECT

private slots:
    void namesAreQFiles_data();
    void namesAreQFiles();
    void namesAreQFilesInAnotherLocale_data();
    void namesAreQFilesInAnotherLocale();
    void aNameThatLatin1SaysBecomesItsByte();
    void namesThatAreNone_data();
    void namesThatAreNone();
    void namesThatTheLocaleCannotSay_data();
    void namesThatTheLocaleCannotSay();

    void currentDirectory();
    void currentDirectoryInABuffer_data();
    void currentDirectoryInABuffer();
    void currentDirectoryThatTheLocaleCannotSay();
    void currentDirectoryThatIsGone();
    void setCurrentDirectoryFails_data();
    void setCurrentDirectoryFails();
    void createDirectory();
    void createDirectoryFails_data();
    void createDirectoryFails();
    void removeDirectory();
    void removeDirectoryFails_data();
    void removeDirectoryFails();

    void attributes_data();
    void attributes();
    void attributesOfWhatIsNotThere_data();
    void attributesOfWhatIsNotThere();

    void dispositions_data();
    void dispositions();
    void access_data();
    void access();
    void positionAfterOpening_data();
    void positionAfterOpening();
    void appendingWritesAtTheEnd();
    void createAlwaysForReadingEmptiesTheFile();
    void openFails_data();
    void openFails();
    void filesAreNotInherited();
    void qfileTakesTheHandle();
    void closeHandleWritesOut();
    void closeHandleSaysWhenItCouldNotWrite();
    void closeHandleOfWhatIsNoFile_data();
    void closeHandleOfWhatIsNoFile();
};

// ---- names ----------------------------------------------------------------------------------------------

void tst_PlatformFiles::namesAreQFiles_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("letters") << asciiName;
    QTest::newRow("blanks and quotes") << QStringLiteral(" a 'b' \"c\" ");
    QTest::newRow("a backslash is a character") << QStringLiteral("a\\b");
    QTest::newRow("a question mark") << QStringLiteral("what?");
    QTest::newRow("a colon inside") << QStringLiteral("a:b");
    QTest::newRow("a colon after more") << QStringLiteral("abc:d");
    QTest::newRow("a dot in front") << QStringLiteral(".hidden");
    QTest::newRow("Latin letters") << QStringLiteral(u"äöüß.txt");
    QTest::newRow("letter and combining mark, not composed") << QStringLiteral(u"a\u0308");
    QTest::newRow("euro sign") << QStringLiteral(u"10€");
    QTest::newRow("Greek") << QStringLiteral(u"αβγ");
    QTest::newRow("Chinese") << QStringLiteral(u"图纸");
    QTest::newRow("beyond 16 bits") << QStringLiteral(u"\U0001F600.plt");
    QTest::newRow("byte order marks in front") << QStringLiteral(u"\uFEFF\uFEFFa");
    QTest::newRow("the replacement character itself") << QStringLiteral(u"\uFFFD");
}

void tst_PlatformFiles::namesAreQFiles()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    const std::wstring wideName = wide(name);
    const QByteArray bytes = QFile::encodeName(name);
    const bool isSayable = QFile::decodeName("/" + bytes) == QLatin1Char('/') + name;
    if (QTextCodec::codecForLocale()->name() == "UTF-8")
        QVERIFY(isSayable);
    if (!isSayable) {
        QVERIFY(write(name, "QFile's")); // under whatever name it takes instead
        for (const Call &call : calls())
            QVERIFY2(call.failsFor(wideName.c_str()), call.title);
        QCOMPARE(sandbox.entries().size(), 1);
        QCOMPARE(contentsOf(name), QByteArray("QFile's"));
        return;
    }

    QVERIFY(write(name, "QFile's"));
    QCOMPARE(GetFileAttributesW(wideName.c_str()) & 0xF000, 0x8000u);
    HANDLE file = CreateFileW(wideName.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    QVERIFY(file != INVALID_HANDLE_VALUE);
    QVERIFY(std::fputs("ours", static_cast<FILE *>(file)) >= 0);
    QVERIFY(CloseHandle(file));
    QCOMPARE(contentsOf(name), QByteArray("ours"));
    QVERIFY(CopyFileW(wideName.c_str(), (wideName + L"1").c_str(), true));
    QCOMPARE(contentsOf(name + QLatin1Char('1')), QByteArray("ours"));
    QVERIFY(MoveFileW(wideName.c_str(), (wideName + L"2").c_str()));
    QVERIFY(!QFile::exists(name));
    QCOMPARE(contentsOf(name + QLatin1Char('2')), QByteArray("ours"));
    QCOMPARE(_wrename((wideName + L"2").c_str(), wideName.c_str()), 0);
    QVERIFY(DeleteFileW((wideName + L"1").c_str()));
    QVERIFY(DeleteFileW(wideName.c_str()));
    QCOMPARE(sandbox.entries(), QStringList());
    QVERIFY(CreateDirectoryW(wideName.c_str(), nullptr));
    QVERIFY(QFileInfo(name).isDir());
    QVERIFY(SetCurrentDirectoryW(wideName.c_str()));
    QCOMPARE(QDir::currentPath(), QFileInfo(sandbox.path(name)).canonicalFilePath());
    wchar_t directory[1024];
    QVERIFY(GetCurrentDirectoryW(1024, directory) > 0);
    QCOMPARE(QString::fromWCharArray(directory), QDir::currentPath());
    QVERIFY(SetCurrentDirectoryW(L".."));
    QVERIFY(RemoveDirectoryW(wideName.c_str()));
    QCOMPARE(sandbox.entries(), QStringList());
}

void tst_PlatformFiles::namesAreQFilesInAnotherLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("charmap"); // what to make the locale with; none for one that is always there

    QTest::newRow("C") << QStringLiteral("C") << QString();
    QTest::newRow("POSIX") << QStringLiteral("POSIX") << QString();
    QTest::newRow("C.UTF-8") << QStringLiteral("C.UTF-8") << QString();
    QTest::newRow("Latin-1") << QStringLiteral("de_DE.ISO-8859-1") << QStringLiteral("ISO-8859-1");
}

void tst_PlatformFiles::namesAreQFilesInAnotherLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, charmap);

    auto environment = QProcessEnvironment::systemEnvironment();
    QTemporaryDir locales;
    if (!charmap.isEmpty()) {
        QProcess maker;
        maker.start(QStringLiteral("localedef"),
                    {QStringLiteral("--no-warnings=ascii"), QStringLiteral("--inputfile=de_DE"),
                     QStringLiteral("--charmap=") + charmap, locales.filePath(locale)});
        QVERIFY(maker.waitForFinished());
        QVERIFY2(QFile::exists(locales.filePath(locale)), "needs the package that scripts/setup installs");
        environment.insert(QStringLiteral("LOCPATH"), locales.path());
    }
    environment.insert(QStringLiteral("LC_ALL"), locale);

    QProcess child;
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("namesAreQFiles")});
    QVERIFY(child.waitForFinished());
    const QByteArray output = child.readAll();
    QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0, output.constData());
    QVERIFY2(output.contains("beyond 16 bits"), output.constData());
}

void tst_PlatformFiles::aNameThatLatin1SaysBecomesItsByte()
{
    const Sandbox sandbox;
    const Latin1Scope latin1;
    HANDLE file = CreateFileW(L"\u00E4", GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    QVERIFY(CloseHandle(file));
    QVERIFY(QFile::exists(QStringLiteral(u"\u00E4")));
    QCOMPARE(::access("\xE4", F_OK), 0);
    QVERIFY(DeleteFileW(L"\u00E4"));
    QCOMPARE(::access("\xE4", F_OK), -1);
}

void tst_PlatformFiles::namesThatAreNone_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<bool>("isNull");
    QTest::addColumn<std::wstring>("name");
    QTest::addColumn<unsigned int>("error");

    const struct
    {
        const char *title;
        const wchar_t *name;
        DWORD error;
    } names[] = {
        {"null", nullptr, ERROR_INVALID_PARAMETER},
        {"the empty name", L"", ERROR_PATH_NOT_FOUND},
        {"half a surrogate pair", L"a\xD83Dz", ERROR_INVALID_NAME},
        {"a surrogate pair", L"a\xD83D\xDE00z", ERROR_INVALID_NAME},
        {"the last surrogate", L"a\xDFFFz", ERROR_INVALID_NAME},
        {"one above 0x10FFFF", L"a\x110000z", ERROR_INVALID_NAME},
        {"a negative character", L"a\xFFFFFFFFz", ERROR_INVALID_NAME},
        {"a Qt resource", L":/file", ERROR_INVALID_NAME},
        {"a Qt search path", L"kxplaces:file", ERROR_INVALID_NAME},
    };
    for (const auto &name : names) {
        for (std::size_t i = 0; i < calls().size(); ++i) {
            // A loaded image has a name that is a number where it has none; null is its 0.
            const bool isNumber = !name.name && QByteArray(calls()[i].title).startsWith("LoadImage");
            QTest::addRow("%s: %s", calls()[i].title, name.title)
                << int(i) << !name.name << std::wstring(name.name ? name.name : L"")
                << (isNumber ? DWORD(ERROR_INVALID_PARAMETER) : name.error);
        }
    }
}

void tst_PlatformFiles::namesThatAreNone()
{
    const Sandbox sandbox;
    QFETCH(int, call);
    QFETCH(bool, isNull);
    QFETCH(std::wstring, name);
    QFETCH(unsigned int, error);

    // What such a name must not be mistaken for.
    QDir::setSearchPaths(QStringLiteral("kxplaces"), {sandbox.path(QStringLiteral("places"))});
    const auto forget = qScopeGuard([] { QDir::setSearchPaths(QStringLiteral("kxplaces"), {}); });
    QVERIFY(QDir().mkdir(QStringLiteral("places")) && ::mkdir(":", 0777) == 0);
    QVERIFY(write(QStringLiteral("other"), "other") && write(QStringLiteral("places/file"), "file"));
    for (const char *bytes :
         {"a?z", "a\xEF\xBF\xBDz", "a\xF0\x9F\x98\x80z", "az", ":/file", "kxplaces:file"}) {
        const int file = ::open(bytes, O_CREAT | O_WRONLY, 0666);
        QVERIFY(file >= 0 && ::write(file, "kept", 4) == 4 && ::close(file) == 0);
    }
    const QStringList before = sandbox.entries();

    QVERIFY(calls()[std::size_t(call)].failsFor(isNull ? nullptr : name.c_str()));
    QCOMPARE(GetLastError(), error);
    QCOMPARE(sandbox.entries(), before);
    QCOMPARE(QDir::currentPath(), sandbox.path());
    QCOMPARE(contentsOf(QStringLiteral("a?z")), QByteArray("kept"));
    QCOMPARE(contentsOf(QStringLiteral(u"a\U0001F600z")), QByteArray("kept"));
    QCOMPARE(contentsOf(sandbox.path(QStringLiteral(":/file"))), QByteArray("kept"));
    QCOMPARE(contentsOf(sandbox.path(QStringLiteral("kxplaces:file"))), QByteArray("kept"));
    QCOMPARE(contentsOf(QStringLiteral("places/file")), QByteArray("file"));
    QCOMPARE(contentsOf(QStringLiteral("other")), QByteArray("other"));
}

void tst_PlatformFiles::namesThatTheLocaleCannotSay_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<QString>("decoy"); // what the encoding puts in the name's place

    for (std::size_t i = 0; i < calls().size(); ++i) {
        QTest::addRow("%s: a file has the name that comes out", calls()[i].title) << int(i) << "file";
        QTest::addRow("%s: a directory has the name that comes out", calls()[i].title)
            << int(i) << "directory";
        QTest::addRow("%s: nothing has the name that comes out", calls()[i].title) << int(i) << QString();
    }
}

void tst_PlatformFiles::namesThatTheLocaleCannotSay()
{
    const Sandbox sandbox;
    QFETCH(int, call);
    QFETCH(QString, decoy);

    const Latin1Scope latin1;
    QVERIFY(write(QStringLiteral("other"), "other"));
    if (decoy == QLatin1String("file"))
        QVERIFY(write(QStringLiteral("10?"), "kept"));
    else if (decoy == QLatin1String("directory"))
        QVERIFY(QDir().mkdir(QStringLiteral("10?")));
    QCOMPARE(QFile::encodeName(QStringLiteral(u"10€")), QByteArray("10?"));
    const QStringList before = sandbox.entries();

    QVERIFY(calls()[std::size_t(call)].failsFor(L"10\u20AC"));
    QCOMPARE(GetLastError(), DWORD(ERROR_INVALID_NAME));
    QCOMPARE(sandbox.entries(), before);
    QCOMPARE(QDir::currentPath(), sandbox.path());
    QCOMPARE(contentsOf(QStringLiteral("other")), QByteArray("other"));
    if (decoy == QLatin1String("file"))
        QCOMPARE(contentsOf(QStringLiteral("10?")), QByteArray("kept"));
}

// ---- directories ----------------------------------------------------------------------------------------

void tst_PlatformFiles::currentDirectory()
{
    const Sandbox sandbox;
    QVERIFY(QDir().mkdir(QStringLiteral("inner")));
    QVERIFY(SetCurrentDirectoryW(L"inner"));
    wchar_t buffer[1024];
    const DWORD length = GetCurrentDirectoryW(1024, buffer);
    QCOMPARE(QString::fromWCharArray(buffer),
             QFileInfo(sandbox.path(QStringLiteral("inner"))).canonicalFilePath());
    QCOMPARE(std::size_t(length), std::wcslen(buffer));
    QVERIFY(SetCurrentDirectoryW(L"/"));
    QCOMPARE(GetCurrentDirectoryW(1024, buffer), 1u);
    QVERIFY(std::wstring(L"/") == buffer);
}

void tst_PlatformFiles::currentDirectoryInABuffer_data()
{
    QTest::addColumn<int>("room"); // beside the text itself, in characters
    QTest::addColumn<bool>("isWritten");

    QTest::newRow("more room than needed") << 5 << true;
    QTest::newRow("room for the text and the zero") << 1 << true;
    QTest::newRow("no room for the zero") << 0 << false;
    QTest::newRow("no room for the text") << -1 << false;
}

void tst_PlatformFiles::currentDirectoryInABuffer()
{
    const Sandbox sandbox;
    QFETCH(int, room);
    QFETCH(bool, isWritten);

    const std::wstring text = wide(QDir::currentPath());
    const auto length = DWORD(text.size());
    QCOMPARE(GetCurrentDirectoryW(0, nullptr), length + 1);

    std::vector<wchar_t> buffer(length + 10, L'#');
    const DWORD size = length + DWORD(room);
    QCOMPARE(GetCurrentDirectoryW(size, buffer.data()), isWritten ? length : length + 1);
    if (isWritten)
        QVERIFY(text == buffer.data());
    else
        QCOMPARE(buffer[0], L'#');
    QCOMPARE(buffer[length + 1], L'#');

    const bool fits = isWritten;
    QCOMPARE(GetCurrentDirectoryW(size, nullptr), fits ? 0u : length + 1);
}

void tst_PlatformFiles::currentDirectoryThatTheLocaleCannotSay()
{
    const Sandbox sandbox;
    QCOMPARE(QTextCodec::codecForLocale()->name(), QByteArray("UTF-8"));
    QVERIFY(::mkdir("a\xFF", 0777) == 0 && ::chdir("a\xFF") == 0);
    const auto goBack = qScopeGuard([] {
        if (::chdir("..") == 0)
            ::rmdir("a\xFF");
    });
    wchar_t buffer[1024] = L"#";
    QCOMPARE(GetCurrentDirectoryW(1024, buffer), 0u);
    QCOMPARE(GetLastError(), DWORD(ERROR_INVALID_NAME));
    QCOMPARE(buffer[0], L'#');
}

void tst_PlatformFiles::currentDirectoryThatIsGone()
{
    const Sandbox sandbox;
    QVERIFY(QDir().mkdir(QStringLiteral("inner")));
    QVERIFY(SetCurrentDirectoryW(L"inner"));
    QVERIFY(RemoveDirectoryW(sandbox.widePath(QStringLiteral("inner")).c_str()));
    wchar_t buffer[1024];
    QCOMPARE(GetCurrentDirectoryW(1024, buffer), 0u);
    QCOMPARE(GetLastError(), DWORD(ERROR_FILE_NOT_FOUND));
}

void tst_PlatformFiles::setCurrentDirectoryFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("error");

    QTest::newRow("nothing there") << "missing" << unsigned(ERROR_FILE_NOT_FOUND);
    QTest::newRow("a file") << asciiName << unsigned(ERROR_PATH_NOT_FOUND);
}

void tst_PlatformFiles::setCurrentDirectoryFails()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QVERIFY(write(asciiName, "text"));
    QVERIFY(!SetCurrentDirectoryW(wide(name).c_str()));
    QTEST(GetLastError(), "error");
    QCOMPARE(QDir::currentPath(), sandbox.path());
}

void tst_PlatformFiles::createDirectory()
{
    const Sandbox sandbox;
    QVERIFY(CreateDirectoryW(sandbox.widePath(QStringLiteral("new")).c_str(), nullptr));
    QVERIFY(QFileInfo(sandbox.path(QStringLiteral("new"))).isDir());
    QVERIFY(CreateDirectoryW(sandbox.widePath(QStringLiteral("new/inner/")).c_str(), nullptr));
    QVERIFY(QFileInfo(sandbox.path(QStringLiteral("new/inner"))).isDir());
}

void tst_PlatformFiles::createDirectoryFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("error");

    QTest::newRow("there is one") << "." << unsigned(ERROR_ALREADY_EXISTS);
    QTest::newRow("there is a file") << asciiName << unsigned(ERROR_ALREADY_EXISTS);
    QTest::newRow("no parent") << "missing/new" << unsigned(ERROR_PATH_NOT_FOUND);
    QTest::newRow("the parent is a file") << "file.txt/new" << unsigned(ERROR_PATH_NOT_FOUND);
    QTest::newRow("a name too long") << QString(300, QLatin1Char('a'))
                                     << unsigned(ERROR_FILENAME_EXCED_RANGE);
}

void tst_PlatformFiles::createDirectoryFails()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QVERIFY(write(asciiName, "text"));
    QVERIFY(!CreateDirectoryW(wide(name).c_str(), nullptr));
    QTEST(GetLastError(), "error");
    QCOMPARE(sandbox.entries(), QStringList(asciiName));
}

void tst_PlatformFiles::removeDirectory()
{
    const Sandbox sandbox;
    QVERIFY(QDir().mkdir(QStringLiteral("empty")));
    QVERIFY(RemoveDirectoryW(L"empty"));
    QCOMPARE(sandbox.entries(), QStringList());
}

void tst_PlatformFiles::removeDirectoryFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("error");

    QTest::newRow("not empty") << "full" << unsigned(ERROR_DIR_NOT_EMPTY);
    QTest::newRow("a file") << asciiName << unsigned(ERROR_DIRECTORY);
    QTest::newRow("nothing there") << "missing" << unsigned(ERROR_FILE_NOT_FOUND);
}

void tst_PlatformFiles::removeDirectoryFails()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QVERIFY(write(asciiName, "text") && QDir().mkpath(QStringLiteral("full/inner")));
    const QStringList before = sandbox.entries();
    QVERIFY(!RemoveDirectoryW(wide(name).c_str()));
    QTEST(GetLastError(), "error");
    QCOMPARE(sandbox.entries(), before);
    QVERIFY(QFileInfo(QStringLiteral("full/inner")).isDir());
}

// ---- attributes -----------------------------------------------------------------------------------------

void tst_PlatformFiles::attributes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("mode");

    QTest::newRow("a file, rights 0640") << asciiName << 0100640u;
    QTest::newRow("a directory, rights 0750") << "inner" << 0040750u;
    QTest::newRow("a directory with a separator behind") << "inner/" << 0040750u;
    QTest::newRow("a link to a file is the file") << "linkToFile" << 0100640u;
    QTest::newRow("a link to a directory is the directory") << "linkToDirectory" << 0040750u;
    QTest::newRow("a pipe") << "pipe" << 0010600u;
    QTest::newRow("a device") << "/dev/null" << 0020666u;
}

void tst_PlatformFiles::attributes()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QFETCH(unsigned int, mode);
    QVERIFY(write(asciiName, "text") && ::chmod("file.txt", 0640) == 0);
    QVERIFY(::mkdir("inner", 0777) == 0 && ::chmod("inner", 0750) == 0);
    QVERIFY(::symlink("file.txt", "linkToFile") == 0 && ::symlink("inner", "linkToDirectory") == 0);
    QVERIFY(::mkfifo("pipe", 0600) == 0);
    QCOMPARE(GetFileAttributesW(wide(name).c_str()), mode);
    QCOMPARE((mode & 0xF000) == 0x4000, QFileInfo(name).isDir());
}

void tst_PlatformFiles::attributesOfWhatIsNotThere_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("error");

    QTest::newRow("nothing there") << "missing" << unsigned(ERROR_FILE_NOT_FOUND);
    QTest::newRow("a link to nothing") << "dangling" << unsigned(ERROR_FILE_NOT_FOUND);
    QTest::newRow("below a file") << asciiName + QStringLiteral("/x") << unsigned(ERROR_PATH_NOT_FOUND);
    QTest::newRow("a wild card") << "*.txt" << unsigned(ERROR_FILE_NOT_FOUND);
    QTest::newRow("another case") << "FILE.TXT" << unsigned(ERROR_FILE_NOT_FOUND);
}

void tst_PlatformFiles::attributesOfWhatIsNotThere()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QVERIFY(write(asciiName, "text") && ::symlink("missing", "dangling") == 0);
    QCOMPARE(GetFileAttributesW(wide(name).c_str()), 0xFFFFFFFFu);
    QTEST(GetLastError(), "error");
}

// ---- open files -----------------------------------------------------------------------------------------

void tst_PlatformFiles::dispositions_data()
{
    QTest::addColumn<unsigned int>("disposition");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("opens");
    QTest::addColumn<QByteArray>("contents"); // after "ab" was written, where it opens
    QTest::addColumn<unsigned int>("error");

    const QByteArray missing("(not there)");
    QTest::newRow("CREATE_NEW creates") << 1u << false << true << QByteArray("ab") << 77u;
    QTest::newRow("CREATE_NEW keeps an existing one") << 1u << true << false << QByteArray("12345") << 80u;
    QTest::newRow("CREATE_ALWAYS creates") << 2u << false << true << QByteArray("ab") << 0u;
    QTest::newRow("CREATE_ALWAYS empties an existing one") << 2u << true << true << QByteArray("ab") << 183u;
    QTest::newRow("OPEN_EXISTING does not create") << 3u << false << false << missing << 2u;
    QTest::newRow("OPEN_EXISTING opens, contents kept") << 3u << true << true << QByteArray("ab345") << 77u;
    QTest::newRow("OPEN_ALWAYS creates") << 4u << false << true << QByteArray("ab") << 0u;
    QTest::newRow("OPEN_ALWAYS opens, contents kept") << 4u << true << true << QByteArray("ab345") << 183u;
    QTest::newRow("TRUNCATE_EXISTING does not create") << 5u << false << false << missing << 2u;
    QTest::newRow("TRUNCATE_EXISTING empties") << 5u << true << true << QByteArray("ab") << 77u;
    QTest::newRow("0 is none") << 0u << true << false << QByteArray("12345") << 87u;
    QTest::newRow("6 is none") << 6u << true << false << QByteArray("12345") << 87u;
}

void tst_PlatformFiles::dispositions()
{
    const Sandbox sandbox;
    QFETCH(unsigned int, disposition);
    QFETCH(bool, exists);
    QFETCH(bool, opens);
    if (exists)
        QVERIFY(write(asciiName, "12345"));

    SetLastError(77);
    HANDLE file = CreateFileW(L"file.txt", GENERIC_WRITE, 0, nullptr, disposition, 0x80, nullptr);
    QTEST(GetLastError(), "error");
    QCOMPARE(file != INVALID_HANDLE_VALUE, opens);
    QVERIFY(file != nullptr);
    if (opens) {
        QVERIFY(std::fputs("ab", static_cast<FILE *>(file)) >= 0);
        QVERIFY(CloseHandle(file));
    }
    QTEST(contentsOf(asciiName), "contents");
}

void tst_PlatformFiles::access_data()
{
    QTest::addColumn<unsigned int>("access");
    QTest::addColumn<bool>("reads");
    QTest::addColumn<bool>("writes");

    QTest::newRow("none reads") << 0u << true << false;
    QTest::newRow("GENERIC_READ") << 0x80000000u << true << false;
    QTest::newRow("GENERIC_WRITE") << 0x40000000u << false << true;
    QTest::newRow("GENERIC_READ and GENERIC_WRITE") << 0xC0000000u << true << true;
    QTest::newRow("GENERIC_ALL") << 0x10000000u << true << true;
    QTest::newRow("FILE_READ_DATA") << 1u << true << false;
    QTest::newRow("FILE_WRITE_DATA") << 2u << false << true;
    QTest::newRow("FILE_READ_DATA and FILE_WRITE_DATA") << 3u << true << true;
    QTest::newRow("FILE_APPEND_DATA") << 4u << false << true;
    QTest::newRow("GENERIC_READ and FILE_APPEND_DATA") << 0x80000004u << true << true;
}

void tst_PlatformFiles::access()
{
    const Sandbox sandbox;
    QFETCH(unsigned int, access);
    QFETCH(bool, reads);
    QFETCH(bool, writes);
    QVERIFY(write(asciiName, "12345"));

    HANDLE handle = CreateFileW(L"file.txt", access, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    QVERIFY(handle != INVALID_HANDLE_VALUE);
    auto *file = static_cast<FILE *>(handle);
    const int mode = reads && writes ? O_RDWR : writes ? O_WRONLY : O_RDONLY;
    QCOMPARE(::fcntl(::fileno(file), F_GETFL) & O_ACCMODE, mode);
    QCOMPARE(std::fgetc(file), reads ? int('1') : EOF);
    std::clearerr(file);
    QCOMPARE(std::fseek(file, 0, SEEK_SET), 0);
    QCOMPARE(std::fputc('a', file), writes ? int('a') : EOF);
    QVERIFY(CloseHandle(handle));
    QCOMPARE(contentsOf(asciiName) != QByteArray("12345"), writes);
}

void tst_PlatformFiles::positionAfterOpening_data()
{
    access_data();
}

void tst_PlatformFiles::positionAfterOpening()
{
    const Sandbox sandbox;
    QFETCH(unsigned int, access);
    QVERIFY(write(asciiName, "12345"));
    for (const DWORD disposition : {OPEN_EXISTING, OPEN_ALWAYS}) {
        HANDLE file = CreateFileW(L"file.txt", access, 0, nullptr, disposition, 0, nullptr);
        QVERIFY(file != INVALID_HANDLE_VALUE);
        QCOMPARE(std::ftell(static_cast<FILE *>(file)), 0L);
        QVERIFY(CloseHandle(file));
    }
}

void tst_PlatformFiles::appendingWritesAtTheEnd()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    HANDLE file = CreateFileW(L"file.txt", FILE_APPEND_DATA, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
    QVERIFY(file != INVALID_HANDLE_VALUE);
    QCOMPARE(std::fseek(static_cast<FILE *>(file), 0, SEEK_SET), 0);
    QVERIFY(std::fputs("ab", static_cast<FILE *>(file)) >= 0);
    QVERIFY(CloseHandle(file));
    QCOMPARE(contentsOf(asciiName), QByteArray("12345ab"));
}

void tst_PlatformFiles::createAlwaysForReadingEmptiesTheFile()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    HANDLE file = CreateFileW(L"file.txt", GENERIC_READ, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    QVERIFY(file != INVALID_HANDLE_VALUE);
    QCOMPARE(std::fgetc(static_cast<FILE *>(file)), EOF);
    QCOMPARE(std::fputc('a', static_cast<FILE *>(file)), EOF);
    QVERIFY(CloseHandle(file));
    QCOMPARE(contentsOf(asciiName), QByteArray());
}

void tst_PlatformFiles::openFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("access");
    QTest::addColumn<unsigned int>("disposition");
    QTest::addColumn<unsigned int>("error");

    QTest::newRow("a directory, to read") << "inner" << 0x80000000u << 3u << unsigned(ERROR_ACCESS_DENIED);
    QTest::newRow("a directory, to write") << "inner" << 0x40000000u << 3u << unsigned(ERROR_ACCESS_DENIED);
    QTest::newRow("a directory, to create") << "inner" << 0x40000000u << 2u << unsigned(ERROR_ACCESS_DENIED);
    QTest::newRow("no parent, to create")
        << "missing/x" << 0x40000000u << 2u << unsigned(ERROR_FILE_NOT_FOUND);
    QTest::newRow("below a file") << "file.txt/x" << 0x80000000u << 3u << unsigned(ERROR_PATH_NOT_FOUND);
    QTest::newRow("a name too long") << QString(300, QLatin1Char('a')) << 0x40000000u << 2u
                                     << unsigned(ERROR_FILENAME_EXCED_RANGE);
    QTest::newRow("TRUNCATE_EXISTING to read")
        << asciiName << 0x80000000u << 5u << unsigned(ERROR_INVALID_PARAMETER);
    QTest::newRow("TRUNCATE_EXISTING to append")
        << asciiName << 4u << 5u << unsigned(ERROR_INVALID_PARAMETER);
}

void tst_PlatformFiles::openFails()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QFETCH(unsigned int, access);
    QFETCH(unsigned int, disposition);
    QVERIFY(QDir().mkdir(QStringLiteral("inner")) && write(asciiName, "12345"));
    HANDLE file = CreateFileW(wide(name).c_str(), access, 0, nullptr, disposition, 0, nullptr);
    QVERIFY(file == KxHandleFromValue<HANDLE>(-1));
    QTEST(GetLastError(), "error");
    QCOMPARE(sandbox.entries(), QStringList({asciiName, QStringLiteral("inner")}));
    QCOMPARE(contentsOf(asciiName), QByteArray("12345"));
}

void tst_PlatformFiles::filesAreNotInherited()
{
    const Sandbox sandbox;
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE file = CreateFileW(L"file.txt", GENERIC_WRITE, 0, &inherited, CREATE_NEW, 0, nullptr);
    QVERIFY(file != INVALID_HANDLE_VALUE);
    QVERIFY(::fcntl(::fileno(static_cast<FILE *>(file)), F_GETFD) & FD_CLOEXEC);
    QVERIFY(CloseHandle(file));
}

void tst_PlatformFiles::qfileTakesTheHandle()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    constexpr DWORD readWrite = GENERIC_READ | GENERIC_WRITE;
    HANDLE handle = CreateFileW(L"file.txt", readWrite, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    QVERIFY(handle != INVALID_HANDLE_VALUE);
    QFile file;
    QVERIFY(file.open(static_cast<FILE *>(handle), QIODevice::ReadWrite, QFileDevice::DontCloseHandle));
    QCOMPARE(file.pos(), 0);
    QCOMPARE(file.read(2), QByteArray("12"));
    QVERIFY(file.seek(4));
    QCOMPARE(file.write("ab"), 2);
    file.close();
    QVERIFY(CloseHandle(handle));
    QCOMPARE(contentsOf(asciiName), QByteArray("1234ab"));
}

void tst_PlatformFiles::closeHandleWritesOut()
{
    const Sandbox sandbox;
    HANDLE file = CreateFileW(L"file.txt", GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    const int descriptor = ::fileno(static_cast<FILE *>(file));
    QVERIFY(std::fputs("text", static_cast<FILE *>(file)) >= 0);
    QVERIFY(CloseHandle(file));
    QCOMPARE(contentsOf(asciiName), QByteArray("text"));
    QCOMPARE(::fcntl(descriptor, F_GETFD), -1);
}

void tst_PlatformFiles::closeHandleSaysWhenItCouldNotWrite()
{
    const Sandbox sandbox;
    HANDLE file = CreateFileW(L"file.txt", GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    QVERIFY(file != INVALID_HANDLE_VALUE);
    QVERIFY(std::fputs("text", static_cast<FILE *>(file)) >= 0);
    bool isClosed = true;
    {
        const FileSizeLimit limit(0);
        isClosed = CloseHandle(file);
    }
    QVERIFY(!isClosed);
    QCOMPARE(GetLastError(), DWORD(ERROR_DISK_FULL));
}

void tst_PlatformFiles::closeHandleOfWhatIsNoFile_data()
{
    QTest::addColumn<void *>("handle");

    static int somethingElse = 0;
    QTest::newRow("null") << static_cast<void *>(nullptr);
    QTest::newRow("INVALID_HANDLE_VALUE") << KxHandleFromValue<void *>(-1);
    QTest::newRow("a small number") << KxHandleFromValue<void *>(7);
    QTest::newRow("the address of something else") << static_cast<void *>(&somethingElse);
    QTest::newRow("a file of the C library") << static_cast<void *>(stdin);
}

void tst_PlatformFiles::closeHandleOfWhatIsNoFile()
{
    const Sandbox sandbox;
    QFETCH(void *, handle);
    QVERIFY(!CloseHandle(handle));
    QCOMPARE(GetLastError(), DWORD(ERROR_INVALID_HANDLE));

    HANDLE file = CreateFileW(L"file.txt", GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    QVERIFY(CloseHandle(file));
    QVERIFY2(!CloseHandle(file), "closed a second time");
}

KX_TEST_MAIN(tst_PlatformFiles)

#include "tst_platform_files.moc"
