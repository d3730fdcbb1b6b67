// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "nntptaskqueue.h"

#include <QThread>

class Core;

/// One connection to the account's news servers at work: takes a task from the queue, connects where that is
/// needed, runs the task and takes the next one. run() ends, with the connection closed, when the queue has
/// nothing for it any more or the task in hand was interrupted; for other work there will be other workers,
/// because Qt clears a thread's interruption only at its end.
class NntpWorker final : public QThread {
    Q_OBJECT
public:
    /// @p core and @p queue are not owned and outlive the thread.
    NntpWorker(Core *core, NntpTaskQueue *queue);

Q_SIGNALS:
    /// A task was finished or put back, or this worker has left; the queue knows which.
    void changed();

protected:
    void run() override;

private:
    bool work(NntpSession &session, NntpTaskQueue::Jobs &job);
    static void execute(NntpSession &session, NntpJob &job);

    Core *const m_core;
    NntpTaskQueue *const m_queue;
};
