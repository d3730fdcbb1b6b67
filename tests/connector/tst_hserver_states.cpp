// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "journal.h"
#include "recordingrequest.h"
#include "serviceaccount.h"
#include "testlogin.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>
#include <halvora/hserveraddressrotator.h>

#include <QSemaphore>
#include <QtTest>

Q_DECLARE_METATYPE(corvia::Fault::Kind)

using Fault = corvia::Fault::Kind;
using Kind = RequestFailure::Kind;
using RequestPointer = QSharedPointer<RecordingRequest>;

/// What a server says about itself, in order.
class HServerStatesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aLoginConnectsAndRequestsLeaveThatAlone();
    void aLoginThatFailsEndsTheAttempt_data();
    void aLoginThatFailsEndsTheAttempt();
    void aFurtherLoginThatIsRefusedLeavesTheServerConnected();
    void aRequestThatFindsNoServiceLosesIt();
    void aBadReplyIsNoLoss();
    void aRefusedSessionIsToldOnceAndNeedsALogin();
    void aRefusalOfAnOldSessionLeavesTheNewLoginAlone();
    void onlyAFailureOfTheServiceMovesToTheNextAddress_data();
    void onlyAFailureOfTheServiceMovesToTheNextAddress();
    void aLoginReplyWithoutASessionIsABadReply();
    void failuresAreToldAfterTheRequestItself();

private:
    RequestPointer make(const QString &name);
    QSharedPointer<TestLogin> sendLogin();

    std::unique_ptr<ServiceAccount> m_account;
    std::unique_ptr<Journal> m_journal;
    QVector<HServer::State> m_states;
    int m_sessionsRefused = 0;
};

void HServerStatesTest::init()
{
    m_journal = std::make_unique<Journal>();
    m_account = std::make_unique<ServiceAccount>();
    m_states.clear();
    m_sessionsRefused = 0;
    const HServer *server = &m_account->server();
    connect(server, &HServer::stateChanged, this, [this, server](HServer::State state) {
        QCOMPARE(server->connectorState(), state);
        m_states.append(state);
    });
    connect(server, &HServer::sessionRefused, this, [this] { ++m_sessionsRefused; });
    QCOMPARE(m_account->problem(), QString());
}

void HServerStatesTest::cleanup()
{
    m_account.reset();
    QVERIFY(!RecordingRequest::wasDestroyedElsewhere());
}

RequestPointer HServerStatesTest::make(const QString &name)
{
    return RequestPointer(new RecordingRequest(&m_account->connector(), name, m_journal.get()));
}

QSharedPointer<TestLogin> HServerStatesTest::sendLogin()
{
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    m_account->server().prependRequestToQueue(login);
    finished.wait(30'000);
    return login;
}

void HServerStatesTest::aLoginConnectsAndRequestsLeaveThatAlone()
{
    QCOMPARE(m_account->server().connectorState(), HServer::Disconnected);
    QVERIFY(m_account->logIn());
    const QVector<HServer::State> connected = {HServer::Connecting, HServer::Connected};
    QCOMPARE(m_states, connected);

    const RequestPointer request = make(QStringLiteral("one"));
    m_account->server().addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);
    QVERIFY(m_account->logIn());
    QCOMPARE(m_states, connected);

    m_account->server().logOut();
    m_account->server().logOut();
    QCOMPARE(m_states.mid(2), QVector<HServer::State>{HServer::Disconnected});
}

void HServerStatesTest::aLoginThatFailsEndsTheAttempt_data()
{
    QTest::addColumn<corvia::Fault::Kind>("fault");
    QTest::addColumn<HServer::State>("state");
    QTest::newRow("refused") << Fault::RefuseLogin << HServer::Disconnected;
    QTest::newRow("connection closed") << Fault::Close << HServer::ServiceLost;
    QTest::newRow("bad reply") << Fault::Encoding << HServer::ServiceLost;
}

void HServerStatesTest::aLoginThatFailsEndsTheAttempt()
{
    QFETCH(corvia::Fault::Kind, fault);
    QFETCH(HServer::State, state);
    m_account->setFault(fault, 0, "Not today.");
    QVERIFY(!sendLogin()->isSuccessful());
    const QVector<HServer::State> expected = {HServer::Connecting, state};
    QCOMPARE(m_states, expected);
}

void HServerStatesTest::aFurtherLoginThatIsRefusedLeavesTheServerConnected()
{
    QVERIFY(m_account->logIn());
    m_states.clear();
    m_account->setFault(Fault::RefuseLogin, 0, "Not today.");
    const auto login = sendLogin();
    QCOMPARE(login->failure().kind(), Kind::RefusedCredentials);
    QCOMPARE(login->failure().sentence(), QStringLiteral("Not today."));
    QVERIFY(m_states.isEmpty());
}

void HServerStatesTest::aRequestThatFindsNoServiceLosesIt()
{
    QVERIFY(m_account->logIn());
    m_states.clear();
    m_account->setFault(Fault::Close);
    const RequestPointer lost = make(QStringLiteral("lost"));
    const RequestPointer waiting = make(QStringLiteral("waiting"));
    m_account->server().addRequestToQueue(lost);
    m_account->server().addRequestToQueue(waiting);
    QTRY_COMPARE(lost->deliveries(), 1);
    QCOMPARE(lost->failure().kind(), Kind::Unreachable);
    QCOMPARE(m_states, QVector<HServer::State>{HServer::ServiceLost});
    QVERIFY(!m_account->connector().isLoginAvailable());

    m_account->setFault(Fault::None);
    QCOMPARE(waiting->deliveries(), 0);
    QVERIFY(m_account->logIn());
    QTRY_COMPARE(waiting->deliveries(), 1);
    QVERIFY(waiting->isSuccessful());
    const QVector<HServer::State> expected = {HServer::ServiceLost, HServer::Connecting, HServer::Connected};
    QCOMPARE(m_states, expected);
}

void HServerStatesTest::aBadReplyIsNoLoss()
{
    QVERIFY(m_account->logIn());
    m_states.clear();
    m_account->setFault(Fault::Status, 500);
    const RequestPointer request = make(QStringLiteral("one"));
    m_account->server().addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);
    QCOMPARE(request->failure().kind(), Kind::BadStatus);
    QVERIFY(m_states.isEmpty());
}

void HServerStatesTest::aRefusedSessionIsToldOnceAndNeedsALogin()
{
    QVERIFY(m_account->logIn());
    m_states.clear();
    m_account->setFault(Fault::ForgetSessions);
    const RequestPointer refused = make(QStringLiteral("refused"));
    const RequestPointer waiting = make(QStringLiteral("waiting"));
    m_account->server().addRequestToQueue(refused);
    m_account->server().addRequestToQueue(waiting);
    QTRY_COMPARE(refused->deliveries(), 1);
    QCOMPARE(refused->failure().kind(), Kind::RefusedSession);
    QCOMPARE(m_sessionsRefused, 1);
    QCOMPARE(m_states, QVector<HServer::State>{HServer::Disconnected});
    QVERIFY(!m_account->connector().isLoginAvailable());

    m_account->setFault(Fault::None);
    QVERIFY(m_account->logIn());
    QTRY_COMPARE(waiting->deliveries(), 1);
    QVERIFY(waiting->isSuccessful());
    QCOMPARE(m_sessionsRefused, 1);
}

void HServerStatesTest::aRefusalOfAnOldSessionLeavesTheNewLoginAlone()
{
    QVERIFY(m_account->logIn());
    QSemaphore gate;
    const RequestPointer request = make(QStringLiteral("one"));
    request->onPrepare = [&gate] {
        gate.acquire();
        return true;
    };
    m_account->setFault(Fault::ForgetSessions);
    m_account->server().addRequestToQueue(request);
    QVERIFY(m_journal->waitFor(QStringLiteral("one prepare")));
    m_account->server().logIn(QStringLiteral("a-newer-session"));
    m_states.clear();
    gate.release();

    QTRY_COMPARE(request->deliveries(), 1);
    QCOMPARE(request->failure().kind(), Kind::RefusedSession);
    QCOMPARE(m_sessionsRefused, 0);
    QVERIFY(m_states.isEmpty());
}

void HServerStatesTest::onlyAFailureOfTheServiceMovesToTheNextAddress_data()
{
    QTest::addColumn<corvia::Fault::Kind>("fault");
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("moves");
    QTest::newRow("success") << Fault::None << 0 << false;
    QTest::newRow("session refused") << Fault::ForgetSessions << 0 << false;
    QTest::newRow("connection closed") << Fault::Close << 0 << true;
    QTest::newRow("status") << Fault::Status << 503 << true;
    QTest::newRow("truncated") << Fault::Truncate << 0 << true;
    QTest::newRow("too large") << Fault::Flood << 0 << true;
    QTest::newRow("encoded") << Fault::Encoding << 0 << true;
}

void HServerStatesTest::onlyAFailureOfTheServiceMovesToTheNextAddress()
{
    QFETCH(corvia::Fault::Kind, fault);
    QFETCH(int, number);
    QFETCH(bool, moves);
    HServer &server = m_account->server();
    QVERIFY(m_account->logIn());
    const HServerAddress next(QStringLiteral("account.corvia.example"), 443, true, 0);
    server.setAddressRotator(std::make_unique<HServerAddressRotator>(
        QStringLiteral("test"), QList<HServerAddress>{m_account->address(), next}));
    m_account->setFault(fault, number);

    const RequestPointer request = make(QStringLiteral("one"));
    server.addRequestToQueue(request);
    QTRY_COMPARE_WITH_TIMEOUT(request->deliveries(), 1, 30'000);
    QCOMPARE(server.currentAddress().host(), moves ? next.host() : QStringLiteral("localhost"));
    QCOMPARE(m_account->requestCount(), 2);
}

void HServerStatesTest::aLoginReplyWithoutASessionIsABadReply()
{
    m_account->setFault(Fault::Body, 0, "<reply version=\"1\"><login/></reply>");
    const auto login = sendLogin();
    QVERIFY(!login->isSuccessful());
    QCOMPARE(login->failure().kind(), Kind::BadReply);
    QCOMPARE(m_states.last(), HServer::ServiceLost);
}

void HServerStatesTest::failuresAreToldAfterTheRequestItself()
{
    m_account->setFault(Fault::RefuseLogin, 0, "Not today.");
    QStringList order;
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    connect(login.data(), &HRequest::requestFinished, this, [&] { order.append(QStringLiteral("request")); });
    connect(&m_account->server(), &HServer::requestFailed, this,
            [&](const RequestFailure &failure, bool isLogin) {
                order.append(failure.sentence());
                QVERIFY(isLogin);
            });
    m_account->server().addRequestToQueue(login);
    QCOMPARE(m_states, QVector<HServer::State>{HServer::Connecting});
    const QStringList expected = {QStringLiteral("request"), QStringLiteral("Not today.")};
    QTRY_COMPARE(order, expected);
}

QTEST_MAIN(HServerStatesTest)
#include "tst_hserver_states.moc"
