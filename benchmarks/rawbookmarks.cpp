// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "rawbookmarks.h"

#include <QByteArray>

#include <cstdlib>
#include <vector>

QString benchmarkNewsgroup(int number)
{
    return QStringLiteral("alt.binaries.sounds.lossless.%1").arg(number, 6, 10, QLatin1Char('0'));
}

RawBookmarks::RawBookmarks(const QString &path)
{
    if (sqlite3_open(path.toUtf8().constData(), &m_handle) != SQLITE_OK)
        qFatal("%s", sqlite3_errmsg(m_handle));
    run("PRAGMA synchronous = OFF");
}

RawBookmarks::~RawBookmarks()
{
    sqlite3_close(m_handle);
}

void RawBookmarks::run(const char *statements)
{
    if (sqlite3_exec(m_handle, statements, nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("%s: %s", statements, sqlite3_errmsg(m_handle));
}

bool RawBookmarks::hasTable()
{
    return sqlite3_table_column_metadata(m_handle, nullptr, "bookmarks", nullptr, nullptr, nullptr, nullptr,
                                         nullptr, nullptr) == SQLITE_OK;
}

sqlite3_stmt *RawBookmarks::prepare(const char *statement)
{
    sqlite3_stmt *prepared = nullptr;
    if (sqlite3_prepare_v2(m_handle, statement, -1, &prepared, nullptr) != SQLITE_OK)
        qFatal("%s: %s", statement, sqlite3_errmsg(m_handle));
    return prepared;
}

void RawBookmarks::step(sqlite3_stmt *statement)
{
    if (sqlite3_step(statement) != SQLITE_DONE)
        qFatal("%s", sqlite3_errmsg(sqlite3_db_handle(statement)));
    sqlite3_reset(statement);
}

qint64 RawBookmarks::insert(sqlite3_stmt *statement, qint64 parentId, int number, int order)
{
    const QString name = benchmarkNewsgroup(number);
    sqlite3_bind_int64(statement, 1, parentId);
    sqlite3_bind_text16(statement, 2, name.utf16(), int(name.size() * sizeof(QChar)), SQLITE_TRANSIENT);
    sqlite3_bind_int(statement, 3, order);
    step(statement);
    return sqlite3_last_insert_rowid(m_handle);
}

void RawBookmarks::appendAtLeast(qint64 parentId, int count, bool oneTransaction)
{
    sqlite3_stmt *begin = prepare("BEGIN TRANSACTION");
    sqlite3_stmt *commit = prepare("COMMIT TRANSACTION");
    sqlite3_stmt *add = prepare("INSERT INTO bookmarks (parent_id, bookmark_name, bookmark_newsgroup, "
                                "bookmark_color, bookmark_expanded, bookmark_order) "
                                "VALUES (?, NULL, ?, NULL, 0, ?)");
    for (int number = 0; number < count; ++number) {
        if (number == 0 || !oneTransaction)
            step(begin);
        insert(add, parentId, number, number);
        if (number == count - 1 || !oneTransaction)
            step(commit);
    }
    for (sqlite3_stmt *statement : {begin, commit, add})
        sqlite3_finalize(statement);
}

void RawBookmarks::appendLiterally(qint64 parentId, int count)
{
    sqlite3_stmt *add = prepare("INSERT INTO bookmarks (parent_id, bookmark_name, bookmark_newsgroup, "
                                "bookmark_color, bookmark_expanded, bookmark_order) "
                                "VALUES (?, NULL, ?, NULL, 0, ?)");
    sqlite3_stmt *place = prepare("UPDATE bookmarks SET bookmark_order=? WHERE bookmark_id=?");
    std::vector<qint64> ids;
    run("BEGIN TRANSACTION");
    for (int number = 0; number < count; ++number) {
        ids.push_back(insert(add, parentId, number, -1));
        for (int i = 0; i <= number; ++i) {
            sqlite3_bind_int(place, 1, i);
            sqlite3_bind_int64(place, 2, ids[std::size_t(i)]);
            step(place);
        }
    }
    run("COMMIT TRANSACTION");
    sqlite3_finalize(add);
    sqlite3_finalize(place);
}

int RawBookmarks::read(qint64 parentId)
{
    constexpr int columns = 7;
    sqlite3_stmt *select = prepare("SELECT bookmark_id, parent_id, bookmark_name, bookmark_newsgroup, "
                                   "bookmark_color, bookmark_expanded, bookmark_order FROM bookmarks "
                                   "WHERE parent_id=? ORDER BY bookmark_order ASC");
    sqlite3_bind_int64(select, 1, parentId);
    std::vector<void *> kept;
    while (sqlite3_step(select) == SQLITE_ROW) {
        int bytes = 0;
        for (int column = 0; column < columns; ++column) {
            if (sqlite3_column_type(select, column) == SQLITE_TEXT) {
                sqlite3_column_text16(select, column);
                bytes += sqlite3_column_bytes16(select, column);
            } else {
                bytes += int(sqlite3_column_int64(select, column) & 7);
            }
        }
        kept.push_back(std::malloc(std::size_t(bytes) + columns * sizeof(void *)));
    }
    sqlite3_finalize(select);
    for (void *memory : kept)
        std::free(memory);
    return int(kept.size());
}
