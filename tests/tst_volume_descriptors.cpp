// SPDX-License-Identifier: MIT
#include "KxChildOutcome.h"
#include "KxClassLayout.h"
#include "KxTestCase.h"
#include "KxTextRows.h"

#include <QRmUiNTFSVolumeDescriptor.h>
#include <QRmUiVolumeDescriptor.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

#include <unistd.h>

// Asked by the leak checker at exit: a copy of this process leaves everything of the test behind.
static bool s_isChild = false;
extern "C" Q_DECL_EXPORT int __lsan_is_turned_off();
int __lsan_is_turned_off()
{
    return s_isChild;
}

namespace {

/// The slot of the first operation that a derived class adds.
struct OneMore : CRmUiNTFSVolumeDescriptor {
    using CRmUiNTFSVolumeDescriptor::CRmUiNTFSVolumeDescriptor;
    virtual void next() {}
};

/// What stands in an object at a byte offset.
template<class Value, class Object>
Value read(const Object &object, int offset)
{
    Value value;
    std::memcpy(&value, reinterpret_cast<const char *>(&object) + offset, sizeof value);
    return value;
}

/// A volume whose fields can be set.
struct Volume : CRmUiNTFSVolumeDescriptor {
    explicit Volume(const wchar_t *name = L"C:") : CRmUiNTFSVolumeDescriptor(CString(name)) {}
    Volume(std::uint8_t flags, unsigned int type, const wchar_t *name = L"C:") : Volume(name)
    {
        m_flags = flags;
        m_type = static_cast<FS_TYPE>(type);
    }

    using CRmUiNTFSVolumeDescriptor::m_connectionName;
    using CRmUiNTFSVolumeDescriptor::m_flags;
    using CRmUiNTFSVolumeDescriptor::m_maximumFilenameLength;
    using CRmUiNTFSVolumeDescriptor::m_maximumSegmentLength;
    using CRmUiNTFSVolumeDescriptor::m_multiByte;
    using CRmUiNTFSVolumeDescriptor::m_reservedName;
};

/// A base that only fills in what is pure.
struct PlainVolume : CRmUiVolumeDescriptor {
    using CRmUiVolumeDescriptor::CRmUiVolumeDescriptor;
    bool ValidateFilename(const CString *, bool) const override { return false; }
    bool ValidateSegment(const CString *, bool) const override { return false; }
};

/// Writes its mark to standard error when it dies.
class Noisy : public CRmUiNTFSVolumeDescriptor
{
public:
    explicit Noisy(char mark) : CRmUiNTFSVolumeDescriptor(CString(L"N:")), m_mark(mark) {}
    ~Noisy() override
    {
        if (::write(STDERR_FILENO, &m_mark, 1) != 1)
            std::abort();
    }

private:
    const char m_mark;
};

CString repeated(wchar_t character, int count)
{
    return CString(character, count);
}

/// What dump_file_type() writes.
std::wstring dumped(unsigned int type)
{
    std::FILE *stream = std::tmpfile();
    if (!stream)
        return L"(no stream)";
    std::FILE *const before = stream;
    dump_file_type(&stream, static_cast<FS_TYPE>(type), 7, L"seven");
    if (stream != before)
        return L"(another stream)";
    std::rewind(stream);
    std::wstring text;
    for (wint_t c = std::fgetwc(stream); c != WEOF; c = std::fgetwc(stream))
        text += static_cast<wchar_t>(c);
    std::fclose(stream);
    return text;
}

/// GetDriveTypeByVol() with a type of 99 before.
unsigned int typeBy(const wchar_t *name, unsigned int maxComponent)
{
    std::wstring buffer(name);
    FS_TYPE type = static_cast<FS_TYPE>(99);
    GetDriveTypeByVol(buffer.data(), type, maxComponent);
    return type;
}

} // namespace

class VolumeDescriptorsTest : public KxTestCase
{
    Q_OBJECT

private slots:
    void number_data();
    void number();
    void text_data();
    void text();
    void validateFilename_data();
    void validateFilename();
    void validateSegment_data();
    void validateSegment();
    void volMatch_data();
    void volMatch();
    void layoutOfANewDescriptor();
    void baseHasTheSameFields();
    void validationsAreTheOnlyOverrides();
    void flagBytes_data();
    void flagBytes();
    void whatIsAlwaysSo();
    void localNameIsACopy();
    void connectionName();
    void find_data();
    void find();
    void whatDoesNothing();
    void initVolumeChar_data();
    void initVolumeChar();
    void releaseStringPtr();
    void cleanupDeletesByIndex();
    void cleanupAtExit();
};

void VolumeDescriptorsTest::number_data()
{
    QTest::addColumn<NumberCall>("call");
    QTest::addColumn<qint64>("expected");

    const auto row = [](const char *promise, qint64 found, qint64 expected) {
        numberRow(promise, [found] { return found; }, expected);
    };

    row("kBackslash", kBackslash, 92);
    row("kColon", kColon, 58);
    row("kDoubleQuote", kDoubleQuote, 34);
    row("kEOS", kEOS, 0);
    row("kPeriod", kPeriod, 46);
    row("kSlash", kSlash, 47);
    row("kSpace", kSpace, 32);
    row("kAsterisk", kAsterisk, 42);
    row("kQuestionmark", kQuestionmark, 63);
    row("kZero", kZero, 48);
    row("the characters are wide, of 32 bits",
        std::is_same_v<decltype(kBackslash), const wchar_t> ? qint64(sizeof kBackslash) : -1, 4);
    row("FS_TYPE has 32 bits", sizeof(FS_TYPE), 4);

    const auto ntfs = static_cast<bool (CRmUiNTFSVolumeDescriptor::*)(const CString *, bool) const>(
        &CRmUiNTFSVolumeDescriptor::ValidateFilename);
    row("slot 2: CheckReadOnly", slotOf(&CRmUiVolumeDescriptor::CheckReadOnly), 2);
    row("slot 3: ValidateFilename", slotOf(&CRmUiVolumeDescriptor::ValidateFilename), 3);
    row("slot 3: ValidateFilename of NTFS", slotOf(ntfs), 3);
    row("slot 4: ValidateSegment", slotOf(&CRmUiVolumeDescriptor::ValidateSegment), 4);
    row("slot 5: IsCaseSensitive", slotOf(&CRmUiVolumeDescriptor::IsCaseSensitive), 5);
    row("slot 6: PreservesCase", slotOf(&CRmUiVolumeDescriptor::PreservesCase), 6);
    row("slot 7: AllowsCaseSensitiveLookup", slotOf(&CRmUiVolumeDescriptor::AllowsCaseSensitiveLookup), 7);
    row("slot 8: VolCase", slotOf(&CRmUiVolumeDescriptor::VolCase), 8);
    using MatchText = bool (CRmUiVolumeDescriptor::*)(const wchar_t *, const CString *) const;
    using MatchString = bool (CRmUiVolumeDescriptor::*)(const CString *, const CString *) const;
    row("slot 9: VolMatch of a text", slotOf(static_cast<MatchText>(&CRmUiVolumeDescriptor::VolMatch)), 9);
    row("slot 10: VolMatch of a string", slotOf(static_cast<MatchString>(&CRmUiVolumeDescriptor::VolMatch)),
        10);
    row("slot 11: GetLocalName", slotOf(&CRmUiVolumeDescriptor::GetLocalName), 11);
    row("slot 12: GetVolFreeSpace", slotOf(&CRmUiVolumeDescriptor::GetVolFreeSpace), 12);
    row("slot 13: WillFit", slotOf(&CRmUiVolumeDescriptor::WillFit), 13);
    row("slot 14: VolumeValid", slotOf(&CRmUiVolumeDescriptor::VolumeValid), 14);
    row("there are 15 slots", slotOf(&OneMore::next), 15);
    row("GetConnectionName is not virtual", slotOf(&CRmUiVolumeDescriptor::GetConnectionName), -1);
    row("Find is not virtual", slotOf(&CRmUiVolumeDescriptor::Find), -1);
    row("IsControl is not virtual", slotOf(&CRmUiVolumeDescriptor::IsControl), -1);
    row("the destructor is virtual", std::has_virtual_destructor_v<CRmUiVolumeDescriptor>, 1);
    row("the base is abstract", std::is_abstract_v<CRmUiVolumeDescriptor>, 1);
    row("NTFS is not", std::is_abstract_v<CRmUiNTFSVolumeDescriptor>, 0);
    row("the base has 72 bytes", sizeof(CRmUiVolumeDescriptor), 72);
    row("NTFS adds no field", sizeof(CRmUiNTFSVolumeDescriptor), 72);

    const auto type = [](const char *promise, const wchar_t *name, unsigned int component, qint64 expected) {
        numberRow(promise, [=] { return qint64(typeBy(name, component)); }, expected);
    };
    type("type by name: NTFS is 2", L"NTFS", 255, 2);
    type("type by name: NTFS is 2 with short components too", L"NTFS", 12, 2);
    type("type by name: FAT with 12 is 3", L"FAT", 12, 3);
    type("type by name: FAT with 255 is 4", L"FAT", 255, 4);
    type("type by name: FAT with 11 is 4", L"FAT", 11, 4);
    type("type by name: FAT with 13 is 4", L"FAT", 13, 4);
    type("type by name: FAT with 0 is 4", L"FAT", 0, 4);
    type("type by name: HPFS is 5", L"HPFS", 255, 5);
    type("type by name: CDFS is 6", L"CDFS", 255, 6);
    type("type by name: NFS is 8", L"NFS", 255, 8);
    type("type by name: NFS at the end is 8", L"AutoNFS", 255, 8);
    type("type by name: NFS in the middle is 8", L"xNFSv4", 12, 8);
    type("type by name: fat in small letters stays", L"fat", 12, 99);
    type("type by name: ntfs in small letters stays", L"ntfs", 255, 99);
    type("type by name: nfs in small letters stays", L"nfs", 255, 99);
    type("type by name: hpfs in small letters stays", L"hpfs", 255, 99);
    type("type by name: cdfs in small letters stays", L"cdfs", 255, 99);
    type("type by name: FAT32 stays", L"FAT32", 12, 99);
    type("type by name: a longer NTFS stays", L"NTFS5", 255, 99);
    type("type by name: HPFS in front of more stays", L"HPFS1", 255, 99);
    type("type by name: CDFS behind more stays", L"xCDFS", 255, 99);
    type("type by name: nothing stays", L"", 12, 99);

    const auto character = [](const char *promise, const wchar_t *name, wchar_t ch, bool expected) {
        numberRow(promise, [=] {
            const CString text(name);
            return qint64(ValidateVolChar(&text, ch));
        }, expected);
    };
    character("volume character: no colon, a letter", L"abc", L'a', true);
    character("volume character: no colon, anything", L"abc", L'1', true);
    character("volume character: no text", L"", 0, true);
    character("volume character: colon second, a letter", L"C:", L'C', true);
    character("volume character: colon second, a small letter", L"c:x", L'c', true);
    character("volume character: colon second, the letter told counts", L"1:x", L'x', true);
    character("volume character: colon second, a digit", L"1:x", L'1', false);
    character("volume character: colon second, a colon", L"::", L':', false);
    character("volume character: colon first", L":a", L'a', false);
    character("volume character: colon third", L"ab:c", L'a', false);
    character("volume character: the last colon counts", L"a:b:", L'a', false);

    const auto valid = [](const char *promise, int flags, unsigned int fileSystem, bool expected,
                          const wchar_t *name = L"C:") {
        numberRow(promise, [=] {
            const Volume volume(static_cast<std::uint8_t>(flags), fileSystem, name);
            return qint64(volume.VolumeValid());
        }, expected);
    };
    valid("valid: bit 0 is enough", 1, 0, true);
    valid("valid: bit 0 is enough without a name", 1, 2, true, L"");
    valid("valid: bit 4 is enough", 16, 0, true);
    valid("valid: bit 4 is enough without a name", 16, 2, true, L"");
    valid("valid: bits 0 and 4", 17, 7, true);
    valid("valid: every bit but 0 and 4 does not count", 0xFF & ~17, 2, false);
    valid("valid: asked, NTFS is not nofilesystem", 0, 2, false);
    valid("valid: asked, FAT is not", 0, 3, false);
    valid("valid: asked, VFAT is not", 0, 4, false);
    valid("valid: asked, HPFS is not", 0, 5, false);
    valid("valid: asked, CDFS is not", 0, 6, false);
    valid("valid: asked, a network is, for the name has no NFS", 0, 8, true);
    valid("valid: asked with a backslash at the end", 0, 8, true, L"C:\\");
    valid("valid: asked, unknown is not", 0, 0, false);
    valid("valid: asked, no file system is not", 0, 1, false);
    valid("valid: asked, 7 is not", 0, 7, false);
    valid("valid: asked, 9 is not", 0, 9, false);
    valid("valid: without a name nothing is", 0, 8, false, L"");

    row("InitModeMultiByte returns 0", InitModeMultiByte(), 0);
    numberRow("GetVolumeInfo returns true", [] {
        wchar_t name[] = L"nofilesystem";
        CString volume(L"before");
        const bool answer = GetVolumeInfo(CString(L"C:\\"), name, &volume, 13, 0);
        return qint64(answer && std::wstring(name) == L"nofilesystem" && volume == L"before");
    }, 1);
}

void VolumeDescriptorsTest::number()
{
    QFETCH(NumberCall, call);
    QFETCH(qint64, expected);
    QCOMPARE(call(), expected);
}

void VolumeDescriptorsTest::text_data()
{
    QTest::addColumn<TextCall>("call");
    QTest::addColumn<QString>("expected");

    textRow("dump: 0 is unknown", [] { return dumped(0); }, L"???\n");
    textRow("dump: 1", [] { return dumped(1); }, L"NOFS\n");
    textRow("dump: 2", [] { return dumped(2); }, L"NTFS\n");
    textRow("dump: 3", [] { return dumped(3); }, L"FAT\n");
    textRow("dump: 4", [] { return dumped(4); }, L"VFAT\n");
    textRow("dump: 5", [] { return dumped(5); }, L"HPFS\n");
    textRow("dump: 6", [] { return dumped(6); }, L"CDFS\n");
    textRow("dump: 7 is unknown", [] { return dumped(7); }, L"???\n");
    textRow("dump: 8", [] { return dumped(8); }, L"UFS\n");
    textRow("dump: 9 is unknown", [] { return dumped(9); }, L"???\n");
    textRow("dump: the largest is unknown", [] { return dumped(0xFFFFFFFFu); }, L"???\n");

    const auto behind = [](const char *promise, const wchar_t *path, const std::wstring &expected) {
        textRow(promise, [=] {
            CString out(L"before");
            const CString text(path);
            StringFromPath(out, &text);
            return std::wstring(out);
        }, expected);
    };
    behind("from path: without the first character", L"C:\\a", L":\\a");
    behind("from path: one character leaves none", L"C", L"");
    behind("from path: a separator goes too", L"/a", L"a");
    textRow("from path: of itself", [] {
        CString text(L"abc");
        StringFromPath(text, &text);
        return std::wstring(text);
    }, L"bc");
}

void VolumeDescriptorsTest::text()
{
    QFETCH(TextCall, call);
    QFETCH(QString, expected);
    QCOMPARE(shown(call()), expected);
}

/// The columns of a validation: the name, null for none, and what is said with wildcards and without.
static void nameColumns()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("withWildcards");
    QTest::addColumn<bool>("without");
}

static void nameRow(const char *promise, const std::wstring &name, bool withWildcards, bool without)
{
    QTest::newRow(promise) << shown(name) << withWildcards << without;
}

void VolumeDescriptorsTest::validateFilename_data()
{
    nameColumns();
    QTest::newRow("null is none") << QString() << false << false;
    nameRow("empty is one", L"", true, true);
    nameRow("letters", L"abc.txt", true, true);
    nameRow("1023 characters", repeated(L'a', 1023), true, true);
    nameRow("1024 characters", repeated(L'a', 1024), false, false);
    nameRow("a drive letter and a colon", L"C:abc", true, true);
    nameRow("a small drive letter and a colon", L"c:abc", true, true);
    nameRow("a drive alone", L"C:", true, true);
    nameRow("a colon third", L"ab:c", false, false);
    nameRow("a colon first", L":abc", false, false);
    nameRow("a colon behind a digit", L"1:abc", false, false);
    nameRow("two colons", L"a:b:c", false, false);
    nameRow("two colons in front", L"::a", false, false);
    nameRow("a backslash", L"a\\b", true, true);
    nameRow("a backslash first", L"\\a", true, true);
    nameRow("a drive and a backslash", L"C:\\a\\b", true, true);
    nameRow("two backslashes first: only one is left", L"\\\\server", true, true);
    nameRow("two backslashes behind the first character", L"a\\\\b", false, false);
    nameRow("two backslashes at the end", L"a\\\\", false, false);
    nameRow("three backslashes first", L"\\\\\\a", false, false);
    nameRow("less", L"a<b", false, false);
    nameRow("greater", L"a>b", false, false);
    nameRow("bar", L"a|b", false, false);
    nameRow("slash", L"a/b", false, false);
    nameRow("double quote", L"a\"b", false, false);
    nameRow("asterisk", L"a*b", true, false);
    nameRow("question mark", L"a?b", true, false);
    nameRow("a forbidden one first", L"<ab", false, false);
    nameRow("a forbidden one last", L"ab|", false, false);
    nameRow("a wildcard first", L"*ab", true, false);
    nameRow("a wildcard last", L"ab?", true, false);
    nameRow("a control character", L"a\x01" L"b", true, true);
    nameRow("a line end", L"a\nb", true, true);
    nameRow("a character of 21 bits", L"a\U0001F600", true, true);
    nameRow("what stands behind the end is not looked at", whole(L"ab\0<"), true, true);
    nameRow("blanks and punctuation", L" a.b,c;d=[e]+'f'", true, true);
}

void VolumeDescriptorsTest::validateFilename()
{
    QFETCH(QString, name);
    QFETCH(bool, withWildcards);
    QFETCH(bool, without);
    const Volume volume;
    const CString text(name.toStdWString());
    const CString *const given = name.isNull() ? nullptr : &text;
    QCOMPARE(volume.ValidateFilename(given, true), withWildcards);
    QCOMPARE(volume.ValidateFilename(given, false), without);
}

void VolumeDescriptorsTest::validateSegment_data()
{
    nameColumns();
    QTest::newRow("null is none") << QString() << false << false;
    nameRow("empty is one", L"", true, true);
    nameRow("letters", L"abc.txt", true, true);
    nameRow("255 characters", repeated(L'a', 255), true, true);
    nameRow("256 characters", repeated(L'a', 256), false, false);
    nameRow("a drive is none", L"C:", false, false);
    nameRow("a colon anywhere", L"ab:c", false, false);
    nameRow("less", L"a<b", false, false);
    nameRow("greater", L"a>b", false, false);
    nameRow("slash", L"a/b", false, false);
    nameRow("backslash", L"a\\b", false, false);
    nameRow("bar", L"a|b", false, false);
    nameRow("double quote", L"a\"b", false, false);
    nameRow("asterisk", L"a*b", true, false);
    nameRow("question mark", L"a?b", true, false);
    nameRow("a forbidden one first", L"\\ab", false, false);
    nameRow("a forbidden one last", L"ab:", false, false);
    nameRow("a wildcard first", L"?ab", true, false);
    nameRow("a wildcard last", L"ab*", true, false);
    nameRow("a control character", L"a\x1f" L"b", true, true);
    nameRow("a character of 21 bits", L"a\U0001F600", true, true);
    nameRow("what stands behind the end is not looked at", whole(L"ab\0:"), true, true);
    nameRow("dots", L"..", true, true);
}

void VolumeDescriptorsTest::validateSegment()
{
    QFETCH(QString, name);
    QFETCH(bool, withWildcards);
    QFETCH(bool, without);
    const Volume volume;
    const CString text(name.toStdWString());
    const CString *const given = name.isNull() ? nullptr : &text;
    QCOMPARE(volume.ValidateSegment(given, true), withWildcards);
    QCOMPARE(volume.ValidateSegment(given, false), without);
}

void VolumeDescriptorsTest::volMatch_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    QTest::addColumn<bool>("withoutCase");
    QTest::addColumn<bool>("withCase");

    QTest::newRow("equal") << "name" << "name" << true << true;
    QTest::newRow("another case") << "Name" << "nAME" << true << false;
    QTest::newRow("another case, the other way") << "nAME" << "Name" << true << false;
    QTest::newRow("another text") << "name" << "nome" << false << false;
    QTest::newRow("longer") << "name" << "name1" << false << false;
    QTest::newRow("shorter") << "name1" << "name" << false << false;
    QTest::newRow("both empty") << "" << "" << true << true;
    QTest::newRow("one empty") << "" << "a" << false << false;
    QTest::newRow("letters outside ASCII have one case")
        << QStringLiteral(u"\u00e4") << QStringLiteral(u"\u00c4") << false << false;
    QTest::newRow("null first") << QString() << "a" << false << false;
    QTest::newRow("null second") << "a" << QString() << false << false;
    QTest::newRow("null twice") << QString() << QString() << false << false;
}

void VolumeDescriptorsTest::volMatch()
{
    QFETCH(QString, one);
    QFETCH(QString, other);
    QFETCH(bool, withoutCase);
    QFETCH(bool, withCase);
    const CString oneText(one.toStdWString());
    const CString otherText(other.toStdWString());
    const CString *const oneString = one.isNull() ? nullptr : &oneText;
    const wchar_t *const oneCharacters = one.isNull() ? nullptr : oneText.GetString();
    const CString *const otherString = other.isNull() ? nullptr : &otherText;

    Volume volume;
    QCOMPARE(volume.VolMatch(oneString, otherString), withoutCase);
    QCOMPARE(volume.VolMatch(oneCharacters, otherString), withoutCase);
    volume.m_flags = 1 | 64;
    QCOMPARE(volume.VolMatch(oneString, otherString), withCase);
    QCOMPARE(volume.VolMatch(oneCharacters, otherString), withCase);

    // It is the virtual operation that is asked.
    struct Sensitive : Volume {
        bool IsCaseSensitive() const override { return true; }
    } sensitive;
    QCOMPARE(sensitive.VolMatch(oneString, otherString), withCase);
    QCOMPARE(sensitive.VolMatch(oneCharacters, otherString), withCase);
}

void VolumeDescriptorsTest::layoutOfANewDescriptor()
{
    const CString name(L"C:");
    const CRmUiNTFSVolumeDescriptor volume(name);
    QCOMPARE(read<std::uint32_t>(volume, 8), 2u);
    QCOMPARE(read<std::uint8_t>(volume, 12) & 0x7F, 1);
    QVERIFY(read<const CString *>(volume, 16) == volume.GetLocalName());
    QCOMPARE(read<std::uint32_t>(volume, 24), 255u);
    QCOMPARE(read<std::uint32_t>(volume, 28), 1023u);
    QVERIFY(read<wchar_t>(volume, 32) == L'\\');
    QCOMPARE(int(read<std::uint8_t>(volume, 36)), 0);
    QCOMPARE(read<std::uint32_t>(volume, 40), 0u);
    QVERIFY(read<const CString *>(volume, 48) == nullptr);
    QVERIFY(read<const CString *>(volume, 56) == nullptr);
    QCOMPARE(shown(read<const wchar_t *>(volume, 64)), QStringLiteral("\\\\"));
}

void VolumeDescriptorsTest::baseHasTheSameFields()
{
    const CString name(L"D:");
    const PlainVolume volume(name);
    QCOMPARE(read<std::uint8_t>(volume, 12) & 0x7F, 1);
    QVERIFY(read<const CString *>(volume, 16) == volume.GetLocalName());
    QCOMPARE(read<std::uint32_t>(volume, 28), 1023u);
    QVERIFY(read<wchar_t>(volume, 32) == L'\\');
    QCOMPARE(read<std::uint32_t>(volume, 40), 0u);
    QVERIFY(volume.VolumeValid());
}

/// NTFS overrides its destructors and the two validations; the rest stands in its table as in the base's.
void VolumeDescriptorsTest::validationsAreTheOnlyOverrides()
{
    const CString name(L"D:");
    const PlainVolume plain(name);
    const CRmUiNTFSVolumeDescriptor ntfs(name);
    QList<int> different;
    for (int slot = 0; slot < 15; ++slot) {
        if (tableOf(&plain)[slot] != tableOf(&ntfs)[slot])
            different.append(slot);
    }
    QCOMPARE(different, (QList<int>{0, 1, 3, 4}));
}

void VolumeDescriptorsTest::flagBytes_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<bool>("caseSensitive");

    QTest::newRow("new: bit 0") << 1 << false << false;
    QTest::newRow("none") << 0 << false << false;
    QTest::newRow("bit 5 is read-only") << 0x20 << true << false;
    QTest::newRow("bit 6 is case-sensitive") << 0x40 << false << true;
    QTest::newRow("bits 5 and 6") << 0x60 << true << true;
    QTest::newRow("every other bit") << 0x9F << false << false;
    QTest::newRow("every bit") << 0xFF << true << true;
}

void VolumeDescriptorsTest::flagBytes()
{
    QFETCH(int, flags);
    QFETCH(bool, readOnly);
    QFETCH(bool, caseSensitive);
    const Volume volume(static_cast<std::uint8_t>(flags), 2);
    QCOMPARE(volume.CheckReadOnly(), readOnly);
    QCOMPARE(volume.IsCaseSensitive(), caseSensitive);
}

void VolumeDescriptorsTest::whatIsAlwaysSo()
{
    for (const int flags : {0, 1, 0xFF}) {
        const Volume volume(static_cast<std::uint8_t>(flags), 2);
        QVERIFY(volume.PreservesCase());
        QVERIFY(volume.AllowsCaseSensitiveLookup());
        QCOMPARE(volume.GetVolFreeSpace(), 0x7fffffffu);
        QVERIFY(volume.WillFit(0));
        QVERIFY(volume.WillFit(0xFFFFFFFFu));
        CString name(L"MiXed \u00c4");
        volume.VolCase(name);
        QCOMPARE(shown(name), QStringLiteral(u"MiXed \u00c4"));
        for (const int character : {0, 1, 9, 10, 27, 31, 127, 0x80, int('a'), -1})
            QVERIFY(!volume.IsControl(character));
    }
}

void VolumeDescriptorsTest::localNameIsACopy()
{
    CString name(L"C:");
    const Volume volume(name);
    name = L"other";
    QVERIFY(volume.GetLocalName() != &name);
    QCOMPARE(shown(*volume.GetLocalName()), QStringLiteral("C:"));
}

void VolumeDescriptorsTest::connectionName()
{
    Volume volume;
    for (int time = 0; time < 2; ++time) { // The second one replaces what the first one made.
        volume.GetConnectionName();
        const auto *name = read<const CString *>(volume, 56);
        QVERIFY(name);
        QVERIFY(name == volume.m_connectionName);
        QCOMPARE(shown(*name), QStringLiteral("GetConnectionName Failed"));
        QVERIFY(volume.m_reservedName == nullptr);
    }
}

void VolumeDescriptorsTest::find_data()
{
    QTest::addColumn<QString>("set");
    QTest::addColumn<uint>("character");
    QTest::addColumn<int>("expected");

    QTest::newRow("first") << "*<>" << uint('*') << 0;
    QTest::newRow("last") << "*<>" << uint('>') << 2;
    QTest::newRow("the first of two") << "aba" << uint('a') << 0;
    QTest::newRow("not there") << "*<>" << uint('x') << -1;
    QTest::newRow("no set") << "" << uint('x') << -1;
    QTest::newRow("case counts") << "abc" << uint('B') << -1;
    QTest::newRow("21 bits") << QString::fromUcs4(U"a\U0001F600", 2) << 0x1F600u << 1;
    QTest::newRow("16 bits of it are not it") << QString::fromUcs4(U"a\U0001F600", 2) << 0xF600u << -1;
}

void VolumeDescriptorsTest::find()
{
    QFETCH(QString, set);
    QFETCH(uint, character);
    QFETCH(int, expected);
    Volume volume;
    const CString text(set.toStdWString());
    QCOMPARE(volume.Find(text, character), expected);
    volume.m_multiByte = 1;
    QCOMPARE(volume.Find(text, character), expected);
}

/// The limits are the fields'; ParseVolumeStr() leaves everything alone.
void VolumeDescriptorsTest::whatDoesNothing()
{
    Volume volume;
    volume.m_maximumSegmentLength = 3;
    volume.m_maximumFilenameLength = 5;
    const CString three(L"abc");
    const CString four(L"abcd");
    const CString six(L"abcdef");
    QVERIFY(volume.ValidateSegment(&three, false));
    QVERIFY(!volume.ValidateSegment(&four, false));
    QVERIFY(volume.ValidateFilename(&four, false));
    QVERIFY(!volume.ValidateFilename(&six, false));

    CString text(L"C:\\x");
    char out[] = "before";
    ParseVolumeStr(text, out, sizeof out);
    QCOMPARE(shown(text), QStringLiteral("C:\\x"));
    QCOMPARE(QByteArray(out), QByteArray("before"));
}

void VolumeDescriptorsTest::initVolumeChar_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("no text") << 0;
    QTest::newRow("255: 1024 bytes, the local buffer") << 255;
    QTest::newRow("256: more than that") << 256;
    QTest::newRow("a long one") << 100000;
}

void VolumeDescriptorsTest::initVolumeChar()
{
    QFETCH(int, length);
    const CString before = repeated(L'\u00e4', length);
    CString text = before;
    char out[] = "before";
    InitVolumeChar(text, out);
    QVERIFY(text == before);
    QCOMPARE(QByteArray(out), QByteArray("before"));
}

void VolumeDescriptorsTest::releaseStringPtr()
{
    auto *text = new CString(L"a text that is long enough to have memory of its own");
    ReleaseStringPtr(&text);
    QVERIFY(text == nullptr);
    ReleaseStringPtr(&text); // Nothing to release.
    QVERIFY(text == nullptr);
}

void VolumeDescriptorsTest::cleanupDeletesByIndex()
{
    const KxChildOutcome outcome = kxRunInChild([] {
        volumeList.clear();
        volumeList.append(new Noisy('1'));
        volumeList.append(nullptr);
        volumeList.append(new Noisy('2'));
        volumeList.append(new Noisy('3'));
        {
            CDelVolumeList cleanup;
        }
    });
    QVERIFY(outcome.finished);
    QCOMPARE(outcome.standardError, QByteArray("123"));
}

/// At the end of the program every descriptor dies once, while the list is still there.
void VolumeDescriptorsTest::cleanupAtExit()
{
    const KxChildOutcome outcome = kxRunInChild([] {
        s_isChild = true;
        volumeList.append(new Noisy('a'));
        volumeList.append(nullptr);
        volumeList.append(new Noisy('b'));
        std::exit(0);
    });
    QVERIFY(outcome.finished);
    QCOMPARE(outcome.standardError, QByteArray("ab"));
}

KX_TEST_MAIN(VolumeDescriptorsTest)
#include "tst_volume_descriptors.moc"
