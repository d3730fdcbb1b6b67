// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "scenario.h"

#include "scenariofilegroup.h"
#include "scenarionewsreader.h"
#include "scenarionode.h"
#include "xmldocument.h"

#include <chrono>
#include <set>

namespace corvia {

namespace {

const std::int64_t ordinarySession = 43200; // seconds

int portNumber(const ScenarioNode &node)
{
    const std::int64_t port = node.number("port");
    if (port < 1 || port > 65535) {
        node.fail("a port is a number from 1 to 65535");
    }
    return static_cast<int>(port);
}

std::vector<NewsServer> readServers(const ScenarioNode &node)
{
    std::vector<NewsServer> servers;
    for (const ScenarioNode &child : node.children()) {
        if (child.name() != "server") {
            child.failAsUnknown();
        }
        child.allowAttributes({"host", "port", "ssl"});
        servers.push_back({child.text("host"), portNumber(child), child.flag("ssl", true)});
    }
    return servers;
}

std::vector<Link> readLinks(const ScenarioNode &node)
{
    std::vector<Link> links;
    for (const ScenarioNode &child : node.children()) {
        if (child.name() != "link") {
            child.failAsUnknown();
        }
        child.allowAttributes({"key", "url"});
        links.push_back({child.text("key"), child.text("url")});
    }
    return links;
}

// A client is never told of a folder or newsgroup without a name, so a scenario has none either.
std::string nameOfBookmark(const ScenarioNode &node)
{
    node.allowAttributes({"name"});
    std::string name = node.text("name");
    if (name.find_first_not_of(" \t\r\n") == std::string::npos) {
        node.fail("a " + node.name() + " among the bookmarks has a name");
    }
    return name;
}

BookmarkFolder readFolder(const ScenarioNode &node)
{
    BookmarkFolder folder;
    folder.name = nameOfBookmark(node);
    for (const ScenarioNode &child : node.children()) {
        if (child.name() != "newsgroup") {
            child.failAsUnknown();
        }
        folder.newsgroups.push_back(nameOfBookmark(child));
    }
    return folder;
}

std::vector<BookmarkFolder> readBookmarks(const ScenarioNode &node)
{
    std::vector<BookmarkFolder> folders;
    for (const ScenarioNode &child : node.children()) {
        if (child.name() != "folder") {
            child.failAsUnknown();
        }
        folders.push_back(readFolder(child));
    }
    return folders;
}

void readUsage(const ScenarioNode &node, AccountStatus *status)
{
    node.allowAttributes({"max-connections", "billing-bytes", "mtd-bytes", "usage-updated-minutes-ago"});
    status->maxConnections = node.optionalNumber("max-connections");
    status->billingBytes = node.optionalNumber("billing-bytes");
    status->mtdBytes = node.optionalNumber("mtd-bytes");
    status->usageMinutesAgo = node.optionalNumber("usage-updated-minutes-ago");
}

std::optional<std::int64_t> dateOfMessage(const ScenarioNode &node)
{
    const auto hoursAgo = node.optionalNumber("hours-ago");
    const auto date = node.optionalNumber("date");
    if (hoursAgo && date) {
        node.fail("a message has a date or an age, not both");
    }
    if (!hoursAgo) {
        return date;
    }
    using namespace std::chrono;
    const auto now = duration_cast<milliseconds>(system_clock::now().time_since_epoch());
    return now.count() - *hoursAgo * 3600000;
}

Message readMessage(const ScenarioNode &node)
{
    if (node.name() != "message") {
        node.failAsUnknown();
    }
    node.allowAttributes({"uid", "date", "hours-ago", "url", "read", "deletable"});
    Message message;
    message.uid = node.text("uid");
    if (message.uid.find_first_not_of(" \t\r\n") == std::string::npos) {
        node.fail("a message has a uid that is not blank");
    }
    if (message.uid.size() > 255) {
        node.fail("the uid of a message has at most 255 bytes");
    }
    message.text = node.content();
    message.date = dateOfMessage(node);
    message.url = node.optionalText("url");
    message.read = node.flag("read", false);
    message.deletable = node.flag("deletable", true);
    return message;
}

std::vector<Message> readMessages(const ScenarioNode &node)
{
    std::vector<Message> messages;
    std::set<std::string> uids;
    for (const ScenarioNode &child : node.children()) {
        messages.push_back(readMessage(child));
        if (!uids.insert(messages.back().uid).second) {
            child.fail("there are two messages \"" + messages.back().uid + "\"");
        }
    }
    return messages;
}

AccountStatus readStatus(const ScenarioNode &node)
{
    node.allowAttributes({"supported", "in-login", "next-update-millis"});
    AccountStatus status;
    status.supported = node.flag("supported", true);
    status.inLogin = node.flag("in-login", true);
    status.nextUpdateMillis = node.optionalNumber("next-update-millis");
    for (const ScenarioNode &child : node.children()) {
        if (child.name() == "plan") {
            child.allowAttributes({"name"});
            status.plan = child.text("name");
        } else if (child.name() == "nntp") {
            readUsage(child, &status);
        } else {
            child.failAsUnknown();
        }
    }
    return status;
}

Account readAccount(const ScenarioNode &node)
{
    node.allowAttributes({"user", "password", "session-seconds"});
    Account account;
    account.user = node.text("user");
    account.password = node.text("password");
    account.sessionSeconds = node.number("session-seconds", ordinarySession);
    for (const ScenarioNode &child : node.children()) {
        if (child.name() == "login-refused") {
            account.refusal = child.content();
        } else if (child.name() == "servers") {
            account.servers = readServers(child);
        } else if (child.name() == "links") {
            account.links = readLinks(child);
        } else if (child.name() == "software-update") {
            child.allowAttributes({"version", "url"});
            account.update = SoftwareUpdate{child.text("version"), child.text("url"), child.content()};
        } else if (child.name() == "bookmarks") {
            account.bookmarks = readBookmarks(child);
        } else if (child.name() == "status") {
            account.status = readStatus(child);
        } else if (child.name() == "messages") {
            account.messages = readMessages(child);
        } else {
            child.failAsUnknown();
        }
    }
    return account;
}

Fault readFault(const ScenarioNode &node)
{
    node.allowAttributes({"kind", "number", "text", "request"});
    Fault fault;
    if (!faultKindFromName(node.text("kind"), &fault.kind)) {
        node.fail("there is no fault \"" + node.text("kind") + "\"");
    }
    fault.number = static_cast<int>(node.number("number", 0));
    fault.text = node.text("text", "");
    fault.request = node.text("request", "");
    return fault;
}

Scenario readRoot(const ScenarioNode &root)
{
    if (root.name() != "scenario" || root.text("version") != "1") {
        root.fail("the document is no <scenario version=\"1\">");
    }
    root.allowAttributes({"version", "auto-search-interval"});
    Scenario scenario;
    scenario.autoSearchInterval = static_cast<int>(root.number("auto-search-interval", 900));
    std::set<std::string> users;
    std::set<std::string> fileGroups;
    for (const ScenarioNode &child : root.children()) {
        if (child.name() == "account") {
            scenario.accounts.push_back(readAccount(child));
            if (!users.insert(scenario.accounts.back().user).second) {
                child.fail("there are two accounts \"" + scenario.accounts.back().user + "\"");
            }
        } else if (child.name() == "groups") {
            scenario.groups = readNewsgroups(child);
        } else if (child.name() == "file-group") {
            scenario.fileGroups.push_back(readFileGroup(child));
            if (!fileGroups.insert(scenario.fileGroups.back().id).second) {
                child.fail("there are two file groups \"" + scenario.fileGroups.back().id + "\"");
            }
        } else if (child.name() == "fault") {
            scenario.fault = readFault(child);
        } else {
            child.failAsUnknown();
        }
    }
    return scenario;
}

} // namespace

bool readScenario(const std::string &xml, Scenario *scenario, std::string *why)
{
    const XmlDocument document(xml);
    try {
        if (!document) {
            throw ScenarioError(document.problemLine(), document.problem());
        }
        *scenario = readRoot(ScenarioNode(document.root()));
        return true;
    } catch (const ScenarioError &error) {
        *why = error.what();
        return false;
    }
}

} // namespace corvia
