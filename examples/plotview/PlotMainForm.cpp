// SPDX-License-Identifier: MIT
#include "PlotMainForm.h"

#include "PlotCanvas.h"
#include "PlotLegend.h"
#include "ResourceText.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolBar>

namespace {

constexpr int IconSize = 20;

// Draws in a square of 20 units.
template<class Draw>
QIcon drawnIcon(Draw draw)
{
    QIcon icon;
    for (const int scale : {1, 2}) {
        QPixmap pixmap(IconSize * scale, IconSize * scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        draw(painter);
        painter.end();
        pixmap.setDevicePixelRatio(scale);
        icon.addPixmap(pixmap);
    }
    return icon;
}

QPen inkPen()
{
    return QPen(QColor(0x3b, 0x47, 0x55), 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void drawFolder(QPainter &painter)
{
    QPainterPath back;
    back.moveTo(2.5, 16.5);
    back.lineTo(2.5, 4.5);
    back.lineTo(7.5, 4.5);
    back.lineTo(9.5, 6.5);
    back.lineTo(15.5, 6.5);
    back.lineTo(15.5, 9);
    painter.setPen(inkPen());
    painter.drawPath(back);
    painter.setBrush(QColor(0xf3, 0xc9, 0x6b));
    painter.drawPolygon(QPolygonF({{2.5, 16.5}, {5.5, 9.2}, {18, 9.2}, {15.2, 16.5}}));
}

void drawSheet(QPainter &painter)
{
    painter.setPen(inkPen());
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(3, 2.5, 14, 15), 1.5, 1.5);
    for (int row = 0; row < 3; ++row) {
        const double y = 6 + 4 * row;
        painter.drawLine(QPointF(6, y), QPointF(14, y));
    }
    painter.setBrush(QColor(0x2f, 0x6f, 0xc4));
    for (int row = 0; row < 3; ++row)
        painter.drawEllipse(QPointF(row == 1 ? 8 : 11.5, 6 + 4 * row), 1.5, 1.5);
}

} // namespace

PlotMainForm::PlotMainForm(QWidget *parent)
    : QMainWindow(parent), m_canvas(new PlotCanvas), m_legend(new PlotLegend)
{
    auto *panel = new QScrollArea;
    panel->setWidget(m_legend);
    panel->setWidgetResizable(true);
    panel->setFrameShape(QFrame::NoFrame);
    panel->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    panel->setFixedWidth(224);
    auto *line = new QFrame;
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    auto *centre = new QWidget;
    auto *layout = new QHBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_canvas, 1);
    layout->addWidget(line);
    layout->addWidget(panel);
    setCentralWidget(centre);
    m_controls[IDC_CANVAS] = m_canvas;

    makeMenus();
    makeToolBar();
    makeStatusBar();
    resize(1160, 800);
}

QString PlotMainForm::askPlotFile(const QString &folder)
{
    return QFileDialog::getOpenFileName(this, resourceText(IDS_OPEN_CAPTION), folder,
                                        resourceText(IDS_OPEN_FILTER));
}

QAction *PlotMainForm::addCommand(UINT id, UINT text, const QKeySequence &shortcut)
{
    auto *action = new QAction(resourceText(text), this);
    action->setShortcut(shortcut);
    m_commands[id] = action;
    return action;
}

void PlotMainForm::makeMenus()
{
    QMenu *file = menuBar()->addMenu(resourceText(IDS_MENU_FILE));
    file->addAction(addCommand(ID_PLOT_OPEN, IDS_FILE_OPEN, QKeySequence::Open));
    QMenu *samples = file->addMenu(resourceText(IDS_MENU_SAMPLES));
    samples->addAction(addCommand(ID_SAMPLE_HOUSING, IDS_SAMPLE_HOUSING));
    samples->addAction(addCommand(ID_SAMPLE_CURVES, IDS_SAMPLE_CURVES));
    samples->addAction(addCommand(ID_SAMPLE_ISLAND, IDS_SAMPLE_ISLAND));
    file->addSeparator();
    file->addAction(addCommand(ID_PLOT_PROPERTIES, IDS_FILE_PROPERTIES, Qt::ALT + Qt::Key_Return));
    file->addAction(addCommand(ID_PLOT_SUMMARY, IDS_FILE_SUMMARY, Qt::CTRL + Qt::SHIFT + Qt::Key_S));
    file->addSeparator();
    file->addAction(addCommand(ID_PLOT_QUIT, IDS_FILE_QUIT, Qt::CTRL + Qt::Key_Q));
    m_commands[ID_PLOT_OPEN]->setIcon(drawnIcon(drawFolder));
    m_commands[ID_PLOT_PROPERTIES]->setIcon(drawnIcon(drawSheet));
}

void PlotMainForm::makeToolBar()
{
    QToolBar *bar = addToolBar(QString());
    bar->setMovable(false);
    bar->setIconSize(QSize(IconSize, IconSize));
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->addAction(m_commands[ID_PLOT_OPEN]);
    bar->addAction(m_commands[ID_PLOT_PROPERTIES]);
}

void PlotMainForm::makeStatusBar()
{
    QLabel *message = addStatus(IDC_STATUS_MESSAGE);
    message->setMinimumWidth(80);
    message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(message, 1);
    for (const UINT id : {IDC_STATUS_PENS, IDC_STATUS_STROKES, IDC_STATUS_LABELS, IDC_STATUS_SKIPPED})
        statusBar()->addPermanentWidget(addStatus(id));
}

QLabel *PlotMainForm::addStatus(UINT id)
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setContentsMargins(8, 0, 8, 0);
    m_controls[id] = label;
    return label;
}
