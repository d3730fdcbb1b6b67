// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "hostilenntpserver.h"

#include <halvora/nntpaccount.h>

namespace Scripts {

/// Lets the client log in and goes on with @p rest.
inline HostileNntpServer::Script loggedIn(const HostileNntpServer::Script &rest)
{
    return [rest](Conversation &client) {
        client.say("200 welcome\r\n");
        client.hear();
        client.say("381 more\r\n");
        client.hear();
        client.say("281 welcome\r\n");
        rest(client);
    };
}

/// Lets the client log in and answers each command that follows with the next of @p replies.
inline HostileNntpServer::Script loggedInAnswering(const QList<QByteArray> &replies)
{
    return loggedIn([replies](Conversation &client) {
        for (const QByteArray &reply : replies) {
            client.hear();
            client.say(reply);
        }
    });
}

} // namespace Scripts

inline NntpAccount accountAt(quint16 port)
{
    NntpAccount account;
    account.hosts = {NntpHost(QStringLiteral("127.0.0.1"), port, false)};
    account.user = QStringLiteral("alice");
    account.password = QStringLiteral("wonderland");
    return account;
}

/// What a login sends.
inline QByteArray loginLines()
{
    return "AUTHINFO USER alice\r\nAUTHINFO PASS wonderland\r\n";
}
