// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkchanges.h"
#include "bookmarkstore.h"
#include "storecheck.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <sqlite3.h>

#include <cstring>
#include <memory>
#include <random>

namespace {

using Rows = QVector<BookmarkRow>;

constexpr int usualRounds = 25;

int rounds()
{
    const int asked = qEnvironmentVariableIntValue("HALVORA_KILL_ROUNDS");
    return asked > 0 ? asked : usualRounds;
}

/// Runs the writer over @p profile and kills it @p delay microseconds after it has told of @p count changes.
/// Returns all that it had told of by then; less than @p count when it ended on its own.
QList<QByteArray> toldUntilKilled(const QString &profile, quint32 seed, int count, quint32 delay)
{
    QProcess writer;
    writer.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    writer.start(QStringLiteral(KILLED_WRITER), {profile, QString::number(seed)});
    QByteArray told;
    while (told.count('\n') < count && writer.waitForReadyRead())
        told += writer.readAllStandardOutput();
    QThread::usleep(delay);
    writer.kill();
    writer.waitForFinished();
    told += writer.readAllStandardOutput();
    QList<QByteArray> lines = told.split('\n');
    lines.removeLast();
    return lines;
}

/// The same changes again, in this process and to the end.
class Replay {
public:
    /// @p file is where the writer began.
    Replay(const QString &file, quint32 seed)
        : m_store(false)
    {
        QFile::copy(file, m_store.path());
        m_store.open();
        m_changes = std::make_unique<BookmarkChanges>(m_store.model(), seed);
    }

    QByteArray next() { return m_changes->next(); }
    Rows rows() const { return m_store.rows(); }
    QString fileName() const { return QFileInfo(m_store.path()).fileName(); }

    /// What the file holds after each transaction of the next change.
    QVector<Rows> nextInSteps()
    {
        m_steps.clear();
        sqlite3_trace_v2(BookmarkStore::handle(), SQLITE_TRACE_PROFILE, &Replay::statementEnded, this);
        next();
        sqlite3_trace_v2(BookmarkStore::handle(), 0, nullptr, nullptr);
        return m_steps;
    }

private:
    static int statementEnded(unsigned, void *replay, void *statement, void *)
    {
        auto *self = static_cast<Replay *>(replay);
        if (std::strncmp(sqlite3_sql(static_cast<sqlite3_stmt *>(statement)), "COMMIT", 6) == 0)
            self->m_steps.append(self->rows());
        return 0;
    }

    BookmarkStore m_store;
    std::unique_ptr<BookmarkChanges> m_changes;
    QVector<Rows> m_steps;
};

/// The rows without their places: a move settles those of the list that was left in a second transaction.
Rows withoutOrders(Rows rows)
{
    for (BookmarkRow &row : rows)
        row.removeLast();
    return rows;
}

} // namespace

class TestKilledWriter : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void whatWasToldIsStoredAndTheNextChangeIsWholeOrAbsent();
};

void TestKilledWriter::whatWasToldIsStoredAndTheNextChangeIsWholeOrAbsent()
{
    const QTemporaryDir profile;
    const QTemporaryDir copies;
    const QString before = copies.filePath(QStringLiteral("before.sqlite"));
    const QString file = profile.filePath(Replay(before, 0).fileName());
    std::mt19937 random(1000); // NOLINT(cert-msc51-cpp): the moment of the kill is random enough
    int changes = 0;
    int journals = 0;
    int nextChanges = 0;
    for (int round = 0; round < rounds(); ++round) {
        const auto seed = quint32(random());
        // The first one lives until there is a table.
        const int count = int(random() % 30) + (round == 0 ? 1 : 0);
        QFile::remove(before);
        QFile::copy(file, before);
        const QList<QByteArray> told =
            toldUntilKilled(profile.path(), seed, count, quint32(random() % (count == 0 ? 60'000 : 3'000)));
        const QByteArray context = "round " + QByteArray::number(round) + ", after " +
                                   (told.isEmpty() ? QByteArray("none") : told.constLast());
        QVERIFY2(told.size() >= count, context.constData());
        journals += QFileInfo(file + QStringLiteral("-journal")).size() > 0 ? 1 : 0;
        const QString integrity = storecheck::value(file, "PRAGMA integrity_check");
        QVERIFY2(integrity == QLatin1String("ok"), context.constData());
        const Rows stored = BookmarkStore::rows(file);

        Replay replay(before, seed);
        for (int i = 0; i < told.size(); ++i)
            QCOMPARE(QByteArray::number(i + 1) + ' ' + replay.next(), told.at(i));
        const Rows acknowledged = replay.rows();
        const QVector<Rows> steps = replay.nextInSteps();
        QVERIFY2(stored == acknowledged || steps.contains(stored), context.constData());
        const Rows shape = withoutOrders(stored);
        QVERIFY2(shape == withoutOrders(acknowledged) || shape == withoutOrders(replay.rows()),
                 context.constData());
        changes += told.size();
        nextChanges += stored == acknowledged ? 0 : 1;
    }
    qInfo("%d kills after %d changes: %d left a journal, %d a change that was not told", rounds(), changes,
          journals, nextChanges);
}

QTEST_MAIN(TestKilledWriter)
#include "tst_killedwriter.moc"
