// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "databaseprobe.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <QVariant>

namespace {

// A plain name would make the file when it vanishes between a look for it and the opening.
QString existingFile(const QString &file)
{
    return QStringLiteral("file:%1?mode=rw").arg(QString::fromLatin1(QUrl::toPercentEncoding(file, "/")));
}

int codeOf(const QSqlError &error)
{
    return error.nativeErrorCode().toInt() & 0xff; // the rest refines it
}

// Only what SQLite says of the contents counts. A lock, a missing right or a bad cable is no reason to take
// the user's file away.
bool saysDamaged(const QSqlError &error)
{
    constexpr int malformed = 11;
    constexpr int noDatabase = 26;
    return codeOf(error) == malformed || codeOf(error) == noDatabase;
}

bool saysBusy(const QSqlError &error)
{
    constexpr int busy = 5;
    return codeOf(error) == busy;
}

} // namespace

DatabaseProbe::DatabaseProbe(const QString &file, std::chrono::milliseconds busyTime)
    : m_connection(QStringLiteral("halvora.probe.%1").arg(quintptr(this)))
    , m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection))
{
    m_database.setDatabaseName(existingFile(file));
    // Not read-only: a reader who may not write cannot play back a journal.
    m_database.setConnectOptions(
        QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(busyTime.count()));
    m_database.open();
}

DatabaseProbe::~DatabaseProbe()
{
    m_database.close();
    m_database = QSqlDatabase(); // a connection that is still held is not removed
    QSqlDatabase::removeDatabase(m_connection);
}

DatabaseProbe::State DatabaseProbe::check()
{
    if (!m_database.isOpen())
        return State::Unknown;
    QSqlQuery query(m_database);
    if (query.exec(QStringLiteral("PRAGMA quick_check(1)")) && query.next())
        return query.value(0).toString() == QLatin1String("ok") ? State::Good : State::Damaged;
    return saysDamaged(query.lastError()) ? State::Damaged : State::Unknown;
}

bool DatabaseProbe::isLocked()
{
    if (!m_database.isOpen())
        return false;
    QSqlQuery query(m_database);
    if (!query.exec(QStringLiteral("SELECT count(*) FROM sqlite_master")))
        return saysBusy(query.lastError());
    query.finish();
    if (!query.exec(QStringLiteral("BEGIN IMMEDIATE")))
        return saysBusy(query.lastError());
    query.exec(QStringLiteral("ROLLBACK"));
    return false;
}

bool DatabaseProbe::copyInto(const QString &target, QString *why)
{
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("VACUUM INTO ?"));
    query.addBindValue(target);
    if (query.exec())
        return true;
    *why = query.lastError().text();
    return false;
}
