// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "newslists.h"

#include "newsblock.h"
#include "wildmat.h"

#include <strings.h>

namespace corvia {

namespace {

std::string listActive(const NewsStore &store, const std::string &wildmat)
{
    NewsBlock block("215 Groups with their article numbers follow");
    for (const Newsgroup &group : store.groups()) {
        if (wildmatMatches(wildmat, group.name)) {
            const std::string range = std::to_string(group.high()) + ' ' + std::to_string(group.low());
            block.add(group.name + ' ' + range + ' ' + group.posting);
        }
    }
    return block.finish();
}

std::string listNewsgroups(const NewsStore &store, const std::string &wildmat)
{
    NewsBlock block("215 Groups with their descriptions follow");
    for (const Newsgroup &group : store.groups()) {
        if (wildmatMatches(wildmat, group.name)) {
            block.add(group.name + '\t' + group.description);
        }
    }
    return block.finish();
}

std::string listOverviewFormat()
{
    const std::vector<std::string> fields = {
        "Subject:", "From:", "Date:", "Message-ID:", "References:", ":bytes", ":lines"};
    return NewsBlock("215 Fields of an overview line follow").add(fields).finish();
}

} // namespace

std::string newsList(const NewsStore &store, const std::vector<std::string> &arguments)
{
    const std::string keyword = arguments.empty() ? "ACTIVE" : arguments[0];
    const std::string wildmat = arguments.size() > 1 ? arguments[1] : "*";
    if (::strcasecmp(keyword.c_str(), "ACTIVE") == 0) {
        return listActive(store, wildmat);
    }
    if (::strcasecmp(keyword.c_str(), "NEWSGROUPS") == 0) {
        return listNewsgroups(store, wildmat);
    }
    if (::strcasecmp(keyword.c_str(), "OVERVIEW.FMT") == 0 && arguments.size() == 1) {
        return listOverviewFormat();
    }
    return "501 There is no such list\r\n";
}

} // namespace corvia
