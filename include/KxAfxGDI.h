// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfx.h"
#include "KxExport.h"
#include "KxWinTypes.h"

/// A device context, as CDC in MFC, without a device.
class KX_EXPORT CDC : public CObject
{
public:
    /// The handle; null until the context gets a device.
    HDC m_hDC;

    CDC();
    ~CDC();
    CDC(const CDC &) = delete;
    CDC &operator=(const CDC &) = delete;

    operator HDC() const;
};
