// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "grouplines.h"

#include "newsgroupdrag.h"
#include "newsgrouplistmodel.h"

#include "bookmarks/cvbookmarkprovider.h"

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QtTest>

/// The list of newsgroups beside the plug-in's real bookmarks.
class TestNewsgroupListModel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void everyNewsgroupHasARow();
    void theFilterLeavesRowsOut();
    void bookmarkedNewsgroupsAreMarked();
    void theMarkFollowsABookmarkThatIsAdded();
    void theMarkFollowsABookmarkThatIsRemoved();
    void theMarkFollowsManyChangesAtOnce();
    void aNewsgroupThatIsFilteredOutNeedsNoMark();
    void withoutBookmarksNothingIsMarked();
    void aDragNamesEachNewsgroupOnce();
    void theBookmarksTakeADrag();
    void theBookmarksTakeWhatIsNoNewsgroupToo();
    void noNewsgroupsMakeNoDrag();

private:
    bool isMarked(int row) const;
    QMimeData *dragOf(const QVector<int> &rows) const;

    std::unique_ptr<BookmarkStore> m_store;
    std::unique_ptr<NewsgroupListModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void TestNewsgroupListModel::init()
{
    m_store = std::make_unique<BookmarkStore>();
    m_model = std::make_unique<NewsgroupListModel>();
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    m_model->setTable(tableOf({"a.one", "b.two", "c.three"}, {"b.two\tThe second"}));
    m_model->setBookmarks(m_store->model().provider());
}

void TestNewsgroupListModel::cleanup()
{
    m_tester.reset();
    m_model.reset();
    m_store.reset();
}

bool TestNewsgroupListModel::isMarked(int row) const
{
    const QModelIndex index = m_model->index(row, NewsgroupListModel::NameColumn);
    const bool isTold = index.data(Qt::ToolTipRole).toString().endsWith(QLatin1String("\nBookmarked"));
    const bool isPainted = !index.data(Qt::DecorationRole).value<QPixmap>().isNull();
    if (isTold != isPainted)
        qFatal("a mark that is only told or only painted");
    return isPainted;
}

QMimeData *TestNewsgroupListModel::dragOf(const QVector<int> &rows) const
{
    QModelIndexList indexes;
    for (const int row : rows)
        indexes << m_model->index(row, NewsgroupListModel::DescriptionColumn)
                << m_model->index(row, NewsgroupListModel::NameColumn);
    return m_model->mimeData(indexes);
}

void TestNewsgroupListModel::everyNewsgroupHasARow()
{
    QCOMPARE(m_model->rowCount(), 3);
    QCOMPARE(m_model->index(1, NewsgroupListModel::NameColumn).data().toString(), QStringLiteral("b.two"));
    QCOMPARE(m_model->index(1, NewsgroupListModel::DescriptionColumn).data().toString(),
             QStringLiteral("The second"));
    QCOMPARE(m_model->index(1, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("b.two\nThe second"));
}

void TestNewsgroupListModel::theFilterLeavesRowsOut()
{
    m_model->setFilter(QStringLiteral("o"));
    QCOMPARE(m_model->rowCount(), 2);
    QCOMPARE(m_model->modelRow(1), 1);
    QCOMPARE(m_model->modelRow(2), -1);
    QCOMPARE(m_model->modelRow(-1), -1);
    m_model->setFilter(QStringLiteral("THREE"));
    QCOMPARE(m_model->name(0), QStringLiteral("c.three"));
    QCOMPARE(m_model->tableRow(0), 2);
}

void TestNewsgroupListModel::bookmarkedNewsgroupsAreMarked()
{
    m_store->model().provider()->setBookmarkedNewsgroups({QStringLiteral("b.two"), QStringLiteral("B.TWO")});
    QVERIFY(!isMarked(0));
    QVERIFY(isMarked(1));
    QVERIFY(!isMarked(2));
    m_model->setFilter(QStringLiteral("two"));
    QVERIFY(isMarked(0));
}

void TestNewsgroupListModel::theMarkFollowsABookmarkThatIsAdded()
{
    const QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    m_store->model().provider()->noteBookmarkAdded(QStringLiteral("c.three"));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).toModelIndex(), m_model->index(2, NewsgroupListModel::NameColumn));
    QVERIFY(isMarked(2));
}

void TestNewsgroupListModel::theMarkFollowsABookmarkThatIsRemoved()
{
    CVBookmarkProvider *provider = m_store->model().provider();
    provider->setBookmarkedNewsgroups({QStringLiteral("a.one"), QStringLiteral("a.one")});
    const QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    provider->noteBookmarkRemoved(QStringLiteral("a.one"));
    QVERIFY(isMarked(0));
    provider->noteBookmarkRemoved(QStringLiteral("a.one"));
    QVERIFY(!isMarked(0));
    QCOMPARE(changes.size(), 2);
}

void TestNewsgroupListModel::theMarkFollowsManyChangesAtOnce()
{
    const QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    m_store->model().provider()->setBookmarkedNewsgroups(
        {QStringLiteral("a.one"), QStringLiteral("c.three")});
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).toModelIndex().row(), 0);
    QCOMPARE(changes.at(0).at(1).toModelIndex().row(), 2);
    QVERIFY(isMarked(0) && !isMarked(1) && isMarked(2));
}

void TestNewsgroupListModel::aNewsgroupThatIsFilteredOutNeedsNoMark()
{
    m_model->setFilter(QStringLiteral("one"));
    const QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    m_store->model().provider()->noteBookmarkAdded(QStringLiteral("c.three"));
    m_store->model().provider()->noteBookmarkAdded(QStringLiteral("not.there"));
    QCOMPARE(changes.size(), 0);
    m_model->setFilter(QString());
    QVERIFY(isMarked(2));
}

void TestNewsgroupListModel::withoutBookmarksNothingIsMarked()
{
    m_store->model().provider()->noteBookmarkAdded(QStringLiteral("a.one"));
    m_model->setBookmarks(nullptr);
    QVERIFY(!isMarked(0));
    m_model->setBookmarks(m_store->model().provider());
    QVERIFY(isMarked(0));
    m_store->close();
    QVERIFY(!isMarked(0));
}

void TestNewsgroupListModel::aDragNamesEachNewsgroupOnce()
{
    const std::unique_ptr<QMimeData> data(dragOf({2, 0}));
    QCOMPARE(data->text(), QStringLiteral("a.one\nc.three"));
    QVERIFY(data->hasFormat(QStringLiteral("application/x-halvora.plain.newsgroup")));
    QVERIFY(m_model->flags(m_model->index(0, 0)).testFlag(Qt::ItemIsDragEnabled));
}

void TestNewsgroupListModel::theBookmarksTakeADrag()
{
    const QModelIndex folder = m_store->addFolder(QStringLiteral("folder"));
    const std::unique_ptr<QMimeData> data(dragOf({0, 2}));
    CVBookmarkManager &bookmarks = m_store->model();
    QVERIFY(bookmarks.canDropMimeData(data.get(), Qt::CopyAction, -1, 0, folder));
    QVERIFY(bookmarks.dropMimeData(data.get(), Qt::CopyAction, -1, 0, folder));
    QCOMPARE(m_store->names(folder), (QStringList{QStringLiteral("a.one"), QStringLiteral("c.three")}));
    QVERIFY(isMarked(0) && !isMarked(1) && isMarked(2));
    QVERIFY(!bookmarks.canDropMimeData(data.get(), Qt::CopyAction, -1, 0, folder));
}

void TestNewsgroupListModel::theBookmarksTakeWhatIsNoNewsgroupToo()
{
    const QStringList names{QStringLiteral("ü.日本"), QStringLiteral("<b>x</b>"),
                            QString(497, QLatin1Char('n'))};
    const std::unique_ptr<QMimeData> data(newsgroupdrag::mimeData(names));
    const QModelIndex folder = m_store->addFolder(QStringLiteral("folder"));
    QVERIFY(m_store->model().dropMimeData(data.get(), Qt::CopyAction, -1, 0, folder));
    QCOMPARE(m_store->names(folder), names);
}

void TestNewsgroupListModel::noNewsgroupsMakeNoDrag()
{
    QVERIFY(!m_model->mimeData({}));
}

QTEST_MAIN(TestNewsgroupListModel)
#include "tst_newsgrouplistmodel.moc"
