// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "plainstream.h"

#include <algorithm>
#include <cerrno>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

bool isForNow(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

} // namespace

PlainStream::PlainStream(int descriptor)
    : m_descriptor(descriptor)
{
}

PlainStream::~PlainStream()
{
    ::close(m_descriptor);
}

int PlainStream::read(char *to, int room)
{
    const auto size = ::recv(m_descriptor, to, static_cast<std::size_t>(room), MSG_DONTWAIT);
    if (size == 0 || (size < 0 && !isForNow(errno)))
        m_isOpen = false;
    return static_cast<int>(std::max<ssize_t>(size, 0));
}

void PlainStream::wait(std::chrono::milliseconds time)
{
    const short events = m_unsent.isEmpty() ? POLLIN : POLLIN | POLLOUT;
    pollfd waited = {m_descriptor, events, 0};
    if (::poll(&waited, 1, static_cast<int>(time.count())) > 0 && (waited.revents & POLLOUT) != 0)
        flush();
}

bool PlainStream::write(const QByteArray &bytes)
{
    m_unsent += bytes;
    flush();
    return m_isOpen;
}

void PlainStream::flush()
{
    const auto size = static_cast<std::size_t>(m_unsent.size());
    const auto sent = ::send(m_descriptor, m_unsent.constData(), size, MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent > 0)
        m_unsent.remove(0, static_cast<int>(sent));
    else if (sent < 0 && !isForNow(errno))
        m_isOpen = false;
}
