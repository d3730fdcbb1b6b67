// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "serviceaccount.h"
#include "testlogin.h"

#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/hautosearchservice.h>
#include <halvora/hlog.h>
#include <halvora/hnntpdistributor.h>
#include <halvora/hserver.h>

#include <QSettings>
#include <QtTest>

#include <thread>

class ConnectorTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void itKnowsWhoMadeIt();
    void anAppliedLoginTakesEffect();
    void aLogoutForgetsTheAccount();
    void theSessionWordIsASecretOfTheLog();
    void anAccountWithoutAPasswordIsNotSent();
    void forgottenHostsStayForgotten();
    void anotherUserNameForgetsTheHosts();
    void theHostsOfALoginAreNotThoseOfANameTypedMeanwhile();
    void anotherAccountTakesOverNoConnectionLimit();
    void damagedSettingsAreNoHosts();
    void theAccountMayBeReadOnAnyThread();
    void theSearchIntervalIsToldWhenItChanges();

private:
    std::unique_ptr<ServiceAccount> m_account;
};

void ConnectorTest::init()
{
    m_account = std::make_unique<ServiceAccount>();
    QCOMPARE(m_account->problem(), QString());
}

void ConnectorTest::cleanup()
{
    m_account.reset();
}

void ConnectorTest::itKnowsWhoMadeIt()
{
    const Connector &connector = m_account->connector();
    QCOMPARE(connector.plugin(), &m_account->plugin());
    QCOMPARE(connector.core(), &m_account->core());
    QVERIFY(connector.server() && connector.distributor() && connector.autoSearch());
    QVERIFY(!connector.isLoginAvailable());
    QVERIFY(!connector.distributor()->isOpen());
}

void ConnectorTest::anAppliedLoginTakesEffect()
{
    Connector &connector = m_account->connector();
    QSignalSpy urls(&m_account->core(), &Core::urlsChanged);
    QVERIFY(m_account->logIn());
    QVERIFY(connector.isLoginAvailable());
    QVERIFY(connector.distributor()->isOpen());
    QCOMPARE(connector.server()->connectorState(), HServer::Connected);
    QCOMPARE(connector.nntpHosts().size(), 2);
    QCOMPARE(connector.nntpHosts().first().port(), m_account->service().nntpTlsPort());
    QCOMPARE(m_account->core().url(QStringLiteral("home")).url(),
             QUrl(QStringLiteral("https://www.corvia.example/")));
    QCOMPARE(urls.size(), 1);
}

void ConnectorTest::aLogoutForgetsTheAccount()
{
    Connector &connector = m_account->connector();
    QVERIFY(m_account->logIn());
    connector.logOut();
    QVERIFY(!connector.isLoginAvailable());
    QVERIFY(!connector.distributor()->isOpen());
    QCOMPARE(connector.server()->connectorState(), HServer::Disconnected);
    QCOMPARE(connector.username(), QString());
    QCOMPARE(connector.password(), QString());
    QVERIFY(connector.nntpHosts().isEmpty());
    QVERIFY(m_account->core().url(QStringLiteral("home")).isNull());

    m_account->restart();
    QVERIFY(m_account->connector().nntpHosts().isEmpty());
}

void ConnectorTest::theSessionWordIsASecretOfTheLog()
{
    HLog::install();
    QString session;
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    connect(login.data(), &HRequest::requestFinished, this, [&] { session = login->session(); });
    m_account->server().prependRequestToQueue(login);
    QTRY_VERIFY(!session.isEmpty());
    m_account->plugin().applyLogin(login.data());
    qInfo("The word is %s.", qPrintable(session));
    QVERIFY(!HLog::report().contains(session));
    qInstallMessageHandler(nullptr);
}

void ConnectorTest::anAccountWithoutAPasswordIsNotSent()
{
    m_account->connector().setAccount(QStringLiteral("demo"), QString());
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    m_account->server().prependRequestToQueue(login);
    QVERIFY(!finished.wait(200));
    m_account->connector().setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QVERIFY(finished.wait(30'000));
    QVERIFY(login->isSuccessful());
    QCOMPARE(m_account->requestCount(), 1);
}

void ConnectorTest::forgottenHostsStayForgotten()
{
    QVERIFY(m_account->logIn());
    m_account->connector().forgetNntpHosts();
    QVERIFY(m_account->connector().nntpHosts().isEmpty());
    QVERIFY(m_account->connector().isLoginAvailable());
    m_account->restart();
    QVERIFY(m_account->connector().nntpHosts().isEmpty());
}

void ConnectorTest::anotherUserNameForgetsTheHosts()
{
    Connector *connector = &m_account->connector();
    QVERIFY(m_account->logIn());
    connector->setAccount(QStringLiteral("demo"), QStringLiteral("another password"));
    QCOMPARE(connector->nntpHosts().size(), 2);
    connector->setAccount(QString(), QString());
    QCOMPARE(connector->nntpHosts().size(), 2);
    connector->setAccount(QStringLiteral("Demo"), QString());
    QVERIFY(connector->nntpHosts().isEmpty());
    m_account->restart();
    QVERIFY(m_account->connector().nntpHosts().isEmpty());
}

void ConnectorTest::theHostsOfALoginAreNotThoseOfANameTypedMeanwhile()
{
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    m_account->server().prependRequestToQueue(login);
    QVERIFY(finished.wait(30'000));
    m_account->connector().setAccount(QStringLiteral("other"), QStringLiteral("pinegate"));
    m_account->plugin().applyLogin(login.data());
    QVERIFY(m_account->connector().nntpHosts().isEmpty());
}

void ConnectorTest::anotherAccountTakesOverNoConnectionLimit()
{
    Connector &connector = m_account->connector();
    const int cautious = connector.distributor()->maxConnectionsMax();
    QVERIFY(m_account->logIn());
    connector.distributor()->setMaxConnectionsMax(cautious + 3);
    QVERIFY(m_account->logIn()); // the same account
    QCOMPARE(connector.distributor()->maxConnectionsMax(), cautious + 3);
    connector.setAccount(QStringLiteral("reseller"), QStringLiteral("pinegate"));
    const QSharedPointer<TestLogin> login(new TestLogin(&connector));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    m_account->server().prependRequestToQueue(login);
    QVERIFY(finished.wait(30'000));
    m_account->plugin().applyLogin(login.data());
    QCOMPARE(connector.distributor()->maxConnectionsMax(), cautious);
    QVERIFY(connector.distributor()->isOpen());
}

void ConnectorTest::damagedSettingsAreNoHosts()
{
    QVERIFY(m_account->logIn());
    QSettings &settings = m_account->core().settings();
    settings.setValue(QStringLiteral("Account/NntpHosts/1/Port"), QStringLiteral("many"));
    settings.setValue(QStringLiteral("Account/NntpHosts/size"), 2'000'000'000);
    m_account->restart();
    QCOMPARE(m_account->connector().nntpHosts().size(), 1);
    m_account->core().settings().setValue(QStringLiteral("Account/NntpHosts/size"), QStringLiteral("-1"));
    m_account->restart();
    QVERIFY(m_account->connector().nntpHosts().isEmpty());
}

void ConnectorTest::theAccountMayBeReadOnAnyThread()
{
    Connector &connector = m_account->connector();
    QVERIFY(m_account->logIn());
    const QList<NntpHost> hosts = connector.nntpHosts();
    std::atomic<bool> end{false};
    std::atomic<bool> good{true};
    std::thread reader([&] {
        while (!end) {
            const QString name = connector.username();
            const int size = connector.nntpHosts().size();
            if ((name != QLatin1String("demo") && name != QLatin1String("other")) || (size != 0 && size != 2))
                good = false;
            (void)connector.password();
        }
    });
    for (int i = 0; i < 50; ++i) {
        connector.setAccount(QStringLiteral("other"), QStringLiteral("secret"));
        connector.forgetNntpHosts();
        connector.setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
    }
    end = true;
    reader.join();
    QVERIFY(good);
    QCOMPARE(hosts.size(), 2);
}

void ConnectorTest::theSearchIntervalIsToldWhenItChanges()
{
    HAutoSearchService *search = m_account->connector().autoSearch();
    QSignalSpy changes(search, &HAutoSearchService::checkIntervalChanged);
    QCOMPARE(search->checkInterval(), 0);
    search->setCheckInterval(900);
    search->setCheckInterval(900);
    QCOMPARE(search->checkInterval(), 900);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.first().first().toInt(), 900);
}

QTEST_MAIN(ConnectorTest)
#include "tst_connector.moc"
