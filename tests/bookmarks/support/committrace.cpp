// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "committrace.h"

#include <sqlite3.h>

#include <cstring>

CommitTrace::CommitTrace(sqlite3 *connection, const QString &path)
    : m_connection(connection)
    , m_reader(path)
    , m_rows(std::make_unique<SqlStatement>(
          m_reader.handle(),
          "SELECT bookmark_id, parent_id, bookmark_name, bookmark_newsgroup, bookmark_color, "
          "bookmark_expanded, bookmark_order FROM bookmarks UNION ALL "
          "SELECT name, seq, NULL, NULL, NULL, NULL, NULL FROM sqlite_sequence"))
{
    sqlite3_trace_v2(connection, SQLITE_TRACE_PROFILE, noteStatement, this);
}

CommitTrace::~CommitTrace()
{
    sqlite3_trace_v2(m_connection, 0, nullptr, nullptr);
    m_rows.reset();
}

QByteArrayList CommitTrace::take()
{
    QByteArrayList contents;
    contents.swap(m_contents);
    return contents;
}

bool CommitTrace::lock(const char *kind)
{
    const QByteArray begin = QByteArray("BEGIN ") + kind;
    if (m_reader.run(begin.constData()) && m_reader.run("SELECT * FROM bookmarks"))
        return true;
    unlock();
    return false;
}

void CommitTrace::unlock()
{
    m_reader.run("ROLLBACK");
}

// Told when a statement has ended, at which moment a COMMIT has let go of the file.
int CommitTrace::noteStatement(unsigned event, void *trace, void *statement, void *time)
{
    Q_UNUSED(event)
    Q_UNUSED(time)
    const char *text = sqlite3_sql(static_cast<sqlite3_stmt *>(statement));
    auto *self = static_cast<CommitTrace *>(trace);
    if (text && std::strncmp(text, "COMMIT", std::strlen("COMMIT")) == 0)
        self->m_contents.append(self->content());
    return 0;
}

QByteArray CommitTrace::content()
{
    QByteArray content;
    const bool isRead = m_rows->run({}, [&content](sqlite3_stmt *row) {
        for (int column = 0; column < sqlite3_column_count(row); ++column) {
            const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(row, column));
            content += text ? text : "NULL";
            content += '|';
        }
        content += '\n';
    });
    return isRead ? content : QByteArray("unreadable");
}
