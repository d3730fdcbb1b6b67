// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hrequest.h>

HRequest::HRequest(Connector *connector)
    : m_connector(connector)
{
}

HRequest::~HRequest() = default;

bool HRequest::isAllowedToSend(bool serverReady, bool connected) const
{
    return serverReady && connected;
}

bool HRequest::isLoginRequest() const
{
    return false;
}

bool HRequest::isSuccessful() const
{
    return m_finished && m_failure.isNull();
}

bool HRequest::prepare()
{
    return true;
}

void HRequest::buildRequestInternal(QXmlStreamWriter &writer)
{
    Q_UNUSED(writer)
}

void HRequest::buildResponseInternal(const QDomElement &reply)
{
    Q_UNUSED(reply)
}

void HRequest::deliver()
{
    Q_EMIT requestFinished();
}

RequestFailure HRequest::failure() const
{
    return m_failure;
}

Connector *HRequest::connector() const
{
    return m_connector;
}
