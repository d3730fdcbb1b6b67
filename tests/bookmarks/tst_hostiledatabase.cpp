// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "storecheck.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <memory>
#include <random>

namespace {

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// A file of several small pages, some of them free, with a tree of three levels.
QByteArray manyPages()
{
    BookmarkStore store(false);
    QString statements = QStringLiteral("PRAGMA page_size = 512; BEGIN; ");
    statements += QStringLiteral("CREATE TABLE bookmarks (bookmark_id INTEGER PRIMARY KEY "
                                 "AUTOINCREMENT,parent_id INTEGER,bookmark_name "
                                 "TEXT,bookmark_newsgroup TEXT,bookmark_color TEXT,bookmark_expanded "
                                 "BOOLEAN, bookmark_order INTEGER);");
    for (int id = 1; id <= 300; ++id) {
        const bool isFolder = id % 10 == 1;
        const QString parent = id <= 10 ? QStringLiteral("NULL") : QString::number((id - 1) / 10);
        const QString name =
            isFolder ? QStringLiteral("'Folder %1', NULL") : QStringLiteral("NULL, 'alt.test.%1'");
        statements += QStringLiteral("INSERT INTO bookmarks VALUES (%1, %2, ").arg(id).arg(parent) +
                      name.arg(id) + QStringLiteral(", 'blue', %1, %2);").arg(int(isFolder)).arg(id % 10);
    }
    statements += QStringLiteral("DELETE FROM bookmarks WHERE bookmark_id > 250; COMMIT");
    store.execute(statements);
    return bytesOf(store.path());
}

} // namespace

class TestHostileDatabase : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aSoundFileKeepsWhatIsDone();
    void aStoreOverAnyBytesCanBeUsed_data();
    void aStoreOverAnyBytesCanBeUsed();
    void aStoreBesideAForeignJournalCanBeUsed_data();
    void aStoreBesideAForeignJournalCanBeUsed();
    void aFolderThatIsGoneIsMadeAgain();
    void aStoreWithoutAFileCanBeUsed_data();
    void aStoreWithoutAFileCanBeUsed();
    void aFileThatGoesWhileItIsOpenHarmsNothing();

private:
    std::unique_ptr<ConnectionWarnings> m_warnings;
};

void TestHostileDatabase::init()
{
    m_warnings = std::make_unique<ConnectionWarnings>();
}

// Every store is closed by now.
void TestHostileDatabase::cleanup()
{
    const QString warnings = m_warnings->text();
    m_warnings.reset();
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings));
}

void TestHostileDatabase::aSoundFileKeepsWhatIsDone()
{
    BookmarkStore store(false);
    writeFile(store.path(), manyPages());
    storecheck::useAndReopen(store);
    QVERIFY(storecheck::isSound(store.path()));
    QCOMPARE(store.names().constLast(), QStringLiteral("Own"));
}

void TestHostileDatabase::aStoreOverAnyBytesCanBeUsed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray whole = manyPages();
    QVERIFY(whole.size() > 20 * 512);
    QTest::newRow("whole") << whole;
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << QByteArray("S");
    QTest::newRow("text") << QByteArray("SELECT * FROM bookmarks;\n").repeated(1000);
    QTest::newRow("zeros") << QByteArray(5000, '\0');
    QTest::newRow("the head of a database and zeros") << whole.left(100) + QByteArray(9900, '\0');
    QTest::newRow("garbage behind the end") << whole + QByteArray(1000, 'x');
    for (int part = 0; part < 20; ++part)
        QTest::addRow("cut at %d/20", part) << whole.left(whole.size() * part / 20 + part % 3);
    std::mt19937 random(100); // NOLINT(cert-msc51-cpp): the same files every time
    for (int flip = 0; flip < 100; ++flip) {
        // Every third in the first page, where a change tells most.
        const int end = flip % 3 == 0 ? 512 : whole.size();
        const int place = int(random() % quint32(end));
        QByteArray flipped = whole;
        flipped[place] = char(flipped.at(place) ^ int(1 + random() % 255));
        QTest::addRow("byte %d is %d", place, int(quint8(flipped.at(place)))) << flipped;
    }
}

void TestHostileDatabase::aStoreOverAnyBytesCanBeUsed()
{
    QFETCH(QByteArray, bytes);
    BookmarkStore store(false);
    writeFile(store.path(), bytes);
    storecheck::useAndReopen(store);
}

void TestHostileDatabase::aStoreBesideAForeignJournalCanBeUsed_data()
{
    QTest::addColumn<QString>("ending");
    QTest::addColumn<QByteArray>("journal");
    const QByteArray mark = QByteArray::fromHex("d9d505f920a163d7");
    const QByteArray page = QByteArray::fromHex("00000001") + manyPages().left(512) + QByteArray(4, '\0');
    QTest::newRow("empty") << QStringLiteral("-journal") << QByteArray();
    QTest::newRow("garbage") << QStringLiteral("-journal") << QByteArray(2000, 'x');
    QTest::newRow("a good head without pages") << QStringLiteral("-journal") << mark + QByteArray(504, '\0');
    QTest::newRow("a page that does not fit")
        << QStringLiteral("-journal")
        << mark + QByteArray::fromHex("0000000100000000000000160000020000000200") + QByteArray(484, '\0') +
               page;
    QTest::newRow("a log of another way of writing") << QStringLiteral("-wal") << QByteArray(2000, 'x');
}

void TestHostileDatabase::aStoreBesideAForeignJournalCanBeUsed()
{
    QFETCH(QString, ending);
    QFETCH(QByteArray, journal);
    BookmarkStore store(false);
    writeFile(store.path(), manyPages());
    writeFile(store.path() + ending, journal);
    storecheck::useAndReopen(store);
}

void TestHostileDatabase::aFolderThatIsGoneIsMadeAgain()
{
    BookmarkStore store(false);
    const QString path = store.path();
    QVERIFY(QDir(QFileInfo(path).path()).removeRecursively());
    storecheck::useAndReopen(store);
    QVERIFY(storecheck::isSound(path));
    QCOMPARE(store.names(), QStringList{QStringLiteral("Own")});
}

void TestHostileDatabase::aStoreWithoutAFileCanBeUsed_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::newRow("a folder in its place") << QStringLiteral("folder");
    QTest::newRow("a link to nowhere in its place") << QStringLiteral("link");
    QTest::newRow("a file in place of the profile") << QStringLiteral("file");
}

// What was changed is shown until the store is closed; there is nowhere to keep it.
void TestHostileDatabase::aStoreWithoutAFileCanBeUsed()
{
    QFETCH(QString, obstacle);
    BookmarkStore store(false);
    const QString path = store.path();
    const QString profile = QFileInfo(path).path();
    if (obstacle == QLatin1String("folder")) {
        QVERIFY(QDir().mkpath(path));
    } else if (obstacle == QLatin1String("link")) {
        QVERIFY(QFile::link(profile + QStringLiteral("/no/such/folder/file"), path));
    } else {
        QVERIFY(QDir(profile).removeRecursively());
        writeFile(profile, "in the way");
    }
    store.open();
    QVERIFY(store.names().isEmpty());
    store.close();
    storecheck::useAndReopen(store);
    QVERIFY(store.names().isEmpty());
    if (obstacle == QLatin1String("file"))
        QVERIFY(QFile::remove(profile));
}

void TestHostileDatabase::aFileThatGoesWhileItIsOpenHarmsNothing()
{
    BookmarkStore store(false);
    writeFile(store.path(), manyPages());
    store.open();
    store.check();
    const QStringList names = store.names();
    QVERIFY(QFile::remove(store.path()));
    store.addFolder(QStringLiteral("Own"));
    QCOMPARE(store.names(), names + QStringList{QStringLiteral("Own")});
    storecheck::shown(store);
    store.close();
    store.open();
    QVERIFY(store.names().isEmpty());
}

QTEST_MAIN(TestHostileDatabase)
#include "tst_hostiledatabase.moc"
