// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkfile.h"
#include "obstacles.h"

#include <halvora/dbutils.h>

#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QStringList *logged = nullptr;

void collect(QtMsgType, const QMessageLogContext &, const QString &text)
{
    logged->append(text);
}

bool runChecked(BookmarkFile &file, const char *statement)
{
    QSqlQuery query(file.database());
    const bool succeeded = query.exec(QLatin1String(statement));
    DBUtils::checkForErrors(query);
    return succeeded;
}

int busyTime(BookmarkFile &file)
{
    QSqlQuery query(file.database());
    return query.exec(QStringLiteral("PRAGMA busy_timeout")) && query.next() ? query.value(0).toInt() : -1;
}

} // namespace

class DBUtilsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aFailureIsToldInTheDatabasesWords_data();
    void aFailureIsToldInTheDatabasesWords();
    void whatSucceededIsNotTold();
    void aFailureThatNobodyListensToIsLogged();
    void aQueryOfAConnectionThatDidNotOpenHasFailed();
    void aQueryOfAConnectionThatWasClosedHasFailed();
    void aQueryOfARemovedConnectionHasFailed();
    void anUpdateThatTouchesNoRowHasFailed();
    void aLockIsWaitedForASecond();
    void afterALockTheSameTurnDoesNotWaitAgain();
    void aBusyTimeThatAStoreChoseIsKept();
    void everyConnectionIsClosed();
    void theEndCommitsWhatALockKeptBack();
    void whatWasRolledBackAlreadyIsNotReportedAtTheEnd();
    void whatALockStillKeepsBackIsReportedAtTheEnd();

private:
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    /// Adds "kept back" and fails to commit that while another program reads.
    static void failToCommit(BookmarkFile &file);
    QTemporaryDir m_folder;
    QStringList m_told;
};

void DBUtilsTest::init()
{
    m_told.clear();
    DBUtils::setFailureHandler([this](const QString &reason) { m_told.append(reason); });
}

void DBUtilsTest::cleanup()
{
    DBUtils::setFailureHandler({});
}

void DBUtilsTest::aFailureIsToldInTheDatabasesWords_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("reason");
    QTest::newRow("unknown table") << QStringLiteral("SELECT * FROM newsgroups")
                                   << QStringLiteral("no such table: newsgroups");
    QTest::newRow("no statement") << QStringLiteral("SELEKT")
                                  << QStringLiteral("near \"SELEKT\": syntax error");
}

void DBUtilsTest::aFailureIsToldInTheDatabasesWords()
{
    QFETCH(QString, statement);
    QFETCH(QString, reason);
    BookmarkFile file(m_folder.filePath(QStringLiteral("words.sqlite")));
    QSqlQuery query(file.database());
    QVERIFY(!query.exec(statement));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QRegularExpression::escape(reason)));
    DBUtils::checkForErrors(query);
    QCOMPARE(m_told, QStringList(reason));
}

void DBUtilsTest::whatSucceededIsNotTold()
{
    BookmarkFile file(m_folder.filePath(QStringLiteral("good.sqlite")));
    QSqlQuery query(file.database());
    DBUtils::checkForErrors(query);
    QVERIFY(query.exec(QStringLiteral("SELECT title FROM bookmarks")));
    DBUtils::checkForErrors(query);
    QCOMPARE(m_told, QStringList());
}

void DBUtilsTest::aFailureThatNobodyListensToIsLogged()
{
    DBUtils::setFailureHandler({});
    BookmarkFile file(m_folder.filePath(QStringLiteral("logged.sqlite")));
    QSqlQuery query(file.database());
    QVERIFY(!query.exec(QStringLiteral("SELECT 1 FROM absent")));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("SELECT 1 FROM absent.*no such table")));
    DBUtils::checkForErrors(query);
}

void DBUtilsTest::aQueryOfAConnectionThatDidNotOpenHasFailed()
{
    BookmarkFile file(path("absent/folder/bookmarks.sqlite"));
    QVERIFY(!runChecked(file, "SELECT title FROM bookmarks"));
    QCOMPARE(m_told, QStringList(QStringLiteral("unable to open database file")));
    QSqlQuery prepared(file.database());
    QVERIFY(!prepared.prepare(QStringLiteral("INSERT INTO bookmarks (title) VALUES ('lost')")));
    DBUtils::checkForErrors(prepared);
    QCOMPARE(m_told.size(), 2);
}

void DBUtilsTest::aQueryOfAConnectionThatWasClosedHasFailed()
{
    BookmarkFile file(path("closed.sqlite"));
    file.database().close();
    QVERIFY(!runChecked(file, "SELECT title FROM bookmarks"));
    QCOMPARE(m_told, QStringList(QStringLiteral("the database is not open")));
}

void DBUtilsTest::aQueryOfARemovedConnectionHasFailed()
{
    const QString name = QStringLiteral("removed");
    QSqlQuery query;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        database.setDatabaseName(path("removed.sqlite"));
        QVERIFY(database.open());
        query = QSqlQuery(database);
        QVERIFY(query.exec(QStringLiteral("SELECT 1")));
    }
    QSqlDatabase::removeDatabase(name);
    DBUtils::checkForErrors(query);
    QCOMPARE(m_told, QStringList(QStringLiteral("the database is not open")));
}

void DBUtilsTest::anUpdateThatTouchesNoRowHasFailed()
{
    BookmarkFile file(path("update.sqlite"));
    QVERIFY(file.add(QStringLiteral("one")));
    QVERIFY(runChecked(file, "UPDATE bookmarks SET title = 'two' WHERE title = 'one'"));
    QVERIFY(runChecked(file, "DELETE FROM bookmarks WHERE title = 'one'"));
    QCOMPARE(m_told, QStringList());
    QVERIFY(runChecked(file, "UPDATE bookmarks SET title = 'two' WHERE title = 'one'"));
    QCOMPARE(m_told, QStringList(QStringLiteral("the row to be changed is missing")));
}

void DBUtilsTest::aLockIsWaitedForASecond()
{
    BookmarkFile file(path("busy.sqlite"));
    BookmarkFile other(path("busy.sqlite"));
    QVERIFY(runChecked(file, "PRAGMA synchronous = OFF"));
    QCOMPARE(busyTime(file), 1000);
    QCOMPARE(busyTime(other), 5000); // what Qt sets
    file.database().close();
    QVERIFY(file.database().open());
    QCOMPARE(busyTime(file), 1000);
    QVERIFY(other.run(QStringLiteral("BEGIN IMMEDIATE")));
    QVERIFY(!runChecked(file, "INSERT INTO bookmarks (title) VALUES ('one')"));
    QVERIFY(m_told.value(0).contains(QLatin1String("locked")));
}

void DBUtilsTest::afterALockTheSameTurnDoesNotWaitAgain()
{
    BookmarkFile file(path("turn.sqlite"));
    QVERIFY(runChecked(file, "SELECT 1"));
    QVERIFY(!runChecked(file, "SELECT 1 FROM absent"));
    QCOMPARE(busyTime(file), 1000);
    const ForeignLock lock(path("turn.sqlite"), ForeignLock::Writes);
    QVERIFY(lock.isHeld());
    QVERIFY(!runChecked(file, "INSERT INTO bookmarks (title) VALUES ('one')"));
    QCOMPARE(busyTime(file), 0);
    QVERIFY(!runChecked(file, "INSERT INTO bookmarks (title) VALUES ('two')"));
    QTRY_COMPARE(busyTime(file), 1000);
    file.database().close();
    QCoreApplication::processEvents();
}

void DBUtilsTest::aBusyTimeThatAStoreChoseIsKept()
{
    BookmarkFile file(path("own.sqlite"));
    file.database().close();
    file.database().setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=20"));
    QVERIFY(file.database().open());
    QVERIFY(runChecked(file, "SELECT 1"));
    QCOMPARE(busyTime(file), 20);
    const ForeignLock lock(path("own.sqlite"), ForeignLock::Writes);
    QVERIFY(lock.isHeld());
    QVERIFY(!runChecked(file, "INSERT INTO bookmarks (title) VALUES ('one')"));
    QCOMPARE(busyTime(file), 20);
    QCOMPARE(file.database().connectOptions(), QStringLiteral("QSQLITE_BUSY_TIMEOUT=20"));
}

void DBUtilsTest::everyConnectionIsClosed()
{
    BookmarkFile one(m_folder.filePath(QStringLiteral("one.sqlite")));
    BookmarkFile two(m_folder.filePath(QStringLiteral("two.sqlite")));
    QVERIFY(two.add(QStringLiteral("kept")));
    QVERIFY(two.run(QStringLiteral("BEGIN")));
    QVERIFY(two.add(QStringLiteral("never committed")));
    QSqlQuery unfinished(two.database());
    QVERIFY(unfinished.exec(QStringLiteral("SELECT title FROM bookmarks")) && unfinished.next());
    DBUtils::closeAll();
    QVERIFY(!one.database().isOpen());
    QVERIFY(!two.database().isOpen());
    QVERIFY(!QFileInfo::exists(m_folder.filePath(QStringLiteral("two.sqlite-journal"))));
    QCOMPARE(BookmarkFile::titlesOf(m_folder.filePath(QStringLiteral("two.sqlite"))),
             QStringList(QStringLiteral("kept")));
}

void DBUtilsTest::failToCommit(BookmarkFile &file)
{
    QVERIFY(runChecked(file, "BEGIN"));
    QVERIFY(file.add(QStringLiteral("kept back")));
    QVERIFY(!runChecked(file, "COMMIT"));
}

void DBUtilsTest::theEndCommitsWhatALockKeptBack()
{
    BookmarkFile file(path("again.sqlite"));
    {
        const ForeignLock lock(path("again.sqlite"), ForeignLock::Reads);
        QVERIFY(lock.isHeld());
        failToCommit(file);
    }
    DBUtils::closeAll();
    QCOMPARE(BookmarkFile::titlesOf(path("again.sqlite")), QStringList(QStringLiteral("kept back")));
}

void DBUtilsTest::whatWasRolledBackAlreadyIsNotReportedAtTheEnd()
{
    BookmarkFile file(path("back.sqlite"));
    QVERIFY(runChecked(file, "BEGIN"));
    QVERIFY(file.run(QStringLiteral("ROLLBACK"))); // as SQLite does when the disk is full
    QVERIFY(!runChecked(file, "COMMIT"));
    QStringList texts;
    logged = &texts;
    m_told.clear();
    qInstallMessageHandler(collect);
    DBUtils::closeAll();
    qInstallMessageHandler(nullptr);
    QCOMPARE(texts, QStringList());
    QCOMPARE(m_told, QStringList());
}

void DBUtilsTest::whatALockStillKeepsBackIsReportedAtTheEnd()
{
    BookmarkFile file(path("kept.sqlite"));
    const ForeignLock lock(path("kept.sqlite"), ForeignLock::Reads);
    QVERIFY(lock.isHeld());
    failToCommit(file);
    QStringList texts;
    logged = &texts;
    qInstallMessageHandler(collect);
    DBUtils::closeAll();
    qInstallMessageHandler(nullptr);
    QCOMPARE(texts.filter(QStringLiteral("are lost")).size(), 1);
    QVERIFY(!file.database().isOpen());
}

QTEST_GUILESS_MAIN(DBUtilsTest)
#include "tst_dbutils.moc"
