// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "LayerTree.h"

namespace {

struct MarkCounts
{
    int strokes = 0;
    int areas = 0;
    int labels = 0;

    int Total() const { return strokes + areas + labels; }
};

std::map<int, MarkCounts> CountsByPen(const Plot &plot)
{
    std::map<int, MarkCounts> counts;
    for (const PlotStroke &stroke : plot.strokes)
        ++counts[stroke.pen].strokes;
    for (const PlotArea &area : plot.areas)
        ++counts[area.pen].areas;
    for (const PlotLabel &label : plot.labels)
        ++counts[label.pen].labels;
    return counts;
}

} // namespace

void CLayerTree::Fill(const Plot &plot)
{
    DeleteAllItems();
    const std::map<int, MarkCounts> counts = CountsByPen(plot);
    int nTotal = 0;
    for (const auto &[nPen, marks] : counts)
        nTotal += marks.Total();
    const HTREEITEM hRoot = AddLayer(IDS_LAYER_ALL_FORMAT, {PlotLayer::AllPens}, nTotal, TVI_ROOT);
    for (const auto &[nPen, marks] : counts) {
        const HTREEITEM hPen = AddLayer(IDS_LAYER_PEN_FORMAT, {PlotLayer::Pen, nPen}, marks.Total(), hRoot);
        if (marks.strokes > 0)
            AddLayer(IDS_LAYER_STROKES_FORMAT, {PlotLayer::Strokes, nPen}, marks.strokes, hPen);
        if (marks.areas > 0)
            AddLayer(IDS_LAYER_AREAS_FORMAT, {PlotLayer::Areas, nPen}, marks.areas, hPen);
        if (marks.labels > 0)
            AddLayer(IDS_LAYER_LABELS_FORMAT, {PlotLayer::Labels, nPen}, marks.labels, hPen);
    }
    Expand(hRoot, TVE_EXPAND);
    SelectItem(hRoot);
}

PlotLayer CLayerTree::GetLayer(HTREEITEM hItem) const
{
    return hItem ? PlotLayer::fromItemData(GetItemData(hItem)) : PlotLayer();
}

PlotLayer CLayerTree::GetSelectedLayer() const
{
    return GetLayer(GetSelectedItem());
}

void CLayerTree::SetVisible(HTREEITEM hItem, BOOL bVisible)
{
    if (!hItem)
        return;
    PlotLayer layer = GetLayer(hItem);
    layer.visible = bVisible;
    SetItemData(hItem, layer.itemData());
}

void CLayerTree::ShowAll()
{
    const HTREEITEM hRoot = GetRootItem();
    SetVisible(hRoot, TRUE);
    for (HTREEITEM hPen = GetChildItem(hRoot); hPen; hPen = GetNextSiblingItem(hPen)) {
        SetVisible(hPen, TRUE);
        for (HTREEITEM hKind = GetChildItem(hPen); hKind; hKind = GetNextSiblingItem(hKind))
            SetVisible(hKind, TRUE);
    }
}

PlotHiddenLayers CLayerTree::GetHiddenLayers() const
{
    PlotHiddenLayers hidden;
    const HTREEITEM hRoot = GetRootItem();
    for (HTREEITEM hPen = GetChildItem(hRoot); hPen; hPen = GetNextSiblingItem(hPen)) {
        const BOOL bPenVisible = GetLayer(hRoot).visible && GetLayer(hPen).visible;
        for (HTREEITEM hKind = GetChildItem(hPen); hKind; hKind = GetNextSiblingItem(hKind)) {
            const PlotLayer layer = GetLayer(hKind);
            if (!bPenVisible || !layer.visible)
                hidden.insert({layer.pen, layer.kind});
        }
    }
    return hidden;
}

HTREEITEM CLayerTree::AddLayer(UINT nFormat, const PlotLayer &layer, int nMarks, HTREEITEM hParent)
{
    CString strText;
    if (layer.kind == PlotLayer::Pen)
        strText.Format(nFormat, layer.pen, nMarks);
    else
        strText.Format(nFormat, nMarks);
    const HTREEITEM hItem = InsertItem(strText, hParent);
    SetItemData(hItem, layer.itemData());
    return hItem;
}
