// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/preparedstatement.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QVariant>

PreparedStatement::PreparedStatement(const QString &text)
    : m_text(text)
{
}

// Closing a connection finalizes its statements; QtSql then fails without a result code of SQLite.
bool PreparedStatement::run(const QSqlDatabase &database, std::initializer_list<QVariant> values)
{
    if (m_prepared) {
        m_prepared = execute(values);
        if (m_prepared || errorCode() != 0)
            return m_prepared;
    }
    m_query.emplace(database);
    m_query->setForwardOnly(true);
    m_prepared = m_query->prepare(m_text) && execute(values);
    return m_prepared;
}

bool PreparedStatement::execute(std::initializer_list<QVariant> values)
{
    int position = 0;
    for (const QVariant &value : values)
        m_query->bindValue(position++, value);
    return m_query->exec();
}

int PreparedStatement::errorCode() const
{
    constexpr int primaryCode = 0xff;
    return m_query->lastError().nativeErrorCode().toInt() & primaryCode;
}
