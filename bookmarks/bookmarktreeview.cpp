// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarktreeview.h"

#include <QCursor>
#include <QMouseEvent>

BookmarkTreeView::BookmarkTreeView(QWidget *parent)
    : ExtendedTreeView(parent)
{
    setAskingInTurns(true); // each folder costs a scan of the file
}

void BookmarkTreeView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::RightButton)
        QTreeView::mousePressEvent(event);
}

// The menu key asks, too, and means what is under the pointer then.
void BookmarkTreeView::contextMenuEvent(QContextMenuEvent *event)
{
    Q_UNUSED(event)
    Q_EMIT customContextMenuRequested(viewport()->mapFromGlobal(QCursor::pos()));
}
