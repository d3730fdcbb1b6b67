// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "loopbackport.h"

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QtGlobal>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

class HostileNntpServer;
class TestIdentity;

struct ssl_ctx_st;
struct ssl_st;

/// The server's end of one connection, for a script to misuse. Every operation returns at once when the
/// connection is gone or the server is stopped.
class Conversation {
public:
    Conversation(HostileNntpServer &server, int descriptor, ssl_st *tls);
    Q_DISABLE_COPY(Conversation)

    /// Sends @p bytes as they are, in one packet where they fit; false when nobody takes them any more.
    bool say(const QByteArray &bytes);
    /// Sends @p start and then a letter every 20 ms, for as long as somebody takes them.
    void drip(const QByteArray &start);
    /// Sends @p start and then as much as is taken, without ever ending the line.
    void flood(const QByteArray &start);
    /// Waits for a line from the client.
    void hear();
    /// Waits for the client to send anything at all.
    void hearSomething();
    /// Waits a moment, so that what is said next travels on its own.
    void pause();
    /// Closes the connection after the client has had the time to read what was said.
    void hangUp();
    /// Resets the connection.
    void slam();
    /// Lets HostileNntpServer::waitUntilReached() return.
    void reached();

private:
    friend class HostileNntpServer;
    bool receive();
    void hearTheRest();

    HostileNntpServer &m_server;
    int m_descriptor;
    ssl_st *m_tls;
    QByteArray m_unread;
    bool m_isOver = false;
};

/// A news server on 127.0.0.1 that follows a script, on raw sockets and a thread of its own. It writes down
/// every byte that it hears. After the script it listens on until the client goes.
class HostileNntpServer {
public:
    using Script = std::function<void(Conversation &)>;
    enum class Tls { Modern, OnlyOutdated };

    explicit HostileNntpServer(Script script);
    /// Speaks TLS from the first byte; the script runs once the handshake has succeeded.
    HostileNntpServer(Script script, const TestIdentity &identity, Tls tls = Tls::Modern);
    ~HostileNntpServer();
    Q_DISABLE_COPY(HostileNntpServer)

    quint16 port() const { return m_listener.port(); }
    /// Waits until the script calls Conversation::reached(); false when it does not.
    bool waitUntilReached();
    /// Whether it has called it, for those who must not wait without their event loop.
    bool isReached();
    /// Waits until @p conversations connections have come and gone, and returns all bytes that were heard.
    QByteArray transcript(int conversations = 1);

private:
    friend class Conversation;
    void start();
    void run();
    void converse(int descriptor);
    bool isStopping();
    void note(const QByteArray &bytes);

    LoopbackPort m_listener;
    Script m_script;
    ssl_ctx_st *m_context = nullptr;
    std::mutex m_mutex; ///< guards what follows, the thread excepted
    std::condition_variable m_changed;
    QByteArray m_transcript;
    int m_ended = 0;
    int m_open = -1;
    bool m_isReached = false;
    bool m_isStopping = false;
    std::thread m_thread;
};

Q_DECLARE_METATYPE(HostileNntpServer::Script)

namespace Scripts {

/// Sends @p bytes and nothing more.
HostileNntpServer::Script saying(const QByteArray &bytes);
/// Greets, and answers each command with the next of @p replies.
HostileNntpServer::Script answering(const QList<QByteArray> &replies);

} // namespace Scripts
