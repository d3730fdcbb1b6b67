// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <vector>

using SSL = struct ssl_st;
using SSL_CTX = struct ssl_ctx_st;

/// A plain-spoken NNTP client for tests: sends lines and reads lines, with a time limit of ten seconds for
/// each read. One thread.
class NewsClient {
public:
    /// Connects to `port` of 127.0.0.1, under TLS when there is an authority to trust, and reads the
    /// greeting.
    explicit NewsClient(int port, const std::string &authorityFile = std::string());
    ~NewsClient();
    NewsClient(const NewsClient &) = delete;
    NewsClient &operator=(const NewsClient &) = delete;

    std::string greeting() const { return greeting_; }
    /// Sends `line` and its line end and answers the first line of the reply.
    std::string ask(const std::string &line);
    /// Sends `line`; answers the whole multi-line reply: the status line and the lines as they came, dots and
    /// all, without the last one.
    std::vector<std::string> askBlock(const std::string &line);
    /// Logs in and answers the last status line.
    std::string logIn(const std::string &user, const std::string &password);
    /// Sends bytes as they are.
    void send(const std::string &bytes);
    /// "END" when there is nothing more.
    std::string readLine();

private:
    struct Freed {
        void operator()(SSL *ssl) const;
        void operator()(SSL_CTX *context) const;
    };

    void startTls(const std::string &authorityFile);

    int socket_;
    std::unique_ptr<SSL_CTX, Freed> context_;
    std::unique_ptr<SSL, Freed> ssl_;
    std::string buffer_;
    std::string greeting_;
};
