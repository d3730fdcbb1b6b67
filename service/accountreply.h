// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "account.h"

#include <string>

namespace corvia {

// The reply documents. They are valid by the reply schema whatever the scenario says.

/// `code` is credentials, session, request or unavailable; `sentence` is for people.
std::string errorReply(const std::string &code, const std::string &sentence);

/// `ownServers` are told when the account has no servers of its own. `autoSearchInterval` is in seconds.
std::string loginReply(const Account &account, const std::string &sessionWord, int autoSearchInterval,
                       const std::vector<NewsServer> &ownServers);

std::string statusReply(const AccountStatus &status);

} // namespace corvia
