// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <map>

class QLabel;
class QProgressBar;
class QPushButton;

/// The widgets of the progress dialog. Escape, the window's close button and the Cancel button are the same,
/// and none of them closes it.
class PlotProgressForm : public QBaseDialog
{
    Q_OBJECT

public:
    explicit PlotProgressForm(QWidget *parent = nullptr);

    const std::map<UINT, QWidget *> &controls() const { return m_controls; }

    /// From 0 to 1; below 0 when nobody knows.
    void setShare(double share);

    void OnCancel() override;
    void reject() override;

private:
    QLabel *addLabel(UINT id);

    std::map<UINT, QWidget *> m_controls;
    QProgressBar *m_bar;
    QPushButton *m_cancel;
};
