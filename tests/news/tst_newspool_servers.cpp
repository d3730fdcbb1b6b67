// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "innserver.h"
#include "newspool.h"
#include "serviceaccount.h"

#include <halvora/connector.h>
#include <halvora/nntpsession.h>

#include <QSemaphore>
#include <QSettings>
#include <QtTest>

#include <memory>

namespace {

/// What a task read, for the GUI thread after its end.
struct Findings {
    QByteArrayList lines;
    NntpGroup group;
};

NntpSession::LineSink into(QByteArrayList &lines)
{
    return [&lines](const char *line, int length) {
        lines << QByteArray(line, length);
        return true;
    };
}

QSharedPointer<WorkTask> reading(const QByteArray &command, const std::shared_ptr<Findings> &findings)
{
    return WorkTask::doing([command, findings](NntpSession &session, WorkTask &) {
        return session.lines(command, 215, into(findings->lines));
    });
}

QSharedPointer<WorkTask> readingOverview(const QByteArray &name, const std::shared_ptr<Findings> &findings)
{
    return WorkTask::doing([name, findings](NntpSession &session, WorkTask &) {
        const auto group = session.group(name);
        if (!group)
            return false;
        findings->group = *group;
        const QByteArray range = QByteArray::number(group->first) + '-' + QByteArray::number(group->last);
        return group->isEmpty() || session.lines("OVER " + range, 224, into(findings->lines));
    });
}

} // namespace

/// Against servers that speak for themselves: the loopback service, under TLS, and INN.
class tst_NewsPoolServers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void groupsAndOverviewsAreRead_data();
    void groupsAndOverviewsAreRead();
    void anEmptyGroupHasNoArticles();
    void aServersRefusalIsToldInItsWords_data();
    void aServersRefusalIsToldInItsWords();
    void aLogoutOfTheAccountEndsItsTasks();
    void theProgramsEndWaitsForNoServer();
    void theProgramsEndGivesAWorkerUp();

private:
    HNntpDistributor &distributor(bool isInn);
    static bool isFinished(HNntpDistributor &distributor, const QSharedPointer<WorkTask> &task);

    std::unique_ptr<ServiceAccount> m_service;
    std::unique_ptr<InnServer> m_inn;
    QTemporaryDir m_folder;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<HNntpDistributor> m_innDistributor;
};

void tst_NewsPoolServers::initTestCase()
{
    m_inn = std::make_unique<InnServer>();
    QVERIFY2(m_inn->problem().isEmpty(), qPrintable(m_inn->problem()));
    m_service = std::make_unique<ServiceAccount>();
    QCOMPARE(m_service->problem(), QString());
    QVERIFY(m_service->logIn());
    m_core = std::make_unique<Core>(m_folder.path());
    const auto account = [this] {
        NntpAccount reader;
        reader.hosts = {NntpHost(QStringLiteral("localhost"), m_inn->port(), false)};
        reader.user = QStringLiteral("alice");
        reader.password = QStringLiteral("wonderland");
        return reader;
    };
    m_innDistributor = std::make_unique<HNntpDistributor>(m_core.get(), account);
    m_innDistributor->open();
}

void tst_NewsPoolServers::cleanupTestCase()
{
    m_innDistributor.reset();
    m_service.reset();
    m_inn.reset();
}

HNntpDistributor &tst_NewsPoolServers::distributor(bool isInn)
{
    return isInn ? *m_innDistributor : *m_service->connector().distributor();
}

bool tst_NewsPoolServers::isFinished(HNntpDistributor &distributor, const QSharedPointer<WorkTask> &task)
{
    QSignalSpy finished(task.data(), &NntpTask::finished);
    distributor.start(task);
    return finished.wait(30'000);
}

void tst_NewsPoolServers::groupsAndOverviewsAreRead_data()
{
    QTest::addColumn<bool>("isInn");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("active");
    QTest::addColumn<QByteArray>("description");
    QTest::newRow("loopback service")
        << false << QByteArray("alt.binaries.linux.images") << QByteArray("alt.binaries.linux.images ")
        << QByteArray("alt.binaries.linux.images\tInstallation images");
    QTest::newRow("INN") << true << QByteArray("misc.articles")
                         << QByteArray("misc.articles 0000000005 0000000001 y")
                         << QByteArray("misc.articles\tA few articles.");
}

void tst_NewsPoolServers::groupsAndOverviewsAreRead()
{
    QFETCH(bool, isInn);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, active);
    QFETCH(QByteArray, description);
    for (const auto &[command, expected] : {qMakePair(QByteArray("LIST ACTIVE"), active),
                                            qMakePair(QByteArray("LIST NEWSGROUPS"), description)}) {
        const auto list = std::make_shared<Findings>();
        const auto task = reading(command, list);
        QVERIFY(isFinished(distributor(isInn), task));
        QVERIFY2(task->isSuccessful(), qPrintable(task->serverWords()));
        const auto isIt = [start = expected](const QByteArray &line) { return line.startsWith(start); };
        QCOMPARE(std::count_if(list->lines.cbegin(), list->lines.cend(), isIt), 1);
    }
    const auto overview = std::make_shared<Findings>();
    const auto task = readingOverview(name, overview);
    QVERIFY(isFinished(distributor(isInn), task));
    QVERIFY2(task->isSuccessful(), qPrintable(task->serverWords()));
    QVERIFY(overview->group.count > 0);
    QCOMPARE(qint64(overview->lines.size()), overview->group.count);
    QVERIFY(overview->lines.first().startsWith(QByteArray::number(overview->group.first) + '\t'));
    QVERIFY(overview->lines.first().count('\t') >= 7);
}

void tst_NewsPoolServers::anEmptyGroupHasNoArticles()
{
    const auto overview = std::make_shared<Findings>();
    const auto task = readingOverview("misc.test", overview);
    QVERIFY(isFinished(*m_innDistributor, task));
    QVERIFY(task->isSuccessful());
    QVERIFY(overview->group.isEmpty());
    QVERIFY(overview->lines.isEmpty());
}

void tst_NewsPoolServers::aServersRefusalIsToldInItsWords_data()
{
    QTest::addColumn<bool>("isInn");
    QTest::newRow("loopback service") << false;
    QTest::newRow("INN") << true;
}

void tst_NewsPoolServers::aServersRefusalIsToldInItsWords()
{
    QFETCH(bool, isInn);
    const auto task = readingOverview("no.such.group", std::make_shared<Findings>());
    QVERIFY(isFinished(distributor(isInn), task));
    QCOMPARE(task->failure(), NntpFailure::Refused);
    QVERIFY2(task->serverWords().startsWith(QLatin1String("411 ")), qPrintable(task->serverWords()));
}

void tst_NewsPoolServers::aLogoutOfTheAccountEndsItsTasks()
{
    const auto task = reading("LIST ACTIVE", std::make_shared<Findings>());
    const QSignalSpy finished(task.data(), &NntpTask::finished);
    distributor(false).start(task);
    m_service->connector().logOut();
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(task->failure(), NntpFailure::Cancelled);
    const auto next = reading("LIST ACTIVE", std::make_shared<Findings>());
    QVERIFY(isFinished(distributor(false), next));
    QCOMPARE(next->failure(), NntpFailure::NoAccount);
}

namespace {

/// A provider whose account reads at @p server.
struct Provider {
    explicit Provider(const BusyNewsServer &server)
        : core(folder.path())
    {
        QSettings &settings = core.settings();
        settings.beginWriteArray(QStringLiteral("Account/NntpHosts"), 1);
        settings.setArrayIndex(0);
        settings.setValue(QStringLiteral("Host"), QStringLiteral("127.0.0.1"));
        settings.setValue(QStringLiteral("Port"), server.port());
        settings.setValue(QStringLiteral("Ssl"), false);
        settings.endArray();
        plugin = std::make_unique<TestConnectorPlugin>(&core);
        plugin->connector()->setAccount(QStringLiteral("alice"), QStringLiteral("wonderland"));
        plugin->connector()->distributor()->open();
    }

    QTemporaryDir folder;
    Core core;
    std::unique_ptr<TestConnectorPlugin> plugin;
};

} // namespace

void tst_NewsPoolServers::theProgramsEndWaitsForNoServer()
{
    BusyNewsServer server;
    Provider provider(server);
    const auto task = WorkTask::sending("HOLD");
    const QSignalSpy finished(task.data(), &NntpTask::finished);
    provider.plugin->connector()->distributor()->start(task);
    QTRY_COMPARE(server.holding(), 1);
    provider.plugin.reset();
    QCOMPARE(finished.size(), 1);
    QCOMPARE(task->failure(), NntpFailure::ShuttingDown);
    QVERIFY(!provider.core.isRunning());
}

void tst_NewsPoolServers::theProgramsEndGivesAWorkerUp()
{
    BusyNewsServer server;
    Provider provider(server);
    QSemaphore begun;
    QSemaphore mayEnd;
    const auto task = WorkTask::doing([&begun, &mayEnd](NntpSession &, WorkTask &) {
        begun.release();
        mayEnd.acquire();
        return true;
    });
    provider.plugin->connector()->distributor()->start(task);
    begun.acquire();
    QVERIFY(!provider.plugin->connector()->shutDown());
    mayEnd.release();
    QVERIFY(provider.plugin->connector()->shutDown());
}

QTEST_MAIN(tst_NewsPoolServers)
#include "tst_newspool_servers.moc"
