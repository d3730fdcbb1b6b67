// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hostlookup.h"

#include "waitbudget.h"

#include <QUrl>

#include <condition_variable>
#include <cstring>
#include <memory>
#include <mutex>

#include <pthread.h>

namespace {

// The attempts share one budget, and less than a second each would give up on distant servers.
constexpr int MostAddresses = 4;

/// Shared by the caller and the resolving thread, because either may be the last one to need it.
struct Lookup {
    QByteArray host;
    QByteArray port;
    HostLookup::Resolver resolver;
    std::mutex mutex;
    std::condition_variable ended;
    bool isDone = false;
    QVector<SocketAddress> addresses;
};

QVector<SocketAddress> resolve(const QByteArray &host, const QByteArray &port, int flags,
                               HostLookup::Resolver resolver)
{
    addrinfo hints = {};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = flags | AI_NUMERICSERV;
    addrinfo *found = nullptr;
    if (resolver(host.constData(), port.constData(), &hints, &found) != 0)
        return {};
    QVector<SocketAddress> addresses;
    for (const addrinfo *one = found; one && addresses.size() < MostAddresses; one = one->ai_next) {
        SocketAddress address = {{}, one->ai_addrlen};
        std::memcpy(&address.storage, one->ai_addr, one->ai_addrlen);
        addresses.append(address);
    }
    ::freeaddrinfo(found);
    return addresses;
}

void *runLookup(void *argument)
{
    const std::unique_ptr<std::shared_ptr<Lookup>> owned(static_cast<std::shared_ptr<Lookup> *>(argument));
    Lookup &lookup = **owned;
    QVector<SocketAddress> addresses = resolve(lookup.host, lookup.port, 0, lookup.resolver);
    const std::lock_guard<std::mutex> lock(lookup.mutex);
    lookup.addresses = std::move(addresses);
    lookup.isDone = true;
    lookup.ended.notify_one();
    return nullptr;
}

bool startDetached(const std::shared_ptr<Lookup> &lookup)
{
    // QHostInfo's pool of threads makes the end of the program wait for a resolver that does not answer, and
    // std::thread throws when the system has no thread left.
    auto argument = std::make_unique<std::shared_ptr<Lookup>>(lookup);
    pthread_t thread;
    if (pthread_create(&thread, nullptr, runLookup, argument.get()) != 0)
        return false;
    argument.release(); // NOLINT(bugprone-unused-return-value): runLookup owns it now
    pthread_detach(thread);
    return true;
}

} // namespace

QVector<SocketAddress> HostLookup::find(const QString &host, quint16 port, const WaitBudget &budget,
                                        Resolver resolver)
{
    // The system reads up to the first NUL and would look for a host that nobody named.
    if (port == 0 || host.contains(QChar(QChar::Null)))
        return {};
    const QByteArray number = QByteArray::number(port);
    if (const auto literal = resolve(host.toUtf8(), number, AI_NUMERICHOST, ::getaddrinfo);
        !literal.isEmpty())
        return literal;

    const auto lookup = std::make_shared<Lookup>();
    lookup->host = QUrl::toAce(host);
    lookup->port = number;
    lookup->resolver = resolver;
    if (lookup->host.isEmpty() || !startDetached(lookup))
        return {};
    std::unique_lock<std::mutex> lock(lookup->mutex);
    while (!lookup->isDone && !budget.isOver())
        lookup->ended.wait_for(lock, budget.slice());
    return lookup->addresses;
}
