// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nntpgroup.h>

#include <QtTest>

#include <limits>

class tst_NntpGroup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void threeNumbersMakeAGroup_data();
    void threeNumbersMakeAGroup();
    void anythingElseIsNoGroup_data();
    void anythingElseIsNoGroup();
};

void tst_NntpGroup::threeNumbersMakeAGroup_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<qint64>("count");
    QTest::addColumn<qint64>("first");
    QTest::addColumn<qint64>("last");
    const auto row = [](const char *name, const char *line, qint64 count, qint64 first, qint64 last) {
        QTest::newRow(name) << QByteArray(line) << count << first << last;
    };
    const qint64 largest = std::numeric_limits<qint64>::max() - 1;
    row("usual", "211 1234 3000234 3002322 misc.test", 1234, 3000234, 3002322);
    row("one article", "211 1 7 7 misc.test", 1, 7, 7);
    row("from zero", "211 1 0 0 misc.test", 1, 0, 0);
    row("no name", "211 2 1 2", 2, 1, 2);
    row("wide", "211  2\t1   2  misc.test", 2, 1, 2);
    row("empty", "211 0 0 0 misc.test", 0, 1, 0);
    row("empty, last before first", "211 0 4000 3999 misc.test", 0, 1, 0);
    row("empty, numbers stay", "211 0 4000 4002 misc.test", 0, 1, 0);
    row("last before first", "211 5 10 4 misc.test", 0, 1, 0);
    row("more than the range holds", "211 999 10 12 misc.test", 3, 10, 12);
    row("fewer than the range holds", "211 2 10 20 misc.test", 2, 10, 20);
    row("too large", "211 99999999999999999999 1 99999999999999999999 misc.test", largest, 1, largest);
    row("all too large", "211 99999999999999999999 99999999999999999999 99999999999999999999 misc.test", 1,
        largest, largest);
}

void tst_NntpGroup::threeNumbersMakeAGroup()
{
    QFETCH(QByteArray, line);
    QFETCH(qint64, count);
    QFETCH(qint64, first);
    QFETCH(qint64, last);
    const auto group = NntpGroup::fromReply(line);
    QVERIFY(group);
    QCOMPARE(group->count, count);
    QCOMPARE(group->first, first);
    QCOMPARE(group->last, last);
    QCOMPARE(group->isEmpty(), count == 0);
}

void tst_NntpGroup::anythingElseIsNoGroup_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("code alone") << QByteArray("211");
    QTest::newRow("two numbers") << QByteArray("211 1 2");
    QTest::newRow("name first") << QByteArray("211 misc.test 1 2 3");
    QTest::newRow("negative") << QByteArray("211 -1 2 3 misc.test");
    QTest::newRow("signed") << QByteArray("211 1 +2 3 misc.test");
    QTest::newRow("fraction") << QByteArray("211 1 2 3.5 misc.test");
    QTest::newRow("hexadecimal") << QByteArray("211 0x10 2 3 misc.test");
}

void tst_NntpGroup::anythingElseIsNoGroup()
{
    QFETCH(QByteArray, line);
    QVERIFY(!NntpGroup::fromReply(line));
}

QTEST_GUILESS_MAIN(tst_NntpGroup)
#include "tst_nntpgroup.moc"
