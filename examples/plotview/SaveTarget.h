// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

/// Whether a file may be written: there is none, or the user says that it may be replaced.
BOOL MayReplace(LPCTSTR lpszPathName);

/// The path with another extension than the one it has, if any; "pdf" and the like.
CString WithExtension(const CString &strPathName, LPCTSTR lpszExtension);
