// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkfile.h"
#include "obstacles.h"

#include <halvora/storagemanager.h>

#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

/// The copies that are made of databases.
class StorageBackupsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void aFileThatIsNotThereIsNotMade();
    void aGoodFileGetsACopyOfTheDay();
    void aFileThatDidNotChangeGetsNoNewCopy();
    void aReplacedFileIsNotCopiedAgain();
    void theNewestThreeAreKept();
    void aLaterCopyOfADayTakesThePlaceOfTheFirst();
    void aCopyThatFailsReplacesNothing_data();
    void aCopyThatFailsReplacesNothing();
    void anUnfinishedCopyOfARunBeforeIsNoHindrance();
    void aClockThatWasWrongCostsNoCopy();
    void filesWithSimilarNamesAreLeftAlone();
    void everyNameIsGoodForACopy_data();
    void everyNameIsGoodForACopy();
    void anEmptyFileGetsNoCopy();
    void clearedDataIsInNoCopyAnyMore();

private:
    QString path(const QString &name = QStringLiteral("corvia")) const
    {
        return m_profile->filePath(name + QStringLiteral(".sqlite"));
    }
    QString copy(const char *date) const
    {
        return m_profile->filePath(
            QStringLiteral("backups/corvia-%1.backup.sqlite").arg(QLatin1String(date)));
    }
    /// Adds @p title at a moment of its own, however coarse the times of files are here.
    void change(const QString &title);
    /// As the program does at its start.
    QStringList start(const QString &name = QStringLiteral("corvia"));
    QStringList copies() const;

    std::unique_ptr<QTemporaryDir> m_profile;
    QDateTime m_now;
    int m_changes = 0;
};

void StorageBackupsTest::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_now = QDateTime(QDate(2026, 11, 20), QTime(9, 0));
}

void StorageBackupsTest::change(const QString &title)
{
    BookmarkFile::add(path(), title);
    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime moment = QDateTime(QDate(2026, 1, 1), QTime(0, 0)).addSecs(++m_changes);
    QVERIFY(file.setFileTime(moment, QFileDevice::FileModificationTime));
}

QStringList StorageBackupsTest::start(const QString &name)
{
    StorageManager storage(m_profile->path());
    storage.setClock([this] { return m_now; });
    storage.databasePath(name);
    return storage.takeNotices();
}

QStringList StorageBackupsTest::copies() const
{
    return QDir(m_profile->filePath(QStringLiteral("backups")))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

void StorageBackupsTest::aFileThatIsNotThereIsNotMade()
{
    QCOMPARE(start(), QStringList());
    QCOMPARE(QDir(m_profile->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void StorageBackupsTest::aGoodFileGetsACopyOfTheDay()
{
    change(QStringLiteral("one"));
    const QByteArray bytes = BookmarkFile::bytesOf(path());
    QCOMPARE(start(), QStringList());
    QCOMPARE(copies(), QStringList(QStringLiteral("corvia-2026-11-20.backup.sqlite")));
    QCOMPARE(BookmarkFile::titlesOf(copy("2026-11-20")), QStringList(QStringLiteral("one")));
    QCOMPARE(BookmarkFile::bytesOf(path()), bytes);
    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(m_profile->filePath(QStringLiteral("backups"))).constData(), &status),
             0);
    QCOMPARE(status.st_mode & 07777U, mode_t(0700));
}

void StorageBackupsTest::aFileThatDidNotChangeGetsNoNewCopy()
{
    change(QStringLiteral("one"));
    start();
    m_now = m_now.addDays(1);
    start();
    QCOMPARE(copies().size(), 1);
    change(QStringLiteral("two"));
    start();
    QCOMPARE(copies().size(), 2);
    QCOMPARE(BookmarkFile::titlesOf(copy("2026-11-21")).size(), 2);
}

void StorageBackupsTest::aReplacedFileIsNotCopiedAgain()
{
    change(QStringLiteral("one"));
    start();
    BookmarkFile::setBytes(path(), "no bookmarks");
    m_now = m_now.addDays(1);
    QCOMPARE(start().size(), 1);
    m_now = m_now.addDays(1);
    start();
    QCOMPARE(copies(), QStringList(QStringLiteral("corvia-2026-11-20.backup.sqlite")));
}

void StorageBackupsTest::theNewestThreeAreKept()
{
    for (int day = 0; day < 6; ++day) {
        change(QString::number(day));
        start();
        m_now = m_now.addDays(7);
    }
    QCOMPARE(copies(), (QStringList{QStringLiteral("corvia-2026-12-11.backup.sqlite"),
                                    QStringLiteral("corvia-2026-12-18.backup.sqlite"),
                                    QStringLiteral("corvia-2026-12-25.backup.sqlite")}));
    QCOMPARE(BookmarkFile::titlesOf(copy("2026-12-11")).size(), 4);
    QCOMPARE(BookmarkFile::titlesOf(copy("2026-12-25")).size(), 6);
}

void StorageBackupsTest::aLaterCopyOfADayTakesThePlaceOfTheFirst()
{
    for (int i = 0; i < 4; ++i) {
        change(QString::number(i));
        start();
        m_now = m_now.addSecs(3600);
    }
    QCOMPARE(copies(), QStringList(QStringLiteral("corvia-2026-11-20.backup.sqlite")));
    QCOMPARE(BookmarkFile::titlesOf(copy("2026-11-20")).size(), 4);
}

void StorageBackupsTest::aCopyThatFailsReplacesNothing_data()
{
    QTest::addColumn<QString>("why");
    for (const char *why : {"its place is taken", "the folder is read-only", "the disk is full"})
        QTest::newRow(why) << QString::fromLatin1(why);
}

void StorageBackupsTest::aCopyThatFailsReplacesNothing()
{
    QFETCH(QString, why);
    const SmallDisk disk;
    if (why == QLatin1String("the disk is full") && !disk.problem().isEmpty())
        QSKIP(qPrintable(disk.problem()));
    if (why == QLatin1String("the disk is full"))
        QVERIFY(QFile::link(disk.path(), m_profile->filePath(QStringLiteral("backups"))));
    for (int i = 0; i < 3; ++i) {
        change(QString::number(i));
        start();
        m_now = m_now.addDays(i < 2 ? 1 : 0);
    }
    const QStringList before = copies();
    QCOMPARE(before.size(), 3);
    QVERIFY(BookmarkFile(path()).fill(600));

    std::unique_ptr<WriteProtection> protection;
    if (why == QLatin1String("its place is taken"))
        QVERIFY(QDir(m_profile->path()).mkpath(QStringLiteral("backups/corvia.part/x")));
    if (why == QLatin1String("the folder is read-only"))
        protection = std::make_unique<WriteProtection>(m_profile->filePath(QStringLiteral("backups")));
    if (protection && !protection->problem().isEmpty())
        QSKIP(qPrintable(protection->problem()));
    for (int day = 0; day < 4; ++day) {
        QCOMPARE(start(), QStringList());
        m_now = m_now.addDays(1);
    }
    protection.reset();
    QStringList after = copies();
    if (why == QLatin1String("its place is taken"))
        QVERIFY(after.removeOne(QStringLiteral("corvia.part")));
    QCOMPARE(after, before);
    QCOMPARE(BookmarkFile::titlesOf(copy("2026-11-22")).size(), 3);
}

void StorageBackupsTest::anUnfinishedCopyOfARunBeforeIsNoHindrance()
{
    change(QStringLiteral("one"));
    QVERIFY(QDir(m_profile->path()).mkdir(QStringLiteral("backups")));
    BookmarkFile::setBytes(m_profile->filePath(QStringLiteral("backups/corvia.part")), "half");
    start();
    QCOMPARE(copies(), QStringList(QStringLiteral("corvia-2026-11-20.backup.sqlite")));
}

void StorageBackupsTest::aClockThatWasWrongCostsNoCopy()
{
    const QDateTime right = m_now;
    for (const int days : {3000, 3001, 3002, 0, 1}) {
        m_now = right.addDays(days);
        change(QString::number(days));
        start();
    }
    QCOMPARE(copies().size(), 3);
    BookmarkFile::setBytes(path(), "no bookmarks");
    QCOMPARE(start().size(), 1);
    QCOMPARE(BookmarkFile::titlesOf(path()).size(), 5);
    QVERIFY(copies().contains(QStringLiteral("corvia-2026-11-20.backup.sqlite")));
}

void StorageBackupsTest::filesWithSimilarNamesAreLeftAlone()
{
    QVERIFY(QDir(m_profile->path()).mkdir(QStringLiteral("backups")));
    const QStringList others{QStringLiteral("corvia-2-2026-11-01.backup.sqlite"),
                             QStringLiteral("corvia-2026-11-1.backup.sqlite"),
                             QStringLiteral("corvia-mine.backup.sqlite"),
                             QStringLiteral("corvia-2026-11-02.sqlite"),
                             QStringLiteral("corvi-2026-11-02.backup.sqlite"),
                             QStringLiteral("corvib-2026-11-02.backup.sqlite"),
                             QStringLiteral("corvia-2026_11_02.backup.sqlite"),
                             QStringLiteral("corvia-.backup.sqlite"),
                             QStringLiteral("corvia-backup.sqlite")};
    for (const QString &name : others)
        BookmarkFile::setBytes(m_profile->filePath(QStringLiteral("backups/") + name), "mine");
    for (int day = 0; day < 4; ++day) {
        change(QString::number(day));
        start();
        m_now = m_now.addDays(1);
    }
    QCOMPARE(copies().size(), others.size() + 3);
    for (const QString &name : others)
        QCOMPARE(BookmarkFile::bytesOf(m_profile->filePath(QStringLiteral("backups/") + name)),
                 QByteArray("mine"));
}

void StorageBackupsTest::everyNameIsGoodForACopy_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("quotes") << QStringLiteral("it's \"mine\"");
    QTest::newRow("marks of an address") << QStringLiteral("50%41 #1 a?mode=memory&b");
    QTest::newRow("other letters") << QStringLiteral("Закладки 書籤");
    QTest::newRow("full stops") << QStringLiteral("a.b.c");
}

void StorageBackupsTest::everyNameIsGoodForACopy()
{
    QFETCH(QString, name);
    BookmarkFile::add(path(name), QStringLiteral("one"));
    start(name);
    QCOMPARE(copies(), QStringList(name + QStringLiteral("-2026-11-20.backup.sqlite")));
    BookmarkFile::setBytes(path(name), "no bookmarks");
    QCOMPARE(start(name).size(), 1);
    QCOMPARE(BookmarkFile::titlesOf(path(name)), QStringList(QStringLiteral("one")));
}

void StorageBackupsTest::anEmptyFileGetsNoCopy()
{
    BookmarkFile::setBytes(path(), QByteArray());
    start();
    QCOMPARE(copies(), QStringList());
}

void StorageBackupsTest::clearedDataIsInNoCopyAnyMore()
{
    change(QStringLiteral("first"));
    start();
    m_now = m_now.addDays(1);
    change(QStringLiteral("second"));
    start();
    QCOMPARE(copies().size(), 2);
    const QStringList goes = {QStringLiteral("backups/corvia.part"),
                              QStringLiteral("corvia-damaged-20261120-090000.sqlite"),
                              QStringLiteral("corvia-damaged-20261120-090000-2.sqlite"),
                              QStringLiteral("corvia-damaged-20261120-090000.sqlite-journal")};
    const QStringList stays = {QStringLiteral("backups/corvia-messages-2026-11-20.backup.sqlite"),
                               QStringLiteral("backups/corvia-mine.backup.sqlite"),
                               QStringLiteral("corvia-messages-damaged-20261120-090000.sqlite"),
                               QStringLiteral("corvia-damaged-mine.sqlite"), QStringLiteral("corvia.sqlite")};
    for (const QString &name : goes + stays) {
        QFile file(m_profile->filePath(name));
        QVERIFY(file.open(QIODevice::ReadWrite));
    }
    StorageManager(m_profile->path()).removeCopies(QStringLiteral("corvia"));
    for (const QString &name : goes)
        QVERIFY2(!QFile::exists(m_profile->filePath(name)), qPrintable(name));
    for (const QString &name : stays)
        QVERIFY2(QFile::exists(m_profile->filePath(name)), qPrintable(name));
    QVERIFY(!QFile::exists(copy("2026-11-20")) && !QFile::exists(copy("2026-11-21")));
}

QTEST_GUILESS_MAIN(StorageBackupsTest)
#include "tst_storagebackups.moc"
