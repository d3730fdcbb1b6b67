// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

/// Why a task with the news servers was not successful.
enum class NntpFailure {
    None,
    NoAccount,    ///< nobody is logged in, or the account has no news server
    Unreachable,  ///< no connection to any of the account's servers
    Refused,      ///< the server refused, in its own words
    Broken,       ///< the connection broke, or what came was not what was asked for
    Cancelled,    ///< cancelled, or the account was logged out meanwhile
    ShuttingDown, ///< the program ends
};
