// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <KxDibData.h>

#include <vector>

/// Fills areas of one colour in a bitmap, as ExtFloodFill() with FLOODFILLSURFACE: a pixel belongs to an area
/// when its left, right, upper or lower neighbour does.
class CFloodFill
{
public:
    /// The bitmap has to live as long as it is filled.
    explicit CFloodFill(CDibData &dib) : m_dib(dib) {}

    /// Gives the area around `seed` another colour.
    /// \return how many pixels changed; 0 outside of the bitmap, and for an area that has this colour
    int Fill(const CPoint &seed, COLORREF colour);

private:
    void FillRun(int nLeft, int nRight, int y);
    void AddSeeds(int nLeft, int nRight, int y);

    CDibData &m_dib;
    DWORD m_dwArea = 0;             // the pixel value of the area,
    DWORD m_dwFilled = 0;           // and what it becomes
    std::vector<CPoint> m_seeds;    // one for each run of pixels that is to be filled
};
