// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

#include <netdb.h>
#include <sys/socket.h>

class QString;
class WaitBudget;

/// An address in the form that the operating system connects to.
struct SocketAddress {
    sockaddr_storage storage;
    socklen_t length;
};

/// Name resolution that can be abandoned.
namespace HostLookup {

/// How names are resolved: getaddrinfo(3), which blocks for as long as the system's resolver likes.
using Resolver = decltype(&::getaddrinfo);

/// The addresses of @p host, at most four, in the system's order; empty when there are none or the budget
/// ends first. An address given as digits asks nobody. A lookup that is given up ends on a thread of its
/// own, which neither the caller nor the end of the program waits for.
QVector<SocketAddress> find(const QString &host, quint16 port, const WaitBudget &budget,
                            Resolver resolver = ::getaddrinfo);

} // namespace HostLookup
