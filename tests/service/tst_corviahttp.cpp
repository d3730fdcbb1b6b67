// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "servicefixture.h"

#include <QtTest>

/// How the account port speaks HTTP.
class TestCorviaHttp : public QObject {
    Q_OBJECT

private:
    static bool holds(const std::string &text, const std::string &part)
    {
        return text.find(part) != std::string::npos;
    }

    const std::string login_ = ServiceFixture::loginRequest("ada");

private Q_SLOTS:
    void oneConnectionServesManyRequests()
    {
        ServiceFixture fixture;
        HttpsClient client = fixture.client();
        for (int i = 0; i < 20; ++i) {
            QCOMPARE(client.post(login_).status, 200L);
        }
        QCOMPARE(fixture.service().connections(), 1);
    }

    void anotherPathOrMethodOrMediaTypeIsNoRequest()
    {
        ServiceFixture fixture;
        HttpsClient client = fixture.client();
        client.path = "/";
        QCOMPARE(client.post(login_).status, 404L);
        client.path = "/account";
        QCOMPARE(client.get().status, 404L);
        client.contentType = "text/plain";
        QCOMPARE(client.post(login_).status, 415L);
        QCOMPARE(fixture.service().requests().size(), std::size_t(0));
    }

    void aRequestOfMoreThanAMebibyteIsTooLarge()
    {
        ServiceFixture fixture;
        const HttpsReply reply = fixture.post(std::string(1048577, ' '));
        QVERIFY(reply.status == 413 || reply.code != CURLE_OK);
        QCOMPARE(fixture.service().requests().size(), std::size_t(0));
        QCOMPARE(fixture.post(std::string(1048576, ' ')).status, 200L);
    }

    void aClientMayWaitForTheGoAhead()
    {
        ServiceFixture fixture;
        HttpsClient client = fixture.client();
        client.extraHeader = "Expect: 100-continue";
        const HttpsReply reply = client.post(login_);
        QVERIFY(holds(reply.head, "HTTP/1.1 100 Continue"));
        QCOMPARE(reply.status, 200L);
        QVERIFY(reply.seconds < 0.9);
    }

    void aRequestMayComeInChunks()
    {
        ServiceFixture fixture;
        HttpsClient client = fixture.client();
        client.extraHeader = "Transfer-Encoding: chunked";
        QVERIFY(holds(client.post(login_).body, "<login session="));
        QCOMPARE(fixture.service().requests(), std::vector<std::string>{login_});
    }

    void repliesAreNeverCoded()
    {
        ServiceFixture fixture;
        HttpsClient client = fixture.client();
        client.extraHeader = "Accept-Encoding: gzip, br";
        const HttpsReply reply = client.post(login_);
        QVERIFY(!holds(reply.head, "Content-Encoding"));
        QVERIFY(holds(reply.body, "<login session="));
    }

    void repliesAreNeverSentInParts()
    {
        ServiceFixture fixture;
        HttpsClient client = fixture.client();
        client.extraHeader = "Range: bytes=0-9";
        const HttpsReply reply = client.post(login_);
        QCOMPARE(reply.status, 200L);
        QVERIFY(holds(reply.body, "</reply>"));
    }

    void withoutTlsEveryByteIsKept()
    {
        corvia::Options options;
        options.plainHttp = true;
        ServiceFixture fixture(options);
        QVERIFY(holds(fixture.post(login_).body, "<login session="));
        const std::string raw = fixture.service().rawBytes();
        QCOMPARE(raw.compare(0, 23, "POST /account HTTP/1.1\r"), 0);
        QCOMPARE(raw.substr(raw.size() - login_.size()), login_);
    }

    void underTlsNoBytesAreKept()
    {
        ServiceFixture fixture;
        fixture.post(login_);
        QCOMPARE(fixture.service().rawBytes(), std::string());
    }

    void plainHttpToATlsPortIsNotAnswered()
    {
        ServiceFixture fixture;
        HttpsClient client(fixture.service().accountPort(), std::string());
        QVERIFY(client.post(login_).code != CURLE_OK);
        QCOMPARE(fixture.service().connections(), 1);
    }
};

QTEST_GUILESS_MAIN(TestCorviaHttp)
#include "tst_corviahttp.moc"
