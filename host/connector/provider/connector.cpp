// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/connector.h>

#include <halvora/core.h>
#include <halvora/hautosearchservice.h>
#include <halvora/hlog.h>
#include <halvora/hloginrequest.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hnntpdistributor.h>
#include <halvora/hserver.h>

#include <QDeadlineTimer>
#include <QSettings>

#include <chrono>

namespace {

constexpr std::chrono::seconds longestWaitForWorkers(2);

QString hostsKey()
{
    return QStringLiteral("Account/NntpHosts");
}

QList<NntpHost> loadHosts(QSettings &settings)
{
    QList<NntpHost> hosts;
    const int size = settings.beginReadArray(hostsKey());
    for (int i = 0; i < qMin(size, 100); ++i) {
        settings.setArrayIndex(i);
        const NntpHost host(settings.value(QStringLiteral("Host")).toString(),
                            quint16(settings.value(QStringLiteral("Port")).toUInt()),
                            settings.value(QStringLiteral("Ssl"), true).toBool());
        if (!host.host().isEmpty() && host.port() != 0)
            hosts.append(host);
    }
    settings.endArray();
    return hosts;
}

void saveHosts(QSettings &settings, const QList<NntpHost> &hosts)
{
    settings.remove(hostsKey());
    settings.beginWriteArray(hostsKey(), hosts.size());
    for (int i = 0; i < hosts.size(); ++i) {
        settings.setArrayIndex(i);
        settings.setValue(QStringLiteral("Host"), hosts.at(i).host());
        settings.setValue(QStringLiteral("Port"), hosts.at(i).port());
        settings.setValue(QStringLiteral("Ssl"), hosts.at(i).isSsl());
    }
    settings.endArray();
}

} // namespace

Connector::Connector(Core *core, ConnectorPlugin *plugin)
    : m_core(core)
    , m_plugin(plugin)
    , m_server(new HServer(core, this))
    , m_distributor(new HNntpDistributor(
          core,
          [this] {
              return NntpAccount{nntpHosts(), username(), password()};
          },
          this))
    , m_autoSearch(new HAutoSearchService(this))
    , m_messages(new HMessageManager(core, this))
    , m_hostsUser(m_messages->account())
    , m_nntpHosts(loadHosts(core->settings()))
{
    m_server->setAccount(m_messages->account());
    connect(m_server, &HServer::messagesReceived, m_messages, &HMessageManager::receive);
    connect(m_server, &HServer::requestFailed, this, &Connector::applyFailure);
}

// The workers read what the members below hold, and server and distributor, being children, would go after
// them.
Connector::~Connector()
{
    shutDown();
}

// All workers are asked to end before any of them is waited for, so that they end together.
bool Connector::shutDown()
{
    const QDeadlineTimer deadline(longestWaitForWorkers);
    m_core->stopRunning();
    m_distributor->beginShutDown();
    const bool serverEnded = m_server->shutDown();
    const std::chrono::milliseconds left(deadline.remainingTime());
    return m_distributor->shutDown(left) && serverEnded;
}

ConnectorPlugin *Connector::plugin() const
{
    return m_plugin;
}

HServer *Connector::server() const
{
    return m_server;
}

HNntpDistributor *Connector::distributor() const
{
    return m_distributor;
}

HAutoSearchService *Connector::autoSearch() const
{
    return m_autoSearch;
}

HMessageManager *Connector::messages() const
{
    return m_messages;
}

QString Connector::username() const
{
    const std::lock_guard lock(m_mutex);
    return m_username;
}

QString Connector::password() const
{
    const std::lock_guard lock(m_mutex);
    return m_password;
}

// A name alone, without the login that gives it news servers, would be tested at those of another account.
void Connector::setAccount(const QString &username, const QString &password)
{
    if (!username.isEmpty() && !m_hostsUser.isEmpty() && username != m_hostsUser)
        forgetNntpHosts();
    if (!username.isEmpty())
        m_hostsUser = username;
    {
        const std::lock_guard lock(m_mutex);
        m_username = username;
        m_password = password;
    }
    m_server->setAccountKnown(!username.isEmpty() && !password.isEmpty());
}

QList<NntpHost> Connector::nntpHosts() const
{
    const std::lock_guard lock(m_mutex);
    return m_nntpHosts;
}

void Connector::forgetNntpHosts()
{
    storeNntpHosts({});
}

void Connector::storeNntpHosts(const QList<NntpHost> &hosts)
{
    {
        const std::lock_guard lock(m_mutex);
        m_nntpHosts = hosts;
    }
    saveHosts(m_core->settings(), hosts);
}

// After a refused test the next attempt goes to the account service, which knows the password and the news
// servers for certain. A request that the worker had at the logout ends behind it, and its slots may show
// again what was left.
void Connector::applyFailure(const RequestFailure &failure, bool isLogin)
{
    if (isLogin && failure.kind() == RequestFailure::Kind::CredentialsTest)
        forgetNntpHosts();
    if (!isLogin && failure.kind() == RequestFailure::Kind::LoggedOut && m_messages->account().isEmpty())
        Q_EMIT accountLeft();
}

bool Connector::isLoginAvailable() const
{
    return m_server->connectorState() == HServer::Connected;
}

void Connector::applyLogin(const HLoginRequest &login)
{
    const bool isOther = !m_messages->account().isEmpty() && m_messages->account() != login.userName();
    m_server->setAccount(login.userName());
    // The user name may have changed while the login was under way.
    const bool isOfUser = login.userName().isEmpty() || login.userName() == username();
    storeNntpHosts(isOfUser ? login.nntpHosts() : QList<NntpHost>());
    m_core->setUrls(login.links());
    m_messages->setAccount(login.userName());
    if (isOther)
        m_distributor->close(); // its tasks are the other account's, and so is its limit
    m_distributor->open();
    HLog::addSecret(login.session());
    m_server->logIn(login.session());
    if (isOther)
        Q_EMIT accountLeft();
}

void Connector::logOut()
{
    m_distributor->close();
    setAccount(QString(), QString());
    storeNntpHosts({});
    m_core->setUrls({});
    m_messages->setAccount(QString());
    m_server->logOut();
    Q_EMIT accountLeft();
}
