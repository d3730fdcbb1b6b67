// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "envelope.h"

#include "messages/xmltext.h"
#include "replyguard.h"

#include <halvora/hrequest.h>

#include <QDomElement>
#include <QXmlStreamWriter>

namespace {

constexpr int longestSentence = 300;

const auto version = QLatin1String("1");

RequestFailure refusal(const QDomElement &error)
{
    using Kind = RequestFailure::Kind;
    const QString code = error.attribute(QStringLiteral("code"));
    const QString sentence = error.text().simplified().left(longestSentence);
    if (code == QLatin1String("credentials"))
        return {Kind::RefusedCredentials, sentence};
    if (code == QLatin1String("session"))
        return {Kind::RefusedSession, sentence};
    return {Kind::Refused, sentence};
}

} // namespace

RequestFailure Envelope::write(HRequest &request, const QString &session, QByteArray &document)
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.writeStartDocument();
    writer.writeStartElement(QStringLiteral("request"));
    writer.writeAttribute(QStringLiteral("version"), version);
    if (!request.isLoginRequest())
        writer.writeAttribute(QStringLiteral("session"), session);
    request.buildRequestInternal(writer);
    writer.writeEndElement();
    writer.writeEndDocument();
    // XML carries a carriage return, but its reader gets a line feed.
    if (writer.hasError() || !xmltext::canCarry(text) || text.contains(QLatin1Char('\r')))
        return request.isLoginRequest() ? RequestFailure::Kind::Unwritable
                                        : RequestFailure::Kind::UnwritableRequest;
    document = text.toUtf8();
    return {};
}

RequestFailure Envelope::read(const QByteArray &bytes, QDomDocument &document, QDomElement &element)
{
    using Kind = RequestFailure::Kind;
    RequestFailure failure = ReplyGuard::parse(bytes, ReplyLimits(), document);
    if (!failure.isNull())
        return failure;
    const QDomElement root = document.documentElement();
    if (root.tagName() != QLatin1String("reply") || root.attribute(QStringLiteral("version")) != version)
        return {Kind::BadReply, QStringLiteral("no reply of version 1")};
    element = root.firstChildElement();
    if (element.isNull())
        return {Kind::BadReply, QStringLiteral("an empty reply")};
    if (element.tagName() == QLatin1String("error"))
        return refusal(element);
    return {};
}
