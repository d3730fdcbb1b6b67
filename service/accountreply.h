// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "account.h"

#include <string>

namespace corvia {

// The reply documents. All but the literal one are valid by the reply schema whatever the scenario says. The
// messages follow the reply's own element; without any there is no element for them.

/// `code` is credentials, session, request, details or unavailable; `sentence` is for people.
std::string errorReply(const std::string &code, const std::string &sentence);

/// `ownServers` are told when the account has no servers of its own. `autoSearchInterval` is in seconds.
std::string loginReply(const Account &account, const std::string &sessionWord, int autoSearchInterval,
                       const std::vector<NewsServer> &ownServers, const std::vector<Message> &messages);

std::string statusReply(const AccountStatus &status, const std::vector<Message> &messages);

/// Every folder is told with its name: a client cannot do anything with one that has none.
std::string bookmarksReply(const std::vector<BookmarkFolder> &folders, const std::vector<Message> &messages);

std::string successReply(const std::vector<Message> &messages);

/// A reply whose content is `content` as it is, valid or not.
std::string literalReply(const std::string &content);

} // namespace corvia
