// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QCoreApplication>

#include <functional>
#include <optional>

class QSqlQuery;

/// What everybody who uses a database needs. GUI thread.
class HALVORA_CORE_EXPORT DBUtils {
    Q_DECLARE_TR_FUNCTIONS(DBUtils)
public:
    /// Logs why the last statement of @p query failed and notifies the failure handler; only the statement
    /// handler learns of one that did not fail. A query of a connection that is not open has failed, and so
    /// has an UPDATE that changed no row. The first query of a connection limits for how long that waits for
    /// the lock of another program: a second, once in a turn of the event loop.
    static void checkForErrors(const QSqlQuery &query);

    /// Receives each statement that was run, or could not be, and whether it failed; before the failure
    /// handler does.
    static void setStatementHandler(std::function<void(const QSqlQuery &query, bool hasFailed)> handler);
    /// Told of each failure with the database's own words; an empty function for nobody.
    static void setFailureHandler(std::function<void(const QString &reason)> handler);

    /// Closes every database connection of the process, for an end at which nothing is destroyed any more.
    /// Where the last COMMIT failed and left the transaction open, it is run once more before.
    static void closeAll();

private:
    static std::optional<QString> failureOf(const QSqlQuery &query);
};
