// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"
#include "PlotSheet.h"
#include "stdafx.h"

#include <QtWidgets/QWidget>

class QGridLayout;

/// What sheet the plot is on.
class PlotLegend : public QWidget
{
    Q_OBJECT

public:
    explicit PlotLegend(QWidget *parent = nullptr);

    void describe(const Plot &plot, const PlotSheet &sheet);

private:
    void addSheet(const Plot &plot, const PlotSheet &sheet);
    void addHeading(UINT text);
    void addFact(UINT name, const QString &value);

    QWidget *m_content = nullptr;
    QGridLayout *m_rows = nullptr;
};
