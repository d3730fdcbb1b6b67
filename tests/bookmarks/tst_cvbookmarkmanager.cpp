// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "words.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "connector/cvconnectorplugin.h"

#include <halvora/hpixmaps.h>

#include <QIcon>
#include <QMetaMethod>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>

#include <limits>

namespace {

const QString group = QStringLiteral("alt.binaries.pictures.nature");

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
    void removingRowsLeavesTheFileAlone();
    void onlyRowsThatThereAreAreRemoved_data();
    void onlyRowsThatThereAreAreRemoved();
    void nothingBelowABookmarkIsAnnounced();
    void anInvalidIndexHasNoItemWhateverItPointsTo();
    void theSlotsCanBeCalledByName();
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
    const QImage drawing =
        hSvgPixmap(QStringLiteral(":/corvia/bookmarks/newsgroup_default.svg"), 16).toImage();
    QVERIFY(!drawing.isNull());
    QCOMPARE(picture.value<QPixmap>().toImage(), drawing);
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

void TestCVBookmarkManager::onlyRowsThatThereAreAreRemoved_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("last"); ///< that is announced, -1 for none
    QTest::newRow("negative") << -1 << 1 << -1;
    QTest::newRow("negative, up to rows that there are") << -1 << 3 << -1;
    QTest::newRow("none") << 0 << 0 << -1;
    QTest::newRow("a negative number") << 0 << -2 << -1;
    QTest::newRow("too many") << 1 << 2 << 1;
    QTest::newRow("behind the end") << 2 << 1 << -1;
    QTest::newRow("very many") << 1 << std::numeric_limits<int>::max() << 1;
    QTest::newRow("very many from the first") << 0 << std::numeric_limits<int>::max() << 1;
    QTest::newRow("far behind the end") << std::numeric_limits<int>::max() << 2 << -1;
}

void TestCVBookmarkManager::onlyRowsThatThereAreAreRemoved()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(int, last);
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    store.addFolder(QStringLiteral("g"));
    store.model().addBookmarks(words("a b"), folder);
    QStringList announced;
    connect(&store.model(), &QAbstractItemModel::rowsRemoved, this,
            [&](const QModelIndex &, int first, int end) {
                announced.append(QStringLiteral("%1-%2").arg(first).arg(end));
            });
    QVERIFY(store.model().removeRows(row, count, folder));
    QVERIFY(store.model().removeRows(row, count));
    const QString expected = QStringLiteral("%1-%2").arg(row).arg(last);
    QCOMPARE(announced, last < 0 ? QStringList() : QStringList({expected, expected}));
    QCOMPARE(store.names(), words("f g").mid(0, last < 0 ? 2 : row));
}

void TestCVBookmarkManager::nothingBelowABookmarkIsAnnounced()
{
    BookmarkStore store;
    store.execute(
        QStringLiteral("INSERT INTO bookmarks VALUES (1,NULL,NULL,'a',NULL,0,0),(2,1,NULL,'b',NULL,0,0)"));
    store.model().load();
    QSignalSpy removed(&store.model(), &QAbstractItemModel::rowsRemoved);
    QVERIFY(store.model().removeRows(0, 1, store.at({0})));
    QCOMPARE(removed.count(), 0);
}

void TestCVBookmarkManager::anInvalidIndexHasNoItemWhateverItPointsTo()
{
    BookmarkStore store;
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    const QModelIndex invalid = store.model().createIndex(-1, 0, folder.internalPointer());
    QVERIFY(!store.model().itemFromIndex(invalid));
    QVERIFY(!store.model().bookmarkFromIndex(invalid));
    QCOMPARE(store.model().flags(invalid), Qt::ItemFlags(Qt::NoItemFlags));
    QVERIFY(!store.model().data(invalid, Qt::EditRole).isValid());
    QCOMPARE(store.model().rowCount(invalid), 1);
    store.model().removeBookmark(invalid);
    QCOMPARE(store.names(), words("f"));
}

void TestCVBookmarkManager::theSlotsCanBeCalledByName()
{
    BookmarkStore store;
    store.check();
    store.addFolder(QStringLiteral("f")); // so that nobody is asked for any
    QSignalSpy reset(&store.model(), &QAbstractItemModel::modelReset);
    QVERIFY(QMetaObject::invokeMethod(&store.model(), "bookmarksRequestFinished", Qt::QueuedConnection));
    QVERIFY(QMetaObject::invokeMethod(&store.model(), "connectorStateChanged", Qt::QueuedConnection,
                                      Q_ARG(HServer::State, HServer::Connected)));
    QCoreApplication::processEvents();
    QCOMPARE(reset.count(), 0);
    QVERIFY(QMetaObject::invokeMethod(&store.model(), "load", Qt::QueuedConnection));
    QTRY_COMPARE(reset.count(), 1);
    QCOMPARE(store.names(), words("f"));
}

QTEST_MAIN(TestCVBookmarkManager)
#include "tst_cvbookmarkmanager.moc"
