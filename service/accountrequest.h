// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "schema.h"

#include <string>
#include <vector>

namespace corvia {

/// A request as it was read from a client.
struct AccountRequest {
    std::string
        name; ///< The request's element ("login", "status" and so on); empty when there is none to be seen.
    std::string problem; ///< Empty: the request is valid; otherwise one line that says what is wrong.
    std::string session;
    std::string userName;
    std::string password;
    std::vector<std::string> readUids;    ///< Of the messages that the user has read.
    std::vector<std::string> deletedUids; ///< Of the messages that the user has deleted.
    std::string fileGroup;                ///< Of details.

    /// Reads `body`, which may be anything, by `schema`.
    static AccountRequest read(const std::string &body, const Schema &schema);
};

} // namespace corvia
