// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "clientthread.h"
#include "hostilenntpserver.h"
#include "testidentity.h"

#include <halvora/core.h>
#include <halvora/trafficmeter.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QtTest>

using namespace std::chrono_literals;

namespace {

TestIdentity::Wish authorityNamed(const char *name)
{
    TestIdentity::Wish wish;
    wish.name = name;
    wish.isAuthority = true;
    return wish;
}

/// Takes back what the system's OpenSSL forbids by itself, because that would hide what the client forbids.
class LaxSystem {
public:
    LaxSystem()
    {
        m_file.open();
        m_file.write("openssl_conf = init\n[init]\nssl_conf = ssl\n[ssl]\nsystem_default = lax\n"
                     "[lax]\nMinProtocol = TLSv1\nCipherString = DEFAULT@SECLEVEL=0\n");
        m_file.close();
        qputenv("OPENSSL_CONF", QFile::encodeName(m_file.fileName()));
    }

private:
    QTemporaryFile m_file;
};

void greetAndAccept(Conversation &client)
{
    client.say("200 welcome\r\n");
    client.hear();
    client.say("381 more\r\n");
    client.hear();
    client.say("281 ok\r\n");
}

} // namespace

class tst_SimpleNntpClientTls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void onlyAVerifiedServerIsSpokenTo_data();
    void onlyAVerifiedServerIsSpokenTo();
    void onlyAlternativeNamesCount_data();
    void onlyAlternativeNamesCount();
    void anAuthorityIsNotTrustedUnlessItIsNamed_data();
    void anAuthorityIsNotTrustedUnlessItIsNamed();
    void anOutdatedProtocolIsRefused();
    void plainAndTlsDoNotMix_data();
    void plainAndTlsDoNotMix();
    void aHandshakeThatNeverEndsIsGivenUp_data();
    void aHandshakeThatNeverEndsIsGivenUp();
    void theLinesInsideTlsAreReadLikeOthers_data();
    void theLinesInsideTlsAreReadLikeOthers();

private:
    void trust(const QByteArray &pem);
    Attempt attemptOn(quint16 port, const QString &host = QStringLiteral("localhost")) const;

    const LaxSystem m_system; // first, because OpenSSL reads its settings when it is first used
    const TestIdentity m_authority{authorityNamed("Authority")};
    const TestIdentity m_stranger{authorityNamed("Stranger")};
    const TestIdentity m_identity{TestIdentity::Wish(), &m_authority};
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Core> m_core;
};

void tst_SimpleNntpClientTls::init()
{
    m_core.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_folder->path());
    trust(m_authority.pem());
}

void tst_SimpleNntpClientTls::trust(const QByteArray &pem)
{
    QFile file(m_folder->filePath(QStringLiteral("authorities.pem")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(pem), pem.size());
    m_core->setAuthorityFile(file.fileName());
}

Attempt tst_SimpleNntpClientTls::attemptOn(quint16 port, const QString &host) const
{
    Attempt attempt;
    attempt.hosts = {NntpHost(host, port, true)};
    return attempt;
}

void tst_SimpleNntpClientTls::onlyAVerifiedServerIsSpokenTo_data()
{
    QTest::addColumn<QByteArray>("alternatives");
    QTest::addColumn<int>("validFromDays");
    QTest::addColumn<int>("validToDays");
    QTest::addColumn<int>("signer"); // 0 is the authority, 1 a stranger, 2 the server itself
    QTest::addColumn<QString>("host");
    QTest::addColumn<bool>("isSpokenTo");
    const QString name = QStringLiteral("localhost");
    const QString address = QStringLiteral("127.0.0.1");
    QTest::newRow("good name") << QByteArray("DNS:localhost") << -1 << 1 << 0 << name << true;
    QTest::newRow("good name, other case")
        << QByteArray("DNS:localhost") << -1 << 1 << 0 << name.toUpper() << true;
    QTest::newRow("good address") << QByteArray("IP:127.0.0.1") << -1 << 1 << 0 << address << true;
    QTest::newRow("address that is not named")
        << QByteArray("DNS:localhost") << -1 << 1 << 0 << address << false;
    QTest::newRow("other address") << QByteArray("IP:127.0.0.2") << -1 << 1 << 0 << address << false;
    QTest::newRow("expired") << QByteArray("DNS:localhost") << -9 << -1 << 0 << name << false;
    QTest::newRow("not yet valid") << QByteArray("DNS:localhost") << 1 << 9 << 0 << name << false;
    QTest::newRow("unknown authority") << QByteArray("DNS:localhost") << -1 << 1 << 1 << name << false;
    QTest::newRow("signed by itself") << QByteArray("DNS:localhost") << -1 << 1 << 2 << name << false;
}

void tst_SimpleNntpClientTls::onlyAVerifiedServerIsSpokenTo()
{
    QFETCH(QByteArray, alternatives);
    QFETCH(int, validFromDays);
    QFETCH(int, validToDays);
    QFETCH(int, signer);
    QFETCH(QString, host);
    QFETCH(bool, isSpokenTo);
    const TestIdentity *signers[] = {&m_authority, &m_stranger, nullptr};
    const TestIdentity identity({"news", alternatives, validFromDays, validToDays, false}, signers[signer]);
    HostileNntpServer server(greetAndAccept, identity);
    const Outcome outcome = outcomeOf(*m_core, attemptOn(server.port(), host));
    QCOMPARE(outcome.isConnected, isSpokenTo);
    QCOMPARE(outcome.isLoggedIn, isSpokenTo);
    QCOMPARE(outcome.lastReply, isSpokenTo ? QStringLiteral("281 ok") : QString());
    QCOMPARE(server.transcript(), isSpokenTo ? userLine() + passLine() : QByteArray());
    QCOMPARE(m_core->newsServerReply(), QString());
}

void tst_SimpleNntpClientTls::onlyAlternativeNamesCount_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("alternatives");
    QTest::addColumn<QString>("host");
    const QString name = QStringLiteral("localhost");
    const QString address = QStringLiteral("127.0.0.1");
    QTest::newRow("no names") << QByteArray("localhost") << QByteArray() << name;
    QTest::newRow("other name") << QByteArray("localhost") << QByteArray("DNS:news.example") << name;
    QTest::newRow("an address only") << QByteArray("localhost") << QByteArray("IP:127.0.0.1") << name;
    QTest::newRow("a mail address only")
        << QByteArray("localhost") << QByteArray("email:a@localhost") << name;
    QTest::newRow("address, no names") << QByteArray("127.0.0.1") << QByteArray() << address;
    QTest::newRow("address as a name") << QByteArray("127.0.0.1") << QByteArray("DNS:127.0.0.1") << address;
    QTest::newRow("wildcard") << QByteArray("localhost") << QByteArray("DNS:*") << name;
}

void tst_SimpleNntpClientTls::onlyAlternativeNamesCount()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, alternatives);
    QFETCH(QString, host);
    const TestIdentity identity({name, alternatives, -1, 1, false}, &m_authority);
    HostileNntpServer server(greetAndAccept, identity);
    const Outcome outcome = outcomeOf(*m_core, attemptOn(server.port(), host));
    QVERIFY(!outcome.isConnected);
    QCOMPARE(outcome.lastReply, QString());
    QCOMPARE(server.transcript(), QByteArray());
}

void tst_SimpleNntpClientTls::anAuthorityIsNotTrustedUnlessItIsNamed_data()
{
    QTest::addColumn<QByteArray>("pem");
    QTest::addColumn<bool>("isTrusted");
    QTest::newRow("it alone") << m_authority.pem() << true;
    QTest::newRow("it among others") << m_stranger.pem() + m_authority.pem() << true;
    QTest::newRow("the server's own certificate") << m_identity.pem() << false;
    QTest::newRow("another") << m_stranger.pem() << false;
    QTest::newRow("nobody") << QByteArray() << false;
    QTest::newRow("no certificate at all") << QByteArray("-----BEGIN CERTIFICATE-----\nAA==\n") << false;
}

void tst_SimpleNntpClientTls::anAuthorityIsNotTrustedUnlessItIsNamed()
{
    QFETCH(QByteArray, pem);
    QFETCH(bool, isTrusted);
    trust(pem);
    HostileNntpServer server(greetAndAccept, m_identity);
    QCOMPARE(outcomeOf(*m_core, attemptOn(server.port())).isLoggedIn, isTrusted);
    for (const QString &file :
         {QString(), m_folder->filePath(QStringLiteral("none.pem")), m_folder->path()}) {
        m_core->setAuthorityFile(file);
        QVERIFY(!outcomeOf(*m_core, attemptOn(server.port())).isConnected);
    }
}

void tst_SimpleNntpClientTls::anOutdatedProtocolIsRefused()
{
    HostileNntpServer server(greetAndAccept, m_identity, HostileNntpServer::Tls::OnlyOutdated);
    QVERIFY(!outcomeOf(*m_core, attemptOn(server.port())).isConnected);
    QCOMPARE(server.transcript(), QByteArray());
}

void tst_SimpleNntpClientTls::plainAndTlsDoNotMix_data()
{
    QTest::addColumn<bool>("isServerTls");
    QTest::newRow("TLS server, plain client") << true;
    QTest::newRow("plain server, TLS client") << false;
}

void tst_SimpleNntpClientTls::plainAndTlsDoNotMix()
{
    QFETCH(bool, isServerTls);
    const auto server = isServerTls ? std::make_unique<HostileNntpServer>(greetAndAccept, m_identity)
                                    : std::make_unique<HostileNntpServer>(greetAndAccept);
    Attempt attempt;
    attempt.hosts = {NntpHost(QStringLiteral("localhost"), server->port(), !isServerTls)};
    attempt.connectBudget = 1s;
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QVERIFY(!outcome.isConnected);
    QCOMPARE(outcome.lastReply, QString());
    QVERIFY(!server->transcript().contains("AUTHINFO"));
}

void tst_SimpleNntpClientTls::aHandshakeThatNeverEndsIsGivenUp_data()
{
    QTest::addColumn<HostileNntpServer::Script>("script");
    QTest::newRow("silence") << HostileNntpServer::Script([](Conversation &) {});
    // A record of a handshake that announces more than anybody waits for.
    const QByteArray record("\x16\x03\x03\x3F\xFF", 5);
    QTest::newRow("a byte now and then")
        << HostileNntpServer::Script([record](Conversation &client) { client.drip(record); });
    QTest::newRow("closed inside") << HostileNntpServer::Script([record](Conversation &client) {
        client.say(record);
        client.hangUp();
    });
    QTest::newRow("reset") << HostileNntpServer::Script([](Conversation &client) {
        client.hearSomething();
        client.slam();
    });
}

void tst_SimpleNntpClientTls::aHandshakeThatNeverEndsIsGivenUp()
{
    QFETCH(HostileNntpServer::Script, script);
    HostileNntpServer server(script);
    Attempt attempt = attemptOn(server.port());
    attempt.connectBudget = 1s;
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QVERIFY(!outcome.isConnected);
    QCOMPARE(outcome.lastReply, QString());
    QCOMPARE(m_core->newsServerReply(), QString());
}

void tst_SimpleNntpClientTls::theLinesInsideTlsAreReadLikeOthers_data()
{
    QTest::addColumn<HostileNntpServer::Script>("script");
    QTest::addColumn<bool>("isLoggedIn");
    QTest::addColumn<QByteArray>("transcript");
    const auto row = [](const char *name, const HostileNntpServer::Script &script, bool isLoggedIn,
                        const QByteArray &transcript) {
        QTest::newRow(name) << script << isLoggedIn << transcript;
    };
    const auto greeting = [](const QByteArray &bytes) {
        return [bytes](Conversation &client) {
            client.say(bytes);
            client.hear();
            client.say("281 ok\r\n");
        };
    };
    row("longest line", greeting("200 " + QByteArray(4096 - 6, 'x') + "\r\n"), true, userLine());
    row("too long by one", greeting("200 " + QByteArray(4097 - 6, 'x') + "\r\n"), false, "");
    row("answer before the question", greeting("200 welcome\r\n281 ok\r\n"), false, "");
    row(
        "endless line", [](Conversation &client) { client.flood("200 "); }, false, "");
    const auto inPieces = [](Conversation &client) {
        for (const char *piece : {"2", "00 wel", "come\r", "\n"}) {
            client.say(piece);
            client.pause();
        }
        client.hear();
        client.say("281 ok\r\n");
    };
    row("in pieces", inPieces, true, userLine());
    const auto closedInside = [](Conversation &client) {
        client.say("200 welcome\r\n");
        client.hear();
        client.say("281 o");
        client.hangUp();
    };
    row("closed inside", closedInside, false, userLine());
}

void tst_SimpleNntpClientTls::theLinesInsideTlsAreReadLikeOthers()
{
    QFETCH(HostileNntpServer::Script, script);
    QFETCH(bool, isLoggedIn);
    QFETCH(QByteArray, transcript);
    HostileNntpServer server(script, m_identity);
    const Outcome outcome = outcomeOf(*m_core, attemptOn(server.port()));
    QCOMPARE(outcome.isLoggedIn, isLoggedIn);
    QCOMPARE(server.transcript(), transcript);
    QVERIFY(m_core->traffic().nntpDown() < 1 << 20);
}

QTEST_GUILESS_MAIN(tst_SimpleNntpClientTls)
#include "tst_simplenntpclient_tls.moc"
