// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "article.h"

#include <optional>

/// A line of a newsgroup's overview (RFC 3977 section 8.3).
namespace overviewline {

/// The article on @p line, which may be anything, or nothing when the line does not begin with a number of
/// @p first to @p last. Fields that are missing or absurd count as not told. Any thread.
std::optional<Article> parse(const char *line, int size, qint64 first, qint64 last);

} // namespace overviewline
