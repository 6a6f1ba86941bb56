// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// CString.

#include "KxStdStr.h"
#include "windows.h"
