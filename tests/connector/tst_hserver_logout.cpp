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

/// What the end of an account's login leaves of its requests.
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
    void aRequestWaitsForALoginOfItsAccount();
    void aRequestEndsWhenAnotherAccountLogsIn();
    void aRequestOfNoAccountGoesWithTheFirstLogin();
    void namesThatDifferInCaseAreTwoAccounts();
    void betweenTwoAccountsNoSessionIsUsed();
    void whatAnEndedRequestAddsEndsToo_data();
    void whatAnEndedRequestAddsEndsToo();
    void whatARunningRequestAddsAfterTheLogoutEndsToo();
    void aSlotThatAlwaysAddsARequestHoldsUpNoLogin();
    void aReplyThatAnotherAccountOvertookIsNotGood();
    void aRunningRequestIsInterruptedByAnotherAccount();
    void untilALoginIsAppliedNoRequestIsTaken();
    void aLoginThatIsNotAppliedHoldsUpNoRequest();
    void aCancelledLoginLeavesOtherRequestsWaiting();
    void theEndOfTheProgramDeliversWhatEndedRequestsAdd();

private:
    RequestPointer make(const QString &name);
    /// Adds a request whose slot adds the next of @p names, and so on.
    void addChain(const QStringList &names);
    /// Logs in as the other account of the service.
    bool logInAsAnother();
    /// Waits without an event loop until the service has been asked @p count times and the reply is put away.
    void awaitReply(int count);
    /// Starts a login that is applied when it is successful, as a provider does.
    QSharedPointer<TestLogin> startLogin();
    void verifyNothingIsApplied();

    std::unique_ptr<ServiceAccount> m_account;
    std::unique_ptr<Journal> m_journal;
    QVector<RequestPointer> m_chain;
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
    for (const RequestPointer &request : qAsConst(m_chain))
        request->disconnect(this);
    m_chain.clear();
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

RequestPointer HServerLogoutTest::make(const QString &name)
{
    return RequestPointer(new RecordingRequest(&m_account->connector(), name, m_journal.get()));
}

void HServerLogoutTest::addChain(const QStringList &names)
{
    const RequestPointer request = make(names.first());
    const QStringList others = names.mid(1);
    if (!others.isEmpty())
        connect(request.data(), &HRequest::requestFinished, this, [this, others] { addChain(others); });
    m_chain.append(request);
    m_account->server().addRequestToQueue(request);
}

bool HServerLogoutTest::logInAsAnother()
{
    m_account->connector().setAccount(QStringLiteral("reseller"), QStringLiteral("pinegate"));
    return m_account->logIn();
}

void HServerLogoutTest::awaitReply(int count)
{
    for (int i = 0; i < 6000 && m_account->requestCount() < count; ++i)
        QThread::msleep(5);
    QThread::msleep(200); // the reply comes and is put away
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
        awaitReply(2);
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

void HServerLogoutTest::aRequestWaitsForALoginOfItsAccount()
{
    QVERIFY(m_account->logIn());
    m_account->restart(); // the window shows the account's messages again
    const RequestPointer waiting = make(QStringLiteral("waiting"));
    m_account->server().addRequestToQueue(waiting);
    m_account->connector().setAccount(QStringLiteral("reseller"), QStringLiteral("wrong"));
    QVERIFY(!m_account->logIn());
    QCOMPARE(waiting->deliveries(), 0);
    m_account->connector().setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QVERIFY(m_account->logIn());
    QTRY_COMPARE(waiting->deliveries(), 1);
    QVERIFY(waiting->isSuccessful());
}

void HServerLogoutTest::aRequestEndsWhenAnotherAccountLogsIn()
{
    QVERIFY(m_account->logIn());
    m_account->restart();
    const RequestPointer waiting = make(QStringLiteral("waiting"));
    m_account->server().addRequestToQueue(waiting);
    QVERIFY(logInAsAnother());
    QCOMPARE(waiting->deliveries(), 1);
    QCOMPARE(waiting->failure().kind(), Kind::LoggedOut);

    const RequestPointer own = make(QStringLiteral("own"));
    m_account->server().addRequestToQueue(own);
    QTRY_COMPARE(own->deliveries(), 1);
    QVERIFY(own->isSuccessful());
    QCOMPARE(waiting->deliveries(), 1);
    QCOMPARE(m_journal->lines(QStringLiteral("build")), QStringList(QStringLiteral("own build")));
}

void HServerLogoutTest::aRequestOfNoAccountGoesWithTheFirstLogin()
{
    QVERIFY(m_account->logIn());
    m_account->connector().logOut();
    const RequestPointer waiting = make(QStringLiteral("waiting"));
    m_account->server().addRequestToQueue(waiting);
    QVERIFY(logInAsAnother());
    QTRY_COMPARE(waiting->deliveries(), 1);
    QVERIFY(waiting->isSuccessful());
}

void HServerLogoutTest::namesThatDifferInCaseAreTwoAccounts()
{
    HServer &server = m_account->server();
    server.setAccount(QStringLiteral("demo"));
    const RequestPointer waiting = make(QStringLiteral("waiting"));
    server.addRequestToQueue(waiting);
    server.setAccount(QStringLiteral("demo"));
    QCOMPARE(waiting->deliveries(), 0);
    server.setAccount(QStringLiteral("Demo"));
    QTRY_COMPARE(waiting->deliveries(), 1); // the worker may have had it in hand
    QCOMPARE(waiting->failure().kind(), Kind::LoggedOut);
}

// The window may ask for something while it changes over to the new account.
void HServerLogoutTest::betweenTwoAccountsNoSessionIsUsed()
{
    QVERIFY(m_account->logIn());
    const RequestPointer request = make(QStringLiteral("one"));
    m_account->server().setAccount(QStringLiteral("reseller"));
    m_account->server().addRequestToQueue(request);
    QVERIFY(!m_journal->waitFor(QStringLiteral("one prepare"), 200));
    QVERIFY(logInAsAnother());
    QTRY_COMPARE(request->deliveries(), 1);
    QVERIFY(request->isSuccessful());
    QCOMPARE(m_account->requestCount(), 3);
}

void HServerLogoutTest::whatAnEndedRequestAddsEndsToo_data()
{
    QTest::addColumn<bool>("logsOut");
    QTest::newRow("another login") << false;
    QTest::newRow("a logout") << true;
}

void HServerLogoutTest::whatAnEndedRequestAddsEndsToo()
{
    QFETCH(bool, logsOut);
    QVERIFY(m_account->logIn());
    m_account->restart();
    addChain({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")});
    if (logsOut)
        m_account->connector().logOut();
    QVERIFY(logInAsAnother());
    QCOMPARE(m_chain.size(), 3); // before the window shows the other account
    for (const RequestPointer &request : qAsConst(m_chain)) {
        QCOMPARE(request->deliveries(), 1);
        QCOMPARE(request->failure().kind(), Kind::LoggedOut);
    }

    addChain({QStringLiteral("own"), QStringLiteral("next")});
    QTRY_COMPARE(m_journal->count(QStringLiteral("next deliver")), 1);
    const QStringList expected = {QStringLiteral("own build"), QStringLiteral("next build")};
    QCOMPARE(m_journal->lines(QStringLiteral("build")), expected);
}

void HServerLogoutTest::whatARunningRequestAddsAfterTheLogoutEndsToo()
{
    QVERIFY(m_account->logIn());
    m_account->setFault(Fault::Stall);
    addChain({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")});
    QTRY_COMPARE(m_journal->count(QStringLiteral("first build")), 1);
    m_account->connector().logOut();
    QTRY_COMPARE(m_journal->count(QStringLiteral("third deliver")), 1);
    m_account->setFault(Fault::None);
    QVERIFY(logInAsAnother());
    QCOMPARE(m_chain.size(), 3);
    for (const RequestPointer &request : qAsConst(m_chain)) {
        QCOMPARE(request->deliveries(), 1);
        QCOMPARE(request->failure().kind(), Kind::LoggedOut);
    }
    QCOMPARE(m_journal->lines(QStringLiteral("build")), QStringList(QStringLiteral("first build")));
}

void HServerLogoutTest::aSlotThatAlwaysAddsARequestHoldsUpNoLogin()
{
    QVERIFY(m_account->logIn());
    m_account->restart();
    const QObject scope;
    bool goesOn = true;
    const std::function<void()> add = [&] {
        const RequestPointer request = make(QStringLiteral("again"));
        connect(request.data(), &HRequest::requestFinished, &scope, [&] {
            if (goesOn)
                add();
        });
        m_account->server().addRequestToQueue(request);
    };
    add();
    QVERIFY(logInAsAnother());
    goesOn = false;
    const RequestPointer own = make(QStringLiteral("own"));
    m_account->server().addRequestToQueue(own);
    QTRY_COMPARE(own->deliveries(), 1);
    QVERIFY(own->isSuccessful());
    QCOMPARE(m_journal->lines(QStringLiteral("build")), QStringList(QStringLiteral("own build")));
}

void HServerLogoutTest::aReplyThatAnotherAccountOvertookIsNotGood()
{
    QVERIFY(m_account->logIn());
    const RequestPointer request = make(QStringLiteral("one"));
    m_account->server().addRequestToQueue(request);
    awaitReply(2);
    m_account->server().setAccount(QStringLiteral("reseller"));
    QCOMPARE(request->deliveries(), 1);
    QCOMPARE(m_journal->count(QStringLiteral("one parse")), 1);
    QCOMPARE(request->failure().kind(), Kind::LoggedOut);
}

void HServerLogoutTest::aRunningRequestIsInterruptedByAnotherAccount()
{
    QVERIFY(m_account->logIn());
    m_account->setFault(Fault::Stall);
    const RequestPointer request = make(QStringLiteral("one"));
    m_account->server().addRequestToQueue(request);
    QVERIFY(m_journal->waitFor(QStringLiteral("one build")));
    m_account->server().setAccount(QStringLiteral("reseller"));
    QTRY_COMPARE(request->deliveries(), 1);
    QCOMPARE(request->failure().kind(), Kind::LoggedOut);
}

void HServerLogoutTest::untilALoginIsAppliedNoRequestIsTaken()
{
    QVERIFY(m_account->logIn());
    const RequestPointer request = make(QStringLiteral("one"));
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    connect(login.data(), &HRequest::requestFinished, this, [&] {
        QVERIFY(!m_journal->waitFor(QStringLiteral("one prepare"), 200));
        m_account->plugin().applyLogin(login.data());
        QVERIFY(m_journal->waitFor(QStringLiteral("one prepare")));
    });
    m_account->server().prependRequestToQueue(login);
    m_account->server().addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);
    QVERIFY(request->isSuccessful());
}

void HServerLogoutTest::aLoginThatIsNotAppliedHoldsUpNoRequest()
{
    QVERIFY(m_account->logIn());
    const RequestPointer request = make(QStringLiteral("one"));
    m_account->server().prependRequestToQueue(
        QSharedPointer<TestLogin>(new TestLogin(&m_account->connector())));
    m_account->server().addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);
    QVERIFY(request->isSuccessful());
}

void HServerLogoutTest::aCancelledLoginLeavesOtherRequestsWaiting()
{
    QVERIFY(m_account->logIn());
    m_account->restart();
    const RequestPointer waiting = make(QStringLiteral("waiting"));
    m_account->server().addRequestToQueue(waiting);
    m_account->setFault(Fault::Stall);
    const auto login = startLogin();
    QTRY_COMPARE(m_account->requestCount(), 2);
    m_account->server().cancelLogin();
    QCOMPARE(m_account->server().connectorState(), HServer::Disconnected);
    QTRY_COMPARE(m_deliveries, 1);
    QCOMPARE(login->failure().kind(), Kind::LoggedOut);
    QCOMPARE(m_applied, 0);
    QCOMPARE(waiting->deliveries(), 0);

    m_account->setFault(Fault::None);
    QVERIFY(m_account->logIn());
    QTRY_COMPARE(waiting->deliveries(), 1);
    QVERIFY(waiting->isSuccessful());
}

void HServerLogoutTest::theEndOfTheProgramDeliversWhatEndedRequestsAdd()
{
    QVERIFY(m_account->logIn());
    m_account->setFault(Fault::Stall);
    addChain({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")});
    QVERIFY(m_journal->waitFor(QStringLiteral("first build")));
    m_account->server().setAccount(QStringLiteral("reseller"));
    QVERIFY(m_account->connector().shutDown());
    QTRY_COMPARE(m_journal->count(QStringLiteral("third deliver")), 1);
    for (const RequestPointer &request : qAsConst(m_chain))
        QCOMPARE(request->deliveries(), 1);
    QVERIFY(!m_chain.last()->isSuccessful());
}

QTEST_MAIN(HServerLogoutTest)
#include "tst_hserver_logout.moc"
