// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/hrequest.h>
#include <halvora/nntphost.h>
#include <halvora/urlinfo.h>

#include <QDomElement>
#include <QHash>
#include <QList>

/// The login: says who the user is and learns the session word, the news servers and the links. Threads as in
/// HRequest; the accessors belong to the GUI thread after requestFinished(), nntpHosts() also to prepare().
class HALVORA_CONNECTOR_EXPORT HLoginRequest : public HRequest {
    Q_OBJECT
public:
    explicit HLoginRequest(Connector *connector);
    ~HLoginRequest() override;

    /// The hosts of the last applied login until the reply has been read, then the reply's.
    QList<NntpHost> nntpHosts() const;
    /// Null unless the service tells of a newer version.
    QDomElement softwareUpdateElement() const;
    /// Seconds between two automatic searches; 0: the service did not say.
    int autoSearchCheckInterval() const;
    /// 1 to 128 of the letters, digits, dots, hyphens and underscores of ASCII; empty: the reply gave none,
    /// so that the login is not successful.
    QString session() const;
    QHash<QString, UrlInfo> links() const;
    /// Whose login it was; empty when it was never sent.
    QString userName() const;

    bool isLoginRequest() const override;
    bool isSuccessful() const override;
    void buildRequestInternal(QXmlStreamWriter &writer) override;
    void buildResponseInternal(const QDomElement &reply) override;

private:
    const QString m_language;
    QList<NntpHost> m_nntpHosts;
    QDomElement m_softwareUpdate;
    QHash<QString, UrlInfo> m_links;
    QString m_session;
    QString m_userName;
    int m_autoSearchCheckInterval = 0;
};
