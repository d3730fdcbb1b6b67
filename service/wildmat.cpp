// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "wildmat.h"

#include <sstream>

namespace corvia {

namespace {

bool patternMatches(const char *pattern, const char *name)
{
    const char *star = nullptr;
    const char *retry = nullptr;
    while (*name != '\0') {
        if (*pattern == '*') {
            star = ++pattern;
            retry = name;
        } else if (*pattern == *name || *pattern == '?') {
            ++pattern;
            ++name;
        } else if (star != nullptr) {
            pattern = star;
            name = ++retry;
        } else {
            return false;
        }
    }
    while (*pattern == '*') {
        ++pattern;
    }
    return *pattern == '\0';
}

} // namespace

bool wildmatMatches(const std::string &pattern, const std::string &name)
{
    bool matches = false;
    std::istringstream parts(pattern);
    for (std::string part; std::getline(parts, part, ',');) {
        const bool against = !part.empty() && part.front() == '!';
        if (patternMatches(part.c_str() + (against ? 1 : 0), name.c_str())) {
            matches = !against;
        }
    }
    return matches;
}

} // namespace corvia
