// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "account.h"
#include "fault.h"
#include "options.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvia {

/// The loopback account service: the account over HTTPS, and newsgroups over NNTP (RFC 3977) on a plain and a
/// TLS port, all on 127.0.0.1. Except for start() and stop(), which belong to the thread that made the
/// service, every member may be called from any thread.
class CorviaService {
public:
    /// Plays the scenario of this text. What is wrong with it is told by start().
    CorviaService(const std::string &scenarioXml, const Options &options);
    ~CorviaService();
    CorviaService(const CorviaService &) = delete;
    CorviaService &operator=(const CorviaService &) = delete;

    /// Listens on all ports. False with one sentence in `why`. A service is started once.
    bool start(std::string *why);
    /// Ends within a second, whatever fault is under way. Idempotent; what was recorded can still be read.
    void stop();

    int accountPort() const;
    int nntpPort() const;
    int nntpTlsPort() const;
    /// The PEM file of the authority a client has to trust.
    std::string authorityFile() const;

    /// Affects the requests that arrive from now on.
    void setFault(const Fault &fault);
    /// Changes what the status of `user` says from now on.
    void setPlan(const std::string &user, int maxConnections, std::int64_t billingBytes,
                 std::int64_t mtdBytes);

    /// The sessions of `user` are told `message` with their next replies; it takes the place of one with the
    /// same uid.
    void addMessage(const std::string &user, const Message &message);
    /// The messages of `user` as they are now: those that the user has deleted are gone.
    std::vector<Message> messages(const std::string &user) const;

    /// The bodies of the requests to the account so far, in order and as they came.
    std::vector<std::string> requests() const;
    /// With plainHttp only: every byte read from clients of the account port so far.
    std::string rawBytes() const;
    /// The connections accepted on the account port so far, with those whose handshake failed.
    int connections() const;
    /// The lines received on both NNTP ports so far; a password is recorded as "***".
    std::vector<std::string> nntpCommands() const;

private:
    struct Parts;

    std::unique_ptr<Parts> parts_;
};

/// The scenario the program plays when it is given none.
std::string demoScenario();

} // namespace corvia
