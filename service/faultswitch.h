// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <mutex>

namespace corvia {

/// The fault in force. Every member may be called from any thread.
class FaultSwitch {
public:
    void set(const Fault &fault);

    /// The fault for a request that has just arrived and whose element is `request`.
    Fault faultFor(const std::string &request) const;

private:
    mutable std::mutex mutex_;
    Fault fault_;
};

} // namespace corvia
