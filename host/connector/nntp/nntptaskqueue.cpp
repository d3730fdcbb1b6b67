// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nntptaskqueue.h"

#include "nntpworker.h"

#include <halvora/nntptask.h>

#include <algorithm>
#include <utility>

void NntpTaskQueue::open()
{
    const std::lock_guard lock(m_mutex);
    m_isOpen = true;
}

void NntpTaskQueue::withdrawAll()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = false;
        withdrawLocked(NntpFailure::Cancelled);
    }
    m_changed.notify_all();
}

void NntpTaskQueue::close()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isClosed = true;
        withdrawLocked(NntpFailure::ShuttingDown);
    }
    m_changed.notify_all();
}

void NntpTaskQueue::withdrawLocked(NntpFailure why)
{
    m_finished.splice(m_finished.end(), m_waiting);
    for (NntpJob &job : m_finished) {
        job.failure = why;
        job.task->m_cancelled.store(true, std::memory_order_release);
    }
    for (Lane &lane : m_lanes) {
        lane.isLeaving = true;
        interruptLocked(lane, why);
    }
    // Another account has other connections.
    m_granted = -1;
    m_isHeld = false;
    m_nextWait = m_firstWait;
    m_waitToTell = Milliseconds(0);
    ++m_refusals;
}

void NntpTaskQueue::interruptLocked(Lane &lane, NntpFailure why)
{
    if (!lane.task)
        return;
    lane.interruption = why;
    lane.task->m_cancelled.store(true, std::memory_order_release);
    lane.worker->requestInterruption();
}

void NntpTaskQueue::setAccount(const NntpAccount &account)
{
    const std::lock_guard lock(m_mutex);
    m_account = account;
}

void NntpTaskQueue::setLimits(const NntpLimits &limits)
{
    const std::lock_guard lock(m_mutex);
    m_limits = limits;
}

void NntpTaskQueue::setBound(int workers)
{
    {
        const std::lock_guard lock(m_mutex);
        m_bound = workers;
    }
    m_changed.notify_all();
}

void NntpTaskQueue::setIdleTime(Milliseconds time)
{
    {
        const std::lock_guard lock(m_mutex);
        m_idleTime = time;
    }
    m_changed.notify_all();
}

void NntpTaskQueue::setRetryWait(Milliseconds first, Milliseconds longest)
{
    const std::lock_guard lock(m_mutex);
    m_firstWait = first;
    m_longestWait = longest;
    m_nextWait = first;
}

void NntpTaskQueue::add(const QSharedPointer<NntpTask> &task)
{
    Jobs job(1);
    job.front().task = task;
    {
        const std::lock_guard lock(m_mutex);
        if (m_isClosed)
            moveToFinished(job, job.begin(), NntpFailure::ShuttingDown);
        else if (!m_isOpen || m_account.isNull())
            moveToFinished(job, job.begin(), NntpFailure::NoAccount);
        else
            m_waiting.splice(m_waiting.end(), job);
    }
    m_changed.notify_all();
}

void NntpTaskQueue::cancel(NntpTask *task)
{
    const auto isIt = [task](const NntpJob &job) { return job.task == task; };
    Jobs dropped; // freed when the mutex is free: a task's end may do what it likes
    const std::lock_guard lock(m_mutex);
    for (Jobs *jobs : {&m_waiting, &m_finished}) {
        const auto found = std::find_if(jobs->begin(), jobs->end(), isIt);
        if (found != jobs->end())
            dropped.splice(dropped.end(), *jobs, found);
    }
    for (Lane &lane : m_lanes) {
        if (lane.task == task)
            interruptLocked(lane, NntpFailure::Cancelled);
    }
}

bool NntpTaskQueue::wantsWorker()
{
    const std::lock_guard lock(m_mutex);
    const auto isFree = [](const Lane &lane) { return !lane.task && !lane.isLeaving; };
    const auto free = std::count_if(m_lanes.cbegin(), m_lanes.cend(), isFree);
    const int allowed = m_granted < 0 ? m_bound : std::min(m_bound, m_granted);
    return !m_isClosed && !m_isHeld && int(m_waiting.size()) > free && int(m_lanes.size()) < allowed;
}

void NntpTaskQueue::enlist(NntpWorker *worker)
{
    const std::lock_guard lock(m_mutex);
    m_lanes.emplace_back();
    m_lanes.back().worker = worker;
}

NntpTaskQueue::Jobs NntpTaskQueue::takeFinished()
{
    const std::lock_guard lock(m_mutex);
    Jobs job;
    if (!m_finished.empty())
        job.splice(job.end(), m_finished, m_finished.begin());
    return job;
}

std::size_t NntpTaskQueue::finishedCount()
{
    const std::lock_guard lock(m_mutex);
    return m_finished.size();
}

QVector<NntpTaskQueue::Delay> NntpTaskQueue::takeDelayed()
{
    const std::lock_guard lock(m_mutex);
    QVector<Delay> delayed;
    for (NntpJob &job : m_waiting) {
        if (job.delay > 0)
            delayed.append({job.task, job.delay});
        job.delay = 0;
    }
    return delayed;
}

NntpTaskQueue::Milliseconds NntpTaskQueue::takeWait()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_waitToTell, Milliseconds(0));
}

void NntpTaskQueue::retry()
{
    const std::lock_guard lock(m_mutex);
    m_isHeld = false;
    m_granted = standing() + 1;
}

NntpTaskQueue::Lane &NntpTaskQueue::laneOf(const NntpWorker *worker)
{
    return *std::find_if(m_lanes.begin(), m_lanes.end(),
                         [worker](const Lane &lane) { return lane.worker == worker; });
}

int NntpTaskQueue::staying() const
{
    return int(
        std::count_if(m_lanes.cbegin(), m_lanes.cend(), [](const Lane &lane) { return !lane.isLeaving; }));
}

int NntpTaskQueue::standing() const
{
    return int(
        std::count_if(m_lanes.cbegin(), m_lanes.cend(), [](const Lane &lane) { return lane.isConnected; }));
}

bool NntpTaskQueue::mustLeave(const Lane &lane, bool isConnected) const
{
    return m_isClosed || lane.isLeaving || staying() > m_bound ||
           (!isConnected && (m_isHeld || m_waiting.empty()));
}

NntpTaskQueue::Jobs NntpTaskQueue::take(NntpWorker *worker, bool isConnected)
{
    std::unique_lock lock(m_mutex);
    Lane &lane = laneOf(worker);
    lane.isConnected = isConnected;
    const auto since = Clock::now();
    bool isTired = false;
    Jobs job;
    while (!mustLeave(lane, isConnected) && m_waiting.empty() && !isTired)
        isTired = m_changed.wait_until(lock, since + m_idleTime) == std::cv_status::timeout;
    if (mustLeave(lane, isConnected) || m_waiting.empty()) {
        lane.isLeaving = true;
        return job;
    }
    job.splice(job.end(), m_waiting, m_waiting.begin());
    job.front().account = m_account;
    job.front().limits = m_limits;
    lane.task = job.front().task.data();
    lane.interruption = NntpFailure::None;
    lane.refusalsBefore = m_refusals;
    return job;
}

void NntpTaskQueue::noteConnected(NntpWorker *worker)
{
    const std::lock_guard lock(m_mutex);
    Lane &lane = laneOf(worker);
    const bool isNew = !std::exchange(lane.isConnected, true);
    // One that began before the last refusal says nothing about what is free now.
    if (!isNew || lane.refusalsBefore != m_refusals)
        return;
    m_granted = -1;
    m_isHeld = false;
    m_nextWait = m_firstWait;
}

void NntpTaskQueue::putBack(NntpWorker *worker, Jobs &job)
{
    const std::lock_guard lock(m_mutex);
    Lane &lane = laneOf(worker);
    lane.isLeaving = true;
    lane.isConnected = false;
    lane.task = nullptr;
    if (lane.interruption != NntpFailure::None) {
        moveToFinished(job, job.begin(), lane.interruption);
        return;
    }
    // Several that were refused together wait together.
    if (lane.refusalsBefore == m_refusals)
        beginWait(job.front());
    m_waiting.splice(m_waiting.begin(), job);
    m_changed.notify_all();
}

void NntpTaskQueue::beginWait(NntpJob &job)
{
    ++m_refusals;
    m_granted = standing();
    m_isHeld = true;
    m_waitToTell = std::max(m_nextWait, Milliseconds(1));
    m_nextWait = std::min(2 * m_nextWait, m_longestWait);
    job.delay = int((m_waitToTell + Milliseconds(999)).count() / 1000);
}

bool NntpTaskQueue::finish(NntpWorker *worker, Jobs &job)
{
    const std::lock_guard lock(m_mutex);
    Lane &lane = laneOf(worker);
    lane.task = nullptr;
    const bool wasInterrupted = lane.interruption != NntpFailure::None;
    lane.isLeaving = lane.isLeaving || wasInterrupted;
    moveToFinished(job, job.begin(), wasInterrupted ? lane.interruption : job.front().failure);
    return !wasInterrupted;
}

void NntpTaskQueue::leave(NntpWorker *worker)
{
    const std::lock_guard lock(m_mutex);
    m_lanes.remove_if([worker](const Lane &lane) { return lane.worker == worker; });
}

void NntpTaskQueue::moveToFinished(Jobs &from, Jobs::iterator job, NntpFailure why)
{
    job->failure = why;
    m_finished.splice(m_finished.end(), from, job);
}
