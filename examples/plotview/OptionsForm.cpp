// SPDX-License-Identifier: MIT
#include "OptionsForm.h"

#include "ResourceText.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QVBoxLayout>

OptionsForm::OptionsForm(QWidget *parent)
    : QBaseDialog(parent)
    , m_cancel(new QPushButton(resourceText(IDS_BUTTON_CANCEL)))
{
    setWindowTitle(resourceText(IDS_OPTIONS_CAPTION));
    auto *ok = new QPushButton(resourceText(IDS_BUTTON_OK));
    auto *apply = new QPushButton(resourceText(IDS_BUTTON_APPLY));
    ok->setDefault(true);
    apply->setEnabled(false);
    auto *buttons = new QDialogButtonBox;
    buttons->addButton(ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(m_cancel, QDialogButtonBox::RejectRole);
    buttons->addButton(apply, QDialogButtonBox::ApplyRole);
    auto *tabs = new QTabWidget;
    m_controls[IDC_OPTIONS_TABS] = tabs;
    m_controls[IDOK] = ok;
    m_controls[IDCANCEL] = m_cancel;
    m_controls[IDC_APPLY] = apply;

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(12);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void OptionsForm::OnCancel()
{
    m_cancel->click();
}
