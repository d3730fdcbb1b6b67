// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <sqlite3.h>

/// The bookmarks table as SQLite's own library writes and reads it, for what our figures are compared with.
class RawBookmarks {
public:
    explicit RawBookmarks(const QString &path);
    ~RawBookmarks();
    Q_DISABLE_COPY(RawBookmarks)

    void run(const char *statements);
    /// Whether the file is one of bookmarks.
    bool hasTable();
    /// Appends @p count newsgroups to the folder @p parentId in one transaction, or in one each, with as few
    /// statements as there can be.
    void appendAtLeast(qint64 parentId, int count, bool oneTransaction);
    /// The same in one transaction as a store does that knows nothing: each row is inserted without a place,
    /// and then every sibling is given its own.
    void appendLiterally(qint64 parentId, int count);
    /// Reads the rows below @p parentId in their order, with one allocation each; their number.
    int read(qint64 parentId);

private:
    sqlite3_stmt *prepare(const char *statement);
    static void step(sqlite3_stmt *statement);
    qint64 insert(sqlite3_stmt *statement, qint64 parentId, int number, int order);

    sqlite3 *m_handle = nullptr;
};

/// A newsgroup's name of the usual length, another for each number.
QString benchmarkNewsgroup(int number);
