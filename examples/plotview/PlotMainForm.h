// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtWidgets/QMainWindow>

#include <map>
#include <vector>

class PlotCanvas;
class PlotLayersView;
class PlotLegend;
class QAction;
class QLabel;
class QSplitter;
class QTableWidget;

/// The main window's widgets: menus, tool bar, canvas, the panel beside it and status bar. What they do is
/// the window object's business, which finds them by their identifiers.
class PlotMainForm : public QMainWindow
{
    Q_OBJECT

public:
    explicit PlotMainForm(QWidget *parent = nullptr);

    PlotCanvas *canvas() const { return m_canvas; }
    PlotLayersView *layers() const { return m_layers; }
    PlotLegend *legend() const { return m_legend; }
    const std::map<UINT, QWidget *> &controls() const { return m_controls; }
    const std::map<UINT, QAction *> &commands() const { return m_commands; }

    /// Asks for a plot file; empty when the user thinks better of it.
    QString askPlotFile(const QString &folder);
    /// Asks for the name of a summary, `proposed` at first; likewise. Nobody asked whether to replace a file.
    QString askSummaryFile(const QString &proposed);

    /// Asks for the file to print to; likewise.
    QString askPrintFile(const QString &proposed);

    /// Selects rows of the list of marks, and no others.
    void selectMarkRows(const std::vector<int> &rows);

    /// Gives the columns of the list of marks their widths, once they are there.
    void arrangeMarkColumns();
    /// Shows the recent plots in the File menu, as many as there are names.
    void showRecentPlots(const QStringList &names);

private:
    QAction *addCommand(UINT id, UINT text, const QKeySequence &shortcut = QKeySequence());
    QWidget *makePanel();
    QWidget *makeLayers();
    QWidget *makeMarks();
    void makeMenus();
    QString askSaveFile(UINT caption, UINT filter, const QString &proposed);
    void makeFileMenu();
    void makeViewMenu();
    void makeTools();
    void makeToolBar();
    void makeStatusBar();
    QLabel *addStatus(UINT id);

    QSplitter *m_columns;
    PlotCanvas *m_canvas;
    PlotLayersView *m_layers;
    QTableWidget *m_marks;
    PlotLegend *m_legend;
    std::map<UINT, QWidget *> m_controls;
    std::map<UINT, QAction *> m_commands;
    QAction *m_belowRecentPlots = nullptr;
};
