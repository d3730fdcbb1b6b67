// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "journal.h"
#include "recordingrequest.h"
#include "serviceaccount.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>
#include <halvora/hserveraddressrotator.h>

#include <QSemaphore>
#include <QtTest>

using Kind = RequestFailure::Kind;
using RequestPointer = QSharedPointer<RecordingRequest>;

class HServerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void operationsRunInOrderOnTheWorkerAndDeliveryOnTheGuiThread();
    void theReplysOwnElementIsHandedOver();
    void theReplyLivesAsLongAsItsRequestAndIsFreedOnTheWorker();
    void aRequestAtTheFrontOvertakesThoseThatWait();
    void aRequestThatMayNotGoKeepsItsPlaceAndHoldsNobodyUp();
    void aRequestThatWasAskedInVainStaysBeforeThoseBehindIt();
    void theFlagsSayWhatTheServerHas_data();
    void theFlagsSayWhatTheServerHas();
    void aRefusedPreparationTellsTheNewsServersLine();
    void aRequestIsTakenOnceHoweverOftenItIsHandedOver();
    void aFinishedRequestMayAddTheNextOne();
    void anEventLoopInsideASlotDeliversWhatFollowsInOrder();
    void theNextRequestWaitsForTheConclusionsFromTheOneBefore();
    void theLastReferenceGoesOnTheGuiThread();

private:
    RequestPointer make(const QString &name);
    RequestPointer makeEager(const QString &name);
    /// A request whose preparation waits for m_gate.
    RequestPointer makeGate(const QString &name);

    std::unique_ptr<ServiceAccount> m_account;
    std::unique_ptr<Journal> m_journal;
    std::unique_ptr<QSemaphore> m_gate;
};

void HServerTest::init()
{
    m_journal = std::make_unique<Journal>();
    m_gate = std::make_unique<QSemaphore>();
    m_account = std::make_unique<ServiceAccount>();
    QCOMPARE(m_account->problem(), QString());
}

void HServerTest::cleanup()
{
    m_gate->release(100);
    m_account.reset();
    QVERIFY(!RecordingRequest::wasDestroyedElsewhere());
}

RequestPointer HServerTest::make(const QString &name)
{
    return RequestPointer(new RecordingRequest(&m_account->connector(), name, m_journal.get()));
}

RequestPointer HServerTest::makeEager(const QString &name)
{
    return RecordingRequest::eager(&m_account->connector(), name, m_journal.get());
}

RequestPointer HServerTest::makeGate(const QString &name)
{
    const RequestPointer request = makeEager(name);
    request->onPrepare = [gate = m_gate.get()] {
        gate->acquire();
        return true;
    };
    return request;
}

void HServerTest::operationsRunInOrderOnTheWorkerAndDeliveryOnTheGuiThread()
{
    QVERIFY(m_account->logIn());
    const RequestPointer request = make(QStringLiteral("one"));
    m_account->server().addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);

    QVERIFY(request->isSuccessful());
    QVERIFY(request->failure().isNull());
    const QStringList expected = {QStringLiteral("one prepare"), QStringLiteral("one build"),
                                  QStringLiteral("one parse"), QStringLiteral("one deliver")};
    QCOMPARE(m_journal->lines(), expected);
    const Qt::HANDLE worker = m_journal->threads(QStringLiteral("prepare")).value(0);
    QVERIFY(worker != QThread::currentThreadId());
    QCOMPARE(m_journal->threads(QStringLiteral("build")).value(0), worker);
    QCOMPARE(m_journal->threads(QStringLiteral("parse")).value(0), worker);
    QCOMPARE(m_journal->threads(QStringLiteral("deliver")).value(0), QThread::currentThreadId());
}

void HServerTest::theReplysOwnElementIsHandedOver()
{
    QVERIFY(m_account->logIn());
    m_account->setFault(corvia::Fault::Kind::Body, 0,
                        "<reply version=\"1\"><anything kind=\"new\"><part/></anything><messages/></reply>");
    const RequestPointer request = make(QStringLiteral("one"));
    QDomElement reply;
    connect(request.data(), &HRequest::requestFinished, this, [&] { reply = request->reply(); });
    m_account->server().addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);

    QVERIFY(request->isSuccessful());
    QCOMPARE(reply.tagName(), QStringLiteral("anything"));
    QCOMPARE(reply.attribute(QStringLiteral("kind")), QStringLiteral("new"));
    QCOMPARE(reply.firstChildElement().tagName(), QStringLiteral("part"));
}

void HServerTest::theReplyLivesAsLongAsItsRequestAndIsFreedOnTheWorker()
{
    QVERIFY(m_account->logIn());
    HServer &server = m_account->server();
    RequestPointer request = make(QStringLiteral("one"));
    server.addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);
    const RequestPointer between = make(QStringLiteral("between"));
    server.addRequestToQueue(between);
    QTRY_COMPARE(between->deliveries(), 1);
    const QDomElement element = request->reply();
    QCOMPARE(element.parentNode().toElement().tagName(), QStringLiteral("reply"));

    // The worker waits while the last reference to the request goes.
    const RequestPointer gate = makeGate(QStringLiteral("gate"));
    server.addRequestToQueue(gate);
    QVERIFY(m_journal->waitFor(QStringLiteral("gate prepare")));
    request.reset();
    QVERIFY(!element.parentNode().isNull());
    m_gate->release();
    const RequestPointer next = make(QStringLiteral("next"));
    server.addRequestToQueue(next);
    QTRY_COMPARE(next->deliveries(), 1);
    QVERIFY(element.parentNode().isNull());
}

void HServerTest::aRequestAtTheFrontOvertakesThoseThatWait()
{
    HServer &server = m_account->server();
    server.addRequestToQueue(makeGate(QStringLiteral("gate")));
    QVERIFY(m_journal->waitFor(QStringLiteral("gate prepare")));
    server.addRequestToQueue(makeEager(QStringLiteral("back 1")));
    server.addRequestToQueue(makeEager(QStringLiteral("back 2")));
    server.prependRequestToQueue(makeEager(QStringLiteral("front 1")));
    server.prependRequestToQueue(makeEager(QStringLiteral("front 2")));
    m_gate->release();

    const QStringList expected = {QStringLiteral("gate deliver"), QStringLiteral("front 2 deliver"),
                                  QStringLiteral("front 1 deliver"), QStringLiteral("back 1 deliver"),
                                  QStringLiteral("back 2 deliver")};
    QTRY_COMPARE_WITH_TIMEOUT(m_journal->lines(QStringLiteral("deliver")), expected, 30'000);
}

void HServerTest::aRequestThatMayNotGoKeepsItsPlaceAndHoldsNobodyUp()
{
    HServer &server = m_account->server();
    const QString deliver = QStringLiteral("deliver");
    server.addRequestToQueue(make(QStringLiteral("denied 1")));
    server.addRequestToQueue(make(QStringLiteral("denied 2")));
    server.addRequestToQueue(makeEager(QStringLiteral("behind")));
    QTRY_COMPARE(m_journal->lines(deliver), QStringList(QStringLiteral("behind deliver")));

    QVERIFY(m_account->logIn());
    server.addRequestToQueue(make(QStringLiteral("later")));
    const QStringList expected = {QStringLiteral("behind deliver"), QStringLiteral("denied 1 deliver"),
                                  QStringLiteral("denied 2 deliver"), QStringLiteral("later deliver")};
    QTRY_COMPARE_WITH_TIMEOUT(m_journal->lines(deliver), expected, 30'000);
}

void HServerTest::aRequestThatWasAskedInVainStaysBeforeThoseBehindIt()
{
    HServer &server = m_account->server();
    server.addRequestToQueue(makeGate(QStringLiteral("gate 1")));
    QVERIFY(m_journal->waitFor(QStringLiteral("gate 1 prepare")));
    const auto mayGo = std::make_shared<std::atomic<bool>>(false);
    const RequestPointer asked = make(QStringLiteral("asked"));
    asked->onAllowed = [mayGo](bool, bool) { return mayGo->load(); };
    server.addRequestToQueue(asked);
    server.addRequestToQueue(makeGate(QStringLiteral("gate 2")));
    server.addRequestToQueue(makeEager(QStringLiteral("behind")));
    m_gate->release();
    QTRY_COMPARE(m_journal->count(QStringLiteral("gate 2 prepare")), 1);
    *mayGo = true;
    m_gate->release();

    const QStringList expected = {QStringLiteral("gate 1 deliver"), QStringLiteral("gate 2 deliver"),
                                  QStringLiteral("asked deliver"), QStringLiteral("behind deliver")};
    QTRY_COMPARE_WITH_TIMEOUT(m_journal->lines(QStringLiteral("deliver")), expected, 30'000);
}

void HServerTest::theFlagsSayWhatTheServerHas_data()
{
    QTest::addColumn<bool>("hasAddress");
    QTest::addColumn<bool>("hasAccount");
    QTest::addColumn<bool>("isLoggedIn");
    QTest::addColumn<int>("flags"); // 1: ready, 2: connected
    QTest::newRow("nothing") << false << false << false << 0;
    QTest::newRow("no address") << false << true << false << 0;
    QTest::newRow("no account") << true << false << false << 0;
    QTest::newRow("ready") << true << true << false << 1;
    QTest::newRow("connected") << true << true << true << 3;
    QTest::newRow("connected, address gone") << false << true << true << 2;
}

void HServerTest::theFlagsSayWhatTheServerHas()
{
    QFETCH(bool, hasAddress);
    QFETCH(bool, hasAccount);
    QFETCH(bool, isLoggedIn);
    HServer &server = m_account->server();
    if (!hasAddress)
        server.setAddressRotator(nullptr);
    server.setAccountKnown(hasAccount);
    if (isLoggedIn)
        server.logIn(QStringLiteral("word"));

    const auto flags = std::make_shared<std::atomic<int>>(-1);
    const RequestPointer request = make(QStringLiteral("one"));
    request->onAllowed = [flags](bool ready, bool connected) {
        *flags = (ready ? 1 : 0) + (connected ? 2 : 0);
        return false;
    };
    server.addRequestToQueue(request);
    QTRY_VERIFY(*flags >= 0);
    QTEST(flags->load(), "flags");
    QCOMPARE(request->deliveries(), 0);
}

void HServerTest::aRefusedPreparationTellsTheNewsServersLine()
{
    HServer &server = m_account->server();
    Core *core = &m_account->core();
    const RequestPointer refused = makeEager(QStringLiteral("refused"));
    refused->onPrepare = [core] {
        core->setNewsServerReply(QStringLiteral("481 Wrong password"));
        return false;
    };
    const RequestPointer silent = makeEager(QStringLiteral("silent"));
    silent->onPrepare = [] { return false; };
    server.addRequestToQueue(refused);
    server.addRequestToQueue(silent);
    QTRY_COMPARE(silent->deliveries(), 1);

    QVERIFY(!refused->isSuccessful());
    QCOMPARE(refused->failure().kind(), Kind::CredentialsTest);
    QCOMPARE(refused->failure().detail(), QStringLiteral("481 Wrong password"));
    QCOMPARE(silent->failure().kind(), Kind::CredentialsTest);
    QCOMPARE(silent->failure().detail(), QString());
    QCOMPARE(m_account->requestCount(), 0);
    QCOMPARE(m_journal->lines(QStringLiteral("build")), QStringList());
}

void HServerTest::aRequestIsTakenOnceHoweverOftenItIsHandedOver()
{
    HServer &server = m_account->server();
    const RequestPointer request = makeEager(QStringLiteral("one"));
    server.addRequestToQueue({});
    server.addRequestToQueue(request);
    server.addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);
    server.prependRequestToQueue(request);
    const RequestPointer last = makeEager(QStringLiteral("last"));
    server.addRequestToQueue(last);
    QTRY_COMPARE(last->deliveries(), 1);
    QCOMPARE(request->deliveries(), 1);
    QCOMPARE(m_account->requestCount(), 2);
}

void HServerTest::aFinishedRequestMayAddTheNextOne()
{
    HServer &server = m_account->server();
    const RequestPointer first = makeEager(QStringLiteral("first"));
    const RequestPointer back = makeEager(QStringLiteral("back"));
    const RequestPointer front = makeEager(QStringLiteral("front"));
    connect(first.data(), &HRequest::requestFinished, this, [&] {
        server.addRequestToQueue(back);
        server.prependRequestToQueue(front);
    });
    server.addRequestToQueue(first);
    QTRY_COMPARE(back->deliveries() + front->deliveries(), 2);
}

void HServerTest::anEventLoopInsideASlotDeliversWhatFollowsInOrder()
{
    HServer &server = m_account->server();
    const RequestPointer first = makeEager(QStringLiteral("first"));
    const RequestPointer second = makeEager(QStringLiteral("second"));
    const RequestPointer third = makeEager(QStringLiteral("third"));
    QEventLoop loop;
    connect(third.data(), &HRequest::requestFinished, &loop, &QEventLoop::quit);
    connect(first.data(), &HRequest::requestFinished, this, [&] {
        m_journal->waitFor(QStringLiteral("second prepare"));
        loop.exec();
    });
    for (const RequestPointer &request : {first, second, third})
        server.addRequestToQueue(request);
    const QStringList expected = {QStringLiteral("first deliver"), QStringLiteral("second deliver"),
                                  QStringLiteral("third deliver")};
    QTRY_COMPARE_WITH_TIMEOUT(m_journal->lines(QStringLiteral("deliver")), expected, 30'000);
}

// Otherwise a second request that waits would go to the address that just failed, too.
void HServerTest::theNextRequestWaitsForTheConclusionsFromTheOneBefore()
{
    HServer &server = m_account->server();
    const QList<HServerAddress> addresses = {ServiceAccount::deadAddress(), m_account->address()};
    server.setAddressRotator(std::make_unique<HServerAddressRotator>(QStringLiteral("test"), addresses));
    const RequestPointer first = makeEager(QStringLiteral("first"));
    const RequestPointer second = makeEager(QStringLiteral("second"));
    server.addRequestToQueue(first);
    server.addRequestToQueue(second);
    QVERIFY(m_journal->waitFor(QStringLiteral("first build")));
    QVERIFY(!m_journal->waitFor(QStringLiteral("second prepare"), 300));

    QTRY_COMPARE(second->deliveries(), 1);
    QCOMPARE(first->failure().kind(), Kind::Unreachable);
    QCOMPARE(second->failure().kind(), Kind::Refused); // it had no session
    QCOMPARE(m_account->requestCount(), 1);
}

void HServerTest::theLastReferenceGoesOnTheGuiThread()
{
    HServer &server = m_account->server();
    for (int i = 0; i < 20; ++i)
        server.addRequestToQueue(makeEager(QString::number(i)));
    QTRY_COMPARE_WITH_TIMEOUT(m_journal->lines(QStringLiteral("deliver")).size(), 20, 30'000);
    QVERIFY(!RecordingRequest::wasDestroyedElsewhere());
}

QTEST_MAIN(HServerTest)
#include "tst_hserver.moc"
