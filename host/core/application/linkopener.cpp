// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/linkopener.h>

#include <QDesktopServices>

#include <algorithm>

namespace {

// A browser gets it as an argument, which the system bounds too.
constexpr int longestLink = 8192; // bytes

bool isWeb(const QString &scheme)
{
    return scheme == QLatin1String("http") || scheme == QLatin1String("https");
}

// QUrl writes a line's end inside a link as %0A, so it cannot be told from one that was written so.
bool hidesControlCharacters(const QByteArray &encoded)
{
    const QString text = QUrl::fromPercentEncoding(encoded);
    return std::any_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character.category() == QChar::Other_Control; });
}

} // namespace

LinkOpener::LinkOpener()
    : m_opener(&QDesktopServices::openUrl)
{
}

void LinkOpener::setOpener(const Opener &opener)
{
    m_opener = opener;
}

void LinkOpener::setOwnScheme(const QString &scheme, const Opener &handler)
{
    const QString own = scheme.toLower();
    m_ownScheme = isWeb(own) ? QString() : own;
    m_ownHandler = handler;
}

bool LinkOpener::isAllowed(const QUrl &url)
{
    if (!url.isValid() || !isWeb(url.scheme()) || url.host().isEmpty())
        return false;
    // Also an empty user: what stands before the @ is there to be taken for the host.
    if (url.authority(QUrl::FullyEncoded).contains(QLatin1Char('@')))
        return false;
    const QByteArray encoded = url.toEncoded();
    return encoded.size() <= longestLink && !hidesControlCharacters(encoded);
}

bool LinkOpener::open(const QUrl &url)
{
    if (!m_ownScheme.isEmpty() && url.scheme() == m_ownScheme)
        return m_ownHandler(url);
    if (!isAllowed(url)) {
        Q_EMIT refused(tr("This link was not opened, because it does not lead to a web page."));
        return false;
    }
    if (m_opener(url))
        return true;
    Q_EMIT refused(tr("No web browser could be started."));
    return false;
}
