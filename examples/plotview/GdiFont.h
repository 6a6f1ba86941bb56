// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

/// A sans-serif font, or one whose characters all have the same width, `pixels` high. The painter has to be
/// drawing.
void setGdiFont(KxQtPainterWrapper &painter, int pixels, int weight = FW_NORMAL, BYTE pitch = VARIABLE_PITCH);
