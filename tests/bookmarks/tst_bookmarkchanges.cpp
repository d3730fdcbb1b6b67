// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "statementlog.h"
#include "words.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/cvbookmarkprovider.h"

#include <QSignalSpy>
#include <QTest>

#include <sqlite3.h>

#include <memory>

namespace {

const QString group = QStringLiteral("alt.binaries.pictures.nature");

std::unique_ptr<BookmarkItem> receivedFolder(const QString &name, const QStringList &newsgroups)
{
    auto folder = std::make_unique<BookmarkItem>(BookmarkKind::Folder, nullptr);
    folder->setName(name);
    for (const QString &newsgroup : newsgroups) {
        auto *child = new BookmarkItem(BookmarkKind::Bookmark, folder.get());
        child->setName(newsgroup);
        folder->appendChild(child);
    }
    return folder;
}

} // namespace

class TestBookmarkChanges : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aNewFolderIsFirstInAFolderAndLastAtTheTop();
    void aFolderIsNotAddedBelowABookmark();
    void bookmarksGoFirstIntoAFolder();
    void bookmarksGoBehindTheChosenOne();
    void bookmarksBesideOneAtTheTopAreNotAdded();
    void bookmarksAtTheTopAreAnnouncedFirstAndAppended();
    void noBookmarksAreNotAnnounced();
    void aNewsgroupMayBeBookmarkedTwice();
    void removingAFolderRemovesWhatIsInIt();
    void aRemovedFolderIsNoNewsgroup();
    void removingNothingDoesNothing();
    void aRefusedColourStillSavesAndTells();
    void bookmarksAreColouredLikeFolders();
    void onlyFoldersAreExpandedAndNobodyIsTold();
    void expandedFoldersOrElseTheFirstTwo_data();
    void expandedFoldersOrElseTheFirstTwo();
    void nestedFoldersDoNotCountAsExpanded();
    void anImportAppendsFolders();
    void anImportIsOneTransaction();
    void anImportIsToldWithinTheReset();
    void whatWasImportedIsNotReadAgain();
};

void TestBookmarkChanges::aNewFolderIsFirstInAFolderAndLastAtTheTop()
{
    BookmarkStore store;
    store.check();
    const QModelIndex outer = store.addFolder(QStringLiteral("outer"));
    store.addFolder(QStringLiteral("second"));
    store.model().addBookmarks({group}, outer);
    const QModelIndex inner = store.model().addFolder(outer);
    QCOMPARE(inner, store.at({0, 0}));
    QCOMPARE(store.names(outer), (QStringList{QStringLiteral("New Folder"), group}));
    QCOMPARE(store.names(), words("outer second"));
    QCOMPARE(store.orders(QStringLiteral("1")),
             (QStringList{QStringLiteral("New Folder 0"), group + QStringLiteral(" 1")}));
    QCOMPARE(store.orders(QStringLiteral("NULL")),
             (QStringList{QStringLiteral("outer 0"), QStringLiteral("second 1")}));
}

void TestBookmarkChanges::aFolderIsNotAddedBelowABookmark()
{
    BookmarkStore store;
    store.check();
    store.model().addBookmarks({group}, store.addFolder(QStringLiteral("f")));
    const QVector<BookmarkRow> before = store.rows();
    QSignalSpy inserted(&store.model(), &QAbstractItemModel::rowsInserted);
    QVERIFY(!store.model().addFolder(store.at({0, 0})).isValid());
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(store.rows(), before);
}

void TestBookmarkChanges::bookmarksGoFirstIntoAFolder()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("c"), folder);
    QSignalSpy inserted(&store.model(), &QAbstractItemModel::rowsInserted);
    store.model().addBookmarks(words("a b"), folder);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted.first().mid(1), (QVariantList{0, 1}));
    QCOMPARE(store.names(folder), words("a b c"));
    QCOMPARE(store.orders(QStringLiteral("1")),
             (QStringList{QStringLiteral("a 0"), QStringLiteral("b 1"), QStringLiteral("c 2")}));
}

void TestBookmarkChanges::bookmarksGoBehindTheChosenOne()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("a b c d"), folder);
    QSignalSpy inserted(&store.model(), &QAbstractItemModel::rowsInserted);
    store.model().addBookmarks(words("x y"), store.at({0, 2}));
    QCOMPARE(inserted.first().at(0).toModelIndex(), folder);
    QCOMPARE(inserted.first().mid(1), (QVariantList{3, 4}));
    QCOMPARE(store.names(folder), words("a b c x y d"));
}

void TestBookmarkChanges::bookmarksBesideOneAtTheTopAreNotAdded()
{
    BookmarkStore store;
    store.model().addBookmarks(words("top"), QModelIndex());
    store.check();
    const QVector<BookmarkRow> before = store.rows();
    store.model().addBookmarks(words("x"), store.at({0}));
    QCOMPARE(store.rows(), before);
    QCOMPARE(store.names(), words("top"));
}

// No model tester here: it objects to announcing the first rows and adding the last ones.
void TestBookmarkChanges::bookmarksAtTheTopAreAnnouncedFirstAndAppended()
{
    BookmarkStore store;
    store.addFolder(QStringLiteral("f"));
    QSignalSpy inserted(&store.model(), &QAbstractItemModel::rowsInserted);
    store.model().addBookmarks(words("x y"), QModelIndex());
    QCOMPARE(inserted.count(), 1);
    QVERIFY(!inserted.first().at(0).toModelIndex().isValid());
    QCOMPARE(inserted.first().mid(1), (QVariantList{0, 1}));
    QCOMPARE(store.names(), words("f x y"));
    QCOMPARE(store.orders(QStringLiteral("NULL")),
             (QStringList{QStringLiteral("f 0"), QStringLiteral("x 1"), QStringLiteral("y 2")}));
}

void TestBookmarkChanges::noBookmarksAreNotAnnounced()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    QSignalSpy inserted(&store.model(), &QAbstractItemModel::rowsAboutToBeInserted);
    store.model().addBookmarks({}, folder);
    store.model().addBookmarks({}, QModelIndex());
    QCOMPARE(inserted.count(), 0);
}

void TestBookmarkChanges::aNewsgroupMayBeBookmarkedTwice()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks({group, group}, folder);
    QCOMPARE(store.names(folder), (QStringList{group, group}));
    QCOMPARE(store.model().provider()->bookmarkedNewsgroups().count(group), 2);
    store.model().removeBookmark(store.at({0, 0}));
    QVERIFY(store.model().provider()->isBookmarked(group));
}

void TestBookmarkChanges::removingAFolderRemovesWhatIsInIt()
{
    BookmarkStore store;
    store.check();
    store.addFolder(QStringLiteral("stays"));
    const QModelIndex outer = store.addFolder(QStringLiteral("outer"));
    store.addFolder(QStringLiteral("inner"), outer);
    store.model().addBookmarks(words("deep"), store.at({1, 0}));
    QSignalSpy removed(&store.model(), &QAbstractItemModel::rowsRemoved);
    store.model().removeBookmark(outer);
    QCOMPARE(removed.count(), 1);
    QCOMPARE(store.names(), words("stays"));
    QCOMPARE(store.rows().size(), 1);
    QVERIFY(!store.model().provider()->isBookmarked(QStringLiteral("deep")));
}

void TestBookmarkChanges::aRemovedFolderIsNoNewsgroup()
{
    BookmarkStore store;
    store.check();
    store.model().addBookmarks({group}, store.addFolder(QStringLiteral("f")));
    QSignalSpy removed(store.model().provider(), &BookmarkProvider::bookmarkRemoved);
    store.model().removeBookmark(store.addFolder(group));
    QCOMPARE(removed.count(), 0);
    QVERIFY(store.model().provider()->isBookmarked(group));
}

void TestBookmarkChanges::removingNothingDoesNothing()
{
    BookmarkStore store;
    store.check();
    store.addFolder(QStringLiteral("stays"));
    QSignalSpy removed(&store.model(), &QAbstractItemModel::rowsAboutToBeRemoved);
    store.model().removeBookmark(QModelIndex());
    QCOMPARE(removed.count(), 0);
    QCOMPARE(store.names(), words("stays"));
}

void TestBookmarkChanges::aRefusedColourStillSavesAndTells()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().setItemColor(folder, QStringLiteral("red"));
    store.execute(QStringLiteral("UPDATE bookmarks SET bookmark_name='changed behind its back'"));
    QSignalSpy changed(&store.model(), &QAbstractItemModel::dataChanged);
    store.model().setItemColor(folder, QStringLiteral("purple"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(0).toModelIndex(), folder);
    QCOMPARE(changed.first().at(1).toModelIndex(), folder);
    QVERIFY(changed.first().at(2).value<QVector<int>>().isEmpty());
    QCOMPARE(store.rows().first().at(2), QStringLiteral("f"));
    QCOMPARE(store.rows().first().at(4), QStringLiteral("red"));
    store.model().setItemColor(QModelIndex(), QStringLiteral("blue"));
    QCOMPARE(changed.count(), 1);
}

void TestBookmarkChanges::bookmarksAreColouredLikeFolders()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks({group}, folder);
    QCOMPARE(store.rows().at(1).at(4), QStringLiteral("NULL"));
    store.model().setItemColor(store.at({0, 0}), QStringLiteral("Orange"));
    QCOMPARE(store.rows().at(1).at(4), QStringLiteral("orange"));
    store.model().setItemColor(store.at({0, 0}), QStringLiteral(""));
    QCOMPARE(store.rows().at(1).at(4), QString(QLatin1String("")));
}

void TestBookmarkChanges::onlyFoldersAreExpandedAndNobodyIsTold()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks({group}, folder);
    QSignalSpy changed(&store.model(), &QAbstractItemModel::dataChanged);
    store.model().setFolderExpanded(folder, true);
    store.model().setFolderExpanded(store.at({0, 0}), true);
    store.model().setFolderExpanded(QModelIndex(), true);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(store.rows().at(0).at(5), QStringLiteral("1"));
    QCOMPARE(store.rows().at(1).at(5), QStringLiteral("0"));
    QVERIFY(!store.model().itemFromIndex(store.at({0, 0}))->isExpanded());
    store.model().setFolderExpanded(folder, false);
    QCOMPARE(store.rows().at(0).at(5), QStringLiteral("0"));
}

void TestBookmarkChanges::expandedFoldersOrElseTheFirstTwo_data()
{
    QTest::addColumn<QVector<int>>("expanded");
    QTest::addColumn<QVector<int>>("shown");
    QTest::newRow("none") << QVector<int>{} << QVector<int>{0, 2};
    QTest::newRow("the last") << QVector<int>{3} << QVector<int>{3};
    QTest::newRow("two") << QVector<int>{2, 3} << QVector<int>{2, 3};
}

void TestBookmarkChanges::expandedFoldersOrElseTheFirstTwo()
{
    QFETCH(QVector<int>, expanded);
    BookmarkStore store;
    store.addFolder(QStringLiteral("a"));
    store.model().addBookmarks({group}, QModelIndex());
    store.addFolder(QStringLiteral("b"));
    store.addFolder(QStringLiteral("c"));
    store.check();
    for (const int row : expanded)
        store.model().setFolderExpanded(store.at({row}), true);
    QVector<int> shown;
    const QModelIndexList indexes = store.model().expandedFolderIndexes();
    for (const QModelIndex &index : indexes)
        shown.append(index.row());
    QTEST(shown, "shown");
}

void TestBookmarkChanges::nestedFoldersDoNotCountAsExpanded()
{
    BookmarkStore store;
    store.check();
    QVERIFY(store.model().expandedFolderIndexes().isEmpty());
    const QModelIndex outer = store.addFolder(QStringLiteral("outer"));
    store.model().setFolderExpanded(store.addFolder(QStringLiteral("inner"), outer), true);
    QCOMPARE(store.model().expandedFolderIndexes(), QModelIndexList{outer});
}

void TestBookmarkChanges::anImportAppendsFolders()
{
    BookmarkStore store;
    store.check();
    store.addFolder(QStringLiteral("old"));
    store.model().addBookmarks(words("own"), store.at({0}));
    const auto received = receivedFolder(QStringLiteral("News"), words("x y x"));
    auto *nested = new BookmarkItem(BookmarkKind::Folder, received.get());
    nested->setName(QStringLiteral("nested"));
    received->insertChild(1, nested);
    BookmarkItem bare(BookmarkKind::Bookmark, nullptr);
    bare.setName(QStringLiteral("bare"));
    QSignalSpy reset(&store.model(), &QAbstractItemModel::modelReset);
    store.model().importFolders({&bare, received.get()});
    QCOMPARE(reset.count(), 1);
    QCOMPARE(store.names(), words("old News"));
    QCOMPARE(store.names(store.at({1})), words("x y x"));
    QCOMPARE(store.orders(QStringLiteral("3")),
             (QStringList{QStringLiteral("x 0"), QStringLiteral("y 1"), QStringLiteral("x 2")}));
    QCOMPARE(store.orders(QStringLiteral("NULL")),
             (QStringList{QStringLiteral("old 0"), QStringLiteral("News 1")}));
    QCOMPARE(store.rows().at(2).mid(4),
             (QStringList{QStringLiteral("NULL"), QStringLiteral("0"), QStringLiteral("1")}));
    QCOMPARE(store.model().provider()->bookmarkedNewsgroups(), words("x y x"));
    store.model().importFolders({});
    QCOMPARE(reset.count(), 1);
}

void TestBookmarkChanges::anImportIsOneTransaction()
{
    BookmarkStore store;
    const auto first = receivedFolder(QStringLiteral("A"), words("x y"));
    const auto second = receivedFolder(QStringLiteral("B"), {});
    StatementLog log;
    store.model().importFolders({first.get(), second.get()});
    const auto insert = [](const char *values) {
        return QStringLiteral("INSERT INTO bookmarks (parent_id, bookmark_name, bookmark_newsgroup, "
                              "bookmark_color, bookmark_expanded, bookmark_order)  VALUES (%1, NULL, 0, -1)")
            .arg(QString::fromLatin1(values));
    };
    const auto place = [](int order, int id) {
        return QStringLiteral("UPDATE bookmarks SET bookmark_order=%1 WHERE bookmark_id=%2")
            .arg(order)
            .arg(id);
    };
    QCOMPARE(log.take(),
             (QStringList{QStringLiteral("BEGIN TRANSACTION"), insert("NULL, 'A', NULL"), place(0, 1),
                          insert("1, NULL, 'x'"), place(0, 2), insert("1, NULL, 'y'"), place(1, 3),
                          insert("NULL, 'B', NULL"), place(1, 4), QStringLiteral("COMMIT TRANSACTION")}));
}

void TestBookmarkChanges::anImportIsToldWithinTheReset()
{
    BookmarkStore store;
    QStringList events;
    const auto note = [&events](const char *what) {
        return [&events, what] {
            const bool isStored = sqlite3_get_autocommit(BookmarkStore::handle()) != 0;
            events.append(QLatin1String(what) +
                          (isStored ? QString() : QStringLiteral(" before the commit")));
        };
    };
    connect(&store.model(), &QAbstractItemModel::modelAboutToBeReset, this, note("resetting"));
    connect(store.model().provider(), &BookmarkProvider::bookmarksChanged, this, note("told"));
    connect(&store.model(), &QAbstractItemModel::modelReset, this, note("reset"));
    store.model().importFolders({receivedFolder(QStringLiteral("A"), words("x")).get()});
    QCOMPARE(events, (QStringList{QStringLiteral("resetting before the commit"), QStringLiteral("told"),
                                  QStringLiteral("reset")}));
}

void TestBookmarkChanges::whatWasImportedIsNotReadAgain()
{
    BookmarkStore store;
    store.model().importFolders({receivedFolder(QStringLiteral("A"), words("x")).get(),
                                 receivedFolder(QStringLiteral("B"), {}).get()});
    StatementLog log;
    QCOMPARE(store.names(store.at({0})), words("x"));
    QCOMPARE(store.model().rowCount(store.at({0, 0})), 0);
    QCOMPARE(store.model().rowCount(store.at({1})), 0);
    QCOMPARE(log.take(), QStringList());
}

QTEST_MAIN(TestBookmarkChanges)
#include "tst_bookmarkchanges.moc"
