// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hdetailsrequest.h>

#include <halvora/nzbreader.h>

#include <QDomElement>
#include <QTextStream>
#include <QXmlStreamWriter>

#include <algorithm>
#include <utility>

namespace {

constexpr int longestId = 200;

bool isWordCharacter(QChar c)
{
    const ushort code = c.unicode();
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') ||
           code == '.' || code == '-' || code == '_';
}

} // namespace

HDetailsRequest::HDetailsRequest(Connector *connector, const HStorageId &id)
    : HRequest(connector)
    , m_id(id)
{
}

HDetailsRequest::~HDetailsRequest() = default;

bool HDetailsRequest::isAcceptable(const HStorageId &id)
{
    const QString text = id.toString();
    return !text.isEmpty() && text.size() <= longestId &&
           std::all_of(text.cbegin(), text.cend(), isWordCharacter);
}

NzbFile HDetailsRequest::file() const
{
    return m_file;
}

bool HDetailsRequest::isSuccessful() const
{
    return HRequest::isSuccessful() && m_isReadable;
}

void HDetailsRequest::buildRequestInternal(QXmlStreamWriter &writer)
{
    writer.writeStartElement(QStringLiteral("details"));
    writer.writeAttribute(QStringLiteral("filegroup"), m_id.toString());
    writer.writeEndElement();
}

// The document in the reply is read like a file, with the same limits.
void HDetailsRequest::buildResponseInternal(const QDomElement &reply)
{
    QByteArray document;
    {
        QTextStream stream(&document);
        stream.setCodec("UTF-8");
        reply.firstChildElement(QStringLiteral("nzb")).save(stream, -1, QDomNode::EncodingFromTextStream);
    }
    NzbReader::Result result = NzbReader::readDocument(document);
    m_isReadable = reply.tagName() == QLatin1String("details") && result.failure.isNull();
    if (m_isReadable)
        m_file = std::move(result.file);
}
