// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtWidgets/QWidget>

#include <map>

class QFormLayout;
class QLayout;
class QSlider;
class QVBoxLayout;

/// The widgets of one page of the options dialog, which IDD_OPTIONS_... names.
class OptionsPageForm : public QWidget
{
    Q_OBJECT

public:
    static constexpr QSize SwatchSize = QSize(56, 18);

    OptionsPageForm(UINT page, QWidget *parent);

    const std::map<UINT, QWidget *> &controls() const { return m_controls; }

    /// Lets the user choose a colour; an invalid one when the user thinks better of it.
    QColor askColour(const QColor &present, const QString &title);

private:
    void makeGeneral();
    void makePens();
    void makeUnits();
    QFormLayout *addGroup(UINT title);
    void addRow(QFormLayout *rows, const QString &text, QWidget *field, QLayout *fields = nullptr);
    QLayout *makeSliderRow(QSlider *slider, UINT sliderId, UINT valueId);

    std::map<UINT, QWidget *> m_controls;
    QVBoxLayout *m_layout;
};
