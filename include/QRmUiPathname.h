// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxStdStr.h"
#include "QRmUiVolumeDescriptor.h"

#include <cstdint>
#include <cstdio>

/// \file
/// CRmUiPathname: a path in its pieces, and the functions that it is made of.

class CRmUiPathname;

/// What a path name names.
enum path_type : std::uint32_t {
    kNoPath = 0,       ///< Nothing: the object is empty.
    kNewPath = 1,      ///< Something that is not there, or that was edited and not looked for since; every path
                       ///< with a drive letter.
    kWildcardPath = 2, ///< The base name has `*` or `?`.
    kFilePath = 3,     ///< Something there that is no directory.
    kDirPath = 4,
    kDevicePath = 5    ///< Never here.
};

/// How a path begins.
enum path_category : std::uint32_t {
    kDriveCategory = 0,   ///< With a letter and a colon.
    kUNCCategory = 1,     ///< With two separators.
    kRootCategory = 2,    ///< With one separator.
    kRelativeCategory = 3 ///< Otherwise; it needs a base directory.
};

/// A path of a file or directory, as the user typed it or as the program edits it.
///
/// Parse() takes blanks around the path, double quotes around it, and both slashes; the path string then has
/// the separator only, `/`. A drive letter becomes a capital. UNC paths and second colons are refused. The
/// disk is asked for the type when a path is parsed and by Exists(); an edit makes the type kNewPath.
///
/// Status results: 0 done; 1 wrong argument, or no path in it; 2 this object is not a path; 3 the edit would
/// leave the root; 4 there is no component to take. A failed edit changes nothing.
///
/// The *base name* is what follows the last separator or, without one, the last colon. The *extension* is
/// what follows its last period, without that.
///
/// Not to be deleted through a pointer to a base: the destructor is not virtual.
class KX_EXPORT CRmUiPathname
{
public:
    /// Empty.
    CRmUiPathname() = default;
    CRmUiPathname(const CRmUiPathname &other);
    ~CRmUiPathname();
    CRmUiPathname &operator=(const CRmUiPathname &other);

    // ---- parsing

    /// Parses a path against the current directory, which is read as a path itself: with a colon in it
    /// nothing can be parsed, and blanks at its end get lost. Without one only absolute paths can. The flag
    /// means nothing. \return a status; 4 when the current directory cannot be parsed, and this object is
    /// what it was then, as it is for null
    virtual int Parse(const wchar_t *path, bool flag = false);
    /// Becomes a copy; what operator= calls.
    virtual void AssignCopy(const CRmUiPathname &other);
    /// Parses a path against a directory, which only a relative path needs and may be null otherwise; it must
    /// be another object. The flag means nothing. On failure this object is empty, except that null leaves it
    /// alone.
    int ParseRelative(const wchar_t *path, const CRmUiPathname *base, bool flag = false);
    KX_INERT("returns 1; parse with Parse()")
    int ParseAndOSFind(const wchar_t *path);
    /// \return false: nothing here is a device
    bool IsDeviceName(const CString &name) const;
    /// Looks what a path is: kNewPath, kWildcardPath, kFilePath or kDirPath.
    void GetAttributes(const CString *path, const CString *dir, path_type *type);
    /// Takes blanks and then double quotes off both ends; without the quotes the text stays as it is.
    void Unquote(CString &s);
    /// Takes blanks off both ends.
    void StripSpaces(CString &s);
    /// 0 for an empty text.
    wchar_t GetLastCharacter(const CString &s);

    // ---- what it is

    path_type GetPathType() const { return m_type; }
    /// Whether it is anything but empty or a device.
    bool IsPath() const { return m_type >= kNewPath && m_type <= kDirPath; }
    bool IsEmpty() const { return m_type == kNoPath; }
    void Empty();
    wchar_t GetSeparator() const { return m_separator; }
    /// The path as it is kept, null when empty; valid until the object changes.
    const wchar_t *GetPathString() const;
    /// Looks whether it is there, which updates the type. False for an empty object, for wildcards and for
    /// paths with a drive letter; a path that got its wildcards by an edit is found out as such, and there,
    /// once.
    bool Exists();

    // ---- pieces; where it says so, `out` is left alone

    /// Leaves `out` alone when empty.
    void GetBasename(CString &out) const;
    /// The base name without its extension. Leaves `out` alone when empty, for wildcards and for no base
    /// name.
    void GetFilename(CString &out) const;
    /// Leaves `out` alone when there is no extension: pass an empty string.
    void GetExtension(CString &out) const;
    /// Makes `out`, which may be this object, the directory that this is in, with the separator or colon at
    /// its end. Of a name alone that is the base directory as it was parsed; empty when there is none. The
    /// type is kDirPath, or kNewPath where a separator at the end had to be dropped. Leaves `out` alone when
    /// this is not a path.
    void GetParent(CRmUiPathname &out) const;
    /// The whole path, with its base directory, normalised. \return false when empty, and `out` is left alone
    bool GetFullPath(CString &out) const;
    /// The same into a buffer, which must have the room. \return false when empty, which clears the text, and
    /// for null
    bool GetFullPath(wchar_t *buf) const;
    KX_INERT("does nothing; there are no UNC paths")
    void GetFullUNCPath(CString &out) const;
    /// The path string, shortened to `maxLen` characters, less than 12 counting as 12; -1 shortens nothing.
    /// What is left out is told by "..." behind which a separator stands, by "\..." behind a drive, and
    /// within a base name by "~". Empty when this is not a path.
    void GetDisplayName(CString &out, int maxLen) const;

    // ---- edits; the numbers are a status. Where nothing else is said the type becomes kNewPath

    /// Drops the last component and keeps the separator before it; nothing happens when a separator is last.
    int Trim();
    /// Drops a separator at the end, if there is one; not that of the root.
    int TrimSlash();
    /// Drops the last component and the separator before it, but not that of the root.
    int TrimComponent();
    /// Appends text as it is.
    int Append(const wchar_t *s);
    /// Appends a separator, unless there is one, or a colon, or nothing at all. The type stays.
    int AppendSlash();
    /// Appends a separator, unless there is one, and a component, unless it is null.
    int AppendComponent(const wchar_t *s);
    /// Replaces the extension; an empty one removes it. It may begin with its period.
    int ReplaceExtensionAlways(const wchar_t *ext);
    /// Appends a period and the extension; nothing for an empty one.
    int AddExtensionAlways(const wchar_t *ext);
    /// The same with the first extension of a list, unless VerifyExtension() accepts the one that is there.
    int ReplaceExtensionIfNoMatch(const wchar_t *list);
    int AddExtensionIfNoMatch(const wchar_t *list);
    int RemoveExtensionAlways();
    /// The same when VerifyExtension() accepts the extension.
    int RemoveExtensionIfMatch(const wchar_t *list);
    /// Takes blanks off both ends of the base name without its extension. The type stays.
    void RemoveSpaces();
    /// Change the case of the base name. The type stays.
    void BaseToLower();
    void BaseToUpper();

    /// Whether the extension is one of a list `dwg;dxf`, without regard to case; an empty list is for no
    /// extension.
    bool VerifyExtension(const wchar_t *list) const;
    /// The first extension of such a list.
    void GetFirstExtInList(const wchar_t *list, CString &out) const;
    /// Copies just `n` characters, which `src` must have, and writes a zero behind them; below 0 counts as 0.
    void lstrncpy_x(wchar_t *dst, const wchar_t *src, int n) const;

    // ---- comparing

    /// Whether both are the same path on the same volume, without regard to case; false for null.
    bool PathMatch(const CRmUiPathname *other) const;
    /// Whether this full path is that text, without regard to case, to that of its drive letter and to a
    /// separator at its end; false for null.
    bool PathMatch(const wchar_t *path) const;

    // ---- files

    /// Opens the file for reading, as CreateFileW(); CloseHandle() closes it, and CFile(HANDLE) reads it.
    /// \return whether `handle` is one, -1 otherwise
    bool OpenReadOnly(void *&handle);
    /// Creates or empties the file for writing, as CreateFileW(). \return whether `handle` is one, -1
    /// otherwise
    bool OpenWriteOnly(void *&handle);
    /// Not supported: raises the exception in flight again, and ends the program where there is none.
    bool Open(std::FILE **file, const wchar_t *mode);
    /// Renames the file. Both names are relative to the base directory, so that a new name alone moves a file
    /// out of the directories of a longer path: for a rooted path give a full path. An existing `newName` is
    /// a failure. The path string becomes `newName`, the type stays. \return whether it succeeded
    bool Rename(const wchar_t *newName);
    KX_INERT("returns false and removes nothing; use DeleteFile()")
    bool Remove();
    /// Makes `out`, which may be this object, a name that is not there yet, in the same directory: the file
    /// name ("kxTmp" for none), five random digits of rand(), the extension. Of a path that is a name alone
    /// nothing is dropped first, so give it its directory. Without `always`, this name itself when it is not
    /// there. \return true, with `out` empty when 200 tries found nothing; false, with `out` empty, when it
    /// would grow longer than 1023 characters; false for an empty object
    bool GetUniqueName(CRmUiPathname &out, bool always) const;

    // ---- volumes

    /// The descriptor with that local name, looked for in volumeList and then made; null when there is none.
    const CRmUiVolumeDescriptor *FindVolumeDescriptor(const CString &name) const;
    /// Makes the descriptor of a volume with a file system that is known, and puts it into volumeList; else
    /// null.
    const CRmUiVolumeDescriptor *NewVolDescriptor(const CString &name) const;
    /// The file system of a volume, whose name gets a separator at its end.
    FS_TYPE GetFileSystem(CString &vol) const;

protected:
    path_type m_type = kNoPath;
    const CRmUiVolumeDescriptor *m_volume = nullptr; ///< Not owned.
    CString *m_path = nullptr;                       ///< Owned.
    CString *m_directory = nullptr;                  ///< Owned; the base directory.
    path_category m_category = kRelativeCategory;
    wchar_t m_separator = kSlash;
    bool m_qualified = false; ///< Whether the text parsed had a separator or a colon.

private:
    bool isEditable() const { return IsPath() && m_path; }
    int take(const wchar_t *path, const CRmUiPathname *base);
    int changed(int status = 0);
    int volumeNameLength() const;
    int baseIndex() const;
    CString basename() const;
    CString extension() const;
    void replaceBasename(const CString &basename);
};

// ---- free functions -------------------------------------------------------------------------------------

/// Tells the category of a path by how it begins, and makes a drive letter a capital; a relative one leaves
/// `cat`.
KX_EXPORT void ParseRelPath(CString **s, wchar_t sep, path_category &cat);
/// The same, with the first two characters given. \return 1 for a colon outside the drive form, and for a
/// relative path without a base that is a path; otherwise 0
KX_EXPORT int GetPathCatType(wchar_t first, wchar_t second, wchar_t sep, path_category &cat, CString *s,
                             const CRmUiPathname *base);
/// Makes every backslash the separator and gets the last, first and second character, 0 where there is none.
KX_EXPORT void GetWorkString(CString *s, wchar_t sep, wchar_t &last, wchar_t &first, wchar_t &second);
/// Appends the separator to a UNC path of which nothing follows `index`.
KX_EXPORT void GetWorkPtrByIndex(path_category cat, CString *s, wchar_t sep, int index);
/// Makes the base directory of a path, the caller's to delete: a copy of `root` for a rooted one, the full
/// path of `base` for a relative one. What `*dir` was is overwritten.
KX_EXPORT void GetRelPath(path_category cat, const CString *root, CString **dir, const CRmUiPathname **base);
/// \return true
KX_EXPORT bool GetPathBuffer(CString **dir, bool flag, CString *s, wchar_t sep,
                             const CRmUiVolumeDescriptor **vol);
/// Asks the disk what a path is; kNewPath without a base directory, which may be an empty text.
KX_EXPORT void GetAttByPath(const CString **path, const CString **dir, path_type **type);
/// Whether a base name has wildcards; `*type` becomes kWildcardPath then.
KX_EXPORT bool IsPathType(CString s, path_type *type);
/// Cuts the extension off.
KX_EXPORT void GetPathStrNoExt(CString **s, wchar_t sep);
/// Makes a drive letter a capital.
KX_EXPORT void upperPathFirstChar(CString &s);
/// Deletes a string and makes the pointer null.
KX_EXPORT void ReleaseCStrPtr(CString **p);
/// Does nothing. \return false
KX_EXPORT bool GetVolumeInfo(CString &root, wchar_t *fsName, unsigned int &maxComponent, bool &flag);
/// Does nothing.
KX_EXPORT void GetUNCScount(CString *s, int *index, unsigned int &count, int &length, wchar_t sep);
