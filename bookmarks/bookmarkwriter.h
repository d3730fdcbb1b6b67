// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bookmarks/parentids.h"
#include "bookmarks/preparedstatement.h"
#include "bookmarks/siblingorders.h"

#include <QList>

class BookmarkItem;
class QSqlDatabase;

/// Writes bookmarks to their table. After each commit every row of the list that was written last has its
/// place in the list as its order, the later one where the list holds a row twice; an order that is known to
/// be stored already is not written again. Of each transaction the first write that failed is reported
/// through DBUtils, and BEGIN and COMMIT always. Has to go before the connection is removed. GUI thread.
class BookmarkWriter {
public:
    BookmarkWriter();

    void begin(const QSqlDatabase &database);
    /// False when it failed.
    bool commit(const QSqlDatabase &database);
    /// Runs COMMIT once more when the last one failed, because closing the connection rolls back a
    /// transaction that is still open. Waits at most a second for a lock.
    void commitAtEnd(const QSqlDatabase &database);

    /// Updates the row of @p item, or inserts one and gives the item its id: 0 when that failed, so that the
    /// next write tries again. An update that changes no row has failed, too.
    void writeRow(const QSqlDatabase &database, BookmarkItem *item);
    /// Stores the places of @p siblings, the list below @p parent or, for null, the top level. Once the
    /// transaction met a lock this does nothing.
    void writeOrder(const QSqlDatabase &database, const BookmarkItem *parent,
                    const QList<BookmarkItem *> &siblings);
    void deleteRow(const QSqlDatabase &database, qint64 id);

    /// To be called when a list of siblings changed otherwise than by an append.
    void listChanged() { m_orders.unsettle(); }
    /// To be called when rows changed otherwise than through this object.
    void forgetOrders() { m_orders.forget(); }

    /// Holds the parents that were written through this object; those that the file had before are added by
    /// the caller.
    ParentIds &parents() { return m_parents; }

private:
    bool run(PreparedStatement &statement, const QSqlDatabase &database,
             std::initializer_list<QVariant> values = {});
    bool write(PreparedStatement &statement, const QSqlDatabase &database,
               std::initializer_list<QVariant> values);
    void report(const PreparedStatement &statement);

    PreparedStatement m_begin;
    PreparedStatement m_commit;
    PreparedStatement m_insert;
    PreparedStatement m_update;
    PreparedStatement m_order;
    PreparedStatement m_delete;
    SiblingOrders m_orders;
    ParentIds m_parents;
    bool m_hasReported = false;     ///< a write of the current transaction
    bool m_isLocked = false;        ///< a statement of the current transaction
    bool m_hasCommitFailed = false; ///< the last one
};
