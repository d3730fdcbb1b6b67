// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "linereader.h"

#include <QtTest>

class tst_LineReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bytesBecomeTheSameLinesHoweverTheyArrive_data();
    void bytesBecomeTheSameLinesHoweverTheyArrive();
    void aLineMayBeAsLongAsTheLimitAndNoLonger_data();
    void aLineMayBeAsLongAsTheLimitAndNoLonger();
    void clearingStartsAfresh();
};

void tst_LineReader::bytesBecomeTheSameLinesHoweverTheyArrive_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QList<QByteArray>>("lines");
    QTest::addColumn<bool>("isRestEmpty");
    using Lines = QList<QByteArray>;
    QTest::newRow("nothing") << QByteArray() << Lines() << true;
    QTest::newRow("one") << QByteArray("one\r\n") << Lines{"one"} << true;
    QTest::newRow("two") << QByteArray("one\r\ntwo\r\n") << Lines{"one", "two"} << true;
    QTest::newRow("unfinished") << QByteArray("one\r\ntwo\r") << Lines{"one"} << false;
    QTest::newRow("empty lines") << QByteArray("\r\n\n") << Lines{"", ""} << true;
    QTest::newRow("line feed alone") << QByteArray("one\n") << Lines{"one"} << true;
    QTest::newRow("returns inside") << QByteArray("o\rne\r\r\n") << Lines{"o\rne\r"} << true;
    QTest::newRow("NUL") << QByteArray("a\0b\r\n", 5) << Lines{QByteArray("a\0b", 3)} << true;
}

void tst_LineReader::bytesBecomeTheSameLinesHoweverTheyArrive()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QList<QByteArray>, lines);
    QFETCH(bool, isRestEmpty);
    for (int piece = 1; piece <= qMax(1, bytes.size()); ++piece) {
        LineReader reader(16);
        QList<QByteArray> taken;
        for (int from = 0; from < bytes.size(); from += piece) {
            reader.append(bytes.mid(from, piece));
            while (const auto line = reader.takeLine())
                taken << *line;
        }
        QCOMPARE(taken, lines);
        QCOMPARE(reader.isEmpty(), isRestEmpty);
        QVERIFY(!reader.isTooLong());
    }
}

void tst_LineReader::aLineMayBeAsLongAsTheLimitAndNoLonger_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isTooLong");
    QTest::addColumn<bool>("isLine");
    QTest::newRow("limit") << QByteArray("123456\r\n") << false << true;
    QTest::newRow("limit without return") << QByteArray("1234567\n") << false << true;
    QTest::newRow("limit, then more") << QByteArray("123456\r\n1234567890") << false << true;
    QTest::newRow("one more") << QByteArray("1234567\r\n") << true << false;
    QTest::newRow("could still end") << QByteArray("1234567") << false << false;
    QTest::newRow("cannot end in time") << QByteArray("12345678") << true << false;
}

void tst_LineReader::aLineMayBeAsLongAsTheLimitAndNoLonger()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isTooLong);
    QFETCH(bool, isLine);
    LineReader reader(8);
    reader.append(bytes);
    QCOMPARE(reader.isTooLong(), isTooLong);
    QCOMPARE(reader.takeLine().has_value(), isLine);
}

void tst_LineReader::clearingStartsAfresh()
{
    LineReader reader(4);
    reader.append("too long");
    QVERIFY(reader.isTooLong());
    reader.clear();
    QVERIFY(reader.isEmpty());
    reader.append("ok\r\n");
    QCOMPARE(reader.takeLine().value_or("nothing"), QByteArray("ok"));
}

QTEST_GUILESS_MAIN(tst_LineReader)
#include "tst_linereader.moc"
