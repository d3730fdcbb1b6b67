// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hostilenntpserver.h"

#include "loopbackport.h"
#include "testidentity.h"

#include <chrono>
#include <csignal>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <openssl/ssl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

constexpr auto Watchdog = 20s;

SSL_CTX *contextFor(const TestIdentity &identity, HostileNntpServer::Tls tls)
{
    SSL_CTX *context = SSL_CTX_new(TLS_server_method());
    if (tls == HostileNntpServer::Tls::OnlyOutdated) {
        SSL_CTX_set_security_level(context, 0);
        SSL_CTX_set_min_proto_version(context, TLS1_VERSION);
        SSL_CTX_set_max_proto_version(context, TLS1_1_VERSION);
    }
    SSL_CTX_use_certificate(context, identity.certificate());
    SSL_CTX_use_PrivateKey(context, identity.key());
    return context;
}

} // namespace

Conversation::Conversation(HostileNntpServer &server, int descriptor, ssl_st *tls)
    : m_server(server)
    , m_descriptor(descriptor)
    , m_tls(tls)
{
}

bool Conversation::say(const QByteArray &bytes)
{
    if (m_isOver)
        return false;
    const auto size = static_cast<size_t>(bytes.size());
    const auto sent = m_tls ? SSL_write(m_tls, bytes.constData(), bytes.size())
                            : ::send(m_descriptor, bytes.constData(), size, MSG_NOSIGNAL);
    m_isOver = sent != bytes.size();
    return !m_isOver;
}

void Conversation::drip(const QByteArray &start)
{
    for (bool taken = say(start); taken && !m_server.isStopping(); taken = say("x"))
        std::this_thread::sleep_for(20ms);
}

void Conversation::flood(const QByteArray &start)
{
    const QByteArray much(4096, 'x');
    for (bool taken = say(start); taken && !m_server.isStopping();)
        taken = say(much);
}

void Conversation::hear()
{
    while (!m_unread.contains('\n') && receive()) {
    }
    m_unread.remove(0, m_unread.indexOf('\n') + 1);
}

void Conversation::hearSomething()
{
    if (m_unread.isEmpty())
        receive();
    m_unread.clear();
}

void Conversation::pause()
{
    std::this_thread::sleep_for(20ms);
}

void Conversation::hangUp()
{
    // A reset would take back what was said and not yet read; this does not.
    if (m_tls)
        SSL_shutdown(m_tls);
    ::shutdown(m_descriptor, SHUT_WR);
    hearTheRest();
    m_isOver = true;
}

void Conversation::slam()
{
    const linger atOnce = {1, 0};
    ::setsockopt(m_descriptor, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    m_isOver = true;
}

void Conversation::reached()
{
    const std::lock_guard<std::mutex> lock(m_server.m_mutex);
    m_server.m_isReached = true;
    m_server.m_changed.notify_all();
}

bool Conversation::receive()
{
    char bytes[4096];
    const auto size = m_isOver ? 0
                      : m_tls  ? SSL_read(m_tls, bytes, sizeof bytes)
                               : ::recv(m_descriptor, bytes, sizeof bytes, 0);
    m_isOver = size <= 0;
    if (m_isOver)
        return false;
    const QByteArray heard(bytes, static_cast<int>(size));
    m_unread += heard;
    m_server.note(heard);
    return true;
}

void Conversation::hearTheRest()
{
    while (receive()) {
    }
}

HostileNntpServer::HostileNntpServer(Script script)
    : m_script(std::move(script))
{
    start();
}

HostileNntpServer::HostileNntpServer(Script script, const TestIdentity &identity, Tls tls)
    : m_script(std::move(script))
    , m_context(contextFor(identity, tls))
{
    // OpenSSL writes with write(2), which cannot be told to keep quiet about a client that has gone.
    ::signal(SIGPIPE, SIG_IGN);
    start();
}

HostileNntpServer::~HostileNntpServer()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = true;
        if (m_open >= 0)
            ::shutdown(m_open, SHUT_RDWR);
    }
    m_thread.join();
    SSL_CTX_free(m_context);
}

void HostileNntpServer::start()
{
    m_listener.listen(16);
    m_thread = std::thread([this] { run(); });
}

bool HostileNntpServer::waitUntilReached()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_changed.wait_for(lock, Watchdog, [this] { return m_isReached; });
}

bool HostileNntpServer::isReached()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_isReached;
}

QByteArray HostileNntpServer::transcript(int conversations)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!m_changed.wait_for(lock, Watchdog, [&] { return m_ended >= conversations; }))
        return "the conversation goes on";
    return m_transcript;
}

void HostileNntpServer::run()
{
    while (!isStopping()) {
        pollfd waited = {m_listener.descriptor(), POLLIN, 0};
        if (::poll(&waited, 1, 20) <= 0)
            continue;
        const int descriptor = ::accept4(m_listener.descriptor(), nullptr, nullptr, SOCK_CLOEXEC);
        if (descriptor >= 0)
            converse(descriptor);
    }
}

void HostileNntpServer::converse(int descriptor)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_open = descriptor;
        if (m_isStopping)
            ::shutdown(descriptor, SHUT_RDWR);
    }
    const int yes = 1;
    ::setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    SSL *tls = m_context ? SSL_new(m_context) : nullptr;
    if (tls)
        SSL_set_fd(tls, descriptor);
    if (!tls || SSL_accept(tls) == 1) {
        Conversation conversation(*this, descriptor, tls);
        m_script(conversation);
        conversation.hearTheRest();
    }
    SSL_free(tls);
    const std::lock_guard<std::mutex> lock(m_mutex);
    ::close(descriptor);
    m_open = -1;
    ++m_ended;
    m_changed.notify_all();
}

bool HostileNntpServer::isStopping()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_isStopping;
}

void HostileNntpServer::note(const QByteArray &bytes)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_transcript += bytes;
}

HostileNntpServer::Script Scripts::saying(const QByteArray &bytes)
{
    return [bytes](Conversation &client) { client.say(bytes); };
}

HostileNntpServer::Script Scripts::answering(const QList<QByteArray> &replies)
{
    return [replies](Conversation &client) {
        client.say("200 welcome\r\n");
        for (const QByteArray &reply : replies) {
            client.hear();
            client.say(reply);
        }
    };
}
