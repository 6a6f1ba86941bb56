// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include "Plot.h"
#include "PlotFills.h"
#include "PlotLayer.h"
#include "PlotOptions.h"
#include "PlotSheet.h"
#include "RubberBand.h"

#include <KxGrQtDoubleBufferImage.h>

#include <QtWidgets/QWidget>

#include <memory>

class PlotSheetPainter;

/// What PCN_MARKSENCLOSED brings: a rubber band was drawn around these marks, which may be none.
struct NMPLOTMARKS
{
    NMHDR hdr;
    const PlotMarks *pMarks;
};

/// Shows a plot on its sheet, fitted into the widget.
///
/// The sheet is drawn into the memory image of the window's double buffer and stays there; what changes while
/// a large plot stays, the selection and the rubber band, is drawn on the front image.
class PlotCanvas : public QWidget
{
    Q_OBJECT

public:
    /// What the left mouse button does: nothing, choose marks with a rubber band, pour out the bucket.
    enum Tool { NoTool, SelectTool, FillTool };

    explicit PlotCanvas(QWidget *parent = nullptr);

    /// Takes what was filled away, and shows all layers.
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

    void setTool(Tool tool);
    /// Whose ink is in the bucket; PlotFill::NoPen for none.
    void setFillPen(int pen) { m_fillPen = pen; }
    void clearFills();

    const PlotSheet &sheet() const { return m_sheet; }
    const PlotFills &fills() const { return m_fills; }
    /// Where the sheet is, in pixels of the window's images; empty without a plot.
    QRect paper() const;

    QSize sizeHint() const override;

signals:
    /// See NMPLOTMARKS.
    void marksEnclosed(const PlotMarks &marks);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    KxGrQtDoubleBufferImage &buffer() const;
    CPoint imagePoint(const QMouseEvent &event) const;
    PlotSheetPainter sheetPainter() const;
    void changed();
    void selectionChanged();
    void drawMemoryImage();
    void drawFrontImage();
    void drawHint(KxQtPainterWrapper &painter, const QSize &desk) const;
    void drawShadow(KxQtPainterWrapper &painter, const QRect &paper) const;
    void drawSheet(KxQtPainterWrapper &painter, const QRect &paper) const;
    void fillAt(const CPoint &point);

    CWnd m_window;              // this widget's, which has the device context
    CDC *m_dc;
    bool m_isDrawn = false;     // the memory image is up to date,
    bool m_isShown = false;     // and so is the front image
    std::shared_ptr<const Plot> m_plot;
    PlotSheet m_sheet;
    PlotPens m_pens;
    PlotHiddenLayers m_hidden;
    PlotMarks m_selection;
    bool m_fade = false;
    PlotFills m_fills;
    int m_fillPen = PlotFill::NoPen;
    Tool m_tool = NoTool;
    CRubberBand m_band;
    QString m_hint;
    int m_deskMargin = 28;
};
