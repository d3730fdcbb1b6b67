// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "newsstore.h"

#include <string>
#include <vector>

namespace corvia {

/// One client's place among the groups and articles: the selected group, the current article and the commands
/// that read from there (RFC 3977, sections 6 and 8). Every command answers its whole reply. Used by one
/// thread.
class NewsReader {
public:
    using Arguments = std::vector<std::string>;
    /// What of an article is wanted.
    enum class Part { Article, Head, Body, Stat };

    /// `store` has to outlive the reader.
    explicit NewsReader(const NewsStore &store);

    std::string group(const Arguments &arguments);
    std::string listGroup(const Arguments &arguments);
    /// Moves to the next (`step` 1) or the previous (-1) article.
    std::string move(int step);
    std::string article(Part part, const Arguments &arguments);
    /// `nothing` is the reply when a range holds no article.
    std::string overview(const Arguments &arguments, const std::string &nothing) const;

private:
    const Article *find(const std::string &which, std::string *problem) const;
    const Article *current(std::string *problem) const;

    const NewsStore &store_;
    const Newsgroup *group_ = nullptr;
    const Article *current_ = nullptr;
};

} // namespace corvia
