// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

/// A rectangle between where the mouse went down and where it is. It is drawn by inverting what is there, and
/// taken away by inverting that again.
class CRubberBand
{
public:
    BOOL IsActive() const { return m_bActive; }
    /// Its sides in order; right and bottom are those of the outline, so they are inside.
    CRect GetRect() const;

    void Begin(const CPoint &point);
    void MoveTo(const CPoint &point) { m_current = point; }
    void End() { m_bActive = FALSE; }

    /// Draws the band, or takes it away.
    void Invert(KxQtPainterWrapper &painter) const;

private:
    CPoint m_start;
    CPoint m_current;
    BOOL m_bActive = FALSE;
};
