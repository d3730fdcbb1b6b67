// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgrouplistview.h"

#include "newsgrouplistmodel.h"

#include <QHeaderView>
#include <QKeyEvent>

NewsgroupListView::NewsgroupListView(QWidget *parent)
    : ExtendedTreeView(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QAbstractItemView::doubleClicked, this, &NewsgroupListView::openRequested);
}

void NewsgroupListView::setModel(QAbstractItemModel *model)
{
    ExtendedTreeView::setModel(model);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(true);
    arrangeColumns();
}

// Behind the names a mark leaves them standing below each other.
QStyleOptionViewItem NewsgroupListView::viewOptions() const
{
    QStyleOptionViewItem option = ExtendedTreeView::viewOptions();
    option.decorationPosition = QStyleOptionViewItem::Right;
    return option;
}

void NewsgroupListView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        ExtendedTreeView::keyPressEvent(event);
        return;
    }
    event->accept();
    if (currentIndex().isValid())
        Q_EMIT openRequested();
}

void NewsgroupListView::resizeEvent(QResizeEvent *event)
{
    ExtendedTreeView::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        arrangeColumns();
}

void NewsgroupListView::arrangeColumns()
{
    if (!model())
        return;
    const int width = viewport()->width();
    const int nameWidth = fontMetrics().averageCharWidth() * 40;
    setColumnHidden(NewsgroupListModel::DescriptionColumn, width < nameWidth * 3 / 2);
    if (!isColumnHidden(NewsgroupListModel::DescriptionColumn))
        header()->resizeSection(NewsgroupListModel::NameColumn, nameWidth);
}
