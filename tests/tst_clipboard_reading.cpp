// SPDX-License-Identifier: MIT
// What is read from the clipboard of the process, and that it is not Qt's.

#include "KxClipboardBlocks.h"
#include "KxTestCase.h"

#include <afxole.h>

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

namespace {

struct DataObject : COleDataObject {
    using COleDataObject::m_clipboard;
};

/// The formats of a whole enumeration.
template<class Data>
QList<int> enumerated(Data &data)
{
    QList<int> formats;
    tagFORMATETC record = {};
    while (data.GetNextFormat(&record))
        formats.append(record.cfFormat);
    return formats;
}

/// The formats that the names of now have to give, counted out.
QList<int> expectedFormats()
{
    QList<int> formats{13, 2};
    const int end = 3456 + static_cast<int>(g_mapCF.size());
    for (int number = 3456; number < end; ++number)
        formats.append(g_mapCF.count(number) == 1 ? number : 0);
    return formats;
}

} // namespace

class tst_ClipboardReading : public KxTestCase
{
    Q_OBJECT

private slots:
    void init();

    void readsWhatIsRegistered();
    void readingChangesNothing_data();
    void readingChangesNothing();
    void recordIsIgnored();
    void outlivesSourceAndReader();
    void seenByAllObjects();
    void lockedBlock();

    void enumerates();
    void enumerationIsShared();
    void enumerationOfAReader();
    void recordOfAFormat_data();
    void recordOfAFormat();
    void recordOfAHole();
    void recordAtTheEnd();
    void noRecord();
    void positions();

    void readerOfItsOwn();
    void readerFreesNothing();
    void dataObjectReadsTheGlobal();

    void qtClipboard_data();
    void qtClipboard();
};

void tst_ClipboardReading::init()
{
    KxTestCase::init();
    KxFreeLog::take();
}

// ---- Reading --------------------------------------------------------------------------------------------

void tst_ClipboardReading::readsWhatIsRegistered()
{
    const UINT with = freshFormat();
    const UINT without = freshFormat();
    HGLOBAL block = kxMovableBlock('A');
    cache(with, block);
    COleDataObject data;
    QCOMPARE(data.AttachClipboard(), TRUE);
    QCOMPARE(data.AttachClipboard(), TRUE);
    QVERIFY(data.IsDataAvailable(cf(with)));
    QVERIFY(data.GetGlobalData(cf(with)) == block);
    QVERIFY(!data.IsDataAvailable(cf(without)));
    QVERIFY(data.GetGlobalData(cf(without)) == nullptr);
}

void tst_ClipboardReading::readingChangesNothing_data()
{
    QTest::addColumn<int>("format");

    QTest::newRow("0") << 0;
    QTest::newRow("CF_UNICODETEXT, which is always told") << 13;
    QTest::newRow("CF_BITMAP, which is always told") << 2;
    QTest::newRow("CF_TEXT") << 1;
    QTest::newRow("3455") << 3455;
    QTest::newRow("65535") << 65535;
}

void tst_ClipboardReading::readingChangesNothing()
{
    QFETCH(int, format);
    const auto names = g_mapCF;
    const QStringList formats = g_tnorClipboardData.formats();
    QCOMPARE(g_mapCF.count(format), std::size_t(0));
    COleDataObject data;
    data.AttachClipboard();
    QVERIFY(!data.IsDataAvailable(static_cast<CLIPFORMAT>(format)));
    QVERIFY(data.GetGlobalData(static_cast<CLIPFORMAT>(format)) == nullptr);
    QVERIFY2(g_mapCF == names, "asking makes no name");
    QCOMPARE(g_tnorClipboardData.formats(), formats);
}

void tst_ClipboardReading::recordIsIgnored()
{
    const UINT with = freshFormat();
    const UINT without = freshFormat();
    HGLOBAL block = kxMovableBlock('A');
    cache(with, block);
    COleDataObject data;
    data.AttachClipboard();

    // A record that says another format and medium.
    tagFORMATETC record;
    std::memset(static_cast<void *>(&record), 0x5A, sizeof record);
    record.cfFormat = cf(without);
    record.tymed = TYMED_FILE;
    unsigned char before[sizeof record];
    std::memcpy(before, &record, sizeof record);
    QVERIFY(data.IsDataAvailable(cf(with), &record));
    QVERIFY(data.GetGlobalData(cf(with), &record) == block);
    record.cfFormat = cf(with);
    QVERIFY(!data.IsDataAvailable(cf(without), &record));
    QVERIFY(data.GetGlobalData(cf(without), &record) == nullptr);
    record.cfFormat = cf(without);
    QVERIFY2(std::memcmp(before, &record, sizeof record) == 0, "it is left alone");

    QVERIFY(data.IsDataAvailable(cf(with), nullptr));
    QVERIFY(data.GetGlobalData(cf(with), nullptr) == block);
}

void tst_ClipboardReading::outlivesSourceAndReader()
{
    const UINT format = freshFormat();
    HGLOBAL block = kxMovableBlock('A', "there");
    {
        COleDataSource source;
        source.CacheGlobalData(format, block);
    }
    {
        COleDataObject data;
        data.AttachClipboard();
        QVERIFY(data.GetGlobalData(cf(format)) == block);
    }
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QVERIFY(cached(format) == block);
    QCOMPARE(kxContentsOf(block), QByteArray("there"));
}

void tst_ClipboardReading::seenByAllObjects()
{
    const UINT format = freshFormat();
    COleDataObject early;
    early.AttachClipboard();
    HGLOBAL block = kxMovableBlock('A');
    cache(format, block);
    QVERIFY2(early.GetGlobalData(cf(format)) == block, "attached before it came");
    COleDataObject late;
    QVERIFY2(late.IsDataAvailable(cf(format)), "attached by another one");
    QVERIFY(late.GetGlobalData(cf(format)) == block);
    QVERIFY(early.GetGlobalData(cf(format)) == block);
}

void tst_ClipboardReading::lockedBlock()
{
    const UINT format = freshFormat();
    HGLOBAL block = kxMovableBlock('A', "locked");
    GlobalLock(block);
    cache(format, block);
    QVERIFY(cached(format) == block);
    QCOMPARE(int(static_cast<const KxGlobalMemory *>(block)->locks), 1);
    cache(format, kxMovableBlock('B'));
    QCOMPARE(KxFreeLog::take(), QByteArray("aA"));
}

// ---- Enumeration ----------------------------------------------------------------------------------------

void tst_ClipboardReading::enumerates()
{
    const UINT without = freshFormat();
    const UINT with = freshFormat();
    cache(with, kxMovableBlock('A'));
    COleDataObject data;
    data.AttachClipboard();
    for (int i = 0; i < 2; ++i) {
        data.BeginEnumFormats();
        const QList<int> found = enumerated(data);
        QCOMPARE(found, expectedFormats());
        QVERIFY2(found.contains(int(without)) && found.contains(int(with)), "with or without data");
        QVERIFY(found.indexOf(int(without)) < found.indexOf(int(with)));
    }
}

void tst_ClipboardReading::enumerationIsShared()
{
    freshFormat();
    COleDataObject one;
    COleDataObject two;
    tagFORMATETC record = {};
    one.BeginEnumFormats();
    QVERIFY(one.GetNextFormat(&record));
    QCOMPARE(int(record.cfFormat), 13);
    QVERIFY(two.GetNextFormat(&record));
    QCOMPARE(int(record.cfFormat), 2);
    COleDataObject three;
    QVERIFY(three.GetNextFormat(&record));
    QCOMPARE(int(record.cfFormat), expectedFormats().at(2));
    two.BeginEnumFormats();
    QVERIFY(one.GetNextFormat(&record));
    QCOMPARE(int(record.cfFormat), 13);
}

void tst_ClipboardReading::enumerationOfAReader()
{
    freshFormat();
    COleDataObject data;
    data.BeginEnumFormats();
    Reader reader;
    tagFORMATETC record = {};
    QVERIFY2(reader.getNextFormat(&record), "without a beginning");
    QCOMPARE(int(record.cfFormat), 13);
    QVERIFY(reader.getNextFormat(&record));
    QCOMPARE(int(record.cfFormat), 2);
    QVERIFY(data.GetNextFormat(&record));
    QCOMPARE(int(record.cfFormat), 13);
    reader.beginEnumFormats();
    QVERIFY(data.GetNextFormat(&record));
    QCOMPARE(int(record.cfFormat), 2);
    QVERIFY(reader.getNextFormat(&record));
    QCOMPARE(int(record.cfFormat), 13);
}

void tst_ClipboardReading::recordOfAFormat_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("expected");

    QTest::newRow("Unicode text") << 0 << 13;
    QTest::newRow("bitmap") << 1 << 2;
    QTest::newRow("the first registered") << 2 << 3456;
}

void tst_ClipboardReading::recordOfAFormat()
{
    QFETCH(int, position);
    QFETCH(int, expected);
    freshFormat();
    COleDataObject data;
    data.BeginEnumFormats();
    tagFORMATETC record = {};
    for (int i = 0; i < position; ++i)
        QVERIFY(data.GetNextFormat(&record));
    std::memset(static_cast<void *>(&record), 0x5A, sizeof record);
    unsigned char before[sizeof record];
    std::memcpy(before, &record, sizeof record);
    QVERIFY(data.GetNextFormat(&record));
    QCOMPARE(int(record.cfFormat), expected);
    const std::size_t first = sizeof record.cfFormat;
    QVERIFY2(std::memcmp(reinterpret_cast<unsigned char *>(&record) + first, before + first,
                         sizeof record - first) == 0, "the rest is left alone");
}

void tst_ClipboardReading::recordOfAHole()
{
    freshFormat();
    const int key = int(g_mapCF.rbegin()->first) + 1000;
    HGLOBAL block = kxMovableBlock('A');
    COleDataObject data;
    data.BeginEnumFormats();
    const QList<int> without = enumerated(data);
    cache(UINT(key), block);
    data.BeginEnumFormats();
    QCOMPARE(enumerated(data), without + QList<int>{0});

    data.BeginEnumFormats();
    tagFORMATETC record = {};
    for (int i = 0; i < without.size(); ++i)
        QVERIFY(data.GetNextFormat(&record));
    std::memset(static_cast<void *>(&record), 0x5A, sizeof record);
    QVERIFY2(data.GetNextFormat(&record), "one more");
    QCOMPARE(int(record.cfFormat), 0);
    QCOMPARE(record.tymed, DWORD(0x5A5A5A5A));
    QVERIFY(!data.GetNextFormat(&record));
    GlobalFree(block);
    g_mapCF.erase(key);
}

void tst_ClipboardReading::recordAtTheEnd()
{
    COleDataObject data;
    data.BeginEnumFormats();
    enumerated(data);
    tagFORMATETC record;
    std::memset(static_cast<void *>(&record), 0x5A, sizeof record);
    unsigned char before[sizeof record];
    std::memcpy(before, &record, sizeof record);
    for (int i = 0; i < 5; ++i) {
        QVERIFY(!data.GetNextFormat(&record));
        QVERIFY2(std::memcmp(before, &record, sizeof record) == 0, "it is left alone");
    }
}

void tst_ClipboardReading::noRecord()
{
    freshFormat();
    freshFormat();
    COleDataObject data;
    tagFORMATETC record = {};
    const QList<int> expected = expectedFormats();
    // Without a record up to a position, and with one from there on.
    for (int start = 0; start <= expected.size(); ++start) {
        data.BeginEnumFormats();
        for (int i = 0; i < start; ++i)
            QVERIFY(data.GetNextFormat(nullptr));
        QCOMPARE(enumerated(data), expected.mid(start));
    }
    data.BeginEnumFormats();
    int count = 0;
    while (count < 1000 && data.GetNextFormat(nullptr))
        ++count;
    QCOMPARE(count, expected.size());
    QVERIFY(!data.GetNextFormat(nullptr));
    QVERIFY2(!data.GetNextFormat(&record), "it counted on");

    Reader reader;
    for (int i = 0; i < 4; ++i) {
        QVERIFY(reader.getNextFormat(nullptr));
        QCOMPARE(reader.m_nEnumIndex, i);
        QCOMPARE(reader.m_nEnumFormat, i < 2 ? 3455 : 3454 + i);
    }
}

void tst_ClipboardReading::positions()
{
    freshFormat();
    freshFormat();
    Reader reader;
    QCOMPARE(reader.m_nEnumIndex, -1);
    QCOMPARE(reader.m_nEnumFormat, 3455);
    tagFORMATETC record = {};
    const int formats[] = {3455, 3455, 3456, 3457};
    for (int i = 0; i < 4; ++i) {
        QVERIFY(reader.getNextFormat(&record));
        QCOMPARE(reader.m_nEnumIndex, i);
        QCOMPARE(reader.m_nEnumFormat, formats[i]);
    }
    QVERIFY2(reader.m_pData == nullptr, "reads the names without being attached");
    reader.beginEnumFormats();
    QCOMPARE(reader.m_nEnumIndex, -1);
    QCOMPARE(reader.m_nEnumFormat, 3455);

    int count = 0;
    while (reader.getNextFormat(&record))
        ++count;
    QCOMPARE(count, 2 + int(g_mapCF.size()));
    QCOMPARE(reader.m_nEnumIndex, count);
    QCOMPARE(reader.m_nEnumFormat, 3456 + int(g_mapCF.size()));
    QVERIFY(!reader.getNextFormat(&record));
    QCOMPARE(reader.m_nEnumIndex, count + 1);
    QCOMPARE(reader.m_nEnumFormat, 3457 + int(g_mapCF.size()));
}

// ---- Readers --------------------------------------------------------------------------------------------

void tst_ClipboardReading::readerOfItsOwn()
{
    const UINT format = freshFormat();
    HGLOBAL block = kxMovableBlock('A');
    cache(format, block);
    g_platformClipboard.attachClipboard();
    Reader reader;
    QVERIFY(reader.m_pData == nullptr);
    QVERIFY2(!reader.isDataAvailable(cf(format), nullptr), "it is not attached");
    QVERIFY(reader.getGlobalData(cf(format), nullptr) == nullptr);
    QCOMPARE(reader.attachClipboard(), TRUE);
    QVERIFY(reader.m_pData == &g_tnorClipboardData);
    QVERIFY(reader.isDataAvailable(cf(format)));
    QVERIFY(reader.isDataAvailable(cf(format), nullptr));
    QVERIFY(reader.getGlobalData(cf(format)) == block);
    QVERIFY(reader.getGlobalData(cf(format), nullptr) == block);
    reader.m_pData = nullptr;
    QVERIFY(!reader.isDataAvailable(cf(format)));
    QVERIFY(reader.getGlobalData(cf(format)) == nullptr);

    QMimeData other;
    reader.m_pData = &other;
    QVERIFY2(!reader.isDataAvailable(cf(format)), "data without the name");
    QVERIFY(reader.getGlobalData(cf(format)) == nullptr);
    reader.m_pData = nullptr;
}

void tst_ClipboardReading::readerFreesNothing()
{
    const UINT format = freshFormat();
    HGLOBAL block = kxMovableBlock('A', "there");
    cache(format, block);
    {
        KxPlatformClipboard attached;
        attached.attachClipboard();
        KxPlatformClipboard unattached;
    }
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QVERIFY(cached(format) == block);
    QCOMPARE(kxContentsOf(block), QByteArray("there"));
}

void tst_ClipboardReading::dataObjectReadsTheGlobal()
{
    const DataObject one;
    const DataObject two;
    QVERIFY(one.m_clipboard == &g_platformClipboard);
    QVERIFY(two.m_clipboard == &g_platformClipboard);
}

// ---- Qt's clipboard -------------------------------------------------------------------------------------

void tst_ClipboardReading::qtClipboard_data()
{
    QTest::addColumn<bool>("withText");

    QTest::newRow("empty") << false;
    QTest::newRow("with a text") << true;
}

void tst_ClipboardReading::qtClipboard()
{
    QFETCH(bool, withText);
    QClipboard *const system = QGuiApplication::clipboard();
    system->clear();
    if (withText)
        system->setText(QStringLiteral("of the desktop"));
    const auto formatsOf = [](const QMimeData *data) { return data ? data->formats() : QStringList(); };
    const QStringList formats = formatsOf(system->mimeData());
    QCOMPARE(formats.isEmpty(), !withText);
    qRegisterMetaType<QClipboard::Mode>("QClipboard::Mode");
    QSignalSpy changed(system, &QClipboard::changed);
    QSignalSpy dataChanged(system, &QClipboard::dataChanged);

    const UINT format = freshFormat();
    cache(format, kxMovableBlock('A', "ours"));
    cache(format, kxMovableBlock('B', "ours"));
    const UINT html = RegisterClipboardFormatW(L"text/html");
    cache(html, kxMovableBlock('C', "ours"));
    COleDataObject data;
    data.AttachClipboard();
    QVERIFY(data.IsDataAvailable(cf(format)));
    QVERIFY(data.GetGlobalData(cf(html)) != nullptr);
    data.BeginEnumFormats();
    enumerated(data);
    QCoreApplication::processEvents();

    QCOMPARE(changed.count(), 0);
    QCOMPARE(dataChanged.count(), 0);
    const QMimeData *const mimeData = system->mimeData();
    QVERIFY(mimeData != &g_tnorClipboardData);
    QCOMPARE(formatsOf(mimeData), formats);
    QVERIFY(!formats.contains(mimeNameOf(format)) && !formats.contains(mimeNameOf(html)));
    QCOMPARE(system->text(), withText ? QStringLiteral("of the desktop") : QString());

    system->setText(QStringLiteral("another one"));
    QVERIFY2(changed.count() > 0 && dataChanged.count() > 0, "a change would have been told");
    QVERIFY2(isAvailable(format), "nor does it change ours");
    QCOMPARE(kxContentsOf(cached(html)), QByteArray("ours"));
    system->clear();
    QVERIFY(isAvailable(format));
}

KX_TEST_MAIN(tst_ClipboardReading)
#include "tst_clipboard_reading.moc"
