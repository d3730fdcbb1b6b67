// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "newsclient.h"
#include "servicefixture.h"

#include <QtTest>
#include <chrono>
#include <thread>

using corvia::Fault;

/// What goes wrong when a fault is in force.
class TestCorviaFaults : public QObject {
    Q_OBJECT

private:
    static bool holds(const std::string &text, const std::string &part)
    {
        return text.find(part) != std::string::npos;
    }

    const std::string login_ = ServiceFixture::loginRequest("ada");

private Q_SLOTS:
    void aStalledRequestIsReadAndNeverAnswered()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Stall);
        HttpsClient client = fixture.client();
        client.timeoutMilliseconds = 400;
        const HttpsReply reply = client.post(login_);
        QCOMPARE(reply.code, CURLE_OPERATION_TIMEDOUT);
        QCOMPARE(reply.head + reply.body, std::string());
        QCOMPARE(fixture.service().requests(), std::vector<std::string>{login_});
    }

    void aDrippedReplyIsCorrectAndSlow()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Drip, 1);
        const HttpsReply reply = fixture.post(login_);
        QCOMPARE(reply.code, CURLE_OK);
        QVERIFY(holds(reply.body, "</reply>"));
        QVERIFY(reply.seconds * 1000 >= static_cast<double>(reply.head.size() + reply.body.size()));
    }

    void aLiteralElementTakesThePlaceOfTheReplysOwn()
    {
        ServiceFixture fixture;
        const std::string word = fixture.logIn("ada");
        const std::string element = "<bookmarks><folder><newsgroup>a.b</newsgroup></folder></bookmarks>";
        fixture.setFault(Fault::Kind::Element, 0, element, "bookmarks");
        const std::string body = fixture.post(ServiceFixture::bookmarksRequest(word)).body;
        QVERIFY(holds(body, "<reply version=\"1\">" + element + "</reply>"));
        QVERIFY(holds(fixture.post(ServiceFixture::statusRequest(word)).body, "<plan "));
    }

    void aFloodHasAsManyBytesAsItIsToldAndNoEnd()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Flood, 5000000);
        const HttpsReply reply = fixture.post(login_);
        QCOMPARE(reply.code, CURLE_OK);
        QCOMPARE(reply.body.size(), std::size_t(5000000));
        QVERIFY(holds(reply.body.substr(0, 100), "<reply version=\"1\">"));
        QVERIFY(!holds(reply.body, "</reply>"));
        QVERIFY(!holds(reply.head, "Content-Length"));
    }

    void aFloodOfNoSizeGoesOnUntilTheClientLeaves()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Flood);
        const HttpsReply reply = fixture.post(login_);
        QCOMPARE(reply.code, CURLE_WRITE_ERROR);
        QVERIFY(reply.body.size() > 8388608U);
    }

    void aHeaderFloodNeverComesToABody()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::HeaderFlood);
        HttpsClient client = fixture.client();
        client.greatestReply = 200000;
        const HttpsReply reply = client.post(login_);
        QVERIFY(reply.code != CURLE_OK);
        QVERIFY(reply.code != CURLE_OPERATION_TIMEDOUT);
        QVERIFY(reply.head.size() > 100000);
        QCOMPARE(reply.body, std::string());
    }

    void aStatusCarriesTheCorrectReplyAllTheSame()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Status, 503);
        const HttpsReply reply = fixture.post(login_);
        QCOMPARE(reply.code, CURLE_OK);
        QCOMPARE(reply.status, 503L);
        QVERIFY(holds(reply.body, "<login session="));
    }

    void aBodyIsSentAsItIs()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Body, 0, "<reply version=\"1\"><success/></reply>");
        const HttpsReply reply = fixture.post(login_);
        QCOMPARE(reply.status, 200L);
        QCOMPARE(reply.body, std::string("<reply version=\"1\"><success/></reply>"));
        fixture.setFault(Fault::Kind::Body, 0, "");
        QCOMPARE(fixture.post(login_).body, std::string());
    }

    void aTruncatedReplyEndsHalfWay()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Truncate);
        const HttpsReply reply = fixture.post(login_);
        QCOMPARE(reply.code, CURLE_PARTIAL_FILE);
        const std::size_t announced = std::stoul(reply.head.substr(reply.head.find("Content-Length: ") + 16));
        QCOMPARE(reply.body.size(), announced / 2);
    }

    void aClosedConnectionSaysNothing()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Close);
        QCOMPARE(fixture.post(login_).code, CURLE_GOT_NOTHING);
        QCOMPARE(fixture.service().requests().size(), std::size_t(1));
    }

    void aRedirectNamesItsLocation()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Redirect, 0, "https://elsewhere.example/account");
        HttpsReply reply = fixture.post(login_);
        QCOMPARE(reply.status, 302L);
        QVERIFY(holds(reply.head, "Location: https://elsewhere.example/account\r\n"));
        fixture.setFault(Fault::Kind::Redirect, 308, "/");
        QCOMPARE(fixture.post(login_).status, 308L);
    }

    void aCodedReplyIsSaidToBeGzip()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Encoding);
        QVERIFY(holds(fixture.post(login_).head, "Content-Encoding: gzip\r\n"));
        HttpsClient client = fixture.client();
        client.acceptEncoding = "";
        QVERIFY(client.post(login_).code != CURLE_OK);
    }

    void aRefusedLoginSaysTheGivenSentence()
    {
        ServiceFixture fixture;
        const std::string word = fixture.logIn("ada");
        fixture.setFault(Fault::Kind::RefuseLogin, 0, "Too many logins today.");
        QVERIFY(
            holds(fixture.post(login_).body, "<error code=\"credentials\">Too many logins today.</error>"));
        QVERIFY(holds(fixture.post(ServiceFixture::statusRequest(word)).body, "<plan "));
    }

    void forgottenSessionsAreUnknown()
    {
        ServiceFixture fixture;
        const std::string word = fixture.logIn("ada");
        fixture.setFault(Fault::Kind::ForgetSessions);
        QVERIFY(holds(fixture.post(ServiceFixture::statusRequest(word)).body, "<error code=\"session\">"));
        QVERIFY(holds(fixture.post(login_).body, "<login session="));
        fixture.setFault(Fault::Kind::None);
        QVERIFY(holds(fixture.post(ServiceFixture::statusRequest(word)).body, "<error code=\"session\">"));
    }

    void aDelayedReplyIsCorrectAndLate()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Delay, 300);
        const HttpsReply reply = fixture.post(login_);
        QVERIFY(holds(reply.body, "<login session="));
        QVERIFY(reply.seconds >= 0.3);
    }

    void aFaultForOneRequestLeavesTheOthersAlone()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Status, 500, "", "status");
        const HttpsReply login = fixture.post(login_);
        QCOMPARE(login.status, 200L);
        const std::string word = ServiceFixture::valueIn(login.body, "session");
        QCOMPARE(fixture.post(ServiceFixture::statusRequest(word)).status, 500L);
        QCOMPARE(fixture.post("nonsense").status, 200L);
    }

    void aFaultStaysUntilItIsChanged()
    {
        ServiceFixture fixture;
        fixture.setFault(Fault::Kind::Status, 500);
        QCOMPARE(fixture.post(login_).status, 500L);
        QCOMPARE(fixture.post(login_).status, 500L);
        fixture.setFault(Fault::Kind::None);
        QCOMPARE(fixture.post(login_).status, 200L);
    }

    void aScenarioCanBeginWithAFault()
    {
        ServiceFixture fixture(corvia::Options(), R"(<fault kind="status" number="502" request="login"/>)");
        QCOMPARE(fixture.post(login_).status, 502L);
    }

    void stoppingIsPromptWhateverIsUnderWay_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("number");
        QTest::newRow("stall") << int(Fault::Kind::Stall) << 0;
        QTest::newRow("drip") << int(Fault::Kind::Drip) << 5000;
        QTest::newRow("delay") << int(Fault::Kind::Delay) << 60000;
        QTest::newRow("flood") << int(Fault::Kind::Flood) << 0;
        QTest::newRow("header flood") << int(Fault::Kind::HeaderFlood) << 0;
        QTest::newRow("an idle connection") << int(Fault::Kind::None) << 0;
    }

    void stoppingIsPromptWhateverIsUnderWay()
    {
        QFETCH(int, kind);
        QFETCH(int, number);
        ServiceFixture fixture;
        NewsClient idle(fixture.service().nntpPort());
        fixture.setFault(static_cast<Fault::Kind>(kind), number);
        std::thread thread([&fixture, this] {
            HttpsClient client = fixture.client();
            client.greatestReply = std::size_t(1) << 32;
            client.post(login_);
        });
        QTRY_COMPARE(fixture.service().requests().size(), std::size_t(1));
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        QElapsedTimer timer;
        timer.start();
        fixture.service().stop();
        QVERIFY(timer.elapsed() < 1000);
        thread.join();
        QCOMPARE(idle.readLine(), std::string("END"));
    }
};

QTEST_GUILESS_MAIN(TestCorviaFaults)
#include "tst_corviafaults.moc"
