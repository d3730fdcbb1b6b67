// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hserveraddressrotator.h>

#include <QtTest>

class HServerAddressRotatorTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void itStartsWithTheFirstAddressAndGoesRound();
    void oneAddressStays();
    void withoutAddressesThereIsNone();
    void anAddressKeepsWhatItWasGiven();
};

namespace {

HServerAddress address(int port)
{
    return HServerAddress(QStringLiteral("account.corvia.example"), port, true, port);
}

} // namespace

void HServerAddressRotatorTest::itStartsWithTheFirstAddressAndGoesRound()
{
    HServerAddressRotator rotator(QStringLiteral("corvia"), {address(1), address(2), address(3)});
    QCOMPARE(rotator.configName(), QStringLiteral("corvia"));
    QCOMPARE(rotator.addresses().size(), 3);
    for (const int port : {1, 2, 3, 1, 2}) {
        QCOMPARE(rotator.current().port(), port);
        QCOMPARE(rotator.current().port(), port);
        rotator.rotate();
    }
}

void HServerAddressRotatorTest::oneAddressStays()
{
    HServerAddressRotator rotator(QString(), {address(7)});
    rotator.rotate();
    QCOMPARE(rotator.current().port(), 7);
}

void HServerAddressRotatorTest::withoutAddressesThereIsNone()
{
    HServerAddressRotator rotator(QString(), {});
    rotator.rotate();
    QVERIFY(rotator.current().isNull());
    QVERIFY(rotator.addresses().isEmpty());
}

void HServerAddressRotatorTest::anAddressKeepsWhatItWasGiven()
{
    QVERIFY(HServerAddress().isNull());
    const HServerAddress plain(QStringLiteral("localhost"), 5598, false, 4);
    QVERIFY(!plain.isNull());
    QCOMPARE(plain.host(), QStringLiteral("localhost"));
    QCOMPARE(plain.port(), 5598);
    QVERIFY(!plain.isSecure());
    QCOMPARE(plain.number(), 4);
}

QTEST_GUILESS_MAIN(HServerAddressRotatorTest)
#include "tst_hserveraddressrotator.moc"
