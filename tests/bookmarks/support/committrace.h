// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "sqlitefile.h"

#include <QByteArrayList>

#include <memory>

/// Notes what the bookmark file holds whenever a connection has run a COMMIT, whether or not it succeeded. It
/// reads over a connection of its own, so it sees what everybody sees.
class CommitTrace {
public:
    /// @p connection, to the file at @p path, outlives the trace.
    CommitTrace(sqlite3 *connection, const QString &path);
    ~CommitTrace();
    Q_DISABLE_COPY(CommitTrace)

    /// What the file held after each COMMIT since the last call: a line for each row, and the ids given out.
    QByteArrayList take();

    /// Keeps others from the file until unlock(): from everything with "EXCLUSIVE", from writing with
    /// "IMMEDIATE", from committing with "DEFERRED". False when somebody else was faster.
    bool lock(const char *kind);
    void unlock();

private:
    static int noteStatement(unsigned event, void *trace, void *statement, void *time);
    QByteArray content();

    sqlite3 *const m_connection;
    SqliteFile m_reader;
    std::unique_ptr<SqlStatement> m_rows;
    QByteArrayList m_contents;
};
