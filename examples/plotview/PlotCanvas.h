// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"
#include "PlotSheet.h"

#include <QtWidgets/QWidget>

#include <memory>

/// Shows a plot on its sheet, fitted into the widget.
class PlotCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit PlotCanvas(QWidget *parent = nullptr);

    void setPlot(const std::shared_ptr<const Plot> &plot);
    void setSheet(const PlotSheet &sheet);
    /// What stands in the middle while there is no plot.
    void setHint(const QString &hint);
    /// Pixels around the sheet.
    void setDeskMargin(int margin);

    const PlotSheet &sheet() const { return m_sheet; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::shared_ptr<const Plot> m_plot;
    PlotSheet m_sheet;
    QString m_hint;
    int m_deskMargin = 28;
};
