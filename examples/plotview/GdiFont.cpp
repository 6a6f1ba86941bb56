// SPDX-License-Identifier: MIT
#include "GdiFont.h"

#include <QtGui/QPaintDevice>

#include <cwchar>

void setGdiFont(KxQtPainterWrapper &painter, int pixels, int weight, BYTE pitch)
{
    // The painter makes pixels of a height by the bits to a pixel, divided by 36, and cuts the fraction.
    constexpr int PixelsPerHeight = 36;
    const int depth = painter.wrappedDevice()->depth();
    LOGFONTW font = {};
    font.lfHeight = (pixels * PixelsPerHeight + depth - 1) / depth;
    font.lfWeight = weight;
    font.lfPitchAndFamily = pitch;
    std::wcsncpy(font.lfFaceName, pitch == FIXED_PITCH ? _T("Courier New") : _T("Arial"), LF_FACESIZE - 1);
    painter.setFontIndirect(&font);
}
