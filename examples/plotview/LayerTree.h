// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "Plot.h"
#include "PlotLayer.h"

/// The tree of the plot's layers. Its item data hold the layers, and with them what is visible.
class CLayerTree : public CTreeCtrl
{
public:
    /// Makes the rows of a plot, all visible, and selects the first.
    void Fill(const Plot &plot);

    PlotLayer GetLayer(HTREEITEM hItem) const;
    /// All pens when no row is selected.
    PlotLayer GetSelectedLayer() const;

    void SetVisible(HTREEITEM hItem, BOOL bVisible);
    void ShowAll();
    PlotHiddenLayers GetHiddenLayers() const;

private:
    HTREEITEM AddLayer(UINT nFormat, const PlotLayer &layer, int nMarks, HTREEITEM hParent);
};
