// SPDX-License-Identifier: MIT
// CStdioFile. The suite runs it in a UTF-8 locale and in the C locale.

#include "KxFileSandbox.h"
#include "KxTestCase.h"

#include <afx.h>

#include <QtCore/QTextCodec>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <langinfo.h>

using TextFileCall = std::function<void(CStdioFile &)>;
Q_DECLARE_METATYPE(TextFileCall)

namespace {

const QString nextName = QStringLiteral("next.txt");

const QString noDevice = QStringLiteral("^QTextStream: No device");
/// Of the text or of the file under it.
const QString noOpenDevice =
    QStringLiteral("^(QTextStream: No device|QIODevice::(read|write) \\(QFile, \".*\"\\): device not open)");
const QString noName = QStringLiteral("^QFSFileEngine::open: No file name specified");

bool isUnicodeLocale()
{
    return QTextCodec::codecForLocale()->fromUnicode(QStringLiteral("\u00e4")) == QByteArray("\xC3\xA4");
}

QByteArray inLocale(const std::wstring &text)
{
    return QTextCodec::codecForLocale()->fromUnicode(QString::fromStdWString(text));
}

/// Another codec is the locale's while it lives.
class LocaleCodec
{
public:
    explicit LocaleCodec(const QByteArray &name)
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(name));
    }
    ~LocaleCodec() { QTextCodec::setCodecForLocale(m_before); }
    LocaleCodec(const LocaleCodec &) = delete;
    LocaleCodec &operator=(const LocaleCodec &) = delete;

private:
    QTextCodec *const m_before = QTextCodec::codecForLocale();
};

QString fromLocale(const QByteArray &bytes)
{
    return QTextCodec::codecForLocale()->toUnicode(bytes);
}

/// A text file of these bytes, open to be read.
class TextFile : public CStdioFile
{
public:
    explicit TextFile(const QByteArray &contents)
    {
        if (!write(asciiName, contents) || !Open(L"file.txt", CFile::modeRead))
            QTest::qFail("the file cannot be made", __FILE__, __LINE__);
    }

    /// The next line through the form that takes a string, every character of it.
    QString line()
    {
        CString text(L"what was there before");
        if (!ReadString(text))
            return QStringLiteral("(false)");
        return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
    }
    /// The next line through the form that takes a buffer, up to its NUL.
    QString lineInBuffer(unsigned int max = 100, int room = 100)
    {
        std::vector<wchar_t> buffer(static_cast<std::size_t>(room), L'?');
        if (ReadString(buffer.data(), max) != buffer.data())
            return QStringLiteral("(another address)");
        return QString::fromWCharArray(buffer.data());
    }
};

bool opens(CStdioFile &file, const wchar_t *name, unsigned int flags)
{
    return file.Open(name, flags) && file.m_hFile != CFile::hFileNull;
}

} // namespace

class tst_TextFiles : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();

    void construction();
    void openedByTheConstructor();
    void openAfterTheConstructorOpened();
    void open_data();
    void open();
    void openWithoutName();
    void errorIsNotTouched();

    void lines_data();
    void lines();
    void linesInATextModeFile();
    void linesOfAMegabyte_data();
    void linesOfAMegabyte();
    void embeddedNul();
    void maxIsNotConsulted_data();
    void maxIsNotConsulted();
    void bufferIsEndedWithNul();
    void endOfFile();
    void bothFormsTakeTurns();
    void readsFromTheStartAgain();

    void writeString();
    void writeStringAddsNoLineEnd();
    void writeNull();
    void writesInTheLocale_data();
    void writesInTheLocale();
    void readsInTheLocale_data();
    void readsInTheLocale();
    void otherCodecs_data();
    void otherCodecs();
    void readsBackWhatWasWritten();
    void writesMuch();
    void reachesTheFile_data();
    void reachesTheFile();
    void openWhileTextIsPending();
    void failedOpenWhileTextIsPending();

    void notOpen_data();
    void notOpen();
    void lostTextDoesNotWait_data();
    void lostTextDoesNotWait();
    void wrongDirection();
    void fullDisk_data();
    void fullDisk();
    void bytesUnderneath();
};

/// The locale is the one that the environment asks for. What Qt makes of it is Qt's: built with ICU it takes
/// the C locale for UTF-8, otherwise for ASCII.
void tst_TextFiles::initTestCase()
{
    const QByteArray asked = qgetenv("LC_ALL");
    QVERIFY2(asked == "C" || asked.endsWith("UTF-8"), "run with LC_ALL=C and with LC_ALL=C.UTF-8");
    QCOMPARE(qstrcmp(::nl_langinfo(CODESET), "UTF-8") == 0, asked != "C");
    QVERIFY(isUnicodeLocale() || asked == "C");
}

// ---- opening --------------------------------------------------------------------------------------------

void tst_TextFiles::construction()
{
    const CStdioFile file;
    QVERIFY(file.m_hFile == CFile::hFileNull);
    const CStdioFile missing(L"missing-file.txt", CFile::modeRead);
    QVERIFY(missing.m_hFile == CFile::hFileNull);
}

/// The bytes are there, the text is not: nothing is attached to them.
void tst_TextFiles::openedByTheConstructor()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "12345\n67"));
    CStdioFile file(L"file.txt", CFile::modeReadWrite);
    QVERIFY(file.m_hFile != CFile::hFileNull);
    QCOMPARE(file.GetLength(), ULONGLONG(8));

    CString line(L"before");
    expectWarning(noDevice);
    QVERIFY(file.ReadString(line));
    QVERIFY(line.IsEmpty());
    wchar_t buffer[20] = L"before";
    expectWarning(noDevice);
    QVERIFY(file.ReadString(buffer, 20) == buffer);
    QVERIFY(buffer[0] == 0);
    expectWarning(noDevice);
    file.WriteString(L"text");
    file.Flush();

    char bytes[3] = {};
    QCOMPARE(file.Read(bytes, 2), 2u);
    QCOMPARE(QByteArray(bytes), QByteArray("12"));
    file.Write("ab", 2);
    file.Close();
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QCOMPARE(contentsOf(asciiName), QByteArray("12ab5\n67"));
}

void tst_TextFiles::openAfterTheConstructorOpened()
{
    const Sandbox sandbox;
    CStdioFile file(L"other.txt", CFile::modeWrite);
    expectWarning(noDevice);
    file.WriteString(L"lost");
    QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
    file.WriteString(L"text");
    file.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("text"));
    QCOMPARE(contentsOf(QStringLiteral("other.txt")), QByteArray());
}

void tst_TextFiles::open_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<bool>("opens");

    QTest::newRow("an existing file") << asciiName << 0u << true;
    QTest::newRow("a new file") << "new" << 1u << true;
    QTest::newRow("a new file to read and write") << "new" << 2u << true;
    QTest::newRow("a name with spaces") << " a  name " << 1u << true;
    QTest::newRow("a missing file") << "missing" << 0u << false;
    QTest::newRow("a directory") << "." << 0u << false;
}

void tst_TextFiles::open()
{
    const Sandbox sandbox;
    QFETCH(QString, name);
    QFETCH(unsigned int, flags);
    QFETCH(bool, opens);
    QVERIFY(write(asciiName, "12345"));
    CStdioFile file;
    QCOMPARE(file.Open(wide(name).c_str(), flags), opens);
    QCOMPARE(file.m_hFile != CFile::hFileNull, opens);
    CFile &base = file;
    QCOMPARE(base.Open(wide(name).c_str(), flags), opens);
}

void tst_TextFiles::openWithoutName()
{
    CStdioFile file;
    expectWarning(noName);
    QVERIFY(!file.Open(nullptr, CFile::modeRead));
    expectWarning(noName);
    QVERIFY(!file.Open(L"", CFile::modeWrite));
    QVERIFY(file.m_hFile == CFile::hFileNull);
}

void tst_TextFiles::errorIsNotTouched()
{
    const Sandbox sandbox;
    unsigned char bytes[256];
    std::fill(std::begin(bytes), std::end(bytes), static_cast<unsigned char>(0x5A));
    auto *error = reinterpret_cast<CFileException *>(bytes);
    CStdioFile file;
    QVERIFY(!file.Open(L"missing", CFile::modeRead, error));
    QVERIFY(file.Open(L"file.txt", CFile::modeWrite, error));
    QVERIFY(std::all_of(std::begin(bytes), std::end(bytes), [](unsigned char byte) { return byte == 0x5A; }));
}

// ---- reading --------------------------------------------------------------------------------------------

void tst_TextFiles::lines_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("LF") << QByteArray("one\ntwo\n") << QStringList({"one", "two", ""});
    QTest::newRow("CR-LF") << QByteArray("one\r\ntwo\r\n") << QStringList({"one", "two", ""});
    QTest::newRow("both") << QByteArray("one\r\ntwo\nthree\r\n") << QStringList({"one", "two", "three", ""});
    QTest::newRow("no end on the last line") << QByteArray("one\ntwo") << QStringList({"one", "two", ""});
    QTest::newRow("one line without an end") << QByteArray("one") << QStringList({"one", ""});
    QTest::newRow("empty lines") << QByteArray("\n\r\none\n\ntwo")
                                 << QStringList({"", "", "one", "", "two", ""});
    QTest::newRow("blanks stay") << QByteArray("  one \t\n two ") << QStringList({"  one \t", " two ", ""});
    QTest::newRow("an empty file") << QByteArray() << QStringList({"", ""});
    QTest::newRow("only a line end") << QByteArray("\n") << QStringList({"", ""});
}

void tst_TextFiles::lines()
{
    const Sandbox sandbox;
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, expected);
    {
        TextFile file(contents);
        for (const QString &line : qAsConst(expected))
            QCOMPARE(file.line(), line);
    }
    TextFile file(contents);
    for (const QString &line : qAsConst(expected))
        QCOMPARE(file.lineInBuffer(), line);
}

void tst_TextFiles::linesInATextModeFile()
{
    const Sandbox sandbox;
    QVERIFY(write(asciiName, "one\r\n\r\ntwo\nthree"));
    CStdioFile file;
    QVERIFY(opens(file, L"file.txt", CFile::modeRead | CFile::typeText));
    for (const wchar_t *expected : {L"one", L"", L"two", L"three", L""}) {
        CString line(L"before");
        QVERIFY(file.ReadString(line));
        QCOMPARE(QString::fromStdWString(line), QString::fromWCharArray(expected));
    }
}

void tst_TextFiles::linesOfAMegabyte_data()
{
    QTest::addColumn<QByteArray>("end");

    QTest::newRow("LF") << QByteArray("\n");
    QTest::newRow("CR-LF") << QByteArray("\r\n");
}

void tst_TextFiles::linesOfAMegabyte()
{
    const Sandbox sandbox;
    QFETCH(QByteArray, end);
    constexpr int megabyte = 1024 * 1024;
    QByteArray first;
    for (int i = 0; i < megabyte; ++i)
        first.append(static_cast<char>('a' + i % 23));
    const QByteArray second(megabyte, 'z');
    const QByteArray contents = first + end + second + end + "short";
    {
        TextFile file(contents);
        QVERIFY(file.line() == QString::fromLatin1(first));
        QVERIFY(file.line() == QString::fromLatin1(second));
        QCOMPARE(file.line(), QStringLiteral("short"));
    }
    TextFile file(contents);
    QVERIFY(file.lineInBuffer(megabyte + 1, megabyte + 1) == QString::fromLatin1(first));
    QVERIFY(file.lineInBuffer(megabyte + 1, megabyte + 1) == QString::fromLatin1(second));
    QCOMPARE(file.lineInBuffer(), QStringLiteral("short"));
}

void tst_TextFiles::embeddedNul()
{
    const Sandbox sandbox;
    const QByteArray contents("one\0two\nthree\n", 14);
    {
        TextFile file(contents);
        QCOMPARE(file.line(), QString::fromLatin1("one\0two", 7));
        QCOMPARE(file.line(), QStringLiteral("three"));
    }
    TextFile file(contents);
    wchar_t buffer[20] = {};
    QVERIFY(file.ReadString(buffer, 20) == buffer);
    QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("one"));
    QCOMPARE(file.lineInBuffer(), QStringLiteral("three"));
}

void tst_TextFiles::maxIsNotConsulted_data()
{
    QTest::addColumn<unsigned int>("max");

    QTest::newRow("0") << 0u;
    QTest::newRow("1") << 1u;
    QTest::newRow("3") << 3u;
    QTest::newRow("as long as the line") << 10u;
    QTest::newRow("0xFFFFFFFF") << 0xFFFFFFFFu;
}

void tst_TextFiles::maxIsNotConsulted()
{
    const Sandbox sandbox;
    QFETCH(unsigned int, max);
    TextFile file("0123456789\nnext");
    QCOMPARE(file.lineInBuffer(max), QStringLiteral("0123456789"));
    QCOMPARE(file.lineInBuffer(max), QStringLiteral("next"));
    QCOMPARE(file.lineInBuffer(max), QString());
}

void tst_TextFiles::bufferIsEndedWithNul()
{
    const Sandbox sandbox;
    TextFile file("abc\nde\n");
    wchar_t buffer[8];
    std::fill(std::begin(buffer), std::end(buffer), L'?');
    QVERIFY(file.ReadString(buffer, 8) == buffer);
    QVERIFY(std::wstring(buffer, 8) == std::wstring(L"abc\0????", 8));
    QVERIFY(file.ReadString(buffer, 8) == buffer);
    QVERIFY(std::wstring(buffer, 8) == std::wstring(L"de\0\0????", 8));
    QVERIFY(file.ReadString(buffer, 8) == buffer);
    QVERIFY2(buffer[0] == 0, "at the end of the file");
    QVERIFY(std::wstring(buffer + 4, 4) == L"????");
}

void tst_TextFiles::endOfFile()
{
    const Sandbox sandbox;
    TextFile file("last\n");
    QCOMPARE(file.line(), QStringLiteral("last"));
    for (int i = 0; i < 3; ++i) {
        CString line(L"before");
        QVERIFY2(file.ReadString(line), "true at the end too");
        QVERIFY(line.IsEmpty());
        wchar_t buffer[10] = L"before";
        QVERIFY2(file.ReadString(buffer, 10) == buffer, "the buffer at the end too");
        QVERIFY(buffer[0] == 0);
    }
}

void tst_TextFiles::bothFormsTakeTurns()
{
    const Sandbox sandbox;
    TextFile file("one\ntwo\nthree\nfour");
    QCOMPARE(file.line(), QStringLiteral("one"));
    QCOMPARE(file.lineInBuffer(), QStringLiteral("two"));
    QCOMPARE(file.line(), QStringLiteral("three"));
    QCOMPARE(file.lineInBuffer(), QStringLiteral("four"));
}

void tst_TextFiles::readsFromTheStartAgain()
{
    const Sandbox sandbox;
    QVERIFY(write(QStringLiteral("other.txt"), "another\nfile\n"));
    TextFile file("one\ntwo\nthree\n");
    QCOMPARE(file.line(), QStringLiteral("one"));
    file.Close();
    QVERIFY(opens(file, L"file.txt", CFile::modeRead));
    QCOMPARE(file.line(), QStringLiteral("one"));
    QVERIFY2(opens(file, L"other.txt", CFile::modeRead), "without Close()");
    QCOMPARE(file.line(), QStringLiteral("another"));
    QCOMPARE(file.line(), QStringLiteral("file"));
    QCOMPARE(file.line(), QString());
    QVERIFY2(opens(file, L"file.txt", CFile::modeRead), "after the end");
    QCOMPARE(file.line(), QStringLiteral("one"));
}

// ---- writing --------------------------------------------------------------------------------------------

void tst_TextFiles::writeString()
{
    const Sandbox sandbox;
    CStdioFile file;
    QVERIFY(opens(file, L"file.txt", CFile::modeCreate | CFile::modeWrite));
    file.WriteString(L"one\n");
    file.WriteString(CString(L" two \r\n"));
    file.WriteString(L"three");
    file.Close();
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QCOMPARE(contentsOf(asciiName), QByteArray("one\n two \r\nthree"));
    QVERIFY2(opens(file, L"file.txt", CFile::modeWrite), "emptied");
    file.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray());
}

void tst_TextFiles::writeStringAddsNoLineEnd()
{
    const Sandbox sandbox;
    CStdioFile file;
    QVERIFY(opens(file, L"file.txt", CFile::modeWrite | CFile::typeText));
    file.WriteString(L"a");
    file.WriteString(L"");
    file.WriteString(L"b");
    file.WriteString(L"\n");
    file.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("ab\n"));
}

void tst_TextFiles::writeNull()
{
    const Sandbox sandbox;
    CStdioFile file;
    QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
    file.WriteString(L"a");
    file.WriteString(nullptr);
    file.WriteString(L"b");
    file.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("ab"));
}

void tst_TextFiles::writesInTheLocale_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("unicode"); // the bytes in UTF-8

    QTest::newRow("ASCII") << "text %s \\" << QByteArray("text %s \\");
    QTest::newRow("Latin 1") << QStringLiteral("\u00e4\u00d6") << QByteArray("\xC3\xA4\xC3\x96");
    QTest::newRow("euro") << QStringLiteral("5 \u20ac") << QByteArray("5 \xE2\x82\xAC");
    QTest::newRow("Japanese") << QStringLiteral("\u65e5\u672c") << QByteArray("\xE6\x97\xA5\xE6\x9C\xAC");
    QTest::newRow("outside the basic plane")
        << QStringLiteral("a\U0001d11eb") << QByteArray("a\xF0\x9D\x84\x9E" "b");
    QTest::newRow("the last character") << QStringLiteral("\U0010fffd") << QByteArray("\xF4\x8F\xBF\xBD");
}

void tst_TextFiles::writesInTheLocale()
{
    const Sandbox sandbox;
    QFETCH(QString, text);
    QFETCH(QByteArray, unicode);
    const std::wstring wideText = wide(text);
    CStdioFile file;
    QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
    file.WriteString(wideText.c_str());
    file.Close();
    QCOMPARE(contentsOf(asciiName), isUnicodeLocale() ? unicode : inLocale(wideText));
    const bool isAscii = unicode == text.toLatin1();
    QCOMPARE(contentsOf(asciiName) == unicode, isAscii || isUnicodeLocale());
}

void tst_TextFiles::readsInTheLocale_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("unicode"); // the text in UTF-8

    QTest::newRow("ASCII") << QByteArray("text") << "text";
    QTest::newRow("Latin 1") << QByteArray("\xC3\xA4\xC3\x96") << QStringLiteral("\u00e4\u00d6");
    QTest::newRow("Japanese") << QByteArray("\xE6\x97\xA5") << QStringLiteral("\u65e5");
    QTest::newRow("outside the basic plane")
        << QByteArray("a\xF0\x9D\x84\x9E") << QStringLiteral("a\U0001d11e");
    QTest::newRow("not UTF-8") << QByteArray("a\xFF" "b") << QStringLiteral("a\ufffdb");
}

void tst_TextFiles::readsInTheLocale()
{
    const Sandbox sandbox;
    QFETCH(QByteArray, line);
    QFETCH(QString, unicode);
    const QString expected = isUnicodeLocale() ? unicode : fromLocale(line);
    {
        TextFile file(line + "\nnext\n");
        QCOMPARE(file.line(), expected);
        QCOMPARE(file.line(), QStringLiteral("next"));
    }
    TextFile file(line + "\nnext\n");
    QCOMPARE(file.lineInBuffer(), expected);
    QCOMPARE(file.lineInBuffer(), QStringLiteral("next"));
    file.Close();

    QVERIFY(opens(file, L"file.txt", CFile::modeRead));
    CString text;
    QVERIFY(file.ReadString(text));
    QCOMPARE(text.GetLength(), expected.toUcs4().size());
}

void tst_TextFiles::otherCodecs_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("UTF-8") << QByteArray("UTF-8") << QStringLiteral("\u00e4\U0001d11e")
                           << QByteArray("\xC3\xA4\xF0\x9D\x84\x9E");
    QTest::newRow("ISO 8859-1") << QByteArray("ISO-8859-1") << QStringLiteral("\u00e4b")
                                << QByteArray("\xE4" "b");
    QTest::newRow("ISO 8859-15") << QByteArray("ISO-8859-15") << QStringLiteral("5 \u20ac")
                                 << QByteArray("5 \xA4");
    QTest::newRow("Shift-JIS") << QByteArray("Shift_JIS") << QStringLiteral("\u65e5a")
                               << QByteArray("\x93\xFA" "a");
}

/// The locale's codec encodes, whatever it is.
void tst_TextFiles::otherCodecs()
{
    const Sandbox sandbox;
    QFETCH(QByteArray, codec);
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    const LocaleCodec locale(codec);
    CStdioFile file;
    QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
    file.WriteString(wide(text).c_str());
    file.Close();
    QCOMPARE(contentsOf(asciiName), bytes);
    TextFile reader(bytes + "\n");
    QCOMPARE(reader.line(), text);
    QVERIFY(opens(reader, L"file.txt", CFile::modeRead));
    QCOMPARE(reader.lineInBuffer(), text);
}

void tst_TextFiles::readsBackWhatWasWritten()
{
    const Sandbox sandbox;
    const std::wstring written = wide(QStringLiteral(" a \u00e4\u20ac\u65e5\U0001d11e "));
    CStdioFile file;
    QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
    file.WriteString((written + L"\nnext\n").c_str());
    file.Close();
    QVERIFY(opens(file, L"file.txt", CFile::modeRead));
    CString line;
    QVERIFY(file.ReadString(line));
    QCOMPARE(QString::fromStdWString(line), fromLocale(inLocale(written)));
    QVERIFY(file.ReadString(line));
    QVERIFY(line == L"next");
}

void tst_TextFiles::writesMuch()
{
    const Sandbox sandbox;
    const std::wstring line = wide(QStringLiteral("0123456789 \u00e4\u20ac\U0001d11e\n"));
    const QByteArray bytes = inLocale(line);
    constexpr int count = 50000;
    CStdioFile file;
    QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
    for (int i = 0; i < count; ++i)
        file.WriteString(line.c_str());
    file.Close();
    QVERIFY(contentsOf(asciiName) == bytes.repeated(count));

    std::wstring megabyte(1024 * 1024, L'x');
    QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
    file.WriteString(megabyte.c_str());
    file.Close();
    QVERIFY(contentsOf(asciiName) == QByteArray(1024 * 1024, 'x'));
}

void tst_TextFiles::reachesTheFile_data()
{
    QTest::addColumn<bool>("isThroughTheBase");

    QTest::newRow("of its own class") << false;
    QTest::newRow("through CFile *") << true;
}

/// What is written waits in buffers until Flush(), Close() or destruction.
void tst_TextFiles::reachesTheFile()
{
    const Sandbox sandbox;
    QFETCH(bool, isThroughTheBase);
    auto owner = std::make_unique<CStdioFile>();
    auto *file = owner.get();
    CFile *base = file;
    QVERIFY(opens(*file, L"file.txt", CFile::modeWrite));
    file->WriteString(L"one");
    QCOMPARE(contentsOf(asciiName), QByteArray());
    if (isThroughTheBase)
        base->Flush();
    else
        file->Flush();
    QCOMPARE(contentsOf(asciiName), QByteArray("one"));
    file->WriteString(L"two");
    QVERIFY2(contentsOf(asciiName) == QByteArray("one"), "it waits again");
    if (isThroughTheBase)
        base->Close();
    else
        file->Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("onetwo"));

    QVERIFY(opens(*file, L"other.txt", CFile::modeWrite));
    file->WriteString(L"three");
    if (isThroughTheBase)
        const std::unique_ptr<CFile> last = std::move(owner);
    else
        owner.reset();
    QVERIFY2(contentsOf(QStringLiteral("other.txt")) == QByteArray("three"), "destroyed without Close()");
}

void tst_TextFiles::openWhileTextIsPending()
{
    const Sandbox sandbox;
    CStdioFile file;
    QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
    file.WriteString(L"one");
    QVERIFY(opens(file, L"other.txt", CFile::modeWrite));
    file.WriteString(L"two");
    file.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("one"));
    QCOMPARE(contentsOf(QStringLiteral("other.txt")), QByteArray("two"));
}

void tst_TextFiles::failedOpenWhileTextIsPending()
{
    const Sandbox sandbox;
    CStdioFile file;
    QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
    file.WriteString(L"one");
    QVERIFY(!file.Open(L"missing", CFile::modeRead));
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QCOMPARE(contentsOf(asciiName), QByteArray("one"));
    QVERIFY(opens(file, L"other.txt", CFile::modeWrite));
    file.WriteString(L"two");
    file.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("one"));
    QCOMPARE(contentsOf(QStringLiteral("other.txt")), QByteArray("two"));
}

// ---- where no text can be read or written ---------------------------------------------------------------

void tst_TextFiles::notOpen_data()
{
    QTest::addColumn<TextFileCall>("bring"); // a new object into the state

    QTest::newRow("never opened") << TextFileCall([](CStdioFile &) {});
    QTest::newRow("closed after writing") << TextFileCall([](CStdioFile &file) {
        QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
        file.WriteString(L"12345");
        file.Close();
    });
    QTest::newRow("closed after reading a part") << TextFileCall([](CStdioFile &file) {
        QVERIFY(write(asciiName, "12345\n67890\n") && opens(file, L"file.txt", CFile::modeRead));
        CString line;
        QVERIFY(file.ReadString(line));
        QVERIFY(line == L"12345");
        file.Close();
    });
    QTest::newRow("open failed") << TextFileCall([](CStdioFile &file) {
        QVERIFY(!file.Open(L"missing", CFile::modeRead));
    });
    QTest::newRow("open failed while open") << TextFileCall([](CStdioFile &file) {
        QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
        QVERIFY(!file.Open(L"missing", CFile::modeRead));
    });
}

void tst_TextFiles::notOpen()
{
    const Sandbox sandbox;
    QFETCH(TextFileCall, bring);
    CStdioFile file;
    bring(file);
    const QByteArray before = contentsOf(asciiName);

    CString line(L"before");
    expectWarning(noOpenDevice);
    QVERIFY(file.ReadString(line));
    QVERIFY(line.IsEmpty());
    wchar_t buffer[20] = L"before";
    expectWarning(noOpenDevice);
    QVERIFY(file.ReadString(buffer, 20) == buffer);
    QVERIFY(buffer[0] == 0);
    expectWarning(noOpenDevice);
    file.WriteString(L"lost");
    file.Flush();
    file.Close();
    QVERIFY(file.m_hFile == CFile::hFileNull);
    QCOMPARE(contentsOf(asciiName), before);
}

void tst_TextFiles::lostTextDoesNotWait_data()
{
    notOpen_data();
}

/// The next file that is opened gets nothing of what was written without a file.
void tst_TextFiles::lostTextDoesNotWait()
{
    const Sandbox sandbox;
    QFETCH(TextFileCall, bring);
    for (const bool isFlushed : {true, false}) {
        CStdioFile file;
        bring(file);
        expectWarning(noOpenDevice);
        file.WriteString(L"lost");
        if (isFlushed)
            file.Flush();
        QVERIFY(opens(file, L"next.txt", CFile::modeWrite));
        file.WriteString(L"text");
        file.Close();
        QCOMPARE(contentsOf(nextName), QByteArray("text"));
    }
}

void tst_TextFiles::wrongDirection()
{
    const Sandbox sandbox;
    TextFile reader("one\ntwo\n");
    reader.WriteString(L"lost");
    expectWarning(QStringLiteral("^QIODevice::write \\(QFile, \"file.txt\"\\): ReadOnly device"));
    reader.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("one\ntwo\n"));
    QVERIFY(opens(reader, L"next.txt", CFile::modeWrite));
    reader.WriteString(L"text");
    reader.Close();
    QVERIFY2(contentsOf(nextName) == QByteArray("text"), "and nothing of what was lost");

    CStdioFile writer;
    QVERIFY(opens(writer, L"file.txt", CFile::modeWrite));
    CString line(L"before");
    expectWarning(QStringLiteral("^QIODevice::read \\(QFile, \"file.txt\"\\): WriteOnly device"));
    QVERIFY(writer.ReadString(line));
    QVERIFY(line.IsEmpty());
    writer.WriteString(L"text");
    writer.Close();
    QCOMPARE(contentsOf(asciiName), QByteArray("text"));
}

void tst_TextFiles::fullDisk_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("count");

    QTest::newRow("nothing fits") << 0 << 5;
    QTest::newRow("a part fits") << 3 << 5;
    QTest::newRow("a part of more than the buffers hold fits") << 50000 << 200000;
}

void tst_TextFiles::fullDisk()
{
    const Sandbox sandbox;
    QFETCH(int, limit);
    QFETCH(int, count);
    const std::wstring text(static_cast<std::size_t>(count), L'x');
    for (const bool isFlushed : {false, true}) {
        CStdioFile file;
        QVERIFY(opens(file, L"file.txt", CFile::modeWrite));
        {
            const FileSizeLimit full(static_cast<rlim_t>(limit));
            file.WriteString(text.c_str());
            if (isFlushed)
                file.Flush();
            file.Close();
        }
        QVERIFY(file.m_hFile == CFile::hFileNull);
        const QByteArray found = contentsOf(asciiName);
        QVERIFY(found.size() <= limit);
        QCOMPARE(found, QByteArray(found.size(), 'x'));

        QVERIFY(opens(file, L"next.txt", CFile::modeWrite));
        file.WriteString(L"text");
        file.Close();
        QVERIFY2(contentsOf(nextName) == QByteArray("text"), "and nothing of what was lost");
    }
}

void tst_TextFiles::bytesUnderneath()
{
    const Sandbox sandbox;
    TextFile file("12345\n67");
    QCOMPARE(file.GetLength(), ULONGLONG(8));
    QCOMPARE(file.Seek(6, CFile::end), ULONGLONG(6));
    char bytes[4] = {};
    QCOMPARE(file.Read(bytes, 3), 2u);
    QCOMPARE(QByteArray(bytes), QByteArray("67"));
    CFileStatus status = {};
    QVERIFY(file.GetStatus(status));
    QCOMPARE(status.m_size, ULONGLONG(8));
}

KX_TEST_MAIN(tst_TextFiles)

#include "tst_text_files.moc"
