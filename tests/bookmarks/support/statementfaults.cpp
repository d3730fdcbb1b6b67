// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "statementfaults.h"

#include <QByteArray>

#include <sqlite3.h>

namespace {

// The triggers stay while the connection does: to make and drop them inside an open transaction would be
// undone with it.
void addTrigger(sqlite3 *connection, StatementFault::Change change, const char *when)
{
    const QByteArray number = QByteArray::number(change);
    const QByteArray statement =
        "CREATE TEMP TRIGGER fault" + number + ' ' + when + " BEGIN SELECT CASE effectfor(" + number +
        (change == StatementFault::Delete ? ", old" : ", new") +
        ".bookmark_id) WHEN 1 THEN RAISE(ABORT, 'fault') "
        "WHEN 2 THEN RAISE(FAIL, 'fault') WHEN 3 THEN RAISE(ROLLBACK, 'fault') END; END";
    if (sqlite3_exec(connection, statement.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("%s: %s", statement.constData(), sqlite3_errmsg(connection));
}

} // namespace

StatementFaults::StatementFaults(sqlite3 *connection)
    : m_connection(connection)
{
    sqlite3_create_function(connection, "effectfor", 2, SQLITE_UTF8, this, effectFor, nullptr, nullptr);
    addTrigger(connection, StatementFault::Insert, "AFTER INSERT ON main.bookmarks");
    addTrigger(connection, StatementFault::Row, "BEFORE UPDATE OF bookmark_name ON main.bookmarks");
    addTrigger(connection, StatementFault::Order,
               "BEFORE UPDATE OF bookmark_order ON main.bookmarks "
               "WHEN new.bookmark_order IS NOT old.bookmark_order");
    addTrigger(connection, StatementFault::Delete, "BEFORE DELETE ON main.bookmarks");
}

StatementFaults::~StatementFaults()
{
    set({});
}

void StatementFaults::set(const StatementFault &fault)
{
    m_fault = fault;
    sqlite3_commit_hook(m_connection, fault.isCommitRefused ? refuseCommit : nullptr, this);
    sqlite3_set_authorizer(m_connection, fault.deniedAction ? authorize : nullptr, this);
}

void StatementFaults::effectFor(sqlite3_context *context, int count, sqlite3_value **arguments)
{
    Q_UNUSED(count)
    const StatementFault &fault = static_cast<StatementFaults *>(sqlite3_user_data(context))->m_fault;
    const bool fails = sqlite3_value_int(arguments[0]) == fault.change &&
                       sqlite3_value_int64(arguments[1]) % fault.divisor == fault.remainder;
    sqlite3_result_int(context, fails ? fault.effect : StatementFault::None);
}

int StatementFaults::refuseCommit(void *faults)
{
    Q_UNUSED(faults)
    return 1;
}

int StatementFaults::authorize(void *faults, int action, const char *first, const char *second,
                               const char *database, const char *trigger)
{
    Q_UNUSED(database)
    const StatementFault &fault = static_cast<StatementFaults *>(faults)->m_fault;
    if (action != fault.deniedAction || trigger)
        return SQLITE_OK;
    // What an update changes is the second word, what a transaction does is the first.
    const char *operation = action == SQLITE_UPDATE ? second : first;
    return fault.deniedOperation && qstrcmp(operation, fault.deniedOperation) != 0 ? SQLITE_OK : SQLITE_DENY;
}
