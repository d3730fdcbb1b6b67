// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "envelope.h"

#include "replyguard.h"

#include <halvora/hrequest.h>

#include <QDomElement>
#include <QVector>
#include <QXmlStreamWriter>

#include <algorithm>

namespace {

constexpr int longestSentence = 300;

const auto version = QLatin1String("1");

// XML 1.0, section 2.2. A carriage return is a character too, but whoever reads it gets a line feed.
bool isXmlCharacter(uint code)
{
    return (code >= 0x20 && !QChar::isSurrogate(code) && code != 0xFFFE && code != 0xFFFF) || code == '\t'
        || code == '\n';
}

bool canXmlCarry(const QString &text)
{
    const QVector<uint> codes = text.toUcs4();
    return std::all_of(codes.begin(), codes.end(), isXmlCharacter);
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
        return RequestFailure::Kind::Unwritable;
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
