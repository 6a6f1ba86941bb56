// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "Plot.h"
#include "PlotLayer.h"
#include "PlotOptions.h"

#include <vector>

/// The list of what was drawn, in report view. The item data tell which mark a row is.
class CMarkList : public CListCtrl
{
public:
    enum Column { NumberColumn, KindColumn, PenColumn, PointsColumn, LengthColumn, ColumnCount };

    /// Makes the columns; their widths are the form's business.
    void InsertColumns();

    /// Lists what belongs to the layer, `nMostRows` of it at most. \return how many there are
    int Fill(const Plot &plot, const PlotLayer &layer, const PlotUnits &units, int nMostRows);

    PlotMarks GetSelectedMarks() const;
    /// The rows of those marks that are listed, in their order in the list.
    std::vector<int> FindRows(const PlotMarks &marks) const;

private:
    void SetLengthHeading(const PlotUnits &units);
    void AddStroke(const PlotStroke &stroke, int nIndex, const PlotUnits &units);
    void AddArea(const PlotArea &area, int nIndex, const PlotUnits &units);
    void AddLabel(const PlotLabel &label, int nIndex);
    void AddRow(const PlotMark &mark, UINT nKind, int nPen, int nPoints, const CString &strLength);
};
