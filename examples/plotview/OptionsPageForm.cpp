// SPDX-License-Identifier: MIT
#include "OptionsPageForm.h"

#include "PlotOptions.h"
#include "ResourceText.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>

OptionsPageForm::OptionsPageForm(UINT page, QWidget *parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(14, 14, 14, 14);
    m_layout->setSpacing(12);
    if (page == IDD_OPTIONS_GENERAL)
        makeGeneral();
    else if (page == IDD_OPTIONS_PENS)
        makePens();
    else
        makeUnits();
    m_layout->addStretch();
}

QColor OptionsPageForm::askColour(const QColor &present, const QString &title)
{
    return QColorDialog::getColor(present, this, title);
}

void OptionsPageForm::makeGeneral()
{
    auto *fade = new QCheckBox(resourceText(IDS_CHECK_FADE));
    m_controls[IDC_FADE] = fade;
    addGroup(IDS_OPTIONS_SELECTION)->addRow(fade);

    QFormLayout *lists = addGroup(IDS_OPTIONS_LISTS);
    auto *rows = new QComboBox;
    m_controls[IDC_ROWS] = rows;
    addRow(lists, resourceText(IDS_LABEL_ROWS), rows);
    auto *recent = new QSlider(Qt::Horizontal);
    recent->setTickPosition(QSlider::TicksBelow);
    addRow(lists, resourceText(IDS_LABEL_RECENT), recent,
           makeSliderRow(recent, IDC_RECENT, IDC_RECENT_VALUE));
}

void OptionsPageForm::makePens()
{
    auto *group = new QGroupBox(resourceText(IDS_OPTIONS_COLOURS));
    auto *grid = new QGridLayout(group);
    grid->setContentsMargins(12, 10, 12, 12);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->setColumnMinimumWidth(2, 24);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(4, 1);
    constexpr int Rows = PlotSheet::PenCount / 2;
    for (int i = 0; i < PlotSheet::PenCount; ++i) {
        CString text;
        text.Format(IDS_LABEL_PEN_FORMAT, i + 1);
        auto *button = new QPushButton;
        button->setIconSize(SwatchSize);
        button->setAutoDefault(false);
        m_controls[static_cast<UINT>(IDC_PEN_COLOUR_FIRST + i)] = button;
        auto *caption = new QLabel(toQString(text));
        caption->setBuddy(button);
        grid->addWidget(caption, i % Rows, i / Rows * 3);
        grid->addWidget(button, i % Rows, i / Rows * 3 + 1);
    }
    auto *defaults = new QPushButton(resourceText(IDS_BUTTON_DEFAULTS));
    defaults->setAutoDefault(false);
    m_controls[IDC_DEFAULT_COLOURS] = defaults;
    grid->addWidget(defaults, Rows, 0, 1, 5, Qt::AlignRight);
    m_layout->addWidget(group);

    auto *width = new QSlider(Qt::Horizontal);
    addRow(addGroup(IDS_OPTIONS_LINES), resourceText(IDS_LABEL_WIDTH), width,
           makeSliderRow(width, IDC_WIDTH, IDC_WIDTH_VALUE));
}

void OptionsPageForm::makeUnits()
{
    QFormLayout *lengths = addGroup(IDS_OPTIONS_LENGTHS);
    auto *unit = new QListWidget;
    unit->setMaximumHeight(PlotUnits::UnitCount * (unit->fontMetrics().height() + 6) + 6);
    m_controls[IDC_UNIT] = unit;
    addRow(lengths, resourceText(IDS_LABEL_UNIT), unit);
    auto *decimals = new QComboBox;
    m_controls[IDC_DECIMALS] = decimals;
    addRow(lengths, resourceText(IDS_LABEL_DECIMALS), decimals);
    auto *example = new QLabel;
    m_controls[IDC_EXAMPLE] = example;
    addRow(lengths, resourceText(IDS_LABEL_EXAMPLE), example);
}

QFormLayout *OptionsPageForm::addGroup(UINT title)
{
    auto *group = new QGroupBox(resourceText(title));
    m_layout->addWidget(group);
    auto *rows = new QFormLayout(group);
    rows->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    rows->setHorizontalSpacing(12);
    rows->setVerticalSpacing(10);
    rows->setContentsMargins(12, 10, 12, 12);
    return rows;
}

void OptionsPageForm::addRow(QFormLayout *rows, const QString &text, QWidget *field, QLayout *fields)
{
    auto *caption = new QLabel(text);
    caption->setBuddy(field);
    if (fields)
        rows->addRow(caption, fields);
    else
        rows->addRow(caption, field);
}

QLayout *OptionsPageForm::makeSliderRow(QSlider *slider, UINT sliderId, UINT valueId)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    auto *value = new QLabel;
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("0.00 mm")));
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_controls[sliderId] = slider;
    m_controls[valueId] = value;
    row->addWidget(slider, 1);
    row->addWidget(value);
    return row;
}
