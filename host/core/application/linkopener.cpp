// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/linkopener.h>

#include <QDesktopServices>

LinkOpener::LinkOpener()
    : m_opener(&QDesktopServices::openUrl)
{
}

void LinkOpener::setOpener(const Opener &opener)
{
    m_opener = opener;
}

bool LinkOpener::isAllowed(const QUrl &url)
{
    const QString scheme = url.scheme();
    return url.isValid() && (scheme == QLatin1String("http") || scheme == QLatin1String("https")) &&
           !url.host().isEmpty() && url.userInfo().isEmpty();
}

bool LinkOpener::open(const QUrl &url)
{
    if (!isAllowed(url)) {
        Q_EMIT refused(tr("This link was not opened, because it does not lead to a web page."));
        return false;
    }
    if (m_opener(url))
        return true;
    Q_EMIT refused(tr("No web browser could be started."));
    return false;
}
