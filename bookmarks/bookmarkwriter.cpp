// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkwriter.h"

#include "bookmarks/bookmarkitem.h"

#include <halvora/dbutils.h>

#include <QVariant>

namespace {

// Result codes of SQLite: another connection's lock, and what a COMMIT gives where nothing is to be
// committed.
constexpr int busyCode = 5;
constexpr int noTransactionCode = 1;

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

// A write or commit that failed may have rolled back what was written before it in the same transaction.
bool BookmarkWriter::run(PreparedStatement &statement, const QSqlDatabase &database,
                         std::initializer_list<QVariant> values)
{
    if (statement.run(database, values))
        return true;
    m_orders.forget();
    m_isLocked = m_isLocked || statement.errorCode() == busyCode;
    return false;
}

bool BookmarkWriter::write(PreparedStatement &statement, const QSqlDatabase &database,
                           std::initializer_list<QVariant> values)
{
    const bool succeeded = run(statement, database, values);
    if (!succeeded)
        report(statement);
    return succeeded;
}

void BookmarkWriter::report(const PreparedStatement &statement)
{
    if (!m_hasReported)
        DBUtils::checkForErrors(statement.query());
    m_hasReported = true;
}

// BEGIN takes back nothing, so what is known of the orders stays true when it fails.
void BookmarkWriter::begin(const QSqlDatabase &database)
{
    m_hasReported = false;
    m_isLocked = false;
    m_begin.run(database);
    DBUtils::checkForErrors(m_begin.query());
}

bool BookmarkWriter::commit(const QSqlDatabase &database)
{
    m_hasCommitFailed = !run(m_commit, database);
    DBUtils::checkForErrors(m_commit.query());
    return !m_hasCommitFailed;
}

void BookmarkWriter::commitAtEnd(const QSqlDatabase &database)
{
    if (!m_hasCommitFailed || !database.isOpen())
        return;
    QSqlQuery(database).exec(QStringLiteral("PRAGMA busy_timeout = 1000"));
    if (!run(m_commit, database) && m_commit.errorCode() != noTransactionCode)
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
        if (write(m_update, database, {parentId, name, newsgroup, item->color(), expanded, item->id()}) &&
            m_update.query().numRowsAffected() == 0)
            report(m_update);
        return;
    }
    write(m_insert, database, {parentId, name, newsgroup, item->color(), expanded, -1});
    item->setId(m_insert.query().lastInsertId().toLongLong());
    m_orders.forget(item->id());
}

// A lock that one statement waited for in vain would hold up each sibling's in turn.
void BookmarkWriter::writeOrder(const QSqlDatabase &database, const BookmarkItem *parent,
                                const QList<BookmarkItem *> &siblings)
{
    bool settled = true;
    for (int place = m_orders.settled(parent); place < siblings.size(); ++place) {
        const qint64 id = siblings.at(place)->id();
        if (m_orders.holds(id, place))
            continue;
        if (m_isLocked)
            return;
        settled = write(m_order, database, {place, id}) && m_orders.note(id, place) && settled;
    }
    m_orders.settle(parent, settled ? siblings.size() : 0);
}

void BookmarkWriter::deleteRow(const QSqlDatabase &database, qint64 id)
{
    write(m_delete, database, {id});
}
