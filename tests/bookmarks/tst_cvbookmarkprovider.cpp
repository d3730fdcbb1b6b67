// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkednames.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "bookmarkstore.h"

#include "connector/cvconnectorplugin.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

namespace {

const QString group = QStringLiteral("alt.binaries.test");

} // namespace

class TestCVBookmarkProvider : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void itBelongsToTheModelAndAddsNoMethods();
    void itIsEmptyBeforeTheFirstLoad();
    void namesAreComparedExactly_data();
    void namesAreComparedExactly();
    void addingAppendsAndTells();
    void removingTakesOneEntryAndTells();
    void removingAnUnknownNameIsSilent();
    void replacingAlwaysTells();
    void theListIsACopy();
    void itRecommendsNothingAndNeedsNoRefresh();
    void addingAndRemovingBookmarksReachesIt();
    void namesAnswerLikeAPlainList();
};

void TestCVBookmarkProvider::itBelongsToTheModelAndAddsNoMethods()
{
    BookmarkStore store;
    const CVBookmarkProvider *provider = store.model().provider();
    QCOMPARE(provider->parent(), static_cast<QObject *>(&store.model()));
    QCOMPARE(CVBookmarkProvider::staticMetaObject.methodCount(),
             BookmarkProvider::staticMetaObject.methodCount());
}

void TestCVBookmarkProvider::itIsEmptyBeforeTheFirstLoad()
{
    BookmarkStore store;
    store.model().addBookmarks({group}, QModelIndex());
    store.close();
    OpenBookmarkManager model(store.plugin());
    QVERIFY(!model.provider()->isBookmarked(group));
    QVERIFY(model.provider()->bookmarkedNewsgroups().isEmpty());
    model.load();
    QVERIFY(model.provider()->isBookmarked(group));
}

void TestCVBookmarkProvider::namesAreComparedExactly_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("bookmarked");
    QTest::newRow("the name") << group << true;
    QTest::newRow("other case") << QStringLiteral("alt.binaries.Test") << false;
    QTest::newRow("shorter") << QStringLiteral("alt.binaries.tes") << false;
    QTest::newRow("longer") << QStringLiteral("alt.binaries.tests") << false;
    QTest::newRow("same length and end") << QStringLiteral("alt.fanfare.s.test") << false;
    QTest::newRow("its end") << QStringLiteral("test") << false;
    QTest::newRow("empty") << QStringLiteral("") << false;
    QTest::newRow("null") << QString() << false;
}

void TestCVBookmarkProvider::namesAreComparedExactly()
{
    QFETCH(QString, name);
    BookmarkStore store;
    store.model().provider()->noteBookmarkAdded(group);
    QTEST(store.model().provider()->isBookmarked(name), "bookmarked");
}

void TestCVBookmarkProvider::addingAppendsAndTells()
{
    BookmarkStore store;
    store.check();
    CVBookmarkProvider *provider = store.model().provider();
    QSignalSpy added(provider, &BookmarkProvider::bookmarkAdded);
    QStringList seen; // the list holds the name when the signal comes
    connect(provider, &BookmarkProvider::bookmarkAdded, this,
            [&] { seen = provider->bookmarkedNewsgroups(); });
    provider->noteBookmarkAdded(QStringLiteral("b"));
    provider->noteBookmarkAdded(QStringLiteral("a"));
    provider->noteBookmarkAdded(QStringLiteral("b"));
    QCOMPARE(added.count(), 3);
    QCOMPARE(added.at(1).first().toString(), QStringLiteral("a"));
    QCOMPARE(seen, (QStringList{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("b")}));
}

void TestCVBookmarkProvider::removingTakesOneEntryAndTells()
{
    BookmarkStore store;
    store.check();
    CVBookmarkProvider *provider = store.model().provider();
    for (const char *name : {"b", "a", "b", "c"})
        provider->noteBookmarkAdded(QString::fromLatin1(name));
    QSignalSpy removed(provider, &BookmarkProvider::bookmarkRemoved);
    QStringList seen; // the list is without the entry when the signal comes
    connect(provider, &BookmarkProvider::bookmarkRemoved, this,
            [&] { seen = provider->bookmarkedNewsgroups(); });
    provider->noteBookmarkRemoved(QStringLiteral("b"));
    QCOMPARE(seen, provider->bookmarkedNewsgroups());
    QCOMPARE(provider->bookmarkedNewsgroups(),
             (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    QVERIFY(provider->isBookmarked(QStringLiteral("b")));
    provider->noteBookmarkRemoved(QStringLiteral("b"));
    QVERIFY(!provider->isBookmarked(QStringLiteral("b")));
    QCOMPARE(removed.count(), 2);
    QCOMPARE(removed.first().first().toString(), QStringLiteral("b"));
}

void TestCVBookmarkProvider::removingAnUnknownNameIsSilent()
{
    BookmarkStore store;
    store.check();
    CVBookmarkProvider *provider = store.model().provider();
    QSignalSpy removed(provider, &BookmarkProvider::bookmarkRemoved);
    provider->noteBookmarkRemoved(group);
    provider->noteBookmarkAdded(group);
    provider->noteBookmarkRemoved(QStringLiteral("alt.binaries.tesT"));
    QCOMPARE(removed.count(), 0);
    QCOMPARE(provider->bookmarkedNewsgroups(), QStringList{group});
}

void TestCVBookmarkProvider::replacingAlwaysTells()
{
    BookmarkStore store;
    store.check();
    CVBookmarkProvider *provider = store.model().provider();
    provider->noteBookmarkAdded(QStringLiteral("old"));
    QSignalSpy changed(provider, &BookmarkProvider::bookmarksChanged);
    QStringList seen; // the list is the new one when the signal comes
    connect(provider, &BookmarkProvider::bookmarksChanged, this,
            [&] { seen = provider->bookmarkedNewsgroups(); });
    const QStringList names{group, QStringLiteral("x"), group};
    provider->setBookmarkedNewsgroups(names);
    QCOMPARE(seen, names);
    QCOMPARE(provider->bookmarkedNewsgroups(), names);
    QVERIFY(!provider->isBookmarked(QStringLiteral("old")));
    QVERIFY(provider->isBookmarked(QStringLiteral("x")));
    provider->setBookmarkedNewsgroups(names);
    provider->setBookmarkedNewsgroups(provider->bookmarkedNewsgroups());
    QCOMPARE(changed.count(), 3);
    QCOMPARE(provider->bookmarkedNewsgroups(), names);
    provider->setBookmarkedNewsgroups({});
    QCOMPARE(changed.count(), 4);
    QVERIFY(!provider->isBookmarked(group));
}

void TestCVBookmarkProvider::theListIsACopy()
{
    BookmarkStore store;
    store.check();
    CVBookmarkProvider *provider = store.model().provider();
    provider->noteBookmarkAdded(group);
    QStringList copy = provider->bookmarkedNewsgroups();
    copy.clear();
    QVERIFY(provider->isBookmarked(group));
    QCOMPARE(provider->bookmarkedNewsgroups(), QStringList{group});
}

void TestCVBookmarkProvider::itRecommendsNothingAndNeedsNoRefresh()
{
    BookmarkStore store;
    BookmarkProvider *provider = store.model().provider();
    QSignalSpy changed(provider, &BookmarkProvider::bookmarksChanged);
    provider->refresh();
    QVERIFY(provider->recommendedNewsgroups().isEmpty());
    QCOMPARE(changed.count(), 0);
}

void TestCVBookmarkProvider::addingAndRemovingBookmarksReachesIt()
{
    BookmarkStore store;
    store.check();
    const QModelIndex folder = store.addFolder(QStringLiteral("f"));
    QSignalSpy added(store.model().provider(), &BookmarkProvider::bookmarkAdded);
    QSignalSpy removed(store.model().provider(), &BookmarkProvider::bookmarkRemoved);
    store.model().addBookmarks({group, QStringLiteral("x")}, folder);
    QCOMPARE(added.count(), 2);
    store.model().removeBookmark(store.at({0, 0}));
    QCOMPARE(removed.count(), 1);
    QCOMPARE(removed.first().first().toString(), group);
}

// The fast answers against the plain search, over names that share ends, lengths and everything else.
void TestCVBookmarkProvider::namesAnswerLikeAPlainList()
{
    QRandomGenerator random(7);
    BookmarkedNames names;
    QStringList plain;
    const auto anyName = [&random] {
        QString name;
        for (int length = int(random.bounded(7U)); length > 0; --length)
            name += QLatin1Char(char('a' + random.bounded(2)));
        return name;
    };
    for (int i = 0; i < 20'000; ++i) {
        const QString name = anyName();
        switch (random.bounded(20)) {
        case 0:
            plain = QStringList{anyName(), anyName(), anyName()};
            names.assign(plain);
            break;
        case 1:
        case 2:
        case 3:
            plain.append(name);
            names.append(name);
            break;
        case 4:
        case 5:
        case 6:
            QCOMPARE(names.removeFirst(name), plain.removeOne(name));
            break;
        default:
            QCOMPARE(names.contains(name), plain.contains(name));
        }
        QCOMPARE(names.list(), plain);
    }
}

QTEST_MAIN(TestCVBookmarkProvider)
#include "tst_cvbookmarkprovider.moc"
