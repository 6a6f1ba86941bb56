// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "OptionsDialog.h"

#include "MessageMapRouter.h"
#include "OptionsForm.h"

namespace {

// Binds the dialog before its pages are made, which are children of its widgets.
OptionsForm *BindForm(CDialog *pDialog, const CWnd *pParent)
{
    auto *form = new OptionsForm(KxWidgetFromHwnd(pParent->GetSafeHwnd()));
    pDialog->Attach(KxHwndFromWidget(form));
    pDialog->SetAutoDelete(true, true);
    for (const auto &[id, widget] : form->controls())
        pDialog->SetDlgItem(static_cast<int>(id), KxHwndFromWidget(widget));
    return form;
}

} // namespace

BEGIN_MESSAGE_MAP(COptionsDialog, CDialog)
    ON_BN_CLICKED(IDOK, &COptionsDialog::OnOK)
    ON_BN_CLICKED(IDCANCEL, &COptionsDialog::OnCancel)
    ON_BN_CLICKED(IDC_APPLY, &COptionsDialog::OnApply)
END_MESSAGE_MAP()

COptionsDialog::COptionsDialog(const PlotOptions &options, const CPensPage::Colours &defaults, QRgb paper,
                               int nPage, CWnd *pParent)
    : CDialog(IDD, pParent)
    , m_pForm(BindForm(this, pParent))
    , m_options(options)
    , m_nFirstPage(nPage)
    , m_generalPage(m_options, this)
    , m_pensPage(m_options, defaults, paper, this)
    , m_unitsPage(m_options, this)
{
}

BOOL COptionsDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    m_ctlTabs.SubclassDlgItem(IDC_OPTIONS_TABS, this);
    m_generalPage.Create(IDD_OPTIONS_GENERAL, this);
    m_pensPage.Create(IDD_OPTIONS_PENS, this);
    m_unitsPage.Create(IDD_OPTIONS_UNITS, this);
    m_ctlTabs.AddTab(GeneralPage, IDS_TAB_GENERAL, 0, &m_generalPage);
    m_ctlTabs.AddTab(PensPage, IDS_TAB_PENS, 0, &m_pensPage);
    m_ctlTabs.AddTab(UnitsPage, IDS_TAB_UNITS, 0, &m_unitsPage);
    m_ctlTabs.SetCurSel(m_nFirstPage);
    auto *router = new MessageMapRouter(this, GetThisMessageMap(), m_pForm);
    for (const auto &[id, widget] : m_pForm->controls())
        router->addControl(id, widget);
    return TRUE;
}

void COptionsDialog::OnOK()
{
    if (Apply())
        EndDialog(IDOK);
}

void COptionsDialog::OnApply()
{
    Apply();
}

BOOL COptionsDialog::Apply()
{
    if (!m_generalPage.Save() || !m_pensPage.Save() || !m_unitsPage.Save())
        return FALSE;
    GetParent()->SendMessage(WM_OPTIONS_APPLIED, 0, reinterpret_cast<LPARAM>(&m_options));
    return TRUE;
}
