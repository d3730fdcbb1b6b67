// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "accountbook.h"
#include "accountrequest.h"
#include "fault.h"
#include "filegroup.h"

namespace corvia {

/// Answers account requests, one document for another. Every member may be called from any thread.
class AccountDesk {
public:
    /// `book` has to outlive the desk. `autoSearchInterval` is in seconds.
    AccountDesk(AccountBook &book, int autoSearchInterval, std::vector<NewsServer> ownServers,
                std::vector<FileGroup> fileGroups);

    AccountRequest read(const std::string &body) const;
    /// The reply to `request`. Heeds the faults that are about what is said, not about how it is sent.
    std::string answer(const AccountRequest &request, const Fault &fault);

private:
    std::string answerLogin(const AccountRequest &request);
    std::string answerInSession(const AccountRequest &request);
    std::string answerDetails(const std::string &fileGroup) const;

    AccountBook &book_;
    const int autoSearchInterval_;
    const std::vector<NewsServer> ownServers_;
    const std::vector<FileGroup> fileGroups_;
    const Schema schema_;
};

} // namespace corvia
