// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "Plot.h"
#include "PlotSheet.h"

#include <memory>

class PlotPropertiesForm;

/// The Plot Properties dialog. DoModal() gives IDOK when GetSheet() is to be used.
class CPlotPropertiesDialog : public CDialog
{
public:
    enum { IDD = IDD_PLOT_PROPERTIES };

    CPlotPropertiesDialog(const PlotSheet &sheet, const std::shared_ptr<const Plot> &pPlot, CWnd *pParent);

    PlotSheet GetSheet() const;

    PlotPropertiesForm *GetForm() const { return m_pForm; }

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange *pDX) override;

    afx_msg void OnChange();
    afx_msg void OnSizeClicked(UINT nID);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar *pScrollBar);

private:
    void Validate(CDataExchange *pDX);
    void Refuse(CDataExchange *pDX, int nID, const CString &strReason);
    BOOL IsNumber(int nID, BOOL bWhole) const;
    BOOL IsScaleInRange() const;
    BOOL IsPenInRange() const;
    void ShowMargin();
    void ShowPreview();

    PlotPropertiesForm *m_pForm;
    CString m_strTitle;
    double m_dScale;
    int m_nPen;
    BOOL m_bRotate;
    int m_nSize;
    int m_nPaper;
    int m_nMargin;
    BOOL m_bPreviewing = FALSE;

    DECLARE_MESSAGE_MAP()
};
