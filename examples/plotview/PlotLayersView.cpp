// SPDX-License-Identifier: MIT
#include "PlotLayersView.h"

#include "PlotLayer.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyledItemDelegate>

static bool isDrawn(const QModelIndex &index)
{
    return !index.isValid()
           || (PlotLayer::fromItemData(index.data(Qt::UserRole).toULongLong()).visible
               && isDrawn(index.parent()));
}

class PlotLayerDelegate : public QStyledItemDelegate
{
public:
    explicit PlotLayerDelegate(PlotLayersView *view)
        : QStyledItemDelegate(view)
        , m_view(view)
    {
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const PlotLayer layer = PlotLayer::fromItemData(index.data(Qt::UserRole).toULongLong());
        option->features |= QStyleOptionViewItem::HasCheckIndicator;
        option->checkState = layer.visible ? Qt::Checked : Qt::Unchecked;
        if (layer.kind == PlotLayer::Pen) {
            option->features |= QStyleOptionViewItem::HasDecoration;
            option->icon = m_view->penIcon(layer.pen);
            option->decorationSize = m_view->iconSize();
        }
        if (!isDrawn(index))
            option->palette.setColor(QPalette::Text,
                                     option->palette.color(QPalette::Disabled, QPalette::Text));
    }

    bool editorEvent(QEvent *event, QAbstractItemModel *, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override
    {
        if (event->type() == QEvent::KeyPress) {
            if (static_cast<QKeyEvent *>(event)->key() != Qt::Key_Space)
                return false;
        } else if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonPress
                   || event->type() == QEvent::MouseButtonDblClick) {
            const auto *mouse = static_cast<QMouseEvent *>(event);
            QStyleOptionViewItem item(option);
            initStyleOption(&item, index);
            const QRect mark =
                m_view->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &item, m_view);
            if (mouse->button() != Qt::LeftButton || !mark.contains(mouse->pos()))
                return false;
            if (event->type() != QEvent::MouseButtonRelease)
                return true;
        } else {
            return false;
        }
        emit m_view->markClicked(m_view->itemFromIndex(index));
        return true;
    }

private:
    PlotLayersView *m_view;
};

PlotLayersView::PlotLayersView(QWidget *parent)
    : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setExpandsOnDoubleClick(false);
    setIconSize(QSize(24, 14));
    setItemDelegate(new PlotLayerDelegate(this));
}

void PlotLayersView::setPenIcons(const std::map<int, QIcon> &icons)
{
    m_icons = icons;
    viewport()->update();
}

QIcon PlotLayersView::penIcon(int pen) const
{
    const auto found = m_icons.find(pen);
    return found == m_icons.end() ? QIcon() : found->second;
}
