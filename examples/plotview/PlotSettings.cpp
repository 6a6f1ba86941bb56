// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotSettings.h"

#include "ResourceText.h"

namespace {

constexpr const TCHAR *Section = _T("Plot Properties");
constexpr const TCHAR *OptionsSection = _T("Options");
constexpr const TCHAR *RecentKey = _T("Software\\plotview\\Recent Plots");
constexpr const TCHAR *SheetKey = _T("Software\\plotview\\Sheet");
constexpr const TCHAR *TitlesKey = _T("Software\\plotview\\Titles");
constexpr const TCHAR *ScaleValue = _T("Scale");

int ProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault, int nFirst, int nLast)
{
    const int nValue = static_cast<int>(AfxGetApp()->GetProfileInt(lpszSection, lpszEntry, nDefault));
    return nValue >= nFirst && nValue <= nLast ? nValue : nDefault;
}

CString RegistryText(LPCTSTR lpszKey, LPCTSTR lpszName, int nLongest)
{
    // One more than the text and its zero: a text that just fits would lose its last character.
    std::vector<TCHAR> text(static_cast<std::size_t>(nLongest) + 2, 0);
    auto dwCount = static_cast<DWORD>(text.size());
    CRegKey key;
    if (key.Create(HKEY_CURRENT_USER, lpszKey) != ERROR_SUCCESS
        || key.QueryValue(text.data(), lpszName, &dwCount) != ERROR_SUCCESS)
        return CString();
    return text.data();
}

void SetRegistryText(LPCTSTR lpszKey, LPCTSTR lpszName, LPCTSTR lpszText)
{
    CRegKey key;
    if (key.Create(HKEY_CURRENT_USER, lpszKey) == ERROR_SUCCESS)
        key.SetValue(lpszText, lpszName);
}

CString PenEntry(int nPen)
{
    CString strEntry;
    strEntry.Format(_T("Pen %d"), nPen);
    return strEntry;
}

CString RecentName(int nPlot)
{
    CString strName;
    strName.Format(_T("Plot%d"), nPlot);
    return strName;
}

} // namespace

PlotSheet CPlotSettings::Load(LPCTSTR lpszPlotTitle)
{
    PlotSheet sheet;
    sheet.title = toQString(RegistryText(TitlesKey, lpszPlotTitle, LongestTitle));
    // The number is written with a point, whatever the user's locale.
    const double dScale = toQString(RegistryText(SheetKey, ScaleValue, LongestTitle)).toDouble();
    if (dScale > 0 && dScale <= PlotSheet::LargestScale)
        sheet.scale = dScale;
    sheet.titlePen = ProfileInt(Section, _T("Pen"), sheet.titlePen, 1, PlotSheet::PenCount);
    sheet.rotate = ProfileInt(Section, _T("Rotate"), sheet.rotate, 0, 1) != 0;
    sheet.size = ProfileInt(Section, _T("Size"), sheet.size, 0, PlotSheet::SizeCount - 1);
    sheet.paper = ProfileInt(Section, _T("Paper"), sheet.paper, 0, PlotSheet::PaperCount - 1);
    sheet.margin = ProfileInt(Section, _T("Margin"), sheet.margin, 0, PlotSheet::LargestMargin);
    return sheet;
}

void CPlotSettings::Store(const PlotSheet &sheet, LPCTSTR lpszPlotTitle)
{
    SetRegistryText(TitlesKey, lpszPlotTitle, toCString(sheet.title));
    SetRegistryText(SheetKey, ScaleValue, toCString(QString::number(sheet.scale, 'g', 12)));
    AfxGetApp()->WriteProfileInt(Section, _T("Pen"), sheet.titlePen);
    AfxGetApp()->WriteProfileInt(Section, _T("Rotate"), sheet.rotate);
    AfxGetApp()->WriteProfileInt(Section, _T("Size"), sheet.size);
    AfxGetApp()->WriteProfileInt(Section, _T("Paper"), sheet.paper);
    AfxGetApp()->WriteProfileInt(Section, _T("Margin"), sheet.margin);
}

PlotOptions CPlotSettings::LoadOptions()
{
    PlotOptions options;
    const auto nChoices = static_cast<int>(PlotOptions::RowChoices.size());
    options.fade = ProfileInt(OptionsSection, _T("Fade"), options.fade, 0, 1) != 0;
    options.rows = ProfileInt(OptionsSection, _T("Rows"), options.rows, 0, nChoices - 1);
    options.recentPlots =
        ProfileInt(OptionsSection, _T("Recent Plots"), options.recentPlots, 0, PlotOptions::MostRecentPlots);
    options.pens.width = ProfileInt(OptionsSection, _T("Line Width"), options.pens.width,
                                    PlotPens::ThinnestLine, PlotPens::WidestLine);
    options.units.unit =
        ProfileInt(OptionsSection, _T("Unit"), options.units.unit, 0, PlotUnits::UnitCount - 1);
    options.units.decimals =
        ProfileInt(OptionsSection, _T("Decimals"), options.units.decimals, 0, PlotUnits::MostDecimals);
    for (int nPen = 1; nPen <= PlotSheet::PenCount; ++nPen) {
        const int nColour = ProfileInt(OptionsSection, PenEntry(nPen), -1, 0, 0xffffff);
        if (nColour >= 0)
            options.pens.colours[static_cast<std::size_t>(nPen - 1)] =
                0xff000000u | static_cast<QRgb>(nColour);
    }
    return options;
}

void CPlotSettings::StoreOptions(const PlotOptions &options)
{
    CWinApp *pApp = AfxGetApp();
    pApp->WriteProfileInt(OptionsSection, _T("Fade"), options.fade);
    pApp->WriteProfileInt(OptionsSection, _T("Rows"), options.rows);
    pApp->WriteProfileInt(OptionsSection, _T("Recent Plots"), options.recentPlots);
    pApp->WriteProfileInt(OptionsSection, _T("Line Width"), options.pens.width);
    pApp->WriteProfileInt(OptionsSection, _T("Unit"), options.units.unit);
    pApp->WriteProfileInt(OptionsSection, _T("Decimals"), options.units.decimals);
    for (int nPen = 1; nPen <= PlotSheet::PenCount; ++nPen) {
        const QRgb colour = options.pens.colours[static_cast<std::size_t>(nPen - 1)];
        pApp->WriteProfileInt(OptionsSection, PenEntry(nPen),
                              colour ? static_cast<int>(colour & 0xffffff) : -1);
    }
}

std::vector<CString> CPlotSettings::LoadRecentPlots()
{
    std::vector<CString> plots;
    for (int i = 1; i <= PlotOptions::MostRecentPlots; ++i) {
        const CString strPlot = RegistryText(RecentKey, RecentName(i), LongestPath);
        if (!strPlot.IsEmpty())
            plots.push_back(strPlot);
    }
    return plots;
}

void CPlotSettings::StoreRecentPlots(const std::vector<CString> &plots)
{
    for (int i = 1; i <= PlotOptions::MostRecentPlots; ++i) {
        const auto nIndex = static_cast<std::size_t>(i - 1);
        SetRegistryText(RecentKey, RecentName(i), nIndex < plots.size() ? plots[nIndex] : CString());
    }
}
