// SPDX-License-Identifier: MIT
#pragma once

#include <afx.h>
#include <afxwin.h>
#include <afxdlgs.h>
#include <afxext.h>
#include <afxole.h>
#include <atlbase.h>

#include "resource.h"
