// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtWidgets/QMainWindow>

#include <map>

class PlotCanvas;
class PlotLegend;
class QAction;
class QLabel;
class QToolBar;

/// The main window's widgets: menu, tool bar, canvas, legend and status bar. What they do is the window
/// object's business, which finds them by their identifiers.
class PlotMainForm : public QMainWindow
{
    Q_OBJECT

public:
    explicit PlotMainForm(QWidget *parent = nullptr);

    PlotCanvas *canvas() const { return m_canvas; }
    PlotLegend *legend() const { return m_legend; }
    const std::map<UINT, QWidget *> &controls() const { return m_controls; }
    const std::map<UINT, QAction *> &commands() const { return m_commands; }

    /// Asks for a plot file; empty when the user thinks better of it.
    QString askPlotFile(const QString &folder);

private:
    QAction *addCommand(UINT id, UINT text, const QKeySequence &shortcut = QKeySequence());
    void makeMenus();
    void makeToolBar();
    void makeStatusBar();
    QLabel *addStatus(UINT id);

    PlotCanvas *m_canvas;
    PlotLegend *m_legend;
    std::map<UINT, QWidget *> m_controls;
    std::map<UINT, QAction *> m_commands;
};
