// SPDX-License-Identifier: MIT
#pragma once

#include <afxwin.h>
#include <afxext.h>
#include <atlbase.h>

#include "resource.h"
