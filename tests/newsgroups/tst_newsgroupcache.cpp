// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "grouplines.h"

#include "newsgroupcache.h"
#include "newsgroupcachereader.h"

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

class TestNewsgroupCache : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void whatWasWrittenIsReadAgain();
    void anEmptyListIsAListToo();
    void aMissingFileHoldsNothing();
    void aDamagedFileIsIgnored_data();
    void aDamagedFileIsIgnored();
    void everyFlippedByteIsNoticed();
    void aFileOfAnotherVersionIsIgnored();
    void aListThatSomebodyElseWroteIsCleaned();
    void whatCanNotBeWrittenLeavesTheFileAsItWas();
    void aPipeIsNeitherReadNorWritten();
    void theReaderReadsOnAThreadOfItsOwn();
    void aReaderThatNobodyWaitsForIsReleased();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("list.cache")); }
    QByteArray bytes() const;
    void setBytes(const QByteArray &bytes);

    std::unique_ptr<QTemporaryDir> m_folder;
    newsgroupcache::Contents m_contents;
};

void TestNewsgroupCache::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_contents.table = tableOf({"a.a 1 1 y", "b.\xC3\xBC 1 1 y"}, {"a.a\tFirst"});
    m_contents.fetched = QDateTime::fromMSecsSinceEpoch(1'700'000'000'123, Qt::UTC);
    m_contents.server = QStringLiteral("news.example");
    m_contents.user = QStringLiteral("A. \u00DCser");
}

QByteArray TestNewsgroupCache::bytes() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestNewsgroupCache::setBytes(const QByteArray &bytes)
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

void TestNewsgroupCache::whatWasWrittenIsReadAgain()
{
    QVERIFY(newsgroupcache::write(path(), m_contents));
    const newsgroupcache::Contents contents = newsgroupcache::read(path());
    QCOMPARE(contents.fetched, m_contents.fetched);
    QCOMPARE(contents.server, m_contents.server);
    QCOMPARE(contents.user, m_contents.user);
    QCOMPARE(contents.table.text(), m_contents.table.text());
    QCOMPARE(contents.table.description(0), QStringLiteral("First"));
}

void TestNewsgroupCache::anEmptyListIsAListToo()
{
    m_contents.table = NewsgroupTable();
    QVERIFY(newsgroupcache::write(path(), m_contents));
    QVERIFY(newsgroupcache::read(path()).fetched.isValid());
    QCOMPARE(newsgroupcache::read(path()).table.count(), 0);
}

void TestNewsgroupCache::aMissingFileHoldsNothing()
{
    QVERIFY(!newsgroupcache::read(path()).fetched.isValid());
    QVERIFY(!newsgroupcache::read(m_folder->path()).fetched.isValid());
    QVERIFY(!newsgroupcache::read(QString()).fetched.isValid());
}

void TestNewsgroupCache::aDamagedFileIsIgnored_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("tail");
    for (const int size : {0, 3, 4, 8, 11, 20, 40, 60})
        QTest::addRow("cut off at %d", size) << size << QByteArray();
    QTest::newRow("longer") << 100'000 << QByteArray("c.c\t\n");
    QTest::newRow("a length of gigabytes") << 8 << QByteArray("\x7F\xFF\xFF\xFF", 4);
}

void TestNewsgroupCache::aDamagedFileIsIgnored()
{
    QFETCH(int, size);
    QFETCH(QByteArray, tail);
    QVERIFY(newsgroupcache::write(path(), m_contents));
    setBytes(bytes().left(size) + tail);
    const newsgroupcache::Contents contents = newsgroupcache::read(path());
    QVERIFY(!contents.fetched.isValid());
    QVERIFY(contents.table.isEmpty());
}

void TestNewsgroupCache::everyFlippedByteIsNoticed()
{
    QVERIFY(newsgroupcache::write(path(), m_contents));
    const QByteArray whole = bytes();
    QVERIFY(whole.size() > 40);
    for (int i = 0; i < whole.size(); ++i) {
        QByteArray damaged = whole;
        damaged[i] = char(damaged.at(i) ^ 0x01);
        setBytes(damaged);
        QVERIFY2(!newsgroupcache::read(path()).fetched.isValid(), qPrintable(QString::number(i)));
    }
}

void TestNewsgroupCache::aFileOfAnotherVersionIsIgnored()
{
    QVERIFY(newsgroupcache::write(path(), m_contents));
    QByteArray older = bytes();
    QByteArray number;
    QDataStream(&number, QIODevice::WriteOnly) << quint32(0);
    setBytes(older.replace(4, 4, number));
    QVERIFY(!newsgroupcache::read(path()).fetched.isValid());
}

// The sum says that the file is whole, not who wrote it.
void TestNewsgroupCache::aListThatSomebodyElseWroteIsCleaned()
{
    m_contents.table = NewsgroupTable("z.z\tlast\na\x1B.b\t\n\tnothing\nc.c\tx\x01y\nc.c\ttwice\n");
    QVERIFY(newsgroupcache::write(path(), m_contents));
    const NewsgroupTable table = newsgroupcache::read(path()).table;
    QCOMPARE(namesIn(table), (QStringList{QStringLiteral("c.c"), QStringLiteral("z.z")}));
    QCOMPARE(table.description(0), QStringLiteral("x y"));
}

void TestNewsgroupCache::whatCanNotBeWrittenLeavesTheFileAsItWas()
{
    const QString file = m_folder->filePath(QStringLiteral("missing/list.cache"));
    QVERIFY(!newsgroupcache::write(file, m_contents));
    QVERIFY(!newsgroupcache::write(m_folder->path(), m_contents));
    QVERIFY(!QFile::exists(file));
}

void TestNewsgroupCache::aPipeIsNeitherReadNorWritten()
{
    QCOMPARE(::mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    QVERIFY(!newsgroupcache::read(path()).fetched.isValid());
    QVERIFY(!newsgroupcache::write(path(), m_contents));
}

void TestNewsgroupCache::theReaderReadsOnAThreadOfItsOwn()
{
    QVERIFY(newsgroupcache::write(path(), m_contents));
    auto *reader = new NewsgroupCacheReader(path());
    QSignalSpy finished(reader, &QThread::finished);
    reader->start();
    QVERIFY(finished.wait());
    QCOMPARE(reader->take().table.count(), 2);
    NewsgroupCacheReader::release(reader);
}

void TestNewsgroupCache::aReaderThatNobodyWaitsForIsReleased()
{
    QVERIFY(newsgroupcache::write(path(), m_contents));
    const QPointer<NewsgroupCacheReader> reader = new NewsgroupCacheReader(path());
    reader->start();
    NewsgroupCacheReader::release(reader);
    QVERIFY(!reader);
    NewsgroupCacheReader::release(nullptr);
}

QTEST_GUILESS_MAIN(TestNewsgroupCache)
#include "tst_newsgroupcache.moc"
