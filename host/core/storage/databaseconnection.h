// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

class QSqlDatabase;
class QSqlDriver;
class QSqlQuery;

/// What DBUtils and the room do with the SQLite connection of a query. GUI thread.
namespace databaseconnection {

/// The connection that @p driver belongs to; an invalid one when it has been removed.
QSqlDatabase find(const QSqlDriver *driver);

/// Makes the connection of @p query wait at most a second for another program's lock, now and whenever it is
/// opened again. Does so once a connection, and not where its owner chose a busy time.
void limitBusyTime(const QSqlQuery &query);

/// After @p query met another program's lock in vain, the statements of its connection do not wait in the
/// same turn of the event loop again: a change may have thousands. Not where the owner chose a busy time.
void stopWaiting(const QSqlQuery &query);

/// Whether a transaction is open. Begins and ends an empty one otherwise.
bool isInTransaction(const QSqlDriver &driver);

/// Remembers of the connection of @p query whether its last COMMIT failed.
void noteCommit(const QSqlQuery &query, bool hasFailed);
/// Runs COMMIT once more where the last one failed and left its transaction open; waits at most a second for
/// the lock of another program.
void commitAgain(const QSqlDatabase &connection);

} // namespace databaseconnection
