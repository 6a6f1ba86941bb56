// SPDX-License-Identifier: MIT
#pragma once

#include "KxModalRun.h"

#include "MainWindow.h"
#include "PlotCanvas.h"
#include "PlotLayersView.h"
#include "PlotMainForm.h"
#include "PlotViewApp.h"
#include "ResourceText.h"

#include <QtCore/QSettings>
#include <QtWidgets/QAction>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTableWidget>

#include <algorithm>
#include <iterator>
#include <vector>

/// The running program, with its main window open and plots in it: the named ones, or a sample.
class PlotProgram
{
public:
    explicit PlotProgram(const QStringList &files = QStringList())
    {
        std::vector<CString> paths;
        std::transform(files.begin(), files.end(), std::back_inserter(paths), toCString);
        m_app.InitInstance(paths);
    }
    explicit PlotProgram(const QString &file) : PlotProgram(QStringList(file)) {}
    ~PlotProgram() { m_app.ExitInstance(); }

    CMainWindow &window() const { return *m_app.GetMainWindow(); }
    PlotMainForm &form() const { return *window().GetForm(); }
    QAction *command(UINT id) const { return form().commands().at(id); }
    QString text(UINT id) const { return static_cast<QLabel *>(form().controls().at(id))->text(); }
    QImage picture() const { return form().canvas()->grab().toImage(); }
    bool open(const QString &path) const { return window().OpenPlot(toCString(path)); }

    PlotLayersView &tree() const { return *form().layers(); }
    QTableWidget &list() const { return *static_cast<QTableWidget *>(form().controls().at(IDC_MARKS)); }

    /// The row of the tree that a path of texts leads to, below the first row; the test ends without one.
    QTreeWidgetItem *layer(const QString &path) const
    {
        QTreeWidgetItem *item = tree().topLevelItem(0);
        for (const QString &text : path.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
            QTreeWidgetItem *above = item;
            item = nullptr;
            for (int i = 0; i < above->childCount(); ++i)
                item = above->child(i)->text(0) == text ? above->child(i) : item;
            if (!item)
                qFatal("the tree has no \"%s\"", qPrintable(path));
        }
        return item;
    }

    /// A click on the middle of a row's text, or on its check mark.
    void clickLayer(QTreeWidgetItem *item, bool onMark) const
    {
        for (QTreeWidgetItem *above = item->parent(); above; above = above->parent())
            above->setExpanded(true);
        const QRect row = tree().visualItemRect(item);
        const QPoint spot(onMark ? row.left() + 10 : row.right() - 20, row.center().y());
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, spot);
    }

    /// A line of the list, its cells separated by bars.
    QString listRow(int row) const
    {
        QStringList cells;
        for (int column = 0; column < list().columnCount(); ++column)
            cells.append(list().item(row, column)->text());
        return cells.join(QLatin1Char('|'));
    }

    QStringList listRows() const
    {
        QStringList rows;
        for (int row = 0; row < list().rowCount(); ++row)
            rows.append(listRow(row));
        return rows;
    }

private:
    CPlotViewApp m_app;
};

/// Where the program keeps its settings.
inline QSettings plotStore()
{
    return QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Drumal"),
                     QStringLiteral("TORVA"));
}
