// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "OptionsPages.h"

#include "MessageMapRouter.h"
#include "OptionsPageForm.h"
#include "PenSwatch.h"
#include "PlotLength.h"
#include "ResourceText.h"

#include <KxPlatformServices.h>

#include <QtGui/QColor>

COptionsPage::COptionsPage(UINT nIDTemplate, PlotOptions &options, CWnd *pParent)
    : CTnUiTabChildDialog(nIDTemplate, pParent)
    , m_options(options)
    , m_pForm(new OptionsPageForm(nIDTemplate, KxWidgetFromHwnd(pParent->GetSafeHwnd())))
{
    Attach(KxHwndFromWidget(m_pForm));
    for (const auto &[id, widget] : m_pForm->controls())
        SetDlgItem(static_cast<int>(id), KxHwndFromWidget(widget));
}

COptionsPage::~COptionsPage() = default;

BOOL COptionsPage::Save()
{
    if (!UpdateData(TRUE))
        return FALSE;
    SetDirty(FALSE);
    return TRUE;
}

void COptionsPage::Route(const AFX_MSGMAP *pMap)
{
    m_pRouter = std::make_unique<MessageMapRouter>(this, pMap);
    for (const auto &[id, widget] : m_pForm->controls())
        m_pRouter->addControl(id, widget);
}

void COptionsPage::OnChange()
{
    SetDirty(TRUE);
}

// ---- General

BEGIN_MESSAGE_MAP(CGeneralPage, CTnUiTabChildDialog)
    ON_BN_CLICKED(IDC_FADE, &CGeneralPage::OnChange)
    ON_CBN_SELCHANGE(IDC_ROWS, &CGeneralPage::OnChange)
    ON_WM_HSCROLL()
END_MESSAGE_MAP()

CGeneralPage::CGeneralPage(PlotOptions &options, CWnd *pParent)
    : COptionsPage(IDD_OPTIONS_GENERAL, options, pParent)
{
}

BOOL CGeneralPage::OnInitDialog()
{
    m_ctlRows.SubclassDlgItem(IDC_ROWS, this);
    for (const int nRows : PlotOptions::RowChoices) {
        CString strRows;
        strRows.Format(_T("%d"), nRows);
        m_ctlRows.AddString(strRows);
    }
    m_ctlRecent.SubclassDlgItem(IDC_RECENT, this);
    m_ctlRecent.SetRange(0, PlotOptions::MostRecentPlots);
    m_ctlRecent.SetPageSize(2);
    COptionsPage::OnInitDialog();
    ShowValue();
    Route(GetThisMessageMap());
    return TRUE;
}

void CGeneralPage::DoDataExchange(CDataExchange *pDX)
{
    COptionsPage::DoDataExchange(pDX);
    DDX_Check(pDX, IDC_FADE, m_options.fade);
    DDX_CBIndex(pDX, IDC_ROWS, m_options.rows);
    DDX_Slider(pDX, IDC_RECENT, m_options.recentPlots);
}

void CGeneralPage::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar *pScrollBar)
{
    COptionsPage::OnHScroll(nSBCode, nPos, pScrollBar);
    ShowValue();
    OnChange();
}

void CGeneralPage::ShowValue()
{
    CString strValue;
    strValue.Format(_T("%d"), m_ctlRecent.GetPos());
    SetDlgItemText(IDC_RECENT_VALUE, strValue);
}

// ---- Pens

BEGIN_MESSAGE_MAP(CPensPage, CTnUiTabChildDialog)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_PEN_COLOUR_FIRST, IDC_PEN_COLOUR_LAST, &CPensPage::OnColour)
    ON_BN_CLICKED(IDC_DEFAULT_COLOURS, &CPensPage::OnDefaultColours)
    ON_WM_HSCROLL()
END_MESSAGE_MAP()

CPensPage::CPensPage(PlotOptions &options, const Colours &defaults, QRgb paper, CWnd *pParent)
    : COptionsPage(IDD_OPTIONS_PENS, options, pParent)
    , m_colours(options.pens.colours)
    , m_defaults(defaults)
    , m_paper(paper)
{
}

BOOL CPensPage::OnInitDialog()
{
    CSliderCtrl ctlWidth;
    ctlWidth.SubclassDlgItem(IDC_WIDTH, this);
    ctlWidth.SetRange(PlotPens::ThinnestLine, PlotPens::WidestLine);
    ctlWidth.SetTicFreq(5);
    ctlWidth.SetPageSize(10);
    COptionsPage::OnInitDialog();
    for (int i = 0; i < PlotSheet::PenCount; ++i)
        ShowColour(i);
    ShowWidth();
    Route(GetThisMessageMap());
    return TRUE;
}

void CPensPage::DoDataExchange(CDataExchange *pDX)
{
    COptionsPage::DoDataExchange(pDX);
    DDX_Slider(pDX, IDC_WIDTH, m_options.pens.width);
    if (pDX->m_bSaveAndValidate)
        m_options.pens.colours = m_colours;
}

void CPensPage::OnColour(UINT nID)
{
    const auto nPen = static_cast<int>(nID - IDC_PEN_COLOUR_FIRST);
    const auto nIndex = static_cast<std::size_t>(nPen);
    CString strTitle;
    strTitle.Format(IDS_CHOOSE_COLOUR_FORMAT, nPen + 1);
    const QRgb present = m_colours[nIndex] ? m_colours[nIndex] : m_defaults[nIndex];
    const QColor colour = m_pForm->askColour(QColor(present), toQString(strTitle));
    if (!colour.isValid() || colour.rgb() == present)
        return;
    m_colours[nIndex] = colour.rgb();
    ShowColour(nPen);
    OnChange();
}

void CPensPage::OnDefaultColours()
{
    m_colours.fill(0);
    for (int i = 0; i < PlotSheet::PenCount; ++i)
        ShowColour(i);
    OnChange();
}

void CPensPage::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar *pScrollBar)
{
    COptionsPage::OnHScroll(nSBCode, nPos, pScrollBar);
    ShowWidth();
    OnChange();
}

void CPensPage::ShowColour(int nPen)
{
    const auto nIndex = static_cast<std::size_t>(nPen);
    const QRgb colour = m_colours[nIndex] ? m_colours[nIndex] : m_defaults[nIndex];
    QImage swatch = penSwatch(QColor(colour), QColor(m_paper), OptionsPageForm::SwatchSize);
    KxImageService *pImages = platformServices()->imageService();
    const HBITMAP hBitmap = pImages->adopt(&swatch);
    const HWND hButton = GetDlgItem(IDC_PEN_COLOUR_FIRST + nPen)->GetSafeHwnd();
    ::SendMessage(hButton, BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap));
    pImages->release(&swatch);
}

void CPensPage::ShowWidth()
{
    const auto *pWidth = static_cast<CSliderCtrl *>(GetDlgItem(IDC_WIDTH));
    CString strValue;
    strValue.Format(IDS_WIDTH_FORMAT, pWidth->GetPos() / 100.0);
    SetDlgItemText(IDC_WIDTH_VALUE, strValue);
}

// ---- Units

BEGIN_MESSAGE_MAP(CUnitsPage, CTnUiTabChildDialog)
    ON_LBN_SELCHANGE(IDC_UNIT, &CUnitsPage::OnUnit)
    ON_CBN_SELCHANGE(IDC_DECIMALS, &CUnitsPage::OnUnit)
END_MESSAGE_MAP()

CUnitsPage::CUnitsPage(PlotOptions &options, CWnd *pParent)
    : COptionsPage(IDD_OPTIONS_UNITS, options, pParent)
{
}

BOOL CUnitsPage::OnInitDialog()
{
    m_ctlUnit.SubclassDlgItem(IDC_UNIT, this);
    for (UINT i = 0; i < PlotUnits::UnitCount; ++i) {
        CString strUnit;
        strUnit.LoadString(IDS_UNIT_FIRST + i);
        m_ctlUnit.AddString(strUnit);
    }
    m_ctlDecimals.SubclassDlgItem(IDC_DECIMALS, this);
    for (int i = 0; i <= PlotUnits::MostDecimals; ++i) {
        CString strDecimals;
        strDecimals.Format(_T("%d"), i);
        m_ctlDecimals.AddString(strDecimals);
    }
    COptionsPage::OnInitDialog();
    ShowExample();
    Route(GetThisMessageMap());
    return TRUE;
}

void CUnitsPage::DoDataExchange(CDataExchange *pDX)
{
    COptionsPage::DoDataExchange(pDX);
    DDX_LBIndex(pDX, IDC_UNIT, m_options.units.unit);
    DDX_CBIndex(pDX, IDC_DECIMALS, m_options.units.decimals);
}

void CUnitsPage::OnUnit()
{
    ShowExample();
    OnChange();
}

void CUnitsPage::ShowExample()
{
    PlotUnits units;
    units.unit = m_ctlUnit.GetCurSel();
    units.decimals = m_ctlDecimals.GetCurSel();
    if (units.unit < 0 || units.decimals < 0)
        return;
    constexpr double dExample = 210 * 40.0;     // the short side of A4, in plotter units
    CString strUnit;
    strUnit.LoadString(static_cast<UINT>(IDS_UNIT_SHORT_FIRST + units.unit));
    const CString strLength = LengthText(dExample, units);
    CString strExample;
    strExample.Format(IDS_EXAMPLE_FORMAT, static_cast<LPCTSTR>(strLength), static_cast<LPCTSTR>(strUnit));
    SetDlgItemText(IDC_EXAMPLE, strExample);
}
