// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/extendedtreeview.h>

#include <halvora/plaintooltip.h>

#include <QHelpEvent>
#include <QToolTip>

ExtendedTreeView::ExtendedTreeView(QWidget *parent)
    : QTreeView(parent)
{
}

ExtendedTreeView::~ExtendedTreeView() = default;

bool ExtendedTreeView::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QModelIndex index = indexAt(help->pos());
    const QString text = plainToolTip(index.data(Qt::ToolTipRole).toString());
    QToolTip::showText(help->globalPos(), text, viewport(), visualRect(index));
    event->setAccepted(!text.isEmpty());
    return true;
}
