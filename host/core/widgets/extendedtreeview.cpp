// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/extendedtreeview.h>

#include <halvora/plaintooltip.h>

#include <QElapsedTimer>
#include <QHelpEvent>
#include <QToolTip>

ExtendedTreeView::ExtendedTreeView(QWidget *parent)
    : QTreeView(parent)
{
}

ExtendedTreeView::~ExtendedTreeView() = default;

void ExtendedTreeView::reset()
{
    m_askedRows = 0;
    QTreeView::reset();
}

void ExtendedTreeView::doItemsLayout()
{
    if (!m_isAskingInTurns || askForChildren())
        QTreeView::doItemsLayout();
    else
        scheduleDelayedItemsLayout();
}

/// False when there are rows left for the next turn.
bool ExtendedTreeView::askForChildren()
{
    constexpr int minRows = 8;  // in a turn, so that a short list is never put off
    constexpr qint64 turn = 20; // milliseconds
    if (!model())
        return true;
    QElapsedTimer clock;
    clock.start();
    for (int asked = 0; m_askedRows < model()->rowCount(rootIndex()); ++asked) {
        if (asked >= minRows && clock.hasExpired(turn))
            return false;
        model()->hasChildren(model()->index(m_askedRows++, 0, rootIndex()));
    }
    return true;
}

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
