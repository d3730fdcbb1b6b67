// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newspool.h"

#include <QtTest>

using namespace std::chrono_literals;

class tst_NewsPoolRefused : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theTaskWaitsAndSucceedsLater_data();
    void theTaskWaitsAndSucceedsLater();
    void tasksKeepTheirOrderMeanwhile();
    void connectionsThatStandGoOnWithoutAWait();
    void aTaskThatWaitsForTheServerCanBeCancelled();
    void aLogoutEndsTheWait();
    void aShutdownEndsTheWait();
};

void tst_NewsPoolRefused::theTaskWaitsAndSucceedsLater_data()
{
    QTest::addColumn<bool>("isAtLogin");
    QTest::newRow("refused at the greeting") << false;
    QTest::newRow("refused at the login") << true;
}

void tst_NewsPoolRefused::theTaskWaitsAndSucceedsLater()
{
    QFETCH(bool, isAtLogin);
    std::atomic<bool> isFull{isAtLogin};
    NewsPool pool([&isFull](const QByteArray &command) {
        return isFull && command.startsWith("AUTHINFO USER") ? "482 connection limit reached\r\n" : "";
    });
    pool.server.setLimit(isAtLogin ? -1 : 0);
    pool.distributor.setRetryWait(1ms, 2ms);
    const Started task(pool, "LIST");
    QTRY_VERIFY(task.delayed->size() > 2);
    QCOMPARE(task.delayed->first().first().toInt(), 1);
    QCOMPARE(task.finished->size(), 0);
    isFull = false;
    pool.server.setLimit(-1);
    QTRY_VERIFY(task.isSuccessful());
    QCOMPARE(task.task->serverWords(), QString());
}

void tst_NewsPoolRefused::tasksKeepTheirOrderMeanwhile()
{
    NewsPool pool;
    pool.server.setLimit(0);
    pool.distributor.setRetryWait(1ms, 1ms);
    const Started first(pool, "LIST ACTIVE");
    const Started second(pool, "LIST NEWSGROUPS");
    QTRY_VERIFY(first.delayed->size() > 2);
    QCOMPARE(second.delayed->size(), 0);
    pool.server.setLimit(-1);
    QTRY_VERIFY(second.isSuccessful());
    QVERIFY(first.isSuccessful());
    const QByteArrayList expected{"LIST ACTIVE", "LIST NEWSGROUPS"};
    QCOMPARE(pool.server.commands(), expected);
}

void tst_NewsPoolRefused::connectionsThatStandGoOnWithoutAWait()
{
    NewsPool pool;
    pool.server.setLimit(2);
    pool.distributor.setWantedConnections(5);
    pool.distributor.setRetryWait(1h, 1h);
    const auto many = startMany(pool, 6, "HOLD");
    QTRY_COMPARE(pool.server.holding(), 2);
    QTRY_VERIFY(pool.server.turnedAway() > 0);
    pool.server.release();
    QTRY_VERIFY(areAllSuccessful(many));
    QCOMPARE(pool.server.most(), 2);
    QCOMPARE(pool.server.logins(), 2);
}

void tst_NewsPoolRefused::aTaskThatWaitsForTheServerCanBeCancelled()
{
    NewsPool pool;
    pool.server.setLimit(0);
    pool.distributor.setRetryWait(1ms, 1ms);
    const Started task(pool, "LIST ACTIVE");
    QTRY_VERIFY(task.delayed->size() > 0);
    pool.distributor.cancel(task.task);
    const int delays = task.delayed->size();
    pool.server.setLimit(-1);
    const Started next(pool, "LIST");
    QTRY_VERIFY(next.isSuccessful());
    QCOMPARE(task.finished->size(), 0);
    QCOMPARE(task.delayed->size(), delays);
    QCOMPARE(pool.server.commands(), QByteArrayList{"LIST"});
}

void tst_NewsPoolRefused::aLogoutEndsTheWait()
{
    NewsPool pool;
    pool.server.setLimit(0);
    pool.distributor.setRetryWait(1h, 1h);
    const Started task(pool, "LIST");
    QTRY_COMPARE(task.delayed->size(), 1);
    QCOMPARE(task.delayed->first().first().toInt(), 3600);
    pool.distributor.close();
    QTRY_VERIFY(task.isFinished());
    QCOMPARE(task.task->failure(), NntpFailure::Cancelled);
    pool.server.setLimit(-1);
    pool.distributor.open();
    const Started next(pool, "LIST");
    QTRY_VERIFY(next.isSuccessful());
}

void tst_NewsPoolRefused::aShutdownEndsTheWait()
{
    NewsPool pool;
    pool.server.setLimit(0);
    pool.distributor.setRetryWait(1h, 1h);
    const Started task(pool, "LIST");
    QTRY_COMPARE(task.delayed->size(), 1);
    QVERIFY(pool.distributor.shutDown());
    QVERIFY(task.isFinished());
    QCOMPARE(task.task->failure(), NntpFailure::ShuttingDown);
}

QTEST_GUILESS_MAIN(tst_NewsPoolRefused)
#include "tst_newspool_refused.moc"
