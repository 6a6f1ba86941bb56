// SPDX-License-Identifier: MIT
#pragma once

#include <afx.h>
#include <afxwin.h>
#include <afxext.h>
#include <atlbase.h>

#include "resource.h"
