// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hostilenntpserver.h"
#include "journal.h"
#include "recordingrequest.h"
#include "serviceaccount.h"
#include "testidentity.h"
#include "testlogin.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>
#include <halvora/hserveraddressrotator.h>

#include <QTcpServer>
#include <QTemporaryFile>
#include <QtTest>

using Kind = RequestFailure::Kind;

Q_DECLARE_METATYPE(corvia::Certificate)

/// Whoever can not prove to be the service learns neither the user's name nor the password.
class HServerTrustTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aServiceWithABadCertificateIsToldNothing_data();
    void aServiceWithABadCertificateIsToldNothing();
    void onlyAlternativeNamesCount_data();
    void onlyAlternativeNamesCount();
    void aServiceOfAnUnknownAuthorityIsToldNothing();
    void anAuthorityFileThatIsNotThereTrustsNobody();
    void aServiceWithoutTlsIsToldNothing();
    void anAddressThatIsNotSecureIsNotUsed();
    void aServiceKnownByItsNumberIsTrusted();
    void anInventedNameIsNotLookedUp();
    void aProxyOfTheEnvironmentIsNotAsked();

private:
    static void use(ServiceAccount &account, const HServerAddress &address);
    static RequestFailure failureOfLogin(ServiceAccount &account);
};

void HServerTrustTest::use(ServiceAccount &account, const HServerAddress &address)
{
    account.server().setAddressRotator(
        std::make_unique<HServerAddressRotator>(QStringLiteral("test"), QList<HServerAddress>{address}));
}

RequestFailure HServerTrustTest::failureOfLogin(ServiceAccount &account)
{
    const QSharedPointer<TestLogin> login(new TestLogin(&account.connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    account.server().prependRequestToQueue(login);
    if (!finished.wait(30'000))
        return RequestFailure(Kind::Refused, QStringLiteral("never finished"));
    return login->failure();
}

void HServerTrustTest::aServiceWithABadCertificateIsToldNothing_data()
{
    QTest::addColumn<corvia::Certificate>("certificate");
    QTest::newRow("another host's") << corvia::Certificate::WrongName;
    QTest::newRow("out of date") << corvia::Certificate::Expired;
    QTest::newRow("signed by itself") << corvia::Certificate::SelfSigned;
}

void HServerTrustTest::aServiceWithABadCertificateIsToldNothing()
{
    QFETCH(corvia::Certificate, certificate);
    corvia::Options options;
    options.certificate = certificate;
    ServiceAccount account(options);
    const RequestFailure failure = failureOfLogin(account);
    QCOMPARE(failure.kind(), Kind::NotTrusted);
    QVERIFY(!failure.sentence().isEmpty());
    QCOMPARE(account.service().connections(), 1);
    QCOMPARE(account.requestCount(), 0);
    QCOMPARE(account.server().connectorState(), HServer::ServiceLost);
}

void HServerTrustTest::onlyAlternativeNamesCount_data()
{
    QTest::addColumn<QByteArray>("alternatives");
    QTest::addColumn<bool>("isAsked");
    QTest::newRow("its name") << QByteArray("DNS:localhost") << true;
    QTest::newRow("one of many names") << QByteArray("DNS:a.example,email:a@b,DNS:LocalHost") << true;
    QTest::newRow("no names") << QByteArray() << false;
    QTest::newRow("another name") << QByteArray("DNS:account.example") << false;
    QTest::newRow("a mail address only") << QByteArray("email:a@localhost") << false;
    QTest::newRow("an address only") << QByteArray("IP:127.0.0.1") << false;
}

// The common name is the right one each time.
void HServerTrustTest::onlyAlternativeNamesCount()
{
    QFETCH(QByteArray, alternatives);
    QFETCH(bool, isAsked);
    const TestIdentity authority({"Authority", {}, -1, 1, true});
    const TestIdentity identity({"localhost", alternatives, -1, 1, false}, &authority);
    HostileNntpServer server(
        [](Conversation &client) {
            client.hear();
            client.hangUp();
        },
        identity);
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(authority.pem());
    file.close();
    ServiceAccount account;
    account.core().setAuthorityFile(file.fileName());
    use(account, HServerAddress(QStringLiteral("localhost"), server.port(), true, 0));
    const RequestFailure failure = failureOfLogin(account);
    const QByteArray heard = server.transcript();
    QCOMPARE(heard.startsWith("POST /account"), isAsked);
    QCOMPARE(heard.isEmpty(), !isAsked);
    QCOMPARE(failure.kind() == Kind::NotTrusted, !isAsked);
}

void HServerTrustTest::aServiceOfAnUnknownAuthorityIsToldNothing()
{
    ServiceAccount account;
    account.core().setAuthorityFile(QString());
    QCOMPARE(failureOfLogin(account).kind(), Kind::NotTrusted);
    QCOMPARE(account.requestCount(), 0);
}

void HServerTrustTest::anAuthorityFileThatIsNotThereTrustsNobody()
{
    ServiceAccount account;
    account.core().setAuthorityFile(QStringLiteral("/nowhere/authority.pem"));
    QCOMPARE(failureOfLogin(account).kind(), Kind::NotTrusted);
    QCOMPARE(account.requestCount(), 0);
}

void HServerTrustTest::aServiceWithoutTlsIsToldNothing()
{
    corvia::Options options;
    options.plainHttp = true;
    ServiceAccount account(options);
    const RequestFailure failure = failureOfLogin(account);
    QCOMPARE(failure.kind(), Kind::NotTrusted);
    const std::string seen = account.service().rawBytes();
    QVERIFY(!seen.empty()); // the greeting of a TLS client
    for (const char *secret : {"demo", "pinegate", "<login", "POST"})
        QVERIFY2(seen.find(secret) == std::string::npos, secret);
}

void HServerTrustTest::anAddressThatIsNotSecureIsNotUsed()
{
    ServiceAccount account;
    use(account, HServerAddress(QStringLiteral("localhost"), account.service().accountPort(), false, 0));
    QCOMPARE(failureOfLogin(account).kind(), Kind::NotTrusted);
    QCOMPARE(account.service().connections(), 0);
}

void HServerTrustTest::aServiceKnownByItsNumberIsTrusted()
{
    ServiceAccount account;
    use(account, HServerAddress(QStringLiteral("127.0.0.1"), account.service().accountPort(), true, 0));
    QVERIFY(account.logIn());
}

void HServerTrustTest::anInventedNameIsNotLookedUp()
{
    ServiceAccount account;
    use(account, HServerAddress(QStringLiteral("account.corvia.EXAMPLE"), 5598, true, 0));
    const RequestFailure failure = failureOfLogin(account);
    QCOMPARE(failure.kind(), Kind::NoService);
    QCOMPARE(failure.sentence(), QStringLiteral("No account service is reachable."));
}

void HServerTrustTest::aProxyOfTheEnvironmentIsNotAsked()
{
    QTcpServer proxy;
    QVERIFY(proxy.listen(QHostAddress::LocalHost));
    const QByteArray url = "http://127.0.0.1:" + QByteArray::number(proxy.serverPort());
    qputenv("https_proxy", url);
    qputenv("all_proxy", url);
    ServiceAccount account;
    QVERIFY(account.logIn());
    QVERIFY(!proxy.hasPendingConnections());
    qunsetenv("https_proxy");
    qunsetenv("all_proxy");
}

QTEST_MAIN(HServerTrustTest)
#include "tst_hserver_trust.moc"
