// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotSettings.h"

#include "ResourceText.h"

namespace {

constexpr const TCHAR *Section = _T("Plot Properties");
constexpr const TCHAR *SheetKey = _T("Software\\plotview\\Sheet");
constexpr const TCHAR *TitlesKey = _T("Software\\plotview\\Titles");
constexpr const TCHAR *ScaleValue = _T("Scale");

int ProfileInt(LPCTSTR lpszEntry, int nDefault, int nFirst, int nLast)
{
    const int nValue = static_cast<int>(AfxGetApp()->GetProfileInt(Section, lpszEntry, nDefault));
    return nValue >= nFirst && nValue <= nLast ? nValue : nDefault;
}

CString RegistryText(LPCTSTR lpszKey, LPCTSTR lpszName)
{
    // One more than the text and its zero: a text that just fits would lose its last character.
    TCHAR szText[CPlotSettings::LongestTitle + 2] = {};
    DWORD dwCount = _countof(szText);
    CRegKey key;
    if (key.Create(HKEY_CURRENT_USER, lpszKey) != ERROR_SUCCESS
        || key.QueryValue(szText, lpszName, &dwCount) != ERROR_SUCCESS)
        return CString();
    return szText;
}

void SetRegistryText(LPCTSTR lpszKey, LPCTSTR lpszName, LPCTSTR lpszText)
{
    CRegKey key;
    if (key.Create(HKEY_CURRENT_USER, lpszKey) == ERROR_SUCCESS)
        key.SetValue(lpszText, lpszName);
}

} // namespace

PlotSheet CPlotSettings::Load(LPCTSTR lpszPlotTitle)
{
    PlotSheet sheet;
    sheet.title = toQString(RegistryText(TitlesKey, lpszPlotTitle));
    // The number is written with a point, whatever the user's locale.
    const double dScale = toQString(RegistryText(SheetKey, ScaleValue)).toDouble();
    if (dScale > 0 && dScale <= PlotSheet::LargestScale)
        sheet.scale = dScale;
    sheet.titlePen = ProfileInt(_T("Pen"), sheet.titlePen, 1, PlotSheet::PenCount);
    sheet.rotate = ProfileInt(_T("Rotate"), sheet.rotate, 0, 1) != 0;
    sheet.size = ProfileInt(_T("Size"), sheet.size, 0, PlotSheet::SizeCount - 1);
    sheet.paper = ProfileInt(_T("Paper"), sheet.paper, 0, PlotSheet::PaperCount - 1);
    sheet.margin = ProfileInt(_T("Margin"), sheet.margin, 0, PlotSheet::LargestMargin);
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
