// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QTimer>

/// Beats every five milliseconds on the thread that made it and remembers its longest pause, which is how
/// long a window of that thread would not have answered.
class Heartbeat {
public:
    Heartbeat();
    Q_DISABLE_COPY(Heartbeat)

    int beats() const { return m_beats; }
    /// Milliseconds; the pause that is not over yet counts too.
    double longestGap() const;

private:
    void beat();

    QTimer m_timer;
    QElapsedTimer m_sinceBeat;
    qint64 m_longestGap = 0; ///< nanoseconds
    int m_beats = 0;
};
