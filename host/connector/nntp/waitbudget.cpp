// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "waitbudget.h"

#include <halvora/core.h>

#include <QThread>

#include <algorithm>

namespace {

// Half of the 100 ms within which a stop has to be seen, so that a busy machine has the other half.
constexpr std::chrono::milliseconds LongestSlice(50);

std::chrono::milliseconds remaining(const QDeadlineTimer &deadline)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(deadline.remainingTimeAsDuration());
}

} // namespace

WaitBudget::WaitBudget(const Core &core, std::chrono::milliseconds time)
    : m_core(&core)
    , m_deadline(time)
{
}

bool WaitBudget::isOver() const
{
    return m_deadline.hasExpired() || isStopped();
}

bool WaitBudget::isStopped() const
{
    return !m_core->isRunning() || QThread::currentThread()->isInterruptionRequested();
}

std::chrono::milliseconds WaitBudget::slice() const
{
    // The last fraction of a millisecond must not become a wait of none: that would spin.
    return std::clamp(remaining(m_deadline), std::chrono::milliseconds(1), LongestSlice);
}

WaitBudget WaitBudget::share(int parts) const
{
    return {*m_core, remaining(m_deadline) / std::max(parts, 1)};
}
