// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "grouplines.h"
#include "heartbeat.h"
#include "newsgroupcache.h"
#include "newsscripts.h"
#include "newswindow.h"

#include <halvora/connector.h>
#include <halvora/hnntpdistributor.h>

#include <QPushButton>
#include <QtTest>

using namespace NewsScripts;

/// The panel with all newsgroups beside servers that do not keep to their part.
class TestNewsgroupListHostile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aServerThatSendsUsAwayHasNoListForUs_data();
    void aServerThatSendsUsAwayHasNoListForUs();
    void aRefusalThatLetsUsStayMeansNoDescriptions_data();
    void aRefusalThatLetsUsStayMeansNoDescriptions();
    void aListThatBrokeOffCanBeTriedAgain();
    void aListWithoutEndIsGivenUp_data();
    void aListWithoutEndIsGivenUp();
    void whileAllConnectionsAreInUseThePanelSaysThatItWaits();

private:
    static void keepOldList(NewsWindow &news);
};

namespace {

const QByteArray listed = "215 Here\r\na.a 1 1 y\r\nb.b 1 1 y\r\n.\r\n";
const QByteArray described = "215 Here\r\nb.b\tSecond\r\n.\r\n";

QStringList two()
{
    return {QStringLiteral("a.a"), QStringLiteral("b.b")};
}

} // namespace

void TestNewsgroupListHostile::keepOldList(NewsWindow &news)
{
    const QDateTime fetched = QDateTime::currentDateTimeUtc().addDays(-2);
    QVERIFY(newsgroupcache::write(news.cacheFile(), {tableOf({"kept.group"}), fetched,
                                                     QStringLiteral("127.0.0.1"), QStringLiteral("demo")}));
    news.restart();
    QTRY_COMPARE(news.names(), QStringList{QStringLiteral("kept.group")});
}

void TestNewsgroupListHostile::aServerThatSendsUsAwayHasNoListForUs_data()
{
    QTest::addColumn<HostileNntpServer::Script>("script");
    QTest::addColumn<QString>("problem");
    QTest::newRow("out of service") << dialogue({listed, "502 Gone\r\n"}) << "The news server said: 502 Gone";
    QTest::newRow("idle too long") << dialogue({listed, "400 Bye\r\n"}) << "The news server said: 400 Bye";
    QTest::newRow("a login that is refused")
        << dialogue({listed, "480 Who?\r\n", "481 Not you\r\n"}) << "The news server said: 481 Not you";
    QTest::newRow("too many connections") << dialogue({listed, "502 Too many connections\r\n"})
                                          << "The news server said: 502 Too many connections";
    QTest::newRow("the connection ends")
        << brokenDialogue({listed}) << "The connection to the news server broke.";
    QTest::newRow("the descriptions break off")
        << brokenDialogue({listed, "215 Here\r\na.a\tFir"}) << "The connection to the news server broke.";
}

void TestNewsgroupListHostile::aServerThatSendsUsAwayHasNoListForUs()
{
    QFETCH(HostileNntpServer::Script, script);
    HostileNntpServer server(inTurn({script, dialogue({listed, described})}));
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    keepOldList(news);
    QVERIFY(news.logIn());
    QTRY_VERIFY(!news.problem().isEmpty());
    QTEST(news.problem(), "problem");
    QCOMPARE(news.names(), QStringList{QStringLiteral("kept.group")});
    QVERIFY(newsgroupcache::read(news.cacheFile()).fetched < QDateTime::currentDateTimeUtc().addDays(-1));
    news.find<QPushButton>("tryAgain")->click();
    QTRY_COMPARE(news.names(), two());
    QCOMPARE(news.problem(), QString());
    QCOMPARE(NewsWindow::texts(news.list(), 1), (QStringList{QString(), QStringLiteral("Second")}));
}

void TestNewsgroupListHostile::aRefusalThatLetsUsStayMeansNoDescriptions_data()
{
    QTest::addColumn<QByteArray>("refusal");
    QTest::newRow("unknown") << QByteArray("500 What?\r\n");
    QTest::newRow("unknown variant") << QByteArray("501 Which?\r\n");
    QTest::newRow("not kept") << QByteArray("503 None\r\n");
}

void TestNewsgroupListHostile::aRefusalThatLetsUsStayMeansNoDescriptions()
{
    QFETCH(QByteArray, refusal);
    HostileNntpServer server(dialogue({listed, refusal}));
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    keepOldList(news);
    QVERIFY(news.logIn());
    QTRY_COMPARE(news.names(), two());
    QCOMPARE(news.problem(), QString());
    QVERIFY(newsgroupcache::read(news.cacheFile()).fetched > QDateTime::currentDateTimeUtc().addDays(-1));
}

void TestNewsgroupListHostile::aListThatBrokeOffCanBeTriedAgain()
{
    HostileNntpServer server(
        inTurn({brokenDialogue({"215 Here\r\na.a 1 1 y\r\nb.b 1"}), dialogue({listed, described})}));
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    QVERIFY(news.logIn());
    QTRY_COMPARE(news.problem(), QStringLiteral("The connection to the news server broke."));
    QCOMPARE(news.names(), QStringList());
    news.find<QPushButton>("tryAgain")->click();
    QTRY_COMPARE(news.names(), two());
    QCOMPARE(news.problem(), QString());
}

void TestNewsgroupListHostile::aListWithoutEndIsGivenUp_data()
{
    addEndlessBlocks("215 Here\r\n");
}

void TestNewsgroupListHostile::aListWithoutEndIsGivenUp()
{
    QFETCH(HostileNntpServer::Script, ending);
    const auto endless = dialogue({}, [ending](Conversation &client) {
        client.hear();
        ending(client);
    });
    HostileNntpServer server(inTurn({endless, dialogue({listed, described})}));
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    HNntpDistributor *distributor = news.account().connector().distributor();
    distributor->setLimits(narrowLimits());
    QVERIFY(news.logIn());
    const Heartbeat heartbeat;
    QTRY_COMPARE(news.problem(), QStringLiteral("The connection to the news server broke."));
    QVERIFY2(heartbeat.longestGap() < 1000, qPrintable(QString::number(heartbeat.longestGap())));
    QCOMPARE(news.names(), QStringList());
    distributor->setLimits(NntpLimits());
    news.find<QPushButton>("tryAgain")->click();
    QTRY_COMPARE(news.names(), two());
    QCOMPARE(news.problem(), QString());
}

void TestNewsgroupListHostile::whileAllConnectionsAreInUseThePanelSaysThatItWaits()
{
    Gate gate;
    const auto hesitant = [&gate](Conversation &client) {
        gate.pass();
        dialogue({listed, described})(client);
    };
    HostileNntpServer server(inTurn({Scripts::saying("502 Too many connections\r\n"), hesitant}));
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    news.account().connector().distributor()->setRetryWait(std::chrono::milliseconds(1),
                                                           std::chrono::milliseconds(1));
    QVERIFY(news.logIn());
    QTRY_COMPARE(news.summary(),
                 QStringLiteral("All connections of the account are in use. Next attempt in 1 s."));
    QVERIFY(!news.find<QWidget>("progress")->isHidden());
    gate.open();
    QTRY_COMPARE(news.names(), two());
    QTRY_COMPARE(news.summary(), QStringLiteral("2 of 2 newsgroups"));
}

QTEST_MAIN(TestNewsgroupListHostile)
#include "tst_newsgrouplist_hostile.moc"
