// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "writealarm.h"

#include <halvora/dbutils.h>

#include <QSemaphore>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>

using namespace std::chrono_literals;

/// What depends on the moment at which the watch looks.
class WriteAlarmTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void aLookThatBeganBeforeAFailureDoesNotEndTheAlarm();
    void theWatchEndsWithoutWaitingForItsTime();
    void aWatchThatDoesNotEndIsLeftBehind();

private:
    void fail();

    QTemporaryDir m_folder;
    std::unique_ptr<WriteAlarm> m_alarm;
};

void WriteAlarmTest::init()
{
    m_alarm = std::make_unique<WriteAlarm>(&QDateTime::currentDateTime);
    m_alarm->watch().setInterval(1h);
}

void WriteAlarmTest::fail()
{
    QSqlQuery query((QSqlDatabase()));
    QVERIFY(!query.exec(QStringLiteral("SELECT 1")));
    DBUtils::checkForErrors(query);
}

void WriteAlarmTest::aLookThatBeganBeforeAFailureDoesNotEndTheAlarm()
{
    QSemaphore looked;
    connect(
        &m_alarm->watch(), &StorageWatch::checked, &m_alarm->watch(), [&looked] { looked.release(); },
        Qt::DirectConnection);
    m_alarm->watch().add(m_folder.filePath(QStringLiteral("a.sqlite")));
    QVERIFY(looked.tryAcquire(1, 30'000));
    fail(); // the finding is still on its way
    QCoreApplication::processEvents();
    QVERIFY(!m_alarm->sentence().isEmpty());
    QVERIFY(!m_alarm->watch().take());

    m_alarm->watch().checkNow();
    QTRY_COMPARE(m_alarm->sentence(), QString());
}

void WriteAlarmTest::theWatchEndsWithoutWaitingForItsTime()
{
    const QSignalSpy looked(&m_alarm->watch(), &StorageWatch::checked);
    m_alarm->watch().add(m_folder.filePath(QStringLiteral("a.sqlite")));
    QTRY_COMPARE(looked.size(), 1);
    QVERIFY(m_alarm->watch().isRunning());
    QVERIFY(m_alarm->watch().stop());
    QVERIFY(m_alarm->watch().stop());
    m_alarm->watch().checkNow(); // is no crash any more
}

// As a file server does that is gone.
void WriteAlarmTest::aWatchThatDoesNotEndIsLeftBehind()
{
    QSemaphore stuck;
    QSemaphore goOn;
    StorageWatch *watch = &m_alarm->watch();
    connect(
        watch, &StorageWatch::checked, watch,
        [&] {
            stuck.release();
            goOn.acquire();
        },
        Qt::DirectConnection);
    watch->add(m_folder.filePath(QStringLiteral("a.sqlite")));
    QVERIFY(stuck.tryAcquire(1, 30'000));
    m_alarm.reset();
    QVERIFY(watch->isRunning());
    fail(); // nobody is told
    goOn.release();
    QVERIFY(watch->wait(30'000));
    delete watch;
}

QTEST_GUILESS_MAIN(WriteAlarmTest)
#include "tst_writealarm.moc"
