// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "stopsignal.h"

#include <atomic>
#include <functional>
#include <list>
#include <string>
#include <thread>

namespace corvia {

/// One TCP port on 127.0.0.1. Accepts in a thread of its own and serves every client in another one.
class Listener {
public:
    /// Serves one client and returns when it has left or the stop signal is raised; owns the socket it is
    /// given.
    using Serve = std::function<void(int socket)>;

    explicit Listener(const StopSignal &stop);
    /// Ends as join() does; the stop signal has to be raised before.
    ~Listener();
    Listener(const Listener &) = delete;
    Listener &operator=(const Listener &) = delete;

    /// Binds `port` (0: any free one) and listens. False with one sentence in `why`.
    bool open(int port, std::string *why);
    /// Starts to accept. To be called once, after open().
    void run(Serve serve);
    /// Waits for all threads; the stop signal has to be raised before. Idempotent.
    void join();

    int port() const;
    /// The connections accepted so far. Any thread.
    int accepted() const;

private:
    struct Client {
        std::thread thread;
        std::atomic<bool> finished{false};
    };

    void acceptClients();
    void startClient(int socket);
    void dropFinishedClients();

    const StopSignal &stop_;
    int socket_ = -1;
    int port_ = 0;
    std::atomic<int> accepted_{0};
    Serve serve_;
    std::thread acceptor_;
    std::list<Client> clients_;
};

} // namespace corvia
