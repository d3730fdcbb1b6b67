// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkmanager.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarkpayload.h"
#include "plugin/constants.h"

#include <QMimeData>
#include <QSet>
#include <QVariant>

#include <algorithm>

namespace {

QString newsgroupMimeType()
{
    return QStringLiteral("application/x-halvora.plain.newsgroup");
}

// A set, because a drag asks on every move of the pointer and may hold as many names as the folder.
bool hasChildNamedAsAny(const BookmarkItem &folder, const QSet<QString> &names)
{
    const QList<BookmarkItem *> &children = folder.children();
    return std::any_of(children.cbegin(), children.cend(),
                       [&names](const BookmarkItem *child) { return names.contains(child->name()); });
}

} // namespace

QStringList CVBookmarkManager::mimeTypes() const
{
    return {newsgroupMimeType(), constants::bookmarkMimeType};
}

Qt::DropActions CVBookmarkManager::supportedDragActions() const
{
    return Qt::MoveAction;
}

Qt::DropActions CVBookmarkManager::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

// An item that is dragged along with its folder is told twice, within the folder and on its own.
QMimeData *CVBookmarkManager::mimeData(const QModelIndexList &indexes) const
{
    QList<BookmarkItem *> items;
    for (const QModelIndex &index : indexes) {
        if (index.isValid())
            items.append(itemFromIndex(index));
    }
    auto *data = new QMimeData;
    data->setData(constants::bookmarkMimeType, bookmarkpayload::write(items));
    return data;
}

bool CVBookmarkManager::canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                        const QModelIndex &parent) const
{
    Q_UNUSED(row)
    if (column > 0)
        return false;
    const BookmarkItem *folder = itemFromIndex(parent);
    if (!folder || !folder->isFolder())
        return false;
    if (data->hasFormat(newsgroupMimeType())) {
        const QStringList names = bookmarkpayload::readNewsgroups(data->data(newsgroupMimeType()));
        return !hasChildNamedAsAny(*folder, QSet<QString>(names.cbegin(), names.cend()));
    }
    if (action != Qt::MoveAction || !data->hasFormat(constants::bookmarkMimeType))
        return false;
    const QVector<BookmarkRecord> records = bookmarkpayload::read(data->data(constants::bookmarkMimeType));
    const bool isReordering =
        std::all_of(records.cbegin(), records.cend(),
                    [folder](const BookmarkRecord &record) { return record.parentId == folder->id(); });
    if (isReordering)
        return true;
    QSet<QString> names;
    names.reserve(records.size());
    for (const BookmarkRecord &record : records)
        names.insert(record.name);
    return !hasChildNamedAsAny(*folder, names);
}

bool CVBookmarkManager::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                     const QModelIndex &parent)
{
    if (action == Qt::IgnoreAction)
        return true;
    if (column > 0)
        return false;
    const BookmarkItem *folder = itemFromIndex(parent);
    if (folder && !folder->isFolder())
        return false;
    if (row == -1)
        row = rowCount(parent);
    if (row < 0 || row > rowCount(parent))
        return false;
    if (data->hasFormat(newsgroupMimeType()))
        return dropNewsgroups(bookmarkpayload::readNewsgroups(data->data(newsgroupMimeType())), row, parent);
    if (action != Qt::MoveAction || !data->hasFormat(constants::bookmarkMimeType))
        return false;
    QList<BookmarkItem *> fresh;
    const QVector<BookmarkRecord> records = bookmarkpayload::read(data->data(constants::bookmarkMimeType));
    for (const BookmarkRecord &record : records)
        fresh +=
            readItems(QStringLiteral("SELECT %1 FROM bookmarks WHERE bookmark_id=?"), record.id, nullptr);
    return dropBookmarks(fresh, row, parent);
}

bool CVBookmarkManager::dropNewsgroups(const QStringList &newsgroups, int row, const QModelIndex &parent)
{
    if (newsgroups.isEmpty())
        return true;
    BookmarkItem *folder = itemFromIndex(parent);
    beginInsertRows(parent, row, row + newsgroups.size() - 1);
    for (const QString &newsgroup : newsgroups)
        addBookmark(folder, row++, newsgroup);
    endInsertRows();
    return true;
}

// The items that were dragged are still in their old lists; the view removes them afterwards. The old parent
// that is renumbered is the fresh item's, and that is none: the top of the tree.
bool CVBookmarkManager::dropBookmarks(const QList<BookmarkItem *> &fresh, int row, const QModelIndex &parent)
{
    if (fresh.isEmpty())
        return false;
    BookmarkItem *folder = itemFromIndex(parent);
    beginInsertRows(parent, row, row + fresh.size() - 1);
    for (BookmarkItem *item : fresh) {
        BookmarkItem *oldParent = item->parent();
        item->setParent(folder);
        insertItem(folder, row++, item);
        saveItem(item);
        renumberChildren(folder);
        renumberChildren(oldParent);
    }
    endInsertRows();
    return true;
}
