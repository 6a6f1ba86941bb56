// SPDX-License-Identifier: MIT
#include "PlotSheetPainter.h"

#include "StrokeFont.h"

#include <QtCore/QtMath>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double TitleHeight = 14;          // millimetres, as are all lengths here
constexpr double TitleLetterHeight = 4.2;
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

// Drawn and gap in turn, hundredths of a pattern; 0 is a dot.
const QVector<double> &dashesOf(int lineType)
{
    static const QVector<double> dashes[] = {
        {}, {0, 100}, {50, 50}, {70, 30}, {80, 10, 0, 10}, {70, 10, 10, 10}, {50, 10, 10, 10, 10, 10},
        {70, 10, 0, 10, 0, 10}, {50, 10, 0, 10, 10, 10, 0, 10},
    };
    return dashes[qBound(0, lineType, 8)];
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

double pixelsPerUnit(const QPainter &painter)
{
    const QTransform transform = painter.deviceTransform();
    return std::hypot(transform.m11(), transform.m12());
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

QPainterPath textPath(const QString &text, const QTransform &letters)
{
    QPainterPath path;
    QTransform letter = letters;
    for (const QChar character : text) {
        path.addPath(letter.map(StrokeFont::glyph(character)));
        letter.translate(PlotLabel::CellWidth, 0);
    }
    return path;
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

void PlotSheetPainter::paint(QPainter &painter, const QRectF &target) const
{
    beginSheet(painter, target);
    paintPaper(painter);
    painter.setClipRect(QRectF(QPointF(0, 0), m_sheetSize));
    for (const PlotArea &area : m_plot.areas) {
        if (!isHidden(area.pen, PlotLayer::Areas))
            paintArea(painter, area);
    }
    for (const PlotStroke &stroke : m_plot.strokes) {
        if (!isHidden(stroke.pen, PlotLayer::Strokes))
            paintStroke(painter, stroke);
    }
    for (const PlotLabel &label : m_plot.labels) {
        if (!isHidden(label.pen, PlotLayer::Labels))
            paintLabel(painter, label);
    }
    if (titleHeight(m_sheet) > 0)
        paintTitle(painter);
    painter.restore();
}

void PlotSheetPainter::paintSelected(QPainter &painter, const QRectF &target, const PlotMarks &marks,
                                     bool fade) const
{
    beginSheet(painter, target);
    const QRectF paper(QPointF(0, 0), m_sheetSize);
    painter.setClipRect(paper);
    PlotSheetPainter selected(*this);
    if (fade) {
        QColor veil = paperColour();
        veil.setAlpha(200);
        painter.fillRect(paper, veil);
    } else {
        PlotSheetPainter border(*this);
        border.m_border = QColor(255, 170, 0);
        border.m_extraWidth = 3 / pixelsPerUnit(painter) + 1;
        border.paintMarks(painter, marks);
    }
    selected.m_extraWidth = 1 / pixelsPerUnit(painter);
    selected.paintMarks(painter, marks);
    painter.restore();
}

void PlotSheetPainter::beginSheet(QPainter &painter, const QRectF &target) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(target.topLeft());
    painter.scale(target.width() / m_sheetSize.width(), target.height() / m_sheetSize.height());
}

void PlotSheetPainter::paintMarks(QPainter &painter, const PlotMarks &marks) const
{
    for (const PlotMark &mark : marks) {
        const auto index = static_cast<std::size_t>(mark.index);
        if (mark.kind == PlotLayer::Areas && index < m_plot.areas.size())
            paintArea(painter, m_plot.areas[index]);
        else if (mark.kind == PlotLayer::Strokes && index < m_plot.strokes.size())
            paintStroke(painter, m_plot.strokes[index]);
        else if (mark.kind == PlotLayer::Labels && index < m_plot.labels.size())
            paintLabel(painter, m_plot.labels[index]);
    }
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

void PlotSheetPainter::paintPaper(QPainter &painter) const
{
    const QRectF paper(QPointF(0, 0), m_sheetSize);
    painter.fillRect(paper, paperColour());
    if (m_sheet.paper != PlotSheet::Millimetre && m_sheet.paper != PlotSheet::Blueprint)
        return;
    const bool isBlueprint = m_sheet.paper == PlotSheet::Blueprint;
    const QColor ink = isBlueprint ? QColor(255, 255, 255) : QColor(214, 120, 60);
    const double pixel = 1 / pixelsPerUnit(painter);
    const int step = isBlueprint ? 10 : pixel < 0.3 ? 1 : 5;
    const auto setPen = [&](int millimetre) {
        QColor colour = ink;
        colour.setAlpha(isBlueprint ? 22 : millimetre % 10 == 0 ? 80 : millimetre % 5 == 0 ? 45 : 25);
        painter.setPen(QPen(colour, pixel));
    };
    for (int x = step; x < m_sheetSize.width(); x += step) {
        setPen(x);
        painter.drawLine(QPointF(x, 0), QPointF(x, m_sheetSize.height()));
    }
    for (int y = step; y < m_sheetSize.height(); y += step) {
        setPen(y);
        painter.drawLine(QPointF(0, y), QPointF(m_sheetSize.width(), y));
    }
}

void PlotSheetPainter::paintTitle(QPainter &painter) const
{
    const double margin = std::max(m_sheet.margin, 6);
    const double bottom = m_sheetSize.height() - std::max(m_sheet.margin, 4);
    const QRectF block(margin, bottom - TitleHeight + 3, m_sheetSize.width() - 2 * margin, TitleHeight - 3);
    const QString title = m_sheet.title.simplified();
    painter.setPen(pen(painter, m_sheet.titlePen));
    painter.drawLine(block.topLeft(), block.topRight());
    if (!StrokeFont::canDraw(title)) {
        QFont font = painter.font();
        font.setPointSizeF(TitleLetterHeight);
        painter.setFont(font);
        painter.drawText(block, Qt::AlignCenter, title);
        return;
    }
    const double cells = std::max(1.0, PlotLabel::CellWidth * title.size() - (PlotLabel::CellWidth - 1));
    const double width = std::min(TitleLetterHeight * 0.68, block.width() / cells);
    const double height = width / 0.68;
    QTransform letters;
    letters.translate(block.center().x() - cells * width / 2, block.center().y() + height / 2 + 0.5);
    letters.scale(width, -height);
    painter.strokePath(textPath(title, letters), pen(painter, m_sheet.titlePen, height / 9));
}

void PlotSheetPainter::paintArea(QPainter &painter, const PlotArea &area) const
{
    QVector<QPolygonF> outlines;
    QRectF box;
    double corners = 0;
    for (const QPolygonF &outline : area.outlines) {
        outlines.append(m_toSheet.map(outline));
        box |= outlines.last().boundingRect();
        corners += outline.size();
    }
    const double spacing = area.spacing * m_millimetresPerUnit;
    const double areas = static_cast<double>(m_plot.areas.size());
    const double lines = areas * std::hypot(box.width(), box.height()) / spacing;
    const bool isTooFine = !(lines <= MostHatchLines && lines * corners <= MostHatchWork);
    if (area.fill == PlotArea::Solid || isTooFine) {
        QPainterPath path;
        for (const QPolygonF &outline : qAsConst(outlines))
            path.addPolygon(outline);
        painter.fillPath(path, m_border.isValid() ? m_border : penColour(area.pen));
        return;
    }
    const double angle = area.angle + (m_sheet.rotate ? 90 : 0);
    painter.setPen(pen(painter, area.pen));
    painter.drawLines(hatchLines(outlines, spacing, angle));
    if (area.fill == PlotArea::CrossHatch)
        painter.drawLines(hatchLines(outlines, spacing, angle + 90));
}

void PlotSheetPainter::paintStroke(QPainter &painter, const PlotStroke &stroke) const
{
    const QPolygonF points = m_toSheet.map(stroke.points);
    QPen drawing = pen(painter, stroke.pen, stroke.width);
    const bool areDots = points.size() == 1 || stroke.lineType == 0;
    const double pattern = stroke.patternLength * m_millimetresPerUnit;
    constexpr double FinestPattern = 1.5;   // pixels; a finer one is a line to the eye
    const bool isDashed = stroke.lineType != PlotStroke::SolidLine;
    if (!areDots && isDashed && pattern * pixelsPerUnit(painter) > FinestPattern) {
        QVector<qreal> dashes;
        for (const double part : dashesOf(stroke.lineType)) {
            const bool isGap = dashes.size() % 2 == 1;
            const double length = part / 100 * pattern / drawing.widthF();
            // A dot is as long as the pen is wide, and takes that from the gap behind it.
            constexpr double Dot = 1;
            if (isGap && dashes.last() == Dot)
                dashes.append(std::max(length - Dot, 0.2));
            else
                dashes.append(part == 0 ? Dot : length);
        }
        drawing.setDashPattern(dashes);
        drawing.setCapStyle(Qt::FlatCap);
    }
    painter.setPen(drawing);
    if (areDots)
        painter.drawPoints(points);
    else
        painter.drawPolyline(points);
}

void PlotSheetPainter::paintLabel(QPainter &painter, const PlotLabel &label) const
{
    QTransform letters = QTransform::fromTranslate(label.position.x(), label.position.y()) * m_toSheet;
    letters.rotate(label.direction);
    letters.shear(label.slant, 0);
    letters.scale(label.characterSize.width(), label.characterSize.height());
    const double height = std::fabs(label.characterSize.height()) * m_millimetresPerUnit;
    painter.setPen(pen(painter, label.pen, std::min(m_pens.width / 100.0, height / 8)));
    constexpr double SmallestReadable = 1.5;    // pixels
    if (height * pixelsPerUnit(painter) < SmallestReadable) {
        const double length = PlotLabel::CellWidth * label.text.size();
        painter.drawLine(letters.map(QLineF(0, 0.5, length, 0.5)));
        return;
    }
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(textPath(label.text, letters));
}

QPen PlotSheetPainter::pen(const QPainter &painter, int number, double width) const
{
    constexpr double ThinnestLine = 0.65;   // pixels
    const double millimetres = width > 0 ? width : m_pens.width / 100.0;
    const double visible = std::max(millimetres, ThinnestLine / pixelsPerUnit(painter)) + m_extraWidth;
    const QColor ink = m_border.isValid() ? m_border : penColour(number);
    return QPen(ink, visible, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}
