// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Win32's record of a format of data that is exchanged. Include KxWinTypes.h, which brings this header.

#include "KxWinBasicTypes.h"

#define DVASPECT_CONTENT 1
#define DVASPECT_THUMBNAIL 2
#define DVASPECT_ICON 4
#define DVASPECT_DOCPRINT 8
#define TYMED_NULL 0
#define TYMED_HGLOBAL 1
#define TYMED_FILE 2
#define TYMED_ISTREAM 4
#define TYMED_ISTORAGE 8
#define TYMED_GDI 16
#define TYMED_MFPICT 32
#define TYMED_ENHMF 64

struct tagDVTARGETDEVICE;
using DVTARGETDEVICE = tagDVTARGETDEVICE;

struct tagFORMATETC {
    CLIPFORMAT cfFormat; ///< CF_* or a registered number.
    DVTARGETDEVICE *ptd;
    DWORD dwAspect; ///< DVASPECT_*.
    LONG lindex;
    DWORD tymed; ///< TYMED_*.
};
using FORMATETC = tagFORMATETC;
using LPFORMATETC = FORMATETC *;
