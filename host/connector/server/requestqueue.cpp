// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "requestqueue.h"

#include <algorithm>

namespace {

bool isOf(WhichRequests which, bool isLogin)
{
    return which == WhichRequests::All || isLogin == (which == WhichRequests::Logins);
}

} // namespace

void RequestQueue::add(const QSharedPointer<HRequest> &request, qint64 place, RequestFailure::Kind why)
{
    Jobs job(1);
    job.front().request = request;
    job.front().isLogin = request->isLoginRequest();
    job.front().place = place;
    {
        const std::lock_guard lock(m_mutex);
        if (m_closed)
            why = RequestFailure::Kind::ShuttingDown;
        if (why != RequestFailure::Kind::None) {
            job.front().failure = why;
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

void RequestQueue::abandon(WhichRequests which, RequestFailure::Kind why,
                           const std::function<void()> &interrupt)
{
    const std::lock_guard lock(m_mutex);
    abandonLocked(which, why);
    if (isOf(which, m_current.isLogin))
        interruptLocked(why, interrupt);
}

void RequestQueue::abandonLocked(WhichRequests which, RequestFailure::Kind why)
{
    for (auto job = m_waiting.begin(); job != m_waiting.end();) {
        const auto candidate = job++;
        if (isOf(which, candidate->isLogin))
            m_finished.splice(m_finished.end(), m_waiting, candidate);
    }
    for (ServerJob &job : m_finished) {
        if (!isOf(which, job.isLogin))
            continue;
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
        abandonLocked(WhichRequests::All, RequestFailure::Kind::ShuttingDown);
    }
    m_changed.notify_all();
}

RequestQueue::Jobs RequestQueue::takeFinished(WhichRequests which)
{
    const std::lock_guard lock(m_mutex);
    const auto first = std::find_if(m_finished.begin(), m_finished.end(),
                                    [which](const ServerJob &job) { return isOf(which, job.isLogin); });
    Jobs job;
    if (first != m_finished.end())
        job.splice(job.end(), m_finished, first);
    return job;
}

std::size_t RequestQueue::finishedCount()
{
    const std::lock_guard lock(m_mutex);
    return m_finished.size();
}

void RequestQueue::giveBack(Jobs &spent)
{
    {
        const std::lock_guard lock(m_mutex);
        m_spent.splice(m_spent.end(), spent);
    }
    m_changed.notify_all();
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
    // The first reason counts: a deadline that comes after a logout is void.
    const bool isFirst = turn == m_current.turn && m_interruption == RequestFailure::Kind::None;
    if (turn == 0 || isFirst)
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

void RequestQueue::freeSpent(std::unique_lock<std::mutex> &lock)
{
    Jobs spent;
    spent.swap(m_spent);
    lock.unlock();
    spent.clear();
    lock.lock();
}

RequestQueue::Jobs RequestQueue::take()
{
    std::unique_lock lock(m_mutex);
    const auto canGoOn = [this] {
        return m_closed || !m_spent.empty() || (m_unfollowed == 0 && nextCandidate() != m_waiting.end());
    };
    for (m_changed.wait(lock, canGoOn); !m_spent.empty(); m_changed.wait(lock, canGoOn))
        freeSpent(lock);
    Jobs job;
    if (m_closed)
        return job;
    job.splice(job.end(), m_waiting, nextCandidate());
    ServerJob &taken = job.front();
    taken.turn = ++m_lastTurn;
    taken.askedIn = m_situationNumber;
    taken.situation = m_situation;
    taken.deadline = ServerJob::Clock::now() + std::chrono::milliseconds(m_situation.deadline);
    m_current = {taken.turn, taken.deadline, taken.isLogin};
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
