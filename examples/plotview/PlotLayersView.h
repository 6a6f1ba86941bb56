// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QIcon>
#include <QtWidgets/QTreeWidget>

#include <map>

/// The tree widget of the layers. Each row has a check mark, which shows what the row's item data say, and
/// the rows of pens have an icon. A click on the mark, or the space bar, changes nothing by itself: it is
/// told.
class PlotLayersView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit PlotLayersView(QWidget *parent = nullptr);

    void setPenIcons(const std::map<int, QIcon> &icons);
    QIcon penIcon(int pen) const;

signals:
    void markClicked(QTreeWidgetItem *item);

private:
    friend class PlotLayerDelegate;

    std::map<int, QIcon> m_icons;
};
