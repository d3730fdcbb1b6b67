// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/bookmarkprovider.h>
#include <halvora/pluginmanager.h>

#include <QTest>

#include <memory>

namespace {

class Bookmarks final : public BookmarkProvider {
public:
    bool isBookmarked(const QString &) const override { return false; }
    QStringList bookmarkedNewsgroups() const override { return {}; }
    QStringList recommendedNewsgroups() const override { return {}; }
    void addBookmarks(const QStringList &) override {}
    void refresh() override {}
};

} // namespace

class TestPluginManager : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void atFirstNobodyProvidesBookmarks();
    void theLastProviderOfBookmarksIsAsked();
    void aProviderThatGoesIsForgotten();
    void aProviderThatIsNotAskedMayGo();
    void theProviderCanBeTakenBack();
    void clearingThePluginsLeavesTheProvider();
    void theProviderIsNotOwned();
};

void TestPluginManager::atFirstNobodyProvidesBookmarks()
{
    const PluginManager manager;
    QCOMPARE(manager.bookmarkProvider(), nullptr);
}

void TestPluginManager::theLastProviderOfBookmarksIsAsked()
{
    Bookmarks first;
    Bookmarks second;
    PluginManager manager;
    manager.setBookmarkProvider(&first);
    QCOMPARE(manager.bookmarkProvider(), &first);
    manager.setBookmarkProvider(&second);
    QCOMPARE(manager.bookmarkProvider(), &second);
}

void TestPluginManager::aProviderThatGoesIsForgotten()
{
    PluginManager manager;
    auto bookmarks = std::make_unique<Bookmarks>();
    manager.setBookmarkProvider(bookmarks.get());
    bookmarks.reset();
    QCOMPARE(manager.bookmarkProvider(), nullptr);
}

void TestPluginManager::aProviderThatIsNotAskedMayGo()
{
    PluginManager manager;
    auto first = std::make_unique<Bookmarks>();
    Bookmarks second;
    manager.setBookmarkProvider(first.get());
    manager.setBookmarkProvider(&second);
    first.reset();
    QCOMPARE(manager.bookmarkProvider(), &second);
}

void TestPluginManager::theProviderCanBeTakenBack()
{
    Bookmarks bookmarks;
    PluginManager manager;
    manager.setBookmarkProvider(&bookmarks);
    manager.setBookmarkProvider(nullptr);
    QCOMPARE(manager.bookmarkProvider(), nullptr);
}

void TestPluginManager::clearingThePluginsLeavesTheProvider()
{
    Bookmarks bookmarks;
    PluginManager manager;
    manager.setBookmarkProvider(&bookmarks);
    manager.registerPlugin(new IPlugin);
    manager.clear();
    QCOMPARE(manager.plugins(), QList<IPlugin *>());
    QCOMPARE(manager.bookmarkProvider(), &bookmarks);
}

void TestPluginManager::theProviderIsNotOwned()
{
    const QPointer<Bookmarks> bookmarks = new Bookmarks;
    {
        PluginManager manager;
        manager.setBookmarkProvider(bookmarks);
    }
    QVERIFY(bookmarks);
    delete bookmarks;
}

QTEST_GUILESS_MAIN(TestPluginManager)
#include "tst_pluginmanager.moc"
