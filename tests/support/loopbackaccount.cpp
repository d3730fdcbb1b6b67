// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "loopbackaccount.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/hserver.h>
#include <halvora/hserveraddressrotator.h>

#include <QDebug>
#include <QDomDocument>

LoopbackAccount::LoopbackAccount(const std::string &scenario)
    : m_core(m_profile.path())
    , m_service(scenario, corvia::Options())
{
    std::string why;
    m_running = m_service.start(&why);
    if (!m_running)
        qWarning("%s", why.c_str());
    m_core.setAuthorityFile(QString::fromStdString(m_service.authorityFile()));
}

void LoopbackAccount::use(ConnectorPlugin &plugin)
{
    const HServerAddress address(QStringLiteral("localhost"), m_service.accountPort(), true, 0);
    plugin.connector()->server()->setAddressRotator(
        std::make_unique<HServerAddressRotator>(plugin.configName(), QList<HServerAddress>{address}));
}

void LoopbackAccount::useDemo(ConnectorPlugin &plugin)
{
    use(plugin);
    plugin.connector()->setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
}

QStringList LoopbackAccount::requestNames() const
{
    QStringList names;
    for (const std::string &text : m_service.requests()) {
        QDomDocument document;
        document.setContent(QByteArray::fromStdString(text));
        names.append(document.documentElement().firstChildElement().tagName());
    }
    return names;
}
