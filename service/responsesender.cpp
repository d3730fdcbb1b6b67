// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "responsesender.h"

#include <algorithm>

namespace corvia {

namespace {

std::string startOfFlood()
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<reply version=\"1\"><success/><messages>";
}

} // namespace

ResponseSender::ResponseSender(Channel &channel)
    : channel_(channel)
{
}

bool ResponseSender::send(const std::string &response, const Fault &fault)
{
    switch (fault.kind) {
    case Fault::Kind::Stall:
        channel_.waitUntilGone();
        return false;
    case Fault::Kind::Close:
        return false;
    case Fault::Kind::Drip:
        return drip(response, fault.number);
    case Fault::Kind::Truncate:
        truncate(response);
        return false;
    case Fault::Kind::Flood:
        flood(fault.number);
        return false;
    case Fault::Kind::HeaderFlood:
        floodHeaders();
        return false;
    case Fault::Kind::Delay:
        return channel_.pause(fault.number) && channel_.write(response);
    default:
        return channel_.write(response);
    }
}

bool ResponseSender::drip(const std::string &response, int milliseconds)
{
    for (const char byte : response) {
        if (!channel_.write(std::string_view(&byte, 1)) || !channel_.pause(milliseconds)) {
            return false;
        }
    }
    return true;
}

void ResponseSender::truncate(const std::string &response)
{
    const std::size_t end = response.find("\r\n\r\n");
    const std::size_t head = end == std::string::npos ? 0 : end + 4;
    channel_.write(std::string_view(response).substr(0, head + (response.size() - head) / 2));
}

void ResponseSender::flood(int size)
{
    // The length is not announced: a client has to count for itself.
    channel_.write(
        "HTTP/1.1 200 OK\r\nContent-Type: application/xml; charset=utf-8\r\nConnection: close\r\n\r\n");
    std::string block = startOfFlood();
    std::size_t left = static_cast<std::size_t>(std::max(size, 0));
    while (size <= 0 || left > 0) {
        block.resize(16384, ' ');
        const std::size_t part = size <= 0 ? block.size() : std::min(left, block.size());
        if (!channel_.write(std::string_view(block).substr(0, part))) {
            return;
        }
        left -= std::min(left, part);
        block.clear();
    }
}

void ResponseSender::floodHeaders()
{
    bool open = channel_.write("HTTP/1.1 200 OK\r\nContent-Type: application/xml; charset=utf-8\r\n");
    for (int i = 1; open; ++i) {
        open = channel_.write("X-Corvia-" + std::to_string(i) + ": " + std::string(64, 'x') + "\r\n");
    }
}

} // namespace corvia
