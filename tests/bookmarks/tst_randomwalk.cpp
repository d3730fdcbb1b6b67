// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkwalk.h"
#include "tests/support/sanitized.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QTest>

namespace {

/// How often each walk is done, each time with another seed; a person may want more than one.
int repetitions()
{
    return qMax(1, qEnvironmentVariableIntValue("HALVORA_WALK_TIMES"));
}

} // namespace

class TestRandomWalk : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void everyCommitHoldsWhatTheLiteralStatementsWouldHold_data();
    void everyCommitHoldsWhatTheLiteralStatementsWouldHold();
};

void TestRandomWalk::initTestCase()
{
    if (QFileInfo(QStringLiteral("/dev/shm")).isWritable())
        qputenv("TMPDIR", "/dev/shm");
    QLoggingCategory::setFilterRules(QStringLiteral("halvora.database=false"));
}

void TestRandomWalk::everyCommitHoldsWhatTheLiteralStatementsWouldHold_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("operations");
    struct Row {
        const char *name;
        BookmarkWalk::Kind kind;
        int operations;
    };
    for (int time = 0; time < repetitions(); ++time) {
        quint32 seed = quint32(time) * 1000;
        for (const Row &row :
             {Row{"watched", BookmarkWalk::Watched, 5000}, Row{"watched", BookmarkWalk::Watched, 5000},
              Row{"lazy", BookmarkWalk::Lazy, 10000}, Row{"lazy", BookmarkWalk::Lazy, 10000},
              Row{"failing", BookmarkWalk::Failing, 10000}, Row{"failing", BookmarkWalk::Failing, 10000}}) {
            ++seed;
            QTest::addRow("%s, seed %u", row.name, seed)
                << int(row.kind) << seed << row.operations / sanitizedShare;
        }
    }
}

void TestRandomWalk::everyCommitHoldsWhatTheLiteralStatementsWouldHold()
{
    QFETCH(int, kind);
    QFETCH(quint32, seed);
    QFETCH(int, operations);
    BookmarkWalk walk(BookmarkWalk::Kind(kind), seed);
    for (int i = 0; i < operations; ++i) {
        const QString difference = walk.step();
        QVERIFY2(difference.isEmpty(),
                 qPrintable(QStringLiteral("operation %1, the last of %2").arg(i).arg(difference)));
    }
    QVERIFY(walk.commitCount() > operations / 2);
    QCOMPARE(walk.faultCount() > operations / 20, kind == BookmarkWalk::Failing);
}

QTEST_MAIN(TestRandomWalk)
#include "tst_randomwalk.moc"
