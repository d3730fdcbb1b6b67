// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <string>
#include <vector>

namespace corvia {

/// One article of a group. The header and the body are lines without line ends.
struct Article {
    long number = 0;
    std::string id; ///< With its angle brackets.
    std::string from;
    std::string subject;
    std::string date; ///< As in a Date header (RFC 5322).
    std::string references;
    std::vector<std::string> header;
    std::vector<std::string> body;

    /// The size of header, empty line and body with their line ends, in bytes.
    std::size_t bytes() const;
};

/// One newsgroup, its articles in the order of their numbers.
struct Newsgroup {
    std::string name;
    std::string description;
    std::string posting = "n"; ///< y, n or m, as in LIST ACTIVE.
    long first = 1;            ///< The first article's number.
    std::vector<Article> articles;

    long low() const;
    /// One less than low() in an empty group.
    long high() const;
    /// The article with this number, or null.
    const Article *article(long number) const;
};

/// All newsgroups. Nothing changes after construction, so any thread may read.
class NewsStore {
public:
    explicit NewsStore(std::vector<Newsgroup> groups);
    NewsStore(const NewsStore &) = delete;
    NewsStore &operator=(const NewsStore &) = delete;

    const std::vector<Newsgroup> &groups() const;
    /// The group with this name, or null.
    const Newsgroup *group(const std::string &name) const;
    /// The article with this message identifier (angle brackets included), or null.
    const Article *article(const std::string &id) const;

private:
    const std::vector<Newsgroup> groups_;
    std::map<std::string, const Newsgroup *> byName_;
    std::map<std::string, const Article *> byId_;
};

} // namespace corvia
