// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkfile.h"
#include "durablefile.h"
#include "obstacles.h"

#include <halvora/storagemanager.h>

#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

Q_DECLARE_METATYPE(StorageManager::Contents)

/// What happens to damaged databases.
class StorageGuardTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aDamagedFileIsMovedAsideAndItsCopyIsUsed_data();
    void aDamagedFileIsMovedAsideAndItsCopyIsUsed();
    void aCutFileIsReplaced_data();
    void aCutFileIsReplaced();
    void whateverHappensToTheHeaderTheTitlesAreThere();
    void anEmptyFileBesideACopyIsADamagedOne();
    void whatLiesBesideADamagedFileGoesWithIt();
    void anInterruptedWriteIsTakenBack();
    void aJournalIsNotPlayedIntoTheCopy();
    void aBadCopyIsPassedOver_data();
    void aBadCopyIsPassedOver();
    void withoutACopyTheStoreStartsEmpty();
    void twoDamagedFilesOfOneSecondAreBothKept();
    void aFileIsLookedAtOnceAProcess();
    void aFileInUseIsNotDamaged();
    void whatIsNoFileStaysWhereItIs_data();
    void whatIsNoFileStaysWhereItIs();
    void whatCanNotBeReplacedStaysAsItIs_data();
    void whatCanNotBeReplacedStaysAsItIs();
    void aLinkStaysALink();
    void aNoticeIsToldOnceOrWaits();
    void aMissingFileComesBackFromItsCopy_data();
    void aMissingFileComesBackFromItsCopy();
    void aMissingFileTakesTheNewestGoodCopy();
    void aJournalOfAMissingFileIsNotPlayedIntoTheCopy();
    void aMissingTargetOfALinkComesBack();
    void aMissingFileThatCanNotBeRestoredIsReported();
    void aFileThatIsThereAgainIsNotReplacedByACopy();
    void aFileBehindABrokenPathIsNotMissing();
    void aFirstStartReportsNothing();
    void aNoticeNamesWhatTheFileKeeps_data();
    void aNoticeNamesWhatTheFileKeeps();

private:
    QString path(const QString &name = QStringLiteral("corvia")) const
    {
        return m_profile->filePath(name + QStringLiteral(".sqlite"));
    }
    /// As the program does at its start; the sentences that it has for the user.
    QStringList start(const QString &name = QStringLiteral("corvia"));
    /// A day that leaves a file with "one", which has a copy.
    void passADay();
    QStringList keptAside() const;

    std::unique_ptr<QTemporaryDir> m_profile;
    QDateTime m_now;
};

namespace {

QStringList *logged = nullptr;

void collect(QtMsgType, const QMessageLogContext &, const QString &text)
{
    logged->append(text);
}

} // namespace

void StorageGuardTest::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_now = QDateTime(QDate(2026, 11, 20), QTime(15, 30, 12));
    logged = new QStringList;
    qInstallMessageHandler(collect);
}

// No connection stays behind, whatever was done.
void StorageGuardTest::cleanup()
{
    qInstallMessageHandler(nullptr);
    const std::unique_ptr<QStringList> texts(logged);
    QVERIFY2(texts->filter(QStringLiteral("still in use")).isEmpty(),
             qPrintable(texts->join(QLatin1Char('\n'))));
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
}

QStringList StorageGuardTest::start(const QString &name)
{
    StorageManager storage(m_profile->path());
    storage.setClock([this] { return m_now; });
    storage.databasePath(name);
    return storage.takeNotices();
}

void StorageGuardTest::passADay()
{
    BookmarkFile::add(path(), QStringLiteral("one"));
    QCOMPARE(start(), QStringList());
    m_now = m_now.addDays(1);
}

QStringList StorageGuardTest::keptAside() const
{
    return QDir(m_profile->path()).entryList({QStringLiteral("*-damaged-*")}, QDir::Files);
}

void StorageGuardTest::aDamagedFileIsMovedAsideAndItsCopyIsUsed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a text") << QByteArray("these are no bookmarks").repeated(500);
    QTest::newRow("one byte") << QByteArray(1, 'x');
    QTest::newRow("zeros, as a power cut leaves them") << QByteArray(8192, 0);
    QTest::newRow("the start of a database, and zeros")
        << QByteArray("SQLite format 3").leftJustified(8192, 0);
}

void StorageGuardTest::aDamagedFileIsMovedAsideAndItsCopyIsUsed()
{
    QFETCH(QByteArray, bytes);
    passADay();
    BookmarkFile::setBytes(path(), bytes);

    const QStringList notices = start();
    const QString aside = QStringLiteral("corvia-damaged-20261121-153012.sqlite");
    QCOMPARE(keptAside(), QStringList(aside));
    QCOMPARE(BookmarkFile::bytesOf(m_profile->filePath(aside)), bytes);
    QCOMPARE(BookmarkFile::titlesOf(path()), QStringList(QStringLiteral("one")));
    QCOMPARE(notices,
             QStringList(QStringLiteral("The bookmarks file was damaged; the copy of %1 is in use and "
                                        "the damaged file was kept as %2.")
                             .arg(QLocale().toString(QDate(2026, 11, 20), QLocale::LongFormat), aside)));
    QVERIFY(QDir(m_profile->path()).entryList({QStringLiteral("*.restored")}).isEmpty());
    QCOMPARE(start(), QStringList());
}

void StorageGuardTest::aCutFileIsReplaced_data()
{
    QTest::addColumn<int>("twentieths");
    for (int i = 0; i < 20; ++i)
        QTest::addRow("%d of 20", i) << i;
}

void StorageGuardTest::aCutFileIsReplaced()
{
    QFETCH(int, twentieths);
    QVERIFY(BookmarkFile(path()).fill(30));
    passADay();
    const QByteArray whole = BookmarkFile::bytesOf(path());
    const QByteArray cut = whole.left(whole.size() * twentieths / 20 + twentieths % 3);
    BookmarkFile::setBytes(path(), cut);

    QCOMPARE(start().size(), 1);
    QCOMPARE(keptAside().size(), 1);
    QCOMPARE(BookmarkFile::bytesOf(m_profile->filePath(keptAside().constFirst())), cut);
    QCOMPARE(BookmarkFile::titlesOf(path()), QStringList(QStringLiteral("one")));
}

void StorageGuardTest::whateverHappensToTheHeaderTheTitlesAreThere()
{
    passADay();
    const QByteArray whole = BookmarkFile::bytesOf(path());
    int replaced = 0;
    for (int i = 0; i < 100; ++i) {
        QByteArray flipped = whole;
        flipped[i] = char(~flipped.at(i));
        BookmarkFile::setBytes(path(), flipped);
        m_now = m_now.addSecs(1);
        const bool told = !start().isEmpty();
        const QStringList titles = BookmarkFile::titlesOf(path());
        replaced += told ? 1 : 0;
        QCOMPARE(keptAside().size(), replaced);
        if (told)
            QCOMPARE(BookmarkFile::bytesOf(m_profile->filePath(keptAside().constLast())), flipped);
        // A format of the future is not damage: the file waits for the program that can read it.
        if (!told && titles.constFirst().startsWith(QLatin1String("unsupported file format")))
            QCOMPARE(BookmarkFile::bytesOf(path()), flipped);
        else
            QCOMPARE(titles, QStringList(QStringLiteral("one")));
    }
    QVERIFY(replaced > 20);
}

void StorageGuardTest::anEmptyFileBesideACopyIsADamagedOne()
{
    passADay();
    BookmarkFile::setBytes(path(), QByteArray());
    QCOMPARE(start().size(), 1);
    QCOMPARE(BookmarkFile::titlesOf(path()), QStringList(QStringLiteral("one")));
}

void StorageGuardTest::whatLiesBesideADamagedFileGoesWithIt()
{
    passADay();
    BookmarkFile::setBytes(path(), "no bookmarks");
    // A journal that begins with a zero is a finished one to SQLite, which leaves it alone.
    const QByteArray journal = QByteArray(1, 0) + QByteArray("journal").repeated(100);
    BookmarkFile::setBytes(path() + QStringLiteral("-journal"), journal);
    BookmarkFile::setBytes(path() + QStringLiteral("-shm"), "shared");
    QCOMPARE(start().size(), 1);
    const QString aside = m_profile->filePath(QStringLiteral("corvia-damaged-20261121-153012.sqlite"));
    QCOMPARE(BookmarkFile::bytesOf(aside), QByteArray("no bookmarks"));
    QCOMPARE(BookmarkFile::bytesOf(aside + QStringLiteral("-journal")), journal);
    QCOMPARE(BookmarkFile::bytesOf(aside + QStringLiteral("-shm")), QByteArray("shared"));
    for (const char *ending : {"-journal", "-wal", "-shm"})
        QVERIFY2(!QFileInfo::exists(path() + QString::fromLatin1(ending)), ending);
}

namespace {

/// Leaves @p path and its journal as a program does that is killed while it writes.
void interruptAWrite(const QString &path)
{
    const QString other = path + QStringLiteral(".other");
    {
        BookmarkFile file(path);
        QVERIFY(file.fill(50));
        file.run(QStringLiteral("PRAGMA cache_size = 1"));
        file.run(QStringLiteral("BEGIN"));
        file.run(QStringLiteral("UPDATE bookmarks SET note = upper(note), title = 'half'"));
        QVERIFY(QFile::copy(path, other));
        QVERIFY(QFile::copy(path + QStringLiteral("-journal"), other + QStringLiteral("-journal")));
        file.run(QStringLiteral("ROLLBACK"));
    }
    QVERIFY(QFile::remove(path));
    QVERIFY(QFile::rename(other, path));
    QVERIFY(QFile::rename(other + QStringLiteral("-journal"), path + QStringLiteral("-journal")));
}

} // namespace

void StorageGuardTest::anInterruptedWriteIsTakenBack()
{
    passADay();
    interruptAWrite(path());
    QVERIFY(BookmarkFile::bytesOf(path()).contains("half"));
    QCOMPARE(start(), QStringList());
    QCOMPARE(keptAside(), QStringList());
    QCOMPARE(BookmarkFile::titlesOf(path()), QStringList(QStringLiteral("one")));
}

void StorageGuardTest::aJournalIsNotPlayedIntoTheCopy()
{
    passADay();
    interruptAWrite(path());
    QByteArray bytes = BookmarkFile::bytesOf(path());
    BookmarkFile::setBytes(path(), bytes.replace(0, 16, QByteArray(16, 'x')));
    start();
    QVERIFY(!QFileInfo::exists(path() + QStringLiteral("-journal")));
    QCOMPARE(BookmarkFile::titlesOf(path()), QStringList(QStringLiteral("one")));
}

void StorageGuardTest::aBadCopyIsPassedOver_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("damaged") << QByteArray("no bookmarks").repeated(1000);
    QTest::newRow("empty") << QByteArray();
}

void StorageGuardTest::aBadCopyIsPassedOver()
{
    QFETCH(QByteArray, bytes);
    passADay();
    const QString bad = m_profile->filePath(QStringLiteral("backups/corvia-2026-11-21.backup.sqlite"));
    BookmarkFile::setBytes(bad, bytes);
    BookmarkFile::setBytes(path(), "no bookmarks");
    const QStringList notices = start();
    QCOMPARE(notices.size(), 1);
    QVERIFY2(notices.constFirst().contains(QLatin1String("20")), qPrintable(notices.constFirst()));
    QCOMPARE(BookmarkFile::titlesOf(path()), QStringList(QStringLiteral("one")));
    QCOMPARE(BookmarkFile::bytesOf(bad), bytes);
}

void StorageGuardTest::withoutACopyTheStoreStartsEmpty()
{
    BookmarkFile::setBytes(path(), "no bookmarks");
    QCOMPARE(start(),
             QStringList(QStringLiteral("The bookmarks file was damaged and there is no copy of it; the "
                                        "damaged file was kept as "
                                        "corvia-damaged-20261120-153012.sqlite.")));
    QVERIFY(!QFileInfo::exists(path()));
    QCOMPARE(keptAside().size(), 1);
}

void StorageGuardTest::twoDamagedFilesOfOneSecondAreBothKept()
{
    for (const char *bytes : {"the first one", "the second one", "the third one"}) {
        BookmarkFile::setBytes(path(), bytes);
        QCOMPARE(start().size(), 1);
    }
    QByteArray all;
    const QStringList names = keptAside();
    for (const QString &name : names)
        all += BookmarkFile::bytesOf(m_profile->filePath(name));
    QCOMPARE(names.size(), 3);
    QVERIFY(all.contains("first") && all.contains("second") && all.contains("third"));
}

void StorageGuardTest::aFileIsLookedAtOnceAProcess()
{
    StorageManager storage(m_profile->path());
    QCOMPARE(storage.databasePath(QStringLiteral("corvia")), path());
    BookmarkFile::setBytes(path(), "no bookmarks");
    BookmarkFile::setBytes(path(QStringLiteral("other")), "no bookmarks");
    QCOMPARE(storage.databasePath(QStringLiteral("corvia")), path());
    QCOMPARE(keptAside(), QStringList());
    storage.databasePath(QStringLiteral("other"));
    QCOMPARE(keptAside().size(), 1);
}

void StorageGuardTest::aFileInUseIsNotDamaged()
{
    passADay();
    BookmarkFile other(path());
    QVERIFY(other.add(QStringLiteral("two")));
    QVERIFY(other.run(QStringLiteral("BEGIN EXCLUSIVE")));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(start(), QStringList());
    QVERIFY(timer.elapsed() < 4000); // not as long as SQLite waits for a lock
    QCOMPARE(keptAside(), QStringList());
    QVERIFY(other.run(QStringLiteral("COMMIT")));
    QCOMPARE(other.titles(), (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
}

void StorageGuardTest::whatIsNoFileStaysWhereItIs_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"folder", "pipe", "dead link", "empty file", "unreadable file"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void StorageGuardTest::whatIsNoFileStaysWhereItIs()
{
    QFETCH(QString, kind);
    const QByteArray name = QFile::encodeName(path());
    if (kind == QLatin1String("folder"))
        QVERIFY(QDir().mkdir(path()));
    else if (kind == QLatin1String("pipe"))
        QVERIFY(::mkfifo(name.constData(), 0600) == 0);
    else if (kind == QLatin1String("dead link"))
        QVERIFY(QFile::link(m_profile->filePath(QStringLiteral("nothing")), path()));
    else
        BookmarkFile::setBytes(path(), kind == QLatin1String("empty file") ? "" : "no bookmarks");
    if (kind == QLatin1String("unreadable file")) {
        if (::geteuid() == 0)
            QSKIP("root reads every file");
        QVERIFY(::chmod(name.constData(), 0) == 0);
    }
    const QDir folder(m_profile->path());
    const auto everything = QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot;
    const QStringList before = folder.entryList(everything);
    QCOMPARE(start(), QStringList());
    QCOMPARE(folder.entryList(everything), before);
}

void StorageGuardTest::whatCanNotBeReplacedStaysAsItIs_data()
{
    QTest::addColumn<bool>("isFile");
    QTest::newRow("the folder is read-only") << false;
    QTest::newRow("the file can not be moved") << true;
}

void StorageGuardTest::whatCanNotBeReplacedStaysAsItIs()
{
    QFETCH(bool, isFile);
    if (isFile && ::geteuid() != 0)
        QSKIP("only root can keep a file in its place");
    passADay();
    BookmarkFile::setBytes(path(), "no bookmarks");
    WriteProtection protection(isFile ? path() : m_profile->path());
    if (!protection.problem().isEmpty())
        QSKIP(qPrintable(protection.problem()));
    const QStringList notices = start();
    QCOMPARE(notices.size(), 1);
    QVERIFY2(notices.constFirst().contains(path()), qPrintable(notices.constFirst()));
    QCOMPARE(BookmarkFile::bytesOf(path()), QByteArray("no bookmarks"));
    QCOMPARE(QDir(m_profile->path()).entryList(QDir::Files), QStringList(QStringLiteral("corvia.sqlite")));
    protection.release();
    QCOMPARE(start().size(), 1);
    QCOMPARE(BookmarkFile::titlesOf(path()), QStringList(QStringLiteral("one")));
}

void StorageGuardTest::aLinkStaysALink()
{
    const QTemporaryDir elsewhere;
    const QString target = elsewhere.filePath(QStringLiteral("mine.sqlite"));
    BookmarkFile::add(target, QStringLiteral("zero"));
    QVERIFY(QFile::link(target, path()));
    passADay();
    BookmarkFile::setBytes(target, "no bookmarks");
    QCOMPARE(start().size(), 1);
    QVERIFY(QFileInfo(path()).isSymLink());
    QCOMPARE(BookmarkFile::titlesOf(target), (QStringList{QStringLiteral("zero"), QStringLiteral("one")}));
    QCOMPARE(BookmarkFile::bytesOf(elsewhere.filePath(QStringLiteral("mine-damaged-20261121-153012.sqlite"))),
             QByteArray("no bookmarks"));
}

void StorageGuardTest::aNoticeIsToldOnceOrWaits()
{
    StorageManager storage(m_profile->path());
    BookmarkFile::setBytes(path(QStringLiteral("early")), "no bookmarks");
    BookmarkFile::setBytes(path(QStringLiteral("late")), "no bookmarks");
    storage.databasePath(QStringLiteral("early"));
    const QSignalSpy spy(&storage, &StorageManager::noticeRaised);
    storage.databasePath(QStringLiteral("late"));
    QCOMPARE(spy.size(), 1);
    QVERIFY(spy.constFirst().constFirst().toString().contains(QLatin1String("late-damaged-")));
    const QStringList waiting = storage.takeNotices();
    QCOMPARE(waiting.size(), 1);
    QVERIFY(waiting.constFirst().contains(QLatin1String("early-damaged-")));
    QCOMPARE(storage.takeNotices(), QStringList());
}

void StorageGuardTest::aMissingFileComesBackFromItsCopy_data()
{
    QTest::addColumn<StorageManager::Contents>("contents");
    QTest::addColumn<QString>("notice");
    const QString date = QLocale().toString(QDate(2026, 11, 20), QLocale::LongFormat);
    QTest::newRow("bookmarks")
        << StorageManager::Contents::Bookmarks
        << QStringLiteral("The bookmarks file was missing; the copy of %1 is in use.").arg(date);
    QTest::newRow("messages")
        << StorageManager::Contents::Messages
        << QStringLiteral("The messages file was missing; the copy of %1 is in use.").arg(date);
}

void StorageGuardTest::aMissingFileComesBackFromItsCopy()
{
    QFETCH(StorageManager::Contents, contents);
    QFETCH(QString, notice);
    passADay();
    QVERIFY(QFile::remove(path()));
    {
        StorageManager storage(m_profile->path());
        storage.databasePath(QStringLiteral("corvia"), contents);
        QCOMPARE(storage.takeNotices(), QStringList(notice));
    }
    QCOMPARE(QDir(m_profile->path()).entryList(QDir::Files), QStringList(QStringLiteral("corvia.sqlite")));
    QCOMPARE(BookmarkFile::titlesOf(path()), QStringList(QStringLiteral("one")));
    QCOMPARE(start(), QStringList());
}

void StorageGuardTest::aMissingFileTakesTheNewestGoodCopy()
{
    passADay();
    BookmarkFile::add(path(), QStringLiteral("two"));
    QCOMPARE(start(), QStringList());
    m_now = m_now.addDays(1);
    QVERIFY(QFile::remove(path()));
    BookmarkFile::setBytes(m_profile->filePath(QStringLiteral("backups/corvia-2026-11-22.backup.sqlite")),
                           "no bookmarks");
    QCOMPARE(start().size(), 1);
    QCOMPARE(BookmarkFile::titlesOf(path()), (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
}

void StorageGuardTest::aJournalOfAMissingFileIsNotPlayedIntoTheCopy()
{
    passADay();
    interruptAWrite(path());
    QVERIFY(QFile::remove(path()));
    const QByteArray journal = BookmarkFile::bytesOf(path() + QStringLiteral("-journal"));
    QVERIFY(!journal.isEmpty());
    QCOMPARE(start().size(), 1);
    QVERIFY(!QFileInfo::exists(path() + QStringLiteral("-journal")));
    QCOMPARE(BookmarkFile::titlesOf(path()), QStringList(QStringLiteral("one")));
    QCOMPARE(keptAside(), QStringList(QStringLiteral("corvia-damaged-20261121-153012.sqlite-journal")));
    QCOMPARE(BookmarkFile::bytesOf(m_profile->filePath(keptAside().constFirst())), journal);
}

void StorageGuardTest::aMissingTargetOfALinkComesBack()
{
    const QTemporaryDir elsewhere;
    const QString target = elsewhere.filePath(QStringLiteral("mine.sqlite"));
    QVERIFY(QFile::link(target, path()));
    passADay();
    QVERIFY(QFile::remove(target));
    QCOMPARE(start().size(), 1);
    QVERIFY(QFileInfo(path()).isSymLink());
    QCOMPARE(BookmarkFile::titlesOf(target), QStringList(QStringLiteral("one")));
}

void StorageGuardTest::aFileThatIsThereAgainIsNotReplacedByACopy()
{
    const QString copy = m_profile->filePath(QStringLiteral("copy"));
    const QString file = m_profile->filePath(QStringLiteral("file"));
    BookmarkFile::setBytes(copy, "older");
    BookmarkFile::setBytes(file, "newer");
    QVERIFY(!DurableFile::place(copy, file));
    QCOMPARE(BookmarkFile::bytesOf(file), QByteArray("newer"));
    QVERIFY(QFile::remove(file));
    QVERIFY(DurableFile::place(copy, file));
    QCOMPARE(BookmarkFile::bytesOf(file), QByteArray("older"));
    QVERIFY(!QFile::exists(copy));
}

void StorageGuardTest::aFileBehindABrokenPathIsNotMissing()
{
    BookmarkFile::setBytes(m_profile->filePath(QStringLiteral("file")), "no folder");
    QVERIFY(!DurableFile::isAbsent(m_profile->filePath(QStringLiteral("file/below"))));
    QVERIFY(DurableFile::isAbsent(m_profile->filePath(QStringLiteral("nothing"))));
    QVERIFY(QFile::link(QStringLiteral("nowhere"), m_profile->filePath(QStringLiteral("link"))));
    QVERIFY(!DurableFile::isAbsent(m_profile->filePath(QStringLiteral("link"))));
}

void StorageGuardTest::aMissingFileThatCanNotBeRestoredIsReported()
{
    passADay();
    QVERIFY(QFile::remove(path()));
    WriteProtection protection(m_profile->path());
    if (!protection.problem().isEmpty())
        QSKIP(qPrintable(protection.problem()));
    QCOMPARE(start(), QStringList(QStringLiteral("The bookmarks file %1 is missing, and its copy could not "
                                                 "be put in its place.")
                                      .arg(path())));
    protection.release();
    QCOMPARE(start().size(), 1);
    QCOMPARE(BookmarkFile::titlesOf(path()), QStringList(QStringLiteral("one")));
}

void StorageGuardTest::aFirstStartReportsNothing()
{
    QCOMPARE(start(), QStringList());
    QVERIFY(QDir(m_profile->path()).isEmpty());
}

void StorageGuardTest::aNoticeNamesWhatTheFileKeeps_data()
{
    QTest::addColumn<StorageManager::Contents>("contents");
    QTest::addColumn<QString>("subject");
    QTest::newRow("bookmarks") << StorageManager::Contents::Bookmarks
                               << QStringLiteral("The bookmarks file ");
    QTest::newRow("messages") << StorageManager::Contents::Messages << QStringLiteral("The messages file ");
}

void StorageGuardTest::aNoticeNamesWhatTheFileKeeps()
{
    QFETCH(StorageManager::Contents, contents);
    QFETCH(QString, subject);
    StorageManager storage(m_profile->path());
    const auto notice = [&](const char *name) {
        BookmarkFile::setBytes(path(QLatin1String(name)), "no database");
        storage.databasePath(QLatin1String(name), contents);
        return storage.takeNotices().value(0);
    };
    QVERIFY2(notice("alone").startsWith(subject + QStringLiteral("was damaged and ")), "no copy");
    QVERIFY(QDir(m_profile->path()).mkdir(QStringLiteral("backups")));
    BookmarkFile::add(m_profile->filePath(QStringLiteral("backups/copied-2026-11-20.backup.sqlite")),
                      QStringLiteral("one"));
    QVERIFY2(notice("copied").startsWith(subject + QStringLiteral("was damaged; ")), "copy");
}

QTEST_GUILESS_MAIN(StorageGuardTest)
#include "tst_storageguard.moc"
