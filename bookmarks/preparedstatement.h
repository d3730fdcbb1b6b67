// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlQuery>
#include <QString>

#include <initializer_list>
#include <optional>

class QSqlDatabase;

/// A statement that is prepared when it is first run and kept, because preparing costs several times what
/// running it does. It has to go before its connection is removed. GUI thread.
class PreparedStatement {
public:
    explicit PreparedStatement(const QString &text);
    Q_DISABLE_COPY(PreparedStatement)

    /// Binds @p values by position and runs the statement; false when it failed. A statement that is no
    /// longer there, because the connection was closed and opened again, is prepared anew and run once more.
    bool run(const QSqlDatabase &database, std::initializer_list<QVariant> values = {});
    /// The query of the last run, of which there was one.
    const QSqlQuery &query() const { return *m_query; }
    /// SQLite's primary result code for the last run that failed; 0 where SQLite was not asked.
    int errorCode() const;

private:
    bool execute(std::initializer_list<QVariant> values);

    const QString m_text;
    std::optional<QSqlQuery> m_query;
    bool m_prepared = false;
};
