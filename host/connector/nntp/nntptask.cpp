// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nntptask.h>

#include <QCoreApplication>
#include <QEvent>

NntpTask::NntpTask() = default;

NntpTask::~NntpTask() = default;

bool NntpTask::isSuccessful() const
{
    return m_finished && m_failure == NntpFailure::None;
}

// A worker that tells of every line must not fill the GUI thread's event queue.
void NntpTask::tellProgress()
{
    if (!m_hasToldProgress.exchange(true, std::memory_order_acq_rel))
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void NntpTask::customEvent(QEvent *event)
{
    Q_UNUSED(event)
    m_hasToldProgress.store(false, std::memory_order_release);
    if (!m_finished && !isCancelled())
        Q_EMIT progressed();
}
