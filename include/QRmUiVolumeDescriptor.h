// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxStdStr.h"

#include <QtCore/QList>

#include <cstdint>
#include <cstdio>

/// \file
/// Volume descriptors: what names a volume takes, and how they compare. QRmUiPathname.h uses them.
///
/// Nothing on this platform tells of a volume, so that path names come without a descriptor. A host makes one
/// itself to check names by: `CRmUiNTFSVolumeDescriptor(L"C:").ValidateFilename(&name, false)`.

// ---- characters of names --------------------------------------------------------------------------------

constexpr wchar_t kEOS = 0;
constexpr wchar_t kSpace = 32;
constexpr wchar_t kDoubleQuote = 34;
constexpr wchar_t kAsterisk = 42;
constexpr wchar_t kPeriod = 46;
constexpr wchar_t kSlash = 47;
constexpr wchar_t kZero = 48;
constexpr wchar_t kColon = 58;
constexpr wchar_t kQuestionmark = 63;
constexpr wchar_t kBackslash = 92;

// ---- descriptors ----------------------------------------------------------------------------------------

/// The kind of a file system; every other value is an unknown one.
enum FS_TYPE : std::uint32_t {
    kUnknownFileSystem = 0,
    kNoFileSystem = 1,
    kNTFS = 2,
    kFAT = 3,  ///< With short names.
    kVFAT = 4, ///< With long names.
    kHPFS = 5,
    kCDFS = 6,
    kNetworkFileSystem = 8
};

/// One volume. Strings that are handed out stay the descriptor's.
class KX_EXPORT CRmUiVolumeDescriptor
{
public:
    /// A volume of no known type with that local name, for example `C:`. It is valid, can be written, and
    /// compares without regard to case.
    explicit CRmUiVolumeDescriptor(const CString &name);
    virtual ~CRmUiVolumeDescriptor();
    CRmUiVolumeDescriptor(const CRmUiVolumeDescriptor &) = delete;
    CRmUiVolumeDescriptor &operator=(const CRmUiVolumeDescriptor &) = delete;

    virtual bool CheckReadOnly() const;
    /// Whether a path can be a name on this volume. An empty one can, null cannot. Pure; the one here says
    /// false.
    virtual bool ValidateFilename(const CString *name, bool wildcardsAllowed) const = 0;
    /// Whether a text can be one part of such a path. An empty one can, null cannot. Pure; the one here says
    /// false.
    virtual bool ValidateSegment(const CString *segment, bool wildcardsAllowed) const = 0;
    virtual bool IsCaseSensitive() const;
    /// \return true
    virtual bool PreservesCase() const;
    /// \return true
    virtual bool AllowsCaseSensitiveLookup() const;
    /// A hook: would bring a name to the volume's case. Does nothing here.
    virtual void VolCase(CString &name) const;
    /// Whether two names are the same on this volume; false when either is null.
    virtual bool VolMatch(const wchar_t *name, const CString *other) const;
    /// \copydoc VolMatch(const wchar_t *, const CString *) const
    virtual bool VolMatch(const CString *name, const CString *other) const;
    virtual const CString *GetLocalName() const;
    /// \return 0x7fffffff always
    virtual unsigned int GetVolFreeSpace() const;
    /// \return true
    virtual bool WillFit(unsigned int size) const;
    /// Whether the volume is still the one that was described; always, unless a derived class clears the
    /// flags.
    virtual bool VolumeValid() const;

    /// Asks for the connection of the volume, which cannot be told: what is kept is "GetConnectionName
    /// Failed".
    void GetConnectionName();
    /// The index of a character in a text, -1 when it is not there.
    int Find(const CString &set, unsigned int ch) const;
    /// \return false
    bool IsControl(int ch) const;

protected:
    enum Flag : std::uint8_t {
        validUnasked = 1 << 0,
        alsoValidUnasked = 1 << 4,
        readOnly = 1 << 5,
        caseSensitive = 1 << 6
    };

    /// Whether the characters of a name, up to its end, are all outside `forbidden` and no control
    /// characters.
    bool hasOnlyCharactersOutside(const CString &forbidden, const CString &name) const;

    FS_TYPE m_type = kUnknownFileSystem;
    std::uint8_t m_flags = validUnasked;
    CString *m_localName;                       ///< Owned.
    unsigned int m_maximumSegmentLength = 255;  ///< Characters.
    unsigned int m_maximumFilenameLength = 1023;
    wchar_t m_separator = kBackslash;
    std::uint8_t m_multiByte;                   ///< 0; nothing depends on it.
    std::uint32_t m_reserved = 0;
    CString *m_reservedName = nullptr;          ///< Owned.
    CString *m_connectionName = nullptr;        ///< Owned.
    const wchar_t *m_uncPrefix = L"\\\\";
};

/// Deletes the descriptors of volumeList at exit.
class KX_EXPORT CDelVolumeList
{
public:
    ~CDelVolumeList();
};

/// The volumes that path names have found, and that a host adds, made with `new`: volumelistdel deletes them
/// at exit. One that is taken out must not be used by any path name. Only for the thread that parses path
/// names.
extern KX_EXPORT QList<CRmUiVolumeDescriptor *> volumeList;
extern KX_EXPORT CDelVolumeList volumelistdel;

// ---- free functions -------------------------------------------------------------------------------------

/// Whether the colons of a name are right: none, or the last one behind a drive letter `ch`.
KX_EXPORT bool ValidateVolChar(const CString *name, int ch);
/// Gets the path without its first character.
KX_EXPORT void StringFromPath(CString &out, const CString *path);
/// Gets the type by the name of a file system; `type` stays when the name says nothing. FAT with components
/// of 12 characters has short names.
KX_EXPORT void GetDriveTypeByVol(const wchar_t *fsName, FS_TYPE &type, unsigned int maxComponent);
/// Writes the name of a type and a line end.
KX_EXPORT void dump_file_type(std::FILE **stream, FS_TYPE type, ...);
/// \return 0
KX_EXPORT unsigned char InitModeMultiByte();
/// Does nothing.
KX_EXPORT void InitVolumeChar(CString &s, char *out);
/// Does nothing.
KX_EXPORT void ParseVolumeStr(CString &s, char *out, unsigned int size);
/// Asks for a volume: fills nothing. \return true
KX_EXPORT bool GetVolumeInfo(CString root, wchar_t *fsName, CString *volumeName, int size,
                             unsigned int flags);
/// Deletes a string and makes the pointer null.
KX_EXPORT void ReleaseStringPtr(CString **p);
