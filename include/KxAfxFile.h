// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfx.h"
#include "KxExport.h"
#include "KxStdStr.h"
#include "KxWinMemory.h"
#include "KxWinTypes.h"

#include <ctime>

/// \file
/// Files as MFC gives them, on QFile, QFileInfo and QTextStream: CFile, CStdioFile, CMemFile, CSharedFile,
/// CFileFind, CFileStatus and CTime.
///
/// Nothing here throws: a failure is told by the result, and CFileException objects are never made or filled.
/// A call on a file that is not open gives what Qt gives for it, with Qt's warning on the log.
///
/// Names are read as QString::fromWCharArray() reads them, `/` separates their parts; null is the empty name.

struct CFileStatus;
class CFileImpl;
class CStdioFileImpl;

/// The base of MFC's exceptions, for source that catches a pointer to one; nothing here throws any.
class CException : public CObject
{
public:
    virtual ~CException() = default;

    /// Has no message to tell. \return FALSE
    virtual BOOL GetErrorMessage(wchar_t *, unsigned int, unsigned int * = nullptr) const { return FALSE; }
    /// Deletes the object, which was made with `new`.
    void Delete() { delete this; }
};

/// Why a file could not be used; CFileException of MFC. It is there for source that hands one to CFile::Open()
/// or catches it: nothing here throws or fills one, so that the cause stays none.
class CFileException : public CException
{
public:
    /// The values of m_cause.
    enum {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int cause = none, LONG lOsError = -1, const wchar_t *lpszFileName = nullptr)
        : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszFileName)
    {
    }

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;
};

/// A point in time, in seconds since the start of 1970 (UTC); CTime of MFC, or what of it the files need.
class KX_EXPORT CTime
{
public:
    /// The point 0.
    CTime() = default;
    CTime(std::time_t time) : m_time(time) {}
    /// A local date and time: months and days count from 1. `nDST` is 1 for summer time, 0 for winter time,
    /// below 0 where the rules of the time zone decide. Numbers out of range carry over, as with mktime();
    /// what it cannot tell is -1.
    CTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST = -1);

    static CTime GetCurrentTime() { return std::time(nullptr); }

    std::time_t GetTime() const { return m_time; }
    /// The local date and time as wcsftime() writes it, at most 255 characters; empty where it writes
    /// nothing.
    CString Format(const wchar_t *pszFormat) const;

    bool operator==(CTime time) const { return m_time == time.m_time; }
    bool operator!=(CTime time) const { return m_time != time.m_time; }
    bool operator<(CTime time) const { return m_time < time.m_time; }
    bool operator>(CTime time) const { return m_time > time.m_time; }
    bool operator<=(CTime time) const { return m_time <= time.m_time; }
    bool operator>=(CTime time) const { return m_time >= time.m_time; }

private:
    std::time_t m_time = 0;
};

// CMemFile::Read() and CSharedFile::Write() hide the base's on purpose.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"

/// A file of bytes; CFile of MFC.
///
/// It is closed (m_hFile is hFileNull) after construction without a name, after a failed Open() and after
/// Close(); destruction closes it. A file object cannot be copied.
class KX_EXPORT CFile : public CObject
{
public:
    /// How to open: one of the first three and any of the rest, of which only typeText counts. The file is
    /// never locked, and what is created is decided by modeWrite and modeReadWrite alone.
    enum OpenFlags {
        modeRead = 0x0000,       ///< Reads a file that exists.
        modeWrite = 0x0001,      ///< Writes; a missing file is created and an existing one always emptied.
        modeReadWrite = 0x0002,  ///< Reads and writes; a missing file is created, an existing one kept.
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeText = 0x4000,       ///< Line ends are read as `\n`, as QIODevice::Text does.
        typeBinary = 0x8000,
        osNoBuffer = 0x10000,
        osWriteThrough = 0x20000,
        osRandomAccess = 0x40000,
        osSequentialScan = 0x80000
    };

    /// The origins of Seek().
    enum SeekPosition { begin = 0, current = 1, end = 2 };

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow" // `system`, as the function
    /// CFileStatus::m_attribute; only the first three are given.
    enum Attribute {
        normal = 0x00,
        readOnly = 0x01,
        hidden = 0x02,
        system = 0x04,
        volume = 0x08,
        directory = 0x10,
        archive = 0x20
    };
#pragma GCC diagnostic pop

    /// m_hFile of a file that is not open: -1.
    static const HANDLE hFileNull;

    /// The file descriptor after Open(), which is no handle for CFile(HANDLE); the handle given to that; or
    /// hFileNull.
    HANDLE m_hFile;

    CFile();
    /// Works on a `FILE *`, such as CreateFileW() gives; it stays the caller's and is not closed with this
    /// object. Null and INVALID_HANDLE_VALUE give a file that is not open, with that as m_hFile.
    explicit CFile(HANDLE hFile);
    /// Opens the file; whether that succeeded is told by m_hFile alone.
    CFile(const wchar_t *lpszFileName, unsigned int nOpenFlags);
    virtual ~CFile();
    CFile(const CFile &) = delete;
    CFile &operator=(const CFile &) = delete;

    /// Opens a file after closing the one that is open. Directories cannot be opened. \return whether it is
    /// open
    virtual bool Open(const wchar_t *lpszFileName, unsigned int nOpenFlags, CFileException *pError = nullptr);
    /// The size in bytes.
    virtual ULONGLONG GetLength() const;
    /// Bytes from the start of the file.
    virtual ULONGLONG GetPosition() const;
    /// Moves to `lOff` bytes from the start of the file: `nFrom` is no origin here, it only has to be a
    /// position that can be reached. To move relative to the position or the end, add GetPosition() or
    /// GetLength().
    /// \return the position where it is then
    virtual ULONGLONG Seek(LONGLONG lOff, unsigned int nFrom);
    /// Reads up to `nCount` bytes. \return how many there were; 0xFFFFFFFF on failure
    virtual unsigned int Read(void *lpBuf, unsigned int nCount);
    /// Writes through a buffer. A failure is not told: compare GetLength() after Flush() where it matters.
    virtual void Write(const void *lpBuf, unsigned int nCount);
    virtual void SeekToBegin();
    /// Writes out what is buffered. Without an open file nothing happens but m_hFile.
    virtual void Close();
    /// Writes out what is buffered.
    virtual void Flush();

    /// As DeleteFileW(). \return false on failure
    static bool Remove(const wchar_t *lpszFileName);
    /// What is known of a file. \return false when there is none; `rStatus` is left alone then
    static bool GetStatus(const wchar_t *lpszFileName, CFileStatus &rStatus);
    /// What is known now of the file that was last named to Open().
    bool GetStatus(CFileStatus &rStatus) const;

protected:
    /// The private part; the QFile is its first member.
    CFileImpl *implement() const { return m_pImpl; }

private:
    CFileImpl *m_pImpl;
};

/// What CFile::GetStatus() tells of a file; times are local ones through CTime.
struct CFileStatus
{
    CTime m_ctime;                ///< Creation, or the nearest to it that the file system knows.
    CTime m_mtime;                ///< Last modification.
    CTime m_atime;                ///< Last reading.
    ULONGLONG m_size;             ///< Bytes.
    BYTE m_attribute;             ///< CFile::readOnly, otherwise CFile::hidden, otherwise CFile::normal.
    wchar_t m_szFullName[1024];   ///< The absolute path, cut to what there is room for.
};

/// A text file; CStdioFile of MFC. Text is encoded as the locale says (QTextStream's default codec), and
/// CR-LF ends a line as LF does.
///
/// The text calls work between a successful Open() of this class and Close(). Seek(), GetPosition(), Read()
/// and Write() of the base work on the bytes below the text, past the text's buffers: do not mix them with
/// the text calls, and to read again close and open.
class KX_EXPORT CStdioFile : public CFile
{
public:
    CStdioFile();
    /// Opens the bytes only: to read or write text, call Open().
    CStdioFile(const wchar_t *lpszFileName, unsigned int nOpenFlags);
    ~CStdioFile() override;

    bool Open(const wchar_t *lpszFileName, unsigned int nOpenFlags,
              CFileException *pError = nullptr) override;
    void Close() override;
    /// Writes out the text, and what Write() left in the file's buffer.
    void Flush() override;

    /// Writes text as it is; no line end is added. Null writes nothing.
    virtual void WriteString(const wchar_t *lpsz);
    /// Reads a line without its end. `nMax` is not looked at: the buffer must hold the longest line there is
    /// and a zero. \return `lpsz`, at the end of the file too, where the line is empty; MFC returns null
    /// there
    virtual wchar_t *ReadString(wchar_t *lpsz, unsigned int nMax);
    /// Reads a line of any length without its end. \return true always, at the end of the file too, where the
    /// line is empty; MFC returns FALSE there. Know the end by other means, such as a count or a last line of
    /// the file's own.
    virtual bool ReadString(CString &rString);

private:
    CStdioFileImpl *m_pStream;
};

/// Bytes in the caller's memory, to be read; CMemFile of MFC, of which it is a small part.
///
/// Through a `CFile *` it is a file that is not open: Read() of this class is another function than the
/// base's.
class KX_EXPORT CMemFile : public CFile
{
public:
    /// The buffer is not owned and must stay until the object goes.
    CMemFile(unsigned char *lpBuffer, unsigned int nBufferSize);
    ~CMemFile() override;

    /// Copies the first bytes of the buffer, as many as there are and are asked for; every call begins at the
    /// first byte. \return nothing of use, where MFC returns the number of bytes
    unsigned int Read(unsigned char *lpBuf, unsigned int nCount);
    /// Returns null; the buffer is the caller's anyway.
    unsigned char *Detach();

protected:
    unsigned char *m_lpBuffer;
    unsigned int m_nBufferSize;
};

/// One block of bytes on its way into global memory, as the clipboard wants it; CSharedFile of MFC, of which
/// it is a small part.
class KX_EXPORT CSharedFile : public CMemFile
{
public:
    /// The flags are not looked at.
    explicit CSharedFile(int nAllocFlags = GMEM_DDESHARE | GMEM_MOVEABLE);
    /// Frees the block, unless it was detached.
    ~CSharedFile() override;

    /// Replaces the contents with a copy of these bytes, or with none where there is no memory for it. MFC
    /// adds them at the position.
    void Write(unsigned char *lpBuf, unsigned int nCount);
    /// Hands the contents over as global memory, to be freed with GlobalFree(); this object keeps none.
    HGLOBAL Detach();

protected:
    LONGLONG m_hGlobalMemory = 0; ///< Never used.
};

#pragma GCC diagnostic pop

/// Asks whether a file exists. CFileFind of MFC lists directories; here there is no search and no next file.
/// To be deleted only through its own type.
class KX_EXPORT CFileFind
{
public:
    /// Whether a file or directory of just this name exists: `*` and `?` are ordinary characters.
    virtual bool FindFile(const wchar_t *pstrName = nullptr, unsigned int dwUnused = 0);
};
