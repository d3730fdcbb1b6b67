// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "clientthread.h"
#include "hostilenntpserver.h"

#include <halvora/core.h>
#include <halvora/simplenntpclient.h>
#include <halvora/trafficmeter.h>

#include <QTemporaryDir>
#include <QtTest>

using namespace std::chrono_literals;

using Scripts::answering;
using Scripts::saying;

namespace {

HostileNntpServer::Script closes(const QByteArray &last)
{
    return [last](Conversation &client) {
        client.say("200 welcome\r\n");
        client.hear();
        client.say(last);
        client.hangUp();
    };
}

} // namespace

class tst_SimpleNntpClientLogin : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aLoginSendsNoMoreThanItHasTo_data();
    void aLoginSendsNoMoreThanItHasTo();
    void aReplyThatNeverEndsIsGivenUp_data();
    void aReplyThatNeverEndsIsGivenUp();
    void aNameOrPasswordThatFitsNoCommandIsNeverSent_data();
    void aNameOrPasswordThatFitsNoCommandIsNeverSent();
    void aServerThatAsksForMoreAndClosesLetsNobodyIn();
    void theLongestNameAndPasswordAreSentWhole();
    void nothingIsSentWithoutAConnection();
    void aRefusedLoginCanBeTriedAgain();
    void aNewConnectionForgetsTheOldOne();
    void everyByteIsCounted();

private:
    void compareLogin(const HostileNntpServer::Script &script, std::chrono::milliseconds deadline);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Core> m_core;
};

void tst_SimpleNntpClientLogin::init()
{
    m_core.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_folder->path());
}

void tst_SimpleNntpClientLogin::aLoginSendsNoMoreThanItHasTo_data()
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
    const QByteArray both = userLine() + passLine();
    row("accepted", answering({"381 more\r\n", "281 ok\r\n"}), true, both, "281 ok", false);
    row("accepted by name alone", answering({"281 ok\r\n"}), true, userLine(), "281 ok", false);
    row("wrong password", answering({"381 more\r\n", "481 wrong\r\n"}), false, both, "481 wrong", true);
    row("out of sequence", answering({"381 more\r\n", "482 what\r\n"}), false, both, "482 what", true);
    row("wrong name", answering({"481 who\r\n"}), false, userLine(), "481 who", true);
    row("not allowed", answering({"502 no\r\n"}), false, userLine(), "502 no", true);
    row("needs TLS", answering({"483 not in the clear\r\n"}), false, userLine(), "483 not in the clear",
        true);
    row("closing down", answering({"400 bye\r\n"}), false, userLine(), "400 bye", true);
    row("more for ever", answering({"381 more\r\n", "381 more\r\n", "381 more\r\n"}), false, both, "381 more",
        true);
    row("greets again", answering({"200 hello\r\n"}), false, userLine(), "200 hello", true);
    row("four digits", answering({"381 more\r\n", "2810 no\r\n"}), false, both, "2810 no", true);
    row("no code", answering({"381 more\r\n", "fine\r\n"}), false, both, "fine", true);
    row("empty line", answering({"381 more\r\n", "\r\n281 ok\r\n"}), false, both, "", false);
    row("NULs", answering({QByteArray("\0\0\0\r\n", 5)}), false, userLine(), "\uFFFD\uFFFD\uFFFD", true);
    row("not UTF-8", answering({"381 more\r\n", "481 \xE9\xFF\r\n"}), false, both, "481 \uFFFD\uFFFD", true);
    row("password given back", answering({"381 more\r\n", "481 not wonderland, nor wonderland\r\n"}), false,
        both, "481 not ***, nor ***", true);
    row("password given back alone", answering({"381 more\r\n", "wonderland\r\n"}), false, both, "***", true);
    row("answers nobody asked for", answering({"381 more\r\n281 ok\r\n"}), false, userLine(), "381 more",
        false);
    row("part of such an answer", answering({"381 more\r\n28"}), false, userLine(), "381 more", false);
    row("answer before the question", saying("200 welcome\r\n381 more\r\n"), false, "", "200 welcome", false);
    row("endless reply", answering({QByteArray(5000, '3')}), false, userLine(), "200 welcome", false);
    row("closed instead", closes(""), false, userLine(), "200 welcome", false);
    row("closed inside", closes("381 mo"), false, userLine(), "200 welcome", false);
    row("refused and closed", closes("502 no\r\n"), false, userLine(), "502 no", true);
}

void tst_SimpleNntpClientLogin::aLoginSendsNoMoreThanItHasTo()
{
    QFETCH(HostileNntpServer::Script, script);
    compareLogin(script, 20s);
}

void tst_SimpleNntpClientLogin::aReplyThatNeverEndsIsGivenUp_data()
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
    row("silence after the name", answering({}), userLine(), "200 welcome");
    row("silence after the password", answering({"381 more\r\n"}), userLine() + passLine(), "381 more");
    const auto drips = [](Conversation &client) {
        client.say("200 welcome\r\n");
        client.hear();
        client.drip("381 ");
    };
    row("a byte now and then", drips, userLine(), "200 welcome");
}

void tst_SimpleNntpClientLogin::aReplyThatNeverEndsIsGivenUp()
{
    QFETCH(HostileNntpServer::Script, script);
    compareLogin(script, 1s);
}

void tst_SimpleNntpClientLogin::compareLogin(const HostileNntpServer::Script &script,
                                             std::chrono::milliseconds deadline)
{
    QFETCH(bool, isLoggedIn);
    QFETCH(QByteArray, transcript);
    QFETCH(QString, lastReply);
    QFETCH(bool, isTold);
    HostileNntpServer server(script);
    Attempt attempt = plainAttempt(server.port());
    attempt.replyDeadline = deadline;
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QVERIFY(outcome.isConnected);
    QCOMPARE(outcome.lastReply, lastReply);
    QCOMPARE(outcome.isLoggedIn, isLoggedIn);
    QCOMPARE(server.transcript(), transcript);
    QCOMPARE(m_core->newsServerReply(), isTold ? lastReply : QString());
}

void tst_SimpleNntpClientLogin::aNameOrPasswordThatFitsNoCommandIsNeverSent_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    const QString good = QStringLiteral("good");
    const QVector<QPair<QByteArray, QString>> bad = {
        {"empty", QString()},
        {"carriage return", QStringLiteral("a\rb")},
        {"line feed", QStringLiteral("a\nQUIT")},
        {"NUL", QString(QChar(QChar::Null))},
        {"too long", QString(498, QLatin1Char('x'))},
        {"too long in UTF-8", QString(249, QChar(0x00E9))},
        {"far too long", QString(1000000, QLatin1Char('x'))},
    };
    for (const auto &[name, text] : bad) {
        QTest::addRow("name: %s", name.constData()) << text << good;
        QTest::addRow("password: %s", name.constData()) << good << text;
    }
}

void tst_SimpleNntpClientLogin::aNameOrPasswordThatFitsNoCommandIsNeverSent()
{
    QFETCH(QString, user);
    QFETCH(QString, password);
    HostileNntpServer server(answering({"381 more\r\n", "281 ok\r\n"}));
    Attempt attempt = plainAttempt(server.port());
    attempt.user = user;
    attempt.password = password;
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QVERIFY(outcome.isConnected);
    QVERIFY(!outcome.isLoggedIn);
    QCOMPARE(server.transcript(), QByteArray());
    QCOMPARE(m_core->newsServerReply(), QString());
}

// Whether the password is on its way before the end of the connection is seen, nobody can say.
void tst_SimpleNntpClientLogin::aServerThatAsksForMoreAndClosesLetsNobodyIn()
{
    HostileNntpServer server(closes("381 more\r\n"));
    const Outcome outcome = outcomeOf(*m_core, plainAttempt(server.port()));
    QVERIFY(outcome.isConnected);
    QVERIFY(!outcome.isLoggedIn);
    QCOMPARE(outcome.lastReply, QStringLiteral("381 more"));
    QVERIFY(server.transcript().startsWith(userLine()));
    QCOMPARE(m_core->newsServerReply(), QString());
}

void tst_SimpleNntpClientLogin::theLongestNameAndPasswordAreSentWhole()
{
    HostileNntpServer server(answering({"381 more\r\n", "281 ok\r\n"}));
    Attempt attempt = plainAttempt(server.port());
    attempt.user = QString(497, QLatin1Char('u'));
    attempt.password = QString(248, QChar(0x00E9));
    QVERIFY(outcomeOf(*m_core, attempt).isLoggedIn);
    const QByteArray name = "AUTHINFO USER " + attempt.user.toUtf8() + "\r\n";
    QCOMPARE(server.transcript(), name + "AUTHINFO PASS " + attempt.password.toUtf8() + "\r\n");
}

void tst_SimpleNntpClientLogin::nothingIsSentWithoutAConnection()
{
    SimpleNntpClient client(m_core.get());
    QVERIFY(!client.login(QStringLiteral("alice"), QStringLiteral("wonderland")));
    QCOMPARE(client.lastReply(), QString());
    QCOMPARE(m_core->newsServerReply(), QString());
}

void tst_SimpleNntpClientLogin::aRefusedLoginCanBeTriedAgain()
{
    HostileNntpServer server(answering({"381 more\r\n", "481 wrong\r\n", "381 more\r\n", "281 ok\r\n"}));
    {
        SimpleNntpClient client(m_core.get());
        QVERIFY(client.connectToHost(QStringLiteral("127.0.0.1"), server.port(), false));
        QVERIFY(!client.login(QStringLiteral("alice"), QStringLiteral("queen")));
        QVERIFY(client.login(QStringLiteral("alice"), QStringLiteral("wonderland")));
        QCOMPARE(client.lastReply(), QStringLiteral("281 ok"));
    }
    QCOMPARE(server.transcript(), userLine() + "AUTHINFO PASS queen\r\n" + userLine() + passLine());
}

void tst_SimpleNntpClientLogin::aNewConnectionForgetsTheOldOne()
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
    QCOMPARE(second.transcript(), userLine());
}

void tst_SimpleNntpClientLogin::everyByteIsCounted()
{
    HostileNntpServer server(answering({"381 more\r\n", "281 ok\r\n"}));
    QVERIFY(outcomeOf(*m_core, plainAttempt(server.port())).isLoggedIn);
    QCOMPARE(m_core->traffic().nntpDown(), qint64(qstrlen("200 welcome\r\n381 more\r\n281 ok\r\n")));
}

QTEST_GUILESS_MAIN(tst_SimpleNntpClientLogin)
#include "tst_simplenntpclient_login.moc"
