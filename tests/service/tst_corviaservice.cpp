// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "servicefixture.h"
#include "schema.h"
#include "embedded.h"

#include <QtTest>
#include <chrono>
#include <thread>

/// The account's messages in good health.
class TestCorviaService : public QObject {
    Q_OBJECT

private:
    static bool holds(const std::string &text, const std::string &part)
    {
        return text.find(part) != std::string::npos;
    }

private Q_SLOTS:
    void aLoginAnswersASessionWordAndTheInterval()
    {
        ServiceFixture fixture;
        QCOMPARE(fixture.problem(), std::string());
        const HttpsReply reply = fixture.post(ServiceFixture::loginRequest("ada"));
        QCOMPARE(reply.status, 200L);
        QVERIFY(holds(reply.head, "Content-Type: application/xml; charset=utf-8\r\n"));
        QCOMPARE(ServiceFixture::valueIn(reply.body, "session").size(), std::size_t(40));
        QCOMPARE(ServiceFixture::valueIn(reply.body, "auto-search-interval"), std::string("600"));
        QVERIFY(holds(reply.body, "<link key=\"home\" url=\"https://www.corvia.example/?a=1&amp;b=2\"/>"));
    }

    void aLoginTellsTheServicesOwnNewsServers()
    {
        ServiceFixture fixture;
        const std::string body = fixture.post(ServiceFixture::loginRequest("ada")).body;
        const std::string tls = std::to_string(fixture.service().nntpTlsPort());
        const std::string plain = std::to_string(fixture.service().nntpPort());
        QVERIFY(holds(body, "<nntp-servers><server host=\"localhost\" port=\"" + tls +
                                "\" ssl=\"true\"/>"
                                "<server host=\"localhost\" port=\"" +
                                plain + "\" ssl=\"false\"/></nntp-servers>"));
    }

    void aLoginTellsTheServersAndTheUpdateTheScenarioNames()
    {
        ServiceFixture fixture;
        const std::string body = fixture.post(ServiceFixture::loginRequest("bob")).body;
        QVERIFY(holds(body, "<nntp-servers><server host=\"news.corvia.example\" port=\"119\" ssl=\"false\"/>"
                            "</nntp-servers><links/>"));
        QVERIFY(holds(body, "<software-update version=\"9.9\" url=\"https://www.corvia.example/get\">"
                            "Faster &amp; nicer.</software-update><status supported=\"false\"/></login>"));
    }

    void aSecondLoginGetsAnotherSessionWordAndTheFirstStaysGood()
    {
        ServiceFixture fixture;
        const std::string first = fixture.logIn("ada");
        const std::string second = fixture.logIn("ada");
        QVERIFY(!first.empty() && first != second);
        QVERIFY(holds(fixture.post(ServiceFixture::statusRequest(first)).body, "<plan "));
        QVERIFY(holds(fixture.post(ServiceFixture::statusRequest(second)).body, "<plan "));
    }

    void statusTellsPlanAndUsage()
    {
        ServiceFixture fixture;
        const std::string body = fixture.post(ServiceFixture::statusRequest(fixture.logIn("ada"))).body;
        QVERIFY(holds(body,
                      "<status supported=\"true\" next-update-millis=\"300000\">"
                      "<plan name=\"Pinegate &quot;Small&quot; &lt;1&gt;\"/><nntp max-connections=\"8\" "
                      "billing-bytes=\"5000000000\" mtd-bytes=\"12\" usage-updated-timestamp="));
        const auto updated = std::stoll(ServiceFixture::valueIn(body, "usage-updated-timestamp"));
        const qint64 age = QDateTime::currentMSecsSinceEpoch() - updated;
        QVERIFY(age >= 300000 && age < 330000);
    }

    void statusThatIsNotSupportedSaysOnlyThat()
    {
        ServiceFixture fixture;
        const std::string body = fixture.post(ServiceFixture::statusRequest(fixture.logIn("bob"))).body;
        QVERIFY(holds(body, "<reply version=\"1\"><status supported=\"false\"/></reply>"));
    }

    void bookmarksTellTheFoldersAndTheirNewsgroupsInOrder()
    {
        ServiceFixture fixture;
        const HttpsReply reply = fixture.post(ServiceFixture::bookmarksRequest(fixture.logIn("ada")));
        QCOMPARE(reply.status, 200L);
        QVERIFY(holds(reply.body, "<reply version=\"1\"><bookmarks>"
                                  "<folder><name>Dots &amp; &lt;dashes&gt;</name>"
                                  "<newsgroup>misc.dots</newsgroup><newsgroup>comp.gone</newsgroup></folder>"
                                  "<folder><name>Empty</name></folder></bookmarks></reply>"));
    }

    void anAccountWithoutBookmarksHasNoFolders()
    {
        ServiceFixture fixture;
        const std::string body = fixture.post(ServiceFixture::bookmarksRequest(fixture.logIn("bob"))).body;
        QVERIFY(holds(body, "<reply version=\"1\"><bookmarks/></reply>"));
    }

    void bookmarksTakeASession()
    {
        ServiceFixture fixture;
        const std::string body = fixture.post(ServiceFixture::bookmarksRequest("nonsense")).body;
        QVERIFY(holds(body, "<error code=\"session\">"));
    }

    void aChangedPlanIsToldFromThenOn()
    {
        ServiceFixture fixture;
        const std::string word = fixture.logIn("ada");
        fixture.service().setPlan("ada", 30, 7, 6000000000LL);
        fixture.service().setPlan("nobody", 1, 1, 1);
        const std::string body = fixture.post(ServiceFixture::statusRequest(word)).body;
        QVERIFY(holds(body, "max-connections=\"30\" billing-bytes=\"7\" mtd-bytes=\"6000000000\""));
    }

    void aRefusedLoginSaysCredentials_data()
    {
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("password");
        QTest::addColumn<QString>("sentence");
        const char *wrong = "The user name or the password is wrong.";
        QTest::newRow("wrong password") << "ada"
                                        << "Secret word" << wrong;
        QTest::newRow("unknown user") << "adam"
                                      << "secret word" << wrong;
        QTest::newRow("nothing at all") << ""
                                        << "" << wrong;
        QTest::newRow("suspended") << "eve"
                                   << "secret word"
                                   << "Please pay first.";
        QTest::newRow("suspended, wrong password") << "eve"
                                                   << "x" << wrong;
    }

    void aRefusedLoginSaysCredentials()
    {
        QFETCH(QString, user);
        QFETCH(QString, password);
        QFETCH(QString, sentence);
        ServiceFixture fixture;
        const auto request = ServiceFixture::loginRequest(user.toStdString(), password.toStdString());
        const std::string expected = "<error code=\"credentials\">" + sentence.toStdString() + "</error>";
        QVERIFY(holds(fixture.post(request).body, expected));
    }

    void anUnknownOrEndedSessionSaysSession()
    {
        ServiceFixture fixture;
        QVERIFY(
            holds(fixture.post(ServiceFixture::statusRequest("nonsense")).body, "<error code=\"session\">"));
        const std::string ended = fixture.logIn("kim");
        QVERIFY(!ended.empty());
        QVERIFY(holds(fixture.post(ServiceFixture::statusRequest(ended)).body, "<error code=\"session\">"));
    }

    void aRequestThatIsNotValidSaysRequest_data()
    {
        QTest::addColumn<QString>("request");
        QTest::newRow("nothing") << "";
        QTest::newRow("no XML") << "hello";
        QTest::newRow("unfinished") << "<request version=\"1\">";
        QTest::newRow("another version") << R"(<request version="2" session="a"><status/></request>)";
        QTest::newRow("unknown element") << R"(<request version="1" session="a"><folders/></request>)";
        QTest::newRow("two elements") << R"(<request version="1" session="a"><status/><status/></request>)";
        QTest::newRow("no element") << R"(<request version="1" session="a"/>)";
        QTest::newRow("no session") << "<request version=\"1\"><status/></request>";
        QTest::newRow("odd session") << R"(<request version="1" session="a b"><status/></request>)";
        QTest::newRow("empty login") << "<request version=\"1\"><login/></request>";
        QTest::newRow("a document type")
            << R"(<!DOCTYPE request []><request version="1" session="a"><status/></request>)";
        QTest::newRow("an entity") << R"(<request version="1" session="a"><status>&x;</status></request>)";
    }

    void aRequestThatIsNotValidSaysRequest()
    {
        QFETCH(QString, request);
        ServiceFixture fixture;
        const HttpsReply reply = fixture.post(request.toStdString());
        QCOMPARE(reply.status, 200L);
        QVERIFY(holds(reply.body, "<error code=\"request\">"));
        QVERIFY(!holds(reply.body, "<error code=\"request\"></error>"));
        const corvia::Schema schema(corvia::replySchema());
        QCOMPARE(schema.firstProblem(corvia::XmlDocument(reply.body)), std::string());
    }

    void everyReplyIsValid()
    {
        ServiceFixture fixture;
        const corvia::Schema schema(corvia::replySchema());
        std::vector<std::string> replies;
        for (const char *user : {"ada", "bob", "eve", "kim"}) {
            replies.push_back(fixture.post(ServiceFixture::loginRequest(user)).body);
            const std::string word = ServiceFixture::valueIn(replies.back(), "session");
            replies.push_back(fixture.post(ServiceFixture::statusRequest(word)).body);
            replies.push_back(fixture.post(ServiceFixture::bookmarksRequest(word)).body);
        }
        fixture.setFault(corvia::Fault::Kind::RefuseLogin, 0, "No & <never>\x01 \xff");
        replies.push_back(fixture.post(ServiceFixture::loginRequest("ada")).body);
        for (const std::string &reply : replies) {
            QCOMPARE(schema.firstProblem(corvia::XmlDocument(reply)), std::string());
        }
    }

    void requestsAreKeptInOrderAsTheyCame()
    {
        ServiceFixture fixture;
        const std::string odd = "  <request  version='1' session='x'><status></status></request>\n";
        fixture.post(odd);
        fixture.post("\xc3\xa4");
        QCOMPARE(fixture.service().requests().size(), std::size_t(2));
        QCOMPARE(fixture.service().requests()[0], odd);
        QCOMPARE(fixture.service().requests()[1], std::string("\xc3\xa4"));
    }

    void manyClientsAreServedAtOnce()
    {
        ServiceFixture fixture;
        std::vector<std::thread> threads;
        std::atomic<int> good{0};
        threads.reserve(8);
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([&fixture, &good] {
                HttpsClient client = fixture.client();
                for (int round = 0; round < 5; ++round) {
                    const std::string login = client.post(ServiceFixture::loginRequest("ada")).body;
                    const std::string word = ServiceFixture::valueIn(login, "session");
                    const std::string status = client.post(ServiceFixture::statusRequest(word)).body;
                    good += holds(status, "<plan ") ? 1 : 0;
                    fixture.service().setPlan("ada", round, round, round);
                }
            });
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
        QCOMPARE(good.load(), 40);
        QCOMPARE(fixture.service().connections(), 8);
        QCOMPARE(fixture.service().requests().size(), std::size_t(80));
    }

    void theDemoScenarioIsAnOrdinaryAccount()
    {
        corvia::CorviaService service(corvia::demoScenario(), corvia::Options());
        std::string why;
        QVERIFY2(service.start(&why), why.c_str());
        HttpsClient client(service.accountPort(), service.authorityFile());
        const std::string login = client.post(ServiceFixture::loginRequest("demo", "pinegate")).body;
        QVERIFY(holds(login, "<plan name=\"Pinegate Unlimited\"/><nntp max-connections=\"20\""));
        QVERIFY(holds(login, "key=\"control.panel\""));
        const std::string word = ServiceFixture::valueIn(login, "session");
        const std::string bookmarks = client.post(ServiceFixture::bookmarksRequest(word)).body;
        QVERIFY(holds(bookmarks, "<name>Linux</name>"));
        const corvia::Schema schema(corvia::replySchema());
        QCOMPARE(schema.firstProblem(corvia::XmlDocument(login)), std::string());
        QCOMPARE(schema.firstProblem(corvia::XmlDocument(bookmarks)), std::string());
    }

    void aStoppedServiceCanStillBeReadAndNoLongerAnswers()
    {
        ServiceFixture fixture;
        fixture.logIn("ada");
        fixture.service().stop();
        fixture.service().stop();
        QCOMPARE(fixture.service().requests().size(), std::size_t(1));
        QCOMPARE(fixture.post("x").code, CURLE_COULDNT_CONNECT);
        std::string why;
        QVERIFY(!fixture.service().start(&why));
        QCOMPARE(why, std::string("A service is started only once."));
    }

    void aPortInUseIsRefusedWithOneSentence()
    {
        ServiceFixture first;
        corvia::Options options;
        options.accountPort = first.service().accountPort();
        ServiceFixture second(options);
        QVERIFY(holds(second.problem(), "Cannot listen on port " + std::to_string(options.accountPort)));
    }
};

QTEST_GUILESS_MAIN(TestCorviaService)
#include "tst_corviaservice.moc"
