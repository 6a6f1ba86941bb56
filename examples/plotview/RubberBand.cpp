// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "RubberBand.h"

#include <QtGui/QPainter>

#include <algorithm>

CRect CRubberBand::GetRect() const
{
    return CRect(std::min(m_start.x, m_current.x), std::min(m_start.y, m_current.y),
                 std::max(m_start.x, m_current.x), std::max(m_start.y, m_current.y));
}

void CRubberBand::Begin(const CPoint &point)
{
    m_start = point;
    m_current = point;
    m_bActive = TRUE;
}

void CRubberBand::Invert(KxQtPainterWrapper &painter) const
{
    if (!m_bActive || !painter.beginDraw())
        return;
    const CRect rect = GetRect();
    const CPoint corners[] = {{rect.left, rect.top},
                              {rect.right, rect.top},
                              {rect.right, rect.bottom},
                              {rect.left, rect.bottom},
                              {rect.left, rect.top}};
    painter.setROP2(QPainter::RasterOp_SourceXorDestination);
    painter.setPen(PS_INSIDEFRAME, 1, RGB(255, 255, 255));
    painter.drawPolyline(corners, static_cast<int>(std::size(corners)));
    painter.endDraw();
}
