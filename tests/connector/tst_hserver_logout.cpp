// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "journal.h"
#include "recordingrequest.h"
#include "serviceaccount.h"
#include "testlogin.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>

#include <QSemaphore>
#include <QtTest>

Q_DECLARE_METATYPE(corvia::Fault::Kind)

using Fault = corvia::Fault::Kind;
using Kind = RequestFailure::Kind;
using RequestPointer = QSharedPointer<RecordingRequest>;

class HServerLogoutTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void whatWaitsAndWhatRunsEndsAsLoggedOut();
    void aLoginInFlightIsNotApplied_data();
    void aLoginInFlightIsNotApplied();
    void aLoginThatHasFinishedButWasNotDeliveredIsNotApplied();
    void aLogoutInsideASlotReachesWhatHasFinishedMeanwhile();
    void aLogoutAtAnyMomentOfALoginLeavesNothingOfIt();
    void theNextLoginWorks();

private:
    /// Starts a login that is applied when it is successful, as a provider does.
    QSharedPointer<TestLogin> startLogin();
    void verifyNothingIsApplied();

    std::unique_ptr<ServiceAccount> m_account;
    std::unique_ptr<Journal> m_journal;
    int m_deliveries = 0;
    int m_applied = 0;
};

void HServerLogoutTest::init()
{
    m_deliveries = 0;
    m_applied = 0;
    m_journal = std::make_unique<Journal>();
    m_account = std::make_unique<ServiceAccount>();
    QCOMPARE(m_account->problem(), QString());
}

void HServerLogoutTest::cleanup()
{
    m_account.reset();
}

QSharedPointer<TestLogin> HServerLogoutTest::startLogin()
{
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    connect(login.data(), &HRequest::requestFinished, this, [this, request = login.data()] {
        ++m_deliveries;
        if (!request->isSuccessful())
            return;
        ++m_applied;
        m_account->plugin().applyLogin(request);
    });
    m_account->server().prependRequestToQueue(login);
    return login;
}

void HServerLogoutTest::verifyNothingIsApplied()
{
    QCOMPARE(m_account->server().connectorState(), HServer::Disconnected);
    QVERIFY(!m_account->connector().isLoginAvailable());
    QVERIFY(m_account->connector().nntpHosts().isEmpty());
    QVERIFY(m_account->core().url(QStringLiteral("home")).isNull());
}

void HServerLogoutTest::whatWaitsAndWhatRunsEndsAsLoggedOut()
{
    QVERIFY(m_account->logIn());
    m_account->setFault(Fault::Stall);
    Connector *connector = &m_account->connector();
    QVector<RequestPointer> requests;
    for (const char *name : {"running", "waiting", "another"}) {
        requests.append(
            RequestPointer(new RecordingRequest(connector, QString::fromLatin1(name), m_journal.get())));
        m_account->server().addRequestToQueue(requests.last());
    }
    QVERIFY(m_journal->waitFor(QStringLiteral("running build")));
    connector->logOut();
    for (const RequestPointer &request : qAsConst(requests)) {
        QTRY_COMPARE(request->deliveries(), 1);
        QCOMPARE(request->failure().kind(), Kind::LoggedOut);
    }
    verifyNothingIsApplied();
}

void HServerLogoutTest::aLoginInFlightIsNotApplied_data()
{
    QTest::addColumn<corvia::Fault::Kind>("fault");
    QTest::newRow("no answer") << Fault::Stall;
    QTest::newRow("a late answer") << Fault::Delay;
}

void HServerLogoutTest::aLoginInFlightIsNotApplied()
{
    QFETCH(corvia::Fault::Kind, fault);
    m_account->setFault(fault, 100);
    const auto login = startLogin();
    QTRY_COMPARE(m_account->requestCount(), 1);
    m_account->connector().logOut();
    QTRY_COMPARE(m_deliveries, 1);
    QCOMPARE(login->failure().kind(), Kind::LoggedOut);
    QCOMPARE(m_applied, 0);
    verifyNothingIsApplied();
}

void HServerLogoutTest::aLoginThatHasFinishedButWasNotDeliveredIsNotApplied()
{
    const auto login = startLogin();
    // No event loop until the worker has put the login away: it is then on its way to the slot.
    const auto next =
        RecordingRequest::eager(&m_account->connector(), QStringLiteral("next"), m_journal.get());
    m_account->server().addRequestToQueue(next);
    for (int i = 0; i < 6000 && m_account->requestCount() == 0; ++i)
        QThread::msleep(5);
    QVERIFY(!m_journal->waitFor(QStringLiteral("next prepare"), 300));

    m_account->connector().logOut();
    QTRY_COMPARE(m_deliveries + next->deliveries(), 2);
    QCOMPARE(login->failure().kind(), Kind::LoggedOut);
    QCOMPARE(m_applied, 0);
    verifyNothingIsApplied();
}

void HServerLogoutTest::aLogoutInsideASlotReachesWhatHasFinishedMeanwhile()
{
    const auto first =
        RecordingRequest::eager(&m_account->connector(), QStringLiteral("first"), m_journal.get());
    connect(first.data(), &HRequest::requestFinished, this, [this] {
        startLogin();
        for (int i = 0; i < 6000 && m_account->requestCount() < 2; ++i)
            QThread::msleep(5);
        QThread::msleep(200); // the reply comes and is put away
        m_account->connector().logOut();
    });
    m_account->server().addRequestToQueue(first);
    QTRY_COMPARE_WITH_TIMEOUT(m_deliveries, 1, 30'000);
    QCOMPARE(first->deliveries(), 1);
    QCOMPARE(m_applied, 0);
    verifyNothingIsApplied();
}

void HServerLogoutTest::aLogoutAtAnyMomentOfALoginLeavesNothingOfIt()
{
    for (int milliseconds = 0; milliseconds < 30; ++milliseconds) {
        m_deliveries = 0;
        m_account->connector().setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
        const auto login = startLogin();
        QThread::msleep(ulong(milliseconds)); // wherever the worker is then
        m_account->connector().logOut();
        QTRY_COMPARE(m_deliveries, 1);
        QVERIFY(!login->isSuccessful());
        verifyNothingIsApplied();
    }
    QCOMPARE(m_applied, 0);
}

void HServerLogoutTest::theNextLoginWorks()
{
    m_account->setFault(Fault::Stall);
    startLogin();
    QTRY_COMPARE(m_account->requestCount(), 1);
    m_account->connector().logOut();
    m_account->setFault(Fault::None);
    m_account->connector().setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QVERIFY(m_account->logIn());
    QCOMPARE(m_account->server().connectorState(), HServer::Connected);
    QVERIFY(!m_account->connector().nntpHosts().isEmpty());
}

QTEST_MAIN(HServerLogoutTest)
#include "tst_hserver_logout.moc"
