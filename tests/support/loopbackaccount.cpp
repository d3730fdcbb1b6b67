// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "loopbackaccount.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/hserver.h>
#include <halvora/hserveraddressrotator.h>

#include <QDomDocument>

LoopbackAccount::LoopbackAccount(const std::string &scenario, const corvia::Options &options)
    : m_service(scenario, options)
{
    std::string why;
    if (!m_service.start(&why))
        m_problem = QString::fromStdString(why);
    restartCore();
}

LoopbackAccount::~LoopbackAccount() = default;

void LoopbackAccount::restartCore()
{
    m_core = std::make_unique<Core>(m_profile.path());
    m_core->setAuthorityFile(QString::fromStdString(m_service.authorityFile()));
}

HServerAddress LoopbackAccount::address() const
{
    return HServerAddress(QStringLiteral("localhost"), m_service.accountPort(), true, 0);
}

void LoopbackAccount::use(ConnectorPlugin &plugin)
{
    plugin.connector()->server()->setAddressRotator(
        std::make_unique<HServerAddressRotator>(plugin.configName(), QList<HServerAddress>{address()}));
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
