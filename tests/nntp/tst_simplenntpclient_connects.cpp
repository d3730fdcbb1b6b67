// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "clientthread.h"
#include "hostilenntpserver.h"
#include "loopbackport.h"

#include <halvora/core.h>
#include <halvora/simplenntpclient.h>
#include <halvora/trafficmeter.h>

#include <QTemporaryDir>
#include <QtTest>

using namespace std::chrono_literals;

using Scripts::answering;
using Scripts::saying;

class tst_SimpleNntpClientConnects : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void onlyAGreetingThatWelcomesIsAConnection_data();
    void onlyAGreetingThatWelcomesIsAConnection();
    void aGreetingThatNeverEndsIsGivenUp_data();
    void aGreetingThatNeverEndsIsGivenUp();
    void whereNobodyListensThereIsNoConnection_data();
    void whereNobodyListensThereIsNoConnection();
    void sixDeadHostsCostNoMoreThanTheirBudgets();
    void aSilentHostIsGivenUpWithoutAnyBudgetSet();
    void aDeadAddressDoesNotHideALivingOne();
    void aFloodIsNotSwallowed();

private:
    const LoopbackPort m_closed;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Core> m_core;
};

void tst_SimpleNntpClientConnects::init()
{
    m_core.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_folder->path());
}

void tst_SimpleNntpClientConnects::onlyAGreetingThatWelcomesIsAConnection_data()
{
    QTest::addColumn<HostileNntpServer::Script>("script");
    QTest::addColumn<bool>("isConnected");
    QTest::addColumn<QString>("lastReply");
    const auto row = [](const char *name, const HostileNntpServer::Script &script, bool isConnected,
                        const QString &lastReply) {
        QTest::newRow(name) << script << isConnected << lastReply;
    };
    const auto text = [](const char *bytes) { return QString::fromUtf8(bytes); };
    row("posting allowed", saying("200 welcome\r\n"), true, text("200 welcome"));
    row("posting prohibited", saying("201 read only\r\n"), true, text("201 read only"));
    row("code alone", saying("200\r\n"), true, text("200"));
    row("line feed alone", saying("200 welcome\n"), true, text("200 welcome"));
    row("temporarily unavailable", saying("400 come back later\r\n"), false, text("400 come back later"));
    row("permanently unavailable", saying("502 go away\r\n"), false, text("502 go away"));
    row("another success", saying("202 slave\r\n"), false, text("202 slave"));
    row("another service", saying("220 mail.example ESMTP\r\n"), false, text("220 mail.example ESMTP"));
    row("four digits", saying("2000 welcome\r\n"), false, text("2000 welcome"));
    row("two digits", saying("20\r\n"), false, text("20"));
    row("letters", saying("SSH-2.0-something\r\n"), false, text("SSH-2.0-something"));
    row("empty line", saying("\r\n200 welcome\r\n"), false, QString());
    row("NUL in the code", saying(QByteArray("2\0000 hi\r\n", 8)), false, text("2\uFFFD0 hi"));
    row("NUL and escape in the text", saying(QByteArray("200 a\0b\033[1m\r\n", 13)), true,
        text("200 a\uFFFDb\uFFFD[1m"));
    row("not UTF-8", saying("200 caf\xE9\r\n"), true, text("200 caf\uFFFD"));
    row("garbage", saying("\xFF\xFE\x80\x01\xC0\r\n"), false, text("\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"));
    row("longest line", saying("200 " + QByteArray(4096 - 6, 'x') + "\r\n"), true,
        text("200 ") + QString(508, QLatin1Char('x')));
    row("too long by one", saying("200 " + QByteArray(4097 - 6, 'x') + "\r\n"), false, QString());
    row(
        "endless line", [](Conversation &client) { client.flood("200 "); }, false, QString());
    row(
        "closed at once", [](Conversation &client) { client.hangUp(); }, false, QString());
    row(
        "reset at once", [](Conversation &client) { client.slam(); }, false, QString());
    const auto closedInside = [](Conversation &client) {
        client.say("200 wel");
        client.hangUp();
    };
    row("closed inside", closedInside, false, QString());
    const auto inPieces = [](Conversation &client) {
        for (const char *piece : {"2", "00 wel", "come\r", "\n"}) {
            client.say(piece);
            client.pause();
        }
    };
    row("in pieces", inPieces, true, text("200 welcome"));
}

void tst_SimpleNntpClientConnects::onlyAGreetingThatWelcomesIsAConnection()
{
    QFETCH(HostileNntpServer::Script, script);
    QFETCH(bool, isConnected);
    QFETCH(QString, lastReply);
    HostileNntpServer server(script);
    Attempt attempt = plainAttempt(server.port());
    attempt.user.clear(); // nothing is sent, so that the greeting's line stays the last
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QCOMPARE(outcome.lastReply, lastReply);
    QCOMPARE(outcome.isConnected, isConnected);
    QCOMPARE(m_core->newsServerReply(), isConnected ? QString() : lastReply);
    QCOMPARE(server.transcript(), QByteArray());
}

void tst_SimpleNntpClientConnects::aGreetingThatNeverEndsIsGivenUp_data()
{
    QTest::addColumn<HostileNntpServer::Script>("script");
    QTest::newRow("silence") << saying(QByteArray());
    QTest::newRow("half a line") << saying("200 wel");
    QTest::newRow("a byte now and then")
        << HostileNntpServer::Script([](Conversation &client) { client.drip("200 "); });
}

void tst_SimpleNntpClientConnects::aGreetingThatNeverEndsIsGivenUp()
{
    QFETCH(HostileNntpServer::Script, script);
    HostileNntpServer server(script);
    Attempt attempt = plainAttempt(server.port());
    attempt.connectBudget = 500ms;
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QVERIFY(!outcome.isConnected);
    QCOMPARE(outcome.lastReply, QString());
    QCOMPARE(m_core->newsServerReply(), QString());
    QCOMPARE(server.transcript(), QByteArray());
}

void tst_SimpleNntpClientConnects::whereNobodyListensThereIsNoConnection_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<quint16>("port");
    const quint16 port = m_closed.port();
    QTest::newRow("IPv4") << QStringLiteral("127.0.0.1") << port;
    QTest::newRow("IPv6") << QStringLiteral("::1") << port;
    QTest::newRow("name") << QStringLiteral("localhost") << port;
    QTest::newRow("no port") << QStringLiteral("127.0.0.1") << quint16(0);
    QTest::newRow("no name") << QString() << port;
    QTest::newRow("blank") << QStringLiteral(" ") << port;
    QTest::newRow("not a name") << QStringLiteral("no such..host!") << port;
    QTest::newRow("unknown name") << QStringLiteral("news.nowhere.example") << port;
    QTest::newRow("endless name") << QString(100000, QLatin1Char('a')) << port;
    QTest::newRow("NUL after a good name") << QStringLiteral("127.0.0.1") + QChar(QChar::Null) << port;
}

void tst_SimpleNntpClientConnects::whereNobodyListensThereIsNoConnection()
{
    QFETCH(QString, host);
    QFETCH(quint16, port);
    for (const bool ssl : {false, true}) {
        Attempt attempt;
        attempt.hosts = {NntpHost(host, port, ssl)};
        attempt.connectBudget = 4s;
        const Outcome outcome = outcomeOf(*m_core, attempt);
        QVERIFY(!outcome.isConnected);
        QCOMPARE(outcome.lastReply, QString());
        QCOMPARE(m_core->newsServerReply(), QString());
    }
}

void tst_SimpleNntpClientConnects::sixDeadHostsCostNoMoreThanTheirBudgets()
{
    LoopbackPort deaf;
    deaf.becomeDeaf();
    HostileNntpServer silent(saying(QByteArray()));
    HostileNntpServer living(answering({"381 more\r\n", "281 ok\r\n"}));
    Attempt attempt;
    attempt.connectBudget = 500ms;
    const QString host = QStringLiteral("127.0.0.1");
    for (int i = 0; i < 3; ++i)
        attempt.hosts << NntpHost(host, deaf.port(), i == 1) << NntpHost(host, silent.port(), i == 2);
    attempt.hosts << NntpHost(host, living.port(), false);
    QVERIFY(outcomeOf(*m_core, attempt).isLoggedIn);
    QCOMPARE(living.transcript(), userLine() + passLine());
}

void tst_SimpleNntpClientConnects::aSilentHostIsGivenUpWithoutAnyBudgetSet()
{
    HostileNntpServer silent(saying(QByteArray()));
    SimpleNntpClient client(m_core.get());
    QVERIFY(!client.connectToHost(QStringLiteral("127.0.0.1"), silent.port(), false));
}

void tst_SimpleNntpClientConnects::aDeadAddressDoesNotHideALivingOne()
{
    // The name stands for ::1 as well on most systems, where this server does not listen.
    HostileNntpServer server(answering({"381 more\r\n", "281 ok\r\n"}));
    Attempt attempt;
    attempt.hosts = {NntpHost(QStringLiteral("LocalHost"), server.port(), false)};
    QVERIFY(outcomeOf(*m_core, attempt).isLoggedIn);
}

void tst_SimpleNntpClientConnects::aFloodIsNotSwallowed()
{
    HostileNntpServer server([](Conversation &client) { client.flood("200 "); });
    QVERIFY(!outcomeOf(*m_core, plainAttempt(server.port())).isConnected);
    QVERIFY(m_core->traffic().nntpDown() < 1 << 20);
}

QTEST_GUILESS_MAIN(tst_SimpleNntpClientConnects)
#include "tst_simplenntpclient_connects.moc"
