// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "clientthread.h"

#include <halvora/simplenntpclient.h>

#include <utility>

ClientThread::ClientThread(Core &core, Attempt attempt)
    : m_core(core)
    , m_attempt(std::move(attempt))
{
}

ClientThread::~ClientThread()
{
    requestInterruption();
    wait();
}

void ClientThread::waitUntilStarted()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_isStarted; });
}

Outcome ClientThread::outcome()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_outcome;
}

void ClientThread::run()
{
    SimpleNntpClient client(&m_core);
    client.setConnectBudget(m_attempt.connectBudget);
    client.setReplyDeadline(m_attempt.replyDeadline);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isStarted = true;
        m_changed.notify_all();
    }
    Outcome outcome;
    for (const NntpHost &host : m_attempt.hosts) {
        outcome.isConnected = client.connectToHost(host.host(), host.port(), host.isSsl());
        if (outcome.isConnected)
            break;
    }
    outcome.isLoggedIn = outcome.isConnected && client.login(m_attempt.user, m_attempt.password);
    outcome.lastReply = client.lastReply();
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_outcome = outcome;
}

Outcome outcomeOf(Core &core, const Attempt &attempt)
{
    constexpr unsigned long WatchdogMs = 60000;
    ClientThread thread(core, attempt);
    thread.start();
    if (!thread.wait(WatchdogMs))
        return {false, false, QStringLiteral("the client did not end")};
    return thread.outcome();
}

Attempt plainAttempt(quint16 port)
{
    Attempt attempt;
    attempt.hosts = {NntpHost(QStringLiteral("127.0.0.1"), port, false)};
    return attempt;
}

QByteArray userLine()
{
    return QByteArrayLiteral("AUTHINFO USER alice\r\n");
}

QByteArray passLine()
{
    return QByteArrayLiteral("AUTHINFO PASS wonderland\r\n");
}
