// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "application.h"

#include "logincontroller.h"
#include "outsidelink.h"
#include "ownprivatedata.h"
#include "pluginfolder.h"

#include <halvora/abstractprovider.h>
#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/coreplugininterface.h>
#include <halvora/dbutils.h>
#include <halvora/hserveraddressrotator.h>
#include <halvora/localemanager.h>
#include <halvora/mainwindow.h>
#include <halvora/pluginloader.h>
#include <halvora/pluginmanager.h>
#include <halvora/privatedataregistry.h>
#include <halvora/settingsregistry.h>
#include <halvora/storagemanager.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSettings>
#include <QTimer>

#include <cstdlib>

Q_LOGGING_CATEGORY(logApplication, "halvora.application")

namespace {

QStringList translationDirectories()
{
    const QString program = QCoreApplication::applicationDirPath();
    return {program + QStringLiteral("/translations"),
            program + QStringLiteral("/../share/halvora/translations")};
}

// Plug-ins open their settings by the program's name. With a profile they belong there like everything else,
// or trying a profile out would change what the user has.
void keepSettingsIn(const QString &profile)
{
    if (!profile.isEmpty())
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QDir(QDir(profile).absolutePath()).filePath(QStringLiteral("settings")));
}

} // namespace

Application::Application(const Options &options)
    : m_options(options)
    , m_core(std::make_unique<Core>(options.profile))
{
    m_core->locale()->setTranslationDirectories(translationDirectories());
    m_core->locale()->installSaved();
    m_core->setAuthorityFile(options.authorityFile);
    keepSettingsIn(options.profile);
    loadPlugins(PluginFolder::find(options.pluginDirectory, QCoreApplication::applicationDirPath()));
    useService();

    m_window = std::make_unique<MainWindow>(m_core.get());
    m_core->setMainWindow(m_window.get());
    connectWindow();
    if (!isStoreLocked())
        makeReady();
}

Application::~Application()
{
    shutDown(EXIT_FAILURE);
}

void Application::loadPlugins(const QString &directory)
{
    const QVector<PluginResult> results = PluginLoader::loadAll(directory);
    for (const PluginResult &result : results) {
        if (m_plugins.contains(result.plugin)) {
            qCInfo(logApplication).noquote() << result.file << "is a plug-in that is loaded already";
        } else if (result.plugin) {
            addPlugin(result.plugin, result.file);
        } else {
            qCWarning(logApplication).noquote() << result.logText;
            m_notices.append(result.userText);
        }
    }
    if (results.isEmpty())
        m_notices.append(tr("No provider plug-in was found in %1.").arg(directory));
    m_benchmark.lap(QStringLiteral("load"));
}

void Application::addPlugin(CorePluginInterface *plugin, const QString &file)
{
    const QFileInfo info(file);
    auto *provider = dynamic_cast<AbstractProvider *>(plugin);
    // There is one account, and one place in the window for what a provider says about it.
    if (m_provider && provider) {
        qCWarning(logApplication).noquote() << file << "is a second provider";
        m_notices.append(
            tr("The plug-in %1 was left out, because another provider is in use.").arg(info.fileName()));
        return;
    }
    m_core->setProviderName(info.completeBaseName());
    plugin->create(this, m_core.get());
    if (provider && !provider->connectorPlugin()) {
        qCWarning(logApplication).noquote() << file << "made no connector plug-in";
        m_notices.append(tr("The plug-in %1 can not be used.").arg(info.fileName()));
        return;
    }
    m_plugins.append(plugin);
    if (provider)
        m_provider = provider;
    m_benchmark.lap(QStringLiteral("create"));
}

void Application::useService()
{
    if (!m_provider || m_options.serviceHost.isEmpty())
        return;
    const HServerAddress address(m_options.serviceHost, m_options.servicePort, true, 0);
    const ConnectorPlugin *plugin = m_provider->connectorPlugin();
    plugin->connector()->server()->setAddressRotator(
        std::make_unique<HServerAddressRotator>(plugin->configName(), QList<HServerAddress>{address}));
}

void Application::makeReady()
{
    m_isReady = true;
    polishPlugins();
    connectProvider();
    addDetails();
    m_window->restoreLayout();
    showLastingNotice();
}

// All in one turn of the event loop: what a plug-in queues for later in init() finds its panels.
void Application::polishPlugins()
{
    for (CorePluginInterface *plugin : qAsConst(m_plugins)) {
        plugin->init(m_benchmark);
        plugin->polish(m_window.get());
    }
    m_benchmark.lap(QStringLiteral("init and polish"));
    if (!m_provider)
        return;
    m_provider->retranslateUi();
    m_window->setWindowTitle(m_provider->windowTitle());
    m_window->setAboutAction(m_provider->aboutAction());
    if (QWidget *home = m_provider->homeWidget())
        m_window->setHomePage(home);
    m_login = std::make_unique<LoginController>(m_provider->connectorPlugin(), m_window.get());
    m_ownPrivateData =
        std::make_unique<OwnPrivateData>(m_core.get(), m_provider->connectorPlugin(), m_login.get());
}

void Application::start()
{
    if (m_isReady)
        begin();
    else
        waitForStore();
}

void Application::begin()
{
    for (CorePluginInterface *plugin : qAsConst(m_plugins))
        plugin->onApplicationStart();
    m_window->show();
    const OutsideLink link = OutsideLink::parse(OutsideLink::absolute(m_options.link), ownScheme());
    const bool isLinkUsable = !m_options.link.isEmpty() && link.kind() != OutsideLink::Refused;
    if (!m_options.link.isEmpty() && !isLinkUsable)
        m_notices.append(link.refusal());
    m_notices.append(m_core->storage()->takeNotices());
    connect(m_core->storage(), &StorageManager::noticeRaised, m_window.get(), &MainWindow::showNotice);
    if (!m_notices.isEmpty())
        m_window->showNotice(m_notices.join(QLatin1Char(' ')));
    for (CorePluginInterface *plugin : qAsConst(m_plugins))
        plugin->onJobControllerRestore();
    // After what the plug-ins queued at their start.
    QTimer::singleShot(0, this, [this, isLinkUsable, link] {
        for (CorePluginInterface *plugin : qAsConst(m_plugins))
            plugin->onApplicationStartFinished();
        readPassword();
        if (isLinkUsable)
            open(link);
        const std::vector<std::function<void()>> kept = std::exchange(m_keptCalls, {});
        for (const std::function<void()> &call : kept)
            call();
    });
    if (!m_options.screenshot.isEmpty())
        takePicture(m_options.screenshot);
    for (const Benchmark::Stage &stage : m_benchmark.stages())
        qCDebug(logApplication) << stage.name << stage.nanoseconds / 1000 << "µs";
}

void Application::shutDown(int exitCode)
{
    if (m_down)
        return;
    m_down = true;
    m_storeTimer->stop();
    m_login.reset();
    if (m_isReady) {
        for (CorePluginInterface *plugin : qAsConst(m_plugins))
            plugin->onShutdown();
    }
    const bool workersEnded = !m_provider || m_provider->connectorPlugin()->connector()->shutDown();
    if (!workersEnded) {
        qCWarning(logApplication) << "the worker did not end in time";
        m_core->plugin()->clear();
        m_core->settings().sync();
        DBUtils::closeAll();
        std::_Exit(exitCode);
    }
    m_window.reset();
    // None of them may be asked once what the provider's plug-in registered there is gone.
    m_core->privateData()->clear();
    m_ownPrivateData.reset();
    m_core->settingsRegistry()->clear();
    m_core->plugin()->setBookmarkProvider(nullptr);
    m_core->plugin()->clear();
    if (m_provider)
        m_provider->releaseConnectorPlugin();
    m_core.reset();
}

Core *Application::core() const
{
    return m_core.get();
}

MainWindow *Application::window() const
{
    return m_window.get();
}

LoginController *Application::login() const
{
    return m_login.get();
}

ConnectorPlugin *Application::connectorPlugin() const
{
    return m_provider ? m_provider->connectorPlugin() : nullptr;
}
