// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "requests/cvloginrequest.h"

#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/simplenntpclient.h>

namespace {

constexpr int mostFailures = 5; // a long list of hosts is never tried to its end

}

CVLoginRequest::CVLoginRequest(Connector *connector)
    : HLoginRequest(connector)
{
}

CVLoginRequest::~CVLoginRequest() = default;

CVAccountStatus CVLoginRequest::accountStatus() const
{
    return m_accountStatus;
}

bool CVLoginRequest::isAllowedToSend(bool serverReady, bool) const
{
    return serverReady;
}

bool CVLoginRequest::prepare()
{
    const QList<NntpHost> hosts = nntpHosts();
    if (hosts.isEmpty())
        return true;
    Core *core = connector()->core();
    const QString username = connector()->username();
    const QString password = connector()->password();
    int failures = 0;
    for (const NntpHost &host : hosts) {
        // A program that ends has no use for the answer, and nobody is to be told of a refusal.
        if (!core->isRunning())
            return true;
        if (failures > mostFailures)
            return false;
        SimpleNntpClient client(core);
        if (client.connectToHost(host.host(), host.port(), host.isSsl()))
            return client.login(username, password);
        ++failures;
    }
    return false;
}

void CVLoginRequest::buildResponseInternal(const QDomElement &reply)
{
    HLoginRequest::buildResponseInternal(reply);
    if (reply.tagName() != QLatin1String("login"))
        return;
    m_accountStatus.parse(reply.firstChildElement(QStringLiteral("status")));
}
