// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "stopsignal.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

using SSL = struct ssl_st;
using SSL_CTX = struct ssl_ctx_st;

namespace corvia {

/// One client's connection, in the clear or under TLS. Every wait ends when the stop signal is raised, so a
/// thread in here never holds up the service's end. Used by one thread.
class Channel {
public:
    enum class Line { Complete, TooLong, End };
    /// Is shown every byte as it is read from a connection in the clear.
    using Tap = std::function<void(std::string_view)>;

    /// Owns the non-blocking `socket`; `stop` has to outlive the channel.
    Channel(int socket, const StopSignal &stop);
    /// Says goodbye to the client and closes.
    ~Channel();
    Channel(const Channel &) = delete;
    Channel &operator=(const Channel &) = delete;

    void setTap(Tap tap);
    /// Shakes hands as the server. False when the client refuses, leaves or takes longer than ten seconds.
    bool startTls(SSL_CTX *context);

    /// True when bytes can be read within `milliseconds` (-1: however long it takes).
    bool waitForBytes(int milliseconds);
    /// Waits for bytes and reads at most `room` of them; 0 when there are no more.
    std::size_t read(char *to, std::size_t room);
    /// Reads one line without its line end. A line of more than `limit` bytes, line end included, is read to
    /// its end and thrown away.
    Line readLine(std::string *line, std::size_t limit);
    /// False when the client has gone or the service ends.
    bool write(std::string_view bytes);
    /// Lets `milliseconds` pass. False when the service ends meanwhile.
    bool pause(int milliseconds);
    /// Reads and forgets until the client leaves or the service ends.
    void waitUntilGone();

    int descriptor() const;

private:
    struct Freed {
        void operator()(SSL *ssl) const;
    };

    bool wait(short events, int milliseconds);
    bool fill(int milliseconds);
    long receive(char *to, std::size_t room);
    long transmit(std::string_view bytes);
    short eventsToWaitFor(long result, short plainEvents);

    const StopSignal &stop_;
    int socket_;
    Tap tap_;
    std::unique_ptr<SSL, Freed> ssl_;
    bool broken_ = false; ///< TLS failed; nothing more may be said through it.
    std::string buffer_;  ///< Read from the connection and not yet asked for.
};

} // namespace corvia
