// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "accountbook.h"

#include <openssl/crypto.h>
#include <openssl/rand.h>
#include <stdexcept>
#include <utility>

namespace corvia {

namespace {

std::string randomWord()
{
    unsigned char bytes[20];
    if (RAND_bytes(bytes, sizeof bytes) != 1) {
        throw std::runtime_error("There is no randomness to make a session word from.");
    }
    std::string word;
    for (const unsigned char byte : bytes) {
        word += "0123456789abcdef"[byte >> 4];
        word += "0123456789abcdef"[byte & 15];
    }
    return word;
}

} // namespace

AccountBook::AccountBook(const std::vector<Account> &accounts)
{
    for (const Account &account : accounts) {
        accounts_[account.user] = account;
        boxes_[account.user] = MessageBox(account.messages);
    }
}

std::string AccountBook::refusalFor(const std::string &user, const std::string &password) const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = accounts_.find(user);
    // Whether the name or the password is wrong is nobody's business.
    if (found == accounts_.end() || found->second.password.size() != password.size() ||
        CRYPTO_memcmp(found->second.password.data(), password.data(), password.size()) != 0) {
        return "The user name or the password is wrong.";
    }
    return found->second.refusal;
}

std::optional<Account> AccountBook::account(const std::string &user) const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = accounts_.find(user);
    return found != accounts_.end() ? std::optional<Account>(found->second) : std::nullopt;
}

std::string AccountBook::openSession(const std::string &user)
{
    std::string word = randomWord();
    const std::lock_guard<std::mutex> lock(mutex_);
    const std::chrono::seconds life(accounts_.at(user).sessionSeconds);
    sessions_[word] = {user, std::chrono::steady_clock::now() + life, 0};
    return word;
}

std::optional<Account> AccountBook::accountOfSession(const std::string &word) const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = sessions_.find(word);
    if (found == sessions_.end() || found->second.end <= std::chrono::steady_clock::now()) {
        return std::nullopt;
    }
    return accounts_.at(found->second.user);
}

void AccountBook::forgetSessions()
{
    const std::lock_guard<std::mutex> lock(mutex_);
    sessions_.clear();
}

std::vector<Message> AccountBook::takeUntoldMessages(const std::string &word)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = sessions_.find(word);
    if (found == sessions_.end()) {
        return {};
    }
    const MessageBox &box = boxes_.at(found->second.user);
    const std::int64_t toldUpTo = std::exchange(found->second.toldUpTo, box.lastNumber());
    return box.messagesAfter(toldUpTo);
}

void AccountBook::applyMessageReport(const std::string &word, const std::vector<std::string> &read,
                                     const std::vector<std::string> &deleted)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = sessions_.find(word);
    if (found != sessions_.end()) {
        MessageBox &box = boxes_.at(found->second.user);
        box.markRead(read);
        box.remove(deleted);
    }
}

std::vector<Message> AccountBook::messages(const std::string &user) const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = boxes_.find(user);
    return found != boxes_.end() ? found->second.messagesAfter(0) : std::vector<Message>();
}

void AccountBook::addMessage(const std::string &user, const Message &message)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = boxes_.find(user);
    if (found != boxes_.end()) {
        found->second.add(message);
    }
}

void AccountBook::setPlan(const std::string &user, int maxConnections, std::int64_t billingBytes,
                          std::int64_t mtdBytes)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = accounts_.find(user);
    if (found != accounts_.end()) {
        found->second.status.maxConnections = maxConnections;
        found->second.status.billingBytes = billingBytes;
        found->second.status.mtdBytes = mtdBytes;
    }
}

} // namespace corvia
