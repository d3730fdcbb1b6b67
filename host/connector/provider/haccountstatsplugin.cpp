// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/haccountstatsplugin.h>

#include <halvora/connector.h>

HAccountStatsPlugin::HAccountStatsPlugin(Connector *connector)
    : m_connector(connector)
{
}

QString HAccountStatsPlugin::title() const
{
    return tr("Account Statistics of %1").arg(m_connector->username());
}
