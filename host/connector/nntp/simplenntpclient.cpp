// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/simplenntpclient.h>

#include "nntpdialogue.h"

#include <halvora/core.h>
#include <halvora/nntphost.h>

SimpleNntpClient::SimpleNntpClient(Core *core)
    : m_core(core)
    , m_dialogue(std::make_unique<NntpDialogue>(*core))
{
}

SimpleNntpClient::~SimpleNntpClient() = default;

void SimpleNntpClient::setConnectBudget(std::chrono::milliseconds budget)
{
    m_dialogue->setConnectBudget(budget);
}

void SimpleNntpClient::setReplyDeadline(std::chrono::milliseconds deadline)
{
    m_dialogue->setReplyDeadline(deadline);
}

bool SimpleNntpClient::connectToHost(const QString &host, quint16 port, bool ssl)
{
    if (m_dialogue->connectTo(NntpHost(host, port, ssl)))
        return true;
    tellRefusal(m_dialogue->lastReply());
    return false;
}

bool SimpleNntpClient::login(const QString &user, const QString &password)
{
    const NntpReply reply = m_dialogue->logIn(user, password);
    if (reply.code() == NntpDialogue::LoggedIn)
        return true;
    tellRefusal(reply);
    return false;
}

QString SimpleNntpClient::lastReply() const
{
    return m_dialogue->lastReply().text();
}

void SimpleNntpClient::tellRefusal(const NntpReply &reply)
{
    if (!reply.text().isEmpty())
        m_core->setNewsServerReply(reply.text());
}
