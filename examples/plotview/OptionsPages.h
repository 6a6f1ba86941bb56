// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "PlotOptions.h"

#include <memory>

class MessageMapRouter;
class OptionsPageForm;

/// A page of the options dialog: shows its part of the options and tells the dialog when the user changed it.
class COptionsPage : public CTnUiTabChildDialog
{
public:
    /// The page's widgets belong to the parent's, the options to the dialog.
    COptionsPage(UINT nIDTemplate, PlotOptions &options, CWnd *pParent);
    ~COptionsPage() override;

    /// Takes the user's changes into the options.
    BOOL Save();

protected:
    /// What the user does from here on is a change.
    void Route(const AFX_MSGMAP *pMap);
    afx_msg void OnChange();

    PlotOptions &m_options;
    OptionsPageForm *m_pForm;

private:
    std::unique_ptr<MessageMapRouter> m_pRouter;
};

class CGeneralPage : public COptionsPage
{
public:
    CGeneralPage(PlotOptions &options, CWnd *pParent);
    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange *pDX) override;
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar *pScrollBar);

private:
    void ShowValue();

    CComboBox m_ctlRows;
    CSliderCtrl m_ctlRecent;

    DECLARE_MESSAGE_MAP()
};

/// Each pen's button shows the pen's colour on the paper of the plot.
class CPensPage : public COptionsPage
{
public:
    using Colours = std::array<QRgb, PlotSheet::PenCount>;

    /// `defaults` are the colours of the pens of which the user chose none.
    CPensPage(PlotOptions &options, const Colours &defaults, QRgb paper, CWnd *pParent);
    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange *pDX) override;
    afx_msg void OnColour(UINT nID);
    afx_msg void OnDefaultColours();
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar *pScrollBar);

private:
    void ShowColour(int nPen);
    void ShowWidth();

    Colours m_colours;      // 0 where the user chose none
    const Colours m_defaults;
    const QRgb m_paper;

    DECLARE_MESSAGE_MAP()
};

class CUnitsPage : public COptionsPage
{
public:
    CUnitsPage(PlotOptions &options, CWnd *pParent);
    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange *pDX) override;
    afx_msg void OnUnit();

private:
    void ShowExample();

    CListBox m_ctlUnit;
    CComboBox m_ctlDecimals;

    DECLARE_MESSAGE_MAP()
};
