// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hindex.h>
#include <halvora/newsgroup.h>

#include <QtTest>

class TestNewsgroup : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aComponentOfTheNameSaysThatThereAreFiles_data();
    void aComponentOfTheNameSaysThatThereAreFiles();
    void theNameIsKeptExactly();
    void everyCategoryHasItsFacet_data();
    void everyCategoryHasItsFacet();
};

void TestNewsgroup::aComponentOfTheNameSaysThatThereAreFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isBinary");
    const std::pair<const char *, bool> names[] = {
        {"alt.binaries", true},
        {"alt.binaries.linux.images", true},
        {"binaries.local", true},
        {"comp.binary.tools", true},
        {"ALT.Binaries.Sounds", true},
        {"alt.binariesless", false},
        {"alt.nobinaries.talk", false},
        {"comp.os.linux.misc", false},
        {"", false},
        {"...", false},
    };
    for (const auto &[name, isBinary] : names)
        QTest::newRow(name) << QString::fromLatin1(name) << isBinary;
}

void TestNewsgroup::aComponentOfTheNameSaysThatThereAreFiles()
{
    QFETCH(QString, name);
    QTEST(Newsgroup(name).isBinary(), "isBinary");
}

void TestNewsgroup::theNameIsKeptExactly()
{
    const QString name = QStringLiteral(" Misc.Test ");
    QCOMPARE(Newsgroup(name).name(), name);
    QVERIFY(Newsgroup(name) == Newsgroup(name));
    QVERIFY(Newsgroup(name) != Newsgroup(name.toLower()));
    QVERIFY(Newsgroup().name().isEmpty());
}

void TestNewsgroup::everyCategoryHasItsFacet_data()
{
    QTest::addColumn<int>("category");
    QTest::addColumn<int>("facet");
    QTest::newRow("any") << 0 << 0;
    QTest::newRow("files") << 1 << 1;
    QTest::newRow("texts") << 2 << 2;
    QTest::newRow("one that there is not") << 3 << 0;
}

void TestNewsgroup::everyCategoryHasItsFacet()
{
    QFETCH(int, category);
    const int facet = HIndex::mediaCategoryToFacet(HIndex::MediaCategory(category));
    QTEST(facet, "facet");
}

QTEST_GUILESS_MAIN(TestNewsgroup)
#include "tst_newsgroup.moc"
