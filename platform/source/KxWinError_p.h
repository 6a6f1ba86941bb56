// SPDX-License-Identifier: MIT
#pragma once

#include "KxWinSystem.h"

/// The ERROR_* that says what an errno value says.
DWORD kxErrorFromErrno(int error);

/// Leaves the error in GetLastError(). \return false, for the caller to pass on
inline bool kxFail(DWORD error)
{
    SetLastError(error);
    return false;
}
