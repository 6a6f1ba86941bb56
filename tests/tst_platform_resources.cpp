// SPDX-License-Identifier: MIT
#include "KxPlatformServices.h"
#include "KxTestCase.h"
#include "KxWinModule.h"
#include "KxWinResource.h"
#include "KxWinSystem.h"

#include <QtCore/QResource>
#include <QtGui/QImage>

#include <cmath>
#include <string>

Q_DECLARE_METATYPE(std::wstring)

namespace {

const HINSTANCE module = KxHandleFromValue<HINSTANCE>(0x4711);

/// Takes back at its end what was registered for null and for `module`.
class Registrations
{
public:
    Registrations() { SetLastError(0); }
    ~Registrations()
    {
        for (const HINSTANCE owner : {HINSTANCE(nullptr), module}) {
            KxUnregisterStrings(owner);
            KxUnregisterBitmaps(owner);
        }
    }
};

std::wstring loaded(HINSTANCE from, UINT id)
{
    wchar_t buffer[256];
    const int length = LoadStringW(from, id, buffer, 256);
    return length == int(std::wcslen(buffer)) ? buffer : L"(length and text differ)";
}

KxImageService *images()
{
    return platformServices()->imageService();
}

QImage filled(int width, int height, const QColor &color)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

/// The image of a handle that LoadImageW() gave; the null image for a null handle.
QImage imageOf(HANDLE handle)
{
    const QImage *image = images()->image(handle);
    return image ? *image : QImage();
}

} // namespace

class tst_PlatformResources : public KxTestCase
{
    Q_OBJECT

private slots:
    void loadString_data();
    void loadString();
    void loadStringWithoutABuffer();
    void loadStringOfNothing();
    void stringsBelongToTheirModule();
    void registeredStringsTakeThePlaceOfOthers();
    void unregisterStrings();
    void stringsOfAnArray();

    void stringTable_data();
    void stringTable();
    void stringTableWithAMistake_data();
    void stringTableWithAMistake();
    void stringTableOfALargeFile();
    void stringTableKeepsWhatItDoesNotName();
    void stringTableFromAFile();
    void stringTableFromAQtResource();
    void stringTableThatCannotBeRead_data();
    void stringTableThatCannotBeRead();

    void loadImage_data();
    void loadImage();
    void loadImageOfDigitsWithoutASign();
    void loadImageGivesANewBitmapEachTime();
    void loadImageLeavesTheRegisteredOneAlone();
    void loadImageKeepsTransparency();
    void loadImageOfASize_data();
    void loadImageOfASize();
    void loadImageFails_data();
    void loadImageFails();
    void loadImageFromAFile_data();
    void loadImageFromAFile();
    void loadImageFromAFileFails_data();
    void loadImageFromAFileFails();
    void loadImageUsesTheServiceInPlace();
    void registerBitmapFails();
    void bitmapsBelongToTheirModule();
    void unregisterBitmaps();

    void loadLibrary();
    void loadLibraryFromAFile();
    void loadLibraryFails_data();
    void loadLibraryFails();
    void getProcAddressFails();
    void freeLibraryCountsUses();
    void freeLibraryOfWhatIsNoModule();
    void freeLibraryTakesTheResourcesAlong();
};

// ---- strings --------------------------------------------------------------------------------------------

void tst_PlatformResources::loadString_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("copied");
    QTest::addColumn<std::wstring>("buffer"); // of six #, 0 shown as a point

    QTest::newRow("room and more") << 6 << 4 << std::wstring(L"Four.#");
    QTest::newRow("room for the text and the zero") << 5 << 4 << std::wstring(L"Four.#");
    QTest::newRow("one short: count - 1 characters") << 4 << 3 << std::wstring(L"Fou.##");
    QTest::newRow("room for one character") << 2 << 1 << std::wstring(L"F.####");
    QTest::newRow("room for the zero alone") << 1 << 0 << std::wstring(L".#####");
    QTest::newRow("count 0 writes nothing") << 0 << 0 << std::wstring(L"######");
    QTest::newRow("count -1 writes nothing") << -1 << 0 << std::wstring(L"######");
}

void tst_PlatformResources::loadString()
{
    const Registrations registrations;
    QFETCH(int, count);
    KxRegisterString(nullptr, 7, L"Four");
    std::wstring buffer(6, L'#');
    QTEST(LoadStringW(nullptr, 7, &buffer[0], count), "copied");
    std::replace(buffer.begin(), buffer.end(), L'\0', L'.');
    QTEST(buffer, "buffer");
}

void tst_PlatformResources::loadStringWithoutABuffer()
{
    const Registrations registrations;
    KxRegisterString(nullptr, 7, L"Four");
    QCOMPARE(LoadStringW(nullptr, 7, nullptr, 10), 0);
    QCOMPARE(LoadStringW(nullptr, 7, nullptr, 0), 0);
}

void tst_PlatformResources::loadStringOfNothing()
{
    const Registrations registrations;
    wchar_t buffer[] = L"##";
    QCOMPARE(LoadStringW(nullptr, 7, buffer, 2), 0);
    QVERIFY2(buffer[0] == 0 && buffer[1] == L'#', "in a module without strings");
    QCOMPARE(GetLastError(), DWORD(ERROR_RESOURCE_NAME_NOT_FOUND));

    KxRegisterString(nullptr, 8, L"another");
    buffer[0] = L'#';
    QCOMPARE(LoadStringW(nullptr, 7, buffer, 2), 0);
    QVERIFY2(buffer[0] == 0 && buffer[1] == L'#', "in a module with other strings");
}

void tst_PlatformResources::stringsBelongToTheirModule()
{
    const Registrations registrations;
    KxRegisterString(nullptr, 7, L"null's");
    KxRegisterString(module, 7, L"the module's");
    KxRegisterString(module, 8, L"the module's alone");
    QCOMPARE(loaded(nullptr, 7), std::wstring(L"null's"));
    QCOMPARE(loaded(module, 7), std::wstring(L"the module's"));
    QCOMPARE(loaded(nullptr, 8), std::wstring());
    QCOMPARE(loaded(KxHandleFromValue<HINSTANCE>(0x4712), 7), std::wstring());
}

void tst_PlatformResources::registeredStringsTakeThePlaceOfOthers()
{
    const Registrations registrations;
    KxRegisterString(nullptr, 7, L"first");
    KxRegisterString(nullptr, 7, L"second");
    QCOMPARE(loaded(nullptr, 7), std::wstring(L"second"));
    KxRegisterString(nullptr, 7, nullptr);
    QCOMPARE(loaded(nullptr, 7), std::wstring());
    QVERIFY2(KxUnregisterString(nullptr, 7), "null is the empty text, not none");
}

void tst_PlatformResources::unregisterStrings()
{
    const Registrations registrations;
    KxRegisterStrings(module, {{1, L"one"}, {2, L"two"}, {3, L"three"}});
    KxRegisterString(nullptr, 2, L"null's");
    QVERIFY(KxUnregisterString(module, 2));
    QVERIFY(!KxUnregisterString(module, 2));
    QCOMPARE(loaded(module, 2), std::wstring());
    QCOMPARE(loaded(module, 3), std::wstring(L"three"));
    QCOMPARE(KxUnregisterStrings(module), 2);
    QCOMPARE(KxUnregisterStrings(module), 0);
    QVERIFY(!KxUnregisterString(module, 1));
    QCOMPARE(loaded(module, 1), std::wstring());
    QCOMPARE(loaded(nullptr, 2), std::wstring(L"null's"));
}

void tst_PlatformResources::stringsOfAnArray()
{
    const Registrations registrations;
    static constexpr KxStringResource strings[] = {{1, L"one"}, {0xFFFFFFFF, L"greatest"}, {3, nullptr}};
    KxRegisterStrings(module, strings);
    QCOMPARE(loaded(module, 1), std::wstring(L"one"));
    QCOMPARE(loaded(module, 0xFFFFFFFF), std::wstring(L"greatest"));
    QCOMPARE(KxUnregisterStrings(module), 3);
    KxRegisterStrings(module, strings, 1);
    QCOMPARE(KxUnregisterStrings(module), 1);
    KxRegisterStrings(module, nullptr, 3);
    QCOMPARE(KxUnregisterStrings(module), 0);
}

// ---- string tables --------------------------------------------------------------------------------------

void tst_PlatformResources::stringTable_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<int>("count");
    QTest::addColumn<unsigned int>("id");
    QTest::addColumn<std::wstring>("text");

    const auto row = [](const char *title, const QByteArray &table, int count, UINT id, const wchar_t *text) {
        QTest::newRow(title) << table << count << id << std::wstring(text);
    };
    row("identifier and text", "101 Plot Properties", 1, 101, L"Plot Properties");
    row("with a line feed", "101 Title\n", 1, 101, L"Title");
    row("with carriage return and line feed", "101 Title\r\n102 b\r\n", 2, 101, L"Title");
    row("hexadecimal", "0x1f Title", 1, 31, L"Title");
    row("hexadecimal with capitals", "0X1F Title", 1, 31, L"Title");
    row("leading zeros are decimal", "0010 Title", 1, 10, L"Title");
    row("identifier 0", "0 Title", 1, 0, L"Title");
    row("the greatest identifier", "4294967295 Title", 1, 0xFFFFFFFF, L"Title");
    row("the greatest identifier, hexadecimal", "0xFFFFFFFF Title", 1, 0xFFFFFFFF, L"Title");
    row("blanks around everything", "  \t7 \t  a  b \t ", 1, 7, L"a  b");
    row("tabs between", "7\ta\tb", 1, 7, L"a\tb");
    row("an identifier alone is an empty text", "7\n8 b", 2, 7, L"");
    row("an empty text after blanks", "7  \n", 1, 7, L"");
    row("a later line", "1 one\n2 two\n3 three\n", 3, 3, L"three");
    row("the last line without an end", "1 one\n2 two", 2, 2, L"two");
    row("empty lines", "\n\n1 one\n\n\t \r\n2 two\n\n", 2, 2, L"two");
    row("comments", "# Titles\n 1 one\n  \t#2 two\n", 1, 1, L"one");
    row("no comment behind a text", "1 one # more", 1, 1, L"one # more");
    row("a text that begins with #", "1 #one", 1, 1, L"#one");
    row("quotes are characters", "1 \"one\"", 1, 1, L"\"one\"");
    row("format characters", "1 %d of %ls", 1, 1, L"%d of %ls");
    row("\\n", "1 a\\nb", 1, 1, L"a\nb");
    row("\\r", "1 a\\rb", 1, 1, L"a\rb");
    row("\\t", "1 \\tb", 1, 1, L"\tb");
    row("\\s at both ends", "1 \\sa\\s ", 1, 1, L" a ");
    row("a backslash", "1 C:\\\\new", 1, 1, L"C:\\new");
    row("escapes side by side", "1 \\\\\\n\\\\n", 1, 1, L"\\\n\\n");
    row("\\u", "1 \\u00e4\\u20AC5", 1, 1, L"\u00E4\u20AC5");
    row("\\U", "1 \\U0001F6005", 1, 1, L"\U0001F6005");
    row("\\U, the greatest character", "1 \\U0010FFFF", 1, 1, L"\U0010FFFF");
    row("UTF-8 of two, three and four bytes", "1 \xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", 1, 1,
        L"\u00E4\u20AC\U0001F600");
    row("a byte order mark in front of the file", QByteArray("\xEF\xBB\xBF") + "1 one", 1, 1, L"one");
    row("a byte order mark in a text is a character", "1 \xEF\xBB\xBFz", 1, 1, L"\uFEFFz");
    row("a no-break space is part of the text", "1 \xC2\xA0", 1, 1, L"\u00A0");
    row("an empty file", "", 0, 1, L"");
    row("a file of a byte order mark", "\xEF\xBB\xBF", 0, 1, L"");
    row("a file of comments", "# nothing\n", 0, 1, L"");
}

void tst_PlatformResources::stringTable()
{
    const Registrations registrations;
    QFETCH(QByteArray, table);
    QFETCH(int, count);
    QFETCH(unsigned int, id);

    const KxStringTableResult result = KxRegisterStringTable(module, table);
    QVERIFY2(result.isOk(), qPrintable(result.error));
    QCOMPARE(result.line, 0);
    QCOMPARE(result.strings, count);
    QTEST(loaded(module, id), "text");
    QCOMPARE(KxUnregisterStrings(module), count);
}

void tst_PlatformResources::stringTableWithAMistake_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("error");

    const auto row = [](const char *title, const QByteArray &table, int line, const char *error) {
        QTest::newRow(title) << table << line << QString::fromLatin1(error);
    };
    row("no identifier", "1 one\nTitle\n", 2, "identifier of 32 bits");
    row("a word for an identifier", "1 one\nIDS_TITLE Title\n", 2, "identifier of 32 bits");
    row("an identifier with letters behind", "1a one", 1, "identifier of 32 bits");
    row("a negative identifier", "-1 one", 1, "identifier of 32 bits");
    row("hexadecimal digits without 0x", "1F one", 1, "identifier of 32 bits");
    row("0x alone", "0x one", 1, "identifier of 32 bits");
    row("0x with other letters", "0x1G one", 1, "identifier of 32 bits");
    row("an identifier beyond 32 bits", "4294967296 one", 1, "identifier of 32 bits");
    row("an identifier far beyond 32 bits", "18446744073709551617 one", 1, "identifier of 32 bits");
    row("the same identifier again", "1 one\n2 two\n0x1 one\n", 3, "identifier 1 stands in line 1 already");
    row("an unknown escape", "1 one\n\n2 a\\qb\n", 3, "begins no escape");
    row("a backslash at the end", "1 one\\\n", 1, "begins no escape");
    row("a backslash before the blanks of the end", "1 one\\  \n", 1, "begins no escape");
    row("\\u with three digits", "1 \\u20A", 1, "no character's number");
    row("\\u with another letter", "1 \\u20Ag", 1, "no character's number");
    row("\\u0000", "1 \\u0000", 1, "no character's number");
    row("\\u of a surrogate", "1 \\uD800", 1, "no character's number");
    row("\\u of a pair of surrogates", "1 \\uD83D\\uDE00", 1, "no character's number");
    row("\\U above 10FFFF", "1 \\U00110000", 1, "no character's number");
    row("\\U with seven digits", "1 \\U0001F60", 1, "no character's number");
    row("bytes that are no UTF-8", "1 one\n2 a\xFFz\n", 2, "not UTF-8");
    row("Latin-1", "1 one\n2 \xE4\n", 2, "not UTF-8");
    row("half a character at the end of a line", "1 \xE2\x82\n2 two", 1, "not UTF-8");
    row("half a character at the end of the file", "1 \xE2\x82", 1, "not UTF-8");
    row("an overlong zero", "1 a\xC0\x80", 1, "not UTF-8");
    row("UTF-8 of a surrogate", "1 \xED\xA0\x80", 1, "not UTF-8");
    row("no UTF-8 in a comment", "# \xE4\n1 one", 1, "not UTF-8");
    row("a byte order mark in front of a later line", "1 one\n\xEF\xBB\xBF" + QByteArray("2 two"), 2,
        "identifier of 32 bits");
    row("UTF-16", QByteArray("\xFF\xFE") + QByteArray("1\0 \0a\0", 6), 1, "not UTF-8");
    row("a zero", QByteArray("1 a\0b\n", 6), 1, "control character");
    row("a carriage return inside", "1 one\r2 two\n", 1, "control character");
    row("a carriage return at the end of the file", "1 one\r", 1, "control character");
    row("an escape character", "1 \x1B[1m", 1, "control character");
    row("a delete character", "1 \x7F", 1, "control character");
}

void tst_PlatformResources::stringTableWithAMistake()
{
    const Registrations registrations;
    QFETCH(QByteArray, table);
    QFETCH(QString, error);

    KxRegisterString(module, 1, L"before");
    const KxStringTableResult result = KxRegisterStringTable(module, table);
    QVERIFY(!result.isOk());
    QTEST(result.line, "line");
    QVERIFY2(result.error.contains(error), qPrintable(result.error));
    QCOMPARE(result.strings, 0);
    QCOMPARE(loaded(module, 1), std::wstring(L"before"));
    QCOMPARE(KxUnregisterStrings(module), 1);
}

void tst_PlatformResources::stringTableOfALargeFile()
{
    const Registrations registrations;
    QByteArray table;
    for (int i = 0; i < 20000; ++i)
        table += QByteArray::number(i) + " text " + QByteArray::number(i) + '\n';
    QCOMPARE(KxRegisterStringTable(module, table).strings, 20000);
    QCOMPARE(loaded(module, 19999), std::wstring(L"text 19999"));
    QCOMPARE(KxRegisterStringTable(module, table + "19999 again").line, 20001);
}

void tst_PlatformResources::stringTableKeepsWhatItDoesNotName()
{
    const Registrations registrations;
    KxRegisterStrings(module, {{1, L"one"}, {2, L"two"}});
    QVERIFY(KxRegisterStringTable(module, "2 zwei\n3 drei\n").isOk());
    QCOMPARE(loaded(module, 1), std::wstring(L"one"));
    QCOMPARE(loaded(module, 2), std::wstring(L"zwei"));
    QCOMPARE(loaded(module, 3), std::wstring(L"drei"));
}

void tst_PlatformResources::stringTableFromAFile()
{
    const Registrations registrations;
    QTemporaryDir directory;
    const QString name = directory.filePath(QStringLiteral(u"Texte ä.txt"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("1 one\n2 two\n") > 0);
    file.close();
    const KxStringTableResult result = KxLoadStringTable(nullptr, name);
    QVERIFY2(result.isOk(), qPrintable(result.error));
    QCOMPARE(result.strings, 2);
    QCOMPARE(loaded(nullptr, 2), std::wstring(L"two"));
}

void tst_PlatformResources::stringTableFromAQtResource()
{
    const Registrations registrations;
    QTemporaryDir directory;
    const auto write = [&directory](const QString &name, const QByteArray &contents) {
        QFile file(directory.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
    };
    QVERIFY(write(QStringLiteral("strings.txt"), "1 one\n2 two\n"));
    QVERIFY(write(QStringLiteral("all.qrc"),
                  "<RCC><qresource prefix=\"/kx\"><file>strings.txt</file></qresource></RCC>"));
    const QString resource = directory.filePath(QStringLiteral("all.rcc"));
    QCOMPARE(QProcess::execute(QLibraryInfo::location(QLibraryInfo::BinariesPath) + QStringLiteral("/rcc"),
                               {QStringLiteral("--binary"), QStringLiteral("-o"), resource,
                                directory.filePath(QStringLiteral("all.qrc"))}),
             0);
    QVERIFY(QResource::registerResource(resource));
    const auto unregister = qScopeGuard([&resource] { QResource::unregisterResource(resource); });

    const KxStringTableResult result = KxLoadStringTable(module, QStringLiteral(":/kx/strings.txt"));
    QVERIFY2(result.isOk(), qPrintable(result.error));
    QCOMPARE(loaded(module, 2), std::wstring(L"two"));
}

void tst_PlatformResources::stringTableThatCannotBeRead_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("nothing there") << "/nowhere/strings.txt";
    QTest::newRow("a directory") << "/";
    QTest::newRow("no such Qt resource") << ":/nowhere/strings.txt";
}

void tst_PlatformResources::stringTableThatCannotBeRead()
{
    const Registrations registrations;
    QFETCH(QString, name);
    const KxStringTableResult result = KxLoadStringTable(module, name);
    QVERIFY(!result.isOk());
    QCOMPARE(result.line, 0);
    QCOMPARE(result.strings, 0);
    QVERIFY(!result.error.isEmpty());
}

// ---- bitmaps --------------------------------------------------------------------------------------------

void tst_PlatformResources::loadImage_data()
{
    QTest::addColumn<QString>("registered"); // digits for a number
    QTest::addColumn<QString>("asked");      // digits for MAKEINTRESOURCE
    QTest::addColumn<bool>("isFound");

    const auto row = [](const char *title, const char16_t *registered, const char16_t *asked, bool isFound) {
        QTest::newRow(title) << QString::fromUtf16(registered) << QString::fromUtf16(asked) << isFound;
    };
    row("by number", u"12", u"12", true);
    row("by another number", u"12", u"13", false);
    row("by name", u"Logo", u"Logo", true);
    row("by name in another case", u"Logo", u"LOGO", true);
    row("by name in another case, beyond ASCII", u"Höhe", u"HÖHE", true);
    row("by another name", u"Logo", u"Log", false);
    row("the name # and the number is the number", u"12", u"#12", true);
    row("with zeros too", u"12", u"#0012", true);
    row("registered as # and the number", u"#12", u"12", true);
    row("# and no number is a name", u"#one", u"#ONE", true);
    row("# and no number is not another such name", u"#one", u"#two", false);
    row("the number 0", u"0", u"0", true);
    row("the greatest number", u"65535", u"65535", true);
}

void tst_PlatformResources::loadImage()
{
    const Registrations registrations;
    QFETCH(QString, registered);
    QFETCH(QString, asked);
    QFETCH(bool, isFound);

    bool isNumber = false;
    const UINT id = registered.toUInt(&isNumber);
    const QImage image = filled(3, 2, Qt::red);
    QVERIFY(isNumber ? KxRegisterBitmap(nullptr, id, image)
                     : KxRegisterNamedBitmap(nullptr, registered.toStdWString().c_str(), image));

    const UINT askedId = asked.toUInt(&isNumber);
    const std::wstring text = asked.toStdWString();
    const LPCWSTR name = isNumber ? MAKEINTRESOURCEW(askedId) : text.c_str();
    const HANDLE handle = LoadImageW(nullptr, name, IMAGE_BITMAP, 0, 0, 0);
    QCOMPARE(handle != nullptr, isFound);
    if (!isFound) {
        QCOMPARE(GetLastError(), DWORD(ERROR_RESOURCE_NAME_NOT_FOUND));
        return;
    }
    QCOMPARE(imageOf(handle).size(), QSize(3, 2));
    QCOMPARE(imageOf(handle).pixelColor(2, 1), QColor(Qt::red));
    QVERIFY(images()->deleteHandle(handle));
}

void tst_PlatformResources::loadImageOfDigitsWithoutASign()
{
    const Registrations registrations;
    QVERIFY(KxRegisterNamedBitmap(nullptr, L"12", filled(3, 2, Qt::red)));
    QVERIFY2(!LoadImageW(nullptr, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, 0), "a name is not the number");
    const HANDLE handle = LoadImageW(nullptr, L"12", IMAGE_BITMAP, 0, 0, 0);
    QVERIFY(handle);
    QVERIFY(images()->deleteHandle(handle));
}

void tst_PlatformResources::loadImageGivesANewBitmapEachTime()
{
    const Registrations registrations;
    KxRegisterBitmap(nullptr, 12, filled(3, 2, Qt::red));
    const HANDLE first = LoadImageW(nullptr, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, 0);
    const HANDLE second = LoadImageW(nullptr, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, 0);
    QVERIFY(first && second && first != second);
    images()->image(first)->fill(Qt::blue);
    QCOMPARE(imageOf(second).pixelColor(0, 0), QColor(Qt::red));
    QVERIFY(images()->deleteHandle(first));
    QCOMPARE(imageOf(second).pixelColor(0, 0), QColor(Qt::red));
    QVERIFY(images()->deleteHandle(second));
}

void tst_PlatformResources::loadImageLeavesTheRegisteredOneAlone()
{
    const Registrations registrations;
    KxRegisterBitmap(nullptr, 12, filled(3, 2, Qt::red));
    const HANDLE first = LoadImageW(nullptr, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, 0);
    images()->image(first)->fill(Qt::blue);
    KxRegisterBitmap(nullptr, 12, filled(5, 5, Qt::green));
    QCOMPARE(imageOf(first).size(), QSize(3, 2));
    const HANDLE second = LoadImageW(nullptr, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, 0);
    QCOMPARE(imageOf(second).pixelColor(0, 0), QColor(Qt::green));
    KxUnregisterBitmaps(nullptr);
    QCOMPARE(imageOf(second).size(), QSize(5, 5));
    QVERIFY(images()->deleteHandle(first) && images()->deleteHandle(second));
}

void tst_PlatformResources::loadImageKeepsTransparency()
{
    const Registrations registrations;
    KxRegisterBitmap(nullptr, 12, filled(1, 1, QColor(255, 0, 0, 51)));
    const HANDLE handle = LoadImageW(nullptr, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, 0);
    QCOMPARE(imageOf(handle).pixelColor(0, 0), QColor(255, 0, 0, 51));
    QVERIFY(images()->deleteHandle(handle));
}

void tst_PlatformResources::loadImageOfASize_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QSize>("size");

    QTest::newRow("its own size") << 0 << 0 << QSize(4, 2);
    QTest::newRow("both asked for") << 8 << 6 << QSize(8, 6);
    QTest::newRow("the width asked for") << 8 << 0 << QSize(8, 2);
    QTest::newRow("the height asked for") << 0 << 1 << QSize(4, 1);
}

void tst_PlatformResources::loadImageOfASize()
{
    const Registrations registrations;
    QFETCH(int, width);
    QFETCH(int, height);
    KxRegisterBitmap(nullptr, 12, filled(4, 2, Qt::red));
    const HANDLE handle = LoadImageW(nullptr, MAKEINTRESOURCEW(12), IMAGE_BITMAP, width, height, 0);
    QTEST(imageOf(handle).size(), "size");
    QCOMPARE(imageOf(handle).pixelColor(0, 0), QColor(Qt::red));
    QVERIFY(images()->deleteHandle(handle));
}

void tst_PlatformResources::loadImageFails_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<unsigned int>("error");

    QTest::newRow("an icon") << unsigned(IMAGE_ICON) << 0 << 0 << unsigned(ERROR_RESOURCE_TYPE_NOT_FOUND);
    QTest::newRow("a cursor") << unsigned(IMAGE_CURSOR) << 0 << 0 << unsigned(ERROR_RESOURCE_TYPE_NOT_FOUND);
    QTest::newRow("a negative width")
        << unsigned(IMAGE_BITMAP) << -1 << 0 << unsigned(ERROR_INVALID_PARAMETER);
    QTest::newRow("a negative height")
        << unsigned(IMAGE_BITMAP) << 0 << -1 << unsigned(ERROR_INVALID_PARAMETER);
}

void tst_PlatformResources::loadImageFails()
{
    const Registrations registrations;
    QFETCH(unsigned int, type);
    QFETCH(int, width);
    QFETCH(int, height);
    KxRegisterBitmap(nullptr, 12, filled(3, 2, Qt::red));
    QVERIFY(!LoadImageW(nullptr, MAKEINTRESOURCEW(12), type, width, height, 0));
    QTEST(GetLastError(), "error");
}

void tst_PlatformResources::loadImageFromAFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("format");

    const auto row = [](const char *title, const char16_t *name, const char *format) {
        QTest::newRow(title) << QString::fromUtf16(name) << QString::fromLatin1(format);
    };
    row("a BMP file", u"picture.bmp", "BMP");
    row("a PNG file", u"picture.png", "PNG");
    row("a PNG file that says BMP", u"picture.bmp", "PNG");
    row("a name without an ending", u"picture", "BMP");
    row("a name beyond ASCII", u"Bild ä.bmp", "BMP");
}

void tst_PlatformResources::loadImageFromAFile()
{
    const Registrations registrations;
    QFETCH(QString, name);
    QFETCH(QString, format);
    QTemporaryDir directory;
    const QString path = directory.filePath(name);
    QVERIFY(filled(3, 2, Qt::red).save(path, format.toLatin1().constData()));

    const std::wstring wideName = path.toStdWString();
    const HANDLE handle = LoadImageW(module, wideName.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE);
    QVERIFY(handle);
    QCOMPARE(imageOf(handle).size(), QSize(3, 2));
    QCOMPARE(imageOf(handle).pixelColor(2, 1), QColor(Qt::red));
    const HANDLE larger = LoadImageW(module, wideName.c_str(), IMAGE_BITMAP, 6, 6, LR_LOADFROMFILE);
    QCOMPARE(imageOf(larger).size(), QSize(6, 6));
    QVERIFY(images()->deleteHandle(handle) && images()->deleteHandle(larger));
}

void tst_PlatformResources::loadImageFromAFileFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("error");

    QTest::newRow("nothing there") << "missing.bmp" << unsigned(ERROR_FILE_NOT_FOUND);
    QTest::newRow("endings of the name are not tried") << "picture" << unsigned(ERROR_FILE_NOT_FOUND);
    QTest::newRow("no picture") << "text.bmp" << unsigned(ERROR_RESOURCE_DATA_NOT_FOUND);
    QTest::newRow("a directory") << "" << unsigned(ERROR_FILE_NOT_FOUND);
}

void tst_PlatformResources::loadImageFromAFileFails()
{
    const Registrations registrations;
    QFETCH(QString, name);
    QTemporaryDir directory;
    QVERIFY(filled(3, 2, Qt::red).save(directory.filePath(QStringLiteral("picture.bmp"))));
    QFile text(directory.filePath(QStringLiteral("text.bmp")));
    QVERIFY(text.open(QIODevice::WriteOnly) && text.write("BM, but no picture") > 0);
    text.close();
    const std::wstring path = (directory.path() + QLatin1Char('/') + name).toStdWString();
    QVERIFY(!LoadImageW(module, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE));
    QTEST(GetLastError(), "error");

    KxRegisterBitmap(module, 12, filled(3, 2, Qt::red));
    QVERIFY2(!LoadImageW(module, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE),
             "a number is no file");
}

void tst_PlatformResources::loadImageUsesTheServiceInPlace()
{
    const Registrations registrations;
    class Service : public KxImageService
    {
    public:
        HBITMAP createBitmap(int width, int height) override
        {
            asked = QSize(width, height);
            return KxImageService::createBitmap(width, height);
        }
        QSize asked;
    } service;

    KxRegisterBitmap(nullptr, 12, filled(3, 2, Qt::red));
    platformServices()->setImageService(&service);
    const auto restore = qScopeGuard([] { platformServices()->setImageService(nullptr); });
    const HANDLE handle = LoadImageW(nullptr, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, 0);
    QCOMPARE(service.asked, QSize(3, 2));
    QVERIFY(service.image(handle));
    QCOMPARE(service.image(handle)->pixelColor(0, 0), QColor(Qt::red));
}

void tst_PlatformResources::registerBitmapFails()
{
    const Registrations registrations;
    const QImage image = filled(3, 2, Qt::red);
    QVERIFY2(!KxRegisterBitmap(module, 12, QImage()), "the null image");
    QVERIFY2(!KxRegisterBitmap(module, 0x10000, image), "a number of 17 bits");
    QVERIFY2(!KxRegisterNamedBitmap(module, nullptr, image), "no name");
    QVERIFY2(!KxRegisterNamedBitmap(module, L"", image), "the empty name");
    QVERIFY2(!KxRegisterNamedBitmap(module, MAKEINTRESOURCEW(12), image), "a number for a name");
    QVERIFY2(!KxRegisterNamedBitmap(module, L"name", QImage()), "the null image by name");
    QCOMPARE(KxUnregisterBitmaps(module), 0);
}

void tst_PlatformResources::bitmapsBelongToTheirModule()
{
    const Registrations registrations;
    KxRegisterBitmap(nullptr, 12, filled(3, 2, Qt::red));
    QVERIFY(!LoadImageW(module, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, 0));
    KxRegisterBitmap(module, 12, filled(4, 4, Qt::blue));
    const HANDLE ofNull = LoadImageW(nullptr, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, 0);
    const HANDLE ofModule = LoadImageW(module, MAKEINTRESOURCEW(12), IMAGE_BITMAP, 0, 0, 0);
    QCOMPARE(imageOf(ofNull).width(), 3);
    QCOMPARE(imageOf(ofModule).width(), 4);
    QVERIFY(images()->deleteHandle(ofNull) && images()->deleteHandle(ofModule));
}

void tst_PlatformResources::unregisterBitmaps()
{
    const Registrations registrations;
    const QImage image = filled(3, 2, Qt::red);
    QVERIFY(!KxUnregisterBitmap(module, MAKEINTRESOURCEW(12)));
    KxRegisterBitmap(module, 12, image);
    KxRegisterBitmap(module, 13, image);
    KxRegisterNamedBitmap(module, L"Logo", image);
    QVERIFY(KxUnregisterBitmap(module, MAKEINTRESOURCEW(12)));
    QVERIFY(!KxUnregisterBitmap(module, MAKEINTRESOURCEW(12)));
    QVERIFY(KxUnregisterBitmap(module, L"LOGO"));
    QVERIFY(!LoadImageW(module, L"Logo", IMAGE_BITMAP, 0, 0, 0));
    QCOMPARE(KxUnregisterBitmaps(module), 1);
    QCOMPARE(KxUnregisterBitmaps(module), 0);
}

// ---- modules --------------------------------------------------------------------------------------------

void tst_PlatformResources::loadLibrary()
{
    const HMODULE library = LoadLibraryW(L"libm.so.6");
    QVERIFY(library);
    const FARPROC address = GetProcAddress(library, "cos");
    QVERIFY(address);
    QCOMPARE(reinterpret_cast<double (*)(double)>(reinterpret_cast<void *>(address))(0.0), 1.0);
    QVERIFY(FreeLibrary(library));
}

void tst_PlatformResources::loadLibraryFromAFile()
{
    // The plugin that decodes JPEG, or whichever comes first: an object that nothing else names.
    const QDir plugins(QLibraryInfo::location(QLibraryInfo::PluginsPath) + QStringLiteral("/imageformats"));
    const QStringList names = plugins.entryList({QStringLiteral("*.so")}, QDir::Files);
    QVERIFY(!names.isEmpty());
    QTemporaryDir directory;
    const QString copy = directory.filePath(QStringLiteral(u"Modul ä.so"));
    QVERIFY(QFile::copy(plugins.filePath(names.first()), copy));
    const HMODULE library = LoadLibraryW(copy.toStdWString().c_str());
    QVERIFY(library);
    QVERIFY(GetProcAddress(library, "qt_plugin_instance"));
    QVERIFY(FreeLibrary(library));
}

void tst_PlatformResources::loadLibraryFails_data()
{
    QTest::addColumn<std::wstring>("name");
    QTest::addColumn<unsigned int>("error");

    QTest::newRow("no such object") << std::wstring(L"libkxnowhere.so") << unsigned(ERROR_MOD_NOT_FOUND);
    QTest::newRow("no such file") << std::wstring(L"/nowhere/libm.so.6") << unsigned(ERROR_MOD_NOT_FOUND);
    QTest::newRow("no object") << std::wstring(L"/etc/passwd") << unsigned(ERROR_MOD_NOT_FOUND);
    QTest::newRow("no ending is added") << std::wstring(L"libm") << unsigned(ERROR_MOD_NOT_FOUND);
    QTest::newRow("the empty name") << std::wstring() << unsigned(ERROR_PATH_NOT_FOUND);
}

void tst_PlatformResources::loadLibraryFails()
{
    QFETCH(std::wstring, name);
    QVERIFY(!LoadLibraryW(name.c_str()));
    QTEST(GetLastError(), "error");
    QVERIFY(!LoadLibraryW(nullptr));
}

void tst_PlatformResources::getProcAddressFails()
{
    const HMODULE library = LoadLibraryW(L"libm.so.6");
    QVERIFY(!GetProcAddress(library, "kx_no_such_function"));
    QCOMPARE(GetLastError(), DWORD(ERROR_PROC_NOT_FOUND));
    QVERIFY2(!GetProcAddress(library, nullptr), "no name");
    QVERIFY2(!GetProcAddress(library, KxHandleFromValue<LPCSTR>(12)), "an ordinal");
    QVERIFY(FreeLibrary(library));
    for (const HMODULE none : {HMODULE(nullptr), library, module}) {
        SetLastError(0);
        QVERIFY(!GetProcAddress(none, "cos"));
        QCOMPARE(GetLastError(), DWORD(ERROR_INVALID_HANDLE));
    }
}

void tst_PlatformResources::freeLibraryCountsUses()
{
    const HMODULE library = LoadLibraryW(L"libm.so.6");
    QCOMPARE(LoadLibraryW(L"libm.so.6"), library);
    QVERIFY(FreeLibrary(library));
    QVERIFY(GetProcAddress(library, "cos"));
    QVERIFY(FreeLibrary(library));
    QVERIFY(!FreeLibrary(library));
    QCOMPARE(GetLastError(), DWORD(ERROR_INVALID_HANDLE));
}

void tst_PlatformResources::freeLibraryOfWhatIsNoModule()
{
    QVERIFY(!FreeLibrary(nullptr));
    QVERIFY(!FreeLibrary(module));
    int somethingElse = 0;
    QVERIFY(!FreeLibrary(reinterpret_cast<HMODULE>(&somethingElse)));
}

void tst_PlatformResources::freeLibraryTakesTheResourcesAlong()
{
    const Registrations registrations;
    const HMODULE library = LoadLibraryW(L"libm.so.6");
    QCOMPARE(LoadLibraryW(L"libm.so.6"), library);
    KxRegisterString(library, 7, L"seven");
    KxRegisterBitmap(library, 7, filled(3, 2, Qt::red));
    QVERIFY(FreeLibrary(library));
    QCOMPARE(loaded(library, 7), std::wstring(L"seven"));
    QVERIFY(FreeLibrary(library));
    QCOMPARE(loaded(library, 7), std::wstring());
    QVERIFY(!LoadImageW(library, MAKEINTRESOURCEW(7), IMAGE_BITMAP, 0, 0, 0));
}

KX_TEST_MAIN(tst_PlatformResources)

#include "tst_platform_resources.moc"
