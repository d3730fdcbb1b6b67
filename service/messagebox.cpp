// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "messagebox.h"

#include <algorithm>
#include <set>

namespace corvia {

namespace {

const std::size_t maxMessages = 10000; // in one reply

} // namespace

MessageBox::MessageBox(const std::vector<Message> &messages)
{
    for (const Message &message : messages) {
        messages_.push_back({++lastNumber_, message});
    }
}

std::vector<Message> MessageBox::messagesAfter(std::int64_t number) const
{
    std::vector<Message> found;
    for (const Numbered &entry : messages_) {
        if (entry.number > number) {
            found.push_back(entry.message);
        }
    }
    if (found.size() > maxMessages) {
        found.erase(found.begin(), found.end() - maxMessages);
    }
    return found;
}

void MessageBox::add(const Message &message)
{
    const auto same = [&message](const Numbered &entry) { return entry.message.uid == message.uid; };
    messages_.erase(std::remove_if(messages_.begin(), messages_.end(), same), messages_.end());
    messages_.push_back({++lastNumber_, message});
}

void MessageBox::markRead(const std::vector<std::string> &uids)
{
    const std::set<std::string> wanted(uids.begin(), uids.end());
    for (Numbered &entry : messages_) {
        entry.message.read = entry.message.read || wanted.count(entry.message.uid) != 0;
    }
}

void MessageBox::remove(const std::vector<std::string> &uids)
{
    const std::set<std::string> wanted(uids.begin(), uids.end());
    const auto goes = [&wanted](const Numbered &entry) {
        return entry.message.deletable && wanted.count(entry.message.uid) != 0;
    };
    messages_.erase(std::remove_if(messages_.begin(), messages_.end(), goes), messages_.end());
}

} // namespace corvia
