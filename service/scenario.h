// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "account.h"
#include "fault.h"
#include "filegroup.h"
#include "newsstore.h"

#include <string>
#include <vector>

namespace corvia {

/// What a scenario file says: who has an account, what is in the groups and what goes wrong from the start.
struct Scenario {
    int autoSearchInterval = 900; ///< seconds
    std::vector<Account> accounts;
    std::vector<Newsgroup> groups;
    std::vector<FileGroup> fileGroups; ///< No two with the same id.
    Fault fault;
};

/// Reads a scenario file's text. False with one sentence in `why` that names the line and the reason.
bool readScenario(const std::string &xml, Scenario *scenario, std::string *why);

} // namespace corvia
