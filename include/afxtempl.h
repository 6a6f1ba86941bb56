// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Brings what afx.h brings.

#include "afx.h"
