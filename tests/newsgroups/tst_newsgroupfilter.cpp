// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "grouplines.h"

#include "newsgroupfilter.h"

#include <QtTest>

class TestNewsgroupFilter : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyWordHasToOccur_data();
    void everyWordHasToOccur();
    void typingFindsWhatPastingFinds();
    void aNewListIsSearchedForTheSameWords();
    void anEmptyListHasNothingToFind();
    void aMatchNeverSpansTwoGroups();

private:
    static QStringList passing(const NewsgroupTable &table, const NewsgroupFilter &filter);
    static NewsgroupTable someTable();
};

NewsgroupTable TestNewsgroupFilter::someTable()
{
    return tableOf(
        {"alt.binaries.linux.iso", "comp.os.linux.misc", "comp.os.misc", "de.\xC3\x84pfel", "misc.test"},
        {"comp.os.misc\tNot about Linux", "misc.test\tFor TESTING. \xC3\x89t\xC3\xA9"});
}

QStringList TestNewsgroupFilter::passing(const NewsgroupTable &table, const NewsgroupFilter &filter)
{
    QStringList names;
    for (const int row : filter.rows())
        names.append(table.name(row));
    return names;
}

void TestNewsgroupFilter::everyWordHasToOccur_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("names");
    QTest::newRow("nothing") << QString()
                             << "alt.binaries.linux.iso comp.os.linux.misc comp.os.misc de.Äpfel misc.test";
    QTest::newRow("blanks") << "  \t "
                            << "alt.binaries.linux.iso comp.os.linux.misc comp.os.misc de.Äpfel misc.test";
    QTest::newRow("one word") << "linux"
                              << "alt.binaries.linux.iso comp.os.linux.misc comp.os.misc";
    QTest::newRow("letter case") << "LiNuX"
                                 << "alt.binaries.linux.iso comp.os.linux.misc comp.os.misc";
    QTest::newRow("two words") << "linux iso"
                               << "alt.binaries.linux.iso";
    QTest::newRow("in any order") << " misc   os "
                                  << "comp.os.linux.misc comp.os.misc";
    QTest::newRow("one in the name, one in the description") << "comp.os.misc about"
                                                             << "comp.os.misc";
    QTest::newRow("the same twice") << "test test"
                                    << "misc.test";
    QTest::newRow("part of a word") << "bina"
                                    << "alt.binaries.linux.iso";
    QTest::newRow("letter case beyond ASCII") << "äPF"
                                              << "de.Äpfel";
    QTest::newRow("letter case of a description") << "ÉTÉ testing"
                                                  << "misc.test";
    QTest::newRow("not there") << "linux windows" << QString();
    QTest::newRow("the last group") << "misc.test"
                                    << "misc.test";
    QTest::newRow("the first group") << "alt"
                                     << "alt.binaries.linux.iso";
}

void TestNewsgroupFilter::everyWordHasToOccur()
{
    QFETCH(QString, text);
    NewsgroupFilter filter;
    const NewsgroupTable table = someTable();
    filter.setTable(table);
    filter.setText(text);
    QTEST(passing(table, filter).join(QLatin1Char(' ')), "names");
    QCOMPARE(filter.isActive(), !text.trimmed().isEmpty());
}

// Letter by letter the last result is narrowed; pasted, everything is searched.
void TestNewsgroupFilter::typingFindsWhatPastingFinds()
{
    const NewsgroupTable table = largeTable(3000);
    NewsgroupFilter typed;
    typed.setTable(table);
    const QStringList texts{QStringLiteral("linux iso n1"), QStringLiteral("test"),
                            QStringLiteral("n12 n1 kind"), QStringLiteral("pictures 97 al")};
    for (const QString &text : texts) {
        for (int length = 1; length <= text.size(); ++length) {
            typed.setText(text.left(length));
            NewsgroupFilter pasted;
            pasted.setTable(table);
            pasted.setText(text.left(length));
            QCOMPARE(typed.rows(), pasted.rows());
        }
        for (int length = text.size() - 1; length >= 0; --length) {
            typed.setText(text.left(length));
            NewsgroupFilter pasted;
            pasted.setText(text.left(length));
            pasted.setTable(table);
            QCOMPARE(typed.rows(), pasted.rows());
        }
    }
    QCOMPARE(typed.rows().size(), 3000);
}

void TestNewsgroupFilter::aNewListIsSearchedForTheSameWords()
{
    NewsgroupFilter filter;
    filter.setTable(someTable());
    filter.setText(QStringLiteral("linux"));
    const NewsgroupTable other = tableOf({"a.linux", "b.bsd", "c.linux"});
    filter.setTable(other);
    QCOMPARE(passing(other, filter), (QStringList{QStringLiteral("a.linux"), QStringLiteral("c.linux")}));
    filter.setText(QString());
    QCOMPARE(filter.rows().size(), 3);
}

void TestNewsgroupFilter::anEmptyListHasNothingToFind()
{
    NewsgroupFilter filter;
    filter.setText(QStringLiteral("a b"));
    QVERIFY(filter.rows().isEmpty());
    filter.setTable(NewsgroupTable());
    QVERIFY(filter.rows().isEmpty());
}

void TestNewsgroupFilter::aMatchNeverSpansTwoGroups()
{
    const NewsgroupTable table = tableOf({"ab", "ba"});
    NewsgroupFilter filter;
    filter.setTable(table);
    filter.setText(QStringLiteral("bb"));
    QVERIFY(filter.rows().isEmpty());
    filter.setText(QStringLiteral("ba"));
    QCOMPARE(filter.rows(), QVector<int>{1});
}

QTEST_GUILESS_MAIN(TestNewsgroupFilter)
#include "tst_newsgroupfilter.moc"
