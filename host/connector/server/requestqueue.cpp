// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "requestqueue.h"

#include <algorithm>

void RequestQueue::add(const QSharedPointer<HRequest> &request, qint64 place)
{
    Jobs job(1);
    job.front().request = request;
    job.front().place = place;
    {
        const std::lock_guard lock(m_mutex);
        if (m_closed) {
            job.front().failure = RequestFailure::Kind::ShuttingDown;
            moveToFinished(job, job.begin());
            return;
        }
        m_waiting.splice(place <= 0 ? m_waiting.begin() : m_waiting.end(), job);
    }
    m_changed.notify_all();
}

void RequestQueue::setSituation(const ServerSituation &situation)
{
    {
        const std::lock_guard lock(m_mutex);
        m_situation = situation;
        ++m_situationNumber;
    }
    m_changed.notify_all();
}

void RequestQueue::abandon(RequestFailure::Kind why, const std::function<void()> &interrupt)
{
    const std::lock_guard lock(m_mutex);
    abandonLocked(why);
    interruptLocked(why, interrupt);
}

void RequestQueue::abandonLocked(RequestFailure::Kind why)
{
    m_finished.splice(m_finished.end(), m_waiting);
    for (ServerJob &job : m_finished) {
        job.failure = why;
        job.request->m_failure = why;
        job.request->m_finished = true;
    }
}

void RequestQueue::close()
{
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
        abandonLocked(RequestFailure::Kind::ShuttingDown);
    }
    m_changed.notify_all();
}

RequestQueue::Jobs RequestQueue::takeFinished()
{
    const std::lock_guard lock(m_mutex);
    Jobs job;
    if (!m_finished.empty())
        job.splice(job.end(), m_finished, m_finished.begin());
    return job;
}

std::size_t RequestQueue::finishedCount()
{
    const std::lock_guard lock(m_mutex);
    return m_finished.size();
}

void RequestQueue::goOn(quint64 turn)
{
    {
        const std::lock_guard lock(m_mutex);
        if (turn != m_unfollowed)
            return;
        m_unfollowed = 0;
    }
    m_changed.notify_all();
}

RequestQueue::Current RequestQueue::current()
{
    const std::lock_guard lock(m_mutex);
    return m_current;
}

void RequestQueue::interrupt(quint64 turn, RequestFailure::Kind why, const std::function<void()> &interrupt)
{
    const std::lock_guard lock(m_mutex);
    if (turn == 0 || turn == m_current.turn)
        interruptLocked(why, interrupt);
}

void RequestQueue::interruptLocked(RequestFailure::Kind why, const std::function<void()> &interrupt)
{
    if (m_current.turn == 0)
        return;
    m_interruption = why;
    interrupt();
}

RequestQueue::Jobs::iterator RequestQueue::nextCandidate()
{
    return std::find_if(m_waiting.begin(), m_waiting.end(),
                        [this](const ServerJob &job) { return job.askedIn != m_situationNumber; });
}

RequestQueue::Jobs RequestQueue::take()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock,
                   [this] { return m_closed || (m_unfollowed == 0 && nextCandidate() != m_waiting.end()); });
    Jobs job;
    if (m_closed)
        return job;
    job.splice(job.end(), m_waiting, nextCandidate());
    ServerJob &taken = job.front();
    taken.turn = ++m_lastTurn;
    taken.askedIn = m_situationNumber;
    taken.situation = m_situation;
    taken.deadline = ServerJob::Clock::now() + std::chrono::milliseconds(m_situation.deadline);
    m_current = {taken.turn, taken.deadline};
    m_interruption = RequestFailure::Kind::None;
    return job;
}

bool RequestQueue::putBack(Jobs &job)
{
    const std::lock_guard lock(m_mutex);
    if (m_closed || m_interruption != RequestFailure::Kind::None)
        return finishLocked(job);
    m_current = {};
    const auto behind = std::find_if(m_waiting.begin(), m_waiting.end(), [&job](const ServerJob &other) {
        return other.place > job.front().place;
    });
    m_waiting.splice(behind, job);
    return true;
}

bool RequestQueue::finish(Jobs &job)
{
    const std::lock_guard lock(m_mutex);
    return finishLocked(job);
}

bool RequestQueue::finishLocked(Jobs &job)
{
    using Kind = RequestFailure::Kind;
    const bool interrupted = m_interruption != Kind::None;
    if (m_closed) {
        job.front().failure = Kind::ShuttingDown;
    } else if (interrupted) {
        // A service whose reply came and led nowhere is not lost: it would only be asked for it again.
        const bool answered = m_interruption == Kind::TimedOut && !job.front().reply.isNull();
        job.front().failure = answered ? Kind::BadReply : m_interruption;
    }
    m_current = {};
    m_interruption = RequestFailure::Kind::None;
    m_unfollowed = job.front().turn;
    moveToFinished(job, job.begin());
    return !interrupted;
}

void RequestQueue::moveToFinished(Jobs &from, Jobs::iterator job)
{
    job->request->m_failure = job->failure;
    job->request->m_finished = true;
    m_finished.splice(m_finished.end(), from, job);
}
