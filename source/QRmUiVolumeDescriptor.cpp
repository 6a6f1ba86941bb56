// SPDX-License-Identifier: MIT
#include "QRmUiVolumeDescriptor.h"

#include "KxWinString.h"

#include <cwchar>
#include <cwctype>

CRmUiVolumeDescriptor::CRmUiVolumeDescriptor(const CString &name)
    : m_localName(new CString(name))
    , m_multiByte(InitModeMultiByte())
{
}

CRmUiVolumeDescriptor::~CRmUiVolumeDescriptor()
{
    ReleaseStringPtr(&m_localName);
    ReleaseStringPtr(&m_reservedName);
    ReleaseStringPtr(&m_connectionName);
}

bool CRmUiVolumeDescriptor::CheckReadOnly() const
{
    return m_flags & readOnly;
}

// Pure, and here for a derived class to call: without rules of its own no name is good.
bool CRmUiVolumeDescriptor::ValidateFilename(const CString *, bool) const { return false; }
bool CRmUiVolumeDescriptor::ValidateSegment(const CString *, bool) const { return false; }

bool CRmUiVolumeDescriptor::IsCaseSensitive() const
{
    return m_flags & caseSensitive;
}

bool CRmUiVolumeDescriptor::PreservesCase() const { return true; }
bool CRmUiVolumeDescriptor::AllowsCaseSensitiveLookup() const { return true; }
void CRmUiVolumeDescriptor::VolCase(CString &) const {}

bool CRmUiVolumeDescriptor::VolMatch(const wchar_t *name, const CString *other) const
{
    if (!name || !other)
        return false;
    return (IsCaseSensitive() ? other->Compare(name) : other->CompareNoCase(name)) == 0;
}

bool CRmUiVolumeDescriptor::VolMatch(const CString *name, const CString *other) const
{
    return name && CRmUiVolumeDescriptor::VolMatch(name->GetString(), other);
}

const CString *CRmUiVolumeDescriptor::GetLocalName() const
{
    return m_localName;
}

unsigned int CRmUiVolumeDescriptor::GetVolFreeSpace() const { return 0x7fffffff; }
bool CRmUiVolumeDescriptor::WillFit(unsigned int) const { return true; }

bool CRmUiVolumeDescriptor::VolumeValid() const
{
    if (m_flags & (validUnasked | alsoValidUnasked))
        return true;
    if (!m_localName || m_localName->IsEmpty())
        return false;
    CString root = *m_localName;
    if (root.back() != kBackslash)
        root += kBackslash;
    wchar_t name[256] = L"nofilesystem";
    if (!GetVolumeInfo(root, name, nullptr, 0, 0))
        return false;
    const CString fileSystem = name;
    switch (m_type) {
    case kNTFS:
        return fileSystem == L"NTFS";
    case kFAT:
    case kVFAT:
        return fileSystem == L"FAT";
    case kHPFS:
        return fileSystem == L"HPFS";
    case kCDFS:
        return fileSystem == L"CDFS";
    case kNetworkFileSystem:
        return fileSystem.Find(L"NFS") < 0; // A network volume is valid when the name does not say so.
    default:
        return false;
    }
}

void CRmUiVolumeDescriptor::GetConnectionName()
{
    ReleaseStringPtr(&m_connectionName);
    m_connectionName = new CString(L"GetConnectionName Failed");
}

int CRmUiVolumeDescriptor::Find(const CString &set, unsigned int ch) const
{
    return set.Find(static_cast<wchar_t>(ch));
}

bool CRmUiVolumeDescriptor::IsControl(int) const { return false; }

bool CRmUiVolumeDescriptor::hasOnlyCharactersOutside(const CString &forbidden, const CString &name) const
{
    for (const wchar_t *at = name; *at != kEOS; at = _wcsinc(at)) {
        const unsigned int character = _wcsnextc(at);
        if (Find(forbidden, character) >= 0 || IsControl(static_cast<int>(character)))
            return false;
    }
    return true;
}

// ---- free functions -------------------------------------------------------------------------------------

bool ValidateVolChar(const CString *name, int ch)
{
    const int colon = name ? name->ReverseFind(kColon) : -1;
    return colon < 0 || (colon == 1 && std::iswalpha(static_cast<std::wint_t>(ch)));
}

void StringFromPath(CString &out, const CString *path)
{
    out = path ? path->Mid(1) : CString();
}

void GetDriveTypeByVol(const wchar_t *fsName, FS_TYPE &type, unsigned int maxComponent)
{
    constexpr unsigned int shortNameLength = 12;
    const CString name = fsName;
    if (name == L"NTFS")
        type = kNTFS;
    else if (name == L"FAT")
        type = maxComponent == shortNameLength ? kFAT : kVFAT;
    else if (name == L"HPFS")
        type = kHPFS;
    else if (name == L"CDFS")
        type = kCDFS;
    else if (name.Find(L"NFS") >= 0)
        type = kNetworkFileSystem;
}

namespace {

const wchar_t *textOf(FS_TYPE type)
{
    switch (type) {
    case kNoFileSystem:
        return L"NOFS\n";
    case kNTFS:
        return L"NTFS\n";
    case kFAT:
        return L"FAT\n";
    case kVFAT:
        return L"VFAT\n";
    case kHPFS:
        return L"HPFS\n";
    case kCDFS:
        return L"CDFS\n";
    case kNetworkFileSystem:
        return L"UFS\n";
    default:
        return L"???\n";
    }
}

} // namespace

void dump_file_type(std::FILE **stream, FS_TYPE type, ...)
{
    // No text has a conversion, so there is nothing that the arguments could say.
    if (stream && *stream)
        std::fputws(textOf(type), *stream);
}

unsigned char InitModeMultiByte() { return 0; }
void InitVolumeChar(CString &, char *) {}
void ParseVolumeStr(CString &, char *, unsigned int) {}
bool GetVolumeInfo(CString, wchar_t *, CString *, int, unsigned int) { return true; }

void ReleaseStringPtr(CString **p)
{
    delete *p;
    *p = nullptr;
}
