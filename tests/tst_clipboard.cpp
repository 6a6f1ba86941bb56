// SPDX-License-Identifier: MIT
// What is put on the clipboard of the process: formats by name, and blocks under them.

#include "KxClassLayout.h"
#include "KxClipboardBlocks.h"
#include "KxTestCase.h"

#include <afxole.h>

#include <climits>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <type_traits>

using BlockMaker = std::function<HGLOBAL(char)>;
Q_DECLARE_METATYPE(BlockMaker)
Q_DECLARE_METATYPE(std::wstring)

namespace {

struct DataObject : COleDataObject {
    using COleDataObject::m_clipboard;
};

/// A record such as other code makes with malloc().
HGLOBAL foreignRecord(char capital)
{
    auto *record = static_cast<KxGlobalMemory *>(std::malloc(sizeof(KxGlobalMemory)));
    record->data = std::malloc(5);
    std::memcpy(record->data, "bytes", 5);
    record->size = 5;
    record->locks = 0;
    return KxFreeLog::watchMovable(record, capital);
}

HGLOBAL detached(char capital, QByteArray bytes)
{
    CSharedFile file;
    file.Write(reinterpret_cast<unsigned char *>(bytes.data()), static_cast<unsigned int>(bytes.size()));
    return KxFreeLog::watchMovable(file.Detach(), capital);
}

} // namespace

class tst_Clipboard : public KxTestCase
{
    Q_OBJECT

private slots:
    void init();

    void layout_data();
    void layout();
    void toClipFormat_data();
    void toClipFormat();

    void registers_data();
    void registers();
    void registersByExactName_data();
    void registersByExactName();
    void numbersFollowEachOther();
    void anotherPointerToTheName();
    void nullName();
    void nameWithoutNumber();
    void firstOfTwoNumbers();

    void caches_data();
    void caches();
    void contents_data();
    void contents();
    void replaces();
    void replacesSeveralTimes();
    void replacingKeepsOthers();
    void sameBlockAgain();
    void oneBlockUnderTwoFormats();
    void unregisteredNumber_data();
    void unregisteredNumber();
    void numberToCome();
    void emptyName();
    void nameOffTheData();
    void nullBlock();
    void nullBlockFreesTheEarlier_data();
    void nullBlockFreesTheEarlier();
    void nullBlockLeavesASharedOne();
    void nullBlockOfNoFormat();
    void uriList();
};

void tst_Clipboard::init()
{
    KxTestCase::init();
    KxFreeLog::take();
}

// ---- Types ----------------------------------------------------------------------------------------------

void tst_Clipboard::layout_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");

    const auto row = [](const char *name, std::size_t found, int expected) {
        QTest::newRow(name) << static_cast<int>(found) << expected;
    };
    const Reader reader;
    row("m_nEnumIndex comes first", std::size_t(offsetOf(reader, reader.m_nEnumIndex)), 0);
    row("then m_nEnumFormat", std::size_t(offsetOf(reader, reader.m_nEnumFormat)), 4);
    row("then m_pData", std::size_t(offsetOf(reader, reader.m_pData)), 8);
    row("KxPlatformClipboard has nothing else", sizeof(KxPlatformClipboard), 16);
    const DataObject data;
    row("the clipboard of a COleDataObject comes first", std::size_t(offsetOf(data, data.m_clipboard)), 0);
    row("COleDataObject has nothing else", sizeof(COleDataObject), 8);
    row("m_nEnumIndex is an int", std::is_same_v<decltype(reader.m_nEnumIndex), int>, 1);
    row("m_nEnumFormat is an int", std::is_same_v<decltype(reader.m_nEnumFormat), int>, 1);
    row("m_pData is a QMimeData", std::is_same_v<decltype(reader.m_pData), QMimeData *>, 1);
    row("g_tnorClipboardData is a QMimeData", std::is_same_v<decltype(g_tnorClipboardData), QMimeData>, 1);
    row("g_mapCF: names by number", std::is_same_v<decltype(g_mapCF), std::map<int, CStdStr<wchar_t>>>, 1);
    row("g_platformClipboard", std::is_same_v<decltype(g_platformClipboard), KxPlatformClipboard>, 1);
    row("g_iCFIndex is an int", std::is_same_v<decltype(g_iCFIndex), int>, 1);
    row("a registered number has 32 bits, unsigned",
        std::is_same_v<decltype(RegisterClipboardFormatW(L"")), unsigned int>, 1);
    using AskData = BOOL (KxPlatformClipboard::*)(CLIPFORMAT, tagFORMATETC *);
    using TakeData = HGLOBAL (KxPlatformClipboard::*)(CLIPFORMAT, tagFORMATETC *);
    row("isDataAvailable is not const",
        std::is_same_v<decltype(&KxPlatformClipboard::isDataAvailable), AskData>, 1);
    row("getGlobalData is not const",
        std::is_same_v<decltype(&KxPlatformClipboard::getGlobalData), TakeData>, 1);
    row("a format is told in 16 bits", sizeof(TOCLIPFORMAT(0)), 2);
    row("a format in a record has 16 bits", sizeof(tagFORMATETC::cfFormat), 2);
    row("tagFORMATETC::cfFormat at 0", offsetof(tagFORMATETC, cfFormat), 0);
    row("tagFORMATETC::ptd at 8", offsetof(tagFORMATETC, ptd), 8);
    row("tagFORMATETC::dwAspect at 16", offsetof(tagFORMATETC, dwAspect), 16);
    row("tagFORMATETC::lindex at 20", offsetof(tagFORMATETC, lindex), 20);
    row("tagFORMATETC::tymed at 24", offsetof(tagFORMATETC, tymed), 24);
    row("tagFORMATETC has 32 bytes", sizeof(tagFORMATETC), 32);
    row("FORMATETC is tagFORMATETC", std::is_same_v<FORMATETC, tagFORMATETC>, 1);
    row("LPFORMATETC points at one", std::is_same_v<LPFORMATETC, tagFORMATETC *>, 1);
    row("lindex has a sign", std::is_signed_v<decltype(tagFORMATETC::lindex)>, 1);
    row("DVASPECT_CONTENT", DVASPECT_CONTENT, 1);
    row("DVASPECT_THUMBNAIL", DVASPECT_THUMBNAIL, 2);
    row("DVASPECT_ICON", DVASPECT_ICON, 4);
    row("DVASPECT_DOCPRINT", DVASPECT_DOCPRINT, 8);
    row("TYMED_NULL", TYMED_NULL, 0);
    row("TYMED_HGLOBAL", TYMED_HGLOBAL, 1);
    row("TYMED_FILE", TYMED_FILE, 2);
    row("TYMED_ISTREAM", TYMED_ISTREAM, 4);
    row("TYMED_ISTORAGE", TYMED_ISTORAGE, 8);
    row("TYMED_GDI", TYMED_GDI, 16);
    row("TYMED_MFPICT", TYMED_MFPICT, 32);
    row("TYMED_ENHMF", TYMED_ENHMF, 64);
}

void tst_Clipboard::layout()
{
    QFETCH(int, found);
    QFETCH(int, expected);
    QCOMPARE(found, expected);
}

void tst_Clipboard::toClipFormat_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("expected");

    QTest::newRow("0: Unicode text") << 0 << 13;
    QTest::newRow("1: a bitmap") << 1 << 2;
    QTest::newRow("2: text") << 2 << 1;
    QTest::newRow("3: text") << 3 << 1;
    QTest::newRow("13: text") << 13 << 1;
    QTest::newRow("3456: text") << 3456 << 1;
    QTest::newRow("-1: text") << -1 << 1;
    QTest::newRow("the largest: text") << INT_MAX << 1;
    QTest::newRow("the smallest: text") << INT_MIN << 1;
}

void tst_Clipboard::toClipFormat()
{
    QFETCH(int, position);
    QFETCH(int, expected);
    QCOMPARE(int(TOCLIPFORMAT(position)), expected);
}

// ---- Names ----------------------------------------------------------------------------------------------

void tst_Clipboard::registers_data()
{
    QTest::addColumn<std::wstring>("name");
    QTest::addColumn<QString>("mimeName");

    const auto row = [](const char *tag, const std::wstring &name, const QString &mimeName) {
        QTest::newRow(tag) << name << mimeName;
    };
    row("a name like a MIME type", L"application/x-strokes", QStringLiteral("application/x-strokes"));
    row("one letter", L"s", QStringLiteral("s"));
    row("words", L"Rich Text Format", QStringLiteral("Rich Text Format"));
    row("umlauts", L"\u00DCbersicht", QString(QChar(0xDC)) + QStringLiteral("bersicht"));
    row("outside the first plane", L"x\U0001F600", QStringLiteral("x") + QChar(0xD83D) + QChar(0xDE00));
    row("2000 letters", std::wstring(2000, L'n'), QString(2000, QLatin1Char('n')));
    row("text/plain", L"text/plain", QStringLiteral("text/plain"));
    row("application/x-color", L"application/x-color", QStringLiteral("application/x-color"));
    row("application/x-qt-image", L"application/x-qt-image", QStringLiteral("application/x-qt-image"));
}

void tst_Clipboard::registers()
{
    QFETCH(std::wstring, name);
    QFETCH(QString, mimeName);
    const int next = g_iCFIndex;
    const int count = g_tnorClipboardData.formats().size();
    QVERIFY(!g_tnorClipboardData.hasFormat(mimeName));

    QCOMPARE(RegisterClipboardFormatW(name.c_str()), UINT(next));
    QCOMPARE(g_iCFIndex, next + 1);
    QCOMPARE(g_mapCF.count(next), std::size_t(1));
    QCOMPARE(mimeNameOf(UINT(next)), mimeName);
    QVERIFY(g_tnorClipboardData.hasFormat(mimeName));
    QCOMPARE(g_tnorClipboardData.formats().size(), count + 1);
    QVERIFY2(g_tnorClipboardData.data(mimeName).isEmpty(), "there is nothing under it yet");

    QCOMPARE(RegisterClipboardFormatW(name.c_str()), UINT(next));
    QCOMPARE(RegisterClipboardFormatW(name.c_str()), UINT(next));
    QCOMPARE(g_iCFIndex, next + 1);
    QCOMPARE(g_tnorClipboardData.formats().size(), count + 1);
}

void tst_Clipboard::registersByExactName_data()
{
    QTest::addColumn<std::wstring>("name");
    QTest::addColumn<std::wstring>("other");

    const auto row = [](const char *tag, const wchar_t *name, const wchar_t *other) {
        QTest::newRow(tag) << std::wstring(name) << std::wstring(other);
    };
    row("another case", L"application/x-case", L"application/X-Case");
    row("another case of one letter", L"exact-a", L"exact-A");
    row("a space more", L"exact space", L"exact space ");
    row("the beginning", L"exact beginning", L"exact begin");
    row("another accent", L"exact \u00E9", L"exact \u00E8");
}

void tst_Clipboard::registersByExactName()
{
    QFETCH(std::wstring, name);
    QFETCH(std::wstring, other);
    const UINT next = UINT(g_iCFIndex);
    QCOMPARE(RegisterClipboardFormatW(name.c_str()), next);
    QCOMPARE(RegisterClipboardFormatW(other.c_str()), next + 1);
    QCOMPARE(RegisterClipboardFormatW(name.c_str()), next);
    QCOMPARE(RegisterClipboardFormatW(other.c_str()), next + 1);
}

void tst_Clipboard::numbersFollowEachOther()
{
    const UINT first = UINT(g_iCFIndex);
    QVERIFY(first >= 3456u);
    for (UINT i = 0; i < 20; ++i)
        QCOMPARE(freshFormat(), first + i);
    QCOMPARE(g_iCFIndex, int(first + 20));
}

void tst_Clipboard::anotherPointerToTheName()
{
    const CString name = freshName();
    const std::wstring same(static_cast<LPCTSTR>(name));
    QVERIFY(same.c_str() != static_cast<LPCTSTR>(name));
    QCOMPARE(RegisterClipboardFormatW(same.c_str()), RegisterClipboardFormatW(name));
}

void tst_Clipboard::nullName()
{
    const int next = g_iCFIndex;
    const auto names = g_mapCF;
    const QStringList formats = g_tnorClipboardData.formats();
    QCOMPARE(RegisterClipboardFormatW(nullptr), 0u);
    QCOMPARE(g_iCFIndex, next);
    QVERIFY(g_mapCF == names);
    QCOMPARE(g_tnorClipboardData.formats(), formats);
}

void tst_Clipboard::nameWithoutNumber()
{
    const int next = g_iCFIndex;
    g_tnorClipboardData.setData(QStringLiteral("application/x-unnumbered"), QByteArray());
    QCOMPARE(RegisterClipboardFormatW(L"application/x-unnumbered"), 0u);
    QCOMPARE(g_iCFIndex, next);

    // Two wide names that are one to Qt: the second is in no number's name.
    QCOMPARE(RegisterClipboardFormatW(L"pair \U0001F601"), UINT(next));
    const wchar_t surrogates[] = {L'p', L'a', L'i', L'r', L' ', wchar_t(0xD83D), wchar_t(0xDE01), 0};
    QCOMPARE(RegisterClipboardFormatW(surrogates), 0u);
    QCOMPARE(g_iCFIndex, next + 1);
}

void tst_Clipboard::firstOfTwoNumbers()
{
    const CString name = freshName();
    const UINT format = RegisterClipboardFormatW(name);
    g_mapCF[int(format) + 500] = name;
    QCOMPARE(RegisterClipboardFormatW(name), format);
    g_mapCF[200] = name;
    QCOMPARE(RegisterClipboardFormatW(name), 200u);
    g_mapCF.erase(200);
    g_mapCF.erase(int(format) + 500);
    QCOMPARE(RegisterClipboardFormatW(name), format);
}

// ---- Blocks ---------------------------------------------------------------------------------------------

void tst_Clipboard::caches_data()
{
    QTest::addColumn<BlockMaker>("make");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<bool>("hasRecord");
    QTest::addColumn<QByteArray>("freed");

    const auto movable = [](const char *name, BlockMaker make, const QByteArray &contents) {
        QTest::newRow(name) << make << contents << true << QByteArray(contents.isNull() ? "B" : "bB");
    };
    const auto fixed = [](const char *name, BlockMaker make, const QByteArray &contents) {
        QTest::newRow(name) << make << contents << false << QByteArray("B");
    };
    movable("a movable block", [](char c) { return kxMovableBlock(c, "bytes"); }, "bytes");
    movable("a movable block of 1 byte", [](char c) { return kxMovableBlock(c, "b"); }, "b");
    movable("a movable block without bytes", [](char c) { return kxMovableBlock(c, ""); }, QByteArray());
    movable("a cleared block",
            [](char c) { return KxFreeLog::watchMovable(GlobalAlloc(GHND, 3), c); }, QByteArray(3, '\0'));
    movable("a shared file's contents", [](char c) { return detached(c, "contents"); }, "contents");
    movable("an empty shared file's",
            [](char c) { return KxFreeLog::watchMovable(CSharedFile().Detach(), c); }, QByteArray());
    movable("a record from malloc()", foreignRecord, "bytes");
    fixed("a fixed block of 24 bytes", [](char c) { return kxFixedBlock(c, QByteArray(24, 'f')); },
          QByteArray(24, 'f'));
    fixed("a fixed block of 1 byte", [](char c) { return kxFixedBlock(c, "b"); }, "b");
    fixed("a fixed block of 5000 bytes", [](char c) { return kxFixedBlock(c, QByteArray(5000, 'f')); },
          QByteArray(5000, 'f'));
}

void tst_Clipboard::caches()
{
    QFETCH(BlockMaker, make);
    QFETCH(QByteArray, contents);
    QFETCH(bool, hasRecord);
    QFETCH(QByteArray, freed);
    const UINT format = freshFormat();
    QVERIFY(!isAvailable(format));
    QVERIFY(cached(format) == nullptr);

    HGLOBAL block = make('B');
    cache(format, block);
    QVERIFY(isAvailable(format));
    QVERIFY(cached(format) == block);
    QVERIFY2(cached(format) == block, "and once more");
    QCOMPARE(kxContentsOf(block), contents);

    const QByteArray entry = g_tnorClipboardData.data(mimeNameOf(format));
    QVERIFY2(entry.constData() == block, "the entry is no copy");
    if (hasRecord)
        QCOMPARE(entry.size(), 24);
    QCOMPARE(KxFreeLog::take(), QByteArray());

    HGLOBAL next = kxMovableBlock('N', "next");
    cache(format, next);
    QCOMPARE(KxFreeLog::take(), freed);
    QVERIFY(cached(format) == next);
    QCOMPARE(kxContentsOf(next), QByteArray("next"));
}

void tst_Clipboard::contents_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QByteArray all;
    for (int i = 0; i < 256; ++i)
        all.append(static_cast<char>(i));
    QTest::newRow("1 byte") << QByteArray("1");
    QTest::newRow("23 bytes") << QByteArray(23, 'b');
    QTest::newRow("24 bytes, as the record") << QByteArray(24, 'b');
    QTest::newRow("25 bytes") << QByteArray(25, 'b');
    QTest::newRow("each byte there is") << all;
    QTest::newRow("zeros") << QByteArray(10, '\0');
    QTest::newRow("one million bytes") << all.repeated(4000).left(1000000);
}

void tst_Clipboard::contents()
{
    QFETCH(QByteArray, bytes);
    const UINT format = freshFormat();
    cache(format, detached('B', bytes));

    COleDataObject data;
    data.AttachClipboard();
    QVERIFY(data.IsDataAvailable(cf(format)));
    HGLOBAL block = data.GetGlobalData(cf(format));
    QCOMPARE(GlobalSize(block), SIZE_T(bytes.size()));
    const void *found = GlobalLock(block);
    QVERIFY(found != nullptr);
    QCOMPARE(QByteArray(static_cast<const char *>(found), bytes.size()), bytes);
    QVERIFY(!GlobalUnlock(block));
    QCOMPARE(kxContentsOf(data.GetGlobalData(cf(format))), bytes);
    QCOMPARE(KxFreeLog::take(), QByteArray());
}

void tst_Clipboard::replaces()
{
    const UINT format = freshFormat();
    HGLOBAL first = kxMovableBlock('A', "first");
    HGLOBAL second = kxMovableBlock('B', "second");
    QVERIFY(first != second);
    cache(format, first);
    QCOMPARE(KxFreeLog::take(), QByteArray());
    cache(format, second);
    QCOMPARE(KxFreeLog::take(), QByteArray("aA"));
    QVERIFY(isAvailable(format));
    QVERIFY(cached(format) == second);
    QVERIFY(g_tnorClipboardData.data(mimeNameOf(format)).constData() == second);
    QCOMPARE(kxContentsOf(second), QByteArray("second"));
}

void tst_Clipboard::replacesSeveralTimes()
{
    const UINT format = freshFormat();
    const char *const freed[] = {"", "aA", "bB", "cC"};
    for (char capital = 'A'; capital <= 'D'; ++capital) {
        HGLOBAL block = kxMovableBlock(capital, QByteArray(1, capital));
        cache(format, block);
        QCOMPARE(KxFreeLog::take(), QByteArray(freed[capital - 'A']));
        QVERIFY(cached(format) == block);
        QCOMPARE(kxContentsOf(block), QByteArray(1, capital));
    }
}

void tst_Clipboard::replacingKeepsOthers()
{
    const UINT one = freshFormat();
    const UINT two = freshFormat();
    HGLOBAL kept = kxMovableBlock('K', "kept");
    HGLOBAL newer = kxMovableBlock('N', "newer");
    cache(one, kxMovableBlock('A'));
    cache(two, kept);
    cache(one, newer);
    QCOMPARE(KxFreeLog::take(), QByteArray("aA"));
    QVERIFY(cached(one) == newer);
    QVERIFY(cached(two) == kept);
    QCOMPARE(kxContentsOf(kept), QByteArray("kept"));
}

void tst_Clipboard::sameBlockAgain()
{
    const UINT format = freshFormat();
    HGLOBAL block = kxMovableBlock('A', "again");
    for (int i = 0; i < 3; ++i) {
        cache(format, block);
        QCOMPARE(KxFreeLog::take(), QByteArray());
        QVERIFY(isAvailable(format));
        QVERIFY(cached(format) == block);
        QCOMPARE(kxContentsOf(block), QByteArray("again"));
    }
    cache(format, kxMovableBlock('B'));
    QCOMPARE(KxFreeLog::take(), QByteArray("aA"));
}

void tst_Clipboard::oneBlockUnderTwoFormats()
{
    const UINT one = freshFormat();
    const UINT two = freshFormat();
    HGLOBAL both = kxMovableBlock('A', "both");
    cache(one, both);
    cache(two, both);
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QVERIFY(cached(one) == both);
    QVERIFY(cached(two) == both);

    cache(one, kxMovableBlock('B'));
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QVERIFY2(cached(two) == both, "nothing took its place there");
    QCOMPARE(kxContentsOf(both), QByteArray("both"));
    cache(two, kxMovableBlock('C'));
    QCOMPARE(KxFreeLog::take(), QByteArray("aA"));
    QVERIFY(isAvailable(one) && isAvailable(two));
}

void tst_Clipboard::unregisteredNumber_data()
{
    QTest::addColumn<UINT>("number");
    QTest::addColumn<int>("key");

    QTest::newRow("0") << 0u << 0;
    QTest::newRow("CF_TEXT") << 1u << 1;
    QTest::newRow("CF_BITMAP") << 2u << 2;
    QTest::newRow("CF_UNICODETEXT") << 13u << 13;
    QTest::newRow("3000") << 3000u << 3000;
    QTest::newRow("3455, in front of the first") << 3455u << 3455;
    QTest::newRow("40000, far behind the last") << 40000u << 40000;
    QTest::newRow("the largest format of a record") << 65535u << 65535;
    QTest::newRow("beyond it") << 70000u << 70000;
    QTest::newRow("the largest number") << std::numeric_limits<UINT>::max() << -1;
}

void tst_Clipboard::unregisteredNumber()
{
    QFETCH(UINT, number);
    QFETCH(int, key);
    const QStringList formats = g_tnorClipboardData.formats();
    const std::size_t count = g_mapCF.size();
    const int next = g_iCFIndex;
    QCOMPARE(g_mapCF.count(key), std::size_t(0));

    HGLOBAL block = kxMovableBlock('A', "mine");
    for (int i = 0; i < 2; ++i) {
        cache(number, block);
        QCOMPARE(g_tnorClipboardData.formats(), formats);
        QCOMPARE(g_mapCF.size(), count + 1);
        QVERIFY2(g_mapCF.at(key).IsEmpty(), "an empty name under the number");
        QCOMPARE(g_iCFIndex, next);
        QVERIFY(!isAvailable(number));
        QVERIFY(cached(number) == nullptr);
    }
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QCOMPARE(kxContentsOf(block), QByteArray("mine"));
    GlobalFree(block);
    QCOMPARE(KxFreeLog::take(), QByteArray("aA"));
    g_mapCF.erase(key);
}

void tst_Clipboard::numberToCome()
{
    const UINT next = UINT(g_iCFIndex);
    HGLOBAL block = kxMovableBlock('A');
    cache(next, block);
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QVERIFY(!isAvailable(next));

    const CString name = freshName();
    QCOMPARE(RegisterClipboardFormatW(name), next);
    QVERIFY(g_mapCF.at(int(next)) == name);
    QVERIFY2(!isAvailable(next), "nothing was kept for it");
    cache(next, block);
    QVERIFY(cached(next) == block);
}

void tst_Clipboard::emptyName()
{
    const UINT format = RegisterClipboardFormatW(L"");
    HGLOBAL block = kxMovableBlock('A', "mine");
    cache(format, block);
    QVERIFY(g_tnorClipboardData.data(QString()).isEmpty());
    QVERIFY(!isAvailable(format));
    QVERIFY(cached(format) == nullptr);
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QCOMPARE(kxContentsOf(block), QByteArray("mine"));
    GlobalFree(block);
}

void tst_Clipboard::nameOffTheData()
{
    const UINT format = freshFormat();
    g_tnorClipboardData.removeFormat(mimeNameOf(format));
    HGLOBAL block = kxMovableBlock('A', "mine");
    cache(format, block);
    QVERIFY(!g_tnorClipboardData.hasFormat(mimeNameOf(format)));
    QVERIFY(!isAvailable(format));
    QVERIFY(cached(format) == nullptr);
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QCOMPARE(kxContentsOf(block), QByteArray("mine"));
    GlobalFree(block);
}

void tst_Clipboard::nullBlock()
{
    const UINT format = freshFormat();
    cache(format, nullptr);
    QVERIFY(!isAvailable(format));
    QVERIFY(cached(format) == nullptr);
    QVERIFY(g_tnorClipboardData.hasFormat(mimeNameOf(format)));
    QVERIFY(g_tnorClipboardData.data(mimeNameOf(format)).isEmpty());
}

void tst_Clipboard::nullBlockFreesTheEarlier_data()
{
    QTest::addColumn<BlockMaker>("make");
    QTest::addColumn<QByteArray>("freed");

    QTest::newRow("a movable block")
        << BlockMaker([](char c) { return kxMovableBlock(c, "there"); }) << QByteArray("aA");
    QTest::newRow("a movable block without bytes")
        << BlockMaker([](char c) { return kxMovableBlock(c, ""); }) << QByteArray("A");
    QTest::newRow("a shared file's contents")
        << BlockMaker([](char c) { return detached(c, "there"); }) << QByteArray("aA");
    QTest::newRow("a record from malloc()") << BlockMaker(foreignRecord) << QByteArray("aA");
    QTest::newRow("a fixed block")
        << BlockMaker([](char c) { return kxFixedBlock(c, "there"); }) << QByteArray("A");
}

void tst_Clipboard::nullBlockFreesTheEarlier()
{
    QFETCH(BlockMaker, make);
    QFETCH(QByteArray, freed);
    const UINT other = freshFormat();
    const UINT format = freshFormat();
    HGLOBAL kept = kxMovableBlock('K', "kept");
    cache(other, kept);
    cache(format, make('A'));
    QVERIFY(isAvailable(format));
    for (int i = 0; i < 2; ++i) {
        cache(format, nullptr);
        QCOMPARE(KxFreeLog::take(), i == 0 ? freed : QByteArray());
        QVERIFY(!isAvailable(format));
        QVERIFY(cached(format) == nullptr);
        QCOMPARE(g_mapCF.count(int(format)), std::size_t(1));
        QVERIFY(g_tnorClipboardData.hasFormat(mimeNameOf(format)));
        QVERIFY(g_tnorClipboardData.data(mimeNameOf(format)).isEmpty());
    }
    QVERIFY2(cached(other) == kept, "another format keeps its own");

    COleDataObject data;
    data.BeginEnumFormats();
    bool told = false;
    tagFORMATETC record = {};
    while (data.GetNextFormat(&record))
        told = told || record.cfFormat == cf(format);
    QVERIFY2(told, "it is still a format");

    HGLOBAL next = kxMovableBlock('N', "next");
    cache(format, next);
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QVERIFY(isAvailable(format));
    QVERIFY(cached(format) == next);
    QCOMPARE(kxContentsOf(next), QByteArray("next"));
}

void tst_Clipboard::nullBlockLeavesASharedOne()
{
    const UINT one = freshFormat();
    const UINT two = freshFormat();
    HGLOBAL both = kxMovableBlock('A', "both");
    cache(one, both);
    cache(two, both);
    cache(one, nullptr);
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QVERIFY(!isAvailable(one));
    QVERIFY(cached(two) == both);
    QCOMPARE(kxContentsOf(both), QByteArray("both"));
    cache(two, nullptr);
    QCOMPARE(KxFreeLog::take(), QByteArray("aA"));
    QVERIFY(!isAvailable(two));
}

void tst_Clipboard::nullBlockOfNoFormat()
{
    const QStringList formats = g_tnorClipboardData.formats();
    const int next = g_iCFIndex;
    QCOMPARE(g_mapCF.count(3000), std::size_t(0));
    cache(3000, nullptr);
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QCOMPARE(g_tnorClipboardData.formats(), formats);
    QCOMPARE(g_iCFIndex, next);
    QVERIFY2(g_mapCF.count(3000) == 1, "an empty name under the number, as for a block");
    QVERIFY(g_mapCF.at(3000).IsEmpty());
    QVERIFY(!isAvailable(3000));
    QVERIFY(cached(3000) == nullptr);
    g_mapCF.erase(3000);
}

void tst_Clipboard::uriList()
{
    const UINT format = RegisterClipboardFormatW(L"text/uri-list");
    QVERIFY(format >= 3456u);
    QCOMPARE(RegisterClipboardFormatW(L"text/uri-list"), format);
    HGLOBAL block = kxMovableBlock('A', "mine");
    for (int i = 0; i < 2; ++i) {
        cache(format, block);
        QVERIFY(!isAvailable(format));
        QVERIFY(cached(format) == nullptr);
        QVERIFY(!g_tnorClipboardData.hasUrls() || g_tnorClipboardData.urls().isEmpty());
    }
    QCOMPARE(KxFreeLog::take(), QByteArray());
    QCOMPARE(kxContentsOf(block), QByteArray("mine"));
    GlobalFree(block);
    QCOMPARE(KxFreeLog::take(), QByteArray("aA"));
}

KX_TEST_MAIN(tst_Clipboard)
#include "tst_clipboard.moc"
