// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "newssession.h"

#include "channel.h"
#include "newsblock.h"
#include "newslists.h"

#include <ctime>
#include <sstream>
#include <utility>

namespace corvia {

namespace {

const std::size_t longestCommand = 512; // RFC 3977, section 3.1, line end included
const std::size_t anyNumber = 100;

std::string upperCase(std::string word)
{
    for (char &c : word) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return word;
}

std::vector<std::string> wordsOf(const std::string &line)
{
    std::vector<std::string> words;
    std::istringstream stream(line);
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

std::string currentDate()
{
    const std::time_t now = std::time(nullptr);
    std::tm utc = {};
    ::gmtime_r(&now, &utc);
    char text[32];
    const std::size_t size = std::strftime(text, sizeof text, "111 %Y%m%d%H%M%S\r\n", &utc);
    return {text, size};
}

std::string help()
{
    NewsBlock block("100 This is a news service on the loopback interface");
    return block.add("It reads newsgroups; see CAPABILITIES for what it understands.").finish();
}

std::string mode(const std::string &name)
{
    const bool reader = upperCase(name) == "READER";
    return reader ? "201 Reading only, posting prohibited\r\n" : "501 There is no such mode\r\n";
}

// No group comes into being while the service runs.
std::string newGroups()
{
    return NewsBlock("231 New groups follow").finish();
}

} // namespace

NewsSession::NewsSession(const NewsStore &store, const AccountBook &book, Records &records)
    : store_(store)
    , book_(book)
    , records_(records)
    , reader_(store)
{
    addOpenCommands();
    addListCommands();
    addReadingCommands();
}

void NewsSession::addOpenCommands()
{
    commands_["CAPABILITIES"] = {0, 1, false, [this](const Arguments &) { return capabilities(); }};
    commands_["DATE"] = {0, 0, false, [](const Arguments &) { return currentDate(); }};
    commands_["HELP"] = {0, 0, false, [](const Arguments &) { return help(); }};
    commands_["AUTHINFO"] = {2, anyNumber, false, [this](const Arguments &words) { return logIn(words); }};
    commands_["MODE"] = {1, 1, false, [](const Arguments &words) { return mode(words[0]); }};
    commands_["QUIT"] = {0, 0, false, [this](const Arguments &) { return quit(); }};
}

void NewsSession::addListCommands()
{
    commands_["LIST"] = {0, 2, true, [this](const Arguments &words) { return newsList(store_, words); }};
    commands_["NEWGROUPS"] = {2, 3, true, [](const Arguments &) { return newGroups(); }};
    commands_["GROUP"] = {1, 1, true, [this](const Arguments &words) { return reader_.group(words); }};
    commands_["LISTGROUP"] = {0, 2, true, [this](const Arguments &list) { return reader_.listGroup(list); }};
}

void NewsSession::addReadingCommands()
{
    const std::map<std::string, NewsReader::Part> parts = {
        {"ARTICLE", NewsReader::Part::Article},
        {"HEAD", NewsReader::Part::Head},
        {"BODY", NewsReader::Part::Body},
        {"STAT", NewsReader::Part::Stat},
    };
    for (const auto &[name, part] : parts) {
        const auto read = [this, wanted = part](const Arguments &words) {
            return reader_.article(wanted, words);
        };
        commands_[name] = {0, 1, true, read};
    }
    commands_["NEXT"] = {0, 0, true, [this](const Arguments &) { return reader_.move(1); }};
    commands_["LAST"] = {0, 0, true, [this](const Arguments &) { return reader_.move(-1); }};
    commands_["OVER"] = {0, 1, true, [this](const Arguments &words) {
                             return reader_.overview(words, "423 There is no article in that range\r\n");
                         }};
    // The older command differs in its code for an empty range (RFC 2980, section 2.8).
    commands_["XOVER"] = {0, 1, true, [this](const Arguments &words) {
                              return reader_.overview(words, "420 There is no article in that range\r\n");
                          }};
}

void NewsSession::run(Channel &channel)
{
    bool open = channel.write("201 Corvia news service ready, posting prohibited\r\n");
    while (open && !ended_) {
        std::string line;
        switch (channel.readLine(&line, longestCommand)) {
        case Channel::Line::End:
            return;
        case Channel::Line::TooLong:
            open = channel.write("501 The line is too long\r\n");
            break;
        case Channel::Line::Complete:
            records_.addNewsCommand(line);
            open = channel.write(execute(line));
            break;
        }
    }
}

std::string NewsSession::execute(const std::string &line)
{
    Arguments words = wordsOf(line);
    const auto found = words.empty() ? commands_.end() : commands_.find(upperCase(words[0]));
    if (found == commands_.end()) {
        return "500 Unknown command\r\n";
    }
    words.erase(words.begin());
    const Command &command = found->second;
    if (words.size() < command.fewest || words.size() > command.most) {
        return "501 That is not the number of arguments it takes\r\n";
    }
    if (command.afterLogin && !loggedIn_) {
        return "480 Please log in first\r\n";
    }
    return command.run(words);
}

std::string NewsSession::quit()
{
    ended_ = true;
    return "205 Goodbye\r\n";
}

std::string NewsSession::capabilities() const
{
    NewsBlock block("101 Capabilities follow");
    block.add("VERSION 2").add("IMPLEMENTATION Corvia loopback news service").add("READER");
    if (!loggedIn_) {
        block.add("AUTHINFO USER");
    }
    return block.add("LIST ACTIVE NEWSGROUPS OVERVIEW.FMT").add("OVER MSGID").finish();
}

std::string NewsSession::logIn(const Arguments &arguments)
{
    const std::string kind = upperCase(arguments[0]);
    std::string value = arguments[1];
    for (std::size_t i = 2; i < arguments.size(); ++i) {
        value += ' ' + arguments[i];
    }
    if (kind != "USER" && kind != "PASS") {
        return "501 There is no such way to log in\r\n";
    }
    if (loggedIn_) {
        return "502 You are logged in already\r\n";
    }
    if (kind == "PASS") {
        return checkPassword(value);
    }
    user_ = value;
    return "381 The password, please\r\n";
}

std::string NewsSession::checkPassword(const std::string &password)
{
    if (user_.empty()) {
        return "482 The user name has to come first\r\n";
    }
    const std::string refusal = book_.refusalFor(std::exchange(user_, std::string()), password);
    loggedIn_ = refusal.empty();
    return loggedIn_ ? "281 Welcome\r\n" : "481 " + refusal + "\r\n";
}

} // namespace corvia
