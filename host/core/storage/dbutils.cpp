// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/dbutils.h>

#include "databaseconnection.h"
#include "databaselog.h"
#include "sqlstatement.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>

#include <optional>

namespace {

std::function<void(const QString &)> &failureHandler()
{
    static std::function<void(const QString &)> handler;
    return handler;
}

std::function<void(const QSqlQuery &, bool)> &statementHandler()
{
    static std::function<void(const QSqlQuery &, bool)> handler;
    return handler;
}

QString wordsOf(const QSqlError &error)
{
    return error.databaseText().isEmpty() ? error.text() : error.databaseText();
}

void follow(const QSqlQuery &query, bool hasFailed)
{
    databaseconnection::limitBusyTime(query);
    databaseconnection::stopWaiting(query);
    databaseconnection::noteCommit(query, hasFailed);
    // A query that was prepared and not run yet is not active.
    if (statementHandler() && (hasFailed || query.isActive()))
        statementHandler()(query, hasFailed);
}

} // namespace

std::optional<QString> DBUtils::failureOf(const QSqlQuery &query)
{
    if (query.lastError().isValid())
        return wordsOf(query.lastError());
    // QSqlQuery leaves its error empty when the connection is closed.
    if (!query.driver() || !query.driver()->isOpen()) {
        const QSqlError error = query.driver() ? query.driver()->lastError() : QSqlError();
        return error.isValid() ? wordsOf(error) : tr("the database is not open");
    }
    if (query.isActive() && query.numRowsAffected() == 0 &&
        sqlstatement::kindOf(query.lastQuery()) == SqlStatement::Update)
        return tr("the row to be changed is missing");
    return std::nullopt;
}

void DBUtils::checkForErrors(const QSqlQuery &query)
{
    const std::optional<QString> failure = failureOf(query);
    if (query.driver()) // it goes when the connection is removed
        follow(query, failure.has_value());
    if (!failure)
        return;
    qCWarning(logDatabase).noquote() << query.lastQuery() << "failed:" << *failure;
    if (failureHandler())
        failureHandler()(*failure);
}

void DBUtils::setFailureHandler(std::function<void(const QString &)> handler)
{
    failureHandler() = std::move(handler);
}

void DBUtils::setStatementHandler(std::function<void(const QSqlQuery &, bool)> handler)
{
    statementHandler() = std::move(handler);
}

void DBUtils::closeAll()
{
    const QStringList names = QSqlDatabase::connectionNames();
    for (const QString &name : names) {
        QSqlDatabase connection = QSqlDatabase::database(name, false);
        databaseconnection::commitAgain(connection);
        connection.close();
    }
}
