// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The generic-text names.

#include "KxWinTypes.h"
