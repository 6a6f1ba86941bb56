// SPDX-License-Identifier: MIT
#include "KxAfxGDI.h"

CDC::CDC()
    : m_hDC(nullptr)
{
}

CDC::~CDC() = default;

CDC::operator HDC() const
{
    return m_hDC;
}
