// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/trafficjournal.h>

#include <QDateTime>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <ctime>
#include <limits>
#include <memory>

#include <sys/resource.h>
#include <sys/stat.h>

class TrafficJournalTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void countsAreThereAtOnce();
    void nothingAndLessIsNotCounted();
    void entriesSurviveARestart();
    void theDestructorWritesWhatIsLeft();
    void whatIsWrittenIsNotWrittenTwice();
    void onlyWhatCameAfterAMomentIsCounted();
    void daysAndMonthsAreLocal();
    void aClockThatIsSetBackKeepsTheOrder();
    void damagedLinesAreLeftOut_data();
    void damagedLinesAreLeftOut();
    void anEntryDoesNotFollowInAnOpenLine();
    void sumsStopAtTheLargestNumber();
    void oldEntriesBecomeOneADay();
    void recentDetailSurvivesTheMerging();
    void mergingMovesNothingToAnotherDay_data();
    void mergingMovesNothingToAnotherDay();
    void aFileThatCannotBeWrittenKeepsCounting_data();
    void aFileThatCannotBeWrittenKeepsCounting();
    void whatCouldNotBeWrittenIsWrittenLater();
    void aFullDiskTakesNoPartOfAnEntry();
    void aHugeFileIsReadFromItsEnd();

private:
    std::unique_ptr<TrafficJournal> journal();
    QByteArray content() const;
    void setContent(const QByteArray &bytes);
    qint64 at(int day, int hour = 12) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    qint64 m_now = 0;
};

void TrafficJournalTest::init()
{
    qputenv("TZ", "Europe/Berlin");
    ::tzset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath(QStringLiteral("traffic.log"));
    m_now = at(0);
}

std::unique_ptr<TrafficJournal> TrafficJournalTest::journal()
{
    return std::make_unique<TrafficJournal>(m_file, [this] { return m_now; });
}

QByteArray TrafficJournalTest::content() const
{
    QFile file(m_file);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TrafficJournalTest::setContent(const QByteArray &bytes)
{
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

/// The local hour of the day that is @p day days after the one on which these tests play.
qint64 TrafficJournalTest::at(int day, int hour) const
{
    return QDateTime(QDate(2026, 11, 20).addDays(day), QTime(hour, 0)).toMSecsSinceEpoch();
}

void TrafficJournalTest::countsAreThereAtOnce()
{
    const auto counted = journal();
    counted->add(5);
    counted->add(7);
    QCOMPARE(counted->totalBytes(), qint64(12));
    QCOMPARE(counted->bytesBetween(counted->today(), counted->today()), qint64(12));
    QCOMPARE(content(), QByteArray());
}

void TrafficJournalTest::nothingAndLessIsNotCounted()
{
    const auto counted = journal();
    counted->add(0);
    counted->add(-1);
    counted->add(std::numeric_limits<qint64>::min());
    QVERIFY(counted->flush());
    QCOMPARE(counted->totalBytes(), qint64(0));
    QVERIFY(!QFileInfo::exists(m_file));
}

void TrafficJournalTest::entriesSurviveARestart()
{
    auto counted = journal();
    counted->add(5);
    QVERIFY(counted->flush());
    m_now += 1000;
    counted->add(7);
    QVERIFY(counted->flush());
    counted = journal();
    QCOMPARE(counted->totalBytes(), qint64(12));
    QCOMPARE(counted->bytesSince(m_now - 1), qint64(7));
}

void TrafficJournalTest::theDestructorWritesWhatIsLeft()
{
    auto counted = journal();
    counted->add(5);
    counted.reset();
    QCOMPARE(content(), QByteArray::number(m_now) + " 5\n");
}

void TrafficJournalTest::whatIsWrittenIsNotWrittenTwice()
{
    auto counted = journal();
    counted->add(5);
    QVERIFY(counted->flush());
    const QByteArray once = content();
    QVERIFY(counted->flush());
    counted.reset();
    QCOMPARE(content(), once);
}

void TrafficJournalTest::onlyWhatCameAfterAMomentIsCounted()
{
    const auto counted = journal();
    counted->add(5);
    m_now += 1000;
    counted->add(7);
    QCOMPARE(counted->bytesSince(m_now - 1001), qint64(12));
    QCOMPARE(counted->bytesSince(m_now - 1000), qint64(7));
    QCOMPARE(counted->bytesSince(m_now), qint64(0));
    QCOMPARE(counted->bytesSince(std::numeric_limits<qint64>::min()), qint64(12));
    QCOMPARE(counted->bytesSince(std::numeric_limits<qint64>::max()), qint64(0));
}

void TrafficJournalTest::daysAndMonthsAreLocal()
{
    const auto counted = journal();
    const QVector<std::pair<int, int>> moments{{-50, 1}, {-20, 23}, {-19, 0}, {-1, 23},
                                               {0, 0},   {0, 23},   {1, 0}};
    for (const auto &[day, hour] : moments) {
        m_now = at(day, hour);
        counted->add(1);
    }
    m_now = at(0);
    const QVector<TrafficJournal::Period> days = counted->lastDays(3);
    QCOMPARE(days.size(), 3);
    QCOMPARE(days.first().first, QDate(2026, 11, 18));
    QCOMPARE(days.at(0).bytes, qint64(0));
    QCOMPARE(days.at(1).bytes, qint64(1));
    QCOMPARE(days.at(2).bytes, qint64(2));
    const QVector<TrafficJournal::Period> months = counted->lastMonths(3);
    QCOMPARE(months.first().first, QDate(2026, 9, 1));
    QCOMPARE(months.at(0).bytes, qint64(0));
    QCOMPARE(months.at(1).bytes, qint64(2)); // 1 October and 31 October
    QCOMPARE(months.at(2).bytes, qint64(5));
}

void TrafficJournalTest::aClockThatIsSetBackKeepsTheOrder()
{
    auto counted = journal();
    counted->add(1);
    m_now = at(-1);
    counted->add(2);
    QCOMPARE(counted->bytesSince(at(0) - 1), qint64(1));
    QVERIFY(counted->flush());
    counted = journal();
    QCOMPARE(counted->bytesSince(at(0) - 1), qint64(1));
    QCOMPARE(counted->totalBytes(), qint64(3));
}

void TrafficJournalTest::damagedLinesAreLeftOut_data()
{
    QTest::addColumn<QByteArray>("damage");
    const QByteArray time = QByteArray::number(at(0));
    QTest::newRow("words") << QByteArray("no numbers\n");
    QTest::newRow("empty line") << QByteArray("\n");
    QTest::newRow("one number") << time + '\n';
    QTest::newRow("three numbers") << time + " 4 4\n";
    QTest::newRow("negative bytes") << time + " -4\n";
    QTest::newRow("no bytes") << time + " 0\n";
    QTest::newRow("too many bytes") << time + " 9000000000000000000\n";
    QTest::newRow("beyond the largest number") << time + " 99999999999999999999999\n";
    QTest::newRow("negative time") << QByteArray("-5 4\n");
    QTest::newRow("time beyond the calendar") << QByteArray("9000000000000000000 4\n");
    QTest::newRow("nul") << time + QByteArray(" 4\0\n", 4);
    QTest::newRow("overlong") << QByteArray(1000, '7') + " 4\n";
    QTest::newRow("overlong, ends like an entry") << QByteArray(63, 'x') + time + " 4\n";
    QTest::newRow("noise") << QByteArray("\xff\xfe\x00\x80", 4) + '\n';
}

void TrafficJournalTest::damagedLinesAreLeftOut()
{
    QFETCH(QByteArray, damage);
    const QByteArray time = QByteArray::number(at(0));
    setContent(time + " 1\n" + damage + time + " 2\n");
    QCOMPARE(journal()->totalBytes(), qint64(3));
}

void TrafficJournalTest::anEntryDoesNotFollowInAnOpenLine()
{
    // The program was ended while it wrote: how many digits are missing is not known.
    setContent(QByteArray::number(m_now) + " 1\n" + QByteArray::number(m_now) + " 12");
    auto counted = journal();
    QCOMPARE(counted->totalBytes(), qint64(1));
    counted->add(5);
    QVERIFY(counted->flush());
    counted->add(7);
    QVERIFY(counted->flush());
    const QByteArray time = QByteArray::number(m_now);
    QCOMPARE(content(), time + " 1\n" + time + " 12\n" + time + " 5\n" + time + " 7\n");
}

void TrafficJournalTest::sumsStopAtTheLargestNumber()
{
    const auto counted = journal();
    for (int i = 0; i < 10; ++i)
        counted->add(std::numeric_limits<qint64>::max());
    const qint64 largest = std::numeric_limits<qint64>::max();
    QCOMPARE(counted->totalBytes(), largest);
    QCOMPARE(counted->bytesSince(0), largest);
    QCOMPARE(counted->lastMonths(1).constLast().bytes, largest);
    QVERIFY(counted->flush());
    QCOMPARE(journal()->totalBytes(), largest);
}

void TrafficJournalTest::oldEntriesBecomeOneADay()
{
    auto counted = journal();
    for (int hour = 1; hour < 23; ++hour) {
        for (const int day : {-70, -63, -62}) {
            m_now = at(day, hour);
            counted->add(1);
        }
    }
    counted.reset();
    m_now = at(0);
    counted = journal();
    // Twenty-two hours of two days became one entry each, those of the third are still apart.
    QCOMPARE(content().count('\n'), 1 + 1 + 22);
    QCOMPARE(counted->bytesBetween(QDate(2026, 11, 20).addDays(-70), QDate(2026, 11, 20).addDays(-70)),
             qint64(22));
    QCOMPARE(counted->totalBytes(), qint64(66));
    const QByteArray compacted = content();
    counted = journal();
    QCOMPARE(content(), compacted);
}

void TrafficJournalTest::recentDetailSurvivesTheMerging()
{
    auto counted = journal();
    for (int second = 0; second < 600; ++second) {
        m_now = at(-10) + second * 1000;
        counted->add(1);
        m_now = at(-1) + second * 1000;
        counted->add(1);
    }
    counted.reset();
    m_now = at(0);
    counted = journal();
    QCOMPARE(content().count('\n'), 2 + 600);
    QCOMPARE(counted->bytesSince(at(-1) + 250 * 1000), qint64(349));
    QCOMPARE(counted->totalBytes(), qint64(1200));
}

void TrafficJournalTest::mergingMovesNothingToAnotherDay_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::newRow("no summer time") << QByteArray("UTC");
    QTest::newRow("summer time") << QByteArray("Europe/Berlin");
    QTest::newRow("summer time that begins at midnight") << QByteArray("America/Santiago");
    QTest::newRow("three quarters of an hour off") << QByteArray("Asia/Kathmandu");
}

void TrafficJournalTest::mergingMovesNothingToAnotherDay()
{
    QFETCH(QByteArray, zone);
    qputenv("TZ", zone);
    ::tzset();
    auto counted = journal();
    for (int day = -400; day <= 0; ++day) {
        for (int hour = 0; hour < 24; ++hour) {
            m_now = at(day, hour);
            counted->add(1 + day + 400);
            m_now -= 1; // just before midnight among them
            counted->add(1);
        }
    }
    m_now = at(0);
    const QVector<TrafficJournal::Period> days = counted->lastDays(401);
    const QVector<TrafficJournal::Period> months = counted->lastMonths(14);
    counted.reset();
    counted = journal();
    QVERIFY(content().count('\n') < 401 * 48);
    const QVector<TrafficJournal::Period> daysAgain = counted->lastDays(401);
    for (int i = 0; i < days.size(); ++i)
        QCOMPARE(daysAgain.at(i).bytes, days.at(i).bytes);
    const QVector<TrafficJournal::Period> monthsAgain = counted->lastMonths(14);
    for (int i = 0; i < months.size(); ++i)
        QCOMPARE(monthsAgain.at(i).bytes, months.at(i).bytes);
}

void TrafficJournalTest::aFileThatCannotBeWrittenKeepsCounting_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::newRow("folder in its place") << QStringLiteral("folder");
    QTest::newRow("pipe in its place") << QStringLiteral("pipe");
    QTest::newRow("no folder for it") << QStringLiteral("missing");
}

void TrafficJournalTest::aFileThatCannotBeWrittenKeepsCounting()
{
    QFETCH(QString, obstacle);
    if (obstacle == QStringLiteral("folder"))
        QVERIFY(QDir().mkdir(m_file));
    else if (obstacle == QStringLiteral("pipe"))
        QVERIFY(::mkfifo(QFile::encodeName(m_file).constData(), 0600) == 0);
    else
        m_file = m_folder->filePath(QStringLiteral("none/traffic.log"));
    const auto counted = journal();
    counted->add(5);
    QVERIFY(!counted->flush());
    counted->add(7);
    QVERIFY(!counted->flush());
    QCOMPARE(counted->totalBytes(), qint64(12));
}

void TrafficJournalTest::whatCouldNotBeWrittenIsWrittenLater()
{
    QVERIFY(QDir().mkdir(m_file));
    auto counted = journal();
    counted->add(5);
    QVERIFY(!counted->flush());
    QVERIFY(QDir().rmdir(m_file));
    counted->add(7);
    QVERIFY(counted->flush());
    QCOMPARE(journal()->totalBytes(), qint64(12));
}

void TrafficJournalTest::aFullDiskTakesNoPartOfAnEntry()
{
    auto counted = journal();
    counted->add(5);
    QVERIFY(counted->flush());
    const QByteArray before = content();
    counted->add(7);
    counted->add(9);

    // A limit to the size of files stands in for a disk that has room for half of the text.
    struct rlimit usual = {};
    QVERIFY(::getrlimit(RLIMIT_FSIZE, &usual) == 0);
    std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit tight = usual;
    tight.rlim_cur = rlim_t(before.size() + 20);
    QVERIFY(::setrlimit(RLIMIT_FSIZE, &tight) == 0);
    const bool written = counted->flush();
    QVERIFY(::setrlimit(RLIMIT_FSIZE, &usual) == 0);

    QVERIFY(!written);
    QCOMPARE(content(), before);
    QVERIFY(counted->flush());
    QCOMPARE(journal()->totalBytes(), qint64(21));
}

void TrafficJournalTest::aHugeFileIsReadFromItsEnd()
{
    const QByteArray time = QByteArray::number(m_now);
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(time + " 1\n");
    QVERIFY(file.resize(qint64(1) << 32)); // a hole, which takes no room
    QVERIFY(file.seek(file.size()));
    file.write('\n' + time + " 2\n");
    file.close();
    QCOMPARE(journal()->totalBytes(), qint64(2));
}

QTEST_GUILESS_MAIN(TrafficJournalTest)
#include "tst_trafficjournal.moc"
