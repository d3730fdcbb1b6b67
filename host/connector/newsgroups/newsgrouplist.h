// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "newsgroupcache.h"

#include <halvora/nntpfailure.h>

#include <QObject>
#include <QPointer>
#include <QSharedPointer>

#include <functional>

class Connector;
class ConnectorPlugin;
class HNntpDistributor;
class NewsgroupCacheReader;
class NewsgroupListTask;

/// Brings the list of newsgroups: the one that was kept, and a new one from the news server when that is a
/// day old or is asked for. A list belongs to a server and a user: that of another account is not shown. GUI
/// thread.
class NewsgroupList final : public QObject {
    Q_OBJECT
public:
    enum State {
        Idle,    ///< there is what contents() says, or nobody asked yet
        Reading, ///< the kept list is on its way from the disk
        Loading, ///< a new one is on its way from the server
        Failed,  ///< there is what contents() says, but no new one could be had
    };

    /// @p plugin outlives the list.
    explicit NewsgroupList(ConnectorPlugin *plugin, QObject *parent = nullptr);
    ~NewsgroupList() override;

    /// Takes the kept list, and a new one if that is too old. Calls after the first do nothing.
    void load();
    /// Asks the server for a new list, unless one is on its way.
    void refresh();

    /// Forgets the list, in the file too. A new one comes with the next login or when it is asked for.
    void forget();

    State state() const { return m_state; }
    const newsgroupcache::Contents &contents() const { return m_isShown ? m_contents : m_nothing; }
    /// How many newsgroups have come so far.
    int progress() const;
    /// What is to be told a person: why loading failed or pauses; empty for nothing.
    QString message() const { return m_message; }
    /// Whether nobody is logged in who could ask the server.
    bool isLoginMissing() const;

Q_SIGNALS:
    /// There are other contents.
    void contentsChanged();
    /// State, progress or message are others.
    void stateChanged();

private:
    QString server() const;
    QString account() const;
    bool isOfAccount() const;
    void setContents(const newsgroupcache::Contents &contents);
    void showOwn();
    void finishReading();
    void finishLoading();
    void refreshIfStale();
    void setState(State state, const QString &message = QString());

    Connector *const m_connector;
    const QPointer<HNntpDistributor> m_distributor;
    const QString m_cacheFile;
    State m_state = Idle;
    QString m_message;
    newsgroupcache::Contents m_contents;
    const newsgroupcache::Contents m_nothing;
    bool m_isShown = false;                   ///< m_contents are of this account
    NewsgroupCacheReader *m_reader = nullptr; ///< owned
    QSharedPointer<NewsgroupListTask> m_task;
    bool m_isWanted = false;
};
