// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/nntphost.h>

#include <QList>
#include <QObject>

#include <mutex>

class ConnectorPlugin;
class Core;
class HAutoSearchService;
class HLoginRequest;
class HMessageManager;
class HNntpDistributor;
class HServer;
class RequestFailure;

/// One account with its provider: the way to the account service and to the news servers, and who the user
/// is. Made by the provider's ConnectorPlugin. GUI thread, except where it says any thread.
class HALVORA_CONNECTOR_EXPORT Connector : public QObject {
    Q_OBJECT
public:
    Connector(Core *core, ConnectorPlugin *plugin);
    ~Connector() override;

    /// Any thread.
    Core *core() const { return m_core; }
    ConnectorPlugin *plugin() const;
    HServer *server() const;
    HNntpDistributor *distributor() const;
    HAutoSearchService *autoSearch() const;
    /// The messages of the account that is logged in or, before any login, of the one that was last.
    HMessageManager *messages() const;

    /// Any thread.
    QString username() const;
    QString password() const;
    /// Both are needed to log in; an empty text means that it is not known. Another user name than that of
    /// the news servers forgets them.
    void setAccount(const QString &username, const QString &password);

    /// The news servers of the last applied login, kept across restarts until another user name is set or a
    /// login fails its test at them. Any thread.
    QList<NntpHost> nntpHosts() const;
    void forgetNntpHosts();

    /// Whether a login was applied and still holds, so that requests make sense.
    bool isLoginAvailable() const;
    /// What every successful login does: takes news servers and links, shows the account's messages, opens
    /// the distributor, connects the server.
    void applyLogin(const HLoginRequest &login);
    /// Forgets user name and password, the session, the news servers and the links, and shows no
    /// messages any more.
    void logOut();

    /// Ends every request and every task without success and waits for their workers, at most two seconds in
    /// all. False when one of them still runs: nothing that it knows may be destroyed then.
    bool shutDown();

Q_SIGNALS:
    /// The login of an account has ended, by logOut() or by the login of another one: what is known of it
    /// holds no longer. Emitted after its requests have ended, and once more for one that the worker gives
    /// back later.
    void accountLeft();

private:
    void storeNntpHosts(const QList<NntpHost> &hosts);
    void applyFailure(const RequestFailure &failure, bool isLogin);

    Core *const m_core;
    ConnectorPlugin *const m_plugin;
    HServer *m_server;
    HNntpDistributor *m_distributor;
    HAutoSearchService *m_autoSearch;
    HMessageManager *m_messages;
    QString m_hostsUser;        ///< whose m_nntpHosts are; GUI thread
    mutable std::mutex m_mutex; ///< guards the values below
    QString m_username;
    QString m_password;
    QList<NntpHost> m_nntpHosts;
};
