// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "requestqueue.h"

#include <QDomElement>
#include <QtTest>

using Kind = RequestFailure::Kind;
using Jobs = RequestQueue::Jobs;

/// The moments between two threads that no test of the whole can hit for certain, one thread playing both.
class RequestQueueTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void anInterruptionOfAnEarlierTurnIsVoid();
    void aRequestThatWasPutBackHasAnotherTurn();
    void anInterruptionAfterTheEndIsVoid();
    void anInterruptionWhileARequestIsAskedEndsIt();
    void whatEndsAfterTheQueueWasClosedIsUnsuccessful();
    void whatIsPutBackAfterTheQueueWasClosedIsUnsuccessful();
    void whatEndedBeforeALogoutIsUnsuccessfulToo();
    void aDeadlineAfterALogoutIsVoid();
    void aChangeOfTheAccountEndsAllButLogins();
    void aCancelledLoginEndsLoginsOnly();
    void aRequestMayFinishWithoutAWorker();
    void aJobKeepsTheSituationInWhichItWasTaken();
    void theDocumentOfAReplyIsFreedByTheWorkerBeforeItTakesAnotherJob();
    void aDocumentThatComesAfterTheEndIsFreedToo();

private:
    static QSharedPointer<HRequest> request();
    static QSharedPointer<HRequest> login();
    /// A request and a login that have finished, one of them in hand, and both again that wait.
    static Jobs fill(RequestQueue &queue, bool isLoginInHand);
    /// Ends those of @p which; true when the worker is to be interrupted, too.
    static bool abandon(RequestQueue &queue, WhichRequests which);
    /// In the order of the outbox, "login" or "request", and whether it was successful.
    static QStringList finished(RequestQueue &queue);
    /// Makes the queue such that take() does not wait.
    static Jobs taken(RequestQueue &queue);
    static bool interrupt(RequestQueue &queue, quint64 turn);
    /// A delivered job, whose request is gone, and a handle to its reply.
    static Jobs withReply(QDomElement &element);
};

QSharedPointer<HRequest> RequestQueueTest::request()
{
    return QSharedPointer<HRequest>(new HRequest(nullptr));
}

QSharedPointer<HRequest> RequestQueueTest::login()
{
    class Login final : public HRequest {
    public:
        using HRequest::HRequest;
        bool isLoginRequest() const override { return true; }
    };
    return QSharedPointer<HRequest>(new Login(nullptr));
}

Jobs RequestQueueTest::fill(RequestQueue &queue, bool isLoginInHand)
{
    for (const auto &finished : {request(), login()}) {
        queue.append(finished);
        Jobs job = queue.take();
        const quint64 turn = job.front().turn;
        queue.finish(job);
        queue.goOn(turn);
    }
    queue.append(isLoginInHand ? login() : request());
    Jobs inHand = queue.take();
    queue.append(request());
    queue.append(login());
    return inHand;
}

bool RequestQueueTest::abandon(RequestQueue &queue, WhichRequests which)
{
    bool wasInterrupted = false;
    queue.abandon(which, Kind::LoggedOut, [&wasInterrupted] { wasInterrupted = true; });
    return wasInterrupted;
}

QStringList RequestQueueTest::finished(RequestQueue &queue)
{
    QStringList found;
    while (true) {
        const Jobs job = queue.takeFinished();
        if (job.empty())
            return found;
        const HRequest &request = *job.front().request;
        found.append((request.isLoginRequest() ? QStringLiteral("login ") : QStringLiteral("request ")) +
                     (request.isSuccessful() ? QStringLiteral("good") : QStringLiteral("ended")));
    }
}

Jobs RequestQueueTest::withReply(QDomElement &element)
{
    Jobs jobs(1);
    jobs.front().reply.setContent(QByteArray("<reply><status/></reply>"));
    element = jobs.front().reply.documentElement();
    return jobs;
}

Jobs RequestQueueTest::taken(RequestQueue &queue)
{
    queue.append(request());
    return queue.take();
}

bool RequestQueueTest::interrupt(RequestQueue &queue, quint64 turn)
{
    bool wasCalled = false;
    queue.interrupt(turn, Kind::TimedOut, [&wasCalled] { wasCalled = true; });
    return wasCalled;
}

void RequestQueueTest::anInterruptionOfAnEarlierTurnIsVoid()
{
    RequestQueue queue;
    Jobs first = taken(queue);
    const quint64 turn = queue.current().turn;
    QVERIFY(queue.finish(first));
    queue.goOn(turn);
    Jobs second = taken(queue);
    QVERIFY(!interrupt(queue, turn));
    QVERIFY(queue.finish(second));
    QVERIFY(queue.takeFinished().front().request->isSuccessful());
    QVERIFY(queue.takeFinished().front().request->isSuccessful());
    QVERIFY(queue.takeFinished().empty());
}

void RequestQueueTest::aRequestThatWasPutBackHasAnotherTurn()
{
    RequestQueue queue;
    Jobs job = taken(queue);
    const RequestQueue::Current before = queue.current();
    QVERIFY(queue.putBack(job));
    QCOMPARE(queue.current().turn, quint64(0));
    queue.setSituation({});
    job = queue.take();
    QVERIFY(queue.current().turn != before.turn);
    QVERIFY(queue.current().deadline >= before.deadline);
    QVERIFY(!interrupt(queue, before.turn));
    QVERIFY(queue.finish(job));
}

void RequestQueueTest::anInterruptionAfterTheEndIsVoid()
{
    RequestQueue queue;
    Jobs job = taken(queue);
    const quint64 turn = queue.current().turn;
    QVERIFY(queue.finish(job));
    QVERIFY(!interrupt(queue, turn));
    QVERIFY(!interrupt(queue, 0));
    QVERIFY(queue.takeFinished().front().request->isSuccessful());
}

void RequestQueueTest::anInterruptionWhileARequestIsAskedEndsIt()
{
    RequestQueue queue;
    Jobs job = taken(queue);
    QVERIFY(interrupt(queue, queue.current().turn));
    QVERIFY(!queue.putBack(job)); // the worker has to end
    QCOMPARE(queue.takeFinished().front().request->failure().kind(), Kind::TimedOut);
}

void RequestQueueTest::whatEndsAfterTheQueueWasClosedIsUnsuccessful()
{
    RequestQueue queue;
    Jobs job = taken(queue);
    queue.close();
    QCOMPARE(queue.finishedCount(), std::size_t(0));
    QVERIFY(queue.finish(job));
    QCOMPARE(queue.takeFinished().front().request->failure().kind(), Kind::ShuttingDown);
    QVERIFY(queue.take().empty());
}

void RequestQueueTest::whatIsPutBackAfterTheQueueWasClosedIsUnsuccessful()
{
    RequestQueue queue;
    Jobs job = taken(queue);
    queue.close();
    queue.putBack(job);
    QCOMPARE(queue.takeFinished().front().request->failure().kind(), Kind::ShuttingDown);
    QVERIFY(queue.take().empty());
}

void RequestQueueTest::whatEndedBeforeALogoutIsUnsuccessfulToo()
{
    RequestQueue queue;
    Jobs job = taken(queue);
    QVERIFY(queue.finish(job));
    queue.append(request());
    QVERIFY(!abandon(queue, WhichRequests::All)); // nothing was in hand
    QCOMPARE(queue.finishedCount(), std::size_t(2));
    for (int i = 0; i < 2; ++i)
        QCOMPARE(queue.takeFinished().front().request->failure().kind(), Kind::LoggedOut);
}

void RequestQueueTest::aDeadlineAfterALogoutIsVoid()
{
    RequestQueue queue;
    Jobs job = taken(queue);
    QVERIFY(abandon(queue, WhichRequests::All));
    QVERIFY(!interrupt(queue, queue.current().turn));
    QVERIFY(!queue.finish(job));
    QCOMPARE(queue.takeFinished().front().request->failure().kind(), Kind::LoggedOut);
}

void RequestQueueTest::aChangeOfTheAccountEndsAllButLogins()
{
    RequestQueue queue;
    Jobs inHand = fill(queue, false);
    QVERIFY(abandon(queue, WhichRequests::AllButLogins));
    QVERIFY(!queue.finish(inHand)); // the worker has to end
    const QStringList expected = {QStringLiteral("request ended"), QStringLiteral("login good"),
                                  QStringLiteral("request ended"), QStringLiteral("request ended")};
    QCOMPARE(finished(queue), expected);

    RequestQueue other;
    inHand = fill(other, true);
    QVERIFY(!abandon(other, WhichRequests::AllButLogins));
    QVERIFY(other.finish(inHand));
    QCOMPARE(other.takeFinished(WhichRequests::Logins).front().request->isSuccessful(), true);
    QCOMPARE(finished(other).last(), QStringLiteral("login good"));
}

void RequestQueueTest::aCancelledLoginEndsLoginsOnly()
{
    RequestQueue queue;
    Jobs inHand = fill(queue, false);
    QVERIFY(!abandon(queue, WhichRequests::Logins));
    QVERIFY(queue.finish(inHand));
    const QStringList expected = {QStringLiteral("request good"), QStringLiteral("login ended"),
                                  QStringLiteral("login ended"), QStringLiteral("request good")};
    QCOMPARE(finished(queue), expected);

    RequestQueue other;
    inHand = fill(other, true);
    QVERIFY(abandon(other, WhichRequests::Logins));
    QVERIFY(!other.finish(inHand));
    QCOMPARE(finished(other).last(), QStringLiteral("login ended"));
}

void RequestQueueTest::aRequestMayFinishWithoutAWorker()
{
    RequestQueue queue;
    queue.addFinished(request(), Kind::LoggedOut);
    QCOMPARE(queue.takeFinished().front().request->failure().kind(), Kind::LoggedOut);
    queue.close();
    queue.addFinished(request(), Kind::LoggedOut);
    QCOMPARE(queue.takeFinished().front().request->failure().kind(), Kind::ShuttingDown);
}

void RequestQueueTest::aJobKeepsTheSituationInWhichItWasTaken()
{
    RequestQueue queue;
    ServerSituation situation;
    situation.session = QStringLiteral("first");
    queue.setSituation(situation);
    Jobs job = taken(queue);
    situation.session = QStringLiteral("second");
    queue.setSituation(situation);
    QCOMPARE(job.front().situation.session, QStringLiteral("first"));
    QVERIFY(queue.finish(job));
    QCOMPARE(queue.takeFinished().front().situation.session, QStringLiteral("first"));
}

// A handle shows whether its document is there still; no request may keep one for as long.
void RequestQueueTest::theDocumentOfAReplyIsFreedByTheWorkerBeforeItTakesAnotherJob()
{
    RequestQueue queue;
    QDomElement element;
    Jobs spent = withReply(element);
    queue.giveBack(spent);
    QVERIFY(spent.empty());
    QVERIFY(!element.parentNode().isNull());
    Jobs job = taken(queue);
    QVERIFY(element.parentNode().isNull());
    QVERIFY(!job.front().request.isNull());
    QVERIFY(queue.finish(job));
}

void RequestQueueTest::aDocumentThatComesAfterTheEndIsFreedToo()
{
    QDomElement element;
    {
        RequestQueue queue;
        queue.close();
        QVERIFY(queue.take().empty());
        Jobs spent = withReply(element);
        queue.giveBack(spent);
        QVERIFY(!element.parentNode().isNull());
    }
    QVERIFY(element.parentNode().isNull());
}

QTEST_GUILESS_MAIN(RequestQueueTest)
#include "tst_requestqueue.moc"
