// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "grouplines.h"

#include "newsgroupcache.h"

#include "bookmarks/cvbookmarkmanager.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "connector/cvconnectorplugin.h"

#include <halvora/benchmark.h>
#include <halvora/core.h>
#include <halvora/mainwindow.h>
#include <halvora/pluginmanager.h>
#include <halvora/storagemanager.h>

#include <QAbstractItemView>
#include <QAction>
#include <QDir>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

/// The panel of the real plug-in beside its bookmarks.
class TestNewsgroupBookmarks : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void theSelectionIsHandedToTheBookmarks();
    void withoutASelectionThereIsNothingToBookmark();
    void aBookmarkIsMarkedInTheList();
    void aProviderThatComesLaterIsFollowed();

private:
    template <typename T> T *find(const char *name) { return m_window->findChild<T *>(QLatin1String(name)); }
    QAbstractItemModel *model() { return find<QAbstractItemView>("newsgroupList")->model(); }
    void select(const QVector<int> &rows);
    bool isMarked(int row)
    {
        return model()->index(row, 0).data(Qt::ToolTipRole).toString().endsWith(QLatin1String("Bookmarked"));
    }

    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<CVConnectorPlugin> m_plugin;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

/// The plug-in's provider, which also writes down what it is asked to add.
class RecordingProvider final : public CVBookmarkProvider {
public:
    using CVBookmarkProvider::CVBookmarkProvider;

    void addBookmarks(const QStringList &newsgroups) override
    {
        added.append(newsgroups);
        CVBookmarkProvider::addBookmarks(newsgroups);
    }

    QList<QStringList> added;
};

} // namespace

void TestNewsgroupBookmarks::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_profile->path());
    m_plugin = std::make_unique<CVConnectorPlugin>(m_core.get());
    const QString file = QDir(m_core->storage()->dataDirectory())
                             .filePath(m_plugin->configName() + QStringLiteral("-newsgroups.cache"));
    QVERIFY(newsgroupcache::write(
        file, {tableOf({"a.a", "b.b", "c.c"}), QDateTime::currentDateTimeUtc(), QString(), QString()}));
    Benchmark benchmark;
    m_plugin->init(benchmark);
    m_window = std::make_unique<MainWindow>(m_core.get());
    m_core->setMainWindow(m_window.get());
    m_plugin->polish(m_window.get());
    m_window->show();
    QTRY_COMPARE(model()->rowCount(), 3);
}

void TestNewsgroupBookmarks::cleanup()
{
    m_window.reset();
    m_core->plugin()->setBookmarkProvider(nullptr);
    m_plugin.reset();
    m_core.reset();
}

void TestNewsgroupBookmarks::select(const QVector<int> &rows)
{
    QItemSelectionModel *selection = find<QAbstractItemView>("newsgroupList")->selectionModel();
    selection->clear();
    for (const int row : rows)
        selection->select(model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void TestNewsgroupBookmarks::theSelectionIsHandedToTheBookmarks()
{
    auto *model = m_plugin->findChild<CVBookmarkManager *>();
    auto *provider = new RecordingProvider(model, m_plugin.get()); // the model's
    m_core->plugin()->setBookmarkProvider(provider);
    select({2, 0});
    auto *button = find<QToolButton>("addButton");
    QVERIFY(button->isEnabled());
    button->click();
    QCOMPARE(provider->added, (QList<QStringList>{{QStringLiteral("a.a"), QStringLiteral("c.c")}}));
}

void TestNewsgroupBookmarks::withoutASelectionThereIsNothingToBookmark()
{
    QVERIFY(!find<QAction>("addBookmarks")->isEnabled());
    select({1});
    QVERIFY(find<QAction>("addBookmarks")->isEnabled());
    select({});
    QVERIFY(!find<QAction>("addBookmarks")->isEnabled());
    m_core->plugin()->setBookmarkProvider(nullptr);
    select({1});
    QVERIFY(!find<QAction>("addBookmarks")->isEnabled());
}

void TestNewsgroupBookmarks::aBookmarkIsMarkedInTheList()
{
    auto *bookmarks = m_plugin->findChild<CVBookmarkManager *>();
    QVERIFY(!isMarked(1));
    bookmarks->provider()->noteBookmarkAdded(QStringLiteral("b.b"));
    QVERIFY(isMarked(1));
    bookmarks->provider()->noteBookmarkRemoved(QStringLiteral("b.b"));
    QVERIFY(!isMarked(1));
    bookmarks->provider()->setBookmarkedNewsgroups({QStringLiteral("a.a"), QStringLiteral("c.c")});
    QVERIFY(isMarked(0) && !isMarked(1) && isMarked(2));
}

void TestNewsgroupBookmarks::aProviderThatComesLaterIsFollowed()
{
    auto *model = m_plugin->findChild<CVBookmarkManager *>();
    auto *provider = new RecordingProvider(model, m_plugin.get()); // the model's
    provider->noteBookmarkAdded(QStringLiteral("b.b"));
    m_core->plugin()->setBookmarkProvider(provider);
    QVERIFY(!isMarked(1));
    m_window->hide();
    m_window->show();
    QVERIFY(isMarked(1));
    provider->noteBookmarkRemoved(QStringLiteral("b.b"));
    QVERIFY(!isMarked(1));
}

QTEST_MAIN(TestNewsgroupBookmarks)
#include "tst_newsgroupbookmarks.moc"
