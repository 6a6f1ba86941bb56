// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

#include <set>
#include <utility>
#include <vector>

/// A row of the layers tree: all that is drawn, what one pen drew, or one kind of that. It is drawn when it
/// and all above it are visible. The whole of it fits into the row's item data.
struct PlotLayer
{
    enum Kind { AllPens, Pen, Strokes, Areas, Labels };

    Kind kind = AllPens;
    int pen = 0;
    bool visible = true;

    quint64 itemData() const
    {
        return quint64(visible) | quint64(kind) << 8 | quint64(quint32(pen)) << 32;
    }

    static PlotLayer fromItemData(quint64 data)
    {
        PlotLayer layer;
        layer.visible = data & 1;
        layer.kind = static_cast<Kind>(data >> 8 & 0xff);
        layer.pen = static_cast<int>(data >> 32);
        return layer;
    }

    /// Whether what `markPen` drew of this kind (Strokes, Areas, Labels) belongs to it.
    bool holds(Kind markKind, int markPen) const
    {
        return kind == AllPens || (pen == markPen && (kind == Pen || kind == markKind));
    }
};

/// What is not drawn: pens and kinds (Strokes, Areas, Labels).
using PlotHiddenLayers = std::set<std::pair<int, PlotLayer::Kind>>;

/// One mark of a plot: the number of a stroke, area or label among those of its kind.
struct PlotMark
{
    PlotLayer::Kind kind = PlotLayer::Strokes;
    int index = 0;

    quint64 itemData() const { return quint64(kind) << 32 | quint64(quint32(index)); }

    static PlotMark fromItemData(quint64 data)
    {
        return {static_cast<PlotLayer::Kind>(data >> 32), static_cast<int>(data & 0xffffffff)};
    }
};

inline bool operator==(const PlotMark &a, const PlotMark &b)
{
    return a.kind == b.kind && a.index == b.index;
}

using PlotMarks = std::vector<PlotMark>;
