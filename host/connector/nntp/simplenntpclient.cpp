// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/simplenntpclient.h>

#include "nntpconnection.h"
#include "nntpreply.h"
#include "waitbudget.h"

#include <halvora/core.h>

using namespace std::chrono_literals;

namespace {

// RFC 3977 section 5.1.1; RFC 4643 section 2.3.1.
enum ReplyCode {
    PostingAllowed = 200,
    PostingProhibited = 201,
    AuthenticationAccepted = 281,
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

SimpleNntpClient::SimpleNntpClient(Core *core)
    : m_core(core)
    , m_connection(std::make_unique<NntpConnection>(*core))
    , m_connectBudget(4s)
    , m_replyDeadline(10s)
{
}

SimpleNntpClient::~SimpleNntpClient() = default;

bool SimpleNntpClient::connectToHost(const QString &host, quint16 port, bool ssl)
{
    m_lastReply.clear();
    const WaitBudget budget(*m_core, m_connectBudget);
    if (!m_connection->open(host, port, ssl, budget))
        return false;
    const NntpReply greeting = readReply(budget, QByteArray());
    if (greeting.code() == PostingAllowed || greeting.code() == PostingProhibited)
        return true;
    tellRefusal(greeting);
    m_connection->close();
    return false;
}

bool SimpleNntpClient::login(const QString &user, const QString &password)
{
    const QByteArray userLine = authInfo("USER", user);
    const QByteArray passwordLine = authInfo("PASS", password);
    if (userLine.isEmpty() || passwordLine.isEmpty())
        return false;
    const QByteArray secret = password.toUtf8();
    NntpReply reply = command(userLine, secret);
    if (reply.code() == PasswordRequired)
        reply = command(passwordLine, secret);
    if (reply.code() == AuthenticationAccepted)
        return true;
    tellRefusal(reply);
    return false;
}

NntpReply SimpleNntpClient::command(const QByteArray &line, const QByteArray &secret)
{
    // What is here already answers nothing that was asked, and would be taken for the answer to this.
    if (m_connection->hasUnread() || !m_connection->send(line)) {
        m_connection->close();
        return {};
    }
    return readReply(WaitBudget(*m_core, m_replyDeadline), secret);
}

NntpReply SimpleNntpClient::readReply(const WaitBudget &budget, const QByteArray &secret)
{
    const auto line = m_connection->readLine(budget);
    if (!line)
        return {};
    NntpReply reply(*line, secret);
    m_lastReply = reply.text();
    return reply;
}

void SimpleNntpClient::tellRefusal(const NntpReply &reply)
{
    if (!reply.text().isEmpty())
        m_core->setNewsServerReply(reply.text());
}
