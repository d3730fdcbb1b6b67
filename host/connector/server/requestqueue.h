// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hmessage.h>
#include <halvora/hrequest.h>
#include <halvora/hserveraddress.h>

#include <QDomDocument>
#include <QSharedPointer>
#include <QVector>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>

enum class WhichRequests { All, Logins, AllButLogins };

/// What the worker needs to know, as values that the GUI thread took.
struct ServerSituation {
    bool ready = false;     ///< the server runs and has an address and an account
    bool connected = false; ///< a login is applied
    HServerAddress address;
    QString session;
    int deadline = 30'000; ///< milliseconds for one request, preparation included
};

/// A request on its way through the server.
struct ServerJob {
    using Clock = std::chrono::steady_clock;

    quint64 turn = 0;    ///< counts what the worker takes; 0: it never took this one
    qint64 place = 0;    ///< its place in the queue
    quint64 askedIn = 0; ///< the number of the situation in which the worker last took it
    bool isLogin = false;
    ServerSituation situation;
    QSharedPointer<HRequest> request;
    QDomDocument reply;         ///< freed on the worker, when the request is gone
    QVector<HMessage> messages; ///< what the reply brought along
    RequestFailure failure;
    Clock::time_point deadline;
};

/// The requests that wait, the one that the worker has, and those that are done: all that the GUI thread and
/// the worker share, under one mutex. Jobs are moved, never copied, so that the last reference to a request
/// always goes on the GUI thread. No lock is held while an operation of a request runs.
///
/// After each finished job the worker takes the next one only when the GUI thread has drawn its conclusions
/// from the one before: another address, a service that is lost, a session that has ended.
class RequestQueue {
public:
    using Jobs = std::list<ServerJob>;
    struct Current {
        quint64 turn = 0; ///< 0: the worker has nothing
        ServerJob::Clock::time_point deadline;
        bool isLogin = false;
    };

    RequestQueue() = default;
    Q_DISABLE_COPY(RequestQueue)

    // GUI thread
    void append(const QSharedPointer<HRequest> &request) { add(request, ++m_last); }
    void prepend(const QSharedPointer<HRequest> &request) { add(request, --m_first); }
    /// Finishes @p request at once as unsuccessful for @p why.
    void addFinished(const QSharedPointer<HRequest> &request, RequestFailure::Kind why)
    {
        add(request, ++m_last, why);
    }
    void setSituation(const ServerSituation &situation);
    /// Finishes as unsuccessful for @p why those of @p which that wait, those that were not taken out yet
    /// and, like interrupt(), the one that the worker has; in one step, so that none slips through between
    /// them.
    void abandon(WhichRequests which, RequestFailure::Kind why, const std::function<void()> &interrupt);
    /// Nothing is taken from now on; everything that waits or comes later is finished as unsuccessful.
    void close();
    /// The first job of @p which in the outbox; empty when there is none. One at a time, because what its
    /// slots do may change what becomes of the others.
    Jobs takeFinished(WhichRequests which = WhichRequests::All);
    std::size_t finishedCount();
    /// Leaves it to the worker to free what @p spent holds: the tree of a large reply takes longer than the
    /// window may pause. No handle to the reply may be alive, and no request.
    void giveBack(Jobs &spent);
    /// The conclusions from the job of @p turn are drawn.
    void goOn(quint64 turn);
    Current current();
    /// If the job of @p turn (0: any) is still the worker's, it becomes unsuccessful for @p why, and
    /// @p interrupt is called under the mutex.
    void interrupt(quint64 turn, RequestFailure::Kind why, const std::function<void()> &interrupt);

    // Worker
    /// Waits for a job to look at; empty when the queue is closed.
    Jobs take();
    /// Puts back a job that may not go in its situation, at its place; answers like finish().
    bool putBack(Jobs &job);
    /// Moves the job to the outbox; false when the worker was interrupted and has to end.
    bool finish(Jobs &job);

private:
    void add(const QSharedPointer<HRequest> &request, qint64 place,
             RequestFailure::Kind why = RequestFailure::Kind::None);
    Jobs::iterator nextCandidate();
    void freeSpent(std::unique_lock<std::mutex> &lock);
    bool finishLocked(Jobs &job);
    void abandonLocked(WhichRequests which, RequestFailure::Kind why);
    void interruptLocked(RequestFailure::Kind why, const std::function<void()> &interrupt);
    void moveToFinished(Jobs &from, Jobs::iterator job);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    Jobs m_waiting;  ///< by place
    Jobs m_finished; ///< the outbox
    Jobs m_spent;    ///< what the worker has to free
    Current m_current;
    RequestFailure::Kind m_interruption = RequestFailure::Kind::None; ///< of the current job
    bool m_closed = false;
    ServerSituation m_situation;
    quint64 m_situationNumber = 1;
    quint64 m_lastTurn = 0;
    quint64 m_unfollowed = 0; ///< the turn from which conclusions are still to be drawn
    qint64 m_first = 0;       ///< GUI thread
    qint64 m_last = 0;        ///< GUI thread
};
