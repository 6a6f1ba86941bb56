// SPDX-License-Identifier: MIT
#include <afx.h>

#include "KxFileSandbox.h"
#include "KxTestCase.h"

/// The exceptions of files, as host source writes them.
class FileExceptionsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void openLeavesItAlone_data();
    void openLeavesItAlone();
    void causes_data();
    void causes();
    void isCaughtByItsBase();
    void hasNoMessage();
};

void FileExceptionsTest::openLeavesItAlone_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<bool>("opened");
    QTest::newRow("a file that is not there") << unsigned(CFile::modeRead) << false;
    QTest::newRow("a file that is made") << unsigned(CFile::modeCreate | CFile::modeWrite) << true;
}

void FileExceptionsTest::openLeavesItAlone()
{
    QFETCH(unsigned int, flags);
    QFETCH(bool, opened);
    const Sandbox sandbox;
    CFileException exception(CFileException::hardIO, 17, L"before");
    CFile file;
    QCOMPARE(file.Open(L"file.txt", flags, &exception), opened);
    QCOMPARE(exception.m_cause, int(CFileException::hardIO));
    QCOMPARE(exception.m_lOsError, 17);
    QCOMPARE(exception.m_strFileName, CString(L"before"));
}

void FileExceptionsTest::causes_data()
{
    QTest::addColumn<int>("cause");
    QTest::addColumn<int>("value");
    QTest::newRow("none, that of a new object") << CFileException().m_cause << 0;
    QTest::newRow("genericException") << int(CFileException::genericException) << 1;
    QTest::newRow("fileNotFound") << int(CFileException::fileNotFound) << 2;
    QTest::newRow("accessDenied") << int(CFileException::accessDenied) << 5;
    QTest::newRow("sharingViolation") << int(CFileException::sharingViolation) << 11;
    QTest::newRow("endOfFile") << int(CFileException::endOfFile) << 14;
}

void FileExceptionsTest::causes()
{
    QFETCH(int, cause);
    QTEST(cause, "value");
}

void FileExceptionsTest::isCaughtByItsBase()
{
    int cause = CFileException::none;
    try {
        throw new CFileException(CFileException::diskFull);
    } catch (CException *exception) {
        if (auto *fileException = dynamic_cast<CFileException *>(exception))
            cause = fileException->m_cause;
        exception->Delete();
    }
    QCOMPARE(cause, int(CFileException::diskFull));
}

void FileExceptionsTest::hasNoMessage()
{
    wchar_t message[8] = L"before";
    QVERIFY(!CFileException().GetErrorMessage(message, 8));
    QCOMPARE(CString(message), CString(L"before"));
}

KX_TEST_MAIN(FileExceptionsTest)
#include "tst_file_exceptions.moc"
