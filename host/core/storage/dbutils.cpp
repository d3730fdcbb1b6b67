// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/dbutils.h>

#include "databaselog.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

namespace {

std::function<void(const QString &)> &failureHandler()
{
    static std::function<void(const QString &)> handler;
    return handler;
}

} // namespace

void DBUtils::checkForErrors(const QSqlQuery &query)
{
    const QSqlError error = query.lastError();
    if (!error.isValid())
        return;
    qCWarning(logDatabase).noquote() << query.lastQuery() << "failed:" << error.text();
    if (failureHandler())
        failureHandler()(error.databaseText().isEmpty() ? error.text() : error.databaseText());
}

void DBUtils::setFailureHandler(std::function<void(const QString &)> handler)
{
    failureHandler() = std::move(handler);
}

void DBUtils::closeAll()
{
    const QStringList names = QSqlDatabase::connectionNames();
    for (const QString &name : names)
        QSqlDatabase::database(name, false).close();
}
