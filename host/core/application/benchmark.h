// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QElapsedTimer>
#include <QString>
#include <QVector>

/// The stages of one start of the program, for the log and the benchmarks. GUI thread.
class HALVORA_CORE_EXPORT Benchmark {
public:
    struct Stage {
        QString name;
        qint64 nanoseconds; ///< since the stage before it ended
    };

    Benchmark();
    Q_DISABLE_COPY(Benchmark)

    /// Ends the stage that has run since the last call, or since construction.
    void lap(const QString &name);
    const QVector<Stage> &stages() const { return m_stages; }

private:
    QElapsedTimer m_timer;
    QVector<Stage> m_stages;
};
