// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkmanager.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarkwriter.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "requests/cvbookmarksrequest.h"

#include <halvora/connector.h>

#include <QSqlDatabase>

// Before the stored bookmarks were read the tree is empty, too; the program logs in after that.
void CVBookmarkManager::connectorStateChanged(HServer::State state)
{
    if (m_topLevel.isEmpty() && state == HServer::Connected && !m_pendingRequest)
        requestServerBookmarks();
}

void CVBookmarkManager::requestServerBookmarks()
{
    m_pendingRequest = QSharedPointer<CVBookmarksRequest>(new CVBookmarksRequest(m_connector));
    connect(m_pendingRequest.data(), &HRequest::requestFinished, this,
            &CVBookmarkManager::bookmarksRequestFinished);
    m_connector->server()->addRequestToQueue(m_pendingRequest);
}

void CVBookmarkManager::bookmarksRequestFinished()
{
    if (!m_pendingRequest)
        return;
    if (m_pendingRequest->isSuccessful())
        importFolders(m_pendingRequest->folders());
    m_pendingRequest.reset();
}

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
