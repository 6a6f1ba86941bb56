// SPDX-License-Identifier: MIT
#include "KxAfxFile.h"

#include "KxText_p.h"
#include "KxWinFile.h"

#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTextStream>

#include <algorithm>
#include <cstdlib>
#include <cstring>

class CFileImpl
{
public:
    QFile file; // first: whoever is given the private part may take it for the QFile
    QFileInfo info;
};

class CStdioFileImpl
{
public:
    QTextStream stream;
    QString line; // a line's memory serves the next one
};

// ---- CTime --------------------------------------------------------------------------------------------

CTime::CTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec, int nDST)
{
    std::tm local = {};
    local.tm_sec = nSec;
    local.tm_min = nMin;
    local.tm_hour = nHour;
    local.tm_mday = nDay;
    local.tm_mon = nMonth - 1;
    local.tm_year = nYear - 1900;
    local.tm_isdst = nDST;
    m_time = std::mktime(&local);
}

CString CTime::Format(const wchar_t *pszFormat) const
{
    std::tm local = {};
    wchar_t text[256];
    if (!pszFormat || !localtime_r(&m_time, &local))
        return CString();
    return CString(text, static_cast<int>(std::wcsftime(text, std::size(text), pszFormat, &local)));
}

// ---- CFile --------------------------------------------------------------------------------------------

namespace {

HANDLE handleFromDescriptor(int descriptor)
{
    return reinterpret_cast<HANDLE>(static_cast<INT_PTR>(descriptor));
}

QIODevice::OpenMode openMode(unsigned int flags)
{
    QIODevice::OpenMode mode = flags & CFile::modeWrite ? QIODevice::WriteOnly : QIODevice::ReadOnly;
    if (flags & CFile::modeReadWrite)
        mode |= QIODevice::ReadWrite;
    if (flags & CFile::typeText)
        mode |= QIODevice::Text;
    return mode;
}

CTime localTime(const QDateTime &when)
{
    const QDate date = when.date();
    const QTime time = when.time();
    return CTime(date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second(), -1);
}

BYTE attributeOf(const QFileInfo &info)
{
    if (info.isReadable() && !info.isWritable())
        return CFile::readOnly;
    return info.isHidden() ? CFile::hidden : CFile::normal;
}

bool GetFileStatus(const QFileInfo &info, CFileStatus &status)
{
    if (!info.exists())
        return false;
    std::fill(std::begin(status.m_szFullName), std::end(status.m_szFullName), L'\0');
    const std::wstring path = info.absoluteFilePath().toStdWString();
    path.copy(status.m_szFullName, std::size(status.m_szFullName) - 1);
    status.m_size = static_cast<ULONGLONG>(info.size());
    status.m_attribute = attributeOf(info);
    status.m_mtime = localTime(info.lastModified());
    status.m_ctime = localTime(info.birthTime().isValid() ? info.birthTime() : info.metadataChangeTime());
    status.m_atime = localTime(info.lastRead());
    return true;
}

} // namespace

const HANDLE CFile::hFileNull = handleFromDescriptor(-1);

CFile::CFile() : m_hFile(hFileNull), m_pImpl(new CFileImpl) {}

CFile::CFile(HANDLE hFile) : m_hFile(hFile), m_pImpl(new CFileImpl)
{
    if (hFile && hFile != hFileNull)
        m_pImpl->file.open(static_cast<std::FILE *>(hFile), QIODevice::ReadWrite,
                           QFileDevice::DontCloseHandle);
    m_pImpl->info.setFile(m_pImpl->file);
}

CFile::CFile(const wchar_t *lpszFileName, unsigned int nOpenFlags) : CFile()
{
    CFile::Open(lpszFileName, nOpenFlags);
}

CFile::~CFile()
{
    CFile::Close();
    delete m_pImpl;
}

bool CFile::Open(const wchar_t *lpszFileName, unsigned int nOpenFlags, CFileException *)
{
    QFile &file = m_pImpl->file;
    const QString name = toQString(lpszFileName);
    CFile::Close();
    file.setFileName(name);
    m_pImpl->info.setFile(name);
    const bool opened = file.open(openMode(nOpenFlags));
    if (opened)
        m_hFile = handleFromDescriptor(file.handle());
    return opened;
}

ULONGLONG CFile::GetLength() const
{
    return static_cast<ULONGLONG>(m_pImpl->file.size());
}

ULONGLONG CFile::GetPosition() const
{
    return static_cast<ULONGLONG>(m_pImpl->file.pos());
}

ULONGLONG CFile::Seek(LONGLONG lOff, unsigned int nFrom)
{
    QFile &file = m_pImpl->file;
    if (file.seek(nFrom))
        file.seek(lOff);
    return static_cast<ULONGLONG>(file.pos());
}

unsigned int CFile::Read(void *lpBuf, unsigned int nCount)
{
    return static_cast<unsigned int>(m_pImpl->file.read(static_cast<char *>(lpBuf), nCount));
}

void CFile::Write(const void *lpBuf, unsigned int nCount)
{
    m_pImpl->file.write(static_cast<const char *>(lpBuf), nCount);
}

void CFile::SeekToBegin()
{
    m_pImpl->file.seek(0);
}

void CFile::Close()
{
    m_pImpl->file.close();
    m_hFile = hFileNull;
}

void CFile::Flush()
{
    m_pImpl->file.flush();
}

bool CFile::Remove(const wchar_t *lpszFileName)
{
    return DeleteFileW(lpszFileName);
}

bool CFile::GetStatus(const wchar_t *lpszFileName, CFileStatus &rStatus)
{
    return GetFileStatus(QFileInfo(toQString(lpszFileName)), rStatus);
}

bool CFile::GetStatus(CFileStatus &rStatus) const
{
    if (m_pImpl->file.isOpen())
        m_pImpl->file.flush();
    m_pImpl->info.refresh();
    return GetFileStatus(m_pImpl->info, rStatus);
}

// ---- CStdioFile ---------------------------------------------------------------------------------------

CStdioFile::CStdioFile() : m_pStream(new CStdioFileImpl) {}

CStdioFile::CStdioFile(const wchar_t *lpszFileName, unsigned int nOpenFlags)
    : CFile(lpszFileName, nOpenFlags), m_pStream(new CStdioFileImpl)
{
}

CStdioFile::~CStdioFile()
{
    CStdioFile::Close();
    delete m_pStream;
}

bool CStdioFile::Open(const wchar_t *lpszFileName, unsigned int nOpenFlags, CFileException *pError)
{
    m_pStream->stream.setDevice(nullptr);
    const bool opened = CFile::Open(lpszFileName, nOpenFlags, pError);
    if (opened)
        m_pStream->stream.setDevice(&implement()->file);
    return opened;
}

void CStdioFile::Flush()
{
    m_pStream->stream.flush();
}

void CStdioFile::Close()
{
    m_pStream->stream.flush();
    CFile::Close();
    // Text written from here on has no file, and must not wait for the next one to be opened.
    m_pStream->stream.setDevice(nullptr);
}

void CStdioFile::WriteString(const wchar_t *lpsz)
{
    m_pStream->stream << toQString(lpsz);
}

wchar_t *CStdioFile::ReadString(wchar_t *lpsz, unsigned int)
{
    QString &line = m_pStream->line;
    m_pStream->stream.readLineInto(&line);
    lpsz[copyText(line, lpsz)] = 0;
    return lpsz;
}

bool CStdioFile::ReadString(CString &rString)
{
    QString &line = m_pStream->line;
    m_pStream->stream.readLineInto(&line);
    assignText(rString, line);
    return true;
}

// ---- CMemFile, CSharedFile, CFileFind -----------------------------------------------------------------

CMemFile::CMemFile(unsigned char *lpBuffer, unsigned int nBufferSize)
    : m_lpBuffer(lpBuffer), m_nBufferSize(nBufferSize)
{
}

CMemFile::~CMemFile()
{
    m_lpBuffer = nullptr;
    m_nBufferSize = 0;
}

unsigned int CMemFile::Read(unsigned char *lpBuf, unsigned int nCount)
{
    if (lpBuf && m_lpBuffer)
        std::memmove(lpBuf, m_lpBuffer, std::min(nCount, m_nBufferSize));
    return static_cast<unsigned int>(reinterpret_cast<UINT_PTR>(lpBuf));
}

unsigned char *CMemFile::Detach()
{
    return nullptr;
}

CSharedFile::CSharedFile(int) : CMemFile(nullptr, 0) {}

CSharedFile::~CSharedFile()
{
    std::free(m_lpBuffer);
    m_lpBuffer = nullptr;
    m_nBufferSize = 0;
}

void CSharedFile::Write(unsigned char *lpBuf, unsigned int nCount)
{
    auto *copy = static_cast<unsigned char *>(std::calloc(nCount, 1));
    if (copy && lpBuf)
        std::memcpy(copy, lpBuf, nCount);
    std::free(m_lpBuffer);
    m_lpBuffer = copy;
    m_nBufferSize = copy ? nCount : 0;
}

HGLOBAL CSharedFile::Detach()
{
    auto *memory = static_cast<KxGlobalMemory *>(std::malloc(KxGlobalMemory::allocation));
    if (memory) {
        *memory = {m_lpBuffer, m_nBufferSize, 0};
        m_lpBuffer = nullptr;
    }
    return memory;
}

bool CFileFind::FindFile(const wchar_t *pstrName, unsigned int)
{
    return QFile::exists(toQString(pstrName));
}
