// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "journal.h"
#include "recordingrequest.h"
#include "serviceaccount.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>

#include <QSemaphore>
#include <QtTest>

using Fault = corvia::Fault::Kind;
using Kind = RequestFailure::Kind;
using RequestPointer = QSharedPointer<RecordingRequest>;

namespace {

constexpr int longestQuitting = 3000; // milliseconds, of which the worker has two seconds

}

class HServerShutdownTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void everythingIsDeliveredOnceWithoutSuccess_data();
    void everythingIsDeliveredOnceWithoutSuccess();
    void aRequestThatComesLaterIsDeliveredToo();
    void aSlotThatAlwaysAsksAgainHoldsNobodyUp();
    void quittingIsQuickAtAnyMoment();
    void destroyingTheProviderEndsTheWorker();
    void aConnectorThatGoesEndsItsWorkerFirst();
    void aWorkerThatDoesNotListenIsLeftAlone();
    void theStateIsDisconnectedAtTheEnd();

private:
    RequestPointer make(const QString &name);

    std::unique_ptr<ServiceAccount> m_account;
    std::unique_ptr<Journal> m_journal;
};

void HServerShutdownTest::init()
{
    m_journal = std::make_unique<Journal>();
    m_account = std::make_unique<ServiceAccount>();
    QCOMPARE(m_account->problem(), QString());
}

void HServerShutdownTest::cleanup()
{
    m_account.reset();
    QVERIFY(!RecordingRequest::wasDestroyedElsewhere());
}

RequestPointer HServerShutdownTest::make(const QString &name)
{
    return RecordingRequest::eager(&m_account->connector(), name, m_journal.get());
}

void HServerShutdownTest::everythingIsDeliveredOnceWithoutSuccess_data()
{
    QTest::addColumn<QString>("reached"); // how far the worker has come
    QTest::newRow("preparing") << "one prepare";
    QTest::newRow("exchanging") << "one build";
    QTest::newRow("parsing") << "one parse";
}

void HServerShutdownTest::everythingIsDeliveredOnceWithoutSuccess()
{
    QFETCH(QString, reached);
    HServer &server = m_account->server();
    const auto wait = [] {
        while (!QThread::currentThread()->isInterruptionRequested())
            QThread::msleep(1);
        return true;
    };
    const RequestPointer running = make(QStringLiteral("one"));
    if (reached == QLatin1String("one prepare"))
        running->onPrepare = wait;
    else if (reached == QLatin1String("one parse"))
        running->onParse = wait;
    const RequestPointer waiting = make(QStringLiteral("two"));
    const RequestPointer denied = make(QStringLiteral("three"));
    denied->onAllowed = [](bool, bool) { return false; };
    const RequestPointer addedInSlot = make(QStringLiteral("four"));
    connect(waiting.data(), &HRequest::requestFinished, this, [&] { server.addRequestToQueue(addedInSlot); });
    QVERIFY(m_account->logIn());
    if (reached == QLatin1String("one build"))
        m_account->setFault(Fault::Stall);
    for (const RequestPointer &request : {running, waiting, denied})
        server.addRequestToQueue(request);
    QVERIFY(m_journal->waitFor(reached));

    QElapsedTimer quitting;
    quitting.start();
    QVERIFY(server.shutDown());
    QVERIFY(quitting.elapsed() < longestQuitting);
    for (const RequestPointer &request : {running, waiting, denied, addedInSlot}) {
        QCOMPARE(request->deliveries(), 1);
        QVERIFY(!request->isSuccessful());
        QCOMPARE(request->failure().kind(), Kind::ShuttingDown);
    }
    QVERIFY(!m_account->core().isRunning());
}

void HServerShutdownTest::aRequestThatComesLaterIsDeliveredToo()
{
    HServer &server = m_account->server();
    QVERIFY(server.shutDown());
    const RequestPointer back = make(QStringLiteral("back"));
    const RequestPointer front = make(QStringLiteral("front"));
    front->isLogin = true;
    server.addRequestToQueue(back);
    server.prependRequestToQueue(front);
    QCOMPARE(back->deliveries(), 0); // never inside the call that adds it
    QTRY_COMPARE(back->deliveries() + front->deliveries(), 2);
    QCOMPARE(back->failure().kind(), Kind::ShuttingDown);
    QCOMPARE(server.connectorState(), HServer::Disconnected);

    const RequestPointer last = make(QStringLiteral("last"));
    server.addRequestToQueue(last);
    m_account->releasePlugin();
    QCOMPARE(last->deliveries(), 1);
    QCOMPARE(m_journal->lines(QStringLiteral("prepare")), QStringList());
}

void HServerShutdownTest::aSlotThatAlwaysAsksAgainHoldsNobodyUp()
{
    HServer &server = m_account->server();
    m_account->connector().setAccount(QString(), QString()); // nothing is sent, everything waits
    int asked = 0;
    const std::function<void()> ask = [&, connector = &m_account->connector()] {
        ++asked;
        const auto request = RecordingRequest::eager(connector, QString::number(asked), m_journal.get());
        connect(request.data(), &HRequest::requestFinished, &server, ask);
        server.addRequestToQueue(request);
    };
    ask();
    QVERIFY(server.shutDown());
    QVERIFY(asked > 1);
    m_account.reset();
}

void HServerShutdownTest::quittingIsQuickAtAnyMoment()
{
    qint64 longest = 0;
    for (int i = 0; i < 40; ++i) {
        m_account->restart();
        QVector<RequestPointer> requests;
        for (int number = 0; number < 4; ++number) {
            requests.append(make(QString::number(number)));
            m_account->server().addRequestToQueue(requests.last());
        }
        QTest::qWait(i);
        QElapsedTimer quitting;
        quitting.start();
        QVERIFY(m_account->server().shutDown());
        longest = qMax(longest, quitting.elapsed());
        for (const RequestPointer &request : qAsConst(requests))
            QCOMPARE(request->deliveries(), 1);
    }
    qInfo("longest shutdown: %lld ms", static_cast<long long>(longest));
    QVERIFY(longest < longestQuitting);
}

void HServerShutdownTest::destroyingTheProviderEndsTheWorker()
{
    m_account->setFault(Fault::Stall);
    const RequestPointer running = make(QStringLiteral("running"));
    running->onBuild = [connector = &m_account->connector()] { (void)connector->password(); };
    const RequestPointer waiting = make(QStringLiteral("waiting"));
    m_account->server().addRequestToQueue(running);
    m_account->server().addRequestToQueue(waiting);
    QVERIFY(m_journal->waitFor(QStringLiteral("running prepare")));
    m_account->releasePlugin();
    QCOMPARE(running->deliveries(), 1);
    QCOMPARE(waiting->deliveries(), 1);
}

// What a connector holds goes before its children, and one of them is the server.
void HServerShutdownTest::aConnectorThatGoesEndsItsWorkerFirst()
{
    auto connector = std::make_unique<Connector>(&m_account->core(), &m_account->plugin());
    connector->setAccount(QString::fromLatin1("demo"), QString::fromLatin1("pinegate")); // freed in time
    const auto reading = RecordingRequest::eager(connector.get(), QStringLiteral("reading"), m_journal.get());
    const auto misread = std::make_shared<std::atomic<int>>(0);
    reading->onAllowed = [](bool, bool) { return true; };
    reading->onPrepare = [misread, from = connector.get()] {
        while (!QThread::currentThread()->isInterruptionRequested())
            QThread::msleep(1);
        for (int i = 0; i < 100; ++i) // the worker may take its time
            *misread += from->password() == QLatin1String("pinegate") ? 0 : 1;
        return true;
    };
    connector->server()->addRequestToQueue(reading);
    QVERIFY(m_journal->waitFor(QStringLiteral("reading prepare")));
    connector.reset();
    QCOMPARE(reading->deliveries(), 1);
    QCOMPARE(misread->load(), 0);
}

void HServerShutdownTest::aWorkerThatDoesNotListenIsLeftAlone()
{
    HServer &server = m_account->server();
    QSemaphore gate;
    const RequestPointer deaf = make(QStringLiteral("deaf"));
    deaf->onPrepare = [&gate] {
        gate.acquire();
        return true;
    };
    const RequestPointer waiting = make(QStringLiteral("waiting"));
    server.addRequestToQueue(deaf);
    server.addRequestToQueue(waiting);
    QVERIFY(m_journal->waitFor(QStringLiteral("deaf prepare")));

    QElapsedTimer quitting;
    quitting.start();
    QVERIFY(!server.shutDown());
    QVERIFY(quitting.elapsed() < longestQuitting);
    QCOMPARE(waiting->deliveries(), 1);
    QCOMPARE(deaf->deliveries(), 0);

    gate.release();
    QVERIFY(server.shutDown());
    QCOMPARE(deaf->deliveries(), 1);
    QCOMPARE(deaf->failure().kind(), Kind::ShuttingDown);
    QCOMPARE(m_account->requestCount(), 0);
}

void HServerShutdownTest::theStateIsDisconnectedAtTheEnd()
{
    QVERIFY(m_account->logIn());
    QSignalSpy states(&m_account->server(), &HServer::stateChanged);
    QVERIFY(m_account->server().shutDown());
    QVERIFY(m_account->server().shutDown());
    QCOMPARE(states.size(), 1);
    QCOMPARE(m_account->server().connectorState(), HServer::Disconnected);
    QVERIFY(!m_account->connector().isLoginAvailable());
}

QTEST_MAIN(HServerShutdownTest)
#include "tst_hserver_shutdown.moc"
