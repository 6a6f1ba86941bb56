// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// MFC's core: CObject, strings, macros, Win32.

#include "KxAfx.h"
#include "KxAfxGeometry.h"
#include "KxStdStr.h"
#include "windows.h"
