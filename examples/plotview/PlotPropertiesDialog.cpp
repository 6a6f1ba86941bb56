// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotPropertiesDialog.h"

#include "MessageMapRouter.h"
#include "PlotCanvas.h"
#include "PlotPropertiesForm.h"
#include "ResourceText.h"

#include <QtCore/QLocale>

BEGIN_MESSAGE_MAP(CPlotPropertiesDialog, CDialog)
    ON_BN_CLICKED(IDOK, &CPlotPropertiesDialog::OnOK)
    ON_BN_CLICKED(IDCANCEL, &CPlotPropertiesDialog::OnCancel)
    ON_EN_CHANGE(IDC_TITLE, &CPlotPropertiesDialog::OnChange)
    ON_EN_CHANGE(IDC_PEN, &CPlotPropertiesDialog::OnChange)
    ON_EN_CHANGE(IDC_SCALE, &CPlotPropertiesDialog::OnChange)
    ON_BN_CLICKED(IDC_ROTATE, &CPlotPropertiesDialog::OnChange)
    ON_CBN_SELCHANGE(IDC_PAPER, &CPlotPropertiesDialog::OnChange)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_SIZE_FIT, IDC_SIZE_A2, &CPlotPropertiesDialog::OnSizeClicked)
    ON_WM_HSCROLL()
END_MESSAGE_MAP()

CPlotPropertiesDialog::CPlotPropertiesDialog(const PlotSheet &sheet, const std::shared_ptr<const Plot> &pPlot,
                                             CWnd *pParent)
    : CDialog(IDD, pParent)
    , m_pForm(new PlotPropertiesForm(KxWidgetFromHwnd(pParent->GetSafeHwnd())))
    , m_strTitle(toCString(sheet.title))
    , m_dScale(sheet.scale)
    , m_nPen(sheet.titlePen)
    , m_bRotate(sheet.rotate)
    , m_nSize(sheet.size)
    , m_nPaper(sheet.paper)
    , m_nMargin(sheet.margin)
{
    Attach(KxHwndFromWidget(m_pForm));
    SetAutoDelete(true, true);
    for (const auto &[id, widget] : m_pForm->controls())
        SetDlgItem(static_cast<int>(id), KxHwndFromWidget(widget));
    m_pForm->preview()->setPlot(pPlot);
}

PlotSheet CPlotPropertiesDialog::GetSheet() const
{
    PlotSheet sheet;
    sheet.title = toQString(m_strTitle);
    sheet.scale = m_dScale;
    sheet.titlePen = m_nPen;
    sheet.rotate = m_bRotate;
    sheet.size = m_nSize;
    sheet.paper = m_nPaper;
    sheet.margin = m_nMargin;
    return sheet;
}

BOOL CPlotPropertiesDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    // Loaded with six decimals; nobody typed them.
    SetDlgItemText(IDC_SCALE, toCString(QString::number(m_dScale)));
    ShowMargin();
    ShowPreview();
    GetDlgItem(IDC_TITLE)->SetFocus();
    m_pForm->selectText(IDC_TITLE);
    // From here on what changes is the user's doing.
    auto *router = new MessageMapRouter(this, GetThisMessageMap(), m_pForm);
    for (const auto &[id, widget] : m_pForm->controls())
        router->addControl(id, widget);
    return TRUE;
}

void CPlotPropertiesDialog::DoDataExchange(CDataExchange *pDX)
{
    CDialog::DoDataExchange(pDX);
    DDX_Text(pDX, IDC_TITLE, m_strTitle);
    DDX_Text(pDX, IDC_PEN, m_nPen);
    DDX_Text(pDX, IDC_SCALE, m_dScale);
    DDX_Check(pDX, IDC_ROTATE, m_bRotate);
    DDX_Radio(pDX, IDC_SIZE_FIT, m_nSize);
    DDX_CBIndex(pDX, IDC_PAPER, m_nPaper);
    DDX_Slider(pDX, IDC_MARGIN, m_nMargin);
    if (pDX->m_bSaveAndValidate && !m_bPreviewing)
        Validate(pDX);
}

void CPlotPropertiesDialog::OnChange()
{
    m_bPreviewing = TRUE;
    UpdateData(TRUE);
    m_bPreviewing = FALSE;
    ShowPreview();
}

void CPlotPropertiesDialog::OnSizeClicked(UINT)
{
    OnChange();
}

void CPlotPropertiesDialog::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar *pScrollBar)
{
    CDialog::OnHScroll(nSBCode, nPos, pScrollBar);
    OnChange();
    ShowMargin();
}

// An exchange goes on after Fail(), and it takes the leading number of any text; so the checks stand behind
// it and look at the texts too. The user is told of one mistake at a time.
void CPlotPropertiesDialog::Validate(CDataExchange *pDX)
{
    CString strReason;
    if (!IsNumber(IDC_PEN, TRUE)) {
        strReason.LoadString(IDS_ERROR_PEN_NUMBER);
        Refuse(pDX, IDC_PEN, strReason);
    } else if (!IsPenInRange()) {
        strReason.Format(IDS_ERROR_PEN_RANGE, PlotSheet::PenCount);
        Refuse(pDX, IDC_PEN, strReason);
    } else if (!IsNumber(IDC_SCALE, FALSE)) {
        strReason.LoadString(IDS_ERROR_SCALE_NUMBER);
        Refuse(pDX, IDC_SCALE, strReason);
    } else if (!IsScaleInRange()) {
        strReason.Format(IDS_ERROR_SCALE_RANGE, static_cast<int>(PlotSheet::LargestScale));
        Refuse(pDX, IDC_SCALE, strReason);
    }
}

void CPlotPropertiesDialog::Refuse(CDataExchange *pDX, int nID, const CString &strReason)
{
    CString strCaption;
    strCaption.LoadString(IDS_PROPERTIES_CAPTION);
    MessageBox(strReason, strCaption, MB_OK | MB_ICONEXCLAMATION);
    // A message box belongs to no window, so that none is sure to become active when it closes.
    m_pForm->activateWindow();
    CWnd::FromHandle(pDX->PrepareEditCtrl(nID))->SetFocus();
    m_pForm->selectText(static_cast<UINT>(nID));
    pDX->Fail();
}

BOOL CPlotPropertiesDialog::IsNumber(int nID, BOOL bWhole) const
{
    CString strText;
    GetDlgItemText(nID, strText);
    strText.TrimLeft().TrimRight();
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    bool bOk = false;
    if (bWhole)
        locale.toInt(toQString(strText), &bOk);
    else
        locale.toDouble(toQString(strText), &bOk);
    return bOk;
}

BOOL CPlotPropertiesDialog::IsScaleInRange() const
{
    return m_dScale > 0 && m_dScale <= PlotSheet::LargestScale;
}

BOOL CPlotPropertiesDialog::IsPenInRange() const
{
    return m_nPen >= 1 && m_nPen <= PlotSheet::PenCount;
}

void CPlotPropertiesDialog::ShowMargin()
{
    CString strText;
    strText.Format(IDS_MARGIN_FORMAT, m_nMargin);
    SetDlgItemText(IDC_MARGIN_VALUE, strText);
}

void CPlotPropertiesDialog::ShowPreview()
{
    if (IsScaleInRange() && IsPenInRange())
        m_pForm->preview()->setSheet(GetSheet());
}
