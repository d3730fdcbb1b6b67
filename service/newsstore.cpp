// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "newsstore.h"

namespace corvia {

std::size_t Article::bytes() const
{
    std::size_t count = 2;
    for (const std::string &line : header) {
        count += line.size() + 2;
    }
    for (const std::string &line : body) {
        count += line.size() + 2;
    }
    return count;
}

long Newsgroup::low() const
{
    return articles.empty() ? first : articles.front().number;
}

long Newsgroup::high() const
{
    return articles.empty() ? first - 1 : articles.back().number;
}

const Article *Newsgroup::article(long number) const
{
    for (const Article &article : articles) {
        if (article.number == number) {
            return &article;
        }
    }
    return nullptr;
}

NewsStore::NewsStore(std::vector<Newsgroup> groups)
    : groups_(std::move(groups))
{
    for (const Newsgroup &group : groups_) {
        byName_[group.name] = &group;
        for (const Article &article : group.articles) {
            byId_[article.id] = &article;
        }
    }
}

const std::vector<Newsgroup> &NewsStore::groups() const
{
    return groups_;
}

const Newsgroup *NewsStore::group(const std::string &name) const
{
    const auto found = byName_.find(name);
    return found != byName_.end() ? found->second : nullptr;
}

const Article *NewsStore::article(const std::string &id) const
{
    const auto found = byId_.find(id);
    return found != byId_.end() ? found->second : nullptr;
}

} // namespace corvia
