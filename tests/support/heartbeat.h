// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

/// Beats every five milliseconds on the thread that made it and remembers its longest pause, which is how
/// long a window of that thread would not have answered.
class Heartbeat {
public:
    Heartbeat()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
        m_clock.start();
        m_timer.start(5);
    }
    Q_DISABLE_COPY(Heartbeat)

    int beats() const { return m_beats; }
    /// Milliseconds.
    qint64 longestGap() const { return std::max(m_longest, m_clock.elapsed()); }

private:
    void beat()
    {
        ++m_beats;
        m_longest = std::max(m_longest, m_clock.restart());
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_longest = 0;
    int m_beats = 0;
};
