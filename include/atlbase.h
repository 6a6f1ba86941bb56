// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// CRegKey.

#include "KxQtWinapiWrapper.h"
#include "KxStdStr.h"
#include "windows.h"
