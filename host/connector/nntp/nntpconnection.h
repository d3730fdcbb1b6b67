// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "linereader.h"

#include <QByteArray>
#include <QtGlobal>

#include <memory>
#include <optional>
#include <string_view>

class ByteStream;
class Core;
class QString;
class WaitBudget;

/// The lines of one connection to a news server, plain or TLS. Blocking, for one thread that needs no event
/// loop; every wait ends with its budget. Once anything has failed the connection stays closed until open().
class NntpConnection {
public:
    /// What a line of a reply may have in bytes, its end included.
    static constexpr int LongestReply = 4096;

    /// @p core is not owned and outlives the connection. A line may have @p longestLine bytes, its end
    /// included.
    explicit NntpConnection(Core &core, int longestLine = LongestReply);
    /// Closes at once, without waiting for the server.
    ~NntpConnection();
    Q_DISABLE_COPY(NntpConnection)

    /// Drops any connection there is and makes a new one. With @p ssl, TLS 1.2 or later starts with the first
    /// byte (RFC 8143), and the certificate has to name @p host and come from an authority of the system's or
    /// of Core::authorityFile().
    bool open(const QString &host, quint16 port, bool ssl, const WaitBudget &budget);
    bool isOpen() const;
    void close();

    /// The next line without its end, or nothing: the server closed, sent more than a line may have without
    /// ending it, or the budget is over. The connection is closed then.
    std::optional<QByteArray> readLine(const WaitBudget &budget);
    /// The next line without its end if it has arrived as a whole. Does not wait; good until the next call.
    std::optional<std::string_view> nextLine() { return m_lines.nextLine(); }
    /// Waits until more bytes have arrived. False when none will help: as for readLine().
    bool receive(const WaitBudget &budget);
    /// The bytes that came since this object was made.
    qint64 received() const { return m_received; }
    /// Whether bytes have arrived that no line has been made of yet. Does not wait.
    bool hasUnread();
    /// Sends @p line, which already ends with CRLF.
    bool send(const QByteArray &line);

private:
    bool fetch();

    Core &m_core;
    std::unique_ptr<ByteStream> m_stream;
    LineReader m_lines;
    qint64 m_received = 0;
};
