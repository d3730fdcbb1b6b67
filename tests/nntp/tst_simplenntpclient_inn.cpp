// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "clientthread.h"
#include "innserver.h"

#include <halvora/core.h>

#include <QTemporaryDir>
#include <QtTest>

/// The client against a news server that other people wrote.
class tst_SimpleNntpClientInn : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void theServerDecidesWhoIsLetIn_data();
    void theServerDecidesWhoIsLetIn();
    void aServerThatSignsItselfIsNotTrusted();

private:
    std::unique_ptr<InnServer> m_server;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Core> m_core;
};

void tst_SimpleNntpClientInn::initTestCase()
{
    m_server = std::make_unique<InnServer>();
    QVERIFY2(m_server->problem().isEmpty(), qPrintable(m_server->problem()));
}

void tst_SimpleNntpClientInn::init()
{
    m_core.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_folder->path());
}

void tst_SimpleNntpClientInn::cleanupTestCase()
{
    m_server.reset();
}

void tst_SimpleNntpClientInn::theServerDecidesWhoIsLetIn_data()
{
    QTest::addColumn<bool>("isTls");
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("isLoggedIn");
    const QString alice = QStringLiteral("alice");
    const QString bob = QStringLiteral("bob");
    const QString wonderland = QStringLiteral("wonderland");
    for (const bool isTls : {false, true}) {
        const char *port = isTls ? "TLS" : "plain";
        QTest::addRow("%s: right", port) << isTls << alice << wonderland << true;
        QTest::addRow("%s: another right one", port) << isTls << bob << QStringLiteral("builder") << true;
        QTest::addRow("%s: wrong password", port)
            << isTls << alice << QStringLiteral("looking-glass") << false;
        QTest::addRow("%s: somebody else's password", port) << isTls << bob << wonderland << false;
        QTest::addRow("%s: wrong letter case", port) << isTls << alice << wonderland.toUpper() << false;
        QTest::addRow("%s: unknown name", port) << isTls << QStringLiteral("carol") << wonderland << false;
    }
}

void tst_SimpleNntpClientInn::theServerDecidesWhoIsLetIn()
{
    QFETCH(bool, isTls);
    QFETCH(QString, user);
    QFETCH(QString, password);
    QFETCH(bool, isLoggedIn);
    m_core->setAuthorityFile(m_server->certificateFile());
    Attempt attempt;
    attempt.hosts = {
        NntpHost(QStringLiteral("localhost"), isTls ? m_server->tlsPort() : m_server->port(), isTls)};
    attempt.user = user;
    attempt.password = password;
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QVERIFY(outcome.isConnected);
    QCOMPARE(outcome.isLoggedIn, isLoggedIn);
    QCOMPARE(outcome.lastReply.left(4), isLoggedIn ? QStringLiteral("281 ") : QStringLiteral("481 "));
    QCOMPARE(m_core->newsServerReply(), isLoggedIn ? QString() : outcome.lastReply);
}

void tst_SimpleNntpClientInn::aServerThatSignsItselfIsNotTrusted()
{
    Attempt attempt;
    attempt.hosts = {NntpHost(QStringLiteral("localhost"), m_server->tlsPort(), true)};
    const Outcome outcome = outcomeOf(*m_core, attempt);
    QVERIFY(!outcome.isConnected);
    QCOMPARE(outcome.lastReply, QString());
}

QTEST_GUILESS_MAIN(tst_SimpleNntpClientInn)
#include "tst_simplenntpclient_inn.moc"
