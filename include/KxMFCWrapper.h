// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Everything, for a precompiled header.

#include "KxAfx.h"
#include "KxAfxApp.h"
#include "KxAfxColl.h"
#include "KxAfxDDX.h"
#include "KxAfxFile.h"
#include "KxAfxGDI.h"
#include "KxAfxGeometry.h"
#include "KxAfxGlobal.h"
#include "KxAfxMessageMap.h"
#include "KxAfxWin.h"
#include "KxAfxWinButton.h"
#include "KxAfxWinComboBox.h"
#include "KxAfxWinControls.h"
#include "KxAfxWinDialog.h"
#include "KxAfxWinEdit.h"
#include "KxAfxWinListBox.h"
#include "KxAfxWinListCtrl.h"
#include "KxAfxWinPrivate.h"
#include "KxAfxWinTabCtrl.h"
#include "KxAfxWinTreeCtrl.h"
#include "KxPlatformBase.h"
#include "KxPlatformServices.h"
#include "KxQBaseDialog.h"
#include "KxQtMessageCenter.h"
#include "KxQtWinapiWrapper.h"
#include "KxStdStr.h"
#include "KxWinTypes.h"
