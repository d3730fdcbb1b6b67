// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "plugin/corvia.h"

#include "connector/cvconnectorplugin.h"
#include "plugin/constants.h"
#include "requests/cvaccountstatus.h"
#include "requests/cvcontext.h"

#include <halvora/connectiongraphwidget.h>
#include <halvora/core.h>
#include <halvora/filetype.h>
#include <halvora/haccountstatsplugin.h>
#include <halvora/hbackupnntpplugin.h>
#include <halvora/hcontextholder.h>
#include <halvora/localemanager.h>
#include <halvora/nzbtoolbarplugin.h>
#include <halvora/platformmanager.h>
#include <halvora/pluginmanager.h>
#include <halvora/shutdownplugin.h>
#include <halvora/statsplugin.h>
#include <halvora/storagemanager.h>
#include <halvora/stylehelper.h>

Corvia::Corvia()
{
    qRegisterMetaType<CVAccountStatus>("CVAccountStatus");
}

Corvia::~Corvia() = default;

void Corvia::create(QObject *, Core *core)
{
    auto *plugin = new CVConnectorPlugin(core);
    createInternal(core, plugin);

    StyleHelper::setBaseColor(QColor(0x3A, 0x4A, 0x65));
    ConnectionGraphWidget::setBackgroundColor(QColor(0xDE, 0xEC, 0xF8));
    ConnectionGraphWidget::setBorderColor(QColor(10, 42, 81, 100));
    ConnectionGraphWidget::setForegroundColor(QColor(51, 153, 255, 100));

    m_core = core;
    m_connectorPlugin = plugin;
    m_connector = plugin->connector();
    HContextHolder::init(CVContext::instance());
}

void Corvia::init(Benchmark &benchmark)
{
    registerLinkScheme();
    registerFileType();
    m_core->storage()->setDownloadFolderName(constants::productName);
    setLanguage(m_core->locale()->currentLanguage());
    m_connectorPlugin->init(benchmark);
    registerPlugins();
}

void Corvia::registerLinkScheme()
{
    const QString scheme = m_connectorPlugin->urlScheme();
    if (scheme.isEmpty())
        return;
    PlatformManager *platform = m_core->platform();
    if (!platform->registerProtocolForSystem(scheme, title()))
        platform->registerProtocolForUser(scheme, title());
}

void Corvia::registerFileType()
{
    const QList<FileType> types{FileType(QStringLiteral("nzb"), QStringLiteral("application/x-nzb"))};
    PlatformManager *platform = m_core->platform();
    if (!platform->registerFileTypesForSystem(constants::productFileDescription, title(), types))
        platform->registerFileTypesForUser(constants::productFileDescription, title(), types);
}

// The account panel looks for the statistics among these, so the order is part of what users see.
void Corvia::registerPlugins()
{
    PluginManager *plugins = m_core->plugin();
    plugins->registerPlugin(new ShutdownPlugin(m_core));
    plugins->registerPlugin(new NzbToolBarPlugin());
    plugins->registerPlugin(new HBackupNntpPlugin(m_core));
    plugins->registerPlugin(new StatsPlugin(m_core, m_connectorPlugin->statsConfigName()));
    plugins->registerPlugin(new HAccountStatsPlugin(m_connector));
}
