// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace corvia {

/// What clients have sent so far. Every member may be called from any thread.
class Records {
public:
    void addRequest(const std::string &body);
    void addRawBytes(std::string_view bytes);
    /// Keeps `line` as it came, except that the password of an AUTHINFO PASS becomes "***".
    void addNewsCommand(const std::string &line);

    std::vector<std::string> requests() const;
    std::string rawBytes() const;
    std::vector<std::string> newsCommands() const;

private:
    mutable std::mutex mutex_;
    std::vector<std::string> requests_;
    std::string rawBytes_;
    std::vector<std::string> newsCommands_;
};

} // namespace corvia
