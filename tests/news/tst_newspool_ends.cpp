// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newspool.h"

#include <halvora/nntpsession.h>

#include <QSemaphore>
#include <QtTest>

using namespace std::chrono_literals;

class tst_NewsPoolEnds : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingIsHeardOfACancelledTask_data();
    void nothingIsHeardOfACancelledTask();
    void cancellingWhatIsFinishedChangesNothing();
    void aTaskIsCancelledBeforeItStarts();
    void workThatTakesLongSeesThatItIsCancelled();
    void aLogoutEndsEveryTaskAndEveryConnection();
    void anotherLoginStartsAfresh();
    void aShutdownEndsEveryTaskOnceThoughTheServerHangs();
    void aTaskAfterTheShutdownFinishesToo();
    void aWorkerThatDoesNotEndIsLeftAlone();
    void theProgramsEndIsEnoughToEndATask();
};

void tst_NewsPoolEnds::nothingIsHeardOfACancelledTask_data()
{
    QTest::addColumn<int>("stage");
    QTest::newRow("waiting") << 0;
    QTest::newRow("running") << 1;
    QTest::newRow("finished, not delivered") << 2;
}

void tst_NewsPoolEnds::nothingIsHeardOfACancelledTask()
{
    QFETCH(int, stage);
    NewsPool pool;
    const Started running(pool, "HOLD");
    const Started waiting(pool, "LIST");
    QTRY_COMPARE(pool.server.holding(), 1);
    const Started &cancelled = stage == 0 ? waiting : running;
    const Started &other = stage == 0 ? running : waiting;
    if (stage == 2) {
        pool.server.release();
        // The next task is at the server, so this one is done; nothing is delivered meanwhile.
        const QDeadlineTimer watchdog(20s);
        while (!pool.server.commands().contains("LIST") && !watchdog.hasExpired())
            QThread::yieldCurrentThread();
    }
    pool.distributor.cancel(cancelled.task);
    QVERIFY(cancelled.task->isCancelled());
    pool.server.release();
    QTRY_VERIFY(other.isSuccessful());
    const Started last(pool, "LIST");
    QTRY_VERIFY(last.isSuccessful());
    QCOMPARE(cancelled.finished->size(), 0);
    QVERIFY(!cancelled.task->isSuccessful());
    QCOMPARE(cancelled.task->failure(), NntpFailure::Cancelled);
    QCOMPARE(pool.server.commands().count("LIST"), stage == 0 ? 1 : 2);
}

void tst_NewsPoolEnds::cancellingWhatIsFinishedChangesNothing()
{
    NewsPool pool;
    const Started task(pool, "LIST");
    QTRY_VERIFY(task.isSuccessful());
    pool.distributor.cancel(task.task);
    pool.distributor.cancel({});
    QVERIFY(task.isSuccessful());
}

void tst_NewsPoolEnds::aTaskIsCancelledBeforeItStarts()
{
    NewsPool pool;
    const auto task = WorkTask::sending("LIST ACTIVE");
    pool.distributor.cancel(task);
    pool.distributor.start(task);
    const Started last(pool, "LIST");
    QTRY_VERIFY(last.isSuccessful());
    QCOMPARE(pool.server.commands(), QByteArrayList{"LIST"});
}

void tst_NewsPoolEnds::workThatTakesLongSeesThatItIsCancelled()
{
    NewsPool pool;
    QSemaphore begun;
    const Started task(pool, WorkTask::doing([&begun](NntpSession &, WorkTask &self) {
                           begun.release();
                           while (!self.isCancelled())
                               QThread::yieldCurrentThread();
                           return true;
                       }));
    begun.acquire();
    pool.distributor.cancel(task.task);
    const Started last(pool, "LIST");
    QTRY_VERIFY(last.isSuccessful());
    QCOMPARE(task.finished->size(), 0);
}

void tst_NewsPoolEnds::aLogoutEndsEveryTaskAndEveryConnection()
{
    NewsPool pool;
    pool.distributor.setWantedConnections(2);
    const Started idle(pool, "LIST");
    QTRY_VERIFY(idle.isSuccessful());
    const Started running(pool, "HOLD");
    const Started other(pool, "HOLD");
    const Started waiting(pool, "LIST");
    QTRY_COMPARE(pool.server.holding(), 2);
    pool.distributor.close();
    for (const Started *task : {&running, &other, &waiting}) {
        QTRY_VERIFY(task->isFinished());
        QCOMPARE(task->task->failure(), NntpFailure::Cancelled);
        QVERIFY(task->task->isCancelled());
    }
    pool.server.release();
    QTRY_COMPARE(pool.server.standing(), 0);
    QCOMPARE(pool.server.logins(), 2);
}

void tst_NewsPoolEnds::anotherLoginStartsAfresh()
{
    NewsPool pool;
    const Started first(pool, "LIST");
    QTRY_VERIFY(first.isSuccessful());
    pool.distributor.close();
    pool.distributor.open();
    const Started next(pool, "LIST");
    QTRY_VERIFY(next.isSuccessful());
    QCOMPARE(pool.server.logins(), 2);
    QTRY_COMPARE(pool.server.standing(), 1);
}

void tst_NewsPoolEnds::aShutdownEndsEveryTaskOnceThoughTheServerHangs()
{
    NewsPool pool;
    const Started running(pool, "HOLD");
    const Started waiting(pool, "LIST");
    QTRY_COMPARE(pool.server.holding(), 1);
    QVERIFY(pool.distributor.shutDown());
    for (const Started *task : {&running, &waiting}) {
        QVERIFY(task->isFinished());
        QCOMPARE(task->task->failure(), NntpFailure::ShuttingDown);
    }
    QVERIFY(pool.distributor.shutDown());
    QVERIFY(running.isFinished());
}

void tst_NewsPoolEnds::aTaskAfterTheShutdownFinishesToo()
{
    NewsPool pool;
    pool.distributor.beginShutDown();
    const Started task(pool, "LIST");
    QTRY_VERIFY(task.isFinished());
    QCOMPARE(task.task->failure(), NntpFailure::ShuttingDown);
    QCOMPARE(pool.server.logins(), 0);
}

void tst_NewsPoolEnds::aWorkerThatDoesNotEndIsLeftAlone()
{
    NewsPool pool;
    QSemaphore begun;
    QSemaphore mayEnd;
    const Started task(pool, WorkTask::doing([&begun, &mayEnd](NntpSession &, WorkTask &) {
                           begun.release();
                           mayEnd.acquire();
                           return true;
                       }));
    begun.acquire();
    QVERIFY(!pool.distributor.shutDown(10ms));
    QVERIFY(!task.isFinished());
    mayEnd.release();
    QVERIFY(pool.distributor.shutDown(20s));
    QVERIFY(task.isFinished());
    QCOMPARE(task.task->failure(), NntpFailure::ShuttingDown);
}

void tst_NewsPoolEnds::theProgramsEndIsEnoughToEndATask()
{
    NewsPool pool;
    const Started task(pool, "HOLD");
    QTRY_COMPARE(pool.server.holding(), 1);
    pool.core.stopRunning();
    QTRY_VERIFY(task.isFinished());
    QCOMPARE(task.task->failure(), NntpFailure::ShuttingDown);
}

QTEST_GUILESS_MAIN(tst_NewsPoolEnds)
#include "tst_newspool_ends.moc"
