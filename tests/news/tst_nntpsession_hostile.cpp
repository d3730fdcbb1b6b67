// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hostilenntpserver.h"
#include "sessionscripts.h"
#include "sessionthread.h"

#include <halvora/core.h>
#include <halvora/nntpsession.h>

#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace std::chrono_literals;
using Trouble = NntpSession::Trouble;
using Script = HostileNntpServer::Script;
using Scripts::loggedIn;

namespace {

constexpr int LongestLine = 16 * 1024;
constexpr unsigned long WatchdogMs = 1000; // ten times the 100 ms within which a stop has to be seen

bool ignore(const char *, int)
{
    return true;
}

/// What is asked for, and the code that announces it.
struct Question {
    QByteArray command;
    int code;
    QByteArray announcement() const { return QByteArray::number(code) + " it follows\r\n"; }
    QByteArray line() const
    {
        return code == 215 ? "alt.test 20 1 y\r\n"
                           : "7\tsubject\tfrom\tdate\t<id@news.example>\t\t1000\t20\r\n";
    }
};

QVector<Question> questions()
{
    return {{"LIST ACTIVE", 215}, {"LIST NEWSGROUPS", 215}, {"OVER 1-100", 224}};
}

void sendForEver(Conversation &client, const QByteArray &line)
{
    while (client.say(line)) {
    }
}

} // namespace

class tst_NntpSessionHostile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void noReplyLastsOrGrowsForEver_data();
    void noReplyLastsOrGrowsForEver();
    void aLineMayHave16KiB_data();
    void aLineMayHave16KiB();
    void theBytesOfAllCommandsOfATaskCount();
    void progressKeepsASlowBlockGoing();
    void aStopIsSeenInEveryReply_data();
    void aStopIsSeenInEveryReply();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Core> m_core;
};

void tst_NntpSessionHostile::init()
{
    m_core = std::make_unique<Core>(m_folder.path());
}

void tst_NntpSessionHostile::noReplyLastsOrGrowsForEver_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("code");
    QTest::addColumn<Script>("script");
    for (const Question &question : questions()) {
        const auto row = [question](const char *name, const Script &script) {
            QTest::addRow("%s: %s", question.command.constData(), name)
                << question.command << question.code << loggedIn([script](Conversation &client) {
                       client.hear();
                       script(client);
                   });
        };
        const QByteArray start = question.announcement() + question.line();
        row("no reply", [](Conversation &) {});
        row("a reply that drips", [](Conversation &client) { client.drip("21"); });
        row("a reply without an end", [](Conversation &client) { client.flood("215 "); });
        row("no code", Scripts::saying("welcome\r\n"));
        row("another code", Scripts::saying("200 welcome\r\n.\r\n"));
        row("the code of something else",
            Scripts::saying((question.code == 215 ? "224" : "215") + start.mid(3) + ".\r\n"));
        row("closed before the reply", [](Conversation &client) { client.hangUp(); });
        row("closed in the block", [start](Conversation &client) {
            client.say(start);
            client.hangUp();
        });
        row("closed in a line", [start](Conversation &client) {
            client.say(start + "alt.b");
            client.hangUp();
        });
        row("closed before the last line ends", [start](Conversation &client) {
            client.say(start + ".");
            client.hangUp();
        });
        row("reset in the block", [start](Conversation &client) {
            client.say(start);
            client.slam();
        });
        row("silence in the block", Scripts::saying(start));
        row("drip in the block", [start](Conversation &client) { client.drip(start); });
        row("a line without an end", [start](Conversation &client) { client.flood(start); });
        row("a block without an end", [start, question](Conversation &client) {
            client.say(start);
            sendForEver(client, question.line().repeated(100));
        });
        row("empty lines without an end", [start](Conversation &client) {
            client.say(start);
            sendForEver(client, QByteArray("\r\n").repeated(1000));
        });
    }
}

void tst_NntpSessionHostile::noReplyLastsOrGrowsForEver()
{
    QFETCH(QByteArray, command);
    QFETCH(int, code);
    QFETCH(Script, script);
    HostileNntpServer server(script);
    NntpLimits limits;
    limits.silence = 150ms;
    limits.block = 300ms;
    limits.bytes = 1024 * 1024;
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(session.open(accountAt(server.port()), limits));
    qint64 bytes = 0;
    const auto count = [&bytes](const char *, int length) {
        bytes += length;
        return true;
    };
    QVERIFY(!session.lines(command, code, count));
    QCOMPARE(session.trouble(), Trouble::Broken);
    QCOMPARE(session.lastReply(), QString());
    QVERIFY(!session.isOpen());
    QVERIFY(bytes <= limits.bytes);
}

void tst_NntpSessionHostile::aLineMayHave16KiB_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("as long as can be") << LongestLine - 2 << true;
    QTest::newRow("one byte more") << LongestLine - 1 << false;
}

void tst_NntpSessionHostile::aLineMayHave16KiB()
{
    QFETCH(int, length);
    QFETCH(bool, isTaken);
    const QByteArray line(length, 'x');
    HostileNntpServer server(Scripts::loggedInAnswering({"224 it follows\r\n" + line + "\r\n.\r\n"}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QCOMPARE(session.lines("OVER 1", 224, ignore), isTaken);
}

void tst_NntpSessionHostile::theBytesOfAllCommandsOfATaskCount()
{
    const QByteArray block = "224 it follows\r\n" + QByteArray(6000, 'x') + "\r\n.\r\n";
    HostileNntpServer server(Scripts::loggedInAnswering({block, block, block, block}));
    NntpLimits limits;
    limits.bytes = 15'000;
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port()), limits));
    QVERIFY(session.lines("OVER 1", 224, ignore));
    QVERIFY(session.open(accountAt(server.port()), limits));
    QVERIFY(session.lines("OVER 1", 224, ignore));
    QVERIFY(session.lines("OVER 2", 224, ignore));
    QVERIFY(!session.lines("OVER 3", 224, ignore));
    QCOMPARE(session.trouble(), Trouble::Broken);
}

void tst_NntpSessionHostile::progressKeepsASlowBlockGoing()
{
    constexpr auto silence = 700ms;
    HostileNntpServer server(loggedIn([silence](Conversation &client) {
        client.hear();
        client.say("224 it follows\r\n");
        for (const QDeadlineTimer end(2 * silence); !end.hasExpired(); client.pause())
            client.say("1\tsubject\r\n");
        client.say(".\r\n");
    }));
    NntpLimits limits;
    limits.silence = silence;
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port()), limits));
    QVERIFY(session.lines("OVER 1-30", 224, ignore));
}

void tst_NntpSessionHostile::aStopIsSeenInEveryReply_data()
{
    QTest::addColumn<Script>("script");
    const QByteArray start = questions().first().announcement();
    QTest::newRow("before the reply") << loggedIn([](Conversation &client) {
        client.hear();
        client.reached();
    });
    QTest::newRow("silent block") << loggedIn([start](Conversation &client) {
        client.hear();
        client.say(start);
        client.reached();
    });
    QTest::newRow("dripping block") << loggedIn([start](Conversation &client) {
        client.hear();
        client.reached();
        client.drip(start);
    });
    QTest::newRow("endless block") << loggedIn([start](Conversation &client) {
        client.hear();
        client.say(start);
        client.reached();
        sendForEver(client, questions().first().line().repeated(100));
    });
    QTest::newRow("new login") << loggedIn([](Conversation &client) {
        client.hear();
        client.say("480 log in\r\n");
        client.hear();
        client.reached();
    });
}

void tst_NntpSessionHostile::aStopIsSeenInEveryReply()
{
    QFETCH(Script, script);
    for (const bool isShutdown : {false, true}) {
        HostileNntpServer server(script);
        SessionThread thread(m_core.get(), accountAt(server.port()),
                             [](NntpSession &session) { session.lines("LIST ACTIVE", 215, ignore); });
        thread.start();
        QVERIFY(server.waitUntilReached());
        if (isShutdown)
            m_core->stopRunning();
        else
            thread.requestInterruption();
        QVERIFY(thread.wait(WatchdogMs));
        QCOMPARE(thread.trouble(), Trouble::Stopped);
    }
}

QTEST_GUILESS_MAIN(tst_NntpSessionHostile)
#include "tst_nntpsession_hostile.moc"
