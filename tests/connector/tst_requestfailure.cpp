// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/requestfailure.h>

#include <QSet>
#include <QtTest>

using Kind = RequestFailure::Kind;

Q_DECLARE_METATYPE(RequestFailure::Kind)

class RequestFailureTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void noFailureSaysNothing();
    void everyKindHasASentenceOfItsOwn();
    void whatTheServiceSaidIsSaidInItsWords();
    void aRefusedPasswordIsToldFromSilentNewsServers();
    void onlyALoginBlamesThePassword();
    void theAddressIsToBlameForAllThatTheServiceDoes_data();
    void theAddressIsToBlameForAllThatTheServiceDoes();
};

namespace {

const QVector<Kind> allKinds = {
    Kind::ShuttingDown,      Kind::LoggedOut,       Kind::NoService,
    Kind::Unreachable,       Kind::TimedOut,        Kind::NotTrusted,
    Kind::BadStatus,         Kind::TooLarge,        Kind::Truncated,
    Kind::BadReply,          Kind::Refused,         Kind::Unwritable,
    Kind::RefusedSession,    Kind::CredentialsTest, Kind::RefusedCredentials,
    Kind::UnwritableRequest,
};

}

void RequestFailureTest::noFailureSaysNothing()
{
    const RequestFailure none;
    QVERIFY(none.isNull());
    QCOMPARE(none.sentence(), QString());
    QVERIFY(!none.isServiceLost());
    QVERIFY(!none.isAddressToBlame());
}

void RequestFailureTest::everyKindHasASentenceOfItsOwn()
{
    QSet<QString> sentences;
    for (const Kind kind : allKinds) {
        const RequestFailure failure(kind);
        QVERIFY(!failure.isNull());
        QVERIFY2(failure.sentence().endsWith(QLatin1Char('.')), qPrintable(failure.sentence()));
        sentences.insert(failure.sentence());
    }
    QCOMPARE(sentences.size(), int(Kind::Unwritable));
    QCOMPARE(allKinds.size(), int(Kind::Unwritable));
}

void RequestFailureTest::whatTheServiceSaidIsSaidInItsWords()
{
    const QString words = QStringLiteral("This account is suspended.");
    QCOMPARE(RequestFailure(Kind::Refused, words).sentence(), words);
    QCOMPARE(RequestFailure(Kind::RefusedCredentials, words).sentence(), words);
    QVERIFY(
        RequestFailure(Kind::BadStatus, QStringLiteral("503")).sentence().contains(QStringLiteral("503")));
    QVERIFY(!RequestFailure(Kind::Unreachable, words).sentence().contains(words));
}

void RequestFailureTest::aRefusedPasswordIsToldFromSilentNewsServers()
{
    const RequestFailure refused(Kind::CredentialsTest, QStringLiteral("481 No"));
    QVERIFY(refused.sentence() != RequestFailure(Kind::CredentialsTest).sentence());
    QVERIFY(!refused.isServiceLost());
}

void RequestFailureTest::onlyALoginBlamesThePassword()
{
    const QVector<Kind> ofLogins = {Kind::CredentialsTest, Kind::RefusedCredentials, Kind::Unwritable};
    for (const Kind kind : allKinds)
        QCOMPARE(RequestFailure(kind).sentence().contains(QLatin1String("password")),
                 ofLogins.contains(kind));
    QCOMPARE(RequestFailure(Kind::BadReply).sentence(),
             QStringLiteral("The account service's reply cannot be read."));
}

void RequestFailureTest::theAddressIsToBlameForAllThatTheServiceDoes_data()
{
    QTest::addColumn<RequestFailure::Kind>("kind");
    QTest::addColumn<bool>("lost");
    QTest::addColumn<bool>("toBlame");
    QTest::newRow("no service") << Kind::NoService << true << true;
    QTest::newRow("unreachable") << Kind::Unreachable << true << true;
    QTest::newRow("timed out") << Kind::TimedOut << true << true;
    QTest::newRow("not trusted") << Kind::NotTrusted << true << true;
    QTest::newRow("status") << Kind::BadStatus << false << true;
    QTest::newRow("too large") << Kind::TooLarge << false << true;
    QTest::newRow("truncated") << Kind::Truncated << false << true;
    QTest::newRow("bad reply") << Kind::BadReply << false << true;
    QTest::newRow("refused") << Kind::Refused << false << false;
    QTest::newRow("wrong password") << Kind::RefusedCredentials << false << false;
    QTest::newRow("session") << Kind::RefusedSession << false << false;
    QTest::newRow("unwritable request") << Kind::UnwritableRequest << false << false;
    QTest::newRow("unwritable") << Kind::Unwritable << false << false;
    QTest::newRow("logged out") << Kind::LoggedOut << false << false;
    QTest::newRow("shutting down") << Kind::ShuttingDown << false << false;
}

void RequestFailureTest::theAddressIsToBlameForAllThatTheServiceDoes()
{
    QFETCH(RequestFailure::Kind, kind);
    QTEST(RequestFailure(kind).isServiceLost(), "lost");
    QTEST(RequestFailure(kind).isAddressToBlame(), "toBlame");
}

QTEST_GUILESS_MAIN(RequestFailureTest)
#include "tst_requestfailure.moc"
