// SPDX-License-Identifier: MIT
// The binary layout of the file classes and the values of their names.
//
// The slots are read off pointers to members, which the Itanium C++ ABI lays out as 1 + 8 * slot for a
// virtual member.

#include "KxFileSandbox.h"
#include "KxClassLayout.h"
#include "KxTestCase.h"

#include <afx.h>

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace {

/// What is protected becomes nameable.
struct File : CFile
{
    using CFile::CFile;
    using CFile::implement;

    QFile *qfile() const { return reinterpret_cast<QFile *>(implement()); }
    const QFileInfo &info() const
    {
        const auto *start = reinterpret_cast<const char *>(implement());
        return *reinterpret_cast<const QFileInfo *>(start + sizeof(QFile));
    }
};

struct MemFile : CMemFile
{
    using CMemFile::CMemFile;
    using CMemFile::m_lpBuffer;
    using CMemFile::m_nBufferSize;
};

struct SharedFile : CSharedFile
{
    using CSharedFile::CSharedFile;
    using CSharedFile::m_hGlobalMemory;
};

/// What stands in an object at a byte offset.
template<class Value, class Object>
Value fieldAt(const Object &object, int offset)
{
    Value value;
    std::memcpy(&value, reinterpret_cast<const char *>(&object) + offset, sizeof value);
    return value;
}

} // namespace

class tst_FileLayout : public KxTestCase
{
    Q_OBJECT

private slots:
    void slot_data();
    void slot();
    void tables();
    void layout_data();
    void layout();
    void fieldsInOrder();
    void privatePartIsTheQFile();
    void constants_data();
    void constants();
};

void tst_FileLayout::slot_data()
{
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("expected");

    const auto row = [](const char *name, int found, int expected) {
        QTest::newRow(name) << found << expected;
    };
    row("2: CFile::Open", slotOf(&CFile::Open), 2);
    row("3: CFile::GetLength", slotOf(&CFile::GetLength), 3);
    row("4: CFile::GetPosition", slotOf(&CFile::GetPosition), 4);
    row("5: CFile::Seek", slotOf(&CFile::Seek), 5);
    row("6: CFile::Read", slotOf(&CFile::Read), 6);
    row("7: CFile::Write", slotOf(&CFile::Write), 7);
    row("8: CFile::SeekToBegin", slotOf(&CFile::SeekToBegin), 8);
    row("9: CFile::Close", slotOf(&CFile::Close), 9);
    row("10: CFile::Flush", slotOf(&CFile::Flush), 10);
    row("CFile has 11 slots", slotCount<CFile>(), 11);
    row("CFile::GetStatus is not virtual",
        slotOf(static_cast<bool (CFile::*)(CFileStatus &) const>(&CFile::GetStatus)), -1);
    row("CFile::implement is not virtual", slotOf(&File::implement), -1);

    row("11: CStdioFile::WriteString", slotOf(&CStdioFile::WriteString), 11);
    row("12: CStdioFile::ReadString(wchar_t*, unsigned int)",
        slotOf(static_cast<wchar_t *(CStdioFile::*)(wchar_t *, unsigned int)>(&CStdioFile::ReadString)), 12);
    row("13: CStdioFile::ReadString(CStdStr&)",
        slotOf(static_cast<bool (CStdioFile::*)(CStdStr<wchar_t> &)>(&CStdioFile::ReadString)), 13);
    row("CStdioFile has 14 slots", slotCount<CStdioFile>(), 14);

    row("CMemFile adds no slot", slotCount<CMemFile>(), 11);
    row("CMemFile::Read is not virtual", slotOf(&CMemFile::Read), -1);
    row("CMemFile::Detach is not virtual", slotOf(&CMemFile::Detach), -1);
    row("CSharedFile adds no slot", slotCount<CSharedFile>(), 11);
    row("CSharedFile::Write is not virtual", slotOf(&CSharedFile::Write), -1);
    row("CSharedFile::Detach is not virtual", slotOf(&CSharedFile::Detach), -1);

    row("0: CFileFind::FindFile", slotOf(&CFileFind::FindFile), 0);
    row("CFileFind has 1 slot", slotCount<CFileFind>(), 1);
}

void tst_FileLayout::slot()
{
    QFETCH(int, slot);
    QFETCH(int, expected);
    QCOMPARE(slot, expected);
}

/// Which operations a class overrides; destructors are in slots 0 and 1.
void tst_FileLayout::tables()
{
    QVERIFY(std::has_virtual_destructor_v<CFile>);
    QVERIFY((std::is_base_of_v<CObject, CFile>));
    QVERIFY(std::is_empty_v<CObject>);
    QVERIFY(std::is_trivially_default_constructible_v<CObject>);
    QVERIFY(!std::is_polymorphic_v<CTime>);

    const CFile file;
    const CStdioFile stdioFile;
    const CMemFile memFile(nullptr, 0);
    const CSharedFile sharedFile(0);
    QCOMPARE(differences(&stdioFile, &file, 11), QList<int>({0, 1, 2, 9, 10}));
    QCOMPARE(differences(&memFile, &file, 11), QList<int>({0, 1}));
    QCOMPARE(differences(&sharedFile, &memFile, 11), QList<int>({0, 1}));
}

void tst_FileLayout::layout_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");

    const auto row = [](const char *name, std::size_t found, int expected) {
        QTest::newRow(name) << static_cast<int>(found) << expected;
    };
    row("CFile: table, handle, private part", sizeof(CFile), 24);
    row("CStdioFile adds one pointer", sizeof(CStdioFile), 32);
    row("CMemFile adds a pointer and 32 bits", sizeof(CMemFile), 40);
    row("CMemFile's size has 32 bits", sizeof(MemFile::m_nBufferSize), 4);
    row("CSharedFile adds 64 bits", sizeof(CSharedFile), 48);
    row("CSharedFile's field has 64 bits", sizeof(SharedFile::m_hGlobalMemory), 8);
    row("CFileFind: table only", sizeof(CFileFind), 8);
    row("CTime: 64 bits", sizeof(CTime), 8);
    row("CFileStatus: three times, size, attribute, 1024 characters", sizeof(CFileStatus), 4136);
    row("CFile::m_hFile has 64 bits", sizeof(CFile::m_hFile), 8);
    row("CFile::hFileNull has 64 bits", sizeof(CFile::hFileNull), 8);
    row("CFileStatus::m_size has 64 bits", sizeof(CFileStatus::m_size), 8);
    row("CFileStatus::m_attribute has 8 bits", sizeof(CFileStatus::m_attribute), 1);
    row("CFileStatus::m_szFullName has 1024 characters", sizeof(CFileStatus::m_szFullName), 4096);

    const CFile file;
    row("CFile::m_hFile follows the table", std::size_t(offsetOf(file, file.m_hFile)), 8);
    const CFileStatus status = {};
    row("CFileStatus::m_ctime", std::size_t(offsetOf(status, status.m_ctime)), 0);
    row("CFileStatus::m_mtime", std::size_t(offsetOf(status, status.m_mtime)), 8);
    row("CFileStatus::m_atime", std::size_t(offsetOf(status, status.m_atime)), 16);
    row("CFileStatus::m_size", std::size_t(offsetOf(status, status.m_size)), 24);
    row("CFileStatus::m_attribute", std::size_t(offsetOf(status, status.m_attribute)), 32);
    row("CFileStatus::m_szFullName", std::size_t(offsetOf(status, status.m_szFullName)), 36);
}

void tst_FileLayout::layout()
{
    QFETCH(int, found);
    QFETCH(int, expected);
    QCOMPARE(found, expected);
}

void tst_FileLayout::fieldsInOrder()
{
    const File file;
    QCOMPARE(fieldAt<qint64>(file, 8), qint64(-1));
    QVERIFY(file.implement() != nullptr);
    QVERIFY(fieldAt<const void *>(file, 16) == file.implement());

    const CStdioFile stdioFile;
    QVERIFY(fieldAt<const void *>(stdioFile, 16) != nullptr);
    QVERIFY(fieldAt<const void *>(stdioFile, 24) != nullptr);

    unsigned char bytes[3] = {};
    const CMemFile memFile(bytes, 3);
    QVERIFY(fieldAt<const unsigned char *>(memFile, 24) == bytes);
    QCOMPARE(fieldAt<unsigned int>(memFile, 32), 3u);

    const CSharedFile sharedFile(7);
    QVERIFY(fieldAt<const unsigned char *>(sharedFile, 24) == nullptr);
    QCOMPARE(fieldAt<unsigned int>(sharedFile, 32), 0u);
    QCOMPARE(fieldAt<qint64>(sharedFile, 40), qint64(0));
}

void tst_FileLayout::privatePartIsTheQFile()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345"));
    File file;
    QVERIFY(file.qfile()->metaObject() == &QFile::staticMetaObject);
    QVERIFY(file.Open(L"file.txt", CFile::modeRead));
    QCOMPARE(file.qfile()->fileName(), asciiName);
    QVERIFY(file.qfile()->isOpen());
    QVERIFY(file.m_hFile == KxHandleFromValue<HANDLE>(file.qfile()->handle()));
    QCOMPARE(file.info().fileName(), asciiName);
    QCOMPARE(file.info().absoluteFilePath(), sandbox.path(asciiName));
    QVERIFY(file.qfile()->seek(2));
    char bytes[2] = {};
    QCOMPARE(file.Read(bytes, 2), 2u);
    QCOMPARE(QByteArray(bytes, 2), QByteArray("34"));
}

void tst_FileLayout::constants_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");

    QTest::newRow("modeRead") << int(CFile::modeRead) << 0;
    QTest::newRow("modeWrite") << int(CFile::modeWrite) << 1;
    QTest::newRow("modeReadWrite") << int(CFile::modeReadWrite) << 2;
    QTest::newRow("modeCreate") << int(CFile::modeCreate) << 0x1000;
    QTest::newRow("modeNoTruncate") << int(CFile::modeNoTruncate) << 0x2000;
    QTest::newRow("typeText") << int(CFile::typeText) << 0x4000;
    QTest::newRow("typeBinary") << int(CFile::typeBinary) << 0x8000;
    QTest::newRow("shareCompat") << int(CFile::shareCompat) << 0;
    QTest::newRow("shareExclusive") << int(CFile::shareExclusive) << 0x10;
    QTest::newRow("shareDenyWrite") << int(CFile::shareDenyWrite) << 0x20;
    QTest::newRow("shareDenyRead") << int(CFile::shareDenyRead) << 0x30;
    QTest::newRow("shareDenyNone") << int(CFile::shareDenyNone) << 0x40;
    QTest::newRow("modeNoInherit") << int(CFile::modeNoInherit) << 0x80;
    QTest::newRow("begin") << int(CFile::begin) << 0;
    QTest::newRow("current") << int(CFile::current) << 1;
    QTest::newRow("end") << int(CFile::end) << 2;
    QTest::newRow("normal") << int(CFile::normal) << 0;
    QTest::newRow("readOnly") << int(CFile::readOnly) << 1;
    QTest::newRow("hidden") << int(CFile::hidden) << 2;
}

void tst_FileLayout::constants()
{
    QFETCH(int, found);
    QFETCH(int, expected);
    QCOMPARE(found, expected);
    QVERIFY(CFile::hFileNull == KxHandleFromValue<HANDLE>(-1));
}

KX_TEST_MAIN(tst_FileLayout)

#include "tst_file_layout.moc"
