// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkmanager.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarkwriter.h"
#include "bookmarks/cvbookmarkprovider.h"

#include <QSqlDatabase>

// The account's own bookmarks are not asked for yet.
void CVBookmarkManager::connectorStateChanged(HServer::State state)
{
    Q_UNUSED(state)
}

void CVBookmarkManager::bookmarksRequestFinished() {}

void CVBookmarkManager::importFolders(const QList<BookmarkItem *> &folders)
{
    if (folders.isEmpty())
        return;
    const QSqlDatabase connection = database();
    m_writer->begin(connection);
    beginResetModel();
    QStringList newsgroups;
    for (const BookmarkItem *source : folders) {
        if (source->isFolder())
            newsgroups += importFolder(connection, *source);
    }
    m_writer->commit(connection);
    m_provider->setBookmarkedNewsgroups(newsgroups);
    endResetModel();
}

/// Returns the newsgroups that were added.
QStringList CVBookmarkManager::importFolder(const QSqlDatabase &database, const BookmarkItem &source)
{
    auto *folder = new BookmarkItem(BookmarkKind::Folder, nullptr);
    folder->setName(source.name());
    folder->setChildrenLoaded(true);
    m_topLevel.append(folder);
    writeItem(database, folder);
    QStringList newsgroups;
    for (const BookmarkItem *child : source.children()) {
        if (child->isFolder())
            continue;
        auto *bookmark = new BookmarkItem(BookmarkKind::Bookmark, folder);
        bookmark->setName(child->name());
        bookmark->setChildrenLoaded(true);
        folder->insertChild(folder->children().size(), bookmark); // to append would search the list
        writeItem(database, bookmark);
        newsgroups.append(child->name());
    }
    return newsgroups;
}
