// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "filegroup.h"
#include "scenarionode.h"

namespace corvia {

/// Reads a <file-group> of a scenario. Throws ScenarioError.
FileGroup readFileGroup(const ScenarioNode &node);

} // namespace corvia
