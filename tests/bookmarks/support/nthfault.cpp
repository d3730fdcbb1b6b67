// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nthfault.h"

#include <sqlite3.h>

NthFault::NthFault(sqlite3 *connection, Kind kind, int number)
    : m_connection(connection)
    , m_number(number)
{
    if (kind == Denied) {
        sqlite3_set_authorizer(connection, authorize, this);
        return;
    }
    if (kind == Refused) {
        sqlite3_commit_hook(connection, commit, this);
        return;
    }
    sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, countStatement, this);
    sqlite3_progress_handler(connection, 1, interrupt, this);
}

NthFault::~NthFault()
{
    sqlite3_set_authorizer(m_connection, nullptr, nullptr);
    sqlite3_commit_hook(m_connection, nullptr, nullptr);
    sqlite3_trace_v2(m_connection, 0, nullptr, nullptr);
    sqlite3_progress_handler(m_connection, 0, nullptr, nullptr);
}

int NthFault::countStatement(unsigned event, void *fault, void *statement, void *text)
{
    Q_UNUSED(event)
    Q_UNUSED(statement)
    Q_UNUSED(text)
    ++static_cast<NthFault *>(fault)->m_count;
    return 0;
}

int NthFault::interrupt(void *fault)
{
    const auto *self = static_cast<NthFault *>(fault);
    return int(self->m_count == self->m_number);
}

int NthFault::commit(void *fault)
{
    auto *self = static_cast<NthFault *>(fault);
    return int(++self->m_count == self->m_number);
}

int NthFault::authorize(void *fault, int action, const char *first, const char *second, const char *database,
                        const char *trigger)
{
    Q_UNUSED(action)
    Q_UNUSED(first)
    Q_UNUSED(second)
    Q_UNUSED(database)
    Q_UNUSED(trigger)
    auto *self = static_cast<NthFault *>(fault);
    return ++self->m_count == self->m_number ? SQLITE_DENY : SQLITE_OK;
}
