// SPDX-License-Identifier: MIT
#pragma once

#include "Plot.h"
#include "PlotLayer.h"
#include "PlotOptions.h"
#include "PlotSheet.h"

#include <QtGui/QPixmap>
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
    void setPens(const PlotPens &pens);
    void setHiddenLayers(const PlotHiddenLayers &hidden);
    /// The marks that stand out, and whether all others fade.
    void setSelection(const PlotMarks &marks, bool fade);
    /// What stands in the middle while there is no plot.
    void setHint(const QString &hint);
    /// Pixels around the sheet.
    void setDeskMargin(int margin);

    const PlotSheet &sheet() const { return m_sheet; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void changed();
    void paintDesk(QPainter &painter, const QRectF &desk) const;

    std::shared_ptr<const Plot> m_plot;
    PlotSheet m_sheet;
    PlotPens m_pens;
    PlotHiddenLayers m_hidden;
    PlotMarks m_selection;
    bool m_fade = false;
    QPixmap m_drawn;        // all but the selection, which changes while a large plot stays
    QString m_hint;
    int m_deskMargin = 28;
};
