// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "headerdate.h"

#include <QDateTime>
#include <QtTest>

class TestHeaderDate : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void datesAreReadAsProgramsWriteThem_data();
    void datesAreReadAsProgramsWriteThem();
    void whatIsNoDateIsNone_data();
    void whatIsNoDateIsNone();
};

void TestHeaderDate::datesAreReadAsProgramsWriteThem_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("utc");
    const char *usual = "2024-02-06T08:49:37Z";
    QTest::newRow("usual") << QByteArray("Tue, 06 Feb 2024 08:49:37 +0000") << usual;
    QTest::newRow("zone") << QByteArray("Tue, 06 Feb 2024 09:49:37 +0100") << usual;
    QTest::newRow("day of one digit") << QByteArray("Tue, 6 Feb 2024 08:49:37 +0000") << usual;
    QTest::newRow("no day's name") << QByteArray("6 Feb 2024 08:49:37 +0000") << usual;
    QTest::newRow("no comma") << QByteArray("Tue 6 Feb 2024 08:49:37 +0000") << usual;
    QTest::newRow("GMT") << QByteArray("Tue, 06 Feb 2024 08:49:37 GMT") << usual;
    QTest::newRow("UT") << QByteArray("06 Feb 2024 08:49:37 UT") << usual;
    QTest::newRow("EST") << QByteArray("06 Feb 2024 03:49:37 EST") << usual;
    QTest::newRow("pdt") << QByteArray("06 Feb 2024 01:49:37 pdt") << usual;
    QTest::newRow("unknown zone") << QByteArray("06 Feb 2024 08:49:37 XYZ") << usual;
    QTest::newRow("no zone") << QByteArray("06 Feb 2024 08:49:37") << usual;
    QTest::newRow("comment") << QByteArray("Tue, 06 Feb 2024 09:49:37 +0100 (CET)") << usual;
    QTest::newRow("nested comments") << QByteArray("06 Feb (a (b) c) 2024 08:49:37 (d) GMT") << usual;
    QTest::newRow("blanks") << QByteArray("  Tue,  06  Feb\t2024 08:49:37   +0000 ") << usual;
    QTest::newRow("wrong day's name") << QByteArray("Mon, 06 Feb 2024 08:49:37 +0000") << usual;
    QTest::newRow("letter case") << QByteArray("TUE, 06 FEB 2024 08:49:37 +0000") << usual;
    QTest::newRow("whole month") << QByteArray("06 February 2024 08:49:37 +0000") << usual;
    QTest::newRow("no seconds") << QByteArray("06 Feb 2024 08:49 +0000") << "2024-02-06T08:49:00Z";
    QTest::newRow("year of two digits") << QByteArray("06 Feb 24 08:49:37 GMT") << usual;
    QTest::newRow("last century") << QByteArray("06 Feb 94 08:49:37 GMT") << "1994-02-06T08:49:37Z";
    QTest::newRow("year of three digits") << QByteArray("06 Feb 124 08:49:37 GMT") << usual;
}

void TestHeaderDate::datesAreReadAsProgramsWriteThem()
{
    QFETCH(QByteArray, field);
    QTEST(headerdate::parse(field).toString(Qt::ISODate), "utc");
}

void TestHeaderDate::whatIsNoDateIsNone_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("blanks") << QByteArray("   ");
    QTest::newRow("words") << QByteArray("yesterday at noon or so");
    QTest::newRow("no year") << QByteArray("06 Feb 08:49:37 GMT");
    QTest::newRow("31 February") << QByteArray("31 Feb 2024 08:49:37 GMT");
    QTest::newRow("25 o'clock") << QByteArray("06 Feb 2024 25:49:37 GMT");
    QTest::newRow("a huge number") << QByteArray("99999999999999999999 Feb 2024 08:49:37 GMT");
    QTest::newRow("open comment") << QByteArray("(06 Feb 2024 08:49:37 GMT");
    QTest::newRow("commas") << QByteArray(",,,,,");
    QTest::newRow("long") << QByteArray(100'000, '6');
    QTest::newRow("control characters") << QByteArray("06\0Feb\0"
                                                      "2024\0"
                                                      "08:49:37",
                                                      20);
}

void TestHeaderDate::whatIsNoDateIsNone()
{
    QFETCH(QByteArray, field);
    QVERIFY(!headerdate::parse(field).isValid());
}

QTEST_GUILESS_MAIN(TestHeaderDate)
#include "tst_headerdate.moc"
