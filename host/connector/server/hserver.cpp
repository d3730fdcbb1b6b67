// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hserver.h>

#include "requestqueue.h"
#include "serverworker.h"

#include <halvora/core.h>
#include <halvora/hserveraddressrotator.h>

#include <QScopedValueRollback>

#include <utility>

namespace {

constexpr unsigned long longestWaitForWorker = 2000; // milliseconds
constexpr int maxEndingRounds = 4;                   // of requests that the slots of ended ones add

} // namespace

HServer::HServer(Core *core, QObject *parent)
    : QObject(parent)
    , m_core(core)
    , m_queue(std::make_unique<RequestQueue>())
    , m_situation(std::make_unique<ServerSituation>())
    , m_worker(std::make_unique<ServerWorker>(core, m_queue.get()))
{
    qRegisterMetaType<HServer::State>();
    qRegisterMetaType<HServer::State>("HServer::State");
    m_deadlineTimer.setSingleShot(true);
    m_deadlineTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_deadlineTimer, &QTimer::timeout, this,
            [this] { m_worker->interrupt(m_watched, RequestFailure::Kind::TimedOut); });
    connect(m_worker.get(), &ServerWorker::changed, this, &HServer::lookAtWorker, Qt::QueuedConnection);
    connect(m_worker.get(), &QThread::finished, this, &HServer::startWorker, Qt::QueuedConnection);
    startWorker();
}

HServer::~HServer()
{
    if (shutDown())
        return;
    // A worker that still runs keeps what it knows; to destroy a running thread would end the process.
    static_cast<void>(m_worker.release());
    static_cast<void>(m_queue.release());
}

HServer::State HServer::connectorState() const
{
    return m_state;
}

void HServer::addRequestToQueue(const QSharedPointer<HRequest> &request)
{
    if (!accept(request))
        return;
    m_queue->append(request);
    lookAtWorkerLater();
}

void HServer::prependRequestToQueue(const QSharedPointer<HRequest> &request)
{
    if (!accept(request))
        return;
    m_queue->prepend(request);
    lookAtWorkerLater();
}

bool HServer::accept(const QSharedPointer<HRequest> &request)
{
    if (!request || request->m_handedOver)
        return false;
    request->m_handedOver = true;
    if (request->isLoginRequest() && !m_closed && m_state != Connected)
        setState(Connecting);
    if (!m_isEnding || request->isLoginRequest())
        return true;
    m_queue->addFinished(request, RequestFailure::Kind::LoggedOut);
    lookAtWorkerLater();
    return false;
}

// Requests that finish without the worker need a wake-up of their own.
void HServer::lookAtWorkerLater()
{
    if (m_closed || m_isEnding)
        QMetaObject::invokeMethod(this, &HServer::lookAtWorker, Qt::QueuedConnection);
}

void HServer::setAddressRotator(std::unique_ptr<HServerAddressRotator> rotator)
{
    m_rotator = std::move(rotator);
    updateSituation();
}

HServerAddress HServer::currentAddress() const
{
    return m_rotator ? m_rotator->current() : HServerAddress();
}

void HServer::setAccountKnown(bool known)
{
    m_accountKnown = known;
    updateSituation();
}

void HServer::setRequestDeadline(int milliseconds)
{
    m_situation->deadline = milliseconds;
    updateSituation();
}

// The requests end before the window shows the new account, so that their slots cannot mix the two.
void HServer::setAccount(const QString &account)
{
    const bool isAnother = !m_account.isEmpty() && account != m_account;
    m_account = account;
    if (!isAnother)
        return;
    m_situation->session.clear();
    updateSituation();
    m_worker->abandon(WhichRequests::AllButLogins, RequestFailure::Kind::LoggedOut);
    deliverEnded(WhichRequests::AllButLogins);
}

void HServer::logIn(const QString &session)
{
    m_situation->session = session;
    m_queue->goOn(std::exchange(m_loginTurn, 0)); // before slots that may wait for a reply
    setState(Connected);
    updateSituation();
}

void HServer::logOut()
{
    m_account.clear();
    m_situation->session.clear();
    m_worker->abandon(WhichRequests::All, RequestFailure::Kind::LoggedOut);
    setState(Disconnected);
    updateSituation();
    deliverEnded(WhichRequests::All);
}

void HServer::cancelLogin()
{
    m_worker->abandon(WhichRequests::Logins, RequestFailure::Kind::LoggedOut);
    if (m_state == Connecting)
        setState(Disconnected);
    deliverEnded(WhichRequests::Logins);
}

bool HServer::shutDown()
{
    m_closed = true;
    m_core->stopRunning();
    m_queue->close();
    deliverFinished(WhichRequests::All);
    m_worker->interrupt(0, RequestFailure::Kind::ShuttingDown);
    if (!m_worker->wait(longestWaitForWorker))
        return false;
    m_deadlineTimer.stop();
    deliverFinished(WhichRequests::All);
    setState(Disconnected);
    return true;
}

void HServer::startWorker()
{
    if (!m_closed)
        m_worker->start();
}

void HServer::lookAtWorker()
{
    deliverFinished(WhichRequests::All);
    watchDeadline();
}

void HServer::watchDeadline()
{
    const RequestQueue::Current current = m_queue->current();
    if (current.turn == m_watched)
        return;
    m_watched = current.turn;
    if (current.turn == 0) {
        m_deadlineTimer.stop();
        return;
    }
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(current.deadline - ServerJob::Clock::now());
    m_deadlineTimer.start(std::max(std::chrono::milliseconds(0), left));
}

// What the slots add while this runs waits for another turn of the event loop, so that a slot that always
// asks again holds nobody up. A slot with an event loop of its own may have delivered the rest already.
void HServer::deliverFinished(WhichRequests which)
{
    for (std::size_t left = m_queue->finishedCount(); left > 0; --left) {
        RequestQueue::Jobs job = m_queue->takeFinished(which);
        if (job.empty())
            return;
        deliver(job.front());
        // A request may hold handles to its reply for as long as it lives.
        const QSharedPointer<HRequest> request = std::exchange(job.front().request, {});
        const auto spent = std::make_shared<RequestQueue::Jobs>(std::move(job));
        connect(request.data(), &QObject::destroyed, this, [this, spent] { m_queue->giveBack(*spent); });
    }
}

// With the requests that their slots add; what is still left then waits for another turn of the event loop.
void HServer::deliverEnded(WhichRequests which)
{
    for (int round = 0; round < maxEndingRounds; ++round)
        deliverFinished(which);
}

void HServer::deliver(const ServerJob &job)
{
    HRequest &request = *job.request;
    // A reply may be good XML and still not be what the request needs.
    if (request.m_failure.isNull() && !request.isSuccessful())
        request.m_failure = RequestFailure::Kind::BadReply;
    const RequestFailure failure = request.failure();
    const bool isLogin = request.isLoginRequest();
    // A login that was applied meanwhile has a session of its own, which nobody refused.
    const bool sessionEnded = failure.kind() == RequestFailure::Kind::RefusedSession &&
                              job.situation.session == m_situation->session;

    follow(failure, isLogin, sessionEnded);
    // Until the login is applied, a request in the worker's hand could still be one of the account before.
    if (isLogin && failure.isNull())
        m_loginTurn = job.turn;
    else
        m_queue->goOn(job.turn);
    const QScopedValueRollback<bool> ending(m_isEnding,
                                            failure.kind() == RequestFailure::Kind::LoggedOut && !isLogin);
    const QString sessionBefore = m_situation->session;
    request.deliver();
    if (isLogin)
        m_queue->goOn(job.turn);
    tellMessages(job, sessionBefore);
    if (!failure.isNull())
        Q_EMIT requestFailed(failure, isLogin);
    if (sessionEnded)
        Q_EMIT sessionRefused();
}

// Messages belong to an account. Those of a login do so once it is applied, which gives a session of its own;
// any other reply has to be of the session that still holds.
void HServer::tellMessages(const ServerJob &job, const QString &sessionBefore)
{
    const QString &session = m_situation->session;
    const bool belongs = job.request->isLoginRequest()
                             ? job.request->isSuccessful() && session != sessionBefore
                             : session == job.situation.session;
    if (belongs && !session.isEmpty() && !m_closed && !job.messages.isEmpty())
        Q_EMIT messagesReceived(job.messages);
}

void HServer::follow(const RequestFailure &failure, bool isLogin, bool sessionEnded)
{
    if (m_rotator && failure.isAddressToBlame())
        m_rotator->rotate();
    if (sessionEnded) {
        m_situation->session.clear();
        setState(Disconnected);
    } else if (failure.isServiceLost()) {
        setState(ServiceLost);
    } else if (isLogin && !failure.isNull() && m_state == Connecting) {
        setState(failure.isAddressToBlame() ? ServiceLost : Disconnected);
    }
    updateSituation();
}

void HServer::setState(State state)
{
    if (state == m_state)
        return;
    m_state = state;
    updateSituation();
    Q_EMIT stateChanged(state);
}

void HServer::updateSituation()
{
    m_situation->address = currentAddress();
    m_situation->ready = !m_closed && m_accountKnown && !m_situation->address.isNull();
    m_situation->connected = m_state == Connected && !m_situation->session.isEmpty();
    m_queue->setSituation(*m_situation);
}
