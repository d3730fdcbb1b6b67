// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkoperations.h"
#include "bookmarkstore.h"
#include "dragdata.h"
#include "nthfault.h"
#include "obstacles.h"
#include "sqlitefile.h"
#include "statementfaults.h"
#include "statementlog.h"
#include "tests/support/sanitized.h"

#include "bookmarks/bookmarkitem.h"
#include "plugin/constants.h"

#include <halvora/dbutils.h>

#include <QFileInfo>
#include <QHash>
#include <QMimeData>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

// Folders one (with a, b and inner, with c) and two (with d), and the newsgroup e.
constexpr char content[] =
    "DELETE FROM bookmarks; DELETE FROM sqlite_sequence;"
    "INSERT INTO bookmarks VALUES (1, NULL, 'one', NULL, NULL, 1, 0), (2, NULL, 'two', NULL, 'red', 0, 1),"
    "(3, NULL, NULL, 'e', NULL, 0, 2), (4, 1, NULL, 'a', NULL, 0, 0), (5, 1, NULL, 'b', NULL, 0, 1),"
    "(6, 1, 'inner', NULL, NULL, 0, 2), (7, 6, NULL, 'c', NULL, 0, 0), (8, 2, NULL, 'd', NULL, 0, 0)";

/// What was said that nobody expects. That statements fail is expected, and told in a category of its own.
QStringList &complaints()
{
    static QStringList list;
    return list;
}

void noteComplaint(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
        std::abort();
    }
    if (type == QtWarningMsg && qstrcmp(context.category, "default") == 0)
        complaints().append(text);
}

/// Counts the failures that DBUtils reports while this lives. One at a time.
class ReportedFailures {
public:
    ReportedFailures()
    {
        DBUtils::setFailureHandler([this](const QString &) { ++m_count; });
    }
    ~ReportedFailures() { DBUtils::setFailureHandler({}); }
    Q_DISABLE_COPY(ReportedFailures)

    int count() const { return m_count; }

private:
    int m_count = 0;
};

/// Counts how often a connection would have waited for a lock, and lets it never wait.
class BusyCount {
public:
    explicit BusyCount(sqlite3 *connection)
        : m_connection(connection)
    {
        sqlite3_busy_handler(connection, add, this);
    }
    ~BusyCount() { sqlite3_busy_handler(m_connection, nullptr, nullptr); }
    Q_DISABLE_COPY(BusyCount)

    int count() const { return m_count; }

private:
    static int add(void *self, int)
    {
        ++static_cast<BusyCount *>(self)->m_count;
        return 0;
    }

    sqlite3 *const m_connection;
    int m_count = 0;
};

/// A row whose order is not the last of its places in @p list, if any.
QString wrongPlace(const BookmarkStore &store, const QList<BookmarkItem *> &list)
{
    QHash<QString, QString> places;
    for (int place = 0; place < list.size(); ++place)
        places[QString::number(list.at(place)->id())] = QString::number(place);
    const QVector<BookmarkRow> rows = store.rows();
    for (const BookmarkRow &row : rows) {
        if (places.value(row.first(), row.last()) != row.last())
            return row.join(QLatin1Char('|')) + QStringLiteral(" is at ") + places.value(row.first());
    }
    return {};
}

bool holds(const BookmarkStore &store, const QString &name)
{
    const QVector<BookmarkRow> rows = store.rows();
    return std::any_of(rows.cbegin(), rows.cend(),
                       [&](const BookmarkRow &row) { return row.contains(name); });
}

/// Writes to the top, to a new folder and to an old one. Returns what is wrong afterwards.
QString troubleInLaterWrites(BookmarkStore &store)
{
    store.check();
    const QModelIndex added = store.addFolder(QStringLiteral("later"));
    const BookmarkItem *folder = store.model().itemFromIndex(added);
    QString wrong = wrongPlace(store, store.model().topLevelItems());
    if (!wrong.isEmpty() || !holds(store, QStringLiteral("later")))
        return QStringLiteral("at the top: ") + wrong;
    store.model().addBookmarks({QStringLiteral("later.group")}, added);
    wrong = wrongPlace(store, folder->children());
    if (!wrong.isEmpty() || !holds(store, QStringLiteral("later.group")))
        return QStringLiteral("in the new folder: ") + wrong;
    const QModelIndex first = store.at({0});
    folder = store.model().itemFromIndex(first);
    if (!folder->isFolder())
        return {};
    store.model().addBookmarks({QStringLiteral("later.other")}, first);
    wrong = wrongPlace(store, folder->children());
    if (!wrong.isEmpty() || !holds(store, QStringLiteral("later.other")))
        return QStringLiteral("in the first folder: ") + wrong;
    return sqlite3_get_autocommit(BookmarkStore::handle()) ? QString()
                                                           : QStringLiteral("a transaction is left open");
}

/// Closes the store. Returns what is wrong with that.
QString troubleInClosing(BookmarkStore &store)
{
    store.close();
    if (!SqliteFile(store.path()).run("BEGIN EXCLUSIVE"))
        return QStringLiteral("The file is still locked.");
    return complaints().join(QLatin1Char('\n'));
}

QString troubleAfterwards(BookmarkStore &store)
{
    const QString trouble = troubleInLaterWrites(store);
    return trouble + troubleInClosing(store);
}

/// Opens @p store with the content that each attempt begins with, all of it read.
void begin(BookmarkStore &store)
{
    store.close();
    complaints().clear();
    store.execute(QString::fromLatin1(content));
    store.open();
    sqlite3_busy_timeout(BookmarkStore::handle(), 0);
    store.check();
}

StatementFault failing(StatementFault::Change change)
{
    StatementFault fault;
    fault.change = change;
    fault.effect = StatementFault::Abort;
    return fault;
}

StatementFault refusedCommit()
{
    StatementFault fault;
    fault.isCommitRefused = true;
    return fault;
}

StatementFault denied(int action, const char *what = nullptr)
{
    StatementFault fault;
    fault.deniedAction = action;
    fault.deniedOperation = what;
    return fault;
}

void add(BookmarkStore &store)
{
    store.model().addBookmarks({QStringLiteral("x")}, store.at({0}));
}

void addTwo(BookmarkStore &store)
{
    store.model().addBookmarks({QStringLiteral("x"), QStringLiteral("y")}, store.at({0}));
}

void renameFirst(BookmarkStore &store)
{
    store.model().setData(store.at({0}), QStringLiteral("x"));
}

void removeFirst(BookmarkStore &store)
{
    store.model().removeBookmark(store.at({0}));
}

void renumber(BookmarkStore &store)
{
    store.model().renumberChildren(nullptr);
}

void load(BookmarkStore &store)
{
    store.model().load();
}

void look(BookmarkStore &store)
{
    store.model().rowCount(store.at({0}));
}

void drop(BookmarkStore &store)
{
    const auto data = dragdata::record(0, 8, 2, QStringLiteral("d"));
    store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, QModelIndex());
}

void import(BookmarkStore &store)
{
    BookmarkItem folder(BookmarkKind::Folder, nullptr);
    folder.setName(QStringLiteral("x"));
    store.model().importFolders({&folder});
}

void clear(BookmarkStore &store)
{
    store.model().clearBookmarks();
}

} // namespace

Q_DECLARE_METATYPE(BookmarkOperation)
Q_DECLARE_METATYPE(StatementFault)

class TestFailingStatements : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void eachStatementMayFailOnce_data();
    void eachStatementMayFailOnce();
    void ofEachTransactionTheFirstFailureIsReported_data();
    void ofEachTransactionTheFirstFailureIsReported();
    void anUpdateOfALostRowIsHandedOver();
    void aLockIsWaitedForOncePerTransaction_data();
    void aLockIsWaitedForOncePerTransaction();
    void aLockIsWaitedForOncePerChange_data();
    void aLockIsWaitedForOncePerChange();
    void theNextTurnOfTheEventLoopWaitsAgain();
    void aLateTransactionIsCommittedAtTheEnd();
    void aTransactionThatStaysLockedIsReportedAtTheEnd();
    void aTransactionThatWasTakenBackIsNotReportedAgainAtTheEnd();
    void aClosedConnectionCostsNoStatement_data();
    void aClosedConnectionCostsNoStatement();
    void aRowThatTakesTheIdOfALostOneGetsItsPlace();
    void ordersThatAFailedInsertTookBackAreWrittenAgain();
    void bothPlacesOfARowInOneListAreWrittenEachTime();
    void theFileMayBeLocked_data();
    void theFileMayBeLocked();
    void theDiskMayBeFull_data();
    void theDiskMayBeFull();

private:
    QtMessageHandler m_earlierHandler = nullptr;
};

void TestFailingStatements::initTestCase()
{
    if (QFileInfo(QStringLiteral("/dev/shm")).isWritable())
        qputenv("TMPDIR", "/dev/shm");
    m_earlierHandler = qInstallMessageHandler(noteComplaint);
}

void TestFailingStatements::cleanupTestCase()
{
    qInstallMessageHandler(m_earlierHandler);
}

void TestFailingStatements::eachStatementMayFailOnce_data()
{
    QTest::addColumn<BookmarkOperation>("operation");
    QTest::addColumn<int>("kind");
    for (const auto &[name, operation] : bookmarkOperations()) {
        QTest::addRow("%s, interrupted", name) << operation << int(NthFault::Interrupted);
        QTest::addRow("%s, denied", name) << operation << int(NthFault::Denied);
        QTest::addRow("%s, commit refused", name) << operation << int(NthFault::Refused);
    }
}

void TestFailingStatements::eachStatementMayFailOnce()
{
    QFETCH(BookmarkOperation, operation);
    QFETCH(int, kind);
    BookmarkStore store;
    bool wasReached = true;
    int number = 1;
    // There are a hundred permissions to an operation; the statements that they are for are fewer.
    const int step = kind == NthFault::Denied ? sanitizedShare : 1;
    for (; wasReached; number += step) {
        begin(store);
        {
            const NthFault fault(BookmarkStore::handle(), NthFault::Kind(kind), number);
            operation(store);
            wasReached = fault.wasReached();
        }
        operation(store);
        const QString trouble = troubleAfterwards(store);
        QVERIFY2(trouble.isEmpty(), qPrintable(QStringLiteral("failure %1: %2").arg(number).arg(trouble)));
    }
    // What only reads commits no change.
    QVERIFY(number > 2 || kind == NthFault::Refused);
}

void TestFailingStatements::ofEachTransactionTheFirstFailureIsReported_data()
{
    QTest::addColumn<StatementFault>("fault");
    QTest::addColumn<BookmarkOperation>("operation");
    QTest::addColumn<int>("reported");
    QTest::newRow("a row that is inserted") << failing(StatementFault::Insert) << BookmarkOperation(add) << 1;
    QTest::newRow("a row that is changed")
        << failing(StatementFault::Row) << BookmarkOperation(renameFirst) << 1;
    QTest::newRow("places") << failing(StatementFault::Order) << BookmarkOperation(add) << 1;
    QTest::newRow("places, in two transactions")
        << failing(StatementFault::Order) << BookmarkOperation(addTwo) << 2;
    QTest::newRow("a row that is deleted")
        << failing(StatementFault::Delete) << BookmarkOperation(removeFirst) << 1;
    QTest::newRow("all rows that are deleted")
        << failing(StatementFault::Delete) << BookmarkOperation(clear) << 1;
    using Named = std::pair<const char *, BookmarkOperation>;
    for (const auto &[name, operation] : {Named("saving", renameFirst), Named("removing", removeFirst),
                                          Named("clearing", clear), Named("importing", import)})
        QTest::addRow("the commit, %s", name) << refusedCommit() << operation << 1;
    for (const auto &[name, operation] :
         {Named("saving", renameFirst), Named("removing", removeFirst), Named("renumbering", renumber),
          Named("loading", load), Named("clearing", clear), Named("importing", import)})
        QTest::addRow("the beginning, and so the commit, %s", name)
            << denied(SQLITE_TRANSACTION, "BEGIN") << operation << 2;
    QTest::newRow("all that read the top") << denied(SQLITE_SELECT) << BookmarkOperation(load) << 3;
    QTest::newRow("nothing that succeeds") << StatementFault() << BookmarkOperation(removeFirst) << 0;
    QTest::newRow("what reads children") << denied(SQLITE_SELECT) << BookmarkOperation(look) << 1;
    QTest::newRow("what reads a dropped row") << denied(SQLITE_SELECT) << BookmarkOperation(drop) << 1;
}

void TestFailingStatements::ofEachTransactionTheFirstFailureIsReported()
{
    QFETCH(StatementFault, fault);
    QFETCH(BookmarkOperation, operation);
    BookmarkStore store;
    begin(store);
    store.leave();
    store.model().load(); // so that there are children to be read
    StatementFaults faults(BookmarkStore::handle());
    const ReportedFailures reported;
    faults.set(fault);
    operation(store);
    faults.set({});
    QTEST(reported.count(), "reported");
}

void TestFailingStatements::anUpdateOfALostRowIsHandedOver()
{
    BookmarkStore store;
    begin(store);
    store.execute(QStringLiteral("DELETE FROM bookmarks WHERE bookmark_id = 1"));
    const ReportedFailures reported;
    QSqlQuery update(QSqlDatabase::database(constants::bookmarkManagerName));
    QVERIFY(update.exec(QStringLiteral("UPDATE bookmarks SET bookmark_name = 'x' WHERE bookmark_id = 1")));
    DBUtils::checkForErrors(update);
    const int expected = reported.count();
    renameFirst(store);
    QCOMPARE(reported.count(), 2 * expected);
}

void TestFailingStatements::aLockIsWaitedForOncePerTransaction_data()
{
    QTest::addColumn<QByteArray>("lock");
    QTest::addColumn<int>("ordersRun");
    QTest::newRow("of a program that writes") << QByteArray("BEGIN IMMEDIATE") << 0;
    QTest::newRow("of a program that reads") << QByteArray("BEGIN DEFERRED") << 4;
}

void TestFailingStatements::aLockIsWaitedForOncePerTransaction()
{
    QFETCH(QByteArray, lock);
    QFETCH(int, ordersRun);
    BookmarkStore store;
    begin(store);
    const BusyCount waits(BookmarkStore::handle());
    const ReportedFailures reported;
    SqliteFile other(store.path());
    QVERIFY(other.run(lock.constData()) && other.run("SELECT * FROM bookmarks"));
    StatementLog log;
    add(store);
    QCOMPARE(waits.count(), 1);
    QCOMPARE(reported.count(), 1);
    QCOMPARE(log.take().filter(QStringLiteral("bookmark_order=")).size(), ordersRun);
    QVERIFY(other.run("ROLLBACK"));
    store.model().setData(store.at({0, 0}), QStringLiteral("renamed"));
    QCOMPARE(store.orders(QStringLiteral("1")).join(QLatin1Char(' ')),
             QStringLiteral("renamed 0 a 1 b 2 inner 3"));
}

void TestFailingStatements::aLockIsWaitedForOncePerChange_data()
{
    QTest::addColumn<BookmarkOperation>("operation");
    QTest::addColumn<QByteArray>("lock");
    for (const auto &[name, operation] : bookmarkOperations()) {
        QTest::addRow("%s, beside a program that writes", name) << operation << QByteArray("BEGIN IMMEDIATE");
        QTest::addRow("%s, beside one that reads", name) << operation << QByteArray("BEGIN DEFERRED");
        QTest::addRow("%s, beside one that lets no other read", name)
            << operation << QByteArray("BEGIN EXCLUSIVE");
    }
}

// Each of several transactions, and each row of a folder that is removed, would wait otherwise.
void TestFailingStatements::aLockIsWaitedForOncePerChange()
{
    QFETCH(BookmarkOperation, operation);
    QFETCH(QByteArray, lock);
    BookmarkStore store;
    begin(store);
    store.leave();
    const BusyCount waits(BookmarkStore::handle());
    SqliteFile other(store.path());
    QVERIFY(other.run(lock.constData()) && other.run("SELECT * FROM bookmarks"));
    operation(store);
    QVERIFY(waits.count() <= 1);
}

void TestFailingStatements::theNextTurnOfTheEventLoopWaitsAgain()
{
    BookmarkStore store;
    begin(store);
    const auto busyTime = [] {
        QSqlQuery query(QSqlDatabase::database(constants::bookmarkManagerName));
        return query.exec(QStringLiteral("PRAGMA busy_timeout")) && query.next() ? query.value(0).toInt()
                                                                                 : -1;
    };
    sqlite3_busy_timeout(BookmarkStore::handle(), 7);
    SqliteFile other(store.path());
    QVERIFY(other.run("BEGIN IMMEDIATE"));
    add(store);
    add(store);
    QCOMPARE(busyTime(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(busyTime(), 1000); // milliseconds, as for every connection
}

void TestFailingStatements::aLateTransactionIsCommittedAtTheEnd()
{
    BookmarkStore store;
    begin(store);
    const ReportedFailures reported;
    {
        SqliteFile reader(store.path());
        QVERIFY(reader.run("BEGIN") && reader.run("SELECT * FROM bookmarks"));
        renameFirst(store);
    }
    store.close();
    QCOMPARE(store.rows().first().at(2), QStringLiteral("x"));
    QCOMPARE(reported.count(), 1);
}

void TestFailingStatements::aTransactionThatStaysLockedIsReportedAtTheEnd()
{
    BookmarkStore store;
    begin(store);
    const ReportedFailures reported;
    SqliteFile reader(store.path());
    QVERIFY(reader.run("BEGIN") && reader.run("SELECT * FROM bookmarks"));
    renameFirst(store);
    QCOMPARE(reported.count(), 1);
    store.close();
    QCOMPARE(reported.count(), 2);
    QVERIFY(reader.run("ROLLBACK") && reader.run("BEGIN EXCLUSIVE"));
}

void TestFailingStatements::aTransactionThatWasTakenBackIsNotReportedAgainAtTheEnd()
{
    BookmarkStore store;
    begin(store);
    const ReportedFailures reported;
    StatementFaults faults(BookmarkStore::handle());
    faults.set(refusedCommit());
    renameFirst(store);
    faults.set({});
    QCOMPARE(reported.count(), 1);
    store.close();
    QCOMPARE(reported.count(), 1);
}

void TestFailingStatements::aClosedConnectionCostsNoStatement_data()
{
    QTest::addColumn<BookmarkOperation>("operation");
    for (const auto &[name, operation] : bookmarkOperations())
        QTest::addRow("%s", name) << operation;
}

// Every statement is kept from an earlier run when the connection is closed.
void TestFailingStatements::aClosedConnectionCostsNoStatement()
{
    QFETCH(BookmarkOperation, operation);
    QVector<QVector<BookmarkRow>> outcomes;
    for (const bool isClosed : {false, true}) {
        BookmarkStore store;
        begin(store);
        const ReportedFailures reported;
        store.model().removeBookmark(store.addFolder(QStringLiteral("short-lived")));
        if (isClosed)
            QSqlDatabase::database(constants::bookmarkManagerName, false).close();
        operation(store);
        QVERIFY(sqlite3_get_autocommit(BookmarkStore::handle()));
        outcomes.append(store.rows());
        QCOMPARE(reported.count(), 0);
    }
    QCOMPARE(outcomes.last(), outcomes.first());
    QCOMPARE(complaints(), QStringList());
}

// What was written before an INSERT in its transaction goes with it, and the import goes on without one.
void TestFailingStatements::ordersThatAFailedInsertTookBackAreWrittenAgain()
{
    BookmarkStore store;
    begin(store);
    store.execute(QStringLiteral("UPDATE bookmarks SET bookmark_order = bookmark_order + 5"));
    store.model().load();
    StatementFaults faults(BookmarkStore::handle());
    StatementFault fault;
    fault.change = StatementFault::Insert;
    fault.effect = StatementFault::Rollback;
    fault.divisor = 2;
    faults.set(fault);
    BookmarkItem folder(BookmarkKind::Folder, nullptr);
    auto *bookmark = new BookmarkItem(BookmarkKind::Bookmark, &folder);
    bookmark->setName(QStringLiteral("y"));
    folder.setName(QStringLiteral("x"));
    folder.appendChild(bookmark);
    store.model().importFolders({&folder, &folder});
    faults.set({});
    QCOMPARE(store.orders(QStringLiteral("NULL")).mid(0, 3).join(QLatin1Char(' ')),
             QStringLiteral("one 0 two 1 e 2"));
}

void TestFailingStatements::aRowThatTakesTheIdOfALostOneGetsItsPlace()
{
    BookmarkStore store;
    begin(store);
    StatementFaults faults(BookmarkStore::handle());
    StatementFault fault;
    fault.change = StatementFault::Order;
    fault.effect = StatementFault::Rollback;
    faults.set(fault);
    store.model().addBookmarks({QStringLiteral("lost")}, store.at({0}));
    QVERIFY(!holds(store, QStringLiteral("lost")));
    faults.set({});
    store.model().setData(store.at({0, 1}), QStringLiteral("renamed"));
    store.model().removeBookmark(store.at({0, 0}));
    store.model().addBookmarks({QStringLiteral("kept")}, store.at({0}));
    QCOMPARE(store.orders(QStringLiteral("1")).join(QLatin1Char(' ')),
             QStringLiteral("kept 0 renamed 1 b 2 inner 3"));
}

// The first of them is overwritten at once, but a trigger may see it.
void TestFailingStatements::bothPlacesOfARowInOneListAreWrittenEachTime()
{
    BookmarkStore store;
    begin(store);
    const auto data = dragdata::record(0, 5, 1, QStringLiteral("b"));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, 0, 0, store.at({0})));
    store.model().setItemColor(store.at({0, 3}), QStringLiteral("red"));
    StatementFaults faults(BookmarkStore::handle());
    StatementFault fault;
    fault.change = StatementFault::Order;
    fault.effect = StatementFault::Rollback;
    faults.set(fault);
    store.model().setItemColor(store.at({0, 3}), QStringLiteral("blue"));
    faults.set({});
    QCOMPARE(store.rows().at(5).at(4), QStringLiteral("red"));
}

void TestFailingStatements::theFileMayBeLocked_data()
{
    QTest::addColumn<BookmarkOperation>("operation");
    QTest::addColumn<QByteArray>("lock");
    for (const auto &[name, operation] : bookmarkOperations()) {
        QTest::addRow("%s, while nobody may read", name) << operation << QByteArray("BEGIN EXCLUSIVE");
        QTest::addRow("%s, while nobody may write", name) << operation << QByteArray("BEGIN IMMEDIATE");
        QTest::addRow("%s, while nobody may commit", name) << operation << QByteArray("BEGIN DEFERRED");
    }
}

void TestFailingStatements::theFileMayBeLocked()
{
    QFETCH(BookmarkOperation, operation);
    QFETCH(QByteArray, lock);
    BookmarkStore store;
    begin(store);
    const QVector<BookmarkRow> before = store.rows();
    SqliteFile other(store.path());
    QVERIFY(other.run(lock.constData()));
    QVERIFY(other.run("SELECT * FROM bookmarks"));
    operation(store);
    operation(store);
    QVERIFY(other.run("ROLLBACK"));
    operation(store);
    QCOMPARE(troubleAfterwards(store), QString());
    QVERIFY(store.rows() != before);
}

void TestFailingStatements::theDiskMayBeFull_data()
{
    QTest::addColumn<BookmarkOperation>("operation");
    for (const auto &[name, operation] : bookmarkOperations())
        QTest::addRow("%s", name) << operation;
}

void TestFailingStatements::theDiskMayBeFull()
{
    QFETCH(BookmarkOperation, operation);
    const SmallDisk disk(256);
    if (!disk.problem().isEmpty())
        QSKIP(qPrintable(disk.problem()));
    const QByteArray folder = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(disk.path()));
    BookmarkStore store;
    if (folder.isNull())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", folder);
    begin(store);
    const QVector<BookmarkRow> before = store.rows();
    disk.fill();
    operation(store);
    store.leave();
    store.addFolder(QStringLiteral("no room"));
    QCOMPARE(store.rows(), before);
    disk.empty();
    operation(store);
    QCOMPARE(troubleAfterwards(store), QString());
}

QTEST_MAIN(TestFailingStatements)
#include "tst_failingstatements.moc"
