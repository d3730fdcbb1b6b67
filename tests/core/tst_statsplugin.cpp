// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/statsplugin.h>

#include <halvora/core.h>
#include <halvora/mainwindow.h>
#include <halvora/nzbtoolbarplugin.h>
#include <halvora/pluginmanager.h>
#include <halvora/shutdownplugin.h>
#include <halvora/storagemanager.h>
#include <halvora/trafficmeter.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <limits>
#include <memory>

namespace {

class OtherWords : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        const bool known = qstrcmp(context, "StatsDialog") == 0 && qstrcmp(text, "Today") == 0;
        return known ? QStringLiteral("Heute") : QString();
    }
};

QVector<QDialog *> dialogs()
{
    QVector<QDialog *> found;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        auto *dialog = qobject_cast<QDialog *>(widget);
        if (dialog && dialog->objectName() == QStringLiteral("StatsDialog"))
            found.append(dialog);
    }
    return found;
}

QStringList texts(const QDialog &dialog)
{
    QStringList all;
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->isVisible())
            all.append(label->text());
    }
    return all;
}

} // namespace

class StatsPluginTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void trafficOfTodayIsCounted();
    void theTimerCountsWithoutBeingAsked();
    void theSignalTellsOfChangesOnly();
    void midnightBeginsANewDayWithoutTraffic();
    void aQuietMidnightTellsNothing();
    void theMonthEndsWithItsLastDay();
    void figuresSurviveARestart();
    void whatWasCountedBeforeIsNotCountedAgain();
    void theLastSecondIsCountedAtTheEnd();
    void twoConnectorsCountApart();
    void aConfigurationNameCannotLeaveTheDataFolder();
    void aServicesCountIsBroughtUpToDate();
    void aServicesCountWithoutATimeIsLeftAlone();
    void aServicesCountDoesNotOverflow();
    void clearingForgetsTheHistoryInTheFileToo();
    void thereIsOneWindowAndItComesBack();
    void theWindowBelongsToTheMainWindow();
    void theWindowClosesWithThePlugin();
    void theWindowSurvivesItsMainWindow();
    void theWindowFollowsTheFigures();
    void withoutTrafficTheWindowSaysSo();
    void theWindowFollowsTheLanguage();
    void theBarsAreTold();
    void theManagerOwnsThePlugins();

private:
    void makeCore();
    void makePlugin();
    void receive(qint64 bytes);
    void setNow(const QDate &date, const QTime &time);

    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<StatsPlugin> m_stats;
    qint64 m_now = 0;
};

void StatsPluginTest::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    setNow(QDate(2026, 11, 20), QTime(12, 0));
    makeCore();
    makePlugin();
}

void StatsPluginTest::cleanup()
{
    m_stats.reset();
    m_core.reset();
}

void StatsPluginTest::makeCore()
{
    m_stats.reset();
    m_core = std::make_unique<Core>(m_profile->path());
}

void StatsPluginTest::makePlugin()
{
    m_stats.reset();
    m_stats = std::make_unique<StatsPlugin>(m_core.get(), QStringLiteral("corvia"));
    m_stats->setClock([this] { return m_now; });
}

void StatsPluginTest::receive(qint64 bytes)
{
    m_core->traffic().addNntpDown(bytes);
    m_stats->poll();
}

void StatsPluginTest::setNow(const QDate &date, const QTime &time)
{
    m_now = QDateTime(date, time).toMSecsSinceEpoch();
}

void StatsPluginTest::trafficOfTodayIsCounted()
{
    receive(100);
    receive(23);
    QCOMPARE(m_stats->bytesToday(), qint64(123));
    QCOMPARE(m_stats->bytesThisMonth(), qint64(123));
}

void StatsPluginTest::theTimerCountsWithoutBeingAsked()
{
    m_core->traffic().addNntpDown(7);
    QTRY_COMPARE(m_stats->bytesToday(), qint64(7));
}

void StatsPluginTest::theSignalTellsOfChangesOnly()
{
    const QSignalSpy changed(m_stats.get(), &StatsPlugin::quickStatsUpdated);
    m_stats->poll();
    QCOMPARE(changed.count(), 0);
    receive(1);
    QCOMPARE(changed.count(), 1);
    m_stats->poll();
    QCOMPARE(changed.count(), 1);
}

void StatsPluginTest::midnightBeginsANewDayWithoutTraffic()
{
    receive(100);
    const QSignalSpy changed(m_stats.get(), &StatsPlugin::quickStatsUpdated);
    setNow(QDate(2026, 11, 20), QTime(23, 59, 59, 999));
    m_stats->poll();
    QCOMPARE(changed.count(), 0);
    ++m_now;
    m_stats->poll();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_stats->bytesToday(), qint64(0));
    QCOMPARE(m_stats->bytesThisMonth(), qint64(100));
}

void StatsPluginTest::aQuietMidnightTellsNothing()
{
    const QSignalSpy changed(m_stats.get(), &StatsPlugin::quickStatsUpdated);
    setNow(QDate(2026, 11, 21), QTime(0, 0));
    m_stats->poll();
    QCOMPARE(changed.count(), 0);
}

void StatsPluginTest::theMonthEndsWithItsLastDay()
{
    setNow(QDate(2026, 11, 30), QTime(23, 59));
    receive(100);
    setNow(QDate(2026, 12, 1), QTime(0, 0));
    const QSignalSpy changed(m_stats.get(), &StatsPlugin::quickStatsUpdated);
    m_stats->poll();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_stats->bytesThisMonth(), qint64(0));
}

void StatsPluginTest::figuresSurviveARestart()
{
    receive(100);
    makeCore();
    makePlugin();
    QCOMPARE(m_stats->bytesToday(), qint64(100));
    receive(5);
    QCOMPARE(m_stats->bytesToday(), qint64(105));
}

void StatsPluginTest::whatWasCountedBeforeIsNotCountedAgain()
{
    receive(100);
    makePlugin();
    m_stats->poll();
    QCOMPARE(m_stats->bytesToday(), qint64(100));
}

void StatsPluginTest::theLastSecondIsCountedAtTheEnd()
{
    m_core->traffic().addNntpDown(42);
    makeCore();
    makePlugin();
    QCOMPARE(m_stats->bytesToday(), qint64(42));
}

void StatsPluginTest::twoConnectorsCountApart()
{
    receive(100);
    m_stats.reset();
    const StatsPlugin other(m_core.get(), QStringLiteral("other"));
    QCOMPARE(other.bytesThisMonth(), qint64(0));
    QVERIFY(QFileInfo::exists(m_profile->filePath(QStringLiteral("traffic-corvia.log"))));
}

void StatsPluginTest::aConfigurationNameCannotLeaveTheDataFolder()
{
    for (const QString &name :
         {QStringLiteral("../../x"), QString(), QStringLiteral(".."), QStringLiteral("/x")}) {
        auto stats = std::make_unique<StatsPlugin>(m_core.get(), name);
        m_core->traffic().addNntpDown(1);
        stats.reset();
    }
    const QStringList written = QDir(m_profile->path()).entryList({QStringLiteral("traffic-*.log")});
    QCOMPARE(written.size(), 3); // nothing and the parent folder are both no name
}

void StatsPluginTest::aServicesCountIsBroughtUpToDate()
{
    receive(100);
    const qint64 since = m_now;
    m_now += 1;
    receive(20);
    QCOMPARE(m_stats->updatedNntpTrafficDown(1000, since), qint64(1020));
    QCOMPARE(m_stats->updatedNntpTrafficDown(1000, since - 1), qint64(1120));
    QCOMPARE(m_stats->updatedNntpTrafficDown(1000, m_now), qint64(1000));
    QCOMPARE(m_stats->updatedNntpTrafficDown(0, since), qint64(20));
    QCOMPARE(m_stats->updatedNntpTrafficDown(-1, since), qint64(-1));
    const qint64 smallest = std::numeric_limits<qint64>::min();
    QCOMPARE(m_stats->updatedNntpTrafficDown(smallest, smallest), smallest);
}

void StatsPluginTest::aServicesCountWithoutATimeIsLeftAlone()
{
    receive(100);
    for (const qint64 since : {qint64(0), qint64(-1), std::numeric_limits<qint64>::min()})
        QCOMPARE(m_stats->updatedNntpTrafficDown(1000, since), qint64(1000));
    QCOMPARE(m_stats->updatedNntpTrafficDown(1000, 1), qint64(1100));
}

void StatsPluginTest::aServicesCountDoesNotOverflow()
{
    receive(100);
    const qint64 largest = std::numeric_limits<qint64>::max();
    QCOMPARE(m_stats->updatedNntpTrafficDown(largest, 1), largest);
    QCOMPARE(m_stats->updatedNntpTrafficDown(largest - 50, 1), largest);
    QCOMPARE(m_stats->updatedNntpTrafficDown(largest - 100, 1), largest);
    QCOMPARE(m_stats->updatedNntpTrafficDown(largest - 101, 1), largest - 1);
}

void StatsPluginTest::clearingForgetsTheHistoryInTheFileToo()
{
    receive(100);
    makePlugin(); // a restart writes the file
    QCOMPARE(m_stats->bytesToday(), qint64(100));
    m_core->traffic().addNntpDown(20); // not counted yet
    const QSignalSpy updates(m_stats.get(), &StatsPlugin::quickStatsUpdated);
    m_stats->clear();
    QCOMPARE(updates.count(), 1);
    QCOMPARE(m_stats->bytesToday(), qint64(0));
    QCOMPARE(m_stats->journal().totalBytes(), qint64(0));
    QVERIFY(QDir(m_profile->path()).entryList({QStringLiteral("traffic-*.log")}).isEmpty());
    receive(3);
    makePlugin();
    QCOMPARE(m_stats->bytesToday(), qint64(3));
}

void StatsPluginTest::thereIsOneWindowAndItComesBack()
{
    m_stats->showStats();
    QCOMPARE(dialogs().size(), 1);
    QPointer<QDialog> first = dialogs().constFirst();
    QVERIFY(!first->isModal());
    first->showMinimized();
    m_stats->showStats();
    QCOMPARE(dialogs(), QVector<QDialog *>{first});
    QVERIFY(!first->isMinimized());
    first->close();
    QTRY_VERIFY(first.isNull());
    m_stats->showStats();
    QCOMPARE(dialogs().size(), 1);
}

void StatsPluginTest::theWindowBelongsToTheMainWindow()
{
    MainWindow window(m_core.get());
    m_core->setMainWindow(&window);
    m_stats->showStats();
    QCOMPARE(dialogs().constFirst()->parentWidget(), static_cast<QWidget *>(&window));
}

void StatsPluginTest::theWindowClosesWithThePlugin()
{
    m_stats->showStats();
    m_stats.reset();
    QCOMPARE(dialogs().size(), 0);
}

void StatsPluginTest::theWindowSurvivesItsMainWindow()
{
    {
        MainWindow window(m_core.get());
        m_core->setMainWindow(&window);
        m_stats->showStats();
    }
    QCOMPARE(dialogs().size(), 0);
    receive(1);
    m_stats->showStats();
    QCOMPARE(dialogs().constFirst()->parentWidget(), nullptr);
}

void StatsPluginTest::theWindowFollowsTheFigures()
{
    receive(1024);
    m_stats->showStats();
    QVERIFY(texts(*dialogs().constFirst()).contains(QStringLiteral("1 KiB")));
    receive(1024);
    QVERIFY(texts(*dialogs().constFirst()).contains(QStringLiteral("2 KiB")));
    QVERIFY(!texts(*dialogs().constFirst()).contains(QStringLiteral("1 KiB")));
}

void StatsPluginTest::withoutTrafficTheWindowSaysSo()
{
    m_stats->showStats();
    const auto *empty = dialogs().constFirst()->findChild<QLabel *>(QStringLiteral("emptyState"));
    QVERIFY(empty && empty->isVisible() && !empty->text().isEmpty());
    receive(1);
    QVERIFY(!empty->isVisible());
    QVERIFY(dialogs().constFirst()->findChild<QTabWidget *>()->isVisible());
}

void StatsPluginTest::theWindowFollowsTheLanguage()
{
    m_stats->showStats();
    QVERIFY(texts(*dialogs().constFirst()).contains(QStringLiteral("Today")));
    OtherWords words;
    QVERIFY(QCoreApplication::installTranslator(&words));
    QTRY_VERIFY(texts(*dialogs().constFirst()).contains(QStringLiteral("Heute")));
}

void StatsPluginTest::theBarsAreTold()
{
    receive(3 * 1024);
    m_stats->showStats();
    const auto *tabs = dialogs().constFirst()->findChild<QTabWidget *>();
    for (int i = 0; i < tabs->count(); ++i) {
        QVERIFY(!tabs->widget(i)->accessibleName().isEmpty());
        QVERIFY(tabs->widget(i)->accessibleDescription().contains(QStringLiteral("3 KiB")));
        QVERIFY(tabs->widget(i)->accessibleDescription().contains(QStringLiteral("2026")));
    }
}

void StatsPluginTest::theManagerOwnsThePlugins()
{
    const QPointer<StatsPlugin> stats = new StatsPlugin(m_core.get(), QStringLiteral("managed"));
    const QPointer<ShutdownPlugin> shutdown = new ShutdownPlugin(m_core.get());
    const QPointer<NzbToolBarPlugin> toolBar = new NzbToolBarPlugin;
    m_core->plugin()->registerPlugin(shutdown);
    m_core->plugin()->registerPlugin(toolBar);
    m_core->plugin()->registerPlugin(stats);
    QCOMPARE(dynamic_cast<StatsPlugin *>(m_core->plugin()->plugins().constLast()), stats.data());
    m_core->traffic().addNntpDown(1);
    m_stats.reset();
    m_core.reset(); // the last of them still counts while the core goes
    QVERIFY(!stats && !shutdown && !toolBar);
    QVERIFY(QFileInfo::exists(m_profile->filePath(QStringLiteral("traffic-managed.log"))));
}

QTEST_MAIN(StatsPluginTest)
#include "tst_statsplugin.moc"
