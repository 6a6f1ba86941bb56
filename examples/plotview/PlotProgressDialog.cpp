// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotProgressDialog.h"

#include "MessageMapRouter.h"
#include "PlotProgressForm.h"
#include "ResourceText.h"

#include <QtCore/QCoreApplication>

namespace {

constexpr ULONGLONG nMegabyte = 1024 * 1024;
constexpr ULONGLONG nLargeFile = 8 * nMegabyte;
constexpr DWORD dwAWhile = 500;
constexpr int nLongestTitle = 40;

} // namespace

BEGIN_MESSAGE_MAP(CPlotProgressDialog, CDialog)
    ON_BN_CLICKED(IDCANCEL, &CPlotProgressDialog::OnCancel)
END_MESSAGE_MAP()

CPlotProgressDialog::CPlotProgressDialog(LPCTSTR lpszPlotTitle, CWnd *pParent)
    : CDialog(IDD, pParent)
    , m_pForm(new PlotProgressForm(KxWidgetFromHwnd(pParent->GetSafeHwnd())))
    , m_strPlotTitle(lpszPlotTitle)
{
    Attach(KxHwndFromWidget(m_pForm));
    SetAutoDelete(true, true);
    for (const auto &[id, widget] : m_pForm->controls())
        SetDlgItem(static_cast<int>(id), KxHwndFromWidget(widget));
    Create(IDD, pParent);
    ShowWindow(SW_SHOW);
}

BOOL CPlotProgressDialog::IsWorthwhile(ULONGLONG nTotal, DWORD dwMilliseconds)
{
    return nTotal >= nLargeFile || dwMilliseconds >= dwAWhile;
}

BOOL CPlotProgressDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    CString strText;
    const CString strShown = shortenedPath(m_strPlotTitle, nLongestTitle);
    strText.Format(IDS_PROGRESS_PLOT_FORMAT, static_cast<LPCTSTR>(strShown));
    SetDlgItemText(IDC_PROGRESS_PLOT, strText);
    ShowAmount(0, 0);
    auto *router = new MessageMapRouter(this, GetThisMessageMap(), m_pForm);
    for (const auto &[id, widget] : m_pForm->controls())
        router->addControl(id, widget);
    return TRUE;
}

BOOL CPlotProgressDialog::Advance(ULONGLONG nDone, ULONGLONG nTotal)
{
    ShowAmount(nDone, nTotal);
    QCoreApplication::processEvents();
    return !m_bCancelled;
}

// Who reads ends the dialog.
void CPlotProgressDialog::OnCancel()
{
    m_bCancelled = TRUE;
    GetDlgItem(IDCANCEL)->EnableWindow(FALSE);
}

void CPlotProgressDialog::ShowAmount(ULONGLONG nDone, ULONGLONG nTotal)
{
    CString strText;
    if (nTotal > 0)
        strText.Format(IDS_PROGRESS_AMOUNT_FORMAT, static_cast<double>(nDone) / nMegabyte,
                       static_cast<double>(nTotal) / nMegabyte);
    else
        strText.Format(IDS_PROGRESS_UNKNOWN_FORMAT, static_cast<double>(nDone) / nMegabyte);
    SetDlgItemText(IDC_PROGRESS_AMOUNT, strText);
    m_pForm->setShare(nTotal > 0 ? static_cast<double>(nDone) / static_cast<double>(nTotal) : -1);
}
