// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "account.h"

namespace corvia {

/// The messages of one account, numbered from 1 as they come, so that each session can be told what is new to
/// it.
class MessageBox {
public:
    MessageBox() = default;
    explicit MessageBox(const std::vector<Message> &messages);

    /// The number of the message that came last; 0 when none ever came.
    std::int64_t lastNumber() const { return lastNumber_; }
    /// The messages with a greater number than this one, in the order in which they came; the last 10000
    /// where there are more.
    std::vector<Message> messagesAfter(std::int64_t number) const;

    /// Takes the place of a message with the same uid, under a new number.
    void add(const Message &message);
    /// Uids that nobody has are passed over.
    void markRead(const std::vector<std::string> &uids);
    /// Likewise, and so are messages that can not be deleted.
    void remove(const std::vector<std::string> &uids);

private:
    struct Numbered {
        std::int64_t number;
        Message message;
    };

    std::vector<Numbered> messages_;
    std::int64_t lastNumber_ = 0;
};

} // namespace corvia
