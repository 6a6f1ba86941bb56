// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfxWin.h"

/// \file
/// The small controls: CSliderCtrl, CScrollBar, and those that are only an interface: CSpinButtonCtrl,
/// CToolTipCtrl, CControlBar, CRichEditCtrl.

/// A slider, as CSliderCtrl in MFC, bound to a QAbstractSlider; SetTicFreq() to a QSlider. Unbound, or on
/// another widget, a member does nothing and gives 0.
class KX_EXPORT CSliderCtrl : public CWnd
{
public:
    using CWnd::CWnd;

    /// The position of the handle, also while it is dragged.
    int GetPos() const;
    void SetPos(int nPos);
    void SetRange(int nMin, int nMax, BOOL bRedraw = FALSE);
    /// \return the page size that it had
    int SetPageSize(int nSize);
    /// Sets the step of the arrow keys; there are no tick marks.
    void SetTicFreq(int nFreq);

    KX_INERT("returns 0, whatever SetPageSize() set")
    int GetPageSize() const;
    KX_INERT("returns 0")
    int GetLineSize() const;
    KX_INERT("returns 0; set the step with SetTicFreq()")
    int SetLineSize(int nSize);
    KX_INERT("returns 0")
    int GetRangeMax() const;
    KX_INERT("returns 0")
    int GetRangeMin() const;
    KX_INERT("writes nothing")
    void GetRange(int &nMin, int &nMax) const;
    KX_INERT("sets nothing; use SetRange()")
    void SetRangeMin(int nMin, BOOL bRedraw = FALSE);
    KX_INERT("sets nothing; use SetRange()")
    void SetRangeMax(int nMax, BOOL bRedraw = FALSE);
    KX_INERT("writes nothing; there is no selection")
    void GetSelection(int &nMin, int &nMax) const;
    KX_INERT("sets nothing; there is no selection")
    void SetSelection(int nMin, int nMax);
    KX_INERT("leaves the rectangle as it is")
    void GetChannelRect(tagRECT *lprc) const;
    KX_INERT("leaves the rectangle as it is")
    void GetThumbRect(tagRECT *lprc) const;
    KX_INERT("returns 0; there are no tick marks")
    UINT GetNumTics() const;
    KX_INERT("returns null; there are no tick marks")
    DWORD *GetTicArray() const;
    KX_INERT("returns 0; there are no tick marks")
    int GetTic(int nTic) const;
    KX_INERT("returns 0; there are no tick marks")
    int GetTicPos(int nTic) const;
    KX_INERT("returns FALSE; there are no tick marks")
    BOOL SetTic(int nTic);
};

/// A scroll bar, as CScrollBar in MFC, bound to a QAbstractSlider. Unbound, or on another widget, a member
/// does nothing and gives 0. It can be set, but not asked.
class KX_EXPORT CScrollBar : public CWnd
{
public:
    using CWnd::CWnd;

    /// \return the position that it had
    int SetScrollPos(int nPos, BOOL bRedraw = TRUE);
    void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE);
    KX_INERT("returns 0, whatever SetScrollPos() set")
    int GetScrollPos() const;
    KX_INERT("writes nothing")
    void GetScrollRange(int *lpMinPos, int *lpMaxPos) const;
};

/// A spin button as an interface only, CSpinButtonCtrl in MFC. A spin box is driven by the text calls of
/// CWnd.
class KX_EXPORT CSpinButtonCtrl : public CWnd
{
public:
    using CWnd::CWnd;

    KX_INERT("returns null; a spin box has its own edit field")
    CWnd *SetBuddy(CWnd *pWndBuddy);
    KX_INERT("returns null; a spin box has its own edit field")
    CWnd *GetBuddy() const;
    KX_INERT("returns 0; set the text of the spin box")
    int SetPos(int nPos);
    KX_INERT("returns 0; get the text of the spin box")
    int GetPos() const;
    KX_INERT("sets nothing; set the range on the widget")
    void SetRange(short nLower, short nUpper);
    KX_INERT("sets nothing; set the range on the widget")
    void SetRange32(int nLower, int nUpper);
};

/// A tool tip as an interface only, CToolTipCtrl in MFC: none is ever shown.
class KX_EXPORT CToolTipCtrl : public CWnd
{
public:
    using CWnd::CWnd;
    using CWnd::Create;

    KX_INERT("returns TRUE; set tool tips on the widgets")
    virtual BOOL Create(CWnd *pParentWnd, UINT dwStyle = 0);
    KX_INERT("returns TRUE; set tool tips on the widgets")
    BOOL AddTool(CWnd *pWnd, UINT nIDText, const tagRECT *lpRectTool = nullptr, UINT_PTR nIDTool = 0);
    KX_INERT("returns FALSE; set tool tips on the widgets")
    BOOL AddTool(CWnd *pWnd, const wchar_t *lpszText = LPSTR_TEXTCALLBACKW,
                 const tagRECT *lpRectTool = nullptr, UINT_PTR nIDTool = 0);
    KX_INERT("does nothing; set tool tips on the widgets")
    void Activate(BOOL bActivate);
    KX_INERT("does nothing; Qt sees the events itself")
    void RelayEvent(tagMSG *lpMsg);
};

/// A control bar as an interface only, CControlBar in MFC.
class KX_EXPORT CControlBar : public CWnd
{
public:
    using CWnd::CWnd;

    KX_INERT("returns TRUE, whatever is shown")
    BOOL IsVisible() const;
};

/// What there is of CRichEditCtrl of MFC.
class KX_EXPORT CRichEditCtrl : public CWnd
{
public:
    using CWnd::CWnd;

    KX_INERT("returns 0; connect to the widget's signals")
    DWORD SetEventMask(UINT dwEventMask);
    KX_INERT("returns 0; connect to the widget's signals")
    long GetEventMask() const;
};
