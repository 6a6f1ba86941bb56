// SPDX-License-Identifier: MIT
#include "PlotLegend.h"

#include "PlotSheetPainter.h"
#include "ResourceText.h"

#include <QtGui/QPainter>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace {

constexpr QSize SwatchSize(34, 16);

QPixmap swatch(const QColor &ink, const QColor &paper, double pixelRatio)
{
    QPixmap pixmap(SwatchSize * pixelRatio);
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 0, 0, 40), 1));
    painter.setBrush(paper);
    painter.drawRoundedRect(QRectF(0.5, 0.5, SwatchSize.width() - 1, SwatchSize.height() - 1), 3, 3);
    painter.setPen(QPen(ink, 2.5, Qt::SolidLine, Qt::RoundCap));
    const double middle = SwatchSize.height() / 2.0;
    painter.drawLine(QPointF(7, middle), QPointF(SwatchSize.width() - 7, middle));
    return pixmap;
}

QString formatted(UINT format, int first, int second = 0)
{
    CString text;
    text.Format(format, first, second);
    return toQString(text);
}

} // namespace

PlotLegend::PlotLegend(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    setMinimumWidth(200);
}

void PlotLegend::describe(const Plot &plot, const PlotSheet &sheet)
{
    delete m_content;
    m_content = new QWidget;
    layout()->addWidget(m_content);
    m_rows = new QGridLayout(m_content);
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setHorizontalSpacing(10);
    m_rows->setVerticalSpacing(7);
    m_rows->setColumnStretch(1, 1);
    addPens(plot, sheet);
    addSheet(plot, sheet);
    m_rows->setRowStretch(m_rows->rowCount(), 1);
}

void PlotLegend::addPens(const Plot &plot, const PlotSheet &sheet)
{
    const PlotSheetPainter painter(plot, sheet);
    addHeading(IDS_LEGEND_PENS);
    for (const auto &[pen, marks] : plot.marksByPen()) {
        const int row = m_rows->rowCount();
        auto *sample = new QLabel;
        sample->setPixmap(swatch(painter.penColour(pen), painter.paperColour(), devicePixelRatioF()));
        m_rows->addWidget(sample, row, 0);
        m_rows->addWidget(new QLabel(formatted(IDS_LEGEND_PEN_FORMAT, pen)), row, 1);
        m_rows->addWidget(new QLabel(QString::number(marks)), row, 2, Qt::AlignRight);
    }
}

void PlotLegend::addSheet(const Plot &plot, const PlotSheet &sheet)
{
    const QSizeF size = PlotSheetPainter(plot, sheet).sheetSize();
    addHeading(IDS_LEGEND_SHEET);
    addFact(IDS_LEGEND_SIZE, formatted(IDS_LEGEND_SIZE_FORMAT, qRound(size.width()), qRound(size.height())));
    addFact(IDS_LEGEND_PAPER, resourceText(static_cast<UINT>(IDS_PAPER_WHITE + sheet.paper)));
    addFact(IDS_LEGEND_SCALE, QString::number(sheet.scale));
    addFact(IDS_LEGEND_MARGIN, formatted(IDS_MARGIN_FORMAT, sheet.margin));
}

void PlotLegend::addHeading(UINT text)
{
    const int row = m_rows->rowCount();
    auto *heading = new QLabel(resourceText(text));
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setContentsMargins(0, row > 1 ? 16 : 0, 0, 2);
    m_rows->addWidget(heading, row, 0, 1, 3);
}

void PlotLegend::addFact(UINT name, const QString &value)
{
    auto *fact = new QHBoxLayout;
    fact->addWidget(new QLabel(resourceText(name)));
    fact->addWidget(new QLabel(value), 0, Qt::AlignRight);
    m_rows->addLayout(fact, m_rows->rowCount(), 0, 1, 3);
}
