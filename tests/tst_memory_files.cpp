// SPDX-License-Identifier: MIT
// CMemFile and CSharedFile.

#include "KxTestCase.h"

#include <afx.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

constexpr unsigned int failed = 0xFFFFFFFF;

const QString readClosed = QStringLiteral("^QIODevice::read \\(QFile, \".*\"\\): device not open");
const QString writeClosed = QStringLiteral("^QIODevice::write \\(QFile, \".*\"\\): device not open");

/// What is protected becomes nameable.
struct SharedFile : CSharedFile
{
    using CSharedFile::CSharedFile;
    using CSharedFile::m_hGlobalMemory;
    using CSharedFile::m_lpBuffer;
    using CSharedFile::m_nBufferSize;

    void write(QByteArray bytes)
    {
        Write(reinterpret_cast<unsigned char *>(bytes.data()), static_cast<unsigned int>(bytes.size()));
    }
    QByteArray contents() const
    {
        return QByteArray(reinterpret_cast<const char *>(m_lpBuffer), static_cast<int>(m_nBufferSize));
    }
};

/// What the call puts into a buffer of ten question marks.
QByteArray readFrom(CMemFile &file, unsigned int count)
{
    QByteArray buffer(10, '?');
    file.Read(reinterpret_cast<unsigned char *>(buffer.data()), count);
    return buffer;
}

QByteArray contentsOf(HGLOBAL memory)
{
    const auto *data = static_cast<const char *>(GlobalLock(memory));
    const QByteArray bytes(data, static_cast<int>(GlobalSize(memory)));
    GlobalUnlock(memory);
    return bytes;
}

} // namespace

class tst_MemoryFiles : public KxTestCase
{
    Q_OBJECT

private slots:
    void memFileReads_data();
    void memFileReads();
    void memFileReadsTheSameTwice();
    void memFileReadSeesChanges();
    void memFileReadResult();
    void memFileWithoutBuffer();
    void memFileLeavesItsBuffer();
    void memFileDetach();
    void memFileIsAClosedFile();

    void sharedFileStartsEmpty_data();
    void sharedFileStartsEmpty();
    void write();
    void writeCopies();
    void writeReplaces_data();
    void writeReplaces();
    void writeNothing();
    void detach();
    void detachGivesTheLastWrite();
    void detachOfNothing();
    void detachTwice();
    void detachWidensTheSize();
    void readAfterDetach();
    void writeAfterDetach();
    void blockOutlivesTheFile();
    void destructionThroughTheBase();
    void sharedFileIsAClosedFile();
};

// ---- CMemFile -------------------------------------------------------------------------------------------

void tst_MemoryFiles::memFileReads_data()
{
    QTest::addColumn<unsigned int>("size");
    QTest::addColumn<unsigned int>("count");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("less than there is") << 5u << 3u << QByteArray("123???????");
    QTest::newRow("all there is") << 5u << 5u << QByteArray("12345?????");
    QTest::newRow("more than there is") << 5u << 10u << QByteArray("12345?????");
    QTest::newRow("more than a buffer can hold") << 5u << failed << QByteArray("12345?????");
    QTest::newRow("nothing") << 5u << 0u << QByteArray("??????????");
    QTest::newRow("from a file of no bytes") << 0u << 5u << QByteArray("??????????");
}

void tst_MemoryFiles::memFileReads()
{
    QFETCH(unsigned int, size);
    QFETCH(unsigned int, count);
    unsigned char bytes[] = {'1', '2', '3', '4', '5', '6'};
    CMemFile file(bytes, size);
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QTEST(readFrom(file, count), "expected");
}

void tst_MemoryFiles::memFileReadsTheSameTwice()
{
    unsigned char bytes[] = {'1', '2', '3', '4', '5'};
    CMemFile file(bytes, 5);
    QCOMPARE(readFrom(file, 3), QByteArray("123???????"));
    QCOMPARE(readFrom(file, 3), QByteArray("123???????"));
    QCOMPARE(readFrom(file, 5), QByteArray("12345?????"));
}

void tst_MemoryFiles::memFileReadSeesChanges()
{
    unsigned char bytes[] = {'1', '2', '3'};
    CMemFile file(bytes, 3);
    bytes[1] = 'x';
    QCOMPARE(readFrom(file, 3), QByteArray("1x3???????"));
}

/// The address of the target, cut to 32 bits: not a count.
void tst_MemoryFiles::memFileReadResult()
{
    unsigned char bytes[] = {'1', '2', '3'};
    unsigned char target[3] = {};
    CMemFile file(bytes, 3);
    const auto address = static_cast<unsigned int>(reinterpret_cast<std::uintptr_t>(target));
    QCOMPARE(file.Read(target, 3), address);
    QCOMPARE(file.Read(target, 1), address);
}

void tst_MemoryFiles::memFileWithoutBuffer()
{
    CMemFile file(nullptr, 0);
    QCOMPARE(readFrom(file, 5), QByteArray("??????????"));
    QCOMPARE(readFrom(file, 0), QByteArray("??????????"));
    file.Read(nullptr, 0);
    file.Read(nullptr, 5);
    QVERIFY(file.Detach() == nullptr);
}

void tst_MemoryFiles::memFileLeavesItsBuffer()
{
    const std::unique_ptr<unsigned char[]> bytes(new unsigned char[3]{'1', '2', '3'});
    {
        CMemFile file(bytes.get(), 3);
        QCOMPARE(readFrom(file, 3), QByteArray("123???????"));
    }
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(bytes.get()), 3), QByteArray("123"));
}

void tst_MemoryFiles::memFileDetach()
{
    unsigned char bytes[] = {'1', '2', '3'};
    CMemFile file(bytes, 3);
    QVERIFY(file.Detach() == nullptr);
    QCOMPARE(readFrom(file, 3), QByteArray("123???????"));
    QVERIFY(file.Detach() == nullptr);
}

/// Through its base it is the file underneath, which nobody opened.
void tst_MemoryFiles::memFileIsAClosedFile()
{
    unsigned char bytes[] = {'1', '2', '3'};
    CMemFile memFile(bytes, 3);
    CFile *file = &memFile;
    QByteArray buffer(10, '?');
    expectWarning(readClosed);
    QCOMPARE(file->Read(buffer.data(), 3), failed);
    QCOMPARE(buffer, QByteArray(10, '?'));
    expectWarning(writeClosed);
    memFile.Write("abc", 3);
    QCOMPARE(memFile.GetLength(), ULONGLONG(0));
    QCOMPARE(memFile.GetPosition(), ULONGLONG(0));
    QCOMPARE(readFrom(memFile, 3), QByteArray("123???????"));
}

// ---- CSharedFile ----------------------------------------------------------------------------------------

void tst_MemoryFiles::sharedFileStartsEmpty_data()
{
    QTest::addColumn<int>("flags");

    QTest::newRow("flags 0") << 0;
    QTest::newRow("flags GHND") << int(GHND);
    QTest::newRow("flags GPTR: no fixed memory either") << int(GPTR);
    QTest::newRow("flags -1") << -1;
}

void tst_MemoryFiles::sharedFileStartsEmpty()
{
    QFETCH(int, flags);
    SharedFile file(flags);
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QVERIFY(file.m_lpBuffer == nullptr);
    QCOMPARE(file.m_nBufferSize, 0u);
    QCOMPARE(file.m_hGlobalMemory, LONGLONG(0));
    QCOMPARE(readFrom(file, 5), QByteArray("??????????"));

    file.write("123");
    HGLOBAL memory = file.Detach();
    QCOMPARE(contentsOf(memory), QByteArray("123"));
    QVERIFY2(GlobalLock(memory) != memory, "the handle is a record, whatever the flags");
    GlobalFree(memory);
}

void tst_MemoryFiles::write()
{
    SharedFile file(0);
    file.write(QByteArray("1\0" "345", 5));
    QCOMPARE(file.m_nBufferSize, 5u);
    QCOMPARE(file.contents(), QByteArray("1\0" "345", 5));
    QCOMPARE(file.m_hGlobalMemory, LONGLONG(0));
    QCOMPARE(readFrom(file, 3), QByteArray("1\0" "3???????", 10));
}

void tst_MemoryFiles::writeCopies()
{
    unsigned char bytes[] = {'1', '2', '3'};
    SharedFile file(0);
    file.Write(bytes, 3);
    QVERIFY(file.m_lpBuffer != bytes);
    bytes[0] = 'x';
    QCOMPARE(file.contents(), QByteArray("123"));
}

void tst_MemoryFiles::writeReplaces_data()
{
    QTest::addColumn<QByteArray>("second");

    QTest::newRow("by less") << QByteArray("ab");
    QTest::newRow("by as much") << QByteArray("abcde");
    QTest::newRow("by more") << QByteArray("abcdefghi");
}

void tst_MemoryFiles::writeReplaces()
{
    QFETCH(QByteArray, second);
    SharedFile file(0);
    file.write("12345");
    file.write(second);
    QCOMPARE(file.contents(), second);
    QCOMPARE(readFrom(file, 10), second.leftJustified(10, '?'));
    HGLOBAL memory = file.Detach();
    QCOMPARE(GlobalSize(memory), SIZE_T(second.size()));
    QCOMPARE(contentsOf(memory), second);
    GlobalFree(memory);
}

void tst_MemoryFiles::writeNothing()
{
    SharedFile file(0);
    file.write("12345");
    unsigned char byte = 'x';
    file.Write(&byte, 0);
    QCOMPARE(file.m_nBufferSize, 0u);
    QCOMPARE(readFrom(file, 5), QByteArray("??????????"));
    file.Write(nullptr, 0);
    QCOMPARE(file.m_nBufferSize, 0u);
    HGLOBAL memory = file.Detach();
    QVERIFY(memory != nullptr);
    QCOMPARE(GlobalSize(memory), SIZE_T(0));
    GlobalFree(memory);
}

void tst_MemoryFiles::detach()
{
    SharedFile file(0);
    file.write("12345");
    unsigned char *const buffer = file.m_lpBuffer;
    HGLOBAL memory = file.Detach();
    QVERIFY(memory != nullptr);
    const auto *record = static_cast<const KxGlobalMemory *>(memory);
    QVERIFY2(record->data == buffer, "the buffer itself");
    QCOMPARE(record->size, std::uint64_t(5));
    QCOMPARE(int(record->locks), 0);
    QVERIFY(file.m_lpBuffer == nullptr);
    QCOMPARE(file.m_nBufferSize, 5u);

    QVERIFY(GlobalLock(memory) == buffer);
    QCOMPARE(GlobalSize(memory), SIZE_T(5));
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(buffer), 5), QByteArray("12345"));
    QVERIFY(!GlobalUnlock(memory));
    QVERIFY(GlobalFree(memory) == nullptr);
}

void tst_MemoryFiles::detachGivesTheLastWrite()
{
    SharedFile file(0);
    file.write("1234567");
    file.write("abc");
    HGLOBAL memory = file.Detach();
    QCOMPARE(GlobalSize(memory), SIZE_T(3));
    QCOMPARE(contentsOf(memory), QByteArray("abc"));
    QVERIFY(file.m_lpBuffer == nullptr);
    GlobalFree(memory);
}

void tst_MemoryFiles::detachOfNothing()
{
    SharedFile file(0);
    HGLOBAL memory = file.Detach();
    QVERIFY(memory != nullptr);
    const auto *record = static_cast<const KxGlobalMemory *>(memory);
    QVERIFY(record->data == nullptr);
    QCOMPARE(record->size, std::uint64_t(0));
    QCOMPARE(int(record->locks), 0);
    QVERIFY(GlobalLock(memory) == nullptr);
    QVERIFY(GlobalFree(memory) == nullptr);
}

void tst_MemoryFiles::detachTwice()
{
    SharedFile file(0);
    file.write("12345");
    HGLOBAL first = file.Detach();
    HGLOBAL second = file.Detach();
    QVERIFY(second != nullptr);
    QVERIFY(second != first);
    QVERIFY2(GlobalLock(second) == nullptr, "there is nothing left to hand over");
    QCOMPARE(contentsOf(first), QByteArray("12345"));
    GlobalFree(first);
    GlobalFree(second);
}

/// The 32 bits of the size are not taken for a negative number.
void tst_MemoryFiles::detachWidensTheSize()
{
    SharedFile file(0);
    file.write("1");
    file.m_nBufferSize = 0x80000001;
    HGLOBAL memory = file.Detach();
    QCOMPARE(quint64(GlobalSize(memory)), Q_UINT64_C(0x80000001));
    QCOMPARE(static_cast<const KxGlobalMemory *>(memory)->size, std::uint64_t(0x80000001));
    GlobalFree(memory);
}

void tst_MemoryFiles::readAfterDetach()
{
    SharedFile file(0);
    file.write("12345");
    GlobalFree(file.Detach());
    QCOMPARE(readFrom(file, 5), QByteArray("??????????"));
}

void tst_MemoryFiles::writeAfterDetach()
{
    SharedFile file(0);
    file.write("12345");
    HGLOBAL first = file.Detach();
    file.write("ab");
    QCOMPARE(file.contents(), QByteArray("ab"));
    HGLOBAL second = file.Detach();
    QVERIFY(second != first);
    QCOMPARE(contentsOf(first), QByteArray("12345"));
    QCOMPARE(contentsOf(second), QByteArray("ab"));
    GlobalFree(first);
    GlobalFree(second);
}

void tst_MemoryFiles::blockOutlivesTheFile()
{
    HGLOBAL memory = nullptr;
    {
        SharedFile file(0);
        file.write("12345");
        memory = file.Detach();
    }
    QCOMPARE(contentsOf(memory), QByteArray("12345"));
    GlobalFree(memory);
}

/// What is not freed here, or freed twice, the leak checker tells.
void tst_MemoryFiles::destructionThroughTheBase()
{
    unsigned char bytes[] = {'1', '2', '3'};
    auto shared = std::make_unique<CSharedFile>(0);
    shared->Write(bytes, 3);
    shared->Write(bytes, 2);
    const std::unique_ptr<CFile> file = std::move(shared);
    QVERIFY(file->m_hFile == CFile::hFileNull);
}

void tst_MemoryFiles::sharedFileIsAClosedFile()
{
    SharedFile sharedFile(0);
    sharedFile.write("12345");
    CFile *file = &sharedFile;
    char byte = '?';
    expectWarning(readClosed);
    QCOMPARE(file->Read(&byte, 1), failed);
    QCOMPARE(byte, '?');
    expectWarning(writeClosed);
    file->Write("abc", 3);
    QCOMPARE(sharedFile.contents(), QByteArray("12345"));
}

KX_TEST_MAIN(tst_MemoryFiles)

#include "tst_memory_files.moc"
