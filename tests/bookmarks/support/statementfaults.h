// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

struct sqlite3;
struct sqlite3_context;
struct sqlite3_value;

/// Which statements on a connection fail, and how. A statement that changes nothing never fails by a change,
/// so whoever leaves such statements out sees the same failures as somebody who runs them.
struct StatementFault {
    enum Change { NoChange, Insert, Row, Order, Delete };
    enum Effect { None, Abort, Fail, Rollback };

    Change change = NoChange; ///< fails for rows whose id has this remainder
    Effect effect = None;
    qint64 divisor = 1;
    qint64 remainder = 0;
    bool isCommitRefused = false;          ///< every commit of a change is taken back instead
    int deniedAction = 0;                  ///< of SQLite's authorizer, 0 for none
    const char *deniedOperation = nullptr; ///< null for every one of deniedAction
};

/// Makes statements on a connection fail through SQLite's own triggers, commit hook and authorizer.
class StatementFaults {
public:
    /// @p connection outlives this object and has no transaction open.
    explicit StatementFaults(sqlite3 *connection);
    ~StatementFaults();
    Q_DISABLE_COPY(StatementFaults)

    void set(const StatementFault &fault);

private:
    static void effectFor(sqlite3_context *context, int count, sqlite3_value **arguments);
    static int refuseCommit(void *faults);
    static int authorize(void *faults, int action, const char *first, const char *second,
                         const char *database, const char *trigger);

    sqlite3 *const m_connection;
    StatementFault m_fault;
};
