// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/preparedstatement.h"

#include <QSqlDatabase>
#include <QVariant>

PreparedStatement::PreparedStatement(const QString &text)
    : m_text(text)
{
}

bool PreparedStatement::run(const QSqlDatabase &database, std::initializer_list<QVariant> values)
{
    if (!m_prepared) {
        m_query.emplace(database);
        m_query->setForwardOnly(true);
        m_prepared = m_query->prepare(m_text);
        if (!m_prepared)
            return false;
    }
    int position = 0;
    for (const QVariant &value : values)
        m_query->bindValue(position++, value);
    m_prepared = m_query->exec();
    return m_prepared;
}
