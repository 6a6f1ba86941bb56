// SPDX-License-Identifier: MIT
#include "KxWinSystem.h"

#include "KxWinError_p.h"

#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <thread>

namespace {

thread_local DWORD lastError = 0;

} // namespace

DWORD GetLastError()
{
    return lastError;
}

void SetLastError(DWORD error)
{
    lastError = error;
}

DWORD kxErrorFromErrno(int error)
{
    switch (error) {
    case 0:
        return ERROR_SUCCESS;
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
    case ELOOP:
        return ERROR_PATH_NOT_FOUND;
    case EMFILE:
    case ENFILE:
        return ERROR_TOO_MANY_OPEN_FILES;
    case EACCES:
    case EPERM:
    case EISDIR:
        return ERROR_ACCESS_DENIED;
    case ENOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case EXDEV:
        return ERROR_NOT_SAME_DEVICE;
    case EROFS:
        return ERROR_WRITE_PROTECT;
    case ETXTBSY:
        return ERROR_SHARING_VIOLATION;
    case EBUSY:
        return ERROR_BUSY;
    case EINVAL:
        return ERROR_INVALID_PARAMETER;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ERROR_DISK_FULL;
    case ENOTEMPTY:
        return ERROR_DIR_NOT_EMPTY;
    case EEXIST:
        return ERROR_ALREADY_EXISTS;
    case ENAMETOOLONG:
        return ERROR_FILENAME_EXCED_RANGE;
    default:
        return ERROR_GEN_FAILURE;
    }
}

DWORD GetTickCount()
{
    return static_cast<DWORD>(GetTickCount64());
}

ULONGLONG GetTickCount64()
{
    timespec now = {};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<ULONGLONG>(now.tv_sec) * 1000u + static_cast<ULONGLONG>(now.tv_nsec) / 1000000u;
}

void Sleep(DWORD milliseconds)
{
    do {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    } while (milliseconds == INFINITE);
}

int MulDiv(int number, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    const long long product = static_cast<long long>(number) * numerator;
    const long long half = std::abs(static_cast<long long>(denominator)) / 2;
    const long long result = (product < 0 ? product - half : product + half) / denominator;
    return result >= INT_MIN && result <= INT_MAX ? static_cast<int>(result) : -1;
}
