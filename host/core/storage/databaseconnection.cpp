// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "databaseconnection.h"

#include "databaselog.h"
#include "sqlstatement.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QTimer>
#include <QVariant>

#include <chrono>

namespace {

constexpr std::chrono::milliseconds busyTime = std::chrono::seconds(1);
// Properties of the driver, which go with the connection.
constexpr char isLimited[] = "halvora.isBusyTimeLimited";
constexpr char hasCommitFailed[] = "halvora.hasCommitFailed";

QString busyOption()
{
    return QStringLiteral("QSQLITE_BUSY_TIMEOUT=");
}

int codeOf(const QSqlQuery &query)
{
    return query.lastError().nativeErrorCode().toInt() & 0xff; // the rest refines it
}

QString ownOption()
{
    return busyOption() + QString::number(busyTime.count());
}

void setBusyTime(const QSqlDatabase &connection, std::chrono::milliseconds time = busyTime)
{
    if (connection.isOpen())
        QSqlQuery(connection).exec(QStringLiteral("PRAGMA busy_timeout = %1").arg(time.count()));
}

} // namespace

QSqlDatabase databaseconnection::find(const QSqlDriver *driver)
{
    const QStringList names = QSqlDatabase::connectionNames();
    for (const QString &name : names) {
        QSqlDatabase connection = QSqlDatabase::database(name, false);
        if (connection.driver() == driver)
            return connection;
    }
    return {};
}

void databaseconnection::limitBusyTime(const QSqlQuery &query)
{
    if (query.driver()->property(isLimited).toBool())
        return;
    QSqlDatabase connection = find(query.driver());
    if (!connection.isValid())
        return;
    connection.driver()->setProperty(isLimited, true);
    const QString options = connection.connectOptions();
    if (options.contains(busyOption()))
        return;
    connection.setConnectOptions(options.isEmpty() ? ownOption() : options + QLatin1Char(';') + ownOption());
    setBusyTime(connection);
}

void databaseconnection::stopWaiting(const QSqlQuery &query)
{
    constexpr int busy = 5; // SQLITE_BUSY
    if (codeOf(query) != busy)
        return;
    const QSqlDatabase connection = find(query.driver());
    if (!connection.isValid() || !connection.connectOptions().endsWith(ownOption()))
        return;
    setBusyTime(connection, {});
    const QString name = connection.connectionName();
    QTimer::singleShot(0, connection.driver(), [name] { setBusyTime(QSqlDatabase::database(name, false)); });
}

bool databaseconnection::isInTransaction(const QSqlDriver &driver)
{
    if (!driver.isOpen())
        return false;
    QSqlQuery query(driver.createResult());
    if (query.exec(QStringLiteral("BEGIN"))) {
        query.exec(QStringLiteral("COMMIT"));
        return false;
    }
    constexpr int nested = 1; // SQLITE_ERROR; a BEGIN that is refused for another reason has another code
    return codeOf(query) == nested;
}

void databaseconnection::noteCommit(const QSqlQuery &query, bool hasFailed)
{
    if (sqlstatement::kindOf(query.lastQuery()) != SqlStatement::Commit || !(hasFailed || query.isActive()) ||
        query.driver()->property(hasCommitFailed).toBool() == hasFailed)
        return;
    const QSqlDatabase connection = find(query.driver());
    if (connection.isValid())
        connection.driver()->setProperty(hasCommitFailed, hasFailed);
}

void databaseconnection::commitAgain(const QSqlDatabase &connection)
{
    const QSqlDriver *driver = connection.driver();
    if (!driver->property(hasCommitFailed).toBool() || !isInTransaction(*driver))
        return;
    setBusyTime(connection);
    QSqlQuery query(connection);
    if (!query.exec(QStringLiteral("COMMIT")))
        qCWarning(logDatabase).noquote()
            << "The last changes of" << connection.databaseName() << "are lost:" << query.lastError().text();
}
