// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "busynewsserver.h"
#include "worktask.h"

#include <halvora/core.h>
#include <halvora/hnntpdistributor.h>

#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>
#include <vector>

/// A distributor that is open for an account at a server of its own, with one connection allowed.
struct NewsPool {
    explicit NewsPool(const BusyNewsServer::Answer &answer = {})
        : server(answer)
        , account(server.account())
    {
        distributor.setMaxConnectionsMax(100);
        distributor.setWantedConnections(1);
        distributor.open();
    }

    QTemporaryDir folder;
    Core core{folder.path()};
    BusyNewsServer server;
    NntpAccount account;
    HNntpDistributor distributor{&core, [this] { return account; }};
};

/// A task that was started, and what was heard of it.
struct Started {
    Started(NewsPool &pool, const QSharedPointer<WorkTask> &startedTask)
        : task(startedTask)
        , finished(std::make_unique<QSignalSpy>(task.data(), &NntpTask::finished))
        , delayed(std::make_unique<QSignalSpy>(task.data(), &NntpTask::delayed))
        , progressed(std::make_unique<QSignalSpy>(task.data(), &NntpTask::progressed))
    {
        pool.distributor.start(task);
    }
    Started(NewsPool &pool, const QByteArray &command)
        : Started(pool, WorkTask::sending(command))
    {
    }

    bool isFinished() const { return finished->size() == 1; }
    bool isSuccessful() const { return isFinished() && task->isSuccessful(); }

    QSharedPointer<WorkTask> task;
    std::unique_ptr<QSignalSpy> finished;
    std::unique_ptr<QSignalSpy> delayed;
    std::unique_ptr<QSignalSpy> progressed;
};

inline std::vector<Started> startMany(NewsPool &pool, int count, const QByteArray &command)
{
    std::vector<Started> many;
    for (int i = 0; i < count; ++i)
        many.emplace_back(pool, command);
    return many;
}

inline bool areAllSuccessful(const std::vector<Started> &many)
{
    return std::all_of(many.cbegin(), many.cend(), [](const Started &one) { return one.isSuccessful(); });
}
