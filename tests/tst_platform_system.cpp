// SPDX-License-Identifier: MIT
#include "KxTestCase.h"
#include "KxWinSystem.h"

#include <climits>
#include <thread>

class tst_PlatformSystem : public KxTestCase
{
    Q_OBJECT

private slots:
    void lastErrorIsWhatWasSet();
    void lastErrorBelongsToTheThread();
    void ticksAreMillisecondsSinceTheStart();
    void ticksOf32BitsAreTheLowHalf();
    void sleepLastsAtLeastSoLong();
    void mulDiv_data();
    void mulDiv();
};

void tst_PlatformSystem::lastErrorIsWhatWasSet()
{
    SetLastError(ERROR_ACCESS_DENIED);
    QCOMPARE(GetLastError(), 5u);
    SetLastError(0);
    QCOMPARE(GetLastError(), 0u);
}

void tst_PlatformSystem::lastErrorBelongsToTheThread()
{
    SetLastError(5);
    DWORD elsewhere = 99;
    std::thread([&elsewhere] {
        elsewhere = GetLastError();
        SetLastError(7);
    }).join();
    QCOMPARE(elsewhere, 0u);
    QCOMPARE(GetLastError(), 5u);
}

void tst_PlatformSystem::ticksAreMillisecondsSinceTheStart()
{
    // The kernel says it in seconds with two decimals.
    QFile uptime(QStringLiteral("/proc/uptime"));
    QVERIFY(uptime.open(QIODevice::ReadOnly));
    const double before = uptime.readAll().split(' ').first().toDouble() * 1000;
    const double now = double(GetTickCount64());
    const QString times = QStringLiteral("%1 after %2").arg(now).arg(before);
    QVERIFY2(now >= before - 1 && now < before + 60000, qPrintable(times));
}

void tst_PlatformSystem::ticksOf32BitsAreTheLowHalf()
{
    const ULONGLONG before = GetTickCount64();
    const DWORD now = GetTickCount();
    QVERIFY(now - DWORD(before) <= DWORD(GetTickCount64() - before));
}

void tst_PlatformSystem::sleepLastsAtLeastSoLong()
{
    QElapsedTimer timer;
    timer.start();
    Sleep(30);
    QVERIFY(timer.elapsed() >= 30);
}

void tst_PlatformSystem::mulDiv_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("numerator");
    QTest::addColumn<int>("denominator");
    QTest::addColumn<int>("result");

    QTest::newRow("exact: 6 * 4 / 3") << 6 << 4 << 3 << 8;
    QTest::newRow("below a half goes down: 4 / 3") << 4 << 1 << 3 << 1;
    QTest::newRow("above a half goes up: 5 / 3") << 5 << 1 << 3 << 2;
    QTest::newRow("a half goes up: 5 / 2") << 5 << 1 << 2 << 3;
    QTest::newRow("a half below zero goes down: -5 / 2") << -5 << 1 << 2 << -3;
    QTest::newRow("below a half, denominator negative: 4 / -3") << 4 << 1 << -3 << -1;
    QTest::newRow("a half, denominator negative: 5 / -2") << 5 << 1 << -2 << -3;
    QTest::newRow("a half, both negative: -5 / -2") << -5 << 1 << -2 << 3;
    QTest::newRow("zero") << 0 << 5 << 7 << 0;
    QTest::newRow("beyond 32 bits in between") << 2000000000 << 2000000000 << 2000000000 << 2000000000;
    QTest::newRow("points at 96 dots an inch: 9 * 96 / 72") << 9 << 96 << 72 << 12;
    QTest::newRow("greatest") << INT_MAX << 1 << 1 << INT_MAX;
    QTest::newRow("one too large") << 1073741824 << 2 << 1 << -1;
    QTest::newRow("least") << INT_MIN << 1 << 1 << INT_MIN;
    QTest::newRow("least by -1 is too large") << INT_MIN << 1 << -1 << -1;
    QTest::newRow("least by least") << INT_MIN << INT_MIN << INT_MIN << INT_MIN;
    QTest::newRow("rounding makes it too large") << INT_MAX << 3 << 2 << -1;
    QTest::newRow("by 0") << 5 << 5 << 0 << -1;
}

void tst_PlatformSystem::mulDiv()
{
    QFETCH(int, number);
    QFETCH(int, numerator);
    QFETCH(int, denominator);
    QTEST(MulDiv(number, numerator, denominator), "result");
}

KX_TEST_MAIN(tst_PlatformSystem)

#include "tst_platform_system.moc"
