// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkmanager.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarkwriter.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "plugin/constants.h"
#include "requests/cvbookmarksrequest.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/dbutils.h>
#include <halvora/storagemanager.h>

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <cmath>
#include <vector>

namespace {

/// The columns of a row, in the order of constants::bookmarkColumns; its last one sorts and is not read.
enum Column { IdColumn, ParentColumn, NameColumn, NewsgroupColumn, ColorColumn, ExpandedColumn };

bool execute(const QSqlDatabase &database, const QString &statement)
{
    QSqlQuery query(database);
    const bool succeeded = query.exec(statement);
    DBUtils::checkForErrors(query);
    return succeeded;
}

// Rows of folders give empty names.
QStringList storedNewsgroups(const QSqlDatabase &database)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    query.exec(QStringLiteral("SELECT bookmark_newsgroup FROM bookmarks"));
    DBUtils::checkForErrors(query);
    QStringList newsgroups;
    while (query.next())
        newsgroups.append(query.value(0).toString());
    return newsgroups;
}

// A number that is compared with an id need not be stored as an integer: a foreign table may have other
// types.
qint64 idFrom(const QVariant &value)
{
    return value.type() == QVariant::Double ? std::llround(value.toDouble()) : value.toLongLong();
}

void addStoredParents(const QSqlDatabase &database, ParentIds &parents)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    const bool isRunning = query.exec(QStringLiteral("SELECT DISTINCT parent_id FROM bookmarks"));
    DBUtils::checkForErrors(query);
    while (query.next()) {
        if (!query.isNull(0))
            parents.add(idFrom(query.value(0)));
    }
    parents.setKnown(isRunning && !query.lastError().isValid());
}

} // namespace

QSqlDatabase CVBookmarkManager::database()
{
    return QSqlDatabase::database(constants::bookmarkManagerName, true);
}

void CVBookmarkManager::openDatabase(const QString &storageName)
{
    const QString path = m_core->storage()->databasePath(storageName);
    QSqlDatabase connection =
        QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), constants::bookmarkManagerName);
    connection.setDatabaseName(path);
    connection.open();
    execute(connection, QStringLiteral("PRAGMA synchronous = OFF"));
    execute(connection,
            QStringLiteral("CREATE TABLE IF NOT EXISTS bookmarks (bookmark_id INTEGER PRIMARY KEY "
                           "AUTOINCREMENT,parent_id INTEGER,bookmark_name TEXT,bookmark_newsgroup "
                           "TEXT,bookmark_color TEXT,bookmark_expanded BOOLEAN, bookmark_order INTEGER)"));
}

// A connection can be removed only when nothing refers to it any more, neither a handle nor a statement.
void CVBookmarkManager::closeDatabase()
{
    m_writer->commitAtEnd(QSqlDatabase::database(constants::bookmarkManagerName, false));
    m_writer.reset();
    QSqlDatabase::database(constants::bookmarkManagerName, false).close();
    QSqlDatabase::removeDatabase(constants::bookmarkManagerName);
}

// Items may be pointed to by indexes until the reset is over.
void CVBookmarkManager::load()
{
    const QSqlDatabase connection = database();
    m_writer->forgetOrders();
    m_writer->begin(connection);
    QList<BookmarkItem *> items = readItems(
        QStringLiteral("SELECT %1 FROM bookmarks WHERE parent_id IS NULL ORDER BY bookmark_order ASC"),
        QVariant(), nullptr);
    m_provider->setBookmarkedNewsgroups(storedNewsgroups(connection));
    addStoredParents(connection, m_writer->parents());
    m_writer->commit(connection);
    beginResetModel();
    m_topLevel.swap(items);
    endResetModel();
    qDeleteAll(items);
}

void CVBookmarkManager::loadChildren(BookmarkItem *item) const
{
    if (item->childrenLoaded() || item->id() < 1)
        return;
    if (m_writer->parents().contains(item->id())) {
        item->appendNewChildren(readItems(
            QStringLiteral("SELECT %1 FROM bookmarks WHERE parent_id=? ORDER BY bookmark_order ASC"),
            item->id(), item));
    }
    item->setChildrenLoaded(true);
}

/// The items of the rows that @p statement selects, with @p id bound unless it is invalid; the caller owns
/// them.
QList<BookmarkItem *> CVBookmarkManager::readItems(const QString &statement, const QVariant &id,
                                                   BookmarkItem *parent)
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    // What could not be prepared is not run, or the error would be that there is nothing to run.
    const bool prepared = query.prepare(statement.arg(constants::bookmarkColumns, 0, QLatin1Char(' ')));
    if (id.isValid())
        query.bindValue(0, id);
    if (prepared)
        query.exec();
    DBUtils::checkForErrors(query);
    QList<BookmarkItem *> items;
    while (query.next())
        items.append(itemFromRecord(query, parent));
    return items;
}

// Whether there is a newsgroup decides what a row is, even where it has both names.
BookmarkItem *CVBookmarkManager::itemFromRecord(const QSqlQuery &query, BookmarkItem *parent)
{
    const QVariant newsgroup = query.value(NewsgroupColumn);
    const bool isFolder = newsgroup.isNull();
    auto *item = new BookmarkItem(isFolder ? BookmarkKind::Folder : BookmarkKind::Bookmark, parent);
    item->setId(query.value(IdColumn).toLongLong());
    const QVariant parentId = query.value(ParentColumn);
    item->setParentId(parentId.isNull() ? -1 : parentId.toLongLong());
    item->setName(isFolder ? query.value(NameColumn).toString() : newsgroup.toString());
    item->setColor(query.value(ColorColumn).toString());
    if (isFolder)
        item->setExpanded(query.value(ExpandedColumn).toBool());
    return item;
}

void CVBookmarkManager::saveItem(BookmarkItem *item)
{
    const QSqlDatabase connection = database();
    m_writer->begin(connection);
    writeItem(connection, item);
    m_writer->commit(connection);
}

void CVBookmarkManager::writeItem(const QSqlDatabase &database, BookmarkItem *item)
{
    m_writer->writeRow(database, item);
    m_writer->writeOrder(database, item->parent(), siblings(item->parent()));
}

void CVBookmarkManager::renumberChildren(BookmarkItem *parent)
{
    if (parent)
        loadChildren(parent);
    const QSqlDatabase connection = database();
    m_writer->begin(connection);
    m_writer->writeOrder(connection, parent, siblings(parent));
    m_writer->commit(connection);
}

// From the bottom up, without a deep stack for a deep tree.
void CVBookmarkManager::deleteItemRows(const QSqlDatabase &database, BookmarkItem *item)
{
    struct Visit {
        const BookmarkItem *item;
        int nextChild;
    };
    std::vector<Visit> path{{item, 0}};
    while (!path.empty()) {
        Visit &visit = path.back();
        if (visit.nextChild < visit.item->children().size()) {
            path.push_back({visit.item->children().at(visit.nextChild++), 0});
            continue;
        }
        m_writer->deleteRow(database, visit.item->id());
        if (!visit.item->isFolder())
            m_provider->noteBookmarkRemoved(visit.item->name());
        path.pop_back();
    }
}

// The program's list of bookmarked newsgroups stays as it is until the next load or import.
void CVBookmarkManager::clearBookmarks()
{
    const QSqlDatabase connection = database();
    m_writer->forgetOrders();
    m_writer->begin(connection);
    const bool isEmpty = execute(connection, QStringLiteral("DELETE FROM bookmarks"));
    // Bookmarks that could not be deleted keep their copies.
    if (m_writer->commit(connection) && isEmpty)
        m_core->storage()->removeCopies(m_connector->plugin()->configName());
    beginResetModel();
    qDeleteAll(m_topLevel);
    m_topLevel.clear();
    endResetModel();
    if (m_connector->server()->connectorState() == HServer::Connected && !m_pendingRequest)
        requestServerBookmarks();
}
