// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "statementlog.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/cvbookmarkprovider.h"

#include <QDataStream>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

const QString newsgroupType = QStringLiteral("application/x-halvora.plain.newsgroup");
const QString bookmarkType = QStringLiteral("application/x-corvia.bookmark");

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList rows(const char *text)
{
    return QString::fromLatin1(text).split(QStringLiteral(", "), Qt::SkipEmptyParts);
}

std::unique_ptr<QMimeData> newsgroups(const QStringList &names)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QString &name : names)
        stream << name;
    auto data = std::make_unique<QMimeData>();
    data->setData(newsgroupType, bytes);
    return data;
}

/// A payload of one record without children.
std::unique_ptr<QMimeData> record(qint32 mark, qint64 id, qint64 parentId, const QString &name)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(1) << mark << qint32(0) << id << parentId << name << qint32(0);
    auto data = std::make_unique<QMimeData>();
    data->setData(bookmarkType, bytes);
    return data;
}

const QString top = QStringLiteral("NULL");

} // namespace

class TestBookmarkDragDrop : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theFormatsAndActionsAreTheAgreedOnes();
    void aDragHoldsEachChosenItemWithItsLoadedTree();
    void aDragLoadsTheChildrenOfWhatIsChosen();
    void dropsAreTakenOnlyInFolders();
    void aNewsgroupIsRefusedWhereItIsBookmarked();
    void recordsAreTakenOnlyAsAMove();
    void reorderingIsAlwaysAllowed();
    void aNameThatIsThereIsRefused();
    void anEmptyOrNegativeNumberOfRecordsIsAllowed_data();
    void anEmptyOrNegativeNumberOfRecordsIsAllowed();
    void aForeignMarkIsReadAllTheSame();
    void aFreshBookmarkIsRefusedInItsOwnFolder();
    void newsgroupsBecomeTheLastBookmarks();
    void newsgroupsAreInsertedAtARow();
    void newsgroupsMayBeDroppedAtTheTop();
    void noNewsgroupsAreTakenAndNotAnnounced();
    void anIgnoredDropIsTaken();
    void dropsAreRefused_data();
    void dropsAreRefused();
    void aMoveWithinAFolderLeavesTheLaterPlace();
    void aMoveFromTheTopLeavesThePlaceOfTheOldItem();
    void aWriteBetweenDropAndRemovalPutsTheMovedRowRight();
    void aMoveBetweenFoldersLeavesAGap();
    void aMovedFolderKeepsWhatIsInIt();
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

void TestBookmarkDragDrop::theFormatsAndActionsAreTheAgreedOnes()
{
    BookmarkStore store;
    QCOMPARE(store.model().mimeTypes(), (QStringList{newsgroupType, bookmarkType}));
    QCOMPARE(store.model().supportedDragActions(), Qt::DropActions(Qt::MoveAction));
    QCOMPARE(store.model().supportedDropActions(), Qt::CopyAction | Qt::MoveAction);
}

void TestBookmarkDragDrop::aDragHoldsEachChosenItemWithItsLoadedTree()
{
    BookmarkStore store;
    store.check();
    const QModelIndex outer = store.addFolder(QStringLiteral("o"));
    store.model().addBookmarks(words("b"), outer);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({outer, QModelIndex(), store.at({0, 0})}));
    QCOMPARE(data->formats(), QStringList{bookmarkType});
    const QByteArray expected = QByteArray::fromHex("00000002"
                                                    "a0b0c0d0" // the folder
                                                    "00000001"
                                                    "0000000000000001"
                                                    "ffffffffffffffff"
                                                    "00000002006f"
                                                    "00000001"
                                                    "a0b0c0d0" // the bookmark within it
                                                    "00000000"
                                                    "0000000000000002"
                                                    "ffffffffffffffff"
                                                    "000000020062"
                                                    "00000000"
                                                    "a0b0c0d0" // and once more on its own
                                                    "00000000"
                                                    "0000000000000002"
                                                    "ffffffffffffffff"
                                                    "000000020062"
                                                    "00000000");
    QCOMPARE(data->data(bookmarkType).toHex(), expected.toHex());
}

void TestBookmarkDragDrop::aDragLoadsTheChildrenOfWhatIsChosen()
{
    BookmarkStore store;
    const QModelIndex outer = store.addFolder(QStringLiteral("o"));
    const QModelIndex inner = store.addFolder(QStringLiteral("i"), outer);
    store.model().addBookmarks(words("b"), inner);
    const auto recordsOf = [&store] {
        const std::unique_ptr<QMimeData> data(store.model().mimeData({store.model().index(0, 0)}));
        return data->data(bookmarkType).count(QByteArray::fromHex("a0b0c0d0"));
    };
    QCOMPARE(recordsOf(), 3);
    store.model().load();
    QCOMPARE(recordsOf(), 2); // what is in the inner folder was not read
    store.names(store.at({0, 0}));
    QCOMPARE(recordsOf(), 3);
}

void TestBookmarkDragDrop::dropsAreTakenOnlyInFolders()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("b"), folder);
    const auto data = newsgroups(words("x"));
    const CVBookmarkManager &model = store.model();
    QVERIFY(model.canDropMimeData(data.get(), Qt::CopyAction, -1, -1, folder));
    QVERIFY(model.canDropMimeData(data.get(), Qt::MoveAction, 0, 0, folder));
    QVERIFY(model.canDropMimeData(data.get(), Qt::LinkAction, 0, 0, folder));
    QVERIFY(!model.canDropMimeData(data.get(), Qt::CopyAction, 0, 1, folder));
    QVERIFY(!model.canDropMimeData(data.get(), Qt::CopyAction, -1, -1, QModelIndex()));
    QVERIFY(!model.canDropMimeData(data.get(), Qt::CopyAction, 1, 0, QModelIndex()));
    QVERIFY(!model.canDropMimeData(data.get(), Qt::CopyAction, -1, -1, store.at({0, 0})));
}

void TestBookmarkDragDrop::aNewsgroupIsRefusedWhereItIsBookmarked()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    const QModelIndex other = store.addFolder(QStringLiteral("g"));
    store.model().addBookmarks(words("b"), folder);
    const auto data = newsgroups(words("a b"));
    QVERIFY(!store.model().canDropMimeData(data.get(), Qt::CopyAction, -1, -1, folder));
    QVERIFY(store.model().canDropMimeData(data.get(), Qt::CopyAction, -1, -1, other));
    store.model().dropMimeData(data.get(), Qt::CopyAction, -1, -1, other);
    QVERIFY(!store.model().canDropMimeData(data.get(), Qt::CopyAction, -1, -1, other));
}

void TestBookmarkDragDrop::recordsAreTakenOnlyAsAMove()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    const auto data = record(-1599029040, 9, -1, QStringLiteral("x"));
    QVERIFY(store.model().canDropMimeData(data.get(), Qt::MoveAction, -1, -1, folder));
    QVERIFY(!store.model().canDropMimeData(data.get(), Qt::CopyAction, -1, -1, folder));
    QMimeData text;
    text.setText(QStringLiteral("alt.test"));
    QVERIFY(!store.model().canDropMimeData(&text, Qt::MoveAction, -1, -1, folder));
}

void TestBookmarkDragDrop::reorderingIsAlwaysAllowed()
{
    BookmarkStore store;
    store.check();
    store.model().addBookmarks(words("a b"), store.addFolder(QStringLiteral("f")));
    store.model().load();
    const std::unique_ptr<QMimeData> data(store.model().mimeData({store.at({0, 0}), store.at({0, 1})}));
    QVERIFY(store.model().canDropMimeData(data.get(), Qt::MoveAction, 0, 0, store.at({0})));
}

void TestBookmarkDragDrop::aNameThatIsThereIsRefused()
{
    BookmarkStore store;
    store.check();
    const QModelIndex misc = store.addFolder(QStringLiteral("Misc"));
    const QModelIndex target = store.addFolder(QStringLiteral("target"));
    const std::unique_ptr<QMimeData> data(store.model().mimeData({misc}));
    QVERIFY(store.model().canDropMimeData(data.get(), Qt::MoveAction, -1, -1, target));
    store.addFolder(QStringLiteral("Misc"), target);
    QVERIFY(!store.model().canDropMimeData(data.get(), Qt::MoveAction, -1, -1, target));
}

void TestBookmarkDragDrop::anEmptyOrNegativeNumberOfRecordsIsAllowed_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("none") << QByteArray::fromHex("00000000");
    QTest::newRow("negative") << QByteArray::fromHex("80000000");
    QTest::newRow("no data") << QByteArray();
}

void TestBookmarkDragDrop::anEmptyOrNegativeNumberOfRecordsIsAllowed()
{
    QFETCH(QByteArray, payload);
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    QMimeData data;
    data.setData(bookmarkType, payload);
    QVERIFY(store.model().canDropMimeData(&data, Qt::MoveAction, -1, -1, folder));
    QVERIFY(!store.model().dropMimeData(&data, Qt::MoveAction, -1, -1, folder));
}

void TestBookmarkDragDrop::aForeignMarkIsReadAllTheSame()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.addFolder(QStringLiteral("g"));
    const auto data = record(4711, 2, -1, QStringLiteral("g"));
    QVERIFY(store.model().canDropMimeData(data.get(), Qt::MoveAction, -1, -1, folder));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, folder));
    QCOMPARE(store.names(folder), words("g"));
}

// What was not read since it was added has no parent that a drag could tell.
void TestBookmarkDragDrop::aFreshBookmarkIsRefusedInItsOwnFolder()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("a"), folder);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({store.at({0, 0})}));
    QVERIFY(!store.model().canDropMimeData(data.get(), Qt::MoveAction, -1, -1, folder));
}

void TestBookmarkDragDrop::newsgroupsBecomeTheLastBookmarks()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("a"), folder);
    QSignalSpy added(store.model().provider(), &BookmarkProvider::bookmarkAdded);
    QSignalSpy inserted(&store.model(), &QAbstractItemModel::rowsInserted);
    QVERIFY(store.model().dropMimeData(newsgroups(words("y x")).get(), Qt::CopyAction, -1, -1, folder));
    QCOMPARE(store.names(folder), words("a y x"));
    QCOMPARE(store.orders(QStringLiteral("1")), rows("a 0, y 1, x 2"));
    QCOMPARE(added.count(), 2);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted.first().mid(1), (QVariantList{1, 2}));
}

void TestBookmarkDragDrop::newsgroupsAreInsertedAtARow()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("a b"), folder);
    QVERIFY(store.model().dropMimeData(newsgroups(words("x y")).get(), Qt::MoveAction, 1, 0, folder));
    QCOMPARE(store.names(folder), words("a x y b"));
}

void TestBookmarkDragDrop::newsgroupsMayBeDroppedAtTheTop()
{
    BookmarkStore store;
    store.check();
    store.addFolder(QStringLiteral("f"));
    store.addFolder(QStringLiteral("g"));
    QVERIFY(store.model().dropMimeData(newsgroups(words("x")).get(), Qt::CopyAction, 1, 0, QModelIndex()));
    QCOMPARE(store.names(), words("f x g"));
    QCOMPARE(store.orders(top), rows("f 0, x 1, g 2"));
}

void TestBookmarkDragDrop::noNewsgroupsAreTakenAndNotAnnounced()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    QSignalSpy inserted(&store.model(), &QAbstractItemModel::rowsAboutToBeInserted);
    QVERIFY(store.model().dropMimeData(newsgroups({}).get(), Qt::CopyAction, -1, -1, folder));
    QCOMPARE(inserted.count(), 0);
}

void TestBookmarkDragDrop::anIgnoredDropIsTaken()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().addBookmarks(words("b"), folder);
    for (const QModelIndex &parent : {folder, QModelIndex(store.at({0, 0}))})
        QVERIFY(store.model().dropMimeData(newsgroups(words("x")).get(), Qt::IgnoreAction, -1, 5, parent));
    QCOMPARE(store.rows().size(), 2);
}

void TestBookmarkDragDrop::dropsAreRefused_data()
{
    QTest::addColumn<bool>("records");
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QVector<int>>("parent");
    QTest::newRow("beside the column") << false << int(Qt::CopyAction) << 0 << 1 << QVector<int>{0};
    QTest::newRow("on a bookmark") << false << int(Qt::CopyAction) << -1 << -1 << QVector<int>{0, 0};
    QTest::newRow("records as a copy") << true << int(Qt::CopyAction) << -1 << -1 << QVector<int>{0};
    QTest::newRow("records on a bookmark") << true << int(Qt::MoveAction) << -1 << -1 << QVector<int>{0, 0};
    QTest::newRow("behind the end") << false << int(Qt::CopyAction) << 2 << 0 << QVector<int>{0};
    QTest::newRow("before the start") << false << int(Qt::CopyAction) << -2 << 0 << QVector<int>{0};
    QTest::newRow("records behind the end") << true << int(Qt::MoveAction) << 7 << 0 << QVector<int>{};
}

void TestBookmarkDragDrop::dropsAreRefused()
{
    QFETCH(bool, records);
    QFETCH(int, action);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QVector<int>, parent);
    BookmarkStore store;
    store.check();
    store.model().addBookmarks(words("b"), store.addFolder(QStringLiteral("f")));
    const auto data = records ? record(-1599029040, 2, 1, QStringLiteral("b")) : newsgroups(words("x"));
    const QVector<BookmarkRow> before = store.rows();
    QSignalSpy inserted(&store.model(), &QAbstractItemModel::rowsAboutToBeInserted);
    QVERIFY(!store.model().dropMimeData(data.get(), Qt::DropAction(action), row, column, store.at(parent)));
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(store.rows(), before);
}

// Until the view removes the old item, both stand for the row, and the later one is written last.
void TestBookmarkDragDrop::aMoveWithinAFolderLeavesTheLaterPlace()
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

void TestBookmarkDragDrop::aMoveFromTheTopLeavesThePlaceOfTheOldItem()
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

void TestBookmarkDragDrop::aWriteBetweenDropAndRemovalPutsTheMovedRowRight()
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

void TestBookmarkDragDrop::aMoveBetweenFoldersLeavesAGap()
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

void TestBookmarkDragDrop::aMovedFolderKeepsWhatIsInIt()
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

void TestBookmarkDragDrop::rowsThatAreGoneAreSkipped()
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

void TestBookmarkDragDrop::aDropTakesOnlyTheIdFromTheRecord()
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

void TestBookmarkDragDrop::eachMovedItemIsWrittenWithTargetAndTop()
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

void TestBookmarkDragDrop::theParentThatADragTellsIsTheOneLastRead()
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

void TestBookmarkDragDrop::aDropIsThreeTransactionsForEachItem()
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

void TestBookmarkDragDrop::aFolderDroppedIntoItselfIsNotRefusedAndHarmsNothing_data()
{
    QTest::addColumn<QVector<int>>("target");
    QTest::newRow("itself") << QVector<int>{1};
    QTest::newRow("a folder in it") << QVector<int>{1, 0};
    QTest::newRow("a folder in that") << QVector<int>{1, 0, 0};
}

// It is for the view not to let that happen: what was dropped so is out of reach with the next start.
void TestBookmarkDragDrop::aFolderDroppedIntoItselfIsNotRefusedAndHarmsNothing()
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

void TestBookmarkDragDrop::insertingIntoAFolderThatWasNeverOpenedDoublesNothing_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("a new folder") << 0;
    QTest::newRow("bookmarks") << 1;
    QTest::newRow("dropped newsgroups") << 2;
    QTest::newRow("dropped records") << 3;
}

void TestBookmarkDragDrop::insertingIntoAFolderThatWasNeverOpenedDoublesNothing()
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

QTEST_MAIN(TestBookmarkDragDrop)
#include "tst_bookmarkdragdrop.moc"
