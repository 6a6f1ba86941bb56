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
class QMenu;
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
    QMenu *editMenu() const { return m_editMenu; }
    PlotLegend *legend() const { return m_legend; }
    const std::map<UINT, QWidget *> &controls() const { return m_controls; }
    const std::map<UINT, QAction *> &commands() const { return m_commands; }

    /// Selects rows of the list of marks, and no others.
    void selectMarkRows(const std::vector<int> &rows);

    /// Gives the columns of the list of marks their widths, once they are there.
    void arrangeMarkColumns();
    /// Shows the recent plots in the File menu, as many as there are names.
    void showRecentPlots(const QStringList &names);
    /// Shows the open plots in the Window menu, as many as it has room for, and marks one of them.
    void showOpenPlots(const QStringList &names, int active);

private:
    QAction *addCommand(UINT id, UINT text, const QKeySequence &shortcut = QKeySequence());
    QWidget *makePanel();
    QWidget *makeLayers();
    QWidget *makeMarks();
    void makeMenus();
    void makeFileMenu();
    void makeEditMenu();
    void makeViewMenu();
    void makeWindowMenu();
    void makeTools();
    void showNames(UINT first, UINT last, const QStringList &names);
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
    QAction *m_aboveOpenPlots = nullptr;
    QMenu *m_editMenu = nullptr;
};
