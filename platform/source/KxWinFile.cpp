// SPDX-License-Identifier: MIT
#include "KxWinFile.h"

#include "KxNativeName_p.h"
#include "KxWinError_p.h"

#include <QtCore/QFile>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The result of a system call that answers 0 on success: true, or false with the reason left behind.
bool succeeded(int result)
{
    return result == 0 || kxFail(kxErrorFromErrno(errno));
}

/// The files that are open as handles. The one thing here that threads share. Never destroyed: files are
/// closed at exit too.
class FileHandles
{
public:
    static FileHandles &instance()
    {
        static auto *const handles = new FileHandles;
        return *handles;
    }

    void insert(HANDLE handle)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_handles.insert(handle);
    }

    bool remove(HANDLE handle)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_handles.erase(handle) != 0;
    }

private:
    std::mutex m_mutex;
    std::unordered_set<HANDLE> m_handles;
};

/// What CreateFileW() was asked for, in the words of open() and fdopen().
struct OpenRequest
{
    int flags = O_RDONLY;
    const char *mode = "r";
    bool isValid = true;
};

OpenRequest openRequest(DWORD access, DWORD disposition)
{
    const bool writes = (access & (GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_DATA)) != 0;
    const bool appends = !writes && (access & FILE_APPEND_DATA) != 0;
    const bool reads = (access & (GENERIC_READ | GENERIC_ALL | FILE_READ_DATA)) != 0;

    OpenRequest request;
    if (writes || appends) {
        request.flags = reads ? O_RDWR : O_WRONLY;
        request.mode = reads ? "r+" : "w";
    }
    switch (disposition) {
    case CREATE_NEW:
        request.flags |= O_CREAT | O_EXCL;
        break;
    case CREATE_ALWAYS:
        // Emptying takes a descriptor that may write, whatever the stream over it may do.
        if (!writes && !appends)
            request.flags = O_RDWR;
        request.flags |= O_CREAT | O_TRUNC;
        break;
    case OPEN_EXISTING:
        break;
    case OPEN_ALWAYS:
        request.flags |= O_CREAT;
        break;
    case TRUNCATE_EXISTING:
        request.isValid = writes;
        request.flags |= O_TRUNC;
        break;
    default:
        request.isValid = false;
        break;
    }
    request.flags |= O_CLOEXEC | O_NOCTTY | (appends ? O_APPEND : 0);
    return request;
}

bool isDirectory(int descriptor)
{
    struct stat status = {};
    return fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

/// A file descriptor that is closed with its scope.
class Descriptor
{
public:
    explicit Descriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    ~Descriptor()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    operator int() const { return m_descriptor; }
    int release() { return std::exchange(m_descriptor, -1); }
    bool close() { return ::close(release()) == 0; }

private:
    int m_descriptor;
};

bool writeAll(int descriptor, const char *bytes, ssize_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, static_cast<std::size_t>(count));
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0) {
            bytes += written;
            count -= written;
        }
    }
    return true;
}

bool copyContents(int source, int target)
{
    char buffer[65536];
    for (;;) {
        const ssize_t count = ::read(source, buffer, sizeof buffer);
        if (count == 0)
            return true;
        if ((count < 0 && errno != EINTR) || !writeAll(target, buffer, count))
            return false;
    }
}

/// Copies one regular file, contents, rights and time of last change. \return 0 or an errno value, ETXTBSY
/// for the copy onto itself; a target that this call made does not outlast a failure
int copyFile(const char *from, const char *to, bool failIfExists)
{
    // Without O_NONBLOCK a pipe would hold the call until it has another end.
    const Descriptor source(::open(from, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    struct stat sourceStatus = {};
    if (!source.isOpen() || fstat(source, &sourceStatus) != 0)
        return errno;
    if (!S_ISREG(sourceStatus.st_mode))
        return S_ISDIR(sourceStatus.st_mode) ? EISDIR : EINVAL;

    constexpr int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    const mode_t mode = sourceStatus.st_mode & 0777;
    int opened = ::open(to, flags | O_EXCL, mode);
    const bool isNew = opened >= 0;
    if (!isNew && errno == EEXIST && !failIfExists)
        opened = ::open(to, flags, mode);
    Descriptor target(opened);
    struct stat targetStatus = {};
    if (!target.isOpen() || fstat(target, &targetStatus) != 0)
        return errno;
    if (targetStatus.st_dev == sourceStatus.st_dev && targetStatus.st_ino == sourceStatus.st_ino)
        return ETXTBSY;

    if (ftruncate(target, 0) == 0 && copyContents(source, target)) {
        // Not every file system can keep these.
        const timespec times[] = {{0, UTIME_OMIT}, sourceStatus.st_mtim};
        if (isNew)
            fchmod(target, mode);
        futimens(target, times);
        if (target.close())
            return 0;
    }
    const int error = errno;
    if (isNew)
        ::unlink(to);
    return error;
}

/// Renames, or copies and deletes where the file systems differ. \return 0 or an errno value, EEXIST when
/// there is something under the new name, which stays
int moveFile(const char *from, const char *to)
{
    if (renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno == EINVAL || errno == ENOSYS) {
        // This file system cannot look and rename in one step.
        struct stat status = {};
        if (lstat(to, &status) == 0)
            return EEXIST;
        if (::rename(from, to) == 0)
            return 0;
    }
    struct stat status = {};
    if (errno != EXDEV || lstat(from, &status) != 0 || !S_ISREG(status.st_mode))
        return errno;
    if (const int error = copyFile(from, to, true))
        return error;
    if (::unlink(from) == 0)
        return 0;
    const int error = errno;
    ::unlink(to);
    return error;
}

} // namespace

DWORD GetCurrentDirectoryW(DWORD size, LPWSTR buffer)
{
    char nearby[1024]; // enough for most, and without an allocation
    std::unique_ptr<char, void (*)(void *)> longer(nullptr, std::free);
    const char *bytes = ::getcwd(nearby, sizeof nearby);
    if (!bytes && errno == ERANGE) {
        longer.reset(::getcwd(nullptr, 0));
        bytes = longer.get();
    }
    if (!bytes) {
        SetLastError(kxErrorFromErrno(errno));
        return 0;
    }
    const std::string_view view = bytes;
    const bool isAscii = std::all_of(view.begin(), view.end(), [](char byte) { return byte > 0; });
    std::wstring text(view.begin(), view.end());
    if (!isAscii || !kxIsUtf8Locale()) {
        const QString name = QFile::decodeName(bytes);
        if (QFile::encodeName(name) != bytes) {
            SetLastError(ERROR_INVALID_NAME);
            return 0;
        }
        text = name.toStdWString();
    }
    const auto length = static_cast<DWORD>(text.size());
    if (size <= length)
        return length + 1;
    if (!buffer) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    text.copy(buffer, length);
    buffer[length] = 0;
    return length;
}

BOOL SetCurrentDirectoryW(LPCWSTR wideName)
{
    const KxNativeName name(wideName);
    return name.isValid() && succeeded(::chdir(name.path()));
}

BOOL CreateDirectoryW(LPCWSTR wideName, LPSECURITY_ATTRIBUTES)
{
    const KxNativeName name(wideName);
    if (!name.isValid())
        return false;
    if (::mkdir(name.path(), 0777) == 0)
        return true;
    return kxFail(errno == ENOENT ? ERROR_PATH_NOT_FOUND : kxErrorFromErrno(errno));
}

BOOL RemoveDirectoryW(LPCWSTR wideName)
{
    const KxNativeName name(wideName);
    if (!name.isValid())
        return false;
    if (::rmdir(name.path()) == 0)
        return true;
    return kxFail(errno == ENOTDIR ? ERROR_DIRECTORY : kxErrorFromErrno(errno));
}

DWORD GetFileAttributesW(LPCWSTR wideName)
{
    const KxNativeName name(wideName);
    struct stat status = {};
    if (!name.isValid() || !succeeded(::stat(name.path(), &status)))
        return INVALID_FILE_ATTRIBUTES;
    return status.st_mode;
}

HANDLE CreateFileW(LPCWSTR wideName, DWORD access, DWORD, LPSECURITY_ATTRIBUTES, DWORD disposition, DWORD,
                   HANDLE)
{
    const KxNativeName name(wideName);
    if (!name.isValid())
        return INVALID_HANDLE_VALUE;
    const OpenRequest request = openRequest(access, disposition);
    if (!request.isValid) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    struct stat status = {};
    const bool existed = ::stat(name.path(), &status) == 0;
    Descriptor descriptor(::open(name.path(), request.flags, 0666));
    if (!descriptor.isOpen()) {
        SetLastError(errno == EEXIST ? ERROR_FILE_EXISTS : kxErrorFromErrno(errno));
        return INVALID_HANDLE_VALUE;
    }
    if (isDirectory(descriptor)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return INVALID_HANDLE_VALUE;
    }
    FILE *const file = ::fdopen(descriptor, request.mode);
    if (!file) {
        SetLastError(kxErrorFromErrno(errno));
        return INVALID_HANDLE_VALUE;
    }
    descriptor.release();
    FileHandles::instance().insert(file);
    if (disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS)
        SetLastError(existed ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return file;
}

BOOL CloseHandle(HANDLE handle)
{
    if (!FileHandles::instance().remove(handle))
        return kxFail(ERROR_INVALID_HANDLE);
    return succeeded(std::fclose(static_cast<FILE *>(handle)));
}

BOOL DeleteFileW(LPCWSTR wideName)
{
    const KxNativeName name(wideName);
    return name.isValid() && succeeded(::unlink(name.path()));
}

BOOL MoveFileW(LPCWSTR existingName, LPCWSTR newName)
{
    const KxNativeName from(existingName);
    if (!from.isValid())
        return false;
    const KxNativeName to(newName);
    if (!to.isValid())
        return false;
    const int error = moveFile(from.path(), to.path());
    return error == 0 || kxFail(kxErrorFromErrno(error));
}

BOOL CopyFileW(LPCWSTR existingName, LPCWSTR newName, BOOL failIfExists)
{
    const KxNativeName from(existingName);
    if (!from.isValid())
        return false;
    const KxNativeName to(newName);
    if (!to.isValid())
        return false;
    const int error = copyFile(from.path(), to.path(), failIfExists);
    return error == 0 || kxFail(error == EEXIST ? ERROR_FILE_EXISTS : kxErrorFromErrno(error));
}

int _wrename(const wchar_t *oldName, const wchar_t *newName)
{
    const KxNativeName from(oldName);
    const KxNativeName to(newName);
    const int error = from.isValid() && to.isValid() ? moveFile(from.path(), to.path()) : EINVAL;
    if (error == 0)
        return 0;
    errno = error == EEXIST ? EACCES : error;
    return -1;
}
