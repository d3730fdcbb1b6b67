// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nntpaccount.h>
#include <halvora/nntpfailure.h>
#include <halvora/nntpsession.h>

#include <QSharedPointer>
#include <QString>
#include <QVector>

#include <chrono>
#include <condition_variable>
#include <list>
#include <mutex>

class NntpTask;
class NntpWorker;

/// A task on its way through the connections.
struct NntpJob {
    QSharedPointer<NntpTask> task;
    NntpAccount account;
    NntpLimits limits;
    NntpFailure failure = NntpFailure::None;
    QString serverWords;
    int delay = 0; ///< seconds until the next attempt, to be told; 0: nothing to tell
};

/// The tasks that wait, those that the workers have, those that are done, and which workers there are: all
/// that the GUI thread and the workers share, under one mutex. Jobs are moved, never copied, so that the last
/// reference to a task always goes on the GUI thread. No lock is held while a task runs.
///
/// A worker counts as one connection until it has left, which it does when its connection is closed.
class NntpTaskQueue {
public:
    using Jobs = std::list<NntpJob>;
    using Clock = std::chrono::steady_clock;
    using Milliseconds = std::chrono::milliseconds;

    /// A task, and the seconds until its next attempt.
    struct Delay {
        QSharedPointer<NntpTask> task;
        int seconds;
    };

    NntpTaskQueue() = default;
    Q_DISABLE_COPY(NntpTaskQueue)

    // GUI thread
    /// Before it, everything that is added finishes without an account.
    void open();
    /// Everything that is in here finishes as cancelled, and the workers leave.
    void withdrawAll();
    /// The same as shutting down, and for good.
    void close();
    void setAccount(const NntpAccount &account);
    void setLimits(const NntpLimits &limits);
    /// How many workers there may be.
    void setBound(int workers);
    /// How long a worker keeps a connection that nobody needs.
    void setIdleTime(Milliseconds time);
    /// The first and the longest wait after the server had no connection left.
    void setRetryWait(Milliseconds first, Milliseconds longest);
    void add(const QSharedPointer<NntpTask> &task);
    /// What becomes of @p task is nobody's business any more.
    void cancel(NntpTask *task);
    /// Whether one more worker would be of use and is allowed.
    bool wantsWorker();
    /// @p worker counts from now on and is started next.
    void enlist(NntpWorker *worker);
    /// The outbox. One at a time, because what its slots do may change what becomes of the others.
    Jobs takeFinished();
    std::size_t finishedCount();
    /// The tasks whose users are to be told of a wait that began.
    QVector<Delay> takeDelayed();
    /// How long the GUI thread has to wait before it calls retry(); 0 when no wait has begun since last time.
    Milliseconds takeWait();
    /// The wait is over: one more connection may be tried.
    void retry();

    // Worker
    /// Waits for a job for @p worker; empty when it has to leave. Without a connection it does not wait.
    Jobs take(NntpWorker *worker, bool isConnected);
    /// The job's connection stands.
    void noteConnected(NntpWorker *worker);
    /// The server has no connection left: the job goes back to the front, and the worker has to leave.
    void putBack(NntpWorker *worker, Jobs &job);
    /// Moves the job to the outbox; false when the worker was interrupted and has to leave.
    bool finish(NntpWorker *worker, Jobs &job);
    /// The worker's connection is closed.
    void leave(NntpWorker *worker);

private:
    struct Lane {
        NntpWorker *worker;
        NntpTask *task = nullptr;                     ///< in hand
        NntpFailure interruption = NntpFailure::None; ///< of the task in hand
        quint64 refusalsBefore = 0;                   ///< when the task was taken
        bool isConnected = false;
        bool isLeaving = false;
    };

    Lane &laneOf(const NntpWorker *worker);
    bool mustLeave(const Lane &lane, bool isConnected) const;
    int staying() const;
    int standing() const;
    void withdrawLocked(NntpFailure why);
    static void interruptLocked(Lane &lane, NntpFailure why);
    void moveToFinished(Jobs &from, Jobs::iterator job, NntpFailure why);
    void beginWait(NntpJob &job);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    Jobs m_waiting;
    Jobs m_finished; ///< the outbox
    std::list<Lane> m_lanes;
    NntpAccount m_account;
    NntpLimits m_limits;
    bool m_isOpen = false;
    bool m_isClosed = false;
    int m_bound = 1;
    int m_granted = -1;    ///< workers after the server refused one more; -1: as many as are allowed
    bool m_isHeld = false; ///< no new connection until retry()
    Milliseconds m_idleTime = std::chrono::seconds(60);
    Milliseconds m_firstWait = std::chrono::seconds(10);
    Milliseconds m_longestWait = std::chrono::seconds(120);
    Milliseconds m_nextWait = m_firstWait;
    Milliseconds m_waitToTell{0};
    quint64 m_refusals = 0;
};
