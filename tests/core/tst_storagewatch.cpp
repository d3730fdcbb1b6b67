// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkfile.h"
#include "obstacles.h"

#include <halvora/dbutils.h>
#include <halvora/storagemanager.h>

#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace std::chrono_literals;

/// When the user is told that nothing is being saved.
class StorageWatchTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void whatCanNotBeWrittenIsToldUntilItCan_data();
    void whatCanNotBeWrittenIsToldUntilItCan();
    void aFullDiskIsToldUntilThereIsRoom();
    void itIsNoticedWithoutBeingAsked();
    void aFailureOfADatabaseIsToldInItsWords();
    void aFailureBeforeAnyDatabaseIsTold();
    void twoSourcesAreOneLine();
    void theFirstDatabaseWithAProblemIsTold();
    void looksLeaveNothingBehind();
    void aFileThatIsGoneOrAnotherOneIsTold();
    void aLookKeepsTheLocksOfTheDatabase();

private:
    QString sentence(const QString &reason) const
    {
        return QStringLiteral("Bookmarks are not being saved: ") + reason;
    }
    /// Asks for a database in @p folder, which is looked at only when somebody asks.
    void open(const QString &folder);
    void fail();

    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<StorageManager> m_storage;
    QString m_path;
};

void StorageWatchTest::init()
{
    m_storage.reset();
    m_profile = std::make_unique<QTemporaryDir>();
    open(m_profile->path());
}

void StorageWatchTest::open(const QString &folder)
{
    m_storage = std::make_unique<StorageManager>(folder);
    m_storage->setCheckInterval(1h);
    m_path = m_storage->databasePath(QStringLiteral("corvia"));
}

void StorageWatchTest::fail()
{
    BookmarkFile file(m_path);
    QSqlQuery query(file.database());
    QVERIFY(!query.exec(QStringLiteral("SELECT 1 FROM absent")));
    DBUtils::checkForErrors(query);
}

namespace {

// In one step, because the thread may look at any moment and would tell of a file that is gone.
bool exchange(const QString &one, const QString &other)
{
    return ::renameat2(AT_FDCWD, QFile::encodeName(one).constData(), AT_FDCWD,
                       QFile::encodeName(other).constData(), RENAME_EXCHANGE) == 0;
}

bool putFolderInPlace(const QString &file)
{
    const QString away = file + QStringLiteral(".away");
    return QDir().mkdir(away) && exchange(file, away);
}

bool takeFolderAway(const QString &file)
{
    const QString away = file + QStringLiteral(".away");
    return exchange(file, away) && QDir().rmdir(away);
}

} // namespace

void StorageWatchTest::whatCanNotBeWrittenIsToldUntilItCan_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder") << QStringLiteral("folder") << QStringLiteral("the folder %1 can not be written");
    QTest::newRow("file") << QStringLiteral("file") << QStringLiteral("the file %2 can not be written");
    QTest::newRow("no folder") << QStringLiteral("no folder") << QStringLiteral("the folder %1 is missing");
    QTest::newRow("no file") << QStringLiteral("no file") << QStringLiteral("%2 is not a file");
}

void StorageWatchTest::whatCanNotBeWrittenIsToldUntilItCan()
{
    QFETCH(QString, what);
    QFETCH(QString, reason);
    const QString folder = m_profile->path();
    const QString away = folder + QStringLiteral(".away");
    std::unique_ptr<WriteProtection> protection;
    BookmarkFile::add(m_path, QStringLiteral("one"));
    if (what == QLatin1String("folder") || what == QLatin1String("file"))
        protection = std::make_unique<WriteProtection>(what == QLatin1String("folder") ? folder : m_path);
    if (protection && !protection->problem().isEmpty())
        QSKIP(qPrintable(protection->problem()));
    if (what == QLatin1String("no folder"))
        QVERIFY(QDir().rename(folder, away));
    if (what == QLatin1String("no file") && !putFolderInPlace(m_path))
        QSKIP("The file system can not exchange two names.");

    QSignalSpy spy(m_storage.get(), &StorageManager::writeProblemChanged);
    m_storage->checkNow();
    const QString told =
        sentence(reason.contains(QLatin1String("%1")) ? reason.arg(folder)
                                                      : reason.replace(QLatin1String("%2"), m_path));
    QTRY_COMPARE(m_storage->writeProblem(), told);
    m_storage->checkNow();
    protection.reset();
    if (what == QLatin1String("no folder"))
        QVERIFY(QDir().rename(away, folder));
    if (what == QLatin1String("no file"))
        QVERIFY(takeFolderAway(m_path));
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), QString());
    QCOMPARE(spy.size(), 2);
    QCOMPARE(spy.at(0).constFirst().toString(), told);
    QCOMPARE(spy.at(1).constFirst().toString(), QString());
}

void StorageWatchTest::aFullDiskIsToldUntilThereIsRoom()
{
    const SmallDisk disk;
    if (!disk.problem().isEmpty())
        QSKIP(qPrintable(disk.problem()));
    open(disk.path());
    BookmarkFile::add(m_path, QStringLiteral("one"));
    disk.fill();
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), sentence(QStringLiteral("the disk is full")));
    disk.empty();
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), QString());
}

void StorageWatchTest::itIsNoticedWithoutBeingAsked()
{
    m_storage = std::make_unique<StorageManager>(m_profile->path());
    m_storage->setCheckInterval(1ms);
    m_path = m_storage->databasePath(QStringLiteral("corvia"));
    QVERIFY(QDir().mkdir(m_path));
    QTRY_VERIFY(!m_storage->writeProblem().isEmpty());
    QVERIFY(QDir().rmdir(m_path));
    QTRY_VERIFY(m_storage->writeProblem().isEmpty());
}

void StorageWatchTest::aFailureOfADatabaseIsToldInItsWords()
{
    QSignalSpy spy(m_storage.get(), &StorageManager::writeProblemChanged);
    fail();
    fail();
    const QString told = sentence(QStringLiteral("no such table: absent"));
    QCOMPARE(m_storage->writeProblem(), told);
    QCOMPARE(spy.size(), 1);
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), QString());
    QCOMPARE(spy.size(), 2);
    fail();
    QCOMPARE(m_storage->writeProblem(), told);
    m_storage.reset();
    fail(); // nobody is told
}

void StorageWatchTest::aFailureBeforeAnyDatabaseIsTold()
{
    m_storage = std::make_unique<StorageManager>(m_profile->path());
    m_storage->setCheckInterval(1ms);
    fail();
    QVERIFY(!m_storage->writeProblem().isEmpty());
    QTRY_COMPARE(m_storage->writeProblem(), QString());
}

void StorageWatchTest::twoSourcesAreOneLine()
{
    fail();
    if (!putFolderInPlace(m_path))
        QSKIP("The file system can not exchange two names.");
    m_storage->checkNow();
    const QString told = sentence(m_path + QStringLiteral(" is not a file"));
    QTRY_COMPARE(m_storage->writeProblem(), told);
    QVERIFY(takeFolderAway(m_path));
    fail();
    QCOMPARE(m_storage->writeProblem(), told);
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), QString());
}

void StorageWatchTest::theFirstDatabaseWithAProblemIsTold()
{
    const QString other = m_storage->databasePath(QStringLiteral("other"));
    QVERIFY(QDir().mkdir(other));
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), sentence(other + QStringLiteral(" is not a file")));
}

void StorageWatchTest::looksLeaveNothingBehind()
{
    fail();
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), QString());
    QCOMPARE(QDir(m_profile->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{QFileInfo(m_path).fileName()});
}

// SQLite goes on without a word then.
void StorageWatchTest::aFileThatIsGoneOrAnotherOneIsTold()
{
    fail();
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), QString());
    const QString aside = m_path + QStringLiteral(".aside");
    QVERIFY(QFile::rename(m_path, aside));
    m_storage->checkNow();
    QTRY_VERIFY(m_storage->writeProblem().contains(QStringLiteral("removed or replaced")));
    QVERIFY(QFile::copy(aside, m_path));
    fail();
    m_storage->checkNow();
    QTRY_VERIFY(m_storage->writeProblem().contains(QStringLiteral("removed or replaced")));
    QVERIFY(QFile::remove(m_path) && QFile::rename(aside, m_path));
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), QString());
}

namespace {

/// Whether another process would have to wait for @p path.
bool isLockedForOthers(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const pid_t child = ::fork();
    if (child == 0) {
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        const int descriptor = ::open(name.constData(), O_RDWR);
        ::_exit(::fcntl(descriptor, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

} // namespace

void StorageWatchTest::aLookKeepsTheLocksOfTheDatabase()
{
    BookmarkFile file(m_path);
    QVERIFY(file.add(QStringLiteral("one")));
    QVERIFY(!isLockedForOthers(m_path));
    QVERIFY(file.run(QStringLiteral("BEGIN IMMEDIATE")));
    QVERIFY(isLockedForOthers(m_path));
    fail(); // the look that ends this one begins now
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), QString());
    QCOMPARE(m_storage->databasePath(QStringLiteral("corvia")), m_path);
    QVERIFY(isLockedForOthers(m_path));
}

QTEST_GUILESS_MAIN(StorageWatchTest)
#include "tst_storagewatch.moc"
