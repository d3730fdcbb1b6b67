// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "nntpconnection.h"
#include "nntpreply.h"

#include <QString>

#include <chrono>

class Core;
class NntpHost;
class WaitBudget;

/// Commands and single-line replies over one connection, up to and with the login (RFC 3977, RFC 4643): what
/// everything that talks to a news server begins with. Blocking; for one thread.
class NntpDialogue {
public:
    /// The code of a reply that accepts a login.
    static constexpr int LoggedIn = 281;

    /// @p core is not owned and outlives the dialogue. A line may have @p longestLine bytes, its end
    /// included.
    explicit NntpDialogue(Core &core, int longestLine = NntpConnection::LongestReply);

    /// What finding the host, connecting, TLS and the greeting may take together.
    void setConnectBudget(std::chrono::milliseconds budget) { m_connectBudget = budget; }
    /// What each reply may take from its command to its last byte.
    void setReplyDeadline(std::chrono::milliseconds deadline) { m_replyDeadline = deadline; }
    std::chrono::milliseconds replyDeadline() const { return m_replyDeadline; }

    /// Drops any connection there is, makes a new one and waits for the greeting; true when that lets readers
    /// in. Otherwise the connection is closed, and lastReply() is what was said instead of a greeting.
    bool connectTo(const NntpHost &host);
    /// Logs in with AUTHINFO USER and PASS on the connection there is, and returns the reply that decided:
    /// LoggedIn, a refusal, or code 0 when there was none or name or password can not stand in a command.
    NntpReply logIn(const QString &user, const QString &password);
    /// Sends @p line, which ends with CRLF, and waits for its reply; code 0 when there is none, and the
    /// connection is closed then. @p secret is blotted out of the reply's text.
    NntpReply ask(const QByteArray &line, const QByteArray &secret = QByteArray());
    /// Waits for one reply.
    NntpReply hear(const WaitBudget &budget, const QByteArray &secret = QByteArray());

    /// The last reply since connectTo() was called; code 0 and no text when there was none.
    NntpReply lastReply() const { return m_lastReply; }
    NntpConnection &connection() { return m_connection; }
    const NntpConnection &connection() const { return m_connection; }

private:
    Core &m_core;
    NntpConnection m_connection;
    std::chrono::milliseconds m_connectBudget;
    std::chrono::milliseconds m_replyDeadline;
    NntpReply m_lastReply;
};
