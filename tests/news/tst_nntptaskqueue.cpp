// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nntptaskqueue.h"

#include "nntpworker.h"
#include "worktask.h"

#include <QtTest>

#include <memory>
#include <vector>

using namespace std::chrono_literals;
using Milliseconds = NntpTaskQueue::Milliseconds;

/// The workers are never started: what they would do, the tests do one step at a time.
class tst_NntpTaskQueue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aWorkerIsWantedForEachTaskUpToTheBound();
    void theWaitDoublesUpToTheLongest();
    void aSuccessResetsTheWait();
    void theRefusalsOfOneRushAreOneRefusal();
    void aSuccessThatBeganBeforeTheRefusalResetsNothing();
    void afterTheWaitOneMoreConnectionIsTried();
    void aWorkerWithoutConnectionLeavesDuringTheWait();
    void aRefusedTaskThatWasCancelledIsNotPutBack();
    void aWorkerOfALoggedOutAccountLeaves();
    void anInterruptedTaskIsUnsuccessfulWhateverItDid();

private:
    NntpWorker *enlist();
    void addTasks(int count);
    /// What becomes of a worker whose connection is refused.
    void refuse(NntpWorker *worker);

    std::unique_ptr<NntpTaskQueue> m_queue;
    std::vector<std::unique_ptr<NntpWorker>> m_workers;
};

void tst_NntpTaskQueue::init()
{
    m_workers.clear();
    m_queue = std::make_unique<NntpTaskQueue>();
    NntpAccount account;
    account.hosts = {NntpHost(QStringLiteral("news.example"), 563, true)};
    account.user = account.password = QStringLiteral("x");
    m_queue->setAccount(account);
    m_queue->setBound(4);
    m_queue->setIdleTime(0ms);
    m_queue->open();
}

NntpWorker *tst_NntpTaskQueue::enlist()
{
    m_workers.push_back(std::make_unique<NntpWorker>(nullptr, m_queue.get()));
    m_queue->enlist(m_workers.back().get());
    return m_workers.back().get();
}

void tst_NntpTaskQueue::addTasks(int count)
{
    for (int i = 0; i < count; ++i)
        m_queue->add(WorkTask::sending("LIST"));
}

void tst_NntpTaskQueue::refuse(NntpWorker *worker)
{
    auto job = m_queue->take(worker, false);
    QCOMPARE(job.size(), std::size_t(1));
    m_queue->putBack(worker, job);
    QVERIFY(job.empty());
    m_queue->leave(worker);
}

void tst_NntpTaskQueue::aWorkerIsWantedForEachTaskUpToTheBound()
{
    QVERIFY(!m_queue->wantsWorker());
    addTasks(2);
    QVERIFY(m_queue->wantsWorker());
    enlist();
    QVERIFY(m_queue->wantsWorker());
    enlist();
    QVERIFY(!m_queue->wantsWorker());
    addTasks(5);
    enlist();
    QVERIFY(m_queue->wantsWorker());
    enlist();
    QVERIFY(!m_queue->wantsWorker());
}

void tst_NntpTaskQueue::theWaitDoublesUpToTheLongest()
{
    m_queue->setRetryWait(10s, 120s);
    addTasks(1);
    for (const Milliseconds wait : {10s, 20s, 40s, 80s, 120s, 120s}) {
        QVERIFY(m_queue->wantsWorker());
        refuse(enlist());
        QVERIFY(!m_queue->wantsWorker());
        const auto delayed = m_queue->takeDelayed();
        QCOMPARE(delayed.size(), 1);
        QCOMPARE(Milliseconds(1000 * delayed.first().seconds), wait);
        QCOMPARE(m_queue->takeWait(), wait);
        QCOMPARE(m_queue->takeWait(), 0ms);
        m_queue->retry();
    }
}

void tst_NntpTaskQueue::aSuccessResetsTheWait()
{
    m_queue->setRetryWait(10s, 120s);
    addTasks(3);
    refuse(enlist());
    m_queue->retry();
    NntpWorker *good = enlist();
    auto job = m_queue->take(good, false);
    QVERIFY(!m_queue->wantsWorker());
    m_queue->noteConnected(good);
    QVERIFY(m_queue->wantsWorker());
    m_queue->takeWait();
    refuse(enlist());
    QCOMPARE(m_queue->takeWait(), 10s);
}

void tst_NntpTaskQueue::theRefusalsOfOneRushAreOneRefusal()
{
    m_queue->setRetryWait(10s, 120s);
    addTasks(2);
    NntpWorker *one = enlist();
    NntpWorker *other = enlist();
    auto job = m_queue->take(one, false);
    auto otherJob = m_queue->take(other, false);
    m_queue->putBack(one, job);
    QCOMPARE(m_queue->takeWait(), 10s);
    m_queue->putBack(other, otherJob);
    QCOMPARE(m_queue->takeWait(), 0ms);
    QCOMPARE(m_queue->takeDelayed().size(), 1);
    m_queue->leave(one);
    m_queue->leave(other);
    m_queue->retry();
    refuse(enlist());
    QCOMPARE(m_queue->takeWait(), 20s);
}

void tst_NntpTaskQueue::aSuccessThatBeganBeforeTheRefusalResetsNothing()
{
    addTasks(3);
    NntpWorker *early = enlist();
    NntpWorker *refused = enlist();
    auto job = m_queue->take(early, false);
    refuse(refused);
    m_queue->noteConnected(early);
    QVERIFY(!m_queue->wantsWorker());
}

void tst_NntpTaskQueue::afterTheWaitOneMoreConnectionIsTried()
{
    addTasks(4);
    NntpWorker *standing = enlist();
    auto job = m_queue->take(standing, false);
    m_queue->noteConnected(standing);
    refuse(enlist());
    m_queue->retry();
    QVERIFY(m_queue->wantsWorker());
    enlist();
    QVERIFY(!m_queue->wantsWorker());
}

void tst_NntpTaskQueue::aWorkerWithoutConnectionLeavesDuringTheWait()
{
    addTasks(2);
    NntpWorker *late = enlist();
    refuse(enlist());
    QVERIFY(m_queue->take(late, false).empty());
}

void tst_NntpTaskQueue::aRefusedTaskThatWasCancelledIsNotPutBack()
{
    addTasks(1);
    NntpWorker *worker = enlist();
    auto job = m_queue->take(worker, false);
    m_queue->cancel(job.front().task.data());
    m_queue->putBack(worker, job);
    m_queue->leave(worker);
    QVERIFY(!m_queue->wantsWorker());
    QCOMPARE(m_queue->takeWait(), 0ms);
    QCOMPARE(m_queue->takeFinished().front().failure, NntpFailure::Cancelled);
}

void tst_NntpTaskQueue::aWorkerOfALoggedOutAccountLeaves()
{
    addTasks(1);
    NntpWorker *worker = enlist();
    auto job = m_queue->take(worker, false);
    m_queue->finish(worker, job);
    m_queue->withdrawAll();
    m_queue->open();
    addTasks(1);
    QVERIFY(m_queue->wantsWorker());
    QVERIFY(m_queue->take(worker, true).empty());
}

void tst_NntpTaskQueue::anInterruptedTaskIsUnsuccessfulWhateverItDid()
{
    addTasks(1);
    NntpWorker *worker = enlist();
    auto job = m_queue->take(worker, false);
    m_queue->withdrawAll();
    QVERIFY(!m_queue->finish(worker, job));
    QCOMPARE(m_queue->takeFinished().front().failure, NntpFailure::Cancelled);
}

QTEST_GUILESS_MAIN(tst_NntpTaskQueue)
#include "tst_nntptaskqueue.moc"
