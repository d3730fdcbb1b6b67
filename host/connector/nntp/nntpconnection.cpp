// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nntpconnection.h"

#include "plainstream.h"
#include "tcpdial.h"
#include "tlsstream.h"
#include "waitbudget.h"

#include <halvora/core.h>
#include <halvora/trafficmeter.h>

namespace {

// What is read at once.
constexpr int ChunkSize = 64 * 1024;

} // namespace

NntpConnection::NntpConnection(Core &core, int longestLine)
    : m_core(core)
    , m_lines(longestLine)
{
}

NntpConnection::~NntpConnection() = default;

bool NntpConnection::open(const QString &host, quint16 port, bool ssl, const WaitBudget &budget)
{
    close();
    const int descriptor = TcpDial::open(host, port, budget);
    if (descriptor < 0)
        return false;
    if (!ssl) {
        m_stream = std::make_unique<PlainStream>(descriptor);
        return true;
    }
    auto stream = std::make_unique<TlsStream>(descriptor);
    if (!stream->start(host, m_core.authorityFile(), budget))
        return false;
    m_stream = std::move(stream);
    return true;
}

bool NntpConnection::isOpen() const
{
    return m_stream && m_stream->isOpen();
}

void NntpConnection::close()
{
    m_stream.reset();
    m_lines.clear();
}

std::optional<QByteArray> NntpConnection::readLine(const WaitBudget &budget)
{
    while (!budget.isOver()) {
        if (auto line = m_lines.takeLine())
            return line;
        if (!receive(budget))
            break;
    }
    close();
    return std::nullopt;
}

bool NntpConnection::receive(const WaitBudget &budget)
{
    while (m_stream && !m_lines.isTooLong() && !budget.isOver()) {
        if (fetch())
            return true;
        if (!isOpen())
            break;
        m_stream->wait(budget.slice());
    }
    close();
    return false;
}

bool NntpConnection::hasUnread()
{
    if (isOpen())
        m_stream->wait(std::chrono::milliseconds(0));
    fetch();
    return !m_lines.isEmpty();
}

bool NntpConnection::send(const QByteArray &line)
{
    return isOpen() && m_stream->write(line);
}

/// False when nothing has arrived.
bool NntpConnection::fetch()
{
    if (!m_stream)
        return false;
    const int size = m_stream->read(m_lines.makeRoom(ChunkSize), ChunkSize);
    m_lines.keep(size);
    m_core.traffic().addNntpDown(size);
    m_received += size;
    return size > 0;
}
