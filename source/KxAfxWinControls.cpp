// SPDX-License-Identifier: MIT
#include "KxAfxWinControls.h"

#include "KxAfxWin_p.h"

#include <QtWidgets/QSlider>

// ---- CSliderCtrl ---------------------------------------------------------------------------------------

int CSliderCtrl::GetPos() const
{
    const auto *slider = boundWidget<QAbstractSlider>(this);
    return slider ? slider->sliderPosition() : 0;
}

void CSliderCtrl::SetPos(int nPos)
{
    if (auto *slider = boundWidget<QAbstractSlider>(this))
        slider->setSliderPosition(nPos);
}

void CSliderCtrl::SetRange(int nMin, int nMax, BOOL)
{
    if (auto *slider = boundWidget<QAbstractSlider>(this))
        slider->setRange(nMin, nMax);
}

int CSliderCtrl::SetPageSize(int nSize)
{
    auto *slider = boundWidget<QAbstractSlider>(this);
    if (!slider)
        return 0;
    const int before = slider->pageStep();
    slider->setPageStep(nSize);
    return before;
}

void CSliderCtrl::SetTicFreq(int nFreq)
{
    if (auto *slider = boundWidget<QSlider>(this))
        slider->setSingleStep(nFreq);
}

int CSliderCtrl::GetPageSize() const { return 0; }
int CSliderCtrl::GetLineSize() const { return 0; }
int CSliderCtrl::SetLineSize(int) { return 0; }
int CSliderCtrl::GetRangeMax() const { return 0; }
int CSliderCtrl::GetRangeMin() const { return 0; }
void CSliderCtrl::GetRange(int &, int &) const {}
void CSliderCtrl::SetRangeMin(int, BOOL) {}
void CSliderCtrl::SetRangeMax(int, BOOL) {}
void CSliderCtrl::GetSelection(int &, int &) const {}
void CSliderCtrl::SetSelection(int, int) {}
void CSliderCtrl::GetChannelRect(tagRECT *) const {}
void CSliderCtrl::GetThumbRect(tagRECT *) const {}
UINT CSliderCtrl::GetNumTics() const { return 0; }
DWORD *CSliderCtrl::GetTicArray() const { return nullptr; }
int CSliderCtrl::GetTic(int) const { return 0; }
int CSliderCtrl::GetTicPos(int) const { return 0; }
BOOL CSliderCtrl::SetTic(int) { return false; }

// ---- CScrollBar ----------------------------------------------------------------------------------------

int CScrollBar::SetScrollPos(int nPos, BOOL)
{
    auto *bar = boundWidget<QAbstractSlider>(this);
    if (!bar)
        return 0;
    const int before = bar->value();
    bar->setValue(nPos);
    return before;
}

void CScrollBar::SetScrollRange(int nMinPos, int nMaxPos, BOOL)
{
    if (auto *bar = boundWidget<QAbstractSlider>(this))
        bar->setRange(nMinPos, nMaxPos);
}

int CScrollBar::GetScrollPos() const { return 0; }
void CScrollBar::GetScrollRange(int *, int *) const {}

// ---- interfaces only -----------------------------------------------------------------------------------

CWnd *CSpinButtonCtrl::SetBuddy(CWnd *) { return nullptr; }
CWnd *CSpinButtonCtrl::GetBuddy() const { return nullptr; }
int CSpinButtonCtrl::SetPos(int) { return 0; }
int CSpinButtonCtrl::GetPos() const { return 0; }
void CSpinButtonCtrl::SetRange(short, short) {}
void CSpinButtonCtrl::SetRange32(int, int) {}

BOOL CToolTipCtrl::Create(CWnd *, UINT) { return true; }
BOOL CToolTipCtrl::AddTool(CWnd *, UINT, const tagRECT *, UINT_PTR) { return true; }
BOOL CToolTipCtrl::AddTool(CWnd *, const wchar_t *, const tagRECT *, UINT_PTR) { return false; }
void CToolTipCtrl::Activate(BOOL) {}
void CToolTipCtrl::RelayEvent(tagMSG *) {}

BOOL CControlBar::IsVisible() const { return true; }

DWORD CRichEditCtrl::SetEventMask(UINT) { return 0; }
long CRichEditCtrl::GetEventMask() const { return 0; }
