// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "FloodFill.h"

int CFloodFill::Fill(const CPoint &seed, COLORREF colour)
{
    m_dwFilled = m_dib.RGBtoValue(colour);
    m_dwArea = m_dib.GetPixelValue(seed.x, seed.y);
    if (m_dwArea == CLR_INVALID || m_dwFilled == CLR_INVALID || m_dwFilled == m_dwArea)
        return 0;
    int nFilled = 0;
    m_seeds.assign(1, seed);
    while (!m_seeds.empty()) {
        const CPoint next = m_seeds.back();
        m_seeds.pop_back();
        if (m_dib.GetPixelValue(next.x, next.y) != m_dwArea)
            continue;   // another run came by
        const int nLeft = m_dib.ScanLeft(next.x, next.y, 0, m_dwArea) + 1;
        const int nRight = m_dib.ScanRight(next.x, next.y, m_dib.GetWidth() - 1, m_dwArea) - 1;
        FillRun(nLeft, nRight, next.y);
        nFilled += nRight - nLeft + 1;
        AddSeeds(nLeft, nRight, next.y - 1);
        AddSeeds(nLeft, nRight, next.y + 1);
    }
    return nFilled;
}

// Opaque white is the number that stands for no pixel value; a line cannot be drawn in it.
void CFloodFill::FillRun(int nLeft, int nRight, int y)
{
    constexpr DWORD dwOpaque = 0xFF000000;
    if (m_dib.DrawLineH(nLeft, nRight, y, dwOpaque | m_dwFilled))
        return;
    for (int x = nLeft; x <= nRight; ++x)
        m_dib.SetPixelValue(x, y, m_dwFilled);
}

// The runs of the area that touch a filled one from the row above or below.
void CFloodFill::AddSeeds(int nLeft, int nRight, int y)
{
    if (y < 0 || y >= m_dib.GetHeight())
        return;
    const int nLast = m_dib.SearchLeft(nRight, y, nLeft, m_dwArea);
    int x = m_dib.SearchRight(nLeft, y, nRight, m_dwArea);
    while (x <= nLast) {
        m_seeds.emplace_back(x, y);
        x = m_dib.ScanRight(x, y, nRight, m_dwArea);
        x = m_dib.SearchRight(x, y, nRight, m_dwArea);
    }
}
