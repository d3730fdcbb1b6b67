// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hnntpdistributor.h>

#include "nntptaskqueue.h"
#include "nntpworker.h"

#include <halvora/core.h>
#include <halvora/nntptask.h>

#include <QDeadlineTimer>
#include <QSettings>

#include <algorithm>
#include <utility>

namespace {

// Before the first login nobody knows the account's limit; this many are allowed everywhere.
constexpr int cautiousLimit = 4;
constexpr int defaultWish = 20;

QString wishKey()
{
    return QStringLiteral("Connections/Wanted");
}

} // namespace

HNntpDistributor::HNntpDistributor(Core *core, AccountSource account, QObject *parent)
    : QObject(parent)
    , m_core(core)
    , m_account(std::move(account))
    , m_queue(std::make_unique<NntpTaskQueue>())
    , m_limit(cautiousLimit)
{
    m_retryTimer.setSingleShot(true);
    connect(&m_retryTimer, &QTimer::timeout, this, &HNntpDistributor::retry);
    updateBound();
}

HNntpDistributor::~HNntpDistributor()
{
    if (shutDown())
        return;
    // A worker that still runs keeps what it knows; to destroy a running thread would end the process.
    for (auto &worker : m_workers)
        static_cast<void>(worker.release());
    static_cast<void>(m_queue.release());
}

int HNntpDistributor::maxConnectionsMax() const
{
    return m_limit;
}

void HNntpDistributor::setMaxConnectionsMax(int connections)
{
    if (connections == m_limit)
        return;
    m_limit = connections;
    updateBound();
    Q_EMIT changed();
}

int HNntpDistributor::wantedConnections() const
{
    return qMax(1, m_core->settings().value(wishKey(), defaultWish).toInt());
}

void HNntpDistributor::setWantedConnections(int connections)
{
    if (connections == wantedConnections())
        return;
    m_core->settings().setValue(wishKey(), qMax(1, connections));
    updateBound();
    Q_EMIT changed();
}

void HNntpDistributor::resetWantedConnections()
{
    const int before = wantedConnections();
    m_core->settings().remove(wishKey());
    if (wantedConnections() == before)
        return;
    updateBound();
    Q_EMIT changed();
}

int HNntpDistributor::maxConnections() const
{
    return qMin(wantedConnections(), m_limit);
}

bool HNntpDistributor::isOpen() const
{
    return m_open;
}

void HNntpDistributor::open()
{
    m_open = true;
    m_queue->setAccount(m_account());
    m_queue->open();
}

void HNntpDistributor::close()
{
    m_open = false;
    m_retryTimer.stop();
    m_queue->withdrawAll();
    setMaxConnectionsMax(cautiousLimit);
    lookLater();
}

void HNntpDistributor::updateBound()
{
    m_queue->setBound(qMax(1, maxConnections()));
    startWorkers();
}

void HNntpDistributor::start(const QSharedPointer<NntpTask> &task)
{
    if (!task || task->m_handedOver)
        return;
    task->m_handedOver = true;
    m_queue->setAccount(m_account());
    m_queue->add(task);
    startWorkers();
    lookLater();
}

void HNntpDistributor::cancel(const QSharedPointer<NntpTask> &task)
{
    if (!task || task->m_finished)
        return;
    task->m_handedOver = true;
    task->m_forgotten = true;
    task->m_failure = NntpFailure::Cancelled;
    task->m_cancelled.store(true, std::memory_order_release);
    m_queue->cancel(task.data());
}

void HNntpDistributor::setLimits(const NntpLimits &limits)
{
    m_queue->setLimits(limits);
}

void HNntpDistributor::setIdleTime(std::chrono::milliseconds time)
{
    m_queue->setIdleTime(time);
}

void HNntpDistributor::setRetryWait(std::chrono::milliseconds first, std::chrono::milliseconds longest)
{
    m_queue->setRetryWait(first, longest);
}

void HNntpDistributor::beginShutDown()
{
    m_retryTimer.stop();
    m_queue->close();
    deliverFinished();
}

bool HNntpDistributor::shutDown(std::chrono::milliseconds longest)
{
    const QDeadlineTimer deadline(longest);
    beginShutDown();
    for (const auto &worker : m_workers) {
        if (!worker->wait(deadline))
            return false;
    }
    deliverFinished();
    return true;
}

// What the workers left in the queue, and what follows from it. They wake the GUI thread and say no more.
void HNntpDistributor::look()
{
    deliverFinished();
    const auto delayed = m_queue->takeDelayed();
    for (const NntpTaskQueue::Delay &delay : delayed) {
        if (!delay.task->m_forgotten)
            Q_EMIT delay.task->delayed(delay.seconds);
    }
    const std::chrono::milliseconds wait = m_queue->takeWait();
    if (wait.count() > 0)
        m_retryTimer.start(wait);
    startWorkers();
}

void HNntpDistributor::lookLater()
{
    QMetaObject::invokeMethod(this, &HNntpDistributor::look, Qt::QueuedConnection);
}

void HNntpDistributor::retry()
{
    m_queue->retry();
    startWorkers();
}

void HNntpDistributor::startWorkers()
{
    while (m_queue->wantsWorker()) {
        auto worker = std::make_unique<NntpWorker>(m_core, m_queue.get());
        connect(worker.get(), &NntpWorker::changed, this, &HNntpDistributor::look, Qt::QueuedConnection);
        connect(worker.get(), &QThread::finished, this, &HNntpDistributor::dropEndedWorkers,
                Qt::QueuedConnection);
        m_queue->enlist(worker.get());
        worker->start();
        m_workers.push_back(std::move(worker));
    }
}

void HNntpDistributor::dropEndedWorkers()
{
    look();
    const auto ended = std::remove_if(m_workers.begin(), m_workers.end(),
                                      [](const auto &worker) { return worker->isFinished(); });
    m_workers.erase(ended, m_workers.end());
}

// As many as there are now: what the slots start waits for another turn of the event loop.
void HNntpDistributor::deliverFinished()
{
    for (std::size_t left = m_queue->finishedCount(); left > 0; --left) {
        const NntpTaskQueue::Jobs job = m_queue->takeFinished();
        if (job.empty())
            return;
        const NntpJob &done = job.front();
        if (done.task->m_forgotten)
            continue;
        done.task->m_failure = done.failure;
        done.task->m_serverWords = done.serverWords;
        done.task->m_finished = true;
        Q_EMIT done.task->finished();
    }
}
