// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nzbreader.h>

#include <QThread>

#include <atomic>
#include <mutex>

/// Reads one NZB file, on a thread of its own, because it may be large and a disk may take its time.
class NzbReadThread final : public QThread {
    Q_OBJECT
public:
    explicit NzbReadThread(const QString &path);
    /// The thread must have ended.
    ~NzbReadThread() override;

    /// Lets the thread end soon; any thread.
    void stop() { m_stop = true; }
    /// What was read; to be called once, after finished().
    NzbReader::Result take();

protected:
    void run() override;

private:
    const QString m_path;
    std::atomic_bool m_stop = false;
    std::mutex m_mutex; ///< guards the result
    NzbReader::Result m_result;
};
