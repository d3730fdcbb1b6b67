// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "newsclient.h"
#include "servicefixture.h"
#include "wildmat.h"

#include <QtTest>
#include <regex>
#include <thread>

using Lines = std::vector<std::string>;

/// The news service's conversations.
class TestCorviaNews : public QObject {
    Q_OBJECT

private:
    ServiceFixture fixture_;

    int plainPort() { return fixture_.service().nntpPort(); }

    static QList<QByteArray> fieldsOf(const std::string &line)
    {
        return QByteArray::fromStdString(line).split('\t');
    }

private Q_SLOTS:
    void aClientIsGreetedOnBothPorts()
    {
        const std::string greeting = "201 Corvia news service ready, posting prohibited";
        QCOMPARE(NewsClient(plainPort()).greeting(), greeting);
        NewsClient tls(fixture_.service().nntpTlsPort(), fixture_.service().authorityFile());
        QCOMPARE(tls.greeting(), greeting);
        QCOMPARE(tls.logIn("ada", "secret word"), std::string("281 Welcome"));
    }

    void capabilitiesOfferALoginUntilThereIsOne()
    {
        NewsClient client(plainPort());
        const Lines before = client.askBlock("capabilities");
        QCOMPARE(before[0].substr(0, 3), std::string("101"));
        QCOMPARE(before[1], std::string("VERSION 2"));
        QVERIFY(std::count(before.begin(), before.end(), "READER") == 1);
        QVERIFY(std::count(before.begin(), before.end(), "AUTHINFO USER") == 1);
        client.logIn("ada", "secret word");
        const Lines after = client.askBlock("CAPABILITIES");
        QVERIFY(std::count(after.begin(), after.end(), "AUTHINFO USER") == 0);
    }

    void readingTakesALogin_data()
    {
        QTest::addColumn<QString>("command");
        for (const char *command :
             {"LIST", "LIST ACTIVE", "LIST NEWSGROUPS", "GROUP misc.dots", "LISTGROUP misc.dots",
              "ARTICLE <one@x.example>", "HEAD 7", "BODY", "STAT 7", "OVER 1-", "XOVER 1-", "NEXT", "LAST",
              "NEWGROUPS 20260101 000000"}) {
            QTest::newRow(command) << command;
        }
    }

    void readingTakesALogin()
    {
        QFETCH(QString, command);
        NewsClient client(plainPort());
        QCOMPARE(client.ask(command.toStdString()), std::string("480 Please log in first"));
    }

    void aLoginTakesTheAccountsOwnPassword()
    {
        NewsClient client(plainPort());
        QCOMPARE(client.ask("AUTHINFO PASS secret word").substr(0, 3), std::string("482"));
        QCOMPARE(client.ask("AUTHINFO USER ada").substr(0, 3), std::string("381"));
        QCOMPARE(client.ask("AUTHINFO PASS wrong"),
                 std::string("481 The user name or the password is wrong."));
        QCOMPARE(client.ask("AUTHINFO PASS secret word").substr(0, 3), std::string("482"));
        QCOMPARE(client.logIn("eve", "secret word"), std::string("481 Please pay first."));
        QCOMPARE(client.ask("GROUP misc.dots").substr(0, 3), std::string("480"));
        QCOMPARE(client.ask("authinfo user ada").substr(0, 3), std::string("381"));
        QCOMPARE(client.ask("authinfo pass secret word").substr(0, 3), std::string("281"));
        QCOMPARE(client.ask("AUTHINFO USER ada").substr(0, 3), std::string("502"));
        QCOMPARE(client.ask("GROUP misc.dots").substr(0, 3), std::string("211"));
    }

    void groupsAreListed()
    {
        NewsClient client(plainPort());
        client.logIn("ada", "secret word");
        const Lines active = client.askBlock("LIST");
        QCOMPARE(active, (Lines{"215 Groups with their article numbers follow", "misc.dots 9 7 y",
                                "comp.empty 99 100 m", "comp.also 0 1 n"}));
        QCOMPARE(client.askBlock("LIST ACTIVE comp.*,!*.also").size(), std::size_t(2));
        QCOMPARE(client.askBlock("list newsgroups misc.*")[1], std::string("misc.dots\tLines with dots"));
        QCOMPARE(client.askBlock("LIST OVERVIEW.FMT").size(), std::size_t(8));
        QCOMPARE(client.ask("LIST NONSENSE").substr(0, 3), std::string("501"));
    }

    void aGroupTellsItsNumbers()
    {
        NewsClient client(plainPort());
        client.logIn("ada", "secret word");
        QCOMPARE(client.ask("STAT").substr(0, 3), std::string("412"));
        QCOMPARE(client.ask("GROUP misc.dots"), std::string("211 2 7 9 misc.dots"));
        QCOMPARE(client.ask("GROUP no.such").substr(0, 3), std::string("411"));
        QCOMPARE(client.ask("STAT"), std::string("223 7 <one@x.example>"));
        QCOMPARE(client.ask("GROUP comp.empty"), std::string("211 0 100 99 comp.empty"));
        QCOMPARE(client.ask("ARTICLE").substr(0, 3), std::string("420"));
        QCOMPARE(client.ask("GROUP").substr(0, 3), std::string("501"));
        QCOMPARE(client.askBlock("LISTGROUP misc.dots"), (Lines{"211 2 7 9 misc.dots", "7", "9"}));
        QCOMPARE(client.askBlock("LISTGROUP misc.dots 8-").size(), std::size_t(2));
    }

    void anArticleIsReadByNumberAndByIdentifier()
    {
        NewsClient client(plainPort());
        client.logIn("ada", "secret word");
        QCOMPARE(client.askBlock("BODY <one@x.example>"),
                 (Lines{"222 0 <one@x.example>", "..one", "...two", "..", "end"}));
        QCOMPARE(client.ask("BODY <none@x.example>").substr(0, 3), std::string("430"));
        client.ask("GROUP misc.dots");
        QCOMPARE(client.ask("HEAD 8").substr(0, 3), std::string("423"));
        QCOMPARE(client.ask("HEAD x").substr(0, 3), std::string("501"));
        const Lines head = client.askBlock("HEAD 9");
        QCOMPARE(head[0], std::string("221 9 <two@x.example>"));
        QVERIFY(std::count(head.begin(), head.end(), "References: <one@x.example>") == 1);
        QVERIFY(std::count(head.begin(), head.end(), "Date: Mon, 02 Mar 2026 11:00:00 +0000") == 1);
        const Lines whole = client.askBlock("ARTICLE");
        QCOMPARE(whole.size(), head.size() + 2);
        QCOMPARE(whole[whole.size() - 2], std::string());
        QCOMPARE(whole.back(), std::string("Short"));
    }

    void theCurrentArticleMoves()
    {
        NewsClient client(plainPort());
        client.logIn("ada", "secret word");
        QCOMPARE(client.ask("NEXT").substr(0, 3), std::string("412"));
        client.ask("GROUP misc.dots");
        QCOMPARE(client.ask("LAST").substr(0, 3), std::string("422"));
        QCOMPARE(client.ask("NEXT"), std::string("223 9 <two@x.example>"));
        QCOMPARE(client.ask("NEXT").substr(0, 3), std::string("421"));
        QCOMPARE(client.ask("LAST"), std::string("223 7 <one@x.example>"));
    }

    void anOverviewHasALineForEveryArticle()
    {
        NewsClient client(plainPort());
        client.logIn("ada", "secret word");
        QCOMPARE(client.ask("OVER 1-").substr(0, 3), std::string("412"));
        client.ask("GROUP misc.dots");
        const Lines lines = client.askBlock("XOVER 1-100");
        QCOMPARE(lines.size(), std::size_t(3));
        const std::string start = "9\tRe: Dots\tBob <bob@x.example>\tMon, 02 Mar 2026 11:00:00 +0000\t"
                                  "<two@x.example>\t<one@x.example>\t";
        QCOMPARE(lines[2].substr(0, start.size()), start);
        QCOMPARE(fieldsOf(lines[2]).size(), 8);
        QCOMPARE(fieldsOf(lines[2])[7], QByteArray("1"));
        QCOMPARE(client.askBlock("OVER 9").size(), std::size_t(2));
        QCOMPARE(client.askBlock("OVER").size(), std::size_t(2));
        QCOMPARE(client.askBlock("OVER <one@x.example>")[1].substr(0, 2), std::string("0\t"));
        QCOMPARE(client.ask("OVER 10-").substr(0, 3), std::string("423"));
        QCOMPARE(client.ask("XOVER 10-").substr(0, 3), std::string("420"));
        QCOMPARE(client.ask("OVER 9-7").substr(0, 3), std::string("423"));
        QCOMPARE(client.ask("OVER 99999999999999999999").substr(0, 3), std::string("501"));
    }

    void theSizeInAnOverviewIsTheArticlesSize()
    {
        NewsClient client(plainPort());
        client.logIn("ada", "secret word");
        client.ask("GROUP misc.dots");
        const std::string line = client.askBlock("OVER 9")[1];
        const Lines article = client.askBlock("ARTICLE 9");
        std::size_t size = 0;
        for (std::size_t i = 1; i < article.size(); ++i) {
            size += article[i].size() + 2;
        }
        QCOMPARE(fieldsOf(line)[6].toULong(), size);
    }

    void smallCommandsAreAnswered()
    {
        NewsClient client(plainPort());
        QCOMPARE(client.ask("MODE READER").substr(0, 3), std::string("201"));
        QCOMPARE(client.ask("MODE STREAM").substr(0, 3), std::string("501"));
        const std::string date = client.ask("DATE");
        QVERIFY(std::regex_match(date, std::regex("111 20\\d{12}")));
        QCOMPARE(client.askBlock("HELP")[0].substr(0, 3), std::string("100"));
        QCOMPARE(client.ask("POST").substr(0, 3), std::string("500"));
        QCOMPARE(client.ask("").substr(0, 3), std::string("500"));
        QCOMPARE(client.ask("DATE now").substr(0, 3), std::string("501"));
        QCOMPARE(client.ask("QUIT").substr(0, 3), std::string("205"));
        QCOMPARE(client.readLine(), std::string("END"));
    }

    void aLineThatIsTooLongIsRefusedAndTheNextOneRead()
    {
        NewsClient client(plainPort());
        QCOMPARE(client.ask(std::string(510, 'x')).substr(0, 3), std::string("500"));
        QCOMPARE(client.ask(std::string(511, 'x')).substr(0, 3), std::string("501"));
        QCOMPARE(client.ask(std::string(100000, 'x')).substr(0, 3), std::string("501"));
        QCOMPARE(client.ask("DATE").substr(0, 3), std::string("111"));
    }

    void severalCommandsMayComeAtOnce()
    {
        NewsClient client(plainPort());
        client.send("DATE\r\nFOO\r\nDA");
        QCOMPARE(client.readLine().substr(0, 3), std::string("111"));
        QCOMPARE(client.readLine().substr(0, 3), std::string("500"));
        client.send("TE\r\n");
        QCOMPARE(client.readLine().substr(0, 3), std::string("111"));
    }

    void commandsAreKeptWithoutPasswords()
    {
        ServiceFixture fixture;
        NewsClient client(fixture.service().nntpPort());
        client.logIn("ada", "secret word");
        client.ask("authinfo  pass again");
        client.ask("QUIT");
        QCOMPARE(fixture.service().nntpCommands(),
                 (Lines{"AUTHINFO USER ada", "AUTHINFO PASS ***", "authinfo  pass ***", "QUIT"}));
    }

    void manyClientsReadAtOnce()
    {
        std::vector<std::thread> threads;
        std::atomic<int> good{0};
        threads.reserve(8);
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([this, i, &good] {
                const bool tls = i % 2 == 0;
                corvia::CorviaService &service = fixture_.service();
                const int port = tls ? service.nntpTlsPort() : service.nntpPort();
                NewsClient client(port, tls ? service.authorityFile() : std::string());
                client.logIn("ada", "secret word");
                client.ask("GROUP misc.dots");
                for (int round = 0; round < 10; ++round) {
                    good += client.askBlock("ARTICLE 7").back() == "end" ? 1 : 0;
                }
            });
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
        QCOMPARE(good.load(), 80);
    }

    void aWildmatsLastMatchDecides()
    {
        QVERIFY(corvia::wildmatMatches("*", "comp.lang.c"));
        QVERIFY(corvia::wildmatMatches("comp.*.c", "comp.lang.c"));
        QVERIFY(!corvia::wildmatMatches("comp.*.c", "comp.lang.c++"));
        QVERIFY(corvia::wildmatMatches("comp.lang.?", "comp.lang.c"));
        QVERIFY(!corvia::wildmatMatches("comp.*,!*.c", "comp.lang.c"));
        QVERIFY(corvia::wildmatMatches("!*.c,comp.*", "comp.lang.c"));
        QVERIFY(!corvia::wildmatMatches("", "comp"));
    }
};

QTEST_GUILESS_MAIN(TestCorviaNews)
#include "tst_corvianews.moc"
