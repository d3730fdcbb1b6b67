// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "unsavedchanges.h"

#include "databaseconnection.h"
#include "sqlstatement.h"

#include <QSqlDriver>
#include <QSqlQuery>

namespace {

QDateTime earlier(const QDateTime &one, const QDateTime &other)
{
    if (!one.isValid() || !other.isValid())
        return one.isValid() ? one : other;
    return qMin(one, other);
}

} // namespace

void UnsavedChanges::note(const QSqlQuery &query, bool hasFailed, const QDateTime &now)
{
    const SqlStatement kind = sqlstatement::kindOf(query.lastQuery());
    if (kind == SqlStatement::Unknown && !databaseconnection::find(query.driver()).isValid())
        return;
    Connection &connection = connectionOf(query.driver());
    switch (kind) {
    case SqlStatement::Begin:
        return begin(connection, hasFailed, now);
    case SqlStatement::Commit:
        return commit(connection, hasFailed);
    case SqlStatement::Read:
        return read(connection, hasFailed);
    case SqlStatement::Clear:
        return hasFailed ? lose(connection, now) : clear(connection);
    case SqlStatement::Insert:
    case SqlStatement::Update:
    case SqlStatement::Delete:
    case SqlStatement::Unknown: // may have been a change
        return hasFailed ? lose(connection, now) : change(connection);
    case SqlStatement::Other:
        return;
    }
}

QDateTime UnsavedChanges::since() const
{
    QDateTime first = m_gone;
    for (const Connection &connection : m_connections)
        first = earlier(first, earlier(connection.lost, connection.waiting));
    return first;
}

UnsavedChanges::Connection &UnsavedChanges::connectionOf(const QSqlDriver *driver)
{
    if (!m_connections.contains(driver)) {
        // Another connection may get the same address.
        connect(driver, &QObject::destroyed, this, [this, driver] {
            const Connection gone = m_connections.take(driver);
            m_gone = earlier(m_gone, earlier(gone.lost, gone.waiting));
        });
    }
    return m_connections[driver];
}

void UnsavedChanges::begin(Connection &connection, bool hasFailed, const QDateTime &now)
{
    connection.begun = now;
    connection.isInside = true;
    connection.hasRead = false;
    connection.hasChanged = false;
    connection.hasFailed = false;
    if (hasFailed)
        return;
    // The transaction that waited for its COMMIT is no longer open, or this BEGIN would have failed.
    connection.lost = earlier(connection.lost, connection.waiting);
    connection.waiting = {};
    connection.isOpen = true;
    connection.agreesAtCommit = false;
}

void UnsavedChanges::commit(Connection &connection, bool hasFailed)
{
    connection.isInside = false;
    if (hasFailed) {
        const bool hasChanges = connection.isOpen && (connection.hasChanged || !connection.hasRead);
        connection.waiting = earlier(connection.waiting, hasChanges ? connection.begun : QDateTime());
        return;
    }
    if (connection.agreesAtCommit)
        connection.lost = {};
    connection.waiting = {};
    connection.isOpen = false;
    connection.agreesAtCommit = false;
}

// Outside a transaction a store reads a part of the file, and what it has in memory stays.
void UnsavedChanges::read(Connection &connection, bool hasFailed)
{
    if (!connection.isInside)
        return;
    connection.hasRead = true;
    connection.hasFailed |= hasFailed;
    connection.agreesAtCommit = !connection.hasFailed && !connection.hasChanged;
}

void UnsavedChanges::change(Connection &connection)
{
    connection.hasChanged = true;
    if (connection.hasRead)
        connection.agreesAtCommit = false;
}

void UnsavedChanges::clear(Connection &connection)
{
    if (connection.isInside)
        connection.agreesAtCommit = true;
    else if (!connection.waiting.isValid())
        connection.lost = {};
}

void UnsavedChanges::lose(Connection &connection, const QDateTime &now)
{
    connection.hasFailed = true;
    connection.agreesAtCommit = false;
    connection.lost = earlier(connection.lost, connection.isInside ? connection.begun : now);
}
