// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "account.h"

#include <chrono>
#include <map>
#include <mutex>

namespace corvia {

/// The accounts and their sessions. Every member may be called from any thread.
class AccountBook {
public:
    explicit AccountBook(const std::vector<Account> &accounts);

    /// Empty when the account may log in with this password, otherwise the sentence that says why not.
    std::string refusalFor(const std::string &user, const std::string &password) const;
    /// The account of this user, if there is one.
    std::optional<Account> account(const std::string &user) const;

    /// A new session word, which nobody can guess.
    std::string openSession(const std::string &user);
    /// The account a session word belongs to; none when the word is unknown or has expired.
    std::optional<Account> accountOfSession(const std::string &word) const;
    void forgetSessions();

    /// Changes what the status of `user` says from now on. An unknown user changes nothing.
    void setPlan(const std::string &user, int maxConnections, std::int64_t billingBytes,
                 std::int64_t mtdBytes);

private:
    struct Session {
        std::string user;
        std::chrono::steady_clock::time_point end;
    };

    mutable std::mutex mutex_;
    std::map<std::string, Account> accounts_;
    std::map<std::string, Session> sessions_;
};

} // namespace corvia
