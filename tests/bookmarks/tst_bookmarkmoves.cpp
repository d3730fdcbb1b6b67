// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "dragdata.h"
#include "statementlog.h"
#include "words.h"

#include "bookmarks/bookmarkitem.h"

#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

using dragdata::newsgroups;
using dragdata::record;

const QString top = QStringLiteral("NULL");

} // namespace

class TestBookmarkMoves : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aMoveWithinAFolderLeavesTheLaterPlace();
    void aMoveFromTheTopLeavesThePlaceOfTheOldItem();
    void aWriteBetweenDropAndRemovalPutsTheMovedRowRight();
    void aMoveBetweenFoldersLeavesAGap();
    void aMovedFolderKeepsWhatIsInIt();
    void bookmarksMayBeDroppedAtTheTop();
    void rowsThatAreGoneAreSkipped();
    void aDropTakesOnlyTheIdFromTheRecord();
    void eachMovedItemIsWrittenWithTargetAndTop();
    void theParentThatADragTellsIsTheOneLastRead();
    void aDropIsThreeTransactionsForEachItem();
    void aFolderDroppedIntoItselfIsNotRefusedAndHarmsNothing_data();
    void aFolderDroppedIntoItselfIsNotRefusedAndHarmsNothing();
    void insertingIntoAFolderThatWasNeverOpenedDoublesNothing_data();
    void insertingIntoAFolderThatWasNeverOpenedDoublesNothing();
};

// Until the view removes the old item, both stand for the row, and the later one is written last.
void TestBookmarkMoves::aMoveWithinAFolderLeavesTheLaterPlace()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("A C D"), folder);
    store.addFolder(QStringLiteral("New Folder"), folder);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({store.at({0, 3})}));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, 0, 0, folder));
    QVERIFY(store.model().removeRows(4, 1, folder));
    QCOMPARE(store.names(folder), (QStringList{QStringLiteral("D"), QStringLiteral("New Folder"),
                                               QStringLiteral("A"), QStringLiteral("C")}));
    QCOMPARE(store.orders(QStringLiteral("1")), rows("New Folder 1, A 2, C 3, D 4"));
    store.model().setItemColor(store.at({0, 0}), QStringLiteral("red"));
    QCOMPARE(store.orders(QStringLiteral("1")), rows("D 0, New Folder 1, A 2, C 3"));
}

void TestBookmarkMoves::aMoveFromTheTopLeavesThePlaceOfTheOldItem()
{
    BookmarkStore store;
    store.check();
    const QModelIndex target = store.addFolder(QStringLiteral("target"));
    const QModelIndex moved = store.addFolder(QStringLiteral("moved"));
    store.model().addBookmarks(words("A C D"), target);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({moved}));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, target));
    QVERIFY(store.model().removeRows(1, 1));
    QCOMPARE(store.names(target), words("A C D moved"));
    QCOMPARE(store.orders(QStringLiteral("1")), rows("A 0, moved 1, C 1, D 2"));
    store.model().setItemColor(store.at({0, 0}), QStringLiteral("red"));
    QCOMPARE(store.orders(QStringLiteral("1")), rows("A 0, C 1, D 2, moved 3"));
}

void TestBookmarkMoves::aWriteBetweenDropAndRemovalPutsTheMovedRowRight()
{
    BookmarkStore store;
    store.check();
    const QModelIndex target = store.addFolder(QStringLiteral("target"));
    const QModelIndex moved = store.addFolder(QStringLiteral("moved"));
    store.model().addBookmarks(words("A C D"), target);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({moved}));
    store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, target);
    store.model().dropMimeData(newsgroups(words("x")).get(), Qt::CopyAction, -1, -1, target);
    QCOMPARE(store.orders(QStringLiteral("1")), rows("A 0, C 1, D 2, moved 3, x 4"));
    store.model().addFolder(QModelIndex());
    QCOMPARE(store.orders(QStringLiteral("1")), rows("A 0, moved 1, C 1, D 2, x 4"));
}

void TestBookmarkMoves::aMoveBetweenFoldersLeavesAGap()
{
    BookmarkStore store;
    store.check();
    const QModelIndex source = store.addFolder(QStringLiteral("s"));
    const QModelIndex target = store.addFolder(QStringLiteral("t"));
    store.model().addBookmarks(words("a b c"), source);
    store.model().addBookmarks(words("x y"), target);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({store.at({0, 1})}));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, 1, 0, target));
    QVERIFY(store.model().removeRows(1, 1, source));
    QCOMPARE(store.names(target), words("x b y"));
    QCOMPARE(store.orders(QStringLiteral("1")), rows("a 0, c 2"));
    QCOMPARE(store.orders(QStringLiteral("2")), rows("x 0, b 1, y 2"));
}

void TestBookmarkMoves::aMovedFolderKeepsWhatIsInIt()
{
    BookmarkStore store;
    store.check();
    const QModelIndex moved = store.addFolder(QStringLiteral("moved"));
    const QModelIndex target = store.addFolder(QStringLiteral("target"));
    store.model().addBookmarks(words("a b"), moved);
    store.model().setItemColor(moved, QStringLiteral("red"));
    store.model().setFolderExpanded(moved, true);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({moved}));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, target));
    QVERIFY(store.model().removeRows(0, 1));
    const QModelIndex now = store.at({0, 0});
    QCOMPARE(store.names(now), words("a b"));
    QCOMPARE(store.model().itemFromIndex(now)->color(), QStringLiteral("red"));
    QVERIFY(store.model().itemFromIndex(now)->isExpanded());
    store.model().load();
    QCOMPARE(store.names(store.at({0, 0})), words("a b"));
}

// No view lets that happen, as the model says beforehand that it takes nothing there.
void TestBookmarkMoves::bookmarksMayBeDroppedAtTheTop()
{
    BookmarkStore store;
    store.check();
    const QModelIndex source = store.addFolder(QStringLiteral("s"));
    store.addFolder(QStringLiteral("t"));
    store.model().addBookmarks(words("a b"), source);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({store.at({0, 0})}));
    QVERIFY(!store.model().canDropMimeData(data.get(), Qt::MoveAction, 1, 0, QModelIndex()));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, 1, 0, QModelIndex()));
    QVERIFY(store.model().removeRows(0, 1, store.at({0})));
    QCOMPARE(store.names(), words("s a t"));
    QCOMPARE(store.orders(top), rows("s 0, a 1, t 2"));
    QCOMPARE(store.names(store.at({0})), words("b"));
    QVERIFY(!store.model().itemFromIndex(store.at({1}))->parent());
}

void TestBookmarkMoves::rowsThatAreGoneAreSkipped()
{
    BookmarkStore store;
    store.check();
    const QModelIndex source = store.addFolder(QStringLiteral("s"));
    const QModelIndex target = store.addFolder(QStringLiteral("t"));
    store.model().addBookmarks(words("a b"), source);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({store.at({0, 0}), store.at({0, 1})}));
    store.model().removeBookmark(store.at({0, 0}));
    QSignalSpy inserted(&store.model(), &QAbstractItemModel::rowsInserted);
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, target));
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(store.names(target), words("b"));
    store.model().removeRows(0, 1, source);
    store.model().removeBookmark(store.at({1, 0}));
    QVERIFY(!store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, target));
    QCOMPARE(inserted.count(), 1);
}

void TestBookmarkMoves::aDropTakesOnlyTheIdFromTheRecord()
{
    BookmarkStore store;
    store.check();
    const QModelIndex target = store.addFolder(QStringLiteral("t"));
    store.addFolder(QStringLiteral("true name"));
    const auto data = record(-1599029040, 2, 77, QStringLiteral("false name"));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, target));
    QCOMPARE(store.names(target), QStringList{QStringLiteral("true name")});
    QVERIFY(store.model().itemFromIndex(store.at({0, 0}))->isFolder());
}

void TestBookmarkMoves::eachMovedItemIsWrittenWithTargetAndTop()
{
    BookmarkStore store;
    store.check();
    for (const char *name : {"target", "gap", "x", "y"})
        store.addFolder(QString::fromLatin1(name));
    const std::unique_ptr<QMimeData> data(store.model().mimeData({store.at({2}), store.at({3})}));
    store.model().removeBookmark(store.at({1}));
    QCOMPARE(store.orders(top), rows("target 0, x 2, y 3"));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, 0, 0, store.at({0})));
    QCOMPARE(store.names(store.at({0})), words("x y"));
    // the gap at the top has closed, and it is the top's places that the moved rows have
    QCOMPARE(store.orders(QStringLiteral("1")), rows("x 1, y 2"));
}

void TestBookmarkMoves::theParentThatADragTellsIsTheOneLastRead()
{
    BookmarkStore store;
    store.check();
    const QModelIndex source = store.addFolder(QStringLiteral("s"));
    store.addFolder(QStringLiteral("t"));
    store.model().addBookmarks(words("a"), source);
    store.model().load();
    const std::unique_ptr<QMimeData> data(store.model().mimeData({store.at({0, 0})}));
    store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, store.at({1}));
    store.model().removeRows(0, 1, store.at({0}));
    QCOMPARE(store.model().itemFromIndex(store.at({1, 0}))->parentId(), 1);
    const std::unique_ptr<QMimeData> again(store.model().mimeData({store.at({1, 0})}));
    QVERIFY(!store.model().canDropMimeData(again.get(), Qt::MoveAction, -1, -1, store.at({1})));
    store.model().load();
    QCOMPARE(store.model().itemFromIndex(store.at({1, 0}))->parentId(), 2);
}

void TestBookmarkMoves::aDropIsThreeTransactionsForEachItem()
{
    BookmarkStore store;
    const QModelIndex target = store.addFolder(QStringLiteral("target"));
    const QModelIndex moved = store.addFolder(QStringLiteral("moved"));
    const std::unique_ptr<QMimeData> data(store.model().mimeData({moved}));
    store.names(target);
    const StatementLog log;
    store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, target);
    const QString begin = QStringLiteral("BEGIN TRANSACTION");
    const QString commit = QStringLiteral("COMMIT TRANSACTION");
    QCOMPARE(
        log.statements(),
        (QStringList{QStringLiteral(
                         "SELECT bookmark_id, parent_id, bookmark_name, bookmark_newsgroup, bookmark_color, "
                         "bookmark_expanded, bookmark_order FROM bookmarks WHERE bookmark_id=2"),
                     begin,
                     QStringLiteral("UPDATE bookmarks SET parent_id=1, bookmark_name='moved', "
                                    "bookmark_newsgroup=NULL, bookmark_color=NULL, bookmark_expanded=0 WHERE "
                                    "bookmark_id=2"),
                     QStringLiteral("UPDATE bookmarks SET bookmark_order=0 WHERE bookmark_id=2"), commit,
                     begin, commit, begin,
                     QStringLiteral("UPDATE bookmarks SET bookmark_order=1 WHERE bookmark_id=2"), commit}));
}

void TestBookmarkMoves::aFolderDroppedIntoItselfIsNotRefusedAndHarmsNothing_data()
{
    QTest::addColumn<QVector<int>>("target");
    QTest::newRow("itself") << QVector<int>{1};
    QTest::newRow("a folder in it") << QVector<int>{1, 0};
    QTest::newRow("a folder in that") << QVector<int>{1, 0, 0};
}

// It is for the view not to let that happen: what was dropped so is out of reach with the next start.
void TestBookmarkMoves::aFolderDroppedIntoItselfIsNotRefusedAndHarmsNothing()
{
    QFETCH(QVector<int>, target);
    BookmarkStore store;
    store.addFolder(QStringLiteral("stays"));
    const QModelIndex moved = store.addFolder(QStringLiteral("moved"));
    store.addFolder(QStringLiteral("deeper"), store.addFolder(QStringLiteral("inner"), moved));
    const std::unique_ptr<QMimeData> data(store.model().mimeData({moved}));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, store.at(target)));
    QVERIFY(store.model().removeRows(1, 1));
    store.addFolder(QStringLiteral("later"));
    QCOMPARE(store.names(), words("stays later"));
    store.model().load();
    QCOMPARE(store.names(), words("stays later"));
    QCOMPARE(store.rows().size(), 5);
}

void TestBookmarkMoves::insertingIntoAFolderThatWasNeverOpenedDoublesNothing_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("a new folder") << 0;
    QTest::newRow("bookmarks") << 1;
    QTest::newRow("dropped newsgroups") << 2;
    QTest::newRow("dropped records") << 3;
}

void TestBookmarkMoves::insertingIntoAFolderThatWasNeverOpenedDoublesNothing()
{
    QFETCH(int, way);
    BookmarkStore store;
    store.model().addBookmarks(words("a b"), store.addFolder(QStringLiteral("f")));
    store.addFolder(QStringLiteral("x"));
    store.model().load();
    const QModelIndex folder = store.model().index(0, 0);
    switch (way) {
    case 0:
        store.model().addFolder(folder);
        store.model().setData(store.model().index(0, 0, folder), QStringLiteral("x"));
        break;
    case 1:
        store.model().addBookmarks(words("x"), folder);
        break;
    case 2:
        store.model().dropMimeData(newsgroups(words("x")).get(), Qt::CopyAction, 0, 0, folder);
        break;
    default:
        store.model().dropMimeData(record(0, 4, -1, QString()).get(), Qt::MoveAction, 0, 0, folder);
        store.model().removeRows(1, 1);
    }
    QCOMPARE(store.names(folder), words("x a b"));
    store.model().renumberChildren(store.model().itemFromIndex(folder));
    QCOMPARE(store.orders(QStringLiteral("1")), rows("x 0, a 1, b 2"));
    store.model().load();
    QCOMPARE(store.names(store.at({0})), words("x a b"));
}

QTEST_MAIN(TestBookmarkMoves)
#include "tst_bookmarkmoves.moc"
