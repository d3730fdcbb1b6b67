// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "messagebox.h"

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

    /// The messages that the session has not been told yet; asked again, it has been told them.
    std::vector<Message> takeUntoldMessages(const std::string &word);
    /// Carries out what the user of the session did to messages; what is not known or not allowed is passed
    /// over.
    void applyMessageReport(const std::string &word, const std::vector<std::string> &read,
                            const std::vector<std::string> &deleted);
    /// The messages of `user` as they are now.
    std::vector<Message> messages(const std::string &user) const;
    /// `user` is told `message` with the next reply; it takes the place of one with the same uid. An unknown
    /// user changes nothing.
    void addMessage(const std::string &user, const Message &message);

    /// Changes what the status of `user` says from now on. An unknown user changes nothing.
    void setPlan(const std::string &user, int maxConnections, std::int64_t billingBytes,
                 std::int64_t mtdBytes);

private:
    struct Session {
        std::string user;
        std::chrono::steady_clock::time_point end;
        std::int64_t toldUpTo; ///< the number of the last message it was told
    };

    mutable std::mutex mutex_;
    std::map<std::string, Account> accounts_;
    std::map<std::string, Session> sessions_;
    std::map<std::string, MessageBox> boxes_; ///< by user
};

} // namespace corvia
