// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "dragdata.h"
#include "words.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/cvbookmarkprovider.h"

#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

using dragdata::newsgroups;
using dragdata::record;

const QString newsgroupType = QStringLiteral("application/x-halvora.plain.newsgroup");
const QString bookmarkType = QStringLiteral("application/x-corvia.bookmark");
const QString top = QStringLiteral("NULL");

} // namespace

class TestBookmarkDragDrop : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void dragsHaveTwoFormatsAndAreMoves();
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
    void newsgroupsGoFirstWhereADragHoldsBoth();
    void noNewsgroupsAreTakenAndNotAnnounced();
    void anIgnoredDropIsTaken();
    void dropsAreRefused_data();
    void dropsAreRefused();
};

void TestBookmarkDragDrop::dragsHaveTwoFormatsAndAreMoves()
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
    QCOMPARE(added.at(0).constFirst().toString(), QStringLiteral("y"));
    QCOMPARE(added.at(1).constFirst().toString(), QStringLiteral("x"));
    QVERIFY(store.model().provider()->isBookmarked(QStringLiteral("x")));
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

void TestBookmarkDragDrop::newsgroupsGoFirstWhereADragHoldsBoth()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.addFolder(QStringLiteral("g"));
    const auto data = record(-1599029040, 2, -1, QStringLiteral("g"));
    data->setData(newsgroupType, newsgroups(words("x"))->data(newsgroupType));
    QVERIFY(store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, folder));
    QCOMPARE(store.names(folder), words("x"));
    QCOMPARE(store.names(), words("f g"));
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

QTEST_MAIN(TestBookmarkDragDrop)
#include "tst_bookmarkdragdrop.moc"
