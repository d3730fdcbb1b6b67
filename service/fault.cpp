// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "fault.h"

#include <map>

namespace corvia {

bool faultKindFromName(const std::string &name, Fault::Kind *kind)
{
    static const std::map<std::string, Fault::Kind> kinds = {
        {"none", Fault::Kind::None},
        {"stall", Fault::Kind::Stall},
        {"drip", Fault::Kind::Drip},
        {"flood", Fault::Kind::Flood},
        {"header-flood", Fault::Kind::HeaderFlood},
        {"status", Fault::Kind::Status},
        {"body", Fault::Kind::Body},
        {"element", Fault::Kind::Element},
        {"truncate", Fault::Kind::Truncate},
        {"close", Fault::Kind::Close},
        {"redirect", Fault::Kind::Redirect},
        {"encoding", Fault::Kind::Encoding},
        {"refuse-login", Fault::Kind::RefuseLogin},
        {"forget-sessions", Fault::Kind::ForgetSessions},
        {"delay", Fault::Kind::Delay},
    };
    const auto found = kinds.find(name);
    if (found == kinds.end()) {
        return false;
    }
    *kind = found->second;
    return true;
}

} // namespace corvia
