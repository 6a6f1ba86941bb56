// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The thread's last error, the clock, and exact scaling.

#include "KxPlatformExport.h"
#include "KxWinTypes.h"

/// The reason (ERROR_*) of the last failure in this thread of a file, module or resource call of this
/// library. Success leaves it alone, except where a call says otherwise.
KX_PLATFORM_EXPORT DWORD GetLastError();

KX_PLATFORM_EXPORT void SetLastError(DWORD error);

/// Milliseconds since the machine was started, sleep included. The 32-bit form starts again at 0 after 49.7
/// days.
KX_PLATFORM_EXPORT DWORD GetTickCount();
KX_PLATFORM_EXPORT ULONGLONG GetTickCount64();

/// Holds the calling thread, and no event is handled, for so many milliseconds; INFINITE holds it for good.
KX_PLATFORM_EXPORT void Sleep(DWORD milliseconds);

/// `number` * `numerator` / `denominator`, exact in between, rounded to the nearest, halves away from zero.
/// -1 when the denominator is 0 or the result does not fit.
KX_PLATFORM_EXPORT int MulDiv(int number, int numerator, int denominator);
