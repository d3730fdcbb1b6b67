// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "heartbeat.h"
#include "newsscripts.h"
#include "newswindow.h"

#include <halvora/connector.h>
#include <halvora/hnntpdistributor.h>
#include <halvora/newsgroup.h>

#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <QtTest>

#include <memory>

using namespace NewsScripts;

/// The pages of articles beside servers that do not keep to their part.
class TestArticleListHostile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aServerThatSendsUsAwayIsToldInItsWords_data();
    void aServerThatSendsUsAwayIsToldInItsWords();
    void whatWasScrolledToCanBeTriedAgain_data();
    void whatWasScrolledToCanBeTriedAgain();
    void aLoginInBetweenIsNotNoticed_data();
    void aLoginInBetweenIsNotNoticed();
    void aServerThatForgetsTheNewsgroupIsRemindedOnce();
    void anOverviewThatBreaksOffIsNotTaken();
    void whenAConnectionBreaksTheOthersAreAskedForAgain_data();
    void whenAConnectionBreaksTheOthersAreAskedForAgain();
    void newsgroupsThatWereLostAreNamed_data();
    void newsgroupsThatWereLostAreNamed();
    void aNewsgroupThatWasReadInPartIsReadAgain();
    void aNewsgroupThatBreaksEveryConnectionIsNotInTheWay();
    void aNewsgroupThatIsLostDoesNotStopScrolling();
    void aMissingNewsgroupIsAskedForAgainWhenOneWants();
    void aPageThatIsInterruptedTakesNothing();
    void aNameThatCanNotBeSentIsTold_data();
    void aNameThatCanNotBeSentIsTold();
    void anOverviewWithoutEndIsGivenUp_data();
    void anOverviewWithoutEndIsGivenUp();
    void whileAllConnectionsAreInUseThePageSaysThatItWaits();
};

namespace {

const QByteArray one = "211 1 1 1 a.b\r\n";

QString broke()
{
    return QStringLiteral("The connection to the news server broke.");
}

QStringList three()
{
    return {QStringLiteral("a.a"), QStringLiteral("b.b"), QStringLiteral("c.c")};
}

/// The replies of a first connection, on which the list of newsgroups is asked for before anything else.
QList<QByteArray> afterTheList(const QList<QByteArray> &replies)
{
    return QList<QByteArray>{"215 Here\r\n.\r\n", "503 None\r\n"} + replies;
}

/// A page of articles beside a server whose connections get one of some scripts each.
class NewsPage {
public:
    explicit NewsPage(const QList<Script> &scripts)
        : m_server(inTurn(scripts))
        , m_news(std::make_unique<NewsWindow>(newsScenario(plainServer(m_server.port()), {})))
    {
    }

    /// Logs in, lets the list of newsgroups come and opens the page; false when that fails.
    bool open(const QStringList &names = {QStringLiteral("a.b")})
    {
        const auto hasList = [this] {
            return m_news->summary() == QLatin1String("The news server has no newsgroups.");
        };
        if (!m_news->logIn() || !QTest::qWaitFor(hasList))
            return false;
        QList<Newsgroup> newsgroups;
        for (const QString &name : names)
            newsgroups.append(Newsgroup(name));
        m_news->account().plugin().showNewsgroupPanel(QStringLiteral("Page"), newsgroups, HIndex::ListView,
                                                      HIndex::AnyFacet);
        return true;
    }

    Connector &connector() { return m_news->account().connector(); }
    HNntpDistributor &distributor() { return *connector().distributor(); }
    QTreeView *view() { return m_news->find<QTreeView>("articleList"); }
    QString summary() { return NewsWindow::label(view()->parentWidget(), "summary"); }
    QString problem() { return NewsWindow::label(view()->parentWidget(), "problem"); }
    /// The subjects in the order of the alphabet.
    QStringList subjects()
    {
        QStringList texts = NewsWindow::texts(view(), 0);
        texts.sort();
        return texts;
    }
    void tryAgain() { NewsWindow::find<QPushButton>(view()->parentWidget(), "tryAgain")->click(); }
    /// False when there is nothing to scroll.
    bool scrollDown()
    {
        const QScrollBar *bar = view()->verticalScrollBar();
        if (!QTest::qWaitFor([bar] { return bar->value() < bar->maximum(); }))
            return false;
        view()->scrollToBottom();
        return true;
    }

    /// Ends the program and returns what the server heard on its first @p connections.
    QByteArray endAndHear(int connections = 1)
    {
        m_news.reset();
        return m_server.transcript(connections);
    }

private:
    HostileNntpServer m_server;
    std::unique_ptr<NewsWindow> m_news;
};

QByteArray article(const QByteArray &subject)
{
    return "224 Here\r\n1\t" + subject + "\r\n.\r\n";
}

} // namespace

void TestArticleListHostile::aServerThatSendsUsAwayIsToldInItsWords_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<QString>("problem");
    QTest::newRow("out of service") << dialogue(afterTheList({one, "502 Gone\r\n"}))
                                    << "The news server said: 502 Gone";
    QTest::newRow("idle too long") << dialogue(afterTheList({one, "400 Bye\r\n"}))
                                   << "The news server said: 400 Bye";
    QTest::newRow("a login that is refused")
        << dialogue(afterTheList({one, "480 Who?\r\n", "481 No\r\n"})) << "The news server said: 481 No";
    QTest::newRow("the connection ends") << brokenDialogue(afterTheList({one})) << broke();
}

void TestArticleListHostile::aServerThatSendsUsAwayIsToldInItsWords()
{
    QFETCH(Script, script);
    NewsPage page({script, dialogue({one, article("first")})});
    QVERIFY(page.open());
    QTRY_VERIFY(!page.problem().isEmpty());
    QTEST(page.problem(), "problem");
    QCOMPARE(page.subjects(), QStringList());
    page.tryAgain();
    QTRY_COMPARE(page.subjects(), QStringList{QStringLiteral("first")});
    QCOMPARE(page.problem(), QString());
}

void TestArticleListHostile::whatWasScrolledToCanBeTriedAgain_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<QString>("problem");
    const QByteArray group = "211 600 1 600 a.b\r\n";
    const QList<QByteArray> first = afterTheList({group, overview(101, 600)});
    const QString gone = QStringLiteral("The news server said: 502 Gone");
    QTest::newRow("at the newsgroup") << dialogue(first + QList<QByteArray>{"502 Gone\r\n"}) << gone;
    QTest::newRow("at the overview") << dialogue(first + QList<QByteArray>{group, "502 Gone\r\n"}) << gone;
    QTest::newRow("in the overview") << brokenDialogue(
                                            first + QList<QByteArray>{group, "224 Here\r\n9\tArticle 9\r\n"})
                                     << broke();
    QTest::newRow("for a while") << dialogue(first + QList<QByteArray>{group, "403 Not now\r\n", group,
                                                                       overview(1, 100)})
                                 << "The news server said: 403 Not now";
}

void TestArticleListHostile::whatWasScrolledToCanBeTriedAgain()
{
    QFETCH(Script, script);
    NewsPage page({script, dialogue({"211 600 1 600 a.b\r\n", overview(1, 100)})});
    QVERIFY(page.open());
    QTRY_COMPARE(page.subjects().size(), 500);
    QVERIFY(page.scrollDown());
    QTRY_VERIFY(!page.problem().isEmpty());
    QTEST(page.problem(), "problem");
    QCOMPARE(page.summary(), QStringLiteral("500 of 500 articles shown, older ones are on the server"));
    page.tryAgain();
    QTRY_COMPARE(page.summary(), QStringLiteral("600 of 600 articles shown"));
    QCOMPARE(page.problem(), QString());
}

void TestArticleListHostile::aLoginInBetweenIsNotNoticed_data()
{
    QTest::addColumn<QList<QByteArray>>("replies");
    QTest::addColumn<QByteArray>("heard");
    QTest::newRow("the newsgroup is still selected") << QList<QByteArray>{article("first")} << QByteArray();
    QTest::newRow("the newsgroup is forgotten") << QList<QByteArray>{"412 Which?\r\n", one, article("first")}
                                                << QByteArray("GROUP a.b\r\nOVER 1-1\r\n");
    QTest::newRow("and the server is an old one")
        << QList<QByteArray>{"412 Which?\r\n", one, "500 What?\r\n", article("first")}
        << QByteArray("GROUP a.b\r\nOVER 1-1\r\nXOVER 1-1\r\n");
}

void TestArticleListHostile::aLoginInBetweenIsNotNoticed()
{
    QFETCH(QList<QByteArray>, replies);
    QFETCH(QByteArray, heard);
    const QList<QByteArray> login{one, "480 Who?\r\n", "381 Go on\r\n", "281 Welcome\r\n"};
    NewsPage page({dialogue(afterTheList(login + replies))});
    QVERIFY(page.open());
    QTRY_COMPARE(page.subjects(), QStringList{QStringLiteral("first")});
    QCOMPARE(page.problem(), QString());
    const QByteArray loginLines = "AUTHINFO USER demo\r\nAUTHINFO PASS pinegate\r\n";
    const QByteArray transcript = page.endAndHear();
    QVERIFY2(transcript.contains("OVER 1-1\r\n" + loginLines + "OVER 1-1\r\n" + heard + "QUIT\r\n"),
             transcript.constData());
}

void TestArticleListHostile::aServerThatForgetsTheNewsgroupIsRemindedOnce()
{
    NewsPage page({dialogue(afterTheList({one, "412 Which?\r\n", one, "412 Which?\r\n", one}))});
    QVERIFY(page.open());
    QTRY_COMPARE(page.problem(), QStringLiteral("The news server said: 412 Which?"));
    QCOMPARE(page.endAndHear().count("OVER"), 2);
}

void TestArticleListHostile::anOverviewThatBreaksOffIsNotTaken()
{
    NewsPage page({brokenDialogue(afterTheList({"211 2 1 2 a.b\r\n", "224 Here\r\n1\tArticle 1\r\n2\tArt"})),
                   dialogue({"211 2 1 2 a.b\r\n", overview(1, 2)})});
    QVERIFY(page.open());
    QTRY_COMPARE(page.problem(), broke());
    QCOMPARE(page.subjects(), QStringList());
    page.tryAgain();
    QTRY_COMPARE(page.summary(), QStringLiteral("2 of 2 articles shown"));
    QCOMPARE(page.problem(), QString());
}

void TestArticleListHostile::whenAConnectionBreaksTheOthersAreAskedForAgain_data()
{
    QTest::addColumn<Script>("script");
    const QList<QByteArray> first = afterTheList({one, article("A")});
    QTest::newRow("between two newsgroups") << brokenDialogue(first);
    QTest::newRow("after a newsgroup was selected") << brokenDialogue(first + QList<QByteArray>{one});
    QTest::newRow("in an overview") << brokenDialogue(first + QList<QByteArray>{one, "224 Here\r\n1\tB"});
    QTest::newRow("with a goodbye") << dialogue(first + QList<QByteArray>{"400 Bye\r\n"});
    QTest::newRow("with words that are none") << dialogue(first + QList<QByteArray>{"211 one\r\n"});
}

void TestArticleListHostile::whenAConnectionBreaksTheOthersAreAskedForAgain()
{
    QFETCH(Script, script);
    NewsPage page({script, dialogue({one, article("C"), one, article("B")})});
    QVERIFY(page.open(three()));
    QTRY_COMPARE(page.subjects(),
                 (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    QCOMPARE(page.problem(), QString());
    const QByteArray transcript = page.endAndHear(2);
    QCOMPARE(transcript.count("GROUP a.a\r\n"), 1);
    QVERIFY2(transcript.endsWith("GROUP c.c\r\nOVER 1-1\r\nGROUP b.b\r\nOVER 1-1\r\nQUIT\r\n"),
             transcript.constData());
}

void TestArticleListHostile::newsgroupsThatWereLostAreNamed_data()
{
    QTest::addColumn<Script>("second");
    QTest::addColumn<QString>("problem");
    QTest::newRow("no greeting") << Script([](Conversation &client) { client.hangUp(); })
                                 << "The news server can not be reached. (not loaded: c.c, b.b)";
    QTest::newRow("broken") << brokenDialogue({}) << "Not loaded because the connection broke: c.c, b.b";
    QTest::newRow("sent away") << dialogue({"502 Gone\r\n"})
                               << "Not loaded because the news server said “502 Gone”: c.c, b.b";
    QTest::newRow("missing and broken")
        << brokenDialogue({"411 None\r\n"}) << "c.c: 411 None; Not loaded because the connection broke: b.b";
}

// The page asks once of itself, because its end is in sight.
void TestArticleListHostile::newsgroupsThatWereLostAreNamed()
{
    QFETCH(Script, second);
    NewsPage page({brokenDialogue(afterTheList({one, article("A")})), second,
                   dialogue({one, article("one"), one, article("other")})});
    QVERIFY(page.open(three()));
    QTRY_VERIFY(!page.problem().isEmpty());
    QTEST(page.problem(), "problem");
    QCOMPARE(page.subjects(), QStringList{QStringLiteral("A")});
    page.tryAgain();
    QTRY_COMPARE(page.subjects().size(), 3);
    QCOMPARE(page.problem(), QString());
}

void TestArticleListHostile::aNewsgroupThatWasReadInPartIsReadAgain()
{
    const QByteArray wide = "211 1500 1 1500 b.b\r\n";
    const QList<QByteArray> again{wide, "423 None\r\n", overview(7, 7)};
    NewsPage page(
        {brokenDialogue(afterTheList({one, article("A"), wide, "423 None\r\n", "224 Here\r\n7\tB\r\n"})),
         dialogue(again)});
    QVERIFY(page.open({QStringLiteral("a.a"), QStringLiteral("b.b")}));
    QTRY_COMPARE(page.subjects(), (QStringList{QStringLiteral("A"), QStringLiteral("Article 7")}));
    const QByteArray transcript = page.endAndHear(2);
    QCOMPARE(transcript.count("GROUP b.b\r\nOVER 1001-1500\r\nOVER 1-1000\r\n"), 2);
}

void TestArticleListHostile::aNewsgroupThatBreaksEveryConnectionIsNotInTheWay()
{
    const QByteArray nonsense = "211 one\r\n";
    NewsPage page({dialogue(afterTheList({one, article("A"), nonsense})),
                   dialogue({one, article("C"), nonsense}), dialogue({nonsense})});
    QVERIFY(page.open(three()));
    QTRY_COMPARE(page.problem(), QStringLiteral("Not loaded because the connection broke: b.b"));
    QCOMPARE(page.subjects(), (QStringList{QStringLiteral("A"), QStringLiteral("C")}));
    page.tryAgain();
    QTRY_COMPARE(page.problem(), QStringLiteral("Not loaded because the connection broke: b.b"));
    QCOMPARE(page.subjects().size(), 2);
}

void TestArticleListHostile::aNewsgroupThatIsLostDoesNotStopScrolling()
{
    const QByteArray many = "211 1600 1 1600 a.a\r\n";
    const QByteArray nonsense = "211 one\r\n";
    NewsPage page({dialogue(afterTheList({many, overview(1101, 1600), nonsense})),
                   dialogue({many, overview(601, 1100), nonsense}),
                   dialogue({many, overview(101, 600), one, article("B")})});
    QVERIFY(page.open({QStringLiteral("a.a"), QStringLiteral("b.b")}));
    const QString problem = QStringLiteral("Not loaded because the connection broke: b.b");
    QTRY_COMPARE(page.problem(), problem);
    QCOMPARE(page.subjects().size(), 500);
    QVERIFY(page.scrollDown());
    QTRY_COMPARE(page.subjects().size(), 1000);
    QCOMPARE(page.problem(), problem);
    QVERIFY(page.scrollDown());
    QTRY_COMPARE(page.subjects().size(), 1501);
    QCOMPARE(page.problem(), QString());
}

void TestArticleListHostile::aMissingNewsgroupIsAskedForAgainWhenOneWants()
{
    NewsPage page({dialogue(afterTheList({one, article("A"), "411 None\r\n", one, article("B")}))});
    QVERIFY(page.open({QStringLiteral("a.a"), QStringLiteral("b.b")}));
    QTRY_COMPARE(page.problem(), QStringLiteral("b.b: 411 None"));
    page.tryAgain();
    QTRY_COMPARE(page.subjects(), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(page.problem(), QString());
    QVERIFY(page.endAndHear().endsWith("GROUP b.b\r\nGROUP b.b\r\nOVER 1-1\r\nQUIT\r\n"));
}

void TestArticleListHostile::aPageThatIsInterruptedTakesNothing()
{
    Gate gate;
    NewsPage page({dialogue(afterTheList({one, article("A"), one}), [&gate](Conversation &client) {
        client.hear();
        gate.open();
        client.drip("224 Here\r\n");
    })});
    QVERIFY(page.open(three()));
    gate.pass();
    page.connector().logOut();
    QTRY_COMPARE(page.problem(), QStringLiteral("Loading was interrupted."));
    QCOMPARE(page.subjects(), QStringList());
}

void TestArticleListHostile::aNameThatCanNotBeSentIsTold_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<int>("articles");
    QTest::addColumn<QString>("named");
    const QString blank = QStringLiteral("not a name");
    const QString longName(498, QLatin1Char('x'));
    QTest::newRow("alone") << QStringList{blank} << 0 << blank;
    QTest::newRow("too long") << QStringList{longName} << 0 << longName.left(100);
    QTest::newRow("before another") << QStringList{blank, QStringLiteral("a.b")} << 1 << blank;
    QTest::newRow("after another") << QStringList{QStringLiteral("a.b"), blank} << 1 << blank;
}

void TestArticleListHostile::aNameThatCanNotBeSentIsTold()
{
    QFETCH(QStringList, names);
    QFETCH(int, articles);
    QFETCH(QString, named);
    NewsPage page({dialogue(afterTheList({one, article("first"), one, article("first")}))});
    QVERIFY(page.open(names));
    const QString problem = QStringLiteral("The name has blanks or is too long to be asked for: ") + named;
    QTRY_VERIFY2(page.problem().startsWith(problem), qPrintable(page.problem()));
    QCOMPARE(page.subjects().size(), articles);
    page.tryAgain();
    QTRY_VERIFY2(page.problem().startsWith(problem), qPrintable(page.problem()));
    QCOMPARE(page.subjects().size(), articles);
    QVERIFY(!page.endAndHear().contains(named.toUtf8()));
}

void TestArticleListHostile::anOverviewWithoutEndIsGivenUp_data()
{
    addEndlessBlocks("224 Here\r\n");
}

void TestArticleListHostile::anOverviewWithoutEndIsGivenUp()
{
    QFETCH(Script, ending);
    const auto endless = dialogue(afterTheList({one}), [ending](Conversation &client) {
        client.hear();
        ending(client);
    });
    NewsPage page({endless, dialogue({one, article("first")})});
    page.distributor().setLimits(narrowLimits());
    QVERIFY(page.open());
    const Heartbeat heartbeat;
    QTRY_COMPARE(page.problem(), broke());
    QVERIFY2(heartbeat.longestGap() < 1000, qPrintable(QString::number(heartbeat.longestGap())));
    QCOMPARE(page.subjects(), QStringList());
    page.distributor().setLimits(NntpLimits());
    page.tryAgain();
    QTRY_COMPARE(page.subjects(), QStringList{QStringLiteral("first")});
    QCOMPARE(page.problem(), QString());
}

void TestArticleListHostile::whileAllConnectionsAreInUseThePageSaysThatItWaits()
{
    Gate gate;
    const auto hesitant = [&gate](Conversation &client) {
        gate.pass();
        dialogue({one, article("first")})(client);
    };
    // The connection of the list is over when the page needs one.
    NewsPage page(
        {brokenDialogue(afterTheList({})), Scripts::saying("502 Too many connections\r\n"), hesitant});
    page.distributor().setRetryWait(std::chrono::milliseconds(1), std::chrono::milliseconds(1));
    QVERIFY(page.open());
    QTRY_COMPARE(page.summary(),
                 QStringLiteral("All connections of the account are in use. Next attempt in 1 s."));
    gate.open();
    QTRY_COMPARE(page.subjects(), QStringList{QStringLiteral("first")});
    QCOMPARE(page.summary(), QStringLiteral("1 of 1 articles shown"));
}

QTEST_MAIN(TestArticleListHostile)
#include "tst_articlelist_hostile.moc"
