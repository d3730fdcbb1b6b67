// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "databaseconnection.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QVariant>

#include <chrono>

namespace {

constexpr std::chrono::milliseconds busyTime = std::chrono::seconds(1);
// A property of the driver, which goes with the connection.
constexpr char isLimited[] = "halvora.isBusyTimeLimited";

QString busyOption()
{
    return QStringLiteral("QSQLITE_BUSY_TIMEOUT=");
}

void setBusyTime(const QSqlDatabase &connection)
{
    QSqlQuery(connection).exec(QStringLiteral("PRAGMA busy_timeout = %1").arg(busyTime.count()));
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
    const QString option = busyOption() + QString::number(busyTime.count());
    connection.setConnectOptions(options.isEmpty() ? option : options + QLatin1Char(';') + option);
    if (connection.isOpen())
        setBusyTime(connection);
}
