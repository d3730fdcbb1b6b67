// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/foldercolors.h"

#include "bookmarks/bookmarkitem.h"

#include <QPainter>

QColor colorForName(const QString &name)
{
    if (name == QLatin1String("orange"))
        return {244, 155, 30};
    if (name == QLatin1String("red"))
        return Qt::red;
    if (name == QLatin1String("gray"))
        return Qt::gray;
    if (name == QLatin1String("green"))
        return Qt::green;
    if (name == QLatin1String("brown"))
        return {177, 148, 67};
    if (name == QLatin1String("blue"))
        return Qt::blue;
    if (name == QLatin1String("cyan"))
        return Qt::cyan;
    return Qt::yellow;
}

QColor colorForName(const BookmarkItem *item)
{
    return colorForName(item->color());
}

QIcon colorSwatchIcon(const QColor &color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QColor opaque = color;
    opaque.setAlpha(255);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(opaque);
    painter.drawRoundedRect(0, 0, pixmap.width(), pixmap.height(), 2.0, 2.0, Qt::AbsoluteSize);
    painter.end();
    return {pixmap};
}
