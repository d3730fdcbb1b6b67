// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "channel.h"

#include <algorithm>
#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <openssl/err.h>
#include <openssl/ssl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace corvia {

namespace {

const int handshakeMilliseconds = 10000;
const int readMilliseconds = 600000;

} // namespace

void Channel::Freed::operator()(SSL *ssl) const
{
    SSL_free(ssl);
}

Channel::Channel(int socket, const StopSignal &stop)
    : stop_(stop)
    , socket_(socket)
{
    const int yes = 1;
    ::setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
}

Channel::~Channel()
{
    if (ssl_ && !broken_) {
        ERR_clear_error();
        SSL_shutdown(ssl_.get());
    }
    ::shutdown(socket_, SHUT_WR);
    // Bytes left unread at the close would turn it into a reset, which can overtake the reply.
    char scratch[4096];
    for (int i = 0; i < 256 && ::recv(socket_, scratch, sizeof scratch, 0) > 0; ++i) {
    }
    ::close(socket_);
}

void Channel::setTap(Tap tap)
{
    tap_ = std::move(tap);
}

bool Channel::startTls(SSL_CTX *context)
{
    ssl_.reset(SSL_new(context));
    SSL_set_fd(ssl_.get(), socket_);
    for (;;) {
        ERR_clear_error();
        const int result = SSL_accept(ssl_.get());
        if (result == 1) {
            return true;
        }
        const short events = eventsToWaitFor(result, 0);
        if (events == 0 || !wait(events, handshakeMilliseconds)) {
            broken_ = true;
            return false;
        }
    }
}

bool Channel::wait(short events, int milliseconds)
{
    pollfd watched[] = {{socket_, events, 0}, {stop_.descriptor(), POLLIN, 0}};
    int ready = 0;
    do {
        ready = ::poll(watched, 2, milliseconds);
    } while (ready < 0 && errno == EINTR);
    return ready > 0 && watched[1].revents == 0;
}

short Channel::eventsToWaitFor(long result, short plainEvents)
{
    if (!ssl_) {
        const bool later = result < 0 && (errno == EAGAIN || errno == EINTR);
        return later ? plainEvents : static_cast<short>(0);
    }
    switch (SSL_get_error(ssl_.get(), static_cast<int>(result))) {
    case SSL_ERROR_WANT_READ:
        return POLLIN;
    case SSL_ERROR_WANT_WRITE:
        return POLLOUT;
    case SSL_ERROR_ZERO_RETURN:
        return 0;
    default:
        broken_ = true;
        return 0;
    }
}

long Channel::receive(char *to, std::size_t room)
{
    if (!ssl_) {
        return ::recv(socket_, to, room, 0);
    }
    ERR_clear_error();
    return SSL_read(ssl_.get(), to, static_cast<int>(room));
}

long Channel::transmit(std::string_view bytes)
{
    if (!ssl_) {
        return ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
    ERR_clear_error();
    return SSL_write(ssl_.get(), bytes.data(), static_cast<int>(bytes.size()));
}

bool Channel::fill(int milliseconds)
{
    char bytes[4096];
    while (!broken_ && !stop_.raised()) {
        const long count = receive(bytes, sizeof bytes);
        if (count > 0) {
            buffer_.append(bytes, static_cast<std::size_t>(count));
            if (tap_) {
                tap_(std::string_view(bytes, static_cast<std::size_t>(count)));
            }
            return true;
        }
        const short events = eventsToWaitFor(count, POLLIN);
        if (events == 0 || !wait(events, milliseconds)) {
            return false;
        }
    }
    return false;
}

bool Channel::waitForBytes(int milliseconds)
{
    return !buffer_.empty() || fill(milliseconds);
}

std::size_t Channel::read(char *to, std::size_t room)
{
    if (!waitForBytes(readMilliseconds)) {
        return 0;
    }
    const std::size_t count = std::min(room, buffer_.size());
    buffer_.copy(to, count);
    buffer_.erase(0, count);
    return count;
}

Channel::Line Channel::readLine(std::string *line, std::size_t limit)
{
    bool tooLong = false;
    std::size_t end = 0;
    while ((end = buffer_.find('\n')) == std::string::npos) {
        if (buffer_.size() > limit) {
            tooLong = true;
            buffer_.clear();
        }
        if (!fill(readMilliseconds)) {
            return Line::End;
        }
    }
    tooLong = tooLong || end + 1 > limit;
    *line = buffer_.substr(0, end);
    buffer_.erase(0, end + 1);
    if (!line->empty() && line->back() == '\r') {
        line->pop_back();
    }
    return tooLong ? Line::TooLong : Line::Complete;
}

bool Channel::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        if (broken_ || stop_.raised()) {
            return false;
        }
        const long count = transmit(bytes);
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
            continue;
        }
        const short events = eventsToWaitFor(count, POLLOUT);
        if (events == 0 || !wait(events, -1)) {
            return false;
        }
    }
    return true;
}

bool Channel::pause(int milliseconds)
{
    pollfd watched = {stop_.descriptor(), POLLIN, 0};
    return ::poll(&watched, 1, milliseconds) == 0;
}

void Channel::waitUntilGone()
{
    do {
        buffer_.clear();
    } while (fill(-1));
}

int Channel::descriptor() const
{
    return socket_;
}

} // namespace corvia
