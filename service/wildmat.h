// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace corvia {

/// Whether `name` matches `pattern`, a wildmat (RFC 3977, section 4): patterns with * and ?, divided by
/// commas, of which the last one that matches decides; one that begins with an exclamation mark decides
/// against.
bool wildmatMatches(const std::string &pattern, const std::string &name);

} // namespace corvia
