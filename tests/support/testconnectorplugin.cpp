// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "testconnectorplugin.h"

#include <halvora/hjobresulthandler.h>

#include <QAction>

TestConnectorPlugin::TestConnectorPlugin(Core *core)
    : ConnectorPlugin(core)
    , m_aboutAction(new QAction(QStringLiteral("About Test News"), this))
    , m_jobResultHandler(new HJobResultHandler(connector(), this))
{
}

TestConnectorPlugin::~TestConnectorPlugin() = default;

QAction *TestConnectorPlugin::aboutAction() const
{
    return m_aboutAction;
}

QString TestConnectorPlugin::statsConfigName() const
{
    return QStringLiteral("test-stats");
}

QString TestConnectorPlugin::displayName() const
{
    return QStringLiteral("Test News");
}

QString TestConnectorPlugin::platformDisplayName() const
{
    return QStringLiteral("Test News for Linux");
}

QString TestConnectorPlugin::productName() const
{
    return QStringLiteral("TestNews");
}

QString TestConnectorPlugin::productTag() const
{
    return QStringLiteral("test");
}

QString TestConnectorPlugin::emptyText() const
{
    return QString();
}

void TestConnectorPlugin::startLogin()
{
    if (onStartLogin)
        onStartLogin();
}

void TestConnectorPlugin::refreshStatus()
{
    if (onRefreshStatus)
        onRefreshStatus();
}

HJobResultHandler *TestConnectorPlugin::jobResultHandler() const
{
    return m_jobResultHandler;
}

QPixmap TestConnectorPlugin::loginPixmap() const
{
    return QPixmap();
}

bool TestConnectorPlugin::isPreviewSupported() const
{
    return false;
}

bool TestConnectorPlugin::isAccountRequired() const
{
    return true;
}

bool TestConnectorPlugin::isTrialSupported() const
{
    return false;
}

QString TestConnectorPlugin::detailsUrl(const HStorageId &id) const
{
    return QStringLiteral("https://www.testnews.example/") + id.toString();
}

QString TestConnectorPlugin::urlScheme() const
{
    return QStringLiteral("testnews");
}

QList<HServerAddress> TestConnectorPlugin::serverAddresses() const
{
    return {HServerAddress(QStringLiteral("account.testnews.example"), 5598, addressFlag(), 0)};
}

bool TestConnectorPlugin::addressFlag() const
{
    return true;
}
