// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nntphost.h>

#include <QByteArray>
#include <QString>
#include <QThread>
#include <QVector>

#include <chrono>
#include <condition_variable>
#include <mutex>

class Core;

/// What a worker does with one client, and with whom.
struct Attempt {
    QVector<NntpHost> hosts; ///< tried in this order until one greets
    QString user = QStringLiteral("alice");
    QString password = QStringLiteral("wonderland");
    std::chrono::milliseconds connectBudget = std::chrono::seconds(20);
    std::chrono::milliseconds replyDeadline = std::chrono::seconds(20);
};

struct Outcome {
    bool isConnected = false;
    bool isLoggedIn = false;
    QString lastReply;
};

/// A worker as the host server has one: a thread that never runs an event loop of its own.
class ClientThread final : public QThread {
public:
    ClientThread(Core &core, Attempt attempt);
    /// Stops the worker if it still runs.
    ~ClientThread() override;

    /// Waits until the client has been constructed; the first host is tried next.
    void waitUntilStarted();
    /// Valid once the thread has finished.
    Outcome outcome();

protected:
    void run() override;

private:
    Core &m_core;
    const Attempt m_attempt;
    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_changed;
    bool m_isStarted = false;
    Outcome m_outcome;
};

/// Runs one attempt to its end and returns its outcome; an empty outcome that says so when it does not end.
Outcome outcomeOf(Core &core, const Attempt &attempt);

/// An attempt on a plain server of ours.
Attempt plainAttempt(quint16 port);

/// What an attempt sends when neither its name nor its password was changed.
QByteArray userLine();
QByteArray passLine();
