// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "OptionsPages.h"

class OptionsForm;

/// The options dialog. OK and Apply send the parent WM_OPTIONS_APPLIED with the options' address as LPARAM.
class COptionsDialog : public CDialog
{
public:
    enum { IDD = IDD_OPTIONS };
    enum Page { GeneralPage, PensPage, UnitsPage };

    /// Shows `nPage` first. The colours are those of the pens of which the user chose none, and the paper's.
    COptionsDialog(const PlotOptions &options, const CPensPage::Colours &defaults, QRgb paper, int nPage,
                   CWnd *pParent);

    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    afx_msg void OnApply();

private:
    BOOL Apply();

    OptionsForm *m_pForm;
    PlotOptions m_options;
    const int m_nFirstPage;
    CTabCtrl m_ctlTabs;
    CGeneralPage m_generalPage;
    CPensPage m_pensPage;
    CUnitsPage m_unitsPage;

    DECLARE_MESSAGE_MAP()
};
