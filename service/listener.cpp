// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "listener.h"

#include <arpa/inet.h>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace corvia {

namespace {

// A client that leaves while it is written to is ordinary here, so the threads that write do without SIGPIPE
// and the process's own handling of signals is left alone.
void keepBrokenPipesQuiet()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

sockaddr_in loopback(int port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

} // namespace

Listener::Listener(const StopSignal &stop)
    : stop_(stop)
{
}

Listener::~Listener()
{
    join();
}

bool Listener::open(int port, std::string *why)
{
    socket_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const int yes = 1;
    ::setsockopt(socket_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address = loopback(port);
    socklen_t size = sizeof address;
    if (::bind(socket_, reinterpret_cast<sockaddr *>(&address), size) != 0 || ::listen(socket_, 64) != 0 ||
        ::getsockname(socket_, reinterpret_cast<sockaddr *>(&address), &size) != 0) {
        *why =
            "Cannot listen on port " + std::to_string(port) + " of 127.0.0.1: " + std::strerror(errno) + ".";
        return false;
    }
    port_ = ntohs(address.sin_port);
    return true;
}

void Listener::run(Serve serve)
{
    serve_ = std::move(serve);
    acceptor_ = std::thread([this] { acceptClients(); });
}

void Listener::acceptClients()
{
    keepBrokenPipesQuiet();
    while (!stop_.raised()) {
        pollfd watched[] = {{socket_, POLLIN, 0}, {stop_.descriptor(), POLLIN, 0}};
        if (::poll(watched, 2, -1) <= 0 || watched[0].revents == 0) {
            continue;
        }
        const int socket = ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (socket >= 0) {
            ++accepted_;
            dropFinishedClients();
            startClient(socket);
        }
    }
}

void Listener::startClient(int socket)
{
    Client &client = clients_.emplace_back();
    client.thread = std::thread([this, &client, socket] {
        serve_(socket);
        client.finished = true;
    });
}

void Listener::dropFinishedClients()
{
    for (auto client = clients_.begin(); client != clients_.end();) {
        if (client->finished) {
            client->thread.join();
            client = clients_.erase(client);
        } else {
            ++client;
        }
    }
}

void Listener::join()
{
    if (acceptor_.joinable()) {
        acceptor_.join();
    }
    for (Client &client : clients_) {
        client.thread.join();
    }
    clients_.clear();
    // A listening socket without a thread would leave new clients waiting for nothing.
    if (socket_ >= 0) {
        ::close(socket_);
        socket_ = -1;
    }
}

int Listener::port() const
{
    return port_;
}

int Listener::accepted() const
{
    return accepted_;
}

} // namespace corvia
