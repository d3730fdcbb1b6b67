// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "writecheck.h"

#include <QThread>

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

/// Looks once a minute whether the databases can be written, on a thread of its own, because
/// a disk or a file server may take its time to answer. Writes tell nobody that they fail: a store that
/// waited for that would keep the window waiting.
///
/// The operations belong to the GUI thread. What is found waits in the watch until it is taken.
class StorageWatch final : public QThread {
    Q_OBJECT
public:
    struct Finding {
        WriteCheck::Problem problem = WriteCheck::Problem::None;
        std::string file;     ///< the first with a problem
        quint64 failures = 0; ///< that had been counted when the look began
    };

    StorageWatch();
    /// The thread must have ended, see stop().
    ~StorageWatch() override;

    /// Begins to look once a minute, unless it has begun.
    void watch();
    /// Watches @p file too, beginning now.
    void add(const QString &file);
    void setInterval(std::chrono::milliseconds interval);
    /// Looks at once.
    void checkNow();
    /// Counts a failure that somebody else met, and returns how many there were.
    quint64 countFailure();
    /// Ends the thread at once, or when the disk answers; waits for that two seconds at most. False when it
    /// still runs: the watch may not be destroyed then.
    bool stop();

    /// The newest finding that was not taken yet.
    std::optional<Finding> take();

Q_SIGNALS:
    /// There is something to take.
    void checked();

protected:
    void run() override;

private:
    Finding look(const std::vector<std::string> &files, quint64 failures);

    std::map<std::string, WriteCheck::Identity> m_seen; ///< the thread's own
    std::mutex m_mutex;                                 ///< guards everything below
    std::condition_variable m_wake;
    std::vector<std::string> m_files;
    std::chrono::milliseconds m_interval = std::chrono::minutes(1);
    std::optional<Finding> m_finding;
    quint64 m_failures = 0;
    bool m_asked = false;
    bool m_stopping = false;
};
