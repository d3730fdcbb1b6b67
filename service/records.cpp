// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "records.h"

#include <regex>

namespace corvia {

void Records::addRequest(const std::string &body)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    requests_.push_back(body);
}

void Records::addRawBytes(std::string_view bytes)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    rawBytes_.append(bytes);
}

void Records::addNewsCommand(const std::string &line)
{
    static const std::regex password(R"(^(\s*AUTHINFO\s+PASS\s).*)", std::regex::icase);
    std::string shown = std::regex_replace(line, password, "$1***");
    const std::lock_guard<std::mutex> lock(mutex_);
    newsCommands_.push_back(std::move(shown));
}

std::vector<std::string> Records::requests() const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    return requests_;
}

std::string Records::rawBytes() const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    return rawBytes_;
}

std::vector<std::string> Records::newsCommands() const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    return newsCommands_;
}

} // namespace corvia
