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
    : m_account(scenario, options)
{
    start();
}

ServiceAccount::~ServiceAccount() = default;

void ServiceAccount::start()
{
    m_plugin = std::make_unique<TestConnectorPlugin>(&core());
    m_account.useDemo(*m_plugin);
}

void ServiceAccount::restart()
{
    m_plugin.reset();
    m_account.restartCore();
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

HServerAddress ServiceAccount::deadAddress()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return HServerAddress(QStringLiteral("127.0.0.1"), server.serverPort(), true, 0);
}

bool ServiceAccount::logIn()
{
    const QSharedPointer<TestLogin> login(new TestLogin(&connector()));
    // At once, as a provider does: what the reply brings along is for the account that is logged in then.
    QObject::connect(login.data(), &HRequest::requestFinished, m_plugin.get(),
                     [this, request = login.data()] {
                         if (request->isSuccessful())
                             m_plugin->applyLogin(request);
                     });
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    server().prependRequestToQueue(login);
    return finished.wait(30'000) && login->isSuccessful();
}

void ServiceAccount::setFault(corvia::Fault::Kind kind, int number, const std::string &text,
                              const std::string &request)
{
    corvia::Fault fault;
    fault.kind = kind;
    fault.number = number;
    fault.text = text;
    fault.request = request;
    service().setFault(fault);
}
