// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "dragdata.h"
#include "sqlitefile.h"
#include "statementlog.h"
#include "words.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "bookmarks/siblingorders.h"
#include "plugin/constants.h"

#include <halvora/storagemanager.h>

#include <QDir>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

#include <sqlite3.h>

namespace {

const QString top = QStringLiteral("NULL");

} // namespace

class TestBookmarkDatabase : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aFreshFileGetsTheTableOnce();
    void theFileIsNamedAfterTheConfiguration();
    void itIsOpenedForSpeed();
    void closingRemovesTheConnectionWithoutAWarning();
    void anInsertWritesNoPlaceAndThenEachThatChanged();
    void aChangeIsOneTransactionOfItsOwn();
    void onlyPlacesThatAreStoredAreLeftOut();
    void aLoadedRowIsWrittenOnceBeforeItIsKnown();
    void aFailedStatementMakesEverythingUnknown();
    void aRowThatTwoListsHoldIsWrittenInEither();
    void listsThatAreWrittenInTurnStayKnown();
    void foldersAndBookmarksStoreTheirNamesApart();
    void removalLeavesAGapUntilTheNextWrite();
    void loadingSortsByTheStoredPlaces();
    void theNewsgroupDecidesWhatARowIs();
    void unknownColoursAreRefusedOnLoad();
    void coloursInCapitalsAreStoredInLowerCaseWithTheNextWrite();
    void theParentOfARowIsRemembered();
    void theProviderGetsAnEmptyNameForEachFolder();
    void everyLoadTellsThatBookmarksChanged();
    void loadingReadsInOneTransactionAndTellsBeforeTheReset();
    void addingAndRemovingTellBetweenTheModelsSignals();
    void whatIsToldIsStored();
    void childrenAreReadWhenTheyAreFirstAskedFor();
    void aBookmarkIsAskedForChildrenOnce();
    void onlyIdsWithRowsBelowThemAreAskedForChildren();
    void rowsBelowAnIdThatHadNoneAreFound();
    void anIdIsAskedForChildrenAfterAFailedInsertBelowIt();
    void rowsThatAFailedCommitBringsBackAreFound();
    void eachIdIsAskedForChildrenWhileTheParentsAreUnknown_data();
    void eachIdIsAskedForChildrenWhileTheParentsAreUnknown();
    void eachIdIsAskedForChildrenBeforeTheFirstLoad();
    void aParentIsFoundWhateverTypeItIsStoredAs_data();
    void aParentIsFoundWhateverTypeItIsStoredAs();
    void rowsOfAnotherProgramAreFoundWithTheNextLoad();
    void childrenOfFoldersThatWereNeverOpenedStayInTheTable();
    void bookmarksAreForgottenFromTheBottomUp();
    void loadingFreesTheOldItemsAfterTheReset();
    void clearingEmptiesTableAndTreeButNotTheProvider();
    void idsAreNotUsedAgainAfterClearing();
    void anItemThatCouldNotBeInsertedGetsItsPlaceLater();
    void rowsBelowAnItemThatCouldNotBeInsertedAreKeptInMemory();
};

namespace {
bool isInTransaction()
{
    return sqlite3_get_autocommit(BookmarkStore::handle()) == 0;
}

/// Names and colours of all rows, as the model's own connection has them.
QString storedNow()
{
    QSqlQuery query(QSqlDatabase::database(constants::bookmarkManagerName));
    query.exec(QStringLiteral("SELECT coalesce(bookmark_name, bookmark_newsgroup) || "
                              "coalesce('+' || bookmark_color, '') FROM bookmarks ORDER BY bookmark_id"));
    QStringList rows;
    while (query.next())
        rows.append(query.value(0).toString());
    return rows.join(QLatin1Char(' '));
}

/// Ends the statement that reads the parents after a number of SQLite's steps.
class ParentsInterrupt {
public:
    explicit ParentsInterrupt(int after)
        : m_left(after)
    {
        sqlite3_trace_v2(BookmarkStore::handle(), SQLITE_TRACE_STMT, noteStatement, this);
        sqlite3_progress_handler(BookmarkStore::handle(), 1, interrupt, this);
    }
    ~ParentsInterrupt()
    {
        sqlite3_trace_v2(BookmarkStore::handle(), 0, nullptr, nullptr);
        sqlite3_progress_handler(BookmarkStore::handle(), 0, nullptr, nullptr);
    }
    Q_DISABLE_COPY(ParentsInterrupt)

    bool hasInterrupted() const { return m_left <= 0; }

private:
    static int noteStatement(unsigned, void *self, void *statement, void *)
    {
        const QByteArray text(sqlite3_sql(static_cast<sqlite3_stmt *>(statement)));
        static_cast<ParentsInterrupt *>(self)->m_isReading = text.contains("DISTINCT");
        return 0;
    }
    static int interrupt(void *data)
    {
        auto *self = static_cast<ParentsInterrupt *>(data);
        return int(self->m_isReading && --self->m_left <= 0);
    }

    bool m_isReading = false;
    int m_left;
};

QStringList warnings;
void collect(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        warnings.append(text);
}
} // namespace

void TestBookmarkDatabase::init()
{
    warnings.clear();
    qInstallMessageHandler(collect);
}

void TestBookmarkDatabase::cleanup()
{
    qInstallMessageHandler(nullptr);
}

void TestBookmarkDatabase::aFreshFileGetsTheTableOnce()
{
    BookmarkStore store(false);
    QVERIFY(!QFile::exists(store.path()));
    store.open();
    QCOMPARE(store.model().rowCount(), 0);
    const QString schema =
        QStringLiteral("CREATE TABLE bookmarks (bookmark_id INTEGER PRIMARY KEY AUTOINCREMENT,parent_id "
                       "INTEGER,bookmark_name TEXT,bookmark_newsgroup TEXT,bookmark_color "
                       "TEXT,bookmark_expanded BOOLEAN, bookmark_order INTEGER)");
    QSqlQuery query(QSqlDatabase::database(constants::bookmarkManagerName));
    QVERIFY(query.exec(QStringLiteral("SELECT sql FROM sqlite_master WHERE name='bookmarks'")) &&
            query.next());
    QCOMPARE(query.value(0).toString(), schema);
    QVERIFY(query.exec(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type='index'")) &&
            query.next());
    QCOMPARE(query.value(0).toInt(), 0);
    query.finish();
    query = QSqlQuery(QSqlDatabase());
    store.addFolder(QStringLiteral("kept"));
    store.close();
    store.open();
    QCOMPARE(store.names(), words("kept"));
}

void TestBookmarkDatabase::theFileIsNamedAfterTheConfiguration()
{
    BookmarkStore store;
    QCOMPARE(QSqlDatabase::database(constants::bookmarkManagerName).databaseName(), store.path());
    QCOMPARE(QSqlDatabase::database(constants::bookmarkManagerName).driverName(), QStringLiteral("QSQLITE"));
    QVERIFY(QFile::exists(store.path()));
}

void TestBookmarkDatabase::itIsOpenedForSpeed()
{
    const BookmarkStore store;
    QSqlQuery query(QSqlDatabase::database(constants::bookmarkManagerName));
    QVERIFY(query.exec(QStringLiteral("PRAGMA synchronous")) && query.next());
    QCOMPARE(query.value(0).toInt(), 0);
}

void TestBookmarkDatabase::closingRemovesTheConnectionWithoutAWarning()
{
    BookmarkStore store;
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("a b"), folder);
    store.model().removeBookmark(store.at({0, 0}));
    store.model().load();
    store.names(store.at({0}));
    store.close();
    QVERIFY(!QSqlDatabase::contains(constants::bookmarkManagerName));
    QCOMPARE(warnings.filter(QStringLiteral("in use")), QStringList());
}

void TestBookmarkDatabase::anInsertWritesNoPlaceAndThenEachThatChanged()
{
    BookmarkStore store;
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("b"), folder);
    StatementLog log;
    store.model().addBookmarks(words("a"), folder);
    const QStringList statements = log.take();
    QCOMPARE(statements.first(), QStringLiteral("BEGIN TRANSACTION"));
    QCOMPARE(statements.at(1),
             QStringLiteral("INSERT INTO bookmarks (parent_id, bookmark_name, bookmark_newsgroup, "
                            "bookmark_color, bookmark_expanded, bookmark_order)  VALUES (1, NULL, 'a', "
                            "NULL, 0, -1)"));
    QCOMPARE(statements.at(2), QStringLiteral("UPDATE bookmarks SET bookmark_order=0 WHERE bookmark_id=3"));
    QCOMPARE(statements.at(3), QStringLiteral("UPDATE bookmarks SET bookmark_order=1 WHERE bookmark_id=2"));
    QCOMPARE(statements.at(4), QStringLiteral("COMMIT TRANSACTION"));
    QCOMPARE(statements.size(), 5);
    QCOMPARE(store.orders(QStringLiteral("1")), rows("a 0, b 1"));
}

void TestBookmarkDatabase::aChangeIsOneTransactionOfItsOwn()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    StatementLog log;
    store.model().addBookmarks(words("a b c"), folder);
    QCOMPARE(log.take().filter(QStringLiteral("COMMIT")).size(), 3);
    store.model().setData(folder, QStringLiteral("g"));
    QCOMPARE(log.take(),
             (QStringList{QStringLiteral("BEGIN TRANSACTION"),
                          QStringLiteral("UPDATE bookmarks SET parent_id=NULL, bookmark_name='g', "
                                         "bookmark_newsgroup=NULL, bookmark_color=NULL, "
                                         "bookmark_expanded=0 WHERE bookmark_id=1"),
                          QStringLiteral("COMMIT TRANSACTION")}));
}

void TestBookmarkDatabase::onlyPlacesThatAreStoredAreLeftOut()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("a b c d"), folder);
    store.model().removeBookmark(store.at({0, 1}));
    StatementLog log;
    store.model().renumberChildren(store.model().itemFromIndex(folder));
    QCOMPARE(log.take().filter(QStringLiteral("bookmark_order")).size(), 2); // c and d move up
    store.model().renumberChildren(store.model().itemFromIndex(folder));
    QCOMPARE(log.take(), words("BEGIN_TRANSACTION COMMIT_TRANSACTION")
                             .replaceInStrings(QStringLiteral("_"), QStringLiteral(" ")));
}

void TestBookmarkDatabase::aLoadedRowIsWrittenOnceBeforeItIsKnown()
{
    BookmarkStore store;
    store.check();
    store.model().addBookmarks(words("a b"), store.addFolder(QStringLiteral("f")));
    store.model().load();
    StatementLog log;
    BookmarkItem *folder = store.model().itemFromIndex(store.at({0}));
    log.take();
    store.model().renumberChildren(folder);
    QCOMPARE(log.take().filter(QStringLiteral("bookmark_order=")).size(), 2);
    store.model().renumberChildren(folder);
    QCOMPARE(log.take().filter(QStringLiteral("bookmark_order=")).size(), 0);
}

void TestBookmarkDatabase::aFailedStatementMakesEverythingUnknown()
{
    BookmarkStore store;
    store.check();
    store.model().addBookmarks(words("a b"), store.addFolder(QStringLiteral("f")));
    BookmarkItem *folder = store.model().itemFromIndex(store.at({0}));
    store.execute(QStringLiteral("CREATE TRIGGER no BEFORE DELETE ON bookmarks "
                                 "BEGIN SELECT RAISE(FAIL, 'no'); END"));
    store.model().deleteItemRows(QSqlDatabase::database(constants::bookmarkManagerName), folder->child(0));
    StatementLog log;
    store.model().renumberChildren(folder);
    QCOMPARE(log.take().filter(QStringLiteral("bookmark_order=")).size(), 2);
}

// While an item is moved the old one and the fresh one have the same row, each in a list of its own.
void TestBookmarkDatabase::aRowThatTwoListsHoldIsWrittenInEither()
{
    BookmarkStore store;
    store.model().addBookmarks(words("moved b"), store.addFolder(QStringLiteral("from")));
    store.model().addBookmarks(words("c d"), store.addFolder(QStringLiteral("to")));
    const auto data = dragdata::record(0, 2, 1, QStringLiteral("moved"));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, 2, 0, store.at({1})));
    store.model().setData(store.at({0, 1}), QStringLiteral("b2"));
    QCOMPARE(store.rows().at(1).last(), QStringLiteral("0"));
    store.model().setData(store.at({1, 0}), QStringLiteral("c2"));
    QCOMPARE(store.rows().at(1).last(), QStringLiteral("2"));
    store.model().setData(store.at({0, 1}), QStringLiteral("b3"));
    QCOMPARE(store.rows().at(1).last(), QStringLiteral("0"));
}

void TestBookmarkDatabase::listsThatAreWrittenInTurnStayKnown()
{
    SiblingOrders orders;
    const BookmarkItem one(BookmarkKind::Folder, nullptr);
    for (int place = 0; place < 2; ++place)
        QVERIFY(orders.note(1 + place, place));
    orders.settle(nullptr, 2);
    QVERIFY(orders.note(7, 0));
    orders.settle(&one, 1);
    QCOMPARE(orders.settled(nullptr), 2);
    QCOMPARE(orders.settled(&one), 1);
    QVERIFY(!orders.note(7, 1));
    QCOMPARE(orders.settled(nullptr), 0);
}

void TestBookmarkDatabase::foldersAndBookmarksStoreTheirNamesApart()
{
    BookmarkStore store;
    store.check();
    store.model().addBookmarks(words("group"), store.addFolder(QStringLiteral("folder")));
    store.model().setFolderExpanded(store.at({0}), true);
    QCOMPARE(store.rows(),
             (QVector<BookmarkRow>{words("1 NULL folder NULL NULL 1 0"), words("2 1 NULL group NULL 0 0")}));
}

void TestBookmarkDatabase::removalLeavesAGapUntilTheNextWrite()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("a b c"), folder);
    store.model().removeBookmark(store.at({0, 1}));
    QCOMPARE(store.orders(QStringLiteral("1")), rows("a 0, c 2"));
    store.model().setItemColor(store.at({0, 0}), QStringLiteral("red"));
    QCOMPARE(store.orders(QStringLiteral("1")), rows("a 0, c 1"));
}

void TestBookmarkDatabase::loadingSortsByTheStoredPlaces()
{
    BookmarkStore store;
    store.check();
    for (const char *name : {"a", "b", "c"})
        store.addFolder(QString::fromLatin1(name));
    store.execute(QStringLiteral("UPDATE bookmarks SET bookmark_order=10-bookmark_id"));
    store.model().load();
    QCOMPARE(store.names(), words("c b a"));
}

void TestBookmarkDatabase::theNewsgroupDecidesWhatARowIs()
{
    BookmarkStore store;
    store.check();
    store.execute(QStringLiteral(
        "INSERT INTO bookmarks VALUES (1,NULL,'name','group','red',1,0),(2,NULL,'name',NULL,'red',1,1),"
        "(3,NULL,NULL,NULL,NULL,0,2),(4,NULL,'name','',NULL,0,3)"));
    store.model().load();
    const BookmarkItem *both = store.model().itemFromIndex(store.at({0}));
    QVERIFY(!both->isFolder());
    QCOMPARE(both->name(), QStringLiteral("group"));
    QCOMPARE(both->color(), QStringLiteral("red"));
    QVERIFY(!both->isExpanded());
    const BookmarkItem *folder = store.model().itemFromIndex(store.at({1}));
    QVERIFY(folder->isFolder());
    QVERIFY(folder->isExpanded());
    QVERIFY(store.model().itemFromIndex(store.at({2}))->isFolder());
    QVERIFY(!store.model().itemFromIndex(store.at({3}))->isFolder());
}

void TestBookmarkDatabase::unknownColoursAreRefusedOnLoad()
{
    BookmarkStore store;
    store.check();
    store.execute(QStringLiteral("INSERT INTO bookmarks VALUES (1,NULL,'f',NULL,'purple',0,0),"
                                 "(2,NULL,'g',NULL,'PURPLE',0,1)"));
    store.model().load();
    QVERIFY(store.model().itemFromIndex(store.at({0}))->color().isNull());
    QVERIFY(store.model().itemFromIndex(store.at({1}))->color().isNull());
    store.model().setData(store.at({0}), QStringLiteral("h"));
    QCOMPARE(store.rows().first().at(4), QStringLiteral("NULL"));
}

void TestBookmarkDatabase::coloursInCapitalsAreStoredInLowerCaseWithTheNextWrite()
{
    BookmarkStore store;
    store.check();
    store.execute(QStringLiteral("INSERT INTO bookmarks VALUES (1,NULL,'f',NULL,'BLUE',0,0)"));
    store.model().load();
    QCOMPARE(store.model().itemFromIndex(store.at({0}))->color(), QStringLiteral("blue"));
    QCOMPARE(store.rows().first().at(4), QStringLiteral("BLUE"));
    store.model().setFolderExpanded(store.at({0}), true);
    QCOMPARE(store.rows().first().at(4), QStringLiteral("blue"));
}

void TestBookmarkDatabase::theParentOfARowIsRemembered()
{
    BookmarkStore store;
    store.check();
    store.model().addBookmarks(words("a"), store.addFolder(QStringLiteral("f")));
    QCOMPARE(store.model().itemFromIndex(store.at({0, 0}))->parentId(), -1); // not read yet
    store.model().load();
    QCOMPARE(store.model().itemFromIndex(store.at({0}))->parentId(), -1);
    QCOMPARE(store.model().itemFromIndex(store.at({0, 0}))->parentId(), 1);
}

void TestBookmarkDatabase::theProviderGetsAnEmptyNameForEachFolder()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("a b"), folder);
    store.addFolder(QStringLiteral("inner"), folder);
    const CVBookmarkProvider *provider = store.model().provider();
    QVERIFY(!provider->isBookmarked(QLatin1String("")));
    store.model().load();
    QStringList names = provider->bookmarkedNewsgroups();
    names.sort();
    QCOMPARE(names,
             (QStringList{QLatin1String(""), QLatin1String(""), QStringLiteral("a"), QStringLiteral("b")}));
    QVERIFY(provider->isBookmarked(QLatin1String("")));
}

void TestBookmarkDatabase::everyLoadTellsThatBookmarksChanged()
{
    BookmarkStore store;
    store.check();
    QSignalSpy changed(store.model().provider(), &BookmarkProvider::bookmarksChanged);
    QSignalSpy reset(&store.model(), &QAbstractItemModel::modelReset);
    store.model().load();
    store.model().load();
    QCOMPARE(changed.count(), 2);
    QCOMPARE(reset.count(), 2);
}

void TestBookmarkDatabase::loadingReadsInOneTransactionAndTellsBeforeTheReset()
{
    BookmarkStore store;
    QStringList events;
    connect(store.model().provider(), &BookmarkProvider::bookmarksChanged, this, [&] {
        events.append(isInTransaction() ? QStringLiteral("told within") : QStringLiteral("told"));
    });
    connect(&store.model(), &QAbstractItemModel::modelAboutToBeReset, this, [&] {
        events.append(isInTransaction() ? QStringLiteral("reset within") : QStringLiteral("reset"));
    });
    StatementLog log;
    store.model().load();
    QCOMPARE(events, (QStringList{QStringLiteral("told within"), QStringLiteral("reset")}));
    QCOMPARE(log.take(),
             (QStringList{QStringLiteral("BEGIN TRANSACTION"),
                          QStringLiteral("SELECT bookmark_id, parent_id, bookmark_name, bookmark_newsgroup, "
                                         "bookmark_color, bookmark_expanded, bookmark_order FROM bookmarks "
                                         "WHERE parent_id IS NULL ORDER BY bookmark_order ASC"),
                          QStringLiteral("SELECT bookmark_newsgroup FROM bookmarks"),
                          QStringLiteral("SELECT DISTINCT parent_id FROM bookmarks"),
                          QStringLiteral("COMMIT TRANSACTION")}));
}

void TestBookmarkDatabase::addingAndRemovingTellBetweenTheModelsSignals()
{
    BookmarkStore store;
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    QStringList events;
    const auto note = [&events](const char *what) {
        return [&events, what] {
            events.append(QLatin1String(what) + (isInTransaction() ? QStringLiteral(" within") : QString()));
        };
    };
    connect(&store.model(), &QAbstractItemModel::rowsAboutToBeInserted, this, note("inserting"));
    connect(&store.model(), &QAbstractItemModel::rowsInserted, this, note("inserted"));
    connect(&store.model(), &QAbstractItemModel::rowsAboutToBeRemoved, this, note("removing"));
    connect(&store.model(), &QAbstractItemModel::rowsRemoved, this, note("removed"));
    connect(store.model().provider(), &BookmarkProvider::bookmarkAdded, this, note("added"));
    connect(store.model().provider(), &BookmarkProvider::bookmarkRemoved, this, note("forgotten"));
    store.model().addBookmarks(words("a b"), folder);
    QCOMPARE(events, words("inserting added added inserted"));
    events.clear();
    store.model().removeBookmark(store.at({0, 0}));
    QCOMPARE(events, (QStringList{QStringLiteral("removing"), QStringLiteral("forgotten within"),
                                  QStringLiteral("removed")}));
}

void TestBookmarkDatabase::whatIsToldIsStored()
{
    BookmarkStore store;
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    QStringList stored;
    const auto look = [&stored] { stored.append(storedNow()); };
    connect(store.model().provider(), &BookmarkProvider::bookmarkAdded, this, look);
    connect(store.model().provider(), &BookmarkProvider::bookmarkRemoved, this, look);
    connect(&store.model(), &QAbstractItemModel::dataChanged, this, look);
    store.model().addBookmarks(words("a b"), folder);
    QCOMPARE(stored, (QStringList{QStringLiteral("f a"), QStringLiteral("f a b")}));
    stored.clear();
    store.model().setData(folder, QStringLiteral("g"));
    store.model().setItemColor(store.at({0, 0}), QStringLiteral("red"));
    QCOMPARE(stored, (QStringList{QStringLiteral("g a b"), QStringLiteral("g a+red b")}));
    stored.clear();
    store.model().removeBookmark(folder);
    QCOMPARE(stored, (QStringList{QStringLiteral("g b"), QStringLiteral("g")}));
}

void TestBookmarkDatabase::childrenAreReadWhenTheyAreFirstAskedFor()
{
    BookmarkStore store;
    store.model().addBookmarks(words("a"), store.addFolder(QStringLiteral("f")));
    store.model().load();
    const BookmarkItem *folder = store.model().topLevelItems().first();
    QVERIFY(!folder->childrenLoaded());
    StatementLog log;
    QCOMPARE(store.model().rowCount(store.at({0})), 1);
    QVERIFY(folder->childrenLoaded());
    QCOMPARE(log.take(),
             QStringList{QStringLiteral("SELECT bookmark_id, parent_id, bookmark_name, bookmark_newsgroup, "
                                        "bookmark_color, bookmark_expanded, bookmark_order FROM bookmarks "
                                        "WHERE parent_id=1 ORDER BY bookmark_order ASC")});
    QCOMPARE(store.model().rowCount(store.at({0})), 1);
    QCOMPARE(log.take(), QStringList());
}

void TestBookmarkDatabase::aBookmarkIsAskedForChildrenOnce()
{
    BookmarkStore store;
    store.model().addBookmarks(words("a"), store.addFolder(QStringLiteral("f")));
    store.execute(QStringLiteral("INSERT INTO bookmarks VALUES (9,2,NULL,'below a bookmark',NULL,0,0)"));
    store.model().load();
    const QModelIndex bookmark = store.at({0, 0});
    StatementLog log;
    QCOMPARE(store.model().rowCount(bookmark), 0);
    QCOMPARE(store.model().rowCount(bookmark), 0);
    QCOMPARE(log.take().size(), 1);
    QCOMPARE(store.model().itemFromIndex(bookmark)->children().size(), 1);
    QVERIFY(!store.model().index(0, 0, bookmark).isValid());
}

void TestBookmarkDatabase::onlyIdsWithRowsBelowThemAreAskedForChildren()
{
    BookmarkStore store;
    store.execute(
        QStringLiteral("INSERT INTO bookmarks VALUES (1,NULL,'f',NULL,NULL,1,0),"
                       "(2,1,NULL,'a',NULL,0,0),(3,1,'empty',NULL,NULL,0,1),(4,1,NULL,'b',NULL,0,2),"
                       "(5,4,NULL,'below a bookmark',NULL,0,0),(6,99,NULL,'below nothing',NULL,0,0)"));
    store.model().load();
    StatementLog log;
    QCOMPARE(store.names(store.at({0})), words("a empty b"));
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(store.model().rowCount(store.at({0, row})), 0);
        QVERIFY(store.model().itemFromIndex(store.at({0, row}))->childrenLoaded());
    }
    QStringList asked;
    for (const QString &statement : log.take())
        asked.append(statement.section(QStringLiteral("parent_id="), 1).section(QLatin1Char(' '), 0, 0));
    QCOMPARE(asked, words("1 4"));
    QCOMPARE(store.model().itemFromIndex(store.at({0, 2}))->children().size(), 1);
}

// A drop reads the folder's row anew and with it what is below.
void TestBookmarkDatabase::rowsBelowAnIdThatHadNoneAreFound()
{
    BookmarkStore store;
    store.addFolder(QStringLiteral("f"));
    store.addFolder(QStringLiteral("moved"));
    store.model().load();
    QCOMPARE(store.model().rowCount(store.at({0})), 0);
    const auto data = dragdata::record(1, 2, -1, QStringLiteral("moved"));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, 0, 0, store.at({0})));
    store.model().addBookmarks(words("a"), store.at({0, 0}));
    const auto again = dragdata::record(1, 1, -1, QStringLiteral("f"));
    QVERIFY(store.model().dropMimeData(again.get(), Qt::MoveAction, 0, 0, QModelIndex()));
    QCOMPARE(store.names(store.at({0})), words("moved"));
    QCOMPARE(store.names(store.at({0, 0})), words("a"));
}

void TestBookmarkDatabase::anIdIsAskedForChildrenAfterAFailedInsertBelowIt()
{
    BookmarkStore store;
    store.addFolder(QStringLiteral("f"));
    store.model().load();
    store.execute(QStringLiteral("CREATE TRIGGER no BEFORE INSERT ON bookmarks "
                                 "BEGIN SELECT RAISE(FAIL, 'no'); END"));
    store.model().addBookmarks(words("a"), store.at({0}));
    const auto data = dragdata::record(1, 1, -1, QStringLiteral("f"));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, 0, 0, QModelIndex()));
    StatementLog log;
    QCOMPARE(store.model().rowCount(store.at({0})), 0);
    QCOMPARE(log.take().size(), 1);
}

void TestBookmarkDatabase::rowsThatAFailedCommitBringsBackAreFound()
{
    BookmarkStore store;
    store.model().addBookmarks(words("a"), store.addFolder(QStringLiteral("f")));
    sqlite3_busy_timeout(BookmarkStore::handle(), 0);
    {
        SqliteFile reader(store.path());
        QVERIFY(reader.run("BEGIN") && reader.run("SELECT * FROM bookmarks"));
        store.model().clearBookmarks();
        store.model().load();
        QCOMPARE(store.model().rowCount(), 0);
    }
    QSqlDatabase::database(constants::bookmarkManagerName).close();
    QCOMPARE(store.rows().size(), 2);
    const auto data = dragdata::record(1, 1, -1, QStringLiteral("f"));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, 0, 0, QModelIndex()));
    QCOMPARE(store.names(store.at({0})), words("a"));
}

void TestBookmarkDatabase::eachIdIsAskedForChildrenWhileTheParentsAreUnknown_data()
{
    QTest::addColumn<int>("after"); // steps of SQLite's machine
    QTest::newRow("nothing was read") << 1;
    QTest::newRow("something was read") << 3000;
}

void TestBookmarkDatabase::eachIdIsAskedForChildrenWhileTheParentsAreUnknown()
{
    QFETCH(int, after);
    BookmarkStore store;
    store.addFolder(QStringLiteral("f"));
    store.execute(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n LIMIT 500) "
                                 "INSERT INTO bookmarks SELECT i, i + 1000, NULL, 'x', NULL, 0, 0 FROM n"));
    {
        const ParentsInterrupt interrupt(after);
        store.model().load();
        QVERIFY(interrupt.hasInterrupted());
    }
    StatementLog log;
    QCOMPARE(store.model().rowCount(store.at({0})), 0);
    QCOMPARE(log.take().size(), 1);
    store.model().load();
    log.take();
    QCOMPARE(store.model().rowCount(store.at({0})), 0);
    QCOMPARE(log.take(), QStringList());
}

void TestBookmarkDatabase::eachIdIsAskedForChildrenBeforeTheFirstLoad()
{
    BookmarkStore store;
    store.model().addBookmarks(words("a"), store.addFolder(QStringLiteral("f")));
    store.close();
    OpenBookmarkManager unread(store.plugin());
    const auto data = dragdata::record(1, 1, -1, QStringLiteral("f"));
    QVERIFY(unread.dropMimeData(data.get(), Qt::MoveAction, 0, 0, QModelIndex()));
    QCOMPARE(unread.rowCount(unread.index(0, 0)), 1);
}

void TestBookmarkDatabase::aParentIsFoundWhateverTypeItIsStoredAs_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<qint64>("id");
    const qint64 large = (qint64(1) << 52) + 1;
    QTest::newRow("text in a column of text") << "TEXT"
                                              << "'1'" << qint64(1);
    QTest::newRow("text that blanks follow") << "TEXT COLLATE RTRIM"
                                             << "'1 '" << qint64(1);
    QTest::newRow("real") << "REAL"
                          << "1" << qint64(1);
    QTest::newRow("a large real") << "REAL" << QString::number(large) << large;
    QTest::newRow("of no type") << ""
                                << "1.0" << qint64(1);
}

void TestBookmarkDatabase::aParentIsFoundWhateverTypeItIsStoredAs()
{
    QFETCH(QString, type);
    QFETCH(QString, value);
    QFETCH(qint64, id);
    BookmarkStore store(false);
    store.execute(QStringLiteral("CREATE TABLE bookmarks (bookmark_id INTEGER PRIMARY KEY, parent_id %1, "
                                 "bookmark_name, bookmark_newsgroup, bookmark_color, bookmark_expanded, "
                                 "bookmark_order); INSERT INTO bookmarks VALUES (%3,NULL,'f',NULL,NULL,0,0),"
                                 "(7,%2,NULL,'a',NULL,0,0)")
                      .arg(type, value)
                      .arg(id));
    store.open();
    QCOMPARE(store.names(store.at({0})), words("a"));
}

// What another program writes while this one runs is not looked for below an id that had no rows.
void TestBookmarkDatabase::rowsOfAnotherProgramAreFoundWithTheNextLoad()
{
    BookmarkStore store;
    store.addFolder(QStringLiteral("empty"));
    store.model().addBookmarks(words("a"), store.addFolder(QStringLiteral("full")));
    store.model().load();
    store.execute(
        QStringLiteral("INSERT INTO bookmarks VALUES (8,1,NULL,'b',NULL,0,0),(9,2,NULL,'c',NULL,0,1)"));
    QCOMPARE(store.names(store.at({0})), QStringList());
    QCOMPARE(store.names(store.at({1})), words("a c"));
    store.model().addBookmarks(words("d"), store.at({0}));
    QCOMPARE(store.rows().size(), 6);
    store.model().load();
    QCOMPARE(store.names(store.at({0})), words("b d"));
}

void TestBookmarkDatabase::childrenOfFoldersThatWereNeverOpenedStayInTheTable()
{
    BookmarkStore store;
    const QModelIndex outer = store.addFolder(QStringLiteral("outer"));
    const QModelIndex inner = store.addFolder(QStringLiteral("inner"), outer);
    store.model().addBookmarks(words("below"), inner);
    store.model().load();
    store.model().removeBookmark(store.model().index(0, 0));
    QCOMPARE(store.rows(), (QVector<BookmarkRow>{words("3 2 NULL below NULL 0 0")}));
    QVERIFY(store.model().provider()->isBookmarked(QStringLiteral("below")));
}

void TestBookmarkDatabase::bookmarksAreForgottenFromTheBottomUp()
{
    BookmarkStore store;
    store.check();
    const QModelIndex outer = store.addFolder(QStringLiteral("outer"));
    store.model().addBookmarks(words("x y"), outer);
    store.addFolder(QStringLiteral("inner"), outer);
    store.model().addBookmarks(words("a b"), store.at({0, 0}));
    QSignalSpy removed(store.model().provider(), &BookmarkProvider::bookmarkRemoved);
    StatementLog log;
    store.model().removeBookmark(outer);
    QStringList names;
    for (const QVariantList &arguments : removed)
        names.append(arguments.first().toString());
    QCOMPARE(names, words("a b x y"));
    QStringList ids;
    for (const QString &statement : log.take().filter(QStringLiteral("DELETE")))
        ids.append(statement.section(QLatin1Char('='), 1));
    QCOMPARE(ids, words("5 6 4 2 3 1"));
}

// An index that was taken before the reset must be good for comparing until it is over.
void TestBookmarkDatabase::loadingFreesTheOldItemsAfterTheReset()
{
    BookmarkStore store;
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    const auto *item = static_cast<const BookmarkItem *>(folder.internalPointer());
    QString name;
    connect(&store.model(), &QAbstractItemModel::modelReset, this, [item, &name] { name = item->name(); });
    store.model().load();
    QCOMPARE(name, QStringLiteral("f"));
}

void TestBookmarkDatabase::clearingEmptiesTableAndTreeButNotTheProvider()
{
    BookmarkStore store;
    store.check();
    store.model().addBookmarks(words("a b"), store.addFolder(QStringLiteral("f")));
    QSignalSpy reset(&store.model(), &QAbstractItemModel::modelReset);
    StatementLog log;
    store.model().clearBookmarks();
    QCOMPARE(log.take(),
             (QStringList{QStringLiteral("BEGIN TRANSACTION"), QStringLiteral("DELETE FROM bookmarks"),
                          QStringLiteral("COMMIT TRANSACTION")}));
    QCOMPARE(reset.count(), 1);
    QCOMPARE(store.model().rowCount(), 0);
    QVERIFY(store.rows().isEmpty());
    QVERIFY(store.model().provider()->isBookmarked(QStringLiteral("a")));
}

void TestBookmarkDatabase::idsAreNotUsedAgainAfterClearing()
{
    BookmarkStore store;
    store.check();
    store.addFolder(QStringLiteral("f"));
    store.model().clearBookmarks();
    store.addFolder(QStringLiteral("g"));
    QCOMPARE(store.rows(), (QVector<BookmarkRow>{words("2 NULL g NULL NULL 0 0")}));
}

void TestBookmarkDatabase::anItemThatCouldNotBeInsertedGetsItsPlaceLater()
{
    BookmarkStore store;
    store.check();
    store.execute(QStringLiteral("CREATE TRIGGER no BEFORE INSERT ON bookmarks "
                                 "BEGIN SELECT RAISE(FAIL, 'no'); END"));
    store.addFolder(QStringLiteral("f"));
    QVERIFY(store.rows().isEmpty());
    store.execute(QStringLiteral("DROP TRIGGER no"));
    store.model().setItemColor(store.at({0}), QStringLiteral("red"));
    QCOMPARE(store.orders(top), rows("f 0"));
}

void TestBookmarkDatabase::rowsBelowAnItemThatCouldNotBeInsertedAreKeptInMemory()
{
    BookmarkStore store;
    store.check();
    store.execute(QStringLiteral("CREATE TRIGGER no BEFORE INSERT ON bookmarks "
                                 "WHEN new.bookmark_name IS NOT NULL BEGIN SELECT RAISE(FAIL, 'no'); END"));
    const QModelIndex folder = store.model().addFolder(QModelIndex());
    QCOMPARE(store.model().itemFromIndex(folder)->id(), 0);
    store.model().addBookmarks(words("a"), folder);
    QCOMPARE(store.rows(), (QVector<BookmarkRow>{words("1 0 NULL a NULL 0 0")}));
    store.execute(QStringLiteral("DROP TRIGGER no"));
    QVERIFY(store.model().setData(folder, QStringLiteral("f")));
    QCOMPARE(store.model().itemFromIndex(folder)->id(), 2);
    QCOMPARE(store.names(folder), words("a"));
    QCOMPARE(store.orders(top), rows("f 0"));
}

QTEST_MAIN(TestBookmarkDatabase)
#include "tst_bookmarkdatabase.moc"
