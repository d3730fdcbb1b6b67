// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QHash>
#include <QObject>

class QSqlDriver;
class QSqlQuery;

/// Which changes a store has in memory but not in its file, from the statements that DBUtils sees of each
/// connection. A change is lost when its statement failed. It waits when its COMMIT failed: SQLite either
/// left the transaction open, for the next COMMIT to save, or rolled it back, and then the next BEGIN
/// succeeds and the change is lost, too. Memory and file agree again, and nothing is lost any more, after a
/// transaction that only read and after one that emptied the table. GUI thread.
class UnsavedChanges final : public QObject {
    Q_OBJECT
public:
    /// Takes in @p query, which was run at @p now or could not be; @p hasFailed as DBUtils says.
    void note(const QSqlQuery &query, bool hasFailed, const QDateTime &now);
    /// When the first unsaved change was made; not valid when there is none.
    QDateTime since() const;

private:
    struct Connection {
        QDateTime lost;              ///< the first change that no COMMIT will save
        QDateTime waiting;           ///< the first change of a COMMIT that failed
        QDateTime begun;             ///< when BEGIN was run last
        bool isInside = false;       ///< from a BEGIN, whatever became of it, to its COMMIT
        bool isOpen = false;         ///< BEGIN succeeded
        bool hasRead = false;        ///< since the last BEGIN
        bool hasChanged = false;     ///< as far as DBUtils saw, since the last BEGIN
        bool hasFailed = false;      ///< anything but BEGIN, since the last one
        bool agreesAtCommit = false; ///< memory and file, if nothing fails up to the COMMIT
    };

    Connection &connectionOf(const QSqlDriver *driver);
    static void begin(Connection &connection, bool hasFailed, const QDateTime &now);
    static void commit(Connection &connection, bool hasFailed);
    static void read(Connection &connection, bool hasFailed);
    static void change(Connection &connection);
    static void clear(Connection &connection);
    static void lose(Connection &connection, const QDateTime &now);

    QHash<const QObject *, Connection> m_connections; ///< by driver
    QDateTime m_gone; ///< the first unsaved change of connections that were removed
};
