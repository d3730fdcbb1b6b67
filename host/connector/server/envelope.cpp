// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "envelope.h"

#include "replyguard.h"

#include <halvora/hrequest.h>

#include <QDomElement>
#include <QXmlStreamWriter>

namespace {

constexpr int longestSentence = 300;

const auto version = QLatin1String("1");

// XML 1.0, section 2.2, of what a single unit can be. A carriage return is a character too, but whoever reads
// it gets a line feed.
bool isXmlCharacter(QChar unit)
{
    const ushort code = unit.unicode();
    return (code >= 0x20 && code < 0xFFFE && !unit.isSurrogate()) || code == '\t' || code == '\n';
}

bool canXmlCarry(const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else if (!isXmlCharacter(text.at(i)))
            return false;
    }
    return true;
}

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
    if (writer.hasError() || !canXmlCarry(text))
        return request.isLoginRequest() ? RequestFailure::Kind::Unwritable
                                        : RequestFailure::Kind::UnwritableRequest;
    document = text.toUtf8();
    return {};
}

RequestFailure Envelope::read(const QByteArray &bytes, QDomDocument &document, QDomElement &element)
{
    using Kind = RequestFailure::Kind;
    QString why;
    if (!ReplyGuard::parse(bytes, ReplyLimits(), document, why))
        return {Kind::BadReply, why};
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
