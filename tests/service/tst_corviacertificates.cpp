// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "newsclient.h"
#include "servicefixture.h"

#include <QtTest>
#include <sys/stat.h>

using corvia::Certificate;

/// The certificates the service shows and the files it writes.
class TestCorviaCertificates : public QObject {
    Q_OBJECT

private:
    static corvia::Options with(Certificate certificate)
    {
        corvia::Options options;
        options.certificate = certificate;
        return options;
    }

    const std::string login_ = ServiceFixture::loginRequest("ada");

private Q_SLOTS:
    void aGoodCertificateIsForTheNameAndTheAddress()
    {
        ServiceFixture fixture;
        HttpsClient client = fixture.client();
        QCOMPARE(client.post(login_).code, CURLE_OK);
        client.host = "127.0.0.1";
        QCOMPARE(client.post(login_).code, CURLE_OK);
    }

    void aBadCertificateIsRefusedByAClient_data()
    {
        QTest::addColumn<int>("certificate");
        QTest::newRow("wrong name") << int(Certificate::WrongName);
        QTest::newRow("expired") << int(Certificate::Expired);
        QTest::newRow("self-signed") << int(Certificate::SelfSigned);
    }

    void aBadCertificateIsRefusedByAClient()
    {
        QFETCH(int, certificate);
        ServiceFixture fixture(with(static_cast<Certificate>(certificate)));
        QCOMPARE(fixture.problem(), std::string());
        const HttpsReply reply = fixture.post(login_);
        QCOMPARE(reply.code, CURLE_PEER_FAILED_VERIFICATION);
        QCOMPARE(fixture.service().connections(), 1);
        QCOMPARE(fixture.service().requests().size(), std::size_t(0));
        NewsClient news(fixture.service().nntpTlsPort(), fixture.service().authorityFile());
        QCOMPARE(news.greeting(), std::string("END"));
    }

    void anotherServicesAuthorityIsNotTrusted()
    {
        ServiceFixture one;
        ServiceFixture other;
        HttpsClient client(one.service().accountPort(), other.service().authorityFile());
        QCOMPARE(client.post(login_).code, CURLE_PEER_FAILED_VERIFICATION);
    }

    void aTemporaryDirectoryIsPrivateAndGoesWithTheService()
    {
        std::string file;
        {
            ServiceFixture fixture;
            file = fixture.service().authorityFile();
            const QFileInfo directory(QFileInfo(QString::fromStdString(file)).path());
            struct stat entry = {};
            QCOMPARE(::stat(qPrintable(directory.filePath()), &entry), 0);
            QCOMPARE(int(entry.st_mode & 0777), 0700);
        }
        QVERIFY(!QFileInfo(QFileInfo(QString::fromStdString(file)).path()).exists());
    }

    void aGivenDirectoryIsMadeAndKept()
    {
        QTemporaryDir parent;
        corvia::Options options;
        options.directory = parent.filePath(QStringLiteral("keys")).toStdString();
        {
            ServiceFixture fixture(options);
            QCOMPARE(fixture.service().authorityFile(), options.directory + "/authority.pem");
        }
        for (const char *name : {"authority.pem", "authority.key", "service.pem", "service.key"}) {
            struct stat entry = {};
            QCOMPARE(::stat((options.directory + "/" + name).c_str(), &entry), 0);
            QCOMPARE(int(entry.st_mode & 0777), 0600);
        }
        ServiceFixture again(options);
        QCOMPARE(again.post(login_).code, CURLE_OK);
    }

    void aDirectoryThatCannotBeMadeIsRefusedWithOneSentence()
    {
        corvia::Options options;
        options.directory = "/proc/nowhere/keys";
        ServiceFixture fixture(options);
        QVERIFY(fixture.problem().find("Cannot create the directory /proc/nowhere/keys: ") == 0);
    }
};

QTEST_GUILESS_MAIN(TestCorviaCertificates)
#include "tst_corviacertificates.moc"
