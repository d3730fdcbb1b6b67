// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "statementlog.h"

#include "bookmarkstore.h"

#include <sqlite3.h>

#include <utility>

StatementLog::StatementLog()
{
    sqlite3_trace_v2(BookmarkStore::handle(), SQLITE_TRACE_STMT, add, &m_statements);
}

StatementLog::~StatementLog()
{
    sqlite3_trace_v2(BookmarkStore::handle(), 0, nullptr, nullptr);
}

QStringList StatementLog::take()
{
    return std::exchange(m_statements, {});
}

int StatementLog::add(unsigned, void *list, void *statement, void *)
{
    char *text = sqlite3_expanded_sql(static_cast<sqlite3_stmt *>(statement));
    static_cast<QStringList *>(list)->append(QString::fromUtf8(text));
    sqlite3_free(text);
    return 0;
}
