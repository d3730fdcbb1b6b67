// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkfile.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

BookmarkFile::BookmarkFile(const QString &path)
    : m_name(QStringLiteral("test.%1").arg(quintptr(this)))
    , m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name))
{
    m_database.setDatabaseName(path);
    m_database.open();
    run(QStringLiteral("PRAGMA synchronous = OFF"));
    run(QStringLiteral("CREATE TABLE IF NOT EXISTS bookmarks (title TEXT, note TEXT)"));
    run(QStringLiteral("CREATE INDEX IF NOT EXISTS titles ON bookmarks (title)"));
}

BookmarkFile::~BookmarkFile()
{
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

bool BookmarkFile::run(const QString &statement)
{
    return QSqlQuery(m_database).exec(statement);
}

bool BookmarkFile::add(const QString &title)
{
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("INSERT INTO bookmarks (title) VALUES (?)"));
    query.addBindValue(title);
    return query.exec();
}

bool BookmarkFile::fill(int pages)
{
    m_database.transaction();
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("INSERT INTO bookmarks (title, note) VALUES (?, ?)"));
    bool ok = true;
    for (int i = 0; i < pages; ++i) {
        query.bindValue(0, QString::number(i));
        query.bindValue(1, QString(3500, QLatin1Char('n')));
        ok = query.exec() && ok;
    }
    return m_database.commit() && ok;
}

QStringList BookmarkFile::titles()
{
    QSqlQuery query(m_database);
    query.exec(QStringLiteral("SELECT title FROM bookmarks WHERE note IS NULL ORDER BY rowid"));
    QStringList titles;
    while (query.next())
        titles.append(query.value(0).toString());
    return query.lastError().isValid() ? QStringList(query.lastError().text()) : titles;
}

void BookmarkFile::add(const QString &path, const QString &title)
{
    BookmarkFile(path).add(title);
}

QStringList BookmarkFile::titlesOf(const QString &path)
{
    return BookmarkFile(path).titles();
}

QByteArray BookmarkFile::bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void BookmarkFile::setBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s can not be written", qPrintable(path));
}
