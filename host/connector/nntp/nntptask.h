// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/nntpfailure.h>

#include <QObject>
#include <QString>

#include <atomic>

class NntpSession;

/// One piece of work with a news server: the connections of the account carry it out one after the other.
///
/// Made on the GUI thread with no parent, put at once into a QSharedPointer, connected and handed to
/// HNntpDistributor::start(). From then on nobody touches it until finished() arrives, once, on the GUI
/// thread: run() is called on a worker, where it makes no child objects, timers, signals or translated texts.
/// What run() wants to show before its end lies in members that the task guards with a mutex of its own.
class HALVORA_CONNECTOR_EXPORT NntpTask : public QObject {
    Q_OBJECT
public:
    NntpTask();
    ~NntpTask() override;

    /// Whether nobody waits for the result any more; work that takes long looks here now and then. Any
    /// thread.
    bool isCancelled() const noexcept { return m_cancelled.load(std::memory_order_acquire); }

    /// GUI thread, after finished().
    bool isSuccessful() const;
    NntpFailure failure() const { return m_failure; }
    /// What the server said when it refused, as plain text; may be empty.
    QString serverWords() const { return m_serverWords; }

Q_SIGNALS:
    /// tellProgress() was called since the last time.
    void progressed();
    /// Exactly once, whatever happens; not after HNntpDistributor::cancel().
    void finished();
    /// The server has no connection left for the account; the next attempt is in @p seconds.
    void delayed(int seconds);

protected:
    /// Does the work; false when it did not succeed, for the reason that the session knows. @p session is
    /// logged in. Worker; once.
    virtual bool run(NntpSession &session) = 0;
    /// Makes progressed() come on the GUI thread, once for several calls in a row. Worker.
    void tellProgress();

private:
    void customEvent(QEvent *event) override;

    friend class HNntpDistributor;
    friend class NntpTaskQueue;
    friend class NntpWorker;

    std::atomic<bool> m_cancelled{false};
    std::atomic<bool> m_hasToldProgress{false};
    NntpFailure m_failure = NntpFailure::None;
    QString m_serverWords;
    bool m_handedOver = false;
    bool m_forgotten = false; ///< by whoever started it
    bool m_finished = false;
};
