// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/cvbookmarkprovider.h"

#include <QIcon>
#include <QMetaMethod>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>

namespace {

const QString group = QStringLiteral("alt.binaries.pictures.nature");

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class TestCVBookmarkManager : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void itsMetaObjectIsWhatOthersRelyOn();
    void itIsEmptyUntilTheQueuedLoadRan();
    void itHasOneColumnAndAHeader();
    void anEmptyFolderHasNoIndexInIt();
    void indexesLeadBackToTheirParents();
    void aFolderShowsItsNameAndABookmarkItsTinyOne();
    void eachRoleHasItsAnswer();
    void aFolderShowsTheIconOfItsColour_data();
    void aFolderShowsTheIconOfItsColour();
    void foldersAndBookmarksAllowDifferentThings();
    void otherColumnsShowNothing();
    void renamingStoresAndTells();
    void aBookmarkMayBeRenamedByTheModel();
    void renamingIsRefused_data();
    void renamingIsRefused();
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
    void removingRowsLeavesTheFileAlone();
    void rowsThatThereAreNotAreNotRemoved_data();
    void rowsThatThereAreNotAreNotRemoved();
    void anImportAppendsFoldersInOneTransaction();
    void theConnectorsStateChangesNothingYet();
};

void TestCVBookmarkManager::itsMetaObjectIsWhatOthersRelyOn()
{
    BookmarkStore store;
    QObject *object = &store.model();
    const QMetaObject &meta = CVBookmarkManager::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    QCOMPARE(methods, words("bookmarksRefreshed() bookmarksRequestFinished() load() "
                            "connectorStateChanged(HServer::State)"));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    QVERIFY(QMetaType::isRegistered(QMetaType::type("HServer::State")));
    QCOMPARE(object->qt_metacast("CVBookmarkManager"), static_cast<void *>(&store.model()));
    QCOMPARE(object->qt_metacast("IPrivateData"),
             static_cast<void *>(static_cast<IPrivateData *>(&store.model())));
    QCOMPARE(object->qt_metacast("ISettings"), static_cast<void *>(static_cast<ISettings *>(&store.model())));
    QVERIFY(!object->parent());
}

void TestCVBookmarkManager::itIsEmptyUntilTheQueuedLoadRan()
{
    BookmarkStore store;
    store.addFolder(QStringLiteral("kept"));
    store.close();
    OpenBookmarkManager model(store.plugin());
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    QCOMPARE(model.rowCount(), 0);
    QTRY_COMPARE(reset.count(), 1);
    QCOMPARE(model.rowCount(), 1);
}

void TestCVBookmarkManager::itHasOneColumnAndAHeader()
{
    BookmarkStore store;
    store.check();
    CVBookmarkManager &model = store.model();
    QCOMPARE(model.columnCount(), 1);
    QCOMPARE(model.columnCount(store.addFolder(QStringLiteral("f"))), 1);
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("Name"));
    QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
    QCOMPARE(model.headerData(1, Qt::Horizontal), QVariant(2)); // the base class counts
    QCOMPARE(model.headerData(0, Qt::Vertical), QVariant(1));
}

void TestCVBookmarkManager::anEmptyFolderHasNoIndexInIt()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    QVERIFY(!store.model().index(0, 0, folder).isValid());
    QCOMPARE(store.model().rowCount(folder), 0);
    store.model().addBookmarks({group}, folder);
    const QModelIndex bookmark = store.at({0, 0});
    QVERIFY(!store.model().index(0, 0, bookmark).isValid());
    QCOMPARE(store.model().rowCount(bookmark), 0);
}

void TestCVBookmarkManager::indexesLeadBackToTheirParents()
{
    BookmarkStore store;
    store.check();
    CVBookmarkManager &model = store.model();
    store.addFolder(QStringLiteral("first"));
    const QModelIndex outer = store.addFolder(QStringLiteral("outer"));
    store.addFolder(QStringLiteral("inner"), outer);
    model.addBookmarks({group}, store.at({1, 0}));
    QVERIFY(!model.parent(outer).isValid());
    QVERIFY(!model.parent(QModelIndex()).isValid());
    QCOMPARE(model.parent(store.at({1, 0, 0})), store.at({1, 0}));
    QCOMPARE(model.parent(store.at({1, 0})), outer);
    QCOMPARE(store.at({1, 0}).internalPointer(), static_cast<void *>(model.itemFromIndex(store.at({1, 0}))));
    QVERIFY(!model.itemFromIndex(QModelIndex()));
    QVERIFY(!model.bookmarkFromIndex(QModelIndex()));
    QVERIFY(!model.bookmarkFromIndex(outer));
    QCOMPARE(model.bookmarkFromIndex(store.at({1, 0, 0})), model.itemFromIndex(store.at({1, 0, 0})));
    QVERIFY(!model.index(0, 1).isValid());
    QVERIFY(!model.index(2, 0).isValid());
    QVERIFY(!model.index(-1, 0).isValid());
}

void TestCVBookmarkManager::aFolderShowsItsNameAndABookmarkItsTinyOne()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("alt.binaries.folder"));
    store.model().addBookmarks({group}, folder);
    const QModelIndex bookmark = store.at({0, 0});
    QCOMPARE(folder.data(Qt::DisplayRole).toString(), QStringLiteral("alt.binaries.folder"));
    QCOMPARE(bookmark.data(Qt::DisplayRole).toString(), QStringLiteral("a.b.p.nature"));
    for (const int role : {Qt::EditRole, Qt::ToolTipRole}) {
        QCOMPARE(folder.data(role).toString(), QStringLiteral("alt.binaries.folder"));
        QCOMPARE(bookmark.data(role).toString(), group);
    }
}

void TestCVBookmarkManager::eachRoleHasItsAnswer()
{
    BookmarkStore store;
    store.check();
    CVBookmarkManager &model = store.model();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    model.addBookmarks({group}, folder);
    QCOMPARE(folder.data(Qt::SizeHintRole).toSize(), QSize(20, 20));
    QVERIFY(!folder.data(Qt::TextAlignmentRole).isValid());
    QVERIFY(!folder.data(Qt::UserRole).isValid());
    QVERIFY(!folder.data(Qt::ForegroundRole).isValid());
    QVERIFY(!model.data(QModelIndex(), Qt::EditRole).isValid());
    const QVariant picture = store.at({0, 0}).data(Qt::DecorationRole);
    QCOMPARE(picture.userType(), int(QMetaType::QPixmap));
    QVERIFY(!picture.value<QPixmap>().isNull());
    QCOMPARE(folder.data(Qt::DecorationRole).userType(), int(QMetaType::QPixmap));
    QVERIFY(picture.value<QPixmap>().toImage() != folder.data(Qt::DecorationRole).value<QPixmap>().toImage());
}

void TestCVBookmarkManager::aFolderShowsTheIconOfItsColour_data()
{
    QTest::addColumn<QString>("color");
    QTest::addColumn<QString>("icon");
    const QStringList colors = folderColorNames();
    for (const QString &color : colors)
        QTest::newRow(qPrintable(color)) << color << color;
    QTest::newRow("none") << QStringLiteral("") << QStringLiteral("yellow");
    QTest::newRow("refused") << QStringLiteral("purple") << QStringLiteral("yellow");
}

void TestCVBookmarkManager::aFolderShowsTheIconOfItsColour()
{
    QFETCH(QString, color);
    QFETCH(QString, icon);
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().setItemColor(folder, color);
    const QPixmap expected =
        QIcon(QStringLiteral(":/corvia/bookmarks/folder_%1.svg").arg(icon)).pixmap(QSize(16, 16));
    QVERIFY(!expected.isNull());
    QCOMPARE(folder.data(Qt::DecorationRole).value<QPixmap>().toImage(), expected.toImage());
}

void TestCVBookmarkManager::foldersAndBookmarksAllowDifferentThings()
{
    BookmarkStore store;
    store.check();
    CVBookmarkManager &model = store.model();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    model.addBookmarks({group}, folder);
    const Qt::ItemFlags always = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    QCOMPARE(model.flags(QModelIndex()), Qt::ItemFlags(Qt::NoItemFlags));
    QCOMPARE(model.flags(store.at({0, 0})), always | Qt::ItemIsDragEnabled);
    QCOMPARE(model.flags(folder),
             always | Qt::ItemIsDragEnabled | Qt::ItemIsEditable | Qt::ItemIsDropEnabled);
}

void TestCVBookmarkManager::renamingStoresAndTells()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.model().addFolder(QModelIndex());
    QCOMPARE(folder.data().toString(), QStringLiteral("New Folder"));
    QSignalSpy changed(&store.model(), &QAbstractItemModel::dataChanged);
    QVERIFY(store.model().setData(folder, QStringLiteral("Misc")));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(0).toModelIndex(), folder);
    QCOMPARE(changed.first().at(1).toModelIndex(), folder);
    QVERIFY(changed.first().at(2).value<QVector<int>>().isEmpty());
    QCOMPARE(store.rows().first().at(2), QStringLiteral("Misc"));
}

void TestCVBookmarkManager::aBookmarkMayBeRenamedByTheModel()
{
    BookmarkStore store;
    store.check();
    store.model().addBookmarks({group}, store.addFolder(QStringLiteral("f")));
    QVERIFY(store.model().setData(store.at({0, 0}), QStringLiteral("alt.test")));
    QCOMPARE(store.rows().at(1).at(3), QStringLiteral("alt.test"));
    QVERIFY(store.model().provider()->isBookmarked(group)); // until the next load
}

// No view asks for them, as there is one column.
void TestCVBookmarkManager::otherColumnsShowNothing()
{
    BookmarkStore store;
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    for (const int column : {1, 2, 3}) {
        const QModelIndex beside = store.model().createIndex(0, column, folder.internalPointer());
        QVERIFY(!beside.data(Qt::DisplayRole).isValid());
        QVERIFY(!beside.data(Qt::DecorationRole).isValid());
        QCOMPARE(beside.data(Qt::EditRole).toString(), QStringLiteral("f"));
        QCOMPARE(beside.data(Qt::ToolTipRole).toString(), QStringLiteral("f"));
        QCOMPARE(beside.data(Qt::TextAlignmentRole), column < 3 ? QVariant(130) : QVariant());
        QCOMPARE(store.model().flags(beside), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    }
}

void TestCVBookmarkManager::renamingIsRefused_data()
{
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("role");
    QTest::newRow("to nothing") << true << QVariant(QString()) << int(Qt::EditRole);
    QTest::newRow("to no text") << true << QVariant(QSize(1, 1)) << int(Qt::EditRole);
    QTest::newRow("in another role") << true << QVariant(QStringLiteral("x")) << int(Qt::DisplayRole);
    QTest::newRow("of nothing") << false << QVariant(QStringLiteral("x")) << int(Qt::EditRole);
}

void TestCVBookmarkManager::renamingIsRefused()
{
    QFETCH(bool, valid);
    QFETCH(QVariant, value);
    QFETCH(int, role);
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("old"));
    const QVector<BookmarkRow> before = store.rows();
    QSignalSpy changed(&store.model(), &QAbstractItemModel::dataChanged);
    QVERIFY(!store.model().setData(valid ? folder : QModelIndex(), value, role));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(folder.data().toString(), QStringLiteral("old"));
    QCOMPARE(store.rows(), before);
}

void TestCVBookmarkManager::aNewFolderIsFirstInAFolderAndLastAtTheTop()
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

void TestCVBookmarkManager::aFolderIsNotAddedBelowABookmark()
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

void TestCVBookmarkManager::bookmarksGoFirstIntoAFolder()
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

void TestCVBookmarkManager::bookmarksGoBehindTheChosenOne()
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

void TestCVBookmarkManager::bookmarksBesideOneAtTheTopAreNotAdded()
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
void TestCVBookmarkManager::bookmarksAtTheTopAreAnnouncedFirstAndAppended()
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

void TestCVBookmarkManager::noBookmarksAreNotAnnounced()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    QSignalSpy inserted(&store.model(), &QAbstractItemModel::rowsAboutToBeInserted);
    store.model().addBookmarks({}, folder);
    store.model().addBookmarks({}, QModelIndex());
    QCOMPARE(inserted.count(), 0);
}

void TestCVBookmarkManager::aNewsgroupMayBeBookmarkedTwice()
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

void TestCVBookmarkManager::removingAFolderRemovesWhatIsInIt()
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

void TestCVBookmarkManager::aRemovedFolderIsNoNewsgroup()
{
    BookmarkStore store;
    store.check();
    store.model().addBookmarks({group}, store.addFolder(QStringLiteral("f")));
    QSignalSpy removed(store.model().provider(), &BookmarkProvider::bookmarkRemoved);
    store.model().removeBookmark(store.addFolder(group));
    QCOMPARE(removed.count(), 0);
    QVERIFY(store.model().provider()->isBookmarked(group));
}

void TestCVBookmarkManager::removingNothingDoesNothing()
{
    BookmarkStore store;
    store.check();
    store.addFolder(QStringLiteral("stays"));
    QSignalSpy removed(&store.model(), &QAbstractItemModel::rowsAboutToBeRemoved);
    store.model().removeBookmark(QModelIndex());
    QCOMPARE(removed.count(), 0);
    QCOMPARE(store.names(), words("stays"));
}

void TestCVBookmarkManager::aRefusedColourStillSavesAndTells()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.model().setItemColor(folder, QStringLiteral("red"));
    store.execute(QStringLiteral("UPDATE bookmarks SET bookmark_name='changed behind its back'"));
    QSignalSpy changed(&store.model(), &QAbstractItemModel::dataChanged);
    store.model().setItemColor(folder, QStringLiteral("purple"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(changed.first().at(2).value<QVector<int>>().isEmpty());
    QCOMPARE(store.rows().first().at(2), QStringLiteral("f"));
    QCOMPARE(store.rows().first().at(4), QStringLiteral("red"));
    store.model().setItemColor(QModelIndex(), QStringLiteral("blue"));
    QCOMPARE(changed.count(), 1);
}

void TestCVBookmarkManager::bookmarksAreColouredLikeFolders()
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

void TestCVBookmarkManager::onlyFoldersAreExpandedAndNobodyIsTold()
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

void TestCVBookmarkManager::expandedFoldersOrElseTheFirstTwo_data()
{
    QTest::addColumn<QVector<int>>("expanded");
    QTest::addColumn<QVector<int>>("shown");
    QTest::newRow("none") << QVector<int>{} << QVector<int>{0, 2};
    QTest::newRow("the last") << QVector<int>{3} << QVector<int>{3};
    QTest::newRow("two") << QVector<int>{2, 3} << QVector<int>{2, 3};
}

void TestCVBookmarkManager::expandedFoldersOrElseTheFirstTwo()
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

void TestCVBookmarkManager::nestedFoldersDoNotCountAsExpanded()
{
    BookmarkStore store;
    store.check();
    QVERIFY(store.model().expandedFolderIndexes().isEmpty());
    const QModelIndex outer = store.addFolder(QStringLiteral("outer"));
    store.model().setFolderExpanded(store.addFolder(QStringLiteral("inner"), outer), true);
    QCOMPARE(store.model().expandedFolderIndexes(), QModelIndexList{outer});
}

void TestCVBookmarkManager::removingRowsLeavesTheFileAlone()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.addFolder(QStringLiteral("g"));
    store.addFolder(QStringLiteral("h"));
    store.model().addBookmarks(words("a b c"), folder);
    const QVector<BookmarkRow> before = store.rows();
    QVERIFY(store.model().removeRows(1, 2, folder));
    QCOMPARE(store.names(folder), words("a"));
    QVERIFY(store.model().removeRows(0, 2));
    QCOMPARE(store.names(), words("h"));
    QCOMPARE(store.rows(), before);
}

void TestCVBookmarkManager::rowsThatThereAreNotAreNotRemoved_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::newRow("negative") << -1 << 1;
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("too many") << 1 << 2;
    QTest::newRow("behind the end") << 2 << 1;
    QTest::newRow("very many") << 1 << std::numeric_limits<int>::max();
}

void TestCVBookmarkManager::rowsThatThereAreNotAreNotRemoved()
{
    QFETCH(int, row);
    QFETCH(int, count);
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.addFolder(QStringLiteral("g"));
    store.model().addBookmarks(words("a b"), folder);
    QVERIFY(!store.model().removeRows(row, count));
    QVERIFY(!store.model().removeRows(row, count, folder));
    QCOMPARE(store.names(), words("f g"));
    QCOMPARE(store.names(folder), words("a b"));
}

void TestCVBookmarkManager::anImportAppendsFoldersInOneTransaction()
{
    BookmarkStore store;
    store.check();
    store.addFolder(QStringLiteral("old"));
    store.model().addBookmarks(words("own"), store.at({0}));
    BookmarkItem received(BookmarkKind::Folder, nullptr);
    received.setName(QStringLiteral("News"));
    for (const char *name : {"x", "y", "x"}) {
        auto *child = new BookmarkItem(BookmarkKind::Bookmark, &received);
        child->setName(QString::fromLatin1(name));
        received.appendChild(child);
    }
    auto *nested = new BookmarkItem(BookmarkKind::Folder, &received);
    nested->setName(QStringLiteral("nested"));
    received.insertChild(1, nested);
    BookmarkItem bare(BookmarkKind::Bookmark, nullptr);
    bare.setName(QStringLiteral("bare"));
    QSignalSpy reset(&store.model(), &QAbstractItemModel::modelReset);
    store.model().importFolders({&bare, &received});
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

void TestCVBookmarkManager::theConnectorsStateChangesNothingYet()
{
    BookmarkStore store;
    store.check();
    QMetaObject::invokeMethod(&store.model(), "connectorStateChanged",
                              Q_ARG(HServer::State, HServer::Connected));
    QMetaObject::invokeMethod(&store.model(), "bookmarksRequestFinished");
    QCOMPARE(store.model().rowCount(), 0);
}

QTEST_MAIN(TestCVBookmarkManager)
#include "tst_cvbookmarkmanager.moc"
