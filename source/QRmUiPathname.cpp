// SPDX-License-Identifier: MIT
#include "QRmUiPathname.h"

#include "KxPlatformBase.h"
#include "QRmUiNTFSVolumeDescriptor.h"

#include <algorithm>
#include <cstdlib>
#include <cwctype>

// The list first: the object that empties it has to go before it.
QList<CRmUiVolumeDescriptor *> volumeList;
CDelVolumeList volumelistdel;

CDelVolumeList::~CDelVolumeList()
{
    for (int i = 0; i < volumeList.size(); ++i)
        delete volumeList.at(i);
}

namespace {

constexpr int TRIES = 200;
constexpr int END_LEN = 5;
constexpr int longestPath = 1023;
constexpr DWORD directoryBufferSize = 1024;
constexpr wchar_t kListSeparator = L';';

enum Status { Done, WrongArgument, NoPath, LeavesRoot, NoComponent };

CString *copyOf(const CString *text)
{
    return text ? new CString(*text) : nullptr;
}

wchar_t characterAt(const CString &text, int index)
{
    return index < text.GetLength() ? text[index] : kEOS;
}

bool endsWith(const CString &text, wchar_t character)
{
    return !text.IsEmpty() && text.back() == character;
}

bool beginsWithDrive(wchar_t first, wchar_t second)
{
    return second == kColon && std::iswalpha(static_cast<std::wint_t>(first));
}

void classify(wchar_t first, wchar_t second, wchar_t separator, path_category &category, CString &path)
{
    if (first == separator) {
        category = second == separator ? kUNCCategory : kRootCategory;
    } else if (beginsWithDrive(first, second)) {
        category = kDriveCategory;
        upperPathFirstChar(path);
    }
}

/// Where the base name begins: behind the last separator or, without one, the last colon.
int basenameIndex(const CString &path, wchar_t separator)
{
    const int last = path.ReverseFind(separator);
    return (last >= 0 ? last : path.ReverseFind(kColon)) + 1;
}

/// The current directory, empty when it cannot be told in a buffer of that size.
CString currentDirectory()
{
    wchar_t buffer[directoryBufferSize];
    const DWORD length = GetCurrentDirectoryW(directoryBufferSize, buffer);
    return CString(buffer, length < directoryBufferSize ? static_cast<int>(length) : 0);
}

} // namespace

// ---- life -----------------------------------------------------------------------------------------------

CRmUiPathname::CRmUiPathname(const CRmUiPathname &other)
{
    CRmUiPathname::AssignCopy(other);
}

CRmUiPathname::~CRmUiPathname()
{
    Empty();
}

CRmUiPathname &CRmUiPathname::operator=(const CRmUiPathname &other)
{
    AssignCopy(other);
    return *this;
}

void CRmUiPathname::AssignCopy(const CRmUiPathname &other)
{
    if (&other == this)
        return;
    Empty();
    m_type = other.m_type;
    m_volume = other.m_volume;
    m_path = copyOf(other.m_path);
    m_directory = copyOf(other.m_directory);
    m_category = other.m_category;
    m_separator = other.m_separator;
    m_qualified = other.m_qualified;
}

void CRmUiPathname::Empty()
{
    ReleaseCStrPtr(&m_path);
    ReleaseCStrPtr(&m_directory);
    m_type = kNoPath;
    m_volume = nullptr;
}

// ---- parsing --------------------------------------------------------------------------------------------

int CRmUiPathname::Parse(const wchar_t *path, bool flag)
{
    if (!path)
        return WrongArgument;
    CRmUiPathname base;
    const CString directory = currentDirectory();
    if (!directory.IsEmpty()) {
        if (base.take(directory, nullptr) != Done)
            return NoComponent;
        base.m_type = kDirPath;
        base.AppendSlash();
    }
    return ParseRelative(path, &base, flag);
}

int CRmUiPathname::ParseRelative(const wchar_t *path, const CRmUiPathname *base, bool)
{
    const int status = take(path, base);
    if (status == Done)
        GetAttributes(m_path, m_directory, &m_type);
    return status;
}

/// ParseRelative(), except that it leaves the type for the caller to set.
int CRmUiPathname::take(const wchar_t *path, const CRmUiPathname *base)
{
    if (!path)
        return WrongArgument;
    CString text = path;
    const bool hasColon = text.Find(kColon) >= 0;
    Empty();
    Unquote(text);
    StripSpaces(text);
    if (text.IsEmpty() || text.Find(kColon) != text.ReverseFind(kColon))
        return WrongArgument;

    wchar_t last;
    wchar_t first;
    wchar_t second;
    GetWorkString(&text, m_separator, last, first, second);
    m_category = kRelativeCategory;
    if (GetPathCatType(first, second, m_separator, m_category, &text, base) || m_category == kUNCCategory)
        return WrongArgument;

    if (m_category == kDriveCategory) {
        m_volume = FindVolumeDescriptor(text.Left(2));
    } else if (m_category == kRelativeCategory) {
        m_volume = base->m_volume;
    }
    const CString noRoot;
    if (m_volume)
        m_volume->VolCase(text);
    GetRelPath(m_category, &noRoot, &m_directory, &base);
    m_qualified = text.Find(m_separator) >= 0 || hasColon;
    m_path = new CString(std::move(text));
    return Done;
}

int CRmUiPathname::ParseAndOSFind(const wchar_t *) { return WrongArgument; }
bool CRmUiPathname::IsDeviceName(const CString &) const { return false; }

void CRmUiPathname::GetAttributes(const CString *path, const CString *dir, path_type *type)
{
    *type = kNewPath;
    const CString basename = path ? path->Mid(basenameIndex(*path, m_separator)) : CString();
    if (!IsPathType(basename, type))
        GetAttByPath(&path, &dir, &type);
}

void CRmUiPathname::Unquote(CString &s)
{
    if (s.Find(kDoubleQuote) < 0)
        return;
    CString trimmed = s;
    trimmed.Trim();
    const int length = trimmed.GetLength();
    if (length > 1 && trimmed.front() == kDoubleQuote && trimmed.back() == kDoubleQuote)
        s = trimmed.Mid(1, length - 2);
}

void CRmUiPathname::StripSpaces(CString &s)
{
    s.TrimLeft();
    s.TrimRight();
}

wchar_t CRmUiPathname::GetLastCharacter(const CString &s)
{
    return s.IsEmpty() ? kEOS : s.back();
}

// ---- what it is -----------------------------------------------------------------------------------------

const wchar_t *CRmUiPathname::GetPathString() const
{
    return m_path ? m_path->GetString() : nullptr;
}

bool CRmUiPathname::Exists()
{
    if (m_type == kNewPath || m_type == kFilePath || m_type == kDirPath) {
        GetAttributes(m_path, m_directory, &m_type);
        return m_type != kNewPath;
    }
    return m_type == kDevicePath;
}

// ---- pieces ---------------------------------------------------------------------------------------------

/// Where the base name begins in the path string, which is there.
int CRmUiPathname::baseIndex() const
{
    return basenameIndex(*m_path, m_separator);
}

CString CRmUiPathname::basename() const
{
    return m_path && !IsEmpty() ? m_path->Mid(baseIndex()) : CString();
}

CString CRmUiPathname::extension() const
{
    const CString name = basename();
    const int period = name.ReverseFind(kPeriod);
    return period < 0 ? CString() : name.Mid(period + 1);
}

void CRmUiPathname::GetBasename(CString &out) const
{
    if (!IsEmpty())
        out = basename();
}

void CRmUiPathname::GetFilename(CString &out) const
{
    const CString name = basename();
    if (m_type == kWildcardPath || name.IsEmpty())
        return;
    const int period = name.ReverseFind(kPeriod);
    out = period < 0 ? name : name.Left(period);
}

void CRmUiPathname::GetExtension(CString &out) const
{
    if (basename().ReverseFind(kPeriod) >= 0)
        out = extension();
}

void CRmUiPathname::GetParent(CRmUiPathname &out) const
{
    if (!isEditable())
        return;
    out = *this;
    if (!out.m_path)
        return;
    out.m_type = kDirPath;
    out.TrimSlash();
    const int index = out.baseIndex();
    if (index > 0) {
        out.m_path->Truncate(index);
    } else if (out.m_directory) {
        ReleaseCStrPtr(&out.m_path);
        std::swap(out.m_path, out.m_directory);
        ParseRelPath(&out.m_path, out.m_separator, out.m_category);
    } else {
        out.Empty();
    }
}

bool CRmUiPathname::GetFullPath(CString &out) const
{
    if (IsEmpty())
        return false;
    CString path;
    if (IsPath() && m_category != kRootCategory && m_directory) {
        path = *m_directory;
        if (!endsWith(path, m_separator))
            path += m_separator;
    }
    if (m_path)
        path += *m_path;
    std::wstring normalized;
    const bool isNormal = platformServices()->fileSystemService()->normalizePath(path, normalized);
    out = isNormal ? CString(normalized) : path;
    return true;
}

bool CRmUiPathname::GetFullPath(wchar_t *buf) const
{
    if (!buf)
        return false;
    CString path;
    const bool isThere = GetFullPath(path);
    _tkxstrcpy(buf, path);
    return isThere;
}

void CRmUiPathname::GetFullUNCPath(CString &) const {}

void CRmUiPathname::GetDisplayName(CString &out, int maxLen) const
{
    constexpr int shortest = 12;
    constexpr int dots = 4; // with a separator before or behind them
    const CString path = isEditable() ? *m_path : CString(); // a copy: `out` may be the path string itself
    const int length = path.GetLength();
    out.Empty();
    const int room = maxLen == -1 ? length : std::max(maxLen, shortest);
    if (length <= room) {
        out = path;
        return;
    }
    const CString base = path.Mid(basenameIndex(path, m_separator));
    if (base.GetLength() > room) {
        const int period = base.ReverseFind(kPeriod);
        CString tail = period < 0 ? CString() : base.Mid(period + 1);
        if (tail.GetLength() + 3 > room)
            tail.Empty();
        out = base.Left(room - (tail.GetLength() + 2)) + L"~";
        if (!tail.IsEmpty())
            out += L"." + tail;
        return;
    }
    const bool hasVolume = m_category == kDriveCategory || m_category == kUNCCategory;
    const int prefixLength = hasVolume ? volumeNameLength() : 0;
    const int least = base.GetLength() + (hasVolume ? prefixLength + 5 : dots);
    int tail = std::min(prefixLength, length);
    if (least <= room) {
        while (tail < length && prefixLength + dots + (length - tail) > room) {
            do
                ++tail;
            while (tail < length && path[tail] != m_separator);
        }
    }
    if (least > room || tail >= length)
        out = base;
    else
        out = (hasVolume ? path.Left(prefixLength) + L"\\..." : CString(L"...")) + path.Mid(tail);
}

/// The length of the volume's name in the path string. Without a descriptor that is the drive with its colon.
int CRmUiPathname::volumeNameLength() const
{
    if (m_volume && m_volume->GetLocalName())
        return m_volume->GetLocalName()->GetLength();
    return m_category == kDriveCategory ? 2 : 0;
}

// ---- edits ----------------------------------------------------------------------------------------------

int CRmUiPathname::changed(int status)
{
    m_type = kNewPath;
    return status;
}

int CRmUiPathname::Trim()
{
    if (!isEditable())
        return NoPath;
    if (endsWith(*m_path, m_separator))
        return Done;
    int index = m_path->ReverseFind(m_separator);
    switch (m_category) {
    case kUNCCategory:
        if (index < 0)
            return NoComponent;
        if (index < volumeNameLength())
            return LeavesRoot;
        break;
    case kRelativeCategory:
        if (index < 0)
            return LeavesRoot;
        break;
    case kRootCategory:
        if (index < 0)
            return NoComponent;
        break;
    case kDriveCategory:
        if (index < 0)
            index = m_path->Find(kColon);
        if (index < 0)
            return NoComponent;
        break;
    }
    m_path->Truncate(index + 1);
    if (m_category == kDriveCategory && index == 1)
        *m_path += m_separator;
    return changed();
}

int CRmUiPathname::TrimSlash()
{
    if (!isEditable())
        return NoPath;
    if (!endsWith(*m_path, m_separator))
        return Done;
    const int remaining = m_path->GetLength() - 1;
    switch (m_category) {
    case kUNCCategory:
        if (remaining <= volumeNameLength())
            return LeavesRoot;
        break;
    case kRootCategory:
        if (remaining == 0)
            return LeavesRoot;
        break;
    case kDriveCategory:
        if (remaining == 2 && (*m_path)[1] == kColon)
            return LeavesRoot;
        break;
    case kRelativeCategory:
        break;
    default:
        return NoComponent;
    }
    m_path->Truncate(remaining);
    return changed();
}

int CRmUiPathname::TrimComponent()
{
    if (!isEditable())
        return NoPath;
    int index = m_path->ReverseFind(m_separator);
    switch (m_category) {
    case kUNCCategory:
        if (index < 0)
            return NoComponent;
        if (index < volumeNameLength())
            return LeavesRoot;
        break;
    case kDriveCategory:
        if (index < 0)
            index = m_path->Find(kColon) + 1;
        break;
    case kRootCategory:
        if (index < 0)
            return NoComponent;
        index = std::max(index, 1);
        break;
    case kRelativeCategory:
        if (index < 0)
            return LeavesRoot;
        break;
    }
    m_path->Truncate(index);
    if (m_category == kDriveCategory && index == 2)
        *m_path += m_separator;
    return changed();
}

int CRmUiPathname::Append(const wchar_t *s)
{
    if (!isEditable())
        return NoPath;
    *m_path += s;
    return changed();
}

int CRmUiPathname::AppendSlash()
{
    if (!isEditable())
        return NoPath;
    if (!m_path->IsEmpty() && !endsWith(*m_path, m_separator) && !endsWith(*m_path, kColon))
        *m_path += m_separator;
    return Done;
}

int CRmUiPathname::AppendComponent(const wchar_t *s)
{
    if (!isEditable())
        return NoPath;
    const CString component = s; // which may be the path string itself
    if (!endsWith(*m_path, m_separator))
        *m_path += m_separator;
    *m_path += component;
    return changed();
}

bool CRmUiPathname::VerifyExtension(const wchar_t *list) const
{
    const CString wanted = extension();
    const CString items = list;
    if (items.IsEmpty() || wanted.IsEmpty())
        return items.IsEmpty() && wanted.IsEmpty();
    int start = 0;
    for (;;) {
        const int end = items.Find(kListSeparator, start);
        if (items.Mid(start, (end < 0 ? items.GetLength() : end) - start).CompareNoCase(wanted) == 0)
            return true;
        if (end < 0)
            return false;
        start = end + 1;
    }
}

int CRmUiPathname::ReplaceExtensionAlways(const wchar_t *ext)
{
    if (!isEditable())
        return NoPath;
    if (!ext)
        return WrongArgument;
    const CString added = ext; // which may be part of the path string
    GetPathStrNoExt(&m_path, m_separator);
    if (!added.IsEmpty() && added.front() != kPeriod)
        *m_path += kPeriod;
    *m_path += added;
    return changed();
}

int CRmUiPathname::AddExtensionAlways(const wchar_t *ext)
{
    if (!ext)
        return WrongArgument;
    if (!isEditable())
        return NoPath;
    const CString added = ext; // which may be part of the path string
    if (!added.IsEmpty())
        *m_path += kPeriod + added;
    return changed();
}

int CRmUiPathname::ReplaceExtensionIfNoMatch(const wchar_t *list)
{
    if (VerifyExtension(list))
        return Done;
    CString ext;
    GetFirstExtInList(list, ext);
    return ReplaceExtensionAlways(ext);
}

int CRmUiPathname::AddExtensionIfNoMatch(const wchar_t *list)
{
    if (VerifyExtension(list))
        return Done;
    CString ext;
    GetFirstExtInList(list, ext);
    return AddExtensionAlways(ext);
}

int CRmUiPathname::RemoveExtensionAlways()
{
    if (!isEditable())
        return NoPath;
    GetPathStrNoExt(&m_path, m_separator);
    return changed();
}

int CRmUiPathname::RemoveExtensionIfMatch(const wchar_t *list)
{
    return VerifyExtension(list) ? RemoveExtensionAlways() : Done;
}

void CRmUiPathname::GetFirstExtInList(const wchar_t *list, CString &out) const
{
    const CString items = list;
    const int end = items.Find(kListSeparator);
    out = end < 0 ? items : items.Left(end);
}

void CRmUiPathname::lstrncpy_x(wchar_t *dst, const wchar_t *src, int n) const
{
    std::copy_n(src, std::max(n, 0), dst);
    dst[std::max(n, 0)] = kEOS;
}

void CRmUiPathname::RemoveSpaces()
{
    if (!m_path || m_path->IsEmpty() || *m_path == L"." || *m_path == L"..")
        return;
    const int index = baseIndex();
    const CString base = m_path->Mid(index);
    const int period = base.ReverseFind(kPeriod);
    CString name = period < 0 ? base : base.Left(period);
    StripSpaces(name);
    *m_path = m_path->Left(index) + name + (period < 0 ? CString() : base.Mid(period));
}

void CRmUiPathname::replaceBasename(const CString &basename)
{
    if (!basename.IsEmpty())
        *m_path = m_path->Left(baseIndex()) + basename;
}

void CRmUiPathname::BaseToLower()
{
    CString base = basename();
    KxErrorEat::strMakeLower(base);
    replaceBasename(base);
}

void CRmUiPathname::BaseToUpper()
{
    CString base = basename();
    KxErrorEat::strMakeUpper(base);
    replaceBasename(base);
}

// ---- comparing ------------------------------------------------------------------------------------------

bool CRmUiPathname::PathMatch(const CRmUiPathname *other) const
{
    if (!other)
        return false;
    if (other == this)
        return true;
    CString path;
    return m_volume == other->m_volume && other->GetFullPath(path) && PathMatch(path);
}

bool CRmUiPathname::PathMatch(const wchar_t *path) const
{
    CString own;
    if (!path || !GetFullPath(own))
        return false;
    CString other = path;
    upperPathFirstChar(other);
    const bool ownEnds = endsWith(own, m_separator);
    if (ownEnds != endsWith(other, m_separator))
        (ownEnds ? other : own) += m_separator;
    return own.CompareNoCase(other) == 0;
}

// ---- files ----------------------------------------------------------------------------------------------

bool CRmUiPathname::OpenReadOnly(void *&handle)
{
    CString path;
    handle = INVALID_HANDLE_VALUE;
    if (GetFullPath(path))
        handle = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                             FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    return handle != INVALID_HANDLE_VALUE;
}

bool CRmUiPathname::OpenWriteOnly(void *&handle)
{
    CString path;
    handle = INVALID_HANDLE_VALUE;
    if (GetFullPath(path))
        handle = CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                             FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    return handle != INVALID_HANDLE_VALUE;
}

bool CRmUiPathname::Open(std::FILE **, const wchar_t *)
{
    throw;
}

bool CRmUiPathname::Rename(const wchar_t *newName)
{
    if (!isEditable() || !newName)
        return false;
    const CString name = newName; // which may be part of the path string
    const CString before = m_directory ? currentDirectory() : CString();
    // In another directory than the one that is meant, the names would mean other files.
    if (m_directory && !m_directory->IsEmpty() && !SetCurrentDirectoryW(*m_directory))
        return false;
    const bool renamed = _wrename(*m_path, name) == 0;
    if (!before.IsEmpty())
        SetCurrentDirectoryW(before);
    if (renamed)
        *m_path = name;
    return renamed;
}

bool CRmUiPathname::Remove() { return false; }

bool CRmUiPathname::GetUniqueName(CRmUiPathname &out, bool always) const
{
    if (IsEmpty())
        return false;
    out = *this;
    if (!always && !out.Exists())
        return true;
    CString name;
    out.GetFilename(name);
    if (name.IsEmpty())
        name = L"kxTmp";
    const CString ext = out.extension();
    out.Trim();
    const int directoryLength = out.m_path ? out.m_path->GetLength() : 0;
    const int room = std::min(1019, longestPath - directoryLength) - ext.GetLength() - END_LEN - 1;
    if (room < 1) {
        out.Empty();
        return false;
    }
    name.Truncate(room);
    if (out.Append(name + CString(kZero, END_LEN) + (ext.IsEmpty() ? CString() : kPeriod + ext)) != Done) {
        out.Empty();
        return false;
    }
    const int digits = directoryLength + name.GetLength();
    for (int tries = 0; tries < TRIES; ++tries) {
        wchar_t number[END_LEN + 1];
        ::swprintf(number, L"%0*d", END_LEN, std::rand() % 100000);
        std::copy_n(number, END_LEN, out.m_path->begin() + digits);
        if (!out.Exists())
            return true;
    }
    out.Empty();
    return true;
}

// ---- volumes --------------------------------------------------------------------------------------------

const CRmUiVolumeDescriptor *CRmUiPathname::FindVolumeDescriptor(const CString &name) const
{
    if (name.IsEmpty())
        return nullptr;
    for (const CRmUiVolumeDescriptor *volume : qAsConst(volumeList)) {
        if (volume && volume->GetLocalName() && *volume->GetLocalName() == name)
            return volume;
    }
    return NewVolDescriptor(name);
}

const CRmUiVolumeDescriptor *CRmUiPathname::NewVolDescriptor(const CString &name) const
{
    CString volume = name;
    if (GetFileSystem(volume) != kNTFS)
        return nullptr;
    volumeList.append(new CRmUiNTFSVolumeDescriptor(name));
    return volumeList.last();
}

FS_TYPE CRmUiPathname::GetFileSystem(CString &vol) const
{
    if (vol.IsEmpty())
        return kNoFileSystem;
    if (!endsWith(vol, m_separator))
        vol += m_separator;
    FS_TYPE type = kUnknownFileSystem;
    wchar_t name[MAX_PATH] = L"";
    unsigned int maxComponent = 0;
    bool flag = false;
    if (GetVolumeInfo(vol, name, maxComponent, flag))
        GetDriveTypeByVol(name, type, maxComponent);
    return type;
}

// ---- free functions -------------------------------------------------------------------------------------

void ParseRelPath(CString **s, wchar_t sep, path_category &cat)
{
    CString &path = **s;
    classify(characterAt(path, 0), characterAt(path, 1), sep, cat, path);
}

int GetPathCatType(wchar_t first, wchar_t second, wchar_t sep, path_category &cat, CString *s,
                   const CRmUiPathname *base)
{
    classify(first, second, sep, cat, *s);
    if (cat != kDriveCategory && s->Find(kColon) >= 0)
        return 1;
    return cat == kRelativeCategory && (!base || !base->IsPath()) ? 1 : 0;
}

void GetWorkString(CString *s, wchar_t sep, wchar_t &last, wchar_t &first, wchar_t &second)
{
    s->Replace(kBackslash, sep);
    first = characterAt(*s, 0);
    second = characterAt(*s, 1);
    last = s->IsEmpty() ? kEOS : s->back();
}

void GetWorkPtrByIndex(path_category cat, CString *s, wchar_t sep, int index)
{
    if (cat == kUNCCategory && index >= s->GetLength())
        *s += sep;
}

void GetRelPath(path_category cat, const CString *root, CString **dir, const CRmUiPathname **base)
{
    if (cat == kRootCategory) {
        *dir = copyOf(root);
    } else if (cat == kRelativeCategory) {
        CString path;
        (*base)->GetFullPath(path);
        *dir = path.IsEmpty() ? nullptr : new CString(std::move(path));
    }
}

bool GetPathBuffer(CString **, bool, CString *, wchar_t, const CRmUiVolumeDescriptor **) { return true; }

void GetAttByPath(const CString **path, const CString **dir, path_type **type)
{
    DWORD attributes = INVALID_FILE_ATTRIBUTES;
    if (*dir) {
        CString name = **dir;
        if (!endsWith(name, kSlash))
            name += kSlash;
        if (*path)
            name += **path;
        attributes = GetFileAttributesW(name);
    }
    if (attributes == INVALID_FILE_ATTRIBUTES)
        **type = kNewPath;
    else
        **type = (attributes & 0xF000) == 0x4000 ? kDirPath : kFilePath;
}

bool IsPathType(CString s, path_type *type)
{
    if (s.Find(kAsterisk) < 0 && s.Find(kQuestionmark) < 0)
        return false;
    *type = kWildcardPath;
    return true;
}

void GetPathStrNoExt(CString **s, wchar_t sep)
{
    const int period = (*s)->ReverseFind(kPeriod);
    if (period > (*s)->ReverseFind(sep))
        (*s)->Truncate(period);
}

void upperPathFirstChar(CString &s)
{
    if (beginsWithDrive(characterAt(s, 0), characterAt(s, 1)))
        s[0] = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(s[0])));
}

void ReleaseCStrPtr(CString **p)
{
    ReleaseStringPtr(p);
}

bool GetVolumeInfo(CString &, wchar_t *, unsigned int &, bool &) { return false; }
void GetUNCScount(CString *, int *, unsigned int &, int &, wchar_t) {}
