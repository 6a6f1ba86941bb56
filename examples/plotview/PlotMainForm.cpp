// SPDX-License-Identifier: MIT
#include "PlotMainForm.h"

#include "MarkList.h"
#include "PlotCanvas.h"
#include "PlotLayersView.h"
#include "PlotLegend.h"
#include "PlotOptions.h"
#include "ResourceText.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QFrame>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace {

constexpr int IconSize = 20;
constexpr int PanelMargin = 12;

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

void drawPens(QPainter &painter)
{
    const QColor inks[] = {QColor(0xc9, 0x30, 0x2c), QColor(0x1e, 0x84, 0x49), QColor(0x2f, 0x6f, 0xc4)};
    for (int i = 0; i < 3; ++i) {
        const double x = 4 + 6 * i;
        painter.setPen(inkPen());
        painter.setBrush(inks[i]);
        painter.drawRoundedRect(QRectF(x - 2, 2.5, 4, 9.5), 1, 1);
        painter.setBrush(QColor(0x3b, 0x47, 0x55));
        painter.drawPolygon(QPolygonF({{x - 1.6, 13.2}, {x + 1.6, 13.2}, {x, 17.2}}));
    }
}

void drawPrinter(QPainter &painter)
{
    painter.setPen(inkPen());
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(5.5, 2.5, 9, 6));
    painter.setBrush(QColor(0xc5, 0xcd, 0xd6));
    painter.drawRoundedRect(QRectF(2.5, 7.5, 15, 7), 1.5, 1.5);
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(5.5, 11.5, 9, 6));
}

void drawBand(QPainter &painter)
{
    QPen dashed = inkPen();
    dashed.setDashPattern({2.2, 1.8});
    dashed.setCapStyle(Qt::FlatCap);
    painter.setPen(dashed);
    painter.drawRect(QRectF(2.5, 3.5, 12, 10));
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(QColor(0x3b, 0x47, 0x55));
    painter.drawPolygon(QPolygonF({{11, 9}, {18.5, 15}, {15, 15.3}, {13.2, 18.5}}));
}

void drawBucket(QPainter &painter)
{
    painter.setPen(inkPen());
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF({{9, 3.5}, {15.5, 10}, {9, 16.5}, {2.5, 10}}));
    painter.setBrush(QColor(0xf3, 0xb0, 0x3b));
    painter.drawPolygon(QPolygonF({{2.5, 10}, {15.5, 10}, {9, 16.5}}));
    painter.drawLine(QPointF(9, 3.5), QPointF(7, 1.5));
    QPainterPath drop;
    drop.moveTo(17.2, 11.5);
    drop.quadTo(19.6, 15.2, 17.2, 16);
    drop.quadTo(14.8, 15.2, 17.2, 11.5);
    painter.setPen(Qt::NoPen);
    painter.fillPath(drop, QColor(0xe0, 0x8a, 0x00));
}

/// Numbers stand one below the other.
class NumberDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    }
};

QLabel *makeHeading(const QString &text)
{
    auto *heading = new QLabel(text);
    heading->setTextFormat(Qt::PlainText);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    return heading;
}

QWidget *makeSection(QWidget *heading, QWidget *content)
{
    auto *section = new QWidget;
    auto *layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(heading);
    layout->addWidget(content, 1);
    return section;
}

} // namespace

PlotMainForm::PlotMainForm(QWidget *parent)
    : QMainWindow(parent)
    , m_columns(new QSplitter(Qt::Horizontal))
    , m_canvas(new PlotCanvas)
    , m_layers(new PlotLayersView)
    , m_marks(new QTableWidget)
    , m_legend(new PlotLegend)
{
    m_controls[IDC_CANVAS] = m_canvas;
    m_canvas->setMinimumSize(240, 180);
    m_columns->addWidget(m_canvas);
    m_columns->addWidget(makePanel());
    m_columns->setStretchFactor(0, 1);
    m_columns->setStretchFactor(1, 0);
    m_columns->setCollapsible(0, false);
    setCentralWidget(m_columns);

    makeMenus();
    makeToolBar();
    makeStatusBar();
    resize(1280, 820);
}

QWidget *PlotMainForm::makePanel()
{
    auto *lists = new QSplitter(Qt::Vertical);
    lists->addWidget(makeLayers());
    lists->addWidget(makeMarks());
    lists->setHandleWidth(12);
    lists->setChildrenCollapsible(false);
    lists->setSizes({240, 320});
    auto *panel = new QWidget;
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(PanelMargin, PanelMargin, PanelMargin, PanelMargin);
    layout->setSpacing(14);
    layout->addWidget(lists, 1);
    layout->addWidget(m_legend);
    panel->setMinimumWidth(260);
    return panel;
}

QWidget *PlotMainForm::makeLayers()
{
    m_controls[IDC_LAYERS] = m_layers;
    m_layers->setMinimumHeight(100);
    return makeSection(makeHeading(resourceText(IDS_PANEL_LAYERS)), m_layers);
}

QWidget *PlotMainForm::makeMarks()
{
    m_controls[IDC_MARKS] = m_marks;
    m_marks->setMinimumHeight(100);
    m_marks->setColumnCount(0);
    m_marks->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_marks->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_marks->setShowGrid(false);
    m_marks->setAlternatingRowColors(true);
    m_marks->setWordWrap(false);
    m_marks->setTabKeyNavigation(false);
    m_marks->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_marks->verticalHeader()->hide();
    m_marks->verticalHeader()->setDefaultSectionSize(m_marks->fontMetrics().height() + 6);
    m_marks->horizontalHeader()->setHighlightSections(false);
    m_marks->horizontalHeader()->setStretchLastSection(true);
    auto *numbers = new NumberDelegate(m_marks);
    for (int column = 0; column < CMarkList::ColumnCount; ++column) {
        if (column != CMarkList::KindColumn)
            m_marks->setItemDelegateForColumn(column, numbers);
    }
    QLabel *heading = makeHeading(QString());
    m_controls[IDC_MARKS_TITLE] = heading;
    return makeSection(heading, m_marks);
}

// All of them at once, so that the selection changes once.
void PlotMainForm::selectMarkRows(const std::vector<int> &rows)
{
    const QAbstractItemModel *model = m_marks->model();
    QItemSelection selection;
    for (const int row : rows)
        selection.select(model->index(row, 0), model->index(row, m_marks->columnCount() - 1));
    m_marks->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!rows.empty()) {
        m_marks->doItemsLayout();   // so that the scroll bar reaches rows that have just been added
        m_marks->scrollTo(model->index(rows.front(), 0));
    }
}

void PlotMainForm::showRecentPlots(const QStringList &names)
{
    showNames(ID_RECENT_FIRST, ID_RECENT_LAST, names);
    m_belowRecentPlots->setVisible(!names.isEmpty());
}

void PlotMainForm::showOpenPlots(const QStringList &names, int active)
{
    showNames(ID_WINDOW_FIRST, ID_WINDOW_LAST, names);
    m_aboveOpenPlots->setVisible(!names.isEmpty());
    for (UINT id = ID_WINDOW_FIRST; id <= ID_WINDOW_LAST; ++id)
        m_commands[id]->setChecked(static_cast<int>(id - ID_WINDOW_FIRST) == active);
}

void PlotMainForm::showNames(UINT first, UINT last, const QStringList &names)
{
    for (UINT id = first; id <= last; ++id) {
        const auto i = static_cast<int>(id - first);
        m_commands[id]->setVisible(i < names.size());
        if (i < names.size()) {
            QString name = names.at(i);
            name.replace(QLatin1Char('&'), QLatin1String("&&"));
            CString text;
            text.Format(IDS_RECENT_FORMAT, i + 1, static_cast<LPCTSTR>(toCString(name)));
            m_commands[id]->setText(toQString(text));
        }
    }
}

// Wide enough for the headings and for what usually stands below them, and the panel for the columns.
void PlotMainForm::arrangeMarkColumns()
{
    const QStringList usual = {QStringLiteral("00000"), resourceText(IDS_KIND_POLYLINE), QStringLiteral("00"),
                               QStringLiteral("0000"), QString()};
    const QFontMetrics metrics = m_marks->fontMetrics();
    int total = m_marks->verticalScrollBar()->sizeHint().width() + 2 * m_marks->frameWidth();
    for (int column = 0; column < CMarkList::ColumnCount; ++column) {
        QTableWidgetItem *heading = m_marks->horizontalHeaderItem(column);
        const bool isNumber = column != CMarkList::KindColumn;
        heading->setTextAlignment((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        const int width = std::max(metrics.horizontalAdvance(heading->text()),
                                   metrics.horizontalAdvance(usual.at(column)))
                          + 14;
        m_marks->setColumnWidth(column, width);
        total += width;
    }
    const int panel = total + 2 * PanelMargin;
    m_columns->setSizes({width() - panel, panel});
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
    makeTools();
    makeFileMenu();
    makeEditMenu();
    makeViewMenu();
    makeWindowMenu();
    m_commands[ID_PLOT_OPEN]->setIcon(drawnIcon(drawFolder));
    m_commands[ID_PLOT_PROPERTIES]->setIcon(drawnIcon(drawSheet));
    m_commands[ID_PLOT_PRINT]->setIcon(drawnIcon(drawPrinter));
    m_commands[ID_VIEW_OPTIONS]->setIcon(drawnIcon(drawPens));
}

// One of them is chosen at any time.
void PlotMainForm::makeTools()
{
    auto *tools = new QActionGroup(this);
    tools->addAction(addCommand(ID_TOOL_SELECT, IDS_TOOL_SELECT, Qt::Key_F2))->setIcon(drawnIcon(drawBand));
    tools->addAction(addCommand(ID_TOOL_FILL, IDS_TOOL_FILL, Qt::Key_F3))->setIcon(drawnIcon(drawBucket));
    for (QAction *tool : tools->actions())
        tool->setCheckable(true);
    m_commands[ID_TOOL_SELECT]->setChecked(true);
}

void PlotMainForm::makeViewMenu()
{
    QMenu *view = menuBar()->addMenu(resourceText(IDS_MENU_VIEW));
    view->addAction(m_commands[ID_TOOL_SELECT]);
    view->addAction(m_commands[ID_TOOL_FILL]);
    view->addAction(addCommand(ID_FILL_CLEAR, IDS_FILL_CLEAR, Qt::CTRL + Qt::Key_Backspace));
    view->addSeparator();
    view->addAction(addCommand(ID_LAYER_TOGGLE, IDS_LAYER_TOGGLE, Qt::CTRL + Qt::Key_L));
    view->addAction(addCommand(ID_LAYER_SHOW_ALL, IDS_LAYER_SHOW_ALL, Qt::CTRL + Qt::SHIFT + Qt::Key_L));
    view->addSeparator();
    view->addAction(addCommand(ID_VIEW_OPTIONS, IDS_VIEW_OPTIONS, Qt::CTRL + Qt::Key_Comma));
}

void PlotMainForm::makeFileMenu()
{
    QMenu *file = menuBar()->addMenu(resourceText(IDS_MENU_FILE));
    file->addAction(addCommand(ID_PLOT_OPEN, IDS_FILE_OPEN, QKeySequence::Open));
    QMenu *samples = file->addMenu(resourceText(IDS_MENU_SAMPLES));
    samples->addAction(addCommand(ID_SAMPLE_HOUSING, IDS_SAMPLE_HOUSING));
    samples->addAction(addCommand(ID_SAMPLE_CURVES, IDS_SAMPLE_CURVES));
    samples->addAction(addCommand(ID_SAMPLE_ISLAND, IDS_SAMPLE_ISLAND));
    file->addAction(addCommand(ID_PLOT_CLOSE, IDS_FILE_CLOSE, Qt::CTRL + Qt::Key_W));
    file->addSeparator();
    file->addAction(addCommand(ID_PLOT_PROPERTIES, IDS_FILE_PROPERTIES, Qt::ALT + Qt::Key_Return));
    file->addSeparator();
    file->addAction(addCommand(ID_PLOT_SUMMARY, IDS_FILE_SUMMARY, Qt::CTRL + Qt::SHIFT + Qt::Key_S));
    file->addAction(addCommand(ID_PLOT_SUMMARY_AS, IDS_FILE_SUMMARY_AS));
    file->addAction(addCommand(ID_PLOT_EXPORT, IDS_FILE_EXPORT, Qt::CTRL + Qt::Key_E));
    file->addAction(addCommand(ID_PLOT_PRINT, IDS_FILE_PRINT, QKeySequence::Print));
    file->addSeparator();
    for (UINT id = ID_RECENT_FIRST; id <= ID_RECENT_LAST; ++id)
        file->addAction(m_commands[id] = new QAction(this));
    m_belowRecentPlots = file->addSeparator();
    file->addAction(addCommand(ID_PLOT_QUIT, IDS_FILE_QUIT, Qt::CTRL + Qt::Key_Q));
    showRecentPlots({});
}

void PlotMainForm::makeEditMenu()
{
    m_editMenu = menuBar()->addMenu(resourceText(IDS_MENU_EDIT));
    m_editMenu->addAction(addCommand(ID_EDIT_COPY, IDS_EDIT_COPY, QKeySequence::Copy));
    m_editMenu->addAction(addCommand(ID_EDIT_PASTE, IDS_EDIT_PASTE, QKeySequence::Paste));
}

void PlotMainForm::makeWindowMenu()
{
    QMenu *window = menuBar()->addMenu(resourceText(IDS_MENU_WINDOW));
    window->addAction(addCommand(ID_WINDOW_NEXT, IDS_WINDOW_NEXT, Qt::CTRL + Qt::Key_F6));
    window->addAction(addCommand(ID_WINDOW_PREVIOUS, IDS_WINDOW_PREVIOUS, Qt::CTRL + Qt::SHIFT + Qt::Key_F6));
    m_aboveOpenPlots = window->addSeparator();
    for (UINT id = ID_WINDOW_FIRST; id <= ID_WINDOW_LAST; ++id) {
        window->addAction(m_commands[id] = new QAction(this));
        m_commands[id]->setCheckable(true);
    }
    showOpenPlots({}, -1);
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
    bar->addAction(m_commands[ID_VIEW_OPTIONS]);
    bar->addAction(m_commands[ID_PLOT_PRINT]);
    bar->addSeparator();
    bar->addAction(m_commands[ID_TOOL_SELECT]);
    bar->addAction(m_commands[ID_TOOL_FILL]);
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
