// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hostilenntpserver.h"
#include "loopbackaccount.h"

#include "connector/cvconnectorplugin.h"
#include "requests/cvloginrequest.h"

#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/hserver.h>

#include <QDomDocument>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <atomic>

namespace {

/// A news server that counts who comes and does what its script says.
class Host {
public:
    explicit Host(const HostileNntpServer::Script &script, bool ssl = false)
        : m_ssl(ssl)
        , m_server([this, script](Conversation &conversation) {
            ++m_visits;
            script(conversation);
        })
    {
    }

    int visits() const { return m_visits; }
    bool isSsl() const { return m_ssl; }
    quint16 port() const { return m_server.port(); }
    QByteArray transcript() { return m_server.transcript(); }

private:
    const bool m_ssl;
    std::atomic<int> m_visits{0};
    HostileNntpServer m_server;
};

// Takes the connection and drops it without a greeting: a failed attempt that can be counted.
void dropVisitor(Conversation &conversation)
{
    conversation.hangUp();
}

void refuseVisitor(Conversation &conversation)
{
    conversation.say("200 hello\r\n");
    conversation.hear();
    conversation.say("381 more\r\n");
    conversation.hear();
    conversation.say("481 wrong password\r\n");
}

void acceptVisitor(Conversation &conversation)
{
    conversation.say("200 hello\r\n");
    conversation.hear();
    conversation.say("381 more\r\n");
    conversation.hear();
    conversation.say("281 welcome\r\n");
}

using Hosts = std::vector<std::unique_ptr<Host>>;

QString loginReply(const Hosts &hosts)
{
    QString servers;
    for (const auto &host : hosts)
        servers += QStringLiteral("<server host='127.0.0.1' port='%1' ssl='%2'/>")
                       .arg(host->port())
                       .arg(host->isSsl() ? QStringLiteral("true") : QStringLiteral("false"));
    return QStringLiteral("<login session='s'><nntp-servers>%1</nntp-servers></login>").arg(servers);
}

int visits(const Hosts &hosts)
{
    int sum = 0;
    for (const auto &host : hosts)
        sum += host->visits();
    return sum;
}

} // namespace

class TestLoginProbe : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void withoutHostsNothingIsTried();
    void sevenUnreachableHostsMeanSixAttempts();
    void theSixthHostIsStillAsked();
    void onlyTheFirstHostThatAnswersIsAsked();
    void theRightPasswordIsAccepted();
    void aHostThatShallSpeakTlsIsNeverSpokenToWithout();
    void aProgramThatEndsTriesNothing();
    void aProgramThatEndsMeanwhileTriesNoFurther_data();
    void aProgramThatEndsMeanwhileTriesNoFurther();
    void nothingIsLeftOpen();
    void anotherUserIsNotTestedAtTheLastUsersServers_data();
    void anotherUserIsNotTestedAtTheLastUsersServers();
    void theSameUserIsTestedAgain();
    void afterAFailedTestTheServiceIsAsked_data();
    void afterAFailedTestTheServiceIsAsked();

private:
    /// The demo account has logged in at @p account and got @p hosts; then the program was started again.
    void startAfterALogin(LoopbackAccount &account, const Hosts &hosts);
    void expectLogin(HServer::State state);
    bool probe(const Hosts &hosts);
    void know(const Hosts &hosts);

    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<CVConnectorPlugin> m_plugin;
};

void TestLoginProbe::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_profile->path());
    m_plugin = std::make_unique<CVConnectorPlugin>(m_core.get());
    m_plugin->connector()->setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
}

void TestLoginProbe::cleanup()
{
    m_plugin.reset();
    m_core.reset();
}

// As a login that was applied leaves them.
void TestLoginProbe::know(const Hosts &hosts)
{
    QDomDocument document;
    document.setContent(loginReply(hosts));
    CVLoginRequest login(m_plugin->connector());
    login.buildResponseInternal(document.documentElement());
    m_plugin->connector()->applyLogin(login);
}

// On a thread without an event loop, as the server's worker has none.
bool TestLoginProbe::probe(const Hosts &hosts)
{
    know(hosts);
    CVLoginRequest login(m_plugin->connector());
    std::atomic<bool> result{false};
    const std::unique_ptr<QThread> thread(QThread::create([&] { result = login.prepare(); }));
    thread->start();
    thread->wait();
    return result;
}

void TestLoginProbe::withoutHostsNothingIsTried()
{
    CVLoginRequest login(m_plugin->connector());
    QVERIFY(login.nntpHosts().isEmpty());
    QVERIFY(login.prepare()); // returns at once, so it may run here
}

void TestLoginProbe::sevenUnreachableHostsMeanSixAttempts()
{
    Hosts hosts;
    for (int i = 0; i < 7; ++i)
        hosts.push_back(std::make_unique<Host>(&dropVisitor));
    QVERIFY(!probe(hosts));
    QCOMPARE(visits(hosts), 6);
    QCOMPARE(hosts.back()->visits(), 0);
}

void TestLoginProbe::theSixthHostIsStillAsked()
{
    Hosts hosts;
    for (int i = 0; i < 5; ++i)
        hosts.push_back(std::make_unique<Host>(&dropVisitor));
    hosts.push_back(std::make_unique<Host>(&acceptVisitor));
    QVERIFY(probe(hosts));
    QCOMPARE(visits(hosts), 6);
}

void TestLoginProbe::onlyTheFirstHostThatAnswersIsAsked()
{
    Hosts hosts;
    hosts.push_back(std::make_unique<Host>(&dropVisitor));
    hosts.push_back(std::make_unique<Host>(&refuseVisitor));
    hosts.push_back(std::make_unique<Host>(&acceptVisitor));
    QVERIFY(!probe(hosts));
    QCOMPARE(hosts.at(1)->visits(), 1);
    QCOMPARE(hosts.at(2)->visits(), 0);
    QVERIFY(m_core->newsServerReply().startsWith(QLatin1String("481")));
}

void TestLoginProbe::theRightPasswordIsAccepted()
{
    Hosts hosts;
    hosts.push_back(std::make_unique<Host>(&acceptVisitor));
    hosts.push_back(std::make_unique<Host>(&refuseVisitor));
    QVERIFY(probe(hosts));
    QCOMPARE(hosts.at(1)->visits(), 0);
    QCOMPARE(hosts.front()->transcript(), QByteArray("AUTHINFO USER demo\r\nAUTHINFO PASS pinegate\r\n"));
}

void TestLoginProbe::aProgramThatEndsTriesNothing()
{
    Hosts hosts;
    hosts.push_back(std::make_unique<Host>(&refuseVisitor));
    m_core->stopRunning();
    QVERIFY(probe(hosts));
    QCOMPARE(visits(hosts), 0);
}

void TestLoginProbe::aHostThatShallSpeakTlsIsNeverSpokenToWithout()
{
    Hosts hosts;
    hosts.push_back(std::make_unique<Host>(&acceptVisitor, true)); // greets in plain words
    QVERIFY(!probe(hosts));
    QCOMPARE(visits(hosts), 1);
    QVERIFY(!hosts.front()->transcript().contains("AUTHINFO"));
}

void TestLoginProbe::aProgramThatEndsMeanwhileTriesNoFurther_data()
{
    QTest::addColumn<int>("last");
    QTest::newRow("after the first attempt") << 1;
    QTest::newRow("after the last attempt that is made") << 6;
}

// The end counts for more than the failures before it: nobody is to be told of a refusal.
void TestLoginProbe::aProgramThatEndsMeanwhileTriesNoFurther()
{
    QFETCH(int, last);
    Hosts hosts;
    for (int i = 1; i < last; ++i)
        hosts.push_back(std::make_unique<Host>(&dropVisitor));
    hosts.push_back(std::make_unique<Host>([this](Conversation &conversation) {
        m_core->stopRunning();
        conversation.hangUp();
    }));
    hosts.push_back(std::make_unique<Host>(&acceptVisitor));
    QVERIFY(probe(hosts));
    QCOMPARE(visits(hosts), last);
    QCOMPARE(hosts.back()->visits(), 0);
}

void TestLoginProbe::nothingIsLeftOpen()
{
    Hosts hosts;
    hosts.push_back(std::make_unique<Host>(&acceptVisitor));
    QVERIFY(probe(hosts));
    QVERIFY(!hosts.front()->transcript().isEmpty()); // answers only once the visitor has gone
}

void TestLoginProbe::startAfterALogin(LoopbackAccount &account, const Hosts &hosts)
{
    QVERIFY2(account.isRunning(), qPrintable(account.problem()));
    corvia::Fault fault;
    fault.kind = corvia::Fault::Kind::Element;
    fault.text = loginReply(hosts).toStdString();
    account.service().setFault(fault);
    m_plugin = std::make_unique<CVConnectorPlugin>(&account.core());
    account.useDemo(*m_plugin);
    expectLogin(HServer::Connected);
    m_plugin.reset();
    account.restartCore();
    m_plugin = std::make_unique<CVConnectorPlugin>(&account.core());
    account.use(*m_plugin);
    account.service().setFault(corvia::Fault());
}

void TestLoginProbe::expectLogin(HServer::State state)
{
    const HServer *server = m_plugin->connector()->server();
    m_plugin->startLogin();
    QTRY_VERIFY_WITH_TIMEOUT(server->connectorState() != HServer::Connecting, 60'000);
    QCOMPARE(server->connectorState(), state);
}

void TestLoginProbe::anotherUserIsNotTestedAtTheLastUsersServers_data()
{
    QTest::addColumn<QString>("first");
    QTest::newRow("the first to log in after the start") << QString();
    QTest::newRow("after the user before was named") << QStringLiteral("demo");
}

void TestLoginProbe::anotherUserIsNotTestedAtTheLastUsersServers()
{
    QFETCH(QString, first);
    Hosts hosts;
    hosts.push_back(std::make_unique<Host>(&refuseVisitor));
    LoopbackAccount account;
    startAfterALogin(account, hosts);
    Connector *connector = m_plugin->connector();
    connector->setAccount(first, QString());
    QCOMPARE(connector->nntpHosts().size(), 1);
    connector->setAccount(QStringLiteral("reseller"), QStringLiteral("pinegate"));
    QVERIFY(connector->nntpHosts().isEmpty());
    expectLogin(HServer::Connected);
    QCOMPARE(visits(hosts), 0);
    QCOMPARE(connector->nntpHosts().size(), 2);
    m_plugin.reset();
}

void TestLoginProbe::theSameUserIsTestedAgain()
{
    Hosts hosts;
    hosts.push_back(std::make_unique<Host>(&acceptVisitor));
    LoopbackAccount account;
    startAfterALogin(account, hosts);
    account.useDemo(*m_plugin);
    expectLogin(HServer::Connected);
    QCOMPARE(visits(hosts), 1);
    m_plugin.reset();
}

void TestLoginProbe::afterAFailedTestTheServiceIsAsked_data()
{
    QTest::addColumn<HostileNntpServer::Script>("script");
    QTest::newRow("refused") << HostileNntpServer::Script(&refuseVisitor);
    QTest::newRow("no server") << HostileNntpServer::Script(&dropVisitor);
}

void TestLoginProbe::afterAFailedTestTheServiceIsAsked()
{
    QFETCH(HostileNntpServer::Script, script);
    Hosts hosts;
    hosts.push_back(std::make_unique<Host>(script));
    LoopbackAccount account;
    startAfterALogin(account, hosts);
    account.useDemo(*m_plugin);
    const int before = account.requestNames().size();
    expectLogin(HServer::Disconnected);
    QCOMPARE(account.requestNames().size(), before);
    expectLogin(HServer::Connected);
    QCOMPARE(visits(hosts), 1);
    m_plugin.reset();
}

QTEST_GUILESS_MAIN(TestLoginProbe)
#include "tst_loginprobe.moc"
