// SPDX-License-Identifier: MIT
// CFile and CFileFind.

#include "KxFileSandbox.h"
#include "KxTestCase.h"

#include <afx.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using FileCall = std::function<void(CFile &)>;
using NumberOf = std::function<qint64(CFile &)>;
using Find = std::function<bool(CFileFind &)>;
Q_DECLARE_METATYPE(FileCall)
Q_DECLARE_METATYPE(NumberOf)
Q_DECLARE_METATYPE(Find)

namespace {

constexpr qint64 fiveGigabytes = Q_INT64_C(5) * 1024 * 1024 * 1024;
constexpr qint64 failed = 0xFFFFFFFF;

const QString oddName = QStringLiteral("a name \u00e4\u20ac\U0001d11e.txt");

const QString readClosed = QStringLiteral("^QIODevice::read \\(QFile, \".*\"\\): device not open");
const QString writeClosed = QStringLiteral("^QIODevice::write \\(QFile, \".*\"\\): device not open");
const QString seekClosed = QStringLiteral("^QFileDevice::seek: IODevice is not open");
const QString flushUnnamed = QStringLiteral("^QFileDevice::flush: No file engine");
const QString noName = QStringLiteral("^QFSFileEngine::open: No file name specified");

/// What is protected becomes nameable.
struct File : CFile
{
    using CFile::CFile;
    using CFile::implement;

    QFile *qfile() const { return reinterpret_cast<QFile *>(implement()); }
};

bool isOpenDescriptor(HANDLE handle)
{
    const auto number = reinterpret_cast<std::intptr_t>(handle);
    struct stat status = {};
    return number >= 0 && number < 100000 && ::fstat(static_cast<int>(number), &status) == 0;
}

QByteArray readFrom(CFile &file, unsigned int count)
{
    QByteArray bytes(static_cast<int>(count), '?');
    const unsigned int found = file.Read(bytes.data(), count);
    return found == failed ? QByteArray("(failed)") : bytes.left(static_cast<int>(found));
}

/// "0123456789" over and over.
QByteArray digits(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes.append(static_cast<char>('0' + i % 10));
    return bytes;
}

} // namespace

class tst_Files : public KxTestCase
{
    Q_OBJECT

private slots:
    void construction();
    void constructorOpens_data();
    void constructorOpens();
    void handle();
    void handleStartsAtItsPosition();
    void handleWithoutFile_data();
    void handleWithoutFile();
    void destructionClosesAndWritesOut();

    void openFlags_data();
    void openFlags();
    void textModeReadsLineEnds_data();
    void textModeReadsLineEnds();
    void openFails_data();
    void openFails();
    void openWithoutName_data();
    void openWithoutName();
    void openWhileOpen();
    void failedOpenWhileOpen();
    void errorIsNotTouched();
    void names_data();
    void names();

    void lengthAndPosition();
    void lengthCountsWhatIsBuffered();
    void seek_data();
    void seek();
    void seekBeyondTheEndThenWrite();
    void firstSeekFails();
    void seekToBegin();
    void read_data();
    void read();
    void writeOnlyFileDoesNotRead();
    void readOnlyFileDoesNotWrite();
    void writeReplacesAtThePosition();
    void flushWritesOut();
    void close();
    void emptyFile();
    void fiveGigabyteFile();
    void fullDisk_data();
    void fullDisk();
    void closed_data();
    void closed();

    void removes_data();
    void removes();
    void find_data();
    void find();
};

// ---- construction and destruction -----------------------------------------------------------------------

void tst_Files::construction()
{
    const File file;
    const File other;
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QVERIFY2(file.implement() != other.implement(), "each has a private part of its own");
    QVERIFY(!file.qfile()->isOpen());
}

void tst_Files::constructorOpens_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<bool>("opens");

    QTest::newRow("an existing file") << asciiName << 0u << true;
    QTest::newRow("a new file") << "new" << 1u << true;
    QTest::newRow("a missing file fails silently") << "missing" << 0u << false;
    QTest::newRow("a directory fails silently") << "." << 0u << false;
}

void tst_Files::constructorOpens()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QFETCH(unsigned int, flags);
    QFETCH(bool, opens);
    QVERIFY(write(asciiName, "12345"));
    const File file(wide(name).c_str(), flags);
    QCOMPARE(isOpenDescriptor(file.m_hFile), opens);
    QCOMPARE(file.m_hFile == CFile::hFileNull, !opens);
    QCOMPARE(file.qfile()->isOpen(), opens);
    QCOMPARE(QFileInfo::exists(name), opens || name == QLatin1String("."));
}

void tst_Files::handle()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    constexpr DWORD readWrite = GENERIC_READ | GENERIC_WRITE;
    HANDLE stream = CreateFileW(L"file.txt", readWrite, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    QVERIFY(stream != INVALID_HANDLE_VALUE);
    {
        CFile file(stream);
        QVERIFY2(file.m_hFile == stream, "the argument, not the descriptor");
        QCOMPARE(file.GetLength(), ULONGLONG(5));
        QCOMPARE(readFrom(file, 2), QByteArray("12"));
        QCOMPARE(file.Seek(4, CFile::begin), ULONGLONG(4));
        file.Write("ab", 2);
        CFileStatus status = {};
        QVERIFY2(!file.GetStatus(status), "no name was given");
    }
    QCOMPARE(contentsOf(asciiName), QByteArray("1234ab"));
    QCOMPARE(std::fseek(static_cast<FILE *>(stream), 0, SEEK_SET), 0);
    QVERIFY2(std::fputs("X", static_cast<FILE *>(stream)) >= 0, "still open after destruction");
    {
        File file(stream);
        file.Close();
        QVERIFY(file.m_hFile == CFile::hFileNull);
        QVERIFY(!file.qfile()->isOpen());
    }
    QVERIFY2(CloseHandle(stream), "still open after Close()");
    QCOMPARE(contentsOf(asciiName), QByteArray("X234ab"));
}

void tst_Files::handleStartsAtItsPosition()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    HANDLE stream = CreateFileW(L"file.txt", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    QCOMPARE(std::fgetc(static_cast<FILE *>(stream)), int('1'));
    CFile file(stream);
    QCOMPARE(file.GetPosition(), ULONGLONG(1));
    QCOMPARE(readFrom(file, 10), QByteArray("2345"));
    QVERIFY(CloseHandle(stream));
}

void tst_Files::handleWithoutFile_data()
{
    QTest::addColumn<void *>("handle");

    QTest::newRow("null") << static_cast<void *>(nullptr);
    QTest::newRow("INVALID_HANDLE_VALUE") << INVALID_HANDLE_VALUE;
}

void tst_Files::handleWithoutFile()
{
    const Sandbox sandbox;
    QFETCH(void *, handle);
    QVERIFY(write(asciiName, "12345"));
    File file(handle);
    QVERIFY(file.m_hFile == handle);
    QVERIFY(!file.qfile()->isOpen());
    expectWarning(readClosed);
    QCOMPARE(readFrom(file, 2), QByteArray("(failed)"));
    QVERIFY(file.Open(L"file.txt", CFile::modeRead));
    QCOMPARE(readFrom(file, 2), QByteArray("12"));
}

void tst_Files::destructionClosesAndWritesOut()
{
    const Sandbox sandbox;
    HANDLE descriptor = nullptr;
    {
        auto file = std::make_unique<CFile>(L"file.txt", CFile::modeWrite);
        descriptor = file->m_hFile;
        QVERIFY(isOpenDescriptor(descriptor));
        file->Write("12345", 5);
    }
    QVERIFY(!isOpenDescriptor(descriptor));
    QCOMPARE(contentsOf(asciiName), QByteArray("12345"));
}

// ---- opening --------------------------------------------------------------------------------------------

void tst_Files::openFlags_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("creates");
    QTest::addColumn<QByteArray>("contents"); // of an existing file, "12345" before

    const auto row = [](const char *name, unsigned int flags, QIODevice::OpenMode mode, bool creates,
                        const char *contents) {
        QTest::newRow(name) << flags << int(mode) << creates << QByteArray(contents);
    };
    constexpr auto readOnly = QIODevice::ReadOnly;
    constexpr auto writeOnly = QIODevice::WriteOnly;
    constexpr auto readWrite = QIODevice::ReadWrite;
    constexpr auto text = QIODevice::Text;

    row("0: reads", 0, readOnly, false, "12345");
    row("0x0001: writes, creates and truncates", 1, writeOnly, true, "");
    row("0x0002: reads and writes, creates, keeps", 2, readWrite, true, "12345");
    row("0x0003: as 0x0002", 3, readWrite, true, "12345");
    row("0x4000: text", 0x4000, readOnly | text, false, "12345");
    row("0x4001: text, writes", 0x4001, writeOnly | text, true, "");
    row("0x4002: text, reads and writes", 0x4002, readWrite | text, true, "12345");
    row("0x1000: create alone is ignored", 0x1000, readOnly, false, "12345");
    row("0x1001: as 0x0001", 0x1001, writeOnly, true, "");
    row("0x1002: create keeps the contents", 0x1002, readWrite, true, "12345");
    row("0x2001: no-truncate is ignored", 0x2001, writeOnly, true, "");
    row("0x3001: create and no-truncate are ignored", 0x3001, writeOnly, true, "");
    row("0x3002: create and no-truncate are ignored", 0x3002, readWrite, true, "12345");
    row("0x2000: no-truncate alone reads", 0x2000, readOnly, false, "12345");
    row("0x8000: binary is ignored", 0x8000, readOnly, false, "12345");
    row("0xC000: binary does not undo text", 0xC000, readOnly | text, false, "12345");
    row("0x0010: share exclusive is ignored", 0x10, readOnly, false, "12345");
    row("0x0021: share deny write is ignored", 0x21, writeOnly, true, "");
    row("0x0032: share deny read is ignored", 0x32, readWrite, true, "12345");
    row("0x0040: share deny none is ignored", 0x40, readOnly, false, "12345");
    row("0x0080: inheritance is ignored", 0x80, readOnly, false, "12345");
    row("every other bit is ignored", 0xFFFFBFFC, readOnly, false, "12345");
}

void tst_Files::openFlags()
{
    const Sandbox sandbox;
    QFETCH(unsigned int, flags);
    QFETCH(int, mode);
    QFETCH(bool, creates);
    QFETCH(QByteArray, contents);
    QVERIFY(write(asciiName, "12345"));

    File file;
    QVERIFY(file.Open(L"file.txt", flags, nullptr));
    QCOMPARE(int(file.qfile()->openMode()), mode);
    QVERIFY(isOpenDescriptor(file.m_hFile));
    QCOMPARE(file.GetPosition(), ULONGLONG(0));
    QCOMPARE(file.GetLength(), ULONGLONG(contents.size()));
    if (mode & QIODevice::ReadOnly)
        QCOMPARE(readFrom(file, 9), contents);
    file.SeekToBegin();
    if (mode & QIODevice::WriteOnly) {
        file.Write("ab", 2);
        contents.replace(0, 2, "ab");
    }
    file.Close();
    QCOMPARE(contentsOf(asciiName), contents);

    File other;
    QCOMPARE(other.Open(L"missing", flags, nullptr), creates);
    QCOMPARE(other.m_hFile != CFile::hFileNull, creates);
    QCOMPARE(QFileInfo::exists(QStringLiteral("missing")), creates);
}

void tst_Files::textModeReadsLineEnds_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("text") << unsigned(CFile::typeText) << QByteArray("a\nb\n\nc");
    QTest::newRow("binary") << unsigned(CFile::typeBinary) << QByteArray("a\r\nb\r\n\nc");
    QTest::newRow("neither") << unsigned(CFile::modeRead) << QByteArray("a\r\nb\r\n\nc");
}

void tst_Files::textModeReadsLineEnds()
{
    const Sandbox sandbox;
    QFETCH(unsigned int, flags);
    QVERIFY(write(asciiName, "a\r\nb\r\n\nc"));
    CFile file(L"file.txt", flags);
    QTEST(readFrom(file, 20), "expected");
}

void tst_Files::openFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("flags");

    QTest::newRow("a missing file") << "missing" << 0u;
    QTest::newRow("a directory to read") << "inner" << 0u;
    QTest::newRow("a directory to write") << "inner" << 1u;
    QTest::newRow("a directory to read and write") << "inner" << 2u;
    QTest::newRow("below a missing directory") << "missing/x" << 1u;
    QTest::newRow("below a file") << "file.txt/x" << 1u;
    QTest::newRow("a name too long") << QString(300, QLatin1Char('a')) << 1u;
}

void tst_Files::openFails()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QFETCH(unsigned int, flags);
    QVERIFY(write(asciiName, "12345") && QDir().mkdir(QStringLiteral("inner")));
    File file;
    QVERIFY(!file.Open(wide(name).c_str(), flags));
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QVERIFY(!file.qfile()->isOpen());
    QCOMPARE(sandbox.entries(), QStringList({asciiName, QStringLiteral("inner")}));
    QVERIFY2(file.Open(L"file.txt", CFile::modeRead), "the object can still be used");
    QCOMPARE(readFrom(file, 9), QByteArray("12345"));
}

void tst_Files::openWithoutName_data()
{
    QTest::addColumn<bool>("isNull");

    QTest::newRow("an empty name") << false;
    QTest::newRow("null") << true;
}

void tst_Files::openWithoutName()
{
    const Sandbox sandbox;
    QFETCH(bool, isNull);
    const wchar_t *name = isNull ? nullptr : L"";
    for (const unsigned int flags : {0u, 1u, 2u}) {
        CFile file;
        expectWarning(noName);
        QVERIFY(!file.Open(name, flags));
        QVERIFY(file.m_hFile == CFile::hFileNull);
        expectWarning(noName);
        const CFile other(name, flags);
        QVERIFY(other.m_hFile == CFile::hFileNull);
    }
    QCOMPARE(sandbox.entries(), QStringList());
}

void tst_Files::openWhileOpen()
{
    const Sandbox sandbox;
    QVERIFY(write(QStringLiteral("second"), "67890"));
    File file;
    QVERIFY(file.Open(L"file.txt", CFile::modeWrite));
    file.Write("12345", 5);
    QVERIFY(file.Open(L"second", CFile::modeRead));
    QVERIFY(isOpenDescriptor(file.m_hFile));
    QCOMPARE(file.qfile()->fileName(), QStringLiteral("second"));
    QCOMPARE(file.GetPosition(), ULONGLONG(0));
    QCOMPARE(readFrom(file, 9), QByteArray("67890"));
    QCOMPARE(contentsOf(asciiName), QByteArray("12345"));
    QVERIFY2(file.Open(L"second", CFile::modeRead), "the same file again");
    QCOMPARE(readFrom(file, 9), QByteArray("67890"));
}

void tst_Files::failedOpenWhileOpen()
{
    const Sandbox sandbox;
    File file(L"file.txt", CFile::modeWrite);
    file.Write("12345", 5);
    QVERIFY(!file.Open(L"missing", CFile::modeRead));
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QVERIFY(!file.qfile()->isOpen());
    QCOMPARE(contentsOf(asciiName), QByteArray("12345"));
}

void tst_Files::errorIsNotTouched()
{
    const Sandbox sandbox;
    unsigned char bytes[256];
    std::memset(bytes, 0x5A, sizeof bytes);
    auto *error = reinterpret_cast<CFileException *>(bytes);
    CFile file;
    QVERIFY(!file.Open(L"missing", CFile::modeRead, error));
    QVERIFY(file.Open(L"file.txt", CFile::modeWrite, error));
    for (const unsigned char byte : bytes)
        QCOMPARE(byte, static_cast<unsigned char>(0x5A));
}

void tst_Files::names_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("spaces") << " a  name .txt";
    QTest::newRow("letters outside ASCII") << QStringLiteral("\u00e4\u00d6\u20ac\u65e5.txt");
    QTest::newRow("outside the basic plane") << QStringLiteral("\U0001d11e.txt");
    QTest::newRow("all of it") << oddName;
    QTest::newRow("in a folder") << QStringLiteral("in ner/") + oddName;
    QTest::newRow("a backslash is part of the name") << "a\\b";
    QTest::newRow("wild cards are part of the name") << "*?.txt";
}

void tst_Files::names()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QVERIFY(QDir().mkdir(QStringLiteral("in ner")));
    const std::wstring wideName = wide(name);
    CFile file(wideName.c_str(), CFile::modeWrite);
    QVERIFY(file.m_hFile != CFile::hFileNull);
    file.Write("12345", 5);
    file.Close();
    QCOMPARE(contentsOf(sandbox.path(name)), QByteArray("12345"));
    QVERIFY(CFileFind().FindFile(wideName.c_str()));
    CFileStatus status = {};
    QVERIFY(CFile::GetStatus(wideName.c_str(), status));
    QCOMPARE(QString::fromWCharArray(status.m_szFullName), sandbox.path(name));
    QVERIFY(CFile::Remove(wideName.c_str()));
    QVERIFY(!QFileInfo::exists(name));
}

// ---- an open file ---------------------------------------------------------------------------------------

void tst_Files::lengthAndPosition()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, digits(100)));
    CFile file(L"file.txt", CFile::modeRead);
    QCOMPARE(file.GetLength(), ULONGLONG(100));
    QCOMPARE(file.GetPosition(), ULONGLONG(0));
    QCOMPARE(readFrom(file, 30).size(), 30);
    QCOMPARE(file.GetPosition(), ULONGLONG(30));
    QCOMPARE(file.GetLength(), ULONGLONG(100));
    QVERIFY(write(asciiName, digits(40)));
    QCOMPARE(file.GetLength(), ULONGLONG(40));
}

void tst_Files::lengthCountsWhatIsBuffered()
{
    const Sandbox sandbox;
    CFile file(L"file.txt", CFile::modeWrite);
    file.Write("123", 3);
    QCOMPARE(file.GetPosition(), ULONGLONG(3));
    QCOMPARE(file.GetLength(), ULONGLONG(3));
    file.Write("45", 2);
    QCOMPARE(file.GetLength(), ULONGLONG(5));
}

void tst_Files::seek_data()
{
    QTest::addColumn<int>("readBefore");
    QTest::addColumn<qint64>("offset");
    QTest::addColumn<unsigned int>("origin");
    QTest::addColumn<qint64>("expected");

    const auto row = [](const char *name, int readBefore, qint64 offset, unsigned int origin,
                        qint64 expected) {
        QTest::newRow(name) << readBefore << offset << origin << expected;
    };
    row("begin, 0", 20, 0, 0, 0);
    row("begin, 10", 20, 10, 0, 10);
    row("begin, the end", 20, 100, 0, 100);
    row("begin, beyond the end", 20, 150, 0, 150);
    row("current, 0: to the start", 20, 0, 1, 0);
    row("current, 5 after reading 20: 5, not 25", 20, 5, 1, 5);
    row("end, 0: to the start, not the end", 20, 0, 2, 0);
    row("end, 10 of 100: 10, not 110", 0, 10, 2, 10);
    row("end, beyond the end", 0, 150, 2, 150);
    row("origin 77: a position like any other", 20, 7, 77, 7);
    row("origin 0xFFFFFFFF: a position like any other", 20, 7, 0xFFFFFFFF, 7);
    row("begin, -1: at the origin", 20, -1, 0, 0);
    row("current, -5: at the origin", 20, -5, 1, 1);
    row("end, -10: at the origin", 20, -10, 2, 2);
    row("origin 77, -1: at the origin", 20, -1, 77, 77);
}

void tst_Files::seek()
{
    const Sandbox sandbox;
    QFETCH(int, readBefore);
    QFETCH(qint64, offset);
    QFETCH(unsigned int, origin);
    QFETCH(qint64, expected);
    const QByteArray contents = digits(100);
    QVERIFY(write(asciiName, contents));
    for (const unsigned int flags : {0u, 2u}) {
        CFile file(L"file.txt", flags);
        QCOMPARE(readFrom(file, static_cast<unsigned int>(readBefore)), contents.left(readBefore));
        QCOMPARE(file.Seek(offset, origin), ULONGLONG(expected));
        QCOMPARE(file.GetPosition(), ULONGLONG(expected));
        QCOMPARE(file.GetLength(), ULONGLONG(100));
        QCOMPARE(readFrom(file, 3), contents.mid(static_cast<int>(expected), 3));
    }
}

void tst_Files::seekBeyondTheEndThenWrite()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    CFile file(L"file.txt", CFile::modeReadWrite);
    QCOMPARE(file.Seek(7, CFile::end), ULONGLONG(7));
    file.Write("ab", 2);
    file.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("12345\0\0ab", 9));
}

/// What was written before cannot be written out, so the first of the two seeks fails and the second, which
/// would work, is not tried.
void tst_Files::firstSeekFails()
{
    const Sandbox sandbox;
    CFile file(L"file.txt", CFile::modeWrite);
    file.Write("12345", 5);
    ULONGLONG position = 0;
    {
        const FileSizeLimit full(0);
        position = file.Seek(2, CFile::begin);
    }
    QCOMPARE(position, ULONGLONG(5));
    QCOMPARE(file.GetPosition(), ULONGLONG(5));
}

void tst_Files::seekToBegin()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    CFile file(L"file.txt", CFile::modeRead);
    QCOMPARE(readFrom(file, 3), QByteArray("123"));
    file.SeekToBegin();
    QCOMPARE(file.GetPosition(), ULONGLONG(0));
    QCOMPARE(readFrom(file, 3), QByteArray("123"));
}

void tst_Files::read_data()
{
    QTest::addColumn<qint64>("position");
    QTest::addColumn<unsigned int>("count");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("all") << qint64(0) << 5u << QByteArray("12345");
    QTest::newRow("a part") << qint64(0) << 2u << QByteArray("12");
    QTest::newRow("from the position") << qint64(3) << 1u << QByteArray("4");
    QTest::newRow("more than there is") << qint64(3) << 100u << QByteArray("45");
    QTest::newRow("at the end") << qint64(5) << 10u << QByteArray();
    QTest::newRow("beyond the end") << qint64(9) << 10u << QByteArray();
    QTest::newRow("nothing") << qint64(0) << 0u << QByteArray();
}

void tst_Files::read()
{
    const Sandbox sandbox;
    QFETCH(qint64, position);
    QFETCH(unsigned int, count);
    QFETCH(QByteArray, expected);
    QVERIFY(write(asciiName, "12345"));
    CFile file(L"file.txt", CFile::modeRead);
    file.Seek(position, CFile::begin);
    char buffer[101];
    std::memset(buffer, '?', sizeof buffer);
    QCOMPARE(file.Read(buffer, count), unsigned(expected.size()));
    QCOMPARE(QByteArray(buffer, expected.size()), expected);
    QCOMPARE(buffer[expected.size()], '?');
    QCOMPARE(file.GetPosition(), ULONGLONG(position + expected.size()));
}

void tst_Files::writeOnlyFileDoesNotRead()
{
    const Sandbox sandbox;
    CFile file(L"file.txt", CFile::modeWrite);
    char byte = '?';
    expectWarning(QStringLiteral("^QIODevice::read \\(QFile, \"file.txt\"\\): WriteOnly device"));
    QCOMPARE(file.Read(&byte, 1), 0xFFFFFFFFu);
    QCOMPARE(byte, '?');
}

void tst_Files::readOnlyFileDoesNotWrite()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    CFile file(L"file.txt", CFile::modeRead);
    expectWarning(QStringLiteral("^QIODevice::write \\(QFile, \"file.txt\"\\): ReadOnly device"));
    file.Write("ab", 2);
    QCOMPARE(file.GetPosition(), ULONGLONG(0));
    file.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("12345"));
}

void tst_Files::writeReplacesAtThePosition()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    CFile file(L"file.txt", CFile::modeReadWrite);
    file.Seek(1, CFile::begin);
    file.Write("a\0b", 3);
    file.Write("", 0);
    QCOMPARE(file.GetPosition(), ULONGLONG(4));
    QCOMPARE(readFrom(file, 5), QByteArray("5"));
    file.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("1a\0b5", 5));
}

void tst_Files::flushWritesOut()
{
    const Sandbox sandbox;
    CFile file(L"file.txt", CFile::modeWrite);
    file.Write("12345", 5);
    QCOMPARE(contentsOf(asciiName), QByteArray());
    file.Flush();
    QCOMPARE(contentsOf(asciiName), QByteArray("12345"));
    file.Flush();
    QCOMPARE(file.GetPosition(), ULONGLONG(5));
}

void tst_Files::close()
{
    const Sandbox sandbox;
    File file(L"file.txt", CFile::modeWrite);
    HANDLE descriptor = file.m_hFile;
    QVERIFY(isOpenDescriptor(descriptor));
    file.Write("12345", 5);
    file.Close();
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QVERIFY(!file.qfile()->isOpen());
    QVERIFY(!isOpenDescriptor(descriptor));
    QCOMPARE(contentsOf(asciiName), QByteArray("12345"));
    file.Close();
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QVERIFY2(file.Open(L"file.txt", CFile::modeRead), "closed is not the end");
    QCOMPARE(readFrom(file, 9), QByteArray("12345"));
}

void tst_Files::emptyFile()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, ""));
    CFile file(L"file.txt", CFile::modeReadWrite);
    QCOMPARE(file.GetLength(), ULONGLONG(0));
    QCOMPARE(readFrom(file, 10), QByteArray());
    QCOMPARE(file.Seek(0, CFile::end), ULONGLONG(0));
    file.SeekToBegin();
    file.Flush();
    file.Close();
    QCOMPARE(QFileInfo(asciiName).size(), qint64(0));
}

void tst_Files::fiveGigabyteFile()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    QCOMPARE(::truncate("file.txt", fiveGigabytes), 0);
    CFile file(L"file.txt", CFile::modeReadWrite);
    QCOMPARE(file.GetLength(), ULONGLONG(fiveGigabytes));
    QCOMPARE(file.Seek(fiveGigabytes - 2, CFile::end), ULONGLONG(fiveGigabytes - 2));
    QCOMPARE(readFrom(file, 10), QByteArray(2, '\0'));
    QCOMPARE(file.GetPosition(), ULONGLONG(fiveGigabytes));
    file.Write("abc", 3);
    QCOMPARE(file.GetPosition(), ULONGLONG(fiveGigabytes + 3));
    QCOMPARE(file.GetLength(), ULONGLONG(fiveGigabytes + 3));
    QCOMPARE(file.Seek(fiveGigabytes - 1, CFile::begin), ULONGLONG(fiveGigabytes - 1));
    QCOMPARE(readFrom(file, 10), QByteArray("\0abc", 4));
    file.SeekToBegin();
    QCOMPARE(readFrom(file, 5), QByteArray("12345"));
    CFileStatus status = {};
    QVERIFY(file.GetStatus(status));
    QCOMPARE(status.m_size, ULONGLONG(fiveGigabytes + 3));
    file.Close();
    QVERIFY(CFile::Remove(L"file.txt"));
}

void tst_Files::fullDisk_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("count");

    QTest::newRow("nothing fits") << 0 << 5;
    QTest::newRow("a part fits") << 3 << 5;
    QTest::newRow("a part of more than Qt buffers fits") << 50000 << 100000;
}

void tst_Files::fullDisk()
{
    const Sandbox sandbox;
    QFETCH(int, limit);
    QFETCH(int, count);
    const QByteArray bytes = digits(count);
    File file(L"file.txt", CFile::modeWrite);
    ULONGLONG length = 0;
    ULONGLONG lengthAfter = 0;
    {
        const FileSizeLimit full(static_cast<rlim_t>(limit));
        file.Write(bytes.constData(), static_cast<unsigned int>(count));
        file.Flush();
        length = file.GetLength();
        lengthAfter = file.GetLength();
        file.Close();
    }
    QVERIFY(length < ULONGLONG(count));
    QVERIFY(lengthAfter < ULONGLONG(count));
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QVERIFY(!file.qfile()->isOpen());
    const QByteArray found = contentsOf(asciiName);
    QVERIFY(found.size() <= limit);
    QCOMPARE(found, bytes.left(found.size()));

    QVERIFY2(file.Open(L"second", CFile::modeWrite), "the object can still be used");
    file.Write("ab", 2);
    file.Close();
    QCOMPARE(contentsOf(QStringLiteral("second")), QByteArray("ab"));
}

// ---- a file that is not open ----------------------------------------------------------------------------

void tst_Files::closed_data()
{
    QTest::addColumn<FileCall>("bring"); // a new object into the state
    QTest::addColumn<NumberOf>("call");
    QTest::addColumn<qint64>("expected");
    QTest::addColumn<QString>("warning");

    struct State
    {
        const char *title;
        FileCall bring;
        bool isNamed;
        qint64 length;
    };
    const State states[] = {
        {"never opened", [](CFile &) {}, false, 0},
        {"closed", [](CFile &file) {
             QVERIFY(file.Open(L"file.txt", CFile::modeReadWrite));
             QCOMPARE(readFrom(file, 2), QByteArray("12"));
             file.Close();
         }, true, 5},
        {"open failed", [](CFile &file) { QVERIFY(!file.Open(L"missing", CFile::modeRead)); }, true, 0},
    };
    const auto seek = [](CFile &file) { return qint64(file.Seek(1, CFile::begin)); };
    const auto seekToBegin = [](CFile &file) { file.SeekToBegin(); return qint64(0); };
    const auto read = [](CFile &file) {
        char byte = '?';
        const qint64 result = file.Read(&byte, 1);
        return byte == '?' ? result : -2;
    };
    const auto write = [](CFile &file) { file.Write("a", 1); return qint64(0); };
    const auto flush = [](CFile &file) { file.Flush(); return qint64(0); };
    const auto close = [](CFile &file) { file.Close(); return qint64(0); };
    const auto length = [](CFile &file) { return qint64(file.GetLength()); };
    const auto position = [](CFile &file) { return qint64(file.GetPosition()); };

    for (const State &state : states) {
        const auto row = [&state](const char *title, const NumberOf &call, qint64 expected,
                                  const QString &warning) {
            QTest::newRow((QByteArray(state.title) + ": " + title).constData())
                << state.bring << call << expected << warning;
        };
        row("Read gives -1", read, failed, readClosed);
        row("Write does nothing", write, 0, writeClosed);
        row("Seek gives position 0", seek, 0, seekClosed);
        row("SeekToBegin does nothing", seekToBegin, 0, seekClosed);
        row("GetPosition gives 0", position, 0, QString());
        row("GetLength gives what the name has", length, state.length, QString());
        row("Flush does nothing", flush, 0, state.isNamed ? QString() : flushUnnamed);
        row("Close does nothing", close, 0, QString());
    }
}

void tst_Files::closed()
{
    const Sandbox sandbox;
    QFETCH(FileCall, bring);
    QFETCH(NumberOf, call);
    QFETCH(QString, warning);
    QVERIFY(write(asciiName, "12345"));
    CFile file;
    bring(file);
    if (!warning.isEmpty())
        expectWarning(warning);
    QTEST(call(file), "expected");
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QCOMPARE(contentsOf(asciiName), QByteArray("12345"));
}

// ---- Remove and CFileFind -------------------------------------------------------------------------------

void tst_Files::removes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("removes");

    QTest::newRow("a file") << asciiName << true;
    QTest::newRow("a name with spaces and letters outside ASCII") << oddName << true;
    QTest::newRow("a missing file") << "missing" << false;
    QTest::newRow("a directory") << "inner" << false;
    QTest::newRow("a wild card") << "*.txt" << false;
    QTest::newRow("an empty name") << "" << false;
}

void tst_Files::removes()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QFETCH(bool, removes);
    QVERIFY(write(asciiName, "text") && write(oddName, "text") && QDir().mkdir(QStringLiteral("inner")));
    QStringList left = sandbox.entries();
    if (removes)
        left.removeOne(name);
    QCOMPARE(CFile::Remove(wide(name).c_str()), removes);
    QCOMPARE(sandbox.entries(), left);
    QVERIFY(!CFile::Remove(nullptr));
}

void tst_Files::find_data()
{
    QTest::addColumn<Find>("call");
    QTest::addColumn<bool>("expected");

    const auto row = [](const char *title, const QString &name, unsigned int flags, bool expected) {
        const std::wstring wideName = wide(name);
        const Find call = [=](CFileFind &find) { return find.FindFile(wideName.c_str(), flags); };
        QTest::newRow(title) << call << expected;
    };
    row("a file", asciiName, 0, true);
    row("a directory", QStringLiteral("inner"), 0, true);
    row("spaces and letters outside ASCII", oddName, 0, true);
    row("a missing file", QStringLiteral("missing"), 0, false);
    row("* is not expanded", QStringLiteral("*.txt"), 0, false);
    row("? is not expanded", QStringLiteral("fil?.txt"), 0, false);
    row("* in the name of a file", QStringLiteral("*.plt"), 0, true);
    row("? in the name of a file", QStringLiteral("?.plt"), 0, true);
    row("another case", QStringLiteral("FILE.TXT"), 0, false);
    row("a link to nothing", QStringLiteral("dangling"), 0, false);
    row("flags are ignored", asciiName, 0xFFFFFFFF, true);
    row("flags do not find a missing file", QStringLiteral("missing"), 0xFFFFFFFF, false);
    row("an empty name", QString(), 0, false);
    QTest::newRow("null") << Find([](CFileFind &find) { return find.FindFile(nullptr, 0); }) << false;
    QTest::newRow("no arguments") << Find([](CFileFind &find) { return find.FindFile(); }) << false;
}

void tst_Files::find()
{
    const Sandbox sandbox;
    QFETCH(Find, call);
    QVERIFY(write(asciiName, "text") && write(oddName, "text") && QDir().mkdir(QStringLiteral("inner")));
    QVERIFY(write(QStringLiteral("*.plt"), "text") && write(QStringLiteral("?.plt"), "text"));
    QCOMPARE(::symlink("nowhere", "dangling"), 0);
    CFileFind find;
    QTEST(call(find), "expected");
    QTEST(call(find), "expected");
}

KX_TEST_MAIN(tst_Files)

#include "tst_files.moc"
