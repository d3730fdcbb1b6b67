// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "channel.h"
#include "fault.h"

namespace corvia {

/// Sends a finished HTTP response through one channel the way a fault wants it. Used by the channel's thread.
class ResponseSender {
public:
    /// `channel` has to outlive the sender.
    explicit ResponseSender(Channel &channel);

    /// `response` is the head and the body. True when the connection is good for another request.
    bool send(const std::string &response, const Fault &fault);

private:
    bool drip(const std::string &response, int milliseconds);
    void truncate(const std::string &response);
    void flood(int size);
    void floodHeaders();

    Channel &channel_;
};

} // namespace corvia
