// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "accountconversation.h"

#include "responsesender.h"

#include <httplib.h>
#include <utility>

namespace corvia {

namespace {

const int idleSeconds = 60;
const std::size_t greatestRequest = 1048576; // bytes
const char *const mediaType = "application/xml; charset=utf-8";

// Lets the library read from the channel, and keeps what it writes until the whole response is there.
class ChannelStream : public httplib::Stream {
public:
    explicit ChannelStream(Channel &channel)
        : channel_(channel)
    {
    }

    bool is_readable() const override { return true; }
    bool is_writable() const override { return true; }
    void get_remote_ip_and_port(std::string &ip, int &port) const override
    {
        get_local_ip_and_port(ip, port);
    }
    socket_t socket() const override { return channel_.descriptor(); }

    void get_local_ip_and_port(std::string &ip, int &port) const override
    {
        ip = "127.0.0.1";
        port = 0;
    }

    ssize_t read(char *to, size_t room) override
    {
        // The library still wants to read: what it has written was an interim response the client waits for.
        if (!written_.empty() && !channel_.write(std::exchange(written_, std::string()))) {
            return -1;
        }
        return static_cast<ssize_t>(channel_.read(to, room));
    }

    ssize_t write(const char *bytes, size_t count) override
    {
        written_.append(bytes, count);
        return static_cast<ssize_t>(count);
    }

    const std::string &written() const { return written_; }

private:
    Channel &channel_;
    std::string written_;
};

class Conversation : public httplib::Server {
public:
    Conversation(Channel &channel, const AccountParts &parts)
        : channel_(channel)
        , parts_(parts)
    {
        set_payload_max_length(greatestRequest);
        set_keep_alive_timeout(idleSeconds);
        set_keep_alive_max_count(1000); // only told to the client
        Post("/account", [this](const httplib::Request &request, httplib::Response &response) {
            answer(request, response);
        });
    }

    // True when the connection is good for another request.
    bool serveOne()
    {
        answered_ = false;
        fault_ = Fault();
        ChannelStream stream(channel_);
        bool last = false;
        if (!process_request(stream, false, last, refuseExtras)) {
            return false;
        }
        // A request that never came to the account is not worth another one on the same connection.
        return ResponseSender(channel_).send(stream.written(), fault_) && answered_ && !last;
    }

private:
    // Replies are sent whole and uncoded, whatever the client would accept.
    static void refuseExtras(httplib::Request &request)
    {
        request.headers.erase("Accept-Encoding");
        request.ranges.clear();
    }

    void answer(const httplib::Request &request, httplib::Response &response)
    {
        answered_ = true;
        if (request.get_header_value("Content-Type").compare(0, 15, "application/xml") != 0) {
            response.status = 415;
            return;
        }
        parts_.records.addRequest(request.body);
        const AccountRequest read = parts_.desk.read(request.body);
        fault_ = parts_.faults.faultFor(read.name);
        response.status = 200;
        response.set_content(parts_.desk.answer(read, fault_), mediaType);
        spoil(response);
    }

    // The faults that are about the response's head and body; those about its sending come later.
    void spoil(httplib::Response &response) const
    {
        switch (fault_.kind) {
        case Fault::Kind::Status:
            response.status = fault_.number;
            break;
        case Fault::Kind::Body:
            response.body = fault_.text;
            break;
        case Fault::Kind::Redirect:
            response.status = fault_.number != 0 ? fault_.number : 302;
            response.set_header("Location", fault_.text);
            response.body.clear();
            break;
        case Fault::Kind::Encoding:
            response.set_header("Content-Encoding", "gzip");
            break;
        default:
            break;
        }
    }

    Channel &channel_;
    const AccountParts parts_;
    Fault fault_;
    bool answered_ = false;
};

} // namespace

void converse(Channel &channel, const AccountParts &parts)
{
    Conversation conversation(channel, parts);
    while (channel.waitForBytes(idleSeconds * 1000) && conversation.serveOne()) {
    }
}

} // namespace corvia
