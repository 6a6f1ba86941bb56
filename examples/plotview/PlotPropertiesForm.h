// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtCore/QList>

#include <map>

class PlotCanvas;
class QFormLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// The widgets of the properties dialog. Escape and the Cancel button are the same.
class PlotPropertiesForm : public QBaseDialog
{
    Q_OBJECT

public:
    /// Without a parent, one of the main window.
    explicit PlotPropertiesForm(QWidget *parent = nullptr);

    const std::map<UINT, QWidget *> &controls() const { return m_controls; }
    PlotCanvas *preview() const { return m_preview; }

    /// Marks the text of an edit, to be typed over.
    void selectText(UINT id);

    void OnCancel() override;

private:
    QGroupBox *makeTitleGroup();
    QGroupBox *makeDrawingGroup();
    QGroupBox *makeSheetGroup();
    QLayout *makeSizeRow(QGroupBox *group);
    QLayout *makeMarginRow();
    QLayout *makeButtons();
    QLineEdit *addEdit(UINT id, UINT hint);
    void addRow(QFormLayout *rows, UINT text, QWidget *buddy, QLayout *fields = nullptr);
    void alignCaptions();

    std::map<UINT, QWidget *> m_controls;
    PlotCanvas *m_preview;
    QPushButton *m_cancel = nullptr;
    QList<QLabel *> m_captions;
};
