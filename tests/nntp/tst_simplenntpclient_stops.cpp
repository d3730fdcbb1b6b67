// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "clientthread.h"
#include "hostilenntpserver.h"
#include "loopbackport.h"

#include <halvora/core.h>

#include <QTemporaryDir>
#include <QtTest>

using namespace std::chrono_literals;

namespace {

// Ten times the 100 ms within which a stop has to be seen.
constexpr unsigned long WatchdogMs = 1000;

using Script = HostileNntpServer::Script;

} // namespace

class tst_SimpleNntpClientStops : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aStopIsSeenAtEveryStage_data();
    void aStopIsSeenAtEveryStage();
    void aStopIsSeenWhileConnecting_data();
    void aStopIsSeenWhileConnecting();
    void nothingBeginsAfterTheProgramHasStopped();

private:
    void stop(ClientThread &thread, bool isShutdown);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Core> m_core;
};

void tst_SimpleNntpClientStops::init()
{
    m_core.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_folder->path());
}

void tst_SimpleNntpClientStops::stop(ClientThread &thread, bool isShutdown)
{
    if (isShutdown)
        m_core->stopRunning();
    else
        thread.requestInterruption();
}

void tst_SimpleNntpClientStops::aStopIsSeenAtEveryStage_data()
{
    QTest::addColumn<bool>("isTls");
    QTest::addColumn<bool>("isConnected");
    QTest::addColumn<Script>("script");
    const auto row = [](const char *name, bool isTls, bool isConnected, const Script &script) {
        QTest::newRow(name) << isTls << isConnected << script;
    };
    row("handshake", true, false, [](Conversation &client) {
        client.hearSomething();
        client.reached();
    });
    row("dripping handshake", true, false, [](Conversation &client) {
        client.hearSomething();
        client.reached();
        client.drip(QByteArray("\x16\x03\x03\x3F\xFF", 5));
    });
    row("greeting", false, false, [](Conversation &client) { client.reached(); });
    row("dripping greeting", false, false, [](Conversation &client) {
        client.reached();
        client.drip("200 ");
    });
    row("reply to the name", false, true, [](Conversation &client) {
        client.say("200 welcome\r\n");
        client.hear();
        client.reached();
    });
    row("reply to the password", false, true, [](Conversation &client) {
        client.say("200 welcome\r\n");
        client.hear();
        client.say("381 more\r\n");
        client.hear();
        client.reached();
    });
    row("dripping reply", false, true, [](Conversation &client) {
        client.say("200 welcome\r\n");
        client.hear();
        client.reached();
        client.drip("381 ");
    });
}

void tst_SimpleNntpClientStops::aStopIsSeenAtEveryStage()
{
    QFETCH(bool, isTls);
    QFETCH(bool, isConnected);
    QFETCH(Script, script);
    for (const bool isShutdown : {false, true}) {
        HostileNntpServer server(script);
        Attempt attempt;
        attempt.hosts = {NntpHost(QStringLiteral("127.0.0.1"), server.port(), isTls)};
        ClientThread thread(*m_core, attempt);
        thread.start();
        QVERIFY(server.waitUntilReached());
        stop(thread, isShutdown);
        QVERIFY(thread.wait(WatchdogMs));
        QCOMPARE(thread.outcome().isConnected, isConnected);
        QVERIFY(!thread.outcome().isLoggedIn);
        QCOMPARE(m_core->newsServerReply(), QString());
    }
}

void tst_SimpleNntpClientStops::aStopIsSeenWhileConnecting_data()
{
    QTest::addColumn<bool>("isShutdown");
    QTest::newRow("interruption") << false;
    QTest::newRow("shutdown") << true;
}

void tst_SimpleNntpClientStops::aStopIsSeenWhileConnecting()
{
    QFETCH(bool, isShutdown);
    LoopbackPort deaf;
    deaf.becomeDeaf();
    Attempt attempt;
    attempt.hosts = QVector<NntpHost>(6, NntpHost(QStringLiteral("127.0.0.1"), deaf.port(), true));
    ClientThread thread(*m_core, attempt);
    thread.start();
    thread.waitUntilStarted();
    stop(thread, isShutdown);
    QVERIFY(thread.wait(WatchdogMs));
    QVERIFY(!thread.outcome().isConnected);
}

void tst_SimpleNntpClientStops::nothingBeginsAfterTheProgramHasStopped()
{
    HostileNntpServer server([](Conversation &client) { client.say("200 welcome\r\n"); });
    m_core->stopRunning();
    Attempt attempt;
    attempt.hosts = {NntpHost(QStringLiteral("127.0.0.1"), server.port(), false)};
    QVERIFY(!outcomeOf(*m_core, attempt).isConnected);
    QCOMPARE(server.transcript(0), QByteArray());
}

QTEST_GUILESS_MAIN(tst_SimpleNntpClientStops)
#include "tst_simplenntpclient_stops.moc"
