// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "newsgroupcache.h"

#include <halvora/nntptask.h>

#include <atomic>

/// Asks the news server for all its newsgroups and keeps the answer in a file.
class NewsgroupListTask final : public NntpTask {
    Q_OBJECT
public:
    /// @p cacheFile may be impossible to write; the list is good all the same.
    NewsgroupListTask(const QString &cacheFile, const QString &server, const QString &user);

    /// How many newsgroups have come so far. Any thread.
    int count() const noexcept { return m_count.load(std::memory_order_relaxed); }
    const QString &user() const { return m_user; }
    /// What came; GUI thread, once, after a successful end.
    newsgroupcache::Contents take();

protected:
    bool run(NntpSession &session) override;

private:
    const QString m_cacheFile;
    const QString m_server;
    const QString m_user;
    std::atomic<int> m_count{0};
    newsgroupcache::Contents m_contents;
};
