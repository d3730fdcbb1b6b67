// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "catalogue.h"

#include <QFile>
#include <QXmlStreamReader>

namespace {

void readTranslation(QXmlStreamReader &xml, Message &message)
{
    message.isFinished = !xml.attributes().hasAttribute(QLatin1String("type"));
    QString plain;
    while (!xml.atEnd() && xml.readNext() != QXmlStreamReader::EndElement) {
        if (xml.isCharacters())
            plain += xml.text();
        else if (xml.isStartElement())
            message.translations.append(xml.readElementText());
    }
    if (!message.counts)
        message.translations = QStringList{plain};
}

Message readMessage(QXmlStreamReader &xml, const QString &context)
{
    Message message;
    message.context = context;
    message.counts = xml.attributes().value(QLatin1String("numerus")) == QLatin1String("yes");
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("source"))
            message.source = xml.readElementText();
        else if (xml.name() == QLatin1String("comment"))
            message.comment = xml.readElementText();
        else if (xml.name() == QLatin1String("translation"))
            readTranslation(xml, message);
        else
            xml.skipCurrentElement();
    }
    return message;
}

} // namespace

QVector<Message> Catalogue::read(const QString &file)
{
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&device);
    QVector<Message> messages;
    QString context;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("message"))
            messages.append(readMessage(xml, context));
    }
    return xml.hasError() ? QVector<Message>() : messages;
}
