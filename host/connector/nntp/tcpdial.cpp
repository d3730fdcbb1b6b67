// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "tcpdial.h"

#include "waitbudget.h"

#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace {

bool becomesConnected(int descriptor, const WaitBudget &budget)
{
    while (!budget.isOver()) {
        pollfd waited = {descriptor, POLLOUT, 0};
        const int ready = ::poll(&waited, 1, static_cast<int>(budget.slice().count()));
        if (ready < 0 && errno != EINTR)
            return false;
        if (ready <= 0)
            continue;
        int error = 0;
        socklen_t size = sizeof error;
        return ::getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
    }
    return false;
}

int dial(const SocketAddress &address, const WaitBudget &budget)
{
    const int descriptor =
        ::socket(address.storage.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, IPPROTO_TCP);
    if (descriptor < 0)
        return -1;
    const auto *target = reinterpret_cast<const sockaddr *>(&address.storage);
    if (::connect(descriptor, target, address.length) == 0)
        return descriptor;
    // After a signal the attempt goes on in the background, as it does when it was not finished at once.
    if ((errno == EINPROGRESS || errno == EINTR) && becomesConnected(descriptor, budget))
        return descriptor;
    ::close(descriptor);
    return -1;
}

} // namespace

int TcpDial::open(const QString &host, quint16 port, const WaitBudget &budget, HostLookup::Resolver resolver)
{
    const QVector<SocketAddress> addresses = HostLookup::find(host, port, budget, resolver);
    for (int i = 0; i < addresses.size() && !budget.isOver(); ++i) {
        const int descriptor = dial(addresses.at(i), budget.share(addresses.size() - i));
        if (descriptor >= 0)
            return descriptor;
    }
    return -1;
}
