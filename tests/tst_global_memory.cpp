// SPDX-License-Identifier: MIT
// The global memory calls.

#include "KxTestCase.h"

#include <windows.h>

#include <KxWinMemory.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>

// Read by the address sanitizer, which otherwise ends the program where malloc() is to return null.
extern "C" Q_DECL_EXPORT const char *__asan_default_options();
const char *__asan_default_options()
{
    return "allocator_may_return_null=1";
}

using MemoryCall = std::function<qint64()>;
Q_DECLARE_METATYPE(MemoryCall)

namespace {

constexpr UINT movableFlags[] = {GMEM_MOVEABLE, GHND, GMEM_MOVEABLE | GMEM_DDESHARE,
                                 GMEM_MOVEABLE | GMEM_NOCOMPACT | GMEM_NODISCARD,
                                 GMEM_MOVEABLE | GMEM_DISCARDABLE};
constexpr UINT fixedFlags[] = {GMEM_FIXED, GPTR, GMEM_DDESHARE, GMEM_NOCOMPACT | GMEM_NODISCARD};

/// A block that goes with it.
class Block
{
public:
    Block(UINT flags, SIZE_T size) : m_handle(GlobalAlloc(flags, size)) { SetLastError(77); }
    ~Block() { GlobalFree(m_handle); }
    Block(const Block &) = delete;
    Block &operator=(const Block &) = delete;

    operator HGLOBAL() const { return m_handle; }
    const KxGlobalMemory &record() const { return *static_cast<const KxGlobalMemory *>(m_handle); }

private:
    HGLOBAL m_handle;
};

/// A record such as other code makes with malloc().
HGLOBAL foreignRecord(const QByteArray &bytes)
{
    auto *record = static_cast<KxGlobalMemory *>(std::malloc(sizeof(KxGlobalMemory)));
    record->data = std::malloc(static_cast<std::size_t>(bytes.size()));
    std::memcpy(record->data, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    record->size = static_cast<std::uint64_t>(bytes.size());
    record->locks = 0;
    return record;
}

void addFlagRows(const UINT *flags, const UINT *end)
{
    QTest::addColumn<unsigned int>("flags");
    for (; flags != end; ++flags)
        QTest::newRow(("flags 0x" + QByteArray::number(*flags, 16)).constData()) << *flags;
}

} // namespace

class tst_GlobalMemory : public KxTestCase
{
    Q_OBJECT

private slots:
    void record_data();
    void record();
    void flags_data();
    void flags();
    void movable_data();
    void movable();
    void locks();
    void manyLocks();
    void unlockingTooOften();
    void movableWithoutBytes();
    void fixed_data();
    void fixed();
    void fixedWithoutBytes();
    void alignment_data();
    void alignment();
    void cleared_data();
    void cleared();
    void tooMuch_data();
    void tooMuch();
    void wrongHandle_data();
    void wrongHandle();
    void freesWhatIsLocked();
    void foreignRecordIsAHandle();
    void foreignRecordWithoutBytes();
    void size_data();
    void size();
    void blocksAreApart();
};

void tst_GlobalMemory::record_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");

    const auto row = [](const char *name, std::size_t found, int expected) {
        QTest::newRow(name) << static_cast<int>(found) << expected;
    };
    row("three fields in 24 bytes", sizeof(KxGlobalMemory), 24);
    row("the data pointer comes first", offsetof(KxGlobalMemory, data), 0);
    row("then the size", offsetof(KxGlobalMemory, size), 8);
    row("the size has 64 bits", sizeof(KxGlobalMemory::size), 8);
    row("then the locks", offsetof(KxGlobalMemory, locks), 16);
    row("the locks have 8 bits", sizeof(KxGlobalMemory::locks), 1);
}

void tst_GlobalMemory::record()
{
    QFETCH(int, found);
    QFETCH(int, expected);
    QCOMPARE(found, expected);
}

void tst_GlobalMemory::flags_data()
{
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("expected");

    QTest::newRow("GMEM_FIXED") << int(GMEM_FIXED) << 0;
    QTest::newRow("GMEM_MOVEABLE") << int(GMEM_MOVEABLE) << 2;
    QTest::newRow("GMEM_ZEROINIT") << int(GMEM_ZEROINIT) << 0x40;
    QTest::newRow("GMEM_DDESHARE") << int(GMEM_DDESHARE) << 0x2000;
    QTest::newRow("GMEM_SHARE") << int(GMEM_SHARE) << 0x2000;
    QTest::newRow("GHND") << int(GHND) << 0x42;
    QTest::newRow("GPTR") << int(GPTR) << 0x40;
}

void tst_GlobalMemory::flags()
{
    QFETCH(int, found);
    QFETCH(int, expected);
    QCOMPARE(found, expected);
}

void tst_GlobalMemory::movable_data()
{
    addFlagRows(std::begin(movableFlags), std::end(movableFlags));
}

void tst_GlobalMemory::movable()
{
    QFETCH(unsigned int, flags);
    const Block block(flags, 100);
    QVERIFY(block != nullptr);
    QCOMPARE(GlobalSize(block), SIZE_T(100));
    QVERIFY2(block.record().data != nullptr && block.record().data != block, "handle and data are apart");
    QCOMPARE(block.record().size, std::uint64_t(100));
    QCOMPARE(int(block.record().locks), 0);

    void *data = GlobalLock(block);
    QVERIFY(data == block.record().data);
    QCOMPARE(int(block.record().locks), 1);
    std::memset(data, 0x5A, 100);
    QVERIFY(!GlobalUnlock(block));
    QCOMPARE(int(block.record().locks), 0);
    QVERIFY2(GlobalLock(block) == data, "where it was");
    QCOMPARE(QByteArray(static_cast<const char *>(data), 100), QByteArray(100, 0x5A));
}

void tst_GlobalMemory::locks()
{
    const Block block(GMEM_MOVEABLE, 10);
    void *data = GlobalLock(block);
    QVERIFY(GlobalLock(block) == data);
    QVERIFY(GlobalLock(block) == data);
    QCOMPARE(int(block.record().locks), 3);
    QVERIFY2(GlobalUnlock(block), "two are left");
    QVERIFY2(GlobalUnlock(block), "one is left");
    QCOMPARE(int(block.record().locks), 1);
    SetLastError(77);
    QVERIFY2(!GlobalUnlock(block), "none is left");
    QCOMPARE(GetLastError(), DWORD(NO_ERROR));
    QCOMPARE(int(block.record().locks), 0);
}

void tst_GlobalMemory::manyLocks()
{
    const Block block(GMEM_MOVEABLE, 10);
    void *data = GlobalLock(block);
    for (int i = 1; i < 300; ++i)
        QVERIFY(GlobalLock(block) == data);
    QCOMPARE(int(block.record().locks), 255);
    QVERIFY(GlobalUnlock(block));
    QVERIFY(GlobalLock(block) == data);
    QCOMPARE(GlobalSize(block), SIZE_T(10));
}

void tst_GlobalMemory::unlockingTooOften()
{
    const Block block(GMEM_MOVEABLE, 10);
    SetLastError(77);
    QVERIFY(!GlobalUnlock(block));
    QCOMPARE(GetLastError(), DWORD(ERROR_NOT_LOCKED));
    QCOMPARE(int(block.record().locks), 0);

    QVERIFY(GlobalLock(block) != nullptr);
    QVERIFY(!GlobalUnlock(block));
    SetLastError(77);
    QVERIFY(!GlobalUnlock(block));
    QCOMPARE(GetLastError(), DWORD(ERROR_NOT_LOCKED));
    QVERIFY2(GlobalLock(block) != nullptr, "it counts from 0 again");
    QCOMPARE(int(block.record().locks), 1);
}

void tst_GlobalMemory::movableWithoutBytes()
{
    for (const UINT flags : movableFlags) {
        const Block block(flags, 0);
        QVERIFY(block != nullptr);
        QVERIFY(block.record().data == nullptr);
        QCOMPARE(GlobalSize(block), SIZE_T(0));
        SetLastError(77);
        QVERIFY(GlobalLock(block) == nullptr);
        QCOMPARE(GetLastError(), DWORD(ERROR_DISCARDED));
        QCOMPARE(int(block.record().locks), 0);
        QVERIFY(!GlobalUnlock(block));
        QCOMPARE(GetLastError(), DWORD(ERROR_NOT_LOCKED));
    }
}

void tst_GlobalMemory::fixed_data()
{
    addFlagRows(std::begin(fixedFlags), std::end(fixedFlags));
}

void tst_GlobalMemory::fixed()
{
    QFETCH(unsigned int, flags);
    const Block block(flags, 100);
    QVERIFY(block != nullptr);
    std::memset(block, 0x5A, 100);
    QVERIFY2(GlobalLock(block) == block, "it is the data itself");
    QCOMPARE(GlobalSize(block), SIZE_T(100));
    QVERIFY2(GlobalUnlock(block), "a fixed one is always locked");
    QVERIFY(GlobalUnlock(block));
    QVERIFY(GlobalLock(block) == block);
    QCOMPARE(QByteArray(static_cast<const char *>(HGLOBAL(block)), 100), QByteArray(100, 0x5A));
}

void tst_GlobalMemory::fixedWithoutBytes()
{
    const Block block(GMEM_FIXED, 0);
    QVERIFY(block != nullptr);
    QVERIFY(GlobalLock(block) == block);
    QCOMPARE(GlobalSize(block), SIZE_T(0));
}

void tst_GlobalMemory::alignment_data()
{
    QTest::addColumn<unsigned int>("flags");

    QTest::newRow("fixed") << unsigned(GMEM_FIXED);
    QTest::newRow("movable") << unsigned(GMEM_MOVEABLE);
}

void tst_GlobalMemory::alignment()
{
    QFETCH(unsigned int, flags);
    for (SIZE_T size = 1; size < 70; ++size) {
        const Block block(flags, size);
        QCOMPARE(reinterpret_cast<std::uintptr_t>(GlobalLock(block)) % 8, std::uintptr_t(0));
    }
}

void tst_GlobalMemory::cleared_data()
{
    QTest::addColumn<unsigned int>("flags");

    QTest::newRow("GPTR") << unsigned(GPTR);
    QTest::newRow("GHND") << unsigned(GHND);
    QTest::newRow("GMEM_ZEROINIT and others") << unsigned(GHND | GMEM_DDESHARE | GMEM_NODISCARD);
}

void tst_GlobalMemory::cleared()
{
    QFETCH(unsigned int, flags);
    for (int round = 0; round < 20; ++round) {
        const Block block(flags, 1000);
        void *data = GlobalLock(block);
        QVERIFY(data != nullptr);
        QCOMPARE(QByteArray(static_cast<const char *>(data), 1000), QByteArray(1000, '\0'));
        std::memset(data, 0x5A, 1000); // For the next one, which may get the same memory.
    }
}

void tst_GlobalMemory::tooMuch_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<quint64>("size");

    for (const UINT flags : {UINT(GMEM_FIXED), UINT(GPTR), UINT(GMEM_MOVEABLE), UINT(GHND)}) {
        const QByteArray title = "flags 0x" + QByteArray::number(flags, 16);
        QTest::newRow((title + ", every byte there can be").constData()) << flags << ~quint64(0);
        QTest::newRow((title + ", 8 bytes less").constData()) << flags << ~quint64(0) - 8;
        QTest::newRow((title + ", 40 bytes less").constData()) << flags << ~quint64(0) - 40;
        QTest::newRow((title + ", half of it").constData()) << flags << ~quint64(0) / 2 + 1;
    }
}

void tst_GlobalMemory::tooMuch()
{
    QFETCH(unsigned int, flags);
    QFETCH(quint64, size);
    SetLastError(77);
    HGLOBAL memory = GlobalAlloc(flags, static_cast<SIZE_T>(size));
    QVERIFY(memory == nullptr);
    QCOMPARE(GetLastError(), DWORD(ERROR_NOT_ENOUGH_MEMORY));
}

void tst_GlobalMemory::wrongHandle_data()
{
    QTest::addColumn<MemoryCall>("call");

    const MemoryCall lock = [] { return qint64(GlobalLock(nullptr) != nullptr); };
    const MemoryCall unlock = [] { return qint64(GlobalUnlock(nullptr)); };
    const MemoryCall size = [] { return qint64(GlobalSize(nullptr)); };
    QTest::newRow("GlobalLock(null)") << lock;
    QTest::newRow("GlobalUnlock(null)") << unlock;
    QTest::newRow("GlobalSize(null)") << size;
}

void tst_GlobalMemory::wrongHandle()
{
    QFETCH(MemoryCall, call);
    SetLastError(77);
    QCOMPARE(call(), qint64(0));
    QCOMPARE(GetLastError(), DWORD(ERROR_INVALID_HANDLE));
}

void tst_GlobalMemory::freesWhatIsLocked()
{
    QVERIFY(GlobalFree(nullptr) == nullptr);
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 10);
    QVERIFY2(GlobalFree(memory) == nullptr, "an unlocked one");
    memory = GlobalAlloc(GMEM_MOVEABLE, 10);
    QVERIFY(GlobalLock(memory) != nullptr);
    QVERIFY2(GlobalFree(memory) == nullptr, "a locked one");
    memory = GlobalAlloc(GMEM_MOVEABLE, 0);
    QVERIFY2(GlobalFree(memory) == nullptr, "one without bytes");
    memory = GlobalAlloc(GMEM_FIXED, 10);
    QVERIFY2(GlobalFree(memory) == nullptr, "a fixed one");
    memory = GlobalAlloc(GMEM_FIXED, 0);
    QVERIFY2(GlobalFree(memory) == nullptr, "a fixed one without bytes");
}

void tst_GlobalMemory::foreignRecordIsAHandle()
{
    HGLOBAL memory = foreignRecord("12345");
    const void *const data = static_cast<const KxGlobalMemory *>(memory)->data;
    QCOMPARE(GlobalSize(memory), SIZE_T(5));
    QVERIFY(GlobalLock(memory) == data);
    QCOMPARE(QByteArray(static_cast<const char *>(data), 5), QByteArray("12345"));
    SetLastError(77);
    QVERIFY(!GlobalUnlock(memory));
    QCOMPARE(GetLastError(), DWORD(NO_ERROR));
    QVERIFY(GlobalFree(memory) == nullptr);
}

void tst_GlobalMemory::foreignRecordWithoutBytes()
{
    auto *record = static_cast<KxGlobalMemory *>(std::calloc(1, sizeof(KxGlobalMemory)));
    QCOMPARE(GlobalSize(record), SIZE_T(0));
    SetLastError(77);
    QVERIFY(GlobalLock(record) == nullptr);
    QCOMPARE(GetLastError(), DWORD(ERROR_DISCARDED));
    QVERIFY(GlobalFree(record) == nullptr);
}

void tst_GlobalMemory::size_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<quint64>("size");

    for (const UINT flags : {UINT(GMEM_FIXED), UINT(GMEM_MOVEABLE)}) {
        const QByteArray title = flags == GMEM_FIXED ? "fixed, " : "movable, ";
        for (const quint64 size : {1, 7, 8, 24, 4096, 1000003})
            QTest::newRow((title + QByteArray::number(size) + " bytes").constData()) << flags << size;
    }
}

void tst_GlobalMemory::size()
{
    QFETCH(unsigned int, flags);
    QFETCH(quint64, size);
    const Block block(flags, static_cast<SIZE_T>(size));
    QCOMPARE(quint64(GlobalSize(block)), size);
    std::memset(GlobalLock(block), 0xFF, static_cast<std::size_t>(size));
    QCOMPARE(quint64(GlobalSize(block)), size);
}

void tst_GlobalMemory::blocksAreApart()
{
    const Block first(GMEM_MOVEABLE, 16);
    const Block second(GMEM_MOVEABLE, 16);
    const Block third(GMEM_FIXED, 16);
    std::memset(GlobalLock(first), 1, 16);
    std::memset(GlobalLock(second), 2, 16);
    std::memset(GlobalLock(third), 3, 16);
    QCOMPARE(QByteArray(static_cast<const char *>(GlobalLock(first)), 16), QByteArray(16, 1));
    QCOMPARE(QByteArray(static_cast<const char *>(GlobalLock(second)), 16), QByteArray(16, 2));
    QCOMPARE(QByteArray(static_cast<const char *>(GlobalLock(third)), 16), QByteArray(16, 3));
    QCOMPARE(int(first.record().locks), 2);
    QVERIFY(GlobalUnlock(first));
    QCOMPARE(int(second.record().locks), 2);
}

KX_TEST_MAIN(tst_GlobalMemory)

#include "tst_global_memory.moc"
