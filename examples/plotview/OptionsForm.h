// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <map>

class QPushButton;

/// The widgets of the options dialog around its pages. Escape and the Cancel button are the same.
class OptionsForm : public QBaseDialog
{
    Q_OBJECT

public:
    /// Without a parent, one of the main window.
    explicit OptionsForm(QWidget *parent = nullptr);

    const std::map<UINT, QWidget *> &controls() const { return m_controls; }

    void OnCancel() override;

private:
    std::map<UINT, QWidget *> m_controls;
    QPushButton *m_cancel;
};
