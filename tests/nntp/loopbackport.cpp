// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "loopbackport.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

sockaddr_in loopback(quint8 host, quint16 port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(0x7F000000U + host);
    address.sin_port = htons(port);
    return address;
}

int bound(quint8 host, quint16 port)
{
    const int descriptor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(host, port);
    if (::bind(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        qFatal("no port is left on loopback");
    return descriptor;
}

quint16 portOf(int descriptor)
{
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    ::getsockname(descriptor, reinterpret_cast<sockaddr *>(&address), &size);
    return ntohs(address.sin_port);
}

} // namespace

LoopbackPort::LoopbackPort(quint8 host, quint16 port)
    : m_host(host)
    , m_descriptor(bound(host, port))
    , m_port(portOf(m_descriptor))
{
}

LoopbackPort::~LoopbackPort()
{
    for (const int filler : qAsConst(m_fillers))
        ::close(filler);
    ::close(m_descriptor);
}

void LoopbackPort::listen(int backlog)
{
    if (::listen(m_descriptor, backlog) != 0)
        qFatal("cannot listen on loopback");
}

void LoopbackPort::becomeDeaf()
{
    listen(0);
    // The system answers for the listener until its queue is full; from then on nobody does.
    const sockaddr_in address = loopback(m_host, m_port);
    for (int i = 0; i < 64; ++i) {
        const int filler = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        m_fillers.append(filler);
        if (::connect(filler, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0)
            continue;
        pollfd waited = {filler, POLLOUT, 0};
        if (::poll(&waited, 1, 200) == 0)
            return;
    }
    qFatal("this system never lets a connection hang");
}
