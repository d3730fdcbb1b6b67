// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "messagereader.h"

#include "xmltext.h"

#include <halvora/hmessage.h>

#include <QDomDocument>

#include <algorithm>

namespace {

constexpr int maxMessages = 10'000;
constexpr int longestUid = 255;   // characters; what a request may carry
constexpr int longestUrl = 2'048; // characters

// Beyond the years that people write with four digits a date is a mistake, and a calendar no help.
QDateTime readDate(const QString &text)
{
    bool isNumber = false;
    const qint64 milliseconds = text.trimmed().toLongLong(&isNumber);
    if (!isNumber)
        return {};
    constexpr qint64 endOf9999 = 253'402'300'799'999;
    constexpr qint64 startOf1 = -62'135'596'800'000;
    if (milliseconds < startOf1 || milliseconds > endOf9999)
        return {};
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
}

UrlInfo readUrl(const QString &text)
{
    if (text.isEmpty() || text.size() > longestUrl)
        return {};
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() ? UrlInfo(url) : UrlInfo();
}

HMessage readMessage(const QDomElement &element)
{
    const QString uid = element.attribute(QStringLiteral("uid"));
    if (uid.size() > longestUid || uid.trimmed().isEmpty() || !xmltext::canCarry(uid))
        return {};
    HMessage message(uid, element.text(), readDate(element.attribute(QStringLiteral("date"))),
                     readUrl(element.attribute(QStringLiteral("url"))));
    message.setRead(element.attribute(QStringLiteral("read")) == QLatin1String("true"));
    message.setDeletable(element.attribute(QStringLiteral("deletable")) != QLatin1String("false"));
    return message;
}

} // namespace

QVector<HMessage> MessageReader::read(const QDomDocument &reply)
{
    QVector<HMessage> messages;
    const QString tag = QStringLiteral("message");
    const QDomElement own = reply.documentElement().firstChildElement();
    const QDomElement list = own.nextSiblingElement(QStringLiteral("messages"));
    for (QDomElement element = list.lastChildElement(tag); !element.isNull() && messages.size() < maxMessages;
         element = element.previousSiblingElement(tag)) {
        const HMessage message = readMessage(element);
        if (!message.isNull())
            messages.append(message);
    }
    std::reverse(messages.begin(), messages.end());
    return messages;
}
