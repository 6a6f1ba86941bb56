// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// MFC's windows, dialogs, data exchange and application.

#include "KxAfxApp.h"
#include "KxAfxDDX.h"
#include "KxAfxGDI.h"
#include "KxAfxWin.h"
#include "KxAfxWinDialog.h"
#include "KxQBaseDialog.h"
#include "afx.h"
