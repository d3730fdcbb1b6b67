// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "serviceaccount.h"

#include "testlogin.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>
#include <halvora/hserveraddressrotator.h>

#include <QTcpServer>
#include <QtTest>

ServiceAccount::ServiceAccount(const corvia::Options &options, const std::string &scenario)
    : m_service(scenario, options)
{
    std::string why;
    if (!m_service.start(&why))
        m_problem = QString::fromStdString(why);
    start();
}

ServiceAccount::~ServiceAccount() = default;

void ServiceAccount::start()
{
    m_core = std::make_unique<Core>(m_profile.path());
    m_core->setAuthorityFile(QString::fromStdString(m_service.authorityFile()));
    m_plugin = std::make_unique<TestConnectorPlugin>(m_core.get());
    server().setAddressRotator(
        std::make_unique<HServerAddressRotator>(m_plugin->configName(), QList<HServerAddress>{address()}));
    connector().setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
}

void ServiceAccount::restart()
{
    m_plugin.reset();
    m_core.reset();
    start();
}

Connector &ServiceAccount::connector()
{
    return *m_plugin->connector();
}

HServer &ServiceAccount::server()
{
    return *m_plugin->connector()->server();
}

HServerAddress ServiceAccount::address() const
{
    return HServerAddress(QStringLiteral("localhost"), m_service.accountPort(), true, 0);
}

HServerAddress ServiceAccount::deadAddress()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return HServerAddress(QStringLiteral("127.0.0.1"), server.serverPort(), true, 0);
}

bool ServiceAccount::logIn()
{
    const QSharedPointer<TestLogin> login(new TestLogin(&connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    server().prependRequestToQueue(login);
    if (!finished.wait(30'000) || !login->isSuccessful())
        return false;
    m_plugin->applyLogin(login.data());
    return true;
}

void ServiceAccount::setFault(corvia::Fault::Kind kind, int number, const std::string &text,
                              const std::string &request)
{
    corvia::Fault fault;
    fault.kind = kind;
    fault.number = number;
    fault.text = text;
    fault.request = request;
    m_service.setFault(fault);
}
