// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hostilenntpserver.h"
#include "loopbackport.h"
#include "sessionscripts.h"

#include <halvora/core.h>
#include <halvora/nntpsession.h>

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using Trouble = NntpSession::Trouble;
using Script = HostileNntpServer::Script;
using Scripts::loggedIn;
using Scripts::loggedInAnswering;

Q_DECLARE_METATYPE(NntpSession::Trouble)

class tst_NntpSession : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyLineOfABlockComesAsItWasMeant();
    void aSinkThatHasEnoughEndsTheConnectionAndTheNextCommandMakesANewOne();
    void aGroupTellsItsRange();
    void aGroupWithoutNumbersIsABrokenReply();
    void whatCanNotBeSentIsNotSent_data();
    void whatCanNotBeSentIsNotSent();
    void aRefusalKeepsTheConnectionAndTheServersWords();
    void aNewLoginIsGivenOnceAndTheCommandRepeated();
    void aNewLoginThatIsRefusedEndsTheConnection();
    void aServerThatWithdrawsHasRefused_data();
    void aServerThatWithdrawsHasRefused();
    void hostsAreTriedInTheirOrder_data();
    void hostsAreTriedInTheirOrder();
    void aRefusedPasswordIsNotTriedAtTheNextHost();
    void wordsTellThatThereAreTooManyConnections_data();
    void wordsTellThatThereAreTooManyConnections();
    void theSameConnectionServesTheNextTask();
    void anotherAccountGetsAConnectionOfItsOwn();
    void aConnectionThatDiedMeanwhileIsReplaced_data();
    void aConnectionThatDiedMeanwhileIsReplaced();
    void aServerThatLeavesTwiceIsNotTriedAThirdTime();
    void quittingSaysGoodbye();

private:
    /// What a new session is told, and the trouble it has.
    Trouble troubleOf(const NntpAccount &account, QString *words = nullptr);

    QTemporaryDir m_folder;
    std::unique_ptr<Core> m_core;
};

namespace {

bool ignore(const char *, int)
{
    return true;
}

} // namespace

void tst_NntpSession::initTestCase()
{
    m_core = std::make_unique<Core>(m_folder.path());
}

Trouble tst_NntpSession::troubleOf(const NntpAccount &account, QString *words)
{
    NntpSession session(m_core.get());
    session.open(account);
    if (words)
        *words = session.lastReply();
    return session.trouble();
}

void tst_NntpSession::everyLineOfABlockComesAsItWasMeant()
{
    constexpr char block[] =
        "215 list\r\none\r\n\r\n..dot\r\n...\r\nline feed\nreturn\rinside\r\nN\0L\r\n.\r\n";
    HostileNntpServer server(loggedInAnswering({QByteArray(block, int(sizeof block) - 1)}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QByteArrayList lines;
    QVERIFY(session.lines("LIST", 215, [&lines](const char *line, int length) {
        lines << QByteArray(line, length);
        return true;
    }));
    const QByteArrayList expected{
        "one", "", ".dot", "..", "line feed", "return\rinside", QByteArray("N\0L", 3)};
    QCOMPARE(lines, expected);
    QCOMPARE(session.trouble(), Trouble::None);
    QVERIFY(session.isOpen());
}

void tst_NntpSession::aSinkThatHasEnoughEndsTheConnectionAndTheNextCommandMakesANewOne()
{
    HostileNntpServer server(loggedInAnswering({"215 list\r\none\r\ntwo\r\nthree\r\n"}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    int count = 0;
    const auto two = [&count](const char *, int) { return ++count % 2 != 0; };
    QVERIFY(session.lines("LIST", 215, two));
    QCOMPARE(count, 2);
    QVERIFY(!session.isOpen());
    QVERIFY(session.lines("LIST", 215, two));
    QCOMPARE(count, 4);
    QCOMPARE(server.transcript(2), (loginLines() + "LIST\r\n").repeated(2));
}

void tst_NntpSession::aGroupTellsItsRange()
{
    HostileNntpServer server(loggedInAnswering({"211 4 10 20 misc.test\r\n"}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    const auto group = session.group("misc.test");
    QVERIFY(group);
    QCOMPARE(group->count, 4);
    QCOMPARE(group->first, 10);
    QCOMPARE(group->last, 20);
    session.quit();
    QCOMPARE(server.transcript(), loginLines() + "GROUP misc.test\r\nQUIT\r\n");
}

void tst_NntpSession::aGroupWithoutNumbersIsABrokenReply()
{
    HostileNntpServer server(loggedInAnswering({"211 many articles\r\n"}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(!session.group("misc.test"));
    QCOMPARE(session.trouble(), Trouble::Broken);
    QVERIFY(!session.isOpen());
}

void tst_NntpSession::whatCanNotBeSentIsNotSent_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("group");
    QTest::newRow("nothing") << QByteArray() << QByteArray();
    QTest::newRow("line end") << QByteArray("LIST\r\nQUIT") << QByteArray("a\r\nQUIT");
    QTest::newRow("line feed") << QByteArray("LIST\nQUIT") << QByteArray("a\nQUIT");
    QTest::newRow("NUL") << QByteArray("LIST\0", 5) << QByteArray("a\0", 2);
    QTest::newRow("too long") << QByteArray(511, 'L') << QByteArray(498, 'a');
    QTest::newRow("blank") << QByteArray("\r") << QByteArray("a b");
    QTest::newRow("tab") << QByteArray("\r") << QByteArray("a\tb");
}

void tst_NntpSession::whatCanNotBeSentIsNotSent()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, group);
    HostileNntpServer server(loggedInAnswering({}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(!session.lines(command, 215, ignore));
    QCOMPARE(session.trouble(), Trouble::Refused);
    QVERIFY(!session.group(group));
    QCOMPARE(session.trouble(), Trouble::Refused);
    QCOMPARE(session.lastReply(), QString());
    session.quit();
    QCOMPARE(server.transcript(), loginLines() + "QUIT\r\n");
}

void tst_NntpSession::aRefusalKeepsTheConnectionAndTheServersWords()
{
    HostileNntpServer server(loggedInAnswering({"411 No \x07wonderland here\r\n", "211 1 2 2 a\r\n"}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(!session.group("a"));
    QCOMPARE(session.trouble(), Trouble::Refused);
    QCOMPARE(session.lastReply(), QStringLiteral("411 No \uFFFD*** here"));
    QVERIFY(session.isOpen());
    QVERIFY(session.group("a"));
    QCOMPARE(session.trouble(), Trouble::None);
}

void tst_NntpSession::aNewLoginIsGivenOnceAndTheCommandRepeated()
{
    const QByteArray list = "215 list\r\none\r\n.\r\n";
    HostileNntpServer server(
        loggedInAnswering({"480 log in\r\n", "381 more\r\n", "281 welcome\r\n", list, "480 log in\r\n",
                           "381 more\r\n", "281 welcome\r\n", "480 log in\r\n", "211 1 2 2 a\r\n"}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(session.lines("LIST", 215, ignore));
    QVERIFY(!session.lines("LIST", 215, ignore));
    QCOMPARE(session.trouble(), Trouble::Refused);
    QCOMPARE(session.lastReply(), QStringLiteral("480 log in"));
    QVERIFY(session.group("a"));
    session.quit();
    const QByteArray again = "LIST\r\n" + loginLines() + "LIST\r\n";
    QCOMPARE(server.transcript(), loginLines() + again + again + "GROUP a\r\nQUIT\r\n");
}

void tst_NntpSession::aNewLoginThatIsRefusedEndsTheConnection()
{
    HostileNntpServer server(loggedInAnswering({"480 log in\r\n", "481 not any more\r\n"}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(!session.lines("LIST", 215, ignore));
    QCOMPARE(session.trouble(), Trouble::Refused);
    QCOMPARE(session.lastReply(), QStringLiteral("481 not any more"));
    QVERIFY(!session.isOpen());
}

void tst_NntpSession::aServerThatWithdrawsHasRefused_data()
{
    QTest::addColumn<Script>("script");
    QTest::newRow("instead of the block") << loggedInAnswering({"400 going down\r\n"});
    QTest::newRow("for good") << loggedInAnswering({"502 going down\r\n"});
    QTest::newRow("after a new login")
        << loggedInAnswering({"480 log in\r\n", "381 more\r\n", "281 welcome\r\n", "400 going down\r\n"});
    QTest::newRow("instead of a new login") << loggedInAnswering({"480 log in\r\n", "502 going down\r\n"});
    QTest::newRow("too many connections by then")
        << loggedInAnswering({"480 log in\r\n", "502 too many connections, going down\r\n"});
}

void tst_NntpSession::aServerThatWithdrawsHasRefused()
{
    QFETCH(Script, script);
    HostileNntpServer server(script);
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(!session.lines("LIST", 215, ignore));
    QCOMPARE(session.trouble(), Trouble::Refused);
    QVERIFY2(session.lastReply().endsWith(QLatin1String("going down")), qPrintable(session.lastReply()));
    QVERIFY(!session.isOpen());
    // And that is that, until the next task.
    QVERIFY(!session.lines("LIST", 215, ignore));
    QCOMPARE(session.trouble(), Trouble::Broken);
}

void tst_NntpSession::hostsAreTriedInTheirOrder_data()
{
    QTest::addColumn<Script>("first");
    QTest::newRow("first is full") << Scripts::saying("400 no reader today\r\n");
    QTest::newRow("first speaks something else") << Scripts::saying("hello\r\n");
    QTest::newRow("first hangs up") << Script([](Conversation &client) { client.slam(); });
    QTest::newRow("first hangs up at the login") << Script([](Conversation &client) {
        client.say("200 welcome\r\n");
        client.hear();
        client.hangUp();
    });
}

void tst_NntpSession::hostsAreTriedInTheirOrder()
{
    QFETCH(Script, first);
    HostileNntpServer odd(first);
    HostileNntpServer good(loggedInAnswering({}));
    NntpAccount account = accountAt(odd.port());
    const LoopbackPort nobody;
    account.hosts.prepend(NntpHost(QStringLiteral("127.0.0.1"), nobody.port(), false));
    account.hosts.append(NntpHost(QStringLiteral("127.0.0.1"), good.port(), false));
    NntpSession session(m_core.get());
    QVERIFY(session.open(account));
    session.quit();
    QCOMPARE(good.transcript(), loginLines() + "QUIT\r\n");
    odd.transcript();
}

void tst_NntpSession::aRefusedPasswordIsNotTriedAtTheNextHost()
{
    HostileNntpServer strict(Scripts::answering({"381 more\r\n", "481 wrong\r\n"}));
    HostileNntpServer next(loggedInAnswering({}));
    NntpAccount account = accountAt(strict.port());
    account.hosts.append(NntpHost(QStringLiteral("127.0.0.1"), next.port(), false));
    QString words;
    QCOMPARE(troubleOf(account, &words), Trouble::Refused);
    QCOMPARE(words, QStringLiteral("481 wrong"));
    QCOMPARE(next.transcript(0), QByteArray());
}

void tst_NntpSession::wordsTellThatThereAreTooManyConnections_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<Trouble>("trouble");
    const auto row = [](const char *words, Trouble trouble) {
        QTest::newRow(words) << QByteArray(words) << trouble;
    };
    row("502 Too many connections", Trouble::TooManyConnections);
    row("400 Connection limit reached", Trouble::TooManyConnections);
    row("482 maximum number of CONNECTIONS in use", Trouble::TooManyConnections);
    row("452 connections exceeded", Trouble::TooManyConnections);
    row("502 No connections from there", Trouble::Refused);
    row("502 Too many articles", Trouble::Refused);
    row("481 Too many connections", Trouble::TooManyConnections);
}

void tst_NntpSession::wordsTellThatThereAreTooManyConnections()
{
    QFETCH(QByteArray, words);
    QFETCH(Trouble, trouble);
    HostileNntpServer greeting(Scripts::saying(words + "\r\n"));
    QCOMPARE(troubleOf(accountAt(greeting.port())), trouble);
    HostileNntpServer login(Scripts::answering({"381 more\r\n", words + "\r\n"}));
    QString told;
    QCOMPARE(troubleOf(accountAt(login.port()), &told), trouble);
    QCOMPARE(told, QString::fromLatin1(words));
}

void tst_NntpSession::theSameConnectionServesTheNextTask()
{
    HostileNntpServer server(loggedInAnswering({"411 no\r\n", "211 1 2 2 a\r\n"}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(!session.group("a"));
    QVERIFY(session.open(accountAt(server.port())));
    QCOMPARE(session.lastReply(), QString());
    QVERIFY(session.group("a"));
    session.quit();
    QCOMPARE(server.transcript(), loginLines() + "GROUP a\r\nGROUP a\r\nQUIT\r\n");
}

void tst_NntpSession::anotherAccountGetsAConnectionOfItsOwn()
{
    HostileNntpServer server(loggedInAnswering({}));
    NntpAccount account = accountAt(server.port());
    NntpSession session(m_core.get());
    QVERIFY(session.open(account));
    account.user = QStringLiteral("bob");
    QVERIFY(session.open(account));
    QVERIFY(server.transcript(1).contains("AUTHINFO USER bob\r\n"));
}

void tst_NntpSession::aConnectionThatDiedMeanwhileIsReplaced_data()
{
    QTest::addColumn<Script>("end");
    QTest::newRow("closed") << Script([](Conversation &client) {
        client.reached();
        client.hangUp();
    });
    QTest::newRow("reset") << Script([](Conversation &client) { client.slam(); });
    QTest::newRow("with a word") << Script([](Conversation &client) { client.say("400 too long idle\r\n"); });
    QTest::newRow("at the next command") << Script([](Conversation &client) {
        client.reached();
        client.hear();
        client.slam();
    });
}

void tst_NntpSession::aConnectionThatDiedMeanwhileIsReplaced()
{
    QFETCH(Script, end);
    auto conversations = std::make_shared<int>(0);
    HostileNntpServer server(loggedIn([conversations, end](Conversation &client) {
        client.hear();
        client.say("211 1 2 2 a\r\n");
        if (++*conversations > 1)
            return;
        end(client);
        client.reached();
    }));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(session.group("a"));
    QVERIFY(server.waitUntilReached());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(session.group("a"));
    QCOMPARE(session.trouble(), Trouble::None);
    session.quit();
    QVERIFY(server.transcript(2).endsWith(loginLines() + "GROUP a\r\nQUIT\r\n"));
}

void tst_NntpSession::aServerThatLeavesTwiceIsNotTriedAThirdTime()
{
    HostileNntpServer server(loggedIn([](Conversation &client) {
        client.hear();
        client.slam();
    }));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(session.open(accountAt(server.port())));
    QVERIFY(!session.group("a"));
    QCOMPARE(session.trouble(), Trouble::Broken);
    QCOMPARE(server.transcript(2), (loginLines() + "GROUP a\r\n").repeated(2));
}

void tst_NntpSession::quittingSaysGoodbye()
{
    HostileNntpServer server(loggedInAnswering({}));
    NntpSession session(m_core.get());
    QVERIFY(session.open(accountAt(server.port())));
    session.quit();
    QVERIFY(!session.isOpen());
    QCOMPARE(server.transcript(), loginLines() + "QUIT\r\n");
}

QTEST_GUILESS_MAIN(tst_NntpSession)
#include "tst_nntpsession.moc"
