// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkwriter.h"

#include "bookmarks/bookmarkitem.h"

#include <halvora/dbutils.h>

#include <QVariant>

namespace {

QVariant parentIdOf(const BookmarkItem &item)
{
    return item.parent() ? QVariant(item.parent()->id()) : QVariant(QVariant::LongLong);
}

} // namespace

BookmarkWriter::BookmarkWriter()
    : m_begin(QStringLiteral("BEGIN TRANSACTION"))
    , m_commit(QStringLiteral("COMMIT TRANSACTION"))
    , m_insert(QStringLiteral(
          "INSERT INTO bookmarks (parent_id, bookmark_name, bookmark_newsgroup, bookmark_color, "
          "bookmark_expanded, bookmark_order)  VALUES (?, ?, ?, ?, ?, ?)"))
    , m_update(QStringLiteral("UPDATE bookmarks SET parent_id=?, bookmark_name=?, bookmark_newsgroup=?, "
                              "bookmark_color=?, bookmark_expanded=? WHERE bookmark_id=?"))
    , m_order(QStringLiteral("UPDATE bookmarks SET bookmark_order=? WHERE bookmark_id=?"))
    , m_delete(QStringLiteral("DELETE FROM bookmarks WHERE bookmark_id=?"))
{
}

// A statement that failed may have rolled back what was written before it in the same transaction.
bool BookmarkWriter::run(PreparedStatement &statement, const QSqlDatabase &database,
                         std::initializer_list<QVariant> values)
{
    if (statement.run(database, values))
        return true;
    m_orders.forget();
    return false;
}

void BookmarkWriter::begin(const QSqlDatabase &database)
{
    run(m_begin, database);
    DBUtils::checkForErrors(m_begin.query());
}

void BookmarkWriter::commit(const QSqlDatabase &database)
{
    run(m_commit, database);
    DBUtils::checkForErrors(m_commit.query());
}

void BookmarkWriter::writeRow(const QSqlDatabase &database, BookmarkItem *item)
{
    const QVariant parentId = parentIdOf(*item);
    const QVariant nullText{QString()};
    const QVariant name = item->isFolder() ? item->name() : nullText;
    const QVariant newsgroup = item->isFolder() ? nullText : item->name();
    const bool expanded = item->isFolder() && item->isExpanded();
    if (item->parent())
        m_parents.add(item->parent()->id());
    if (item->hasId()) {
        run(m_update, database, {parentId, name, newsgroup, item->color(), expanded, item->id()});
        return;
    }
    run(m_insert, database, {parentId, name, newsgroup, item->color(), expanded, -1});
    item->setId(m_insert.query().lastInsertId().toLongLong());
    m_orders.forget(item->id());
}

void BookmarkWriter::writeOrder(const QSqlDatabase &database, const BookmarkItem *parent,
                                const QList<BookmarkItem *> &siblings)
{
    bool settled = true;
    for (int place = m_orders.settled(parent); place < siblings.size(); ++place) {
        const qint64 id = siblings.at(place)->id();
        if (m_orders.holds(id, place))
            continue;
        settled = run(m_order, database, {place, id}) && m_orders.note(id, place) && settled;
    }
    m_orders.settle(parent, settled ? siblings.size() : 0);
}

void BookmarkWriter::deleteRow(const QSqlDatabase &database, qint64 id)
{
    run(m_delete, database, {id});
}
