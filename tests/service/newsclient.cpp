// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "newsclient.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <openssl/ssl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

void NewsClient::Freed::operator()(SSL *ssl) const
{
    SSL_free(ssl);
}

void NewsClient::Freed::operator()(SSL_CTX *context) const
{
    SSL_CTX_free(context);
}

NewsClient::NewsClient(int port, const std::string &authorityFile)
    : socket_(::socket(AF_INET, SOCK_STREAM, 0))
{
    const timeval limit = {10, 0};
    ::setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    if (::connect(socket_, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0) {
        if (!authorityFile.empty()) {
            startTls(authorityFile);
        }
        greeting_ = readLine();
    }
}

NewsClient::~NewsClient()
{
    ::close(socket_);
}

void NewsClient::startTls(const std::string &authorityFile)
{
    context_.reset(SSL_CTX_new(TLS_client_method()));
    SSL_CTX_load_verify_locations(context_.get(), authorityFile.c_str(), nullptr);
    SSL_CTX_set_verify(context_.get(), SSL_VERIFY_PEER, nullptr);
    ssl_.reset(SSL_new(context_.get()));
    SSL_set1_host(ssl_.get(), "localhost");
    SSL_set_fd(ssl_.get(), socket_);
    SSL_connect(ssl_.get());
}

std::string NewsClient::ask(const std::string &line)
{
    send(line + "\r\n");
    return readLine();
}

std::vector<std::string> NewsClient::askBlock(const std::string &line)
{
    std::vector<std::string> lines = {ask(line)};
    for (;;) {
        const std::string next = readLine();
        if (next == "." || next == "END") {
            return lines;
        }
        lines.push_back(next);
    }
}

std::string NewsClient::logIn(const std::string &user, const std::string &password)
{
    ask("AUTHINFO USER " + user);
    return ask("AUTHINFO PASS " + password);
}

void NewsClient::send(const std::string &bytes)
{
    if (ssl_) {
        SSL_write(ssl_.get(), bytes.data(), static_cast<int>(bytes.size()));
    } else {
        ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
}

std::string NewsClient::readLine()
{
    std::size_t end = 0;
    while ((end = buffer_.find("\r\n")) == std::string::npos) {
        char bytes[4096];
        const long count =
            ssl_ ? SSL_read(ssl_.get(), bytes, sizeof bytes) : ::recv(socket_, bytes, sizeof bytes, 0);
        if (count <= 0) {
            return "END";
        }
        buffer_.append(bytes, static_cast<std::size_t>(count));
    }
    std::string line = buffer_.substr(0, end);
    buffer_.erase(0, end + 2);
    return line;
}
