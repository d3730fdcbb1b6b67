// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "httpsclient.h"
#include "requestqueue.h"

#include <QThread>

class Core;

/// The server's one worker: takes a request from the queue, asks whether it may go, prepares it, exchanges
/// documents, parses, and puts it into the outbox. run() ends when the queue is closed or the request in hand
/// was interrupted, because Qt clears a thread's interruption only at its end.
class ServerWorker final : public QThread {
    Q_OBJECT
public:
    ServerWorker(Core *core, RequestQueue *queue);

    /// Ends the job of @p turn (0: whatever is in hand) as unsuccessful for @p why, if it is still the
    /// worker's. GUI thread.
    void interrupt(quint64 turn, RequestFailure::Kind why);
    /// Ends all of @p which in the queue and in hand as unsuccessful for @p why. GUI thread.
    void abandon(WhichRequests which, RequestFailure::Kind why);

Q_SIGNALS:
    /// A job was taken, put back or finished; the queue knows which.
    void changed();

protected:
    void run() override;

private:
    bool work(RequestQueue::Jobs &job);
    RequestFailure exchange(ServerJob &job);
    void stop();

    Core *const m_core;
    RequestQueue *const m_queue;
    HttpsClient m_client;
};
