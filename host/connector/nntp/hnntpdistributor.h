// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/nntpaccount.h>
#include <halvora/nntpsession.h>

#include <QObject>
#include <QSharedPointer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

class Core;
class NntpTask;
class NntpTaskQueue;
class NntpWorker;

/// Shares the account's connections to its news servers among the tasks that need one: as many at once as the
/// account's limit and the user's wish allow, and one that is not needed any more is kept for a while. Every
/// task that is started finishes exactly once, whatever the servers do and also at shutdown. GUI thread.
class HALVORA_CONNECTOR_EXPORT HNntpDistributor : public QObject {
    Q_OBJECT
public:
    /// Who reads news; asked on the GUI thread.
    using AccountSource = std::function<NntpAccount()>;

    /// @p core is not owned and outlives this object. Its settings remember the user's wish.
    HNntpDistributor(Core *core, AccountSource account, QObject *parent = nullptr);
    /// The workers must have ended, see shutDown().
    ~HNntpDistributor() override;

    /// The account's limit, as the account service told it last.
    int maxConnectionsMax() const;
    void setMaxConnectionsMax(int connections);
    /// The user's wish; never less than 1.
    int wantedConnections() const;
    void setWantedConnections(int connections);
    /// Back to what a new user has.
    void resetWantedConnections();
    /// What is used: the wish, inside the limit.
    int maxConnections() const;

    /// Whether the account may be used, which a login decides.
    bool isOpen() const;
    void open();
    /// Every task that waits or runs ends without success, every connection is dropped, and the account's
    /// limit is forgotten.
    void close();

    /// To the end of the queue. A task is started once; again it is ignored. While nobody is logged in it
    /// finishes without success, never before this has returned.
    void start(const QSharedPointer<NntpTask> &task);
    /// Whatever @p task is at, it ends, and nothing of it is heard any more.
    void cancel(const QSharedPointer<NntpTask> &task);

    /// For the tasks that begin later.
    void setLimits(const NntpLimits &limits);
    /// How long a connection that nobody needs is kept; 60 s unless set.
    void setIdleTime(std::chrono::milliseconds time);
    /// How long to wait when the server has no connection left for the account: first, and after the wait has
    /// doubled with each further refusal, at most. 10 s and 120 s unless set.
    void setRetryWait(std::chrono::milliseconds first, std::chrono::milliseconds longest);

    /// Ends everything without success and for good, without waiting for the workers.
    void beginShutDown();
    /// The same, and waits for the workers as long as @p longest in all. False when one still runs: nothing
    /// that it knows may be destroyed then.
    bool shutDown(std::chrono::milliseconds longest = std::chrono::seconds(2));

Q_SIGNALS:
    void changed();

private:
    void updateBound();
    void look();
    void lookLater();
    void retry();
    void startWorkers();
    void dropEndedWorkers();
    void deliverFinished();

    Core *const m_core;
    const AccountSource m_account;
    std::unique_ptr<NntpTaskQueue> m_queue;
    std::vector<std::unique_ptr<NntpWorker>> m_workers;
    QTimer m_retryTimer;
    int m_limit;
    bool m_open = false;
};
