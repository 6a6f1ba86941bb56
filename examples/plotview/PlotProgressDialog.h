// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

class PlotProgressForm;

/// Shows how far the reading of a plot is, and can stop it. It is modal while it lives, without a loop of its
/// own: who reads calls Advance() now and then.
class CPlotProgressDialog : public CDialog
{
public:
    enum { IDD = IDD_PLOT_PROGRESS };

    CPlotProgressDialog(LPCTSTR lpszPlotTitle, CWnd *pParent);

    /// Whether the user had better see it: of a large file, or when it takes a while.
    static BOOL IsWorthwhile(ULONGLONG nTotal, DWORD dwMilliseconds);

    /// Shows how many bytes are read, of how many (0 when nobody knows), and lets the user act.
    /// \return FALSE when the user wants no more
    BOOL Advance(ULONGLONG nDone, ULONGLONG nTotal);

    PlotProgressForm *GetForm() const { return m_pForm; }

    BOOL OnInitDialog() override;

protected:
    void OnCancel() override;

private:
    void ShowAmount(ULONGLONG nDone, ULONGLONG nTotal);

    PlotProgressForm *m_pForm;
    CString m_strPlotTitle;
    BOOL m_bCancelled = FALSE;

    DECLARE_MESSAGE_MAP()
};
