// SPDX-License-Identifier: MIT
#include "PlotReader.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

static void check(bool condition)
{
    if (!condition)
        std::abort();
}

static void checkPoints(const QPolygonF &points)
{
    check(!points.isEmpty());
    for (const QPointF &point : points)
        check(std::isfinite(point.x()) && std::isfinite(point.y()));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const PlotReading reading = PlotReader::readBytes(bytes);
    const Plot &plot = reading.plot;
    check(plot.instructionCount >= 0 && plot.damagedCount <= plot.skippedCount);
    for (const PlotStroke &stroke : plot.strokes) {
        checkPoints(stroke.points);
        check(stroke.pen > 0 && std::isfinite(stroke.patternLength) && std::isfinite(stroke.width));
    }
    for (const PlotArea &area : plot.areas) {
        check(area.pen > 0 && std::isfinite(area.spacing) && std::isfinite(area.angle));
        for (const QPolygonF &outline : area.outlines)
            checkPoints(outline);
    }
    for (const PlotLabel &label : plot.labels) {
        check(label.pen > 0 && !label.text.isEmpty() && label.text.size() <= PlotReader::LongestLabel);
        check(std::isfinite(label.position.x()) && std::isfinite(label.position.y()));
        check(std::isfinite(label.characterSize.width()) && std::isfinite(label.characterSize.height()));
        check(std::isfinite(label.direction) && std::isfinite(label.slant));
    }
    const QRectF bounds = plot.bounds();
    check(std::isfinite(bounds.width()) && std::isfinite(bounds.height()));
    return 0;
}
