// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// MFC's windows, dialogs, controls, data exchange and application.

#include "KxAfxApp.h"
#include "KxAfxDDX.h"
#include "KxAfxGDI.h"
#include "KxAfxOle.h"
#include "KxAfxWin.h"
#include "KxAfxWinButton.h"
#include "KxAfxWinComboBox.h"
#include "KxAfxWinControls.h"
#include "KxAfxWinDialog.h"
#include "KxAfxWinEdit.h"
#include "KxAfxWinListBox.h"
#include "KxAfxWinListCtrl.h"
#include "KxAfxWinTabCtrl.h"
#include "KxAfxWinTreeCtrl.h"
#include "KxDibData.h"
#include "KxGrQtDoubleBufferImage.h"
#include "KxQBaseDialog.h"
#include "afx.h"
