// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "corviaservice.h"
#include "scenario.h"

#include <QtTest>
#include <set>

/// What is read from a scenario and what is said about a bad one.
class TestCorviaScenario : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aBadScenarioIsToldWithItsLine_data()
    {
        QTest::addColumn<QString>("inside");
        QTest::addColumn<QString>("problem");
        const auto row = [](const char *name, const char *inside, const char *problem) {
            QTest::newRow(name) << inside << problem;
        };
        row("no password", "<account user='a'/>", "<account> needs the attribute \"password\"");
        row("odd attribute", "<account user='a' password='b' c='d'/>", "<account> has no attribute \"c\"");
        row("odd element", "<acount/>", "<acount> has no place here");
        row("two accounts", "<account user='a' password='b'/><account user='a' password='b'/>",
            "there are two accounts \"a\"");
        row("no number", "<account user='a' password='b'><status next-update-millis='-1'/></account>",
            R"("-1" is no number for the attribute "next-update-millis")");
        row("no flag", "<account user='a' password='b'><status supported='yes'/></account>",
            R"(the attribute "supported" is "true" or "false")");
        row("no port",
            "<account user='a' password='b'><servers><server host='a' port='0'/></servers></account>",
            "a port is a number from 1 to 65535");
        row("nameless folder",
            "<account user='a' password='b'><bookmarks><folder name=' '/></bookmarks></account>",
            "a folder among the bookmarks has a name");
        row("nameless newsgroup",
            "<account user='a' password='b'><bookmarks><folder name='f'><newsgroup name=''/></folder>"
            "</bookmarks></account>",
            "a newsgroup among the bookmarks has a name");
        row("bookmark in no folder",
            "<account user='a' password='b'><bookmarks><newsgroup name='a'/></bookmarks></account>",
            "<newsgroup> has no place here");
        const auto messageRow = [&row](const char *name, const QByteArray &messages, const char *problem) {
            const QByteArray inside =
                "<account user='a' password='b'><messages>" + messages + "</messages></account>";
            row(name, inside.constData(), problem);
        };
        messageRow("nameless message", "<message/>", "<message> needs the attribute \"uid\"");
        messageRow("blank message", "<message uid=' '/>", "a message has a uid that is not blank");
        messageRow("long uid", "<message uid='" + QByteArray(256, 'u') + "'/>",
                   "the uid of a message has at most 255 bytes");
        messageRow("the same uid again", "<message uid='m'/><message uid='m'/>",
                   "there are two messages \"m\"");
        messageRow("two dates", "<message uid='m' date='1' hours-ago='1'/>",
                   "a message has a date or an age, not both");
        messageRow("no message", "<note uid='m'/>", "<note> has no place here");
        row("empty series", "<groups><group name='a'><series count='3'/></group></groups>",
            "a series has at least one article");
        row("the same id again",
            "<groups><group name='a'><series count='2'><article id='x' from='y' "
            "subject='z'/></series></group>"
            "</groups>",
            "there are two articles <x>");
        row("no fault", "<fault kind='earthquake'/>", "there is no fault \"earthquake\"");
        row("two groups", "<groups><group name='a'/><group name='a'/></groups>",
            "there are two groups \"a\"");
        row("falling numbers",
            "<groups><group name='a' first='5'><article id='x' number='4' from='y' "
            "subject='z'/></group></groups>",
            "article numbers have to rise");
        row("two articles",
            "<groups><group name='a'><article id='x' from='y' subject='z'/><article id='x' from='y' "
            "subject='z'/>"
            "</group></groups>",
            "there are two articles <x>");
    }

    void aBadScenarioIsToldWithItsLine()
    {
        QFETCH(QString, inside);
        QFETCH(QString, problem);
        const std::string xml = "<scenario version='1'>\n\n" + inside.toStdString() + "</scenario>";
        corvia::CorviaService service(xml, corvia::Options());
        std::string why;
        QVERIFY(!service.start(&why));
        QCOMPARE(why, "Line 3 of the scenario: " + problem.toStdString() + ".");
    }

    void anythingElseIsNoScenario()
    {
        corvia::Scenario scenario;
        std::string why;
        QVERIFY(!corvia::readScenario("<scenario version='1'>\n<account", &scenario, &why));
        QVERIFY2(why.find("Line 2 of the scenario: ") == 0, why.c_str());
        QVERIFY(!corvia::readScenario("<scenario version='2'/>", &scenario, &why));
        QVERIFY(!corvia::readScenario("", &scenario, &why));
        QVERIFY(why.find("of the scenario: ") != std::string::npos);
    }

    void aScenarioWithoutAnythingHasItsDefaults()
    {
        corvia::Scenario scenario;
        std::string why;
        QVERIFY2(corvia::readScenario("<scenario version='1'/>", &scenario, &why), why.c_str());
        QCOMPARE(scenario.autoSearchInterval, 900);
        QVERIFY(scenario.accounts.empty() && scenario.groups.empty());
        QVERIFY(scenario.fault.kind == corvia::Fault::Kind::None);
    }

    void anArticlesTextLosesItsIndentationOnly()
    {
        corvia::Scenario scenario;
        std::string why;
        const std::string xml =
            "<scenario version='1'><groups><group name='a'><article id='i' from='f' subject='s'>\n"
            "    one\n\n      two\n   \n  </article></group></groups></scenario>";
        QVERIFY2(corvia::readScenario(xml, &scenario, &why), why.c_str());
        QCOMPARE(scenario.groups[0].articles[0].body, (std::vector<std::string>{"one", "", "  two"}));
    }

    void aSeriesIsManyArticlesWhosePatternsTakeTurns()
    {
        corvia::Scenario scenario;
        std::string why;
        const std::string xml =
            "<scenario version='1'><groups><group name='a' first='7'>"
            "<article id='zero' from='f' subject='s'/>"
            "<series count='3' minutes-apart='60'><article id='p{n}' from='f' subject='{n}, {n}' lines='3'>\n"
            "one\ntwo\n</article><article id='q{n}' from='g' subject='other'>text</article></series>"
            "</group></groups></scenario>";
        QVERIFY2(corvia::readScenario(xml, &scenario, &why), why.c_str());
        const std::vector<corvia::Article> &articles = scenario.groups[0].articles;
        QCOMPARE(articles.size(), std::size_t(4));
        QCOMPARE(articles[1].number, 8L);
        QCOMPARE(articles[1].id, std::string("<p1>"));
        QCOMPARE(articles[1].body, (std::vector<std::string>{"one", "two", "one"}));
        QCOMPARE(articles[2].id, std::string("<q2>"));
        QCOMPARE(articles[2].body, (std::vector<std::string>{"text"}));
        QCOMPARE(articles[3].id, std::string("<p3>"));
        QCOMPARE(articles[3].subject, std::string("3, 3"));
        QCOMPARE(articles[3].number, 10L);
        const auto timeOf = [](const corvia::Article &article) {
            return QDateTime::fromString(QString::fromStdString(article.date), Qt::RFC2822Date);
        };
        QCOMPARE(qRound(timeOf(articles[1]).secsTo(timeOf(articles[3])) / 600.), 12);
    }

    void everyBookmarkOfTheDemoScenarioIsAGroup()
    {
        corvia::Scenario scenario;
        std::string why;
        QVERIFY2(corvia::readScenario(corvia::demoScenario(), &scenario, &why), why.c_str());
        std::set<std::string> groups;
        for (const corvia::Newsgroup &group : scenario.groups) {
            groups.insert(group.name);
        }
        const std::vector<corvia::BookmarkFolder> &folders = scenario.accounts[0].bookmarks;
        QCOMPARE(folders.size(), std::size_t(4));
        for (const corvia::BookmarkFolder &folder : folders) {
            QVERIFY(folder.newsgroups.size() >= 4);
            for (const std::string &newsgroup : folder.newsgroups) {
                QVERIFY2(groups.count(newsgroup) == 1, newsgroup.c_str());
            }
        }
    }

    void everyFaultHasAName()
    {
        for (const char *name :
             {"none", "stall", "drip", "flood", "header-flood", "status", "body", "element", "truncate",
              "close", "redirect", "encoding", "refuse-login", "forget-sessions", "delay"}) {
            corvia::Fault::Kind kind;
            QVERIFY2(corvia::faultKindFromName(name, &kind), name);
        }
    }

    void theDemoScenarioHasGroupsAndArticles()
    {
        corvia::Scenario scenario;
        std::string why;
        QVERIFY2(corvia::readScenario(corvia::demoScenario(), &scenario, &why), why.c_str());
        QVERIFY(scenario.groups.size() >= 40);
        QCOMPARE(scenario.accounts.size(), std::size_t(3));
        std::size_t articles = 0;
        for (const corvia::Newsgroup &group : scenario.groups) {
            QVERIFY(!group.description.empty());
            articles += group.articles.size();
        }
        QVERIFY(articles >= 150);
    }
};

QTEST_GUILESS_MAIN(TestCorviaScenario)
#include "tst_corviascenario.moc"
