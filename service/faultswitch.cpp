// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "faultswitch.h"

namespace corvia {

void FaultSwitch::set(const Fault &fault)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    fault_ = fault;
}

Fault FaultSwitch::faultFor(const std::string &request) const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const bool concerned = fault_.request.empty() || fault_.request == request;
    return concerned ? fault_ : Fault();
}

} // namespace corvia
