// SPDX-License-Identifier: MIT
#include "KxTestCase.h"

#include "KxPathModel.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <sys/stat.h>

#include <climits>
#include <clocale>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int slowness = 20; // of unwinding the stack at each allocation
#else
constexpr int slowness = 1;
#endif
constexpr int scarcity = slowness == 1 ? 1 : 10 * slowness; // what has to come up is counted in the full run
constexpr int pathsInARow = 100000 / slowness;
constexpr int displayedPathsInARow = 5000 / slowness;

/// Random numbers and texts, the same ones for the same seed on every system.
class Dice
{
public:
    explicit Dice(unsigned int seed) : m_engine(seed) {}

    /// From 0 to `sides - 1`.
    std::size_t operator()(std::size_t sides) { return m_engine() % sides; }

    const std::wstring &oneOf(const std::vector<std::wstring> &texts) { return texts[(*this)(texts.size())]; }

    /// A path as a user might type it, or would rather not.
    std::wstring path()
    {
        static const std::vector<std::wstring> blanks{L"", L"", L"", L"", L"", L" ", L"  ", L"\t", L" \n"};
        static const std::vector<std::wstring> quotes{L"", L"", L"", L"", L"", L"\"", L"\"", L"\"\""};
        static const std::vector<std::wstring> starts{
            L"", L"", L"", L"", L"", L"/", L"/", L"\\", L"\\", L"C:", L"c:", L"z:/", L"D:\\", L"\u00E9:",
            L"\u00DF:/", L"\U00010428:\\", L"1:", L":", L"\u20AC:/", L"//", L"\\\\", L"/\\", L"./", L"..\\",
            L"/tmp", L"/tmp/"};
        const std::wstring opening = oneOf(blanks) + oneOf(quotes) + oneOf(blanks);
        std::wstring text = oneOf(starts);
        const std::size_t most = (*this)(100) == 0 ? 1200 : (*this)(10) == 0 ? 60 : 16;
        for (std::size_t count = (*this)(most > 60 ? 400 : most); count > 0; --count)
            text += piece(most > 60);
        text.resize(std::min<std::size_t>(text.size(), 1200));
        return opening + text + oneOf(blanks) + oneOf(quotes) + oneOf(blanks);
    }

    /// A text that may be appended, an extension with its period or without, or a list of them.
    std::wstring argument(const KxPathModel &path)
    {
        static const std::vector<std::wstring> extensions{
            L"", L"dwg", L"DXF", L".dwg", L"..", L".", L"b", L"B", L"\u00E9", L"\u00C9", L"a b", L" ",
            L"x/y.z", L"\\", L"t:x", L"\U0001F600", L"*"};
        switch ((*this)(4)) {
        case 0:
            return oneOf(extensions);
        case 1: {
            std::wstring list;
            for (std::size_t count = (*this)(4); count > 0; --count)
                list += oneOf(extensions) + L";";
            path.getExtension(list);
            return (*this)(3) == 0 ? list : swapCase(list) + L";" + oneOf(extensions);
        }
        case 2:
            return oneOf(extensions) + L";" + oneOf(extensions) + L";";
        default:
            return piece(false) + piece(false);
        }
    }

    /// A text that a path is compared with: often itself, in another form.
    std::wstring likeness(const KxPathModel &path)
    {
        std::wstring text;
        path.getFullPath(text);
        switch ((*this)(8)) {
        case 0:
            return text;
        case 1:
            return swapCase(text);
        case 2:
            return text + L"/";
        case 3:
            return text.substr(0, text.size() - std::min<std::size_t>(text.size(), 1));
        case 4:
            return text.empty() ? text : wchar_t(std::towlower(std::wint_t(text[0]))) + text.substr(1) + L"/";
        case 5:
            return path.path;
        case 6:
            return {};
        default:
            return this->path();
        }
    }

    /// A text as long as a name may just be, or a little longer.
    std::wstring longName()
    {
        std::wstring text = oneOf({L"", L"C:", L"\\", L"a\\", L"\u00E9"});
        text.resize(((*this)(2) == 0 ? 254 : 1022) + (*this)(3), L'n');
        return text;
    }

private:
    std::wstring piece(bool isLong)
    {
        static const std::vector<std::wstring> pieces{
            L"a", L"b", L"Ab", L"a", L"file", L"b.txt", L"plot", L"/", L"/", L"/", L"\\", L"\\", L".", L".",
            L"..", L" ", L"  ", L"\"", L":", L"*", L"?", L"<", L">", L"|", L";", L"~", L"\t", L"\u00A0",
            L"\u3000", L"\u00E9", L"\u00C4", L"\u0130", L"\u00DF", L"\u4E2D", L"\U0001F600", L"\U00010400",
            L"C:", L"/../", L"/./", L".dwg", L".DXF", L"; "};
        if (isLong && (*this)(3) != 0)
            return std::wstring(1 + (*this)(20), L'k');
        return oneOf(pieces);
    }

    static std::wstring swapCase(std::wstring text)
    {
        for (wchar_t &character : text) {
            const auto code = std::wint_t(character);
            character = wchar_t(std::iswlower(code) ? std::towupper(code) : std::towlower(code));
        }
        return text;
    }

    std::mt19937 m_engine; // The standard says what each seed gives.
};

std::string toUtf8(const std::wstring &text)
{
    std::string bytes;
    for (const wchar_t character : text) {
        const auto code = static_cast<unsigned int>(character);
        const int following = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        const unsigned int lead[] = {0, 0xC0, 0xE0, 0xF0};
        bytes += char(lead[following] | (code >> (6 * following)));
        for (int i = following - 1; i >= 0; --i)
            bytes += char(0x80 | ((code >> (6 * i)) & 0x3F));
    }
    return bytes;
}

path_type lookOnDisk(const std::wstring &path)
{
    struct stat status = {};
    if (stat(toUtf8(path).c_str(), &status) != 0)
        return kNewPath;
    return S_ISDIR(status.st_mode) ? kDirPath : kFilePath;
}

/// Parses a path and does a few things to it. \return what was wrong, or null
const char *run(KxPathPair &pair, Dice &dice)
{
    const std::wstring text = dice.path();
    const char *mistake = pair.parse(text);
    if (!mistake)
        mistake = pair.compareNames(dice(40) == 0 ? dice.longName() : text);
    if (!mistake)
        mistake = pair.compareNames(pair.model().basename());
    for (std::size_t edits = 1 + dice(5); edits > 0 && !mistake; --edits) {
        // The disk is asked now and then only: it takes its time.
        int operation = int(dice(KxPathPair::OperationCount));
        if (operation == KxPathPair::Exists && dice(4) != 0)
            operation = KxPathPair::TrimComponent;
        mistake = pair.comparePieces();
        if (!mistake)
            mistake = pair.compareExtensions(dice.argument(pair.model()));
        if (!mistake)
            mistake = pair.step(KxPathPair::Operation(operation), dice.argument(pair.model()));
    }
    if (!mistake)
        mistake = pair.comparePieces();
    if (!mistake)
        mistake = pair.compareMatch(dice.likeness(pair.model()));
    if (!mistake)
        mistake = pair.compareDisplayName(int(dice(42)) - 1);
    return mistake;
}

QByteArray failure(const char *mistake, const KxPathPair &pair, unsigned int seed, int path)
{
    return "seed " + QByteArray::number(seed) + ", path " + QByteArray::number(path) + ", " + mistake + ": "
           + QByteArray::fromStdString(pair.story());
}

void addSeeds()
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 10; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

} // namespace

/// CRmUiPathname and the volume descriptor beside a plain second implementation of their rules, on random
/// paths; the same ones in every run.
class PathNameModelsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void parsingAndEdits_data();
    void parsingAndEdits();
    void displayNames_data();
    void displayNames();
    void matchOfTwo_data();
    void matchOfTwo();

private:
    std::wstring base() const { return m_directory.path().toStdWString(); }

    QTemporaryDir m_directory;
};

void PathNameModelsTest::initTestCase()
{
    QVERIFY2(std::strcmp(std::setlocale(LC_CTYPE, nullptr), "C") != 0, "needs letters outside ASCII");
    // What some of the paths name.
    QVERIFY(m_directory.isValid());
    for (const char *const folder : {"a", "Ab", "a/b", "plot"})
        QVERIFY(QDir(m_directory.path()).mkpath(QString::fromLatin1(folder)));
    for (const char16_t *const name : {u"file", u"b.txt", u"b", u"a/file", u"\u00E9", u"\U0001F600"}) {
        QFile file(m_directory.filePath(QString::fromUtf16(name)));
        QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(file.fileName()));
    }
}

void PathNameModelsTest::parsingAndEdits_data()
{
    addSeeds();
}

void PathNameModelsTest::parsingAndEdits()
{
    QFETCH(const unsigned int, seed);
    Dice dice(seed);
    KxPathPair pair(base(), lookOnDisk);
    for (int path = 0; path < pathsInARow; ++path) {
        if (const char *const mistake = run(pair, dice))
            QFAIL(failure(mistake, pair, seed, path).constData());
    }

    // Everything came up often enough to mean something.
    for (int event = 0; event < KxPathPair::EventCount; ++event) {
        const long seen = pair.seen(KxPathPair::Event(event));
        QVERIFY2(seen >= 300 / scarcity,
                 qPrintable(QStringLiteral("event %1 came up %2 times").arg(event).arg(seen)));
    }
    for (int i = 0; i < KxPathPair::OperationCount; ++i) {
        const auto operation = KxPathPair::Operation(i);
        QVERIFY2(pair.answered(operation, 0) >= 1000 / scarcity, KxPathPair::name(i));
        if (operation <= KxPathPair::RemoveExtensionAlways)
            QVERIFY2(pair.answered(operation, 2) >= 300 / scarcity, KxPathPair::name(i));
    }
    QVERIFY(pair.answered(KxPathPair::Trim, 3) >= 300 / scarcity);
    QVERIFY(pair.answered(KxPathPair::TrimSlash, 3) >= 300 / scarcity);
    QVERIFY(pair.answered(KxPathPair::TrimComponent, 3) >= 300 / scarcity);
    QVERIFY(pair.answered(KxPathPair::Exists, 1) >= 100 / scarcity);
}

void PathNameModelsTest::displayNames_data()
{
    addSeeds();
}

/// Every room from -1 to 40, and some that are about as large as the path.
void PathNameModelsTest::displayNames()
{
    QFETCH(const unsigned int, seed);
    Dice dice(seed);
    KxPathPair pair(base(), lookOnDisk);
    for (int path = 0; path < displayedPathsInARow; ++path) {
        if (const char *const mistake = pair.parse(dice.path()))
            QFAIL(failure(mistake, pair, seed, path).constData());
        const int length = int(pair.model().path.size());
        std::vector<int> rooms{INT_MIN, -2, length - 1, length, length + 1, 100, 255, 1000, 1200, 100000};
        for (int room = -1; room <= 40; ++room)
            rooms.push_back(room);
        for (const int room : rooms) {
            if (const char *const mistake = pair.compareDisplayName(room))
                QFAIL(failure(mistake, pair, seed, path).constData() + (" at " + QByteArray::number(room)));
        }
    }
    QVERIFY(pair.seen(KxPathPair::Shortened) >= 10000 / scarcity);
    QVERIFY(pair.seen(KxPathPair::BaseAlone) >= 1000 / scarcity);
}

void PathNameModelsTest::matchOfTwo_data()
{
    addSeeds();
}

/// A path against another path says what it says against the other's full path.
void PathNameModelsTest::matchOfTwo()
{
    QFETCH(const unsigned int, seed);
    Dice dice(seed);
    CRmUiPathname directory;
    QCOMPARE(directory.ParseRelative(base().c_str(), nullptr), 0);
    long found = 0;
    for (int i = 0; i < displayedPathsInARow; ++i) {
        KxPathPair pair(base());
        const std::wstring text = dice.path();
        QVERIFY2(!pair.parse(text), failure("ParseRelative", pair, seed, i).constData());
        const std::wstring otherText = dice.likeness(pair.model());
        KxPathPair otherPair(base());
        QVERIFY2(!otherPair.parse(otherText), failure("ParseRelative", otherPair, seed, i).constData());
        CRmUiPathname path;
        path.ParseRelative(text.c_str(), &directory);
        CRmUiPathname other;
        other.ParseRelative(otherText.c_str(), &directory);
        std::wstring full;
        if (!otherPair.model().getFullPath(full) || path.IsEmpty())
            continue;
        const bool expected = pair.model().pathMatch(full);
        found += expected;
        QVERIFY2(path.PathMatch(&other) == expected, failure("PathMatch", otherPair, seed, i).constData());
        QVERIFY(path.PathMatch(&path));
    }
    QVERIFY(found >= 300 / scarcity);
}

KX_TEST_MAIN(PathNameModelsTest)
#include "tst_path_name_models.moc"
