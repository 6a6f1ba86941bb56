// SPDX-License-Identifier: MIT
#pragma once

#include "KxPlatformExport.h"

#define KX_EXPORT __attribute__((visibility("default")))
