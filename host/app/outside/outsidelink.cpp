// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "outsidelink.h"

#include <halvora/hdetailsrequest.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>

namespace {

bool hasControlCharacters(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character.category() == QChar::Other_Control; });
}

bool hasScheme(const QString &text)
{
    static const QRegularExpression scheme(QStringLiteral("\\A[A-Za-z][A-Za-z0-9+.-]*:"));
    return scheme.match(text).hasMatch();
}

bool isLocal(const QUrl &url)
{
    return url.isValid() && (url.host().isEmpty() || url.host() == QLatin1String("localhost")) &&
           !url.hasQuery() && !url.hasFragment() && url.userInfo().isEmpty() && url.port() == -1;
}

} // namespace

OutsideLink OutsideLink::refused(const QString &sentence)
{
    OutsideLink link;
    link.m_refusal = sentence;
    return link;
}

OutsideLink OutsideLink::localFile(const QString &path)
{
    if (!QDir::isAbsolutePath(path) || hasControlCharacters(path))
        return refused(tr("The file was not opened, because its name can not be used."));
    OutsideLink link;
    link.m_kind = File;
    link.m_file = QDir::cleanPath(path);
    return link;
}

OutsideLink OutsideLink::parse(const QString &text, const QString &ownScheme)
{
    if (text.toUtf8().size() > longest || hasControlCharacters(text))
        return refused(tr("The link was not opened, because it is damaged."));
    if (!hasScheme(text))
        return localFile(text);
    const QUrl url(text, QUrl::StrictMode);
    if (url.scheme() == ownScheme.toLower())
        return parseOwn(url);
    if (url.isLocalFile() && isLocal(url))
        return localFile(url.path(QUrl::FullyDecoded));
    return refused(tr("The link was not opened, because it leads neither to a group of files nor to a file "
                      "on this computer."));
}

OutsideLink OutsideLink::parseOwn(const QUrl &url)
{
    const bool asksForDetails = url.isValid() && url.authority() == QLatin1String("details") &&
                                (url.path().isEmpty() || url.path() == QLatin1String("/")) &&
                                !url.hasFragment();
    const auto items = QUrlQuery(url).queryItems(QUrl::FullyDecoded);
    const bool namesOne = items.size() == 1 && items.constFirst().first == QLatin1String("filegroup");
    const HStorageId id(namesOne ? items.constFirst().second : QString());
    if (!asksForDetails || !HDetailsRequest::isAcceptable(id))
        return refused(tr("The link was not opened, because it does not name a group of files."));
    OutsideLink link;
    link.m_kind = FileGroup;
    link.m_fileGroup = id;
    return link;
}

QString OutsideLink::absolute(const QString &argument)
{
    // A file may have a colon in its name, and no link has the name of a file here.
    const bool isLink =
        hasScheme(argument) && (argument.contains(QLatin1String("://")) || !QFileInfo::exists(argument));
    return isLink || argument.isEmpty() ? argument : QFileInfo(argument).absoluteFilePath();
}
