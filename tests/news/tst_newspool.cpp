// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "loopbackport.h"
#include "newspool.h"

#include <halvora/nntpsession.h>

#include <QDeadlineTimer>
#include <QtTest>

using namespace std::chrono_literals;

Q_DECLARE_METATYPE(NntpFailure)

class tst_NewsPool : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thereAreAsManyConnectionsAsWishAndLimitAllow_data();
    void thereAreAsManyConnectionsAsWishAndLimitAllow();
    void aHigherLimitIsUsedAtOnce();
    void aLowerLimitEndsConnectionsThatAreGivenBack();
    void oneConnectionServesOneTaskAfterTheOther();
    void aTaskThatFailsLeavesTheConnectionToTheNext();
    void anIdleConnectionEndsWithAGoodbye();
    void aConnectionThatDiedIdleIsReplaced();
    void aTaskFinishesOnceAndNeverBeforeStartReturns();
    void aSlotMayStartTheNextTask();
    void withoutAnAccountATaskFinishesUnsuccessfully_data();
    void withoutAnAccountATaskFinishesUnsuccessfully();
    void theFailureSaysWhatWasTheMatter_data();
    void theFailureSaysWhatWasTheMatter();
    void progressIsToldOnceForManyCalls();
    void aTaskThatNobodyKeepsEndsOnTheGuiThread();
};

void tst_NewsPool::thereAreAsManyConnectionsAsWishAndLimitAllow_data()
{
    QTest::addColumn<int>("wish");
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("tasks");
    QTest::addColumn<int>("connections");
    QTest::newRow("wish") << 2 << 20 << 6 << 2;
    QTest::newRow("limit") << 20 << 3 << 6 << 3;
    QTest::newRow("tasks") << 20 << 20 << 4 << 4;
    QTest::newRow("never less than one") << 1 << 0 << 2 << 1;
}

void tst_NewsPool::thereAreAsManyConnectionsAsWishAndLimitAllow()
{
    QFETCH(int, wish);
    QFETCH(int, limit);
    QFETCH(int, tasks);
    QFETCH(int, connections);
    NewsPool pool;
    pool.distributor.setWantedConnections(wish);
    pool.distributor.setMaxConnectionsMax(limit);
    const auto many = startMany(pool, tasks, "HOLD");
    QTRY_COMPARE(pool.server.holding(), connections);
    pool.server.release();
    QTRY_VERIFY(areAllSuccessful(many));
    QCOMPARE(pool.server.most(), connections);
    QCOMPARE(pool.server.logins(), connections);
}

void tst_NewsPool::aHigherLimitIsUsedAtOnce()
{
    NewsPool pool;
    const auto many = startMany(pool, 3, "HOLD");
    QTRY_COMPARE(pool.server.holding(), 1);
    pool.distributor.setWantedConnections(3);
    QTRY_COMPARE(pool.server.holding(), 3);
}

void tst_NewsPool::aLowerLimitEndsConnectionsThatAreGivenBack()
{
    NewsPool pool;
    pool.distributor.setWantedConnections(4);
    const auto many = startMany(pool, 4, "HOLD");
    QTRY_COMPARE(pool.server.holding(), 4);
    pool.distributor.setWantedConnections(1);
    QCOMPARE(pool.server.standing(), 4);
    pool.server.release();
    QTRY_VERIFY(areAllSuccessful(many));
    QTRY_COMPARE(pool.server.standing(), 1);
    const Started next(pool, "LIST");
    QTRY_VERIFY(next.isSuccessful());
    QCOMPARE(pool.server.logins(), 4);
}

void tst_NewsPool::oneConnectionServesOneTaskAfterTheOther()
{
    NewsPool pool;
    const auto many = startMany(pool, 3, "LIST ACTIVE");
    QTRY_VERIFY(areAllSuccessful(many));
    const Started later(pool, "LIST NEWSGROUPS");
    QTRY_VERIFY(later.isSuccessful());
    QCOMPARE(pool.server.logins(), 1);
    const QByteArrayList expected{"LIST ACTIVE", "LIST ACTIVE", "LIST ACTIVE", "LIST NEWSGROUPS"};
    QCOMPARE(pool.server.commands(), expected);
}

void tst_NewsPool::aTaskThatFailsLeavesTheConnectionToTheNext()
{
    NewsPool pool;
    const Started refused(pool, "XSECRET");
    const Started next(pool, "LIST");
    QTRY_VERIFY(next.isSuccessful());
    QVERIFY(refused.isFinished());
    QCOMPARE(refused.task->failure(), NntpFailure::Refused);
    QCOMPARE(refused.task->serverWords(), QStringLiteral("500 what?"));
    QCOMPARE(pool.server.logins(), 1);
}

void tst_NewsPool::anIdleConnectionEndsWithAGoodbye()
{
    NewsPool pool;
    const Started task(pool, "LIST");
    QTRY_VERIFY(task.isSuccessful());
    QCOMPARE(pool.server.standing(), 1);
    pool.distributor.setIdleTime(1ms);
    QTRY_COMPARE(pool.server.standing(), 0);
    const QByteArrayList expected{"LIST", "QUIT"};
    QCOMPARE(pool.server.commands(), expected);
    const Started later(pool, "LIST");
    QTRY_VERIFY(later.isSuccessful());
    QCOMPARE(pool.server.logins(), 2);
}

void tst_NewsPool::aConnectionThatDiedIdleIsReplaced()
{
    NewsPool pool;
    const Started first(pool, "LIST");
    QTRY_VERIFY(first.isSuccessful());
    pool.server.hangUp();
    const Started next(pool, "LIST");
    QTRY_VERIFY(next.isSuccessful());
    QCOMPARE(pool.server.logins(), 2);
}

void tst_NewsPool::aTaskFinishesOnceAndNeverBeforeStartReturns()
{
    NewsPool pool;
    const Started task(pool, "LIST");
    pool.distributor.start(task.task);
    QCOMPARE(task.finished->size(), 0);
    QVERIFY(!task.task->isSuccessful());
    const Started last(pool, "LIST");
    QTRY_VERIFY(last.isSuccessful());
    pool.distributor.start(task.task);
    const Started veryLast(pool, "LIST");
    QTRY_VERIFY(veryLast.isSuccessful());
    QCOMPARE(task.finished->size(), 1);
    QCOMPARE(pool.server.commands().size(), 3);
}

void tst_NewsPool::aSlotMayStartTheNextTask()
{
    NewsPool pool;
    const auto next = WorkTask::sending("LIST NEWSGROUPS");
    const QSignalSpy nextFinished(next.data(), &NntpTask::finished);
    const Started first(pool, "LIST ACTIVE");
    connect(first.task.data(), &NntpTask::finished, &pool.distributor,
            [&pool, &next] { pool.distributor.start(next); });
    QTRY_COMPARE(nextFinished.size(), 1);
    QVERIFY(next->isSuccessful());
}

void tst_NewsPool::withoutAnAccountATaskFinishesUnsuccessfully_data()
{
    QTest::addColumn<bool>("isOpen");
    QTest::addColumn<bool>("isNameless");
    QTest::newRow("logged out") << false << false;
    QTest::newRow("no hosts") << true << false;
    QTest::newRow("no name") << true << true;
}

void tst_NewsPool::withoutAnAccountATaskFinishesUnsuccessfully()
{
    QFETCH(bool, isOpen);
    QFETCH(bool, isNameless);
    NewsPool pool;
    if (!isOpen)
        pool.distributor.close();
    else if (isNameless)
        pool.account.user.clear();
    else
        pool.account.hosts.clear();
    const Started task(pool, "LIST");
    QCOMPARE(task.finished->size(), 0);
    QTRY_VERIFY(task.isFinished());
    QCOMPARE(task.task->failure(), NntpFailure::NoAccount);
    QCOMPARE(pool.server.logins(), 0);
}

void tst_NewsPool::theFailureSaysWhatWasTheMatter_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<NntpFailure>("failure");
    QTest::addColumn<QString>("words");
    QTest::newRow("login") << QByteArray("AUTHINFO PASS wonderland") << QByteArray("481 pay first\r\n")
                           << NntpFailure::Refused << QStringLiteral("481 pay first");
    QTest::newRow("command") << QByteArray("LIST") << QByteArray("503 not today\r\n") << NntpFailure::Refused
                             << QStringLiteral("503 not today");
    QTest::newRow("withdrawal") << QByteArray("LIST") << QByteArray("400 too many connections\r\n")
                                << NntpFailure::Refused << QStringLiteral("400 too many connections");
    QTest::newRow("no protocol") << QByteArray("LIST") << QByteArray("certainly\r\n") << NntpFailure::Broken
                                 << QString();
    QTest::newRow("task") << QByteArray() << QByteArray() << NntpFailure::Broken << QString();
}

void tst_NewsPool::theFailureSaysWhatWasTheMatter()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, reply);
    QFETCH(NntpFailure, failure);
    QFETCH(QString, words);
    NewsPool pool([command, reply](const QByteArray &heard) { return heard == command ? reply : ""; });
    const auto fail = [](NntpSession &, WorkTask &) { return false; };
    const Started task(pool, command.isEmpty() ? WorkTask::doing(fail) : WorkTask::sending("LIST"));
    QTRY_VERIFY(task.isFinished());
    QVERIFY(!task.task->isSuccessful());
    QCOMPARE(task.task->failure(), failure);
    QCOMPARE(task.task->serverWords(), words);

    const LoopbackPort nobody;
    pool.account.hosts = {NntpHost(QStringLiteral("127.0.0.1"), nobody.port(), false)};
    const Started unreachable(pool, "LIST");
    QTRY_VERIFY(unreachable.isFinished());
    QCOMPARE(unreachable.task->failure(), NntpFailure::Unreachable);
}

void tst_NewsPool::progressIsToldOnceForManyCalls()
{
    NewsPool pool;
    const Started task(pool, WorkTask::doing([](NntpSession &session, WorkTask &self) {
                           for (int i = 0; i < 1000; ++i)
                               self.tell();
                           return session.lines("HOLD", 215, [](const char *, int) { return true; });
                       }));
    // Nothing is delivered meanwhile.
    const QDeadlineTimer watchdog(20s);
    while (pool.server.holding() == 0 && !watchdog.hasExpired())
        QThread::yieldCurrentThread();
    QTRY_COMPARE(task.progressed->size(), 1);
    pool.server.release();
    QTRY_VERIFY(task.isSuccessful());
    QCOMPARE(task.progressed->size(), 1);
}

void tst_NewsPool::aTaskThatNobodyKeepsEndsOnTheGuiThread()
{
    NewsPool pool;
    for (int i = 0; i < 50; ++i)
        pool.distributor.start(WorkTask::sending("LIST"));
    const Started last(pool, "LIST");
    QTRY_VERIFY(last.isSuccessful());
    QCOMPARE(WorkTask::endedElsewhere(), 0);
}

QTEST_GUILESS_MAIN(tst_NewsPool)
#include "tst_newspool.moc"
