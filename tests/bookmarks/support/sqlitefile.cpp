// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "sqlitefile.h"

#include <sqlite3.h>

namespace {

void bind(sqlite3_stmt *statement, int position, const SqlValue &value)
{
    const auto *number = std::get_if<qint64>(&value);
    const auto *text = std::get_if<QString>(&value);
    if (number)
        sqlite3_bind_int64(statement, position, *number);
    else if (text && !text->isNull())
        sqlite3_bind_text16(statement, position, text->utf16(), text->size() * int(sizeof(QChar)),
                            SQLITE_TRANSIENT);
    else
        sqlite3_bind_null(statement, position);
}

} // namespace

SqlStatement::SqlStatement(sqlite3 *connection, const char *text)
{
    sqlite3_prepare_v2(connection, text, -1, &m_statement, nullptr);
}

SqlStatement::~SqlStatement()
{
    sqlite3_finalize(m_statement);
}

bool SqlStatement::run(std::initializer_list<SqlValue> values,
                       const std::function<void(sqlite3_stmt *)> &eachRow)
{
    if (!m_statement)
        return false;
    int position = 0;
    for (const SqlValue &value : values)
        bind(m_statement, ++position, value);
    int result = sqlite3_step(m_statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(m_statement)) {
        if (eachRow)
            eachRow(m_statement);
    }
    sqlite3_reset(m_statement);
    return result == SQLITE_DONE;
}

QString SqlStatement::text(sqlite3_stmt *row, int column)
{
    if (isNull(row, column))
        return {};
    const void *text = sqlite3_column_text16(row, column);
    return QString(static_cast<const QChar *>(text),
                   sqlite3_column_bytes16(row, column) / int(sizeof(QChar)));
}

bool SqlStatement::isNull(sqlite3_stmt *row, int column)
{
    return sqlite3_column_type(row, column) == SQLITE_NULL;
}

qint64 SqlStatement::number(sqlite3_stmt *row, int column)
{
    return sqlite3_column_int64(row, column);
}

SqliteFile::SqliteFile(const QString &path)
{
    if (sqlite3_open(path.toUtf8().constData(), &m_handle) != SQLITE_OK)
        qFatal("%s", sqlite3_errmsg(m_handle));
    run("PRAGMA synchronous = OFF");
}

SqliteFile::~SqliteFile()
{
    sqlite3_close(m_handle);
}

bool SqliteFile::run(const char *text, std::initializer_list<SqlValue> values,
                     const std::function<void(sqlite3_stmt *)> &eachRow)
{
    return SqlStatement(m_handle, text).run(values, eachRow);
}
