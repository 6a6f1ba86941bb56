// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// MFC's file dialog, with the windows.

#include "KxAfxDlgs.h"
#include "KxQtFileDialog.h"
#include "afxwin.h"
