// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkmanager.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarkwriter.h"
#include "bookmarks/cvbookmarkprovider.h"

#include <QSqlDatabase>

void CVBookmarkManager::insertItem(BookmarkItem *parent, int row, BookmarkItem *item)
{
    if (row < siblings(parent).size())
        m_writer->listChanged();
    if (parent)
        parent->insertChild(row, item);
    else
        m_topLevel.insert(row, item);
}

// A new folder has to be in sight: below a folder that is its top, in the tree as a whole its end.
QModelIndex CVBookmarkManager::addFolder(const QModelIndex &parentIndex)
{
    BookmarkItem *parent = itemFromIndex(parentIndex);
    if (parent && !parent->isFolder())
        return {};
    const int row = parent ? 0 : m_topLevel.size();
    beginInsertRows(parentIndex, row, row);
    auto *folder = new BookmarkItem(BookmarkKind::Folder, parent);
    folder->setName(tr("New Folder"));
    insertItem(parent, row, folder);
    saveItem(folder);
    endInsertRows();
    return index(row, 0, parentIndex);
}

// At the top the rows that are announced are the first ones, and the items go to the end all the same. Views
// cope, but persistent indexes shift, which is why a model tester objects to this one call.
void CVBookmarkManager::addBookmarks(const QStringList &newsgroups, const QModelIndex &index)
{
    if (newsgroups.isEmpty())
        return;
    QModelIndex target = index;
    int row = 0;
    const BookmarkItem *chosen = itemFromIndex(index);
    if (chosen && !chosen->isFolder()) {
        target = index.parent();
        row = index.row() + 1;
    }
    BookmarkItem *folder = itemFromIndex(target);
    if (chosen && (!folder || !folder->isFolder()))
        return;
    beginInsertRows(target, row, row + newsgroups.size() - 1);
    for (const QString &newsgroup : newsgroups) {
        addBookmark(folder, folder ? row : m_topLevel.size(), newsgroup);
        ++row;
    }
    endInsertRows();
}

void CVBookmarkManager::addBookmark(BookmarkItem *folder, int row, const QString &newsgroup)
{
    auto *bookmark = new BookmarkItem(BookmarkKind::Bookmark, folder);
    bookmark->setName(newsgroup);
    insertItem(folder, row, bookmark);
    saveItem(bookmark);
    m_provider->noteBookmarkAdded(newsgroup);
}

void CVBookmarkManager::removeBookmark(const QModelIndex &index)
{
    BookmarkItem *item = itemFromIndex(index);
    if (!item)
        return;
    beginRemoveRows(index.parent(), index.row(), index.row());
    const QSqlDatabase connection = database();
    m_writer->begin(connection);
    if (item->parent())
        item->parent()->removeChild(item);
    else
        m_topLevel.removeAll(item);
    m_writer->listChanged();
    deleteItemRows(connection, item);
    delete item;
    m_writer->commit(connection);
    endRemoveRows();
}

void CVBookmarkManager::setItemColor(const QModelIndex &index, const QString &colorName)
{
    BookmarkItem *item = itemFromIndex(index);
    if (!item)
        return;
    item->setColor(colorName);
    saveItem(item);
    Q_EMIT dataChanged(index, index);
}

void CVBookmarkManager::setFolderExpanded(const QModelIndex &index, bool expanded)
{
    BookmarkItem *item = itemFromIndex(index);
    if (!item || !item->isFolder())
        return;
    item->setExpanded(expanded);
    saveItem(item);
}

QModelIndexList CVBookmarkManager::expandedFolderIndexes() const
{
    constexpr int fallbackCount = 2;
    QModelIndexList expanded;
    QModelIndexList fallback;
    for (int row = 0; row < m_topLevel.size(); ++row) {
        const BookmarkItem *item = m_topLevel.at(row);
        if (!item->isFolder())
            continue;
        if (item->isExpanded())
            expanded.append(index(row, 0));
        if (fallback.size() < fallbackCount)
            fallback.append(index(row, 0));
    }
    return expanded.isEmpty() ? fallback : expanded;
}
