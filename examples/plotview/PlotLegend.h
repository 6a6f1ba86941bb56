// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"
#include "PlotSheet.h"
#include "stdafx.h"

#include <QtWidgets/QWidget>

class QGridLayout;

/// The panel beside the plot: which pens drew how much, and what sheet it is on.
class PlotLegend : public QWidget
{
    Q_OBJECT

public:
    explicit PlotLegend(QWidget *parent = nullptr);

    void describe(const Plot &plot, const PlotSheet &sheet);

private:
    void addPens(const Plot &plot, const PlotSheet &sheet);
    void addSheet(const Plot &plot, const PlotSheet &sheet);
    void addHeading(UINT text);
    void addFact(UINT name, const QString &value);

    QWidget *m_content = nullptr;
    QGridLayout *m_rows = nullptr;
};
