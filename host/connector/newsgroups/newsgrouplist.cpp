// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgrouplist.h"

#include "newsfailuretext.h"
#include "newsgroupcachereader.h"
#include "newsgrouplisttask.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hnntpdistributor.h>
#include <halvora/hserver.h>
#include <halvora/storagemanager.h>

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace {

constexpr qint64 freshSeconds = qint64(24) * 60 * 60;

QString cacheFile(const ConnectorPlugin &plugin)
{
    const QString name =
        StorageManager::fileName(plugin.configName() + QStringLiteral("-newsgroups"), QStringLiteral("list"));
    return QDir(plugin.core()->storage()->dataDirectory()).filePath(name + QStringLiteral(".cache"));
}

} // namespace

NewsgroupList::NewsgroupList(ConnectorPlugin *plugin, QObject *parent)
    : QObject(parent)
    , m_connector(plugin->connector())
    , m_distributor(m_connector->distributor())
    , m_cacheFile(cacheFile(*plugin))
{
    connect(m_connector, &Connector::accountLeft, this, &NewsgroupList::showOwn);
    connect(m_connector->server(), &HServer::stateChanged, this, [this] {
        showOwn();
        refreshIfStale();
        Q_EMIT stateChanged();
    });
}

NewsgroupList::~NewsgroupList()
{
    if (m_task && m_distributor)
        m_distributor->cancel(m_task);
    if (m_reader)
        m_reader->disconnect(this);
    NewsgroupCacheReader::release(m_reader);
}

bool NewsgroupList::isLoginMissing() const
{
    return !m_connector->isLoginAvailable();
}

QString NewsgroupList::server() const
{
    const QList<NntpHost> hosts = m_connector->nntpHosts();
    return hosts.isEmpty() ? QString() : hosts.constFirst().host();
}

// The account whose data the window shows.
QString NewsgroupList::account() const
{
    return m_connector->messages()->account();
}

// While no account is shown, or its news servers are not known, any list may be its own.
bool NewsgroupList::isOfAccount() const
{
    const QString user = account();
    const QString first = server();
    return (user.isEmpty() || user == m_contents.user) && (first.isEmpty() || first == m_contents.server);
}

void NewsgroupList::setContents(const newsgroupcache::Contents &contents)
{
    m_contents = contents;
    m_isShown = isOfAccount();
    Q_EMIT contentsChanged();
}

void NewsgroupList::showOwn()
{
    if (m_isShown == isOfAccount())
        return;
    m_isShown = !m_isShown;
    Q_EMIT contentsChanged();
}

void NewsgroupList::forget()
{
    if (m_task && m_distributor)
        m_distributor->cancel(m_task);
    m_task.reset();
    if (m_reader)
        m_reader->disconnect(this);
    NewsgroupCacheReader::release(std::exchange(m_reader, nullptr));
    if (QFileInfo(m_cacheFile).isFile())
        QFile::remove(m_cacheFile);
    setContents({});
    setState(Idle);
}

int NewsgroupList::progress() const
{
    return m_task ? m_task->count() : 0;
}

void NewsgroupList::load()
{
    if (m_isWanted)
        return;
    m_isWanted = true;
    m_reader = new NewsgroupCacheReader(m_cacheFile);
    connect(m_reader, &QThread::finished, this, &NewsgroupList::finishReading);
    setState(Reading);
    m_reader->start();
}

// The event of a reader that forget() has released may be on its way already.
void NewsgroupList::finishReading()
{
    if (!m_reader)
        return;
    const newsgroupcache::Contents contents = m_reader->take();
    NewsgroupCacheReader::release(m_reader);
    m_reader = nullptr;
    if (contents.fetched.isValid())
        setContents(contents);
    setState(Idle);
    refreshIfStale();
}

void NewsgroupList::refreshIfStale()
{
    const bool isBusy = m_state == Reading || m_state == Loading;
    if (!m_isWanted || isBusy || isLoginMissing())
        return;
    // A clock that was wrong when the list came must not keep it for years.
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const bool isFresh = m_contents.fetched.isValid() && m_contents.fetched <= now &&
                         m_contents.fetched.secsTo(now) < freshSeconds && m_contents.server == server() &&
                         m_contents.user == account();
    if (!isFresh)
        refresh();
}

void NewsgroupList::refresh()
{
    if (m_state == Reading || m_state == Loading || !m_distributor)
        return;
    m_task = QSharedPointer<NewsgroupListTask>::create(m_cacheFile, server(), account());
    connect(m_task.data(), &NntpTask::progressed, this, [this] { setState(Loading); });
    connect(m_task.data(), &NntpTask::delayed, this,
            [this](int seconds) { setState(Loading, NewsFailureText::delay(seconds)); });
    connect(m_task.data(), &NntpTask::finished, this, &NewsgroupList::finishLoading);
    setState(Loading);
    m_distributor->start(m_task);
}

void NewsgroupList::finishLoading()
{
    const QSharedPointer<NewsgroupListTask> task = m_task;
    m_task.reset();
    if (!task->isSuccessful() && task->user() != account()) {
        setState(Idle);
        refreshIfStale();
        return;
    }
    if (!task->isSuccessful()) {
        // A person who logs out knows why.
        const bool isTold = isLoginMissing() || task->failure() == NntpFailure::NoAccount;
        setState(isTold ? Idle : Failed, NewsFailureText::sentence(task->failure(), task->serverWords()));
        return;
    }
    setContents(task->take());
    setState(Idle);
    refreshIfStale(); // it may have been asked for by an account that has left
}

void NewsgroupList::setState(State state, const QString &message)
{
    m_state = state;
    m_message = message;
    Q_EMIT stateChanged();
}
