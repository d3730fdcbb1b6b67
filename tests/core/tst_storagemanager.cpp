// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkfile.h"
#include "obstacles.h"

#include <halvora/storagemanager.h>

#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

class StorageManagerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theDataFolderIsMadeForItsOwnerAlone_data();
    void theDataFolderIsMadeForItsOwnerAlone();
    void aFolderThatIsThereKeepsItsMode();
    void aRelativeProfileStaysWhereItWas();
    void aFolderThatCannotBeMadeIsNoCrash();
    void theDownloadFolderIsNotMade();
    void aNameIsOneComponentOfAPath_data();
    void aNameIsOneComponentOfAPath();
    void databasesLieInTheDataFolder();
    void aLockOfAnotherProgramIsNoticed_data();
    void aLockOfAnotherProgramIsNoticed();
    void whatIsNoDatabaseIsNotLocked_data();
    void whatIsNoDatabaseIsNotLocked();
};

namespace {

mode_t modeOf(const QString &path)
{
    struct stat info = {};
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_mode & 07777U : 0;
}

} // namespace

void StorageManagerTest::theDataFolderIsMadeForItsOwnerAlone_data()
{
    QTest::addColumn<bool>("hasProfile");
    QTest::newRow("profile") << true;
    QTest::newRow("user's folders") << false;
}

void StorageManagerTest::theDataFolderIsMadeForItsOwnerAlone()
{
    QFETCH(bool, hasProfile);
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(QStringLiteral("a/share"))));
    const QString profile = home.filePath(QStringLiteral("b/profile"));
    const QString expected = hasProfile ? profile : home.filePath(QStringLiteral("a/share/halvora"));

    const StorageManager storage(hasProfile ? profile : QString());
    QVERIFY(!QFileInfo::exists(expected));
    QCOMPARE(storage.dataDirectory(), expected);
    QCOMPARE(modeOf(expected), mode_t(0700));
    qunsetenv("XDG_DATA_HOME");
}

void StorageManagerTest::aFolderThatIsThereKeepsItsMode()
{
    const QTemporaryDir profile;
    QVERIFY(::chmod(QFile::encodeName(profile.path()).constData(), 0750) == 0);
    QCOMPARE(StorageManager(profile.path()).dataDirectory(), profile.path());
    QCOMPARE(modeOf(profile.path()), mode_t(0750));
}

void StorageManagerTest::aRelativeProfileStaysWhereItWas()
{
    const QTemporaryDir first;
    const QTemporaryDir second;
    QVERIFY(QDir::setCurrent(first.path()));
    const StorageManager storage(QStringLiteral("profile"));
    QVERIFY(QDir::setCurrent(second.path()));
    QCOMPARE(storage.dataDirectory(), first.filePath(QStringLiteral("profile")));
}

void StorageManagerTest::aFolderThatCannotBeMadeIsNoCrash()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    const StorageManager storage(file.fileName() + QStringLiteral("/below"));
    QCOMPARE(storage.dataDirectory(), file.fileName() + QStringLiteral("/below"));
    QVERIFY(!QFileInfo::exists(storage.dataDirectory()));
}

void StorageManagerTest::theDownloadFolderIsNotMade()
{
    const QTemporaryDir profile;
    StorageManager storage(profile.path());
    storage.setDownloadFolderName(QStringLiteral("Pinegate"));
    QCOMPARE(storage.downloadFolder(), profile.filePath(QStringLiteral("downloads/Pinegate")));
    QVERIFY(!QFileInfo::exists(profile.filePath(QStringLiteral("downloads"))));

    StorageManager ofTheUser;
    ofTheUser.setDownloadFolderName(QStringLiteral("Pinegate"));
    QCOMPARE(ofTheUser.downloadFolder(), QStandardPaths::writableLocation(QStandardPaths::DownloadLocation) +
                                             QStringLiteral("/Pinegate"));
}

void StorageManagerTest::aNameIsOneComponentOfAPath_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *title, const QString &name, const char *expected) {
        QTest::newRow(title) << name << QString::fromUtf8(expected);
    };
    row("plain", QStringLiteral("Pinegate"), "Pinegate");
    row("umlaut and blank", QStringLiteral("Grüne Äpfel"), "Grüne Äpfel");
    row("parent folder", QStringLiteral(".."), "fallback");
    row("way out", QStringLiteral("../../etc/passwd"), "_.._etc_passwd");
    row("absolute", QStringLiteral("/etc"), "_etc");
    row("backslash", QStringLiteral("a\\b"), "a_b");
    row("hidden", QStringLiteral(". .a"), "a");
    row("nul and line break", QStringLiteral("a\n") + QChar(0) + QStringLiteral("b"), "a__b");
    row("nothing", QString(), "fallback");
    row("blanks", QStringLiteral("   "), "fallback");
    row("too long", QString(5000, QLatin1Char('x')), QByteArray(60, 'x').constData());
    row("cut pair", QString(59, QLatin1Char('x')) + QStringLiteral("\U0001F426"),
        QByteArray(59, 'x').constData());
}

void StorageManagerTest::aNameIsOneComponentOfAPath()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    QCOMPARE(StorageManager::fileName(name, QStringLiteral("fallback")), expected);

    const QTemporaryDir profile;
    StorageManager storage(profile.path());
    storage.setDownloadFolderName(name);
    QCOMPARE(QFileInfo(storage.downloadFolder()).path(), profile.filePath(QStringLiteral("downloads")));
}

void StorageManagerTest::databasesLieInTheDataFolder()
{
    const QTemporaryDir profile;
    StorageManager storage(profile.path());
    QCOMPARE(storage.databasePath(QStringLiteral("corvia")),
             profile.filePath(QStringLiteral("corvia.sqlite")));
    QCOMPARE(QFileInfo(storage.databasePath(QStringLiteral("../x"))).path(), profile.path());
}

void StorageManagerTest::aLockOfAnotherProgramIsNoticed_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<bool>("isLocked");
    QTest::newRow("none") << QString() << false;
    QTest::newRow("another process reads") << QStringLiteral("reads") << false;
    QTest::newRow("another process writes") << QStringLiteral("writes") << true;
    QTest::newRow("a change that is not committed") << QStringLiteral("BEGIN IMMEDIATE") << true;
    QTest::newRow("an exclusive transaction") << QStringLiteral("BEGIN EXCLUSIVE") << true;
}

void StorageManagerTest::aLockOfAnotherProgramIsNoticed()
{
    QFETCH(QString, what);
    QFETCH(bool, isLocked);
    const QTemporaryDir profile;
    const QString path = profile.filePath(QStringLiteral("corvia.sqlite"));
    BookmarkFile file(path);
    std::unique_ptr<ForeignLock> lock;
    if (what == QLatin1String("reads") || what == QLatin1String("writes")) {
        lock = std::make_unique<ForeignLock>(path, what == QLatin1String("reads") ? ForeignLock::Reads
                                                                                  : ForeignLock::Writes);
        QVERIFY(lock->isHeld());
    } else if (!what.isEmpty()) {
        QVERIFY(file.run(what));
    }
    const StorageManager storage(profile.path());
    QCOMPARE(storage.isDatabaseLocked(QStringLiteral("corvia")), isLocked);
    lock.reset();
    if (isLocked)
        file.run(QStringLiteral("ROLLBACK"));
    QVERIFY(!storage.isDatabaseLocked(QStringLiteral("corvia")));
    QVERIFY(file.add(QStringLiteral("one"))); // what was tried left no lock
}

void StorageManagerTest::whatIsNoDatabaseIsNotLocked_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"nothing", "folder", "pipe", "empty", "text"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void StorageManagerTest::whatIsNoDatabaseIsNotLocked()
{
    QFETCH(QString, kind);
    const QTemporaryDir profile;
    const QString path = profile.filePath(QStringLiteral("corvia.sqlite"));
    if (kind == QLatin1String("folder"))
        QVERIFY(QDir().mkdir(path));
    if (kind == QLatin1String("pipe"))
        QVERIFY(::mkfifo(QFile::encodeName(path).constData(), 0600) == 0);
    if (kind == QLatin1String("empty") || kind == QLatin1String("text"))
        BookmarkFile::setBytes(path, kind == QLatin1String("text") ? "no bookmarks" : "");
    if (kind == QLatin1String("empty"))
        BookmarkFile::setBytes(path + QStringLiteral("-journal"), "a journal");
    const QStringList before = QDir(profile.path()).entryList();
    QVERIFY(!StorageManager(profile.path()).isDatabaseLocked(QStringLiteral("corvia")));
    QCOMPARE(QDir(profile.path()).entryList(), before);
}

QTEST_GUILESS_MAIN(StorageManagerTest)
#include "tst_storagemanager.moc"
