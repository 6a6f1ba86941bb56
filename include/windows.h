// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Win32's calls, types and constants.

#include "KxAfxGlobal.h"
#include "KxAfxOle.h"
#include "KxPlatformBase.h"
#include "KxQtMessageCenter.h"
#include "KxQtWinapiWrapper.h"
#include "KxWinTypes.h"
