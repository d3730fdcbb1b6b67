// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "newsstore.h"

#include <string>
#include <vector>

namespace corvia {

/// The reply to LIST (RFC 3977, section 7.6) with these arguments; ends with its line end.
std::string newsList(const NewsStore &store, const std::vector<std::string> &arguments);

} // namespace corvia
