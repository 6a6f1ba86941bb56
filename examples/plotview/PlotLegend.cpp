// SPDX-License-Identifier: MIT
#include "PlotLegend.h"

#include "PlotSheetPainter.h"
#include "ResourceText.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace {

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
    layout->setContentsMargins(0, 0, 0, 0);
}

void PlotLegend::describe(const Plot &plot, const PlotSheet &sheet)
{
    delete m_content;
    m_content = new QWidget;
    layout()->addWidget(m_content);
    m_rows = new QGridLayout(m_content);
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setVerticalSpacing(5);
    addSheet(plot, sheet);
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
    heading->setContentsMargins(0, 0, 0, 2);
    m_rows->addWidget(heading, row, 0);
}

void PlotLegend::addFact(UINT name, const QString &value)
{
    auto *fact = new QHBoxLayout;
    fact->addWidget(new QLabel(resourceText(name)));
    fact->addWidget(new QLabel(value), 0, Qt::AlignRight);
    m_rows->addLayout(fact, m_rows->rowCount(), 0);
}
