// SPDX-License-Identifier: MIT
// CFileStatus with both forms of CFile::GetStatus(), and CTime.

#include "KxChildOutcome.h"
#include "KxFileSandbox.h"
#include "KxTestCase.h"

#include <afx.h>

#include <QtCore/QDateTime>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>
#include <type_traits>

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

using TimeCall = std::function<qint64()>;
Q_DECLARE_METATYPE(TimeCall)

namespace {

constexpr uid_t ordinary = 65534;

/// The C library's and Qt's time zone for the life of the object.
class TimeZone
{
public:
    explicit TimeZone(const char *rules) : m_before(qgetenv("TZ")), m_wasSet(qEnvironmentVariableIsSet("TZ"))
    {
        qputenv("TZ", rules);
        tzset();
    }
    ~TimeZone()
    {
        if (m_wasSet)
            qputenv("TZ", m_before);
        else
            qunsetenv("TZ");
        tzset();
    }
    TimeZone(const TimeZone &) = delete;
    TimeZone &operator=(const TimeZone &) = delete;

private:
    const QByteArray m_before;
    const bool m_wasSet;
};

/// An hour before Greenwich, two in summer.
const char *const centralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";

/// A record in which every byte that is written shows.
struct MarkedStatus
{
    MarkedStatus() { fill(&status, sizeof status); }
    bool isUntouched() const
    {
        unsigned char marks[sizeof(CFileStatus)];
        fill(marks, sizeof marks);
        return std::memcmp(&status, marks, sizeof marks) == 0;
    }
    QString fullName() const { return QString::fromWCharArray(status.m_szFullName); }
    /// Whether there is nothing but zeros behind the name.
    bool isClearBehindName() const
    {
        for (std::size_t i = std::wcslen(status.m_szFullName); i < std::size(status.m_szFullName); ++i) {
            if (status.m_szFullName[i] != 0)
                return false;
        }
        return true;
    }

    CFileStatus status;

private:
    static void fill(void *memory, std::size_t size) { std::memset(memory, 0x5A, size); }
};

bool setTimes(const char *name, std::time_t read, std::time_t modified)
{
    const timespec times[] = {{read, 700000000}, {modified, 300000000}};
    return ::utimensat(AT_FDCWD, name, times, 0) == 0;
}

CTime throughCTime(const QDateTime &moment)
{
    const QDate date = moment.date();
    const QTime time = moment.time();
    return CTime(date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second(), -1);
}

qint64 utc(int year, int month, int day, int hour, int minute, int second)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC).toSecsSinceEpoch();
}

QString shown(const CString &text)
{
    return QString::fromStdWString(text);
}

} // namespace

class tst_FileStatus : public KxTestCase
{
    Q_OBJECT

private slots:
    void missingFile_data();
    void missingFile();
    void noName();
    void fullName_data();
    void fullName();
    void nameIsClearedFirst();
    void longName_data();
    void longName();
    void size_data();
    void size();
    void attribute_data();
    void attribute();
    void fileTimes_data();
    void fileTimes();
    void creationTime();
    void summerTimeOfAFile();

    void ofTheObject();
    void ofTheObjectIsCurrent();
    void ofTheObjectByItsLastName();
    void ofTheObjectWithoutFile_data();
    void ofTheObjectWithoutFile();

    void timeZero();
    void times_data();
    void times();
    void summerTimeFlag_data();
    void summerTimeFlag();
    void midnightIsMktime();
    void currentTime();
    void comparison();
    void format_data();
    void format();
    void formatFollowsTheZone();
};

// ---- GetStatus by name ----------------------------------------------------------------------------------

void tst_FileStatus::missingFile_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("nothing there") << "missing";
    QTest::newRow("below a missing directory") << "missing/file.txt";
    QTest::newRow("below a file") << "file.txt/x";
    QTest::newRow("a link to nothing") << "dangling";
    QTest::newRow("a wild card") << "*.txt";
    QTest::newRow("a name too long") << QString(300, QLatin1Char('a'));
}

void tst_FileStatus::missingFile()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QVERIFY(write(asciiName, "12345"));
    QCOMPARE(::symlink("nowhere", "dangling"), 0);
    MarkedStatus marked;
    QVERIFY(!CFile::GetStatus(wide(name).c_str(), marked.status));
    QVERIFY(marked.isUntouched());
}

void tst_FileStatus::noName()
{
    MarkedStatus marked;
    QVERIFY(!CFile::GetStatus(L"", marked.status));
    QVERIFY(!CFile::GetStatus(nullptr, marked.status));
    QVERIFY(marked.isUntouched());
}

void tst_FileStatus::fullName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected"); // behind the folder

    const QString odd = QStringLiteral("a name \u00e4\u20ac\U0001d11e.txt");
    QTest::newRow("a file") << asciiName << asciiName;
    QTest::newRow("spaces and letters outside ASCII") << odd << odd;
    QTest::newRow("a directory") << "inner" << "inner";
    QTest::newRow("in a directory") << "inner/file.txt" << "inner/file.txt";
    QTest::newRow("from the current directory") << "./file.txt" << "file.txt";
    QTest::newRow("a link is not followed") << "link" << "link";
}

void tst_FileStatus::fullName()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QFETCH(QString, expected);
    QVERIFY(QDir().mkdir(QStringLiteral("inner")) && write(QStringLiteral("inner/file.txt"), "text"));
    QVERIFY(write(asciiName, "text"));
    QCOMPARE(::symlink("file.txt", "link"), 0);
    if (!QFileInfo::exists(name))
        QVERIFY(write(name, "text"));

    for (const QString &form : {name, sandbox.path(name)}) {
        MarkedStatus marked;
        QVERIFY(CFile::GetStatus(wide(form).c_str(), marked.status));
        QCOMPARE(marked.fullName(), QFileInfo(form).absoluteFilePath());
        QCOMPARE(marked.fullName(), sandbox.path(expected));
        QVERIFY(marked.isClearBehindName());
    }
}

void tst_FileStatus::nameIsClearedFirst()
{
    const Sandbox sandbox;
    QVERIFY(write(QStringLiteral("a-long-name-of-a-file.txt"), "text") && write(QStringLiteral("b"), "text"));
    CFileStatus status = {};
    QVERIFY(CFile::GetStatus(L"a-long-name-of-a-file.txt", status));
    QVERIFY(CFile::GetStatus(L"b", status));
    QCOMPARE(QString::fromWCharArray(status.m_szFullName), sandbox.path(QStringLiteral("b")));
    for (std::size_t i = std::wcslen(status.m_szFullName); i < std::size(status.m_szFullName); ++i)
        QVERIFY(status.m_szFullName[i] == 0);
}

void tst_FileStatus::longName_data()
{
    QTest::addColumn<int>("length");

    QTest::newRow("1022 characters") << 1022;
    QTest::newRow("1023 characters, as many as fit") << 1023;
    QTest::newRow("1024 characters are cut") << 1024;
    QTest::newRow("1025 characters are cut") << 1025;
    QTest::newRow("2000 characters are cut") << 2000;
}

void tst_FileStatus::longName()
{
    const Sandbox sandbox;
    QFETCH(int, length);
    QString name = sandbox.path();
    while (name.size() < length - 202)
        name += QLatin1Char('/') + QString(100, QLatin1Char('d'));
    QVERIFY(QDir().mkpath(name));
    name += QLatin1Char('/');
    while (name.size() < length)
        name += QChar::fromLatin1(static_cast<char>('a' + name.size() % 26));
    QVERIFY(write(name, "12345"));

    // The guards stand where a longer name would run on.
    struct {
        MarkedStatus marked;
        wchar_t guard[2000];
    } held;
    std::wmemset(held.guard, L'?', std::size(held.guard));
    QVERIFY(CFile::GetStatus(wide(name).c_str(), held.marked.status));
    QVERIFY2(held.marked.status.m_szFullName[1023] == 0, "ended within its room");
    QCOMPARE(held.marked.fullName(), name.left(1023));
    QCOMPARE(held.marked.status.m_size, ULONGLONG(5));
    for (const wchar_t character : held.guard)
        QVERIFY(character == L'?');
}

void tst_FileStatus::size_data()
{
    QTest::addColumn<qint64>("size");

    QTest::newRow("0 bytes") << qint64(0);
    QTest::newRow("5 bytes") << qint64(5);
    QTest::newRow("5 GB") << Q_INT64_C(5) * 1024 * 1024 * 1024;
}

void tst_FileStatus::size()
{
    const Sandbox sandbox;
    QFETCH(qint64, size);
    QVERIFY(write(asciiName, "") && ::truncate("file.txt", size) == 0);
    CFileStatus status = {};
    QVERIFY(CFile::GetStatus(L"file.txt", status));
    QCOMPARE(status.m_size, ULONGLONG(size));
}

void tst_FileStatus::attribute_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("mode");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("an ordinary file: 0") << asciiName << 0644u << QByteArray("0");
    QTest::newRow("read-only: 1") << asciiName << 0444u << QByteArray("1");
    QTest::newRow("hidden: 2") << ".hidden" << 0644u << QByteArray("2");
    QTest::newRow("read-only and hidden: 1") << ".hidden" << 0444u << QByteArray("1");
    QTest::newRow("write-only: 0") << asciiName << 0222u << QByteArray("0");
    QTest::newRow("write-only and hidden: 2") << ".hidden" << 0222u << QByteArray("2");
    QTest::newRow("neither readable nor writable: 0") << asciiName << 0000u << QByteArray("0");
    QTest::newRow("neither readable nor writable, hidden: 2") << ".hidden" << 0000u << QByteArray("2");
    QTest::newRow("a directory: 0") << "inner" << 0755u << QByteArray("0");
    QTest::newRow("a read-only directory: 1") << "inner" << 0555u << QByteArray("1");
    QTest::newRow("a hidden directory: 2") << ".inner" << 0755u << QByteArray("2");
}

/// Nothing is read-only to root, so the question is put by an ordinary user.
void tst_FileStatus::attribute()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QFETCH(unsigned int, mode);
    const QByteArray file = name.toLatin1();
    if (name.contains(QLatin1String("inner")))
        QVERIFY(QDir().mkdir(name));
    else
        QVERIFY(write(name, "12345"));
    QCOMPARE(::chmod(".", 0755), 0);
    QCOMPARE(::chmod(file.constData(), mode), 0);
    const bool isRoot = ::geteuid() == 0;
    if (isRoot)
        QCOMPARE(::chown(file.constData(), ordinary, ordinary), 0);

    const KxChildOutcome outcome = kxRunInChild([&] {
        if (isRoot && (::setgroups(0, nullptr) != 0 || ::setgid(ordinary) != 0 || ::setuid(ordinary) != 0)) {
            std::fputs("still root", stderr);
            return;
        }
        MarkedStatus marked;
        if (CFile::GetStatus(wide(name).c_str(), marked.status))
            std::fprintf(stderr, "%d", int(marked.status.m_attribute));
        else
            std::fputs("no status", stderr);
    });
    QVERIFY(outcome.finished);
    QTEST(outcome.standardError, "expected");
}

void tst_FileStatus::fileTimes_data()
{
    QTest::addColumn<qint64>("read");
    QTest::addColumn<qint64>("modified");

    QTest::newRow("in winter") << utc(2020, 1, 15, 10, 20, 30) << utc(2020, 1, 14, 1, 2, 3);
    QTest::newRow("in summer") << utc(2020, 7, 15, 10, 20, 30) << utc(2020, 7, 14, 1, 2, 3);
    QTest::newRow("read in winter, modified in summer")
        << utc(2021, 1, 1, 0, 0, 0) << utc(2020, 6, 30, 23, 59, 59);
    QTest::newRow("after 2038") << utc(2050, 1, 1, 0, 0, 0) << utc(2040, 2, 29, 12, 0, 0);
    QTest::newRow("before 1970") << utc(1965, 5, 4, 3, 2, 1) << utc(1969, 12, 31, 12, 0, 0);
}

void tst_FileStatus::fileTimes()
{
    const TimeZone zone(centralEurope);
    const Sandbox sandbox;
    QFETCH(qint64, read);
    QFETCH(qint64, modified);
    QVERIFY(write(asciiName, "12345"));
    QVERIFY(setTimes("file.txt", read, modified));
    const QFileInfo info(asciiName);
    CFileStatus status = {};
    QVERIFY(CFile::GetStatus(L"file.txt", status));
    QCOMPARE(qint64(status.m_mtime.GetTime()), modified);
    QCOMPARE(qint64(status.m_atime.GetTime()), read);
    QVERIFY(status.m_mtime == throughCTime(info.lastModified()));
    QVERIFY(status.m_atime == throughCTime(info.lastRead()));
}

void tst_FileStatus::creationTime()
{
    const Sandbox sandbox;
    const std::time_t before = std::time(nullptr) - 1; // The file system's clock may lag behind.
    QVERIFY(write(asciiName, "12345"));
    const std::time_t after = std::time(nullptr);
    QVERIFY(setTimes("file.txt", 1000000, 2000000));
    CFileStatus status = {};
    QVERIFY(CFile::GetStatus(L"file.txt", status));
    QVERIFY(status.m_ctime.GetTime() >= before && status.m_ctime.GetTime() <= after + 1);
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QVERIFY(status.m_ctime == throughCTime(QFileInfo(asciiName).created()));
    QT_WARNING_POP
    QCOMPARE(qint64(status.m_atime.GetTime()), qint64(1000000));
    QCOMPARE(qint64(status.m_mtime.GetTime()), qint64(2000000));
}

/// In the hour that comes twice in autumn the local clock cannot say which one it was, nor does mktime().
void tst_FileStatus::summerTimeOfAFile()
{
    const TimeZone zone(centralEurope);
    const Sandbox sandbox;
    const qint64 first = utc(2020, 10, 25, 0, 30, 0);
    const qint64 second = utc(2020, 10, 25, 1, 30, 0);
    QVERIFY(write(asciiName, "12345"));
    QVERIFY(setTimes("file.txt", first, second));
    CFileStatus status = {};
    QVERIFY(CFile::GetStatus(L"file.txt", status));
    for (const qint64 found : {qint64(status.m_atime.GetTime()), qint64(status.m_mtime.GetTime())})
        QVERIFY(found == first || found == second);
}

// ---- GetStatus of an object -----------------------------------------------------------------------------

void tst_FileStatus::ofTheObject()
{
    const TimeZone zone(centralEurope);
    const Sandbox sandbox;
    QVERIFY(write(QStringLiteral(".hidden"), "12345"));
    QVERIFY(setTimes(".hidden", utc(2020, 7, 15, 10, 20, 30), utc(2020, 1, 14, 1, 2, 3)));
    const CFile file(L".hidden", CFile::modeRead);
    MarkedStatus marked;
    MarkedStatus byName;
    QVERIFY(file.GetStatus(marked.status));
    QVERIFY(CFile::GetStatus(L".hidden", byName.status));
    QCOMPARE(marked.fullName(), sandbox.path(QStringLiteral(".hidden")));
    QVERIFY(marked.isClearBehindName());
    QCOMPARE(marked.status.m_size, ULONGLONG(5));
    QCOMPARE(int(marked.status.m_attribute), 2);
    QCOMPARE(qint64(marked.status.m_mtime.GetTime()), utc(2020, 1, 14, 1, 2, 3));
    QVERIFY(std::memcmp(&marked.status, &byName.status, sizeof(CFileStatus)) == 0);
}

void tst_FileStatus::ofTheObjectIsCurrent()
{
    const Sandbox sandbox;
    CFile file(L"file.txt", CFile::modeWrite);
    CFileStatus status = {};
    QVERIFY(file.GetStatus(status));
    QCOMPARE(status.m_size, ULONGLONG(0));
    file.Write("12345", 5);
    file.Flush();
    QVERIFY(file.GetStatus(status));
    QCOMPARE(status.m_size, ULONGLONG(5));
    file.Write("67", 2);
    file.Close();
    QVERIFY2(file.GetStatus(status), "after Close() too");
    QCOMPARE(status.m_size, ULONGLONG(7));
    QVERIFY(write(asciiName, "123"));
    QVERIFY(setTimes("file.txt", 1000000, 2000000));
    QVERIFY(file.GetStatus(status));
    QCOMPARE(status.m_size, ULONGLONG(3));
    QCOMPARE(qint64(status.m_mtime.GetTime()), qint64(2000000));

    QVERIFY(CFile::Remove(L"file.txt"));
    MarkedStatus marked;
    QVERIFY2(!file.GetStatus(marked.status), "after it was removed");
    QVERIFY(marked.isUntouched());
}

void tst_FileStatus::ofTheObjectByItsLastName()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345") && write(QStringLiteral("second"), "123"));
    CFile file(L"file.txt", CFile::modeRead);
    QVERIFY(file.Open(L"second", CFile::modeRead));
    MarkedStatus marked;
    QVERIFY(file.GetStatus(marked.status));
    QCOMPARE(marked.fullName(), sandbox.path(QStringLiteral("second")));
    QCOMPARE(marked.status.m_size, ULONGLONG(3));

    QVERIFY(QDir().mkdir(QStringLiteral("inner")) && !file.Open(L"inner", CFile::modeRead));
    QVERIFY2(file.GetStatus(marked.status), "the name of a failed Open()");
    QCOMPARE(marked.fullName(), sandbox.path(QStringLiteral("inner")));

    QVERIFY(!file.Open(L"missing", CFile::modeRead));
    QVERIFY(!file.GetStatus(marked.status));
}

void tst_FileStatus::ofTheObjectWithoutFile_data()
{
    QTest::addColumn<bool>("isTextFile");

    QTest::newRow("CFile") << false;
    QTest::newRow("CStdioFile") << true;
}

void tst_FileStatus::ofTheObjectWithoutFile()
{
    QFETCH(bool, isTextFile);
    const CFile file;
    const CStdioFile textFile;
    MarkedStatus marked;
    QVERIFY(!(isTextFile ? textFile : file).GetStatus(marked.status));
    QVERIFY(marked.isUntouched());
}

// ---- CTime ----------------------------------------------------------------------------------------------

void tst_FileStatus::timeZero()
{
    QCOMPARE(qint64(CTime().GetTime()), qint64(0));
    QVERIFY(CTime() == CTime(0));
    QVERIFY(std::is_trivially_copyable_v<CTime>);
    QVERIFY((std::is_same_v<decltype(CTime().GetTime()), std::time_t>));
    QCOMPARE(qint64(CTime(1234567890).GetTime()), qint64(1234567890));
    QCOMPARE(qint64(CTime(-5).GetTime()), qint64(-5));
    QCOMPARE(qint64(CTime(std::time_t(1) << 40).GetTime()), qint64(1) << 40);
}

void tst_FileStatus::times_data()
{
    QTest::addColumn<TimeCall>("call");
    QTest::addColumn<qint64>("expected");

    const auto row = [](const char *name, int year, int month, int day, int hour, int minute, int second,
                        qint64 expected) {
        const TimeCall call = [=] {
            return qint64(CTime(year, month, day, hour, minute, second, -1).GetTime());
        };
        QTest::newRow(name) << call << expected;
    };
    row("1 January 2020", 2020, 1, 1, 0, 0, 0, utc(2019, 12, 31, 23, 0, 0));
    row("every part", 2021, 2, 3, 4, 5, 6, utc(2021, 2, 3, 3, 5, 6));
    row("summer", 2020, 7, 15, 12, 30, 45, utc(2020, 7, 15, 10, 30, 45));
    row("31 December", 2020, 12, 31, 23, 59, 59, utc(2020, 12, 31, 22, 59, 59));
    row("29 February", 2020, 2, 29, 12, 0, 0, utc(2020, 2, 29, 11, 0, 0));
    row("the start of 1970", 1970, 1, 1, 1, 0, 0, 0);
    row("before 1970", 1969, 12, 31, 0, 0, 0, utc(1969, 12, 30, 23, 0, 0));
    row("after 2038", 2040, 1, 1, 0, 0, 0, utc(2039, 12, 31, 23, 0, 0));
    row("month 13 is January of the next year", 2020, 13, 1, 0, 0, 0, utc(2020, 12, 31, 23, 0, 0));
    row("month 0 is December of the last year", 2020, 0, 1, 0, 0, 0, utc(2019, 11, 30, 23, 0, 0));
    row("30 February is 1 March", 2020, 2, 30, 0, 0, 0, utc(2020, 2, 29, 23, 0, 0));
    row("day 0 is the day before", 2020, 3, 0, 0, 0, 0, utc(2020, 2, 28, 23, 0, 0));
    row("hour 25", 2020, 1, 1, 25, 0, 0, utc(2020, 1, 2, 0, 0, 0));
    row("minute -1", 2020, 1, 1, 0, -1, 0, utc(2019, 12, 31, 22, 59, 0));
    row("second 3600", 2020, 1, 1, 0, 0, 3600, utc(2020, 1, 1, 0, 0, 0));

    QTest::newRow("without a summer time flag the rules decide")
        << TimeCall([] { return qint64(CTime(2020, 7, 15, 12, 0, 0).GetTime()); })
        << utc(2020, 7, 15, 10, 0, 0);
}

void tst_FileStatus::times()
{
    const TimeZone zone(centralEurope);
    QFETCH(TimeCall, call);
    QTEST(call(), "expected");
}

void tst_FileStatus::summerTimeFlag_data()
{
    QTest::addColumn<TimeCall>("call");
    QTest::addColumn<qint64>("expected");

    const auto row = [](const char *name, int month, int day, int hour, int dst, qint64 expected) {
        const TimeCall call = [=] { return qint64(CTime(2020, month, day, hour, 30, 0, dst).GetTime()); };
        QTest::newRow(name) << call << expected;
    };
    row("the hour that comes twice, as summer time", 10, 25, 2, 1, utc(2020, 10, 25, 0, 30, 0));
    row("the hour that comes twice, as winter time", 10, 25, 2, 0, utc(2020, 10, 25, 1, 30, 0));
    row("summer time in summer", 7, 15, 12, 1, utc(2020, 7, 15, 10, 30, 0));
    row("winter time in summer", 7, 15, 12, 0, utc(2020, 7, 15, 11, 30, 0));
    row("summer time in winter", 1, 15, 12, 1, utc(2020, 1, 15, 10, 30, 0));
    row("winter time in winter", 1, 15, 12, 0, utc(2020, 1, 15, 11, 30, 0));
    row("the rules in summer", 7, 15, 12, -1, utc(2020, 7, 15, 10, 30, 0));
    row("the rules in winter", 1, 15, 12, -1, utc(2020, 1, 15, 11, 30, 0));
}

void tst_FileStatus::summerTimeFlag()
{
    const TimeZone zone(centralEurope);
    QFETCH(TimeCall, call);
    QTEST(call(), "expected");
}

void tst_FileStatus::midnightIsMktime()
{
    for (const char *rules : {"UTC0", centralEurope, "EST5EDT,M3.2.0,M11.1.0", "NPT-5:45"}) {
        const TimeZone zone(rules);
        std::tm parts = {};
        parts.tm_year = 120;
        parts.tm_mday = 1;
        parts.tm_isdst = -1;
        QVERIFY(CTime(2020, 1, 1, 0, 0, 0, -1).GetTime() == std::mktime(&parts));
    }
}

void tst_FileStatus::currentTime()
{
    const std::time_t before = std::time(nullptr);
    const CTime now = CTime::GetCurrentTime();
    const std::time_t after = std::time(nullptr);
    QVERIFY(now >= before && now <= after);
}

void tst_FileStatus::comparison()
{
    const CTime earlier(-5);
    const CTime later(std::time_t(1) << 40);
    const CTime alsoLater = later;
    QVERIFY(later == alsoLater && !(later == earlier));
    QVERIFY(later != earlier && !(later != alsoLater));
    QVERIFY(earlier < later && !(later < earlier) && !(later < alsoLater));
    QVERIFY(later > earlier && !(earlier > later) && !(later > alsoLater));
    QVERIFY(earlier <= later && later <= alsoLater && !(later <= earlier));
    QVERIFY(later >= earlier && later >= alsoLater && !(earlier >= later));
}

void tst_FileStatus::format_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");

    QTest::newRow("date and time") << "%Y-%m-%d %H:%M:%S" << "2020-07-05 14:03:09";
    QTest::newRow("the day of the year and the zone") << "%j %Z %z" << "187 CEST +0200";
    QTest::newRow("text around") << "it is %H%%." << "it is 14%.";
    QTest::newRow("text only") << "text" << "text";
    QTest::newRow("letters outside ASCII") << QStringLiteral("\u00e4 %d") << QStringLiteral("\u00e4 05");
    QTest::newRow("empty") << "" << "";
    QTest::newRow("255 characters") << QString(253, QLatin1Char('x')) + QStringLiteral("%d")
                                    << QString(253, QLatin1Char('x')) + QStringLiteral("05");
    QTest::newRow("256 characters are too many")
        << QString(254, QLatin1Char('x')) + QStringLiteral("%d") << "";
}

void tst_FileStatus::format()
{
    const TimeZone zone(centralEurope);
    QFETCH(QString, format);
    const CTime time(2020, 7, 5, 14, 3, 9);
    QTEST(shown(time.Format(wide(format).c_str())), "expected");
}

void tst_FileStatus::formatFollowsTheZone()
{
    const CTime time(utc(2020, 1, 1, 0, 0, 0));
    {
        const TimeZone zone(centralEurope);
        QCOMPARE(shown(time.Format(L"%Y-%m-%d %H:%M")), QStringLiteral("2020-01-01 01:00"));
    }
    const TimeZone zone("EST5EDT,M3.2.0,M11.1.0");
    QCOMPARE(shown(time.Format(L"%Y-%m-%d %H:%M")), QStringLiteral("2019-12-31 19:00"));
    QVERIFY2(time.Format(nullptr).IsEmpty(), "null is the empty format");
}

KX_TEST_MAIN(tst_FileStatus)

#include "tst_file_status.moc"
