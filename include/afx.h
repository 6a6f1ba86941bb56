// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// MFC's core: CObject, strings, collections, files, macros, Win32.

#include "KxAfx.h"
#include "KxAfxColl.h"
#include "KxAfxFile.h"
#include "KxAfxGeometry.h"
#include "KxStdStr.h"
#include "windows.h"
