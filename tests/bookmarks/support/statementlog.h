// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// Every statement that runs on the model's connection while this lives, with the values that are bound. The
/// model outlives it.
class StatementLog {
public:
    StatementLog();
    ~StatementLog();
    Q_DISABLE_COPY(StatementLog)

    QStringList statements() const { return m_statements; }
    /// Those since the last call.
    QStringList take();

private:
    static int add(unsigned kind, void *list, void *statement, void *text);

    QStringList m_statements;
};
