// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/benchmark.h>

Benchmark::Benchmark()
{
    m_timer.start();
}

void Benchmark::lap(const QString &name)
{
    m_stages.append({name, m_timer.nsecsElapsed()});
    m_timer.restart();
}
