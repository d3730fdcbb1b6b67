// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nntpdialogue.h"

#include "waitbudget.h"

#include <halvora/nntphost.h>

using namespace std::chrono_literals;

namespace {

// RFC 3977 section 5.1.1; RFC 4643 section 2.3.1.
enum ReplyCode {
    PostingAllowed = 200,
    PostingProhibited = 201,
    PasswordRequired = 381,
};

constexpr int LongestArgument = 497; // bytes; RFC 3977 section 3.1

/// The whole command line, or nothing when @p argument cannot stand in one.
QByteArray authInfo(const char *step, const QString &argument)
{
    const QByteArray bytes = argument.toUtf8();
    if (bytes.isEmpty() || bytes.size() > LongestArgument || bytes.contains('\r') || bytes.contains('\n') ||
        bytes.contains('\0'))
        return {};
    return QByteArrayLiteral("AUTHINFO ") + step + ' ' + bytes + QByteArrayLiteral("\r\n");
}

} // namespace

NntpDialogue::NntpDialogue(Core &core, int longestLine)
    : m_core(core)
    , m_connection(core, longestLine)
    , m_connectBudget(4s)
    , m_replyDeadline(10s)
{
}

bool NntpDialogue::connectTo(const NntpHost &host)
{
    m_lastReply = {};
    const WaitBudget budget(m_core, m_connectBudget);
    if (!m_connection.open(host.host(), host.port(), host.isSsl(), budget))
        return false;
    const NntpReply greeting = hear(budget);
    if (greeting.code() == PostingAllowed || greeting.code() == PostingProhibited)
        return true;
    m_connection.close();
    return false;
}

NntpReply NntpDialogue::logIn(const QString &user, const QString &password)
{
    const QByteArray userLine = authInfo("USER", user);
    const QByteArray passwordLine = authInfo("PASS", password);
    if (userLine.isEmpty() || passwordLine.isEmpty())
        return {};
    const QByteArray secret = password.toUtf8();
    const NntpReply reply = ask(userLine, secret);
    return reply.code() == PasswordRequired ? ask(passwordLine, secret) : reply;
}

NntpReply NntpDialogue::ask(const QByteArray &line, const QByteArray &secret)
{
    // What is here already answers nothing that was asked, and would be taken for the answer to this.
    if (m_connection.hasUnread() || !m_connection.send(line)) {
        m_connection.close();
        return {};
    }
    return hear(WaitBudget(m_core, m_replyDeadline), secret);
}

NntpReply NntpDialogue::hear(const WaitBudget &budget, const QByteArray &secret)
{
    const auto line = m_connection.readLine(budget);
    if (!line)
        return {};
    m_lastReply = NntpReply(*line, secret);
    return m_lastReply;
}
