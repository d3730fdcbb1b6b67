// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "accountreply.h"

#include "xmlwriter.h"

#include <chrono>

namespace corvia {

namespace {

XmlWriter startedReply()
{
    XmlWriter writer;
    writer.open("reply").attribute("version", 1);
    return writer;
}

void writeOptional(XmlWriter &writer, const char *name, const std::optional<std::int64_t> &value)
{
    if (value) {
        writer.attribute(name, *value);
    }
}

std::int64_t timeMinutesAgo(std::int64_t minutes)
{
    using namespace std::chrono;
    const auto now = duration_cast<milliseconds>(system_clock::now().time_since_epoch());
    return now.count() - minutes * 60000;
}

void writeUsage(XmlWriter &writer, const AccountStatus &status)
{
    if (!status.maxConnections && !status.billingBytes && !status.mtdBytes && !status.usageMinutesAgo) {
        return;
    }
    writer.open("nntp");
    writeOptional(writer, "max-connections", status.maxConnections);
    writeOptional(writer, "billing-bytes", status.billingBytes);
    writeOptional(writer, "mtd-bytes", status.mtdBytes);
    if (status.usageMinutesAgo) {
        writer.attribute("usage-updated-timestamp", timeMinutesAgo(*status.usageMinutesAgo));
    }
    writer.close();
}

void writeStatus(XmlWriter &writer, const AccountStatus &status)
{
    writer.open("status").attribute("supported", status.supported ? "true" : "false");
    if (status.supported) {
        writeOptional(writer, "next-update-millis", status.nextUpdateMillis);
        if (status.plan) {
            writer.open("plan").attribute("name", *status.plan).close();
        }
        writeUsage(writer, status);
    }
    writer.close();
}

void writeServers(XmlWriter &writer, const std::vector<NewsServer> &servers)
{
    writer.open("nntp-servers");
    for (const NewsServer &server : servers) {
        writer.open("server").attribute("host", server.host).attribute("port", server.port);
        writer.attribute("ssl", server.ssl ? "true" : "false").close();
    }
    writer.close();
}

void writeLinks(XmlWriter &writer, const std::vector<Link> &links)
{
    writer.open("links");
    for (const Link &link : links) {
        writer.open("link").attribute("key", link.key).attribute("url", link.url).close();
    }
    writer.close();
}

void writeMessages(XmlWriter &writer, const std::vector<Message> &messages)
{
    if (messages.empty()) {
        return;
    }
    writer.open("messages");
    for (const Message &message : messages) {
        writer.open("message").attribute("uid", message.uid);
        writeOptional(writer, "date", message.date);
        if (message.url) {
            writer.attribute("url", *message.url);
        }
        writer.attribute("read", message.read ? "true" : "false");
        writer.attribute("deletable", message.deletable ? "true" : "false").text(message.text).close();
    }
    writer.close();
}

} // namespace

std::string errorReply(const std::string &code, const std::string &sentence)
{
    XmlWriter writer = startedReply();
    writer.open("error").attribute("code", code).text(sentence);
    return writer.finish();
}

std::string loginReply(const Account &account, const std::string &sessionWord, int autoSearchInterval,
                       const std::vector<NewsServer> &ownServers, const std::vector<Message> &messages)
{
    XmlWriter writer = startedReply();
    writer.open("login").attribute("session", sessionWord);
    writer.attribute("auto-search-interval", autoSearchInterval);
    writeServers(writer, account.servers.empty() ? ownServers : account.servers);
    writeLinks(writer, account.links);
    if (account.update) {
        writer.open("software-update").attribute("version", account.update->version);
        writer.attribute("url", account.update->url).text(account.update->note).close();
    }
    if (account.status.inLogin) {
        writeStatus(writer, account.status);
    }
    writer.close();
    writeMessages(writer, messages);
    return writer.finish();
}

std::string statusReply(const AccountStatus &status, const std::vector<Message> &messages)
{
    XmlWriter writer = startedReply();
    writeStatus(writer, status);
    writeMessages(writer, messages);
    return writer.finish();
}

std::string bookmarksReply(const std::vector<BookmarkFolder> &folders, const std::vector<Message> &messages)
{
    XmlWriter writer = startedReply();
    writer.open("bookmarks");
    for (const BookmarkFolder &folder : folders) {
        writer.open("folder").open("name").text(folder.name).close();
        for (const std::string &newsgroup : folder.newsgroups) {
            writer.open("newsgroup").text(newsgroup).close();
        }
        writer.close();
    }
    writer.close();
    writeMessages(writer, messages);
    return writer.finish();
}

std::string successReply(const std::vector<Message> &messages)
{
    XmlWriter writer = startedReply();
    writer.open("success").close();
    writeMessages(writer, messages);
    return writer.finish();
}

std::string literalReply(const std::string &content)
{
    return startedReply().markup(content).finish();
}

} // namespace corvia
