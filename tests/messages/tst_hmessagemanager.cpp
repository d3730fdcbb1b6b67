// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "messagestore.h"
#include "obstacles.h"

#include <halvora/core.h>
#include <halvora/hmessagemanager.h>
#include <halvora/storagemanager.h>
#include <halvora/stringformat.h>

#include <QAbstractItemModelTester>
#include <QtTest>

#include <memory>

namespace {

constexpr qint64 day = 86'400'000; // milliseconds

QDateTime dayDate(int days)
{
    return QDateTime::fromMSecsSinceEpoch(days * day, Qt::UTC);
}

HMessage message(const char *uid, int days, const char *text = "Text")
{
    return {QString::fromLatin1(uid), QString::fromLatin1(text), dayDate(days),
            UrlInfo(QUrl(QStringLiteral("https://www.corvia.example/")))};
}

/// @p count messages whose uids are the multiples of @p step; the date is that number of days.
QVector<HMessage> numbered(int count, int step)
{
    QVector<HMessage> messages;
    for (int i = 0; i < count; ++i)
        messages.append(message(qPrintable(QString::number(i * step)), i * step));
    return messages;
}

HMessage undated(const char *uid)
{
    return {QString::fromLatin1(uid), QStringLiteral("Text"), QDateTime(), UrlInfo()};
}

} // namespace

class HMessageManagerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void thereAreThreeColumnsAlsoWhenEmpty();
    void aRowShowsTextAndDate();
    void unreadMessagesAreBold();
    void theLastColumnTellsWhatCanNotBeDeleted();
    void rowsThatAreNotThereAreLeftAlone();
    void theNewestIsFirst();
    void ofTheSameDateTheLastToComeIsFirst();
    void whatComesBetweenIsPutThere();
    void aMessageWithoutADateHasThatOfItsArrival();
    void comingAgainDoesNotMakeItYounger();
    void aMessageThatComesAgainIsUpdated();
    void anotherDateMovesTheRowAndItsSelection_data();
    void anotherDateMovesTheRowAndItsSelection();
    void manyChangesAreOneChangeOfTheLayout_data();
    void manyChangesAreOneChangeOfTheLayout();
    void manyAtOnceShowWhatSingleStepsWouldShow();
    void whatManyMessagesBroughtIsThereAfterARestart();
    void whatIsDoneToManyMessagesAtOnceIsKept();
    void whatWasReadStaysRead();
    void whatTheServiceSaysWasReadIsRead();
    void theSameUidTwiceInOneReplyIsOneMessage();
    void newsAreToldOnceForEachReply();
    void nothingNewIsNoNews_data();
    void nothingNewIsNoNews();
    void aDeletedMessageNeverComesBack();
    void aMessageThatCanNotBeDeletedStays();
    void everythingIsThereAfterARestart();
    void accountsDoNotSeeEachOthersMessages();
    void withoutAnAccountNothingIsTakenOrShown();
    void noDatabaseIsMadeBeforeItIsNeeded();
    void clearingForgetsAllButWhatWasDeleted();
    void onlyTheNewestTenThousandAreKept();
    void aDatabaseThatCanNotBeOpenedDoesNotEmptyTheList();
    void aDamagedFileOfMessagesIsReportedAsOne();
    void messagesThatAreNotSavedAreReportedAsMessages();

private:
    void restart();
    QStringList uids() const;
    void receive(const QVector<HMessage> &messages) { m_manager->receive(messages); }
    QString databaseFile() const { return m_profile->filePath(QStringLiteral("provider-messages.sqlite")); }

    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<HMessageManager> m_manager;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void HMessageManagerTest::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    restart();
    m_manager->setAccount(QStringLiteral("ada"));
}

void HMessageManagerTest::cleanup()
{
    m_tester.reset();
    m_manager.reset();
    m_core.reset();
}

void HMessageManagerTest::restart()
{
    cleanup();
    m_core = std::make_unique<Core>(m_profile->path());
    m_manager = std::make_unique<HMessageManager>(m_core.get());
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_manager.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
}

QStringList HMessageManagerTest::uids() const
{
    QStringList found;
    for (int row = 0; row < m_manager->rowCount(); ++row)
        found.append(m_manager->messageAt(row).uid());
    return found;
}

void HMessageManagerTest::thereAreThreeColumnsAlsoWhenEmpty()
{
    QCOMPARE(m_manager->rowCount(), 0);
    QCOMPARE(m_manager->columnCount(), 3);
    receive({message("a", 1)});
    QCOMPARE(m_manager->columnCount(), 3);
    QCOMPARE(m_manager->columnCount(m_manager->index(0, 0)), 0);
    QCOMPARE(m_manager->rowCount(m_manager->index(0, 0)), 0);
}

void HMessageManagerTest::aRowShowsTextAndDate()
{
    receive({message("a", 20'000, "<b>Hello</b>")});
    QCOMPARE(m_manager->index(0, 0).data().toString(), QStringLiteral("<b>Hello</b>"));
    QCOMPARE(m_manager->index(0, 1).data().toString(),
             StringFormat::dateTime(dayDate(20'000), StringFormat::ShortDateTime));
    QVERIFY(!m_manager->index(0, 1).data().toString().isEmpty());
    QVERIFY(!m_manager->index(0, 2).data().isValid());
    QVERIFY(m_manager->index(0, 0).data(Qt::ToolTipRole).toString().contains(QStringLiteral("&lt;b&gt;")));
}

void HMessageManagerTest::unreadMessagesAreBold()
{
    receive({message("a", 1), message("b", 2)});
    QSignalSpy changes(m_manager.get(), &QAbstractItemModel::dataChanged);
    m_manager->markMessageAsRead(0);
    m_manager->markMessageAsRead(0);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).toModelIndex(), m_manager->index(0, 0));
    QCOMPARE(changes.at(0).at(1).toModelIndex(), m_manager->index(0, 2));
    for (int column = 0; column < 3; ++column) {
        QVERIFY(!m_manager->index(0, column).data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(m_manager->index(1, column).data(Qt::FontRole).value<QFont>().bold());
    }
    QVERIFY(m_manager->messageAt(0).isRead());
}

void HMessageManagerTest::theLastColumnTellsWhatCanNotBeDeleted()
{
    HMessage fixed = message("fixed", 1);
    fixed.setDeletable(false);
    receive({fixed, message("free", 2)});
    QCOMPARE(m_manager->index(0, 2).data(Qt::UserRole), QVariant(false));
    QCOMPARE(m_manager->index(1, 2).data(Qt::UserRole), QVariant(true));
    QVERIFY(!m_manager->index(1, 0).data(Qt::UserRole).isValid());
}

void HMessageManagerTest::rowsThatAreNotThereAreLeftAlone()
{
    receive({message("a", 1)});
    for (const int row : {-1, 1, INT_MAX, INT_MIN}) {
        m_manager->markMessageAsRead(row);
        m_manager->deleteMessage(row);
        QVERIFY(m_manager->messageAt(row).isNull());
    }
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
    QVERIFY(!m_manager->messageAt(0).isRead());
}

void HMessageManagerTest::theNewestIsFirst()
{
    receive({message("b", 2), message("d", 4), message("a", 1), message("c", 3)});
    const QStringList expected{QStringLiteral("d"), QStringLiteral("c"), QStringLiteral("b"),
                               QStringLiteral("a")};
    QCOMPARE(uids(), expected);
    restart();
    QCOMPARE(uids(), expected);
}

void HMessageManagerTest::ofTheSameDateTheLastToComeIsFirst()
{
    receive({message("a", 1), message("b", 1)});
    receive({message("c", 1)});
    const QStringList expected{QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")};
    QCOMPARE(uids(), expected);
    restart();
    QCOMPARE(uids(), expected);
    receive({message("d", 1)});
    QCOMPARE(uids(), QStringList{QStringLiteral("d")} + expected);
}

void HMessageManagerTest::whatComesBetweenIsPutThere()
{
    receive({message("b", 20), message("d", 40)});
    QSignalSpy insertions(m_manager.get(), &QAbstractItemModel::rowsInserted);
    receive({message("a", 10), message("e", 50), message("c1", 31), message("c2", 32), message("f", 60)});
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("f e d c2 c1 b a"));
    QCOMPARE(insertions.size(), 3);
}

void HMessageManagerTest::aMessageWithoutADateHasThatOfItsArrival()
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    receive({undated("a")});
    const QDateTime date = m_manager->messageAt(0).date();
    QVERIFY(date >= before && date <= QDateTime::currentDateTimeUtc());
    QCOMPARE(date.timeSpec(), Qt::UTC);
}

void HMessageManagerTest::comingAgainDoesNotMakeItYounger()
{
    receive({message("a", 10)});
    receive({undated("a")});
    QCOMPARE(m_manager->messageAt(0).date(), dayDate(10));
}

void HMessageManagerTest::aMessageThatComesAgainIsUpdated()
{
    receive({message("a", 1, "Old"), message("b", 2)});
    HMessage again(QStringLiteral("a"), QStringLiteral("New"), dayDate(1), UrlInfo());
    again.setDeletable(false);
    QSignalSpy changes(m_manager.get(), &QAbstractItemModel::dataChanged);
    receive({again});
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).toModelIndex(), m_manager->index(1, 0));
    restart();
    QCOMPARE(m_manager->messageAt(1), again);
    QCOMPARE(m_manager->rowCount(), 2);
}

void HMessageManagerTest::anotherDateMovesTheRowAndItsSelection_data()
{
    QTest::addColumn<int>("days");
    QTest::addColumn<QString>("order");
    QTest::newRow("up to the top") << 50 << QStringLiteral("b d c a");
    QTest::newRow("up by one") << 35 << QStringLiteral("d b c a");
    QTest::newRow("where it is") << 25 << QStringLiteral("d c b a");
    QTest::newRow("a little down, where it is") << 15 << QStringLiteral("d c b a");
    QTest::newRow("down to the end") << 5 << QStringLiteral("d c a b");
}

void HMessageManagerTest::anotherDateMovesTheRowAndItsSelection()
{
    QFETCH(int, days);
    receive({message("a", 10), message("b", 20), message("c", 30), message("d", 40)});
    const QPersistentModelIndex selected(m_manager->index(2, 0));
    receive({message("b", days)});
    QTEST(uids().join(QLatin1Char(' ')), "order");
    QCOMPARE(m_manager->messageAt(selected.row()).uid(), QStringLiteral("b"));
    QCOMPARE(m_manager->messageAt(selected.row()).date(), dayDate(days));
}

void HMessageManagerTest::manyChangesAreOneChangeOfTheLayout_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("layouts");
    QTest::addColumn<int>("moves");
    QTest::newRow("300") << 300 << 0 << 299;
    QTest::newRow("301") << 301 << 1 << 0;
}

void HMessageManagerTest::manyChangesAreOneChangeOfTheLayout()
{
    QFETCH(int, count);
    receive(numbered(count, 1));
    QVector<HMessage> again = numbered(count, 1);
    for (int i = 0; i < count; ++i)
        again[i].setDate(dayDate(count - i));
    const QPersistentModelIndex current = m_manager->index(7, 1);
    const QString uid = m_manager->messageAt(7).uid();
    QSignalSpy resets(m_manager.get(), &QAbstractItemModel::modelReset);
    QSignalSpy layouts(m_manager.get(), &QAbstractItemModel::layoutChanged);
    QSignalSpy moves(m_manager.get(), &QAbstractItemModel::rowsMoved);
    QSignalSpy changes(m_manager.get(), &QAbstractItemModel::dataChanged);
    receive(again);
    QCOMPARE(resets.size(), 0); // it would end the reading of the current message
    QTEST(layouts.size(), "layouts");
    QTEST(moves.size(), "moves");
    QVERIFY(!changes.isEmpty());
    QCOMPARE(m_manager->messageAt(current.row()).uid(), uid);
    QCOMPARE(current.column(), 1);
    QCOMPARE(m_manager->messageAt(0).uid(), QStringLiteral("0"));
    QCOMPARE(m_manager->messageAt(count - 1).uid(), QString::number(count - 1));
}

void HMessageManagerTest::manyAtOnceShowWhatSingleStepsWouldShow()
{
    m_tester.reset(); // which would look at every row again and again
    HMessageManager steps(m_core.get());
    steps.setAccount(QStringLiteral("bob"));
    for (HMessageManager *manager : {m_manager.get(), &steps})
        manager->receive(numbered(9'900, 2));
    QVector<HMessage> next = numbered(800, 5);
    for (int i = 0; i < next.size(); i += 3)
        next[i].setRead(true);
    receive(next);
    for (int from = 0; from < next.size(); from += 100)
        steps.receive(next.mid(from, 100));
    QCOMPARE(m_manager->rowCount(), 10'000);
    QCOMPARE(steps.rowCount(), 10'000);
    for (int row = 0; row < steps.rowCount(); ++row)
        QCOMPARE(m_manager->messageAt(row), steps.messageAt(row));
}

void HMessageManagerTest::whatManyMessagesBroughtIsThereAfterARestart()
{
    m_tester.reset();
    receive(numbered(2'500, 1));
    const QStringList shown = uids();
    m_manager->setAccount(QStringLiteral("bob"));
    m_manager->setAccount(QStringLiteral("ada"));
    QCOMPARE(uids(), shown);

    receive(numbered(4'500, 1));
    restart();
    QCOMPARE(m_manager->rowCount(), 4'500);

    // The rest is written without anything else being done.
    m_tester.reset();
    receive(numbered(4'000, 2));
    MessageStore store(m_core->storage(), m_core->providerName());
    QTRY_COMPARE(store.load(QStringLiteral("ada")).entries.size(), uids().size());
    QCOMPARE(m_manager->rowCount(), 6'250);
}

void HMessageManagerTest::whatIsDoneToManyMessagesAtOnceIsKept()
{
    m_tester.reset();
    receive(numbered(2'500, 1));
    m_manager->markMessageAsRead(0);
    const QString deleted = m_manager->messageAt(1).uid();
    m_manager->deleteMessage(1);
    receive({message("new", 3'000)});
    m_manager->setAccount(QStringLiteral("bob"));
    receive(numbered(1'500, 1));
    m_manager->clear();
    restart();
    QCOMPARE(m_manager->rowCount(), 0);
    m_manager->setAccount(QStringLiteral("ada"));
    QCOMPARE(m_manager->rowCount(), 0); // clearing is for every account

    receive(numbered(2'500, 1));
    QVERIFY(!uids().contains(deleted));
    m_manager->deleteMessage(1);
    m_manager->markMessageAsRead(0);
    restart();
    QCOMPARE(m_manager->rowCount(), 2'498);
    QVERIFY(m_manager->messageAt(0).isRead());
}

void HMessageManagerTest::whatWasReadStaysRead()
{
    receive({message("a", 1)});
    m_manager->markMessageAsRead(0);
    receive({message("a", 1, "Changed")});
    QVERIFY(m_manager->messageAt(0).isRead());
    restart();
    QVERIFY(m_manager->messageAt(0).isRead());
    QCOMPARE(m_manager->messageAt(0).text(), QStringLiteral("Changed"));
}

void HMessageManagerTest::whatTheServiceSaysWasReadIsRead()
{
    receive({message("a", 1)});
    HMessage read = message("a", 1);
    read.setRead(true);
    receive({read});
    QVERIFY(m_manager->messageAt(0).isRead());
}

void HMessageManagerTest::theSameUidTwiceInOneReplyIsOneMessage()
{
    QSignalSpy news(m_manager.get(), &HMessageManager::newMessagesArrived);
    receive({message("a", 1, "First"), message("b", 1), message("a", 1, "Last")});
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("a b"));
    QCOMPARE(m_manager->messageAt(0).text(), QStringLiteral("Last"));
    QCOMPARE(news.size(), 1);
}

void HMessageManagerTest::newsAreToldOnceForEachReply()
{
    int rows = 0;
    connect(m_manager.get(), &HMessageManager::newMessagesArrived, this,
            [this, &rows] { rows = m_manager->rowCount(); });
    QSignalSpy news(m_manager.get(), &HMessageManager::newMessagesArrived);
    receive({message("a", 1), message("b", 2)});
    QCOMPARE(news.size(), 1);
    QCOMPARE(rows, 2);
    receive({message("b", 2), message("c", 3)});
    QCOMPARE(news.size(), 2);
    QCOMPARE(rows, 3);
}

void HMessageManagerTest::nothingNewIsNoNews_data()
{
    QTest::addColumn<QVector<HMessage>>("again");
    QTest::newRow("nothing") << QVector<HMessage>();
    QTest::newRow("known") << QVector<HMessage>{message("a", 1)};
    QTest::newRow("changed") << QVector<HMessage>{message("a", 9, "Other")};
    QTest::newRow("deleted") << QVector<HMessage>{message("gone", 1)};
    QTest::newRow("null") << QVector<HMessage>{HMessage()};
}

void HMessageManagerTest::nothingNewIsNoNews()
{
    QFETCH(QVector<HMessage>, again);
    receive({message("a", 1), message("gone", 2)});
    m_manager->deleteMessage(0);
    QSignalSpy news(m_manager.get(), &HMessageManager::newMessagesArrived);
    receive(again);
    QCOMPARE(news.size(), 0);
    QCOMPARE(m_manager->rowCount(), 1);
}

void HMessageManagerTest::aDeletedMessageNeverComesBack()
{
    receive({message("a", 1), message("b", 2)});
    m_manager->deleteMessage(0);
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
    receive({message("b", 2)});
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
    restart();
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
    receive({message("b", 2)});
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
    // Uids are compared exactly.
    receive({message("B", 2)});
    QCOMPARE(m_manager->rowCount(), 2);
}

void HMessageManagerTest::aMessageThatCanNotBeDeletedStays()
{
    HMessage fixed = message("fixed", 1);
    fixed.setDeletable(false);
    receive({fixed});
    m_manager->deleteMessage(0);
    QCOMPARE(m_manager->rowCount(), 1);
    restart();
    QCOMPARE(m_manager->rowCount(), 1);
}

void HMessageManagerTest::everythingIsThereAfterARestart()
{
    HMessage fixed(QStringLiteral("ü \" '; DROP TABLE messages"), QStringLiteral("Grüße \U0001F44B"),
                   QDateTime(QDate(2100, 1, 1), QTime(1, 2, 3, 4), Qt::UTC),
                   UrlInfo(QUrl(QStringLiteral("https://www.corvia.example/%C3%BC?a=b%20c"))));
    fixed.setDeletable(false);
    fixed.setRead(true);
    receive({fixed, message("early", 0)});
    restart();
    QCOMPARE(m_manager->rowCount(), 2);
    QCOMPARE(m_manager->messageAt(0), fixed);
    QCOMPARE(m_manager->messageAt(1), message("early", 0));
}

void HMessageManagerTest::accountsDoNotSeeEachOthersMessages()
{
    receive({message("a", 1), message("b", 2)});
    m_manager->deleteMessage(0);
    m_manager->setAccount(QStringLiteral("bob"));
    QCOMPARE(uids(), QStringList());
    // The same uid is another message, and nobody of this account has deleted it.
    receive({message("b", 2, "Bob's")});
    QCOMPARE(m_manager->messageAt(0).text(), QStringLiteral("Bob's"));
    restart();
    QCOMPARE(uids(), QStringList{QStringLiteral("b")});
    m_manager->setAccount(QStringLiteral("ada"));
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
}

void HMessageManagerTest::withoutAnAccountNothingIsTakenOrShown()
{
    receive({message("a", 1)});
    m_manager->setAccount(QString());
    QCOMPARE(m_manager->rowCount(), 0);
    receive({message("b", 1)});
    QCOMPARE(m_manager->rowCount(), 0);
    restart();
    QCOMPARE(m_manager->rowCount(), 0);
    m_manager->setAccount(QStringLiteral("ada"));
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
}

void HMessageManagerTest::noDatabaseIsMadeBeforeItIsNeeded()
{
    QTemporaryDir profile;
    Core core(profile.path());
    HMessageManager manager(&core);
    const QString file = profile.filePath(QStringLiteral("provider-messages.sqlite"));
    QVERIFY(!QFile::exists(file));
    manager.setAccount(QStringLiteral("ada"));
    QVERIFY(QFile::exists(file));
}

void HMessageManagerTest::clearingForgetsAllButWhatWasDeleted()
{
    receive({message("a", 1), message("b", 2)});
    m_manager->deleteMessage(0);
    m_manager->setAccount(QStringLiteral("bob"));
    receive({message("c", 1)});
    m_manager->clear();
    QCOMPARE(m_manager->rowCount(), 0);
    restart();
    QCOMPARE(m_manager->rowCount(), 0);
    m_manager->setAccount(QStringLiteral("ada"));
    QCOMPARE(m_manager->rowCount(), 0);
    receive({message("a", 1), message("b", 2)});
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
}

void HMessageManagerTest::onlyTheNewestTenThousandAreKept()
{
    m_tester.reset(); // which would look at every row again and again
    QVector<HMessage> many;
    for (int i = 0; i < 10'050; ++i)
        many.append(message(qPrintable(QString::number(i)), i));
    receive(many);
    QCOMPARE(m_manager->rowCount(), 10'000);
    QCOMPARE(m_manager->messageAt(0).uid(), QStringLiteral("10049"));
    QCOMPARE(m_manager->messageAt(9'999).uid(), QStringLiteral("50"));

    QSignalSpy news(m_manager.get(), &HMessageManager::newMessagesArrived);
    receive(many.mid(0, 50));
    QCOMPARE(news.size(), 0);
    receive({message("new", 20'000)});
    QCOMPARE(news.size(), 1);
    const QStringList shown = uids();
    QCOMPARE(shown.size(), 10'000);
    QCOMPARE(shown.first(), QStringLiteral("new"));
    QCOMPARE(shown.last(), QStringLiteral("51"));
    restart();
    QCOMPARE(uids(), shown);
}

void HMessageManagerTest::aDatabaseThatCanNotBeOpenedDoesNotEmptyTheList()
{
    cleanup();
    QVERIFY(QFile::remove(databaseFile()));
    QVERIFY(QDir().mkpath(databaseFile() + QStringLiteral("/x")));
    restart();
    receive({message("a", 1), message("b", 2)});
    m_manager->markMessageAsRead(1);
    m_manager->deleteMessage(0);
    receive({message("b", 2)});
    QCOMPARE(uids(), QStringList{QStringLiteral("a")});
    QVERIFY(m_manager->messageAt(0).isRead());
}

void HMessageManagerTest::aDamagedFileOfMessagesIsReportedAsOne()
{
    cleanup();
    QFile file(databaseFile());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no messages") > 0);
    file.close();
    restart(); // with the account of the last run
    const QString notice = m_core->storage()->takeNotices().value(0);
    QVERIFY2(notice.startsWith(QLatin1String("The messages file was damaged")), qPrintable(notice));
}

void HMessageManagerTest::messagesThatAreNotSavedAreReportedAsMessages()
{
    receive({message("a", 1)});
    {
        const ForeignLock lock(databaseFile(), ForeignLock::Reads);
        QVERIFY(lock.isHeld());
        receive({message("b", 2)});
    }
    const QString problem = m_core->storage()->writeProblem();
    QVERIFY2(problem.startsWith(QLatin1String("Messages are not being saved: database is locked. Changes ")),
             qPrintable(problem));
    receive({message("c", 3)}); // is committed with the one before
    QTRY_COMPARE(m_core->storage()->writeProblem(), QString());
    restart();
    QCOMPARE(uids().join(QLatin1Char(' ')), QStringLiteral("c b a"));
}

QTEST_MAIN(HMessageManagerTest)
#include "tst_hmessagemanager.moc"
