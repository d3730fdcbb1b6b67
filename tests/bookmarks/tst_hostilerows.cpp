// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkitem.h"
#include "bookmarkstore.h"
#include "storecheck.h"

#include <QTest>

#include <memory>

namespace {

QString table()
{
    return QStringLiteral(
        "PRAGMA synchronous = OFF; CREATE TABLE bookmarks (bookmark_id INTEGER PRIMARY KEY AUTOINCREMENT,"
        "parent_id INTEGER,bookmark_name TEXT,bookmark_newsgroup TEXT,bookmark_color TEXT,bookmark_expanded "
        "BOOLEAN, bookmark_order INTEGER);");
}

QString rows(const char *values)
{
    return table() + QStringLiteral("INSERT INTO bookmarks VALUES ") + QLatin1String(values);
}

/// The table with a column less, and one row at the top.
QString tableWithout(const char *column)
{
    QString names =
        QStringLiteral("bookmark_id INTEGER PRIMARY KEY, parent_id, bookmark_name, bookmark_newsgroup, "
                       "bookmark_color, bookmark_expanded, bookmark_order");
    names.remove(QLatin1String(column) + QStringLiteral(", "));
    names.remove(QStringLiteral(", ") + QLatin1String(column));
    return QStringLiteral("CREATE TABLE bookmarks (%1); INSERT INTO bookmarks (rowid) VALUES (1)").arg(names);
}

QString millionOf(const char *text)
{
    constexpr int size = 1'000'000;
    const QString part = QLatin1String(text);
    return part.repeated(size / part.size());
}

} // namespace

class TestHostileRows : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void rowsAreShownByWhatTheyHold_data();
    void rowsAreShownByWhatTheyHold();
    void rowsThatNothingLeadsToStay_data();
    void rowsThatNothingLeadsToStay();
    void colourIsStoredAsItIsHeldAtTheNextWrite_data();
    void colourIsStoredAsItIsHeldAtTheNextWrite();
    void placesAreSettledByTheNextWrite();
    void aRowWithoutAPositiveIdIsStoredAnewWhenItChanges();
    void aTextWithAZeroInItIsKept();
    void aNameOfAMillionCharactersIsAName_data();
    void aNameOfAMillionCharactersIsAName();
    void aTableOfAnotherShapeCanBeUsed_data();
    void aTableOfAnotherShapeCanBeUsed();
    void moreColumnsAreLeftAlone();

private:
    std::unique_ptr<ConnectionWarnings> m_warnings;
};

void TestHostileRows::init()
{
    m_warnings = std::make_unique<ConnectionWarnings>();
}

// Every store is closed by now.
void TestHostileRows::cleanup()
{
    const QString warnings = m_warnings->text();
    m_warnings.reset();
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings));
}

void TestHostileRows::rowsAreShownByWhatTheyHold_data()
{
    QTest::addColumn<QString>("statements");
    QTest::addColumn<QString>("shown"); // lines, parted by "|"
    const auto row = [](const char *title, const char *values, const QString &shown) {
        QTest::newRow(title) << rows(values) << shown;
    };
    row("a name", "(1, NULL, 'n', NULL, NULL, 0, 0)", QStringLiteral("[n]"));
    row("a newsgroup", "(1, NULL, NULL, 'g', NULL, 0, 0)", QStringLiteral("g"));
    row("both names", "(1, NULL, 'n', 'g', NULL, 0, 0)", QStringLiteral("g"));
    row("a name and an empty newsgroup", "(1, NULL, 'n', '', NULL, 0, 0)", QString());
    row("no name at all", "(1, NULL, NULL, NULL, NULL, 0, 0)", QStringLiteral("[]"));
    row("bytes for a name", "(1, NULL, x'6162', NULL, NULL, 0, 0)", QStringLiteral("[ab]"));
    row("bytes for a newsgroup", "(1, NULL, 'n', x'6162', NULL, 0, 0)", QStringLiteral("ab"));
    row("a number for a newsgroup", "(1, NULL, 'n', 12, NULL, 0, 0)", QStringLiteral("12"));
    row("bytes that are no text", "(1, NULL, NULL, CAST(x'61ff62' AS TEXT), NULL, 0, 0)",
        QStringLiteral("a\uFFFDb"));
    row("colours",
        "(1, NULL, 'a', NULL, 'purple', 0, 0), (2, NULL, 'b', NULL, 'BLUE', 0, 1), "
        "(3, NULL, NULL, 'c', 'Red', 0, 2), (4, NULL, 'd', NULL, ' red', 0, 3), "
        "(5, NULL, 'e', NULL, 7, 0, 4), (6, NULL, 'f', NULL, x'726564', 0, 5)",
        QStringLiteral("[a]|[b] blue|c red|[d]|[e]|[f] red"));
    row("expanded",
        "(1, NULL, 'a', NULL, NULL, 7, 0), (2, NULL, 'b', NULL, NULL, 'true', 1), "
        "(3, NULL, 'c', NULL, NULL, 'false', 2), (4, NULL, 'd', NULL, NULL, NULL, 3), "
        "(5, NULL, NULL, 'e', NULL, 1, 4)",
        QStringLiteral("[a] +|[b] +|[c]|[d]|e"));
    row("places",
        "(1, NULL, 'text', NULL, NULL, 0, 'first'), (2, NULL, 'two', NULL, NULL, 0, 2), "
        "(3, NULL, 'two, too', NULL, NULL, 0, '2'), (4, NULL, 'half', NULL, NULL, 0, 0.5), "
        "(5, NULL, 'negative', NULL, NULL, 0, -9), (6, NULL, 'none', NULL, NULL, 0, NULL), "
        "(7, NULL, 'bytes', NULL, NULL, 0, x'00'), (8, NULL, 'zero', NULL, NULL, 0, 0)",
        QStringLiteral("[none]|[negative]|[zero]|[half]|[two]|[two, too]|[text]|[bytes]"));
    row("a bookmark with rows below it", "(1, NULL, NULL, 'g', NULL, 0, 0), (2, 1, 'n', NULL, NULL, 0, 0)",
        QStringLiteral("g"));
    row("parents",
        "(1, NULL, 'a', NULL, NULL, 0, 0), (2, '1', 'text', NULL, NULL, 0, 0), "
        "(3, 1.0, 'whole', NULL, NULL, 0, 1), (4, 1.5, 'half', NULL, NULL, 0, 2), "
        "(5, 'one', 'word', NULL, NULL, 0, 3), (6, -1, 'negative', NULL, NULL, 0, 4)",
        QStringLiteral("[a]| [text]| [whole]"));
    row("ids",
        "(0, NULL, 'zero', NULL, NULL, 0, 0), (-3, NULL, 'minus', NULL, NULL, 0, 1), "
        "(9, 0, 'below zero', NULL, NULL, 0, 0), (10, -3, 'below minus', NULL, NULL, 0, 0), "
        "(9223372036854775807, NULL, 'last', NULL, NULL, 0, 2), "
        "(11, 9223372036854775807, 'below last', NULL, NULL, 0, 0)",
        QStringLiteral("[zero]|[minus]|[last]| [below last]"));
}

void TestHostileRows::rowsAreShownByWhatTheyHold()
{
    QFETCH(QString, statements);
    BookmarkStore store(false);
    store.execute(statements);
    store.open();
    store.check();
    QTEST(storecheck::shown(store).join(QLatin1Char('|')), "shown");
    store.close();
    storecheck::useAndReopen(store);
}

void TestHostileRows::rowsThatNothingLeadsToStay_data()
{
    QTest::addColumn<QString>("lost");
    QTest::newRow("its own parent") << QStringLiteral("(7, 7, 'n', NULL, 'red', 1, 3)");
    QTest::newRow("two that hold each other")
        << QStringLiteral("(7, 8, 'n', NULL, 'red', 1, 3), (8, 7, 'm', NULL, NULL, 0, 0)");
    QTest::newRow("a circle of three and what is in it") << QStringLiteral(
        "(7, 9, 'n', NULL, 'red', 1, 3), (8, 7, 'm', NULL, NULL, 0, 0), (9, 8, 'o', NULL, NULL, 0, 0), "
        "(10, 9, NULL, 'g', NULL, 0, 1)");
    QTest::newRow("without a parent")
        << QStringLiteral("(7, 99, 'n', NULL, 'red', 1, 3), (8, 7, NULL, 'g', NULL, 0, 0)");
    QTest::newRow("below a bookmark")
        << QStringLiteral("(7, 2, 'n', NULL, 'red', 1, 3), (8, 7, NULL, 'g', NULL, 0, 0)");
}

void TestHostileRows::rowsThatNothingLeadsToStay()
{
    QFETCH(QString, lost);
    BookmarkStore store(false);
    store.execute(rows("(1, NULL, 'Folder', NULL, NULL, 0, 0), (2, 1, NULL, 'alt.x', NULL, 0, 0), "
                       "(3, NULL, 'Last', NULL, NULL, 0, 1)"));
    store.execute(QStringLiteral("INSERT INTO bookmarks VALUES ") + lost);
    const QVector<BookmarkRow> before = store.rows().mid(3);
    store.open();
    store.check();
    QCOMPARE(storecheck::shown(store).join(QLatin1Char('|')), QStringLiteral("[Folder]| alt.x|[Last]"));
    store.addFolder(QStringLiteral("Own"), store.at({0}));
    store.model().setItemColor(store.at({0, 1}), QStringLiteral("cyan"));
    store.model().removeBookmark(store.at({1}));
    store.close();
    QCOMPARE(store.rows().mid(2, before.size()), before);
    storecheck::useAndReopen(store);
}

void TestHostileRows::colourIsStoredAsItIsHeldAtTheNextWrite_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("rewritten");
    QTest::newRow("capitals") << QStringLiteral("'BLUE'") << QStringLiteral("blue");
    QTest::newRow("unknown") << QStringLiteral("'purple'") << QStringLiteral("NULL");
    QTest::newRow("known") << QStringLiteral("'red'") << QStringLiteral("red");
    QTest::newRow("none") << QStringLiteral("NULL") << QStringLiteral("NULL");
}

void TestHostileRows::colourIsStoredAsItIsHeldAtTheNextWrite()
{
    QFETCH(QString, stored);
    QFETCH(QString, rewritten);
    BookmarkStore store(false);
    store.execute(table() + QStringLiteral("INSERT INTO bookmarks VALUES (1, NULL, 'a', NULL, %1, 0, 0), "
                                           "(2, NULL, 'b', NULL, %1, 0, 1)")
                                .arg(stored));
    const QString untouched = store.rows().at(1).at(4);
    store.open();
    QVERIFY(store.model().setData(store.at({0}), QStringLiteral("renamed")));
    QCOMPARE(store.rows().at(0).at(4), rewritten);
    QCOMPARE(store.rows().at(1).at(4), untouched);
}

void TestHostileRows::placesAreSettledByTheNextWrite()
{
    BookmarkStore store(false);
    store.execute(rows("(1, NULL, 'text', NULL, NULL, 0, 'first'), (2, NULL, 'two', NULL, NULL, 0, 2), "
                       "(3, NULL, 'two, too', NULL, NULL, 0, 2), (4, NULL, 'none', NULL, NULL, 0, NULL), "
                       "(5, NULL, 'negative', NULL, NULL, 0, -1)"));
    store.open();
    store.addFolder(QStringLiteral("Own"));
    const QStringList settled = {QStringLiteral("none 0"), QStringLiteral("negative 1"),
                                 QStringLiteral("two 2"),  QStringLiteral("two, too 3"),
                                 QStringLiteral("text 4"), QStringLiteral("Own 5")};
    QCOMPARE(store.orders(QStringLiteral("NULL")), settled);
}

// Such an item counts as one that is not stored yet, and its row stays beside the new one.
void TestHostileRows::aRowWithoutAPositiveIdIsStoredAnewWhenItChanges()
{
    BookmarkStore store(false);
    store.execute(rows("(-3, NULL, 'minus', NULL, 'red', 0, 0), (0, NULL, 'zero', NULL, NULL, 0, 1)"));
    store.open();
    store.check();
    store.model().setData(store.at({0}), QStringLiteral("one"));
    store.model().setData(store.at({1}), QStringLiteral("two"));
    QCOMPARE(store.names().join(QLatin1Char('|')), QStringLiteral("one|two"));
    const qint64 first = store.model().itemFromIndex(store.at({0}))->id();
    QCOMPARE(store.model().itemFromIndex(store.at({1}))->id(), first + 1);
    QVERIFY(first > 0);
    store.close();
    QCOMPARE(store.rows().size(), 4);
    store.open();
    QStringList names = store.names();
    names.sort();
    QCOMPARE(names.join(QLatin1Char('|')), QStringLiteral("minus|one|two|zero"));
}

void TestHostileRows::aTextWithAZeroInItIsKept()
{
    BookmarkStore store(false);
    store.execute(rows("(1, NULL, NULL, CAST(x'610062' AS TEXT), NULL, 0, 0)"));
    store.open();
    store.check();
    QCOMPARE(store.names().constFirst(), QString::fromLatin1("a\0b", 3));
    store.model().setItemColor(store.at({0}), QStringLiteral("red"));
    QCOMPARE(
        storecheck::value(store.path(), "SELECT hex(bookmark_newsgroup) || bookmark_color FROM bookmarks"),
        QStringLiteral("610062red"));
}

void TestHostileRows::aNameOfAMillionCharactersIsAName_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("one word") << millionOf("x");
    QTest::newRow("dots") << millionOf(".");
    QTest::newRow("many parts") << millionOf("a.");
    QTest::newRow("what is shortened, many times") << millionOf("alt.binaries.");
}

void TestHostileRows::aNameOfAMillionCharactersIsAName()
{
    QFETCH(QString, name);
    BookmarkStore store(false);
    store.execute(table() + QStringLiteral("INSERT INTO bookmarks VALUES (1, NULL, '%1', NULL, NULL, 0, 0), "
                                           "(2, 1, NULL, '%1', NULL, 0, 0)")
                                .arg(name));
    store.open();
    store.check();
    const QModelIndex bookmark = store.at({0, 0});
    QCOMPARE(bookmark.data(Qt::ToolTipRole).toString(), name);
    QVERIFY(bookmark.data().toString().size() <= name.size());
    QVERIFY(!store.model().itemFromIndex(bookmark)->shortName().isEmpty());
    QVERIFY(store.model().setData(store.at({0}), name + name));
    store.close();
    storecheck::useAndReopen(store);
    QCOMPARE(store.rows().at(0).at(2), name + name);
}

void TestHostileRows::aTableOfAnotherShapeCanBeUsed_data()
{
    QTest::addColumn<QString>("statements");
    const QString columns = QStringLiteral("bookmark_id, parent_id, bookmark_name, bookmark_newsgroup, "
                                           "bookmark_color, bookmark_expanded, bookmark_order");
    for (const char *column : {"parent_id", "bookmark_name", "bookmark_newsgroup", "bookmark_color",
                               "bookmark_expanded", "bookmark_order"})
        QTest::addRow("without %s", column) << tableWithout(column);
    QTest::newRow("another table") << QStringLiteral("CREATE TABLE bookmarks (a, b)");
    QTest::newRow("no key, one row many times")
        << QStringLiteral(
               "CREATE TABLE bookmarks (%1); INSERT INTO bookmarks VALUES (1, NULL, 'n', NULL, '', 0, 0), "
               "(1, NULL, 'm', NULL, '', 0, 0), (2, NULL, NULL, 'g', '', 0, 0)")
               .arg(columns);
    QTest::newRow("no key, and a folder in itself")
        << QStringLiteral(
               "CREATE TABLE bookmarks (%1); INSERT INTO bookmarks VALUES (1, NULL, 'n', NULL, '', 0, 0), "
               "(1, 1, 'n', NULL, '', 0, 0)")
               .arg(columns);
    QTest::newRow("no ids") << QStringLiteral(
                                   "CREATE TABLE bookmarks (%1); INSERT INTO bookmarks (bookmark_name) "
                                   "VALUES ('n'), ('m')")
                                   .arg(columns);
    QTest::newRow("a view") << QStringLiteral(
                                   "CREATE TABLE t (%1); INSERT INTO t VALUES (1, NULL, 'n', NULL, '', "
                                   "0, 0), (2, 1, NULL, 'g', '', 0, 0); CREATE VIEW bookmarks AS "
                                   "SELECT * FROM t")
                                   .arg(columns);
    QTest::newRow("an index of that name")
        << QStringLiteral("CREATE TABLE t (a); CREATE INDEX bookmarks ON t (a)");
    QTest::newRow("names are unique")
        << QStringLiteral("CREATE TABLE bookmarks (%1, UNIQUE (bookmark_order))")
               .arg(QString(columns).replace(QStringLiteral("bookmark_id"),
                                             QStringLiteral("bookmark_id INTEGER "
                                                            "PRIMARY KEY")));
    const QString trigger =
        table() + QStringLiteral("CREATE TRIGGER t AFTER %1 ON bookmarks BEGIN SELECT RAISE(%2, "
                                 "'no'); END");
    QTest::newRow("nothing can be added") << trigger.arg(QStringLiteral("INSERT"), QStringLiteral("ABORT"));
    QTest::newRow("an addition takes all back")
        << trigger.arg(QStringLiteral("INSERT"), QStringLiteral("ROLLBACK"));
    QTest::newRow("nothing can be changed") << trigger.arg(QStringLiteral("UPDATE"), QStringLiteral("FAIL"));
    QTest::newRow("a change takes all back")
        << trigger.arg(QStringLiteral("UPDATE"), QStringLiteral("ROLLBACK"));
    QTest::newRow("nothing can be removed")
        << trigger.arg(QStringLiteral("DELETE"), QStringLiteral("ROLLBACK"));
}

void TestHostileRows::aTableOfAnotherShapeCanBeUsed()
{
    QFETCH(QString, statements);
    BookmarkStore store(false);
    store.execute(statements);
    store.open();
    store.check();
    const QStringList shown = storecheck::shown(store);
    store.addFolder(QStringLiteral("Own"));
    store.model().addBookmarks({QStringLiteral("alt.x")}, store.at({store.model().rowCount() - 1}));
    if (!shown.isEmpty()) {
        store.model().setData(store.at({0}), QStringLiteral("Renamed"));
        QCOMPARE(store.names().constFirst(), QStringLiteral("Renamed"));
    }
    store.model().removeBookmark(store.at({0}));
    store.close();
    QCOMPARE(storecheck::value(store.path(), "PRAGMA integrity_check"), QStringLiteral("ok"));
    store.open();
    store.check();
    storecheck::shown(store);
    store.model().clearBookmarks();
    QVERIFY(store.names().isEmpty());
}

void TestHostileRows::moreColumnsAreLeftAlone()
{
    BookmarkStore store(false);
    store.execute(rows("(1, NULL, 'Folder', NULL, NULL, 0, 0)") +
                  QStringLiteral("; ALTER TABLE bookmarks ADD COLUMN note TEXT DEFAULT 'new'; "
                                 "UPDATE bookmarks SET note = 'old'"));
    storecheck::useAndReopen(store);
    QVERIFY(storecheck::isSound(store.path()));
    QCOMPARE(storecheck::value(store.path(), "SELECT group_concat(note, ' ') FROM bookmarks"),
             QStringLiteral("old new new"));
}

QTEST_MAIN(TestHostileRows)
#include "tst_hostilerows.moc"
