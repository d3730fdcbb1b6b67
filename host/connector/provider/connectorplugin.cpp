// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/connectorplugin.h>

#include "hhomewidget.h"

#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/hserver.h>
#include <halvora/hserveraddressrotator.h>
#include <halvora/linkopener.h>

ConnectorPlugin::ConnectorPlugin(Core *core)
    : m_core(core)
    , m_configName(core->providerName())
    , m_connector(new Connector(core, this))
{
    m_connector->setParent(this);
}

ConnectorPlugin::~ConnectorPlugin()
{
    // Requests that are delivered now reach slots of a derived class no more, but the workers still read from
    // the connector.
    m_connector->shutDown();
}

Core *ConnectorPlugin::core() const
{
    return m_core;
}

Connector *ConnectorPlugin::connector() const
{
    return m_connector;
}

QString ConnectorPlugin::configName() const
{
    return m_configName;
}

void ConnectorPlugin::setAddressRotator(HServerAddressRotator *rotator)
{
    m_connector->server()->setAddressRotator(std::unique_ptr<HServerAddressRotator>(rotator));
}

void ConnectorPlugin::setErrorReportVisible(bool visible)
{
    m_core->setErrorReportVisible(visible);
}

void ConnectorPlugin::init(Benchmark &benchmark)
{
    Q_UNUSED(benchmark)
}

bool ConnectorPlugin::providesNntpProfiles() const
{
    return false;
}

bool ConnectorPlugin::providesBookmarkManager() const
{
    return false;
}

bool ConnectorPlugin::handlesFile(const QString &fileName) const
{
    Q_UNUSED(fileName)
    return false;
}

NewsgroupInfoProvider *ConnectorPlugin::newsgroupInfoProvider() const
{
    return nullptr;
}

QWidget *ConnectorPlugin::homeWidget()
{
    return new HHomeWidget(this);
}

void ConnectorPlugin::onLanguageChange() {}

void ConnectorPlugin::onJobControllerRestore() {}

void ConnectorPlugin::onApplicationStart() {}

void ConnectorPlugin::onApplicationStartFinished() {}

void ConnectorPlugin::onShutdown() {}

bool ConnectorPlugin::isAnonymousLoginSupported() const
{
    return false;
}

void ConnectorPlugin::onNonAnonymousAction() {}

void ConnectorPlugin::retranslateUi() {}

void ConnectorPlugin::sendToJsonEndpoint(const QString &endpoint, const QJsonObject &object)
{
    Q_UNUSED(endpoint)
    Q_UNUSED(object)
}

void ConnectorPlugin::applyLogin(HLoginRequest *login)
{
    m_connector->applyLogin(*login);
}

bool ConnectorPlugin::isSearchAllowed() const
{
    return true;
}

void ConnectorPlugin::openUrl(const UrlInfo &url)
{
    if (!url.isNull())
        m_core->links().open(url.url());
}

QAction *ConnectorPlugin::statusAction() const
{
    return nullptr;
}

QString ConnectorPlugin::onlineText() const
{
    return tr("Logged in as %1").arg(m_connector->username());
}

QString ConnectorPlugin::offlineText() const
{
    return tr("Not logged in");
}
