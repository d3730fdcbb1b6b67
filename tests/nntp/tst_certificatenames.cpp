// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "certificatenames.h"
#include "testidentity.h"

#include <QSslCertificate>
#include <QtTest>

class TestCertificateNames : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aHostIsKnownByItsAlternativeNames_data();
    void aHostIsKnownByItsAlternativeNames();
    void noCertificateNamesNoHost();
};

void TestCertificateNames::aHostIsKnownByItsAlternativeNames_data()
{
    QTest::addColumn<QByteArray>("names");
    QTest::addColumn<QString>("host");
    QTest::addColumn<bool>("isKnown");
    const auto row = [](const char *names, const char *host, bool isKnown) {
        QTest::addRow("%s at %s", host, names) << QByteArray(names) << QString::fromUtf8(host) << isKnown;
    };
    row("DNS:news.corvia.example", "news.corvia.example", true);
    row("DNS:news.corvia.example", "news.corvia.example.", true);
    row("DNS:news.corvia.example", "news.corvia.example..", false);
    row("DNS:News.Corvia.Example", "nEWS.cORVIA.eXAMPLE", true);
    row("DNS:a.example,DNS:news.corvia.example", "news.corvia.example", true);
    row("DNS:corvia.example", "news.corvia.example", false);
    row("DNS:news.corvia.example", "corvia.example", false);
    row("DNS:*.corvia.example", "news.corvia.example", true);
    row("DNS:*.CORVIA.example", "news.corvia.EXAMPLE", true);
    row("DNS:*.corvia.example", "corvia.example", false);
    row("DNS:*.corvia.example", ".corvia.example", false);
    row("DNS:*.corvia.example", "eu.news.corvia.example", false);
    row("DNS:*.example", "corvia.example", false);
    row("DNS:*", "localhost", false);
    row("DNS:*.", "localhost", false);
    row("DNS:n*.corvia.example", "news.corvia.example", false);
    row("DNS:news.*.example", "news.corvia.example", false);
    row("DNS:xn--bcher-kva.example",
        "b\xC3\xBC"
        "cher.example",
        true);
    row("IP:127.0.0.1", "127.0.0.1", true);
    row("IP:127.0.0.1", "127.0.0.2", false);
    row("DNS:127.0.0.1", "127.0.0.1", false);
    row("DNS:*.0.0.1", "127.0.0.1", false);
    row("IP:::1", "::1", true);
    row("IP:::1", "0:0:0:0:0:0:0:1", true);
    row("IP:::1", "::2", false);
    row("IP:127.0.0.1", "localhost", false);
    row("email:news@corvia.example", "corvia.example", false);
    row("URI:https://corvia.example", "corvia.example", false);
    row("", "common.corvia.example", false);
    row("DNS:news.corvia.example", "common.corvia.example", false);
    row("DNS:news.corvia.example", "", false);
}

// The common name never counts.
void TestCertificateNames::aHostIsKnownByItsAlternativeNames()
{
    QFETCH(QByteArray, names);
    QFETCH(QString, host);
    const TestIdentity identity({"common.corvia.example", names, -1, 1, false});
    const QSslCertificate certificate(identity.pem());
    QVERIFY(!certificate.isNull());
    QTEST(certificatenames::include(certificate, host), "isKnown");
}

void TestCertificateNames::noCertificateNamesNoHost()
{
    QVERIFY(!certificatenames::include(QSslCertificate(), QStringLiteral("localhost")));
    QVERIFY(!certificatenames::include(QSslCertificate(), QString()));
}

QTEST_GUILESS_MAIN(TestCertificateNames)
#include "tst_certificatenames.moc"
