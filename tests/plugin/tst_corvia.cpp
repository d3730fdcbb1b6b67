// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "connector/cvconnectorplugin.h"
#include "plugin/corvia.h"
#include "requests/cvcontext.h"

#include <halvora/benchmark.h>
#include <halvora/connectiongraphwidget.h>
#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/filetype.h>
#include <halvora/haccountstatsplugin.h>
#include <halvora/hbackupnntpplugin.h>
#include <halvora/hcontextholder.h>
#include <halvora/localemanager.h>
#include <halvora/mainwindow.h>
#include <halvora/nzbtoolbarplugin.h>
#include <halvora/platformmanager.h>
#include <halvora/pluginmanager.h>
#include <halvora/shutdownplugin.h>
#include <halvora/statsplugin.h>
#include <halvora/storagemanager.h>
#include <halvora/stylehelper.h>
#include <halvora/trafficmeter.h>

#include <QFile>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// Answers as it is told and writes down what it is asked.
class SettablePlatform final : public PlatformManager {
public:
    bool schemeAnswer = false;
    bool typeAnswer = false;
    QStringList *calls = nullptr;
    const StorageManager *storage = nullptr;
    QString folder; ///< for downloads, when the types were registered

    bool registerProtocolForSystem(const QString &scheme, const QString &title) override
    {
        calls->append(QStringLiteral("protocol system %1 %2").arg(scheme, title));
        return schemeAnswer;
    }
    bool registerProtocolForUser(const QString &scheme, const QString &title) override
    {
        calls->append(QStringLiteral("protocol user %1 %2").arg(scheme, title));
        return false; // which nobody minds
    }
    bool registerFileTypesForSystem(const QString &description, const QString &title,
                                    const QList<FileType> &types) override
    {
        calls->append(QStringLiteral("type system ") + text(description, title, types));
        folder = storage->downloadFolder();
        return typeAnswer;
    }
    bool registerFileTypesForUser(const QString &description, const QString &title,
                                  const QList<FileType> &types) override
    {
        calls->append(QStringLiteral("type user ") + text(description, title, types));
        return false;
    }

private:
    static QString text(const QString &description, const QString &title, const QList<FileType> &types)
    {
        QStringList parts{description, title};
        for (const FileType &type : types)
            parts << type.extension() << type.mimeType();
        return parts.join(QLatin1Char('|'));
    }
};

} // namespace

class TestCorvia : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void namesAnswerToTheirParts();
    void createMakesTheConnectorPluginAndGivesItAway();
    void createSetsTheLookOfTheHost();
    void createInstallsTheOneContext();
    void theRecordOfTheAccountIsKnownByItsName();
    void systemWideRegistrationSparesTheUsers();
    void withoutSystemWideRegistrationTheUsersFollowsEach();
    void schemeAndTypeAreJudgedEachForItself_data();
    void schemeAndTypeAreJudgedEachForItself();
    void theDownloadFolderAndTheLanguageAreSet();
    void thePluginsAreRegisteredInOrderAfterTheConnectorsInit();
    void theStatsPluginWritesUnderTheConfigurationsName();
    void theAccountsStatisticsAreThoseOfTheConnector();
    void theHostsQuestionsReachTheConnectorPlugin();

private:
    QStringList m_calls;
    SettablePlatform *m_platform = nullptr;
    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<Corvia> m_root;
    Benchmark m_benchmark;
};

void TestCorvia::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
}

void TestCorvia::init()
{
    m_calls.clear();
    m_profile = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_profile->path());
    auto platform = std::make_unique<SettablePlatform>();
    m_platform = platform.get();
    m_platform->calls = &m_calls;
    m_platform->storage = m_core->storage();
    m_core->setPlatform(std::move(platform));
    m_core->setProviderName(QStringLiteral("pinegate"));
    m_root = std::make_unique<Corvia>();
    m_root->create(this, m_core.get());
}

void TestCorvia::cleanup()
{
    m_core->plugin()->clear();
    m_root.reset();
    m_core.reset();
}

void TestCorvia::namesAnswerToTheirParts()
{
    QCOMPARE(m_root->qt_metacast("Corvia"), static_cast<void *>(m_root.get()));
    QCOMPARE(m_root->qt_metacast("com.halvora.CorePluginInterface/1.0"),
             static_cast<void *>(static_cast<CorePluginInterface *>(m_root.get())));
    QVERIFY(m_root->qt_metacast("com.halvora.CorePluginInterface/1.0") != static_cast<void *>(m_root.get()));
    QCOMPARE(m_root->qt_metacast("QObject"), static_cast<void *>(static_cast<QObject *>(m_root.get())));
    QCOMPARE(m_root->qt_metacast("AbstractProvider"), nullptr);
    QCOMPARE(m_root->qt_metacast("com.halvora.CorePluginInterface/2.0"), nullptr);
    QCOMPARE(m_root->qt_metacast(nullptr), nullptr);
    QCOMPARE(Corvia::staticMetaObject.superClass(), &QObject::staticMetaObject);
    QCOMPARE(Corvia::staticMetaObject.methodCount(), Corvia::staticMetaObject.methodOffset());
}

void TestCorvia::createMakesTheConnectorPluginAndGivesItAway()
{
    auto *plugin = qobject_cast<CVConnectorPlugin *>(m_root->connectorPlugin());
    QVERIFY(plugin);
    QCOMPARE(plugin->core(), m_core.get());
    QPointer<QObject> guard(plugin);
    m_root.reset();
    QVERIFY(!guard);
}

void TestCorvia::createSetsTheLookOfTheHost()
{
    QCOMPARE(StyleHelper::baseColor(), QColor(QStringLiteral("#3A4A65")));
    QCOMPARE(ConnectionGraphWidget::backgroundColor(), QColor(QStringLiteral("#DEECF8")));
    QCOMPARE(ConnectionGraphWidget::borderColor(), QColor(10, 42, 81, 100));
    QCOMPARE(ConnectionGraphWidget::foregroundColor(), QColor(51, 153, 255, 100));
}

void TestCorvia::createInstallsTheOneContext()
{
    QCOMPARE(HContextHolder::context(), static_cast<HContext *>(CVContext::instance()));
}

// Nothing else in this program registers it.
void TestCorvia::theRecordOfTheAccountIsKnownByItsName()
{
    QVERIFY(QMetaType::type("CVAccountStatus") != QMetaType::UnknownType);
}

void TestCorvia::systemWideRegistrationSparesTheUsers()
{
    m_platform->schemeAnswer = true;
    m_platform->typeAnswer = true;
    m_root->init(m_benchmark);
    const QStringList expected{QStringLiteral("protocol system pinegate Halvora"),
                               QStringLiteral("type system Pinegate File|Halvora|nzb|application/x-nzb")};
    QCOMPARE(m_calls, expected);
}

void TestCorvia::withoutSystemWideRegistrationTheUsersFollowsEach()
{
    m_root->init(m_benchmark);
    const QStringList expected{QStringLiteral("protocol system pinegate Halvora"),
                               QStringLiteral("protocol user pinegate Halvora"),
                               QStringLiteral("type system Pinegate File|Halvora|nzb|application/x-nzb"),
                               QStringLiteral("type user Pinegate File|Halvora|nzb|application/x-nzb")};
    QCOMPARE(m_calls, expected);
    QCOMPARE(m_core->plugin()->plugins().size(), 5); // the start went on
}

void TestCorvia::schemeAndTypeAreJudgedEachForItself_data()
{
    QTest::addColumn<bool>("scheme");
    QTest::addColumn<bool>("type");
    QTest::newRow("only the scheme is known") << true << false;
    QTest::newRow("only the type is known") << false << true;
}

void TestCorvia::schemeAndTypeAreJudgedEachForItself()
{
    QFETCH(bool, scheme);
    QFETCH(bool, type);
    m_platform->schemeAnswer = scheme;
    m_platform->typeAnswer = type;
    m_root->init(m_benchmark);
    QCOMPARE(m_calls.filter(QStringLiteral("protocol user")).isEmpty(), scheme);
    QCOMPARE(m_calls.filter(QStringLiteral("type user")).isEmpty(), type);
}

void TestCorvia::theDownloadFolderAndTheLanguageAreSet()
{
    m_root->init(m_benchmark);
    QVERIFY(m_core->storage()->downloadFolder().endsWith(QLatin1String("/Pinegate")));
    QCOMPARE(m_root->language(), m_core->locale()->currentLanguage());
}

void TestCorvia::thePluginsAreRegisteredInOrderAfterTheConnectorsInit()
{
    int registered = -1;
    connect(m_core.get(), &Core::errorReportVisibleChanged, this, [&registered, this](bool visible) {
        QVERIFY(visible);
        registered = m_core->plugin()->plugins().size();
        QCOMPARE(m_calls.size(), 4);
        QVERIFY(m_core->storage()->downloadFolder().endsWith(QLatin1String("/Pinegate")));
        QCOMPARE(m_root->language(), m_core->locale()->currentLanguage());
    });
    m_root->init(m_benchmark);
    QVERIFY(!m_platform->folder.endsWith(QLatin1String("/Pinegate"))); // which is named afterwards
    QCOMPARE(registered, 0); // the connector's init had its say before any of them was made

    const QList<IPlugin *> plugins = m_core->plugin()->plugins();
    QCOMPARE(plugins.size(), 5);
    QVERIFY(dynamic_cast<ShutdownPlugin *>(plugins.at(0)));
    QVERIFY(dynamic_cast<NzbToolBarPlugin *>(plugins.at(1)));
    QVERIFY(dynamic_cast<HBackupNntpPlugin *>(plugins.at(2)));
    QVERIFY(dynamic_cast<StatsPlugin *>(plugins.at(3)));
    QVERIFY(dynamic_cast<HAccountStatsPlugin *>(plugins.at(4)));
}

void TestCorvia::theStatsPluginWritesUnderTheConfigurationsName()
{
    m_root->init(m_benchmark);
    auto *stats = dynamic_cast<StatsPlugin *>(m_core->plugin()->plugins().at(3));
    m_core->traffic().addNntpDown(1000);
    stats->poll();
    m_core->plugin()->clear();
    QVERIFY(QFile::exists(m_core->storage()->dataDirectory() + QStringLiteral("/traffic-pinegate.log")));
}

void TestCorvia::theAccountsStatisticsAreThoseOfTheConnector()
{
    m_root->init(m_benchmark);
    m_root->connectorPlugin()->connector()->setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
    const auto *statistics = dynamic_cast<HAccountStatsPlugin *>(m_core->plugin()->plugins().at(4));
    QVERIFY(statistics->title().contains(QLatin1String("demo")));
}

void TestCorvia::theHostsQuestionsReachTheConnectorPlugin()
{
    QCOMPARE(m_root->name(), QStringLiteral("pinegate"));
    QCOMPARE(m_root->title(), QStringLiteral("Halvora"));
    QCOMPARE(m_root->windowTitle(), QStringLiteral("Halvora"));
    QVERIFY(!m_root->providesNntpProfiles());
    QVERIFY(!m_root->handlesFile(QStringLiteral("a.nzb")));
    QCOMPARE(m_root->newsgroupInfoProvider(), nullptr);
    QCOMPARE(m_root->aboutAction(), m_root->connectorPlugin()->aboutAction());
}

QTEST_MAIN(TestCorvia)
#include "tst_corvia.moc"
