// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "MarkList.h"

#include "PlotLength.h"

#include <memory>
#include <set>

namespace {

double LengthOf(const QPolygonF &points, BOOL bClosed)
{
    double dLength = 0;
    for (int i = 1; i < points.size(); ++i)
        dLength += QLineF(points.at(i - 1), points.at(i)).length();
    if (bClosed && !points.isEmpty())
        dLength += QLineF(points.last(), points.first()).length();
    return dLength;
}

CString Number(int nNumber)
{
    CString strNumber;
    strNumber.Format(_T("%d"), nNumber);
    return strNumber;
}

} // namespace

void CMarkList::InsertColumns()
{
    for (int i = 0; i < ColumnCount; ++i) {
        CString strHeading;
        strHeading.LoadString(static_cast<UINT>(IDS_COLUMN_NUMBER + i));
        InsertColumn(i, strHeading, i == KindColumn ? LVCFMT_LEFT : LVCFMT_RIGHT);
    }
    SetLengthHeading(PlotUnits());
}

int CMarkList::Fill(const Plot &plot, const PlotLayer &layer, const PlotUnits &units, int nMostRows)
{
    DeleteAllItems();
    SetLengthHeading(units);
    int nFound = 0;
    // Those that find no room are counted nevertheless.
    const auto takes = [&](PlotLayer::Kind kind, int nPen) {
        return layer.holds(kind, nPen) && ++nFound <= nMostRows;
    };
    for (std::size_t i = 0; i < plot.strokes.size(); ++i) {
        if (takes(PlotLayer::Strokes, plot.strokes[i].pen))
            AddStroke(plot.strokes[i], static_cast<int>(i), units);
    }
    for (std::size_t i = 0; i < plot.areas.size(); ++i) {
        if (takes(PlotLayer::Areas, plot.areas[i].pen))
            AddArea(plot.areas[i], static_cast<int>(i), units);
    }
    for (std::size_t i = 0; i < plot.labels.size(); ++i) {
        if (takes(PlotLayer::Labels, plot.labels[i].pen))
            AddLabel(plot.labels[i], static_cast<int>(i));
    }
    return nFound;
}

// GetNextSelectedItem() looks through the whole selection for each row, which takes long when many are
// selected.
PlotMarks CMarkList::GetSelectedMarks() const
{
    PlotMarks marks;
    POSITION pos = GetFirstSelectedItemPosition();
    if (!pos)
        return marks;
    constexpr UINT nFew = 100;
    if (GetSelectedCount() <= nFew) {
        while (pos)
            marks.push_back(PlotMark::fromItemData(GetItemData(GetNextSelectedItem(pos))));
        return marks;
    }
    const int nRows = GetItemCount();
    for (int i = 0; i < nRows; ++i) {
        if (GetItemState(i, LVIS_SELECTED | LVIS_FOCUSED) != 0)
            marks.push_back(PlotMark::fromItemData(GetItemData(i)));
    }
    return marks;
}

std::vector<int> CMarkList::FindRows(const PlotMarks &marks) const
{
    std::set<DWORD_PTR> wanted;
    for (const PlotMark &mark : marks)
        wanted.insert(mark.itemData());
    std::vector<int> rows;
    const int nRows = wanted.empty() ? 0 : GetItemCount();
    for (int i = 0; i < nRows; ++i) {
        if (wanted.count(GetItemData(i)) > 0)
            rows.push_back(i);
    }
    return rows;
}

void CMarkList::SetLengthHeading(const PlotUnits &units)
{
    CString strUnit;
    strUnit.LoadString(static_cast<UINT>(IDS_UNIT_SHORT_FIRST + units.unit));
    CString strHeading;
    strHeading.Format(IDS_COLUMN_LENGTH_FORMAT, static_cast<LPCTSTR>(strUnit));
    HDITEMW item = {};
    item.mask = HDI_TEXT;
    item.pszText = strHeading.GetBuffer(0);
    // The header's object is ours, here.
    const std::unique_ptr<CHeaderCtrl> pHeader(GetHeaderCtrl());
    pHeader->SetItem(LengthColumn, &item);
    strHeading.ReleaseBuffer();
}

void CMarkList::AddStroke(const PlotStroke &stroke, int nIndex, const PlotUnits &units)
{
    const auto nPoints = static_cast<int>(stroke.points.size());
    const UINT nKind = nPoints < 2 ? IDS_KIND_DOT : nPoints == 2 ? IDS_KIND_LINE : IDS_KIND_POLYLINE;
    AddRow({PlotLayer::Strokes, nIndex}, nKind, stroke.pen, nPoints,
           LengthText(LengthOf(stroke.points, FALSE), units));
}

void CMarkList::AddArea(const PlotArea &area, int nIndex, const PlotUnits &units)
{
    int nPoints = 0;
    double dLength = 0;
    for (const QPolygonF &outline : area.outlines) {
        nPoints += outline.size();
        dLength += LengthOf(outline, TRUE);
    }
    AddRow({PlotLayer::Areas, nIndex}, IDS_KIND_AREA, area.pen, nPoints, LengthText(dLength, units));
}

void CMarkList::AddLabel(const PlotLabel &label, int nIndex)
{
    AddRow({PlotLayer::Labels, nIndex}, IDS_KIND_LABEL, label.pen, 1, CString());
}

void CMarkList::AddRow(const PlotMark &mark, UINT nKind, int nPen, int nPoints, const CString &strLength)
{
    CString strKind;
    strKind.LoadString(nKind);
    const int nRow = InsertItem(GetItemCount(), Number(mark.index + 1), -1);
    SetItemText(nRow, KindColumn, strKind);
    SetItemText(nRow, PenColumn, Number(nPen));
    SetItemText(nRow, PointsColumn, Number(nPoints));
    SetItemText(nRow, LengthColumn, strLength);
    SetItemData(nRow, mark.itemData());
}
