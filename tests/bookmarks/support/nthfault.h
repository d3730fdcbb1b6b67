// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

struct sqlite3;

/// Makes one statement on a connection fail, the n-th from now on.
class NthFault {
public:
    enum Kind {
        Interrupted, ///< while the n-th statement runs
        Denied,      ///< while a statement is prepared, at the n-th thing that it asks permission for
        Refused,     ///< when the n-th change is committed, and taken back instead
    };
    /// @p number counts from 1. @p connection outlives this object.
    NthFault(sqlite3 *connection, Kind kind, int number);
    ~NthFault();
    Q_DISABLE_COPY(NthFault)

    /// Whether there were that many.
    bool wasReached() const { return m_count >= m_number; }

private:
    static int countStatement(unsigned event, void *fault, void *statement, void *text);
    static int interrupt(void *fault);
    static int commit(void *fault);
    static int authorize(void *fault, int action, const char *first, const char *second, const char *database,
                         const char *trigger);

    sqlite3 *const m_connection;
    const int m_number;
    int m_count = 0;
};
