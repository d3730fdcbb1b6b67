// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>

#include <QString>

#include <chrono>
#include <memory>

class Core;
class NntpDialogue;
class NntpReply;

/// A blocking client that finds out whether a news server lets a person in, and no more than that (RFC 3977,
/// RFC 4643). It belongs on the stack of one worker thread, with or without an event loop, and is used there
/// only. Every operation returns false within 100 ms of QThread::requestInterruption() for that thread or of
/// Core::stopRunning(). Bytes that come in are counted in Core::traffic().
class HALVORA_CONNECTOR_EXPORT SimpleNntpClient final {
public:
    /// @p core is not owned and outlives the client; only its any-thread operations are used.
    explicit SimpleNntpClient(Core *core);
    /// Closes at once, without saying goodbye and without waiting.
    ~SimpleNntpClient();
    Q_DISABLE_COPY(SimpleNntpClient)

    /// What finding the host, connecting, TLS and the greeting may take together; 4 s unless set.
    void setConnectBudget(std::chrono::milliseconds budget);
    /// What each reply may take from its command to its last byte; 10 s unless set.
    void setReplyDeadline(std::chrono::milliseconds deadline);

    /// Drops any connection there is, connects, and waits for the greeting; true when that is 200 or 201.
    /// With
    /// @p ssl the connection is TLS 1.2 or later from the first byte (RFC 8143) and the certificate must name
    /// @p host and come from one of the system's authorities or of Core::authorityFile().
    bool connectToHost(const QString &host, quint16 port, bool ssl);

    /// Logs in with AUTHINFO USER and PASS (RFC 4643 section 2.3) on the connection there is. False without
    /// sending anything when a name or password is empty, contains CR, LF or NUL, or is longer than the 497
    /// bytes that an argument may have (RFC 3977 section 3.1), in UTF-8. After a refusal the connection
    /// stays; after bytes that break the protocol it is closed.
    bool login(const QString &user, const QString &password);

    /// The last line that the server said since connectToHost was called; empty when it said none. Plain text
    /// of at most 512 characters, without control characters and without the password. A line that refuses
    /// the connection or the login is also given to Core::setNewsServerReply.
    QString lastReply() const;

private:
    void tellRefusal(const NntpReply &reply);

    Core *m_core;
    std::unique_ptr<NntpDialogue> m_dialogue;
};
