// SPDX-License-Identifier: MIT
#include "PlotProgressForm.h"

#include "ResourceText.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>

PlotProgressForm::PlotProgressForm(QWidget *parent)
    : QBaseDialog(parent), m_bar(new QProgressBar), m_cancel(new QPushButton(resourceText(IDS_BUTTON_CANCEL)))
{
    setWindowTitle(resourceText(IDS_PROGRESS_CAPTION));
    setModal(true);
    m_bar->setTextVisible(false);
    m_bar->setRange(0, 100);
    m_controls[IDC_PROGRESS_BAR] = m_bar;
    m_controls[IDCANCEL] = m_cancel;

    auto *bottom = new QHBoxLayout;
    bottom->addWidget(addLabel(IDC_PROGRESS_AMOUNT), 1);
    bottom->addWidget(m_cancel);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(10);
    layout->addWidget(addLabel(IDC_PROGRESS_PLOT));
    layout->addWidget(m_bar);
    layout->addLayout(bottom);
    setFixedSize(420, layout->sizeHint().height());
}

void PlotProgressForm::setShare(double share)
{
    m_bar->setMaximum(share < 0 ? 0 : 100);
    m_bar->setValue(static_cast<int>(share * 100));
}

void PlotProgressForm::OnCancel()
{
    m_cancel->click();
}

void PlotProgressForm::reject()
{
    m_cancel->click();
}

QLabel *PlotProgressForm::addLabel(UINT id)
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_controls[id] = label;
    return label;
}
