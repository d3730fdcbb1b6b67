// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hlog.h>

#include <QTest>

class TestHLog : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { HLog::install(); }
    void messagesStandInTheReport();
    void secretsAreLeftOutEvenOfEarlierLines();
    void aSecretInsideAnotherLeavesNoRest();
    void shortTextsAreNoSecrets();
    void onlyTheNewestLinesAreKept();
};

void TestHLog::messagesStandInTheReport()
{
    qWarning("the pond is frozen");
    QVERIFY(HLog::report().contains(QLatin1String("the pond is frozen")));
    QVERIFY(HLog::report().contains(QLatin1String(qVersion())));
}

void TestHLog::secretsAreLeftOutEvenOfEarlierLines()
{
    qWarning("logging in with swordfish");
    HLog::addSecret(QStringLiteral("swordfish"));
    qWarning("swordfish again");
    QVERIFY(!HLog::report().contains(QLatin1String("swordfish")));
    QVERIFY(HLog::report().contains(QLatin1String("logging in with ***")));
}

void TestHLog::aSecretInsideAnotherLeavesNoRest()
{
    HLog::addSecret(QStringLiteral("trout"));
    HLog::addSecret(QStringLiteral("rainbow-trout-river"));
    qWarning("<rainbow-trout-river>");
    QVERIFY(HLog::report().contains(QLatin1String("<***>")));
}

void TestHLog::shortTextsAreNoSecrets()
{
    HLog::addSecret(QString());
    HLog::addSecret(QStringLiteral("e"));
    qWarning("seventeen");
    QVERIFY(HLog::report().contains(QLatin1String("seventeen")));
}

void TestHLog::onlyTheNewestLinesAreKept()
{
    qWarning("the first of many");
    for (int i = 0; i < 2000; ++i)
        qDebug("line");
    QVERIFY(!HLog::report().contains(QLatin1String("the first of many")));
}

QTEST_GUILESS_MAIN(TestHLog)
#include "tst_hlog.moc"
