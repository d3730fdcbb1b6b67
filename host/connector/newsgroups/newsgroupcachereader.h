// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "newsgroupcache.h"

#include <QThread>

#include <mutex>

/// Reads the kept list of newsgroups once, on a thread of its own, because a disk may take its time.
class NewsgroupCacheReader final : public QThread {
    Q_OBJECT
public:
    explicit NewsgroupCacheReader(const QString &file);
    /// The thread must have ended, see release().
    ~NewsgroupCacheReader() override;

    /// What was read; to be called once, after finished().
    newsgroupcache::Contents take();

    /// Destroys @p reader now or, when its disk does not answer within two seconds, never.
    static void release(NewsgroupCacheReader *reader);

protected:
    void run() override;

private:
    const QString m_file;
    std::mutex m_mutex; ///< guards the contents
    newsgroupcache::Contents m_contents;
};
