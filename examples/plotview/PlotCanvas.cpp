// SPDX-License-Identifier: MIT
#include "PlotCanvas.h"

#include "PlotSheetPainter.h"

#include <QtGui/QPainter>

PlotCanvas::PlotCanvas(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PlotCanvas::setPlot(const std::shared_ptr<const Plot> &plot)
{
    m_plot = plot;
    update();
}

void PlotCanvas::setSheet(const PlotSheet &sheet)
{
    m_sheet = sheet;
    update();
}

void PlotCanvas::setHint(const QString &hint)
{
    m_hint = hint;
    update();
}

void PlotCanvas::setDeskMargin(int margin)
{
    m_deskMargin = margin;
    update();
}

QSize PlotCanvas::sizeHint() const
{
    return QSize(860, 640);
}

void PlotCanvas::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), QColor(0xd5, 0xda, 0xe0));
    const QRectF desk = QRectF(rect()).adjusted(m_deskMargin, m_deskMargin, -m_deskMargin, -m_deskMargin);
    if (desk.isEmpty())
        return;
    if (!m_plot) {
        painter.setPen(QColor(0x5a, 0x64, 0x70));
        painter.drawText(desk, Qt::AlignCenter | Qt::TextWordWrap, m_hint);
        return;
    }
    const PlotSheetPainter sheetPainter(*m_plot, m_sheet);
    QRectF paper(QPointF(0, 0), sheetPainter.sheetSize().scaled(desk.size(), Qt::KeepAspectRatio));
    paper.moveCenter(desk.center());
    painter.setPen(Qt::NoPen);
    constexpr int ShadowDepth = 8;
    for (int i = ShadowDepth; i > 0; --i) {
        painter.setBrush(QColor(40, 50, 65, 9));
        painter.drawRoundedRect(paper.adjusted(-i, -i + 3, i, i + 3), i, i);
    }
    sheetPainter.paint(painter, paper);
}
