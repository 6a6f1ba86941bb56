// SPDX-License-Identifier: MIT
#include "PenSwatch.h"

#include <QtGui/QPainter>

QImage penSwatch(const QColor &ink, const QColor &paper, const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 0, 0, 60), 1));
    painter.setBrush(paper);
    painter.drawRoundedRect(QRectF(0.5, 0.5, size.width() - 1, size.height() - 1), 3, 3);
    const double width = size.height() / 5.0;
    painter.setPen(QPen(ink, width, Qt::SolidLine, Qt::RoundCap));
    const double middle = size.height() / 2.0;
    painter.drawLine(QPointF(2.5 * width, middle), QPointF(size.width() - 2.5 * width, middle));
    return image;
}
