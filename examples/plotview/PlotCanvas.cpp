// SPDX-License-Identifier: MIT
#include "PlotCanvas.h"

#include "GdiFont.h"
#include "PlotSheetPainter.h"
#include "ResourceText.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

PlotCanvas::PlotCanvas(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_window.Attach(KxHwndFromWidget(this));
    m_dc = _CreateDCforHwnd(m_window);
}

void PlotCanvas::setPlot(const std::shared_ptr<const Plot> &plot)
{
    m_plot = plot;
    m_selection.clear();
    m_hidden.clear();
    m_fills.clear();
    changed();
}

void PlotCanvas::setSheet(const PlotSheet &sheet)
{
    m_sheet = sheet;
    changed();
}

void PlotCanvas::setPens(const PlotPens &pens)
{
    m_pens = pens;
    changed();
}

void PlotCanvas::setHiddenLayers(const PlotHiddenLayers &hidden)
{
    m_hidden = hidden;
    changed();
}

void PlotCanvas::setSelection(const PlotMarks &marks, bool fade)
{
    m_selection = marks;
    m_fade = fade;
    selectionChanged();
}

void PlotCanvas::setHint(const QString &hint)
{
    m_hint = hint;
    changed();
}

void PlotCanvas::setDeskMargin(int margin)
{
    m_deskMargin = margin;
    changed();
}

void PlotCanvas::setTool(Tool tool)
{
    m_tool = tool;
    setCursor(tool == FillTool ? Qt::CrossCursor : Qt::ArrowCursor);
}

void PlotCanvas::clearFills()
{
    m_fills.clear();
    changed();
}

QSize PlotCanvas::sizeHint() const
{
    return QSize(860, 640);
}

QRect PlotCanvas::paper() const
{
    const double ratio = devicePixelRatioF();
    const int margin = qRound(m_deskMargin * ratio);
    const QRect desk = QRect(QPoint(0, 0), size() * ratio).adjusted(margin, margin, -margin, -margin);
    if (!m_plot || desk.isEmpty())
        return QRect();
    QRect paper(QPoint(0, 0), sheetPainter().sheetSize().scaled(desk.size(), Qt::KeepAspectRatio).toSize());
    paper.moveCenter(desk.center());
    return paper;
}

// ---- drawing -------------------------------------------------------------------------------------------

KxGrQtDoubleBufferImage &PlotCanvas::buffer() const
{
    return *static_cast<KxGrQtDoubleBufferImage *>(m_dc->m_hDC);
}

PlotSheetPainter PlotCanvas::sheetPainter() const
{
    PlotSheetPainter painter(*m_plot, m_sheet, m_pens);
    painter.setHidden(m_hidden);
    return painter;
}

void PlotCanvas::changed()
{
    m_isDrawn = false;
    selectionChanged();
}

void PlotCanvas::selectionChanged()
{
    m_isShown = false;
    update();
}

// The buffer would keep images of another size: when it is asked, the window has the new one already.
void PlotCanvas::resizeEvent(QResizeEvent *)
{
    buffer().destroyImages();
    m_band.End();
    changed();
}

void PlotCanvas::paintEvent(QPaintEvent *)
{
    if (!m_isDrawn)
        drawMemoryImage();
    if (!m_isShown)
        drawFrontImage();
    QPainter(this).drawImage(rect(), *buffer().frontImage());
}

void PlotCanvas::drawMemoryImage()
{
    const QSize pixels = size() * devicePixelRatioF();
    if (!buffer().memImage())
        buffer().createImages(pixels.width(), pixels.height(), 4);
    KxQtPainterWrapper &painter = *buffer().memPainter();
    painter.beginDraw();
    painter.fillRect(CRect(0, 0, pixels.width(), pixels.height()), RGB(0xd5, 0xda, 0xe0));
    const QRect paper = this->paper();
    if (!m_plot)
        drawHint(painter, pixels);
    else if (!paper.isEmpty())
        drawSheet(painter, paper);
    painter.endDraw();
    m_isDrawn = true;
}

void PlotCanvas::drawFrontImage()
{
    buffer().repairFrontBuffer();
    const QRect paper = this->paper();
    KxQtPainterWrapper &painter = *buffer().frontPainter();
    if (!m_selection.empty() && !paper.isEmpty()) {
        painter.beginDraw();
        sheetPainter().paintSelected(painter, paper, m_selection, m_fade);
        painter.endDraw();
    }
    m_band.Invert(painter);
    m_isShown = true;
}

void PlotCanvas::drawHint(KxQtPainterWrapper &painter, const QSize &desk) const
{
    painter.setPen(PS_SOLID, 0, RGB(0x5a, 0x64, 0x70));
    setGdiFont(painter, qRound(fontInfo().pixelSize() * devicePixelRatioF()), FW_MEDIUM);
    const QFontMetrics metrics = painter.wrappedPainter()->fontMetrics();
    QStringList lines(QString{});
    for (const QString &word : m_hint.split(QLatin1Char(' '))) {
        const QString longer = (lines.last() + QLatin1Char(' ') + word).trimmed();
        if (metrics.horizontalAdvance(longer) <= desk.width() - 2 * m_deskMargin)
            lines.last() = longer;
        else
            lines.append(word);
    }
    int baseLine = (desk.height() - lines.size() * metrics.lineSpacing()) / 2 + metrics.ascent();
    for (const QString &line : qAsConst(lines)) {
        const int left = (desk.width() - metrics.horizontalAdvance(line)) / 2;
        painter.drawText(left, baseLine, toCString(line), -1);
        baseLine += metrics.lineSpacing();
    }
}

void PlotCanvas::drawShadow(KxQtPainterWrapper &painter, const QRect &paper) const
{
    constexpr int Depth = 8;
    constexpr int Drop = 3;
    painter.setPen(PS_NULL, 0, 0);
    for (int i = Depth; i > 0; --i)
        painter.drawAlphaRect(CRect(paper.left() - i, paper.top() - i + Drop, paper.right() + i,
                                    paper.bottom() + i + Drop),
                              RGB(40, 50, 65), 9);
}

void PlotCanvas::drawSheet(KxQtPainterWrapper &painter, const QRect &paper) const
{
    PlotSheetPainter sheet = sheetPainter();
    sheet.setFilled(sheet.filledWith(m_fills, paper.size()));
    drawShadow(painter, paper);
    sheet.paint(painter, paper);
}

// ---- mouse ---------------------------------------------------------------------------------------------

CPoint PlotCanvas::imagePoint(const QMouseEvent &event) const
{
    const QPoint point = (event.localPos() * devicePixelRatioF()).toPoint();
    return CPoint(point.x(), point.y());
}

void PlotCanvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_plot)
        return;
    if (m_tool == SelectTool)
        m_band.Begin(imagePoint(*event));
    else if (m_tool == FillTool)
        fillAt(imagePoint(*event));
}

// Only the band is drawn, not the selection below it, which may be large.
void PlotCanvas::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_band.IsActive())
        return;
    KxQtPainterWrapper &painter = *buffer().frontPainter();
    if (m_isShown)
        m_band.Invert(painter);
    m_band.MoveTo(imagePoint(*event));
    if (m_isShown)
        m_band.Invert(painter);
    update();
}

void PlotCanvas::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_band.IsActive())
        return;
    if (m_isShown)
        m_band.Invert(*buffer().frontPainter());
    m_band.End();
    update();
    const CRect band = m_band.GetRect();
    const QRect part(QPoint(band.left, band.top), QPoint(band.right, band.bottom));
    const QRect paper = this->paper();
    if (!paper.isEmpty())
        emit marksEnclosed(sheetPainter().marksInside(part, paper));
}

void PlotCanvas::fillAt(const CPoint &point)
{
    const QRect paper = this->paper();
    if (!paper.contains(point.x, point.y))
        return;
    PlotFill fill;
    fill.place = QPointF((point.x - paper.left() + 0.5) / paper.width(),     // the middle of the pixel
                         (point.y - paper.top() + 0.5) / paper.height());
    fill.pen = m_fillPen;
    const PlotSheetPainter sheet = sheetPainter();
    if (fill.isOnPaper(sheet.picture(paper.size()), sheet.paperColour().rgb())) {
        m_fills.push_back(fill);
        changed();
    }
}
