// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "grouplines.h"

#include "newsgrouptablebuilder.h"

#include <QtTest>

/// What becomes of the lines of LIST ACTIVE and LIST NEWSGROUPS.
class TestNewsgroupTable : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void groupsAreSortedAndEachIsThereOnce();
    void aDescriptionFindsItsGroup_data();
    void aDescriptionFindsItsGroup();
    void theFirstOfSeveralDescriptionsCounts();
    void aLineThatNamesNoNewsgroupIsLeftOut_data();
    void aLineThatNamesNoNewsgroupIsLeftOut();
    void namesOfAnyBytesCanBeRead_data();
    void namesOfAnyBytesCanBeRead();
    void aLongDescriptionIsCutOff();
    void aGroupIsFoundByItsExactName();
    void anEmptyTableFindsNothing();
    void aMillionGroupsAreEnough();
};

void TestNewsgroupTable::groupsAreSortedAndEachIsThereOnce()
{
    const NewsgroupTable table =
        tableOf({"misc.test 5 1 y", "comp.lang.c 9 1 m", "misc.test 7 1 y", "comp.lang.c++ 2 1 y", "alt.x"});
    QCOMPARE(namesIn(table), (QStringList{QStringLiteral("alt.x"), QStringLiteral("comp.lang.c"),
                                          QStringLiteral("comp.lang.c++"), QStringLiteral("misc.test")}));
}

void TestNewsgroupTable::aDescriptionFindsItsGroup_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("description");
    QTest::newRow("tab") << QByteArray("b.b\tFor tests.") << QStringLiteral("For tests.");
    QTest::newRow("blanks") << QByteArray("b.b   For tests.") << QStringLiteral("For tests.");
    QTest::newRow("tabs") << QByteArray("b.b\t\tFor\ttests. ") << QStringLiteral("For tests.");
    QTest::newRow("none") << QByteArray("b.b") << QString();
    QTest::newRow("only blanks") << QByteArray("b.b \t ") << QString();
    QTest::newRow("UTF-8") << QByteArray("b.b\tF\xC3\xBCr") << QStringLiteral("Für");
    QTest::newRow("Latin-1") << QByteArray("b.b\tF\xFCr") << QStringLiteral("Für");
    QTest::newRow("control characters") << QByteArray("b.b\ta\x1B[2Jb\0c", 12) << QStringLiteral("a [2Jb c");
    QTest::newRow("line separator") << QByteArray("b.b\ta\xE2\x80\xA8z") << QStringLiteral("a z");
    QTest::newRow("a group that is not there") << QByteArray("b.c\tOther.") << QString();
    QTest::newRow("letter case") << QByteArray("B.b\tOther.") << QString();
}

void TestNewsgroupTable::aDescriptionFindsItsGroup()
{
    QFETCH(QByteArray, line);
    const NewsgroupTable table = tableOf({"b.b 1 1 y", "a.a 1 1 y", "c.c 1 1 y"}, {"c.c\tlast", line});
    QTEST(table.description(1), "description");
    QCOMPARE(table.description(0), QString());
    QCOMPARE(table.description(2), QStringLiteral("last"));
}

void TestNewsgroupTable::theFirstOfSeveralDescriptionsCounts()
{
    const NewsgroupTable table = tableOf({"a.a 1 1 y"}, {"a.a\tfirst", "a.a\tsecond"});
    QCOMPARE(table.description(0), QStringLiteral("first"));
}

void TestNewsgroupTable::aLineThatNamesNoNewsgroupIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("blank first") << QByteArray(" a.a 1 1 y");
    QTest::newRow("tab first") << QByteArray("\ta.a");
    QTest::newRow("NUL") << QByteArray("a\0.a 1 1 y", 10);
    QTest::newRow("escape") << QByteArray("a.\x1B[2J 1 1 y");
    QTest::newRow("carriage return") << QByteArray("a.a\r 1 1 y");
    QTest::newRow("line separator") << QByteArray("a.\xE2\x80\xA8z 1 1 y");
    QTest::newRow("no-break space") << QByteArray("a.\xC2\xA0z 1 1 y");
    QTest::newRow("turned direction") << QByteArray("a.\xE2\x80\xAEz 1 1 y");
    QTest::newRow("control character of Latin-1") << QByteArray("a.\x85\xFF 1 1 y");
    QTest::newRow("too long") << QByteArray(498, 'a') + " 1 1 y";
}

void TestNewsgroupTable::aLineThatNamesNoNewsgroupIsLeftOut()
{
    QFETCH(QByteArray, line);
    QCOMPARE(namesIn(tableOf({line, "b.b 1 1 y"}, {line + " text"})), QStringList{QStringLiteral("b.b")});
}

void TestNewsgroupTable::namesOfAnyBytesCanBeRead_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("name");
    QTest::newRow("longest") << QByteArray(497, 'a') + " 1 1 y" << QString(497, QLatin1Char('a'));
    QTest::newRow("UTF-8") << QByteArray("de.\xC3\xBC 1 1 y") << QStringLiteral("de.ü");
    QTest::newRow("Latin-1") << QByteArray("de.\xFC 1 1 y") << QStringLiteral("de.ü");
    QTest::newRow("half a character") << QByteArray("de.\xC3 1 1 y") << QStringLiteral("de.Ã");
    QTest::newRow("tab behind") << QByteArray("de.a\t1 1 y") << QStringLiteral("de.a");
    QTest::newRow("markup") << QByteArray("<b>&amp; 1 1 y") << QStringLiteral("<b>&amp;");
}

void TestNewsgroupTable::namesOfAnyBytesCanBeRead()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, name);
    const NewsgroupTable table = tableOf({line});
    QCOMPARE(namesIn(table), QStringList{name});
    QCOMPARE(table.row(name), 0);
}

void TestNewsgroupTable::aLongDescriptionIsCutOff()
{
    const NewsgroupTable table = tableOf({"a.a 1 1 y"}, {"a.a\t" + QByteArray(100'000, 'x')});
    QCOMPARE(table.description(0).size(), NewsgroupTableBuilder::longestDescription);
    QVERIFY(table.description(0).endsWith(QChar(0x2026)));
}

void TestNewsgroupTable::aGroupIsFoundByItsExactName()
{
    const NewsgroupTable table = tableOf({"a", "a.b", "a.b.c", "a.c", "b"});
    for (int row = 0; row < table.count(); ++row)
        QCOMPARE(table.row(table.name(row)), row);
    for (const char *name : {"", "A", "a.", "a.b.", "a.b.d", "c", " a"})
        QCOMPARE(table.row(QLatin1String(name)), -1);
}

void TestNewsgroupTable::anEmptyTableFindsNothing()
{
    QVERIFY(tableOf({}).isEmpty());
    QCOMPARE(tableOf({}).row(QStringLiteral("a")), -1);
    QCOMPARE(NewsgroupTable().row(QString()), -1);
}

void TestNewsgroupTable::aMillionGroupsAreEnough()
{
    NewsgroupTableBuilder builder;
    for (int i = 0; i < NewsgroupTableBuilder::mostGroups + 10; ++i) {
        const QByteArray line = "g" + QByteArray::number(i);
        builder.addGroup(line.constData(), line.size());
    }
    QCOMPARE(builder.take().count(), NewsgroupTableBuilder::mostGroups);
    QCOMPARE(builder.count(), 0);
}

QTEST_GUILESS_MAIN(TestNewsgroupTable)
#include "tst_newsgrouptable.moc"
