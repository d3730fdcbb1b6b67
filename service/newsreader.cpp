// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "newsreader.h"

#include "newsblock.h"

#include <algorithm>
#include <climits>

namespace corvia {

namespace {

const char *const noGroup = "412 No group is selected\r\n";
const char *const noIdentifier = "430 There is no such article\r\n";
const char *const overviewStatus = "224 Overview lines follow";
const char *const badArgument = "501 That is no number, range or message identifier\r\n";

struct Range {
    long from = 0;
    long to = 0;
};

// A number an article can have, with at most sixteen digits (RFC 3977, section 6). False when it is none.
bool readNumber(const std::string &text, long *number)
{
    if (text.empty() || text.size() > 16 || text.find_first_not_of("0123456789") != std::string::npos) {
        return false;
    }
    *number = std::stol(text);
    return true;
}

bool readRange(const std::string &text, Range *range)
{
    const std::size_t dash = text.find('-');
    if (!readNumber(text.substr(0, dash), &range->from)) {
        return false;
    }
    range->to = range->from;
    if (dash == std::string::npos) {
        return true;
    }
    range->to = LONG_MAX;
    return dash + 1 == text.size() || readNumber(text.substr(dash + 1), &range->to);
}

bool isMessageId(const std::string &text)
{
    return text.size() > 2 && text.size() <= 250 && text.front() == '<' && text.back() == '>';
}

// Tabs and line ends divide the fields, so a field cannot hold any.
std::string field(std::string text)
{
    const auto divides = [](char c) { return c == '\t' || c == '\r' || c == '\n'; };
    std::replace_if(text.begin(), text.end(), divides, ' ');
    return text;
}

std::string overviewLine(const Article &article, long number)
{
    return std::to_string(number) + '\t' + field(article.subject) + '\t' + field(article.from) + '\t' +
           field(article.date) + '\t' + article.id + '\t' + field(article.references) + '\t' +
           std::to_string(article.bytes()) + '\t' + std::to_string(article.body.size());
}

std::string overviewOf(const Article &article, long number)
{
    return NewsBlock(overviewStatus).add(overviewLine(article, number)).finish();
}

std::string overviewOf(const Newsgroup &group, const Range &range, const std::string &nothing)
{
    NewsBlock block(overviewStatus);
    bool any = false;
    for (const Article &article : group.articles) {
        if (article.number >= range.from && article.number <= range.to) {
            block.add(overviewLine(article, article.number));
            any = true;
        }
    }
    return any ? block.finish() : nothing;
}

std::string articleReply(const Article &article, NewsReader::Part part, long number)
{
    static const char *const codes[] = {"220", "221", "222", "223"};
    const std::string code = codes[static_cast<int>(part)];
    const std::string status = code + ' ' + std::to_string(number) + ' ' + article.id;
    NewsBlock block(status);
    switch (part) {
    case NewsReader::Part::Article:
        return block.add(article.header).add("").add(article.body).finish();
    case NewsReader::Part::Head:
        return block.add(article.header).finish();
    case NewsReader::Part::Body:
        return block.add(article.body).finish();
    case NewsReader::Part::Stat:
        break;
    }
    return status + "\r\n";
}

std::string groupStatus(const Newsgroup &group)
{
    return "211 " + std::to_string(group.articles.size()) + ' ' + std::to_string(group.low()) + ' ' +
           std::to_string(group.high()) + ' ' + group.name;
}

} // namespace

NewsReader::NewsReader(const NewsStore &store)
    : store_(store)
{
}

std::string NewsReader::group(const Arguments &arguments)
{
    const Newsgroup *wanted = store_.group(arguments[0]);
    if (wanted == nullptr) {
        return "411 There is no such group\r\n";
    }
    group_ = wanted;
    current_ = group_->articles.empty() ? nullptr : &group_->articles.front();
    return groupStatus(*group_) + "\r\n";
}

std::string NewsReader::listGroup(const Arguments &arguments)
{
    Range range = {0, LONG_MAX};
    if (arguments.size() > 1 && !readRange(arguments[1], &range)) {
        return badArgument;
    }
    if (!arguments.empty()) {
        std::string reply = group(arguments);
        if (reply.compare(0, 3, "211") != 0) {
            return reply;
        }
    } else if (group_ == nullptr) {
        return noGroup;
    }
    current_ = group_->articles.empty() ? nullptr : &group_->articles.front();
    NewsBlock block(groupStatus(*group_));
    for (const Article &article : group_->articles) {
        if (article.number >= range.from && article.number <= range.to) {
            block.add(std::to_string(article.number));
        }
    }
    return block.finish();
}

std::string NewsReader::move(int step)
{
    std::string problem;
    if (current(&problem) == nullptr) {
        return problem;
    }
    const Article *first = &group_->articles.front();
    const Article *last = &group_->articles.back();
    if (current_ == (step > 0 ? last : first)) {
        return step > 0 ? "421 This is the last article\r\n" : "422 This is the first article\r\n";
    }
    current_ += step;
    return articleReply(*current_, Part::Stat, current_->number);
}

std::string NewsReader::article(Part part, const Arguments &arguments)
{
    std::string problem;
    if (!arguments.empty() && isMessageId(arguments[0])) {
        const Article *found = store_.article(arguments[0]);
        return found != nullptr ? articleReply(*found, part, 0) : noIdentifier;
    }
    const Article *found = arguments.empty() ? current(&problem) : find(arguments[0], &problem);
    if (found == nullptr) {
        return problem;
    }
    current_ = found;
    return articleReply(*found, part, found->number);
}

std::string NewsReader::overview(const Arguments &arguments, const std::string &nothing) const
{
    std::string problem;
    if (arguments.empty()) {
        const Article *found = current(&problem);
        return found != nullptr ? overviewOf(*found, found->number) : problem;
    }
    if (isMessageId(arguments[0])) {
        const Article *found = store_.article(arguments[0]);
        return found != nullptr ? overviewOf(*found, 0) : noIdentifier;
    }
    Range range;
    if (!readRange(arguments[0], &range)) {
        return badArgument;
    }
    return group_ != nullptr ? overviewOf(*group_, range, nothing) : noGroup;
}

const Article *NewsReader::find(const std::string &which, std::string *problem) const
{
    long number = 0;
    if (!readNumber(which, &number)) {
        *problem = badArgument;
        return nullptr;
    }
    if (group_ == nullptr) {
        *problem = noGroup;
        return nullptr;
    }
    *problem = "423 There is no article with that number\r\n";
    return group_->article(number);
}

const Article *NewsReader::current(std::string *problem) const
{
    *problem = group_ == nullptr ? noGroup : "420 There is no current article\r\n";
    return current_;
}

} // namespace corvia
