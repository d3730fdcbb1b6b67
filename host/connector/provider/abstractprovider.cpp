// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/abstractprovider.h>

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/hserver.h>
#include <halvora/localemanager.h>

AbstractProvider::AbstractProvider() = default;

AbstractProvider::~AbstractProvider()
{
    releaseConnectorPlugin();
}

ConnectorPlugin *AbstractProvider::connectorPlugin() const
{
    return m_plugin;
}

void AbstractProvider::releaseConnectorPlugin()
{
    if (!m_plugin)
        return;
    m_plugin->connector()->server()->shutDown();
    delete m_plugin;
}

QString AbstractProvider::language() const
{
    return m_language;
}

void AbstractProvider::retranslateUi()
{
    m_plugin->retranslateUi();
}

void AbstractProvider::createInternal(Core *core, ConnectorPlugin *plugin)
{
    m_core = core;
    m_plugin = plugin;
}

void AbstractProvider::setLanguage(const QString &language)
{
    m_language = language;
}

void AbstractProvider::polish(MainWindow *window)
{
    m_plugin->polish(window);
}

QString AbstractProvider::name() const
{
    return m_plugin->productName();
}

QString AbstractProvider::title() const
{
    return m_plugin->displayName();
}

QString AbstractProvider::windowTitle() const
{
    return m_plugin->displayName();
}

bool AbstractProvider::providesNntpProfiles() const
{
    return m_plugin->providesNntpProfiles();
}

bool AbstractProvider::handlesFile(const QString &fileName) const
{
    return m_plugin->handlesFile(fileName);
}

NewsgroupInfoProvider *AbstractProvider::newsgroupInfoProvider() const
{
    return m_plugin->newsgroupInfoProvider();
}

QAction *AbstractProvider::aboutAction() const
{
    return m_plugin->aboutAction();
}

QWidget *AbstractProvider::homeWidget()
{
    return m_plugin->homeWidget();
}

void AbstractProvider::onLanguageChange()
{
    setLanguage(m_core->locale()->currentLanguage());
    m_plugin->onLanguageChange();
    retranslateUi();
}

void AbstractProvider::onJobControllerRestore()
{
    m_plugin->onJobControllerRestore();
}

void AbstractProvider::onApplicationStart()
{
    m_plugin->onApplicationStart();
}

void AbstractProvider::onApplicationStartFinished()
{
    m_plugin->onApplicationStartFinished();
}

void AbstractProvider::onShutdown()
{
    m_plugin->onShutdown();
}
