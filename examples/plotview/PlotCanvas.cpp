// SPDX-License-Identifier: MIT
#include "PlotCanvas.h"

#include "PlotSheetPainter.h"

#include <QtGui/QPainter>

static QRectF paperOn(const QRectF &desk, const PlotSheetPainter &sheetPainter)
{
    QRectF paper(QPointF(0, 0), sheetPainter.sheetSize().scaled(desk.size(), Qt::KeepAspectRatio));
    paper.moveCenter(desk.center());
    return paper;
}

PlotCanvas::PlotCanvas(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PlotCanvas::setPlot(const std::shared_ptr<const Plot> &plot)
{
    m_plot = plot;
    m_selection.clear();
    m_hidden.clear();
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
    update();
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

QSize PlotCanvas::sizeHint() const
{
    return QSize(860, 640);
}

void PlotCanvas::paintEvent(QPaintEvent *)
{
    const double ratio = devicePixelRatioF();
    const QSize pixels = size() * ratio;
    const QRectF desk = QRectF(rect()).adjusted(m_deskMargin, m_deskMargin, -m_deskMargin, -m_deskMargin);
    if (m_drawn.size() != pixels) {
        m_drawn = QPixmap(pixels);
        m_drawn.setDevicePixelRatio(ratio);
        QPainter painter(&m_drawn);
        painter.setRenderHint(QPainter::Antialiasing);
        paintDesk(painter, desk);
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_drawn);
    if (!m_plot || m_selection.empty() || desk.isEmpty())
        return;
    const PlotSheetPainter sheetPainter(*m_plot, m_sheet, m_pens);
    sheetPainter.paintSelected(painter, paperOn(desk, sheetPainter), m_selection, m_fade);
}

void PlotCanvas::changed()
{
    m_drawn = QPixmap();
    update();
}

void PlotCanvas::paintDesk(QPainter &painter, const QRectF &desk) const
{
    painter.fillRect(rect(), QColor(0xd5, 0xda, 0xe0));
    if (desk.isEmpty())
        return;
    if (!m_plot) {
        painter.setPen(QColor(0x5a, 0x64, 0x70));
        painter.drawText(desk, Qt::AlignCenter | Qt::TextWordWrap, m_hint);
        return;
    }
    PlotSheetPainter sheetPainter(*m_plot, m_sheet, m_pens);
    sheetPainter.setHidden(m_hidden);
    const QRectF paper = paperOn(desk, sheetPainter);
    painter.setPen(Qt::NoPen);
    constexpr int ShadowDepth = 8;
    for (int i = ShadowDepth; i > 0; --i) {
        painter.setBrush(QColor(40, 50, 65, 9));
        painter.drawRoundedRect(paper.adjusted(-i, -i + 3, i, i + 3), i, i);
    }
    sheetPainter.paint(painter, paper);
}
