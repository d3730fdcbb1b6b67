// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <initializer_list>
#include <variant>

struct sqlite3;
struct sqlite3_stmt;

/// What is bound to a statement; a null string is bound as NULL, as nothing is.
using SqlValue = std::variant<std::monostate, qint64, QString>;

/// A statement of SQLite's own library, prepared once.
class SqlStatement {
public:
    SqlStatement(sqlite3 *connection, const char *text);
    ~SqlStatement();
    Q_DISABLE_COPY(SqlStatement)

    /// Binds by position and runs to the end, with @p eachRow for each row on the way. False when it failed,
    /// or could not be prepared.
    bool run(std::initializer_list<SqlValue> values = {},
             const std::function<void(sqlite3_stmt *)> &eachRow = {});

    /// A column of the current row: text, and whether it is NULL.
    static QString text(sqlite3_stmt *row, int column);
    static bool isNull(sqlite3_stmt *row, int column);
    static qint64 number(sqlite3_stmt *row, int column);

private:
    sqlite3_stmt *m_statement = nullptr;
};

/// A connection through SQLite's own library that never waits for a lock.
class SqliteFile {
public:
    explicit SqliteFile(const QString &path);
    ~SqliteFile();
    Q_DISABLE_COPY(SqliteFile)

    sqlite3 *handle() const { return m_handle; }
    bool run(const char *text, std::initializer_list<SqlValue> values = {},
             const std::function<void(sqlite3_stmt *)> &eachRow = {});

private:
    sqlite3 *m_handle = nullptr;
};
