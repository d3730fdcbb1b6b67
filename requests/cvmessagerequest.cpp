// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "requests/cvmessagerequest.h"

#include <QDomElement>
#include <QXmlStreamWriter>

namespace {

void append(QStringList &uids, const QString &uid)
{
    if (!uids.contains(uid))
        uids.append(uid);
}

void writeMessages(QXmlStreamWriter &writer, const QString &tag, const QStringList &uids)
{
    if (uids.isEmpty())
        return;
    writer.writeStartElement(tag);
    for (const QString &uid : uids) {
        writer.writeEmptyElement(QStringLiteral("message"));
        writer.writeAttribute(QStringLiteral("uid"), uid);
    }
    writer.writeEndElement();
}

} // namespace

CVMessageRequest::CVMessageRequest(Connector *connector)
    : HRequest(connector)
{
}

CVMessageRequest::~CVMessageRequest() = default;

void CVMessageRequest::addReadMessage(const QString &uid)
{
    append(m_readUids, uid);
}

void CVMessageRequest::addDeletedMessage(const QString &uid)
{
    append(m_deletedUids, uid);
}

bool CVMessageRequest::hasSucceeded() const
{
    return m_success;
}

void CVMessageRequest::buildRequestInternal(QXmlStreamWriter &writer)
{
    writer.writeStartElement(QStringLiteral("message"));
    writeMessages(writer, QStringLiteral("read"), m_readUids);
    writeMessages(writer, QStringLiteral("deleted"), m_deletedUids);
    writer.writeEndElement();
}

void CVMessageRequest::buildResponseInternal(const QDomElement &reply)
{
    if (reply.tagName() == QLatin1String("success"))
        m_success = true;
}
