// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarkpayload.h"
#include "bookmarkstore.h"
#include "literalpayload.h"
#include "plugin/constants.h"
#include "tests/support/sanitized.h"

#include <QDataStream>
#include <QMimeData>
#include <QTest>

#include <limits>
#include <memory>
#include <random>

namespace {

constexpr qint32 manyRecords = std::numeric_limits<qint32>::max();

QString newsgroupFormat()
{
    return QStringLiteral("application/x-halvora.plain.newsgroup");
}

std::unique_ptr<BookmarkItem> folder(qint64 id, const QString &name)
{
    auto item = std::make_unique<BookmarkItem>(BookmarkKind::Folder, nullptr);
    item->setId(id);
    item->setName(name);
    return item;
}

BookmarkItem *addBookmark(BookmarkItem *parent, qint64 id, const QString &name)
{
    auto *item = new BookmarkItem(BookmarkKind::Bookmark, parent);
    item->setId(id);
    item->setParentId(parent->id());
    item->setName(name);
    parent->appendChild(item);
    return item;
}

/// A record and its name, and the announcement of @p children records in it.
QByteArray record(qint32 kind, qint64 id, qint64 parentId, const QString &name, qint32 children = 0)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(-1599029040) << kind << id << parentId << name << children;
    return bytes;
}

QByteArray number(qint32 value)
{
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly) << value;
    return bytes;
}

QByteArray newsgroups(const QStringList &names)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QString &name : names)
        stream << name;
    return bytes;
}

/// Two folders, one of them with a bookmark and a folder in it, as a drag of both gives them.
QByteArray wholePayload()
{
    const QString name = QStringLiteral("alt.x");
    return number(2) + record(1, 1, -1, QStringLiteral("One"), 2) + record(0, 3, 1, name) +
           record(1, 4, 1, QString()) + record(1, 2, -1, QStringLiteral("Two"));
}

std::unique_ptr<QMimeData> mimeData(const QString &format, const QByteArray &bytes)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(format, bytes);
    return data;
}

std::unique_ptr<QMimeData> bookmarks(const QByteArray &bytes)
{
    return mimeData(constants::bookmarkMimeType, bytes);
}

/// Whether the records that are read are those that the literal reader gives; the last one stands for all the
/// rest.
bool agreesWithTheLiteralReader(const QByteArray &bytes)
{
    const QVector<BookmarkRecord> literal = literalpayload::read(bytes);
    const QVector<BookmarkRecord> read = bookmarkpayload::read(bytes);
    if (read.size() > literal.size() || read.isEmpty() != literal.isEmpty())
        return false;
    for (int i = 0; i < literal.size(); ++i) {
        if (!literalpayload::isSame(literal.at(i), read.at(qMin(i, read.size() - 1))))
            return false;
    }
    return bookmarkpayload::readNewsgroups(bytes) == literalpayload::readNewsgroups(bytes);
}

} // namespace

class TestBookmarkPayload : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyFieldOfATreeIsWrittenInItsPlace();
    void anItemBesideItsFolderIsWrittenTwice();
    void onlyTheTopRecordsAreRead();
    void recordsAreReadLikeTheLiteralReaderDoes_data();
    void recordsAreReadLikeTheLiteralReaderDoes();
    void aPayloadThatEndsAnywhereIsReadToThere();
    void recordsBehindTheEndAreOneDefaultRecord();
    void newsgroupsAreReadToTheEnd_data();
    void newsgroupsAreReadToTheEnd();
    void manyLevelsNeedNoDeepStack();
    void randomBytesComeToAnEnd();
    void aDropOfBookmarksIsAllowedByNameOrForAReordering_data();
    void aDropOfBookmarksIsAllowedByNameOrForAReordering();
    void aDropOfNewsgroupsIsAllowedUnlessAnyIsThere_data();
    void aDropOfNewsgroupsIsAllowedUnlessAnyIsThere();
    void onlyFoldersTakeADrop();
    void bookmarksAreOnlyMoved();
    void aDropSkipsRowsThatAreGone();
};

void TestBookmarkPayload::everyFieldOfATreeIsWrittenInItsPlace()
{
    const std::unique_ptr<BookmarkItem> top = folder(0x0102030405060708, QStringLiteral("A\u00e4"));
    addBookmark(top.get(), 7, QStringLiteral("b"));
    BookmarkItem *nameless = addBookmark(top.get(), -2, QString());
    nameless->setParentId(-1);
    const QByteArray expected = QByteArray("00000001" // records
                                           "a0b0c0d0"
                                           "00000001" // mark, kind
                                           "0102030405060708"
                                           "ffffffffffffffff" // id, parent
                                           "00000004"
                                           "0041"
                                           "00e4"
                                           "00000002" // name, children
                                           "a0b0c0d0"
                                           "00000000" //
                                           "0000000000000007"
                                           "0102030405060708" //
                                           "00000002"
                                           "0062"
                                           "00000000" //
                                           "a0b0c0d0"
                                           "00000000" //
                                           "fffffffffffffffe"
                                           "ffffffffffffffff" //
                                           "ffffffff"
                                           "00000000"); // a null name
    QCOMPARE(bookmarkpayload::write({top.get()}).toHex(), expected);
    QCOMPARE(bookmarkpayload::write({}).toHex(), QByteArray("00000000"));
}

void TestBookmarkPayload::anItemBesideItsFolderIsWrittenTwice()
{
    const std::unique_ptr<BookmarkItem> top = folder(1, QStringLiteral("A"));
    BookmarkItem *inner = addBookmark(top.get(), 2, QStringLiteral("b"));
    const QByteArray child = record(0, 2, 1, QStringLiteral("b"));
    QCOMPARE(bookmarkpayload::write({top.get(), inner}),
             number(2) + record(1, 1, -1, QStringLiteral("A"), 1) + child + child);
}

void TestBookmarkPayload::onlyTheTopRecordsAreRead()
{
    const QVector<BookmarkRecord> records = bookmarkpayload::read(wholePayload());
    QCOMPARE(records.size(), 2);
    QVERIFY(literalpayload::isSame(records.at(0), {1, 1, -1, QStringLiteral("One")}));
    QVERIFY(literalpayload::isSame(records.at(1), {1, 2, -1, QStringLiteral("Two")}));
}

void TestBookmarkPayload::recordsAreReadLikeTheLiteralReaderDoes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray simple = record(0, 5, 6, QStringLiteral("a"));
    const QByteArray head = simple.left(24);
    const QByteArray tail = number(0) + simple;
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no records") << number(0);
    QTest::newRow("a negative count") << number(-1) + simple;
    QTest::newRow("two trees") << wholePayload();
    QTest::newRow("more announced than there are") << number(9) + simple + simple;
    QTest::newRow("fewer announced than there are") << number(1) + simple + simple;
    QTest::newRow("another mark") << number(2) + number(0) + simple.mid(4) + number(-1) + simple.mid(4);
    QTest::newRow("another kind") << number(1) + record(99, 5, 6, QStringLiteral("a"));
    QTest::newRow("no children, but a negative count")
        << number(2) + record(1, 5, 6, QString(), -7) + record(1, 8, 9, QStringLiteral("b"));
    QTest::newRow("children that swallow the next record")
        << number(3) + record(1, 5, 6, QStringLiteral("a"), 1) + simple +
               record(1, 8, 9, QStringLiteral("b"));
    QTest::newRow("more children than bytes")
        << number(2) + record(1, 5, 6, QStringLiteral("a"), 1000) + simple + simple;
    QTest::newRow("an empty name") << number(2) + head + number(0) + tail;
    QTest::newRow("a null name") << number(2) + head + number(-1) + tail;
    QTest::newRow("a name of an odd length") << number(2) + head + number(3) + QByteArray(3, 'a') + tail;
    QTest::newRow("a name that is longer than the rest") << number(2) + head + number(1 << 20) + tail;
    QTest::newRow("a name of nearly all that a length can say") << number(2) + head + number(-2) + tail;
    QTest::newRow("a long name without data") << number(2) + head + number(-2);
}

void TestBookmarkPayload::recordsAreReadLikeTheLiteralReaderDoes()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(agreesWithTheLiteralReader(bytes));
}

void TestBookmarkPayload::aPayloadThatEndsAnywhereIsReadToThere()
{
    const QByteArray whole = wholePayload();
    const int first = 4 + record(1, 1, -1, QStringLiteral("One")).size();
    for (int length = 0; length <= whole.size(); ++length) {
        const QByteArray bytes = whole.left(length);
        QVERIFY2(agreesWithTheLiteralReader(bytes), qPrintable(QString::number(length)));
        const QVector<BookmarkRecord> records = bookmarkpayload::read(bytes);
        QCOMPARE(records.isEmpty(), length < 4);
        if (length >= first)
            QCOMPARE(records.constFirst().name, QStringLiteral("One"));
    }
}

void TestBookmarkPayload::recordsBehindTheEndAreOneDefaultRecord()
{
    QVector<BookmarkRecord> records = bookmarkpayload::read(number(manyRecords));
    QCOMPARE(records.size(), 1);
    QVERIFY(literalpayload::isSame(records.constFirst(), {0, 0, 0, QLatin1String("")}));
    records = bookmarkpayload::read(number(manyRecords) + record(1, 5, 6, QStringLiteral("a"), manyRecords));
    QCOMPARE(records.size(), 2);
    QVERIFY(literalpayload::isSame(records.constFirst(), {1, 5, 6, QStringLiteral("a")}));
    QVERIFY(literalpayload::isSame(records.constLast(), {0, 0, 0, QLatin1String("")}));
}

void TestBookmarkPayload::newsgroupsAreReadToTheEnd_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("names");
    const QString first = QStringLiteral("alt.a");
    const QByteArray two = newsgroups({first, QStringLiteral("b")});
    QTest::newRow("none") << QByteArray() << QStringList();
    QTest::newRow("two") << two << QStringList{first, QStringLiteral("b")};
    QTest::newRow("the second cut") << two.chopped(1) << QStringList{first, QString()};
    QTest::newRow("the second's length cut") << two.chopped(4) << QStringList{first, QString()};
    QTest::newRow("an odd length") << number(1) + two << QStringList{QString(), first, QStringLiteral("b")};
    QTest::newRow("null and empty") << number(-1) + number(0) << QStringList{QString(), QString()};
    QTest::newRow("a long one without data") << number(-2) << QStringList{QString()};
}

void TestBookmarkPayload::newsgroupsAreReadToTheEnd()
{
    QFETCH(QByteArray, bytes);
    QTEST(bookmarkpayload::readNewsgroups(bytes), "names");
    QVERIFY(agreesWithTheLiteralReader(bytes));
}

void TestBookmarkPayload::manyLevelsNeedNoDeepStack()
{
    const int levels = 1'000'000 / sanitizedShare;
    std::unique_ptr<BookmarkItem> top = folder(1, QStringLiteral("top"));
    BookmarkItem *deepest = top.get();
    for (int level = 1; level < levels; ++level) {
        auto *next = new BookmarkItem(BookmarkKind::Folder, deepest);
        deepest->appendChild(next);
        deepest = next;
    }
    const QByteArray bytes = bookmarkpayload::write({top.get(), top.get()});
    top.reset();
    const int recordSize = record(1, -1, -1, QString()).size();
    const int nameSize = 6;
    QCOMPARE(bytes.size(), 4 + 2 * (levels * recordSize + nameSize));
    const QVector<BookmarkRecord> records = bookmarkpayload::read(bytes);
    QCOMPARE(records.size(), 2);
    QVERIFY(literalpayload::isSame(records.constLast(), {1, 1, -1, QStringLiteral("top")}));
}

void TestBookmarkPayload::randomBytesComeToAnEnd()
{
    constexpr int size = 200'000;
    std::mt19937 random(4); // NOLINT(cert-msc51-cpp): the same bytes every time
    for (int round = 0; round < 20; ++round) {
        QByteArray bytes = number(manyRecords);
        while (bytes.size() < size)
            bytes += number(random() % 3 == 0 ? qint32(random()) : qint32(random() % 4));
        const QVector<BookmarkRecord> records = bookmarkpayload::read(bytes);
        QVERIFY(!records.isEmpty() && records.size() <= bytes.size());
        QVERIFY(bookmarkpayload::readNewsgroups(bytes).size() <= bytes.size());
    }
}

void TestBookmarkPayload::aDropOfBookmarksIsAllowedByNameOrForAReordering_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("allowed");
    const QByteArray own = record(0, 5, 1, QStringLiteral("alt.x"));
    const QByteArray other = record(0, 6, 2, QStringLiteral("alt.y"));
    QTest::newRow("nothing") << QByteArray() << true;
    QTest::newRow("no records") << number(0) << true;
    QTest::newRow("a negative count") << number(-5) + record(0, 6, 2, QStringLiteral("alt.x")) << true;
    QTest::newRow("all from this folder") << number(2) + own + own << true;
    QTest::newRow("one from this folder, one not") << number(2) + own + other << false;
    QTest::newRow("a new name") << number(1) + other << true;
    QTest::newRow("a name that is there") << number(1) + record(0, 6, 2, QStringLiteral("alt.x")) << false;
    QTest::newRow("a name in another case") << number(1) + record(0, 6, 2, QStringLiteral("Alt.x")) << true;
    QTest::newRow("a name that only a nested record has")
        << number(1) + record(1, 6, 2, QStringLiteral("alt.y"), 1) + own << true;
    QTest::newRow("no name beside a nameless bookmark") << number(1) + record(0, 6, 2, QString()) << false;
    QTest::newRow("this folder's, and behind the end") << number(2) + own << false;
    QTest::newRow("behind the end, as many as can be said") << number(manyRecords) << false;
}

void TestBookmarkPayload::aDropOfBookmarksIsAllowedByNameOrForAReordering()
{
    QFETCH(QByteArray, bytes);
    BookmarkStore store;
    const QModelIndex index = store.addFolder(QStringLiteral("Folder"));
    store.model().addBookmarks({QStringLiteral("alt.x"), QString()}, index);
    QTEST(store.model().canDropMimeData(bookmarks(bytes).get(), Qt::MoveAction, -1, -1, index), "allowed");
}

void TestBookmarkPayload::aDropOfNewsgroupsIsAllowedUnlessAnyIsThere_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("none") << QStringList() << true;
    QTest::newRow("new ones") << QStringList{QStringLiteral("alt.y"), QStringLiteral("ALT.X")} << true;
    QTest::newRow("the last is there")
        << QStringList{QStringLiteral("alt.y"), QStringLiteral("alt.x")} << false;
    QTest::newRow("a folder's name") << QStringList{QStringLiteral("Inner")} << false;
}

void TestBookmarkPayload::aDropOfNewsgroupsIsAllowedUnlessAnyIsThere()
{
    QFETCH(QStringList, names);
    QFETCH(bool, allowed);
    BookmarkStore store;
    const QModelIndex index = store.addFolder(QStringLiteral("Folder"));
    store.addFolder(QStringLiteral("Inner"), index);
    store.model().addBookmarks({QStringLiteral("alt.x")}, index);
    const std::unique_ptr<QMimeData> data = mimeData(newsgroupFormat(), newsgroups(names));
    // Newsgroups go first where a drag offers both.
    data->setData(constants::bookmarkMimeType, number(manyRecords));
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction, Qt::LinkAction})
        QCOMPARE(store.model().canDropMimeData(data.get(), action, 0, 0, index), allowed);
}

void TestBookmarkPayload::onlyFoldersTakeADrop()
{
    BookmarkStore store;
    const QModelIndex index = store.addFolder(QStringLiteral("Folder"));
    store.model().addBookmarks({QStringLiteral("alt.x")}, index);
    const QModelIndex bookmark = store.at({0, 0});
    for (const QString &format : {newsgroupFormat(), constants::bookmarkMimeType}) {
        const std::unique_ptr<QMimeData> data = mimeData(format, {});
        const auto isAllowed = [&](int column, const QModelIndex &parent) {
            return store.model().canDropMimeData(data.get(), Qt::MoveAction, 0, column, parent);
        };
        QVERIFY(isAllowed(0, index));
        QVERIFY(isAllowed(-1, index));
        QVERIFY(!isAllowed(1, index));
        QVERIFY(!isAllowed(0, {}));
        QVERIFY(!isAllowed(0, bookmark));
    }
}

void TestBookmarkPayload::bookmarksAreOnlyMoved()
{
    BookmarkStore store;
    const QModelIndex index = store.addFolder(QStringLiteral("Folder"));
    const std::unique_ptr<QMimeData> data = bookmarks(number(0));
    QVERIFY(store.model().canDropMimeData(data.get(), Qt::MoveAction, 0, 0, index));
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::LinkAction, Qt::IgnoreAction})
        QVERIFY(!store.model().canDropMimeData(data.get(), action, 0, 0, index));
    QVERIFY(!store.model().canDropMimeData(mimeData(QStringLiteral("text/plain"), "x").get(), Qt::MoveAction,
                                           0, 0, index));
}

void TestBookmarkPayload::aDropSkipsRowsThatAreGone()
{
    BookmarkStore store;
    const QModelIndex index = store.addFolder(QStringLiteral("Folder"));
    store.model().addBookmarks({QStringLiteral("alt.x")}, {});
    const qint64 id = store.model().itemFromIndex(store.at({1}))->id();
    const QByteArray gone = record(0, 99, -1, QStringLiteral("gone"));
    // What a record says of its row is not believed; behind the end there is none.
    const QByteArray there = record(1, id, -1, QStringLiteral("Another name"));
    const auto drop = [&](const QByteArray &bytes) {
        return store.model().dropMimeData(bookmarks(bytes).get(), Qt::MoveAction, -1, -1, index);
    };
    QVERIFY(!drop(number(2) + gone + gone));
    QVERIFY(!drop(number(manyRecords)));
    QVERIFY(store.names(index).isEmpty());
    QVERIFY(drop(number(manyRecords) + gone + there));
    QCOMPARE(store.names(index), QStringList{QStringLiteral("alt.x")});
}

QTEST_MAIN(TestBookmarkPayload)
#include "tst_bookmarkpayload.moc"
