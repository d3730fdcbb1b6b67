// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "requests/cvstatusrequest.h"

#include <QXmlStreamWriter>

CVStatusRequest::CVStatusRequest(Connector *connector)
    : HRequest(connector)
{
}

CVStatusRequest::~CVStatusRequest() = default;

CVAccountStatus CVStatusRequest::accountStatus() const
{
    return m_accountStatus;
}

void CVStatusRequest::buildRequestInternal(QXmlStreamWriter &writer)
{
    writer.writeStartElement(QStringLiteral("status"));
    writer.writeEndElement();
}

void CVStatusRequest::buildResponseInternal(const QDomElement &reply)
{
    m_accountStatus.parse(reply);
}
