// SPDX-License-Identifier: MIT
#include "support/KxTestCase.h"

#include "KxAfxApp.h"
#include "KxAfxWin.h"
#include "KxQtWinapiWrapper.h"

#include <QtCore/QFile>
#include <QtCore/QSettings>

#include <algorithm>
#include <climits>
#include <functional>
#include <type_traits>
#include <vector>

using StoreAction = std::function<void()>;
Q_DECLARE_METATYPE(StoreAction)

namespace {

/// The store that profile and registry share, seen with Qt's own eyes.
class Store : public QSettings
{
public:
    Store() : QSettings(QSettings::NativeFormat, QSettings::UserScope, "Drumal", "TORVA") {}
};

/// Publishes an application object for the life of this one.
class Published
{
public:
    explicit Published(CWinApp *application) { g_pWinApp = application; }
    ~Published() { g_pWinApp = nullptr; }
    Published(const Published &) = delete;
    Published &operator=(const Published &) = delete;
};

class OtherMainWindow : public CWinApp
{
public:
    CWnd *GetMainWnd() override { return &window; }

    CWnd window;
};

/// A buffer that shows what was written: '#' is untouched, '0' a NUL.
class Buffer
{
public:
    explicit Buffer(int size) : m_characters(size_t(size), L'#') {}
    wchar_t *data() { return m_characters.data(); }
    QString text() const { return QString::fromWCharArray(m_characters.data()); }
    QString shown() const
    {
        QString result = QString::fromWCharArray(m_characters.data(), int(m_characters.size()));
        return result.replace(QChar(), QChar(u'0'));
    }

private:
    std::vector<wchar_t> m_characters;
};

} // namespace

class tst_ApplicationAndProfile : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();

    void types_data();
    void types();
    void withoutApplication();
    void mainWindow();
    void overriddenMainWindow();
    void fixedResults();
    void documentsAndArchives();

    void profileInt_data();
    void profileInt();
    void profileIntIsStored_data();
    void profileIntIsStored();
    void profileIntReachesTheDisk();
    void profileStringsAndBinaries();

    void newRegistryKey();
    void registryPath_data();
    void registryPath();
    void registryCreateIgnoresTheRest();
    void registryWithoutPath();
    void registryShorterPathKeepsTheTail();
    void registryLongPath_data();
    void registryLongPath();
    void registryCallsThatDoNothing();
    void registryValuesAreStrings();
    void registryReachesTheDisk();
    void query_data();
    void query();
    void queryZeroesBytes();
    void queryMissingValue();
    void queryTooLongLeavesTheGroupOpen();
    void queryNumberOfTheProfile();
};

void tst_ApplicationAndProfile::initTestCase()
{
    // As it is before anybody set it.
    QCOMPARE(g_pWinApp, static_cast<CWinApp *>(nullptr));
    // The store is the private one.
    QVERIFY(Store().allKeys().isEmpty());
    QVERIFY(Store().fileName().endsWith(QStringLiteral("/Drumal/TORVA.conf")));
    QVERIFY(!Store().fileName().startsWith(QDir::homePath() + QStringLiteral("/.config")));
}

// ---- the application object -----------------------------------------------------------------------------

void tst_ApplicationAndProfile::types_data()
{
    QTest::addColumn<bool>("holds");
    const auto row = [](const char *promise, bool holds) { QTest::newRow(promise) << holds; };
    row("CWinApp is polymorphic", std::is_polymorphic_v<CWinApp>);
    row("CWinApp has no virtual destructor", !std::has_virtual_destructor_v<CWinApp>);
    row("CWinApp has one field behind its table", sizeof(CWinApp) == 2 * sizeof(void *));
    row("CDocument has a virtual destructor", std::has_virtual_destructor_v<CDocument>);
    row("CDocument has no field", sizeof(CDocument) == sizeof(void *));
    row("CArchive is not polymorphic", !std::is_polymorphic_v<CArchive>);
    row("CRegKey is not polymorphic", !std::is_polymorphic_v<CRegKey>);
    row("CRegKey has three pointers", sizeof(CRegKey) == 3 * sizeof(void *));
    row("CRegKey becomes an HKEY by itself", std::is_convertible_v<const CRegKey &, HKEY>);
}

void tst_ApplicationAndProfile::types()
{
    QFETCH(bool, holds);
    QVERIFY(holds);
}

void tst_ApplicationAndProfile::withoutApplication()
{
    QCOMPARE(AfxGetApp(), static_cast<CWinApp *>(nullptr));
    QCOMPARE(AfxGetMainWnd(), static_cast<CWnd *>(nullptr));
    QCOMPARE(lumo_tnorMainWnd(), static_cast<HWND>(nullptr));
}

void tst_ApplicationAndProfile::mainWindow()
{
    CWinApp application;
    const Published published(&application);
    QCOMPARE(AfxGetApp(), &application);
    QCOMPARE(application.m_pMainWnd, static_cast<CWnd *>(nullptr));
    QCOMPARE(application.GetMainWnd(), static_cast<CWnd *>(nullptr));
    QCOMPARE(AfxGetMainWnd(), static_cast<CWnd *>(nullptr));
    QCOMPARE(lumo_tnorMainWnd(), static_cast<HWND>(nullptr));

    CWnd window;
    application.SetMainWnd(&window);
    QCOMPARE(application.m_pMainWnd, &window);
    QCOMPARE(application.GetMainWnd(), &window);
    QCOMPARE(AfxGetMainWnd(), &window);
    QCOMPARE(lumo_tnorMainWnd(), static_cast<HWND>(nullptr)); // not bound yet

    QWidget widget;
    window.Attach(KxHwndFromWidget(&widget));
    QCOMPARE(lumo_tnorMainWnd(), KxHwndFromWidget(&widget));

    application.m_pMainWnd = nullptr;
    QCOMPARE(AfxGetMainWnd(), static_cast<CWnd *>(nullptr));
    application.m_pMainWnd = &window;
    application.SetMainWnd(nullptr);
    QCOMPARE(AfxGetMainWnd(), static_cast<CWnd *>(nullptr));
    QCOMPARE(lumo_tnorMainWnd(), static_cast<HWND>(nullptr));
}

void tst_ApplicationAndProfile::overriddenMainWindow()
{
    OtherMainWindow application;
    QWidget widget;
    application.window.Attach(KxHwndFromWidget(&widget));
    const Published published(&application);
    QCOMPARE(AfxGetMainWnd(), &application.window);
    QCOMPARE(lumo_tnorMainWnd(), KxHwndFromWidget(&widget));
    QCOMPARE(application.m_pMainWnd, static_cast<CWnd *>(nullptr));
}

void tst_ApplicationAndProfile::fixedResults()
{
    CWinApp application;
    QCOMPARE(application.LoadCursorW(1u), static_cast<HCURSOR>(nullptr));
    QCOMPARE(application.LoadIconW(1u), static_cast<HICON>(nullptr));
    QCOMPARE(application.LoadStandardCursor(L"name"), static_cast<HCURSOR>(nullptr));
    QCOMPARE(application.LoadStandardCursor(32512u), static_cast<HCURSOR>(nullptr));
    QVERIFY(!application.OpenDocumentFile(L"/dev/null"));
    QVERIFY(!application.GetFirstDocTemplatePosition());
    POSITION position = reinterpret_cast<POSITION>(0x10);
    QVERIFY(!application.GetNextDocTemplate(position));
}

void tst_ApplicationAndProfile::documentsAndArchives()
{
    class OwnDocument : public CDocument
    {
    public:
        explicit OwnDocument(bool &gone) : m_gone(gone) {}
        ~OwnDocument() override { m_gone = true; }

    private:
        bool &m_gone;
    };
    bool gone = false;
    const CDocument *document = new OwnDocument(gone);
    delete document;
    QVERIFY(gone);

    // Nothing of the file or the buffer is touched.
    unsigned char bytes[4] = {1, 2, 3, 4};
    {
        CArchive archive(reinterpret_cast<CFile *>(0x10), 1, 4, bytes);
        archive.Close();
        archive.Close();
    }
    QCOMPARE(int(bytes[0]), 1);
    QCOMPARE(int(bytes[3]), 4);
}

// ---- the profile ----------------------------------------------------------------------------------------

void tst_ApplicationAndProfile::profileInt_data()
{
    QTest::addColumn<StoreAction>("prepare");
    QTest::addColumn<int>("defaultValue");
    QTest::addColumn<int>("expected");
    const auto row = [](const char *promise, StoreAction prepare, int defaultValue, int expected) {
        QTest::newRow(promise) << std::move(prepare) << defaultValue << expected;
    };
    row("absent: the default 5", [] {}, 5, 5);
    row("absent: the default -5", [] {}, -5, -5);
    row("absent: the default INT_MIN", [] {}, INT_MIN, INT_MIN);
    row("written 7: 7, not the default", [] { CWinApp().WriteProfileInt(L"S", L"E", 7); }, 5, 7);
    row("written 0: 0, not the default", [] { CWinApp().WriteProfileInt(L"S", L"E", 0); }, 5, 0);
    row("written -1: -1", [] { CWinApp().WriteProfileInt(L"S", L"E", -1); }, 5, -1);
    row("written INT_MAX: INT_MAX", [] { CWinApp().WriteProfileInt(L"S", L"E", INT_MAX); }, 5, INT_MAX);
    row("written twice: the second", [] {
        CWinApp().WriteProfileInt(L"S", L"E", 7);
        CWinApp().WriteProfileInt(L"S", L"E", 8);
    }, 5, 8);
    row("of another section: the default", [] { CWinApp().WriteProfileInt(L"S2", L"E", 7); }, 5, 5);
    row("another entry: the default", [] { CWinApp().WriteProfileInt(L"S", L"E2", 7); }, 5, 5);
    row("stored text 12 is 12", [] { Store().setValue("S/E", "12"); }, 5, 12);
    row("stored text that is no number is 0", [] { Store().setValue("S/E", "seven"); }, 5, 0);
    row("stored empty text is 0", [] { Store().setValue("S/E", ""); }, 5, 0);
    row("stored text 3.7 is no integer: 0", [] { Store().setValue("S/E", "3.7"); }, 5, 0);
    row("stored by the registry class: 9", [] {
        CRegKey key;
        key.Create(HKEY_CURRENT_USER, L"S");
        key.SetValue(L"9", L"E");
    }, 5, 9);
}

void tst_ApplicationAndProfile::profileInt()
{
    QFETCH(StoreAction, prepare);
    QFETCH(int, defaultValue);
    Store().clear();
    prepare();
    CWinApp application;
    QTEST(int(application.GetProfileIntW(L"S", L"E", defaultValue)), "expected");
}

void tst_ApplicationAndProfile::profileIntIsStored_data()
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("key");
    QTest::newRow("section S, entry E: S/E") << "S" << "E" << "S/E";
    QTest::newRow("Settings, Width: Settings/Width") << "Settings" << "Width" << "Settings/Width";
    QTest::newRow("a section with a slash is a group in a group") << "A/B" << "C" << "A/B/C";
    QTest::newRow("an empty section is the store itself") << "" << "E" << "E";
    QTest::newRow("letters beyond ASCII")
        << QStringLiteral(u"Gr\u00f6\u00dfe") << QStringLiteral(u"\U0001F600")
        << QStringLiteral(u"Gr\u00f6\u00dfe/\U0001F600");
    QTest::newRow("blanks") << "My section" << "my entry" << "My section/my entry";
}

void tst_ApplicationAndProfile::profileIntIsStored()
{
    QFETCH(QString, section);
    QFETCH(QString, entry);
    QFETCH(QString, key);
    Store().clear();
    CWinApp application;
    const std::wstring wideSection = section.toStdWString();
    const std::wstring wideEntry = entry.toStdWString();
    QCOMPARE(int(application.WriteProfileInt(wideSection.c_str(), wideEntry.c_str(), 7)), 1);
    QCOMPARE(Store().allKeys(), QStringList(key));
    QCOMPARE(Store().value(key).toInt(), 7);
    QCOMPARE(int(application.GetProfileIntW(wideSection.c_str(), wideEntry.c_str(), 0)), 7);
}

void tst_ApplicationAndProfile::profileIntReachesTheDisk()
{
    const QString fileName = Store().fileName();
    Store().clear();
    QFile::remove(fileName);
    CWinApp().WriteProfileInt(L"Disk", L"Width", 4711);
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray contents = file.readAll();
    QVERIFY2(contents.contains("[Disk]\nWidth=4711\n"), contents.constData());
}

void tst_ApplicationAndProfile::profileStringsAndBinaries()
{
    Store().clear();
    Store().setValue("S/E", "stored");
    CWinApp application;
    QVERIFY(application.GetProfileStringW(L"S", L"E", L"default").IsEmpty());
    QVERIFY(application.GetProfileStringW(L"S", L"E").IsEmpty());
    QVERIFY(application.GetProfileStringW(L"S", L"absent", L"default").IsEmpty());
    QCOMPARE(int(application.WriteProfileStringW(L"S", L"E", L"new")), 0);
    QCOMPARE(int(application.WriteProfileStringW(L"S", L"E2", L"new")), 0);

    unsigned char mark = 0;
    unsigned char *data = &mark;
    unsigned int count = 17;
    QCOMPARE(int(application.GetProfileBinary(L"S", L"E", &data, &count)), 0);
    QCOMPARE(data, &mark);
    QCOMPARE(count, 17u);
    QCOMPARE(int(application.WriteProfileBinary(L"S", L"E", &mark, 1)), 0);
    QCOMPARE(int(application.WriteProfileBinary(L"S", L"E3", &mark, 1)), 0);

    QCOMPARE(Store().allKeys(), QStringList(QStringLiteral("S/E")));
    QCOMPARE(Store().value("S/E").toString(), QStringLiteral("stored"));
}

// ---- the registry ---------------------------------------------------------------------------------------

void tst_ApplicationAndProfile::newRegistryKey()
{
    CRegKey key;
    QCOMPARE(static_cast<void *>(&key.m_hKey), static_cast<void *>(&key)); // the first of its fields
    QCOMPARE(key.m_hKey, static_cast<HKEY>(nullptr));
    QCOMPARE(static_cast<HKEY>(key), static_cast<HKEY>(nullptr));
    key.Create(HKEY_CURRENT_USER, L"Software\\A");
    key.Open(HKEY_CURRENT_USER, L"Software\\A", KEY_READ);
    QCOMPARE(static_cast<HKEY>(key), static_cast<HKEY>(nullptr));
    key.m_hKey = HKEY_CURRENT_USER;
    QCOMPARE(static_cast<HKEY>(key), HKEY_CURRENT_USER);
    key.Close();
    QCOMPARE(key.m_hKey, HKEY_CURRENT_USER);
    QCOMPARE(ERROR_SUCCESS, 0);
}

void tst_ApplicationAndProfile::registryPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("key");
    QTest::newRow("Software\\A\\B: Software/A/B/n") << "Software\\A\\B" << "Software/A/B/n";
    QTest::newRow("one level") << "Software" << "Software/n";
    QTest::newRow("slashes stay slashes") << "Software/A" << "Software/A/n";
    QTest::newRow("letters beyond ASCII") << QString::fromUtf8("A\\\xf0\x9f\x98\x80")
                                         << QString::fromUtf8("A/\xf0\x9f\x98\x80/n");
    QTest::newRow("nine levels") << "1\\2\\3\\4\\5\\6\\7\\8\\9" << "1/2/3/4/5/6/7/8/9/n";
}

void tst_ApplicationAndProfile::registryPath()
{
    QFETCH(QString, path);
    QFETCH(QString, key);
    Store().clear();
    CRegKey registry;
    QCOMPARE(int(registry.Create(HKEY_CURRENT_USER, path.toStdWString().c_str())), 0);
    QCOMPARE(int(registry.SetValue(L"v", L"n")), 0);
    QCOMPARE(Store().allKeys(), QStringList(key));
    QCOMPARE(Store().value(key).toString(), QStringLiteral("v"));
    Buffer buffer(10);
    DWORD count = 10;
    QCOMPARE(int(registry.QueryValue(buffer.data(), L"n", &count)), 0);
    QCOMPARE(buffer.text(), QStringLiteral("v"));
    QCOMPARE(count, 10u);
    // Again, now that all groups are closed.
    QCOMPARE(int(registry.SetValue(L"w", L"n")), 0);
    QCOMPARE(Store().allKeys(), QStringList(key));
    QCOMPARE(Store().value(key).toString(), QStringLiteral("w"));
}

void tst_ApplicationAndProfile::registryCreateIgnoresTheRest()
{
    Store().clear();
    const HKEY parents[] = {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_CLASSES_ROOT, nullptr};
    for (const HKEY parent : parents) {
        CRegKey key;
        wchar_t className[] = L"class";
        DWORD disposition = 99;
        QCOMPARE(int(key.Create(parent, L"One\\Store", className, 1, 0, nullptr, &disposition)), 0);
        QCOMPARE(disposition, 99u);
        QCOMPARE(int(key.SetValue(L"v", L"n")), 0);
    }
    QCOMPARE(Store().allKeys(), QStringList(QStringLiteral("One/Store/n")));
}

void tst_ApplicationAndProfile::registryWithoutPath()
{
    Store().clear();
    CRegKey key;
    QCOMPARE(int(key.SetValue(L"v", L"n")), 0);
    QCOMPARE(Store().allKeys(), QStringList(QStringLiteral("n")));
}

void tst_ApplicationAndProfile::registryShorterPathKeepsTheTail()
{
    Store().clear();
    CRegKey key;
    QCOMPARE(int(key.Create(HKEY_CURRENT_USER, L"Software\\Long")), 0);
    QCOMPARE(int(key.Create(HKEY_CURRENT_USER, L"Abc")), 0);
    QCOMPARE(int(key.SetValue(L"v", L"n")), 0);
    QCOMPARE(Store().allKeys(), QStringList(QStringLiteral("Abctware/Long/n")));
    // A longer one is complete.
    Store().clear();
    QCOMPARE(int(key.Create(HKEY_CURRENT_USER, L"Software\\Longest")), 0);
    QCOMPARE(int(key.SetValue(L"v", L"n")), 0);
    QCOMPARE(Store().allKeys(), QStringList(QStringLiteral("Software/Longest/n")));
}

void tst_ApplicationAndProfile::registryLongPath_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("stored");
    QTest::newRow("600 characters") << 600 << 600;
    QTest::newRow("2048 characters, which fill the buffer") << 2048 << 2048;
    QTest::newRow("2049 characters: what the buffer holds") << 2049 << 2048;
    QTest::newRow("100000 characters: what the buffer holds") << 100000 << 2048;
}

void tst_ApplicationAndProfile::registryLongPath()
{
    QFETCH(int, length);
    QFETCH(int, stored);
    Store().clear();
    CRegKey key;
    QCOMPARE(int(key.Create(HKEY_CURRENT_USER, std::wstring(size_t(length), L'k').c_str())), 0);
    QCOMPARE(int(key.SetValue(L"v", L"n")), 0);
    QCOMPARE(Store().allKeys(), QStringList(QString(stored, u'k') + QStringLiteral("/n")));
}

void tst_ApplicationAndProfile::registryCallsThatDoNothing()
{
    Store().clear();
    CRegKey key;
    QCOMPARE(int(key.Create(HKEY_CURRENT_USER, L"First")), 0);
    QCOMPARE(int(key.Open(HKEY_CURRENT_USER, L"Second", KEY_READ)), 0);
    QCOMPARE(int(key.SetValue(L"v", L"n")), 0);
    QCOMPARE(Store().allKeys(), QStringList(QStringLiteral("First/n")));
    QCOMPARE(int(key.RecurseDeleteKey(L"First")), 0);
    QCOMPARE(int(key.RecurseDeleteKey(L"n")), 0);
    QCOMPARE(Store().allKeys(), QStringList(QStringLiteral("First/n")));
    QCOMPARE(int(key.Close()), 0);
    QCOMPARE(int(key.SetValue(L"w", L"n")), 0);
    QCOMPARE(Store().value("First/n").toString(), QStringLiteral("w"));
}

void tst_ApplicationAndProfile::registryValuesAreStrings()
{
    Store().clear();
    CRegKey key;
    key.Create(HKEY_CURRENT_USER, L"A");
    QCOMPARE(int(key.SetValue(L"12", L"number")), 0);
    QCOMPARE(int(key.SetValue(L"the whole text", L"multi", true, 3)), 0);
    QCOMPARE(int(key.SetValue(L"the whole text", L"single", false, 3)), 0);
    QCOMPARE(int(key.SetValue(L"", L"empty")), 0);
    QCOMPARE(int(key.SetValue(L"\U0001F600, and; \"more\"\\", L"odd")), 0);
    Store store;
    QCOMPARE(store.value("A/number").type(), QVariant::String);
    QCOMPARE(store.value("A/number").toString(), QStringLiteral("12"));
    QCOMPARE(store.value("A/multi").toString(), QStringLiteral("the whole text"));
    QCOMPARE(store.value("A/single").toString(), QStringLiteral("the whole text"));
    QVERIFY(store.contains("A/empty"));
    QCOMPARE(store.value("A/empty").toString(), QString());
    QCOMPARE(store.value("A/odd").toString(), QString::fromUtf8("\xf0\x9f\x98\x80, and; \"more\"\\"));
    Buffer buffer(40);
    DWORD count = 40;
    QCOMPARE(int(key.QueryValue(buffer.data(), L"odd", &count)), 0);
    QCOMPARE(buffer.text(), QString::fromUtf8("\xf0\x9f\x98\x80, and; \"more\"\\"));
}

void tst_ApplicationAndProfile::registryReachesTheDisk()
{
    const QString fileName = Store().fileName();
    Store().clear();
    QFile::remove(fileName);
    {
        CRegKey key;
        key.Create(HKEY_CURRENT_USER, L"Disk\\Key");
        key.SetValue(L"v", L"n");
    }
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray contents = file.readAll();
    QVERIFY2(contents.contains("[Disk]\nKey\\n=v\n"), contents.constData());
}

void tst_ApplicationAndProfile::query_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<uint>("count");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("text");
    QTest::newRow("1 character, count 10: it") << "v" << 10u << 0 << "v";
    QTest::newRow("4 characters, count 10: all") << "abcd" << 10u << 0 << "abcd";
    QTest::newRow("4 characters, count 5: all") << "abcd" << 5u << 0 << "abcd";
    QTest::newRow("4 characters, count 4: the first 3") << "abcd" << 4u << 0 << "abc";
    QTest::newRow("4 characters, count 3: -1") << "abcd" << 3u << -1 << QString();
    QTest::newRow("4 characters, count 1: -1") << "abcd" << 1u << -1 << QString();
    QTest::newRow("4 characters, count 0: -1") << "abcd" << 0u << -1 << QString();
    QTest::newRow("1 character, count 1: none of it") << "v" << 1u << 0 << "";
    QTest::newRow("no character, count 1") << "" << 1u << 0 << "";
    QTest::newRow("19 characters, count 20: all") << QString(19, u'x') << 20u << 0 << QString(19, u'x');
    QTest::newRow("20 characters, count 20: the first 19")
        << QString(20, u'x') << 20u << 0 << QString(19, u'x');
    QTest::newRow("21 characters, count 20: -1") << QString(21, u'x') << 20u << -1 << QString();
}

void tst_ApplicationAndProfile::query()
{
    QFETCH(QString, stored);
    QFETCH(uint, count);
    QFETCH(int, result);
    QFETCH(QString, text);
    Store().clear();
    Store().setValue("A/n", stored);
    CRegKey key;
    key.Create(HKEY_CURRENT_USER, L"A");
    Buffer buffer(24);
    DWORD room = count;
    QCOMPARE(int(key.QueryValue(buffer.data(), L"n", &room)), result);
    QCOMPARE(room, count);
    if (result == 0) {
        QCOMPARE(buffer.text(), text);
        QCOMPARE(buffer.shown().mid(int(count)), QString(24 - int(count), u'#'));
    } else {
        QCOMPARE(buffer.shown(), QString(24, u'#'));
    }
}

void tst_ApplicationAndProfile::queryZeroesBytes()
{
    Store().clear();
    Store().setValue("A/n", "v");
    CRegKey key;
    key.Create(HKEY_CURRENT_USER, L"A");
    // A count of 40 zeroes 40 bytes, which are 10 characters, and then copies the one.
    Buffer buffer(48);
    DWORD count = 40;
    QCOMPARE(int(key.QueryValue(buffer.data(), L"n", &count)), 0);
    QCOMPARE(buffer.shown().left(10), QStringLiteral("v000000000"));
    QCOMPARE(buffer.shown().mid(40), QStringLiteral("########"));
}

void tst_ApplicationAndProfile::queryMissingValue()
{
    Store().clear();
    CRegKey key;
    key.Create(HKEY_CURRENT_USER, L"A");
    Buffer buffer(10);
    DWORD count = 8;
    QCOMPARE(int(key.QueryValue(buffer.data(), L"absent", &count)), 0);
    QCOMPARE(buffer.text(), QString());
    QCOMPARE(count, 8u);
    QCOMPARE(buffer.shown().mid(8), QStringLiteral("##"));
    // No room: it succeeds and writes nothing.
    Buffer untouched(4);
    count = 0;
    QCOMPARE(int(key.QueryValue(untouched.data(), L"absent", &count)), 0);
    QCOMPARE(untouched.shown(), QStringLiteral("####"));
    QVERIFY(Store().allKeys().isEmpty());
}

void tst_ApplicationAndProfile::queryTooLongLeavesTheGroupOpen()
{
    Store().clear();
    Store().setValue("A/B/n", "abcd");
    CRegKey key;
    key.Create(HKEY_CURRENT_USER, L"A\\B");
    Buffer buffer(10);
    DWORD count = 3;
    QCOMPARE(int(key.QueryValue(buffer.data(), L"n", &count)), -1);
    // What follows lies below the open group.
    QCOMPARE(int(key.SetValue(L"x", L"n")), 0);
    QCOMPARE(Store().value("A/B/A/B/n").toString(), QStringLiteral("x"));
    QCOMPARE(Store().value("A/B/n").toString(), QStringLiteral("abcd"));
    count = 10;
    QCOMPARE(int(key.QueryValue(buffer.data(), L"n", &count)), 0);
    QCOMPARE(buffer.text(), QStringLiteral("x"));
    // Another key has its own settings object.
    CRegKey other;
    other.Create(HKEY_CURRENT_USER, L"A\\B");
    QCOMPARE(int(other.QueryValue(buffer.data(), L"n", &count)), 0);
    QCOMPARE(buffer.text(), QStringLiteral("abcd"));
}

void tst_ApplicationAndProfile::queryNumberOfTheProfile()
{
    Store().clear();
    CWinApp().WriteProfileInt(L"A", L"n", 7);
    CRegKey key;
    key.Create(HKEY_CURRENT_USER, L"A");
    Buffer buffer(10);
    DWORD count = 10;
    QCOMPARE(int(key.QueryValue(buffer.data(), L"n", &count)), 0);
    QCOMPARE(buffer.text(), QStringLiteral("7"));
}

KX_TEST_MAIN(tst_ApplicationAndProfile)

#include "tst_application_and_profile.moc"
