// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// MFC's clipboard classes, with the windows.

#include "KxAfxOle.h"
#include "afxwin.h"
