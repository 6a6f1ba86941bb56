// SPDX-License-Identifier: MIT
#include "PlotPropertiesForm.h"

#include "PlotCanvas.h"
#include "PlotSettings.h"
#include "PlotSheet.h"
#include "ResourceText.h"

#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QSlider>

#include <algorithm>

namespace {

QFormLayout *makeRows(QGroupBox *group)
{
    auto *rows = new QFormLayout(group);
    rows->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    rows->setHorizontalSpacing(12);
    rows->setVerticalSpacing(10);
    rows->setContentsMargins(12, 10, 12, 12);
    return rows;
}

} // namespace

PlotPropertiesForm::PlotPropertiesForm(QWidget *parent) : QBaseDialog(parent), m_preview(new PlotCanvas)
{
    setWindowTitle(resourceText(IDS_PROPERTIES_CAPTION));
    m_preview->setFixedWidth(320);
    m_preview->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    m_preview->setDeskMargin(20);
    m_controls[IDC_PREVIEW] = m_preview;

    auto *groups = new QVBoxLayout;
    groups->setSpacing(12);
    groups->addWidget(makeTitleGroup());
    groups->addWidget(makeDrawingGroup());
    groups->addWidget(makeSheetGroup());

    auto *columns = new QHBoxLayout;
    columns->setSpacing(16);
    columns->addLayout(groups, 1);
    columns->addWidget(m_preview);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(16);
    layout->addLayout(columns);
    layout->addLayout(makeButtons());
    alignCaptions();
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void PlotPropertiesForm::selectText(UINT id)
{
    if (auto *edit = qobject_cast<QLineEdit *>(m_controls.at(id)))
        edit->selectAll();
}

void PlotPropertiesForm::OnCancel()
{
    m_cancel->click();
}

QGroupBox *PlotPropertiesForm::makeTitleGroup()
{
    auto *group = new QGroupBox(resourceText(IDS_GROUP_TITLE));
    QFormLayout *rows = makeRows(group);
    QLineEdit *title = addEdit(IDC_TITLE, IDS_HINT_TITLE);
    title->setMaxLength(CPlotSettings::LongestTitle);
    addRow(rows, IDS_LABEL_TITLE, title);
    addRow(rows, IDS_LABEL_PEN, addEdit(IDC_PEN, IDS_HINT_PEN));
    return group;
}

QGroupBox *PlotPropertiesForm::makeDrawingGroup()
{
    auto *group = new QGroupBox(resourceText(IDS_GROUP_DRAWING));
    QFormLayout *rows = makeRows(group);
    addRow(rows, IDS_LABEL_SCALE, addEdit(IDC_SCALE, IDS_HINT_SCALE));
    auto *rotate = new QCheckBox(resourceText(IDS_CHECK_ROTATE));
    m_controls[IDC_ROTATE] = rotate;
    auto *indent = new QLabel;
    m_captions.append(indent);
    rows->addRow(indent, rotate);
    return group;
}

QGroupBox *PlotPropertiesForm::makeSheetGroup()
{
    auto *group = new QGroupBox(resourceText(IDS_GROUP_SHEET));
    QFormLayout *rows = makeRows(group);
    QLayout *sizes = makeSizeRow(group);
    addRow(rows, IDS_LABEL_SIZE, nullptr, sizes);
    auto *paper = new QComboBox;
    for (UINT id = IDS_PAPER_WHITE; id <= IDS_PAPER_BLUEPRINT; ++id)
        paper->addItem(resourceText(id));
    m_controls[IDC_PAPER] = paper;
    addRow(rows, IDS_LABEL_PAPER, paper);
    QLayout *margin = makeMarginRow();
    addRow(rows, IDS_LABEL_MARGIN, m_controls[IDC_MARGIN], margin);
    return group;
}

// The buttons' group is a child of their own parent: there the data exchange looks for it.
QLayout *PlotPropertiesForm::makeSizeRow(QGroupBox *group)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(16);
    auto *buttons = new QButtonGroup(group);
    for (int size = 0; size < PlotSheet::SizeCount; ++size) {
        auto *button = new QRadioButton(resourceText(static_cast<UINT>(IDS_SIZE_FIT + size)), group);
        m_controls[static_cast<UINT>(IDC_SIZE_FIT + size)] = button;
        buttons->addButton(button, size);
        row->addWidget(button);
    }
    row->addStretch();
    return row;
}

QLayout *PlotPropertiesForm::makeMarginRow()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(0, PlotSheet::LargestMargin);
    slider->setPageStep(5);
    slider->setTickInterval(10);
    slider->setTickPosition(QSlider::TicksBelow);
    auto *value = new QLabel;
    value->setMinimumWidth(48);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_controls[IDC_MARGIN] = slider;
    m_controls[IDC_MARGIN_VALUE] = value;
    row->addWidget(slider, 1);
    row->addWidget(value);
    return row;
}

void PlotPropertiesForm::addRow(QFormLayout *rows, UINT text, QWidget *buddy, QLayout *fields)
{
    auto *caption = new QLabel(resourceText(text));
    caption->setBuddy(buddy);
    m_captions.append(caption);
    if (fields)
        rows->addRow(caption, fields);
    else
        rows->addRow(caption, buddy);
}

// The captions of all groups stand in one column.
void PlotPropertiesForm::alignCaptions()
{
    int width = 0;
    for (const QLabel *caption : qAsConst(m_captions))
        width = std::max(width, caption->sizeHint().width());
    for (QLabel *caption : qAsConst(m_captions))
        caption->setMinimumWidth(width);
}

QLayout *PlotPropertiesForm::makeButtons()
{
    auto *box = new QDialogButtonBox;
    auto *ok = new QPushButton(resourceText(IDS_BUTTON_OK));
    m_cancel = new QPushButton(resourceText(IDS_BUTTON_CANCEL));
    box->addButton(ok, QDialogButtonBox::AcceptRole);
    box->addButton(m_cancel, QDialogButtonBox::RejectRole);
    ok->setDefault(true);
    m_controls[IDOK] = ok;
    m_controls[IDCANCEL] = m_cancel;
    auto *row = new QHBoxLayout;
    row->addWidget(box);
    return row;
}

QLineEdit *PlotPropertiesForm::addEdit(UINT id, UINT hint)
{
    auto *edit = new QLineEdit;
    edit->setPlaceholderText(resourceText(hint));
    m_controls[id] = edit;
    return edit;
}
