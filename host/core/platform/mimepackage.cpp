// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "mimepackage.h"

#include "desktopentry.h"

#include <QRegularExpression>
#include <QStringList>
#include <QXmlStreamWriter>

namespace {

/// What tells a file of the news index format from other XML when its name does not.
void writeNzbDetails(QXmlStreamWriter &xml)
{
    xml.writeEmptyElement(QStringLiteral("sub-class-of"));
    xml.writeAttribute(QStringLiteral("type"), QStringLiteral("application/xml"));
    xml.writeStartElement(QStringLiteral("magic"));
    xml.writeAttribute(QStringLiteral("priority"), QStringLiteral("60"));
    xml.writeEmptyElement(QStringLiteral("match"));
    xml.writeAttribute(QStringLiteral("type"), QStringLiteral("string"));
    xml.writeAttribute(QStringLiteral("value"), QStringLiteral("<nzb"));
    xml.writeAttribute(QStringLiteral("offset"), QStringLiteral("0:512"));
    xml.writeEndElement();
    xml.writeEmptyElement(QStringLiteral("root-XML"));
    xml.writeAttribute(QStringLiteral("namespaceURI"), QStringLiteral("http://www.newzbin.com/DTD/2003/nzb"));
    xml.writeAttribute(QStringLiteral("localName"), QStringLiteral("nzb"));
}

void writeType(QXmlStreamWriter &xml, const QString &mimeType, const QString &description,
               const QStringList &extensions)
{
    xml.writeStartElement(QStringLiteral("mime-type"));
    xml.writeAttribute(QStringLiteral("type"), mimeType);
    if (!description.isEmpty())
        xml.writeTextElement(QStringLiteral("comment"), description);
    if (mimeType == QLatin1String("application/x-nzb"))
        writeNzbDetails(xml);
    for (const QString &extension : extensions) {
        xml.writeEmptyElement(QStringLiteral("glob"));
        xml.writeAttribute(QStringLiteral("pattern"), QStringLiteral("*.") + extension);
    }
    xml.writeEmptyElement(QStringLiteral("icon"));
    xml.writeAttribute(QStringLiteral("name"), QString(mimeType).replace(QLatin1Char('/'), QLatin1Char('-')));
    xml.writeEndElement();
}

} // namespace

QString MimePackage::path(const QString &dataFolder)
{
    return dataFolder + QStringLiteral("/mime/packages/org.halvora.Halvora.xml");
}

bool MimePackage::isValidMimeType(const QString &mimeType)
{
    static const QRegularExpression valid(QStringLiteral(
        "\\A[A-Za-z0-9][A-Za-z0-9!#$&^_.+-]{0,126}/[A-Za-z0-9][A-Za-z0-9!#$&^_.+-]{0,126}\\z"));
    return valid.match(mimeType).hasMatch();
}

bool MimePackage::isValid(const FileType &type)
{
    static const QRegularExpression extension(QStringLiteral("\\A[A-Za-z0-9][A-Za-z0-9_.+-]{0,63}\\z"));
    return isValidMimeType(type.mimeType()) && extension.match(type.extension()).hasMatch();
}

QByteArray MimePackage::compose(const QString &description, const QList<FileType> &types)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("mime-info"));
    xml.writeDefaultNamespace(QStringLiteral("http://www.freedesktop.org/standards/shared-mime-info"));
    QStringList written;
    for (const FileType &type : types) {
        const QString mimeType = type.mimeType().toLower();
        if (written.contains(mimeType))
            continue;
        written.append(mimeType);
        QStringList extensions;
        for (const FileType &other : types) {
            if (other.mimeType().toLower() == mimeType && !extensions.contains(other.extension()))
                extensions.append(other.extension());
        }
        writeType(xml, mimeType, DesktopEntry::singleLine(description), extensions);
    }
    xml.writeEndDocument();
    return bytes;
}
