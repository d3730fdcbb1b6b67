// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkitem.h"
#include "bookmarkstore.h"
#include "storecheck.h"

#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QTest>

#include <sqlite3.h>

#include <algorithm>
#include <csignal>
#include <memory>
#include <optional>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr auto openFolder = QFile::Permissions(0x7055);
constexpr auto closedFolder = QFile::Permissions(0x5055);

/// Somebody whom the rights of a file mean something to, which they do not to root.
class Unprivileged {
public:
    Unprivileged()
        : m_before(::geteuid())
    {
        constexpr uid_t nobody = 65534;
        m_changed = m_before == 0 && ::seteuid(nobody) == 0;
    }
    ~Unprivileged()
    {
        if (m_changed && ::seteuid(m_before) != 0)
            qFatal("The rights do not come back");
    }
    Q_DISABLE_COPY(Unprivileged)

private:
    const uid_t m_before;
    bool m_changed;
};

/// As long as it lives, something is wrong with writing.
class Fault {
public:
    Fault() = default;
    virtual ~Fault() = default;
    Q_DISABLE_COPY(Fault)
};

/// The database has all the pages that it may have.
class PageLimit : public Fault {
public:
    PageLimit()
    {
        sqlite3_exec(BookmarkStore::handle(), "PRAGMA max_page_count = 1", nullptr, nullptr, nullptr);
    }
    ~PageLimit() override
    {
        sqlite3_exec(BookmarkStore::handle(), "PRAGMA max_page_count = 1000000", nullptr, nullptr, nullptr);
    }
};

/// The disk takes no file that is longer than the database.
class FileLimit : public Fault {
public:
    explicit FileLimit(const QString &path)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = rlim_t(QFileInfo(path).size());
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLimit() override
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*const m_handler)(int);
};

/// Another program is at the database and does not go away while the model waits.
class Lock : public Fault {
public:
    Lock(const QString &path, const char *statements)
    {
        sqlite3_busy_timeout(BookmarkStore::handle(), 0);
        sqlite3_open(path.toUtf8().constData(), &m_other);
        if (sqlite3_exec(m_other, statements, nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(m_other));
    }
    ~Lock() override { sqlite3_close(m_other); }

private:
    sqlite3 *m_other = nullptr;
};

/// No journal can be made beside the database.
class ClosedFolder : public Fault {
public:
    explicit ClosedFolder(const QString &path)
        : m_folder(QFileInfo(path).path())
    {
        QFile::setPermissions(m_folder, closedFolder);
        m_user.emplace();
    }
    ~ClosedFolder() override
    {
        m_user.reset();
        QFile::setPermissions(m_folder, openFolder);
    }

private:
    const QString m_folder;
    std::optional<Unprivileged> m_user;
};

using Begin = std::unique_ptr<Fault> (*)(const QString &path);

} // namespace

Q_DECLARE_METATYPE(Begin)

namespace {

void addFaults()
{
    QTest::addColumn<Begin>("begin");
    const auto add = [](const char *name, Begin begin) { QTest::newRow(name) << begin; };
    add("no more pages",
        [](const QString &) -> std::unique_ptr<Fault> { return std::make_unique<PageLimit>(); });
    add("another one writes", [](const QString &path) -> std::unique_ptr<Fault> {
        return std::make_unique<Lock>(path, "BEGIN IMMEDIATE");
    });
    add("another one lets nobody read", [](const QString &path) -> std::unique_ptr<Fault> {
        return std::make_unique<Lock>(path, "BEGIN EXCLUSIVE");
    });
    add("another one reads", [](const QString &path) -> std::unique_ptr<Fault> {
        return std::make_unique<Lock>(path, "BEGIN; SELECT * FROM bookmarks");
    });
    add("a closed folder",
        [](const QString &path) -> std::unique_ptr<Fault> { return std::make_unique<ClosedFolder>(path); });
}

/// The transaction is made, and taken back when it is committed.
void addFaultOfTheCommit()
{
    QTest::newRow("the file may not grow") << Begin(
        [](const QString &path) -> std::unique_ptr<Fault> { return std::make_unique<FileLimit>(path); });
}

/// Longer than a page.
QString longName(const char *start)
{
    return QLatin1String(start) + QString(6000, QLatin1Char('x'));
}

/// Two folders at the top, with two bookmarks in the first and one in the second.
void fill(BookmarkStore &store)
{
    store.open();
    store.check();
    store.addFolder(QStringLiteral("First"));
    store.addFolder(QStringLiteral("Second"));
    store.model().addBookmarks({QStringLiteral("alt.a"), QStringLiteral("alt.b")}, store.at({0}));
    store.model().addBookmarks({QStringLiteral("alt.c")}, store.at({1}));
}

void moveToSecond(BookmarkStore &store, const QModelIndex &index)
{
    const QPersistentModelIndex old(index);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({index}));
    if (store.model().dropMimeData(data.get(), Qt::MoveAction, 0, 0, store.at({1})))
        store.model().removeRows(old.row(), 1, old.parent());
}

/// Writes every item below @p parent again, folders before what is in them.
void touch(BookmarkStore &store, const QModelIndex &parent)
{
    for (int row = 0; row < store.model().rowCount(parent); ++row) {
        const QModelIndex index = store.model().index(row, 0, parent);
        QVERIFY(store.model().setData(index, index.data(Qt::EditRole)));
        touch(store, index);
    }
}

/// Whether the places stored for each list are 0, 1, 2 and so on.
bool hasSettledPlaces(const BookmarkStore &store)
{
    return storecheck::value(
               store.path(),
               "SELECT count(*) FROM bookmarks AS one WHERE bookmark_order <> (SELECT count(*) FROM "
               "bookmarks AS other WHERE other.parent_id IS one.parent_id AND "
               "other.bookmark_order < one.bookmark_order)") == QLatin1String("0");
}

} // namespace

class TestRefusedWrites : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void whatIsShownIsStoredOnceItCanBeWrittenAgain_data();
    void whatIsShownIsStoredOnceItCanBeWrittenAgain();
    void whatCouldNotBeStoredTakesNoOthersPlace_data();
    void whatCouldNotBeStoredTakesNoOthersPlace();
    void aRowThatItsCommitTookBackIsNotInsertedAgain();
    void whatWasStoredStays_data();
    void whatWasStoredStays();
    void aChangeThatAReaderHeldUpIsStoredWithTheNextOne();
    void whatCannotBeReadIsReadLater();
    void aStoreThatCannotBeWrittenIsShown_data();
    void aStoreThatCannotBeWrittenIsShown();

private:
    std::unique_ptr<ConnectionWarnings> m_warnings;
};

void TestRefusedWrites::init()
{
    m_warnings = std::make_unique<ConnectionWarnings>();
}

// Every store is closed by now.
void TestRefusedWrites::cleanup()
{
    const QString warnings = m_warnings->text();
    m_warnings.reset();
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings));
}

void TestRefusedWrites::whatIsShownIsStoredOnceItCanBeWrittenAgain_data()
{
    addFaults();
}

void TestRefusedWrites::whatIsShownIsStoredOnceItCanBeWrittenAgain()
{
    QFETCH(Begin, begin);
    BookmarkStore store(false);
    fill(store);
    std::unique_ptr<Fault> fault = begin(store.path());
    store.addFolder(longName("added"), store.at({0}));
    store.model().addBookmarks({longName("alt.added")}, store.at({1}));
    store.model().setItemColor(store.at({0}), QStringLiteral("red"));
    store.model().setData(store.at({0}), longName("renamed"));
    moveToSecond(store, store.at({0, 2}));
    fault.reset();
    touch(store, {});
    QCOMPARE(storecheck::value(store.path(), "PRAGMA integrity_check"), QStringLiteral("ok"));
    QVERIFY(hasSettledPlaces(store));
    const QStringList shown = storecheck::shown(store);
    store.close();
    store.open();
    QCOMPARE(storecheck::shown(store), shown);
}

void TestRefusedWrites::whatCouldNotBeStoredTakesNoOthersPlace_data()
{
    addFaults();
}

void TestRefusedWrites::whatCouldNotBeStoredTakesNoOthersPlace()
{
    QFETCH(Begin, begin);
    BookmarkStore store(false);
    fill(store);
    std::unique_ptr<Fault> fault = begin(store.path());
    store.addFolder(longName("lost"));
    fault.reset();
    store.addFolder(QStringLiteral("Kept"));
    store.model().removeBookmark(store.at({2}));
    QCOMPARE(store.names(),
             (QStringList{QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Kept")}));
    store.close();
    store.open();
    QCOMPARE(store.names(),
             (QStringList{QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Kept")}));
}

// An item keeps the id of a row that was taken back when it was committed: its later writes find no row, or
// that of the next item, which is given the same id. It is gone with the next start; the status bar has said
// that bookmarks are not being saved.
void TestRefusedWrites::aRowThatItsCommitTookBackIsNotInsertedAgain()
{
    BookmarkStore store(false);
    fill(store);
    const QStringList before = storecheck::shown(store);
    auto fault = std::make_unique<FileLimit>(store.path());
    store.addFolder(longName("lost"));
    fault.reset();
    QVERIFY(store.model().setData(store.at({2}), QStringLiteral("still shown")));
    QCOMPARE(store.names().constLast(), QStringLiteral("still shown"));
    store.close();
    store.open();
    QCOMPARE(storecheck::shown(store), before);
}

void TestRefusedWrites::whatWasStoredStays_data()
{
    addFaults();
    addFaultOfTheCommit();
}

void TestRefusedWrites::whatWasStoredStays()
{
    QFETCH(Begin, begin);
    BookmarkStore store(false);
    fill(store);
    const QVector<BookmarkRow> before = store.rows();
    std::unique_ptr<Fault> fault = begin(store.path());
    store.addFolder(longName("lost"));
    store.model().addBookmarks({longName("alt.lost")}, store.at({1}));
    store.close();
    fault.reset();
    QCOMPARE(storecheck::value(store.path(), "PRAGMA integrity_check"), QStringLiteral("ok"));
    for (const BookmarkRow &row : before) {
        const auto isSame = [&row](const BookmarkRow &other) { return other.mid(0, 6) == row.mid(0, 6); };
        const QVector<BookmarkRow> after = store.rows();
        QVERIFY2(std::any_of(after.cbegin(), after.cend(), isSame), qPrintable(row.join(QLatin1Char(' '))));
    }
}

void TestRefusedWrites::aChangeThatAReaderHeldUpIsStoredWithTheNextOne()
{
    BookmarkStore store(false);
    fill(store);
    auto reader = std::make_unique<Lock>(store.path(), "BEGIN; SELECT * FROM bookmarks");
    store.addFolder(QStringLiteral("Third"));
    reader.reset();
    store.model().setItemColor(store.at({0}), QStringLiteral("red"));
    const QStringList shown = storecheck::shown(store);
    QCOMPARE(shown.constLast(), QStringLiteral("[Third]"));
    store.close();
    store.open();
    QCOMPARE(storecheck::shown(store), shown);
}

void TestRefusedWrites::whatCannotBeReadIsReadLater()
{
    BookmarkStore store(false);
    fill(store);
    const QStringList shown = storecheck::shown(store);
    auto other = std::make_unique<Lock>(store.path(), "BEGIN EXCLUSIVE");
    store.model().load();
    QVERIFY(store.names().isEmpty());
    other.reset();
    store.model().load();
    QCOMPARE(storecheck::shown(store), shown);
}

void TestRefusedWrites::aStoreThatCannotBeWrittenIsShown_data()
{
    QTest::addColumn<bool>("isFileWritable");
    QTest::addColumn<bool>("isFolderWritable");
    QTest::newRow("neither the file nor the folder") << false << false;
    QTest::newRow("not the file") << false << true;
    QTest::newRow("not the folder") << true << false;
}

void TestRefusedWrites::aStoreThatCannotBeWrittenIsShown()
{
    QFETCH(bool, isFileWritable);
    QFETCH(bool, isFolderWritable);
    BookmarkStore store(false);
    fill(store);
    const QStringList shown = storecheck::shown(store);
    store.close();
    const QVector<BookmarkRow> before = store.rows();
    const QString folder = QFileInfo(store.path()).path();
    QFile::setPermissions(store.path(), QFile::Permissions(isFileWritable ? 0x6066 : 0x4044));
    QFile::setPermissions(folder, QFile::Permissions(isFolderWritable ? 0x7077 : 0x5055));
    {
        const Unprivileged user;
        if (!QFile(store.path()).open(QIODevice::ReadOnly))
            QSKIP("The folder for temporary files lets only its owner in");
        store.open();
        store.check();
        QCOMPARE(storecheck::shown(store), shown);
        store.addFolder(QStringLiteral("Third"));
        store.model().setItemColor(store.at({0}), QStringLiteral("red"));
        QCOMPARE(store.names().constLast(), QStringLiteral("Third"));
        store.model().removeBookmark(store.at({0}));
        store.close();
    }
    QFile::setPermissions(folder, openFolder);
    QCOMPARE(store.rows(), before);
    store.open();
    QCOMPARE(storecheck::shown(store), shown);
}

QTEST_MAIN(TestRefusedWrites)
#include "tst_refusedwrites.moc"
