// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Brings what afxwin.h brings.

#include "afxwin.h"
