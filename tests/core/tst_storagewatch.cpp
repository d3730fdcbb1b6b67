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
    void initTestCase();
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
    void aChangeOfAConnectionThatDidNotOpenIsUnsaved();
    void aFailedChangeStaysUnsaved_data();
    void aFailedChangeStaysUnsaved();
    void theFirstUnsavedChangeCounts();
    void whatIsReadAgainIsNoLongerUnsaved_data();
    void whatIsReadAgainIsNoLongerUnsaved();
    void aLaterCommitSavesWhatALockKeptBack();
    void rowsThatAreShownLaterAreNoReadingAnew();
    void aCommitThatWasTakenBackStaysUnsaved();
    void aTransactionThatVanishedIsUnsaved();
    void aTransactionThatOnlyReadLosesNothing();
    void whatARemovedConnectionDidNotSaveStaysUnsaved();
    void eachDatabaseCountsForItself();
    void theLineNamesWhatIsNotSaved();

private:
    using Statements = std::initializer_list<const char *>;
    /// Runs each statement and hands it in, at the time of the clock.
    static void run(BookmarkFile &file, Statements statements);
    /// What the line says once a look has found nothing wrong with the file.
    QString lineAfterALook();
    static QString since(const QTime &time);
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
    QDateTime m_now;
};

void StorageWatchTest::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
}

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
    m_now = QDateTime(QDate(2026, 11, 20), QTime(14, 5, 59));
    m_storage->setClock([this] { return m_now; });
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
        QSKIP("The file system cannot exchange two names.");

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
        QSKIP("The file system cannot exchange two names.");
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

void StorageWatchTest::run(BookmarkFile &file, Statements statements)
{
    for (const char *statement : statements) {
        QSqlQuery query(file.database());
        query.exec(QLatin1String(statement));
        DBUtils::checkForErrors(query);
    }
}

QString StorageWatchTest::lineAfterALook()
{
    m_storage->checkNow();
    const auto isProblem = [this] { return m_storage->writeProblem().startsWith(sentence({})); };
    return QTest::qWaitFor([&] { return !isProblem(); }, 60'000) ? m_storage->writeProblem()
                                                                 : QStringLiteral("no look");
}

QString StorageWatchTest::since(const QTime &time)
{
    return QStringLiteral("Changes made since %1 are not saved.").arg(time.toString(QStringLiteral("HH:mm")));
}

void StorageWatchTest::aFailedChangeStaysUnsaved_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("insert") << QStringLiteral("INSERT INTO absent VALUES (1)");
    QTest::newRow("replace") << QStringLiteral("REPLACE INTO absent VALUES (1)");
    QTest::newRow("update") << QStringLiteral("UPDATE absent SET title = 'a'");
    QTest::newRow("update of a missing row") << QStringLiteral("UPDATE bookmarks SET title = 'a'");
    QTest::newRow("delete") << QStringLiteral("DELETE FROM absent WHERE title = 'a'");
    QTest::newRow("delete of all") << QStringLiteral("delete from absent");
}

void StorageWatchTest::aFailedChangeStaysUnsaved()
{
    QFETCH(QString, statement);
    BookmarkFile file(m_path);
    QSignalSpy spy(m_storage.get(), &StorageManager::writeProblemChanged);
    run(file, {"BEGIN TRANSACTION"});
    m_now = m_now.addSecs(60);
    run(file, {qPrintable(statement), "COMMIT TRANSACTION"});
    const QString line = since(QTime(14, 5));
    QVERIFY2(m_storage->writeProblem().startsWith(sentence({})), qPrintable(m_storage->writeProblem()));
    QVERIFY2(m_storage->writeProblem().endsWith(QStringLiteral(". ") + line),
             qPrintable(m_storage->writeProblem()));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(lineAfterALook(), line);
    run(file, {"BEGIN TRANSACTION", "COMMIT TRANSACTION"}); // of a change that succeeds, unseen
    run(file, {"SELECT title FROM bookmarks"});             // of some rows, when they are first shown
    QCOMPARE(lineAfterALook(), line);
    QCOMPARE(spy.size(), 2);
}

void StorageWatchTest::aChangeOfAConnectionThatDidNotOpenIsUnsaved()
{
    BookmarkFile file(m_profile->filePath(QStringLiteral("absent/corvia.sqlite")));
    QSqlQuery query(file.database());
    QVERIFY(!query.prepare(QStringLiteral("INSERT INTO bookmarks (title) VALUES ('one')")));
    DBUtils::checkForErrors(query);
    QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
}

void StorageWatchTest::theFirstUnsavedChangeCounts()
{
    BookmarkFile file(m_path);
    run(file, {"INSERT INTO absent VALUES (1)"});
    m_now = m_now.addSecs(3600);
    run(file, {"INSERT INTO absent VALUES (1)"});
    QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
}

void StorageWatchTest::whatIsReadAgainIsNoLongerUnsaved_data()
{
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<bool>("isSaved");
    const QString begin = QStringLiteral("BEGIN TRANSACTION");
    const QString commit = QStringLiteral("COMMIT TRANSACTION");
    const QString read = QStringLiteral("SELECT title FROM bookmarks");
    const QString badRead = QStringLiteral("SELECT title FROM absent");
    const QString clear = QStringLiteral("DELETE FROM bookmarks");
    const QString change = QStringLiteral("DELETE FROM bookmarks WHERE title = 'a'");
    const QString badChange = QStringLiteral("INSERT INTO absent VALUES (1)");
    QTest::newRow("read") << QStringList{begin, read, read, commit} << true;
    QTest::newRow("not committed") << QStringList{begin, read, read} << false;
    QTest::newRow("read in part") << QStringList{begin, badRead, read, commit} << false;
    QTest::newRow("read in part at the end") << QStringList{begin, read, badRead, commit} << false;
    QTest::newRow("read and changed") << QStringList{begin, read, change, commit} << false;
    QTest::newRow("changed and read") << QStringList{begin, change, read, commit} << false;
    QTest::newRow("read and not changed") << QStringList{begin, read, badChange, commit} << false;
    QTest::newRow("cleared") << QStringList{begin, clear, commit} << true;
    QTest::newRow("cleared at once") << QStringList{clear} << true;
    QTest::newRow("clearing not committed") << QStringList{begin, clear} << false;
    QTest::newRow("changed") << QStringList{begin, change, commit} << false;
    QTest::newRow("nothing") << QStringList{begin, commit} << false;
}

void StorageWatchTest::whatIsReadAgainIsNoLongerUnsaved()
{
    QFETCH(QStringList, statements);
    QFETCH(bool, isSaved);
    BookmarkFile file(m_path);
    run(file, {"BEGIN TRANSACTION", "INSERT INTO absent VALUES (1)", "COMMIT TRANSACTION"});
    QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
    for (const QString &statement : qAsConst(statements))
        run(file, {qPrintable(statement)});
    QCOMPARE(lineAfterALook(), isSaved ? QString() : since(QTime(14, 5)));
}

void StorageWatchTest::aLaterCommitSavesWhatALockKeptBack()
{
    BookmarkFile file(m_path);
    {
        const ForeignLock lock(m_path, ForeignLock::Reads);
        QVERIFY(lock.isHeld());
        run(file, {"BEGIN TRANSACTION"});
        QVERIFY(file.add(QStringLiteral("kept back")));
        run(file, {"COMMIT TRANSACTION"});
        QCOMPARE(m_storage->writeProblem(),
                 sentence(QStringLiteral("database is locked. ")) + since(QTime(14, 5)));
        QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
        m_now = m_now.addSecs(3600);
        run(file, {"BEGIN TRANSACTION", "COMMIT TRANSACTION"}); // within the transaction that is open
        QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
        run(file, {"SELECT title FROM bookmarks"}); // sees what is not committed
    }
    run(file, {"BEGIN TRANSACTION"});
    QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
    QVERIFY(file.add(QStringLiteral("new")));
    run(file, {"COMMIT TRANSACTION"});
    QTRY_COMPARE(m_storage->writeProblem(), QString()); // without being asked to look
    QCOMPARE(BookmarkFile::titlesOf(m_path),
             (QStringList{QStringLiteral("kept back"), QStringLiteral("new")}));
}

void StorageWatchTest::rowsThatAreShownLaterAreNoReadingAnew()
{
    BookmarkFile file(m_path);
    run(file, {"INSERT INTO absent VALUES (1)"});
    {
        const ForeignLock lock(m_path, ForeignLock::Reads);
        QVERIFY(lock.isHeld());
        run(file, {"BEGIN TRANSACTION"});
        QVERIFY(file.add(QStringLiteral("kept back")));
        run(file, {"COMMIT TRANSACTION"});
    }
    run(file, {"SELECT title FROM bookmarks", "BEGIN TRANSACTION", "COMMIT TRANSACTION"});
    QCOMPARE(BookmarkFile::titlesOf(m_path), QStringList(QStringLiteral("kept back")));
    QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
}

// As a full disk does.
void StorageWatchTest::aCommitThatWasTakenBackStaysUnsaved()
{
    BookmarkFile file(m_path);
    run(file, {"BEGIN TRANSACTION"});
    QVERIFY(file.run(QStringLiteral("ROLLBACK")));
    run(file, {"COMMIT TRANSACTION"});
    QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
    run(file, {"BEGIN TRANSACTION", "COMMIT TRANSACTION"});
    QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
}

// Closing a connection rolls back what is open.
void StorageWatchTest::aTransactionThatVanishedIsUnsaved()
{
    BookmarkFile file(m_path);
    {
        const ForeignLock lock(m_path, ForeignLock::Reads);
        QVERIFY(lock.isHeld());
        run(file, {"BEGIN TRANSACTION"});
        QVERIFY(file.add(QStringLiteral("kept back")));
        run(file, {"COMMIT TRANSACTION"});
    }
    file.database().close();
    QVERIFY(file.database().open());
    run(file, {"BEGIN TRANSACTION", "COMMIT TRANSACTION"});
    QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
}

void StorageWatchTest::aTransactionThatOnlyReadLosesNothing()
{
    BookmarkFile file(m_path);
    run(file, {"BEGIN TRANSACTION", "SELECT title FROM bookmarks"});
    QVERIFY(file.run(QStringLiteral("ROLLBACK")));
    run(file, {"COMMIT TRANSACTION"});
    QCOMPARE(lineAfterALook(), QString());
}

void StorageWatchTest::whatARemovedConnectionDidNotSaveStaysUnsaved()
{
    {
        BookmarkFile file(m_path);
        run(file, {"INSERT INTO absent VALUES (1)"});
    }
    QCOMPARE(lineAfterALook(), since(QTime(14, 5)));
}

void StorageWatchTest::eachDatabaseCountsForItself()
{
    BookmarkFile one(m_path);
    BookmarkFile other(m_storage->databasePath(QStringLiteral("other")));
    run(one, {"INSERT INTO absent VALUES (1)"});
    m_now = m_now.addSecs(3600);
    run(other, {"INSERT INTO absent VALUES (1)"});
    run(one, {"BEGIN", "SELECT title FROM bookmarks", "COMMIT"});
    QCOMPARE(lineAfterALook(), since(QTime(15, 5)));
    run(other, {"BEGIN", "SELECT title FROM bookmarks", "COMMIT"});
    QCOMPARE(lineAfterALook(), QString());
}

void StorageWatchTest::theLineNamesWhatIsNotSaved()
{
    const QString path = m_storage->databasePath(QStringLiteral("other"), StorageManager::Contents::Messages);
    const QString start = QStringLiteral("Messages are not being saved: ");
    {
        BookmarkFile messages(path);
        run(messages, {"SELECT title FROM absent"});
        QCOMPARE(m_storage->writeProblem(), start + QStringLiteral("no such table: absent"));
        fail(); // of the bookmarks; the first one is the cause
        QCOMPARE(m_storage->writeProblem(), start + QStringLiteral("no such table: absent"));
    }
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), QString());
    fail();
    QCOMPARE(m_storage->writeProblem(), sentence(QStringLiteral("no such table: absent")));
    if (!putFolderInPlace(path))
        QSKIP("The file system cannot exchange two names.");
    m_storage->checkNow();
    QTRY_COMPARE(m_storage->writeProblem(), start + path + QStringLiteral(" is not a file"));
    QVERIFY(takeFolderAway(path));
}

QTEST_GUILESS_MAIN(StorageWatchTest)
#include "tst_storagewatch.moc"
