// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "scenarionewsreader.h"

#include <algorithm>
#include <ctime>
#include <set>
#include <sstream>

namespace corvia {

namespace {

std::string dateMinutesAgo(std::int64_t minutes)
{
    const std::time_t time = std::time(nullptr) - static_cast<std::time_t>(minutes) * 60;
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

// The first `count` lines of a text that begins again whenever it ends.
std::vector<std::string> repeated(const std::vector<std::string> &lines, std::int64_t count)
{
    std::vector<std::string> result;
    for (std::int64_t i = 0; i < count && !lines.empty(); ++i) {
        result.push_back(lines[static_cast<std::size_t>(i) % lines.size()]);
    }
    return result;
}

// What an article's element says, but for its number and date.
Article readContent(const ScenarioNode &node)
{
    Article article;
    article.id = "<" + node.text("id") + ">";
    article.from = node.text("from");
    article.subject = node.text("subject");
    const auto answered = node.optionalText("answers");
    article.references = answered ? "<" + *answered + ">" : std::string();
    article.body = linesOf(node.content());
    return article;
}

Article readArticle(const ScenarioNode &node, const std::string &group, long nextNumber)
{
    node.allowAttributes({"id", "number", "from", "subject", "date", "hours-ago", "answers"});
    Article article = readContent(node);
    article.number = static_cast<long>(node.number("number", nextNumber));
    if (article.number < nextNumber) {
        node.fail("article numbers have to rise");
    }
    article.date = node.text("date", dateMinutesAgo(node.number("hours-ago", 0) * 60));
    article.header = headerOf(article, group);
    return article;
}

// The text with its place in the series wherever it has "{n}".
std::string placed(std::string text, std::int64_t place)
{
    const std::string mark = "{n}";
    const std::string number = std::to_string(place);
    for (std::size_t at = text.find(mark); at != std::string::npos;
         at = text.find(mark, at + number.size())) {
        text.replace(at, mark.size(), number);
    }
    return text;
}

std::vector<Article> readPatterns(const ScenarioNode &node)
{
    std::vector<Article> patterns;
    for (const ScenarioNode &child : node.children()) {
        if (child.name() != "article") {
            child.failAsUnknown();
        }
        child.allowAttributes({"id", "from", "subject", "lines"});
        patterns.push_back(readContent(child));
        std::vector<std::string> &body = patterns.back().body;
        body = repeated(body, child.number("lines", static_cast<std::int64_t>(body.size())));
    }
    if (patterns.empty()) {
        node.fail("a series has at least one article");
    }
    return patterns;
}

// The patterns take turns until there are `count` articles, the last one the newest.
std::vector<Article> readSeries(const ScenarioNode &node, const std::string &group, long nextNumber)
{
    node.allowAttributes({"count", "minutes-ago", "minutes-apart"});
    const std::vector<Article> patterns = readPatterns(node);
    const std::int64_t count = node.number("count");
    const std::int64_t newest = node.number("minutes-ago", 0);
    const std::int64_t apart = node.number("minutes-apart", 60);
    std::vector<Article> articles;
    for (std::int64_t place = 1; place <= count; ++place) {
        Article article = patterns[static_cast<std::size_t>(place - 1) % patterns.size()];
        article.number = nextNumber + static_cast<long>(place) - 1;
        article.id = placed(article.id, place);
        article.subject = placed(article.subject, place);
        article.date = dateMinutesAgo(newest + (count - place) * apart);
        article.header = headerOf(article, group);
        articles.push_back(article);
    }
    return articles;
}

std::vector<Article> readArticles(const ScenarioNode &node, const std::string &group, long nextNumber)
{
    if (node.name() == "series") {
        return readSeries(node, group, nextNumber);
    }
    if (node.name() != "article") {
        node.failAsUnknown();
    }
    return {readArticle(node, group, nextNumber)};
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
        const long next = group.articles.empty() ? group.first : group.articles.back().number + 1;
        for (Article &article : readArticles(child, group.name, next)) {
            if (!ids->insert(article.id).second) {
                child.fail("there are two articles " + article.id);
            }
            group.articles.push_back(std::move(article));
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
