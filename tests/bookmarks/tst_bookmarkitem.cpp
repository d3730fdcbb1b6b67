// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkitem.h"

#include <QTest>

#include <functional>
#include <memory>

Q_DECLARE_METATYPE(std::function<void(BookmarkItem &)>)

namespace {

std::unique_ptr<BookmarkItem> folder()
{
    return std::make_unique<BookmarkItem>(BookmarkKind::Folder, nullptr);
}

BookmarkItem *bookmark(BookmarkItem *parent, const QString &name)
{
    auto *item = new BookmarkItem(BookmarkKind::Bookmark, parent);
    item->setName(name);
    return item;
}

} // namespace

class TestBookmarkItem : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void bareDataCountsAsSavedAndStandsForNothing();
    void aNewItemHasDefaultsAndIsNotSaved();
    void anyChangeMakesAnItemUnsaved_data();
    void anyChangeMakesAnItemUnsaved();
    void onlyAnIdAboveZeroIsStored();
    void aNewsgroupHasShorterNames();
    void aFolderHasNoShorterNames();
    void aNewNameReplacesTheShorterOnes();
    void coloursAreEightNamesInTheirOrder();
    void aColourIsTakenInAnyCase_data();
    void aColourIsTakenInAnyCase();
    void childIsNullBehindTheEndAndForBookmarks();
    void childNamesAreComparedExactly();
    void aChildIsAppendedOnce();
    void childrenAreInsertedOnlyWithinTheList();
    void removingAChildLeavesItAlive();
    void removingChildrenStopsAtTheEnd_data();
    void removingChildrenStopsAtTheEnd();
    void aTreeOfAMillionLevelsIsDeletedWithoutADeepStack();
};

void TestBookmarkItem::bareDataCountsAsSavedAndStandsForNothing()
{
    const BookmarkItemData data;
    QVERIFY(data.saved);
    QVERIFY(!data.childrenLoaded);
    QVERIFY(!data.expanded);
    QCOMPARE(data.kind, BookmarkKind::Bookmark);
    QCOMPARE(int(data.kind), 0);
    QCOMPARE(int(BookmarkKind::Folder), 1);
    QCOMPARE(data.id, -1);
    QCOMPARE(data.parentId, -1);
    QVERIFY(!data.parent);
    QVERIFY(data.color.isNull() && data.name.isNull() && data.shortName.isNull() && data.tinyName.isNull());
    QVERIFY(data.children.isEmpty());
}

void TestBookmarkItem::aNewItemHasDefaultsAndIsNotSaved()
{
    const std::unique_ptr<BookmarkItem> parent = folder();
    const BookmarkItem item(BookmarkKind::Bookmark, parent.get());
    QVERIFY(!item.isSaved());
    QVERIFY(!item.isFolder());
    QVERIFY(!item.childrenLoaded());
    QCOMPARE(item.id(), -1);
    QCOMPARE(item.parentId(), -1);
    QCOMPARE(item.parent(), parent.get());
    QVERIFY(item.color().isNull() && item.name().isNull());
    QVERIFY(item.shortName().isNull() && item.tinyName().isNull());
    QVERIFY(parent->children().isEmpty());
}

void TestBookmarkItem::anyChangeMakesAnItemUnsaved_data()
{
    using Change = std::function<void(BookmarkItem &)>;
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("saved");
    const auto row = [](const char *name, const Change &change, bool saved = false) {
        QTest::newRow(name) << change << saved;
    };
    row(
        "nothing", [](BookmarkItem &) {}, true);
    row("id", [](BookmarkItem &item) { item.setId(1); });
    row("parent's id", [](BookmarkItem &item) { item.setParentId(1); });
    row("parent", [](BookmarkItem &item) { item.setParent(nullptr); });
    row("expanded", [](BookmarkItem &item) { item.setExpanded(true); });
    row("children loaded", [](BookmarkItem &item) { item.setChildrenLoaded(true); });
    row("name", [](BookmarkItem &item) { item.setName(QStringLiteral("x")); });
    row("colour", [](BookmarkItem &item) { item.setColor(QStringLiteral("red")); });
    row(
        "refused colour", [](BookmarkItem &item) { item.setColor(QStringLiteral("purple")); }, true);
    row("appended child", [](BookmarkItem &item) { item.appendChild(new BookmarkItem); });
    row("inserted child", [](BookmarkItem &item) { item.insertChild(0, new BookmarkItem); });
    row(
        "getters",
        [](BookmarkItem &item) {
            item.shortName();
            item.tinyName();
            item.children();
        },
        true);
}

void TestBookmarkItem::anyChangeMakesAnItemUnsaved()
{
    QFETCH(std::function<void(BookmarkItem &)>, change);
    BookmarkItem item;
    QVERIFY(item.isSaved());
    change(item);
    QTEST(item.isSaved(), "saved");
}

void TestBookmarkItem::onlyAnIdAboveZeroIsStored()
{
    const std::unique_ptr<BookmarkItem> item = folder();
    QVERIFY(!item->hasId());
    item->setId(0);
    QVERIFY(!item->hasId());
    item->setId(1);
    QVERIFY(item->hasId());
}

void TestBookmarkItem::aNewsgroupHasShorterNames()
{
    const std::unique_ptr<BookmarkItem> item(
        bookmark(nullptr, QStringLiteral("alt.binaries.pictures.alt.binaries.Alt.Binaries.x")));
    QCOMPARE(item->shortName(), QStringLiteral("a.b.pictures.a.b.Alt.Binaries.x"));
    QCOMPARE(item->tinyName(), QStringLiteral("a.b.p.a.b.A.B.x"));
    QCOMPARE(item->name(), QStringLiteral("alt.binaries.pictures.alt.binaries.Alt.Binaries.x"));
}

void TestBookmarkItem::aFolderHasNoShorterNames()
{
    const std::unique_ptr<BookmarkItem> item = folder();
    item->setName(QStringLiteral("alt.binaries.x"));
    QCOMPARE(item->shortName(), QStringLiteral("alt.binaries.x"));
    QVERIFY(item->tinyName().isNull());
}

void TestBookmarkItem::aNewNameReplacesTheShorterOnes()
{
    const std::unique_ptr<BookmarkItem> item(bookmark(nullptr, QStringLiteral("alt.binaries.one.x")));
    QCOMPARE(item->shortName(), QStringLiteral("a.b.one.x"));
    QCOMPARE(item->tinyName(), QStringLiteral("a.b.o.x"));
    item->setName(QStringLiteral("alt.binaries.two.y"));
    QCOMPARE(item->shortName(), QStringLiteral("a.b.two.y"));
    QCOMPARE(item->tinyName(), QStringLiteral("a.b.t.y"));
}

void TestBookmarkItem::coloursAreEightNamesInTheirOrder()
{
    QCOMPARE(folderColorNames().join(QLatin1Char(' ')),
             QStringLiteral("orange yellow red gray green brown cyan blue"));
}

void TestBookmarkItem::aColourIsTakenInAnyCase_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("held");
    QTest::newRow("known") << QStringLiteral("red") << QStringLiteral("red");
    QTest::newRow("capitals") << QStringLiteral("BLUE") << QStringLiteral("blue");
    QTest::newRow("empty") << QStringLiteral("") << QStringLiteral("");
    QTest::newRow("unknown") << QStringLiteral("purple") << QStringLiteral("cyan");
    QTest::newRow("unknown capitals") << QStringLiteral("PURPLE") << QStringLiteral("cyan");
    QTest::newRow("blank before") << QStringLiteral(" red") << QStringLiteral("cyan");
}

void TestBookmarkItem::aColourIsTakenInAnyCase()
{
    QFETCH(QString, given);
    QFETCH(QString, held);
    const std::unique_ptr<BookmarkItem> item = folder();
    item->setColor(QStringLiteral("cyan"));
    item->setColor(given);
    QCOMPARE(item->color(), held);
}

void TestBookmarkItem::childIsNullBehindTheEndAndForBookmarks()
{
    const std::unique_ptr<BookmarkItem> parent = folder();
    QVERIFY(!parent->child(0));
    QVERIFY(!parent->hasChildren());
    BookmarkItem *first = bookmark(parent.get(), QStringLiteral("a"));
    parent->appendChild(first);
    QCOMPARE(parent->child(0), first);
    QVERIFY(!parent->child(1));
    QVERIFY(parent->hasChildren());
    first->appendChild(bookmark(first, QStringLiteral("b")));
    QVERIFY(!first->child(0));
    QVERIFY(!first->hasChildren());
}

void TestBookmarkItem::childNamesAreComparedExactly()
{
    const std::unique_ptr<BookmarkItem> parent = folder();
    parent->appendChild(bookmark(parent.get(), QStringLiteral("Misc")));
    QVERIFY(parent->hasChildNamed(QStringLiteral("Misc")));
    QVERIFY(!parent->hasChildNamed(QStringLiteral("misc")));
    QVERIFY(!parent->hasChildNamed(QStringLiteral("Mis")));
    QVERIFY(!parent->hasChildNamed(QString()));
    BookmarkItem *child = parent->child(0);
    child->appendChild(bookmark(child, QStringLiteral("inner")));
    QVERIFY(!child->hasChildNamed(QStringLiteral("inner")));
}

void TestBookmarkItem::aChildIsAppendedOnce()
{
    const std::unique_ptr<BookmarkItem> parent = folder();
    BookmarkItem *child = bookmark(parent.get(), QStringLiteral("a"));
    parent->appendChild(child);
    parent->appendChild(child);
    QCOMPARE(parent->children().size(), 1);
}

void TestBookmarkItem::childrenAreInsertedOnlyWithinTheList()
{
    const std::unique_ptr<BookmarkItem> parent = folder();
    const std::unique_ptr<BookmarkItem> outside(bookmark(parent.get(), QStringLiteral("outside")));
    parent->insertChild(-1, outside.get());
    parent->insertChild(1, outside.get());
    QVERIFY(parent->children().isEmpty());
    BookmarkItem *last = bookmark(parent.get(), QStringLiteral("last"));
    BookmarkItem *first = bookmark(parent.get(), QStringLiteral("first"));
    parent->insertChild(0, last);
    parent->insertChild(0, first);
    QCOMPARE(parent->children(), (QList<BookmarkItem *>{first, last}));
}

void TestBookmarkItem::removingAChildLeavesItAlive()
{
    const std::unique_ptr<BookmarkItem> parent = folder();
    const std::unique_ptr<BookmarkItem> child(bookmark(parent.get(), QStringLiteral("a")));
    parent->insertChild(0, child.get());
    parent->insertChild(0, child.get());
    parent->removeChild(child.get());
    QVERIFY(parent->children().isEmpty());
    QCOMPARE(child->name(), QStringLiteral("a"));
}

void TestBookmarkItem::removingChildrenStopsAtTheEnd_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("left");
    QTest::newRow("negative row") << -1 << 1 << QStringLiteral("abc");
    QTest::newRow("behind the end") << 3 << 1 << QStringLiteral("abc");
    QTest::newRow("the middle") << 1 << 1 << QStringLiteral("ac");
    QTest::newRow("more than there are") << 1 << 99 << QStringLiteral("a");
    QTest::newRow("none") << 0 << 0 << QStringLiteral("abc");
}

void TestBookmarkItem::removingChildrenStopsAtTheEnd()
{
    QFETCH(int, row);
    QFETCH(int, count);
    const std::unique_ptr<BookmarkItem> parent = folder();
    for (const char name : {'a', 'b', 'c'})
        parent->appendChild(bookmark(parent.get(), QString(QLatin1Char(name))));
    parent->removeChildren(row, count);
    QString left;
    for (const BookmarkItem *child : parent->children())
        left += child->name();
    QTEST(left, "left");
}

void TestBookmarkItem::aTreeOfAMillionLevelsIsDeletedWithoutADeepStack()
{
    std::unique_ptr<BookmarkItem> top = folder();
    BookmarkItem *deepest = top.get();
    for (int level = 0; level < 1'000'000; ++level) {
        auto *next = new BookmarkItem(BookmarkKind::Folder, deepest);
        deepest->appendChild(next);
        deepest = next;
    }
    top.reset();
}

QTEST_GUILESS_MAIN(TestBookmarkItem)
#include "tst_bookmarkitem.moc"
