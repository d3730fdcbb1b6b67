// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "heartbeat.h"

Heartbeat::Heartbeat()
{
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
    m_sinceBeat.start();
    m_timer.start(5);
}

double Heartbeat::longestGap() const
{
    return double(qMax(m_longestGap, m_sinceBeat.nsecsElapsed())) / 1e6;
}

void Heartbeat::beat()
{
    m_longestGap = qMax(m_longestGap, m_sinceBeat.nsecsElapsed());
    m_sinceBeat.start();
    ++m_beats;
}
