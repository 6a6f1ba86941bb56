// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// All of the platform library.

#include "KxPlatformServices.h"
#include "KxWinFile.h"
#include "KxWinMemory.h"
#include "KxWinModule.h"
#include "KxWinResource.h"
#include "KxWinString.h"
#include "KxWinSystem.h"
