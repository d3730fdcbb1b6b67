// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkoperations.h"

#include "bookmarkstore.h"

#include "bookmarks/bookmarkitem.h"

#include <QDataStream>
#include <QMimeData>
#include <QPersistentModelIndex>

#include <memory>

namespace {

QStringList newsgroups()
{
    return {QStringLiteral("x.one"), QStringLiteral("x.two")};
}

void addFolder(BookmarkStore &store)
{
    store.model().addFolder({});
}

void addInnerFolder(BookmarkStore &store)
{
    store.model().addFolder(store.at({0}));
}

// The one call that a model tester does not bear.
void addBookmarks(BookmarkStore &store)
{
    store.leave();
    store.model().addBookmarks(newsgroups(), {});
}

void addBookmarksToFolder(BookmarkStore &store)
{
    store.model().addBookmarks(newsgroups(), store.model().index(0, 0));
}

void addBookmarksBehindBookmark(BookmarkStore &store)
{
    const QModelIndex bookmark = store.at({0, 0});
    if (bookmark.parent().isValid())
        store.model().addBookmarks(newsgroups(), bookmark);
}

void rename(BookmarkStore &store)
{
    store.model().setData(store.at({0, 1}), QStringLiteral("renamed"));
}

void setColor(BookmarkStore &store)
{
    store.model().setItemColor(store.at({1}), QStringLiteral("blue"));
}

void setExpanded(BookmarkStore &store)
{
    store.model().setFolderExpanded(store.at({1}), true);
}

void removeFolder(BookmarkStore &store)
{
    store.model().removeBookmark(store.at({0}));
}

void removeBookmark(BookmarkStore &store)
{
    store.model().removeBookmark(store.at({0, 0}));
}

void dropNewsgroups(BookmarkStore &store)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QString &name : newsgroups())
        stream << name;
    QMimeData data;
    data.setData(QStringLiteral("application/x-halvora.plain.newsgroup"), bytes);
    store.model().dropMimeData(&data, Qt::CopyAction, 0, 0, store.at({1}));
}

/// As a view does it: what was dragged is removed when the drop was taken.
void drop(BookmarkStore &store, const QVector<int> &source, int count, int row, const QVector<int> &target)
{
    const QModelIndex first = store.at(source);
    QModelIndexList dragged;
    QList<QPersistentModelIndex> sources;
    for (int i = 0; i < count; ++i) {
        dragged.append(first.sibling(first.row() + i, 0));
        sources.append(dragged.last());
    }
    const std::unique_ptr<QMimeData> data(store.model().mimeData(dragged));
    if (!store.model().dropMimeData(data.get(), Qt::MoveAction, row, 0, store.at(target)))
        return;
    for (const QPersistentModelIndex &index : qAsConst(sources)) {
        if (index.isValid())
            store.model().removeRows(index.row(), 1, index.parent());
    }
}

void dropInOtherFolder(BookmarkStore &store)
{
    drop(store, {0, 0}, 2, -1, {1});
}

void dropInSameFolder(BookmarkStore &store)
{
    drop(store, {0, 1}, 1, 0, {0});
}

void dropAtTop(BookmarkStore &store)
{
    drop(store, {0, 2}, 1, 1, {});
}

void importFolders(BookmarkStore &store)
{
    BookmarkItem folder(BookmarkKind::Folder, nullptr);
    folder.setName(QStringLiteral("imported"));
    for (const QString &name : newsgroups()) {
        auto *bookmark = new BookmarkItem(BookmarkKind::Bookmark, &folder);
        bookmark->setName(name);
        folder.appendChild(bookmark);
    }
    store.model().importFolders({&folder, &folder});
}

void clear(BookmarkStore &store)
{
    store.model().clearBookmarks();
}

void load(BookmarkStore &store)
{
    store.model().load();
}

void readFolder(BookmarkStore &store)
{
    store.leave();
    store.model().load();
    store.model().rowCount(store.at({0}));
}

} // namespace

const QVector<std::pair<const char *, BookmarkOperation>> &bookmarkOperations()
{
    static const QVector<std::pair<const char *, BookmarkOperation>> all{
        {"add a folder", addFolder},
        {"add a folder in a folder", addInnerFolder},
        {"add bookmarks", addBookmarks},
        {"add bookmarks to a folder", addBookmarksToFolder},
        {"add bookmarks behind a bookmark", addBookmarksBehindBookmark},
        {"rename", rename},
        {"colour", setColor},
        {"expand", setExpanded},
        {"remove a folder", removeFolder},
        {"remove a bookmark", removeBookmark},
        {"drop newsgroups", dropNewsgroups},
        {"drop in another folder", dropInOtherFolder},
        {"drop in the same folder", dropInSameFolder},
        {"drop at the top", dropAtTop},
        {"import", importFolders},
        {"clear", clear},
        {"load", load},
        {"read a folder", readFolder},
    };
    return all;
}
