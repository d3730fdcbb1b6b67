// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hloginrequest.h>

#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/localemanager.h>

#include <QCoreApplication>
#include <QXmlStreamWriter>

#include <algorithm>

namespace {

constexpr int maxEntries = 100;    // of news servers and of links
constexpr int maxHostLength = 253; // of a name in the DNS
constexpr int maxKeyLength = 255;
constexpr int maxUrlLength = 2'048;
constexpr int maxSessionLength = 128;

bool isSessionUnit(QChar unit)
{
    const char c = unit.toLatin1(); // 0 beyond Latin-1
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '.' ||
           c == '-' || c == '_';
}

// A word that no request could carry back would make each later request fail.
QString readSession(const QDomElement &login)
{
    const QString word = login.attribute(QStringLiteral("session"));
    const bool isGood =
        word.size() <= maxSessionLength && std::all_of(word.cbegin(), word.cend(), isSessionUnit);
    return isGood ? word : QString();
}

QList<NntpHost> readHosts(const QDomElement &servers)
{
    QList<NntpHost> hosts;
    const QString tag = QStringLiteral("server");
    for (QDomElement server = servers.firstChildElement(tag); !server.isNull() && hosts.size() < maxEntries;
         server = server.nextSiblingElement(tag)) {
        const QString host = server.attribute(QStringLiteral("host")).trimmed();
        const ushort port = server.attribute(QStringLiteral("port")).toUShort();
        if (!host.isEmpty() && host.size() <= maxHostLength && port != 0)
            hosts.append(
                NntpHost(host, port, server.attribute(QStringLiteral("ssl")) == QLatin1String("true")));
    }
    return hosts;
}

QHash<QString, UrlInfo> readLinks(const QDomElement &list)
{
    QHash<QString, UrlInfo> links;
    const QString tag = QStringLiteral("link");
    for (QDomElement link = list.firstChildElement(tag); !link.isNull() && links.size() < maxEntries;
         link = link.nextSiblingElement(tag)) {
        const QString address = link.attribute(QStringLiteral("url"));
        const QString key = link.attribute(QStringLiteral("key"));
        if (key.isEmpty() || key.size() > maxKeyLength || address.size() > maxUrlLength)
            continue;
        const QUrl url(address, QUrl::StrictMode);
        if (url.isValid())
            links.insert(key, UrlInfo(url));
    }
    return links;
}

} // namespace

HLoginRequest::HLoginRequest(Connector *connector)
    : HRequest(connector)
    , m_language(connector->core()->locale()->currentLanguage())
    , m_nntpHosts(connector->nntpHosts())
{
}

HLoginRequest::~HLoginRequest() = default;

QList<NntpHost> HLoginRequest::nntpHosts() const
{
    return m_nntpHosts;
}

QDomElement HLoginRequest::softwareUpdateElement() const
{
    return m_softwareUpdate;
}

int HLoginRequest::autoSearchCheckInterval() const
{
    return m_autoSearchCheckInterval;
}

QString HLoginRequest::session() const
{
    return m_session;
}

QHash<QString, UrlInfo> HLoginRequest::links() const
{
    return m_links;
}

QString HLoginRequest::userName() const
{
    return m_userName;
}

bool HLoginRequest::isLoginRequest() const
{
    return true;
}

bool HLoginRequest::isSuccessful() const
{
    return HRequest::isSuccessful() && !m_session.isEmpty();
}

void HLoginRequest::buildRequestInternal(QXmlStreamWriter &writer)
{
    m_userName = connector()->username();
    writer.writeStartElement(QStringLiteral("login"));
    writer.writeTextElement(QStringLiteral("user-name"), m_userName);
    writer.writeTextElement(QStringLiteral("password"), connector()->password());
    writer.writeEmptyElement(QStringLiteral("client"));
    writer.writeAttribute(QStringLiteral("name"), QStringLiteral("Halvora"));
    writer.writeAttribute(QStringLiteral("version"), QCoreApplication::applicationVersion());
    writer.writeAttribute(QStringLiteral("language"), m_language);
    writer.writeEndElement();
}

void HLoginRequest::buildResponseInternal(const QDomElement &reply)
{
    if (reply.tagName() != QLatin1String("login"))
        return;
    m_session = readSession(reply);
    m_autoSearchCheckInterval = qMax(0, reply.attribute(QStringLiteral("auto-search-interval")).toInt());
    m_nntpHosts = readHosts(reply.firstChildElement(QStringLiteral("nntp-servers")));
    m_links = readLinks(reply.firstChildElement(QStringLiteral("links")));
    m_softwareUpdate = reply.firstChildElement(QStringLiteral("software-update"));
}
