// SPDX-License-Identifier: MIT
#include "PlotSheetPainter.h"

#include "SheetSurface.h"
#include "StrokeFont.h"

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double TitleHeight = 14;          // millimetres, as are all lengths here
constexpr double TitleFontSize = 6;
constexpr double FittedSide = 297;
constexpr double MostHatchLines = 2e5;      // of all areas
constexpr double MostHatchWork = 5e7;       // lines times corners

constexpr QRgb paperColours[PlotSheet::PaperCount] = {0xfffdfdfb, 0xfff8f1dd, 0xfffbfcf6, 0xff1d4077};
constexpr QRgb penColours[PlotSheet::PenCount] = {
    0xff22262b, 0xffc9302c, 0xff1e8449, 0xff2155b0, 0xff7d3c98, 0xffc8681a, 0xff138d90, 0xffb8256f,
};
constexpr QRgb blueprintPenColours[PlotSheet::PenCount] = {
    0xfff4f8ff, 0xffffb4a8, 0xffb6f0c4, 0xffa9d1ff, 0xffdcc0ff, 0xffffd59a, 0xff9eeaea, 0xffffb6dc,
};
constexpr QRgb selectionColour = 0xffffaa00;
constexpr QRgb fillColour = 0xffffaa00;     // of no pen

// A plotter's line type as a pen style, and what it draws and leaves out in turn, in hundredths of a pattern.
// 0 is a dot.
struct LineType
{
    int style;
    QVector<double> shares;
};

const LineType &lineTypeOf(int number)
{
    static const LineType types[] = {
        {PS_SOLID, {}},
        {PS_DOT, {0, 100}},
        {PS_DASH, {50, 50}},
        {PS_DASH, {70, 30}},
        {PS_DASHDOT, {80, 10, 0, 10}},
        {PS_DASHDOT, {70, 10, 10, 10}},
        {PS_DASHDOTDOT, {50, 10, 10, 10, 10, 10}},
        {PS_DASHDOTDOT, {70, 10, 0, 10, 0, 10}},
        {PS_DASHDOTDOT, {50, 10, 0, 10, 10, 10, 0, 10}},
    };
    return types[qBound(0, number, 8)];
}

QSizeF landscapeSize(int size)
{
    switch (size) {
    case PlotSheet::A3: return QSizeF(420, 297);
    case PlotSheet::A2: return QSizeF(594, 420);
    default: return QSizeF(297, 210);
    }
}

double titleHeight(const PlotSheet &sheet)
{
    return sheet.title.trimmed().isEmpty() ? 0 : TitleHeight;
}

// Where a line at `y` runs inside the outlines: pairs of x.
std::vector<double> crossings(const QVector<QPolygonF> &outlines, double y)
{
    std::vector<double> found;
    for (const QPolygonF &outline : outlines) {
        for (int i = 0; i < outline.size(); ++i) {
            const QPointF from = outline.at(i == 0 ? outline.size() - 1 : i - 1);
            const QPointF to = outline.at(i);
            if ((from.y() <= y) != (to.y() <= y))
                found.push_back(from.x() + (to.x() - from.x()) * (y - from.y()) / (to.y() - from.y()));
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

// The lines `spacing` apart, at `angle` degrees, that shade the outlines.
QVector<QLineF> hatchLines(const QVector<QPolygonF> &outlines, double spacing, double angle)
{
    QTransform level;
    level.rotate(angle);
    const QTransform back = level.inverted();
    QVector<QPolygonF> turned;
    QRectF box;
    for (const QPolygonF &outline : outlines) {
        turned.append(level.map(outline));
        box |= turned.last().boundingRect();
    }
    QVector<QLineF> lines;
    for (double row = std::ceil(box.top() / spacing); row * spacing <= box.bottom(); ++row) {
        const std::vector<double> ends = crossings(turned, row * spacing);
        for (std::size_t i = 0; i + 1 < ends.size(); i += 2)
            lines.append(back.map(QLineF(ends[i], row * spacing, ends[i + 1], row * spacing)));
    }
    return lines;
}

// The lines of a text in stroke letters.
QVector<QPolygonF> textLines(const QString &text, const QTransform &letters)
{
    QVector<QPolygonF> lines;
    QTransform letter = letters;
    // Bends become straight pieces that are short in the measure of this transform.
    const QTransform enlarged = QTransform::fromScale(64, 64);
    const QTransform back = enlarged.inverted();
    for (const QChar character : text) {
        for (const QPolygonF &line : StrokeFont::glyph(character).toSubpathPolygons(letter * enlarged))
            lines.append(back.map(line));
        letter.translate(PlotLabel::CellWidth, 0);
    }
    return lines;
}

CRect toCRect(const QRect &rect)
{
    return CRect(rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height());
}

// Light enough for the drawing to be read on it.
QColor thinned(const QColor &ink, const QColor &paper)
{
    const auto channel = [](int inked, int bare) { return (inked + 3 * bare) / 4; };
    return QColor(channel(ink.red(), paper.red()), channel(ink.green(), paper.green()),
                  channel(ink.blue(), paper.blue()));
}

// A label's box with some room around the letters.
QPolygonF widened(const QPolygonF &box)
{
    const QPointF up = (box.at(3) - box.at(0)) * 0.25;
    const QPointF along = up.isNull() ? QPointF() : QPointF(up.y(), -up.x());
    return {{box.at(0) - up - along, box.at(1) - up + along, box.at(2) + up + along, box.at(3) + up - along}};
}

QColor blended(const QColor &below, const QColor &above, int alpha)
{
    const auto channel = [alpha](int from, int to) { return from + (to - from) * alpha / 255; };
    return QColor(channel(below.red(), above.red()), channel(below.green(), above.green()),
                  channel(below.blue(), above.blue()));
}

} // namespace

PlotSheetPainter::PlotSheetPainter(const Plot &plot, const PlotSheet &sheet, const PlotPens &pens)
    : m_plot(plot), m_sheet(sheet), m_pens(pens), m_bounds(plot.bounds())
{
    // A single dot or line has no extent to be fitted.
    const double least = std::max({m_bounds.width() / 1000, m_bounds.height() / 1000, 1.0});
    const double dx = std::max(0.0, least - m_bounds.width()) / 2;
    const double dy = std::max(0.0, least - m_bounds.height()) / 2;
    m_bounds.adjust(-dx, -dy, dx, dy);
    if (m_sheet.size == PlotSheet::FitPlot) {
        const double inner = FittedSide - 2 * m_sheet.margin;
        const double scale = inner / std::max(m_bounds.width(), m_bounds.height());
        // Thin plots get a sheet that is not all margin.
        const QSizeF room(std::max(m_bounds.width() * scale, inner / 3),
                          std::max(m_bounds.height() * scale, inner / 3));
        const QSizeF turned = m_sheet.rotate ? room.transposed() : room;
        m_sheetSize = turned + QSizeF(2 * m_sheet.margin, 2 * m_sheet.margin + titleHeight(m_sheet));
    } else {
        const QSizeF landscape = landscapeSize(m_sheet.size);
        m_sheetSize = m_sheet.rotate ? landscape.transposed() : landscape;
    }
    m_toSheet = plotToSheet();
    m_millimetresPerUnit = std::hypot(m_toSheet.m11(), m_toSheet.m12());
}

QRectF PlotSheetPainter::plotRect() const
{
    const double margin = m_sheet.margin;
    const double below = margin + titleHeight(m_sheet);
    return QRectF(QPointF(0, 0), m_sheetSize).adjusted(margin, margin, -margin, -below);
}

QTransform PlotSheetPainter::plotToSheet() const
{
    const QRectF room = plotRect();
    const QSizeF extent = m_sheet.rotate ? m_bounds.size().transposed() : m_bounds.size();
    const double fit = std::min(room.width() / extent.width(), room.height() / extent.height());
    const double scale = m_sheet.scale * fit;
    QTransform transform;
    transform.translate(room.center().x(), room.center().y());
    if (m_sheet.rotate)
        transform.rotate(-90);
    transform.scale(scale, -scale);
    transform.translate(-m_bounds.center().x(), -m_bounds.center().y());
    return transform;
}

// Below the plot, across the sheet.
QRectF PlotSheetPainter::titleRect() const
{
    const double margin = std::max(m_sheet.margin, 6);
    const double bottom = m_sheetSize.height() - std::max(m_sheet.margin, 4);
    return QRectF(margin, bottom - TitleHeight + 3, m_sheetSize.width() - 2 * margin, TitleHeight - 3);
}

// The plot keeps clear of the title block, and of the paper around it.
QVector<QRectF> PlotSheetPainter::printedAreas() const
{
    const QRectF paper(QPointF(0, 0), m_sheetSize);
    if (titleHeight(m_sheet) <= 0)
        return {paper};
    const QRectF title = titleRect();
    constexpr double Gap = 1;
    return {QRectF(paper.topLeft(), QPointF(paper.right(), title.top() - Gap)), title};
}

QVector<QPolygonF> PlotSheetPainter::toSheet(const QVector<QPolygonF> &outlines) const
{
    QVector<QPolygonF> mapped;
    for (const QPolygonF &outline : outlines)
        mapped.append(m_toSheet.map(outline));
    return mapped;
}

void PlotSheetPainter::paint(KxQtPainterWrapper &painter, const QRect &target) const
{
    painter.fillRect(toCRect(target), toColorRef(paperColour()));
    {
        SheetSurface sheet(painter, target, m_sheetSize, {QRectF(QPointF(0, 0), m_sheetSize)});
        paintPaperLines(sheet);
    }
    if (!m_filled.isNull())
        painter.drawImage(target, m_filled);
    paintDrawing(painter, target);
}

QImage PlotSheetPainter::picture(const QSize &size) const
{
    QImage image(size, QImage::Format_RGB32);
    KxQtPainterWrapper painter(&image);
    painter.beginDraw();
    painter.fillRect(toCRect(image.rect()), toColorRef(paperColour()));
    paintDrawing(painter, image.rect());
    painter.endDraw();
    return image;
}

QImage PlotSheetPainter::filledWith(const PlotFills &fills, const QSize &size) const
{
    if (fills.empty())
        return QImage();
    return filledLayer(picture(size), paperColour().rgb(), fills, [this](int pen) {
        const QColor ink = pen == PlotFill::NoPen ? QColor(fillColour) : penColour(pen);
        return toColorRef(thinned(ink, paperColour()));
    });
}

void PlotSheetPainter::paintDrawing(KxQtPainterWrapper &painter, const QRect &target) const
{
    SheetSurface sheet(painter, target, m_sheetSize, printedAreas());
    for (const PlotArea &area : m_plot.areas) {
        if (!isHidden(area.pen, PlotLayer::Areas))
            paintArea(sheet, area);
    }
    for (const PlotStroke &stroke : m_plot.strokes) {
        if (!isHidden(stroke.pen, PlotLayer::Strokes))
            paintStroke(sheet, stroke);
    }
    for (const PlotLabel &label : m_plot.labels) {
        if (!isHidden(label.pen, PlotLayer::Labels))
            paintLabel(sheet, label);
    }
    if (titleHeight(m_sheet) > 0)
        paintTitle(sheet);
}

void PlotSheetPainter::paintSelected(KxQtPainterWrapper &painter, const QRect &target, const PlotMarks &marks,
                                     bool fade) const
{
    if (fade) {
        constexpr int VeilAlpha = 200;
        painter.save();
        painter.setPen(PS_NULL, 0, 0);
        painter.drawAlphaRect(CRect(target.left(), target.top(), target.right(), target.bottom()),
                              toColorRef(paperColour()), VeilAlpha);
        painter.restore();
    }
    SheetSurface sheet(painter, target, m_sheetSize, printedAreas());
    const double pixel = 1 / sheet.pixelsPerMillimetre();
    shadeMarks(sheet, marks);
    if (!fade) {
        PlotSheetPainter border(*this);
        border.m_border = selectionColour;
        border.m_extraWidth = 3 * pixel + 1;
        border.paintMarks(sheet, marks);
    }
    PlotSheetPainter selected(*this);
    selected.m_extraWidth = pixel;
    selected.paintMarks(sheet, marks);
}

void PlotSheetPainter::paintMarks(SheetSurface &sheet, const PlotMarks &marks) const
{
    for (const PlotMark &mark : marks) {
        const auto index = static_cast<std::size_t>(mark.index);
        if (mark.kind == PlotLayer::Areas && index < m_plot.areas.size())
            paintArea(sheet, m_plot.areas[index]);
        else if (mark.kind == PlotLayer::Strokes && index < m_plot.strokes.size())
            paintStroke(sheet, m_plot.strokes[index]);
        else if (mark.kind == PlotLayer::Labels && index < m_plot.labels.size() && !m_border.isValid())
            paintLabel(sheet, m_plot.labels[index]);    // letters would run together in a border
    }
}

// What lies behind selected texts and areas.
void PlotSheetPainter::shadeMarks(SheetSurface &sheet, const PlotMarks &marks) const
{
    constexpr int Alpha = 70;
    for (const PlotMark &mark : marks) {
        const auto index = static_cast<std::size_t>(mark.index);
        if (mark.kind == PlotLayer::Areas && index < m_plot.areas.size())
            sheet.shade(toSheet(m_plot.areas[index].outlines), selectionColour, Alpha);
        else if (mark.kind == PlotLayer::Labels && index < m_plot.labels.size())
            sheet.shade(toSheet({widened(m_plot.labels[index].box())}), selectionColour, Alpha);
    }
}

PlotMarks PlotSheetPainter::marksInside(const QRect &part, const QRect &target) const
{
    const double x = m_sheetSize.width() / target.width();
    const double y = m_sheetSize.height() / target.height();
    const QTransform toMillimetres(x, 0, 0, y, -target.left() * x, -target.top() * y);
    const QRectF room = m_toSheet.inverted().mapRect(toMillimetres.mapRect(QRectF(part)));
    const auto holds = [&room](const QPolygonF &points) {
        return std::all_of(points.begin(), points.end(),
                           [&room](const QPointF &point) { return room.contains(point); });
    };
    PlotMarks found;
    const auto take = [&](PlotLayer::Kind kind, std::size_t index, int pen, bool isInside) {
        if (isInside && !isHidden(pen, kind))
            found.push_back({kind, static_cast<int>(index)});
    };
    for (std::size_t i = 0; i < m_plot.strokes.size(); ++i)
        take(PlotLayer::Strokes, i, m_plot.strokes[i].pen, holds(m_plot.strokes[i].points));
    for (std::size_t i = 0; i < m_plot.areas.size(); ++i) {
        const QVector<QPolygonF> &outlines = m_plot.areas[i].outlines;
        take(PlotLayer::Areas, i, m_plot.areas[i].pen, std::all_of(outlines.begin(), outlines.end(), holds));
    }
    for (std::size_t i = 0; i < m_plot.labels.size(); ++i)
        take(PlotLayer::Labels, i, m_plot.labels[i].pen, holds(m_plot.labels[i].box()));
    return found;
}

QColor PlotSheetPainter::penColour(int pen) const
{
    const int index = (std::max(pen, 1) - 1) % PlotSheet::PenCount;
    if (const QRgb chosen = m_pens.colours[static_cast<std::size_t>(index)])
        return QColor(chosen);
    const auto own = m_plot.penColours.find(pen);
    if (own != m_plot.penColours.end())
        return QColor(own->second);
    return QColor(m_sheet.paper == PlotSheet::Blueprint ? blueprintPenColours[index] : penColours[index]);
}

QColor PlotSheetPainter::paperColour() const
{
    return QColor(paperColours[qBound(0, m_sheet.paper, PlotSheet::PaperCount - 1)]);
}

void PlotSheetPainter::paintPaperLines(SheetSurface &sheet) const
{
    struct Lines
    {
        int every;      // millimetres
        int strength;   // of the ink, to 255
    };
    const double pixel = 1 / sheet.pixelsPerMillimetre();
    const bool isBlueprint = m_sheet.paper == PlotSheet::Blueprint;
    const QColor ink = isBlueprint ? QColor(255, 255, 255) : QColor(214, 120, 60);
    QVector<Lines> all;
    if (isBlueprint)
        all = {{10, 22}};
    else if (m_sheet.paper == PlotSheet::Millimetre)
        all = {{1, 25}, {5, 45}, {10, 80}};     // the strong ones go over the weak ones
    constexpr double FinestStep = 3;            // pixels
    for (const Lines &lines : qAsConst(all)) {
        if (lines.every < FinestStep * pixel)
            continue;
        SheetPen pen;
        pen.colour = blended(paperColour(), ink, lines.strength);
        pen.width = pixel;
        sheet.setPen(pen);
        for (int x = lines.every; x < m_sheetSize.width(); x += lines.every)
            sheet.drawLine(QLineF(x, 0, x, m_sheetSize.height()));
        for (int y = lines.every; y < m_sheetSize.height(); y += lines.every)
            sheet.drawLine(QLineF(0, y, m_sheetSize.width(), y));
    }
}

void PlotSheetPainter::paintTitle(SheetSurface &sheet) const
{
    const QRectF block = titleRect();
    const QString title = m_sheet.title.simplified();
    sheet.setPen(pen(sheet, m_sheet.titlePen));
    sheet.drawLine(QLineF(block.topLeft(), block.topRight()));
    sheet.setFont(TitleFontSize, FW_MEDIUM);
    const double room = block.width() / std::max(sheet.textWidth(title), 1.0);
    if (room < 1)
        sheet.setFont(TitleFontSize * room, FW_MEDIUM);
    constexpr double BelowMiddle = 0.36;    // the base line, for capital letters in the middle
    const QPointF start(block.center().x() - sheet.textWidth(title) / 2,
                        block.center().y() + 0.5 + BelowMiddle * TitleFontSize * std::min(room, 1.0));
    sheet.drawText(start, title);
}

void PlotSheetPainter::paintArea(SheetSurface &sheet, const PlotArea &area) const
{
    const QVector<QPolygonF> outlines = toSheet(area.outlines);
    QRectF box;
    double corners = 0;
    for (const QPolygonF &outline : outlines) {
        box |= outline.boundingRect();
        corners += outline.size();
    }
    const double spacing = area.spacing * m_millimetresPerUnit;
    const double areas = static_cast<double>(m_plot.areas.size());
    const double lines = areas * std::hypot(box.width(), box.height()) / spacing;
    const bool isTooFine = !(lines <= MostHatchLines && lines * corners <= MostHatchWork);
    sheet.setPen(pen(sheet, area.pen));
    if (area.fill == PlotArea::Solid || isTooFine) {
        if (m_border.isValid())
            sheet.fillWithBorder(outlines, m_border);
        else
            sheet.fill(outlines, penColour(area.pen));
        return;
    }
    const double angle = area.angle + (m_sheet.rotate ? 90 : 0);
    sheet.drawLines(hatchLines(outlines, spacing, angle));
    if (area.fill == PlotArea::CrossHatch)
        sheet.drawLines(hatchLines(outlines, spacing, angle + 90));
}

void PlotSheetPainter::paintStroke(SheetSurface &sheet, const PlotStroke &stroke) const
{
    const QPolygonF points = m_toSheet.map(stroke.points);
    SheetPen drawing = pen(sheet, stroke.pen, stroke.width);
    const bool areDots = points.size() == 1 || stroke.lineType == 0;
    const double pattern = stroke.patternLength * m_millimetresPerUnit;
    constexpr double FinestPattern = 1.5;   // pixels; a finer one is a line to the eye
    const bool isDashed = stroke.lineType != PlotStroke::SolidLine;
    if (!areDots && isDashed && pattern * sheet.pixelsPerMillimetre() > FinestPattern) {
        const LineType &type = lineTypeOf(stroke.lineType);
        drawing.style = type.style;
        for (int i = 0; i < type.shares.size(); i += 2) {
            // A dot is as long as the pen is wide, and takes that from the gap behind it.
            const double gap = type.shares.at(i + 1) / 100 * pattern;
            const bool isDot = type.shares.at(i) == 0;
            drawing.dashes.append(isDot ? drawing.width : type.shares.at(i) / 100 * pattern);
            drawing.dashes.append(isDot ? std::max(gap - drawing.width, drawing.width / 5) : gap);
        }
    }
    sheet.setPen(drawing);
    if (areDots)
        sheet.drawDots(points);
    else
        sheet.drawPolyline(points);
}

void PlotSheetPainter::paintLabel(SheetSurface &sheet, const PlotLabel &label) const
{
    QTransform letters = QTransform::fromTranslate(label.position.x(), label.position.y()) * m_toSheet;
    letters.rotate(label.direction);
    const double height = std::fabs(label.characterSize.height()) * m_millimetresPerUnit;
    SheetPen drawing = pen(sheet, label.pen, std::min(m_pens.width / 100.0, height / 8));
    drawing.width -= m_extraWidth;  // wide letters cannot be read
    sheet.setPen(drawing);
    constexpr double SmallestReadable = 1.5;    // pixels
    const bool isReadable = height * sheet.pixelsPerMillimetre() >= SmallestReadable;
    if (isReadable && !StrokeFont::canDraw(label.text)) {
        constexpr double CapitalHeight = 0.72;  // of a font's size
        sheet.setFont(height / CapitalHeight, FW_MEDIUM);
        sheet.drawText(letters.map(QPointF(0, 0)), label.text, -letters.map(QLineF(0, 0, 1, 0)).angle());
        return;
    }
    letters.shear(label.slant, 0);
    letters.scale(label.characterSize.width(), label.characterSize.height());
    if (!isReadable) {
        sheet.drawLine(letters.map(QLineF(0, 0.5, PlotLabel::CellWidth * label.text.size(), 0.5)));
        return;
    }
    for (const QPolygonF &line : textLines(label.text, letters))
        sheet.drawPolyline(line);
}

SheetPen PlotSheetPainter::pen(const SheetSurface &sheet, int number, double width) const
{
    constexpr double ThinnestLine = 0.65;   // pixels
    const double millimetres = width > 0 ? width : m_pens.width / 100.0;
    SheetPen pen;
    pen.colour = m_border.isValid() ? m_border : penColour(number);
    pen.width = std::max(millimetres, ThinnestLine / sheet.pixelsPerMillimetre()) + m_extraWidth;
    return pen;
}
