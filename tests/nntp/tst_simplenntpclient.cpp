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

namespace {

const QByteArray User = "AUTHINFO USER alice\r\n";
const QByteArray Pass = "AUTHINFO PASS wonderland\r\n";

HostileNntpServer::Script saying(const QByteArray &bytes)
{
    return [bytes](Conversation &client) { client.say(bytes); };
}

/// Greets, and answers each command with the next of @p replies.
HostileNntpServer::Script answering(const QList<QByteArray> &replies)
{
    return [replies](Conversation &client) {
        client.say("200 welcome\r\n");
        for (const QByteArray &reply : replies) {
            client.hear();
            client.say(reply);
        }
    };
}

Attempt attemptOn(quint16 port)
{
    Attempt attempt;
    attempt.hosts = {NntpHost(QStringLiteral("127.0.0.1"), port, false)};
    return attempt;
}

} // namespace

class tst_SimpleNntpClient : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void onlyAGreetingThatWelcomesIsAConnection_data();
    void onlyAGreetingThatWelcomesIsAConnection();
    void aGreetingThatNeverEndsIsGivenUp_data();
    void aGreetingThatNeverEndsIsGivenUp();
    void aLoginSendsNoMoreThanItHasTo_data();
    void aLoginSendsNoMoreThanItHasTo();
    void aReplyThatNeverEndsIsGivenUp_data();
    void aReplyThatNeverEndsIsGivenUp();
    void aNameOrPasswordThatFitsNoCommandIsNeverSent_data();
    void aNameOrPasswordThatFitsNoCommandIsNeverSent();
    void theLongestNameAndPasswordAreSentWhole();
    void nothingIsSentWithoutAConnection();
    void whereNobodyListensThereIsNoConnection_data();
    void whereNobodyListensThereIsNoConnection();
    void sixDeadHostsCostNoMoreThanTheirBudgets();
    void aSilentHostIsGivenUpWithoutAnyBudgetSet();
    void aDeadAddressDoesNotHideALivingOne();
    void aRefusedLoginCanBeTriedAgain();
    void aNewConnectionForgetsTheOldOne();
    void everyByteIsCounted();

private:
    void compareLogin(const HostileNntpServer::Script &script, std::chrono::milliseconds deadline);

    const LoopbackPort m_closed;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Core> m_core;
};

void tst_SimpleNntpClient::init()
{
    m_core.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_folder->path());
}

void tst_SimpleNntpClient::onlyAGreetingThatWelcomesIsAConnection_data()
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

void tst_SimpleNntpClient::onlyAGreetingThatWelcomesIsAConnection()
{
    QFETCH(HostileNntpServer::Script, script);
    QFETCH(bool, isConnected);
    QFETCH(QString, lastReply);
    HostileNntpServer server(script);
    Attempt attempt = attemptOn(server.port());
    attempt.user.clear(); // nothing is sent, so that the greeting's line stays the last
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QCOMPARE(outcome.lastReply, lastReply);
    QCOMPARE(outcome.isConnected, isConnected);
    QCOMPARE(m_core->newsServerReply(), isConnected ? QString() : lastReply);
    QCOMPARE(server.transcript(), QByteArray());
}

void tst_SimpleNntpClient::aGreetingThatNeverEndsIsGivenUp_data()
{
    QTest::addColumn<HostileNntpServer::Script>("script");
    QTest::newRow("silence") << saying(QByteArray());
    QTest::newRow("half a line") << saying("200 wel");
    QTest::newRow("a byte now and then")
        << HostileNntpServer::Script([](Conversation &client) { client.drip("200 "); });
}

void tst_SimpleNntpClient::aGreetingThatNeverEndsIsGivenUp()
{
    QFETCH(HostileNntpServer::Script, script);
    HostileNntpServer server(script);
    Attempt attempt = attemptOn(server.port());
    attempt.connectBudget = 500ms;
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QVERIFY(!outcome.isConnected);
    QCOMPARE(outcome.lastReply, QString());
    QCOMPARE(m_core->newsServerReply(), QString());
    QCOMPARE(server.transcript(), QByteArray());
}

void tst_SimpleNntpClient::aLoginSendsNoMoreThanItHasTo_data()
{
    QTest::addColumn<HostileNntpServer::Script>("script");
    QTest::addColumn<bool>("isLoggedIn");
    QTest::addColumn<QByteArray>("transcript");
    QTest::addColumn<QString>("lastReply");
    QTest::addColumn<bool>("isTold");
    const auto row = [](const char *name, const HostileNntpServer::Script &script, bool isLoggedIn,
                        const QByteArray &transcript, const char *lastReply, bool isTold) {
        QTest::newRow(name) << script << isLoggedIn << transcript << QString::fromUtf8(lastReply) << isTold;
    };
    const QByteArray both = User + Pass;
    row("accepted", answering({"381 more\r\n", "281 ok\r\n"}), true, both, "281 ok", false);
    row("accepted by name alone", answering({"281 ok\r\n"}), true, User, "281 ok", false);
    row("wrong password", answering({"381 more\r\n", "481 wrong\r\n"}), false, both, "481 wrong", true);
    row("out of sequence", answering({"381 more\r\n", "482 what\r\n"}), false, both, "482 what", true);
    row("wrong name", answering({"481 who\r\n"}), false, User, "481 who", true);
    row("not allowed", answering({"502 no\r\n"}), false, User, "502 no", true);
    row("needs TLS", answering({"483 not in the clear\r\n"}), false, User, "483 not in the clear", true);
    row("closing down", answering({"400 bye\r\n"}), false, User, "400 bye", true);
    row("more for ever", answering({"381 more\r\n", "381 more\r\n", "381 more\r\n"}), false, both, "381 more",
        true);
    row("greets again", answering({"200 hello\r\n"}), false, User, "200 hello", true);
    row("four digits", answering({"381 more\r\n", "2810 no\r\n"}), false, both, "2810 no", true);
    row("no code", answering({"381 more\r\n", "fine\r\n"}), false, both, "fine", true);
    row("empty line", answering({"381 more\r\n", "\r\n281 ok\r\n"}), false, both, "", false);
    row("NULs", answering({QByteArray("\0\0\0\r\n", 5)}), false, User, "\uFFFD\uFFFD\uFFFD", true);
    row("not UTF-8", answering({"381 more\r\n", "481 \xE9\xFF\r\n"}), false, both, "481 \uFFFD\uFFFD", true);
    row("password given back", answering({"381 more\r\n", "481 not wonderland, nor wonderland\r\n"}), false,
        both, "481 not ***, nor ***", true);
    row("password given back alone", answering({"381 more\r\n", "wonderland\r\n"}), false, both, "***", true);
    row("answers nobody asked for", answering({"381 more\r\n281 ok\r\n"}), false, User, "381 more", false);
    row("part of such an answer", answering({"381 more\r\n28"}), false, User, "381 more", false);
    row("answer before the question", saying("200 welcome\r\n381 more\r\n"), false, "", "200 welcome", false);
    row("endless reply", answering({QByteArray(5000, '3')}), false, User, "200 welcome", false);
    const auto closes = [](const QByteArray &last) {
        return [last](Conversation &client) {
            client.say("200 welcome\r\n");
            client.hear();
            client.say(last);
            client.hangUp();
        };
    };
    row("closed instead", closes(""), false, User, "200 welcome", false);
    row("closed inside", closes("381 mo"), false, User, "200 welcome", false);
    row("refused and closed", closes("502 no\r\n"), false, User, "502 no", true);
    row("asked for more and closed", closes("381 more\r\n"), false, User, "381 more", false);
}

void tst_SimpleNntpClient::aLoginSendsNoMoreThanItHasTo()
{
    QFETCH(HostileNntpServer::Script, script);
    compareLogin(script, 20s);
}

void tst_SimpleNntpClient::aReplyThatNeverEndsIsGivenUp_data()
{
    QTest::addColumn<HostileNntpServer::Script>("script");
    QTest::addColumn<bool>("isLoggedIn");
    QTest::addColumn<QByteArray>("transcript");
    QTest::addColumn<QString>("lastReply");
    QTest::addColumn<bool>("isTold");
    const auto row = [](const char *name, const HostileNntpServer::Script &script,
                        const QByteArray &transcript, const char *lastReply) {
        QTest::newRow(name) << script << false << transcript << QString::fromUtf8(lastReply) << false;
    };
    row("silence after the name", answering({}), User, "200 welcome");
    row("silence after the password", answering({"381 more\r\n"}), User + Pass, "381 more");
    const auto drips = [](Conversation &client) {
        client.say("200 welcome\r\n");
        client.hear();
        client.drip("381 ");
    };
    row("a byte now and then", drips, User, "200 welcome");
}

void tst_SimpleNntpClient::aReplyThatNeverEndsIsGivenUp()
{
    QFETCH(HostileNntpServer::Script, script);
    compareLogin(script, 1s);
}

void tst_SimpleNntpClient::compareLogin(const HostileNntpServer::Script &script,
                                        std::chrono::milliseconds deadline)
{
    QFETCH(bool, isLoggedIn);
    QFETCH(QByteArray, transcript);
    QFETCH(QString, lastReply);
    QFETCH(bool, isTold);
    HostileNntpServer server(script);
    Attempt attempt = attemptOn(server.port());
    attempt.replyDeadline = deadline;
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QVERIFY(outcome.isConnected);
    QCOMPARE(outcome.lastReply, lastReply);
    QCOMPARE(outcome.isLoggedIn, isLoggedIn);
    QCOMPARE(server.transcript(), transcript);
    QCOMPARE(m_core->newsServerReply(), isTold ? lastReply : QString());
}

void tst_SimpleNntpClient::aNameOrPasswordThatFitsNoCommandIsNeverSent_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    const QString good = QStringLiteral("good");
    const QVector<QPair<QByteArray, QString>> bad = {
        {"empty", QString()},
        {"carriage return", QStringLiteral("a\rb")},
        {"line feed", QStringLiteral("a\nQUIT")},
        {"NUL", QString(QChar(QChar::Null))},
        {"too long", QString(497, QLatin1Char('x'))},
        {"too long in UTF-8", QString(249, QChar(0x00E9))},
        {"far too long", QString(1000000, QLatin1Char('x'))},
    };
    for (const auto &[name, text] : bad) {
        QTest::addRow("name: %s", name.constData()) << text << good;
        QTest::addRow("password: %s", name.constData()) << good << text;
    }
}

void tst_SimpleNntpClient::aNameOrPasswordThatFitsNoCommandIsNeverSent()
{
    QFETCH(QString, user);
    QFETCH(QString, password);
    HostileNntpServer server(answering({"381 more\r\n", "281 ok\r\n"}));
    Attempt attempt = attemptOn(server.port());
    attempt.user = user;
    attempt.password = password;
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QVERIFY(outcome.isConnected);
    QVERIFY(!outcome.isLoggedIn);
    QCOMPARE(server.transcript(), QByteArray());
    QCOMPARE(m_core->newsServerReply(), QString());
}

void tst_SimpleNntpClient::theLongestNameAndPasswordAreSentWhole()
{
    HostileNntpServer server(answering({"381 more\r\n", "281 ok\r\n"}));
    Attempt attempt = attemptOn(server.port());
    attempt.user = QString(496, QLatin1Char('u'));
    attempt.password = QString(248, QChar(0x00E9));
    QVERIFY(outcomeOf(*m_core, attempt).isLoggedIn);
    const QByteArray name = "AUTHINFO USER " + attempt.user.toUtf8() + "\r\n";
    QCOMPARE(name.size(), 512);
    QCOMPARE(server.transcript(), name + "AUTHINFO PASS " + attempt.password.toUtf8() + "\r\n");
}

void tst_SimpleNntpClient::nothingIsSentWithoutAConnection()
{
    SimpleNntpClient client(m_core.get());
    QVERIFY(!client.login(QStringLiteral("alice"), QStringLiteral("wonderland")));
    QCOMPARE(client.lastReply(), QString());
    QCOMPARE(m_core->newsServerReply(), QString());
}

void tst_SimpleNntpClient::whereNobodyListensThereIsNoConnection_data()
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

void tst_SimpleNntpClient::whereNobodyListensThereIsNoConnection()
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

void tst_SimpleNntpClient::sixDeadHostsCostNoMoreThanTheirBudgets()
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
    QCOMPARE(living.transcript(), User + Pass);
}

void tst_SimpleNntpClient::aSilentHostIsGivenUpWithoutAnyBudgetSet()
{
    HostileNntpServer silent(saying(QByteArray()));
    SimpleNntpClient client(m_core.get());
    QVERIFY(!client.connectToHost(QStringLiteral("127.0.0.1"), silent.port(), false));
}

void tst_SimpleNntpClient::aDeadAddressDoesNotHideALivingOne()
{
    // The name stands for ::1 as well on most systems, where this server does not listen.
    HostileNntpServer server(answering({"381 more\r\n", "281 ok\r\n"}));
    Attempt attempt;
    attempt.hosts = {NntpHost(QStringLiteral("LocalHost"), server.port(), false)};
    QVERIFY(outcomeOf(*m_core, attempt).isLoggedIn);
}

void tst_SimpleNntpClient::aRefusedLoginCanBeTriedAgain()
{
    HostileNntpServer server(answering({"381 more\r\n", "481 wrong\r\n", "381 more\r\n", "281 ok\r\n"}));
    {
        SimpleNntpClient client(m_core.get());
        QVERIFY(client.connectToHost(QStringLiteral("127.0.0.1"), server.port(), false));
        QVERIFY(!client.login(QStringLiteral("alice"), QStringLiteral("queen")));
        QVERIFY(client.login(QStringLiteral("alice"), QStringLiteral("wonderland")));
        QCOMPARE(client.lastReply(), QStringLiteral("281 ok"));
    }
    QCOMPARE(server.transcript(), User + "AUTHINFO PASS queen\r\n" + User + Pass);
}

void tst_SimpleNntpClient::aNewConnectionForgetsTheOldOne()
{
    HostileNntpServer first(saying("200 first\r\n281 left over\r\n"));
    HostileNntpServer second(answering({"281 ok\r\n"}));
    {
        SimpleNntpClient client(m_core.get());
        QVERIFY(client.connectToHost(QStringLiteral("127.0.0.1"), first.port(), false));
        QVERIFY(client.connectToHost(QStringLiteral("127.0.0.1"), second.port(), false));
        QVERIFY(client.login(QStringLiteral("alice"), QStringLiteral("wonderland")));
        QVERIFY(!client.connectToHost(QStringLiteral("127.0.0.1"), 0, false));
        QCOMPARE(client.lastReply(), QString());
        QVERIFY(!client.login(QStringLiteral("alice"), QStringLiteral("wonderland")));
    }
    QCOMPARE(first.transcript(), QByteArray());
    QCOMPARE(second.transcript(), User);
}

void tst_SimpleNntpClient::everyByteIsCounted()
{
    HostileNntpServer server(answering({"381 more\r\n", "281 ok\r\n"}));
    QVERIFY(outcomeOf(*m_core, attemptOn(server.port())).isLoggedIn);
    QCOMPARE(m_core->traffic().nntpDown(), qint64(qstrlen("200 welcome\r\n381 more\r\n281 ok\r\n")));
}

QTEST_GUILESS_MAIN(tst_SimpleNntpClient)
#include "tst_simplenntpclient.moc"
