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

    /// Binds @p values by position and runs the statement; false when it failed. It is then prepared anew the
    /// next time, because the connection may have been closed and opened again.
    bool run(const QSqlDatabase &database, std::initializer_list<QVariant> values = {});
    /// The query of the last run, of which there was one.
    const QSqlQuery &query() const { return *m_query; }

private:
    const QString m_text;
    std::optional<QSqlQuery> m_query;
    bool m_prepared = false;
};
