// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "scenarionewsreader.h"

#include <algorithm>
#include <ctime>
#include <set>
#include <sstream>

namespace corvia {

namespace {

std::string dateHoursAgo(std::int64_t hours)
{
    const std::time_t time = std::time(nullptr) - static_cast<std::time_t>(hours) * 3600;
    std::tm utc = {};
    ::gmtime_r(&time, &utc);
    char text[64];
    const std::size_t size = std::strftime(text, sizeof text, "%a, %d %b %Y %H:%M:%S +0000", &utc);
    return {text, size};
}

std::size_t indentOf(const std::string &line)
{
    return std::min(line.find_first_not_of(' '), line.size());
}

// The lines of a text, without the empty ones at either end and the indentation they all share.
std::vector<std::string> linesOf(const std::string &text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    std::size_t indent = std::string::npos;
    for (std::string line; std::getline(stream, line);) {
        const bool blank = indentOf(line) == line.size();
        indent = blank ? indent : std::min(indent, indentOf(line));
        if (!blank || !lines.empty()) {
            lines.push_back(blank ? std::string() : line);
        }
    }
    while (!lines.empty() && lines.back().empty()) {
        lines.pop_back();
    }
    for (std::string &line : lines) {
        line.erase(0, std::min(indent, line.size()));
    }
    return lines;
}

std::vector<std::string> headerOf(const Article &article, const std::string &group)
{
    std::vector<std::string> header = {
        "Path: news.corvia.example!not-for-mail",
        "From: " + article.from,
        "Newsgroups: " + group,
        "Subject: " + article.subject,
        "Date: " + article.date,
        "Message-ID: " + article.id,
    };
    if (!article.references.empty()) {
        header.push_back("References: " + article.references);
    }
    header.emplace_back("MIME-Version: 1.0");
    header.emplace_back("Content-Type: text/plain; charset=UTF-8");
    header.emplace_back("Content-Transfer-Encoding: 8bit");
    return header;
}

Article readArticle(const ScenarioNode &node, const std::string &group, long nextNumber)
{
    node.allowAttributes({"id", "number", "from", "subject", "date", "hours-ago", "answers"});
    Article article;
    article.id = "<" + node.text("id") + ">";
    article.number = static_cast<long>(node.number("number", nextNumber));
    if (article.number < nextNumber) {
        node.fail("article numbers have to rise");
    }
    article.from = node.text("from");
    article.subject = node.text("subject");
    article.date = node.text("date", dateHoursAgo(node.number("hours-ago", 0)));
    const auto answered = node.optionalText("answers");
    article.references = answered ? "<" + *answered + ">" : std::string();
    article.header = headerOf(article, group);
    article.body = linesOf(node.content());
    return article;
}

Newsgroup readGroup(const ScenarioNode &node, std::set<std::string> *ids)
{
    node.allowAttributes({"name", "description", "posting", "first"});
    Newsgroup group;
    group.name = node.text("name");
    group.description = node.text("description", "");
    group.posting = node.text("posting", "n");
    group.first = static_cast<long>(node.number("first", 1));
    for (const ScenarioNode &child : node.children()) {
        if (child.name() != "article") {
            child.failAsUnknown();
        }
        const long next = group.articles.empty() ? group.first : group.articles.back().number + 1;
        group.articles.push_back(readArticle(child, group.name, next));
        if (!ids->insert(group.articles.back().id).second) {
            child.fail("there are two articles " + group.articles.back().id);
        }
    }
    return group;
}

} // namespace

std::vector<Newsgroup> readNewsgroups(const ScenarioNode &groups)
{
    std::vector<Newsgroup> result;
    std::set<std::string> ids;
    std::set<std::string> names;
    for (const ScenarioNode &child : groups.children()) {
        if (child.name() != "group") {
            child.failAsUnknown();
        }
        result.push_back(readGroup(child, &ids));
        if (!names.insert(result.back().name).second) {
            child.fail("there are two groups \"" + result.back().name + "\"");
        }
    }
    return result;
}

} // namespace corvia
