// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvia {

/// A news server a login tells the client.
struct NewsServer {
    std::string host;
    int port = 563;
    bool ssl = true;
};

/// A page of the provider's web site.
struct Link {
    std::string key;
    std::string url;
};

/// A newer client a login may tell of.
struct SoftwareUpdate {
    std::string version;
    std::string url;
    std::string note;
};

/// What is told about an account's plan and use. Whatever has no value is left out of the reply.
struct AccountStatus {
    bool supported = false;
    bool inLogin = true; ///< The login's reply carries it too.
    std::optional<std::int64_t> nextUpdateMillis;
    std::optional<std::string> plan;
    std::optional<std::int64_t> maxConnections;
    std::optional<std::int64_t> billingBytes;
    std::optional<std::int64_t> mtdBytes;
    std::optional<std::int64_t> usageMinutesAgo; ///< Told as the time that many minutes before the reply.
};

/// A folder of bookmarks as a new client is given it.
struct BookmarkFolder {
    std::string name; ///< Never empty.
    std::vector<std::string> newsgroups;
};

/// What the service has to say to a customer, whom it knows by the account.
struct Message {
    std::string uid;
    std::string text;
    std::optional<std::int64_t> date; ///< Milliseconds since 1970; none: the service does not say.
    std::optional<std::string> url;
    bool read = false;
    bool deletable = true;
};

/// One account as the scenario describes it.
struct Account {
    std::string user;
    std::string password;
    std::string
        refusal; ///< Empty: the account is in order; otherwise the sentence every login is refused with.
    std::int64_t sessionSeconds = 0; ///< How long a session word is good for.
    std::vector<NewsServer> servers; ///< Empty: the service's own two NNTP ports.
    std::vector<Link> links;
    std::optional<SoftwareUpdate> update;
    std::vector<BookmarkFolder> bookmarks;
    AccountStatus status;
    std::vector<Message> messages; ///< No two with the same uid, in the order in which they came.
};

} // namespace corvia
