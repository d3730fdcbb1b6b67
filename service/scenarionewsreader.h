// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "newsstore.h"
#include "scenarionode.h"

#include <vector>

namespace corvia {

/// Reads the groups and articles of a scenario's <groups>. Throws ScenarioError.
std::vector<Newsgroup> readNewsgroups(const ScenarioNode &groups);

} // namespace corvia
