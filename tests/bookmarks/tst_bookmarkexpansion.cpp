// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkspanel.h"
#include "words.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkstoolwidget.h"
#include "bookmarks/cvbookmarkstoolwidgetprivate.h"
#include "connector/cvconnectorplugin.h"

#include <halvora/benchmark.h>
#include <halvora/storagemanager.h>

#include <QSignalSpy>
#include <QTest>

namespace {

// The program from its start to its end, as far as bookmarks need it.
struct Run {
    explicit Run(const QTemporaryDir &profile)
        : core(profile.path())
        , plugin(&core)
        , window(std::make_unique<MainWindow>(&core))
    {
        core.setMainWindow(window.get());
        Benchmark benchmark;
        plugin.init(benchmark);
        plugin.polish(window.get());
        model = plugin.findChild<CVBookmarkManager *>();
        view = window->findChild<BookmarkTreeView *>();
        window->show();
    }
    ~Run() { window.reset(); }
    Q_DISABLE_COPY(Run)

    QModelIndex at(int row) const { return model->index(row, 0); }
    /// The rows of the top that are open.
    QVector<int> open() const
    {
        QVector<int> rows;
        for (int row = 0; row < model->rowCount(); ++row) {
            if (view->isExpanded(at(row)))
                rows.append(row);
        }
        return rows;
    }
    void fill(int folders) const
    {
        for (int row = 0; row < folders; ++row)
            model->addBookmarks(words("a b"), model->addFolder(QModelIndex()));
    }

    Core core;
    CVConnectorPlugin plugin;
    std::unique_ptr<MainWindow> window;
    CVBookmarkManager *model = nullptr;
    BookmarkTreeView *view = nullptr;
};

} // namespace

class TestBookmarkExpansion : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void openingAndClosingIsStored();
    void onlyFoldersAreRemembered();
    void theFirstTwoFoldersOpenWhenNoneIsRemembered_data();
    void theFirstTwoFoldersOpenWhenNoneIsRemembered();
    void everyResetOpensWhatIsRemembered();
    void foldersAreOpenedInTheirOrder();
    void anImportOpensTheFirstTwo();
    void foldersInFoldersComeBackClosed();
    void aRestartBringsBackWhatWasOpen();
    void aFirstStartOpensTheFirstTwo();
    void aPanelThatGoesBeforeItsTurnIsNotAsked();
    void indexesThatAreNotThereAreIgnored();
};

void TestBookmarkExpansion::openingAndClosingIsStored()
{
    BookmarksPanel panel;
    panel.store().check();
    panel.addFolder("f", "a");
    QCOMPARE(panel.store().rows().first().at(5), QStringLiteral("1"));
    panel.view()->collapse(panel.at({0}));
    QCOMPARE(panel.store().rows().first().at(5), QStringLiteral("0"));
    const QRect row = panel.view()->visualRect(panel.at({0}));
    QTest::mouseClick(panel.view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(row.left() - 8, row.center().y()));
    QVERIFY(panel.view()->isExpanded(panel.at({0})));
    QCOMPARE(panel.store().rows().first().at(5), QStringLiteral("1"));
}

void TestBookmarkExpansion::onlyFoldersAreRemembered()
{
    BookmarksPanel panel;
    panel.addFolder("f", "a");
    const QVector<BookmarkRow> before = panel.store().rows();
    panel.content()->itemExpanded(panel.at({0, 0}));
    QVERIFY(!panel.model().itemFromIndex(panel.at({0, 0}))->isExpanded());
    QCOMPARE(panel.store().rows(), before);
}

void TestBookmarkExpansion::theFirstTwoFoldersOpenWhenNoneIsRemembered_data()
{
    QTest::addColumn<int>("folders");
    QTest::addColumn<QVector<int>>("open");
    QTest::newRow("none") << 0 << QVector<int>();
    QTest::newRow("one") << 1 << QVector<int>{1};
    QTest::newRow("two") << 2 << QVector<int>{1, 2};
    QTest::newRow("four") << 4 << QVector<int>{1, 2};
}

void TestBookmarkExpansion::theFirstTwoFoldersOpenWhenNoneIsRemembered()
{
    QFETCH(int, folders);
    const QTemporaryDir profile;
    {
        const Run run(profile);
        run.fill(folders);
        run.model->addBookmarks(words("top"), QModelIndex());
        BookmarkStore::execute(run.core.storage()->databasePath(run.plugin.configName()),
                               QStringLiteral("UPDATE bookmarks SET bookmark_expanded = 0, bookmark_order = "
                                              "CASE WHEN bookmark_newsgroup = 'top' THEN -1 ELSE "
                                              "bookmark_order END"));
    }
    const Run run(profile);
    QSignalSpy expanded(run.view, &QTreeView::expanded);
    QTRY_COMPARE(run.model->rowCount(), folders + 1);
    QTRY_COMPARE(expanded.count(), qMin(folders, 2));
    QTEST(run.open(), "open");
}

void TestBookmarkExpansion::everyResetOpensWhatIsRemembered()
{
    BookmarksPanel panel;
    panel.store().check();
    for (const char *name : {"one", "two", "three"})
        panel.addFolder(name, "a");
    panel.view()->collapse(panel.at({0}));
    for (int round = 0; round < 3; ++round) {
        panel.model().load();
        QTRY_VERIFY(panel.view()->isExpanded(panel.at({2})));
        QVERIFY(panel.view()->isExpanded(panel.at({1})));
        QVERIFY(!panel.view()->isExpanded(panel.at({0})));
    }
}

void TestBookmarkExpansion::foldersAreOpenedInTheirOrder()
{
    BookmarksPanel panel;
    for (const char *name : {"one", "two", "three"})
        panel.addFolder(name, "a");
    QSignalSpy expanded(panel.view(), &QTreeView::expanded);
    panel.model().load();
    QTRY_COMPARE(expanded.count(), 3);
    for (int row = 0; row < 3; ++row)
        QCOMPARE(expanded.at(row).constFirst().toModelIndex(), panel.at({row}));
}

void TestBookmarkExpansion::anImportOpensTheFirstTwo()
{
    BookmarksPanel panel;
    std::vector<std::unique_ptr<BookmarkItem>> folders;
    QList<BookmarkItem *> list;
    for (int number = 0; number < 3; ++number) {
        folders.push_back(std::make_unique<BookmarkItem>(BookmarkKind::Folder, nullptr));
        folders.back()->setName(QString::number(number));
        auto *bookmark = new BookmarkItem(BookmarkKind::Bookmark, folders.back().get());
        bookmark->setName(QStringLiteral("a"));
        folders.back()->appendChild(bookmark);
        list.append(folders.back().get());
    }
    panel.model().importFolders(list);
    QTRY_VERIFY(panel.view()->isExpanded(panel.at({1})));
    QVERIFY(panel.view()->isExpanded(panel.at({0})));
    QVERIFY(!panel.view()->isExpanded(panel.at({2})));
}

void TestBookmarkExpansion::foldersInFoldersComeBackClosed()
{
    BookmarksPanel panel;
    panel.store().check();
    const QModelIndex outer = panel.addFolder("outer");
    panel.addFolder("inner", "a", outer);
    QVERIFY(panel.view()->isExpanded(panel.at({0, 0})));
    QCOMPARE(panel.store().rows().at(1).at(5), QStringLiteral("1"));
    panel.model().load();
    QTRY_VERIFY(panel.view()->isExpanded(panel.at({0})));
    QCoreApplication::processEvents();
    QVERIFY(!panel.view()->isExpanded(panel.at({0, 0})));
}

void TestBookmarkExpansion::aRestartBringsBackWhatWasOpen()
{
    const QTemporaryDir profile;
    {
        const Run run(profile);
        run.fill(4);
        for (const int row : {0, 1, 2, 3})
            run.view->expand(run.at(row));
        run.view->collapse(run.at(0));
        run.view->collapse(run.at(2));
    }
    {
        const Run run(profile);
        QTRY_COMPARE(run.open(), (QVector<int>{1, 3}));
        run.view->collapse(run.at(1));
        run.view->expand(run.at(2));
    }
    const Run run(profile);
    QTRY_COMPARE(run.open(), (QVector<int>{2, 3}));
}

void TestBookmarkExpansion::aFirstStartOpensTheFirstTwo()
{
    const QTemporaryDir profile;
    {
        const Run run(profile);
        run.fill(3);
    }
    const Run run(profile);
    QTRY_COMPARE(run.open(), (QVector<int>{0, 1}));
}

// What the reset of a model asks for comes a turn of the event loop later.
void TestBookmarkExpansion::aPanelThatGoesBeforeItsTurnIsNotAsked()
{
    BookmarksPanel panel;
    panel.addFolder("f", "a");
    panel.model().load();
    delete panel.dock();
    QCoreApplication::processEvents();
    QCOMPARE(panel.store().rows().first().at(5), QStringLiteral("1"));
}

void TestBookmarkExpansion::indexesThatAreNotThereAreIgnored()
{
    BookmarksPanel panel;
    panel.addFolder("f", "a");
    const QVector<BookmarkRow> before = panel.store().rows();
    panel.content()->itemExpanded(QModelIndex());
    panel.content()->itemCollapsed(QModelIndex());
    panel.content()->bookmarkSelected(QModelIndex());
    QCOMPARE(panel.store().rows(), before);
}

QTEST_MAIN(TestBookmarkExpansion)
#include "tst_bookmarkexpansion.moc"
