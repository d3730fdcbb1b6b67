// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "busynewsserver.h"

#include <utility>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int PollMs = 20;

void say(int descriptor, const QByteArray &bytes)
{
    ::send(descriptor, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL);
}

} // namespace

BusyNewsServer::BusyNewsServer(Answer answer)
    : m_answer(std::move(answer))
{
    m_listener.listen(64);
    m_thread = std::thread([this] { run(); });
}

BusyNewsServer::~BusyNewsServer()
{
    release();
    {
        const std::lock_guard lock(m_mutex);
        m_isStopping = true;
    }
    m_thread.join();
    hangUp();
    for (Guest &guest : m_guests)
        guest.thread.join();
}

NntpAccount BusyNewsServer::account() const
{
    NntpAccount account;
    account.hosts = {NntpHost(QStringLiteral("127.0.0.1"), port(), false)};
    account.user = QStringLiteral("alice");
    account.password = QStringLiteral("wonderland");
    return account;
}

void BusyNewsServer::setLimit(int connections, const QByteArray &words)
{
    const std::lock_guard lock(m_mutex);
    m_limit = connections;
    m_refusal = words + "\r\n";
}

void BusyNewsServer::release()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isReleased = true;
    }
    m_changed.notify_all();
}

void BusyNewsServer::hangUp()
{
    const std::lock_guard lock(m_mutex);
    for (const Guest &guest : m_guests) {
        if (guest.descriptor >= 0)
            ::shutdown(guest.descriptor, SHUT_RDWR);
    }
}

int BusyNewsServer::standing()
{
    const std::lock_guard lock(m_mutex);
    return m_standing;
}

int BusyNewsServer::most()
{
    const std::lock_guard lock(m_mutex);
    return m_most;
}

int BusyNewsServer::logins()
{
    const std::lock_guard lock(m_mutex);
    return m_logins;
}

int BusyNewsServer::turnedAway()
{
    const std::lock_guard lock(m_mutex);
    return m_turnedAway;
}

int BusyNewsServer::holding()
{
    const std::lock_guard lock(m_mutex);
    return m_holding;
}

QByteArrayList BusyNewsServer::commands()
{
    const std::lock_guard lock(m_mutex);
    return m_commands;
}

void BusyNewsServer::run()
{
    for (bool isStopping = false; !isStopping;) {
        pollfd waited = {m_listener.descriptor(), POLLIN, 0};
        if (::poll(&waited, 1, PollMs) > 0)
            welcome(::accept4(m_listener.descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        const std::lock_guard lock(m_mutex);
        isStopping = m_isStopping;
    }
}

void BusyNewsServer::welcome(int descriptor)
{
    if (descriptor < 0)
        return;
    const std::lock_guard lock(m_mutex);
    const bool isWelcome = m_limit < 0 || m_standing < m_limit;
    if (isWelcome)
        m_most = std::max(m_most, ++m_standing);
    else
        ++m_turnedAway;
    m_guests.push_back({descriptor, isWelcome, {}});
    Guest &guest = m_guests.back();
    guest.thread = std::thread([this, &guest] { converse(guest); });
}

void BusyNewsServer::converse(Guest &guest)
{
    QByteArray refusal;
    {
        const std::lock_guard lock(m_mutex);
        refusal = m_refusal;
    }
    if (guest.isWelcome)
        serve(guest);
    else
        say(guest.descriptor, refusal);
    const std::lock_guard lock(m_mutex);
    ::close(std::exchange(guest.descriptor, -1));
    m_standing -= guest.isWelcome ? 1 : 0;
}

void BusyNewsServer::serve(const Guest &guest)
{
    say(guest.descriptor, "200 welcome\r\n");
    QByteArray heard;
    char bytes[4096];
    while (!heard.startsWith("QUIT")) {
        if (const int end = heard.indexOf("\r\n"); end >= 0) {
            say(guest.descriptor, reply(heard.left(end)));
            heard.remove(0, end + 2);
            continue;
        }
        const auto size = ::recv(guest.descriptor, bytes, sizeof bytes, 0);
        if (size <= 0)
            return;
        heard.append(bytes, int(size));
    }
    const std::lock_guard lock(m_mutex);
    m_commands << "QUIT";
}

QByteArray BusyNewsServer::reply(const QByteArray &command)
{
    const bool isLogin = command.startsWith("AUTHINFO");
    {
        const std::lock_guard lock(m_mutex);
        m_logins += command.startsWith("AUTHINFO PASS") ? 1 : 0;
        if (!isLogin)
            m_commands << command;
    }
    const QByteArray answer = m_answer ? m_answer(command) : QByteArray();
    if (!answer.isEmpty())
        return answer;
    if (isLogin)
        return command.startsWith("AUTHINFO USER") ? "381 more\r\n" : "281 welcome\r\n";
    if (command == "HOLD")
        return hold();
    return command.startsWith("LIST") ? "215 list follows\r\n.\r\n" : "500 what?\r\n";
}

QByteArray BusyNewsServer::hold()
{
    std::unique_lock lock(m_mutex);
    ++m_holding;
    m_changed.wait(lock, [this] { return m_isReleased; });
    --m_holding;
    return "215 list follows\r\n.\r\n";
}
