// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "requests/cvaccountstatus.h"

#include <QDomDocument>
#include <QTest>

namespace {

CVAccountStatus parsed(const QString &xml)
{
    QDomDocument document;
    document.setContent(xml);
    CVAccountStatus status;
    status.parse(document.documentElement());
    return status;
}

QString withNntp(const QString &attributes)
{
    return QStringLiteral("<status><plan name='Demo'/><nntp %1/></status>").arg(attributes);
}

} // namespace

class TestCVAccountStatus : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aNewRecordHoldsTheDefaults();
    void aNullElementOnlyClearsTheNullFlag();
    void aWholeReplyIsRead();
    void supportedIsTrueOnlyForTheExactWord_data();
    void supportedIsTrueOnlyForTheExactWord();
    void nextUpdateIsZeroWhenMissingAndMinusOneWhenMalformed_data();
    void nextUpdateIsZeroWhenMissingAndMinusOneWhenMalformed();
    void figuresFollowTheirOwnRules_data();
    void figuresFollowTheirOwnRules();
    void withoutTheNntpElementItsFieldsKeepTheirDefaults();
    void onlyTheFirstPlanAndNntpCount();
    void anElementOfAnotherNameIsReadAllTheSame();
    void theRecordIsEmptyWhenAnyEssentialIsMissing_data();
    void theRecordIsEmptyWhenAnyEssentialIsMissing();
    void reparsingACopyLeavesTheOtherUnchanged();
    void parsingStartsFromTheDefaults();
    void theTypeIsKnownByItsName();
};

void TestCVAccountStatus::aNewRecordHoldsTheDefaults()
{
    const CVAccountStatus status;
    QVERIFY(status.isEmpty());
    QVERIFY(!status.supported());
    QCOMPARE(status.nextUpdateMillis(), 0);
    QVERIFY(status.planName().isEmpty());
    QCOMPARE(status.maxConnections(), -1);
    QCOMPARE(status.billingBytes(), -1);
    QCOMPARE(status.mtdBytes(), -1);
    QCOMPARE(status.usageUpdatedTimestamp(), 0);
}

void TestCVAccountStatus::aNullElementOnlyClearsTheNullFlag()
{
    CVAccountStatus status;
    status.parse(QDomElement());
    QVERIFY(status.isEmpty());
    QVERIFY(!status.supported());
    QCOMPARE(status.nextUpdateMillis(), 0);
    QCOMPARE(status.maxConnections(), -1);
    QCOMPARE(status.billingBytes(), -1);
    QCOMPARE(status.mtdBytes(), -1);
}

void TestCVAccountStatus::aWholeReplyIsRead()
{
    const CVAccountStatus status =
        parsed(QStringLiteral("<status supported='true' next-update-millis='300000'><plan "
                              "name='Unlimited'/><nntp max-connections='20' "
                              "billing-bytes='52291226829' mtd-bytes='33500744909' "
                              "usage-updated-timestamp='1763654400000'/></status>"));
    QVERIFY(!status.isEmpty());
    QVERIFY(status.supported());
    QCOMPARE(status.nextUpdateMillis(), 300000);
    QCOMPARE(status.planName(), QStringLiteral("Unlimited"));
    QCOMPARE(status.maxConnections(), 20);
    QCOMPARE(status.billingBytes(), Q_INT64_C(52291226829));
    QCOMPARE(status.mtdBytes(), Q_INT64_C(33500744909));
    QCOMPARE(status.usageUpdatedTimestamp(), Q_INT64_C(1763654400000));
}

void TestCVAccountStatus::supportedIsTrueOnlyForTheExactWord_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<bool>("supported");
    QTest::newRow("true") << QStringLiteral("<status supported='true'/>") << true;
    QTest::newRow("absent") << QStringLiteral("<status/>") << false;
    QTest::newRow("capitals") << QStringLiteral("<status supported='TRUE'/>") << false;
    QTest::newRow("capital") << QStringLiteral("<status supported='True'/>") << false;
    QTest::newRow("yes") << QStringLiteral("<status supported='yes'/>") << false;
    QTest::newRow("one") << QStringLiteral("<status supported='1'/>") << false;
    QTest::newRow("blank") << QStringLiteral("<status supported=' true'/>") << false;
    QTest::newRow("empty") << QStringLiteral("<status supported=''/>") << false;
}

void TestCVAccountStatus::supportedIsTrueOnlyForTheExactWord()
{
    QFETCH(QString, xml);
    QTEST(parsed(xml).supported(), "supported");
}

void TestCVAccountStatus::nextUpdateIsZeroWhenMissingAndMinusOneWhenMalformed_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<int>("millis");
    const auto row = [](const char *text, int millis) {
        QTest::newRow(text) << QStringLiteral("<status next-update-millis='%1'/>").arg(QLatin1String(text))
                            << millis;
    };
    QTest::newRow("absent") << QStringLiteral("<status/>") << 0;
    row("300000", 300000);
    row("abc", -1);
    row("", -1);
    row("12.5", -1);
    row("0x10", -1);
    row("010", 10);
    row("-5", -5);
    row("2147483647", 2147483647);
    row("2147483648", -1);
    // What surrounds or signs a number is as the conversion of Qt takes it.
    row(" 7", 7);
    row("7 ", 7);
    row("+7", 7);
}

void TestCVAccountStatus::nextUpdateIsZeroWhenMissingAndMinusOneWhenMalformed()
{
    QFETCH(QString, xml);
    QTEST(parsed(xml).nextUpdateMillis(), "millis");
}

void TestCVAccountStatus::figuresFollowTheirOwnRules_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<int>("connections");
    QTest::addColumn<qint64>("billing");
    QTest::addColumn<qint64>("mtd");
    QTest::addColumn<qint64>("timestamp");
    const auto row = [](const char *attributes, int connections, qint64 billing, qint64 mtd,
                        qint64 timestamp) {
        QTest::newRow(attributes) << QString::fromLatin1(attributes) << connections << billing << mtd
                                  << timestamp;
    };
    row("", -1, 0, 0, 0);
    row("max-connections='x' billing-bytes='x' mtd-bytes='x' usage-updated-timestamp='x'", -1, -1, -1, 0);
    row("max-connections='' billing-bytes='' mtd-bytes='' usage-updated-timestamp=''", -1, -1, -1, 0);
    row("max-connections='20'", 20, 0, 0, 0);
    row("max-connections='0'", 0, 0, 0, 0);
    row("max-connections='-3'", -3, 0, 0, 0);
    row("max-connections='99999999999'", -1, 0, 0, 0);
    row("billing-bytes='9223372036854775807'", -1, Q_INT64_C(9223372036854775807), 0, 0);
    row("billing-bytes='9223372036854775808'", -1, -1, 0, 0);
    row("mtd-bytes='-1'", -1, 0, -1, 0);
    row("usage-updated-timestamp='1763654400000'", -1, 0, 0, Q_INT64_C(1763654400000));
    row("usage-updated-timestamp='9223372036854775808'", -1, 0, 0, 0);
    row("max-connections='0x10' billing-bytes='0x10' mtd-bytes='0x10' usage-updated-timestamp='0x10'", -1, -1,
        -1, 0);
    row("max-connections='010' billing-bytes='010' mtd-bytes='010' usage-updated-timestamp='010'", 10, 10, 10,
        10);
    row("max-connections=' +7 ' billing-bytes=' +7 ' mtd-bytes=' +7 ' usage-updated-timestamp=' +7 '", 7, 7,
        7, 7);
    row("max-connections='1.5' billing-bytes='1.5' mtd-bytes='1.5' usage-updated-timestamp='1.5'", -1, -1, -1,
        0);
    row("billing-bytes='1' mtd-bytes='2'", -1, 1, 2, 0);
}

void TestCVAccountStatus::figuresFollowTheirOwnRules()
{
    QFETCH(QString, attributes);
    const CVAccountStatus status = parsed(withNntp(attributes));
    QTEST(status.maxConnections(), "connections");
    QTEST(status.billingBytes(), "billing");
    QTEST(status.mtdBytes(), "mtd");
    QTEST(status.usageUpdatedTimestamp(), "timestamp");
}

void TestCVAccountStatus::withoutTheNntpElementItsFieldsKeepTheirDefaults()
{
    const CVAccountStatus status = parsed(QStringLiteral("<status><plan name='Demo'/></status>"));
    QCOMPARE(status.planName(), QStringLiteral("Demo"));
    QCOMPARE(status.maxConnections(), -1);
    QCOMPARE(status.billingBytes(), -1);
    QCOMPARE(status.mtdBytes(), -1);
    QCOMPARE(status.usageUpdatedTimestamp(), 0);
    QVERIFY(parsed(QStringLiteral("<status><plan/></status>")).planName().isEmpty());
}

void TestCVAccountStatus::onlyTheFirstPlanAndNntpCount()
{
    const CVAccountStatus status =
        parsed(QStringLiteral("<status><nntp max-connections='1'/><plan name='one'/><plan name='two'/>"
                              "<nntp max-connections='2'/></status>"));
    QCOMPARE(status.planName(), QStringLiteral("one"));
    QCOMPARE(status.maxConnections(), 1);
}

void TestCVAccountStatus::anElementOfAnotherNameIsReadAllTheSame()
{
    QVERIFY(parsed(QStringLiteral("<anything supported='true'/>")).supported());
    QVERIFY(parsed(QStringLiteral("<anything/>")).isEmpty());
}

void TestCVAccountStatus::theRecordIsEmptyWhenAnyEssentialIsMissing_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<bool>("empty");
    const auto row = [](const char *name, const char *plan, const char *nntp, bool empty) {
        QTest::newRow(name) << QStringLiteral("<status><plan name='%1'/><nntp %2/></status>")
                                   .arg(QLatin1String(plan), QLatin1String(nntp))
                            << empty;
    };
    row("whole", "Demo", "max-connections='1' billing-bytes='1' mtd-bytes='1'", false);
    row("only month", "Demo", "max-connections='1' billing-bytes='-1' mtd-bytes='1'", false);
    row("only billing", "Demo", "max-connections='1' billing-bytes='1' mtd-bytes='-1'", false);
    row("no counts", "Demo", "max-connections='1' billing-bytes='-1' mtd-bytes='x'", true);
    row("no limit", "Demo", "billing-bytes='1' mtd-bytes='1'", true);
    row("limit zero", "Demo", "max-connections='0' billing-bytes='1' mtd-bytes='1'", false);
    row("no plan name", "", "max-connections='1' billing-bytes='1' mtd-bytes='1'", true);
}

void TestCVAccountStatus::theRecordIsEmptyWhenAnyEssentialIsMissing()
{
    QFETCH(QString, xml);
    QTEST(parsed(xml).isEmpty(), "empty");
}

void TestCVAccountStatus::reparsingACopyLeavesTheOtherUnchanged()
{
    const CVAccountStatus first =
        parsed(QStringLiteral("<status supported='true'><plan name='first'/></status>"));
    CVAccountStatus second = first;
    QDomDocument document;
    document.setContent(QStringLiteral("<status><plan name='second'/></status>"));
    second.parse(document.documentElement());
    QCOMPARE(first.planName(), QStringLiteral("first"));
    QVERIFY(first.supported());
    QCOMPARE(second.planName(), QStringLiteral("second"));
    QVERIFY(!second.supported());
}

void TestCVAccountStatus::parsingStartsFromTheDefaults()
{
    CVAccountStatus status = parsed(withNntp(QStringLiteral("max-connections='3' billing-bytes='4'")));
    QDomDocument document;
    document.setContent(QStringLiteral("<status/>"));
    status.parse(document.documentElement());
    QVERIFY(status.planName().isEmpty());
    QCOMPARE(status.maxConnections(), -1);
    QCOMPARE(status.billingBytes(), -1);
}

void TestCVAccountStatus::theTypeIsKnownByItsName()
{
    QCOMPARE(qRegisterMetaType<CVAccountStatus>("CVAccountStatus"), qMetaTypeId<CVAccountStatus>());
    QCOMPARE(QMetaType::typeName(qMetaTypeId<CVAccountStatus>()), "CVAccountStatus");
}

QTEST_GUILESS_MAIN(TestCVAccountStatus)
#include "tst_cvaccountstatus.moc"
